// SPDX-License-Identifier: MIT
// recentfiles.h -- the pages that were opened or saved last, kept from run to run.
#ifndef PAGEHOST_RECENTFILES_H
#define PAGEHOST_RECENTFILES_H

#include <QStringList>

namespace RecentFiles {

constexpr int most = 10;

/// Absolute names, the last one used first.
QStringList list();
/// Puts \a fileName first.
void add(const QString &fileName);
/// Forgets \a fileName.
void remove(const QString &fileName);
void clear();

} // namespace RecentFiles

#endif
