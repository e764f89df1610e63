// SPDX-License-Identifier: MIT
#include "app/pagehost/recovery.h"

#include "app/page/pagestorage.h"
#include "app/pagehost/busysign.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/settings.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLockFile>
#include <QUuid>

#include <algorithm>

namespace {

/// A copy may take this part of the time at most, for the window stands still meanwhile.
constexpr int timeShare = 20;
constexpr int delayWhileBusy = 1000; // ms

QString recoveryFolder()
{
    return dataFolder() + QStringLiteral("/recovery");
}

} // namespace

// RecoveryCopy

RecoveryCopy::RecoveryCopy(const QString &folder)
    : m_folder(folder)
    , m_lock(std::make_unique<QLockFile>(folder + QStringLiteral("/lock")))
{
    m_lock->setStaleLockTime(0); // a program may work on a page for days
}

RecoveryCopy::~RecoveryCopy() = default;

bool RecoveryCopy::lock()
{
    return m_lock->tryLock(0);
}

std::unique_ptr<RecoveryCopy> RecoveryCopy::create()
{
    const QString folder = recoveryFolder() + QLatin1Char('/')
                           + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!QDir().mkpath(folder))
        return nullptr;
    QFile::setPermissions(recoveryFolder(),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    std::unique_ptr<RecoveryCopy> copy(new RecoveryCopy(folder));
    return copy->lock() ? std::move(copy) : nullptr;
}

std::vector<std::unique_ptr<RecoveryCopy>> RecoveryCopy::abandoned()
{
    std::vector<std::unique_ptr<RecoveryCopy>> copies;
    const QFileInfoList folders =
        QDir(recoveryFolder()).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo &folder : folders) {
        std::unique_ptr<RecoveryCopy> copy(new RecoveryCopy(folder.filePath()));
        if (!copy->lock())
            continue;
        if (QFileInfo::exists(copy->pageName()))
            copies.push_back(std::move(copy));
        else
            copy->remove(); // stopped ahead of its first copy
    }
    std::sort(copies.begin(), copies.end(),
              [](const auto &a, const auto &b) { return a->time() > b->time(); });
    return copies;
}

QString RecoveryCopy::pageName() const
{
    return m_folder + QStringLiteral("/page.vxpage");
}

QDateTime RecoveryCopy::time() const
{
    return QFileInfo(pageName()).lastModified();
}

QString RecoveryCopy::originalName() const
{
    QFile file(m_folder + QStringLiteral("/original"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool RecoveryCopy::setOriginalName(const QString &fileName)
{
    const QString name = m_folder + QStringLiteral("/original");
    QString reason;
    return (QFileInfo::exists(name) && originalName() == fileName)
           || writeFile(name, fileName.toUtf8(), reason);
}

void RecoveryCopy::remove()
{
    // The page first: a folder that is left half removed offers nothing.
    QFile::remove(pageName());
    m_lock->unlock();
    QDir(m_folder).removeRecursively();
}

// Recovery

Recovery::Recovery(QObject *parent)
    : QObject(parent)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!copyNow())
            m_timer.start(BusySign::isAnywhere() ? delayWhileBusy : m_delay);
    });
}

Recovery::~Recovery()
{
    dropCopy();
}

void Recovery::follow(PageSession *session)
{
    dropCopy();
    if (m_session)
        m_session->disconnect(this);
    m_session = session;
    if (m_session)
        connect(m_session, &PageSession::stateChanged, this, &Recovery::noteChange);
}

void Recovery::adopt(std::unique_ptr<RecoveryCopy> copy)
{
    dropCopy();
    m_originalName = copy->originalName();
    m_copy = std::move(copy);
    m_mark = m_session ? m_session->contentMark() : QString();
}

QString Recovery::copyName() const
{
    return m_copy ? m_copy->pageName() : QString();
}

void Recovery::noteChange()
{
    if (!m_session->isModified())
        dropCopy();
    else if (!m_timer.isActive())
        m_timer.start(m_delay);
}

bool Recovery::copyNow()
{
    if (!m_session || !m_session->isModified())
        return true;
    if (BusySign::isAnywhere())
        return false; // the page is being read or written: soon
    waitForWriting();
    const QString mark = m_session->contentMark();
    if (m_copy && mark == m_mark && m_session->fileName() == m_originalName)
        return true;
    QElapsedTimer clock;
    clock.start();
    PageFile file;
    QString reason;
    bool done = m_session->snapshot(file, reason);
    m_delay = qBound(shortestDelay, int(qMin<qint64>(clock.elapsed() * timeShare, longestDelay)),
                     longestDelay);
    if (done && !m_copy)
        m_copy = RecoveryCopy::create();
    done = done && m_copy && m_copy->setOriginalName(m_session->fileName());
    if (!done)
        return false;
    m_mark = mark;
    m_originalName = m_session->fileName();
    m_writing = std::async(std::launch::async, [file, name = m_copy->pageName()] {
        QString problem;
        return writePageFile(name, file, problem);
    });
    m_timer.start(m_delay); // to see whether it has been written
    return true;
}

void Recovery::waitForWriting()
{
    if (m_writing.valid() && !m_writing.get())
        m_mark.clear(); // the next one is written whatever it holds
}

void Recovery::dropCopy()
{
    m_timer.stop();
    waitForWriting();
    if (m_copy)
        m_copy->remove();
    m_copy.reset();
    m_mark.clear();
}
