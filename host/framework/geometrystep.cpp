// SPDX-License-Identifier: MIT
// geometrystep.cpp -- the host's own undo steps.
#include "host/framework/geometrystep_p.h"

#include "host/framework/cvxrootobject.h"

ObjectGeometry ObjectGeometry::of(const CVXRootObject *object)
{
    return {object->getPos(), object->getSize(), object->getRotate()};
}

bool ObjectGeometry::operator==(const ObjectGeometry &other) const
{
    return pos == other.pos && size == other.size && qFuzzyIsNull(rotation - other.rotation);
}

void applyGeometry(CVXRootObject *object, const ObjectGeometry &geometry)
{
    if (object->getSize() != geometry.size)
        object->setSize(geometry.size, /*undo=*/false, /*notify=*/true);
    const double turn = geometry.rotation - object->getRotate();
    if (!qFuzzyIsNull(turn))
        object->rotateObj(turn, /*undo=*/false);
    object->setPos(geometry.pos,
                   /*undo=*/false); // last: both calls above may have moved the object
    object->update();
}

GeometryStep::GeometryStep(CVXRootObject *object, const ObjectGeometry &before,
                           const ObjectGeometry &after)
    : m_before(before)
    , m_after(after)
{
    m_object = object;
    setText(before.size != after.size           ? QStringLiteral("IDS_ITEM_RESIZE")
            : before.rotation != after.rotation ? QStringLiteral("IDS_ITEM_ROTATE")
                                                : QStringLiteral("IDS_ITEM_MOVE"));
}

void GeometryStep::undo()
{
    m_applied = false;
    if (m_object)
        applyGeometry(m_object, m_before);
}

void GeometryStep::redo()
{
    if (m_object && !m_applied)
        applyGeometry(m_object, m_after);
    m_applied = true;
}

LockStep::LockStep(CVXRootObject *object, bool locked)
    : m_locked(locked)
{
    m_object = object;
    setText(locked ? QStringLiteral("IDS_ITEM_LOCK") : QStringLiteral("IDS_ITEM_UNLOCK"));
}

void LockStep::undo()
{
    if (m_object)
        m_object->setLocked(!m_locked, /*undo=*/false, /*notify=*/true);
}

void LockStep::redo()
{
    if (m_object)
        m_object->setLocked(m_locked, /*undo=*/false, /*notify=*/true);
}
