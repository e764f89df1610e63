// SPDX-License-Identifier: MIT
#include "app/pagehost/filecommands.h"

#include "app/pagehost/busysign.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pageproblem.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/recentfiles.h"
#include "app/pagehost/recoverydialog.h"
#include "app/pagehost/savename.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputMethod>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>

namespace {

constexpr int statusTime = 10000; // ms
constexpr int mostWarnings = 10;  // of which a message tells at once

} // namespace

FileCommands::FileCommands(MainWindow *window, const PluginLoader *loader)
    : QObject(window)
    , m_window(window)
    , m_loader(loader)
{
    connect(window, &MainWindow::sessionTaken, &m_recovery, &Recovery::follow);
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
    m_recent = menu->addMenu(tr("Open &Recent"));
    m_recent->setObjectName(QStringLiteral("recent"));
    fillRecentMenu(); // that it can be opened at all
    connect(m_recent, &QMenu::aboutToShow, this, &FileCommands::fillRecentMenu);
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

bool FileCommands::openFile(const QString &name)
{
    // The page may be saved, and recovered, by a program that stands in another folder.
    const QString fileName = QFileInfo(name).absoluteFilePath();
    QString error;
    std::unique_ptr<PageSession> opened;
    {
        BusySign work(m_window, tr("Opening %1").arg(QFileInfo(fileName).fileName()));
        opened = PageSession::open(m_loader, fileName, error, work);
    }
    if (!opened) {
        if (!error.isEmpty()) // not given up by the user
            tellProblem(fileName, error);
        return false;
    }
    m_window->takeSession(std::move(opened));
    RecentFiles::add(fileName);
    tellLeftOut();
    return true;
}

/// Says what the page holds that is not shown. Waits for nothing: the page is open already.
void FileCommands::tellLeftOut()
{
    const QStringList warnings = session()->warnings();
    if (warnings.isEmpty())
        return;
    auto *box = new QMessageBox(QMessageBox::Warning, tr("Open"),
                                tr("Not all of %1 can be shown.").arg(shownName()), QMessageBox::Ok,
                                m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(warnings.mid(0, mostWarnings).join(QLatin1Char('\n')));
    if (warnings.size() > mostWarnings)
        box->setDetailedText(warnings.join(QLatin1Char('\n')));
    box->open();
}

/// Says what is wrong with a file and where.
void FileCommands::tellProblem(const QString &fileName, const QString &error)
{
    QMessageBox box(QMessageBox::Critical, tr("Open"), problemText(problemOf(fileName), fileName),
                    QMessageBox::Ok, m_window);
    box.setInformativeText(tr("%1\n\nThe page that is open stays as it is.").arg(error));
    box.exec();
}

bool FileCommands::offerRecovery()
{
    auto copies = RecoveryCopy::abandoned();
    if (copies.empty())
        return false;
    RecoveryDialog dialog(std::move(copies), m_window);
    dialog.exec();
    std::unique_ptr<RecoveryCopy> copy = dialog.takeChosen();
    if (!copy)
        return false;
    QString error;
    std::unique_ptr<PageSession> recovered;
    {
        BusySign work(m_window, tr("Recovering the page"));
        recovered = PageSession::recover(m_loader, copy->pageName(), copy->originalName(), error,
                                         work);
    }
    if (!recovered) {
        if (!error.isEmpty()) // not given up by the user, to whom it is offered again
            tellProblem(copy->pageName(), error);
        return false;
    }
    m_window->takeSession(std::move(recovered));
    m_recovery.adopt(std::move(copy));
    m_window->statusBar()->showMessage(tr("Recovered: save the page to keep it"));
    tellLeftOut();
    return true;
}

// Recent files

void FileCommands::fillRecentMenu()
{
    m_recent->clear();
    const QStringList files = RecentFiles::list();
    int number = 0;
    for (const QString &fileName : files) {
        QString shown = QDir::toNativeSeparators(fileName);
        shown.replace(QLatin1Char('&'), QLatin1String("&&"));
        ++number;
        const QString key = number < 10 ? QStringLiteral("&%1  ").arg(number) : QString();
        m_recent->addAction(key + shown, this, [this, fileName] { openRecent(fileName); });
    }
    if (!files.isEmpty())
        m_recent->addSeparator();
    QAction *clear = m_recent->addAction(tr("&Clear List"), this, &RecentFiles::clear);
    clear->setEnabled(!files.isEmpty());
}

void FileCommands::openRecent(const QString &fileName)
{
    if (!mayLeavePage() || openFile(fileName))
        return;
    if (!QFileInfo::exists(fileName))
        RecentFiles::remove(fileName);
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
    QString fileName = dialog.selectedFiles().constFirst();
    const QStringList suffixes{QStringLiteral("vxpage"), QStringLiteral("json")};
    return completeSaveName(fileName, suffixes, tr("Save As"), m_window) && saveTo(fileName);
}

bool FileCommands::saveTo(const QString &fileName)
{
    takeFields();
    if (!mayReplace(fileName))
        return false;
    QString error;
    bool saved = false;
    {
        BusySign work(m_window, tr("Saving %1").arg(QFileInfo(fileName).fileName()));
        saved = session()->save(fileName, error, work);
    }
    if (!saved) {
        if (!error.isEmpty()) // not given up by the user
            QMessageBox::critical(m_window, tr("Save"),
                                  tr("The page is not saved.\n\n%1").arg(error));
        return false;
    }
    RecentFiles::add(fileName);
    m_window->statusBar()->showMessage(tr("Saved %1").arg(fileName), statusTime);
    return true;
}

/// What has been typed into a field counts, although nobody has left the field.
void FileCommands::takeFields()
{
    m_window->view()->setFocus();
}

/// Asks ahead of the loss of what another program has written to the file of the page.
bool FileCommands::mayReplace(const QString &fileName)
{
    const QString written = QFileInfo(fileName).canonicalFilePath();
    if (written.isEmpty() || written != QFileInfo(session()->fileName()).canonicalFilePath()
        || !session()->isFileForeign())
        return true;
    return QMessageBox::warning(m_window, tr("Save"),
                                tr("Another program has changed %1. Replace it?").arg(shownName()),
                                QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Cancel)
           == QMessageBox::Save;
}

bool FileCommands::mayLeavePage()
{
    if (BusySign::isAnywhere())
        return false;
    takeFields();
    QGuiApplication::inputMethod()->commit(); // what is composed counts as typed
    if (!session()->isModified()) {
        session()->endEdit();
        return true;
    }
    const auto answer = QMessageBox::warning(m_window, tr("Unsaved Changes"),
                                             tr("Save the changes to %1?").arg(shownName()),
                                             QMessageBox::Save | QMessageBox::Discard
                                                 | QMessageBox::Cancel,
                                             QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return saveOrAsk();
    return answer == QMessageBox::Discard;
}
