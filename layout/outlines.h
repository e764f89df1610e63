// SPDX-License-Identifier: MIT
#ifndef OUTLINES_H
#define OUTLINES_H

#include "layout/recenthash.h"

#include <QFont>
#include <QHash>
#include <QPainterPath>
#include <QPointF>
#include <QRawFont>
#include <QString>
#include <QVector>

class QFontMetricsF;

/// Notices that fonts have come to the program or gone: then those of the same description may no
/// longer look alike.
class FontWatch
{
public:
    /// True when fonts have come or gone since the call before, and at the first one.
    bool haveChanged();

private:
    QRawFont m_probe; // loaded anew whenever that happens
};

/// A text in a font.
struct FontText {
    QFont font;
    QString text;
};
bool operator==(const FontText &a, const FontText &b);
uint qHash(const FontText &key, uint seed = 0);

/// Makes the outlines of layout after layout; a glyph or an upright character that comes again is
/// copied and not made again, and a text that comes again is neither measured nor shaped again.
/// Shapes text with the shaper that addText() itself uses. The outlines are those of
/// QPainterPath::addText(), bit for bit. What is kept has a bound.
class OutlineSource
{
public:
    OutlineSource();

    /// An outline with its pen at (0, 0), to be raised at a place. addText() makes cubic curves of
    /// quadratic ones at the place, in rounded numbers: those are kept as they are in the font.
    class Glyph
    {
    public:
        Glyph() = default;
        explicit Glyph(const QPainterPath &path);

        const QPainterPath &path() const { return m_path; }

        /// The outline that addText() makes at \a place, a point of its grid.
        QPainterPath at(const QPointF &place) const;

    private:
        struct Curve {
            int element;     // its first control point
            QPointF control; // of the quadratic curve
        };

        QPainterPath m_path;
        QVector<Curve> m_quadratic;
    };

    /// Begins a layout: forgets everything when the program's fonts have changed, since a font of the
    /// same description may no longer look alike, and the glyphs too when they have become many.
    /// \return true when the fonts have changed since the layout before
    bool startLayout();

    /// Forgets all that is kept.
    void clear();

    /// Outline of \a text in \a font with its pen at \a pen.
    QPainterPath text(const QPointF &pen, const QFont &font, const QString &text);

    /// Outline of \a text, one character, with its pen at \a pen.
    QPainterPath character(const QPointF &pen, const QFont &font, const QString &text);

    /// Advance of \a text in \a font. Makes no outline.
    qreal width(const QFont &font, const QString &text);

    /// The same with the metrics of the font at hand. \a text may be raw data.
    qreal width(const QFont &font, const QFontMetricsF &metrics, const QString &text);

private:
    struct PlacedGlyph {
        Glyph glyph;
        QPointF place;
    };

    // A text as the shaper leaves it, its glyphs from the top left of the line.
    struct ShapedText {
        QVector<PlacedGlyph> glyphs; // none for text that has to be left to addText()
        qreal ascent = 0;
        int elements = 0;
        bool hasSeveralRuns = false;
    };

    void clearGlyphs();
    ShapedText shape(const QFont &font, const QString &text);
    QPainterPath fromGlyphs(const QPointF &pen, const QFont &font, const QString &text);
    Glyph glyph(const QRawFont &font, quint32 index);

    FontWatch m_fonts;
    RecentHash<FontText, qreal> m_measured;
    RecentHash<FontText, ShapedText> m_shaped;
    RecentHash<FontText, Glyph> m_characters;        // with their pens at (0, 0)
    QHash<QRawFont, QHash<quint32, Glyph>> m_glyphs; // of loaded fonts: they never change
    int m_glyphElements = 0;
};

/// QPainterPath::addText() as a value.
QPainterPath textOutline(const QPointF &pen, const QFont &font, const QString &text);

/// True for characters that have an advance and a glyph of their own and that neighbours change by
/// kerning or a ligature at most; false for marks, joining scripts, surrogates and controls.
bool standsForItself(QChar character);

#endif // OUTLINES_H
