// SPDX-License-Identifier: MIT
#include "app/pagerender/outputfile.h"

#include "app/pagerender/interruption.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

bool writeStandardOutput(const QByteArray &bytes, QString &error)
{
    const auto size = static_cast<size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return true;
    error = QStringLiteral("cannot write to the standard output: %1")
                .arg(QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

template<typename File>
bool writeFile(File &file, const QByteArray &bytes)
{
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// A device or a pipe, which no other file can take the place of.
bool isSpecial(const QString &name)
{
    const QFileInfo info(name);
    return info.exists() && !info.isFile() && !info.isDir();
}

} // namespace

bool writeOutput(const QString &name, const QByteArray &bytes, QString &error)
{
    if (name == standardStream())
        return writeStandardOutput(bytes, error);
    QString reason;
    if (isSpecial(name)) {
        QFile file(name);
        if (writeFile(file, bytes) && file.flush())
            return true;
        reason = file.errorString();
    } else {
        const Interruption::Pause pause;
        QSaveFile file(name);
        if (writeFile(file, bytes) && file.commit())
            return true;
        reason = file.errorString();
    }
    error = QStringLiteral("cannot write '%1': %2").arg(name, reason);
    return false;
}
