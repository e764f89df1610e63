// SPDX-License-Identifier: MIT
// cundoredo.h -- the host's undo stack and the step that objects push on it.
#ifndef CUNDOREDO_H
#define CUNDOREDO_H

#include "host/framework/framework_global.h"

#include <QHash>
#include <QUndoCommand>
#include <QUndoStack>

class CVXRootObject;
class ILocalize;

/// One undoable step. It remembers the object that it changes.
class FRAMEWORK_EXPORT CWbUndoCmd : public QUndoCommand
{
public:
    explicit CWbUndoCmd(QUndoCommand *parent = nullptr);
    ~CWbUndoCmd() override;

    int getIdxCmd() const { return m_idxCmd; }
    void setIdxCmd(int index) { m_idxCmd = index; }
    /// Name of the step for the user: text() as a key of \a localize, text() itself without one.
    virtual QString getActionName(ILocalize *localize) const;
    CVXRootObject *object() const { return m_object; }

protected:
    CVXRootObject *m_object = nullptr; ///< the object of the step; kept alive by the stack

private:
    int m_idxCmd = -1;
};

/// A stack of steps over QUndoStack. An object whose Release() is called while steps refer to it leaves
/// its scene at once and is deleted with the last of these steps.
class FRAMEWORK_EXPORT CUndoRedo : public QUndoStack
{
    Q_OBJECT

public:
    explicit CUndoRedo(QObject *parent = nullptr);
    ~CUndoRedo() override;

    /// The common stack of objects whose page has none.
    static CUndoRedo *GetInstance();

    /// Takes ownership of \a step and runs its redo() once at once. Null does nothing.
    void push(CWbUndoCmd *step);
};

#endif
