// SPDX-License-Identifier: MIT
// The arithmetic of a warp on outlines made by hand. Every expected number was computed by another program.
#include "tests/wordprocess/openword.h"
#include "tests/wordprocess/warpoutline.h"

#include <QtTest>

#include <limits>

Q_DECLARE_METATYPE(QList<QPainterPath>)

class TestWarping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // the walk over the elements
    void elementsAreCarriedOverTheSurface_data();
    void elementsAreCarriedOverTheSurface();
    void subpathsOfOneOutlineAndOfTwoAreTheSame();

    // net, placement, box
    void resultIsPlaced_data();
    void resultIsPlaced();
    void valueOfALowerArcCountsNegated_data();
    void valueOfALowerArcCountsNegated();
    void verticalValueSkewsTheRows();
    void everythingMovesOneDown();
    void centredTextMovesByHalfGapsAndOtherTextByWholeNumbers();
    void everyStyleIsFlatWithoutAValue_data();
    void everyStyleIsFlatWithoutAValue();
    void extremesAreThoseOfThePoints();
    void extremesSeeControlPoints();
    void extremesStartNoFurtherThan99999();

    // when there is no warp
    void withoutAStyleNothingIsTouched();
    void ownStyleDecidesAndNotTheArgument();
    void nothingToMoveIsNoWarp_data();
    void nothingToMoveIsNoWarp();
    void boundsAreRemembered();
    void sumOfAllOutlinesIsMeasured();

    // straight segments
    void linesAreDoubled_data();
    void linesAreDoubled();
    void doublingIsThatOfAddPath();

    // bad input
    void badWarpGivesAFiniteBox_data();
    void badWarpGivesAFiniteBox();
    void outlinesInDisorderAreCarried_data();
    void outlinesInDisorderAreCarried();
    void manyLinesTakeLinearTime();
};

namespace {
const QSizeF box(90, 60);
const QRectF inkOfBox(5, 5, 80, 50);

/// An object with a warp of style 11 and value 0.5, the left half of the box 50 lower.
struct Warp {
    OpenWord word;
    QRectF outRect{1, 2, 3, 4};
    QRectF reserved{5, 6, 7, 8};

    explicit Warp(int style = SurfaceRise, double value = 0.5)
    {
        word.m_warpStyle = style;
        word.m_warpValue = value;
    }

    bool transform(QList<QPainterPath> &paths, const QSizeF &size = box,
                   const QRectF &bounds = inkOfBox)
    {
        return word.textTransform(QRectF(QPointF(0, 0), size), bounds, outRect, paths, reserved,
                                  SurfaceType(word.m_warpStyle));
    }
};

QString words(const char *text)
{
    return QString::fromLatin1(text);
}
} // namespace

void TestWarping::elementsAreCarriedOverTheSurface_data()
{
    QTest::addColumn<QString>("outlines");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("move and line")
        << "M 10 10 L 60 40"
        << "M 10 59.28532235939644 L 60 53.96296296296297";
    QTest::newRow("move and two lines")
        << "M 10 10 L 60 40 L 80 5"
        << "M 10 59.28532235939644 L 60 53.96296296296297 L 80 7.714677640603568";
    QTest::newRow("move and curve")
        << "M 10 10 C 20 0 D 50 60 D 70 30"
        << "M 10 59.28532235939644 C 20.01001032069327 49.381732560598465 D "
           "49.88999545574187 79.65902480463703 D 70 37.31001371742112";
    QTest::newRow("curve behind a curve")
        << "M 10 10 C 20 0 D 50 60 D 70 30 C 75 40 D 60 50 D 15 55"
        << "M 10 59.28532235939644 C 20.01001032069327 49.381732560598465 D "
           "49.88999545574187 79.65902480463703 D 70 37.31001371742112 C "
           "74.95003693426644 42.97213842909857 D 60.14239817236863 "
           "64.72080803343432 D 15 102.29629629629629";
    QTest::newRow("curve behind a line")
        << "M 10 10 L 60 40 C 70 45 D 30 50 D 20 30"
        << "M 10 59.28532235939644 L 60 53.96296296296297 C 69.9799762542049 "
           "49.75585827158565 D 30.105019186933852 89.89062361477073 D 20 "
           "74.68998628257887";
    QTest::newRow("line behind a curve")
        << "M 10 10 C 20 0 D 50 60 D 70 30 L 30 50"
        << "M 10 59.28532235939644 C 20.01001032069327 49.381732560598465 D "
           "49.88999545574187 79.65902480463703 D 70 37.31001371742112 L 30 "
           "88.03703703703705";
    QTest::newRow("two subpaths")
        << "M 10 10 L 60 40 M 5 50 C 20 0 D 50 60 D 70 30"
        << "M 10 59.28532235939644 L 60 53.96296296296297 M 5 100.55418381344307 C "
           "20.005010065312177 51.093317013982514 D 49.88999060665571 "
           "79.06564275060056 D 70 37.31001371742112";
    QTest::newRow("two outlines")
        << "M 10 10 L 60 40 | M 5 50 C 20 0 D 50 60 D 70 30"
        << "M 10 59.28532235939644 L 60 53.96296296296297 | M 5 100.55418381344307 "
           "C 20.005010065312177 51.093317013982514 D 49.88999060665571 "
           "79.06564275060056 D 70 37.31001371742112";
    QTest::newRow("beyond the box")
        << "M -20 -30 L 150 100 C 200 0 D 95 -10 D 40 75"
        << "M 0 181.49519890260632 L 170.00000000000014 366.2962962962963 C "
           "219.8949669611952 453.21740973394077 D 115.34745338062439 "
           "0.12633665006612205 D 60 274.14951989026065";
    QTest::newRow("two moves in a row")
        << "M 33 44 M 10 10 L 60 40"
        << "M 33 45 M 10 59.28532235939644 L 60 53.96296296296297";
    QTest::newRow("a move at the end")
        << "M 10 10 L 60 40 M 33 44"
        << "M 10 59.28532235939644 L 60 53.96296296296297 M 33 45";
    QTest::newRow("stray data")
        << "M 10 10 L 60 40 D 33 44 L 80 5"
        << "M 10 59.28532235939644 L 60 53.96296296296297 D 33 45 L 80 "
           "7.714677640603568";
    QTest::newRow("half a curve")
        << "M 10 10 L 60 40 C 33 44 D 80 5"
        << "M 10 59.28532235939644 L 60 53.96296296296297 C 33 45 D 80 6";
    QTest::newRow("one element and a line")
        << "M 33 44 | M 10 10 L 60 40"
        << "M 33 45 | M 10 59.28532235939644 L 60 53.96296296296297";
    // clang-format on
}

void TestWarping::elementsAreCarriedOverTheSurface()
{
    QFETCH(QString, outlines);
    QFETCH(QString, expected);
    Warp warp;
    QList<QPainterPath> paths = outlinesOf(outlines);
    QVERIFY(warp.transform(paths));
    QCOMPARE(wordsOf(paths), wordsOf(outlinesOf(expected)));
    QCOMPARE(warp.reserved, QRectF(5, 6, 7, 8));
}

void TestWarping::subpathsOfOneOutlineAndOfTwoAreTheSame()
{
    const QString one = words("M 10 10 L 60 40");
    const QString two = words("M 5 50 C 20 0 D 50 60 D 70 30 L 30 50");
    Warp warp;
    QList<QPainterPath> together = outlinesOf(one + QLatin1Char(' ') + two);
    QList<QPainterPath> apart = outlinesOf(one + QLatin1Char('|') + two);
    QVERIFY(warp.transform(together));
    QVERIFY(warp.transform(apart));
    QCOMPARE(wordsOf(together), wordsOf(apart.first()) + QLatin1Char(' ') + wordsOf(apart.last()));
}

void TestWarping::resultIsPlaced_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("value");
    QTest::addColumn<QPointF>("skew"); // horizontal and vertical value
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QRectF>("outRect");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("flat")
        << 11 << 0.0 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, 0, 89, 59)
        << "M 5 6.000000000000001 L 85.00000000000001 11.000000000000004 C "
           "79.9949778585384 31.014956202358004 D 40.10503306364021 "
           "20.93258202448488 D 30 56 L 5 6.000000000000001";
    QTest::newRow("flat, odd sides")
        << 11 << 0.0 << QPointF(0, 0) << 1 << QSizeF(100, 50)
        << QRectF(0, 0, 99, 49)
        << "M 4.950125 5.829000000000001 L 84.76412499999998 10.712 C "
           "79.59305715991073 30.605124995522914 D 39.679038056330114 "
           "20.39588996957111 D 29.727 56.09900000000001 L 4.950125 "
           "5.829000000000001";
    QTest::newRow("number without a style")
        << 99 << 0.7 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, 0, 89, 59)
        << "M 5 6.000000000000001 L 85.00000000000001 11.000000000000004 C "
           "79.9949778585384 31.014956202358004 D 40.10503306364021 "
           "20.93258202448488 D 30 56 L 5 6.000000000000001";
    QTest::newRow("number below 0")
        << -1 << 0.7 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, 0, 89, 59)
        << "M 5 6.000000000000001 L 85.00000000000001 11.000000000000004 C "
           "79.9949778585384 31.014956202358004 D 40.10503306364021 "
           "20.93258202448488 D 30 56 L 5 6.000000000000001";
    QTest::newRow("rise")
        << 11 << 0.5 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, 31, 89, 91)
        << "M 5 55.554183813443075 L 85.00000000000001 11.44581618655694 C "
           "79.9949778585384 26.4144015728735 D 40.10503306364021 "
           "49.81347091454138 D 30 93.03703703703705 L 5 55.554183813443075";
    QTest::newRow("rise, negative")
        << 11 << -0.5 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, 0, 89, 88)
        << "M 5 0.44581618655692523 L 85.00000000000001 54.55418381344309 C "
           "79.9949778585384 79.6155108318425 D 40.10503306364021 "
           "36.05169313442836 D 30 62.96296296296297 L 5 0.44581618655692523";
    QTest::newRow("rise, vertical")
        << 11 << 0.5 << QPointF(0, 0) << 2 << QSizeF(90, 60)
        << QRectF(-26, 0, 110, 59)
        << "M 28.891203703703702 4.750000000000001 L 106.17129629629628 "
           "9.750000000000004 C 84.8165894837505 29.764956202358004 D "
           "45.57878818777243 19.68258202448488 D 5.8587962962962905 54.75 L "
           "28.891203703703702 4.750000000000001";
    QTest::newRow("rise, vertical, negative")
        << 11 << -0.5 << QPointF(0, 0) << 2 << QSizeF(90, 60)
        << QRectF(48, 0, 103, 59)
        << "M 4.858796296296298 4.750000000000001 L 87.57870370370371 "
           "9.750000000000004 C 98.92336623332632 29.764956202358004 D "
           "58.381277939507946 19.68258202448488 D 77.89120370370371 54.75 L "
           "4.858796296296298 4.750000000000001";
    QTest::newRow("orientation 3")
        << 11 << 0.5 << QPointF(0, 0) << 3 << QSizeF(90, 60)
        << QRectF(0, 31, 89, 91)
        << "M 5 55.554183813443075 L 85.00000000000001 11.44581618655694 C "
           "79.9949778585384 26.4144015728735 D 40.10503306364021 "
           "49.81347091454138 D 30 93.03703703703705 L 5 55.554183813443075";
    QTest::newRow("orientation 0")
        << 11 << 0.5 << QPointF(0, 0) << 0 << QSizeF(90, 60)
        << QRectF(0, 31, 89, 91)
        << "M 5 55.554183813443075 L 85.00000000000001 11.44581618655694 C "
           "79.9949778585384 26.4144015728735 D 40.10503306364021 "
           "49.81347091454138 D 30 93.03703703703705 L 5 55.554183813443075";
    QTest::newRow("lower arc")
        << 2 << 0.4 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, 0, 89, 67)
        << "M 4.997443154788094 6.106492520605095 L 85.00635272070978 "
           "11.216150299511822 C 80.02349168926273 32.74861585980875 D "
           "40.32560750573208 23.528664022348664 D 29.702414215346913 "
           "64.05782507084034 L 4.997443154788094 6.106492520605095";
    QTest::newRow("lower arc, negative")
        << 2 << -0.4 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, -8, 89, 51)
        << "M 4.998081448777086 5.90794825474176 L 85.00497617637615 "
           "10.812068185197967 C 80.00733949694438 29.36387229017057 D "
           "40.32891936519684 18.928004162145363 D 29.70531423297929 "
           "48.04905125388393 L 4.998081448777086 5.90794825474176";
    QTest::newRow("arch")
        << 4 << 0.5 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, -9, 90, 50)
        << "M 4.533607609478044 2.851851851851853 L 85.46639269075276 "
           "7.851851851851849 C 82.02675934024204 21.364922853958404 D "
           "39.872741327368885 1.2748312203442094 D 29.25925954182943 "
           "42.66666666666668 L 4.533607609478044 2.851851851851853";
    QTest::newRow("arch, negative")
        << 4 << -0.5 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, 0, 90, 69)
        << "M 4.533607609478044 9.14814814814815 L 85.46639269075276 "
           "14.148148148148147 C 82.02675934024204 40.66498955075761 D "
           "39.872741327368885 40.59033282862555 D 29.25925954182943 "
           "69.33333333333333 L 4.533607609478044 9.14814814814815";
    QTest::newRow("squeeze")
        << 14 << 0.5 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(-7, 0, 67, 65)
        << "M 5.5956218564243265 5.683856286905677 L 63.83750571559216 "
           "10.95480108015822 C 46.95597032916258 30.93756593932096 D "
           "42.56705301476164 19.966014322265494 D 25.251543209876544 "
           "61.26543219663479 L 5.5956218564243265 5.683856286905677";
    QTest::newRow("squeeze, negative")
        << 14 << -0.5 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(3, 0, 101, 56)
        << "M 5.014689071787836 5.283071856547163 L 95.89374714220395 "
           "10.147599459920894 C 96.82698162322636 30.17865133387653 D "
           "39.18652308807947 20.540865875594562 D 32.68672839506172 "
           "52.49228390168262 L 5.014689071787836 5.283071856547163";
    QTest::newRow("squeeze, vertical")
        << 14 << 0.5 << QPointF(0, 0) << 2 << QSizeF(90, 60)
        << QRectF(4, -2, 112, 46)
        << "M 5.373399634202102 5.173053840877916 L 98.05972793781436 "
           "9.557270233196155 C 107.76966765700848 29.64538857759402 D "
           "37.2679697423312 21.58387217224344 D 32.6682098765432 "
           "42.48765432098765 L 5.373399634202102 5.173053840877916";
    QTest::newRow("flag")
        << 8 << 0.7 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, -2, 89, 57)
        << "M 5 2.0823045267489726 L 85.00000000000001 14.91769547325103 C "
           "79.9949778585384 48.08190864525616 D 40.10503306364021 "
           "18.98132449645903 D 30 49.777777777777786 L 5 2.0823045267489726";
    QTest::newRow("flag, vertical")
        << 8 << 0.7 << QPointF(0, 0) << 2 << QSizeF(90, 60)
        << QRectF(23, 0, 90, 59)
        << "M 4.8125 4.750000000000001 L 73.875 9.750000000000004 C "
           "66.37936989707947 29.764956202358004 D 85.07817757094567 "
           "19.68258202448488 D 77.9375 54.75 L 4.8125 4.750000000000001";
    QTest::newRow("horizontal value")
        << 11 << 0.0 << QPointF(0.3, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, -2, 89, 57)
        << "M 5 12.666317137323619 L 85.00000000000001 5.66694629014111 C "
           "79.9949778585384 30.84328661902818 D 40.10503306364021 "
           "23.215997069885592 D 30 53.50055545623656 L 5 12.666317137323619";
    QTest::newRow("vertical value")
        << 11 << 0.0 << QPointF(0, 0.3) << 1 << QSizeF(90, 60)
        << QRectF(-7, 0, 74, 59)
        << "M 14.999236508445055 6.000000000000001 L 77.00111079326382 "
           "11.000000000000004 C 79.73709173101332 31.014956202358004 D "
           "43.53065354071482 20.93258202448488 D 26.2502863093331 56 L "
           "14.999236508445055 6.000000000000001";
    QTest::newRow("both values")
        << 8 << 0.25 << QPointF(0.3, -0.6) << 1 << QSizeF(90, 60)
        << QRectF(17, -6, 124, 53)
        << "M -0.19347852647076458 10.646224118385982 L 114.64148373390977 "
           "7.688607585836849 C 88.25368005386119 38.227672405902496 D "
           "43.88077223507118 21.186985588673796 D 43.75013719408985 "
           "52.056384923768 L -0.19347852647076458 10.646224118385982";
    QTest::newRow("both values, exchanged")
        << 8 << 0.25 << QPointF(-0.6, 0.3) << 1 << QSizeF(90, 60)
        << QRectF(-9, 15, 70, 75)
        << "M 20.8042309988644 0.696575302980353 L 81.64481611370125 "
           "31.84837910729923 C 78.48002167128588 45.965465204538525 D "
           "45.15763366629494 25.47124702467268 D 23.50099612208916 "
           "66.88817913698418 L 20.8042309988644 0.696575302980353";
    QTest::newRow("inside out")
        << 8 << 0.25 << QPointF(0, -2.5) << 1 << QSizeF(90, 60)
        << QRectF(74, 6, 239, 66)
        << "M -0.326967592592581 1.686093726185034 L 229.65740740740742 "
           "14.730814662399041 C 160.14402883585188 42.04700714035057 D "
           "89.55819688903469 14.306519648728148 D 139.24761284722223 "
           "58.407053755144034 L -0.326967592592581 1.686093726185034";
    QTest::newRow("broken sides")
        << 8 << 0.7 << QPointF(0, 0) << 1 << QSizeF(90.75, 61.5)
        << QRectF(0, -3, 89, 58)
        << "M 4.958677685950414 1.9873638030097556 L 84.29752066115702 "
           "15.11376508973251 C 79.3338623390464 47.37443624886502 D "
           "39.77358650939523 17.933435383080464 D 29.75206611570248 "
           "49.07507836375726 L 4.958677685950414 1.9873638030097556";
    QTest::newRow("broken sides, vertical")
        << 8 << 0.7 << QPointF(0, 0) << 2 << QSizeF(90.75, 61.5)
        << QRectF(23, 0, 87, 60)
        << "M 4.566246496617698 6.378586164406162 L 72.81616156886295 "
           "11.260396632322461 C 65.64871222680404 30.954763220775526 D "
           "75.57481160080317 20.706094295977508 D 81.17838392885089 "
           "55.87379458069814 L 4.566246496617698 6.378586164406162";
    QTest::newRow("beyond the limit")
        << 8 << 7.0 << QPointF(0, 0) << 1 << QSizeF(90, 60)
        << QRectF(0, 4, 89, 64)
        << "M 5 0.4312758269133393 L 85.00000000000001 16.56872417308665 C "
           "79.9949778585384 55.27440956686846 D 40.10503306364021 "
           "18.159008877101492 D 30 47.15555572509766 L 5 0.4312758269133393";
    // clang-format on
}

void TestWarping::resultIsPlaced()
{
    QFETCH(int, style);
    QFETCH(double, value);
    QFETCH(QPointF, skew);
    QFETCH(int, orientation);
    QFETCH(QSizeF, size);
    QFETCH(QRectF, outRect);
    QFETCH(QString, expected);
    Warp warp(style, value);
    warp.word.m_warpHorizontalValue = skew.x();
    warp.word.m_warpVerticalValue = skew.y();
    warp.word.m_warpOrientation = orientation;
    QList<QPainterPath> paths = outlinesOf(words("M 5 5 L 85 10 C 80 30 D 40 20 D 30 55 L 5 5"));
    QVERIFY(warp.transform(paths, size, QRectF(5, 5, 80.25, 50.5)));
    QCOMPARE(wordsOf(paths), wordsOf(outlinesOf(expected)));
    QCOMPARE(warp.outRect, outRect);
}

void TestWarping::valueOfALowerArcCountsNegated_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("staysOnTop");
    QTest::newRow("lower arc, positive") << int(SurfaceArcLower) << 0.4 << true;
    QTest::newRow("lower arc, negative") << int(SurfaceArcLower) << -0.4 << false;
    QTest::newRow("upper arc, positive") << int(SurfaceArcUpper) << 0.4 << false;
    QTest::newRow("upper arc, negative") << int(SurfaceArcUpper) << -0.4 << true;
    QTest::newRow("rise, positive") << int(SurfaceRise) << 0.4 << false;
    QTest::newRow("rise, negative") << int(SurfaceRise) << -0.4 << true;
}

void TestWarping::valueOfALowerArcCountsNegated()
{
    QFETCH(int, style);
    QFETCH(double, value);
    QFETCH(bool, staysOnTop);
    Warp warp(style, value);
    QList<QPainterPath> paths = outlinesOf(words("M 30 5 L 60 5 L 60 55 L 30 55"));
    QVERIFY(warp.transform(paths, box, QRectF(30, 5, 30, 50)));
    QCOMPARE(warp.outRect.y() == 0.0, staysOnTop);
}

/// The bottom of the net grows by 1 + v about its middle, the top shrinks by 1 - v.
void TestWarping::verticalValueSkewsTheRows()
{
    Warp warp(99);
    warp.word.m_warpVerticalValue = 0.5;
    QList<QPainterPath> paths = outlinesOf(words("M 0 0 L 90 0 L 90 60 L 0 60"));
    QVERIFY(warp.transform(paths, box, QRectF(0, 0, 90, 60)));
    // Top from 22.5 to 67.5, bottom from -22.5 to 112.5; moved by (22, 1).
    QCOMPARE(wordsOf(paths), words("M 44.5 1 L 89.5 1 L 134.5 61 L -0.5 61"));
    QCOMPARE(warp.outRect, QRectF(22, 0, 135, 60));
    warp.word.m_warpVerticalValue = 0;
    warp.word.m_warpHorizontalValue = 0.5;
    paths = outlinesOf(words("M 0 0 L 90 0 L 90 60 L 0 60"));
    QVERIFY(warp.transform(paths, box, QRectF(0, 0, 90, 60)));
    // Left from 15 to 45, right from -15 to 75; moved by (0, 16).
    QCOMPARE(wordsOf(paths), words("M 0 31 L 90 1 L 90 91 L 0 61"));
    QCOMPARE(warp.outRect, QRectF(0, 30, 90, 90));
}

void TestWarping::everythingMovesOneDown()
{
    Warp warp(99);
    QList<QPainterPath> paths = outlinesOf(words("M 0 0 L 90 60 | M 7 8"));
    QVERIFY(warp.transform(paths, box, QRectF(0, 0, 90, 60)));
    QCOMPARE(wordsOf(paths), words("M 0 1 L 90 61 | M 7 9"));
    QCOMPARE(warp.outRect, QRectF(0, 0, 90, 60));
}

void TestWarping::centredTextMovesByHalfGapsAndOtherTextByWholeNumbers()
{
    const QRectF ink(0, 0, 79, 50.5); // leaves 11 and 9.5 of the box
    Warp centred(SurfaceSqueeze, 0);
    QList<QPainterPath> paths = outlinesOf(words("M 0 0 L 90 60"));
    QVERIFY(centred.transform(paths, box, ink));
    QCOMPARE(wordsOf(paths), words("M 5.5 4.75 L 95.5 64.75"));
    QCOMPARE(centred.outRect, QRectF(5, 4, 101, 69));

    Warp other(SurfaceBulge, 0);
    paths = outlinesOf(words("M 0 0 L 90 60"));
    QVERIFY(other.transform(paths, box, ink));
    QCOMPARE(wordsOf(paths), words("M 0 1 L 90 61"));
    QCOMPARE(other.outRect, QRectF(5, 9, 101, 69));
}

void TestWarping::everyStyleIsFlatWithoutAValue_data()
{
    QTest::addColumn<int>("style");
    for (int style = SurfaceArc; style <= SurfaceTwist; ++style)
        QTest::addRow("style %d", style) << style;
}

/// The thirds of this box are whole, so that its corners and the points of its net stay exactly.
void TestWarping::everyStyleIsFlatWithoutAValue()
{
    QFETCH(int, style);
    for (int orientation : {1, 2}) {
        Warp warp(style, 0);
        warp.word.m_warpOrientation = orientation;
        QList<QPainterPath> paths = outlinesOf(words("M 0 0 L 90 0 L 90 60 L 0 60 L 0 0"));
        QVERIFY(warp.transform(paths, box, QRectF(0, 0, 90, 60)));
        const bool isCentred = orientation == 2 || style == SurfaceSqueeze;
        QCOMPARE(wordsOf(paths), isCentred ? words("M 0 0 L 90 0 L 90 60 L 0 60 L 0 0")
                                           : words("M 0 1 L 90 1 L 90 61 L 0 61 L 0 1"));
        QCOMPARE(warp.outRect, QRectF(0, 0, 90, 60));

        paths = outlinesOf(words("M 30 20 L 60 40"));
        QVERIFY(warp.transform(paths, box, QRectF(30, 20, 30, 20)));
        const QPointF way = QPointF(paths.first().elementAt(1)) - paths.first().elementAt(0);
        QVERIFY(qAbs(way.x() - 30) < 1e-9 && qAbs(way.y() - 20) < 1e-9);
    }
}

void TestWarping::extremesAreThoseOfThePoints()
{
    Warp warp(99);
    QList<QPainterPath> paths = outlinesOf(words("M 0 60 L 90 0"));
    QVERIFY(warp.transform(paths));
    QCOMPARE(warp.word.m_warpMin, QPointF(0, 0)); // as they were ahead of the placement
    QCOMPARE(warp.word.m_warpMax, QPointF(90, 60));

    QPainterPath path = outlineOf(words("M 1 2 L 3 4"));
    warp.word.setPathElementPos(path, 1, QPointF(-5, 70));
    QCOMPARE(wordsOf(path), words("M 1 2 L -5 70"));
    QCOMPARE(warp.word.m_warpMin, QPointF(-5, 0));
    QCOMPARE(warp.word.m_warpMax, QPointF(90, 70));
}

/// The curve stays within 0 and 60, its control points do not: the box is that of the control polygon.
void TestWarping::extremesSeeControlPoints()
{
    Warp warp(99);
    QList<QPainterPath> paths = outlinesOf(words("M 0 30 C 30 -60 D 60 120 D 90 30"));
    QVERIFY(warp.transform(paths, box, QRectF(0, 0, 90, 60)));
    QVERIFY(warp.word.m_warpMin.y() < -50);
    QVERIFY(warp.word.m_warpMax.y() > 110);
    QVERIFY(warp.outRect.height() > paths.first().boundingRect().height() + 50);
}

void TestWarping::extremesStartNoFurtherThan99999()
{
    OpenWord fresh;
    QCOMPARE(fresh.m_warpMin, QPointF(99999, 99999));
    QCOMPARE(fresh.m_warpMax, QPointF(-99999, -99999));
    // All of it right of the start: the left extreme stays there.
    Warp warp(99);
    QList<QPainterPath> paths = outlinesOf(words("M 150000 0 L 240000 60"));
    QVERIFY(warp.transform(paths));
    QCOMPARE(warp.word.m_warpMin.x(), 99999.0);
    // All of it left of the other start: nothing seems to have been written.
    paths = outlinesOf(words("M -150000 0 L -240000 60"));
    QVERIFY(!warp.transform(paths));
    QCOMPARE(warp.word.m_warpMax.x(), -99999.0);
}

void TestWarping::withoutAStyleNothingIsTouched()
{
    Warp warp(SurfaceNone, 0.5);
    warp.word.m_warpHorizontalValue = 0.5;
    warp.word.m_warpVerticalValue = 0.5;
    warp.word.m_warpMin = QPointF(1, 2);
    QList<QPainterPath> paths = outlinesOf(words("M 0 0 L 90 60"));
    QVERIFY(!warp.transform(paths));
    QCOMPARE(wordsOf(paths), words("M 0 0 L 90 60"));
    QCOMPARE(warp.outRect, QRectF(1, 2, 3, 4));
    QCOMPARE(warp.word.m_warpMin, QPointF(1, 2));
    QCOMPARE(warp.word.m_warpBounds, QRectF());
}

void TestWarping::ownStyleDecidesAndNotTheArgument()
{
    Warp warp(SurfaceNone, 0.5);
    QList<QPainterPath> paths = outlinesOf(words("M 0 0 L 90 60"));
    QVERIFY(!warp.word.textTransform(QRectF(QPointF(), box), inkOfBox, warp.outRect, paths,
                                     warp.reserved, SurfaceRise));
    warp.word.m_warpStyle = SurfaceRise;
    warp.word.m_warpVerticalValue = 0.5; // no skew either for a type of 0
    QVERIFY(warp.word.textTransform(QRectF(QPointF(), box), inkOfBox, warp.outRect, paths,
                                    warp.reserved, SurfaceNone));
    QCOMPARE(wordsOf(paths), words("M 0 1 L 90 61"));
}

void TestWarping::nothingToMoveIsNoWarp_data()
{
    QTest::addColumn<QList<QPainterPath>>("paths");
    QTest::newRow("no outlines") << QList<QPainterPath>();
    QTest::newRow("an empty outline") << QList<QPainterPath>{QPainterPath()};
    QTest::newRow("one element each") << outlinesOf(words("M 5 5 | M 6 6"));
    QTest::newRow("moves only") << outlinesOf(words("M 5 5 M 6 6"));
}

void TestWarping::nothingToMoveIsNoWarp()
{
    QFETCH(QList<QPainterPath>, paths);
    Warp warp;
    QVERIFY(!warp.transform(paths));
    QPointF pos;
    QSizeF size;
    QVERIFY(!warp.word.textMorphing(paths, QRectF(QPointF(), box), pos, size));

    warp.word.m_textPaths = paths;
    warp.word.m_textPathsRect = QRectF(QPointF(), box);
    warp.word.updateMorphTextPaths();
    QVERIFY(warp.word.m_morphPaths.isEmpty());
    QCOMPARE(warp.word.m_morphRect, QRectF(0, 0, 0, 0));
    QCOMPARE(warp.word.m_clientRect.size(), box); // the plain box
}

void TestWarping::boundsAreRemembered()
{
    Warp warp;
    QList<QPainterPath> paths = outlinesOf(words("M 0 0 L 90 60"));
    warp.transform(paths);
    QCOMPARE(warp.word.m_warpBounds, inkOfBox);
}

void TestWarping::sumOfAllOutlinesIsMeasured()
{
    Warp warp(99);
    QList<QPainterPath> paths = outlinesOf(words("M 10 20 L 30 25 | M 40 -5 L 80 30"));
    QPointF pos;
    QSizeF size;
    QVERIFY(warp.word.textMorphing(paths, QRectF(QPointF(), box), pos, size));
    QCOMPARE(warp.word.m_warpBounds, QRectF(10, -5, 70, 35));
    // As wide and high as the box again: the gap that the outlines left is put back.
    QCOMPARE(size, box);
    QCOMPARE(pos, QPointF(0, 0));
    QCOMPARE(paths.size(), 2);
}

void TestWarping::linesAreDoubled_data()
{
    QTest::addColumn<QString>("outline");
    QTest::addColumn<QString>("types");
    QTest::newRow("a line") << words("M 0 0 L 90 60") << words("ML MCDD");
    QTest::newRow("two lines") << words("M 0 0 L 90 60 L 3 4") << words("MLL MCDD MCDD");
    QTest::newRow("a curve") << words("M 0 0 C 1 2 D 3 4 D 5 6") << words("MCDD");
    QTest::newRow("line and curve")
        << words("M 0 0 L 90 0 C 1 2 D 3 4 D 5 6") << words("MLCDD MCDD");
    QTest::newRow("a line of no length") << words("M 5 5 L 5 5 L 90 60") << words("MLL MCDD");
    QTest::newRow("a move at the end") << words("M 0 0 L 90 60 M 7 7") << words("ML MCDD");
    QTest::newRow("a move at the end of a curve")
        << words("M 0 0 C 1 2 D 3 4 D 5 6 M 7 7") << words("MCDDM");
}

void TestWarping::linesAreDoubled()
{
    QFETCH(QString, outline);
    QFETCH(QString, types);
    Warp warp(99);
    warp.word.m_textPaths = outlinesOf(outline);
    warp.word.m_textPathsRect = QRectF(QPointF(), box);
    warp.word.updateMorphTextPaths();
    QCOMPARE(warp.word.m_morphPaths.size(), 1);
    QString found = wordsOf(warp.word.m_morphPaths.first());
    found.remove(QRegularExpression(QStringLiteral("[^MLCD]")));
    QCOMPARE(found, types.remove(QLatin1Char(' ')));
    QCOMPARE(wordsOf(warp.word.m_textPaths), wordsOf(outlinesOf(outline))); // the source stays
}

void TestWarping::doublingIsThatOfAddPath()
{
    const QString outline = words("M 10 10 L 60 40 L 60.1 40.3 C 20 0 D 50 60 D 70 30 L 70 30 "
                                  "L 10 10 M 5 50 L 1e-9 50 L 85 20 M 1 1");
    Warp warp;
    warp.word.m_textPaths = outlinesOf(outline);
    warp.word.m_textPathsRect = QRectF(QPointF(), box);
    warp.word.updateMorphTextPaths();

    QPainterPath doubled = outlineOf(outline);
    for (int i = 1; i < doubled.elementCount(); ++i) {
        if (doubled.elementAt(i).type != QPainterPath::LineToElement)
            continue;
        const QPointF from = doubled.elementAt(i - 1);
        const QPointF to = doubled.elementAt(i);
        const float x = float((to.x() - from.x()) / 3.0);
        const float y = float((to.y() - from.y()) / 3.0);
        QPainterPath piece;
        piece.moveTo(from);
        piece.cubicTo(from + QPointF(x, y), from + QPointF(x + x, y + y), to);
        doubled.addPath(piece);
    }
    QList<QPainterPath> paths{doubled};
    QPointF pos;
    QSizeF size;
    QVERIFY(warp.word.textMorphing(paths, QRectF(QPointF(), box), pos, size));
    QCOMPARE(wordsOf(warp.word.m_morphPaths), wordsOf(paths));
    QCOMPARE(warp.word.m_morphRect, QRectF(pos, size));
}

void TestWarping::badWarpGivesAFiniteBox_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("skew");
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<bool>("isWarped");
    const double nan = qQNaN();
    const double inf = qInf();
    const auto row = [](const char *name, int style, double value, double skew, int orientation,
                        const QSizeF &size, bool isWarped) {
        QTest::newRow(name) << style << value << skew << orientation << size << isWarped;
    };
    // clang-format off
    row("skew nan",            11, 0.5,   nan,    1,    box,                  false);
    row("skew inf",            11, 0.5,   inf,    1,    box,                  false);
    row("skew -inf, vertical", 11, 0.5,   -inf,   2,    box,                  false);
    row("skew 1e308",          11, 0.5,   1e308,  1,    box,                  false);
    row("skew 1e30",           11, 0.5,   1e30,   1,    box,                  true);
    row("value inf",           11, inf,   0,      1,    box,                  true); // the strongest
    row("value -inf",          11, -inf,  0,      1,    box,                  true);
    row("value 1e308",         1,  1e308, 0,      1,    box,                  true);
    row("value -1e308",        7,  -1e308, 0,     2,    box,                  true);
    row("value nan",           11, nan,   0,      1,    box,                  true); // none
    row("value 1e-300",        1,  1e-300, 0,     1,    box,                  true); // 0 in single
    row("value 1e-44",         1,  1e-44, 0,      1,    box,                  false);
    row("style -1",            -1, 0.5,   0,      1,    box,                  true);
    row("style 99",            99, 0.5,   0,      1,    box,                  true);
    row("lowest style",        std::numeric_limits<int>::min(), 0.5, 0, 1, box, true);
    row("orientation -7",      11, 0.5,   0,      -7,   box,                  true);
    row("width 0",             11, 0.5,   0,      1,    QSizeF(0, 60),        false);
    row("height 0",            11, 0.5,   0,      2,    QSizeF(90, 0),        false);
    row("width below 1",       5,  0.5,   0,      1,    QSizeF(0.5, 60),      false);
    row("height below 1",      5,  0.5,   0,      2,    QSizeF(90, 0.5),      false);
    row("width nan",           11, 0.5,   0,      1,    QSizeF(nan, 60),      false);
    row("height inf",          11, 0.5,   0,      1,    QSizeF(90, inf),      false);
    row("1e9 wide",            5,  0.5,   0,      1,    QSizeF(1e9, 60),      true);
    row("1e9 high",            13, 0.5,   0.5,    2,    QSizeF(90, 1e9),      true);
    row("1e300 wide",          5,  0.5,   0,      1,    QSizeF(1e300, 60),    false);
    // clang-format on
}

void TestWarping::badWarpGivesAFiniteBox()
{
    QFETCH(int, style);
    QFETCH(double, value);
    QFETCH(double, skew);
    QFETCH(int, orientation);
    QFETCH(QSizeF, size);
    QFETCH(bool, isWarped);
    const QString outlines = words("M 5 5 L 85 10 C 80 30 D 40 20 D 30 55 L 5 5 | M 7 7");
    Warp warp(style, value);
    warp.word.m_warpHorizontalValue = warp.word.m_warpVerticalValue = skew;
    warp.word.m_warpOrientation = orientation;
    warp.word.m_textPaths = outlinesOf(outlines);
    warp.word.m_pathBrushes = {Qt::black, Qt::black};
    warp.word.m_textPathsRect = QRectF(QPointF(), size);
    warp.word.updateMorphTextPaths();
    QCOMPARE(!warp.word.m_morphPaths.isEmpty(), isWarped);
    QCOMPARE(wordsOf(warp.word.m_textPaths), wordsOf(outlinesOf(outlines)));
    for (double number :
         {warp.word.m_morphRect.x(), warp.word.m_morphRect.y(), warp.word.m_clientRect.width(),
          warp.word.m_clientRect.height(), warp.word.getPos().x(), warp.word.getPos().y()})
        QVERIFY(qIsFinite(number));
    for (const QPainterPath &path : qAsConst(warp.word.m_morphPaths)) {
        for (int i = 0; i < path.elementCount(); ++i)
            QVERIFY(qIsFinite(path.elementAt(i).x) && qIsFinite(path.elementAt(i).y));
    }
    contentOf(warp.word); // paints
}

void TestWarping::outlinesInDisorderAreCarried_data()
{
    QTest::addColumn<QString>("outlines");
    QTest::newRow("one element") << words("M 5 5");
    QTest::newRow("two moves in a row") << words("M 5 5 M 6 6 L 80 40");
    QTest::newRow("moves to the end") << words("M 5 5 L 80 40 M 6 6 M 7 7");
    QTest::newRow("data first") << words("D 5 5 D 6 6 L 80 40");
    QTest::newRow("line first") << words("L 5 5 L 80 40");
    QTest::newRow("curve first") << words("C 5 5 D 80 40 D 6 6");
    QTest::newRow("half a curve") << words("M 5 5 C 80 40 D 6 6");
    QTest::newRow("start of a curve") << words("M 5 5 C 80 40");
    QTest::newRow("data between") << words("M 5 5 D 80 40 C 1 1 D 2 2 D 3 3");
}

void TestWarping::outlinesInDisorderAreCarried()
{
    QFETCH(QString, outlines);
    for (int orientation : {1, 2}) {
        Warp warp(SurfaceBulge, 0.7);
        warp.word.m_warpOrientation = orientation;
        const QPainterPath sound = outlineOf(words("M 5 5 L 80 40"));
        warp.word.m_textPaths = outlinesOf(outlines) + QList<QPainterPath>{sound};
        warp.word.m_textPathsRect = QRectF(QPointF(), box);
        warp.word.updateMorphTextPaths();
        QCOMPARE(warp.word.m_morphPaths.size(), 2);
        QVERIFY(!warp.word.m_clientRect.isEmpty());
    }
}

/// Sixteen times the lines in one outline may take no more than some sixty times as long.
void TestWarping::manyLinesTakeLinearTime()
{
    const auto timeOf = [](int lines) {
        Warp warp(SurfaceBulge, 0.5);
        QPainterPath zigzag(QPointF(0, 0));
        for (int i = 1; i <= lines; ++i)
            zigzag.lineTo(90.0 * i / lines, i % 2 ? 60 : 0);
        warp.word.m_textPaths = {zigzag};
        warp.word.m_textPathsRect = QRectF(QPointF(), box);
        QElapsedTimer timer;
        timer.start();
        warp.word.updateMorphTextPaths();
        return qMax<qint64>(1, timer.nsecsElapsed());
    };
    timeOf(1000); // warms up
    const qint64 few = timeOf(2000);
    const qint64 many = timeOf(32000);
    QVERIFY2(many < 60 * few, qPrintable(QStringLiteral("%1 ns, then %2 ns").arg(few).arg(many)));
}

QTEST_MAIN(TestWarping)
#include "tst_warping.moc"
