// SPDX-License-Identifier: MIT
// vxarttext_mouse.cpp -- CVxArtText: drawing a new object, keys and pointer, selection.
// Changes: m_pressPos, m_dragPos, m_handlePressed, m_handleFlag; while it is drawn m_clientRect.
// What is not the text's business goes on to the host's handling.
#include "arttext/vxarttext.h"

#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QtDebug>

namespace {
const QPointF clickedSize(100.0, 100.0); // of an object that is made by a click
}

void CVxArtText::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    if (!m_created) {
        m_pressPos = event->pos();
        m_dragPos = event->pos();
        event->accept();
    } else if (m_editing) {
        QGraphicsTextItem::mousePressEvent(event);
    } else {
        m_handleFlag = HitTestHandle(event->pos());
        m_handlePressed = m_handleFlag != CObjAction::ACT_None;
        CBaseObject::mousePressEvent(event);
    }
}

void CVxArtText::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    if (!m_created) {
        m_dragPos = event->scenePos() - getPos();
        setClientRect(QRectF(m_pressPos, m_dragPos).normalized());
        updateAfterObjRectChanged(this, /*notify=*/true);
    } else if (m_editing) {
        QGraphicsTextItem::mouseMoveEvent(event);
    } else {
        m_handlePressed = true;
        CBaseObject::mouseMoveEvent(event);
    }
}

void CVxArtText::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    if (!m_created) {
        finishDrawing(*event);
    } else if (m_editing) {
        QGraphicsTextItem::mouseReleaseEvent(event);
    } else {
        LimitClientRect();
        CBaseObject::mouseReleaseEvent(event);
    }
}

void CVxArtText::finishDrawing(const QGraphicsSceneMouseEvent &event)
{
    const bool isClick = m_pressPos == m_dragPos; // the fuzzy comparison of points
    m_dragPos = isClick ? m_pressPos + clickedSize : event.scenePos() - getPos();
    setClientRect(QRectF(m_pressPos, m_dragPos).normalized());
    LimitClientRect();
    // A finished object has its client rectangle at its own origin, as records know no other.
    updatePosition(this, QRectF(mapToScene(m_clientRect.topLeft()), m_clientRect.size()));
    onCreateFinished(true); // the host sets m_created
}

void CVxArtText::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    if (isLocked()) {
        event->ignore();
        return;
    }
    if (m_editing) {
        QGraphicsTextItem::mouseDoubleClickEvent(event);
        return;
    }
    m_editing = true;
    m_actionState->editing = 1;
    enterEdit();
    // Deliberate: where no edit begins, leaving it would replace the text with what the item held.
    if (textInteractionFlags() == Qt::NoTextInteraction) {
        m_editing = false;
        m_actionState->editing = 0;
    }
}

void CVxArtText::contextMenuEvent(QGraphicsSceneContextMenuEvent * /*event*/)
{
    qDebug("CVxArtText::contextMenuEvent");
}

void CVxArtText::keyPressEvent(QKeyEvent *event)
{
    if (!event)
        return;
    QGraphicsTextItem::keyPressEvent(event);
    updateBoundingRect();
}

QVariant CVxArtText::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSelectedHasChanged) {
        setShowHandles(this, isSelected(), /*repaint=*/true);
        if (!isSelected()) {
            m_handleFlag = CObjAction::ACT_None;
            const QPointer<CVxArtText> alive(this); // listeners to the stack may release the object
            EndEdit();
            if (!alive)
                return value;
        }
    }
    return CBaseObject::itemChange(change, value);
}
