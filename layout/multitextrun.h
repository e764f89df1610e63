// SPDX-License-Identifier: MIT
#ifndef MULTITEXTRUN_H
#define MULTITEXTRUN_H

#include "layout/blockmeasures.h"
#include "layout/laidoutblocks.h"
#include "layout/linebreaking.h"
#include "layout/outlines.h"
#include "layout/runstyle.h"
#include "layout/texttools.h"

#include <optional>

// What the horizontal and the vertical layout of box text truly share.

/// Style of one run of box text, stretched, with the metrics of its font.
struct BoxRunStyle : RunStyle {
    qreal ascent = 0;
    qreal descent = 0;
    qreal height = 0;
    QFont spaced;  ///< measuring font with the letter spacing
    QFont upright; ///< measuring font without any, for characters that stand upright in a column

    /// Scales that a run of this style is measured with: super- and subscript are half as large.
    qreal runScaleX() const { return isScript() ? scaleX / 2 : scaleX; }
    qreal runScaleY() const { return isScript() ? scaleY / 2 : scaleY; }
    bool isScript() const { return isSuperscript || isSubscript; }
};

/// Height of the fonts of run after run: neighbours that share one are measured once.
class FontHeight
{
public:
    qreal of(const QFont &font);

private:
    std::optional<QFont> m_font;
    qreal m_height = 0;
};

/// Reads styles run after run: neighbours of one format are read once.
class BoxRunStyles
{
public:
    BoxRunStyles(int dpi, qreal kx, qreal ky, Qt::Orientation orientation);

    /// Valid until the next call.
    const BoxRunStyle &of(const QTextCharFormat &format);

private:
    int m_dpi;
    qreal m_kx;
    qreal m_ky;
    Qt::Orientation m_orientation;
    std::optional<QTextCharFormat> m_format;
    BoxRunStyle m_style;
};

/// State across the blocks of one layout of box text.
struct BoxPass {
    BoxPass(const QRectF &clientRect, int documentDpi, qreal stretchX, qreal stretchY,
            Qt::Orientation orientation, OutlineSource &outlineSource, LaidOutBlocks &laidOut);

    const QRectF box;
    const int dpi;
    const qreal kx;
    const qreal ky;
    bool followsText = false; ///< the box grows with its text
    FittingSearch search = FittingSearch::Fast;

    TextLayout layout;
    qreal afterSpace = 0; ///< a block without the property repeats the last value
    bool isFull = false;  ///< no room for more: the rest of the document has no lines
    BoxRunStyles styles;
    OutlineSource &outlines;
    LaidOutBlocks &blocks;
    UnderlineThickness thickness;
};

/// The text in pieces: each character that isCJKPunct() accepts alone, and the stretches between.
QList<QString> punctuationPieces(const QString &text);

/// The same for isCJKChar().
QList<QString> uprightPieces(const QString &text);

/// Rules for the lines of a block with \a measures in a box that is \a length long.
LineRules lineRules(const BlockRules &rules, const BlockMeasures &measures, qreal length,
                    BoxPass &pass);

/// The start of a run on its way to the lines: what the document and the style say.
TextFragment boxRun(const QTextFragment &fragment, const BoxRunStyle &style);

/// Room that a line's treatment distributes, in pixels along the line.
struct Spread {
    qreal extra = 0;  ///< behind every character
    qreal offset = 0; ///< ahead of the line
};

/// \param spare  room of the line less the length of its runs
Spread spreadOf(LineTreatment treatment, qreal spare, int length);

/// The line's length, text position and font, from its runs.
void takeMeasuresFromRuns(TextLine &line);

/// Justifies a run: each of its characters grows by \a extra, but that of the last run's end is
/// taken back (deliberate: unscaled). A scale of 0 or not finite adds nothing.
/// \param halve  the run takes half of its length
void spreadByLetterSpacing(TextFragment &run, qreal extra, qreal alongScale, bool halve,
                           bool isLast);

/// Greatest thickness of underlines up to and with a run in \a font. Deliberate: what earlier runs
/// of the block gave is multiplied by \a stretch again. Stops growing before it overflows.
qreal grownThickness(qreal thickness, qreal ofRun, qreal stretch);

/// Along the line from where to where it reaches, while its outlines are made.
class LineSpan
{
public:
    /// \param inkEnd  far edge of the run's ink, nullopt without ink
    void add(const TextFragment &run, bool isLast, const std::optional<qreal> &inkEnd);

    qreal begin() const { return m_begin.value_or(m_lastStart); }
    qreal end() const { return m_end.value_or(0); }

private:
    std::optional<qreal> m_begin; // deliberate: the last run does not count, unless it is alone
    std::optional<qreal> m_end;
    qreal m_lastStart = 0;
};

/// Start of the line of an empty block.
qreal emptyLineStart(int alignment, const BlockMeasures &measures, qreal length);

/// Appends \a outline to that of its line. A line of one run shares the outline of the run.
void addToLine(TextLine &line, const QPainterPath &outline);

#endif // MULTITEXTRUN_H
