// SPDX-License-Identifier: MIT
// textrecord.h -- document strings, and the JSON records that carry them into a text object.
#ifndef APP_TEXTRECORD_H
#define APP_TEXTRECORD_H

#include <QByteArray>
#include <QJsonObject>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QStringList>

class CVXRootObject;

/// Texts of more UTF-16 units than this are refused before they are set. The outlines of a Han
/// character take some ten kilobytes while they are laid out, and those of a Latin one about five.
constexpr int maximumCharacters = 250000;

/// How a plain text is set.
struct TextStyle {
    QString family;        ///< of every run
    double pointSize = 24; ///< points of the document
    QString color;         ///< "#rrggbb" or "#aarrggbb"
    bool vertical = false; ///< columns from right to left instead of lines
};

/// The document string of a plain \a text: a paragraph for each line (LF, CR LF, CR and U+2029 end
/// one), one run a paragraph, line text without wrapping. A line end at the very end of the text does
/// not open an empty paragraph.
QString documentString(const QString &text, const TextStyle &style);
/// The same, with \a runAttributes for its runs and \a paragraphAttributes for its paragraphs.
QString documentString(const QString &text, const QJsonObject &runAttributes,
                       const QJsonObject &paragraphAttributes, bool vertical);

/// What a program wants to know of a document string before it gives it to an object.
struct DocumentStringInfo {
    bool valid = false;
    QString error;         ///< why not, when not valid
    bool vertical = false; ///< "text_direction" 2
    bool wrapped = false;  ///< "text_wordwrap"
    QString text;          ///< of all runs, paragraphs parted by line feeds
    int characters = 0;    ///< UTF-16 units of all runs
    QStringList families;  ///< named by runs with text, each once

    /// True when a caret can stand at \a position: not behind the end, nor inside a character.
    bool isCaretPosition(int position) const;
};
DocumentStringInfo inspectDocumentString(const QString &string);

/// What a program lays over a document string of its own accord.
struct DocumentChange {
    QJsonObject paragraph; ///< attributes that every paragraph gets
    bool wrapped = false;  ///< makes it the text of a box; false leaves it as it is
    int selectionStart = -1;
    int selectionEnd =
        -1; ///< the caret stands here; below 0 leaves caret and selection as they are
};
/// The valid document \a string with \a change in it.
QString changedDocument(const QString &string, const DocumentChange &change);

/// Where a text goes, and the picture of it.
struct TextPlace {
    QPointF pos; ///< top left of the object, page pixels
    QSizeF box;  ///< of box text, page pixels; empty for line text
    bool flip = false;
    bool mirror = false;
    QString picture; ///< name of an image of the document, shown while a font is missing; or empty
    QPointF picturePos; ///< page pixels
};

/// Gives the document \a string to \a object as a record. In a box the stretch that the string
/// stores does not count.
/// \return false when the object writes no record with parameters, or refuses the new one
bool loadDocumentString(CVXRootObject *object, const QString &string,
                        const DocumentStringInfo &info, const TextPlace &place = TextPlace());

/// Puts the selection of the text of \a object from \a start to \a end, and the caret to the end. The
/// object takes its own record anew for it, in which the box is one that does not grow.
/// \return false when the object writes no record with parameters, or refuses the new one
bool setSelection(CVXRootObject *object, int start, int end);

/// What the record of \a object tells of its look and place. It leaves out caret, selection, the order
/// among objects and the stored picture; equal values mean that the object has not changed. Empty when
/// the object writes no record.
QByteArray recordState(CVXRootObject *object);
/// The same of a \a record that the object has written.
QByteArray recordState(const QJsonObject &record);

/// Lets \a object write \a record without making a picture of it: in its parameters stands the one that the
/// object was read with. False when it writes none.
bool writeWithoutPicture(CVXRootObject *object, QJsonObject &record);
/// Takes the picture out of the parameters of \a record; an object that reads it looks for missing fonts
/// all the same.
void removePicture(QJsonObject &record);
/// True for a text of the older engine: it knows its box by its picture alone.
bool standsByPicture(const QJsonObject &record);
/// True for a record that removePicture() has changed, until its object writes one with a picture.
bool lacksPicture(const QJsonObject &record);

/// The name of the image that \a record names as its picture; empty for none.
QString pictureOfRecord(const QJsonObject &record);

#endif
