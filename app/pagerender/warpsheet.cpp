// SPDX-License-Identifier: MIT
#include "app/pagerender/warpsheet.h"

#include "app/page/textobject.h"
#include "app/page/textwarp.h"
#include "app/pagerender/contactsheet.h"

namespace {

constexpr double sheetValue = 0.5; // of the styles, in both directions
constexpr int columns = 8;         // two styles a row

QString argumentOf(const TextWarp &warp)
{
    return QStringLiteral("%1:%2%3")
        .arg(warpStyleNames().at(warp.style - 1))
        .arg(warp.value)
        .arg(warp.acrossColumns ? QStringLiteral(":vertical") : QString());
}

/// All warps of the sheet, row by row.
QVector<TextWarp> sheetWarps()
{
    QVector<TextWarp> warps;
    for (int style = 1; style <= warpStyleNames().size(); ++style) {
        for (bool acrossColumns : {false, true}) {
            for (double value : {sheetValue, -sheetValue})
                warps.append({style, value, 0, 0, acrossColumns});
        }
    }
    return warps;
}

} // namespace

QImage warpSheet(CVXRootObject *object, Page *page, const PageRenderer::Options &options,
                 QString &error)
{
    QVector<SheetCell> cells;
    for (const TextWarp &warp : sheetWarps()) {
        TextObject::setWarp(object, warp);
        PageRenderer renderer(page, options);
        const QByteArray png = renderer.render(PageRenderer::Format::Png);
        if (png.isEmpty()) {
            error = renderer.errorString();
            return {};
        }
        cells.append({argumentOf(warp), QImage::fromData(png)});
    }
    QImage sheet = contactSheet(cells, columns, options.background);
    if (sheet.isNull())
        error = QStringLiteral("the sheet would be too large");
    return sheet;
}
