// SPDX-License-Identifier: MIT
#include "app/pagehost/textcommands.h"

#include "host/framework/cvxrootobject.h"

#include <QBuffer>
#include <QDataStream>

namespace {

constexpr int richTextType = 65543;

namespace Property {
constexpr int StateFlag = 101; // to read
constexpr int PlainText = 116;
constexpr int Cut = 125;
constexpr int Copy = 126;
constexpr int Paste = 127;
} // namespace Property

constexpr int isEditingFlag = 0; // of StateFlag

void command(CVXRootObject *object, int property, const QByteArray &arguments = QByteArray())
{
    QDataStream stream(arguments);
    object->SetSpecialProperty(property, stream, false);
}

} // namespace

bool TextCommands::isRichText(CVXRootObject *object)
{
    return object->GetType() == richTextType;
}

QString TextCommands::plainText(CVXRootObject *object)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    QString text;
    if (!object->GetSpecialProperty(Property::PlainText, stream))
        return text;
    buffer.seek(0);
    stream >> text;
    return text;
}

bool TextCommands::isEditing(CVXRootObject *object)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    stream << isEditingFlag;
    buffer.seek(0);
    if (!object->GetSpecialProperty(Property::StateFlag, stream))
        return false;
    buffer.seek(0);
    bool editing = false;
    stream >> editing;
    return editing;
}

void TextCommands::cut(CVXRootObject *object)
{
    command(object, Property::Cut);
}

void TextCommands::copy(CVXRootObject *object)
{
    command(object, Property::Copy);
}

void TextCommands::paste(CVXRootObject *object, bool newObject, bool rich)
{
    QByteArray arguments;
    QDataStream stream(&arguments, QIODevice::WriteOnly);
    stream << newObject << rich;
    command(object, Property::Paste, arguments);
}
