// SPDX-License-Identifier: MIT
// CSingleTextObject: the placeholder word of an empty document.
#include "layout/singletextobject.h"

#include "layout/runstyle.h"
#include "layout/textrun.h"
#include "layout/textproperties.h"
#include "layout/texttools.h"

#include <QTextCursor>

namespace {

// What the cursor's formats say about the placeholder.
struct PlaceholderStyle {
    QFont font;
    qreal offset = 0; // pixels
    qreal scaleX = 1;
    qreal scaleY = 1;
    int alignment = 0;
};

PlaceholderStyle readPlaceholderStyle(const QTextCursor &cursor, int dpi)
{
    const QTextCharFormat format = cursor.charFormat();
    PlaceholderStyle style;
    style.offset = baselineOffset(format, dpi);
    style.scaleX = scaleFactor(format, TextProperty::HorizontalScale);
    style.scaleY = scaleFactor(format, TextProperty::VerticalScale);
    style.font = placeholderFont(format, dpi);
    style.alignment = cursor.blockFormat().property(TextProperty::Alignment).toInt();
    return style;
}

// How far a placeholder of this length moves back along its line.
qreal alignedShift(int alignment, qreal length)
{
    if (alignment == Qt::AlignRight || alignment == Qt::AlignBottom)
        return -length;
    if (alignment == Qt::AlignHCenter || alignment == Qt::AlignVCenter)
        return -length / 2;
    return 0;
}

// Piles the pieces of a vertical placeholder up, each centred on the anchor's x.
class PlaceholderPile
{
public:
    PlaceholderPile(const PlaceholderStyle &style, const QPointF &anchor)
        : m_style(style)
        , m_anchor(anchor)
        , m_gap(CTextTools::getHalfAngleSize(style.font, style.scaleY))
    {
    }

    void addSideways(const QString &text)
    {
        const QPainterPath outline = outlineOf(text);
        add(CTextTools::getRotatePath(outline, outline.boundingRect().center(), 90));
    }

    void addUpright(const QString &text) { add(outlineOf(text)); }

    QPainterPath outlines() const { return m_outlines; }

private:
    QPainterPath outlineOf(const QString &text) const
    {
        return textOutline(QPointF(0, 0), m_style.font, text);
    }

    void add(const QPainterPath &outline)
    {
        const QPainterPath piece = CTextTools::GetScalePath(outline, m_style.scaleX,
                                                            m_style.scaleY);
        const QRectF ink = piece.boundingRect();
        const QPointF shift(m_anchor.x() - ink.center().x(), m_pen + m_anchor.y() - ink.top());
        m_outlines.addPath(CTextTools::GetTranslatePath(piece, shift));
        m_pen += m_gap + ink.height();
    }

    const PlaceholderStyle &m_style;
    QPointF m_anchor;
    qreal m_gap;
    qreal m_pen = 0;
    QPainterPath m_outlines;
};

// Cut like the text of a column: upright characters one by one, the stretches between on their
// side.
QPainterPath pileUp(const QString &text, const PlaceholderStyle &style, const QPointF &anchor)
{
    PlaceholderPile pile(style, anchor);
    int pending = 0;
    for (int i = 0; i < text.length(); ++i) {
        if (!CTextTools::isCJKChar(text.at(i)))
            continue;
        if (i > pending)
            pile.addSideways(text.mid(pending, i - pending));
        pile.addUpright(text.mid(i, 1));
        pending = i + 1;
    }
    if (text.length() > pending)
        pile.addSideways(text.mid(pending));
    return pile.outlines();
}

} // namespace

QPainterPath CSingleTextObject::horizontalPlaceholder(QRectF &rect) const
{
    const PlaceholderStyle style = readPlaceholderStyle(*cursor(), dpi());
    const QPointF anchor = textOffset();
    QPainterPath outline = scaleAbout(anchor, style.scaleX, style.scaleY)
                               .map(textOutline(anchor, style.font, defaultWord()));
    const QRectF ink = outline.boundingRect();
    outline.translate(alignedShift(style.alignment, ink.width()), -style.offset);
    outline.setFillRule(Qt::WindingFill);

    // Spans the place before and after the move across the line.
    const QRectF moved = outline.boundingRect();
    if (style.offset < 0)
        rect = QRectF(moved.left(), ink.top(), moved.width(), moved.bottom() - ink.top());
    else
        rect = QRectF(moved.left(), moved.top(), moved.width(), ink.bottom() - moved.top());
    return outline;
}

QPainterPath CSingleTextObject::verticalPlaceholder(QRectF &rect) const
{
    const PlaceholderStyle style = readPlaceholderStyle(*cursor(), dpi());
    QPainterPath outline = pileUp(defaultWord(), style, textOffset());
    const QRectF ink = outline.boundingRect();
    outline.translate(style.offset, alignedShift(style.alignment, ink.height()));
    outline.setFillRule(Qt::WindingFill);

    const QRectF moved = outline.boundingRect();
    if (style.offset < 0)
        rect = QRectF(moved.topLeft(), QPointF(ink.right(), moved.bottom()));
    else
        rect = QRectF(QPointF(ink.left(), moved.top()), moved.bottomRight());
    return outline;
}

void CSingleTextObject::defaultWordLayout()
{
    if (defaultWord().isEmpty())
        return;
    const bool isHorizontal = orientation() == Qt::Horizontal;
    const QPointF anchor = textOffset();
    QRectF rect;
    const QPainterPath outline = isHorizontal ? horizontalPlaceholder(rect)
                                              : verticalPlaceholder(rect);
    updateData(TextLayout(), rect, rect, outline);
    m_defaultCursorLine = isHorizontal ? QLineF(anchor.x(), rect.top(), anchor.x(), rect.bottom())
                                       : QLineF(rect.left(), anchor.y(), rect.right(), anchor.y());
}
