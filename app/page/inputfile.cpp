// SPDX-License-Identifier: MIT
#include "app/page/inputfile.h"

#include "app/page/pagetext.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

/// One row of the table of well-formed byte sequences: which lead bytes, how many bytes follow, and
/// the range of the first that follows. The others are 0x80 to 0xBF.
struct Sequence {
    unsigned char leadFrom, leadTo;
    int following;
    unsigned char secondFrom, secondTo;
};

// clang-format off
constexpr Sequence sequences[] = {
    {0x01, 0x7F, 0, 0x00, 0x00},
    {0xC2, 0xDF, 1, 0x80, 0xBF},
    {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x80, 0x9F},
    {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x80, 0xBF},
    {0xF4, 0xF4, 3, 0x80, 0x8F},
};
// clang-format on

const Sequence *sequenceOf(unsigned char lead)
{
    for (const Sequence &sequence : sequences) {
        if (lead >= sequence.leadFrom && lead <= sequence.leadTo)
            return &sequence;
    }
    return nullptr;
}

/// True when the bytes that \a sequence wants stand behind the lead byte at \a at.
bool isComplete(const QByteArray &bytes, int at, const Sequence &sequence)
{
    if (sequence.following >= bytes.size() - at)
        return false;
    for (int i = 1; i <= sequence.following; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[at + i]);
        const unsigned char from = i == 1 ? sequence.secondFrom : 0x80;
        const unsigned char to = i == 1 ? sequence.secondTo : 0xBF;
        if (byte < from || byte > to)
            return false;
    }
    return true;
}

bool fail(QString &error, const QString &reason)
{
    error = reason;
    return false;
}

bool readOpenFile(QFile &file, const QString &name, qint64 limit, QByteArray &bytes, QString &error)
{
    // One byte more than allowed tells a file that is too large, also where it has no size: a pipe. In pieces,
    // since QIODevice::read() sets aside all that it is allowed to read.
    constexpr qint64 largestPiece = 1 << 20;
    QByteArray content;
    while (content.size() <= limit) {
        const QByteArray piece = file.read(qMin(largestPiece, limit + 1 - content.size()));
        if (piece.isEmpty())
            break;
        content += piece;
    }
    if (file.error() != QFileDevice::NoError)
        return fail(error, PageText::tr("cannot read '%1': %2").arg(name, file.errorString()));
    if (content.size() > limit)
        return fail(error, PageText::tr("'%1' is larger than %2 bytes").arg(name).arg(limit));
    bytes = content;
    return true;
}

} // namespace

qint64 firstBadByte(const QByteArray &bytes)
{
    for (int at = 0; at < bytes.size();) {
        const Sequence *sequence = sequenceOf(static_cast<unsigned char>(bytes[at]));
        if (!sequence || !isComplete(bytes, at, *sequence))
            return at;
        at += 1 + sequence->following;
    }
    return -1;
}

bool readFile(const QString &name, qint64 limit, QByteArray &bytes, QString &error)
{
    QFile file(name);
    if (QFileInfo(name).isDir())
        return fail(error, PageText::tr("cannot read '%1': it is a directory").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return fail(error, PageText::tr("cannot read '%1': %2").arg(name, file.errorString()));
    return readOpenFile(file, name, limit, bytes, error);
}

bool readStandardInput(const QString &name, qint64 limit, QByteArray &bytes, QString &error)
{
    QFile file;
    if (!file.open(stdin, QIODevice::ReadOnly))
        return fail(error, PageText::tr("cannot read '%1': %2").arg(name, file.errorString()));
    return readOpenFile(file, name, limit, bytes, error);
}

bool decodeText(const QString &name, QByteArray bytes, QString &text, QString &error)
{
    const qint64 bad = firstBadByte(bytes);
    if (bad >= 0 && bytes[int(bad)] == '\0')
        return fail(error, PageText::tr("'%1' is no text: NUL at byte %2").arg(name).arg(bad));
    if (bad >= 0)
        return fail(error, PageText::tr("'%1' is not UTF-8: bad byte %2").arg(name).arg(bad));
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    text = QString::fromUtf8(bytes);
    return true;
}
