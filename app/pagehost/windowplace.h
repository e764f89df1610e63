// SPDX-License-Identifier: MIT
// windowplace.h -- where a window and its panels were when the program ended.
#ifndef PAGEHOST_WINDOWPLACE_H
#define PAGEHOST_WINDOWPLACE_H

class QMainWindow;

namespace WindowPlace {

/// Remembers size, place and panels of \a window for the next start.
void keep(const QMainWindow &window);
/// Gives \a window what was remembered last, brought onto a screen that is there. False when nothing is
/// remembered, and when a part of it cannot be read.
bool restore(QMainWindow &window);

} // namespace WindowPlace

#endif
