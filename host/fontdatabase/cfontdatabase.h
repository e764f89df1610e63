// SPDX-License-Identifier: MIT
// cfontdatabase.h -- the host's catalogue of installed font families.
#ifndef CFONTDATABASE_H
#define CFONTDATABASE_H

#include <QString>

#if defined(FONTDATABASE_LIBRARY)
#define FONTDATABASE_EXPORT Q_DECL_EXPORT
#else
#define FONTDATABASE_EXPORT Q_DECL_IMPORT
#endif

class FONTDATABASE_EXPORT CFontDatabase
{
public:
    static CFontDatabase *instance();

    /// True when a family of this name is installed; letter case does not count. False for "".
    bool fontExists(const QString &family) const;
    /// The internal name of a family, under which formats keep it; empty for an unknown one.
    QString family(const QString &name) const;
    /// The name under which the user knows a family; empty for an unknown one.
    QString localFamily(const QString &family) const;
};

#endif
