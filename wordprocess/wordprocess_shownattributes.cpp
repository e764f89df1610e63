// SPDX-License-Identifier: MIT
// wordprocess_shownattributes.cpp -- CWordProcess: the attribute map that a host's panels show.
// Changes nothing: asking for attributes leaves cursor and selection alone.
#include "wordprocess/attributecommand.h"

#include "layout/textproperties.h"

#include <QTextBlock>

namespace {
/// Folds formats one after the other into what all of them have in common.
struct CommonFormats {
    const CWordProcess &object;
    QTextCharFormat &charFormat;
    QTextBlockFormat &blockFormat;
    bool hasChar = false;
    bool hasBlock = false;

    void fold(const QTextBlockFormat &format)
    {
        blockFormat = hasBlock ? object.compareBlockFormat(blockFormat, format) : format;
        hasBlock = true;
    }
    void fold(const QTextCharFormat &format)
    {
        charFormat = hasChar ? object.compareCharFormat(charFormat, format) : format;
        hasChar = true;
    }
};

bool overlaps(int position, int length, int start, int end)
{
    return position < end && start < position + length;
}
} // namespace

bool CWordProcess::getAllAttributes(AttributeMap &attributes)
{
    QTextCharFormat charFormat;
    QTextBlockFormat blockFormat;
    int start = 0;
    int end = 0;
    if (!m_editing)
        foldFormats(charFormat, blockFormat, 0, m_document->characterCount());
    else if (selection(start, end))
        foldFormats(charFormat, blockFormat, start, end);
    if (charFormat.isEmpty())
        charFormat = charFormatAtCaret();
    if (blockFormat.isEmpty())
        blockFormat = m_cursor->blockFormat();
    charFormat2Attr(charFormat, attributes, true);
    blockFormat2Attr(blockFormat, attributes, true);
    addObjectAttributes(attributes);
    return true;
}

/// Folds the runs and blocks that overlap the document positions from \a start to \a end.
void CWordProcess::foldFormats(QTextCharFormat &charFormat, QTextBlockFormat &blockFormat,
                               int start, int end) const
{
    CommonFormats common{*this, charFormat, blockFormat};
    for (QTextBlock block = m_document->findBlock(qMax(0, start));
         block.isValid() && block.position() < end; block = block.next()) {
        common.fold(block.blockFormat());
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            if (overlaps(run.position(), run.length(), start, end))
                common.fold(run.charFormat());
        }
    }
}

/// The format at the caret; the character to its right decides the letter spacing.
QTextCharFormat CWordProcess::charFormatAtCaret() const
{
    QTextCharFormat format = m_cursor->charFormat();
    QTextCursor right(*m_cursor);
    right.setPosition(m_cursor->position());
    if (right.movePosition(QTextCursor::NextCharacter))
        format.setProperty(TextProperty::LeadingGap,
                           right.charFormat().property(TextProperty::LeadingGap));
    return format;
}

void CWordProcess::addObjectAttributes(AttributeMap &attributes) const
{
    attributes[AttributeKey::Text] = toPlainText();
    attributes[AttributeKey::EditFlag] = m_editing;
    attributes[AttributeKey::Horizontal] = m_textOrientation == Qt::Horizontal;
    attributes[AttributeKey::WordWrap] = m_wordWrap;
    attributes[AttributeKey::AutoWordWrap] = m_autoWordWrap;
    addWarpAttributes(attributes);
    attributes[AttributeKey::TransformXx] = m_scaleX;
    attributes[AttributeKey::TransformYy] = m_scaleY;
}
