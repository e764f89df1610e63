// SPDX-License-Identifier: MIT
#include "app/page/textobject.h"

#include "app/page/textwarp.h"
#include "host/framework/cvxrootobject.h"

#include <QBuffer>
#include <QDataStream>

#include <functional>

namespace {

namespace Property {
constexpr int BeginEdit = 101;
constexpr int EndEdit = 102;
constexpr int StateFlag = 101; // to read
constexpr int MissingFonts = 111;
constexpr int ReplaceFont = 112;
constexpr int MissingFontHint = 113;
constexpr int PlainText = 116;
constexpr int Warp = 118;
constexpr int Overhang = 123;
} // namespace Property

constexpr int isHorizontalFlag = 2; // of StateFlag

const QString wordWrapKey = QStringLiteral("text_wordwrap");
const QString autoWordWrapKey = QStringLiteral("text_auto_wordwrap");

using Values = std::function<void(QDataStream &)>;

void set(CVXRootObject *object, int property, const Values &write = nullptr)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    if (write)
        write(stream);
    buffer.seek(0);
    object->SetSpecialProperty(property, stream, false);
}

/// \param question what the object reads from the stream before it answers
void get(CVXRootObject *object, int property, const Values &read, const Values &question = nullptr)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    if (question)
        question(stream);
    buffer.seek(0);
    if (!object->GetSpecialProperty(property, stream))
        return;
    buffer.seek(0);
    read(stream);
}

/// \a key acts only together with \a other.
void completePair(AttributeMap &attributes, const char *key, const char *other)
{
    if (attributes.contains(QLatin1String(key)) && !attributes.contains(QLatin1String(other)))
        attributes.insert(QLatin1String(other), false);
}

} // namespace

void TextObject::beginEdit(CVXRootObject *object)
{
    set(object, Property::BeginEdit);
}

void TextObject::endEdit(CVXRootObject *object)
{
    set(object, Property::EndEdit);
}

void TextObject::letBoxGrow(CVXRootObject *object)
{
    object->setAllAttributes({{wordWrapKey, true}, {autoWordWrapKey, true}}, /*withUndo=*/false);
}

bool TextObject::isVertical(CVXRootObject *object)
{
    bool isHorizontal = true;
    get(
        object, Property::StateFlag, [&](QDataStream &in) { in >> isHorizontal; },
        [](QDataStream &out) { out << isHorizontalFlag; });
    return !isHorizontal;
}

QString TextObject::plainText(CVXRootObject *object)
{
    QString text;
    get(object, Property::PlainText, [&](QDataStream &in) { in >> text; });
    if (!text.isEmpty())
        return text;
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    return attributes.value(QStringLiteral("text")).toString();
}

QPointF TextObject::overhang(CVXRootObject *object)
{
    double left = 0;
    double top = 0;
    get(object, Property::Overhang, [&](QDataStream &in) { in >> left >> top; });
    return {left, top};
}

QStringList TextObject::missingFonts(CVXRootObject *object)
{
    QStringList families;
    get(object, Property::MissingFonts, [&](QDataStream &in) {
        int count = 0;
        in >> count;
        for (int i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
            QString family;
            in >> family;
            families.append(family);
        }
    });
    return families;
}

void TextObject::replaceFont(CVXRootObject *object, const QString &family,
                             const QString &replacement)
{
    set(object, Property::ReplaceFont,
        [&](QDataStream &out) { out << family << replacement << QStringLiteral("confirm"); });
}

void TextObject::setMissingFontHint(CVXRootObject *object, const QString &hint)
{
    set(object, Property::MissingFontHint, [&](QDataStream &out) {
        out << !hint.isEmpty();
        if (!hint.isEmpty())
            out << hint;
    });
}

void TextObject::setAttributes(CVXRootObject *object, AttributeMap attributes)
{
    completePair(attributes, "text_superscript", "text_subscript");
    completePair(attributes, "text_subscript", "text_superscript");
    AttributeMap form; // alone: a box that becomes line text does not look at other keys
    for (const QString &key : {wordWrapKey, autoWordWrapKey}) {
        if (attributes.contains(key))
            form.insert(key, attributes.take(key));
    }
    if (!form.isEmpty())
        object->setAllAttributes(form, /*withUndo=*/false);
    if (!attributes.isEmpty())
        object->setAllAttributes(attributes, /*withUndo=*/false);
}

void TextObject::setWarp(CVXRootObject *object, const TextWarp &warp)
{
    constexpr bool commit = false; // shown at once, recorded never
    set(object, Property::Warp, [&](QDataStream &out) {
        out << warp.style << warp.value << warp.horizontal << warp.vertical
            << int(warp.acrossColumns ? Qt::Vertical : Qt::Horizontal) << commit;
    });
}
