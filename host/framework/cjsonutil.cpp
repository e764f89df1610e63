// SPDX-License-Identifier: MIT
// cjsonutil.cpp -- CJsonUtil.
#include "host/framework/cjsonutil.h"

#include "host/framework/baserecord_p.h"

QJsonValue CJsonUtil::fromColor(const QColor &color) const
{
    return color.isValid() ? color.name(QColor::HexArgb) : QString();
}

QColor CJsonUtil::toColor(const QJsonValue &value) const
{
    QColor color;
    if (value.isString() && !value.toString().isEmpty())
        color.setNamedColor(value.toString());
    return color;
}

QJsonValue CJsonUtil::fromVariant(const QVariant &value) const
{
    return BaseRecord::toJson(value);
}

QVariant CJsonUtil::toVariant(const QJsonValue &value) const
{
    return BaseRecord::fromJson(value);
}
