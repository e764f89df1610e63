// SPDX-License-Identifier: MIT
#include "app/page/picture.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>

namespace {

QString element(const char *name, const QString &content)
{
    return content.isEmpty()
               ? QString()
               : QStringLiteral("<%1>%2</%1>\n").arg(QLatin1String(name), xmlText(content));
}

/// Title, description and metadata, as they stand at the head of a file.
QByteArray head(const PictureMetadata &metadata)
{
    const QString about = element("dc:creator", metadata.creator)
                          + element("dc:date", isoDate(metadata.date));
    QString result = element("title", metadata.title) + element("desc", metadata.text);
    if (!about.isEmpty()) {
        result += QStringLiteral(
                      "<metadata>\n"
                      "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\""
                      " xmlns:dc=\"http://purl.org/dc/elements/1.1/\">\n"
                      "<rdf:Description rdf:about=\"\">\n%1</rdf:Description>\n"
                      "</rdf:RDF>\n</metadata>\n")
                      .arg(about);
    }
    return result.toUtf8();
}

/// Puts \a metadata in the place of what the generator says itself.
bool replaceHead(QByteArray &svg, const PictureMetadata &metadata)
{
    const QByteArray descriptionEnd("</desc>\n");
    const int start = svg.indexOf("<title>");
    const int end = svg.indexOf(descriptionEnd);
    if (start < 0 || end < start)
        return false;
    svg.replace(start, end + descriptionEnd.size() - start, head(metadata));
    return true;
}

} // namespace

QByteArray svgPicture(const Picture &picture, QString &error)
{
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(picture.dpi);
    generator.setSize(picture.size);
    generator.setViewBox(QRect(QPoint(0, 0), picture.size));
    QPainter painter;
    if (!painter.begin(&generator)) {
        error = QStringLiteral("cannot make the SVG");
        return {};
    }
    if (picture.background.alpha() > 0)
        painter.fillRect(QRect(QPoint(0, 0), picture.size), picture.background);
    picture.paint(painter);
    QByteArray svg;
    bool isMade = false;
    picture.work->aside([&] {
        painter.end();
        svg = buffer.data();
        isMade = replaceHead(svg, picture.metadata);
    });
    if (isMade)
        return svg;
    error = QStringLiteral("cannot make the SVG");
    return {};
}
