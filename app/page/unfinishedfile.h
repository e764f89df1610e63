// SPDX-License-Identifier: MIT
// unfinishedfile.h -- what is left of a file whose writer was killed, and whose it is.
#ifndef APP_UNFINISHEDFILE_H
#define APP_UNFINISHEDFILE_H

#include <QString>

/// Marks a file that QSaveFile is writing: an attribute says that it is an unfinished one of ours, and a
/// lock that its writer lives, wherever that runs. The system takes the lock away when the writer ends,
/// however it ends; the mark stays then. On disks without attributes or locks it does nothing.
class UnfinishedMark
{
public:
    /// \param handle the open file
    explicit UnfinishedMark(int handle);
    ~UnfinishedMark();
    UnfinishedMark(const UnfinishedMark &) = delete;
    UnfinishedMark &operator=(const UnfinishedMark &) = delete;

    /// False where no file can be marked.
    bool isSet() const { return m_isSet; }
    /// The file is finished.
    void remove();

private:
    int m_handle; // of its own: the other one goes with QSaveFile
    bool m_isSet = false;
};

/// Removes the unfinished files of \a name that writers have left which do not live any more. A file
/// goes only when it is called as QSaveFile calls those of \a name, belongs to this user, bears the mark
/// and is locked by nobody; no other file is touched, but that a mark that was left on \a name itself,
/// which is finished, goes.
void removeUnfinished(const QString &name);

#endif
