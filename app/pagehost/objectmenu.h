// SPDX-License-Identifier: MIT
// objectmenu.h -- the commands for selected objects.
#ifndef PAGEHOST_OBJECTMENU_H
#define PAGEHOST_OBJECTMENU_H

#include <QKeySequence>
#include <QObject>
#include <QVector>

#include <functional>

class MainWindow;
class PageSession;
class QAction;
class QMenu;

/// Fills the Object menu. While a text is edited its keys are not the commands' of the objects.
class ObjectMenu : public QObject
{
    Q_OBJECT

public:
    /// \a window owns it.
    ObjectMenu(MainWindow *window, QMenu *menu);

private:
    /// How many selected objects a command needs; Alone: that one and no other.
    enum Needs { Alone, One, Three = 3 };
    struct Entry {
        QAction *action;
        Needs needs;
    };

    QAction *add(QMenu *menu, const char *name, const QString &text, const QKeySequence &shortcut,
                 const std::function<void(PageSession &)> &command, Needs needs = One);
    static QMenu *addMenu(QMenu *menu, const char *name, const QString &text);
    void addOrder(QMenu *menu);
    void addAlignment(QMenu *menu);
    void editText();
    void refresh();

    MainWindow *m_window;
    QVector<Entry> m_entries;
    QAction *m_lock;
};

#endif
