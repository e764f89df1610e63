// SPDX-License-Identifier: MIT
// pageview_menu.cpp -- PageView: when and where the menu of the page is asked for.
#include "app/pagehost/pageview.h"

#include "app/pagehost/objectcommands.h"
#include "app/pagehost/pagesession.h"
#include "host/framework/cvxrootobject.h"

#include <QContextMenuEvent>

/// The key of the keyboard for it comes as an event of this kind as well.
void PageView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    if (!m_session || isDragging())
        return;
    if (event->reason() == QContextMenuEvent::Keyboard)
        return openMenuByKey();
    chooseForMenu(mapToScene(event->pos()));
    Q_EMIT menuWanted(event->globalPos());
}

void PageView::openMenuByKey()
{
    if (m_session)
        Q_EMIT menuWanted(viewport()->mapToGlobal(keyboardPlace()));
}

/// As a press does, but what is selected stays so.
void PageView::chooseForMenu(const QPointF &scenePos)
{
    prepareEdit(scenePos);
    if (m_session->editedObject())
        return;
    CVXRootObject *owner = handleOwner(scenePos);
    CVXRootObject *object = owner ? owner : objectUnder(scenePos);
    if (!object)
        scene()->clearSelection();
    else if (!object->graphicsItem()->isSelected())
        m_session->select(object);
}

QPoint PageView::keyboardPlace() const
{
    const QRect shown = viewport()->rect();
    QPoint place = shown.center();
    if (m_session && m_session->editedObject()) {
        place = inputMethodQuery(Qt::ImCursorRectangle).toRect().bottomLeft();
    } else if (m_session && !m_session->page()->getSelectedObjects().isEmpty()) {
        const QRectF bounds = ObjectCommands::selectionBounds(*m_session);
        const QRect selected = mapFromScene(bounds).boundingRect() & shown;
        place = selected.isEmpty() ? place : selected.center();
    }
    return {qBound(shown.left(), place.x(), shown.right()),
            qBound(shown.top(), place.y(), shown.bottom())};
}
