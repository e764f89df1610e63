// SPDX-License-Identifier: MIT
// How much of a text fits on a line. Measuring a prefix costs time in proportion to its length, so
// the fast road looks only near the place where the line is expected to end.
#include "layout/fittingsearch.h"

#include "layout/outlines.h"

#include <QtMath>

namespace {

// Texts up to this length are halved without more ado.
constexpr int shortText = 8;

// No script joins characters over a longer distance than this.
constexpr int longestJoin = 512;

} // namespace

MeasuredText::MeasuredText(const QString &text, const QFont &font, qreal scale,
                           FittingSearch search, OutlineSource *source)
    : m_text(text)
    , m_font(font)
    , m_metrics(font)
    , m_source(source)
    , m_scale(scale)
    , m_letterSpacing(font.letterSpacing())
    , m_isFast(search == FittingSearch::Fast && text.length() > shortText)
{
    if (!m_isFast)
        return;
    m_em = m_metrics.height();
    findComplexText();
    for (int i = 0; m_letterSpacing < 0 && i < text.length(); ++i)
        m_possibleLoss += possibleLoss(text.at(i));
}

void MeasuredText::skip(int count)
{
    for (int i = 0; m_isFast && m_letterSpacing < 0 && i < count; ++i)
        m_possibleLoss -= possibleLoss(at(i));
    m_start += count;
    m_latest[0] = m_latest[1] = Measure();
    if (m_isFast && m_complex < m_start)
        findComplexText();
}

qreal MeasuredText::width(int count) const
{
    return measured(count) * m_scale;
}

qreal MeasuredText::measured(int count) const
{
    if (count == m_latest[1].count)
        return m_latest[1].width;
    if (count != m_latest[0].count) {
        m_latest[1] = m_latest[0];
        const QString prefix = QString::fromRawData(m_text.constData() + m_start, count);
        m_latest[0] = {count, m_source ? m_source->width(m_font, m_metrics, prefix)
                                       : m_metrics.horizontalAdvance(prefix)};
    }
    return m_latest[0].width;
}

MeasuredText::Verdict MeasuredText::verdict(int count, const Line &line) const
{
    const qreal end = line.x + width(count);
    if (end == line.limit)
        return Verdict::Exact;
    return end < line.limit ? Verdict::Short : Verdict::Wide;
}

MeasuredText::Fit MeasuredText::fit(qreal x, qreal limit) const
{
    const Line line{x, limit};
    Known known;
    known.farWide = length();
    if (canPredict(line)) {
        const int expected = predictedLength(limit - x);
        if (expected < length() && m_complex > m_start)
            searchSimpleText(expected, line, known);
        // A prefix of simple text that is too wide answers for all longer ones, any other prefix only
        // where no text behind it can make it short again. Either way the whole is too wide too.
        const bool isSimpleToTheEnd = m_complex == m_text.length();
        const bool isWide = isSimpleToTheEnd && known.lastWide >= 0;
        if (!isSimpleToTheEnd)
            known.farWide = surelyWideLength(qMax(expected, known.lastShort), line);
        if (isWide || known.farWide < length())
            return {false, halve(known, line)};
    }
    if (x + width(length()) <= limit)
        return {true, length()};
    return {false, halve(known, line)};
}

int MeasuredText::halve(const Known &known, const Line &line) const
{
    int low = 0;
    int high = length() - 1;
    while (low <= high) {
        const int middle = low + (high - low) / 2;
        Verdict found = Verdict::Short;
        if (middle >= known.farWide || (middle >= known.firstWide && middle <= known.lastWide))
            found = Verdict::Wide;
        else if (middle > known.lastShort)
            found = verdict(middle, line);
        if (found == Verdict::Exact)
            return middle;
        if (found == Verdict::Wide)
            high = middle - 1;
        else
            low = middle + 1;
    }
    return high;
}

bool MeasuredText::canPredict(const Line &line) const
{
    return m_isFast && length() > shortText && m_scale > 0 && qIsFinite(m_scale)
           && qIsFinite(line.x) && qIsFinite(line.limit);
}

qreal MeasuredText::predictedAdvance(QChar character) const
{
    const auto known = m_advances.constFind(character.unicode());
    if (known != m_advances.constEnd())
        return *known;
    const qreal advance = m_metrics.horizontalAdvance(character) + m_letterSpacing;
    m_advances.insert(character.unicode(), advance);
    return advance;
}

// How many characters fit into the room if each of them stood alone.
int MeasuredText::predictedLength(qreal room) const
{
    const qreal unscaled = room / m_scale;
    qreal sum = 0;
    for (int count = 0; count < length(); ++count) {
        sum += predictedAdvance(at(count));
        if (sum > unscaled)
            return count;
    }
    return length();
}

// With negative letter spacing a narrow character can take room away: it is not simple then.
bool MeasuredText::isSimple(QChar character) const
{
    return standsForItself(character)
           && (m_letterSpacing >= 0 || predictedAdvance(character) > m_em / 8);
}

// How much room a character may take away, kerned by an eighth of an em.
qreal MeasuredText::possibleLoss(QChar character) const
{
    if (!standsForItself(character))
        return m_em / 8 - m_letterSpacing;
    return qMax(0.0, m_em / 8 - predictedAdvance(character));
}

void MeasuredText::findComplexText()
{
    m_complex = qMax(m_complex, m_start);
    while (m_complex < m_text.length() && isSimple(m_text.at(m_complex)))
        ++m_complex;
}

// Characters behind such a place change the length of the text before it by less than an em.
bool MeasuredText::isBreak(int count) const
{
    return count == 0 || isSimple(at(count - 1)) || isSimple(at(count));
}

// In simple text longer prefixes are longer: walks outwards from the expected length until one
// prefix fits and the next one does not.
void MeasuredText::searchSimpleText(int expected, const Line &line, Known &known) const
{
    const int longest = qMin(m_complex - m_start, length() - 1);
    int fitting = -1;       // the longest prefix known to fit
    int wide = longest + 1; // the shortest one known not to
    int probe = qMin(expected, longest);
    for (int step = 1; fitting + 1 < wide; step *= 2) {
        if (verdict(probe, line) == Verdict::Wide)
            wide = probe;
        else
            fitting = probe;
        if (fitting >= 0 && wide <= longest)
            probe = fitting + (wide - fitting) / 2;
        else
            probe = wide <= longest ? qMax(0, wide - step) : qMin(longest, fitting + step);
    }
    if (wide <= longest) {
        known.firstWide = wide;
        known.lastWide = longest;
    }
    // Where a prefix fits exactly the plain halving may stop at another one of the same length.
    if (fitting >= 0 && verdict(fitting, line) == Verdict::Short)
        known.lastShort = fitting;
}

// The length of a prefix that no text behind it can make short again; length() if there is none.
int MeasuredText::surelyWideLength(int expected, const Line &line) const
{
    int count = qMax(1, expected);
    while (true) {
        int joined = 0;
        while (count < length() && joined < longestJoin && !isBreak(count)) {
            ++count;
            ++joined;
        }
        if (count >= length())
            return length();
        if (line.x + width(count) > line.limit + (m_em + m_possibleLoss) * m_scale)
            return count;
        count += qMax(shortText, count / 4);
    }
}
