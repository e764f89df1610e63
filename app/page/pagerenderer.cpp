// SPDX-License-Identifier: MIT
#include "app/page/pagerenderer.h"

#include "app/page/page.h"
#include "app/page/paintbounds.h"
#include "host/framework/cvxrootobject.h"

#include <QBuffer>
#include <QFileInfo>
#include <QGraphicsItem>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <QtMath>

#include <cmath>

namespace {

constexpr double inchesPerMetre = 1000.0 / 25.4;
constexpr double pointsPerInch = 72.0;
const QLatin1String creator("pagerender");

bool isFinite(const QRectF &rect)
{
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width())
           && std::isfinite(rect.height());
}

} // namespace

PageRenderer::PageRenderer(Page *page, const Options &options)
    : m_page(page)
    , m_options(options)
{
}

bool PageRenderer::formatOf(const QString &fileName, Format &format)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("png"))
        format = Format::Png;
    else if (suffix == QLatin1String("svg"))
        format = Format::Svg;
    else if (suffix == QLatin1String("pdf"))
        format = Format::Pdf;
    else
        return false;
    return true;
}

QByteArray PageRenderer::render(Format format)
{
    m_error.clear();
    if (!measure() || !checkSize(format))
        return {};
    switch (format) {
    case Format::Png:
        return renderPng();
    case Format::Svg:
        return renderSvg();
    case Format::Pdf:
        return renderPdf();
    }
    return {};
}

bool PageRenderer::renderToFile(Format format, const QString &fileName)
{
    const QByteArray bytes = render(format);
    if (bytes.isEmpty())
        return false;
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return fail(QStringLiteral("cannot write '%1': %2").arg(fileName, file.errorString()));
    return true;
}

bool PageRenderer::fail(const QString &error)
{
    m_error = error;
    return false;
}

/// Finds the shown part of the page: whole pixels around the ink, so that the page's pixel grid is
/// also the picture's.
bool PageRenderer::measure()
{
    if (!m_options.page.isEmpty()) {
        m_area = QRect(QPoint(0, 0), m_options.page);
        return true;
    }
    PaintBounds bounds(m_options.dpi);
    QPainter painter(&bounds);
    paintObjects(painter);
    painter.end();
    const QRectF ink = bounds.ink();
    if (isFinite(ink) && ink.isEmpty())
        return fail(QStringLiteral("the page is empty"));
    const double margin = m_options.margin;
    const QRectF area = ink.adjusted(-margin, -margin, margin, margin);
    if (!isFinite(area) || area.width() > maximumSide || area.height() > maximumSide) {
        return fail(QStringLiteral("the page would be %1 x %2 pixels large, above %3 a side")
                        .arg(area.width(), 0, 'f', 0)
                        .arg(area.height(), 0, 'f', 0)
                        .arg(maximumSide));
    }
    // Objects are placed near the origin; what lies out of whole numbers' reach is not drawn right.
    if (std::abs(area.x()) > 1e8 || std::abs(area.y()) > 1e8)
        return fail(QStringLiteral("the page lies too far from its origin"));
    m_area = area.toAlignedRect();
    return true;
}

QSize PageRenderer::pictureSize() const
{
    return {qCeil(m_area.width() * m_options.scale), qCeil(m_area.height() * m_options.scale)};
}

bool PageRenderer::checkSize(Format format)
{
    const double scale = format == Format::Png ? m_options.scale : 1.0;
    const double width = std::ceil(m_area.width() * scale);
    const double height = std::ceil(m_area.height() * scale);
    if (width > maximumSide || height > maximumSide) {
        return fail(QStringLiteral("the picture would be %1 x %2 pixels large, above %3 a side")
                        .arg(width, 0, 'f', 0)
                        .arg(height, 0, 'f', 0)
                        .arg(maximumSide));
    }
    if (format == Format::Png && width * height > double(maximumPixels)) {
        return fail(QStringLiteral("the picture would have %1 x %2 pixels, above %3 in all")
                        .arg(width, 0, 'f', 0)
                        .arg(height, 0, 'f', 0)
                        .arg(maximumPixels));
    }
    return true;
}

void PageRenderer::paintObjects(QPainter &painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (CVXRootObject *object : m_page->objects()) {
        if (!object->isVisible())
            continue;
        painter.save();
        painter.setTransform(object->GetGraphicsItemPtr()->sceneTransform(), true);
        object->paintContent(&painter);
        object->drawDelegate()->paintInvertArea(&painter);
        painter.restore();
    }
    if (m_options.foreground)
        paintForeground(painter);
}

void PageRenderer::paintForeground(QPainter &painter) const
{
    for (CVXRootObject *object : m_page->objects()) {
        if (!object->isVisible())
            continue;
        painter.save();
        object->paintHandlersInScene(object->GetGraphicsItemPtr(), &painter);
        object->drawForeground(&painter, QRectF(m_area));
        painter.restore();
    }
}

void PageRenderer::paintPage(QPainter &painter) const
{
    if (m_options.background.alpha() > 0)
        painter.fillRect(QRect(QPoint(0, 0), m_area.size()), m_options.background);
    painter.translate(-m_area.topLeft());
    paintObjects(painter);
}

QByteArray PageRenderer::renderPng()
{
    QImage image(pictureSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        fail(QStringLiteral("not enough memory for the picture"));
        return {};
    }
    image.fill(m_options.background.alpha() > 0 ? m_options.background : QColor(Qt::transparent));
    const int dotsPerMetre = qRound(m_options.dpi * m_options.scale * inchesPerMetre);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    QPainter painter(&image);
    painter.scale(m_options.scale, m_options.scale);
    painter.translate(-m_area.topLeft());
    paintObjects(painter);
    painter.end();

    QBuffer buffer;
    QImageWriter writer(&buffer, QByteArrayLiteral("png"));
    if (!writer.write(image)) {
        fail(QStringLiteral("cannot write the picture: %1").arg(writer.errorString()));
        return {};
    }
    return buffer.data();
}

QByteArray PageRenderer::renderSvg()
{
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(m_options.dpi);
    generator.setSize(m_area.size());
    generator.setViewBox(QRect(QPoint(0, 0), m_area.size()));
    generator.setTitle(creator);
    QPainter painter;
    if (!painter.begin(&generator)) {
        fail(QStringLiteral("cannot make the SVG"));
        return {};
    }
    paintPage(painter);
    painter.end();
    return buffer.data();
}

QByteArray PageRenderer::renderPdf()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setCreator(creator);
    writer.setResolution(m_options.dpi);
    // PDF pages are whole points here; rounded up, so that no ink is cut off.
    const double pointsPerPixel = pointsPerInch / m_options.dpi;
    const QSizeF points(std::ceil(m_area.width() * pointsPerPixel),
                        std::ceil(m_area.height() * pointsPerPixel));
    writer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer)) {
        fail(QStringLiteral("cannot make the PDF"));
        return {};
    }
    if (m_options.background.alpha() > 0)
        painter.fillRect(QRect(0, 0, writer.width(), writer.height()), m_options.background);
    paintPage(painter);
    painter.end();
    return buffer.data();
}
