// SPDX-License-Identifier: MIT
// binarypage.h -- page files in binary, of the suffix .vxpage; docs/page-file.md describes them.
#ifndef APP_BINARYPAGE_H
#define APP_BINARYPAGE_H

#include <QByteArray>
#include <QString>

class PageFile;

/// True for bytes that begin as a binary page file does, be the rest of it right or not.
bool isBinaryPage(const QByteArray &bytes);

/// Reads a page. False when anything in \a bytes is wrong, with the offset, counted from 0, and what it
/// is in \a error; \a file is as it was then. Sections and kinds that the program does not know are
/// kept. No count is believed further than the bytes reach.
bool readBinaryPage(const QByteArray &bytes, PageFile &file, QString &error);

/// \a file as bytes: reading them gives an equal page, and equal pages give equal bytes. False with
/// \a error when something on the page is too large for its section.
bool binaryPage(const PageFile &file, QByteArray &bytes, QString &error);

#endif
