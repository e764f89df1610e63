// SPDX-License-Identifier: MIT
#include "app/pagehost/windowplace.h"

#include "app/pagehost/settings.h"

#include <QMainWindow>

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString panelsKey = QStringLiteral("window/panels");
constexpr int panelsVersion = 1; // to be raised when panels change so that old places do not fit

} // namespace

void WindowPlace::keep(const QMainWindow &window)
{
    Settings settings;
    settings.setValue(geometryKey, window.saveGeometry());
    settings.setValue(panelsKey, window.saveState(panelsVersion));
}

bool WindowPlace::restore(QMainWindow &window)
{
    const Settings settings;
    if (!window.restoreGeometry(settings.value(geometryKey).toByteArray()))
        return false;
    // A program that fills the screen from its start on looks as if it could not be left.
    window.setWindowState(window.windowState() & ~Qt::WindowFullScreen);
    return window.restoreState(settings.value(panelsKey).toByteArray(), panelsVersion);
}
