// SPDX-License-Identifier: MIT
#include "app/pagehost/historypanel.h"

#include "app/pagehost/pagesession.h"
#include "host/framework/cundoredo.h"
#include "host/framework/iappframework.h"

#include <QIdentityProxyModel>
#include <QItemSelectionModel>
#include <QKeyEvent>

namespace {

/// Steps are named by keys; this names them in the words of the user, for screen readers too.
class StepNames : public QIdentityProxyModel
{
public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex &index, int role) const override
    {
        const QVariant value = QIdentityProxyModel::data(index, role);
        IAppFramework *framework = GetFramework();
        if (role != Qt::DisplayRole || !framework)
            return value;
        return framework->getLocalString(value.toString(), value.toString());
    }
};

/// Keeps the current row of \a to at that of \a from. The index that comes with the signal may be gone:
/// the stack, told first, sets the row anew meanwhile.
void follow(const QItemSelectionModel *from, QItemSelectionModel *to)
{
    QObject::connect(from, &QItemSelectionModel::currentChanged, to, [from, to] {
        const int row = from->currentIndex().row();
        if (row >= 0 && row != to->currentIndex().row())
            to->setCurrentIndex(to->model()->index(row, 0), QItemSelectionModel::ClearAndSelect);
    });
}

} // namespace

HistoryPanel::HistoryPanel(QWidget *parent)
    : QUndoView(parent)
{
    setAccessibleName(tr("History"));
    setEmptyLabel(tr("The page as it was"));
    auto *names = new StepNames(this);
    names->setSourceModel(model());
    QItemSelectionModel *steps = selectionModel(); // that the stack follows
    setModel(names);
    follow(steps, selectionModel());
    follow(selectionModel(), steps);
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
