// SPDX-License-Identifier: MIT
// sampletext.h -- small pictures of a few words, for galleries.
#ifndef PAGEHOST_SAMPLETEXT_H
#define PAGEHOST_SAMPLETEXT_H

#include <QColor>
#include <QIcon>
#include <QSize>
#include <QString>

class PluginLoader;

/// What a gallery shows in each of its pictures.
struct SampleText {
    QString words;
    QString family;
    QColor color;
    double pixelRatio = 1; ///< device pixels for one of the picture

    bool operator==(const SampleText &other) const
    {
        return words == other.words && family == other.family && color == other.color
               && pixelRatio == other.pixelRatio;
    }
};

/// The words bent in a warp style, 0 for straight. An empty picture without a library.
QPixmap warpSample(const PluginLoader *loader, const SampleText &text, int style,
                   bool acrossColumns, const QSize &size);
/// The words as art text of a style.
QPixmap artSample(const PluginLoader *loader, const SampleText &text, int style, const QSize &size);

#endif
