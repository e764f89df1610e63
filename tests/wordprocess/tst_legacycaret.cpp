// SPDX-License-Identifier: MIT
// Editing old text: what lies under the pointer, the caret's keys, selecting, typing, and the picture in its place.
#include "legacylines.h"
#include "pointer.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTest>

using namespace Pointer;

class TestLegacyCaret : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // under the pointer
    void positionInRows_data();
    void positionInRows();
    void positionInColumns_data();
    void positionInColumns();
    void positionBeyondAllLines();
    void positionInAnEmptyParagraph();
    void positionInAJustifiedRow();
    void positionInAlignedRows();
    void positionAtAHyphenIsTheEndOfItsLine();
    void positionInALongRun();
    void positionInALongRunIsFoundFast();
    void positionIsTheSameByWalkingAndByHalving();
    void positionIsNeverWithinACodePoint();
    void positionSkipsALineWithoutRoom();
    void positionStaysWithinTheDocument();
    void positionIsNotTakenThroughTheStretch();
    void positionIsThatOfTheCaret_data();
    void positionIsThatOfTheCaret();

    // caret and selection
    void pressPutsTheCaret();
    void pressIsTakenBackThroughFlipAndMirror();
    void pressOutsideTheLinesLeavesTheCaret();
    void dragSelects();
    void dragInColumnsSelects();
    void dragBelowAllLinesKeepsTheSelection();
    void doubleClickSelectsTheLine_data();
    void doubleClickSelectsTheLine();
    void doubleClickAtTheStartDoesNothing();
    void lineOfAHyphenIsSelectedWithoutIt();
    void selectingALineThatIsNotThere();

    // keys
    void keysMoveOnTheLines_data();
    void keysMoveOnTheLines();
    void keysMoveInColumns_data();
    void keysMoveInColumns();
    void keysKnowNoHyphen();
    void keysAndPointerKnowWhereMovedTextStands();
    void shiftSelectsFromLineToLine();
    void typingLaysOutAnew();
    void deletingASelectionLaysOutAnew();
    void returnMakesALine();
    void formatAtASelectionIsShown();
    void capitalsAreShownAndCounted();

    // the object
    void colourIsThatOfTheFirstRun();
    void emptyTextHasNoColour();
    void editThatChangesNothingKeepsTheBox_data();
    void editThatChangesNothingKeepsTheBox();
    void outlineIsThatOfAllRuns();
    void pictureStandsForTheText();
};

namespace {
QTextCharFormat pitched()
{
    return OldWord::formatWith(TextProperty::RowSpacing, 18.0); // 24 px
}

/// In edit state at the scene's corner.
void edit(OldWord &word)
{
    word.beginEdit();
    word.layOut();
    word.setPos(QPointF(0, 0), false);
}

QVector<int> selectionOf(const OldWord &word)
{
    return {word.m_selStart, word.m_selEnd, word.m_selAnchor, word.m_cursor->position()};
}

void press(OldWord &word, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           const QString &text = QString())
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    word.keyPressEvent(&event);
}

/// "bb  b" and two letters of twice the size at 38 px, 24 px below "cb".
void fillRows(OldWord &word)
{
    QTextCharFormat large = OpenWord::format(24);
    large.setProperty(TextProperty::RowSpacing, 18.0);
    word.addBlock(QStringLiteral("bb  b"), OldWord::block(), pitched());
    word.addRun(QStringLiteral("bb"), large);
    word.addBlock(QStringLiteral("cb"), OldWord::block(), pitched());
}

/// Three Han a line: "中文国", "人天地", "日"; or as many a column.
void fillBox(OldWord &word)
{
    if (word.m_textOrientation == Qt::Horizontal)
        word.makeBox(47, 100);
    else
        word.makeBox(100, 47);
    word.addBlock(QStringLiteral("中文国人天地日"), OldWord::block(), pitched());
}
} // namespace

// Under the pointer

void TestLegacyCaret::positionInRows_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("position");
    QTest::newRow("ahead of the line") << QPointF(-5, 5) << 0;
    QTest::newRow("above the line") << QPointF(-5, -50) << 0;
    QTest::newRow("at a midpoint") << QPointF(3, 5) << 0;
    QTest::newRow("behind it") << QPointF(3.1, 5) << 1;
    QTest::newRow("second letter") << QPointF(10.1, 5) << 2;
    QTest::newRow("first half of a blank") << QPointF(18, 5) << 2;
    QTest::newRow("second half") << QPointF(18.1, 5) << 3;
    QTest::newRow("second blank") << QPointF(26.1, 5) << 4;
    QTest::newRow("seam of two runs") << QPointF(38, 5) << 5;
    QTest::newRow("first half of a large letter") << QPointF(44, 5) << 5;
    QTest::newRow("second half of it") << QPointF(44.1, 5) << 6;
    QTest::newRow("last letter") << QPointF(58.1, 5) << 7;
    QTest::newRow("behind the line") << QPointF(500, 5) << 7;
    QTest::newRow("between the lines") << QPointF(0, 23.9) << 0;
    QTest::newRow("next line") << QPointF(0, 24) << 8;
    QTest::newRow("its end") << QPointF(500, 24) << 10;
    QTest::newRow("the room of the last line") << QPointF(500, 47.9) << 10;
    QTest::newRow("below all") << QPointF(0, 48) << -1;
}

void TestLegacyCaret::positionInRows()
{
    QFETCH(QPointF, point);
    QFETCH(int, position);
    OldWord word;
    fillRows(word);
    word.layOut();
    QCOMPARE(word.hCursorPosByMouse(point), position);
}

void TestLegacyCaret::positionInColumns_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("position");
    QTest::newRow("right of all") << QPointF(500, 3) << 0;
    QTest::newRow("at the middle of a character") << QPointF(30, 7) << 0;
    QTest::newRow("below its middle") << QPointF(30, 7.1) << 1;
    QTest::newRow("a lying letter") << QPointF(30, 17) << 1;
    QTest::newRow("below its middle, too") << QPointF(30, 17.1) << 2;
    QTest::newRow("below the column") << QPointF(30, 90) << 3;
    QTest::newRow("between the columns") << QPointF(14.1, 90) << 3;
    QTest::newRow("next column") << QPointF(14, 0) << 4;
    QTest::newRow("its end") << QPointF(3, 50) << 5;
    QTest::newRow("left of all") << QPointF(-11, 0) << -1;
}

void TestLegacyCaret::positionInColumns()
{
    QFETCH(QPointF, point);
    QFETCH(int, position);
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("中bb"), OldWord::block(), pitched()); // right edge at 38
    word.addBlock(QStringLiteral("国"), OldWord::block(), pitched());   // 24 further left
    word.layOut();
    QCOMPARE(word.vCursorPosByMouse(point), position);
}

void TestLegacyCaret::positionBeyondAllLines()
{
    OldWord word;
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 0)), -1); // no lines at all
    word.addBlock(QStringLiteral("b"));                  // no row spacing: 8 px high
    word.layOut();
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 7.9)), 0);
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 8)), -1);
}

void TestLegacyCaret::positionInAnEmptyParagraph()
{
    OldWord word;
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.addBlock(QString(), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 25)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(90, 25)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(90, 49)), 4);
}

void TestLegacyCaret::positionInAJustifiedRow()
{
    OldWord word;
    word.makeBox(60, 50);
    word.addBlock(QStringLiteral("bbb"), OldWord::blockWith(TextProperty::Alignment, 8), pitched());
    word.layOut();
    // 19 px between each two letters: the caret stands at 25 and 52
    QCOMPARE(word.hCursorPosByMouse(QPointF(12.5, 4)), 0);
    QCOMPARE(word.hCursorPosByMouse(QPointF(12.6, 4)), 1);
    QCOMPARE(word.hCursorPosByMouse(QPointF(38.5, 4)), 1);
    QCOMPARE(word.hCursorPosByMouse(QPointF(38.6, 4)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(56.1, 4)), 3);
}

void TestLegacyCaret::positionInAlignedRows()
{
    OldWord word;
    word.addBlock(QStringLiteral("bbbbbb"), OldWord::block(), pitched()); // 46 px
    word.addBlock(QStringLiteral("bb"), OldWord::blockWith(TextProperty::Alignment, 2), pitched());
    word.layOut();
    QCOMPARE(word.hCursorPosByMouse(QPointF(35, 30)), 7); // the line begins at 32
    QCOMPARE(word.hCursorPosByMouse(QPointF(35.1, 30)), 8);
}

void TestLegacyCaret::positionAtAHyphenIsTheEndOfItsLine()
{
    OldWord word;
    word.makeBox(40, 100);
    word.addBlock(QStringLiteral("bbbbbbb"), OldWord::blockWith(TextProperty::Hyphenate, true),
                  pitched());
    word.layOut();
    QVERIFY(word.line(0).items.last().isHyphen);
    const int length = word.line(0).length();
    const double end = word.line(0).items.first().path.boundingRect().right();
    QCOMPARE(word.hCursorPosByMouse(QPointF(end + 1, 4)), length);
    QCOMPARE(word.hCursorPosByMouse(QPointF(end + 90, 4)), length);
}

void TestLegacyCaret::positionInALongRun()
{
    OldWord word;
    word.addBlock(QString(400, QLatin1Char('b')), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(word.line(0).items.size(), 1);
    for (int before : {1, 2, 100, 256, 257, 399}) {
        const double middle = 8.0 * before + 2; // between ends at 8 n - 2
        QCOMPARE(word.hCursorPosByMouse(QPointF(middle, 4)), before);
        QCOMPARE(word.hCursorPosByMouse(QPointF(middle + 0.1, 4)), before + 1);
    }
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 4)), 0);
    QCOMPARE(word.hCursorPosByMouse(QPointF(5000, 4)), 400);
}

void TestLegacyCaret::positionInALongRunIsFoundFast()
{
    OldWord word;
    word.addBlock(QString(10000, QLatin1Char('b')), OldWord::block(), pitched());
    word.layOut();
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(word.hCursorPosByMouse(QPointF(8.0 * 7000, 4)), 7000);
    QVERIFY(timer.elapsed() < 20000); // each prefix by itself would take minutes
}

/// A mark that joins makes the run one that is walked from its front.
void TestLegacyCaret::positionIsTheSameByWalkingAndByHalving()
{
    const QString text = QStringLiteral("b c  中国. gW 天b");
    OldWord halved;
    halved.addBlock(text, OldWord::block(), pitched());
    halved.layOut();
    OldWord walked;
    walked.addBlock(text + QChar(0x200d), OldWord::block(), pitched());
    walked.layOut();
    QCOMPARE(halved.line(0).items.size(), 1);
    for (double x = -1; x < 170; x += 0.25) {
        const int position = walked.hCursorPosByMouse(QPointF(x, 4));
        QCOMPARE(halved.hCursorPosByMouse(QPointF(x, 4)), qMin(position, text.length()));
    }
}

void TestLegacyCaret::positionIsNeverWithinACodePoint()
{
    OldWord word;
    word.addBlock(QStringLiteral("b\U00020000\U00020000b").repeated(60), OldWord::block(),
                  pitched());
    word.addRun(QStringLiteral("\U00020000b\U00020000"), OpenWord::format());
    word.layOut();
    const QString text = word.toPlainText();
    const double end = word.line(0).width;
    for (double x = 0; x < end + 10; x += end / 90) {
        const int position = word.hCursorPosByMouse(QPointF(x, 4));
        QVERIFY(position == text.length() || !text.at(position).isLowSurrogate());
    }
}

void TestLegacyCaret::positionSkipsALineWithoutRoom()
{
    OldWord word;
    word.makeBox(40, 80);
    word.addBlock(QStringLiteral("b"), OldWord::block(15, 15), pitched()); // no room between them
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(word.m_legacyLines.size(), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 4)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 30)), 2);
}

void TestLegacyCaret::positionStaysWithinTheDocument()
{
    OldWord word;
    word.addBlock(QStringLiteral("bbbb"), OldWord::block(), pitched());
    word.layOut();
    word.m_document->clear(); // the lines are those of the former text
    QCOMPARE(word.hCursorPosByMouse(QPointF(90, 4)), 0);
}

void TestLegacyCaret::positionIsNotTakenThroughTheStretch()
{
    OldWord word;
    fillRows(word);
    word.layOut();
    word.m_scaleX = 4;
    word.m_scaleY = 4;
    QCOMPARE(word.hCursorPosByMouse(QPointF(10.1, 5)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 24)), 8);
}

void TestLegacyCaret::positionIsThatOfTheCaret_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::newRow("rows") << false;
    QTest::newRow("columns") << true;
}

/// A press where the caret is painted leads back to the caret's position.
void TestLegacyCaret::positionIsThatOfTheCaret()
{
    QFETCH(bool, vertical);
    OldWord word(vertical ? Qt::Vertical : Qt::Horizontal);
    word.addBlock(QStringLiteral("中ab cd国"), OldWord::block(), pitched());
    word.addRun(QStringLiteral("gg 天"), OpenWord::format(24));
    word.addBlock(QStringLiteral("文bb"), OldWord::block(), pitched());
    edit(word);
    for (int position = 1; position <= 14; ++position) {
        if (position == 12) // its caret stands inside the line
            continue;
        word.m_cursor->setPosition(position);
        const QPoint caret = word.getCursorPos();
        const int under = vertical ? word.vCursorPosByMouse(caret) : word.hCursorPosByMouse(caret);
        QCOMPARE(under, position);
    }
}

// Caret and selection

void TestLegacyCaret::pressPutsTheCaret()
{
    OldWord word;
    fillRows(word);
    edit(word);
    word.select(1, 3);
    word.forgetCalls();
    Pointer::press(word, QPointF(11, 30));
    QCOMPARE(selectionOf(word), (QVector<int>{10, 10, 10, 10}));
    QVERIFY(word.m_cursorVisible);
    QVERIFY(word.changes.contains(1002));
}

void TestLegacyCaret::pressIsTakenBackThroughFlipAndMirror()
{
    OldWord word;
    fillRows(word);
    edit(word);
    const double width = word.m_clientRect.width();
    const double height = word.m_clientRect.height();
    word.m_mirror = true;
    Pointer::press(word, QPointF(width - 11, 5));
    QCOMPARE(word.m_cursor->position(), 2);
    word.m_mirror = false;
    word.m_flip = true;
    Pointer::press(word, QPointF(11, height - 25));
    QCOMPARE(word.m_cursor->position(), 10);
}

void TestLegacyCaret::pressOutsideTheLinesLeavesTheCaret()
{
    OldWord word;
    word.makeBox(100, 100);
    word.addBlock(QStringLiteral("bbb"), OldWord::block(), pitched());
    edit(word);
    word.m_cursor->setPosition(1);
    word.select(1, 3);
    Pointer::press(word, QPointF(3, 90));
    QCOMPARE(selectionOf(word), (QVector<int>{3, 3, -1, 1}));
}

void TestLegacyCaret::dragSelects()
{
    OldWord word;
    fillRows(word);
    edit(word);
    Pointer::press(word, QPointF(11, 5));
    Pointer::move(word, QPointF(10, 30));
    QCOMPARE(selectionOf(word), (QVector<int>{2, 9, 2, 9}));
    QCOMPARE(word.m_cursor->anchor(), 2);
    Pointer::move(word, QPointF(0, 5)); // back over the press
    QCOMPARE(selectionOf(word), (QVector<int>{0, 2, 2, 0}));
    Pointer::release(word, QPointF(0, 5));
    Pointer::move(word, QPointF(40, 5));
    QCOMPARE(selectionOf(word), (QVector<int>{0, 2, 2, 0}));
    QCOMPARE(word.getSelectedText(), QStringLiteral("bb"));
}

void TestLegacyCaret::dragInColumnsSelects()
{
    OldWord word(Qt::Vertical);
    fillBox(word);
    edit(word);
    Pointer::press(word, QPointF(90, 15)); // columns from 100 leftwards, 24 px each
    Pointer::move(word, QPointF(60, 30));
    QCOMPARE(selectionOf(word), (QVector<int>{1, 5, 1, 5}));
}

void TestLegacyCaret::dragBelowAllLinesKeepsTheSelection()
{
    OldWord word;
    fillRows(word);
    edit(word);
    Pointer::press(word, QPointF(11, 5));
    Pointer::move(word, QPointF(40, 5));
    QCOMPARE(selectionOf(word), (QVector<int>{2, 5, 2, 5}));
    Pointer::move(word, QPointF(40, 500));
    QCOMPARE(selectionOf(word), (QVector<int>{2, 5, 2, 5}));
}

void TestLegacyCaret::doubleClickSelectsTheLine_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::newRow("first row") << false << QPointF(17, 5) << 0 << 3;
    QTest::newRow("second row") << false << QPointF(17, 30) << 3 << 6;
    QTest::newRow("a wrap belongs to the line ahead") << false << QPointF(0, 30) << 0 << 3;
    QTest::newRow("last row") << false << QPointF(30, 50) << 6 << 7;
    QTest::newRow("first column") << true << QPointF(90, 15) << 0 << 3;
    QTest::newRow("second column") << true << QPointF(70, 15) << 3 << 6;
}

void TestLegacyCaret::doubleClickSelectsTheLine()
{
    QFETCH(bool, vertical);
    QFETCH(QPointF, point);
    QFETCH(int, start);
    QFETCH(int, end);
    OldWord word(vertical ? Qt::Vertical : Qt::Horizontal);
    fillBox(word);
    edit(word);
    word.forgetCalls();
    clickTwice(word, point);
    QCOMPARE(selectionOf(word), (QVector<int>{start, end, start, end}));
    QCOMPARE(word.m_cursor->anchor(), start);
    QCOMPARE(word.changes, (QVector<int>{1002}));
}

void TestLegacyCaret::doubleClickAtTheStartDoesNothing()
{
    OldWord word;
    fillBox(word);
    edit(word);
    word.m_cursor->setPosition(2);
    word.select(1, 2);
    clickTwice(word, QPointF(0, 5));
    QCOMPARE(word.m_selStart, 1);
    QCOMPARE(word.m_selEnd, 2);
    QCOMPARE(word.m_cursor->position(), 2);
}

void TestLegacyCaret::lineOfAHyphenIsSelectedWithoutIt()
{
    OldWord word;
    word.makeBox(40, 100);
    word.addBlock(QStringLiteral("bbbbbbb"), OldWord::blockWith(TextProperty::Hyphenate, true),
                  pitched());
    edit(word);
    word.selectLegacyLine(1);
    QCOMPARE(word.m_selStart, 0);
    QCOMPARE(word.m_selEnd, word.line(0).length());
    QCOMPARE(word.m_cursor->position(), word.m_selEnd);
}

void TestLegacyCaret::selectingALineThatIsNotThere()
{
    OldWord word;
    fillRows(word);
    edit(word);
    word.select(1, 2);
    for (int position : {-2, -1, 99})
        word.selectLegacyLine(position);
    QCOMPARE(word.m_selStart, 1);
    QCOMPARE(word.m_selEnd, 2);
}

// Keys

void TestLegacyCaret::keysMoveOnTheLines_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("Home") << int(Qt::Key_Home) << 5 << 3;
    QTest::newRow("End") << int(Qt::Key_End) << 4 << 6;
    QTest::newRow("a wrap belongs to the line ahead") << int(Qt::Key_Home) << 3 << 0;
    QTest::newRow("Up") << int(Qt::Key_Up) << 5 << 2;
    QTest::newRow("Up from the first line") << int(Qt::Key_Up) << 2 << 2;
    QTest::newRow("Down") << int(Qt::Key_Down) << 1 << 4;
    QTest::newRow("Down to a shorter line") << int(Qt::Key_Down) << 5 << 7;
    QTest::newRow("Down from the last line") << int(Qt::Key_Down) << 7 << 7;
    QTest::newRow("Left") << int(Qt::Key_Left) << 4 << 3;
    QTest::newRow("Left at the start") << int(Qt::Key_Left) << 0 << 0;
    QTest::newRow("Right") << int(Qt::Key_Right) << 3 << 4;
    QTest::newRow("Right at the end") << int(Qt::Key_Right) << 7 << 7;
}

void TestLegacyCaret::keysMoveOnTheLines()
{
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(int, to);
    OldWord word;
    fillBox(word);
    edit(word);
    word.m_cursor->setPosition(from);
    press(word, key);
    QCOMPARE(word.m_cursor->position(), to);
}

void TestLegacyCaret::keysMoveInColumns_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("Left is the next column") << int(Qt::Key_Left) << 1 << 4;
    QTest::newRow("Right the one before") << int(Qt::Key_Right) << 5 << 2;
    QTest::newRow("Down is on") << int(Qt::Key_Down) << 4 << 5;
    QTest::newRow("Up is back") << int(Qt::Key_Up) << 4 << 3;
    QTest::newRow("Home") << int(Qt::Key_Home) << 5 << 3;
    QTest::newRow("End") << int(Qt::Key_End) << 4 << 6;
}

void TestLegacyCaret::keysMoveInColumns()
{
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(int, to);
    OldWord word(Qt::Vertical);
    fillBox(word);
    edit(word);
    word.m_cursor->setPosition(from);
    press(word, key);
    QCOMPARE(word.m_cursor->position(), to);
}

void TestLegacyCaret::keysKnowNoHyphen()
{
    OldWord word;
    word.makeBox(40, 100);
    // five letters of 38 px fit, of which the last goes on behind a hyphen
    word.addBlock(QStringLiteral("bbbbbbb"), OldWord::blockWith(TextProperty::Hyphenate, true),
                  pitched());
    edit(word);
    QCOMPARE(word.runs(), (QStringList{QStringLiteral("bbbb|-"), QStringLiteral("bbb")}));
    word.m_cursor->setPosition(1);
    QCOMPARE(word.cursorMove(Qt::Key_End), 4);
    QCOMPARE(word.cursorMove(Qt::Key_Down), 5);
    word.m_cursor->setPosition(7);
    QCOMPARE(word.cursorMove(Qt::Key_Up), 3);
    QCOMPARE(word.cursorMove(Qt::Key_Home), 4);
}

/// The repair of a line's head takes whole characters over, in columns each with a run of its own.
void TestLegacyCaret::keysAndPointerKnowWhereMovedTextStands()
{
    OldWord word(Qt::Vertical);
    word.makeBox(100, 47);
    word.addBlock(QStringLiteral("中文国。人天地"),
                  OldWord::blockWith(TextProperty::HeadTailRule, 1), pitched());
    edit(word);
    QCOMPARE(word.runs().at(0), QStringLiteral("中|文"));
    QCOMPARE(word.runs().at(1), QStringLiteral("国|。|人|天"));
    word.m_cursor->setPosition(4);
    QCOMPARE(word.cursorMove(Qt::Key_Home), 2);
    QCOMPARE(word.cursorMove(Qt::Key_End), 6);
    word.m_cursor->setPosition(3);
    QCOMPARE(word.getCursorPos().y(), 14); // behind the first character of its column
    QCOMPARE(word.vCursorPosByMouse(QPointF(69, 8)), 3);
    QCOMPARE(word.vCursorPosByMouse(QPointF(69, 90)), 6);
    word.selectLegacyLine(4);
    QCOMPARE(selectionOf(word), (QVector<int>{2, 6, 2, 6}));
}

void TestLegacyCaret::shiftSelectsFromLineToLine()
{
    OldWord word;
    fillBox(word);
    edit(word);
    word.m_cursor->setPosition(4);
    press(word, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(selectionOf(word), (QVector<int>{4, 7, 4, 7}));
    press(word, Qt::Key_Up, Qt::ShiftModifier);
    press(word, Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(word.m_selStart, 1);
    QCOMPARE(word.m_selEnd, 4);
}

void TestLegacyCaret::typingLaysOutAnew()
{
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), pitched());
    edit(word);
    word.m_cursor->setPosition(1);
    press(word, Qt::Key_unknown, Qt::NoModifier, QStringLiteral("gx"));
    QCOMPARE(word.runs(), QStringList{QStringLiteral("bgxb")});
    QCOMPARE(word.m_clientRect.width(), 35.0); // 30 and 5
    QCOMPARE(word.m_cursor->position(), 3);
    press(word, Qt::Key_Backspace);
    QCOMPARE(word.runs(), QStringList{QStringLiteral("bgb")});
    press(word, Qt::Key_Delete);
    QCOMPARE(word.runs(), QStringList{QStringLiteral("bg")});
}

void TestLegacyCaret::deletingASelectionLaysOutAnew()
{
    OldWord word;
    fillRows(word);
    edit(word);
    word.select(2, 9);
    press(word, Qt::Key_Backspace);
    QCOMPARE(word.runs(), QStringList{QStringLiteral("bbb")});
    QCOMPARE(word.m_clientRect.width(), 27.0);
}

void TestLegacyCaret::returnMakesALine()
{
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), pitched());
    edit(word);
    word.m_cursor->setPosition(1);
    press(word, Qt::Key_Return);
    QCOMPARE(word.runs(), (QStringList{QStringLiteral("b"), QStringLiteral("b")}));
    QCOMPARE(word.m_clientRect.height(), 32.0);
}

void TestLegacyCaret::formatAtASelectionIsShown()
{
    OldWord word;
    word.addBlock(QStringLiteral("bbbb"), OldWord::block(), pitched());
    edit(word);
    word.m_cursor->setPosition(1);
    word.m_cursor->setPosition(3, QTextCursor::KeepAnchor);
    word.select(1, 3);
    word.setAllAttributes({{QStringLiteral("font_underline"), true},
                           {QStringLiteral("pen_color"), QColor(Qt::red)}},
                          true);
    QCOMPARE(word.runs(), QStringList{QStringLiteral("b|bb|b")});
    QVERIFY(word.line(0).items.at(1).underline);
    QVERIFY(!word.m_newVersion);
    AttributeMap shown;
    word.getAllAttributes(shown);
    QCOMPARE(shown.value(QStringLiteral("font_underline")).toBool(), true);
}

void TestLegacyCaret::capitalsAreShownAndCounted()
{
    OldWord word;
    QTextCharFormat capitals = pitched();
    capitals.setProperty(TextProperty::UpperCase, true);
    word.addBlock(QStringLiteral("aga"), OldWord::block(), capitals);
    edit(word);
    QCOMPARE(word.runs(), QStringList{QStringLiteral("AGA")});
    QCOMPARE(word.hCursorPosByMouse(QPointF(11, 4)), 2);
    QCOMPARE(word.toPlainText(), QStringLiteral("aga"));
}

// The object

void TestLegacyCaret::colourIsThatOfTheFirstRun()
{
    OldWord word;
    QTextCharFormat red = pitched();
    red.setForeground(QColor(200, 10, 20, 30));
    word.addBlock(QStringLiteral("b"), OldWord::block(), red);
    word.addRun(QStringLiteral("b"), pitched());
    word.layOut();
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    QVERIFY(word.GetSpecialProperty(117, out));
    QDataStream in(bytes);
    bool found = false;
    int colour[4] = {};
    in >> found >> colour[0] >> colour[1] >> colour[2] >> colour[3];
    QVERIFY(found);
    QCOMPARE(QColor(colour[0], colour[1], colour[2], colour[3]), QColor(200, 10, 20, 30));
}

void TestLegacyCaret::emptyTextHasNoColour()
{
    OldWord word;
    word.layOut();
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    QVERIFY(word.GetSpecialProperty(117, out));
    QCOMPARE(bytes, QByteArray(1, '\0')); // false and nothing behind it
}

void TestLegacyCaret::editThatChangesNothingKeepsTheBox_data()
{
    QTest::addColumn<bool>("box");
    QTest::addColumn<bool>("vertical");
    QTest::newRow("row") << false << false;
    QTest::newRow("column") << false << true;
    QTest::newRow("box of rows") << true << false;
    QTest::newRow("box of columns") << true << true;
}

void TestLegacyCaret::editThatChangesNothingKeepsTheBox()
{
    QFETCH(bool, box);
    QFETCH(bool, vertical);
    OldWord word(vertical ? Qt::Vertical : Qt::Horizontal);
    if (box)
        fillBox(word);
    else
        fillRows(word);
    word.layOut();
    const QRectF client = word.m_clientRect;
    const QPainterPath outline = word.getClientPathImpl();
    word.setPos(QPointF(30, 40), false);
    word.beginEdit();
    word.endEdit();
    QCOMPARE(word.m_clientRect, client);
    QCOMPARE(word.getPos(), QPointF(30, 40));
    QCOMPARE(word.getClientPathImpl(), outline);
    QVERIFY(!inkOf(contentOf(word)).isNull());
}

void TestLegacyCaret::outlineIsThatOfAllRuns()
{
    OldWord word;
    fillRows(word);
    word.layOut();
    QCOMPARE(word.getClientPath().boundingRect(), QRectF(0, 0, 66, 32));
}

void TestLegacyCaret::pictureStandsForTheText()
{
    OldWord word;
    fillRows(word);
    word.layOut();
    word.m_fontImage = QImage(4, 4, QImage::Format_ARGB32_Premultiplied);
    word.m_fontImage.fill(Qt::green);
    word.m_showFontImage = true;
    QCOMPARE(inkOf(contentOf(word)), QRect(0, 0, 4, 4));
    QCOMPARE(word.getClientPath().boundingRect(), word.m_clientRect);
    word.m_fontImageClient = QRectF(0, 0, 71, 32);
    word.img2paths();
    QVERIFY(!word.m_showFontImage);
    QCOMPARE(inkOf(contentOf(word)), QRect(0, 0, 66, 32));
}

QTEST_MAIN(TestLegacyCaret)
#include "tst_legacycaret.moc"
