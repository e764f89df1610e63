// SPDX-License-Identifier: MIT
// bench_boxtext.cpp -- box text: full layouts with outlines, beside those of a QTextDocument.
#include "bench/benchtext.h"
#include "layout/textproperties.h"
#include "layout/wordmanager.h"

#include <QApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextOption>

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr int Dpi = 96;
constexpr int FontPixels = 16;       // 12 points
constexpr qreal LineLength = 600;    // pixels along the line
constexpr qreal Across = 1e6;        // pixels across it: nothing is clipped
constexpr int ParagraphLength = 200; // characters, where there are many paragraphs

struct Case {
    BenchScript script;
    bool isOneParagraph;
    bool isJustified;
    int length;
};

QString caseName(const Case &chosen)
{
    return QStringLiteral("%1/%2/%3/%4")
        .arg(QLatin1String(benchScriptName(chosen.script)),
             QLatin1String(chosen.isOneParagraph ? "one" : "many"),
             QLatin1String(chosen.isJustified ? "justified" : "plain"))
        .arg(chosen.length);
}

// Exactly as many characters as the case tells, separators of paragraphs included.
QString caseText(const Case &chosen)
{
    QString text = benchText(chosen.script, chosen.length);
    if (!chosen.isOneParagraph) {
        for (int i = ParagraphLength; i < text.length() - 1; i += ParagraphLength + 1)
            text[i] = QLatin1Char('\n');
    }
    return text;
}

QString caseFamily(const Case &chosen)
{
    QString family;
    int points = 0;
    benchFramework().setScript(chosen.script);
    benchFramework().getDefaultFont(family, points);
    return family;
}

// A text object with word wrap and a box that holds the whole text.
class BoxText : public CWordProcess
{
public:
    BoxText(const Case &chosen, Qt::Orientation orientation)
        : CWordProcess(/*id=*/1, /*finished=*/true, nullptr, nullptr)
    {
        m_documentDpi = Dpi;
        m_wordWrap = true;
        m_textOrientation = orientation;
        m_clientRect = orientation == Qt::Horizontal ? QRectF(0, 0, LineLength, Across)
                                                     : QRectF(0, 0, Across, LineLength);
        QTextBlockFormat block;
        if (chosen.isJustified)
            block.setProperty(TextProperty::Alignment, int(Qt::AlignJustify));
        QTextCharFormat format;
        format.setFontFamily(caseFamily(chosen));
        format.setFontPointSize(FontPixels * 72.0 / Dpi);
        QTextCursor cursor(m_document);
        cursor.setBlockFormat(block);
        cursor.insertText(caseText(chosen), format);
    }
};

// One layout object for all rounds, as on a page: it keeps its glyphs, and every round lays out and
// places all of the text.
void layOutBox(benchmark::State &state, const Case &chosen, Qt::Orientation orientation)
{
    BoxText object(chosen, orientation);
    CWordManager manager(&object, /*wordWrap=*/true);
    for ([[maybe_unused]] auto _ : state)
        manager.layout();
    const TextLayout result = manager.textLayout();
    if (result.lines.isEmpty() || result.lines.last().path.isEmpty())
        state.SkipWithError("the text has not been laid out to its end");
    state.counters["lines"] = result.lines.size();
    state.SetItemsProcessed(state.iterations() * chosen.length);
}

// The outlines of every line, one call of addText each: the text has one format.
void appendOutlines(const QTextBlock &block, const QFont &font, QList<QPainterPath> &outlines)
{
    const QTextLayout *layout = block.layout();
    const QString text = block.text();
    for (int i = 0; i < layout->lineCount(); ++i) {
        const QTextLine line = layout->lineAt(i);
        const QPointF pen = layout->position() + line.position() + QPointF(0, line.ascent());
        QPainterPath outline;
        outline.addText(pen, font, text.mid(line.textStart(), line.textLength()));
        outlines.append(outline);
    }
}

void layOutDocument(benchmark::State &state, const Case &chosen)
{
    QFont font(caseFamily(chosen));
    font.setPixelSize(FontPixels);
    QTextOption option;
    option.setAlignment(chosen.isJustified ? Qt::AlignJustify : Qt::AlignLeft);
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setDocumentMargin(0);
    document.setDefaultFont(font);
    document.setDefaultTextOption(option);
    document.setPlainText(caseText(chosen));
    document.setTextWidth(LineLength);

    QList<QPainterPath> outlines;
    for ([[maybe_unused]] auto _ : state) {
        outlines.clear();
        document.markContentsDirty(0, document.characterCount());
        benchmark::DoNotOptimize(document.size()); // lays out to the end
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            appendOutlines(block, font, outlines);
    }
    if (outlines.isEmpty() || outlines.last().isEmpty())
        state.SkipWithError("the text has not been laid out to its end");
    state.counters["lines"] = outlines.size();
    state.SetItemsProcessed(state.iterations() * chosen.length);
}

void registerCase(const Case &chosen)
{
    const std::string name = caseName(chosen).toStdString();
    benchmark::RegisterBenchmark(("box/horizontal/" + name).c_str(), layOutBox, chosen,
                                 Qt::Horizontal)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("box/vertical/" + name).c_str(), layOutBox, chosen, Qt::Vertical)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("document/" + name).c_str(), layOutDocument, chosen)
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchFramework();
    for (const BenchScript script : {BenchScript::Latin, BenchScript::Cjk, BenchScript::Mixed}) {
        for (const bool isOneParagraph : {true, false}) {
            for (const bool isJustified : {false, true}) {
                for (const int length : {1000, 10000, 100000})
                    registerCase({script, isOneParagraph, isJustified, length});
            }
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
