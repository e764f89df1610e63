// SPDX-License-Identifier: MIT
#include "app/pagerender/rendering.h"

#include "app/page/attributekeys.h"
#include "app/page/binarypage.h"
#include "app/page/document.h"
#include "app/page/inputfile.h"
#include "app/page/jsonfields.h"
#include "app/page/page.h"
#include "app/page/pagebuilder.h"
#include "app/page/pagestorage.h"
#include "app/page/textobject.h"
#include "app/pagerender/contactsheet.h"
#include "app/pagerender/outputfile.h"
#include "app/pagerender/warpsheet.h"
#include "host/fontdatabase/cfontdatabase.h"
#include "host/framework/cvxrootobject.h"

#include <QJsonDocument>

namespace {

/// How many times over a side a text must be by a mere estimate to be refused ahead of its layout.
constexpr double estimateReserve = 4;

/// False for a plain text that cannot fit on a page, told from its number of lines and its size.
bool mayFit(int lines, double pointSize, int dpi)
{
    const double across = lines * (dpi * (pointSize / 72.0));
    return across < estimateReserve * PageRenderer::maximumSide;
}

bool isInstalled(const QString &family)
{
    return CFontDatabase::instance()->fontExists(family);
}

QString unknownFont(const QString &family)
{
    return QStringLiteral("unknown font '%1'").arg(family);
}

} // namespace

Rendering::Rendering(const Arguments &arguments, const Job &job, Framework &framework,
                     const PluginLoader &loader)
    : m_arguments(arguments)
    , m_job(job)
    , m_framework(framework)
    , m_loader(loader)
{
}

Rendering::~Rendering() = default;

Outcome Rendering::run()
{
    // Each returns false where the work ends, be it with success or not.
    readInput() && (m_isPage ? makePage() : makeDocument()) && applySettings() && replaceFonts()
        && noteMissingFonts() && checkMissingFonts() && arrange() && deliver();
    return m_outcome;
}

bool Rendering::fail(const QString &message, ExitCode code)
{
    return m_outcome.fail(message, code);
}

bool Rendering::readInput()
{
    const qint64 limit = m_arguments.isPlainText ? maximumInputBytes : maximumPageBytes;
    QByteArray bytes;
    QString content;
    QString error;
    if (!readJobInput(m_job, limit, bytes, error))
        return fail(error);
    if (!m_arguments.isPlainText && isBinaryPage(bytes)) {
        return beginPage()
               && (readBinaryPage(bytes, m_pageFile, error)
                   || fail(QStringLiteral("'%1': %2").arg(m_job.input, error)));
    }
    if (!decodeText(m_job.input, bytes, content, error))
        return fail(error);
    return m_arguments.isPlainText ? readPlainText(content) : readJson(content);
}

/// The input is a page file.
bool Rendering::beginPage()
{
    m_isPage = true;
    if (!m_arguments.notForPages.isEmpty()) {
        return fail(QStringLiteral("--%1 is not for a page file, which says it itself")
                        .arg(m_arguments.notForPages.constFirst()),
                    WrongUsage);
    }
    if (m_arguments.hasDpi && m_arguments.format != PageRenderer::Format::Png)
        return fail(QStringLiteral("--dpi of a page file is for PNG only"), WrongUsage);
    return true;
}

bool Rendering::readPlainText(const QString &content)
{
    TextStyle style;
    int defaultSize = 0;
    m_framework.getDefaultFont(style.family, defaultSize);
    style.pointSize = m_arguments.pointSize > 0 ? m_arguments.pointSize : defaultSize;
    if (!m_arguments.family.isEmpty())
        style.family = m_arguments.family;
    style.color = m_arguments.color;
    style.vertical = m_arguments.vertical;
    // What does not fit in a box that stays as it is takes no part in the page.
    const bool bounded = !m_arguments.box.isEmpty() && !m_arguments.autoHeight;
    const int lines = 1 + content.count(QLatin1Char('\n'));
    if (content.size() > maximumCharacters
        || (!bounded && !mayFit(lines, style.pointSize, m_arguments.options.dpi)))
        return fail(QStringLiteral("'%1' is too large for a page").arg(m_job.input));
    return prepareDocument(documentString(content, style));
}

bool Rendering::readJson(const QString &content)
{
    QJsonDocument json;
    QString error;
    if (!parseJson(content.toUtf8(), json, error))
        return fail(QStringLiteral("'%1' is %2").arg(m_job.input, error));
    if (!PageFile::isPageFile(json.object()))
        return prepareDocument(content);
    return beginPage()
           && (m_pageFile.read(json.object(), error)
               || fail(QStringLiteral("'%1': %2").arg(m_job.input, error)));
}

/// Checks the document and lays over it what the command line asks of it.
bool Rendering::prepareDocument(const QString &string)
{
    m_info = inspectDocumentString(string);
    if (!m_info.valid)
        return fail(QStringLiteral("'%1' is %2").arg(m_job.input, m_info.error));
    if (m_info.characters > maximumCharacters)
        return fail(QStringLiteral("'%1' is too large for a page").arg(m_job.input));
    if (m_info.wrapped && m_arguments.box.isEmpty())
        return fail(QStringLiteral("'%1' is box text: give --box WxH").arg(m_job.input));
    if (!checkPosition(m_arguments.selectionStart) || !checkPosition(m_arguments.selectionEnd))
        return false;
    DocumentChange change;
    change.paragraph = paragraphAttributes(m_arguments.paragraph, m_info.vertical);
    change.wrapped = !m_arguments.box.isEmpty();
    m_string = changedDocument(string, change);
    m_info.wrapped = change.wrapped;
    return true;
}

/// \param position below 0 for none
bool Rendering::checkPosition(int position)
{
    if (position < 0 || m_info.isCaretPosition(position))
        return true;
    if (position > m_info.text.size()) {
        return fail(QStringLiteral("position %1 lies behind the end of the text, which is %2")
                        .arg(position)
                        .arg(m_info.text.size()));
    }
    return fail(QStringLiteral("position %1 lies inside a character").arg(position));
}

bool Rendering::makePage()
{
    m_document = std::make_unique<Document>(m_pageFile.dpi());
    m_page = std::make_unique<Page>(m_document.get());
    m_builder = std::make_unique<PageBuilder>(&m_loader, m_document.get(), m_page.get());
    if (!m_builder->load(m_pageFile))
        return fail(QStringLiteral("'%1': %2").arg(m_job.input, m_builder->errorString()));
    for (const QString &warning : m_builder->warnings())
        m_outcome.warn(QStringLiteral("'%1': %2").arg(m_job.input, warning));
    return true;
}

bool Rendering::makeDocument()
{
    m_document = std::make_unique<Document>(m_arguments.options.dpi);
    m_page = std::make_unique<Page>(m_document.get());
    m_page->addObject(m_loader.createText(1, m_page.get()));
    TextPlace place;
    place.box = m_arguments.box;
    if (!loadDocumentString(singleObject(), m_string, m_info, place))
        return fail(QStringLiteral("the text object refuses '%1'").arg(m_job.input));
    return true;
}

CVXRootObject *Rendering::singleObject() const
{
    return m_page->objects().constFirst();
}

CVXRootObject *Rendering::objectOf(const QString &name) const
{
    if (m_isPage)
        return m_builder->object(name);
    return name == QLatin1String("0") ? singleObject() : nullptr;
}

bool Rendering::applySettings()
{
    QMap<CVXRootObject *, AttributeMap> attributes;
    for (const Setting &setting : m_arguments.settings) {
        if (!applySetting(setting, attributes))
            return false;
    }
    for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it)
        TextObject::setAttributes(it.key(), it.value());
    return true;
}

bool Rendering::applySetting(const Setting &setting,
                             QMap<CVXRootObject *, AttributeMap> &attributes)
{
    QList<CVXRootObject *> targets = m_page->objects();
    if (!setting.object.isEmpty()) {
        CVXRootObject *object = objectOf(setting.object);
        if (!object)
            return fail(QStringLiteral("--set: there is no object '%1'").arg(setting.object));
        targets = {object};
    }
    if (setting.key == QLatin1String("font_family") && !isInstalled(setting.value))
        return fail(unknownFont(setting.value));
    for (CVXRootObject *object : qAsConst(targets)) {
        QVariant value;
        QString reason;
        if (!attributeValue(*attributeKey(setting.key), setting.value,
                            TextObject::isVertical(object), value, reason))
            return fail(QStringLiteral("--set: %1 %2").arg(setting.key, reason));
        attributes[object].insert(setting.key, value);
    }
    return true;
}

bool Rendering::replaceFonts()
{
    for (const FontReplacement &replacement : m_arguments.replacements) {
        if (!isInstalled(replacement.replacement))
            return fail(unknownFont(replacement.replacement));
        if (!missingFonts().contains(replacement.family))
            return fail(QStringLiteral("no text misses the font '%1'").arg(replacement.family));
        for (CVXRootObject *object : m_page->objects())
            TextObject::replaceFont(object, replacement.family, replacement.replacement);
    }
    return true;
}

QStringList Rendering::missingFonts() const
{
    QStringList families;
    for (CVXRootObject *object : m_page->objects())
        families += TextObject::missingFonts(object);
    families.removeDuplicates();
    return families;
}

/// The end of those who ask for nothing else, and of those whom fonts do not matter to.
bool Rendering::noteMissingFonts()
{
    m_outcome.missingFonts = missingFonts();
    if (m_arguments.task == Arguments::Task::DumpText)
        return dumpText() && false;
    return m_arguments.task != Arguments::Task::ListFonts;
}

bool Rendering::checkMissingFonts()
{
    for (CVXRootObject *object : m_page->objects()) {
        if (!checkMissingFontsOf(object))
            return false;
    }
    return true;
}

/// Without a policy a text or document wants its fonts, and a page is shown without them, as well as
/// it can be.
bool Rendering::checkMissingFontsOf(CVXRootObject *object)
{
    const QStringList families = TextObject::missingFonts(object);
    if (families.isEmpty())
        return true;
    const Arguments::FontPolicy policy = m_arguments.fontPolicy;
    const bool isEdited = m_arguments.selectionEnd >= 0;
    if (policy == Arguments::FontPolicy::Picture && showsPicture(object))
        return true;
    for (const QString &family : families) {
        const bool isUsed = m_isPage || isEdited || m_info.families.contains(family);
        const QString message = QStringLiteral("'%1': missing font '%2'").arg(m_job.input, family);
        if (isUsed && policy == Arguments::FontPolicy::Error)
            return fail(message, FontsMissing);
        if (isUsed && policy == Arguments::FontPolicy::Usual && !m_isPage)
            return fail(unknownFont(family));
        if (isUsed)
            m_outcome.warn(message);
    }
    const QString names = families.join(QLatin1String(", "));
    TextObject::setMissingFontHint(object, QStringLiteral("Missing font: %1").arg(names));
    return true;
}

/// True when the file has a picture for \a object, which misses a font.
bool Rendering::showsPicture(CVXRootObject *object) const
{
    if (!m_isPage)
        return false;
    const PageObject &description = m_pageFile.objects().at(m_builder->objects().indexOf(object));
    return description.form == PageObject::Form::Record
               ? !pictureOfRecord(description.record).isEmpty()
               : !description.picture.isEmpty();
}

bool Rendering::arrange()
{
    if (m_isPage) {
        m_builder->arrange();
        return true;
    }
    // A text object without text shows where it is; a picture of that is of no use to anybody.
    if (!singleObject()->canDo(OP_HasText))
        return fail(QStringLiteral("the page is empty"));
    // Now, since attributes that are set move the caret.
    const bool isEdited = m_arguments.selectionEnd >= 0;
    if (isEdited
        && !setSelection(singleObject(), m_arguments.selectionStart, m_arguments.selectionEnd))
        return fail(QStringLiteral("the text object refuses '%1'").arg(m_job.input));
    if (m_arguments.autoHeight)
        TextObject::letBoxGrow(singleObject());
    if (m_arguments.warp.style != 0)
        TextObject::setWarp(singleObject(), m_arguments.warp);
    if (isEdited) {
        m_page->takeFocus();
        TextObject::beginEdit(singleObject());
    }
    return true;
}

bool Rendering::deliver()
{
    if (m_arguments.warpSheet)
        return renderWarpSheet();
    return m_arguments.task == Arguments::Task::Check ? checkPicture() : renderPicture();
}

/// The texts of all objects, the lowest first, with an empty line between two.
QString Rendering::plainText() const
{
    QStringList texts;
    for (CVXRootObject *object : m_page->objects()) {
        const QString text = TextObject::plainText(object);
        if (!text.isEmpty() && object->isVisible())
            texts.append(text);
    }
    return texts.join(QLatin1String("\n\n"));
}

bool Rendering::dumpText()
{
    const QString text = plainText();
    if (m_arguments.json)
        m_outcome.text = text.isNull() ? QLatin1String("") : text;
    return m_job.output.isEmpty() || write(text.isEmpty() ? QByteArray() : text.toUtf8() + '\n');
}

PageRenderer::Options Rendering::pictureOptions() const
{
    PageRenderer::Options options = m_arguments.options;
    options.foreground = m_isPage || m_arguments.selectionEnd >= 0;
    if (m_isPage) {
        options.page = m_pageFile.size();
        if (m_arguments.hasDpi)
            options.scale *= double(m_arguments.options.dpi) / m_pageFile.dpi();
        options.dpi = m_pageFile.dpi();
        if (!m_arguments.hasBackground)
            options.background = m_pageFile.background();
    }
    options.metadata = metadataOf(m_arguments, plainText());
    return options;
}

bool Rendering::checkPicture()
{
    PageRenderer renderer(m_page.get(), pictureOptions());
    const bool isGood = renderer.check(m_arguments.format);
    m_outcome.size = renderer.pictureSize();
    return isGood || fail(renderer.errorString());
}

bool Rendering::renderPicture()
{
    PageRenderer renderer(m_page.get(), pictureOptions());
    const QByteArray bytes = renderer.render(m_arguments.format);
    if (bytes.isEmpty())
        return fail(renderer.errorString());
    m_outcome.size = renderer.pictureSize();
    return write(bytes);
}

bool Rendering::renderWarpSheet()
{
    QString error;
    const QImage sheet = warpSheet(singleObject(), m_page.get(), m_arguments.options, error);
    m_outcome.size = sheet.size();
    return sheet.isNull() ? fail(error) : write(sheetBytes(sheet));
}

bool Rendering::write(const QByteArray &bytes)
{
    QString error;
    if (!writeOutput(m_job.output, bytes, error))
        return fail(error);
    m_outcome.output = m_job.output;
    m_outcome.bytes = bytes.size();
    return true;
}
