// SPDX-License-Identifier: MIT
#include "app/pagehost/pageview.h"

#include "app/pagehost/objectcommands.h"
#include "app/pagehost/pagedrop.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/textcommands.h"
#include "app/pagehost/viewpanning.h"
#include "host/framework/cbaseobject.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double pageMargin = 48;    // around the page, page pixels
constexpr double objectMargin = 24;  // around objects that lie beyond it
constexpr double reach = 1e6;        // of the view, page pixels from the origin on every side
constexpr double smallestMargin = 8; // around a selection that fills the view, page pixels
constexpr int checkerSide = 8;       // of the ground under a transparent page

struct ArrowKey {
    Qt::Key key;
    int across;
    int down;
};

// clang-format off
constexpr ArrowKey arrowKeys[] = {
    {Qt::Key_Left,  -1,  0},
    {Qt::Key_Right,  1,  0},
    {Qt::Key_Up,     0, -1},
    {Qt::Key_Down,   0,  1},
};
// clang-format on

QPixmap checkers()
{
    QPixmap tile(2 * checkerSide, 2 * checkerSide);
    tile.fill(Qt::white);
    QPainter painter(&tile);
    painter.fillRect(0, 0, checkerSide, checkerSide, Qt::lightGray);
    painter.fillRect(checkerSide, checkerSide, checkerSide, checkerSide, Qt::lightGray);
    return tile;
}

/// A key that leaves the text as it is, whatever text that is.
bool onlyMovesCaret(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::SelectAll))
        return true;
    const int key = event.key();
    const bool isArrow = key >= Qt::Key_Home && key <= Qt::Key_PageDown;
    const bool isModifier = key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock;
    return key == Qt::Key_Escape || isModifier
           || (isArrow && !event.modifiers().testFlag(Qt::AltModifier));
}

QGraphicsObject *itemOf(CVXRootObject *object)
{
    return object->GetGraphicsItemPtr()->toGraphicsObject();
}

} // namespace

PageView::PageView(QWidget *parent)
    : QGraphicsView(parent)
{
    setAccessibleName(tr("Page"));
    setRenderHint(QPainter::SmoothPixmapTransform); // of pictures that are kept in objects
    setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    setDragMode(QGraphicsView::RubberBandDrag);
    setTransformationAnchor(QGraphicsView::NoAnchor); // zoomAt() holds the place itself
    setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
    resetPointer();
    new ViewPanning(this); // which the view owns
}

void PageView::setSession(PageSession *session)
{
    m_session = session;
    m_drawn = nullptr;
    m_grabber.clear();
    m_mayDragEdit = false;
    m_isDragGivenUp = false;
    if (!session) {
        setScene(nullptr);
        return;
    }
    reachObjects();
    setScene(session->page()->scene());
    m_hasHints = !session->missingFonts().isEmpty();
    connect(session, &PageSession::stateChanged, this, &PageView::chooseUpdateMode,
            Qt::UniqueConnection);
    connect(session, &PageSession::stateChanged, this, &PageView::reachObjects,
            Qt::UniqueConnection);
    chooseUpdateMode();
    session->page()->setZoomRate(float(m_zoom));
    horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
    verticalScrollBar()->setValue(verticalScrollBar()->minimum());
    setFocus();
}

/// The hints of missing fonts reach out of their objects, which change out of an edit alone: a caret
/// that blinks repaints no more than its text.
void PageView::chooseUpdateMode()
{
    const bool isWhole = m_hasHints && m_session && !m_session->editedObject();
    const ViewportUpdateMode mode = isWhole ? FullViewportUpdate : SmartViewportUpdate;
    if (mode == viewportUpdateMode())
        return;
    setViewportUpdateMode(mode);
    viewport()->update();
}

QRectF PageView::pageWithGround() const
{
    const QRectF page(QPointF(0, 0), m_session->size());
    return page.adjusted(-pageMargin, -pageMargin, pageMargin, pageMargin);
}

/// The view scrolls to whatever lies beyond the page. Nothing shifts under the pointer or the caret.
void PageView::reachObjects()
{
    if (!isIdle())
        return;
    const QRectF farthest(-reach, -reach, 2 * reach, 2 * reach);
    QRectF shown = pageWithGround();
    for (CVXRootObject *object : m_session->page()->objects()) {
        const QRectF bounds = ObjectCommands::boundsOf(object);
        if (object->isVisible() && farthest.contains(bounds))
            shown |= bounds.adjusted(-objectMargin, -objectMargin, objectMargin, objectMargin);
    }
    m_session->page()->scene()->setSceneRect(shown);
}

void PageView::setTool(int tool)
{
    m_tool = tool;
    setDragMode(tool == EditorTool::Select ? RubberBandDrag : NoDrag);
    resetPointer();
}

QPointF PageView::visibleCentre() const
{
    return mapToScene(viewport()->rect().center());
}

// Zoom

void PageView::setZoom(double zoom)
{
    zoomAt(zoom, QRectF(viewport()->rect()).center());
}

void PageView::zoomAt(double zoom, const QPointF &pos)
{
    if (!std::isfinite(zoom))
        return;
    const QPointF held = viewportTransform().inverted().map(pos);
    applyZoom(zoom);
    const QPointF way = viewportTransform().map(held) - pos;
    const int across = qRound(isRightToLeft() ? -way.x() : way.x());
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + across);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(way.y()));
}

void PageView::applyZoom(double zoom)
{
    m_zoom = qBound(smallestZoom, zoom, largestZoom);
    setTransform(QTransform::fromScale(m_zoom, m_zoom));
    if (m_session) {
        m_session->page()->setZoomRate(float(m_zoom));
        for (CVXRootObject *object : m_session->page()->objects()) // handles keep their screen size
            object->updateAfterObjRectChanged(object->GetGraphicsItemPtr(), /*notify=*/false);
    }
    Q_EMIT zoomChanged(m_zoom);
}

void PageView::fit(const QRectF &area)
{
    const QSizeF room = maximumViewportSize();
    if (area.isEmpty() || room.isEmpty())
        return;
    applyZoom(qMin(room.width() / area.width(), room.height() / area.height()));
    centerOn(area.center());
}

void PageView::fitPage()
{
    if (m_session)
        fit(pageWithGround());
}

void PageView::fitSelection()
{
    if (!m_session)
        return;
    const QRectF bounds = ObjectCommands::selectionBounds(*m_session);
    if (bounds.isNull())
        return;
    // Room for handles, and for a caret in a text without width.
    const double margin = qMax(smallestMargin, 0.1 * qMax(bounds.width(), bounds.height()));
    fit(bounds.adjusted(-margin, -margin, margin, margin));
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    zoomAt(m_zoom * std::pow(1.25, event->angleDelta().y() / 120.0), event->position());
    event->accept();
}

// Painting

void PageView::drawBackground(QPainter *painter, const QRectF &rect)
{
    painter->fillRect(rect, palette().brush(QPalette::Mid));
    if (!m_session)
        return;
    const QRectF page(QPointF(0, 0), m_session->size());
    if (m_session->background().alpha() < 255) {
        painter->fillRect(page, QBrush(checkers()));
    }
    painter->fillRect(page, m_session->background());
    painter->setPen(QPen(palette().color(QPalette::Dark), 0));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(page);
}

/// What objects show above all others: handles, frames, the caret, hints.
void PageView::drawForeground(QPainter *painter, const QRectF &rect)
{
    if (!m_session)
        return;
    const CVXRootObject *edited = m_session->editedObject();
    for (CVXRootObject *object : m_session->page()->objects()) {
        QGraphicsItem *item = object->GetGraphicsItemPtr();
        const bool isSeen = m_hasHints || object == edited
                            || item->sceneBoundingRect().intersects(rect);
        if (!isSeen || !object->isVisible())
            continue;
        painter->save();
        object->paintHandlersInScene(item, painter);
        object->drawForeground(painter, rect);
        painter->restore();
    }
    announceCaret();
}

// The pointer

CVXRootObject *PageView::objectUnder(const QPointF &scenePos) const
{
    const QList<CVXRootObject *> &objects = m_session->page()->objects();
    const auto top = std::find_if(objects.crbegin(), objects.crend(), [&](CVXRootObject *object) {
        QGraphicsItem *item = object->GetGraphicsItemPtr();
        return object->isVisible() && item->contains(item->mapFromScene(scenePos));
    });
    return top == objects.crend() ? nullptr : *top;
}

/// The topmost object that has a handle there.
CVXRootObject *PageView::handleOwner(const QPointF &scenePos, int *handle) const
{
    const QList<CVXRootObject *> &objects = m_session->page()->objects();
    for (auto it = objects.crbegin(); it != objects.crend(); ++it) {
        const int hit = (*it)->HitTestHandle((*it)->GetGraphicsItemPtr()->mapFromScene(scenePos));
        if (hit == CObjAction::ACT_None)
            continue;
        if (handle)
            *handle = hit;
        return *it;
    }
    return nullptr;
}

/// The object that gets a press although another may lie above it; null for whichever lies on top.
CVXRootObject *PageView::takerOfPress(const QPointF &scenePos) const
{
    if (CVXRootObject *owner = handleOwner(scenePos))
        return owner;
    CVXRootObject *edited = m_session->editedObject();
    if (!edited)
        return nullptr;
    const QPointF inItem = edited->GetGraphicsItemPtr()->mapFromScene(scenePos);
    return edited->getClientRect().contains(inItem) ? edited : nullptr;
}

/// Ends an edit that the press at \a scenePos leaves. Around its text an edited object has a margin by
/// which it is moved, as far as no other object lies there.
void PageView::prepareEdit(const QPointF &scenePos)
{
    CVXRootObject *edited = m_session->editedObject();
    if (edited && takerOfPress(scenePos) != edited && objectUnder(scenePos) != edited)
        m_session->endEdit();
}

void PageView::mousePressEvent(QMouseEvent *event)
{
    if (!m_session || event->button() != Qt::LeftButton || isDrawing()) {
        event->accept(); // a second button changes nothing in a drag
        return;
    }
    const QPointF scenePos = mapToScene(event->pos());
    prepareEdit(scenePos);
    m_isDragGivenUp = false;
    m_mayDragEdit = pressDragsEdit(scenePos);
    CVXRootObject *taker = takerOfPress(scenePos);
    if (!taker && drawsAt(scenePos)) {
        if (!startDrawing(scenePos))
            return;
        taker = m_drawn;
    }
    if (!taker) {
        pressOnScene(*event);
        return;
    }
    grab(taker);
    // The press counts as unused even by a grabber, and would begin a selection frame.
    const DragMode mode = dragMode();
    setDragMode(NoDrag);
    QGraphicsView::mousePressEvent(event);
    setDragMode(mode);
}

/// Objects and selection frames know Ctrl as what adds to a selection: Shift does so as well.
void PageView::pressOnScene(const QMouseEvent &event)
{
    Qt::KeyboardModifiers modifiers = event.modifiers();
    if (m_tool == EditorTool::Select && modifiers.testFlag(Qt::ShiftModifier))
        modifiers |= Qt::ControlModifier;
    QMouseEvent press(event.type(), event.localPos(), event.windowPos(), event.screenPos(),
                      event.button(), event.buttons(), modifiers, event.source());
    QGraphicsView::mousePressEvent(&press);
}

void PageView::mouseMoveEvent(QMouseEvent *event)
{
    const bool isPressed = event->buttons().testFlag(Qt::LeftButton);
    if (isPressed && m_isDragGivenUp)
        return;
    if (isPressed && m_mayDragEdit)
        m_session->startEditDrag();
    m_isCarryingText = false;
    QGraphicsView::mouseMoveEvent(event); // may return when text has been carried away and dropped
    if (m_isCarryingText || (m_grabber && event->buttons() == Qt::NoButton))
        dropGrabber();
    m_isCarryingText = false;
    if (isDrawing())
        viewport()->update(); // the frame of the drag reaches out of the object
    else if (m_session && event->buttons() == Qt::NoButton)
        showPointerOver(mapToScene(event->pos()));
}

void PageView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->accept(); // as its press
        return;
    }
    QGraphicsView::mouseReleaseEvent(event);
    releaseGrab();
    m_mayDragEdit = false;
    m_isDragGivenUp = false;
    if (m_session)
        m_session->finishEditDrag();
    if (isDrawing())
        finishDrawing();
}

void PageView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (!m_session || event->button() != Qt::LeftButton)
        return;
    Q_EMIT m_session->aboutToAct();
    const QPointF scenePos = mapToScene(event->pos());
    CVXRootObject *taker = takerOfPress(scenePos);
    if (taker)
        grab(taker);
    CVXRootObject *under = taker ? taker : objectUnder(scenePos);
    if (under && !TextCommands::isEditing(under))
        m_session->select(under); // it is edited alone
    if (under && under->isLocked())
        Q_EMIT lockedMet();
    QGraphicsView::mouseDoubleClickEvent(event);
}

void PageView::grab(CVXRootObject *object)
{
    m_grabber = itemOf(object);
    m_grabber->grabMouse();
}

void PageView::releaseGrab()
{
    if (m_grabber && m_grabber->scene() && m_grabber->scene()->mouseGrabberItem() == m_grabber)
        m_grabber->ungrabMouse();
    m_grabber.clear();
}

/// The pointer grabs no more than it has grabbed by the press.
void PageView::dropGrabber()
{
    releaseGrab();
    if (QGraphicsItem *item = scene() ? scene()->mouseGrabberItem() : nullptr)
        item->ungrabMouse();
}

// Drags

/// True at a handle and at the margin of an edited rich text.
bool PageView::pressDragsEdit(const QPointF &scenePos) const
{
    CVXRootObject *edited = editedRichText();
    if (!edited)
        return false;
    const QPointF inItem = edited->GetGraphicsItemPtr()->mapFromScene(scenePos);
    return edited->HitTestHandle(inItem) != CObjAction::ACT_None
           || !edited->getClientRect().contains(inItem);
}

/// Brings back what the pointer has moved, resized or turned since its press. False when it is at
/// something else.
bool PageView::cancelDrag()
{
    auto *item = scene() ? dynamic_cast<CBaseObject *>(scene()->mouseGrabberItem()) : nullptr;
    if (!m_session || !item || !(item->isDragged() || m_session->isInEditDrag()))
        return false;
    item->cancelDrag();
    m_session->giveUpEditDrag();
    m_isDragGivenUp = true;
    return true;
}

/// An art text carries selected text away as data: whoever has asked for it hears no release.
void PageView::dragEnterEvent(QDragEnterEvent *event)
{
    if (!PageDrop::fileIn(*event->mimeData()).isEmpty()) {
        event->ignore(); // the window's
        return;
    }
    m_isCarryingText = true;
    QGraphicsView::dragEnterEvent(event);
}

void PageView::dropEvent(QDropEvent *event)
{
    QGraphicsView::dropEvent(event);
    dropGrabber();
    if (m_session)
        m_session->noteEditInput();
}

// Drawing an object

/// A press on an object with the text tool edits it; the other tool draws above it.
bool PageView::drawsAt(const QPointF &scenePos) const
{
    return m_tool == EditorTool::ArtText || (m_tool == EditorTool::Text && !objectUnder(scenePos));
}

bool PageView::startDrawing(const QPointF &scenePos)
{
    m_drawn = m_session->startDrawing(m_tool, scenePos);
    return isDrawing();
}

void PageView::finishDrawing()
{
    CVXRootObject *object = std::exchange(m_drawn, nullptr);
    viewport()->update();
    Q_EMIT objectDrawn(object);
}

void PageView::cancelDrawing()
{
    releaseGrab();
    m_session->cancelDrawing(std::exchange(m_drawn, nullptr));
    viewport()->update();
}

bool PageView::isDragging() const
{
    return isDrawing() || (scene() && scene()->mouseGrabberItem());
}

/// While the pointer drags something no command of the menus may take it away.
bool PageView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isDragging()) {
        event->accept();
        return true;
    }
    return QGraphicsView::event(event);
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    if (isDrawing()) {
        if (event->key() == Qt::Key_Escape)
            cancelDrawing();
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        openMenuByKey();
        event->accept();
        return;
    }
    CVXRootObject *edited = m_session ? m_session->editedObject() : nullptr;
    if ((event->key() == Qt::Key_Escape && cancelDrag()) || (edited && takeEditKey(*event))) {
        event->accept();
        return;
    }
    if (m_session && event->key() == Qt::Key_Escape) {
        if (!edited) {
            m_session->page()->scene()->clearSelection();
        } else if (TextCommands::isRichText(edited)) {
            m_session->prepareEndOfEdit(); // which is the text's own
        } else {
            m_session->endEdit();
            event->accept();
            return;
        }
    }
    if (!edited && nudge(*event)) {
        event->accept();
        return;
    }
    QGraphicsView::keyPressEvent(event);
}

/// The keys for undo and redo are the page's once the text has nothing more of its own. True when the key
/// is not the text's any more.
bool PageView::takeEditKey(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Undo)) {
        m_session->undoInEdit();
        return true;
    }
    if (event.matches(QKeySequence::Redo)) {
        m_session->redoInEdit();
        return true;
    }
    if (!onlyMovesCaret(event))
        m_session->noteEditInput();
    return false;
}

bool PageView::isIdle() const
{
    return m_session && !m_session->editedObject() && !isDragging();
}

/// The arrow keys move the selection by a pixel, with Shift by ten.
bool PageView::nudge(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isPlain = modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier;
    if (!isPlain || !isIdle() || m_session->page()->getSelectedObjects().isEmpty())
        return false;
    for (const ArrowKey &arrow : arrowKeys) {
        if (event.key() != arrow.key)
            continue;
        const double length = modifiers == Qt::ShiftModifier ? 10 : 1;
        ObjectCommands::move(*m_session, QPointF(arrow.across, arrow.down) * length,
                             /*continues=*/event.isAutoRepeat());
        return true;
    }
    return false;
}
