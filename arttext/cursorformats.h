// SPDX-License-Identifier: MIT
// cursorformats.h -- what the two editors of an art text write at a cursor.
#ifndef CURSORFORMATS_H
#define CURSORFORMATS_H

#include <QTextCursor>

namespace CursorFormats {

/// Aligns the whole document of \a cursor: 1 left, 2 right, both absolutely, 4 centre, 8 justified.
/// Other values change nothing. \a cursor stays where it is.
void alignDocument(const QTextCursor &cursor, Qt::Alignment alignment);

/// Makes the block at \a cursor an item of a list: \a style 2 to 8 for the QTextListFormat::Style of
/// the negative number, 0 for no list, anything else for a disc.
void setListStyle(QTextCursor &cursor, int style);

/// The QTextCharFormat::VerticalAlignment of a mark: deliberate, 1 gives 2 and 2 gives 1. Others
/// give 0.
QTextCharFormat markFormat(int mark);

} // namespace CursorFormats

#endif
