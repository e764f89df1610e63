// SPDX-License-Identifier: MIT
// The records of the older engine: what a run and a line measure, the pieces of a block, where a line begins.
#include "legacytext.h"

#include <QTest>

#include <limits>

namespace T = TextProperty;

class TestLegacyRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void defaultsOfARun();
    void defaultsOfALine();
    void barsLeaveTheFormatAndStayWithTheRun();
    void textRemembersTheFormatItWasMadeFrom();
    void letterSpacingsInPixels_data();
    void letterSpacingsInPixels();
    void spacingsOfAnEarlierFormatStayWithoutTheProperty();
    void offsetFollowsTheFormat();
    void emptyTextChangesTheFormatAlone();
    void spacesOfAText();
    void widthOfARun_data();
    void widthOfARun();
    void widthFollowsTheInkNotTheFont();
    void itemWithoutSpacesStillAddsTheSelectedLetterSpacingOnce();

    void blockFormatGivesMarginsAndIndent();
    void indentIsWholePointsOfFirstLinesOnly();
    void alignmentOfALine_data();
    void alignmentOfALine();
    void blockFormatWithoutSpacesLeavesTheFormerOnes();

    void lineWithoutItemsMeasuresNothing();
    void lineIsAsHighAsItsTallestRun();
    void uprightRunCountsItsWidthAcross();
    void baselineOfAColumnIsItsMiddle();
    void emptyRunIsMeasuredAsTheLetterA();
    void blankRunIsAsHighAsItsFont();
    void heightLeavesScalesOut_data();
    void heightLeavesScalesOut();
    void heightIsThatOfTheTextWhateverTheOutline();
    void heightFollowsTextThatIsSetAnew();
    void heightOfALayoutIsThatOfItsText_data();
    void heightOfALayoutIsThatOfItsText();
    void largestRowSpacingCounts_data();
    void largestRowSpacingCounts();
    void advanceAddsTheSpacesOfTheBlock();
    void hyphensWidenTheLineButAreNotCounted();
    void lengthOfAnEmptyLine();

    void fragmentsOfABlock();
    void fragmentsOfNoBlock();
    void fragmentsInCapitals();
    void punctuationIsCutOffWhenCompressed_data();
    void punctuationIsCutOffWhenCompressed();

    void whereALineBegins_data();
    void whereALineBegins();
    void lineWithoutRoomHasNoPlace();
    void justifyingSpace_data();
    void justifyingSpace();
    void hyphensTakeNoJustifyingSpace();
    void unreasonableNumbersStayNumbers();
};

namespace {
QTextCharFormat formatOf(std::initializer_list<std::pair<int, QVariant>> properties)
{
    QTextCharFormat format = OpenWord::format();
    for (const auto &property : properties)
        format.setProperty(property.first, property.second);
    return format;
}

/// A run with the outline of a box, \a width by \a height, that stands on the baseline.
STextItem boxItem(const QString &text, double width, double height)
{
    STextItem item;
    item.text = text;
    item.path.addRect(0, -height, width, height);
    item.format = OpenWord::format();
    return item;
}

STextItem itemOf(const QString &text, const QTextCharFormat &format = OpenWord::format())
{
    STextItem item;
    item.setText(format, text, 96);
    item.path.addText(0, 0, item.format.font(), text);
    return item;
}

STextLine lineOf(const QList<STextItem> &items, Qt::Orientation orientation = Qt::Horizontal)
{
    STextLine line;
    line.orientation = orientation;
    line.items = items;
    line.updateItems(96);
    return line;
}
} // namespace

void TestLegacyRecords::defaultsOfARun()
{
    const STextItem item;
    QVERIFY(item.format.propertyCount() == 0 && item.path.isEmpty() && item.text.isNull());
    QCOMPARE(item.position, -1);
    QVERIFY(!item.upright && !item.strikeOut && !item.overline && !item.underline
            && !item.isHyphen);
    QVERIFY(item.leadingSpaces == 0 && item.trailingSpaces == 0);
    for (double value : {item.baselineOffset, item.spaceWidth, item.spaceHeight, item.letterSpacing,
                         item.selectedLetterSpacing, item.ascent})
        QCOMPARE(value, 0.0);
}

void TestLegacyRecords::defaultsOfALine()
{
    const STextLine line;
    QVERIFY(line.items.isEmpty() && line.blockFormat.isEmpty());
    QVERIFY(!line.isFirstLine && !line.isLastLine && !line.reserved);
    QCOMPARE(line.alignment, -1);
    QCOMPARE(line.orientation, 0);
    for (double value :
         {line.advance, line.width, line.leftMargin, line.rightMargin, line.indent,
          line.lastLineSpace, line.firstLineSpace, line.baseline, line.height, line.rowSpacing})
        QCOMPARE(value, 0.0);
}

void TestLegacyRecords::barsLeaveTheFormatAndStayWithTheRun()
{
    QTextCharFormat format = OpenWord::format();
    format.setFontStrikeOut(true);
    format.setFontOverline(true);
    format.setFontUnderline(true);
    STextItem item;
    item.setText(format, QStringLiteral("a"), 96);
    QVERIFY(item.strikeOut && item.overline && item.underline);
    QVERIFY(!item.format.fontStrikeOut() && !item.format.fontOverline());
    QCOMPARE(item.format.underlineStyle(), QTextCharFormat::NoUnderline);
    item.setText(OpenWord::format(), QStringLiteral("a"), 96);
    QVERIFY(!item.strikeOut && !item.overline && !item.underline);
}

void TestLegacyRecords::textRemembersTheFormatItWasMadeFrom()
{
    QTextCharFormat format = OpenWord::format();
    format.setFontUnderline(true);
    const STextItem item = itemOf(QStringLiteral("a"), format);
    QCOMPARE(item.madeFrom, format);
    QVERIFY(item.format != format);
}

void TestLegacyRecords::letterSpacingsInPixels_data()
{
    QTest::addColumn<QVariant>("gap");
    QTest::addColumn<QVariant>("selected");
    QTest::addColumn<double>("points");
    QTest::addColumn<double>("gapPixels");
    QTest::addColumn<double>("selectedPixels");
    QTest::newRow("none") << QVariant() << QVariant() << 12.0 << 0.0 << 0.0;
    QTest::newRow("gap") << QVariant(500) << QVariant() << 12.0 << 8.0 << 0.0;
    QTest::newRow("selected") << QVariant() << QVariant(250) << 12.0 << 0.0 << 4.0;
    QTest::newRow("both") << QVariant(500) << QVariant(-250) << 12.0 << 8.0 << -4.0;
    QTest::newRow("whole points only") << QVariant(500) << QVariant(250) << 12.9 << 8.0 << 4.0;
    QTest::newRow("other size") << QVariant(1000) << QVariant(500) << 6.0 << 8.0 << 4.0;
}

void TestLegacyRecords::letterSpacingsInPixels()
{
    QFETCH(QVariant, gap);
    QFETCH(QVariant, selected);
    QFETCH(double, points);
    QFETCH(double, gapPixels);
    QFETCH(double, selectedPixels);
    QTextCharFormat format = OpenWord::format(points);
    if (gap.isValid())
        format.setProperty(T::LeadingGap, gap);
    if (selected.isValid())
        format.setProperty(T::LetterSpacing, selected);
    STextItem item;
    item.setText(format, QStringLiteral("a"), 96);
    QCOMPARE(item.letterSpacing, gapPixels);
    QCOMPARE(item.selectedLetterSpacing, selectedPixels);
    QCOMPARE(item.format.fontLetterSpacingType(), QFont::AbsoluteSpacing);
    QCOMPARE(item.format.fontLetterSpacing(), gapPixels + selectedPixels);
}

void TestLegacyRecords::spacingsOfAnEarlierFormatStayWithoutTheProperty()
{
    STextItem item;
    item.setText(formatOf({{T::LeadingGap, 500}, {T::BaselineOffset, 3}}), QStringLiteral("a"), 96);
    item.setText(OpenWord::format(), QStringLiteral("a"), 96);
    QCOMPARE(item.letterSpacing, 8.0);
    QCOMPARE(item.format.fontLetterSpacing(), 8.0);
    QCOMPARE(item.baselineOffset, 0.0); // the offset does not
}

void TestLegacyRecords::offsetFollowsTheFormat()
{
    STextItem item;
    item.setText(formatOf({{T::BaselineOffset, 3}}), QStringLiteral("a"), 96);
    QCOMPARE(item.baselineOffset, 4.0);
    item.setText(formatOf({{T::BaselineOffset, -3}}), QStringLiteral("a"), 72);
    QCOMPARE(item.baselineOffset, -3.0);
}

void TestLegacyRecords::emptyTextChangesTheFormatAlone()
{
    STextItem item = itemOf(QStringLiteral(" a"));
    QTextCharFormat format = OpenWord::format(6);
    format.setFontUnderline(true);
    item.setText(format, QString(), 96);
    QCOMPARE(item.text, QStringLiteral(" a"));
    QVERIFY(item.underline);
    QCOMPARE(item.format.fontPointSize(), 6.0);
    QCOMPARE(item.leadingSpaces, 1);
    QCOMPARE(item.spaceWidth, 8.0);

    const STextItem empty = itemOf(QString());
    QVERIFY(empty.text.isNull());
    QVERIFY(empty.leadingSpaces == 0 && empty.trailingSpaces == 0);
    QCOMPARE(empty.spaceWidth, 0.0);
}

void TestLegacyRecords::spacesOfAText()
{
    const STextItem item = itemOf(QStringLiteral("  a b   "));
    QCOMPARE(item.leadingSpaces, 2);
    QCOMPARE(item.trailingSpaces, 3);
    QCOMPARE(item.spaceWidth, 8.0);
    QCOMPARE(item.spaceHeight, 16.0);
    const STextItem blank = itemOf(QStringLiteral("    "));
    QCOMPARE(blank.leadingSpaces, 4);
    QCOMPARE(blank.trailingSpaces, 0);
}

void TestLegacyRecords::widthOfARun_data()
{
    QTest::addColumn<int>("leading");
    QTest::addColumn<int>("trailing");
    QTest::addColumn<double>("gap");
    QTest::addColumn<double>("selected");
    QTest::addColumn<double>("spacing");
    QTest::addColumn<bool>("upright");
    QTest::addColumn<double>("row");
    QTest::addColumn<double>("column");
    // A box of 20 by 10, spaces of 8.
    QTest::newRow("ink") << 0 << 0 << 0.0 << 0.0 << 0.0 << false << 20.0 << 10.0;
    QTest::newRow("space ahead") << 1 << 0 << 0.0 << 0.0 << 0.0 << false << 28.0 << 18.0;
    QTest::newRow("spaces behind") << 0 << 2 << 0.0 << 0.0 << 0.0 << false << 36.0 << 26.0;
    QTest::newRow("both") << 1 << 2 << 0.0 << 0.0 << 0.0 << false << 44.0 << 34.0;
    QTest::newRow("gap") << 0 << 0 << 3.0 << 0.0 << 0.0 << false << 23.0 << 13.0;
    QTest::newRow("selected") << 0 << 0 << 0.0 << 2.0 << 0.0 << false << 22.0 << 12.0;
    QTest::newRow("selected, spaces") << 1 << 2 << 0.0 << 2.0 << 0.0 << false << 50.0 << 40.0;
    QTest::newRow("justified") << 0 << 0 << 0.0 << 0.0 << 5.0 << false << 20.0 << 10.0;
    QTest::newRow("justified, spaces") << 1 << 1 << 0.0 << 0.0 << 5.0 << false << 46.0 << 36.0;
    QTest::newRow("justified, upright") << 0 << 0 << 0.0 << 0.0 << 5.0 << true << 25.0 << 15.0;
    QTest::newRow("all") << 1 << 2 << 3.0 << 2.0 << 5.0 << true << 73.0 << 63.0;
    // Spaces that the spacing swallows: the run still ends in its own.
    QTest::newRow("spaces of no width") << 0 << 2 << 0.0 << -8.0 << 0.0 << false << 12.0 << 2.0;
}

void TestLegacyRecords::widthOfARun()
{
    QFETCH(int, leading);
    QFETCH(int, trailing);
    QFETCH(double, gap);
    QFETCH(double, selected);
    QFETCH(double, spacing);
    QFETCH(bool, upright);
    STextItem item = boxItem(QStringLiteral("ab"), 20, 10);
    item.spaceWidth = 8;
    item.spaceHeight = 1000; // the width counts in both directions
    item.leadingSpaces = leading;
    item.trailingSpaces = trailing;
    item.letterSpacing = gap;
    item.selectedLetterSpacing = selected;
    item.upright = upright;
    QTEST(item.itemWidth(Qt::Horizontal, spacing), "row");
    QTEST(item.itemWidth(Qt::Vertical, spacing), "column");
}

void TestLegacyRecords::widthFollowsTheInkNotTheFont()
{
    QCOMPARE(itemOf(QStringLiteral("a")).itemWidth(Qt::Horizontal, 0), 6.0);    // the font says 8
    QCOMPARE(itemOf(QStringLiteral("a a")).itemWidth(Qt::Horizontal, 0), 22.0); // inside by the box
    QCOMPARE(itemOf(QStringLiteral("a ")).itemWidth(Qt::Horizontal, 0), 14.0);
    QCOMPARE(itemOf(QStringLiteral("   ")).itemWidth(Qt::Horizontal, 0), 24.0);
}

void TestLegacyRecords::itemWithoutSpacesStillAddsTheSelectedLetterSpacingOnce()
{
    const STextItem item = itemOf(QStringLiteral("a"), formatOf({{T::LetterSpacing, 250}}));
    QCOMPARE(item.itemWidth(Qt::Horizontal, 0), 10.0);
}

void TestLegacyRecords::blockFormatGivesMarginsAndIndent()
{
    QTextBlockFormat format = OldWord::block(6, 3, 9);
    format.setProperty(T::SpaceAheadOfBlock, 12);
    format.setProperty(T::SpaceBehindBlock, 1.5);
    STextLine line;
    line.isFirstLine = true;
    QCOMPARE(line.setBlockFormat(format, 96, Qt::Vertical), 24.0);
    QCOMPARE(line.leftMargin, 8.0);
    QCOMPARE(line.rightMargin, 4.0);
    QCOMPARE(line.indent, 12.0);
    QCOMPARE(line.firstLineSpace, 16.0);
    QCOMPARE(line.lastLineSpace, 2.0);
    QCOMPARE(line.orientation, int(Qt::Vertical));
    QCOMPARE(line.blockFormat, format);
}

void TestLegacyRecords::indentIsWholePointsOfFirstLinesOnly()
{
    QTextBlockFormat format = OldWord::block(6, 3);
    format.setProperty(QTextFormat::BlockIndent, 9);
    format.setProperty(T::FirstLineIndent, 9.75);
    STextLine line;
    line.indent = 5;
    QCOMPARE(line.setBlockFormat(format, 96, Qt::Horizontal), 12.0);
    QCOMPARE(line.indent, 0.0);
    line.isFirstLine = true;
    QCOMPARE(line.setBlockFormat(format, 96, Qt::Horizontal), 24.0);
    QCOMPARE(line.indent, 12.0);
}

void TestLegacyRecords::alignmentOfALine_data()
{
    QTest::addColumn<QVariant>("property");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("absent") << QVariant() << 1 << 32;
    QTest::newRow("right") << QVariant(2) << 2 << 2;
    QTest::newRow("bottom") << QVariant(64) << 64 << 64;
    QTest::newRow("own") << QVariant(1024) << 1024 << 1024;
    QTest::newRow("zero") << QVariant(0) << 0 << 0;
}

void TestLegacyRecords::alignmentOfALine()
{
    QFETCH(QVariant, property);
    QTextBlockFormat format;
    if (property.isValid())
        format.setProperty(T::Alignment, property);
    STextLine line;
    line.setBlockFormat(format, 96, Qt::Horizontal);
    QTEST(line.alignment, "row");
    line.setBlockFormat(format, 96, Qt::Vertical);
    QTEST(line.alignment, "column");
}

void TestLegacyRecords::blockFormatWithoutSpacesLeavesTheFormerOnes()
{
    STextLine line;
    line.firstLineSpace = 3;
    line.lastLineSpace = 4;
    line.setBlockFormat(OldWord::block(), 96, Qt::Horizontal);
    QCOMPARE(line.firstLineSpace, 3.0);
    QCOMPARE(line.lastLineSpace, 4.0);
}

void TestLegacyRecords::lineWithoutItemsMeasuresNothing()
{
    STextLine line;
    line.height = line.width = line.baseline = line.rowSpacing = 7;
    line.firstLineSpace = 2;
    line.updateItems(96);
    QVERIFY(line.height == 0 && line.width == 0 && line.baseline == 0 && line.rowSpacing == 0);
    QCOMPARE(line.advance, 2.0);
}

void TestLegacyRecords::lineIsAsHighAsItsTallestRun()
{
    STextItem low = itemOf(QStringLiteral("a"));    // 6 high
    STextItem tailed = itemOf(QStringLiteral("g")); // 8 high, 2 of them below
    STextItem later = itemOf(QStringLiteral("b"));  // 8 high
    low.ascent = 1;
    tailed.ascent = 2;
    later.ascent = 3;
    const STextLine line = lineOf({low, tailed, later});
    QCOMPARE(line.height, 8.0);
    QCOMPARE(line.baseline, 2.0); // of the first of that height
    QCOMPARE(line.width, 18.0);
    QCOMPARE(lineOf({itemOf(QStringLiteral("b"), OpenWord::format(24))}).height, 16.0);
}

void TestLegacyRecords::uprightRunCountsItsWidthAcross()
{
    STextItem mark = itemOf(QString(QChar(0x3001))); // a box of 4 by 4 in the corner
    QCOMPARE(lineOf({mark}, Qt::Vertical).height, 4.0);
    STextItem bracket = itemOf(QString(QChar(0xFF08))); // 7 wide, 14 high
    QCOMPARE(lineOf({bracket}, Qt::Vertical).height, 14.0);
    bracket.upright = true;
    QCOMPARE(lineOf({bracket}, Qt::Vertical).height, 7.0);
}

void TestLegacyRecords::baselineOfAColumnIsItsMiddle()
{
    STextItem item = itemOf(QStringLiteral("b"));
    item.ascent = 3;
    QCOMPARE(lineOf({item}, Qt::Vertical).baseline, 4.0);
    QCOMPARE(lineOf({item}, Qt::Horizontal).baseline, 3.0);
}

void TestLegacyRecords::emptyRunIsMeasuredAsTheLetterA()
{
    const STextLine line = lineOf({itemOf(QString())});
    QCOMPARE(line.height, 8.0);
    QCOMPARE(line.width, 0.0);
}

void TestLegacyRecords::blankRunIsAsHighAsItsFont()
{
    QCOMPARE(lineOf({itemOf(QStringLiteral("  "))}).height, 16.0);
    QCOMPARE(lineOf({itemOf(QStringLiteral(" "), OpenWord::format(24))}).height, 32.0);
}

void TestLegacyRecords::heightLeavesScalesOut_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("none") << int(T::HorizontalScale) << QVariant(100);
    QTest::newRow("wide") << int(T::HorizontalScale) << QVariant(300);
    QTest::newRow("tall") << int(T::VerticalScale) << QVariant(300);
    QTest::newRow("superscript") << int(QTextFormat::TextVerticalAlignment) << QVariant(1);
    QTest::newRow("subscript") << int(QTextFormat::TextVerticalAlignment) << QVariant(2);
}

/// The line of a scaled run is as high as that of the same run in its font's size.
void TestLegacyRecords::heightLeavesScalesOut()
{
    QFETCH(int, id);
    QFETCH(QVariant, value);
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        OldWord word(orientation);
        word.addBlock(QStringLiteral("b\u4e2d"), OldWord::block(), OldWord::formatWith(id, value));
        word.layOut();
        QCOMPARE(word.line(0).height, 14.0);
    }
}

void TestLegacyRecords::heightIsThatOfTheTextWhateverTheOutline()
{
    STextItem item = itemOf(QStringLiteral("ag")); // 14 long, 8 high
    item.path = QPainterPath();
    item.path.addRect(0, 0, 30, 50);
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        QCOMPARE(lineOf({item}, orientation).height, 8.0);
        QCOMPARE(lineOf({item}, orientation).width, orientation == Qt::Horizontal ? 30.0 : 50.0);
    }
    item.upright = true;
    QCOMPARE(lineOf({item}, Qt::Vertical).height, 14.0);
}

void TestLegacyRecords::heightFollowsTextThatIsSetAnew()
{
    OldWord word;
    word.addBlock(QStringLiteral("a"));
    word.layOut();
    STextItem item = word.line(0).items.first();
    QCOMPARE(lineOf({item}).height, 6.0);
    item.setText(OpenWord::format(24), QStringLiteral("b"), 96);
    QCOMPARE(lineOf({item}).height, 16.0);
}

void TestLegacyRecords::heightOfALayoutIsThatOfItsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariantList>("property"); // id and value, or nothing
    QTest::addColumn<double>("row");
    QTest::addColumn<double>("column");
    const QVariantList none;
    QTest::newRow("letters") << QStringLiteral("ag") << none << 8.0 << 8.0;
    QTest::newRow("Han") << QStringLiteral("\u4e2d") << none << 14.0 << 14.0;
    QTest::newRow("comma") << QStringLiteral("\u3001") << none << 4.0 << 4.0;
    QTest::newRow("blanks") << QStringLiteral("  ") << none << 16.0 << 16.0;
    QTest::newRow("spaced") << QStringLiteral("ag") << QVariantList{T::LetterSpacing, 500} << 8.0
                            << 8.0;
    QTest::newRow("wide") << QStringLiteral("ag") << QVariantList{T::HorizontalScale, 300} << 8.0
                          << 8.0;
}

/// What a layout knows of a run's height is what measuring the text alone gives.
void TestLegacyRecords::heightOfALayoutIsThatOfItsText()
{
    QFETCH(QString, text);
    QFETCH(QVariantList, property);
    QTextCharFormat format = OpenWord::format();
    if (!property.isEmpty())
        format.setProperty(property.first().toInt(), property.last());
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        OldWord word(orientation);
        word.addBlock(text, OldWord::block(), format);
        word.layOut();
        STextLine line = word.line(0);
        QTEST(line.height, orientation == Qt::Horizontal ? "row" : "column");
        for (STextItem &item : line.items)
            item.inkAcross = 0;
        line.updateItems(96);
        QTEST(line.height, orientation == Qt::Horizontal ? "row" : "column");
    }
}

void TestLegacyRecords::largestRowSpacingCounts_data()
{
    QTest::addColumn<QVariant>("first");
    QTest::addColumn<QVariant>("second");
    QTest::addColumn<double>("spacing");
    QTest::newRow("none") << QVariant() << QVariant() << 0.0;
    QTest::newRow("fixed") << QVariant(9) << QVariant() << 12.0;
    QTest::newRow("automatic") << QVariant(0) << QVariant() << 12.0; // twice 6
    QTest::newRow("negative is automatic") << QVariant(-5) << QVariant() << 12.0;
    QTest::newRow("larger behind") << QVariant(9) << QVariant(18) << 24.0;
    QTest::newRow("larger ahead") << QVariant(18) << QVariant(9) << 24.0;
    QTest::newRow("fixed and automatic") << QVariant(9) << QVariant(0) << 16.0; // twice 8
}

void TestLegacyRecords::largestRowSpacingCounts()
{
    QFETCH(QVariant, first);
    QFETCH(QVariant, second);
    QTextCharFormat ahead = OpenWord::format();
    if (first.isValid())
        ahead.setProperty(T::RowSpacing, first);
    QTextCharFormat behind = OpenWord::format();
    if (second.isValid())
        behind.setProperty(T::RowSpacing, second);
    const STextLine line = lineOf(
        {itemOf(QStringLiteral("a"), ahead), itemOf(QStringLiteral("b"), behind)});
    QTEST(line.rowSpacing, "spacing");
    QTEST(line.advance, "spacing");
}

void TestLegacyRecords::advanceAddsTheSpacesOfTheBlock()
{
    STextLine line;
    line.orientation = Qt::Horizontal;
    line.items = {itemOf(QStringLiteral("a"), formatOf({{T::RowSpacing, 9}}))};
    line.firstLineSpace = 5;
    line.lastLineSpace = 3;
    line.updateItems(96);
    QCOMPARE(line.advance, 20.0);
}

void TestLegacyRecords::hyphensWidenTheLineButAreNotCounted()
{
    STextItem hyphen = itemOf(QStringLiteral("-"));
    hyphen.isHyphen = true;
    hyphen.position = -2;
    const STextLine line = lineOf({itemOf(QStringLiteral("ab")), hyphen});
    QCOMPARE(line.length(), 2);
    QCOMPARE(line.width, 20.0);
}

void TestLegacyRecords::lengthOfAnEmptyLine()
{
    QCOMPARE(STextLine().length(), 0);
    QCOMPARE(lineOf({itemOf(QString())}).length(), 0);
}

void TestLegacyRecords::fragmentsOfABlock()
{
    OldWord word;
    word.addBlock(QStringLiteral("first"));
    word.addBlock(QStringLiteral("ab"));
    word.addRun(QStringLiteral("c d"), OpenWord::format(24));
    QList<SFragment> fragments;
    word.getFragments(word.m_document->lastBlock(), fragments);
    QCOMPARE(fragments.size(), 2);
    QCOMPARE(fragments.at(0).text, QStringLiteral("ab"));
    QCOMPARE(fragments.at(0).position, 6);
    QCOMPARE(fragments.at(0).width, 14.0);
    QCOMPARE(fragments.at(0).format, word.m_document->lastBlock().begin().fragment().charFormat());
    QCOMPARE(fragments.at(1).text, QStringLiteral("c d"));
    QCOMPARE(fragments.at(1).position, 8);
    QCOMPARE(fragments.at(1).width, 44.0);
}

void TestLegacyRecords::fragmentsOfNoBlock()
{
    OldWord word;
    QList<SFragment> fragments;
    word.getFragments(QTextBlock(), fragments);
    QVERIFY(fragments.isEmpty());
    word.getFragments(word.m_document->firstBlock(), fragments); // nor an empty one
    QVERIFY(fragments.isEmpty());
}

void TestLegacyRecords::fragmentsInCapitals()
{
    OldWord word;
    word.addBlock(QStringLiteral("ab"), OldWord::block(), OldWord::formatWith(T::UpperCase, true));
    word.addRun(QStringLiteral("cd"), OldWord::formatWith(T::UpperCase, false));
    QList<SFragment> fragments;
    word.getFragments(word.m_document->firstBlock(), fragments);
    QCOMPARE(fragments.size(), 2);
    QCOMPARE(fragments.at(0).text, QStringLiteral("AB"));
    QCOMPARE(fragments.at(1).text, QStringLiteral("cd"));
}

void TestLegacyRecords::punctuationIsCutOffWhenCompressed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("mode");
    QTest::addColumn<QString>("pieces");
    const QString han = QStringLiteral("\u4e00\u3001\u4e8c");
    QTest::newRow("absent") << QStringLiteral("a,b") << QVariant() << QStringLiteral("0:a,b");
    QTest::newRow("off") << QStringLiteral("a,b") << QVariant(0) << QStringLiteral("0:a,b");
    QTest::newRow("other mode") << QStringLiteral("a,b") << QVariant(2) << QStringLiteral("0:a,b");
    QTest::newRow("inside") << QStringLiteral("a,b") << QVariant(1)
                            << QStringLiteral("0:a 1:, 2:b");
    QTest::newRow("at the start") << QStringLiteral(",b") << QVariant(1)
                                  << QStringLiteral("0:, 1:b");
    QTest::newRow("at the end") << QStringLiteral("ab,") << QVariant(1)
                                << QStringLiteral("0:ab 2:,");
    QTest::newRow("one by one") << QStringLiteral(",.") << QVariant(1) << QStringLiteral("0:, 1:.");
    QTest::newRow("none") << QStringLiteral("ab") << QVariant(1) << QStringLiteral("0:ab");
    QTest::newRow("ideographic") << han << QVariant(1)
                                 << QStringLiteral("0:\u4e00 1:\u3001 2:\u4e8c");
}

void TestLegacyRecords::punctuationIsCutOffWhenCompressed()
{
    QFETCH(QString, text);
    QFETCH(QVariant, mode);
    OldWord word;
    QTextBlockFormat format = OldWord::block();
    if (mode.isValid())
        format.setProperty(T::PunctuationExtra, mode);
    word.addBlock(text, format);
    QList<SFragment> fragments;
    word.getFragments(word.m_document->firstBlock(), fragments);
    QStringList pieces;
    for (const SFragment &fragment : qAsConst(fragments)) {
        pieces.append(QStringLiteral("%1:%2").arg(fragment.position).arg(fragment.text));
        QCOMPARE(fragment.width, word.textWidth(fragment.text, fragment.format));
    }
    QTEST(pieces.join(QLatin1Char(' ')), "pieces");
}

void TestLegacyRecords::whereALineBegins_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<bool>("isLast");
    QTest::addColumn<double>("row");
    QTest::addColumn<double>("column");
    // Margins 4 and 6, indent 10, 30 long, in a room of 100: 50 are left over.
    const auto add = [](const char *name, int alignment, bool last, double row, double column) {
        QTest::newRow(name) << alignment << last << row << column;
    };
    add("left", 1, true, 14, 14);
    add("right", 2, true, 64, 14);
    add("centre", 4, true, 39, 14);
    add("justified", 8, true, 14, 14);
    add("top", 32, true, 14, 14);
    add("bottom", 64, true, 14, 64);
    add("middle", 128, true, 14, 39);
    add("column justified", 256, true, 14, 14);
    add("last at the start", 512, true, 14, 14);
    add("last centred", 1024, true, 39, 39);
    add("last centred, not the last", 1024, false, 14, 14);
    add("last at the end", 2048, true, 64, 64);
    add("last at the end, not the last", 2048, false, 14, 14);
    add("none", -1, false, 14, 14);
}

void TestLegacyRecords::whereALineBegins()
{
    QFETCH(int, alignment);
    QFETCH(bool, isLast);
    STextLine line;
    line.leftMargin = 4;
    line.rightMargin = 6;
    line.indent = 10;
    line.width = 30;
    line.alignment = alignment;
    line.isLastLine = isLast;
    OldWord word;
    double start = -1;
    double spacing = -1;
    QVERIFY(word.lineXOffset(line, 100, start, spacing));
    QTEST(start, "row");
    QCOMPARE(spacing, 0.0);
    OldWord column(Qt::Vertical);
    QVERIFY(column.lineXOffset(line, 100, start, spacing));
    QTEST(start, "column");
}

void TestLegacyRecords::lineWithoutRoomHasNoPlace()
{
    OldWord word;
    STextLine line;
    line.leftMargin = 4;
    line.rightMargin = 6;
    line.indent = 10;
    double start = -1;
    double spacing = -1;
    QVERIFY(!word.lineXOffset(line, 20, start, spacing));
    QVERIFY(!word.lineXOffset(line, 19, start, spacing));
    QCOMPARE(spacing, -1.0);
    QVERIFY(word.lineXOffset(line, 20.5, start, spacing));
    QVERIFY(!word.lineXOffset(line, std::numeric_limits<double>::quiet_NaN(), start, spacing));
}

void TestLegacyRecords::justifyingSpace_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<bool>("isLast");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("row");
    QTest::addColumn<double>("column");
    // Margins and indent together 20, 30 long; a box of 100 by 200.
    const auto add = [](const char *name, int alignment, bool last, const char *text, double row,
                        double column) {
        QTest::newRow(name) << alignment << last << QString::fromLatin1(text) << row << column;
    };
    add("left", 1, false, "abc", 0, 0);
    add("right", 2, false, "abc", 0, 0);
    add("justified", 8, false, "abc", 25, 0);
    add("justified, last", 8, true, "abc", 25, 0);
    add("column justified", 256, false, "abc", 0, 75);
    add("column justified, last", 256, true, "abc", 0, 75);
    add("last at the start", 512, false, "abc", 25, 75);
    add("last at the start, last", 512, true, "abc", 0, 0);
    add("last centred", 1024, false, "abc", 25, 75);
    add("last centred, last", 1024, true, "abc", 0, 0);
    add("last at the end", 2048, false, "abcdef", 10, 30);
    add("last at the end, last", 2048, true, "abcdef", 0, 0);
    add("one character", 8, false, "a", 0, 0);
    add("two characters", 8, false, "ab", 50, 0);
    add("none", 8, false, "", 0, 0);
}

void TestLegacyRecords::justifyingSpace()
{
    QFETCH(int, alignment);
    QFETCH(bool, isLast);
    QFETCH(QString, text);
    STextLine line;
    line.items = {boxItem(text, 30, 10)};
    line.leftMargin = 4;
    line.rightMargin = 6;
    line.indent = 10;
    line.width = 30;
    line.alignment = alignment;
    line.isLastLine = isLast;
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        OldWord word(orientation);
        word.m_clientRect = QRectF(0, 0, 100, 200);
        QTEST(word.attachSpacing(line), orientation == Qt::Horizontal ? "row" : "column");
        double start = -1;
        double spacing = -1;
        QVERIFY(word.lineXOffset(line, 100, start, spacing));
        QCOMPARE(spacing, word.attachSpacing(line));
    }
}

void TestLegacyRecords::hyphensTakeNoJustifyingSpace()
{
    STextItem hyphen = boxItem(QStringLiteral("-"), 6, 1);
    hyphen.isHyphen = true;
    STextLine line;
    line.items = {boxItem(QStringLiteral("ab"), 34, 10), hyphen};
    line.width = 40;
    line.alignment = Qt::AlignJustify;
    OldWord word;
    word.m_clientRect = QRectF(0, 0, 100, 200);
    QCOMPARE(word.attachSpacing(line), 60.0); // between two characters
}

void TestLegacyRecords::unreasonableNumbersStayNumbers()
{
    const double values[] = {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(), 1e308, -1e308};
    for (double value : values) {
        QTextCharFormat format = formatOf({{T::LeadingGap, value},
                                           {T::LetterSpacing, value},
                                           {T::BaselineOffset, value},
                                           {T::HorizontalScale, value},
                                           {T::VerticalScale, value},
                                           {QTextFormat::FontPointSize, value}});
        STextItem item;
        item.setText(format, QStringLiteral(" a"), 9600);
        for (double number : {item.letterSpacing, item.selectedLetterSpacing, item.baselineOffset,
                              item.format.fontLetterSpacing()})
            QVERIFY(qIsFinite(number));
        QTextBlockFormat block;
        for (int id : {int(QTextFormat::BlockLeftMargin), int(QTextFormat::BlockRightMargin),
                       int(QTextFormat::BlockIndent), T::SpaceAheadOfBlock, T::SpaceBehindBlock,
                       T::Alignment})
            block.setProperty(id, value);
        STextLine line;
        line.isFirstLine = true;
        line.setBlockFormat(block, 9600, Qt::Horizontal);
        for (double number : {line.leftMargin, line.rightMargin, line.indent, line.firstLineSpace,
                              line.lastLineSpace})
            QVERIFY(qIsFinite(number));
        line.items = {item};
        line.updateItems(9600);
    }
}

QTEST_MAIN(TestLegacyRecords)
#include "tst_legacyrecords.moc"
