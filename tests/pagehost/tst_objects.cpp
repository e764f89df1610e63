// SPDX-License-Identifier: MIT
// What is done with objects and with the view of a page.
#include "tests/pagehost/objectwindow.h"

#include "app/pagehost/objectcommands.h"
#include "app/pagehost/objectlist.h"

#include <QAccessible>
#include <QListWidget>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>
#include <limits>

class TestObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    // View
    void wheelZoomsAtPointer();
    void zoomStaysWithinLimits();
    void zoomByCommandHoldsTheMiddle();
    void selectionFitsTheView();
    void pageFitsTheView();
    void viewReachesObjectsBeyondThePage();
    void middleButtonPans();
    void spacePansOutsideEditAlone();
    void viewKeysReachTheProgramInEdit();
    void screenOfHigherDensityIsAsCrispAsAZoom_data();
    void screenOfHigherDensityIsAsCrispAsAZoom();
    void darkPaletteChangesTheGroundAlone();

    // Objects
    void shiftAddsToTheSelection();
    void frameSelectsWhatItTouches();
    void selectedObjectsAreDraggedTogether();
    void otherButtonsLeaveADragAlone_data();
    void otherButtonsLeaveADragAlone();
    void doubleClickEditsTextAmongManySelected();
    void handleResizesAndIsUndone();
    void handleTurnsAndIsUndone();
    void lockedObjectStaysUnderThePointer();
    void arrowKeysMoveSelection_data();
    void arrowKeysMoveSelection();
    void heldArrowKeyIsOneStep();
    void arrowKeysBelongToEditedText();
    void lockedObjectKeepsItsPlace();
    void lockIsUndone();
    void duplicateIsOneStep();
    void rotationIsUndone();
    void orderCommands_data();
    void orderCommands();
    void alignCommands_data();
    void alignCommands();
    void oneObjectIsAlignedToThePage();
    void gapsBecomeEqual();
    void objectCommandsAreOffInEdit();
    void eachPasteLiesBesideTheLast();
    void copiedObjectsGoToAnotherWindow();

    // List of objects
    void listNamesObjectsTopmostFirst();
    void selectionGoesBothWays();
    void keysOfListActOnObjects();
    void listThatIsAskedForHasTheKeys();
    void listSaysItsNameToScreenReaders();
    void listFollowsThePage();

private:
    void wheel(ObjectWindow &window, const QPoint &pos, int delta);
    static QListWidget *listOf(ObjectWindow &window);
    static void makeThree(ObjectWindow &window);

    PluginLoader m_loader;
};

void TestObjects::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestObjects::wheel(ObjectWindow &window, const QPoint &pos, int delta)
{
    QWheelEvent event(pos, window.canvas()->mapToGlobal(pos), QPoint(), QPoint(0, delta),
                      Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window.canvas(), &event);
}

/// Boxes "a", "b", "c" of widths 20, 40, 60 at x 10, 50, 200 and y 10, 60, 200.
void TestObjects::makeThree(ObjectWindow &window)
{
    window.writeBox({10, 10, 20, 40}, QStringLiteral("a"));
    window.writeBox({50, 60, 40, 50}, QStringLiteral("b"));
    window.writeBox({200, 200, 60, 60}, QStringLiteral("c"));
    QCOMPARE(window.objects().size(), 3);
}

QListWidget *TestObjects::listOf(ObjectWindow &window)
{
    auto *dock = window.window()->findChild<ObjectList *>(QStringLiteral("objects"));
    if (!dock)
        return nullptr;
    if (dock->isHidden())
        window.trigger("showObjects");
    dock->raise();
    window.settle();
    return dock->findChild<QListWidget *>(QStringLiteral("objectList"));
}

// View

void TestObjects::wheelZoomsAtPointer()
{
    ObjectWindow window(&m_loader);
    window.view()->setZoom(4); // so that there is room to scroll on every side
    window.view()->centerOn(300, 300);
    const QPoint pos(150, 90);
    const QPointF held = window.view()->mapToScene(pos);
    for (int delta : {120, 120, -120, 240, -360, 15}) {
        wheel(window, pos, delta);
        const QPointF now = window.view()->mapToScene(pos);
        const double tolerance = 6 / window.view()->zoom(); // a pixel for each turn
        QVERIFY2(std::hypot(now.x() - held.x(), now.y() - held.y()) <= tolerance,
                 qPrintable(QStringLiteral("%1 %2").arg(now.x()).arg(now.y())));
    }
    QVERIFY(window.view()->zoom() > 4); // the last turn was a small one
}

void TestObjects::zoomStaysWithinLimits()
{
    ObjectWindow window(&m_loader);
    window.view()->setZoom(1e-9);
    QCOMPARE(window.view()->zoom(), 0.05);
    window.view()->setZoom(1e9);
    QCOMPARE(window.view()->zoom(), 64.0);
    window.view()->setZoom(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(window.view()->zoom(), 64.0);
}

void TestObjects::zoomByCommandHoldsTheMiddle()
{
    ObjectWindow window(&m_loader);
    window.view()->setZoom(4);
    window.settle(); // the scroll bars have come
    window.view()->centerOn(300, 250);
    const QPointF held = window.view()->visibleCentre();
    window.trigger("zoomIn");
    QCOMPARE(window.view()->zoom(), 5.0);
    const QPointF now = window.view()->visibleCentre();
    QVERIFY(std::hypot(now.x() - held.x(), now.y() - held.y()) < 1);
}

void TestObjects::selectionFitsTheView()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({1, 2});
    window.trigger("fitSelection");
    QVERIFY(window.view()->zoom() > 1);
    const QRectF shown = window.view()->mapToScene(window.canvas()->rect()).boundingRect();
    QVERIFY(shown.contains(QRectF(50, 60, 210, 200)));
    window.select({});
    const double zoom = window.view()->zoom();
    window.trigger("fitSelection");
    QCOMPARE(window.view()->zoom(), zoom);
}

void TestObjects::pageFitsTheView()
{
    ObjectWindow window(&m_loader);
    window.view()->setZoom(20);
    window.trigger("fitPage");
    const QRectF page(QPointF(0, 0), window.session()->size());
    const QRectF shown = window.view()->mapToScene(window.canvas()->rect()).boundingRect();
    QVERIFY(shown.contains(page));
    QVERIFY(shown.height() < 1.5 * page.height() || shown.width() < 1.5 * page.width());
}

void TestObjects::viewReachesObjectsBeyondThePage()
{
    ObjectWindow window(&m_loader);
    window.writeBox({100, 100, 80, 40}, QStringLiteral("a"));
    const QRectF ofPage = window.view()->scene()->sceneRect();
    for (const QPointF &place : {QPointF(3000, 2500), QPointF(-2000, -1800)}) {
        window.objects().at(0)->setPos(place, /*undo=*/true);
        window.settle();
        window.trigger("fitSelection");
        const QRectF bounds = ObjectCommands::selectionBounds(*window.session());
        QVERIFY(window.view()->sceneRect().contains(bounds));
        const QRect shown = window.view()->mapFromScene(bounds).boundingRect();
        QVERIFY(window.canvas()->rect().contains(shown));
    }
    window.trigger("fitPage");
    const QRectF page(QPointF(0, 0), window.session()->size());
    QVERIFY(window.view()->visibleCentre().x() - page.center().x() < 2);
    QVERIFY(window.view()->zoom() > 0.25); // without what lies beyond it
    while (window.steps()->canUndo() && window.objects().at(0)->getPos() != QPointF(100, 100))
        window.trigger("undo");
    QCOMPARE(window.view()->sceneRect(), ofPage);
}

void TestObjects::middleButtonPans()
{
    ObjectWindow window(&m_loader);
    window.view()->setZoom(4);
    window.view()->centerOn(300, 300);
    const QPointF before = window.view()->mapToScene(0, 0);
    window.drag({300, 200}, {260, 280}, Qt::MiddleButton);
    const QPointF after = window.view()->mapToScene(0, 0);
    QCOMPARE(after - before, QPointF(10, -20));
}

void TestObjects::spacePansOutsideEditAlone()
{
    ObjectWindow window(&m_loader);
    window.view()->setZoom(4);
    window.view()->centerOn(300, 300);
    const QPointF before = window.view()->mapToScene(0, 0);
    QTest::keyPress(window.view(), Qt::Key_Space);
    QCOMPARE(window.canvas()->cursor().shape(), Qt::OpenHandCursor);
    window.drag({300, 200}, {260, 280});
    QTest::keyRelease(window.view(), Qt::Key_Space);
    QCOMPARE(window.view()->mapToScene(0, 0) - before, QPointF(10, -20));
    QCOMPARE(window.canvas()->cursor().shape(), Qt::ArrowCursor);

    window.view()->setZoom(1);
    window.startBox({100, 100, 200, 80}, QStringLiteral("a b"));
    QCOMPARE(window.text(0), QStringLiteral("a b"));
}

void TestObjects::viewKeysReachTheProgramInEdit()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.startBox({100, 100, 200, 80}, QStringLiteral("abc"));
    QTest::keyClick(window.view(), Qt::Key_Equal, Qt::ControlModifier);
    QCOMPARE(window.view()->zoom(), 1.25);
    QTest::keyClick(window.view(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(window.view()->zoom(), 1.5625);
    QTest::keyClick(window.view(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(window.view()->zoom(), 1.25);
    QTest::keyClick(window.view(), Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(window.view()->zoom(), 1.0);
    QTest::keyClick(window.view(), Qt::Key_F11);
    QVERIFY(window.window()->isFullScreen());
    QTest::keyClick(window.view(), Qt::Key_F11);
    QVERIFY(!window.window()->isFullScreen());
    QCOMPARE(window.session()->editedObject(), box);
    QCOMPARE(window.text(0), QStringLiteral("abc"));
}

void TestObjects::screenOfHigherDensityIsAsCrispAsAZoom_data()
{
    QTest::addColumn<double>("density");
    QTest::newRow("1.25") << 1.25;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

void TestObjects::screenOfHigherDensityIsAsCrispAsAZoom()
{
    QFETCH(double, density);
    ObjectWindow window(&m_loader);
    window.writeBox({52, 52, 160, 60}, QStringLiteral("Crisp"));
    window.select({});
    // The words, on a screen of so many pixels for one, and so many times as large.
    const auto words = [&](double pixels, double zoom) {
        window.view()->setZoom(zoom);
        window.view()->horizontalScrollBar()->setValue(-10000);
        window.view()->verticalScrollBar()->setValue(-10000);
        window.settle();
        QImage image(window.canvas()->size() * pixels, QImage::Format_RGB32);
        image.setDevicePixelRatio(pixels);
        image.fill(Qt::white);
        window.canvas()->render(&image);
        const QRectF place(window.view()->viewportTransform().map(QPointF(52, 52)) * pixels,
                           QSizeF(160, 60) * density);
        QImage part = image.copy(place.toRect());
        part.setDevicePixelRatio(1);
        return part;
    };
    const QImage dense = words(density, 1);
    const QImage large = words(1, density);
    QImage blank = dense;
    blank.fill(Qt::white);
    QVERIFY(dense != blank);
    QCOMPARE(dense, large);
}

void TestObjects::darkPaletteChangesTheGroundAlone()
{
    ObjectWindow window(&m_loader);
    window.writeBox({52, 52, 160, 60}, QStringLiteral("Dark"));
    window.select({});
    const auto shown = [&] { return window.canvas()->grab().toImage(); };
    const QRect page(window.at({20, 20}), window.at({300, 200}));
    const QImage before = shown();
    QPalette dark = window.view()->palette();
    dark.setColor(QPalette::Mid, QColor(30, 30, 34));
    window.view()->setPalette(dark);
    window.settle();
    const QImage after = shown();
    QCOMPARE(after.pixelColor(2, 2), QColor(30, 30, 34));
    QVERIFY(before.pixelColor(2, 2) != after.pixelColor(2, 2));
    QCOMPARE(after.copy(page), before.copy(page));
}

// Objects

void TestObjects::shiftAddsToTheSelection()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    const auto press = [&](const QPointF &pos, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(window.canvas(), Qt::LeftButton, modifiers, window.at(pos));
        return window.session()->page()->getSelectedObjects();
    };
    const QList<CVXRootObject *> &objects = window.objects();
    QCOMPARE(press({70, 85}, {}), objects.mid(1, 1));
    for (Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier}) {
        QCOMPARE(press({230, 230}, modifier), objects.mid(1));
        QCOMPARE(press({230, 230}, modifier), objects.mid(1, 1)); // and leaves it
        QCOMPARE(press({400, 400}, modifier), objects.mid(1, 1)); // beside all of them
    }
    QCOMPARE(press({230, 230}, {}), objects.mid(2));
    QVERIFY(press({400, 400}, {}).isEmpty());
}

void TestObjects::frameSelectsWhatItTouches()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    const QList<CVXRootObject *> &objects = window.objects();
    window.drag(window.at({-20, -20}), window.at({60, 70}));
    QCOMPARE(window.session()->page()->getSelectedObjects(), objects.mid(0, 2));
    window.drag(window.at({300, 300}), window.at({220, 220}));
    QCOMPARE(window.session()->page()->getSelectedObjects(), objects.mid(2));
    window.drag(window.at({-20, -20}), window.at({15, 15}), Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(window.session()->page()->getSelectedObjects(),
             (QList<CVXRootObject *>{objects.at(0), objects.at(2)}));
    QCOMPARE(objects.at(0)->getPos(), QPointF(10, 10)); // nothing has been moved
}

void TestObjects::selectedObjectsAreDraggedTogether()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({0, 2});
    const int steps = window.steps()->index();
    window.drag(window.at({230, 230}), window.at({250, 200}));
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(30, -20));
    QCOMPARE(window.objects().at(1)->getPos(), QPointF(50, 60));
    QCOMPARE(window.objects().at(2)->getPos(), QPointF(220, 170));
    QCOMPARE(window.steps()->index(), steps + 1);
    window.trigger("undo");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(10, 10));
    QCOMPARE(window.objects().at(2)->getPos(), QPointF(200, 200));
}

void TestObjects::otherButtonsLeaveADragAlone_data()
{
    QTest::addColumn<int>("other");
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void TestObjects::otherButtonsLeaveADragAlone()
{
    QFETCH(int, other);
    const auto button = Qt::MouseButton(other);
    ObjectWindow window(&m_loader);
    const CVXRootObject *box = window.writeBox({100, 100, 80, 40}, QStringLiteral("a"));
    const QPointF start = box->getPos();
    const QPoint from = window.at({140, 130});
    const auto send = [&](QEvent::Type type, const QPoint &way, Qt::MouseButton changed,
                          Qt::MouseButtons held) {
        QMouseEvent event(type, from + way, window.canvas()->mapToGlobal(from + way), changed, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(window.canvas(), &event);
    };
    send(QEvent::MouseButtonPress, {}, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, {20, 10}, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonPress, {20, 10}, button, Qt::LeftButton | button);
    send(QEvent::MouseButtonRelease, {20, 10}, button, Qt::LeftButton);
    send(QEvent::MouseMove, {60, 30}, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, {60, 30}, Qt::LeftButton, Qt::NoButton);
    window.settle();
    QCOMPARE(box->getPos(), start + QPointF(60, 30));
}

void TestObjects::doubleClickEditsTextAmongManySelected()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.trigger("selectAll");
    const QPoint middle = window.at({230, 230});
    QTest::mouseClick(window.canvas(), Qt::LeftButton, {}, middle);
    window.trigger("selectAll");
    QTest::mouseDClick(window.canvas(), Qt::LeftButton, {}, middle);
    window.settle();
    QCOMPARE(window.session()->editedObject(), window.objects().at(2));
    QCOMPARE(window.session()->page()->getSelectedObjects(), window.objects().mid(2, 1));
}

void TestObjects::handleResizesAndIsUndone()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox({100, 100, 200, 80}, QStringLiteral("a"));
    window.select({0});
    window.drag(window.at({300, 180}), window.at({340, 220})); // the lower right corner
    QCOMPARE(box->getPos(), QPointF(100, 100));
    QCOMPARE(box->getSize(), QSizeF(240, 120));
    window.drag(window.at({100, 100}), window.at({120, 110})); // the upper left one
    QCOMPARE(box->getPos(), QPointF(120, 110));
    QCOMPARE(box->getSize(), QSizeF(220, 110));
    window.trigger("undo");
    window.trigger("undo");
    QCOMPARE(box->getPos(), QPointF(100, 100));
    QCOMPARE(box->getSize(), QSizeF(200, 80));
}

void TestObjects::handleTurnsAndIsUndone()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox({100, 100, 200, 80}, QStringLiteral("a"));
    window.select({0});
    const QPointF middle(200, 140);
    const auto centre = [box] { return ObjectCommands::boundsOf(box).center(); };
    window.drag(window.at({200, 76}), window.at({300, 140})); // from above the object to its right
    QVERIFY(qAbs(box->getRotate() - 90) < 1.5);
    QVERIFY((centre() - middle).manhattanLength() < 1);
    window.trigger("undo");
    QCOMPARE(box->getRotate(), 0.0);
    window.drag(window.at({200, 76}), window.at({300, 50}), Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(std::fmod(box->getRotate(), 15.0), 0.0);
    QVERIFY(box->getRotate() > 0);
    window.trigger("undo");
    QCOMPARE(box->getPos(), QPointF(100, 100));
}

void TestObjects::lockedObjectStaysUnderThePointer()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox({100, 100, 200, 80}, QStringLiteral("a"));
    window.select({0});
    window.trigger("lock");
    const int steps = window.steps()->index();
    for (const QPointF &from : {QPointF(200, 140), QPointF(300, 180), QPointF(200, 76)}) {
        window.drag(window.at(from), window.at(from + QPointF(30, 20)));
        window.select({0});
    }
    QCOMPARE(box->getPos(), QPointF(100, 100));
    QCOMPARE(box->getSize(), QSizeF(200, 80));
    QCOMPARE(box->getRotate(), 0.0);
    QCOMPARE(window.steps()->index(), steps);
    QTest::mouseDClick(window.canvas(), Qt::LeftButton, {}, window.at({200, 140}));
    QVERIFY(!window.session()->editedObject());
    QTest::keyClick(window.view(), Qt::Key_F2);
    QVERIFY(!window.session()->editedObject());
    QTest::mouseClick(window.canvas(), Qt::LeftButton, {}, window.at({200, 140}));
    QVERIFY(box->graphicsItem()->isSelected()); // to be unlocked again
    window.trigger("lock");
    QVERIFY(!box->isLocked());
}

void TestObjects::arrowKeysMoveSelection_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QPointF>("way");
    QTest::newRow("left") << int(Qt::Key_Left) << 0 << QPointF(-1, 0);
    QTest::newRow("right") << int(Qt::Key_Right) << 0 << QPointF(1, 0);
    QTest::newRow("up") << int(Qt::Key_Up) << 0 << QPointF(0, -1);
    QTest::newRow("down") << int(Qt::Key_Down) << 0 << QPointF(0, 1);
    const int shift = int(Qt::ShiftModifier);
    QTest::newRow("far left") << int(Qt::Key_Left) << shift << QPointF(-10, 0);
    QTest::newRow("far right") << int(Qt::Key_Right) << shift << QPointF(10, 0);
    QTest::newRow("far up") << int(Qt::Key_Up) << shift << QPointF(0, -10);
    QTest::newRow("far down") << int(Qt::Key_Down) << shift << QPointF(0, 10);
}

void TestObjects::arrowKeysMoveSelection()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QPointF, way);
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({0, 2});
    const int steps = window.steps()->index();
    QTest::keyClick(window.view(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(10, 10) + way);
    QCOMPARE(window.objects().at(1)->getPos(), QPointF(50, 60));
    QCOMPARE(window.objects().at(2)->getPos(), QPointF(200, 200) + way);
    QCOMPARE(window.steps()->index(), steps + 1);
    window.trigger("undo");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(10, 10));
    QCOMPARE(window.objects().at(2)->getPos(), QPointF(200, 200));
}

void TestObjects::heldArrowKeyIsOneStep()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({0});
    const int steps = window.steps()->index();
    for (bool repeats : {false, true, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), repeats);
        QCoreApplication::sendEvent(window.view(), &press);
    }
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(14, 10));
    QCOMPARE(window.steps()->index(), steps + 1);
    QTest::keyClick(window.view(), Qt::Key_Right); // pressed anew
    QCOMPARE(window.steps()->index(), steps + 2);
    window.trigger("undo");
    window.trigger("undo");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(10, 10));
    window.trigger("redo");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(14, 10));
}

void TestObjects::arrowKeysBelongToEditedText()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.startBox({100, 100, 200, 80}, QStringLiteral("abc"));
    const QPointF place = box->getPos();
    QTest::keyClick(window.view(), Qt::Key_Left);
    QTest::keyClicks(window.view(), QStringLiteral("x"));
    QCOMPARE(window.text(0), QStringLiteral("abxc"));
    QCOMPARE(box->getPos(), place);
}

void TestObjects::lockedObjectKeepsItsPlace()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({0});
    window.trigger("lock");
    QVERIFY(window.objects().at(0)->isLocked());
    QVERIFY(window.action("lock")->isChecked());
    window.select({0, 1});
    const int steps = window.steps()->index();
    QTest::keyClick(window.view(), Qt::Key_Right);
    window.trigger("alignLeft");
    window.trigger("rotateRight");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(10, 10));
    QCOMPARE(window.objects().at(0)->getRotate(), 0.0);
    QCOMPARE(window.objects().at(1)->getRotate(), 90.0);
    window.select({0});
    window.trigger("toFront");
    window.trigger("delete");
    QCOMPARE(window.texts(),
             QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QCOMPARE(window.steps()->index(), steps + 3); // those of "b" alone
}

void TestObjects::lockIsUndone()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({0, 1});
    const int steps = window.steps()->index();
    window.trigger("lock");
    QCOMPARE(window.steps()->index(), steps + 1);
    QVERIFY(window.objects().at(0)->isLocked() && window.objects().at(1)->isLocked());
    window.trigger("undo");
    QVERIFY(!window.objects().at(0)->isLocked() && !window.objects().at(1)->isLocked());
    window.trigger("redo");
    window.select({0, 1});
    window.trigger("lock"); // all are locked: the command takes it back
    QVERIFY(!window.objects().at(0)->isLocked() && !window.objects().at(1)->isLocked());
}

void TestObjects::duplicateIsOneStep()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({0, 2});
    const int steps = window.steps()->index();
    window.trigger("duplicate");
    QCOMPARE(window.texts().mid(3), QStringList({QStringLiteral("a"), QStringLiteral("c")}));
    QCOMPARE(window.objects().at(3)->getPos(), QPointF(26, 26));
    QCOMPARE(window.objects().at(4)->getPos(), QPointF(216, 216));
    QCOMPARE(window.session()->page()->getSelectedObjects(), window.objects().mid(3));
    QCOMPARE(window.steps()->index(), steps + 1);
    window.trigger("undo");
    QCOMPARE(window.objects().size(), 3);
}

void TestObjects::rotationIsUndone()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({0, 1});
    const int steps = window.steps()->index();
    window.trigger("rotateRight");
    QCOMPARE(window.objects().at(0)->getRotate(), 90.0);
    QCOMPARE(window.objects().at(1)->getRotate(), 90.0);
    QCOMPARE(window.steps()->index(), steps + 1);
    window.trigger("rotateLeft");
    QCOMPARE(window.objects().at(0)->getRotate(), 0.0);
    window.trigger("undo");
    window.trigger("undo");
    QCOMPARE(window.objects().at(1)->getRotate(), 0.0);
    QCOMPARE(window.objects().at(1)->getPos(), QPointF(50, 60));
}

void TestObjects::orderCommands_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("selected"); // of "abcd", the lowest first
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *command, const char *selected, const char *expected) {
        QTest::addRow("%s %s", command, selected)
            << QByteArray(command) << QString::fromLatin1(selected)
            << QString::fromLatin1(expected);
    };
    row("toFront", "a", "bcda");
    row("toFront", "ac", "bdac");
    row("toBack", "d", "dabc");
    row("toBack", "bd", "bdac");
    row("forward", "a", "bacd");
    row("forward", "ab", "cabd");
    row("forward", "ad", "bacd");
    row("forward", "d", "abcd");
    row("backward", "d", "abdc");
    row("backward", "cd", "acdb");
    row("backward", "ac", "acbd");
}

void TestObjects::orderCommands()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, selected);
    QFETCH(QString, expected);
    ObjectWindow window(&m_loader);
    const QString names = QStringLiteral("abcd");
    QList<int> places;
    for (int i = 0; i < names.size(); ++i) {
        window.writeBox({20.0 + 80 * i, 20, 60, 40}, names.mid(i, 1));
        if (selected.contains(names.at(i)))
            places.append(i);
    }
    window.select(places);
    const int steps = window.steps()->index();
    window.trigger(command.constData());
    QCOMPARE(window.texts().join(QString()), expected);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(window.objects().at(i)->getZorder(), i);
    QCOMPARE(window.steps()->index(), steps + (expected == names ? 0 : 1));
    if (expected == names)
        return;
    window.trigger("undo");
    QCOMPARE(window.texts().join(QString()), names);
    window.trigger("redo");
    QCOMPARE(window.texts().join(QString()), expected);
}

void TestObjects::alignCommands_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QPointF>("first");  // of a box 100 by 60 at (40, 40)
    QTest::addColumn<QPointF>("second"); // of a box 80 by 40 at (200, 100)
    QTest::newRow("left") << QByteArray("alignLeft") << QPointF(40, 40) << QPointF(40, 100);
    QTest::newRow("centre") << QByteArray("alignCentre") << QPointF(110, 40) << QPointF(120, 100);
    QTest::newRow("right") << QByteArray("alignRight") << QPointF(180, 40) << QPointF(200, 100);
    QTest::newRow("top") << QByteArray("alignTop") << QPointF(40, 40) << QPointF(200, 40);
    QTest::newRow("middle") << QByteArray("alignMiddle") << QPointF(40, 60) << QPointF(200, 70);
    QTest::newRow("bottom") << QByteArray("alignBottom") << QPointF(40, 80) << QPointF(200, 100);
}

void TestObjects::alignCommands()
{
    QFETCH(QByteArray, command);
    QFETCH(QPointF, first);
    QFETCH(QPointF, second);
    ObjectWindow window(&m_loader);
    window.writeBox({40, 40, 100, 60}, QStringLiteral("a"));
    window.writeBox({200, 100, 80, 40}, QStringLiteral("b"));
    window.select({0, 1});
    const int steps = window.steps()->index();
    window.trigger(command.constData());
    QCOMPARE(window.objects().at(0)->getPos(), first);
    QCOMPARE(window.objects().at(1)->getPos(), second);
    QCOMPARE(window.steps()->index(), steps + 1);
    window.trigger("undo");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(40, 40));
    QCOMPARE(window.objects().at(1)->getPos(), QPointF(200, 100));
}

void TestObjects::oneObjectIsAlignedToThePage()
{
    ObjectWindow window(&m_loader);
    window.writeBox({40, 40, 100, 60}, QStringLiteral("a"));
    const QSize page = window.session()->size();
    window.trigger("alignRight");
    window.trigger("alignBottom");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(page.width() - 100, page.height() - 60));
    window.trigger("alignLeft");
    window.trigger("alignTop");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(0, 0));
}

void TestObjects::gapsBecomeEqual()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({0, 1, 2});
    window.trigger("distributeAcross");
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(10, 10));
    QCOMPARE(window.objects().at(1)->getPos(), QPointF(95, 60)); // gaps of 65
    QCOMPARE(window.objects().at(2)->getPos(), QPointF(200, 200));
    window.trigger("distributeDown");
    QCOMPARE(window.objects().at(1)->getPos(), QPointF(95, 100)); // gaps of 50
    window.select({0, 1});
    QVERIFY(!window.action("distributeAcross")->isEnabled());
}

void TestObjects::objectCommandsAreOffInEdit()
{
    ObjectWindow window(&m_loader);
    window.startBox({100, 100, 200, 80}, QStringLiteral("abc"));
    for (const char *name : {"duplicate", "lock", "toFront", "alignLeft", "rotateRight"})
        QVERIFY2(!window.action(name)->isEnabled(), name);
    QTest::keyClick(window.view(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(window.objects().size(), 1);
    QVERIFY(window.session()->editedObject());
    QTest::keyClick(window.view(), Qt::Key_Escape);
    window.settle();
    QVERIFY(window.action("duplicate")->isEnabled());
    QTest::keyClick(window.view(), Qt::Key_F2);
    QCOMPARE(window.session()->editedObject(), window.objects().at(0));
}

void TestObjects::eachPasteLiesBesideTheLast()
{
    ObjectWindow window(&m_loader);
    window.writeBox({10, 10, 20, 20}, QStringLiteral("a"));
    window.writeBox({42, 42, 100, 60}, QStringLiteral("b"));
    window.select({0});
    window.trigger("copy");
    window.trigger("paste");
    QCOMPARE(window.objects().size(), 3);
    QCOMPARE(window.objects().at(2)->getPos(), QPointF(26, 26));
    window.trigger("paste"); // "b" lies two steps away
    QCOMPARE(window.objects().at(3)->getPos(), QPointF(58, 58));
    window.trigger("undo");
    window.trigger("undo");
    QCOMPARE(window.objects().size(), 2);
}

void TestObjects::copiedObjectsGoToAnotherWindow()
{
    AttributeMap original;
    QSizeF size;
    {
        ObjectWindow window(&m_loader);
        makeThree(window);
        window.objects().at(1)->setAllAttributes({{QStringLiteral("font_bold"), true}}, false);
        QVERIFY(window.objects().at(1)->getAllAttributes(original));
        size = window.objects().at(1)->getSize();
        window.select({1, 2});
        window.trigger("copy");
    }
    ObjectWindow window(&m_loader);
    window.trigger("paste");
    QCOMPARE(window.texts(), QStringList({QStringLiteral("b"), QStringLiteral("c")}));
    QCOMPARE(window.objects().at(0)->getPos(), QPointF(66, 76));
    AttributeMap copy;
    QVERIFY(window.objects().at(0)->getAllAttributes(copy));
    QCOMPARE(copy, original);
    QVERIFY(copy.value(QStringLiteral("font_bold")).toBool());
    QCOMPARE(window.objects().at(0)->getSize(), size);
    window.trigger("undo");
    QCOMPARE(window.objects().size(), 0);
}

// List of objects

void TestObjects::listNamesObjectsTopmostFirst()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.select({1});
    window.trigger("lock");
    QListWidget *list = listOf(window);
    QVERIFY(list);
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->item(0)->text(), QStringLiteral("Text: c"));
    QCOMPARE(list->item(1)->text(), QStringLiteral("Text: b, locked"));
    QCOMPARE(list->item(2)->text(), QStringLiteral("Text: a"));
    window.keepPicture("objects.png");
}

void TestObjects::selectionGoesBothWays()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    QListWidget *list = listOf(window);
    QVERIFY(list);
    window.select({0, 1});
    QTRY_COMPARE(list->selectedItems().size(), 2);
    QVERIFY(list->item(1)->isSelected() && list->item(2)->isSelected());

    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    QCOMPARE(window.session()->page()->getSelectedObjects(), window.objects().mid(2));
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(window.session()->page()->getSelectedObjects(), window.objects().mid(1));
}

void TestObjects::keysOfListActOnObjects()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    QListWidget *list = listOf(window);
    QVERIFY(list);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_End);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(window.session()->editedObject(), window.objects().at(0));
    QCOMPARE(QApplication::focusWidget(), window.view());
    QTest::keyClick(window.view(), Qt::Key_Escape);
    window.settle();

    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(window.texts(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    QTRY_COMPARE(list->count(), 2);
    window.trigger("undo");
    QTRY_COMPARE(list->count(), 3);
}

void TestObjects::listThatIsAskedForHasTheKeys()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    window.trigger("showObjects");
    auto *list = window.window()->findChild<QListWidget *>(QStringLiteral("objectList"));
    QVERIFY(list && list->hasFocus());
    QTest::keyClick(list, Qt::Key_Escape);
    QVERIFY(window.view()->hasFocus());
    list->setFocus();
    window.trigger("showObjects"); // which hides it
    QVERIFY(window.view()->hasFocus());
}

void TestObjects::listSaysItsNameToScreenReaders()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    QListWidget *list = listOf(window);
    QVERIFY(list);
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(list);
    QVERIFY(spoken);
    QVERIFY(!spoken->text(QAccessible::Name).isEmpty());
    QCOMPARE(spoken->childCount(), 3);
    QCOMPARE(spoken->child(0)->text(QAccessible::Name), QStringLiteral("Text: c"));
    QAccessibleInterface *canvas = QAccessible::queryAccessibleInterface(window.view());
    QVERIFY(canvas && !canvas->text(QAccessible::Name).isEmpty());
}

void TestObjects::listFollowsThePage()
{
    ObjectWindow window(&m_loader);
    makeThree(window);
    QListWidget *list = listOf(window);
    QVERIFY(list);
    window.startBox({300, 300, 100, 60}, QStringLiteral("typed"));
    QTRY_COMPARE(list->count(), 4);
    QTRY_COMPARE(list->item(0)->text(), QStringLiteral("Text: typed"));
    QTest::keyClicks(window.view(), QStringLiteral("!"));
    QTRY_COMPARE(list->item(0)->text(), QStringLiteral("Text: typed!"));
    window.window()->takeSession(PageSession::create(&m_loader));
    QTRY_COMPARE(list->count(), 0);
}

QTEST_MAIN(TestObjects)

#include "tst_objects.moc"
