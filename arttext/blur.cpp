// SPDX-License-Identifier: MIT
// blur.cpp -- ThBlurMore(): a box blur by running sums.
#include "arttext/arttexthelper.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

struct Measures {
    qint64 width, height; // pixels of the image
    qint64 channels;      // bytes of a pixel
    qint64 radius;

    qint64 rowBytes() const { return width * channels; }
    qint64 marginBytes() const { return radius * channels; }
    /// Places around \a place, itself included, that are in the window and not beyond \a length.
    qint64 windowPart(qint64 place, qint64 length) const
    {
        return std::min(place + radius, length - 1) - std::max<qint64>(place - radius, 0) + 1;
    }
};

using Bytes = std::unique_ptr<uchar, decltype(&std::free)>;

/// The rows of the image one after the other, without padding; null without memory.
Bytes copyOfRows(const QImage &image, const Measures &measures)
{
    Bytes rows(static_cast<uchar *>(
                   std::malloc(size_t(measures.height) * size_t(measures.rowBytes()))),
               &std::free);
    for (qint64 y = 0; rows && y < measures.height; ++y) {
        std::copy_n(image.constScanLine(int(y)), measures.rowBytes(),
                    rows.get() + y * measures.rowBytes());
    }
    return rows;
}

/// For each byte of a row the sum over the rows of the window. There is a margin of zeros on both
/// sides, so that sums over it are sums over the window clipped to the image.
class ColumnSums
{
public:
    ColumnSums(const uchar *rows, const Measures &measures)
        : m_rows(rows)
        , m_measures(measures)
        , m_sums(size_t(measures.rowBytes() + 2 * measures.marginBytes()), 0)
        , m_shares(size_t(measures.width))
    {
        for (qint64 y = 0; y < measures.radius; ++y)
            add(y, 1);
    }

    /// To the row \a y, from the one before it.
    void moveTo(qint64 y)
    {
        add(y + m_measures.radius, 1);
        add(y - m_measures.radius - 1, -1);
        const qint64 rowsInWindow = m_measures.windowPart(y, m_measures.height);
        if (rowsInWindow == m_rowsInWindow)
            return;
        m_rowsInWindow = rowsInWindow;
        for (qint64 x = 0; x < m_measures.width; ++x) {
            m_shares[size_t(x)] =
                1.0 / double(rowsInWindow * m_measures.windowPart(x, m_measures.width));
        }
    }

    /// The means of the row, channel by channel.
    void writeMeans(uchar *out) const
    {
        // Locals: a byte written could be any member.
        const int *sums = m_sums.data();
        const double *shares = m_shares.data();
        const qint64 width = m_measures.width;
        const qint64 channels = m_measures.channels;
        const qint64 ahead = 2 * m_measures.marginBytes(); // of the entering column
        for (qint64 channel = 0; channel < channels; ++channel) {
            qint64 sum = 0;
            for (qint64 i = channel; i < ahead; i += channels)
                sum += sums[i];
            for (qint64 x = 0, i = channel; x < width; ++x, i += channels) {
                sum += sums[i + ahead];
                // The quotient cut off: half a unit outweighs what the share is rounded by, and no
                // mean of bytes is above 255.
                out[i] = uchar((double(sum) + 0.5) * shares[x]);
                sum -= sums[i];
            }
        }
    }

private:
    void add(qint64 y, int sign)
    {
        if (y < 0 || y >= m_measures.height)
            return;
        const uchar *row = m_rows + y * m_measures.rowBytes();
        int *sums = m_sums.data() + m_measures.marginBytes();
        for (qint64 i = 0; i < m_measures.rowBytes(); ++i)
            sums[i] += sign * row[i];
    }

    const uchar *m_rows;
    const Measures m_measures;
    std::vector<int> m_sums;
    std::vector<double> m_shares; // 1 / cells of the window about each column
    qint64 m_rowsInWindow = 0;
};

} // namespace

bool ThBlurMore(QImage &image, int radius)
{
    if (radius < 1 || image.isNull())
        return false;
    const Measures measures{image.width(), image.height(), image.depth() / 8,
                            std::min({radius, image.width() / 4, image.height() / 4})};
    if (measures.channels == 0) // less than a byte a pixel
        return true;
    const Bytes rows = copyOfRows(image, measures);
    if (!rows)
        return false;
    ColumnSums sums(rows.get(), measures);
    for (qint64 y = 0; y < measures.height; ++y) {
        sums.moveTo(y);
        sums.writeMeans(image.scanLine(int(y)));
    }
    return true;
}
