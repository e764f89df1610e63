// SPDX-License-Identifier: MIT
// nets.h -- what the tests of the warp share: flat nets, and comparing nets bit by bit.
#ifndef NETS_H
#define NETS_H

#include <QPointF>
#include <QVector>
#include <QtTest>

#include <cstring>

using Net = QVector<QVector<QPointF>>;

/// The surface that is not bent yet, as every warp begins.
inline Net flatNet(int width, int height)
{
    const double x[] = {0, double(width / 3), double(width * 2 / 3), double(width)};
    const double y[] = {0, double(height / 3), double(height * 2 / 3), double(height)};
    QVector<QPointF> points;
    for (double rowY : y) {
        for (double columnX : x)
            points.append(QPointF(columnX, rowY));
    }
    return {points};
}

inline Net netOf(const double (&numbers)[32])
{
    QVector<QPointF> points;
    for (int i = 0; i < 32; i += 2)
        points.append(QPointF(numbers[i], numbers[i + 1]));
    return {points};
}

inline bool isSameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// The first coordinate of \a net that is not exactly that of \a expected; empty when all are.
inline QString difference(const Net &net, const Net &expected)
{
    if (net.size() != 1 || net.first().size() != 16)
        return QStringLiteral("no net of 16 points");
    for (int i = 0; i < 16; ++i) {
        const QPointF &point = net.first().at(i);
        const QPointF &wanted = expected.first().at(i);
        if (isSameBits(point.x(), wanted.x()) && isSameBits(point.y(), wanted.y()))
            continue;
        return QStringLiteral("point %1 is (%2, %3), not (%4, %5)")
            .arg(i)
            .arg(point.x(), 0, 'g', 17)
            .arg(point.y(), 0, 'g', 17)
            .arg(wanted.x(), 0, 'g', 17)
            .arg(wanted.y(), 0, 'g', 17);
    }
    return {};
}

#define COMPARE_NETS(net, expected) \
    do { \
        const QString unlike = difference(net, expected); \
        QVERIFY2(unlike.isEmpty(), qPrintable(unlike)); \
    } while (false)

#endif
