// SPDX-License-Identifier: MIT
#include "arttext/cursorformats.h"

#include <QTextList>

#include <limits>

namespace {

constexpr int noObject = -1;

QTextListFormat::Style listStyle(int style)
{
    return style >= 2 && style <= 8 ? QTextListFormat::Style(-style) : QTextListFormat::ListDisc;
}

/// One level further in; the last level stays.
int nextIndent(int indent)
{
    return indent < std::numeric_limits<int>::max() ? indent + 1 : indent;
}

} // namespace

void CursorFormats::alignDocument(const QTextCursor &cursor, Qt::Alignment alignment)
{
    QTextBlockFormat format;
    switch (int(alignment)) {
    case 1:
        format.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
        break;
    case 2:
        format.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
        break;
    case 4:
    case 8:
        format.setAlignment(alignment);
        break;
    default:
        return;
    }
    QTextCursor whole = cursor;
    whole.select(QTextCursor::Document);
    whole.mergeBlockFormat(format);
}

void CursorFormats::setListStyle(QTextCursor &cursor, int style)
{
    QTextBlockFormat blockFormat;
    if (style == 0) {
        // setObjectIndex(-1) would take the property away, and merging then keeps the list.
        blockFormat.setProperty(QTextFormat::ObjectIndex, noObject);
        cursor.mergeBlockFormat(blockFormat);
        return;
    }
    cursor.beginEditBlock();
    QTextListFormat listFormat;
    if (const QTextList *list = cursor.currentList()) {
        listFormat = list->format();
    } else {
        blockFormat = cursor.blockFormat();
        listFormat.setIndent(nextIndent(blockFormat.indent()));
        blockFormat.setIndent(0);
        cursor.setBlockFormat(blockFormat);
    }
    listFormat.setStyle(listStyle(style));
    cursor.createList(listFormat);
    cursor.endEditBlock();
}

QTextCharFormat CursorFormats::markFormat(int mark)
{
    QTextCharFormat format;
    switch (mark) {
    case 1:
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
        break;
    case 2:
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
        break;
    default:
        format.setVerticalAlignment(QTextCharFormat::AlignNormal);
        break;
    }
    return format;
}
