// SPDX-License-Identifier: MIT
#include "app/page/openpage.h"

#include "app/page/document.h"
#include "app/page/page.h"
#include "app/page/pagebuilder.h"
#include "app/page/pagestorage.h"
#include "app/page/pagetext.h"
#include "app/page/textobject.h"
#include "app/page/textrecord.h"
#include "host/framework/cvxrootobject.h"

#include <QGraphicsTextItem>
#include <QSet>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <thread>

namespace {

const QLatin1String kindKey("kind");
const QLatin1String recordKey("record");
const QLatin1String olderPictureKey("JSON_TEXT_IMG_DATA");

QGraphicsObject *itemOf(CVXRootObject *object)
{
    return object->GetGraphicsItemPtr()->toGraphicsObject();
}

QString colorName(const QColor &color)
{
    return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
}

/// Keeps of the member \a key of \a object what the form by hand does not know.
template<typename IsKnown>
void keepUnknown(QJsonObject &object, QLatin1String key, IsKnown isKnown)
{
    QJsonObject member = object.value(key).toObject();
    const QStringList names = member.keys();
    for (const QString &name : names) {
        if (isKnown(name))
            member.remove(name);
    }
    if (member.isEmpty())
        object.remove(key);
    else
        object.insert(key, member);
}

/// An object of the form by hand without what stands in its record from now on.
QJsonObject withoutWrittenForm(QJsonObject source)
{
    for (const char *key :
         {"text", "layout", "direction", "x", "y", "width", "height", "rotation", "flip", "mirror"})
        source.remove(QLatin1String(key));
    keepUnknown(source, QLatin1String("attributes"), PageObject::isWrittenAttribute);
    keepUnknown(source, QLatin1String("picture"), [](const QString &name) {
        return name == QLatin1String("image") || name == QLatin1String("x")
               || name == QLatin1String("y");
    });
    return source;
}

/// The kind under which page files hold \a object; empty for one that they do not have.
QString kindOf(const CVXRootObject *object)
{
    const QString name = object->getObjName();
    if (name == QLatin1String("wb text"))
        return PageFile::richTextKind();
    return name == QLatin1String("art text") ? PageFile::artTextKind() : QString();
}

/// The present \a record with those keys of the \a former one that objects do not know.
QJsonObject withFormerKeys(QJsonObject record, const QJsonObject &former)
{
    for (auto it = former.constBegin(); it != former.constEnd(); ++it) {
        if (!record.contains(it.key()) && it.key() != olderPictureKey)
            record.insert(it.key(), it.value());
    }
    return record;
}

/// What \a item shows: its text with what is being composed in it.
QString typedText(const QGraphicsTextItem &item)
{
    const QString text = item.toPlainText();
    const QTextCursor cursor = item.textCursor();
    const QTextLayout *layout = cursor.block().layout();
    if (!layout || layout->preeditAreaText().isEmpty())
        return text;
    const int place = cursor.block().position() + layout->preeditAreaPosition();
    return text.left(place) + layout->preeditAreaText() + text.mid(place);
}

/// Puts what the user has typed into the \a record of an art text in the middle of its edit: the
/// object itself takes it over at the end of the edit.
void takeTypedText(CVXRootObject *object, QJsonObject &record)
{
    if (kindOf(object) != PageFile::artTextKind() || object->actionState()->editing == 0)
        return;
    const auto *item = qobject_cast<QGraphicsTextItem *>(itemOf(object));
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    const QString stored = attributes.value(QStringLiteral("text")).toString();
    if (item && typedText(*item) != QTextDocument(stored).toPlainText())
        record.insert(QStringLiteral("textWord"), typedText(*item));
}

/// The name of the image that the program knows \a object to use; empty for none.
QString imageOf(const PageObject &object)
{
    return object.form == PageObject::Form::Record ? pictureOfRecord(object.record)
                                                   : object.picture;
}

QSet<QString> imagesOf(const QVector<PageObject> &objects)
{
    QSet<QString> names;
    for (const PageObject &object : objects)
        names.insert(imageOf(object));
    names.remove(QString());
    return names;
}

} // namespace

OpenPage::OpenPage(const PageFile &file)
    : m_file(file)
    , m_document(std::make_unique<Document>(file.dpi()))
    , m_page(std::make_unique<Page>(m_document.get()))
{
}

OpenPage::~OpenPage() = default;

std::unique_ptr<OpenPage> OpenPage::create(const QSize &size, int dpi, const QColor &background,
                                           QString &error)
{
    const QJsonObject sheet{{QStringLiteral("width"), size.width()},
                            {QStringLiteral("height"), size.height()},
                            {QStringLiteral("dpi"), dpi},
                            {QStringLiteral("background"), colorName(background)}};
    const QJsonObject root{{QStringLiteral("format"), QStringLiteral("vxpage")},
                           {QStringLiteral("version"), PageFile::version},
                           {QStringLiteral("page"), sheet}};
    PageFile file;
    if (!file.read(root, error))
        return nullptr;
    return std::unique_ptr<OpenPage>(new OpenPage(file));
}

std::unique_ptr<OpenPage> OpenPage::load(const PluginLoader &loader, const QString &fileName,
                                         QString &error, const Progress &progress)
{
    PageFile file;
    if (!readPageFile(fileName, file, error))
        return nullptr;
    return load(loader, file, fileName, error, progress);
}

std::unique_ptr<OpenPage> OpenPage::load(const PluginLoader &loader, const PageFile &file,
                                         const QString &fileName, QString &error,
                                         const Progress &progress)
{
    std::unique_ptr<OpenPage> open(new OpenPage(file));
    QString reason;
    if (open->build(loader, reason, progress))
        return open;
    error = reason.isEmpty() ? reason : QStringLiteral("'%1': %2").arg(fileName, reason);
    return nullptr;
}

bool OpenPage::build(const PluginLoader &loader, QString &error, const Progress &progress)
{
    PageBuilder builder(&loader, m_document.get(), m_page.get());
    const int count = m_file.objects().size();
    const auto making = [&](int done, int) { return isWanted(progress, done, 2 * count); };
    if (!builder.load(m_file, making)) {
        error = builder.errorString();
        return false;
    }
    builder.arrange();
    m_warnings = builder.warnings();
    const QVector<CVXRootObject *> objects = builder.objects();
    for (CVXRootObject *object : objects) {
        if (!isWanted(progress, count + m_entries.size(), 2 * count))
            return false;
        Entry entry{m_entries.size(), object, nullptr, {}};
        if (object) {
            entry.alive = itemOf(object);
            entry.state = recordState(object);
        }
        m_entries.append(entry);
    }
    return true;
}

const OpenPage::Entry *OpenPage::entryOf(const CVXRootObject *object) const
{
    // An object that has ended may have left its address to another one.
    for (const Entry &entry : m_entries) {
        if (entry.object == object && entry.alive)
            return &entry;
    }
    return nullptr;
}

QString OpenPage::nameOf(const CVXRootObject *object) const
{
    const Entry *entry = entryOf(object);
    return entry ? m_file.objects().at(entry->source).name : QString();
}

bool OpenPage::save(const QString &fileName, QString &error, FormerFile former)
{
    PageFile file;
    QString reason;
    if (toFile(file, reason))
        return writePageFile(fileName, file, error, former);
    error = QStringLiteral("'%1': %2").arg(fileName, reason);
    return false;
}

bool OpenPage::toFile(PageFile &file, QString &error, const Progress &progress)
{
    if (CVXRootObject *editing = m_page->editingObject())
        TextObject::endEdit(editing);
    return gather(file, error, /*without=*/nullptr, Pictures::All, progress);
}

/// A record ends the edit of its text, and with it a composition, but only on the thread of the
/// application: on any other one an object cannot tell its host. So the records are made on another
/// thread, while this one stands still and nothing can change.
bool OpenPage::snapshot(PageFile &file, QString &error, const CVXRootObject *without)
{
    bool done = false;
    std::thread([&] { done = gather(file, error, without, Pictures::NeededHere, nullptr); }).join();
    return done;
}

void OpenPage::completePictures()
{
    for (Entry &entry : m_entries) {
        if (lacksPicture(m_file.objects().at(entry.source).record))
            entry.state.clear(); // counts as changed
    }
}

bool OpenPage::gather(PageFile &file, QString &error, const CVXRootObject *without,
                      Pictures pictures, const Progress &progress) const
{
    int count = 0;
    const QMap<const CVXRootObject *, QVector<PageObject>> unknown = unknownByPlace();
    QVector<PageObject> objects = unknown.value(nullptr);
    for (CVXRootObject *object : m_page->objects()) {
        if (!isWanted(progress, count++, m_page->objects().size()))
            return false;
        if (object->isCreateFinished() && object != without) {
            PageObject description;
            if (!describe(object, pictures, description, error))
                return false;
            objects.append(description);
        }
        objects += unknown.value(object);
    }
    PageFile result = m_file;
    result.setContent(objects, imagesFor(objects));
    file = result;
    return true;
}

/// The objects of unknown kinds by the object behind which they stand: that of the file, or, where it
/// has left the page, the one ahead of it. Null stands for the bottom of the page.
QMap<const CVXRootObject *, QVector<PageObject>> OpenPage::unknownByPlace() const
{
    QMap<const CVXRootObject *, QVector<PageObject>> unknown;
    const CVXRootObject *below = nullptr;
    for (const Entry &entry : m_entries) {
        if (!entry.object)
            unknown[below].append(m_file.objects().at(entry.source));
        else if (entry.alive && m_page->objects().contains(entry.object))
            below = entry.object;
    }
    return unknown;
}

bool OpenPage::describe(CVXRootObject *object, Pictures pictures, PageObject &description,
                        QString &error) const
{
    const Entry *entry = entryOf(object);
    if (entry)
        description = m_file.objects().at(entry->source);
    QJsonObject typed;
    takeTypedText(object, typed);
    QJsonObject record;
    bool isWritten = writeWithoutPicture(object, record);
    if (entry && !entry->state.isEmpty() && typed.isEmpty() && isWritten
        && recordState(record) == entry->state)
        return true;
    const QString kind = kindOf(object);
    if (kind.isEmpty()) {
        error =
            PageText::tr("page files have no objects of the kind '%1'").arg(object->getObjName());
        return false;
    }
    if (pictures == Pictures::All || standsByPicture(record)
        || !TextObject::missingFonts(object).isEmpty())
        isWritten = object->saveJson(record = QJsonObject());
    else
        removePicture(record);
    if (!isWritten) {
        error =
            PageText::tr("objects[%1]: it writes no record").arg(m_page->objects().indexOf(object));
        return false;
    }
    takeTypedText(object, record);
    if (description.form == PageObject::Form::Written)
        description.source = withoutWrittenForm(description.source);
    PageObject result;
    result.form = PageObject::Form::Record;
    result.kind = kind;
    result.name = description.name;
    result.record = withFormerKeys(record, description.record);
    result.source = description.source;
    result.source.insert(kindKey, result.kind);
    result.source.insert(recordKey, result.record);
    description = result;
    return true;
}

/// The images that \a objects use, and those of the file that it may hold for a use unknown here.
QMap<QString, QByteArray> OpenPage::imagesFor(const QVector<PageObject> &objects) const
{
    QMap<QString, QByteArray> images = m_file.images();
    const QSet<QString> formerNames = imagesOf(m_file.objects());
    const QSet<QString> names = imagesOf(objects);
    for (const QString &name : formerNames) {
        if (!names.contains(name))
            images.remove(name);
    }
    for (const QString &name : names) {
        const QByteArray png = m_document->imageData(name);
        if (!images.contains(name) && !png.isEmpty())
            images.insert(name, png);
    }
    return images;
}
