// SPDX-License-Identifier: MIT
// tst_handles.cpp -- handles: places, hit test, painting; bounds, rotation and pictures of an
// object.
#include "plainobject.h"
#include "recordinghost.h"

#include <QtTest>

#include <limits>

namespace {

struct Place {
    int handle;
    QPointF middle;
};

// A client rectangle of 100 by 50 at zoom 1.
const QVector<Place> places{
    {20, {0, 0}},  {21, {100, 50}}, {22, {50, 0}}, {27, {50, 50}}, {23, {100, 0}},
    {26, {0, 50}}, {24, {100, 25}}, {25, {0, 25}}, {2, {50, -24}},
};

QImage paintedHandles(PlainObject &object)
{
    QImage image(240, 240, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(60, 60);
    object.paintHandlersInScene(&object, &painter);
    return image;
}

bool hasInkAround(const QImage &image, const QPointF &scene)
{
    const QPoint middle = (scene + QPointF(60, 60)).toPoint();
    for (int y = -3; y <= 3; ++y) {
        for (int x = -3; x <= 3; ++x) {
            if (qAlpha(image.pixel(middle + QPoint(x, y))) == 0)
                return false;
        }
    }
    return true;
}

} // namespace

class TestHandles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachHandleIsHitAtItsPlace();
    void disabledHandlesAreNeitherHitNorPainted();
    void nothingIsHitWhileHandlesAreHidden();
    void lockedObjectHasNoHandles();
    void handlesKeepTheirSizeOnScreen();
    void nearestOfOverlappingHandlesIsHit();
    void shapePathHoldsShownHandles();
    void handlesArePaintedWhereTheyAreHit();
    void uprightLinesCoverWholePixels_data();
    void uprightLinesCoverWholePixels();
    void dashedFrameNeedsNoHandles();
    void boundsHoldAllHandles();
    void boundsFollowTheClientRectangle();
    void rotationKeepsTheCentre();
    void centreOfARotatedObjectIsPlaced();
    void unusableNumbersAreRefused();
    void pictureShowsTheObjectAsItLies();
    void pictureOfTurnedObjectIsUpright();
    void pictureIsRefusedWithoutAreaAndWhenTooLarge();
    void invertAreaIsShownInverted();
    void zoomThatIsNoNumberCountsAsOne();
};

void TestHandles::eachHandleIsHitAtItsPlace()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    for (const Place &place : places) {
        QCOMPARE(object.handlePosition(place.handle), place.middle);
        QCOMPARE(object.HitTestHandle(place.middle), place.handle);
        QCOMPARE(object.HitTestHandle(place.middle + QPointF(4.5, -4.5)), place.handle);
        QCOMPARE(object.HitTestHandle(place.middle + QPointF(0, 7)), 0);
    }
    QCOMPARE(object.HitTestHandle(QPointF(30, 25)), 0);
}

void TestHandles::disabledHandlesAreNeitherHitNorPainted()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    for (const Place &place : places) {
        object.setHandlesDisable(CObjAction::ACT_Def(place.handle), true);
        QVERIFY(object.isHandleDisabled(place.handle));
        QCOMPARE(object.HitTestHandle(place.middle), 0);
        QVERIFY(!hasInkAround(paintedHandles(object), place.middle));
        object.setHandlesDisable(CObjAction::ACT_Def(place.handle), false);
        QCOMPARE(object.HitTestHandle(place.middle), place.handle);
    }
}

void TestHandles::nothingIsHitWhileHandlesAreHidden()
{
    RecordingHost host;
    PlainObject object(&host);
    QCOMPARE(object.HitTestHandle(QPointF(0, 0)), 0);
    object.setShowHandles(&object, true, true);
    QCOMPARE(object.HitTestHandle(QPointF(0, 0)), 20);
    object.setShowHandles(&object, false, true);
    QCOMPARE(object.HitTestHandle(QPointF(0, 0)), 0);
}

void TestHandles::lockedObjectHasNoHandles()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    object.setLocked(true, false, false);
    QCOMPARE(object.HitTestHandle(QPointF(0, 0)), 0);
    QVERIFY(!hasInkAround(paintedHandles(object), QPointF(0, 0)));
}

void TestHandles::handlesKeepTheirSizeOnScreen()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    QCOMPARE(object.HitTestHandle(QPointF(4, 4)), 20);
    host.zoom = 4.0f;
    QCOMPARE(object.handleSize(), 2.5);
    QCOMPARE(object.HitTestHandle(QPointF(4, 4)), 0);
    QCOMPARE(object.HitTestHandle(QPointF(1, 1)), 20);
    QCOMPARE(object.HitTestHandle(QPointF(50, -6)), 2);
    host.zoom = 0.5f;
    QCOMPARE(object.HitTestHandle(QPointF(-9, -9)), 20);
}

void TestHandles::nearestOfOverlappingHandlesIsHit()
{
    RecordingHost host;
    PlainObject object(&host, QSizeF(6, 6));
    object.setShowHandles(&object, true, false);
    QCOMPARE(object.HitTestHandle(QPointF(-1, -1)), 20);
    QCOMPARE(object.HitTestHandle(QPointF(7, 7)), 21);
    QCOMPARE(object.HitTestHandle(QPointF(3, -1)), 22);
}

void TestHandles::shapePathHoldsShownHandles()
{
    RecordingHost host;
    PlainObject object(&host);
    QPainterPath path;
    object.addHandlePath(&object, &path, 1.0);
    QVERIFY(path.isEmpty());
    object.setShowHandles(&object, true, false);
    object.setHandlesDisable(CObjAction::ACT_Rotate, true);
    object.addHandlePath(&object, &path, 1.0);
    QCOMPARE(path.boundingRect(), QRectF(-5, -5, 110, 60));
    QPainterPath wide;
    object.addHandlePath(&object, &wide, 2.0);
    QCOMPARE(wide.boundingRect(), QRectF(-10, -10, 120, 70));
}

void TestHandles::handlesArePaintedWhereTheyAreHit()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    object.setPos(QPointF(10, 20), false);
    object.rotateObj(30, false);
    const QImage image = paintedHandles(object);
    for (const Place &place : places)
        QVERIFY2(hasInkAround(image, object.mapToScene(place.middle)),
                 qPrintable(QString::number(place.handle)));
}

void TestHandles::uprightLinesCoverWholePixels_data()
{
    QTest::addColumn<double>("pixelRatio");
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("lineWidth");
    QTest::newRow("plain screen") << 1.0 << 1.0 << 1;
    QTest::newRow("plain screen, enlarged") << 1.0 << 1.37 << 1;
    QTest::newRow("a quarter finer") << 1.25 << 1.0 << 1;
    QTest::newRow("half as fine again") << 1.5 << 1.0 << 2;
    QTest::newRow("twice as fine, made smaller") << 2.0 << 0.73 << 2;
}

void TestHandles::uprightLinesCoverWholePixels()
{
    QFETCH(double, pixelRatio);
    QFETCH(double, zoom);
    QFETCH(int, lineWidth);
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    object.setPos(QPointF(30.3, 50.6), false);
    QImage image(600, 400, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(zoom, zoom);
    object.paintHandlersInScene(&object, &painter);
    painter.end();
    // Across the left edge and the top edge, each between two handles.
    const QPointF corner = QPointF(30.3, 50.6) * zoom * pixelRatio;
    const QPointF beside = corner + QPointF(25, 12.5) * zoom * pixelRatio;
    int across = 0;
    int down = 0;
    for (int step = -6; step <= 6; ++step) {
        const int atLeft = qAlpha(image.pixel(qRound(corner.x()) + step, qRound(beside.y())));
        const int atTop = qAlpha(image.pixel(qRound(beside.x()), qRound(corner.y()) + step));
        QVERIFY2(atLeft == 0 || atLeft == 255, qPrintable(QString::number(atLeft)));
        QVERIFY2(atTop == 0 || atTop == 255, qPrintable(QString::number(atTop)));
        across += atLeft == 255;
        down += atTop == 255;
    }
    QCOMPARE(across, lineWidth);
    QCOMPARE(down, lineWidth);
}

void TestHandles::dashedFrameNeedsNoHandles()
{
    RecordingHost host;
    PlainObject object(&host);
    const auto inkOnTopEdge = [&object] {
        const QImage image = paintedHandles(object);
        int count = 0;
        for (int x = 70; x < 150; ++x)
            count += qAlpha(image.pixel(x, 60)) > 0 || qAlpha(image.pixel(x, 59)) > 0;
        return count;
    };
    QCOMPARE(inkOnTopEdge(), 0);
    object.handleParams().insert(QStringLiteral("dashlineRectangleHandle"), true);
    const int dashed = inkOnTopEdge();
    QVERIFY2(dashed > 20 && dashed < 78, qPrintable(QString::number(dashed)));
    object.handleParams().insert(QStringLiteral("dashlineRectangleHandle"), false);
    object.setShowHandles(&object, true, false);
    QCOMPARE(inkOnTopEdge(), 80);
}

void TestHandles::boundsHoldAllHandles()
{
    RecordingHost host;
    PlainObject object(&host);
    for (const Place &place : places)
        QVERIFY(
            object.boundingRect().contains(QRectF(place.middle - QPointF(5, 5), QSizeF(10, 10))));
}

void TestHandles::boundsFollowTheClientRectangle()
{
    RecordingHost host;
    auto *const object = new PlainObject(&host);
    host.scene().addItem(object);
    object->CVXRootObject::setSize(QSizeF(300, 200), false, true);
    QVERIFY(object->boundingRect().contains(QRectF(0, 0, 300, 200)));
    QCOMPARE(object->clientShapeRect(), QRectF(0, 0, 300, 200));
    QVERIFY(host.scene().items(QPointF(290, 190)).contains(object));
    object->CVXRootObject::setSize(QSizeF(10, 10), false, true);
    QVERIFY(!host.scene().items(QPointF(290, 190)).contains(object));
}

void TestHandles::rotationKeepsTheCentre()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setPos(QPointF(40, 60), false);
    const QPointF centre = object.mapToScene(QPointF(50, 25));
    for (const double angle : {30.0, 90.0, -200.0, 365.0}) {
        object.rotateObj(angle, false);
        QVERIFY(distance(object.mapToScene(QPointF(50, 25)), centre) < 1e-9);
        // The position is where the item's origin lies, whatever the rotation.
        QVERIFY(distance(object.mapToScene(QPointF(0, 0)), object.getPos()) < 1e-9);
    }
    QCOMPARE(object.getRotate(), 285.0);
    QCOMPARE(host.stack().count(), 0);
}

void TestHandles::centreOfARotatedObjectIsPlaced()
{
    RecordingHost host;
    PlainObject object(&host);
    object.rotateObj(37, false);
    object.setCenterPos(QPointF(500, 300), QSizeF(100, 50));
    QVERIFY(distance(object.mapToScene(QPointF(50, 25)), QPointF(500, 300)) < 1e-9);
    QCOMPARE(object.getRotate(), 37.0);
}

void TestHandles::unusableNumbersAreRefused()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    RecordingHost host;
    PlainObject object(&host);
    object.setPos(QPointF(1, 2), false);
    object.setPos(QPointF(nan, 0), false);
    object.setSize(QSizeF(infinite, 5), false, true);
    object.setSize(QSizeF(-1, 5), false, true);
    object.rotateObj(nan, false);
    object.setCenterPos(QPointF(0, infinite), QSizeF(1, 1));
    QCOMPARE(object.getPos(), QPointF(1, 2));
    QCOMPARE(object.getSize(), QSizeF(100, 50));
    QCOMPARE(object.getRotate(), 0.0);
}

void TestHandles::pictureShowsTheObjectAsItLies()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setPos(QPointF(-30, 12), false);
    QRectF rect;
    const QImage image = object.getImageFromObject(rect, false);
    QCOMPARE(rect, QRectF(-30, 12, 100, 50));
    QCOMPARE(image.size(), QSize(100, 50));
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(image.pixelColor(99, 49), QColor(Qt::red));
}

void TestHandles::pictureOfTurnedObjectIsUpright()
{
    RecordingHost host;
    PlainObject object(&host);
    object.rotateObj(90, false);
    QRectF rect;
    const QImage image = object.getImageFromObject(rect, false);
    QCOMPARE(rect.center(), QPointF(50, 25));
    QVERIFY(rect.width() <= 52 && rect.height() >= 100);
    QCOMPARE(image.pixelColor(image.width() / 2, 3), QColor(Qt::red));
}

void TestHandles::pictureIsRefusedWithoutAreaAndWhenTooLarge()
{
    RecordingHost host;
    QRectF rect(1, 2, 3, 4);
    PlainObject empty(&host, QSizeF(0, 10));
    QVERIFY(empty.getImageFromObject(rect, false).isNull());
    PlainObject wide(&host, QSizeF(40000, 10));
    QVERIFY(wide.getImageFromObject(rect, false).isNull());
    PlainObject large(&host, QSizeF(20000, 20000));
    QVERIFY(large.getImageFromObject(rect, false).isNull());
    QCOMPARE(rect, QRectF(1, 2, 3, 4));
}

void TestHandles::invertAreaIsShownInverted()
{
    RecordingHost host;
    PlainObject object(&host);
    QPainterPath area;
    area.addRect(10, 10, 20, 20);
    object.invert(area);
    QImage image(100, 50, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        object.paint(&painter, nullptr, nullptr);
    }
    QCOMPARE(image.pixelColor(5, 5), QColor(Qt::red));
    QCOMPARE(image.pixelColor(20, 20), QColor(Qt::cyan));
    {
        QPainter painter(&image);
        object.drawDelegate()->paintInvertArea(&painter);
    }
    QCOMPARE(image.pixelColor(20, 20), QColor(Qt::red));
}

void TestHandles::zoomThatIsNoNumberCountsAsOne()
{
    RecordingHost host;
    PlainObject object(&host);
    for (const float zoom : {0.0f, -2.0f, std::numeric_limits<float>::quiet_NaN(),
                             std::numeric_limits<float>::infinity()}) {
        host.zoom = zoom;
        QCOMPARE(object.getCurZoomRate(), 1.0f);
        QCOMPARE(object.handleSize(), 10.0);
    }
    PlainObject pageless(nullptr);
    QCOMPARE(pageless.getCurZoomRate(), 1.0f);
}

QTEST_MAIN(TestHandles)
#include "tst_handles.moc"
