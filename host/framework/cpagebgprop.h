// SPDX-License-Identifier: MIT
// cpagebgprop.h -- description of a fill.
#ifndef CPAGEBGPROP_H
#define CPAGEBGPROP_H

#include "host/framework/framework_global.h"

#include <QBrush>
#include <QColor>

class IVxPage;

class FRAMEWORK_EXPORT CPageBgProp
{
public:
    /// A disabled white fill. A plain colour asks nothing of \a page, which may be null.
    explicit CPageBgProp(IVxPage *page);

    void setFillEnable(bool enable) { m_enabled = enable; }
    bool isFillEnable() const { return m_enabled; }
    void setColor(const QColor &color) { m_color = color; }
    QColor color() const { return m_color; }
    /// The brush that fills \a rect: solid, or no brush while the fill is disabled. \a opaque drops
    /// the colour's transparency.
    QBrush createBrushByProp(const QRectF &rect, bool opaque) const;

private:
    bool m_enabled = false;
    QColor m_color = Qt::white;
};

#endif
