// SPDX-License-Identifier: MIT
#include "app/pagerender/artrendering.h"

#include "app/page/document.h"
#include "app/page/inputfile.h"
#include "app/page/page.h"
#include "app/pagerender/contactsheet.h"
#include "app/pagerender/outputfile.h"
#include "host/fontdatabase/cfontdatabase.h"
#include "host/framework/cvxrootobject.h"

namespace {

constexpr QSizeF usualSize(480, 240); // of one art text, page pixels
constexpr QSizeF usualCell(180, 110); // of a style on the sheet
constexpr double cellMargin = 3;      // room for a pen around the object of a cell
constexpr int sheetColumns = 6;

QString withoutLastLineEnd(QString text)
{
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('\r')))
        text.chop(1);
    return text;
}

} // namespace

ArtRendering::ArtRendering(const Arguments &arguments, const Job &job, Framework &framework,
                           const PluginLoader &loader)
    : m_arguments(arguments)
    , m_job(job)
    , m_framework(framework)
    , m_loader(loader)
    , m_look(arguments.art)
{
}

Outcome ArtRendering::run()
{
    readText() && chooseFont() && (m_arguments.artSheet ? renderSheet() : renderOne());
    return m_outcome;
}

bool ArtRendering::readText()
{
    if (m_job.input.isEmpty()) {
        m_text = QStringLiteral("LETTERING");
        return true;
    }
    QString error;
    QByteArray bytes;
    if (!readJobInput(m_job, maximumInputBytes, bytes, error)
        || !decodeText(m_job.input, bytes, m_text, error))
        return fail(error);
    m_text = withoutLastLineEnd(m_text);
    if (m_text.size() <= maximumArtCharacters)
        return true;
    return fail(QStringLiteral("'%1' is too long for an art text").arg(m_job.input));
}

bool ArtRendering::chooseFont()
{
    int size = 0;
    if (m_look.family.isEmpty())
        m_framework.getDefaultFont(m_look.family, size);
    else if (!CFontDatabase::instance()->fontExists(m_look.family))
        return fail(QStringLiteral("unknown font '%1'").arg(m_look.family));
    return true;
}

/// Puts the text on \a page in \a style.
bool ArtRendering::setUp(Page &page, int style, const QRectF &place)
{
    CVXRootObject *object = m_loader.createArtText(1, &page);
    page.addObject(object);
    ArtObject::Look look = m_look;
    look.style = style;
    ArtObject::setUp(object, m_text, look, place.size());
    object->setPos(place.topLeft(), false);
    // Without a text the object shows where it is; a picture of that is of no use to anybody.
    return object->canDo(OP_HasText) || fail(QStringLiteral("the page is empty"));
}

bool ArtRendering::renderOne()
{
    Document document(m_arguments.options.dpi);
    Page page(&document);
    const QSizeF size = m_arguments.box.isEmpty() ? usualSize : m_arguments.box;
    if (!setUp(page, m_look.style, QRectF(QPointF(0, 0), size)))
        return false;
    PageRenderer::Options options = m_arguments.options;
    options.metadata = metadataOf(m_arguments, m_text);
    PageRenderer renderer(&page, options);
    if (m_arguments.task == Arguments::Task::Check) {
        const bool isGood = renderer.check(m_arguments.format);
        m_outcome.size = renderer.pictureSize();
        return isGood || fail(renderer.errorString());
    }
    const QByteArray bytes = renderer.render(m_arguments.format);
    m_outcome.size = renderer.pictureSize();
    return bytes.isEmpty() ? fail(renderer.errorString()) : write(bytes);
}

bool ArtRendering::write(const QByteArray &bytes)
{
    QString error;
    if (!writeOutput(m_job.output, bytes, error))
        return fail(error);
    m_outcome.output = m_job.output;
    m_outcome.bytes = bytes.size();
    return true;
}

/// One style on a page of its own; null, with a message, when that cannot be.
QImage ArtRendering::cell(int style, const QSize &size)
{
    Document document;
    Page page(&document);
    const QRectF place =
        QRectF(QPointF(0, 0), size).adjusted(cellMargin, cellMargin, -cellMargin, -cellMargin);
    if (!setUp(page, style, place))
        return {};
    PageRenderer::Options options;
    options.page = size;
    options.background = m_arguments.options.background;
    PageRenderer renderer(&page, options);
    const QByteArray png = renderer.render(PageRenderer::Format::Png);
    if (png.isEmpty())
        fail(renderer.errorString());
    return QImage::fromData(png);
}

bool ArtRendering::renderSheet()
{
    const QSize size = (m_arguments.box.isEmpty() ? usualCell : m_arguments.box).toSize();
    const QStringList &names = ArtObject::styleNames();
    QVector<SheetCell> cells;
    for (int style = 0; style < names.size(); ++style) {
        const QImage picture = cell(style, size);
        if (picture.isNull())
            return false;
        cells.append({QStringLiteral("%1 %2").arg(style).arg(names.at(style)), picture});
    }
    const QImage sheet = contactSheet(cells, sheetColumns, m_arguments.options.background);
    if (sheet.isNull())
        return fail(QStringLiteral("the sheet would be too large"));
    m_outcome.size = sheet.size();
    return write(sheetBytes(sheet));
}
