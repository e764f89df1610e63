// SPDX-License-Identifier: MIT
// blur.cpp -- ThBlurMore(): a box blur by running sums.
#include "arttext/arttexthelper.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

using Buffer = std::unique_ptr<uchar, decltype(&std::free)>;

/// Where things lie in the work buffer: the image with a margin of the radius all around.
struct Padding {
    qint64 width, height; // of the image
    qint64 channels;      // bytes of a pixel
    qint64 radius;

    qint64 window() const { return 2 * radius + 1; }
    qint64 rowBytes() const { return (width + 2 * radius) * channels; }
    qint64 rows() const { return height + 2 * radius; }
    /// Image cells from \a place on both sides that are not beyond the ends of \a length.
    qint64 cells(qint64 place, qint64 length) const
    {
        return std::min(place + radius, length - 1) - std::max<qint64>(place - radius, 0) + 1;
    }
};

/// The image in the middle of zeros: sums over the margin are sums over the clipped window.
Buffer paddedCopy(const QImage &image, const Padding &padding)
{
    Buffer buffer(static_cast<uchar *>(
                      std::calloc(size_t(padding.rows()), size_t(padding.rowBytes()))),
                  &std::free);
    if (!buffer)
        return buffer;
    for (qint64 y = 0; y < padding.height; ++y) {
        uchar *row = buffer.get() + (y + padding.radius) * padding.rowBytes();
        std::copy_n(image.constScanLine(int(y)), padding.width * padding.channels,
                    row + padding.radius * padding.channels);
    }
    return buffer;
}

/// One row of means. \a columns holds, for each padded column and channel, the sum over the rows of
/// the window; \a rowCells of these rows lie in the image.
void writeMeans(const std::vector<int> &columns, const Padding &padding, qint64 rowCells,
                uchar *out)
{
    const qint64 channels = padding.channels;
    const qint64 reach = padding.window() * channels;
    for (qint64 channel = 0; channel < channels; ++channel) {
        qint64 sum = 0;
        for (qint64 i = channel; i < reach; i += channels)
            sum += columns[size_t(i)];
        for (qint64 x = 0, i = channel; x < padding.width; ++x, i += channels) {
            out[i] = uchar(sum / (rowCells * padding.cells(x, padding.width)));
            if (x + 1 < padding.width)
                sum += columns[size_t(i + reach)] - columns[size_t(i)];
        }
    }
}

} // namespace

bool ThBlurMore(QImage &image, int radius)
{
    if (radius < 1 || image.isNull())
        return false;
    const Padding padding{image.width(), image.height(), image.depth() / 8,
                          std::min({radius, image.width() / 4, image.height() / 4})};
    if (padding.channels == 0) // less than a byte a pixel
        return true;
    const Buffer buffer = paddedCopy(image, padding);
    if (!buffer)
        return false;

    const qint64 rowBytes = padding.rowBytes();
    std::vector<int> columns(size_t(rowBytes), 0);
    const auto addRow = [&](qint64 y, int sign) {
        const uchar *row = buffer.get() + y * rowBytes;
        for (qint64 i = 0; i < rowBytes; ++i)
            columns[size_t(i)] += sign * row[i];
    };
    for (qint64 y = 0; y < padding.window() - 1; ++y)
        addRow(y, 1);
    for (qint64 y = 0; y < padding.height; ++y) {
        addRow(y + padding.window() - 1, 1);
        writeMeans(columns, padding, padding.cells(y, padding.height), image.scanLine(int(y)));
        addRow(y, -1);
    }
    return true;
}
