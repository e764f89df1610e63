// SPDX-License-Identifier: MIT
// Box text in lines: breaking, closing, outlines. 96 dpi, 12 points = 16 px; see boxtext.h.
#include "boxtext.h"

#include "layout/multitextobject.h"
#include "layout/texttools.h"

#include <QtTest>

using TextProperty::Alignment;
using TextProperty::BaselineOffset;
using TextProperty::HeadTailRule;
using TextProperty::HorizontalScale;
using TextProperty::Hyphenate;
using TextProperty::LeadingGap;
using TextProperty::LetterSpacing;
using TextProperty::PunctuationExtra;
using TextProperty::RowSpacing;
using TextProperty::SpaceAheadOfBlock;
using TextProperty::SpaceBehindBlock;
using TextProperty::UpperCase;
using TextProperty::VerticalScale;

class TestBoxHorizontal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void punctuationIsCutOut_data();
    void punctuationIsCutOut();

    // One line
    void oneLine();
    void placeOfTheBoxPlaysNoPart();
    void capitalsAreMadeBeforeMeasuring();
    void runsFollowOneAnother();
    void noAlignmentIsLeft();

    // Where a line ends
    void breaking_data();
    void breaking();
    void fillsToTheLastPixel();
    void restKeepsPositions();
    void carriedWordIsARunOfItsOwn();
    void wordOverTwoRunsMovesWhole();
    void emptyRightPartOfACarriedRunStays();
    void hyphenIsTextOnly();
    void hyphenatedSingleCharacterRunMovesWhole();
    void dropsWhatIsNarrowerThanOneCharacter();
    void droppedPieceDoesNotCountInPositions();
    void dropsTheRestBehindAFullLine();
    void lostBlockTakesNoRoom();
    void gapBeyondTheLimitLosesTheRun();
    void marginsTakeWidth();
    void indentIsForTheFirstLineOnly();
    void surrogatePairsStayWhole_data();
    void surrogatePairsStayWhole();

    // Head and tail rule
    void tailRuleMovesTheCharacterBeforeToo();
    void tailRuleNeedsACharacterToStay();
    void headRuleMovesNothing();
    void ruleOffMovesNothing();
    void secondLotStartsAtTheLeftAgain();
    void tailRuleKeepsSurrogatePairsWhole();

    // Compressed punctuation
    void compressedPunctuation();
    void compressedPunctuationFitsWhereAFullOneWouldNot();
    void carriedPunctuationIsCompressedAnew();
    void carryingAWordGivesTheFullAdvanceBack();

    // Alignment
    void alignment_data();
    void alignment();
    void alignmentBetweenMargins_data();
    void alignmentBetweenMargins();
    void justifiedSpacingIsSharedByScale();
    void justifiedLastRunLosesTheUnscaledSpace();
    void justifiedCompressedPunctuationGainsHalf();
    void justifiedSingleCharacterGainsNothing();
    void overfullLineIsNotSqueezed();

    // Row distances
    void rowStep_data();
    void rowStep();
    void firstLineIgnoresRowSpacing();
    void tallestRunSetsFontAndDistance();
    void spacesAroundBlocksAreCrossedAndCarriedOver();

    // Empty blocks
    void emptyBlock_data();
    void emptyBlock();
    void emptyBlockRowDistance_data();
    void emptyBlockRowDistance();
    void emptyFirstBlockIgnoresRowSpacing();
    void emptyBlockScalesAndShiftsItsBox();
    void emptyBlockStopsAtTheBottomOfTheBox();

    // Run properties
    void scales();
    void letterSpacing();
    void gapWidensTheRunBefore();
    void lastRunDoesNotCountForTheLeftEdge();
    void rightEdgeIsTheFarthestEnd();
    void offsetMovesTheRunAndGrowsTheLine();
    void superscriptAndSubscript();
    void underlineIsInsideTheLine();
    void underlineGrowsWithTheStretch();
    void lineFontKeepsNoJustifyingSpace();

    // The box's height
    void linesBelowTheBoxDoNotExist();
    void blocksBehindAStopDoNotExist();
    void clippedRunsStayWithoutOutline();
    void lineOfClippedRunsHasNoSize();
    void automaticBoxTakesTheHeightOfItsText();
    void automaticBoxMeasuresFromItsTop();
    void automaticBoxStillClips();

    // The object's stretch
    void stretchScalesTheText();
    void stretchScalesMeasures();
    void stretchIsFoldedOnce();
    void secondLayoutIsTheSame();
    void wholeParagraph();
};

static QStringList lines(const char *joined)
{
    return QString::fromUtf8(joined).split(QLatin1Char('/'));
}

static QRectF ink(const TextFragment &run)
{
    return run.path.boundingRect();
}

void TestBoxHorizontal::punctuationIsCutOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("empty") << QString() << QStringList();
    QTest::newRow("none") << QStringLiteral("ab 中") << lines("ab 中");
    QTest::newRow("inside") << QStringLiteral("ab。cd") << lines("ab/。/cd");
    QTest::newRow("both ends, in a row") << QStringLiteral("（ab）。") << lines("（/ab/）/。");
    QTest::newRow("ASCII counts too") << QStringLiteral("a,b c!") << lines("a/,/b c/!");
    QTest::newRow("wide space") << QStringLiteral("中　文") << lines("中/　/文");
    QTest::newRow("symbols do not") << QStringLiteral("a+b") << lines("a+b");
}

void TestBoxHorizontal::punctuationIsCutOut()
{
    QFETCH(QString, text);
    QFETCH(QStringList, pieces);
    BoxText object;
    CMultiTextOjbect layout(&object);
    const QList<QString> cut = layout.punctSplit(text);
    QCOMPARE(QStringList(cut), pieces);
}

// One line

void TestBoxHorizontal::oneLine()
{
    BoxText text(100, 50);
    text.add(QStringLiteral("ab"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.orientation, Qt::Horizontal);
    QCOMPARE(layout.dpi, 96);
    QCOMPARE(dump(layout),
             (QStringList{QStringLiteral("line pos=0 len=2 align=1 origin=0,12 rect=0,0 16x16 "
                                         "text=ab"),
                          QStringLiteral("  [ab] pos=0 len=2 start=0 adv=16 base=12 scale=1x1 "
                                         "font=16/0 ink=1,4 14x8")}));
    const TextLine &line = layout.lines.first();
    QCOMPARE(line.path.boundingRect(), QRectF(1, 4, 14, 8));
    QCOMPARE(line.fragments.first().path.fillRule(), Qt::OddEvenFill);
    QCOMPARE(line.font.pixelSize(), 16);
    QCOMPARE(text.rect(), QRectF(0, 0, 100, 50));
    QCOMPARE(text.pathRect(), QRectF(0, 0, 16, 16));
}

void TestBoxHorizontal::placeOfTheBoxPlaysNoPart()
{
    BoxText text;
    text.setBox(QRectF(30, 70, 40, 50));
    text.add(QStringLiteral("abcdefg"));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[abcde]0+40/[fg]0+16"));
    QCOMPARE(acrossOf(layout), (QList<qreal>{12, 28}));
    QCOMPARE(text.rect(), QRectF(30, 70, 40, 50));
    QCOMPARE(text.pathRect(), QRectF(0, 0, 40, 32));
}

void TestBoxHorizontal::capitalsAreMadeBeforeMeasuring()
{
    BoxText text(24);
    text.add(QStringLiteral("abcd"), BoxText::format(12, UpperCase, true));
    const TextLayout layout = text.layOut();
    QCOMPARE(runsOf(layout), lines("ABC/D"));
    QCOMPARE(layout.lines.first().text, QStringLiteral("ABC"));
    QCOMPARE(layout.lines.first().path.boundingRect(), QRectF(1, 4, 22, 8));
}

void TestBoxHorizontal::runsFollowOneAnother()
{
    BoxText text(100);
    text.add(QStringLiteral("ab"));
    text.add(QStringLiteral("cd"), BoxText::format(24));
    text.add(QStringLiteral("中"));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[ab]0+16 [cd]16+32 [中]48+16"));
    QCOMPARE(positionsOf(line), QStringLiteral("0+2 2+2 4+1"));
    QCOMPARE(line.text, QStringLiteral("abcd中"));
    QCOMPARE(line.length, 5);
    QCOMPARE(line.rect, QRectF(0, 0, 64, 32));
    QCOMPARE(line.origin, QPointF(0, 24));
}

void TestBoxHorizontal::noAlignmentIsLeft()
{
    BoxText text(100);
    text.add(QStringLiteral("a"));
    QCOMPARE(text.layOut().lines.first().alignment, 1);
    QCOMPARE(text.layOut().lines.first().fragments.first().start, 0.0);
}

// Where a line ends

void TestBoxHorizontal::breaking_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("hyphenate");
    QTest::addColumn<QStringList>("runs");
    const auto row = [](const char *name, const char *text, const char *plain,
                        const char *hyphenated) {
        QTest::addRow("%s", name) << QString::fromUtf8(text) << false << lines(plain);
        QTest::addRow("%s, hyphenated", name)
            << QString::fromUtf8(text) << true << lines(hyphenated);
    };
    // Five Latin characters or two and a half wide ones a line; "|" parts runs, "/" lines.
    row("fits exactly", "abcde", "abcde", "abcde");
    row("second word moves", "ab cdefg", "ab /cd|efg", "ab c-/d|efg");
    row("word longer than the line", "abcdefg", "abcde/fg", "abcd-/e|fg");
    row("word of three lines", "abcdefghijklm", "abcde/fghij/klm", "abcd-/e|fgh-/i|jklm");
    row("break behind a word", "abcde fg", "abcde/ fg", "abcde/ fg");
    row("break ahead of a word", "abcd efg", "abcd /efg", "abcd /efg");
    row("spaces are not trimmed", "ab      cd", "ab   /   cd", "ab   /   cd");
    row("first letter behind a space", "abc defgh", "abc /d|efgh", "abc /d|efgh");
    row("space at the start is no opportunity", " abcdefg", " abcd/efg", " abc-/d|efg");
    row("digits are no words", "ab 12345", "ab 12/345", "ab 12/345");
    row("a digit parts words", "abc1def", "abc1/d|ef", "abc1/d|ef");
    row("hyphen in the text", "ab-cdefg", "ab-/cd|efg", "ab-c-/d|efg");
    row("wide characters break anywhere", "中文国人天", "中文/国人/天", "中文/国人/天");
    row("word ahead of wide characters", "abcd中", "abcd/中", "abcd/中");
    row("word behind a wide character", "a中bcdef", "a中/bc|def", "a中b-/c|def");
    row("wide character at the start", "中abcdef", "中abc/def", "中ab-/c|def");
    row("kana are no words", "あいうえお", "あい/うえ/お", "あい/うえ/お");
    row("accented capital and small letters", "a ÀÉéèà", "a /ÀÉé|èà", "a ÀÉ-/é|èà");
    row("long word behind a short one", "ab cdefghijk", "ab /cd|efg/hijk", "ab c-/d|efg-/h|ijk");
}

void TestBoxHorizontal::breaking()
{
    QFETCH(QString, text);
    QFETCH(bool, hyphenate);
    QFETCH(QStringList, runs);
    BoxText object(40);
    object.add(text);
    if (hyphenate)
        object.setBlockProperty(Hyphenate, true);
    QCOMPARE(runsOf(object.layOut()), runs);
}

void TestBoxHorizontal::fillsToTheLastPixel()
{
    const struct {
        qreal width;
        const char *runs;
    } cases[] = {{40, "12345/6"}, {39.5, "1234/56"}, {47.5, "12345/6"}, {48, "123456"}};
    for (const auto &one : cases) {
        BoxText text(one.width);
        text.add(QStringLiteral("123456"));
        QCOMPARE(runsOf(text.layOut()), lines(one.runs));
    }
}

void TestBoxHorizontal::restKeepsPositions()
{
    BoxText text(40);
    text.add(QStringLiteral("12345678901234"));
    text.addBlock();
    text.add(QStringLiteral("567890"));
    const TextLayout layout = text.layOut();
    QCOMPARE(runsOf(layout), lines("12345/67890/1234/56789/0"));
    QStringList positions;
    for (const TextLine &line : layout.lines) {
        positions.append(positionsOf(line));
        QCOMPARE(line.position, line.fragments.first().position);
        QCOMPARE(line.length, line.text.length());
    }
    QCOMPARE(positions, lines("0+5/5+5/10+4/15+5/20+1"));
    QCOMPARE(acrossOf(layout), (QList<qreal>{12, 28, 44, 60, 76}));
}

void TestBoxHorizontal::carriedWordIsARunOfItsOwn()
{
    BoxText text(40);
    text.add(QStringLiteral("ab cdefg"));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[ab ]0+24/[cd]0+16 [efg]16+24"));
    QCOMPARE(positionsOf(layout.lines.at(0)), QStringLiteral("0+3"));
    QCOMPARE(positionsOf(layout.lines.at(1)), QStringLiteral("3+2 5+3"));
    QCOMPARE(layout.lines.at(0).text, QStringLiteral("ab "));
    QCOMPARE(layout.lines.at(1).text, QStringLiteral("cdefg"));
    QCOMPARE(layout.lines.at(1).position, 3);
    QCOMPARE(layout.lines.at(1).length, 5);
    QCOMPARE(layout.lines.at(0).rect, QRectF(0, 0, 24, 16));
    QCOMPARE(layout.lines.at(1).rect, QRectF(0, 16, 40, 16));
}

void TestBoxHorizontal::wordOverTwoRunsMovesWhole()
{
    BoxText text(48);
    text.add(QStringLiteral("ab c"));
    text.add(QStringLiteral("defg"), BoxText::format(12, UpperCase, true));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[ab ]0+24/[c]0+8 [DE]8+16 [FG]24+16"));
    QCOMPARE(positionsOf(layout.lines.at(1)), QStringLiteral("3+1 4+2 6+2"));
}

void TestBoxHorizontal::emptyRightPartOfACarriedRunStays()
{
    // The word begins with its run: the run before is cut at its very end.
    BoxText text(40);
    text.add(QStringLiteral("ab "));
    text.add(QStringLiteral("cdef"), BoxText::format(12, UpperCase, true));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[ab ]0+24/[]0+0 [CD]0+16 [EF]16+16"));
    QCOMPARE(positionsOf(layout.lines.at(1)), QStringLiteral("3+0 3+2 5+2"));
    QCOMPARE(layout.lines.at(1).text, QStringLiteral("CDEF"));
}

void TestBoxHorizontal::hyphenIsTextOnly()
{
    BoxText text(40);
    text.add(QStringLiteral("abcdefg"));
    text.setBlockProperty(Hyphenate, true);
    const TextLine line = text.layOut().lines.first();
    const TextFragment &run = line.fragments.first();
    QCOMPARE(run.text, QStringLiteral("abcd-"));
    QCOMPARE(run.length, 4);
    QCOMPARE(run.advance, 32.0);
    QCOMPARE(line.text, QStringLiteral("abcd"));
    QCOMPARE(line.length, 4);
    QCOMPARE(ink(run), QRectF(1, 4, 38, 8)); // the hyphen is drawn, up to 39
    QCOMPARE(line.rect, QRectF(0, 0, 39, 16));

    BoxText off(40);
    off.add(QStringLiteral("abcdefg"));
    off.setBlockProperty(Hyphenate, false);
    QCOMPARE(runsOf(off.layOut()), lines("abcde/fg"));
}

void TestBoxHorizontal::hyphenatedSingleCharacterRunMovesWhole()
{
    const struct {
        qreal width;
        const char *first;
        const char *second;
        const char *runs;
    } cases[] = {
        {16, "a", "bcd", "a-/b-/c|d"},       // the last run is one letter: it moves
        {16, "ab", "cd", "ab/cd"},           // only run, two letters: nothing moves
        {8, "ab", "", "a/b"},                // only run, one letter: nothing moves
        {24, "a ", "bcd", "a /b|cd"},        // a space ahead of it: it moves, no hyphen
        {24, "a", "bcdef", "a|b-/c|d-/e|f"}, // second run of two letters: its last one moves
    };
    for (const auto &one : cases) {
        BoxText text(one.width);
        text.add(QLatin1String(one.first));
        if (one.second[0] != 0)
            text.add(QLatin1String(one.second), BoxText::format(12, BaselineOffset, 1));
        text.setBlockProperty(Hyphenate, true);
        QCOMPARE(runsOf(text.layOut()), lines(one.runs));
    }
}

void TestBoxHorizontal::dropsWhatIsNarrowerThanOneCharacter()
{
    BoxText text(10);
    text.add(QStringLiteral("中a"));
    text.add(QStringLiteral("b"), BoxText::format(12, BaselineOffset, 0));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[b]0+8"));
    QCOMPARE(layout.lines.first().position, 2);
    QCOMPARE(acrossOf(layout), (QList<qreal>{12}));
}

void TestBoxHorizontal::droppedPieceDoesNotCountInPositions()
{
    BoxText text(10);
    text.add(QStringLiteral("中。a"));
    text.setBlockProperty(PunctuationExtra, 1);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[。]0+8/[a]0+8"));
    QCOMPARE(layout.lines.at(0).position, 0);
    QCOMPARE(layout.lines.at(1).position, 1);
}

void TestBoxHorizontal::dropsTheRestBehindAFullLine()
{
    BoxText text(10);
    text.add(QStringLiteral("a中b"));
    text.add(QStringLiteral("c"), BoxText::format(12, BaselineOffset, 0));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[a]0+8/[c]0+8"));
    QCOMPARE(layout.lines.at(1).position, 3);
}

void TestBoxHorizontal::lostBlockTakesNoRoom()
{
    BoxText text(10, 50);
    text.m_autoWordWrap = true;
    text.add(QStringLiteral("中"));
    QCOMPARE(text.layOut().lines.size(), 0);
    QCOMPARE(text.rect(), QRectF(0, 0, 10, 50)); // no text to take the height of
    QCOMPARE(text.pathRect(), QRectF());
    text.addBlock();
    text.add(QStringLiteral("a"));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{12}));
    QCOMPARE(text.rect(), QRectF(0, 0, 10, 16));
}

void TestBoxHorizontal::gapBeyondTheLimitLosesTheRun()
{
    // 2000 thousandths of 12 points are 32 px: the pen stands at 48 of 40.
    BoxText text(40);
    text.add(QStringLiteral("ab"));
    text.add(QStringLiteral("cd"), BoxText::format(12, LeadingGap, 2000.0));
    text.add(QStringLiteral("ef"));
    text.addBlock();
    text.add(QStringLiteral("g"));
    QCOMPARE(placesOf(text.layOut()), lines("[ab]0+48/[g]0+8"));
}

void TestBoxHorizontal::marginsTakeWidth()
{
    BoxText text(52);
    text.add(QStringLiteral("123456"));
    text.setMargins(6, 3); // 8 and 4 px: 40 are left
    QCOMPARE(placesOf(text.layOut()), lines("[12345]8+40/[6]8+8"));
}

void TestBoxHorizontal::indentIsForTheFirstLineOnly()
{
    BoxText text(64);
    text.add(QStringLiteral("1234567890"));
    text.setMargins(6, 3, 9);
    text.addBlock(text.m_document->firstBlock().blockFormat());
    text.add(QStringLiteral("12"));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[12345]20+40/[67890]8+40/[12]20+16"));
}

void TestBoxHorizontal::surrogatePairsStayWhole_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("runs");
    QTest::newRow("room for one and a half") << 24 << QStringLiteral("𠀀𠀀𠀀") << lines("𠀀/𠀀/𠀀");
    QTest::newRow("behind a letter") << 20 << QStringLiteral("a𠀀b") << lines("a/𠀀/b");
    QTest::newRow("fits exactly") << 24 << QStringLiteral("a𠀀b") << lines("a𠀀/b");
    QTest::newRow("does not fit at all") << 12 << QStringLiteral("𠀀𠀀") << QStringList();
    QTest::newRow("between digits") << 30 << QStringLiteral("12𠀀34") << lines("12/𠀀3/4");
}

void TestBoxHorizontal::surrogatePairsStayWhole()
{
    QFETCH(int, width);
    QFETCH(QString, text);
    QFETCH(QStringList, runs);
    BoxText object(width);
    object.add(text);
    QCOMPARE(runsOf(object.layOut()), runs);
}

// Head and tail rule

void TestBoxHorizontal::tailRuleMovesTheCharacterBeforeToo()
{
    BoxText text(40);
    text.add(QStringLiteral("1234(567"));
    text.setBlockProperty(HeadTailRule, 1);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[123]0+24/[4(]0+16 [567]16+24"));
    QCOMPARE(positionsOf(layout.lines.at(1)), QStringLiteral("3+2 5+3"));
    QCOMPARE(layout.lines.at(0).text, QStringLiteral("123"));
    QCOMPARE(layout.lines.at(1).text, QStringLiteral("4(567"));
}

void TestBoxHorizontal::tailRuleNeedsACharacterToStay()
{
    const struct {
        qreal width;
        const char *text;
        const char *runs;
    } cases[] = {{16, "1(234", "1(/23/4"}, {16, "((234", "((/23/4"}, {24, "12(345", "1/2(|3/45"}};
    for (const auto &one : cases) {
        BoxText text(one.width);
        text.add(QLatin1String(one.text));
        text.setBlockProperty(HeadTailRule, 1);
        QCOMPARE(runsOf(text.layOut()), lines(one.runs));
    }
}

void TestBoxHorizontal::headRuleMovesNothing()
{
    for (const int mode : {1, 2}) {
        BoxText text(48);
        text.add(QStringLiteral("中文国。人"));
        text.setBlockProperty(HeadTailRule, mode);
        QCOMPARE(runsOf(text.layOut()), lines("中文国/。人"));
    }
}

void TestBoxHorizontal::ruleOffMovesNothing()
{
    for (const int mode : {-1, 0, 3}) {
        BoxText text(40);
        text.add(QStringLiteral("1234(567"));
        text.setBlockProperty(HeadTailRule, mode);
        QCOMPARE(runsOf(text.layOut()), lines("1234(/567"));
    }
}

void TestBoxHorizontal::secondLotStartsAtTheLeftAgain()
{
    // The tail rule carries "b(", then the word rule "a": behind it, but starting over it.
    BoxText text(48);
    text.add(QStringLiteral("x ab(de"));
    text.setMargins(6, 0);
    text.setBlockProperty(HeadTailRule, 1);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[x ]8+16/[b(]8+16 [a]8+8 [de]32+16"));
    const TextLine &line = layout.lines.at(1);
    QCOMPARE(positionsOf(line), QStringLiteral("3+2 2+1 5+2"));
    QCOMPARE(line.text, QStringLiteral("b(ade"));
    QCOMPARE(line.position, 3);
    QCOMPARE(line.length, 5);
}

void TestBoxHorizontal::tailRuleKeepsSurrogatePairsWhole()
{
    BoxText text(40);
    text.add(QStringLiteral("12𠀀(34"));
    text.setBlockProperty(HeadTailRule, 1);
    QCOMPARE(placesOf(text.layOut()), lines("[12]0+16/[𠀀(]0+24 [34]24+16"));
}

// Compressed punctuation

void TestBoxHorizontal::compressedPunctuation()
{
    BoxText text(200);
    text.add(QStringLiteral("a（中）。,"));
    text.setBlockProperty(PunctuationExtra, 1);
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[a]0+8 [（]8+8 [中]16+16 [）]32+8 [。]40+8 [,]48+4"));
    QCOMPARE(positionsOf(line), QStringLiteral("0+1 1+1 2+1 3+1 4+1 5+1"));
    QStringList inks;
    QList<bool> half;
    for (const TextFragment &run : line.fragments) {
        inks.append(shown(ink(run).left()));
        half.append(run.isHalfPunct);
    }
    // The ink begins at the run's start, whichever half of the cell it sat in.
    QCOMPARE(inks, lines("1/8/17/32/40/48"));
    QCOMPARE(half, (QList<bool>{false, true, false, true, true, true}));
    QCOMPARE(line.rect, QRectF(0, 0, 52, 16));

    BoxText full(200);
    full.add(QStringLiteral("a。"));
    full.setBlockProperty(PunctuationExtra, 0);
    QCOMPARE(placesOf(full.layOut()), lines("[a。]0+24"));
}

void TestBoxHorizontal::compressedPunctuationFitsWhereAFullOneWouldNot()
{
    const struct {
        qreal width;
        const char *places;
    } cases[] = {{32, "[中a]0+24 [。]24+8/[b]0+8"}, {24, "[中a]0+24/[。]0+8 [b]8+8"}};
    for (const auto &one : cases) {
        BoxText text(one.width);
        text.add(QStringLiteral("中a。b"));
        text.setBlockProperty(PunctuationExtra, 1);
        const TextLayout layout = text.layOut();
        QCOMPARE(placesOf(layout), lines(one.places));
        for (const TextLine &line : layout.lines) {
            for (const TextFragment &run : line.fragments)
                QCOMPARE(run.isHalfPunct, run.text == QStringLiteral("。"));
        }
    }
}

void TestBoxHorizontal::carriedPunctuationIsCompressedAnew()
{
    // The tail rule cuts at the full stop ahead of the bracket.
    BoxText text(32);
    text.add(QStringLiteral("ab。「cd"));
    text.setBlockProperty(PunctuationExtra, 1);
    text.setBlockProperty(HeadTailRule, 1);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[ab]0+16/[。]0+8 [「]8+8 [cd]16+16"));
    QCOMPARE(positionsOf(layout.lines.at(1)), QStringLiteral("2+1 3+1 4+2"));
    QVERIFY(layout.lines.at(1).fragments.at(0).isHalfPunct);
    QVERIFY(layout.lines.at(1).fragments.at(1).isHalfPunct);
}

void TestBoxHorizontal::carryingAWordGivesTheFullAdvanceBack()
{
    // The word rule cuts behind the bracket: its run is measured anew, and full.
    BoxText text(40);
    text.add(QStringLiteral("abc「def"));
    text.setBlockProperty(PunctuationExtra, 1);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[abc]0+24 [「]24+16/[]0+0 [d]0+8 [ef]8+16"));
}

// Alignment

void TestBoxHorizontal::alignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QString>("wrapped");
    QTest::addColumn<QString>("last");
    // Of 40 px both lines leave 16 and have three characters: 8 px more for each but the last.
    const QString justified = QStringLiteral("[ab ]0+40");
    const QString left = QStringLiteral("[ab ]0+24");
    const QString centred = QStringLiteral("[ab ]8+24");
    const QString right = QStringLiteral("[ab ]16+24");
    const QString lastJustified = QStringLiteral("[cd]0+32 [e]32+8");
    const QString lastLeft = QStringLiteral("[cd]0+16 [e]16+8");
    const QString lastCentred = QStringLiteral("[cd]8+16 [e]24+8");
    const QString lastRight = QStringLiteral("[cd]16+16 [e]32+8");
    QTest::newRow("8") << 8 << justified << lastJustified;
    QTest::newRow("0x100") << 0x100 << justified << lastJustified;
    QTest::newRow("0x200") << 0x200 << justified << lastLeft;
    QTest::newRow("0x400") << 0x400 << justified << lastCentred;
    QTest::newRow("0x800") << 0x800 << justified << lastRight;
    QTest::newRow("2") << 2 << right << lastRight;
    QTest::newRow("0x40") << 0x40 << right << lastRight;
    QTest::newRow("4") << 4 << centred << lastCentred;
    QTest::newRow("0x80") << 0x80 << centred << lastCentred;
    QTest::newRow("1") << 1 << left << lastLeft;
    QTest::newRow("0x20") << 0x20 << left << lastLeft;
    QTest::newRow("0") << 0 << left << lastLeft;
    QTest::newRow("unknown") << 0x1000 << left << lastLeft;
    QTest::newRow("two bits") << 0x22 << left << lastLeft;
}

void TestBoxHorizontal::alignment()
{
    QFETCH(int, alignment);
    QFETCH(QString, wrapped);
    QFETCH(QString, last);
    BoxText text(40);
    text.add(QStringLiteral("ab cde"));
    text.setBlockProperty(Alignment, alignment);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), (QStringList{wrapped, last}));
    for (const TextLine &line : layout.lines) {
        QCOMPARE(line.alignment, alignment);
        QCOMPARE(line.origin.x(), 0.0);
    }
    const TextFragment &run = layout.lines.first().fragments.first();
    const bool isJustified = wrapped.endsWith(QStringLiteral("+40"));
    QCOMPARE(run.font.letterSpacing(), isJustified ? 8.0 : 0.0);
    // "a" and "b" of the wrapped line: 1 to 7 and 9 to 15, 8 further apart when justified.
    QCOMPARE(ink(run), QRectF(run.start + 1, 4, isJustified ? 22 : 14, 8));
}

void TestBoxHorizontal::alignmentBetweenMargins_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QStringList>("places");
    // 64 px less 8 at the left and 4 at the right, the first line 12 less: 40 and 52.
    QTest::newRow("left") << 1 << lines("[ab ]20+24/[cd]8+16 [e]24+8");
    QTest::newRow("right") << 2 << lines("[ab ]36+24/[cd]36+16 [e]52+8");
    QTest::newRow("centre") << 4 << lines("[ab ]28+24/[cd]22+16 [e]38+8");
    QTest::newRow("justified") << 8 << lines("[ab ]20+40/[cd]8+44 [e]52+8");
}

void TestBoxHorizontal::alignmentBetweenMargins()
{
    QFETCH(int, alignment);
    QFETCH(QStringList, places);
    BoxText text(64);
    text.setMargins(6, 3, 9);
    text.setBlockProperty(Alignment, alignment);
    text.add(QStringLiteral("ab cde"));
    QCOMPARE(placesOf(text.layOut()), places);
}

void TestBoxHorizontal::justifiedSpacingIsSharedByScale()
{
    BoxText text(64);
    text.add(QStringLiteral("ab"), BoxText::format(12, HorizontalScale, 200));
    text.add(QStringLiteral("12 "));
    text.setBlockProperty(Alignment, 8);
    const TextLine line = text.layOut().lines.first();
    // 56 px of text, 8 over for four gaps: 2 px each.
    QCOMPARE(placesOf(line), QStringLiteral("[ab]0+36 [12 ]36+28"));
    QCOMPARE(line.fragments.at(0).font.letterSpacing(), 1.0);
    QCOMPARE(line.fragments.at(1).font.letterSpacing(), 2.0);
}

void TestBoxHorizontal::justifiedLastRunLosesTheUnscaledSpace()
{
    // 32 of 64 px, one gap of 32: 16 in the font, of which the end of the line loses 16, not 32.
    BoxText text(64);
    text.add(QStringLiteral("ab"), BoxText::format(12, HorizontalScale, 200));
    text.setBlockProperty(Alignment, 8);
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[ab]0+80"));
    QCOMPARE(line.fragments.first().font.letterSpacing(), 16.0);
    QCOMPARE(ink(line.fragments.first()), QRectF(2, 4, 60, 8));
}

void TestBoxHorizontal::justifiedCompressedPunctuationGainsHalf()
{
    // 8 + 8 + 8 of 40 px: 8 px for each of two gaps, of which the bracket takes half.
    BoxText text(40);
    text.add(QStringLiteral("a（b"));
    text.setBlockProperty(PunctuationExtra, 1);
    text.setBlockProperty(Alignment, 8);
    QCOMPARE(placesOf(text.layOut()), lines("[a]0+16 [（]16+12 [b]28+8"));
}

void TestBoxHorizontal::justifiedSingleCharacterGainsNothing()
{
    BoxText text(24);
    text.add(QStringLiteral("中文国"));
    text.setBlockProperty(Alignment, 8);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[中]0+16/[文]0+16/[国]0+16"));
    QCOMPARE(layout.lines.first().fragments.first().font.letterSpacing(), 0.0);
}

void TestBoxHorizontal::overfullLineIsNotSqueezed()
{
    // The gap behind the last run is wider than the line.
    BoxText text(40);
    text.add(QStringLiteral("ab"));
    text.add(QStringLiteral("c"), BoxText::format(12, LeadingGap, 2000.0));
    text.setBlockProperty(Alignment, 8);
    QCOMPARE(placesOf(text.layOut()), lines("[ab]0+48"));
    text.setBlockProperty(Alignment, 2);
    QCOMPARE(placesOf(text.layOut()), lines("[ab]-8+48"));
}

// Row distances

void TestBoxHorizontal::rowStep_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<double>("distance");
    QTest::newRow("automatic") << 0.0 << 0.0 << 16.0;
    QTest::newRow("negative is automatic") << -30.0 << 0.0 << 16.0;
    QTest::newRow("all fixed: greatest, though tighter") << 3.0 << 6.0 << 8.0;
    QTest::newRow("mixed: automatic is greater") << 3.0 << 0.0 << 16.0;
    QTest::newRow("mixed: fixed is greater") << 0.0 << 30.0 << 40.0;
}

void TestBoxHorizontal::rowStep()
{
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(double, distance);
    BoxText text(16);
    text.add(QStringLiteral("1"), BoxText::format(12, RowSpacing, first));
    text.add(QStringLiteral("2"), BoxText::format(12, RowSpacing, second));
    text.add(QStringLiteral("3"), BoxText::format(12, RowSpacing, first));
    text.add(QStringLiteral("4"), BoxText::format(12, RowSpacing, second));
    text.addBlock();
    text.add(QStringLiteral("5"), BoxText::format(12, RowSpacing, first));
    text.add(QStringLiteral("6"), BoxText::format(12, RowSpacing, second));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{12, 12 + distance, 12 + 2 * distance}));
}

void TestBoxHorizontal::firstLineIgnoresRowSpacing()
{
    BoxText text(100);
    text.add(QStringLiteral("1"), BoxText::format(12, RowSpacing, 60.0));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{12}));
}

void TestBoxHorizontal::tallestRunSetsFontAndDistance()
{
    BoxText text(32);
    text.add(QStringLiteral("1234"));
    text.add(QStringLiteral("5"));
    text.add(QStringLiteral("6"), BoxText::format(24));
    text.add(QStringLiteral("7"));
    text.add(QStringLiteral("8"));
    const TextLayout layout = text.layOut();
    QCOMPARE(runsOf(layout), lines("1234/5|6|7/8"));
    QCOMPARE(layout.lines.at(1).font.pixelSize(), 32);
    QCOMPARE(acrossOf(layout), (QList<qreal>{12, 12 + 4 + 24, 40 + 8 + 12}));
    QCOMPARE(layout.lines.at(1).rect, QRectF(0, 16, 32, 32));
}

void TestBoxHorizontal::spacesAroundBlocksAreCrossedAndCarriedOver()
{
    BoxText text(100);
    text.add(QStringLiteral("a"));
    text.setBlockProperty(SpaceAheadOfBlock, 3); // ahead of the first block there is nothing
    text.setBlockProperty(SpaceBehindBlock, 6.0);
    text.addBlock();
    text.add(QStringLiteral("b"));
    text.addBlock(BoxText::block(SpaceAheadOfBlock, 3));
    text.add(QStringLiteral("c"));
    text.addBlock(BoxText::block(SpaceBehindBlock, 0));
    text.add(QStringLiteral("d"));
    text.addBlock();
    text.add(QStringLiteral("e"));
    // 8 px behind the first three blocks, 4 more ahead of the third.
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{12, 36, 64, 88, 104}));
}

// Empty blocks

void TestBoxHorizontal::emptyBlock_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("width");
    QTest::addColumn<double>("x");
    // Margins of 8 and 4 px, 12 px of indent.
    QTest::newRow("left") << 1 << 100 << 20.0;
    QTest::newRow("unknown") << 0 << 100 << 20.0;
    QTest::newRow("justified") << 8 << 100 << 20.0;
    QTest::newRow("justified 0x100") << 0x100 << 100 << 20.0;
    QTest::newRow("last line left") << 0x200 << 100 << 20.0;
    QTest::newRow("right") << 2 << 100 << 96.0;
    QTest::newRow("right of columns") << 0x40 << 100 << 96.0;
    QTest::newRow("last line right") << 0x800 << 100 << 96.0;
    QTest::newRow("right, no room") << 2 << 3 << 0.0;
    QTest::newRow("centre") << 4 << 100 << 38.0;
    QTest::newRow("centre of columns") << 0x80 << 100 << 38.0;
    QTest::newRow("last line centred") << 0x400 << 100 << 38.0;
    QTest::newRow("centre, no room") << 4 << 20 << 0.0;
}

void TestBoxHorizontal::emptyBlock()
{
    QFETCH(int, alignment);
    QFETCH(int, width);
    QFETCH(double, x);
    BoxText text(width);
    text.setFirstFormat(BoxText::format());
    text.addBlock(BoxText::block(Alignment, alignment));
    text.setMargins(6, 3, 9);
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.size(), 2);
    const TextLine &line = layout.lines.at(1);
    QVERIFY(line.isEmptyBlock);
    QCOMPARE(line.origin, QPointF(x, 28));
    QCOMPARE(line.rect.topLeft(), QPointF(x, 16));
    QCOMPARE(line.rect.width(), -x); // deliberate
    QCOMPARE(line.rect.height(), 16.0);
    QCOMPARE(line.alignment, -1);
    QCOMPARE(line.position, 1);
    QCOMPARE(line.length, 1);
    QCOMPARE(line.font.pixelSize(), 16);
    QCOMPARE(line.fragments.size(), 1);
    const TextFragment &placeholder = line.fragments.first();
    QVERIFY(placeholder.isEmptyBlock);
    QVERIFY(placeholder.path.isEmpty());
    QCOMPARE(placeholder.position, 1);
    QCOMPARE(placeholder.font, QFont());
    QVERIFY(placeholder.start == 0 && placeholder.baseline == 0 && placeholder.advance == 0);
}

void TestBoxHorizontal::emptyBlockRowDistance_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<double>("distance");
    QTest::newRow("automatic") << 0.0 << 16.0;
    QTest::newRow("fixed") << 30.0 << 40.0;
    QTest::newRow("fixed and tight") << 3.0 << 4.0;
    QTest::newRow("negative is automatic") << -5.0 << 16.0;
}

void TestBoxHorizontal::emptyBlockRowDistance()
{
    QFETCH(double, points);
    QFETCH(double, distance);
    BoxText text(100);
    text.add(QStringLiteral("a"));
    text.addBlock({}, BoxText::format(12, RowSpacing, points));
    text.addBlock();
    text.add(QStringLiteral("b"));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{12, 12 + distance, 12 + distance + 16}));
}

void TestBoxHorizontal::emptyFirstBlockIgnoresRowSpacing()
{
    BoxText text(100);
    text.setFirstFormat(BoxText::format(12, RowSpacing, 60.0));
    text.addBlock();
    text.add(QStringLiteral("a"));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{12, 28}));
}

void TestBoxHorizontal::emptyBlockScalesAndShiftsItsBox()
{
    const struct {
        int offset;
        qreal top;
    } cases[] = {{0, 22}, {3, 18}, {-3, 22}};
    for (const auto &one : cases) {
        BoxText text(100);
        text.add(QStringLiteral("a"));
        text.addBlock({}, formatWith(VerticalScale, 50, BaselineOffset, one.offset));
        const TextLine line = text.layOut().lines.at(1);
        // Ascent 6, descent 2; 3 points are 4 px above or below.
        QCOMPARE(line.rect, QRectF(0, one.top, 0, one.offset == 0 ? 8 : 12));
        QCOMPARE(line.origin, QPointF(0, 28)); // the distances are those of the full size
    }
}

void TestBoxHorizontal::emptyBlockStopsAtTheBottomOfTheBox()
{
    const struct {
        qreal top;
        qreal height;
        bool grows;
        int count;
    } cases[] = {
        {0, 32, false, 2}, {0, 31.5, false, 1}, {2, 30, false, 2},
        {1, 30, false, 1}, {0, 5, true, 3},
    };
    for (const auto &one : cases) {
        BoxText text;
        text.setBox(QRectF(0, one.top, 100, one.height));
        text.m_autoWordWrap = one.grows;
        text.setFirstFormat(BoxText::format());
        text.addBlock();
        text.addBlock();
        QCOMPARE(text.layOut().lines.size(), one.count);
    }
}

// Run properties

void TestBoxHorizontal::scales()
{
    BoxText text(40);
    text.add(QStringLiteral("A"));
    text.add(QStringLiteral("BC"), formatWith(HorizontalScale, 200, VerticalScale, 50));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[A]0+8 [BC]8+32"));
    const TextFragment &run = layout.lines.first().fragments.at(1);
    QCOMPARE(run.scaleX, 2.0);
    QCOMPARE(run.scaleY, 0.5);
    QCOMPARE(ink(run), QRectF(10, 8, 28, 4));
    QCOMPARE(layout.lines.first().rect, QRectF(0, 0, 40, 16));
}

void TestBoxHorizontal::letterSpacing()
{
    // 500 thousandths of 12 points are 8 px behind each character, the last one too.
    BoxText text(40);
    text.add(QStringLiteral("123"), BoxText::format(12, LetterSpacing, 500.0));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[12]0+32/[3]0+16"));
    const TextFragment &run = layout.lines.first().fragments.first();
    QCOMPARE(run.font.letterSpacing(), 8.0);
    QCOMPARE(ink(run), QRectF(1, 4, 22, 8));
}

void TestBoxHorizontal::gapWidensTheRunBefore()
{
    BoxText text(100);
    text.add(QStringLiteral("a"), BoxText::format(12, LeadingGap, 250.0)); // moves only the pen
    text.add(QStringLiteral("b"), BoxText::format(12, LeadingGap, 500.0));
    text.add(QStringLiteral("c"));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[a]4+16 [b]20+8 [c]28+8"));
    QCOMPARE(line.rect, QRectF(4, 0, 32, 16));
}

void TestBoxHorizontal::lastRunDoesNotCountForTheLeftEdge()
{
    // A gap of -20 px puts the second run 4 px ahead of the first.
    BoxText text(100);
    text.add(QStringLiteral("ab"));
    text.add(QStringLiteral("cdef"), BoxText::format(12, LeadingGap, -1250.0));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[ab]0+-4 [cdef]-4+32"));
    QCOMPARE(line.rect, QRectF(0, 0, 28, 16));
}

void TestBoxHorizontal::rightEdgeIsTheFarthestEnd()
{
    // 24 px less behind "c": the last run stands over the first one.
    BoxText text(100);
    text.add(QStringLiteral("ab"));
    text.add(QStringLiteral("c"), BoxText::format(12, LetterSpacing, -1500.0));
    text.add(QStringLiteral("d"));
    TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[ab]0+16 [c]16+-16 [d]0+8"));
    QCOMPARE(line.rect, QRectF(0, 0, 16, 16)); // the ink of "c" up to 23 does not count

    BoxText lone(100);
    lone.add(QStringLiteral("c"), BoxText::format(12, LetterSpacing, -1500.0));
    line = lone.layOut().lines.first();
    QCOMPARE(line.rect, QRectF(0, 0, 7, 16)); // that of a lone run does
}

void TestBoxHorizontal::offsetMovesTheRunAndGrowsTheLine()
{
    const struct {
        int offset;
        qreal baseline;
        QRectF ink;
        QRectF rect;
    } cases[] = {
        {3, 8, QRectF(9, 0, 6, 8), QRectF(0, -4, 16, 20)},
        {-3, 16, QRectF(9, 8, 6, 8), QRectF(0, 0, 16, 20)},
    };
    for (const auto &one : cases) {
        BoxText text(100);
        text.add(QStringLiteral("a"));
        text.add(QStringLiteral("B"), BoxText::format(12, BaselineOffset, one.offset));
        const TextLine line = text.layOut().lines.first();
        QCOMPARE(line.fragments.at(1).baseline, one.baseline);
        QCOMPARE(ink(line.fragments.at(1)), one.ink);
        QCOMPARE(line.rect, one.rect);
        QCOMPARE(line.origin, QPointF(0, 12));
    }
}

void TestBoxHorizontal::superscriptAndSubscript()
{
    BoxText text(100);
    text.add(QStringLiteral("A"), BoxText::format(12, QTextFormat::TextVerticalAlignment, 1));
    text.add(QStringLiteral("B"), BoxText::format(12, QTextFormat::TextVerticalAlignment, 2));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[A]0+4 [B]4+4"));
    const TextFragment &upper = line.fragments.at(0);
    const TextFragment &lower = line.fragments.at(1);
    QCOMPARE(ink(upper), QRectF(0.5, 4, 3, 4)); // keeps its top
    QCOMPARE(upper.baseline, 8.0);
    QCOMPARE(ink(lower), QRectF(4.5, 10, 3, 4)); // hangs down by half of its height
    QCOMPARE(lower.baseline, 14.0);
    QVERIFY(upper.scaleX == 0.5 && upper.scaleY == 0.5 && lower.scaleX == 0.5);
    QCOMPARE(line.rect, QRectF(0, 0, 8, 18));

    BoxText stretched(100);
    QTextCharFormat format = formatWith(HorizontalScale, 300, VerticalScale, 200);
    format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    stretched.add(QStringLiteral("A"), format);
    const TextFragment run = stretched.layOut().lines.first().fragments.first();
    QCOMPARE(run.scaleX, 1.5);
    QCOMPARE(run.scaleY, 1.0);
    QCOMPARE(run.advance, 12.0);
    QCOMPARE(ink(run), QRectF(1.5, -4, 9, 8));
}

void TestBoxHorizontal::underlineIsInsideTheLine()
{
    QTextCharFormat underlined = BoxText::format();
    underlined.setFontUnderline(true);
    const qreal thickness = CTextTools::getFontLineHeight(underlined.font());
    QVERIFY(thickness > 0);
    BoxText text(16);
    text.add(QStringLiteral("12"));
    text.add(QStringLiteral("34"), underlined);
    text.add(QStringLiteral("56"));
    text.addBlock();
    text.add(QStringLiteral("78"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.at(0).rect, QRectF(0, 0, 16, 16));
    QCOMPARE(layout.lines.at(1).rect, QRectF(0, 16, 16, 16 + thickness));
    // Kept for the rest of the block, forgotten at the next one; rows do not move apart for it.
    QCOMPARE(layout.lines.at(2).rect, QRectF(0, 32, 16, 16 + thickness));
    QCOMPARE(layout.lines.at(3).rect, QRectF(0, 48, 16, 16));
    QVERIFY(!layout.lines.at(1).fragments.first().font.underline());
}

void TestBoxHorizontal::underlineGrowsWithTheStretch()
{
    QTextCharFormat underlined = BoxText::format();
    underlined.setFontUnderline(true);
    const qreal thickness = CTextTools::getFontLineHeight(underlined.font());
    BoxText text(16);
    text.m_scaleY = 2;
    text.add(QStringLiteral("1"), underlined);
    underlined.setProperty(BaselineOffset, 0);
    text.add(QStringLiteral("2"), underlined);
    text.add(QStringLiteral("34"), underlined);
    text.add(QStringLiteral("5"));
    const TextLayout layout = text.layOut();
    // The stretch of 2 counts once more with every underlined run.
    QCOMPARE(layout.lines.at(0).rect.height(), 32 + 4 * thickness);
    QCOMPARE(layout.lines.at(1).rect.height(), 32 + 8 * thickness);
    QCOMPARE(layout.lines.at(2).rect.height(), 32 + 8 * thickness);
}

void TestBoxHorizontal::lineFontKeepsNoJustifyingSpace()
{
    BoxText text(40);
    text.add(QStringLiteral("12 34 5"));
    text.setBlockProperty(Alignment, 8);
    const TextLayout layout = text.layOut();
    QCOMPARE(runsOf(layout), lines("12 34/ 5"));
    QCOMPARE(placesOf(layout.lines.at(1)), QStringLiteral("[ 5]0+40"));
    QCOMPARE(layout.lines.at(1).font.letterSpacing(), 0.0);
}

// The box's height

void TestBoxHorizontal::linesBelowTheBoxDoNotExist()
{
    const struct {
        qreal height;
        int count;
    } cases[] = {{11.5, 0}, {12, 1}, {27.5, 1}, {28, 2}, {43.5, 2}, {44, 3}, {60, 4}};
    for (const auto &one : cases) {
        BoxText text(8, one.height);
        text.add(QStringLiteral("1234"));
        QCOMPARE(text.layOut().lines.size(), one.count);
        QCOMPARE(text.rect(), QRectF(0, 0, 8, one.height));
    }
}

void TestBoxHorizontal::blocksBehindAStopDoNotExist()
{
    const struct {
        qreal height;
        int count;
    } cases[] = {
        {31.5, 2}, // the first block stands, but its descent sticks out
        {32, 2},   // room for the first block exactly; the second has none
        {44, 3},
    };
    for (const auto &one : cases) {
        BoxText text(8, one.height);
        text.add(QStringLiteral("12"));
        // Raised, so that it would stand in the box if it came to it.
        text.addBlock(BoxText::block(SpaceAheadOfBlock, one.height < 32 ? -24 : 0));
        text.add(QStringLiteral("3"));
        QCOMPARE(text.layOut().lines.size(), one.count);
    }
}

void TestBoxHorizontal::clippedRunsStayWithoutOutline()
{
    BoxText text(100, 13);
    text.add(QStringLiteral("ab"));
    text.add(QStringLiteral("gg"), BoxText::format(12, BaselineOffset, 0)); // ink down to 14
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.size(), 1);
    const TextLine &line = layout.lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[ab]0+16 [gg]16+16"));
    QCOMPARE(ink(line.fragments.at(0)), QRectF(1, 4, 14, 8));
    QVERIFY(line.fragments.at(1).path.isEmpty());
    QCOMPARE(line.path.boundingRect(), QRectF(1, 4, 14, 8));
    QCOMPARE(line.rect, QRectF(0, 0, 16, 16));

    text.setBox(QRectF(0, 0, 100, 14)); // ends where the ink does
    QCOMPARE(ink(text.layOut().lines.first().fragments.at(1)), QRectF(17, 6, 14, 8));
}

void TestBoxHorizontal::lineOfClippedRunsHasNoSize()
{
    BoxText text(100, 13);
    text.add(QStringLiteral("gg"));
    text.setBlockProperty(Alignment, 2);
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[gg]84+16"));
    QVERIFY(line.fragments.first().path.isEmpty());
    QVERIFY(line.path.isEmpty());
    QCOMPARE(line.rect, QRectF(0, 12, 0, 0));
    QCOMPARE(line.alignment, 2);
}

void TestBoxHorizontal::automaticBoxTakesTheHeightOfItsText()
{
    for (const qreal height : {1.0, 40.0, 500.0}) {
        BoxText text(16, height);
        text.m_autoWordWrap = true;
        text.add(QStringLiteral("1234"));
        text.addBlock();
        QCOMPARE(text.layOut().lines.size(), 3);
        QCOMPARE(text.rect(), QRectF(0, 0, 16, 48));
        QCOMPARE(text.m_clientRect, QRectF(0, 0, 16, height)); // the box itself stays
    }
}

void TestBoxHorizontal::automaticBoxMeasuresFromItsTop()
{
    BoxText text;
    text.setBox(QRectF(5, 10, 16, 7));
    text.m_autoWordWrap = true;
    text.add(QStringLiteral("1234"));
    text.layOut();
    QCOMPARE(text.rect(), QRectF(5, 10, 16, 22));
}

void TestBoxHorizontal::automaticBoxStillClips()
{
    BoxText text(16, 20);
    text.m_autoWordWrap = true;
    text.add(QStringLiteral("1234"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.size(), 2);
    QVERIFY(!layout.lines.at(0).path.isEmpty());
    QVERIFY(layout.lines.at(1).path.isEmpty());
    QCOMPARE(text.rect(), QRectF(0, 0, 16, 32));
    text.setBox(text.rect()); // as the growth of the box does
    QVERIFY(!text.layOut().lines.at(1).path.isEmpty());
}

// The object's stretch

void TestBoxHorizontal::stretchScalesTheText()
{
    BoxText text(100, 200);
    text.m_scaleX = 3;
    text.m_scaleY = 2;
    text.add(QStringLiteral("12345"));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[1234]0+96/[5]0+24"));
    QCOMPARE(acrossOf(layout), (QList<qreal>{24, 56}));
    const TextFragment &run = layout.lines.at(1).fragments.first();
    QCOMPARE(run.scaleX, 3.0);
    QCOMPARE(run.scaleY, 2.0);
    QCOMPARE(run.font.pixelSize(), 16);
    QCOMPARE(ink(run), QRectF(3, 40, 18, 16));
    QCOMPARE(layout.lines.at(1).rect, QRectF(0, 32, 24, 32));
}

void TestBoxHorizontal::stretchScalesMeasures()
{
    BoxText text(200, 1000);
    text.m_scaleX = 2;
    text.m_scaleY = 3;
    text.add(QStringLiteral("a"), formatWith(LetterSpacing, 500.0, BaselineOffset, 3));
    text.add(QStringLiteral("b"), BoxText::format(12, LeadingGap, 250.0));
    text.setMargins(6, 3, 9);
    text.setBlockProperty(SpaceBehindBlock, 6);
    text.addBlock(BoxText::block(SpaceAheadOfBlock, 3));
    text.add(QStringLiteral("c"), BoxText::format(12, RowSpacing, 30.0));
    text.setMargins(0, 3);
    text.setBlockProperty(Alignment, 2);
    text.addBlock(BoxText::block(Alignment, 2));
    text.setMargins(0, 3);
    const TextLayout layout = text.layOut();
    // Margin 16 and indent 24; "a" is 8 with a spacing of 16, twice; the gap is 4 twice.
    QCOMPARE(placesOf(layout.lines.at(0)), QStringLiteral("[a]40+56 [b]96+16"));
    QCOMPARE(layout.lines.at(0).fragments.at(0).baseline, 36 - 12.0);
    // 24 behind, 12 ahead, 120 of row spacing.
    QCOMPARE(placesOf(layout.lines.at(1)), QStringLiteral("[c]176+16"));
    QCOMPARE(layout.lines.at(1).origin, QPointF(0, 36 + 24 + 12 + 120));
    QCOMPARE(layout.lines.at(2).origin, QPointF(192, 192 + 24 + 48));
    QCOMPARE(layout.lines.at(2).rect.height(), 48.0);
}

void TestBoxHorizontal::stretchIsFoldedOnce()
{
    BoxText text(96, 200);
    text.m_scaleX = 2;
    text.m_scaleY = 0.5;
    text.m_transformScaleX = 1.5;
    text.m_transformScaleY = 3;
    text.add(QStringLiteral("12345"));
    const QStringList first = dump(text.layOut());
    QCOMPARE(text.m_scaleX, 1.0);
    QCOMPARE(text.m_scaleY, 1.0);
    QCOMPARE(text.m_transformScaleX, 3.0);
    QCOMPARE(text.m_transformScaleY, 1.5);
    QCOMPARE(dump(text.layOut()), first);
    QCOMPARE(text.m_transformScaleX, 3.0);
    QCOMPARE(text.m_transformScaleY, 1.5);
}

void TestBoxHorizontal::secondLayoutIsTheSame()
{
    BoxText text(100, 90);
    text.m_scaleX = 1.25;
    text.m_scaleY = 1.1;
    text.add(QStringLiteral("Two words, 中文国人。（天地） and gypsies"));
    text.setBlockProperty(Hyphenate, true);
    text.setBlockProperty(HeadTailRule, 2);
    text.setBlockProperty(PunctuationExtra, 1);
    text.setBlockProperty(Alignment, 0x400);
    text.addBlock();
    text.addBlock();
    text.add(QStringLiteral("end"), BoxText::format(24));
    const QStringList first = dump(text.layOut());
    const QRectF area = text.pathRect();
    QVERIFY(first.size() > 6);
    QCOMPARE(dump(text.layOut()), first);
    QCOMPARE(text.pathRect(), area);
}

void TestBoxHorizontal::wholeParagraph()
{
    BoxText text(64, 60);
    text.add(QStringLiteral("to be 中文"));
    text.add(QStringLiteral("Ag"), BoxText::format(24));
    text.setBlockProperty(Alignment, 0x200);
    text.addBlock();
    text.addBlock();
    text.add(QStringLiteral("x"));
    const QStringList expected{
        QStringLiteral("line pos=0 len=7 align=512 origin=0,12 rect=0,0 64x16 text=to be 中"),
        QStringLiteral("  [to be 中] pos=0 len=7 start=0 adv=64 base=12 scale=1x1 font=16/0 "
                       "ink=1,0 62x14"),
        QStringLiteral("line pos=7 len=3 align=512 origin=0,40 rect=0,16 48x32 text=文Ag"),
        QStringLiteral(
            "  [文] pos=7 len=1 start=0 adv=16 base=40 scale=1x1 font=16/0 ink=1,28 14x14"),
        QStringLiteral("  [Ag] pos=8 len=2 start=16 adv=32 base=40 scale=1x1 font=32/0 "
                       "ink=18,24 28x20"),
    };
    QCOMPARE(dump(text.layOut()), expected);
}

QTEST_MAIN(TestBoxHorizontal)
#include "tst_boxhorizontal.moc"
