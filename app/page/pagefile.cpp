// SPDX-License-Identifier: MIT
#include "app/page/pagefile.h"

#include "app/page/attributekeys.h"
#include "app/page/document.h"
#include "app/page/jsonfields.h"
#include "app/page/pagetext.h"
#include "app/page/textrecord.h"

#include <QJsonArray>

namespace {

const QLatin1String formatName("vxpage");
const QLatin1String richText("rich_text");
const QLatin1String artText("art_text");
const QLatin1String objectsKey("objects");
const QLatin1String imagesKey("images");
constexpr double largestTurn = 36000; // degrees
constexpr int largestVersion = 1000000;

QString elementPath(const char *list, int index)
{
    return QStringLiteral("%1[%2]").arg(QLatin1String(list)).arg(index);
}

/// Reads the objects that the program knows by their kind.
class ObjectReader
{
public:
    ObjectReader(const QJsonObject &source, int index, const QMap<QString, QByteArray> &images,
                 QString *error)
        : m_fields(source, elementPath("objects", index), error)
        , m_images(images)
        , m_error(error)
    {
        m_object.source = source;
    }

    bool read()
    {
        if (!m_fields.require("kind") || !m_fields.text("kind", m_object.kind)
            || !m_fields.text("name", m_object.name))
            return false;
        const bool isArt = m_object.kind == artText;
        if (m_object.kind != richText && !isArt)
            return true; // kept as it is
        if (isArt && !m_fields.require("record"))
            return false;
        if (m_fields.has("record")) {
            m_object.form = PageObject::Form::Record;
            return readRecord();
        }
        m_object.form = PageObject::Form::Written;
        return m_fields.require("text") && m_fields.text("text", m_object.text) && readLayout()
               && readPlace() && readAttributes() && readPicture();
    }

    const PageObject &object() const { return m_object; }

private:
    /// Without a version an object would take nothing from its record, and the next one it writes would
    /// be empty.
    bool readRecord()
    {
        if (!m_fields.object("record", m_object.record))
            return false;
        JsonFields fields(m_object.record, m_fields.pathOf(QStringLiteral("record")), m_error);
        int version = 0;
        return fields.require("version")
               && fields.wholeNumber("version", 1, largestVersion, version);
    }

    bool readLayout()
    {
        int layout = 0;
        int direction = 0;
        const bool ok = m_fields.word("layout",
                                      {QStringLiteral("line"), QStringLiteral("box"),
                                       QStringLiteral("growing_box")},
                                      layout)
                        && m_fields.word("direction",
                                         {QStringLiteral("horizontal"), QStringLiteral("vertical")},
                                         direction);
        m_object.layout = static_cast<PageObject::Layout>(layout);
        m_object.vertical = direction == 1;
        return ok;
    }

    bool readPlace()
    {
        double x = 0;
        double y = 0;
        double width = 0;
        double height = 0;
        const double far = PageFile::farthest;
        if (!m_fields.number("x", -far, far, x) || !m_fields.number("y", -far, far, y)
            || !m_fields.positive("width", far, width) || !m_fields.positive("height", far, height)
            || !m_fields.number("rotation", -largestTurn, largestTurn, m_object.rotation)
            || !m_fields.flag("flip", m_object.flip) || !m_fields.flag("mirror", m_object.mirror))
            return false;
        const bool sized = m_object.layout != PageObject::Layout::Line || width > 0 || height > 0;
        if (sized && (!m_fields.require("width") || !m_fields.require("height")))
            return false;
        m_object.pos = m_object.picturePos = QPointF(x, y);
        m_object.size = QSizeF(width, height);
        return true;
    }

    bool readAttributes()
    {
        QJsonObject attributes;
        if (!m_fields.object("attributes", attributes))
            return false;
        JsonFields fields(attributes, m_fields.pathOf(QStringLiteral("attributes")), m_error);
        for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it) {
            if (!PageObject::isWrittenAttribute(it.key()))
                continue; // kept, without effect
            const AttributeKey *attribute = attributeKey(it.key());
            QJsonValue value;
            QString reason;
            if (!attributeValue(*attribute, it.value(), m_object.vertical, value, reason))
                return fields.fail(it.key(), reason);
            const bool ofRuns = attribute->scope == AttributeKey::Scope::Run;
            (ofRuns ? m_object.runAttributes : m_object.paragraphAttributes)
                .insert(it.key(), value);
        }
        return true;
    }

    bool readPicture()
    {
        QJsonObject picture;
        if (!m_fields.object("picture", picture))
            return false;
        if (!m_fields.has("picture"))
            return true;
        JsonFields fields(picture, m_fields.pathOf(QStringLiteral("picture")), m_error);
        double x = m_object.pos.x();
        double y = m_object.pos.y();
        const double far = PageFile::farthest;
        if (!fields.require("image") || !fields.text("image", m_object.picture)
            || !fields.number("x", -far, far, x) || !fields.number("y", -far, far, y))
            return false;
        if (!m_images.contains(m_object.picture)) {
            return fields.fail(QStringLiteral("image"),
                               PageText::tr("there is no image '%1'").arg(m_object.picture));
        }
        m_object.picturePos = QPointF(x, y);
        return true;
    }

    JsonFields m_fields;
    const QMap<QString, QByteArray> &m_images;
    QString *m_error;
    PageObject m_object;
};

bool readFormat(JsonFields &root)
{
    QString format;
    if (!root.require("format") || !root.text("format", format))
        return false;
    if (format != formatName)
        return root.fail(QStringLiteral("format"), PageText::tr("must be \"vxpage\""));
    int version = 0;
    if (!root.require("version") || !root.wholeNumber("version", 1, largestVersion, version))
        return false;
    if (version > PageFile::version) {
        return root.fail(QStringLiteral("version"),
                         PageText::tr("%1 is newer than this program, which knows %2")
                             .arg(version)
                             .arg(PageFile::version));
    }
    return true;
}

bool readImages(JsonFields &root, QString *error, QMap<QString, QByteArray> &images)
{
    QJsonObject source;
    if (!root.object("images", source))
        return false;
    JsonFields fields(source, QStringLiteral("images"), error);
    for (auto it = source.constBegin(); it != source.constEnd(); ++it) {
        const auto decoded =
            QByteArray::fromBase64Encoding(it.value().toString().toLatin1(),
                                           QByteArray::AbortOnBase64DecodingErrors);
        if (!it.value().isString() || !decoded || it.key().isEmpty())
            return fields.fail(it.key(), PageText::tr("must be a PNG in base64, under a name"));
        images.insert(it.key(), *decoded);
    }
    return true;
}

} // namespace

bool PageObject::isWrittenAttribute(const QString &key)
{
    const AttributeKey *attribute = attributeKey(key);
    return attribute && attribute->scope != AttributeKey::Scope::Object;
}

bool PageFile::isPageFile(const QJsonObject &root)
{
    return root.contains(QLatin1String("format")) || root.contains(QLatin1String("page"))
           || root.contains(QLatin1String("objects"));
}

QString PageFile::richTextKind()
{
    return richText;
}

QString PageFile::artTextKind()
{
    return artText;
}

bool PageFile::read(const QJsonObject &root, QString &error)
{
    error.clear();
    QMap<QString, QByteArray> images;
    JsonFields fields(root, QString(), &error);
    // The format first: of a file of another kind no other field is worth a word.
    return readFormat(fields) && readImages(fields, &error, images) && read(root, images, error);
}

bool PageFile::read(const QJsonObject &root, const QMap<QString, QByteArray> &images,
                    QString &error)
{
    error.clear();
    PageFile file;
    JsonFields fields(root, QString(), &error);
    QJsonObject page;
    QJsonArray objects;
    if (!readFormat(fields) || !fields.require("page") || !fields.object("page", page)
        || !fields.list("objects", objects) || !file.readPage(page, error))
        return false;
    file.m_source = root;
    file.m_source.remove(imagesKey);
    if (root.value(imagesKey) == QJsonObject()) // an empty one comes back
        file.m_source.insert(imagesKey, QJsonObject());
    if (!objects.isEmpty())
        file.m_source.remove(objectsKey);
    file.m_images = images;
    if (!file.readObjects(objects, error))
        return false;
    *this = file;
    return true;
}

bool PageFile::readObjects(const QJsonArray &list, QString &error)
{
    JsonFields fields(QJsonObject(), QString(), &error);
    int characters = 0;
    for (int i = 0; i < list.size(); ++i) {
        if (!list.at(i).isObject())
            return fields.fail(elementPath("objects", i), PageText::tr("must be an object {...}"));
        ObjectReader reader(list.at(i).toObject(), i, m_images, &error);
        if (!reader.read())
            return false;
        const int left = maximumCharacters - characters;
        if (reader.object().text.size() > left)
            return fields
                .fail(elementPath("objects", i),
                      PageText::tr("the page has more than %1 characters").arg(maximumCharacters));
        characters += reader.object().text.size();
        m_objects.append(reader.object());
    }
    return true;
}

bool PageFile::readPage(const QJsonObject &page, QString &error)
{
    JsonFields fields(page, QStringLiteral("page"), &error);
    int width = 0;
    int height = 0;
    QString background = m_background.name();
    if (!fields.require("width") || !fields.wholeNumber("width", 1, maximumSide, width)
        || !fields.require("height") || !fields.wholeNumber("height", 1, maximumSide, height)
        || !fields.wholeNumber("dpi", Document::minimumDpi, Document::maximumDpi, m_dpi)
        || !fields.text("background", background))
        return false;
    m_size = QSize(width, height);
    m_background = QColor(background);
    if (m_background.isValid())
        return true;
    return fields.fail(QStringLiteral("background"),
                       PageText::tr("must be a colour: a name, #rrggbb or transparent"));
}

QJsonObject PageFile::sheet() const
{
    QJsonObject sheet = m_source;
    if (!m_objects.isEmpty())
        sheet.remove(objectsKey);
    if (!m_images.isEmpty())
        sheet.remove(imagesKey);
    return sheet;
}

QJsonObject PageFile::toJson() const
{
    QJsonObject root = sheet();
    QJsonArray objects;
    for (const PageObject &object : m_objects)
        objects.append(object.source);
    if (!objects.isEmpty())
        root.insert(objectsKey, objects);
    QJsonObject images;
    for (auto it = m_images.constBegin(); it != m_images.constEnd(); ++it)
        images.insert(it.key(), QString::fromLatin1(it.value().toBase64()));
    if (!images.isEmpty())
        root.insert(imagesKey, images);
    return root;
}

void PageFile::setContent(const QVector<PageObject> &objects,
                          const QMap<QString, QByteArray> &images)
{
    m_objects = objects;
    m_images = images;
}
