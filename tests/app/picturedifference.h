// SPDX-License-Identifier: MIT
// picturedifference.h -- how far two pictures of the same size are apart.
#ifndef PICTUREDIFFERENCE_H
#define PICTUREDIFFERENCE_H

#include <QColor>
#include <QImage>

#include <algorithm>
#include <iterator>

/// How far two pictures are apart.
struct Difference {
    double mean = 0; ///< of all channels of all pixels, from 0 to 255
    double far = 0;  ///< share of the pixels of which a channel differs by more than 96
};

inline Difference difference(const QImage &one, const QImage &other)
{
    Difference result;
    double sum = 0;
    int far = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            const int channels[] = {qAbs(a.red() - b.red()), qAbs(a.green() - b.green()),
                                    qAbs(a.blue() - b.blue())};
            for (int channel : channels)
                sum += channel;
            far += *std::max_element(std::begin(channels), std::end(channels)) > 96;
        }
    }
    const double pixels = double(one.width()) * one.height();
    result.mean = sum / (3 * pixels);
    result.far = far / pixels;
    return result;
}

#endif
