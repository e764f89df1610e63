// SPDX-License-Identifier: MIT
#include "app/pagehost/filecommands.h"

#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>

namespace {

constexpr int statusTime = 10000; // ms

} // namespace

FileCommands::FileCommands(MainWindow *window, const PluginLoader *loader)
    : QObject(window)
    , m_window(window)
    , m_loader(loader)
{
}

QAction *FileCommands::addCommand(QMenu *menu, const char *name, const QString &text,
                                  const QKeySequence &shortcut, Command command)
{
    QAction *action = menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, [this, command] { (this->*command)(); });
    return action;
}

void FileCommands::addTo(QMenu *menu)
{
    addCommand(menu, "new", tr("&New"), QKeySequence::New, &FileCommands::newPage);
    addCommand(menu, "open", tr("&Open..."), QKeySequence::Open, &FileCommands::open);
    menu->addSeparator();
    addCommand(menu, "save", tr("&Save"), QKeySequence::Save, &FileCommands::save);
    addCommand(menu, "saveAs", tr("Save &As..."), Qt::CTRL + Qt::SHIFT + Qt::Key_S,
               &FileCommands::saveAs);
    menu->addSeparator();
    QAction *quit = menu->addAction(tr("&Quit"), m_window, &QWidget::close, Qt::CTRL + Qt::Key_Q);
    quit->setObjectName(QStringLiteral("quit"));
}

PageSession *FileCommands::session() const
{
    return m_window->session();
}

QString FileCommands::shownName() const
{
    return session()->fileName().isEmpty() ? tr("Untitled")
                                           : QFileInfo(session()->fileName()).fileName();
}

bool FileCommands::openFile(const QString &fileName)
{
    QString error;
    std::unique_ptr<PageSession> opened = PageSession::open(m_loader, fileName, error);
    if (!opened) {
        QMessageBox::critical(m_window, tr("Open"),
                              tr("%1 cannot be opened.\n\n%2").arg(fileName, error));
        return false;
    }
    m_window->takeSession(std::move(opened));
    return true;
}

void FileCommands::newPage()
{
    if (mayLeavePage())
        m_window->takeSession(PageSession::create(m_loader));
}

void FileCommands::open()
{
    if (!mayLeavePage())
        return;
    const QString folder = QFileInfo(session()->fileName()).absolutePath();
    const QString fileName = QFileDialog::getOpenFileName(m_window, tr("Open"), folder,
                                                          tr("Pages (*.vxpage *.json)"));
    if (!fileName.isEmpty())
        openFile(fileName);
}

bool FileCommands::saveOrAsk()
{
    return session()->fileName().isEmpty() ? saveUnderNewName() : saveTo(session()->fileName());
}

bool FileCommands::saveUnderNewName()
{
    QFileDialog dialog(m_window, tr("Save As"), QFileInfo(session()->fileName()).absolutePath(),
                       tr("Pages (*.vxpage *.json)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("vxpage"));
    dialog.selectFile(QFileInfo(session()->fileName()).fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    return saveTo(dialog.selectedFiles().constFirst());
}

bool FileCommands::saveTo(const QString &fileName)
{
    QString error;
    if (!session()->save(fileName, error)) {
        QMessageBox::critical(m_window, tr("Save"), tr("The page is not saved.\n\n%1").arg(error));
        return false;
    }
    m_window->statusBar()->showMessage(tr("Saved %1").arg(fileName), statusTime);
    return true;
}

bool FileCommands::mayLeavePage()
{
    session()->endEdit();
    if (!session()->isModified())
        return true;
    const auto answer = QMessageBox::warning(m_window, tr("Unsaved Changes"),
                                             tr("Save the changes to %1?").arg(shownName()),
                                             QMessageBox::Save | QMessageBox::Discard
                                                 | QMessageBox::Cancel,
                                             QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return saveOrAsk();
    return answer == QMessageBox::Discard;
}
