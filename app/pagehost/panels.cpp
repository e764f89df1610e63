// SPDX-License-Identifier: MIT
#include "app/pagehost/panels.h"

#include "app/pagehost/artpanel.h"
#include "app/pagehost/characterpanel.h"
#include "app/pagehost/historypanel.h"
#include "app/pagehost/missingfontspanel.h"
#include "app/pagehost/objectpanel.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/paragraphpanel.h"
#include "app/pagehost/textselection.h"
#include "app/pagehost/warppanel.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QScrollArea>
#include <QStyle>
#include <QTabBar>

namespace {

constexpr int panelWidth = 290;       // pixels
constexpr double largestShare = 0.36; // of the window

} // namespace

Panels::Panels(QMainWindow *window, PageView *view, const PluginLoader *loader)
    : QObject(window)
    , m_window(window)
    , m_view(view)
    , m_selection(new TextSelection(this))
    , m_history(new HistoryPanel)
    , m_fonts(new MissingFontsPanel)
{
    QDockWidget *character = add("characterDock", tr("Character"), new CharacterPanel(m_selection));
    QDockWidget *paragraph = add("paragraphDock", tr("Paragraph"), new ParagraphPanel(m_selection));
    QDockWidget *object = add("objectDock", tr("Object"), new ObjectPanel(m_selection));
    QDockWidget *warp = add("warpDock", tr("Warp"), new WarpPanel(m_selection, loader));
    QDockWidget *art = add("artDock", tr("Art Text"), new ArtPanel(m_selection, loader));
    QDockWidget *fonts = add("fontsDock", tr("Fonts"), m_fonts);
    QDockWidget *history = add("historyDock", tr("History"), m_history);
    m_window->splitDockWidget(character, warp,
                              Qt::Vertical); // ahead of the tabs, which go with one
    putTogether({character, paragraph, object});
    putTogether({warp, art, fonts, history});
    history->raise(); // galleries take a while to draw: they wait until they are asked for
    connect(m_fonts, &MissingFontsPanel::fontsMissed, fonts, &QDockWidget::raise);
    // A panel behind another one counts as visible: only its dock knows better.
    connect(fonts, &QDockWidget::visibilityChanged, m_fonts, [this](bool isVisible) {
        if (!isVisible)
            m_fonts->cancel();
    });
    m_window->resizeDocks({character}, {panelWidth}, Qt::Horizontal);
    connect(m_selection, &TextSelection::pageWanted, m_view,
            [this] { m_view->setFocus(Qt::OtherFocusReason); });
}

QDockWidget *Panels::add(const char *name, const QString &title, QWidget *panel)
{
    auto *dock = new QDockWidget(title, m_window);
    dock->setObjectName(QLatin1String(name));
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    panel->setObjectName(
        QString::fromLatin1(name).replace(QLatin1String("Dock"), QLatin1String("Panel")));
    if (qobject_cast<QAbstractScrollArea *>(panel)) {
        dock->setWidget(panel);
    } else {
        auto *area = new QScrollArea; // a low window shows a part
        area->setFrameShape(QFrame::NoFrame);
        area->setWidgetResizable(true);
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area->setFocusPolicy(Qt::NoFocus);
        area->setWidget(panel);
        area->setMinimumWidth(panel->minimumSizeHint().width()
                              + area->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4);
        dock->setWidget(area);
    }
    m_window->addDockWidget(Qt::RightDockWidgetArea, dock);
    connect(dock, &QDockWidget::visibilityChanged, this, &Panels::nameTabs);
    m_docks.append(dock);
    return dock;
}

/// One place for all of them, the first in front.
void Panels::putTogether(const QList<QDockWidget *> &docks)
{
    for (int i = 1; i < docks.size(); ++i)
        m_window->tabifyDockWidget(docks.at(i - 1), docks.at(i));
    docks.constFirst()->raise();
}

/// The window makes bars of tabs as docks come together.
void Panels::nameTabs()
{
    const auto bars = m_window->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly);
    for (QTabBar *bar : bars)
        bar->setAccessibleName(tr("Panels"));
}

void Panels::addTo(QMenu *menu)
{
    for (QDockWidget *dock : qAsConst(m_docks))
        menu->addAction(dock->toggleViewAction());
}

void Panels::leaveRoom(int windowWidth)
{
    int width = panelWidth;
    for (const QDockWidget *dock : qAsConst(m_docks))
        width = qMax(width, dock->minimumSizeHint().width());
    if (width <= windowWidth * largestShare)
        return;
    for (QDockWidget *dock : qAsConst(m_docks))
        dock->hide();
}

void Panels::setSession(PageSession *session)
{
    m_selection->setSession(session);
    m_history->setSession(session);
    m_fonts->setSession(session);
}

void Panels::takeAttributes(CVXRootObject *object, const AttributeMap &values)
{
    m_selection->takeAttributes(object, values);
}
