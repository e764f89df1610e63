// SPDX-License-Identifier: MIT
// cvxrootobject.h -- the host's side of every object: state, place, size, handles, records.
#ifndef CVXROOTOBJECT_H
#define CVXROOTOBJECT_H

#include "host/framework/cobjdrawdelegate.h"
#include "host/framework/cpagebgprop.h"
#include "host/framework/framework_global.h"
#include "host/framework/hosttypes.h"

#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QSet>
#include <QSizeF>
#include <QVector>

class CUndoRedo;
class CWbUndoCmd;
class IDocumentHost;
class IVxPage;
class QDataStream;
class QGraphicsItem;
class QJsonObject;
class QPainter;

/// An object on a page. All operations belong to the GUI thread except getters of plain values.
/// Positions are those of the item in scene coordinates, sizes those of the client rectangle.
class FRAMEWORK_EXPORT CVXRootObject
{
public:
    explicit CVXRootObject(IVxPage *page);
    virtual ~CVXRootObject();
    CVXRootObject(const CVXRootObject &) = delete;
    CVXRootObject &operator=(const CVXRootObject &) = delete;

    // Identity
    virtual int getObjId() const { return m_objId; }
    virtual void setObjId(int id) { m_objId = id; }
    /// The item type of the object: QGraphicsItem::type().
    virtual int GetType() const = 0;
    /// Name of the kind of object, such as "wb text".
    virtual QString getObjName() const = 0;
    virtual QGraphicsItem *GetGraphicsItemPtr() = 0;
    const QGraphicsItem *graphicsItem() const;

    // Surroundings
    IVxPage *GetPage() const { return m_page; }
    virtual void setBelongPage(IVxPage *page) { m_page = page; }
    /// The document of the page; null without a page.
    IDocumentHost *getDocument() const;
    /// The page's stack, or the common one. Never null.
    CUndoRedo *undoStack() const;
    /// Zoom of the view as a factor; 1 without a page.
    float getCurZoomRate() const;
    /// Tells the page that the object's thumbnail is out of date.
    void updatePreview();

    // Life
    /// Ends the object: it is deleted, unless undo steps still refer to it (see CUndoRedo).
    virtual void Release();
    virtual void onCreateFinished(bool finished);
    virtual bool isCreateFinished() const { return m_created; }

    // Painting
    virtual void OnQPainterDraw(QPainter *painter) = 0;
    virtual void update() = 0;
    virtual void paintHandlersInScene(QGraphicsItem *item, QPainter *painter);
    /// Paints over all objects, in scene coordinates.
    virtual void drawForeground(QPainter *painter, const QRectF &rect);
    /// Calls OnQPainterDraw() as it expects to be called: with the painter's origin moved by the way
    /// from the client rectangle to the draw client rectangle. \a painter is in item coordinates.
    void paintContent(QPainter *painter);
    virtual QRectF getDrawClientRect() { return m_clientRect; }
    /// Outline of what the object shows, in item coordinates.
    virtual QPainterPath getClientPath();
    /// Renders the object as it lies in the scene, its rotation included, one pixel a scene unit.
    /// \param rect        receives the upright rectangle of whole scene units that the image covers
    /// \param withHandles paints the handles too
    /// \return a premultiplied image; null for an object without area and for one too large for an
    /// image
    virtual QImage getImageFromObject(QRectF &rect, bool withHandles);
    /// The pen of the object's outlines; at first black of width 0, which draws none.
    QPen getMyPen() const { return m_pen; }
    /// Not finite or negative widths: refused.
    virtual void setMyPen(const QPen &pen);
    /// The fill of the object's outlines; at first black.
    CPageBgProp getFillProp() const { return m_fillProp; }
    virtual void setFillProp(const CPageBgProp &fill);

    // Place and size
    virtual QPointF getPos() const;
    virtual void setPos(const QPointF &pos, bool undo);
    virtual QSizeF getSize() const { return m_clientRect.size(); }
    /// Sets the size of the client rectangle, content untouched. Not finite or negative: refused.
    virtual void setSize(const QSizeF &size, bool undo, bool notify);
    virtual QRectF getClientRect() const { return m_clientRect; }
    /// Moves the object so that the centre of a client area of \a size lies on \a centre (scene).
    void setCenterPos(const QPointF &centre, const QSizeF &size);
    /// Turns the object about the centre of its client rectangle by \a angle degrees, on top of the
    /// rotation that it has. Not finite: refused.
    virtual void rotateObj(double angle, bool undo);
    virtual double getRotate() const;
    virtual void setZorder(int order);
    virtual int getZorder() const;
    virtual void setFlip(bool flip, bool notify);
    virtual bool isFlip();
    virtual void setMirror(bool mirror, bool notify);
    virtual bool isMirror();
    virtual void setLocked(bool locked, bool undo, bool notify);
    virtual bool isLocked() const { return m_locked; }
    virtual bool isVisible() const;
    /// Told after every change of the client rectangle: handles and bounds follow.
    virtual void updateAfterObjRectChanged(QGraphicsItem *item, bool notify);
    virtual void doSelected(bool selected, bool notify);

    // Handles
    /// Id of the enabled, shown handle under \a point (item coordinates), 0 for none.
    int HitTestHandle(const QPointF &point) const;
    void setHandlesDisable(CObjAction::ACT_Def handle, bool disable);
    bool isHandleDisabled(int handle) const { return m_disabledHandles.contains(handle); }
    void setShowHandles(QGraphicsItem *item, bool show, bool repaint);
    bool isShowHandles() const { return m_showHandles; }
    void addHandlePath(QGraphicsItem *item, QPainterPath *path, double scale) const;
    /// Middle of a handle in item coordinates.
    QPointF handlePosition(int handle) const;
    /// Edge length of a handle in item coordinates at the present zoom.
    double handleSize() const;

    // Attributes and properties: the fallback of every id and key that an object does not know
    virtual bool setAllAttributes(const AttributeMap &attributes, bool withUndo);
    virtual bool getAllAttributes(AttributeMap &attributes);
    virtual bool SetSpecialProperty(int number, QDataStream &stream, bool flag);
    virtual bool GetSpecialProperty(int number, QDataStream &stream);
    virtual bool SetAttribute(int id, QDataStream &stream, bool flag);
    virtual bool GetAttribute(int id, QDataStream &stream);
    /// The ids that the object offers for GetAttribute() and SetAttribute(), in the order of a panel.
    QVector<int> attributeIds() const { return m_attributeIds; }
    virtual bool canDo(OperationType operation);
    /// Caret position in item coordinates for an object that has one.
    virtual QPoint getCursorPos();
    virtual void updateCursorColor(const QColor &background);
    /// A temporary parameter by name; invalid when it was never set.
    QVariant getTempValue(const QString &name) const { return m_tempValues.value(name); }
    void setTempValue(const QString &name, const QVariant &value);
    const CObjDrawDelegate *drawDelegate() const { return m_drawDelegate; }
    const AttributeMap &otherParams() const { return m_otherParams; }
    const ActionState *actionState() const { return m_actionState; }

    // Records
    virtual bool save(QDataStream &stream) = 0;
    virtual bool load(QDataStream &stream) = 0;
    virtual bool saveJson(QJsonObject &json) = 0;
    virtual bool loadJson(QJsonObject &json) = 0;
    /// The common fields of an item: a version number, position, rotation, z order, client size,
    /// the flags locked, created, flip and mirror, and the whole of m_saveParams. False when the
    /// stream or object is no such record: nothing changes then. Fields of a wrong type and numbers
    /// that are not finite read as 0 or false. Pen and fill are written where they are not those that
    /// every object begins with, and absent ones read as these.
    bool SaveBaseData(QGraphicsItem *item, QDataStream &stream);
    bool LoadBaseData(QGraphicsItem *item, QDataStream &stream);
    bool SaveJsonBaseData(QGraphicsItem *item, QJsonObject &json);
    bool LoadJsonBaseData(QGraphicsItem *item, QJsonObject &json);
    /// The state that a recording of the page keeps of the object, and the actions that it plays.
    virtual bool SavePropertyForPlayback(QDataStream &stream);
    virtual bool LoadPropertyForPlayback(QDataStream &stream);
    virtual bool DoPlaybackActionEx(int action, QDataStream &stream);

protected:
    bool m_created = false;           ///< the object is finished: drawn or loaded
    QRectF m_clientRect;              ///< item coordinates
    QPainterPath *m_clientShape;      ///< owned; holds m_clientRect as a rect
    int m_activeHandle = 0;           ///< handle in drag, 0 for none
    AttributeMap m_saveParams;        ///< values that go into the record
    AttributeMap m_otherParams;       ///< values for the handle painter
    ActionState *m_actionState;       ///< owned
    QPointF m_pressPos;               ///< start of a drag, for the object's use
    QPointF m_dragPos;                ///< present point of a drag, for the object's use
    CObjDrawDelegate *m_drawDelegate; ///< owned
    QVector<int> m_attributeIds{2001, 2002, 2003, 2004, 2050, 2051, 2100}; ///< see attributeIds()

private:
    friend class CWbUndoCmd;
    void addUndoStep(CWbUndoCmd *step);
    void removeUndoStep(CWbUndoCmd *step);
    QRectF handleRect(int handle, double scale) const;
    bool isHandleShown(int handle) const;
    void setClientRect(const QRectF &rect);
    QVariantMap baseFields(const QGraphicsItem *item);
    void setBaseFields(QGraphicsItem *item, const QVariantMap &fields);

    IVxPage *m_page;
    int m_objId = 0;
    QPen m_pen{Qt::black, 0};
    CPageBgProp m_fillProp;
    bool m_locked = false;
    bool m_showHandles = false;
    bool m_flipped = false;
    bool m_mirrored = false;
    QSet<int> m_disabledHandles;
    AttributeMap m_tempValues;
    QVector<CWbUndoCmd *> m_undoSteps; ///< pushed steps that refer to this object
    bool m_released = false;
};

#endif
