// SPDX-License-Identifier: MIT
// legacyrecords.h -- the plain records of the older layout: lines of runs, pixels at the document's dpi.
#ifndef LEGACYRECORDS_H
#define LEGACYRECORDS_H

#include <QList>
#include <QPainterPath>
#include <QSizeF>
#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>

/// True for superscript and subscript, which the older layout shows at half the size.
inline bool isHalfSize(const QTextCharFormat &format)
{
    const int alignment = format.intProperty(QTextFormat::TextVerticalAlignment);
    return alignment == QTextCharFormat::AlignSuperScript
           || alignment == QTextCharFormat::AlignSubScript;
}

/// A piece of a block in one format, before it is put on a line.
struct SFragment {
    QTextCharFormat format;
    int position = -1; ///< document position of its first character
    QString text;      ///< in capitals where the format says so
    double width = 0;  ///< CWordProcess::textWidth() of it
};

/// A run placed on a line.
struct STextItem {
    QTextCharFormat format; ///< as setText() leaves it: no bars, letter spacing in pixels
    QPainterPath path;      ///< outline
    QString text;
    int position = -1;         ///< document position; -2 marks a generated hyphen
    double baselineOffset = 0; ///< positive is up
    bool upright = false;      ///< one CJK character that stands upright in vertical text
    double spaceWidth = 0;     ///< of one space
    double spaceHeight = 0;
    int leadingSpaces = 0;
    int trailingSpaces = 0;
    bool strikeOut = false; ///< the bars, as the format had them
    bool overline = false;
    bool underline = false;
    double letterSpacing = 0;         ///< gap ahead of the run
    double selectedLetterSpacing = 0; ///< behind each character
    bool isHyphen = false;            ///< generated: no character of the document stands behind it
    double ascent = 0;                ///< lower edge of the unscaled ink, from fragmentPath()
    QTextCharFormat madeFrom;         ///< the format that setText() was given
    int positionShift = 0;            ///< by which a repair of a line's end has set position off
    double placedAdvance = 0;         ///< itemWidth() in its place, clipped or not
    double inkAcross = 0;             ///< across the line, without scales; 0 while not measured

    /// The document position of the first character, whatever position has come to.
    int firstPosition() const { return position - positionShift; }
    /// Takes format and text for a document of \a dpi; the outline is the caller's. Deliberate: an empty text
    /// changes the format alone.
    void setText(const QTextCharFormat &newFormat, const QString &newText, int dpi);
    /// Length along a line of \a orientation: the ink and the spaces at the ends, which have none.
    /// \param spacing  justifying space behind each character
    double itemWidth(Qt::Orientation orientation, double spacing) const;
    /// Counts the white space at both ends of \a text, which has no ink: ahead from a first blank on, behind
    /// up to a last blank. Text of white space alone has it all ahead.
    static void spaceCounts(const QString &text, int &leading, int &trailing);
    /// Width and height of one blank of \a format in pixels, scales included.
    static QSizeF space_size(const QTextCharFormat &format, int dpi);
};

/// One line, or one column of vertical text. "Along" is the way in which the text runs.
struct STextLine {
    QList<STextItem> items; ///< in reading order
    double advance = 0;     ///< to the next line
    double width = 0;       ///< of the items together, along the line
    bool isLastLine = false;
    bool isFirstLine = false; ///< of its block
    int alignment = -1;       ///< a Qt alignment or one of our own, see CWordProcess::lineXOffset()
    double leftMargin = 0;    ///< along the line
    double rightMargin = 0;
    double indent = 0;         ///< first lines only
    double lastLineSpace = 0;  ///< behind the block
    double firstLineSpace = 0; ///< ahead of the block
    double baseline = 0;       ///< inside the line
    double height = 0;         ///< of the tallest item, across the line
    double rowSpacing = 0;     ///< the largest of the items
    int orientation = 0;
    QTextBlockFormat blockFormat; ///< a line with an empty one is never updated
    bool reserved = false;        ///< goes along with the line; has no reader

    /// Takes the measures of the block. isFirstLine is to be set already.
    /// \return what they take away from the line: both margins and the indent
    double setBlockFormat(const QTextBlockFormat &format, int dpi, Qt::Orientation direction);
    /// Number of the line's characters that stand in the document.
    int length() const;
    /// Measures the line anew from its items, for a document of \a dpi.
    void updateItems(int dpi);
};

#endif
