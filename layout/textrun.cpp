// SPDX-License-Identifier: MIT
#include "layout/textrun.h"

#include "layout/texttools.h"

#include <QTextBlock>

QPainterPath sidewaysOutline(const QPainterPath &outline, const QPointF &pen, qreal halfCapital)
{
    QPainterPath turned = CTextTools::getRotatePath(outline, pen, 90);
    turned.translate(-halfCapital, 0);
    return turned;
}

qreal halfCapitalHeight(const QFont &font)
{
    return textOutline(QPointF(0, 0), font, QStringLiteral("A")).boundingRect().height() / 2;
}

QPainterPath uprightOutline(QPainterPath outline, const QPointF &pen, qreal width, qreal cell)
{
    if (outline.isEmpty())
        return outline;
    const QRectF ink = outline.boundingRect();
    outline.translate(-width / 2, pen.y() + (cell - ink.height()) / 2 - ink.top());
    return outline;
}

qreal setSuperOrSubscript(QPainterPath &outline, const QPointF &pen, bool isSuperscript)
{
    const QRectF full = outline.boundingRect();
    outline = scaleAbout(pen, 0.5, 0.5).map(outline);
    if (outline.isEmpty())
        return 0;
    const QRectF half = outline.boundingRect();
    const qreal movement = isSuperscript ? full.top() - half.top()
                                         : (full.bottom() - 0.5 * half.height()) - half.top();
    outline.translate(0, movement);
    return movement;
}

TextLine emptyBlockLine(const QTextBlock &block, int dpi)
{
    TextFragment placeholder;
    placeholder.position = block.position();
    placeholder.format = block.charFormat();
    placeholder.isEmptyBlock = true;

    TextLine line;
    line.fragments.append(placeholder);
    line.isEmptyBlock = true;
    line.position = block.position();
    line.length = block.length();
    line.font = emptyBlockFont(placeholder.format, dpi);
    return line;
}
