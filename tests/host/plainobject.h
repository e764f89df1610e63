// SPDX-License-Identifier: MIT
// plainobject.h -- the smallest object that a host can hold: a filled rectangle.
#ifndef PLAINOBJECT_H
#define PLAINOBJECT_H

#include "host/framework/cbaseobject.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

class PlainObject : public CBaseObject
{
public:
    explicit PlainObject(IVxPage *page, const QSizeF &size = QSizeF(100, 50))
        : CBaseObject(7, true, nullptr, page)
    {
        CVXRootObject::setSize(size, false, false);
    }
    ~PlainObject() override
    {
        if (deleted)
            ++*deleted;
    }

    void OnQPainterDraw(QPainter *painter) override { painter->fillRect(m_clientRect, Qt::red); }

    AttributeMap &params() { return m_saveParams; }
    AttributeMap &handleParams() { return m_otherParams; }
    int activeHandle() const { return m_activeHandle; }
    void invert(QPainterPath area) { m_drawDelegate->setInvertArea(area); }
    QRectF clientShapeRect() const { return m_clientShape->boundingRect(); }

    int *deleted = nullptr; ///< counts destructions
};

/// Sends one mouse event to \a object at a scene position.
inline void sendMouse(CBaseObject &object, QEvent::Type type, const QPointF &scenePos,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(scenePos);
    event.setPos(object.mapFromScene(scenePos));
    event.setButton(Qt::LeftButton);
    event.setButtons(Qt::LeftButton);
    event.setModifiers(modifiers);
    if (type == QEvent::GraphicsSceneMousePress)
        object.mousePressEvent(&event);
    else if (type == QEvent::GraphicsSceneMouseMove)
        object.mouseMoveEvent(&event);
    else
        object.mouseReleaseEvent(&event);
}

inline void drag(CBaseObject &object, const QPointF &from, const QPointF &to,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    sendMouse(object, QEvent::GraphicsSceneMousePress, from, modifiers);
    sendMouse(object, QEvent::GraphicsSceneMouseMove, (from + to) / 2, modifiers);
    sendMouse(object, QEvent::GraphicsSceneMouseMove, to, modifiers);
    sendMouse(object, QEvent::GraphicsSceneMouseRelease, to, modifiers);
}

/// Distance of two points, for comparisons with a tolerance.
inline double distance(const QPointF &a, const QPointF &b)
{
    return QLineF(a, b).length();
}

#endif
