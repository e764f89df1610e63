// SPDX-License-Identifier: MIT
#include "app/pagehost/recentfiles.h"

#include "app/pagehost/settings.h"

#include <QFileInfo>

namespace {

const QString filesKey = QStringLiteral("recent/files");

QStringList without(QStringList files, const QString &fileName)
{
    files.removeAll(QFileInfo(fileName).absoluteFilePath());
    return files;
}

void store(const QStringList &files)
{
    Settings().setValue(filesKey, QStringList(files.mid(0, RecentFiles::most)));
}

} // namespace

QStringList RecentFiles::list()
{
    return Settings().value(filesKey).toStringList().mid(0, most);
}

void RecentFiles::add(const QString &fileName)
{
    store(QStringList(QFileInfo(fileName).absoluteFilePath()) + without(list(), fileName));
}

void RecentFiles::remove(const QString &fileName)
{
    store(without(list(), fileName));
}

void RecentFiles::clear()
{
    store({});
}
