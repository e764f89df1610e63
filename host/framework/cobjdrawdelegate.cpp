// SPDX-License-Identifier: MIT
// cobjdrawdelegate.cpp -- CObjDrawDelegate.
#include "host/framework/cobjdrawdelegate.h"

#include <QPainter>

void CObjDrawDelegate::paintInvertArea(QPainter *painter) const
{
    if (!painter || m_invertArea.isEmpty())
        return;
    painter->save();
    painter->setCompositionMode(QPainter::CompositionMode_Difference);
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->fillPath(m_invertArea, Qt::white);
    painter->restore();
}
