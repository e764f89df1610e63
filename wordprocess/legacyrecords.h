// SPDX-License-Identifier: MIT
// legacyrecords.h -- the plain records of the older layout: lines of runs, pixels at the document's dpi.
#ifndef LEGACYRECORDS_H
#define LEGACYRECORDS_H

#include <QList>
#include <QPainterPath>
#include <QString>
#include <QTextCharFormat>

/// A run placed on a line.
struct STextItem {
    QTextCharFormat format;
    QPainterPath path;
    QString text;
    int position = -1; ///< document position; -2 marks a generated hyphen
};

/// One line.
struct STextLine {
    QList<STextItem> items;
};

#endif
