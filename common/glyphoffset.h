// SPDX-License-Identifier: MIT
#ifndef COMMON_GLYPHOFFSET_H
#define COMMON_GLYPHOFFSET_H

#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QRawFont>
#include <QString>
#include <QTextLayout>
#include <QTransform>

/// Before outlines are made: Qt paints glyphs at fractions of a pixel by an offset that it leaves on the
/// font's face, for all sizes of it, and the next outlines come out moved along the line by up to
/// 0.00075 em. A glyph that is loaded at a whole pixel takes the offset away.
/// \param font  by value: a small copy of it is used
/// \param glyph any glyph of \a font
/// Costs a small picture of that glyph. An invalid font is left alone.
inline void takeGlyphOffsetAway(QRawFont font, quint32 glyph)
{
    constexpr qreal smallSize = 8; // pixels
    // With a perspective, however slight, no picture is kept from an earlier time.
    const QTransform perspective(1, 0, 1e-9, 0, 1, 0, 0, 0, 1);
    if (!font.isValid())
        return;
    font.setPixelSize(smallSize);
    font.alphaMapForGlyph(glyph, QRawFont::PixelAntialiasing, perspective);
}

/// The same for every face that \a text is written in, those of fonts that stand in for \a font too.
/// Costs shaping the text, and a small picture for each face.
inline void takeGlyphOffsetsAway(const QFont &font, const QString &text)
{
    QTextLayout shaper(text, font);
    shaper.beginLayout();
    shaper.createLine();
    shaper.endLayout();
    QList<QRawFont> done;
    const QList<QGlyphRun> runs = shaper.glyphRuns();
    for (const QGlyphRun &run : runs) {
        if (done.contains(run.rawFont()))
            continue;
        done.append(run.rawFont());
        takeGlyphOffsetAway(run.rawFont(), run.glyphIndexes().value(0));
    }
}

#endif // COMMON_GLYPHOFFSET_H
