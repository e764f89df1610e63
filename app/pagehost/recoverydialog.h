// SPDX-License-Identifier: MIT
// recoverydialog.h -- offers the copies of pages that a crash has left.
#ifndef PAGEHOST_RECOVERYDIALOG_H
#define PAGEHOST_RECOVERYDIALOG_H

#include <QDialog>

#include <memory>
#include <vector>

class QListWidget;
class QPushButton;
class RecoveryCopy;

/// Lists copies, of which one can be taken and others thrown away. What is done with none of them is
/// left for the next time.
class RecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    explicit RecoveryDialog(std::vector<std::unique_ptr<RecoveryCopy>> copies,
                            QWidget *parent = nullptr);
    ~RecoveryDialog() override;

    /// The copy that is to be opened; null unless the dialog was accepted, and at the second call.
    std::unique_ptr<RecoveryCopy> takeChosen();

private:
    void discard();
    void updateButtons();

    std::vector<std::unique_ptr<RecoveryCopy>> m_copies; ///< in the order of the list
    QListWidget *m_list;
    QPushButton *m_recover = nullptr;
    QPushButton *m_discard = nullptr;
};

#endif
