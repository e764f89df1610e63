// SPDX-License-Identifier: MIT
#include "app/page/textwarp.h"

#include <cmath>

namespace {

bool readNumber(const QString &text, double &number, QString &reason)
{
    bool isNumber = false;
    number = text.toDouble(&isNumber);
    if (isNumber && std::isfinite(number))
        return true;
    reason = QStringLiteral("'%1' is no number that can be used").arg(text);
    return false;
}

bool readValue(const QString &text, double &value, QString &reason)
{
    if (!readNumber(text, value, reason))
        return false;
    if (value >= -1 && value <= 1)
        return true;
    reason = QStringLiteral("the value '%1' is not from -1 to 1").arg(text);
    return false;
}

bool readStyle(const QString &name, int &style, QString &reason)
{
    style = warpStyleNames().indexOf(name) + 1;
    if (style > 0)
        return true;
    reason = QStringLiteral("there is no style '%1', only %2")
                 .arg(name, warpStyleNames().join(QLatin1String(", ")));
    return false;
}

} // namespace

const QStringList &warpStyleNames()
{
    static const QStringList names{
        QStringLiteral("arc"),         QStringLiteral("arc-lower"), QStringLiteral("arc-upper"),
        QStringLiteral("arch"),        QStringLiteral("bulge"),     QStringLiteral("shell-lower"),
        QStringLiteral("shell-upper"), QStringLiteral("flag"),      QStringLiteral("wave"),
        QStringLiteral("fish"),        QStringLiteral("rise"),      QStringLiteral("fisheye"),
        QStringLiteral("inflate"),     QStringLiteral("squeeze"),   QStringLiteral("twist"),
    };
    return names;
}

bool parseTextWarp(const QString &text, TextWarp &warp, QString &reason)
{
    QStringList parts = text.split(QLatin1Char(':'));
    TextWarp read;
    read.acrossColumns = parts.constLast() == QLatin1String("vertical");
    if (read.acrossColumns)
        parts.removeLast();
    if (parts.size() < 2 || parts.size() > 4) {
        reason = QStringLiteral("it is no STYLE:VALUE[:H[:V]][:vertical]");
        return false;
    }
    if (!readStyle(parts.at(0), read.style, reason) || !readValue(parts.at(1), read.value, reason)
        || !readNumber(parts.value(2, QStringLiteral("0")), read.horizontal, reason)
        || !readNumber(parts.value(3, QStringLiteral("0")), read.vertical, reason))
        return false;
    warp = read;
    return true;
}
