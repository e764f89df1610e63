// SPDX-License-Identifier: MIT
// panels.h -- the panels beside the page.
#ifndef PAGEHOST_PANELS_H
#define PAGEHOST_PANELS_H

#include "host/framework/hosttypes.h"

#include <QObject>

class CVXRootObject;
class HistoryPanel;
class MissingFontsPanel;
class PageSession;
class PageView;
class PluginLoader;
class QDockWidget;
class QMainWindow;
class QMenu;
class TextSelection;

/// Puts the panels into docks of the window and keeps them up to date.
class Panels : public QObject
{
    Q_OBJECT

public:
    /// \param loader makes the samples of the galleries; it outlives the window
    Panels(QMainWindow *window, PageView *view, const PluginLoader *loader);

    /// Adds a command for each panel that shows and hides it.
    void addTo(QMenu *menu);
    /// Hides all panels if they would take more than about a third of a window of \a windowWidth pixels.
    void leaveRoom(int windowWidth);
    void setSession(PageSession *session);
    /// To be called when \a object tells its attributes.
    void takeAttributes(CVXRootObject *object, const AttributeMap &values);
    TextSelection *selection() const { return m_selection; }

private:
    QDockWidget *add(const char *name, const QString &title, QWidget *panel);
    void putTogether(const QList<QDockWidget *> &docks);
    void nameTabs();

    QMainWindow *m_window;
    PageView *m_view;
    TextSelection *m_selection;
    HistoryPanel *m_history;
    MissingFontsPanel *m_fonts;
    QList<QDockWidget *> m_docks;
};

#endif
