// SPDX-License-Identifier: MIT
// artobject.h -- art text as programs ask for it: the names of the styles, and a whole object at once.
#ifndef APP_ARTOBJECT_H
#define APP_ARTOBJECT_H

#include <QColor>
#include <QSizeF>
#include <QString>
#include <QStringList>

class CVXRootObject;

/// Art texts of more UTF-16 units than this are refused before they are set: each character is an
/// outline of its own.
constexpr int maximumArtCharacters = 10000;

namespace ArtObject {

/// How an art text looks. Its outlines are stretched over the object, so that a font size has no
/// meaning.
struct Look {
    int style = 0;
    QString family;
    bool bold = false;
    bool vertical = false; ///< columns from right to left instead of lines
    int alignment = 1;     ///< of the lines: 1 left, 2 right, 4 centre, 8 justified
    QColor fill = Qt::black;
    QColor pen; ///< invalid: no line around the characters
    double penWidth = 1;
};

/// The names of the styles; the place of a name is the style's number.
const QStringList &styleNames();
/// The style of that name or number; -1 for none.
int styleOf(const QString &nameOrNumber);

/// Makes \a object show \a text, from its position on. An object that is no art text takes size, pen
/// and fill alone.
void setUp(CVXRootObject *object, const QString &text, const Look &look, const QSizeF &size);

} // namespace ArtObject

#endif
