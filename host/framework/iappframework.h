// SPDX-License-Identifier: MIT
// iappframework.h -- the application around documents: tools, default font, strings, event sink.
#ifndef IAPPFRAMEWORK_H
#define IAPPFRAMEWORK_H

#include "host/framework/framework_global.h"
#include "host/framework/hosttypes.h"

class CVXRootObject;

/// Translates the key of an action into the user's language.
class ILocalize
{
public:
    virtual ~ILocalize() = default;
    virtual QString getLocalString(const QString &key, const QString &fallback) = 0;
};

/// Hears what objects tell about themselves.
class IObjectEventSink
{
public:
    virtual ~IObjectEventSink() = default;
    /// An event of \a object under \a key ("text_operation", "arttext_prop") with its values.
    virtual void notifyObjectEvent(CVXRootObject *object, const QString &key,
                                   const AttributeMap &values) = 0;
    /// \a object has changed; \a code says how.
    virtual void notifyObjectChanged(CVXRootObject *object, int code, const QString &detail) = 0;
};

class IAppFramework : public ILocalize
{
public:
    /// Id of the tool in use: 300 is the text tool.
    virtual int getCurrentTool() = 0;
    /// Who listens to objects, or null.
    virtual IObjectEventSink *getEventSink() = 0;
    /// Family and size in points for new text.
    virtual void getDefaultFont(QString &family, int &size) = 0;
    /// Dots per inch of the screen.
    virtual void getScreenDpi(double &x, double &y) = 0;
    /// True while selection changes are not to end an edit.
    virtual bool isBatchMode() = 0;
};

/// The framework that SetFramework() installed; null before that.
FRAMEWORK_EXPORT IAppFramework *GetFramework();
/// Installs \a framework, which stays the caller's; null takes it away.
FRAMEWORK_EXPORT void SetFramework(IAppFramework *framework);

class CJsonUtil;
/// The JSON helper of the host. Never null.
FRAMEWORK_EXPORT CJsonUtil *GetJsonUtil();

#endif
