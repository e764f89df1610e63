// SPDX-License-Identifier: MIT
// The menu that opens on the page, and where window and panels are at the next start.
#include "tests/pagehost/objectwindow.h"

#include "app/page/textobject.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

class TestCanvasMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_window.reset(); }

    void textHasItsCommands();
    void objectHasItsCommands();
    void pageHasItsCommands();
    void pointerChoosesTheObject();
    void selectionStaysForItsMenu();
    void pressBesideTheTextEndsItsEdit();
    void commandsActOnTheText();
    void commandsActOnTheObject();
    void textIsPastedWhereTheMenuIs();
    void menuByKeyOpensAtTheCaret_data();
    void menuByKeyOpensAtTheCaret();
    void menuByKeyOpensAtTheSelection();
    void listOfObjectsOpensTheMenuToo();
    void menuWaitsForTheEndOfADrag();

    void placeOfWindowAndPanelsIsRemembered();
    void fullScreenIsNotRemembered();
    void brokenMemoryIsPassedOver();

private:
    ObjectWindow &window() { return *m_window; }
    QMenu *menuAt(const QPointF &scenePos);
    void sendMenuKey();
    QMenu *openMenu() const;
    static QStringList namesIn(const QMenu *menu);
    void choose(QMenu *menu, const char *name);
    QRectF boxOf(int place) const
    {
        const CVXRootObject *object = m_window->objects().at(place);
        return QRectF(object->getPos(), object->getSize());
    }

    PluginLoader m_loader;
    std::unique_ptr<ObjectWindow> m_window;
    QTemporaryDir m_settings;
};

void TestCanvasMenu::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
}

void TestCanvasMenu::init()
{
    m_window = std::make_unique<ObjectWindow>(&m_loader);
}

QMenu *TestCanvasMenu::openMenu() const
{
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QMenu *TestCanvasMenu::menuAt(const QPointF &scenePos)
{
    const QPoint pos = window().at(scenePos);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, window().canvas()->mapToGlobal(pos));
    QCoreApplication::sendEvent(window().canvas(), &event);
    window().settle();
    return openMenu();
}

void TestCanvasMenu::sendMenuKey()
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(window().view(), &event);
}

QStringList TestCanvasMenu::namesIn(const QMenu *menu)
{
    QStringList names;
    for (const QAction *action : menu->actions()) {
        if (!action->isSeparator())
            names.append(action->objectName());
    }
    return names;
}

/// As a click does: the menu closes first.
void TestCanvasMenu::choose(QMenu *menu, const char *name)
{
    QAction *command = window().action(name);
    QVERIFY2(command && menu->actions().contains(command) && command->isEnabled(), name);
    menu->setActiveAction(command);
    QTest::keyClick(menu, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window().settle();
    QVERIFY(!openMenu());
}

void TestCanvasMenu::textHasItsCommands()
{
    window().startBox({100, 100, 200, 80}, QStringLiteral("abc"));
    const QMenu *menu = menuAt({120, 120});
    QVERIFY(menu);
    QCOMPARE(namesIn(menu).join(QLatin1Char(' ')),
             QStringLiteral("undo redo cut copy paste pastePlain delete selectAll"));
    QVERIFY(window().session()->editedObject());
}

void TestCanvasMenu::objectHasItsCommands()
{
    window().writeBox({100, 100, 200, 80}, QStringLiteral("abc"));
    const QMenu *menu = menuAt({120, 120});
    QVERIFY(menu);
    QCOMPARE(namesIn(menu).join(QLatin1Char(' ')),
             QStringLiteral("editText cut copy copyPicture paste duplicate delete lock order align "
                            "rotate"));
    const QAction *order = window().action("order");
    QVERIFY(order && order->menu());
    QCOMPARE(namesIn(order->menu()).join(QLatin1Char(' ')),
             QStringLiteral("toFront forward backward toBack"));
    window().keepPicture("canvasmenu.png");
}

void TestCanvasMenu::pageHasItsCommands()
{
    const QMenu *menu = menuAt({300, 300});
    QVERIFY(menu);
    QCOMPARE(namesIn(menu).join(QLatin1Char(' ')),
             QStringLiteral("paste pastePlain selectAll zoomIn zoomOut zoomNormal fitPage"));
}

void TestCanvasMenu::pointerChoosesTheObject()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().writeBox({250, 50, 100, 60}, QStringLiteral("b"));
    menuAt(boxOf(0).center())->close();
    QCOMPARE(window().session()->page()->getSelectedObjects(), window().objects().mid(0, 1));
    menuAt({300, 300})->close();
    QVERIFY(window().session()->page()->getSelectedObjects().isEmpty());
}

void TestCanvasMenu::selectionStaysForItsMenu()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().writeBox({250, 50, 100, 60}, QStringLiteral("b"));
    window().select({0, 1});
    choose(menuAt(boxOf(0).center()), "delete");
    QCOMPARE(window().objects().size(), 0);
}

void TestCanvasMenu::pressBesideTheTextEndsItsEdit()
{
    window().startBox({100, 100, 200, 80}, QStringLiteral("abc"));
    const QMenu *menu = menuAt({500, 400});
    QVERIFY(menu);
    QVERIFY(!window().session()->editedObject());
    QVERIFY(namesIn(menu).contains(QStringLiteral("fitPage")));
    QCOMPARE(window().text(0), QStringLiteral("abc"));
}

void TestCanvasMenu::commandsActOnTheText()
{
    window().startBox({100, 100, 200, 80}, QStringLiteral("abc"));
    choose(menuAt({120, 120}), "selectAll");
    choose(menuAt({120, 120}), "cut");
    QCOMPARE(window().text(0), QString());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("abc"));
    choose(menuAt({120, 120}), "paste");
    choose(menuAt({120, 120}), "pastePlain");
    QCOMPARE(window().text(0), QStringLiteral("abcabc"));
    choose(menuAt({120, 120}), "selectAll");
    choose(menuAt({120, 120}), "delete");
    QCOMPARE(window().text(0), QString());
    QVERIFY(window().session()->editedObject());
    QTest::keyClicks(window().view(), QStringLiteral("x"));
    QCOMPARE(window().text(0), QStringLiteral("x"));
}

void TestCanvasMenu::commandsActOnTheObject()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().writeBox({250, 50, 100, 60}, QStringLiteral("b"));
    choose(menuAt(boxOf(0).center()), "duplicate");
    QCOMPARE(window().texts(),
             (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("a")}));
    choose(menuAt(boxOf(1).center()), "lock");
    QVERIFY(window().objects().at(1)->isLocked());
    menuAt({55, 55});
    window().action("toFront")->trigger();
    QCOMPARE(window().texts(),
             (QStringList{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("a")}));
    openMenu()->close();
    choose(menuAt({55, 55}), "editText");
    QCOMPARE(window().session()->editedObject(), window().objects().at(2));
}

void TestCanvasMenu::textIsPastedWhereTheMenuIs()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("pasted"));
    choose(menuAt({300, 320}), "paste");
    QCOMPARE(window().objects().size(), 1);
    QCOMPARE(window().objects().at(0)->getPos(), QPointF(300, 320));
    window().trigger("paste"); // of the menu bar: amid what is shown
    QCOMPARE(window().objects().at(1)->getPos(), window().view()->visibleCentre());
}

void TestCanvasMenu::menuByKeyOpensAtTheCaret_data()
{
    QTest::addColumn<bool>("isMenuKey");
    QTest::newRow("Menu") << true;
    QTest::newRow("Shift+F10") << false;
}

void TestCanvasMenu::menuByKeyOpensAtTheCaret()
{
    QFETCH(bool, isMenuKey);
    window().startBox({100, 100, 200, 80}, QStringLiteral("abc"));
    window().canvas()->repaint();
    if (isMenuKey)
        sendMenuKey();
    else
        QTest::keyClick(window().view(), Qt::Key_F10, Qt::ShiftModifier);
    QVERIFY(openMenu());
    QVERIFY(namesIn(openMenu()).contains(QStringLiteral("pastePlain")));
    const QRect caret = window().view()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QPoint place = window().view()->mapFromGlobal(openMenu()->pos());
    QVERIFY(caret.adjusted(-2, -2, 2, 2).contains(place));
    QTest::keyClick(openMenu(), Qt::Key_Escape);
    QVERIFY(window().session()->editedObject()); // Escape was the menu's
    QCOMPARE(window().text(0), QStringLiteral("abc"));
}

void TestCanvasMenu::menuByKeyOpensAtTheSelection()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    sendMenuKey();
    QVERIFY(openMenu());
    QVERIFY(namesIn(openMenu()).contains(QStringLiteral("lock")));
    const QPoint place = window().canvas()->mapFromGlobal(openMenu()->pos());
    QVERIFY(boxOf(0).contains(window().view()->mapToScene(place)));
    openMenu()->close();

    window().view()->setZoom(30);
    window().view()->centerOn(700, 1000); // the object is out of sight
    sendMenuKey();
    QVERIFY(
        window().canvas()->rect().contains(window().canvas()->mapFromGlobal(openMenu()->pos())));
    openMenu()->close();
    window().select({});
    sendMenuKey();
    QVERIFY(namesIn(openMenu()).contains(QStringLiteral("zoomIn")));
}

void TestCanvasMenu::listOfObjectsOpensTheMenuToo()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().writeBox({250, 50, 100, 60}, QStringLiteral("b"));
    window().trigger("showObjects");
    auto *list = window().window()->findChild<QListWidget *>(QStringLiteral("objectList"));
    QVERIFY(list);
    list->setFocus();
    QTRY_COMPARE(list->count(), 2);
    QTest::keyClick(list, Qt::Key_End); // the lowest
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            list->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(list, &event);
    window().settle();
    QVERIFY(openMenu());
    choose(openMenu(), "lock");
    QVERIFY(window().objects().at(0)->isLocked());
    QVERIFY(!window().objects().at(1)->isLocked());
    QGuiApplication::clipboard()->setText(QStringLiteral("pasted"));
    QCoreApplication::sendEvent(list, &event);
    choose(openMenu(), "paste");
    QCOMPARE(window().objects().at(2)->getPos(), window().view()->visibleCentre());
}

void TestCanvasMenu::menuWaitsForTheEndOfADrag()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    const QPoint middle = window().at(boxOf(0).center());
    QTest::mousePress(window().canvas(), Qt::LeftButton, {}, middle);
    QVERIFY(!menuAt(boxOf(0).center()));
    QTest::mouseRelease(window().canvas(), Qt::LeftButton, {}, middle);
    QVERIFY(menuAt(boxOf(0).center()));
}

// Place of the window

void TestCanvasMenu::placeOfWindowAndPanelsIsRemembered()
{
    const auto dock = [this](const char *name) {
        return window().window()->findChild<QDockWidget *>(QLatin1String(name));
    };
    window().window()->setGeometry(40, 50, 620, 430);
    dock("warpDock")->hide();
    dock("objects")->show();
    window().window()->addDockWidget(Qt::LeftDockWidgetArea, dock("objects"));
    window().settle();
    const QRect place = window().window()->geometry();
    QVERIFY(window().window()->close());

    init();
    window().window()->fitScreen();
    window().settle();
    QCOMPARE(window().window()->geometry(), place);
    QVERIFY(dock("warpDock")->isHidden());
    QVERIFY(!dock("objects")->isHidden());
    QVERIFY(!dock("characterDock")->isHidden());
    QCOMPARE(window().window()->dockWidgetArea(dock("objects")), Qt::LeftDockWidgetArea);
}

void TestCanvasMenu::fullScreenIsNotRemembered()
{
    window().trigger("fullScreen");
    QVERIFY(window().window()->isFullScreen());
    QVERIFY(window().window()->close());
    init();
    window().window()->fitScreen();
    QVERIFY(!window().window()->isFullScreen());
}

void TestCanvasMenu::brokenMemoryIsPassedOver()
{
    QVERIFY(window().window()->close());
    {
        QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vxarttext"),
                           QStringLiteral("pagehost"));
        QVERIFY(settings.contains(QStringLiteral("window/panels")));
        settings.setValue(QStringLiteral("window/geometry"), QByteArray("no geometry"));
        settings.setValue(QStringLiteral("window/panels"), QByteArray("\0\0\xff", 3));
    }
    init();
    window().window()->fitScreen();
    QVERIFY(!window().window()->size().isEmpty());
    QVERIFY(window().window()->width() <= window().window()->screen()->availableSize().width());
}

QTEST_MAIN(TestCanvasMenu)

#include "tst_canvasmenu.moc"
