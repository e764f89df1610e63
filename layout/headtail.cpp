// SPDX-License-Identifier: MIT
// Line-head and line-tail rules: which characters may not begin or end a line, and where a line
// that would break the rule is cut.
#include "layout/headtail.h"

#include "layout/multitextobject.h"

#include <functional>
#include <iterator>

namespace {

// clang-format off
constexpr unsigned short relaxHead[] = {
    0x2019, 0x201D, 0x3001, 0x3002, 0x3005, 0x003E, 0x300B, 0x300D, 0x300F, 0x3011,
    0x3015, 0xFF01, 0xFF09, 0xFF0C, 0x002E, 0xFF1A, 0xFF1B, 0xFF1F, 0x005D, 0x007D,
};

constexpr unsigned short relaxTail[] = {
    0x2018, 0x201C, 0x003C, 0x300A, 0x300C, 0x300E, 0x3010, 0x3014, 0x0028, 0x005B,
    0x007B,
};

// Deliberate: the full-size kana and not the small ones. Repeats vanish in the set.
constexpr unsigned short strictHead[] = {
    0xFF01, 0xFF09, 0xFF0C, 0x002E, 0xFF1A, 0xFF1B, 0xFF1F, 0x005D, 0x007D, 0x00A2,
    0x2014, 0x2019, 0x201D, 0x2030, 0x2103, 0x2109, 0x3001, 0x3002, 0x3005, 0x003E,
    0x300B, 0x300D, 0x300F, 0x3011, 0x3015, 0x3042, 0x3044, 0x3046, 0x3048, 0x304A,
    0x3064, 0x3084, 0x3086, 0x3088, 0x308F, 0x002A, 0x00B0, 0x003E, 0x309E, 0x30A2,
    0x30A4, 0x30A6, 0x30A8, 0x30AA, 0x30C4, 0x30E4, 0x30E6, 0x30E8, 0x30EF, 0x30AB,
    0x30B1, 0x00B7, 0x2014, 0xFF01, 0xFF05, 0xFF09, 0xFF0C, 0x002E, 0xFF1A, 0xFF1B,
    0xFF1F, 0xFF3D, 0xFF5D,
};

constexpr unsigned short strictTail[] = {
    0x0028, 0x005B, 0x007B, 0x00A3, 0x00A7, 0x2018, 0x201C, 0x003C, 0x300A, 0x300C,
    0x300E, 0x3010, 0x3012, 0x3014, 0x0023, 0x0024, 0x0028, 0x0040, 0x005B, 0x007B,
    0x00A5,
};
// clang-format on

template<std::size_t size>
QSet<unsigned short> setOf(const unsigned short (&codes)[size])
{
    return QSet<unsigned short>(std::begin(codes), std::end(codes));
}

struct LineEndSets {
    const QSet<unsigned short> &head;
    const QSet<unsigned short> &tail;
};

LineEndSets lineEndSets(int mode)
{
    if (mode == 1)
        return {_jis_relax_head, _jis_relax_tail};
    return {_jis_strict_head, _jis_strict_tail};
}

// The last character of the line that passes the test, moved back to the start of its code point.
std::optional<CutPoint> lastCharacter(const TextLine &line,
                                      const std::function<bool(ushort)> &isWanted)
{
    for (int i = line.fragments.size() - 1; i >= 0; --i) {
        const QString &text = line.fragments.at(i).text;
        for (int k = text.length() - 1; k >= 0; --k) {
            if (!isWanted(text.at(k).unicode()))
                continue;
            const bool isPair = k > 0 && text.at(k).isLowSurrogate()
                                && text.at(k - 1).isHighSurrogate();
            return CutPoint{i, isPair ? k - 1 : k};
        }
    }
    return std::nullopt;
}

bool endsIn(const TextLine &line, const QSet<unsigned short> &set)
{
    const QString &text = line.fragments.last().text;
    return !text.isEmpty() && set.contains(text.at(text.length() - 1).unicode());
}

} // namespace

const QSet<unsigned short> _jis_relax_head = setOf(relaxHead);
const QSet<unsigned short> _jis_relax_tail = setOf(relaxTail);
const QSet<unsigned short> _jis_strict_head = setOf(strictHead);
const QSet<unsigned short> _jis_strict_tail = setOf(strictTail);

bool isHeadTailRuleOn(int mode)
{
    return mode == 1 || mode == 2;
}

std::optional<CutPoint> horizontalCut(const TextLine &line, int mode)
{
    const LineEndSets sets = lineEndSets(mode);
    // Deliberate: the head rule moves nothing in horizontal text.
    if (!endsIn(line, sets.tail))
        return std::nullopt;
    // Deliberate: the character ahead of the forbidden tail leaves the line too.
    return lastCharacter(line, [&](ushort code) { return !sets.tail.contains(code); });
}

std::optional<CutPoint> verticalCut(const TextLine &line, int mode, const QString &rest)
{
    const LineEndSets sets = lineEndSets(mode);
    if (endsIn(line, sets.tail))
        return lastCharacter(line, [&](ushort code) { return !sets.tail.contains(code); });
    if (rest.isEmpty() || !sets.head.contains(rest.at(0).unicode()))
        return std::nullopt;
    return lastCharacter(line, [&](ushort code) {
        return !sets.head.contains(code) && !sets.tail.contains(code);
    });
}

void CMultiTextOjbect::findAvoidHeadTailChByHorizontal(const TextLine &line, int mode,
                                                       const QString & /*rest*/, int &fragmentIndex,
                                                       int &charIndex)
{
    if (!isHeadTailRuleOn(mode) || line.fragments.isEmpty()) {
        fragmentIndex = charIndex = -1;
        return;
    }
    if (const std::optional<CutPoint> cut = horizontalCut(line, mode)) {
        fragmentIndex = cut->fragment;
        charIndex = cut->character;
    }
}

void CMultiTextOjbect::findAvoidHeadTailChByVertical(const TextLine &line, int mode,
                                                     const QString &rest, int &fragmentIndex,
                                                     int &charIndex)
{
    if (!isHeadTailRuleOn(mode) || line.fragments.isEmpty()) {
        fragmentIndex = charIndex = -1;
        return;
    }
    if (const std::optional<CutPoint> cut = verticalCut(line, mode, rest)) {
        fragmentIndex = cut->fragment;
        charIndex = cut->character;
    }
}
