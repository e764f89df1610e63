// SPDX-License-Identifier: MIT
// historypanel.h -- the steps of the page, to go back and forth by.
#ifndef PAGEHOST_HISTORYPANEL_H
#define PAGEHOST_HISTORYPANEL_H

#include <QPointer>
#include <QUndoView>

class PageSession;

/// All steps in the words of the user. A step that is chosen ends an open edit first, so that what is
/// typed is a step of its own and can be had back.
class HistoryPanel : public QUndoView
{
    Q_OBJECT

public:
    explicit HistoryPanel(QWidget *parent = nullptr);

    void setSession(PageSession *session);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void endEdit();

    QPointer<PageSession> m_session;
};

#endif
