// SPDX-License-Identifier: MIT
// bench_linetext.cpp -- line text: layout with outlines, and painting into an image.
#include "bench/benchtext.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <string>

namespace {

struct Case {
    BenchScript script;
    Qt::Orientation orientation;
    int length;
};

BenchTextObject *makeObject(const Case &chosen)
{
    benchFramework().setScript(chosen.script);
    return new BenchTextObject(benchText(chosen.script, chosen.length), chosen.orientation);
}

// Layout, outlines and bounds from an unchanged document: the road of every key press.
void layOut(benchmark::State &state, const Case &chosen)
{
    BenchTextObject *object = makeObject(chosen);
    for ([[maybe_unused]] auto _ : state)
        object->updateBoundingRectImpl(true);
    if (object->elementCount() == 0)
        state.SkipWithError("the text has no outlines");
    state.SetItemsProcessed(state.iterations() * chosen.length);
    object->Release();
}

// The text from its start; what runs out of the image is clipped, as on a screen.
void paint(benchmark::State &state, const Case &chosen)
{
    BenchTextObject *object = makeObject(chosen);
    QImage image(1280, 800, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const QImage blank = image;
    for ([[maybe_unused]] auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-object->boundingRect().topLeft());
        object->OnQPainterDraw(&painter);
    }
    if (image == blank)
        state.SkipWithError("nothing was painted");
    state.SetItemsProcessed(state.iterations() * chosen.length);
    object->Release();
}

void registerCase(const Case &chosen)
{
    const std::string name = std::string(benchScriptName(chosen.script))
                             + (chosen.orientation == Qt::Horizontal ? "/horizontal/"
                                                                     : "/vertical/")
                             + std::to_string(chosen.length);
    benchmark::RegisterBenchmark(("layOut/" + name).c_str(), layOut, chosen)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("paint/" + name).c_str(), paint, chosen)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    for (BenchScript script : {BenchScript::Latin, BenchScript::Cjk, BenchScript::Mixed}) {
        for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
            for (int length : {100, 1000, 10000})
                registerCase({script, orientation, length});
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
