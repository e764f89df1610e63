// SPDX-License-Identifier: MIT
// The older handlers of the warp: guide lines, boxes and nets by style, sign and orientation.
#include "arttext/arttexthelper.h"
#include "tests/wordprocess/openword.h"
#include "tests/wordprocess/warpoutline.h"

#include <QtTest>

#include <limits>

class TestWarpHandles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableHasFifteenHandlers();
    void pipelineIgnoresTheTable();
    void guidesAndBox_data();
    void guidesAndBox();
    void verticalGuidesAreTransposed_data() { styles(); }
    void verticalGuidesAreTransposed();
    void pathsFillTheNewBox_data() { styles(); }
    void pathsFillTheNewBox();
    void netsCarryPoints_data();
    void netsCarryPoints();
    void valueOfZeroIsRefused_data() { styles(); }
    void valueOfZeroIsRefused();
    void badValuesAndBoxesDoNoHarm_data() { styles(); }
    void badValuesAndBoxesDoNoHarm();
    void guideLineThatCannotBeDrawnIsRefused();
    void horizontalWarpNarrowsASide_data();
    void horizontalWarpNarrowsASide();
    void verticalWarpNarrowsAnEnd_data();
    void verticalWarpNarrowsAnEnd();
    void unchangedBoundsAreRefusedAndTakeThePathAway();
    void negativeInflationHasNoMeasure();

private:
    static void styles();
};

namespace {
const QRectF box(0, 0, 100, 40);

/// One handler over a frame of lines in the box.
struct Handled {
    OpenWord word;
    QRectF outRect;
    QRectF pathBounds;
    QList<QPainterPath> paths = outlinesOf(
        QStringLiteral("M 0 0 L 50 0 L 100 0 L 100 20 L 100 40 L 50 40 L 0 40 L 0 20 L 0 0 "
                       "M 30 12 L 60 30"));

    bool run(int style, double value, int orientation = Qt::Horizontal, const QRectF &rect = box)
    {
        word.m_warpStyle = style;
        word.m_warpValue = value;
        word.m_warpOrientation = orientation;
        return (word.*word.m_warpHandlers.value(style))(rect, QRectF(1, 2, 3, 4), outRect, paths,
                                                        pathBounds);
    }

    /// First, middle and last point of a guide line, as words.
    QString guide(int number)
    {
        tagPOINT *points[2] = {};
        unsigned int counts[2] = {};
        word.m_artText->GetPathPoint(&points[0], &counts[0], &points[1], &counts[1]);
        const unsigned int count = counts[number - 1];
        if (count == 0)
            return QString();
        const tagPOINT *line = points[number - 1];
        QStringList words;
        for (unsigned int i : {0U, count / 2, count - 1})
            words << QStringLiteral("%1,%2").arg(line[i].x).arg(line[i].y);
        return words.join(QLatin1Char(' '));
    }
};

bool isGuideStyle(int style)
{
    return style != SurfaceTwist && style != SurfaceFisheye && style != SurfaceShellLower
           && style != SurfaceShellUpper;
}

QRectF turned(const QRectF &rect)
{
    return QRectF(rect.y(), rect.x(), rect.height(), rect.width());
}
} // namespace

void TestWarpHandles::styles()
{
    QTest::addColumn<int>("style");
    for (int style = SurfaceArc; style <= SurfaceTwist; ++style)
        QTest::addRow("style %d", style) << style;
}

void TestWarpHandles::tableHasFifteenHandlers()
{
    OpenWord word;
    QList<int> numbers;
    for (int style = 1; style <= 15; ++style)
        numbers.append(style);
    QCOMPARE(word.m_warpHandlers.keys(), numbers);
    QVERIFY(word.m_warpHandlers.value(SurfaceArc) == &CWordProcess::warpArcHandle);
    QVERIFY(word.m_warpHandlers.value(SurfaceShellLower) == &CWordProcess::warpShellLowerHandle);
    QVERIFY(word.m_warpHandlers.value(SurfaceShellUpper) == &CWordProcess::warpShellUpperHandle);
    QVERIFY(word.m_warpHandlers.value(SurfaceTwist) == &CWordProcess::warpTwistHandle);
    for (int first = 1; first <= 15; ++first) { // each style has one of its own
        for (int second = first + 1; second <= 15; ++second)
            QVERIFY(word.m_warpHandlers.value(first) != word.m_warpHandlers.value(second));
    }
}

void TestWarpHandles::pipelineIgnoresTheTable()
{
    OpenWord word;
    word.add(QStringLiteral("abc"));
    word.m_warpStyle = SurfaceBulge;
    word.m_warpValue = 0.5;
    word.updateMorphTextPaths();
    const QList<QPainterPath> bent = word.m_morphPaths;
    word.m_warpHandlers.clear();
    word.updateMorphTextPaths();
    QCOMPARE(word.m_morphPaths, bent);
    tagPOINT *points[2] = {};
    unsigned int counts[2] = {};
    word.m_artText->GetPathPoint(&points[0], &counts[0], &points[1], &counts[1]);
    QCOMPARE(counts[0] + counts[1], 0U);
}

void TestWarpHandles::guidesAndBox_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("guide1");
    QTest::addColumn<QString>("guide2");
    QTest::addColumn<QRectF>("outRect");
    const auto row = [](const char *name, int style, double value, const char *guide1,
                        const char *guide2, const QRectF &outRect) {
        QTest::newRow(name) << style << value << QString::fromLatin1(guide1)
                            << QString::fromLatin1(guide2) << outRect;
    };
    // A box of 100 by 40; half the width times 0.4 is 20, times 1.2 is 60.
    // clang-format off
    row("lower arc",           SurfaceArcLower,  0.4, "0,0 50,0 100,0",    "0,40 50,60 100,40",   QRectF(0, 0, 100, 60));
    row("lower arc, up",       SurfaceArcLower, -0.4, "0,0 50,0 100,0",    "0,40 50,20 100,40",   QRectF(0, 0, 100, 40));
    row("lower arc, far up",   SurfaceArcLower, -1.2, "0,20 50,20 100,20", "0,60 50,0 99,60",    QRectF(0, 20, 100, 60));
    row("upper arc",           SurfaceArcUpper,  0.4, "0,20 50,0 100,20",  "0,60 50,60 100,60",   QRectF(0, 20, 100, 60));
    row("upper arc, down",     SurfaceArcUpper, -0.4, "0,0 50,20 100,0",   "0,40 50,40 100,40",   QRectF(0, 0, 100, 40));
    row("upper arc, far down", SurfaceArcUpper, -1.2, "0,0 50,60 100,0",   "0,60 50,60 100,60",   QRectF(0, 0, 100, 60));
    row("arch",                SurfaceArch,      0.4, "0,20 50,0 100,20",  "0,80 50,60 100,80",   QRectF(0, 20, 100, 80));
    row("arch, down",          SurfaceArch,     -0.4, "0,0 50,20 100,0",   "0,20 50,40 100,20",   QRectF(0, 0, 100, 40));
    row("arch, far down",      SurfaceArch,     -1.2, "0,0 50,60 100,0",   "0,20 50,80 100,20",   QRectF(0, 20, 100, 80));
    row("bulge",               SurfaceBulge,     0.4, "0,20 50,0 100,20",  "0,60 50,80 100,60",   QRectF(0, 20, 100, 80));
    row("bulge, inwards",      SurfaceBulge,    -0.4, "0,0 50,20 100,0",   "0,40 50,60 100,40",   QRectF(0, 0, 100, 60));
    // Steps add up a little short of whole numbers, and are cut: 99 for 100, 19 for 20.
    // Half the height times 0.5 is 10; a wave ends one point ahead of its period.
    row("flag",                SurfaceFlag,      0.5, "0,10 50,10 99,9",   "0,50 50,50 99,49",    QRectF(0, 10, 100, 60));
    row("flag, negative",      SurfaceFlag,     -0.5, "0,10 50,9 99,10",   "0,50 50,49 99,50",    QRectF(0, 10, 100, 60));
    row("wave",                SurfaceWave,      0.5, "0,0 50,0 100,0",    "0,20 50,20 99,19",    QRectF(0, 0, 100, 40));
    row("fish",                SurfaceFish,      0.5, "0,10 50,9 99,10",   "0,50 50,50 99,49",    QRectF(0, 10, 100, 60));
    row("fish, negative",      SurfaceFish,     -0.5, "0,10 50,10 99,9",   "0,50 50,49 99,50",    QRectF(0, 10, 100, 60));
    // The height times 0.5 is 20.
    row("rise",                SurfaceRise,      0.5, "0,40 50,19 99,0",   "0,80 50,60 99,40",    QRectF(0, 0, 100, 80));
    row("rise, negative",      SurfaceRise,     -0.5, "0,0 50,20 99,39",   "0,40 50,60 99,79",    QRectF(0, 40, 100, 80));
    // clang-format on
}

void TestWarpHandles::guidesAndBox()
{
    QFETCH(int, style);
    QFETCH(double, value);
    QFETCH(QString, guide1);
    QFETCH(QString, guide2);
    QFETCH(QRectF, outRect);
    Handled handled;
    QVERIFY(handled.run(style, value));
    QCOMPARE(handled.guide(1), guide1);
    QCOMPARE(handled.guide(2), guide2);
    QCOMPARE(handled.outRect, outRect);
}

void TestWarpHandles::verticalGuidesAreTransposed()
{
    QFETCH(int, style);
    for (double value : {0.4, -0.4}) {
        Handled across;
        Handled down;
        QVERIFY(across.run(style, value));
        for (QPainterPath &path : down.paths) {
            for (int i = 0; i < path.elementCount(); ++i)
                path.setElementPositionAt(i, path.elementAt(i).y, path.elementAt(i).x);
        }
        QVERIFY(down.run(style, value, Qt::Vertical, turned(box)));
        if (style == SurfaceTwist || style == SurfaceFisheye || style == SurfaceSqueeze)
            continue; // not transposed, or with a pass of its own
        QVERIFY(qAbs(down.outRect.x() - across.outRect.y()) < 1e-9);
        QVERIFY(qAbs(down.outRect.y() - across.outRect.x()) < 1e-9);
        QVERIFY(qAbs(down.outRect.width() - across.outRect.height()) < 1e-9);
        QVERIFY(qAbs(down.outRect.height() - across.outRect.width()) < 1e-9);
        if (!isGuideStyle(style))
            continue;
        for (int i = 0; i < across.paths.first().elementCount(); ++i) { // arcs may differ by a cut
            QVERIFY(qAbs(down.paths.first().elementAt(i).y - across.paths.first().elementAt(i).x)
                    < 3);
            QVERIFY(qAbs(down.paths.first().elementAt(i).x - across.paths.first().elementAt(i).y)
                    < 3);
        }
    }
}

void TestWarpHandles::pathsFillTheNewBox()
{
    QFETCH(int, style);
    for (int orientation : {1, 2}) {
        for (double value : {0.4, -0.4}) {
            Handled handled;
            const QList<QPainterPath> before = handled.paths;
            QVERIFY(handled.run(style, value, orientation));
            QCOMPARE(handled.paths.size(), 1); // the measure is gone again
            QVERIFY(handled.paths != before);
            const QRectF painted = handled.paths.first().boundingRect();
            QVERIFY(painted.width() > 1 && painted.height() > 1);
            if (!isGuideStyle(style)) {
                QCOMPARE(handled.pathBounds, painted);
                continue;
            }
            const QRectF filled(QPointF(0, 0), handled.outRect.size());
            QVERIFY(qAbs(handled.pathBounds.width() - filled.width()) < 1e-6);
            QVERIFY(qAbs(handled.pathBounds.height() - filled.height()) < 1e-6);
            QVERIFY(filled.adjusted(-1e-6, -1e-6, 1e-6, 1e-6).contains(painted));
        }
    }
}

void TestWarpHandles::netsCarryPoints_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QRectF>("outRect");
    QTest::addColumn<QPointF>("middle"); // where (50, 20) goes
    QTest::addColumn<QPointF>("corner"); // where (100, 0) goes
    QTest::newRow("twist") << 15 << 0.5 << 1 << box << QPointF(50, 20) << QPointF(100, 0);
    QTest::newRow("fisheye") << 12 << 0.5 << 1 << box << QPointF(50, 20) << QPointF(100, 0);
    // An angle of 90 degrees: the sides lie flat, 40 to either side, and the top is half a circle.
    // Its control points stand 4 / 3 of the radius of 90 above the corners, at 40 - 120.
    QTest::newRow("upper shell") << 7 << 1.0 << 1 << QRectF(40, 80, 180, 120) << QPointF(50, 0)
                                 << QPointF(140, 40);
    QTest::newRow("lower shell") << 6 << 1.0 << 1 << QRectF(40, 0, 180, 120) << QPointF(50, 40)
                                 << QPointF(100, 0);
}

void TestWarpHandles::netsCarryPoints()
{
    QFETCH(int, style);
    QFETCH(double, value);
    QFETCH(int, orientation);
    QFETCH(QRectF, outRect);
    QFETCH(QPointF, middle);
    QFETCH(QPointF, corner);
    Handled handled;
    handled.paths = outlinesOf(QStringLiteral("M 50 20 L 100 0"));
    QVERIFY(handled.run(style, value, orientation));
    const QPainterPath &path = handled.paths.first();
    QVERIFY(qAbs(handled.outRect.x() - outRect.x()) < 1e-6);
    QVERIFY(qAbs(handled.outRect.y() - outRect.y()) < 1e-6);
    QVERIFY(qAbs(handled.outRect.width() - outRect.width()) < 1e-6);
    QVERIFY(qAbs(handled.outRect.height() - outRect.height()) < 1e-6);
    QVERIFY(qAbs(path.elementAt(0).x - middle.x()) < 1e-6);
    QVERIFY(qAbs(path.elementAt(1).x - corner.x()) < 1e-6);
    QVERIFY(qAbs(path.elementAt(1).y - corner.y()) < 1e-6);
    if (style == SurfaceTwist || style == SurfaceFisheye)
        QVERIFY(qAbs(path.elementAt(0).y - middle.y()) < 1e-6);
}

void TestWarpHandles::valueOfZeroIsRefused()
{
    QFETCH(int, style);
    for (int orientation : {1, 2}) {
        Handled handled;
        const QList<QPainterPath> before = handled.paths;
        QVERIFY(!handled.run(style, 0, orientation));
        QCOMPARE(handled.paths, before);
    }
}

void TestWarpHandles::badValuesAndBoxesDoNoHarm()
{
    QFETCH(int, style);
    const double values[] = {qQNaN(), qInf(), -qInf(), 1e308, -1e308, 1e-300, 3.0, -3.0, 0.5};
    const QRectF boxes[] = {QRectF(),           QRectF(0, 0, 0, 40),    QRectF(0, 0, 100, 0),
                            QRectF(0, 0, 1, 1), QRectF(5, 7, 1e9, 1e9), box};
    for (double value : values) {
        for (const QRectF &rect : boxes) {
            for (int orientation : {1, 2}) {
                Handled handled;
                handled.run(style, value, orientation, rect);
                handled.run(style, value, orientation, rect); // what is left takes another turn
                if (!qIsFinite(value))
                    QCOMPARE(handled.outRect, QRectF());
            }
        }
    }
    Handled handled; // nothing to bend
    handled.paths.clear();
    handled.run(style, 0.5);
    QVERIFY(handled.paths.isEmpty());
}

void TestWarpHandles::guideLineThatCannotBeDrawnIsRefused()
{
    Handled handled; // an arc with a radius above 16 000
    const QList<QPainterPath> before = handled.paths;
    QVERIFY(!handled.run(SurfaceArc, 0.001));
    QCOMPARE(handled.paths, before);
    QVERIFY(!handled.run(SurfaceBulge, 0.5, 1, QRectF(0, 0, 1, 40))); // a curve without a run
}

void TestWarpHandles::horizontalWarpNarrowsASide_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("guide1");
    QTest::addColumn<QString>("guide2");
    // Half the height times 0.5 is 10: a box of 60, one side of it 20 shorter at either end.
    QTest::newRow("left") << 0.5 << "0,20 50,10 100,0"
                          << "0,40 50,50 100,60";
    QTest::newRow("right") << -0.5 << "0,0 50,9 100,19"
                           << "0,60 50,49 100,39";
}

void TestWarpHandles::horizontalWarpNarrowsASide()
{
    QFETCH(double, value);
    QFETCH(QString, guide1);
    QFETCH(QString, guide2);
    Handled handled;
    handled.word.m_warpHorizontalValue = value;
    QVERIFY(handled.word.horizontalWarp(box, QRectF(1, 2, 3, 4), handled.outRect, handled.paths,
                                        handled.pathBounds));
    QCOMPARE(handled.outRect, QRectF(0, 10, 100, 60));
    QCOMPARE(handled.guide(1), guide1);
    QCOMPARE(handled.guide(2), guide2);
    handled.word.m_warpHorizontalValue = 0;
    handled.word.m_warpValue = 0.5; // not asked for
    QVERIFY(!handled.word.horizontalWarp(box, QRectF(), handled.outRect, handled.paths,
                                         handled.pathBounds));
}

void TestWarpHandles::verticalWarpNarrowsAnEnd_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("guide1");
    QTest::addColumn<QString>("guide2");
    // Half the width times 0.2 is 10.
    QTest::newRow("top") << 0.2 << "20,0 60,0 100,0"
                         << "0,40 60,40 120,40";
    QTest::newRow("bottom") << -0.2 << "0,0 60,0 120,0"
                            << "20,40 60,40 100,40";
}

void TestWarpHandles::verticalWarpNarrowsAnEnd()
{
    QFETCH(double, value);
    QFETCH(QString, guide1);
    QFETCH(QString, guide2);
    Handled handled;
    handled.word.m_warpVerticalValue = value;
    QVERIFY(handled.word.verticalWarp(box, QRectF(1, 2, 3, 4), handled.outRect, handled.paths,
                                      handled.pathBounds));
    QCOMPARE(handled.outRect, QRectF(10, 0, 120, 40));
    QCOMPARE(handled.guide(1), guide1);
    QCOMPARE(handled.guide(2), guide2);
    handled.word.m_warpVerticalValue = 0;
    QVERIFY(!handled.word.verticalWarp(box, QRectF(), handled.outRect, handled.paths,
                                       handled.pathBounds));
}

void TestWarpHandles::unchangedBoundsAreRefusedAndTakeThePathAway()
{
    Handled handled; // without guide lines nothing is bent
    CSize size(100, 40);
    handled.outRect = QRectF(0, 0, 50, 20);
    QVERIFY(!handled.word.lensDeform(box, box, size, handled.outRect, handled.paths,
                                     handled.pathBounds, false));
    QCOMPARE(handled.paths.size(), 1);
    handled.word.m_warpStyle = SurfaceInflate;
    handled.word.m_warpValue = -0.5;
    QVERIFY(!handled.word.lensDeform(box, box, size, handled.outRect, handled.paths,
                                     handled.pathBounds, false));
    QVERIFY(handled.paths.isEmpty()); // there was no measure: a path of the text goes
    QVERIFY(!handled.word.lensDeform(box, QRectF(), size, handled.outRect, handled.paths,
                                     handled.pathBounds, false));
}

/// Without a measure the outlines themselves are stretched to the whole box.
void TestWarpHandles::negativeInflationHasNoMeasure()
{
    for (double value : {0.4, -0.4}) {
        Handled handled;
        handled.paths = outlinesOf(QStringLiteral("M 40 15 L 60 15 L 60 25 L 40 25 L 40 15"));
        QVERIFY(handled.run(SurfaceInflate, value));
        const QSizeF filled = handled.paths.first().boundingRect().size();
        QCOMPARE(qAbs(filled.width() - 100) < 1e-6, value < 0);
    }
}

QTEST_MAIN(TestWarpHandles)
#include "tst_warphandles.moc"
