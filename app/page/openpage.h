// SPDX-License-Identifier: MIT
// openpage.h -- a page that a program works on: read from a file, changed, written to a file.
#ifndef APP_OPENPAGE_H
#define APP_OPENPAGE_H

#include "app/page/outputfile.h"
#include "app/page/pagefile.h"
#include "app/page/progress.h"

#include <QPointer>
#include <QStringList>

#include <memory>

class CVXRootObject;
class Document;
class Page;
class PluginLoader;
class QGraphicsObject;

/// A page with its document, and of its file what no object holds: names, unknown keys, objects of
/// unknown kinds and their places among the others. Objects may come, go and change on page() as a
/// program likes; save() writes them as they are then. GUI thread only, with a Framework alive.
class OpenPage
{
public:
    ~OpenPage();
    OpenPage(const OpenPage &) = delete;
    OpenPage &operator=(const OpenPage &) = delete;

    /// A page without objects. Null, with \a error, for a size or resolution that a page file cannot
    /// have.
    static std::unique_ptr<OpenPage> create(const QSize &size, int dpi, const QColor &background,
                                            QString &error);
    /// Reads the page file \a fileName, in JSON or binary: its content tells which. The objects are made
    /// and arranged. Null when the file cannot be read, with what and where in \a error; whatever page
    /// the program has open is as it was.
    /// \param loader is loaded, and outlives the call
    static std::unique_ptr<OpenPage> load(const PluginLoader &loader, const QString &fileName,
                                          QString &error, const Progress &progress = nullptr);
    /// The same of a file that has been read already; \a fileName is what errors call it.
    static std::unique_ptr<OpenPage> load(const PluginLoader &loader, const PageFile &file,
                                          const QString &fileName, QString &error,
                                          const Progress &progress = nullptr);

    /// Writes the page to \a fileName: JSON for the suffix .json, binary for .vxpage. An edit that is
    /// open is ended first. The file appears whole or not at all: false with \a error when it cannot be
    /// written, has another suffix, or when an object is of a kind that page files do not have; a file
    /// that was there before is as it was then.
    bool save(const QString &fileName, QString &error, FormerFile former = FormerFile::Dropped);
    /// What save() writes. Objects that have not changed since load() are written as they were read,
    /// all others as records with a picture of their look. False with \a error as save().
    bool toFile(PageFile &file, QString &error, const Progress &progress = nullptr);
    /// The same of the page as it is in this moment, in the middle of an edit too, whose text is taken
    /// as it stands, with what is being composed in it. Edit, caret, selection and composition go on.
    /// \param without is left out of \a file; null for none
    /// A text whose fonts are all there is written without a picture, which takes most of the time.
    bool snapshot(PageFile &file, QString &error, const CVXRootObject *without = nullptr);
    /// To be called of a page that snapshot() has written: the next save gives its records their pictures.
    void completePictures();

    /// Both live as long as this; the page's scene is what a view shows.
    Document *document() const { return m_document.get(); }
    Page *page() const { return m_page.get(); }
    QSize size() const { return m_file.size(); }
    QColor background() const { return m_file.background(); }
    /// What load() left out of the page, a sentence each. It is kept and written again.
    const QStringList &warnings() const { return m_warnings; }
    /// The name of \a object in the file; empty for none.
    QString nameOf(const CVXRootObject *object) const;

private:
    /// An object of the file, in the file's order.
    struct Entry {
        int source;                      ///< its number among the objects of the file
        CVXRootObject *object;           ///< null for one of an unknown kind
        QPointer<QGraphicsObject> alive; ///< null once the object has ended
        QByteArray state;                ///< when it was loaded
    };

    enum class Pictures { All, NeededHere };

    explicit OpenPage(const PageFile &file);
    bool build(const PluginLoader &loader, QString &error, const Progress &progress);
    bool gather(PageFile &file, QString &error, const CVXRootObject *without, Pictures pictures,
                const Progress &progress) const;
    const Entry *entryOf(const CVXRootObject *object) const;
    QMap<const CVXRootObject *, QVector<PageObject>> unknownByPlace() const;
    bool describe(CVXRootObject *object, Pictures pictures, PageObject &description,
                  QString &error) const;
    QMap<QString, QByteArray> imagesFor(const QVector<PageObject> &objects) const;

    PageFile m_file; ///< as it was read
    QStringList m_warnings;
    QVector<Entry> m_entries;
    std::unique_ptr<Document> m_document; // outlives the page
    std::unique_ptr<Page> m_page;
};

#endif
