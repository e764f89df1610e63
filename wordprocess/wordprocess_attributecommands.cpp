// SPDX-License-Identifier: MIT
// wordprocess_attributecommands.cpp -- CWordProcess: the attribute map that a host gives, the first half of
// AttributeCommand: the order of a command, form, text and default word, and where the change ends.
// Changes: text, form, default word, the layout; records a step or rebuilds the object.
#include "wordprocess/attributecommand.h"

#include "layout/units.h"
#include "layout/wordmanager.h"

#include <QScopedValueRollback>

bool CWordProcess::setAllAttributes(const AttributeMap &attributes, bool withUndo)
{
    return AttributeCommand(*this, attributes, withUndo).run();
}

bool CWordProcess::AttributeCommand::run()
{
    const QScopedValueRollback<bool> quiet(object.m_quiet, object.m_quiet || fromInputMethod);
    if (records)
        takeStartOfStep();
    changed = object.CVXRootObject::setAllAttributes(attributes, withUndo);
    if (takeWordWrap() == Progress::IsOver)
        return true;
    takeText();
    takeDefaultWord();
    if (isLetterSpacingOfOneCharacter())
        return setLetterSpacingOfOneCharacter();
    gatherFormats();
    const bool blockChanged = !blockFormat.isEmpty() && object.updateBlockFormat(blockFormat);
    const bool charChanged = !charFormat.isEmpty() && object.updateCharFormat(charFormat);
    if (fromInputMethod)
        return true;
    layoutIsStale = layoutIsStale || blockChanged;
    changed = changed || blockChanged || charChanged;
    if (changed)
        return finish();
    if (layoutIsStale) // an orientation that stays has hidden the change
        object.updateBoundingRectImpl(true);
    return false;
}

void CWordProcess::AttributeCommand::takeStartOfStep()
{
    object.endComposition(); // none is open in a step
    if (object.m_fontReplaceData.isEmpty()) {
        before = object.serialize(false);
        return;
    }
    before = object.m_fontReplaceData;
    stepStart = StepStart::Held;
}

/// The command is over when the text has become line text: everything is rebuilt then, and the other keys
/// of the map do not count.
CWordProcess::AttributeCommand::Progress CWordProcess::AttributeCommand::takeWordWrap()
{
    const auto value = attributes.constFind(AttributeKey::WordWrap);
    if (value == attributes.constEnd())
        return Progress::GoesOn;
    const bool wrapped = value->toBool();
    const bool follows = attributes.value(AttributeKey::AutoWordWrap).toBool();
    if (wrapped && follows != object.m_autoWordWrap)
        layoutIsStale = true; // the box follows its text from now on, or no longer
    object.m_autoWordWrap = follows;
    wrapKey = true;
    changed = true;
    if (wrapped == object.m_wordWrap)
        return Progress::GoesOn;
    if (!wrapped)
        return turnIntoLineText();
    object.m_wordWrap = true;
    object.m_wordManager->setWordWrap(true);
    object.updateControlHandles();
    layoutIsStale = true;
    return Progress::GoesOn;
}

CWordProcess::AttributeCommand::Progress CWordProcess::AttributeCommand::turnIntoLineText()
{
    QPointF anchor;
    if (!object.wordwrap2single(anchor))
        return Progress::GoesOn;
    object.m_textOffset = anchor;
    object.m_wordWrap = false;
    object.m_wordManager->setWordWrap(false);
    object.undoRedo(object.serialize(false), false);
    object.m_scaleX *= object.m_transformScaleX; // line text has one stretch only
    object.m_scaleY *= object.m_transformScaleY;
    object.m_transformScaleX = 1.0;
    object.m_transformScaleY = 1.0;
    recordOrRebuild();
    object.updateControlHandles();
    return Progress::IsOver;
}

void CWordProcess::AttributeCommand::takeText()
{
    const auto value = attributes.constFind(AttributeKey::Text);
    if (value == attributes.constEnd())
        return;
    object.m_selStart = 0;
    object.m_selEnd = object.m_document->characterCount() - 1;
    object.removeSelectedText();
    object.m_cursor->insertText(value->toString());
    changed = true;
    layoutIsStale = true;
}

void CWordProcess::AttributeCommand::takeDefaultWord()
{
    const auto value = attributes.constFind(AttributeKey::DefaultWord);
    if (value == attributes.constEnd() || value->toString() == object.m_defaultWord)
        return;
    object.m_defaultWord = value->toString();
    changed = true;
}

/// In edit state the key alone, without a selection, spaces the one character at the caret.
bool CWordProcess::AttributeCommand::isLetterSpacingOfOneCharacter() const
{
    return object.m_editing && attributes.size() == 1 && !hasSelection()
           && attributes.contains(AttributeKey::LetterSpacing)
           && !isMixed(attributes.value(AttributeKey::LetterSpacing));
}

bool CWordProcess::AttributeCommand::setLetterSpacingOfOneCharacter()
{
    object.setCharLetterSpacing(finiteReal(attributes.value(AttributeKey::LetterSpacing)));
    if (withUndo)
        object.pushStep(before, object.serialize(false), stepStart);
    else
        object.updateBoundingRectImpl(false);
    return withUndo;
}

/// Where a change ends:
///   outside edit state, or with a selection   a step, or rebuilt without one
///   at a caret, with a step, and with a form  a step
///   at a caret otherwise                      shown; what is typed there belongs to the step of the edit
/// \return whether a step was wanted
bool CWordProcess::AttributeCommand::finish()
{
    const bool rebuilds = !object.m_editing || hasSelection();
    if (records)
        object.m_fontReplaceData.clear();
    if (rebuilds || (records && wrapKey))
        recordOrRebuild();
    else
        showCaretFormat();
    return withUndo;
}

/// Both lay the object out anew and tell the listeners.
void CWordProcess::AttributeCommand::recordOrRebuild()
{
    const QString after = object.serialize(false);
    if (records)
        object.pushStep(before, after, stepStart);
    else
        object.undoRedo(after, /*notify=*/!fromInputMethod);
}

/// A format at the caret is for what is typed next: the text that results is recorded with the edit.
void CWordProcess::AttributeCommand::showCaretFormat()
{
    if (layoutIsStale || object.toPlainText().isEmpty())
        object.updateBoundingRectImpl(true);
    object.notifyTextOperation(TextOperationAttributes, {});
}

bool CWordProcess::AttributeCommand::hasSelection() const
{
    int start = 0;
    int end = 0;
    return object.selection(start, end);
}
