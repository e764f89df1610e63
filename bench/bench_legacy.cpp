// SPDX-License-Identifier: MIT
// bench_legacy.cpp -- text of the older engine: layout with outlines, painting, and what the pointer costs.
#include "bench/benchtext.h"
#include "layout/textproperties.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>

#include <benchmark/benchmark.h>

namespace {

constexpr int Dpi = 96;
constexpr qreal Points = 12;         // 16 pixels
constexpr qreal LineLength = 600;    // of box text, pixels along the line
constexpr qreal Across = 1e6;        // pixels across it: nothing is clipped
constexpr int ParagraphLength = 200; // characters

struct Case {
    BenchScript script;
    Qt::Orientation orientation;
    bool isBox;
    int length;
};

QString caseName(const Case &chosen)
{
    return QStringLiteral("%1/%2/%3/%4")
        .arg(QLatin1String(chosen.isBox ? "box" : "line"),
             QLatin1String(benchScriptName(chosen.script)),
             QLatin1String(chosen.orientation == Qt::Horizontal ? "horizontal" : "vertical"))
        .arg(chosen.length);
}

// Exactly as many characters as the case tells, ends of paragraphs included.
QString caseText(const Case &chosen)
{
    QString text = benchText(chosen.script, chosen.length);
    for (int i = ParagraphLength; i < text.length() - 1; i += ParagraphLength + 1)
        text[i] = QLatin1Char('\n');
    return text;
}

class OldText : public CWordProcess
{
public:
    explicit OldText(const Case &chosen)
        : CWordProcess(/*id=*/1, /*finished=*/true, nullptr, nullptr)
    {
        m_documentDpi = Dpi;
        m_newVersion = false;
        m_textOrientation = chosen.orientation;
        m_wordWrap = chosen.isBox;
        if (chosen.isBox)
            m_clientRect = chosen.orientation == Qt::Horizontal ? QRectF(0, 0, LineLength, Across)
                                                                : QRectF(0, 0, Across, LineLength);
        QString family;
        int points = 0;
        benchFramework().setScript(chosen.script);
        benchFramework().getDefaultFont(family, points);
        QTextCharFormat format;
        format.setFontFamily(family);
        format.setFontPointSize(Points);
        format.setForeground(Qt::black);
        format.setProperty(TextProperty::RowSpacing, 0.0);
        QTextBlockFormat block;
        block.setProperty(TextProperty::Alignment, chosen.orientation == Qt::Horizontal ? 1 : 0x20);
        block.setProperty(TextProperty::HeadTailRule, 2);
        QTextCursor cursor(m_document);
        cursor.setBlockFormat(block);
        cursor.insertText(caseText(chosen), format);
    }

    bool isLaidOut() const
    {
        return !m_legacyLines.isEmpty() && !m_legacyLines.last().items.last().path.isEmpty();
    }
    int lineCount() const { return m_legacyLines.size(); }
    /// In the middle of all lines.
    QPointF middle() const
    {
        const QRectF ink = getClientPathImpl().boundingRect();
        return ink.center();
    }
    QPointF corner() const { return getClientPathImpl().boundingRect().topLeft(); }
};

// The road of every key press.
void layOut(benchmark::State &state, const Case &chosen)
{
    OldText object(chosen);
    for ([[maybe_unused]] auto _ : state)
        object.updateBoundingRectImpl(true);
    if (!object.isLaidOut())
        state.SkipWithError("the text has not been laid out to its end");
    state.counters["lines"] = object.lineCount();
    state.SetItemsProcessed(state.iterations() * chosen.length);
}

// The text from its upper left corner; what runs out of the image is clipped, as on a screen.
void paint(benchmark::State &state, const Case &chosen)
{
    OldText object(chosen);
    object.updateBoundingRectImpl(true);
    const QPointF corner = object.corner();
    QImage image(1280, 800, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const QImage blank = image;
    for ([[maybe_unused]] auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(-corner);
        object.OnQPainterDraw(&painter);
    }
    if (image == blank)
        state.SkipWithError("nothing was painted");
    state.SetItemsProcessed(state.iterations() * chosen.length);
}

void findPosition(benchmark::State &state, const Case &chosen)
{
    OldText object(chosen);
    object.updateBoundingRectImpl(true);
    const QPointF point = object.middle();
    int position = -1;
    for ([[maybe_unused]] auto _ : state)
        position = object.legacyPositionUnder(point);
    if (position <= 0)
        state.SkipWithError("nothing is there");
}

void registerCase(const Case &chosen)
{
    const std::string name = caseName(chosen).toStdString();
    benchmark::RegisterBenchmark(("layOut/" + name).c_str(), layOut, chosen)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("paint/" + name).c_str(), paint, chosen)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("findPosition/" + name).c_str(), findPosition, chosen)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchFramework();
    for (const bool isBox : {false, true}) {
        for (const BenchScript script :
             {BenchScript::Latin, BenchScript::Cjk, BenchScript::Mixed}) {
            for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
                for (const int length : {100, 1000, 10000})
                    registerCase({script, orientation, isBox, length});
            }
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
