// SPDX-License-Identifier: MIT
// recovery.h -- copies of pages that are not saved, for the time after a crash.
#ifndef PAGEHOST_RECOVERY_H
#define PAGEHOST_RECOVERY_H

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <future>
#include <memory>
#include <vector>

class PageSession;
class QLockFile;

/// The copy of a page in a folder of its own, in which a lock tells that a program still works on it.
class RecoveryCopy
{
public:
    /// A new folder; its copy is written later. Null when it cannot be made.
    static std::unique_ptr<RecoveryCopy> create();
    /// The copies that programs have left which do not run any more, the latest first. Each is locked
    /// from now on, so that no second program offers it too; those that the caller lets go without
    /// remove() stay for the next time.
    static std::vector<std::unique_ptr<RecoveryCopy>> abandoned();
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy &) = delete;
    RecoveryCopy &operator=(const RecoveryCopy &) = delete;

    /// The page file.
    QString pageName() const;
    QDateTime time() const;
    /// The file of which it is the copy; empty for a page without one.
    QString originalName() const;
    /// \return false when the disk does not take it
    bool setOriginalName(const QString &fileName);
    /// Ends the copy; the folder goes.
    void remove();

private:
    explicit RecoveryCopy(const QString &folder);
    bool lock();

    QString m_folder;
    std::unique_ptr<QLockFile> m_lock;
};

/// Keeps the copy of one page: while the page is modified it is at most some seconds old, and never a
/// minute; once the page is saved or left there is none. The copy is made without ending an edit or a
/// composition, and a page that has not changed is not copied again.
class Recovery : public QObject
{
    Q_OBJECT

public:
    explicit Recovery(QObject *parent = nullptr);
    /// Leaves no copy: a window that closes has asked about the page.
    ~Recovery() override;

    /// Turns to \a session; null for none. The copy of the page so far goes.
    void follow(PageSession *session);
    /// Goes on with \a copy as that of the present page, which has been made of it.
    void adopt(std::unique_ptr<RecoveryCopy> copy);
    /// Copies the page now if it is modified. False when that fails.
    bool copyNow();
    /// The file that copyNow() has written; empty for none.
    QString copyName() const;

    static constexpr int shortestDelay = 3000; ///< ms from a change to its copy
    static constexpr int longestDelay = 45000;

private:
    void noteChange();
    void dropCopy();
    void waitForWriting();

    QPointer<PageSession> m_session;
    std::unique_ptr<RecoveryCopy> m_copy;
    QString m_mark;         ///< PageSession::contentMark() of the copy
    QString m_originalName; ///< as the copy tells it
    QTimer m_timer;
    int m_delay = shortestDelay;
    std::future<bool> m_writing;
};

#endif
