// SPDX-License-Identifier: MIT
// bench_editor.cpp -- the editor as its user meets it: a window with all its panels, 1 300 by 800 pixels, on a
// page. Each row tells the time from an event to the end of the repaint that it brings, and as counters the
// parts of it, in milliseconds of the GUI thread's processor time:
//   event   the event itself; for a key the change of the text, its layout and what objects tell
//   canvas  painting the canvas
//   rest    panels, title and menus, painting them, and bringing the window to the screen
#include "app/page/framework.h"
#include "app/page/page.h"
#include "app/page/pluginloader.h"
#include "app/page/textobject.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "bench/benchpages.h"
#include "host/framework/cbaseobject.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <ctime>

namespace {

constexpr int objectCount = 1000;
constexpr int visibleBox = 51; // on the page of many objects, of 60 characters
constexpr int characterCounts[] = {100, 1000, 10000};
constexpr QSize windowSize(1300, 800);

/// Processor time of this thread, milliseconds.
double threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e3 * double(time.tv_sec) + 1e-6 * double(time.tv_nsec);
}

/// Takes the time that a widget paints itself.
class PaintClock : public QApplication
{
public:
    using QApplication::QApplication;

    /// Null for none.
    void follow(const QObject *widget)
    {
        m_widget = widget;
        m_spent = 0;
        m_paintings = 0;
    }
    double spent() const { return m_spent; } ///< milliseconds since follow()
    int paintings() const { return m_paintings; }
    bool notify(QObject *receiver, QEvent *event) override
    {
        if (event->type() != QEvent::Paint || receiver != m_widget)
            return QApplication::notify(receiver, event);
        const double start = threadTime();
        const bool isDone = QApplication::notify(receiver, event);
        m_spent += threadTime() - start;
        ++m_paintings;
        return isDone;
    }

private:
    const QObject *m_widget = nullptr;
    double m_spent = 0;
    int m_paintings = 0;
};

/// What the rows share. Pages are written when a row wants them.
struct Bench {
    PaintClock *clock;
    PluginLoader loader;
    Framework framework;
    QTemporaryDir folder;

    QString box(int characters, bool han) const
    {
        const QString name = folder.filePath(
            QStringLiteral("%1%2.json").arg(han ? 'h' : 'l').arg(characters));
        if (!QFile::exists(name))
            writeBytes(name, boxPage(characters, han));
        return name;
    }
    /// \param form  suffix of the file
    QString mixed(const char *form) const
    {
        const QString name = folder.filePath(QStringLiteral("mixed.") + QLatin1String(form));
        QString error;
        if (!QFile::exists(name) && !writeMixedPage(loader, objectCount, name, error))
            qCritical("bench_editor: %s", qPrintable(error));
        return name;
    }
};

/// A window of the editor, and the sums of what has been measured in it.
class Editor
{
public:
    Editor(benchmark::State &state, Bench &bench)
        : m_state(state)
        , m_clock(*bench.clock)
        , m_window(&bench.loader, &bench.framework)
    {
        m_window.resize(windowSize);
        m_window.show();
        QApplication::setActiveWindow(&m_window);
        settle();
    }
    ~Editor()
    {
        m_clock.follow(nullptr);
        const auto mean = [](double sum) {
            return benchmark::Counter(sum, benchmark::Counter::kAvgIterations);
        };
        m_state.counters["event"] = mean(m_event);
        m_state.counters["canvas"] = mean(m_canvas);
        m_state.counters["rest"] = mean(m_rest);
    }
    Editor(const Editor &) = delete;
    Editor &operator=(const Editor &) = delete;

    bool open(const QString &fileName)
    {
        if (!m_window.openFile(fileName)) {
            m_state.SkipWithError("the page does not open");
            return false;
        }
        settle();
        return true;
    }
    /// Does \a action and all that it brings, as one iteration.
    template<typename Action>
    void measure(Action action)
    {
        m_clock.follow(view()->viewport());
        QElapsedTimer wall;
        wall.start();
        const double start = threadTime();
        action();
        const double acted = threadTime();
        const double paintedWithin = m_clock.spent();
        settle();
        const double total = threadTime() - start;
        m_state.SetIterationTime(1e-9 * double(wall.nsecsElapsed()));
        if (m_clock.paintings() == 0)
            m_state.SkipWithError("nothing was painted");
        const double event = acted - start - paintedWithin;
        m_event += event;
        m_canvas += m_clock.spent();
        m_rest += total - event - m_clock.spent();
    }
    void key(Qt::Key key, const QString &text = QString(), Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(view(), &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
        QApplication::sendEvent(view(), &release);
    }
    void click(const QPoint &pos)
    {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool isPress = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, pos, view()->viewport()->mapToGlobal(pos), Qt::LeftButton,
                              isPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(view()->viewport(), &event);
        }
    }
    /// Everything that waits for the event loop is done, what that asks for included.
    static void settle()
    {
        for (int round = 0; round < 3; ++round)
            QApplication::processEvents();
    }
    MainWindow &window() { return m_window; }
    PageView *view() const { return m_window.view(); }
    const QList<CVXRootObject *> &objects() const { return m_window.session()->page()->objects(); }
    benchmark::State &state() { return m_state; }

private:
    benchmark::State &m_state;
    PaintClock &m_clock;
    MainWindow m_window;
    double m_event = 0;
    double m_canvas = 0;
    double m_rest = 0;
};

/// The object \a place of the page in edit, its caret amid what the window shows of it. False when it is not.
bool editBox(Editor &editor, int place = 0)
{
    CVXRootObject *box = editor.objects().value(place);
    editor.window().session()->select(box);
    editor.view()->setFocus();
    TextObject::beginEdit(box);
    Editor::settle();
    const QRect area = editor.view()->viewport()->rect();
    const QPoint line = editor.view()->mapFromScene(box->getPos()
                                                    + QPointF(box->getSize().width() / 2, 10));
    editor.click({line.x(), box->getSize().height() > 600 ? area.center().y() : line.y()});
    Editor::settle();
    return editor.window().session()->editedObject() == box;
}

// A character comes and goes in turn, so that the text stays as long as it is.
void type(benchmark::State &state, Editor &editor)
{
    bool comes = true;
    for ([[maybe_unused]] auto _ : state) {
        editor.measure([&] {
            if (comes)
                editor.key(Qt::Key_X, QStringLiteral("x"));
            else
                editor.key(Qt::Key_Backspace);
        });
        comes = !comes;
    }
}

void typeInBox(benchmark::State &state, Bench &bench, int characters, bool han)
{
    Editor editor(state, bench);
    if (!editor.open(bench.box(characters, han)) || !editBox(editor))
        return state.SkipWithError("the text is not in edit");
    type(state, editor);
}

void typeAmongMany(benchmark::State &state, Bench &bench)
{
    Editor editor(state, bench);
    if (!editor.open(bench.mixed("vxpage")) || !editBox(editor, visibleBox))
        return state.SkipWithError("the text is not in edit");
    type(state, editor);
}

void moveCaret(benchmark::State &state, Bench &bench, int characters, bool han)
{
    Editor editor(state, bench);
    if (!editor.open(bench.box(characters, han)) || !editBox(editor))
        return state.SkipWithError("the text is not in edit");
    bool right = true;
    for ([[maybe_unused]] auto _ : state) {
        editor.measure([&] { editor.key(right ? Qt::Key_Right : Qt::Key_Left); });
        right = !right;
    }
}

// What the caret's timer does.
void blinkCaret(benchmark::State &state, Bench &bench, int characters, bool han)
{
    Editor editor(state, bench);
    if (!editor.open(bench.box(characters, han)) || !editBox(editor))
        return state.SkipWithError("the text is not in edit");
    auto *box = dynamic_cast<CBaseObject *>(editor.objects().value(0));
    for ([[maybe_unused]] auto _ : state)
        editor.measure([&] { box->notifyObjPropertyChanged(ObjectProperty::Appearance, {}); });
}

void scroll(PageView &view, int across, int down)
{
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->value() + across);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + down);
}

/// \param step  pixels to the right and down, and back again
void pan(benchmark::State &state, Bench &bench, double zoom, const QPoint &step)
{
    Editor editor(state, bench);
    if (!editor.open(bench.mixed("vxpage")))
        return;
    editor.view()->setZoom(zoom);
    Editor::settle();
    QPoint way = step;
    for ([[maybe_unused]] auto _ : state) {
        editor.measure([&] { scroll(*editor.view(), way.x(), way.y()); });
        way = -way;
    }
}

/// Paints all that the canvas shows of the page of many objects.
void repaint(benchmark::State &state, Bench &bench, bool fits)
{
    Editor editor(state, bench);
    if (!editor.open(bench.mixed("vxpage")))
        return;
    if (fits)
        editor.view()->fitPage();
    Editor::settle();
    for ([[maybe_unused]] auto _ : state)
        editor.measure([&] { editor.view()->viewport()->update(); });
}

void zoomStep(benchmark::State &state, Bench &bench)
{
    Editor editor(state, bench);
    if (!editor.open(bench.mixed("vxpage")))
        return;
    bool comesNearer = true;
    for ([[maybe_unused]] auto _ : state) {
        editor.measure([&] { editor.view()->setZoom(comesNearer ? 1.25 : 1); });
        comesNearer = !comesNearer;
    }
}

void selectAll(benchmark::State &state, Bench &bench)
{
    Editor editor(state, bench);
    if (!editor.open(bench.mixed("vxpage")))
        return;
    bool selects = true;
    for ([[maybe_unused]] auto _ : state) {
        editor.measure([&] {
            if (selects)
                editor.window().session()->selectAll();
            else
                editor.window().session()->page()->scene()->clearSelection();
        });
        selects = !selects;
    }
}

/// From the command to open a page to its picture in the window.
void openPage(benchmark::State &state, Bench &bench, const char *form)
{
    const QString name = bench.mixed(form);
    Editor editor(state, bench);
    for ([[maybe_unused]] auto _ : state) {
        editor.measure([&] { editor.window().openFile(name); });
        if (editor.objects().size() != objectCount)
            state.SkipWithError("objects are missing");
    }
}

/// A window with an empty page, from its making to its picture; the program around it is there already.
void openWindow(benchmark::State &state, Bench &bench)
{
    for ([[maybe_unused]] auto _ : state) {
        QElapsedTimer wall;
        wall.start();
        MainWindow window(&bench.loader, &bench.framework);
        window.resize(windowSize);
        window.show();
        bench.clock->follow(window.view()->viewport());
        Editor::settle();
        state.SetIterationTime(1e-9 * double(wall.nsecsElapsed()));
        if (bench.clock->paintings() == 0)
            state.SkipWithError("nothing was painted");
        bench.clock->follow(nullptr);
    }
}

template<typename Run>
void add(const std::string &name, Run run)
{
    benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond)->UseManualTime();
}

void addBoxes(Bench &bench)
{
    using Row = void (*)(benchmark::State &, Bench &, int, bool);
    const std::pair<const char *, Row> rows[] = {{"key", typeInBox},
                                                 {"caret", moveCaret},
                                                 {"blink", blinkCaret}};
    for (const auto &row : rows) {
        for (const bool han : {false, true}) {
            for (const int characters : characterCounts) {
                const std::string name = std::string(row.first) + (han ? "/Han/" : "/Latin/")
                                         + std::to_string(characters);
                add(name, [=, &bench, run = row.second](benchmark::State &s) {
                    run(s, bench, characters, han);
                });
            }
        }
    }
}

void addPages(Bench &bench)
{
    using State = benchmark::State;
    add("key/among many", [&](State &s) { typeAmongMany(s, bench); });
    add("pan/100 %", [&](State &s) { pan(s, bench, 1, {12, 9}); });
    add("pan/50 %", [&](State &s) { pan(s, bench, 0.5, {12, 9}); });
    add("pan/100 %, a screen", [&](State &s) { pan(s, bench, 1, {900, 600}); });
    add("repaint/100 %", [&](State &s) { repaint(s, bench, /*fits=*/false); });
    add("repaint/fit", [&](State &s) { repaint(s, bench, /*fits=*/true); });
    add("zoom", [&](State &s) { zoomStep(s, bench); });
    add("select all", [&](State &s) { selectAll(s, bench); });
    add("open/mixed.json", [&](State &s) { openPage(s, bench, "json"); });
    add("open/mixed.vxpage", [&](State &s) { openPage(s, bench, "vxpage"); });
    add("window", [&](State &s) { openWindow(s, bench); });
}

} // namespace

int main(int argc, char **argv)
{
    // What the editor remembers stays out of the home folder.
    const QTemporaryDir settings;
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(name, settings.path().toLocal8Bit());
    PaintClock application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("bench_editor"));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    Bench bench{&application, {}, {}, {}};
    if (!bench.loader.load()) {
        qCritical("bench_editor: %s", qPrintable(bench.loader.errorString()));
        return 1;
    }
    addBoxes(bench);
    addPages(bench);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
