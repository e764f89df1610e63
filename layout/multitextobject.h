// SPDX-License-Identifier: MIT
#ifndef MULTITEXTOBJECT_H
#define MULTITEXTOBJECT_H

#include "layout/fittingsearch.h"
#include "layout/laidoutblocks.h"
#include "layout/outlines.h"
#include "layout/textobjectbase.h"

struct BoxPass;

/// Layout of box text: breaks the document into lines inside the client rectangle, rows from the
/// top down or columns from the right to the left. Its width (in columns its height) limits the
/// lines, its other side limits how much text exists at all, unless the box follows its text. What
/// does not fit is left out; nothing is ever reported as an error.
class CMultiTextOjbect : public CTextObjectBase
{
public:
    explicit CMultiTextOjbect(CWordProcess *object);

    void verticalLayout() override;
    void horizontalLayout() override;
    void defaultWordLayout() override;

    /// How line ends are found from now on. The result is the same; tests compare both.
    void setFittingSearch(FittingSearch search) { m_search = search; }

    /// The text in pieces: each character that CTextTools::isCJKPunct() accepts, and the stretches
    /// between. Empty text has no pieces.
    QList<QString> punctSplit(const QString &text) const;

    /// The text in pieces: each character that CTextTools::isCJKChar() accepts, and the stretches
    /// between. Empty text has no pieces.
    QList<QString> CJKSplit(const QString &text) const;

    /// Where \a line must be cut because it may not end as it does, or because \a rest, the text
    /// behind the break, may not begin a line. \a mode: 1 relaxed, 2 strict. The outputs, which the
    /// caller sets to -1, name the first character that leaves the line; they stay when nothing has
    /// to move and become -1 when the rule is off or the line has no runs.
    /// Deliberate: horizontal text moves nothing for the sake of \a rest.
    void findAvoidHeadTailChByHorizontal(const TextLine &line, int mode, const QString &rest,
                                         int &fragmentIndex, int &charIndex);
    void findAvoidHeadTailChByVertical(const TextLine &line, int mode, const QString &rest,
                                       int &fragmentIndex, int &charIndex);

private:
    BoxPass startPass();
    void publish(const BoxPass &pass, const QRectF &box);

    FittingSearch m_search = FittingSearch::Fast;
    OutlineSource m_outlines;
    LaidOutBlocks m_blocks;
};

#endif // MULTITEXTOBJECT_H
