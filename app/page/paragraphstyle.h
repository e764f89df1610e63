// SPDX-License-Identifier: MIT
// paragraphstyle.h -- the words for alignments and rules of paragraphs, and their attributes.
#ifndef APP_PARAGRAPHSTYLE_H
#define APP_PARAGRAPHSTYLE_H

#include <QJsonObject>
#include <QString>
#include <QStringList>

/// One way to align the lines of a paragraph. In columns left is the top and right the bottom.
struct Alignment {
    QString name;
    int inLines = 0;       ///< "textalignment" of horizontal text
    int inColumns = 0;     ///< the same of vertical text
    bool forBoxes = false; ///< has no meaning in line text
};

/// The alignment that is called \a name; an unknown name gives one whose name is empty.
Alignment alignmentOf(const QString &name);
QStringList alignmentNames();

/// What a program asks of all paragraphs of a text.
struct ParagraphStyle {
    Alignment alignment; ///< without a name: as it is
    int headTail = 0;    ///< 1 relaxed, 2 strict; 0 as it is
    bool hyphenate = false;
    bool compressPunctuation = false;
};

/// \a style as paragraph attributes, for text that runs in columns when \a vertical.
QJsonObject paragraphAttributes(const ParagraphStyle &style, bool vertical);

#endif
