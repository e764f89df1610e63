// SPDX-License-Identifier: MIT
#include "app/pagerender/arguments.h"

#include "app/page/document.h"

#include <QCommandLineParser>

#include <cmath>
#include <limits>

namespace {

constexpr double maximumScale = 100;

struct Options {
    QCommandLineOption text{QStringLiteral("text"), QStringLiteral("Set the UTF-8 text <file>."),
                            QStringLiteral("file")};
    QCommandLineOption document{QStringLiteral("document"),
                                QStringLiteral("Set the document string in <file>."),
                                QStringLiteral("file")};
    QCommandLineOption output{{QStringLiteral("o"), QStringLiteral("output")},
                              QStringLiteral("Write <file>: .png, .svg or .pdf."),
                              QStringLiteral("file")};
    QCommandLineOption font{QStringLiteral("font"), QStringLiteral("Font family of a text."),
                            QStringLiteral("family")};
    QCommandLineOption size{QStringLiteral("size"),
                            QStringLiteral("Font size of a text in points (24)."),
                            QStringLiteral("points")};
    QCommandLineOption vertical{QStringLiteral("vertical"),
                                QStringLiteral("Set a text in columns from right to left.")};
    QCommandLineOption color{QStringLiteral("color"),
                             QStringLiteral("Colour of a text: a name or #rrggbb (black)."),
                             QStringLiteral("colour")};
    QCommandLineOption
        background{QStringLiteral("background"),
                   QStringLiteral("Colour of the page: a name, #rrggbb or transparent (white)."),
                   QStringLiteral("colour")};
    QCommandLineOption margin{QStringLiteral("margin"),
                              QStringLiteral("Margin around the ink in page pixels (20)."),
                              QStringLiteral("pixels")};
    QCommandLineOption dpi{QStringLiteral("dpi"),
                           QStringLiteral("Page pixels an inch, 1 to 9600 (96)."),
                           QStringLiteral("number")};
    QCommandLineOption scale{QStringLiteral("scale"),
                             QStringLiteral("PNG pixels for one of the page, up to 100 (1)."),
                             QStringLiteral("factor")};
    QCommandLineOption plugin{QStringLiteral("plugin"),
                              QStringLiteral("Load the library of text objects from <path>."),
                              QStringLiteral("path")};
};

/// Reads the values of a parsed command line. The first that is wrong leaves its message.
class Reader
{
public:
    Reader(const QCommandLineParser &parser, const Options &options, Arguments &result)
        : m_parser(parser)
        , m_options(options)
        , m_result(result)
    {
    }

    bool read() { return readFiles() && readTextStyle() && readPage() && readScale(); }

private:
    bool fail(const QString &message)
    {
        m_result.message = message;
        return false;
    }

    bool readFiles()
    {
        if (!m_parser.positionalArguments().isEmpty()) {
            return fail(QStringLiteral("unexpected argument '%1'")
                            .arg(m_parser.positionalArguments().constFirst()));
        }
        const bool text = m_parser.isSet(m_options.text);
        m_result.isDocument = m_parser.isSet(m_options.document);
        if (text == m_result.isDocument)
            return fail(QStringLiteral("give one of --text and --document"));
        m_result.input = m_parser.value(text ? m_options.text : m_options.document);
        m_result.output = m_parser.value(m_options.output);
        m_result.plugin = m_parser.value(m_options.plugin);
        if (m_result.output.isEmpty())
            return fail(QStringLiteral("no output: give -o FILE"));
        if (!PageRenderer::formatOf(m_result.output, m_result.format)) {
            return fail(QStringLiteral("unknown kind of output '%1': .png, .svg or .pdf")
                            .arg(m_result.output));
        }
        return true;
    }

    bool readTextStyle()
    {
        const QCommandLineOption *forText[] = {&m_options.font, &m_options.size,
                                               &m_options.vertical, &m_options.color};
        for (const QCommandLineOption *option : forText) {
            if (m_result.isDocument && m_parser.isSet(*option)) {
                return fail(QStringLiteral("--%1 is for --text only: a document has its own")
                                .arg(option->names().constFirst()));
            }
        }
        m_result.family = m_parser.value(m_options.font);
        if (m_parser.isSet(m_options.font) && m_result.family.isEmpty())
            return fail(QStringLiteral("--font wants a family"));
        m_result.vertical = m_parser.isSet(m_options.vertical);
        QColor color(Qt::black);
        if (!readColor(m_options.color, color))
            return false;
        m_result.color = color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
        return readNumber(m_options.size, std::numeric_limits<double>::denorm_min(),
                          std::numeric_limits<double>::max(), m_result.pointSize);
    }

    bool readPage()
    {
        double dpi = m_result.options.dpi;
        if (!readColor(m_options.background, m_result.options.background)
            || !readNumber(m_options.margin, 0, PageRenderer::maximumSide, m_result.options.margin)
            || !readNumber(m_options.dpi, Document::minimumDpi, Document::maximumDpi, dpi))
            return false;
        if (dpi != std::floor(dpi))
            return fail(QStringLiteral("--dpi wants a whole number"));
        m_result.options.dpi = int(dpi);
        return true;
    }

    bool readScale()
    {
        if (m_parser.isSet(m_options.scale) && m_result.format != PageRenderer::Format::Png)
            return fail(QStringLiteral("--scale is for PNG only"));
        return readNumber(m_options.scale, 1 / maximumScale, maximumScale, m_result.options.scale);
    }

    bool readNumber(const QCommandLineOption &option, double from, double to, double &number)
    {
        if (!m_parser.isSet(option))
            return true;
        bool isNumber = false;
        const double value = m_parser.value(option).toDouble(&isNumber);
        if (!isNumber || !std::isfinite(value) || value < from || value > to) {
            return fail(QStringLiteral("--%1: '%2' is no number that can be used")
                            .arg(option.names().constFirst(), m_parser.value(option)));
        }
        number = value;
        return true;
    }

    bool readColor(const QCommandLineOption &option, QColor &color)
    {
        if (!m_parser.isSet(option))
            return true;
        const QColor value(m_parser.value(option));
        if (!value.isValid()) {
            return fail(QStringLiteral("--%1: '%2' is no colour")
                            .arg(option.names().constFirst(), m_parser.value(option)));
        }
        color = value;
        return true;
    }

    const QCommandLineParser &m_parser;
    const Options &m_options;
    Arguments &m_result;
};

} // namespace

ParseResult parseArguments(const QStringList &arguments, Arguments &result)
{
    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Renders a text or a document to a PNG, SVG or PDF file."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({options.text, options.document, options.output, options.font, options.size,
                       options.vertical, options.color, options.background, options.margin,
                       options.dpi, options.scale, options.plugin});
    if (!parser.parse(arguments)) {
        result.message = parser.errorText();
        return ParseResult::Usage;
    }
    if (parser.isSet(help)) {
        result.message = parser.helpText();
        return ParseResult::Show;
    }
    if (parser.isSet(version)) {
        result.message = QStringLiteral("pagerender %1\n").arg(QStringLiteral(VX_VERSION));
        return ParseResult::Show;
    }
    return Reader(parser, options, result).read() ? ParseResult::Run : ParseResult::Usage;
}
