// SPDX-License-Identifier: MIT
// pagebuilder.h -- makes the objects of a page file on a page.
#ifndef APP_PAGEBUILDER_H
#define APP_PAGEBUILDER_H

#include "app/page/pagefile.h"
#include "app/page/progress.h"

#include <QStringList>

class CVXRootObject;
class Document;
class Page;
class PluginLoader;

/// Builds in two steps, so that a program can change attributes and fonts in between: load() makes the
/// objects, arrange() gives them their final places.
class PageBuilder
{
public:
    /// All outlive the builder; \a page belongs to \a document, and \a loader is loaded.
    PageBuilder(const PluginLoader *loader, Document *document, Page *page);

    /// Puts the images of \a file into the document and its objects on the page. False with
    /// errorString() when an image or an object cannot be made.
    bool load(const PageFile &file, const Progress &progress = nullptr);
    /// Places, turns and stretches what was loaded. An object that shows its picture stays where that
    /// is. To be called once.
    void arrange();

    QString errorString() const { return m_error; }
    /// What was left out, a sentence each.
    const QStringList &warnings() const { return m_warnings; }
    /// The objects in the order of the file; null for one that was left out.
    QVector<CVXRootObject *> objects() const;
    /// The object that is called \a name, or the one of that number, from 0; null for none, and for
    /// one that was left out.
    CVXRootObject *object(const QString &name) const;

private:
    struct Made {
        PageObject description;
        CVXRootObject *object; ///< null when left out
    };

    bool loadImages(const PageFile &file);
    bool loadObject(const PageObject &description);
    bool loadWritten(CVXRootObject *object, const PageObject &description) const;
    static void arrange(const Made &made);

    const PluginLoader *m_loader;
    Document *m_document;
    Page *m_page;
    QVector<Made> m_made;
    QString m_error;
    QStringList m_warnings;
};

#endif
