// SPDX-License-Identifier: MIT
#include "app/pagehost/historypanel.h"

#include "app/pagehost/pagesession.h"
#include "host/framework/cundoredo.h"
#include "host/framework/iappframework.h"

#include <QKeyEvent>
#include <QStyledItemDelegate>

namespace {

/// Steps are named by keys.
class StepNames : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale & /*locale*/) const override
    {
        const QString key = value.toString();
        IAppFramework *framework = GetFramework();
        return framework ? framework->getLocalString(key, key) : key;
    }
};

} // namespace

HistoryPanel::HistoryPanel(QWidget *parent)
    : QUndoView(parent)
{
    setAccessibleName(tr("History"));
    setEmptyLabel(tr("The page as it was"));
    setItemDelegate(new StepNames(this));
}

void HistoryPanel::setSession(PageSession *session)
{
    m_session = session;
    setStack(session ? session->undoStack() : nullptr);
}

void HistoryPanel::mousePressEvent(QMouseEvent *event)
{
    endEdit();
    QUndoView::mousePressEvent(event);
}

void HistoryPanel::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        endEdit();
        break;
    default:
        break;
    }
    QUndoView::keyPressEvent(event);
}

void HistoryPanel::endEdit()
{
    if (m_session)
        m_session->endEdit();
}
