// SPDX-License-Identifier: MIT
// Box text in columns: breaking, places of columns, outlines. 96 dpi, 12 points = 16 px; see
// boxtext.h. Columns of 16 px automatically stand 24 px apart: twice the height less twice the
// descent.
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

class TestBoxVertical : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uprightCharactersAreCutOut_data();
    void uprightCharactersAreCutOut();

    // One column
    void latinLiesOnItsSide();
    void hanStandsUpright();
    void lowInkIsCentredInItsCell();
    void uprightIsSaidOfUprightCharactersOnly();
    void placeOfTheBoxPlaysNoPart();
    void tallestRunPlacesTheFirstColumn();
    void capitalsAreMadeBeforeMeasuring();

    // Where a column ends
    void breaking_data();
    void breaking();
    void wrappedCharactersStayUpright();
    void dropsWhatIsLongerThanTheColumn();
    void lostBlockTakesNoRoom();
    void marginsAndIndentTakeLength();
    void surrogatePairsStayWhole();

    // Head and tail rule
    void headAndTailRule_data();
    void headAndTailRule();
    void headRuleKeepsPositions();
    void carriedPunctuationIsCompressedAnew();

    // Letter spacing, gaps, compressed punctuation
    void letterSpacing();
    void letterSpacingOfUprightCharactersIsNotPartOfTheFit();
    void spacingBeyondTheLimitLosesWhatFollows();
    void gapWidensTheRunBefore();
    void compressedPunctuation();
    void fullPunctuationIsCutOutAllTheSame();

    // Alignment
    void alignment_data();
    void alignment();
    void justifiedUprightCharactersMoveApart();
    void justifiedLastRunLosesTheUnscaledSpace();
    void justifiedCompressedPunctuationCountsFull();
    void runsBeyondTheBottomKeepTheirOutline();

    // Places of columns
    void columnsRunFromRightToLeft();
    void columnStep_data();
    void columnStep();
    void columnInsideABlockTakesTheSpacingOfTheRunThatOverflows();
    void columnInsideABlockTakesTheDescentOfTheRunThatOverflows();
    void columnAtTheEndOfABlockTakesItsOwnDescent();
    void rowSpacingIsNotStretchedAtTheEndOfABlock();
    void columnKeepsLargestRowDistanceOfBlock();
    void wideColumnNeedsMoreRoom();
    void spacesAroundBlocksAreCrossedAndCarriedOver();

    // Empty blocks
    void emptyColumn_data();
    void emptyColumn();
    void emptyColumnDistance_data();
    void emptyColumnDistance();
    void emptyFirstColumnStandsLeftOfTheOrigin();
    void emptyColumnScalesAndShiftsItsBox();

    // Run properties
    void scales();
    void lastRunDoesNotCountForTheTopEdge();
    void offsetMovesAcross();
    void superscriptAndSubscriptMoveAcross();
    void underlineMovesTheLeftEdgeOnly();
    void underlineGrowsWithTheStretch();

    // The box's width
    void columnsLeftOfTheBoxDoNotExist();
    void automaticBoxStopsBehindTheBlockThatLeftIt();
    void inkAtTheVeryEdgeDoesNotStopTheLayout();
    void automaticBoxKeepsItsRightEdge();
    void emptyColumnDoesNotGrowTheAutomaticBox();

    // The object's stretch
    void stretchScalesTheText();
    void stretchScalesMeasures();
    void stretchIsFoldedOnce();
    void secondLayoutIsTheSame();
};

class ColumnText : public BoxText
{
public:
    explicit ColumnText(qreal width = 100, qreal height = 1000)
        : BoxText(width, height, Qt::Vertical)
    {
    }
};

static QStringList lines(const char *joined)
{
    return QString::fromUtf8(joined).split(QLatin1Char('/'));
}

static QRectF ink(const TextFragment &run)
{
    return run.path.boundingRect();
}

void TestBoxVertical::uprightCharactersAreCutOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("empty") << QString() << QStringList();
    QTest::newRow("none") << QStringLiteral("ab, c") << lines("ab, c");
    QTest::newRow("inside") << QStringLiteral("ab中cd") << lines("ab/中/cd");
    QTest::newRow("both ends, in a row") << QStringLiteral("中文a。") << lines("中/文/a/。");
    QTest::newRow("kana lie") << QStringLiteral("aあア中") << lines("aあア/中");
    QTest::newRow("full-width forms, wide space") << QStringLiteral("Ａ　b") << lines("Ａ/　/b");
    QTest::newRow("surrogates lie") << QStringLiteral("a𠀀b") << lines("a𠀀b");
}

void TestBoxVertical::uprightCharactersAreCutOut()
{
    QFETCH(QString, text);
    QFETCH(QStringList, pieces);
    BoxText object;
    CMultiTextOjbect layout(&object);
    const QList<QString> cut = layout.CJKSplit(text);
    QCOMPARE(QStringList(cut), pieces);
}

// One column

void TestBoxVertical::latinLiesOnItsSide()
{
    ColumnText text(100, 50);
    text.add(QStringLiteral("ab"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.orientation, Qt::Vertical);
    QCOMPARE(layout.dpi, 96);
    // Turned clockwise, half of a capital's 8 px to the left of the axis.
    QCOMPARE(dump(layout),
             (QStringList{QStringLiteral("line pos=0 len=2 align=32 origin=92,0 rect=84,0 16x16 "
                                         "text=ab"),
                          QStringLiteral("  [ab] pos=0 len=2 start=0 adv=16 base=92 scale=1x1 "
                                         "font=16/0 ink=88,1 8x14")}));
    QCOMPARE(layout.lines.first().path.boundingRect(), QRectF(88, 1, 8, 14));
    QCOMPARE(layout.lines.first().fragments.first().path.fillRule(), Qt::OddEvenFill);
    QCOMPARE(text.rect(), QRectF(0, 0, 100, 50));
    QCOMPARE(text.pathRect(), QRectF(84, 0, 16, 16));
}

void TestBoxVertical::hanStandsUpright()
{
    ColumnText text;
    text.add(QStringLiteral("a中"));
    const TextLayout layout = text.layOut();
    QCOMPARE(dump(layout),
             (QStringList{QStringLiteral("line pos=0 len=2 align=32 origin=92,0 rect=84,0 16x24 "
                                         "text=a中"),
                          QStringLiteral("  [a] pos=0 len=1 start=0 adv=8 base=92 scale=1x1 "
                                         "font=16/0 ink=88,1 6x6"),
                          QStringLiteral("  [中] pos=1 len=1 start=8 adv=16 base=92 scale=1x1 "
                                         "font=16/0 ink=85,9 14x14 upright")}));
}

void TestBoxVertical::lowInkIsCentredInItsCell()
{
    ColumnText text;
    text.add(QStringLiteral("中。"));
    const TextFragment run = text.layOut().lines.first().fragments.at(1);
    QCOMPARE(ink(run), QRectF(85, 22, 4, 4)); // 12 px of air, half of it above
}

void TestBoxVertical::uprightIsSaidOfUprightCharactersOnly()
{
    ColumnText text;
    text.add(QStringLiteral("ab中c。あ！"));
    const TextLine line = text.layOut().lines.first();
    QList<bool> upright;
    for (const TextFragment &run : line.fragments)
        upright.append(run.isCJK);
    QCOMPARE(placesOf(line),
             QStringLiteral("[ab]0+16 [中]16+16 [c]32+8 [。]40+16 [あ]56+16 [！]72+16"));
    QCOMPARE(positionsOf(line), QStringLiteral("0+2 2+1 3+1 4+1 5+1 6+1"));
    QCOMPARE(upright, (QList<bool>{false, true, false, true, false, true}));
}

void TestBoxVertical::placeOfTheBoxPlaysNoPart()
{
    ColumnText text;
    text.setBox(QRectF(30, 70, 100, 16));
    text.add(QStringLiteral("1234"));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[12]0+16/[34]0+16"));
    QCOMPARE(acrossOf(layout), (QList<qreal>{92, 68}));
    QCOMPARE(text.rect(), QRectF(30, 70, 100, 16));
}

void TestBoxVertical::tallestRunPlacesTheFirstColumn()
{
    ColumnText text;
    text.add(QStringLiteral("A"));
    text.add(QStringLiteral("B"), ColumnText::format(24));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.origin, QPointF(84, 0));
    QCOMPARE(line.font.pixelSize(), 32);
    QCOMPARE(line.rect, QRectF(68, 0, 32, 24));
    QCOMPARE(ink(line.fragments.at(0)), QRectF(80, 1, 8, 6));
    QCOMPARE(ink(line.fragments.at(1)), QRectF(76, 10, 16, 12));
}

void TestBoxVertical::capitalsAreMadeBeforeMeasuring()
{
    ColumnText text(100, 24);
    text.add(QStringLiteral("abcd"), ColumnText::format(12, UpperCase, true));
    QCOMPARE(runsOf(text.layOut()), lines("ABC/D"));
}

// Where a column ends

void TestBoxVertical::breaking_data()
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
    // Five Latin characters or two and a half wide ones a column; "|" parts runs, "/" columns.
    row("fits exactly", "abcde", "abcde", "abcde");
    row("second word moves", "ab cdefg", "ab /cd|efg", "ab c-/d|efg");
    row("word longer than the column", "abcdefg", "abcde/fg", "abcd-/e|fg");
    row("word of three columns", "abcdefghijklm", "abcde/fghij/klm", "abcd-/e|fgh-/i|jklm");
    row("spaces are not trimmed", "ab      cd", "ab   /   cd", "ab   /   cd");
    row("space at the start is no opportunity", " abcdefg", " abcd/efg", " abc-/d|efg");
    row("digits are no words", "ab 12345", "ab 12/345", "ab 12/345");
    row("upright characters", "中文国人天", "中|文/国|人/天", "中|文/国|人/天");
    row("word ahead of an upright character", "abcd中", "abcd/中", "abcd/中");
    row("word behind an upright character", "a中bcdef", "a|中/|bc|def", "a|中|b-/c|def");
    row("upright character at the start", "中abcdef", "中|abc/def", "中|ab-/c|def");
    row("one letter behind an upright character", "abc中bc", "abc|中/bc", "abc|中/bc");
    row("one letter that fits", "ab中bcd", "ab|中/|b|cd", "ab|中/b|cd");
    row("kana break anywhere", "あいうえお", "あい/うえ/お", "あい/うえ/お");
}

void TestBoxVertical::breaking()
{
    QFETCH(QString, text);
    QFETCH(bool, hyphenate);
    QFETCH(QStringList, runs);
    ColumnText object(1000, 40);
    object.add(text);
    if (hyphenate)
        object.setBlockProperty(Hyphenate, true);
    QCOMPARE(runsOf(object.layOut()), runs);
}

void TestBoxVertical::wrappedCharactersStayUpright()
{
    ColumnText text(1000, 40);
    text.add(QStringLiteral("中文国人天"));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[中]0+16 [文]16+16/[国]0+16 [人]16+16/[天]0+16"));
    QStringList positions;
    for (const TextLine &line : layout.lines) {
        positions.append(positionsOf(line));
        for (const TextFragment &run : line.fragments)
            QVERIFY(run.isCJK);
    }
    QCOMPARE(positions, lines("0+1 1+1/2+1 3+1/4+1"));
}

void TestBoxVertical::dropsWhatIsLongerThanTheColumn()
{
    ColumnText text(100, 10);
    text.add(QStringLiteral("中a"));
    text.add(QStringLiteral("b"), ColumnText::format(12, BaselineOffset, 0));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[a]0+8/[b]0+8"));
    QCOMPARE(layout.lines.at(0).position, 0); // dropped characters do not count
    QCOMPARE(layout.lines.at(1).position, 2);
}

void TestBoxVertical::lostBlockTakesNoRoom()
{
    ColumnText text(100, 10);
    text.m_autoWordWrap = true;
    text.add(QStringLiteral("中"));
    QCOMPARE(text.layOut().lines.size(), 0);
    QCOMPARE(text.rect(), QRectF(0, 0, 100, 10));
    text.addBlock();
    text.add(QStringLiteral("a"));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{92}));
    QCOMPARE(text.rect(), QRectF(84, 0, 16, 10));
}

void TestBoxVertical::marginsAndIndentTakeLength()
{
    ColumnText text(1000, 64);
    text.add(QStringLiteral("1234567890"));
    text.setMargins(6, 3, 9); // 8, 4 and 12 px
    QCOMPARE(placesOf(text.layOut()), lines("[12345]20+40/[67890]8+40"));
}

void TestBoxVertical::surrogatePairsStayWhole()
{
    const struct {
        qreal height;
        const char *text;
        const char *runs;
    } cases[] = {{24, "𠀀𠀀𠀀", "𠀀/𠀀/𠀀"}, {20, "a𠀀b", "a/𠀀/b"}, {30, "12𠀀34", "12/𠀀3/4"}};
    for (const auto &one : cases) {
        ColumnText text(1000, one.height);
        text.add(QString::fromUtf8(one.text));
        QCOMPARE(runsOf(text.layOut()), lines(one.runs));
    }
    ColumnText narrow(1000, 12);
    narrow.add(QStringLiteral("𠀀𠀀"));
    QCOMPARE(narrow.layOut().lines.size(), 0);
}

// Head and tail rule

void TestBoxVertical::headAndTailRule_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("runs");
    const auto row = [](const char *name, int height, int mode, const char *text,
                        const char *runs) {
        QTest::newRow(name) << height << mode << QString::fromUtf8(text) << lines(runs);
    };
    row("off: full stop begins a column", 48, 0, "中文国。人", "中|文|国/。|人");
    row("beyond: off", 48, 3, "中文国。人", "中|文|国/。|人");
    row("head: full stop, relaxed", 48, 1, "中文国。人", "中|文/国|。|人");
    row("head: full stop, strict", 48, 2, "中文国。人", "中|文/国|。|人");
    row("head: kana, relaxed", 48, 1, "中文国あ", "中|文|国/あ");
    row("head: kana, strict", 48, 2, "中文国あ", "中|文/国|あ");
    row("head: two stops", 48, 2, "中文。。人", "中/文|。|。/人");
    row("head: one character has to stay", 16, 2, "中。文", "中/。/文");
    row("head: inside Latin text", 16, 2, "12.34", "1/2|./34");
    row("tail: bracket", 48, 1, "中文「国", "中/文|「|国");
    row("tail: inside Latin text", 40, 1, "1234(567", "123/4(|567");
    row("tail: one character has to stay", 16, 1, "1(23", "1(/23");
    row("tail: nothing but brackets", 16, 1, "((23", "((/23");
}

void TestBoxVertical::headAndTailRule()
{
    QFETCH(int, height);
    QFETCH(int, mode);
    QFETCH(QString, text);
    QFETCH(QStringList, runs);
    ColumnText object(1000, height);
    object.add(text);
    object.setBlockProperty(HeadTailRule, mode);
    QCOMPARE(runsOf(object.layOut()), runs);
}

void TestBoxVertical::headRuleKeepsPositions()
{
    ColumnText text(1000, 56);
    text.add(QStringLiteral("中文国。人"));
    text.setMargins(6, 0);
    text.setBlockProperty(HeadTailRule, 2);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[中]8+16 [文]24+16/[国]8+16 [。]24+16 [人]40+16"));
    QCOMPARE(positionsOf(layout.lines.at(1)), QStringLiteral("2+1 3+1 4+1"));
    QCOMPARE(layout.lines.at(0).text, QStringLiteral("中文"));
    QCOMPARE(layout.lines.at(1).text, QStringLiteral("国。人"));
    for (const TextFragment &run : layout.lines.at(1).fragments)
        QVERIFY(run.isCJK);
}

void TestBoxVertical::carriedPunctuationIsCompressedAnew()
{
    ColumnText text(1000, 32);
    text.add(QStringLiteral("ab。「cd"));
    text.setBlockProperty(PunctuationExtra, 1);
    text.setBlockProperty(HeadTailRule, 1);
    QCOMPARE(placesOf(text.layOut()), lines("[ab]0+16/[。]0+8 [「]8+8 [cd]16+16"));
}

// Letter spacing, gaps, compressed punctuation

void TestBoxVertical::letterSpacing()
{
    // 500 thousandths of 12 points are 8 px behind each character.
    ColumnText text;
    text.add(QStringLiteral("12中"), ColumnText::format(12, LetterSpacing, 500.0));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[12]0+32 [中]32+24"));
    QCOMPARE(line.fragments.at(0).font.letterSpacing(), 8.0);
    QCOMPARE(line.fragments.at(1).font.letterSpacing(), 0.0);
    QCOMPARE(ink(line.fragments.at(0)), QRectF(88, 1, 8, 22));
    QCOMPARE(ink(line.fragments.at(1)), QRectF(85, 33, 14, 14));
}

void TestBoxVertical::letterSpacingOfUprightCharactersIsNotPartOfTheFit()
{
    ColumnText text(1000, 48);
    text.add(QStringLiteral("中文国人"), ColumnText::format(12, LetterSpacing, 500.0));
    // The first character of the second column was a rest and does not get its spacing back.
    QCOMPARE(placesOf(text.layOut()), lines("[中]0+24 [文]24+24/[国]0+16 [人]16+24"));
}

void TestBoxVertical::spacingBeyondTheLimitLosesWhatFollows()
{
    // The second character fits to the pixel; its spacing puts the pen at 48 of 40.
    ColumnText text(1000, 40);
    text.add(QStringLiteral("中文国人"), ColumnText::format(12, LetterSpacing, 500.0));
    text.addBlock();
    text.add(QStringLiteral("天"));
    QCOMPARE(placesOf(text.layOut()), lines("[中]0+24 [文]24+24/[天]0+16"));
}

void TestBoxVertical::gapWidensTheRunBefore()
{
    ColumnText text;
    text.add(QStringLiteral("中"), ColumnText::format(12, LeadingGap, 250.0)); // only the pen
    text.add(QStringLiteral("b"), ColumnText::format(12, LeadingGap, 500.0));
    text.add(QStringLiteral("c"));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[中]4+24 [b]28+8 [c]36+8"));
    QCOMPARE(line.rect, QRectF(84, 4, 16, 40));
}

void TestBoxVertical::compressedPunctuation()
{
    ColumnText text;
    text.add(QStringLiteral("中。「a,中,文"));
    text.setBlockProperty(PunctuationExtra, 1);
    const TextLine line = text.layOut().lines.first();
    // A comma is compressed only where it is a piece of its own.
    QCOMPARE(placesOf(line), QStringLiteral("[中]0+16 [。]16+8 [「]24+8 [a,]32+16 [中]48+16 "
                                            "[,]64+4 [文]68+16"));
    QList<bool> half;
    for (const TextFragment &run : line.fragments)
        half.append(run.isHalfPunct);
    QCOMPARE(half, (QList<bool>{false, true, true, false, false, true, false}));
    QCOMPARE(ink(line.fragments.at(1)), QRectF(85, 18, 4, 4));  // 4 px of air
    QCOMPARE(ink(line.fragments.at(2)), QRectF(92, 21, 7, 14)); // 6 px too tall
}

void TestBoxVertical::fullPunctuationIsCutOutAllTheSame()
{
    ColumnText text;
    text.add(QStringLiteral("中。"));
    text.setBlockProperty(PunctuationExtra, 0);
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[中]0+16 [。]16+16"));
    QVERIFY(!line.fragments.at(1).isHalfPunct);
}

// Alignment

void TestBoxVertical::alignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QString>("wrapped");
    QTest::addColumn<QString>("last");
    // Of 40 px both columns leave 16 and have three characters: 8 px more for each but the last.
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
    QTest::newRow("unknown") << 0x1000 << left << lastLeft;
}

void TestBoxVertical::alignment()
{
    QFETCH(int, alignment);
    QFETCH(QString, wrapped);
    QFETCH(QString, last);
    ColumnText text(100, 40);
    text.add(QStringLiteral("ab cde"));
    text.setBlockProperty(Alignment, alignment);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), (QStringList{wrapped, last}));
    QCOMPARE(layout.lines.at(0).origin, QPointF(92, 0));
    QCOMPARE(layout.lines.at(1).origin, QPointF(68, 0));
    for (const TextLine &line : layout.lines)
        QCOMPARE(line.alignment, alignment);
    const TextFragment &run = layout.lines.first().fragments.first();
    const bool isJustified = wrapped.endsWith(QStringLiteral("+40"));
    QCOMPARE(run.font.letterSpacing(), isJustified ? 8.0 : 0.0);
    QCOMPARE(ink(run), QRectF(88, run.start + 1, 8, isJustified ? 22 : 14));
    QCOMPARE(layout.lines.first().rect.top(), run.start);
}

void TestBoxVertical::justifiedUprightCharactersMoveApart()
{
    ColumnText text(1000, 64);
    text.add(QStringLiteral("中文a国人"));
    text.setMargins(0, 0, 3); // 4 px
    text.setBlockProperty(Alignment, 0x200);
    const TextLayout layout = text.layOut();
    // 56 of 60 px, three gaps: 4 / 3 px each.
    QCOMPARE(runsOf(layout), lines("中|文|a|国/人"));
    const TextLine &column = layout.lines.first();
    QCOMPARE(column.fragments.at(0).advance, 16 + 4.0 / 3);
    QCOMPARE(column.fragments.at(1).start, 20 + 4.0 / 3);
    QCOMPARE(column.fragments.at(3).advance, 16.0);
    QCOMPARE(column.fragments.at(0).font.letterSpacing(), 0.0);
    QVERIFY(column.fragments.at(2).font.letterSpacing() > 1.3);

    ColumnText whole(1000, 40);
    whole.add(QStringLiteral("中文国"));
    whole.setBlockProperty(Alignment, 8);
    QCOMPARE(placesOf(whole.layOut()), lines("[中]0+24 [文]24+16/[国]0+16"));
}

void TestBoxVertical::justifiedLastRunLosesTheUnscaledSpace()
{
    // 32 of 64 px, one gap of 32: 16 in the font, of which the end of the column loses 16, not 32.
    ColumnText text(100, 64);
    text.add(QStringLiteral("ab"), ColumnText::format(12, VerticalScale, 200));
    text.setBlockProperty(Alignment, 8);
    QCOMPARE(placesOf(text.layOut()), lines("[ab]0+80"));

    // An upright character's space is the same at every scale, and the last one gains nothing.
    ColumnText upright(100, 96);
    upright.add(QStringLiteral("中文"), ColumnText::format(12, VerticalScale, 200));
    upright.setBlockProperty(Alignment, 8);
    QCOMPARE(placesOf(upright.layOut()), lines("[中]0+64 [文]64+32"));
}

void TestBoxVertical::justifiedCompressedPunctuationCountsFull()
{
    ColumnText text(1000, 40);
    text.add(QStringLiteral("a。b"));
    text.setBlockProperty(PunctuationExtra, 1);
    text.setBlockProperty(Alignment, 8);
    // 24 of 40 px: the stop gains the whole 8 px.
    QCOMPARE(placesOf(text.layOut()), lines("[a]0+16 [。]16+16 [b]32+8"));
}

void TestBoxVertical::runsBeyondTheBottomKeepTheirOutline()
{
    // 36 of 52 px; lying, the compressed comma is measured in full again, 4 px too much.
    ColumnText text(1000, 52);
    text.add(QStringLiteral("中,文"));
    text.setBlockProperty(PunctuationExtra, 1);
    text.setBlockProperty(Alignment, 8);
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[中]0+24 [,]24+16 [文]40+16"));
    QCOMPARE(ink(layout.lines.first().fragments.at(2)), QRectF(985, 41, 14, 14));
}

// Places of columns

void TestBoxVertical::columnsRunFromRightToLeft()
{
    ColumnText text(100, 16);
    text.add(QStringLiteral("12345"));
    text.addBlock();
    text.add(QStringLiteral("6"));
    const TextLayout layout = text.layOut();
    QCOMPARE(runsOf(layout), lines("12/34/5/6"));
    QCOMPARE(acrossOf(layout), (QList<qreal>{92, 68, 44, 20}));
    QCOMPARE(text.pathRect(), QRectF(12, 0, 88, 16));
}

void TestBoxVertical::columnStep_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<double>("distance");
    QTest::newRow("automatic") << 0.0 << 0.0 << 24.0;
    QTest::newRow("negative is automatic") << -30.0 << 0.0 << 24.0;
    QTest::newRow("all fixed: greatest, though tighter") << 3.0 << 6.0 << 8.0;
    QTest::newRow("all fixed: greatest comes first") << 6.0 << 3.0 << 8.0;
    QTest::newRow("mixed: automatic is greater") << 3.0 << 0.0 << 24.0;
    QTest::newRow("mixed: fixed is greater") << 0.0 << 30.0 << 40.0;
    QTest::newRow("mixed: fixed is greater, first") << 30.0 << 0.0 << 40.0;
    QTest::newRow("equal: the first decides, fixed") << 12.0 << 0.0 << 16.0;
    QTest::newRow("equal: the first decides, automatic") << 0.0 << 12.0 << 24.0;
}

void TestBoxVertical::columnStep()
{
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(double, distance);
    ColumnText text;
    text.add(QStringLiteral("1"), ColumnText::format(12, RowSpacing, first));
    text.add(QStringLiteral("2"), ColumnText::format(12, RowSpacing, second));
    text.addBlock();
    text.add(QStringLiteral("3"));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{92, 92 - distance}));
}

void TestBoxVertical::columnInsideABlockTakesTheSpacingOfTheRunThatOverflows()
{
    const struct {
        double first;
        double second;
        qreal distance;
    } cases[] = {{30, 0, 24}, {0, 30, 40}};
    for (const auto &one : cases) {
        ColumnText text(100, 16);
        text.add(QStringLiteral("12"), ColumnText::format(12, RowSpacing, one.first));
        text.add(QStringLiteral("34"), ColumnText::format(12, RowSpacing, one.second));
        QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{92, 92 - one.distance}));
    }
}

void TestBoxVertical::columnInsideABlockTakesTheDescentOfTheRunThatOverflows()
{
    ColumnText text(200, 40);
    text.add(QStringLiteral("12"), ColumnText::format(24));
    text.add(QStringLiteral("3456789"));
    const TextLayout layout = text.layOut();
    QCOMPARE(runsOf(layout), lines("12|3/45678/9"));
    // Height 32, which stays, but descent 4.
    QCOMPARE(acrossOf(layout), (QList<qreal>{184, 184 + 16 - 56 - 8, 136 + 8 - 56 - 8}));
}

void TestBoxVertical::columnAtTheEndOfABlockTakesItsOwnDescent()
{
    ColumnText text(200);
    text.add(QStringLiteral("12"), ColumnText::format(24));
    text.add(QStringLiteral("3"));
    text.addBlock();
    text.add(QStringLiteral("4"));
    // Height 32, descent 8.
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{184, 184 + 16 - 48 - 8}));
}

void TestBoxVertical::rowSpacingIsNotStretchedAtTheEndOfABlock()
{
    // 18 points are 24 px, 48 stretched.
    const QTextCharFormat spaced = ColumnText::format(12, RowSpacing, 18.0);
    ColumnText text(200, 16);
    text.m_scaleX = 2;
    text.add(QStringLiteral("1"), spaced);
    text.addBlock();
    text.add(QStringLiteral("2"));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{184, 160}));

    ColumnText wrapped(200, 16);
    wrapped.m_scaleX = 2;
    wrapped.add(QStringLiteral("1234"), spaced);
    wrapped.addBlock();
    wrapped.add(QStringLiteral("5"));
    QCOMPARE(acrossOf(wrapped.layOut()), (QList<qreal>{184, 136, 88}));
}

void TestBoxVertical::columnKeepsLargestRowDistanceOfBlock()
{
    ColumnText text(400, 16);
    text.add(QStringLiteral("1234"), ColumnText::format(12, RowSpacing, 30.0));
    text.add(QStringLiteral("56789"));
    text.addBlock();
    text.add(QStringLiteral("123"));
    const TextLayout layout = text.layOut();
    QCOMPARE(runsOf(layout), lines("12/34/56/78/9/12/3"));
    QCOMPARE(acrossOf(layout), (QList<qreal>{392, 352, 312, 272, 232, 192, 168}));
}

void TestBoxVertical::wideColumnNeedsMoreRoom()
{
    ColumnText text;
    text.add(QStringLiteral("1"));
    text.addBlock();
    text.add(QStringLiteral("2"), ColumnText::format(24));
    const TextLayout layout = text.layOut();
    QCOMPARE(acrossOf(layout), (QList<qreal>{92, 76 - 16}));
    QCOMPARE(layout.lines.at(1).rect, QRectF(44, 0, 32, 16));
}

void TestBoxVertical::spacesAroundBlocksAreCrossedAndCarriedOver()
{
    ColumnText text(400);
    text.add(QStringLiteral("a"));
    text.setBlockProperty(SpaceAheadOfBlock, 3); // ahead of the first block there is nothing
    text.setBlockProperty(SpaceBehindBlock, 6.0);
    text.addBlock();
    text.add(QStringLiteral("b"));
    text.addBlock(ColumnText::block(SpaceAheadOfBlock, 3));
    text.add(QStringLiteral("c"));
    text.addBlock(ColumnText::block(SpaceBehindBlock, 0));
    text.add(QStringLiteral("d"));
    text.addBlock();
    text.add(QStringLiteral("e"));
    // 8 px behind the first three blocks, 4 more ahead of the third.
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{392, 360, 324, 292, 268}));
}

// Empty blocks

void TestBoxVertical::emptyColumn_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("height");
    QTest::addColumn<double>("y");
    // Margins of 8 and 4 px, 12 px of indent.
    QTest::newRow("top") << 0x20 << 100 << 20.0;
    QTest::newRow("justified") << 8 << 100 << 20.0;
    QTest::newRow("justified 0x100") << 0x100 << 100 << 20.0;
    QTest::newRow("last column top") << 0x200 << 100 << 20.0;
    QTest::newRow("bottom") << 0x40 << 100 << 96.0;
    QTest::newRow("right of lines") << 2 << 100 << 96.0;
    QTest::newRow("last column bottom") << 0x800 << 100 << 96.0;
    QTest::newRow("bottom, no room") << 0x40 << 3 << 0.0;
    QTest::newRow("centre") << 0x80 << 100 << 38.0;
    QTest::newRow("centre of lines") << 4 << 100 << 38.0;
    QTest::newRow("last column centred") << 0x400 << 100 << 38.0;
    QTest::newRow("centre, no room") << 4 << 20 << 0.0;
}

void TestBoxVertical::emptyColumn()
{
    QFETCH(int, alignment);
    QFETCH(int, height);
    QFETCH(double, y);
    ColumnText text;
    text.setBox(QRectF(-100, 0, 200, height));
    text.setFirstFormat(ColumnText::format());
    text.addBlock(ColumnText::block(Alignment, alignment));
    text.setMargins(6, 3, 9);
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.size(), 2);
    const TextLine &line = layout.lines.at(1);
    QVERIFY(line.isEmptyBlock);
    QCOMPARE(line.origin, QPointF(-32, y));
    QCOMPARE(line.rect.topLeft(), QPointF(-40, y));
    QCOMPARE(line.rect.width(), 16.0);
    QCOMPARE(line.rect.height(), -y); // deliberate
    QCOMPARE(line.alignment, -1);
    QCOMPARE(line.position, 1);
    QCOMPARE(line.length, 1);
    QVERIFY(line.fragments.first().isEmptyBlock);
    QVERIFY(line.fragments.first().path.isEmpty());
}

void TestBoxVertical::emptyColumnDistance_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<double>("distance");
    QTest::newRow("automatic") << 0.0 << 24.0;
    QTest::newRow("fixed") << 30.0 << 40.0;
    QTest::newRow("fixed and tight") << 3.0 << 4.0;
    QTest::newRow("negative is automatic") << -5.0 << 24.0;
}

void TestBoxVertical::emptyColumnDistance()
{
    QFETCH(double, points);
    QFETCH(double, distance);
    ColumnText text;
    text.add(QStringLiteral("a"));
    text.addBlock({}, ColumnText::format(12, RowSpacing, points));
    text.addBlock();
    text.add(QStringLiteral("b"));
    QCOMPARE(acrossOf(text.layOut()), (QList<qreal>{92, 68, 68 - distance}));
}

void TestBoxVertical::emptyFirstColumnStandsLeftOfTheOrigin()
{
    const struct {
        qreal left;
        bool grows;
        QList<qreal> axes;
    } cases[] = {
        {0, false, {}},     // the layout stops at once
        {-15.5, false, {}}, // half a pixel is missing
        {-16, false, {-8}}, // the next column would end at -40
        {-40, false, {-8, -32}}, {0, true, {-8, -32}},
    };
    for (const auto &one : cases) {
        ColumnText text;
        text.setBox(QRectF(one.left, 0, 100, 100));
        text.m_autoWordWrap = one.grows;
        text.setFirstFormat(ColumnText::format());
        text.addBlock();
        text.add(QStringLiteral("a"));
        QCOMPARE(acrossOf(text.layOut()), one.axes);
    }
}

void TestBoxVertical::emptyColumnScalesAndShiftsItsBox()
{
    const struct {
        int offset;
        QRectF rect;
    } cases[] = {
        {0, QRectF(64, 0, 8, 0)},
        {3, QRectF(64, 0, 12, 0)},
        {-3, QRectF(60, 0, 12, 0)},
    };
    for (const auto &one : cases) {
        ColumnText text;
        text.add(QStringLiteral("a"));
        text.addBlock({}, formatWith(VerticalScale, 50, BaselineOffset, one.offset));
        const TextLine line = text.layOut().lines.at(1);
        QCOMPARE(line.rect, one.rect);
        QCOMPARE(line.origin, QPointF(68, 0));
    }
}

// Run properties

void TestBoxVertical::scales()
{
    // Twice as wide across, half as long along the column.
    ColumnText text;
    text.add(QStringLiteral("12中"), formatWith(HorizontalScale, 200, VerticalScale, 50));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[12]0+8 [中]8+8"));
    QCOMPARE(line.fragments.at(0).scaleX, 2.0);
    QCOMPARE(line.fragments.at(0).scaleY, 0.5);
    QCOMPARE(ink(line.fragments.at(0)), QRectF(84, 0.5, 16, 7));
    QCOMPARE(ink(line.fragments.at(1)), QRectF(78, 8.5, 28, 7));
    QCOMPARE(line.origin, QPointF(92, 0));
    QCOMPARE(line.rect, QRectF(76, 0, 32, 16));
}

void TestBoxVertical::lastRunDoesNotCountForTheTopEdge()
{
    ColumnText text;
    text.add(QStringLiteral("ab"));
    text.add(QStringLiteral("cdef"), ColumnText::format(12, LeadingGap, -1250.0));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[ab]0+-4 [cdef]-4+32"));
    QCOMPARE(line.rect, QRectF(84, 0, 16, 28));
}

void TestBoxVertical::offsetMovesAcross()
{
    const struct {
        int offset;
        qreal baseline;
        QRectF ink;
        QRectF rect;
    } cases[] = {
        {3, 96, QRectF(89, 1, 14, 14), QRectF(84, 0, 20, 16)},
        {-3, 88, QRectF(81, 1, 14, 14), QRectF(80, 0, 20, 16)},
    };
    for (const auto &one : cases) {
        ColumnText text;
        text.add(QStringLiteral("中"), ColumnText::format(12, BaselineOffset, one.offset));
        const TextLine line = text.layOut().lines.first();
        QCOMPARE(line.fragments.first().baseline, one.baseline);
        QCOMPARE(ink(line.fragments.first()), one.ink);
        QCOMPARE(line.rect, one.rect);
        QCOMPARE(line.origin, QPointF(92, 0));
    }
}

void TestBoxVertical::superscriptAndSubscriptMoveAcross()
{
    ColumnText text;
    text.add(QStringLiteral("中"), ColumnText::format(12, QTextFormat::TextVerticalAlignment, 1));
    text.add(QStringLiteral("A"), ColumnText::format(12, QTextFormat::TextVerticalAlignment, 2));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(placesOf(line), QStringLiteral("[中]0+8 [A]8+4"));
    QCOMPARE(ink(line.fragments.at(0)), QRectF(92.5, 0.5, 7, 7));
    QCOMPARE(line.fragments.at(0).baseline, 96.0);
    QCOMPARE(ink(line.fragments.at(1)), QRectF(86, 8.5, 4, 3));
    QCOMPARE(line.fragments.at(1).baseline, 88.0);
    QCOMPARE(line.fragments.at(1).scaleX, 0.5);
    QCOMPARE(line.fragments.at(1).scaleY, 0.5);
    QCOMPARE(line.rect, QRectF(84, 0, 16, 12));
}

void TestBoxVertical::underlineMovesTheLeftEdgeOnly()
{
    QTextCharFormat underlined = ColumnText::format();
    underlined.setFontUnderline(true);
    const qreal thickness = CTextTools::getFontLineHeight(underlined.font());
    QVERIFY(thickness > 0.5 && thickness < 4);
    ColumnText inside;
    inside.add(QStringLiteral("12"), underlined); // ink from 88 on: the bar lies in the column
    QCOMPARE(inside.layOut().lines.first().rect, QRectF(84, 0, 16, 16));

    underlined.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    ColumnText outside;
    outside.add(QStringLiteral("中"), underlined); // ink from 84.5 on
    QCOMPARE(outside.layOut().lines.first().rect, QRectF(84.5 - thickness, 0, 16, 8));
}

void TestBoxVertical::underlineGrowsWithTheStretch()
{
    QTextCharFormat underlined = ColumnText::format(12, QTextFormat::TextVerticalAlignment,
                                                    QTextCharFormat::AlignSubScript);
    underlined.setFontUnderline(true);
    const qreal thickness = CTextTools::getFontLineHeight(underlined.font());
    ColumnText text(200, 24);
    text.m_scaleX = 2;
    text.add(QStringLiteral("中"), underlined);
    underlined.setProperty(BaselineOffset, 0);
    text.add(QStringLiteral("文国人"), underlined);
    const TextLayout layout = text.layOut();
    QCOMPARE(runsOf(layout), lines("中|文|国/人"));
    // Ink from 15 left of the axis on. The stretch of 2 counts again with every underlined run.
    QCOMPARE(layout.lines.at(0).rect.left(), 184 - 15 - 8 * thickness);
    QCOMPARE(layout.lines.at(1).rect.left(), 136 - 15 - 16 * thickness);
    QCOMPARE(layout.lines.at(0).rect.width(), 32.0);
}

// The box's width

void TestBoxVertical::columnsLeftOfTheBoxDoNotExist()
{
    const struct {
        qreal left;
        qreal width;
        int count;
    } cases[] = {
        {0, 64, 3},   {0, 63.5, 2}, {0, 40, 2},    {0, 39.5, 1}, {0, 16, 1},
        {0, 15.5, 0}, {10, 74, 3},  {10, 73.5, 2}, {-10, 54, 3},
    };
    for (const auto &one : cases) {
        ColumnText text;
        text.setBox(QRectF(one.left, 0, one.width, 16));
        text.add(QStringLiteral("123456"));
        QCOMPARE(text.layOut().lines.size(), one.count);
        QCOMPARE(text.rect(), QRectF(one.left, 0, one.width, 16));
    }
}

void TestBoxVertical::automaticBoxStopsBehindTheBlockThatLeftIt()
{
    const struct {
        const char *first;
        int count;
    } cases[] = {{"12345678", 4}, {"123456", 3}, {"1234", 3}, {"12", 3}};
    for (const auto &one : cases) {
        // Axes 32, 8, -16, -40. Ink reaches 4 px to the left of an axis.
        ColumnText text(40, 16);
        text.m_autoWordWrap = true;
        text.add(QLatin1String(one.first));
        text.addBlock();
        text.add(QStringLiteral("a"));
        text.addBlock();
        text.add(QStringLiteral("b"));
        text.addBlock();
        text.add(QStringLiteral("c"));
        QCOMPARE(text.layOut().lines.size(), one.count);
    }
}

void TestBoxVertical::inkAtTheVeryEdgeDoesNotStopTheLayout()
{
    // Axes 32 and 8; ink from 4 on.
    for (const qreal left : {4.0, 4.5}) {
        ColumnText text;
        text.setBox(QRectF(left, 0, 40, 16));
        text.m_autoWordWrap = true;
        text.add(QStringLiteral("1234"));
        text.addBlock();
        text.add(QStringLiteral("5"));
        QCOMPARE(text.layOut().lines.size(), left > 4 ? 2 : 3);
    }
}

void TestBoxVertical::automaticBoxKeepsItsRightEdge()
{
    const struct {
        QRectF box;
        const char *text;
        QRectF result;
    } cases[] = {
        {QRectF(0, 0, 100, 16), "12", QRectF(84, 0, 16, 16)},
        {QRectF(0, 0, 100, 16), "1234", QRectF(60, 0, 40, 16)},
        {QRectF(0, 0, 16, 16), "12", QRectF(0, 0, 16, 16)},
        {QRectF(0, 0, 16, 16), "1234", QRectF(-24, 0, 40, 16)},
        {QRectF(10, 5, 100, 16), "12", QRectF(84, 5, 26, 16)},
    };
    for (const auto &one : cases) {
        ColumnText text;
        text.setBox(one.box);
        text.m_autoWordWrap = true;
        text.add(QLatin1String(one.text));
        const TextLayout layout = text.layOut();
        QCOMPARE(text.rect(), one.result);
        QCOMPARE(text.m_clientRect, one.box); // the box itself stays
        for (const TextLine &line : layout.lines)
            QVERIFY(!line.path.isEmpty());
    }
}

void TestBoxVertical::emptyColumnDoesNotGrowTheAutomaticBox()
{
    ColumnText text(16, 16);
    text.m_autoWordWrap = true;
    text.add(QStringLiteral("12"));
    text.addBlock();
    QCOMPARE(text.layOut().lines.size(), 2);
    QCOMPARE(text.rect(), QRectF(0, 0, 16, 16));
}

// The object's stretch

void TestBoxVertical::stretchScalesTheText()
{
    ColumnText text(200, 100);
    text.m_scaleX = 2;
    text.m_scaleY = 3;
    text.add(QStringLiteral("12345中"));
    const TextLayout layout = text.layOut();
    QCOMPARE(placesOf(layout), lines("[1234]0+96/[5]0+24 [中]24+48"));
    QCOMPARE(acrossOf(layout), (QList<qreal>{184, 136}));
    const TextLine &line = layout.lines.at(1);
    QCOMPARE(line.fragments.at(0).scaleX, 2.0);
    QCOMPARE(line.fragments.at(0).scaleY, 3.0);
    QCOMPARE(ink(line.fragments.at(0)), QRectF(128, 3, 16, 18));
    QCOMPARE(ink(line.fragments.at(1)), QRectF(122, 27, 28, 42));
    QCOMPARE(line.rect, QRectF(120, 0, 32, 72));
}

void TestBoxVertical::stretchScalesMeasures()
{
    ColumnText text(400, 1000);
    text.m_scaleX = 2;
    text.m_scaleY = 3;
    text.add(QStringLiteral("1"), formatWith(LetterSpacing, 500.0, BaselineOffset, 3));
    text.add(QStringLiteral("2"), ColumnText::format(12, LeadingGap, 250.0));
    text.setMargins(6, 3, 9);
    text.setBlockProperty(SpaceBehindBlock, 6);
    text.addBlock(ColumnText::block(SpaceAheadOfBlock, 3));
    text.add(QStringLiteral("中"), ColumnText::format(12, LetterSpacing, 500.0));
    text.addBlock(ColumnText::block(Alignment, 2));
    text.setMargins(0, 3);
    const TextLayout layout = text.layOut();
    // Margin 24 and indent 36; "1" is 8 with a spacing of 24, three times; the gap is 4 three times.
    QCOMPARE(placesOf(layout.lines.at(0)), QStringLiteral("[1]60+108 [2]168+24"));
    QCOMPARE(layout.lines.at(0).fragments.at(0).baseline, 384 + 8.0);
    // 48 from column to column, 16 behind and 8 ahead.
    QCOMPARE(placesOf(layout.lines.at(1)), QStringLiteral("[中]0+120"));
    QCOMPARE(layout.lines.at(1).origin, QPointF(312, 0));
    QCOMPARE(layout.lines.at(2).origin, QPointF(312 - 48 - 16, 1000 - 12));
    QCOMPARE(layout.lines.at(2).rect.width(), 32.0);
}

void TestBoxVertical::stretchIsFoldedOnce()
{
    ColumnText text(400, 96);
    text.m_scaleX = 0.5;
    text.m_scaleY = 2;
    text.m_transformScaleX = 3;
    text.m_transformScaleY = 1.5;
    text.add(QStringLiteral("12345"));
    const QStringList first = dump(text.layOut());
    QVERIFY(text.m_scaleX == 1 && text.m_scaleY == 1);
    QCOMPARE(text.m_transformScaleX, 1.5);
    QCOMPARE(text.m_transformScaleY, 3.0);
    QCOMPARE(dump(text.layOut()), first);
    QCOMPARE(text.m_transformScaleX, 1.5);
    QCOMPARE(text.m_transformScaleY, 3.0);
}

void TestBoxVertical::secondLayoutIsTheSame()
{
    ColumnText text(400, 90);
    text.m_scaleX = 1.25;
    text.m_scaleY = 1.1;
    text.add(QStringLiteral("Two words, 中文国人。（天地） and gypsies"));
    text.setBlockProperty(Hyphenate, true);
    text.setBlockProperty(HeadTailRule, 2);
    text.setBlockProperty(PunctuationExtra, 1);
    text.setBlockProperty(Alignment, 0x400);
    text.addBlock();
    text.addBlock();
    text.add(QStringLiteral("end"), ColumnText::format(24));
    const QStringList first = dump(text.layOut());
    const QRectF area = text.pathRect();
    QVERIFY(first.size() > 6);
    QCOMPARE(dump(text.layOut()), first);
    QCOMPARE(text.pathRect(), area);
}

QTEST_MAIN(TestBoxVertical)
#include "tst_boxvertical.moc"
