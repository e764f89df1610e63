// SPDX-License-Identifier: MIT
#include "app/pagehost/pagedrop.h"

#include "app/pagehost/filecommands.h"
#include "app/pagehost/mainwindow.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

PageDrop::PageDrop(MainWindow *window)
    : QObject(window)
    , m_window(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

QString PageDrop::fileIn(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.constFirst().isLocalFile())
        return {};
    const QString fileName = urls.constFirst().toLocalFile();
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    const bool isPage = suffix == QLatin1String("vxpage") || suffix == QLatin1String("json");
    return isPage ? fileName : QString();
}

bool PageDrop::eventFilter(QObject *watched, QEvent *event)
{
    const bool isDrop = event->type() == QEvent::Drop;
    if (!isDrop && event->type() != QEvent::DragEnter)
        return QObject::eventFilter(watched, event);
    auto *drop = static_cast<QDropEvent *>(event);
    const QString fileName = fileIn(*drop->mimeData());
    if (fileName.isEmpty() || QApplication::activeModalWidget()) {
        drop->ignore();
        return true;
    }
    drop->setDropAction(Qt::CopyAction); // the file stays where it is
    drop->accept();
    if (isDrop) { // the program it comes from waits for the end of the drop: questions come afterwards
        QMetaObject::invokeMethod(
            this, [this, fileName] { open(fileName); }, Qt::QueuedConnection);
    }
    return true;
}

void PageDrop::open(const QString &fileName)
{
    m_window->activateWindow();
    if (m_window->files()->mayLeavePage())
        m_window->openFile(fileName);
}
