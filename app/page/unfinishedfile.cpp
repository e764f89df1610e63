// SPDX-License-Identifier: MIT
#include "app/page/unfinishedfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

const char markName[] = "user.org.vxarttext.unfinished";
const char markValue[] = "1";

/// True when \a handle and \a path are the same file, a plain one of this user.
bool isOurs(int handle, const QByteArray &path)
{
    struct stat opened = {};
    struct stat named = {};
    return fstat(handle, &opened) == 0 && lstat(path.constData(), &named) == 0
           && S_ISREG(named.st_mode) && named.st_uid == geteuid() && named.st_dev == opened.st_dev
           && named.st_ino == opened.st_ino;
}

/// Locked ahead of the look at the mark: who has finished a file removes the mark and then the lock.
void removeIfAbandoned(const QByteArray &path)
{
    const int handle = open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0)
        return;
    char value = 0;
    if (flock(handle, LOCK_EX | LOCK_NB) == 0
        && fgetxattr(handle, markName, &value, sizeof value) == 1 && isOurs(handle, path))
        unlink(path.constData());
    close(handle);
}

/// A writer that is killed behind its last step leaves its mark on the finished file.
void unmark(const QByteArray &path)
{
    const int handle = open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0)
        return;
    if (flock(handle, LOCK_EX | LOCK_NB) == 0)
        fremovexattr(handle, markName);
    close(handle);
}

} // namespace

UnfinishedMark::UnfinishedMark(int handle)
    : m_handle(fcntl(handle, F_DUPFD_CLOEXEC, 0))
{
    // The lock first: a file with a mark and without a lock is nobody's any more.
    m_isSet = m_handle >= 0 && flock(m_handle, LOCK_EX | LOCK_NB) == 0
              && fsetxattr(m_handle, markName, markValue, sizeof markValue - 1, 0) == 0;
}

UnfinishedMark::~UnfinishedMark()
{
    if (m_handle >= 0)
        close(m_handle);
}

void UnfinishedMark::remove()
{
    if (m_isSet)
        fremovexattr(m_handle, markName);
    m_isSet = false;
}

void removeUnfinished(const QString &name)
{
    // A symbolic link stands for its file, beside which the unfinished one lies.
    const QString path = QFileInfo(name).canonicalFilePath();
    const QFileInfo file(path.isEmpty() ? name : path);
    unmark(QFile::encodeName(file.filePath()));
    static const QRegularExpression suffix(QStringLiteral("^\\.[A-Za-z]{6}$"));
    const QDir folder = file.absoluteDir();
    const QStringList others = folder.entryList(QDir::Files | QDir::Hidden, QDir::Unsorted);
    for (const QString &other : others) {
        if (other.startsWith(file.fileName())
            && suffix.match(other.mid(file.fileName().size())).hasMatch())
            removeIfAbandoned(QFile::encodeName(folder.filePath(other)));
    }
}
