// SPDX-License-Identifier: MIT
// artstream.cpp -- CArtText: its stream form, and copying what is carried.
#include "arttext/arttexthelper.h"

#include <QDataStream>

namespace {

/// Reads the next value into \a value, which stays as it was when the stream does not hold one. An
/// earlier fault of the stream stops no reading, and stays reported.
template<typename Value>
bool readNext(QDataStream &stream, Value &value)
{
    const QDataStream::Status before = stream.status();
    stream.resetStatus();
    Value read{};
    stream >> read;
    const bool isRead = stream.status() == QDataStream::Ok;
    if (isRead)
        value = read;
    if (before != QDataStream::Ok) {
        stream.resetStatus();
        stream.setStatus(before);
    }
    return isRead;
}

/// The same for a choice out of 0 to \a last; another number counts as read and is dropped.
bool readChoice(QDataStream &stream, int &value, int last)
{
    int read = 0;
    if (!readNext(stream, read))
        return false;
    if (read >= 0 && read <= last)
        value = read;
    return true;
}

} // namespace

void CArtText::Serialize(QDataStream &stream, bool writing)
{
    if (!stream.device())
        return;
    if (writing)
        write(stream);
    else
        read(stream);
}

void CArtText::write(QDataStream &stream) const
{
    stream << GetColor() << m_string << m_style << m_font;
    stream << m_fill.flag << m_fill.mode << m_fill.brushKind << m_fill.modeValue;
    stream << m_fill.colorA << m_fill.colorB << m_fill.value << m_patternBrush;
    stream << m_hasShadow << m_shadowColor << int(m_shadowOffset.x) << int(m_shadowOffset.y);
    stream << m_dibBrush;
}

void CArtText::read(QDataStream &stream)
{
    QColor color;
    QString text;
    int style = 0;
    QFont font;
    if (!readNext(stream, color) || !readNext(stream, text) || !readNext(stream, style)
        || !readNext(stream, font))
        return;
    m_style = style;
    SetString(text);
    readNext(stream, text); // deliberate: the writer has no second string
    SetFont(font);
    SetColor(color);

    readNext(stream, m_fill.flag);
    readChoice(stream, m_fill.mode, 2);
    readChoice(stream, m_fill.brushKind, 6);
    readNext(stream, m_fill.modeValue);
    readNext(stream, m_fill.colorA);
    readNext(stream, m_fill.colorB);
    readNext(stream, m_fill.value);
    readNext(stream, m_patternBrush);
    readNext(stream, m_hasShadow);
    readNext(stream, m_shadowColor);
    int x = int(m_shadowOffset.x);
    int y = int(m_shadowOffset.y);
    readNext(stream, x);
    readNext(stream, y);
    m_shadowOffset = CPoint(x, y);
    readNext(stream, m_dibBrush);
}

void CArtText::CopyFrom(const CArtText *other)
{
    if (!other || other == this)
        return;
    m_style = other->m_style;
    m_string = other->m_string;
    m_font = other->m_font;
    m_color = other->m_color;
    m_fill = other->m_fill;
    // In this order: choosing a pattern or an outline puts the fill back to a plain colour.
    if (other->m_patternBrush >= 0)
        SetPatternBrush(other->m_patternBrush);
    else
        m_patternBrush = -1;
    ShowShadow(other->m_hasShadow, other->m_shadowColor, other->m_shadowOffset);
    if (other->m_outLine)
        SetOutLine(true);
    else
        m_outLine = false;
    m_dibBrush = other->m_dibBrush.copy();
}
