// SPDX-License-Identifier: MIT
// hostdefaults.h -- what the host says about tools, fonts and the screen, with an answer for no host at all.
#ifndef HOSTDEFAULTS_H
#define HOSTDEFAULTS_H

#include "host/framework/iappframework.h"

#include <QFont>

/// Tools of the host that a text object knows.
namespace Tool {
constexpr int Text = 300;
constexpr int HoverWhileEditing = 91;
} // namespace Tool

/// The tool in use, 0 without a host.
inline int currentTool()
{
    IAppFramework *framework = GetFramework();
    return framework ? framework->getCurrentTool() : 0;
}

/// The host's default family and size in points; Qt's own where the host says nothing.
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

/// Resolution of the screen along x, 96 without a host.
inline double screenDpiX()
{
    double x = 96;
    double y = 96;
    if (IAppFramework *framework = GetFramework())
        framework->getScreenDpi(x, y);
    return x;
}

#endif
