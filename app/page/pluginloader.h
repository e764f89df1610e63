// SPDX-License-Identifier: MIT
// pluginloader.h -- finds the library of text objects and makes objects with its factories.
#ifndef APP_PLUGINLOADER_H
#define APP_PLUGINLOADER_H

#include <QString>
#include <QStringList>

class CVXRootObject;
class IVxPage;
class QLibrary;

/// The one place that knows the library by name. What comes out of it are objects of the host's
/// classes; nothing of the library's own headers is used. The library stays loaded to the end of
/// the program, since objects may outlive their maker.
class PluginLoader
{
public:
    /// Loads the library from \a path, or, without one, from the folder of libraries beside the
    /// program's and then by the system's search. False with errorString() when no library is found
    /// or it lacks a factory.
    bool load(const QString &path = QString());
    bool isLoaded() const { return m_text && m_artText; }
    QString errorString() const { return m_error; }

    /// A new object; null unless loaded. The caller owns it and ends it with
    /// CVXRootObject::Release(), or gives it to a Page.
    /// \param finished false for an object that the user is about to draw
    CVXRootObject *createText(int id, IVxPage *page, bool finished = true) const;
    CVXRootObject *createArtText(int id, IVxPage *page, bool finished = true) const;

private:
    using Factory = CVXRootObject *(*)(int kind, int id, bool finished, IVxPage *page);

    bool loadFile(const QString &path);
    bool loadByName();
    bool resolveFactories(QLibrary &library);
    static QStringList foldersBesideProgram();

    Factory m_text = nullptr;
    Factory m_artText = nullptr;
    QString m_error;
};

#endif
