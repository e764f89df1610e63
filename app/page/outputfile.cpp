// SPDX-License-Identifier: MIT
#include "app/page/outputfile.h"

#include "app/page/pagetext.h"
#include "app/page/unfinishedfile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

namespace {

bool fail(QString &reason, const QString &text)
{
    reason = text;
    return false;
}

/// All that \a output has written so far, from the file itself.
bool readBack(QSaveFile &output, QByteArray &bytes)
{
    QFile written;
    if (!output.flush()
        || !written.open(output.handle(), QIODevice::ReadOnly, QFileDevice::DontCloseHandle)
        || !written.seek(0))
        return false;
    bytes = written.readAll();
    return written.error() == QFileDevice::NoError;
}

bool holds(const QString &name, const QByteArray &bytes)
{
    QFile file(name);
    return file.size() == bytes.size() && file.open(QIODevice::ReadOnly) && file.readAll() == bytes;
}

/// Gives the file \a name a second name, under which it stays when another takes the first.
bool keepFormer(const QString &name, QString &reason)
{
    const QString former = formerFileName(name);
    if (QFileInfo(former).exists() && !QFile::remove(former))
        return fail(reason, PageText::tr("the file '%1' is in the way").arg(former));
    // A symbolic link stands for its file; a disk without second names gets a copy.
    const bool kept = ::linkat(AT_FDCWD, QFile::encodeName(name).constData(), AT_FDCWD,
                               QFile::encodeName(former).constData(), AT_SYMLINK_FOLLOW)
                          == 0
                      || QFile::copy(name, former);
    return kept
           || fail(reason, PageText::tr("the version so far cannot be kept as '%1'").arg(former));
}

} // namespace

QString formerFileName(const QString &name)
{
    return name + QLatin1Char('~');
}

bool writeFile(const QString &name, const QByteArray &bytes, QString &reason, FormerFile former,
               const FileCheck &check)
{
    removeUnfinished(name);
    QSaveFile output(name);
    if (!output.open(QIODevice::WriteOnly))
        return fail(reason, output.errorString());
    UnfinishedMark mark(output.handle());
    if (output.write(bytes) != bytes.size())
        return fail(reason, output.errorString());
    QByteArray written;
    if (!readBack(output, written) || written != bytes)
        return fail(reason, PageText::tr("the disk does not give back what was written"));
    if (check && !check(written, reason))
        return false;
    if (former == FormerFile::Kept && QFileInfo(name).isFile() && !holds(name, bytes)
        && !keepFormer(name, reason))
        return false;
    if (!output.commit())
        return fail(reason, output.errorString());
    mark.remove(); // not earlier: a kill in the middle of commit() leaves a file too
    return true;
}
