// SPDX-License-Identifier: MIT
// The layouts of the older engine: line text and box text, along rows and columns, and where they differ from
// those of the current one.
#include "legacylines.h"

#include "layout/textlayout.h"

#include <QTest>

namespace T = TextProperty;

class TestLegacyLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // the way in
    void currentTextIsLeftAlone();
    void emptyDocumentTakesItsSizeFromTheDefaultWord();
    void emptyDocumentInColumnsTakesItsSizeFromTheDefaultWord();
    void emptyDocumentWithoutAWordHasNoSize();
    void newSizeIsReportedOnce();
    void noReportWithoutListeners();
    void positionIsTakenAnewEvenForTheSameSize();
    void boxTextKeepsItsBox();
    void boxTextIsRepaintedOutsideEditState();
    void layoutTwiceIsLayoutOnce();

    // line text
    void stateThatDoesNotFitHasNoSize();
    void rowOfOneBlock();
    void runsKeepTheirPlacesInTheDocument();
    void rowsOfSeveralBlocks();
    void rowsWithoutRowSpacingLieOnEachOther();
    void emptyBlockKeepsItsHeight();
    void blockThatMeasuresNothingCountsAsTen_data();
    void blockThatMeasuresNothingCountsAsTen();
    void marginsEnterTheLengthInPoints();
    void spacesAtTheEndsOfTheTextAreNotCounted();
    void singleBlockHasNoSpaces();
    void lineOfAnEmptyBlockFormatIsNeverMeasured();
    void capitalsAreMeasured();
    void columnOfOneBlock();
    void columnsAreCutIntoUprightCharactersAndRuns();
    void columnsOfSeveralBlocks();
    void boxOfLineTextIsFiveLonger();

    // box text
    void stateThatDoesNotFitMakesNoLines();
    void textThatFitsStaysOnOneLine();
    void longTextIsCutWhereItFits();
    void textFlowsOverRuns();
    void blockWithoutRoomForItsMarginsVanishes();
    void blockWhoseMarginsJustFitIsKept();
    void firstLineIsShorterByItsIndent();
    void firstAndLastLinesAreMarked();
    void spacesOfWrappedBlocks();
    void characterWiderThanTheBoxStaysAndOverflows();
    void runWithoutRoomOnItsLineOverflows();
    void emptyBlockOfBoxText();
    void columnsFlowAtTheHeight();
    void columnsAreCutAfterTheFlow();
    void noCodePointIsCut_data();
    void noCodePointIsCut();

    // box text: what the repairs give back
    void cutWordMovesWholeAndIsOneRunAgain();
    void cutWordOfTwoRunsKeepsBoth();
    void wordLongerThanTheLineStaysCut();
    void wordThatFillsALineByItselfIsNotMovedForEver();
    void hyphenatedWordGivesBackOneLetter();
    void hyphenAtASeamPutsTheLetterOnTheNewLine();
    void forbiddenEndMovesAheadOfTheRest();
    void movedItemsStandInReadingOrder();
    void repairOfTheLastLineMakesOneMore();
    void nothingIsLostOrDoubled_data();
    void nothingIsLostOrDoubled();
    void longTextsEnd();

    // differences from current text
    void differenceRunsAreMeasuredByTheirInk();
    void differenceBoxIsFiveLongerAndNothingCountsAsTen();
    void differenceBlockTooWideForItsMarginsIsLeftOut();
    void differenceNoWarp();
    void differenceLineEndRepairAndHyphens();
};

namespace {
using Lines = QStringList;

QTextBlockFormat rules(int headTail, bool hyphenate)
{
    QTextBlockFormat format = OldWord::block();
    format.setProperty(T::HeadTailRule, headTail);
    format.setProperty(T::Hyphenate, hyphenate);
    return format;
}

int changedReports(const RecordingHost &host)
{
    int count = 0;
    for (const RecordingHost::Event &event : host.eventsOfKind(QStringLiteral("changed")))
        count += event.code == 100 && event.detail.isEmpty() ? 1 : 0;
    return count;
}

void makeBox(OpenWord &word, double width, double height)
{
    word.m_wordWrap = true;
    word.m_wordManager->setWordWrap(true);
    word.m_clientRect = QRectF(0, 0, width, height);
    word.m_textPathsRect = word.m_clientRect;
}

/// One string a line of the current engine: "ab|c".
QStringList textsOf(const OpenWord &word)
{
    QStringList result;
    const TextLayout layout = word.m_wordManager->textLayout();
    for (const TextLine &line : layout.lines) {
        QStringList texts;
        for (const TextFragment &run : line.fragments)
            texts.append(run.text);
        result.append(texts.join(QLatin1Char('|')));
    }
    return result;
}

/// The same text for both engines.
void fillBoth(OldWord &old, OpenWord &current, const QString &text,
              const QTextBlockFormat &format = OldWord::block())
{
    old.addBlock(text, format);
    old.layOut();
    current.m_cursor->setBlockFormat(format);
    current.add(text);
}
} // namespace

// The way in

void TestLegacyLayout::currentTextIsLeftAlone()
{
    OldWord word;
    word.m_newVersion = true;
    word.m_legacyLines.append(STextLine());
    word.forgetCalls();
    word.updateBoundingRectForOldVersion(true);
    QCOMPARE(word.m_legacyLines.size(), 1);
    QVERIFY(word.changes.isEmpty() && word.cacheReasons.isEmpty());
}

void TestLegacyLayout::emptyDocumentTakesItsSizeFromTheDefaultWord()
{
    OldWord word;
    word.m_cursor->setBlockCharFormat(OpenWord::format());
    word.m_cursor->setCharFormat(OpenWord::format());
    word.m_defaultWord = QStringLiteral("abc"); // ink of 22 by 8
    word.layOut();
    QCOMPARE(word.getSize(), QSizeF(22, 8));
    QVERIFY(word.m_legacyLines.isEmpty());
}

void TestLegacyLayout::emptyDocumentInColumnsTakesItsSizeFromTheDefaultWord()
{
    OldWord word(Qt::Vertical);
    word.m_cursor->setBlockCharFormat(OpenWord::format());
    word.m_cursor->setCharFormat(OpenWord::format());
    word.m_defaultWord = QStringLiteral("abc");
    word.layOut();
    QCOMPARE(word.getSize().height(), 22.0); // the run lies on its side
    QVERIFY(word.m_legacyLines.isEmpty());
}

void TestLegacyLayout::emptyDocumentWithoutAWordHasNoSize()
{
    OldWord word;
    word.layOut();
    QCOMPARE(word.getSize(), QSizeF(0, 0));
}

void TestLegacyLayout::newSizeIsReportedOnce()
{
    RecordingHost host;
    OldWord word(Qt::Horizontal, &host);
    word.addBlock(QStringLiteral("ab"));
    word.layOut();
    QCOMPARE(changedReports(host), 1);
    word.layOut();
    QCOMPARE(changedReports(host), 1);
    word.addRun(QStringLiteral("c"), OpenWord::format());
    word.layOut();
    QCOMPARE(changedReports(host), 2);
    QCOMPARE(host.eventsOfKind(QStringLiteral("changed")).last().object, &word);
}

void TestLegacyLayout::noReportWithoutListeners()
{
    RecordingHost host;
    host.sinkOn = false;
    OldWord word(Qt::Horizontal, &host);
    word.addBlock(QStringLiteral("ab"));
    word.layOut();
    QCOMPARE(changedReports(host), 0);
    QCOMPARE(word.getSize(), QSizeF(19, 8));
}

void TestLegacyLayout::positionIsTakenAnewEvenForTheSameSize()
{
    OldWord word;
    word.setPos(QPointF(30, 40), false);
    word.addBlock(QStringLiteral("ab"));
    word.layOut();
    word.forgetCalls();
    word.layOut();
    QVERIFY(word.changes.contains(1002));
    QCOMPARE(word.cacheReasons.last(), 2);
    QCOMPARE(word.getPos(), QPointF(30, 40));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 19, 8));
}

void TestLegacyLayout::boxTextKeepsItsBox()
{
    OldWord word;
    word.makeBox(20, 1000);
    word.setPos(QPointF(30, 40), false);
    word.addBlock(QStringLiteral("11111111"));
    word.layOut();
    QCOMPARE(word.m_legacyLines.size(), 4);
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 20, 1000));
    QCOMPARE(word.getPos(), QPointF(30, 40));
}

void TestLegacyLayout::boxTextIsRepaintedOutsideEditState()
{
    OldWord word;
    word.makeBox(20, 100);
    word.addBlock(QStringLiteral("ab"));
    word.forgetCalls();
    word.layOut();
    QCOMPARE(word.changes, QVector<int>{1002});
    QCOMPARE(word.cacheReasons, QVector<int>{2});
    word.beginEdit();
    word.forgetCalls();
    word.layOut();
    QVERIFY(word.changes.isEmpty());
    QCOMPARE(word.cacheReasons, QVector<int>{2});
}

void TestLegacyLayout::layoutTwiceIsLayoutOnce()
{
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        for (bool box : {false, true}) {
            OldWord word(orientation);
            if (box)
                word.makeBox(60, 60);
            word.addBlock(QStringLiteral("some words, \u4e2d\u6587\u3002 and more"), rules(2, true),
                          OldWord::spacedFormat());
            word.layOut();
            const Lines runs = word.runs();
            const Lines positions = word.positions();
            const QSizeF size = word.getSize();
            const QPainterPath path = word.getClientPathImpl();
            word.layOut();
            QCOMPARE(word.runs(), runs);
            QCOMPARE(word.positions(), positions);
            QCOMPARE(word.getSize(), size);
            QCOMPARE(word.getClientPathImpl(), path);
        }
    }
}

// Line text

void TestLegacyLayout::stateThatDoesNotFitHasNoSize()
{
    OldWord word;
    word.addBlock(QStringLiteral("ab"));
    QCOMPARE(word.hTextLayout(), QSizeF(19, 8));
    QCOMPARE(word.vTextLayout(), QSizeF(-1, -1));
    word.m_textOrientation = Qt::Vertical;
    QCOMPARE(word.hTextLayout(), QSizeF(-1, -1));
    QCOMPARE(word.vTextLayout(), QSizeF(8, 19));
    word.makeBox(10, 10);
    QCOMPARE(word.vTextLayout(), QSizeF(-1, -1));
    word.m_textOrientation = Qt::Horizontal;
    QCOMPARE(word.hTextLayout(), QSizeF(-1, -1));
}

void TestLegacyLayout::rowOfOneBlock()
{
    OldWord word;
    word.addBlock(QStringLiteral("ag"), OldWord::block(), OldWord::spacedFormat());
    word.layOut();
    QCOMPARE(word.m_legacyLines.size(), 1);
    const STextLine &line = word.line(0);
    QVERIFY(line.isFirstLine && line.isLastLine);
    QCOMPARE(line.orientation, int(Qt::Horizontal));
    QCOMPARE(line.width, 14.0);
    QCOMPARE(line.height, 8.0); // 6 above the baseline, 2 below
    QCOMPARE(line.baseline, 2.0);
    QCOMPARE(line.rowSpacing, 16.0);
    QCOMPARE(line.advance, 16.0);
    QCOMPARE(word.getSize(), QSizeF(19, 8)); // the last row counts without its spacing
}

void TestLegacyLayout::runsKeepTheirPlacesInTheDocument()
{
    OldWord word;
    word.addBlock(QStringLiteral("ab"));
    word.addBlock(QStringLiteral("cd"));
    word.addRun(QStringLiteral("e"), OpenWord::format(24));
    word.addBlock(QString());
    word.layOut();
    QCOMPARE(word.runs(), Lines({QStringLiteral("ab"), QStringLiteral("cd|e"), QString()}));
    QCOMPARE(word.positions(),
             Lines({QStringLiteral("0"), QStringLiteral("3 5"), QStringLiteral("7")}));
    QCOMPARE(word.line(1).width, 26.0); // 14 and 12
}

void TestLegacyLayout::rowsOfSeveralBlocks()
{
    OldWord word;
    word.addBlock(QStringLiteral("a"), OldWord::block(), OldWord::spacedFormat());   // 12 apart
    word.addBlock(QStringLiteral("bcd"), OldWord::block(), OldWord::spacedFormat()); // 16 apart
    word.addBlock(QStringLiteral("ab"), OldWord::block(), OldWord::spacedFormat());  // 8 high
    word.layOut();
    QCOMPARE(word.getSize(), QSizeF(27, 36)); // "bcd": 1 to 23
}

void TestLegacyLayout::rowsWithoutRowSpacingLieOnEachOther()
{
    OldWord word;
    word.addBlock(QStringLiteral("a"));
    word.addBlock(QStringLiteral("b"));
    word.layOut();
    QCOMPARE(word.line(0).advance, 0.0);
    QCOMPARE(word.getSize().height(), 8.0);
}

void TestLegacyLayout::emptyBlockKeepsItsHeight()
{
    OldWord word;
    word.addBlock(QString(), OldWord::block(), OldWord::spacedFormat());
    word.addBlock(QStringLiteral("a"), OldWord::block(), OldWord::spacedFormat());
    word.layOut();
    QCOMPARE(word.line(0).items.size(), 1);
    QVERIFY(word.line(0).items.first().text.isEmpty());
    QVERIFY(word.line(0).items.first().path.isEmpty());
    QCOMPARE(word.line(0).height, 8.0); // as the letter A
    QCOMPARE(word.getSize(), QSizeF(15, 22));
}

void TestLegacyLayout::blockThatMeasuresNothingCountsAsTen_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("length");
    QTest::newRow("empty") << QString() << 0.0 << 15.0;
    QTest::newRow("less than nothing") << QStringLiteral("ab") << -50.0 << 15.0;
    QTest::newRow("just nothing") << QStringLiteral("ab") << -14.0 << 15.0;
    QTest::newRow("something") << QStringLiteral("ab") << -13.0 << 6.0;
}

void TestLegacyLayout::blockThatMeasuresNothingCountsAsTen()
{
    QFETCH(QString, text);
    QFETCH(double, left);
    QFETCH(double, length);
    OldWord word;
    word.addBlock(text, OldWord::block(left));
    QCOMPARE(word.hTextLayout().width(), length);
    OldWord column(Qt::Vertical);
    column.addBlock(text, OldWord::block(left));
    QCOMPARE(column.vTextLayout().height(), length);
}

void TestLegacyLayout::marginsEnterTheLengthInPoints()
{
    OldWord word;
    word.addBlock(QStringLiteral("ab"), OldWord::block(9, 3, 6));
    word.layOut();
    QCOMPARE(word.line(0).leftMargin, 12.0);
    QCOMPARE(word.line(0).rightMargin, 4.0);
    QCOMPARE(word.line(0).indent, 8.0);
    QCOMPARE(word.getSize().width(), 37.0); // 9 + 3 + 6 + 14 + 5
}

void TestLegacyLayout::spacesAtTheEndsOfTheTextAreNotCounted()
{
    QTextBlockFormat format = OldWord::blockWith(T::SpaceAheadOfBlock, 6);
    format.setProperty(T::SpaceBehindBlock, 3);
    OldWord word;
    for (const char *text : {"b", "d", "f"})
        word.addBlock(QString::fromLatin1(text), format, OldWord::spacedFormat());
    word.layOut();
    QCOMPARE(word.line(0).firstLineSpace, 0.0);
    QCOMPARE(word.line(0).lastLineSpace, 4.0);
    QCOMPARE(word.line(0).advance, 20.0);
    QCOMPARE(word.line(1).firstLineSpace, 8.0);
    QCOMPARE(word.line(1).lastLineSpace, 4.0);
    QCOMPARE(word.line(1).advance, 28.0);
    QCOMPARE(word.line(2).firstLineSpace, 8.0);
    QCOMPARE(word.line(2).lastLineSpace, 0.0);
    QCOMPARE(word.getSize().height(), 64.0); // 20 + 28 + 8 and 8 ahead
}

void TestLegacyLayout::singleBlockHasNoSpaces()
{
    QTextBlockFormat format = OldWord::blockWith(T::SpaceAheadOfBlock, 6);
    format.setProperty(T::SpaceBehindBlock, 3);
    OldWord word;
    word.addBlock(QStringLiteral("b"), format, OldWord::spacedFormat());
    word.layOut();
    QCOMPARE(word.line(0).advance, 16.0);
    QCOMPARE(word.getSize().height(), 8.0);
}

void TestLegacyLayout::lineOfAnEmptyBlockFormatIsNeverMeasured()
{
    OldWord word;
    word.addBlock(QStringLiteral("ab"), QTextBlockFormat(), OldWord::spacedFormat());
    QCOMPARE(word.hTextLayout(), QSizeF(19, 0));
    QCOMPARE(word.line(0).height, 0.0);
    QCOMPARE(word.line(0).advance, 0.0);
}

void TestLegacyLayout::capitalsAreMeasured()
{
    OldWord word;
    word.addBlock(QStringLiteral("a"), OldWord::block(), OldWord::formatWith(T::UpperCase, true));
    word.layOut();
    QCOMPARE(word.runs(), Lines{QStringLiteral("A")});
    QCOMPARE(word.getSize(), QSizeF(11, 8)); // a small letter is 6 high
}

void TestLegacyLayout::columnOfOneBlock()
{
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("ag"), OldWord::block(), OldWord::spacedFormat());
    word.layOut();
    const STextLine &line = word.line(0);
    QCOMPARE(line.orientation, int(Qt::Vertical));
    QVERIFY(!line.items.first().upright);
    QCOMPARE(line.width, 14.0); // along the column
    QCOMPARE(line.height, 8.0);
    QCOMPARE(line.baseline, 4.0);
    QCOMPARE(word.getSize(), QSizeF(8, 19));
}

void TestLegacyLayout::columnsAreCutIntoUprightCharactersAndRuns()
{
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("\u4e2da b\u6587\u3042\u3042"));
    word.layOut();
    QCOMPARE(word.runs(), Lines{QStringLiteral("\u4e2d|a b|\u6587|\u3042\u3042")});
    QCOMPARE(word.positions(), Lines{QStringLiteral("0 1 4 5")});
    const QList<STextItem> &items = word.line(0).items;
    QVERIFY(items.at(0).upright && items.at(2).upright);
    QVERIFY(!items.at(1).upright && !items.at(3).upright); // kana lie on their side
    QCOMPARE(items.at(0).itemWidth(Qt::Vertical, 0), 14.0);
    QCOMPARE(items.at(1).itemWidth(Qt::Vertical, 0), 22.0);
    QCOMPARE(items.at(3).itemWidth(Qt::Vertical, 0), 30.0);
    QCOMPARE(word.getSize(), QSizeF(14, 85)); // 14 + 22 + 14 + 30 and 5
}

void TestLegacyLayout::columnsOfSeveralBlocks()
{
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("\u4e2d"), OldWord::block(), OldWord::spacedFormat()); // 14 wide
    word.addBlock(QStringLiteral("abc"), OldWord::block(), OldWord::spacedFormat());    // 8 wide
    word.layOut();
    QCOMPARE(word.getSize(), QSizeF(36, 27)); // twice 14 and 8, by 22 and 5
}

void TestLegacyLayout::boxOfLineTextIsFiveLonger()
{
    for (const char *text : {"a", "ab", "abcdef"}) {
        OldWord word;
        word.addBlock(QString::fromLatin1(text));
        word.layOut();
        QCOMPARE(word.getSize().width(), word.line(0).width + 5);
        OldWord column(Qt::Vertical);
        column.addBlock(QString::fromLatin1(text));
        column.layOut();
        QCOMPARE(column.getSize().height(), column.line(0).width + 5);
    }
}

// Box text

void TestLegacyLayout::stateThatDoesNotFitMakesNoLines()
{
    OldWord word;
    word.addBlock(QStringLiteral("ab"));
    word.layOut();
    word.hMultiTextLayout(); // line text: nothing happens
    word.vMultiTextLayout();
    QCOMPARE(word.m_legacyLines.size(), 1);
    word.makeBox(100, 100);
    word.vMultiTextLayout();
    QVERIFY(word.m_legacyLines.isEmpty());
    word.hMultiTextLayout();
    QCOMPARE(word.m_legacyLines.size(), 1);
    word.m_textOrientation = Qt::Vertical;
    word.hMultiTextLayout();
    QVERIFY(word.m_legacyLines.isEmpty());
    word.multiTextLayout();
    QCOMPARE(word.m_legacyLines.size(), 1);
    QCOMPARE(word.line(0).orientation, int(Qt::Vertical));
}

void TestLegacyLayout::textThatFitsStaysOnOneLine()
{
    OldWord word;
    word.makeBox(30, 100);
    word.addBlock(QStringLiteral("1111")); // 30 of ink
    word.layOut();
    QCOMPARE(word.runs(), Lines{QStringLiteral("1111")});
}

void TestLegacyLayout::longTextIsCutWhereItFits()
{
    OldWord word;
    word.makeBox(24, 100); // three are 22 long
    word.addBlock(QStringLiteral("12345678"));
    word.layOut();
    QCOMPARE(word.runs(),
             Lines({QStringLiteral("123"), QStringLiteral("456"), QStringLiteral("78")}));
    QCOMPARE(word.positions(),
             Lines({QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("6")}));
}

void TestLegacyLayout::textFlowsOverRuns()
{
    OldWord word;
    word.makeBox(24, 100);
    word.addBlock(QStringLiteral("12"));                     // 14
    word.addRun(QStringLiteral("34"), OpenWord::format(24)); // a digit is 12, two are 28
    word.addRun(QStringLiteral("5"), OpenWord::format());
    word.layOut();
    // No room for a large digit behind the small ones, nor for two on a line.
    QCOMPARE(word.runs(),
             Lines({QStringLiteral("12"), QStringLiteral("3"), QStringLiteral("4|5")}));
    QCOMPARE(word.positions(),
             Lines({QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("3 4")}));
    QCOMPARE(word.line(2).width, 18.0);
}

void TestLegacyLayout::blockWithoutRoomForItsMarginsVanishes()
{
    OldWord word;
    word.makeBox(40, 100);
    word.addBlock(QStringLiteral("1"));
    word.addBlock(QStringLiteral("2"), OldWord::block(24, 9)); // 32 and 12 pixels
    word.addBlock(QStringLiteral("3"));
    word.layOut();
    QCOMPARE(word.runs(), Lines({QStringLiteral("1"), QStringLiteral("3")}));
    QCOMPARE(word.positions(), Lines({QStringLiteral("0"), QStringLiteral("4")}));
}

void TestLegacyLayout::blockWhoseMarginsJustFitIsKept()
{
    OldWord word;
    word.makeBox(40, 100);
    word.addBlock(QStringLiteral("12"), OldWord::block(15, 9, 6)); // 20, 12 and 8 pixels
    word.layOut();
    QCOMPARE(word.runs(), Lines{QStringLiteral("12")}); // not even one fits: all of it stays
}

void TestLegacyLayout::firstLineIsShorterByItsIndent()
{
    OldWord word;
    word.makeBox(32, 100);
    word.addBlock(QStringLiteral("1234567"), OldWord::block(0, 0, 6)); // 24 on the first line
    word.layOut();
    QCOMPARE(word.runs(), Lines({QStringLiteral("123"), QStringLiteral("4567")}));
    QCOMPARE(word.line(0).indent, 8.0);
    QCOMPARE(word.line(1).indent, 0.0);
}

void TestLegacyLayout::firstAndLastLinesAreMarked()
{
    OldWord word;
    word.makeBox(24, 100);
    word.addBlock(QStringLiteral("12345678"), OldWord::blockWith(T::Alignment, 4));
    word.addBlock(QStringLiteral("1"));
    word.layOut();
    QCOMPARE(word.m_legacyLines.size(), 4);
    const bool first[] = {true, false, false, true};
    const bool last[] = {false, false, true, true};
    const int alignment[] = {4, 4, 4, 1};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(word.line(i).isFirstLine, first[i]);
        QCOMPARE(word.line(i).isLastLine, last[i]);
        QCOMPARE(word.line(i).alignment, alignment[i]);
    }
}

void TestLegacyLayout::spacesOfWrappedBlocks()
{
    QTextBlockFormat format = OldWord::blockWith(T::SpaceAheadOfBlock, 6);
    format.setProperty(T::SpaceBehindBlock, 3);
    OldWord word;
    word.makeBox(16, 100);
    for (int i = 0; i < 2; ++i)
        word.addBlock(QStringLiteral("123456"), format, OldWord::spacedFormat());
    word.layOut();
    const double ahead[] = {0, 0, 0, 8, 0, 0};
    const double behind[] = {0, 0, 4, 0, 0, 0};
    const double advance[] = {16, 16, 20, 24, 16, 16};
    QCOMPARE(word.m_legacyLines.size(), 6);
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(word.line(i).firstLineSpace, ahead[i]);
        QCOMPARE(word.line(i).lastLineSpace, behind[i]);
        QCOMPARE(word.line(i).advance, advance[i]);
    }
}

void TestLegacyLayout::characterWiderThanTheBoxStaysAndOverflows()
{
    OldWord word;
    word.makeBox(4, 100);
    word.addBlock(QStringLiteral("123"));
    word.layOut();
    QCOMPARE(word.runs(), Lines{QStringLiteral("123")});
}

void TestLegacyLayout::runWithoutRoomOnItsLineOverflows()
{
    OldWord word;
    word.makeBox(4, 100); // the first run leaves less than nothing for the second
    word.addBlock(QStringLiteral("12"));
    word.addRun(QStringLiteral("34"), OpenWord::format(24));
    word.layOut();
    QCOMPARE(word.runs(), Lines{QStringLiteral("12|34")});
}

void TestLegacyLayout::emptyBlockOfBoxText()
{
    OldWord word;
    word.makeBox(40, 100);
    word.addBlock(QString(), OldWord::block(), OldWord::spacedFormat());
    word.addBlock(QStringLiteral("a"), OldWord::block(), OldWord::spacedFormat());
    word.layOut();
    QCOMPARE(word.positions(), Lines({QStringLiteral("0"), QStringLiteral("1")}));
    QVERIFY(word.line(0).items.first().path.isEmpty());
    QVERIFY(word.line(0).isFirstLine && word.line(0).isLastLine);
    QCOMPARE(word.line(0).advance, 16.0);
}

void TestLegacyLayout::columnsFlowAtTheHeight()
{
    OldWord word(Qt::Vertical);
    word.makeBox(100, 24);
    word.addBlock(QStringLiteral("12345678"));
    word.layOut();
    QCOMPARE(word.runs(),
             Lines({QStringLiteral("123"), QStringLiteral("456"), QStringLiteral("78")}));
}

void TestLegacyLayout::columnsAreCutAfterTheFlow()
{
    OldWord word(Qt::Vertical);
    word.makeBox(100, 46); // three on their side are 46 long; upright they take 42
    word.addBlock(QStringLiteral("\u4e00\u4e01\u4e02\u4e03\u4e04"));
    word.layOut();
    QCOMPARE(word.runs(),
             Lines({QStringLiteral("\u4e00|\u4e01|\u4e02"), QStringLiteral("\u4e03|\u4e04")}));
    QCOMPARE(word.positions(), Lines({QStringLiteral("0 1 2"), QStringLiteral("3 4")}));
    QCOMPARE(word.line(0).width, 42.0);
}

void TestLegacyLayout::noCodePointIsCut_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<double>("extent");
    for (int orientation : {1, 2}) {
        for (double extent : {1.0, 15.0, 20.0, 31.0, 45.0}) {
            QTest::addRow("orientation %d, %g", orientation, extent) << orientation << extent;
        }
    }
}

void TestLegacyLayout::noCodePointIsCut()
{
    QFETCH(int, orientation);
    QFETCH(double, extent);
    const uint han[] = {0x20000, 0x20000, 'a', 0x20000, 0x20000, 0x20000};
    const QString text = QString::fromUcs4(han, 6);
    OldWord word(orientation == 1 ? Qt::Horizontal : Qt::Vertical);
    word.makeBox(extent, extent);
    word.addBlock(text, rules(2, true));
    word.layOut();
    QCOMPARE(textOf(word.m_legacyLines), text);
    for (const STextLine &line : qAsConst(word.m_legacyLines)) {
        for (const STextItem &item : line.items) {
            QVERIFY(!item.text.at(0).isLowSurrogate());
            QVERIFY(!item.text.at(item.text.length() - 1).isHighSurrogate());
        }
    }
}

// Box text: what the repairs give back

void TestLegacyLayout::cutWordMovesWholeAndIsOneRunAgain()
{
    OldWord word;
    word.makeBox(46, 100); // six are 46 long
    word.addBlock(QStringLiteral("12 abcd 34"));
    word.layOut();
    QCOMPARE(word.runs(),
             Lines({QStringLiteral("12 "), QStringLiteral("abcd 3"), QStringLiteral("4")}));
    QCOMPARE(word.positions(),
             Lines({QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("9")}));
}

void TestLegacyLayout::cutWordOfTwoRunsKeepsBoth()
{
    OldWord word;
    word.makeBox(46, 100);
    word.addBlock(QStringLiteral("12 a"));
    QTextCharFormat red = OpenWord::format();
    red.setForeground(Qt::red);
    word.addRun(QStringLiteral("bcde"), red);
    word.layOut();
    QCOMPARE(word.runs(), Lines({QStringLiteral("12 "), QStringLiteral("a|bcde")}));
    QCOMPARE(word.positions(), Lines({QStringLiteral("0"), QStringLiteral("3 4")}));
    QCOMPARE(word.line(1).items.at(1).format.foreground().color(), QColor(Qt::red));
}

void TestLegacyLayout::wordLongerThanTheLineStaysCut()
{
    OldWord word;
    word.makeBox(24, 100);
    word.addBlock(QStringLiteral("abcdefgh"));
    word.layOut();
    QCOMPARE(word.runs(),
             Lines({QStringLiteral("abc"), QStringLiteral("def"), QStringLiteral("gh")}));
}

void TestLegacyLayout::wordThatFillsALineByItselfIsNotMovedForEver()
{
    OldWord word;
    word.makeBox(24, 100);
    word.addBlock(QStringLiteral("1 abcdefgh"));
    word.layOut();
    QCOMPARE(word.runs(), Lines({QStringLiteral("1 "), QStringLiteral("abc"), QStringLiteral("def"),
                                 QStringLiteral("gh")}));
    QCOMPARE(word.positions(), Lines({QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("5"),
                                      QStringLiteral("8")}));
}

void TestLegacyLayout::hyphenatedWordGivesBackOneLetter()
{
    OldWord word;
    word.makeBox(46, 100);
    word.addBlock(QStringLiteral("12 abcdef"), rules(0, true));
    word.layOut();
    QCOMPARE(word.runs(), Lines({QStringLiteral("12 ab|-"), QStringLiteral("cdef")}));
    QCOMPARE(word.positions(), Lines({QStringLiteral("0 -2"), QStringLiteral("5")}));
    QVERIFY(word.line(0).items.last().isHyphen);
    QCOMPARE(word.line(0).length(), 5);
}

void TestLegacyLayout::hyphenAtASeamPutsTheLetterOnTheNewLine()
{
    OldWord word;
    word.makeBox(24, 100); // "abc" is 22 long: nothing of the next run fits behind it
    word.addBlock(QStringLiteral("abc"), rules(0, true));
    QTextCharFormat red = OpenWord::format();
    red.setForeground(Qt::red);
    word.addRun(QStringLiteral("de"), red);
    word.layOut();
    QCOMPARE(word.runs(), Lines({QStringLiteral("ab|-"), QStringLiteral("c|de")}));
    QCOMPARE(textOf(word.m_legacyLines), QStringLiteral("abcde"));
}

void TestLegacyLayout::forbiddenEndMovesAheadOfTheRest()
{
    OldWord word;
    word.makeBox(48, 200); // three full-width characters
    word.addBlock(QStringLiteral("\u4e00\u4e01\u300c\u4e02\u4e03"), rules(2, false));
    word.layOut();
    QCOMPARE(textOf(word.m_legacyLines), QStringLiteral("\u4e00\u4e01\u300c\u4e02\u4e03"));
    QCOMPARE(word.runs(),
             Lines({QStringLiteral("\u4e00\u4e01"), QStringLiteral("\u300c|\u4e02\u4e03")}));
}

void TestLegacyLayout::movedItemsStandInReadingOrder()
{
    OldWord word;
    word.makeBox(48, 200);
    // The bracket may not end the line, and leaves a word at its end that moves too.
    word.addBlock(QStringLiteral("1 ab\u300c\u4e02"), rules(2, false));
    word.layOut();
    QCOMPARE(textOf(word.m_legacyLines), QStringLiteral("1 ab\u300c\u4e02"));
    QCOMPARE(word.runs(), Lines({QStringLiteral("1 "), QStringLiteral("ab|\u300c|\u4e02")}));
}

void TestLegacyLayout::repairOfTheLastLineMakesOneMore()
{
    OldWord word;
    word.makeBox(48, 200);
    const QString text = QStringLiteral("\u4e00\u4e01\u4e02\u3002\u4e03\u4e04");
    QTextBlockFormat format = rules(2, false);
    format.setProperty(T::SpaceBehindBlock, 3);
    word.addBlock(text, format, OldWord::spacedFormat());
    word.addBlock(QStringLiteral("1"));
    word.layOut();
    // The stop draws a character to its line, which then has no room for its last one.
    QCOMPARE(word.runs(),
             Lines({QStringLiteral("\u4e00\u4e01"), QStringLiteral("\u4e02|\u3002\u4e03"),
                    QStringLiteral("\u4e04"), QStringLiteral("1")}));
    QVERIFY(!word.line(1).isLastLine && word.line(2).isLastLine && !word.line(2).isFirstLine);
    QCOMPARE(word.line(1).lastLineSpace, 0.0);
    QCOMPARE(word.line(2).lastLineSpace, 4.0);
}

void TestLegacyLayout::nothingIsLostOrDoubled_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<int>("rule");
    QTest::addColumn<bool>("hyphenate");
    for (int orientation : {1, 2}) {
        for (int rule : {0, 1, 2}) {
            for (bool hyphenate : {false, true})
                QTest::addRow("orientation %d, rule %d, hyphens %d", orientation, rule, hyphenate)
                    << orientation << rule << hyphenate;
        }
    }
}

/// Texts of characters that the rules know, in runs of several formats, in boxes of several sizes.
void TestLegacyLayout::nothingIsLostOrDoubled()
{
    QFETCH(int, orientation);
    QFETCH(int, rule);
    QFETCH(bool, hyphenate);
    const QString letters = QStringLiteral(
        "aBc \uff08\uff09\u3002\u3001\u4e00\u4e01 12[]_z\u300c\u300d\u3042\u30fc");
    const QTextCharFormat formats[] = {OpenWord::format(), OpenWord::format(24),
                                       OldWord::formatWith(T::LetterSpacing, 100)};
    quint32 seed = 12345;
    const auto next = [&seed](int below) {
        seed = seed * 1664525u + 1013904223u;
        return int((seed >> 8) % quint32(below));
    };
    for (int round = 0; round < 12; ++round) {
        OldWord word(orientation == 1 ? Qt::Horizontal : Qt::Vertical);
        const double extent = 10 + next(80);
        word.makeBox(extent, extent);
        word.addBlock(QString(), rules(rule, hyphenate));
        QString text;
        for (int run = 0; run < 6; ++run) {
            QString piece;
            for (int i = next(12); i >= 0; --i)
                piece += letters.at(next(letters.length()));
            word.addRun(piece, formats[next(3)]);
            text += piece;
        }
        word.layOut();
        QCOMPARE(textOf(word.m_legacyLines), text);
    }
}

void TestLegacyLayout::longTextsEnd()
{
    const QString letters = QStringLiteral("ab \uff08\u3002\u4e00 1[");
    QString text;
    for (int i = 0; i < 2000; ++i)
        text += letters.at((i * 7 + i / 5) % letters.length());
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        OldWord word(orientation);
        word.makeBox(100, 100);
        word.addBlock(text, rules(2, true));
        word.layOut();
        QCOMPARE(textOf(word.m_legacyLines), text);
    }
}

// Differences from current text

void TestLegacyLayout::differenceRunsAreMeasuredByTheirInk()
{
    OldWord old;
    OpenWord current;
    fillBoth(old, current, QStringLiteral("ab"));
    QCOMPARE(old.line(0).width, 14.0); // from 1 to 15
    const TextLayout layout = current.m_wordManager->textLayout();
    QCOMPARE(layout.lines.first().fragments.first().advance, 16.0);
}

void TestLegacyLayout::differenceBoxIsFiveLongerAndNothingCountsAsTen()
{
    OldWord old;
    OpenWord current;
    fillBoth(old, current, QStringLiteral("ab"));
    QCOMPARE(old.getSize(), QSizeF(19, 8));
    QCOMPARE(current.getSize(), QSizeF(16, 16));

    OldWord nothing;
    nothing.addBlock(QString());
    nothing.addBlock(QString());
    nothing.layOut();
    QCOMPARE(nothing.getSize().width(), 15.0);
}

void TestLegacyLayout::differenceBlockTooWideForItsMarginsIsLeftOut()
{
    OldWord old;
    old.makeBox(40, 100);
    OpenWord current;
    makeBox(current, 40, 100);
    // An empty paragraph between two others, its margins 32 and 12 pixels.
    for (const char *text : {"1", "", "2"}) {
        const QString content = QString::fromLatin1(text);
        const QTextBlockFormat format = content.isEmpty() ? OldWord::block(24, 9)
                                                          : OldWord::block();
        old.addBlock(content, format);
        if (current.toPlainText().isEmpty())
            current.m_cursor->setBlockFormat(format);
        else
            current.m_cursor->insertBlock(format, OpenWord::format());
        current.add(content);
    }
    old.layOut();
    QCOMPARE(old.runs(), Lines({QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(current.m_wordManager->textLayout().lines.size(), 3);
}

void TestLegacyLayout::differenceNoWarp()
{
    OldWord old;
    OpenWord current;
    for (OpenWord *word : {static_cast<OpenWord *>(&old), &current}) {
        word->m_warpStyle = 1;
        word->m_warpValue = 0.5;
    }
    fillBoth(old, current, QStringLiteral("abc"));
    QVERIFY(old.m_morphPaths.isEmpty());
    QVERIFY(!current.m_morphPaths.isEmpty());
}

void TestLegacyLayout::differenceLineEndRepairAndHyphens()
{
    // A line that would begin with a stop draws a character from the line before; rows of the current engine
    // leave it where it is.
    const QString stop = QStringLiteral("\u4e00\u4e01\u4e02\u3002\u4e03");
    OldWord old;
    old.makeBox(48, 200);
    OpenWord current;
    makeBox(current, 48, 200);
    fillBoth(old, current, stop, rules(2, false));
    QCOMPARE(old.runs(),
             Lines({QStringLiteral("\u4e00\u4e01"), QStringLiteral("\u4e02|\u3002\u4e03")}));
    QCOMPARE(textsOf(current),
             Lines({QStringLiteral("\u4e00\u4e01\u4e02"), QStringLiteral("\u3002\u4e03")}));

    // A cut word gives up one letter in both, but the hyphen is a run of its own, and the word is measured by
    // its ink: one letter more has room.
    OldWord oldWord;
    oldWord.makeBox(46, 100);
    OpenWord currentWord;
    makeBox(currentWord, 46, 100);
    fillBoth(oldWord, currentWord, QStringLiteral("12 abcdef"), rules(0, true));
    QCOMPARE(oldWord.runs(), Lines({QStringLiteral("12 ab|-"), QStringLiteral("cdef")}));
    QCOMPARE(textsOf(currentWord), Lines({QStringLiteral("12 a-"), QStringLiteral("b|cdef")}));
}

QTEST_MAIN(TestLegacyLayout)
#include "tst_legacylayout.moc"
