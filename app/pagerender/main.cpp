// SPDX-License-Identifier: MIT
// pagerender: sets texts, documents and pages and writes their pictures.

#include "app/pagerender/arguments.h"
#include "app/pagerender/batch.h"
#include "app/pagerender/interruption.h"

#include <QApplication>
#include <QFile>

#include <cstdio>

namespace {

/// The program shows no window, so it takes no part in a desktop unless it is told to; the picture
/// is then the same everywhere.
void chooseHeadlessPlatform()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// The same order and the same local time every time, so that the same input gives the same bytes.
void makeRepeatable()
{
    qSetGlobalQHashSeed(0);
    qputenv("TZ", "UTC0");
}

/// The command line as it was given. The application is made without it, for Qt would take options
/// out of it, --plugin among them.
QStringList commandLine(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    return arguments;
}

/// What Qt itself has to say is of no use here but for its faults.
void dropQtMessages(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "pagerender: %s\n", qPrintable(message));
}

} // namespace

int main(int argc, char **argv)
{
    const QStringList given = commandLine(argc, argv);
    Interruption::holdBack();
    qInstallMessageHandler(dropQtMessages);
    makeRepeatable();
    chooseHeadlessPlatform();
    int applicationArgc = argc > 0 ? 1 : 0;
    QApplication application(applicationArgc, argv);
    Interruption::letThrough();
    Arguments arguments;
    switch (parseArguments(given, arguments)) {
    case ParseResult::Show:
        std::fputs(qPrintable(arguments.message), stdout);
        return Done;
    case ParseResult::Usage:
        std::fprintf(stderr, "pagerender: %s\nTry 'pagerender --help'.\n",
                     qPrintable(arguments.message));
        return WrongUsage;
    case ParseResult::Run:
        break;
    }
    return Batch(arguments).run();
}
