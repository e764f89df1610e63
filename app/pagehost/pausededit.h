// SPDX-License-Identifier: MIT
// pausededit.h -- an edit that stands still while its page is written or shown elsewhere.
#ifndef PAGEHOST_PAUSEDEDIT_H
#define PAGEHOST_PAUSEDEDIT_H

#include <QPointer>
#include <QTextCursor>

class CVXRootObject;
class PageSession;
class QGraphicsTextItem;

/// Ends the open edit of a page, and at its own end takes it up again with the caret where it was. A new
/// text that is still empty goes for good.
class PausedEdit
{
public:
    explicit PausedEdit(PageSession &session);
    ~PausedEdit();
    PausedEdit(const PausedEdit &) = delete;
    PausedEdit &operator=(const PausedEdit &) = delete;

private:
    PageSession &m_session;
    CVXRootObject *m_edited;
    QPointer<QGraphicsTextItem> m_item; ///< of an art text, whose cursor it would forget
    QTextCursor m_caret;
};

#endif
