// SPDX-License-Identifier: MIT
#include "layouttext.h"

#include "layout/texttools.h"

#include <QtTest>

class TestLayoutRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newRecordsHoldNothing();
    void runTakesTextAndFormatOfTheDocument();
    void runIsUpperCasedWhereTheFormatSaysSo();
    void baselineFollowsTheDirection();
    void seamBelongsToBothRuns();
    void lineHoldsItsEndButAnEmptyBlockDoesNot();
    void movingFollowsTheDirection();
    void outlinesCarryTheForeground();
    void strikeBarOfInkStandsAtTwoThirds();
    void strikeBarOfBlanksStandsOneDescentUp();
    void strikeBarOfAColumnIsCentredOnTheBaseline();
    void emptyBlocksPaintNothingAndHaveNoBaseline();
    void piecesComeInTheOrderOfTheRuns();
};

static TextFragment struckRun()
{
    TextFragment run = makeRun(0, QStringLiteral("A"), 5, 8);
    run.baseline = 30;
    run.path.addRect(6, 24, 6, 6);
    run.format.setFontStrikeOut(true);
    run.format.setForeground(Qt::red);
    return run;
}

void TestLayoutRecords::newRecordsHoldNothing()
{
    const TextFragment run;
    QCOMPARE(run.position, -1);
    QCOMPARE(run.length, 0);
    QVERIFY(run.text.isNull() && run.path.isEmpty());
    QVERIFY(!run.isCJK && !run.isEmptyBlock && !run.isHalfPunct);
    const TextLine line;
    QCOMPARE(line.position, -1);
    QCOMPARE(line.alignment, -1);
    QVERIFY(line.rect.isNull() && line.origin.isNull() && !line.isEmptyBlock);
    const TextLayout layout;
    QCOMPARE(layout.orientation, Qt::Horizontal);
    QCOMPARE(layout.dpi, 72);
}

void TestLayoutRecords::runTakesTextAndFormatOfTheDocument()
{
    LayoutText text;
    text.add(QStringLiteral("ab"));
    text.add(QStringLiteral("cde"), LayoutText::format(24));
    QTextBlock::iterator it = text.m_document->begin().begin();
    ++it;
    const TextFragment run = TextFragment::fromQtFragment(it.fragment());
    QCOMPARE(run.position, 2);
    QCOMPARE(run.length, 3);
    QCOMPARE(run.text, QStringLiteral("cde"));
    QCOMPARE(run.format.fontPointSize(), 24.0);
    QCOMPARE(run.advance, 0.0);
    QVERIFY(run.path.isEmpty());
}

void TestLayoutRecords::runIsUpperCasedWhereTheFormatSaysSo()
{
    for (const bool upper : {true, false}) {
        LayoutText text;
        text.add(QStringLiteral("abC"), LayoutText::format(12, TextProperty::UpperCase, upper));
        const TextFragment run = TextFragment::fromQtFragment(
            text.m_document->begin().begin().fragment());
        QCOMPARE(run.text, upper ? QStringLiteral("ABC") : QStringLiteral("abC"));
    }
}

void TestLayoutRecords::baselineFollowsTheDirection()
{
    TextFragment run;
    run.start = 3;
    run.advance = 10;
    run.baseline = 7;
    QCOMPARE(run.getBaseline(Qt::Horizontal), QLineF(3, 7, 13, 7));
    QCOMPARE(run.getBaseline(Qt::Vertical), QLineF(7, 3, 7, 13));
    QCOMPARE(run.getBaseline(Qt::Orientation(0)), QLineF(7, 3, 7, 13));
}

void TestLayoutRecords::seamBelongsToBothRuns()
{
    const TextFragment first = makeRun(4, QStringLiteral("ab"), 0, 16);
    const TextFragment second = makeRun(6, QStringLiteral("c"), 16, 8);
    QVERIFY(!first.contains(3));
    QVERIFY(first.contains(4));
    QVERIFY(first.contains(6) && second.contains(6));
    QVERIFY(!first.contains(7));
}

void TestLayoutRecords::lineHoldsItsEndButAnEmptyBlockDoesNot()
{
    TextLine line;
    line.position = 4;
    line.length = 1;
    QVERIFY(!line.contains(3) && line.contains(4) && line.contains(5) && !line.contains(6));
    line.isEmptyBlock = true;
    QVERIFY(!line.contains(3) && line.contains(4) && !line.contains(5));
}

void TestLayoutRecords::movingFollowsTheDirection()
{
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        TextLayout layout;
        layout.orientation = orientation;
        TextLine line;
        line.fragments.append(struckRun());
        line.path = line.fragments.first().path;
        line.origin = QPointF(5, 30);
        line.rect = QRectF(5, 18, 8, 16);
        layout.lines.append(line);
        layout.translate(100, 1000);
        const TextLine &moved = layout.lines.first();
        const TextFragment &run = moved.fragments.first();
        QCOMPARE(moved.origin, QPointF(105, 1030));
        QCOMPARE(moved.rect, QRectF(105, 1018, 8, 16));
        QCOMPARE(moved.path.boundingRect(), QRectF(106, 1024, 6, 6));
        QCOMPARE(run.path.boundingRect(), QRectF(106, 1024, 6, 6));
        QCOMPARE(run.start, orientation == Qt::Horizontal ? 105.0 : 1005.0);
        QCOMPARE(run.baseline, orientation == Qt::Horizontal ? 1030.0 : 130.0);
    }
}

void TestLayoutRecords::outlinesCarryTheForeground()
{
    TextFragment run = struckRun();
    run.format.setFontStrikeOut(false);
    run.font.setStrikeOut(true); // counts for nothing: the format is asked
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    run.textPaths(paths, brushes, Qt::Horizontal);
    QCOMPARE(paths, QList<QPainterPath>{run.path});
    QCOMPARE(brushes, QList<QBrush>{QBrush(Qt::red)});
}

void TestLayoutRecords::strikeBarOfInkStandsAtTwoThirds()
{
    const TextFragment run = struckRun();
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    run.textPaths(paths, brushes, Qt::Horizontal);
    QCOMPARE(paths.size(), 2);
    // 16 px: the stroke is 1 px; ink from 24, 6 high.
    QCOMPARE(paths.at(1).boundingRect(), QRectF(5, 28, 8, 1));
    QCOMPARE(brushes, (QList<QBrush>{QBrush(Qt::red), QBrush(Qt::red)}));
}

void TestLayoutRecords::strikeBarOfBlanksStandsOneDescentUp()
{
    TextFragment run = struckRun();
    run.path = QPainterPath();
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    run.textPaths(paths, brushes, Qt::Horizontal);
    QCOMPARE(paths.size(), 2);
    QVERIFY(paths.at(0).isEmpty());
    QCOMPARE(paths.at(1).boundingRect(), QRectF(5, 26, 8, 1));
}

void TestLayoutRecords::strikeBarOfAColumnIsCentredOnTheBaseline()
{
    const TextFragment run = struckRun();
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    run.textPaths(paths, brushes, Qt::Vertical);
    QCOMPARE(paths.at(1).boundingRect(), QRectF(29.5, 5, 1, 8));
}

void TestLayoutRecords::emptyBlocksPaintNothingAndHaveNoBaseline()
{
    LayoutText text;
    text.add(QStringLiteral("a"));
    QTextCharFormat decorated = LayoutText::format();
    decorated.setFontUnderline(true);
    decorated.setFontStrikeOut(true);
    text.addBlock({}, decorated);
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.size(), 2);
    const TextLine &empty = layout.lines.at(1);
    QVERIFY(empty.isEmptyBlock);
    QCOMPARE(empty.length, 1);
    QCOMPARE(empty.fragments.size(), 1);
    QVERIFY(empty.fragments.first().isEmptyBlock && empty.fragments.first().path.isEmpty());
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    empty.textPaths(paths, brushes, Qt::Horizontal);
    QVERIFY(paths.isEmpty() && brushes.isEmpty());
    QCOMPARE(layout.baselines().size(), 1);
    QCOMPARE(empty.baselines(Qt::Horizontal).size(), 1); // the line itself skips nothing
}

void TestLayoutRecords::piecesComeInTheOrderOfTheRuns()
{
    TextLine line;
    line.fragments = {struckRun(), struckRun()};
    line.fragments[1].format.setForeground(Qt::blue);
    line.path = line.fragments.first().path;
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    line.textPaths(paths, brushes, Qt::Horizontal);
    QCOMPARE(brushes,
             (QList<QBrush>{QBrush(Qt::red), QBrush(Qt::red), QBrush(Qt::blue), QBrush(Qt::blue)}));
    QCOMPARE(paths.size(), 4);
}

QTEST_MAIN(TestLayoutRecords)
#include "tst_layoutrecords.moc"
