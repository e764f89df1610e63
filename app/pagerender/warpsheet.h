// SPDX-License-Identifier: MIT
// warpsheet.h -- all warp styles of a text, on one sheet.
#ifndef PAGERENDER_WARPSHEET_H
#define PAGERENDER_WARPSHEET_H

#include "app/page/pagerenderer.h"

#include <QImage>

class CVXRootObject;
class Page;

/// Page pixels around each text of the sheet when nothing else is told.
constexpr double warpSheetMargin = 4;

/// A sheet of the styles, two a row, each with both signs and then with both across columns,
/// labelled with the argument of --warp that makes it. \a object, the only one on \a page, keeps
/// the last warp.
/// \return a null image, with a sentence in \a error, when there is nothing to see or too much
QImage warpSheet(CVXRootObject *object, Page *page, const PageRenderer::Options &options,
                 QString &error);

#endif
