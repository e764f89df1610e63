// SPDX-License-Identifier: MIT
// arttexthelper.h -- CArtText, the path engine that pours outlines between two guide lines.
#ifndef ARTTEXTHELPER_H
#define ARTTEXTHELPER_H

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QSizeF>
#include <QString>

class QDataStream;
class QPainter;

/// A point of a guide line. Arrays of it come from malloc() and go back with free().
struct tagPOINT {
    qint64 x = 0;
    qint64 y = 0;
};

struct tagSIZE {
    qint64 cx = 0;
    qint64 cy = 0;
};

/// A point that is passed by value.
struct CPoint {
    constexpr CPoint() = default;
    constexpr CPoint(qint64 left, qint64 top)
        : x(left)
        , y(top)
    {
    }

    qint64 x = 0;
    qint64 y = 0;
};

/// A size that is passed by value.
struct CSize {
    constexpr CSize() = default;
    constexpr CSize(qint64 width, qint64 height)
        : cx(width)
        , cy(height)
    {
    }

    qint64 cx = 0;
    qint64 cy = 0;
};

/// A rectangle that is passed by value; right and bottom are edges, not last pixels.
struct CRect {
    constexpr CRect() = default;
    constexpr CRect(qint64 l, qint64 t, qint64 r, qint64 b)
        : left(l)
        , top(t)
        , right(r)
        , bottom(b)
    {
    }

    qint64 left = 0;
    qint64 top = 0;
    qint64 right = 0;
    qint64 bottom = 0;
};

/// The cursor of a fill under way.
struct tagSEG {
    quint32 count = 0;          ///< points stored so far
    tagPOINT *points = nullptr; ///< with room for all that will come
};

/// Opaque: only named by operations that do nothing.
struct tagBITMAPINFO;

/// The description of a fill, kept and handed on as a unit.
struct tagFillStru {
    int colorA = 0x00ffffff;
    int colorB = 0x00808080;
    int value = 0;
    int mode = 0;      ///< 0 to 2
    int modeValue = 0; ///< parameter of the mode
    bool flag = false;
    int brushKind = 0; ///< 0 to 6; 0 is a plain colour
};

/// Mean of the window of 2 * \a radius + 1 pixels each way, clipped to the image, in place and byte
/// by byte of a pixel; \a radius is limited to a quarter of the shorter side. Images of less than 8
/// bits a pixel stay as they are. The cost does not depend on the radius.
/// \return false, the image untouched, for a radius below 1, an empty image or no memory
bool ThBlurMore(QImage &image, int radius);

/// Gives back the buffer of an image made by CArtText::createImage().
void tmpCleanupHandler(void *buffer);

/// Two guide lines, the upper (1) and the lower (2) edge of an envelope, the generators that make
/// them, and what pours outlines between them. A guide line is a dense polyline: neighbours are at
/// most one step apart, so that a fraction of its length is an index. Fills, fonts and shadows are
/// only carried. Every text object owns one engine. Not thread safe.
class CArtText
{
public:
    /// Most points of a guide line, and the room in a generator's buffer.
    static constexpr unsigned int MaxGuidePoints = 64000;

    CArtText();
    ~CArtText();
    CArtText(const CArtText &) = delete;
    CArtText &operator=(const CArtText &) = delete;

    // Guide lines. \c guide is 1 or 2 throughout.

    /// Takes over \a points (from malloc(), or null) and frees the line that stood there.
    /// \return false for more than MaxGuidePoints or another \a guide: the caller keeps the points
    bool SetGuideLine(tagPOINT *points, unsigned int count, int guide);
    /// Hook of an interactive drawing mode that does not exist: no points.
    bool GetGuideLine(QPainter *painter, tagPOINT **points, unsigned int *count);
    /// Scales a line, in single precision, from the size that it was made for to \a size, and fills
    /// it out again. Nothing before the first Resize().
    void ResizeGuideLine(int guide, CSize size);
    /// Lends both lines; whoever wants to keep them calls EmptyPathPoint() next.
    void GetPathPoint(tagPOINT **points1, unsigned int *count1, tagPOINT **points2,
                      unsigned int *count2);
    /// Lets go of both lines without freeing them.
    void EmptyPathPoint();
    /// Turns both lines over: y becomes \a height - y.
    void flip(int height);
    static void OffsetPos(CSize offset, tagPOINT *points, unsigned int count);
    /// Called twice to have both lines drawn by hand: line 1, then line 2. Always true.
    bool BeginDraw(QPainter *painter, const CRect &rect);

    // Generators: each makes a line and hands it over with SetGuideLine(). They return false, line
    // and kind unchanged, when there is no buffer, no such guide, or an argument is not finite. A
    // line of fewer than 2 or, dense, of more than MaxGuidePoints points becomes an empty line.

    bool DrawLine(int guide, const tagPOINT *points, int count);
    bool DrawLine(int guide, CPoint from, CPoint to);
    /// Parabola \a a * x * x around \a apex; \a vertical exchanges the axes.
    bool DrawCurve(int guide, CPoint apex, double a, double halfWidth, bool vertical);
    /// Parabola through an end, the apex and the other end.
    /// \return false too when the first end lies level with the apex along the curve
    bool DrawCurve(int guide, const tagPOINT *threePoints, bool vertical);
    /// \a cycles waves of \a period points; \a radians is the angle of one period.
    bool DrawCosText(int guide, CPoint origin, float cycles, double amplitude, double period,
                     double phase, double radians, bool invert, bool vertical);
    /// As DrawCosText() with a period of a full turn; \a ignored has no effect.
    bool DrawSinText(int guide, CPoint origin, float cycles, double amplitude, double period,
                     double phase, double ignored, bool invert, bool vertical);
    /// Circle arc in half degrees, clockwise on screen when \a toAngle is the larger; 270 degrees
    /// is the top. At most one turn. \return false too for a \a radius above 16000
    bool DrawEllipse(CPoint center, float radius, int guide, float fromAngle, float toAngle);
    /// Arc of the circle through left end, apex and right end; \a upper takes the half above the
    /// centre. \return false too when the points make no circle
    bool DrawEllipse(const CPoint *threePoints, int guide, bool upper);

    // What the generators are made of. The buffer goes to the caller, also when the count is 0
    // because the line has no points or too many. On false there is no buffer.

    static bool CreateRound(CPoint center, float radius, tagPOINT **points, unsigned short *count,
                            float fromAngle, float toAngle);
    static bool CreateCos(tagPOINT **points, unsigned int *count, CPoint origin, float cycles,
                          double amplitude, double period, double phase, double radians,
                          bool invert, bool vertical);
    static bool CreateSin(tagPOINT **points, unsigned int *count, CPoint origin, float cycles,
                          double amplitude, double period, double phase, double ignored,
                          bool invert, bool vertical);
    static bool CreateCurve(tagPOINT **points, unsigned int *count, CPoint apex, double a,
                            double halfWidth, bool vertical);

    /// Makes a polyline dense, in a new buffer. Joints occur twice. Coordinates are cut to 32 bits.
    /// \return false, the buffer unchanged and the count 0, when fewer than 2 points are given or
    /// more than MaxGuidePoints would come out
    static bool FillOut(tagPOINT **points, unsigned int *count);

    using LineCallback = void (*)(int x, int y, void *context);
    /// Calls back for each point of a line, both ends included, one step along the longer axis
    /// each. Steps are accumulated and cut off, so that the last point can fall short by one.
    static void DDADrawLine_DDALine(int x1, int y1, int x2, int y2, LineCallback callback,
                                    void *context);
    /// How often DDADrawLine_DDALine() calls back.
    static qint64 countPoints(int x1, int y1, int x2, int y2);
    /// LineCallback that stores the point through the tagSEG in \a context.
    static void addSegment(int x, int y, void *context);

    /// Moves the points so that the smallest coordinates become 0. Extremes are bounded on purpose:
    /// the largest are at least 0, the smallest at most 20000.
    /// \param size  extent in points, both ends counted; (-19999, -19999) without points
    static void GetRealTextExtent(tagPOINT *points, int count, tagSIZE *size);

    // Styles: a style from 0 to 41 is a pair of guide lines.

    /// Draws both guide lines of \a style for \a rect on \a art; nothing for another style.
    static void DoAction(int style, CRect rect, CArtText *art);
    /// Draws the style for a rectangle of \a size at the origin and keeps \a size.
    void Resize(const CSize &size, int style);
    /// Keeps the number only; nothing is drawn.
    void SetStyle(int style);
    int GetStyle() const;

    // Fill, font, colour and shadow: carried. Choosing one kind of fill gives up the others.

    void GetFillStyle(tagFillStru *fill) const;
    void SetFillStyle(tagFillStru fill);
    int GetPatternBrush() const;
    void SetPatternBrush(int pattern);
    void SetDibBrush(const QImage &image);
    QImage GetDibBrush() const;
    bool SetFont(const QFont &font);
    bool GetFont(QFont &font) const;
    bool SetFontName(const QString &name); ///< does nothing
    bool SetString(const QString &text);
    bool SetColor(const QColor &color);
    QColor GetColor() const;
    void SetOutLine(bool outLine);
    bool GetOutLine() const;
    void ShowShadow(bool show, const QColor &color, CPoint offset);
    bool HasShadow() const;
    CPoint GetOffPos() const;
    QColor GetShadowColor() const;

    // Rendering.

    /// A copy of \a path with every element carried between the guide lines. Curves keep their
    /// control points; nothing is divided.
    /// \param origin  added to each element before its place in \a source is taken
    /// \param source  size of the text; elements beyond it stay where they are
    /// \param target  size that the guide lines were made for
    /// \param vertical  the text runs along y: guide lines are looked up by y, mixed by x
    /// The path comes back unchanged without guide lines, for a source that is not larger than 0
    /// and finite, and for a target of 0.
    QPainterPath lensDeform(const QPainterPath &path, const QPointF &origin, const QSizeF &source,
                            const CSize &target, bool vertical) const;

    /// Writes or reads fill, font, text and shadow. Deliberate: the reader takes a second string
    /// behind the font that the writer does not write. A stream that ends before that changes
    /// nothing; later, what it does not hold stays as it was.
    void Serialize(QDataStream &stream, bool writing);
    /// Copies all that Serialize() writes and the outline flag, no guide lines. Nothing for null.
    void CopyFrom(const CArtText *other);

    /// An image of 32 bits a pixel over a buffer of its own, \a width * \a bytesPerPixel bytes a
    /// line, transparent. Null for an empty size, a line too short for its pixels, or no memory.
    static QImage createImage(int width, int height, int bytesPerPixel);
    /// The colours of \a image with \a mask as alpha, multiplied by the image's own alpha unless
    /// \a ignoreImageAlpha. Both are read as one run of bytes, padding too; a mask of 8 bits is
    /// read byte by byte, one of 32 bits, deliberately, every fifth byte, and another gives a
    /// transparent image. Where the mask ends early alpha is 0. Null for a null mask or image.
    static QImage maskImage(const QImage &image, const QImage &mask, bool ignoreImageAlpha);

    /// Paints a fixed sample, to see the chain of drawing at work, when \a enabled and
    /// \a drawSample. Always true.
    bool RenderPathPoints(QPainter *painter, tagPOINT *points, unsigned char *types, int count,
                          bool closed, CRect *rect, bool enabled, bool drawSample, int alpha);

    // Kept as the surface of the class; they do nothing, and those with a result return true.

    void DrawObj(QPainter *painter, CRect &rect, int kind, bool first, bool second);
    void DrawEffect(QPainter *painter, tagFillStru fill, CRect *rect, bool flag);
    bool GetDataFromDC(QPainter *painter, CRect *rect, void *&data, tagBITMAPINFO **info, int bits);
    bool Fuzzy(void *data, tagBITMAPINFO *info, CPoint offset, bool flag);
    bool TextEffect(QPainter *painter, tagPOINT *points1, tagPOINT *points2, unsigned int count1,
                    unsigned int count2, const QString &text, CRect *rect, bool first, bool second,
                    bool third);
    bool GenTextPath(QPainter *painter, tagPOINT *points1, tagPOINT *points2, unsigned int count1,
                     unsigned int count2, const QString &text, CRect *rect, bool first,
                     bool second);
    bool ShowGuide(QPainter *painter, tagPOINT *points, unsigned int count);

protected:
    int m_guideKind1 = 0; ///< 0 nothing, 1 straight lines, 2 parabola, 3 wave, 4 circle arc
    int m_guideKind2 = 0;
    CRect m_rect;
    void *m_scratch1 = nullptr; ///< freed by the destructor; nothing here fills it
    void *m_scratch2 = nullptr;
    CSize m_size; ///< what the guide lines were made for
    QImage m_image1;
    QImage m_image2;
    CPoint m_shadowOffset{1, 1};
    QColor m_shadowColor = Qt::black;
    bool m_hasShadow = false;
    QFont m_font;      ///< Times 50, as outlines
    QImage m_dibBrush; ///< image of a pattern fill
    QString m_string = QStringLiteral("Text");
    QColor m_color = Qt::black;
    bool m_firstGuideNext = true;       ///< the next line that BeginDraw() asks for is line 1
    tagPOINT *m_guidePoints1 = nullptr; ///< from malloc(), owned
    tagPOINT *m_guidePoints2 = nullptr;
    quint32 m_guideCount1 = 0;
    quint32 m_guideCount2 = 0;
    bool m_outLine = false; ///< outline instead of fill
    QPen m_guidePen1{Qt::blue, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
    QPen m_guidePen2{Qt::red, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
    QPen m_pen3;
    int m_style = 0;
    tagFillStru m_fill;
    int m_patternBrush = -1; ///< number of a pattern fill; -1 none

private:
    bool takeLine(tagPOINT *points, unsigned int count, int guide, int kind);
    void write(QDataStream &stream) const;
    void read(QDataStream &stream);
};

#endif
