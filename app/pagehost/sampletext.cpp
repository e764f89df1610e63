// SPDX-License-Identifier: MIT
#include "app/pagehost/sampletext.h"

#include "app/page/artobject.h"
#include "app/page/document.h"
#include "app/page/page.h"
#include "app/page/paintbounds.h"
#include "app/page/pluginloader.h"
#include "app/page/textobject.h"
#include "app/page/textrecord.h"
#include "app/page/textwarp.h"
#include "host/framework/cvxrootobject.h"
#include "host/framework/idocumenthost.h"

#include <QPainter>
#include <QPixmap>

namespace {

constexpr double pointSize = 40;   // of the words; the picture is made smaller
constexpr double sampleBend = 0.5; // that shows each style well
constexpr double artWidth = 240;   // page pixels
constexpr double artHeight = 120;
constexpr int margin = 3; // around the words, pixels

/// Where \a object shows something, in its own coordinates: warped words reach out of it.
QRectF inkOf(CVXRootObject *object)
{
    PaintBounds bounds(object->getDocument()->getDpi());
    QPainter painter(&bounds);
    object->OnQPainterDraw(&painter);
    painter.end();
    return bounds.ink();
}

/// The object in the middle of a picture of \a size, as large as it fits.
QPixmap pictureOf(CVXRootObject *object, const QSize &size, double pixelRatio)
{
    QPixmap picture(size * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    const QRectF ink = inkOf(object);
    if (ink.isEmpty())
        return picture;
    const QSizeF room = size - QSize(2, 2) * margin;
    const double scale = qMin(room.width() / ink.width(), room.height() / ink.height());
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(QPointF(0, 0), size).center());
    painter.scale(scale, scale);
    painter.translate(-ink.center());
    object->OnQPainterDraw(&painter);
    return picture;
}

} // namespace

QPixmap warpSample(const PluginLoader *loader, const SampleText &text, int style,
                   bool acrossColumns, const QSize &size)
{
    Document document;
    Page page(&document);
    CVXRootObject *object = loader->createText(0, &page);
    if (!object)
        return {};
    page.addObject(object);
    const QString string = documentString(text.words,
                                          {text.family, pointSize, text.color.name(), false});
    loadDocumentString(object, string, inspectDocumentString(string));
    TextWarp warp;
    warp.style = style;
    warp.value = sampleBend;
    warp.acrossColumns = acrossColumns;
    TextObject::setWarp(object, warp);
    return pictureOf(object, size, text.pixelRatio);
}

QPixmap artSample(const PluginLoader *loader, const SampleText &text, int style, const QSize &size)
{
    Document document;
    Page page(&document);
    CVXRootObject *object = loader->createArtText(0, &page);
    if (!object)
        return {};
    page.addObject(object);
    ArtObject::Look look;
    look.style = style;
    look.family = text.family;
    look.fill = text.color;
    ArtObject::setUp(object, text.words, look, QSizeF(artWidth, artHeight));
    return pictureOf(object, size, text.pixelRatio);
}
