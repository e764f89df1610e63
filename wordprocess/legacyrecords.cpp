// SPDX-License-Identifier: MIT
#include "wordprocess/legacyrecords.h"

#include "layout/runstyle.h"
#include "layout/textproperties.h"
#include "layout/units.h"
#include "wordprocess/numbers.h"

#include <QFontMetricsF>

void STextItem::spaceCounts(const QString &text, int &leading, int &trailing)
{
    leading = 0;
    trailing = 0;
    if (text.startsWith(QLatin1Char(' '))) {
        while (leading < text.size() && text.at(leading).isSpace())
            ++leading;
    }
    if (leading == text.size() || !text.endsWith(QLatin1Char(' ')))
        return;
    while (trailing < text.size() && text.at(text.size() - 1 - trailing).isSpace())
        ++trailing;
}

QSizeF STextItem::space_size(const QTextCharFormat &format, int dpi)
{
    QFont font = format.font();
    const double points = finiteReal(format.property(QTextFormat::FontPointSize));
    setMeasuringPixelSize(font, rounded(points * dpi / 72));
    const QFontMetricsF metrics(font);
    const double half = isHalfSize(format) ? 0.5 : 1.0;
    return QSizeF(scaleFactor(format, TextProperty::HorizontalScale)
                      * metrics.horizontalAdvance(u' ') * half,
                  scaleFactor(format, TextProperty::VerticalScale) * metrics.height() * half);
}
