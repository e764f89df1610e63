// SPDX-License-Identifier: MIT
// boxtext.h -- a text object with word wrap on, and a finished layout as text that can be compared.
#ifndef BOXTEXT_H
#define BOXTEXT_H

#include "layouttext.h"
#include "samelayout.h"

#include "layout/multitextobject.h"

#include <QStringList>
#include <QtTest/QTest>

/// Box text to lay out, with the fields open that it reads beside those of LayoutText. 96 dpi, box
/// (0, 0, 1000, 1000), no stretch. The anchor of line text, (10, 20), has to play no part.
/// In the font of squares 12 points are 16 px: ascent 12, descent 4, Latin 8 wide, Han 16 wide;
/// 3, 6 and 9 points of margin are 4, 8 and 12 px.
class BoxText : public LayoutText
{
public:
    using CWordProcess::m_autoWordWrap;
    using CWordProcess::m_clientRect;
    using CWordProcess::m_scaleX;
    using CWordProcess::m_scaleY;
    using CWordProcess::m_transformScaleX;
    using CWordProcess::m_transformScaleY;
    using CWordProcess::m_wordWrap;

    explicit BoxText(qreal width = 1000, qreal height = 1000,
                     Qt::Orientation orientation = Qt::Horizontal)
    {
        m_wordWrap = true;
        m_textOrientation = orientation;
        setBox(QRectF(0, 0, width, height));
    }

    void setBox(const QRectF &box) { m_clientRect = box; }

    /// Format of the last block: one more property.
    void setBlockProperty(int id, const QVariant &value)
    {
        QTextBlockFormat blockFormat = m_document->lastBlock().blockFormat();
        blockFormat.setProperty(id, value);
        setBlock(blockFormat);
    }

    /// Margins of the last block in points, the indent in whole points.
    void setMargins(qreal left, qreal right, int indent = 0)
    {
        QTextBlockFormat blockFormat = m_document->lastBlock().blockFormat();
        blockFormat.setLeftMargin(left);
        blockFormat.setRightMargin(right);
        blockFormat.setIndent(indent);
        setBlock(blockFormat);
    }

    /// The format of the document's first block while that is still empty.
    void setFirstFormat(const QTextCharFormat &charFormat)
    {
        m_cursor->setBlockCharFormat(charFormat);
    }

    /// Off: layOut() does not lay out a second time with the plain search for line ends. For very
    /// long texts, and for results that are not numbers.
    bool comparesSearches = true;

    TextLayout layOut()
    {
        const TextLayout plain = comparesSearches ? plainLayout() : TextLayout();
        CWordManager manager(this, true);
        manager.layout();
        m_boxRect = manager.textOriRect();
        m_pathRect = manager.textPathRect();
        const TextLayout layout = manager.textLayout();
        if (comparesSearches) {
            QTest::qCompare(differenceOf(layout, plain), QString(),
                            "difference between the fast and the plain search", "none", __FILE__,
                            __LINE__);
        }
        return layout;
    }

    /// The box that the last layOut() reported.
    QRectF rect() const { return m_boxRect; }

    /// The area of the outlines that the last layOut() reported.
    QRectF pathRect() const { return m_pathRect; }

private:
    // The object is afterwards as it was.
    TextLayout plainLayout()
    {
        const qreal scaleX = m_scaleX, scaleY = m_scaleY;
        const qreal transformScaleX = m_transformScaleX, transformScaleY = m_transformScaleY;
        CMultiTextOjbect object(this);
        object.setFittingSearch(FittingSearch::Plain);
        object.layout();
        m_scaleX = scaleX;
        m_scaleY = scaleY;
        m_transformScaleX = transformScaleX;
        m_transformScaleY = transformScaleY;
        return object.textLayout();
    }

    QRectF m_boxRect;
    QRectF m_pathRect;
};

/// A format of 12 points with two properties.
inline QTextCharFormat formatWith(int id, const QVariant &value, int otherId,
                                  const QVariant &otherValue)
{
    QTextCharFormat result = LayoutText::format(12, id, value);
    result.setProperty(otherId, otherValue);
    return result;
}

inline QString shown(qreal number)
{
    return QString::number(number + 0.0, 'g', 10); // no negative zero
}

inline QString shown(const QRectF &rect)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(shown(rect.x()), shown(rect.y()), shown(rect.width()), shown(rect.height()));
}

/// Where the ink of a run lies; "none" for a run without outline.
inline QString inkOf(const TextFragment &run)
{
    return run.path.isEmpty() ? QStringLiteral("none") : shown(run.path.boundingRect());
}

/// One string a line: the texts of its runs, "ab|cd-".
inline QStringList runsOf(const TextLayout &layout)
{
    QStringList result;
    for (const TextLine &line : layout.lines) {
        QStringList runs;
        for (const TextFragment &run : line.fragments)
            runs.append(run.text);
        result.append(runs.join(QLatin1Char('|')));
    }
    return result;
}

/// The runs of one line with start and advance: "[ab]0+16 [cd]16+16".
inline QString placesOf(const TextLine &line)
{
    QStringList runs;
    for (const TextFragment &run : line.fragments)
        runs.append(
            QStringLiteral("[%1]%2+%3").arg(run.text, shown(run.start), shown(run.advance)));
    return runs.join(QLatin1Char(' '));
}

inline QStringList placesOf(const TextLayout &layout)
{
    QStringList result;
    for (const TextLine &line : layout.lines)
        result.append(placesOf(line));
    return result;
}

/// The runs of one line with document positions: "0+2 2+3".
inline QString positionsOf(const TextLine &line)
{
    QStringList runs;
    for (const TextFragment &run : line.fragments)
        runs.append(QStringLiteral("%1+%2").arg(run.position).arg(run.length));
    return runs.join(QLatin1Char(' '));
}

/// The across coordinates of all lines: baselines in rows, axes of columns.
inline QList<qreal> acrossOf(const TextLayout &layout)
{
    QList<qreal> result;
    for (const TextLine &line : layout.lines) {
        const bool rows = layout.orientation == Qt::Horizontal;
        result.append(rows ? line.origin.y() : line.origin.x());
    }
    return result;
}

/// Everything of a layout that can be written as text, one entry a line and a run.
inline QStringList dump(const TextLayout &layout)
{
    QStringList result;
    for (const TextLine &line : layout.lines) {
        result.append(QStringLiteral("line pos=%1 len=%2 align=%3 origin=%4,%5 rect=%6 text=%7%8")
                          .arg(line.position)
                          .arg(line.length)
                          .arg(line.alignment)
                          .arg(shown(line.origin.x()), shown(line.origin.y()), shown(line.rect),
                               line.text, QLatin1String(line.isEmptyBlock ? " empty" : "")));
        for (const TextFragment &run : line.fragments) {
            result.append(QStringLiteral("  [%1] pos=%2 len=%3 start=%4 adv=%5 base=%6 scale=%7x%8 "
                                         "font=%9/%10 ink=%11%12%13")
                              .arg(run.text)
                              .arg(run.position)
                              .arg(run.length)
                              .arg(shown(run.start), shown(run.advance), shown(run.baseline),
                                   shown(run.scaleX), shown(run.scaleY))
                              .arg(run.font.pixelSize())
                              .arg(run.font.letterSpacing())
                              .arg(inkOf(run), QLatin1String(run.isCJK ? " upright" : ""),
                                   QLatin1String(run.isHalfPunct ? " half" : "")));
        }
    }
    return result;
}

#endif // BOXTEXT_H
