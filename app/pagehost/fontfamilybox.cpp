// SPDX-License-Identifier: MIT
#include "app/pagehost/fontfamilybox.h"

#include "app/pagehost/settings.h"
#include "host/fontdatabase/cfontdatabase.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QStyle>

#include <utility>

namespace {

constexpr int mostRecent = 8;
constexpr int listWidth = 260; // pixels
const QString recentKey = QStringLiteral("recentFamilies");

QStandardItem *itemOf(const QString &family)
{
    auto *item = new QStandardItem(family);
    QFont font(family);
    font.setStyleStrategy(QFont::NoFontMerging); // a face that lacks its own name is no preview
    if (QFontDatabase().writingSystems(family).contains(QFontDatabase::Latin))
        item->setFont(font); // a face of symbols alone would make its name unreadable
    item->setEditable(false);
    return item;
}

} // namespace

FontFamilyBox::FontFamilyBox(const QString &name, QWidget *parent)
    : QComboBox(parent)
    , m_families(new QStandardItemModel(this))
{
    setAccessibleName(name);
    setToolTip(name);
    setEditable(true);
    setFocusPolicy(Qt::StrongFocus);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto *list = new QListView(this);
    list->setUniformItemSizes(true); // faces are loaded for the rows that are seen
    list->setMinimumWidth(listWidth);
    list->setAccessibleName(name);
    setView(list);
    fill();
    setModel(m_families);
    auto *search = new QCompleter(m_families, this);
    search->setFilterMode(Qt::MatchContains);
    search->setCaseSensitivity(Qt::CaseInsensitive);
    search->setCompletionMode(QCompleter::PopupCompletion);
    search->popup()->setAccessibleName(name);
    setCompleter(search);
    m_missingSign = lineEdit()->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                          QLineEdit::TrailingPosition);
    m_missingSign->setText(tr("This font is not installed"));
    m_missingSign->setVisible(false);
    connect(this, QOverload<int>::of(&QComboBox::activated), this, [this](int row) {
        if (m_stepsByKey)
            return step(itemText(row));
        take(itemText(row)); // also of the search
        Q_EMIT left();
    });
    connect(this, QOverload<int>::of(&QComboBox::highlighted), this,
            [this](int row) { Q_EMIT tried(itemText(row)); });
    show(QString());
}

void FontFamilyBox::fill()
{
    m_families->clear();
    const QStringList recent = recentFamilies();
    for (const QString &family : recent) {
        if (CFontDatabase::instance()->fontExists(family))
            m_families->appendRow(itemOf(family));
    }
    const int ahead = m_families->rowCount();
    const QStringList all = QFontDatabase().families();
    for (const QString &family : all) {
        if (!QFontDatabase().isPrivateFamily(family) && !recent.contains(family))
            m_families->appendRow(itemOf(family));
    }
    if (ahead > 0 && ahead < m_families->rowCount()) {
        auto *line = new QStandardItem;
        line->setData(QStringLiteral("separator"), Qt::AccessibleDescriptionRole);
        line->setFlags(Qt::NoItemFlags);
        m_families->insertRow(ahead, line);
    }
}

void FontFamilyBox::show(const QString &family)
{
    if (lineEdit()->isModified() && hasFocus())
        return; // the user is at it
    m_family = family;
    m_isMissing = !family.isEmpty() && !CFontDatabase::instance()->fontExists(family);
    setCurrentIndex(findText(family, Qt::MatchFixedString));
    setEditText(family);
    lineEdit()->setCursorPosition(0);
    m_missingSign->setVisible(m_isMissing);
    setAccessibleDescription(m_isMissing        ? m_missingSign->text()
                             : family.isEmpty() ? tr("Several fonts, or none")
                                                : QString());
}

QStringList FontFamilyBox::recentFamilies()
{
    return Settings().value(recentKey).toStringList().mid(0, mostRecent);
}

void FontFamilyBox::noteRecent(const QString &family)
{
    QStringList families = recentFamilies();
    families.removeAll(family);
    families.prepend(family);
    Settings().setValue(recentKey, QStringList(families.mid(0, mostRecent)));
}

void FontFamilyBox::showPopup()
{
    endSteps();
    fill();
    show(m_family);
    QComboBox::showPopup();
}

void FontFamilyBox::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QAbstractItemView *found = completer()->popup();
    if (isEnter && found->isVisible() && found->currentIndex().isValid()) {
        event->ignore(); // the search takes the row that is chosen in it
        return;
    }
    if (isEnter || event->key() == Qt::Key_Escape)
        found->hide(); // which it leaves to a field that takes the key
    if (event->key() == Qt::Key_Escape) {
        escape();
    } else if (isEnter) {
        endSteps();
        takeTyped(Match::Part);
    } else {
        const QScopedValueRollback<bool> stepping(m_stepsByKey, true);
        QComboBox::keyPressEvent(event);
        return;
    }
    event->accept();
    Q_EMIT left();
}

void FontFamilyBox::escape()
{
    const bool hasStepped = std::exchange(m_isStepping, false);
    lineEdit()->setModified(false);
    show(hasStepped ? m_beforeSteps : m_family);
    if (hasStepped)
        Q_EMIT givenUp(m_family.isEmpty() ? QVariant() : QVariant(m_family));
}

/// The wheel scrolls the panel, unless the box has been entered.
void FontFamilyBox::wheelEvent(QWheelEvent *event)
{
    const QScopedValueRollback<bool> stepping(m_stepsByKey, true);
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

void FontFamilyBox::focusOutEvent(QFocusEvent *event)
{
    QComboBox::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason // of the search
        || event->reason() == Qt::ActiveWindowFocusReason)
        return;
    takeTyped(Match::Whole);
    endSteps();
}

/// What is typed counts when it names a family, or, with Match::Part, when it is a part of one name at
/// least: the first.
void FontFamilyBox::takeTyped(Match match)
{
    if (!lineEdit()->isModified())
        return;
    lineEdit()->setModified(false);
    const QString typed = lineEdit()->text().trimmed();
    int row = typed.isEmpty() ? -1 : findText(typed, Qt::MatchFixedString);
    const bool isPartEnough = match == Match::Part && !typed.isEmpty();
    if (row < 0 && isPartEnough)
        row = findText(typed, Qt::MatchStartsWith);
    if (row < 0 && isPartEnough)
        row = findText(typed, Qt::MatchContains);
    if (row < 0)
        show(m_family);
    else
        take(itemText(row));
}

void FontFamilyBox::take(const QString &family)
{
    lineEdit()->setModified(false);
    if (family.isEmpty())
        return;
    m_isStepping = false;
    show(family);
    noteRecent(family);
    Q_EMIT picked(family);
}

void FontFamilyBox::step(const QString &family)
{
    if (family.isEmpty())
        return;
    const bool goesOn = std::exchange(m_isStepping, true);
    if (!goesOn)
        m_beforeSteps = m_family;
    show(family);
    Q_EMIT stepped(family, goesOn);
}

/// The last one has been used.
void FontFamilyBox::endSteps()
{
    if (std::exchange(m_isStepping, false))
        noteRecent(m_family);
}
