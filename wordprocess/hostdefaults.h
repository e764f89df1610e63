// SPDX-License-Identifier: MIT
// hostdefaults.h -- what the host says about tools, fonts and the screen, with an answer for no host at all.
#ifndef HOSTDEFAULTS_H
#define HOSTDEFAULTS_H

#include "host/framework/defaultfont.h"
#include "host/framework/iappframework.h"

#include <cmath>

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

/// Resolution of the screen along x; 96 without a host and where the host's is 0, negative or not finite.
inline double screenDpiX()
{
    constexpr double usualDpi = 96;
    double x = usualDpi;
    double y = usualDpi;
    if (IAppFramework *framework = GetFramework())
        framework->getScreenDpi(x, y);
    return std::isfinite(x) && x > 0 ? x : usualDpi;
}

#endif
