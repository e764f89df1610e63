// SPDX-License-Identifier: MIT
#include "layouttext.h"

#include <QtTest>

using Placement = QTextCharFormat::VerticalAlignment;

// Runs of the font of squares: descent 4 and stroke 1 at 16 px, 8 and 2 at 32 px. Rows stand on
// the baseline y = 100, so that the line of the descent is y = 104; columns on x = 100.
class TestBars : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // rows
    void runsOfOneColourShareOneBar();
    void runsWithoutColourShareOneBar();
    void changeOfColourKeepsOneStraightLine();
    void plainRunBetweenSplitsTheBarAtOneHeight();
    void shiftedRunHasItsOwnBar_data();
    void shiftedRunHasItsOwnBar();
    void neighboursOfOneShiftShareOneBar();
    void lowestOfAGroupSetsAllItsBars();
    void groupNeverRisesAboveTheCommonLine();
    void anotherShiftBeginsAnotherGroup();
    void offsetCountsByItsValue();
    void shiftedRunsWithAGapShareNothing();
    void greatestDescentCountsUnderlinedOrNot();
    void descentIsScaledWithTheRun();
    void thicknessIsThatOfTheLine();
    void nothingUnderlinedAddsNothing();
    void lineWithoutOutlineHasNoBar();
    void barsComeBehindAllOutlinesAndStrikes();
    void barsOfLineTextHangFromItsDescent();

    // columns
    void columnSharesOneBarLeftOfAllItsInk();
    void columnKeepsOneLineAcrossColours();
    void columnHasNoCommonLine();
    void onlySuperscriptBreaksAColumn_data();
    void onlySuperscriptBreaksAColumn();
    void superscriptNeighboursShareAColumnBar();
    void blanksTakeNoPartInAColumnsEdge();
    void blanksAloneStandAtTheColumnsInk();
    void columnThicknessIsThatOfTheLine();
    void columnsWithoutUnderlineOrOutlineAddNothing();
    void barsOfLineTextStandLeftOfTheInk();
};

namespace {

struct Bars {
    QList<QPainterPath> paths;
    QList<QBrush> brushes;

    QList<QRectF> rects() const
    {
        QList<QRectF> result;
        for (const QPainterPath &path : paths)
            result.append(path.boundingRect());
        return result;
    }
};

using Rects = QList<QRectF>;
using Brushes = QList<QBrush>;

QFont squares(int pixels)
{
    QFont font;
    font.setFamily(loadBoxTestFont());
    font.setPixelSize(pixels);
    return font;
}

// An underlined run. \a ink is its outline's box, none for blanks.
TextFragment underlined(qreal start, qreal advance, const QColor &colour, const QRectF &ink)
{
    TextFragment run = makeRun(0, QStringLiteral("a"), start, advance);
    run.baseline = 100;
    run.format.setFontUnderline(true);
    run.format.setForeground(colour);
    if (!ink.isEmpty())
        run.path.addRect(ink);
    return run;
}

TextFragment inRow(qreal start, qreal advance, const QColor &colour = Qt::red)
{
    return underlined(start, advance, colour, QRectF(start, 94, advance, 6));
}

// \a left is the left edge of the ink.
TextFragment inColumn(qreal start, qreal advance, qreal left, const QColor &colour = Qt::red)
{
    return underlined(start, advance, colour, QRectF(left, start, 6, advance));
}

TextFragment plain(TextFragment run)
{
    run.format.setFontUnderline(false);
    return run;
}

TextFragment shifted(TextFragment run, Placement alignment, const QVariant &offset, qreal baseline)
{
    run.format.setVerticalAlignment(alignment);
    if (offset.isValid())
        run.format.setProperty(TextProperty::BaselineOffset, offset);
    run.baseline = baseline;
    return run;
}

TextLine lineOf(const QList<TextFragment> &runs)
{
    TextLine line;
    line.fragments = runs;
    line.origin = QPointF(0, 100);
    line.font = squares(16);
    for (const TextFragment &run : runs)
        line.path.addPath(run.path);
    return line;
}

// The bars alone, of the runs that are underlined.
Bars barsOf(const TextLine &line, Qt::Orientation orientation)
{
    QList<int> indices;
    for (int i = 0; i < line.fragments.size(); ++i) {
        if (line.fragments.at(i).format.fontUnderline())
            indices.append(i);
    }
    Bars bars;
    if (orientation == Qt::Horizontal)
        line.horizontalUnderlinePath(bars.paths, bars.brushes, indices);
    else
        line.verticalUnderlinePath(bars.paths, bars.brushes, indices);
    return bars;
}

Bars rowBars(const QList<TextFragment> &runs)
{
    return barsOf(lineOf(runs), Qt::Horizontal);
}

Bars columnBars(const QList<TextFragment> &runs)
{
    return barsOf(lineOf(runs), Qt::Vertical);
}

Brushes brushes(const QList<QColor> &colours)
{
    Brushes result;
    for (const QColor &colour : colours)
        result.append(QBrush(colour));
    return result;
}

constexpr Placement Normal = QTextCharFormat::AlignNormal;
constexpr Placement Raised = QTextCharFormat::AlignSuperScript;
constexpr Placement Lowered = QTextCharFormat::AlignSubScript;

} // namespace

void TestBars::runsOfOneColourShareOneBar()
{
    const Bars bars = rowBars({inRow(10, 20), inRow(30, 15), inRow(45, 5)});
    QCOMPARE(bars.rects(), (Rects{QRectF(10, 103, 40, 1)}));
    QCOMPARE(bars.brushes, brushes({Qt::red}));
    QPainterPath rectangle;
    rectangle.addRect(10, 103, 40, 1);
    QCOMPARE(bars.paths, QList<QPainterPath>{rectangle});
}

void TestBars::runsWithoutColourShareOneBar()
{
    TextFragment first = inRow(10, 20);
    TextFragment second = inRow(30, 15);
    first.format.clearForeground();
    second.format.clearForeground();
    const Bars bars = rowBars({first, second});
    QCOMPARE(bars.rects(), (Rects{QRectF(10, 103, 35, 1)}));
    QCOMPARE(bars.brushes, (Brushes{QBrush()}));
}

void TestBars::changeOfColourKeepsOneStraightLine()
{
    const Bars bars = rowBars({inRow(10, 20, Qt::red), inRow(30, 15, Qt::blue),
                               inRow(45, 5, Qt::blue), inRow(50, 7, Qt::red)});
    QCOMPARE(bars.rects(),
             (Rects{QRectF(10, 103, 20, 1), QRectF(30, 103, 20, 1), QRectF(50, 103, 7, 1)}));
    QCOMPARE(bars.brushes, brushes({Qt::red, Qt::blue, Qt::red}));
}

void TestBars::plainRunBetweenSplitsTheBarAtOneHeight()
{
    const Bars bars = rowBars({inRow(10, 20), plain(inRow(30, 15)), inRow(45, 5)});
    QCOMPARE(bars.rects(), (Rects{QRectF(10, 103, 20, 1), QRectF(45, 103, 5, 1)}));
    QCOMPARE(bars.brushes, brushes({Qt::red, Qt::red}));
}

void TestBars::shiftedRunHasItsOwnBar_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QVariant>("offset");
    QTest::addColumn<qreal>("baseline");
    QTest::addColumn<qreal>("top");
    // Its own baseline and descent (4 px, the stroke upwards from there).
    QTest::newRow("superscript") << int(Raised) << QVariant() << 90.0 << 93.0;
    QTest::newRow("subscript") << int(Lowered) << QVariant() << 103.0 << 106.0;
    QTest::newRow("raised") << int(Normal) << QVariant(6) << 92.0 << 95.0;
    QTest::newRow("lowered") << int(Normal) << QVariant(-6) << 108.0 << 111.0;
    QTest::newRow("raised by a real") << int(Normal) << QVariant(0.75) << 99.0 << 102.0;
}

void TestBars::shiftedRunHasItsOwnBar()
{
    QFETCH(int, alignment);
    QFETCH(QVariant, offset);
    QFETCH(qreal, baseline);
    QFETCH(qreal, top);
    const TextFragment apart = shifted(inRow(30, 15), Placement(alignment), offset, baseline);
    const Bars bars = rowBars({inRow(10, 20), apart, inRow(45, 5)});
    QCOMPARE(bars.rects(),
             (Rects{QRectF(10, 103, 20, 1), QRectF(30, top, 15, 1), QRectF(45, 103, 5, 1)}));
    // It comes first and alone just as well.
    QCOMPARE(rowBars({apart}).rects(), (Rects{QRectF(30, top, 15, 1)}));
}

void TestBars::neighboursOfOneShiftShareOneBar()
{
    const Bars bars = rowBars({shifted(inRow(10, 20), Raised, {}, 90),
                               shifted(inRow(30, 15), Raised, {}, 90),
                               shifted(inRow(45, 5), Raised, {}, 90)});
    QCOMPARE(bars.rects(), (Rects{QRectF(10, 93, 40, 1)}));
}

void TestBars::lowestOfAGroupSetsAllItsBars()
{
    // Superscripts of several sizes and colours: 94, 97, 91 are their descents' lines.
    const Bars bars = rowBars({shifted(inRow(10, 20, Qt::red), Raised, {}, 90),
                               shifted(inRow(30, 15, Qt::blue), Raised, {}, 93),
                               shifted(inRow(45, 5, Qt::green), Raised, {}, 87)});
    QCOMPARE(bars.rects(),
             (Rects{QRectF(10, 96, 20, 1), QRectF(30, 96, 15, 1), QRectF(45, 96, 5, 1)}));
    QCOMPARE(bars.brushes, brushes({Qt::red, Qt::blue, Qt::green}));
    // One colour: the bar grows and sinks.
    const Bars grown = rowBars({shifted(inRow(10, 20), Raised, {}, 90),
                                shifted(inRow(30, 15), Raised, {}, 93),
                                shifted(inRow(45, 5), Raised, {}, 87)});
    QCOMPARE(grown.rects(), (Rects{QRectF(10, 96, 40, 1)}));
}

void TestBars::groupNeverRisesAboveTheCommonLine()
{
    TextFragment high = inRow(30, 15);
    high.baseline = 50;
    QCOMPARE(rowBars({high}).rects(), (Rects{QRectF(30, 103, 15, 1)}));
    QCOMPARE(rowBars({inRow(10, 20), high}).rects(), (Rects{QRectF(10, 103, 35, 1)}));
    TextFragment deep = high;
    deep.baseline = 120;
    QCOMPARE(rowBars({inRow(10, 20), deep}).rects(), (Rects{QRectF(10, 123, 35, 1)}));
    // Deliberate: the first of a group takes the common line whatever its own is.
    QCOMPARE(rowBars({deep}).rects(), (Rects{QRectF(30, 103, 15, 1)}));
}

void TestBars::anotherShiftBeginsAnotherGroup()
{
    const Bars bars = rowBars(
        {shifted(inRow(10, 20), Raised, {}, 90), shifted(inRow(30, 15), Lowered, {}, 103),
         shifted(inRow(45, 5), Lowered, 2, 101), shifted(inRow(50, 5), Lowered, 3, 100)});
    QCOMPARE(bars.rects(), (Rects{QRectF(10, 93, 20, 1), QRectF(30, 106, 15, 1),
                                  QRectF(45, 104, 5, 1), QRectF(50, 103, 5, 1)}));
}

void TestBars::offsetCountsByItsValue()
{
    // A whole number and the same real are one offset; 0 is none.
    QCOMPARE(rowBars(
                 {shifted(inRow(10, 20), Normal, 3, 96), shifted(inRow(30, 15), Normal, 3.0, 96)})
                 .rects(),
             (Rects{QRectF(10, 99, 35, 1)}));
    QCOMPARE(rowBars({inRow(10, 20), shifted(inRow(30, 15), Normal, 0, 100)}).rects(),
             (Rects{QRectF(10, 103, 35, 1)}));
}

void TestBars::shiftedRunsWithAGapShareNothing()
{
    const Bars bars = rowBars({shifted(inRow(10, 20), Raised, {}, 90), plain(inRow(30, 15)),
                               shifted(inRow(45, 5), Raised, {}, 93)});
    QCOMPARE(bars.rects(), (Rects{QRectF(10, 93, 20, 1), QRectF(45, 96, 5, 1)}));
}

void TestBars::greatestDescentCountsUnderlinedOrNot()
{
    TextFragment large = inRow(30, 40);
    large.font = squares(32);
    const Rects split{QRectF(10, 107, 20, 1), QRectF(70, 107, 5, 1)};
    QCOMPARE(rowBars({inRow(10, 20), plain(large), inRow(70, 5)}).rects(), split);
    QCOMPARE(rowBars({inRow(10, 20), large, inRow(70, 5)}).rects(),
             (Rects{QRectF(10, 107, 65, 1)}));
}

void TestBars::descentIsScaledWithTheRun()
{
    TextFragment tall = inRow(10, 20);
    tall.scaleY = 2.5; // descent 10
    QCOMPARE(rowBars({tall}).rects(), (Rects{QRectF(10, 109, 20, 1)}));
    TextFragment raised = shifted(tall, Raised, {}, 90);
    QCOMPARE(rowBars({raised}).rects(), (Rects{QRectF(10, 99, 20, 1)}));
    TextFragment flat = inRow(30, 20);
    flat.scaleY = 0.5; // descent 2
    QCOMPARE(rowBars({flat}).rects(), (Rects{QRectF(30, 101, 20, 1)}));
    TextFragment mirrored = inRow(10, 20);
    mirrored.scaleY = -1; // the greatest of all is still below 0
    QCOMPARE(rowBars({mirrored}).rects(), (Rects{QRectF(10, 95, 20, 1)}));
}

void TestBars::thicknessIsThatOfTheLine()
{
    TextFragment large = inRow(30, 40);
    large.font = squares(32);
    TextLine line = lineOf({inRow(10, 20), plain(inRow(25, 5)), large});
    line.font = squares(32);
    QCOMPARE(barsOf(line, Qt::Horizontal).rects(),
             (Rects{QRectF(10, 106, 20, 2), QRectF(30, 106, 40, 2)}));
}

void TestBars::nothingUnderlinedAddsNothing()
{
    const Bars bars = rowBars({plain(inRow(10, 20))});
    QVERIFY(bars.paths.isEmpty() && bars.brushes.isEmpty());
    const Bars none = barsOf(TextLine(), Qt::Horizontal);
    QVERIFY(none.paths.isEmpty() && none.brushes.isEmpty());
}

void TestBars::lineWithoutOutlineHasNoBar()
{
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        TextFragment blank = underlined(10, 20, Qt::red, QRectF());
        Bars pieces;
        lineOf({blank, blank}).textPaths(pieces.paths, pieces.brushes, orientation);
        QCOMPARE(pieces.paths.size(), 2); // the outlines, both empty
        QVERIFY(pieces.paths.at(0).isEmpty() && pieces.paths.at(1).isEmpty());
    }
}

void TestBars::barsComeBehindAllOutlinesAndStrikes()
{
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        TextFragment struck = inRow(10, 20, Qt::red);
        struck.format.setFontStrikeOut(true);
        const TextFragment second = inRow(30, 15, Qt::blue);
        TextLayout layout;
        layout.orientation = orientation;
        layout.lines = {lineOf({struck, second}), lineOf({plain(second)})};
        Bars pieces;
        layout.textPaths(pieces.paths, pieces.brushes);
        QCOMPARE(pieces.paths.size(), 6);
        QCOMPARE(pieces.paths.at(0), struck.path);
        QCOMPARE(pieces.paths.at(2), second.path);
        QCOMPARE(pieces.paths.at(5), second.path);
        QCOMPARE(pieces.brushes,
                 brushes({Qt::red, Qt::red, Qt::blue, Qt::red, Qt::blue, Qt::blue}));
        const Rects bars = orientation == Qt::Horizontal
                               ? Rects{QRectF(10, 103, 20, 1), QRectF(30, 103, 15, 1)}
                               : Rects{QRectF(9, 10, 1, 20), QRectF(9, 30, 1, 15)};
        QCOMPARE(pieces.rects().mid(3, 2), bars);
    }
}

void TestBars::barsOfLineTextHangFromItsDescent()
{
    QTextCharFormat format = LayoutText::format();
    format.setFontUnderline(true);
    LayoutText text;
    text.add(QStringLiteral("ab"), format);
    format.setFontWeight(QFont::Bold); // another run, the same bar
    text.add(QStringLiteral("c"), format);
    text.add(QStringLiteral("d"), LayoutText::format(24));
    const TextLayout layout = text.layOut();
    Bars pieces;
    layout.textPaths(pieces.paths, pieces.brushes);
    QCOMPARE(pieces.paths.size(), 4);
    // Baseline 20; 24 points are 32 px, descent 8, stroke 2.
    const TextFragment bold = layout.lines.first().fragments.at(1);
    QCOMPARE(pieces.rects().last(), QRectF(10, 26, bold.start + bold.advance - 10, 2));
}

void TestBars::columnSharesOneBarLeftOfAllItsInk()
{
    const Bars bars = columnBars({inColumn(10, 20, 96), inColumn(30, 15, 92), inColumn(45, 5, 97)});
    QCOMPARE(bars.rects(), (Rects{QRectF(91, 10, 1, 40)}));
    QCOMPARE(bars.brushes, brushes({Qt::red}));
}

void TestBars::columnKeepsOneLineAcrossColours()
{
    const Bars bars = columnBars({inColumn(10, 20, 96, Qt::red), inColumn(30, 15, 92, Qt::blue),
                                  inColumn(45, 5, 97, Qt::green)});
    QCOMPARE(bars.rects(),
             (Rects{QRectF(91, 10, 1, 20), QRectF(91, 30, 1, 15), QRectF(91, 45, 1, 5)}));
    QCOMPARE(bars.brushes, brushes({Qt::red, Qt::blue, Qt::green}));
}

void TestBars::columnHasNoCommonLine()
{
    const Bars bars = columnBars(
        {inColumn(10, 20, 96), plain(inColumn(30, 15, 80)), inColumn(45, 5, 92)});
    QCOMPARE(bars.rects(), (Rects{QRectF(95, 10, 1, 20), QRectF(91, 45, 1, 5)}));
}

void TestBars::onlySuperscriptBreaksAColumn_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QVariant>("offset");
    QTest::addColumn<bool>("breaks");
    QTest::newRow("superscript") << int(Raised) << QVariant() << true;
    QTest::newRow("subscript") << int(Lowered) << QVariant() << false;
    QTest::newRow("offset") << int(Normal) << QVariant(6) << false;
    QTest::newRow("subscript and offset") << int(Lowered) << QVariant(-6.5) << false;
}

void TestBars::onlySuperscriptBreaksAColumn()
{
    QFETCH(int, alignment);
    QFETCH(QVariant, offset);
    QFETCH(bool, breaks);
    const Bars bars = columnBars({inColumn(10, 20, 96),
                                  shifted(inColumn(30, 15, 104), Placement(alignment), offset, 108),
                                  inColumn(45, 5, 97)});
    QCOMPARE(bars.rects(),
             breaks ? (Rects{QRectF(95, 10, 1, 20), QRectF(103, 30, 1, 15), QRectF(96, 45, 1, 5)})
                    : (Rects{QRectF(95, 10, 1, 40)}));
}

void TestBars::superscriptNeighboursShareAColumnBar()
{
    // Unlike in rows, an offset between them does not matter.
    const Bars bars = columnBars({shifted(inColumn(10, 20, 104), Raised, {}, 108),
                                  shifted(inColumn(30, 15, 102), Raised, 3, 106)});
    QCOMPARE(bars.rects(), (Rects{QRectF(101, 10, 1, 35)}));
}

void TestBars::blanksTakeNoPartInAColumnsEdge()
{
    const TextFragment blank = underlined(10, 20, Qt::red, QRectF());
    QCOMPARE(columnBars({blank, inColumn(30, 15, 96)}).rects(), (Rects{QRectF(95, 10, 1, 35)}));
    TextFragment behind = blank;
    behind.start = 45;
    QCOMPARE(columnBars({inColumn(30, 15, 96), behind}).rects(), (Rects{QRectF(95, 30, 1, 35)}));
}

void TestBars::blanksAloneStandAtTheColumnsInk()
{
    const TextFragment blank = underlined(10, 20, Qt::red, QRectF());
    QCOMPARE(columnBars({blank, plain(inColumn(30, 15, 96)), plain(inColumn(45, 15, 93))}).rects(),
             (Rects{QRectF(92, 10, 1, 20)}));
}

void TestBars::columnThicknessIsThatOfTheLine()
{
    TextLine line = lineOf(
        {inColumn(10, 20, 96), plain(inColumn(30, 5, 96)), inColumn(35, 15, 92)});
    line.font = squares(32);
    QCOMPARE(barsOf(line, Qt::Vertical).rects(),
             (Rects{QRectF(94, 10, 2, 20), QRectF(90, 35, 2, 15)}));
}

void TestBars::columnsWithoutUnderlineOrOutlineAddNothing()
{
    const Bars bars = columnBars({plain(inColumn(10, 20, 96))});
    QVERIFY(bars.paths.isEmpty() && bars.brushes.isEmpty());
    const Bars none = barsOf(TextLine(), Qt::Vertical);
    QVERIFY(none.paths.isEmpty() && none.brushes.isEmpty());
}

void TestBars::barsOfLineTextStandLeftOfTheInk()
{
    QTextCharFormat format = LayoutText::format();
    format.setFontUnderline(true);
    LayoutText text;
    text.m_textOrientation = Qt::Vertical;
    text.add(QString::fromUtf8("中"), format);
    text.add(QStringLiteral("a"), format);
    const TextLayout layout = text.layOut();
    const TextLine &column = layout.lines.first();
    QCOMPARE(column.fragments.size(), 2);
    Bars pieces;
    layout.textPaths(pieces.paths, pieces.brushes);
    QCOMPARE(pieces.paths.size(), 3);
    // Two pieces, 16 and 8 long from the anchor's y = 20, under one bar.
    const QRectF bar = pieces.rects().last();
    QCOMPARE(bar, QRectF(column.path.boundingRect().left() - 1, 20, 1, 24));
}

QTEST_MAIN(TestBars)
#include "tst_bars.moc"
