// SPDX-License-Identifier: MIT
// qtfontdrawtool.h -- CQtFontDrawTool, small drawings about a glyph.
#ifndef QTFONTDRAWTOOL_H
#define QTFONTDRAWTOOL_H

class QColor;
class QPainter;
class QPainterPath;
class QRectF;

/// Draws glyphs stroke by stroke, and the grid that they are practised on. Without a painter
/// nothing happens.
class CQtFontDrawTool
{
public:
    enum Grid {
        Tian = 1, ///< the frame with a cross
        Mi = 2,   ///< the cross and both diagonals
    };

    /// Fills the subpaths 0 to \a lastIndex of \a path one by one; at most as many as there are.
    static void DrawFontPath(QPainter *painter, const QPainterPath &path, const QColor &color,
                             int lastIndex);
    static void FillBackGround(QPainter *painter, const QColor &color, const QRectF &rect);
    /// \param color  without effect: the painter is left with a black dashed pen
    /// \param kind   a Grid; any other draws nothing
    static void DrawGrid(QPainter *painter, const QColor &color, const QRectF &rect, int kind);
};

#endif
