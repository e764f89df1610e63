// SPDX-License-Identifier: MIT
// textdatacommand.cpp -- CTextDataCommand. It changes nothing by itself: the object rebuilds itself.
#include "wordprocess/textdatacommand.h"

#include "wordprocess/cwordprocess.h"

#include <utility>

CTextDataCommand::CTextDataCommand(CWordProcess *object, const QString &before,
                                   const QString &after, QUndoCommand *parent)
    : CWbUndoCmd(parent)
    , m_undoData(before)
    , m_redoData(after)
{
    m_object = object;
    setText(QStringLiteral("IDS_IMAGE_ADJUST_ATTRIBUTE")); // the host translates it
}

void CTextDataCommand::undo()
{
    rebuildFrom(m_undoData);
}

void CTextDataCommand::redo()
{
    if (!std::exchange(m_isDone, false))
        rebuildFrom(m_redoData);
}

void CTextDataCommand::rebuildFrom(QString &data)
{
    auto *object = dynamic_cast<CWordProcess *>(m_object); // null once the object has gone
    if (!object)
        return;
    const QString grown = object->carryOutStep(data);
    if (!grown.isNull())
        data = grown;
}
