// SPDX-License-Identifier: MIT
// picture.h -- picture files of what a painter draws: PNG, SVG and PDF.
#ifndef APP_PICTURE_H
#define APP_PICTURE_H

#include "app/page/longwork.h"

#include <QByteArray>
#include <QColor>
#include <QDateTime>
#include <QSize>
#include <QString>

#include <functional>

class QPainter;

/// What a picture file tells of itself beside the picture. The text stands there in plain form, for
/// those who search or listen; the picture has its outlines only.
struct PictureMetadata {
    QString title;   ///< one line; empty for none
    QString text;    ///< all that the picture says; empty for none
    QString creator; ///< the program; empty for none
    QDateTime date;  ///< when it was made; invalid for none, so that equal pictures are equal files
};

/// The first line of \a text that shows something, without spaces at its ends and cut to a length that
/// a title can have.
QString titleOf(const QString &text);
/// \a text as XML can hold it: escaped, and without the control characters that XML forbids.
QString xmlText(const QString &text);
/// \a date as XML metadata write it, in UTC; empty when it is invalid.
QString isoDate(const QDateTime &date);

/// A picture to be written.
struct Picture {
    QSize size;         ///< page pixels
    int dpi = 96;       ///< page pixels an inch
    double scale = 1.0; ///< PNG only: pixels of the picture for one of the page
    QColor background;  ///< fully transparent for none
    PictureMetadata metadata;
    std::function<void(QPainter &)>
        paint;                    ///< paints in page pixels, from (0, 0); may be called again
    LongWork *work = plainWork(); ///< does aside what comes behind the painting
};

/// Pixels of the PNG of \a picture.
QSize pngSize(const Picture &picture);

/// Each writes the same picture to the same bytes every time. Empty, with a sentence in \a error, when
/// that cannot be; may be empty without one when it is not wanted any more.
QByteArray pngPicture(const Picture &picture, QString &error);
/// A text is an element of its own behind the title: "desc".
QByteArray svgPicture(const Picture &picture, QString &error);
/// The page has whole points, rounded up.
QByteArray pdfPicture(const Picture &picture, QString &error);

#endif
