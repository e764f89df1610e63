// SPDX-License-Identifier: MIT
// cbaseobject.h -- a host object that is a graphics item: mouse handling, painting, records.
#ifndef CBASEOBJECT_H
#define CBASEOBJECT_H

#include "host/framework/cvxrootobject.h"

#include <QGraphicsTextItem>

#include <memory>

class FRAMEWORK_EXPORT CBaseObject : public QGraphicsTextItem, public CVXRootObject
{
    Q_OBJECT

public:
    /// \param id       the object's id
    /// \param finished true for an object that needs no drawing by the user
    /// \param parent   the parent item, or null
    /// \param page     the page, or null for an object that is being loaded
    CBaseObject(int id, bool finished, QGraphicsItem *parent, IVxPage *page);
    ~CBaseObject() override;

    // QGraphicsItem
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    /// True for a point of shape(), whatever the text of the item's own document.
    bool contains(const QPointF &point) const override;
    /// Paints the content, then the inverted area. Handles are painted by the page's foreground.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    // CVXRootObject
    int GetType() const override { return type(); }
    QString getObjName() const override;
    QGraphicsItem *GetGraphicsItemPtr() override { return this; }
    void OnQPainterDraw(QPainter *painter) override;
    bool canDo(OperationType operation) override;
    void update() override;
    /// Repaints the part \a rect, item coordinates.
    void update(const QRectF &rect);
    bool save(QDataStream &stream) override;
    bool load(QDataStream &stream) override;
    bool saveJson(QJsonObject &json) override;
    bool loadJson(QJsonObject &json) override;
    /// Sets the size of a finished object: the client rectangle and its handles are scaled.
    void setSize(const QSizeF &size, bool undo, bool notify) override;
    /// Moves the item.
    void setPos(const QPointF &pos, bool undo) override;
    bool isVisible() const override { return QGraphicsItem::isVisible(); }
    void updateAfterObjRectChanged(QGraphicsItem *item, bool notify) override;

    /// Told that the property \a code has changed; ObjectProperty::Appearance repaints the object.
    virtual void notifyObjPropertyChanged(int code, const QString &detail);
    /// Drops the cached picture of the object's effects.
    virtual void clearLayerEffectCache(int reason);
    void enableLayerEffect(bool enable);
    bool isLayerEffectEnabled() const { return m_layerEffect; }

    /// True from the press that may become a move, resize or rotation to the release.
    bool isDragged() const { return m_drag != nullptr; }
    /// Gives up the move, resize or rotation: all objects in it get the geometry that they had at the
    /// press. What the pointer does until its release changes nothing any more. Without one: nothing.
    void cancelDrag();

    // The host's input handling is open to those who send events without a scene.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    struct Drag; ///< where a move, resize or rotation began
    void selectOnPress(const QGraphicsSceneMouseEvent &event);
    void moveTo(const QPointF &scenePos);
    void resizeTo(const QPointF &scenePos);
    void rotateTo(const QPointF &scenePos, bool inSteps);
    void finishDrag();
    void syncBounds();

    std::unique_ptr<Drag> m_drag;
    bool m_layerEffect = true;
    QRectF m_bounds;      ///< what boundingRect() answers: the client rectangle with its handles
    QRectF m_knownBounds; ///< the boundingRect() that the scene was told last
};

#endif
