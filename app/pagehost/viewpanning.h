// SPDX-License-Identifier: MIT
// viewpanning.h -- moves what a view shows with the pointer.
#ifndef PAGEHOST_VIEWPANNING_H
#define PAGEHOST_VIEWPANNING_H

#include <QCursor>
#include <QObject>
#include <QPoint>

class PageView;
class QKeyEvent;
class QMouseEvent;

/// A drag with the middle button pans, and so does one with the left button while Space is held and no
/// text is edited.
class ViewPanning : public QObject
{
    Q_OBJECT

public:
    /// \a view owns it.
    explicit ViewPanning(PageView *view);

    /// The pointer belongs to the panning now.
    bool isActive() const { return m_isReady || m_button != Qt::NoButton; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool keyEvent(const QKeyEvent &event, bool pressed);
    bool press(const QMouseEvent &event);
    bool move(const QMouseEvent &event);
    bool release(const QMouseEvent &event);
    void giveUp();
    void showPointer();

    PageView *m_view;
    bool m_isReady = false; ///< Space is held
    Qt::MouseButton m_button = Qt::NoButton;
    QPoint m_last; ///< of the drag, viewport
};

#endif
