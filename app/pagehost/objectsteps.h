// SPDX-License-Identifier: MIT
// objectsteps.h -- undo steps of objects that come to a page, that leave it, and that change on it.
#ifndef PAGEHOST_OBJECTSTEPS_H
#define PAGEHOST_OBJECTSTEPS_H

#include "host/framework/cundoredo.h"
#include "host/framework/hosttypes.h"

#include <QList>
#include <QPointF>
#include <QSizeF>
#include <QVector>

class Page;

/// Takes the step pushed last off \a stack, which has one. What it has done stays done.
void forgetLastStep(CUndoRedo &stack);

/// Puts an object on a page or takes it away. Whichever step keeps an object off its page owns it, and
/// releases it when the step is thrown away.
class PresenceStep : public CWbUndoCmd
{
public:
    enum class Change { Adds, Removes };

    /// \param page outlives every undo() and redo() of the step
    /// \param object lies on the page. With Adds it stays as it is when the step is pushed, with Removes
    ///     it goes then.
    PresenceStep(Change change, Page *page, CVXRootObject *object);
    ~PresenceStep() override;
    PresenceStep(const PresenceStep &) = delete;
    PresenceStep &operator=(const PresenceStep &) = delete;

    void undo() override;
    void redo() override;

private:
    void putOnPage();
    void takeFromPage();

    Change m_change;
    Page *m_page;
    int m_place;                ///< among the objects of the page
    bool m_keepsObject = false; ///< the object is off the page, in the keeping of this step
};

/// Gives an object other attributes, for objects that record no step of their own for it.
class AttributeStep : public CWbUndoCmd
{
public:
    /// \param name a key of the framework's words
    AttributeStep(CVXRootObject *object, const AttributeMap &before, const AttributeMap &after,
                  const QString &name);

    void undo() override;
    void redo() override;

private:
    AttributeMap m_before;
    AttributeMap m_after;
};

/// Moves objects.
class MoveStep : public CWbUndoCmd
{
public:
    /// Where an object lies (scene) before and after the step.
    struct Way {
        CVXRootObject *object;
        QPointF from, to;
    };

    /// \param name a key of the framework's words
    /// \param continues joins the step before when that has moved the same objects under the same name
    MoveStep(const QVector<Way> &ways, const QString &name, bool continues);

    int id() const override;
    bool mergeWith(const QUndoCommand *next) override;

private:
    class One;
    One *part(int index) const;

    bool m_continues;
};

/// Moves a text by the margin of its edit. Within the edit and outside it the text has its place from
/// different boxes: the step knows the way alone.
class ShiftStep : public CWbUndoCmd
{
public:
    /// \param way that \a object has gone already when the step is pushed, scene
    ShiftStep(CVXRootObject *object, const QPointF &way);

    void undo() override;
    void redo() override;

private:
    void move(const QPointF &way);

    QPointF m_way;
    bool m_isDone = true;
};

/// The box of a text as it stands within an edit.
struct TextBox {
    QPointF pos;
    QSizeF size;
    bool follows = false; ///< grows with its text

    static TextBox of(CVXRootObject *object);
    /// The words are wrapped anew. Enters edit state for it where \a object is outside.
    void giveTo(CVXRootObject *object) const;
};

/// Resizes the box of a text within its edit.
class TextBoxStep : public CWbUndoCmd
{
public:
    /// \param after that \a object has already when the step is pushed
    TextBoxStep(CVXRootObject *object, const TextBox &before, const TextBox &after);

    void undo() override;
    void redo() override;

private:
    TextBox m_before;
    TextBox m_after;
    bool m_isDone = true;
};

/// Puts the objects of a page in another order, the lowest first. The step says nothing of objects that
/// the page does not have at the time; the steps around it see to it that all are there.
class OrderStep : public CWbUndoCmd
{
public:
    /// \param page outlives every undo() and redo() of the step
    OrderStep(Page *page, const QList<CVXRootObject *> &order, const QString &name);

    void undo() override;
    void redo() override;

private:
    Page *m_page;
    QList<CVXRootObject *> m_before;
    QList<CVXRootObject *> m_after;
};

#endif
