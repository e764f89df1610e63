// SPDX-License-Identifier: MIT
#include "app/pagehost/pictureexport.h"

#include "app/page/document.h"
#include "app/page/longwork.h"
#include "app/page/outputfile.h"
#include "app/page/page.h"
#include "app/page/textobject.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pausededit.h"
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
    options.work = &work;
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

/// Writes what is still wanted when it has been read back.
bool writeWanted(const QString &fileName, const QByteArray &bytes, QString &error, LongWork &work)
{
    bool isWritten = false;
    const FileCheck check = [&work](const QByteArray &, QString &) { return work.isWanted(); };
    work.aside([&] { isWritten = writeFile(fileName, bytes, error, FormerFile::Dropped, check); });
    return isWritten;
}

/// Begins to paint on the first sheet of \a printer, in page pixels.
bool beginPaper(const PageSession &session, QPrinter &printer, QPainter &painter, QString &error)
{
    if (!painter.begin(&printer)) {
        error = PictureExportText::tr("the printer does not begin");
        return false;
    }
    const QSizeF page = session.size();
    const QSizeF paper = printer.pageLayout().paintRectPixels(printer.resolution()).size();
    const int dpi = session.page()->getDocument()->getDpi();
    const double scale = qMin(double(printer.resolution()) / dpi,
                              qMin(paper.width() / page.width(), paper.height() / page.height()));
    painter.scale(scale, scale);
    return true;
}

/// A printer that writes a file writes it in place, piece by piece: it gets another one, which takes the
/// place of the former when it is whole.
bool printToFile(PageSession &session, QPrinter &printer, QString &error, LongWork &work)
{
    const QTemporaryDir folder;
    const QString fileName = printer.outputFileName();
    QFile file(folder.filePath(QStringLiteral("paper.pdf")));
    printer.setOutputFileName(file.fileName());
    QPainter painter;
    const bool isBegun = beginPaper(session, printer, painter, error);
    bool isPainted = false;
    if (isBegun) {
        PageRenderer renderer(session.page(), optionsForPage(session, work));
        isPainted = renderer.paint(painter);
        work.aside([&] { painter.end(); }); // packs all that has been painted
    }
    printer.setOutputFileName(fileName);
    if (!isPainted || !work.isWanted())
        return false;
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return false;
    }
    return writeWanted(fileName, file.readAll(), error, work);
}

/// What a printer has got cannot be taken back: it gets the page when the whole of it is painted.
bool printOnPaper(PageSession &session, QPrinter &printer, QString &error, LongWork &work)
{
    QPicture picture;
    PageRenderer renderer(session.page(), optionsForPage(session, work));
    QPainter recorder(&picture);
    if (!renderer.paint(recorder))
        return false;
    recorder.end();
    work.beginLastPart();
    bool isPrinted = false;
    work.aside([&] {
        QPainter painter;
        if (!beginPaper(session, printer, painter, error))
            return;
        isPrinted = PictureExport::play(picture, painter) && painter.end();
    });
    return isPrinted;
}

} // namespace

bool PictureExport::write(PageSession &session, PageRenderer::Format format,
                          const QString &fileName, double scale, QString &error, LongWork &work)
{
    const PausedEdit pause(session);
    PageRenderer::Options options = optionsForPage(session, work);
    options.scale = scale;
    PageRenderer renderer(session.page(), options);
    const QByteArray bytes = renderer.render(format);
    error = renderer.errorString();
    return !bytes.isEmpty() && writeWanted(fileName, bytes, error, work);
}

std::unique_ptr<QMimeData> PictureExport::selectionPicture(PageSession &session, QString &error,
                                                           LongWork &work)
{
    const PausedEdit pause(session);
    const QList<CVXRootObject *> selected = session.page()->getSelectedObjects();
    if (selected.isEmpty())
        return nullptr;
    PageRenderer::Options options = optionsFor(session, selected, work);
    options.objects = selected;
    options.background = Qt::transparent;
    options.margin = clipboardMargin;
    options.scale = clipboardScale;
    PageRenderer renderer(session.page(), options);
    const QByteArray png = renderer.render(PageRenderer::Format::Png);
    const QByteArray svg = png.isEmpty() ? png : renderer.render(PageRenderer::Format::Svg);
    if (svg.isEmpty()) {
        error = renderer.errorString();
        return nullptr;
    }
    auto data = std::make_unique<QMimeData>();
    data->setImageData(QImage::fromData(png, "PNG"));
    data->setData(QStringLiteral("image/png"), png);
    data->setData(QStringLiteral("image/svg+xml"), svg);
    return data;
}

bool PictureExport::play(QPicture &picture, QPainter &painter)
{
    const QPaintDevice *device = painter.device();
    painter.save();
    painter.scale(double(picture.logicalDpiX()) / device->logicalDpiX(),
                  double(picture.logicalDpiY()) / device->logicalDpiY());
    const bool isPlayed = picture.play(&painter);
    painter.restore();
    return isPlayed;
}

bool PictureExport::print(PageSession &session, QPrinter &printer, QString &error, LongWork &work)
{
    const PausedEdit pause(session);
    const QString text = plainTextOf(session.page()->objects());
    printer.setDocName(session.fileName().isEmpty() ? titleOf(text) : session.fileName());
    error.clear();
    return printer.outputFileName().isEmpty() ? printOnPaper(session, printer, error, work)
                                              : printToFile(session, printer, error, work);
}
