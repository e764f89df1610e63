// SPDX-License-Identifier: MIT
#include "layout/textobjectbase.h"

#include "wordprocess/cwordprocess.h"

CTextObjectBase::CTextObjectBase(CWordProcess *object)
    : m_object(object)
{
}

CTextObjectBase::~CTextObjectBase() = default;

void CTextObjectBase::layout()
{
    if (m_object->toPlainText().isEmpty())
        defaultWordLayout();
    else if (orientation() == Qt::Horizontal)
        horizontalLayout();
    else
        verticalLayout();
}

void CTextObjectBase::updateData(const TextLayout &layout, const QRectF &oriRect,
                                 const QRectF &pathRect, const QPainterPath &path)
{
    m_layout = layout;
    m_oriRect = oriRect;
    m_lastPathRect = m_pathRect;
    m_pathRect = pathRect;
    m_textPath = path;
}

void CTextObjectBase::textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes) const
{
    if (!m_object->toPlainText().isEmpty()) {
        m_layout.textPaths(paths, brushes);
        return;
    }
    QPainterPath box;
    box.addRect(m_oriRect);
    paths.append(box);
    brushes.append(QBrush(QColor(0x2E, 0x3C, 0x63)));
    paths.append(textPath());
    brushes.append(QBrush(QColor(0xA0, 0xA0, 0xA0)));
}

QPainterPath CTextObjectBase::textPath() const
{
    QPainterPath sum = m_textPath;
    if (sum.isEmpty()) {
        for (const TextLine &line : m_layout.lines)
            sum.addPath(line.path);
    }
    return sum;
}

QLineF CTextObjectBase::cursorLine(int pos, bool forward) const
{
    return m_layout.lines.isEmpty() ? m_defaultCursorLine : m_layout.cursorLine(pos, forward);
}

void CTextObjectBase::updatePosition(qreal dx, qreal dy, qreal width, qreal height)
{
    m_textPath = QTransform::fromTranslate(dx, dy).map(m_textPath);
    m_layout.translate(dx, dy);
    m_oriRect = QRectF(0, 0, width, height);
    m_pathRect.translate(dx, dy);
}

TextLayout CTextObjectBase::textLayout() const
{
    return m_layout;
}

QRectF CTextObjectBase::oriRect() const
{
    return m_oriRect;
}

QRectF CTextObjectBase::coveredRect() const
{
    return m_pathRect | m_lastPathRect;
}

QTextDocument *CTextObjectBase::document() const
{
    return m_object->m_document;
}

QTextCursor *CTextObjectBase::cursor() const
{
    return m_object->m_cursor;
}

Qt::Orientation CTextObjectBase::orientation() const
{
    // Any number may come out of a file: what is not horizontal runs in columns.
    return m_object->m_textOrientation == Qt::Horizontal ? Qt::Horizontal : Qt::Vertical;
}

int CTextObjectBase::dpi() const
{
    return m_object->m_documentDpi;
}

QString CTextObjectBase::defaultWord() const
{
    return m_object->m_defaultWord;
}

QPointF CTextObjectBase::textOffset() const
{
    return m_object->m_textOffset;
}

bool CTextObjectBase::autoWordWrap() const
{
    return m_object->m_autoWordWrap;
}

bool CTextObjectBase::isEdited() const
{
    return m_object->m_editing;
}

QRectF CTextObjectBase::box() const
{
    return m_object->getClientRect();
}

TextScales CTextObjectBase::scales() const
{
    return {m_object->m_scaleX, m_object->m_scaleY, m_object->m_transformScaleX,
            m_object->m_transformScaleY};
}

void CTextObjectBase::setScales(const TextScales &scales)
{
    m_object->m_scaleX = scales.scaleX;
    m_object->m_scaleY = scales.scaleY;
    m_object->m_transformScaleX = scales.transformScaleX;
    m_object->m_transformScaleY = scales.transformScaleY;
}

TextLayout CTextObjectBase::startLayout() const
{
    TextLayout layout;
    layout.orientation = orientation();
    layout.dpi = dpi();
    return layout;
}
