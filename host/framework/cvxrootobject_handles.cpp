// SPDX-License-Identifier: MIT
// cvxrootobject_handles.cpp -- CVXRootObject: the handles, their places, hit test and painting.
// Sizes are constant on screen: in item coordinates they shrink as the zoom grows.
#include "host/framework/cvxrootobject.h"

#include <QGraphicsItem>
#include <QLineF>
#include <QPainter>

#include <cmath>

namespace {

const QColor FrameColor(0x02, 0x7a, 0xff);

constexpr double HandleEdge = 10.0;           // screen pixels
constexpr double RotateHandleDistance = 24.0; // screen pixels above the top edge

/// Where a handle lies: fractions of the client rectangle.
struct HandlePlace {
    int id;
    double across, down;
};

// clang-format off
constexpr HandlePlace SizeHandles[] = {
    {CObjAction::ACT_BottomRight,  1.0, 1.0},
    {CObjAction::ACT_TopLeft,      0.0, 0.0},
    {CObjAction::ACT_TopRight,     1.0, 0.0},
    {CObjAction::ACT_BottomLeft,   0.0, 1.0},
    {CObjAction::ACT_Right,        1.0, 0.5},
    {CObjAction::ACT_Left,         0.0, 0.5},
    {CObjAction::ACT_TopCentre,    0.5, 0.0},
    {CObjAction::ACT_BottomCentre, 0.5, 1.0},
};
// clang-format on

/// The device pixels under a painter of a scene. Lines of penWidth() between points that it has placed
/// cover whole pixels; what is turned stays where it is, and is smooth.
class PixelGrid
{
public:
    PixelGrid(const QPainter &painter, const QGraphicsItem &item)
        : m_toDevice(painter.deviceTransform())
        , m_toScene(m_toDevice.inverted())
        , m_isUpright((item.sceneTransform() * m_toDevice).type() <= QTransform::TxScale)
        , m_penWidth(qMax(1, qRound(painter.device()->devicePixelRatioF())))
    {
    }

    int penWidth() const { return m_penWidth; }
    QPointF placed(const QPointF &scene) const
    {
        return m_isUpright ? m_toScene.map(placedInDevice(scene)) : scene;
    }
    QPolygonF placed(const QPolygonF &scene) const
    {
        QPolygonF result;
        for (const QPointF &point : scene)
            result.append(placed(point));
        return result;
    }
    /// The square handle around \a middle.
    QPolygonF square(const QPolygonF &handle, const QPointF &middle) const
    {
        if (!m_isUpright)
            return handle;
        const QPointF centre = placedInDevice(middle);
        const double half = std::round(m_toDevice.mapRect(handle.boundingRect()).width() / 2);
        return m_toScene.map(
            QPolygonF(QRectF(centre - QPointF(half, half), QSizeF(half, half) * 2)));
    }

private:
    QPointF placedInDevice(const QPointF &scene) const
    {
        const double middleOfPen = m_penWidth % 2 == 0 ? 0.0 : 0.5;
        const QPointF device = m_toDevice.map(scene);
        return {std::floor(device.x()) + middleOfPen, std::floor(device.y()) + middleOfPen};
    }

    QTransform m_toDevice;
    QTransform m_toScene;
    bool m_isUpright;
    int m_penWidth;
};

} // namespace

double CVXRootObject::handleSize() const
{
    return HandleEdge / double(getCurZoomRate());
}

QPointF CVXRootObject::handlePosition(int handle) const
{
    if (handle == CObjAction::ACT_Rotate) {
        const double distance = RotateHandleDistance / double(getCurZoomRate());
        return {m_clientRect.center().x(), m_clientRect.top() - distance};
    }
    for (const HandlePlace &place : SizeHandles) {
        if (place.id == handle)
            return m_clientRect.topLeft()
                   + QPointF(place.across * m_clientRect.width(),
                             place.down * m_clientRect.height());
    }
    return m_clientRect.center();
}

QRectF CVXRootObject::handleRect(int handle, double scale) const
{
    const double edge = handleSize() * scale;
    const QPointF middle = handlePosition(handle);
    return {middle.x() - edge / 2, middle.y() - edge / 2, edge, edge};
}

bool CVXRootObject::isHandleShown(int handle) const
{
    return m_showHandles && !m_locked && !m_disabledHandles.contains(handle);
}

int CVXRootObject::HitTestHandle(const QPointF &point) const
{
    // Handles of a small object overlap: the one whose middle is nearest counts.
    int hit = CObjAction::ACT_None;
    double nearest = 0;
    const auto test = [&](int handle) {
        if (!isHandleShown(handle) || !handleRect(handle, 1.0).contains(point))
            return;
        const double distance = QLineF(point, handlePosition(handle)).length();
        if (hit == CObjAction::ACT_None || distance < nearest) {
            hit = handle;
            nearest = distance;
        }
    };
    for (const HandlePlace &place : SizeHandles)
        test(place.id);
    test(CObjAction::ACT_Rotate);
    return hit;
}

void CVXRootObject::setHandlesDisable(CObjAction::ACT_Def handle, bool disable)
{
    if (disable == m_disabledHandles.contains(handle))
        return;
    if (disable)
        m_disabledHandles.insert(handle);
    else
        m_disabledHandles.remove(handle);
    if (QGraphicsItem *const item = GetGraphicsItemPtr())
        item->update();
}

void CVXRootObject::setShowHandles(QGraphicsItem *item, bool show, bool repaint)
{
    m_showHandles = show;
    if (item && repaint)
        item->update();
}

void CVXRootObject::addHandlePath(QGraphicsItem *item, QPainterPath *path, double scale) const
{
    if (!item || !path || !(scale > 0))
        return;
    for (const HandlePlace &place : SizeHandles) {
        if (isHandleShown(place.id))
            path->addRect(handleRect(place.id, scale));
    }
    if (isHandleShown(CObjAction::ACT_Rotate))
        path->addRect(handleRect(CObjAction::ACT_Rotate, scale));
}

void CVXRootObject::paintHandlersInScene(QGraphicsItem *item, QPainter *painter)
{
    const bool dashed = m_otherParams.value(QStringLiteral("dashlineRectangleHandle")).toBool();
    if (!item || !painter || (!m_showHandles && !dashed))
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    const PixelGrid grid(*painter, *item);
    QPen pen(FrameColor, grid.penWidth(), dashed ? Qt::DashLine : Qt::SolidLine, Qt::SquareCap,
             Qt::MiterJoin);
    pen.setCosmetic(true);
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawPolygon(grid.placed(item->mapToScene(m_clientRect)));

    pen.setStyle(Qt::SolidLine);
    painter->setPen(pen);
    painter->setBrush(Qt::white);
    if (isHandleShown(CObjAction::ACT_Rotate)) {
        const QPointF middle = grid.placed(
            item->mapToScene(handlePosition(CObjAction::ACT_Rotate)));
        painter->drawLine(grid.placed(item->mapToScene(handlePosition(CObjAction::ACT_TopCentre))),
                          middle);
        painter->drawEllipse(middle, handleSize() / 2, handleSize() / 2);
    }
    for (const HandlePlace &place : SizeHandles) {
        if (isHandleShown(place.id))
            painter->drawPolygon(grid.square(item->mapToScene(handleRect(place.id, 1.0)),
                                             item->mapToScene(handlePosition(place.id))));
    }
    painter->restore();
}
