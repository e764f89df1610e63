// SPDX-License-Identifier: MIT
// jsonfields.h -- reads the fields of a JSON object one by one, and says which one is wrong.
#ifndef APP_JSONFIELDS_H
#define APP_JSONFIELDS_H

#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// \a offset bytes into \a json as "line 3, column 7"; columns count bytes.
QString placeInText(const QByteArray &json, int offset);
/// Parses \a json. False for text that is no JSON, with where and why in \a error.
bool parseJson(const QByteArray &json, QJsonDocument &document, QString &error);

/// The fields of one object. A key that is absent leaves the value as it was; a value of a wrong type
/// or out of bounds makes the read false and names the field in the error: "objects[2].width: ...".
class JsonFields
{
public:
    /// \param path how the object is called in errors; empty for the root
    /// \param error outlives the reader; it receives the first error
    JsonFields(const QJsonObject &object, const QString &path, QString *error);

    const QJsonObject &source() const { return m_object; }
    bool has(const char *key) const { return m_object.contains(QLatin1String(key)); }
    /// False, with an error, when \a key is absent.
    bool require(const char *key);

    bool number(const char *key, double from, double to, double &value);
    bool positive(const char *key, double to, double &value);
    bool wholeNumber(const char *key, int from, int to, int &value);
    bool flag(const char *key, bool &value);
    bool text(const char *key, QString &value);
    /// \param number receives the place of the text among \a words, from 0
    bool word(const char *key, const QStringList &words, int &number);
    bool object(const char *key, QJsonObject &value);
    bool list(const char *key, QJsonArray &value);

    QString pathOf(const QString &key) const;
    /// Keeps the error "PATH: REASON" unless there is one already. \return false
    bool fail(const QString &key, const QString &reason);

private:
    QJsonObject m_object;
    QString m_path;
    QString *m_error;
};

#endif
