// SPDX-License-Identifier: MIT
// geometrystep_p.h -- the host's own undo steps: geometry and lock of an object.
#ifndef GEOMETRYSTEP_P_H
#define GEOMETRYSTEP_P_H

#include "host/framework/cundoredo.h"

#include <QPointF>
#include <QSizeF>

/// Where an object lies. Scene coordinates and degrees.
struct ObjectGeometry {
    QPointF pos;
    QSizeF size;
    double rotation = 0;

    static ObjectGeometry of(const CVXRootObject *object);
    bool operator==(const ObjectGeometry &other) const;
    bool operator!=(const ObjectGeometry &other) const { return !(*this == other); }
};

/// Gives \a object this geometry; the size only when it differs from the present one.
void applyGeometry(CVXRootObject *object, const ObjectGeometry &geometry);

/// A finished move, resize or rotation. The object has the new geometry already when the step is
/// pushed.
class GeometryStep : public CWbUndoCmd
{
public:
    GeometryStep(CVXRootObject *object, const ObjectGeometry &before, const ObjectGeometry &after);
    void undo() override;
    void redo() override;

private:
    ObjectGeometry m_before;
    ObjectGeometry m_after;
    bool m_applied = true;
};

/// Locking or unlocking an object.
class LockStep : public CWbUndoCmd
{
public:
    LockStep(CVXRootObject *object, bool locked);
    void undo() override;
    void redo() override;

private:
    bool m_locked;
};

#endif
