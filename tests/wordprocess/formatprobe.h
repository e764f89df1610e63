// SPDX-License-Identifier: MIT
// formatprobe.h -- making formats with one property more, and asking a text for the formats it has.
#ifndef FORMATPROBE_H
#define FORMATPROBE_H

#include "openword.h"

/// \a format with one property more.
inline QTextCharFormat with(int id, const QVariant &value,
                            QTextCharFormat format = OpenWord::format())
{
    format.setProperty(id, value);
    return format;
}

/// A format of one property.
inline QTextCharFormat only(int id, const QVariant &value)
{
    return with(id, value, QTextCharFormat());
}

/// The format of the character at \a position.
inline QTextCharFormat formatAt(const OpenWord &word, int position)
{
    QTextCursor cursor(word.m_document);
    cursor.setPosition(position);
    cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
    return cursor.charFormat();
}

inline QTextBlock blockOf(const OpenWord &word, int number)
{
    return word.m_document->findBlockByNumber(number);
}

#endif
