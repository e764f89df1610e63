// SPDX-License-Identifier: MIT
#include "app/pagehost/viewpanning.h"

#include "app/pagehost/pageview.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

ViewPanning::ViewPanning(PageView *view)
    : QObject(view)
    , m_view(view)
{
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

bool ViewPanning::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOfView = watched == m_view;
    switch (event->type()) {
    case QEvent::KeyPress:
        return isOfView && keyEvent(*static_cast<QKeyEvent *>(event), /*pressed=*/true);
    case QEvent::KeyRelease:
        return isOfView && keyEvent(*static_cast<QKeyEvent *>(event), /*pressed=*/false);
    case QEvent::FocusOut:
        if (isOfView)
            giveUp();
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return !isOfView && press(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return !isOfView && move(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return !isOfView && release(*static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

bool ViewPanning::keyEvent(const QKeyEvent &event, bool pressed)
{
    if (event.key() != Qt::Key_Space)
        return false;
    if (pressed && !m_isReady && !m_view->isIdle())
        return false;
    if (event.isAutoRepeat())
        return m_isReady;
    if (!pressed && !m_isReady)
        return false;
    m_isReady = pressed;
    showPointer();
    return true;
}

bool ViewPanning::press(const QMouseEvent &event)
{
    if (m_button != Qt::NoButton)
        return true;
    const bool isMine = event.button() == Qt::MiddleButton
                        || (event.button() == Qt::LeftButton && m_isReady);
    if (!isMine || event.buttons() != event.button()) // a drag of something else goes on
        return false;
    m_button = event.button();
    m_last = event.pos();
    showPointer();
    return true;
}

bool ViewPanning::move(const QMouseEvent &event)
{
    if (m_button == Qt::NoButton)
        return m_isReady;
    const QPoint way = event.pos() - m_last;
    m_last = event.pos();
    QScrollBar *const across = m_view->horizontalScrollBar();
    QScrollBar *const down = m_view->verticalScrollBar();
    across->setValue(across->value() - (m_view->isRightToLeft() ? -way.x() : way.x()));
    down->setValue(down->value() - way.y());
    return true;
}

bool ViewPanning::release(const QMouseEvent &event)
{
    if (m_button == Qt::NoButton)
        return false;
    if (event.button() == m_button) {
        m_button = Qt::NoButton;
        showPointer();
    }
    return true;
}

/// A release that goes to another window is not told.
void ViewPanning::giveUp()
{
    if (!isActive())
        return;
    m_isReady = false;
    m_button = Qt::NoButton;
    showPointer();
}

void ViewPanning::showPointer()
{
    if (m_button != Qt::NoButton)
        m_view->viewport()->setCursor(Qt::ClosedHandCursor);
    else if (m_isReady)
        m_view->viewport()->setCursor(Qt::OpenHandCursor);
    else
        m_view->resetPointer();
}
