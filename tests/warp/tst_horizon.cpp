// SPDX-License-Identifier: MIT
#include "tests/warp/expectednets.h"
#include "tests/warp/nets.h"
#include "warp/horizon.h"
#include "warp/surfaces.h"

#include <cmath>
#include <iterator>
#include <limits>

namespace {

/// 300 by 90: thirds of 100 and 30, the middles at 150 and 45.
Net spread(float rowValue, float columnValue)
{
    Net net = flatNet(300, 90);
    setHorizon(net, rowValue, columnValue);
    return net;
}

/// As text with four places, so that a failure shows both.
QString listOf(const QVector<double> &numbers)
{
    QStringList list;
    for (double number : numbers)
        list.append(QString::number(std::round(number * 10000) / 10000));
    return list.join(QLatin1Char(' '));
}

QString xOfRow(const Net &net, int row)
{
    QVector<double> x;
    for (int column = 0; column < 4; ++column)
        x.append(net.first().at(4 * row + column).x());
    return listOf(x);
}

QString yOfColumn(const Net &net, int column)
{
    QVector<double> y;
    for (int row = 0; row < 4; ++row)
        y.append(net.first().at(4 * row + column).y());
    return listOf(y);
}

} // namespace

class TestHorizon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void zeroLeavesTheNetAsItIs_data();
    void zeroLeavesTheNetAsItIs();
    void numbersAreExact_data();
    void numbersAreExact();
    void aPositiveRowValueNarrowsUpward();
    void aPositiveColumnValueNarrowsToTheLeft();
    void oneCollapsesALineAndDoublesTheOther();
    void beyondOneALineTurnsInsideOut();
    void aBentRowMovesInBothCoordinates();
    void columnsSeeWhatTheRowsBecame();
    void badNetsAndValuesEnd();
};

void TestHorizon::zeroLeavesTheNetAsItIs_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < int(std::size(ExpectedNets)); ++index)
        QTest::newRow(QByteArray::number(index).constData()) << index;
}

void TestHorizon::zeroLeavesTheNetAsItIs()
{
    QFETCH(int, index);
    const Net before = netOf(ExpectedNets[index].points);
    Net net = before;
    setHorizon(net, 0.0f, 0.0f);
    QCOMPARE(difference(net, before), QString());
}

void TestHorizon::numbersAreExact_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("flat") << 0;
    QTest::newRow("arc") << 1;
    QTest::newRow("flag across columns, inside out") << 2;
    QTest::newRow("twist, rows alone") << 3;
    QTest::newRow("upper shell across columns, columns alone") << 4;
}

void TestHorizon::numbersAreExact()
{
    QFETCH(int, index);
    const ExpectedHorizon &row = ExpectedHorizons[index];
    Net net = flatNet(310, 95);
    if (row.acrossColumns)
        getSurFacePointV(row.type, net, row.value);
    else
        getSurFacePoint(row.type, net, row.value);
    setHorizon(net, row.rowValue, row.columnValue);
    COMPARE_NETS(net, netOf(row.points));
}

void TestHorizon::aPositiveRowValueNarrowsUpward()
{
    const Net net = spread(0.5f, 0);
    QCOMPARE(xOfRow(net, 0), listOf({75, 125, 175, 225}));
    QCOMPARE(xOfRow(net, 1), listOf({24.975, 108.325, 191.675, 275.025}));
    QCOMPARE(xOfRow(net, 2), listOf({-24.975, 91.675, 208.325, 324.975}));
    QCOMPARE(xOfRow(net, 3), listOf({-75, 75, 225, 375}));
    for (int column = 0; column < 4; ++column)
        QCOMPARE(yOfColumn(net, column), listOf({0, 30, 60, 90}));
}

void TestHorizon::aPositiveColumnValueNarrowsToTheLeft()
{
    const Net net = spread(0, 0.5f);
    QCOMPARE(yOfColumn(net, 0), listOf({22.5, 37.5, 52.5, 67.5}));
    QCOMPARE(yOfColumn(net, 1), listOf({7.4925, 32.4975, 57.5025, 82.5075}));
    QCOMPARE(yOfColumn(net, 2), listOf({-7.4925, 27.5025, 62.4975, 97.4925}));
    QCOMPARE(yOfColumn(net, 3), listOf({-22.5, 22.5, 67.5, 112.5}));
    for (int row = 0; row < 4; ++row)
        QCOMPARE(xOfRow(net, row), listOf({0, 100, 200, 300}));
}

void TestHorizon::oneCollapsesALineAndDoublesTheOther()
{
    const Net net = spread(1, 0);
    QCOMPARE(xOfRow(net, 0), listOf({150, 150, 150, 150}));
    QCOMPARE(xOfRow(net, 3), listOf({-150, 50, 250, 450}));
    const Net reverse = spread(-1, 0);
    QCOMPARE(xOfRow(reverse, 0), listOf({-150, 50, 250, 450}));
    QCOMPARE(xOfRow(reverse, 3), listOf({150, 150, 150, 150}));
}

void TestHorizon::beyondOneALineTurnsInsideOut()
{
    QCOMPARE(xOfRow(spread(2, 0), 0), listOf({300, 200, 100, 0}));
    QCOMPARE(xOfRow(spread(-3, 0), 3), listOf({450, 250, 50, -150}));
    QCOMPARE(yOfColumn(spread(0, 2), 0), listOf({90, 60, 30, 0}));
}

// The ends lie at height 0, the inner points at 40: these move away from 0 too.
void TestHorizon::aBentRowMovesInBothCoordinates()
{
    Net net = flatNet(300, 90);
    net.first()[1].setY(40);
    net.first()[2].setY(40);
    setHorizon(net, 0.5f, 0);
    QCOMPARE(net.first().at(1), QPointF(125, 20));
    QCOMPARE(net.first().at(2), QPointF(175, 20));
    Net turned = flatNet(300, 90);
    turned.first()[7].setX(360);
    setHorizon(turned, 0, 0.5f);
    QCOMPARE(turned.first().at(7), QPointF(390, 22.5));
}

// Rows first: the right side of a net that spreads downward is no longer upright, so that its points
// move sideways in the pass of the columns. Turned round, the same values give another net.
void TestHorizon::columnsSeeWhatTheRowsBecame()
{
    const Net net = spread(1, 1);
    // The ends of column 3 lie at 150 and 450 then, its middle at (300, 45), away from which it moves.
    QCOMPARE(net.first().at(3), QPointF(150 - 150, 0 - 45));
    QCOMPARE(net.first().at(15), QPointF(450 + 150, 90 + 45));
    // Column 0 collapses onto its middle, between 150 and -150.
    QCOMPARE(net.first().at(0), QPointF(0, 45));
    QCOMPARE(net.first().at(12), QPointF(0, 45));
    QVERIFY(!difference(spread(0.25f, 0.75f), spread(0.75f, 0.25f)).isEmpty());
}

void TestHorizon::badNetsAndValuesEnd()
{
    Net none;
    setHorizon(none, 1, 1);
    QVERIFY(none.isEmpty());
    Net few{{QPointF(1, 2)}};
    setHorizon(few, 1, 1);
    QCOMPARE(few.first().first(), QPointF(1, 2));
    for (float value : {std::numeric_limits<float>::quiet_NaN(),
                        std::numeric_limits<float>::infinity(), std::numeric_limits<float>::max()})
        QCOMPARE(spread(value, -value).first().size(), 16);
}

QTEST_APPLESS_MAIN(TestHorizon)
#include "tst_horizon.moc"
