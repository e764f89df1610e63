// SPDX-License-Identifier: MIT
#ifndef TEXTOBJECTBASE_H
#define TEXTOBJECTBASE_H

#include "layout/textlayout.h"

class CWordProcess;
class QTextCursor;
class QTextDocument;

/// The four stretch factors of a text object, 1 for none.
struct TextScales {
    qreal scaleX = 1;
    qreal scaleY = 1;
    qreal transformScaleX = 1;
    qreal transformScaleY = 1;
};

/// Abstract layout object: keeps the result of the last layout and answers from it. Subclasses
/// compute that result. Not locked by itself: CWordManager serialises every access, and nothing
/// here may call back into CWordManager.
class CTextObjectBase
{
public:
    /// \a object is read at every layout, must outlive this and is not owned.
    explicit CTextObjectBase(CWordProcess *object);
    virtual ~CTextObjectBase();

    CTextObjectBase(const CTextObjectBase &) = delete;
    CTextObjectBase &operator=(const CTextObjectBase &) = delete;

    /// Each computes a layout and ends in updateData().
    virtual void verticalLayout() = 0;
    virtual void horizontalLayout() = 0;
    virtual void defaultWordLayout() = 0;

    /// Lays the document out in the object's writing direction; an empty document from the
    /// placeholder word.
    void layout();

    /// Stores a finished layout. The path rectangle before it is kept as the last one. An empty
    /// \a path stands for the outlines of the lines.
    void updateData(const TextLayout &layout, const QRectF &oriRect, const QRectF &pathRect,
                    const QPainterPath &path);

    /// Appends what is painted. For an empty document exactly two entries: the box, and the
    /// placeholder's outline over it.
    void textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes) const;

    /// Caret at \a pos; the placeholder's caret for any position while there are no lines.
    QLineF cursorLine(int pos, bool forward) const;

    /// Moves the finished layout by (\a dx, \a dy); the box becomes (0, 0, width, height).
    /// The last path rectangle and the placeholder's caret deliberately stay.
    void updatePosition(qreal dx, qreal dy, qreal width, qreal height);

    TextLayout textLayout() const;

    /// Box of the text.
    QRectF oriRect() const;

    /// Area that covers the outlines of the last two layouts.
    QRectF coveredRect() const;

protected:
    // What a layout may read of the text object, and nothing else.
    QTextDocument *document() const;
    QTextCursor *cursor() const;
    Qt::Orientation orientation() const; ///< 1 horizontal, any other value vertical
    int dpi() const;
    QString defaultWord() const;
    QPointF textOffset() const; ///< anchor of line text
    bool autoWordWrap() const;  ///< the box follows its text
    bool isEdited() const;      ///< key press after key press may follow
    QRectF box() const;         ///< client rectangle
    TextScales scales() const;
    void setScales(const TextScales &scales);

    /// An empty layout in the object's orientation and dpi.
    TextLayout startLayout() const;

    /// All outlines of the last layout.
    QPainterPath textPath() const;

    CWordProcess *m_object;
    TextLayout m_layout;
    QRectF m_oriRect;
    QRectF m_pathRect;
    QRectF m_lastPathRect;
    QPainterPath m_textPath; ///< see textPath()
    QLineF m_defaultCursorLine;
};

#endif // TEXTOBJECTBASE_H
