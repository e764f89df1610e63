// SPDX-License-Identifier: MIT
// filecommands.h -- the commands of the File menu, and the questions that they ask.
#ifndef PAGEHOST_FILECOMMANDS_H
#define PAGEHOST_FILECOMMANDS_H

#include "app/pagehost/recovery.h"

#include <QKeySequence>
#include <QObject>

class MainWindow;
class PageSession;
class PluginLoader;
class QAction;
class QMenu;

/// What a window does with files: it opens, saves and leaves the page of its window.
class FileCommands : public QObject
{
    Q_OBJECT

public:
    /// \a window owns it; \a loader outlives it.
    FileCommands(MainWindow *window, const PluginLoader *loader);

    /// Fills the File menu.
    void addTo(QMenu *menu);
    /// Opens the page of a file in place of the present one, without asking. False, after a message,
    /// for a file that cannot be opened: the present page stays.
    bool openFile(const QString &fileName);
    /// Offers the pages that a crash has left. True when one of them is open now.
    bool offerRecovery();
    /// Asks what is to become of changes that are not saved. False when the page is to stay open.
    bool mayLeavePage();
    /// Keeps the copy of the page for the time after a crash.
    Recovery *recovery() { return &m_recovery; }
    /// The name of the page for titles and questions.
    QString shownName() const;

private:
    using Command = void (FileCommands::*)();

    QAction *addCommand(QMenu *menu, const char *name, const QString &text,
                        const QKeySequence &shortcut, Command command);
    void newPage();
    void open();
    void save() { saveOrAsk(); }
    void saveAs() { saveUnderNewName(); }
    bool saveOrAsk();
    bool saveUnderNewName();
    bool saveTo(const QString &fileName);
    void takeFields();
    bool mayReplace(const QString &fileName);
    void fillRecentMenu();
    void openRecent(const QString &fileName);
    void tellLeftOut();
    void tellProblem(const QString &fileName, const QString &error);
    PageSession *session() const;

    MainWindow *m_window;
    const PluginLoader *m_loader;
    QMenu *m_recent = nullptr;
    Recovery m_recovery;
};

#endif
