// SPDX-License-Identifier: MIT
#include "app/pagehost/recoverydialog.h"

#include "app/pagehost/recovery.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

RecoveryDialog::RecoveryDialog(std::vector<std::unique_ptr<RecoveryCopy>> copies, QWidget *parent)
    : QDialog(parent)
    , m_copies(std::move(copies))
    , m_list(new QListWidget(this))
{
    setWindowTitle(tr("Recover Pages"));
    auto *text = new QLabel(tr("The editor ended before these pages were saved. "
                               "A file itself changes only when you save the recovered page."));
    text->setWordWrap(true);
    for (const auto &copy : m_copies) {
        const QString original = copy->originalName();
        const QString name = original.isEmpty() ? tr("Untitled") : QFileInfo(original).fileName();
        auto *item = new QListWidgetItem(tr("%1, as of %2")
                                             .arg(name, QLocale().toString(copy->time(),
                                                                           QLocale::ShortFormat)),
                                         m_list);
        item->setToolTip(original);
    }
    m_list->setCurrentRow(0);
    m_list->setAccessibleName(tr("Pages that can be recovered"));

    auto *buttons = new QDialogButtonBox(this);
    m_recover = buttons->addButton(tr("&Recover"), QDialogButtonBox::AcceptRole);
    m_discard = buttons->addButton(tr("&Discard"), QDialogButtonBox::DestructiveRole);
    buttons->addButton(tr("&Later"), QDialogButtonBox::RejectRole);
    m_recover->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_discard, &QPushButton::clicked, this, &RecoveryDialog::discard);
    connect(m_list, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(m_list, &QListWidget::currentRowChanged, this, &RecoveryDialog::updateButtons);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    m_list->setFocus();
    resize(480, 280);
}

RecoveryDialog::~RecoveryDialog() = default;

std::unique_ptr<RecoveryCopy> RecoveryDialog::takeChosen()
{
    const int row = m_list->currentRow();
    if (result() != Accepted || row < 0 || row >= int(m_copies.size()))
        return nullptr;
    return std::move(m_copies.at(row));
}

void RecoveryDialog::discard()
{
    const int row = m_list->currentRow();
    if (row < 0)
        return;
    const auto answer = QMessageBox::question(this, tr("Discard"),
                                              tr("Throw the unsaved changes of %1 away?")
                                                  .arg(m_list->currentItem()->text()),
                                              QMessageBox::Discard | QMessageBox::Cancel,
                                              QMessageBox::Cancel);
    if (answer != QMessageBox::Discard)
        return;
    m_copies.at(row)->remove();
    m_copies.erase(m_copies.begin() + row);
    delete m_list->takeItem(row);
    if (m_copies.empty())
        reject();
}

void RecoveryDialog::updateButtons()
{
    const bool hasCurrent = m_list->currentRow() >= 0;
    m_recover->setEnabled(hasCurrent);
    m_discard->setEnabled(hasCurrent);
}
