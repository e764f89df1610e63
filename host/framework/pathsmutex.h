// SPDX-License-Identifier: MIT
// pathsmutex.h -- the type of the mutex that lets objects be painted from a second thread.
#ifndef PATHSMUTEX_H
#define PATHSMUTEX_H

#include <QMutex>

#include <mutex>

#ifdef VX_THREAD_SANITIZER
using PathsMutex = std::mutex; // the sanitizer does not see through QMutex
#else
using PathsMutex = QMutex;
#endif

#endif
