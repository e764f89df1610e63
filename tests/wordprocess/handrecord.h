// SPDX-License-Identifier: MIT
// handrecord.h -- records put together by hand, and ways to carry an object through one.
#ifndef HANDRECORD_H
#define HANDRECORD_H

#include "openword.h"

#include <QBuffer>
#include <QDataStream>

enum class Form { Stream, Json };

/// What a writer of any generation leaves behind: the base record, the parameters, the tail.
class HandRecord
{
public:
    AttributeMap params;
    QPointF pos = QPointF(40, 30);
    QSizeF size = QSizeF(24, 16);
    double rotation = 0;
    bool locked = false;
    QString html;   ///< the text of the oldest generation
    QImage picture; ///< stored in the record itself, as older generations did

    QByteArray stream() const
    {
        Base base(*this);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        base.CBaseObject::save(out);
        out << html;
        if (!picture.isNull())
            out << QStringLiteral("old.png") << png();
        return bytes;
    }

    QJsonObject json() const
    {
        Base base(*this);
        QJsonObject record;
        base.CBaseObject::saveJson(record);
        record.insert(QStringLiteral("TextContent"), html);
        if (!picture.isNull())
            record.insert(QStringLiteral("JSON_TEXT_IMG_DATA"),
                          QString::fromLatin1(png().toBase64()));
        return record;
    }

    bool load(OpenWord &word, Form form) const
    {
        if (form == Form::Json) {
            QJsonObject record = json();
            return word.loadJson(record);
        }
        const QByteArray bytes = stream();
        QDataStream in(bytes);
        const bool loaded = word.load(in);
        return loaded && in.atEnd();
    }

private:
    class Base : public CBaseObject
    {
    public:
        explicit Base(const HandRecord &record)
            : CBaseObject(1, true, nullptr, nullptr)
        {
            CVXRootObject::setSize(record.size, false, false);
            QGraphicsItem::setPos(record.pos);
            setRotation(record.rotation);
            setLocked(record.locked, false, false);
            m_saveParams = record.params;
        }
    };

    QByteArray png() const
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        return bytes;
    }
};

/// What an object writes, in a form that can be compared and read back.
inline QByteArray recordOf(OpenWord &word, Form form)
{
    QByteArray bytes;
    if (form == Form::Stream) {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        word.save(out);
        return bytes;
    }
    QJsonObject record;
    word.saveJson(record);
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}

inline bool loadRecord(OpenWord &word, const QByteArray &bytes, Form form)
{
    if (form == Form::Json) {
        QJsonObject record = QJsonDocument::fromJson(bytes).object();
        return word.loadJson(record);
    }
    QDataStream in(bytes);
    return word.load(in);
}

/// A document string of one run in the font of squares; \a header is further members, each with a comma ahead.
inline QString documentStringOf(const QString &text, const QString &family = loadBoxTestFont(),
                                const QString &header = QString())
{
    return QStringLiteral("{\"block\":[{\"textalignment\":1}],\"fragment\":[[{\"content\":\"%1\","
                          "\"font_family\":\"%2\",\"font_pointsize\":12,"
                          "\"pen_color\":\"#ff000000\"}]]%3}")
        .arg(text, family, header);
}

/// A family that no machine has.
inline QString missingFamily()
{
    return QStringLiteral("No Such Family");
}

inline bool isNear(const QPointF &a, const QPointF &b, double tolerance = 1e-6)
{
    return QLineF(a, b).length() <= tolerance;
}

/// Where the first character's paths begin on the scene's axes, flip, mirror and stretch included.
inline QRectF sceneInkOf(OpenWord &word)
{
    return word.mapToScene(word.getClientPath()).boundingRect();
}

#endif
