// SPDX-License-Identifier: MIT
#include "app/pagehost/objectsteps.h"

#include "app/page/page.h"
#include "app/page/textobject.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cvxrootobject.h"

#include <utility>

namespace {

const QString wordWrapKey = QStringLiteral("text_wordwrap");
const QString autoWordWrapKey = QStringLiteral("text_auto_wordwrap");

} // namespace

void forgetLastStep(CUndoRedo &stack)
{
    const_cast<QUndoCommand *>(stack.command(stack.index() - 1))->setObsolete(true);
    stack.undo(); // throws an obsolete step away, and does nothing else
}

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

// MoveStep

/// The part of one object, which it keeps alive.
class MoveStep::One : public CWbUndoCmd
{
public:
    One(const Way &way, QUndoCommand *parent)
        : CWbUndoCmd(parent)
        , m_from(way.from)
        , m_to(way.to)
    {
        m_object = way.object;
    }

    void undo() override { place(m_from); }
    void redo() override { place(m_to); }
    void join(const One &next) { m_to = next.m_to; }

private:
    void place(const QPointF &pos)
    {
        if (!m_object)
            return;
        m_object->setPos(pos, /*undo=*/false);
        m_object->updatePreview();
    }

    QPointF m_from;
    QPointF m_to;
};

MoveStep::MoveStep(const QVector<Way> &ways, const QString &name, bool continues)
    : m_continues(continues)
{
    setText(name);
    for (const Way &way : ways)
        new One(way, this); // which owns it
}

int MoveStep::id() const
{
    return 1; // the one kind of step that joins others
}

MoveStep::One *MoveStep::part(int index) const
{
    return static_cast<One *>(const_cast<QUndoCommand *>(child(index)));
}

bool MoveStep::mergeWith(const QUndoCommand *next)
{
    const auto *step = static_cast<const MoveStep *>(next);
    if (!step->m_continues || step->text() != text() || step->childCount() != childCount())
        return false;
    for (int i = 0; i < childCount(); ++i) {
        if (part(i)->object() != step->part(i)->object())
            return false;
    }
    for (int i = 0; i < childCount(); ++i)
        part(i)->join(*step->part(i));
    return true;
}

// ShiftStep

ShiftStep::ShiftStep(CVXRootObject *object, const QPointF &way)
    : m_way(way)
{
    m_object = object;
    setText(QStringLiteral("IDS_ITEM_MOVE"));
}

void ShiftStep::undo()
{
    m_isDone = false;
    move(-m_way);
}

void ShiftStep::redo()
{
    if (!std::exchange(m_isDone, true))
        move(m_way);
}

void ShiftStep::move(const QPointF &way)
{
    if (!m_object)
        return;
    m_object->setPos(m_object->getPos() + way, /*undo=*/false);
    m_object->updatePreview();
}

// TextBoxStep

TextBox TextBox::of(CVXRootObject *object)
{
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    return {object->getPos(), object->getSize(), attributes.value(autoWordWrapKey).toBool()};
}

void TextBox::giveTo(CVXRootObject *object) const
{
    const bool wasEdited = TextCommands::isEditing(object);
    if (!wasEdited)
        TextObject::beginEdit(object);
    object->setSize(size, /*undo=*/false, /*notify=*/true); // the box does not follow any more
    if (follows)
        object->setAllAttributes({{wordWrapKey, true}, {autoWordWrapKey, true}},
                                 /*withUndo=*/false);
    object->setPos(pos, /*undo=*/false);
    if (!wasEdited)
        TextObject::endEdit(object);
}

TextBoxStep::TextBoxStep(CVXRootObject *object, const TextBox &before, const TextBox &after)
    : m_before(before)
    , m_after(after)
{
    m_object = object;
    setText(QStringLiteral("IDS_ITEM_RESIZE"));
}

void TextBoxStep::undo()
{
    m_isDone = false;
    if (m_object)
        m_before.giveTo(m_object);
}

void TextBoxStep::redo()
{
    if (!std::exchange(m_isDone, true) && m_object)
        m_after.giveTo(m_object);
}

// OrderStep

OrderStep::OrderStep(Page *page, const QList<CVXRootObject *> &order, const QString &name)
    : m_page(page)
    , m_before(page->objects())
    , m_after(order)
{
    setText(name);
}

void OrderStep::undo()
{
    m_page->setOrder(m_before);
}

void OrderStep::redo()
{
    m_page->setOrder(m_after);
}
