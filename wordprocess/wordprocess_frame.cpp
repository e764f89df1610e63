// SPDX-License-Identifier: MIT
// wordprocess_frame.cpp -- CWordProcess: construction, edit state, flags, item plumbing, caret timer.
// Changes: m_editing, m_editStartText, m_editStartData, m_cursorVisible, m_hasFocus, m_flip, m_mirror; whether a
// release waits.
#include "wordprocess/cwordprocess.h"

#include "arttext/arttexthelper.h"
#include "host/framework/iappframework.h"
#include "host/framework/idocumenthost.h"
#include "host/framework/ivxpage.h"
#include "layout/outlines.h"
#include "layout/wordmanager.h"
#include "wordprocess/numbers.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QGraphicsScene>
#include <QGraphicsSceneContextMenuEvent>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimerEvent>

#include <utility>

namespace {
constexpr int caretBlinkMs = 800;
constexpr double editMargin = 70;       // around an object in edit state, item coordinates
constexpr int lastActionEditEnded = 5;  // ActionState::lastAction
constexpr int fontImagePosition = 2604; // property that takes note of where a picture lies

const CObjAction::ACT_Def sizeHandles[] = {
    CObjAction::ACT_TopLeft,    CObjAction::ACT_BottomRight,  CObjAction::ACT_TopCentre,
    CObjAction::ACT_TopRight,   CObjAction::ACT_Right,        CObjAction::ACT_Left,
    CObjAction::ACT_BottomLeft, CObjAction::ACT_BottomCentre,
};
const QLatin1String dashedFrame("dashlineRectangleHandle");

bool isOnApplicationThread()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return !application || QThread::currentThread() == application->thread();
}

/// Turns \a transform over, about the line through \a centre along \a axis.
void turnOver(QTransform &transform, Qt::Axis axis, const QPointF &centre)
{
    transform.translate(centre.x(), centre.y());
    transform.rotate(180, axis);
    transform.translate(-centre.x(), -centre.y());
}
} // namespace

CWordProcess::CWordProcess(int id, bool finished, QGraphicsItem *parent, IVxPage *page)
    : CBaseObject(id, finished, parent, page)
{
    setTextInteractionFlags(Qt::NoTextInteraction);
    setAcceptDrops(true);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    m_cursorTimerId = startTimer(caretBlinkMs, Qt::CoarseTimer);
    m_document = new QTextDocument;
    m_cursor = new QTextCursor(m_document);
    setControlPointDisable(true);
    if (IDocumentHost *document = getDocument())
        m_documentDpi = acceptedDpi(document->getDpi(), m_documentDpi);
    m_wordManager = new CWordManager(this, m_wordWrap);
    m_clientRect = QRectF(0, 0, 0, 0);
    m_artText = new CArtText;
    m_legacyOutlines = std::make_unique<OutlineSource>();
    initMorphHandles();
}

CWordProcess::~CWordProcess()
{
    // The cursor goes first, since it refers to the document.
    delete m_cursor;
    m_cursor = nullptr;
    delete m_wordManager;
    m_wordManager = nullptr;
    delete m_artText;
    m_artText = nullptr;
    delete m_document;
    m_document = nullptr;
}

void CWordProcess::Release()
{
    if (m_releaseWaits)
        return;
    if (m_keepAliveDepth == 0) {
        CVXRootObject::Release();
        return;
    }
    m_releaseWaits = true;
    if (scene())
        scene()->removeItem(this);
}

/// The outermost call out has returned, but not yet the call of ours that it was made from: a release that was
/// asked for meanwhile goes through the event loop.
void CWordProcess::endKeepAlive()
{
    if (--m_keepAliveDepth > 0 || !m_releaseWaits || m_releaseIsPosted)
        return;
    m_releaseIsPosted = true;
    QMetaObject::invokeMethod(this, &CWordProcess::releaseAtLast, Qt::QueuedConnection);
}

void CWordProcess::releaseAtLast()
{
    m_releaseIsPosted = false;
    if (m_keepAliveDepth > 0) // in an event loop of a listener: the end of its call posts again
        return;
    m_releaseWaits = false;
    CVXRootObject::Release();
}

void CWordProcess::notifyObjPropertyChanged(int code, const QString &detail)
{
    const KeepAlive guard(*this);
    if (!m_releaseWaits)
        CBaseObject::notifyObjPropertyChanged(code, detail);
}

void CWordProcess::updateAfterObjRectChanged(QGraphicsItem *item, bool notify)
{
    const KeepAlive guard(*this);
    CBaseObject::updateAfterObjRectChanged(item, notify && !m_releaseWaits);
}

bool CWordProcess::canDo(OperationType operation)
{
    switch (operation) {
    case OP_HasText:
        return !toPlainText().isEmpty();
    case OP_TextCut:
    case OP_TextCopy:
    case OP_TextPaste:
        return true;
    default:
        return CBaseObject::canDo(operation);
    }
}

QRectF CWordProcess::boundingRect() const
{
    if (!m_newVersion || !m_editing || !m_wordWrap)
        return CBaseObject::boundingRect();
    const QRectF united = m_wordManager->textPathRect().united(m_clientRect);
    return united.adjusted(-editMargin, -editMargin, editMargin, editMargin);
}

QPainterPath CWordProcess::shape() const
{
    const double margin = m_editing ? editMargin : 0;
    QPainterPath path;
    path.setFillRule(Qt::WindingFill); // handles that overlap the rectangle are no holes
    path.addRect(m_clientRect.adjusted(-margin, -margin, margin, margin));
    if (isSelected())
        addHandlePath(const_cast<CWordProcess *>(this), &path, 1.0);
    return path;
}

QString CWordProcess::toPlainText() const
{
    return m_document->toPlainText();
}

void CWordProcess::setTextInteractionFlags(Qt::TextInteractionFlags flags)
{
    const bool interactive = flags != Qt::NoTextInteraction;
    setFlag(ItemIsFocusable, interactive);
    setFlag(ItemAcceptsInputMethod, interactive);
    m_textInteractionFlags = flags;
}

void CWordProcess::setControlPointDisable(bool disable)
{
    for (CObjAction::ACT_Def handle : sizeHandles)
        setHandlesDisable(handle, disable);
}

void CWordProcess::enableAllHandles()
{
    setControlPointDisable(false);
    setHandlesDisable(CObjAction::ACT_Rotate, false);
    setShowHandles(this, isSelected(), true);
}

void CWordProcess::updateControlHandles()
{
    if (m_editing) {
        setControlPointDisable(!m_wordWrap);
        setHandlesDisable(CObjAction::ACT_Rotate, true);
        return;
    }
    enableAllHandles();
}

void CWordProcess::beginEdit()
{
    if (m_changingEditState) // a listener asks from within
        return;
    const KeepAlive alive(*this);
    {
        const QScopedValueRollback<bool> guard(m_changingEditState, true);
        takeEditAppearance();
        endComposition();
        startEditHere();
        if (m_editing)
            return;
        prepareGeometryChange(); // the bounds of an edited box are its own
        m_editing = true;
    }
    if (m_newVersion) {
        if (m_wordWrap)
            returnToTextBox();
        else
            updatePosition(this, QRectF(mapToScene(m_textOffset), QSizeF(0, 0)));
    }
    updateBoundingRectImpl(true);
    notifyTextOperation(TextOperationEditState, {});
}

void CWordProcess::takeEditAppearance()
{
    m_actionState->editing = 1;
    if (IVxPage *page = GetPage())
        page->setEditingObject(this, true);
    setTextInteractionFlags(Qt::TextEditorInteraction);
    setFocus(Qt::OtherFocusReason);
    if (!m_newVersion && !m_wordWrap) {
        setShowHandles(this, false, true);
    } else {
        // A box keeps its size handles, line text loses them; the rotate handle goes in either case.
        setControlPointDisable(!m_wordWrap);
        setHandlesDisable(CObjAction::ACT_Rotate, true);
    }
    m_otherParams[dashedFrame] = m_wordWrap;
}

void CWordProcess::endEdit()
{
    if (!isOnApplicationThread() || m_changingEditState || !m_created)
        return;
    QString text;
    {
        const QScopedValueRollback<bool> guard(m_changingEditState,
                                               true); // listeners may call back
        endComposition();
        leaveEditAppearance();
        if (!m_editing)
            return;
        prepareGeometryChange();
        text = toPlainText();
        if (m_wordWrap && !text.isEmpty())
            useOriBounds(recordOriginalBounds());
        m_editing = false;
    }
    if (text != m_editStartText && !m_editStartData.isEmpty()) {
        m_editStartText = text;
        // Emptied ahead of the push: a listener that begins the next edit in it keeps its own start.
        const QString before = std::exchange(m_editStartData, QString());
        pushUndoRedo(before, serialize(false)); // lays out too
    } else {
        updateMorphTextPaths();
        notifyTextOperation(TextOperationAttributes, {});
    }
    notifyTextOperation(TextOperationEditState, {});
}

void CWordProcess::leaveEditAppearance()
{
    m_actionState->editing = 0;
    m_actionState->lastAction = lastActionEditEnded;
    setTextInteractionFlags(Qt::NoTextInteraction);
    if (m_editing)
        clearSelection();
    else
        m_selStart = m_selEnd; // outside edit state nobody is told
    enableAllHandles();
    clearLayerEffectCache(EffectCacheReason::ContentChanged);
    enableLayerEffect(true);
    m_cursorVisible = false;
    m_otherParams[dashedFrame] = false;
}

/// The end of every road on which an object comes with its text: no drawing by hand, no edit. One that is
/// open ends here, and its step takes the text in.
void CWordProcess::finishNewObject()
{
    m_created = true;
    if (m_editing)
        endEdit();
    setTextInteractionFlags(Qt::NoTextInteraction);
    updateBoundingRectImpl(true);
    QDataStream nothing;
    SetSpecialProperty(fontImagePosition, nothing, false);
    notifyTextOperation(TextOperationAttributes, {});
    enableAllHandles();
}

void CWordProcess::setFlip(bool flip, bool /*notify*/)
{
    if (m_flip.exchange(flip) == flip)
        return;
    turnFontImage(Qt::XAxis);
    notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

void CWordProcess::setMirror(bool mirror, bool /*notify*/)
{
    if (m_mirror.exchange(mirror) == mirror)
        return;
    turnFontImage(Qt::YAxis);
    notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

void CWordProcess::turnFontImage(Qt::Axis axis)
{
    if (!m_showFontImage || m_fontImage.isNull())
        return;
    const QPointF centre = axis == Qt::XAxis ? QPointF(0, m_clientRect.height() / 2)
                                             : QPointF(m_clientRect.width() / 2, 0);
    QTransform turned;
    turnOver(turned, axis, centre);
    m_fontImage = m_fontImage.transformed(turned, Qt::FastTransformation);
}

QTransform CWordProcess::flipTransform() const
{
    QTransform transform;
    if (m_flip)
        turnOver(transform, Qt::XAxis, QPointF(0, m_clientRect.height() / 2));
    if (m_mirror)
        turnOver(transform, Qt::YAxis, QPointF(m_clientRect.width() / 2, 0));
    return transform;
}

QTransform CWordProcess::paintTransform() const
{
    return flipTransform().scale(m_scaleX, m_scaleY);
}

QPoint CWordProcess::getCursorPos()
{
    if (!m_editing)
        return QPoint(0, 0);
    const int position = m_cursor->position();
    const QLineF caret = m_newVersion
                             ? m_wordManager->cursorLine(position, showsOnNextLine(position))
                             : legacyCaretLine();
    return QPoint(roundedAway(caret.center().x()), roundedAway(caret.center().y()));
}

QVariant CWordProcess::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSelectedHasChanged) {
        IAppFramework *framework = GetFramework();
        const bool batch = framework && framework->isBatchMode();
        if (!batch && !isSelected() && m_editing && isVisible()) {
            endEdit();
        } else {
            setShowHandles(this, isSelected(), true);
            notifyTextOperation(TextOperationAttributes, {});
        }
    } else if (change == ItemTransformOriginPointChange) {
        clearLayerEffectCache(EffectCacheReason::ContentChanged);
    }
    return CBaseObject::itemChange(change, value);
}

void CWordProcess::focusInEvent(QFocusEvent * /*event*/)
{
    m_hasFocus = true;
    m_cursorVisible = true;
}

void CWordProcess::focusOutEvent(QFocusEvent * /*event*/)
{
    m_hasFocus = false;
    m_cursorVisible = false;
    endComposition(); // an input method that wants something else has said so by now
}

void CWordProcess::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_cursorTimerId)
        return;
    if (!m_editing) {
        m_cursorVisible = false;
        return;
    }
    if (!m_mouseSelecting && m_hasFocus)
        m_cursorVisible = !m_cursorVisible;
    notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

void CWordProcess::contextMenuEvent(QGraphicsSceneContextMenuEvent * /*event*/) {}
