// SPDX-License-Identifier: MIT
// inputfile.h -- reads a file whole, as bytes or as UTF-8, or says what is wrong with it.
#ifndef APP_INPUTFILE_H
#define APP_INPUTFILE_H

#include <QByteArray>
#include <QString>

/// Texts above this many bytes are refused before they are read.
constexpr qint64 maximumInputBytes = qint64(64) << 20;

/// Reads the file \a name into \a bytes. On failure, such as a file of more than \a limit bytes, false
/// with a sentence in \a error, and \a bytes are as they were.
bool readFile(const QString &name, qint64 limit, QByteArray &bytes, QString &error);

/// Reads the standard input to its end, under the name \a name in \a error, as readFile().
bool readStandardInput(const QString &name, qint64 limit, QByteArray &bytes, QString &error);

/// Offset of the first byte of \a bytes where no character of well-formed UTF-8 begins (overlong forms,
/// surrogates, values above U+10FFFF and characters cut short are ill-formed), or that is NUL. -1 when
/// all is well.
qint64 firstBadByte(const QByteArray &bytes);

/// The UTF-8 \a bytes of the file \a name as \a text; a byte order mark at their start is dropped. For
/// other bytes false, with a sentence in \a error, and \a text is as it was.
bool decodeText(const QString &name, QByteArray bytes, QString &text, QString &error);

#endif
