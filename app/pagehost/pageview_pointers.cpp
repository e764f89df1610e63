// SPDX-License-Identifier: MIT
// pageview_pointers.cpp -- PageView: the shape of the pointer over what it can act on.
#include "app/pagehost/pageview.h"

#include "app/pagehost/pagesession.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cvxrootobject.h"

#include <QGraphicsItem>
#include <QtMath>

#include <cmath>

namespace {

/// The pointer over an edge or corner of an upright object, and the direction in which it points:
/// degrees, clockwise, from the right.
struct HandlePointer {
    int handle;
    double angle;
};

// clang-format off
constexpr HandlePointer handlePointers[] = {
    {CObjAction::ACT_Right,        0},
    {CObjAction::ACT_BottomRight,  45},
    {CObjAction::ACT_BottomCentre, 90},
    {CObjAction::ACT_BottomLeft,   135},
    {CObjAction::ACT_Left,         180},
    {CObjAction::ACT_TopLeft,      225},
    {CObjAction::ACT_TopCentre,    270},
    {CObjAction::ACT_TopRight,     315},
};
// clang-format on

/// The pointer of a drag along \a angle.
Qt::CursorShape shapeAlong(double angle)
{
    constexpr Qt::CursorShape shapes[] = {Qt::SizeHorCursor, Qt::SizeFDiagCursor, Qt::SizeVerCursor,
                                          Qt::SizeBDiagCursor};
    const double turned = std::fmod(std::fmod(angle, 180.0) + 180.0, 180.0);
    return shapes[qRound(turned / 45.0) % 4];
}

Qt::CursorShape pointerOfHandle(int handle, double rotation)
{
    for (const HandlePointer &row : handlePointers) {
        if (row.handle == handle)
            return shapeAlong(row.angle + rotation);
    }
    return handle == CObjAction::ACT_Rotate ? Qt::PointingHandCursor : Qt::ArrowCursor;
}

struct DirectionPointer {
    const char *name;
    Qt::CursorShape shape;
};

// clang-format off
constexpr DirectionPointer directionPointers[] = {
    {"tl_or_br",  Qt::SizeFDiagCursor},
    {"tr_or_br",  Qt::SizeBDiagCursor},
    {"tc_or_bc",  Qt::SizeVerCursor},
    {"cr_or_cl",  Qt::SizeHorCursor},
    {"edit_move", Qt::SizeAllCursor},
};
// clang-format on

} // namespace

void PageView::resetPointer()
{
    viewport()->setCursor(m_tool == EditorTool::Select ? Qt::ArrowCursor : Qt::CrossCursor);
}

void PageView::setDirection(const QString &direction, bool horizontal)
{
    for (const DirectionPointer &row : directionPointers) {
        if (direction == QLatin1String(row.name)) {
            viewport()->setCursor(row.shape);
            return;
        }
    }
    viewport()->setCursor(horizontal ? Qt::IBeamCursor : Qt::SplitVCursor);
}

/// Outside an edit, where objects say nothing.
void PageView::showPointerOver(const QPointF &scenePos)
{
    CVXRootObject *edited = m_session->editedObject();
    if (edited && objectUnder(scenePos) == edited) {
        if (TextCommands::isArtText(edited))
            setDirection(QString(), /*horizontal=*/true);
        return; // a rich text says itself
    }
    int handle = CObjAction::ACT_None;
    CVXRootObject *owner = handleOwner(scenePos, &handle);
    CVXRootObject *under = owner ? owner : objectUnder(scenePos);
    if (owner)
        viewport()->setCursor(pointerOfHandle(handle, owner->getRotate()));
    else if (under && m_tool == EditorTool::Text && TextCommands::isRichText(under))
        setDirection(QString(), /*horizontal=*/true);
    else if (under && under->graphicsItem()->isSelected() && !under->isLocked())
        viewport()->setCursor(Qt::SizeAllCursor);
    else
        resetPointer();
}
