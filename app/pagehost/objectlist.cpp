// SPDX-License-Identifier: MIT
#include "app/pagehost/objectlist.h"

#include "app/page/page.h"
#include "app/pagehost/canvasmenu.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cvxrootobject.h"

#include <QAction>
#include <QGraphicsItem>
#include <QKeyEvent>
#include <QListWidget>
#include <QScopedValueRollback>

namespace {

constexpr int refreshDelay = 100; // ms
constexpr int longestText = 40;   // UTF-16 units

QString beginningOf(const QString &text)
{
    const QString line = text.left(4 * longestText).simplified();
    if (line.size() <= longestText)
        return line;
    const bool amidCharacter = line.at(longestText).isLowSurrogate();
    return line.left(amidCharacter ? longestText - 1 : longestText) + QChar(0x2026);
}

} // namespace

ObjectList::ObjectList(MainWindow *window)
    : QDockWidget(tr("Objects"), window)
    , m_window(window)
    , m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("objects"));
    m_list->setObjectName(QStringLiteral("objectList"));
    m_list->setAccessibleName(tr("Objects of the page, the topmost first"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setUniformItemSizes(true);
    m_list->installEventFilter(this);
    setWidget(m_list);
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(refreshDelay);
    connect(&m_refresh, &QTimer::timeout, this, &ObjectList::refresh);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &ObjectList::selectOnPage);
    connect(m_list, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) { edit(m_list->row(item)); });
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QListWidget::customContextMenuRequested, this, [this](const QPoint &pos) {
        m_window->canvasMenu()->open(m_list->viewport()->mapToGlobal(pos));
    });
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool isVisible) {
        if (isVisible)
            refresh();
    });
    connect(toggleViewAction(), &QAction::triggered, this, [this](bool isShown) {
        if (isShown)
            m_list->setFocus();
        else
            m_window->view()->setFocus();
    });
    connect(window, &MainWindow::sessionTaken, this, &ObjectList::follow);
}

PageSession *ObjectList::session() const
{
    return m_window->session();
}

QString ObjectList::nameOf(CVXRootObject *object)
{
    const QString kind = TextCommands::isArtText(object)    ? tr("Art text")
                         : TextCommands::isRichText(object) ? tr("Text")
                                                            : tr("Object");
    const QString text = beginningOf(TextCommands::plainText(object));
    const QString name = text.isEmpty() ? tr("%1, empty", "Text, empty").arg(kind)
                                        : tr("%1: %2", "Text: Hello").arg(kind, text);
    return object->isLocked() ? tr("%1, locked", "Text: Hello, locked").arg(name) : name;
}

void ObjectList::follow(PageSession *session)
{
    m_shown.clear(); // objects of a page that has gone
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
    }
    connect(session, &PageSession::stateChanged, this, [this] {
        if (isVisible() && !m_refresh.isActive())
            m_refresh.start();
    });
    if (isVisible())
        refresh();
}

void ObjectList::refresh()
{
    if (!session() || !isVisible())
        return;
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    CVXRootObject *const edited = session()->editedObject();
    const QList<CVXRootObject *> &objects = session()->page()->objects();
    if (objects != m_shown || !edited)
        nameAll();
    else
        name(m_list->item(objects.size() - 1 - objects.indexOf(edited)), edited);
    showSelection();
}

/// Rows stay as long as there are objects for them: a screen reader keeps its place.
void ObjectList::nameAll()
{
    m_shown = session()->page()->objects();
    while (m_list->count() > m_shown.size())
        delete m_list->takeItem(m_list->count() - 1);
    for (int row = 0; row < m_shown.size(); ++row) {
        if (row == m_list->count())
            m_list->addItem(new QListWidgetItem);
        name(m_list->item(row), objectAt(row));
    }
}

void ObjectList::name(QListWidgetItem *item, CVXRootObject *object)
{
    const QString words = nameOf(object);
    if (item->text() != words)
        item->setText(words);
}

CVXRootObject *ObjectList::objectAt(int row) const
{
    return m_shown.value(m_shown.size() - 1 - row);
}

void ObjectList::showSelection()
{
    int selected = -1;
    for (int row = 0; row < m_list->count(); ++row) {
        const bool isSelected = objectAt(row)->graphicsItem()->isSelected();
        m_list->item(row)->setSelected(isSelected);
        if (isSelected)
            selected = row;
    }
    // The keys go on from what is selected.
    const QListWidgetItem *current = m_list->currentItem();
    if (selected >= 0 && !(current && current->isSelected()))
        m_list->setCurrentRow(selected, QItemSelectionModel::NoUpdate);
}

void ObjectList::selectOnPage()
{
    // Rows of objects that have gone are gone in a moment.
    if (m_isFollowing || m_shown != session()->page()->objects())
        return;
    session()->endEdit();
    if (m_shown != session()->page()->objects()) // an empty text went with its edit
        return refresh();
    for (int row = 0; row < m_list->count(); ++row)
        objectAt(row)->doSelected(m_list->item(row)->isSelected(), /*notify=*/false);
    const QList<QListWidgetItem *> chosen = m_list->selectedItems();
    if (chosen.size() == 1) {
        QGraphicsItem *item = objectAt(m_list->row(chosen.constFirst()))->GetGraphicsItemPtr();
        m_window->view()->ensureVisible(item);
    }
}

void ObjectList::edit(int row)
{
    if (row < 0 || m_shown != session()->page()->objects())
        return;
    CVXRootObject *object = objectAt(row);
    session()->select(object);
    m_window->editText(object);
}

bool ObjectList::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (watched != m_list || !(isOverride || event->type() == QEvent::KeyPress))
        return QDockWidget::eventFilter(watched, event);
    if (isOverride) { // the program's Delete would be that of an edited text
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Delete && key != Qt::Key_Backspace)
            return QDockWidget::eventFilter(watched, event);
        event->accept();
        return true;
    }
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        edit(m_list->currentRow());
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        session()->removeSelected();
        return true;
    case Qt::Key_Escape:
        m_window->view()->setFocus();
        return true;
    default:
        return QDockWidget::eventFilter(watched, event);
    }
}
