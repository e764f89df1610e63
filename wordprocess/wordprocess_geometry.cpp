// SPDX-License-Identifier: MIT
// wordprocess_geometry.cpp -- CWordProcess: from a change to layout, paths, bounds and back.
// Changes: m_clientRect, m_textPaths and its companions, m_boundsMargins, m_baseSize, m_textOffset and
// the stretch. The client rectangle stays at (0, 0) after every step.
#include "wordprocess/cwordprocess.h"

#include "layout/outlinesum.h"
#include "layout/textlayout.h"
#include "layout/textproperties.h"
#include "layout/wordmanager.h"
#include "wordprocess/numbers.h"

#include <QFontMetricsF>
#include <QTextBlock>

namespace {
constexpr double smallestSide = 20.0; // of a client rectangle without any text

/// A path measures its bounds when it is asked for them, even on a thread that only paints it. The layout still
/// holds these paths: measured now, they are only read from here on.
void measureBounds(const QList<QPainterPath> &paths)
{
    for (const QPainterPath &path : paths) {
        path.boundingRect();
        path.controlPointRect();
    }
}

bool isFinite(const QRectF &rect)
{
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width())
           && std::isfinite(rect.height());
}
} // namespace

void CWordProcess::updateBoundingRectImpl(bool legacyArgument)
{
    if (!m_newVersion) {
        updateBoundingRectForOldVersion(legacyArgument);
        return;
    }
    // Outside edit state the object stands at its warp rectangle and goes back to its text box first.
    if (!m_editing)
        returnToTextBox();
    layOutAgain();
}

/// From layout to warp, with the box as it stands.
void CWordProcess::layOutAgain()
{
    updateBoundingRect(/*adjustToLayout=*/true);
    if (m_wordWrap) {
        const QRectF bounds = recordOriginalBounds();
        if (!m_editing)
            useOriBounds(bounds);
    }
    updateMorphTextPaths();
}

void CWordProcess::returnToTextBox()
{
    moveToWarpOrigin();
    if (m_wordWrap)
        useOriBounds(getClientRectForOribounds());
}

void CWordProcess::moveToWarpOrigin()
{
    const QPointF corner(m_morphRect.x() * m_scaleX, m_morphRect.y() * m_scaleY);
    updatePosition(this, QRectF(mapToScene(corner),
                                stretched(m_textPathsRect.size(), m_scaleX, m_scaleY)));
}

void CWordProcess::updateBoundingRect(bool adjustToLayout)
{
    if (!m_newVersion)
        return;
    prepareGeometryChange(); // the bounds of an edited box follow its paths
    m_wordManager->layout();
    if (m_wordWrap && m_autoWordWrap && m_wordManager->textOriRect() != m_clientRect)
        followTextBox();
    if (adjustToLayout) {
        const QRectF box = m_wordManager->textOriRect();
        const QSizeF size(box.width() == 0 ? smallestSide : box.width(),
                          box.height() == 0 ? smallestSide : box.height());
        updatePosition(this, QRectF(topLeftAroundCentre(box), size));
        m_wordManager->layout();
    }
    updateTextPaths();
}

void CWordProcess::followTextBox()
{
    const QRectF box = m_wordManager->textOriRect();
    if (m_textOrientation != Qt::Horizontal) {
        updatePosition(this, QRectF(topLeftAroundCentre(box), box.size()));
        m_wordManager->layout();
        return;
    }
    const double bottom = box.y() + box.height();
    const double oldBottom = m_clientRect.y() + m_clientRect.height();
    const QSizeF size(m_clientRect.width(), bottom - m_clientRect.y());
    updatePosition(this, QRectF(getPos(), size));
    if (bottom > oldBottom)
        m_wordManager->layout();
}

/// Scene position that keeps the centre of \a box where it is when the client rectangle takes its size.
QPointF CWordProcess::topLeftAroundCentre(const QRectF &box) const
{
    const QPointF centre = mapToScene(box.center());
    QTransform turn;
    turn.translate(centre.x(), centre.y());
    turn.rotate(rotation(), Qt::ZAxis);
    turn.translate(-centre.x(), -centre.y());
    return turn.map(QPointF(centre.x() - box.width() / 2, centre.y() - box.height() / 2));
}

void CWordProcess::updateTextPaths()
{
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    m_wordManager->textPaths(paths, brushes);
    measureBounds(paths);
    forgetLineEdges();
    const bool placeholder = toPlainText().isEmpty();
    {
        const std::lock_guard<PathsMutex> guard(
            m_pathsMutex); // not across calls to the word manager
        m_pathsArePlaceholder = placeholder;
        m_textPaths.swap(paths);
        m_pathBrushes.swap(brushes);
        m_morphPaths.clear();
        m_textPathsRect = m_clientRect;
        m_morphRect = QRectF(0, 0, 0, 0);
    }
    m_baseSize = m_textPathsRect.size();
}

void CWordProcess::setClientSize(const QSizeF &size)
{
    {
        const std::lock_guard<PathsMutex> guard(m_pathsMutex); // painting may run on another thread
        m_clientRect = QRectF(QPointF(0, 0), size);
    }
    delete m_clientShape;
    m_clientShape = new QPainterPath;
    m_clientShape->addRect(m_clientRect);
}

void CWordProcess::updatePosition(QGraphicsItem *item, const QRectF &sceneRect)
{
    if (!isFinite(sceneRect)) // a stretch that overflows leaves the object where it is
        return;
    if (m_wordWrap || !m_newVersion) {
        setPos(sceneRect.topLeft(), false);
        setClientSize(sceneRect.size());
        updateAfterObjRectChanged(item, true);
        notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
        return;
    }
    const QPointF sceneAnchor = mapToScene(m_textOffset);
    const QPointF oldPos = getPos();
    setPos(sceneRect.topLeft(), false);
    m_wordManager->updatePosition(oldPos.x() - sceneRect.x(), oldPos.y() - sceneRect.y(),
                                  sceneRect.width(), sceneRect.height());
    forgetLineEdges();
    setClientSize(sceneRect.size());
    updateAfterObjRectChanged(item, true);
    m_textOffset = mapFromScene(sceneAnchor); // the anchor stays where it was on the scene
    notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

QRectF CWordProcess::recordOriginalBounds()
{
    if (!m_wordWrap || !m_newVersion || toPlainText().isEmpty())
        return QRectF();
    const QRectF ink = boundsOf(m_textPaths);
    const QRectF &client = m_clientRect;
    const QPointF topLeft(qMin(ink.left(), client.left()), qMin(ink.top(), client.top()));
    const QPointF bottomRight(qMax(ink.x() + ink.width(), client.x() + client.width()),
                              qMax(ink.y() + ink.height(), client.y() + client.height()));
    const QRectF result(topLeft, bottomRight);
    m_boundsMargins.left = result.x() - client.x();
    m_boundsMargins.top = result.y() - client.y();
    m_boundsMargins.right = bottomRight.x() - (client.x() + client.width());
    m_boundsMargins.bottom = bottomRight.y() - (client.y() + client.height());
    return result;
}

void CWordProcess::useOriBounds(const QRectF &bounds)
{
    if (!m_wordWrap || !isFinite(bounds) || !(bounds.width() > 0) || !(bounds.height() > 0))
        return;
    const QPointF corner = m_clientRect.topLeft();
    setPos(mapToScene(bounds.topLeft()), false);
    m_wordManager->updatePosition(corner.x() - bounds.x(), corner.y() - bounds.y(), bounds.width(),
                                  bounds.height());
    setClientSize(bounds.size());
    updateAfterObjRectChanged(this, true);
    updateTextPaths();
}

QRectF CWordProcess::getClientRectForOribounds() const
{
    const BoundsMargins &m = m_boundsMargins;
    if (!m_wordWrap || (m.left == 0 && m.top == 0 && m.right == 0 && m.bottom == 0))
        return m_clientRect;
    const double x = m_clientRect.x() - m.left * m_scaleX;
    const double y = m_clientRect.y() - m.top * m_scaleY;
    return QRectF(x, y, m_clientRect.x() + m_clientRect.width() - m.right * m_scaleX - x,
                  m_clientRect.y() + m_clientRect.height() - m.bottom * m_scaleY - y);
}

void CWordProcess::setSize(const QSizeF &size, bool undo, bool notify)
{
    if (!isFinite(QRectF(QPointF(), size)) || !size.isValid())
        return;
    const KeepAlive guard(*this); // the base pushes a step
    // One handle, two meanings, deliberate: glyphs are scaled outside an edit and rewrapped during it.
    if (!m_editing)
        stretchTo(size, undo, notify);
    else if (m_wordWrap && fontsAreComplete())
        reflowTo(size, notify);
}

void CWordProcess::stretchTo(const QSizeF &size, bool undo, bool notify)
{
    if (size == m_clientRect.size() || !(m_baseSize.width() > 0) || !(m_baseSize.height() > 0))
        return;
    (m_showFontImage ? m_fontImageScaleX : m_scaleX) = size.width() / m_baseSize.width();
    (m_showFontImage ? m_fontImageScaleY : m_scaleY) = size.height() / m_baseSize.height();
    CBaseObject::setSize(size, undo, notify);
}

void CWordProcess::reflowTo(const QSizeF &size, bool notify)
{
    if (size == m_clientRect.size())
        return;
    setClientSize(size);
    m_baseSize = size;
    CVXRootObject::setSize(size, false, notify);
    if (m_autoWordWrap) { // a box that the user has sized no longer follows its text
        m_autoWordWrap = false;
        notifyTextOperation(TextOperationAttributes, {});
    }
    updateBoundingRectImpl(true);
}

bool CWordProcess::wordwrap2single(QPointF &textOffset)
{
    if (!m_wordWrap || !m_newVersion)
        return false;
    if (!m_editing)
        moveToWarpOrigin();
    const TextLayout layout = m_wordManager->textLayout();
    textOffset = anchorOfFirstLine(layout);
    turnSoftWrapsIntoLineEnds(layout);
    return true;
}

/// The point of the box to which its first line is aligned, as anchor of line text.
QPointF CWordProcess::anchorOfFirstLine(const TextLayout &layout) const
{
    const QTextBlockFormat format = m_document->firstBlock().blockFormat();
    const int alignment = format.property(TextProperty::Alignment).toInt();
    const bool hasLines = !layout.lines.isEmpty();
    const QFontMetricsF metrics(hasLines ? layout.lines.first().font
                                         : m_cursor->blockCharFormat().font());
    const double width = m_clientRect.width();
    const double height = m_clientRect.height();
    QPointF anchor(0, 0);
    if (m_textOrientation == Qt::Horizontal) {
        if (alignment == Qt::AlignHCenter)
            anchor.setX(width * 0.5 / divisor(m_transformScaleX));
        else if (alignment == Qt::AlignRight)
            anchor.setX(width / divisor(m_transformScaleX));
        anchor.setY(metrics.ascent());
        return anchor;
    }
    if (alignment == Qt::AlignVCenter)
        anchor.setY(height * 0.5);
    else if (alignment == Qt::AlignBottom)
        anchor.setY(height);
    const double right = hasLines ? width / divisor(m_scaleX * m_transformScaleX) : width;
    anchor.setX(right - metrics.height() * 0.5);
    return anchor;
}

/// From the last line but one to the first, so that earlier positions stay valid.
void CWordProcess::turnSoftWrapsIntoLineEnds(const TextLayout &layout)
{
    const QString text = toPlainText();
    for (int i = layout.lines.size() - 2; i >= 0; --i) {
        const TextLine &line = layout.lines.at(i);
        const int end = line.position + line.length;
        if (line.fragments.isEmpty() || end < 0 || end >= text.size()
            || text.at(end) == QLatin1Char('\n'))
            continue;
        m_cursor->setPosition(end);
        m_cursor->insertText(QStringLiteral("\n"));
    }
}

QPainterPath CWordProcess::getClientPathImpl() const
{
    if (m_newVersion)
        return sumOf(!m_editing && !m_morphPaths.isEmpty() ? m_morphPaths : m_textPaths);
    QPainterPath path;
    if (m_showFontImage) {
        path.addRect(m_clientRect);
        return path;
    }
    for (const STextLine &line : m_legacyLines) {
        for (const STextItem &item : line.items)
            path.addPath(item.path);
    }
    return path;
}

QPainterPath CWordProcess::getClientPath()
{
    return paintTransform().map(getClientPathImpl());
}

QRectF CWordProcess::getDrawClientRect()
{
    if (!m_created) {
        return QRectF(qMin(m_pressPos.x(), m_dragPos.x()), qMin(m_pressPos.y(), m_dragPos.y()),
                      qAbs(m_dragPos.x() - m_pressPos.x()), qAbs(m_dragPos.y() - m_pressPos.y()));
    }
    if (m_newVersion && m_editing && m_wordWrap)
        return m_wordManager->textPathRect().united(m_clientRect);
    return m_clientRect;
}
