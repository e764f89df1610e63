// SPDX-License-Identifier: MIT
// bench_records.cpp -- writing and reading the records of a page's text objects.
#include "bench/benchtext.h"
#include "plugin/vxtext.h"

#include <QApplication>
#include <QDataStream>
#include <QJsonDocument>
#include <QJsonObject>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

constexpr int textLength = 40; // characters of each object

std::vector<std::unique_ptr<BenchTextObject>> textObjects(int count)
{
    std::vector<std::unique_ptr<BenchTextObject>> objects;
    for (int i = 0; i < count; ++i) {
        objects.push_back(
            std::make_unique<BenchTextObject>(benchText(BenchScript::Latin, textLength),
                                              Qt::Horizontal));
        objects.back()->setPos(QPointF(10.0 * i, 20.0 * i), false);
    }
    return objects;
}

CVXRootObject *newObject()
{
    return createObject_text(0, 0, true, nullptr);
}

void writeStreams(benchmark::State &state)
{
    const auto objects = textObjects(int(state.range(0)));
    qint64 bytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        QByteArray page;
        QDataStream out(&page, QIODevice::WriteOnly);
        for (const auto &object : objects)
            object->save(out);
        bytes += page.size();
    }
    state.SetBytesProcessed(bytes);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(writeStreams)->Arg(1000)->Unit(benchmark::kMillisecond);

void readStreams(benchmark::State &state)
{
    QByteArray page;
    QDataStream out(&page, QIODevice::WriteOnly);
    for (const auto &object : textObjects(int(state.range(0))))
        object->save(out);
    for ([[maybe_unused]] auto _ : state) {
        QDataStream in(page);
        for (int i = 0; i < state.range(0); ++i) {
            CVXRootObject *const object = newObject();
            object->load(in);
            object->Release();
        }
        if (!in.atEnd() || in.status() != QDataStream::Ok)
            state.SkipWithError("the records were not read to their end");
    }
    state.SetBytesProcessed(state.iterations() * page.size());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(readStreams)->Arg(1000)->Unit(benchmark::kMillisecond);

void writeJson(benchmark::State &state)
{
    const auto objects = textObjects(int(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (const auto &object : objects) {
            QJsonObject record;
            object->saveJson(record);
            benchmark::DoNotOptimize(record);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(writeJson)->Arg(1000)->Unit(benchmark::kMillisecond);

void readJson(benchmark::State &state)
{
    std::vector<QJsonObject> records;
    for (const auto &object : textObjects(int(state.range(0)))) {
        records.emplace_back();
        object->saveJson(records.back());
    }
    for ([[maybe_unused]] auto _ : state) {
        for (QJsonObject &record : records) {
            CVXRootObject *const object = newObject();
            object->loadJson(record);
            object->Release();
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(readJson)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchFramework();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
