// SPDX-License-Identifier: MIT
// baserecord.cpp -- values of any kind as bytes and as JSON.
// A value is a tag and its content. Only kinds whose reader cannot be led into a large allocation
// by a forged count are left to QVariant's own stream form; lists, maps, strings and points in
// numbers are counted here, against the bytes that are there.
#include "host/framework/baserecord_p.h"

#include <QBuffer>
#include <QColor>
#include <QDataStream>
#include <QFont>
#include <QImage>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonObject>
#include <QPolygonF>
#include <QTransform>

#include <cmath>
#include <limits>

namespace BaseRecord {
namespace {

enum Tag : quint8 {
    TagInvalid = 0,
    TagPlain = 1,      // QVariant's own form
    TagList = 2,       // count, values
    TagMap = 3,        // count, pairs of key and value
    TagHash = 4,       // likewise
    TagStringList = 5, // count, strings
    TagPolygon = 6,    // count, points
    TagImage = 7,      // PNG
    TagFont = 8,       // QFont::toString()
};

constexpr int LargestImageEdge = 32767;
constexpr qint64 LargestImageArea = 64LL * 1024 * 1024;

bool isPlain(int type)
{
    switch (type) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Float:
    case QMetaType::Double:
    case QMetaType::QChar:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
    case QMetaType::QUrl:
    case QMetaType::QUuid:
    case QMetaType::QPoint:
    case QMetaType::QPointF:
    case QMetaType::QSize:
    case QMetaType::QSizeF:
    case QMetaType::QRect:
    case QMetaType::QRectF:
    case QMetaType::QLine:
    case QMetaType::QLineF:
    case QMetaType::QColor:
    case QMetaType::QTransform:
        return true;
    default:
        return false;
    }
}

void configure(QDataStream &stream)
{
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(QDataStream::BigEndian);
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

void write(QDataStream &out, const QVariant &value, int depth);

template<typename Map>
void writePairs(QDataStream &out, const Map &map, int depth)
{
    out << quint32(map.size());
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        out << it.key();
        write(out, it.value(), depth + 1);
    }
}

void write(QDataStream &out, const QVariant &value, int depth)
{
    const int type = value.userType();
    if (depth > DeepestValue || !isKept(value)) {
        out << quint8(TagInvalid);
    } else if (isPlain(type)) {
        out << quint8(TagPlain) << value;
    } else if (type == QMetaType::QVariantList) {
        const QVariantList list = value.toList();
        out << quint8(TagList) << quint32(list.size());
        for (const QVariant &entry : list)
            write(out, entry, depth + 1);
    } else if (type == QMetaType::QVariantMap) {
        out << quint8(TagMap);
        writePairs(out, value.toMap(), depth);
    } else if (type == QMetaType::QVariantHash) {
        out << quint8(TagHash);
        writePairs(out, value.toHash(), depth);
    } else if (type == QMetaType::QStringList) {
        const QStringList list = value.toStringList();
        out << quint8(TagStringList) << quint32(list.size());
        for (const QString &entry : list)
            out << entry;
    } else if (type == QMetaType::QPolygonF) {
        const QPolygonF polygon = value.value<QPolygonF>();
        out << quint8(TagPolygon) << quint32(polygon.size());
        for (const QPointF &point : polygon)
            out << point;
    } else if (type == QMetaType::QImage) {
        out << quint8(TagImage) << pngOf(value.value<QImage>());
    } else {
        out << quint8(TagFont) << value.value<QFont>().toString();
    }
}

/// Reads a count of entries that take at least \a entrySize bytes each; false when they cannot be
/// there.
bool readCount(QDataStream &in, qint64 entrySize, quint32 &count)
{
    in >> count;
    return in.status() == QDataStream::Ok
           && qint64(count) <= in.device()->bytesAvailable() / entrySize;
}

bool read(QDataStream &in, QVariant &value, int depth);

template<typename Map>
bool readPairs(QDataStream &in, QVariant &value, int depth)
{
    quint32 count = 0;
    if (!readCount(in, 5, count)) // length of the key, tag
        return false;
    Map map;
    for (quint32 i = 0; i < count; ++i) {
        QString key;
        QVariant entry;
        in >> key;
        if (in.status() != QDataStream::Ok || !read(in, entry, depth + 1))
            return false;
        map.insert(key, entry);
    }
    value = map;
    return true;
}

bool readList(QDataStream &in, QVariant &value, int depth)
{
    quint32 count = 0;
    if (!readCount(in, 1, count))
        return false;
    QVariantList list;
    for (quint32 i = 0; i < count; ++i) {
        QVariant entry;
        if (!read(in, entry, depth + 1))
            return false;
        list.append(entry);
    }
    value = list;
    return true;
}

bool readStringList(QDataStream &in, QVariant &value)
{
    quint32 count = 0;
    if (!readCount(in, 4, count))
        return false;
    QStringList list;
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        QString entry;
        in >> entry;
        list.append(entry);
    }
    value = list;
    return in.status() == QDataStream::Ok;
}

bool readPolygon(QDataStream &in, QVariant &value)
{
    quint32 count = 0;
    if (!readCount(in, 16, count))
        return false;
    QPolygonF polygon;
    for (quint32 i = 0; i < count; ++i) {
        QPointF point;
        in >> point;
        polygon.append(QPointF(finite(point.x()), finite(point.y())));
    }
    value = polygon;
    return in.status() == QDataStream::Ok;
}

bool readPlain(QDataStream &in, QVariant &value)
{
    // The type comes first: it is looked at before QVariant would build whatever it names.
    const QByteArray head = in.device()->peek(4);
    QDataStream headStream(head);
    configure(headStream);
    quint32 type = 0;
    headStream >> type;
    if (headStream.status() != QDataStream::Ok || !isPlain(int(type)))
        return false;
    in >> value;
    return in.status() == QDataStream::Ok;
}

bool read(QDataStream &in, QVariant &value, int depth)
{
    quint8 tag = TagInvalid;
    in >> tag;
    if (in.status() != QDataStream::Ok || (depth > DeepestValue && tag != TagInvalid))
        return false;
    switch (tag) {
    case TagInvalid:
        value = QVariant();
        return true;
    case TagPlain:
        return readPlain(in, value);
    case TagList:
        return readList(in, value, depth);
    case TagMap:
        return readPairs<QVariantMap>(in, value, depth);
    case TagHash:
        return readPairs<QVariantHash>(in, value, depth);
    case TagStringList:
        return readStringList(in, value);
    case TagPolygon:
        return readPolygon(in, value);
    case TagImage: {
        QByteArray png;
        in >> png;
        value = imageOf(png);
        return in.status() == QDataStream::Ok;
    }
    case TagFont: {
        QString description;
        in >> description;
        QFont font;
        font.fromString(description);
        value = font;
        return in.status() == QDataStream::Ok;
    }
    default:
        return false;
    }
}

const QString TypeKey = QStringLiteral("type");
const QString DataKey = QStringLiteral("data");

QJsonValue taggedJson(const QVariant &value)
{
    return QJsonObject{{TypeKey, QString::fromLatin1(value.typeName())},
                       {DataKey, QString::fromLatin1(toBytes(value).toBase64())}};
}

/// A map of exactly the keys of a tagged value would read as one.
bool looksTagged(const QVariantMap &map)
{
    return map.size() == 2 && map.contains(TypeKey) && map.contains(DataKey);
}

/// JSON can hold the number: it is finite and no negative zero. Whole ones of the int range read
/// back as int; a legible record is worth more than the kind of a number, which converts unharmed.
bool isPlainNumber(double number)
{
    return std::isfinite(number) && !(number == 0 && std::signbit(number));
}

QVariant numberFromJson(double number)
{
    if (number == std::floor(number) && number >= std::numeric_limits<int>::min()
        && number <= std::numeric_limits<int>::max())
        return int(number);
    return number;
}

} // namespace

QByteArray pngOf(const QImage &image)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

QImage imageOf(const QByteArray &png)
{
    QBuffer buffer;
    buffer.setData(png);
    QImageReader reader(&buffer, "PNG");
    const QSize size = reader.size();
    if (!size.isValid() || size.width() > LargestImageEdge || size.height() > LargestImageEdge
        || qint64(size.width()) * size.height() > LargestImageArea)
        return QImage();
    return reader.read();
}

double finite(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

bool isKept(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QVariantList:
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash:
    case QMetaType::QStringList:
    case QMetaType::QPolygonF:
    case QMetaType::QImage:
    case QMetaType::QFont:
        return true;
    default:
        return isPlain(value.userType());
    }
}

QByteArray toBytes(const QVariant &value)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    configure(out);
    write(out, value, 0);
    return bytes;
}

QVariant fromBytes(const QByteArray &bytes, bool *ok)
{
    QDataStream in(bytes);
    configure(in);
    QVariant value;
    const bool good = read(in, value, 0);
    if (ok)
        *ok = good;
    return good ? value : QVariant();
}

QJsonValue toJson(const QVariant &value, int depth)
{
    if (depth > DeepestValue || !isKept(value))
        return QJsonValue(QJsonValue::Null);
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::QString:
        return value.toString();
    case QMetaType::Double:
        if (isPlainNumber(value.toDouble()))
            return value.toDouble();
        break;
    case QMetaType::QVariantList: {
        QJsonArray array;
        const QVariantList list = value.toList();
        for (const QVariant &entry : list)
            array.append(toJson(entry, depth + 1));
        return array;
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        if (looksTagged(map))
            break;
        QJsonObject object;
        for (auto it = map.constBegin(); it != map.constEnd(); ++it)
            object.insert(it.key(), toJson(it.value(), depth + 1));
        return object;
    }
    default:
        break;
    }
    return taggedJson(value);
}

QVariant fromJson(const QJsonValue &json, int depth)
{
    if (depth > DeepestValue)
        return QVariant();
    switch (json.type()) {
    case QJsonValue::Bool:
        return json.toBool();
    case QJsonValue::Double:
        return numberFromJson(json.toDouble());
    case QJsonValue::String:
        return json.toString();
    case QJsonValue::Array: {
        QVariantList list;
        const QJsonArray array = json.toArray();
        for (const QJsonValue &entry : array)
            list.append(fromJson(entry, depth + 1));
        return list;
    }
    case QJsonValue::Object: {
        const QJsonObject object = json.toObject();
        if (object.size() == 2 && object.contains(TypeKey) && object.contains(DataKey))
            return fromBytes(QByteArray::fromBase64(object.value(DataKey).toString().toLatin1()));
        QVariantMap map;
        for (auto it = object.constBegin(); it != object.constEnd(); ++it)
            map.insert(it.key(), fromJson(it.value(), depth + 1));
        return map;
    }
    default:
        return QVariant();
    }
}

} // namespace BaseRecord
