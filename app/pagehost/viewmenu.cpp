// SPDX-License-Identifier: MIT
#include "app/pagehost/viewmenu.h"

#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pageview.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

#include <functional>

namespace {

constexpr double zoomStep = 1.25;

struct ViewMenu {
    Q_DECLARE_TR_FUNCTIONS(ViewMenu)
};

QAction *add(QMenu *menu, const char *name, const QString &text,
             const QList<QKeySequence> &shortcuts, const std::function<void()> &command)
{
    QAction *action = menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(shortcuts);
    QObject::connect(action, &QAction::triggered, menu, command);
    return action;
}

void setFullScreen(MainWindow *window, bool on)
{
    window->setWindowState(on ? window->windowState() | Qt::WindowFullScreen
                              : window->windowState() & ~Qt::WindowFullScreen);
}

} // namespace

void fillViewMenu(QMenu *menu, MainWindow *window)
{
    PageView *const view = window->view();
    // The plus of most keyboards needs Shift: without it the key is the equals sign.
    add(menu, "zoomIn", ViewMenu::tr("Zoom &In"),
        {QKeySequence(Qt::CTRL + Qt::Key_Plus), QKeySequence(Qt::CTRL + Qt::Key_Equal)},
        [view] { view->setZoom(view->zoom() * zoomStep); });
    add(menu, "zoomOut", ViewMenu::tr("Zoom &Out"), {QKeySequence(Qt::CTRL + Qt::Key_Minus)},
        [view] { view->setZoom(view->zoom() / zoomStep); });
    add(menu, "zoomNormal", ViewMenu::tr("&Normal Size"), {QKeySequence(Qt::CTRL + Qt::Key_0)},
        [view] { view->setZoom(1); });
    add(menu, "fitPage", ViewMenu::tr("&Fit Page"), {QKeySequence(Qt::CTRL + Qt::Key_9)},
        [view] { view->fitPage(); });
    add(menu, "fitSelection", ViewMenu::tr("Fit &Selection"), {QKeySequence(Qt::CTRL + Qt::Key_8)},
        [view] { view->fitSelection(); });
    menu->addSeparator();
    QAction *full = add(menu, "fullScreen", ViewMenu::tr("F&ull Screen"),
                        {QKeySequence(Qt::Key_F11)},
                        [window] { setFullScreen(window, !window->isFullScreen()); });
    full->setCheckable(true);
    QObject::connect(menu, &QMenu::aboutToShow, full,
                     [full, window] { full->setChecked(window->isFullScreen()); });
}
