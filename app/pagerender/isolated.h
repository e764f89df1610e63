// SPDX-License-Identifier: MIT
// isolated.h -- work that may take too long, in a process of its own.
#ifndef PAGERENDER_ISOLATED_H
#define PAGERENDER_ISOLATED_H

#include "app/pagerender/outcome.h"

#include <functional>

/// Does \a work in a copy of the process, and ends it when it takes more than \a seconds. What it has
/// written until then stays; a file that it was writing is whole.
/// \return the outcome of \a work; a failure when it took too long, or ended by a fault of its own
Outcome runIsolated(const std::function<Outcome()> &work, double seconds);

#endif
