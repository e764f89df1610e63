// SPDX-License-Identifier: MIT
// cfontdatabase.cpp -- CFontDatabase: the families of QFontDatabase, found by any letter case.
#include "host/fontdatabase/cfontdatabase.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>
#include <QMutex>
#include <QMutexLocker>

namespace {

/// Installed families by their folded name. The list is read once; fonts that the application adds
/// or removes later make it be read again.
class FamilyCatalogue
{
public:
    QString find(const QString &name)
    {
        const QMutexLocker guard(&m_mutex);
        if (!m_loaded)
            load();
        return m_families.value(name.trimmed().toCaseFolded());
    }

    void forget()
    {
        const QMutexLocker guard(&m_mutex);
        m_loaded = false;
    }

private:
    void load()
    {
        if (!qGuiApp) // no font can be asked for before the application is up
            return;
        if (!m_connected) {
            m_connected = bool(QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged,
                                                qGuiApp, [this] { forget(); }));
            QObject::connect(qGuiApp, &QObject::destroyed, [this] { m_connected = false; });
        }
        m_families.clear();
        const QStringList families = QFontDatabase().families();
        for (const QString &family : families) {
            m_families.insert(family.toCaseFolded(), family);
            const QString bare = withoutFoundry(family);
            if (!m_families.contains(bare.toCaseFolded()))
                m_families.insert(bare.toCaseFolded(), family);
        }
        m_loaded = true;
    }

    /// Families of one name from several makers are listed as "Name [Maker]".
    static QString withoutFoundry(const QString &family)
    {
        const int bracket = family.indexOf(QLatin1String(" ["));
        return bracket > 0 && family.endsWith(QLatin1Char(']')) ? family.left(bracket) : family;
    }

    QMutex m_mutex;
    QHash<QString, QString> m_families;
    bool m_loaded = false;
    bool m_connected = false;
};

FamilyCatalogue &catalogue()
{
    static FamilyCatalogue *instance = new FamilyCatalogue; // outlives the application's destructor
    return *instance;
}

} // namespace

CFontDatabase *CFontDatabase::instance()
{
    static CFontDatabase database;
    return &database;
}

bool CFontDatabase::fontExists(const QString &family) const
{
    return !catalogue().find(family).isEmpty();
}

QString CFontDatabase::family(const QString &name) const
{
    return catalogue().find(name);
}

QString CFontDatabase::localFamily(const QString &family) const
{
    return catalogue().find(family);
}
