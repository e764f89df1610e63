// SPDX-License-Identifier: MIT
#include "app/pagerender/runarguments.h"

#include "app/page/pagestorage.h"
#include "app/pagerender/outputfile.h"
#include "app/pagerender/warpsheet.h"

#include <QCommandLineParser>

#include <limits>

namespace {

constexpr double longestTimeout = 1e6; // seconds
const char sourceDateVariable[] = "SOURCE_DATE_EPOCH";

using Task = Arguments::Task;
using FontPolicy = Arguments::FontPolicy;

} // namespace

bool takeMissingFontsPolicy(QStringList &arguments, Arguments &result)
{
    const QString option = QStringLiteral("--missing-fonts=");
    const std::pair<const char *, FontPolicy> policies[] = {
        {"warn", FontPolicy::Warn},
        {"error", FontPolicy::Error},
        {"picture", FontPolicy::Picture},
    };
    for (int i = 1; i < arguments.size() && arguments.at(i) != QLatin1String("--");) {
        if (!arguments.at(i).startsWith(option)) {
            ++i;
            continue;
        }
        const QString how = arguments.takeAt(i).mid(option.size());
        bool isKnown = false;
        for (const auto &policy : policies) {
            if (how == QLatin1String(policy.first)) {
                result.fontPolicy = policy.second;
                isKnown = true;
            }
        }
        if (!isKnown) {
            result.message =
                QStringLiteral("--missing-fonts: '%1' is none of warn, error, picture").arg(how);
            return false;
        }
    }
    return true;
}

void takeTextWithoutFile(QStringList &arguments)
{
    const auto isOption = [](const QString &argument) {
        return argument.startsWith(QLatin1Char('-')) && argument != standardStream();
    };
    for (int i = 1; i < arguments.size() && arguments.at(i) != QLatin1String("--"); ++i) {
        const bool hasFile = i + 1 < arguments.size() && !isOption(arguments.at(i + 1));
        if (arguments.at(i) == QLatin1String("--text") && !hasFile)
            arguments[i] = QStringLiteral("--dump-text");
    }
}

QVector<const QCommandLineOption *> RunReader::ofManner() const
{
    return {&m_options.plugin, &m_options.json, &m_options.timeout, &m_options.quiet,
            &m_options.verbose};
}

QVector<const QCommandLineOption *> RunReader::ofFiles() const
{
    return {&m_options.output, &m_options.outputFolder, &m_options.format, &m_options.check,
            &m_options.page};
}

bool RunReader::readManner()
{
    m_result.plugin = valueOf(m_options.plugin);
    m_result.json = isSet(m_options.json);
    const bool quiet = isSet(m_options.quiet);
    const bool verbose = isSet(m_options.verbose);
    if (quiet && verbose)
        return fail(QStringLiteral("give one of --quiet and --verbose"));
    if (quiet)
        m_result.loudness = Arguments::Loudness::Quiet;
    if (verbose)
        m_result.loudness = Arguments::Loudness::Verbose;
    return readNumber(m_options.timeout, 0.001, longestTimeout, m_result.timeout)
           && readSourceDate();
}

/// The date that builds which can be repeated give to what they make.
bool RunReader::readSourceDate()
{
    if (!qEnvironmentVariableIsSet(sourceDateVariable))
        return true;
    const QString given = qEnvironmentVariable(sourceDateVariable);
    constexpr qint64 latest = 253402300799; // the last second of the year 9999
    bool isNumber = false;
    const qint64 seconds = given.toLongLong(&isNumber);
    if (!isNumber || seconds < 0 || seconds > latest) {
        return fail(QStringLiteral("%1: '%2' is no number of seconds since 1970")
                        .arg(QLatin1String(sourceDateVariable), given));
    }
    m_result.date = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    return true;
}

bool RunReader::readFiles()
{
    if (isSet(m_options.warpSheet))
        return readInputs() && readWarpSheet();
    return readInputs() && readTask() && readOutput() && checkOneOutput() && readFormat();
}

bool RunReader::readInputs()
{
    m_result.isPlainText = isSet(m_options.text);
    m_result.inputs = m_parser.positionalArguments() + m_parser.values(m_options.document)
                      + m_parser.values(m_options.text);
    m_result.listMissingFonts = isSet(m_options.missingFonts);
    if (m_result.inputs.isEmpty())
        return fail(QStringLiteral("no input: give a FILE or --text FILE"));
    if (m_result.inputs.count(standardStream()) > 1)
        return fail(QStringLiteral("more than one input is the standard input"));
    double page = m_result.page;
    if (!readNumber(m_options.page, 1, std::numeric_limits<int>::max(), page))
        return false;
    m_result.page = int(page);
    return m_result.page == page || fail(QStringLiteral("--page wants a whole number"));
}

bool RunReader::readTask()
{
    const bool writesNothing = !isSet(m_options.output) && !isSet(m_options.outputFolder);
    if (isSet(m_options.check) && isSet(m_options.dumpText))
        return fail(QStringLiteral("give one of --check and --dump-text"));
    if (isSet(m_options.check) && !writesNothing)
        return fail(QStringLiteral("--check writes nothing: it goes without -o and --out-dir"));
    if (isSet(m_options.check))
        m_result.task = Task::Check;
    else if (isSet(m_options.dumpText))
        m_result.task = Task::DumpText;
    else if (m_result.listMissingFonts && writesNothing)
        m_result.task = Task::ListFonts;
    return true;
}

bool RunReader::readOutput()
{
    m_result.output = valueOf(m_options.output);
    m_result.outputFolder = valueOf(m_options.outputFolder);
    const bool isForJson = m_result.task == Task::DumpText && m_result.json;
    if (isSet(m_options.output) && isSet(m_options.outputFolder))
        return fail(QStringLiteral("give one of -o and --out-dir"));
    if (isSet(m_options.outputFolder) && m_result.outputFolder.isEmpty())
        return fail(QStringLiteral("--out-dir wants a directory"));
    const bool isToldNone = m_result.output.isEmpty() && m_result.outputFolder.isEmpty();
    if (isToldNone && m_result.task == Task::DumpText && !isForJson)
        m_result.output = standardStream();
    if (isToldNone && m_result.task == Task::Render)
        return fail(QStringLiteral("no output: give -o FILE or --out-dir DIRECTORY"));
    const bool toStandardOutput = m_result.output == standardStream();
    if (toStandardOutput && (m_result.json || m_result.listMissingFonts)) {
        return fail(QStringLiteral("--json and --missing-fonts want the standard output: give "
                                   "another -o"));
    }
    return true;
}

/// A file takes one output; the standard output takes any number of texts.
bool RunReader::checkOneOutput()
{
    const bool isStreamOfTexts = m_result.task == Task::DumpText
                                 && m_result.output == standardStream();
    if (m_result.inputs.size() > 1 && !m_result.output.isEmpty() && !isStreamOfTexts) {
        return fail(QStringLiteral("more than one input: '%1' and '%2' want --out-dir in place of "
                                   "-o")
                        .arg(m_result.inputs.at(0), m_result.inputs.at(1)));
    }
    if (!m_result.outputFolder.isEmpty() && m_result.inputs.contains(standardStream()))
        return fail(QStringLiteral("the standard input has no name for --out-dir: give -o FILE"));
    if (m_result.isPlainText && isSet(m_options.document))
        return fail(QStringLiteral("give one of --text and --document"));
    return true;
}

bool RunReader::readFormat()
{
    const PageRenderer::Format formats[] = {PageRenderer::Format::Png, PageRenderer::Format::Svg,
                                            PageRenderer::Format::Pdf};
    QStringList words;
    for (PageRenderer::Format format : formats)
        words.append(PageRenderer::suffixOf(format));
    int number = 0;
    if (!readWord(m_options.format, words, number))
        return false;
    if (number > 0) {
        m_result.format = formats[number - 1];
        return true;
    }
    if (m_result.task != Task::Render || m_result.output.isEmpty()
        || PageRenderer::formatOf(m_result.output, m_result.format))
        return true;
    return fail(QStringLiteral("unknown kind of output '%1': .png, .svg or .pdf, or give -f")
                    .arg(m_result.output));
}

bool RunReader::readConversion()
{
    const QStringList files = m_parser.positionalArguments();
    m_result.task = Task::Convert;
    const QString other = firstBeside({&m_options.convert});
    if (!other.isEmpty())
        return fail(QStringLiteral("--convert goes with no other option: %1").arg(other));
    if (files.size() != 2)
        return fail(QStringLiteral("--convert wants two page files: FILE OUT"));
    m_result.inputs = files.mid(0, 1);
    m_result.output = files.at(1);
    PageForm form = PageForm::Json;
    if (pageFormOf(m_result.output, form))
        return true;
    return fail(
        QStringLiteral("unknown kind of page file '%1': .json or .vxpage").arg(m_result.output));
}

bool RunReader::readWarpSheet()
{
    if (isSet(m_options.warp) || isSet(m_options.output))
        return fail(QStringLiteral("--warp-sheet goes without -o and --warp"));
    for (const QCommandLineOption *option :
         {&m_options.outputFolder, &m_options.format, &m_options.check, &m_options.dumpText}) {
        if (isSet(*option)) {
            return fail(QStringLiteral("--warp-sheet goes without %1")
                            .arg(dashed(option->names().constLast())));
        }
    }
    if (m_result.inputs.size() > 1) {
        return fail(QStringLiteral("more than one input: '%1' and '%2'")
                        .arg(m_result.inputs.at(0), m_result.inputs.at(1)));
    }
    m_result.warpSheet = true;
    m_result.output = valueOf(m_options.warpSheet);
    m_result.options.margin = warpSheetMargin;
    return readSheetName();
}

bool RunReader::readArtSheet()
{
    m_result.inputs = m_parser.values(m_options.text) + m_parser.positionalArguments();
    m_result.isPlainText = true;
    m_result.output = valueOf(m_options.artSheet);
    if (!m_parser.positionalArguments().isEmpty() || m_result.inputs.size() > 1)
        return fail(QStringLiteral("--art-sheet takes one input at most, --text FILE"));
    if (m_result.inputs.isEmpty())
        m_result.inputs.append(QString()); // a word of the program's own
    return readSheetName();
}

bool RunReader::readSheetName()
{
    if (PageRenderer::formatOf(m_result.output, m_result.format)
        && m_result.format == PageRenderer::Format::Png)
        return true;
    return fail(QStringLiteral("unknown kind of sheet '%1': .png").arg(m_result.output));
}
