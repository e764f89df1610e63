// SPDX-License-Identifier: MIT
// wordprocess_legacylayout.cpp -- CWordProcess: the layouts of the older engine, for text from old records.
// Changes: m_legacyLines; line text takes its box from them, box text keeps its own.
// A run is as long as its ink, and the outlines are put in place when all lines are known.
#include "wordprocess/cwordprocess.h"

#include "layout/outlines.h"
#include "layout/runstyle.h"
#include "layout/textproperties.h"
#include "layout/texttools.h"
#include "wordprocess/numbers.h"

#include "host/framework/iappframework.h"

#include <QTextBlock>

namespace {
constexpr double lengthOfNothing = 10.0; // of a block of line text without any width
constexpr double lineTextMargin = 5.0;   // deliberate: the box is longer than its longest line
constexpr int layoutReport = 100;        // what the host's listeners are told of a new size

// Alignments of our own: justified but for the last line, which is centred or stands at the end.
constexpr int JustifyLastAtStart = 512;
constexpr int JustifyLastCentred = 1024;
constexpr int JustifyLastAtEnd = 2048;
constexpr int JustifyColumn = 256;

bool areSame(double a, double b)
{
    return std::abs(a - b) * 1000000000000.0 <= qMin(std::abs(a), std::abs(b));
}

/// True for a run whose outline is of its font's own size.
bool isUnscaled(const QTextCharFormat &format)
{
    return !isHalfSize(format) && scaleFactor(format, TextProperty::HorizontalScale) == 1.0
           && scaleFactor(format, TextProperty::VerticalScale) == 1.0;
}

/// A stretch of a fragment that lies in a column as one item.
struct ColumnPart {
    int start;
    int length;
    bool upright;
};

/// CJK characters each by itself, and the runs between them.
QVector<ColumnPart> columnParts(const QString &text)
{
    QVector<ColumnPart> parts;
    for (int i = 0; i < text.length(); ++i) {
        const bool upright = CTextTools::isCJKChar(text.at(i));
        if (upright || parts.isEmpty() || parts.last().upright)
            parts.append({i, 1, upright});
        else
            ++parts.last().length;
    }
    return parts;
}

/// Space ahead of the text and behind it does not count; then measures the line. A block format without any
/// property leaves the line as it is.
void finishLine(STextLine &line, const QTextBlock &block, int dpi)
{
    if (line.blockFormat.isEmpty())
        return;
    const bool hasSpaceAhead = line.isFirstLine && block.previous().isValid();
    const bool hasSpaceBehind = line.isLastLine && block.next().isValid();
    if (!hasSpaceAhead)
        line.firstLineSpace = 0;
    if (!hasSpaceBehind)
        line.lastLineSpace = 0;
    line.updateItems(dpi);
}

/// Cuts \a text at its punctuation marks, each of which is a piece of its own.
QStringList piecesAtPunctuation(const QString &text)
{
    QStringList pieces;
    int from = 0;
    for (int i = 0; i < text.length(); ++i) {
        if (!CTextTools::isCJKPunct(text.at(i)))
            continue;
        if (i > from)
            pieces.append(text.mid(from, i - from));
        pieces.append(text.mid(i, 1));
        from = i + 1;
    }
    if (from < text.length())
        pieces.append(text.mid(from));
    return pieces;
}
} // namespace

// The way in

void CWordProcess::updateBoundingRectForOldVersion(bool /*argument*/)
{
    if (m_newVersion)
        return;
    const KeepAlive guard(*this);
    m_legacyLines.clear();
    if (m_wordWrap) {
        multiTextLayout();
    } else {
        QSizeF size;
        if (toPlainText().isEmpty())
            size = getDefaultTextSize(m_defaultWord);
        else
            size = m_textOrientation == Qt::Horizontal ? hTextLayout() : vTextLayout();
        takeLegacySize(size);
    }
    *m_legacyOutlines = OutlineSource(); // glyphs are soon made again, and a page has many texts
    clearLayerEffectCache(EffectCacheReason::ContentChanged);
}

/// Gives line text the size of its layout, and reports it when it is new.
void CWordProcess::takeLegacySize(const QSizeF &size)
{
    const bool isSame = areSame(size.width(), m_clientRect.width())
                        && areSame(size.height(), m_clientRect.height());
    updatePosition(this, QRectF(getPos(), size));
    if (isSame)
        return;
    IAppFramework *framework = GetFramework();
    if (IObjectEventSink *sink = framework ? framework->getEventSink() : nullptr)
        sink->notifyObjectChanged(this, layoutReport, QString());
}

// From the document to runs

void CWordProcess::getFragments(const QTextBlock &block, QList<SFragment> &fragments) const
{
    if (!block.isValid())
        return;
    const bool cutsAtPunctuation =
        toWhole(block.blockFormat().property(TextProperty::PunctuationExtra)) == 1;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        SFragment fragment;
        fragment.format = it.fragment().charFormat();
        fragment.position = it.fragment().position();
        QString text = it.fragment().text();
        if (fragment.format.property(TextProperty::UpperCase).toBool())
            text = text.toUpper();
        const QStringList pieces = cutsAtPunctuation ? piecesAtPunctuation(text)
                                                     : QStringList(text);
        for (const QString &piece : pieces) {
            fragment.text = piece;
            fragment.width = textWidth(piece, fragment.format);
            fragments.append(fragment);
            fragment.position += piece.length();
        }
    }
}

STextItem CWordProcess::legacyItem(const QTextCharFormat &format, const QString &text, int position,
                                   bool upright) const
{
    STextItem item;
    item.setText(format, text, m_documentDpi);
    item.position = position;
    item.upright = upright;
    if (!text.isEmpty())
        replaceItemText(item, text);
    return item;
}

void CWordProcess::replaceItemText(STextItem &item, const QString &text) const
{
    item.text = text;
    STextItem::spaceCounts(text, item.leadingSpaces, item.trailingSpaces);
    double advance = 0;
    item.path = fragmentPath(QPointF(0, 0), item.format, text, advance, item.ascent, 0.0,
                             item.upright);
    item.inkAcross = 0;
    if (!isUnscaled(item.format))
        return;
    const QRectF ink = item.path.boundingRect(); // a run in a column lies on its side
    const bool standsInRow = m_textOrientation == Qt::Horizontal && !item.upright;
    item.inkAcross = standsInRow ? ink.height() : ink.width();
}

/// The items that \a text makes on a line. Whole code points: a pair lies among others in its run.
QList<STextItem> CWordProcess::legacyItems(const QTextCharFormat &format, const QString &text,
                                           int position, Qt::Orientation orientation) const
{
    QList<STextItem> items;
    if (orientation == Qt::Horizontal) {
        if (!text.isEmpty())
            items.append(legacyItem(format, text, position, false));
        return items;
    }
    const QVector<ColumnPart> parts = columnParts(text);
    for (const ColumnPart &part : parts)
        items.append(legacyItem(format, text.mid(part.start, part.length), position + part.start,
                                part.upright));
    return items;
}

/// What keeps the height of a block without text.
STextItem CWordProcess::emptyLegacyItem(const QTextBlock &block) const
{
    return legacyItem(block.charFormat(), QString(), block.position(), false);
}

// Line text

/// Size of line text: along its lines and across them.
struct CWordProcess::LegacySize {
    double along = 0;
    double across = 0;
};

QSizeF CWordProcess::hTextLayout()
{
    if (m_wordWrap || m_textOrientation == Qt::Vertical)
        return QSizeF(-1, -1);
    const LegacySize size = layOutLineText(Qt::Horizontal);
    generatorHorizontalTextPaths(size.along);
    return QSizeF(size.along + lineTextMargin, size.across);
}

QSizeF CWordProcess::vTextLayout()
{
    if (m_wordWrap || m_textOrientation == Qt::Horizontal)
        return QSizeF(-1, -1);
    const LegacySize size = layOutLineText(Qt::Vertical);
    generatorVerticalTextPaths(size.across, size.along);
    return QSizeF(size.across, size.along + lineTextMargin);
}

CWordProcess::LegacySize CWordProcess::layOutLineText(Qt::Orientation orientation)
{
    m_legacyLines.clear();
    LegacySize size;
    for (QTextBlock block = m_document->firstBlock(); block.isValid(); block = block.next()) {
        double itemWidths = 0;
        const STextLine line = lineOfBlock(block, orientation, itemWidths);
        const QTextBlockFormat &format = line.blockFormat;
        // Deliberate: points beside pixels.
        double length = finiteReal(format.property(QTextFormat::BlockLeftMargin))
                        + finiteReal(format.property(QTextFormat::BlockRightMargin))
                        + toWhole(format.property(QTextFormat::BlockIndent)) + itemWidths;
        if (!(length > 0) || !std::isfinite(length))
            length = lengthOfNothing;
        size.along = qMax(size.along, length);
        size.across += block.next().isValid() ? line.advance : line.height + line.firstLineSpace;
        m_legacyLines.append(line);
    }
    return size;
}

/// The one line of a block of line text. \param itemWidths  receives the length of its text
STextLine CWordProcess::lineOfBlock(const QTextBlock &block, Qt::Orientation orientation,
                                    double &itemWidths) const
{
    STextLine line;
    line.isFirstLine = true;
    line.isLastLine = true;
    line.setBlockFormat(block.blockFormat(), m_documentDpi, orientation);
    QList<SFragment> fragments;
    getFragments(block, fragments);
    for (const SFragment &fragment : qAsConst(fragments))
        line.items += legacyItems(fragment.format, fragment.text, fragment.position, orientation);
    for (const STextItem &item : qAsConst(line.items))
        itemWidths += item.itemWidth(orientation, 0);
    if (fragments.isEmpty())
        line.items.append(emptyLegacyItem(block));
    finishLine(line, block, m_documentDpi);
    return line;
}

// Box text

/// One block on its way into lines.
struct CWordProcess::LegacyFlow {
    QTextBlock block;
    Qt::Orientation orientation;
    double extent; ///< of the box, along the lines
    bool hyphenate;
    int headTailRule;
    QList<STextLine> lines; ///< closed ones
    STextLine line;         ///< the open one
    double available = 0;   ///< along the open line
    double used = 0;        ///< by its items

    void place(const QList<STextItem> &items)
    {
        for (const STextItem &item : items)
            used += item.itemWidth(orientation, 0);
        line.items += items;
    }
};

void CWordProcess::multiTextLayout()
{
    if (m_textOrientation == Qt::Horizontal)
        hMultiTextLayout();
    else
        vMultiTextLayout();
    if (!m_editing)
        notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

void CWordProcess::hMultiTextLayout()
{
    if (!m_wordWrap)
        return;
    m_legacyLines.clear();
    if (m_textOrientation != Qt::Vertical)
        wrapBlocks(Qt::Horizontal, m_clientRect.width());
    generatorHorizontalTextPaths(m_clientRect.width());
}

void CWordProcess::vMultiTextLayout()
{
    if (!m_wordWrap)
        return;
    m_legacyLines.clear();
    if (m_textOrientation != Qt::Horizontal)
        wrapBlocks(Qt::Vertical, m_clientRect.height());
    generatorVerticalTextPaths(m_clientRect.width(), m_clientRect.height());
}

/// Breaks every block into lines of at most \a extent pixels.
void CWordProcess::wrapBlocks(Qt::Orientation orientation, double extent)
{
    for (QTextBlock block = m_document->firstBlock(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        LegacyFlow flow{block,
                        orientation,
                        extent,
                        format.property(TextProperty::Hyphenate).toBool(),
                        toWhole(format.property(TextProperty::HeadTailRule)),
                        {},
                        {}};
        openLine(flow, /*isFirst=*/true);
        if (flow.available < 0) // deliberate: a block too wide for its margins is left out
            continue;
        QList<SFragment> fragments;
        getFragments(block, fragments);
        for (const SFragment &fragment : qAsConst(fragments))
            wrapFragment(flow, fragment);
        if (fragments.isEmpty())
            flow.line.items.append(emptyLegacyItem(block));
        closeBlock(flow);
        m_legacyLines += flow.lines;
    }
}

void CWordProcess::openLine(LegacyFlow &flow, bool isFirst) const
{
    flow.line = STextLine();
    flow.line.isFirstLine = isFirst;
    flow.available = flow.extent
                     - flow.line.setBlockFormat(flow.block.blockFormat(), m_documentDpi,
                                                flow.orientation);
    flow.used = 0;
}

void CWordProcess::closeLine(LegacyFlow &flow, bool isLast) const
{
    flow.line.isLastLine = isLast;
    finishLine(flow.line, flow.block, m_documentDpi);
    flow.lines.append(flow.line);
}

/// Puts \a fragment on the open line and on as many new ones as it needs.
void CWordProcess::wrapFragment(LegacyFlow &flow, const SFragment &fragment)
{
    const QTextCharFormat &format = fragment.format;
    QString rest = fragment.text;
    int position = fragment.position;
    bool isTooWide = flow.available < flow.used + fragment.width;
    int wideFrom = isTooWide ? surelyWideFrom(rest, format, flow.available - flow.used) : 0;
    while (isTooWide) {
        const int index = wrapIndex(rest, format, flow.used, flow.available, wideFrom);
        // Nothing fits on an empty line, or not even nothing: the rest goes onto it anyway.
        if (index < 0 || (index == 0 && flow.used == 0))
            break;
        const QString piece = rest.left(index);
        flow.place(legacyItems(format, piece, position, flow.orientation));
        const int placed = piece.length() - breakLine(flow, fragment, piece);
        position += placed;
        rest = rest.mid(placed);
        // A turn that places none of the rest leaves earlier text on the line that it closes. Where it does
        // not, the next one would be the same.
        if (placed <= 0 && flow.lines.last().length() == 0)
            break;
        wideFrom = surelyWideFrom(rest, format, flow.available - flow.used);
        isTooWide = wideFrom <= rest.length()
                    || flow.available < flow.used + textWidth(rest, format);
    }
    flow.place(legacyItems(format, rest, position, flow.orientation));
}

/// Closes the open line behind \a piece of \a fragment, repairs its end and opens the next line with what the
/// repairs have moved.
/// \return how many characters at the end of \a piece have left the line without being placed on the next one
int CWordProcess::breakLine(LegacyFlow &flow, const SFragment &fragment, const QString &piece)
{
    closeLine(flow, /*isLast=*/false);
    openLine(flow, /*isFirst=*/false);
    QList<STextItem> moved;
    avoidHeadTail(flow.headTailRule, flow.lines, flow.available, moved);
    QList<STextItem> word;
    ligatureText(flow.hyphenate, flow.lines, word);

    // What was last of the piece goes back to the rest of its fragment, with which it is one run again.
    int returned = 0;
    if (moved.isEmpty() && !word.isEmpty() && word.last().text.length() <= piece.length()
        && word.last().madeFrom == fragment.format) {
        returned = word.last().text.length();
        word.removeLast();
    }
    flow.place(word); // it stood ahead of what the first repair has moved
    flow.place(moved);
    return returned;
}

/// Closes the last line, whose end may still move to one more.
void CWordProcess::closeBlock(LegacyFlow &flow)
{
    closeLine(flow, /*isLast=*/true);
    QList<STextItem> moved;
    avoidHeadTail(flow.headTailRule, flow.lines, flow.available, moved);
    if (moved.isEmpty())
        return;
    STextLine &former = flow.lines.last();
    former.isLastLine = false;
    finishLine(former, flow.block, m_documentDpi);
    openLine(flow, /*isFirst=*/false);
    flow.place(moved);
    closeLine(flow, /*isLast=*/true);
}

// Alignment

bool CWordProcess::lineXOffset(const STextLine &line, double extent, double &start,
                               double &spacing) const
{
    start = line.leftMargin + line.indent;
    const double free = extent - (line.rightMargin + line.leftMargin + line.indent);
    if (!(free > 0))
        return false;
    const bool isRow = m_textOrientation == Qt::Horizontal;
    const int atEnd = isRow ? Qt::AlignRight : Qt::AlignBottom;
    const int centred = isRow ? Qt::AlignHCenter : Qt::AlignVCenter;
    if (line.alignment == centred || (line.alignment == JustifyLastCentred && line.isLastLine))
        start += (free - line.width) * 0.5;
    if (line.alignment == atEnd || (line.alignment == JustifyLastAtEnd && line.isLastLine))
        start += free - line.width;
    spacing = attachSpacing(line);
    return true;
}

double CWordProcess::attachSpacing(const STextLine &line) const
{
    const bool isRow = m_textOrientation == Qt::Horizontal;
    switch (line.alignment) {
    case JustifyLastAtStart:
    case JustifyLastCentred:
    case JustifyLastAtEnd:
        if (line.isLastLine)
            return 0;
        break;
    default: // these two justify the last line as well
        if (line.alignment != (isRow ? int(Qt::AlignJustify) : JustifyColumn))
            return 0;
        break;
    }
    const int count = line.length();
    if (count < 2)
        return 0;
    const double budget = isRow ? m_clientRect.width() : m_clientRect.height();
    return (budget - line.leftMargin - line.rightMargin - line.indent - line.width) / (count - 1);
}
