// SPDX-License-Identifier: MIT
// savename.h -- names of files that a dialog has given.
#ifndef PAGEHOST_SAVENAME_H
#define PAGEHOST_SAVENAME_H

#include <QString>
#include <QStringList>

class QWidget;

/// Gives \a fileName the first of \a suffixes, which are like "png", unless it ends in one of them; letter
/// case does not count. The dialog has asked about the file of the name that it knew: this asks about one of
/// the longer name. False when that is to stay.
/// \param title of the question
bool completeSaveName(QString &fileName, const QStringList &suffixes, const QString &title,
                      QWidget *window);

#endif
