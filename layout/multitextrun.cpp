// SPDX-License-Identifier: MIT
#include "layout/multitextrun.h"

#include <QFontMetricsF>
#include <QTextFragment>
#include <QtMath>

namespace {

// Cuts out each character that isSingle accepts; what lies between stays whole.
template<typename Test>
QList<QString> split(const QString &text, const Test &isSingle)
{
    QList<QString> pieces;
    int pending = 0;
    for (int i = 0; i < text.length(); ++i) {
        if (!isSingle(text.at(i)))
            continue;
        if (i > pending)
            pieces.append(text.mid(pending, i - pending));
        pieces.append(text.mid(i, 1));
        pending = i + 1;
    }
    if (text.length() > pending)
        pieces.append(text.mid(pending));
    return pieces;
}

} // namespace

QList<QString> punctuationPieces(const QString &text)
{
    return split(text, [](QChar character) { return CTextTools::isCJKPunct(character); });
}

QList<QString> uprightPieces(const QString &text)
{
    return split(text, [](QChar character) { return CTextTools::isCJKChar(character); });
}

LineRules lineRules(const BlockRules &rules, const BlockMeasures &measures, qreal length,
                    BoxPass &pass)
{
    LineRules result;
    result.orientation = pass.layout.orientation;
    result.left = measures.left;
    result.indent = measures.indent;
    result.limit = length - measures.right;
    result.headTailMode = rules.headTailMode;
    result.hyphenate = rules.hyphenate;
    result.compressPunctuation = rules.compressPunctuation;
    result.search = pass.search;
    result.source = &pass.outlines;
    return result;
}

qreal FontHeight::of(const QFont &font)
{
    if (!m_font || !m_font->isCopyOf(font)) {
        m_font = font;
        m_height = QFontMetricsF(font).height();
    }
    return m_height;
}

BoxRunStyles::BoxRunStyles(int dpi, qreal kx, qreal ky, Qt::Orientation orientation)
    : m_dpi(dpi)
    , m_kx(kx)
    , m_ky(ky)
    , m_orientation(orientation)
{
}

const BoxRunStyle &BoxRunStyles::of(const QTextCharFormat &format)
{
    if (m_format && *m_format == format)
        return m_style;
    m_format = format;
    RunStyle &plain = m_style;
    plain = readRunStyle(format, m_dpi).stretched(m_kx, m_ky, m_orientation);
    const QFontMetricsF metrics(m_style.font);
    m_style.ascent = metrics.ascent();
    m_style.descent = metrics.descent();
    m_style.height = metrics.height();
    m_style.spaced = m_style.spacedFont();
    m_style.upright = withLetterSpacing(m_style.font, 0);
    return m_style;
}

BoxPass::BoxPass(const QRectF &clientRect, int documentDpi, qreal stretchX, qreal stretchY,
                 Qt::Orientation orientation, OutlineSource &outlineSource, LaidOutBlocks &laidOut)
    : box(clientRect)
    , dpi(documentDpi)
    , kx(stretchX)
    , ky(stretchY)
    , styles(documentDpi, stretchX, stretchY, orientation)
    , outlines(outlineSource)
    , blocks(laidOut)
{
}

TextFragment boxRun(const QTextFragment &fragment, const BoxRunStyle &style)
{
    TextFragment run = TextFragment::fromQtFragment(fragment);
    run.font = style.spaced;
    run.scaleX = style.runScaleX();
    run.scaleY = style.runScaleY();
    return run;
}

Spread spreadOf(LineTreatment treatment, qreal spare, int length)
{
    Spread spread;
    if (treatment == LineTreatment::Justified && length >= 2)
        spread.extra = qMax(0.0, spare / (length - 1));
    else if (treatment == LineTreatment::AtEnd)
        spread.offset = spare;
    else if (treatment == LineTreatment::Centred)
        spread.offset = spare / 2;
    return spread;
}

void takeMeasuresFromRuns(TextLine &line)
{
    line.length = line.text.length();
    line.position = line.fragments.first().position;
    qreal tallest = 0;
    FontHeight heights;
    for (int i = 0; i < line.fragments.size(); ++i) {
        const QFont &font = line.fragments.at(i).font;
        const qreal height = heights.of(font);
        if (i == 0 || height > tallest) {
            tallest = height;
            line.font = font;
        }
    }
}

void spreadByLetterSpacing(TextFragment &run, qreal extra, qreal alongScale, bool halve,
                           bool isLast)
{
    const qreal unscaled = extra / alongScale;
    if (alongScale == 0 || !qIsFinite(unscaled))
        return;
    run.font = withLetterSpacing(run.font, run.font.letterSpacing() + unscaled);
    run.advance = QFontMetricsF(run.font).horizontalAdvance(run.text) * alongScale;
    if (halve)
        run.advance *= 0.5;
    if (isLast)
        run.advance -= unscaled;
}

qreal grownThickness(qreal thickness, qreal ofRun, qreal stretch)
{
    const qreal grown = qMax(thickness, ofRun) * stretch;
    return qIsFinite(grown) ? grown : thickness;
}

void LineSpan::add(const TextFragment &run, bool isLast, const std::optional<qreal> &inkEnd)
{
    if (isLast)
        m_lastStart = run.start;
    else
        m_begin = m_begin ? qMin(*m_begin, run.start) : run.start;
    qreal end = run.start + run.advance;
    if (isLast && inkEnd)
        end = qMax(end, *inkEnd);
    m_end = m_end ? qMax(*m_end, end) : end;
}

qreal emptyLineStart(int alignment, const BlockMeasures &measures, qreal length)
{
    switch (alignment) {
    case 2:
    case 0x40:
    case 0x800:
        return qMax(0.0, length - measures.right);
    case 4:
    case 0x80:
    case 0x400:
        return qMax(0.0, (length - measures.indent - measures.left - measures.right) / 2);
    default:
        return measures.left + measures.indent;
    }
}

void addToLine(TextLine &line, const QPainterPath &outline)
{
    if (line.path.isEmpty())
        line.path = outline;
    else
        line.path.addPath(outline);
}
