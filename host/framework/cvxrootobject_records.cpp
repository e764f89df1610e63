// SPDX-License-Identifier: MIT
// cvxrootobject_records.cpp -- CVXRootObject: the common part of every record, bytes and JSON.
// Stream form: magic, version, one byte array with the fields. What follows the record in the
// stream is found again whatever the array holds.
#include "host/framework/cvxrootobject.h"

#include "host/framework/baserecord_p.h"

#include <QDataStream>
#include <QGraphicsItem>
#include <QJsonObject>

#include <cmath>

namespace {

constexpr quint32 RecordMagic = 0x56584F42; // "VXOB"
constexpr quint16 RecordVersion = 1;

using Fields = QVariantMap;

/// A finite double under \a key, \a otherwise without one; numbers in strings do not count.
double number(const Fields &fields, const char *key, double otherwise = 0.0)
{
    const QVariant value = fields.value(QLatin1String(key));
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Double:
        return BaseRecord::finite(value.toDouble());
    default:
        return otherwise;
    }
}

bool flag(const Fields &fields, const char *key)
{
    const QVariant value = fields.value(QLatin1String(key));
    return value.userType() == QMetaType::Bool && value.toBool();
}

QString colorName(const QColor &color)
{
    return color.isValid() ? color.name(QColor::HexArgb) : QString();
}

const QPen usualPen(Qt::black, 0); // those that every object begins with
const QColor usualFill(Qt::black);

Fields penFields(const QPen &pen)
{
    return {
        {QStringLiteral("color"), colorName(pen.color())},
        {QStringLiteral("width"), BaseRecord::finite(pen.widthF())},
        {QStringLiteral("style"), int(pen.style())},
        {QStringLiteral("cap"), int(pen.capStyle())},
        {QStringLiteral("join"), int(pen.joinStyle())},
    };
}

/// The style under \a key when it is one of \a known, the first of these otherwise.
template<typename Style>
Style styleIn(const Fields &fields, const char *key, std::initializer_list<Style> known)
{
    const Style usual = *known.begin();
    const double value = number(fields, key, usual);
    for (const Style style : known) {
        if (value == double(style))
            return style;
    }
    return usual;
}

/// Patterns of dashes of one's own are not kept: such a pen reads as a solid one.
QPen penFrom(const Fields &fields)
{
    if (fields.isEmpty())
        return usualPen;
    return QPen(QColor(fields.value(QStringLiteral("color")).toString()),
                qMax(0.0, number(fields, "width")),
                styleIn(fields, "style",
                        {Qt::SolidLine, Qt::NoPen, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                         Qt::DashDotDotLine}),
                styleIn(fields, "cap", {Qt::SquareCap, Qt::FlatCap, Qt::RoundCap}),
                styleIn(fields, "join",
                        {Qt::BevelJoin, Qt::MiterJoin, Qt::RoundJoin, Qt::SvgMiterJoin}));
}

Fields fillFields(const CPageBgProp &fill)
{
    return {
        {QStringLiteral("enabled"), fill.isFillEnable()},
        {QStringLiteral("color"), colorName(fill.color())},
    };
}

CPageBgProp fillFrom(const Fields &fields)
{
    CPageBgProp fill(nullptr);
    const bool usual = fields.isEmpty();
    fill.setFillEnable(usual || flag(fields, "enabled"));
    fill.setColor(usual ? usualFill : QColor(fields.value(QStringLiteral("color")).toString()));
    return fill;
}

} // namespace

QVariantMap CVXRootObject::baseFields(const QGraphicsItem *item)
{
    const QPointF pos = item ? item->scenePos() : QPointF();
    QVariantMap fields{
        {QStringLiteral("x"), BaseRecord::finite(pos.x())},
        {QStringLiteral("y"), BaseRecord::finite(pos.y())},
        {QStringLiteral("rotation"), item ? BaseRecord::finite(item->rotation()) : 0.0},
        {QStringLiteral("z"), item ? BaseRecord::finite(item->zValue()) : 0.0},
        {QStringLiteral("width"), BaseRecord::finite(m_clientRect.width())},
        {QStringLiteral("height"), BaseRecord::finite(m_clientRect.height())},
        {QStringLiteral("locked"), m_locked},
        {QStringLiteral("created"), m_created},
        {QStringLiteral("flip"), isFlip()},
        {QStringLiteral("mirror"), isMirror()},
        {QStringLiteral("params"), m_saveParams},
    };
    if (m_pen != usualPen)
        fields.insert(QStringLiteral("pen"), penFields(m_pen));
    if (!m_fillProp.isFillEnable() || m_fillProp.color() != usualFill)
        fields.insert(QStringLiteral("fill"), fillFields(m_fillProp));
    return fields;
}

void CVXRootObject::setBaseFields(QGraphicsItem *item, const QVariantMap &fields)
{
    setClientRect(
        QRectF(0, 0, qMax(0.0, number(fields, "width")), qMax(0.0, number(fields, "height"))));
    if (item) {
        const QPointF pos(number(fields, "x"), number(fields, "y"));
        item->setPos(item->parentItem() ? item->parentItem()->mapFromScene(pos) : pos);
        item->setRotation(std::fmod(number(fields, "rotation"), 360.0));
        item->setZValue(number(fields, "z"));
    }
    m_locked = flag(fields, "locked");
    m_created = flag(fields, "created");
    setFlip(flag(fields, "flip"), /*notify=*/false);
    setMirror(flag(fields, "mirror"), /*notify=*/false);
    m_saveParams = fields.value(QStringLiteral("params")).toMap();
    m_pen = penFrom(fields.value(QStringLiteral("pen")).toMap());
    m_fillProp = fillFrom(fields.value(QStringLiteral("fill")).toMap());
    updateAfterObjRectChanged(item, /*notify=*/true);
}

bool CVXRootObject::SaveBaseData(QGraphicsItem *item, QDataStream &stream)
{
    stream << RecordMagic << RecordVersion << BaseRecord::toBytes(baseFields(item));
    return stream.status() == QDataStream::Ok;
}

bool CVXRootObject::LoadBaseData(QGraphicsItem *item, QDataStream &stream)
{
    quint32 magic = 0;
    quint16 version = 0;
    stream >> magic >> version;
    if (stream.status() != QDataStream::Ok || magic != RecordMagic || version < 1)
        return false;
    QByteArray bytes;
    stream >> bytes;
    if (stream.status() != QDataStream::Ok)
        return false;
    bool ok = false;
    const QVariant fields = BaseRecord::fromBytes(bytes, &ok);
    if (!ok || fields.userType() != QMetaType::QVariantMap)
        return false;
    setBaseFields(item, fields.toMap());
    return true;
}

bool CVXRootObject::SavePropertyForPlayback(QDataStream &stream)
{
    return SaveBaseData(GetGraphicsItemPtr(), stream);
}

bool CVXRootObject::LoadPropertyForPlayback(QDataStream &stream)
{
    return LoadBaseData(GetGraphicsItemPtr(), stream);
}

bool CVXRootObject::DoPlaybackActionEx(int action, QDataStream &stream)
{
    Q_UNUSED(action)
    Q_UNUSED(stream)
    return false;
}

bool CVXRootObject::SaveJsonBaseData(QGraphicsItem *item, QJsonObject &json)
{
    const QVariantMap fields = baseFields(item);
    json.insert(QStringLiteral("version"), int(RecordVersion));
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it) {
        // Plain numbers: readers ask for a number here, so that its kind need not be kept.
        if (it.value().userType() == QMetaType::Double)
            json.insert(it.key(), it.value().toDouble());
        else
            json.insert(it.key(), BaseRecord::toJson(it.value()));
    }
    return true;
}

bool CVXRootObject::LoadJsonBaseData(QGraphicsItem *item, QJsonObject &json)
{
    if (json.value(QStringLiteral("version")).toInt() < 1)
        return false;
    QVariantMap fields;
    static const char *const keys[] = {"x",      "y",      "rotation", "z",    "width",
                                       "height", "locked", "created",  "flip", "mirror",
                                       "params", "pen",    "fill"};
    for (const char *key : keys) {
        const QString name = QLatin1String(key);
        fields.insert(name, BaseRecord::fromJson(json.value(name)));
    }
    setBaseFields(item, fields);
    return true;
}
