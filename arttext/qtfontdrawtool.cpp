// SPDX-License-Identifier: MIT
#include "arttext/qtfontdrawtool.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>

void CQtFontDrawTool::DrawFontPath(QPainter *painter, const QPainterPath &path, const QColor &color,
                                   int lastIndex)
{
    if (!painter)
        return;
    const QList<QPolygonF> strokes = path.toSubpathPolygons();
    const int last = std::min(lastIndex, strokes.size() - 1);
    for (int i = 0; i <= last; ++i) {
        QPainterPath stroke;
        stroke.addPolygon(strokes.at(i));
        painter->fillPath(stroke, QBrush(color));
    }
}

void CQtFontDrawTool::FillBackGround(QPainter *painter, const QColor &color, const QRectF &rect)
{
    if (painter)
        painter->fillRect(rect, color);
}

void CQtFontDrawTool::DrawGrid(QPainter *painter, const QColor &, const QRectF &rect, int kind)
{
    if (!painter)
        return;
    painter->setPen(Qt::DashLine);
    if (kind != Tian && kind != Mi)
        return;
    const QPointF centre = rect.center();
    painter->drawRect(rect);
    painter->drawLine(QPointF(rect.left(), centre.y()), QPointF(rect.right(), centre.y()));
    painter->drawLine(QPointF(centre.x(), rect.top()), QPointF(centre.x(), rect.bottom()));
    if (kind == Mi) {
        painter->drawLine(rect.topLeft(), rect.bottomRight());
        painter->drawLine(rect.topRight(), rect.bottomLeft());
    }
}
