// SPDX-License-Identifier: MIT
// objectlist.h -- the objects of a page as a list, for the keyboard and for screen readers.
#ifndef PAGEHOST_OBJECTLIST_H
#define PAGEHOST_OBJECTLIST_H

#include <QDockWidget>
#include <QList>
#include <QTimer>

class CVXRootObject;
class MainWindow;
class PageSession;
class QListWidget;
class QListWidgetItem;

/// Names every object of the page, the topmost first. What is selected in the list is selected on the
/// page, and the other way round. Return edits the text of an object, Delete removes what is selected, and
/// the menu is that of the page.
class ObjectList : public QDockWidget
{
    Q_OBJECT

public:
    explicit ObjectList(MainWindow *window);

    /// The words for \a object: its kind, the beginning of its text, its state.
    static QString nameOf(CVXRootObject *object);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(PageSession *session);
    void refresh();
    void nameAll();
    void name(QListWidgetItem *item, CVXRootObject *object);
    void showSelection();
    void selectOnPage();
    void edit(int row);
    CVXRootObject *objectAt(int row) const;
    PageSession *session() const;

    MainWindow *m_window;
    QListWidget *m_list;
    QList<CVXRootObject *>
        m_shown;                ///< of the rows, the first row last; may have gone from the page
    QTimer m_refresh;           ///< once for what happens in a moment
    bool m_isFollowing = false; ///< the page is being shown, not changed
};

#endif
