// SPDX-License-Identifier: MIT
// framework.h -- the application as objects see it: tool, default font, strings, event sink.
#ifndef APP_FRAMEWORK_H
#define APP_FRAMEWORK_H

#include "host/framework/iappframework.h"

#include <QHash>
#include <QString>

/// The framework of a program under app/. While it lives, GetFramework() returns it: make it after
/// the QApplication, ahead of all objects, and only one at a time.
class Framework : public IAppFramework
{
public:
    Framework();
    ~Framework() override;
    Framework(const Framework &) = delete;
    Framework &operator=(const Framework &) = delete;

    // ILocalize
    /// The string set under \a key, or \a fallback.
    QString getLocalString(const QString &key, const QString &fallback) override;

    // IAppFramework
    int getCurrentTool() override { return m_tool; }
    IObjectEventSink *getEventSink() override { return m_sink; }
    void getDefaultFont(QString &family, int &size) override;
    void getScreenDpi(double &x, double &y) override;
    bool isBatchMode() override { return m_batchMode; }

    void setCurrentTool(int tool) { m_tool = tool; }
    /// \a sink stays the caller's; null when no one listens.
    void setEventSink(IObjectEventSink *sink) { m_sink = sink; }
    void setBatchMode(bool on) { m_batchMode = on; }
    void setLocalString(const QString &key, const QString &text) { m_strings.insert(key, text); }
    /// \a size in points; an empty family or a size below 1 is ignored.
    void setDefaultFont(const QString &family, int size);

private:
    int m_tool = 0;
    IObjectEventSink *m_sink = nullptr;
    bool m_batchMode = false;
    QString m_family;
    int m_size = 24;
    QHash<QString, QString> m_strings;
};

#endif
