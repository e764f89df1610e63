// SPDX-License-Identifier: MIT
// pagestorage.h -- page files on a disk, in both forms.
#ifndef APP_PAGESTORAGE_H
#define APP_PAGESTORAGE_H

#include "app/page/outputfile.h"
#include "app/page/progress.h"

#include <QByteArray>
#include <QString>

class PageFile;

enum class PageForm { Json, Binary };

/// Page files above this many bytes are neither read nor written.
constexpr qint64 maximumPageBytes = qint64(512) << 20;

/// The form that the suffix of \a fileName names: .json or .vxpage; letter case does not count.
bool pageFormOf(const QString &fileName, PageForm &form);

/// Reads a page out of \a bytes, whose beginning tells their form. False with what and where in
/// \a error; \a file is as it was then.
bool readPage(const QByteArray &bytes, PageFile &file, QString &error);
/// Reads the page file \a fileName. False with a sentence in \a error, the name included.
bool readPageFile(const QString &fileName, PageFile &file, QString &error);

/// \a file as the bytes of a page file.
bool pageBytes(const PageFile &file, PageForm form, QByteArray &bytes, QString &error);
/// Writes \a file to \a fileName, in the form that its suffix names. False with a sentence in \a error;
/// what was there before is as it was then. Bytes that readPage() refuses are not written.
bool writePageFile(const QString &fileName, const PageFile &file, QString &error,
                   FormerFile former = FormerFile::Dropped, const Progress &progress = nullptr);

#endif
