// SPDX-License-Identifier: MIT
// documenthost.cpp -- DocumentHost.
#include "host/framework/documenthost.h"

#include "host/framework/baserecord_p.h"
#include "host/framework/cundoredo.h"
#include "host/qimageex/qimageex.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QImage>
#include <QJsonObject>
#include <QStringList>

struct DocumentHost::StoredImage {
    explicit StoredImage(const QByteArray &bytes, const QImage &picture)
        : png(bytes)
        , image(picture)
    {
    }
    QByteArray png;
    QImageEx image;
};

namespace {

QString contentName(const QByteArray &png)
{
    const QByteArray digest = QCryptographicHash::hash(png, QCryptographicHash::Sha256).toHex();
    return QString::fromLatin1(digest.left(32)) + QStringLiteral(".png");
}

} // namespace

DocumentHost::DocumentHost(int dpi, CUndoRedo *stack)
    : m_dpi(dpi > 0 ? dpi : 96)
    , m_stack(stack)
{
}

DocumentHost::~DocumentHost() = default;

void DocumentHost::setDpi(int dpi)
{
    if (dpi > 0)
        m_dpi = dpi;
}

CUndoRedo *DocumentHost::undoStack() const
{
    return m_stack ? m_stack.data() : CUndoRedo::GetInstance();
}

void DocumentHost::beginUndoGroup(const QString &actionKey)
{
    undoStack()->beginGroup(actionKey);
    ++m_openGroups;
}

void DocumentHost::endUndoGroup()
{
    if (m_openGroups <= 0)
        return;
    --m_openGroups;
    undoStack()->endGroup();
}

void DocumentHost::storeImage(const QImage &image, QString &name, QString &second, int kind,
                              int quality, bool shareEqual)
{
    Q_UNUSED(kind)
    Q_UNUSED(quality) // PNG keeps every pixel
    name.clear();
    second.clear();
    if (image.isNull())
        return;
    const QByteArray png = BaseRecord::pngOf(image);
    if (png.isEmpty())
        return;
    name = contentName(png);
    if (!shareEqual) {
        const QString base = name;
        for (int copy = 2; m_images.count(name) > 0; ++copy)
            name = QString::number(copy) + QLatin1Char('-') + base;
    }
    if (m_images.count(name) == 0)
        m_images.emplace(name, std::make_unique<StoredImage>(png, image));
}

QImageEx *DocumentHost::imageByName(const QString &name)
{
    const auto found = m_images.find(name);
    return found == m_images.end() ? nullptr : &found->second->image;
}

bool DocumentHost::readImageFromStream(QDataStream &stream, QImage *image, int kind, QString &name)
{
    Q_UNUSED(kind)
    QString storedName;
    QByteArray png;
    stream >> storedName >> png;
    if (!image || stream.status() != QDataStream::Ok)
        return false;
    *image = BaseRecord::imageOf(png);
    if (image->isNull())
        return false;
    name = storedName.isEmpty() ? contentName(png) : storedName;
    return restoreImage(name, png);
}

bool DocumentHost::readImageFromJson(QJsonObject &json, QImage *image, const QString &key, int kind,
                                     QString &name)
{
    Q_UNUSED(kind)
    if (!image)
        return false;
    const QJsonValue value = json.value(key);
    const QJsonObject record = value.toObject();
    const QString base64 = value.isObject() ? record.value(QLatin1String("data")).toString()
                                            : value.toString();
    const QByteArray png = QByteArray::fromBase64(base64.toLatin1());
    *image = BaseRecord::imageOf(png);
    if (image->isNull())
        return false;
    const QString storedName = record.value(QLatin1String("name")).toString();
    name = storedName.isEmpty() ? contentName(png) : storedName;
    return restoreImage(name, png);
}

QStringList DocumentHost::imageNames() const
{
    QStringList names;
    for (const auto &entry : m_images)
        names.append(entry.first);
    return names;
}

QByteArray DocumentHost::imageData(const QString &name) const
{
    const auto found = m_images.find(name);
    return found == m_images.end() ? QByteArray() : found->second->png;
}

bool DocumentHost::restoreImage(const QString &name, const QByteArray &png)
{
    const QImage image = BaseRecord::imageOf(png);
    if (name.isEmpty() || image.isNull())
        return false;
    if (m_images.count(name) == 0) // an image in use is never exchanged under its name
        m_images.emplace(name, std::make_unique<StoredImage>(png, image));
    return true;
}

void DocumentHost::clearImages()
{
    m_images.clear();
}
