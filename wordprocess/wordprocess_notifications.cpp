// SPDX-License-Identifier: MIT
// wordprocess_notifications.cpp -- CWordProcess: what the host's panels are told.
// Changes nothing, but whoever listens may command the object again before the call returns.
#include "wordprocess/cwordprocess.h"

#include "host/framework/iappframework.h"
#include "wordprocess/hostdefaults.h"

#include <QScopedValueRollback>

namespace {
// A listener that answers every notification with a command would never let the first one return. Each level
// multiplies what such a listener does.
constexpr int deepestNotification = 3;

IObjectEventSink *eventSink()
{
    IAppFramework *framework = GetFramework();
    return framework ? framework->getEventSink() : nullptr;
}

bool reportsHover(bool editing)
{
    const int tool = currentTool();
    return tool == Tool::Text || (tool == Tool::HoverWhileEditing && editing);
}
} // namespace

void CWordProcess::notifyTextOperation(EnumTextOperation operation, const AttributeMap &map)
{
    if (m_quiet)
        return;
    if (m_notificationDepth >= deepestNotification) {
        m_notificationLeftOut = true;
        return;
    }
    sendTextOperation(operation, map);
    if (m_notificationDepth > 0 || !m_notificationLeftOut)
        return;
    // The one that makes up for those left out is sent as from the deepest level: its answers go untold.
    const QScopedValueRollback<int> depth(m_notificationDepth, deepestNotification);
    sendTextOperation(TextOperationAttributes, {});
    m_notificationLeftOut = false;
}

void CWordProcess::sendTextOperation(EnumTextOperation operation, const AttributeMap &map)
{
    IObjectEventSink *sink = eventSink();
    if (!sink || m_releaseWaits) // without a listener nothing is built
        return;
    AttributeMap values = textOperationMap(operation, map);
    if (values.isEmpty())
        return;
    values[QStringLiteral("sub_operator")] = static_cast<int>(operation);
    const KeepAlive guard(*this);
    ++m_notificationDepth;
    sink->notifyObjectEvent(this, QStringLiteral("text_operation"), values);
    --m_notificationDepth;
}

/// What is sent beside the kind of the operation; empty when nothing is to be sent.
AttributeMap CWordProcess::textOperationMap(EnumTextOperation operation, const AttributeMap &map)
{
    const AttributeMap horizontal{
        {QStringLiteral("horizontal"), m_textOrientation == Qt::Horizontal}};
    AttributeMap values;
    switch (operation) {
    case TextOperationAttributes:
        getAllAttributes(values);
        return values;
    case TextOperationMissingFonts:
        if (!m_missingFonts.isEmpty())
            values[QStringLiteral("familys")] = m_missingFonts;
        return values;
    case TextOperationAboutToEdit:
        return horizontal;
    case TextOperationEditState:
        return {{QStringLiteral("editflag"), m_editing}};
    case TextOperationPointerEntered:
    case TextOperationPointerLeft:
        return reportsHover(m_editing) ? horizontal : values;
    case TextOperationAttributeCommand:
        return map;
    case TextOperationPointerShape:
        values = map;
        if (!values.isEmpty())
            values[QStringLiteral("horizontal")] = m_textOrientation == Qt::Horizontal;
        return values;
    }
    return values;
}
