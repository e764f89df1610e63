// SPDX-License-Identifier: MIT
// bench_page.cpp -- opening and saving page files of 1 000 objects, in both forms, and the copy that is
// made of a page in the middle of the work.
#include "app/page/framework.h"
#include "app/page/openpage.h"
#include "app/page/page.h"
#include "app/page/pagestorage.h"
#include "app/page/pluginloader.h"
#include "bench/benchpages.h"
#include "host/framework/cvxrootobject.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr int ObjectCount = 1000;

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
        std::unique_ptr<OpenPage> page = openPage(state, files, path);
        if (!page)
            return;
        state.PauseTiming(); // its end is no part of its opening
        page.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * ObjectCount);
}

// The part of load() that makes no objects.
void read(benchmark::State &state, Files &files, const QString &path)
{
    for ([[maybe_unused]] auto _ : state) {
        PageFile file;
        if (!readPageFile(path, file, files.error))
            state.SkipWithError(qPrintable(files.error));
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

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    Framework framework;
    Files files;
    const QString hand = files.path("hand.json");
    const QString json = files.path("mixed.json");
    const QString binary = files.path("mixed.vxpage");
    if (!files.loader.load()) {
        qCritical("bench_page: %s", qPrintable(files.loader.errorString()));
        return 1;
    }
    if (!writeBytes(hand, plainPage(ObjectCount))
        || !writeMixedPage(files.loader, ObjectCount, json, files.error)
        || !writeMixedPage(files.loader, ObjectCount, binary, files.error)) {
        qCritical("bench_page: %s", qPrintable(files.error));
        return 1;
    }
    const auto add = [](const char *name, auto run) {
        return benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
    };
    using State = benchmark::State;
    add("load/by hand", [&](State &s) { load(s, files, hand); });
    add("load/mixed.json", [&](State &s) { load(s, files, json); });
    add("load/mixed.vxpage", [&](State &s) { load(s, files, binary); });
    add("read/mixed.json", [&](State &s) { read(s, files, json); });
    add("read/mixed.vxpage", [&](State &s) { read(s, files, binary); });
    add("save/json", [&](State &s) { save(s, files, json, files.path("out.json")); });
    add("save/vxpage", [&](State &s) { save(s, files, binary, files.path("out.vxpage")); });
    // On another thread, which the processor's clock of this one does not count.
    add("snapshot/unchanged", [&](State &s) {
        snapshot(s, files, json, /*isChanged=*/false);
    })->MeasureProcessCPUTime();
    add("snapshot/all changed", [&](State &s) {
        snapshot(s, files, json, /*isChanged=*/true);
    })->MeasureProcessCPUTime();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
