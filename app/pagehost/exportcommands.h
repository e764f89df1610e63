// SPDX-License-Identifier: MIT
// exportcommands.h -- the commands that make pictures and paper of a page.
#ifndef PAGEHOST_EXPORTCOMMANDS_H
#define PAGEHOST_EXPORTCOMMANDS_H

#include <QObject>

class MainWindow;
class QAction;
class QMenu;

/// Export, print and copy as picture, with their questions.
class ExportCommands : public QObject
{
    Q_OBJECT

public:
    /// \a window owns it.
    explicit ExportCommands(MainWindow *window);

    /// Puts export and print into the File menu, ahead of \a before; null for its end.
    void addToFileMenu(QMenu *menu, QAction *before);
    /// Puts the copy as a picture into the Edit menu, ahead of \a before; null for its end.
    void addToEditMenu(QMenu *menu, QAction *before);

private:
    void exportPicture();
    void print();
    void copyPicture();
    bool askForResolution(double &scale);

    MainWindow *m_window;
};

#endif
