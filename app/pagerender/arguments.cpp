// SPDX-License-Identifier: MIT
#include "app/pagerender/arguments.h"

#include "app/page/attributekeys.h"
#include "app/page/document.h"
#include "app/page/pagestorage.h"
#include "app/page/textwarp.h"
#include "app/pagerender/warpsheet.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double maximumScale = 100;

struct Options {
    QCommandLineOption text{QStringLiteral("text"), QStringLiteral("Set the UTF-8 text <file>."),
                            QStringLiteral("file")};
    QCommandLineOption document{QStringLiteral("document"),
                                QStringLiteral("The same as a FILE without --document."),
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
    QCommandLineOption box{QStringLiteral("box"),
                           QStringLiteral("Wrap the text in a box of so many page pixels."),
                           QStringLiteral("WxH")};
    QCommandLineOption
        autoHeight{QStringLiteral("auto-height"),
                   QStringLiteral(
                       "Let the box follow its text: its height, or the width of columns.")};
    QCommandLineOption align{QStringLiteral("align"),
                             QStringLiteral("Align the paragraphs: %1.")
                                 .arg(alignmentNames().join(QLatin1String(", "))),
                             QStringLiteral("how")};
    QCommandLineOption headTail{QStringLiteral("head-tail"),
                                QStringLiteral(
                                    "Keep punctuation from the ends of lines: relaxed or strict."),
                                QStringLiteral("rule")};
    QCommandLineOption hyphenate{QStringLiteral("hyphenate"),
                                 QStringLiteral("Let words break with a hyphen.")};
    QCommandLineOption punctuation{QStringLiteral("punctuation"),
                                   QStringLiteral(
                                       "Set Han punctuation in half its width: compress."),
                                   QStringLiteral("how")};
    QCommandLineOption caret{QStringLiteral("caret"),
                             QStringLiteral("Edit the text and show the caret at <position>."),
                             QStringLiteral("position")};
    QCommandLineOption select{QStringLiteral("select"),
                              QStringLiteral("Edit the text and select from A to B; PNG only."),
                              QStringLiteral("A:B")};
    QCommandLineOption
        set{QStringLiteral("set"),
            QStringLiteral("Set an attribute of one object, told by name or number, or of all."),
            QStringLiteral("[object:]key=value")};
    QCommandLineOption warp{QStringLiteral("warp"),
                            QStringLiteral("Bend a text: arc:0.5, flag:-0.4:0.1:0:vertical; the "
                                           "values go from -1 to 1. Styles: %1.")
                                .arg(warpStyleNames().join(QLatin1String(", "))),
                            QStringLiteral("style:value[:h[:v]][:vertical]")};
    QCommandLineOption warpSheet{QStringLiteral("warp-sheet"),
                                 QStringLiteral(
                                     "Write a text in all warp styles to <file>, a .png."),
                                 QStringLiteral("file")};
    QCommandLineOption art{QStringLiteral("art"),
                           QStringLiteral(
                               "Set a text as art text in <style>, a number from 0 to %1 "
                               "or a name.")
                               .arg(ArtObject::styleNames().size() - 1),
                           QStringLiteral("style")};
    QCommandLineOption artSheet{QStringLiteral("art-sheet"),
                                QStringLiteral("Write all styles of art text to <file>, a .png."),
                                QStringLiteral("file")};
    QCommandLineOption bold{QStringLiteral("bold"), QStringLiteral("Set an art text in bold.")};
    QCommandLineOption fill{QStringLiteral("fill"),
                            QStringLiteral("Colour that fills an art text (black)."),
                            QStringLiteral("colour")};
    QCommandLineOption pen{QStringLiteral("pen"),
                           QStringLiteral("Colour of a line around an art text (none)."),
                           QStringLiteral("colour")};
    QCommandLineOption
        missingFonts{QStringLiteral("missing-fonts"),
                     QStringLiteral("Print the font families that are not installed, one a line.")};
    QCommandLineOption replaceFont{QStringLiteral("replace-font"),
                                   QStringLiteral("Set text of the missing family A in B."),
                                   QStringLiteral("A=B")};
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
    QCommandLineOption
        convert{QStringLiteral("convert"),
                QStringLiteral("Write the page file FILE as the page file OUT: .json or .vxpage.")};
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

    bool read()
    {
        if (m_parser.isSet(m_options.convert))
            return readConversion();
        if (m_parser.isSet(m_options.art) || m_parser.isSet(m_options.artSheet))
            return readArt();
        noteOptionsOfTexts();
        m_result.hasBackground = m_parser.isSet(m_options.background);
        return readFiles() && readWarp() && checkNoArt() && readTextStyle() && readBox()
               && readParagraphs() && checkBox() && readSelection() && checkWarp() && readSettings()
               && readReplacements() && readPage() && readScale();
    }

private:
    bool fail(const QString &message)
    {
        m_result.message = message;
        return false;
    }

    bool readFiles()
    {
        QStringList inputs = m_parser.positionalArguments();
        inputs += m_parser.values(m_options.document);
        m_result.isPlainText = m_parser.isSet(m_options.text);
        if (m_result.isPlainText)
            inputs += m_parser.values(m_options.text);
        if (inputs.isEmpty())
            return fail(QStringLiteral("no input: give a FILE or --text FILE"));
        if (inputs.size() > 1)
            return fail(QStringLiteral("more than one input: '%1' and '%2'")
                            .arg(inputs.at(0), inputs.at(1)));
        m_result.input = inputs.constFirst();
        m_result.plugin = m_parser.value(m_options.plugin);
        m_result.listMissingFonts = m_parser.isSet(m_options.missingFonts);
        m_result.output = m_parser.value(m_options.output);
        if (m_parser.isSet(m_options.warpSheet))
            return readWarpSheet();
        if (m_result.output.isEmpty() && m_result.listMissingFonts)
            return true;
        if (m_result.output.isEmpty())
            return fail(QStringLiteral("no output: give -o FILE"));
        if (!PageRenderer::formatOf(m_result.output, m_result.format)) {
            return fail(QStringLiteral("unknown kind of output '%1': .png, .svg or .pdf")
                            .arg(m_result.output));
        }
        return true;
    }

    bool readConversion()
    {
        const QStringList files = m_parser.positionalArguments();
        m_result.convert = true;
        for (const QString &option : m_parser.optionNames()) {
            if (option != m_options.convert.names().constFirst())
                return fail(
                    QStringLiteral("--convert goes with no other option: --%1").arg(option));
        }
        if (files.size() != 2)
            return fail(QStringLiteral("--convert wants two page files: FILE OUT"));
        m_result.input = files.at(0);
        m_result.output = files.at(1);
        PageForm form = PageForm::Json;
        if (pageFormOf(m_result.output, form))
            return true;
        return fail(QStringLiteral("unknown kind of page file '%1': .json or .vxpage")
                        .arg(m_result.output));
    }

    bool readWarpSheet()
    {
        if (m_parser.isSet(m_options.output) || m_parser.isSet(m_options.warp))
            return fail(QStringLiteral("--warp-sheet goes without -o and --warp"));
        m_result.warpSheet = true;
        m_result.output = m_parser.value(m_options.warpSheet);
        m_result.options.margin = warpSheetMargin;
        return readSheetName();
    }

    bool readSheetName()
    {
        if (PageRenderer::formatOf(m_result.output, m_result.format)
            && m_result.format == PageRenderer::Format::Png)
            return true;
        return fail(QStringLiteral("unknown kind of sheet '%1': .png").arg(m_result.output));
    }

    bool readWarp()
    {
        const QString value = m_parser.value(m_options.warp);
        QString reason;
        if (!m_parser.isSet(m_options.warp) || parseTextWarp(value, m_result.warp, reason))
            return true;
        return fail(QStringLiteral("--warp: '%1': %2").arg(value, reason));
    }

    /// A text in edit state stands straight.
    bool checkWarp()
    {
        if (m_result.selectionEnd < 0 || (m_result.warp.style == 0 && !m_result.warpSheet))
            return true;
        return fail(QStringLiteral("--warp and --warp-sheet go without --caret and --select"));
    }

    bool checkNoArt()
    {
        for (const QCommandLineOption *option :
             {&m_options.bold, &m_options.fill, &m_options.pen}) {
            if (m_parser.isSet(*option)) {
                return fail(QStringLiteral("--%1 is for art text only: give --art or --art-sheet")
                                .arg(option->names().constFirst()));
            }
        }
        return true;
    }

    bool readArt()
    {
        m_result.isArt = true;
        m_result.artSheet = m_parser.isSet(m_options.artSheet);
        m_result.vertical = m_result.art.vertical = m_parser.isSet(m_options.vertical);
        m_result.art.bold = m_parser.isSet(m_options.bold);
        m_result.art.family = m_parser.value(m_options.font);
        if (m_parser.isSet(m_options.art) && m_result.artSheet)
            return fail(QStringLiteral("give one of --art and --art-sheet"));
        return checkArtOptions() && (m_result.artSheet ? readArtSheet() : readArtFiles())
               && readColor(m_options.fill, m_result.art.fill)
               && readColor(m_options.pen, m_result.art.pen) && readArtAlignment() && readBox()
               && readPage() && readScale();
    }

    /// An art text knows no fonts' sizes, no selection and no attributes of rich text; a sheet has a
    /// size of its own.
    bool checkArtOptions()
    {
        QVector<const QCommandLineOption *> allowed{&m_options.text,     &m_options.font,
                                                    &m_options.bold,     &m_options.fill,
                                                    &m_options.pen,      &m_options.box,
                                                    &m_options.align,    &m_options.background,
                                                    &m_options.vertical, &m_options.plugin,
                                                    &m_options.art,      &m_options.artSheet};
        if (!m_result.artSheet)
            allowed << &m_options.output << &m_options.margin << &m_options.dpi << &m_options.scale;
        for (const QString &name : m_parser.optionNames()) {
            const bool isAllowed = std::any_of(allowed.cbegin(), allowed.cend(),
                                               [&](const QCommandLineOption *option) {
                                                   return option->names().contains(name);
                                               });
            if (!isAllowed) {
                return fail(
                    QStringLiteral("%1 does not go with %2")
                        .arg(dashed(name), dashed(m_result.artSheet ? QStringLiteral("art-sheet")
                                                                    : QStringLiteral("art"))));
            }
        }
        if (m_parser.isSet(m_options.font) && m_result.art.family.isEmpty())
            return fail(QStringLiteral("--font wants a family"));
        return true;
    }

    static QString dashed(const QString &name)
    {
        return (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
    }

    bool readArtFiles()
    {
        const QString style = m_parser.value(m_options.art);
        m_result.art.style = ArtObject::styleOf(style);
        if (m_result.art.style < 0) {
            return fail(QStringLiteral("--art: '%1' is no style: a number from 0 to %2, or a name "
                                       "such as %3")
                            .arg(style)
                            .arg(ArtObject::styleNames().size() - 1)
                            .arg(ArtObject::styleNames().constLast()));
        }
        if (!m_parser.isSet(m_options.text))
            return fail(QStringLiteral("--art wants a text: give --text FILE"));
        return readFiles();
    }

    bool readArtSheet()
    {
        const QStringList texts = m_parser.values(m_options.text) + m_parser.positionalArguments();
        m_result.isPlainText = true;
        m_result.input = texts.value(0);
        m_result.plugin = m_parser.value(m_options.plugin);
        m_result.output = m_parser.value(m_options.artSheet);
        if (!m_parser.positionalArguments().isEmpty() || texts.size() > 1)
            return fail(QStringLiteral("--art-sheet takes one input at most, --text FILE"));
        return readSheetName();
    }

    bool readArtAlignment()
    {
        if (!m_parser.isSet(m_options.align))
            return true;
        constexpr int justified = 8; // the last that an art text knows
        const Alignment alignment = alignmentOf(m_parser.value(m_options.align));
        if (alignment.name.isEmpty() || alignment.inLines > justified) {
            return fail(QStringLiteral("--align: '%1' is none of left, center, right, justify")
                            .arg(m_parser.value(m_options.align)));
        }
        m_result.art.alignment = alignment.inLines;
        return true;
    }

    bool readSettings()
    {
        const QStringList values = m_parser.values(m_options.set);
        for (const QString &value : values) {
            Setting setting;
            if (!readSetting(value, setting))
                return false;
            m_result.settings.append(setting);
        }
        return true;
    }

    bool readSetting(const QString &given, Setting &setting)
    {
        const int equals = given.indexOf(QLatin1Char('='));
        if (equals < 0)
            return fail(QStringLiteral("--set: '%1' is no key=value").arg(given));
        setting.value = given.mid(equals + 1);
        const QString target = given.left(equals);
        const int colon = target.lastIndexOf(QLatin1Char(':'));
        setting.object = target.left(qMax(0, colon));
        setting.key = target.mid(colon + 1);
        const AttributeKey *attribute = attributeKey(setting.key);
        if (!attribute)
            return fail(QStringLiteral("--set: there is no attribute '%1'").arg(setting.key));
        QVariant value;
        QString reason;
        if (attributeValue(*attribute, setting.value, /*vertical=*/false, value, reason))
            return true;
        return fail(QStringLiteral("--set: %1: '%2' %3").arg(setting.key, setting.value, reason));
    }

    bool readReplacements()
    {
        const QStringList values = m_parser.values(m_options.replaceFont);
        for (const QString &value : values) {
            const int equals = value.indexOf(QLatin1Char('='));
            const FontReplacement replacement{value.left(equals).trimmed(),
                                              value.mid(equals + 1).trimmed()};
            if (equals < 0 || replacement.family.isEmpty() || replacement.replacement.isEmpty())
                return fail(QStringLiteral("--replace-font: '%1' is no A=B").arg(value));
            m_result.replacements.append(replacement);
        }
        return true;
    }

    /// What a page file says for itself.
    void noteOptionsOfTexts()
    {
        const QCommandLineOption *forTexts[] = {
            &m_options.margin,    &m_options.dpi,         &m_options.box,   &m_options.autoHeight,
            &m_options.align,     &m_options.headTail,    &m_options.caret, &m_options.select,
            &m_options.hyphenate, &m_options.punctuation, &m_options.warp,  &m_options.warpSheet,
        };
        for (const QCommandLineOption *option : forTexts) {
            if (m_parser.isSet(*option))
                m_result.notForPages.append(option->names().constFirst());
        }
    }

    bool readTextStyle()
    {
        const QCommandLineOption *forText[] = {&m_options.font, &m_options.size,
                                               &m_options.vertical, &m_options.color};
        for (const QCommandLineOption *option : forText) {
            if (!m_result.isPlainText && m_parser.isSet(*option)) {
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

    bool readBox()
    {
        m_result.autoHeight = m_parser.isSet(m_options.autoHeight);
        if (!m_parser.isSet(m_options.box))
            return true;
        const QStringList sides = m_parser.value(m_options.box).split(QLatin1Char('x'));
        double width = 0;
        double height = 0;
        if (sides.size() != 2 || !isSide(sides.at(0), width) || !isSide(sides.at(1), height)) {
            return fail(
                QStringLiteral("--box: '%1' is no size such as 300x200, above 0 and up to %2")
                    .arg(m_parser.value(m_options.box))
                    .arg(PageRenderer::maximumSide));
        }
        m_result.box = QSizeF(width, height);
        return true;
    }

    static bool isSide(const QString &text, double &side)
    {
        bool isNumber = false;
        side = text.toDouble(&isNumber);
        return isNumber && side > 0 && side <= PageRenderer::maximumSide;
    }

    bool readParagraphs()
    {
        ParagraphStyle &style = m_result.paragraph;
        int align = 0;
        int punctuation = 0;
        const QStringList names = alignmentNames();
        if (!readWord(m_options.align, names, align)
            || !readWord(m_options.headTail, {QStringLiteral("relaxed"), QStringLiteral("strict")},
                         style.headTail)
            || !readWord(m_options.punctuation, {QStringLiteral("compress")}, punctuation))
            return false;
        if (align > 0)
            style.alignment = alignmentOf(names.at(align - 1));
        style.hyphenate = m_parser.isSet(m_options.hyphenate);
        style.compressPunctuation = punctuation > 0;
        return true;
    }

    /// \param number receives the place of the value among \a words, from 1; 0 without the option
    bool readWord(const QCommandLineOption &option, const QStringList &words, int &number)
    {
        if (!m_parser.isSet(option))
            return true;
        number = words.indexOf(m_parser.value(option)) + 1;
        if (number > 0)
            return true;
        return fail(QStringLiteral("--%1: '%2' is none of %3")
                        .arg(option.names().constFirst(), m_parser.value(option),
                             words.join(QLatin1String(", "))));
    }

    /// What lines only have in a box is an error without one.
    bool checkBox()
    {
        if (!m_result.box.isEmpty())
            return true;
        const QCommandLineOption *forBoxes[] = {&m_options.autoHeight, &m_options.headTail,
                                                &m_options.hyphenate, &m_options.punctuation};
        for (const QCommandLineOption *option : forBoxes) {
            if (m_parser.isSet(*option)) {
                return fail(QStringLiteral("--%1 is for a box only: give --box WxH")
                                .arg(option->names().constFirst()));
            }
        }
        if (m_result.paragraph.alignment.forBoxes) {
            return fail(QStringLiteral("--align %1 is for a box only: give --box WxH")
                            .arg(m_result.paragraph.alignment.name));
        }
        return true;
    }

    bool readSelection()
    {
        const bool caret = m_parser.isSet(m_options.caret);
        const bool select = m_parser.isSet(m_options.select);
        if (caret && select)
            return fail(QStringLiteral("give one of --caret and --select"));
        if (caret && !isPosition(m_parser.value(m_options.caret), m_result.selectionEnd)) {
            return fail(QStringLiteral("--caret: '%1' is no position in a text")
                            .arg(m_parser.value(m_options.caret)));
        }
        m_result.selectionStart = m_result.selectionEnd;
        return !select || readRange(m_parser.value(m_options.select));
    }

    bool readRange(const QString &value)
    {
        const QStringList ends = value.split(QLatin1Char(':'));
        int start = 0;
        int end = 0;
        if (ends.size() != 2 || !isPosition(ends.at(0), start) || !isPosition(ends.at(1), end)
            || start == end) {
            return fail(QStringLiteral("--select: '%1' is no range such as 2:5").arg(value));
        }
        if (m_result.format != PageRenderer::Format::Png)
            return fail(QStringLiteral("--select is for PNG only"));
        m_result.selectionStart = qMin(start, end);
        m_result.selectionEnd = qMax(start, end);
        return true;
    }

    static bool isPosition(const QString &text, int &position)
    {
        bool isNumber = false;
        position = text.toInt(&isNumber);
        return isNumber && position >= 0;
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
        QStringLiteral("Renders a text, a document or a page to a PNG, SVG or PDF file."));
    parser.addPositionalArgument(QStringLiteral("file"),
                                 QStringLiteral(
                                     "A page file (JSON or .vxpage), or a document string (JSON)."),
                                 QStringLiteral("[FILE]"));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions(
        {options.text,         options.document,    options.output,     options.font,
         options.size,         options.vertical,    options.color,      options.box,
         options.autoHeight,   options.align,       options.headTail,   options.hyphenate,
         options.punctuation,  options.caret,       options.select,     options.set,
         options.missingFonts, options.replaceFont, options.background, options.margin,
         options.dpi,          options.scale,       options.convert,    options.plugin,
         options.art,          options.artSheet,    options.bold,       options.fill,
         options.pen,          options.warp,        options.warpSheet});
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
