// SPDX-License-Identifier: MIT
#include "app/page/jsonfields.h"

#include "app/page/pagetext.h"

#include <QJsonArray>

#include <cmath>

namespace {

bool isBetween(double number, double from, double to)
{
    return number >= from && number <= to;
}

} // namespace

QString placeInText(const QByteArray &json, int offset)
{
    const QByteArray before = json.left(qMax(0, offset));
    const int lineStart = before.lastIndexOf('\n') + 1;
    return PageText::tr("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(before.size() - lineStart + 1);
}

bool parseJson(const QByteArray &json, QJsonDocument &document, QString &error)
{
    QJsonParseError parse;
    document = QJsonDocument::fromJson(json, &parse);
    if (parse.error == QJsonParseError::NoError)
        return true;
    error = PageText::tr("no JSON, at byte %1 (%2): %3")
                .arg(parse.offset)
                .arg(placeInText(json, parse.offset), parse.errorString());
    return false;
}

JsonFields::JsonFields(const QJsonObject &object, const QString &path, QString *error)
    : m_object(object)
    , m_path(path)
    , m_error(error)
{
}

QString JsonFields::pathOf(const QString &key) const
{
    return m_path.isEmpty() ? key : m_path + QLatin1Char('.') + key;
}

bool JsonFields::fail(const QString &key, const QString &reason)
{
    if (m_error->isEmpty())
        *m_error = pathOf(key) + QLatin1String(": ") + reason;
    return false;
}

bool JsonFields::require(const char *key)
{
    return has(key) || fail(QLatin1String(key), PageText::tr("is missing"));
}

bool JsonFields::number(const char *key, double from, double to, double &value)
{
    if (!has(key))
        return true;
    const QJsonValue field = m_object.value(QLatin1String(key));
    if (!field.isDouble() || !isBetween(field.toDouble(), from, to)) {
        return fail(QLatin1String(key),
                    PageText::tr("must be a number from %1 to %2").arg(from).arg(to));
    }
    value = field.toDouble();
    return true;
}

bool JsonFields::positive(const char *key, double to, double &value)
{
    if (!has(key))
        return true;
    const QJsonValue field = m_object.value(QLatin1String(key));
    if (!(field.toDouble() > 0 && field.toDouble() <= to)) {
        return fail(QLatin1String(key),
                    PageText::tr("must be a number above 0 and up to %1").arg(to));
    }
    value = field.toDouble();
    return true;
}

bool JsonFields::wholeNumber(const char *key, int from, int to, int &value)
{
    if (!has(key))
        return true;
    const QJsonValue field = m_object.value(QLatin1String(key));
    const double number = field.toDouble();
    if (!field.isDouble() || !isBetween(number, from, to) || number != std::floor(number)) {
        return fail(QLatin1String(key),
                    PageText::tr("must be a whole number from %1 to %2").arg(from).arg(to));
    }
    value = int(number);
    return true;
}

bool JsonFields::flag(const char *key, bool &value)
{
    if (!has(key))
        return true;
    const QJsonValue field = m_object.value(QLatin1String(key));
    if (!field.isBool())
        return fail(QLatin1String(key), PageText::tr("must be true or false"));
    value = field.toBool();
    return true;
}

bool JsonFields::text(const char *key, QString &value)
{
    if (!has(key))
        return true;
    const QJsonValue field = m_object.value(QLatin1String(key));
    if (!field.isString())
        return fail(QLatin1String(key), PageText::tr("must be a text"));
    value = field.toString();
    return true;
}

bool JsonFields::word(const char *key, const QStringList &words, int &number)
{
    QString given;
    if (!text(key, given))
        return false;
    if (!has(key))
        return true;
    const int found = words.indexOf(given);
    if (found < 0) {
        return fail(QLatin1String(key),
                    PageText::tr("must be one of %1").arg(words.join(QLatin1String(", "))));
    }
    number = found;
    return true;
}

bool JsonFields::object(const char *key, QJsonObject &value)
{
    if (!has(key))
        return true;
    const QJsonValue field = m_object.value(QLatin1String(key));
    if (!field.isObject())
        return fail(QLatin1String(key), PageText::tr("must be an object {...}"));
    value = field.toObject();
    return true;
}

bool JsonFields::list(const char *key, QJsonArray &value)
{
    if (!has(key))
        return true;
    const QJsonValue field = m_object.value(QLatin1String(key));
    if (!field.isArray())
        return fail(QLatin1String(key), PageText::tr("must be a list [...]"));
    value = field.toArray();
    return true;
}
