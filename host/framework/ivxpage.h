// SPDX-License-Identifier: MIT
// ivxpage.h -- the page that objects lie on, and the controller of its tools.
#ifndef IVXPAGE_H
#define IVXPAGE_H

#include <QList>

class CUndoRedo;
class CVXRootObject;
class IDocumentHost;
class QPointF;
class QRectF;

/// Runs the tools of a page.
class IToolController
{
public:
    virtual ~IToolController() = default;
    /// Takes \a command with two arguments; 243 says that a new text object has been drawn.
    virtual void postToolCommand(int command, int first, int second) = 0;
};

/// A page of objects. Pages are owned by the host's document; objects only point at theirs.
class IVxPage
{
public:
    virtual ~IVxPage() = default;
    /// The objects selected on the page, in no particular order.
    virtual QList<CVXRootObject *> getSelectedObjects() = 0;
    /// Told that \a object has entered edit state (\a editing true) or has left it.
    virtual void setEditingObject(CVXRootObject *object, bool editing) = 0;
    /// The controller of the page's tools, or null.
    virtual IToolController *getToolController() = 0;
    /// Brackets the finishing of a new object: observers hear of the whole batch at its end.
    virtual void beginObjectBatch() = 0;
    virtual void endObjectBatch() = 0;
    /// The document of the page, or null.
    virtual IDocumentHost *getDocument() = 0;
    /// The undo stack of the page; null means the common stack.
    virtual CUndoRedo *undoStack() = 0;
    /// Zoom of the view that shows the page: 1.0 is one pixel for one pixel.
    virtual float getCurZoomRate() = 0;
    /// Told that the thumbnail of \a object is out of date.
    virtual void objectPreviewChanged(CVXRootObject *object) = 0;
    /// Told once that the user has finished drawing \a object: the place to record the undo step of
    /// adding it.
    virtual void objectCreated(CVXRootObject *object) { Q_UNUSED(object) }
};

#endif
