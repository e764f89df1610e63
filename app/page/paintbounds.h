// SPDX-License-Identifier: MIT
// paintbounds.h -- a paint device that keeps nothing of what is painted but where it lies.
#ifndef APP_PAINTBOUNDS_H
#define APP_PAINTBOUNDS_H

#include <QPaintDevice>
#include <QRectF>

#include <memory>

class PaintBoundsEngine;

/// Paint on it, then ask for ink(). Takes no memory for the picture, whatever its size.
class PaintBounds : public QPaintDevice
{
public:
    /// \param dpi what the device reports as its resolution
    explicit PaintBounds(int dpi);
    ~PaintBounds() override;

    /// Bounds of all that was painted, in device coordinates; null when nothing was.
    QRectF ink() const;
    QPaintEngine *paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    std::unique_ptr<PaintBoundsEngine> m_engine;
    int m_dpi;
};

#endif
