// SPDX-License-Identifier: MIT
#include "app/page/recordform.h"

#include "app/page/pagetext.h"

#include "host/framework/cbaseobject.h"

#include <QColor>
#include <QDataStream>
#include <QJsonDocument>

#include <cmath>

namespace {

constexpr quint16 recordVersion = 1;

const QLatin1String versionKey("version");
const QLatin1String contentKey("TextContent");
const QLatin1String pictureKey("JSON_TEXT_IMG_DATA");
const QLatin1String nameKey("name");
const QLatin1String dataKey("data");
const QLatin1String restKey("stream_rest");

void configure(QDataStream &stream)
{
    stream.setVersion(QDataStream::Qt_5_15);
}

bool fail(QString &error, qint64 at, const QString &reason)
{
    error = PageText::tr("byte %1 of the record: %2").arg(at).arg(reason);
    return false;
}

QString base64(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

/// The version of a record that begins with a magic number; 0 when it is too short.
quint16 versionOf(const QByteArray &stream)
{
    QDataStream in(stream);
    configure(in);
    quint32 magic = 0;
    quint16 version = 0;
    in >> magic >> version;
    return in.status() == QDataStream::Ok ? version : 0;
}

// Behind the common part of an art text

enum class FieldType { Color, Flag, Number, Text, Whole };

struct ArtField {
    const char *key; ///< in JSON
    FieldType type;
};

// In the order of the stream.
// clang-format off
constexpr ArtField artFields[] = {
    {"colorBg",       FieldType::Color},
    {"colorFill",     FieldType::Color},
    {"bgType",        FieldType::Whole},
    {"textWord",      FieldType::Text},
    {"bgTransparent", FieldType::Flag},
    {"timerDelay",    FieldType::Whole},
    {"shape",         FieldType::Whole},
    {"defaultWord",   FieldType::Text},
    {"colorPen",      FieldType::Color},
    {"fontFamily",    FieldType::Text},
    {"fontSize",      FieldType::Whole},
    {"fontItalic",    FieldType::Flag},
    {"fontBold",      FieldType::Flag},
    {"letterSpacing", FieldType::Number},
    {"rowSpacing",    FieldType::Number},
    {"isShadow",      FieldType::Flag},
    {"colorShadow",   FieldType::Color},
    {"offsetX",       FieldType::Whole},
    {"offsetY",       FieldType::Whole},
};
// clang-format on

template<typename Value>
Value taken(QDataStream &in)
{
    Value value{};
    in >> value;
    return value;
}

QJsonValue readField(QDataStream &in, FieldType type)
{
    switch (type) {
    case FieldType::Color:
        return taken<QColor>(in).name(QColor::HexArgb);
    case FieldType::Flag:
        return taken<bool>(in);
    case FieldType::Number: {
        const double number = taken<double>(in);
        return std::isfinite(number) ? number : 0.0;
    }
    case FieldType::Text: {
        const QString text = taken<QString>(in);
        return text.isEmpty() ? QStringLiteral("") : text;
    }
    case FieldType::Whole:
        return taken<qint32>(in);
    }
    return {};
}

void writeField(QDataStream &out, FieldType type, const QJsonValue &value)
{
    switch (type) {
    case FieldType::Color:
        out << QColor(value.toString());
        break;
    case FieldType::Flag:
        out << value.toBool();
        break;
    case FieldType::Number:
        out << value.toDouble();
        break;
    case FieldType::Text:
        out << value.toString();
        break;
    case FieldType::Whole:
        out << qint32(value.toInt());
        break;
    }
}

bool readArtFields(QDataStream &in, QJsonObject &record, QString &error)
{
    for (const ArtField &field : artFields) {
        const qint64 at = in.device()->pos();
        const QJsonValue value = readField(in, field.type);
        if (in.status() != QDataStream::Ok) {
            return fail(error, at,
                        PageText::tr("\"%1\" is cut short").arg(QLatin1String(field.key)));
        }
        record.insert(QLatin1String(field.key), value);
    }
    return true;
}

void writeArtFields(QDataStream &out, const QJsonObject &record)
{
    for (const ArtField &field : artFields)
        writeField(out, field.type, record.value(QLatin1String(field.key)));
}

// Behind the common part of a rich text

/// Takes an older picture from the start of \a bytes, when there is one.
void takePicture(QByteArray &bytes, QJsonObject &record)
{
    QDataStream in(bytes);
    configure(in);
    QString name;
    QByteArray png;
    in >> name >> png;
    if (in.status() != QDataStream::Ok || png.isEmpty())
        return;
    if (name.isEmpty())
        record.insert(pictureKey, base64(png));
    else
        record.insert(pictureKey, QJsonObject{{nameKey, name}, {dataKey, base64(png)}});
    bytes.remove(0, int(in.device()->pos()));
}

void writePicture(QDataStream &out, const QJsonValue &picture)
{
    const QString data = picture.isString() ? picture.toString()
                                            : picture.toObject().value(dataKey).toString();
    out << picture.toObject().value(nameKey).toString() << QByteArray::fromBase64(data.toLatin1());
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

bool readContent(QDataStream &in, QJsonObject &record, QString &error)
{
    QString content;
    const qint64 at = in.device()->pos();
    in >> content;
    if (in.status() != QDataStream::Ok)
        return fail(error, at, PageText::tr("the text behind it is cut short"));
    record.insert(contentKey, content.isEmpty() ? QStringLiteral("") : content);
    return true;
}

void writeContent(QDataStream &out, const QJsonObject &record)
{
    const QString content = record.value(contentKey).toString();
    out << (content.isEmpty() ? QString() : content); // null, as objects write it
    if (record.contains(pictureKey))
        writePicture(out, record.value(pictureKey));
}

/// The stream form of \a record; it may lack parts of it.
QByteArray streamForm(QJsonObject record, RecordKind kind)
{
    CBaseObject carrier(0, /*finished=*/true, nullptr, nullptr);
    if (record.value(versionKey).toInt() != recordVersion || !carrier.loadJson(record))
        return {};
    QByteArray stream;
    QDataStream out(&stream, QIODevice::WriteOnly);
    configure(out);
    carrier.save(out);
    if (kind == RecordKind::ArtText)
        writeArtFields(out, record);
    else
        writeContent(out, record);
    return stream + QByteArray::fromBase64(record.value(restKey).toString().toLatin1());
}

} // namespace

bool jsonRecord(const QByteArray &stream, QJsonObject &record, QString &error, RecordKind kind)
{
    const quint16 version = versionOf(stream);
    if (version > recordVersion) {
        return fail(error, 4,
                    PageText::tr("version %1 is newer than this program, which knows %2")
                        .arg(version)
                        .arg(recordVersion));
    }
    QDataStream in(stream);
    configure(in);
    CBaseObject carrier(0, /*finished=*/true, nullptr, nullptr);
    if (!carrier.load(in))
        return fail(error, in.device()->pos(), PageText::tr("it is no record of an object"));
    QJsonObject result;
    carrier.saveJson(result);
    const bool isArt = kind == RecordKind::ArtText;
    if (!(isArt ? readArtFields(in, result, error) : readContent(in, result, error)))
        return false;
    QByteArray rest = stream.mid(int(in.device()->pos()));
    if (!isArt)
        takePicture(rest, result);
    if (!rest.isEmpty())
        result.insert(restKey, base64(rest));
    record = result;
    return true;
}

StreamRecord streamRecord(const QJsonObject &record, RecordKind kind)
{
    StreamRecord parts{streamForm(record, kind), record};
    QJsonObject carried;
    QString error;
    if (parts.bytes.isEmpty() || !jsonRecord(parts.bytes, carried, error, kind))
        return {{}, record};
    for (auto it = carried.constBegin(); it != carried.constEnd(); ++it)
        parts.rest.remove(it.key());
    QJsonObject joined;
    if (joinedRecord(parts, joined, error, kind) && compact(joined) == compact(record))
        return parts;
    return {{}, record};
}

bool joinedRecord(const StreamRecord &parts, QJsonObject &record, QString &error, RecordKind kind)
{
    QJsonObject joined;
    if (!parts.bytes.isEmpty() && !jsonRecord(parts.bytes, joined, error, kind))
        return false;
    for (auto it = parts.rest.constBegin(); it != parts.rest.constEnd(); ++it)
        joined.insert(it.key(), it.value());
    record = joined;
    return true;
}
