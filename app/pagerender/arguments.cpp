// SPDX-License-Identifier: MIT
#include "app/pagerender/arguments.h"

#include "app/page/attributekeys.h"
#include "app/page/document.h"
#include "app/page/textwarp.h"
#include "app/pagerender/runarguments.h"

#include <QCommandLineParser>

#include <cmath>
#include <limits>

namespace {

constexpr double maximumScale = 100;

/// Reads how the text looks and what the picture is like.
class Reader : public RunReader
{
public:
    using RunReader::RunReader;

    bool read()
    {
        if (isSet(m_options.convert))
            return readConversion();
        if (!readManner())
            return false;
        if (isSet(m_options.art) || isSet(m_options.artSheet))
            return readArt();
        noteOptionsOfTexts();
        m_result.hasBackground = isSet(m_options.background);
        return readFiles() && readWarp() && checkNoArt() && readTextStyle() && readBox()
               && readParagraphs() && checkBox() && readSelection() && checkWarp() && readSettings()
               && readReplacements() && readPage() && readScale();
    }

private:
    bool readWarp()
    {
        const QString value = valueOf(m_options.warp);
        QString reason;
        if (!isSet(m_options.warp) || parseTextWarp(value, m_result.warp, reason))
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
            if (isSet(*option)) {
                return fail(QStringLiteral("--%1 is for art text only: give --art or --art-sheet")
                                .arg(option->names().constFirst()));
            }
        }
        return true;
    }

    bool readArt()
    {
        m_result.isArt = true;
        m_result.artSheet = isSet(m_options.artSheet);
        m_result.vertical = m_result.art.vertical = isSet(m_options.vertical);
        m_result.art.bold = isSet(m_options.bold);
        m_result.art.family = valueOf(m_options.font);
        if (isSet(m_options.art) && m_result.artSheet)
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
                                                    &m_options.vertical, &m_options.art,
                                                    &m_options.artSheet};
        allowed += ofManner();
        if (!m_result.artSheet)
            allowed += ofFiles() << &m_options.margin << &m_options.dpi << &m_options.scale;
        const QString other = firstBeside(allowed);
        if (!other.isEmpty()) {
            return fail(QStringLiteral("%1 does not go with %2")
                            .arg(other, m_result.artSheet ? QStringLiteral("--art-sheet")
                                                          : QStringLiteral("--art")));
        }
        if (isSet(m_options.font) && m_result.art.family.isEmpty())
            return fail(QStringLiteral("--font wants a family"));
        return true;
    }

    bool readArtFiles()
    {
        const QString style = valueOf(m_options.art);
        m_result.art.style = ArtObject::styleOf(style);
        if (m_result.art.style < 0) {
            return fail(QStringLiteral("--art: '%1' is no style: a number from 0 to %2, or a name "
                                       "such as %3")
                            .arg(style)
                            .arg(ArtObject::styleNames().size() - 1)
                            .arg(ArtObject::styleNames().constLast()));
        }
        if (!isSet(m_options.text))
            return fail(QStringLiteral("--art wants a text: give --text FILE"));
        return readFiles();
    }

    bool readArtAlignment()
    {
        if (!isSet(m_options.align))
            return true;
        constexpr int justified = 8; // the last that an art text knows
        const Alignment alignment = alignmentOf(valueOf(m_options.align));
        if (alignment.name.isEmpty() || alignment.inLines > justified) {
            return fail(QStringLiteral("--align: '%1' is none of left, center, right, justify")
                            .arg(valueOf(m_options.align)));
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
            &m_options.margin,      &m_options.box,   &m_options.autoHeight, &m_options.align,
            &m_options.headTail,    &m_options.caret, &m_options.select,     &m_options.hyphenate,
            &m_options.punctuation, &m_options.warp,  &m_options.warpSheet,
        };
        for (const QCommandLineOption *option : forTexts) {
            if (isSet(*option))
                m_result.notForPages.append(option->names().constFirst());
        }
    }

    bool readTextStyle()
    {
        const QCommandLineOption *forText[] = {&m_options.font, &m_options.size,
                                               &m_options.vertical, &m_options.color};
        for (const QCommandLineOption *option : forText) {
            if (!m_result.isPlainText && isSet(*option)) {
                return fail(QStringLiteral("--%1 is for --text only: a document has its own")
                                .arg(option->names().constFirst()));
            }
        }
        m_result.family = valueOf(m_options.font);
        if (isSet(m_options.font) && m_result.family.isEmpty())
            return fail(QStringLiteral("--font wants a family"));
        m_result.vertical = isSet(m_options.vertical);
        QColor color(Qt::black);
        if (!readColor(m_options.color, color))
            return false;
        m_result.color = color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
        return readNumber(m_options.size, std::numeric_limits<double>::denorm_min(),
                          std::numeric_limits<double>::max(), m_result.pointSize);
    }

    bool readBox()
    {
        m_result.autoHeight = isSet(m_options.autoHeight);
        if (!isSet(m_options.box))
            return true;
        const QStringList sides = valueOf(m_options.box).split(QLatin1Char('x'));
        double width = 0;
        double height = 0;
        if (sides.size() != 2 || !isSide(sides.at(0), width) || !isSide(sides.at(1), height)) {
            return fail(
                QStringLiteral("--box: '%1' is no size such as 300x200, above 0 and up to %2")
                    .arg(valueOf(m_options.box))
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
        style.hyphenate = isSet(m_options.hyphenate);
        style.compressPunctuation = punctuation > 0;
        return true;
    }

    /// What lines only have in a box is an error without one.
    bool checkBox()
    {
        if (!m_result.box.isEmpty())
            return true;
        const QCommandLineOption *forBoxes[] = {&m_options.autoHeight, &m_options.headTail,
                                                &m_options.hyphenate, &m_options.punctuation};
        for (const QCommandLineOption *option : forBoxes) {
            if (isSet(*option)) {
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
        const bool caret = isSet(m_options.caret);
        const bool select = isSet(m_options.select);
        if (caret && select)
            return fail(QStringLiteral("give one of --caret and --select"));
        if (caret && !isPosition(valueOf(m_options.caret), m_result.selectionEnd)) {
            return fail(QStringLiteral("--caret: '%1' is no position in a text")
                            .arg(valueOf(m_options.caret)));
        }
        m_result.selectionStart = m_result.selectionEnd;
        return !select || readRange(valueOf(m_options.select));
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
        m_result.hasDpi = isSet(m_options.dpi);
        return true;
    }

    bool readScale()
    {
        if (isSet(m_options.scale) && m_result.format != PageRenderer::Format::Png)
            return fail(QStringLiteral("--scale is for PNG only"));
        return readNumber(m_options.scale, 1 / maximumScale, maximumScale, m_result.options.scale);
    }
};

} // namespace

PictureMetadata metadataOf(const Arguments &arguments, const QString &text)
{
    PictureMetadata metadata;
    metadata.title = titleOf(text);
    metadata.text = text;
    metadata.creator = QStringLiteral("pagerender " VX_VERSION);
    metadata.date = arguments.date;
    return metadata;
}

ParseResult parseArguments(const QStringList &arguments, Arguments &result)
{
    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Renders texts, documents and pages to PNG, SVG or PDF files."));
    parser.addPositionalArgument(
        QStringLiteral("file"),
        QStringLiteral("Page files (JSON or .vxpage) or document strings (JSON), folders "
                       "of them, or - for the standard input."),
        QStringLiteral("FILE..."));
    parser.addOptions(options.all());
    QStringList given = arguments;
    if (!takeMissingFontsPolicy(given, result))
        return ParseResult::Usage;
    takeTextWithoutFile(given);
    if (!parser.parse(given)) {
        result.message = parser.errorText();
        return ParseResult::Usage;
    }
    if (parser.isSet(options.help)) {
        result.message = parser.helpText();
        return ParseResult::Show;
    }
    if (parser.isSet(options.version)) {
        result.message = QStringLiteral("pagerender " VX_VERSION "\n");
        return ParseResult::Show;
    }
    return Reader(parser, options, result).read() ? ParseResult::Run : ParseResult::Usage;
}
