// SPDX-License-Identifier: MIT
// startclock.cpp -- how long the editor takes from the start of its process to the picture of its page on the
// screen, each time as a new process. Usage, on an X display that is otherwise empty:
//   startclock PAGEHOST [TIMES]
// The clock starts ahead of the fork; a line of the screen is read again and again, about every millisecond,
// until it holds the colour of the page. All files have been read before: the first start is not counted.
#include "app/page/framework.h"
#include "app/page/pluginloader.h"
#include "bench/benchpages.h"

#include <QApplication>
#include <QColor>
#include <QElapsedTimer>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>
#include <QVector>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int objectCount = 1000;
constexpr int enoughPixels = 50;
constexpr int longest = 60000; // ms

/// A line of the screen that crosses the canvas.
int pagePixels()
{
    QScreen *screen = QGuiApplication::primaryScreen();
    const QSize size = screen->size();
    const QImage line = screen->grabWindow(0, 0, size.height() / 3, size.width(), 1)
                            .toImage()
                            .convertToFormat(QImage::Format_RGB32);
    const QRgb wanted = QColor(QLatin1String(benchPageColor)).rgb();
    int count = 0;
    for (int x = 0; x < line.width(); ++x)
        count += line.pixel(x, 0) == wanted ? 1 : 0;
    return count;
}

void wait(bool isShown)
{
    QElapsedTimer clock;
    clock.start();
    while ((pagePixels() >= enoughPixels) != isShown) {
        if (clock.hasExpired(longest))
            qFatal("startclock: the page does not %s", isShown ? "come" : "go");
        QThread::usleep(500);
    }
}

/// Milliseconds.
double start(const QString &program, const QStringList &arguments)
{
    QElapsedTimer clock;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    clock.start();
    process.start(program, arguments);
    wait(/*isShown=*/true);
    const double time = 1e-6 * double(clock.nsecsElapsed());
    process.kill(); // nothing is to be kept
    process.waitForFinished();
    wait(/*isShown=*/false);
    return time;
}

void tell(const char *name, const QString &program, const QString &page, int times)
{
    start(program, {page});
    QVector<double> all;
    for (int i = 0; i < times; ++i)
        all.append(start(program, {page}));
    std::sort(all.begin(), all.end());
    std::printf("%s: %.0f ms (%.0f to %.0f, %d starts)\n", name, all.at(times / 2), all.first(),
                all.last(), times);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString program = QApplication::arguments().value(1);
    const int times = qMax(1, QApplication::arguments().value(2, QStringLiteral("9")).toInt());
    Framework framework;
    PluginLoader loader;
    QTemporaryDir folder;
    QString error;
    const QString empty = folder.filePath(QStringLiteral("empty.json"));
    const QString json = folder.filePath(QStringLiteral("mixed.json"));
    const QString binary = folder.filePath(QStringLiteral("mixed.vxpage"));
    if (program.isEmpty() || !loader.load() || !writeBytes(empty, mixedPage(0))
        || !writeMixedPage(loader, objectCount, json, error)
        || !writeMixedPage(loader, objectCount, binary, error)) {
        qCritical("usage: startclock PAGEHOST [TIMES] %s %s", qPrintable(loader.errorString()),
                  qPrintable(error));
        return 1;
    }
    wait(/*isShown=*/false);
    tell("start, empty page", program, empty, times);
    tell("start, page of 1 000 objects, JSON", program, json, times);
    tell("start, page of 1 000 objects, binary", program, binary, times);
    return 0;
}
