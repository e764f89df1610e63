// SPDX-License-Identifier: MIT
// legacylines.h -- lines of the older engine made by hand.
#ifndef LEGACYLINES_H
#define LEGACYLINES_H

#include "legacytext.h"

/// A run as the layout makes it, with its outline at the origin.
inline STextItem handItem(const OldWord &word, const QString &text, int position,
                          const QTextCharFormat &format = OpenWord::format())
{
    STextItem item;
    item.setText(format, text, word.m_documentDpi);
    item.position = position;
    double advance = 0;
    item.path = word.fragmentPath(QPointF(0, 0), item.format, text, advance, item.ascent, 0.0,
                                  item.upright);
    return item;
}

/// A line in the middle of a block, of the runs that bars part in \a runs, from \a position on.
inline STextLine handLine(const OldWord &word, const QString &runs, int position)
{
    STextLine line;
    line.setBlockFormat(OldWord::block(), word.m_documentDpi,
                        Qt::Orientation(word.m_textOrientation));
    const QStringList texts = runs.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (const QString &text : texts) {
        line.items.append(handItem(word, text, position));
        position += text.length();
    }
    line.updateItems(word.m_documentDpi);
    return line;
}

/// "ab|c"
inline QString runsOf(const QList<STextItem> &items)
{
    QStringList texts;
    for (const STextItem &item : items)
        texts.append(item.text);
    return texts.join(QLatin1Char('|'));
}

/// "0 2"
inline QString positionsOf(const QList<STextItem> &items)
{
    QStringList numbers;
    for (const STextItem &item : items)
        numbers.append(QString::number(item.position));
    return numbers.join(QLatin1Char(' '));
}

/// All characters that stand in the document, in the order of the lines.
inline QString textOf(const QList<STextLine> &lines)
{
    QString text;
    for (const STextLine &line : lines) {
        for (const STextItem &item : line.items)
            text += item.isHyphen ? QString() : item.text;
    }
    return text;
}

#endif
