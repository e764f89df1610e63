// SPDX-License-Identifier: MIT
#include "app/page/pagestorage.h"

#include "app/page/binarypage.h"
#include "app/page/inputfile.h"
#include "app/page/jsonfields.h"
#include "app/page/pagefile.h"
#include "app/page/pagetext.h"

#include <QFileInfo>
#include <QJsonDocument>

namespace {

bool fail(QString &error, const QString &reason)
{
    error = reason;
    return false;
}

} // namespace

bool pageFormOf(const QString &fileName, PageForm &form)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("json"))
        form = PageForm::Json;
    else if (suffix == QLatin1String("vxpage"))
        form = PageForm::Binary;
    else
        return false;
    return true;
}

bool readPage(const QByteArray &bytes, PageFile &file, QString &error)
{
    if (isBinaryPage(bytes))
        return readBinaryPage(bytes, file, error);
    const qint64 bad = firstBadByte(bytes);
    if (bad >= 0)
        return fail(error, PageText::tr("neither a binary page nor UTF-8: bad byte %1").arg(bad));
    QJsonDocument document;
    return parseJson(bytes, document, error) && file.read(document.object(), error);
}

bool readPageFile(const QString &fileName, PageFile &file, QString &error)
{
    QByteArray bytes;
    if (!readFile(fileName, maximumPageBytes, bytes, error))
        return false;
    QString reason;
    return readPage(bytes, file, reason)
           || fail(error, QStringLiteral("'%1': %2").arg(fileName, reason));
}

bool pageBytes(const PageFile &file, PageForm form, QByteArray &bytes, QString &error)
{
    QByteArray result;
    if (form == PageForm::Json)
        result = QJsonDocument(file.toJson()).toJson(QJsonDocument::Indented);
    else if (!binaryPage(file, result, error))
        return false;
    if (result.size() > maximumPageBytes) {
        return fail(error, PageText::tr("the page takes more than %1 bytes as a file")
                               .arg(maximumPageBytes));
    }
    bytes = result;
    return true;
}

bool writePageFile(const QString &fileName, const PageFile &file, QString &error, FormerFile former,
                   const Progress &progress)
{
    PageForm form = PageForm::Json;
    if (!pageFormOf(fileName, form)) {
        return fail(error,
                    PageText::tr("unknown kind of page file '%1': .json or .vxpage").arg(fileName));
    }
    QByteArray bytes;
    QString reason;
    if (!pageBytes(file, form, bytes, reason))
        return fail(error, QStringLiteral("'%1': %2").arg(fileName, reason));
    // What a reader would refuse takes no file's place.
    bool wanted = isWanted(progress, 0, 2);
    const FileCheck isReadable = [&](const QByteArray &written, QString &problem) {
        PageFile again;
        const bool isRead = readPage(written, again, problem);
        wanted = isWanted(progress, 1, 2);
        return isRead && wanted;
    };
    if (wanted && writeFile(fileName, bytes, reason, former, isReadable))
        return true;
    if (!wanted)
        return fail(error, QString());
    return fail(error, PageText::tr("cannot write '%1': %2").arg(fileName, reason));
}
