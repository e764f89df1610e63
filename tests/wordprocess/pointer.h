// SPDX-License-Identifier: MIT
// pointer.h -- text objects ready for the pointer, and the events that it sends.
#ifndef POINTER_H
#define POINTER_H

#include "openword.h"

#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>

namespace Pointer {
inline void prepare(QGraphicsSceneMouseEvent &event, const QPointF &scenePos,
                    Qt::MouseButton button = Qt::LeftButton)
{
    event.setScenePos(scenePos);
    event.setButton(button);
    event.setButtons(button);
}

inline void press(CWordProcess &object, const QPointF &scenePos,
                  Qt::MouseButton button = Qt::LeftButton)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMousePress);
    prepare(event, scenePos, button);
    object.mousePressEvent(&event);
}

inline void move(CWordProcess &object, const QPointF &scenePos)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseMove);
    prepare(event, scenePos);
    object.mouseMoveEvent(&event);
}

inline void release(CWordProcess &object, const QPointF &scenePos)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseRelease);
    prepare(event, scenePos);
    object.mouseReleaseEvent(&event);
}

inline void clickTwice(CWordProcess &object, const QPointF &scenePos)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseDoubleClick);
    prepare(event, scenePos);
    object.mouseDoubleClickEvent(&event);
}

inline void hover(CWordProcess &object, const QPointF &scenePos)
{
    QGraphicsSceneHoverEvent event(QEvent::GraphicsSceneHoverMove);
    event.setScenePos(scenePos);
    object.hoverMoveEvent(&event);
}
} // namespace Pointer

/// Line text in edit state whose client rectangle has its corner at the scene's (0, 0): in 16 px letters of
/// 8 px, row after row of 16 px, or columns of 16 px with 8 px between them.
inline void editLineText(OpenWord &word, const QString &text,
                         Qt::Orientation orientation = Qt::Horizontal,
                         const QTextCharFormat &format = OpenWord::format())
{
    word.m_textOrientation = orientation;
    word.beginEdit();
    word.add(text, format);
    word.setPos(QPointF(0, 0), false);
}

/// Box text in edit state in a box of \a size with its corner at the scene's (0, 0).
inline void editBoxText(OpenWord &word, const QString &text, const QSizeF &size,
                        Qt::Orientation orientation = Qt::Horizontal)
{
    word.m_textOrientation = orientation;
    word.m_wordWrap = true;
    word.m_wordManager->setWordWrap(true);
    word.m_clientRect = QRectF(QPointF(0, 0), size);
    word.m_textPathsRect = word.m_clientRect;
    word.beginEdit();
    word.add(text);
}

#endif
