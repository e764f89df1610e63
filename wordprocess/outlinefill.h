// SPDX-License-Identifier: MIT
// outlinefill.h -- fills the outline of many glyphs at the cost of those that can be seen.
#ifndef OUTLINEFILL_H
#define OUTLINEFILL_H

#include <QBrush>
#include <QPainterPath>

class QPainter;

/// Fills \a path by \a rule, whatever its own fill rule. The pixels are those of QPainter::fillPath(), but
/// for outlines that reach some 16 000 pixels beyond what is painted: an engine cuts those, and pixels on
/// their edges may differ by a shade or two.
/// A raster engine goes through a path once for each band of pixel rows that it reaches, and, for each edge
/// of a glyph, through what it holds of a row from the left on: lines of n glyphs cost n squared. So glyphs
/// that are off the clip are left out; those that share no row or no column of pixels with others, and so no
/// pixel, are filled apart; and what is filled together goes from right to left, which changes no sum of
/// coverages.
void fillOutlines(QPainter &painter, const QPainterPath &path, Qt::FillRule rule,
                  const QBrush &brush);

#endif
