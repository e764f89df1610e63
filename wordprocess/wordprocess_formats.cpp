// SPDX-License-Identifier: MIT
// wordprocess_formats.cpp -- CWordProcess: where a format lands, what formats have in common, the selection,
// the placement.
// Applying changes the formats of m_document and moves m_cursor; it never lays out.
#include "wordprocess/cwordprocess.h"

#include "layout/textproperties.h"
#include "layout/units.h"
#include "wordprocess/fontweight.h"
#include "wordprocess/fragmentwalk.h"
#include "wordprocess/numbers.h"

namespace {
bool turnsCapitalsOff(const QTextCharFormat &format)
{
    return format.hasProperty(TextProperty::UpperCase)
           && !format.property(TextProperty::UpperCase).toBool();
}

/// Takes the capitals off what \a cursor selects, or off what is typed next.
void clearCapitals(QTextCursor &cursor)
{
    QTextCharFormat format = cursor.charFormat();
    format.clearProperty(TextProperty::UpperCase);
    cursor.setCharFormat(format);
}

/// The same for a selection of many runs, which keep their other formats.
void clearCapitalsRunByRun(QTextCursor cursor)
{
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    QTextBlock block = cursor.document()->findBlock(start);
    for (; block.isValid() && block.position() < end; block = block.next())
        forEachRun(cursor, block, start, end, [&](bool) { clearCapitals(cursor); });
}

/// What is merged onto a run of format \a run: a size becomes pixels in the font of the run, and all that
/// \a format says itself wins over that font.
QTextCharFormat formatForRun(const QTextCharFormat &format, const QTextCharFormat &run, int dpi)
{
    const double points = format.property(QTextFormat::FontPointSize).toReal();
    if (!(points > 0))
        return format;
    QFont font = run.font();
    setMeasuringPixelSize(font, truncated(points * dpi / 72));
    const QString family = format.stringProperty(QTextFormat::FontFamily);
    if (!family.isEmpty())
        font.setFamily(family);
    // setFont() writes all properties of the run's font, also over those that were asked for. merge() brings
    // these back, and with them a family without a name, in whose place the run's own stays.
    QTextCharFormat result = format;
    result.setFont(font);
    result.merge(format);
    result.setProperty(QTextFormat::FontFamily, font.family());
    return result;
}

void applyToRun(QTextCursor &cursor, const QTextCharFormat &format, int dpi)
{
    cursor.mergeCharFormat(formatForRun(format, cursor.charFormat(), dpi));
    if (turnsCapitalsOff(format))
        clearCapitals(cursor);
}

QTextFragment fragmentAt(const QTextBlock &block, int position)
{
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        if (it.fragment().contains(position))
            return it.fragment();
    }
    return QTextFragment();
}

struct Range {
    int start;
    int end;
};

/// The whole code point of \a text around the unit at \a index.
Range characterAround(const QString &text, int index)
{
    const bool isTail = text.at(index).isLowSurrogate() && index > 0
                        && text.at(index - 1).isHighSurrogate();
    const int start = isTail ? index - 1 : index;
    const bool isPair = text.at(start).isHighSurrogate() && start + 1 < text.size()
                        && text.at(start + 1).isLowSurrogate();
    return {start, start + (isPair ? 2 : 1)};
}

/// What becomes of a property in which two formats differ.
enum class OnDifference {
    LeftOut,
    Blank,      ///< ""; nothing at all when neither format has it
    BlankUnset, ///< "", also when the first format has it not
};

/// One property that two formats may have in common.
struct CommonRow {
    int property;
    OnDifference onDifference;
    /// Takes the place of the comparison of the two values, for what is not compared as it is stored.
    void (*keep)(QTextFormat &result, const QTextCharFormat &a, const QTextCharFormat &b) = nullptr;
};

void keepWeight(QTextFormat &result, const QTextCharFormat &a, const QTextCharFormat &b)
{
    if (isBold(a) == isBold(b))
        result.setProperty(QTextFormat::FontWeight, a.fontWeight());
}

void keepUnderline(QTextFormat &result, const QTextCharFormat &a, const QTextCharFormat &b)
{
    if (a.fontUnderline() == b.fontUnderline())
        result.setProperty(QTextFormat::TextUnderlineStyle, a.fontUnderline() ? 1 : 0);
}

// Formats are equal only when their properties were set in the same order: the rows keep theirs.
// clang-format off
const CommonRow commonCharRows[] = {
    {QTextFormat::FontFamily,             OnDifference::Blank},
    {QTextFormat::FontWeight,             OnDifference::LeftOut, keepWeight},
    {QTextFormat::FontItalic,             OnDifference::LeftOut},
    {TextProperty::LetterSpacing,         OnDifference::BlankUnset},
    {TextProperty::LeadingGap,            OnDifference::BlankUnset},
    {QTextFormat::FontPointSize,          OnDifference::LeftOut},
    {QTextFormat::TextUnderlineStyle,     OnDifference::LeftOut, keepUnderline},
    {QTextFormat::FontStrikeOut,          OnDifference::LeftOut},
    {QTextFormat::ForegroundBrush,        OnDifference::LeftOut},
    {QTextFormat::FontStyleName,          OnDifference::LeftOut},
    {TextProperty::HorizontalScale,       OnDifference::BlankUnset},
    {QTextFormat::TextVerticalAlignment,  OnDifference::LeftOut},
    {TextProperty::VerticalScale,         OnDifference::Blank},
    {TextProperty::BaselineOffset,        OnDifference::Blank},
    {TextProperty::UpperCase,             OnDifference::Blank},
    {TextProperty::RowSpacing,            OnDifference::Blank},
};
const CommonRow commonBlockRows[] = {
    {QTextFormat::BlockAlignment,         OnDifference::LeftOut},
    {TextProperty::Alignment,             OnDifference::BlankUnset},
    {TextProperty::SpaceAheadOfBlock,     OnDifference::BlankUnset},
    {TextProperty::SpaceBehindBlock,      OnDifference::BlankUnset},
    {TextProperty::FirstLineIndent,       OnDifference::BlankUnset},
    {TextProperty::LeftIndent,            OnDifference::BlankUnset},
    {TextProperty::RightIndent,           OnDifference::BlankUnset},
    {TextProperty::Hyphenate,             OnDifference::BlankUnset},
    {TextProperty::HeadTailRule,          OnDifference::BlankUnset},
    {TextProperty::PunctuationExtra,      OnDifference::BlankUnset},
};
// clang-format on

void keepRow(QTextFormat &result, const CommonRow &row, const QTextFormat &a, const QTextFormat &b)
{
    const QVariant value = a.property(row.property);
    const bool isUnset = row.onDifference == OnDifference::BlankUnset
                         && !a.hasProperty(row.property);
    if (value == b.property(row.property) && !isUnset)
        result.setProperty(row.property, value);
    else if (row.onDifference != OnDifference::LeftOut)
        result.setProperty(row.property, QString());
}

template<typename Format, std::size_t count>
Format commonOf(const CommonRow (&rows)[count], const Format &a, const Format &b)
{
    if (a == b)
        return a;
    Format result;
    for (const CommonRow &row : rows) {
        if (row.keep)
            row.keep(result, a.toCharFormat(), b.toCharFormat());
        else
            keepRow(result, row, a, b);
    }
    return result;
}
} // namespace

bool CWordProcess::updateCharFormat(const QTextCharFormat &format)
{
    const EditBlock step(*m_cursor);
    if (!m_editing && !m_document->isEmpty())
        applyToAllRuns(format);
    else
        applyAtCursor(format);
    return true;
}

void CWordProcess::applyToAllRuns(const QTextCharFormat &format)
{
    for (QTextBlock block = m_document->firstBlock(); block.isValid(); block = block.next()) {
        if (block.begin().atEnd()) {
            m_cursor->setPosition(block.position());
            m_cursor->mergeCharFormat(format);
            m_cursor->setBlockCharFormat(m_cursor->charFormat());
        }
        forEachRun(*m_cursor, block, [&](bool isFirstOfBlock) {
            applyToRun(*m_cursor, format, m_documentDpi);
            if (isFirstOfBlock)
                m_cursor->setBlockCharFormat(m_cursor->charFormat());
        });
    }
    m_cursor->clearSelection();
}

void CWordProcess::applyAtCursor(const QTextCharFormat &format)
{
    putCursorOnSelection();
    if (!m_cursor->hasSelection() && m_cursor->charFormat().isEmpty())
        m_cursor->setCharFormat(format);
    else
        m_cursor->mergeCharFormat(format);
    if (turnsCapitalsOff(format)) {
        if (m_cursor->hasSelection())
            clearCapitalsRunByRun(*m_cursor);
        else
            clearCapitals(*m_cursor);
    }
    m_cursor->setBlockCharFormat(m_cursor->charFormat());
}

bool CWordProcess::updateBlockFormat(const QTextBlockFormat &format)
{
    const EditBlock step(*m_cursor);
    if (!m_editing && !m_document->isEmpty()) {
        m_cursor->setPosition(0);
        do
            m_cursor->mergeBlockFormat(format);
        while (m_cursor->movePosition(QTextCursor::NextBlock));
        return true;
    }
    putCursorOnSelection();
    if (!m_cursor->hasSelection() && m_cursor->blockFormat().isEmpty())
        m_cursor->setBlockFormat(format);
    else
        m_cursor->mergeBlockFormat(format);
    return true;
}

void CWordProcess::putCursorOnSelection()
{
    int start = 0;
    int end = 0;
    if (!selection(start, end)) {
        dropCursorSelection();
        return;
    }
    if (m_cursor->selectionStart() == start && m_cursor->selectionEnd() == end)
        return;
    m_cursor->setPosition(start);
    m_cursor->setPosition(end, QTextCursor::KeepAnchor);
}

QTextCharFormat CWordProcess::compareCharFormat(const QTextCharFormat &a,
                                                const QTextCharFormat &b) const
{
    return commonOf(commonCharRows, a, b);
}

QTextBlockFormat CWordProcess::compareBlockFormat(const QTextBlockFormat &a,
                                                  const QTextBlockFormat &b) const
{
    return commonOf(commonBlockRows, a, b);
}

bool CWordProcess::selection(int &start, int &end) const
{
    const int last = m_document->characterCount() - 1; // the fields keep what a file said
    start = qBound(0, qMin(m_selStart, m_selEnd), last);
    end = qBound(0, qMax(m_selStart, m_selEnd), last);
    return start != end;
}

double CWordProcess::letterSpacing(const QTextCharFormat &format) const
{
    double sum = 0;
    for (int id : {TextProperty::LetterSpacing, TextProperty::LeadingGap})
        sum += finiteReal(format.property(id));
    const int points = truncated(format.property(QTextFormat::FontPointSize).toReal());
    return finiteOrZero(m_documentDpi * (points * sum / 1000) / 72);
}

void CWordProcess::setCharLetterSpacing(double value)
{
    const int position = m_cursor->position();
    const QTextBlock block = m_document->findBlock(position);
    const QTextFragment run = fragmentAt(block, position);
    if (!run.isValid())
        return;
    const Range character = characterAround(run.text(), position - run.position());
    const bool isWholeRun = character.end - character.start == run.length();
    // Deliberate: at the start of a block only a character that is a run of its own is spaced.
    if (position == block.position() && !isWholeRun)
        return;
    QTextCharFormat changed = run.charFormat();
    changed.setProperty(TextProperty::LeadingGap, finiteOrZero(value));
    m_cursor->setPosition(run.position() + character.start);
    m_cursor->setPosition(run.position() + character.end, QTextCursor::KeepAnchor);
    m_cursor->setCharFormat(changed);
    m_cursor->setPosition(position);
}

void CWordProcess::checkParagraphAlignType() const
{
    const auto alignmentOf = [](const QTextBlock &block) {
        return block.blockFormat().property(TextProperty::Alignment);
    };
    // Deliberate: a look for paragraphs that are aligned differently, without a result.
    QTextBlock block = m_document->firstBlock();
    while (block.next().isValid() && alignmentOf(block.next()) == alignmentOf(block))
        block = block.next();
}

QTransform CWordProcess::getTextTransform()
{
    double sx = m_scaleX;
    double sy = m_scaleY;
    double angle = rotation();
    if (m_showFontImage) {
        sx *= m_fontImageScaleX;
        sy *= m_fontImageScaleY;
        angle += m_fontImageRotation;
    } else if (m_wordWrap) {
        sx *= m_transformScaleX;
        sy *= m_transformScaleY;
    }
    QPointF origin;
    if (m_wordWrap) {
        origin = QPointF(m_morphRect.x() * sx - sx * m_boundsMargins.left,
                         m_morphRect.y() * sy - sy * m_boundsMargins.top);
    } else if (m_showFontImage && m_textOffset.isNull()) {
        origin = m_fontImageClient.topLeft();
    } else {
        origin = QPointF(m_textOffset.x() * sx, m_textOffset.y() * sy);
    }
    const QPointF scene = mapToScene(origin);
    QTransform transform;
    transform.translate(scene.x(), scene.y());
    if (isFlip())
        transform.rotate(180, Qt::XAxis);
    if (isMirror())
        transform.rotate(180, Qt::YAxis);
    transform.rotate(angle, Qt::ZAxis);
    transform.scale(sx, sy);
    return transform;
}
