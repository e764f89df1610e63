// SPDX-License-Identifier: MIT
#include "layout/units.h"

#include <QtMath>

qreal finiteReal(const QVariant &value)
{
    const qreal real = value.toReal();
    return qIsFinite(real) ? real : 0.0;
}

void setMeasuringPixelSize(QFont &font, qint64 pixels)
{
    if (pixels > 0)
        font.setPixelSize(int(qMin<qint64>(pixels, MaximumPixelSize)));
    else
        font = withBoundedSize(font);
}

QFont withBoundedSize(const QFont &font)
{
    // Either size is -1 while the other one is set. Not-a-number fails the comparison too.
    if (font.pixelSize() <= MaximumPixelSize && font.pointSizeF() <= MaximumPixelSize)
        return font;
    QFont bounded(font);
    bounded.setPixelSize(MaximumPixelSize);
    return bounded;
}
