// SPDX-License-Identifier: MIT
#ifndef LAYOUTTEXT_H
#define LAYOUTTEXT_H

#include "layout/textproperties.h"
#include "layout/wordmanager.h"
#include "tests/support/testfont.h"
#include "wordprocess/cwordprocess.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

/// A text object to lay out, with its fields open and helpers to fill it. 96 dpi, anchor (10, 20).
/// In the font of squares 12 points are 16 px: ascent 12, descent 4, Latin 8 wide, Han 16 wide.
class LayoutText : public CWordProcess
{
public:
    using CWordProcess::m_cursor;
    using CWordProcess::m_defaultWord;
    using CWordProcess::m_document;
    using CWordProcess::m_documentDpi;
    using CWordProcess::m_textOffset;
    using CWordProcess::m_textOrientation;

    LayoutText()
        : CWordProcess(0, false, nullptr, nullptr)
    {
        m_documentDpi = 96;
        m_textOffset = QPointF(10, 20);
    }

    /// A format of the font of squares, with one more property when \a id is given.
    static QTextCharFormat format(qreal points = 12, int id = 0, const QVariant &value = {})
    {
        QTextCharFormat result;
        result.setFontFamily(loadBoxTestFont());
        result.setFontPointSize(points);
        if (id != 0)
            result.setProperty(id, value);
        return result;
    }

    /// A block format with one property.
    static QTextBlockFormat block(int id, const QVariant &value)
    {
        QTextBlockFormat result;
        result.setProperty(id, value);
        return result;
    }

    /// Appends to the last block.
    void add(const QString &text, const QTextCharFormat &charFormat = format())
    {
        end().insertText(text, charFormat);
    }

    /// Begins a new block, by itself an empty one of \a charFormat.
    void addBlock(const QTextBlockFormat &blockFormat = {},
                  const QTextCharFormat &charFormat = format())
    {
        end().insertBlock(blockFormat, charFormat);
    }

    /// Changes the last block.
    void setBlock(const QTextBlockFormat &blockFormat) { end().setBlockFormat(blockFormat); }

    TextLayout layOut()
    {
        CWordManager manager(this, false);
        manager.layout();
        m_rect = manager.textOriRect();
        return manager.textLayout();
    }

    /// Box that the last layOut() reported.
    QRectF rect() const { return m_rect; }

private:
    QTextCursor end() const
    {
        QTextCursor cursor(m_document);
        cursor.movePosition(QTextCursor::End);
        return cursor;
    }

    QRectF m_rect;
};

/// A hand-made run of the font of squares at 16 px.
inline TextFragment makeRun(int position, const QString &text, qreal start, qreal advance)
{
    TextFragment run;
    run.position = position;
    run.length = text.length();
    run.text = text;
    run.start = start;
    run.advance = advance;
    run.font.setFamily(loadBoxTestFont());
    run.font.setPixelSize(16);
    return run;
}

#endif // LAYOUTTEXT_H
