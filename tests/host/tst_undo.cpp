// SPDX-License-Identifier: MIT
// tst_undo.cpp -- steps, groups, and how long objects live for them.
#include "plainobject.h"
#include "recordinghost.h"

#include <QtTest>

namespace {

class CountingStep : public CWbUndoCmd
{
public:
    CountingStep(CVXRootObject *object, QUndoCommand *parent = nullptr)
        : CWbUndoCmd(parent)
    {
        m_object = object;
        setText(QStringLiteral("IDS_COUNT"));
    }
    void undo() override
    {
        ++undone;
        sawObject = m_object != nullptr;
    }
    void redo() override
    {
        ++redone;
        sawObject = m_object != nullptr;
    }

    static int undone, redone;
    static bool sawObject;
};

int CountingStep::undone = 0;
int CountingStep::redone = 0;
bool CountingStep::sawObject = false;

} // namespace

class TestUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void pushRunsTheStepOnce();
    void nullStepIsIgnored();
    void stepTellsItsNameAndIndex();
    void releasedObjectGoesAtOnceWithoutSteps();
    void releasedObjectWaitsForItsLastStep();
    void nestedStepsKeepTheirObject();
    void droppedRedoStepsLetTheObjectGo();
    void deletedObjectIsForgottenByItsSteps();
    void unpushedStepKeepsNothing();
    void groupIsOneStep();
    void emptyGroupLeavesNoStep();
    void groupsNest();
    void unmatchedEndIsIgnored();
    void lockIsUndone();
    void geometryOperationsRecordOnDemand();
    void objectsWithoutPageUseTheCommonStack();
};

void TestUndo::init()
{
    CountingStep::undone = CountingStep::redone = 0;
}

void TestUndo::pushRunsTheStepOnce()
{
    RecordingHost host;
    PlainObject object(&host);
    host.stack().push(new CountingStep(&object));
    QCOMPARE(CountingStep::redone, 1);
    QCOMPARE(host.stack().count(), 1);
    host.stack().undo();
    host.stack().redo();
    QCOMPARE(CountingStep::undone, 1);
    QCOMPARE(CountingStep::redone, 2);
}

void TestUndo::nullStepIsIgnored()
{
    CUndoRedo stack;
    stack.push(nullptr);
    QCOMPARE(stack.count(), 0);
}

void TestUndo::stepTellsItsNameAndIndex()
{
    RecordingHost host;
    CountingStep step(nullptr);
    QCOMPARE(step.getActionName(nullptr), QStringLiteral("IDS_COUNT"));
    host.localStrings.insert(QStringLiteral("IDS_COUNT"), QStringLiteral("Count"));
    QCOMPARE(step.getActionName(&host), QStringLiteral("Count"));
    step.setIdxCmd(12);
    QCOMPARE(step.getIdxCmd(), 12);
}

void TestUndo::releasedObjectGoesAtOnceWithoutSteps()
{
    RecordingHost host;
    int deleted = 0;
    auto *const object = new PlainObject(&host);
    object->deleted = &deleted;
    object->Release();
    QCOMPARE(deleted, 1);
}

void TestUndo::releasedObjectWaitsForItsLastStep()
{
    RecordingHost host;
    int deleted = 0;
    auto *const object = new PlainObject(&host);
    object->deleted = &deleted;
    host.scene().addItem(object);
    host.stack().push(new CountingStep(object));
    host.stack().push(new CountingStep(object));
    object->Release();
    QCOMPARE(deleted, 0);
    QVERIFY(host.scene().items().isEmpty());
    host.stack().undo();
    QVERIFY(CountingStep::sawObject);
    QCOMPARE(deleted, 0);
    host.stack().clear();
    QCOMPARE(deleted, 1);
}

void TestUndo::nestedStepsKeepTheirObject()
{
    RecordingHost host;
    int deleted = 0;
    auto *const object = new PlainObject(&host);
    object->deleted = &deleted;
    auto *const outer = new CWbUndoCmd;
    new CountingStep(object, outer);
    host.stack().push(outer);
    object->Release();
    QCOMPARE(deleted, 0);
    host.stack().clear();
    QCOMPARE(deleted, 1);
}

void TestUndo::droppedRedoStepsLetTheObjectGo()
{
    RecordingHost host;
    int deleted = 0;
    auto *const object = new PlainObject(&host);
    object->deleted = &deleted;
    host.stack().push(new CountingStep(object));
    host.stack().undo();
    object->Release();
    QCOMPARE(deleted, 0);
    host.stack().push(new CountingStep(nullptr)); // takes the place of the undone step
    QCOMPARE(deleted, 1);
}

void TestUndo::deletedObjectIsForgottenByItsSteps()
{
    RecordingHost host;
    auto *const object = new PlainObject(&host);
    host.stack().push(new CountingStep(object));
    drag(*object, {50, 25}, {80, 25});
    object->setLocked(true, true, true);
    delete object;
    while (host.stack().canUndo())
        host.stack().undo();
    QVERIFY(!CountingStep::sawObject);
    while (host.stack().canRedo())
        host.stack().redo();
    QCOMPARE(host.stack().count(), 3);
}

void TestUndo::unpushedStepKeepsNothing()
{
    RecordingHost host;
    int deleted = 0;
    auto *const object = new PlainObject(&host);
    object->deleted = &deleted;
    CountingStep step(object);
    object->Release();
    QCOMPARE(deleted, 1);
}

void TestUndo::groupIsOneStep()
{
    RecordingHost host;
    PlainObject object(&host);
    host.beginUndoGroup(QStringLiteral("IDS_ITEM_ADD_ITEM"));
    host.stack().push(new CountingStep(&object));
    host.stack().push(new CountingStep(&object));
    host.endUndoGroup();
    QCOMPARE(host.stack().count(), 1);
    QCOMPARE(host.stack().text(0), QStringLiteral("IDS_ITEM_ADD_ITEM"));
    host.stack().undo();
    QCOMPARE(CountingStep::undone, 2);
}

void TestUndo::emptyGroupLeavesNoStep()
{
    RecordingHost host;
    host.beginUndoGroup(QStringLiteral("IDS_ITEM_ADD_ITEM"));
    host.endUndoGroup();
    QCOMPARE(host.stack().count(), 0);
}

void TestUndo::groupsNest()
{
    RecordingHost host;
    host.beginUndoGroup(QStringLiteral("outer"));
    host.stack().push(new CountingStep(nullptr));
    host.beginUndoGroup(QStringLiteral("inner"));
    host.stack().push(new CountingStep(nullptr));
    host.endUndoGroup();
    host.stack().push(new CountingStep(nullptr));
    host.endUndoGroup();
    QCOMPARE(host.stack().count(), 1);
    QCOMPARE(host.stack().text(0), QStringLiteral("outer"));
    host.stack().push(new CountingStep(nullptr));
    QCOMPARE(host.stack().count(), 2);
}

void TestUndo::unmatchedEndIsIgnored()
{
    RecordingHost host;
    host.endUndoGroup();
    host.stack().push(new CountingStep(nullptr));
    QCOMPARE(host.stack().count(), 1);
}

void TestUndo::lockIsUndone()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setLocked(true, true, true);
    QVERIFY(object.isLocked());
    QCOMPARE(host.stack().count(), 1);
    host.stack().undo();
    QVERIFY(!object.isLocked());
    object.setLocked(false, true, true);
    QCOMPARE(host.stack().count(), 1); // no change, no step
}

void TestUndo::geometryOperationsRecordOnDemand()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setPos(QPointF(5, 5), false);
    object.setSize(QSizeF(10, 10), false, true);
    object.rotateObj(10, false);
    QCOMPARE(host.stack().count(), 0);
    const QPointF start = object.getPos();
    object.setPos(QPointF(6, 6), true);
    object.setSize(QSizeF(20, 20), true, true);
    object.rotateObj(10, true);
    QCOMPARE(host.stack().count(), 3);
    host.stack().setIndex(0);
    QVERIFY(distance(object.getPos(), start) < 1e-9);
    QCOMPARE(object.getSize(), QSizeF(10, 10));
    QVERIFY(std::abs(object.getRotate() - 10.0) < 1e-9);
}

void TestUndo::objectsWithoutPageUseTheCommonStack()
{
    int deleted = 0;
    auto *const object = new PlainObject(nullptr);
    object->deleted = &deleted;
    QCOMPARE(object->undoStack(), CUndoRedo::GetInstance());
    object->setPos(QPointF(9, 9), true);
    QCOMPARE(CUndoRedo::GetInstance()->count(), 1);
    CUndoRedo::GetInstance()->undo();
    QCOMPARE(object->getPos(), QPointF(0, 0));
    object->Release();
    CUndoRedo::GetInstance()->clear();
    QCOMPARE(deleted, 1);
}

QTEST_MAIN(TestUndo)
#include "tst_undo.moc"
