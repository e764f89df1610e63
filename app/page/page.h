// SPDX-License-Identifier: MIT
// page.h -- a page of objects over a graphics scene.
#ifndef APP_PAGE_H
#define APP_PAGE_H

#include "host/framework/ivxpage.h"

#include <QGraphicsScene>

class Document;

/// Hears what happens on a page. The calls come in the middle of changes: take note and look later.
class IPageWatcher
{
public:
    virtual ~IPageWatcher() = default;
    /// \a object looks different.
    virtual void objectChanged(CVXRootObject *object) = 0;
    /// \a object has entered edit state or is leaving it.
    virtual void editingChanged(CVXRootObject *object, bool editing) = 0;
    /// The user has finished drawing \a object: the place to push the step of adding it.
    virtual void objectDrawn(CVXRootObject *object) = 0;
};

/// Holds objects in a scene and answers what they ask their page. The page owns its objects: its end
/// releases them, in the reverse order of their coming. GUI thread only.
class Page : public IVxPage
{
public:
    /// \param document outlives the page; null is allowed
    explicit Page(Document *document);
    ~Page() override;
    Page(const Page &) = delete;
    Page &operator=(const Page &) = delete;

    /// Puts \a object on the page, on top of those there. Null, or an object that is there already,
    /// does nothing.
    void addObject(CVXRootObject *object);
    /// The same at place \a index among the objects, 0 for the lowest; out of range is brought within.
    void insertObject(int index, CVXRootObject *object);
    /// Takes \a object from the page and releases it. An object that is not on the page: nothing.
    void removeObject(CVXRootObject *object);
    /// Takes \a object from the page and hands it to the caller: for an undo step that may put it back.
    /// \return the place it had, -1 when it is not on the page
    int takeObject(CVXRootObject *object);
    /// Puts the objects in another order, the lowest first. Anything but all objects of the page, each
    /// once, does nothing.
    void setOrder(const QList<CVXRootObject *> &order);
    /// Bottom object first.
    const QList<CVXRootObject *> &objects() const { return m_objects; }

    QGraphicsScene *scene() { return &m_scene; }
    /// Gives the scene the focus although no view shows it: an object in edit state shows its caret.
    void takeFocus();
    CVXRootObject *editingObject() const { return m_editing; }
    /// \a zoom must be positive and finite, or nothing changes.
    void setZoomRate(float zoom);
    void setToolController(IToolController *controller) { m_tools = controller; }
    /// \a watcher stays the caller's; null when no one listens.
    void setWatcher(IPageWatcher *watcher) { m_watcher = watcher; }

    // IVxPage
    QList<CVXRootObject *> getSelectedObjects() override;
    void setEditingObject(CVXRootObject *object, bool editing) override;
    IToolController *getToolController() override { return m_tools; }
    void beginObjectBatch() override;
    void endObjectBatch() override;
    IDocumentHost *getDocument() override;
    CUndoRedo *undoStack() override;
    float getCurZoomRate() override { return m_zoom; }
    void objectPreviewChanged(CVXRootObject *object) override;
    void objectCreated(CVXRootObject *object) override;

private:
    void numberObjects(int from);

    Document *m_document;
    QGraphicsScene m_scene;
    QList<CVXRootObject *> m_objects;
    CVXRootObject *m_editing = nullptr;
    IToolController *m_tools = nullptr;
    IPageWatcher *m_watcher = nullptr;
    float m_zoom = 1.0f;
    int m_batchDepth = 0;
};

#endif
