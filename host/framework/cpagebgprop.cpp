// SPDX-License-Identifier: MIT
// cpagebgprop.cpp -- CPageBgProp.
#include "host/framework/cpagebgprop.h"

#include <QRectF>

CPageBgProp::CPageBgProp(IVxPage * /*page*/) {}

QBrush CPageBgProp::createBrushByProp(const QRectF &rect, bool opaque) const
{
    if (!m_enabled || rect.isEmpty() || !m_color.isValid())
        return QBrush(Qt::NoBrush);
    QColor color = m_color;
    if (opaque)
        color.setAlpha(255);
    return QBrush(color);
}
