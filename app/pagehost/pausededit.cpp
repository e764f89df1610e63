// SPDX-License-Identifier: MIT
#include "app/pagehost/pausededit.h"

#include "app/pagehost/pagesession.h"
#include "app/pagehost/textcommands.h"

#include <QGraphicsTextItem>

PausedEdit::PausedEdit(PageSession &session)
    : m_session(session)
    , m_edited(session.editedObject())
    , m_item(m_edited ? TextCommands::editItem(m_edited) : nullptr)
    , m_caret(m_item ? m_item->textCursor() : QTextCursor())
{
    if (!m_session.endEdit())
        m_edited = nullptr;
}

PausedEdit::~PausedEdit()
{
    if (!m_edited)
        return;
    TextCommands::beginEdit(m_edited);
    if (m_item)
        m_item->setTextCursor(m_caret);
}
