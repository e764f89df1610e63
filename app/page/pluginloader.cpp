// SPDX-License-Identifier: MIT
#include "app/page/pluginloader.h"

#include "app/page/pagetext.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>

namespace {

constexpr int pluginVersion = 1;

QString pluginFileName()
{
    return QStringLiteral("libvxarttext.so.%1").arg(pluginVersion);
}

} // namespace

bool PluginLoader::load(const QString &path)
{
    if (isLoaded())
        return true;
    if (!path.isEmpty())
        return loadFile(path);
    const QStringList folders = foldersBesideProgram();
    for (const QString &folder : folders) {
        const QString candidate = QDir(folder).filePath(pluginFileName());
        if (QFileInfo::exists(candidate))
            return loadFile(candidate);
    }
    return loadByName();
}

QStringList PluginLoader::foldersBesideProgram()
{
    const QDir program(QCoreApplication::applicationDirPath());
    return {QDir::cleanPath(program.filePath(QStringLiteral("../lib"))),
            QDir::cleanPath(program.filePath(QStringLiteral(VX_BIN_TO_LIB)))};
}

bool PluginLoader::loadFile(const QString &path)
{
    // A bare name would be searched for by the system: what was named is a file.
    QLibrary library(QFileInfo(path).absoluteFilePath());
    return resolveFactories(library);
}

bool PluginLoader::loadByName()
{
    QLibrary library(QStringLiteral("vxarttext"), pluginVersion);
    return resolveFactories(library);
}

bool PluginLoader::resolveFactories(QLibrary &library)
{
    if (!library.load()) {
        m_error = library.errorString();
        return false;
    }
    const auto text = reinterpret_cast<Factory>(library.resolve("createObject_text"));
    const auto artText = reinterpret_cast<Factory>(library.resolve("createObject_arttext"));
    if (!text || !artText) {
        m_error = PageText::tr("%1 is no library of text objects").arg(library.fileName());
        return false;
    }
    m_text = text;
    m_artText = artText;
    m_error.clear();
    return true;
}

CVXRootObject *PluginLoader::createText(int id, IVxPage *page, bool finished) const
{
    return m_text ? m_text(0, id, finished, page) : nullptr;
}

CVXRootObject *PluginLoader::createArtText(int id, IVxPage *page, bool finished) const
{
    return m_artText ? m_artText(0, id, finished, page) : nullptr;
}
