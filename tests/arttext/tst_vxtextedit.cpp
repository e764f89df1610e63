// SPDX-License-Identifier: MIT
// The overlay editor: how it begins, takes keys and formats, grows, and lets go of its object.
#include "arttext/ivxtextedit.h"
#include "arttext/vxarttext.h"
#include "arttext/vxtextedit.h"
#include "tests/support/recordinghost.h"
#include "tests/support/testfont.h"

#include <QContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QMenu>
#include <QMetaMethod>
#include <QPointer>
#include <QTextList>
#include <QTimer>
#include <QtTest>

#include <limits>
#include <memory>

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// An object that writes down what its editor tells it.
class RecordingItem : public IVxTextEdit
{
public:
    virtual ~RecordingItem() = default;
    QRectF position{10, 20, 120, 60};
    QString text;
    QString html;
    QStringList calls;
    QStringList texts; ///< that setPlainText() brought
    QStringList htmls; ///< that setTextHtml() brought

    QRectF getTextPosition() override { return position; }
    QPoint getViewPoint() override { return {}; }
    QPoint getViewGlobalPt(const QPoint &point) override { return point; }
    QString getPlainText() override { return text; }
    void setPlainText(const QString &plain) override
    {
        calls.append(QStringLiteral("text"));
        texts.append(plain);
    }
    QString getTextHtml() override { return html; }
    void setTextHtml(const QString &rich) override
    {
        calls.append(QStringLiteral("html"));
        htmls.append(rich);
    }
    void EndEdit() override { calls.append(QStringLiteral("end")); }
    QRectF GetViewRect() override { return {}; }
    void TextEditHasBeenDestroy() override { calls.append(QStringLiteral("destroyed")); }
    IVxPage *GetCurrentPage() override { return nullptr; }
};

class OpenEdit : public CVxTextEdit
{
public:
    using CVxTextEdit::CVxTextEdit;
    using CVxTextEdit::m_bold;
    using CVxTextEdit::m_cross;
    using CVxTextEdit::m_enableHtml;
    using CVxTextEdit::m_focusLost;
    using CVxTextEdit::m_italic;
    using CVxTextEdit::m_mark;
    using CVxTextEdit::m_textItem;
    using CVxTextEdit::m_timer;
    using CVxTextEdit::m_toolbar;
    using CVxTextEdit::m_underline;

    template<typename Signal>
    bool isConnected(Signal signal) const
    {
        return isSignalConnected(QMetaMethod::fromSignal(signal));
    }
};

class OpenArt : public CVxArtText
{
public:
    using CVxArtText::CVxArtText;
    using CVxArtText::m_charPaths;
    using CVxArtText::m_editing;
    using CVxArtText::m_textEdit;
    using CVxArtText::m_textWord;
};

QVariant valueOf(const QTextEdit &edit, QTextFormat::Property id)
{
    return edit.currentCharFormat().property(id);
}

/// That of the character behind \a position.
QVariant propertyAt(const QTextEdit &edit, int position, QTextFormat::Property id)
{
    QTextCursor cursor(edit.document());
    cursor.setPosition(position + 1);
    return cursor.charFormat().property(id);
}

void select(QTextEdit &edit, int from, int to)
{
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
}

void setSlotRows()
{
    const char *const rows[] = {"onTextBold()",
                                "onTextUnderline()",
                                "onTextItalic()",
                                "onTextFamily(QString)",
                                "onTextSize(QString)",
                                "onTextStyle(int)",
                                "onTextAlign(Qt::Alignment)",
                                "onTextMark(int)",
                                "onTextCross()",
                                "onSysKeyboard()",
                                "onHandWrite()",
                                "onClearText()",
                                "currentCharFormatChanged(QTextCharFormat)",
                                "cursorPositionChanged()",
                                "focusMe()"};
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("signature");
    int index = 0;
    for (const char *row : rows)
        QTest::newRow(row) << index++ << QByteArray(row);
}

} // namespace

class TestVxTextEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCOMPARE(loadBoxTestFont(), QStringLiteral("BoxTest")); }
    void init();
    void cleanup();

    // How it begins
    void newEditorLooksAsTold();
    void newEditorHasDefaultFontEverywhere();
    void fieldsBeginEmpty();
    void ownSignalsReachOwnSlots();
    void slotsStandInTheirOrder_data() { setSlotRows(); }
    void slotsStandInTheirOrder();

    // The edit
    void editBeginsOverTheObject();
    void editorOfEmptyTextCoversTheObject();
    void editBeginsWithHtmlWhenEnabled();
    void keyReachesObjectAsWholePlainText();
    void eachKeyIsHandedOver();
    void keyReachesObjectAsHtmlWhenEnabled();
    void editorGrowsDownwardsWithItsText();
    void editorFollowsItsObject();
    void clearedEditorCoversTheObjectAgain();
    void oddPlacesAreNoHarm_data();
    void oddPlacesAreNoHarm();
    void endOfEditHidesEditorAndEndsObject();
    void focusThatLeavesKeepsTheEdit();
    void focusThatComesClearsTheFlag();
    void contextMenuIsNotShown();

    // Formats
    void boldTwiceReturnsToNormal();
    void underlineItalicAndCrossToggle();
    void familyIsMerged();
    void sizeAboveZeroIsMerged_data();
    void sizeAboveZeroIsMerged();
    void colourIsASolidBrush();
    void marksAreCrossed_data();
    void marksAreCrossed();
    void listStyleOfTheBlock_data();
    void listStyleOfTheBlock();
    void blockLeavesItsList();
    void listTakesOverIndentOfBlock();
    void alignmentOfWholeText_data();
    void alignmentOfWholeText();
    void formatOnSelectionLeavesTheRest();
    void formatWithoutSelectionHoldsForWhatFollows();
    void formatHandsTheTextToTheObject();
    void clearEmptiesTheText();

    // Timer, aids, rectangle
    void timerRunsDuringTheEdit();
    void timerCanBePaused();
    void hidingStopsTheTimer();
    void withoutTimerPauseIsNoHarm();
    void aidsDoNothing();
    void inflatedRectangle_data();
    void inflatedRectangle();
    void parentIsExchanged();

    // Life
    void endOfEditorIsToldToItsObject();
    void objectThatEndedIsForgotten();
    void keyWithoutObjectDoesNothing();
    void editorWithoutObjectDoesNothingAndStaysAlive();
    void editorWithoutFrameworkDoesNothingAndStaysAlive();
    void frameworkThatEndsDuringTheEditIsNoHarm();

    // With the object
    void keysReachTheArtText();
    void editorGrowsOverTheArtText();
    void focusThatLeavesKeepsArtTextInEditState();
    void editorAndArtTextEndInEitherOrder();

private:
    std::unique_ptr<RecordingHost> m_host;
};

void TestVxTextEdit::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->defaultFontSize = 12; // 16 pixels: a line is 16 high, a Latin character 8 wide
}

void TestVxTextEdit::cleanup()
{
    m_host.reset();
}

// How it begins

void TestVxTextEdit::newEditorLooksAsTold()
{
    const OpenEdit edit;
    QCOMPARE(edit.styleSheet(),
             QStringLiteral(
                 " QWidget { background-color: rgb(232, 232, 232);color:rgb(255,0,0);}"));
    QCOMPARE(edit.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(edit.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QVERIFY(edit.testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(edit.frameShape(), QFrame::NoFrame);
}

void TestVxTextEdit::newEditorHasDefaultFontEverywhere()
{
    m_host->defaultFontSize = 21;
    const OpenEdit edit;
    for (const QFont &font : {edit.font(), edit.currentFont(), edit.currentCharFormat().font(),
                              edit.document()->defaultFont()}) {
        QCOMPARE(font.family(), QStringLiteral("BoxTest"));
        QCOMPARE(font.pointSize(), 21);
    }
}

void TestVxTextEdit::fieldsBeginEmpty()
{
    const OpenEdit edit;
    QVERIFY(!edit.m_textItem);
    QVERIFY(!edit.m_bold && !edit.m_italic && !edit.m_underline && !edit.m_cross);
    QCOMPARE(int(edit.m_mark), 0);
    QVERIFY(!edit.m_focusLost);
    QVERIFY(!edit.m_timer);
    QVERIFY(!edit.m_toolbar);
    QVERIFY(!edit.m_enableHtml);
}

void TestVxTextEdit::ownSignalsReachOwnSlots()
{
    const OpenEdit edit;
    QVERIFY(edit.isConnected(&QTextEdit::currentCharFormatChanged));
    QVERIFY(edit.isConnected(&QTextEdit::cursorPositionChanged));
    QVERIFY(!edit.isConnected(&QTextEdit::copyAvailable));
}

void TestVxTextEdit::slotsStandInTheirOrder()
{
    QFETCH(int, index);
    QFETCH(QByteArray, signature);
    const QMetaObject &meta = CVxTextEdit::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 15);
    const QMetaMethod method = meta.method(meta.methodOffset() + index);
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(method.methodType(), QMetaMethod::Slot);
}

// The edit

void TestVxTextEdit::editBeginsOverTheObject()
{
    RecordingItem item;
    item.text = QStringLiteral("ab");
    item.position = QRectF(10.4, 20.6, 120, 60);
    OpenEdit edit;
    edit.BeginEdit(&item);
    QCOMPARE(edit.toPlainText(), QStringLiteral("ab"));
    QVERIFY(edit.isVisible());
    // A line of 16 between margins of 4; the last row belongs to the editor.
    QCOMPARE(edit.geometry(), QRect(10, 21, 120, 25));
    QCOMPARE(edit.textCursor().position(), 0);
    QCOMPARE(edit.currentFont().family(), QStringLiteral("BoxTest"));
    QCOMPARE(item.calls, QStringList());
}

void TestVxTextEdit::editorOfEmptyTextCoversTheObject()
{
    RecordingItem item;
    OpenEdit edit;
    edit.BeginEdit(&item);
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 60));
}

void TestVxTextEdit::editBeginsWithHtmlWhenEnabled()
{
    RecordingItem item;
    item.text = QStringLiteral("plain");
    item.html = QStringLiteral("<p>a<b>b</b></p>");
    OpenEdit edit;
    edit.enableHtml(true);
    edit.BeginEdit(&item);
    QCOMPARE(edit.toPlainText(), QStringLiteral("ab"));
    QCOMPARE(propertyAt(edit, 1, QTextFormat::FontWeight).toInt(), 75);
}

void TestVxTextEdit::keyReachesObjectAsWholePlainText()
{
    RecordingItem item;
    item.text = QStringLiteral("ab\ncd");
    OpenEdit edit;
    edit.BeginEdit(&item);
    QTest::keyClick(&edit, Qt::Key_X, Qt::NoModifier);
    QCOMPARE(item.texts, QStringList(QStringLiteral("xab\ncd")));
}

void TestVxTextEdit::eachKeyIsHandedOver()
{
    RecordingItem item;
    OpenEdit edit;
    edit.BeginEdit(&item);
    QTest::keyClicks(&edit, QStringLiteral("ab"));
    QTest::keyClick(&edit, Qt::Key_Left);
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QCOMPARE(item.texts, QStringList({QStringLiteral("a"), QStringLiteral("ab"),
                                      QStringLiteral("ab"), QStringLiteral("b")}));
    QVERIFY(item.htmls.isEmpty());
}

void TestVxTextEdit::keyReachesObjectAsHtmlWhenEnabled()
{
    RecordingItem item;
    OpenEdit edit;
    edit.enableHtml(true);
    edit.BeginEdit(&item);
    QTest::keyClick(&edit, Qt::Key_A);
    QCOMPARE(item.htmls, QStringList(edit.toHtml()));
    QVERIFY(item.htmls.constFirst().contains(QLatin1String("<html>")));
    QVERIFY(item.texts.isEmpty());
}

void TestVxTextEdit::editorGrowsDownwardsWithItsText()
{
    RecordingItem item;
    OpenEdit edit;
    edit.BeginEdit(&item);
    QTest::keyClick(&edit, Qt::Key_A);
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 25));
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 41));
    // Fourteen characters fill the 112 pixels between the margins; the fifteenth wraps.
    QTest::keyClicks(&edit, QStringLiteral("abcdefg hijklm"));
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 41));
    QTest::keyClick(&edit, Qt::Key_N);
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 57));
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 185));
}

void TestVxTextEdit::editorFollowsItsObject()
{
    RecordingItem item;
    item.text = QStringLiteral("ab");
    OpenEdit edit;
    edit.BeginEdit(&item);
    item.position = QRectF(-30.5, 7, 200.2, 60);
    edit.updateBoundingRect();
    QCOMPARE(edit.geometry(), QRect(-30, 7, 200, 25));
}

void TestVxTextEdit::clearedEditorCoversTheObjectAgain()
{
    RecordingItem item;
    item.text = QStringLiteral("a");
    OpenEdit edit;
    edit.BeginEdit(&item);
    QTest::keyClick(&edit, Qt::Key_Delete);
    QCOMPARE(item.texts, QStringList(QString()));
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 60));
}

void TestVxTextEdit::oddPlacesAreNoHarm_data()
{
    QTest::addColumn<QRectF>("place");
    QTest::newRow("empty") << QRectF();
    QTest::newRow("negative size") << QRectF(10, 20, -50, -50);
    QTest::newRow("not a number") << QRectF(notANumber, notANumber, notANumber, notANumber);
    QTest::newRow("endless") << QRectF(-endless, endless, endless, endless);
    QTest::newRow("far") << QRectF(1e300, -1e300, 1e300, 1e300);
}

void TestVxTextEdit::oddPlacesAreNoHarm()
{
    QFETCH(QRectF, place);
    RecordingItem item;
    item.text = QStringLiteral("ab");
    OpenEdit edit;
    edit.BeginEdit(&item);
    item.position = place;
    QTest::keyClick(&edit, Qt::Key_X);
    QCOMPARE(item.texts, QStringList(QStringLiteral("xab")));
    item.position = QRectF(10, 20, 120, 60);
    QTest::keyClick(&edit, Qt::Key_Y);
    QTest::keyClick(&edit, Qt::Key_Z); // the first key measured a text that stood wrapped elsewhere
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 25));
}

void TestVxTextEdit::endOfEditHidesEditorAndEndsObject()
{
    RecordingItem item;
    OpenEdit edit;
    edit.BeginEdit(&item);
    edit.EndEdit();
    QVERIFY(!edit.isVisible());
    QCOMPARE(item.calls, QStringList(QStringLiteral("end")));
    edit.BeginEdit(&item);
    QVERIFY(edit.isVisible());
}

void TestVxTextEdit::focusThatLeavesKeepsTheEdit()
{
    RecordingItem item;
    OpenEdit edit;
    edit.BeginEdit(&item);
    QTest::ignoreMessage(QtDebugMsg, "CVxTextEdit::focusOutEvent");
    QFocusEvent leaves(QEvent::FocusOut, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(&edit, &leaves);
    QVERIFY(edit.isVisible());
    QCOMPARE(item.calls, QStringList());
    QTest::keyClick(&edit, Qt::Key_A);
    QCOMPARE(item.texts, QStringList(QStringLiteral("a")));
}

void TestVxTextEdit::focusThatComesClearsTheFlag()
{
    OpenEdit edit;
    edit.m_focusLost = true;
    QFocusEvent comes(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&edit, &comes);
    QVERIFY(!edit.m_focusLost);
}

void TestVxTextEdit::contextMenuIsNotShown()
{
    RecordingItem item;
    OpenEdit edit;
    edit.BeginEdit(&item);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(edit.viewport(), &event);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(edit.findChildren<QMenu *>().isEmpty());
}

// Formats

void TestVxTextEdit::boldTwiceReturnsToNormal()
{
    OpenEdit edit;
    edit.onTextBold();
    QVERIFY(edit.m_bold);
    QCOMPARE(valueOf(edit, QTextFormat::FontWeight).toInt(), 75);
    edit.onTextBold();
    QVERIFY(!edit.m_bold);
    QCOMPARE(valueOf(edit, QTextFormat::FontWeight).toInt(), 50);
}

void TestVxTextEdit::underlineItalicAndCrossToggle()
{
    OpenEdit edit;
    edit.onTextUnderline();
    edit.onTextItalic();
    edit.onTextCross();
    QVERIFY(edit.m_underline && edit.m_italic && edit.m_cross);
    QCOMPARE(valueOf(edit, QTextFormat::TextUnderlineStyle).toInt(), 1);
    QCOMPARE(valueOf(edit, QTextFormat::FontItalic), QVariant(true));
    QCOMPARE(valueOf(edit, QTextFormat::FontStrikeOut), QVariant(true));
    edit.onTextUnderline();
    edit.onTextItalic();
    edit.onTextCross();
    QVERIFY(!edit.m_underline && !edit.m_italic && !edit.m_cross);
    QCOMPARE(valueOf(edit, QTextFormat::TextUnderlineStyle).toInt(), 0);
    QCOMPARE(valueOf(edit, QTextFormat::FontItalic), QVariant(false));
    QCOMPARE(valueOf(edit, QTextFormat::FontStrikeOut), QVariant(false));
}

void TestVxTextEdit::familyIsMerged()
{
    OpenEdit edit;
    edit.onTextBold();
    edit.onTextFamily(QStringLiteral("Nothing Sans"));
    QCOMPARE(valueOf(edit, QTextFormat::FontFamily).toString(), QStringLiteral("Nothing Sans"));
    QCOMPARE(valueOf(edit, QTextFormat::FontWeight).toInt(), 75);
}

void TestVxTextEdit::sizeAboveZeroIsMerged_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<double>("expected"); // 0: refused
    const auto row = [](const char *size, double expected) {
        QTest::newRow(size) << QString::fromLatin1(size) << expected;
    };
    row("18", 18);
    row("12.5", 12.5);
    row(" 7 ", 7);
    row("1e1", 10);
    for (const char *refused : {"0", "abc", "", "-3", "0.0", "nan", "inf", "12,5"})
        row(refused, 0);
}

void TestVxTextEdit::sizeAboveZeroIsMerged()
{
    QFETCH(QString, size);
    QFETCH(double, expected);
    RecordingItem item;
    OpenEdit edit;
    edit.BeginEdit(&item);
    const QTextCharFormat before = edit.currentCharFormat();
    edit.onTextSize(size);
    if (expected > 0.0) {
        QCOMPARE(valueOf(edit, QTextFormat::FontPointSize).toDouble(), expected);
        QCOMPARE(item.calls, QStringList(QStringLiteral("text")));
    } else {
        QCOMPARE(edit.currentCharFormat(), before);
        QCOMPARE(item.calls, QStringList());
    }
}

void TestVxTextEdit::colourIsASolidBrush()
{
    OpenEdit edit;
    edit.onTextColor(QColor(1, 2, 3));
    QCOMPARE(valueOf(edit, QTextFormat::ForegroundBrush).value<QBrush>(),
             QBrush(QColor(1, 2, 3), Qt::SolidPattern));
}

void TestVxTextEdit::marksAreCrossed_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("mark");
    QTest::addColumn<int>("alignment");
    QTest::newRow("1") << 1 << 256 << 2;
    QTest::newRow("2") << 2 << 1 << 1;
    QTest::newRow("0") << 0 << 0 << 0;
    QTest::newRow("another") << 7 << 0 << 0;
}

void TestVxTextEdit::marksAreCrossed()
{
    QFETCH(int, given);
    QFETCH(int, mark);
    QFETCH(int, alignment);
    OpenEdit edit;
    edit.onTextMark(given == 1 ? 2 : 1);
    edit.onTextMark(given);
    QCOMPARE(int(edit.m_mark), mark);
    QCOMPARE(valueOf(edit, QTextFormat::TextVerticalAlignment).toInt(), alignment);
}

void TestVxTextEdit::listStyleOfTheBlock_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("style");
    for (int style = 2; style <= 8; ++style)
        QTest::addRow("%d", style) << style << -style;
    for (int other : {1, -1, 9, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        QTest::addRow("%d", other) << other << -1;
}

void TestVxTextEdit::listStyleOfTheBlock()
{
    QFETCH(int, given);
    QFETCH(int, style);
    OpenEdit edit;
    edit.setPlainText(QStringLiteral("a\nb"));
    edit.onTextStyle(given);
    QTextList *list = edit.textCursor().currentList();
    QVERIFY(list);
    QCOMPARE(int(list->format().style()), style);
    QVERIFY(!edit.document()->lastBlock().textList());
    edit.document()->undo(); // one step
    QVERIFY(!edit.textCursor().currentList());
}

void TestVxTextEdit::blockLeavesItsList()
{
    OpenEdit edit;
    edit.setPlainText(QStringLiteral("a"));
    edit.onTextStyle(4);
    QVERIFY(edit.textCursor().currentList());
    edit.onTextStyle(0);
    QVERIFY(!edit.textCursor().currentList());
}

void TestVxTextEdit::listTakesOverIndentOfBlock()
{
    OpenEdit edit;
    edit.setPlainText(QStringLiteral("a"));
    QTextBlockFormat indented;
    indented.setIndent(3);
    edit.textCursor().mergeBlockFormat(indented);
    edit.onTextStyle(3);
    QCOMPARE(edit.textCursor().currentList()->format().indent(), 4);
    QCOMPARE(edit.textCursor().blockFormat().indent(), 0);
    // A list that is there keeps its indent.
    edit.onTextStyle(5);
    QCOMPARE(edit.textCursor().currentList()->format().indent(), 4);
    QCOMPARE(int(edit.textCursor().currentList()->format().style()), -5);
    // The last indent has no next one.
    edit.onTextStyle(0);
    indented.setIndent(std::numeric_limits<int>::max());
    edit.textCursor().mergeBlockFormat(indented);
    edit.onTextStyle(3);
    QCOMPARE(edit.textCursor().currentList()->format().indent(), std::numeric_limits<int>::max());
}

void TestVxTextEdit::alignmentOfWholeText_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("expected");
    QTest::newRow("left") << 1 << 0x11;
    QTest::newRow("right") << 2 << 0x12;
    QTest::newRow("centre") << 4 << 4;
    QTest::newRow("justified") << 8 << 8;
    QTest::newRow("default of objects") << 0x84 << 0x40;
    QTest::newRow("none") << 0 << 0x40;
    QTest::newRow("absolute left") << 0x11 << 0x40;
}

void TestVxTextEdit::alignmentOfWholeText()
{
    QFETCH(int, given);
    QFETCH(int, expected);
    OpenEdit edit;
    edit.setPlainText(QStringLiteral("a\nb\nc"));
    QTextBlockFormat before;
    before.setProperty(QTextFormat::BlockAlignment, 0x40);
    select(edit, 0, 5);
    edit.textCursor().mergeBlockFormat(before);
    select(edit, 2, 3);
    edit.onTextAlign(Qt::Alignment(given));
    for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next())
        QCOMPARE(block.blockFormat().property(QTextFormat::BlockAlignment).toInt(), expected);
    QCOMPARE(edit.textCursor().position(), 3);
}

void TestVxTextEdit::formatOnSelectionLeavesTheRest()
{
    OpenEdit edit;
    edit.setPlainText(QStringLiteral("abcd"));
    select(edit, 1, 3);
    edit.onTextBold();
    QCOMPARE(propertyAt(edit, 1, QTextFormat::FontWeight).toInt(), 75);
    QCOMPARE(propertyAt(edit, 2, QTextFormat::FontWeight).toInt(), 75);
    QVERIFY(propertyAt(edit, 0, QTextFormat::FontWeight).toInt() != 75);
    QVERIFY(propertyAt(edit, 3, QTextFormat::FontWeight).toInt() != 75);
}

void TestVxTextEdit::formatWithoutSelectionHoldsForWhatFollows()
{
    RecordingItem item;
    item.text = QStringLiteral("ab");
    OpenEdit edit;
    edit.BeginEdit(&item);
    edit.onTextItalic();
    QTest::keyClick(&edit, Qt::Key_X);
    QCOMPARE(edit.toPlainText(), QStringLiteral("xab"));
    QCOMPARE(propertyAt(edit, 0, QTextFormat::FontItalic), QVariant(true));
    QVERIFY(!propertyAt(edit, 1, QTextFormat::FontItalic).toBool());
}

void TestVxTextEdit::formatHandsTheTextToTheObject()
{
    RecordingItem item;
    item.text = QStringLiteral("ab");
    OpenEdit edit;
    edit.BeginEdit(&item);
    edit.onTextBold();
    QCOMPARE(item.texts, QStringList(QStringLiteral("ab")));
    edit.enableHtml(true);
    select(edit, 0, 2);
    edit.onTextSize(QStringLiteral("24")); // 32 pixels
    QCOMPARE(item.htmls, QStringList(edit.toHtml()));
    QCOMPARE(edit.geometry(), QRect(10, 20, 120, 41));
}

void TestVxTextEdit::clearEmptiesTheText()
{
    OpenEdit edit;
    edit.setPlainText(QStringLiteral("ab"));
    edit.onClearText();
    QCOMPARE(edit.toPlainText(), QString());
}

// Timer, aids, rectangle

void TestVxTextEdit::timerRunsDuringTheEdit()
{
    RecordingItem item;
    OpenEdit edit;
    edit.m_timer = new QTimer;
    edit.BeginEdit(&item);
    QVERIFY(edit.m_timer->isActive());
    edit.EndEdit();
    QVERIFY(!edit.m_timer->isActive());
}

void TestVxTextEdit::timerCanBePaused()
{
    OpenEdit edit;
    edit.m_timer = new QTimer;
    edit.ResumeTimer();
    QVERIFY(edit.m_timer->isActive());
    edit.PauseTimer();
    QVERIFY(!edit.m_timer->isActive());
}

void TestVxTextEdit::hidingStopsTheTimer()
{
    OpenEdit edit;
    edit.m_timer = new QTimer;
    edit.setVisible(true);
    edit.ResumeTimer();
    edit.setVisible(true);
    QVERIFY(edit.m_timer->isActive());
    edit.setVisible(false);
    QVERIFY(!edit.m_timer->isActive());
    QVERIFY(!edit.isVisible());
}

void TestVxTextEdit::withoutTimerPauseIsNoHarm()
{
    OpenEdit edit;
    edit.PauseTimer();
    edit.ResumeTimer();
    QVERIFY(!edit.m_timer);
}

void TestVxTextEdit::aidsDoNothing()
{
    RecordingItem item;
    item.text = QStringLiteral("ab");
    OpenEdit edit;
    edit.BeginEdit(&item);
    const QRect geometry = edit.geometry();
    edit.onSysKeyboard();
    edit.onHandWrite();
    edit.hideSysKeyboard();
    edit.hideHandWrite();
    edit.UpdateToolbarPos();
    edit.ToolbarHasBeenDeleted();
    edit.currentCharFormatChanged(QTextCharFormat());
    edit.cursorPositionChanged();
    edit.focusMe();
    QCOMPARE(item.calls, QStringList());
    QCOMPARE(edit.toPlainText(), QStringLiteral("ab"));
    QCOMPARE(edit.geometry(), geometry);
    QVERIFY(edit.isVisible());
}

void TestVxTextEdit::inflatedRectangle_data()
{
    QTest::addColumn<int>("by");
    QTest::addColumn<QRectF>("expected");
    QTest::newRow("5") << 5 << QRectF(-3.5, 15.25, 40, 50.5);
    QTest::newRow("0") << 0 << QRectF(1.5, 20.25, 30, 40.5);
    QTest::newRow("-2") << -2 << QRectF(3.5, 22.25, 26, 36.5);
    QTest::newRow("least") << std::numeric_limits<int>::min()
                           << QRectF(2147483649.5, 2147483668.25, -4294967266.0, -4294967255.5);
}

void TestVxTextEdit::inflatedRectangle()
{
    QFETCH(int, by);
    QFETCH(QRectF, expected);
    OpenEdit edit;
    QCOMPARE(edit.InflateRect(QRectF(1.5, 20.25, 30, 40.5), by), expected);
}

void TestVxTextEdit::parentIsExchanged()
{
    QWidget parent;
    auto *edit = new OpenEdit;
    edit->UpdateParent(&parent);
    QCOMPARE(edit->parentWidget(), &parent);
    edit->UpdateParent(nullptr);
    QVERIFY(!edit->parentWidget());
    delete edit;
}

// Life

void TestVxTextEdit::endOfEditorIsToldToItsObject()
{
    RecordingItem item;
    QPointer<QTimer> timer = new QTimer;
    QPointer<QObject> toolbar = new QObject;
    {
        OpenEdit edit;
        edit.m_timer = timer;
        edit.m_toolbar = toolbar;
        edit.BeginEdit(&item);
    }
    QCOMPARE(item.calls, QStringList(QStringLiteral("destroyed")));
    QVERIFY(!timer);
    QVERIFY(!toolbar);
}

void TestVxTextEdit::objectThatEndedIsForgotten()
{
    RecordingItem item;
    {
        OpenEdit edit;
        edit.BeginEdit(&item);
        edit.ResetTexItem();
        QVERIFY(!edit.m_textItem);
        edit.EndEdit();
        QVERIFY(!edit.isVisible());
    }
    QCOMPARE(item.calls, QStringList());
}

void TestVxTextEdit::keyWithoutObjectDoesNothing()
{
    RecordingItem item;
    item.text = QStringLiteral("ab");
    OpenEdit edit;
    edit.BeginEdit(&item);
    edit.ResetTexItem();
    QTest::keyClick(&edit, Qt::Key_X);
    QCOMPARE(item.calls, QStringList());
    QCOMPARE(edit.toPlainText(), QStringLiteral("ab"));
}

void TestVxTextEdit::editorWithoutObjectDoesNothingAndStaysAlive()
{
    OpenEdit edit;
    const QRect geometry = edit.geometry();
    edit.BeginEdit(nullptr);
    QVERIFY(!edit.isVisible());
    QTest::keyClick(&edit, Qt::Key_X);
    edit.onTextBold();
    edit.onTextStyle(3);
    edit.onTextAlign(Qt::AlignLeft);
    edit.updateBoundingRect();
    edit.EndEdit();
    edit.ResetTexItem();
    QCOMPARE(edit.geometry(), geometry);
    QCOMPARE(edit.toPlainText(), QString());
}

void TestVxTextEdit::editorWithoutFrameworkDoesNothingAndStaysAlive()
{
    m_host.reset();
    QVERIFY(!GetFramework());
    RecordingItem item;
    item.text = QStringLiteral("ab");
    {
        OpenEdit edit;
        const QRect geometry = edit.geometry();
        edit.BeginEdit(&item);
        QVERIFY(!edit.isVisible());
        QTest::keyClick(&edit, Qt::Key_X);
        edit.onTextBold();
        edit.updateBoundingRect();
        QCOMPARE(edit.geometry(), geometry);
        QCOMPARE(item.calls, QStringList());
        edit.resize(50, 40);
    }
    QCOMPARE(item.calls, QStringList(QStringLiteral("destroyed")));
}

void TestVxTextEdit::frameworkThatEndsDuringTheEditIsNoHarm()
{
    RecordingItem item;
    OpenEdit edit;
    edit.BeginEdit(&item);
    m_host.reset();
    QTest::keyClick(&edit, Qt::Key_X);
    edit.updateBoundingRect();
    QCOMPARE(item.texts, QStringList());
    edit.EndEdit();
    QVERIFY(!edit.isVisible());
}

// With the object

void TestVxTextEdit::keysReachTheArtText()
{
    QGraphicsView view(&m_host->scene());
    m_host->view = &view;
    auto *art = new OpenArt(1, /*finished=*/true, nullptr, m_host.get());
    m_host->scene().addItem(art);
    auto *edit = new OpenEdit(view.viewport());
    art->setTextEdit(edit);
    edit->BeginEdit(art);
    QTest::keyClicks(edit, QStringLiteral("ab"));
    QCOMPARE(art->m_textWord, QStringLiteral("ab"));
    QCOMPARE(art->m_charPaths.size(), 2);
    QTest::keyClick(edit, Qt::Key_Backspace);
    QCOMPARE(art->m_textWord, QStringLiteral("a"));
    QCOMPARE(art->m_charPaths.size(), 1);
    QCOMPARE(m_host->stack().count(), 0);
}

void TestVxTextEdit::editorGrowsOverTheArtText()
{
    QGraphicsView view(&m_host->scene());
    view.resize(400, 300);
    view.setSceneRect(0, 0, 400, 300);
    view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    view.setFrameShape(QFrame::NoFrame);
    m_host->view = &view;
    auto *art = new OpenArt(1, /*finished=*/true, nullptr, m_host.get());
    m_host->scene().addItem(art);
    art->updatePosition(art, QRectF(30, 40, 120, 60));
    auto *edit = new OpenEdit(view.viewport());
    art->setTextEdit(edit);
    edit->BeginEdit(art);
    QCOMPARE(edit->geometry(), QRect(30, 40, 120, 60));
    QTest::keyClick(edit, Qt::Key_A);
    QCOMPARE(edit->geometry(), QRect(30, 40, 120, 25));
    for (int line = 0; line < 4; ++line)
        QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edit->geometry(), QRect(30, 40, 120, 89));
    QCOMPARE(art->getSize(), QSizeF(120, 60)); // the object stays as it is
}

void TestVxTextEdit::focusThatLeavesKeepsArtTextInEditState()
{
    auto *art = new OpenArt(1, /*finished=*/true, nullptr, m_host.get());
    m_host->scene().addItem(art);
    art->setSelected(true);
    QGraphicsSceneMouseEvent clickTwice(QEvent::GraphicsSceneMouseDoubleClick);
    clickTwice.setButton(Qt::LeftButton);
    art->mouseDoubleClickEvent(&clickTwice);
    QVERIFY(art->m_editing);
    auto *edit = new OpenEdit;
    art->setTextEdit(edit);
    edit->BeginEdit(art);
    QTest::ignoreMessage(QtDebugMsg, "CVxTextEdit::focusOutEvent");
    QFocusEvent leaves(QEvent::FocusOut, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(edit, &leaves);
    QVERIFY(edit->isVisible());
    QVERIFY(art->m_editing);
}

void TestVxTextEdit::editorAndArtTextEndInEitherOrder()
{
    auto *art = new OpenArt(1, /*finished=*/true, nullptr, m_host.get());
    QPointer<OpenEdit> edit = new OpenEdit;
    art->setTextEdit(edit);
    edit->BeginEdit(art);
    delete edit;
    QVERIFY(!art->m_textEdit);
    edit = new OpenEdit;
    art->setTextEdit(edit);
    edit->BeginEdit(art);
    delete art;
    QVERIFY(!edit);
}

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "96"); // a point is 4/3 pixels, on whichever screen
    QApplication application(argc, argv);
    TestVxTextEdit test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_vxtextedit.moc"
