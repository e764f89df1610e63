// SPDX-License-Identifier: MIT
// textrecord.h -- document strings, and the JSON records that carry them into a text object.
#ifndef APP_TEXTRECORD_H
#define APP_TEXTRECORD_H

#include <QJsonObject>
#include <QString>
#include <QStringList>

class CVXRootObject;

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

/// What a program wants to know of a document string before it gives it to an object.
struct DocumentStringInfo {
    bool valid = false;
    QString error;         ///< why not, when not valid
    bool vertical = false; ///< "text_direction" 2
    bool wrapped = false;  ///< "text_wordwrap"
    int characters = 0;    ///< UTF-16 units of all runs
    QStringList families;  ///< named by runs with text, each once
};
DocumentStringInfo inspectDocumentString(const QString &string);

/// Gives the document \a string to \a object as a record. The object's place stays.
/// \return false when the object writes no record with parameters, or refuses the new one
bool loadDocumentString(CVXRootObject *object, const QString &string,
                        const DocumentStringInfo &info);

#endif
