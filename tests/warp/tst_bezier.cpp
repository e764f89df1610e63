// SPDX-License-Identifier: MIT
#include "common/truncated.h"
#include "tests/warp/nets.h"
#include "warp/bezier.h"
#include "warp/textbezier.h"

#include <limits>

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct Controls {
    QPointF c1;
    QPointF c2;
};

Controls arc(const QPointF &from, const QPointF &to, const QPointF &centre)
{
    Controls controls;
    getCircleBezier(from, to, centre, controls.c1, controls.c2);
    return controls;
}

Controls through(QPointF p0, QPointF p1, QPointF p2, QPointF p3)
{
    Controls controls;
    get_control_points(p0, p1, p2, p3, controls.c1, controls.c2);
    return controls;
}

/// The net that the style arc makes of 310 by 95 at 0.375.
QPolygonF bentNet()
{
    return QPolygonF(QVector<QPointF>{
        {-66.45675659179688, 27.11406898498535},
        {56.60521697998047, -93.35712432861328},
        {253.394775390625, -93.35712432861328},
        {376.4567565917969, 27.11406898498535},
        {-44.326655173415915, 49.720084504562585},
        {66.4377670288086, -58.71246337890625},
        {243.56222534179688, -58.71246337890625},
        {354.32665517341593, 49.720084504562585},
        {-22.13009920951649, 72.39398521742031},
        {76.29984283447266, -23.96375274658203},
        {233.70016479492188, -23.96375274658203},
        {332.1300992095165, 72.39398521742031},
        {0, 95},
        {86.13243103027344, 10.680885314941406},
        {223.86756896972656, 10.680885314941406},
        {310, 95},
    });
}

} // namespace

class TestBezier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void truncationGoesTowardZeroAndSaturates();

    void quarterCircleHasTheWellKnownControls();
    void arcsAreInSinglePrecision_data();
    void arcsAreInSinglePrecision();
    void arcsWithoutAngleAreNotFinite();

    void curveEndsAtItsEnds();
    void weightsAreInSinglePrecision_data();
    void weightsAreInSinglePrecision();

    void equallySpacedPointsOfALineKeepTheirPlaces();
    void curvePassesItsPointsAtTheThirds();
    void controlsThroughFourPoints();

    void surfaceBeginsAndEndsAtItsCorners();
    void flatSurfaceOfExactThirdsIsTheIdentity();
    void surfaceIsTheBernsteinSum_data();
    void surfaceIsTheBernsteinSum();
    void surfaceOfFewOrManyPoints();
    void surfaceOfNumbersThatAreNoneEnds();
};

void TestBezier::truncationGoesTowardZeroAndSaturates()
{
    QCOMPARE(truncated(2.999), 2);
    QCOMPARE(truncated(-2.999), -2);
    QCOMPARE(truncated(2147483646.5), 2147483646);
    QCOMPARE(truncated(2147483647.5), std::numeric_limits<int>::max());
    QCOMPARE(truncated(-2147483648.5), std::numeric_limits<int>::min());
    QCOMPARE(truncated(infinite), std::numeric_limits<int>::max());
    QCOMPARE(truncated(-infinite), std::numeric_limits<int>::min());
    QCOMPARE(truncated(notANumber), 0);
}

void TestBezier::quarterCircleHasTheWellKnownControls()
{
    const Controls quarter = arc({100, 0}, {0, 100}, {0, 0});
    QVERIFY(qAbs(quarter.c1.x() - 100) < 1e-4);
    QVERIFY(qAbs(quarter.c1.y() - 55.2285) < 1e-3);
    QVERIFY(qAbs(quarter.c2.x() - 55.2285) < 1e-3);
    QVERIFY(qAbs(quarter.c2.y() - 100) < 1e-4);
    const Controls back = arc({7, 5 - 10}, {7 - 10, 5}, {7, 5});
    QVERIFY(qAbs(back.c1.x() - (7 - 5.52285)) < 1e-4);
    QVERIFY(qAbs(back.c1.y() + 5) < 1e-4);
}

void TestBezier::arcsAreInSinglePrecision_data()
{
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<QPointF>("centre");
    QTest::addColumn<QPointF>("c1");
    QTest::addColumn<QPointF>("c2");
    QTest::newRow("a row") << QPointF(0, 0) << QPointF(310, 0) << QPointF(155, -158.3)
                           << QPointF(86.12725830078125, 84.33180236816406)
                           << QPointF(223.87274169921875, 84.33180236816406);
    QTest::newRow("at a slant") << QPointF(10.1, 20.7) << QPointF(-3.3, 55.5) << QPointF(17.9, 61.2)
                                << QPointF(-27.966459274291992, 28.03131866455078)
                                << QPointF(2.0575032234191895, 35.5738525390625);
}

void TestBezier::arcsAreInSinglePrecision()
{
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    QFETCH(QPointF, centre);
    QFETCH(QPointF, c1);
    QFETCH(QPointF, c2);
    const Controls controls = arc(from, to, centre);
    QVERIFY(isSameBits(controls.c1.x(), c1.x()) && isSameBits(controls.c1.y(), c1.y()));
    QVERIFY(isSameBits(controls.c2.x(), c2.x()) && isSameBits(controls.c2.y(), c2.y()));
}

void TestBezier::arcsWithoutAngleAreNotFinite()
{
    const Controls controls = arc({3, 4}, {3, 4}, {0, 0});
    QVERIFY(!qIsFinite(controls.c1.x()) && !qIsFinite(controls.c2.y()));
    QVERIFY(!qIsFinite(arc({-1, 0}, {1, 0}, {0, 0}).c1.y()));
    QVERIFY(!qIsFinite(arc({1, 1}, {1, 1}, {1, 1}).c1.x()));
    QVERIFY(!qIsFinite(arc({1e300, 0}, {0, 1e300}, {0, 0}).c1.x()));
}

void TestBezier::curveEndsAtItsEnds()
{
    const QPointF p0(1.5, 2.25);
    const QPointF p3(60.625, -12.5);
    QCOMPARE(calculateBezierPoint(p0, {10, 20}, {-7, 44}, p3, 0), p0);
    QCOMPARE(calculateBezierPoint(p0, {10, 20}, {-7, 44}, p3, 1), p3);
}

void TestBezier::weightsAreInSinglePrecision_data()
{
    QTest::addColumn<float>("t");
    QTest::addColumn<QPointF>("point");
    QTest::newRow("0.333") << 0.333f << QPointF(14.571725986897945, 7.037600474059582);
    QTest::newRow("0.666") << 0.666f << QPointF(35.014338328689334, 20.549426699616017);
}

void TestBezier::weightsAreInSinglePrecision()
{
    QFETCH(float, t);
    QFETCH(QPointF, point);
    const QPointF result = calculateBezierPoint({1.5, 2.25}, {10.125, -7.5}, {33.3, 41.7},
                                                {60.6, 12.2}, t);
    QVERIFY(isSameBits(result.x(), point.x()));
    QVERIFY(isSameBits(result.y(), point.y()));
}

void TestBezier::equallySpacedPointsOfALineKeepTheirPlaces()
{
    const Controls controls = through({0, 0}, {30, 10}, {60, 20}, {90, 30});
    QVERIFY(QLineF(controls.c1, QPointF(30, 10)).length() < 1e-12);
    QVERIFY(QLineF(controls.c2, QPointF(60, 20)).length() < 1e-12);
}

// 1/27 of (8 p0 + 12 c1 + 6 c2 + p3) is the curve at a third.
void TestBezier::curvePassesItsPointsAtTheThirds()
{
    const QPointF p0(3, -4);
    const QPointF p1(25, 61);
    const QPointF p2(-10, 12);
    const QPointF p3(80, 7);
    const Controls controls = through(p0, p1, p2, p3);
    const QPointF third = (8 * p0 + 12 * controls.c1 + 6 * controls.c2 + p3) / 27;
    const QPointF twoThirds = (p0 + 6 * controls.c1 + 12 * controls.c2 + 8 * p3) / 27;
    QVERIFY(QLineF(third, p1).length() < 1e-12);
    QVERIFY(QLineF(twoThirds, p2).length() < 1e-12);
}

void TestBezier::controlsThroughFourPoints()
{
    const Controls controls = through({1.5, 2.25}, {10.125, -7.5}, {33.3, 41.7}, {60.6, 12.2});
    QVERIFY(isSameBits(controls.c1.x(), -0.6249999999999929));
    QVERIFY(isSameBits(controls.c2.x(), 34.712499999999984));
    QVERIFY(isSameBits(controls.c1.y(), -82.85833333333333));
    QVERIFY(isSameBits(controls.c2.y(), 126.93333333333334));
}

void TestBezier::surfaceBeginsAndEndsAtItsCorners()
{
    const QPolygonF net = bentNet();
    const CTextBezier surface(net);
    QCOMPARE(surface.getBezierLinePoint(0, 0), net.at(0));
    QCOMPARE(surface.getBezierLinePoint(0, 1), net.at(3));
    QCOMPARE(surface.getBezierLinePoint(1, 0), net.at(12));
    QCOMPARE(surface.getBezierLinePoint(1, 1), net.at(15));
}

void TestBezier::flatSurfaceOfExactThirdsIsTheIdentity()
{
    const CTextBezier surface(QPolygonF(flatNet(300, 90).first()));
    for (double row : {0.0, 0.1, 0.5, 0.77, 1.0, 1.5, -0.5}) {
        for (double column : {0.0, 0.3, 0.5, 0.9, 1.0, 2.0, -1.0}) {
            const QPointF point = surface.getBezierLinePoint(row, column);
            QVERIFY(qAbs(point.x() - 300 * column) < 1e-10);
            QVERIFY(qAbs(point.y() - 90 * row) < 1e-10);
        }
    }
}

void TestBezier::surfaceIsTheBernsteinSum_data()
{
    QTest::addColumn<double>("row");
    QTest::addColumn<double>("column");
    QTest::addColumn<QPointF>("point");
    QTest::newRow("inside") << 0.25 << 0.75 << QPointF(263.8180030465066, -18.603876698578006);
    QTest::newRow("middle") << 0.5 << 0.5 << QPointF(154.99999964237213, -15.739324500608628);
    QTest::newRow("outside") << -0.5 << 1.25 << QPointF(497.14841731177404, 123.11011305404816);
    QTest::newRow("far outside") << 2.0 << -1.0 << QPointF(65.83241680629055, 452.7835508312768);
}

void TestBezier::surfaceIsTheBernsteinSum()
{
    QFETCH(double, row);
    QFETCH(double, column);
    QFETCH(QPointF, point);
    const QPointF result = CTextBezier(bentNet()).getBezierLinePoint(row, column);
    QVERIFY2(QLineF(result, point).length() < 1e-10,
             qPrintable(QStringLiteral("%1, %2").arg(result.x()).arg(result.y())));
}

void TestBezier::surfaceOfFewOrManyPoints()
{
    QCOMPARE(CTextBezier(QPolygonF()).getBezierLinePoint(1, 1), QPointF());
    const QPolygonF one(QVector<QPointF>{{5, 6}});
    QCOMPARE(CTextBezier(one).getBezierLinePoint(0, 0), QPointF(5, 6));
    QCOMPARE(CTextBezier(one).getBezierLinePoint(1, 1), QPointF(0, 0));
    QPolygonF many = bentNet();
    many.append(QPointF(1e9, 1e9));
    QCOMPARE(CTextBezier(many).getBezierLinePoint(0.4, 0.6),
             CTextBezier(bentNet()).getBezierLinePoint(0.4, 0.6));
}

void TestBezier::surfaceOfNumbersThatAreNoneEnds()
{
    const CTextBezier surface(bentNet());
    for (double bad : {notANumber, infinite, -infinite, 1e308}) {
        QVERIFY(!qIsFinite(surface.getBezierLinePoint(bad, 0.5).x()));
        QVERIFY(!qIsFinite(surface.getBezierLinePoint(0.5, bad).y()));
    }
}

QTEST_APPLESS_MAIN(TestBezier)
#include "tst_bezier.moc"
