// SPDX-License-Identifier: MIT
// warpoutline.h -- outlines written as words, element by element, also those that no drawing call makes.
#ifndef WARPOUTLINE_H
#define WARPOUTLINE_H

#include <QDataStream>
#include <QList>
#include <QPainterPath>
#include <QStringList>

/// "M 10 20 L 30 40 C 1 2 D 3 4 D 5 6": move, line, curve and the two points that belong to a curve.
inline QPainterPath outlineOf(const QString &words)
{
    const QStringList parts = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString letters = QStringLiteral("MLCD"); // in the order of QPainterPath::ElementType
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << parts.size() / 3;
    for (int i = 0; i + 2 < parts.size(); i += 3)
        out << letters.indexOf(parts.at(i)) << parts.at(i + 1).toDouble()
            << parts.at(i + 2).toDouble();
    out << 0 << int(Qt::WindingFill); // start of the last subpath, fill rule
    QDataStream in(bytes);
    QPainterPath path;
    in >> path;
    return path;
}

/// Several outlines, parted by "|".
inline QList<QPainterPath> outlinesOf(const QString &words)
{
    QList<QPainterPath> paths;
    const QStringList outlines = words.split(QLatin1Char('|'));
    for (const QString &outline : outlines)
        paths.append(outlineOf(outline));
    return paths;
}

/// The words of \a path again, every number with all its digits.
inline QString wordsOf(const QPainterPath &path)
{
    QStringList parts;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element &element = path.elementAt(i);
        parts << QStringLiteral("MLCD").mid(element.type, 1) << QString::number(element.x, 'g', 17)
              << QString::number(element.y, 'g', 17);
    }
    return parts.join(QLatin1Char(' '));
}

inline QString wordsOf(const QList<QPainterPath> &paths)
{
    QStringList outlines;
    for (const QPainterPath &path : paths)
        outlines << wordsOf(path);
    return outlines.join(QLatin1String(" | "));
}

#endif
