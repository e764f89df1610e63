// SPDX-License-Identifier: MIT
// outputfile.h -- where the results go: a file, whole or not at all, or the standard output.
#ifndef PAGERENDER_OUTPUTFILE_H
#define PAGERENDER_OUTPUTFILE_H

#include <QByteArray>
#include <QString>

/// The name that stands for the standard input, or output.
inline QString standardStream()
{
    return QStringLiteral("-");
}

/// Writes \a bytes to the file \a name, or to the standard output. On any failure false, with a
/// sentence in \a error, and a file that was there before is as it was; so it is when the program is
/// interrupted.
bool writeOutput(const QString &name, const QByteArray &bytes, QString &error);

#endif
