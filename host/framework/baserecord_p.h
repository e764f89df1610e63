// SPDX-License-Identifier: MIT
// baserecord_p.h -- the inner form of base records: values of any kind as bytes and as JSON.
#ifndef BASERECORD_P_H
#define BASERECORD_P_H

#include "host/framework/hosttypes.h"

#include <QByteArray>
#include <QImage>
#include <QJsonValue>

namespace BaseRecord {

/// Lists and maps deeper than this are cut off: they read as invalid values.
constexpr int DeepestValue = 64;

/// \a value as bytes. Kinds that cannot be kept become an invalid value: see isKept().
QByteArray toBytes(const QVariant &value);
/// The value written by toBytes(). Bytes that are no such value give an invalid one; \a ok, when
/// not null, tells which. Never allocates more than a small multiple of the size of \a bytes.
QVariant fromBytes(const QByteArray &bytes, bool *ok = nullptr);
/// True for the kinds of value that records keep.
bool isKept(const QVariant &value);

QJsonValue toJson(const QVariant &value, int depth = 0);
QVariant fromJson(const QJsonValue &json, int depth = 0);

QByteArray pngOf(const QImage &image);
/// The picture in \a png; null for other bytes and for a picture that is too large.
QImage imageOf(const QByteArray &png);

/// \a value, or 0 when it is not finite.
double finite(double value);

} // namespace BaseRecord

#endif
