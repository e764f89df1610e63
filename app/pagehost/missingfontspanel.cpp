// SPDX-License-Identifier: MIT
#include "app/pagehost/missingfontspanel.h"

#include "app/page/textobject.h"
#include "app/pagehost/fontfamilybox.h"
#include "app/pagehost/pagesession.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QDataStream>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace {

constexpr int replaceFontProperty = 112;
const QString replaceStep = QStringLiteral("IDS_TEXT_REPLACE_FONT");

void send(CVXRootObject *object, const QString &from, const QString &to, const char *mode)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << from << to << QString(QLatin1String(mode));
    QDataStream in(bytes);
    object->SetSpecialProperty(replaceFontProperty, in, false);
}

} // namespace

MissingFontsPanel::MissingFontsPanel()
    : m_list(new QListWidget)
    , m_replacement(new FontFamilyBox(tr("Replacement")))
    , m_none(new QLabel(tr("All fonts of the page are installed.")))
    , m_confirm(new QPushButton(tr("Replace")))
    , m_cancel(new QPushButton(tr("Cancel")))
{
    m_none->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("missingFonts"));
    m_list->setAccessibleName(tr("Missing fonts"));
    m_replacement->setObjectName(QStringLiteral("replacement"));
    m_confirm->setObjectName(QStringLiteral("confirmReplacement"));
    m_confirm->setAccessibleName(tr("Replace the font"));
    m_cancel->setObjectName(QStringLiteral("cancelReplacement"));
    m_cancel->setAccessibleName(tr("Keep the font"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_none);
    column->addWidget(m_list, 1);
    auto *form = new QFormLayout;
    form->addRow(tr("Replacement"), m_replacement);
    column->addLayout(form);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_confirm);
    buttons->addWidget(m_cancel);
    column->addLayout(buttons);
    connect(m_list, &QListWidget::currentTextChanged, this, [this] {
        if (chosen() != m_previewed)
            cancel();
        refreshButtons();
    });
    connect(m_replacement, &FontFamilyBox::picked, this, &MissingFontsPanel::preview);
    connect(m_replacement, &FontFamilyBox::stepped, this, &MissingFontsPanel::preview);
    connect(m_replacement, &FontFamilyBox::givenUp, this, &MissingFontsPanel::cancel);
    connect(m_replacement, &FontFamilyBox::tried, this, &MissingFontsPanel::preview);
    connect(m_confirm, &QAbstractButton::clicked, this, &MissingFontsPanel::confirm);
    connect(m_cancel, &QAbstractButton::clicked, this, &MissingFontsPanel::cancel);
    refresh();
}

void MissingFontsPanel::setSession(PageSession *session)
{
    if (m_session) {
        cancel();
        m_session->disconnect(this);
    }
    m_session = session;
    m_previewed.clear();
    m_shownInstead.clear();
    m_changed.clear();
    if (session) {
        connect(session, &PageSession::stateChanged, this, &MissingFontsPanel::look);
        connect(session, &PageSession::aboutToAct, this, [this] {
            if (!m_isActing)
                cancel();
        });
    }
    m_seenObjects.clear();
    m_seenIndex = -1;
    refresh();
}

QString MissingFontsPanel::chosen() const
{
    return m_list->currentItem() ? m_list->currentItem()->text() : QString();
}

QList<CVXRootObject *> MissingFontsPanel::textsThatMiss(const QString &family) const
{
    QList<CVXRootObject *> texts;
    if (!m_session)
        return texts;
    for (CVXRootObject *object : m_session->page()->objects()) {
        const bool isShown = family == m_previewed && m_changed.contains(object);
        if (isShown || TextObject::missingFonts(object).contains(family))
            texts.append(object);
    }
    return texts;
}

void MissingFontsPanel::preview(const QString &replacement)
{
    const QString family = chosen();
    if (family.isEmpty() || replacement.isEmpty() || !m_session
        || (family == m_previewed && replacement == m_shownInstead))
        return;
    const QScopedValueRollback<bool> acting(m_isActing, true);
    m_session->endEdit(); // fonts are replaced outside an edit
    const QList<CVXRootObject *> texts = textsThatMiss(family);
    for (CVXRootObject *object : texts)
        send(object, family, replacement, "preview");
    m_changed = texts;
    m_previewed = family;
    m_shownInstead = replacement;
    m_replacement->show(replacement);
    refreshButtons();
}

void MissingFontsPanel::confirm()
{
    if (m_previewed.isEmpty() || !m_session)
        return;
    const QScopedValueRollback<bool> acting(m_isActing, true);
    m_session->endEdit();
    const QList<CVXRootObject *> texts = textsThatMiss(m_previewed);
    CUndoRedo *stack = m_session->undoStack();
    stack->beginGroup(replaceStep);
    for (CVXRootObject *object : texts)
        send(object, m_previewed, m_shownInstead, "confirm");
    stack->endGroup();
    m_previewed.clear();
    m_shownInstead.clear();
    m_changed.clear();
    m_replacement->show(QString());
    refresh();
}

void MissingFontsPanel::cancel()
{
    if (m_previewed.isEmpty())
        return;
    const QString family = m_previewed;
    m_previewed.clear();
    m_shownInstead.clear();
    const QList<CVXRootObject *> changed = m_changed;
    m_changed.clear();
    m_replacement->show(QString());
    if (!m_session)
        return;
    for (CVXRootObject *object : changed) {
        if (m_session->page()->objects().contains(object))
            send(object, family, QString(), "cancel");
    }
    refresh();
}

/// What nobody sees is not left half done.
void MissingFontsPanel::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    cancel();
}

/// Fonts come and go with objects and with steps: a caret that blinks asks nothing of the page.
void MissingFontsPanel::look()
{
    const QList<CVXRootObject *> &objects = m_session->page()->objects();
    const int index = m_session->undoStack()->index();
    if (objects == m_seenObjects && index == m_seenIndex)
        return;
    m_seenObjects = objects;
    m_seenIndex = index;
    refresh();
}

void MissingFontsPanel::refresh()
{
    QStringList families = m_session ? m_session->missingFonts() : QStringList();
    if (!m_previewed.isEmpty() && !families.contains(m_previewed))
        families.append(m_previewed); // missing until it is confirmed
    families.sort(Qt::CaseInsensitive);
    if (families != m_families) {
        const bool isNew = m_families.isEmpty() && !families.isEmpty();
        const QString before = chosen();
        {
            const QSignalBlocker blocker(m_list);
            m_list->clear();
            m_list->addItems(families);
            m_list->setCurrentRow(qMax(0, families.indexOf(before)));
        }
        m_families = families;
        if (isNew)
            Q_EMIT fontsMissed();
    }
    refreshButtons();
}

void MissingFontsPanel::refreshButtons()
{
    const bool isMissing = !m_families.isEmpty();
    m_none->setVisible(!isMissing);
    m_list->setEnabled(isMissing);
    m_replacement->setEnabled(isMissing);
    m_confirm->setEnabled(!m_previewed.isEmpty());
    m_cancel->setEnabled(!m_previewed.isEmpty());
}
