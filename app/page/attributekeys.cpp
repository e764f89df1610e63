// SPDX-License-Identifier: MIT
#include "app/page/attributekeys.h"

#include "app/page/pagetext.h"
#include "app/page/paragraphstyle.h"

#include <QColor>

#include <cmath>

namespace {

using Type = AttributeKey::Type;
using Scope = AttributeKey::Scope;

constexpr int largestAlignment = 0x800;

// clang-format off
constexpr AttributeKey keys[] = {
    {"font_family",                     Type::Text,      Scope::Run,       0},
    {"font_bold",                       Type::Flag,      Scope::Run,       0},
    {"font_italic",                     Type::Flag,      Scope::Run,       0},
    {"font_letterspacing",              Type::Number,    Scope::Run,       0},
    {"selected_letterspacing",          Type::Number,    Scope::Run,       0},
    {"font_pointsize",                  Type::Size,      Scope::Run,       0},
    {"font_underline",                  Type::Flag,      Scope::Run,       0},
    {"font_strikeout",                  Type::Flag,      Scope::Run,       0},
    {"pen_color",                       Type::Color,     Scope::Run,       0},
    {"font_style",                      Type::Text,      Scope::Run,       0},
    {"vertical_scaled",                 Type::Number,    Scope::Run,       0},
    {"horizontal_scaled",               Type::Number,    Scope::Run,       0},
    {"baseline_offset",                 Type::Number,    Scope::Run,       0},
    {"text_upper",                      Type::Flag,      Scope::Run,       0},
    {"text_superscript",                Type::Flag,      Scope::Run,       0},
    {"text_subscript",                  Type::Flag,      Scope::Run,       0},
    {"font_rowspacing",                 Type::Number,    Scope::Run,       0},
    {"ori_font_family",                 Type::Text,      Scope::Run,       0},
    {"textalignment",                   Type::Alignment, Scope::Paragraph, 0},
    {"paragraph_left_indent",           Type::Number,    Scope::Paragraph, 0},
    {"paragraph_right_indent",          Type::Number,    Scope::Paragraph, 0},
    {"paragraph_after_space",           Type::Number,    Scope::Paragraph, 0},
    {"paragraph_before_space",          Type::Number,    Scope::Paragraph, 0},
    {"paragraph_first_indent",          Type::Number,    Scope::Paragraph, 0},
    {"text_ligature",                   Type::Flag,      Scope::Paragraph, 0},
    {"paragraph_head_tail_punctuation", Type::Choice,    Scope::Paragraph, 2},
    {"paragraph_punctuation_extra",     Type::Choice,    Scope::Paragraph, 1},
    {"text",                            Type::Text,      Scope::Object,    0},
    {"text_wordwrap",                   Type::Flag,      Scope::Object,    0},
    {"text_auto_wordwrap",              Type::Flag,      Scope::Object,    0},
    {"text_horizontal",                 Type::Flag,      Scope::Object,    0},
    {"defaultword",                     Type::Text,      Scope::Object,    0},
    {"defaultFollow",                   Type::Flag,      Scope::Object,    0},
};
// clang-format on

bool isNumberFor(Type type, int limit, double number)
{
    switch (type) {
    case Type::Number:
        return std::abs(number) <= largestAttribute;
    case Type::Size:
        return number > 0 && number <= largestAttribute;
    case Type::Choice:
        return number >= 0 && number <= limit && number == std::floor(number);
    case Type::Alignment:
        return number >= 1 && number <= largestAlignment && number == std::floor(number);
    case Type::Flag:
    case Type::Color:
    case Type::Text:
        break;
    }
    return false;
}

QString expectation(const AttributeKey &attribute)
{
    switch (attribute.type) {
    case Type::Flag:
        return PageText::tr("must be true or false");
    case Type::Number:
        return PageText::tr("must be a number from -%1 to %1").arg(largestAttribute);
    case Type::Size:
        return PageText::tr("must be a number above 0 and up to %1").arg(largestAttribute);
    case Type::Choice:
        return PageText::tr("must be a whole number from 0 to %1").arg(attribute.limit);
    case Type::Alignment:
        return PageText::tr("must be one of %1").arg(alignmentNames().join(QLatin1String(", ")));
    case Type::Color:
        return PageText::tr("must be a colour: a name, #rrggbb or #aarrggbb");
    case Type::Text:
        return PageText::tr("must be a text");
    }
    return {};
}

/// The value as JSON of the type that the key has; undefined for what no value can be made of.
QJsonValue valueOfText(const AttributeKey &attribute, const QString &text, bool vertical)
{
    if (attribute.type == Type::Text)
        return text;
    if (attribute.type == Type::Color) {
        const QColor color(text);
        if (!color.isValid())
            return QJsonValue::Undefined;
        return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
    }
    if (attribute.type == Type::Alignment) {
        const Alignment alignment = alignmentOf(text);
        if (!alignment.name.isEmpty())
            return vertical ? alignment.inColumns : alignment.inLines;
    }
    return QJsonValue::Undefined;
}

} // namespace

const AttributeKey *attributeKey(const QString &name)
{
    for (const AttributeKey &attribute : keys) {
        if (name == QLatin1String(attribute.name))
            return &attribute;
    }
    return nullptr;
}

bool attributeValue(const AttributeKey &attribute, const QJsonValue &value, bool vertical,
                    QJsonValue &result, QString &reason)
{
    if (value.isString())
        result = valueOfText(attribute, value.toString(), vertical);
    else if (value.isBool() && attribute.type == Type::Flag)
        result = value;
    else if (value.isDouble() && isNumberFor(attribute.type, attribute.limit, value.toDouble()))
        result = value;
    else
        result = QJsonValue::Undefined;
    if (!result.isUndefined())
        return true;
    reason = expectation(attribute);
    return false;
}

bool attributeValue(const AttributeKey &attribute, const QString &text, bool vertical,
                    QVariant &result, QString &reason)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    QJsonValue value = text;
    if (attribute.type == Type::Flag && text == QLatin1String("true"))
        value = true;
    else if (attribute.type == Type::Flag && text == QLatin1String("false"))
        value = false;
    else if (isNumber && isNumberFor(attribute.type, attribute.limit, number))
        value = number;
    QJsonValue found;
    if (!attributeValue(attribute, value, vertical, found, reason))
        return false;
    result = attribute.type == Type::Color ? QVariant(QColor(found.toString())) : found.toVariant();
    return true;
}
