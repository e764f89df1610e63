// SPDX-License-Identifier: MIT
// wordprocess_painting.cpp -- CWordProcess: content, caret, anchor and baselines, hint of missing fonts.
// Changes: m_cursorLine and m_cursorEndScenePos while painting; img2paths() changes the object's form.
#include "wordprocess/cwordprocess.h"

#include "layout/textlayout.h"
#include "layout/wordmanager.h"
#include "wordprocess/hostdefaults.h"
#include "wordprocess/numbers.h"
#include "wordprocess/outlinefill.h"

#include <QPainter>

namespace {
const QColor baselineColor(0, 0, 0, 128); // anchor square and baselines of line text
const QColor hintColor(0x02, 0x7a, 0xff); // label of the hint and frame of its object
constexpr double caretWidth = 2.0;        // cosmetic
constexpr double baselineWidth = 2.0;     // pixels of the view
constexpr double anchorSide = 4.0;        // scene
constexpr double hintPadding = 5.0;
constexpr double placeholderFrameOpacity = 0.1;

/// Angles at which a quarter turn has exchanged the axes of a picture.
bool isQuarterTurned(double degrees)
{
    return (degrees >= 90 && degrees < 180) || (degrees >= 270 && degrees < 360)
           || (degrees >= -90 && degrees < 0) || (degrees >= -270 && degrees < -180);
}
} // namespace

void CWordProcess::OnQPainterDraw(QPainter *painter)
{
    if (!painter)
        return;
    if (!m_created) {
        drawDragFrame(painter);
    } else if (m_showFontImage && !m_fontImage.isNull()) {
        painter->save();
        painter->scale(m_fontImageScaleX, m_fontImageScaleY);
        painter->drawImage(QPointF(0, 0), m_fontImage);
        painter->restore();
    } else if (m_newVersion) {
        if (m_wordWrap && m_editing)
            painter->translate(m_clientRect.topLeft() - getDrawClientRect().topLeft());
        drawTextPaths(painter);
        drawEditStatusPath(painter);
    } else if (m_clientRect.width() > 0 && m_clientRect.height() > 0) {
        if (m_textOrientation == Qt::Horizontal)
            horizontalPaint(painter);
        else
            verticalPaint(painter);
    }
}

void CWordProcess::drawDragFrame(QPainter *painter)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(QBrush(Qt::black), 0.5, Qt::DashLine));
    if (m_dragPos != m_pressPos) {
        const QRectF rect = getDrawClientRect();
        painter->translate(m_clientRect.topLeft() - rect.topLeft());
        painter->drawRect(truncated(rect.x() + 2), truncated(rect.y() + 2),
                          truncated(rect.width() - 4), truncated(rect.height() - 4));
    }
    painter->restore();
}

void CWordProcess::drawTextPaths(QPainter *painter)
{
    // May run beside the GUI thread: the document is not looked at here.
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    const bool placeholder = m_pathsArePlaceholder;
    const QTransform transform = paintTransform();
    const bool warped = !m_editing && !m_morphPaths.isEmpty() && !placeholder;
    const QList<QPainterPath> &paths = warped ? m_morphPaths : m_textPaths;
    const int count = qMin(paths.size(), m_pathBrushes.size());

    painter->setRenderHint(QPainter::Antialiasing, true);
    for (int i = 0; i < count; ++i) {
        const QPainterPath path = transform.map(paths.at(i));
        const bool faint = placeholder && i == 0; // the box behind the placeholder word
        if (faint) {
            painter->save();
            painter->setOpacity(placeholderFrameOpacity);
        }
        fillOutlines(*painter, path, placeholder ? path.fillRule() : Qt::WindingFill,
                     m_pathBrushes.at(i));
        if (faint)
            painter->restore();
    }
    painter->setRenderHint(QPainter::Antialiasing, false);
}

void CWordProcess::drawEditStatusPath(QPainter * /*painter*/)
{
    QPainterPath inverted;
    int start = 0;
    int end = 0;
    if (m_editing && selection(start, end)) {
        TextLayout layout = m_wordManager->textLayout();
        inverted = paintTransform().map(layout.selectionPath(start, end, showsOnNextLine(start)));
    }
    m_drawDelegate->setInvertArea(inverted);
}

void CWordProcess::paintHandlersInScene(QGraphicsItem *item, QPainter *painter)
{
    if (item == this && m_created) {
        const QTransform toScene = paintTransform() * sceneTransform();
        if (!m_wordWrap && m_editing && m_newVersion)
            paintAnchorAndBaselines(painter, toScene);
        if (m_editing && m_cursorVisible && m_newVersion) // the older engine's caret is content
            paintCaret(painter, toScene);
    }
    if (m_editing && !m_wordWrap)
        return; // line text has no handles during an edit
    CVXRootObject::paintHandlersInScene(item, painter);
}

void CWordProcess::paintAnchorAndBaselines(QPainter *painter, const QTransform &toScene)
{
    const QPainter::CompositionMode mode = painter->compositionMode();
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QPointF anchor = toScene.map(m_textOffset);
    painter->fillRect(QRectF(anchor.x() - anchorSide / 2, anchor.y() - anchorSide / 2, anchorSide,
                             anchorSide),
                      baselineColor);

    TextLayout layout = m_wordManager->textLayout();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(QBrush(baselineColor), baselineWidth / divisor(getCurZoomRate())));
    for (const QLineF &baseline : layout.baselines())
        painter->drawLine(toScene.map(baseline.p1()), toScene.map(baseline.p2()));
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setCompositionMode(mode);
}

void CWordProcess::paintCaret(QPainter *painter, const QTransform &toScene)
{
    const int position = m_cursor->position();
    const QLineF caret = m_wordManager->cursorLine(position, showsOnNextLine(position));
    m_cursorLine = QLineF(toScene.map(caret.p1()), toScene.map(caret.p2()));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    setTextCursorColor(painter);
    painter->drawLine(m_cursorLine);
    painter->restore();
    m_cursorEndScenePos = m_cursorLine.p2();
}

void CWordProcess::setTextCursorColor(QPainter *painter) const
{
    QPen pen(QBrush(m_cursorColor), caretWidth);
    pen.setCosmetic(true);
    painter->setPen(pen);
}

void CWordProcess::updateCursorColor(const QColor &background)
{
    if (background.alpha() == 0) {
        m_cursorColor = Qt::black;
        return;
    }
    // Relative luminance with the weights of ITU-R BT.709.
    const double luminance = 0.2126 * background.redF() + 0.7152 * background.greenF()
                             + 0.0722 * background.blueF();
    m_cursorColor = luminance < 0.5 ? Qt::white : Qt::black;
}

void CWordProcess::drawForeground(QPainter *painter, const QRectF & /*rect*/)
{
    if (m_editing || m_missingFonts.isEmpty() || m_missingFontHint.isEmpty())
        return;
    const QRectF object = mapRectToScene(m_clientRect);
    painter->save();
    QPainterPath hint;
    hint.addText(0, 0, hintFont(), m_missingFontHint);
    const QRectF ink = hint.boundingRect();
    painter->setRenderHint(QPainter::Antialiasing, false);
    const QSizeF labelSize(ink.width() + 2 * hintPadding, ink.height() + 2 * hintPadding);
    const QRectF label(QPointF(object.x(), object.y() - labelSize.height()), labelSize);
    painter->fillRect(label, hintColor);
    painter->setPen(QPen(QBrush(hintColor), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter->drawRect(object);
    painter->setRenderHint(QPainter::Antialiasing, true);
    hint.translate(label.topLeft() + QPointF(hintPadding, hintPadding) - ink.topLeft());
    painter->fillPath(hint, Qt::white);
    painter->restore();
}

QFont CWordProcess::hintFont() const
{
    QFont font = hostDefaultFont();
    font.setPixelSize(qMax(1, m_documentDpi * 11 / 72)); // integer arithmetic
    return font;
}

/// The picture's stretch along the axes of the text.
QSizeF CWordProcess::fontImageStretch() const
{
    const QSizeF stretch(m_fontImageScaleX, m_fontImageScaleY);
    return isQuarterTurned(m_fontImageRotation) ? stretch.transposed() : stretch;
}

void CWordProcess::img2paths()
{
    if (!m_showFontImage)
        return;
    const QSizeF oldSize = getSize();
    const QPointF centre = mapToScene(QPointF(oldSize.width() / 2, oldSize.height() / 2));
    const double angle = rotation();
    rotateObj(-angle, false);
    const QPointF pos = getPos();
    CVXRootObject::setSize(m_wordWrap ? m_fontImageClient.size() : QSizeF(0, 0), false, true);
    rotateObj(m_fontImageRotation, false);
    m_showFontImage = false;
    m_textOffset = QPointF(0, 0);
    const QSizeF factors = fontImageStretch();
    m_scaleX *= factors.width();
    m_scaleY *= factors.height();
    updateBoundsRectForImage2Path(pos, stretched(m_fontImageClient.size(), factors.width(),
                                                 factors.height()));
    updateAfterObjRectChanged(this, true);
    rotateObj(angle, false);
    if (!m_wordWrap)
        setCenterPos(centre, m_clientRect.size());
}

void CWordProcess::updateBoundsRectForImage2Path(const QPointF &pos, const QSizeF &size)
{
    if (!m_newVersion) {
        updateBoundingRectForOldVersion(true);
        return;
    }
    if (!m_editing)
        updatePosition(this, QRectF(pos, size));
    layOutAgain();
}
