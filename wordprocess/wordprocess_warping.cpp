// SPDX-License-Identifier: MIT
// wordprocess_warping.cpp -- CWordProcess: the warp's object side.
// Changes: m_morphPaths, m_morphRect, m_baseSize and the client rectangle. Text is not bent yet: whatever
// the style, the object takes the box that it has without a warp.
#include "wordprocess/cwordprocess.h"

#include "layout/textlayout.h"
#include "layout/wordmanager.h"
#include "wordprocess/numbers.h"
#include "wordprocess/warpkeys.h"

void CWordProcess::initMorphHandles() {}

/// The warp as it is stored and shown everywhere: values as whole percent.
void CWordProcess::addWarpAttributes(AttributeMap &attributes) const
{
    attributes[WarpKey::Style] = m_warpStyle;
    attributes[WarpKey::Value] = percentOf(m_warpValue);
    attributes[WarpKey::HorizontalValue] = percentOf(m_warpHorizontalValue);
    attributes[WarpKey::VerticalValue] = percentOf(m_warpVerticalValue);
    attributes[WarpKey::Orientation] = m_warpOrientation;
}

void CWordProcess::updateMorphTextPaths()
{
    if (m_editing) { // text is always edited unwarped
        dropMorphPaths();
    } else {
        if (!m_wordWrap)
            updatePosition(this, QRectF(getPos(), m_textPathsRect.size()));
        takeUnwarpedBox();
    }
    // Wrapped text in edit state keeps its box.
    if (!m_wordWrap || !m_editing)
        applyStretchToBox();
}

void CWordProcess::takeUnwarpedBox()
{
    if (m_textPathsRect.width() > 0 && m_textPathsRect.height() > 0) {
        updatePosition(this, QRectF(mapToScene(m_morphRect.topLeft()), m_textPathsRect.size()));
        m_baseSize = m_textPathsRect.size();
    }
    dropMorphPaths();
}

void CWordProcess::dropMorphPaths()
{
    const std::lock_guard<PathsMutex> guard(m_pathsMutex);
    m_morphPaths.clear();
    m_morphRect = QRectF(0, 0, 0, 0);
}

void CWordProcess::applyStretchToBox()
{
    const QSizeF size(m_scaleX * m_clientRect.width(), m_scaleY * m_clientRect.height());
    updatePosition(this, QRectF(getPos(), size));
}

QList<QLineF> CWordProcess::getAllBaseLines() const
{
    return m_wordManager ? m_wordManager->textLayout().baselines() : QList<QLineF>();
}
