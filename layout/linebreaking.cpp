// SPDX-License-Identifier: MIT
// Where lines end: what fits, the line-head and line-tail rules, whole words and hyphens, and
// what moves to the next line. The same in both directions.
#include "layout/linebreaking.h"

#include "layout/texttools.h"

#include <QFontMetricsF>

namespace {

struct AlignmentRow {
    int alignment;
    LineTreatment wrapped;
    LineTreatment last;
};

// clang-format off
constexpr AlignmentRow alignmentTable[] = {
    // value   lines that wrap           last line of the block
    {8,        LineTreatment::Justified, LineTreatment::Justified},
    {0x100,    LineTreatment::Justified, LineTreatment::Justified},
    {0x200,    LineTreatment::Justified, LineTreatment::AtStart},
    {0x400,    LineTreatment::Justified, LineTreatment::Centred},
    {0x800,    LineTreatment::Justified, LineTreatment::AtEnd},
    {2,        LineTreatment::AtEnd,     LineTreatment::AtEnd},
    {0x40,     LineTreatment::AtEnd,     LineTreatment::AtEnd},
    {4,        LineTreatment::Centred,   LineTreatment::Centred},
    {0x80,     LineTreatment::Centred,   LineTreatment::Centred},
};
// clang-format on

constexpr AlignmentRow otherAlignment = {0, LineTreatment::AtStart, LineTreatment::AtStart};

const AlignmentRow &alignmentRow(int alignment)
{
    for (const AlignmentRow &row : alignmentTable) {
        if (row.alignment == alignment)
            return row;
    }
    return otherAlignment;
}

qreal alongScale(const TextFragment &run, Qt::Orientation orientation)
{
    return orientation == Qt::Horizontal ? run.scaleX : run.scaleY;
}

bool isPunctuationPiece(const QString &text)
{
    return text.length() == 1 && CTextTools::isCJKPunct(text.at(0));
}

bool endsInWord(const QString &text)
{
    return !text.isEmpty() && isWordCharacter(text.at(text.length() - 1));
}

// The fitting length, moved to the end of a surrogate pair that it cuts, or ahead of one that does
// not fit whole.
int wholeCodePoints(const MeasuredText &text, int count, qreal x, qreal limit)
{
    const bool cutsPair = count > 0 && text.at(count).isLowSurrogate()
                          && text.at(count - 1).isHighSurrogate();
    if (!cutsPair)
        return count;
    const bool pairFits = count + 1 < text.length() && x + text.width(count + 1) <= limit;
    return pairFits ? count + 1 : count - 1;
}

int lengthOf(const QList<TextFragment> &runs)
{
    int length = 0;
    for (const TextFragment &run : runs)
        length += run.length;
    return length;
}

qreal advanceOf(const QList<TextFragment> &runs)
{
    qreal advance = 0;
    for (const TextFragment &run : runs)
        advance += run.advance;
    return advance;
}

} // namespace

LineTreatment wrappedLineTreatment(int alignment)
{
    return alignmentRow(alignment).wrapped;
}

LineTreatment lastLineTreatment(int alignment)
{
    return alignmentRow(alignment).last;
}

bool isWordCharacter(QChar character)
{
    const ushort code = character.unicode();
    if (code < 0x80)
        return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
    return character.category() == QChar::Letter_Uppercase
           || character.category() == QChar::Letter_Lowercase;
}

LineFiller::LineFiller(const LineRules &rules)
    : m_rules(rules)
{
}

qreal LineFiller::penPosition() const
{
    return m_rules.left + m_pen + (m_lines.isEmpty() ? m_rules.indent : 0);
}

void LineFiller::addGap(qreal gap)
{
    if (gap == 0)
        return;
    if (!m_line.fragments.isEmpty())
        m_line.fragments.last().advance += gap;
    m_pen += gap;
}

void LineFiller::append(TextFragment run, qreal advance)
{
    run.length = run.text.length();
    run.start = penPosition();
    run.advance = advance;
    m_pen += advance;
    m_line.text += run.text;
    m_line.fragments.append(run);
}

int LineFiller::add(const Piece &piece, const CloseLine &closeLine)
{
    const qreal scale = alongScale(piece.run, m_rules.orientation);
    MeasuredText rest(piece.run.text, piece.run.font, piece.run.isHalfPunct ? scale * 0.5 : scale,
                      m_rules.search, m_rules.source);
    if (piece.width)
        rest.presetWidth(*piece.width);
    MeasuredText::Fit fit = rest.fit(penPosition(), m_rules.limit);
    if (fit.isWhole) {
        append(piece.run, rest.width(rest.length()) + piece.extraAdvance);
        return rest.length();
    }

    TextFragment run = piece.run;
    int placed = 0;
    while (!fit.isWhole) {
        const int length = wholeCodePoints(rest, fit.length, penPosition(), m_rules.limit);
        if (length < 0 || (length == 0 && m_line.fragments.isEmpty()))
            return placed;
        if (length > 0) {
            run.text = rest.left(length);
            append(run, rest.width(length));
            rest.skip(length);
            run.position += length;
            placed += length;
        }
        breakLine(rest.at(0), closeLine);
        fit = rest.fit(penPosition(), m_rules.limit);
    }
    run.text = rest.left(rest.length());
    append(run, rest.width(rest.length()));
    return placed + rest.length();
}

bool LineFiller::finish(const CloseLine &closeLine)
{
    if (m_line.fragments.isEmpty())
        return false;
    closeLine(m_line, m_pen, m_lines.isEmpty());
    m_lines.append(m_line);
    m_line = TextLine();
    m_pen = 0;
    return true;
}

// Ends the current line. Afterwards it is closed and the next one holds what was carried over.
void LineFiller::breakLine(QChar next, const CloseLine &closeLine)
{
    m_next = TextLine();
    m_carried = 0;
    if (isHeadTailRuleOn(m_rules.headTailMode))
        applyHeadTailRule(next);
    applyWordRule(next);
    closeLine(m_line, m_pen, m_lines.isEmpty());
    m_lines.append(m_line);
    m_line = m_next;
    m_pen = m_carried;
}

void LineFiller::applyHeadTailRule(QChar next)
{
    const std::optional<CutPoint> cut = m_rules.orientation == Qt::Horizontal
                                            ? horizontalCut(m_line, m_rules.headTailMode)
                                            : verticalCut(m_line, m_rules.headTailMode,
                                                          QString(next));
    // At least one character stays on the line.
    if (cut && (cut->fragment > 0 || (cut->fragment == 0 && cut->character >= 1)))
        carryOver(*cut, m_rules.compressPunctuation);
}

void LineFiller::applyWordRule(QChar next)
{
    if (!isWordCharacter(next) || !endsInWord(m_line.fragments.last().text))
        return;
    if (m_rules.hyphenate)
        hyphenateWord();
    else
        moveWord();
}

// The word moves whole, unless the line begins with it.
void LineFiller::moveWord()
{
    for (int i = m_line.fragments.size() - 1; i >= 0; --i) {
        const QString &text = m_line.fragments.at(i).text;
        for (int k = text.length() - 1; k >= 0; --k) {
            if (isWordCharacter(text.at(k)))
                continue;
            // Deliberate: the very first character of the line is no break opportunity.
            if (i > 0 || k != 0)
                carryOver({i, k + 1}, false);
            return;
        }
    }
}

// The last character moves, and a hyphen stands in for it.
void LineFiller::hyphenateWord()
{
    const int last = m_line.fragments.size() - 1;
    const QString text = m_line.fragments.at(last).text;
    bool isInsideWord = false;
    if (text.length() >= 2) {
        if (last == 0 && text.length() == 2)
            return;
        isInsideWord = isWordCharacter(text.at(text.length() - 2));
        carryOver({last, text.length() - 1}, false);
    } else {
        if (last == 0)
            return;
        isInsideWord = endsInWord(m_line.fragments.at(last - 1).text);
        carryOver({last, 0}, false);
    }
    // Deliberate: neither the advance of the run nor the text of the line grows by the hyphen.
    if (isInsideWord)
        m_line.fragments.last().text += QLatin1Char('-');
}

TextFragment LineFiller::part(const TextFragment &run, const QString &text, bool compress) const
{
    TextFragment result = run;
    result.text = text;
    result.length = text.length();
    result.advance = QFontMetricsF(run.font).horizontalAdvance(text)
                     * alongScale(run, m_rules.orientation);
    if (compress && isPunctuationPiece(text)) {
        result.isHalfPunct = true;
        result.advance *= 0.5;
    }
    return result;
}

// Moves the end of the line to the next one. Deliberate: a second lot goes behind the first, and
// begins again at the start of the line.
void LineFiller::carryOver(const CutPoint &cut, bool compress)
{
    const TextFragment run = m_line.fragments.at(cut.fragment);
    QList<TextFragment> moving = m_line.fragments.mid(cut.fragment + 1);
    moving.prepend(part(run, run.text.mid(cut.character), compress));
    m_line.fragments = m_line.fragments.mid(0, cut.fragment);
    if (cut.character > 0)
        m_line.fragments.append(part(run, run.text.left(cut.character), compress));
    m_pen = advanceOf(m_line.fragments);
    m_line.text.truncate(lengthOf(m_line.fragments));

    int position = m_line.text.length() + m_line.fragments.first().position;
    qreal start = m_rules.left;
    for (TextFragment &moved : moving) {
        moved.start = start;
        moved.position = position;
        position += moved.length;
        start += moved.advance;
        m_carried += moved.advance;
        m_next.text += moved.text;
        m_next.fragments.append(moved);
    }
    m_next.length = m_next.text.length();
    m_next.position = m_next.fragments.first().position;
}
