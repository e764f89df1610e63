// SPDX-License-Identifier: MIT
#include "app/page/framework.h"

#include "host/fontdatabase/cfontdatabase.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>

namespace {

/// The first installed family of those that a text looks well in, or the application's own.
QString preferredFamily()
{
    const QLatin1String candidates[] = {QLatin1String("Noto Sans"), QLatin1String("DejaVu Sans")};
    for (QLatin1String candidate : candidates) {
        if (CFontDatabase::instance()->fontExists(candidate))
            return candidate;
    }
    return QFontInfo(QGuiApplication::font()).family();
}

} // namespace

Framework::Framework()
    : m_family(preferredFamily())
{
    SetFramework(this);
}

Framework::~Framework()
{
    if (GetFramework() == this)
        SetFramework(nullptr);
}

QString Framework::getLocalString(const QString &key, const QString &fallback)
{
    return m_strings.value(key, fallback);
}

void Framework::getDefaultFont(QString &family, int &size)
{
    family = m_family;
    size = m_size;
}

void Framework::setDefaultFont(const QString &family, int size)
{
    if (!family.isEmpty())
        m_family = family;
    if (size >= 1)
        m_size = size;
}

void Framework::getScreenDpi(double &x, double &y)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    x = screen ? screen->logicalDotsPerInchX() : 96.0;
    y = screen ? screen->logicalDotsPerInchY() : 96.0;
}
