// SPDX-License-Identifier: MIT
#ifndef LAYOUT_UNITS_H
#define LAYOUT_UNITS_H

#include "common/truncated.h"

#include <QFont>
#include <QVariant>

/// Points to pixels. Keep this order of operations: line breaks and stored boxes hang on the last
/// bit.
constexpr qreal pointsToPixels(qreal points, int dpi)
{
    return dpi * (points / 72.0);
}

/// The value as a real; 0.0 when it does not convert or is not finite.
qreal finiteReal(const QVariant &value);

/// Largest pixel size that text is measured and outlined at. Font engines hold glyph coordinates
/// in 26.6 fixed point, so that larger outlines would be wrong anyway.
constexpr int MaximumPixelSize = 32767;

/// Sets the pixel size, at most MaximumPixelSize. A size of 0 or less leaves the font as it is,
/// which is what QFont::setPixelSize() does after a warning.
void setMeasuringPixelSize(QFont &font, qint64 pixels);

/// \a font itself, or a copy at MaximumPixelSize when its point or pixel size is larger than that
/// or not a number.
QFont withBoundedSize(const QFont &font);

#endif // LAYOUT_UNITS_H
