// SPDX-License-Identifier: MIT
// canvasmenu.h -- the menu that opens on the page.
#ifndef PAGEHOST_CANVASMENU_H
#define PAGEHOST_CANVASMENU_H

#include <QObject>
#include <QPointF>
#include <QPointer>

class MainWindow;
class QMenu;

/// Offers what the menus of the window hold for an edited text, for selected objects, or for the page.
class CanvasMenu : public QObject
{
    Q_OBJECT

public:
    /// \a window owns it, and makes its menus before the first one is asked for.
    explicit CanvasMenu(MainWindow *window);

    /// Where a text that is pasted as an object gets its upper left corner (scene): where the menu has
    /// been opened, otherwise the middle of what is shown.
    QPointF pastePlace() const;
    void open(const QPoint &globalPos);

private:
    void fill(QMenu *menu) const;

    MainWindow *m_window;
    QPointer<QMenu> m_menu; ///< that is open, or that has just closed for a command
    QPointF m_place;        ///< of m_menu (scene)
};

#endif
