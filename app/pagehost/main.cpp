// SPDX-License-Identifier: MIT
// pagehost: the desktop editor of pages.

#include "app/page/framework.h"
#include "app/page/pluginloader.h"
#include "app/pagehost/filecommands.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/translations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>
#include <QMessageBox>
#include <QProcess>

#include <cstdio>

namespace {

enum ExitCode {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
    NoLibrary = 4,
};

struct Options {
    QString fileName;
    QString plugin;
};

void tell(const QString &message)
{
    std::fprintf(stderr, "pagehost: %s\n", qPrintable(message));
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

/// \return false when the program is to end with \a code
bool parse(const QStringList &given, Options &options, ExitCode &code)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Opens a page in an editor."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print the options and end."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Print the version and end."));
    const QCommandLineOption plugin(QStringLiteral("plugin"),
                                    QStringLiteral("Load the library of text objects from <path>."),
                                    QStringLiteral("path"));
    parser.addOptions({plugin, help, version});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The page to open."),
                                 QStringLiteral("[file]"));
    code = WrongUsage;
    if (!parser.parse(given)) {
        tell(parser.errorText());
        return false;
    }
    if (parser.positionalArguments().size() > 1) {
        tell(QStringLiteral("one page at a time"));
        return false;
    }
    code = Done;
    if (parser.isSet(help)) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return false;
    }
    if (parser.isSet(version)) {
        std::puts("pagehost " VX_VERSION);
        return false;
    }
    options.fileName = parser.positionalArguments().value(0);
    options.plugin = parser.value(plugin);
    return true;
}

/// Qt ends a program without a display with a signal: say it in words instead.
bool hasDisplay()
{
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
}

/// True when there is someone to read a message box.
bool hasScreen()
{
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

/// What a crash has left goes first; the page that was asked for opens in a window of its own then.
void openPages(MainWindow &window, const Options &options)
{
    const bool isTaken = window.files()->offerRecovery();
    if (options.fileName.isEmpty())
        return;
    if (!isTaken) {
        window.openFile(options.fileName);
        return;
    }
    const QString wanted = QFileInfo(options.fileName).absoluteFilePath();
    if (QFileInfo(window.session()->fileName()).absoluteFilePath() == wanted)
        return;
    QStringList arguments{wanted};
    if (!options.plugin.isEmpty())
        arguments.prepend(QStringLiteral("--plugin=") + options.plugin);
    QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments);
}

/// False, with a message on the standard error, when there is no library.
bool loadLibrary(PluginLoader &loader, const Options &options, QString &message)
{
    if (loader.load(options.plugin))
        return true;
    message = QCoreApplication::translate("main",
                                          "The library of text objects cannot be loaded.\n%1")
                  .arg(loader.errorString());
    tell(message);
    return false;
}

/// A missing library comes first: it would be missing with a display too.
ExitCode failWithoutDisplay(const Options &options, int &argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    PluginLoader loader;
    QString message;
    if (!loadLibrary(loader, options, message))
        return NoLibrary;
    tell(QStringLiteral("there is no display; pagerender makes a picture of a page without one"));
    return Failed;
}

int run(const Options &options)
{
    PluginLoader loader;
    QString message;
    if (!loadLibrary(loader, options, message)) {
        if (hasScreen())
            QMessageBox::critical(nullptr, QStringLiteral("pagehost"), message);
        return NoLibrary;
    }
    Framework framework;
    MainWindow window(&loader, &framework);
    window.fitScreen();
    window.show();
    openPages(window, options);
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    Options options;
    ExitCode code = Done;
    if (!parse(commandLine(argc, argv), options, code))
        return code;
    int applicationArgc = argc > 0 ? 1 : 0;
    if (!hasDisplay())
        return failWithoutDisplay(options, applicationArgc, argv);
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    // 1.25 and 1.5 as they are: rounded, all would be too small or too large.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(applicationArgc, argv);
    QApplication::setApplicationName(QStringLiteral("pagehost"));
    QApplication::setApplicationDisplayName(QString());
    QGuiApplication::setDesktopFileName(QStringLiteral("org.vxarttext.pagehost"));
    installTranslations(&application, QLocale::system());
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.vxarttext.pagehost"),
                                                 QIcon(QStringLiteral(":/icons/pagehost.svg"))));
    return run(options);
}
