// SPDX-License-Identifier: MIT
// tst_drags.cpp -- selection, move, resize and rotation with the mouse.
#include "plainobject.h"
#include "recordinghost.h"

#include <QtTest>

class TestDrags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pressSelectsOneObject();
    void ctrlPressTogglesSelection();
    void dragMovesAndIsOneStep();
    void clickWithASlipMovesNothing();
    void selectedObjectsMoveTogetherAsOneStep();
    void companionsFollowThoughTheyAreDeselected();
    void cancelledDragChangesNothing_data();
    void cancelledDragChangesNothing();
    void resizeKeepsTheOppositeSide_data();
    void resizeKeepsTheOppositeSide();
    void resizeStopsAtTheSmallestSize();
    void rotateHandleTurnsAboutTheCentre();
    void shiftRotatesInSteps();
    void lockedObjectIsOnlySelected();
    void activeHandleLastsAsLongAsTheDrag();
    void eventsWithoutADragAreIgnored();
};

void TestDrags::pressSelectsOneObject()
{
    RecordingHost host;
    auto *const first = new PlainObject(&host);
    auto *const second = new PlainObject(&host);
    host.scene().addItem(first);
    host.scene().addItem(second);
    first->setSelected(true);
    drag(*second, {50, 25}, {50, 25});
    QVERIFY(!first->isSelected());
    QVERIFY(second->isSelected());
    QVERIFY(second->isShowHandles());
    QVERIFY(!first->isShowHandles());
    QCOMPARE(host.stack().count(), 0);
}

void TestDrags::ctrlPressTogglesSelection()
{
    RecordingHost host;
    auto *const first = new PlainObject(&host);
    auto *const second = new PlainObject(&host);
    host.scene().addItem(first);
    host.scene().addItem(second);
    first->setSelected(true);
    drag(*second, {50, 25}, {50, 25}, Qt::ControlModifier);
    QVERIFY(first->isSelected() && second->isSelected());
    drag(*second, {50, 25}, {50, 25}, Qt::ControlModifier);
    QVERIFY(first->isSelected() && !second->isSelected());
}

void TestDrags::dragMovesAndIsOneStep()
{
    RecordingHost host;
    PlainObject object(&host);
    drag(object, {50, 25}, {80, 5});
    QCOMPARE(object.getPos(), QPointF(30, -20));
    QCOMPARE(host.stack().count(), 1);
    QCOMPARE(host.stack().text(0), QStringLiteral("IDS_ITEM_MOVE"));
    host.stack().undo();
    QCOMPARE(object.getPos(), QPointF(0, 0));
    host.stack().redo();
    QCOMPARE(object.getPos(), QPointF(30, -20));
}

void TestDrags::clickWithASlipMovesNothing()
{
    RecordingHost host;
    PlainObject object(&host);
    drag(object, {50, 25}, {51, 26});
    QCOMPARE(object.getPos(), QPointF(0, 0));
    QCOMPARE(host.stack().count(), 0);
    host.zoom = 4.0f; // the slip is measured on screen
    drag(object, {50, 25}, {51, 26});
    QCOMPARE(object.getPos(), QPointF(1, 1));
}

void TestDrags::selectedObjectsMoveTogetherAsOneStep()
{
    RecordingHost host;
    auto *const first = new PlainObject(&host);
    auto *const second = new PlainObject(&host);
    auto *const locked = new PlainObject(&host);
    second->setPos(QPointF(200, 0), false);
    locked->setLocked(true, false, false);
    for (PlainObject *object : {first, second, locked}) {
        host.scene().addItem(object);
        object->setSelected(true);
    }
    drag(*first, {50, 25}, {60, 35});
    QCOMPARE(first->getPos(), QPointF(10, 10));
    QCOMPARE(second->getPos(), QPointF(210, 10));
    QCOMPARE(locked->getPos(), QPointF(0, 0));
    QCOMPARE(host.stack().count(), 1);
    host.stack().undo();
    QCOMPARE(first->getPos(), QPointF(0, 0));
    QCOMPARE(second->getPos(), QPointF(200, 0));
}

void TestDrags::companionsFollowThoughTheyAreDeselected()
{
    RecordingHost host;
    auto *const first = new PlainObject(&host);
    auto *const second = new PlainObject(&host);
    auto *const gone = new PlainObject(&host);
    for (PlainObject *object : {first, second, gone}) {
        host.scene().addItem(object);
        object->setSelected(true);
    }
    sendMouse(*first, QEvent::GraphicsSceneMousePress, {50, 25});
    sendMouse(*first, QEvent::GraphicsSceneMouseMove, {60, 25});
    second->setSelected(false);
    gone->Release();
    sendMouse(*first, QEvent::GraphicsSceneMouseMove, {80, 25});
    sendMouse(*first, QEvent::GraphicsSceneMouseRelease, {80, 25});
    QCOMPARE(first->getPos(), QPointF(30, 0));
    QCOMPARE(second->getPos(), QPointF(30, 0));
    host.stack().undo();
    QCOMPARE(first->getPos(), QPointF(0, 0));
    QCOMPARE(second->getPos(), QPointF(0, 0));
}

void TestDrags::cancelledDragChangesNothing_data()
{
    QTest::addColumn<int>("handle");
    QTest::newRow("move") << int(CObjAction::ACT_None);
    QTest::newRow("resize") << int(CObjAction::ACT_TopLeft);
    QTest::newRow("rotation") << int(CObjAction::ACT_Rotate);
}

void TestDrags::cancelledDragChangesNothing()
{
    QFETCH(int, handle);
    RecordingHost host;
    auto *const object = new PlainObject(&host);
    auto *const companion = new PlainObject(&host);
    for (PlainObject *each : {object, companion}) {
        host.scene().addItem(each);
        each->setSelected(true);
    }
    const QPointF start = handle == CObjAction::ACT_None
                              ? QPointF(50, 25)
                              : object->mapToScene(object->handlePosition(handle));
    QVERIFY(!object->isDragged());
    sendMouse(*object, QEvent::GraphicsSceneMousePress, start);
    QVERIFY(object->isDragged());
    sendMouse(*object, QEvent::GraphicsSceneMouseMove, start + QPointF(20, 30));
    object->cancelDrag();
    QVERIFY(!object->isDragged());
    sendMouse(*object, QEvent::GraphicsSceneMouseMove, start + QPointF(40, 30));
    sendMouse(*object, QEvent::GraphicsSceneMouseRelease, start + QPointF(40, 30));
    for (PlainObject *each : {object, companion}) {
        QCOMPARE(each->getPos(), QPointF(0, 0));
        QCOMPARE(each->getSize(), QSizeF(100, 50));
        QVERIFY(qAbs(each->getRotate()) < 1e-9);
    }
    QCOMPARE(object->activeHandle(), int(CObjAction::ACT_None));
    QCOMPARE(host.stack().count(), 0);
}

void TestDrags::resizeKeepsTheOppositeSide_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QPointF>("way"); // in the object's axes
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QPointF>("fixed"); // fraction of the size that stays
    QTest::newRow("top left") << 20 << QPointF(-10, -20) << QSizeF(110, 70) << QPointF(1, 1);
    QTest::newRow("bottom right") << 21 << QPointF(10, 20) << QSizeF(110, 70) << QPointF(0, 0);
    QTest::newRow("top") << 22 << QPointF(10, -20) << QSizeF(100, 70) << QPointF(0, 1);
    QTest::newRow("bottom") << 27 << QPointF(10, 20) << QSizeF(100, 70) << QPointF(0, 0);
    QTest::newRow("top right") << 23 << QPointF(10, -20) << QSizeF(110, 70) << QPointF(0, 1);
    QTest::newRow("bottom left") << 26 << QPointF(-10, 20) << QSizeF(110, 70) << QPointF(1, 0);
    QTest::newRow("right") << 24 << QPointF(10, 20) << QSizeF(110, 50) << QPointF(0, 0);
    QTest::newRow("left") << 25 << QPointF(-10, 20) << QSizeF(110, 50) << QPointF(1, 0);
}

void TestDrags::resizeKeepsTheOppositeSide()
{
    QFETCH(int, handle);
    QFETCH(QPointF, way);
    QFETCH(QSizeF, size);
    QFETCH(QPointF, fixed);
    for (const double rotation : {0.0, 30.0, 135.0}) {
        RecordingHost host;
        PlainObject object(&host);
        object.setPos(QPointF(300, 200), false);
        object.rotateObj(rotation, false);
        object.setSelected(true);
        object.setShowHandles(&object, true, false);
        const QPointF fixedPoint = object.mapToScene(QPointF(fixed.x() * 100, fixed.y() * 50));
        const QPointF oldPos = object.getPos();
        const QPointF from = object.handlePosition(handle);
        drag(object, object.mapToScene(from), object.mapToScene(from + way));

        const QSizeF now = object.getSize();
        QVERIFY(distance({now.width(), now.height()}, {size.width(), size.height()}) < 1e-9);
        const QPointF corner(fixed.x() * now.width(), fixed.y() * now.height());
        QVERIFY(distance(object.mapToScene(corner), fixedPoint) < 1e-9);
        QCOMPARE(object.getClientRect().topLeft(), QPointF(0, 0));
        QCOMPARE(host.stack().count(), 1);
        host.stack().undo();
        QCOMPARE(object.getSize(), QSizeF(100, 50));
        QVERIFY(distance(object.getPos(), oldPos) < 1e-9);
        host.stack().redo();
        QVERIFY(distance(object.mapToScene(corner), fixedPoint) < 1e-9);
    }
}

void TestDrags::resizeStopsAtTheSmallestSize()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    drag(object, {0, 0}, {500, 500});
    QCOMPARE(object.getSize(), QSizeF(1, 1));
    QCOMPARE(object.mapToScene(QPointF(1, 1)), QPointF(100, 50));
}

void TestDrags::rotateHandleTurnsAboutTheCentre()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    const QPointF centre = object.mapToScene(QPointF(50, 25));
    drag(object, {50, -24}, {150, 25}); // from straight above to straight right
    QCOMPARE(object.getRotate(), 90.0);
    QVERIFY(distance(object.mapToScene(QPointF(50, 25)), centre) < 1e-9);
    QCOMPARE(host.stack().text(0), QStringLiteral("IDS_ITEM_ROTATE"));
    host.stack().undo();
    QCOMPARE(object.getRotate(), 0.0);
    QVERIFY(distance(object.getPos(), QPointF(0, 0)) < 1e-9);
}

void TestDrags::shiftRotatesInSteps()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    drag(object, {50, -24}, {92, -24}, Qt::ShiftModifier); // about 40.6 degrees
    QVERIFY(std::abs(object.getRotate() - 45.0) < 1e-9);
}

void TestDrags::lockedObjectIsOnlySelected()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    object.setLocked(true, false, true);
    drag(object, {50, 25}, {90, 90});
    drag(object, {0, 0}, {90, 90});
    drag(object, {50, -24}, {90, 90});
    QVERIFY(object.isSelected());
    QCOMPARE(object.getPos(), QPointF(0, 0));
    QCOMPARE(object.getSize(), QSizeF(100, 50));
    QCOMPARE(object.getRotate(), 0.0);
    QCOMPARE(host.stack().count(), 0);
    QVERIFY(!object.canDo(OP_Move));
}

void TestDrags::activeHandleLastsAsLongAsTheDrag()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setShowHandles(&object, true, false);
    sendMouse(object, QEvent::GraphicsSceneMousePress, {100, 50});
    QCOMPARE(object.activeHandle(), 21);
    sendMouse(object, QEvent::GraphicsSceneMouseMove, {110, 60});
    QCOMPARE(object.activeHandle(), 21);
    sendMouse(object, QEvent::GraphicsSceneMouseRelease, {110, 60});
    QCOMPARE(object.activeHandle(), 0);
    sendMouse(object, QEvent::GraphicsSceneMouseMove, {300, 300});
    QCOMPARE(object.getSize(), QSizeF(110, 60));
}

void TestDrags::eventsWithoutADragAreIgnored()
{
    RecordingHost host;
    PlainObject object(&host);
    object.mousePressEvent(nullptr);
    object.mouseMoveEvent(nullptr);
    object.mouseReleaseEvent(nullptr);
    sendMouse(object, QEvent::GraphicsSceneMouseMove, {300, 300});
    sendMouse(object, QEvent::GraphicsSceneMouseRelease, {300, 300});
    QCOMPARE(object.getPos(), QPointF(0, 0));
    QCOMPARE(host.stack().count(), 0);
}

QTEST_MAIN(TestDrags)
#include "tst_drags.moc"
