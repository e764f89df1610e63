// SPDX-License-Identifier: MIT
#ifndef HEADTAIL_H
#define HEADTAIL_H

#include "layout/textlayout.h"

#include <QSet>

#include <optional>

/// Characters that may not begin a line (head) or end one (tail), as UTF-16 code units. Immutable.
extern const QSet<unsigned short> _jis_relax_head;
extern const QSet<unsigned short> _jis_relax_tail;
extern const QSet<unsigned short> _jis_strict_head;
extern const QSet<unsigned short> _jis_strict_tail;

/// The first character that leaves a line.
struct CutPoint {
    int fragment = -1;
    int character = -1;
};

/// True for a value of TextProperty::HeadTailRule that switches the rule on: 1 relaxed, 2 strict.
bool isHeadTailRuleOn(int mode);

/// Where a row must be cut so that it does not end as it may not. Only the tail rule acts in
/// horizontal text. \a line is not empty, \a mode is on. nullopt: the row stays as it is.
std::optional<CutPoint> horizontalCut(const TextLine &line, int mode);

/// Where a column must be cut so that neither it ends nor the next one, which would begin with
/// \a rest (may be empty), begins as it may not. Same terms.
std::optional<CutPoint> verticalCut(const TextLine &line, int mode, const QString &rest);

#endif // HEADTAIL_H
