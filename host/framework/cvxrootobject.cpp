// SPDX-License-Identifier: MIT
// cvxrootobject.cpp -- CVXRootObject: surroundings, life, place and size, rendering, fallbacks.
// The item's own origin is the one point of reference: pos() is where it lies and rotation() turns
// about it; what is to turn or stay about another point is moved afterwards.
#include "host/framework/cvxrootobject.h"

#include "host/framework/cundoredo.h"
#include "host/framework/geometrystep_p.h"
#include "host/framework/idocumenthost.h"
#include "host/framework/ivxpage.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QPainter>

#include <cmath>

namespace {

constexpr double LargestImageEdge = 32767;              // limit of the raster engine's coordinates
constexpr double LargestImageArea = 64.0 * 1024 * 1024; // pixels of 4 bytes

bool isFinite(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool isUsable(const QSizeF &size)
{
    return std::isfinite(size.width()) && std::isfinite(size.height()) && size.width() >= 0
           && size.height() >= 0;
}

/// Moves \a item so that its point \a local comes to lie on \a scene.
void movePointTo(QGraphicsItem *item, const QPointF &local, const QPointF &scene)
{
    const QPointF now = item->mapToScene(local);
    const QPointF pos = item->scenePos() + (scene - now);
    item->setPos(item->parentItem() ? item->parentItem()->mapFromScene(pos) : pos);
}

} // namespace

CVXRootObject::CVXRootObject(IVxPage *page)
    : m_clientShape(new QPainterPath)
    , m_actionState(new ActionState)
    , m_drawDelegate(new CObjDrawDelegate)
    , m_page(page)
    , m_fillProp(page)
{
    m_fillProp.setFillEnable(true);
    m_fillProp.setColor(Qt::black);
}

CVXRootObject::~CVXRootObject()
{
    for (CWbUndoCmd *step : qAsConst(m_undoSteps))
        step->forgetObject();
    delete m_drawDelegate;
    delete m_actionState;
    delete m_clientShape;
}

const QGraphicsItem *CVXRootObject::graphicsItem() const
{
    return const_cast<CVXRootObject *>(this)->GetGraphicsItemPtr();
}

// Surroundings

IDocumentHost *CVXRootObject::getDocument() const
{
    return m_page ? m_page->getDocument() : nullptr;
}

CUndoRedo *CVXRootObject::undoStack() const
{
    CUndoRedo *const own = m_page ? m_page->undoStack() : nullptr;
    return own ? own : CUndoRedo::GetInstance();
}

float CVXRootObject::getCurZoomRate() const
{
    const float zoom = m_page ? m_page->getCurZoomRate() : 1.0f;
    return std::isfinite(zoom) && zoom > 0 ? zoom : 1.0f;
}

void CVXRootObject::updatePreview()
{
    if (m_page)
        m_page->objectPreviewChanged(this);
}

// Life

void CVXRootObject::Release()
{
    if (m_undoSteps.isEmpty()) {
        delete this;
        return;
    }
    m_released = true;
    QGraphicsItem *const item = GetGraphicsItemPtr();
    if (item && item->scene())
        item->scene()->removeItem(item);
    m_page = nullptr; // the page may be gone before the last step is
}

void CVXRootObject::addUndoStep(CWbUndoCmd *step)
{
    m_undoSteps.append(step);
}

void CVXRootObject::removeUndoStep(CWbUndoCmd *step)
{
    m_undoSteps.removeOne(step);
    if (m_released && m_undoSteps.isEmpty())
        delete this;
}

void CVXRootObject::onCreateFinished(bool finished)
{
    const bool becomesFinished = finished && !m_created;
    m_created = finished;
    if (becomesFinished && m_page)
        m_page->objectCreated(this);
    updatePreview();
}

// Painting

void CVXRootObject::drawForeground(QPainter *painter, const QRectF &rect)
{
    Q_UNUSED(painter)
    Q_UNUSED(rect)
}

QPainterPath CVXRootObject::getClientPath()
{
    QPainterPath path;
    path.addRect(m_clientRect);
    return path;
}

void CVXRootObject::paintContent(QPainter *painter)
{
    painter->save();
    painter->translate(getDrawClientRect().topLeft() - m_clientRect.topLeft());
    OnQPainterDraw(painter);
    painter->restore();
}

QImage CVXRootObject::getImageFromObject(QRectF &rect, bool withHandles)
{
    QGraphicsItem *const item = GetGraphicsItemPtr();
    const QRectF area = getDrawClientRect();
    if (!item || area.isEmpty())
        return QImage();
    const QTransform toScene = item->sceneTransform();
    const QRectF covered = toScene.mapRect(area);
    const bool drawable = isFinite(covered.topLeft()) && isFinite(covered.bottomRight())
                          && std::abs(covered.x()) < 1e9 && std::abs(covered.y()) < 1e9
                          && covered.width() <= LargestImageEdge - 2
                          && covered.height() <= LargestImageEdge - 2
                          && covered.width() * covered.height() <= LargestImageArea;
    if (!drawable)
        return QImage();
    const QRect pixels = covered.toAlignedRect();
    QImage image(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return QImage();
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(-pixels.topLeft());
    painter.save();
    painter.setTransform(toScene, /*combine=*/true);
    paintContent(&painter);
    painter.restore();
    if (withHandles)
        paintHandlersInScene(item, &painter);
    rect = pixels;
    return image;
}

void CVXRootObject::setMyPen(const QPen &pen)
{
    if (!std::isfinite(pen.widthF()) || pen.widthF() < 0)
        return;
    m_pen = pen;
    update();
}

void CVXRootObject::setFillProp(const CPageBgProp &fill)
{
    m_fillProp = fill;
    update();
}

// Place and size

QPointF CVXRootObject::getPos() const
{
    const QGraphicsItem *const item = graphicsItem();
    return item ? item->scenePos() : QPointF();
}

void CVXRootObject::setPos(const QPointF &pos, bool undo)
{
    QGraphicsItem *const item = GetGraphicsItemPtr();
    if (!item || !isFinite(pos))
        return;
    const ObjectGeometry before = ObjectGeometry::of(this);
    item->setPos(item->parentItem() ? item->parentItem()->mapFromScene(pos) : pos);
    const ObjectGeometry after = ObjectGeometry::of(this);
    if (undo && before != after)
        undoStack()->push(new GeometryStep(this, before, after));
}

void CVXRootObject::setClientRect(const QRectF &rect)
{
    m_clientRect = rect;
    delete m_clientShape;
    m_clientShape = new QPainterPath;
    m_clientShape->addRect(rect);
}

void CVXRootObject::setSize(const QSizeF &size, bool undo, bool notify)
{
    if (!isUsable(size))
        return;
    const ObjectGeometry before = ObjectGeometry::of(this);
    setClientRect(QRectF(QPointF(0, 0), size));
    updateAfterObjRectChanged(GetGraphicsItemPtr(), notify);
    const ObjectGeometry after = ObjectGeometry::of(this);
    if (undo && before != after)
        undoStack()->push(new GeometryStep(this, before, after));
}

void CVXRootObject::setCenterPos(const QPointF &centre, const QSizeF &size)
{
    QGraphicsItem *const item = GetGraphicsItemPtr();
    if (item && isFinite(centre) && isUsable(size))
        movePointTo(item, QPointF(size.width() / 2, size.height() / 2), centre);
}

void CVXRootObject::rotateObj(double angle, bool undo)
{
    QGraphicsItem *const item = GetGraphicsItemPtr();
    if (!item || !std::isfinite(angle))
        return;
    const ObjectGeometry before = ObjectGeometry::of(this);
    const QPointF middle = m_clientRect.center();
    const QPointF centre = item->mapToScene(middle);
    item->setRotation(item->rotation() + angle);
    movePointTo(item, middle, centre);
    const ObjectGeometry after = ObjectGeometry::of(this);
    if (undo && before != after)
        undoStack()->push(new GeometryStep(this, before, after));
}

double CVXRootObject::getRotate() const
{
    const QGraphicsItem *const item = graphicsItem();
    return item ? item->rotation() : 0.0;
}

void CVXRootObject::setZorder(int order)
{
    if (QGraphicsItem *const item = GetGraphicsItemPtr())
        item->setZValue(order);
}

int CVXRootObject::getZorder() const
{
    const QGraphicsItem *const item = graphicsItem();
    return item ? qRound(qBound(-2147483647.0, item->zValue(), 2147483647.0)) : 0;
}

void CVXRootObject::setFlip(bool flip, bool notify)
{
    m_flipped = flip;
    if (notify)
        update();
}

bool CVXRootObject::isFlip()
{
    return m_flipped;
}

void CVXRootObject::setMirror(bool mirror, bool notify)
{
    m_mirrored = mirror;
    if (notify)
        update();
}

bool CVXRootObject::isMirror()
{
    return m_mirrored;
}

void CVXRootObject::setLocked(bool locked, bool undo, bool notify)
{
    if (locked == m_locked)
        return;
    m_locked = locked;
    if (notify)
        update();
    if (undo)
        undoStack()->push(new LockStep(this, locked));
}

bool CVXRootObject::isVisible() const
{
    const QGraphicsItem *const item = graphicsItem();
    return item && item->isVisible();
}

void CVXRootObject::updateAfterObjRectChanged(QGraphicsItem *item, bool notify)
{
    if (item)
        item->update();
    if (notify)
        updatePreview();
}

void CVXRootObject::doSelected(bool selected, bool notify)
{
    QGraphicsItem *const item = GetGraphicsItemPtr();
    if (!item)
        return;
    item->setSelected(selected);
    if (notify)
        update();
}

// Attributes and properties: nothing is known here

bool CVXRootObject::setAllAttributes(const AttributeMap &attributes, bool withUndo)
{
    Q_UNUSED(attributes)
    Q_UNUSED(withUndo)
    return false;
}

bool CVXRootObject::getAllAttributes(AttributeMap &attributes)
{
    Q_UNUSED(attributes)
    return false;
}

bool CVXRootObject::SetSpecialProperty(int number, QDataStream &stream, bool flag)
{
    Q_UNUSED(number)
    Q_UNUSED(stream)
    Q_UNUSED(flag)
    return false;
}

bool CVXRootObject::GetSpecialProperty(int number, QDataStream &stream)
{
    Q_UNUSED(number)
    Q_UNUSED(stream)
    return false;
}

bool CVXRootObject::SetAttribute(int id, QDataStream &stream, bool flag)
{
    Q_UNUSED(id)
    Q_UNUSED(stream)
    Q_UNUSED(flag)
    return false;
}

bool CVXRootObject::GetAttribute(int id, QDataStream &stream)
{
    Q_UNUSED(id)
    Q_UNUSED(stream)
    return false;
}

bool CVXRootObject::canDo(OperationType operation)
{
    switch (operation) {
    case OP_Move:
    case OP_Resize:
    case OP_Rotate:
        return !m_locked;
    default:
        return false;
    }
}

QPoint CVXRootObject::getCursorPos()
{
    return QPoint();
}

void CVXRootObject::updateCursorColor(const QColor &background)
{
    Q_UNUSED(background)
}

void CVXRootObject::setTempValue(const QString &name, const QVariant &value)
{
    if (value.isValid())
        m_tempValues.insert(name, value);
    else
        m_tempValues.remove(name);
}
