// SPDX-License-Identifier: MIT
// legacyrecords.h -- the plain records of the older layout: lines of runs, pixels at the document's dpi.
#ifndef LEGACYRECORDS_H
#define LEGACYRECORDS_H

#include <QList>
#include <QPainterPath>
#include <QSizeF>
#include <QString>
#include <QTextCharFormat>

/// True for superscript and subscript, which the older layout shows at half the size.
inline bool isHalfSize(const QTextCharFormat &format)
{
    const int alignment = format.intProperty(QTextFormat::TextVerticalAlignment);
    return alignment == QTextCharFormat::AlignSuperScript
           || alignment == QTextCharFormat::AlignSubScript;
}

/// A run placed on a line.
struct STextItem {
    QTextCharFormat format;
    QPainterPath path;
    QString text;
    int position = -1; ///< document position; -2 marks a generated hyphen

    /// Counts the white space at both ends of \a text, which has no ink: ahead from a first blank on, behind
    /// up to a last blank. Text of white space alone has it all ahead.
    static void spaceCounts(const QString &text, int &leading, int &trailing);
    /// Width and height of one blank of \a format in pixels, scales included.
    static QSizeF space_size(const QTextCharFormat &format, int dpi);
};

/// One line.
struct STextLine {
    QList<STextItem> items;
};

#endif
