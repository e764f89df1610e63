// SPDX-License-Identifier: MIT
#include "tests/arttext/openart.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

QPainterPath points(std::initializer_list<QPointF> list)
{
    QPainterPath path;
    for (const QPointF &point : list) {
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    return path;
}

/// "x,y x,y ..."
QString text(const QPainterPath &path)
{
    QStringList spots;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        spots.append(QStringLiteral("%1,%2").arg(element.x).arg(element.y));
    }
    return spots.join(QLatin1Char(' '));
}

/// A box of 100 by 50 in a target of the same size.
struct Box : OpenArtText {
    Box()
    {
        DrawLine(1, CPoint(0, 0), CPoint(100, 0));
        DrawLine(2, CPoint(0, 50), CPoint(100, 50));
    }
    QString bent(const QPainterPath &path, const QSizeF &source = QSizeF(100, 50),
                 const CSize &target = CSize(100, 50), const QPointF &origin = QPointF(),
                 bool vertical = false) const
    {
        return text(lensDeform(path, origin, source, target, vertical));
    }
};

} // namespace

class TestLensDeform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutBothLinesNothingMoves();
    void plainBoxCutsToWholeNumbers();
    void lastPointIsReadAtTheEnd();
    void elementsBeyondTheEndsStay();
    void elementsAboveAndBelowAreMixedOn();
    void linesOfDifferentLengthsPairUp();
    void originIsAdded();
    void verticalTextIsLookedUpByItsHeight();
    void resultIsScaledBackFromTheTarget();
    void resultStaysInTheSource();
    void lookupIsSinglePrecision();
    void mixIsSinglePrecision();
    void curvesKeepTheirElements();
    void pathItselfIsLeftAlone();
    void styleOfARectangleKeepsPlaces();
    void absurdSizesLeaveThePathAsItIs_data();
    void absurdSizesLeaveThePathAsItIs();
    void absurdElementsAndLinesEnd();
};

void TestLensDeform::withoutBothLinesNothingMoves()
{
    OpenArtText art;
    const QPainterPath path = points({{3.5, 4.5}, {7, 8}});
    const auto bent = [&] {
        return art.lensDeform(path, QPointF(), QSizeF(10, 10), CSize(5, 5), false);
    };
    QCOMPARE(bent(), path);
    art.DrawLine(1, CPoint(0, 0), CPoint(10, 0));
    QCOMPARE(bent(), path);
    art.DrawLine(2, CPoint(0, 0), CPoint(10, 0));
    QVERIFY(bent() != path);
    art.DrawLine(1, CPoint(0, 0), CPoint(64000, 0)); // too long
    QCOMPARE(bent(), path);
}

void TestLensDeform::plainBoxCutsToWholeNumbers()
{
    const Box box;
    QCOMPARE(box.bent(points({{0, 0}, {25.75, 30.5}, {99.9, 49.9}})),
             QStringLiteral("0,0 25,30 99,49"));
}

void TestLensDeform::lastPointIsReadAtTheEnd()
{
    const Box box;
    QCOMPARE(box.bent(points({{100, 0}, {100, 50}})), QStringLiteral("100,0 100,50"));
}

void TestLensDeform::elementsBeyondTheEndsStay()
{
    const Box box;
    QCOMPARE(box.bent(points({{101.5, 10.5}, {-1.5, 10.5}})),
             QStringLiteral("101.5,10.5 -1.5,10.5"));
    // Less than one step before the start is still the first point.
    QCOMPARE(box.bent(points({{-0.5, 10.5}})), QStringLiteral("0,10"));
}

void TestLensDeform::elementsAboveAndBelowAreMixedOn()
{
    Box box;
    box.DrawLine(1, CPoint(0, 20), CPoint(100, 20));
    box.DrawLine(2, CPoint(0, 40), CPoint(100, 40));
    // v = -0.5, 0, 0.5, 1 and 1.5 between 20 and 40.
    QCOMPARE(box.bent(points({{10, -25}, {10, 0}, {10, 25}, {10, 50}, {10, 75}})),
             QStringLiteral("10,10 10,20 10,30 10,40 10,50"));
}

void TestLensDeform::linesOfDifferentLengthsPairUp()
{
    OpenArtText art;
    art.DrawLine(1, CPoint(0, 0), CPoint(100, 0));
    art.DrawLine(2, CPoint(40, 100), CPoint(60, 100));
    const QPainterPath path = points({{0, 100}, {50, 100}, {100, 100}, {0, 50}, {100, 50}});
    const QPainterPath bent = art.lensDeform(path, QPointF(), QSizeF(100, 100), CSize(100, 100),
                                             false);
    QCOMPARE(text(bent), QStringLiteral("40,100 50,100 60,100 20,50 80,50"));
}

void TestLensDeform::originIsAdded()
{
    const Box box;
    QCOMPARE(box.bent(points({{0, 0}, {10, 10}}), QSizeF(100, 50), CSize(100, 50), QPointF(20, 5)),
             QStringLiteral("20,5 30,15"));
}

void TestLensDeform::verticalTextIsLookedUpByItsHeight()
{
    OpenArtText art;
    art.DrawLine(1, CPoint(10, 0), CPoint(10, 80)); // the left edge
    art.DrawLine(2, CPoint(30, 0), CPoint(30, 80)); // the right edge
    const QPainterPath path = points({{0, 0}, {40, 0}, {0, 80}, {20, 40}});
    const QPainterPath bent = art.lensDeform(path, QPointF(), QSizeF(40, 80), CSize(40, 80), true);
    QCOMPARE(text(bent), QStringLiteral("10,0 30,0 10,80 20,40"));
}

void TestLensDeform::resultIsScaledBackFromTheTarget()
{
    const Box box;
    // Guide lines of 100 by 50 stand for a text of 200 by 25.
    QCOMPARE(box.bent(points({{0, 0}, {200, 25}, {101, 13}}), QSizeF(200, 25)),
             QStringLiteral("0,0 200,25 100,13"));
    QCOMPARE(box.bent(points({{50, 25}}), QSizeF(100, 50), CSize(1000, 100)),
             QStringLiteral("5,12.5"));
}

void TestLensDeform::resultStaysInTheSource()
{
    Box box;
    box.DrawLine(1, CPoint(-50, -9), CPoint(150, -9));
    box.DrawLine(2, CPoint(-50, 99), CPoint(150, 99));
    QCOMPARE(box.bent(points({{0, 0}, {50, 0}, {100, 50}})), QStringLiteral("0,0 50,0 100,50"));
    QCOMPARE(box.bent(points({{60, 20}}), QSizeF(100, 50), CSize(-100, 50)),
             QStringLiteral("0,34"));
}

// In double precision both come out one point further or nearer.
void TestLensDeform::lookupIsSinglePrecision()
{
    const Box box;
    const QPainterPath path = box.lensDeform(points({{0.3, 0}}), QPointF(), QSizeF(0.4, 50),
                                             CSize(100, 50), false);
    QCOMPARE(path.elementAt(0).x, 0.3); // point 75, not 74
    OpenArtText art;
    art.DrawLine(1, CPoint(0, 0), CPoint(3, 0));
    art.DrawLine(2, CPoint(0, 0), CPoint(3, 0));
    const QPainterPath bent = art.lensDeform(points({{0.1, 0}}), QPointF(), QSizeF(0.3, 1),
                                             CSize(3, 1), false);
    QCOMPARE(bent.elementAt(0).x, 0.0); // point 0, not 1
}

// 16777217 has no place in single precision.
void TestLensDeform::mixIsSinglePrecision()
{
    OpenArtText art;
    art.DrawLine(1, CPoint(16777217, 0), CPoint(16777219, 0));
    art.DrawLine(2, CPoint(16777217, 9), CPoint(16777219, 9));
    const QPainterPath bent = art.lensDeform(points({{0, 0}, {16777219, 0}}), QPointF(),
                                             QSizeF(16777219, 10), CSize(16777219, 10), false);
    QCOMPARE(bent.elementAt(0).x, 16777216.0);
    QCOMPARE(bent.elementAt(1).x, 16777219.0); // 16777220, kept in the source
}

void TestLensDeform::curvesKeepTheirElements()
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.moveTo(10.5, 10.5);
    path.cubicTo(20.5, 20.5, 30.5, 30.5, 40.5, 40.5);
    path.closeSubpath();
    const Box box;
    const QPainterPath bent = box.lensDeform(path, QPointF(), QSizeF(100, 50), CSize(100, 50),
                                             false);
    QCOMPARE(bent.elementCount(), path.elementCount());
    for (int i = 0; i < path.elementCount(); ++i)
        QCOMPARE(int(bent.elementAt(i).type), int(path.elementAt(i).type));
    QCOMPARE(bent.fillRule(), Qt::WindingFill);
    QCOMPARE(text(bent), QStringLiteral("10,10 20,20 30,30 40,40 10,10"));
}

void TestLensDeform::pathItselfIsLeftAlone()
{
    const Box box;
    const QPainterPath path = points({{1.5, 1.5}});
    QVERIFY(box.lensDeform(path, QPointF(), QSizeF(100, 50), CSize(100, 50), false) != path);
    QCOMPARE(text(path), QStringLiteral("1.5,1.5"));
    QVERIFY(box.lensDeform(QPainterPath(), QPointF(), QSizeF(100, 50), CSize(100, 50), false)
                .isEmpty());
}

void TestLensDeform::styleOfARectangleKeepsPlaces()
{
    OpenArtText art;
    art.Resize(CSize(4096, 4096), 0);
    const QSizeF source(300, 70);
    for (int i = 0; i <= 20; ++i) {
        const QPointF place(source.width() * i / 20, source.height() * (20 - i) / 20);
        const QPainterPath bent = art.lensDeform(points({place}), QPointF(), source,
                                                 CSize(4096, 4096), false);
        const QPointF moved = bent.elementAt(0);
        QVERIFY(std::abs(moved.x() - place.x()) <= source.width() / 4096);
        QVERIFY(std::abs(moved.y() - place.y()) <= source.height() / 4096);
    }
}

void TestLensDeform::absurdSizesLeaveThePathAsItIs_data()
{
    QTest::addColumn<QSizeF>("source");
    QTest::addColumn<QPoint>("target");
    const QPoint whole(100, 50);
    for (double side : {0.0, -1.0, infinite, -infinite, notANumber}) {
        QTest::addRow("width %f", side) << QSizeF(side, 50) << whole;
        QTest::addRow("height %f", side) << QSizeF(100, side) << whole;
    }
    QTest::newRow("target width 0") << QSizeF(100, 50) << QPoint(0, 50);
    QTest::newRow("target height 0") << QSizeF(100, 50) << QPoint(100, 0);
}

void TestLensDeform::absurdSizesLeaveThePathAsItIs()
{
    QFETCH(QSizeF, source);
    QFETCH(QPoint, target);
    const Box box;
    const QPainterPath path = points({{0, 0}, {10.5, 20.5}});
    for (bool vertical : {false, true}) {
        QCOMPARE(box.bent(path, source, CSize(target.x(), target.y()), QPointF(), vertical),
                 text(path));
    }
}

void TestLensDeform::absurdElementsAndLinesEnd()
{
    Box box;
    const auto isFinite = [](const QPainterPath &path) {
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPainterPath::Element element = path.elementAt(i);
            if (!std::isfinite(element.x) || !std::isfinite(element.y))
                return false;
        }
        return true;
    };
    const QPainterPath huge = points({{1e300, 0}, {-1e300, 1e300}, {0, 1e300}, {0, -1e300}});
    QCOMPARE(box.bent(huge), text(huge)); // beyond all singles
    for (double origin : {infinite, notANumber}) {
        const QPointF far(origin, origin);
        QCOMPARE(box.bent(points({{1.5, 1.5}}), QSizeF(100, 50), CSize(100, 50), far),
                 QStringLiteral("1.5,1.5"));
    }
    for (const QSizeF &source : {QSizeF(1e-300, 1e-300), QSizeF(1e300, 1e300)})
        QVERIFY(isFinite(
            box.lensDeform(points({{0, 0}, {9, 9}}), QPointF(), source, CSize(1, 1), false)));
    constexpr qint64 far = std::numeric_limits<qint64>::max();
    box.SetGuideLine(newPoints({{far, -far}, {-far, far}}), 2, 1);
    QVERIFY(isFinite(box.lensDeform(points({{0, 0}, {100, 50}, {50, -9e30}}), QPointF(),
                                    QSizeF(100, 50), CSize(far, -far), false)));
}

QTEST_GUILESS_MAIN(TestLensDeform)
#include "tst_lensdeform.moc"
