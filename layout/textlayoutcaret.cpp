// SPDX-License-Identifier: MIT
// Caret and selection geometry over the layout records. The horizontal and the vertical functions
// are pairs that differ on purpose in a few places; each place says so.
#include "layout/textlayout.h"

#include <QFontMetricsF>

namespace {

QString headOf(const TextFragment &run, int pos)
{
    return run.text.left(pos - run.position);
}

qreal headWidth(const TextFragment &run, const QString &head, qreal scale)
{
    return QFontMetricsF(run.font).horizontalAdvance(head) * scale;
}

// x of the caret at a position that the run contains.
qreal horizontalCaret(const TextFragment &run, int pos)
{
    const QString head = headOf(run, pos);
    if (head.isEmpty())
        return run.start;
    if (head == run.text)
        return run.start + run.advance;
    const qreal width = headWidth(run, head, run.scaleX);
    return run.start + (run.isHalfPunct ? width / 2 : width);
}

// x where a selection ends that begins in the same line. The empty head has no case of its own:
// a compressed character is then covered as a whole.
qreal horizontalNearEnd(const TextFragment &run, int pos)
{
    const QString head = headOf(run, pos);
    if (head == run.text || run.isHalfPunct)
        return run.start + run.advance;
    return run.start + headWidth(run, head, run.scaleX);
}

// x of any other border of a selection.
qreal horizontalBorder(const TextFragment &run, int pos)
{
    return headOf(run, pos).isEmpty() ? run.start : horizontalNearEnd(run, pos);
}

// y of a position inside a run that lies on its side.
qreal verticalRunOffset(const TextFragment &run, int pos)
{
    const QString head = headOf(run, pos);
    if (head.isEmpty())
        return run.start;
    if (head == run.text)
        return run.start + run.advance;
    return run.start + headWidth(run, head, run.scaleY);
}

// y of a position in any run but the end in the last column of a selection.
qreal verticalOffset(const TextLine &line, const TextFragment &run, int pos)
{
    if (run.isCJK)
        return pos == line.position ? run.start : run.start + run.advance;
    return verticalRunOffset(run, pos);
}

// y where a selection ends that begins in the same column.
qreal verticalNearEnd(const TextLine &line, const TextFragment &run, int pos)
{
    if (run.isCJK)
        return verticalOffset(line, run, pos);
    const QString head = headOf(run, pos);
    if (head == run.text)
        return run.start + run.advance;
    return run.start + headWidth(run, head, run.scaleY);
}

// y where a selection ends in a later column. An upright character deliberately compares the
// column's position with its own coordinate, which in practice gives its far end.
qreal verticalFarEnd(const TextLine &line, const TextFragment &run, int pos)
{
    if (run.isCJK)
        return line.position == run.start ? run.start : run.start + run.advance;
    return verticalRunOffset(run, pos);
}

// Index of the first run from \a from on that contains pos, or the number of runs.
int findRun(const TextLine &line, int pos, int from = 0)
{
    int i = from;
    while (i < line.fragments.size() && !line.fragments.at(i).contains(pos))
        ++i;
    return i;
}

bool isPastEnd(const TextLine &line, int pos, bool forward)
{
    return forward && pos == line.position + line.length;
}

// The line that shows the caret at pos, or null.
const TextLine *caretLine(const QList<TextLine> &lines, int pos, bool forward)
{
    for (const TextLine &line : lines) {
        if (!line.contains(pos))
            continue;
        if (line.isEmptyBlock || !isPastEnd(line, pos, forward))
            return &line;
    }
    return nullptr;
}

// A line or column at which a selection begins; the far edge is that of the ink.
QRectF horizontalFirst(const TextLine &line, int start, int end)
{
    const int first = findRun(line, start);
    const qreal x1 = first < line.fragments.size()
                         ? horizontalBorder(line.fragments.at(first), start)
                         : -1.0;
    qreal x2 = line.path.isEmpty() ? x1 : line.path.boundingRect().right();
    if (line.contains(end)) {
        const int last = findRun(line, end, first);
        if (last < line.fragments.size())
            x2 = horizontalNearEnd(line.fragments.at(last), end);
    }
    return QRectF(x1, line.rect.top(), x2 - x1, line.rect.height());
}

QRectF verticalFirst(const TextLine &line, int start, int end)
{
    const int first = findRun(line, start);
    const qreal y1 = first < line.fragments.size()
                         ? verticalOffset(line, line.fragments.at(first), start)
                         : -1.0;
    qreal y2 = line.path.isEmpty() ? y1 : line.path.boundingRect().bottom();
    if (line.contains(end)) {
        const int last = findRun(line, end, first);
        if (last < line.fragments.size())
            y2 = verticalNearEnd(line, line.fragments.at(last), end);
    }
    return QRectF(line.rect.left(), y1, line.rect.width(), y2 - y1);
}

// A later line or column in which a selection ends.
QRectF horizontalLast(const TextLine &line, int end)
{
    const int last = findRun(line, end);
    qreal x = line.path.isEmpty() ? line.rect.left() : line.path.boundingRect().right();
    if (last < line.fragments.size())
        x = horizontalBorder(line.fragments.at(last), end);
    return QRectF(line.rect.left(), line.rect.top(), x - line.rect.left(), line.rect.height());
}

QRectF verticalLast(const TextLine &line, int end)
{
    const int last = findRun(line, end);
    qreal y = line.path.isEmpty() ? line.rect.top() : line.path.boundingRect().bottom();
    if (last < line.fragments.size())
        y = verticalFarEnd(line, line.fragments.at(last), end);
    return QRectF(line.rect.left(), line.rect.top(), line.rect.width(), y - line.rect.top());
}

QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect.normalized());
    return path;
}

using FirstArea = QRectF (*)(const TextLine &, int, int);
using LastArea = QRectF (*)(const TextLine &, int);

// One rectangle for each touched line. Empty blocks at either end add none.
QList<QRectF> selectionAreas(const QList<TextLine> &lines, int start, int end, bool forward,
                             FirstArea firstArea, LastArea lastArea)
{
    QList<QRectF> areas;
    bool inside = false;
    for (const TextLine &line : lines) {
        if (inside) {
            if (!line.contains(end)) {
                areas.append(line.rect);
                continue;
            }
            if (!line.isEmptyBlock)
                areas.append(lastArea(line, end));
            break;
        }
        if (!line.contains(start) || (!line.isEmptyBlock && isPastEnd(line, start, forward)))
            continue;
        inside = true;
        if (!line.isEmptyBlock)
            areas.append(firstArea(line, start, end));
        if (line.contains(end))
            break;
    }
    return areas;
}

// Unites the areas from begin on, end excluded. Halving instead of adding one after the other keeps
// the operands small: a long selection would otherwise cost the square of its lines.
QPainterPath unitedRange(const QList<QRectF> &areas, int begin, int end)
{
    if (begin >= end)
        return QPainterPath();
    if (end - begin == 1)
        return rectPath(areas.at(begin));
    const int middle = begin + (end - begin) / 2;
    return unitedRange(areas, begin, middle).united(unitedRange(areas, middle, end));
}

QPainterPath unitedAreas(const QList<QRectF> &areas)
{
    QPainterPath path = unitedRange(areas, 0, areas.size());
    path.setFillRule(Qt::WindingFill);
    return path;
}

} // namespace

QLineF TextLayout::cursorLine(int pos, bool forward) const
{
    return orientation == Qt::Horizontal ? horizontalCursor(pos, forward)
                                         : verticalCursor(pos, forward);
}

QLineF TextLayout::horizontalCursor(int pos, bool forward) const
{
    const TextLine *line = caretLine(lines, pos, forward);
    if (!line)
        return QLineF();
    qreal x = 0;
    if (line->isEmptyBlock) {
        x = line->origin.x();
    } else {
        const int run = findRun(*line, pos);
        if (run < line->fragments.size())
            x = horizontalCaret(line->fragments.at(run), pos);
    }
    return QLineF(x, line->rect.top(), x, line->rect.top() + line->rect.height());
}

QLineF TextLayout::verticalCursor(int pos, bool forward) const
{
    const TextLine *line = caretLine(lines, pos, forward);
    if (!line)
        return QLineF();
    qreal y = 0;
    if (line->isEmptyBlock) {
        y = line->origin.y();
    } else {
        const int run = findRun(*line, pos);
        if (run < line->fragments.size())
            y = verticalOffset(*line, line->fragments.at(run), pos);
    }
    return QLineF(line->rect.left(), y, line->rect.left() + line->rect.width(), y);
}

QPainterPath TextLayout::selectionPath(int start, int end, bool forward) const
{
    return orientation == Qt::Horizontal ? horizontalSelectionPath(start, end, forward)
                                         : verticalSelectionPath(start, end, forward);
}

QPainterPath TextLayout::horizontalSelectionPath(int start, int end, bool forward) const
{
    return unitedAreas(selectionAreas(lines, start, end, forward, horizontalFirst, horizontalLast));
}

QPainterPath TextLayout::verticalSelectionPath(int start, int end, bool forward) const
{
    return unitedAreas(selectionAreas(lines, start, end, forward, verticalFirst, verticalLast));
}
