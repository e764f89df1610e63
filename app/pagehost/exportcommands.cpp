// SPDX-License-Identifier: MIT
#include "app/pagehost/exportcommands.h"

#include "app/page/page.h"
#include "app/pagehost/busysign.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pictureexport.h"
#include "app/pagehost/savename.h"
#include "host/framework/idocumenthost.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>

namespace {

constexpr int statusTime = 10000; // ms
constexpr int smallestDpi = 10;
constexpr int largestDpi = 2400;

/// The suffix that a filter such as "PNG (*.png)" stands for.
QString suffixOfFilter(const QString &filter)
{
    return filter.section(QLatin1String("*."), 1).section(QLatin1Char(')'), 0, 0);
}

} // namespace

ExportCommands::ExportCommands(MainWindow *window)
    : QObject(window)
    , m_window(window)
{
}

void ExportCommands::addToFileMenu(QMenu *menu, QAction *before)
{
    auto *exporting = new QAction(tr("&Export..."), menu);
    exporting->setObjectName(QStringLiteral("export"));
    exporting->setShortcut(Qt::CTRL + Qt::Key_E);
    connect(exporting, &QAction::triggered, this, &ExportCommands::exportPicture);
    auto *printing = new QAction(tr("&Print..."), menu);
    printing->setObjectName(QStringLiteral("print"));
    printing->setShortcut(QKeySequence::Print);
    connect(printing, &QAction::triggered, this, &ExportCommands::print);
    menu->insertActions(before, {exporting, printing});
    menu->insertSeparator(before);
}

void ExportCommands::addToEditMenu(QMenu *menu, QAction *before)
{
    auto *copying = new QAction(tr("Copy as P&icture"), menu);
    copying->setObjectName(QStringLiteral("copyPicture"));
    connect(copying, &QAction::triggered, this, &ExportCommands::copyPicture);
    menu->insertAction(before, copying);
    connect(menu, &QMenu::aboutToShow, copying, [this, copying] {
        copying->setEnabled(!m_window->session()->page()->getSelectedObjects().isEmpty());
    });
    connect(menu, &QMenu::aboutToHide, copying, [copying] { copying->setEnabled(true); });
}

void ExportCommands::exportPicture()
{
    PageSession *const session = m_window->session();
    const QFileInfo file(session->fileName());
    QFileDialog dialog(m_window, tr("Export"), file.absolutePath());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({tr("Picture of pixels (*.png)"), tr("Picture of outlines (*.svg)"),
                           tr("Document (*.pdf)")});
    dialog.setDefaultSuffix(QStringLiteral("png"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog,
            [&dialog](const QString &filter) { dialog.setDefaultSuffix(suffixOfFilter(filter)); });
    dialog.selectFile(file.completeBaseName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    QString fileName = dialog.selectedFiles().constFirst();
    QStringList suffixes{suffixOfFilter(dialog.selectedNameFilter())};
    const QStringList filters = dialog.nameFilters();
    for (const QString &filter : filters)
        suffixes.append(suffixOfFilter(filter));
    PageRenderer::Format format;
    if (!completeSaveName(fileName, suffixes, tr("Export"), m_window)
        || !PageRenderer::formatOf(fileName, format))
        return;
    double scale = 1;
    if (format == PageRenderer::Format::Png && !askForResolution(scale))
        return;
    exportTo(format, fileName, scale);
}

void ExportCommands::exportTo(PageRenderer::Format format, const QString &fileName, double scale)
{
    QString error;
    bool isWritten = false;
    {
        BusySign work(m_window, tr("Exporting %1").arg(QFileInfo(fileName).fileName()));
        isWritten = PictureExport::write(*m_window->session(), format, fileName, scale, error,
                                         work);
    }
    if (isWritten)
        m_window->statusBar()->showMessage(tr("Exported %1").arg(fileName), statusTime);
    else if (!error.isEmpty()) // not given up by the user
        QMessageBox::critical(m_window, tr("Export"),
                              tr("The picture is not written.\n\n%1").arg(error));
}

/// \param scale receives pixels of the picture for one of the page
bool ExportCommands::askForResolution(double &scale)
{
    const int pageDpi = m_window->session()->page()->getDocument()->getDpi();
    bool isGiven = false;
    const int dpi = QInputDialog::getInt(m_window, tr("Export"), tr("Dots per inch:"), pageDpi,
                                         smallestDpi, qMax(largestDpi, pageDpi), 1, &isGiven);
    scale = double(dpi) / pageDpi;
    return isGiven;
}

void ExportCommands::print()
{
    PageSession *const session = m_window->session();
    QPrinter printer(QPrinter::HighResolution);
    const QSize page = session->size();
    printer.setPageOrientation(page.width() > page.height() ? QPageLayout::Landscape
                                                            : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, m_window);
    dialog.setWindowTitle(tr("Print"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    printOn(printer);
}

void ExportCommands::printOn(QPrinter &printer)
{
    QString error;
    BusySign work(m_window, tr("Printing"));
    if (!PictureExport::print(*m_window->session(), printer, error, work) && !error.isEmpty())
        m_window->statusBar()->showMessage(tr("The page is not printed: %1").arg(error),
                                           statusTime);
}

void ExportCommands::copyPicture()
{
    QString error;
    std::unique_ptr<QMimeData> picture;
    {
        BusySign work(m_window, tr("Copying"));
        picture = PictureExport::selectionPicture(*m_window->session(), error, work);
    }
    if (picture)
        QApplication::clipboard()->setMimeData(picture.release()); // which owns it now
    else if (!error.isEmpty())
        m_window->statusBar()->showMessage(tr("No picture is copied: %1").arg(error), statusTime);
}
