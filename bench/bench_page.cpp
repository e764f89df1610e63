// SPDX-License-Identifier: MIT
// bench_page.cpp -- opening and saving page files of 1 000 objects, in both forms.
#include "app/page/framework.h"
#include "app/page/openpage.h"
#include "app/page/page.h"
#include "app/page/pluginloader.h"
#include "host/framework/cvxrootobject.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr int ObjectCount = 1000;

// A page file of short lines of text, written by hand.
QByteArray handWrittenPage()
{
    QJsonArray objects;
    for (int i = 0; i < ObjectCount; ++i) {
        QJsonObject object;
        object.insert(QStringLiteral("kind"), QStringLiteral("rich_text"));
        object.insert(QStringLiteral("x"), 40 * (i % 25));
        object.insert(QStringLiteral("y"), 20 * (i / 25));
        object.insert(QStringLiteral("text"), QStringLiteral("object %1").arg(i));
        objects.append(object);
    }
    QJsonObject page;
    page.insert(QStringLiteral("format"), QStringLiteral("vxpage"));
    page.insert(QStringLiteral("version"), 1);
    page.insert(QStringLiteral("page"), QJsonObject{{QStringLiteral("width"), 1000},
                                                    {QStringLiteral("height"), 800},
                                                    {QStringLiteral("dpi"), 96}});
    page.insert(QStringLiteral("objects"), objects);
    return QJsonDocument(page).toJson();
}

struct Files {
    QTemporaryDir folder;
    PluginLoader loader;
    QString error;

    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }
};

// Null, with the reason on the state, when the page does not open whole.
std::unique_ptr<OpenPage> openPage(benchmark::State &state, Files &files, const QString &path)
{
    std::unique_ptr<OpenPage> page = OpenPage::load(files.loader, path, files.error);
    if (!page)
        state.SkipWithError(qPrintable(files.error));
    else if (page->page()->objects().size() != ObjectCount)
        state.SkipWithError("objects are missing");
    return page;
}

void load(benchmark::State &state, Files &files, const QString &path)
{
    for ([[maybe_unused]] auto _ : state) {
        if (!openPage(state, files, path))
            return;
    }
    state.SetItemsProcessed(state.iterations() * ObjectCount);
}

void save(benchmark::State &state, Files &files, const QString &from, const QString &to)
{
    const std::unique_ptr<OpenPage> page = openPage(state, files, from);
    if (!page)
        return;
    for ([[maybe_unused]] auto _ : state) {
        if (!page->save(to, files.error))
            state.SkipWithError(qPrintable(files.error));
    }
    state.SetItemsProcessed(state.iterations() * ObjectCount);
}

// The copy that the editor makes of a page while it is not saved; the window stands still meanwhile.
void snapshot(benchmark::State &state, Files &files, const QString &from, bool isChanged)
{
    const std::unique_ptr<OpenPage> page = openPage(state, files, from);
    if (!page)
        return;
    for (CVXRootObject *object : page->page()->objects()) {
        if (isChanged)
            object->setPos(object->getPos() + QPointF(1, 1), false);
    }
    for ([[maybe_unused]] auto _ : state) {
        PageFile file;
        if (!page->snapshot(file, files.error))
            state.SkipWithError(qPrintable(files.error));
    }
    state.SetItemsProcessed(state.iterations() * ObjectCount);
}

// Moves every object, so that all are written as records.
bool writeRecords(Files &files, const QString &from, const QString &to)
{
    const std::unique_ptr<OpenPage> page = OpenPage::load(files.loader, from, files.error);
    if (!page)
        return false;
    for (CVXRootObject *object : page->page()->objects())
        object->setPos(object->getPos() + QPointF(1, 1), false);
    return page->save(to, files.error);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    Framework framework;
    Files files;
    QFile hand(files.path("hand.json"));
    if (!files.loader.load() || !hand.open(QIODevice::WriteOnly)
        || hand.write(handWrittenPage()) < 0) {
        qCritical("bench_page: %s", qPrintable(files.loader.errorString()));
        return 1;
    }
    hand.close();
    const QString json = files.path("records.json");
    const QString binary = files.path("records.vxpage");
    if (!writeRecords(files, hand.fileName(), json) || !writeRecords(files, json, binary)) {
        qCritical("bench_page: %s", qPrintable(files.error));
        return 1;
    }
    using benchmark::RegisterBenchmark;
    const auto inMilliseconds = [](benchmark::internal::Benchmark *registered) {
        registered->Unit(benchmark::kMillisecond);
    };
    inMilliseconds(RegisterBenchmark("load/by hand", [&](benchmark::State &s) {
        load(s, files, hand.fileName());
    }));
    inMilliseconds(
        RegisterBenchmark("load/records.json", [&](benchmark::State &s) { load(s, files, json); }));
    inMilliseconds(RegisterBenchmark("load/records.vxpage",
                                     [&](benchmark::State &s) { load(s, files, binary); }));
    inMilliseconds(RegisterBenchmark("save/json", [&](benchmark::State &s) {
        save(s, files, json, files.path("out.json"));
    }));
    inMilliseconds(RegisterBenchmark("save/vxpage", [&](benchmark::State &s) {
        save(s, files, binary, files.path("out.vxpage"));
    }));
    // On another thread, whose time the processor's clock of this one does not count.
    inMilliseconds(RegisterBenchmark("snapshot/unchanged", [&](benchmark::State &s) {
                       snapshot(s, files, json, /*isChanged=*/false);
                   })->UseRealTime());
    inMilliseconds(RegisterBenchmark("snapshot/all changed", [&](benchmark::State &s) {
                       snapshot(s, files, json, /*isChanged=*/true);
                   })->UseRealTime());
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
