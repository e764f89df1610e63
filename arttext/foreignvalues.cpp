// SPDX-License-Identifier: MIT
// foreignvalues.cpp -- reads colours and attribute maps from bytes that come from anywhere.
// QVariant's own reader builds whatever type the bytes name and makes room for as many entries as they
// claim: the type is looked at ahead of it here, and lists and maps are read entry by entry.
#include "arttext/foreignvalues.h"

#include <QDataStream>

namespace {
constexpr int deepestValue = 64;
constexpr int typeSize = 4;                        // of a stored value, bytes
constexpr qint64 smallestValue = 5;                // its type, and whether it is null
constexpr qint64 smallestPair = 4 + smallestValue; // the length of the key ahead of it
constexpr qint64 smallestText = 4;
constexpr int firstWithColorKinds = 7; // of stream versions

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
    case QMetaType::QPoint:
    case QMetaType::QPointF:
    case QMetaType::QSize:
    case QMetaType::QSizeF:
    case QMetaType::QRect:
    case QMetaType::QRectF:
        return true;
    default:
        return false;
    }
}

/// The type of the value that comes next; -1 without one.
int nextType(const QDataStream &stream)
{
    const QByteArray head = stream.device()->peek(typeSize);
    if (head.size() < typeSize)
        return -1;
    QDataStream reader(head);
    reader.setByteOrder(stream.byteOrder());
    qint32 type = 0;
    reader >> type;
    return type;
}

/// Passes the type of a value, and whether it is null.
void skipHead(QDataStream &stream)
{
    qint32 type = 0;
    qint8 isNull = 0;
    stream >> type;
    if (stream.version() >= QDataStream::Qt_4_2)
        stream >> isNull;
}

bool readValue(QDataStream &stream, QVariant &value, int depth);

/// Reads a count of entries of at least \a entrySize bytes each; false when they cannot be there.
bool readCount(QDataStream &stream, qint64 entrySize, quint32 &count)
{
    stream >> count;
    return stream.status() == QDataStream::Ok
           && count <= quint64(stream.device()->bytesAvailable() / entrySize);
}

bool readList(QDataStream &stream, QVariant &value, int depth)
{
    quint32 count = 0;
    if (!readCount(stream, smallestValue, count))
        return false;
    QVariantList list;
    for (quint32 i = 0; i < count; ++i) {
        QVariant entry;
        if (!readValue(stream, entry, depth + 1))
            return false;
        list.append(entry);
    }
    value = list;
    return true;
}

bool readTexts(QDataStream &stream, QVariant &value)
{
    quint32 count = 0;
    if (!readCount(stream, smallestText, count))
        return false;
    QStringList list;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString entry;
        stream >> entry;
        list.append(entry);
    }
    value = list;
    return stream.status() == QDataStream::Ok;
}

/// The pairs in front of the first that cannot be read are in \a map in any case.
bool readPairs(QDataStream &stream, quint32 count, AttributeMap &map, int depth)
{
    for (quint32 i = 0; i < count; ++i) {
        QString key;
        QVariant entry;
        stream >> key;
        if (stream.status() != QDataStream::Ok || !readValue(stream, entry, depth))
            return false;
        map.insert(key, entry);
    }
    return true;
}

bool readMap(QDataStream &stream, QVariant &value, int depth)
{
    quint32 count = 0;
    AttributeMap map;
    if (!readCount(stream, smallestPair, count) || !readPairs(stream, count, map, depth + 1))
        return false;
    value = map;
    return true;
}

bool readValue(QDataStream &stream, QVariant &value, int depth)
{
    const int type = nextType(stream);
    if (isPlain(type) || type == QMetaType::UnknownType) {
        stream >> value;
        return stream.status() == QDataStream::Ok;
    }
    if (depth >= deepestValue)
        return false;
    skipHead(stream);
    switch (type) {
    case QMetaType::QColor:
        value = readColor(stream);
        return stream.status() == QDataStream::Ok;
    case QMetaType::QVariantList:
        return readList(stream, value, depth);
    case QMetaType::QVariantMap:
        return readMap(stream, value, depth);
    case QMetaType::QStringList:
        return readTexts(stream, value);
    default:
        return false;
    }
}
} // namespace

QColor readColor(QDataStream &stream)
{
    if (!stream.device())
        return QColor();
    const QByteArray kind = stream.device()->peek(1);
    QColor color;
    stream >> color;
    const bool isKnown = stream.version() < firstWithColorKinds
                         || (!kind.isEmpty() && quint8(kind.front()) <= QColor::ExtendedRgb);
    if (stream.status() != QDataStream::Ok || !isKnown)
        return QColor();
    return color;
}

AttributeMap readAttributes(QDataStream &stream)
{
    AttributeMap map;
    if (!stream.device())
        return map;
    stream.resetStatus();
    qint32 count = 0;
    stream >> count;
    // A count that is too large is cut off where the bytes end: pairs that are there do count.
    const qint64 most = stream.device()->bytesAvailable() / smallestPair;
    if (stream.status() == QDataStream::Ok && count > 0)
        readPairs(stream, quint32(qMin<qint64>(count, most + 1)), map, 0);
    return map;
}
