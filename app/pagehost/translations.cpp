// SPDX-License-Identifier: MIT
#include "app/pagehost/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

// A resource of a static library has to be asked for by name, outside all namespaces.
static void makeResourceKnown()
{
    Q_INIT_RESOURCE(pagehost_translations);
}

namespace {

bool install(QCoreApplication *application, const QLocale &locale, const QString &name,
             const QString &folder)
{
    auto translator = std::make_unique<QTranslator>(application);
    if (!translator->load(locale, name, QStringLiteral("_"), folder))
        return false;
    return application->installTranslator(translator.release()); // which belongs to the application
}

} // namespace

void installTranslations(QCoreApplication *application, const QLocale &locale)
{
    makeResourceKnown();
    // English is what the program is written in: no language behind it is wanted then.
    const QString first = locale.uiLanguages().value(0);
    if (first.startsWith(QLatin1String("en")) || first == QLatin1String("C"))
        return;
    // Qt's words only together with ours: a window speaks one language.
    if (install(application, locale, QStringLiteral("pagehost"), QStringLiteral(":/translations")))
        install(application, locale, QStringLiteral("qtbase"),
                QLibraryInfo::location(QLibraryInfo::TranslationsPath));
}
