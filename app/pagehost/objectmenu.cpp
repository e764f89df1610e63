// SPDX-License-Identifier: MIT
#include "app/pagehost/objectmenu.h"

#include "app/page/page.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/objectcommands.h"
#include "app/pagehost/pagesession.h"

#include <QAction>
#include <QMenu>

using ObjectCommands::Edge;
using ObjectCommands::Order;

ObjectMenu::ObjectMenu(MainWindow *window, QMenu *menu)
    : QObject(window)
    , m_window(window)
{
    add(
        menu, "editText", tr("&Edit Text"), Qt::Key_F2, [this](PageSession &) { editText(); },
        Alone);
    add(menu, "duplicate", tr("&Duplicate"), Qt::CTRL + Qt::Key_D,
        [](PageSession &session) { session.duplicate(); });
    m_lock = add(menu, "lock", tr("&Lock"), Qt::CTRL + Qt::Key_L, [](PageSession &session) {
        ObjectCommands::setLocked(session, !ObjectCommands::isLocked(session));
    });
    menu->addSeparator();
    addOrder(addMenu(menu, "order", tr("&Order")));
    addAlignment(addMenu(menu, "align", tr("&Align")));
    QMenu *turns = addMenu(menu, "rotate", tr("&Rotate"));
    add(turns, "rotateRight", tr("90° to the &Right"), Qt::CTRL + Qt::Key_R,
        [](PageSession &session) { ObjectCommands::rotate(session, 90); });
    add(turns, "rotateLeft", tr("90° to the &Left"), Qt::CTRL + Qt::SHIFT + Qt::Key_R,
        [](PageSession &session) { ObjectCommands::rotate(session, -90); });
    m_lock->setCheckable(true);
    connect(window, &MainWindow::sessionTaken, this, [this](PageSession *session) {
        connect(session, &PageSession::stateChanged, this, &ObjectMenu::refresh);
        refresh();
    });
}

QMenu *ObjectMenu::addMenu(QMenu *menu, const char *name, const QString &text)
{
    QMenu *added = menu->addMenu(text);
    added->menuAction()->setObjectName(QLatin1String(name));
    return added;
}

QAction *ObjectMenu::add(QMenu *menu, const char *name, const QString &text,
                         const QKeySequence &shortcut,
                         const std::function<void(PageSession &)> &command, Needs needs)
{
    QAction *action = menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, [this, command] {
        command(*m_window->session());
        refresh();
    });
    m_entries.append({action, needs});
    return action;
}

void ObjectMenu::addOrder(QMenu *menu)
{
    const auto arrange = [](Order order) {
        return [order](PageSession &session) { ObjectCommands::arrange(session, order); };
    };
    add(menu, "toFront", tr("To &Front"), Qt::CTRL + Qt::SHIFT + Qt::Key_BracketRight,
        arrange(Order::ToFront));
    add(menu, "forward", tr("For&ward"), Qt::CTRL + Qt::Key_BracketRight, arrange(Order::Forward));
    add(menu, "backward", tr("Bac&kward"), Qt::CTRL + Qt::Key_BracketLeft,
        arrange(Order::Backward));
    add(menu, "toBack", tr("To &Back"), Qt::CTRL + Qt::SHIFT + Qt::Key_BracketLeft,
        arrange(Order::ToBack));
}

void ObjectMenu::addAlignment(QMenu *menu)
{
    const auto align = [](Edge edge) {
        return [edge](PageSession &session) { ObjectCommands::align(session, edge); };
    };
    const auto distribute = [](Qt::Orientation direction) {
        return
            [direction](PageSession &session) { ObjectCommands::distribute(session, direction); };
    };
    add(menu, "alignLeft", tr("&Left"), {}, align(Edge::Left));
    add(menu, "alignCentre", tr("&Centre"), {}, align(Edge::Centre));
    add(menu, "alignRight", tr("&Right"), {}, align(Edge::Right));
    menu->addSeparator();
    add(menu, "alignTop", tr("&Top"), {}, align(Edge::Top));
    add(menu, "alignMiddle", tr("&Middle"), {}, align(Edge::Middle));
    add(menu, "alignBottom", tr("&Bottom"), {}, align(Edge::Bottom));
    menu->addSeparator();
    add(menu, "distributeAcross", tr("Equal Gaps &Across"), {}, distribute(Qt::Horizontal), Three);
    add(menu, "distributeDown", tr("Equal Gaps &Down"), {}, distribute(Qt::Vertical), Three);
}

/// Of the one selected object.
void ObjectMenu::editText()
{
    const QList<CVXRootObject *> selected = m_window->session()->page()->getSelectedObjects();
    if (selected.size() == 1)
        m_window->editText(selected.constFirst());
}

void ObjectMenu::refresh()
{
    const PageSession &session = *m_window->session();
    const int count = session.editedObject() ? 0 : session.page()->getSelectedObjects().size();
    for (const Entry &entry : qAsConst(m_entries))
        entry.action->setEnabled(entry.needs == Alone ? count == 1 : count >= entry.needs);
    m_lock->setChecked(ObjectCommands::isLocked(session));
}
