// SPDX-License-Identifier: MIT
#include "app/pagehost/textcommands.h"

#include "app/page/textobject.h"
#include "host/framework/cvxrootobject.h"

#include <QBuffer>
#include <QDataStream>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsTextItem>
#include <QJsonObject>
#include <QKeyEvent>

#include <thread>

namespace {

constexpr int richTextType = 65543;
constexpr int artTextType = 75747;

namespace Property {
constexpr int StateFlag = 101; // to read
constexpr int Cut = 125;
constexpr int Copy = 126;
constexpr int Paste = 127;
constexpr int CaretLine = 128; // to read
} // namespace Property

constexpr int isEditingFlag = 0;                      // of StateFlag
const QLatin1String documentDataKey("document_data"); // of a record

void command(CVXRootObject *object, int property, const QByteArray &arguments = QByteArray())
{
    QDataStream stream(arguments);
    object->SetSpecialProperty(property, stream, false);
}

/// What \a object answers to a property; \a fallback when it does not know it.
template<typename Value, typename... Question>
Value answer(CVXRootObject *object, int property, Value fallback, Question... question)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    static_cast<void>((stream << ... << question)); // of which there may be none
    buffer.seek(0);
    if (!object->GetSpecialProperty(property, stream))
        return fallback;
    buffer.seek(0);
    stream >> fallback;
    return fallback;
}

/// An art text enters its edit by a double click alone.
void clickTwice(CVXRootObject *object)
{
    QGraphicsItem *item = object->GetGraphicsItemPtr();
    if (!item->scene())
        return;
    const QPointF middle = object->getClientRect().center();
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseDoubleClick);
    event.setButton(Qt::LeftButton);
    event.setButtons(Qt::LeftButton);
    event.setPos(middle);
    event.setScenePos(item->mapToScene(middle));
    item->scene()->sendEvent(item, &event);
}

} // namespace

bool TextCommands::isRichText(const CVXRootObject *object)
{
    return object->GetType() == richTextType;
}

bool TextCommands::isArtText(const CVXRootObject *object)
{
    return object->GetType() == artTextType;
}

QGraphicsTextItem *TextCommands::editItem(CVXRootObject *object)
{
    if (!isArtText(object))
        return nullptr;
    return qobject_cast<QGraphicsTextItem *>(object->GetGraphicsItemPtr()->toGraphicsObject());
}

QString TextCommands::plainText(CVXRootObject *object)
{
    const QGraphicsTextItem *item = isEditing(object) ? editItem(object) : nullptr;
    return item ? item->toPlainText() : TextObject::plainText(object);
}

bool TextCommands::isEditing(CVXRootObject *object)
{
    if (isArtText(object))
        return object->actionState()->editing != 0;
    return answer(object, Property::StateFlag, false, isEditingFlag);
}

QLineF TextCommands::caretLine(CVXRootObject *object)
{
    return answer(object, Property::CaretLine, QLineF());
}

void TextCommands::beginEdit(CVXRootObject *object)
{
    if (isArtText(object))
        clickTwice(object);
    else
        TextObject::beginEdit(object);
}

QString TextCommands::documentString(CVXRootObject *object)
{
    IVxPage *page = object->GetPage();
    object->setBelongPage(nullptr); // away from its page it stores no picture
    QJsonObject record;
    bool isWritten = false;
    // Deliberate: a record asked for by another thread ends no edit.
    std::thread([&] { isWritten = object->saveJson(record); }).join();
    object->setBelongPage(page);
    if (!isWritten)
        return {};
    for (const QJsonValue &member : qAsConst(record)) {
        const QJsonValue data = member.toObject().value(documentDataKey);
        if (data.isString())
            return data.toString();
    }
    return {};
}

void TextCommands::sendKey(CVXRootObject *object, int key, Qt::KeyboardModifiers modifiers)
{
    QGraphicsItem *item = object->GetGraphicsItemPtr();
    if (!item->scene())
        return;
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    item->scene()->sendEvent(item, &press);
}

void TextCommands::cut(CVXRootObject *object)
{
    if (isArtText(object))
        sendKey(object, Qt::Key_X, Qt::ControlModifier);
    else
        command(object, Property::Cut);
}

void TextCommands::copy(CVXRootObject *object)
{
    if (isArtText(object))
        sendKey(object, Qt::Key_C, Qt::ControlModifier);
    else
        command(object, Property::Copy);
}

void TextCommands::paste(CVXRootObject *object, bool newObject, bool rich)
{
    if (isArtText(object)) {
        sendKey(object, Qt::Key_V, Qt::ControlModifier);
        return;
    }
    QByteArray arguments;
    QDataStream stream(&arguments, QIODevice::WriteOnly);
    stream << newObject << rich;
    command(object, Property::Paste, arguments);
}
