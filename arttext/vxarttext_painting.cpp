// SPDX-License-Identifier: MIT
// vxarttext_painting.cpp -- CVxArtText: what the object shows.
// Changes: m_scaledPaths and m_paintedRect, when the box is another than the last time.
#include "arttext/vxarttext.h"

#include "arttext/vxtextedit.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <mutex>

namespace {
const QColor hintColor(64, 64, 64); // of the word that stands for an empty text

/// Draws the edge of \a rect, as it is shown while the text is edited.
void drawEdge(QPainter *painter, const QRectF &rect, Qt::PenStyle style)
{
    painter->setPen(QPen(QColor(40, 40, 40, 200), 1.0, style, Qt::SquareCap, Qt::BevelJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(rect);
}
} // namespace

void CVxArtText::OnQPainterDraw(QPainter *painter)
{
    if (!painter)
        return;
    if (m_editing) {
        const std::lock_guard<PathsMutex> guard(m_pathsMutex);
        drawEdited(painter);
        return;
    }
    if (m_textEdit && m_textEdit->isVisible()) { // it lies over the object and shows the text
        drawEdge(painter, m_clientRect, Qt::DashDotDotLine);
        return;
    }
    painter->setRenderHint(QPainter::Antialiasing);
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    painter->setPen(outlinePen());
    painter->setBrush(outlineBrush());
    fitPaths();
    for (const QPainterPath &path : qAsConst(m_scaledPaths)) {
        if (!path.isEmpty())
            painter->drawPath(path);
    }
}

void CVxArtText::drawEdited(QPainter *painter)
{
    painter->fillRect(m_clientRect, Qt::gray);
    drawEdge(painter, m_clientRect, Qt::SolidLine);
    QStyleOptionGraphicsItem
        option; // neither selected nor focused: the object has handles of its own
    option.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    option.exposedRect = m_clientRect;
    QGraphicsTextItem::paint(painter, &option, nullptr);
}

/// The host's pen; the word that stands for an empty text is dark grey whatever the object's colours.
QPen CVxArtText::outlinePen() const
{
    const QPen pen = getMyPen();
    if (pen.style() == Qt::NoPen)
        return pen;
    if (m_textWord.isEmpty())
        return QPen(hintColor);
    return pen.widthF() == 0 ? QPen(Qt::NoPen) : pen;
}

/// The host's fill, or dark grey in the same way.
QBrush CVxArtText::outlineBrush() const
{
    const QBrush brush = getFillProp().createBrushByProp(m_clientRect, /*opaque=*/false);
    if (brush.style() == Qt::NoBrush || !m_textWord.isEmpty())
        return brush;
    CPageBgProp hint(nullptr);
    hint.setFillEnable(true);
    hint.setColor(hintColor);
    return hint.createBrushByProp(m_clientRect, /*opaque=*/false);
}

QPainterPath CVxArtText::getClientPath()
{
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    fitPaths();
    if (m_scaledPaths.isEmpty())
        return CBaseObject::getClientPath();
    QPainterPath all;
    all.setFillRule(Qt::WindingFill); // characters that overlap are no holes
    for (const QPainterPath &path : qAsConst(m_scaledPaths))
        all.addPath(path);
    return all;
}
