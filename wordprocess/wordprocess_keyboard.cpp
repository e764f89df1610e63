// SPDX-License-Identifier: MIT
// wordprocess_keyboard.cpp -- CWordProcess: keys, caret motion, and the selection that keys act on.
// Changes: the document at the cursor, m_cursor, m_selStart, m_selEnd, m_selAnchor, m_cursorAtLineEnd.
// Asks for a layout with updateBoundingRectImpl(); never lays out and never paints by itself.
#include "wordprocess/cwordprocess.h"

#include "layout/textproperties.h"
#include "layout/wordmanager.h"
#include "wordprocess/fragmentwalk.h"
#include "wordprocess/keycommand.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace {
enum class Motion { None, LineStart, LineEnd, Previous, Next, PreviousLine, NextLine };

struct MotionKey {
    Qt::Key key;
    Motion horizontal;
    Motion vertical; // columns run from right to left
};

// clang-format off
constexpr MotionKey motionKeys[] = {
    // key          horizontal            vertical
    {Qt::Key_Home,  Motion::LineStart,    Motion::LineStart},
    {Qt::Key_End,   Motion::LineEnd,      Motion::LineEnd},
    {Qt::Key_Left,  Motion::Previous,     Motion::NextLine},
    {Qt::Key_Right, Motion::Next,         Motion::PreviousLine},
    {Qt::Key_Up,    Motion::PreviousLine, Motion::Previous},
    {Qt::Key_Down,  Motion::NextLine,     Motion::Next},
};
// clang-format on

Motion motionOf(int key, bool isHorizontal)
{
    for (const MotionKey &row : motionKeys) {
        if (row.key == key)
            return isHorizontal ? row.horizontal : row.vertical;
    }
    return Motion::None;
}

/// A line as the caret sees it: its first and its last position.
struct CaretLine {
    int first;
    int last;
};

/// An empty paragraph has one position: the next one is the next paragraph's.
QVector<CaretLine> caretLinesOf(const TextLayout &layout)
{
    QVector<CaretLine> lines;
    lines.reserve(layout.lines.size());
    for (const TextLine &line : layout.lines)
        lines.append({line.position, line.position + (line.isEmptyBlock ? 0 : line.length)});
    return lines;
}

/// Generated hyphens, which have no position, do not count.
QVector<CaretLine> caretLinesOf(const QList<STextLine> &legacyLines)
{
    QVector<CaretLine> lines;
    for (const STextLine &line : legacyLines) {
        int first = -1;
        int length = 0;
        for (const STextItem &item : line.items) {
            if (item.isHyphen)
                continue;
            if (first < 0)
                first = item.firstPosition();
            length += item.text.size();
        }
        if (first >= 0)
            lines.append({first, first + length});
    }
    return lines;
}

struct CaretPlace {
    int line;
    int offset; ///< from the first position of the line
};

/// \param atNextLine  on the seam of two lines the caret stands at the start of the second
CaretPlace placeOf(int position, const QVector<CaretLine> &lines, bool atNextLine)
{
    for (int i = 0; i < lines.size(); ++i) {
        const CaretLine &line = lines.at(i);
        if (position < line.first || position > line.last)
            continue;
        const bool isSeam = position == line.last && i + 1 < lines.size()
                            && lines.at(i + 1).first == position;
        return isSeam && atNextLine ? CaretPlace{i + 1, 0} : CaretPlace{i, position - line.first};
    }
    return {0, 0};
}

/// What a key types: tabs, but no other control character.
QString typedText(const QKeyEvent &event)
{
    QString text;
    for (const QChar character : event.text()) {
        if (character == QLatin1Char('\t') || character.category() != QChar::Other_Control)
            text.append(character);
    }
    return text;
}
} // namespace

/// A key with the modifiers that are held down, which count more than those that the event tells.
struct CWordProcess::KeyPress {
    explicit KeyPress(const QKeyEvent &keyEvent)
        : event(keyEvent)
        , modifiers(QGuiApplication::queryKeyboardModifiers())
    {
        if (modifiers == Qt::NoModifier)
            modifiers = event.modifiers();
    }
    bool isShifted() const { return modifiers.testFlag(Qt::ShiftModifier); }
    bool isBlockEdge() const
    {
        const Qt::KeyboardModifiers unasked = Qt::ShiftModifier | Qt::KeypadModifier;
        return (event.key() == Qt::Key_Home || event.key() == Qt::Key_End)
               && (modifiers & ~unasked) == Qt::ControlModifier;
    }

    const QKeyEvent &event;
    Qt::KeyboardModifiers modifiers;
};

void CWordProcess::keyPressEvent(QKeyEvent *event)
{
    if (!event)
        return;
    if (!m_editing) {
        event->ignore();
        return;
    }
    event->accept(); // a key that does nothing must not reach the host's shortcuts either
    const KeyPress press(*event);
    const KeyAction action = keyAction(press);
    if (action && (this->*action)(press))
        notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

/// Claims the keys of an edit ahead of the program's shortcuts, and keeps the item's own text control away from
/// the tab key.
bool CWordProcess::sceneEvent(QEvent *event)
{
    const KeepAlive guard(*this);
    if (!m_editing)
        return CBaseObject::sceneEvent(event);
    if (event->type() == QEvent::ShortcutOverride) {
        event->setAccepted(actsOn(KeyPress(*static_cast<QKeyEvent *>(event))));
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        auto *const keyEvent = static_cast<QKeyEvent *>(event);
        if (keyEvent->key() == Qt::Key_Tab || keyEvent->key() == Qt::Key_Backtab) {
            keyPressEvent(keyEvent);
            return true;
        }
    }
    return CBaseObject::sceneEvent(event);
}

/// The tests stand in a fixed order: an arrow with Alt is a command, never a motion. Null for a key that is
/// swallowed.
CWordProcess::KeyAction CWordProcess::keyAction(const KeyPress &press)
{
    struct StandardKey {
        QKeySequence::StandardKey key;
        KeyAction action;
    };
    static const StandardKey standardKeys[] = {
        {QKeySequence::SelectAll, &CWordProcess::keySelectAll},
        {QKeySequence::Undo, &CWordProcess::keyUndo},
        {QKeySequence::Redo, &CWordProcess::keyRedo},
        {QKeySequence::Copy, &CWordProcess::keyCopy},
        {QKeySequence::Cut, &CWordProcess::keyCut},
        {QKeySequence::Paste, &CWordProcess::keyPaste},
    };
    for (const StandardKey &standard : standardKeys) {
        if (press.event.matches(standard.key))
            return standard.action;
    }
    if (keyCommandFor(press.event.key(), press.modifiers))
        return &CWordProcess::keyCommand;
    if (press.isBlockEdge())
        return &CWordProcess::keyBlockEdge;
    if (press.modifiers & (Qt::ControlModifier | Qt::AltModifier))
        return nullptr;
    switch (press.event.key()) {
    case Qt::Key_Backspace:
        if ((press.event.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier)
            return &CWordProcess::keyBackspace;
        break;
    case Qt::Key_Delete:
        return &CWordProcess::keyDelete;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return &CWordProcess::keyReturn;
    case Qt::Key_Escape:
        return &CWordProcess::keyEscape;
    default:
        if (motionOf(press.event.key(), true) != Motion::None)
            return &CWordProcess::keyMotion;
        break;
    }
    return &CWordProcess::keyText;
}

bool CWordProcess::actsOn(const KeyPress &press)
{
    const KeyAction action = keyAction(press);
    return action == &CWordProcess::keyText ? !typedText(press.event).isEmpty() : action != nullptr;
}

bool CWordProcess::keySelectAll(const KeyPress & /*press*/)
{
    selectAll();
    return true;
}

bool CWordProcess::keyUndo(const KeyPress & /*press*/)
{
    changeHistory(&QTextDocument::undo);
    return true;
}

bool CWordProcess::keyRedo(const KeyPress & /*press*/)
{
    changeHistory(&QTextDocument::redo);
    return true;
}

/// On the document's own stack. What is selected moves with the text around it.
void CWordProcess::changeHistory(void (QTextDocument::*step)())
{
    settleComposition();
    QTextCursor first(m_document);
    QTextCursor last(m_document);
    last.setKeepPositionOnInsert(true); // what comes in behind the selection is not selected
    int start = 0;
    int end = 0;
    const bool wasSelected = hasSelection() && selection(start, end);
    const bool isAnchoredAtEnd = m_selAnchor == m_selEnd;
    first.setPosition(start);
    last.setPosition(end);
    (m_document->*step)();
    if (wasSelected) {
        m_selStart = first.position();
        m_selEnd = qMax(first.position(), last.position());
        m_selAnchor = isAnchoredAtEnd ? m_selEnd : m_selStart;
    }
    showStoredText();
    notifyTextOperation(TextOperationAttributes, {});
}

bool CWordProcess::keyCopy(const KeyPress & /*press*/)
{
    copy();
    return true;
}

bool CWordProcess::keyCut(const KeyPress & /*press*/)
{
    cut();
    showStoredText();
    return true;
}

bool CWordProcess::keyPaste(const KeyPress & /*press*/)
{
    settleComposition();
    if (paste(/*newObject=*/false, /*rich=*/true)) // which lays out itself
        m_cursorAtLineEnd = false;
    return true;
}

bool CWordProcess::keyCommand(const KeyPress &press)
{
    const KeyCommand *command = keyCommandFor(press.event.key(), press.modifiers);
    if (command->boxOnly && !m_wordWrap)
        return false;
    settleComposition();
    CommandedText text{{}, m_textOrientation == Qt::Horizontal};
    if (command->change.readsPresent)
        getAllAttributes(text.present);
    const AttributeMap changed = command->change.attributes(text);
    if (changed.isEmpty())
        return true;
    setAllAttributes(changed, /*withUndo=*/true);
    notifyTextOperation(TextOperationAttributeCommand, changed);
    return true;
}

/// Deliberate: to the ends of the paragraph, not of the document, and never with a selection.
bool CWordProcess::keyBlockEdge(const KeyPress &press)
{
    settleComposition();
    const QTextBlock block = m_cursor->block();
    const bool toStart = press.event.key() == Qt::Key_Home;
    m_cursor->setPosition(toStart ? block.position() : block.position() + block.length() - 1);
    m_selStart = m_selEnd = m_cursor->position();
    m_cursorAtLineEnd = false;
    notifyTextOperation(TextOperationAttributes, {});
    return true;
}

bool CWordProcess::keyBackspace(const KeyPress & /*press*/)
{
    removeOneOrSelection(&QTextCursor::deletePreviousChar, m_cursor->position() > 0);
    return true;
}

bool CWordProcess::keyDelete(const KeyPress & /*press*/)
{
    removeOneOrSelection(&QTextCursor::deleteChar, !m_document->isEmpty());
    return true;
}

bool CWordProcess::keyReturn(const KeyPress & /*press*/)
{
    settleComposition();
    removeSelectionForInput();
    {
        const EditBlock step(*m_cursor);
        m_cursor->insertBlock(m_cursor->blockFormat(), m_cursor->charFormat());
        m_cursor->setBlockCharFormat(m_cursor->charFormat());
    }
    showStoredText();
    return true;
}

/// Deliberate: a box leaves without a last layout.
bool CWordProcess::keyEscape(const KeyPress & /*press*/)
{
    const bool isBox = m_wordWrap;
    endEdit();
    if (!isBox)
        showStoredText();
    return true;
}

bool CWordProcess::keyText(const KeyPress &press)
{
    QString text = typedText(press.event);
    if (text.isEmpty())
        return true;
    settleComposition();
    QTextCharFormat format = m_cursor->charFormat();
    int start = 0;
    int end = 0;
    if (hasSelection() && selection(start, end)) {
        QTextCursor first(*m_cursor); // what is typed looks like the first that it replaces
        first.setPosition(start + 1);
        format = first.charFormat();
    }
    removeSelectionForInput();
    if (format.property(TextProperty::UpperCase).toBool())
        text = text.toUpper();
    format.clearProperty(TextProperty::LeadingGap); // of one character, not of what follows it
    m_cursor->insertText(text, format);
    showStoredText();
    return true;
}

bool CWordProcess::keyMotion(const KeyPress &press)
{
    settleComposition();
    const int from = m_cursor->position();
    const int to = cursorMove(static_cast<Qt::Key>(press.event.key()));
    if (press.isShifted()) {
        if (to != from) {
            extendSelection(from, to);
            notifyTextOperation(TextOperationAttributes, {});
        }
        return true;
    }
    m_selEnd = m_selStart;
    m_cursor->setPosition(to);
    if (to != from)
        notifyTextOperation(TextOperationAttributes, {});
    return true;
}

void CWordProcess::extendSelection(int from, int to)
{
    if (!hasSelection() || m_selAnchor < 0)
        m_selAnchor = from;
    const int anchor = qMin(m_selAnchor, m_document->characterCount() - 1);
    m_selStart = qMin(anchor, to);
    m_selEnd = qMax(anchor, to);
    m_cursor->setPosition(anchor);
    m_cursor->setPosition(to, QTextCursor::KeepAnchor);
}

int CWordProcess::cursorMove(Qt::Key key)
{
    const int position = m_cursor->position();
    const Motion motion = motionOf(key, m_textOrientation == Qt::Horizontal);
    if (motion == Motion::None)
        return position;
    if (motion == Motion::Previous || motion == Motion::Next)
        return positionBesideCaret(motion == Motion::Next);

    const QVector<CaretLine> lines = m_newVersion ? caretLinesOf(m_wordManager->textLayout())
                                                  : caretLinesOf(m_legacyLines);
    const CaretPlace place = placeOf(position, lines, m_newVersion && m_cursorAtLineEnd);
    const int step = motion == Motion::NextLine ? 1 : motion == Motion::PreviousLine ? -1 : 0;
    const int index = place.line + step;
    if (index < 0 || index >= lines.size())
        return position;
    const CaretLine &line = lines.at(index);
    int target = qMin(line.first + place.offset, line.last);
    if (motion == Motion::LineStart)
        target = line.first;
    else if (motion == Motion::LineEnd)
        target = line.last;
    // An empty text may keep former lines.
    target = qBound(0, target, m_document->characterCount() - 1);
    if (m_document->characterAt(target).isLowSurrogate() && target > line.first
        && m_document->characterAt(target - 1).isHighSurrogate())
        --target;
    if (m_newVersion)
        m_cursorAtLineEnd = m_wordWrap && motion != Motion::LineEnd && target == line.first;
    return target;
}

/// The next place for a caret in the order of the text; never between the parts of one character.
int CWordProcess::positionBesideCaret(bool forward)
{
    QTextCursor beside(*m_cursor);
    beside.setPosition(m_cursor->position()); // from a selection it would go to an end of it
    const bool moved = beside.movePosition(forward ? QTextCursor::NextCharacter
                                                   : QTextCursor::PreviousCharacter);
    if (moved && m_newVersion)
        m_cursorAtLineEnd = false;
    return beside.position();
}

/// Lays out what a key has made of the text.
void CWordProcess::showStoredText()
{
    m_cursorAtLineEnd = false;
    updateBoundingRectImpl(true);
}

void CWordProcess::selectAll()
{
    settleComposition();
    m_selAnchor = 0;
    m_selStart = 0;
    m_selEnd = m_document->characterCount() - 1;
    if (m_selEnd > 0) {
        m_cursor->setPosition(0);
        m_cursor->setPosition(m_selEnd, QTextCursor::KeepAnchor);
        m_cursorAtLineEnd = false;
    }
    notifyTextOperation(TextOperationAttributes, {});
}

void CWordProcess::clearSelection()
{
    m_selStart = m_selEnd; // the cursor is not touched
    notifyTextOperation(TextOperationAttributes, {});
}

bool CWordProcess::hasSelection() const
{
    int start = 0;
    int end = 0;
    return m_selEnd > m_selStart && selection(start, end);
}

void CWordProcess::removeSelectedText()
{
    int start = 0;
    int end = 0;
    if (m_selEnd <= m_selStart || !selection(start, end))
        return;
    endComposition();
    m_cursor->setPosition(start);
    m_cursor->setPosition(end, QTextCursor::KeepAnchor);
    m_cursor->removeSelectedText();
    clearSelection();
}

void CWordProcess::dropCursorSelection()
{
    if (m_cursor->hasSelection())
        m_cursor->setPosition(m_cursor->position());
}

/// Makes room for what is put in at the caret.
void CWordProcess::removeSelectionForInput()
{
    removeSelectedText();
    dropCursorSelection();
}

/// Removes the selection; without one, what \a removeOne removes, where \a isOne says that there is something.
void CWordProcess::removeOneOrSelection(void (QTextCursor::*removeOne)(), bool isOne)
{
    settleComposition();
    if (hasSelection()) {
        removeSelectedText();
    } else if (isOne) {
        dropCursorSelection();
        (m_cursor->*removeOne)();
    }
    notifyTextOperation(TextOperationAttributes, {});
    showStoredText();
}
