// SPDX-License-Identifier: MIT
#include "app/pagehost/pageproblem.h"

#include "app/page/binarypage.h"
#include "app/page/inputfile.h"
#include "app/page/pagefile.h"
#include "app/page/pagestorage.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int versionAt = 10; // of a binary page, four bytes, the highest first
constexpr int binaryVersion = 1;
constexpr int headLength = 4096; // bytes in which a page of JSON tells what it is

struct PageProblemText {
    Q_DECLARE_TR_FUNCTIONS(PageProblem)
};

quint32 versionOf(const QByteArray &page)
{
    quint32 version = 0;
    for (int i = versionAt; i < versionAt + 4 && i < page.size(); ++i)
        version = version << 8 | static_cast<unsigned char>(page[i]);
    return version;
}

PageProblem problemOfJson(const QByteArray &bytes)
{
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (document.isNull()) // so broken that its beginning has to do
        return bytes.left(headLength).contains("\"vxpage\"") ? PageProblem::Damaged
                                                             : PageProblem::Foreign;
    const QJsonObject root = document.object();
    if (root.value(QLatin1String("format")).toString() != QLatin1String("vxpage"))
        return PageProblem::Foreign;
    const bool isNewer = root.value(QLatin1String("version")).toDouble() > PageFile::version;
    return isNewer ? PageProblem::Newer : PageProblem::Damaged;
}

} // namespace

PageProblem problemOf(const QString &fileName)
{
    QByteArray bytes;
    QString error;
    if (!readFile(fileName, maximumPageBytes, bytes, error))
        return PageProblem::Unreadable;
    if (!isBinaryPage(bytes))
        return problemOfJson(bytes);
    return versionOf(bytes) > binaryVersion ? PageProblem::Newer : PageProblem::Damaged;
}

QString problemText(PageProblem problem, const QString &fileName)
{
    const QString name = QDir::toNativeSeparators(fileName);
    switch (problem) {
    case PageProblem::Unreadable:
        return PageProblemText::tr("%1 cannot be read.").arg(name);
    case PageProblem::Foreign:
        return PageProblemText::tr("%1 is no page.").arg(name);
    case PageProblem::Newer:
        return PageProblemText::tr("%1 was made by a newer version of the program.").arg(name);
    case PageProblem::Damaged:
        break;
    }
    return PageProblemText::tr("%1 is damaged.").arg(name);
}
