// SPDX-License-Identifier: MIT
#include "app/pagehost/pictureexport.h"

#include "app/page/document.h"
#include "app/page/outputfile.h"
#include "app/page/page.h"
#include "app/page/textobject.h"
#include "app/pagehost/longwork.h"
#include "app/pagehost/pagesession.h"
#include "host/framework/cvxrootobject.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPicture>
#include <QPrinter>
#include <QTemporaryDir>

namespace {

constexpr double clipboardScale = 2;  // pixels of a copied picture for one of the page
constexpr double clipboardMargin = 1; // page pixels around it, for the edges of its outlines

struct PictureExportText {
    Q_DECLARE_TR_FUNCTIONS(PictureExport)
};

/// The texts of \a objects, with an empty line between two.
QString plainTextOf(const QList<CVXRootObject *> &objects)
{
    QStringList texts;
    for (CVXRootObject *object : objects) {
        const QString text = TextObject::plainText(object);
        if (!text.isEmpty() && object->isVisible())
            texts.append(text);
    }
    return texts.join(QLatin1String("\n\n"));
}

PageRenderer::Options optionsFor(const PageSession &session, const QList<CVXRootObject *> &objects,
                                 LongWork &work)
{
    PageRenderer::Options options;
    options.progress = [&work](int done, int total) { return work.step(done, total); };
    options.dpi = session.page()->getDocument()->getDpi();
    options.hints = true;
    options.metadata.text = plainTextOf(objects);
    options.metadata.title = titleOf(options.metadata.text);
    options.metadata.creator = QStringLiteral("pagehost");
    return options;
}

PageRenderer::Options optionsForPage(const PageSession &session, LongWork &work)
{
    PageRenderer::Options options = optionsFor(session, session.page()->objects(), work);
    options.page = session.size();
    options.background = session.background();
    return options;
}

/// The pixels of a PNG become its bytes beside the window, for that takes the longest.
QByteArray pictureBytes(PageRenderer &renderer, PageRenderer::Format format, QString &error,
                        LongWork &work)
{
    if (format != PageRenderer::Format::Png) {
        const QByteArray bytes = renderer.render(format);
        error = renderer.errorString();
        return bytes;
    }
    const QImage image = renderer.renderImage();
    error = renderer.errorString();
    QByteArray bytes;
    if (!image.isNull() && work.isWanted()) {
        work.aside(
            [&] { bytes = pngBytes(image, error, [&work](int, int) { return work.isWanted(); }); });
    }
    return bytes;
}

/// Writes what is still wanted when it has been read back.
bool writeWanted(const QString &fileName, const QByteArray &bytes, QString &error, LongWork &work)
{
    bool isWritten = false;
    const FileCheck check = [&work](const QByteArray &, QString &) { return work.isWanted(); };
    work.aside([&] { isWritten = writeFile(fileName, bytes, error, FormerFile::Dropped, check); });
    return isWritten;
}

/// The page as steps of painting, in page pixels. False when it is not wanted any more.
bool record(PageSession &session, QPicture &picture, LongWork &work)
{
    PageRenderer renderer(session.page(), optionsForPage(session, work));
    QPainter painter(&picture);
    return renderer.paint(painter);
}

/// Puts \a picture on the first sheet of \a printer.
bool putOnPaper(const PageSession &session, QPicture &picture, QPrinter &printer)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const QSizeF page = session.size();
    const QSizeF paper = printer.pageLayout().paintRectPixels(printer.resolution()).size();
    const int dpi = session.page()->getDocument()->getDpi();
    const double scale = qMin(double(printer.resolution()) / dpi,
                              qMin(paper.width() / page.width(), paper.height() / page.height()));
    // Played in another resolution a picture keeps its inches: here it is to keep its pixels.
    painter.scale(scale * picture.logicalDpiX() / printer.logicalDpiX(),
                  scale * picture.logicalDpiY() / printer.logicalDpiY());
    return picture.play(&painter) && painter.end();
}

/// A printer that writes a file writes it in place, piece by piece: it gets another one, which takes the
/// place of the former when it is whole.
bool printToFile(const PageSession &session, QPicture &picture, QPrinter &printer, QString &error,
                 LongWork &work)
{
    const QTemporaryDir folder;
    const QString fileName = printer.outputFileName();
    const QString whole = folder.filePath(QStringLiteral("paper.pdf"));
    printer.setOutputFileName(whole);
    bool isPainted = false;
    work.aside([&] { isPainted = putOnPaper(session, picture, printer); });
    printer.setOutputFileName(fileName);
    if (!work.isWanted())
        return false;
    QFile file(whole);
    if (!isPainted || !file.open(QIODevice::ReadOnly)) {
        error = PictureExportText::tr("the printer does not begin");
        return false;
    }
    return writeWanted(fileName, file.readAll(), error, work);
}

} // namespace

bool PictureExport::write(PageSession &session, PageRenderer::Format format,
                          const QString &fileName, double scale, QString &error, LongWork &work)
{
    session.endEdit();
    PageRenderer::Options options = optionsForPage(session, work);
    options.scale = scale;
    PageRenderer renderer(session.page(), options);
    const QByteArray bytes = pictureBytes(renderer, format, error, work);
    return !bytes.isEmpty() && work.isWanted() && writeWanted(fileName, bytes, error, work);
}

std::unique_ptr<QMimeData> PictureExport::selectionPicture(PageSession &session, QString &error,
                                                           LongWork &work)
{
    session.endEdit();
    const QList<CVXRootObject *> selected = session.page()->getSelectedObjects();
    if (selected.isEmpty())
        return nullptr;
    PageRenderer::Options options = optionsFor(session, selected, work);
    options.objects = selected;
    options.background = Qt::transparent;
    options.margin = clipboardMargin;
    options.scale = clipboardScale;
    PageRenderer renderer(session.page(), options);
    const QByteArray png = pictureBytes(renderer, PageRenderer::Format::Png, error, work);
    if (png.isEmpty())
        return nullptr;
    const QByteArray svg = pictureBytes(renderer, PageRenderer::Format::Svg, error, work);
    if (svg.isEmpty())
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    data->setImageData(QImage::fromData(png, "PNG"));
    data->setData(QStringLiteral("image/png"), png);
    data->setData(QStringLiteral("image/svg+xml"), svg);
    return data;
}

bool PictureExport::print(PageSession &session, QPrinter &printer, QString &error, LongWork &work)
{
    session.endEdit();
    const QString text = plainTextOf(session.page()->objects());
    printer.setDocName(session.fileName().isEmpty() ? titleOf(text) : session.fileName());
    error.clear();
    QPicture picture;
    if (!record(session, picture, work))
        return false;
    if (!printer.outputFileName().isEmpty())
        return printToFile(session, picture, printer, error, work);
    work.beginLastPart(); // a printer takes back nothing
    bool isPrinted = false;
    work.aside([&] { isPrinted = putOnPaper(session, picture, printer); });
    if (!isPrinted)
        error = PictureExportText::tr("the printer does not begin");
    return isPrinted;
}
