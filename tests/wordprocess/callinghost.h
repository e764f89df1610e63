// SPDX-License-Identifier: MIT
// callinghost.h -- a recording host whose listener and page call back before they return.
#ifndef CALLINGHOST_H
#define CALLINGHOST_H

#include "tests/support/recordinghost.h"

#include <functional>

class CallingHost : public RecordingHost
{
public:
    /// Run for every "text_operation"; a call back that notifies again comes in here once more.
    std::function<void(int kind)> onTextOperation;
    /// Run when an object tells the page that it enters edit state.
    std::function<void()> onEditing;
    /// Run when the thumbnail of an object is out of date, which is in the middle of a change of its box.
    std::function<void()> onPreview;

    void notifyObjectEvent(CVXRootObject *object, const QString &key,
                           const AttributeMap &values) override
    {
        RecordingHost::notifyObjectEvent(object, key, values);
        if (onTextOperation)
            onTextOperation(values.value(QStringLiteral("sub_operator")).toInt());
    }

    void setEditingObject(CVXRootObject *object, bool editing) override
    {
        RecordingHost::setEditingObject(object, editing);
        if (onEditing)
            onEditing();
    }

    void objectPreviewChanged(CVXRootObject *object) override
    {
        RecordingHost::objectPreviewChanged(object);
        if (onPreview)
            onPreview();
    }
};

#endif
