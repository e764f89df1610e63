// SPDX-License-Identifier: MIT
// vxarttext_paths.cpp -- CVxArtText: outlines of the text, bent into the style and fitted to the box.
// Changes: m_charPaths, m_pathRect, m_pathsVertical, m_scaledPaths, m_paintedRect, the engine's lines.
#include "arttext/vxarttext.h"

#include "arttext/arttexthelper.h"
#include "arttext/wholenumbers.h"
#include "common/glyphoffset.h"

#include <QFontMetrics>
#include <QRegularExpression>
#include <QTransform>

#include <algorithm>

namespace {
const CSize engineSize(4096, 4096);

namespace Align {
constexpr int Left = 1;
constexpr int Right = 2;
constexpr int Centre = 4;
constexpr int Justify = 8;
} // namespace Align

/// Styles whose envelope is a ring, and those of them in which the text runs round twice as far.
bool isLongRing(int shape)
{
    return shape == 40 || shape == 41;
}
bool isRing(int shape)
{
    return shape == 8 || shape == 9 || isLongRing(shape);
}

/// The characters of \a line: surrogate pairs stay whole.
QStringList charactersOf(const QString &line)
{
    QStringList characters;
    characters.reserve(line.size());
    for (int i = 0; i < line.size();) {
        const bool isPair = line.at(i).isHighSurrogate() && i + 1 < line.size()
                            && line.at(i + 1).isLowSurrogate();
        characters.append(line.mid(i, isPair ? 2 : 1));
        i += characters.last().size();
    }
    return characters;
}

/// Scripts whose characters take their form from their neighbours lie between these two.
bool needsShaping(const QString &line)
{
    return std::any_of(line.begin(), line.end(), [](QChar character) {
        return character.unicode() > 0x04FF && character.unicode() < 0x1E00;
    });
}

/// One line of the text, in pixels along the line.
struct Line {
    QString text;
    QStringList characters;
    qint64 length = 0;
};

/// All lines; lengths may reach beyond an int for text from a damaged file.
struct Lines {
    QVector<Line> lines;
    int longest = -1;
    qint64 extent = 0;
};

Lines measured(const QStringList &texts, const QFontMetrics &metrics, bool vertical)
{
    Lines result;
    int cell = 0; // height of a character in a column: that of the widest line so far
    for (const QString &text : texts) {
        const QSize size = metrics.size(Qt::TextSingleLine, text);
        Line line{text, charactersOf(text), size.width()};
        // Deliberate: in columns the width of a line is compared with a height.
        if (size.width() > result.extent) {
            result.longest = result.lines.size();
            cell = size.height();
            result.extent = vertical ? qint64(cell) * line.characters.size() : size.width();
        }
        result.lines.append(line);
    }
    if (vertical) {
        for (Line &line : result.lines)
            line.length = qint64(cell) * line.characters.size();
    }
    return result;
}

/// Smallest rectangle of all elements, control points and the elements of blanks included.
QRectF boundsOfElements(const QVector<QPainterPath> &paths)
{
    QPointF least;
    QPointF most;
    bool first = true;
    for (const QPainterPath &path : paths) {
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPointF point = path.elementAt(i);
            least = first ? point : QPointF(qMin(least.x(), point.x()), qMin(least.y(), point.y()));
            most = first ? point : QPointF(qMax(most.x(), point.x()), qMax(most.y(), point.y()));
            first = false;
        }
    }
    return QRectF(least, most);
}

/// \a path without the moves that nothing follows, which blanks leave. On a screen they show nothing,
/// but in a PDF a pen with caps makes a dot of each.
QPainterPath withoutLoneMoves(const QPainterPath &path)
{
    QPainterPath result;
    result.setFillRule(path.fillRule());
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const bool isLone = i + 1 == path.elementCount() || path.elementAt(i + 1).isMoveTo();
        if (element.isMoveTo() && !isLone) {
            result.moveTo(element);
        } else if (element.isLineTo()) {
            result.lineTo(element);
        } else if (element.isCurveTo()) {
            result.cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    return result;
}
} // namespace

/// Makes the outlines of line after line.
class CVxArtText::OutlineMaker
{
public:
    OutlineMaker(const CVxArtText &art, bool vertical)
        : m_art(art)
        , m_vertical(vertical)
        , m_font(art.outlineFont(vertical))
        , m_metrics(m_font)
    {
    }
    QVector<QPainterPath> outlines(const QStringList &texts);

private:
    void addLine(const Line &line, qint64 extra);
    void addPath(const QString &text);
    void goToNextLine();
    QPointF point() const
    {
        return m_vertical ? QPointF(m_across, m_along) : QPointF(m_along, m_across);
    }

    const CVxArtText &m_art;
    const bool m_vertical;
    const QFont m_font;
    const QFontMetrics m_metrics;
    QVector<QPainterPath> m_paths;
    qint64 m_along = 0; ///< along the line
    int m_across = 0;   ///< baseline of a line, left edge of a column
};

QVector<QPainterPath> CVxArtText::OutlineMaker::outlines(const QStringList &texts)
{
    const Lines all = measured(texts, m_metrics, m_vertical);
    takeGlyphOffsetsAway(m_font, texts.join(QLatin1Char(' ')));
    const int alignment = m_art.m_textAlignment;
    qint64 start = 0; // deliberate: an alignment of another value keeps that of the line before
    for (int i = 0; i < all.lines.size(); ++i) {
        const Line &line = all.lines.at(i);
        const int count = line.characters.size();
        if (alignment == Align::Left)
            start = 0;
        else if (alignment == Align::Centre)
            start = (all.extent - line.length) / 2;
        else if (alignment == Align::Right)
            start = all.extent - line.length;
        const bool stretches = alignment == Align::Justify && i != all.longest && count >= 2;
        const qint64 extra = stretches ? (all.extent - line.length) / (count - 1) : 0;
        m_along = start;
        if (count > 0)
            addLine(line, extra);
        goToNextLine();
    }
    return m_paths;
}

void CVxArtText::OutlineMaker::addLine(const Line &line, qint64 extra)
{
    if (extra <= 0 && needsShaping(line.text)) {
        addPath(line.text);
        return;
    }
    for (const QString &character : line.characters) {
        addPath(character);
        const QSize size = m_metrics.size(Qt::TextSingleLine, character);
        m_along += (m_vertical ? size.height() : size.width()) + extra;
    }
}

void CVxArtText::OutlineMaker::addPath(const QString &text)
{
    QPainterPath path;
    path.addText(point(), m_font, text);
    m_paths.append(path);
}

void CVxArtText::OutlineMaker::goToNextLine()
{
    // Deliberate: the two spacings change roles in vertical text.
    const double height = m_metrics.height();
    m_across = m_vertical ? truncated(m_across - (height + m_art.m_letterSpacing))
                          : truncated(m_across + height + m_art.m_rowSpacing);
}

QFont CVxArtText::outlineFont(bool vertical) const
{
    QFont font(m_fontFamily, qMin(m_fontSize, LargestPointSize), -1, false);
    font.setStyleStrategy(QFont::ForceOutline);
    font.setStyleHint(QFont::Serif, QFont::PreferDefault);
    font.setStyle(m_fontItalic ? QFont::StyleItalic : QFont::StyleNormal);
    font.setWeight(m_fontBold ? QFont::Bold : QFont::Normal);
    font.setLetterSpacing(QFont::AbsoluteSpacing, vertical ? m_rowSpacing : m_letterSpacing);
    return font;
}

bool CVxArtText::LoadFontPath()
{
    generatePath(m_fontSomehow);
    return true;
}

void CVxArtText::generatePath(bool vertical)
{
    static const QRegularExpression lineEnds(QStringLiteral("[\r\n]+"));
    const QString text = m_textWord.isEmpty() ? m_defaultWord : m_textWord;
    m_charPaths = OutlineMaker(*this, vertical).outlines(text.split(lineEnds, Qt::KeepEmptyParts));
    m_scaledPaths.clear();
    m_pathsVertical = vertical;
    bendPaths();
}

/// Carries the outlines, moved to the origin, between the guide lines of the style.
void CVxArtText::bendPaths()
{
    const QRectF flat = boundsOfElements(m_charPaths);
    const QTransform toOrigin = QTransform::fromTranslate(-flat.left(), -flat.top());
    const QSizeF source(truncated(flat.width() + 2.0), truncated(flat.height() + 2.0));
    m_artText->Resize(engineSize, m_shape);
    m_pathRect = QRectF();
    for (QPainterPath &path : m_charPaths) {
        path = m_artText->lensDeform(toOrigin.map(path), QPointF(0, 0), source, engineSize, false);
        m_pathRect |= path.boundingRect();
    }
    m_paintedRect = nearest(m_pathRect); // corners (0, 0) and (-1, -1) without paths
}

QPainterPath CVxArtText::scalePath(const QPainterPath &path, QRectF &client, QRectF &source)
{
    const double width = m_pathRect.width();
    const double height = m_pathRect.height();
    if (!(width > 0) || !(height > 0))
        return path;
    const bool ring = isRing(m_shape);
    const double aspect = isLongRing(m_shape) ? width / height / 2 : width / height;
    double sy = client.height() / height;
    double sx = client.width() / width;
    double offset = 0.0;
    if (ring) {
        sx = qMin(sx, sy / aspect);
        sy = sx;
        offset = (client.width() - sx * source.width()) * 0.5;
    }
    QPainterPath scaled = path;
    for (int i = 0; i < scaled.elementCount(); ++i) {
        const QPointF point = scaled.elementAt(i);
        const double y = ring ? source.top() + (point.y() - source.top()) * aspect : point.y();
        scaled.setElementPositionAt(i, (point.x() - source.left()) * sx + offset + client.left(),
                                    client.top() + 0.0 + (y - source.top()) * sy);
    }
    return scaled;
}

/// Fits the outlines to the client rectangle unless they have been for it already. Under m_pathsMutex.
void CVxArtText::fitPaths()
{
    const QRect box = nearest(m_clientRect);
    if (!m_scaledPaths.isEmpty() && box == m_paintedRect)
        return;
    m_scaledPaths.clear();
    m_paintedRect = box;
    if (m_pathRect.isNull()) // no ink
        return;
    QRectF client = m_clientRect;
    QRectF source = m_pathRect;
    m_scaledPaths.reserve(m_charPaths.size());
    for (const QPainterPath &path : qAsConst(m_charPaths))
        m_scaledPaths.append(withoutLoneMoves(scalePath(path, client, source)));
}
