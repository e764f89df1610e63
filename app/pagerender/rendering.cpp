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
#include "app/pagerender/warpsheet.h"
#include "host/fontdatabase/cfontdatabase.h"
#include "host/framework/cvxrootobject.h"

#include <QJsonDocument>

#include <cstdio>

namespace {

/// How many times over a side a text must be by a mere estimate to be refused ahead of its layout.
constexpr double estimateReserve = 4;

void tell(const QString &message)
{
    std::fprintf(stderr, "pagerender: %s\n", qPrintable(message));
}

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

Rendering::Rendering(const Arguments &arguments)
    : m_arguments(arguments)
{
}

Rendering::~Rendering() = default;

ExitCode Rendering::run()
{
    if (m_arguments.convert) {
        convert();
        return m_code;
    }
    // Each returns false where the run ends, be it with success or not.
    readInput() && loadLibrary() && (m_isPage ? makePage() : makeDocument()) && applySettings()
        && replaceFonts() && listMissingFonts() && checkMissingFonts() && arrange() && render();
    return m_code;
}

bool Rendering::fail(const QString &message, ExitCode code)
{
    tell(message);
    m_code = code;
    return false;
}

/// The same page in the form that the output names; no object is made for it.
bool Rendering::convert()
{
    QString error;
    return (readPageFile(m_arguments.input, m_pageFile, error)
            && writePageFile(m_arguments.output, m_pageFile, error))
           || fail(error);
}

bool Rendering::readInput()
{
    QString content;
    QString error;
    if (m_arguments.isPlainText)
        return readTextFile(m_arguments.input, content, error) ? readPlainText(content)
                                                               : fail(error);
    QByteArray bytes;
    if (!readFile(m_arguments.input, maximumPageBytes, bytes, error))
        return fail(error);
    if (isBinaryPage(bytes)) {
        return beginPage()
               && (readBinaryPage(bytes, m_pageFile, error)
                   || fail(QStringLiteral("'%1': %2").arg(m_arguments.input, error)));
    }
    return decodeText(m_arguments.input, bytes, content, error) ? readJson(content) : fail(error);
}

/// The input is a page file.
bool Rendering::beginPage()
{
    m_isPage = true;
    if (m_arguments.notForPages.isEmpty())
        return true;
    return fail(QStringLiteral("--%1 is not for a page file, which says it itself")
                    .arg(m_arguments.notForPages.constFirst()),
                WrongUsage);
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
        return fail(QStringLiteral("'%1' is too large for a page").arg(m_arguments.input));
    return prepareDocument(documentString(content, style));
}

bool Rendering::readJson(const QString &content)
{
    QJsonDocument json;
    QString error;
    if (!parseJson(content.toUtf8(), json, error))
        return fail(QStringLiteral("'%1' is %2").arg(m_arguments.input, error));
    if (!PageFile::isPageFile(json.object()))
        return prepareDocument(content);
    return beginPage()
           && (m_pageFile.read(json.object(), error)
               || fail(QStringLiteral("'%1': %2").arg(m_arguments.input, error)));
}

/// Checks the document and lays over it what the command line asks of it.
bool Rendering::prepareDocument(const QString &string)
{
    m_info = inspectDocumentString(string);
    if (!m_info.valid)
        return fail(QStringLiteral("'%1' is %2").arg(m_arguments.input, m_info.error));
    if (m_info.characters > maximumCharacters)
        return fail(QStringLiteral("'%1' is too large for a page").arg(m_arguments.input));
    if (m_info.wrapped && m_arguments.box.isEmpty())
        return fail(QStringLiteral("'%1' is box text: give --box WxH").arg(m_arguments.input));
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

bool Rendering::loadLibrary()
{
    if (m_loader.load(m_arguments.plugin))
        return true;
    return fail(QStringLiteral("no text objects: %1").arg(m_loader.errorString()));
}

bool Rendering::makePage()
{
    m_document = std::make_unique<Document>(m_pageFile.dpi());
    m_page = std::make_unique<Page>(m_document.get());
    m_builder = std::make_unique<PageBuilder>(&m_loader, m_document.get(), m_page.get());
    if (!m_builder->load(m_pageFile))
        return fail(QStringLiteral("'%1': %2").arg(m_arguments.input, m_builder->errorString()));
    for (const QString &warning : m_builder->warnings())
        tell(QStringLiteral("'%1': %2").arg(m_arguments.input, warning));
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
        return fail(QStringLiteral("the text object refuses '%1'").arg(m_arguments.input));
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

bool Rendering::listMissingFonts()
{
    if (!m_arguments.listMissingFonts)
        return true;
    const QStringList families = missingFonts();
    for (const QString &family : families)
        std::printf("%s\n", qPrintable(family));
    return !m_arguments.output.isEmpty();
}

/// A text or document wants its fonts. A page is shown without them, as well as it can be.
bool Rendering::checkMissingFonts()
{
    const bool isEdited = m_arguments.selectionEnd >= 0;
    for (CVXRootObject *object : m_page->objects()) {
        const QStringList families = TextObject::missingFonts(object);
        for (const QString &family : families) {
            if (!m_isPage && (isEdited || m_info.families.contains(family)))
                return fail(unknownFont(family));
            if (m_isPage)
                tell(QStringLiteral("'%1': missing font '%2'").arg(m_arguments.input, family));
        }
        const QString names = families.join(QLatin1String(", "));
        if (!names.isEmpty())
            TextObject::setMissingFontHint(object, QStringLiteral("Missing font: %1").arg(names));
    }
    return true;
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
        return fail(QStringLiteral("the text object refuses '%1'").arg(m_arguments.input));
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

bool Rendering::render()
{
    if (m_arguments.warpSheet)
        return renderWarpSheet();
    PageRenderer::Options options = m_arguments.options;
    options.foreground = m_isPage || m_arguments.selectionEnd >= 0;
    if (m_isPage) {
        options.page = m_pageFile.size();
        options.dpi = m_pageFile.dpi();
        if (!m_arguments.hasBackground)
            options.background = m_pageFile.background();
    }
    PageRenderer renderer(m_page.get(), options);
    return renderer.renderToFile(m_arguments.format, m_arguments.output)
           || fail(renderer.errorString());
}

bool Rendering::renderWarpSheet()
{
    QString error;
    const QImage sheet = warpSheet(singleObject(), m_page.get(), m_arguments.options, error);
    return (!sheet.isNull() && writeSheet(sheet, m_arguments.output, error)) || fail(error);
}
