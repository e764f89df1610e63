// SPDX-License-Identifier: MIT
#include "app/pagehost/savename.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMessageBox>

namespace {

struct SaveNameText {
    Q_DECLARE_TR_FUNCTIONS(SaveName)
};

} // namespace

bool completeSaveName(QString &fileName, const QStringList &suffixes, const QString &title,
                      QWidget *window)
{
    if (suffixes.contains(QFileInfo(fileName).suffix(), Qt::CaseInsensitive))
        return true;
    fileName += QLatin1Char('.') + suffixes.constFirst();
    const QFileInfo file(fileName);
    return !file.exists()
           || QMessageBox::warning(window, title,
                                   SaveNameText::tr("%1 exists already. Replace it?")
                                       .arg(file.fileName()),
                                   QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Cancel)
                  == QMessageBox::Save;
}
