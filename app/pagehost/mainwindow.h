// SPDX-License-Identifier: MIT
// mainwindow.h -- the window of the editor: menus, tools, questions.
#ifndef PAGEHOST_MAINWINDOW_H
#define PAGEHOST_MAINWINDOW_H

#include "host/framework/iappframework.h"
#include "host/framework/ivxpage.h"

#include <QKeySequence>
#include <QMainWindow>

#include <memory>

class CanvasMenu;
class ExportCommands;
class FileCommands;
class Framework;
class PageSession;
class PageView;
class Panels;
class PluginLoader;
class QActionGroup;
class QLabel;
class QMenu;

/// Shows one page. It is what objects call the host: it hears their events and runs their tools.
class MainWindow : public QMainWindow, private IObjectEventSink, private IToolController
{
    Q_OBJECT

public:
    /// Opens with an empty page. Both outlive the window; \a loader is loaded.
    MainWindow(const PluginLoader *loader, Framework *framework);
    ~MainWindow() override;

    /// Puts window and panels where they were when the program ended last. At the first start the window
    /// is never larger than its screen, and one that is too narrow for the panels shows the page alone.
    void fitScreen();
    /// Opens the page of a file in place of the present one, without asking. False, after a message,
    /// for a file that cannot be opened: the present page stays.
    bool openFile(const QString &fileName);
    PageSession *session() const { return m_session.get(); }
    /// Shows \a session in place of the present one, which ends.
    void takeSession(std::unique_ptr<PageSession> session);
    PageView *view() const { return m_view; }
    /// What is done with files: the commands of the File menu and the questions about the page.
    FileCommands *files() const { return m_files; }
    CanvasMenu *canvasMenu() const { return m_canvasMenu; }
    /// The panels beside the page.
    Panels *panels() const { return m_panels; }
    void setTool(int tool);
    /// Begins the edit of \a object with the keys on the page; says so of one that is locked.
    void editText(CVXRootObject *object);

Q_SIGNALS:
    /// \a session is the page that is shown from now on.
    void sessionTaken(PageSession *session);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    using Command = void (MainWindow::*)();

    QAction *addCommand(QMenu *menu, const char *name, const QString &text,
                        const QList<QKeySequence> &shortcuts, Command command);
    void makeEditMenu();
    void makeViewMenu();
    void makeTools();
    void addTool(const char *name, const QString &text, const QKeySequence &shortcut, int tool);
    void makeStyleMenu(QMenu *menu);

    // Edit
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void pastePlain();
    bool mayPasteText(bool isPlain);
    void remove();
    void selectAll();
    bool sendToEdit(Qt::Key key, Qt::KeyboardModifiers modifiers);

    // View
    void refresh();
    void refreshPaste();
    void showZoom(double zoom);
    void tellLocked();

    // What objects tell
    void notifyObjectEvent(CVXRootObject *object, const QString &key,
                           const AttributeMap &values) override;
    void notifyObjectChanged(CVXRootObject *object, int code, const QString &detail) override;
    void postToolCommand(int command, int first, int second) override;

    const PluginLoader *m_loader;
    Framework *m_framework;
    PageView *m_view;
    FileCommands *m_files;
    ExportCommands *m_exports;
    Panels *m_panels;
    CanvasMenu *m_canvasMenu;
    std::unique_ptr<PageSession> m_session;
    QActionGroup *m_tools;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    QAction *m_cut = nullptr;
    QAction *m_copy = nullptr;
    QAction *m_paste = nullptr;
    QAction *m_pastePlain = nullptr;
    QAction *m_delete = nullptr;
    QAction *m_artStyle = nullptr;
    QLabel *m_zoomLabel;
};

#endif
