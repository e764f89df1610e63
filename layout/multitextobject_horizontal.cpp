// SPDX-License-Identifier: MIT
// CMultiTextOjbect: horizontal box text. For each block the lines are filled from widths alone;
// only then are their outlines made and held against the box.
#include "layout/multitextobject.h"

#include "layout/multitextrun.h"
#include "layout/textproperties.h"
#include "layout/textrun.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextDocument>

namespace {

// State across the rows of one layout.
struct RowPass : BoxPass {
    explicit RowPass(const BoxPass &pass)
        : BoxPass(pass)
        , textBottom(pass.box.y() + pass.box.height())
    {
    }

    // What the rows of a block depend on beside its content, and what it leaves behind.
    LayoutNumbers numbers() const;
    void goOnFrom(const LayoutNumbers &numbers);

    qreal y = 0; // baseline of the latest row
    qreal previousDescent = 0;
    qreal textBottom;
};

LayoutNumbers RowPass::numbers() const
{
    return {y,
            previousDescent,
            afterSpace,
            textBottom,
            qreal(layout.lines.isEmpty()),
            qreal(isFull)};
}

void RowPass::goOnFrom(const LayoutNumbers &numbers)
{
    y = numbers.at(0);
    previousDescent = numbers.at(1);
    afterSpace = numbers.at(2);
    textBottom = numbers.at(3);
    isFull = numbers.at(5) != 0;
}

// One block while its rows are made.
struct RowBlock {
    QTextBlock block;
    BlockMeasures measures;
    BlockRules rules;
    int alignment = 0;
};

RowBlock readBlock(const QTextBlock &block, const BoxPass &pass)
{
    const QTextBlockFormat format = block.blockFormat();
    const bool isFirst = block.blockNumber() == 0;
    return {block, readBlockMeasures(format, pass.dpi, isFirst).stretched(pass.kx, pass.ky),
            readBlockRules(format), boxAlignment(format, Qt::AlignLeft)};
}

qreal emptyRowDistance(const QTextCharFormat &format, bool isFirst, qreal ascent,
                       const RowPass &pass)
{
    if (isFirst)
        return ascent;
    const qreal fixed = fixedRowSpacing(format, pass.dpi) * pass.ky;
    return fixed > 0 ? fixed : pass.previousDescent + ascent;
}

void addEmptyRow(const RowBlock &rows, RowPass &pass)
{
    TextLine line = emptyBlockLine(rows.block, pass.dpi);
    const QTextCharFormat &format = line.fragments.first().format;
    const QFontMetricsF metrics(line.font);
    pass.y += emptyRowDistance(format, rows.block.blockNumber() == 0, metrics.ascent() * pass.ky,
                               pass);
    pass.previousDescent = pass.ky * metrics.descent();
    if (!pass.followsText && pass.y + pass.previousDescent > pass.box.y() + pass.box.height()) {
        pass.isFull = true;
        return;
    }

    const qreal scale = pass.ky * scaleFactor(format, TextProperty::VerticalScale);
    const qreal offset = baselineOffset(format, pass.dpi) * pass.ky;
    const qreal ascent = scale * metrics.ascent() + qMax(0.0, offset);
    const qreal descent = scale * metrics.descent() - qMin(0.0, offset);
    const qreal x = emptyLineStart(rows.alignment, rows.measures, pass.box.width());
    line.origin = QPointF(x, pass.y);
    line.rect = QRectF(x, pass.y - ascent, 0 - x, ascent + descent); // deliberate: negative width
    pass.layout.lines.append(line);
    pass.textBottom = pass.y + pass.previousDescent;
}

// How far the row stands below the one before it, as its runs ask for it.
qreal rowDistance(const TextLine &line, qreal automatic, const RowPass &pass)
{
    qreal fixed = 0;
    bool isAutomatic = false;
    for (const TextFragment &run : line.fragments) {
        const qreal points = fixedRowSpacing(run.format, pass.dpi);
        if (points > 0)
            fixed = qMax(fixed, points * pass.ky);
        else
            isAutomatic = true;
    }
    if (!isAutomatic)
        return fixed;
    return fixed == 0 ? automatic : qMax(fixed, automatic);
}

void spreadRow(TextLine &line, const Spread &spread)
{
    qreal start = line.fragments.first().start;
    for (int i = 0; i < line.fragments.size(); ++i) {
        TextFragment &run = line.fragments[i];
        if (spread.extra > 0) {
            run.start = start;
            spreadByLetterSpacing(run, spread.extra, run.scaleX, run.isHalfPunct,
                                  i == line.fragments.size() - 1);
            start += run.advance;
        }
        run.start += spread.offset;
    }
}

// Afterwards the row has its font and its baseline, and its runs stand where they belong.
void closeRow(TextLine &line, LineTreatment treatment, qreal spare, bool isFirst, RowPass &pass)
{
    takeMeasuresFromRuns(line);
    spreadRow(line, spreadOf(treatment, spare, line.length));

    const QFontMetricsF metrics(line.font);
    const qreal ascent = metrics.ascent() * pass.ky;
    const bool isFirstOfDocument = isFirst && pass.layout.lines.isEmpty();
    pass.y += isFirstOfDocument ? ascent : rowDistance(line, ascent + pass.previousDescent, pass);
    pass.previousDescent = metrics.descent() * pass.ky;
    line.origin = QPointF(0, pass.y);
}

// Measuring phase. Afterwards the rows of the block are closed and have no outlines yet.
QList<TextLine> breakIntoRows(const RowBlock &rows, RowPass &pass)
{
    const BlockMeasures &measures = rows.measures;
    const auto closer = [&](LineTreatment treatment) {
        return [&pass, &measures, treatment](TextLine &line, qreal pen, bool isFirst) {
            const qreal room = pass.box.width() - measures.left - measures.right
                               - (isFirst ? measures.indent : 0);
            closeRow(line, treatment, room - pen, isFirst, pass);
        };
    };
    const LineFiller::CloseLine closeWrapped = closer(wrappedLineTreatment(rows.alignment));

    LineFiller filler(lineRules(rows.rules, measures, pass.box.width(), pass));
    for (QTextBlock::iterator it = rows.block.begin(); !it.atEnd(); ++it) {
        const BoxRunStyle &style = pass.styles.of(it.fragment().charFormat());
        Piece piece;
        piece.run = boxRun(it.fragment(), style);
        filler.addGap(style.gap);
        const QString text = piece.run.text;
        const QList<QString> pieces = rows.rules.compressPunctuation ? punctuationPieces(text)
                                                                     : QList<QString>{text};
        for (const QString &part : pieces) {
            piece.run.text = part;
            piece.run.isHalfPunct = rows.rules.compressPunctuation && part.length() == 1
                                    && CTextTools::isCJKPunct(part.at(0));
            piece.run.position += filler.add(piece, closeWrapped);
        }
    }
    if (filler.finish(closer(lastLineTreatment(rows.alignment))))
        pass.textBottom = pass.y + pass.previousDescent;
    return filler.lines();
}

// Extent of a row across, from the runs that have an outline.
struct RowExtent {
    LineSpan span;
    qreal ascent = 0;
    qreal descent = 0;
};

// The hull of the control points decides most cases at a lower price than the exact bounds, here and
// at the end of a row.
bool isBelow(const QPainterPath &outline, qreal bottom)
{
    return !outline.isEmpty() && outline.controlPointRect().bottom() > bottom
           && outline.boundingRect().bottom() > bottom;
}

// Outline of one run. A run whose ink would leave the box below stays without.
void outlineRun(TextFragment &run, qreal baseline, bool isLast, qreal &thickness, RowExtent &extent,
                RowPass &pass)
{
    const QPointF pen(run.start, baseline);
    QPainterPath outline = pass.outlines.text(pen, run.font, run.text);
    if (isBelow(outline, pass.box.height()))
        return;

    const BoxRunStyle &style = pass.styles.of(run.format);
    if (run.isHalfPunct && !outline.isEmpty())
        outline.translate(run.start - outline.boundingRect().left(), 0);
    outline = scaleAbout(pen, style.scaleX, style.scaleY).map(outline);
    qreal ascent = style.ascent * style.scaleY + qMax(0.0, style.offset);
    qreal descent = style.descent * style.scaleY - qMin(0.0, style.offset);
    qreal movement = 0;
    if (style.isScript()) {
        movement = setSuperOrSubscript(outline, pen, style.isSuperscript);
        if (style.isSubscript)
            descent += qAbs(movement);
    }
    outline.translate(0, -style.offset);
    run.path = outline;
    run.baseline = pen.y() - style.offset + movement;

    if (run.format.fontUnderline()) {
        const qreal own = pass.thickness.of(run.format.font());
        thickness = grownThickness(thickness, own, pass.ky);
    }
    std::optional<qreal> inkEnd;
    if (isLast && !outline.isEmpty()
        && outline.controlPointRect().right() > run.start + run.advance)
        inkEnd = outline.boundingRect().right();
    extent.span.add(run, isLast, inkEnd);
    extent.ascent = qMax(extent.ascent, ascent);
    extent.descent = qMax(extent.descent, descent);
}

void outlineRow(TextLine &line, qreal &thickness, RowPass &pass)
{
    RowExtent extent;
    for (int i = 0; i < line.fragments.size(); ++i) {
        TextFragment &run = line.fragments[i];
        outlineRun(run, line.origin.y(), i == line.fragments.size() - 1, thickness, extent, pass);
        addToLine(line, run.path);
    }
    line.rect = QRectF(extent.span.begin(), line.origin.y() - extent.ascent,
                       extent.span.end() - extent.span.begin(),
                       extent.ascent + extent.descent + thickness);
}

// Outline phase. Afterwards the rows that lie inside the box are part of the layout.
void outlineRows(QList<TextLine> &lines, const RowBlock &rows, RowPass &pass)
{
    qreal thickness = 0; // deliberate: grows over the rows of the block
    for (int i = 0; i < lines.size(); ++i) {
        TextLine &line = lines[i];
        if (!pass.followsText && pass.box.height() < line.origin.y())
            return;
        const TextLine *former = pass.blocks.formerLine(i);
        if (former && areAlike(*former, line))
            line = movedTo(*former, line.position);
        else
            outlineRow(line, thickness, pass);
        line.alignment = rows.alignment;
        pass.layout.lines.append(line);
    }
}

void layOutBlock(const QTextBlock &block, RowPass &pass)
{
    const RowBlock rows = readBlock(block, pass);
    pass.y += rows.measures.before + pass.afterSpace;
    pass.afterSpace = rows.measures.after.value_or(pass.afterSpace);
    if (block.begin().atEnd()) {
        addEmptyRow(rows, pass);
    } else {
        QList<TextLine> lines = breakIntoRows(rows, pass);
        outlineRows(lines, rows, pass);
    }
    if (!pass.followsText && pass.box.height() < pass.y + pass.previousDescent)
        pass.isFull = true;
}

} // namespace

void CMultiTextOjbect::horizontalLayout()
{
    RowPass pass(startPass());
    for (QTextBlock block = document()->begin(); block.isValid() && !pass.isFull;
         block = block.next())
        layOutOrTake(block, pass, layOutBlock);
    QRectF client = pass.box;
    if (pass.followsText)
        client.setHeight(pass.textBottom - client.y());
    publish(pass, client);
}
