// SPDX-License-Identifier: MIT
#include "app/page/picture.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QtMath>

namespace {

constexpr double inchesPerMetre = 1000.0 / 25.4;

/// Text chunks under the keywords that PNG names for them.
void addMetadata(QImage &image, const PictureMetadata &metadata)
{
    const QString date = metadata.date.isValid() ? metadata.date.toUTC().toString(Qt::RFC2822Date)
                                                 : QString();
    const std::pair<const char *, QString> chunks[] = {
        {"Title", metadata.title},
        {"Description", metadata.text},
        {"Software", metadata.creator},
        {"Creation Time", date},
    };
    for (const auto &chunk : chunks) {
        if (!chunk.second.isEmpty())
            image.setText(QLatin1String(chunk.first), chunk.second);
    }
}

/// Takes bytes as long as they are wanted.
class WantedBuffer : public QBuffer
{
public:
    explicit WantedBuffer(const Progress &progress)
        : m_progress(progress)
    {
    }
    bool wasWanted() const { return m_wasWanted; }

protected:
    qint64 writeData(const char *bytes, qint64 size) override
    {
        m_wasWanted = m_wasWanted && isWanted(m_progress, 0, 0);
        return m_wasWanted ? QBuffer::writeData(bytes, size) : -1;
    }

private:
    Progress m_progress;
    bool m_wasWanted = true;
};

} // namespace

QSize pngSize(const Picture &picture)
{
    return {qCeil(picture.size.width() * picture.scale),
            qCeil(picture.size.height() * picture.scale)};
}

QImage pngImage(const Picture &picture, QString &error)
{
    QImage image(pngSize(picture), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        error = QStringLiteral("not enough memory for the picture");
        return {};
    }
    image.fill(picture.background.alpha() > 0 ? picture.background : QColor(Qt::transparent));
    const int dotsPerMetre = qRound(picture.dpi * picture.scale * inchesPerMetre);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    QPainter painter(&image);
    painter.scale(picture.scale, picture.scale);
    picture.paint(painter);
    painter.end();
    addMetadata(image, picture.metadata);
    return image;
}

QByteArray pngBytes(const QImage &image, QString &error, const Progress &progress)
{
    error.clear();
    WantedBuffer buffer(progress);
    QImageWriter writer(&buffer, QByteArrayLiteral("png"));
    if (writer.write(image) && buffer.wasWanted())
        return buffer.data();
    if (buffer.wasWanted())
        error = QStringLiteral("cannot write the picture: %1").arg(writer.errorString());
    return {};
}

QByteArray pngPicture(const Picture &picture, QString &error)
{
    const QImage image = pngImage(picture, error);
    return image.isNull() ? QByteArray() : pngBytes(image, error);
}
