// SPDX-License-Identifier: MIT
#include "app/pagerender/isolated.h"

#include "app/pagerender/interruption.h"

#include <QElapsedTimer>
#include <QJsonDocument>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int graceMilliseconds = 5000; // for a file that is just being written

Outcome failure(const QString &error)
{
    Outcome outcome;
    outcome.fail(error);
    return outcome;
}

QString lastError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

void writeAll(int file, const QByteArray &bytes)
{
    for (int at = 0; at < bytes.size();) {
        const ssize_t written = write(file, bytes.constData() + at, size_t(bytes.size() - at));
        if (written < 0 && errno != EINTR)
            return;
        at += int(qMax<ssize_t>(written, 0));
    }
}

[[noreturn]] void beChild(const std::function<Outcome()> &work, int report)
{
    Interruption::setChild(0);
    const Outcome outcome = work();
    writeAll(report, QJsonDocument(outcome.toJson()).toJson(QJsonDocument::Compact));
    _exit(0); // the rest of the program belongs to the parent
}

/// Reads \a report to its end. False when that takes more than \a milliseconds.
bool readReport(int report, qint64 milliseconds, QByteArray &bytes)
{
    QElapsedTimer clock;
    clock.start();
    for (;;) {
        const qint64 left = milliseconds - clock.elapsed();
        if (left <= 0)
            return false;
        pollfd event{report, POLLIN, 0};
        const int ready = poll(&event, 1, int(qMin<qint64>(left, 1 << 30)));
        if (ready <= 0)
            continue;
        char buffer[4096];
        const ssize_t got = read(report, buffer, sizeof buffer);
        if (got == 0 || (got < 0 && errno != EINTR))
            return true;
        bytes.append(buffer, int(qMax<ssize_t>(got, 0)));
    }
}

/// Waits for \a child, which is about to end.
int statusOf(pid_t child)
{
    const Interruption::Pause pause; // or the signal would go to a process that is no more
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    Interruption::setChild(0);
    return status;
}

QString deathOf(int status)
{
    return WIFSIGNALED(status) ? QStringLiteral("it ended by signal %1").arg(WTERMSIG(status))
                               : QStringLiteral("it ended with code %1").arg(WEXITSTATUS(status));
}

} // namespace

Outcome runIsolated(const std::function<Outcome()> &work, double seconds)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return failure(QStringLiteral("cannot make a pipe: %1").arg(lastError()));
    std::fflush(nullptr); // or the child would write the same once more
    pid_t child;
    {
        const Interruption::Pause pause; // until the child is known
        child = fork();
        Interruption::setChild(qMax(child, 0));
    }
    if (child == 0)
        beChild(work, ends[1]);
    close(ends[1]);
    if (child < 0) {
        close(ends[0]);
        return failure(QStringLiteral("cannot start a process: %1").arg(lastError()));
    }
    QByteArray bytes;
    const bool inTime = readReport(ends[0], qint64(seconds * 1000), bytes);
    if (!inTime) {
        kill(child, SIGTERM);
        if (!readReport(ends[0], graceMilliseconds, bytes))
            kill(child, SIGKILL);
    }
    close(ends[0]);
    const int status = statusOf(child);
    const QJsonDocument report = QJsonDocument::fromJson(bytes);
    if (report.isObject())
        return Outcome::fromJson(report.object());
    return failure(inTime ? deathOf(status)
                          : QStringLiteral("it takes more than %1 seconds").arg(seconds));
}
