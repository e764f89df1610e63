// SPDX-License-Identifier: MIT
#include "app/pagerender/contactsheet.h"

#include "app/page/pagerenderer.h"

#include <QBuffer>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>

namespace {

constexpr int labelPixelSize = 14;

QFont labelFont()
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(labelPixelSize);
    return font;
}

/// The place of a cell: a picture above a label.
struct Place {
    QSize picture;
    int labelHeight;

    QSize size() const { return {picture.width(), picture.height() + sheetGap + labelHeight}; }
};

Place placeFor(const QVector<SheetCell> &cells, const QFontMetrics &metrics)
{
    QSize largest(1, 1);
    for (const SheetCell &cell : cells) {
        largest = largest.expandedTo(cell.picture.size());
        largest = largest.expandedTo(QSize(metrics.horizontalAdvance(cell.label), 1));
    }
    return {largest, metrics.height()};
}

/// The size of a sheet; an empty one when that is too large.
QSize sheetSize(const Place &place, int columns, int rows)
{
    const qint64 width = sheetGap + qint64(columns) * (place.size().width() + sheetGap);
    const qint64 height = sheetGap + qint64(rows) * (place.size().height() + sheetGap);
    if (width > PageRenderer::maximumSide || height > PageRenderer::maximumSide
        || width * height > PageRenderer::maximumPixels)
        return {};
    return {int(width), int(height)};
}

void paintCell(QPainter &painter, const SheetCell &cell, const QPoint &corner, const Place &place)
{
    const QRect pictureRect(corner, place.picture);
    QRect picture(QPoint(0, 0), cell.picture.size());
    picture.moveCenter(pictureRect.center());
    painter.drawImage(picture.topLeft(), cell.picture);
    const QRect label(corner.x(), pictureRect.bottom() + 1 + sheetGap, place.picture.width(),
                      place.labelHeight);
    painter.drawText(label, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, cell.label);
}

} // namespace

QImage contactSheet(const QVector<SheetCell> &cells, int columns, const QColor &background)
{
    const QFont font = labelFont();
    const Place place = placeFor(cells, QFontMetrics(font));
    const int rows = (cells.size() + columns - 1) / columns;
    QImage sheet(sheetSize(place, columns, rows), QImage::Format_ARGB32_Premultiplied);
    if (cells.isEmpty() || sheet.isNull())
        return {};
    sheet.fill(background);
    QPainter painter(&sheet);
    painter.setFont(font);
    const bool isLight = background.alpha() < 128 || background.lightness() > 127;
    painter.setPen(isLight ? QColor(80, 80, 80) : QColor(210, 210, 210));
    for (int i = 0; i < cells.size(); ++i) {
        const QPoint corner(sheetGap + i % columns * (place.size().width() + sheetGap),
                            sheetGap + i / columns * (place.size().height() + sheetGap));
        paintCell(painter, cells.at(i), corner, place);
    }
    return sheet;
}

QByteArray sheetBytes(const QImage &sheet)
{
    QBuffer buffer;
    sheet.save(&buffer, "PNG");
    return buffer.data();
}
