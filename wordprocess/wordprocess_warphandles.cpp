// SPDX-License-Identifier: MIT
// wordprocess_warphandles.cpp -- CWordProcess: the older way to warp, one handler a style.
// Changes: m_warpHandlers, and the guide lines of m_artText, which stay there. Nothing that is painted comes from
// here: updateMorphTextPaths() goes from the style straight to a control net.
#include "wordprocess/cwordprocess.h"

#include "arttext/arttexthelper.h"
#include "layout/outlinesum.h"
#include "warp/textbezier.h"
#include "wordprocess/numbers.h"

#include <QPolygonF>
#include <QtMath>

#include <utility>

namespace {
bool isUsable(double value)
{
    return std::isfinite(value) && value != 0.0;
}

CSize wholeSize(const QSizeF &size)
{
    return CSize(truncated(size.width()), truncated(size.height()));
}
} // namespace

/// Draws guide lines for a box, by places along the line and across it: a vertical warp exchanges the two. All
/// places are cut to whole numbers.
class CWordProcess::GuidePen
{
public:
    GuidePen(CArtText &art, const QRectF &rect, bool isVertical)
        : along(isVertical ? rect.height() : rect.width())
        , across(isVertical ? rect.width() : rect.height())
        , start(isVertical ? rect.x() : rect.y())
        , vertical(isVertical)
        , m_art(art)
    {
    }

    const double along;  ///< side of the box along the line
    const double across; ///< side across it
    const double start;  ///< where the box begins across the line
    const bool vertical;

    /// What is \a alongIt by \a acrossIt as width and height, or x and y.
    QPointF turned(double alongIt, double acrossIt) const
    {
        return vertical ? QPointF(acrossIt, alongIt) : QPointF(alongIt, acrossIt);
    }

    bool line(int guide, const QPointF &from, const QPointF &to)
    {
        const tagPOINT first = whole(from);
        const tagPOINT last = whole(to);
        return m_art.DrawLine(guide, CPoint(first.x, first.y), CPoint(last.x, last.y));
    }

    /// A parabola that is at \a ends at both ends of the line and at \a middle halfway.
    bool curve(int guide, double ends, double middle)
    {
        const tagPOINT points[] = {whole(QPointF(0, ends)), whole(QPointF(along / 2, middle)),
                                   whole(QPointF(along, ends))};
        return m_art.DrawCurve(guide, points, vertical);
    }

    /// One full wave around \a middle.
    bool sine(int guide, double middle, double amplitude, bool invert)
    {
        const tagPOINT origin = whole(QPointF(0, middle));
        return m_art.DrawSinText(guide, CPoint(origin.x, origin.y), 1.0F, amplitude, along, 0.0,
                                 0.0, invert, vertical);
    }

    /// Half a wave around \a middle, from its one extreme to the other.
    bool cosine(int guide, double middle, double amplitude, bool invert)
    {
        const tagPOINT origin = whole(QPointF(0, middle));
        return m_art.DrawCosText(guide, CPoint(origin.x, origin.y), 1.0F, amplitude, along, 0.0,
                                 M_PI, invert, vertical);
    }

    /// The arc of \a degrees to either side of the middle of the line. \param centre  across the line
    /// \param opensAhead  the centre lies behind the text
    bool arc(int guide, double middle, double centre, double radius, double degrees,
             bool opensAhead)
    {
        const tagPOINT point = whole(QPointF(middle, centre));
        double from = 0;
        double to = 0;
        if (vertical) { // from the upper end to the lower one
            from = opensAhead ? 180 + degrees : -degrees;
            to = opensAhead ? 180 - degrees : degrees;
        } else { // from the left end to the right one
            from = opensAhead ? 270 - degrees : 90 + degrees;
            to = opensAhead ? 270 + degrees : 90 - degrees;
        }
        return m_art.DrawEllipse(CPoint(point.x, point.y), float(radius), guide, float(from),
                                 float(to));
    }

    /// Moves both lines by \a distance across the line.
    void shift(double distance)
    {
        tagPOINT *points[2] = {};
        unsigned int counts[2] = {};
        m_art.GetPathPoint(&points[0], &counts[0], &points[1], &counts[1]);
        const tagPOINT way = whole(QPointF(0, distance));
        for (int i : {0, 1})
            CArtText::OffsetPos(CSize(way.x, way.y), points[i], counts[i]);
    }

private:
    tagPOINT whole(const QPointF &place) const
    {
        const QPointF point = turned(place.x(), place.y());
        return {truncated(point.x()), truncated(point.y())};
    }

    CArtText &m_art;
};

void CWordProcess::initMorphHandles()
{
    m_warpHandlers = {
        {SurfaceArc, &CWordProcess::warpArcHandle},
        {SurfaceArcLower, &CWordProcess::warpArcLowerHandle},
        {SurfaceArcUpper, &CWordProcess::warpArcUpperHandle},
        {SurfaceArch, &CWordProcess::warpArchHandle},
        {SurfaceBulge, &CWordProcess::warpBulgeHandle},
        {SurfaceShellLower, &CWordProcess::warpShellLowerHandle},
        {SurfaceShellUpper, &CWordProcess::warpShellUpperHandle},
        {SurfaceFlag, &CWordProcess::warpFlagHandle},
        {SurfaceWave, &CWordProcess::warpWaveHandle},
        {SurfaceFish, &CWordProcess::warpFishHandle},
        {SurfaceRise, &CWordProcess::warpRiseHandle},
        {SurfaceFisheye, &CWordProcess::warpFisheyeHandle},
        {SurfaceInflate, &CWordProcess::warpInflateHandle},
        {SurfaceSqueeze, &CWordProcess::warpSqueezeHandle},
        {SurfaceTwist, &CWordProcess::warpTwistHandle},
    };
}

CWordProcess::GuidePen CWordProcess::guidePen(const QRectF &rect) const
{
    return GuidePen(*m_artText, rect, m_warpOrientation == Qt::Vertical);
}

bool CWordProcess::lensDeform(const QRectF &rect, const QRectF &bounds, CSize &size,
                              QRectF &outRect, QList<QPainterPath> &paths, QRectF &pathBounds,
                              bool vertical)
{
    const bool isMeasured = !(m_warpStyle == SurfaceInflate && m_warpValue < 0);
    if (isMeasured) { // warped along as a measure of the box
        QPainterPath measure;
        measure.addRect(rect);
        paths.append(measure);
    }
    if (m_artText) {
        for (QPainterPath &path : paths)
            path = m_artText->lensDeform(path, -rect.topLeft(), rect.size(), size, vertical);
    }
    const QRectF box = boundsOf(paths);
    if (box == bounds) {
        if (!paths.isEmpty())
            paths.removeLast(); // deliberate: without a measure this is a path of the text
        return false;
    }
    QTransform fit;
    fit.scale(outRect.width() / divisor(box.width()), outRect.height() / divisor(box.height()));
    fit.translate(-box.x(), -box.y());
    for (QPainterPath &path : paths)
        path = fit.map(path);
    pathBounds = boundsOf(paths);
    if (isMeasured)
        paths.removeLast();
    return true;
}

/// The end of every handler with guide lines: the new box, and what lies between the lines.
/// \param offset  how far the box grows ahead of the text, across the line
bool CWordProcess::pourInto(const GuidePen &pen, double across, double offset, const QRectF &rect,
                            const QRectF &bounds, QRectF &outRect, QList<QPainterPath> &paths,
                            QRectF &pathBounds)
{
    const QPointF sides = pen.turned(pen.along, across);
    outRect = QRectF(pen.turned(0, offset), QSizeF(sides.x(), sides.y()));
    CSize size = wholeSize(outRect.size());
    return lensDeform(rect, bounds, size, outRect, paths, pathBounds, pen.vertical);
}

bool CWordProcess::warpArcHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                 QList<QPainterPath> &paths, QRectF &pathBounds)
{
    GuidePen pen = guidePen(rect);
    const double degrees = std::abs(m_warpValue) * 90.0;
    const double sine = std::sin(qDegreesToRadians(degrees));
    if (!isUsable(m_warpValue) || !isUsable(sine))
        return false;
    const double cosine = std::cos(qDegreesToRadians(degrees));
    const double inner = pen.along * 0.5 / sine;
    const double outer = pen.across + inner;
    const double along = pen.along + 2 * (outer - inner) * sine;
    const double across = outer - cosine * inner;
    const bool opensAhead = m_warpValue > 0; // upwards, or to the left
    const double centre = opensAhead ? outer : 0;
    if (!pen.arc(1, along * 0.5, centre, opensAhead ? outer : inner, degrees, opensAhead)
        || !pen.arc(2, along * 0.5, centre, opensAhead ? inner : outer, degrees, opensAhead))
        return false;
    if (!opensAhead) // around a centre at 0 the text hangs below its box
        pen.shift(-cosine * inner);
    const QPointF sides = pen.turned(along, across);
    outRect = QRectF(0, 0, sides.x(), sides.y());
    CSize size = wholeSize(outRect.size());
    return lensDeform(rect, bounds, size, outRect, paths, pathBounds, pen.vertical);
}

bool CWordProcess::warpArcLowerHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                      QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = m_warpValue * (0.5 * pen.along);
    if (a > 0) {
        return pen.line(1, QPointF(0, 0), QPointF(pen.along, 0))
               && pen.curve(2, pen.start + h, h + a)
               && pourInto(pen, h + a, 0, rect, bounds, outRect, paths, pathBounds);
    }
    const double depth = std::abs(a);
    const double across = qMax(depth, h);
    const double offset = across - h;
    const double middle = offset == 0.0 ? across - depth : 0;
    return pen.line(1, QPointF(0, offset), QPointF(pen.along, offset))
           && pen.curve(2, pen.start + h + offset, middle)
           && pourInto(pen, across, offset, rect, bounds, outRect, paths, pathBounds);
}

bool CWordProcess::warpArcUpperHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                      QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = m_warpValue * (0.5 * pen.along);
    const double across = a > 0 ? h + a : qMax(std::abs(a), h);
    const bool isDrawn = a > 0 ? pen.curve(1, a, 0) : pen.curve(1, 0, std::abs(a));
    return isDrawn && pen.line(2, QPointF(0, across), QPointF(pen.along, across))
           && pourInto(pen, across, qMax(a, 0.0), rect, bounds, outRect, paths, pathBounds);
}

bool CWordProcess::warpArchHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                  QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = m_warpValue * (0.5 * pen.along);
    if (a >= 0) {
        return pen.curve(1, a, 0) && pen.curve(2, h + 2 * a, h + a)
               && pourInto(pen, h + 2 * a, a, rect, bounds, outRect, paths, pathBounds);
    }
    const double depth = std::abs(a);
    const double across = h > depth ? h : 2 * depth - h;
    const double offset = h > depth ? 0 : depth - h;
    return pen.curve(1, 0, depth) && pen.curve(2, across - depth, across)
           && pourInto(pen, across, offset, rect, bounds, outRect, paths, pathBounds);
}

bool CWordProcess::warpBulgeHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                   QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = m_warpValue * (0.5 * pen.along);
    if (a >= 0) {
        return pen.curve(1, a, 0) && pen.curve(2, h + a, h + 2 * a)
               && pourInto(pen, h + 2 * a, a, rect, bounds, outRect, paths, pathBounds);
    }
    const double depth = std::abs(a);
    return pen.curve(1, 0, depth) && pen.curve(2, h, h + depth)
           && pourInto(pen, h + depth, 0, rect, bounds, outRect, paths, pathBounds);
}

bool CWordProcess::warpFlagHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                  QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = std::abs(h * 0.5 * m_warpValue);
    const bool invert = m_warpValue < 0;
    return pen.sine(1, a, a, invert) && pen.sine(2, h + a, a, invert)
           && pourInto(pen, h + 2 * a, a, rect, bounds, outRect, paths, pathBounds);
}

bool CWordProcess::warpWaveHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                  QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = std::abs(h * 0.25 * m_warpValue);
    return pen.line(1, QPointF(0, 0), QPointF(pen.along, 0))
           && pen.sine(2, h * 0.5, a, m_warpValue <= 0)
           && pourInto(pen, h, 0, rect, bounds, outRect, paths, pathBounds);
}

bool CWordProcess::warpFishHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                  QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = std::abs(h * 0.5 * m_warpValue);
    const bool isDrawn = m_warpValue > 0 ? pen.sine(1, a, a, true) && pen.sine(2, h + a, a, false)
                                         : pen.sine(2, h + a, a, true) && pen.sine(1, a, a, false);
    return isDrawn && pourInto(pen, h + 2 * a, a, rect, bounds, outRect, paths, pathBounds);
}

bool CWordProcess::warpRiseHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                  QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = std::abs(h * m_warpValue);
    const bool sinks = m_warpValue < 0;
    return pen.cosine(1, a, a, sinks) && pen.cosine(2, h + a, a, sinks)
           && pourInto(pen, h + 2 * a, sinks ? 2 * a : 0, rect, bounds, outRect, paths, pathBounds);
}

/// A pass of its own over what an earlier one has left in a box at the origin: both edges along \a vertical bend by
/// \a amount, outwards from narrower ends or, below 0, inwards. The box stays.
bool CWordProcess::bendEdges(double amount, bool vertical, QRectF &outRect,
                             QList<QPainterPath> &paths, QRectF &pathBounds)
{
    const QRectF box(QPointF(0, 0), outRect.size());
    GuidePen pen(*m_artText, box, vertical);
    const double ends = qMax(amount, 0.0);
    const double middle = qMax(-amount, 0.0);
    if (!pen.curve(1, ends, middle) || !pen.curve(2, pen.across - ends, pen.across - middle))
        return false;
    CSize size = wholeSize(box.size());
    const QRectF before = pathBounds;
    return lensDeform(box, before, size, outRect, paths, pathBounds, vertical);
}

bool CWordProcess::warpInflateHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                     QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    GuidePen pen = guidePen(rect);
    const double h = pen.across;
    const double a = m_warpValue * (0.5 * pen.along);
    const bool swells = a >= 0;
    const bool isDrawn = swells ? pen.curve(1, a, 0) && pen.curve(2, h + a, h + 2 * a)
                                : pen.curve(1, 0, -a) && pen.curve(2, h, h + a);
    if (!isDrawn
        || !pourInto(pen, swells ? h + 2 * a : h, swells ? a : 0, rect, bounds, outRect, paths,
                     pathBounds))
        return false;
    pathBounds = bounds; // for the next pass to measure by
    const double b = std::abs(0.25 * pen.along * m_warpValue);
    return bendEdges(swells ? b : -b, !pen.vertical, outRect, paths, pathBounds);
}

bool CWordProcess::warpSqueezeHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                     QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    const bool vertical = m_warpOrientation == Qt::Vertical;
    const double ofWidth = 0.25 * rect.width() * m_warpValue;
    const double ofHeight = 0.25 * rect.height() * m_warpValue;
    // The edges along the text swell as those across it are drawn in, or the other way round.
    const double swell = vertical ? ofWidth : ofHeight;
    const double pull = vertical ? ofHeight : ofWidth;
    outRect = QRectF(QPointF(0, 0), rect.size());
    pathBounds = bounds;
    for (QPainterPath &path : paths)
        path.translate(-rect.topLeft());
    if (!bendEdges(swell, vertical, outRect, paths, pathBounds))
        return false;
    pathBounds = bounds; // for the next pass to measure by
    if (!bendEdges(-pull, !vertical, outRect, paths, pathBounds))
        return false;
    if (m_warpValue < 0 || vertical)
        return true;
    pathBounds = bounds;
    return bendEdges(-pull, !vertical, outRect, paths, pathBounds);
}

namespace {
using ShellPoints = QVector<QPointF>; // 16, row by row

/// The points of a flat net, exact thirds.
ShellPoints flatPoints(const QSizeF &size)
{
    ShellPoints points;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            points.append(QPointF(size.width() * column / 3, size.height() * row / 3));
    }
    return points;
}

/// Rows for columns.
ShellPoints transposed(const ShellPoints &points)
{
    ShellPoints result(16);
    for (int i = 0; i < 16; ++i)
        result[4 * (i % 4) + i / 4] = points.at(i).transposed();
    return result;
}

/// Bottom for top.
ShellPoints turnedOver(const ShellPoints &points, double height)
{
    ShellPoints result(16);
    for (int i = 0; i < 16; ++i)
        result[4 * (3 - i / 4) + i % 4] = QPointF(points.at(i).x(), height - points.at(i).y());
    return result;
}

/// \a spread, or \a unspread for what an angle of 0 makes of it.
QPointF orUnspread(const QPointF &spread, const QPointF &unspread)
{
    return qIsNaN(spread.x()) || qIsNaN(spread.y()) ? unspread : spread;
}

/// The net of a box with a shell at its top: an arc that swells over corners that are spread apart or, for a \a value
/// below 0, sinks between corners that stay. The other rows lie evenly between the top and the bottom.
ShellPoints shellPoints(const QSizeF &size, double value)
{
    ShellPoints points = flatPoints(size);
    const double angle = std::abs(value) * 90.0 * M_PI / 180.0;
    const double sine = std::sin(angle);
    const double cosine = std::cos(angle);
    const double third = size.height() / 3.0;
    const QPointF outwards[] = {QPointF(-sine, -cosine), QPointF(sine, -cosine)};
    for (int side : {0, 1}) {
        const int column = 3 * side;
        if (value > 0) { // both sides fan out from the bottom
            for (int row : {0, 1, 2}) {
                QPointF &point = points[4 * row + column];
                point = orUnspread(points.at(12 + column) + outwards[side] * third * (3 - row),
                                   point);
            }
        } else { // each side leaves the arc at a right angle
            QPointF &point = points[4 + column];
            point = orUnspread(points.at(column) + QPointF(outwards[side].x(), cosine) * third,
                               point);
        }
    }
    const double radius = (points.at(3).x() - points.at(0).x()) * 0.5 / sine;
    const double reach = radius * ((1 - cosine) * 4.0 / (sine * 3.0));
    const double rise = value > 0 ? -sine : sine;
    points[1] = orUnspread(points.at(0) + QPointF(cosine, rise) * reach, points.at(1));
    points[2] = orUnspread(points.at(3) + QPointF(-cosine, rise) * reach, points.at(2));
    for (int row : {1, 2}) {
        for (int column : {1, 2})
            points[4 * row + column] =
                (points.at(column) * (3 - row) + points.at(12 + column) * row) / 3.0;
    }
    return points;
}

/// The box around a net, with what lies left of 0 and above it as offset.
QRectF boxOfNet(const ShellPoints &points)
{
    const QRectF box = QPolygonF(points).boundingRect();
    return QRectF(qMax(0.0, -box.x()), qMax(0.0, -box.y()), box.width(), box.height());
}
} // namespace

/// Carries every element over the surface of a net. \return false for a box without sides
bool CWordProcess::carryOverNet(const QVector<QPointF> &net, const QSizeF &size,
                                QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(size.width()) || !isUsable(size.height()))
        return false;
    const CTextBezier surface{QPolygonF(net)};
    for (QPainterPath &path : paths) {
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPointF point = path.elementAt(i);
            const QPointF image = surface.getBezierLinePoint(point.y() / size.height(),
                                                             point.x() / size.width());
            path.setElementPositionAt(i, image.x(), image.y());
        }
    }
    pathBounds = boundsOf(paths);
    return true;
}

bool CWordProcess::warpTwistHandle(const QRectF &rect, const QRectF & /*bounds*/, QRectF &outRect,
                                   QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    QVector<QPointF> net = flatPoints(rect.size());
    const double d = rect.width() * 0.5 * m_warpValue;
    net[5].rx() += d;
    net[10].rx() -= d;
    outRect = QRectF(QPointF(0, 0), rect.size());
    return carryOverNet(net, rect.size(), paths, pathBounds);
}

bool CWordProcess::warpFisheyeHandle(const QRectF &rect, const QRectF & /*bounds*/, QRectF &outRect,
                                     QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    QVector<QPointF> net = flatPoints(rect.size());
    const double dx = m_warpValue * (rect.width() / 3);
    const double dy = m_warpValue * (rect.height() / 3);
    net[5] += QPointF(-dx, -dy);
    net[6] += QPointF(dx, -dy);
    net[9] += QPointF(-dx, dy);
    net[10] += QPointF(dx, dy);
    outRect = QRectF(QPointF(0, 0), rect.size());
    return carryOverNet(net, rect.size(), paths, pathBounds);
}

bool CWordProcess::warpShellUpperHandle(const QRectF &rect, const QRectF & /*bounds*/,
                                        QRectF &outRect, QList<QPainterPath> &paths,
                                        QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    const bool vertical = m_warpOrientation == Qt::Vertical; // the left side then
    const QVector<QPointF> net = vertical ? transposed(
                                     shellPoints(rect.size().transposed(), m_warpValue))
                                          : shellPoints(rect.size(), m_warpValue);
    outRect = boxOfNet(net);
    return carryOverNet(net, rect.size(), paths, pathBounds);
}

bool CWordProcess::warpShellLowerHandle(const QRectF &rect, const QRectF & /*bounds*/,
                                        QRectF &outRect, QList<QPainterPath> &paths,
                                        QRectF &pathBounds)
{
    if (!isUsable(m_warpValue))
        return false;
    const bool vertical = m_warpOrientation == Qt::Vertical; // the right side then
    const QSizeF size = vertical ? rect.size().transposed() : rect.size();
    const ShellPoints lower = turnedOver(shellPoints(size, m_warpValue), size.height());
    const QVector<QPointF> net = vertical ? transposed(lower) : lower;
    outRect = boxOfNet(net);
    return carryOverNet(net, rect.size(), paths, pathBounds);
}

bool CWordProcess::horizontalWarp(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                  QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpHorizontalValue))
        return false;
    GuidePen pen(*m_artText, rect, /*isVertical=*/false);
    const double w = rect.width();
    const double a = std::abs(0.5 * rect.height() * m_warpHorizontalValue);
    const double high = rect.height() + 2 * a;
    const bool narrowsRight = m_warpHorizontalValue < 0;
    const double left = narrowsRight ? 0 : 2 * a; // how far each edge is drawn in
    const double right = narrowsRight ? 2 * a : 0;
    outRect = QRectF(0, a, w, high);
    CSize size = wholeSize(outRect.size());
    return pen.line(1, QPointF(0, left), QPointF(w, right))
           && pen.line(2, QPointF(0, high - left), QPointF(w, high - right))
           && lensDeform(rect, bounds, size, outRect, paths, pathBounds, /*vertical=*/false);
}

bool CWordProcess::verticalWarp(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                QList<QPainterPath> &paths, QRectF &pathBounds)
{
    if (!isUsable(m_warpVerticalValue))
        return false;
    GuidePen pen(*m_artText, rect, /*isVertical=*/false);
    const double h = rect.height();
    const double a = std::abs(0.5 * rect.width() * m_warpVerticalValue);
    const double wide = rect.width() + 2 * a;
    const bool narrowsDown = m_warpVerticalValue < 0;
    const double top = narrowsDown ? 0 : 2 * a; // how far each end is drawn in
    const double bottom = narrowsDown ? 2 * a : 0;
    outRect = QRectF(a, 0, wide, h);
    CSize size = wholeSize(outRect.size());
    return pen.line(1, QPointF(top, 0), QPointF(wide - top, 0))
           && pen.line(2, QPointF(bottom, h), QPointF(wide - bottom, h))
           && lensDeform(rect, bounds, size, outRect, paths, pathBounds, /*vertical=*/false);
}
