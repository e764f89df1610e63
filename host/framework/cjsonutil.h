// SPDX-License-Identifier: MIT
// cjsonutil.h -- values that JSON has no form for, as JSON.
#ifndef CJSONUTIL_H
#define CJSONUTIL_H

#include "host/framework/framework_global.h"

#include <QColor>
#include <QJsonValue>
#include <QVariant>

/// Stateless. Reentrant.
class FRAMEWORK_EXPORT CJsonUtil
{
public:
    /// "#aarrggbb"; the empty string for an invalid colour.
    QJsonValue fromColor(const QColor &color) const;
    /// Reads "#aarrggbb", "#rrggbb" and colour names; anything else is the invalid colour.
    QColor toColor(const QJsonValue &value) const;
    /// \a value as JSON, in a form that toVariant() turns back into the same value. Plain JSON for
    /// bool, int, double, string, list and map; {"type": ..., "data": ...} for every other kind.
    /// Each keeps its type, save that a whole double of the int range comes back as int.
    QJsonValue fromVariant(const QVariant &value) const;
    /// The value written by fromVariant(). A tagged value that cannot be read is invalid; whole
    /// numbers of the int range read as int.
    QVariant toVariant(const QJsonValue &value) const;
};

#endif
