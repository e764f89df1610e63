// SPDX-License-Identifier: MIT
// vxarttext_formats.cpp -- CVxArtText: formats of the text item, which show while it is edited.
// Changes: the item's document, and the values that are only kept (fill, shadow).
#include "arttext/vxarttext.h"

#include "arttext/cursorformats.h"

#include <QTextCursor>
#include <QTextDocument>

#include <mutex>

void CVxArtText::mergeFormatOnWordOrSelection(const QTextCharFormat &format)
{
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    QTextCursor cursor = textCursor();
    if (!m_editing) {
        cursor.select(QTextCursor::Document);
        cursor.mergeCharFormat(format);
        cursor.clearSelection();
    } else if (cursor.hasSelection()) {
        cursor.mergeCharFormat(format);
    }
    setTextCursor(cursor);
}

void CVxArtText::setFontBold(bool bold)
{
    QTextCharFormat format;
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    mergeFormatOnWordOrSelection(format);
}

void CVxArtText::setFontItalic(bool italic)
{
    QTextCharFormat format;
    format.setFontItalic(italic);
    mergeFormatOnWordOrSelection(format);
}

void CVxArtText::setFontUnderline(bool underline)
{
    QTextCharFormat format;
    format.setFontUnderline(underline); // writes the style alone
    mergeFormatOnWordOrSelection(format);
}

void CVxArtText::setFontStrikeOut(bool strikeOut)
{
    QTextCharFormat format;
    format.setFontStrikeOut(strikeOut);
    mergeFormatOnWordOrSelection(format);
}

void CVxArtText::setFontFamily(const QString &family)
{
    QTextCharFormat format;
    format.setFontFamily(family);
    mergeFormatOnWordOrSelection(format);
}

void CVxArtText::setFontSize(double size)
{
    QTextCharFormat format;
    format.setFontPointSize(size);
    mergeFormatOnWordOrSelection(format);
}

void CVxArtText::setFontColor(const QColor &color)
{
    QTextCharFormat format;
    format.setForeground(QBrush(color));
    mergeFormatOnWordOrSelection(format);
}

void CVxArtText::setTextMark(int mark)
{
    mergeFormatOnWordOrSelection(CursorFormats::markFormat(mark));
}

void CVxArtText::setTextAlign(Qt::Alignment alignment)
{
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    CursorFormats::alignDocument(textCursor(), alignment);
}

void CVxArtText::setTextStyle(int style)
{
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    QTextCursor cursor = textCursor();
    CursorFormats::setListStyle(cursor, style);
}

void CVxArtText::setLetterSpacing(double /*spacing*/) {}

void CVxArtText::setRowSpacing(double /*spacing*/) {}

void CVxArtText::setCurrentTextFormat()
{
    setFontFamily(m_fontFamily);
    setFontBold(m_fontBold);
    setFontItalic(m_fontItalic);
    setFontColor(m_colorFill); // what the outlines are meant to be filled with
    setTextAlign(Qt::Alignment(m_textAlignment));
    setRowSpacing(m_rowSpacing);
    setLetterSpacing(m_letterSpacing);
}

void CVxArtText::setFillColor(const QColor &color)
{
    m_colorFill = color;
}

void CVxArtText::setShadowSwitch(bool on)
{
    m_isShadow = on;
}

void CVxArtText::setShadowColor(const QColor &color)
{
    m_colorShadow = color;
}

void CVxArtText::setShadowOffset(int x, int y)
{
    m_shadowOffsetX = x;
    m_shadowOffsetY = y;
}

void CVxArtText::setShadowAbsOffset(double x, double y)
{
    m_shadowAbsOffsetX = x;
    m_shadowAbsOffsetY = y;
}
