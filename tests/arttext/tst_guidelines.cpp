// SPDX-License-Identifier: MIT
#include "tests/arttext/openart.h"

#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr qint64 farthest = std::numeric_limits<qint64>::max();
constexpr qint64 nearestTo = std::numeric_limits<qint64>::min();
constexpr double fullTurn = 6.283185307;

/// What a generator's first stage made, freed at the end.
struct Made {
    tagPOINT *points = nullptr;
    unsigned int count = 77;
    bool result = false;

    ~Made() { std::free(points); }
    Line line() const { return lineOf(points, count); }
};

struct Arc {
    tagPOINT *points = nullptr;
    unsigned short count = 77;
    bool result = false;

    Arc(CPoint center, float radius, float from, float to)
    {
        result = CArtText::CreateRound(center, radius, &points, &count, from, to);
    }
    ~Arc() { std::free(points); }
    Line line() const { return lineOf(points, count); }
};

QString denseLine(int x1, int y1, int x2, int y2)
{
    OpenArtText art;
    art.DrawLine(1, CPoint(x1, y1), CPoint(x2, y2));
    return text(art.line(1));
}

/// Draws a short line of straight kind, to see whether it stays.
void drawOld(OpenArtText &art)
{
    art.DrawLine(1, CPoint(0, 0), CPoint(1, 0));
}

bool hasOld(const OpenArtText &art)
{
    return text(art.line(1)) == QLatin1String("0,0 1,0") && art.m_guideKind1 == 1;
}

using Generator = std::function<bool(OpenArtText &, int guide)>;

} // namespace

Q_DECLARE_METATYPE(Generator)

class TestGuideLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newEngineHasNoLines();
    void lineOf64000PointsIsTaken();
    void lineOf64001PointsStaysWithTheCaller();
    void onlyGuides1And2AreTaken();
    void newLineReplacesTheOldOne();
    void sameBufferCanBeSetAgain();
    void linesAreLentAndLetGo();
    void flipTurnsBothLinesOver();
    void offsetMovesEachPoint();
    void linesDrawnByHandGoThroughTwoSteps();

    void segmentsAreDense_data();
    void segmentsAreDense();
    void jointsOccurTwice();
    void stepsAreAccumulatedAndCutOff();
    void lineWithoutLengthCallsBackOnce();
    void countIsThatOfTheCallbacks();
    void coordinatesPassThrough32Bits();
    void fillOutOfOnePointKeepsTheBuffer();
    void fillOutStopsAt64000Points();
    void farEndsAreRefusedAtOnce();

    void straightLines();
    void lineOfOnePointIsEmpty();
    void lineWithoutPointsIsRefused();
    void kindsFollowTheGenerator();
    void otherGuidesLeaveLinesAndKindsAlone();

    void arcsWalkInHalfDegrees();
    void arcsUseTheirOwnDegree();
    void arcsWalkDownToo();
    void radiusIsLimited();
    void arcWithoutAngleIsEmpty();
    void arcIsAtMostOneTurn();
    void arcWhoseAngleCannotGrowEnds();
    void arcThroughThreePointsAbove();
    void flatArcStaysAboveItsEnds();
    void arcThroughThreePointsBelow();
    void centreIsCutToWholeNumbers();
    void threePointsOnALineMakeNoArc();
    void arcWiderThanItsCircleIsRefused();

    void cosineWaves();
    void sineWavesIgnoreTheirAngle();
    void wavesStartAtTheirPhase();
    void wavesEndBelowTheirLength();
    void wavesOf64000PointsFit();
    void wavesWithoutLengthAreEmpty();

    void parabolas();
    void parabolasRoundInTheirOrder();
    void parabolasOfNoWidth();
    void parabolasOf64000PointsFit();
    void parabolaThroughThreePoints();
    void parabolaWithoutARunIsRefused();
    void parabolaFromRightToLeftIsEmpty();

    void argumentsThatAreNotFiniteAreRefused_data();
    void argumentsThatAreNotFiniteAreRefused();
    void absurdNumbersEnd_data();
    void absurdNumbersEnd();

    void extentMovesPointsToTheOrigin();
    void extentIsBounded();
    void extentOfNothing();

    void resizeWaitsForASize();
    void resizeScalesAndFillsOut();
    void resizeIsSinglePrecision();
    void resizeFromAnEmptySide();
};

void TestGuideLines::newEngineHasNoLines()
{
    OpenArtText art;
    QCOMPARE(art.m_guideKind1, 0);
    QCOMPARE(art.m_guideKind2, 0);
    QVERIFY(!art.m_guidePoints1);
    QVERIFY(!art.m_guidePoints2);
    QCOMPARE(art.m_guideCount1, 0U);
    QCOMPARE(art.m_guideCount2, 0U);
    QVERIFY(art.m_firstGuideNext);
    tagPOINT *points = nullptr;
    unsigned int count = 5;
    QVERIFY(art.GetGuideLine(nullptr, &points, &count));
    QCOMPARE(count, 0U);
    QVERIFY(!points);
    QVERIFY(art.ShowGuide(nullptr, points, 0));
}

void TestGuideLines::lineOf64000PointsIsTaken()
{
    OpenArtText art;
    auto *points = static_cast<tagPOINT *>(std::calloc(64000, sizeof(tagPOINT)));
    QVERIFY(art.SetGuideLine(points, 64000, 2));
    QCOMPARE(art.m_guidePoints2, points);
    QCOMPARE(art.m_guideCount2, 64000U);
}

void TestGuideLines::lineOf64001PointsStaysWithTheCaller()
{
    OpenArtText art;
    drawOld(art);
    tagPOINT *points = newPoints({{1, 1}});
    QVERIFY(!art.SetGuideLine(points, 64001, 1));
    QVERIFY(hasOld(art));
    std::free(points); // still the caller's
}

void TestGuideLines::onlyGuides1And2AreTaken()
{
    OpenArtText art;
    tagPOINT *points = newPoints({{1, 1}});
    for (int guide : {-1, 0, 3})
        QVERIFY(!art.SetGuideLine(points, 1, guide));
    QVERIFY(!art.m_guidePoints1);
    QVERIFY(!art.m_guidePoints2);
    std::free(points);
}

void TestGuideLines::newLineReplacesTheOldOne()
{
    OpenArtText art;
    QVERIFY(art.SetGuideLine(newPoints({{1, 1}, {2, 2}}), 2, 1));
    QVERIFY(art.SetGuideLine(newPoints({{3, 4}}), 1, 1));
    QCOMPARE(text(art.line(1)), QStringLiteral("3,4"));
    QVERIFY(art.SetGuideLine(nullptr, 3, 1));
    QCOMPARE(art.m_guideCount1, 0U);
}

void TestGuideLines::sameBufferCanBeSetAgain()
{
    OpenArtText art;
    tagPOINT *points = newPoints({{1, 1}, {2, 2}});
    QVERIFY(art.SetGuideLine(points, 2, 1));
    QVERIFY(art.SetGuideLine(points, 1, 1));
    QCOMPARE(text(art.line(1)), QStringLiteral("1,1"));
}

void TestGuideLines::linesAreLentAndLetGo()
{
    OpenArtText art;
    art.DrawLine(1, CPoint(0, 0), CPoint(1, 0));
    art.DrawLine(2, CPoint(5, 5), CPoint(5, 7));
    tagPOINT *points1 = nullptr;
    tagPOINT *points2 = nullptr;
    unsigned int count1 = 0;
    unsigned int count2 = 0;
    art.GetPathPoint(&points1, &count1, &points2, &count2);
    QCOMPARE(text(lineOf(points1, count1)), QStringLiteral("0,0 1,0"));
    QCOMPARE(text(lineOf(points2, count2)), QStringLiteral("5,5 5,6 5,7"));
    art.EmptyPathPoint();
    QVERIFY(!art.m_guidePoints1);
    QVERIFY(!art.m_guidePoints2);
    QCOMPARE(art.m_guideCount1 + art.m_guideCount2, 0U);
    std::free(points1);
    std::free(points2);
}

void TestGuideLines::flipTurnsBothLinesOver()
{
    OpenArtText art;
    art.DrawLine(1, CPoint(3, 10), CPoint(4, 10));
    art.DrawLine(2, CPoint(3, 99), CPoint(4, 100));
    art.flip(100);
    QCOMPARE(text(art.line(1)), QStringLiteral("3,90 4,90"));
    QCOMPARE(text(art.line(2)), QStringLiteral("3,1 4,0"));
}

void TestGuideLines::offsetMovesEachPoint()
{
    tagPOINT points[] = {{1, 2}, {3, 4}, {5, 6}};
    CArtText::OffsetPos(CSize(10, -20), points, 2);
    QCOMPARE(text(lineOf(points, 3)), QStringLiteral("11,-18 13,-16 5,6"));
    CArtText::OffsetPos(CSize(1, 1), nullptr, 3);
}

void TestGuideLines::linesDrawnByHandGoThroughTwoSteps()
{
    OpenArtText art;
    drawOld(art);
    art.DrawLine(2, CPoint(0, 0), CPoint(1, 0));
    QVERIFY(art.BeginDraw(nullptr, CRect()));
    QVERIFY(!art.m_firstGuideNext);
    QVERIFY(!art.m_guidePoints1);
    QVERIFY(!art.m_guidePoints2);
    QCOMPARE(art.m_guideCount1 + art.m_guideCount2, 0U);

    art.DrawLine(1, CPoint(0, 0), CPoint(2, 0));
    art.DrawLine(2, CPoint(0, 9), CPoint(2, 9));
    QVERIFY(art.BeginDraw(nullptr, CRect()));
    QVERIFY(art.m_firstGuideNext);
    QCOMPARE(text(art.line(1)), QStringLiteral("0,0 1,0 1,0 2,0"));
    QCOMPARE(art.m_guideCount2, 0U);
}

void TestGuideLines::segmentsAreDense_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::addColumn<QString>("line");
    QTest::newRow("level") << 4 << 0 << "0,0 1,0 2,0 3,0 4,0";
    QTest::newRow("steep") << 3 << 5 << "0,0 0,1 1,2 1,3 2,4 3,5";
    QTest::newRow("backwards") << -3 << 5 << "0,0 0,1 -1,2 -1,3 -2,4 -3,5";
    QTest::newRow("diagonal") << 2 << -2 << "0,0 1,-1 2,-2";
    QTest::newRow("no length") << 0 << 0 << "0,0";
}

void TestGuideLines::segmentsAreDense()
{
    QFETCH(int, x);
    QFETCH(int, y);
    QTEST(denseLine(0, 0, x, y), "line");
}

void TestGuideLines::jointsOccurTwice()
{
    OpenArtText art;
    const tagPOINT points[] = {{0, 0}, {2, 0}, {4, 0}};
    QVERIFY(art.DrawLine(1, points, 3));
    QCOMPARE(text(art.line(1)), QStringLiteral("0,0 1,0 2,0 2,0 3,0 4,0"));
}

// Ten tenths add up to a little less than 1.
void TestGuideLines::stepsAreAccumulatedAndCutOff()
{
    QCOMPARE(denseLine(0, 0, 1, 10),
             QStringLiteral("0,0 0,1 0,2 0,3 0,4 0,5 0,6 0,7 0,8 0,9 0,10"));
}

void TestGuideLines::lineWithoutLengthCallsBackOnce()
{
    tagPOINT room[3];
    tagSEG fill;
    fill.points = room;
    CArtText::DDADrawLine_DDALine(-7, 9, -7, 9, CArtText::addSegment, &fill);
    QCOMPARE(fill.count, 1U);
    QCOMPARE(text(lineOf(room, fill.count)), QStringLiteral("-7,9"));
}

void TestGuideLines::countIsThatOfTheCallbacks()
{
    const int lines[][4] = {{0, 0, 0, 0}, {0, 0, 9, 0}, {5, -8, 5, 3}, {-4, 7, 20, -30}};
    for (const auto &line : lines) {
        int calls = 0;
        CArtText::DDADrawLine_DDALine(
            line[0], line[1], line[2], line[3],
            [](int, int, void *context) { ++*static_cast<int *>(context); }, &calls);
        QCOMPARE(CArtText::countPoints(line[0], line[1], line[2], line[3]), qint64(calls));
    }
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    QCOMPARE(CArtText::countPoints(least, 0, most, 0), Q_INT64_C(4294967296));
}

void TestGuideLines::coordinatesPassThrough32Bits()
{
    OpenArtText art;
    QVERIFY(art.DrawLine(1, CPoint(Q_INT64_C(0x100000001), 0), CPoint(3, 0)));
    QCOMPARE(text(art.line(1)), QStringLiteral("1,0 2,0 3,0"));
}

void TestGuideLines::fillOutOfOnePointKeepsTheBuffer()
{
    tagPOINT *const points = newPoints({{4, 4}});
    tagPOINT *line = points;
    unsigned int count = 1;
    QVERIFY(!CArtText::FillOut(&line, &count));
    QCOMPARE(count, 0U);
    QCOMPARE(line, points);
    QVERIFY(!CArtText::FillOut(&line, &count));
    QCOMPARE(line, points);
    std::free(points);
    line = nullptr;
    count = 4;
    QVERIFY(!CArtText::FillOut(&line, &count));
    QCOMPARE(count, 0U);
}

void TestGuideLines::fillOutStopsAt64000Points()
{
    OpenArtText art;
    QVERIFY(art.DrawLine(1, CPoint(0, 0), CPoint(63999, 0)));
    QCOMPARE(art.m_guideCount1, 64000U);
    QCOMPARE(art.m_guidePoints1[63999].x, 63999);

    tagPOINT *const points = newPoints({{0, 0}, {64000, 0}});
    tagPOINT *line = points;
    unsigned int count = 2;
    QVERIFY(!CArtText::FillOut(&line, &count));
    QCOMPARE(count, 0U);
    QCOMPARE(line, points);
    QCOMPARE(text(lineOf(line, 2)), QStringLiteral("0,0 64000,0"));
    std::free(points);

    QVERIFY(art.DrawLine(1, CPoint(0, 0), CPoint(64000, 0)));
    QCOMPARE(art.m_guideCount1, 0U);
    QCOMPARE(art.m_guideKind1, 1);
}

void TestGuideLines::farEndsAreRefusedAtOnce()
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    OpenArtText art;
    QVERIFY(art.DrawLine(1, CPoint(least, least), CPoint(most, most)));
    QCOMPARE(art.m_guideCount1, 0U);
    QVERIFY(art.DrawLine(1, CPoint(most, most), CPoint(most - 2, most)));
    QCOMPARE(text(art.line(1)),
             QStringLiteral("2147483647,2147483647 2147483646,2147483647 2147483645,2147483647"));
}

void TestGuideLines::straightLines()
{
    OpenArtText art;
    tagPOINT points[] = {{0, 0}, {1, 1}};
    QVERIFY(art.DrawLine(2, points, 2));
    points[0].x = 50; // the line is a copy
    QCOMPARE(text(art.line(2)), QStringLiteral("0,0 1,1"));
    QCOMPARE(art.m_guideKind1, 0);
    QCOMPARE(art.m_guideKind2, 1);
}

void TestGuideLines::lineOfOnePointIsEmpty()
{
    OpenArtText art;
    art.DrawEllipse(CPoint(0, 0), 5, 1, 0, 90);
    QVERIFY(art.m_guideCount1 > 0);
    const tagPOINT point{3, 3};
    QVERIFY(art.DrawLine(1, &point, 1));
    QCOMPARE(art.m_guideCount1, 0U);
    QCOMPARE(art.m_guideKind1, 1);
    QVERIFY(art.DrawLine(2, nullptr, 0));
    QCOMPARE(art.m_guideCount2, 0U);
    QCOMPARE(art.m_guideKind2, 1);
}

void TestGuideLines::lineWithoutPointsIsRefused()
{
    OpenArtText art;
    drawOld(art);
    const tagPOINT points[] = {{3, 3}, {5, 5}};
    QVERIFY(!art.DrawLine(1, points, -1));
    QVERIFY(!art.DrawLine(1, nullptr, 2));
    QVERIFY(!art.DrawCurve(1, nullptr, false));
    QVERIFY(!art.DrawEllipse(nullptr, 1, false));
    QVERIFY(hasOld(art));
}

void TestGuideLines::kindsFollowTheGenerator()
{
    OpenArtText art;
    for (int guide : {1, 2}) {
        QVERIFY(art.DrawLine(guide, CPoint(0, 0), CPoint(1, 0)));
        QCOMPARE(art.kind(guide), 1);
        QVERIFY(art.DrawCurve(guide, CPoint(0, 0), 1.0, 2.0, false));
        QCOMPARE(art.kind(guide), 2);
        QVERIFY(art.DrawCosText(guide, CPoint(0, 0), 1, 5, 8, 0, fullTurn, false, false));
        QCOMPARE(art.kind(guide), 3);
        QVERIFY(art.DrawEllipse(CPoint(0, 0), 5, guide, 0, 90));
        QCOMPARE(art.kind(guide), 4);
        QVERIFY(art.DrawSinText(guide, CPoint(0, 0), 1, 5, 8, 0, 0, false, false));
        QCOMPARE(art.kind(guide), 3);
        QVERIFY(art.line(guide).size() > 8);
    }
}

void TestGuideLines::otherGuidesLeaveLinesAndKindsAlone()
{
    OpenArtText art;
    drawOld(art);
    const tagPOINT threePoints[] = {{0, 4}, {2, 0}, {4, 4}};
    const CPoint arc[] = {{0, 0}, {50, 50}, {100, 0}};
    for (int guide : {-1, 0, 3}) {
        QVERIFY(!art.DrawLine(guide, CPoint(0, 0), CPoint(5, 0)));
        QVERIFY(!art.DrawLine(guide, threePoints, 3));
        QVERIFY(!art.DrawCurve(guide, CPoint(0, 0), 1.0, 2.0, false));
        QVERIFY(!art.DrawCurve(guide, threePoints, false));
        QVERIFY(!art.DrawCosText(guide, CPoint(0, 0), 1, 5, 8, 0, fullTurn, false, false));
        QVERIFY(!art.DrawSinText(guide, CPoint(0, 0), 1, 5, 8, 0, 0, false, false));
        QVERIFY(!art.DrawEllipse(CPoint(0, 0), 5, guide, 0, 90));
        QVERIFY(!art.DrawEllipse(arc, guide, false));
    }
    QVERIFY(hasOld(art));
    QCOMPARE(art.m_guideKind2, 0);
    QVERIFY(!art.m_guidePoints2);
}

void TestGuideLines::arcsWalkInHalfDegrees()
{
    const Arc start(CPoint(100, 100), 10, 0, 1.5);
    QVERIFY(start.result);
    QCOMPARE(text(start.line()), QStringLiteral("110,100 109,100 109,100"));
    QCOMPARE(int(Arc(CPoint(0, 0), 10, 0, 90).count), 180);
    QCOMPARE(int(Arc(CPoint(0, 0), 10, 0, 90.25).count), 181);
}

// The degree is a little too short: 270 of them fall short of the top, and the x is cut off.
void TestGuideLines::arcsUseTheirOwnDegree()
{
    QCOMPARE(text(Arc(CPoint(100, 100), 10, 270, 270.5).line()), QStringLiteral("99,90"));
    QCOMPARE(text(Arc(CPoint(100, 100), 10, 180, 180.5).line()), QStringLiteral("90,100"));
    QCOMPARE(text(Arc(CPoint(100, 100), 10, 90, 90.5).line()), QStringLiteral("100,110"));
}

void TestGuideLines::arcsWalkDownToo()
{
    QCOMPARE(text(Arc(CPoint(100, 100), 1000, 1, 0).line()), QStringLiteral("1099,117 1099,108"));
    QCOMPARE(text(Arc(CPoint(100, 100), 1000, 0, 1).line()), QStringLiteral("1100,100 1099,108"));
}

void TestGuideLines::radiusIsLimited()
{
    const Arc largest(CPoint(0, 0), 16000.0F, 0, 1);
    QVERIFY(largest.result);
    QCOMPARE(int(largest.count), 2);
    const Arc tooLarge(CPoint(0, 0), 16000.5F, 0, 1);
    QVERIFY(!tooLarge.result);
    QVERIFY(!tooLarge.points);
    QCOMPARE(int(tooLarge.count), 77);
    OpenArtText art;
    drawOld(art);
    QVERIFY(!art.DrawEllipse(CPoint(0, 0), 16000.5F, 1, 0, 90));
    QVERIFY(hasOld(art));
}

void TestGuideLines::arcWithoutAngleIsEmpty()
{
    const Arc arc(CPoint(0, 0), 10, 45, 45);
    QVERIFY(arc.result);
    QVERIFY(arc.points);
    QCOMPARE(int(arc.count), 0);
    OpenArtText art;
    QVERIFY(art.DrawEllipse(CPoint(0, 0), 10, 1, 45, 45));
    QCOMPARE(art.m_guideCount1, 0U);
    QCOMPARE(art.m_guideKind1, 4);
}

void TestGuideLines::arcIsAtMostOneTurn()
{
    QCOMPARE(int(Arc(CPoint(0, 0), 10, 180, 540).count), 720);
    QCOMPARE(int(Arc(CPoint(0, 0), 10, 360, 0).count), 720);
    const Arc more(CPoint(0, 0), 10, 0, 360.25);
    QVERIFY(more.result);
    QCOMPARE(int(more.count), 0);
}

// At 2^24 half a degree is less than a single can tell.
void TestGuideLines::arcWhoseAngleCannotGrowEnds()
{
    const Arc arc(CPoint(0, 0), 10, 16777216.0F, 16777220.0F);
    QVERIFY(arc.result);
    QCOMPARE(int(arc.count), 0);
}

void TestGuideLines::arcThroughThreePointsAbove()
{
    OpenArtText art;
    const CPoint points[] = {{0, 50}, {50, 0}, {100, 50}};
    QVERIFY(art.DrawEllipse(points, 1, true));
    QCOMPARE(art.m_guideKind1, 4);
    const Line line = art.line(1);
    QCOMPARE(text(line.mid(0, 1)), QStringLiteral("0,50"));
    QCOMPARE(line.last().x, 99); // half a degree before the end
    QCOMPARE(line.last().y, 49);
    QVERIFY(line.contains({49, 0})); // the top, cut off
    for (const Spot &spot : line)
        QVERIFY(std::abs(std::hypot(double(spot.x - 50), double(spot.y - 50)) - 50) < 1.5);
}

// The centre of (0, 20), (50, 0), (100, 20) is (50, 72): (2500 / 20 + 20) / 2, cut off.
void TestGuideLines::flatArcStaysAboveItsEnds()
{
    OpenArtText art;
    const CPoint points[] = {{0, 20}, {50, 0}, {100, 20}};
    QVERIFY(art.DrawEllipse(points, 1, true));
    const Line line = art.line(1);
    QVERIFY(line.first().x <= 1 && std::abs(line.first().y - 20) <= 1);
    QVERIFY(line.last().x >= 98 && std::abs(line.last().y - 20) <= 1);
    for (const Spot &spot : line) {
        QVERIFY(spot.y <= 20);
        const double radius = std::hypot(double(spot.x - 50), double(spot.y - 72));
        QVERIFY(std::abs(radius - std::sqrt(5204.0)) < 1.5);
    }
}

void TestGuideLines::arcThroughThreePointsBelow()
{
    OpenArtText art;
    const CPoint points[] = {{0, 0}, {50, 50}, {100, 0}};
    QVERIFY(art.DrawEllipse(points, 2, false));
    const Line line = art.line(2);
    QCOMPARE(text(line.mid(0, 1)), QStringLiteral("0,0"));
    QVERIFY(line.contains({50, 50}));
    QVERIFY(line.first().x < line.last().x);
    for (const Spot &spot : line)
        QVERIFY(spot.y >= 0);
}

// Both quotients are cut off.
void TestGuideLines::centreIsCutToWholeNumbers()
{
    OpenArtText drawn;
    const CPoint points[] = {{0, 3}, {5, 0}, {10, 3}};
    QVERIFY(drawn.DrawEllipse(points, 1, true));
    // (0 + 5 - 10) * (0 - 5) / (3 - 0) = 8, (8 + 3 + 0) / 2 = 5, the radius is that of (-5, -2).
    const Line line = drawn.line(1);
    QVERIFY(!line.isEmpty());
    for (const Spot &spot : line) {
        QVERIFY(std::abs(std::hypot(double(spot.x - 5), double(spot.y - 5)) - std::sqrt(29.0))
                < 1.5);
    }
    QCOMPARE(line.first().x, 0);
}

void TestGuideLines::threePointsOnALineMakeNoArc()
{
    OpenArtText art;
    drawOld(art);
    const CPoint level[] = {{0, 7}, {50, 7}, {100, 7}};
    QVERIFY(!art.DrawEllipse(level, 1, true));
    QVERIFY(hasOld(art));
    const CPoint flat[] = {{0, 1}, {1000, 0}, {2000, 1}}; // a radius of half a million
    QVERIFY(!art.DrawEllipse(flat, 1, true));
    QVERIFY(hasOld(art));
}

// With an odd width a half circle ends one step beyond its right side.
void TestGuideLines::arcWiderThanItsCircleIsRefused()
{
    OpenArtText art;
    drawOld(art);
    const CPoint points[] = {{0, 5}, {5, 0}, {11, 5}};
    QVERIFY(!art.DrawEllipse(points, 1, true));
    QVERIFY(hasOld(art));
}

void TestGuideLines::cosineWaves()
{
    const auto cosine = [](CPoint origin, bool invert, bool vertical) {
        Made made;
        made.result = CArtText::CreateCos(&made.points, &made.count, origin, 1, 5, 4, 0, fullTurn,
                                          invert, vertical);
        return text(made.line());
    };
    // A quarter of 6.283185307 is a little less than a right angle.
    QCOMPARE(cosine(CPoint(10, 20), false, false), QStringLiteral("10,25 11,20 12,15 13,19"));
    QCOMPARE(cosine(CPoint(10, 20), true, false), QStringLiteral("10,15 11,19 12,25 13,20"));
    QCOMPARE(cosine(CPoint(20, 100), false, true), QStringLiteral("25,100 20,101 15,102 19,103"));
    QCOMPARE(cosine(CPoint(20, 100), true, true), QStringLiteral("15,100 19,101 25,102 20,103"));
}

void TestGuideLines::sineWavesIgnoreTheirAngle()
{
    for (double ignored : {0.0, 99.0, notANumber}) {
        Made made;
        made.result = CArtText::CreateSin(&made.points, &made.count, CPoint(10, 20), 1, 5, 4, 0,
                                          ignored, false, false);
        QVERIFY(made.result);
        QCOMPARE(text(made.line()), QStringLiteral("10,20 11,25 12,20 13,15"));
    }
    OpenArtText art;
    QVERIFY(art.DrawSinText(1, CPoint(0, 0), 1, 1, 4, 0, infinite, false, false));
    QCOMPARE(text(art.line(1)), QStringLiteral("0,0 1,1 1,1 2,0 2,0 3,-1"));
}

void TestGuideLines::wavesStartAtTheirPhase()
{
    Made made;
    QVERIFY(CArtText::CreateSin(&made.points, &made.count, CPoint(0, 0), 1, 100, 2, 0.5235, 0,
                                false, false));
    QCOMPARE(text(made.line()), QStringLiteral("0,49 1,-49")); // sine of almost 30 degrees
}

void TestGuideLines::wavesEndBelowTheirLength()
{
    const auto points = [](float cycles, double period) {
        Made made;
        CArtText::CreateCos(&made.points, &made.count, CPoint(), cycles, 1, period, 0, 1, false,
                            false);
        return made.count;
    };
    QCOMPARE(points(1.5F, 4), 6U);
    QCOMPARE(points(1, 2.5), 3U);
    QCOMPARE(points(2, 0.25), 1U);
    QCOMPARE(points(-2, -3), 6U);
}

void TestGuideLines::wavesOf64000PointsFit()
{
    Made made;
    QVERIFY(
        CArtText::CreateCos(&made.points, &made.count, CPoint(), 1, 0, 64000, 0, 1, false, false));
    QCOMPARE(made.count, 64000U);
    QCOMPARE(made.points[63999].x, 63999);
    Made more;
    QVERIFY(CArtText::CreateSin(&more.points, &more.count, CPoint(), 1, 0, 64000.5, 0, 1, false,
                                false));
    QCOMPARE(more.count, 0U);

    // Dense, each point but the ends is there twice.
    OpenArtText art;
    QVERIFY(art.DrawCosText(1, CPoint(), 1, 0, 32001, 0, 1, false, false));
    QCOMPARE(art.m_guideCount1, 64000U);
    QVERIFY(art.DrawCosText(1, CPoint(), 1, 0, 32002, 0, 1, false, false));
    QCOMPARE(art.m_guideCount1, 0U);
    QCOMPARE(art.m_guideKind1, 3);
}

void TestGuideLines::wavesWithoutLengthAreEmpty()
{
    for (double period : {0.0, -4.0}) {
        OpenArtText art;
        drawOld(art);
        QVERIFY(art.DrawCosText(1, CPoint(), 1, 5, period, 0, fullTurn, false, false));
        QCOMPARE(art.m_guideCount1, 0U);
        QCOMPARE(art.m_guideKind1, 3);
        QVERIFY(art.DrawSinText(2, CPoint(), 1, 5, period, 0, 0, false, false));
        QCOMPARE(art.m_guideCount2, 0U);
        QCOMPARE(art.m_guideKind2, 3);
    }
}

void TestGuideLines::parabolas()
{
    const auto parabola = [](double a, double halfWidth, bool vertical) {
        Made made;
        CArtText::CreateCurve(&made.points, &made.count, CPoint(10, 20), a, halfWidth, vertical);
        return text(made.line());
    };
    QCOMPARE(parabola(0.5, 2.7, false), QStringLiteral("8,22 9,20 10,20 11,20 12,22"));
    QCOMPARE(parabola(-0.5, 2, false), QStringLiteral("8,18 9,19 10,20 11,19 12,18"));
    QCOMPARE(parabola(0.5, 2.7, true), QStringLiteral("12,18 10,19 10,20 10,21 12,22"));
    QCOMPARE(parabola(3, 0, false), QStringLiteral("10,20"));
}

// a = 25 / 9: 3 * (a * 3) is a little less than 25, a * 9 is not.
void TestGuideLines::parabolasRoundInTheirOrder()
{
    Made made;
    CArtText::CreateCurve(&made.points, &made.count, CPoint(0, 0), 25.0 / 9.0, 3, false);
    QCOMPARE(text(made.line()), QStringLiteral("-3,24 -2,11 -1,2 0,0 1,2 2,11 3,24"));
}

void TestGuideLines::parabolasOfNoWidth()
{
    Made made;
    QVERIFY(CArtText::CreateCurve(&made.points, &made.count, CPoint(), 1, -1, false));
    QVERIFY(made.points);
    QCOMPARE(made.count, 0U);
    OpenArtText art;
    QVERIFY(art.DrawCurve(1, CPoint(), 1, 0, false)); // a single point
    QCOMPARE(art.m_guideCount1, 0U);
    QCOMPARE(art.m_guideKind1, 2);
}

void TestGuideLines::parabolasOf64000PointsFit()
{
    Made made;
    QVERIFY(CArtText::CreateCurve(&made.points, &made.count, CPoint(), 0, 31999.5, false));
    QCOMPARE(made.count, 63999U);
    Made more;
    QVERIFY(CArtText::CreateCurve(&more.points, &more.count, CPoint(), 0, 32000, false));
    QCOMPARE(more.count, 0U);
}

void TestGuideLines::parabolaThroughThreePoints()
{
    OpenArtText art;
    const tagPOINT level[] = {{0, 9}, {3, 0}, {6, 9}};
    QVERIFY(art.DrawCurve(1, level, false));
    QCOMPARE(art.m_guideKind1, 2);
    const Line line = art.line(1);
    QCOMPARE(line.first(), (Spot{0, 9}));
    QCOMPARE(line.last(), (Spot{6, 9}));
    for (const Spot &spot : {Spot{1, 4}, Spot{2, 1}, Spot{3, 0}, Spot{4, 1}, Spot{5, 4}})
        QVERIFY(line.contains(spot));

    const tagPOINT upright[] = {{9, 0}, {0, 3}, {9, 6}};
    QVERIFY(art.DrawCurve(2, upright, true));
    const Line turned = art.line(2);
    QCOMPARE(turned.size(), line.size());
    for (int i = 0; i < line.size(); ++i)
        QCOMPARE(turned.at(i), (Spot{line.at(i).y, line.at(i).x}));

    // Half of 5 is 2; the other end's height plays no part.
    const tagPOINT odd[] = {{0, 4}, {2, 0}, {5, 99}};
    QVERIFY(art.DrawCurve(1, odd, false));
    QCOMPARE(art.line(1).first(), (Spot{0, 4}));
    QCOMPARE(art.line(1).last(), (Spot{4, 4}));
}

void TestGuideLines::parabolaWithoutARunIsRefused()
{
    OpenArtText art;
    drawOld(art);
    const tagPOINT steep[] = {{3, 9}, {3, 0}, {6, 9}};
    QVERIFY(!art.DrawCurve(1, steep, false));
    const tagPOINT noWhere[] = {{3, 3}, {3, 3}, {3, 3}};
    QVERIFY(!art.DrawCurve(1, noWhere, false));
    QVERIFY(!art.DrawCurve(1, noWhere, true));
    QVERIFY(hasOld(art));
}

void TestGuideLines::parabolaFromRightToLeftIsEmpty()
{
    OpenArtText art;
    drawOld(art);
    const tagPOINT points[] = {{6, 9}, {3, 0}, {1, 9}};
    QVERIFY(art.DrawCurve(1, points, false));
    QCOMPARE(art.m_guideCount1, 0U);
    QCOMPARE(art.m_guideKind1, 2);
}

void TestGuideLines::argumentsThatAreNotFiniteAreRefused_data()
{
    QTest::addColumn<Generator>("generator");
    for (double bad : {infinite, -infinite, notANumber}) {
        const auto row = [bad](const char *name, const Generator &generator) {
            QTest::addRow("%s %f", name, bad) << generator;
        };
        const auto single = float(bad);
        row("cosine cycles", [=](OpenArtText &art, int guide) {
            return art.DrawCosText(guide, CPoint(), single, 5, 8, 0, 6, false, false);
        });
        row("cosine amplitude", [=](OpenArtText &art, int guide) {
            return art.DrawCosText(guide, CPoint(), 1, bad, 8, 0, 6, false, false);
        });
        row("cosine period", [=](OpenArtText &art, int guide) {
            return art.DrawCosText(guide, CPoint(), 1, 5, bad, 0, 6, false, false);
        });
        row("cosine phase", [=](OpenArtText &art, int guide) {
            return art.DrawCosText(guide, CPoint(), 1, 5, 8, bad, 6, false, false);
        });
        row("cosine angle", [=](OpenArtText &art, int guide) {
            return art.DrawCosText(guide, CPoint(), 1, 5, 8, 0, bad, false, false);
        });
        row("sine cycles", [=](OpenArtText &art, int guide) {
            return art.DrawSinText(guide, CPoint(), single, 5, 8, 0, 0, false, false);
        });
        row("sine amplitude", [=](OpenArtText &art, int guide) {
            return art.DrawSinText(guide, CPoint(), 1, bad, 8, 0, 0, false, false);
        });
        row("sine period", [=](OpenArtText &art, int guide) {
            return art.DrawSinText(guide, CPoint(), 1, 5, bad, 0, 0, false, false);
        });
        row("sine phase", [=](OpenArtText &art, int guide) {
            return art.DrawSinText(guide, CPoint(), 1, 5, 8, bad, 0, false, false);
        });
        row("parabola", [=](OpenArtText &art, int guide) {
            return art.DrawCurve(guide, CPoint(), bad, 8, false);
        });
        row("parabola width", [=](OpenArtText &art, int guide) {
            return art.DrawCurve(guide, CPoint(), 1, bad, false);
        });
        row("radius", [=](OpenArtText &art, int guide) {
            return art.DrawEllipse(CPoint(), single, guide, 0, 90);
        });
        row("first angle", [=](OpenArtText &art, int guide) {
            return art.DrawEllipse(CPoint(), 5, guide, single, 90);
        });
        row("last angle", [=](OpenArtText &art, int guide) {
            return art.DrawEllipse(CPoint(), 5, guide, 0, single);
        });
    }
}

void TestGuideLines::argumentsThatAreNotFiniteAreRefused()
{
    QFETCH(Generator, generator);
    OpenArtText art;
    drawOld(art);
    QVERIFY(!generator(art, 1));
    QVERIFY(hasOld(art));
}

void TestGuideLines::absurdNumbersEnd_data()
{
    QTest::addColumn<Generator>("generator");
    const auto row = [](const char *name, const Generator &generator) {
        QTest::newRow(name) << generator;
    };
    for (double huge : {1e308, -1e308, 1e-308}) {
        const bool vertical = huge > 0;
        QTest::addRow("cosine %g", huge) << Generator([=](OpenArtText &art, int guide) {
            return art.DrawCosText(guide, CPoint(), 3e38F, huge, huge, huge, huge, true, vertical);
        });
        QTest::addRow("sine %g", huge) << Generator([=](OpenArtText &art, int guide) {
            return art.DrawSinText(guide, CPoint(), 3e38F, huge, huge, huge, huge, true, vertical);
        });
        QTest::addRow("parabola %g", huge) << Generator([=](OpenArtText &art, int guide) {
            return art.DrawCurve(guide, CPoint(), huge, huge, vertical);
        });
    }
    row("steep parabola", [](OpenArtText &art, int guide) {
        return art.DrawCurve(guide, CPoint(), 1e308, 40, false);
    });
    row("circle of many turns", [](OpenArtText &art, int guide) {
        return art.DrawEllipse(CPoint(), 5, guide, -3e38F, 3e38F);
    });
    row("circle of negative radius", [](OpenArtText &art, int guide) {
        return art.DrawEllipse(CPoint(), -3e38F, guide, 0, 90);
    });
    for (qint64 far : {farthest, nearestTo}) {
        const qint64 other = -1 - far;
        const CPoint corner(far, far);
        QTest::addRow("line %lld", far) << Generator([=](OpenArtText &art, int guide) {
            return art.DrawLine(guide, corner, CPoint(other, other));
        });
        QTest::addRow("cosine at %lld", far) << Generator([=](OpenArtText &art, int guide) {
            return art.DrawCosText(guide, corner, 1, 5, 8, 0, fullTurn, false, false);
        });
        QTest::addRow("upright sine at %lld", far) << Generator([=](OpenArtText &art, int guide) {
            return art.DrawSinText(guide, corner, 1, 5, 8, 0, 0, true, true);
        });
        QTest::addRow("circle at %lld", far) << Generator(
            [=](OpenArtText &art, int guide) { return art.DrawEllipse(corner, 5, guide, 0, 90); });
        for (bool flag : {false, true}) {
            QTest::addRow("parabola at %lld %d", far, flag)
                << Generator([=](OpenArtText &art, int guide) {
                       return art.DrawCurve(guide, corner, 1, 5, flag);
                   });
            QTest::addRow("three points of %lld %d", far, flag)
                << Generator([=](OpenArtText &art, int guide) {
                       const tagPOINT points[] = {{far, far}, {other, other}, {far, other}};
                       return art.DrawCurve(guide, points, flag);
                   });
            for (qint64 middle : {other, qint64(0), far / 2}) {
                QTest::addRow("arc of %lld %lld %d", far, middle, flag)
                    << Generator([=](OpenArtText &art, int guide) {
                           const CPoint points[] = {{far, far}, {0, middle}, {other, other}};
                           return art.DrawEllipse(points, guide, flag);
                       });
            }
        }
    }
    // A product that is the least number, by -1.
    row("arc of the least quotient", [](OpenArtText &art, int guide) {
        const CPoint points[] = {{Q_INT64_C(1) << 62, 0}, {0, 1}, {2, 0}};
        return art.DrawEllipse(points, guide, true);
    });
}

// Whatever comes out, it ends, and the line that stands there can be read to its end.
void TestGuideLines::absurdNumbersEnd()
{
    QFETCH(Generator, generator);
    OpenArtText art;
    drawOld(art);
    const bool drawn = generator(art, 1);
    QVERIFY(art.m_guideCount1 <= 64000U);
    QCOMPARE(art.line(1).size(), int(art.m_guideCount1));
    if (!drawn)
        QVERIFY(hasOld(art));
    QVERIFY(art.m_guideKind1 != 0);
    art.flip(std::numeric_limits<int>::min());
    CArtText::OffsetPos(CSize(farthest, nearestTo), art.m_guidePoints1, art.m_guideCount1);
    tagSIZE size;
    CArtText::GetRealTextExtent(art.m_guidePoints1, int(art.m_guideCount1), &size);
    art.m_size = CSize(3, 0);
    art.ResizeGuideLine(1, CSize(farthest, nearestTo));
    QVERIFY(art.m_guideCount1 <= 64000U);
}

void TestGuideLines::extentMovesPointsToTheOrigin()
{
    tagPOINT points[] = {{5, 5}, {7, 9}};
    tagSIZE size;
    CArtText::GetRealTextExtent(points, 2, &size);
    QCOMPARE(size.cx, 3);
    QCOMPARE(size.cy, 5);
    QCOMPARE(text(lineOf(points, 2)), QStringLiteral("0,0 2,4"));
}

void TestGuideLines::extentIsBounded()
{
    tagPOINT negative[] = {{-5, -9}, {-3, -2}};
    tagSIZE size;
    CArtText::GetRealTextExtent(negative, 2, &size);
    QCOMPARE(size.cx, 6); // to 0, not to -3
    QCOMPARE(size.cy, 10);
    QCOMPARE(text(lineOf(negative, 2)), QStringLiteral("0,0 2,7"));

    tagPOINT far[] = {{30000, 20001}};
    CArtText::GetRealTextExtent(far, 1, &size);
    QCOMPARE(size.cx, 10001); // from 20000
    QCOMPARE(size.cy, 2);
    QCOMPARE(text(lineOf(far, 1)), QStringLiteral("10000,1"));
}

void TestGuideLines::extentOfNothing()
{
    tagPOINT point{4, 4};
    for (int count : {0, -1}) {
        tagSIZE size;
        CArtText::GetRealTextExtent(&point, count, &size);
        QCOMPARE(size.cx, -19999);
        QCOMPARE(size.cy, -19999);
    }
    QCOMPARE(point.x, 4);
}

void TestGuideLines::resizeWaitsForASize()
{
    OpenArtText art;
    art.DrawLine(1, CPoint(0, 0), CPoint(2, 0));
    const tagPOINT *points = art.m_guidePoints1;
    art.ResizeGuideLine(1, CSize(100, 100));
    QCOMPARE(art.m_guidePoints1, points);
    QCOMPARE(text(art.line(1)), QStringLiteral("0,0 1,0 2,0"));
    art.m_size = CSize(4, 4);
    art.ResizeGuideLine(0, CSize(8, 8));
    art.ResizeGuideLine(3, CSize(8, 8));
    QCOMPARE(text(art.line(1)), QStringLiteral("0,0 1,0 2,0"));
    art.ResizeGuideLine(2, CSize(8, 8)); // no line
    QCOMPARE(art.m_guideCount2, 0U);
}

void TestGuideLines::resizeScalesAndFillsOut()
{
    OpenArtText art;
    art.m_size = CSize(4, 10);
    art.DrawLine(1, CPoint(0, 5), CPoint(2, 5));
    art.DrawLine(2, CPoint(0, 9), CPoint(2, 9));
    art.ResizeGuideLine(1, CSize(8, 5));
    QCOMPARE(text(art.line(1)), QStringLiteral("0,2 1,2 2,2 2,2 3,2 4,2"));
    QCOMPARE(text(art.line(2)), QStringLiteral("0,9 1,9 2,9"));
    art.ResizeGuideLine(2, CSize(2, 10));
    QCOMPARE(text(art.line(2)), QStringLiteral("0,9 0,9 1,9")); // 0, 0.5, 1, cut off
    QCOMPARE(art.m_size.cx, 4);
    QCOMPARE(art.m_size.cy, 10);
}

void TestGuideLines::resizeIsSinglePrecision()
{
    OpenArtText art;
    art.m_size = CSize(1, 1);
    art.DrawLine(1, CPoint(16777217, 0), CPoint(16777218, 0));
    art.ResizeGuideLine(1, CSize(1, 1));
    QCOMPARE(text(art.line(1)), QStringLiteral("16777216,0 16777217,0 16777218,0"));

    art.m_size = CSize(41, 41); // 41 times a 41st falls short of 1, in single precision only
    art.DrawLine(1, CPoint(1, 0), CPoint(0, 0));
    art.ResizeGuideLine(1, CSize(41, 41));
    QCOMPARE(text(art.line(1)), QStringLiteral("0,0"));
}

void TestGuideLines::resizeFromAnEmptySide()
{
    OpenArtText art;
    art.m_size = CSize(0, 4);
    art.DrawLine(1, CPoint(0, 0), CPoint(1, 4));
    art.ResizeGuideLine(1, CSize(8, 4));
    QCOMPARE(art.m_guideCount1, 0U); // from 0 to the end of the numbers: too long
    art.DrawLine(2, CPoint(0, 0), CPoint(0, 2));
    art.ResizeGuideLine(2, CSize(8, 4));
    QCOMPARE(text(art.line(2)), QStringLiteral("0,0 0,1 0,1 0,2"));
}

QTEST_GUILESS_MAIN(TestGuideLines)
#include "tst_guidelines.moc"
