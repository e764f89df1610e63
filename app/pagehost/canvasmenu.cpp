// SPDX-License-Identifier: MIT
#include "app/pagehost/canvasmenu.h"

#include "app/page/page.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"

#include <QAction>
#include <QMenu>

#include <vector>

namespace {

/// Commands by their names; null separates.
using Commands = std::vector<const char *>;

// clang-format off
const Commands textCommands{
    "undo", "redo", nullptr,
    "cut", "copy", "paste", "pastePlain", "delete", nullptr,
    "selectAll",
};
const Commands objectCommands{
    "editText", nullptr,
    "cut", "copy", "copyPicture", "paste", "duplicate", "delete", nullptr,
    "lock", "order", "align", "rotate",
};
const Commands pageCommands{
    "paste", "pastePlain", "selectAll", nullptr,
    "zoomIn", "zoomOut", "zoomNormal", "fitPage",
};
// clang-format on

const Commands &commandsFor(const PageSession &session)
{
    if (session.editedObject())
        return textCommands;
    return session.page()->getSelectedObjects().isEmpty() ? pageCommands : objectCommands;
}

} // namespace

CanvasMenu::CanvasMenu(MainWindow *window)
    : QObject(window)
    , m_window(window)
{
    connect(window->view(), &PageView::menuWanted, this, &CanvasMenu::open);
}

QPointF CanvasMenu::pastePlace() const
{
    return m_menu ? m_place : m_window->view()->visibleCentre();
}

void CanvasMenu::open(const QPoint &globalPos)
{
    PageView *const view = m_window->view();
    m_menu = new QMenu(view);
    m_menu->setObjectName(QStringLiteral("canvasMenu"));
    m_menu->setAttribute(Qt::WA_DeleteOnClose); // once the chosen command has been carried out
    const QPoint place = view->viewport()->mapFromGlobal(globalPos);
    const bool isOnView = view->viewport()->rect().contains(
        place); // not so beside the list of objects
    m_place = isOnView ? view->mapToScene(place) : view->visibleCentre();
    fill(m_menu);
    m_menu->popup(globalPos);
}

void CanvasMenu::fill(QMenu *menu) const
{
    for (const char *name : commandsFor(*m_window->session())) {
        if (!name)
            menu->addSeparator();
        else if (auto *command = m_window->findChild<QAction *>(QLatin1String(name)))
            menu->addAction(command);
    }
}
