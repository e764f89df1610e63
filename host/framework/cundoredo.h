// SPDX-License-Identifier: MIT
// cundoredo.h -- the host's undo stack and the step that objects push on it.
#ifndef CUNDOREDO_H
#define CUNDOREDO_H

#include "host/framework/framework_global.h"

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
    /// The object of the step. From push() on it is kept alive for the step; when something else
    /// than its Release() deletes it, the pointer becomes null: undo() and redo() have to test it.
    CVXRootObject *m_object = nullptr;

private:
    friend class CUndoRedo;
    friend class CVXRootObject;
    void countWithObject();
    void forgetObject();

    CVXRootObject *m_counted = nullptr; ///< the object that knows of this step
    int m_idxCmd = -1;
};

/// A stack of steps over QUndoStack. An object whose Release() is called while steps refer to it
/// leaves its scene at once and is deleted with the last of these steps.
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

    /// Opens a group: the steps until the matching endGroup() are undone together under \a
    /// actionKey. A group in which nothing is pushed leaves no step. Groups nest: only the
    /// outermost becomes a step.
    void beginGroup(const QString &actionKey);
    void endGroup();

private:
    int m_groupDepth = 0;
    bool m_groupOpened = false; ///< the macro of the outermost group has begun
    QString m_groupKey;
    static void countSteps(const QUndoCommand *step);
};

#endif
