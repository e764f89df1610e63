// SPDX-License-Identifier: MIT
// wordprocess_mouse.cpp -- CWordProcess: drawing a new object, the way into an edit, caret and selection under
// the pointer, hover.
// Changes: m_pressPos, m_dragPos, m_mouseSelecting, m_dragMovesObject, m_cursor, m_selStart, m_selEnd,
// m_selAnchor, m_cursorAtLineEnd; the release that ends the drawing also m_wordWrap and m_created.
// What is not the text's business goes on to the host's handling.
#include "wordprocess/cwordprocess.h"

#include "host/framework/idocumenthost.h"
#include "host/framework/ivxpage.h"
#include "layout/fittingsearch.h"
#include "layout/outlines.h"
#include "layout/textlayout.h"
#include "layout/texttools.h"
#include "layout/wordmanager.h"
#include "wordprocess/codepoints.h"
#include "wordprocess/hostdefaults.h"
#include "wordprocess/numbers.h"

#include <QFontMetricsF>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QTextBlock>

#include <algorithm>
#include <limits>

namespace {
constexpr double smallestDrag = 3.0;    // item units; below it a press and release is a click
constexpr double smallestBoxSide = 5.0; // of a box that is drawn
constexpr int textObjectDrawn = 243;    // command to the page's tools

constexpr int longestWalk = 256; // characters of a run whose prefixes are all measured
constexpr int joinedText = 64;   // within which a longer prefix can be the shorter one

const QLatin1String wordWrapKey("text_wordwrap");
const QLatin1String directionKey("direction");
const QLatin1String noDirection("none");
const QLatin1String moveDirection("edit_move");

struct HandleName {
    int handle;
    QLatin1String name;
};

// clang-format off
const HandleName handleNames[] = {
    {CObjAction::ACT_TopLeft,      QLatin1String("tl_or_br")},
    {CObjAction::ACT_BottomRight,  QLatin1String("tl_or_br")},
    {CObjAction::ACT_TopCentre,    QLatin1String("tc_or_bc")},
    {CObjAction::ACT_BottomCentre, QLatin1String("tc_or_bc")},
    {CObjAction::ACT_TopRight,     QLatin1String("tr_or_br")},
    {CObjAction::ACT_BottomLeft,   QLatin1String("tr_or_br")},
    {CObjAction::ACT_Right,        QLatin1String("cr_or_cl")},
    {CObjAction::ACT_Left,         QLatin1String("cr_or_cl")},
};
// clang-format on

QLatin1String nameOfHandle(int handle)
{
    for (const HandleName &row : handleNames) {
        if (row.handle == handle)
            return row.name;
    }
    return noDirection;
}

/// Where the prefixes of a run end along its line.
class PrefixEnds
{
public:
    PrefixEnds(const TextFragment &run, Qt::Orientation orientation)
        : m_run(run)
        , m_scale(orientation == Qt::Horizontal ? run.scaleX : run.scaleY)
        , m_text(run.text, run.font, m_scale, FittingSearch::Fast)
    {
    }

    qreal of(int length) const
    {
        if (length <= 0)
            return m_run.start;
        if (m_run.isHalfPunct)
            return m_run.start + m_run.advance;
        return m_run.start + m_text.width(length);
    }

    /// True when much longer prefixes end further along, though not each longer one.
    bool riseOnTheWhole() const { return m_scale >= 0 && m_run.font.letterSpacing() >= 0; }

    /// True when a longer prefix always ends further along.
    bool rise() const
    {
        return riseOnTheWhole()
               && std::all_of(m_run.text.cbegin(), m_run.text.cend(), standsForItself);
    }

    /// A prefix that ends at or before \a along, the longest one where the ends rise. Only a few are measured.
    int reaching(qreal along) const
    {
        const MeasuredText::Fit fit = m_text.fit(m_run.start, along);
        const int length = qBound(0, fit.length, m_run.text.length() - 1);
        return splitsPair(m_run.text, length) ? length - 1 : length;
    }

private:
    const TextFragment &m_run;
    qreal m_scale;
    MeasuredText m_text;
};

/// How many characters of a run lie before \a along, which lies behind its start. From the last character to
/// the first; where the ends of prefixes rise, or are too many to be measured one by one, from near the place.
int charactersBefore(qreal along, const TextFragment &run, Qt::Orientation orientation)
{
    const QString &text = run.text;
    if (text.isEmpty())
        return 0;
    const PrefixEnds ends(run, orientation);
    int next = text.length();
    if (ends.rise()) {
        next = indexAfter(text, ends.reaching(along));
    } else if (ends.riseOnTheWhole() || next > longestWalk) {
        next = qMin(next, ends.reaching(along) + joinedText);
        if (splitsPair(text, next))
            ++next;
    }
    qreal nextEnd = ends.of(next);
    while (next > 0) {
        const int length = indexBefore(text, next);
        const qreal end = ends.of(length);
        if (along > (end + nextEnd) / 2)
            return next;
        if (along >= end)
            return length;
        next = length;
        nextEnd = end;
    }
    return 0;
}

int positionInRun(const TextFragment &run, qreal along, Qt::Orientation orientation)
{
    if (orientation == Qt::Vertical && run.isCJK)
        return run.position + (along > run.start + run.advance / 2 ? run.length : 0);
    // The run may show more than it holds: a hyphen, or two capitals for one letter.
    return run.position + qMin(run.length, charactersBefore(along, run, orientation));
}

enum class CharacterClass {
    Ideograph,
    Letter, ///< neither CJK nor a mark nor blank
    Alone,  ///< marks and blanks
};

CharacterClass classOf(QChar character)
{
    if (character.isSpace() || CTextTools::isCJKPunct(character))
        return CharacterClass::Alone;
    return CTextTools::isCJKChar(character) ? CharacterClass::Ideograph : CharacterClass::Letter;
}

/// A blank that belongs to the word ahead of it; the end of a line does not.
bool isBlankWithinLine(QChar character)
{
    return character == QLatin1Char('\t') || character.category() == QChar::Separator_Space;
}

bool isPositive(const QSizeF &size)
{
    return size.width() > 0 && size.height() > 0;
}
} // namespace

// Positions under a point

/// The point of \a event on the text as it is laid out: item coordinates without flip and mirror, stretched.
QPointF CWordProcess::textPoint(const QGraphicsSceneMouseEvent &event) const
{
    return flipTransform().map(mapFromScene(event.scenePos()));
}

int CWordProcess::positionUnder(const QGraphicsSceneMouseEvent &event)
{
    const QPointF point = textPoint(event);
    return m_textOrientation == Qt::Vertical ? vCursorPosByMouse(point) : hCursorPosByMouse(point);
}

int CWordProcess::hCursorPosByMouse(const QPointF &point)
{
    if (!m_newVersion)
        return legacyPositionUnder(point);
    return positionInLines(point.y() / divisor(m_scaleY), point.x() / divisor(m_scaleX),
                           Qt::Horizontal);
}

int CWordProcess::vCursorPosByMouse(const QPointF &point)
{
    if (!m_newVersion)
        return legacyPositionUnder(point);
    // Columns follow each other to the left.
    return positionInLines(-point.x() / divisor(m_scaleX), point.y() / divisor(m_scaleY),
                           Qt::Vertical);
}

/// \param across  how far down the flow of lines the point lies
int CWordProcess::positionInLines(qreal across, qreal along, Qt::Orientation orientation)
{
    const TextLayout layout = m_wordManager->textLayout();
    const int documentEnd = m_document->characterCount() - 1;
    const QVector<qreal> &edges = lineEdges(layout);
    const auto taken = std::upper_bound(edges.cbegin(), edges.cend(), across);
    if (taken == edges.cend()) {
        m_cursorAtLineEnd = false;
        if (layout.lines.isEmpty())
            return 0;
        const TextLine &last = layout.lines.last();
        return qBound(0, last.position + last.length, documentEnd);
    }
    const TextLine &line = layout.lines.at(int(taken - edges.cbegin()));
    if (line.isEmptyBlock)
        return qBound(0, line.position, documentEnd);
    const int position = positionInLine(line, along, orientation);
    m_cursorAtLineEnd = m_wordWrap && position == line.position;
    return qBound(0, position, documentEnd);
}

int CWordProcess::positionInLine(const TextLine &line, qreal along, Qt::Orientation orientation)
{
    for (int i = line.fragments.size() - 1; i >= 0; --i) {
        const TextFragment &run = line.fragments.at(i);
        if (run.start < along)
            return positionInRun(run, along, orientation);
    }
    return line.position;
}

/// A line is taken by what lies before its edge: below the baseline by the descent of its font, left of the middle
/// of a column by half its width. An edge that lies before that of an earlier line is never reached, so that the
/// line of a point can be found by halving.
const QVector<qreal> &CWordProcess::lineEdges(const TextLayout &layout)
{
    if (m_lineEdges.size() == layout.lines.size())
        return m_lineEdges;
    m_lineEdges.clear();
    m_lineEdges.reserve(layout.lines.size());
    const double widening = m_wordWrap ? m_transformScaleX : 1.0; // of columns
    qreal farthest = -std::numeric_limits<qreal>::infinity();
    for (const TextLine &line : layout.lines) {
        const QFontMetricsF metrics(line.font);
        const qreal edge = layout.orientation == Qt::Horizontal
                               ? line.origin.y() + metrics.descent()
                               : metrics.height() / 2 * widening - line.origin.x();
        if (edge > farthest)
            farthest = edge;
        m_lineEdges.append(farthest);
    }
    return m_lineEdges;
}

// Press

void CWordProcess::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    const KeepAlive alive(*this); // the host may end the object in what it hears meanwhile
    if (!m_created) {
        m_pressPos = textPoint(*event);
        m_dragPos = m_pressPos; // a click without a drag shows no frame
        return;
    }
    if (HitTestHandle(mapFromScene(event->scenePos())) != CObjAction::ACT_None) {
        CBaseObject::mousePressEvent(event);
        if (!isPositive(m_baseSize))
            m_baseSize = m_clientRect.size();
        return;
    }
    if (event->button() == Qt::LeftButton)
        m_mouseSelecting = true;
    if (m_editing && m_mouseSelecting)
        pressInEdit(*event);
    else if (!m_editing && currentTool() == Tool::Text && !isLocked())
        enterEditByPress(*event);
    else
        CBaseObject::mousePressEvent(event);
}

void CWordProcess::pressInEdit(const QGraphicsSceneMouseEvent &event)
{
    if (!m_clientRect.contains(textPoint(event))) {
        m_dragMovesObject = true;
        m_pressPos = event.scenePos();
        return;
    }
    settleComposition();
    clearSelection();
    m_selAnchor = -1;
    takePressedPosition(positionUnder(event));
}

void CWordProcess::takePressedPosition(int position)
{
    if (position < 0)
        return;
    m_cursor->setPosition(position);
    m_selAnchor = position;
    m_cursorVisible = true;
    m_selStart = position;
    m_selEnd = position;
    notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

void CWordProcess::enterEditByPress(const QGraphicsSceneMouseEvent &event)
{
    if (fontsAreComplete()) {
        img2paths();
        deselectOtherObjects();
        beginEdit();
        takePressedPosition(
            positionUnder(event)); // on the text box, to which the edit has gone back
    } else {
        notifyTextOperation(TextOperationMissingFonts, {});
    }
    m_mouseSelecting = false;
}

void CWordProcess::deselectOtherObjects()
{
    IVxPage *page = GetPage();
    if (!page)
        return;
    const QList<CVXRootObject *> selected = page->getSelectedObjects();
    for (CVXRootObject *object : selected) {
        if (object && object != this)
            object->doSelected(false, false);
    }
}

// Move

void CWordProcess::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    const KeepAlive alive(*this);
    if (!m_created) {
        m_dragPos = textPoint(*event);
        notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
        return;
    }
    if (m_activeHandle != CObjAction::ACT_None || !m_editing) {
        CBaseObject::mouseMoveEvent(event);
        return;
    }
    if (!m_mouseSelecting)
        return;
    if (m_dragMovesObject) {
        setPos(getPos() + (event->scenePos() - m_pressPos), false);
        m_pressPos = event->scenePos();
        return;
    }
    settleComposition();
    selectUpTo(positionUnder(*event));
}

/// Carries the selection from its fixed end on to \a position.
void CWordProcess::selectUpTo(int position)
{
    if (position < 0)
        return;
    m_cursor->setPosition(position, QTextCursor::KeepAnchor);
    if (m_selAnchor >= 0) {
        m_selStart = qMin(m_selAnchor, position);
        m_selEnd = qMax(m_selAnchor, position);
    }
    m_cursorAtLineEnd = m_wordWrap; // a selection that begins at a wrap begins on the next line
    notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

/// False behind the last character of a paragraph, where no line can wrap.
bool CWordProcess::isSeamPossible(int position) const
{
    const QTextBlock block = m_document->findBlock(position);
    return block.length() <= 1 || position != block.position() + block.length() - 1;
}

// Release

void CWordProcess::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    const KeepAlive alive(*this);
    if (!m_created) {
        m_textOffset = QPointF(0, 0);
        m_dragPos = textPoint(*event);
        takeDrawnForm();
        announceNewObject();
    } else if (m_activeHandle != CObjAction::ACT_None) {
        notifyTextOperation(TextOperationAttributes, {});
        CBaseObject::mouseReleaseEvent(event);
        return;
    } else if (m_editing) {
        notifyTextOperation(TextOperationAttributes, {});
    } else {
        CBaseObject::mouseReleaseEvent(event);
    }
    m_mouseSelecting = false;
    m_dragMovesObject = false;
}

/// A drag makes a box of its size, a click line text.
void CWordProcess::takeDrawnForm()
{
    const QRectF drawn = getDrawClientRect();
    m_wordWrap = drawn.width() >= smallestDrag || drawn.height() >= smallestDrag;
    if (m_wordWrap || m_newVersion)
        m_wordManager->setWordWrap(m_wordWrap);
    if (m_wordWrap) {
        const QSizeF size(qMax(smallestBoxSide, drawn.width()),
                          qMax(smallestBoxSide, drawn.height()));
        QPointF corner = getPos(); // the press, unless the drag led back over it
        if (drawn.left() < 0)
            corner.rx() -= size.width();
        if (drawn.top() < 0)
            corner.ry() -= size.height();
        updatePosition(this, QRectF(corner, size));
        updateTextPaths(); // an empty text takes the box too: it is what the first edit goes back to
    }
    m_saveParams[wordWrapKey] = m_wordWrap;
}

void CWordProcess::announceNewObject()
{
    IVxPage *page = GetPage();
    IDocumentHost *document = getDocument();
    IToolController *tools = page ? page->getToolController() : nullptr;
    if (page)
        page->beginObjectBatch();
    if (document)
        document->beginUndoGroup(QStringLiteral("IDS_ITEM_ADD_ITEM"));
    if (tools)
        tools->postToolCommand(textObjectDrawn, 0, 0);
    onCreateFinished(true);
    if (document)
        document->endUndoGroup();
    if (page)
        page->endObjectBatch();
    m_created = true;
}

// Double click

void CWordProcess::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    if (!event)
        return;
    const KeepAlive alive(*this);
    m_cursorAtLineEnd = false;
    if (!m_editing) {
        enterEditByDoubleClick();
        return;
    }
    settleComposition();
    const int position = positionUnder(*event);
    if (position < 1)
        return;
    if (m_newVersion)
        doubleSelectText(position - 1);
    else
        selectLegacyLine(position);
    notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

/// Only an object that is finished, unlocked and selected alone is entered.
void CWordProcess::enterEditByDoubleClick()
{
    IVxPage *page = GetPage();
    if (!m_created || !page || !isSelected() || page->getSelectedObjects().size() > 1
        || !GetFramework() || isLocked())
        return;
    if (!fontsAreComplete()) {
        notifyTextOperation(TextOperationMissingFonts, {});
        return;
    }
    if (currentTool() != Tool::Text) {
        notifyTextOperation(TextOperationAboutToEdit, {});
        setSelected(true);
    }
    img2paths();
    beginEdit();
    selectAll();
    hoverEnterEvent(nullptr);
}

void CWordProcess::doubleSelectText(int position)
{
    const QString text = toPlainText();
    if (!m_newVersion || position < 0 || position >= text.length())
        return;
    endComposition();
    int start = position;
    int end = position + 1;
    const CharacterClass kind = classOf(text.at(position));
    if (kind != CharacterClass::Alone) {
        while (start > 0 && classOf(text.at(start - 1)) == kind)
            --start;
        while (end < text.length() && classOf(text.at(end)) == kind)
            ++end;
        if (end < text.length() && isBlankWithinLine(text.at(end)))
            ++end; // deliberate: a word comes with one blank behind it
    }
    m_selStart = start;
    m_selEnd = end;
}

// Hover

void CWordProcess::hoverEnterEvent(QGraphicsSceneHoverEvent * /*event*/)
{
    notifyTextOperation(TextOperationPointerEntered, {});
}

void CWordProcess::hoverMoveEvent(QGraphicsSceneHoverEvent *event)
{
    if (!m_editing || !event)
        return;
    const QPointF point = mapFromScene(event->scenePos());
    QLatin1String name = noDirection;
    if (m_wordWrap) // the handles of line text do not count
        name = nameOfHandle(HitTestHandle(point));
    if (name == noDirection && !QRectF(QPointF(0, 0), m_clientRect.size()).contains(point))
        name = moveDirection;
    notifyTextOperation(TextOperationPointerShape, {{directionKey, QString(name)}});
}

void CWordProcess::hoverLeaveEvent(QGraphicsSceneHoverEvent * /*event*/)
{
    notifyTextOperation(TextOperationPointerLeft, {});
}
