// SPDX-License-Identifier: MIT
// wordprocess_warping.cpp -- CWordProcess: the road from plain outlines to bent ones.
// Changes: m_morphPaths and m_morphRect, m_baseSize and the client rectangle, m_warpMin, m_warpMax, m_warpBounds.
// The outlines of the layout are never touched: a private copy is bent without a lock and swapped in at the end.
#include "wordprocess/cwordprocess.h"

#include "layout/outlinesum.h"
#include "layout/textlayout.h"
#include "layout/wordmanager.h"
#include "warp/bezier.h"
#include "warp/horizon.h"
#include "warp/surfaces.h"
#include "warp/textbezier.h"
#include "wordprocess/numbers.h"
#include "wordprocess/warpkeys.h"

#include <QPolygonF>

#include <utility>

namespace {
constexpr double farAway = 99999; // start of the running extremes, deliberately no more than this

bool isFinite(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

/// True for a side that a point can be measured against.
bool isMeasurable(double side)
{
    return std::isfinite(side) && side != 0.0;
}

/// Lets the extremes \a min and \a max follow a position.
void widen(QPointF &min, QPointF &max, const QPointF &pos)
{
    if (min.x() > pos.x())
        min.setX(pos.x());
    if (min.y() > pos.y())
        min.setY(pos.y());
    if (pos.x() > max.x())
        max.setX(pos.x());
    if (pos.y() > max.y())
        max.setY(pos.y());
}

/// The cubic that covers the line from \a start to \a end, as a new subpath of \a path. The thirds are cut to
/// single precision.
void addStraightCurve(QPainterPath &path, const QPointF &start, const QPointF &end)
{
    const float thirdX = float((end.x() - start.x()) / 3.0);
    const float thirdY = float((end.y() - start.y()) / 3.0);
    const float twoThirdsX = thirdX + thirdX;
    const float twoThirdsY = thirdY + thirdY;
    const QPointF c1(start.x() + double(thirdX), start.y() + double(thirdY));
    const QPointF c2(start.x() + double(twoThirdsX), start.y() + double(twoThirdsY));
    // What QPainterPath takes for no curve would leave a lone move behind.
    if (!isFinite(c1) || !isFinite(c2) || !isFinite(end) || (start == c1 && c1 == c2 && c2 == end))
        return;
    path.moveTo(start);
    path.cubicTo(c1, c2, end);
}

int countLines(const QPainterPath &path)
{
    int lines = 0;
    for (int i = 1; i < path.elementCount(); ++i)
        lines += path.elementAt(i).isLineTo() ? 1 : 0;
    return lines;
}

/// Gives straight segments something to bend: each gets a curve over it. Deliberate: the line stays, a chord
/// whose ends alone will move, so that a straight segment is there twice.
void doubleStraightSegments(QPainterPath &path)
{
    const int lines = countLines(path);
    if (lines == 0)
        return;
    const int count = path.elementCount(); // what is added holds no line
    path.reserve(count + 4 * lines);
    for (int i = 1; i < count; ++i) {
        if (path.elementAt(i).isLineTo())
            addStraightCurve(path, path.elementAt(i - 1), path.elementAt(i));
    }
}

using ControlNet = QVector<QVector<QPointF>>;

/// The net of a flat surface: rows from the top, whole numbers.
ControlNet flatNet(int width, int height)
{
    const qint64 w = width;
    const qint64 h = height;
    const double columns[] = {0, double(w / 3), double((w * 2) / 3), double(w)};
    const double rows[] = {0, double(h / 3), double((h * 2) / 3), double(h)};
    QVector<QPointF> points;
    points.reserve(16);
    for (double y : rows) {
        for (double x : columns)
            points.append(QPointF(x, y));
    }
    return {points};
}

/// \a value in single precision, then whole.
int narrowedAndTruncated(double value)
{
    return truncated(double(float(value)));
}

void translateAll(QList<QPainterPath> &paths, double dx, double dy)
{
    for (QPainterPath &path : paths)
        path.translate(dx, dy);
}
} // namespace

/// One walk over the elements of outlines: their ends are carried over a surface, and each curve becomes the one
/// cubic through the images of two points between. Allocates nothing.
class CWordProcess::SurfaceWalk
{
public:
    /// \param side  of the unwarped text; 0 is no side
    SurfaceWalk(CWordProcess &object, const CTextBezier &surface, const QSizeF &side)
        : m_object(object)
        , m_surface(surface)
        , m_side(side)
    {
    }

    /// A move that nothing hangs on, and what is no whole segment, stays where it is.
    void carry(QPainterPath &path)
    {
        const int count = path.elementCount();
        for (int i = 0; i < count;) {
            const QPainterPath::Element element = path.elementAt(i);
            if (element.type != QPainterPath::MoveToElement) {
                i += qMax(1, carrySegment(path, i, element, count));
                continue;
            }
            // A move is carried along with the segment behind it.
            takePen(element);
            int length = 0;
            if (i + 1 < count)
                length = carrySegment(path, i + 1, path.elementAt(i + 1), count);
            if (length > 0)
                write(path, i, m_startImage);
            i += 1 + length;
        }
    }

    /// True as long as all that was written is.
    bool isFinite() const { return m_isFinite; }

private:
    QPointF onSurface(const QPointF &point) const
    {
        return m_surface.getBezierLinePoint(point.y() / m_side.height(),
                                            point.x() / m_side.width());
    }

    /// The curves over the lines of a polyline begin where the one before ended.
    void takePen(const QPointF &point)
    {
        if (point.x() != m_pen.x() || point.y() != m_pen.y() || !m_hasPen)
            m_penImage = onSurface(point);
        m_pen = point;
        m_hasPen = true;
        m_startImage = m_penImage;
    }

    /// Carries the line or curve that begins with \a first, element \a i. \return how many elements it has, 0 when
    /// there is no such segment
    int carrySegment(QPainterPath &path, int i, const QPainterPath::Element &first, int count)
    {
        if (first.type == QPainterPath::LineToElement) {
            carryLine(path, i, first);
            return 1;
        }
        if (first.type != QPainterPath::CurveToElement || i + 2 >= count)
            return 0;
        carryCurve(path, i, first);
        return 3;
    }

    /// A line stays a chord: its end moves.
    void carryLine(QPainterPath &path, int i, const QPointF &end)
    {
        m_penImage = onSurface(end);
        m_pen = end;
        m_hasPen = true;
        write(path, i, m_penImage);
    }

    void carryCurve(QPainterPath &path, int i, const QPointF &p1)
    {
        const QPointF p2 = path.elementAt(i + 1);
        const QPointF p3 = path.elementAt(i + 2);
        QPointF q1 = onSurface(calculateBezierPoint(m_pen, p1, p2, p3, 0.333f));
        QPointF q2 = onSurface(calculateBezierPoint(m_pen, p1, p2, p3, 0.666f));
        QPointF q3 = onSurface(p3);
        QPointF c1;
        QPointF c2;
        get_control_points(m_penImage, q1, q2, q3, c1, c2);
        write(path, i, c1);
        write(path, i + 1, c2);
        write(path, i + 2, q3);
        m_pen = p3;
        m_penImage = q3;
        m_hasPen = true;
    }

    void write(QPainterPath &path, int i, const QPointF &pos)
    {
        m_isFinite = m_isFinite && ::isFinite(pos);
        m_object.setPathElementPos(path, i, pos);
    }

    CWordProcess &m_object;
    const CTextBezier &m_surface;
    const QSizeF m_side;
    QPointF m_pen;        ///< end of the segment before, where it was
    QPointF m_penImage;   ///< and where the surface has it
    QPointF m_startImage; ///< where it has the last move
    bool m_hasPen = false;
    bool m_isFinite = true;
};

/// The warp as it is stored and shown everywhere: values as whole percent.
void CWordProcess::addWarpAttributes(AttributeMap &attributes) const
{
    attributes[WarpKey::Style] = m_warpStyle;
    attributes[WarpKey::Value] = percentOf(m_warpValue);
    attributes[WarpKey::HorizontalValue] = percentOf(m_warpHorizontalValue);
    attributes[WarpKey::VerticalValue] = percentOf(m_warpVerticalValue);
    attributes[WarpKey::Orientation] = m_warpOrientation;
}

void CWordProcess::updateMorphTextPaths()
{
    if (!m_newVersion) // never warped: the box is that of its own layout
        return;
    ++m_bendingRound;
    if (m_editing) { // text is always edited unwarped
        dropMorphPaths();
        m_bendable = Bendable();
    } else if (!bendTextPaths()) {
        return;
    }
    // Wrapped text in edit state keeps its box.
    if (!m_wordWrap || !m_editing)
        applyStretchToBox();
}

/// All arithmetic comes first, and nothing waits for a painter meanwhile: only then does the box change.
/// \return false when a listener has had the text laid out or warped anew: what it has got stands then
bool CWordProcess::bendTextPaths()
{
    const QList<QPainterPath> source = m_textPaths;
    const auto isOvertaken = [this, &source, round = m_bendingRound] {
        return m_bendingRound != round || !m_textPaths.isSharedWith(source);
    };
    QList<QPainterPath> paths;
    QPointF pos(0, 0);
    QSizeF size(-1, -1);
    bool isWarped = false;
    if (m_warpStyle != SurfaceNone && !m_pathsArePlaceholder) { // an empty text has nothing to bend
        prepareBending(source);
        paths = m_bendable.paths; // private: bent without a lock
        isWarped = textMorphing(paths, m_textPathsRect, pos, size);
    } else {
        m_bendable = Bendable();
    }
    if (!m_wordWrap)
        updatePosition(this, QRectF(getPos(), m_textPathsRect.size()));
    if (isOvertaken())
        return false;
    const QRectF box = isWarped ? QRectF(pos, size) : QRectF(QPointF(0, 0), m_textPathsRect.size());
    if (isWarped || (box.width() > 0 && box.height() > 0)) {
        updatePosition(this, isWarped ? warpedSceneBox(box)
                                      : QRectF(mapToScene(m_morphRect.topLeft()), box.size()));
        if (isOvertaken())
            return false;
        m_baseSize = box.size();
    }
    if (isWarped)
        takeMorphPaths(paths, box);
    else
        dropMorphPaths();
    return true;
}

/// What does not depend on the warp is kept from one step of a slider to the next.
void CWordProcess::prepareBending(const QList<QPainterPath> &source)
{
    if (m_bendable.source.isSharedWith(source))
        return;
    m_bendable.source = source;
    m_bendable.paths = source;
    for (QPainterPath &path : m_bendable.paths)
        doubleStraightSegments(path);
    m_bendable.bounds = boundsOf(m_bendable.paths);
}

/// The item moves by the change of the offset that the warp gives it, so that two warps in a row do not creep.
QRectF CWordProcess::warpedSceneBox(const QRectF &box) const
{
    const bool wasWarped = m_morphRect.width() > 0 && m_morphRect.height() > 0;
    QPointF way = (wasWarped ? m_morphRect.topLeft() : QPointF(0, 0)) - box.topLeft();
    if (m_wordWrap)
        way = QPointF(way.x() * m_scaleX, way.y() * m_scaleY);
    return QRectF(mapToScene(way), box.size());
}

void CWordProcess::takeMorphPaths(QList<QPainterPath> &paths, const QRectF &box)
{
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    m_morphPaths = std::move(paths); // the old ones go inside the lock too
    m_morphRect = box;
}

void CWordProcess::dropMorphPaths()
{
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    m_morphPaths.clear();
    m_morphRect = QRectF(0, 0, 0, 0);
}

void CWordProcess::applyStretchToBox()
{
    const QSizeF size(m_scaleX * m_clientRect.width(), m_scaleY * m_clientRect.height());
    updatePosition(this, QRectF(getPos(), size));
}

bool CWordProcess::textMorphing(QList<QPainterPath> &paths, const QRectF &rect, QPointF &pos,
                                QSizeF &size)
{
    QRectF outRect(0, 0, 0, 0);
    QRectF reserved(0, 0, 0, 0);
    const QRectF bounds = paths.isSharedWith(m_bendable.paths) ? m_bendable.bounds
                                                               : boundsOf(paths);
    const bool warped = textTransform(rect, bounds, outRect, paths, reserved,
                                      SurfaceType(m_warpStyle));
    pos = outRect.topLeft();
    size = outRect.size();
    return warped;
}

bool CWordProcess::textTransform(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                                 QList<QPainterPath> &paths, QRectF & /*reserved*/,
                                 SurfaceType type)
{
    // Deliberate: the object's own style decides whether there is a warp, whatever type says.
    if (m_warpStyle == SurfaceNone || !isMeasurable(rect.width()) || !isMeasurable(rect.height()))
        return false;
    m_warpMin = QPointF(farAway, farAway);
    m_warpMax = QPointF(-farAway, -farAway);
    m_warpBounds = bounds;
    const float value = float(m_warpValue);

    const CTextBezier surface(warpedNet(rect.size(), type, value));
    SurfaceWalk walk(*this, surface, rect.size());
    for (QPainterPath &path : paths) {
        if (path.elementCount() != 1)
            walk.carry(path);
    }
    const WarpGap gap{float(rect.width()) - float(bounds.width()),
                      float(rect.height()) - float(bounds.height())};
    if (!walk.isFinite() || !std::isfinite(gap.width) || !std::isfinite(gap.height))
        return false;

    // Deliberate: the value of a lower arc counts as its opposite from here on.
    const bool staysOnTop = (type == SurfaceArcLower ? -value : value) < 0;
    if (m_warpOrientation == Qt::Vertical || type == SurfaceSqueeze)
        outRect = placeCentred(paths, gap);
    else
        outRect = placeInPositive(paths, gap, rect.size(), staysOnTop);
    return m_warpMax.x() != -farAway;
}

/// The control net of a box of \a size, bent by its style and skewed by the two further values.
QPolygonF CWordProcess::warpedNet(const QSizeF &size, SurfaceType type, float value) const
{
    ControlNet net = flatNet(truncated(size.width()), truncated(size.height()));
    if (m_warpOrientation == Qt::Vertical)
        getSurFacePointV(type, net, value);
    else
        getSurFacePoint(type, net, value);
    if (type != SurfaceNone)
        setHorizon(net, float(m_warpVerticalValue), float(m_warpHorizontalValue));
    return QPolygonF(net.first());
}

/// Moves what was bent to the middle of the gap that the unwarped text left in its box. \return the new box
QRectF CWordProcess::placeCentred(QList<QPainterPath> &paths, const WarpGap &gap) const
{
    const float halfWidth = 0.5f * gap.width;
    const float halfHeight = 0.5f * gap.height;
    const float dx = float(truncated(-m_warpMin.x())) + halfWidth;
    const float dy = float(truncated(-m_warpMin.y())) + halfHeight;
    translateAll(paths, double(dx), double(dy));
    return QRectF(truncated(double(halfWidth) - m_warpMin.x()),
                  truncated(double(halfHeight) - m_warpMin.y()),
                  truncated((m_warpMax.x() - m_warpMin.x()) + double(gap.width)),
                  truncated((m_warpMax.y() - m_warpMin.y()) + double(gap.height)));
}

/// Moves what was bent by whole numbers until nothing lies left of 0 or above it. \return the new box
QRectF CWordProcess::placeInPositive(QList<QPainterPath> &paths, const WarpGap &gap,
                                     const QSizeF &unwarped, bool staysOnTop) const
{
    const double dx = m_warpMin.x() < 0 ? truncated(-m_warpMin.x()) : 0;
    const double dy = m_warpMin.y() < 0 ? truncated(-m_warpMin.y()) : 0;
    translateAll(paths, dx, dy + 1.0); // deliberate: always one further down
    const double wide = (m_warpMax.x() - m_warpMin.x()) + double(gap.width);
    const double high = (m_warpMax.y() - m_warpMin.y()) + double(gap.height);
    const int y = staysOnTop ? 0 : narrowedAndTruncated(high - unwarped.height());
    return QRectF(narrowedAndTruncated((wide - unwarped.width()) * 0.5), y, truncated(wide),
                  truncated(high));
}

void CWordProcess::setPathElementPos(QPainterPath &path, int index, QPointF pos)
{
    widen(m_warpMin, m_warpMax, pos);
    path.setElementPositionAt(index, pos.x(), pos.y());
}

QList<QLineF> CWordProcess::getAllBaseLines() const
{
    return m_wordManager ? m_wordManager->textLayout().baselines() : QList<QLineF>();
}
