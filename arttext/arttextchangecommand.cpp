// SPDX-License-Identifier: MIT
// arttextchangecommand.cpp -- CArttextChangeCommand.
#include "arttext/arttextchangecommand.h"

#include "arttext/vxarttext.h"

CArttextChangeCommand::CArttextChangeCommand(CVxArtText *object, TEXT_CHANGE_TYPE type,
                                             QUndoCommand *parent)
    : CWbUndoCmd(parent)
    , m_type(type)
{
    m_object = object;
    setText(QStringLiteral("IDS_TEXT_PROCESS")); // the host translates it
}

void CArttextChangeCommand::setTextBegin(QString &text, QRectF rect)
{
    m_oldText = text;
    m_oldRect = rect;
}

void CArttextChangeCommand::setTextDone(QString &text, QRectF rect)
{
    m_newText = text;
    m_newRect = rect;
}

void CArttextChangeCommand::undo()
{
    apply(m_oldText, m_oldRect);
}

void CArttextChangeCommand::redo()
{
    apply(m_newText, m_newRect);
}

void CArttextChangeCommand::apply(QString &text, const QRectF &rect)
{
    auto *const object = dynamic_cast<CVxArtText *>(m_object); // null once the object has gone
    if (object && m_type == TEXT_CHANGE_CONTENT)
        object->setTextAndRect(text, rect, true);
}
