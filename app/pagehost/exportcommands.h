// SPDX-License-Identifier: MIT
// exportcommands.h -- the commands that make pictures and paper of a page.
#ifndef PAGEHOST_EXPORTCOMMANDS_H
#define PAGEHOST_EXPORTCOMMANDS_H

#include "app/page/pagerenderer.h"

#include <QObject>

class MainWindow;
class QAction;
class QMenu;
class QPrinter;

/// Export, print and copy as picture, with their questions. The user sees how far they are, and can give
/// them up.
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
    /// Writes the page to \a fileName, and says so, or why not. See PictureExport::write().
    void exportTo(PageRenderer::Format format, const QString &fileName, double scale);
    /// Prints the page, or says why not.
    void printOn(QPrinter &printer);

private:
    void exportPicture();
    void print();
    void copyPicture();
    bool askForResolution(double &scale);

    MainWindow *m_window;
};

#endif
