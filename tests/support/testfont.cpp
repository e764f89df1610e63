// SPDX-License-Identifier: MIT
#include "tests/support/testfont.h"

#include <QtGui/QFontDatabase>

QString loadBoxTestFont()
{
    static const QString family = [] {
        const int id = QFontDatabase::addApplicationFont(QStringLiteral(VX_TEST_FONT));
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        if (families.isEmpty())
            qFatal("cannot load the test font %s", VX_TEST_FONT);
        return families.first();
    }();
    return family;
}
