// SPDX-License-Identifier: MIT
#ifndef LINEBREAKING_H
#define LINEBREAKING_H

#include "layout/fittingsearch.h"
#include "layout/headtail.h"
#include "layout/textlayout.h"

#include <QList>

#include <functional>

/// How a line is set within its room.
enum class LineTreatment { AtStart, Centred, AtEnd, Justified };

/// What TextProperty::Alignment means for a line that wraps, and for the last line of a block.
LineTreatment wrappedLineTreatment(int alignment);
LineTreatment lastLineTreatment(int alignment);

/// Letters of cased alphabets only: any other text may break anywhere.
bool isWordCharacter(QChar character);

/// What the lines of one block have in common. Lengths along the line, in pixels.
struct LineRules {
    Qt::Orientation orientation = Qt::Horizontal;
    qreal left = 0;         ///< start of a line
    qreal indent = 0;       ///< on top of it for the first line
    qreal limit = 0;        ///< where a line must end
    int headTailMode = 0;   ///< TextProperty::HeadTailRule
    bool hyphenate = false; ///< words break with a hyphen instead of moving whole
    bool compressPunctuation = false;
    FittingSearch search = FittingSearch::Fast;
    OutlineSource *source = nullptr; ///< knows widths that were measured before
};

/// A piece of a run on its way to the lines.
struct Piece {
    TextFragment run; ///< position, text, format, font, scales and marks of the whole piece
    std::optional<qreal> width; ///< unscaled width of the text, where it is known already
    qreal extraAdvance = 0;     ///< added where the piece goes onto a line without wrapping
};

/// Fills the lines of one block, run after run, with widths alone.
class LineFiller
{
public:
    /// Called for each line that is full: sets its length, position, font and place. The length of
    /// its runs is \a pen; \a isFirst: no line of the block is closed yet.
    using CloseLine = std::function<void(TextLine &line, qreal pen, bool isFirst)>;

    explicit LineFiller(const LineRules &rules);

    /// Widens the last run of the current line, if any, and moves the pen.
    void addGap(qreal gap);

    /// Puts \a piece on the current line and as many more as it takes. Where the box is too narrow
    /// for a character the rest of the piece is lost. \return number of characters placed
    int add(const Piece &piece, const CloseLine &closeLine);

    /// Closes the current line unless it is empty. \return true when there was one
    bool finish(const CloseLine &closeLine);

    QList<TextLine> lines() const { return m_lines; } ///< closed

private:
    qreal penPosition() const;
    void append(TextFragment run, qreal advance);
    void breakLine(QChar next, const CloseLine &closeLine);
    void applyHeadTailRule(QChar next);
    void applyWordRule(QChar next);
    void moveWord();
    void hyphenateWord();
    void carryOver(const CutPoint &cut, bool compress);
    TextFragment part(const TextFragment &run, const QString &text, bool compress) const;

    LineRules m_rules;
    QList<TextLine> m_lines;
    TextLine m_line;     // being filled
    TextLine m_next;     // takes what is carried over
    qreal m_pen = 0;     // length of the runs on m_line
    qreal m_carried = 0; // length of the runs on m_next
};

#endif // LINEBREAKING_H
