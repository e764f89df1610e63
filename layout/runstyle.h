// SPDX-License-Identifier: MIT
#ifndef RUNSTYLE_H
#define RUNSTYLE_H

#include <QFont>
#include <QTextCharFormat>

/// What the layouts need of one run's format, read once. Lengths in pixels at the document's dpi.
/// Values that are not finite read as 0.
struct RunStyle {
    qreal offset = 0;        ///< baseline offset, positive is up (vertical text: to the right)
    qreal scaleX = 1;        ///< horizontal scale, 1 when the format is silent
    qreal scaleY = 1;        ///< vertical scale, 1 when the format is silent
    qreal letterSpacing = 0; ///< extra distance behind each character
    qreal gap = 0;           ///< extra distance ahead of the run
    qreal rowSpacing = 0;    ///< fixed distance to the row before, 0 when automatic
    bool isSuperscript = false;
    bool isSubscript = false;
    QFont font; ///< measuring font, without the letter spacing

    /// The measuring font with the letter spacing set.
    QFont spacedFont() const;

    /// The style in a text that is stretched by \a kx and \a ky, written in \a orientation: lengths
    /// along the line follow one factor, those across it the other one.
    RunStyle stretched(qreal kx, qreal ky, Qt::Orientation orientation) const;
};

/// Reads \a format for a document of \a dpi.
RunStyle readRunStyle(const QTextCharFormat &format, int dpi);

/// Fixed distance to the row before in pixels, 0 when \a format leaves it automatic.
qreal fixedRowSpacing(const QTextCharFormat &format, int dpi);

/// \a font with an absolute letter spacing of \a pixels.
QFont withLetterSpacing(const QFont &font, qreal pixels);

/// The font in which a placeholder is shown: that of \a format in pixels, without bars.
QFont placeholderFont(const QTextCharFormat &format, int dpi);

/// Baseline offset of \a format in pixels, 0 when the format is silent.
qreal baselineOffset(const QTextCharFormat &format, int dpi);

/// Percent property \a id of \a format as a factor, 1 when the format is silent.
qreal scaleFactor(const QTextCharFormat &format, int id);

/// The font of an empty block: that of \a format, at a pixel size computed in whole numbers.
QFont emptyBlockFont(const QTextCharFormat &format, int dpi);

/// Row distance of an empty block as horizontal line text takes it: pixels when the property is
/// positive, and deliberately the bare number when it is negative. 0 when the format is silent.
qreal emptyBlockRowDistance(const QTextCharFormat &format, int dpi);

#endif // RUNSTYLE_H
