// SPDX-License-Identifier: MIT
#ifndef TEXTTOOLS_H
#define TEXTTOOLS_H

#include <QChar>
#include <QFont>
#include <QPainterPath>
#include <QPointF>

#include <optional>

/// Character classes and small measurements of fonts and outlines, shared by the layouts. Static
/// functions only; they keep no state. Outlines are in pixels, y down.
class CTextTools
{
public:
    CTextTools() = delete;

    /// True for Han characters, CJK punctuation and full-width forms. Kana, bopomofo, Hangul and
    /// surrogates are not among them: in vertical text they lie on their side like Latin letters.
    static bool isCJKChar(const QChar &character);

    /// True for any punctuation, ASCII too, and for everything from U+3000 to U+303F, so also for
    /// the ideographic space.
    static bool isCJKPunct(QChar character);

    /// Thickness of the underline stroke of \a font in pixels. Costs two outlines and a path
    /// subtraction.
    static qreal getFontLineHeight(QFont font);

    /// Width of a full stop in \a font, scaled by \a scale in both directions.
    static qreal getHalfAngleSize(const QFont &font, qreal scale);

    /// \a path turned by \a angle degrees, clockwise on screen, about \a centre.
    static QPainterPath getRotatePath(const QPainterPath &path, const QPointF &centre, qreal angle);

    /// \a path scaled about the centre of its bounding rectangle (not about the origin).
    static QPainterPath GetScalePath(const QPainterPath &path, qreal sx, qreal sy);

    /// \a path moved by \a offset.
    static QPainterPath GetTranslatePath(const QPainterPath &path, const QPointF &offset);

    /// \a path with every straight segment as a quadratic curve and winding fill. A cubic segment
    /// is deliberately reduced to a quadratic one from its second control point and its end.
    static QPainterPath textPathFillOut(const QPainterPath &path);
};

/// CTextTools::getFontLineHeight() for run after run: neighbours of one font are measured once.
class UnderlineThickness
{
public:
    qreal of(const QFont &font);

private:
    std::optional<QFont> m_font;
    qreal m_thickness = 0;
};

#endif // TEXTTOOLS_H
