// SPDX-License-Identifier: MIT
#include "app/pagehost/objectsteps.h"

#include "app/page/page.h"
#include "host/framework/cvxrootobject.h"

PresenceStep::PresenceStep(Change change, Page *page, CVXRootObject *object)
    : m_change(change)
    , m_page(page)
    , m_place(page->objects().indexOf(object))
{
    m_object = object;
    setText(change == Change::Adds ? QStringLiteral("IDS_ITEM_ADD_ITEM")
                                   : QStringLiteral("IDS_ITEM_DELETE_ITEM"));
}

PresenceStep::~PresenceStep()
{
    if (m_keepsObject && m_object)
        m_object->Release(); // it waits for the other steps that refer to it
}

void PresenceStep::undo()
{
    if (m_change == Change::Adds)
        takeFromPage();
    else
        putOnPage();
}

void PresenceStep::redo()
{
    if (m_change == Change::Adds)
        putOnPage();
    else
        takeFromPage();
}

void PresenceStep::putOnPage()
{
    m_keepsObject = false;
    if (m_object)
        m_page->insertObject(m_place, m_object);
}

void PresenceStep::takeFromPage()
{
    if (!m_object)
        return;
    const int place = m_page->takeObject(m_object);
    if (place < 0)
        return;
    m_place = place;
    m_keepsObject = true;
}

AttributeStep::AttributeStep(CVXRootObject *object, const AttributeMap &before,
                             const AttributeMap &after, const QString &name)
    : m_before(before)
    , m_after(after)
{
    m_object = object;
    setText(name);
}

void AttributeStep::undo()
{
    if (m_object)
        m_object->setAllAttributes(m_before, /*withUndo=*/false);
}

void AttributeStep::redo()
{
    if (m_object)
        m_object->setAllAttributes(m_after, /*withUndo=*/false);
}
