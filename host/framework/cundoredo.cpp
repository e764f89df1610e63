// SPDX-License-Identifier: MIT
// cundoredo.cpp -- CWbUndoCmd and CUndoRedo.
// Life of an object and its steps: a step is counted with its object from push() to its destructor.
//   Object released first: it leaves its scene and waits; its last step deletes it.
//   Object deleted first (by its scene, say): its steps lose it and do nothing more.
#include "host/framework/cundoredo.h"

#include "host/framework/cvxrootobject.h"
#include "host/framework/iappframework.h"

#include <QCoreApplication>

CWbUndoCmd::CWbUndoCmd(QUndoCommand *parent)
    : QUndoCommand(parent)
{
}

CWbUndoCmd::~CWbUndoCmd()
{
    if (m_counted)
        m_counted->removeUndoStep(this);
}

QString CWbUndoCmd::getActionName(ILocalize *localize) const
{
    return localize ? localize->getLocalString(text(), text()) : text();
}

void CWbUndoCmd::countWithObject()
{
    if (m_object && !m_counted) {
        m_counted = m_object;
        m_counted->addUndoStep(this);
    }
}

void CWbUndoCmd::forgetObject()
{
    if (m_object == m_counted)
        m_object = nullptr;
    m_counted = nullptr;
}

namespace {

CUndoRedo *commonStack = nullptr;

/// The steps of the common stack may be the last to hold released objects: they go with the
/// application.
void deleteCommonStack()
{
    delete commonStack;
    commonStack = nullptr;
}

} // namespace

CUndoRedo::CUndoRedo(QObject *parent)
    : QUndoStack(parent)
{
}

CUndoRedo::~CUndoRedo()
{
    clear();
}

CUndoRedo *CUndoRedo::GetInstance()
{
    if (!commonStack) {
        commonStack = new CUndoRedo;
        qAddPostRoutine(deleteCommonStack);
    }
    return commonStack;
}

void CUndoRedo::push(CWbUndoCmd *step)
{
    if (!step)
        return;
    countSteps(step);
    if (m_groupDepth > 0 && !m_groupOpened) {
        m_groupOpened = true;
        beginMacro(m_groupKey);
    }
    QUndoStack::push(step);
}

void CUndoRedo::beginGroup(const QString &actionKey)
{
    if (m_groupDepth++ == 0)
        m_groupKey = actionKey;
}

void CUndoRedo::endGroup()
{
    if (m_groupDepth == 0 || --m_groupDepth > 0)
        return;
    if (m_groupOpened)
        endMacro();
    m_groupOpened = false;
}

void CUndoRedo::countSteps(const QUndoCommand *step)
{
    if (auto *own = dynamic_cast<CWbUndoCmd *>(const_cast<QUndoCommand *>(step)))
        own->countWithObject();
    for (int i = 0; i < step->childCount(); ++i)
        countSteps(step->child(i));
}
