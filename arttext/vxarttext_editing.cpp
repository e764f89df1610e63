// SPDX-License-Identifier: MIT
// vxarttext_editing.cpp -- CVxArtText: editing in place, in the text item that the object is.
// Changes: m_editing, m_editPos, m_editSize, m_editedText, m_changeCommand, the item's document. The text
// itself changes only through the step that EndEdit() records.
#include "arttext/vxarttext.h"

#include "arttext/arttextchangecommand.h"
#include "arttext/wholenumbers.h"
#include "host/framework/iappframework.h"
#include "host/framework/ivxpage.h"

#include <QPointer>
#include <QTextCursor>
#include <QTextDocument>

#include <mutex>

namespace {
constexpr int lastActionEditEnded = 5; // ActionState::lastAction

/// \a text as it comes back from a document: line ends and blanks have one form there.
QString asTyped(const QString &text)
{
    QTextDocument document;
    QTextCursor(&document).insertText(text);
    return document.toPlainText();
}
} // namespace

void CVxArtText::enterEdit()
{
    IVxPage *const page = GetPage();
    if (!page || !isSelected() || page->getSelectedObjects().size() > 1 || !GetFramework()
        || isLocked())
        return;
    const QPointer<CVxArtText> alive(this); // the page may release the object instead
    page->setEditingObject(this, true);
    if (alive)
        BeginEdit();
}

void CVxArtText::BeginEdit()
{
    document()->setTextWidth(m_clientRect.width());
    setTextInteractionFlags(Qt::TextEditorInteraction);
    m_editPos = getPos();
    m_editSize = m_clientRect.size();
    if (toPlainText()
        != m_textWord) { // for an empty text too: what was typed before is no part of it
        const std::lock_guard<PathsMutex> guard(m_pathsMutex);
        setHtml(QString());
        textCursor().insertText(m_textWord);
    }
    if (!m_textWord.isEmpty())
        setCurrentTextFormat();
    setFocus(Qt::OtherFocusReason);
    setShowHandles(this, /*show=*/false, /*repaint=*/true);
    enableLayerEffect(false);
}

void CVxArtText::EndEdit()
{
    if (!m_editing)
        return;
    m_editing = false;
    m_actionState->editing = 0;
    m_actionState->lastAction = lastActionEditEnded;
    setTextInteractionFlags(Qt::NoTextInteraction);
    m_editedText = toPlainText();
    if (m_undoEnabled) {
        const QPointer<CVxArtText> alive(this); // listeners to the stack may release the object
        recordEdit();
        if (!alive)
            return;
    }
    setShowHandles(this, isSelected(), /*repaint=*/true);
    clearLayerEffectCache(EffectCacheReason::ContentChanged);
    enableLayerEffect(true);
}

void CVxArtText::recordEdit()
{
    if (m_editedText != m_textWord && m_editedText != asTyped(m_textWord)) {
        auto *const step = new CArttextChangeCommand(this, TEXT_CHANGE_CONTENT);
        QString text = m_editedText;
        step->setTextBegin(m_textWord, QRectF(m_editPos, m_editSize));
        step->setTextDone(text, QRectF(getPos(), m_clientRect.size()));
        m_changeCommand = step;
        undoStack()->push(step);
    } else if (truncated(m_clientRect.height()) != m_editSize.height()) {
        updatePosition(this, QRectF(getPos(), QSizeF(m_clientRect.width(), m_editSize.height())));
    }
}
