// SPDX-License-Identifier: MIT
// inputfile.h -- reads a UTF-8 file whole, or says what is wrong with it.
#ifndef PAGERENDER_INPUTFILE_H
#define PAGERENDER_INPUTFILE_H

#include <QByteArray>
#include <QString>

/// Files above this many bytes are refused before they are read.
constexpr qint64 maximumInputBytes = qint64(64) << 20;

/// Offset of the first byte of \a bytes where no character of well-formed UTF-8 begins (overlong forms,
/// surrogates, values above U+10FFFF and characters cut short are ill-formed), or that is NUL. -1 when
/// all is well.
qint64 firstBadByte(const QByteArray &bytes);

/// Reads the file \a name into \a text; a byte order mark at its start is dropped. On failure false,
/// with a sentence in \a error, and \a text is as it was.
bool readTextFile(const QString &name, QString &text, QString &error);

#endif
