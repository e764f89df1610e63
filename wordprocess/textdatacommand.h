// SPDX-License-Identifier: MIT
// textdatacommand.h -- the undo step of a rich text object: its document string before and after a change.
#ifndef TEXTDATACOMMAND_H
#define TEXTDATACOMMAND_H

#include "host/framework/cundoredo.h"

#include <QString>

class CWordProcess;

/// Rebuilds the object from a document string, each way. Steps never merge: id() stays -1. A step whose
/// object has gone, or is no rich text object, does nothing.
class CTextDataCommand : public CWbUndoCmd
{
public:
    /// \param before, after  whole document strings (CWordProcess::serialize(false))
    CTextDataCommand(CWordProcess *object, const QString &before, const QString &after,
                     QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

    /// The object has passed through this change already: the first redo(), that of the push, does nothing.
    void takeAsDone() { m_isDone = true; }

private:
    /// Rebuilds the object from \a data, which takes in what listeners command of it meanwhile.
    void rebuildFrom(QString &data);

    QString m_undoData;
    QString m_redoData;
    bool m_isDone = false;
};

#endif
