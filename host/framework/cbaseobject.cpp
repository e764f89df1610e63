// SPDX-License-Identifier: MIT
// cbaseobject.cpp -- CBaseObject: painting, selection and the drags that move, resize and rotate.
#include "host/framework/cbaseobject.h"

#include "host/framework/cundoredo.h"
#include "host/framework/geometrystep_p.h"
#include "host/framework/ivxpage.h"

#include <QGraphicsEffect>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QLineF>
#include <QPainter>
#include <QPointer>

#include <cmath>
#include <utility>

namespace {

constexpr double MoveThreshold = 2.0; // screen pixels that a click may slip
constexpr double SmallestEdge = 1.0;  // scene units that a resize leaves
constexpr double RotationStep = 15.0; // degrees, with Shift

/// How a size handle works: the direction in which each edge follows the pointer (-1, 0, 1).
struct ResizeRule {
    int handle;
    int across, down;
};

// clang-format off
constexpr ResizeRule ResizeRules[] = {
    {CObjAction::ACT_TopLeft,      -1, -1},
    {CObjAction::ACT_TopCentre,     0, -1},
    {CObjAction::ACT_TopRight,      1, -1},
    {CObjAction::ACT_Right,         1,  0},
    {CObjAction::ACT_BottomRight,   1,  1},
    {CObjAction::ACT_BottomCentre,  0,  1},
    {CObjAction::ACT_BottomLeft,   -1,  1},
    {CObjAction::ACT_Left,         -1,  0},
};
// clang-format on

const ResizeRule *resizeRule(int handle)
{
    for (const ResizeRule &rule : ResizeRules) {
        if (rule.handle == handle)
            return &rule;
    }
    return nullptr;
}

/// \a vector of the scene in the axes of an object that is turned by \a degrees.
QPointF inObjectAxes(const QPointF &vector, double degrees)
{
    return QTransform().rotate(-degrees).map(vector);
}

/// Angle of \a point about \a centre, degrees, clockwise on screen.
double angleAbout(const QPointF &centre, const QPointF &point)
{
    return std::atan2(point.y() - centre.y(), point.x() - centre.x()) * 180.0 / M_PI;
}

} // namespace

/// Where a move, resize or rotation began.
struct CBaseObject::Drag {
    QPointF start;           ///< pointer, scene
    ObjectGeometry geometry; ///< of the object at the start
    QPointF fixedFraction;   ///< the corner that a resize keeps, fractions of the client size
    QPointF fixedPoint;      ///< where that corner lies, scene
    QPointF centre;          ///< of the client rectangle, scene
    bool moving = false;     ///< the pointer has left the threshold

    /// A selected object that moves along. It may end or leave its scene meanwhile.
    struct Companion {
        CVXRootObject *object;
        QPointer<QGraphicsObject> item;
        ObjectGeometry geometry; ///< at the start

        bool isThere() const { return item && item->scene(); }
    };
    QVector<Companion> companions;
};

CBaseObject::CBaseObject(int id, bool finished, QGraphicsItem *parent, IVxPage *page)
    : QGraphicsTextItem(parent)
    , CVXRootObject(page)
{
    setObjId(id);
    m_created = finished;
    setFlag(QGraphicsItem::ItemIsSelectable, true);
    setFlag(QGraphicsItem::ItemSendsGeometryChanges, true);
    syncBounds();
}

CBaseObject::~CBaseObject() = default;

// QGraphicsItem

QRectF CBaseObject::boundingRect() const
{
    return m_bounds;
}

QPainterPath CBaseObject::shape() const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRect(m_clientRect);
    if (isSelected())
        addHandlePath(const_cast<CBaseObject *>(this), &path, 1.0);
    return path;
}

bool CBaseObject::contains(const QPointF &point) const
{
    return shape().contains(point);
}

void CBaseObject::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    Q_UNUSED(option)
    Q_UNUSED(widget)
    paintContent(painter);
    m_drawDelegate->paintInvertArea(painter);
}

QVariant CBaseObject::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSelectedHasChanged)
        setShowHandles(this, isSelected() && !m_actionState->editing, /*repaint=*/true);
    return QGraphicsTextItem::itemChange(change, value);
}

// CVXRootObject

QString CBaseObject::getObjName() const
{
    return QStringLiteral("object");
}

void CBaseObject::OnQPainterDraw(QPainter *painter)
{
    Q_UNUSED(painter)
}

bool CBaseObject::canDo(OperationType operation)
{
    return CVXRootObject::canDo(operation);
}

void CBaseObject::update()
{
    QGraphicsItem::update();
}

void CBaseObject::update(const QRectF &rect)
{
    QGraphicsItem::update(rect);
}

void CBaseObject::setSize(const QSizeF &size, bool undo, bool notify)
{
    CVXRootObject::setSize(size, undo, notify);
}

void CBaseObject::setPos(const QPointF &pos, bool undo)
{
    CVXRootObject::setPos(pos, undo);
}

void CBaseObject::updateAfterObjRectChanged(QGraphicsItem *item, bool notify)
{
    syncBounds();
    CVXRootObject::updateAfterObjRectChanged(item, notify);
}

/// The scene has to hear of new bounds before boundingRect() answers them. An override of
/// boundingRect() may have changed by itself: that is noticed here too.
void CBaseObject::syncBounds()
{
    const double margin = handleSize();
    QRectF bounds = m_clientRect;
    bounds.setTop(handlePosition(CObjAction::ACT_Rotate).y());
    bounds.adjust(-margin, -margin, margin, margin);
    if (bounds != m_bounds) {
        prepareGeometryChange();
        m_bounds = bounds;
    }
    const QRectF known = boundingRect();
    if (known != m_knownBounds) {
        prepareGeometryChange();
        m_knownBounds = known;
    }
}

void CBaseObject::notifyObjPropertyChanged(int code, const QString &detail)
{
    Q_UNUSED(detail)
    if (code != ObjectProperty::Appearance)
        return;
    syncBounds();
    QGraphicsItem::update();
    updatePreview();
}

void CBaseObject::clearLayerEffectCache(int reason)
{
    if (reason != EffectCacheReason::ContentChanged)
        return;
    // An update of the item throws away its effect's picture of it; an update of the effect would
    // keep it.
    if (graphicsEffect())
        QGraphicsItem::update();
}

void CBaseObject::enableLayerEffect(bool enable)
{
    m_layerEffect = enable;
    if (QGraphicsEffect *const effect = graphicsEffect())
        effect->setEnabled(enable);
}

bool CBaseObject::save(QDataStream &stream)
{
    return SaveBaseData(this, stream);
}

bool CBaseObject::load(QDataStream &stream)
{
    return LoadBaseData(this, stream);
}

bool CBaseObject::saveJson(QJsonObject &json)
{
    return SaveJsonBaseData(this, json);
}

bool CBaseObject::loadJson(QJsonObject &json)
{
    return LoadJsonBaseData(this, json);
}

// The mouse

void CBaseObject::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    event->accept();
    const QPointF scenePos = event->scenePos();
    m_activeHandle = HitTestHandle(mapFromScene(scenePos)); // a locked object has none
    if (m_activeHandle == CObjAction::ACT_None)
        selectOnPress(*event);
    m_drag.reset();
    if (event->button() != Qt::LeftButton || isLocked()) {
        m_activeHandle = CObjAction::ACT_None;
        return;
    }

    m_drag = std::make_unique<Drag>();
    m_drag->start = scenePos;
    m_drag->geometry = ObjectGeometry::of(this);
    m_drag->centre = mapToScene(m_clientRect.center());
    if (const ResizeRule *const rule = resizeRule(m_activeHandle)) {
        m_drag->fixedFraction = QPointF(rule->across < 0 ? 1 : 0, rule->down < 0 ? 1 : 0);
        m_drag->fixedPoint = mapToScene(m_drag->fixedFraction.x() * m_clientRect.width(),
                                        m_drag->fixedFraction.y() * m_clientRect.height());
    }
    if (m_activeHandle != CObjAction::ACT_None || !GetPage())
        return;
    const QList<CVXRootObject *> selected = GetPage()->getSelectedObjects();
    for (CVXRootObject *object : selected) {
        if (object && object != this && !object->isLocked())
            m_drag->companions.append({object, object->GetGraphicsItemPtr()->toGraphicsObject(),
                                       ObjectGeometry::of(object)});
    }
}

void CBaseObject::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event || !m_drag)
        return;
    if (isLocked()) {
        m_drag.reset();
        m_activeHandle = CObjAction::ACT_None;
        return;
    }
    const QPointF scenePos = event->scenePos();
    if (m_activeHandle == CObjAction::ACT_Rotate)
        rotateTo(scenePos, event->modifiers() & Qt::ShiftModifier);
    else if (m_activeHandle != CObjAction::ACT_None)
        resizeTo(scenePos);
    else
        moveTo(scenePos);
}

void CBaseObject::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    Q_UNUSED(event)
    if (m_drag)
        finishDrag();
    m_drag.reset();
    m_activeHandle = CObjAction::ACT_None;
}

/// A plain press selects this object alone unless it is selected already; with Ctrl it joins or
/// leaves.
void CBaseObject::selectOnPress(const QGraphicsSceneMouseEvent &event)
{
    if (event.modifiers() & Qt::ControlModifier) {
        setSelected(!isSelected());
        return;
    }
    if (isSelected())
        return;
    if (scene())
        scene()->clearSelection();
    setSelected(true);
}

void CBaseObject::moveTo(const QPointF &scenePos)
{
    const QPointF way = scenePos - m_drag->start;
    if (!m_drag->moving && std::hypot(way.x(), way.y()) < MoveThreshold / double(getCurZoomRate()))
        return;
    m_drag->moving = true;
    setPos(m_drag->geometry.pos + way, /*undo=*/false);
    for (const Drag::Companion &companion : qAsConst(m_drag->companions)) {
        if (companion.isThere())
            companion.object->setPos(companion.geometry.pos + way, /*undo=*/false);
    }
}

void CBaseObject::resizeTo(const QPointF &scenePos)
{
    const ResizeRule *const rule = resizeRule(m_activeHandle);
    if (!rule)
        return;
    const ObjectGeometry &old = m_drag->geometry;
    const QPointF way = inObjectAxes(scenePos - m_drag->start, old.rotation);
    QSizeF size = old.size;
    if (rule->across != 0)
        size.setWidth(qMax(SmallestEdge, old.size.width() + rule->across * way.x()));
    if (rule->down != 0)
        size.setHeight(qMax(SmallestEdge, old.size.height() + rule->down * way.y()));
    if (size != getSize())
        setSize(size, /*undo=*/false, /*notify=*/true);
    // The object may have taken another size than asked for: the opposite corner stays in any case.
    const QPointF corner(m_drag->fixedFraction.x() * m_clientRect.width(),
                         m_drag->fixedFraction.y() * m_clientRect.height());
    setPos(getPos() + m_drag->fixedPoint - mapToScene(corner), /*undo=*/false);
}

void CBaseObject::rotateTo(const QPointF &scenePos, bool inSteps)
{
    if (scenePos == m_drag->centre)
        return;
    double target = m_drag->geometry.rotation + angleAbout(m_drag->centre, scenePos)
                    - angleAbout(m_drag->centre, m_drag->start);
    if (inSteps)
        target = std::round(target / RotationStep) * RotationStep;
    target = std::fmod(target, 360.0);
    rotateObj(target - getRotate(), /*undo=*/false);
}

void CBaseObject::cancelDrag()
{
    const std::unique_ptr<Drag> drag = std::move(m_drag);
    m_activeHandle = CObjAction::ACT_None;
    if (!drag)
        return;
    if (ObjectGeometry::of(this) != drag->geometry)
        applyGeometry(this, drag->geometry);
    for (const Drag::Companion &companion : qAsConst(drag->companions)) {
        if (companion.isThere() && ObjectGeometry::of(companion.object) != companion.geometry)
            applyGeometry(companion.object, companion.geometry);
    }
}

/// One undo step for the whole drag; a group of steps when several objects moved.
void CBaseObject::finishDrag()
{
    struct Change {
        CVXRootObject *object;
        ObjectGeometry before, after;
    };
    QVector<Change> changes;
    const auto note = [&changes](CVXRootObject *object, const ObjectGeometry &before) {
        const ObjectGeometry after = ObjectGeometry::of(object);
        if (before != after)
            changes.append({object, before, after});
    };
    note(this, m_drag->geometry);
    for (const Drag::Companion &companion : qAsConst(m_drag->companions)) {
        if (companion.isThere())
            note(companion.object, companion.geometry);
    }
    if (changes.isEmpty())
        return;
    CUndoRedo *const stack = undoStack();
    if (changes.size() > 1)
        stack->beginGroup(QStringLiteral("IDS_ITEM_MOVE"));
    for (const Change &change : qAsConst(changes))
        stack->push(new GeometryStep(change.object, change.before, change.after));
    if (changes.size() > 1)
        stack->endGroup();
    for (const Change &change : qAsConst(changes))
        change.object->updatePreview();
}
