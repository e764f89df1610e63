// SPDX-License-Identifier: MIT
#include "app/pagehost/panel.h"

#include "app/pagehost/panelfields.h"

#include <QTimer>

Panel::Panel(TextSelection *selection)
    : m_selection(selection)
{
    connect(selection, &TextSelection::changed, this, &Panel::bringUpToDate);
}

/// Behind another panel this one is visible by its own account, but no part of it is.
bool Panel::isSeen() const
{
    return isVisible() && !visibleRegion().isEmpty();
}

void Panel::bringUpToDate()
{
    m_isStale = !isSeen();
    if (m_isStale)
        return;
    refresh();
    Q_EMIT refreshed();
}

void Panel::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    if (m_isStale)
        QTimer::singleShot(0, this, &Panel::bringUpToDate);
}

void Panel::connectNumber(NumberField *field, const std::function<void(double)> &set)
{
    connect(field, &NumberField::entered, this, set);
    connectSteps(field, [set](const QVariant &value) { set(value.toDouble()); });
    connect(field, &NumberField::left, m_selection, &TextSelection::pageWanted);
}
