// SPDX-License-Identifier: MIT
// filedialoguser.h -- a user of the dialogs that ask for a file.
#ifndef FILEDIALOGUSER_H
#define FILEDIALOGUSER_H

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

/// Accepts the next file dialog with \a name, empty for the one that it offers, and \a filter, empty for
/// the first.
inline void acceptFileDialog(const QString &name, const QString &filter = QString())
{
    QTimer::singleShot(0, [=] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog) { // it comes in a later turn
            acceptFileDialog(name, filter);
            return;
        }
        if (!filter.isEmpty())
            dialog->selectNameFilter(filter);
        if (!name.isEmpty())
            dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(name);
        static_cast<QDialog *>(dialog)->accept(); // as its button does
    });
}

/// Presses \a button of the next message box, whose words go to \a text.
inline void answerMessage(QMessageBox::StandardButton button, QString *text = nullptr)
{
    QTimer::singleShot(0, [=] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box) { // it comes in a later turn
            answerMessage(button, text);
            return;
        }
        if (text)
            *text = box->text() + QLatin1Char('\n') + box->informativeText();
        box->button(button)->click();
    });
}

#endif
