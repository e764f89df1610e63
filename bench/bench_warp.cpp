// SPDX-License-Identifier: MIT
// bench_warp.cpp -- the warp of outlines, beside the bare arithmetic of its surface: elements of
// outlines per second, both over the same text.
#include "bench/benchtext.h"
#include "warp/bezier.h"
#include "warp/surfaces.h"
#include "warp/textbezier.h"

#include <QApplication>
#include <QDataStream>

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

constexpr float benchValue = 0.5f;

/// A text whose outlines can be looked at.
class WarpText : public BenchTextObject
{
public:
    explicit WarpText(int length)
        : BenchTextObject(benchText(BenchScript::Latin, length), Qt::Horizontal)
    {
    }
    using CWordProcess::m_morphPaths;
    using CWordProcess::m_textPaths;
};

WarpText *makeText(int length)
{
    benchFramework().setScript(BenchScript::Latin);
    return new WarpText(length);
}

/// The points of a curve that a warp carries over the surface, beside its start.
void addCurve(std::vector<QPointF> &points, const QPointF &p0, const QPointF &p1, const QPointF &p2,
              const QPointF &p3)
{
    points.push_back(calculateBezierPoint(p0, p1, p2, p3, 0.333f));
    points.push_back(calculateBezierPoint(p0, p1, p2, p3, 0.666f));
    points.push_back(p3);
}

/// What a warp of \a path carries over the surface; a line goes as a line and as a curve.
void addPoints(std::vector<QPointF> &points, const QPainterPath &path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPointF point = path.elementAt(i);
        switch (path.elementAt(i).type) {
        case QPainterPath::MoveToElement:
            points.push_back(point);
            break;
        case QPainterPath::LineToElement: {
            const QPointF start = path.elementAt(i - 1);
            const QPointF third = (point - start) / 3;
            points.push_back(point);
            points.push_back(start);
            addCurve(points, start, start + third, start + third * 2, point);
            break;
        }
        case QPainterPath::CurveToElement:
            addCurve(points, path.elementAt(i - 1), point, path.elementAt(i + 1),
                     path.elementAt(i + 2));
            break;
        case QPainterPath::CurveToDataElement:
            break;
        }
    }
}

CTextBezier bentSurface(const QSizeF &size)
{
    const int w = int(size.width());
    const int h = int(size.height());
    QVector<QPointF> flat;
    for (int y : {0, h / 3, h * 2 / 3, h}) {
        for (int x : {0, w / 3, w * 2 / 3, w})
            flat.append(QPointF(x, y));
    }
    QVector<QVector<QPointF>> net{flat};
    getSurFacePoint(SurfaceArc, net, benchValue);
    return CTextBezier(QPolygonF(net.first()));
}

// Nothing but the surface, over the points that a warp of the text carries.
void bareSurface(benchmark::State &state, int length)
{
    WarpText *object = makeText(length);
    std::vector<QPointF> points;
    for (const QPainterPath &path : qAsConst(object->m_textPaths))
        addPoints(points, path);
    if (points.empty())
        state.SkipWithError("the text has no outlines");
    std::vector<QPointF> images(points.size());
    const QSizeF size = object->m_textPathsRect.size();
    const CTextBezier surface = bentSurface(size);
    for ([[maybe_unused]] auto _ : state) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            images[i] = surface.getBezierLinePoint(points[i].y() / size.height(),
                                                   points[i].x() / size.width());
        }
        benchmark::DoNotOptimize(images.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * object->elementCount());
    object->Release();
}

/// Sets a warp as a host's slider does.
void drag(WarpText &object, double value)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << int(SurfaceArc) << value << 0.0 << 0.0 << int(Qt::Horizontal) << false;
    QDataStream in(bytes);
    object.SetSpecialProperty(118, in, false);
}

// From outlines to bent ones: walk, placement, box. After a layout the doubling of lines and the measuring of all
// outlines come on top; as long as the text stays they are done once.
void pipeline(benchmark::State &state, int length, bool afterLayout)
{
    WarpText *object = makeText(length);
    drag(*object, double(benchValue));
    for ([[maybe_unused]] auto _ : state) {
        if (afterLayout)
            object->m_textPaths.detach(); // another list, as a layout leaves it
        object->updateMorphTextPaths();
    }
    if (object->m_morphPaths.isEmpty())
        state.SkipWithError("the text was not bent");
    state.SetItemsProcessed(state.iterations() * object->elementCount());
    object->Release();
}

// One step of a slider: the property with another value each time, previewed.
void sliderStep(benchmark::State &state, int length)
{
    WarpText *object = makeText(length);
    double value = 0.2;
    for ([[maybe_unused]] auto _ : state) {
        value = value > 0.8 ? 0.2 : value + 0.01;
        drag(*object, value);
    }
    if (object->m_morphPaths.isEmpty())
        state.SkipWithError("the text was not bent");
    object->Release();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    for (int length : {100, 1000, 10000}) {
        const std::string name = std::to_string(length);
        benchmark::RegisterBenchmark(("bareSurface/" + name).c_str(), bareSurface, length)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(("pipeline/" + name).c_str(), pipeline, length,
                                     /*afterLayout=*/false)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(("pipelineAfterLayout/" + name).c_str(), pipeline, length,
                                     /*afterLayout=*/true)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark(("sliderStep/" + name).c_str(), sliderStep, length)
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
