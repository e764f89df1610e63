// SPDX-License-Identifier: MIT
#include "app/pagehost/objectcommands.h"

#include "app/page/page.h"
#include "app/pagehost/objectsteps.h"
#include "app/pagehost/pagesession.h"
#include "host/framework/cvxrootobject.h"

#include <QGraphicsItem>

#include <algorithm>
#include <functional>

namespace {

const QString moveKey = QStringLiteral("IDS_ITEM_MOVE");
const QString rotateKey = QStringLiteral("IDS_ITEM_ROTATE");
const QString alignKey = QStringLiteral("IDS_ITEM_ALIGN");
const QString orderKey = QStringLiteral("IDS_ITEM_ORDER");

using Ways = QVector<MoveStep::Way>;

/// The selected objects that may change, the lowest first.
QList<CVXRootObject *> movable(const PageSession &session)
{
    QList<CVXRootObject *> objects = session.page()->getSelectedObjects();
    objects.erase(std::remove_if(objects.begin(), objects.end(),
                                 [](CVXRootObject *object) { return object->isLocked(); }),
                  objects.end());
    return objects;
}

void pushMoves(PageSession &session, Ways ways, const QString &name, bool continues)
{
    ways.erase(std::remove_if(ways.begin(), ways.end(),
                              [](const MoveStep::Way &way) { return way.from == way.to; }),
               ways.end());
    if (!ways.isEmpty())
        session.undoStack()->push(new MoveStep(ways, name, continues));
}

QPointF wayToEdge(const QRectF &bounds, const QRectF &target, ObjectCommands::Edge edge)
{
    using Edge = ObjectCommands::Edge;
    switch (edge) {
    case Edge::Left:
        return {target.left() - bounds.left(), 0};
    case Edge::Centre:
        return {target.center().x() - bounds.center().x(), 0};
    case Edge::Right:
        return {target.right() - bounds.right(), 0};
    case Edge::Top:
        return {0, target.top() - bounds.top()};
    case Edge::Middle:
        return {0, target.center().y() - bounds.center().y()};
    case Edge::Bottom:
        return {0, target.bottom() - bounds.bottom()};
    }
    return {};
}

/// \a objects with each that \a isTaken one place higher, past those that are not.
void raiseByOne(QList<CVXRootObject *> &objects,
                const std::function<bool(CVXRootObject *)> &isTaken)
{
    for (int i = objects.size() - 2; i >= 0; --i) {
        if (isTaken(objects.at(i)) && !isTaken(objects.at(i + 1)))
            objects.swapItemsAt(i, i + 1);
    }
}

void lowerByOne(QList<CVXRootObject *> &objects,
                const std::function<bool(CVXRootObject *)> &isTaken)
{
    for (int i = 1; i < objects.size(); ++i) {
        if (isTaken(objects.at(i)) && !isTaken(objects.at(i - 1)))
            objects.swapItemsAt(i, i - 1);
    }
}

} // namespace

QRectF ObjectCommands::boundsOf(CVXRootObject *object)
{
    return object->GetGraphicsItemPtr()->mapRectToScene(object->getClientRect());
}

QRectF ObjectCommands::selectionBounds(const PageSession &session)
{
    QRectF bounds;
    const QList<CVXRootObject *> selected = session.page()->getSelectedObjects();
    for (CVXRootObject *object : selected)
        bounds |= boundsOf(object);
    return bounds;
}

void ObjectCommands::move(PageSession &session, const QPointF &way, bool continues)
{
    session.endEdit();
    Ways ways;
    const QList<CVXRootObject *> objects = movable(session);
    for (CVXRootObject *object : objects)
        ways.append({object, object->getPos(), object->getPos() + way});
    pushMoves(session, ways, moveKey, continues);
}

void ObjectCommands::rotate(PageSession &session, double degrees)
{
    session.endEdit();
    session.undoStack()->beginGroup(rotateKey);
    const QList<CVXRootObject *> objects = movable(session);
    for (CVXRootObject *object : objects)
        object->rotateObj(degrees, /*undo=*/true);
    session.undoStack()->endGroup();
}

void ObjectCommands::align(PageSession &session, Edge edge)
{
    session.endEdit();
    const bool isAlone = session.page()->getSelectedObjects().size() == 1;
    const QRectF target = isAlone ? QRectF(QPointF(0, 0), session.size())
                                  : selectionBounds(session);
    Ways ways;
    const QList<CVXRootObject *> objects = movable(session);
    for (CVXRootObject *object : objects) {
        const QPointF way = wayToEdge(boundsOf(object), target, edge);
        ways.append({object, object->getPos(), object->getPos() + way});
    }
    pushMoves(session, ways, alignKey, /*continues=*/false);
}

void ObjectCommands::distribute(PageSession &session, Qt::Orientation direction)
{
    session.endEdit();
    QList<CVXRootObject *> objects = movable(session);
    if (objects.size() < 3)
        return;
    const bool isAcross = direction == Qt::Horizontal;
    const auto start = [&](CVXRootObject *object) {
        return isAcross ? boundsOf(object).left() : boundsOf(object).top();
    };
    const auto length = [&](CVXRootObject *object) {
        return isAcross ? boundsOf(object).width() : boundsOf(object).height();
    };
    std::stable_sort(objects.begin(), objects.end(),
                     [&](CVXRootObject *a, CVXRootObject *b) { return start(a) < start(b); });
    CVXRootObject *const last = objects.constLast();
    double room = start(last) - start(objects.constFirst());
    for (int i = 0; i < objects.size() - 1; ++i)
        room -= length(objects.at(i));
    const double gap = room / (objects.size() - 1);
    Ways ways;
    double place = start(objects.constFirst());
    for (CVXRootObject *object : qAsConst(objects)) {
        const double way = object == last ? 0 : place - start(object);
        ways.append({object, object->getPos(),
                     object->getPos() + (isAcross ? QPointF(way, 0) : QPointF(0, way))});
        place += length(object) + gap;
    }
    pushMoves(session, ways, alignKey, /*continues=*/false);
}

void ObjectCommands::arrange(PageSession &session, Order order)
{
    session.endEdit();
    const QList<CVXRootObject *> taken = movable(session);
    const auto isTaken = [&taken](CVXRootObject *object) { return taken.contains(object); };
    const auto isLeft = [&taken](CVXRootObject *object) { return !taken.contains(object); };
    const QList<CVXRootObject *> before = session.page()->objects();
    QList<CVXRootObject *> after = before;
    switch (order) {
    case Order::ToFront:
        std::stable_partition(after.begin(), after.end(), isLeft);
        break;
    case Order::Forward:
        raiseByOne(after, isTaken);
        break;
    case Order::Backward:
        lowerByOne(after, isTaken);
        break;
    case Order::ToBack:
        std::stable_partition(after.begin(), after.end(), isTaken);
        break;
    }
    if (after != before)
        session.undoStack()->push(new OrderStep(session.page(), after, orderKey));
}

bool ObjectCommands::isLocked(const PageSession &session)
{
    const QList<CVXRootObject *> selected = session.page()->getSelectedObjects();
    return !selected.isEmpty()
           && std::all_of(selected.begin(), selected.end(),
                          [](CVXRootObject *object) { return object->isLocked(); });
}

void ObjectCommands::setLocked(PageSession &session, bool locked)
{
    session.endEdit();
    session.undoStack()->beginGroup(locked ? QStringLiteral("IDS_ITEM_LOCK")
                                           : QStringLiteral("IDS_ITEM_UNLOCK"));
    const QList<CVXRootObject *> selected = session.page()->getSelectedObjects();
    for (CVXRootObject *object : selected)
        object->setLocked(locked, /*undo=*/true, /*notify=*/true);
    session.undoStack()->endGroup();
}
