// SPDX-License-Identifier: MIT
#include "layout/runstyle.h"

#include "layout/textproperties.h"
#include "layout/units.h"

#include <QtMath>

namespace {

// Thousandths of the point size in pixels. The point size is deliberately cut to whole points.
qreal spacingPixels(const QTextCharFormat &format, int id, qreal pointSize, int dpi)
{
    if (!format.hasProperty(id))
        return 0;
    const qreal thousandths = finiteReal(format.property(id));
    return (thousandths / 1000 * truncated(pointSize)) / 72 * dpi;
}

} // namespace

QFont RunStyle::spacedFont() const
{
    return withLetterSpacing(font, letterSpacing);
}

RunStyle RunStyle::stretched(qreal kx, qreal ky, Qt::Orientation orientation) const
{
    const qreal along = orientation == Qt::Horizontal ? kx : ky;
    const qreal across = orientation == Qt::Horizontal ? ky : kx;
    RunStyle style = *this;
    style.letterSpacing *= along;
    style.gap *= along;
    style.offset *= across;
    style.rowSpacing *= across;
    style.scaleX *= kx;
    style.scaleY *= ky;
    return style;
}

RunStyle readRunStyle(const QTextCharFormat &format, int dpi)
{
    const qreal pointSize = finiteReal(format.property(QTextFormat::FontPointSize));
    RunStyle style;
    style.offset = baselineOffset(format, dpi);
    style.scaleX = scaleFactor(format, TextProperty::HorizontalScale);
    style.scaleY = scaleFactor(format, TextProperty::VerticalScale);
    style.letterSpacing = spacingPixels(format, TextProperty::LetterSpacing, pointSize, dpi);
    style.gap = spacingPixels(format, TextProperty::LeadingGap, pointSize, dpi);
    style.rowSpacing = fixedRowSpacing(format, dpi);
    style.isSuperscript = format.verticalAlignment() == QTextCharFormat::AlignSuperScript;
    style.isSubscript = format.verticalAlignment() == QTextCharFormat::AlignSubScript;
    style.font = format.font();
    setMeasuringPixelSize(style.font, truncated(pointSize * dpi / 72));
    style.font.setUnderline(false);
    style.font.setStrikeOut(false);
    return style;
}

qreal fixedRowSpacing(const QTextCharFormat &format, int dpi)
{
    const qreal points = finiteReal(format.property(TextProperty::RowSpacing));
    return points > 0 ? pointsToPixels(points, dpi) : 0;
}

QFont withLetterSpacing(const QFont &font, qreal pixels)
{
    // Fonts keep spacing in 26.6 fixed point: beyond this it would overflow.
    constexpr qreal limit = 1000000;
    QFont spaced(font);
    spaced.setLetterSpacing(QFont::AbsoluteSpacing,
                            qIsFinite(pixels) ? qBound(-limit, pixels, limit) : 0);
    return spaced;
}

QFont placeholderFont(const QTextCharFormat &format, int dpi)
{
    QFont font = format.font();
    font.setUnderline(false);
    font.setStrikeOut(false);
    if (font.pointSize() > 0 && font.pixelSize() < 0)
        setMeasuringPixelSize(font, truncated(pointsToPixels(font.pointSize(), dpi)));
    return withBoundedSize(font);
}

qreal baselineOffset(const QTextCharFormat &format, int dpi)
{
    return pointsToPixels(finiteReal(format.property(TextProperty::BaselineOffset)), dpi);
}

qreal scaleFactor(const QTextCharFormat &format, int id)
{
    return format.hasProperty(id) ? finiteReal(format.property(id)) / 100.0 : 1.0;
}

QFont emptyBlockFont(const QTextCharFormat &format, int dpi)
{
    QFont font = format.font();
    setMeasuringPixelSize(font, qint64(font.pointSize()) * dpi / 72);
    return font;
}

qreal emptyBlockRowDistance(const QTextCharFormat &format, int dpi)
{
    const qreal points = finiteReal(format.property(TextProperty::RowSpacing));
    return points > 0 ? pointsToPixels(points, dpi) : points;
}
