// SPDX-License-Identifier: MIT
// Saves a page again and again, each time with another number as the text of all its objects, until it is
// killed. Usage: saveloop FILE
// saveloop --check FILE prints the number that a file holds, and fails when it is no whole page of one number.
#include "app/page/framework.h"
#include "app/page/page.h"
#include "app/page/pagestorage.h"
#include "app/page/pluginloader.h"
#include "app/pagehost/pagesession.h"
#include "host/framework/cvxrootobject.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <cstdio>

namespace {

constexpr int objectCount = 5;
constexpr int ballast = 1 << 21; // characters, that writing the file takes its time
const QString ballastKind = QStringLiteral("ballast");

int fail(const QString &message)
{
    std::fprintf(stderr, "saveloop: %s\n", qPrintable(message));
    return 1;
}

bool writeFirst(const QString &fileName, QString &error)
{
    QJsonArray objects;
    for (int i = 0; i < objectCount; ++i) {
        objects.append(QJsonObject{{QStringLiteral("kind"), QStringLiteral("rich_text")},
                                   {QStringLiteral("x"), 20},
                                   {QStringLiteral("y"), 20 + 60 * i},
                                   {QStringLiteral("text"), QStringLiteral("0")}});
    }
    objects.append(QJsonObject{{QStringLiteral("kind"), ballastKind},
                               {QStringLiteral("data"), QString(ballast, QLatin1Char('x'))}});
    const QJsonObject root{{QStringLiteral("format"), QStringLiteral("vxpage")},
                           {QStringLiteral("version"), 1},
                           {QStringLiteral("page"), QJsonObject{{QStringLiteral("width"), 400},
                                                                {QStringLiteral("height"), 400}}},
                           {QStringLiteral("objects"), objects}};
    PageFile file;
    return file.read(root, error) && writePageFile(fileName, file, error);
}

QString textOf(const QJsonObject &object)
{
    if (object.contains(QLatin1String("text")))
        return object.value(QLatin1String("text")).toString();
    const QJsonObject parameters =
        object.value(QLatin1String("record")).toObject().value(QLatin1String("params")).toObject();
    const QByteArray data = parameters.value(QLatin1String("document_data")).toString().toUtf8();
    return QJsonDocument::fromJson(data)
        .object()
        .value(QLatin1String("fragment"))
        .toArray()
        .at(0)
        .toArray()
        .at(0)
        .toObject()
        .value(QLatin1String("content"))
        .toString();
}

int check(const QString &fileName)
{
    PageFile file;
    QString error;
    if (!readPageFile(fileName, file, error))
        return fail(error);
    QSet<QString> texts;
    int count = 0;
    for (const PageObject &object : file.objects()) {
        if (object.kind == ballastKind) {
            count += object.source.value(QLatin1String("data")).toString().size() == ballast;
            continue;
        }
        ++count;
        texts.insert(textOf(object.source));
    }
    if (count != objectCount + 1 || texts.size() != 1)
        return fail(QStringLiteral("'%1' holds parts of several pages").arg(fileName));
    std::printf("%s\n", qPrintable(*texts.constBegin()));
    return 0;
}

int saveUntilKilled(const QString &fileName)
{
    QString error;
    PluginLoader loader;
    if (!loader.load(QStringLiteral(VX_PLUGIN)))
        return fail(loader.errorString());
    Framework framework;
    if (!QFile::exists(fileName) && !writeFirst(fileName, error))
        return fail(error);
    const std::unique_ptr<PageSession> session = PageSession::open(&loader, fileName, error);
    if (!session)
        return fail(error);
    AttributeMap attributes;
    session->page()->objects().constFirst()->getAllAttributes(attributes);
    for (int number = attributes.value(QStringLiteral("text")).toInt() + 1;; ++number) {
        for (CVXRootObject *object : session->page()->objects())
            object->setAllAttributes({{QStringLiteral("text"), QString::number(number)}},
                                     /*withUndo=*/true);
        std::printf("saving %d\n", number);
        std::fflush(stdout);
        if (!session->save(fileName, error))
            return fail(error);
        std::printf("saved %d\n", number);
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("--check"))
        return check(arguments.at(2));
    return arguments.size() == 2 ? saveUntilKilled(arguments.at(1)) : 2;
}
