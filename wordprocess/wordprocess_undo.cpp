// SPDX-License-Identifier: MIT
// wordprocess_undo.cpp -- CWordProcess: steps on the host's undo stack, and the way back from one.
// Changes: the document with all that its string holds, the form (text or picture), the box.
// The document's own stack, which serves an open edit, knows nothing of these steps.
#include "wordprocess/cwordprocess.h"

#include "host/framework/cundoredo.h"
#include "layout/wordmanager.h"
#include "wordprocess/numbers.h"
#include "wordprocess/textdatacommand.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QScopedValueRollback>

#include <utility>

namespace {
/// True when two document strings hold the same text in the same formats, wherever the caret stands.
bool haveSameContent(const QString &a, const QString &b)
{
    if (a == b)
        return true;
    const QJsonObject first = QJsonDocument::fromJson(a.toUtf8()).object();
    const QJsonObject second = QJsonDocument::fromJson(b.toUtf8()).object();
    for (const QLatin1String &key : {QLatin1String("block"), QLatin1String("fragment")}) {
        if (first.value(key) != second.value(key))
            return false;
    }
    return true;
}

/// The stacks that are in the middle of a step of ours, innermost last. Steps run on one thread.
QVector<const CUndoRedo *> stacksAtWork;

bool isAtWork(const CUndoRedo *stack)
{
    return stacksAtWork.contains(stack);
}
} // namespace

void CWordProcess::pushUndoRedo(const QString &before, const QString &after)
{
    pushStep(before, after, StepStart::Present);
}

void CWordProcess::pushStep(const QString &before, const QString &after, StepStart origin)
{
    const KeepAlive guard(*this); // the stack has listeners of its own
    if (m_stepsAtWork > 0) {      // what a listener commands meanwhile belongs to that step
        m_stepHasGrown = true;
        undoRedo(after, /*notify=*/true);
        return;
    }
    const bool withinEdit = m_editing && !m_editStartData.isEmpty();
    // A state that was held before the edit began knows nothing of what was typed.
    const bool mayBeTyped = withinEdit && !(origin == StepStart::Held && m_heldAheadOfEdit);
    // Deliberate: what was typed ahead of a command becomes a step of its own. Otherwise the step of the edit
    // would reach back over that of the command, and undoing both would bring the typed text back.
    const bool wasTyped = mayBeTyped && !before.isEmpty()
                          && !haveSameContent(before, m_editStartData);
    const QString first = wasTyped ? m_editStartData : before;
    if (isAtWork(undoStack())) { // with a step of another object
        pushLater(first);
        undoRedo(after, /*notify=*/true);
        if (withinEdit && m_editing)
            startEditHere();
        return;
    }
    pushWaitingStep(first);
    if (wasTyped) {
        auto *typed = new CTextDataCommand(this, first, before);
        typed->takeAsDone(); // no way back and forth for what is shown
        undoStack()->push(typed);
    }
    undoStack()->push(new CTextDataCommand(this, before, after)); // rebuilds at once
}

QString CWordProcess::carryOutStep(const QString &data)
{
    const QScopedValueRollback<int> working(m_stepsAtWork, m_stepsAtWork + 1);
    const QScopedValueRollback<bool> grown(m_stepHasGrown, false);
    stacksAtWork.append(undoStack());
    undoRedo(data, /*notify=*/true);
    stacksAtWork.removeLast();
    return m_stepHasGrown ? stateForUndo() : QString();
}

/// A stack in the middle of a step takes no other: it would lose the one that it is at. A step from \a before to
/// what stands then is pushed as soon as the calls in progress have returned.
void CWordProcess::pushLater(const QString &before)
{
    if (m_waitingStep.isEmpty())
        m_waitingStep = before;
    QMetaObject::invokeMethod(
        this, [this] { pushWaitingStep(stateForUndo()); }, Qt::QueuedConnection);
}

void CWordProcess::pushWaitingStep(const QString &end)
{
    if (m_waitingStep.isEmpty())
        return;
    if (m_stepsAtWork > 0 || isAtWork(undoStack())) {
        pushLater(m_waitingStep);
        return;
    }
    const KeepAlive guard(*this);
    const QString before = std::exchange(m_waitingStep, QString());
    undoStack()->push(new CTextDataCommand(this, before, end));
}

/// What is typed from now on is the edit.
void CWordProcess::startEditHere()
{
    m_editStartText = toPlainText();
    m_editStartData = serialize(false);
    m_heldAheadOfEdit = !m_fontReplaceData.isEmpty();
}

void CWordProcess::undoRedo(const QString &data, bool notify)
{
    const KeepAlive guard(*this);
    endComposition(); // the text that it stands in is replaced
    const bool wasWrapped = m_wordWrap;
    const double scaleX = m_scaleX;
    const double scaleY = m_scaleY;
    deserialization(data, /*insertAtCursor=*/false);
    if (m_wordWrap && m_newVersion) {
        // Deliberate: each layout of a box folds the stretch into the lasting one, which no string holds. A
        // stretch from a string, folded meanwhile, would count twice.
        m_scaleX = scaleX;
        m_scaleY = scaleY;
    }
    int start = 0;
    int end = 0;
    if (selection(start, end))
        m_selAnchor = m_selStart; // the cursor stands at the other end
    if (m_wordWrap != wasWrapped)
        adoptWordWrap(wasWrapped);

    if (!fontsAreComplete())
        returnToFontImage();
    else if (!m_showFontImage)
        updateBoundingRectImpl(true);
    else if (m_newVersion)
        img2paths();
    else
        leaveFontImageOfOldVersion();

    if (m_stepsAtWork > 0 && m_editing)
        startEditHere(); // the step has recorded the rest

    notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
    if (notify) {
        notifyTextOperation(TextOperationAttributes, {});
        if (!m_releaseWaits)
            updatePreview();
    }
}

/// Brings handles and layout in line with m_wordWrap after a document string has changed it.
void CWordProcess::adoptWordWrap(bool wasWrapped)
{
    if (wasWrapped) { // line text has one stretch only
        m_transformScaleX = 1.0;
        m_transformScaleY = 1.0;
    }
    updateControlHandles();
    m_wordManager->setWordWrap(m_wordWrap);
}

/// The way back to real text of an object of the older engine.
void CWordProcess::leaveFontImageOfOldVersion()
{
    m_showFontImage = false;
    if (m_fontImageSize.isEmpty()) { // no picture to leave: the text lies where the object does
        updateBoundingRectImpl(true);
        return;
    }
    const double angle = rotation();
    rotateObj(-angle, false);
    const QPointF corner = getPos() - m_fontImagePos + m_fontImageClient.topLeft();
    updatePosition(this, QRectF(corner, m_fontImageClient.size()));
    rotateObj(m_fontImageRotation, false);
    updateBoundingRectImpl(true);
    rotateObj(angle, false); // on top of the text's own, as the picture was turned
}

/// Fonts are missing again: the object stands as its picture, upright and with the picture's stretch.
void CWordProcess::returnToFontImage()
{
    if (m_fontImage.isNull() || m_fontImageSize.isEmpty()) { // there is no picture to stand as
        updateBoundingRectImpl(true);
        return;
    }
    if (!m_showFontImage && m_wordWrap
        && m_newVersion) { // the box has folded the picture's stretch
        m_transformScaleX /= divisor(fontImageStretch().width());
        m_transformScaleY /= divisor(fontImageStretch().height());
    }
    rotateObj(-rotation(), false);
    const QSizeF size = stretched(m_fontImageSize, m_fontImageScaleX, m_fontImageScaleY);
    updatePosition(this, QRectF(m_fontImagePos, size));
    m_showFontImage = true;
    m_baseSize = m_fontImageSize;
}
