// SPDX-License-Identifier: MIT
// codepoints.h -- steps through a text that never end between the two halves of a code point.
#ifndef CODEPOINTS_H
#define CODEPOINTS_H

#include <QString>

/// True between the two halves of a code point.
inline bool splitsPair(const QString &text, int index)
{
    return index > 0 && index < text.length() && text.at(index - 1).isHighSurrogate()
           && text.at(index).isLowSurrogate();
}

inline int indexAfter(const QString &text, int index)
{
    return splitsPair(text, index + 1) ? index + 2 : index + 1;
}

inline int indexBefore(const QString &text, int index)
{
    return splitsPair(text, index - 1) ? index - 2 : index - 1;
}

#endif
