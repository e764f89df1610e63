// SPDX-License-Identifier: MIT
// outputfile.h -- writes a file whole or not at all.
#ifndef APP_OUTPUTFILE_H
#define APP_OUTPUTFILE_H

#include <QByteArray>
#include <QString>

#include <functional>

/// What becomes of the file that bears the name so far.
enum class FormerFile {
    Dropped,
    Kept, ///< as formerFileName(); one with the same content is no version of its own, and goes
};

/// "NAME~".
QString formerFileName(const QString &name);

/// Looks at what the disk gives back of a file that is still nameless. False with a reason refuses it.
using FileCheck = std::function<bool(const QByteArray &bytes, QString &reason)>;

/// Writes \a bytes to the file \a name. Whoever looks, and whenever the program or the machine stops,
/// there is the former file or the new one under the name, and all of it. The new one gets the name
/// once it has been read back, is the same to the last byte, and \a check, if any, has taken it. What a
/// killed program has left of an earlier write goes; see removeUnfinished().
/// \return false with \a reason when that fails; the file is as it was then
bool writeFile(const QString &name, const QByteArray &bytes, QString &reason,
               FormerFile former = FormerFile::Dropped, const FileCheck &check = nullptr);

#endif
