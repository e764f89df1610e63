// SPDX-License-Identifier: MIT
// bench_arttext.cpp -- art text: guide lines, pouring outlines between them, blurring.
#include "arttext/artstyles.h"
#include "arttext/arttexthelper.h"
#include "arttext/vxarttext.h"
#include "bench/benchtext.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace {

constexpr qint64 side = 4096; // of the square that guide lines are made for

unsigned int guidePoints(CArtText &art)
{
    tagPOINT *points1 = nullptr;
    tagPOINT *points2 = nullptr;
    unsigned int count1 = 0;
    unsigned int count2 = 0;
    art.GetPathPoint(&points1, &count1, &points2, &count2);
    return count1 + count2;
}

// Guide lines: one by each generator, across the whole square.

using Generator = std::function<bool(CArtText &)>;

void drawGuideLine(benchmark::State &state, const Generator &generator)
{
    CArtText art;
    bool drawn = true;
    for ([[maybe_unused]] auto _ : state)
        drawn = generator(art) && drawn;
    if (!drawn || guidePoints(art) == 0)
        state.SkipWithError("no guide line was drawn");
    state.counters["points"] = guidePoints(art);
}

void registerGuideLines()
{
    const auto add = [](const char *name, const Generator &generator) {
        benchmark::RegisterBenchmark((std::string("guideLine/") + name).c_str(), drawGuideLine,
                                     generator)
            ->Unit(benchmark::kMicrosecond);
    };
    add("straight", [](CArtText &art) { return art.DrawLine(1, CPoint(0, 0), CPoint(side, 0)); });
    add("parabola", [](CArtText &art) {
        const tagPOINT points[] = {{0, side / 3}, {side / 2, 0}, {side, side / 3}};
        return art.DrawCurve(1, points, false);
    });
    add("wave", [](CArtText &art) {
        return art.DrawCosText(1, CPoint(0, side / 6), 1.0F, side / 6.0, side, 0.0, 6.283185307,
                               false, false);
    });
    add("arc", [](CArtText &art) {
        return art.DrawEllipse(CPoint(side / 2, side / 2), side / 2.0F, 1, 180.0F, 540.0F);
    });
}

// Styles: both guide lines of each.

void drawStyle(benchmark::State &state, int style)
{
    CArtText art;
    for ([[maybe_unused]] auto _ : state)
        CArtText::DoAction(style, CRect(0, 0, side, side), &art);
    if (guidePoints(art) == 0)
        state.SkipWithError("no guide lines were drawn");
    state.counters["points"] = guidePoints(art);
}

void registerStyles()
{
    for (int style = 0; style < artStyleCount; ++style) {
        benchmark::RegisterBenchmark(("style/" + std::to_string(style)).c_str(), drawStyle, style)
            ->Unit(benchmark::kMicrosecond);
    }
}

// Pouring: the cost of one path element between two curved guide lines.

void pour(benchmark::State &state)
{
    CArtText art;
    const tagPOINT top[] = {{0, side / 3}, {side / 2, 0}, {side, side / 3}};
    const tagPOINT bottom[] = {{0, side}, {side / 2, side - side / 3}, {side, side}};
    art.DrawCurve(1, top, false);
    art.DrawCurve(2, bottom, false);
    const int elements = int(state.range(0));
    QPainterPath path(QPointF(0, 0));
    for (int i = 1; i < elements; ++i)
        path.lineTo(i * 1000.0 / elements, i % 100);
    QPainterPath bent;
    for ([[maybe_unused]] auto _ : state) {
        bent = art.lensDeform(path, QPointF(), QSizeF(1000, 100), CSize(side, side), false);
        benchmark::DoNotOptimize(bent);
    }
    if (bent.elementCount() != elements || bent == path)
        state.SkipWithError("the outline was not bent");
    state.SetItemsProcessed(state.iterations() * elements);
}

// Blurring: the time must not depend on the radius.

void blur(benchmark::State &state)
{
    QImage image(512, 512, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgba(x % 256, y % 256, (x * y) % 256, (x + y) % 256));
    }
    bool blurred = true;
    for ([[maybe_unused]] auto _ : state)
        blurred = ThBlurMore(image, int(state.range(0))) && blurred;
    if (!blurred)
        state.SkipWithError("the image was not blurred");
    state.SetItemsProcessed(state.iterations() * image.width() * image.height());
}

// The object: outlines from its text, and painting it again.

class ArtObject : public CVxArtText
{
public:
    /// \a length characters, Latin and Han mixed, in lines of 50.
    explicit ArtObject(int length)
        : CVxArtText(1, true, nullptr, nullptr)
    {
        QString text = benchText(BenchScript::Mixed, length);
        for (int i = 50; i < text.size(); i += 51)
            text.insert(i, QLatin1Char('\n'));
        setPlainText(text);
        setSize(QSizeF(1000, 600), false, false);
    }

    int pathCount() const { return m_charPaths.size(); }
    const QPainterPath *paintedPaths() const { return m_scaledPaths.constData(); }
};

void generatePath(benchmark::State &state)
{
    const int length = int(state.range(0));
    ArtObject art(length);
    for ([[maybe_unused]] auto _ : state)
        art.generatePath(false);
    if (art.pathCount() < length * 9 / 10)
        state.SkipWithError("characters without a path");
    state.SetItemsProcessed(state.iterations() * length);
}

void repaintUnchanged(benchmark::State &state)
{
    ArtObject art(int(state.range(0)));
    QImage image(1000, 600, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    art.OnQPainterDraw(&painter);
    const QPainterPath *const paths = art.paintedPaths();
    for ([[maybe_unused]] auto _ : state)
        art.OnQPainterDraw(&painter);
    if (!paths || art.paintedPaths() != paths)
        state.SkipWithError("the paths were made anew");
}

} // namespace

BENCHMARK(generatePath)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(repaintUnchanged)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(pour)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(blur)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    registerGuideLines();
    registerStyles();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
