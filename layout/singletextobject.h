// SPDX-License-Identifier: MIT
#ifndef SINGLETEXTOBJECT_H
#define SINGLETEXTOBJECT_H

#include "layout/laidoutblocks.h"
#include "layout/textobjectbase.h"
#include "layout/outlines.h"

/// Layout of line text: each block is exactly one line (a column in vertical text), however long.
/// There is no box to fit. The text hangs at the anchor textOffset(): the first block's baseline
/// runs through it, a right-aligned block ends at it, a centred one is centred on it. The stretch
/// of the object plays no part here.
class CSingleTextObject : public CTextObjectBase
{
public:
    explicit CSingleTextObject(CWordProcess *object);

    void verticalLayout() override;
    void horizontalLayout() override;

    /// Lays out the placeholder word in the cursor's format. Without a placeholder it does
    /// nothing, so that the result before it stays.
    void defaultWordLayout() override;

private:
    void startBlocks();
    void endBlocks();

    QPainterPath horizontalPlaceholder(QRectF &rect) const;
    QPainterPath verticalPlaceholder(QRectF &rect) const;

    OutlineSource m_outlines;
    LaidOutBlocks m_blocks;
};

#endif // SINGLETEXTOBJECT_H
