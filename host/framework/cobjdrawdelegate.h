// SPDX-License-Identifier: MIT
// cobjdrawdelegate.h -- what the host paints on an object's behalf.
#ifndef COBJDRAWDELEGATE_H
#define COBJDRAWDELEGATE_H

#include "host/framework/framework_global.h"

#include <QPainterPath>

class QPainter;

class FRAMEWORK_EXPORT CObjDrawDelegate
{
public:
    /// Area in item coordinates that is shown inverted against its background; empty for none.
    void setInvertArea(QPainterPath &area) { m_invertArea = area; }
    const QPainterPath &invertArea() const { return m_invertArea; }
    /// Inverts the area: the difference with white, so that inverting twice restores the picture.
    void paintInvertArea(QPainter *painter) const;

private:
    QPainterPath m_invertArea;
};

#endif
