// SPDX-License-Identifier: MIT
// Caret and selection over hand-made records. Latin is 8 px wide, Han 16 px.
#include "layouttext.h"

#include <QtTest>

class TestCaret : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void caretInARow_data();
    void caretInARow();
    void caretInAColumn_data();
    void caretInAColumn();
    void caretBeforeAnAddedHyphen();
    void caretInACompressedRunMovesByHalf();
    void caretWithoutARunStandsAtZero();
    void caretPositionsGrowAlongALine();
    void selectionInRows_data();
    void selectionInRows();
    void selectionInColumns_data();
    void selectionInColumns();
    void selectionCoversACompressedRunWhole();
    void selectionOfBlanksHasNoInkToReach();
    void selectionThroughAnEmptyBlockAddsItsBox();
    void selectionInAnEmptyBlockIsEmpty();
    void touchingRectanglesAreOneArea();
    void longSelectionIsTheUnionOfItsLines();
    void everySelectionHasWindingFill();
};

// "abcd" wrapped after two characters, an empty block, "ef" in two runs:
//   0 a b | 2 c d   5 (empty)   6 e, f at twice the width
static TextLayout rows()
{
    TextLayout layout;
    TextLine first;
    first.position = 0;
    first.length = 2;
    first.fragments = {makeRun(0, QStringLiteral("ab"), 10, 16)};
    first.rect = QRectF(10, 0, 40, 16);
    first.path.addRect(11, 4, 14, 8);
    TextLine second;
    second.position = 2;
    second.length = 2;
    second.fragments = {makeRun(2, QStringLiteral("cd"), 12, 16)};
    second.rect = QRectF(12, 20, 40, 16);
    second.path.addRect(13, 24, 14, 8);
    TextLine empty;
    empty.isEmptyBlock = true;
    empty.position = 5;
    empty.length = 1;
    empty.origin = QPointF(14, 52);
    empty.rect = QRectF(14, 40, 3, 16);
    TextLine last;
    last.position = 6;
    last.length = 2;
    last.fragments = {makeRun(6, QStringLiteral("e"), 16, 8),
                      makeRun(7, QStringLiteral("fg"), 24, 32)};
    last.length = 3;
    last.fragments[1].scaleX = 2;
    last.rect = QRectF(16, 60, 40, 16);
    last.path.addRect(17, 64, 30, 8);
    layout.lines = {first, second, empty, last};
    return layout;
}

// The same in columns: "ab" wrapped to "c" and a Han character, an empty block, "efg".
static TextLayout columns()
{
    TextLayout layout = rows();
    layout.orientation = Qt::Vertical;
    for (TextLine &line : layout.lines) {
        line.rect = QRectF(100 - line.rect.top(), line.rect.left(), 16, line.rect.width());
        QPainterPath turned;
        const QRectF ink = line.path.boundingRect();
        if (!line.path.isEmpty())
            turned.addRect(100 - ink.top(), ink.left(), ink.height(), ink.width());
        line.path = turned;
        line.origin = QPointF(line.origin.y(), line.origin.x());
        for (TextFragment &run : line.fragments)
            qSwap(run.scaleX, run.scaleY);
    }
    TextLine &second = layout.lines[1];
    second.fragments = {makeRun(2, QStringLiteral("c"), 12, 8),
                        makeRun(3, QString::fromUtf8("中"), 20, 16)};
    second.fragments[1].isCJK = true;
    return layout;
}

void TestCaret::caretInARow_data()
{
    QTest::addColumn<int>("pos");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<QLineF>("caret");
    QTest::newRow("start") << 0 << false << QLineF(10, 0, 10, 16);
    QTest::newRow("inside") << 1 << false << QLineF(18, 0, 18, 16);
    QTest::newRow("wrap, stays") << 2 << false << QLineF(26, 0, 26, 16);
    QTest::newRow("wrap, goes on") << 2 << true << QLineF(12, 20, 12, 36);
    QTest::newRow("block end") << 4 << false << QLineF(28, 20, 28, 36);
    QTest::newRow("block end, goes on to nothing") << 4 << true << QLineF();
    QTest::newRow("empty block") << 5 << false << QLineF(14, 40, 14, 56);
    QTest::newRow("empty block, forward") << 5 << true << QLineF(14, 40, 14, 56);
    QTest::newRow("behind an empty block") << 6 << false << QLineF(16, 60, 16, 76);
    QTest::newRow("seam of runs") << 7 << true << QLineF(24, 60, 24, 76);
    QTest::newRow("scaled run") << 8 << false << QLineF(40, 60, 40, 76);
    QTest::newRow("end") << 9 << false << QLineF(56, 60, 56, 76);
    QTest::newRow("before the layout") << -1 << false << QLineF();
    QTest::newRow("behind the layout") << 10 << false << QLineF();
}

void TestCaret::caretInARow()
{
    QFETCH(int, pos);
    QFETCH(bool, forward);
    QFETCH(QLineF, caret);
    QCOMPARE(rows().cursorLine(pos, forward), caret);
    QCOMPARE(rows().horizontalCursor(pos, forward), caret);
}

void TestCaret::caretInAColumn_data()
{
    QTest::addColumn<int>("pos");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<QLineF>("caret");
    QTest::newRow("start") << 0 << false << QLineF(100, 10, 116, 10);
    QTest::newRow("inside") << 1 << false << QLineF(100, 18, 116, 18);
    QTest::newRow("wrap, stays") << 2 << false << QLineF(100, 26, 116, 26);
    QTest::newRow("wrap, goes on") << 2 << true << QLineF(80, 12, 96, 12);
    QTest::newRow("before an upright character") << 3 << false << QLineF(80, 20, 96, 20);
    QTest::newRow("behind an upright character") << 4 << false << QLineF(80, 36, 96, 36);
    QTest::newRow("empty block") << 5 << true << QLineF(60, 14, 76, 14);
    QTest::newRow("scaled run") << 8 << false << QLineF(40, 40, 56, 40);
    QTest::newRow("end") << 9 << false << QLineF(40, 56, 56, 56);
    QTest::newRow("behind the layout") << 10 << false << QLineF();
}

void TestCaret::caretInAColumn()
{
    QFETCH(int, pos);
    QFETCH(bool, forward);
    QFETCH(QLineF, caret);
    QCOMPARE(columns().cursorLine(pos, forward), caret);
    QCOMPARE(columns().verticalCursor(pos, forward), caret);
}

void TestCaret::caretBeforeAnAddedHyphen()
{
    TextLayout layout = rows();
    TextFragment &run = layout.lines[0].fragments[0];
    run.text = QStringLiteral("ab-"); // the hyphen is no character of the document
    run.advance = 24;
    QCOMPARE(layout.cursorLine(2, false).x1(), 26.0);
}

void TestCaret::caretInACompressedRunMovesByHalf()
{
    TextLayout layout = rows();
    TextFragment &run = layout.lines[0].fragments[0];
    run.isHalfPunct = true;
    QCOMPARE(layout.cursorLine(0, false).x1(), 10.0);
    QCOMPARE(layout.cursorLine(1, false).x1(), 14.0);
    QCOMPARE(layout.cursorLine(2, false).x1(), 26.0);
}

void TestCaret::caretWithoutARunStandsAtZero()
{
    TextLayout layout = rows();
    layout.lines[0].fragments.clear();
    QCOMPARE(layout.cursorLine(1, false), QLineF(0, 0, 0, 16));
    layout = columns();
    layout.lines[0].fragments.clear();
    QCOMPARE(layout.cursorLine(1, false), QLineF(100, 0, 116, 0));
}

void TestCaret::caretPositionsGrowAlongALine()
{
    LayoutText text;
    text.add(QString::fromUtf8("ab中"));
    text.add(QString::fromUtf8("かc，d"), LayoutText::format(18));
    for (const int orientation : {1, 2}) {
        text.m_textOrientation = orientation;
        const TextLayout layout = text.layOut();
        qreal last = -1000;
        for (int pos = 0; pos <= 7; ++pos) {
            const QPointF caret = layout.cursorLine(pos, false).p1();
            const qreal along = orientation == 1 ? caret.x() : caret.y();
            QVERIFY2(along > last, qPrintable(QString::number(pos)));
            last = along;
        }
    }
}

void TestCaret::selectionInRows_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<QList<QRectF>>("areas");
    using Areas = QList<QRectF>;
    const QRectF afterA(18, 0, 7, 16); // to the edge of the ink, not of the box
    QTest::newRow("one character") << 1 << 2 << false << Areas{QRectF(18, 0, 8, 16)};
    QTest::newRow("whole line") << 0 << 2 << false << Areas{QRectF(10, 0, 16, 16)};
    QTest::newRow("over the wrap") << 1 << 3 << false << Areas{afterA, QRectF(12, 20, 8, 16)};
    QTest::newRow("from the wrap on") << 2 << 3 << true << Areas{QRectF(12, 20, 8, 16)};
    QTest::newRow("over all") << 1 << 8 << false
                              << Areas{afterA, QRectF(12, 20, 40, 16), QRectF(14, 40, 3, 16),
                                       QRectF(16, 60, 24, 16)};
    QTest::newRow("to the start of a line")
        << 4 << 6 << false
        << Areas{QRectF(27, 20, 1, 16), QRectF(14, 40, 3, 16), QRectF(16, 60, 0, 16)};
    QTest::newRow("up to an empty block") << 3 << 5 << false << Areas{QRectF(20, 20, 7, 16)};
    QTest::newRow("from an empty block") << 5 << 7 << false << Areas{QRectF(16, 60, 8, 16)};
    QTest::newRow("two runs") << 6 << 8 << false << Areas{QRectF(16, 60, 24, 16)};
    QTest::newRow("outside") << 20 << 25 << false << Areas{};
}

static QPainterPath areaPath(const QList<QRectF> &areas)
{
    QPainterPath path;
    for (const QRectF &area : areas) {
        QPainterPath next;
        next.addRect(area);
        path = path.united(next);
    }
    return path;
}

static bool sameArea(const QPainterPath &a, const QPainterPath &b)
{
    return a.subtracted(b).boundingRect().isEmpty() && b.subtracted(a).boundingRect().isEmpty();
}

void TestCaret::selectionInRows()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(bool, forward);
    QFETCH(QList<QRectF>, areas);
    const QPainterPath path = rows().selectionPath(start, end, forward);
    const QPainterPath expected = areaPath(areas);
    QCOMPARE(path.boundingRect(), expected.boundingRect());
    QVERIFY(sameArea(path, expected));
    QCOMPARE(rows().horizontalSelectionPath(start, end, forward), path);
}

void TestCaret::selectionInColumns_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<QList<QRectF>>("areas");
    using Areas = QList<QRectF>;
    QTest::newRow("one character") << 1 << 2 << false << Areas{QRectF(100, 18, 16, 8)};
    QTest::newRow("over the wrap")
        << 1 << 3 << false << Areas{QRectF(100, 18, 16, 7), QRectF(80, 12, 16, 8)};
    QTest::newRow("from the wrap on") << 2 << 3 << true << Areas{QRectF(80, 12, 16, 8)};
    QTest::newRow("upright character") << 3 << 4 << false << Areas{QRectF(80, 20, 16, 16)};
    QTest::newRow("to the far end of an upright character")
        << 1 << 4 << false << Areas{QRectF(100, 18, 16, 7), QRectF(80, 12, 16, 24)};
    QTest::newRow("over all") << 1 << 8 << false
                              << Areas{QRectF(100, 18, 16, 7), QRectF(80, 12, 16, 40),
                                       QRectF(60, 14, 16, 3), QRectF(40, 16, 16, 24)};
    QTest::newRow("up to an empty block") << 2 << 5 << true << Areas{QRectF(80, 12, 16, 15)};
    QTest::newRow("outside") << 20 << 25 << false << Areas{};
}

void TestCaret::selectionInColumns()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(bool, forward);
    QFETCH(QList<QRectF>, areas);
    const QPainterPath path = columns().selectionPath(start, end, forward);
    const QPainterPath expected = areaPath(areas);
    QCOMPARE(path.boundingRect(), expected.boundingRect());
    QVERIFY(sameArea(path, expected));
    QCOMPARE(columns().verticalSelectionPath(start, end, forward), path);
}

void TestCaret::selectionCoversACompressedRunWhole()
{
    TextLayout layout = rows();
    layout.lines[0].fragments[0].isHalfPunct = true;
    QCOMPARE(layout.selectionPath(0, 1, false).boundingRect(), QRectF(10, 0, 16, 16));
    // The start of a selection counts an empty head, its end in the same line does not.
    layout.lines[0].fragments[0].advance = 8;
    QCOMPARE(layout.selectionPath(0, 0, false).boundingRect(), QRectF(10, 0, 8, 16));
}

void TestCaret::selectionOfBlanksHasNoInkToReach()
{
    TextLayout layout = rows();
    layout.lines[0].path = QPainterPath();
    QCOMPARE(layout.selectionPath(1, 3, false).boundingRect(),
             QRectF(12, 0, 8, 36).united(QRectF(18, 0, 0, 16)));
    QCOMPARE(layout.selectionPath(1, 2, false).boundingRect(), QRectF(18, 0, 8, 16));
}

void TestCaret::selectionThroughAnEmptyBlockAddsItsBox()
{
    const QPainterPath path = rows().selectionPath(2, 7, true);
    QVERIFY(path.contains(QPointF(15, 48)));
    QVERIFY(!path.contains(QPointF(18, 48)));
}

void TestCaret::selectionInAnEmptyBlockIsEmpty()
{
    QVERIFY(rows().selectionPath(5, 5, false).isEmpty());
    QVERIFY(columns().selectionPath(5, 5, false).isEmpty());
}

void TestCaret::touchingRectanglesAreOneArea()
{
    TextLayout layout = rows();
    layout.lines[1].rect = QRectF(10, 12, 40, 16); // overlaps the line above
    const QPainterPath path = layout.selectionPath(0, 5, false);
    QCOMPARE(path.toSubpathPolygons().size(), 1);
}

void TestCaret::longSelectionIsTheUnionOfItsLines()
{
    TextLayout layout;
    QList<QRectF> areas;
    for (int i = 0; i < 41; ++i) {
        TextLine line;
        line.position = 2 * i;
        line.length = 1;
        line.fragments = {makeRun(line.position, QStringLiteral("a"), 0, 8)};
        line.rect = QRectF(i % 5, 12 * i, 8 + i % 3, i % 7 == 0 ? 11 : 16);
        line.path.addRect(line.rect);
        layout.lines.append(line);
        areas.append(line.rect);
    }
    areas.first().setLeft(0); // where the selection's own coordinates take over
    areas.last() = QRectF(0, 12 * 40, 8, 16);
    const QPainterPath path = layout.selectionPath(0, 81, false);
    QVERIFY(sameArea(path, areaPath(areas)));
    QCOMPARE(path.boundingRect(), areaPath(areas).boundingRect());
}

void TestCaret::everySelectionHasWindingFill()
{
    QCOMPARE(rows().selectionPath(1, 8, false).fillRule(), Qt::WindingFill);
    QCOMPARE(rows().selectionPath(20, 21, false).fillRule(), Qt::WindingFill);
    QCOMPARE(columns().selectionPath(1, 2, false).fillRule(), Qt::WindingFill);
}

QTEST_MAIN(TestCaret)
#include "tst_caret.moc"
