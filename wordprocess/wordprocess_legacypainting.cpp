// SPDX-License-Identifier: MIT
// wordprocess_legacypainting.cpp -- CWordProcess: outlines of the older layout in their places, and painting them.
// Changes: the paths of m_legacyLines, with the room that they were placed for; painting only the memory of the
// caret. Rows and columns are told apart where they differ on purpose.
#include "wordprocess/legacyplaces.h"

#include "layout/outlines.h"
#include "layout/runstyle.h"
#include "layout/textproperties.h"
#include "layout/texttools.h"
#include "wordprocess/hostdefaults.h"
#include "wordprocess/numbers.h"

#include <QPainter>

/// The word that stands for an empty text, and the caret beside it.
struct CWordProcess::LegacyDefaultWord {
    QPainterPath path;
    QLineF caret;
};

namespace {
const QColor emptyTextColor(0x2e, 0x3c, 0x63);
constexpr double emptyTextOpacity = 0.1;
const QColor frameColor(0x44, 0x57, 0x8b);
const QColor defaultWordColor(0xa0, 0xa0, 0xa0);
const QColor selectionColor(0, 0, 0, 128);
constexpr double caretInset = 5.0; // beside a default word
constexpr double rowStrike = 0.6;  // of a run's ink
constexpr double columnStrike = 0.5;
constexpr QPainter::RenderHints textHints = QPainter::Antialiasing | QPainter::TextAntialiasing
                                            | QPainter::SmoothPixmapTransform;

/// Space ahead of the ink of \a item, which its leading blanks take.
double leadingExtent(const STextItem &item, double spacing)
{
    return (item.spaceWidth + item.selectedLetterSpacing + spacing) * item.leadingSpaces;
}

/// Brings the ink of \a item to \a corner. \return what the item takes along its line
double bringTo(STextItem &item, const QPointF &corner, Qt::Orientation orientation, double spacing)
{
    item.placedAdvance = item.itemWidth(orientation, spacing);
    item.path = CTextTools::GetTranslatePath(item.path,
                                             corner - item.path.boundingRect().topLeft());
    return item.placedAdvance;
}

bool isAligned(const STextItem &item, QTextCharFormat::VerticalAlignment alignment)
{
    return item.format.verticalAlignment() == alignment;
}

/// From the upper edge of a row's room to the ink of one of its items.
double inkTop(const STextLine &line, const STextItem &item)
{
    const double base = line.firstLineSpace + line.height - line.baseline;
    if (isAligned(item, QTextCharFormat::AlignSuperScript))
        return base - line.height + line.baseline - item.baselineOffset;
    return base - item.baselineOffset + item.ascent - item.path.boundingRect().height();
}

/// From the right edge of a column's room to the left edge of the ink of one of its items.
double inkLeft(const STextLine &line, const STextItem &item)
{
    const double width = item.path.boundingRect().width();
    if (isAligned(item, QTextCharFormat::AlignSuperScript))
        return line.firstLineSpace + width - item.baselineOffset;
    if (isAligned(item, QTextCharFormat::AlignSubScript))
        return line.firstLineSpace + line.height - item.baselineOffset;
    return line.firstLineSpace + 0.5 * line.height + 0.5 * width - item.baselineOffset;
}

/// The ink that a strike bar crosses; a run of blanks is struck where the line would be.
QRectF struckInk(const STextItem &item, const QRectF &band)
{
    return item.path.isEmpty() ? band : item.path.boundingRect();
}

QVector<QRectF> rowBars(const STextItem &item, const QRectF &band, double thickness)
{
    QVector<QRectF> bars;
    const double half = thickness / 2;
    if (item.strikeOut) {
        const QRectF ink = struckInk(item, band);
        bars.append(QRectF(band.left(), ink.top() + rowStrike * ink.height() - half, band.width(),
                           thickness));
    }
    if (item.underline)
        bars.append(QRectF(band.left(), band.bottom() - item.baselineOffset - half, band.width(),
                           2 * half));
    return bars;
}

/// Down the left side of the column, and down its middle.
QVector<QRectF> columnBars(const STextItem &item, const QRectF &band, double thickness)
{
    QVector<QRectF> bars;
    const double half = thickness / 2;
    if (item.strikeOut) {
        const QRectF ink = struckInk(item, band);
        bars.append(QRectF(ink.left() + columnStrike * ink.width() - half, band.top(), thickness,
                           band.height()));
    }
    if (item.underline)
        bars.append(
            QRectF(band.left() + item.baselineOffset - half, band.top(), 2 * half, band.height()));
    return bars;
}

QColor complementOf(const QColor &color)
{
    return QColor(255 - color.red(), 255 - color.green(), 255 - color.blue());
}

void fillAll(QPainter *painter, const QPainterPath &path, const QVector<QRectF> &bars,
             const QBrush &brush)
{
    painter->fillPath(path, brush);
    for (const QRectF &bar : bars)
        painter->fillRect(bar, brush);
}

/// Paints a run with its bars, and once more what of it lies in \a selected so that it can be read there.
void paintItem(QPainter *painter, const STextItem &item, const QVector<QRectF> &bars,
               const QRectF &selected)
{
    const QBrush brush = item.format.brushProperty(QTextFormat::ForegroundBrush);
    QPainterPath path = item.path;
    path.setFillRule(Qt::WindingFill);
    fillAll(painter, path, bars, brush);
    if (selected.isEmpty() || brush.style() == Qt::NoBrush)
        return;
    painter->save();
    painter->setClipRect(selected, Qt::IntersectClip);
    fillAll(painter, path, bars, complementOf(brush.color()));
    painter->restore();
}

void paintSelection(QPainter *painter, const QRectF &selected)
{
    if (selected.isEmpty())
        return;
    const QPainter::CompositionMode mode = painter->compositionMode();
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter->fillRect(selected, selectionColor);
    painter->setCompositionMode(mode);
}

/// The pieces of a word in a column: CJK characters each by itself, the runs between them on their side.
QVector<QPainterPath> columnPieces(const QFont &font, const QString &word)
{
    QVector<QPainterPath> pieces;
    int start = 0;
    const auto addRun = [&](int end) {
        if (end > start)
            pieces.append(CTextTools::getRotatePath(textOutline(QPointF(0, 0), font,
                                                                word.mid(start, end - start)),
                                                    QPointF(0, 0), 90.0));
    };
    for (int i = 0; i < word.length(); ++i) {
        if (!CTextTools::isCJKChar(word.at(i)))
            continue;
        addRun(i);
        pieces.append(textOutline(QPointF(0, 0), font, word.mid(i, 1)));
        start = i + 1;
    }
    addRun(word.length());
    return pieces;
}

/// The pieces one below the other, centred about x = 0, from y = 0 on.
QPainterPath pileOf(const QVector<QPainterPath> &pieces)
{
    QPainterPath pile;
    double y = 0;
    for (const QPainterPath &piece : pieces) {
        const QRectF ink = piece.boundingRect();
        pile.addPath(piece.translated(-ink.center().x(), y - ink.top()));
        y += ink.height();
    }
    return pile;
}

/// Where a word of \a length begins in a room of \a extent.
double wordStart(int alignment, int end, int centre, double extent, double length)
{
    if (alignment == centre)
        return (extent - length) * 0.5;
    return alignment == end ? extent - length : 0.0;
}
} // namespace

// Outlines in their places

/// The outline of an item, its characters apart as the line is justified; that of the layout has no such space.
void CWordProcess::remakePath(STextItem &item, double spacing) const
{
    if (spacing == 0 && !item.path.isEmpty())
        return;
    double advance = 0;
    item.path = fragmentPath(QPointF(0, 0), item.format, item.text, advance, spacing, item.upright);
}

void CWordProcess::generatorHorizontalTextPaths(double maxWidth)
{
    m_legacyExtent = maxWidth;
    double top = 0;
    for (STextLine &line : m_legacyLines) {
        double x = 0;
        double spacing = 0;
        const bool hasRoom = lineXOffset(line, maxWidth, x, spacing);
        for (STextItem &item : line.items) {
            remakePath(item, spacing);
            const QPointF corner(x + leadingExtent(item, spacing), top + inkTop(line, item));
            x += bringTo(item, corner, Qt::Horizontal, spacing);
            // Text below its box, or on a line without room, is neither shown nor hit.
            const double bottom = item.path.boundingRect().bottom();
            if (!hasRoom || (m_wordWrap && bottom > m_clientRect.height()))
                item.path = QPainterPath();
        }
        top += line.advance;
    }
}

void CWordProcess::generatorVerticalTextPaths(double heightSum, double maxLength)
{
    m_legacyExtent = maxLength;
    m_legacyFlow = heightSum;
    double across = 0;
    for (STextLine &line : m_legacyLines) {
        double y = 0;
        double spacing = 0;
        const bool hasRoom = lineXOffset(line, maxLength, y, spacing);
        for (STextItem &item : line.items) {
            remakePath(item, spacing);
            const QPointF corner(heightSum - (across + inkLeft(line, item)),
                                 y + leadingExtent(item, spacing));
            y += bringTo(item, corner, Qt::Vertical, spacing);
            if (!hasRoom || (m_wordWrap && item.path.boundingRect().left() < 0))
                item.path = QPainterPath();
        }
        across += line.advance;
    }
}

// Painting

void CWordProcess::horizontalPaint(QPainter *painter)
{
    paintLegacy(painter, &CWordProcess::drawHorizontalText);
}

void CWordProcess::verticalPaint(QPainter *painter)
{
    paintLegacy(painter, &CWordProcess::drawVerticalText);
}

void CWordProcess::paintLegacy(QPainter *painter, void (CWordProcess::*drawText)(QPainter *))
{
    painter->save();
    painter->setRenderHints(textHints, true);
    QPainterPath box;
    box.addRect(m_clientRect);
    if (m_wordWrap)
        painter->setClipPath(box, Qt::IntersectClip);
    if (m_editing)
        painter->strokePath(box, QPen(QBrush(frameColor), 1.0, Qt::SolidLine));
    if (m_document->isEmpty()) {
        painter->save();
        painter->setOpacity(emptyTextOpacity);
        painter->fillPath(box, emptyTextColor);
        painter->restore();
        drawDefaultWord(painter);
    } else {
        (this->*drawText)(painter);
    }
    painter->restore();
    painter->setRenderHints(textHints, false);
}

void CWordProcess::drawHorizontalText(QPainter *painter)
{
    drawRows(painter, rowBars);
}

void CWordProcess::drawVerticalText(QPainter *painter)
{
    drawRows(painter, columnBars);
}

void CWordProcess::drawRows(QPainter *painter, LegacyBars barsOf)
{
    const QVector<LegacyRow> rows = legacyRows();
    const LegacySpan span = selectedSpan(rows);
    UnderlineThickness thickness;
    for (int i = 0; i < rows.size(); ++i) {
        const LegacyRow &row = rows.at(i);
        QRectF selected;
        if (i >= span.from.row && i <= span.to.row)
            selected = rowBand(row, i == span.from.row ? span.from.along : row.start,
                               i == span.to.row ? span.to.along : rowEnd(row));
        paintSelection(painter, selected);
        double along = row.start;
        for (const STextItem &item : row.line->items) {
            const double end = along + legacyAdvance(item, row.spacing);
            QVector<QRectF> bars;
            if (item.strikeOut || item.underline)
                bars = barsOf(item, rowBand(row, along, end),
                              thickness.of(readRunStyle(item.format, m_documentDpi).font));
            paintItem(painter, item, bars, selected);
            along = end;
        }
    }
    if (m_cursorVisible)
        paintLegacyCaret(painter, legacyCaretLine(rows));
}

/// The caret as content painting shows it, and what is remembered of it.
void CWordProcess::paintLegacyCaret(QPainter *painter, const QLineF &caret)
{
    if (caret.isNull())
        return;
    m_legacyTextSize = caret.p2();
    m_cursorLine = sceneTransform().map(caret);
    m_cursorEndScenePos = m_cursorLine.p2();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    setTextCursorColor(painter);
    painter->drawLine(caret);
    painter->restore();
}

// The default word

void CWordProcess::drawDefaultWord(QPainter *painter)
{
    if (m_defaultWord.isEmpty())
        return;
    LegacyDefaultWord word = legacyDefaultWord();
    word.path.setFillRule(Qt::WindingFill);
    painter->fillPath(word.path, defaultWordColor);
    if (m_editing && m_cursorVisible)
        paintLegacyCaret(painter, word.caret);
    m_legacyTextSize = word.caret.p2();
}

QFont CWordProcess::legacyDefaultFont() const
{
    QFont font;
    if (!m_editing && m_defaultFollow) {
        font = hostDefaultFont();
        setMeasuringPixelSize(font, font.pointSize());
        font.setStyle(QFont::StyleItalic);
    } else {
        font = emptyBlockFont(m_cursor->charFormat(), m_documentDpi);
    }
    font.setUnderline(false);
    font.setStrikeOut(false);
    font.setOverline(false);
    return font;
}

CWordProcess::LegacyDefaultWord CWordProcess::legacyDefaultWord() const
{
    const QFont font = legacyDefaultFont();
    const int alignment = toWhole(m_cursor->blockFormat().property(TextProperty::Alignment));
    const double width = m_clientRect.width();
    const double height = m_clientRect.height();
    LegacyDefaultWord word;
    if (m_textOrientation == Qt::Horizontal) {
        word.path = textOutline(QPointF(0, 0), font, m_defaultWord);
        const QRectF ink = word.path.boundingRect();
        const double x = wordStart(alignment, Qt::AlignRight, Qt::AlignHCenter, width, ink.width());
        word.path.translate(x - ink.left(), -ink.top());
        const double caretX = alignment == Qt::AlignHCenter ? width * 0.5
                              : alignment == Qt::AlignRight ? width - caretInset
                                                            : caretInset;
        word.caret = QLineF(truncated(caretX), 0, truncated(caretX), truncated(ink.height()));
        return word;
    }
    word.path = pileOf(columnPieces(font, m_defaultWord));
    const QRectF ink = word.path.boundingRect();
    const double y = wordStart(alignment, Qt::AlignBottom, Qt::AlignVCenter, height, ink.height());
    word.path.translate(width - ink.right(), y);
    const int caretY = truncated(y + caretInset);
    word.caret = QLineF(truncated(width - ink.width()), caretY, truncated(width), caretY);
    return word;
}

QLineF CWordProcess::legacyCaretLine() const
{
    if (m_document->isEmpty())
        return m_defaultWord.isEmpty() ? QLineF() : legacyDefaultWord().caret;
    return legacyCaretLine(legacyRows());
}
