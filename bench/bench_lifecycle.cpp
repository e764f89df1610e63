// SPDX-License-Identifier: MIT
// bench_lifecycle.cpp -- creating and releasing text objects.
#include "bench/benchtext.h"
#include "plugin/vxtext.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

void createAndRelease(benchmark::State &state)
{
    std::vector<CVXRootObject *> objects(size_t(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (size_t i = 0; i < objects.size(); ++i)
            objects[i] = createObject_text(0, int(i), true, nullptr);
        for (CVXRootObject *object : objects)
            object->Release();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(createAndRelease)->Arg(1000)->Unit(benchmark::kMillisecond);

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
