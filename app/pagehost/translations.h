// SPDX-License-Identifier: MIT
// translations.h -- the languages of the editor.
#ifndef PAGEHOST_TRANSLATIONS_H
#define PAGEHOST_TRANSLATIONS_H

class QCoreApplication;
class QLocale;

/// Makes \a application speak the language of \a locale, Qt's own words included where Qt has them. A
/// language that the editor does not know: English. To be called ahead of the first window.
void installTranslations(QCoreApplication *application, const QLocale &locale);

#endif
