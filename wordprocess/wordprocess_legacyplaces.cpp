// SPDX-License-Identifier: MIT
// wordprocess_legacyplaces.cpp -- CWordProcess: places on the lines of the older layout: where a position of the
// document stands, which one lies under a point, what of a line is selected.
// Changes: the selection by selectLegacyLine(), nothing else. Lines and columns are read alike: along the line,
// and across it in the direction in which lines follow each other.
#include "wordprocess/legacyplaces.h"

#include "layout/outlines.h"
#include "wordprocess/codepoints.h"

#include <algorithm>

namespace {
constexpr double lineStartInset = 5.0; // deliberate: a caret ahead of the first character of a line
constexpr int longestWalk = 256;       // characters of a run whose prefixes are all measured

/// True when no prefix of \a item reaches further than a longer one.
bool rises(const STextItem &item, double spacing)
{
    return item.letterSpacing >= 0 && item.selectedLetterSpacing >= 0 && spacing >= 0
           && item.spaceWidth >= 0
           && std::all_of(item.text.cbegin(), item.text.cend(), standsForItself);
}

bool holds(const STextItem &item, int position)
{
    return !item.isHyphen && position >= item.firstPosition()
           && position <= item.firstPosition() + item.text.length();
}

bool holds(const STextLine &line, int position)
{
    for (const STextItem &item : line.items) {
        if (holds(item, position))
            return true;
    }
    return false;
}

/// Behind the last character of the line that stands in the document; -1 for none.
int endOf(const STextLine &line)
{
    for (int i = line.items.size() - 1; i >= 0; --i) {
        const STextItem &item = line.items.at(i);
        if (!item.isHyphen)
            return item.firstPosition() + item.text.length();
    }
    return -1;
}
} // namespace

/// The lines that show, in order.
QVector<CWordProcess::LegacyRow> CWordProcess::legacyRows() const
{
    QVector<LegacyRow> rows;
    double across = 0;
    for (const STextLine &line : m_legacyLines) {
        double start = 0;
        double spacing = 0;
        if (!line.items.isEmpty() && lineXOffset(line, m_legacyExtent, start, spacing))
            rows.append({&line, across, start, spacing, across + line.advance});
        across += line.advance;
    }
    if (!rows.isEmpty()) { // nothing follows that could begin within the last one
        LegacyRow &last = rows.last();
        last.edge = qMax(last.edge, last.across + last.line->firstLineSpace + last.line->height);
    }
    return rows;
}

/// What an item takes along its line, clipped or not.
double CWordProcess::legacyAdvance(const STextItem &item, double spacing) const
{
    if (item.path.isEmpty())
        return item.placedAdvance;
    // A record may hold any number: what is not horizontal runs in columns.
    const bool isRow = m_textOrientation == Qt::Horizontal;
    return item.itemWidth(isRow ? Qt::Horizontal : Qt::Vertical, spacing);
}

/// How far the first \a length characters of an item reach.
double CWordProcess::legacyPrefix(const STextItem &item, int length, double spacing) const
{
    if (length <= 0)
        return 0;
    if (length >= item.text.length())
        return legacyAdvance(item, spacing);
    const QString prefix = item.text.left(length);
    double advance = 0;
    const QRectF ink = fragmentPath(QPointF(0, 0), item.format, prefix, advance, spacing,
                                    item.upright)
                           .boundingRect();
    int leading = 0;
    int trailing = 0;
    STextItem::spaceCounts(prefix, leading, trailing);
    const double space = STextItem::space_size(item.format, m_documentDpi).width()
                         + item.selectedLetterSpacing + spacing;
    return (m_textOrientation == Qt::Horizontal ? ink.width() : ink.height())
           + (leading + trailing) * space + spacing;
}

/// How many characters of an item lie before \a along, which counts from its start.
int CWordProcess::charactersBefore(const STextItem &item, double along, double spacing) const
{
    const QString &text = item.text;
    const bool isShort = text.length() <= longestWalk;
    if (rises(item, spacing) || !isShort) // much longer prefixes reach further in any script
        return charactersBeforeByHalving(item, along, spacing);
    int length = 0;
    double end = 0;
    while (length < text.length()) {
        const int next = indexAfter(text, length);
        const double nextEnd = legacyPrefix(item, next, spacing);
        if (along <= (end + nextEnd) / 2)
            return length;
        length = next;
        end = nextEnd;
    }
    return text.length();
}

int CWordProcess::charactersBeforeByHalving(const STextItem &item, double along,
                                            double spacing) const
{
    const QString &text = item.text;
    int least = 0;
    int most = text.length();
    while (least < most) {
        int middle = least + (most - least) / 2;
        if (splitsPair(text, middle))
            --middle; // not below least, which splits none
        const int next = indexAfter(text, middle);
        const double end = legacyPrefix(item, middle, spacing);
        if (along <= (end + legacyPrefix(item, next, spacing)) / 2)
            most = middle;
        else
            least = next;
    }
    return least;
}

int CWordProcess::positionInRow(const LegacyRow &row, double along) const
{
    double start = row.start;
    for (const STextItem &item : row.line->items) {
        const double end = start + legacyAdvance(item, row.spacing);
        if (along < end && !item.isHyphen)
            return item.firstPosition() + charactersBefore(item, along - start, row.spacing);
        start = end;
    }
    return row.line->items.first().firstPosition() + row.line->length();
}

int CWordProcess::legacyPositionUnder(const QPointF &point)
{
    const bool isHorizontal = m_textOrientation == Qt::Horizontal;
    const double across = isHorizontal ? point.y() : m_legacyFlow - point.x();
    const double along = isHorizontal ? point.x() : point.y();
    const QVector<LegacyRow> rows = legacyRows();
    for (const LegacyRow &row : rows) {
        if (across < row.edge)
            return qBound(0, positionInRow(row, along), m_document->characterCount() - 1);
    }
    return -1;
}

void CWordProcess::selectLegacyLine(int position)
{
    for (const STextLine &line : qAsConst(m_legacyLines)) {
        if (!holds(line, position))
            continue;
        const int documentEnd = m_document->characterCount() - 1;
        m_selStart = qBound(0, line.items.first().firstPosition(), documentEnd);
        m_selEnd = qBound(m_selStart, endOf(line), documentEnd);
        m_selAnchor = m_selStart;
        m_cursor->setPosition(m_selStart);
        m_cursor->setPosition(m_selEnd, QTextCursor::KeepAnchor);
        return;
    }
}

/// Where a position stands: as for the keys, on the first line that holds it. In that line the later one of two
/// items that meet there tells the place.
std::optional<CWordProcess::LegacyPlace> CWordProcess::legacyPlaceOf(
    int position, const QVector<LegacyRow> &rows) const
{
    for (int i = 0; i < rows.size(); ++i) {
        const LegacyRow &row = rows.at(i);
        const QList<STextItem> &items = row.line->items;
        std::optional<LegacyPlace> place;
        double start = row.start;
        for (int k = 0; k < items.size(); ++k) {
            const STextItem &item = items.at(k);
            if (holds(item, position)) {
                const int length = position - item.firstPosition();
                const double inset = k == 0 && length == 0 ? lineStartInset : 0;
                place = LegacyPlace{i, start + legacyPrefix(item, length, row.spacing) + inset};
            }
            start += legacyAdvance(item, row.spacing);
        }
        if (place)
            return place;
    }
    return std::nullopt;
}

/// What is selected of the lines that show. An end that stands on none of them gives way to the lines within.
CWordProcess::LegacySpan CWordProcess::selectedSpan(const QVector<LegacyRow> &rows) const
{
    LegacySpan span;
    int start = 0;
    int end = 0;
    if (!m_editing || rows.isEmpty() || !selection(start, end))
        return span;
    int first = 0;
    while (first < rows.size() && rows.at(first).line->items.first().firstPosition() < start)
        ++first;
    int last = rows.size() - 1;
    while (last >= 0 && rows.at(last).line->items.first().firstPosition() > end)
        --last;
    const double rowStart = first < rows.size() ? rows.at(first).start : 0;
    span.from = legacyPlaceOf(start, rows).value_or(LegacyPlace{first, rowStart});
    span.to = legacyPlaceOf(end, rows).value_or(
        LegacyPlace{last, last < 0 ? 0 : rowEnd(rows.at(last))});
    return span;
}

/// Where the last item of a line ends.
double CWordProcess::rowEnd(const LegacyRow &row) const
{
    double end = row.start;
    for (const STextItem &item : row.line->items)
        end += legacyAdvance(item, row.spacing);
    return end;
}

/// The part of a line between two places along it, item coordinates.
QRectF CWordProcess::rowBand(const LegacyRow &row, double from, double to) const
{
    const double across = row.across + row.line->firstLineSpace;
    const double height = row.line->height;
    if (m_textOrientation == Qt::Horizontal)
        return QRectF(from, across, to - from, height);
    return QRectF(m_legacyFlow - across - height, from, height, to - from);
}

QLineF CWordProcess::legacyCaretLine(const QVector<LegacyRow> &rows) const
{
    const std::optional<LegacyPlace> place = legacyPlaceOf(m_cursor->position(), rows);
    if (!place)
        return QLineF();
    const QRectF band = rowBand(rows.at(place->row), place->along, place->along);
    return QLineF(band.topLeft(), band.bottomRight());
}
