// SPDX-License-Identifier: MIT
// legacytext.h -- a text object of the older engine, and its lines in a form that can be compared.
#ifndef LEGACYTEXT_H
#define LEGACYTEXT_H

#include "openword.h"

/// In the font of squares 12 points at 96 dpi are 16 px. Small letters are boxes from 1 to 7 of their 8 px and
/// 6 high, tall ones 8 high, those with a tail 8 high of which 2 are below the baseline. Han characters are boxes
/// from 1 to 15 of their 16 px, 14 high, 2 of them below the baseline. A blank is 8 wide, its line 16 high.
class OldWord : public OpenWord
{
public:
    explicit OldWord(Qt::Orientation orientation = Qt::Horizontal, IVxPage *page = nullptr)
        : OpenWord(page)
    {
        m_newVersion = false;
        m_textOrientation = orientation;
    }

    /// A format of the font of squares with one more property.
    static QTextCharFormat formatWith(int id, const QVariant &value)
    {
        QTextCharFormat result = format();
        result.setProperty(id, value);
        return result;
    }

    /// 12 points, rows as far apart as they are high.
    static QTextCharFormat spacedFormat() { return formatWith(TextProperty::RowSpacing, 0.0); }

    /// A block format has to have some property for its lines to be measured.
    static QTextBlockFormat block(double left = 0, double right = 0, int indent = 0)
    {
        QTextBlockFormat result;
        result.setLeftMargin(left);
        result.setRightMargin(right);
        result.setIndent(indent);
        return result;
    }

    static QTextBlockFormat blockWith(int id, const QVariant &value)
    {
        QTextBlockFormat result = block();
        result.setProperty(id, value);
        return result;
    }

    /// Appends a block, or fills the first one while nothing is there.
    void addBlock(const QString &text, const QTextBlockFormat &blockFormat = block(),
                  const QTextCharFormat &charFormat = format())
    {
        m_cursor->movePosition(QTextCursor::End);
        if (m_hasBlock)
            m_cursor->insertBlock(blockFormat, charFormat);
        else
            m_cursor->setBlockFormat(blockFormat);
        m_cursor->setBlockCharFormat(charFormat);
        m_hasBlock = true;
        m_cursor->insertText(text, charFormat);
    }

    /// Appends to the last block.
    void addRun(const QString &text, const QTextCharFormat &charFormat)
    {
        m_cursor->movePosition(QTextCursor::End);
        m_cursor->insertText(text, charFormat);
    }

    void makeBox(double width, double height)
    {
        m_wordWrap = true;
        m_wordManager->setWordWrap(true);
        m_clientRect = QRectF(0, 0, width, height);
    }

    void layOut() { updateBoundingRectImpl(true); }

    /// One string a line: "ab|c".
    QStringList runs() const
    {
        QStringList result;
        for (const STextLine &line : m_legacyLines) {
            QStringList texts;
            for (const STextItem &item : line.items)
                texts.append(item.text);
            result.append(texts.join(QLatin1Char('|')));
        }
        return result;
    }

    /// Where each run stands in the document: "0 2".
    QStringList positions() const
    {
        QStringList result;
        for (const STextLine &line : m_legacyLines) {
            QStringList numbers;
            for (const STextItem &item : line.items)
                numbers.append(QString::number(item.position));
            result.append(numbers.join(QLatin1Char(' ')));
        }
        return result;
    }

    const STextLine &line(int index) const { return m_legacyLines.at(index); }

private:
    bool m_hasBlock = false;
};

#endif
