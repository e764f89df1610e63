// SPDX-License-Identifier: MIT
// wordprocess_fonts.cpp -- CWordProcess: units and the check for installed fonts.
// Changes: m_missingFonts, m_replacedFonts.
#include "wordprocess/cwordprocess.h"

#include "host/fontdatabase/cfontdatabase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

bool CWordProcess::fontExists(const QString &documentString)
{
    const QJsonObject json = QJsonDocument::fromJson(documentString.toUtf8()).object();
    QSet<QString> asked;
    QStringList missing; // in the order of the text
    const QJsonArray blocks = json.value(QLatin1String("fragment")).toArray();
    for (const QJsonValue &runs : blocks) {
        const QJsonArray entries = runs.toArray();
        for (const QJsonValue &entry : entries) {
            const QJsonValue family = entry.toObject().value(QLatin1String("font_family"));
            if (!family.isString() || asked.contains(family.toString()))
                continue;
            asked.insert(family.toString());
            if (!CFontDatabase::instance()->fontExists(family.toString()))
                missing.append(family.toString());
        }
    }
    m_missingFonts = missing;
    m_replacedFonts.clear();
    return m_missingFonts.isEmpty();
}

// Sizes keep their stored resolution until units are converted here.
void CWordProcess::px2pt(double /*dpi*/) {}
