// SPDX-License-Identifier: MIT
// pagedrop.h -- page files that are dropped on the window.
#ifndef PAGEHOST_PAGEDROP_H
#define PAGEHOST_PAGEDROP_H

#include <QObject>

class MainWindow;
class QMimeData;

/// Opens a page file that is dropped on its window, once the user has said what becomes of the page that
/// is open.
class PageDrop : public QObject
{
    Q_OBJECT

public:
    /// \a window owns it.
    explicit PageDrop(MainWindow *window);

    /// The one local page file that \a data stands for; empty for anything else.
    static QString fileIn(const QMimeData &data);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void open(const QString &fileName);

    MainWindow *m_window;
};

#endif
