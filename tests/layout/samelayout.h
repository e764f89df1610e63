// SPDX-License-Identifier: MIT
// samelayout.h -- what differs between two layouts, field by field.
#ifndef SAMELAYOUT_H
#define SAMELAYOUT_H

#include "layout/textlayout.h"

/// The name of the first field in which the two runs differ; empty for equal ones. Numbers are
/// compared bit by bit.
inline QString differenceOf(const TextFragment &a, const TextFragment &b)
{
    const QVector<QPair<bool, const char *>> fields = {
        {a.position == b.position, "position"},
        {a.length == b.length, "length"},
        {a.text == b.text, "text"},
        {a.path == b.path, "path"},
        {a.format == b.format, "format"},
        {a.advance == b.advance, "advance"},
        {a.baseline == b.baseline, "baseline"},
        {a.start == b.start, "start"},
        {a.scaleX == b.scaleX, "scaleX"},
        {a.scaleY == b.scaleY, "scaleY"},
        {a.font == b.font, "font"},
        {a.isCJK == b.isCJK, "isCJK"},
        {a.isEmptyBlock == b.isEmptyBlock, "isEmptyBlock"},
        {a.isHalfPunct == b.isHalfPunct, "isHalfPunct"},
    };
    for (const auto &field : fields) {
        if (!field.first)
            return QLatin1String(field.second);
    }
    return QString();
}

inline QString differenceOf(const TextLine &a, const TextLine &b)
{
    const QVector<QPair<bool, const char *>> fields = {
        {a.isEmptyBlock == b.isEmptyBlock, "isEmptyBlock"},
        {a.position == b.position, "position"},
        {a.length == b.length, "length"},
        {a.text == b.text, "text"},
        {a.origin.x() == b.origin.x() && a.origin.y() == b.origin.y(), "origin"},
        {a.alignment == b.alignment, "alignment"},
        {a.path == b.path, "path"},
        {a.font == b.font, "font"},
        {a.rect.x() == b.rect.x() && a.rect.y() == b.rect.y() && a.rect.width() == b.rect.width()
             && a.rect.height() == b.rect.height(),
         "rect"},
        {a.fragments.size() == b.fragments.size(), "number of runs"},
    };
    for (const auto &field : fields) {
        if (!field.first)
            return QLatin1String(field.second);
    }
    for (int i = 0; i < a.fragments.size(); ++i) {
        const QString difference = differenceOf(a.fragments.at(i), b.fragments.at(i));
        if (!difference.isEmpty())
            return QStringLiteral("run %1: %2").arg(i).arg(difference);
    }
    return QString();
}

inline QString differenceOf(const TextLayout &a, const TextLayout &b)
{
    if (a.orientation != b.orientation || a.dpi != b.dpi)
        return QStringLiteral("orientation or dpi");
    if (a.lines.size() != b.lines.size())
        return QStringLiteral("%1 lines and %2").arg(a.lines.size()).arg(b.lines.size());
    for (int i = 0; i < a.lines.size(); ++i) {
        const QString difference = differenceOf(a.lines.at(i), b.lines.at(i));
        if (!difference.isEmpty())
            return QStringLiteral("line %1, %2").arg(i).arg(difference);
    }
    return QString();
}

#endif // SAMELAYOUT_H
