// SPDX-License-Identifier: MIT
// wordprocess_legacybreaking.cpp -- CWordProcess: the two repairs of a line's ends in the older layout.
// Changes: the lines that are handed in. Reads the document's text and m_textOrientation.
// Nothing is lost or doubled: what leaves a line is put on the next one or handed back.
#include "wordprocess/cwordprocess.h"

#include "layout/headtail.h"
#include "wordprocess/codepoints.h"

#include <optional>

namespace {
using CharacterSet = QSet<unsigned short>;

constexpr int generatedPosition = -2; // of what no character of the document stands behind

struct LineEndRule {
    const CharacterSet &head; ///< may not begin a line
    const CharacterSet &tail; ///< may not end one
};

LineEndRule lineEndRule(int rule)
{
    if (rule == 1)
        return {_jis_relax_head, _jis_relax_tail};
    return {_jis_strict_head, _jis_strict_tail};
}

bool isIn(const CharacterSet &set, QChar character)
{
    return set.contains(character.unicode());
}

/// Where a line may begin in \a text, sought from its end. None when all of it has to go to the next line.
std::optional<int> headCut(const QString &text, const LineEndRule &rule)
{
    int index = text.length() - 1;
    while (index >= 0) {
        if (splitsPair(text, index))
            --index;
        if (isIn(rule.head, text.at(index))) {
            --index;
            continue;
        }
        int ahead = index - 1;
        if (ahead < 0 || !isIn(rule.tail, text.at(ahead)))
            return index;
        while (ahead >= 0 && isIn(rule.tail, text.at(ahead)))
            --ahead;
        index = ahead - 1; // deliberate: not at the character ahead of the tail ones
    }
    return std::nullopt;
}

/// The first character that leaves a line.
struct LineCut {
    int item;
    int character;
};

/// Where the end of \a line is cut for the next line to begin as it may. None where nothing would stay, and
/// where the line ends in a generated hyphen: the letters around that stay as they are.
std::optional<LineCut> headCut(const STextLine &line, const LineEndRule &rule)
{
    if (line.items.isEmpty() || line.items.last().isHyphen)
        return std::nullopt;
    for (int i = line.items.size() - 1; i >= 0; --i) {
        const std::optional<int> index = headCut(line.items.at(i).text, rule);
        if (!index)
            continue;
        if (i == 0 && *index == 0)
            break;
        return LineCut{i, *index};
    }
    return std::nullopt;
}

/// The last character of \a line that may end it; none when none may.
std::optional<LineCut> lastAllowed(const STextLine &line, const CharacterSet &tail)
{
    for (int i = line.items.size() - 1; i >= 0; --i) {
        const QString &text = line.items.at(i).text;
        for (int k = text.length() - 1; k >= 0; --k) {
            if (!isIn(tail, text.at(k)))
                return LineCut{i, k};
        }
    }
    return std::nullopt;
}

/// Deliberate: the character range also takes in [, \, ], ^, _ and the grave accent.
bool isOfWord(QChar character)
{
    return character >= QLatin1Char('A') && character <= QLatin1Char('z');
}

/// Index of the last character that ends a word, -1 for none.
int lastOutsideWord(const QString &text)
{
    int index = text.length() - 1;
    while (index >= 0 && isOfWord(text.at(index)))
        --index;
    return index;
}

bool isLatinLetter(QChar character)
{
    const ushort code = character.unicode();
    if (code <= 127)
        return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
    return character.category() == QChar::Letter_Uppercase
           || character.category() == QChar::Letter_Lowercase;
}

bool endsInLatinLetter(const QString &text)
{
    return !text.isEmpty() && isLatinLetter(text.at(text.length() - 1));
}

/// Moves the position that an item tells. Caret and pointer go by its first character nevertheless.
void setOff(STextItem &item, int shift)
{
    item.position += shift;
    item.positionShift += shift;
}

/// Takes the items from \a first on off the line.
QList<STextItem> takeFrom(STextLine &line, int first)
{
    const QList<STextItem> taken = line.items.mid(first);
    line.items.erase(line.items.begin() + first, line.items.end());
    return taken;
}
} // namespace

void CWordProcess::avoidHeadTail(int rule, QList<STextLine> &lines, double available,
                                 QList<STextItem> &moved)
{
    if (rule == 0 || lines.isEmpty())
        return;
    const STextLine &line = lines.last();
    if (line.items.isEmpty() || line.items.first().text.isEmpty()
        || line.items.last().text.isEmpty())
        return;
    if (!line.isFirstLine && repairLineHead(rule, lines)) {
        cutOverflow(lines.last(), available, moved);
        if (lines.last().items.isEmpty())
            return;
    }
    if (!lines.last().isLastLine)
        repairLineTail(rule, lines.last(), moved);
}

/// Lets the last line begin as it may, with text from the end of the line before.
/// \return true when text has come to it
bool CWordProcess::repairLineHead(int rule, QList<STextLine> &lines) const
{
    const LineEndRule sets = lineEndRule(rule);
    if (lines.size() < 2 || !isIn(sets.head, lines.last().items.first().text.at(0)))
        return false;
    STextLine &before = lines[lines.size() - 2];
    const std::optional<LineCut> cut = headCut(before, sets);
    if (!cut)
        return false;
    QList<STextItem> pulled = takeFrom(before, cut->item);
    if (cut->character > 0) {
        before.items.append(itemPart(pulled.first(), 0, cut->character));
        pulled.first() = itemPart(pulled.first(), cut->character, pulled.first().text.length());
    } else {
        // Deliberate: a run that goes as a whole counts from behind itself.
        setOff(pulled.first(), pulled.first().text.length());
    }
    updateLine(before);
    lines.last().items = pulled + lines.last().items;
    updateLine(lines.last());
    return true;
}

/// Cuts off what has no room any more, where a place for the cut is found.
void CWordProcess::cutOverflow(STextLine &line, double available, QList<STextItem> &moved)
{
    const bool isRow = m_textOrientation == Qt::Horizontal;
    double used = 0;
    for (int i = 0; i < line.items.size(); ++i) {
        const STextItem item = line.items.at(i);
        const double width = item.itemWidth(isRow ? Qt::Horizontal : Qt::Vertical, 0);
        if (!(used + width > available)) {
            used += width;
            continue;
        }
        const int index = autoWrapIndex(item.text, item.format, used, available);
        if (index < 0)
            return;
        QList<STextItem> taken = takeFrom(line, i);
        if (index > 0) {
            line.items.append(itemPart(taken.first(), 0, index));
            taken.first() = itemPart(taken.first(), index, taken.first().text.length());
        }
        moved += taken;
        updateLine(line);
        return;
    }
}

/// Takes characters that may not end the line off its end; a line of nothing else stays.
void CWordProcess::repairLineTail(int rule, STextLine &line, QList<STextItem> &moved) const
{
    const CharacterSet &tail = lineEndRule(rule).tail;
    const std::optional<LineCut> last = lastAllowed(line, tail);
    const int lastItem = line.items.size() - 1;
    if (!last || (last->item == lastItem && last->character == line.items.last().text.length() - 1))
        return;
    const int length = last->character + 1;
    QList<STextItem> taken = takeFrom(line, last->item);
    const STextItem whole = taken.takeFirst();
    if (length < whole.text.length()) {
        line.items.append(itemPart(whole, 0, length));
        STextItem rest = itemPart(whole, length, whole.text.length());
        setOff(rest, whole.text.length() - length); // deliberate: from behind the whole run
        taken.prepend(rest);
    } else {
        line.items.append(whole);
    }
    updateLine(line);
    moved = taken + moved;
}

int CWordProcess::ligatureText(bool hyphenate, QList<STextLine> &lines, QList<STextItem> &moved)
{
    moved.clear();
    if (lines.isEmpty() || lines.last().items.isEmpty()
        || !endsInLatinLetter(lines.last().items.last().text))
        return 0;
    if (hyphenate)
        return cutByHyphen(lines.last(), moved) ? 1 : 0;
    moveCutWord(lines.last(), moved);
    return 0; // deliberate: whole words are not counted
}

/// Takes the word at the end off the line, unless the line is all of it. The line is not measured anew.
void CWordProcess::moveCutWord(STextLine &line, QList<STextItem> &moved) const
{
    int index = line.items.size() - 1;
    while (index > 0 && lastOutsideWord(line.items.at(index).text) < 0)
        --index;
    const int length = lastOutsideWord(line.items.at(index).text) + 1;
    if (length == 0)
        return;
    moved = takeFrom(line, index + 1);
    const STextItem whole = line.items.last();
    // Deliberate: a run that stands in a column is not cut.
    if (m_textOrientation == Qt::Horizontal && length < whole.text.length()) {
        line.items.last() = itemPart(whole, 0, length);
        moved.prepend(itemPart(whole, length, whole.text.length()));
    }
}

/// Takes the last letter off the line where the word goes on behind it, with a hyphen in its place where
/// letters of the word stay. The line is not measured anew. \return true when a letter has left
bool CWordProcess::cutByHyphen(STextLine &line, QList<STextItem> &moved) const
{
    const STextItem whole = line.items.last();
    const int length = whole.text.length();
    const int end = whole.firstPosition() + length;
    const auto isLetterAt = [this](int position) {
        return position >= 0 && position < m_document->characterCount() - 1
               && isLatinLetter(m_document->characterAt(position));
    };
    if (length < 2 || !isLetterAt(end))
        return false;
    STextItem letter = itemPart(whole, length - 1, length);
    setOff(letter, -1); // deliberate: one ahead of the letter
    moved.append(letter);
    line.items.last() = itemPart(whole, 0, length - 1);
    if (isLetterAt(end - 2)) {
        STextItem hyphen = line.items.last();
        replaceItemText(hyphen, QStringLiteral("-"));
        hyphen.position = generatedPosition;
        hyphen.isHyphen = true;
        line.items.append(hyphen);
    }
    return true;
}

/// The characters from \a first up to \a end as a run of its own, with an outline of its own.
STextItem CWordProcess::itemPart(const STextItem &item, int first, int end) const
{
    STextItem part = item;
    replaceItemText(part, item.text.mid(first, end - first));
    part.position = item.position + first;
    return part;
}

/// Measures a line anew. Deliberate: one of a paragraph whose format is empty never is.
void CWordProcess::updateLine(STextLine &line) const
{
    if (!line.blockFormat.isEmpty())
        line.updateItems(m_documentDpi);
}
