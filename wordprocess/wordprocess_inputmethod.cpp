// SPDX-License-Identifier: MIT
// wordprocess_inputmethod.cpp -- CWordProcess: composed text. A preedit stands in the document like typed text,
// so that it is laid out and painted as such, and is taken out again at the next event.
// Changes: m_preeditString, the document at the cursor, m_cursor, m_cursorAtLineEnd.
#include "wordprocess/cwordprocess.h"

#include "layout/textproperties.h"
#include "wordprocess/fragmentwalk.h"
#include "wordprocess/numbers.h"

#include <QGuiApplication>
#include <QInputMethodEvent>

namespace {
constexpr double distanceBelowCaret =
    10; // scene units from the caret's end to an input method's window

/// Composed text as it enters the document: one character for each position that it takes there.
QString asInserted(QString text, const QTextCharFormat &format)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")); // which is one paragraph end
    return format.property(TextProperty::UpperCase).toBool() ? text.toUpper() : text;
}

QPointF onWholeUnits(const QPointF &point)
{
    return QPointF(rounded(point.x()), rounded(point.y()));
}
} // namespace

void CWordProcess::inputMethodEvent(QInputMethodEvent *event)
{
    // Leaving edit state takes the focus away, at which an input method commits its preedit: that text stays
    // in the document already.
    if (!event || m_changingEditState)
        return;
    // Input methods send empty events at will: only text takes the place of what is selected.
    if (!event->commitString().isEmpty() || !event->preeditString().isEmpty()) {
        removeSelectedText();
        dropCursorSelection();
    }
    compose(*event);
    updateBoundingRectImpl(true);
}

/// A composition is one step of the document's own undo, whatever it looked like on its way. Nobody is told
/// while the step is open.
void CWordProcess::compose(const QInputMethodEvent &event)
{
    const EditBlock step(*m_cursor,
                         m_preeditString.isEmpty() ? EditBlock::IsNew : EditBlock::JoinsLast);
    cleanPreeditString();
    QString text = event.commitString();
    if (text.isEmpty()) {
        text = event.preeditString();
        m_preeditString = text; // as the event gave it, before upper case
    }
    if (text.isEmpty())
        return;
    QTextCharFormat format = m_cursor->charFormat();
    if (m_newVersion) // the spacing of a single character is not inherited by what follows it
        format.clearProperty(TextProperty::LeadingGap);
    m_cursor->insertText(asInserted(text, format), format);
    m_cursorAtLineEnd = false; // as behind typed text
}

void CWordProcess::cleanPreeditString()
{
    if (m_preeditString.isEmpty())
        return;
    const QTextCharFormat format = m_cursor->charFormat();
    const int end = m_cursor->position();
    const int length = asInserted(m_preeditString, format).length();
    m_preeditString.clear();
    m_cursor->setPosition(qMax(0, end - length));
    m_cursor->setPosition(end, QTextCursor::KeepAnchor);
    m_cursor->removeSelectedText();
    m_cursor->setCharFormat(format);
}

void CWordProcess::settleComposition()
{
    if (m_preeditString.isEmpty())
        return;
    if (hasFocus())
        QGuiApplication::inputMethod()->commit(); // an answer replaces the preedit by the same text
    endComposition();
}

QVariant CWordProcess::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query != Qt::ImCursorRectangle)
        return QGraphicsItem::inputMethodQuery(query);
    const QPointF below = onWholeUnits(m_cursorEndScenePos) + QPointF(0, distanceBelowCaret);
    const QPoint point = onWholeUnits(mapFromScene(below)).toPoint();
    return QRect(point, point);
}
