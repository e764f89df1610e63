// SPDX-License-Identifier: MIT
#include "tests/warp/expectednets.h"
#include "tests/warp/nets.h"
#include "warp/surfaces.h"

#include <cmath>
#include <limits>

namespace {

constexpr int netWidth = 310;
constexpr int netHeight = 95;

constexpr int firstStyle = SurfaceArc;
constexpr int lastStyle = SurfaceTwist;

Net bent(SurfaceType type, bool acrossColumns, float value, Net net)
{
    if (acrossColumns)
        getSurFacePointV(type, net, value);
    else
        getSurFacePoint(type, net, value);
    return net;
}

Net bent(SurfaceType type, bool acrossColumns, float value)
{
    return bent(type, acrossColumns, value, flatNet(netWidth, netHeight));
}

QByteArray rowName(int type, bool acrossColumns, float value)
{
    return "style " + QByteArray::number(type) + (acrossColumns ? " across columns " : " ")
           + QByteArray::number(double(value));
}

bool isFinite(const Net &net)
{
    for (const QPointF &point : net.first()) {
        if (!qIsFinite(point.x()) || !qIsFinite(point.y()))
            return false;
    }
    return true;
}

/// How far any point of \a net lies from its place in the flat net, across the lines that bend.
double depthOf(const Net &net, bool acrossColumns, const Net &flat = flatNet(netWidth, netHeight))
{
    double most = 0;
    for (int i = 0; i < 16; ++i) {
        const QPointF way = net.first().at(i) - flat.first().at(i);
        most = qMax(most, qAbs(acrossColumns ? way.x() : way.y()));
    }
    return most;
}

/// The inner points of a line of the net: point numbers.
struct Inner {
    int first;
    int second;
};

bool isSameLine(const Net &a, const Net &b, Inner line)
{
    return a.first().at(line.first) == b.first().at(line.first)
           && a.first().at(line.second) == b.first().at(line.second);
}

} // namespace

class TestSurfaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyStyleBendsToTheLastBit_data();
    void everyStyleBendsToTheLastBit();
    void everyStyleBothSignsBothWaysIsInTheTable();
    void theReturnedCopyIsTheBentNet();
    void zeroLeavesTheNetFlat_data() { everyStyle(); }
    void zeroLeavesTheNetFlat();
    void numbersThatAreNoStyleLeaveTheNetFlat_data();
    void numbersThatAreNoStyleLeaveTheNetFlat();
    void theStrongestValueStepsBack_data() { everyStyle(); }
    void theStrongestValueStepsBack();
    void justBelowTheLimitIsStrongerThanTheStrongest_data() { everyStyle(ByTheirOwnSide); }
    void justBelowTheLimitIsStrongerThanTheStrongest();
    void arcsTendToFlatWithTheValue_data();
    void arcsTendToFlatWithTheValue();
    void innerLinesStopBendingWhileTheAnchoredLineGoesOn_data();
    void innerLinesStopBendingWhileTheAnchoredLineGoesOn();
    void fisheyeKeepsAPointThatLiesOnItsCorner();
    void fisheyeTakesAllDirectionsFirst();
    void waveBringsItsInnerLinesTogether();
    void styleWithoutTurnIsTheSameBothWays_data();
    void styleWithoutTurnIsTheSameBothWays();
    void archAndBulgeOfColumnsGoByTheHeight();
    void shellPointsAreWhole_data();
    void shellPointsAreWhole();
    void netsWithoutWidthOrHeightEnd_data() { everyStyle(); }
    void netsWithoutWidthOrHeightEnd();
    void hugeNetsEnd_data() { everyStyle(); }
    void hugeNetsEnd();
    void valuesThatAreNoNumberBendNothing_data() { everyStyle(); }
    void valuesThatAreNoNumberBendNothing();
    void shortNetsStayAsTheyAre();

private:
    enum Choice { All, ByTheirOwnSide };
    static void everyStyle(Choice choice = All);
};

void TestSurfaces::everyStyle(Choice choice)
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("acrossColumns");
    for (int type = firstStyle; type <= lastStyle; ++type) {
        const bool byHeight = type == SurfaceArch || type == SurfaceBulge;
        for (bool acrossColumns : {false, true}) {
            if (choice == ByTheirOwnSide && acrossColumns && byHeight)
                continue;
            QTest::newRow(
                ("style " + QByteArray::number(type) + (acrossColumns ? " across columns" : ""))
                    .constData())
                << type << acrossColumns;
        }
    }
}

void TestSurfaces::everyStyleBendsToTheLastBit_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const ExpectedNet &row : ExpectedNets) {
        QTest::newRow(rowName(row.type, row.acrossColumns, row.value).constData()) << index;
        ++index;
    }
}

void TestSurfaces::everyStyleBendsToTheLastBit()
{
    QFETCH(int, index);
    const ExpectedNet &row = ExpectedNets[index];
    COMPARE_NETS(bent(row.type, row.acrossColumns, row.value), netOf(row.points));
}

void TestSurfaces::everyStyleBothSignsBothWaysIsInTheTable()
{
    int found[lastStyle + 1][2][2] = {};
    for (const ExpectedNet &row : ExpectedNets)
        ++found[row.type][row.acrossColumns][row.value > 0];
    for (int type = firstStyle; type <= lastStyle; ++type) {
        for (int way : {0, 1}) {
            for (int sign : {0, 1})
                QVERIFY2(found[type][way][sign] > 0, QByteArray::number(type).constData());
        }
    }
}

void TestSurfaces::theReturnedCopyIsTheBentNet()
{
    Net net = flatNet(netWidth, netHeight);
    const Net copy = getSurFacePoint(SurfaceArch, net, 0.25f);
    COMPARE_NETS(copy, net);
    QVERIFY(depthOf(net, false) > 1);
    Net turned = flatNet(netWidth, netHeight);
    const Net turnedCopy = getSurFacePointV(SurfaceArch, turned, 0.25f);
    COMPARE_NETS(turnedCopy, turned);
    QVERIFY(depthOf(turned, true) > 1);
}

void TestSurfaces::zeroLeavesTheNetFlat()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    const Net flat = flatNet(netWidth, netHeight);
    COMPARE_NETS(bent(SurfaceType(type), acrossColumns, 0.0f), flat);
    COMPARE_NETS(bent(SurfaceType(type), acrossColumns, -0.0f), flat);
}

void TestSurfaces::numbersThatAreNoStyleLeaveTheNetFlat_data()
{
    QTest::addColumn<int>("type");
    for (int type :
         {0, -1, 16, 99, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::newRow(QByteArray::number(type).constData()) << type;
}

void TestSurfaces::numbersThatAreNoStyleLeaveTheNetFlat()
{
    QFETCH(int, type);
    const Net flat = flatNet(netWidth, netHeight);
    for (float value : {0.5f, -0.5f, 1.0f}) {
        COMPARE_NETS(bent(SurfaceType(type), false, value), flat);
        COMPARE_NETS(bent(SurfaceType(type), true, value), flat);
    }
}

// From beyond 0.997 on the value is 0.995; one between the two stays and is the stronger one.
void TestSurfaces::theStrongestValueStepsBack()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    for (float sign : {1.0f, -1.0f}) {
        const auto at = [&](float value) {
            return bent(SurfaceType(type), acrossColumns, sign * value);
        };
        const Net limit = at(0.995f);
        COMPARE_NETS(at(1.0f), limit);
        COMPARE_NETS(at(0.9971f), limit);
        COMPARE_NETS(at(17.0f), limit);
        COMPARE_NETS(at(std::numeric_limits<float>::infinity()), limit);
        QVERIFY(!difference(at(0.996f), limit).isEmpty());
    }
}

// Deep in the direction of the bend: near the half circle a flat arc's depth drowns in the single
// precision of its centre. Arch and bulge of columns, which go by the height, stay out for that.
void TestSurfaces::justBelowTheLimitIsStrongerThanTheStrongest()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    const Net flat = acrossColumns ? flatNet(3000, 300) : flatNet(300, 3000);
    for (float sign : {1.0f, -1.0f}) {
        const auto depth = [&](float value) {
            return depthOf(bent(SurfaceType(type), acrossColumns, sign * value, flat),
                           acrossColumns, flat);
        };
        QVERIFY2(depth(0.996f) > depth(1.0f),
                 qPrintable(QStringLiteral("%1, %2").arg(depth(0.996f)).arg(depth(1.0f))));
    }
}

void TestSurfaces::arcsTendToFlatWithTheValue_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("acrossColumns");
    QTest::newRow("arc") << int(SurfaceArc) << false;
    QTest::newRow("arc across columns") << int(SurfaceArc) << true;
}

void TestSurfaces::arcsTendToFlatWithTheValue()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    for (float sign : {1.0f, -1.0f}) {
        double last = std::numeric_limits<double>::max();
        // Much nearer to 0 the single precision of the far centre tells.
        for (float value : {0.5f, 0.2f, 0.1f, 0.05f, 0.02f}) {
            const double depth = depthOf(bent(SurfaceType(type), acrossColumns, sign * value),
                                         acrossColumns);
            QVERIFY(depth < last);
            last = depth;
        }
        QVERIFY2(last < 4.5, QByteArray::number(last).constData()); // of 310 by 95
    }
}

void TestSurfaces::innerLinesStopBendingWhileTheAnchoredLineGoesOn_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("acrossColumns");
    QTest::addColumn<int>("anchored"); // the line's number
    QTest::newRow("lower") << int(SurfaceArcLower) << false << 3;
    QTest::newRow("upper") << int(SurfaceArcUpper) << false << 0;
    QTest::newRow("lower across columns") << int(SurfaceArcLower) << true << 3;
    QTest::newRow("upper across columns") << int(SurfaceArcUpper) << true << 0;
}

void TestSurfaces::innerLinesStopBendingWhileTheAnchoredLineGoesOn()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    QFETCH(int, anchored);
    const auto inner = [&](int line) {
        return acrossColumns ? Inner{line + 4, line + 8} : Inner{4 * line + 1, 4 * line + 2};
    };
    for (float sign : {1.0f, -1.0f}) {
        const auto at = [&](float value) {
            return bent(SurfaceType(type), acrossColumns, sign * value);
        };
        // The distance of the centre is 1 / 4, then 1 / 9, then 1 / 19 of the size.
        const Net ahead = at(0.8f);
        const Net strong = at(0.9f);
        const Net stronger = at(0.95f);
        for (int line : {1, 2}) {
            QVERIFY(!isSameLine(ahead, strong, inner(line)));
            QVERIFY(isSameLine(strong, stronger, inner(line)));
        }
        QVERIFY(!isSameLine(strong, stronger, inner(anchored)));
    }
}

void TestSurfaces::fisheyeKeepsAPointThatLiesOnItsCorner()
{
    for (bool acrossColumns : {false, true}) {
        Net net = flatNet(netWidth, netHeight);
        net.first()[6] = net.first().at(3);
        const Net result = bent(SurfaceFisheye, acrossColumns, 0.5f, net);
        QCOMPARE(result.first().at(6), result.first().at(3));
        QVERIFY(result.first().at(5) != net.first().at(5));
    }
}

// 2 * 31 * 0.5 * 4 is 124 along a line of 3 : 4 : 5, from (93, 124) toward (0, 0).
void TestSurfaces::fisheyeTakesAllDirectionsFirst()
{
    Net net = flatNet(netWidth, netHeight);
    net.first()[5] = QPointF(93, 124);
    const Net result = bent(SurfaceFisheye, false, 0.5f, net);
    QCOMPARE(result.first().at(5).x(), 93 - 124 * 0.6);
    QCOMPARE(result.first().at(5).y(), 124 - 124 * 0.8);
    for (int i : {0, 1, 2, 3, 4, 7, 8, 11, 12, 13, 14, 15})
        QCOMPARE(result.first().at(i), net.first().at(i));
}

void TestSurfaces::waveBringsItsInnerLinesTogether()
{
    for (float value : {-1.0f, -0.3f, 0.01f, 0.5f, 0.996f}) {
        const Net rows = bent(SurfaceWave, false, value);
        QCOMPARE(rows.first().at(5).y(), rows.first().at(9).y());
        QCOMPARE(rows.first().at(6).y(), rows.first().at(10).y());
        const Net columns = bent(SurfaceWave, true, value);
        QCOMPARE(columns.first().at(5).x(), columns.first().at(6).x());
        QCOMPARE(columns.first().at(9).x(), columns.first().at(10).x());
    }
}

void TestSurfaces::styleWithoutTurnIsTheSameBothWays_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("fisheye") << int(SurfaceFisheye);
    QTest::newRow("inflate") << int(SurfaceInflate);
    QTest::newRow("twist") << int(SurfaceTwist);
}

void TestSurfaces::styleWithoutTurnIsTheSameBothWays()
{
    QFETCH(int, type);
    for (float value : {-0.7f, 0.7f})
        COMPARE_NETS(bent(SurfaceType(type), true, value), bent(SurfaceType(type), false, value));
}

// The centres lie in heights, so that a wider net bends its outer columns alike.
void TestSurfaces::archAndBulgeOfColumnsGoByTheHeight()
{
    for (SurfaceType type : {SurfaceArch, SurfaceBulge}) {
        const Net narrow = bent(type, true, 0.5f, flatNet(120, 90));
        const Net wide = bent(type, true, 0.5f, flatNet(1200, 90));
        QVERIFY(isSameLine(narrow, wide, {4, 8}));
        const Net high = bent(type, true, 0.5f, flatNet(120, 180));
        QVERIFY(!isSameLine(narrow, high, {4, 8}));
    }
}

void TestSurfaces::shellPointsAreWhole_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("acrossColumns");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::newRow("lower") << int(SurfaceShellLower) << false << 8 << 11;
    QTest::newRow("upper") << int(SurfaceShellUpper) << false << 4 << 7;
    QTest::newRow("lower across columns") << int(SurfaceShellLower) << true << 2 << 14;
    QTest::newRow("upper across columns") << int(SurfaceShellUpper) << true << 1 << 13;
}

void TestSurfaces::shellPointsAreWhole()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    QFETCH(int, first);
    QFETCH(int, second);
    for (float value : {-0.61f, -0.13f, 0.13f, 0.61f}) {
        const Net net = bent(SurfaceType(type), acrossColumns, value);
        for (int i : {first, second}) {
            const QPointF &point = net.first().at(i);
            QCOMPARE(point, QPointF(std::trunc(point.x()), std::trunc(point.y())));
        }
    }
}

void TestSurfaces::netsWithoutWidthOrHeightEnd()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    for (const Net &net : {flatNet(0, 0), flatNet(310, 0), flatNet(0, 95), flatNet(1, 1)}) {
        for (float value : {-1.0f, -0.5f, 0.5f, 1.0f})
            QCOMPARE(bent(SurfaceType(type), acrossColumns, value, net).first().size(), 16);
    }
}

void TestSurfaces::hugeNetsEnd()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    constexpr int huge = std::numeric_limits<int>::max() / 2;
    for (const Net &net : {flatNet(huge, huge), flatNet(huge, 1), flatNet(1, huge)}) {
        for (float value : {-1.0f, -1e-45f, 1e-45f, 0.5f}) {
            const Net result = bent(SurfaceType(type), acrossColumns, value, net);
            QCOMPARE(result.first().size(), 16);
            QVERIFY(type < SurfaceFlag || isFinite(result));
        }
    }
}

void TestSurfaces::valuesThatAreNoNumberBendNothing()
{
    QFETCH(int, type);
    QFETCH(bool, acrossColumns);
    COMPARE_NETS(bent(SurfaceType(type), acrossColumns, std::numeric_limits<float>::quiet_NaN()),
                 flatNet(netWidth, netHeight));
}

void TestSurfaces::shortNetsStayAsTheyAre()
{
    Net none;
    QVERIFY(getSurFacePoint(SurfaceArc, none, 0.5f).isEmpty());
    Net few{{QPointF(1, 2), QPointF(3, 4)}};
    const Net before = few;
    QCOMPARE(getSurFacePointV(SurfaceTwist, few, 0.5f), before);
    QCOMPARE(few, before);
}

QTEST_APPLESS_MAIN(TestSurfaces)
#include "tst_surfaces.moc"
