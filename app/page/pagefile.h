// SPDX-License-Identifier: MIT
// pagefile.h -- the content of page files; docs/page-file.md describes them.
#ifndef APP_PAGEFILE_H
#define APP_PAGEFILE_H

#include <QColor>
#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QPointF>
#include <QSize>
#include <QSizeF>
#include <QString>
#include <QVector>

/// An object of a page file. What the program does not know stands in source and is written again.
struct PageObject {
    enum class Form {
        Written, ///< text with attributes and a place, written by a person
        Record,  ///< the record that the object itself wrote
        Unknown, ///< of a kind that the program does not know
    };
    enum class Layout { Line, Box, GrowingBox };

    Form form = Form::Unknown;
    QString kind;
    QString name; ///< may be empty
    QJsonObject source;

    QJsonObject record; ///< form Record

    /// True for the keys that the attributes of form Written know.
    static bool isWrittenAttribute(const QString &key);

    // Form Written
    QString text;
    QJsonObject runAttributes;       ///< checked; alignments are numbers
    QJsonObject paragraphAttributes; ///< likewise
    Layout layout = Layout::Line;
    bool vertical = false;
    QPointF pos;         ///< top left of the unturned object, page pixels
    QSizeF size;         ///< of the box; line text is stretched to it; empty for line text as it is
    double rotation = 0; ///< degrees clockwise about the middle
    bool flip = false;
    bool mirror = false;
    QString picture;    ///< name of the image that stands for the text while a font is missing
    QPointF picturePos; ///< page pixels
};

/// The content of a page file.
class PageFile
{
public:
    static constexpr int version = 1;
    /// Sides of a page, in its pixels.
    static constexpr int maximumSide = 32767;
    /// Places and sizes of objects beyond this are refused.
    static constexpr double farthest = 1e6;

    /// The kind of rich text objects.
    static QString richTextKind();
    /// The kind of art text objects. They have no form by hand, only a record.
    static QString artTextKind();
    /// True when \a root is meant to be a page file, be it right or not.
    static bool isPageFile(const QJsonObject &root);

    /// Reads a page. False when anything in it is wrong, with where and what in \a error; the page is
    /// as it was then. Objects of unknown kinds and unknown keys are kept.
    bool read(const QJsonObject &root, QString &error);
    /// The same of a page whose images stand beside \a root.
    bool read(const QJsonObject &root, const QMap<QString, QByteArray> &images, QString &error);
    /// The page as it is written to a file: reading it again gives an equal page.
    QJsonObject toJson() const;
    /// toJson() without objects and images; where a list of them is empty, it may stand there.
    QJsonObject sheet() const;
    /// Exchanges the objects, of which only source counts for what is written, and the images.
    void setContent(const QVector<PageObject> &objects, const QMap<QString, QByteArray> &images);

    QSize size() const { return m_size; }
    int dpi() const { return m_dpi; }
    QColor background() const { return m_background; }
    const QVector<PageObject> &objects() const { return m_objects; }
    /// What should be PNG bytes, by name.
    const QMap<QString, QByteArray> &images() const { return m_images; }

private:
    bool readPage(const QJsonObject &page, QString &error);
    bool readObjects(const QJsonArray &list, QString &error);

    QJsonObject m_source; ///< as sheet()
    QSize m_size;
    int m_dpi = 96;
    QColor m_background = Qt::white;
    QVector<PageObject> m_objects;
    QMap<QString, QByteArray> m_images;
};

#endif
