// SPDX-License-Identifier: MIT
#ifndef OUTLINES_H
#define OUTLINES_H

#include <QFont>
#include <QHash>
#include <QPainterPath>
#include <QPointF>
#include <QRawFont>
#include <QString>

/// Makes the outlines of layout after layout; a glyph or an upright character that comes again is
/// copied and not made again. Shapes text with the shaper that addText() itself uses. The outlines
/// are those of QPainterPath::addText(), to the last few bits.
class OutlineSource
{
public:
    /// Begins a layout: forgets what a font of the same description may no longer look like, and the
    /// glyphs too when they have become many.
    void startLayout();

    /// Outline of \a text in \a font with its pen at \a pen.
    QPainterPath text(const QPointF &pen, const QFont &font, const QString &text);

    /// Outline of \a text, one character, with its pen at \a pen.
    QPainterPath character(const QPointF &pen, const QFont &font, const QString &text);

    /// Width of \a text, one character. Makes no outline.
    qreal characterWidth(const QFont &font, const QString &text);

private:
    QPainterPath fromGlyphs(const QPointF &pen, const QFont &font, const QString &text);
    QPainterPath glyph(const QRawFont &font, quint32 index);

    QHash<QRawFont, QHash<quint32, QPainterPath>> m_glyphs; // of loaded fonts: they never change
    int m_glyphElements = 0;
    QHash<QFont, QHash<QString, QPainterPath>> m_characters; // with their pens at (0, 0)
    QHash<QFont, QHash<QString, qreal>> m_widths;
};

/// QPainterPath::addText() as a value.
QPainterPath textOutline(const QPointF &pen, const QFont &font, const QString &text);

/// True for characters that have an advance and a glyph of their own and that neighbours change by
/// kerning or a ligature at most; false for marks, joining scripts, surrogates and controls.
bool standsForItself(QChar character);

#endif // OUTLINES_H
