// SPDX-License-Identifier: MIT
// CSingleTextObject: vertical line text. Columns run from right to left, runs from top to bottom.
#include "layout/singletextobject.h"

#include "layout/blockmeasures.h"
#include "layout/textrun.h"
#include "layout/textproperties.h"
#include "layout/texttools.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextDocument>
#include <QVector>

namespace {

// State across the blocks of one layout.
struct ColumnPass {
    ColumnPass(const TextLayout &start, const QPointF &at, LaidOutBlocks &laidOut,
               OutlineSource &outlineSource)
        : anchor(at)
        , dpi(start.dpi)
        , layout(start)
        , blocks(laidOut)
        , outlines(outlineSource)
    {
    }

    // What the column of a block depends on beside its content, and what it leaves behind.
    LayoutNumbers numbers() const { return {x, afterSpace}; }
    void goOnFrom(const LayoutNumbers &numbers);

    const QPointF anchor;
    const int dpi;
    qreal x = 0;          // cursor from column to column
    qreal afterSpace = 0; // a block without the property repeats the last value
    bool isFirst = true;
    UnderlineThickness thickness;
    TextLayout layout;
    LaidOutBlocks &blocks;
    OutlineSource &outlines;
};

void ColumnPass::goOnFrom(const LayoutNumbers &numbers)
{
    x = numbers.at(0);
    afterSpace = numbers.at(1);
    isFirst = false;
}

// Style and metrics of one run of the document, shared by the pieces that it is cut into.
struct PieceStyle : RunStyle {
    qreal fontHeight = 0;
    qreal halfCapital = 0; // half the height of an "A": centres text on its side
    QFont sidewaysFont;    // with letter spacing; an upright character does without
};

PieceStyle readPieceStyle(const QTextCharFormat &format, int dpi)
{
    PieceStyle style;
    static_cast<RunStyle &>(style) = readRunStyle(format, dpi);
    style.fontHeight = QFontMetricsF(style.font).height();
    style.sidewaysFont = style.spacedFont();
    style.halfCapital = halfCapitalHeight(style.sidewaysFont);
    return style;
}

// A column with what its runs ask for.
struct Column {
    TextLine line;
    LineExtent extent;
    QVector<PieceStyle> styles; // one for each run of the document
    QVector<int> styleOfPiece;  // index into styles for each fragment of the line
    qreal height = 0;           // greatest font height
    qreal descent = 0;          // greatest descent
    qreal distance = 0;         // asked for to the next column
    bool isAutomatic = true;
};

void appendPiece(Column &column, const TextFragment &run, int from, int length, bool isCJK)
{
    TextFragment piece(run);
    piece.position = run.position + from;
    piece.length = length;
    piece.text = run.text.mid(from, length);
    piece.isCJK = isCJK;
    column.line.length += piece.text.length();
    column.line.text += piece.text;
    column.line.fragments.append(piece);
    column.styleOfPiece.append(column.styles.size() - 1);
}

// Each upright character becomes a piece of its own, and each stretch between them one piece.
// Surrogates are never upright, so that no pair is cut. Deliberate: the text is cut as it is shown,
// so a letter that is longer as a capital shifts the positions behind it.
void cutRun(Column &column, const TextFragment &run)
{
    int pending = 0;
    for (int i = 0; i < run.text.length(); ++i) {
        if (!CTextTools::isCJKChar(run.text.at(i)))
            continue;
        if (i > pending)
            appendPiece(column, run, pending, i - pending, false);
        appendPiece(column, run, i, 1, true);
        pending = i + 1;
    }
    if (run.text.length() > pending)
        appendPiece(column, run, pending, run.text.length() - pending, false);
}

// First pass: the pieces and what their fonts ask for.
Column readColumn(const QTextBlock &block, int dpi)
{
    Column column;
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        const TextFragment run = TextFragment::fromQtFragment(it.fragment());
        const PieceStyle style = readPieceStyle(run.format, dpi);
        if (column.styles.isEmpty() || style.fontHeight > column.height) {
            column.height = style.fontHeight;
            column.line.font = style.font;
        }
        column.descent = qMax(column.descent, QFontMetricsF(style.font).descent());
        const bool isFixed = style.rowSpacing > 0;
        const qreal distance = isFixed ? style.rowSpacing : style.fontHeight;
        if (distance > column.distance) {
            column.distance = distance;
            column.isAutomatic = !isFixed;
        }
        column.styles.append(style);
        cutRun(column, run);
    }
    column.line.position = column.line.fragments.first().position;
    return column;
}

Column emptyColumn(const QTextBlock &block, int dpi)
{
    Column column;
    column.styles.append(readPieceStyle(block.charFormat(), dpi));
    column.styleOfPiece.append(0);
    const PieceStyle &style = column.styles.first();

    column.line = emptyBlockLine(block, dpi);
    const QFontMetricsF metrics(column.line.font);
    column.height = metrics.height();
    column.descent = metrics.descent();
    column.isAutomatic = style.rowSpacing <= 0;
    column.distance = column.isAutomatic ? column.height : style.rowSpacing;
    column.extent.ahead = column.height / 2 * style.scaleY;
    column.extent.behind = column.height / 2 * style.scaleY;
    if (style.offset >= 0)
        column.extent.ahead += style.offset;
    else
        column.extent.behind -= style.offset;
    return column;
}

// The first column stands on the anchor. Afterwards pass.x is where the next one begins.
void placeColumn(Column &column, qreal cursor, ColumnPass &pass)
{
    column.line.origin = pass.anchor;
    if (!pass.isFirst)
        column.line.origin.setX(cursor - column.height / 2);
    cursor = column.line.origin.x() + column.height / 2;
    pass.x = column.isAutomatic ? cursor - 2 * column.distance + 2 * column.descent
                                : cursor - column.distance;
}

// Outline of a piece at the pen, centred on the column, unscaled. Returns its width as text.
qreal addPieceOutline(TextFragment &piece, const PieceStyle &style, const QPointF &pen,
                      OutlineSource &outlines)
{
    const qreal width = outlines.width(piece.font, piece.text);
    if (piece.isEmptyBlock)
        return width;
    if (piece.isCJK) {
        piece.path = uprightOutline(outlines.character(pen, piece.font, piece.text), pen, width,
                                    width);
    } else {
        piece.path = sidewaysOutline(outlines.text(pen, piece.font, piece.text), pen,
                                     style.halfCapital);
    }
    return width;
}

// Second pass, one piece: outline and measures, with the column still starting at the anchor.
void outlinePiece(TextFragment &piece, const PieceStyle &style, const QPointF &origin,
                  LineExtent &extent, OutlineSource &outlines)
{
    const QPointF pen(origin.x(), extent.pen + origin.y());
    const qreal half = style.fontHeight * style.scaleX / 2;
    const qreal rightHalf = style.offset > 0 ? half + style.offset : half;
    const qreal leftHalf = style.offset > 0 ? half : half - style.offset;

    piece.font = piece.isCJK ? style.font : style.sidewaysFont;
    // Text on its side holds its letter spacing in the width already: it deliberately counts twice.
    const qreal advance = addPieceOutline(piece, style, pen, outlines) + style.letterSpacing;
    piece.scaleX = style.scaleX;
    piece.scaleY = style.scaleY;
    piece.path = scaleAbout(pen, piece.scaleX, piece.scaleY).map(piece.path);
    qreal movement = 0;
    if (style.isSuperscript || style.isSubscript) {
        piece.scaleX *= 0.5;
        piece.scaleY *= 0.5;
        movement = style.fontHeight * piece.scaleX / 2;
        if (style.isSubscript)
            movement = -movement;
        piece.path = scaleAbout(pen, 0.5, 0.5).map(piece.path);
        piece.path.translate(movement, 0);
    }
    piece.path.translate(style.offset, 0);

    piece.advance = advance * piece.scaleY;
    piece.baseline = origin.x() + style.offset + movement;
    piece.start = pen.y();
    extent.pen += piece.advance;
    extent.behind = qMax(extent.behind, leftHalf);
    extent.ahead = qMax(extent.ahead, rightHalf);
    if (!piece.path.isEmpty())
        extent.ahead = qMax(extent.ahead, piece.path.boundingRect().right() - origin.x());
}

void outlineColumn(Column &column, ColumnPass &pass)
{
    TextLine &line = column.line;
    LineExtent &extent = column.extent;
    for (int i = 0; i < line.fragments.size(); ++i) {
        const QTextCharFormat &format = line.fragments.at(i).format;
        const PieceStyle &style = column.styles.at(column.styleOfPiece.at(i));
        if (format.fontUnderline() && !line.isEmptyBlock) {
            extent.isUnderlined = true;
            extent.thickness = qMax(extent.thickness, pass.thickness.of(format.font()));
        }
        addLeadingGap(line, i, style.gap, extent);
        outlinePiece(line.fragments[i], style, line.origin, extent, pass.outlines);
    }
}

// Aligns the column at the anchor and collects its outlines.
void shiftColumn(TextLine &line, const BlockMeasures &measures, qreal pen)
{
    qreal shift = measures.left;
    if (line.alignment == Qt::AlignBottom)
        shift = -pen - measures.right;
    else if (line.alignment == Qt::AlignVCenter)
        shift = -pen / 2;
    shift += measures.indent;
    for (TextFragment &piece : line.fragments) {
        piece.path.translate(0, shift);
        piece.path.setFillRule(Qt::WindingFill);
        piece.start += shift;
        line.path.addPath(piece.path);
    }
}

// Underlines left of the column move its left edge but deliberately do not widen it.
void closeColumn(TextLine &line, const LineExtent &extent)
{
    const TextFragment &last = line.fragments.last();
    qreal top = line.fragments.first().start;
    for (int i = 1; i < line.fragments.size() - 1; ++i)
        top = qMin(top, line.fragments.at(i).start);
    qreal bottom = last.start + last.advance;
    if (!last.path.isEmpty())
        bottom = qMax(bottom, last.path.boundingRect().bottom());
    qreal left = line.origin.x() - extent.behind;
    if (extent.isUnderlined && !line.path.isEmpty())
        left = qMin(left, line.path.boundingRect().left() - extent.thickness);
    line.rect = QRectF(left, top, extent.behind + extent.ahead, bottom - top);
}

void layOutBlock(const QTextBlock &block, ColumnPass &pass)
{
    const BlockMeasures measures = readBlockMeasures(block.blockFormat(), pass.dpi, pass.isFirst);
    const qreal cursor = pass.x - (measures.before + pass.afterSpace);

    Column column = block.begin().atEnd() ? emptyColumn(block, pass.dpi)
                                          : readColumn(block, pass.dpi);
    column.line.alignment = verticalLineAlignment(block.blockFormat());
    placeColumn(column, cursor, pass);
    outlineColumn(column, pass);
    shiftColumn(column.line, measures, column.extent.pen);
    closeColumn(column.line, column.extent);
    pass.afterSpace = measures.after.value_or(pass.afterSpace);
    pass.isFirst = false;
    pass.layout.lines.append(column.line);
}

} // namespace

void CSingleTextObject::verticalLayout()
{
    startBlocks();
    ColumnPass pass(startLayout(), textOffset(), m_blocks, m_outlines);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        layOutOrTake(block, pass, layOutBlock);
    endBlocks();
    const QRectF rect = unitedLineRects(pass.layout.lines);
    updateData(pass.layout, rect, rect, QPainterPath());
}
