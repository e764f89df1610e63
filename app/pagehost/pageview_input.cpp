// SPDX-License-Identifier: MIT
// pageview_input.cpp -- PageView: what input methods ask of an edited text, and what they send.
// Deliberate: of a rich text they hear the caret, and not what stands around it. One that knows would
// replace parts of the text by way of its events, which a rich text does not follow.
#include "app/pagehost/pageview.h"

#include "app/pagehost/pagesession.h"
#include "app/pagehost/textcommands.h"

#include <QGuiApplication>
#include <QInputMethodEvent>

CVXRootObject *PageView::editedRichText() const
{
    CVXRootObject *edited = m_session ? m_session->editedObject() : nullptr;
    return edited && TextCommands::isRichText(edited) ? edited : nullptr;
}

/// In the view's own coordinates, as input methods know no others.
QRect PageView::caretRectangle() const
{
    const QLineF caret = TextCommands::caretLine(editedRichText());
    const QTransform toViewport = viewportTransform();
    const QPoint first = toViewport.map(caret.p1()).toPoint();
    const QPoint last = toViewport.map(caret.p2()).toPoint();
    const QRect inViewport = QRect(first, QSize(1, 1)) | QRect(last, QSize(1, 1));
    return inViewport.translated(viewport()->pos());
}

QVariant PageView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (!editedRichText())
        return QGraphicsView::inputMethodQuery(query);
    switch (query) {
    case Qt::ImCursorRectangle:
        return caretRectangle();
    case Qt::ImHints:
        return int(Qt::ImhMultiLine);
    default:
        return QGraphicsView::inputMethodQuery(query);
    }
}

/// The candidates of an input method follow the caret, which has its place once it is painted. They ask
/// for it by events: not in the middle of the painting.
void PageView::announceCaret()
{
    if (!editedRichText() || !hasFocus() || caretRectangle() == m_announcedCaret)
        return;
    m_announcedCaret = caretRectangle();
    QMetaObject::invokeMethod(
        this, [] { QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle); },
        Qt::QueuedConnection);
}

/// A rich text takes either the committed part of an event or the preedit that follows it.
void PageView::inputMethodEvent(QInputMethodEvent *event)
{
    if (m_session && m_session->editedObject())
        m_session->noteEditInput();
    if (editedRichText() && !event->commitString().isEmpty() && !event->preeditString().isEmpty()) {
        QInputMethodEvent committed;
        committed.setCommitString(event->commitString(), event->replacementStart(),
                                  event->replacementLength());
        QGraphicsView::inputMethodEvent(&committed);
        event->setCommitString(QString());
    }
    QGraphicsView::inputMethodEvent(event);
}
