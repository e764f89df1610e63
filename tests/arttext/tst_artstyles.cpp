// SPDX-License-Identifier: MIT
#include "arttext/artstyles.h"
#include "tests/arttext/openart.h"

#include <QMap>
#include <QPoint>
#include <QRegularExpression>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr CRect fullSquare{0, 0, 4096, 4096};

// The reckoning of the tests. It reads formulas as a person writes them, point by point, and knows
// nothing of the tables of the library.

/// One style: what makes its two lines. Lists of places are "x, y; x, y".
struct Formula {
    int style;
    const char *maker; // line, curve, arc over, arc under, cos N, sin N, ring
    const char *first, *second;
};

const Formula formulas[] = {
    {0, "line", "L, T; R, T", "L, B; R, B"},
    {1, "line", "L, T+H/4; L+W/4, T; L+3W/4, T; R, T+H/4",
     "L, T+3H/4; L+W/4, B; L+3W/4, B; R, T+3H/4"},
    {2, "line", "L, B; L+W/2, T; R, B", "L, B; R, B"},
    {3, "line", "L, T; R, T", "L, T; L+W/2, B; R, T"},
    {4, "line", "L, T+H/4; L+W/2, T; R, T+H/4", "L, B; L+W/2, T+3H/4; R, B"},
    {5, "line", "L, T; L+W/2, T+H/4; R, T", "L, T+3H/4; L+W/2, B; R, T+3H/4"},
    {6, "arc over", "L, T+H/6; L+W/2, T; R, T+H/6", "L, B; L+W/2, B-H/6; R, B"},
    {7, "arc under", "L, T; L+W/2, T+H/6; R, T", "L, B-H/6; L+W/2, B; R, B-H/6"},
    {8, "ring 180 540", "min/2", "min/8"},
    {9, "ring 0 360", "min/2", "min/8"},
    {10, "line", "L, T; R, T", "L+W/2, B-H/2; R, B"},
    {11, "line", "L, T; R, T", "L, B; L+W/2, B-H/2"},
    {12, "line", "L, T; R, T", "L+W/2, B-H/2; L+W/2, B"},
    {13, "line", "L, T; R, T", "L+W/2, B; L+W/2, B-H/2"},
    {14, "curve", "L, T+H/3; L+W/2, T; R, T+H/3", "L, B; L+W/2, B-H/3; R, B"},
    {15, "curve", "L, T; L+W/2, T+H/3; R, T", "L, B-H/3; L+W/2, B; R, B-H/3"},
    {16, "cos 1", "", ""},
    {17, "sin 1", "", ""},
    {18, "cos 2", "", ""},
    {19, "sin 2", "", ""},
    {20, "curve", "L, T; R, T", "L, T+H/2; L+W/2, B; R, T+H/2"},
    {21, "curve", "L, T; R, T", "L, B; L+W/2, T+H/2; R, B"},
    {22, "curve", "L, T+H/2; L+W/2, T; R, T+H/2", "L, B; R, B"},
    {23, "curve", "L, T; L+W/2, T+H/2; R, T", "L, B; R, B"},
    {24, "line", "L, T; R, T+H/4", "L, B; R, T+3H/4"},
    {25, "line", "L, T+H/4; R, T", "L, T+3H/4; R, B"},
    {26, "line", "L+W/4, T; L+3W/4, T", "L, B; R, B"},
    {27, "line", "L, T; R, T", "L+W/4, B; L+3W/4, B"},
    {28, "line", "L, T+H/2; R, T", "L, B; R, T+H/2"},
    {29, "line", "L, T; R, T+H/2", "L, T+H/2; R, B"},
    {30, "line", "L, T+H/4; R, T", "L, B; R, T+H/4"},
    {31, "line", "L, T; R, T+H/4", "L, T+H/4; R, B"},
    {32, "line", "L, T; R, T+H/2", "L, B; R, B"},
    {33, "line", "L, T+H/2; R, T", "L, B; R, B"},
    {34, "line", "L, T; R, T", "L, B; R, T+H/2"},
    {35, "line", "L, T; R, T", "L, T+H/2; R, B"},
    {36, "line", "L, T+H/2; L+W/2, T; R, T+H/2", "L, B; R, B"},
    {37, "line", "L, T; R, T", "L, T+H/2; L+W/2, B; R, T+H/2"},
    {38, "line", "L, T; L+W/2, T+H/3; R, T", "L, B; L+W/2, B-H/3; R, B"},
    {39, "line", "L, T+H/4; L+W/2, T; R, T+H/4", "L, B-H/4; L+W/2, B; R, B-H/4"},
    {40, "ring 180 360", "half", "half/2"},
    {41, "ring 180 0", "half/2", "half"},
};

struct Expected {
    int kind = 0;
    Line line;
};

class Reckoner
{
public:
    explicit Reckoner(const CRect &rect)
    {
        m_values[QLatin1Char('L')] = rect.left;
        m_values[QLatin1Char('T')] = rect.top;
        m_values[QLatin1Char('R')] = rect.right;
        m_values[QLatin1Char('B')] = rect.bottom;
        m_values[QLatin1Char('W')] = rect.right - rect.left;
        m_values[QLatin1Char('H')] = rect.bottom - rect.top;
    }

    Expected expected(const Formula &formula, int guide) const
    {
        const QStringList maker = QString::fromLatin1(formula.maker).split(QLatin1Char(' '));
        const QString text = QString::fromLatin1(guide == 1 ? formula.first : formula.second);
        if (maker.at(0) == QLatin1String("ring"))
            return ring(text, maker.at(1).toFloat(), maker.at(2).toFloat());
        if (maker.at(0) == QLatin1String("cos") || maker.at(0) == QLatin1String("sin"))
            return wave(maker.at(0) == QLatin1String("cos"), maker.at(1).toInt(), guide);
        const Line places = placesOf(text);
        if (maker.at(0) == QLatin1String("arc"))
            return arc(places, maker.at(1) == QLatin1String("over"));
        if (maker.at(0) == QLatin1String("curve") && places.size() == 3)
            return parabola(places);
        return {1, dense(places)};
    }

private:
    /// "T+3H/4": sums of whole multiples of one letter, each divided toward zero.
    qint64 valueOf(const QString &formula) const
    {
        static const QRegularExpression term(QStringLiteral("([+-]?)(\\d*)([LTRBWH])(?:/(\\d+))?"));
        qint64 sum = 0;
        for (auto it = term.globalMatch(formula); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            qint64 value = m_values.value(match.captured(3).at(0));
            if (!match.captured(2).isEmpty())
                value *= match.captured(2).toInt();
            if (!match.captured(4).isEmpty())
                value /= match.captured(4).toInt();
            sum += match.captured(1) == QLatin1String("-") ? -value : value;
        }
        return sum;
    }

    Line placesOf(const QString &text) const
    {
        Line places;
        for (const QString &place : text.split(QLatin1Char(';'))) {
            const QStringList sides = place.split(QLatin1Char(','));
            places.append({valueOf(sides.at(0)), valueOf(sides.at(1))});
        }
        return places;
    }

    /// All steps between neighbours, ends included; nothing for less than two points and for more
    /// than fit.
    static Line dense(const Line &corners)
    {
        Line all;
        for (int i = 1; i < corners.size(); ++i) {
            const Spot from = corners.at(i - 1);
            const Spot to = corners.at(i);
            const qint64 steps = qMax(qAbs(to.x - from.x), qAbs(to.y - from.y));
            double x = from.x;
            double y = from.y;
            all.append(from);
            for (qint64 step = 0; step < steps; ++step) {
                x += double(to.x - from.x) / steps;
                y += double(to.y - from.y) / steps;
                all.append({qint64(x), qint64(y)});
            }
        }
        return all.size() > 64000 ? Line() : all;
    }

    /// y = a x^2 about the middle place. A line without width makes none.
    static Expected parabola(const Line &p)
    {
        const qint64 across = p[0].x - p[1].x;
        if (across == 0)
            return {};
        const double a = double(p[0].y - p[1].y) / double(across * across);
        const qint64 half = (p[2].x - p[0].x) / 2;
        Line points;
        for (qint64 x = -half; x <= half; ++x)
            points.append({p[1].x + x, qint64(double(p[1].y) + double(x) * (a * double(x)))});
        return {2, dense(points)};
    }

    static Expected arc(const Line &p, bool over)
    {
        const qint64 cx = (p[0].x + p[2].x) / 2;
        if (p[0].y == p[1].y)
            return {};
        const qint64 cy = ((p[0].x + p[1].x - 2 * cx) * (p[0].x - p[1].x) / (p[0].y - p[1].y)
                           + p[0].y + p[1].y)
                          / 2;
        const double r = std::sqrt(
            double((p[0].x - cx) * (p[0].x - cx) + (p[0].y - cy) * (p[0].y - cy)));
        double from = std::acos(double(p[0].x - cx) / r);
        double to = std::acos(double(p[2].x - cx) / r);
        if (std::isnan(from) || std::isnan(to)) // an end lies one point outside the circle
            return {};
        if (over) {
            from = 6.283185307 - from;
            to = 6.283185307 - to;
        }
        return circle({cx, cy}, float(r), float(from * 57.29577951471995),
                      float(to * 57.29577951471995));
    }

    static Expected circle(const Spot &centre, float radius, float from, float to)
    {
        Line points;
        const float step = from < to ? 0.5F : -0.5F;
        for (float angle = from; from < to ? angle < to : angle > to; angle += step) {
            const double turn = double(angle) * 0.017453292519444445;
            points.append({qint64(double(centre.x) + double(radius) * std::cos(turn)),
                           qint64(double(centre.y) + double(radius) * std::sin(turn))});
        }
        return {4, dense(points)};
    }

    Expected ring(const QString &radius, float from, float to) const
    {
        const qint64 w = m_values.value(QLatin1Char('W'));
        const qint64 h = m_values.value(QLatin1Char('H'));
        const QStringList parts = radius.split(QLatin1Char('/'));
        double r = double(parts.at(0) == QLatin1String("min") ? qMin(w, h) : qMin(w / 2, h / 2));
        if (parts.size() == 2)
            r /= parts.at(1).toInt();
        return circle({m_values.value(QLatin1Char('L')) + w / 2,
                       m_values.value(QLatin1Char('T')) + h / 2},
                      float(r), from, to);
    }

    Expected wave(bool cosine, int cycles, int guide) const
    {
        const qint64 w = m_values.value(QLatin1Char('W'));
        const double sixth = double(m_values.value(QLatin1Char('H'))) / 6.0;
        const double period = double(w) / cycles;
        const qint64 y = guide == 1 ? qint64(sixth)
                                    : qint64(double(m_values.value(QLatin1Char('B'))) - sixth);
        Line points;
        for (qint64 i = 0; i < w; ++i) {
            const double turn = double(i) * (6.283185307 / period);
            const double height = (cosine ? std::cos(turn) : std::sin(turn)) * sixth;
            points.append({m_values.value(QLatin1Char('L')) + i, qint64(double(y) + height)});
        }
        return {3, dense(points)};
    }

    QMap<QChar, qint64> m_values;
};

/// Where two lines part, in words; empty when they are the same.
QString difference(const Line &found, const Line &expected)
{
    const auto spot = [](const Line &line, int i) {
        return i < line.size() ? QStringLiteral("(%1, %2)").arg(line.at(i).x).arg(line.at(i).y)
                               : QStringLiteral("the end");
    };
    for (int i = 0; i < qMax(found.size(), expected.size()); ++i) {
        if (i >= found.size() || i >= expected.size() || !(found.at(i) == expected.at(i))) {
            return QStringLiteral("point %1 of %2 is %3 instead of %4")
                .arg(i)
                .arg(found.size())
                .arg(spot(found, i), spot(expected, i));
        }
    }
    return {};
}

/// A number that changes with every coordinate and with their order.
quint32 checksum(const Line &line)
{
    quint32 sum = 0;
    for (const Spot &point : line)
        sum = (sum * 31 + quint32(point.x)) * 31 + quint32(point.y);
    return sum;
}

struct Checksums {
    int count1;
    quint32 sum1;
    int count2;
    quint32 sum2;
};

// The rectangle (7, 13, 612, 614), by another program in another language. Both sides are odd.
const Checksums checksumsOfOddRectangle[] = {
    // clang-format off
    { 606, 0x5728a141,  606, 0x82f2352f},
    { 608, 0x0902daf5,  608, 0x04b2acd2},
    {1204, 0xa0795e16,  606, 0x82f2352f},
    { 606, 0x5728a141, 1204, 0x80083e16},
    { 607, 0xa5bca061,  607, 0xeed6c599},
    { 607, 0x53145f9f,  607, 0xdced7558},
    { 748, 0x3d60d884,  748, 0xd3ffa963},
    { 748, 0xcb2637b2,  748, 0x87c2584d},
    {2425, 0xcf0da69a, 1203, 0xfb6e1320},
    {2424, 0xbf109757, 1202, 0x40fdde20},
    { 606, 0x5728a141,  304, 0x32aedc4f},
    { 606, 0x5728a141,  303, 0xa71ac457},
    { 606, 0x5728a141,  301, 0x612e1f5f},
    { 606, 0x5728a141,  301, 0xb0badc5f},
    {1234, 0xa19331d9, 1234, 0xa649b08b},
    {1234, 0x9700b4a5, 1232, 0x099d28a6},
    {1210, 0xabd6d8c4, 1210, 0x388db17e},
    {1210, 0xcb802061, 1210, 0x6c886f5d},
    {1498, 0x1f6177ea, 1498, 0x50620544},
    {1497, 0x751a4eb6, 1497, 0xa1ff86f5},
    { 606, 0x5728a141, 1356, 0xfb998aca},
    { 606, 0x5728a141, 1358, 0xa01ca4ff},
    {1358, 0x67ec1381,  606, 0x82f2352f},
    {1356, 0xd47e2046,  606, 0x82f2352f},
    { 606, 0x0bffac1e,  606, 0x95ff9348},
    { 606, 0xc430459f,  606, 0x14d75e07},
    { 303, 0x45af9908,  606, 0x82f2352f},
    { 606, 0x5728a141,  303, 0x9f38801f},
    { 606, 0x5b6b48a9,  606, 0x406b64bd},
    { 606, 0x167c4ba8,  606, 0xc8b3e9fe},
    { 606, 0xc430459f,  606, 0x1958b4ae},
    { 606, 0x0bffac1e,  606, 0x4e0ef779},
    { 606, 0x167c4ba8,  606, 0x82f2352f},
    { 606, 0x5b6b48a9,  606, 0x82f2352f},
    { 606, 0x5728a141,  606, 0x406b64bd},
    { 606, 0x5728a141,  606, 0xc8b3e9fe},
    { 607, 0x3441eb36,  606, 0x82f2352f},
    { 606, 0x5728a141,  607, 0x0f3f7679},
    { 607, 0x5ea962a7,  607, 0x1c5d9bb7},
    { 607, 0xa5bca061,  607, 0x9bd492bc},
    {1207, 0x46a997ba,  784, 0xf421f057},
    { 783, 0x6875c733, 1206, 0xa848bb7f},
    // clang-format on
};

} // namespace

class TestArtStyles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPointIsWhereItsFormulaPutsIt_data();
    void everyPointIsWhereItsFormulaPutsIt();
    void linesHaveTheChecksumsOfAnotherProgram();
    void everyStyleIsInTheTableOnce();
    void plainRectangleHasAPointForEachColumnAndBothEnds();
    void triangleHasItsTopTwice();
    void strokeRunsDownwardsOrUpwards();
    void textOverTheUpwardStrokeIsMirrored();
    void cosineWaveBeginsAtItsLowestPoint();
    void firstLineOfAWaveDoesNotCountTheTop();
    void middleOfAnOddHeightDependsOnTheEdge();
    void threeQuartersFromTheTopAreNoQuarterFromTheBottom();
    void unknownStyleKeepsTheLines_data();
    void unknownStyleKeepsTheLines();
    void unknownStyleKeepsTheSizeAllTheSame();
    void resizeDrawsFromTheOriginAndKeepsTheSize();
    void setStyleDrawsNothing();
    void ringTakesItsRadiusFromTheShorterSide_data();
    void ringTakesItsRadiusFromTheShorterSide();
    void ringsDifferInWhereTheyBegin();
    void archRunsOverTheTopAndBowlUnderTheBottom();
    void neighboursAreAtMostOneStepApart_data();
    void neighboursAreAtMostOneStepApart();
    void drawingAgainGivesTheSameLines();
    void noArtTextNoLines();
    void hostileRectanglesEnd_data();
    void hostileRectanglesEnd();
    void edgesAreTakenWith32Bits();
    void lineThatDoesNotFitIsEmpty();
};

void TestArtStyles::everyPointIsWhereItsFormulaPutsIt_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QVector<int>>("edges");
    const QVector<QVector<int>> rectangles = {
        {0, 0, 4096, 4096}, // as for every art text
        {0, 0, 600, 300},
        {7, 13, 612, 614},    // odd and offset
        {-50, -301, 300, 90}, // across the origin
        {-900, -700, -100, -101},
        {0, 0, 2, 31}, // narrow
        {3, 5, 44, 9}, // low
        {0, 0, 5, 5},
        {1, 1, 2, 2},
        {4, 4, 4, 4}, // tiny
        {0, 0, 3, 7}, // no circle reaches the right end of an arc
    };
    for (const QVector<int> &edges : rectangles) {
        for (int row = 0; row < artStyleCount; ++row) {
            QTest::addRow("style %d in (%d, %d, %d, %d)", formulas[row].style, edges[0], edges[1],
                          edges[2], edges[3])
                << row << edges;
        }
    }
}

void TestArtStyles::everyPointIsWhereItsFormulaPutsIt()
{
    QFETCH(int, row);
    QFETCH(QVector<int>, edges);
    const CRect rect{edges[0], edges[1], edges[2], edges[3]};
    OpenArtText art;
    CArtText::DoAction(formulas[row].style, rect, &art);
    const Reckoner reckoner(rect);
    for (int guide : {1, 2}) {
        const Expected expected = reckoner.expected(formulas[row], guide);
        const QString wrong = difference(art.line(guide), expected.line);
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("line %1: %2").arg(guide).arg(wrong)));
        QCOMPARE(art.kind(guide), expected.kind);
    }
}

void TestArtStyles::linesHaveTheChecksumsOfAnotherProgram()
{
    OpenArtText art;
    for (int style = 0; style < artStyleCount; ++style) {
        const Checksums &expected = checksumsOfOddRectangle[style];
        CArtText::DoAction(style, CRect{7, 13, 612, 614}, &art);
        const Line first = art.line(1);
        const Line second = art.line(2);
        QVERIFY2(first.size() == expected.count1 && checksum(first) == expected.sum1
                     && second.size() == expected.count2 && checksum(second) == expected.sum2,
                 qPrintable(QStringLiteral("style %1: {%2, 0x%3, %4, 0x%5}")
                                .arg(style)
                                .arg(first.size())
                                .arg(checksum(first), 8, 16, QLatin1Char('0'))
                                .arg(second.size())
                                .arg(checksum(second), 8, 16, QLatin1Char('0'))));
    }
}

void TestArtStyles::everyStyleIsInTheTableOnce()
{
    QCOMPARE(artStyleCount, 42);
    QCOMPARE(int(sizeof formulas / sizeof *formulas), artStyleCount);
    QCOMPARE(int(sizeof checksumsOfOddRectangle / sizeof *checksumsOfOddRectangle), artStyleCount);
    QSet<QPair<quint32, quint32>> shapes;
    for (int style = 0; style < artStyleCount; ++style) {
        QCOMPARE(formulas[style].style, style);
        OpenArtText art;
        CArtText::DoAction(style, CRect{0, 0, 600, 600}, &art);
        QVERIFY2(art.m_guideCount1 > 0 && art.m_guideCount2 > 0,
                 qPrintable(QString::number(style)));
        shapes.insert({checksum(art.line(1)), checksum(art.line(2))});
    }
    QCOMPARE(shapes.size(), artStyleCount);
}

void TestArtStyles::plainRectangleHasAPointForEachColumnAndBothEnds()
{
    OpenArtText art;
    const Line upper = art.drawn(0, fullSquare, 1);
    const Line lower = art.line(2);
    QCOMPARE(upper.size(), 4097);
    QCOMPARE(lower.size(), 4097);
    for (int x = 0; x <= 4096; ++x) {
        QVERIFY2(upper.at(x) == (Spot{x, 0}), qPrintable(QString::number(x)));
        QVERIFY2(lower.at(x) == (Spot{x, 4096}), qPrintable(QString::number(x)));
    }
}

void TestArtStyles::triangleHasItsTopTwice()
{
    OpenArtText art;
    const Line upper = art.drawn(2, fullSquare, 1);
    QCOMPARE(upper.size(), 8194);
    QCOMPARE(art.line(2).size(), 4097);
    QVERIFY(upper.first() == (Spot{0, 4096}));
    QVERIFY(upper.at(4096) == (Spot{2048, 0}));
    QVERIFY(upper.at(4097) == (Spot{2048, 0}));
    QVERIFY(upper.last() == (Spot{4096, 4096}));
}

void TestArtStyles::strokeRunsDownwardsOrUpwards()
{
    OpenArtText art;
    const Line down = art.drawn(12, fullSquare, 2);
    Line up = art.drawn(13, fullSquare, 2);
    QCOMPARE(down.size(), 2049);
    QVERIFY(down.first() == (Spot{2048, 2048}));
    QVERIFY(down.last() == (Spot{2048, 4096}));
    QVERIFY(up.first() == (Spot{2048, 4096}));
    std::reverse(up.begin(), up.end());
    QVERIFY2(up == down, qPrintable(difference(up, down)));
}

void TestArtStyles::textOverTheUpwardStrokeIsMirrored()
{
    const auto bent = [](int style, double x) { // of a point on the baseline
        OpenArtText art;
        art.Resize(CSize(4096, 4096), style);
        const QPainterPath path = art.lensDeform(QPainterPath(QPointF(x, 4096)), QPointF(),
                                                 QSizeF(4096, 4096), CSize(4096, 4096), false);
        return QPointF(path.elementAt(0));
    };
    QCOMPARE(bent(12, 1024), QPointF(2048, 2560));
    QCOMPARE(bent(13, 3072), QPointF(2048, 2560));
    QCOMPARE(bent(12, 3072), QPointF(2048, 3584));
    QCOMPARE(bent(13, 1024), QPointF(2048, 3584));
}

void TestArtStyles::cosineWaveBeginsAtItsLowestPoint()
{
    OpenArtText art;
    const Line wave = art.drawn(16, fullSquare, 1);
    QVERIFY(wave.first() == (Spot{0, 1364})); // 682 + 682.67, cut off
    QVERIFY(wave.last() == (Spot{4095, 1364}));
    QSet<qint64> columns; // the wave has 4096 points before the steps between them are added
    for (const Spot &point : wave)
        columns.insert(point.x);
    QCOMPARE(columns.size(), 4096);
    QVERIFY(art.line(2).first() == (Spot{0, 4095})); // 3413 + 682.67
    const Line sine = art.drawn(17, fullSquare, 1);
    QVERIFY(sine.first() == (Spot{0, 682}));
}

void TestArtStyles::firstLineOfAWaveDoesNotCountTheTop()
{
    OpenArtText art;
    const Line sine = art.drawn(17, CRect{100, 1000, 700, 1600}, 1);
    QVERIFY(sine.first() == (Spot{100, 100}));
    QVERIFY(art.line(2).first() == (Spot{100, 1500}));
}

void TestArtStyles::middleOfAnOddHeightDependsOnTheEdge()
{
    OpenArtText art;
    const CRect odd{0, 13, 600, 614}; // 601 high
    QVERIFY(art.drawn(10, odd, 2).first() == (Spot{300, 314}));
    const Line curve = art.drawn(20, odd, 2);
    QVERIFY(curve.first() == (Spot{0, 313}));
    QVERIFY(curve.last() == (Spot{600, 313}));
}

void TestArtStyles::threeQuartersFromTheTopAreNoQuarterFromTheBottom()
{
    OpenArtText art;
    const CRect odd{0, 0, 600, 601};
    QVERIFY(art.drawn(1, odd, 2).first() == (Spot{0, 450}));
    QVERIFY(art.drawn(39, odd, 2).first() == (Spot{0, 451}));
}

void TestArtStyles::unknownStyleKeepsTheLines_data()
{
    QTest::addColumn<int>("style");
    QTest::newRow("42") << 42;
    QTest::newRow("-1") << -1;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void TestArtStyles::unknownStyleKeepsTheLines()
{
    QFETCH(int, style);
    OpenArtText art;
    const Line first = art.drawn(14, CRect{0, 0, 60, 60}, 1);
    const Line second = art.line(2);
    const tagPOINT *points = art.m_guidePoints1;
    CArtText::DoAction(style, CRect{0, 0, 90, 90}, &art);
    QCOMPARE(art.m_guidePoints1, const_cast<tagPOINT *>(points));
    QVERIFY(art.line(1) == first);
    QVERIFY(art.line(2) == second);
    QCOMPARE(art.m_guideKind1, 2);
}

void TestArtStyles::unknownStyleKeepsTheSizeAllTheSame()
{
    OpenArtText art;
    art.Resize(CSize{60, 60}, 0);
    const Line first = art.line(1);
    for (int style : {42, -1}) {
        art.Resize(CSize{70, 80 + style}, style);
        QCOMPARE(art.m_size.cx, qint64(70));
        QCOMPARE(art.m_size.cy, qint64(80 + style));
        QVERIFY(art.line(1) == first);
    }
}

void TestArtStyles::resizeDrawsFromTheOriginAndKeepsTheSize()
{
    OpenArtText art;
    art.Resize(CSize{300, 200}, 38);
    OpenArtText other;
    CArtText::DoAction(38, CRect{0, 0, 300, 200}, &other);
    QVERIFY(art.line(1) == other.line(1));
    QVERIFY(art.line(2) == other.line(2));
    QCOMPARE(art.m_size.cx, qint64(300));
    QCOMPARE(art.m_size.cy, qint64(200));
    QCOMPARE(other.m_size.cx, qint64(0));
}

void TestArtStyles::setStyleDrawsNothing()
{
    OpenArtText art;
    art.SetStyle(5);
    QCOMPARE(art.GetStyle(), 5);
    QCOMPARE(art.m_guideCount1, 0U);
    art.Resize(CSize{60, 60}, 0);
    QCOMPARE(art.GetStyle(), 5);
    QVERIFY(art.line(1).last() == (Spot{60, 0}));
}

void TestArtStyles::ringTakesItsRadiusFromTheShorterSide_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("guide");
    QTest::addColumn<qint64>("firstX"); // in (0, 0, 400, 1000)
    QTest::newRow("ring from the left") << 8 << 1 << qint64(0);
    QTest::newRow("its inner line") << 8 << 2 << qint64(150);
    QTest::newRow("ring from the right") << 9 << 1 << qint64(400);
    QTest::newRow("inner line from the right") << 9 << 2 << qint64(250);
    QTest::newRow("arch") << 40 << 1 << qint64(0);
    QTest::newRow("inner line of the arch") << 40 << 2 << qint64(100);
    QTest::newRow("inner line of the bowl") << 41 << 1 << qint64(100);
    QTest::newRow("bowl") << 41 << 2 << qint64(0);
}

void TestArtStyles::ringTakesItsRadiusFromTheShorterSide()
{
    QFETCH(int, style);
    QFETCH(int, guide);
    QFETCH(qint64, firstX);
    OpenArtText art;
    const Spot tall = art.drawn(style, CRect{0, 0, 400, 1000}, guide).first();
    QVERIFY2(tall == (Spot{firstX, 500}), qPrintable(QString::number(tall.x)));
    const Spot wide = art.drawn(style, CRect{0, 0, 1000, 400}, guide).first();
    QVERIFY2(wide == (Spot{firstX + 300, 200}), qPrintable(QString::number(wide.x)));
}

void TestArtStyles::ringsDifferInWhereTheyBegin()
{
    OpenArtText art;
    const Line left = art.drawn(8, fullSquare, 1);
    const Line right = art.drawn(9, fullSquare, 1);
    QVERIFY(left.first() == (Spot{0, 2048}));
    QVERIFY(right.first() == (Spot{4096, 2048}));
    const auto highest = [](const Line &line) {
        return std::min_element(line.begin(), line.end(),
                                [](const Spot &a, const Spot &b) { return a.y < b.y; })
            ->y;
    };
    QCOMPARE(highest(left), qint64(0));
    QCOMPARE(highest(right), qint64(0));
    // Clockwise as it is seen, y growing downwards: from the left over the top, from the right
    // under the bottom.
    QVERIFY(left.at(left.size() / 4).y < 10);
    QVERIFY(right.at(right.size() / 4).y > 4086);
}

void TestArtStyles::archRunsOverTheTopAndBowlUnderTheBottom()
{
    OpenArtText art;
    const Line arch = art.drawn(40, fullSquare, 1);
    QVERIFY(arch.first() == (Spot{0, 2048}));
    QVERIFY(arch.at(arch.size() / 2).y < 10);
    QVERIFY(arch.last().x > 4090);
    const Line inner = art.drawn(41, fullSquare, 1);
    QVERIFY(inner.first() == (Spot{1024, 2048}));
    QVERIFY(inner.at(inner.size() / 2).y > 3062);
    QVERIFY(art.line(2).at(art.line(2).size() / 2).y > 4086);
}

void TestArtStyles::neighboursAreAtMostOneStepApart_data()
{
    QTest::addColumn<int>("style");
    for (int style = 0; style < artStyleCount; ++style)
        QTest::addRow("style %d", style) << style;
}

void TestArtStyles::neighboursAreAtMostOneStepApart()
{
    QFETCH(int, style);
    OpenArtText art;
    CArtText::DoAction(style, CRect{0, 0, 1001, 703}, &art);
    for (int guide : {1, 2}) {
        const Line line = art.line(guide);
        for (int i = 1; i < line.size(); ++i) {
            QVERIFY2(qAbs(line[i].x - line[i - 1].x) <= 1 && qAbs(line[i].y - line[i - 1].y) <= 1,
                     qPrintable(QStringLiteral("line %1, point %2").arg(guide).arg(i)));
        }
    }
}

void TestArtStyles::drawingAgainGivesTheSameLines()
{
    OpenArtText art;
    for (int style = 0; style < artStyleCount; ++style) {
        const Line first = art.drawn(style, CRect{0, 0, 300, 200}, 1);
        const Line second = art.line(2);
        CArtText::DoAction((style + 5) % artStyleCount, CRect{3, 4, 90, 900}, &art);
        QVERIFY2(art.drawn(style, CRect{0, 0, 300, 200}, 1) == first && art.line(2) == second,
                 qPrintable(QString::number(style)));
    }
}

void TestArtStyles::noArtTextNoLines()
{
    for (int style = 0; style < artStyleCount; ++style)
        CArtText::DoAction(style, fullSquare, nullptr);
}

void TestArtStyles::hostileRectanglesEnd_data()
{
    QTest::addColumn<QVector<qint64>>("edges");
    const qint64 most = std::numeric_limits<int>::max();
    const qint64 least = std::numeric_limits<int>::min();
    const auto row = [](const char *name, qint64 left, qint64 top, qint64 right, qint64 bottom) {
        QTest::newRow(name) << QVector<qint64>{left, top, right, bottom};
    };
    row("nothing", 0, 0, 0, 0);
    row("one point wide", 0, 0, 1, 500);
    row("without width", 5, 5, 5, 500);
    row("without height", 5, 5, 500, 5);
    row("width below 0", 500, 0, 0, 400);
    row("height below 0", 0, 400, 500, 0);
    row("both below 0", 500, 400, 0, 0);
    row("just fits", 0, 0, 63999, 63999);
    row("just too wide", 0, 0, 64000, 64000);
    row("as radius just fits", 0, 0, 32000, 32000);
    row("one hundred thousand", 0, 0, 100000, 100000);
    row("wide and low", 0, 0, 1000000, 3);
    row("narrow and high", 0, 0, 3, 1000000);
    row("far away", most - 100, most - 100, most, most);
    row("whole range of 32 bits", least, least, most, most);
    row("the same turned around", most, most, least, least);
    row("64 bits", std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::min(),
        std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::max());
}

void TestArtStyles::hostileRectanglesEnd()
{
    QFETCH(QVector<qint64>, edges);
    const CRect rect{edges[0], edges[1], edges[2], edges[3]};
    for (int style = 0; style < artStyleCount; ++style) {
        OpenArtText art;
        CArtText::DoAction(style, rect, &art);
        QVERIFY(art.m_guideCount1 <= 64000 && art.m_guideCount2 <= 64000);
        QVERIFY(art.m_guidePoints1 || art.m_guideCount1 == 0);
        QVERIFY(art.m_guidePoints2 || art.m_guideCount2 == 0);
        (void)checksum(art.line(1)); // every point is there to be read
        (void)checksum(art.line(2));
    }
}

void TestArtStyles::edgesAreTakenWith32Bits()
{
    const qint64 beyond = qint64(1) << 32;
    OpenArtText art;
    const Line line = art.drawn(0, CRect{beyond, beyond + 3, beyond + 60, beyond + 43}, 2);
    QCOMPARE(line.size(), 61);
    QVERIFY(line.first() == (Spot{0, 43}));
    QVERIFY(line.last() == (Spot{60, 43}));
}

void TestArtStyles::lineThatDoesNotFitIsEmpty()
{
    OpenArtText art;
    QCOMPARE(art.drawn(0, CRect{0, 0, 63999, 10}, 1).size(), 64000);
    QCOMPARE(art.drawn(0, CRect{0, 0, 64000, 10}, 1).size(), 0);
    QCOMPARE(art.line(2).size(), 0);
}

QTEST_APPLESS_MAIN(TestArtStyles)
#include "tst_artstyles.moc"
