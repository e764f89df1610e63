// SPDX-License-Identifier: MIT
#include "app/pagerender/outcome.h"

#include <QJsonArray>

namespace {

const QLatin1String codeKey("code");
const QLatin1String inputKey("input");
const QLatin1String outputKey("output");
const QLatin1String errorKey("error");
const QLatin1String warningsKey("warnings");
const QLatin1String missingFontsKey("missing_fonts");
const QLatin1String widthKey("width");
const QLatin1String heightKey("height");
const QLatin1String bytesKey("bytes");
const QLatin1String textKey("text");

QStringList stringsOf(const QJsonValue &list)
{
    QStringList strings;
    const QJsonArray values = list.toArray();
    for (const QJsonValue &value : values)
        strings.append(value.toString());
    return strings;
}

void insertIfAny(QJsonObject &json, QLatin1String key, const QString &text)
{
    if (!text.isEmpty())
        json.insert(key, text);
}

} // namespace

bool Outcome::fail(const QString &message, ExitCode why)
{
    error = message;
    code = why;
    return false;
}

QJsonObject Outcome::toJson() const
{
    QJsonObject json{{codeKey, int(code)},
                     {inputKey, input},
                     {warningsKey, QJsonArray::fromStringList(warnings)},
                     {missingFontsKey, QJsonArray::fromStringList(missingFonts)}};
    insertIfAny(json, outputKey, output);
    insertIfAny(json, errorKey, error);
    if (!text.isNull())
        json.insert(textKey, text);
    if (size.isValid()) {
        json.insert(widthKey, size.width());
        json.insert(heightKey, size.height());
    }
    if (!output.isEmpty())
        json.insert(bytesKey, bytes);
    return json;
}

Outcome Outcome::fromJson(const QJsonObject &json)
{
    Outcome outcome;
    outcome.code = static_cast<ExitCode>(json.value(codeKey).toInt(Cannot));
    outcome.input = json.value(inputKey).toString();
    outcome.output = json.value(outputKey).toString();
    outcome.error = json.value(errorKey).toString();
    outcome.warnings = stringsOf(json.value(warningsKey));
    outcome.missingFonts = stringsOf(json.value(missingFontsKey));
    if (json.contains(widthKey))
        outcome.size = QSize(json.value(widthKey).toInt(), json.value(heightKey).toInt());
    outcome.bytes = qint64(json.value(bytesKey).toDouble());
    if (json.contains(textKey))
        outcome.text = json.value(textKey).toString();
    return outcome;
}

ExitCode united(ExitCode one, ExitCode other)
{
    // In this order: what the caller did wrong, what is missing on the machine, what failed.
    for (ExitCode code : {WrongUsage, NoLibrary, FontsMissing, Cannot}) {
        if (one == code || other == code)
            return code;
    }
    return Done;
}
