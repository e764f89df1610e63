// SPDX-License-Identifier: MIT
#include "layout/blockmeasures.h"

#include "layout/textproperties.h"
#include "layout/units.h"

namespace {

qreal blockPixels(const QTextBlockFormat &format, int id, int dpi)
{
    return pointsToPixels(finiteReal(format.property(id)), dpi);
}

} // namespace

BlockMeasures readBlockMeasures(const QTextBlockFormat &format, int dpi, bool isFirstBlock)
{
    BlockMeasures measures;
    measures.left = blockPixels(format, QTextFormat::BlockLeftMargin, dpi);
    measures.right = blockPixels(format, QTextFormat::BlockRightMargin, dpi);
    measures.indent = pointsToPixels(format.property(QTextFormat::BlockIndent).toInt(), dpi);
    if (!isFirstBlock)
        measures.before = blockPixels(format, TextProperty::SpaceAheadOfBlock, dpi);
    if (format.hasProperty(TextProperty::SpaceBehindBlock))
        measures.after = blockPixels(format, TextProperty::SpaceBehindBlock, dpi);
    return measures;
}

BlockMeasures BlockMeasures::stretched(qreal along, qreal across) const
{
    BlockMeasures result = *this;
    result.left *= along;
    result.right *= along;
    result.indent *= along;
    result.before *= across;
    if (result.after)
        *result.after *= across;
    return result;
}

BlockRules readBlockRules(const QTextBlockFormat &format)
{
    BlockRules rules;
    rules.headTailMode = format.property(TextProperty::HeadTailRule).toInt();
    rules.hyphenate = format.property(TextProperty::Hyphenate).toBool();
    rules.compressPunctuation = format.property(TextProperty::PunctuationExtra).toInt() == 1;
    return rules;
}

int boxAlignment(const QTextBlockFormat &format, int silent)
{
    if (!format.hasProperty(TextProperty::Alignment))
        return silent;
    return format.property(TextProperty::Alignment).toInt();
}

int horizontalLineAlignment(const QTextBlockFormat &format)
{
    if (!format.hasProperty(TextProperty::Alignment))
        return Qt::AlignLeft;
    const int alignment = format.property(TextProperty::Alignment).toInt();
    if (alignment == Qt::AlignBottom)
        return Qt::AlignRight;
    return alignment == Qt::AlignVCenter ? int(Qt::AlignHCenter) : alignment;
}

int verticalLineAlignment(const QTextBlockFormat &format)
{
    if (!format.hasProperty(TextProperty::Alignment))
        return Qt::AlignTop;
    const int alignment = format.property(TextProperty::Alignment).toInt();
    if (alignment == Qt::AlignRight)
        return Qt::AlignBottom;
    return alignment == Qt::AlignHCenter ? int(Qt::AlignVCenter) : alignment;
}
