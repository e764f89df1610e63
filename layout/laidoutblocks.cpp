// SPDX-License-Identifier: MIT
#include "layout/laidoutblocks.h"

#include <QTextFragment>

#include <cstring>
#include <utility>

namespace {

bool isSame(qreal a, qreal b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool isSame(const QPointF &a, const QPointF &b)
{
    return isSame(a.x(), b.x()) && isSame(a.y(), b.y());
}

bool areAlike(const TextFragment &a, const TextFragment &b)
{
    return a.length == b.length && isSame(a.start, b.start) && isSame(a.advance, b.advance)
           && isSame(a.scaleX, b.scaleX) && isSame(a.scaleY, b.scaleY) && a.isCJK == b.isCJK
           && a.isHalfPunct == b.isHalfPunct && a.isEmptyBlock == b.isEmptyBlock && a.text == b.text
           && a.format == b.format && a.font == b.font;
}

} // namespace

bool areSame(const LayoutNumbers &a, const LayoutNumbers &b)
{
    return a.size() == b.size()
           && (a.isEmpty()
               || std::memcmp(a.constData(), b.constData(), a.size() * sizeof(qreal)) == 0);
}

TextLine movedTo(const TextLine &line, int position)
{
    TextLine moved = line;
    const int distance = position - line.position;
    if (distance == 0)
        return moved;
    moved.position = position;
    for (TextFragment &run : moved.fragments)
        run.position += distance;
    return moved;
}

bool areAlike(const TextLine &a, const TextLine &b)
{
    if (a.fragments.size() != b.fragments.size() || a.length != b.length
        || a.isEmptyBlock != b.isEmptyBlock || !isSame(a.origin, b.origin) || a.text != b.text
        || a.font != b.font)
        return false;
    for (int i = 0; i < a.fragments.size(); ++i) {
        const TextFragment &first = a.fragments.at(i);
        const TextFragment &second = b.fragments.at(i);
        if (first.position - a.position != second.position - b.position || !areAlike(first, second))
            return false;
    }
    return true;
}

void LaidOutBlocks::startLayout(const LayoutNumbers &settings, int blockCount)
{
    if (!areSame(settings, m_settings))
        clear();
    m_settings = settings;
    m_formerCount = m_blockCount;
    m_blockCount = blockCount;
    m_former = std::exchange(m_blocks, {});
    m_blocks.reserve(blockCount);
}

void LaidOutBlocks::clear()
{
    m_former.clear();
    m_blocks.clear();
    m_before = Block();
}

void LaidOutBlocks::endLayout()
{
    m_former.clear();
    m_before = Block();
}

LaidOutBlocks::Block LaidOutBlocks::contentOf(const QTextBlock &block)
{
    Block content;
    content.position = block.position();
    content.isFirst = block.blockNumber() == 0;
    content.text = block.text();
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        content.runs.append({it.fragment().length(), it.fragment().charFormat()});
        content.isUnderlined = content.isUnderlined || content.runs.last().format.fontUnderline();
    }
    content.format = block.blockFormat();
    content.charFormat = block.charFormat();
    return content;
}

bool LaidOutBlocks::haveSameContent(const Block &a, const Block &b)
{
    if (a.isFirst != b.isFirst || a.runs.size() != b.runs.size() || a.text != b.text
        || a.format != b.format || a.charFormat != b.charFormat)
        return false;
    for (int i = 0; i < a.runs.size(); ++i) {
        if (a.runs.at(i).length != b.runs.at(i).length
            || a.runs.at(i).format != b.runs.at(i).format)
            return false;
    }
    return true;
}

// A change is in one place mostly: the blocks ahead of it count from the start, those behind it from
// the end.
bool LaidOutBlocks::take(const QTextBlock &block, const LayoutNumbers &begin)
{
    Block present = contentOf(block);
    present.begin = begin;
    const int index = m_blocks.size();
    const int fromEnd = index + m_formerCount - m_blockCount;
    m_before = Block();
    for (int place : {index, fromEnd}) {
        if (place < 0 || place >= m_former.size())
            continue;
        Block &former = m_former[place];
        if (haveSameContent(former, present) && areSame(former.begin, begin)) {
            const int distance = present.position - former.position;
            present.end = former.end;
            present.lines = former.lines;
            if (distance != 0) {
                for (TextLine &line : present.lines)
                    line = movedTo(line, line.position + distance);
            }
            m_blocks.append(present);
            return true;
        }
    }
    if (index < m_former.size())
        m_before = m_former.at(index);
    m_blocks.append(present);
    return false;
}

void LaidOutBlocks::put(const QList<TextLine> &lines, const LayoutNumbers &end)
{
    m_blocks.last().lines = lines;
    m_blocks.last().end = end;
}

const TextLine *LaidOutBlocks::formerLine(int index) const
{
    if (m_before.isUnderlined || m_blocks.last().isUnderlined || index >= m_before.lines.size())
        return nullptr;
    return &m_before.lines.at(index);
}
