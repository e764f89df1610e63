// SPDX-License-Identifier: MIT
#include "app/page/page.h"

#include "app/page/document.h"
#include "host/framework/cvxrootobject.h"

#include <QCoreApplication>
#include <QGraphicsItem>

#include <algorithm>
#include <cmath>

Page::Page(Document *document)
    : m_document(document)
{
    m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
}

Page::~Page()
{
    while (!m_objects.isEmpty())
        removeObject(m_objects.last());
}

void Page::addObject(CVXRootObject *object)
{
    insertObject(m_objects.size(), object);
}

void Page::insertObject(int index, CVXRootObject *object)
{
    if (!object || m_objects.contains(object))
        return;
    object->setBelongPage(this);
    const int place = qBound(0, index, m_objects.size());
    m_objects.insert(place, object);
    numberObjects(place);
    m_scene.addItem(object->GetGraphicsItemPtr());
}

void Page::removeObject(CVXRootObject *object)
{
    if (takeObject(object) >= 0)
        object->Release();
}

int Page::takeObject(CVXRootObject *object)
{
    const int index = m_objects.indexOf(object);
    if (index < 0)
        return -1;
    m_objects.removeAt(index);
    if (m_editing == object)
        m_editing = nullptr;
    m_scene.removeItem(object->GetGraphicsItemPtr());
    numberObjects(index);
    return index;
}

void Page::setOrder(const QList<CVXRootObject *> &order)
{
    if (order.size() != m_objects.size()
        || !std::is_permutation(order.begin(), order.end(), m_objects.begin()))
        return;
    m_objects = order;
    numberObjects(0);
}

/// The list tells the order in which objects lie over each other.
void Page::numberObjects(int from)
{
    for (int i = from; i < m_objects.size(); ++i)
        m_objects.at(i)->setZorder(i);
}

void Page::setZoomRate(float zoom)
{
    if (std::isfinite(zoom) && zoom > 0.0f)
        m_zoom = zoom;
}

void Page::takeFocus()
{
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&m_scene, &activation);
    m_scene.setFocus();
}

QList<CVXRootObject *> Page::getSelectedObjects()
{
    QList<CVXRootObject *> selected;
    for (CVXRootObject *object : qAsConst(m_objects)) {
        if (object->GetGraphicsItemPtr()->isSelected())
            selected.append(object);
    }
    return selected;
}

void Page::setEditingObject(CVXRootObject *object, bool editing)
{
    if (editing)
        m_editing = object;
    else if (m_editing == object)
        m_editing = nullptr;
    if (m_watcher)
        m_watcher->editingChanged(object, editing);
}

// Signals of the scene are held back while a batch is open: its observers then see the whole.
void Page::beginObjectBatch()
{
    if (m_batchDepth++ == 0)
        m_scene.blockSignals(true);
}

void Page::endObjectBatch()
{
    if (m_batchDepth == 0 || --m_batchDepth > 0)
        return;
    m_scene.blockSignals(false);
    m_scene.update();
    Q_EMIT m_scene.selectionChanged();
}

IDocumentHost *Page::getDocument()
{
    return m_document;
}

CUndoRedo *Page::undoStack()
{
    return m_document ? m_document->undoStack() : nullptr;
}

void Page::objectPreviewChanged(CVXRootObject *object)
{
    if (m_objects.contains(object))
        object->GetGraphicsItemPtr()->update();
    if (m_watcher)
        m_watcher->objectChanged(object);
}

void Page::objectCreated(CVXRootObject *object)
{
    if (m_watcher)
        m_watcher->objectDrawn(object);
}
