// SPDX-License-Identifier: MIT
// CMultiTextOjbect: vertical box text. Columns run from the right of the box to the left and fill
// from the top down. As in horizontal text a block is measured first and outlined afterwards.
#include "layout/multitextobject.h"

#include "layout/multitextrun.h"
#include "layout/textproperties.h"
#include "layout/textrun.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextDocument>

namespace {

// State across the columns of one layout.
struct ColumnPass : BoxPass {
    explicit ColumnPass(const BoxPass &pass)
        : BoxPass(pass)
    {
    }

    // What the columns of a block depend on beside its content, and what it leaves behind.
    LayoutNumbers numbers() const;
    void goOnFrom(const LayoutNumbers &numbers);

    void addInk(qreal left) { inkLeft = qMin(inkLeft.value_or(left), left); }

    // Height of "A" halved: centres text on its side. Neighbours of one font are measured once.
    qreal halfCapital(const QFont &font);

    qreal cursor = 0;              // x at which the next column is fitted
    std::optional<qreal> leftEdge; // of the column that ended the latest block
    std::optional<qreal> inkLeft;  // of all outlines
    std::optional<qreal> capital;
    QFont capitalFont;
};

LayoutNumbers ColumnPass::numbers() const
{
    return {cursor,
            afterSpace,
            leftEdge.value_or(0),
            inkLeft.value_or(0),
            qreal(leftEdge.has_value()),
            qreal(inkLeft.has_value()),
            qreal(layout.lines.isEmpty()),
            qreal(isFull)};
}

void ColumnPass::goOnFrom(const LayoutNumbers &numbers)
{
    cursor = numbers.at(0);
    afterSpace = numbers.at(1);
    leftEdge = numbers.at(4) != 0 ? std::make_optional(numbers.at(2)) : std::nullopt;
    inkLeft = numbers.at(5) != 0 ? std::make_optional(numbers.at(3)) : std::nullopt;
    isFull = numbers.at(7) != 0;
}

qreal ColumnPass::halfCapital(const QFont &font)
{
    if (!capital || capitalFont != font) {
        capitalFont = font;
        capital = halfCapitalHeight(font);
    }
    return *capital;
}

// One block while its columns are made.
struct ColumnBlock {
    QTextBlock block;
    BlockMeasures measures;
    BlockRules rules;
    int alignment = 0;

    // Deliberate: unlike rows, the columns of a block keep the largest of these.
    qreal distance = 0;
    qreal descent = 0;
    bool isAutomatic = true;
};

ColumnBlock readBlock(const QTextBlock &block, const BoxPass &pass)
{
    const QTextBlockFormat format = block.blockFormat();
    const bool isFirst = block.blockNumber() == 0;
    ColumnBlock columns;
    columns.block = block;
    columns.measures = readBlockMeasures(format, pass.dpi, isFirst).stretched(pass.ky, pass.kx);
    columns.rules = readBlockRules(format);
    columns.alignment = boxAlignment(format, Qt::AlignTop);
    return columns;
}

void addEmptyColumn(const ColumnBlock &columns, ColumnPass &pass)
{
    TextLine line = emptyBlockLine(columns.block, pass.dpi);
    const QTextCharFormat &format = line.fragments.first().format;
    const QFontMetricsF metrics(line.font);
    const qreal height = metrics.height() * pass.kx;
    const qreal x = pass.cursor - height / 2;
    if (!pass.followsText && x - height / 2 < pass.box.x()) {
        pass.isFull = true;
        return;
    }

    const qreal fixed = fixedRowSpacing(format, pass.dpi);
    pass.cursor = fixed > 0 ? x + height / 2 - fixed * pass.kx
                            : (x + height / 2) - 2 * height + 2 * metrics.descent() * pass.kx;

    const qreal half = metrics.height() / 2 * scaleFactor(format, TextProperty::VerticalScale)
                       * pass.kx;
    const qreal offset = baselineOffset(format, pass.dpi) * pass.kx;
    const qreal leftHalf = half - qMin(0.0, offset);
    const qreal rightHalf = half + qMax(0.0, offset);
    const qreal y = emptyLineStart(columns.alignment, columns.measures, pass.box.height());
    line.origin = QPointF(x, y);
    line.rect = QRectF(x - leftHalf, y, leftHalf + rightHalf, 0 - y); // deliberate: negative height
    pass.layout.lines.append(line);
}

// What one run asks of the distance to the next column. Only a strict increase changes anything.
void askForDistance(ColumnBlock &columns, qreal fixed, qreal height)
{
    const qreal asked = fixed > 0 ? fixed : height;
    if (!(asked > columns.distance))
        return;
    columns.distance = asked;
    columns.isAutomatic = !(fixed > 0);
}

void spreadColumn(TextLine &line, const Spread &spread)
{
    qreal start = line.fragments.first().start;
    for (int i = 0; i < line.fragments.size(); ++i) {
        TextFragment &run = line.fragments[i];
        const bool isLast = i == line.fragments.size() - 1;
        if (spread.extra > 0) {
            run.start = start;
            // Deliberate: compressed punctuation counts whole here.
            if (!run.isCJK)
                spreadByLetterSpacing(run, spread.extra, run.scaleY, /*halve=*/false, isLast);
            else if (!isLast)
                run.advance += spread.extra;
            start += run.advance;
        }
        run.start += spread.offset;
    }
}

qreal widthOf(const TextLine &line, const ColumnPass &pass)
{
    qreal width = 0;
    FontHeight heights;
    for (const TextFragment &run : line.fragments)
        width = qMax(width, heights.of(run.font) * pass.kx);
    return width;
}

// Sets the column beside the one before and moves the cursor on. The first column of a document
// stands at the right of the box, whatever the cursor says. Returns the column's left edge.
qreal placeColumn(TextLine &line, bool isFirst, const ColumnBlock &columns, ColumnPass &pass)
{
    const qreal width = widthOf(line, pass);
    const bool isFirstOfDocument = isFirst && pass.layout.lines.isEmpty();
    const qreal fontWidth = QFontMetricsF(line.font).height() * pass.kx;
    const qreal x = isFirstOfDocument ? pass.box.width() - fontWidth / 2 : pass.cursor - width / 2;
    const qreal right = x + width / 2;
    pass.cursor = columns.isAutomatic ? right - 2 * columns.distance + 2 * columns.descent
                                      : right - columns.distance;
    line.origin = QPointF(x, 0);
    return x - (isFirstOfDocument ? fontWidth : width) / 2;
}

// Ends a column inside a block. Deliberate: the run that is being measured speaks for all others
// on row spacing and descent.
void closeWrappedColumn(TextLine &line, qreal spare, bool isFirst, const BoxRunStyle &current,
                        ColumnBlock &columns, ColumnPass &pass)
{
    takeMeasuresFromRuns(line);
    FontHeight heights;
    for (const TextFragment &run : qAsConst(line.fragments)) {
        columns.descent = qMax(columns.descent, current.descent * pass.kx);
        askForDistance(columns, current.rowSpacing, heights.of(run.font) * pass.kx);
    }
    spreadColumn(line, spreadOf(wrappedLineTreatment(columns.alignment), spare, line.length));
    placeColumn(line, isFirst, columns, pass);
}

// Ends the last column of a block. Deliberate: a fixed row spacing is not stretched here.
void closeLastColumn(TextLine &line, qreal spare, bool isFirst, ColumnBlock &columns,
                     ColumnPass &pass)
{
    takeMeasuresFromRuns(line);
    for (const TextFragment &run : qAsConst(line.fragments)) {
        const QFontMetricsF metrics(run.font);
        columns.descent = qMax(columns.descent, metrics.descent() * pass.kx);
        askForDistance(columns, fixedRowSpacing(run.format, pass.dpi), metrics.height() * pass.kx);
    }
    spreadColumn(line, spreadOf(lastLineTreatment(columns.alignment), spare, line.length));
    pass.leftEdge = placeColumn(line, isFirst, columns, pass);
}

// A piece of a run: upright characters have no letter spacing in their font, but get it explicitly
// where they stand without wrapping.
Piece columnPiece(const TextFragment &run, const QString &text, const BoxRunStyle &style,
                  bool compress, OutlineSource &outlines)
{
    Piece piece;
    piece.run = run;
    piece.run.text = text;
    const bool isSingle = text.length() == 1;
    piece.run.isCJK = isSingle && CTextTools::isCJKChar(text.at(0));
    piece.run.isHalfPunct = compress && isSingle && CTextTools::isCJKPunct(text.at(0));
    if (piece.run.isCJK) {
        piece.run.font = style.upright;
        piece.extraAdvance = style.letterSpacing * run.scaleY;
        piece.width = outlines.width(style.upright, text);
    }
    return piece;
}

// Measuring phase. Afterwards the columns of the block are closed and have no outlines yet.
QList<TextLine> breakIntoColumns(ColumnBlock &columns, ColumnPass &pass)
{
    const BlockMeasures &measures = columns.measures;
    const auto spare = [&](qreal pen, bool isFirst) {
        return pass.box.height() - measures.left - measures.right - (isFirst ? measures.indent : 0)
               - pen;
    };

    LineFiller filler(lineRules(columns.rules, measures, pass.box.height(), pass));
    for (QTextBlock::iterator it = columns.block.begin(); !it.atEnd(); ++it) {
        const BoxRunStyle style = pass.styles.of(it.fragment().charFormat());
        const LineFiller::CloseLine close = [&](TextLine &line, qreal pen, bool isFirst) {
            closeWrappedColumn(line, spare(pen, isFirst), isFirst, style, columns, pass);
        };
        TextFragment run = boxRun(it.fragment(), style);
        filler.addGap(style.gap);
        const QList<QString> pieces = uprightPieces(run.text);
        for (const QString &text : pieces) {
            run.position += filler.add(columnPiece(run, text, style,
                                                   columns.rules.compressPunctuation,
                                                   pass.outlines),
                                       close);
        }
    }
    filler.finish([&](TextLine &line, qreal pen, bool isFirst) {
        closeLastColumn(line, spare(pen, isFirst), isFirst, columns, pass);
    });
    return filler.lines();
}

// Extent of a column across, from the runs that it holds.
struct ColumnExtent {
    LineSpan span;
    qreal leftHalf = 0;
    qreal rightHalf = 0;
};

QPainterPath runOutline(const TextFragment &run, const QPointF &pen, ColumnPass &pass)
{
    if (!run.isCJK) {
        return sidewaysOutline(pass.outlines.text(pen, run.font, run.text), pen,
                               pass.halfCapital(run.font));
    }
    const qreal width = pass.outlines.width(run.font, run.text);
    return uprightOutline(pass.outlines.character(pen, run.font, run.text), pen, width,
                          run.isHalfPunct ? width / 2 : width);
}

void outlineRun(TextFragment &run, qreal x, bool isLast, qreal &thickness, ColumnExtent &extent,
                ColumnPass &pass)
{
    const BoxRunStyle &style = pass.styles.of(run.format);
    const QPointF pen(x, run.start);
    QPainterPath outline =
        scaleAbout(pen, style.scaleX, style.scaleY).map(runOutline(run, pen, pass));
    qreal movement = 0;
    if (style.isScript()) {
        movement = style.height * style.scaleX / 4;
        if (style.isSubscript)
            movement = -movement;
        outline = scaleAbout(pen, 0.5, 0.5).map(outline);
        outline.translate(movement, 0);
    }
    outline.translate(style.offset, 0);
    run.path = outline;
    run.baseline = style.offset + x + movement;

    if (run.format.fontUnderline()) {
        const qreal own = pass.thickness.of(run.format.font());
        thickness = grownThickness(thickness, own, pass.kx);
    }
    const qreal half = style.height * style.scaleX / 2;
    extent.leftHalf = qMax(extent.leftHalf, half - qMin(0.0, style.offset));
    extent.rightHalf = qMax(extent.rightHalf, half + qMax(0.0, style.offset));
    std::optional<qreal> inkEnd;
    if (!outline.isEmpty()) {
        const QRectF ink = outline.boundingRect();
        inkEnd = ink.bottom();
        extent.rightHalf = qMax(extent.rightHalf, ink.right() - x);
        pass.addInk(ink.left());
    }
    extent.span.add(run, isLast, inkEnd);
}

// Underlines left of the column move its left edge but deliberately do not widen it.
QRectF columnRect(const TextLine &line, const ColumnExtent &extent, qreal thickness)
{
    qreal left = line.origin.x() - extent.leftHalf;
    if (thickness > 0 && !line.path.isEmpty())
        left = qMin(left, line.path.boundingRect().left() - thickness);
    return QRectF(left, extent.span.begin(), extent.leftHalf + extent.rightHalf,
                  extent.span.end() - extent.span.begin());
}

void outlineColumn(TextLine &line, qreal &thickness, ColumnPass &pass)
{
    ColumnExtent extent;
    for (int i = 0; i < line.fragments.size(); ++i) {
        TextFragment &run = line.fragments[i];
        outlineRun(run, line.origin.x(), i == line.fragments.size() - 1, thickness, extent, pass);
        addToLine(line, run.path);
    }
    line.rect = columnRect(line, extent, thickness);
}

// A column that an earlier layout has outlined.
void takeColumn(TextLine &line, const TextLine &former, ColumnPass &pass)
{
    line = movedTo(former, line.position);
    for (const TextFragment &run : qAsConst(line.fragments)) {
        if (!run.path.isEmpty())
            pass.addInk(run.path.boundingRect().left());
    }
}

// Outline phase. Afterwards the columns that lie inside the box are part of the layout.
void outlineColumns(QList<TextLine> &lines, const ColumnBlock &columns, ColumnPass &pass)
{
    qreal thickness = 0; // deliberate: grows over the columns of the block
    for (int i = 0; i < lines.size(); ++i) {
        TextLine &line = lines[i];
        const qreal half = QFontMetricsF(line.font).height() * pass.kx / 2;
        if (!pass.followsText && line.origin.x() - half < pass.box.x())
            return;
        const TextLine *former = pass.blocks.formerLine(i);
        if (former && areAlike(*former, line))
            takeColumn(line, *former, pass);
        else
            outlineColumn(line, thickness, pass);
        line.alignment = columns.alignment;
        pass.layout.lines.append(line);
    }
}

void layOutBlock(const QTextBlock &block, ColumnPass &pass)
{
    ColumnBlock columns = readBlock(block, pass);
    pass.cursor -= columns.measures.before + pass.afterSpace;
    pass.afterSpace = columns.measures.after.value_or(pass.afterSpace);
    if (block.begin().atEnd()) {
        addEmptyColumn(columns, pass);
    } else {
        QList<TextLine> lines = breakIntoColumns(columns, pass);
        outlineColumns(lines, columns, pass);
    }
    // Deliberate: also when the box follows its text.
    if (pass.inkLeft && *pass.inkLeft < pass.box.x())
        pass.isFull = true;
}

} // namespace

void CMultiTextOjbect::verticalLayout()
{
    ColumnPass pass(startPass());
    for (QTextBlock block = document()->begin(); block.isValid() && !pass.isFull;
         block = block.next())
        layOutOrTake(block, pass, layOutBlock);
    QRectF client = pass.box;
    // Behind an empty first column the text stands left of the box however wide that is: a box that
    // followed it would grow with every layout.
    const bool beginsEmpty = !pass.layout.lines.isEmpty() && pass.layout.lines.first().isEmptyBlock;
    if (pass.followsText && pass.leftEdge && !beginsEmpty)
        client.setLeft(*pass.leftEdge);
    publish(pass, client);
}
