// SPDX-License-Identifier: MIT
// settings.h -- where the editor keeps what it remembers from run to run.
#ifndef PAGEHOST_SETTINGS_H
#define PAGEHOST_SETTINGS_H

#include <QSettings>
#include <QStandardPaths>

/// The settings of the user, in an .ini file in the folder of settings.
class Settings : public QSettings
{
public:
    Settings()
        : QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vxarttext"),
                    QStringLiteral("pagehost"))
    {
    }
};

/// The folder of the editor's own data, which need not exist.
inline QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
           + QStringLiteral("/vxarttext/pagehost");
}

#endif
