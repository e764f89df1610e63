// SPDX-License-Identifier: MIT
// pageview.h -- shows a page and brings the pointer to its objects.
#ifndef PAGEHOST_PAGEVIEW_H
#define PAGEHOST_PAGEVIEW_H

#include "app/pagehost/tools.h"

#include <QGraphicsObject>
#include <QGraphicsView>
#include <QPointer>

class CVXRootObject;
class PageSession;

/// The canvas. Most events take the way of every graphics scene; the view steps in where objects want
/// more: a handle is reached although another object covers it, a press away from an edited text ends
/// the edit, and the tools for texts draw.
class PageView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit PageView(QWidget *parent = nullptr);

    /// Shows the page of \a session, which outlives its being shown; null shows nothing.
    void setSession(PageSession *session);
    /// An EditorTool.
    void setTool(int tool);
    /// Scene point of the middle of what is shown.
    QPointF visibleCentre() const;

    static constexpr double smallestZoom = 0.05;
    static constexpr double largestZoom = 64;
    double zoom() const { return m_zoom; }
    /// Out of bounds is brought within. The middle of what is shown stays there.
    void setZoom(double zoom);
    /// The same; what lies under \a pos (viewport) stays there as far as the page reaches.
    void zoomAt(double zoom, const QPointF &pos);
    /// Shows the page with the ground around it as large as the view allows.
    void fitPage();
    /// Shows the selected objects as large as the view allows; without one does nothing.
    void fitSelection();
    /// True while a page is shown, and no text is edited and nothing dragged.
    bool isIdle() const;
    /// Where something of the keyboard's is to appear (viewport): below the caret of an edit, otherwise
    /// amid what is selected and shown, otherwise amid the view.
    QPoint keyboardPlace() const;
    /// The caret of an edited rich text, as far as it has been painted; what other items tell.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    /// Shows the pointer for what an object says it is over: "direction" of its notification.
    void setDirection(const QString &direction, bool horizontal);
    /// Shows the pointer of the tool again.
    void resetPointer();

Q_SIGNALS:
    /// The user has drawn \a object.
    void objectDrawn(CVXRootObject *object);
    void zoomChanged(double zoom);
    /// The user asks for the commands of what is edited, otherwise of what is selected, otherwise of the
    /// page. A pointer has chosen its object before.
    void menuWanted(const QPoint &globalPos);
    /// The user wants to edit an object that is locked.
    void lockedMet();

protected:
    bool event(QEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    bool isDrawing() const { return m_drawn != nullptr; }
    bool isDragging() const;
    CVXRootObject *editedRichText() const;
    QRect caretRectangle() const;
    void announceCaret();
    CVXRootObject *objectUnder(const QPointF &scenePos) const;
    CVXRootObject *handleOwner(const QPointF &scenePos, int *handle = nullptr) const;
    CVXRootObject *takerOfPress(const QPointF &scenePos) const;
    void prepareEdit(const QPointF &scenePos);
    void pressOnScene(const QMouseEvent &event);
    void chooseForMenu(const QPointF &scenePos);
    void openMenuByKey();
    bool drawsAt(const QPointF &scenePos) const;
    bool startDrawing(const QPointF &scenePos);
    void finishDrawing();
    void cancelDrawing();
    bool pressDragsEdit(const QPointF &scenePos) const;
    bool cancelDrag();
    bool takeEditKey(const QKeyEvent &event);
    void grab(CVXRootObject *object);
    void releaseGrab();
    void dropGrabber();
    void showPointerOver(const QPointF &scenePos);
    void applyZoom(double zoom);
    void fit(const QRectF &area);
    bool nudge(const QKeyEvent &event);
    void chooseUpdateMode();
    QRectF pageWithGround() const;
    void reachObjects();

    PageSession *m_session = nullptr;
    int m_tool = EditorTool::Select;
    double m_zoom = 1;
    bool m_hasHints = false;             ///< some text wants a font that is missing
    CVXRootObject *m_drawn = nullptr;    ///< between press and release
    QPointer<QGraphicsObject> m_grabber; ///< gets the pointer until the release
    bool m_mayDragEdit = false;    ///< the press was at a handle or the margin of an edited text
    bool m_isDragGivenUp = false;  ///< by Escape; the pointer has not been released yet
    bool m_isCarryingText = false; ///< text is dragged as data, whose drop eats the release
    QRect m_announcedCaret;        ///< what the input method has been told
};

#endif
