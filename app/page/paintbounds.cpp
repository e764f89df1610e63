// SPDX-License-Identifier: MIT
#include "app/page/paintbounds.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include <limits>

namespace {

/// Side of the device; painting far outside it counts all the same.
constexpr int deviceSide = 32767;
constexpr double millimetresPerInch = 25.4;

/// Half the width of the lines that \a painter draws, in the coordinates it is given.
qreal penReach(const QPainter *painter)
{
    const QPen pen = painter->pen();
    if (pen.style() == Qt::NoPen)
        return 0;
    const qreal width = qMax<qreal>(pen.widthF(), 1);
    const bool pointed = pen.joinStyle() == Qt::MiterJoin || pen.joinStyle() == Qt::SvgMiterJoin;
    return width / 2 * (pointed ? qMax<qreal>(pen.miterLimit(), 1) : 1);
}

} // namespace

class PaintBoundsEngine : public QPaintEngine
{
public:
    PaintBoundsEngine()
        : QPaintEngine(AllFeatures)
    {
    }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    Type type() const override { return User; }

    void drawPath(const QPainterPath &path) override
    {
        const bool isFilled = painter()->brush().style() != Qt::NoBrush;
        const bool isDrawn = painter()->pen().style() != Qt::NoPen;
        if (path.isEmpty() || !(isFilled || isDrawn))
            return;
        QRectF area = path.boundingRect();
        const qreal reach = penReach(painter());
        area.adjust(-reach, -reach, reach, reach);
        add(area);
    }
    using QPaintEngine::drawPolygon;
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode) override
    {
        QPainterPath path;
        path.addPolygon(QPolygonF(QVector<QPointF>(points, points + count)));
        drawPath(path);
    }
    void drawPixmap(const QRectF &area, const QPixmap &, const QRectF &) override { add(area); }
    void drawImage(const QRectF &area, const QImage &, const QRectF &,
                   Qt::ImageConversionFlags) override
    {
        add(area);
    }
    void drawTiledPixmap(const QRectF &area, const QPixmap &, const QPointF &) override
    {
        add(area);
    }
    void drawTextItem(const QPointF &place, const QTextItem &item) override
    {
        add(QRectF(place.x(), place.y() - item.ascent(), item.width(),
                   item.ascent() + item.descent()));
    }

    QRectF ink;

private:
    void add(const QRectF &area) { ink |= painter()->deviceTransform().mapRect(area); }
};

PaintBounds::PaintBounds(int dpi)
    : m_engine(std::make_unique<PaintBoundsEngine>())
    , m_dpi(dpi)
{
}

PaintBounds::~PaintBounds() = default;

QRectF PaintBounds::ink() const
{
    return m_engine->ink;
}

QPaintEngine *PaintBounds::paintEngine() const
{
    return m_engine.get();
}

int PaintBounds::metric(PaintDeviceMetric metric) const
{
    switch (metric) {
    case PdmWidth:
    case PdmHeight:
        return deviceSide;
    case PdmWidthMM:
    case PdmHeightMM:
        return qRound(deviceSide * millimetresPerInch / m_dpi);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return m_dpi;
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return int(devicePixelRatioFScale());
    }
    return QPaintDevice::metric(metric);
}
