// SPDX-License-Identifier: MIT
// pagesession_files.cpp -- PageSession: its file, and what is kept of it while it is not saved.
#include "app/pagehost/pagesession.h"

#include "app/page/document.h"
#include "app/page/longwork.h"
#include "app/page/pagestorage.h"
#include "app/page/unfinishedfile.h"
#include "app/pagehost/pausededit.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGraphicsTextItem>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>

namespace {

const QSize newPageSize(794, 1123); // A4 upright at 96 dpi
const QColor newPageBackground(Qt::white);

/// Equal as long as nobody has written to the file.
QString stampOf(const QString &fileName)
{
    const QFileInfo file(fileName);
    if (!file.exists())
        return {};
    return file.lastModified().toString(Qt::ISODateWithMs) + QLatin1Char(' ')
           + QString::number(file.size());
}

} // namespace

std::unique_ptr<PageSession> PageSession::create(const PluginLoader *loader)
{
    QString error;
    auto page = OpenPage::create(newPageSize, Document::defaultDpi, newPageBackground, error);
    return std::unique_ptr<PageSession>(new PageSession(loader, std::move(page)));
}

std::unique_ptr<PageSession> PageSession::open(const PluginLoader *loader, const QString &fileName,
                                               QString &error)
{
    PlainWork work;
    return open(loader, fileName, error, work);
}

std::unique_ptr<PageSession> PageSession::open(const PluginLoader *loader, const QString &fileName,
                                               QString &error, LongWork &work)
{
    const QString stamp = stampOf(fileName);
    PageFile file;
    bool isRead = false;
    work.aside([&] {
        removeUnfinished(fileName);
        isRead = readPageFile(fileName, file, error);
    });
    if (!isRead)
        return nullptr;
    const Progress progress = [&](int done, int total) { return work.step(done, total); };
    std::unique_ptr<OpenPage> page;
    if (work.isWanted())
        page = OpenPage::load(*loader, file, fileName, error, progress);
    if (!page || !work.isWanted())
        return nullptr;
    std::unique_ptr<PageSession> session(new PageSession(loader, std::move(page)));
    session->m_fileName = fileName;
    session->m_fileStamp = stamp;
    return session;
}

std::unique_ptr<PageSession> PageSession::recover(const PluginLoader *loader, const QString &copy,
                                                  const QString &fileName, QString &error,
                                                  LongWork &work)
{
    std::unique_ptr<PageSession> session = open(loader, copy, error, work);
    if (!session)
        return nullptr;
    session->m_open->completePictures();
    session->m_fileName = fileName;
    // A file written after the copy holds what this page does not: saving asks first.
    if (QFileInfo(fileName).lastModified() <= QFileInfo(copy).lastModified())
        session->m_fileStamp = stampOf(fileName);
    else
        session->m_fileStamp.clear();
    session->undoStack()->resetClean();
    return session;
}

bool PageSession::save(const QString &fileName, QString &error)
{
    PlainWork work;
    return save(fileName, error, work);
}

bool PageSession::save(const QString &fileName, QString &error, LongWork &work)
{
    const PausedEdit pause(*this); // a record never holds an open edit
    const bool saved = writeTo(fileName, error, work);
    if (saved) {
        m_fileName = fileName;
        m_fileStamp = stampOf(fileName);
        undoStack()->setClean();
    }
    announce();
    return saved;
}

bool PageSession::writeTo(const QString &fileName, QString &error, LongWork &work)
{
    error.clear();
    PageFile file;
    QString reason;
    if (!m_open->toFile(file, reason,
                        [&](int done, int total) { return work.step(done, total); })) {
        if (!reason.isEmpty())
            error = QStringLiteral("'%1': %2").arg(fileName, reason);
        return false;
    }
    bool isWritten = false;
    work.aside([&] {
        isWritten = writePageFile(fileName, file, error, FormerFile::Kept,
                                  [&](int, int) { return work.isWanted(); });
    });
    return isWritten;
}

bool PageSession::snapshot(PageFile &file, QString &error) const
{
    return m_open->snapshot(file, error, isNewTextAbandoned() ? m_newText : nullptr);
}

QString PageSession::contentMark() const
{
    QString mark = QStringLiteral("%1 %2 ").arg(m_changes).arg(undoStack()->index());
    CVXRootObject *edited = editedObject();
    if (!edited)
        return mark;
    if (const QGraphicsTextItem *item = TextCommands::editItem(edited))
        mark += item->textCursor().block().layout()->preeditAreaText() + QLatin1Char(' ');
    mark += QString::number(m_edit.inputs()) + QLatin1Char(' ');
    return mark + TextCommands::plainText(edited);
}

bool PageSession::isFileForeign() const
{
    return !m_fileName.isEmpty() && stampOf(m_fileName) != m_fileStamp;
}
