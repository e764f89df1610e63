// SPDX-License-Identifier: MIT
#include "app/page/textrecord.h"

#include "app/page/jsonfields.h"
#include "host/framework/cvxrootobject.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>

#include <utility>

namespace {

namespace Direction {
constexpr int Horizontal = 1;
constexpr int Vertical = 2;
} // namespace Direction

const QLatin1String blockKey("block");
const QLatin1String fragmentKey("fragment");
const QLatin1String contentKey("content");
const QLatin1String familyKey("font_family");
const QLatin1String directionKey("text_direction");
const QLatin1String wordWrapKey("text_wordwrap");
const QLatin1String documentDataKey("document_data");
const QLatin1String newVersionKey("new_version");
const QLatin1String pictureKey("font_imgage"); // spelled so in every record

/// The parameters of a record that say how the object looks: they are left out of the record that
/// carries a document string, so that the string alone decides.
bool isParameterOfLook(const QString &key)
{
    return key.startsWith(QLatin1String("transform_"))
           || key.startsWith(QLatin1String("boxBounds_"))
           || key.startsWith(QLatin1String("boundingBox_"))
           || key.startsWith(QLatin1String("warp_")) || key.startsWith(QLatin1String("img_"))
           || key == pictureKey || key == QLatin1String("document_dpi");
}

QStringList paragraphs(const QString &text)
{
    QString normal = text;
    normal.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    normal.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    normal.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    if (normal.endsWith(QLatin1Char('\n')))
        normal.chop(1);
    return normal.split(QLatin1Char('\n'));
}

DocumentStringInfo invalid(const QString &error)
{
    DocumentStringInfo info;
    info.error = error;
    return info;
}

void inspectRuns(const QJsonArray &runs, DocumentStringInfo &info)
{
    for (const QJsonValue &value : runs) {
        const QJsonObject run = value.toObject();
        const QString content = run.value(contentKey).toString();
        info.characters += content.size();
        info.text += content;
        const QString family = run.value(familyKey).toString();
        if (!content.isEmpty() && !family.isEmpty() && !info.families.contains(family))
            info.families.append(family);
    }
}

/// The parameters that say where the text lies: for box text its box, of stretch 1 and without
/// overhang.
void insertPlace(QJsonObject &parameters, const TextPlace &place)
{
    if (place.box.isEmpty())
        return;
    const std::pair<const char *, double> values[] = {
        {"transform_xx", 1},
        {"transform_yy", 1},
        {"transform_xy", 0},
        {"transform_yx", 0},
        {"transform_tx", place.pos.x()},
        {"transform_ty", place.pos.y()},
        {"boxBounds_left", 0},
        {"boxBounds_top", 0},
        {"boxBounds_right", place.box.width()},
        {"boxBounds_bottom", place.box.height()},
        {"boundingBox_left", 0},
        {"boundingBox_top", 0},
        {"boundingBox_right", place.box.width()},
        {"boundingBox_bottom", place.box.height()},
    };
    for (const auto &value : values)
        parameters.insert(QLatin1String(value.first), value.second);
}

/// Key of the member of \a record that holds the object's parameters; empty for none.
QString parametersKey(const QJsonObject &record)
{
    for (auto it = record.constBegin(); it != record.constEnd(); ++it) {
        if (it->isObject() && it->toObject().contains(documentDataKey))
            return it.key();
    }
    return {};
}

} // namespace

QString documentString(const QString &text, const TextStyle &style)
{
    const QJsonObject run{{familyKey, style.family},
                          {QStringLiteral("font_pointsize"), style.pointSize},
                          {QStringLiteral("pen_color"), style.color}};
    return documentString(text, run, {{QStringLiteral("textalignment"), 1}}, style.vertical);
}

QString documentString(const QString &text, const QJsonObject &runAttributes,
                       const QJsonObject &paragraphAttributes, bool vertical)
{
    QJsonArray blocks;
    QJsonArray fragments;
    const QStringList lines = paragraphs(text);
    for (const QString &line : lines) {
        QJsonObject run = runAttributes;
        run.insert(contentKey, line);
        blocks.append(paragraphAttributes);
        fragments.append(QJsonArray{run});
    }
    const QJsonObject document{{blockKey, blocks},
                               {fragmentKey, fragments},
                               {directionKey,
                                vertical ? Direction::Vertical : Direction::Horizontal},
                               {wordWrapKey, false},
                               {QStringLiteral("text_auto_wordwrap"), false}};
    return QString::fromUtf8(QJsonDocument(document).toJson(QJsonDocument::Compact));
}

DocumentStringInfo inspectDocumentString(const QString &string)
{
    QJsonDocument document;
    QString error;
    if (!parseJson(string.toUtf8(), document, error))
        return invalid(error);
    const QJsonObject root = document.object();
    if (!root.value(blockKey).isArray() || !root.value(fragmentKey).isArray())
        return invalid(
            QStringLiteral("no document: it lacks the lists \"block\" and \"fragment\""));
    const QJsonArray blocks = root.value(blockKey).toArray();
    const QJsonArray fragments = root.value(fragmentKey).toArray();
    if (blocks.size() != fragments.size()) {
        return invalid(QStringLiteral("no document: %1 in \"block\", %2 in \"fragment\"")
                           .arg(blocks.size())
                           .arg(fragments.size()));
    }
    DocumentStringInfo info;
    info.valid = true;
    info.vertical = root.value(directionKey).toInt() == Direction::Vertical;
    info.wrapped = root.value(wordWrapKey).toBool();
    for (int i = 0; i < fragments.size(); ++i) {
        if (i > 0)
            info.text += QLatin1Char('\n');
        inspectRuns(fragments.at(i).toArray(), info);
    }
    return info;
}

bool DocumentStringInfo::isCaretPosition(int position) const
{
    if (position < 0 || position > text.size())
        return false;
    const bool isInside = position > 0 && position < text.size();
    return !isInside || !text.at(position - 1).isHighSurrogate()
           || !text.at(position).isLowSurrogate();
}

QString changedDocument(const QString &string, const DocumentChange &change)
{
    QJsonObject root = QJsonDocument::fromJson(string.toUtf8()).object();
    QJsonArray blocks = root.value(blockKey).toArray();
    for (int i = 0; i < blocks.size() && !change.paragraph.isEmpty(); ++i) {
        QJsonObject block = blocks.at(i).toObject();
        for (auto it = change.paragraph.begin(); it != change.paragraph.end(); ++it)
            block.insert(it.key(), it.value());
        blocks[i] = block;
    }
    root.insert(blockKey, blocks);
    if (change.wrapped)
        root.insert(wordWrapKey, true);
    return QString::fromUtf8(QJsonDocument(root).toJson(QJsonDocument::Compact));
}

bool loadDocumentString(CVXRootObject *object, const QString &string,
                        const DocumentStringInfo &info, const TextPlace &place)
{
    QJsonObject record;
    if (!object || !object->saveJson(record))
        return false;
    const QString key = parametersKey(record);
    if (key.isEmpty())
        return false;
    QJsonObject parameters = record.value(key).toObject();
    const QStringList names = parameters.keys();
    for (const QString &name : names) {
        if (isParameterOfLook(name))
            parameters.remove(name);
    }
    parameters.insert(documentDataKey, string);
    parameters.insert(newVersionKey, true);
    parameters.insert(wordWrapKey, info.wrapped);
    parameters.insert(QStringLiteral("TextOrientation"),
                      info.vertical ? Direction::Vertical : Direction::Horizontal);
    insertPlace(parameters, place);
    // Without a picture too: an object looks for missing fonts where it looks for its picture.
    parameters.insert(pictureKey, place.picture);
    parameters.insert(QStringLiteral("img_x"), place.picturePos.x());
    parameters.insert(QStringLiteral("img_y"), place.picturePos.y());
    record.insert(key, parameters);
    record.insert(QStringLiteral("flip"), place.flip);
    record.insert(QStringLiteral("mirror"), place.mirror);
    record.insert(QStringLiteral("x"), place.pos.x());
    record.insert(QStringLiteral("y"), place.pos.y());
    return object->loadJson(record);
}

bool setSelection(CVXRootObject *object, int start, int end)
{
    QJsonObject record;
    if (!object || !object->saveJson(record))
        return false;
    const QString key = parametersKey(record);
    if (key.isEmpty())
        return false;
    QJsonObject parameters = record.value(key).toObject();
    QJsonObject document =
        QJsonDocument::fromJson(parameters.value(documentDataKey).toString().toUtf8()).object();
    document.insert(QStringLiteral("cursor_position"), end);
    document.insert(QStringLiteral("selection_start"), start);
    document.insert(QStringLiteral("selection_end"), end);
    parameters.insert(documentDataKey,
                      QString::fromUtf8(QJsonDocument(document).toJson(QJsonDocument::Compact)));
    parameters.insert(pictureKey, QString()); // what it was saved with is the text itself
    record.insert(key, parameters);
    return object->loadJson(record);
}

bool writeWithoutPicture(CVXRootObject *object, QJsonObject &record)
{
    // Away from its page the object has no document, and so stores no picture.
    IVxPage *page = object->GetPage();
    object->setBelongPage(nullptr);
    const bool isWritten = object->saveJson(record);
    object->setBelongPage(page);
    return isWritten;
}

QByteArray recordState(CVXRootObject *object)
{
    QJsonObject record;
    return writeWithoutPicture(object, record) ? recordState(record) : QByteArray();
}

QByteArray recordState(const QJsonObject &written)
{
    QJsonObject record = written;
    record.remove(QStringLiteral("z"));
    const QString key = parametersKey(record);
    QJsonObject parameters = record.value(key).toObject();
    QJsonObject document =
        QJsonDocument::fromJson(parameters.value(documentDataKey).toString().toUtf8()).object();
    for (const char *name : {"cursor_position", "selection_start", "selection_end"})
        document.remove(QLatin1String(name));
    for (const char *name : {"font_imgage", "img_x", "img_y"})
        parameters.remove(QLatin1String(name));
    parameters.insert(documentDataKey, document);
    if (!key.isEmpty())
        record.insert(key, parameters);
    return QCryptographicHash::hash(QJsonDocument(record).toJson(QJsonDocument::Compact),
                                    QCryptographicHash::Sha256);
}

void removePicture(QJsonObject &record)
{
    const QString key = parametersKey(record);
    if (key.isEmpty())
        return;
    QJsonObject parameters = record.value(key).toObject();
    parameters.remove(QStringLiteral("img_x"));
    parameters.remove(QStringLiteral("img_y"));
    parameters.insert(pictureKey, QString());
    record.insert(key, parameters);
}

bool standsByPicture(const QJsonObject &record)
{
    const QJsonObject parameters = record.value(parametersKey(record)).toObject();
    return !parameters.isEmpty() && !parameters.value(newVersionKey).toBool();
}

bool lacksPicture(const QJsonObject &record)
{
    return record.value(parametersKey(record)).toObject().value(pictureKey) == QString();
}

QString pictureOfRecord(const QJsonObject &record)
{
    for (const QJsonValue &member : record) {
        const QJsonValue name = member.toObject().value(pictureKey);
        if (name.isString())
            return name.toString();
    }
    return {};
}
