// SPDX-License-Identifier: MIT
// recordinghost.cpp -- RecordingHost.
#include "recordinghost.h"

#include "host/framework/cbaseobject.h"

#include <QStringList>

RecordingHost::RecordingHost(int dpi)
    : DocumentHost(dpi)
    , m_previousFramework(GetFramework())
{
    m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    setUndoStack(&m_stack);
    SetFramework(this);
}

RecordingHost::~RecordingHost()
{
    // While objects go they may still ask for everything here.
    m_scene.clear();
    m_stack.clear();
    if (GetFramework() == this)
        SetFramework(m_previousFramework);
}

QVector<RecordingHost::Event> RecordingHost::eventsOfKind(const QString &kind) const
{
    QVector<Event> found;
    for (const Event &event : events) {
        if (event.kind == kind)
            found.append(event);
    }
    return found;
}

QVector<RecordingHost::Event> RecordingHost::eventsWithKey(const QString &key) const
{
    QVector<Event> found;
    for (const Event &event : events) {
        if (event.kind == QLatin1String("event") && event.key == key)
            found.append(event);
    }
    return found;
}

QString RecordingHost::kinds() const
{
    QStringList list;
    for (const Event &event : events)
        list.append(event.kind);
    return list.join(QLatin1Char(' '));
}

void RecordingHost::record(const QString &kind, CVXRootObject *object, const QString &key,
                           const AttributeMap &values, int code, const QString &detail)
{
    events.append({kind, object, key, values, code, detail});
}

QString RecordingHost::getLocalString(const QString &key, const QString &fallback)
{
    return localStrings.value(key, fallback);
}

void RecordingHost::getDefaultFont(QString &family, int &size)
{
    family = defaultFontFamily;
    size = defaultFontSize;
}

void RecordingHost::getScreenDpi(double &x, double &y)
{
    x = screenDpiX;
    y = screenDpiY;
}

void RecordingHost::notifyObjectEvent(CVXRootObject *object, const QString &key,
                                      const AttributeMap &values)
{
    record(QStringLiteral("event"), object, key, values);
}

void RecordingHost::notifyObjectChanged(CVXRootObject *object, int code, const QString &detail)
{
    record(QStringLiteral("changed"), object, QString(), AttributeMap(), code, detail);
}

QList<CVXRootObject *> RecordingHost::getSelectedObjects()
{
    if (!selectedObjects.isEmpty())
        return selectedObjects;
    QList<CVXRootObject *> found;
    const QList<QGraphicsItem *> items = m_scene.selectedItems();
    for (QGraphicsItem *item : items) {
        if (auto *const object = dynamic_cast<CVXRootObject *>(item))
            found.append(object);
    }
    return found;
}

void RecordingHost::setEditingObject(CVXRootObject *object, bool editing)
{
    record(QStringLiteral("editing"), object, QString(), AttributeMap(), editing ? 1 : 0);
}

void RecordingHost::beginObjectBatch()
{
    record(QStringLiteral("beginBatch"));
}

void RecordingHost::endObjectBatch()
{
    record(QStringLiteral("endBatch"));
}

void RecordingHost::objectPreviewChanged(CVXRootObject *object)
{
    if (recordPreviews)
        record(QStringLiteral("preview"), object);
}

void RecordingHost::objectCreated(CVXRootObject *object)
{
    record(QStringLiteral("created"), object);
}

void RecordingHost::postToolCommand(int command, int first, int second)
{
    record(QStringLiteral("tool"), nullptr, QString(), AttributeMap(), command,
           QStringLiteral("%1,%2").arg(first).arg(second));
}

void RecordingHost::beginUndoGroup(const QString &actionKey)
{
    record(QStringLiteral("beginGroup"), nullptr, actionKey);
    DocumentHost::beginUndoGroup(actionKey);
}

void RecordingHost::endUndoGroup()
{
    record(QStringLiteral("endGroup"));
    DocumentHost::endUndoGroup();
}
