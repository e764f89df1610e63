// SPDX-License-Identifier: MIT
// attributekeys.h -- the attributes that people write into page files and command lines.
#ifndef APP_ATTRIBUTEKEYS_H
#define APP_ATTRIBUTEKEYS_H

#include <QJsonValue>
#include <QString>
#include <QVariant>

/// One attribute of a text object.
struct AttributeKey {
    enum class Type {
        Flag,      ///< true or false
        Number,    ///< of points, per mille or percent
        Size,      ///< a number above 0
        Choice,    ///< a whole number from 0 to limit
        Alignment, ///< a word (see paragraphstyle.h) or its number
        Color,     ///< a name, "#rrggbb" or "#aarrggbb"
        Text,
    };
    enum class Scope {
        Run,       ///< of characters
        Paragraph, ///< of whole paragraphs
        Object,    ///< of the object: not among the attributes of a page file
    };

    const char *name;
    Type type;
    Scope scope;
    int limit;

    QString key() const { return QLatin1String(name); }
};

/// The key called \a name; null when there is none.
const AttributeKey *attributeKey(const QString &name);

/// Numbers beyond this, either way, are refused.
constexpr double largestAttribute = 1e6;

/// The value of \a attribute that the JSON \a value stands for, in the form that objects want.
/// \param vertical the text runs in columns, for alignments
/// \return false with a reason for a value that the key cannot have
bool attributeValue(const AttributeKey &attribute, const QJsonValue &value, bool vertical,
                    QJsonValue &result, QString &reason);

/// The same of a value as it stands on a command line.
bool attributeValue(const AttributeKey &attribute, const QString &text, bool vertical,
                    QVariant &result, QString &reason);

#endif
