// SPDX-License-Identifier: MIT
// streamreading.h -- reading the arguments of a command from the host's stream, all or none.
#ifndef STREAMREADING_H
#define STREAMREADING_H

#include <QDataStream>

/// Reads \a values one after the other; what befell the stream before does not count.
/// \return false for a stream that ends early or has no device: what has been read is of no use then
template<typename... Values>
bool readAll(QDataStream &stream, Values &...values)
{
    if (!stream.device())
        return false;
    stream.resetStatus();
    (stream >> ... >> values);
    return stream.status() == QDataStream::Ok;
}

#endif
