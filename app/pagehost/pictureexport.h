// SPDX-License-Identifier: MIT
// pictureexport.h -- the page and its objects as pictures: for files, the clipboard and paper.
#ifndef PAGEHOST_PICTUREEXPORT_H
#define PAGEHOST_PICTUREEXPORT_H

#include "app/page/pagerenderer.h"

#include <memory>

class LongWork;
class PageSession;
class QMimeData;
class QPainter;
class QPicture;
class QPrinter;

/// Pictures show what the screen does, without handles, frames and caret; texts are outlines in them.
/// An open edit goes on afterwards with its caret where it was. Each function fails with an empty error
/// when its work is not wanted any more: nothing is written, copied or printed then.
namespace PictureExport {

/// Writes the whole page to \a fileName, with its text as title and description. A file that was there
/// before stays as it was when that fails: false, with \a error.
/// \param scale PNG only: pixels for one of the page
bool write(PageSession &session, PageRenderer::Format format, const QString &fileName, double scale,
           QString &error, LongWork &work);
/// The selected objects alone, without background, for the clipboard: PNG, SVG and a plain image. Null
/// with \a error when they show nothing or too much.
std::unique_ptr<QMimeData> selectionPicture(PageSession &session, QString &error, LongWork &work);
/// Prints the page on the first sheet in its true size; one that is larger than the paper is made
/// smaller. False, with \a error, when the printer does not begin. A file in place of paper is written
/// whole or not at all.
bool print(PageSession &session, QPrinter &printer, QString &error, LongWork &work);
/// Paints what \a picture holds in the pixels in which it was painted there: by itself it would keep its
/// inches where \a painter has another resolution. For any thread.
bool play(QPicture &picture, QPainter &painter);

} // namespace PictureExport

#endif
