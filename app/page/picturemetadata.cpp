// SPDX-License-Identifier: MIT
#include "app/page/picture.h"

namespace {

constexpr int longestTitle = 120; // UTF-16 units

/// \a text cut to \a length, or by one more, so that no character is cut in two.
QString cut(const QString &text, int length)
{
    if (text.size() <= length)
        return text;
    const bool amidCharacter = text.at(length).isLowSurrogate();
    return text.left(amidCharacter ? length - 1 : length) + QChar(0x2026);
}

bool isForbidden(QChar character)
{
    const ushort code = character.unicode();
    const bool isWhite = code == '\t' || code == '\n' || code == '\r';
    return (code < 0x20 && !isWhite) || code == 0xFFFE || code == 0xFFFF;
}

} // namespace

QString titleOf(const QString &text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString title = line.simplified();
        if (!title.isEmpty())
            return cut(title, longestTitle);
    }
    return {};
}

QString xmlText(const QString &text)
{
    QString result;
    result.reserve(text.size());
    // A lone surrogate becomes a replacement character on the way through UTF-8.
    const QString sound = QString::fromUtf8(text.toUtf8());
    for (QChar character : sound) {
        if (!isForbidden(character))
            result += character;
    }
    return result.toHtmlEscaped();
}

QString isoDate(const QDateTime &date)
{
    return date.isValid() ? date.toUTC().toString(Qt::ISODate) : QString();
}
