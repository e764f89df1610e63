// SPDX-License-Identifier: MIT
// Every key of an edit: text, deletion, caret motion, selection, the clipboard, and the commands.
#include "callinghost.h"
#include "formatprobe.h"
#include "openword.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

#include <memory>

namespace {
constexpr Qt::KeyboardModifiers None = Qt::NoModifier;
constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers Ctrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers Alt = Qt::AltModifier;
constexpr Qt::KeyboardModifiers AltShift = Alt | Shift;
constexpr Qt::KeyboardModifiers CtrlAlt = Ctrl | Alt;
constexpr Qt::KeyboardModifiers CtrlShift = Ctrl | Shift;
constexpr Qt::KeyboardModifiers CtrlShiftAlt = Ctrl | Shift | Alt;

/// A character outside the first plane: two units, one position of the caret.
const QString grin = QString::fromUtf8("\xF0\x9F\x98\x80");
/// Six characters, each 16 by 16.
const QString sixHan = QString::fromUtf8("\xE4\xB8\x80\xE4\xBA\x8C\xE4\xB8\x89"
                                         "\xE5\x9B\x9B\xE4\xBA\x94\xE5\x85\xAD");

/// Presses a key. \return whether the object has accepted it
bool press(OpenWord &word, int key, Qt::KeyboardModifiers modifiers = None,
           const QString &text = QString())
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    event.ignore();
    word.keyPressEvent(&event);
    return event.isAccepted();
}

/// Presses the key that types \a text.
void type(OpenWord &word, const QString &text)
{
    QVERIFY(press(word, Qt::Key_unknown, None, text));
}

/// An object in edit state with a host that listens.
struct Edit {
    RecordingHost host;
    OpenWord word{&host};

    explicit Edit(const QString &text = QString(), int caret = 0)
    {
        if (!text.isEmpty())
            word.add(text);
        start(caret);
    }

    /// A box of \a size.
    Edit(const QString &text, const QSizeF &size, Qt::Orientation orientation = Qt::Horizontal)
    {
        word.m_textOrientation = orientation;
        word.m_wordWrap = true;
        word.m_wordManager->setWordWrap(true);
        word.m_clientRect = QRectF(QPointF(0, 0), size);
        word.m_textPathsRect = word.m_clientRect;
        word.add(text);
        start(0);
    }

    void start(int caret)
    {
        word.m_document->clearUndoRedoStacks(); // as for a text that was read
        word.beginEdit();
        word.m_cursor->setPosition(caret);
        forget();
    }

    void forget()
    {
        word.forgetCalls();
        host.clearEvents();
    }

    /// What the last command told, without the kind.
    AttributeMap toldByCommand() const
    {
        AttributeMap told;
        for (const RecordingHost::Event &event :
             host.eventsWithKey(QStringLiteral("text_operation"))) {
            if (event.values.value(QStringLiteral("sub_operator")).toInt()
                == TextOperationAttributeCommand)
                told = event.values;
        }
        told.remove(QStringLiteral("sub_operator"));
        return told;
    }

    QString laidOutText()
    {
        QStringList lines;
        for (const TextLine &line : word.m_wordManager->textLayout().lines)
            lines.append(line.text);
        return lines.join(QLatin1Char('|'));
    }

    QVector<int> selection() const
    {
        return {word.m_selStart, word.m_selEnd, word.m_selAnchor, word.m_cursor->position()};
    }
};

/// A box whose lines, or columns, hold three Han characters.
QSizeF roomForThree(Qt::Orientation orientation)
{
    return orientation == Qt::Horizontal ? QSizeF(48, 200) : QSizeF(200, 48);
}

AttributeMap attribute(const char *key, const QVariant &value)
{
    return {{QLatin1String(key), value}};
}

AttributeMap script(bool super, bool sub)
{
    return {{QStringLiteral("text_superscript"), super}, {QStringLiteral("text_subscript"), sub}};
}

QVariant shown(OpenWord &word, const char *key)
{
    AttributeMap map;
    word.getAllAttributes(map);
    return map.value(QLatin1String(key));
}

bool isInsidePair(const OpenWord &word, int position)
{
    return position > 0 && word.m_document->characterAt(position).isLowSurrogate()
           && word.m_document->characterAt(position - 1).isHighSurrogate();
}

QVector<int> repaints(int count)
{
    return QVector<int>(count, ObjectProperty::Appearance);
}
} // namespace

class TestKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }
    void init() { QGuiApplication::clipboard()->clear(); }

    // which keys
    void keyOutsideEditStateIsIgnored();
    void everyKeyOfAnEditIsAccepted_data();
    void everyKeyOfAnEditIsAccepted();
    void otherKeysWithCtrlOrAltAreSwallowed_data();
    void otherKeysWithCtrlOrAltAreSwallowed();
    void keyWithoutTextOnlyRepaints();
    void keysThatActAreClaimedAheadOfShortcuts_data();
    void keysThatActAreClaimedAheadOfShortcuts();
    void tabReachesTheTextThroughTheScene();

    // standard keys
    void selectAllSelectsTheWholeText();
    void selectAllOfNothingSelectsNothing();
    void undoAndRedoServeTheDocumentsOwnSteps();
    void undoLeavesTheSelectionOnItsText_data();
    void undoLeavesTheSelectionOnItsText();
    void copyRepaintsOnce();
    void cutLaysOut();
    void pasteGoesInAtTheCaret();
    void caretIsSeenAfterStandardKeys_data();
    void caretIsSeenAfterStandardKeys();

    // commands
    void commandSetsItsAttribute_data();
    void commandSetsItsAttribute();
    void commandKeyWithOtherModifiersIsNoCommand_data();
    void commandKeyWithOtherModifiersIsNoCommand();
    void minusLeavesZeroAndMixedAlone_data();
    void minusLeavesZeroAndMixedAlone();
    void plusCountsMixedAsZero();
    void mixedIsSwitchedOn();
    void sizesThatDifferStay_data();
    void sizesThatDifferStay();
    void boxOnlyCommandDoesNothingInLineText_data();
    void boxOnlyCommandDoesNothingInLineText();
    void commandAtCaretIsForWhatIsTypedNext();
    void commandIsToldLast();

    // ends of a paragraph
    void ctrlHomeAndEndGoToTheEndsOfTheParagraph_data();
    void ctrlHomeAndEndGoToTheEndsOfTheParagraph();
    void ctrlAltHomeIsSwallowed();

    // removing
    void backspaceAtTheStartDeletesNothingButLaysOut();
    void backspaceRemovesThePreviousCharacter_data();
    void backspaceRemovesThePreviousCharacter();
    void backspaceWithAnotherModifierRemovesNothing();
    void deleteRemovesTheNextCharacter_data();
    void deleteRemovesTheNextCharacter();
    void deleteInAnEmptyDocumentDeletesNothing();
    void removingKeysRemoveExactlyTheSelection_data();
    void removingKeysRemoveExactlyTheSelection();
    void whatOnlyTheCursorSelectsStays_data();
    void whatOnlyTheCursorSelectsStays();

    // Return, Escape, text
    void returnSplitsTheParagraph_data();
    void returnSplitsTheParagraph();
    void returnReplacesTheSelection();
    void returnIsOneStepOfTheDocument();
    void escapeLaysOutLineTextOnly_data();
    void escapeLaysOutLineTextOnly();
    void typedTextGoesInAtTheCaret();
    void typingOverASelectionTakesTheFormatOfItsFirstCharacter();
    void typedTextDoesNotInheritTheGap();
    void capitalsAreStoredAsCapitals();
    void controlCharactersAreNotTyped_data();
    void controlCharactersAreNotTyped();
    void keypadTypesItsDigits();

    // motion
    void motionInLineText_data();
    void motionInLineText();
    void motionInABox_data();
    void motionInABox();
    void motionThroughEmptyParagraphs_data();
    void motionThroughEmptyParagraphs();
    void motionOnOlderLines_data();
    void motionOnOlderLines();
    void caretNeverStandsInsideACharacter_data();
    void caretNeverStandsInsideACharacter();
    void cursorMoveChangesOnlyTheSideOfASeam();
    void everyPositionIsReached_data();
    void everyPositionIsReached();
    void paragraphEndIsNoSeam();
    void caretOnNoLineCountsAsAtTheStart();
    void altWithAnArrowIsNoMotion();
    void motionDropsTheFormatForTyping();

    // selection
    void shiftSelects_data();
    void shiftSelects();
    void motionWithoutShiftCollapses();
    void leftAtTheStartCollapses();
    void shiftWithoutWayChangesNothing();
    void staleAnchorIsKeptWithinTheText();
    void clearSelectionGoesToItsEnd();

    // whatever is pressed, whoever listens
    void anyKeysLeaveAnEditThatWorks_data();
    void anyKeysLeaveAnEditThatWorks();
    void listenerMayEndTheEdit_data();
    void listenerMayEndTheEdit();
    void listenerMayReleaseTheObject_data();
    void listenerMayReleaseTheObject();

    // composing
    void compositionEndsWhenTheCaretMoves_data();
    void compositionEndsWhenTheCaretMoves();
};

void TestKeyboard::keyOutsideEditStateIsIgnored()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.forgetCalls();
    QVERIFY(!press(word, Qt::Key_X, None, QStringLiteral("x")));
    QVERIFY(!press(word, Qt::Key_Backspace));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    QCOMPARE(word.changes, repaints(0));
}

void TestKeyboard::everyKeyOfAnEditIsAccepted_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::newRow("letter") << int(Qt::Key_X) << int(None) << QStringLiteral("x");
    QTest::newRow("function key") << int(Qt::Key_F5) << int(None) << QString();
    QTest::newRow("Shift itself") << int(Qt::Key_Shift) << int(Shift) << QString();
    QTest::newRow("Ctrl+S") << int(Qt::Key_S) << int(Ctrl) << QString(QChar(0x13));
    QTest::newRow("Alt+F4") << int(Qt::Key_F4) << int(Alt) << QString();
    QTest::newRow("Left at the start") << int(Qt::Key_Left) << int(None) << QString();
    QTest::newRow("Backspace at the start") << int(Qt::Key_Backspace) << int(None) << QString();
    QTest::newRow("copy without selection") << int(Qt::Key_C) << int(Ctrl) << QString();
    QTest::newRow("paste of nothing") << int(Qt::Key_V) << int(Ctrl) << QString();
    QTest::newRow("command") << int(Qt::Key_B) << int(CtrlShift) << QString();
    QTest::newRow("box only") << int(Qt::Key_F) << int(CtrlShift) << QString();
    QTest::newRow("Escape") << int(Qt::Key_Escape) << int(None) << QString(QChar(0x1b));
}

void TestKeyboard::everyKeyOfAnEditIsAccepted()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    Edit edit(QStringLiteral("abc"));
    QVERIFY(press(edit.word, key, Qt::KeyboardModifiers(modifiers), text));
}

void TestKeyboard::otherKeysWithCtrlOrAltAreSwallowed_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::newRow("Ctrl+S") << int(Qt::Key_S) << int(Ctrl) << QString(QChar(0x13));
    QTest::newRow("Ctrl+K") << int(Qt::Key_K) << int(Ctrl) << QStringLiteral("k");
    QTest::newRow("Alt+K") << int(Qt::Key_K) << int(Alt) << QStringLiteral("k");
    QTest::newRow("Ctrl+Backspace") << int(Qt::Key_Backspace) << int(Ctrl) << QString();
    QTest::newRow("Alt+Delete") << int(Qt::Key_Delete) << int(Alt) << QString();
    QTest::newRow("Ctrl+Right") << int(Qt::Key_Right) << int(Ctrl) << QString();
    QTest::newRow("Ctrl+Return") << int(Qt::Key_Return) << int(Ctrl) << QStringLiteral("\r");
    QTest::newRow("Alt+Escape") << int(Qt::Key_Escape) << int(Alt) << QString();
}

void TestKeyboard::otherKeysWithCtrlOrAltAreSwallowed()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    Edit edit(QStringLiteral("abc"), 1);
    QVERIFY(press(edit.word, key, Qt::KeyboardModifiers(modifiers), text));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abc"));
    QCOMPARE(edit.word.m_cursor->position(), 1);
    QVERIFY(edit.word.m_editing);
    QCOMPARE(edit.word.changes, repaints(0));
    QVERIFY(edit.host.events.isEmpty());
}

void TestKeyboard::keyWithoutTextOnlyRepaints()
{
    Edit edit(QStringLiteral("abc"), 1);
    QVERIFY(press(edit.word, Qt::Key_F5));
    QCOMPARE(edit.word.changes, repaints(1));
    QVERIFY(operationsOf(edit.host).isEmpty());
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abc"));
}

void TestKeyboard::keysThatActAreClaimedAheadOfShortcuts_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("claimed");
    QTest::newRow("letter") << int(Qt::Key_X) << int(None) << QStringLiteral("x") << true;
    QTest::newRow("tab") << int(Qt::Key_Tab) << int(None) << QStringLiteral("\t") << true;
    QTest::newRow("Delete") << int(Qt::Key_Delete) << int(None) << QString(QChar(0x7f)) << true;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << int(None) << QString(QChar(0x1b)) << true;
    QTest::newRow("arrow") << int(Qt::Key_Up) << int(Shift) << QString() << true;
    QTest::newRow("Ctrl+End") << int(Qt::Key_End) << int(Ctrl) << QString() << true;
    QTest::newRow("undo") << int(Qt::Key_Z) << int(Ctrl) << QString() << true;
    QTest::newRow("select all") << int(Qt::Key_A) << int(Ctrl) << QString() << true;
    QTest::newRow("command") << int(Qt::Key_U) << int(CtrlShift) << QString() << true;
    QTest::newRow("Alt+Left") << int(Qt::Key_Left) << int(Alt) << QString() << true;
    QTest::newRow("save") << int(Qt::Key_S) << int(Ctrl) << QString(QChar(0x13)) << false;
    QTest::newRow("Alt+F4") << int(Qt::Key_F4) << int(Alt) << QString() << false;
    QTest::newRow("function key") << int(Qt::Key_F5) << int(None) << QString() << false;
    QTest::newRow("Shift itself") << int(Qt::Key_Shift) << int(Shift) << QString() << false;
}

void TestKeyboard::keysThatActAreClaimedAheadOfShortcuts()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    QFETCH(bool, claimed);
    RecordingHost host;
    auto *const word = new OpenWord(&host);
    host.scene().addItem(word);
    word->add(QStringLiteral("abc"));
    QEvent activation(QEvent::WindowActivate);
    QApplication::sendEvent(&host.scene(), &activation);
    for (const bool editing : {false, true}) {
        if (editing)
            word->beginEdit();
        QKeyEvent event(QEvent::ShortcutOverride, key, Qt::KeyboardModifiers(modifiers), text);
        event.ignore();
        host.scene().sendEvent(word, &event);
        QCOMPARE(event.isAccepted(), editing && claimed);
        QCOMPARE(word->toPlainText(), QStringLiteral("abc"));
    }
}

void TestKeyboard::tabReachesTheTextThroughTheScene()
{
    RecordingHost host;
    auto *const word = new OpenWord(&host);
    host.scene().addItem(word);
    word->add(QStringLiteral("ab"));
    word->beginEdit();
    word->m_cursor->setPosition(1);
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, None, QStringLiteral("\t"));
    QVERIFY(host.scene().sendEvent(word, &tab));
    QVERIFY(tab.isAccepted());
    QCOMPARE(word->toPlainText(), QStringLiteral("a\tb"));
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_X, None, QStringLiteral("x"));
    QVERIFY(host.scene().sendEvent(word, &letter));
    QCOMPARE(word->toPlainText(), QStringLiteral("a\txb"));
}

void TestKeyboard::selectAllSelectsTheWholeText()
{
    Edit edit(QStringLiteral("abc\ndef"), 2);
    edit.word.m_cursorAtLineEnd = true;
    QVERIFY(press(edit.word, Qt::Key_A, Ctrl));
    QCOMPARE(edit.selection(), (QVector<int>{0, 7, 0, 7}));
    QCOMPARE(edit.word.m_cursor->anchor(), 0);
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
    QCOMPARE(edit.word.changes, repaints(1));
}

void TestKeyboard::selectAllOfNothingSelectsNothing()
{
    Edit edit;
    QVERIFY(press(edit.word, Qt::Key_A, Ctrl));
    QCOMPARE(edit.selection(), (QVector<int>{0, 0, 0, 0}));
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
}

void TestKeyboard::undoAndRedoServeTheDocumentsOwnSteps()
{
    Edit edit(QStringLiteral("abc"), 3);
    type(edit.word, QStringLiteral("d"));
    edit.forget();
    QVERIFY(press(edit.word, Qt::Key_Z, Ctrl));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abc"));
    QCOMPARE(edit.laidOutText(), QStringLiteral("abc"));
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
    QVERIFY(press(edit.word, Qt::Key_Z, CtrlShift));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(edit.laidOutText(), QStringLiteral("abcd"));
    QCOMPARE(edit.host.stack().count(), 0); // the host's stack has no part in it
    QCOMPARE(edit.word.changes.last(), int(ObjectProperty::Appearance));
}

void TestKeyboard::undoLeavesTheSelectionOnItsText_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("anchor");
    QTest::addColumn<QVector<int>>("result"); // start, end, anchor
    QTest::newRow("behind") << 5 << 7 << 5 << QVector<int>{3, 5, 3};
    QTest::newRow("behind, made backwards") << 5 << 7 << 7 << QVector<int>{3, 5, 5};
    QTest::newRow("ahead") << 0 << 1 << 0 << QVector<int>{0, 1, 0};
    QTest::newRow("around") << 1 << 6 << 1 << QVector<int>{1, 4, 1};
    QTest::newRow("on what goes") << 2 << 4 << 2 << QVector<int>{2, 2, 2};
}

void TestKeyboard::undoLeavesTheSelectionOnItsText()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(int, anchor);
    QFETCH(QVector<int>, result);
    Edit edit(QStringLiteral("abcdefgh"), 2);
    type(edit.word, grin); // at 2 and 3
    edit.word.select(start, end);
    edit.word.m_selAnchor = anchor;
    QVERIFY(press(edit.word, Qt::Key_Z, Ctrl));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abcdefgh"));
    QCOMPARE(edit.selection().mid(0, 3), result);
}

void TestKeyboard::copyRepaintsOnce()
{
    Edit edit(QStringLiteral("abcd"), 3);
    edit.word.select(1, 3);
    QVERIFY(press(edit.word, Qt::Key_C, Ctrl));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("bc"));
    QCOMPARE(edit.word.changes, repaints(1));
    QCOMPARE(edit.selection(), (QVector<int>{1, 3, -1, 3}));
}

void TestKeyboard::cutLaysOut()
{
    Edit edit(QStringLiteral("abcd"), 3);
    edit.word.select(1, 3);
    QVERIFY(press(edit.word, Qt::Key_X, Ctrl));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("bc"));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("ad"));
    QCOMPARE(edit.laidOutText(), QStringLiteral("ad"));
    QVERIFY(press(edit.word, Qt::Key_X, Ctrl)); // nothing is selected any more
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("ad"));
}

void TestKeyboard::pasteGoesInAtTheCaret()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("xy"));
    Edit edit(QStringLiteral("abcd"), 3);
    edit.word.select(1, 3);
    QVERIFY(press(edit.word, Qt::Key_V, Ctrl));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("axyd"));
    QCOMPARE(edit.laidOutText(), QStringLiteral("axyd"));
    QCOMPARE(edit.word.m_cursor->position(), 3);
}

void TestKeyboard::caretIsSeenAfterStandardKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("select all") << int(Qt::Key_A);
    QTest::newRow("undo") << int(Qt::Key_Z);
    QTest::newRow("redo") << int(Qt::Key_Y);
    QTest::newRow("cut") << int(Qt::Key_X);
    QTest::newRow("paste") << int(Qt::Key_V);
    QTest::newRow("end of the paragraph") << int(Qt::Key_End);
}

/// Whatever side of a wrap the caret stood on: at the end of the text there is only one.
void TestKeyboard::caretIsSeenAfterStandardKeys()
{
    QFETCH(int, key);
    QGuiApplication::clipboard()->setText(QStringLiteral("x"));
    Edit edit(sixHan, roomForThree(Qt::Horizontal));
    edit.word.m_cursor->setPosition(6);
    edit.word.m_cursorAtLineEnd = true;
    QVERIFY(edit.word.m_wordManager->cursorLine(6, true).isNull());
    QVERIFY(press(edit.word, key, Ctrl));
    QVERIFY(!edit.word.m_wordManager
                 ->cursorLine(edit.word.m_cursor->position(), edit.word.m_cursorAtLineEnd)
                 .isNull());
}

void TestKeyboard::commandSetsItsAttribute_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("box");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<AttributeMap>("before");
    QTest::addColumn<AttributeMap>("after");
    struct Row {
        const char *name;
        int key;
        Qt::KeyboardModifiers modifiers;
        AttributeMap before;
        AttributeMap after;
        bool box = false;
        bool vertical = false;
    };
    const auto size = [](double points) { return attribute("font_pointsize", points); };
    const auto spacing = [](double value) { return attribute("selected_letterspacing", value); };
    const auto row = [](double points) { return attribute("font_rowspacing", points); };
    const auto base = [](double points) { return attribute("baseline_offset", points); };
    const auto align = [](int value) { return attribute("textalignment", value); };
    const auto on = [](const char *key) { return attribute(key, true); };
    const auto off = [](const char *key) { return attribute(key, false); };
    const AttributeMap any;
    // clang-format off
    const Row rows[] = {
        {"superscript on",            Qt::Key_Asterisk, CtrlShift,    script(false, false), script(true, false)},
        {"superscript off",           Qt::Key_Asterisk, CtrlShift,    script(true, false),  script(false, false)},
        {"superscript for subscript", Qt::Key_Asterisk, CtrlShift,    script(false, true),  script(true, false)},
        {"subscript on",              Qt::Key_Asterisk, CtrlShiftAlt, script(false, false), script(false, true)},
        {"subscript off",             Qt::Key_Asterisk, CtrlShiftAlt, script(false, true),  script(false, false)},
        {"subscript for superscript", Qt::Key_Asterisk, CtrlShiftAlt, script(true, false),  script(false, true)},
        {"smaller by 2",              Qt::Key_Less,     CtrlShift,    size(12),    size(10)},
        {"smaller by 2, floor",       Qt::Key_Less,     CtrlShift,    size(2.5),   size(1)},
        {"smaller by 5",              Qt::Key_Less,     CtrlShiftAlt, size(12),    size(7)},
        {"smaller by 5, floor",       Qt::Key_Less,     CtrlShiftAlt, size(5),     size(1)},
        {"larger by 2",               Qt::Key_Greater,  CtrlShift,    size(12.5),  size(14.5)},
        {"larger by 5",               Qt::Key_Greater,  CtrlShiftAlt, size(12),    size(17)},
        {"italic on",                 Qt::Key_Question, CtrlShift,    off("font_italic"),    on("font_italic")},
        {"italic off",                Qt::Key_Question, CtrlShift,    on("font_italic"),     off("font_italic")},
        {"automatic row spacing",     Qt::Key_A,        CtrlShiftAlt, row(24),     row(0)},
        {"bold on",                   Qt::Key_B,        CtrlShift,    off("font_bold"),      on("font_bold")},
        {"bold off",                  Qt::Key_B,        CtrlShift,    on("font_bold"),       off("font_bold")},
        {"centre of a line",          Qt::Key_C,        CtrlShift,    any,         align(4)},
        {"centre of a column",        Qt::Key_C,        CtrlShift,    any,         align(0x80),  false, true},
        {"justified lines",           Qt::Key_F,        CtrlShift,    any,         align(8),     true},
        {"justified columns",         Qt::Key_F,        CtrlShift,    any,         align(0x100), true,  true},
        {"last line at its start",    Qt::Key_J,        CtrlShift,    any,         align(0x200), true},
        {"last column at its start",  Qt::Key_J,        CtrlShift,    any,         align(0x200), true,  true},
        {"capitals on",               Qt::Key_K,        CtrlShift,    off("text_upper"),     on("text_upper")},
        {"capitals off",              Qt::Key_K,        CtrlShift,    on("text_upper"),      off("text_upper")},
        {"start of a line",           Qt::Key_L,        CtrlShift,    align(4),    align(1)},
        {"start of a column",         Qt::Key_L,        CtrlShift,    align(0x80), align(0x20),  false, true},
        {"no letter spacing",         Qt::Key_Q,        CtrlShift,    spacing(60), spacing(0)},
        {"end of a line",             Qt::Key_R,        CtrlShift,    any,         align(2)},
        {"end of a column",           Qt::Key_R,        CtrlShift,    any,         align(0x40),  false, true},
        {"underline on",              Qt::Key_U,        CtrlShift,    off("font_underline"), on("font_underline")},
        {"underline off",             Qt::Key_U,        CtrlShift,    on("font_underline"),  off("font_underline")},
        {"strike out on",             Qt::Key_Bar,      CtrlShift,    off("font_strikeout"), on("font_strikeout")},
        {"strike out off",            Qt::Key_Bar,      CtrlShift,    on("font_strikeout"),  off("font_strikeout")},
        {"letters closer by 20",      Qt::Key_Left,     Alt,          spacing(60),   spacing(40)},
        {"letters closer, no floor",  Qt::Key_Left,     Alt,          spacing(-990), spacing(-1010)},
        {"letters closer by 100",     Qt::Key_Left,     CtrlAlt,      spacing(60),   spacing(-40)},
        {"letters wider by 20",       Qt::Key_Right,    Alt,          spacing(0),    spacing(20)},
        {"letters wider by 100",      Qt::Key_Right,    CtrlAlt,      spacing(-60),  spacing(40)},
        {"rows closer by 1",          Qt::Key_Up,       Alt,          row(24),     row(23)},
        {"rows closer by 1, floor",   Qt::Key_Up,       Alt,          row(1.5),    row(1)},
        {"rows closer by 5",          Qt::Key_Up,       CtrlAlt,      row(24),     row(19)},
        {"rows closer by 5, floor",   Qt::Key_Up,       CtrlAlt,      row(4),      row(1)},
        {"raised by 2",               Qt::Key_Up,       AltShift,     base(-1),    base(1)},
        {"rows wider by 1",           Qt::Key_Down,     Alt,          row(0),      row(1)},
        {"rows wider by 5",           Qt::Key_Down,     CtrlAlt,      row(24),     row(29)},
        {"lowered by 2",              Qt::Key_Down,     AltShift,     base(1),     base(-1)},
    };
    // clang-format on
    for (const Row &r : rows)
        QTest::newRow(r.name) << r.key << int(r.modifiers) << r.box << r.vertical << r.before
                              << r.after;
}

void TestKeyboard::commandSetsItsAttribute()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, box);
    QFETCH(bool, vertical);
    QFETCH(AttributeMap, before);
    QFETCH(AttributeMap, after);
    Edit edit(QStringLiteral("abcd"), 0);
    OpenWord &word = edit.word;
    word.m_textOrientation = vertical ? Qt::Vertical : Qt::Horizontal;
    if (box)
        word.setAllAttributes({{QStringLiteral("text_wordwrap"), true}}, false);
    word.selectAll();
    if (!before.isEmpty())
        word.setAllAttributes(before, false);
    word.beginEdit(); // the step of the edit begins here
    edit.forget();

    QVERIFY(press(word, key, Qt::KeyboardModifiers(modifiers)));
    QCOMPARE(edit.toldByCommand(), after);
    for (auto it = after.constBegin(); it != after.constEnd(); ++it)
        QCOMPARE(shown(word, it.key().toLatin1().constData()), it.value());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(edit.host.stack().count(), 1);
    QCOMPARE(word.changes.last(), int(ObjectProperty::Appearance));
    QVERIFY(word.m_editing);
    QCOMPARE(QVector<int>({word.m_selStart, word.m_selEnd}), QVector<int>({0, 4}));
}

void TestKeyboard::commandKeyWithOtherModifiersIsNoCommand_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    const auto key = [](Qt::Key code) { return int(code); };
    QTest::newRow("k") << key(Qt::Key_K) << int(None) << "k"
                       << "akb";
    QTest::newRow("Shift+K") << key(Qt::Key_K) << int(Shift) << "K"
                             << "aKb";
    QTest::newRow("*") << key(Qt::Key_Asterisk) << int(Shift) << "*"
                       << "a*b";
    QTest::newRow("? on its own key") << key(Qt::Key_Question) << int(None) << "?"
                                      << "a?b";
    QTest::newRow("Ctrl+K") << key(Qt::Key_K) << int(Ctrl) << "k"
                            << "ab";
    QTest::newRow("Ctrl+Shift+Alt+K") << key(Qt::Key_K) << int(CtrlShiftAlt) << "K"
                                      << "ab";
    QTest::newRow("Ctrl+Shift+I") << key(Qt::Key_I) << int(CtrlShift) << "I"
                                  << "ab";
    QTest::newRow("Alt+Shift+Left") << key(Qt::Key_Left) << int(AltShift) << ""
                                    << "ab";
    QTest::newRow("Ctrl+Shift+A") << key(Qt::Key_A) << int(CtrlShift) << "A"
                                  << "ab";
}

void TestKeyboard::commandKeyWithOtherModifiersIsNoCommand()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    QFETCH(QString, result);
    Edit edit(QStringLiteral("ab"), 1);
    QVERIFY(press(edit.word, key, Qt::KeyboardModifiers(modifiers), text));
    QCOMPARE(edit.word.toPlainText(), result);
    QVERIFY(edit.toldByCommand().isEmpty());
    QCOMPARE(edit.host.stack().count(), 0);
}

void TestKeyboard::minusLeavesZeroAndMixedAlone_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("attribute");
    QTest::newRow("letter spacing") << int(Qt::Key_Left) << int(Alt) << "selected_letterspacing";
    QTest::newRow("letter spacing by 100")
        << int(Qt::Key_Left) << int(CtrlAlt) << "selected_letterspacing";
    QTest::newRow("row spacing") << int(Qt::Key_Up) << int(Alt) << "font_rowspacing";
    QTest::newRow("row spacing by 5") << int(Qt::Key_Up) << int(CtrlAlt) << "font_rowspacing";
    QTest::newRow("baseline") << int(Qt::Key_Down) << int(AltShift) << "baseline_offset";
}

void TestKeyboard::minusLeavesZeroAndMixedAlone()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, attribute);
    Edit edit(QStringLiteral("abcd"), 0);
    const auto pressOn = [&](int start, int end) {
        edit.word.select(start, end);
        edit.forget();
        const QString before = edit.word.serialize(false);
        QVERIFY(press(edit.word, key, Qt::KeyboardModifiers(modifiers)));
        QCOMPARE(edit.word.serialize(false), before);
        QVERIFY(operationsOf(edit.host).isEmpty());
        QCOMPARE(edit.word.changes, repaints(1));
    };
    edit.word.select(0, 4);
    edit.word.setAllAttributes({{attribute, 0.0}}, false);
    pressOn(0, 4);
    edit.word.select(2, 4);
    edit.word.setAllAttributes({{attribute, 40.0}}, false);
    pressOn(0, 4);
}

void TestKeyboard::plusCountsMixedAsZero()
{
    Edit edit(QStringLiteral("abcd"), 0);
    edit.word.select(2, 4);
    edit.word.setAllAttributes(attribute("selected_letterspacing", 60.0), false);
    edit.word.select(0, 4);
    QCOMPARE(shown(edit.word, "selected_letterspacing"), QVariant(QString()));
    QVERIFY(press(edit.word, Qt::Key_Right, Alt));
    QCOMPARE(shown(edit.word, "selected_letterspacing"), QVariant(20.0));
}

void TestKeyboard::mixedIsSwitchedOn()
{
    Edit edit(QStringLiteral("abcd"), 0);
    edit.word.select(2, 4);
    edit.word.setAllAttributes({{QStringLiteral("font_bold"), true},
                                {QStringLiteral("text_upper"), true}},
                               false);
    edit.word.select(0, 4);
    QVERIFY(press(edit.word, Qt::Key_B, CtrlShift));
    QVERIFY(press(edit.word, Qt::Key_K, CtrlShift));
    QCOMPARE(shown(edit.word, "font_bold"), QVariant(true));
    QCOMPARE(shown(edit.word, "text_upper"), QVariant(true));
}

void TestKeyboard::sizesThatDifferStay_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("smaller") << int(Qt::Key_Less);
    QTest::newRow("larger") << int(Qt::Key_Greater);
}

void TestKeyboard::sizesThatDifferStay()
{
    QFETCH(int, key);
    Edit edit(QStringLiteral("abcd"), 0);
    edit.word.select(2, 4);
    edit.word.setAllAttributes(attribute("font_pointsize", 24.0), false);
    edit.word.select(0, 4);
    edit.forget();
    QVERIFY(press(edit.word, key, CtrlShift));
    QCOMPARE(formatAt(edit.word, 0).fontPointSize(), 12.0);
    QCOMPARE(formatAt(edit.word, 2).fontPointSize(), 24.0);
    QVERIFY(edit.toldByCommand().isEmpty());
}

void TestKeyboard::boxOnlyCommandDoesNothingInLineText_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("F") << int(Qt::Key_F);
    QTest::newRow("J") << int(Qt::Key_J);
}

void TestKeyboard::boxOnlyCommandDoesNothingInLineText()
{
    QFETCH(int, key);
    Edit edit(QStringLiteral("abcd"), 2);
    const QString before = edit.word.serialize(false);
    QVERIFY(press(edit.word, key, CtrlShift, QStringLiteral("F")));
    QCOMPARE(edit.word.serialize(false), before);
    QVERIFY(edit.host.events.isEmpty());
    QCOMPARE(edit.word.changes, repaints(0));
}

void TestKeyboard::commandAtCaretIsForWhatIsTypedNext()
{
    Edit edit(QStringLiteral("ab"), 2);
    QVERIFY(press(edit.word, Qt::Key_K, CtrlShift, QStringLiteral("K")));
    QVERIFY(press(edit.word, Qt::Key_U, CtrlShift));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("ab"));
    type(edit.word, QStringLiteral("c"));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abC"));
    QVERIFY(!formatAt(edit.word, 1).fontUnderline());
    QVERIFY(formatAt(edit.word, 2).fontUnderline());
    QCOMPARE(edit.host.stack().count(), 0); // left to the step of the edit
}

void TestKeyboard::commandIsToldLast()
{
    Edit edit(QStringLiteral("ab"), 2);
    edit.word.select(0, 2);
    QVERIFY(press(edit.word, Qt::Key_B, CtrlShift));
    const QVector<int> operations = operationsOf(edit.host);
    QVERIFY(operations.size() > 1);
    QCOMPARE(operations.last(), int(TextOperationAttributeCommand));
    QCOMPARE(operations.count(TextOperationAttributeCommand), 1);
}

void TestKeyboard::ctrlHomeAndEndGoToTheEndsOfTheParagraph_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("Home") << int(Qt::Key_Home) << int(Ctrl) << 6 << 4;
    QTest::newRow("End") << int(Qt::Key_End) << int(Ctrl) << 4 << 7;
    QTest::newRow("Shift Home") << int(Qt::Key_Home) << int(CtrlShift) << 6 << 4;
    QTest::newRow("Shift End") << int(Qt::Key_End) << int(CtrlShift) << 5 << 7;
    QTest::newRow("at the start already") << int(Qt::Key_Home) << int(Ctrl) << 4 << 4;
    QTest::newRow("last paragraph") << int(Qt::Key_End) << int(Ctrl) << 8 << 11;
    QTest::newRow("on the keypad") << int(Qt::Key_End) << int(Ctrl | Qt::KeypadModifier) << 5 << 7;
}

void TestKeyboard::ctrlHomeAndEndGoToTheEndsOfTheParagraph()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, from);
    QFETCH(int, to);
    Edit edit(QStringLiteral("abc\ndef\nghi"), from);
    edit.word.select(1, 2);
    QVERIFY(press(edit.word, key, Qt::KeyboardModifiers(modifiers)));
    QCOMPARE(edit.word.m_cursor->position(), to);
    QVERIFY(!edit.word.m_cursor->hasSelection());
    QCOMPARE(QVector<int>({edit.word.m_selStart, edit.word.m_selEnd}), QVector<int>({to, to}));
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
    QCOMPARE(edit.word.changes, repaints(1));
}

void TestKeyboard::ctrlAltHomeIsSwallowed()
{
    Edit edit(QStringLiteral("abc"), 2);
    QVERIFY(press(edit.word, Qt::Key_Home, CtrlAlt));
    QCOMPARE(edit.word.m_cursor->position(), 2);
    QVERIFY(edit.host.events.isEmpty());
}

void TestKeyboard::backspaceAtTheStartDeletesNothingButLaysOut()
{
    Edit edit(QStringLiteral("abc"), 3);
    edit.word.m_cursor->insertText(QStringLiteral("d")); // not laid out
    edit.word.m_cursor->setPosition(0);
    edit.word.m_cursorAtLineEnd = true;
    QCOMPARE(edit.laidOutText(), QStringLiteral("abc"));
    QVERIFY(press(edit.word, Qt::Key_Backspace, None, QStringLiteral("\b")));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(edit.laidOutText(), QStringLiteral("abcd"));
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
    QVERIFY(!edit.word.m_cursorAtLineEnd);
}

void TestKeyboard::backspaceRemovesThePreviousCharacter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("to");
    QTest::newRow("letter") << "abc" << 2 << int(None) << "ac" << 1;
    QTest::newRow("with Shift") << "abc" << 2 << int(Shift) << "ac" << 1;
    QTest::newRow("paragraph end") << "ab\ncd" << 3 << int(None) << "abcd" << 2;
    QTest::newRow("pair") << QStringLiteral("a%1b").arg(grin) << 3 << int(None) << "ab" << 1;
}

void TestKeyboard::backspaceRemovesThePreviousCharacter()
{
    QFETCH(QString, text);
    QFETCH(int, from);
    QFETCH(int, modifiers);
    QFETCH(QString, result);
    QFETCH(int, to);
    Edit edit(text, from);
    QVERIFY(press(edit.word, Qt::Key_Backspace, Qt::KeyboardModifiers(modifiers)));
    QCOMPARE(edit.word.toPlainText(), result);
    QCOMPARE(edit.word.m_cursor->position(), to);
    QCOMPARE(edit.laidOutText(), QString(result).replace(QLatin1Char('\n'), QLatin1Char('|')));
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
}

void TestKeyboard::backspaceWithAnotherModifierRemovesNothing()
{
    Edit edit(QStringLiteral("abc"), 2);
    QVERIFY(press(edit.word, Qt::Key_Backspace, Qt::MetaModifier, QStringLiteral("\b")));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abc"));
    QCOMPARE(edit.word.changes, repaints(1));
}

void TestKeyboard::deleteRemovesTheNextCharacter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("result");
    QTest::newRow("letter") << "abc" << 1 << "ac";
    QTest::newRow("paragraph end") << "ab\ncd" << 2 << "abcd";
    QTest::newRow("pair") << QStringLiteral("a%1b").arg(grin) << 1 << "ab";
    QTest::newRow("end of the text") << "abc" << 3 << "abc";
}

void TestKeyboard::deleteRemovesTheNextCharacter()
{
    QFETCH(QString, text);
    QFETCH(int, from);
    QFETCH(QString, result);
    Edit edit(text, from);
    edit.word.m_cursorAtLineEnd = true;
    QVERIFY(press(edit.word, Qt::Key_Delete, None, QString(QChar(0x7f))));
    QCOMPARE(edit.word.toPlainText(), result);
    QCOMPARE(edit.word.m_cursor->position(), from);
    QCOMPARE(edit.laidOutText(), result);
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
    QVERIFY(!edit.word.m_cursorAtLineEnd);
}

void TestKeyboard::deleteInAnEmptyDocumentDeletesNothing()
{
    Edit edit;
    QVERIFY(press(edit.word, Qt::Key_Delete));
    QCOMPARE(edit.word.m_document->characterCount(), 1);
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
}

void TestKeyboard::removingKeysRemoveExactlyTheSelection_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Backspace") << int(Qt::Key_Backspace);
    QTest::newRow("Delete") << int(Qt::Key_Delete);
}

void TestKeyboard::removingKeysRemoveExactlyTheSelection()
{
    QFETCH(int, key);
    Edit edit(QStringLiteral("abc\ndefg"), 1);
    edit.word.select(2, 6);
    QVERIFY(press(edit.word, key));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abfg"));
    QCOMPARE(edit.word.m_cursor->position(), 2);
    QCOMPARE(edit.word.m_selStart, edit.word.m_selEnd);
    QCOMPARE(edit.laidOutText(), QStringLiteral("abfg"));
    QVERIFY(press(edit.word, Qt::Key_Z, Ctrl));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abc\ndefg"));
}

void TestKeyboard::whatOnlyTheCursorSelectsStays_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::newRow("letter") << int(Qt::Key_X) << "x"
                            << "abcdxef";
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << ""
                               << "abcef";
    QTest::newRow("Delete") << int(Qt::Key_Delete) << ""
                            << "abcdf";
    QTest::newRow("Return") << int(Qt::Key_Return) << "\r"
                            << "abcd\nef";
}

void TestKeyboard::whatOnlyTheCursorSelectsStays()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    QFETCH(QString, result);
    Edit edit(QStringLiteral("abcdef"), 1);
    edit.word.m_cursor->setPosition(4, QTextCursor::KeepAnchor);
    QVERIFY(press(edit.word, key, None, text));
    QCOMPARE(edit.word.toPlainText(), result);
}

void TestKeyboard::returnSplitsTheParagraph_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
}

void TestKeyboard::returnSplitsTheParagraph()
{
    QFETCH(int, key);
    Edit edit;
    edit.word.add(QStringLiteral("abcd"), OpenWord::format(24));
    QTextBlockFormat centred;
    centred.setProperty(TextProperty::Alignment, 4);
    edit.word.m_cursor->mergeBlockFormat(centred);
    edit.word.m_cursorAtLineEnd = true;
    QVERIFY(press(edit.word, key, None, QStringLiteral("\r")));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abcd\n"));
    QCOMPARE(edit.word.m_cursor->position(), 5);
    QCOMPARE(blockOf(edit.word, 1).blockFormat().intProperty(TextProperty::Alignment), 4);
    QCOMPARE(blockOf(edit.word, 1).charFormat().fontPointSize(), 24.0);
    QVERIFY(!edit.word.m_cursorAtLineEnd);
    QCOMPARE(edit.word.m_wordManager->textLayout().lines.size(), 2);
    type(edit.word, QStringLiteral("e"));
    QCOMPARE(formatAt(edit.word, 5).fontPointSize(), 24.0);
}

void TestKeyboard::returnReplacesTheSelection()
{
    Edit edit(QStringLiteral("abcdef"), 0);
    edit.word.select(2, 4);
    QVERIFY(press(edit.word, Qt::Key_Return, None, QStringLiteral("\r")));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("ab\nef"));
    QCOMPARE(edit.word.m_cursor->position(), 3);
    QCOMPARE(edit.laidOutText(), QStringLiteral("ab|ef"));
}

void TestKeyboard::returnIsOneStepOfTheDocument()
{
    Edit edit(QStringLiteral("abcd"), 2);
    QVERIFY(press(edit.word, Qt::Key_Return));
    QVERIFY(press(edit.word, Qt::Key_Z, Ctrl));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abcd"));
}

void TestKeyboard::escapeLaysOutLineTextOnly_data()
{
    QTest::addColumn<bool>("box");
    QTest::newRow("line text") << false;
    QTest::newRow("box text") << true;
}

void TestKeyboard::escapeLaysOutLineTextOnly()
{
    QFETCH(bool, box);
    RecordingHost host;
    OpenWord word(&host);
    word.m_wordWrap = box;
    word.m_wordManager->setWordWrap(box);
    word.m_clientRect = QRectF(0, 0, 200, 100);
    word.m_textPathsRect = word.m_clientRect;
    word.add(QStringLiteral("abc"));
    word.beginEdit();
    word.m_cursor->select(QTextCursor::Document);
    word.m_cursor->mergeCharFormat(OpenWord::format(24)); // not laid out
    word.m_cursorAtLineEnd = true;
    word.forgetCalls();
    host.clearEvents();
    QVERIFY(press(word, Qt::Key_Escape, None, QString(QChar(0x1b))));
    QVERIFY(!word.m_editing);
    const QRectF run = word.m_wordManager->textLayout().lines.first().rect;
    QCOMPARE(run.height(), box ? 16.0 : 32.0);
    QCOMPARE(word.m_cursorAtLineEnd, box);
    QCOMPARE(word.changes.last(), int(ObjectProperty::Appearance));
    QVERIFY(operationsOf(host).contains(TextOperationEditState));
    QCOMPARE(word.toPlainText(), QStringLiteral("abc"));
}

void TestKeyboard::typedTextGoesInAtTheCaret()
{
    Edit edit(QStringLiteral("ad"), 1);
    edit.word.m_cursorAtLineEnd = true;
    type(edit.word, QStringLiteral("b"));
    type(edit.word, QStringLiteral("c"));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(edit.word.m_cursor->position(), 3);
    QCOMPARE(edit.laidOutText(), QStringLiteral("abcd"));
    QVERIFY(!edit.word.m_cursorAtLineEnd);
    QCOMPARE(edit.word.m_clientRect.width(), 32.0);
    type(edit.word, grin);
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("abc%1d").arg(grin));
    QVERIFY(press(edit.word, Qt::Key_Escape));
    QCOMPARE(edit.host.stack().count(), 1);
}

void TestKeyboard::typingOverASelectionTakesTheFormatOfItsFirstCharacter()
{
    Edit edit;
    edit.word.add(QStringLiteral("aaa"), OpenWord::format(12));
    edit.word.add(QStringLiteral("bb"), OpenWord::format(24));
    edit.word.add(QStringLiteral("ccc"), OpenWord::format(36));
    edit.word.select(3, 6); // both of "b" and the first "c"
    edit.word.m_cursor->setPosition(6);
    QCOMPARE(edit.word.m_cursor->charFormat().fontPointSize(), 36.0);
    type(edit.word, QStringLiteral("x"));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("aaaxcc"));
    QCOMPARE(formatAt(edit.word, 3).fontPointSize(), 24.0);
    QCOMPARE(edit.word.m_cursor->position(), 4);
    QCOMPARE(edit.word.m_selStart, edit.word.m_selEnd);
}

void TestKeyboard::typedTextDoesNotInheritTheGap()
{
    Edit edit;
    edit.word.add(QStringLiteral("a"), with(TextProperty::LeadingGap, 200.0));
    type(edit.word, QStringLiteral("b"));
    QVERIFY(formatAt(edit.word, 0).hasProperty(TextProperty::LeadingGap));
    QVERIFY(!formatAt(edit.word, 1).hasProperty(TextProperty::LeadingGap));
    QCOMPARE(formatAt(edit.word, 1).fontPointSize(), 12.0);
}

void TestKeyboard::capitalsAreStoredAsCapitals()
{
    Edit edit;
    edit.word.add(QStringLiteral("a"), with(TextProperty::UpperCase, true));
    type(edit.word, QString::fromUtf8("\xC3\xA9")); // e acute
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("a") + QString::fromUtf8("\xC3\x89"));
    Edit small;
    small.word.add(QStringLiteral("a"), with(TextProperty::UpperCase, false));
    type(small.word, QStringLiteral("b"));
    QCOMPARE(small.word.toPlainText(), QStringLiteral("ab"));
}

void TestKeyboard::controlCharactersAreNotTyped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::newRow("line feed") << "\n"
                               << "ab";
    QTest::newRow("backspace") << "\b"
                               << "ab";
    QTest::newRow("delete") << QString(QChar(0x7f)) << "ab";
    QTest::newRow("zero") << QString(QChar(0)) << "ab";
    QTest::newRow("next line") << QString(QChar(0x85)) << "ab";
    QTest::newRow("tab") << "\t"
                         << "a\tb";
    QTest::newRow("one among letters") << "x\x1by"
                                       << "axyb";
}

void TestKeyboard::controlCharactersAreNotTyped()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    Edit edit(QStringLiteral("ab"), 1);
    QVERIFY(press(edit.word, Qt::Key_unknown, None, text));
    QCOMPARE(edit.word.toPlainText(), result);
}

void TestKeyboard::keypadTypesItsDigits()
{
    Edit edit(QStringLiteral("ab"), 1);
    QVERIFY(press(edit.word, Qt::Key_7, Qt::KeypadModifier, QStringLiteral("7")));
    QVERIFY(press(edit.word, Qt::Key_Right, Qt::KeypadModifier));
    QVERIFY(press(edit.word, Qt::Key_Enter, Qt::KeypadModifier, QStringLiteral("\r")));
    QCOMPARE(edit.word.toPlainText(), QStringLiteral("a7b\n"));
}

void TestKeyboard::motionInLineText_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    struct Row {
        const char *name;
        Qt::Key lineKey;   // in horizontal text
        Qt::Key columnKey; // in vertical text
        int from;
        int to;
    };
    // the text: "abcdef", "ghi", "jk"
    const Row rows[] = {
        {"back", Qt::Key_Left, Qt::Key_Up, 2, 1},
        {"back over a paragraph end", Qt::Key_Left, Qt::Key_Up, 7, 6},
        {"back at the start", Qt::Key_Left, Qt::Key_Up, 0, 0},
        {"on", Qt::Key_Right, Qt::Key_Down, 2, 3},
        {"on over a paragraph end", Qt::Key_Right, Qt::Key_Down, 6, 7},
        {"on at the end", Qt::Key_Right, Qt::Key_Down, 13, 13},
        {"next line", Qt::Key_Down, Qt::Key_Left, 2, 9},
        {"next line is shorter", Qt::Key_Down, Qt::Key_Left, 5, 10},
        {"no next line", Qt::Key_Down, Qt::Key_Left, 12, 12},
        {"previous line", Qt::Key_Up, Qt::Key_Right, 12, 8},
        {"previous line is shorter", Qt::Key_Up, Qt::Key_Right, 13, 9},
        {"no previous line", Qt::Key_Up, Qt::Key_Right, 3, 3},
        {"line start", Qt::Key_Home, Qt::Key_Home, 9, 7},
        {"line end", Qt::Key_End, Qt::Key_End, 8, 10},
        {"line end, last line", Qt::Key_End, Qt::Key_End, 11, 13},
        {"line end, there already", Qt::Key_End, Qt::Key_End, 6, 6},
    };
    for (const Row &row : rows) {
        QTest::addRow("%s, lines", row.name) << false << int(row.lineKey) << row.from << row.to;
        QTest::addRow("%s, columns", row.name) << true << int(row.columnKey) << row.from << row.to;
    }
}

void TestKeyboard::motionInLineText()
{
    QFETCH(bool, vertical);
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(int, to);
    Edit edit(QStringLiteral("abcdef\nghi\njk"), from);
    edit.word.m_textOrientation = vertical ? Qt::Vertical : Qt::Horizontal;
    edit.word.updateBoundingRectImpl(true);
    edit.forget();
    QVERIFY(press(edit.word, key));
    QCOMPARE(edit.word.m_cursor->position(), to);
    QVERIFY(!edit.word.m_cursorAtLineEnd); // line text has no wraps
    QCOMPARE(operationsOf(edit.host).size(), from == to ? 0 : 1);
    QCOMPARE(edit.word.changes, repaints(1)); // never a layout
}

void TestKeyboard::motionInABox_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<bool>("atNextLine");
    QTest::addColumn<int>("to");
    QTest::addColumn<bool>("toNextLine");
    struct Row {
        const char *name;
        Qt::Key lineKey;
        Qt::Key columnKey;
        int from;
        bool atNextLine;
        int to;
        bool toNextLine;
    };
    // six characters, three a line: the seam is at 3
    const Row rows[] = {
        {"back to the seam", Qt::Key_Left, Qt::Key_Up, 4, false, 3, false},
        {"back from the seam", Qt::Key_Left, Qt::Key_Up, 3, true, 2, false},
        {"on to the seam", Qt::Key_Right, Qt::Key_Down, 2, false, 3, false},
        {"on from the seam", Qt::Key_Right, Qt::Key_Down, 3, true, 4, false},
        {"next line", Qt::Key_Down, Qt::Key_Left, 1, false, 4, false},
        {"next line from the start", Qt::Key_Down, Qt::Key_Left, 0, false, 3, true},
        {"next line from above the seam", Qt::Key_Down, Qt::Key_Left, 3, false, 6, false},
        {"no next line from below the seam", Qt::Key_Down, Qt::Key_Left, 3, true, 3, true},
        {"previous line", Qt::Key_Up, Qt::Key_Right, 5, false, 2, false},
        {"previous line from below the seam", Qt::Key_Up, Qt::Key_Right, 3, true, 0, true},
        {"no previous line from above it", Qt::Key_Up, Qt::Key_Right, 3, false, 3, false},
        {"previous line to the seam", Qt::Key_Up, Qt::Key_Right, 6, false, 3, false},
        {"line start", Qt::Key_Home, Qt::Key_Home, 5, false, 3, true},
        {"line start from below the seam", Qt::Key_Home, Qt::Key_Home, 3, true, 3, true},
        {"line start from above the seam", Qt::Key_Home, Qt::Key_Home, 3, false, 0, true},
        {"line end", Qt::Key_End, Qt::Key_End, 1, false, 3, false},
        {"line end from above the seam", Qt::Key_End, Qt::Key_End, 3, false, 3, false},
        {"line end from below the seam", Qt::Key_End, Qt::Key_End, 3, true, 6, false},
        {"line end of the last line", Qt::Key_End, Qt::Key_End, 6, false, 6, false},
    };
    for (const Row &row : rows) {
        QTest::addRow("%s, lines", row.name)
            << false << int(row.lineKey) << row.from << row.atNextLine << row.to << row.toNextLine;
        QTest::addRow("%s, columns", row.name)
            << true << int(row.columnKey) << row.from << row.atNextLine << row.to << row.toNextLine;
    }
}

void TestKeyboard::motionInABox()
{
    QFETCH(bool, vertical);
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(bool, atNextLine);
    QFETCH(int, to);
    QFETCH(bool, toNextLine);
    const Qt::Orientation orientation = vertical ? Qt::Vertical : Qt::Horizontal;
    Edit edit(sixHan, roomForThree(orientation), orientation);
    const TextLayout layout = edit.word.m_wordManager->textLayout();
    QCOMPARE(layout.lines.size(), 2);
    QCOMPARE(layout.lines.at(1).position, 3);
    edit.word.m_cursor->setPosition(from);
    edit.word.m_cursorAtLineEnd = atNextLine;
    QVERIFY(press(edit.word, key));
    QCOMPARE(edit.word.m_cursor->position(), to);
    QCOMPARE(edit.word.m_cursorAtLineEnd, toNextLine);
    QVERIFY(!layout.cursorLine(to, toNextLine).isNull());
}

void TestKeyboard::motionThroughEmptyParagraphs_data()
{
    QTest::addColumn<bool>("box");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    for (const bool box : {false, true}) {
        const char *form = box ? "box" : "line";
        // the text: "abc", "", "def", ""
        QTest::addRow("down onto it, %s", form) << box << int(Qt::Key_Down) << 2 << 4;
        QTest::addRow("down from it, %s", form) << box << int(Qt::Key_Down) << 4 << 5;
        QTest::addRow("up onto it, %s", form) << box << int(Qt::Key_Up) << 7 << 4;
        QTest::addRow("up from it, %s", form) << box << int(Qt::Key_Up) << 4 << 0;
        QTest::addRow("line end of it, %s", form) << box << int(Qt::Key_End) << 4 << 4;
        QTest::addRow("line start of it, %s", form) << box << int(Qt::Key_Home) << 4 << 4;
        QTest::addRow("line end of the last, %s", form) << box << int(Qt::Key_End) << 9 << 9;
        QTest::addRow("down onto the last, %s", form) << box << int(Qt::Key_Down) << 7 << 9;
        QTest::addRow("on over it, %s", form) << box << int(Qt::Key_Right) << 4 << 5;
    }
}

void TestKeyboard::motionThroughEmptyParagraphs()
{
    QFETCH(bool, box);
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(int, to);
    const QString text = QStringLiteral("abc\n\ndef\n");
    std::unique_ptr<Edit> edit(box ? new Edit(text, QSizeF(100, 200)) : new Edit(text));
    edit->word.m_cursor->setPosition(from);
    QVERIFY(press(edit->word, key));
    QCOMPARE(edit->word.m_cursor->position(), to);
}

void TestKeyboard::motionOnOlderLines_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    // the lines: "ab" and a generated hyphen, "cdef"
    QTest::newRow("line end") << int(Qt::Key_End) << 1 << 2;
    QTest::newRow("line start") << int(Qt::Key_Home) << 5 << 2;
    QTest::newRow("next line") << int(Qt::Key_Down) << 1 << 3;
    QTest::newRow("previous line, shorter") << int(Qt::Key_Up) << 6 << 2;
    QTest::newRow("back") << int(Qt::Key_Left) << 3 << 2;
    QTest::newRow("on") << int(Qt::Key_Right) << 3 << 4;
    QTest::newRow("the seam belongs to the first line") << int(Qt::Key_Home) << 2 << 0;
}

void TestKeyboard::motionOnOlderLines()
{
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(int, to);
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("abcdef"));
    word.m_newVersion = false;
    word.m_wordWrap = true;
    const auto item = [](const QString &text, int position) {
        STextItem result;
        result.text = text;
        result.position = position;
        return result;
    };
    STextLine first;
    first.items = {item(QStringLiteral("a"), 0), item(QStringLiteral("b"), 1),
                   item(QStringLiteral("-"), -2)};
    first.items.last().isHyphen = true;
    STextLine second;
    second.items = {item(QStringLiteral("cdef"), 2)};
    word.m_legacyLines = {first, second};
    word.m_cursor->setPosition(from);
    word.m_cursorAtLineEnd = true; // which these lines know nothing of
    QCOMPARE(word.cursorMove(Qt::Key(key)), to);
    QVERIFY(word.m_cursorAtLineEnd);
}

void TestKeyboard::caretNeverStandsInsideACharacter_data()
{
    QTest::addColumn<bool>("box");
    QTest::addColumn<bool>("vertical");
    QTest::newRow("lines") << false << false;
    QTest::newRow("columns") << false << true;
    QTest::newRow("box of lines") << true << false;
    QTest::newRow("box of columns") << true << true;
}

void TestKeyboard::caretNeverStandsInsideACharacter()
{
    QFETCH(bool, box);
    QFETCH(bool, vertical);
    const Qt::Orientation orientation = vertical ? Qt::Vertical : Qt::Horizontal;
    QString text;
    for (int i = 0; i < 4; ++i)
        text += QStringLiteral("a") + grin + grin + QStringLiteral("\nb") + grin
                + QStringLiteral("cd") + grin + QStringLiteral("\n");
    std::unique_ptr<Edit> edit(box ? new Edit(text, QSizeF(60, 60), orientation) : new Edit(text));
    OpenWord &word = edit->word;
    word.m_textOrientation = orientation;
    word.updateBoundingRectImpl(true);
    QRandomGenerator random(5);
    const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
                            Qt::Key_Down, Qt::Key_Home,  Qt::Key_End};
    QSet<int> seen;
    for (int i = 0; i < 2000; ++i) {
        const Qt::Key key = keys[random.bounded(6)];
        const int from = word.m_cursor->position();
        QVERIFY(press(word, key, random.bounded(4) == 0 ? Shift : None));
        const int to = word.m_cursor->position();
        QVERIFY2(!isInsidePair(word, to),
                 qPrintable(QStringLiteral("key %1 from %2 to %3").arg(key).arg(from).arg(to)));
        QVERIFY(!isInsidePair(word, word.m_selStart) && !isInsidePair(word, word.m_selEnd));
        seen.insert(to);
    }
    QVERIFY(seen.size() > 10);
}

void TestKeyboard::cursorMoveChangesOnlyTheSideOfASeam()
{
    Edit edit(sixHan, roomForThree(Qt::Horizontal));
    edit.word.m_cursor->setPosition(5);
    edit.word.select(1, 2);
    const QVector<int> before = edit.selection();
    QCOMPARE(edit.word.cursorMove(Qt::Key_Home), 3);
    QCOMPARE(edit.selection(), before);
    QVERIFY(edit.word.m_cursorAtLineEnd);
    QCOMPARE(edit.word.cursorMove(Qt::Key_End), 6);
    QVERIFY(!edit.word.m_cursorAtLineEnd);
    QCOMPARE(edit.word.cursorMove(Qt::Key_PageDown), 5); // no motion key
    QVERIFY(edit.host.events.isEmpty());
    QCOMPARE(edit.word.changes, repaints(0));
}

void TestKeyboard::everyPositionIsReached_data()
{
    caretNeverStandsInsideACharacter_data();
}

void TestKeyboard::everyPositionIsReached()
{
    QFETCH(bool, box);
    QFETCH(bool, vertical);
    const Qt::Orientation orientation = vertical ? Qt::Vertical : Qt::Horizontal;
    const QString text = sixHan + QStringLiteral("\n\nab") + grin + QStringLiteral("c");
    std::unique_ptr<Edit> edit(box ? new Edit(text, roomForThree(orientation), orientation)
                                   : new Edit(text));
    OpenWord &word = edit->word;
    word.m_textOrientation = orientation;
    word.updateBoundingRectImpl(true);
    QVector<int> on;
    while (on.isEmpty() || on.last() != word.m_cursor->position()) {
        on.append(word.m_cursor->position());
        QVERIFY(press(word, vertical ? Qt::Key_Down : Qt::Key_Right));
    }
    QCOMPARE(on, (QVector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 13}));
    QVector<int> back;
    while (back.isEmpty() || back.last() != word.m_cursor->position()) {
        back.append(word.m_cursor->position());
        QVERIFY(press(word, vertical ? Qt::Key_Up : Qt::Key_Left));
    }
    std::reverse(back.begin(), back.end());
    QCOMPARE(back, on);
}

/// The mark for the start of the next line counts on a wrap only: behind a paragraph there is no other side.
void TestKeyboard::paragraphEndIsNoSeam()
{
    Edit edit(QStringLiteral("ab\ncd\nef"), QSizeF(100, 200));
    for (const QPair<Qt::Key, int> &step :
         {qMakePair(Qt::Key_Home, 0), qMakePair(Qt::Key_End, 2), qMakePair(Qt::Key_Down, 5)}) {
        edit.word.m_cursor->setPosition(2);
        edit.word.m_cursorAtLineEnd = true;
        QVERIFY(press(edit.word, step.first));
        QCOMPARE(edit.word.m_cursor->position(), step.second);
    }
}

void TestKeyboard::caretOnNoLineCountsAsAtTheStart()
{
    Edit edit(sixHan, roomForThree(Qt::Horizontal));
    edit.word.m_document->setPlainText(sixHan + sixHan + sixHan); // not laid out
    for (const QPair<Qt::Key, int> &step :
         {qMakePair(Qt::Key_Home, 0), qMakePair(Qt::Key_End, 3), qMakePair(Qt::Key_Down, 3),
          qMakePair(Qt::Key_Up, 15), qMakePair(Qt::Key_Left, 14)}) {
        edit.word.m_cursor->setPosition(15);
        QVERIFY(press(edit.word, step.first));
        QCOMPARE(edit.word.m_cursor->position(), step.second);
    }
}

void TestKeyboard::altWithAnArrowIsNoMotion()
{
    Edit edit(QStringLiteral("abcd"), 2);
    QVERIFY(press(edit.word, Qt::Key_Right, Alt));
    QCOMPARE(edit.word.m_cursor->position(), 2);
    QCOMPARE(edit.toldByCommand(), attribute("selected_letterspacing", 20.0));
}

void TestKeyboard::motionDropsTheFormatForTyping()
{
    Edit edit(QStringLiteral("abcd"), 2);
    QVERIFY(press(edit.word, Qt::Key_B, CtrlShift));
    QVERIFY(press(edit.word, Qt::Key_Right));
    type(edit.word, QStringLiteral("x"));
    QVERIFY(formatAt(edit.word, 3).fontWeight() < QFont::Bold);
}

void TestKeyboard::shiftSelects_data()
{
    using Keys = QVector<int>;
    QTest::addColumn<int>("from");
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<Keys>("result"); // start, end, anchor, caret
    const int left = Qt::Key_Left;
    const int right = Qt::Key_Right;
    QTest::newRow("left") << 3 << Keys{left} << Keys{2, 3, 3, 2};
    QTest::newRow("right") << 3 << Keys{right} << Keys{3, 4, 3, 4};
    QTest::newRow("further") << 3 << Keys{right, right} << Keys{3, 5, 3, 5};
    QTest::newRow("and back") << 3 << Keys{right, right, left} << Keys{3, 4, 3, 4};
    QTest::newRow("back to nothing") << 3 << Keys{right, left} << Keys{3, 3, 3, 3};
    QTest::newRow("over the anchor") << 3 << Keys{right, left, left} << Keys{2, 3, 3, 2};
    QTest::newRow("to the line end") << 1 << Keys{Qt::Key_End} << Keys{1, 6, 1, 6};
    QTest::newRow("from the end to the start")
        << 4 << Keys{Qt::Key_End, Qt::Key_Home} << Keys{0, 4, 4, 0};
    QTest::newRow("to the next line") << 2 << Keys{Qt::Key_Down} << Keys{2, 9, 2, 9};
    QTest::newRow("to the line above") << 9 << Keys{Qt::Key_Up} << Keys{2, 9, 9, 2};
}

void TestKeyboard::shiftSelects()
{
    QFETCH(int, from);
    QFETCH(QVector<int>, keys);
    QFETCH(QVector<int>, result);
    Edit edit(QStringLiteral("abcdef\nghi"), from);
    for (const int key : keys) {
        edit.forget();
        QVERIFY(press(edit.word, key, Shift));
        QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
        QCOMPARE(edit.word.changes, repaints(1));
    }
    QCOMPARE(edit.selection(), result);
    QCOMPARE(edit.word.m_cursor->anchor(), result.at(2));
}

void TestKeyboard::motionWithoutShiftCollapses()
{
    Edit edit(QStringLiteral("abcdef"), 4);
    QVERIFY(press(edit.word, Qt::Key_Left, Shift));
    QVERIFY(press(edit.word, Qt::Key_Left, Shift));
    QVERIFY(press(edit.word, Qt::Key_Left));
    QCOMPARE(edit.selection(), (QVector<int>{2, 2, 4, 1}));
    QVERIFY(!edit.word.m_cursor->hasSelection());
    QVERIFY(press(edit.word, Qt::Key_Right, Shift)); // the old anchor does not count any more
    QCOMPARE(edit.selection(), (QVector<int>{1, 2, 1, 2}));
}

void TestKeyboard::leftAtTheStartCollapses()
{
    Edit edit(QStringLiteral("abc"), 2);
    QVERIFY(press(edit.word, Qt::Key_Home, Shift));
    QCOMPARE(edit.selection(), (QVector<int>{0, 2, 2, 0}));
    edit.forget();
    QVERIFY(press(edit.word, Qt::Key_Left));
    QCOMPARE(edit.selection(), (QVector<int>{0, 0, 2, 0}));
    QVERIFY(!edit.word.m_cursor->hasSelection());
    QVERIFY(operationsOf(edit.host).isEmpty());
    QCOMPARE(edit.word.changes, repaints(1));
}

void TestKeyboard::shiftWithoutWayChangesNothing()
{
    Edit edit(QStringLiteral("abc"), 2);
    QVERIFY(press(edit.word, Qt::Key_Home, Shift));
    edit.forget();
    QVERIFY(press(edit.word, Qt::Key_Left, Shift));
    QCOMPARE(edit.selection(), (QVector<int>{0, 2, 2, 0}));
    QVERIFY(operationsOf(edit.host).isEmpty());
}

void TestKeyboard::staleAnchorIsKeptWithinTheText()
{
    Edit edit(QStringLiteral("abc"), 1);
    edit.word.select(0, 3);
    edit.word.m_selAnchor = 50;
    QVERIFY(press(edit.word, Qt::Key_Right, Shift));
    QCOMPARE(QVector<int>({edit.word.m_selStart, edit.word.m_selEnd}), QVector<int>({2, 3}));
    QCOMPARE(edit.word.m_cursor->position(), 2);
    QCOMPARE(edit.word.m_cursor->anchor(), 3);
}

void TestKeyboard::clearSelectionGoesToItsEnd()
{
    Edit edit(QStringLiteral("abcdef"), 1);
    edit.word.select(2, 4);
    edit.word.clearSelection();
    QCOMPARE(edit.selection(), (QVector<int>{4, 4, -1, 1}));
    QCOMPARE(operationsOf(edit.host), QVector<int>{TextOperationAttributes});
}

void TestKeyboard::anyKeysLeaveAnEditThatWorks_data()
{
    caretNeverStandsInsideACharacter_data();
}

/// After each key the layout is that of the present text, and caret and selection lie on whole characters.
void TestKeyboard::anyKeysLeaveAnEditThatWorks()
{
    QFETCH(bool, box);
    QFETCH(bool, vertical);
    const Qt::Orientation orientation = vertical ? Qt::Vertical : Qt::Horizontal;
    const QString text = QStringLiteral("ab") + grin + QStringLiteral("c\n\ndef");
    std::unique_ptr<Edit> edit(box ? new Edit(text, QSizeF(4000, 4000), orientation)
                                   : new Edit(text));
    OpenWord &word = edit->word;
    word.m_textOrientation = orientation;
    const int keys[] = {Qt::Key_Left,     Qt::Key_Right,    Qt::Key_Up,     Qt::Key_Down,
                        Qt::Key_Home,     Qt::Key_End,      Qt::Key_Delete, Qt::Key_Backspace,
                        Qt::Key_Return,   Qt::Key_X,        Qt::Key_V,      Qt::Key_C,
                        Qt::Key_A,        Qt::Key_K,        Qt::Key_B,      Qt::Key_Z,
                        Qt::Key_Asterisk, Qt::Key_Question, Qt::Key_F,      Qt::Key_unknown};
    const Qt::KeyboardModifiers modifiers[] = {None, None, None, Shift, Ctrl, CtrlShift, Alt};
    const QString typed[] = {QStringLiteral("x"), grin, QStringLiteral("\t"), QString()};
    QRandomGenerator random(11);
    for (int i = 0; i < 300; ++i) {
        const int key = keys[random.bounded(20)];
        const Qt::KeyboardModifiers held = modifiers[random.bounded(7)];
        const bool isLetter = key == Qt::Key_unknown || (key >= Qt::Key_A && key <= Qt::Key_Z);
        QVERIFY(press(word, key, held, isLetter ? typed[random.bounded(4)] : QString()));
        const QByteArray where = QByteArrayLiteral("key ") + QByteArray::number(key)
                                 + QByteArrayLiteral(", number ") + QByteArray::number(i);
        const QString laidOut = edit->laidOutText();
        word.updateBoundingRectImpl(true);
        QVERIFY2(edit->laidOutText() == laidOut, where.constData());
        QVERIFY2(!isInsidePair(word, word.m_cursor->position()), where.constData());
        if (word.m_selStart != word.m_selEnd)
            QVERIFY2(!isInsidePair(word, word.m_selStart) && !isInsidePair(word, word.m_selEnd),
                     where.constData());
        QVERIFY2(word.m_selStart <= word.m_selEnd, where.constData());
    }
    QVERIFY(press(word, Qt::Key_Escape));
    QVERIFY(!word.m_editing);
}

void TestKeyboard::listenerMayEndTheEdit_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::newRow("letter") << int(Qt::Key_X) << int(None) << "x";
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << int(None) << "";
    QTest::newRow("Delete") << int(Qt::Key_Delete) << int(None) << "";
    QTest::newRow("Return") << int(Qt::Key_Return) << int(None) << "";
    QTest::newRow("motion") << int(Qt::Key_Left) << int(None) << "";
    QTest::newRow("selection") << int(Qt::Key_Left) << int(Shift) << "";
    QTest::newRow("select all") << int(Qt::Key_A) << int(Ctrl) << "";
    QTest::newRow("undo") << int(Qt::Key_Z) << int(Ctrl) << "";
    QTest::newRow("cut") << int(Qt::Key_X) << int(Ctrl) << "";
    QTest::newRow("paragraph end") << int(Qt::Key_End) << int(Ctrl) << "";
    QTest::newRow("command") << int(Qt::Key_B) << int(CtrlShift) << "";
    QTest::newRow("Escape") << int(Qt::Key_Escape) << int(None) << "";
}

void TestKeyboard::listenerMayEndTheEdit()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcdef"));
    word.beginEdit();
    word.select(2, 4);
    host.onTextOperation = [&](int) { word.endEdit(); };
    QVERIFY(press(word, key, Qt::KeyboardModifiers(modifiers), text));
    QVERIFY(!word.m_editing);
    host.onTextOperation = nullptr;
    contentOf(word);
    word.beginEdit();
    type(word, QStringLiteral("y"));
    QVERIFY(word.toPlainText().contains(QLatin1Char('y')));
    QString laidOut;
    for (const TextLine &line : word.m_wordManager->textLayout().lines)
        laidOut += line.text;
    QCOMPARE(laidOut, word.toPlainText().remove(QLatin1Char('\n')));
}

void TestKeyboard::listenerMayReleaseTheObject_data()
{
    listenerMayEndTheEdit_data();
}

void TestKeyboard::listenerMayReleaseTheObject()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    CallingHost host;
    QPointer<OpenWord> word = new OpenWord(&host);
    host.scene().addItem(word);
    word->add(QStringLiteral("abcdef"));
    word->beginEdit();
    word->select(2, 4);
    bool released = false;
    host.onTextOperation = [&](int) {
        if (!released) {
            released = true;
            word->Release();
        }
    };
    QVERIFY(press(*word, key, Qt::KeyboardModifiers(modifiers), text));
    QVERIFY(released);
    host.onTextOperation = nullptr;
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    host.stack().clear();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(word.isNull() || !word->scene());
}

void TestKeyboard::compositionEndsWhenTheCaretMoves_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ends");
    QTest::newRow("motion") << int(Qt::Key_Left) << int(None) << "" << true;
    QTest::newRow("selection") << int(Qt::Key_Left) << int(Shift) << "" << true;
    QTest::newRow("paragraph start") << int(Qt::Key_Home) << int(Ctrl) << "" << true;
    QTest::newRow("select all") << int(Qt::Key_A) << int(Ctrl) << "" << true;
    QTest::newRow("undo") << int(Qt::Key_Z) << int(Ctrl) << "" << true;
    QTest::newRow("redo") << int(Qt::Key_Z) << int(CtrlShift) << "" << true;
    QTest::newRow("letter") << int(Qt::Key_X) << int(None) << "x" << true;
    QTest::newRow("Return") << int(Qt::Key_Return) << int(None) << "" << true;
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << int(None) << "" << true;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << int(None) << "" << true;
    QTest::newRow("command") << int(Qt::Key_B) << int(CtrlShift) << "" << true;
    QTest::newRow("copy") << int(Qt::Key_C) << int(Ctrl) << "" << false;
    QTest::newRow("Delete") << int(Qt::Key_Delete) << int(None) << "" << true;
    QTest::newRow("swallowed key") << int(Qt::Key_S) << int(Ctrl) << "" << false;
    QTest::newRow("function key") << int(Qt::Key_F5) << int(None) << "" << false;
}

void TestKeyboard::compositionEndsWhenTheCaretMoves()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    QFETCH(bool, ends);
    Edit edit(QStringLiteral("abc"), 2);
    edit.word.m_preeditString = QStringLiteral("b"); // stands ahead of the caret
    QVERIFY(press(edit.word, key, Qt::KeyboardModifiers(modifiers), text));
    QCOMPARE(edit.word.m_preeditString.isEmpty(), ends);
}

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
