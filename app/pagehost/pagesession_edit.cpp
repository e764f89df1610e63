// SPDX-License-Identifier: MIT
// pagesession_edit.cpp -- PageSession: what becomes of an open edit among the undo steps.
#include "app/pagehost/pagesession.h"

#include "app/pagehost/textcommands.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QScopedValueRollback>

#include <utility>

namespace {

const QString editKey = QStringLiteral("IDS_IMAGE_ADJUST_ATTRIBUTE"); // as texts name their steps

} // namespace

void PageSession::noteEditInput()
{
    m_edit.noteInput();
    announce();
}

void PageSession::prepareEndOfEdit()
{
    giveUpEditDrag();
    m_edit.recordFormats(*undoStack());
}

/// A step that comes within an edit has taken in what was changed ahead of it.
void PageSession::followSteps()
{
    CVXRootObject *edited = editedObject();
    if (edited && !m_isRecordingNewText)
        m_edit.begin(edited);
    announce();
}

/// In the middle of a change of the text, which is looked at later.
void PageSession::recordNewText()
{
    if (!m_newText || m_newTextIsRecorded)
        return;
    m_newTextIsRecorded = true;
    const QScopedValueRollback<bool> recording(m_isRecordingNewText, true);
    pushPresence(m_newText);
}

// Moves and resizes of an edited text

/// What was typed ahead of the drag is a step of its own: it is undone after the drag.
void PageSession::startEditDrag()
{
    CVXRootObject *edited = editedObject();
    if (!edited || m_editDragged)
        return;
    recordNewText();
    m_edit.record(*undoStack());
    m_editDragged = edited;
    m_boxAheadOfDrag = TextBox::of(edited);
    m_stepsAheadOfDrag = undoStack()->index();
}

void PageSession::finishEditDrag()
{
    CVXRootObject *object = std::exchange(m_editDragged, nullptr);
    if (!object || object != editedObject())
        return;
    CUndoRedo &stack = *undoStack();
    const TextBox now = TextBox::of(object);
    // Deliberate: outside an edit the host's own step would stretch the text that was wrapped anew.
    if (stack.index() == m_stepsAheadOfDrag + 1)
        forgetLastStep(stack);
    if (now.size != m_boxAheadOfDrag.size)
        stack.push(new TextBoxStep(object, m_boxAheadOfDrag, now));
    else if (now.pos != m_boxAheadOfDrag.pos)
        stack.push(new ShiftStep(object, now.pos - m_boxAheadOfDrag.pos));
    object->updatePreview();
}

void PageSession::giveUpEditDrag()
{
    CVXRootObject *object = std::exchange(m_editDragged, nullptr);
    if (object && object == editedObject())
        m_boxAheadOfDrag.giveTo(object);
}

// Undo and redo

void PageSession::undo()
{
    CUndoRedo &stack = *undoStack();
    const bool isTyped = editedObject() && m_edit.isChanged();
    const int target = isTyped ? stack.index() : stack.index() - 1;
    if (editedObject())
        m_edit.redoAll();
    if (!endEdit()) // a text that was empty has gone: that was the undo
        return;
    while (stack.index() > qMax(0, target))
        stack.undo();
}

void PageSession::redo()
{
    if (editedObject() && m_edit.canRedo()) {
        m_edit.redo();
        announce();
        return;
    }
    endEdit();
    undoStack()->redo();
}

void PageSession::undoInEdit()
{
    const bool isDone = m_edit.undo();
    announce();
    const bool isAnyLeft = isDone || m_newText || undoStack()->canUndo() || m_edit.isChanged();
    if (!isDone && isAnyLeft)
        undo();
}

void PageSession::redoInEdit()
{
    const bool isDone = m_edit.redo();
    announce();
    if (!isDone && undoStack()->canRedo() && !m_edit.isChanged())
        redo();
}

bool PageSession::canRedo() const
{
    if (!editedObject())
        return undoStack()->canRedo();
    return m_edit.canRedo() || (undoStack()->canRedo() && !m_edit.isChanged());
}

QString PageSession::undoName() const
{
    return editedObject() && m_edit.isChanged() ? editKey : undoStack()->undoText();
}

QString PageSession::redoName() const
{
    return editedObject() && m_edit.canRedo() ? editKey : undoStack()->redoText();
}
