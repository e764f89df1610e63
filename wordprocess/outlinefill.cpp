// SPDX-License-Identifier: MIT
#include "wordprocess/outlinefill.h"

#include <QPaintEngine>
#include <QPainter>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace {

constexpr double engineNoise = 1.0 / 32; // pixels by which an engine may round a point
constexpr int fewElements = 1500;        // of a path that is worth no sorting
constexpr int fewestTogether = 16;       // subpaths: filling a path costs something in itself

/// A part of a path from one move to the next, and the pixels that it may reach: first and last column
/// and row, whole numbers.
struct Subpath {
    int first;
    int end; ///< behind its last element
    double left, top, right, bottom;
};

using Subpaths = QVector<Subpath>;

/// The rectangle of the points of a path, those that draw its curves included.
class Extent
{
public:
    explicit Extent(const QPointF &point)
        : m_left(point.x())
        , m_top(point.y())
        , m_right(point.x())
        , m_bottom(point.y())
    {
    }
    void take(const QPointF &point)
    {
        m_left = std::min(m_left, point.x());
        m_right = std::max(m_right, point.x());
        m_top = std::min(m_top, point.y());
        m_bottom = std::max(m_bottom, point.y());
    }
    QRectF rect() const { return {QPointF(m_left, m_top), QPointF(m_right, m_bottom)}; }

private:
    double m_left, m_top, m_right, m_bottom;
};

/// What \a painter can reach, device pixels.
QRectF reachOf(const QPainter &painter)
{
    const QPaintEngine &engine = *painter.paintEngine();
    const QRegion system = engine.systemClip();
    const QPaintDevice *device = engine.paintDevice();
    QRectF reach = system.boundingRect();
    if (system.isEmpty() && device)
        reach = QRectF(0, 0, device->width(), device->height());
    if (painter.hasClipping()) {
        const QRectF clip = painter.deviceTransform().mapRect(painter.clipBoundingRect());
        reach &= clip.adjusted(-1, -1, 1, 1);
    }
    return reach;
}

/// The parts of \a path that \a reach shows, in its order.
Subpaths seenParts(const QPainterPath &path, const QTransform &toDevice, const QRectF &reach)
{
    Subpaths parts;
    const int count = path.elementCount();
    for (int first = 0; first < count;) {
        Extent extent(path.elementAt(first));
        int end = first + 1;
        for (; end < count && !path.elementAt(end).isMoveTo(); ++end)
            extent.take(path.elementAt(end));
        const QRectF pixels = toDevice.mapRect(extent.rect());
        const Subpath part{first,
                           end,
                           std::floor(pixels.left() - engineNoise),
                           std::floor(pixels.top() - engineNoise),
                           std::floor(pixels.right() + engineNoise),
                           std::floor(pixels.bottom() + engineNoise)};
        if (part.left <= reach.right() && part.right >= reach.left() && part.top <= reach.bottom()
            && part.bottom >= reach.top())
            parts.append(part);
        first = end;
    }
    return parts;
}

/// The part behind those from \a first on that share rows with each other; \a parts go from the top down.
int endOfRows(const Subpaths &parts, int first)
{
    double bottom = parts.at(first).bottom;
    int end = first + 1;
    for (; end < parts.size() && parts.at(end).top <= bottom; ++end)
        bottom = std::max(bottom, parts.at(end).bottom);
    return end;
}

/// The same of columns, for \a parts that go from right to left; a few columns at least.
int endOfColumns(const Subpaths &parts, int first)
{
    double left = parts.at(first).left;
    int end = first + 1;
    for (; end < parts.size(); ++end) {
        if (parts.at(end).right < left && end - first >= fewestTogether)
            break;
        left = std::min(left, parts.at(end).left);
    }
    return end;
}

void append(QPainterPath &to, const QPainterPath &from, const Subpath &part)
{
    for (int i = part.first; i < part.end; ++i) {
        const QPainterPath::Element element = from.elementAt(i);
        if (element.isMoveTo()) {
            to.moveTo(element);
        } else if (element.isLineTo()) {
            to.lineTo(element);
        } else if (i + 2 < part.end) {
            to.cubicTo(element, from.elementAt(i + 1), from.elementAt(i + 2));
            i += 2;
        }
    }
}

QPainterPath together(const QPainterPath &path, Qt::FillRule rule, const Subpaths &parts, int first,
                      int end)
{
    QPainterPath sum;
    sum.setFillRule(rule);
    for (int i = first; i < end; ++i)
        append(sum, path, parts.at(i));
    return sum;
}

void fillWhole(QPainter &painter, QPainterPath path, Qt::FillRule rule, const QBrush &brush)
{
    if (path.fillRule() != rule)
        path.setFillRule(rule); // copies all elements
    painter.fillPath(path, brush);
}

/// Fills \a parts, which share rows with each other.
void fillRows(QPainter &painter, const QPainterPath &path, Qt::FillRule rule, const QBrush &brush,
              Subpaths parts)
{
    std::stable_sort(parts.begin(), parts.end(),
                     [](const Subpath &a, const Subpath &b) { return a.right > b.right; });
    for (int first = 0; first < parts.size();) {
        const int end = endOfColumns(parts, first);
        painter.fillPath(together(path, rule, parts, first, end), brush);
        first = end;
    }
}

} // namespace

void fillOutlines(QPainter &painter, const QPainterPath &path, Qt::FillRule rule,
                  const QBrush &brush)
{
    const QPaintEngine *engine = painter.paintEngine();
    const QTransform toDevice = painter.deviceTransform();
    // A gradient may stretch over the whole of its path.
    if (path.elementCount() <= fewElements || !engine || engine->type() != QPaintEngine::Raster
        || !toDevice.isAffine() || brush.style() != Qt::SolidPattern) {
        fillWhole(painter, path, rule, brush);
        return;
    }
    Subpaths parts = seenParts(path, toDevice, reachOf(painter));
    std::stable_sort(parts.begin(), parts.end(),
                     [](const Subpath &a, const Subpath &b) { return a.top < b.top; });
    for (int first = 0; first < parts.size();) {
        const int end = endOfRows(parts, first);
        fillRows(painter, path, rule, brush, parts.mid(first, end - first));
        first = end;
    }
}
