// SPDX-License-Identifier: MIT
// progress.h -- how far a long piece of work has come, and whether it is still wanted.
#ifndef APP_PROGRESS_H
#define APP_PROGRESS_H

#include <functional>

/// Called between the steps of a piece of work, on its thread. False gives the work up: it leaves
/// everything as it was and fails with an empty error.
using Progress = std::function<bool(int done, int total)>;

/// True while the work is wanted; without anyone to ask it always is.
inline bool isWanted(const Progress &progress, int done, int total)
{
    return !progress || progress(done, total);
}

#endif
