// SPDX-License-Identifier: MIT
// arttexthelper.h -- CArtText, the path engine that pours outlines between guide lines.
#ifndef ARTTEXTHELPER_H
#define ARTTEXTHELPER_H

/// The path engine. Every text object owns one.
class CArtText
{
public:
    CArtText() = default;
    CArtText(const CArtText &) = delete;
    CArtText &operator=(const CArtText &) = delete;
};

#endif
