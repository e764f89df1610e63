// SPDX-License-Identifier: MIT
#include "app/page/pagerenderer.h"

#include "app/page/page.h"
#include "app/page/paintbounds.h"
#include "host/framework/cvxrootobject.h"

#include <QFileInfo>
#include <QGraphicsItem>
#include <QPainter>
#include <QSaveFile>

#include <cmath>

namespace {

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
    for (Format candidate : {Format::Png, Format::Svg, Format::Pdf}) {
        if (suffix == suffixOf(candidate)) {
            format = candidate;
            return true;
        }
    }
    return false;
}

QString PageRenderer::suffixOf(Format format)
{
    switch (format) {
    case Format::Png:
        return QStringLiteral("png");
    case Format::Svg:
        return QStringLiteral("svg");
    case Format::Pdf:
        return QStringLiteral("pdf");
    }
    return {};
}

bool PageRenderer::check(Format format)
{
    m_error.clear();
    m_isGivenUp = false;
    return measure() && checkSize(format);
}

QByteArray PageRenderer::render(Format format)
{
    if (!check(format))
        return {};
    const QByteArray bytes = made(format);
    return m_isGivenUp || !m_options.work->isWanted() ? QByteArray() : bytes;
}

QByteArray PageRenderer::made(Format format)
{
    switch (format) {
    case Format::Png:
        return pngPicture(picture(), m_error);
    case Format::Svg:
        return svgPicture(picture(), m_error);
    case Format::Pdf:
        return pdfPicture(picture(), m_error);
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

bool PageRenderer::paint(QPainter &painter)
{
    m_error.clear();
    m_isGivenUp = false;
    if (!measure())
        return false;
    painter.save();
    if (m_options.background.alpha() > 0)
        painter.fillRect(QRect(QPoint(0, 0), m_area.size()), m_options.background);
    painter.translate(-m_area.topLeft());
    paintObjects(painter);
    painter.restore();
    return !m_isGivenUp;
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
    if (m_isGivenUp)
        return false;
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

Picture PageRenderer::picture()
{
    Picture picture;
    picture.size = m_area.size();
    picture.dpi = m_options.dpi;
    picture.scale = m_options.scale;
    picture.background = m_options.background;
    picture.metadata = m_options.metadata;
    picture.work = m_options.work;
    picture.paint = [this](QPainter &painter) {
        painter.translate(-m_area.topLeft());
        paintObjects(painter);
    };
    return picture;
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
    m_size = format == Format::Png ? pngSize(picture()) : m_area.size();
    return true;
}

/// The lowest first.
QList<CVXRootObject *> PageRenderer::shownObjects() const
{
    QList<CVXRootObject *> shown;
    for (CVXRootObject *object : m_page->objects()) {
        const bool isMeant = m_options.objects.isEmpty() || m_options.objects.contains(object);
        if (isMeant && object->isVisible())
            shown.append(object);
    }
    return shown;
}

bool PageRenderer::isStillWanted(int done, int total)
{
    m_isGivenUp = m_isGivenUp || !m_options.work->step(done, total);
    return !m_isGivenUp;
}

void PageRenderer::paintObjects(QPainter &painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QList<CVXRootObject *> objects = shownObjects();
    int done = 0;
    for (CVXRootObject *object : objects) {
        if (!isStillWanted(done++, objects.size()))
            return;
        painter.save();
        painter.setTransform(object->GetGraphicsItemPtr()->sceneTransform(), true);
        object->paintContent(&painter);
        object->drawDelegate()->paintInvertArea(&painter);
        painter.restore();
    }
    if (m_options.foreground || m_options.hints)
        paintForeground(painter);
}

void PageRenderer::paintForeground(QPainter &painter) const
{
    const QList<CVXRootObject *> objects = shownObjects();
    for (CVXRootObject *object : objects) {
        painter.save();
        if (m_options.foreground)
            object->paintHandlersInScene(object->GetGraphicsItemPtr(), &painter);
        object->drawForeground(&painter, QRectF(m_area));
        painter.restore();
    }
}
