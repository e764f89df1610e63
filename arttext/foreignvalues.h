// SPDX-License-Identifier: MIT
// foreignvalues.h -- values from streams that may hold anything.
#ifndef FOREIGNVALUES_H
#define FOREIGNVALUES_H

#include "host/framework/hosttypes.h"

#include <QColor>

class QDataStream;

/// Reads a colour; one of a kind that QColor does not know is invalid.
QColor readColor(QDataStream &stream);

/// Reads a count and as many pairs of a QString and a QVariant. Reading ends, and what came before
/// it counts, at a pair that is cut off and at a value of a kind that attributes do not have: anything
/// but plain values (numbers, booleans, texts, bytes, colours, dates, points, sizes, rectangles) and
/// lists and maps of them. No count is believed further than the bytes reach, and lists and maps are
/// read 64 deep.
AttributeMap readAttributes(QDataStream &stream);

#endif
