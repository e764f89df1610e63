// SPDX-License-Identifier: MIT
// recordform.h -- the record of an object in its two forms, and the way from one to the other.
#ifndef APP_RECORDFORM_H
#define APP_RECORDFORM_H

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// The objects whose records are known in both forms.
enum class RecordKind { RichText, ArtText };

/// What CVXRootObject::save() of such an object writes, as saveJson() would write it, without an object
/// of that kind: no text is laid out and no font is asked for. An older picture behind the record of a
/// rich text comes along as "JSON_TEXT_IMG_DATA", and what follows in \a stream beyond all that as
/// "stream_rest", in base64. Deliberate: whole numbers come back as int, as they do from every JSON
/// record, and colours of an art text with eight bits a channel.
/// \return false for bytes that are no whole record of this version, with the place, counted from 0,
/// and the reason in \a error; \a record is as it was then
bool jsonRecord(const QByteArray &stream, QJsonObject &record, QString &error,
                RecordKind kind = RecordKind::RichText);

/// A record in two parts that make up the whole.
struct StreamRecord {
    QByteArray bytes; ///< what CVXRootObject::load() reads; empty when the record has no such form
    QJsonObject rest; ///< what has no place there
};
/// The way back: joinedRecord() of the result is \a record to the last value. A record that the stream
/// form would change, such as one with a field of a wrong type, is all rest.
StreamRecord streamRecord(const QJsonObject &record, RecordKind kind = RecordKind::RichText);
/// \return false with \a error as jsonRecord()
bool joinedRecord(const StreamRecord &parts, QJsonObject &record, QString &error,
                  RecordKind kind = RecordKind::RichText);

#endif
