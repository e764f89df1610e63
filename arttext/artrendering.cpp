// SPDX-License-Identifier: MIT
// artrendering.cpp -- CArtText: images with their own buffer, masks, the drawn sample.
#include "arttext/arttexthelper.h"

#include <QLinearGradient>
#include <QPainter>

#include <cstdlib>
#include <limits>

namespace {

/// A run of bytes read with a pointer of its own pace; it gives 0 beyond its end.
class ByteRun
{
public:
    ByteRun(const QImage &image, qint64 pace)
        : m_bytes(image.constBits())
        , m_size(qint64(image.sizeInBytes()))
        , m_pace(pace)
    {
    }

    int at(qint64 offset) const
    {
        const qint64 place = m_place + offset;
        return place < m_size ? m_bytes[place] : 0;
    }
    void advance() { m_place += m_pace; }

private:
    const uchar *m_bytes;
    qint64 m_size;
    qint64 m_pace;
    qint64 m_place = 0;
};

} // namespace

void tmpCleanupHandler(void *buffer)
{
    std::free(buffer);
}

QImage CArtText::createImage(int width, int height, int bytesPerPixel)
{
    if (width <= 0 || height <= 0 || bytesPerPixel <= 0)
        return QImage();
    const qint64 stride = (qint64(width) * 32 + 31) / 32 * bytesPerPixel;
    if (stride > std::numeric_limits<int>::max())
        return QImage();
    // Zeroed: whoever draws only a part finds the rest transparent.
    uchar *buffer = static_cast<uchar *>(std::calloc(size_t(height), size_t(stride)));
    if (!buffer)
        return QImage();
    QImage image(buffer, width, height, int(stride), QImage::Format_ARGB32, tmpCleanupHandler,
                 buffer);
    if (image.isNull()) // refused: then the buffer is still ours
        std::free(buffer);
    return image;
}

QImage CArtText::maskImage(const QImage &image, const QImage &mask, bool ignoreImageAlpha)
{
    if (mask.isNull())
        return QImage();
    QImage masked = createImage(image.width(), image.height(), 4);
    if (masked.isNull() || (mask.depth() != 8 && mask.depth() != 32))
        return masked;

    const int depth = image.depth();
    ByteRun source(image, depth / 8);
    ByteRun alphas(mask, mask.depth() == 8 ? 1 : 5); // deliberate: 5, not 4
    uchar *out = masked.bits();
    const uchar *end = out + masked.sizeInBytes();
    for (; out != end; out += 4) {
        out[0] = uchar(source.at(0));
        if (depth >= 24) {
            out[1] = uchar(source.at(1));
            out[2] = uchar(source.at(2));
        }
        const bool scaled = depth >= 32 && !ignoreImageAlpha;
        out[3] = uchar(scaled ? alphas.at(0) * source.at(3) / 255 : alphas.at(0));
        source.advance();
        alphas.advance();
    }
    return masked;
}

bool CArtText::RenderPathPoints(QPainter *painter, tagPOINT *, unsigned char *, int, bool, CRect *,
                                bool enabled, bool drawSample, int)
{
    if (!enabled || !drawSample || !painter)
        return true;
    QLinearGradient gradient(0, 0, 0, 100);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::green);
    QPainterPath sample;
    sample.addText(10.0, 70.0, QFont(QStringLiteral("Times"), 50), QStringLiteral("Qt"));
    painter->setPen(QPen(Qt::blue, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(gradient);
    painter->drawPath(sample);
    return true;
}
