// SPDX-License-Identifier: MIT
#include "app/pagehost/pictureexport.h"

#include "app/page/document.h"
#include "app/page/outputfile.h"
#include "app/page/page.h"
#include "app/page/textobject.h"
#include "app/pagehost/pagesession.h"
#include "host/framework/cvxrootobject.h"

#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPrinter>

namespace {

constexpr double clipboardScale = 2;  // pixels of a copied picture for one of the page
constexpr double clipboardMargin = 1; // page pixels around it, for the edges of its outlines

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

PageRenderer::Options optionsFor(const PageSession &session, const QList<CVXRootObject *> &objects)
{
    PageRenderer::Options options;
    options.dpi = session.page()->getDocument()->getDpi();
    options.hints = true;
    options.metadata.text = plainTextOf(objects);
    options.metadata.title = titleOf(options.metadata.text);
    options.metadata.creator = QStringLiteral("pagehost");
    return options;
}

PageRenderer::Options optionsForPage(const PageSession &session)
{
    PageRenderer::Options options = optionsFor(session, session.page()->objects());
    options.page = session.size();
    options.background = session.background();
    return options;
}

} // namespace

bool PictureExport::write(PageSession &session, PageRenderer::Format format,
                          const QString &fileName, double scale, QString &error)
{
    session.endEdit();
    PageRenderer::Options options = optionsForPage(session);
    options.scale = scale;
    PageRenderer renderer(session.page(), options);
    const QByteArray bytes = renderer.render(format);
    if (bytes.isEmpty()) {
        error = renderer.errorString();
        return false;
    }
    return writeFile(fileName, bytes, error);
}

std::unique_ptr<QMimeData> PictureExport::selectionPicture(PageSession &session, QString &error)
{
    session.endEdit();
    const QList<CVXRootObject *> selected = session.page()->getSelectedObjects();
    if (selected.isEmpty())
        return nullptr;
    PageRenderer::Options options = optionsFor(session, selected);
    options.objects = selected;
    options.background = Qt::transparent;
    options.margin = clipboardMargin;
    options.scale = clipboardScale;
    PageRenderer renderer(session.page(), options);
    const QByteArray png = renderer.render(PageRenderer::Format::Png);
    const QByteArray svg = renderer.render(PageRenderer::Format::Svg);
    if (png.isEmpty() || svg.isEmpty()) {
        error = renderer.errorString();
        return nullptr;
    }
    auto data = std::make_unique<QMimeData>();
    data->setImageData(QImage::fromData(png, "PNG"));
    data->setData(QStringLiteral("image/png"), png);
    data->setData(QStringLiteral("image/svg+xml"), svg);
    return data;
}

bool PictureExport::print(PageSession &session, QPrinter &printer)
{
    session.endEdit();
    const QString text = plainTextOf(session.page()->objects());
    printer.setDocName(session.fileName().isEmpty() ? titleOf(text) : session.fileName());
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const QSizeF page = session.size();
    const QSizeF paper = printer.pageLayout().paintRectPixels(printer.resolution()).size();
    const int dpi = session.page()->getDocument()->getDpi();
    const double scale = qMin(double(printer.resolution()) / dpi,
                              qMin(paper.width() / page.width(), paper.height() / page.height()));
    painter.scale(scale, scale);
    PageRenderer renderer(session.page(), optionsForPage(session));
    return renderer.paint(painter) && painter.end();
}
