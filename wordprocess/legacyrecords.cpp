// SPDX-License-Identifier: MIT
#include "wordprocess/legacyrecords.h"

#include "layout/outlines.h"
#include "layout/runstyle.h"
#include "layout/textproperties.h"
#include "layout/units.h"
#include "wordprocess/numbers.h"

#include <QFontMetrics>
#include <QFontMetricsF>

namespace {
/// Pixels of a measure that \a format has in points.
double pixelsOf(const QTextFormat &format, int id, int dpi)
{
    return finiteOrZero(pointsToPixels(finiteReal(format.property(id)), dpi));
}

/// The font in which an item is measured across its line: at its pixel size, scales left out.
QFont measuringFont(const STextItem &item, int dpi)
{
    return withLetterSpacing(readRunStyle(item.format, dpi).font, item.format.fontLetterSpacing());
}

/// Ink of an item's text in \a font. An A stands for the height of an item without text.
QRectF measuredInk(const STextItem &item, const QFont &font)
{
    const QString text = item.text.isEmpty() ? QStringLiteral("A") : item.text;
    return textOutline(QPointF(0, 0), font, text).boundingRect();
}

/// How far an item reaches across its line, scales left out. A blank one is as high as its font.
double heightOf(const STextItem &item, int dpi)
{
    if (item.inkAcross > 0)
        return item.inkAcross;
    const QFont font = measuringFont(item, dpi);
    const QRectF ink = measuredInk(item, font);
    const double height = item.upright ? ink.width() : ink.height();
    return height == 0 ? QFontMetrics(font).height() : height;
}

/// Distance to the next line that an item of \a height asks for.
double rowSpacingOf(const STextItem &item, double height, int dpi)
{
    if (!item.format.hasProperty(TextProperty::RowSpacing))
        return 0;
    const double fixed = fixedRowSpacing(item.format, dpi);
    return fixed > 0 ? fixed : 2 * height;
}
} // namespace

void STextItem::setText(const QTextCharFormat &newFormat, const QString &newText, int dpi)
{
    madeFrom = newFormat;
    inkAcross = 0;
    format = newFormat;
    strikeOut = newFormat.fontStrikeOut();
    overline = newFormat.fontOverline();
    underline = newFormat.fontUnderline();
    format.setProperty(QTextFormat::FontStrikeOut, false); // painting draws the bars itself
    format.setProperty(QTextFormat::FontOverline, false);
    format.setProperty(QTextFormat::TextUnderlineStyle, int(QTextCharFormat::NoUnderline));

    const RunStyle style = readRunStyle(newFormat, dpi);
    if (newFormat.hasProperty(TextProperty::LeadingGap))
        letterSpacing = finiteOrZero(style.gap);
    if (newFormat.hasProperty(TextProperty::LetterSpacing))
        selectedLetterSpacing = finiteOrZero(style.letterSpacing);
    format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    format.setFontLetterSpacing(finiteOrZero(letterSpacing + selectedLetterSpacing));
    baselineOffset = finiteOrZero(style.offset);

    if (newText.isEmpty())
        return;
    text = newText;
    spaceCounts(text, leadingSpaces, trailingSpaces);
    const QSizeF space = space_size(newFormat, dpi);
    spaceWidth = space.width();
    spaceHeight = space.height();
}

double STextItem::itemWidth(Qt::Orientation orientation, double spacing) const
{
    const double step = spaceWidth + selectedLetterSpacing + spacing;
    double tail = trailingSpaces * step;
    if (tail == 0)
        tail = selectedLetterSpacing;
    const double spaces = leadingSpaces * step + tail;
    const QRectF ink = path.boundingRect();
    const double extent = orientation == Qt::Horizontal ? ink.width() : ink.height();
    const double width = letterSpacing + spaces + extent;
    return upright ? width + spacing : width;
}

void STextItem::spaceCounts(const QString &text, int &leading, int &trailing)
{
    leading = 0;
    trailing = 0;
    if (text.startsWith(QLatin1Char(' '))) {
        while (leading < text.size() && text.at(leading).isSpace())
            ++leading;
    }
    if (leading == text.size() || !text.endsWith(QLatin1Char(' ')))
        return;
    while (trailing < text.size() && text.at(text.size() - 1 - trailing).isSpace())
        ++trailing;
}

QSizeF STextItem::space_size(const QTextCharFormat &format, int dpi)
{
    QFont font = format.font();
    const double points = finiteReal(format.property(QTextFormat::FontPointSize));
    setMeasuringPixelSize(font, rounded(points * dpi / 72));
    const QFontMetricsF metrics(font);
    const double half = isHalfSize(format) ? 0.5 : 1.0;
    return QSizeF(scaleFactor(format, TextProperty::HorizontalScale)
                      * metrics.horizontalAdvance(u' ') * half,
                  scaleFactor(format, TextProperty::VerticalScale) * metrics.height() * half);
}

double STextLine::setBlockFormat(const QTextBlockFormat &format, int dpi, Qt::Orientation direction)
{
    blockFormat = format;
    leftMargin = pixelsOf(format, QTextFormat::BlockLeftMargin, dpi);
    rightMargin = pixelsOf(format, QTextFormat::BlockRightMargin, dpi);
    const int wholePoints = toWhole(format.property(QTextFormat::BlockIndent));
    indent = isFirstLine ? pointsToPixels(wholePoints, dpi) : 0;
    alignment = direction == Qt::Horizontal ? Qt::AlignLeft : Qt::AlignTop;
    if (format.hasProperty(TextProperty::Alignment))
        alignment = toWhole(format.property(TextProperty::Alignment));
    if (format.hasProperty(TextProperty::SpaceAheadOfBlock))
        firstLineSpace = pixelsOf(format, TextProperty::SpaceAheadOfBlock, dpi);
    if (format.hasProperty(TextProperty::SpaceBehindBlock))
        lastLineSpace = pixelsOf(format, TextProperty::SpaceBehindBlock, dpi);
    orientation = direction;
    return leftMargin + rightMargin + indent;
}

int STextLine::length() const
{
    int sum = 0;
    for (const STextItem &item : items)
        sum += item.isHyphen ? 0 : item.text.length();
    return sum;
}

void STextLine::updateItems(int dpi)
{
    baseline = 0;
    height = 0;
    width = 0;
    rowSpacing = 0;
    const bool isRow = orientation == Qt::Horizontal;
    for (const STextItem &item : qAsConst(items)) {
        width += item.itemWidth(Qt::Orientation(orientation), 0);
        const double itemHeight = heightOf(item, dpi);
        if (itemHeight > height) {
            height = itemHeight;
            baseline = isRow ? item.ascent : 0.5 * itemHeight;
        }
        rowSpacing = qMax(rowSpacing, rowSpacingOf(item, itemHeight, dpi));
    }
    if (!items.isEmpty() && height == 0)
        height = measuredInk(items.first(), measuringFont(items.first(), dpi)).height();
    advance = rowSpacing + firstLineSpace + lastLineSpace;
}
