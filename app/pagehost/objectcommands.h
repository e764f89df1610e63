// SPDX-License-Identifier: MIT
// objectcommands.h -- what the user does to the selected objects of a page.
#ifndef PAGEHOST_OBJECTCOMMANDS_H
#define PAGEHOST_OBJECTCOMMANDS_H

#include <QPointF>
#include <QRectF>

class CVXRootObject;
class PageSession;

/// Each ends an open edit, acts on the selected objects and is one undo step; none when nothing
/// changes. Locked objects keep their place, rotation and order.
namespace ObjectCommands {

enum class Edge { Left, Centre, Right, Top, Middle, Bottom };
enum class Order { ToFront, Forward, Backward, ToBack };

/// The upright rectangle (scene) around the client rectangle of \a object.
QRectF boundsOf(CVXRootObject *object);
/// That of all selected objects; null without one.
QRectF selectionBounds(const PageSession &session);

/// \param way page pixels
/// \param continues goes on with the move before, as a key does that is held: both are one step
void move(PageSession &session, const QPointF &way, bool continues = false);
/// Clockwise, each object about its own middle.
void rotate(PageSession &session, double degrees);
/// Brings objects to an edge or the middle of what the selection covers; one alone, to that of the page.
void align(PageSession &session, Edge edge);
/// Makes the gaps between three objects or more equal; the outermost stay.
void distribute(PageSession &session, Qt::Orientation direction);
/// Above or below other objects. Selected objects keep their order among themselves.
void arrange(PageSession &session, Order order);
/// True when all selected objects are locked, and there is one.
bool isLocked(const PageSession &session);
void setLocked(PageSession &session, bool locked);

} // namespace ObjectCommands

#endif
