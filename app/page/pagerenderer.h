// SPDX-License-Identifier: MIT
// pagerenderer.h -- turns a page into PNG, SVG or PDF.
#ifndef APP_PAGERENDERER_H
#define APP_PAGERENDERER_H

#include "app/page/picture.h"

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

class CVXRootObject;
class Page;
class QPainter;

/// Renders what the objects of a page paint: their content, with a selection inverted, and, when
/// told so, what they show above all objects: handles, frames and the caret. The picture is a page
/// of a told size, or the ink with a margin around it; a page pixel is 1/dpi inch.
class PageRenderer
{
public:
    enum class Format { Png, Svg, Pdf };

    struct Options {
        int dpi = 96;                  ///< resolution of the page
        double scale = 1.0;            ///< PNG only: pixels of the picture for one of the page
        double margin = 20.0;          ///< page pixels on each side
        QColor background = Qt::white; ///< fully transparent for none
        QSize page;              ///< what is shown, from (0, 0); empty: the ink and its margin
        bool foreground = false; ///< handles, frames, caret and hints too
        bool hints = false;      ///< of the foreground what is said about missing fonts
        QList<CVXRootObject *> objects; ///< of the page what is shown; empty: all
        PictureMetadata metadata;
        LongWork *work = plainWork(); ///< has a step ahead of each object
    };

    /// Sides in pixels above which no picture is made.
    static constexpr int maximumSide = 32767;
    /// A PNG with more pixels than this is not made: it would take over a gigabyte.
    static constexpr qint64 maximumPixels = qint64(1) << 28;

    /// \param page outlives the renderer
    PageRenderer(Page *page, const Options &options);

    /// The format that the suffix of \a fileName names; letter case does not count.
    static bool formatOf(const QString &fileName, Format &format);
    /// The suffix of files of \a format: "png".
    static QString suffixOf(Format format);

    /// Renders the page. An empty array, with errorString(), when the page is empty or too large; with an
    /// empty errorString() when it is not wanted any more.
    QByteArray render(Format format);
    /// True when render() has something to show that is not too large; else with errorString().
    bool check(Format format);
    /// Paints the page with its background, in page pixels, the upper left corner at the origin of
    /// \a painter. False, with errorString(), when the page is empty, and without when it is not wanted
    /// any more: what is painted then is a part.
    bool paint(QPainter &painter);
    /// Of the last picture that render() made or check() approved: pixels of a PNG, page pixels else.
    QSize pictureSize() const { return m_size; }
    /// Renders the page into the file \a fileName. On any failure false, with errorString(), and a
    /// file that was there before is as it was.
    bool renderToFile(Format format, const QString &fileName);
    QString errorString() const { return m_error; }

private:
    bool measure();
    bool checkSize(Format format);
    bool fail(const QString &error);
    QByteArray made(Format format);
    bool isStillWanted(int done, int total);
    void paintObjects(QPainter &painter);
    void paintForeground(QPainter &painter) const;
    QList<CVXRootObject *> shownObjects() const;
    Picture picture();

    Page *m_page;
    Options m_options;
    QRect m_area; ///< the part of the page that is shown, in page pixels
    QSize m_size;
    bool m_isGivenUp = false;
    QString m_error;
};

#endif
