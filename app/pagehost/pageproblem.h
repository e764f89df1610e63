// SPDX-License-Identifier: MIT
// pageproblem.h -- what is the matter with a file that cannot be opened.
#ifndef PAGEHOST_PAGEPROBLEM_H
#define PAGEHOST_PAGEPROBLEM_H

#include <QString>

enum class PageProblem {
    Unreadable, ///< missing, not permitted, too large
    Foreign,    ///< no page at all
    Newer,      ///< a page of a later version of the program
    Damaged,    ///< a page that is cut, or wrong in a field
};

/// Looks at a file that readPageFile() or what follows it has refused.
PageProblem problemOf(const QString &fileName);
/// The matter in a sentence for the user.
QString problemText(PageProblem problem, const QString &fileName);

#endif
