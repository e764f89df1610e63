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
    explicit WantedBuffer(const LongWork *work)
        : m_work(work)
    {
    }

protected:
    qint64 writeData(const char *bytes, qint64 size) override
    {
        return m_work->isWanted() ? QBuffer::writeData(bytes, size) : -1;
    }

private:
    const LongWork *m_work;
};

/// \a image as a PNG. Empty, with a sentence in \a error, when that cannot be.
QByteArray pngBytes(const QImage &image, const LongWork *work, QString &error)
{
    WantedBuffer buffer(work);
    QImageWriter writer(&buffer, QByteArrayLiteral("png"));
    if (writer.write(image))
        return buffer.data();
    if (work->isWanted())
        error = QStringLiteral("cannot write the picture: %1").arg(writer.errorString());
    return {};
}

} // namespace

QSize pngSize(const Picture &picture)
{
    return {qCeil(picture.size.width() * picture.scale),
            qCeil(picture.size.height() * picture.scale)};
}

QByteArray pngPicture(const Picture &picture, QString &error)
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
    QByteArray bytes;
    if (picture.work->isWanted())
        picture.work->aside([&] { bytes = pngBytes(image, picture.work, error); });
    return bytes;
}
