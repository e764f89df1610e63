// SPDX-License-Identifier: MIT
#include "app/page/picture.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <cmath>

namespace {

constexpr double pointsPerInch = 72.0;

QString languageAlternative(const char *name, const QString &content)
{
    if (content.isEmpty())
        return {};
    return QStringLiteral(
               "<%1><rdf:Alt><rdf:li xml:lang=\"x-default\">%2</rdf:li></rdf:Alt></%1>\n")
        .arg(QLatin1String(name), xmlText(content));
}

QString property(const char *name, const QString &content)
{
    return content.isEmpty()
               ? QString()
               : QStringLiteral("<%1>%2</%1>\n").arg(QLatin1String(name), xmlText(content));
}

/// The metadata stream of the document.
QByteArray metadataStream(const PictureMetadata &metadata)
{
    const QString about = languageAlternative("dc:title", metadata.title)
                          + languageAlternative("dc:description", metadata.text)
                          + property("xmp:CreatorTool", metadata.creator)
                          + property("xmp:CreateDate", isoDate(metadata.date))
                          + property("xmp:ModifyDate", isoDate(metadata.date));
    return QStringLiteral("<?xpacket begin='' id='W5M0MpCehiHzreSzNTczkc9d'?>\n"
                          "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
                          "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                          "<rdf:Description rdf:about=\"\""
                          " xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
                          " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">\n"
                          "%1</rdf:Description>\n</rdf:RDF>\n</x:xmpmeta>\n<?xpacket end='w'?>\n")
        .arg(about)
        .toUtf8();
}

/// Puts \a date in the place of the present time, or nothing. The bytes behind keep their places, for
/// the file counts them.
bool replaceDate(QByteArray &pdf, const QDateTime &date)
{
    const int start = pdf.indexOf("/CreationDate (");
    const int end = pdf.indexOf(')', start);
    if (start < 0 || end < 0)
        return false;
    QByteArray entry;
    if (date.isValid()) {
        entry = QStringLiteral("/CreationDate (D:%1Z)")
                    .arg(date.toUTC().toString(QStringLiteral("yyyyMMddHHmmss")))
                    .toLatin1();
    }
    const int room = end + 1 - start;
    if (entry.size() > room)
        return false;
    pdf.replace(start, room, entry.leftJustified(room));
    return true;
}

} // namespace

QByteArray pdfPicture(const Picture &picture, QString &error)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(picture.metadata.title);
    writer.setCreator(picture.metadata.creator);
    writer.setDocumentXmpMetadata(metadataStream(picture.metadata));
    writer.setResolution(picture.dpi);
    // PDF pages are whole points here; rounded up, so that no ink is cut off.
    const double pointsPerPixel = pointsPerInch / picture.dpi;
    const QSizeF points(std::ceil(picture.size.width() * pointsPerPixel),
                        std::ceil(picture.size.height() * pointsPerPixel));
    writer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer)) {
        error = QStringLiteral("cannot make the PDF");
        return {};
    }
    if (picture.background.alpha() > 0)
        painter.fillRect(QRect(0, 0, writer.width(), writer.height()), picture.background);
    picture.paint(painter);
    QByteArray pdf;
    bool isMade = false;
    picture.work->aside([&] {
        painter.end(); // packs all that has been painted
        pdf = buffer.data();
        isMade = replaceDate(pdf, picture.metadata.date);
    });
    if (isMade)
        return pdf;
    error = QStringLiteral("cannot make the PDF");
    return {};
}
