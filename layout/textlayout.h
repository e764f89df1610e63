// SPDX-License-Identifier: MIT
#ifndef TEXTLAYOUT_H
#define TEXTLAYOUT_H

#include <QBrush>
#include <QFont>
#include <QLineF>
#include <QList>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QTextCharFormat>

class QTextFragment;
class UnderlineThickness;

// A finished layout as a plain value. Lengths are pixels at the document's dpi, in the coordinates
// of the object's client area. "Along" the line is x in horizontal and y in vertical text,
// "across" it is the other one. Positions are document positions, -1 for none.

/// One run of one format on one line.
struct TextFragment {
    int position = -1; ///< document position of the first character
    int length = 0;    ///< number of document characters
    QString text;      ///< as shown; may hold one trailing "-" that `length` leaves out
    QPainterPath path; ///< final outline, in object coordinates
    QTextCharFormat format;
    qreal advance = 0;         ///< length along the line
    qreal baseline = 0;        ///< across coordinate of the baseline
    qreal start = 0;           ///< along coordinate where the run begins
    qreal scaleX = 1;          ///< horizontal scale that the outline has
    qreal scaleY = 1;          ///< vertical scale that the outline has
    QFont font;                ///< font measured with: pixel size and letter spacing set, no bars
    bool isCJK = false;        ///< one CJK character set upright in vertical text
    bool isEmptyBlock = false; ///< stands for an empty block: no outline, paints nothing
    bool isHalfPunct = false;  ///< punctuation compressed to half its advance

    /// Position, length, format and text of \a fragment, the text upper-cased where the format
    /// says so; the rest stays at its defaults.
    static TextFragment fromQtFragment(const QTextFragment &fragment);

    /// The stretch of baseline that the run covers.
    QLineF getBaseline(Qt::Orientation orientation) const;

    /// True from `position` to `position + length`, both included: a seam belongs to both runs.
    bool contains(int pos) const;

    /// Appends the run's outline and, when it is struck out, its bar, each with the run's
    /// foreground brush.
    void textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                   Qt::Orientation orientation) const;
};

/// One line (horizontal text) or column (vertical text).
struct TextLine {
    QList<TextFragment> fragments; ///< in reading order
    bool isEmptyBlock = false;     ///< stands for an empty block
    int position = -1;             ///< document position of the first character
    int length = 0;                ///< number of characters; 1 for an empty block
    QString text;                  ///< without any added hyphen
    QPointF origin;                ///< across: the baseline; along: anchor or aligned start
    int alignment = -1;            ///< the alignment that the line was laid out with
    QPainterPath path;             ///< all outlines of the line, one after the other
    QFont font;                    ///< font of the tallest run
    QRectF rect;                   ///< box of the line, for caret, selection and underlines

    /// True from `position` to `position + length`; the upper end is left out for an empty block
    /// only, deliberately: the end of a line is still on it, the separator of a block is not.
    bool contains(int pos) const;

    /// Moves everything by (\a dx, \a dy).
    void translate(qreal dx, qreal dy, Qt::Orientation orientation);

    /// TextFragment::getBaseline() of every run, in order.
    QList<QLineF> baselines(Qt::Orientation orientation) const;

    /// Appends all outlines and strike bars in the order of the runs, then the underlines.
    void textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                   Qt::Orientation orientation) const;

    /// Appends one bar for each stretch of underlined runs: rectangles with the runs' foreground
    /// brushes, all as thick as the underline of `font`. A row's bars hang from its greatest
    /// descent; superscript, subscript and shifted runs have bars of their own. A column's bars
    /// touch its ink from the left. Expects valid, ascending \a indices into `fragments`.
    void horizontalUnderlinePath(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                                 const QList<int> &indices) const;
    void verticalUnderlinePath(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                               const QList<int> &indices) const;
    /// The same for line after line: \a measured keeps the thickness of the last font.
    void horizontalUnderlinePath(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                                 const QList<int> &indices, UnderlineThickness &measured) const;
    void verticalUnderlinePath(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                               const QList<int> &indices, UnderlineThickness &measured) const;
};

/// All lines of a text.
struct TextLayout {
    QList<TextLine> lines;
    Qt::Orientation orientation = Qt::Horizontal;
    int dpi = 72;

    /// Appends what is painted: outlines and bars of every line, parallel in both lists.
    void textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes) const;

    /// Moves every line by (\a dx, \a dy).
    void translate(qreal dx, qreal dy);

    /// Baselines of all runs, those of empty blocks left out.
    QList<QLineF> baselines() const;

    /// Caret at \a pos; the null line for a position outside the layout. \a forward decides where
    /// a position at a line's end stands: false there, true at the start of the next line.
    QLineF cursorLine(int pos, bool forward) const;
    QLineF horizontalCursor(int pos, bool forward) const;
    QLineF verticalCursor(int pos, bool forward) const;

    /// Area of the characters from \a start to \a end, one rectangle a line, with winding fill;
    /// empty for a selection outside the layout. Expects \a start <= \a end.
    QPainterPath selectionPath(int start, int end, bool forward) const;
    QPainterPath horizontalSelectionPath(int start, int end, bool forward) const;
    QPainterPath verticalSelectionPath(int start, int end, bool forward) const;
};

#endif // TEXTLAYOUT_H
