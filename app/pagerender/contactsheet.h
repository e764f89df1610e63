// SPDX-License-Identifier: MIT
// contactsheet.h -- a grid of labelled pictures.
#ifndef PAGERENDER_CONTACTSHEET_H
#define PAGERENDER_CONTACTSHEET_H

#include <QColor>
#include <QImage>
#include <QString>
#include <QVector>

/// One picture of a sheet and the line of words below it.
struct SheetCell {
    QString label;
    QImage picture; ///< a null one leaves its place empty
};

/// Pixels of the sheet between its cells, at its edge, and between a picture and its label.
constexpr int sheetGap = 12;

/// The cells row by row, \a columns a row, in places of the size of the largest picture (or label),
/// each picture in the middle of its place and never scaled. The font of the labels is the
/// application's.
/// \param columns     at least 1
/// \param background  of the whole sheet; labels are dark on a light one and light on a dark one
/// \return a null image when there are no cells, or when the sheet has more than
///         PageRenderer::maximumSide pixels a side or PageRenderer::maximumPixels in all
QImage contactSheet(const QVector<SheetCell> &cells, int columns, const QColor &background);

/// \a sheet as the bytes of a PNG.
QByteArray sheetBytes(const QImage &sheet);

#endif
