// SPDX-License-Identifier: MIT
// pagerender: sets a text or a document on a page and writes its picture.

#include "app/page/document.h"
#include "app/page/framework.h"
#include "app/page/page.h"
#include "app/page/pagerenderer.h"
#include "app/page/pluginloader.h"
#include "app/page/textobject.h"
#include "app/page/textrecord.h"
#include "app/pagerender/arguments.h"
#include "app/pagerender/inputfile.h"
#include "host/fontdatabase/cfontdatabase.h"
#include "host/framework/cvxrootobject.h"

#include <QApplication>
#include <QFile>

#include <cstdio>

namespace {

enum ExitCode { Done = 0, Cannot = 1, WrongUsage = 2 };

/// Texts of more UTF-16 units than this are refused before they are set. The outlines of a Han
/// character take some ten kilobytes while they are laid out, and those of a Latin one about five.
constexpr int maximumCharacters = 250000;

/// How many times over a side a text must be by a mere estimate to be refused ahead of its layout.
constexpr double estimateReserve = 4;

ExitCode report(ExitCode code, const QString &message)
{
    std::fprintf(stderr, "pagerender: %s\n", qPrintable(message));
    return code;
}

/// The program shows no window, so it takes no part in a desktop unless it is told to; the picture
/// is then the same everywhere.
void chooseHeadlessPlatform()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
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

bool checkFonts(const QStringList &families, QString &error)
{
    for (const QString &family : families) {
        if (!CFontDatabase::instance()->fontExists(family)) {
            error = QStringLiteral("unknown font '%1'").arg(family);
            return false;
        }
    }
    return true;
}

/// False for a plain text that cannot fit on a page, told from its number of lines and its size.
bool mayFit(int lines, double pointSize, int dpi)
{
    const double across = lines * (dpi * (pointSize / 72.0));
    return across < estimateReserve * PageRenderer::maximumSide;
}

/// The document string of the input, plain text or not.
bool readInput(const Arguments &arguments, Framework &framework, QString &string, QString &error)
{
    QString content;
    if (!readTextFile(arguments.input, content, error))
        return false;
    if (arguments.isDocument) {
        string = content;
        return true;
    }
    TextStyle style;
    int defaultSize = 0;
    framework.getDefaultFont(style.family, defaultSize);
    style.pointSize = arguments.pointSize > 0 ? arguments.pointSize : defaultSize;
    if (!arguments.family.isEmpty())
        style.family = arguments.family;
    style.color = arguments.color;
    style.vertical = arguments.vertical;
    // What does not fit in a box that stays as it is takes no part in the page.
    const bool bounded = !arguments.box.isEmpty() && !arguments.autoHeight;
    if (content.size() > maximumCharacters
        || (!bounded
            && !mayFit(1 + content.count(QLatin1Char('\n')), style.pointSize,
                       arguments.options.dpi))) {
        error = QStringLiteral("'%1' is too large for a page").arg(arguments.input);
        return false;
    }
    string = documentString(content, style);
    return true;
}

/// The document with what the command line asks of it, or a message.
bool applyArguments(const Arguments &arguments, DocumentStringInfo &info, QString &string,
                    QString &error)
{
    if (info.wrapped && arguments.box.isEmpty()) {
        error = QStringLiteral("'%1' is box text: give --box WxH").arg(arguments.input);
        return false;
    }
    if (arguments.selectionEnd > info.lastPosition) {
        error = QStringLiteral("position %1 lies behind the end of the text, which is %2")
                    .arg(arguments.selectionEnd)
                    .arg(info.lastPosition);
        return false;
    }
    DocumentChange change;
    change.paragraph = paragraphAttributes(arguments.paragraph, info.vertical);
    change.wrapped = !arguments.box.isEmpty();
    change.selectionStart = arguments.selectionStart;
    change.selectionEnd = arguments.selectionEnd;
    string = changedDocument(string, change);
    info.wrapped = change.wrapped;
    return true;
}

/// The input as a document string that can be set, or a message.
bool prepareDocument(const Arguments &arguments, Framework &framework, DocumentStringInfo &info,
                     QString &string, QString &error)
{
    if (!readInput(arguments, framework, string, error))
        return false;
    info = inspectDocumentString(string);
    if (!info.valid) {
        error = QStringLiteral("'%1' is %2").arg(arguments.input, info.error);
        return false;
    }
    if (info.characters > maximumCharacters) {
        error = QStringLiteral("'%1' is too large for a page").arg(arguments.input);
        return false;
    }
    return checkFonts(info.families, error) && applyArguments(arguments, info, string, error);
}

ExitCode render(const Arguments &arguments)
{
    Framework framework;
    DocumentStringInfo info;
    QString string;
    QString error;
    if (!prepareDocument(arguments, framework, info, string, error))
        return report(Cannot, error);

    PluginLoader loader;
    if (!loader.load(arguments.plugin))
        return report(Cannot, QStringLiteral("no text objects: %1").arg(loader.errorString()));
    Document document(arguments.options.dpi);
    Page page(&document);
    CVXRootObject *text = loader.createText(1, &page);
    page.addObject(text);
    TextPlace place;
    place.box = arguments.box;
    if (!loadDocumentString(text, string, info, place))
        return report(Cannot, QStringLiteral("the text object refuses '%1'").arg(arguments.input));
    // A text object without text shows where it is; a picture of that is of no use to anybody.
    if (!text->canDo(OP_HasText))
        return report(Cannot, QStringLiteral("the page is empty"));
    if (arguments.autoHeight)
        TextObject::letBoxGrow(text);
    PageRenderer::Options options = arguments.options;
    options.foreground = arguments.selectionEnd >= 0;
    if (options.foreground) {
        page.takeFocus();
        TextObject::beginEdit(text);
    }

    PageRenderer renderer(&page, options);
    if (!renderer.renderToFile(arguments.format, arguments.output))
        return report(Cannot, renderer.errorString());
    return Done;
}

} // namespace

int main(int argc, char **argv)
{
    const QStringList given = commandLine(argc, argv);
    chooseHeadlessPlatform();
    int applicationArgc = argc > 0 ? 1 : 0;
    QApplication application(applicationArgc, argv);
    Arguments arguments;
    switch (parseArguments(given, arguments)) {
    case ParseResult::Show:
        std::fputs(qPrintable(arguments.message), stdout);
        return Done;
    case ParseResult::Usage:
        return report(WrongUsage, arguments.message + QStringLiteral("\nTry 'pagerender --help'."));
    case ParseResult::Run:
        break;
    }
    return render(arguments);
}
