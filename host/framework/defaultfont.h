// SPDX-License-Identifier: MIT
// defaultfont.h -- the font of new text.
#ifndef DEFAULTFONT_H
#define DEFAULTFONT_H

#include "host/framework/iappframework.h"

#include <QFont>

/// The host's default family and size in points; Qt's own where the host says nothing, or no size at all.
inline QFont hostDefaultFont()
{
    QString family;
    int size = 0;
    if (IAppFramework *framework = GetFramework())
        framework->getDefaultFont(family, size);
    QFont font(family);
    if (size > 0)
        font.setPointSize(size);
    return font;
}

#endif
