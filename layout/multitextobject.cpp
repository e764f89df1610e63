// SPDX-License-Identifier: MIT
// CMultiTextOjbect: what both directions of box text begin and end with, splits, placeholder.
#include "layout/multitextobject.h"

#include "layout/multitextrun.h"
#include "layout/textproperties.h"
#include "layout/textrun.h"
#include "layout/texttools.h"

#include <QTextCursor>
#include <QTextDocument>

namespace {

// Distance of the placeholder's caret from the side of the box that it is aligned to.
constexpr qreal rowCaretMargin = 2.0;
constexpr qreal columnCaretMargin = 5.0;

// Where a placeholder and its caret stand along the line.
struct PlaceholderPlace {
    qreal start = 0;
    qreal caret = 0;
};

PlaceholderPlace placeInRow(int alignment, qreal room, qreal length)
{
    if (alignment == Qt::AlignHCenter)
        return {(room - length) / 2, room / 2};
    if (alignment == Qt::AlignRight)
        return {room - length, room - rowCaretMargin};
    return {0, rowCaretMargin};
}

PlaceholderPlace placeInColumn(int alignment, qreal room, qreal length)
{
    if (alignment == Qt::AlignVCenter)
        return {(room - length) / 2, room / 2};
    if (alignment == Qt::AlignBottom)
        return {room - length, room - columnCaretMargin};
    return {0, columnCaretMargin};
}

QList<QString> codePoints(const QString &text)
{
    QList<QString> result;
    for (int i = 0; i < text.length();) {
        const int length = text.at(i).isHighSurrogate() && i + 1 < text.length()
                                   && text.at(i + 1).isLowSurrogate()
                               ? 2
                               : 1;
        result.append(text.mid(i, length));
        i += length;
    }
    return result;
}

// The first character alone decides how all of them stand.
QList<QPainterPath> columnPlaceholderPieces(const QString &text, const QFont &font)
{
    const QPointF pen(0, 0);
    QList<QPainterPath> pieces;
    if (!CTextTools::isCJKChar(text.at(0))) {
        pieces.append(CTextTools::getRotatePath(textOutline(pen, font, text), pen, 90));
        return pieces;
    }
    const QList<QString> characters = codePoints(text);
    for (const QString &character : characters)
        pieces.append(textOutline(pen, font, character));
    return pieces;
}

struct Placeholder {
    QPainterPath outline;
    QLineF caret;
};

Placeholder placeholderRow(const QString &text, const QFont &font, int alignment, qreal room)
{
    QPainterPath outline = textOutline(QPointF(0, 0), font, text);
    const QRectF ink = outline.boundingRect();
    const PlaceholderPlace place = placeInRow(alignment, room, ink.width());
    outline.translate(place.start - ink.left(), -ink.top());
    outline.setFillRule(Qt::WindingFill);
    return {outline, QLineF(place.caret, 0, place.caret, ink.height())};
}

// The pieces pile up against the right of the box.
Placeholder placeholderColumn(const QString &text, const QFont &font, int alignment,
                              const QSizeF &box)
{
    const QList<QPainterPath> pieces = columnPlaceholderPieces(text, font);
    qreal total = 0;
    qreal widest = 0;
    for (const QPainterPath &piece : pieces) {
        total += piece.boundingRect().height();
        widest = qMax(widest, piece.boundingRect().width());
    }
    const PlaceholderPlace place = placeInColumn(alignment, box.height(), total);
    QPainterPath outline;
    qreal top = place.start;
    for (const QPainterPath &piece : pieces) {
        const QRectF ink = piece.boundingRect();
        outline.addPath(piece.translated(box.width() - widest - ink.left(), top - ink.top()));
        top += ink.height();
    }
    const QRectF ink = outline.boundingRect();
    return {outline, QLineF(ink.left(), place.caret, ink.right(), place.caret)};
}

} // namespace

CMultiTextOjbect::CMultiTextOjbect(CWordProcess *object)
    : CTextObjectBase(object)
{
}

QList<QString> CMultiTextOjbect::punctSplit(const QString &text) const
{
    return punctuationPieces(text);
}

QList<QString> CMultiTextOjbect::CJKSplit(const QString &text) const
{
    return uprightPieces(text);
}

BoxPass CMultiTextOjbect::startPass()
{
    if (m_outlines.startLayout())
        m_blocks.clear();
    const TextScales factors = scales();
    BoxPass pass(box(), dpi(), factors.transformScaleX * factors.scaleX,
                 factors.transformScaleY * factors.scaleY, orientation(), m_outlines, m_blocks);
    pass.layout = startLayout();
    pass.followsText = autoWordWrap();
    pass.search = m_search;
    m_blocks.startLayout({qreal(pass.layout.orientation), qreal(pass.dpi), pass.box.x(),
                          pass.box.y(), pass.box.width(), pass.box.height(), pass.kx, pass.ky,
                          qreal(pass.followsText), qreal(pass.search)},
                         document()->blockCount());
    return pass;
}

// Ends every layout. The lines hold the outlines, and a second copy of all of them would only cost
// memory. A pending stretch has taken effect now and is folded into the lasting one.
void CMultiTextOjbect::publish(const BoxPass &pass, const QRectF &box)
{
    m_blocks.endLayout();
    updateData(pass.layout, box, unitedLineRects(pass.layout.lines), QPainterPath());
    setScales({1.0, 1.0, pass.kx, pass.ky});
}

void CMultiTextOjbect::defaultWordLayout()
{
    if (defaultWord().isEmpty())
        return;
    const QFont font = placeholderFont(cursor()->charFormat(), dpi());
    const int alignment = cursor()->blockFormat().property(TextProperty::Alignment).toInt();
    const QRectF rect = box();
    const Placeholder shown = orientation() == Qt::Horizontal
                                  ? placeholderRow(defaultWord(), font, alignment, rect.width())
                                  : placeholderColumn(defaultWord(), font, alignment, rect.size());
    m_defaultCursorLine = shown.caret;
    updateData(TextLayout(), rect, rect, shown.outline);
    // The box has its stretch already; one that stayed pending would widen it with every layout.
    const TextScales factors = scales();
    setScales({1.0, 1.0, factors.transformScaleX * factors.scaleX,
               factors.transformScaleY * factors.scaleY});
}
