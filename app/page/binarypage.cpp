// SPDX-License-Identifier: MIT
// binarypage.cpp -- a magic, a version, and sections: a tag of four bytes, a count of bytes, the bytes.
#include "app/page/binarypage.h"

#include "app/page/jsonfields.h"
#include "app/page/pagefile.h"
#include "app/page/pagetext.h"
#include "app/page/recordform.h"

#include <QJsonArray>
#include <QtEndian>

#include <limits>
#include <optional>

namespace {

// A byte above 127 and both kinds of line end: a transfer as text is told at once.
const QByteArray magic("\x89VXPAGE\r\n\n", 10);
constexpr quint32 binaryVersion = 1;
constexpr int headSize = 14;       // magic, version
constexpr int sectionHeadSize = 8; // tag, count
constexpr int countSize = 4;

namespace Tag {
const QByteArray Page("PAGE");   // JSON
const QByteArray Image("IMAG");  // name, PNG
const QByteArray Object("OBJT"); // JSON, stream record
const QByteArray End("END ");    // empty
} // namespace Tag

const QLatin1String objectsKey("objects");
const QLatin1String imagesKey("images");
const QLatin1String recordKey("record");
const QLatin1String sectionsKey("vxpage_sections"); // those that are unknown, in JSON
const QLatin1String tagKey("tag");
const QLatin1String dataKey("data");
const QLatin1String foreignRecordKey("stream_record"); // that of an unknown kind, in JSON

bool isKnown(const QByteArray &tag)
{
    return tag == Tag::Page || tag == Tag::Image || tag == Tag::Object || tag == Tag::End;
}

/// The kind of the records of \a object; none when that is of a kind that the program does not know.
std::optional<RecordKind> recordKindOf(const QJsonObject &object)
{
    const QString kind = object.value(QLatin1String("kind")).toString();
    if (kind == PageFile::richTextKind())
        return RecordKind::RichText;
    if (kind == PageFile::artTextKind())
        return RecordKind::ArtText;
    return std::nullopt;
}

QByteArray bytesOf(quint32 number)
{
    QByteArray bytes(countSize, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

quint32 numberAt(const QByteArray &bytes, int at)
{
    return qFromBigEndian<quint32>(bytes.constData() + at);
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// Bytes out of base64 that toBase64() would write so; false for anything else.
bool exactBase64(const QJsonValue &value, QByteArray &bytes)
{
    const QByteArray text = value.toString().toLatin1();
    bytes = QByteArray::fromBase64(text);
    return value.isString() && bytes.toBase64() == text
           && QString::fromLatin1(text) == value.toString();
}

struct Section {
    QByteArray tag;
    QByteArray content;
    int start = 0; ///< of the content, in the file
};

class Reader
{
public:
    Reader(const QByteArray &bytes, QString &error)
        : m_bytes(bytes)
        , m_error(error)
    {
    }

    bool read(PageFile &file)
    {
        if (!readHead())
            return false;
        Section section;
        do {
            if (!readSection(section) || !take(section))
                return false;
        } while (section.tag != Tag::End);
        if (m_at != m_bytes.size())
            return fail(m_at, PageText::tr("there are bytes behind the end of the page"));
        return finish(file);
    }

private:
    bool fail(int at, const QString &reason)
    {
        m_error = PageText::tr("at byte %1: %2").arg(at).arg(reason);
        return false;
    }

    bool readHead()
    {
        if (!isBinaryPage(m_bytes))
            return fail(0, PageText::tr("it is no page file"));
        if (m_bytes.size() < headSize)
            return fail(m_bytes.size(), PageText::tr("the file ends in its first line"));
        m_at = headSize;
        const quint32 version = numberAt(m_bytes, magic.size());
        if (version == 0)
            return fail(magic.size(), PageText::tr("the version must be 1 or more"));
        if (version <= binaryVersion)
            return true;
        return fail(magic.size(),
                    PageText::tr("version %1 is newer than this program, which knows %2")
                        .arg(version)
                        .arg(binaryVersion));
    }

    bool readSection(Section &section)
    {
        const int left = m_bytes.size() - m_at;
        if (left < sectionHeadSize)
            return fail(m_at, PageText::tr("the file is cut short: there is no end of the page"));
        section.tag = m_bytes.mid(m_at, Tag::End.size());
        const quint32 count = numberAt(m_bytes, m_at + Tag::End.size());
        if (count > quint32(left - sectionHeadSize)) {
            return fail(m_at, PageText::tr("section '%1' says %2 bytes, of which %3 are there")
                                  .arg(nameOf(section))
                                  .arg(count)
                                  .arg(left - sectionHeadSize));
        }
        section.start = m_at + sectionHeadSize;
        section.content = m_bytes.mid(section.start, int(count));
        m_at = section.start + int(count);
        return true;
    }

    static QString nameOf(const Section &section) { return QString::fromLatin1(section.tag); }

    bool take(const Section &section)
    {
        if (section.tag == Tag::Page)
            return takePage(section);
        if (m_root.isEmpty())
            return fail(section.start, PageText::tr("section 'PAGE' must be the first"));
        if (section.tag == Tag::Image)
            return takeImage(section);
        if (section.tag == Tag::Object)
            return takeObject(section);
        if (section.tag != Tag::End) {
            m_unknown.append(
                QJsonObject{{tagKey, nameOf(section)},
                            {dataKey, QString::fromLatin1(section.content.toBase64())}});
            return true;
        }
        return section.content.isEmpty()
               || fail(section.start, PageText::tr("section 'END ' must be empty"));
    }

    /// JSON that may lie as deep as it may in the JSON form, where two levels stand above it.
    bool parse(const QByteArray &json, int start, QJsonObject &object)
    {
        constexpr int levels = 2;
        QJsonDocument document;
        QJsonParseError parse;
        document = QJsonDocument::fromJson("[[" + json + "]]", &parse);
        if (parse.error != QJsonParseError::NoError) {
            return fail(start + qBound(0, parse.offset - levels, json.size()),
                        PageText::tr("no JSON: %1").arg(parse.errorString()));
        }
        const QJsonArray inner = document.array().at(0).toArray();
        if (document.array().size() != 1 || inner.size() != 1 || !inner.at(0).isObject())
            return fail(start, PageText::tr("must be one JSON object {...}"));
        object = inner.at(0).toObject();
        return true;
    }

    bool takePage(const Section &section)
    {
        if (!m_root.isEmpty())
            return fail(section.start, PageText::tr("there is a second section 'PAGE'"));
        if (!parse(section.content, section.start, m_root))
            return false;
        m_pageStart = section.start;
        if (m_root.isEmpty())
            return fail(section.start, PageText::tr("the page is empty"));
        const QJsonValue objects = m_root.value(objectsKey);
        const QJsonValue images = m_root.value(imagesKey);
        const bool isSheet = (objects.isUndefined() || objects == QJsonArray())
                             && (images.isUndefined() || images == QJsonObject());
        if (!isSheet) {
            return fail(section.start,
                        PageText::tr("objects and images must have sections of their own"));
        }
        return true;
    }

    /// Parts \a content into what a count at its start tells and the rest.
    bool part(const Section &section, QByteArray &first, QByteArray &rest)
    {
        const int left = section.content.size() - countSize;
        const quint32 count = left < 0 ? 0 : numberAt(section.content, 0);
        if (left < 0 || count > quint32(left)) {
            return fail(section.start, PageText::tr("section '%1' is too short for what it holds")
                                           .arg(nameOf(section)));
        }
        first = section.content.mid(countSize, int(count));
        rest = section.content.mid(countSize + int(count));
        return true;
    }

    bool takeImage(const Section &section)
    {
        QByteArray bytes;
        QByteArray image;
        if (!part(section, bytes, image))
            return false;
        const QString name = QString::fromUtf8(bytes);
        if (name.isEmpty() || name.toUtf8() != bytes)
            return fail(section.start, PageText::tr("the name of an image must be UTF-8"));
        if (m_images.contains(name)) {
            return fail(section.start, PageText::tr("there is a second image '%1'").arg(name));
        }
        m_images.insert(name, image);
        return true;
    }

    bool takeObject(const Section &section)
    {
        QByteArray json;
        QByteArray stream;
        QJsonObject object;
        if (!part(section, json, stream) || !parse(json, section.start + countSize, object))
            return false;
        const int streamStart = section.start + countSize + json.size();
        const std::optional<RecordKind> kind = recordKindOf(object);
        if (!stream.isEmpty() && kind) {
            QJsonObject record;
            QString reason;
            if (!joinedRecord({stream, object.value(recordKey).toObject()}, record, reason,
                              *kind)) {
                return fail(streamStart, PageText::tr("objects[%1].record: %2")
                                             .arg(m_objects.size())
                                             .arg(reason));
            }
            object.insert(recordKey, record);
        } else if (!stream.isEmpty()) {
            object.insert(foreignRecordKey, QString::fromLatin1(stream.toBase64()));
        }
        m_objects.append(object);
        m_objectStarts.append(section.start);
        return true;
    }

    bool finish(PageFile &file)
    {
        if (m_root.contains(sectionsKey) && !m_unknown.isEmpty()) {
            return fail(m_pageStart,
                        PageText::tr("%1: there are such sections already").arg(sectionsKey));
        }
        if (!m_unknown.isEmpty())
            m_root.insert(sectionsKey, m_unknown);
        const bool hadObjects = m_root.contains(objectsKey);
        QJsonObject root = m_root;
        if (hadObjects || !m_objects.isEmpty())
            root.insert(objectsKey, m_objects);
        QString reason;
        PageFile result;
        if (!result.read(root, m_images, reason))
            return fail(startOf(reason), reason);
        file = result;
        return true;
    }

    /// Where the section begins that the path at the start of \a error leads to.
    int startOf(const QString &error) const
    {
        for (int i = 0; i < m_objectStarts.size(); ++i) {
            if (error.startsWith(QStringLiteral("%1[%2]").arg(objectsKey).arg(i)))
                return m_objectStarts.at(i);
        }
        return m_pageStart;
    }

    const QByteArray &m_bytes;
    QString &m_error;
    int m_at = 0;
    QJsonObject m_root; ///< empty until the section came
    int m_pageStart = 0;
    QJsonArray m_objects;
    QVector<int> m_objectStarts;
    QMap<QString, QByteArray> m_images;
    QJsonArray m_unknown;
};

class Writer
{
public:
    Writer(QString &error)
        : m_error(error)
    {
    }

    bool write(const PageFile &file)
    {
        m_bytes = magic + bytesOf(binaryVersion);
        QJsonObject sheet = file.sheet();
        const QVector<Section> unknown = takeUnknown(sheet);
        bool ok = add(Tag::Page, compact(sheet));
        const QMap<QString, QByteArray> &images = file.images();
        for (auto it = images.constBegin(); ok && it != images.constEnd(); ++it) {
            const QByteArray name = it.key().toUtf8();
            ok = add(Tag::Image, bytesOf(quint32(name.size())) + name + it.value());
        }
        for (const PageObject &object : file.objects())
            ok = ok && addObject(object.source);
        for (const Section &section : unknown)
            ok = ok && add(section.tag, section.content);
        return ok && add(Tag::End, QByteArray());
    }

    const QByteArray &bytes() const { return m_bytes; }

private:
    bool add(const QByteArray &tag, const QByteArray &content)
    {
        constexpr qint64 limit = std::numeric_limits<int>::max()
                                 / 2; // of a QByteArray, and reserve
        if (qint64(m_bytes.size()) + content.size() > limit) {
            m_error = PageText::tr("the page is too large for a file");
            return false;
        }
        m_bytes += tag + bytesOf(quint32(content.size())) + content;
        return true;
    }

    bool addObject(QJsonObject object)
    {
        QByteArray stream;
        const std::optional<RecordKind> kind = recordKindOf(object);
        if (!kind) {
            if (exactBase64(object.value(foreignRecordKey), stream) && !stream.isEmpty())
                object.remove(foreignRecordKey);
            else
                stream.clear();
        } else if (object.value(recordKey).isObject()) {
            const StreamRecord parts = streamRecord(object.value(recordKey).toObject(), *kind);
            stream = parts.bytes;
            object.insert(recordKey, parts.rest);
        }
        const QByteArray json = compact(object);
        return add(Tag::Object, bytesOf(quint32(json.size())) + json + stream);
    }

    /// Takes the unknown sections out of \a sheet, unless they are no such list.
    static QVector<Section> takeUnknown(QJsonObject &sheet)
    {
        QVector<Section> sections;
        const QJsonArray list = sheet.value(sectionsKey).toArray();
        for (const QJsonValue &value : list) {
            const QJsonObject entry = value.toObject();
            Section section;
            const QString tag = entry.value(tagKey).toString();
            section.tag = tag.toLatin1();
            const bool isExact = entry.size() == 2 && section.tag.size() == Tag::End.size()
                                 && QString::fromLatin1(section.tag) == tag && !isKnown(section.tag)
                                 && exactBase64(entry.value(dataKey), section.content);
            if (!isExact)
                return {};
            sections.append(section);
        }
        if (!sections.isEmpty())
            sheet.remove(sectionsKey);
        return sections;
    }

    QString &m_error;
    QByteArray m_bytes;
};

} // namespace

bool isBinaryPage(const QByteArray &bytes)
{
    return bytes.startsWith(magic);
}

bool readBinaryPage(const QByteArray &bytes, PageFile &file, QString &error)
{
    return Reader(bytes, error).read(file);
}

bool binaryPage(const PageFile &file, QByteArray &bytes, QString &error)
{
    Writer writer(error);
    if (!writer.write(file))
        return false;
    bytes = writer.bytes();
    return true;
}
