// SPDX-License-Identifier: MIT
// interruption.h -- what becomes of the program when it is interrupted.
#ifndef PAGERENDER_INTERRUPTION_H
#define PAGERENDER_INTERRUPTION_H

#include <csignal>
#include <sys/types.h>

/// An interruption (SIGINT, SIGTERM, SIGHUP) ends the program at once with 128 and the signal's number,
/// 130 for SIGINT. Pictures are made in memory, so that nothing is left behind; only while a file is
/// being written does the signal wait until the file is whole.
namespace Interruption {

/// Holds the signals back in the calling thread and in those that it starts from now on: no other
/// thread shall be the one that ends the program.
void holdBack();
/// Lets the signals through to the calling thread. A signal that is ignored stays so.
void letThrough();
/// A process that an interruption ends as well, and waits for; 0 for none.
void setChild(pid_t child);

/// Holds the signals back while it lives.
class Pause
{
public:
    Pause();
    ~Pause();
    Pause(const Pause &) = delete;
    Pause &operator=(const Pause &) = delete;

private:
    sigset_t m_former;
};

} // namespace Interruption

#endif
