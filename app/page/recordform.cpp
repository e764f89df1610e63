// SPDX-License-Identifier: MIT
#include "app/page/recordform.h"

#include "host/framework/cbaseobject.h"

#include <QDataStream>
#include <QJsonDocument>

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
    error = QStringLiteral("byte %1 of the record: %2").arg(at).arg(reason);
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

/// The stream form of \a record; it may lack parts of it.
QByteArray streamForm(QJsonObject record)
{
    CBaseObject carrier(0, /*finished=*/true, nullptr, nullptr);
    if (record.value(versionKey).toInt() != recordVersion || !carrier.loadJson(record))
        return {};
    QByteArray stream;
    QDataStream out(&stream, QIODevice::WriteOnly);
    configure(out);
    carrier.save(out);
    const QString content = record.value(contentKey).toString();
    out << (content.isEmpty() ? QString() : content); // null, as objects write it
    if (record.contains(pictureKey))
        writePicture(out, record.value(pictureKey));
    return stream + QByteArray::fromBase64(record.value(restKey).toString().toLatin1());
}

} // namespace

bool jsonRecord(const QByteArray &stream, QJsonObject &record, QString &error)
{
    const quint16 version = versionOf(stream);
    if (version > recordVersion) {
        return fail(error, 4,
                    QStringLiteral("version %1 is newer than this program, which knows %2")
                        .arg(version)
                        .arg(recordVersion));
    }
    QDataStream in(stream);
    configure(in);
    CBaseObject carrier(0, /*finished=*/true, nullptr, nullptr);
    if (!carrier.load(in))
        return fail(error, in.device()->pos(), QStringLiteral("it is no record of an object"));
    QString content;
    const qint64 contentAt = in.device()->pos();
    in >> content;
    if (in.status() != QDataStream::Ok)
        return fail(error, contentAt, QStringLiteral("the text behind it is cut short"));
    QJsonObject result;
    carrier.saveJson(result);
    result.insert(contentKey, content.isEmpty() ? QStringLiteral("") : content);
    QByteArray rest = stream.mid(int(in.device()->pos()));
    takePicture(rest, result);
    if (!rest.isEmpty())
        result.insert(restKey, base64(rest));
    record = result;
    return true;
}

StreamRecord streamRecord(const QJsonObject &record)
{
    StreamRecord parts{streamForm(record), record};
    QJsonObject carried;
    QString error;
    if (parts.bytes.isEmpty() || !jsonRecord(parts.bytes, carried, error))
        return {{}, record};
    for (auto it = carried.constBegin(); it != carried.constEnd(); ++it)
        parts.rest.remove(it.key());
    QJsonObject joined;
    if (joinedRecord(parts, joined, error) && compact(joined) == compact(record))
        return parts;
    return {{}, record};
}

bool joinedRecord(const StreamRecord &parts, QJsonObject &record, QString &error)
{
    QJsonObject joined;
    if (!parts.bytes.isEmpty() && !jsonRecord(parts.bytes, joined, error))
        return false;
    for (auto it = parts.rest.constBegin(); it != parts.rest.constEnd(); ++it)
        joined.insert(it.key(), it.value());
    record = joined;
    return true;
}
