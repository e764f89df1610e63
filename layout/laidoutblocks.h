// SPDX-License-Identifier: MIT
#ifndef LAIDOUTBLOCKS_H
#define LAIDOUTBLOCKS_H

#include "layout/textlayout.h"

#include <QList>
#include <QTextBlock>
#include <QVector>

/// Numbers that must be the same, bit for bit, for a layout to be the same.
using LayoutNumbers = QVector<qreal>;

/// True when \a a and \a b are the same bit for bit: not-a-number equals itself, -0 does not equal 0.
bool areSame(const LayoutNumbers &a, const LayoutNumbers &b);

/// \a line with its first character at document position \a position.
TextLine movedTo(const TextLine &line, int position);

/// True when \a a and \a b, measured and placed but not outlined yet, differ in document positions at
/// most. What is made of them in the same settings is the same too.
bool areAlike(const TextLine &a, const TextLine &b);

/// The blocks of the latest layout with their lines, for the next one. A block whose content is what
/// it was, and that begins with the same numbers, keeps its lines: only their document positions
/// move. Holds one layout, and shares its outlines.
class LaidOutBlocks
{
public:
    /// Begins a layout of \a blockCount blocks. \a settings is what all of them depend on beside
    /// their content and what the blocks before them have come to; other settings forget everything.
    void startLayout(const LayoutNumbers &settings, int blockCount);

    /// Ends a layout: what it has not used is forgotten.
    void endLayout();

    /// Forgets everything.
    void clear();

    /// Goes on to \a block, the next one of the document. True when the layout before had the same
    /// one at \a begin, the numbers that the blocks before it have come to.
    bool take(const QTextBlock &block, const LayoutNumbers &begin);

    /// After take() said true: the lines of the block, and what it comes to.
    const QList<TextLine> &lines() const { return m_blocks.last().lines; }
    const LayoutNumbers &end() const { return m_blocks.last().end; }

    /// After take() said false: keeps what the block has become.
    void put(const QList<TextLine> &lines, const LayoutNumbers &end);

    /// The line that the layout before had in place of line \a index of the present block, to be
    /// compared with areAlike(). Null without one, and for a block with underlines, whose thickness
    /// goes on from line to line.
    const TextLine *formerLine(int index) const;

private:
    struct Run {
        int length;
        QTextCharFormat format;
    };

    struct Block {
        int position = 0;
        bool isFirst = false;
        bool isUnderlined = false;
        QString text;
        QVector<Run> runs;
        QTextBlockFormat format;
        QTextCharFormat charFormat;
        LayoutNumbers begin;
        LayoutNumbers end;
        QList<TextLine> lines;
    };

    static Block contentOf(const QTextBlock &block);
    static bool haveSameContent(const Block &a, const Block &b);

    LayoutNumbers m_settings;
    int m_blockCount = 0;
    int m_formerCount = 0;
    QVector<Block> m_former;
    QVector<Block> m_blocks;
    Block m_before; // stands in the place of the present block in the layout before
};

/// Adds the lines of \a block to the layout: those of the layout before where nothing that they
/// depend on has changed, otherwise \a layOut(block, pass) makes them.
template<typename Pass>
void layOutOrTake(const QTextBlock &block, Pass &pass, void (*layOut)(const QTextBlock &, Pass &))
{
    if (pass.blocks.take(block, pass.numbers())) {
        pass.layout.lines.append(pass.blocks.lines());
        pass.goOnFrom(pass.blocks.end());
        return;
    }
    const int begin = pass.layout.lines.size();
    layOut(block, pass);
    pass.blocks.put(pass.layout.lines.mid(begin), pass.numbers());
}

#endif // LAIDOUTBLOCKS_H
