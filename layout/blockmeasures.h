// SPDX-License-Identifier: MIT
#ifndef BLOCKMEASURES_H
#define BLOCKMEASURES_H

#include <QTextBlockFormat>

#include <optional>

/// One block's measures, read once. Pixels at the document's dpi; values that are not finite
/// read as 0.
struct BlockMeasures {
    qreal left = 0;             ///< along the line, margin at its start
    qreal right = 0;            ///< along the line, margin at its end
    qreal indent = 0;           ///< along the line, first line of the block
    qreal before = 0;           ///< across the line, ahead of the block
    std::optional<qreal> after; ///< nullopt: the block is silent, the earlier value stays in force

    /// The measures in a stretched text: \a along times those along the line, \a across times the
    /// others.
    BlockMeasures stretched(qreal along, qreal across) const;
};

/// Reads \a format for a document of \a dpi. \a isFirstBlock: nothing stands ahead of it, so
/// `before` is 0.
BlockMeasures readBlockMeasures(const QTextBlockFormat &format, int dpi, bool isFirstBlock);

/// How the lines of a block of box text end.
struct BlockRules {
    int headTailMode = 0;             ///< 1 relaxed, 2 strict, anything else off
    bool hyphenate = false;           ///< words break with a hyphen
    bool compressPunctuation = false; ///< CJK punctuation takes half its advance
};

BlockRules readBlockRules(const QTextBlockFormat &format);

/// Alignment for box text, the value as it stands; \a silent when the format has none.
int boxAlignment(const QTextBlockFormat &format, int silent);

/// Alignment for horizontal line text, 1 when the format is silent. The values that mean right
/// and centre in vertical text keep their sense: 0x40 reads as 2, 0x80 as 4.
int horizontalLineAlignment(const QTextBlockFormat &format);

/// Alignment for vertical line text, 0x20 when the format is silent. 2 reads as 0x40, 4 as 0x80.
int verticalLineAlignment(const QTextBlockFormat &format);

#endif // BLOCKMEASURES_H
