// SPDX-License-Identifier: MIT
#include "app/pagerender/interruption.h"

#include <atomic>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int interruptedBase = 128; // and the signal's number is the exit code

std::atomic<pid_t> child{0};
static_assert(std::atomic<pid_t>::is_always_lock_free, "a signal handler reads it");

sigset_t signalSet()
{
    sigset_t set;
    sigemptyset(&set);
    for (int number : signals)
        sigaddset(&set, number);
    return set;
}

// Calls only what a signal handler may call.
void end(int number)
{
    const pid_t pid = child;
    if (pid > 0) {
        kill(pid, SIGTERM);
        waitpid(pid, nullptr, 0);
    }
    _exit(interruptedBase + number);
}

} // namespace

void Interruption::holdBack()
{
    const sigset_t set = signalSet();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    std::signal(SIGPIPE, SIG_IGN); // a reader that has gone is an error of writing
}

void Interruption::letThrough()
{
    struct sigaction ending = {};
    ending.sa_handler = end;
    ending.sa_mask = signalSet();
    for (int number : signals) {
        struct sigaction former = {};
        if (sigaction(number, nullptr, &former) == 0 && former.sa_handler != SIG_IGN)
            sigaction(number, &ending, nullptr);
    }
    const sigset_t set = signalSet();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

void Interruption::setChild(pid_t pid)
{
    child = pid;
}

Interruption::Pause::Pause()
{
    const sigset_t set = signalSet();
    pthread_sigmask(SIG_BLOCK, &set, &m_former);
}

Interruption::Pause::~Pause()
{
    pthread_sigmask(SIG_SETMASK, &m_former, nullptr);
}
