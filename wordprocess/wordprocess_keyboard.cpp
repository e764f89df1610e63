// SPDX-License-Identifier: MIT
// wordprocess_keyboard.cpp -- CWordProcess: the selection that keys act on.
// Changes: m_cursor, m_selStart, m_selEnd, m_selAnchor.
#include "wordprocess/cwordprocess.h"

#include <QKeyEvent>

void CWordProcess::keyPressEvent(QKeyEvent *event)
{
    event->ignore(); // text is not typed yet
}

void CWordProcess::selectAll()
{
    m_selAnchor = 0;
    m_selStart = 0;
    m_selEnd = m_document->characterCount() - 1;
    if (m_selEnd > 0) {
        m_cursor->setPosition(0);
        m_cursor->setPosition(m_selEnd, QTextCursor::KeepAnchor);
    }
    notifyTextOperation(TextOperationAttributes, {});
}

void CWordProcess::clearSelection()
{
    m_selStart = m_selEnd; // the cursor is not touched
    notifyTextOperation(TextOperationAttributes, {});
}

void CWordProcess::removeSelectedText()
{
    int start = 0;
    int end = 0;
    if (m_selEnd <= m_selStart || !selection(start, end))
        return;
    endComposition();
    m_cursor->setPosition(start);
    m_cursor->setPosition(end, QTextCursor::KeepAnchor);
    m_cursor->removeSelectedText();
    clearSelection();
}

void CWordProcess::dropCursorSelection()
{
    if (m_cursor->hasSelection())
        m_cursor->setPosition(m_cursor->position());
}
