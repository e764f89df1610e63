// SPDX-License-Identifier: MIT
// bench_editing.cpp -- a key press from the event to ready paths, and the position under a point.
#include "bench/benchtext.h"
#include "layout/wordmanager.h"

#include <QApplication>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr qreal LineLength = 600;
constexpr int ParagraphLength = 200; // of many paragraphs
constexpr qreal Across = 1000000;    // holds all lines

struct Case {
    BenchScript script;
    Qt::Orientation orientation;
    bool isBox;
    bool isDivided; // into many paragraphs
    int length;
};

QString textOf(const Case &chosen)
{
    QString text = benchText(chosen.script, chosen.length);
    for (int end = ParagraphLength; chosen.isDivided && end < text.size(); end += ParagraphLength)
        text[end - 1] = QLatin1Char('\n');
    return text;
}

// A text in edit state with the caret in its middle.
class EditedText : public BenchTextObject
{
public:
    explicit EditedText(const Case &chosen)
        : BenchTextObject(textOf(chosen), chosen.orientation)
    {
        if (chosen.isBox) {
            m_wordWrap = true;
            m_wordManager->setWordWrap(true);
        }
        beginEdit();
        if (chosen.isBox) {
            m_clientRect = chosen.orientation == Qt::Horizontal ? QRectF(0, 0, LineLength, Across)
                                                                : QRectF(0, 0, Across, LineLength);
            updateBoundingRectImpl(true);
        }
        clearSelection();
        m_cursor->setPosition(chosen.length / 2);
    }

    ~EditedText() override { m_editing = false; }

    void press(int key, const QString &text)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        keyPressEvent(&event);
    }

    int length() const { return m_document->characterCount(); }
    TextLayout layout() { return m_wordManager->textLayout(); }
};

void pressKeys(benchmark::State &state, const Case &chosen)
{
    benchFramework().setScript(chosen.script);
    EditedText object(chosen);
    const int length = object.length();
    for ([[maybe_unused]] auto _ : state) {
        object.press(Qt::Key_A, QStringLiteral("a"));
        object.press(Qt::Key_Backspace, QString());
    }
    if (object.length() != length || object.elementCount() == 0
        || (chosen.isBox && chosen.length > 100 && object.layout().lines.size() < 2))
        state.SkipWithError("the keys did not type and take back");
    state.SetItemsProcessed(state.iterations() * 2); // items are key presses
}

// Points in the middle of lines all over the text.
void findPositions(benchmark::State &state, const Case &chosen)
{
    benchFramework().setScript(chosen.script);
    EditedText object(chosen);
    QVector<QPointF> points;
    const QList<TextLine> lines = object.layout().lines;
    for (const TextLine &line : lines)
        points.append(line.rect.center());
    int found = 0;
    int next = 0;
    for ([[maybe_unused]] auto _ : state) {
        const QPointF &point = points.at(next);
        next = (next + 1) % points.size();
        found = qMax(found, chosen.orientation == Qt::Horizontal ? object.hCursorPosByMouse(point)
                                                                 : object.vCursorPosByMouse(point));
    }
    if (found <= 0)
        state.SkipWithError("no point hit the text");
    state.SetItemsProcessed(state.iterations());
}

void registerCase(const Case &chosen)
{
    const std::string name = std::string(benchScriptName(chosen.script))
                             + (chosen.orientation == Qt::Horizontal ? "/horizontal" : "/vertical")
                             + (chosen.isBox ? "/box/" : "/line/")
                             + (chosen.isDivided ? "paragraphs/" : "")
                             + std::to_string(chosen.length);
    benchmark::RegisterBenchmark(("keyPress/" + name).c_str(), pressKeys, chosen)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("hitTest/" + name).c_str(), findPositions, chosen)
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    for (BenchScript script : {BenchScript::Latin, BenchScript::Cjk}) {
        for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
            for (bool isBox : {true, false}) {
                for (bool isDivided : {false, true}) {
                    for (int length : {100, 1000, 10000})
                        registerCase({script, orientation, isBox, isDivided, length});
                }
            }
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
