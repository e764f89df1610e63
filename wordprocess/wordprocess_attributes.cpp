// SPDX-License-Identifier: MIT
// wordprocess_attributes.cpp -- CWordProcess: the four translators between attribute maps and formats.
// Uses the object only to reach the font catalogue; keeps no state.
#include "wordprocess/cwordprocess.h"

#include "host/fontdatabase/cfontdatabase.h"
#include "layout/textproperties.h"
#include "wordprocess/fontweight.h"
#include "wordprocess/numbers.h"

namespace {
using Format = QTextFormat;
using Store = void (*)(Format &, const QVariant &);           // a value of the map into the format
using Show = QVariant (*)(const Format &, bool blankMissing); // a format's value for the map

struct AttributeRow {
    QLatin1String key;
    Store store;
    Show show;
};

QString internalFamily(const QString &name)
{
    const QString family = CFontDatabase::instance()->family(name);
    return family.isEmpty() ? name : family;
}

QString shownFamily(const QString &family)
{
    const QString name = CFontDatabase::instance()->localFamily(family);
    return name.isEmpty() ? family : name;
}

template<int Id>
void storeReal(Format &format, const QVariant &value)
{
    format.setProperty(Id, finiteReal(value));
}

template<int Id>
void storeInt(Format &format, const QVariant &value)
{
    format.setProperty(Id, toWhole(value));
}

template<int Id>
void storeBool(Format &format, const QVariant &value)
{
    format.setProperty(Id, value.toBool());
}

template<int Id>
void storeString(Format &format, const QVariant &value)
{
    format.setProperty(Id, value.toString());
}

template<int Id>
QVariant showBool(const Format &format, bool)
{
    return format.boolProperty(Id);
}

/// The property as it stands, or int 0.
template<int Id>
QVariant showOrZero(const Format &format, bool)
{
    return format.hasProperty(Id) ? format.property(Id) : QVariant(0);
}

/// The property as it stands, or false.
template<int Id>
QVariant showOrFalse(const Format &format, bool)
{
    return format.hasProperty(Id) ? format.property(Id) : QVariant(false);
}

/// The property as it stands, or "0"; "" in its place where what was never set is shown blank.
template<int Id>
QVariant showOrZeroText(const Format &format, bool blankMissing)
{
    if (format.hasProperty(Id))
        return format.property(Id);
    return blankMissing ? QStringLiteral("") : QStringLiteral("0");
}

/// A number as a real; the "" of a mixed property stays "".
QVariant shownReal(const QVariant &value)
{
    const bool mixed = value.userType() == QMetaType::QString && value.toString().isEmpty();
    return mixed ? QVariant(QStringLiteral("")) : QVariant(value.toReal());
}

/// A percentage as a real, or "100"; "" in its place where what was never set is shown blank.
template<int Id>
QVariant showPercent(const Format &format, bool blankMissing)
{
    if (format.hasProperty(Id))
        return shownReal(format.property(Id));
    return blankMissing ? QStringLiteral("") : QStringLiteral("100");
}

/// An indent, or a null string; "" in its place where what was never set is shown blank.
template<int Id>
QVariant showIndent(const Format &format, bool blankMissing)
{
    if (format.hasProperty(Id))
        return format.property(Id);
    return blankMissing ? QVariant(QStringLiteral("")) : QVariant(QString());
}

template<int Margin, int Exact>
void storeIndent(Format &format, const QVariant &value)
{
    format.setProperty(Margin, finiteReal(value));
    format.setProperty(Exact, finiteReal(value));
}

void storeFamily(Format &format, const QVariant &value)
{
    format.setProperty(Format::FontFamily, internalFamily(value.toString()));
}

QVariant showFamily(const Format &format, bool)
{
    return shownFamily(format.stringProperty(Format::FontFamily));
}

void storeBold(Format &format, const QVariant &value)
{
    format.setProperty(Format::FontWeight, value.toBool() ? FontWeight::Bold : FontWeight::Normal);
}

QVariant showBold(const Format &format, bool)
{
    return isBold(format.toCharFormat());
}

QVariant showLetterSpacing(const Format &format, bool)
{
    return format.hasProperty(TextProperty::LetterSpacing)
               ? shownReal(format.property(TextProperty::LetterSpacing))
               : QVariant(0);
}

QVariant showPointSize(const Format &format, bool)
{
    const double size = format.doubleProperty(Format::FontPointSize);
    return size == 0.0 ? QVariant(QStringLiteral("")) : QVariant(size);
}

void storeUnderline(Format &format, const QVariant &value)
{
    format.setProperty(Format::TextUnderlineStyle, value.toBool() ? 1 : 0);
}

QVariant showUnderline(const Format &format, bool)
{
    return format.toCharFormat().fontUnderline();
}

void storeColor(Format &format, const QVariant &value)
{
    format.setProperty(Format::ForegroundBrush, QBrush(value.value<QColor>(), Qt::SolidPattern));
}

QVariant showColor(const Format &format, bool)
{
    return format.brushProperty(Format::ForegroundBrush).color();
}

QVariant showStyle(const Format &format, bool)
{
    return format.property(Format::FontStyleName);
}

template<int Position>
void storeScript(Format &format, const QVariant &value)
{
    if (value.toBool())
        format.setProperty(Format::TextVerticalAlignment, Position);
}

template<int Position>
QVariant showScript(const Format &format, bool)
{
    return format.intProperty(Format::TextVerticalAlignment) == Position;
}

QVariant showAlignment(const Format &format, bool)
{
    if (format.hasProperty(TextProperty::Alignment))
        return format.property(TextProperty::Alignment);
    const int alignment = format.intProperty(Format::BlockAlignment);
    return alignment == 0 ? 1 : alignment;
}

// Deliberate: the indent serves as a whole number here, and the exact value stands beside it.
void storeFirstIndent(Format &format, const QVariant &value)
{
    format.setProperty(Format::BlockIndent, truncated(finiteReal(value)));
    format.setProperty(TextProperty::FirstLineIndent, finiteReal(value));
}

using P = QTextFormat;
namespace T = TextProperty;

// clang-format off
const AttributeRow characterRows[] = {
    {QLatin1String("font_family"),           storeFamily,                     showFamily},
    {QLatin1String("font_bold"),             storeBold,                       showBold},
    {QLatin1String("font_italic"),           storeBool<P::FontItalic>,        showBool<P::FontItalic>},
    {QLatin1String("font_letterspacing"),    storeReal<T::LeadingGap>,          showOrZero<T::LeadingGap>},
    {QLatin1String("selected_letterspacing"),storeReal<T::LetterSpacing>,     showLetterSpacing},
    {QLatin1String("font_pointsize"),        storeReal<P::FontPointSize>,     showPointSize},
    {QLatin1String("font_underline"),        storeUnderline,                  showUnderline},
    {QLatin1String("font_strikeout"),        storeBool<P::FontStrikeOut>,     showBool<P::FontStrikeOut>},
    {QLatin1String("pen_color"),             storeColor,                      showColor},
    {QLatin1String("font_style"),            storeString<P::FontStyleName>,   showStyle},
    {QLatin1String("vertical_scaled"),       storeInt<T::VerticalScale>,      showPercent<T::VerticalScale>},
    {QLatin1String("horizontal_scaled"),     storeInt<T::HorizontalScale>,    showPercent<T::HorizontalScale>},
    {QLatin1String("baseline_offset"),       storeInt<T::BaselineOffset>,     showOrZeroText<T::BaselineOffset>},
    {QLatin1String("text_upper"),            storeBool<T::UpperCase>,         showOrFalse<T::UpperCase>},
    {QLatin1String("text_superscript"),      storeScript<1>,                  showScript<1>},
    {QLatin1String("text_subscript"),        storeScript<2>,                  showScript<2>},
    {QLatin1String("font_rowspacing"),       storeReal<T::RowSpacing>,        showOrZeroText<T::RowSpacing>},
};
const AttributeRow paragraphRows[] = {
    {QLatin1String("textalignment"),                   storeInt<T::Alignment>,         showAlignment},
    {QLatin1String("paragraph_left_indent"),           storeIndent<P::BlockLeftMargin, T::LeftIndent>,   showIndent<T::LeftIndent>},
    {QLatin1String("paragraph_right_indent"),          storeIndent<P::BlockRightMargin, T::RightIndent>, showIndent<T::RightIndent>},
    {QLatin1String("paragraph_after_space"),           storeInt<T::SpaceAheadOfBlock>, showOrZero<T::SpaceAheadOfBlock>},
    {QLatin1String("paragraph_before_space"),          storeInt<T::SpaceBehindBlock>,  showOrZero<T::SpaceBehindBlock>},
    {QLatin1String("paragraph_first_indent"),          storeFirstIndent,               showIndent<T::FirstLineIndent>},
    {QLatin1String("text_ligature"),                   storeBool<T::Hyphenate>,      showOrFalse<T::Hyphenate>},
    {QLatin1String("paragraph_head_tail_punctuation"), storeInt<T::HeadTailRule>,       showOrZero<T::HeadTailRule>},
    {QLatin1String("paragraph_punctuation_extra"),     storeInt<T::PunctuationExtra>,  showOrZero<T::PunctuationExtra>},
};
// clang-format on

const QLatin1String superscriptKey("text_superscript");
const QLatin1String subscriptKey("text_subscript");
const QLatin1String formerFamilyKey("ori_font_family"); // shown only where the property exists
} // namespace

QTextCharFormat CWordProcess::attr2CharFormat(const AttributeMap &attributes) const
{
    QTextCharFormat format;
    const bool superscript = attributes.value(superscriptKey).toBool();
    for (const AttributeRow &row : characterRows) {
        if (superscript && row.key == subscriptKey)
            continue;
        const auto value = attributes.constFind(row.key);
        if (value != attributes.constEnd())
            row.store(format, *value);
    }
    if (attributes.contains(formerFamilyKey))
        format.setProperty(T::OriginalFamily, attributes.value(formerFamilyKey).toString());
    return format;
}

void CWordProcess::charFormat2Attr(const QTextCharFormat &format, AttributeMap &attributes,
                                   bool blankMissing) const
{
    for (const AttributeRow &row : characterRows)
        attributes[row.key] = row.show(format, blankMissing);
    if (format.hasProperty(T::OriginalFamily))
        attributes[formerFamilyKey] = format.property(T::OriginalFamily).toString();
}

QTextBlockFormat CWordProcess::attr2BlockFormat(const AttributeMap &attributes) const
{
    QTextBlockFormat format;
    for (const AttributeRow &row : paragraphRows) {
        const auto value = attributes.constFind(row.key);
        if (value != attributes.constEnd())
            row.store(format, *value);
    }
    return format;
}

void CWordProcess::blockFormat2Attr(const QTextBlockFormat &format, AttributeMap &attributes,
                                    bool blankMissing) const
{
    for (const AttributeRow &row : paragraphRows)
        attributes[row.key] = row.show(format, blankMissing);
}
