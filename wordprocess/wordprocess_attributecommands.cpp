// SPDX-License-Identifier: MIT
// wordprocess_attributecommands.cpp -- CWordProcess: the attribute map that a host gives.
// Changes: text, formats, form, orientation, default word; records a step or rebuilds the object.
#include "wordprocess/attributecommand.h"

#include "layout/units.h"
#include "layout/wordmanager.h"

bool CWordProcess::setAllAttributes(const AttributeMap &attributes, bool withUndo)
{
    return AttributeCommand(*this, attributes, withUndo).run();
}

bool CWordProcess::AttributeCommand::run()
{
    const bool fromInputMethod = attributes.contains(AttributeKey::InputMethod);
    if (!fromInputMethod)
        object.endComposition();
    if (records)
        before = object.m_fontReplaceData.isEmpty() ? object.serialize(false)
                                                    : object.m_fontReplaceData;
    changed = object.CVXRootObject::setAllAttributes(attributes, withUndo);
    if (takeWordWrap())
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
    return changed && finish();
}

/// \return true when the text has become line text: everything is rebuilt then, and the other keys of the
/// map do not count
bool CWordProcess::AttributeCommand::takeWordWrap()
{
    const auto value = attributes.constFind(AttributeKey::WordWrap);
    if (value == attributes.constEnd())
        return false;
    const bool wrapped = value->toBool();
    object.m_autoWordWrap = attributes.value(AttributeKey::AutoWordWrap).toBool();
    wrapKey = true;
    changed = true;
    if (wrapped == object.m_wordWrap)
        return false;
    if (!wrapped)
        return turnIntoLineText();
    object.m_wordWrap = true;
    object.m_wordManager->setWordWrap(true);
    object.updateControlHandles();
    layoutIsStale = true;
    return false;
}

bool CWordProcess::AttributeCommand::turnIntoLineText()
{
    QPointF anchor;
    if (!object.wordwrap2single(anchor))
        return false;
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
    return true;
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
        object.pushUndoRedo(before, object.serialize(false));
    else
        object.updateBoundingRectImpl(false);
    return withUndo;
}

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
        object.pushUndoRedo(before, after);
    else
        object.undoRedo(after, true);
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
