// SPDX-License-Identifier: MIT
// editchanges.h -- what an edit has changed that stands in no undo step yet.
#ifndef PAGEHOST_EDITCHANGES_H
#define PAGEHOST_EDITCHANGES_H

#include <QString>

class CUndoRedo;
class CVXRootObject;

/// Follows the edit of one text. At the end of an edit a text records what has become of its words; what
/// has become of their formats alone is recorded here. All but begin() is for a text in edit state.
class EditChanges
{
public:
    /// The edit of \a object begins, or a step has taken in all that it has changed so far.
    void begin(CVXRootObject *object);
    /// To be called ahead of whatever may change the text beside a motion of the caret, in the same turn
    /// of the event loop.
    void noteInput();
    /// So many calls of noteInput(), over all edits.
    int inputs() const { return m_inputs; }
    /// True when words or formats differ from those at the last begin().
    bool isChanged() const;

    /// Makes a step of the changes now. Without any: nothing.
    void record(CUndoRedo &stack);
    /// To be called ahead of the end of the edit: a step of what the text itself would not record.
    void recordFormats(CUndoRedo &stack);

    /// Takes back the last change in the history of the text itself. False when there is none.
    bool undo();
    /// The same forwards.
    bool redo();
    /// True when undo() has left something to redo().
    bool canRedo() const { return m_undone > 0; }
    /// All of it.
    void redoAll();

private:
    QString content() const;
    bool changesBy(int standardKey);

    CVXRootObject *m_object = nullptr;
    QString m_startText;
    QString m_startContent;
    int m_inputs = 0;
    int m_undone = 0;                   ///< calls of undo() that can be redone
    mutable bool m_isTouched = false;   ///< the formats may differ although the words do not
    mutable int m_comparedInputs = -1;  ///< inputs() at the last comparison of formats; -1 for none
    mutable bool m_isDifferent = false; ///< what that has come to
};

#endif
