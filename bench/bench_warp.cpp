// SPDX-License-Identifier: MIT
// bench_warp.cpp -- the warp of outlines, beside its bare arithmetic and the surface alone: elements
// of outlines per second, all over the same text.
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

/// A curve of an outline; one with \a isPoint set is a single point, its end.
struct Curve {
    QPointF p0;
    QPointF p1;
    QPointF p2;
    QPointF p3;
    bool isPoint = false;
};

/// What a warp of \a path carries over the surface; a line goes as its end and as a curve.
void addCurves(std::vector<Curve> &curves, const QPainterPath &path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPointF point = path.elementAt(i);
        switch (path.elementAt(i).type) {
        case QPainterPath::MoveToElement:
            curves.push_back({point, point, point, point, true});
            break;
        case QPainterPath::LineToElement: {
            const QPointF start = path.elementAt(i - 1);
            const QPointF third = (point - start) / 3;
            curves.push_back({point, point, point, point, true});
            curves.push_back({start, start, start, start, true});
            curves.push_back({start, start + third, start + third * 2, point});
            break;
        }
        case QPainterPath::CurveToElement:
            curves.push_back(
                {path.elementAt(i - 1), point, path.elementAt(i + 1), path.elementAt(i + 2)});
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

std::vector<Curve> curvesOf(const WarpText &object)
{
    std::vector<Curve> curves;
    for (const QPainterPath &path : object.m_textPaths)
        addCurves(curves, path);
    return curves;
}

// The arithmetic of a warp from array to array: points on each curve sampled, carried over the surface and
// made a curve again. A curve begins where the one before ended.
void bareArithmetic(benchmark::State &state, int length)
{
    WarpText *object = makeText(length);
    std::vector<Curve> curves = curvesOf(*object);
    if (curves.empty())
        state.SkipWithError("the text has no outlines");
    std::vector<Curve> images(curves.size());
    const QSizeF size = object->m_textPathsRect.size();
    const CTextBezier surface = bentSurface(size);
    const auto carried = [&](const QPointF &point) {
        return surface.getBezierLinePoint(point.y() / size.height(), point.x() / size.width());
    };
    for ([[maybe_unused]] auto _ : state) {
        QPointF pen;
        for (std::size_t i = 0; i < curves.size(); ++i) {
            const Curve &curve = curves[i];
            Curve &image = images[i];
            image.p3 = carried(curve.p3);
            if (!curve.isPoint) {
                const auto &[p0, p1, p2, p3, isPoint] = curve;
                QPointF q1 = carried(calculateBezierPoint(p0, p1, p2, p3, 0.333f));
                QPointF q2 = carried(calculateBezierPoint(p0, p1, p2, p3, 0.666f));
                get_control_points(pen, q1, q2, image.p3, image.p1, image.p2);
            }
            pen = image.p3;
        }
        benchmark::DoNotOptimize(images.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * object->elementCount());
    object->Release();
}

// Nothing but the surface, over as many points.
void bareSurface(benchmark::State &state, int length)
{
    WarpText *object = makeText(length);
    std::vector<QPointF> points;
    for (const Curve &curve : curvesOf(*object)) {
        points.push_back(curve.p3);
        if (!curve.isPoint)
            points.insert(points.end(), {curve.p1, curve.p2});
    }
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
        benchmark::RegisterBenchmark(("bareArithmetic/" + name).c_str(), bareArithmetic, length)
            ->Unit(benchmark::kMicrosecond);
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
