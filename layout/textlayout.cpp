// SPDX-License-Identifier: MIT
// Layout records: their values, their movement and what is painted of them.
#include "layout/textlayout.h"

#include "layout/textproperties.h"
#include "layout/texttools.h"

#include <QFontMetricsF>
#include <QTextFragment>

#include <optional>

namespace {

QRectF horizontalStrikeBar(const TextFragment &run, qreal thickness)
{
    const QRectF ink = run.path.boundingRect();
    // Blanks have no ink to go by.
    const qreal top = ink.height() == 0 ? run.baseline - QFontMetricsF(run.font).descent()
                                        : ink.top() + (ink.height() + ink.height()) / 3.0;
    return QRectF(run.start, top, run.advance, thickness);
}

QRectF verticalStrikeBar(const TextFragment &run, qreal thickness)
{
    return QRectF(run.baseline - 0.5 * thickness, run.start, thickness, run.advance);
}

// What is painted by a run's format. Runs of one format follow each other: they are read once.
class PaintedFormat
{
public:
    void read(const QTextCharFormat &format)
    {
        if (m_format && *m_format == format)
            return;
        m_format = format;
        brush = format.brushProperty(QTextFormat::ForegroundBrush);
        // Asks the format: the measuring font has its bars cleared.
        isStruckOut = format.font().strikeOut();
        isUnderlined = format.fontUnderline();
    }

    QBrush brush;
    bool isStruckOut = false;
    bool isUnderlined = false;
    UnderlineThickness thickness;

private:
    std::optional<QTextCharFormat> m_format;
};

// The pieces of a run: outline and, when it is struck out, the bar.
void appendRun(const TextFragment &run, QList<QPainterPath> &paths, QList<QBrush> &brushes,
               Qt::Orientation orientation, PaintedFormat &painted)
{
    painted.read(run.format);
    if (run.isEmptyBlock)
        return;
    paths.append(run.path);
    brushes.append(painted.brush);
    if (!painted.isStruckOut)
        return;
    const qreal height = painted.thickness.of(run.font);
    QPainterPath bar;
    bar.addRect(orientation == Qt::Horizontal ? horizontalStrikeBar(run, height)
                                              : verticalStrikeBar(run, height));
    paths.append(bar);
    brushes.append(painted.brush);
}

void appendLine(const TextLine &line, QList<QPainterPath> &paths, QList<QBrush> &brushes,
                Qt::Orientation orientation, PaintedFormat &painted)
{
    QList<int> underlined;
    for (int i = 0; i < line.fragments.size(); ++i) {
        const TextFragment &run = line.fragments.at(i);
        appendRun(run, paths, brushes, orientation, painted);
        if (painted.isUnderlined)
            underlined.append(i);
    }
    if (line.path.isEmpty())
        return;
    if (orientation == Qt::Vertical)
        line.verticalUnderlinePath(paths, brushes, underlined, painted.thickness);
    else
        line.horizontalUnderlinePath(paths, brushes, underlined, painted.thickness);
}

} // namespace

TextFragment TextFragment::fromQtFragment(const QTextFragment &fragment)
{
    TextFragment run;
    run.position = fragment.position();
    run.length = fragment.length();
    run.format = fragment.charFormat();
    run.text = fragment.text();
    if (run.format.property(TextProperty::UpperCase).toBool())
        run.text = run.text.toUpper();
    return run;
}

QLineF TextFragment::getBaseline(Qt::Orientation orientation) const
{
    if (orientation == Qt::Horizontal)
        return QLineF(start, baseline, start + advance, baseline);
    return QLineF(baseline, start, baseline, start + advance);
}

bool TextFragment::contains(int pos) const
{
    return position <= pos && pos <= position + length;
}

void TextFragment::textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                             Qt::Orientation orientation) const
{
    PaintedFormat painted;
    appendRun(*this, paths, brushes, orientation, painted);
}

bool TextLine::contains(int pos) const
{
    if (isEmptyBlock)
        return position <= pos && pos < position + length;
    return position <= pos && pos <= position + length;
}

void TextLine::translate(qreal dx, qreal dy, Qt::Orientation orientation)
{
    path.translate(dx, dy);
    origin += QPointF(dx, dy);
    rect.translate(dx, dy);
    for (TextFragment &run : fragments) {
        run.path.translate(dx, dy);
        run.baseline += orientation == Qt::Horizontal ? dy : dx;
        run.start += orientation == Qt::Horizontal ? dx : dy;
    }
}

QList<QLineF> TextLine::baselines(Qt::Orientation orientation) const
{
    QList<QLineF> result;
    for (const TextFragment &run : fragments)
        result.append(run.getBaseline(orientation));
    return result;
}

void TextLine::textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                         Qt::Orientation orientation) const
{
    PaintedFormat painted;
    appendLine(*this, paths, brushes, orientation, painted);
}

void TextLayout::textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes) const
{
    PaintedFormat painted;
    for (const TextLine &line : lines)
        appendLine(line, paths, brushes, orientation, painted);
}

void TextLayout::translate(qreal dx, qreal dy)
{
    for (TextLine &line : lines)
        line.translate(dx, dy, orientation);
}

QList<QLineF> TextLayout::baselines() const
{
    QList<QLineF> result;
    for (const TextLine &line : lines) {
        if (!line.isEmptyBlock)
            result.append(line.baselines(orientation));
    }
    return result;
}
