// SPDX-License-Identifier: MIT
// wordprocess_commandformats.cpp -- CWordProcess: what each key of a given attribute map asks for, the second
// half of AttributeCommand: the table of keys and their effects.
// Changes: the two formats that the command gathers; a few keys change the object at once.
#include "wordprocess/attributecommand.h"

#include "layout/textproperties.h"
#include "wordprocess/numbers.h"

namespace T = TextProperty;

namespace {
/// The values of TextProperty::Alignment between which the alignments of columns lie.
constexpr int firstColumnAlignment = Qt::AlignTop;
constexpr int lastColumnAlignment = Qt::AlignVCenter;
constexpr int lastLineAlignment = Qt::AlignHCenter;

/// \a value as it came when it is a number or converts to one; 0.0 when it is none or not finite.
QVariant numberAsItCame(const QVariant &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? value : QVariant(0.0);
}
} // namespace

// The object's own rows come first, since an alignment depends on the orientation. The others stand in the
// order of the translators: formats are equal only when their properties were set in the same order.
// clang-format off
const CWordProcess::AttributeCommand::Row CWordProcess::AttributeCommand::rows[] = {
    {QLatin1String("text_horizontal"),                 false, &AttributeCommand::takeOrientation},
    {QLatin1String("defaultFollow"),                   false, &AttributeCommand::takeDefaultFollow},
    {QLatin1String("adjustSize"),                      false, &AttributeCommand::takeAdjustSize},
    {QLatin1String("font_family"),                     false, &AttributeCommand::takeFamily},
    {QLatin1String("font_bold"),                       false, &AttributeCommand::takeCharacter},
    {QLatin1String("font_italic"),                     false, &AttributeCommand::takeCharacter},
    {QLatin1String("font_letterspacing"),              true,  &AttributeCommand::takeGap},
    {QLatin1String("selected_letterspacing"),          true,  &AttributeCommand::takeCharacter},
    {QLatin1String("font_pointsize"),                  true,  &AttributeCommand::takePointSize},
    {QLatin1String("font_underline"),                  false, &AttributeCommand::takeCharacter},
    {QLatin1String("font_strikeout"),                  false, &AttributeCommand::takeCharacter},
    {QLatin1String("pen_color"),                       false, &AttributeCommand::takeCharacter},
    {QLatin1String("font_style"),                      false, &AttributeCommand::takeCharacter},
    {QLatin1String("vertical_scaled"),                 true,  &AttributeCommand::takeCharacterNumber, T::VerticalScale},
    {QLatin1String("horizontal_scaled"),               true,  &AttributeCommand::takeCharacter},
    {QLatin1String("baseline_offset"),                 true,  &AttributeCommand::takeCharacterNumber, T::BaselineOffset},
    {QLatin1String("text_upper"),                      false, &AttributeCommand::takeCharacter},
    {QLatin1String("text_superscript"),                false, &AttributeCommand::takeScript},
    {QLatin1String("font_rowspacing"),                 true,  &AttributeCommand::takeCharacter},
    {QLatin1String("textalignment"),                   true,  &AttributeCommand::takeAlignment},
    {QLatin1String("paragraph_left_indent"),           true,  &AttributeCommand::takeParagraph},
    {QLatin1String("paragraph_right_indent"),          true,  &AttributeCommand::takeParagraph},
    {QLatin1String("paragraph_after_space"),           true,  &AttributeCommand::takeParagraphNumber, T::SpaceAheadOfBlock},
    {QLatin1String("paragraph_before_space"),          true,  &AttributeCommand::takeParagraphNumber, T::SpaceBehindBlock},
    {QLatin1String("paragraph_first_indent"),          true,  &AttributeCommand::takeParagraph},
    {QLatin1String("text_ligature"),                   false, &AttributeCommand::takeParagraph},
    {QLatin1String("paragraph_head_tail_punctuation"), true,  &AttributeCommand::takeParagraph},
    {QLatin1String("paragraph_punctuation_extra"),     true,  &AttributeCommand::takeParagraph},
};
// clang-format on

/// Works through the keys of the map in the order of the rows.
void CWordProcess::AttributeCommand::gatherFormats()
{
    for (const Row &row : rows) {
        const auto value = attributes.constFind(row.key);
        if (value != attributes.constEnd() && !(row.isNumber && isMixed(*value)))
            (this->*row.effect)(row, *value);
    }
}

void CWordProcess::AttributeCommand::takeCharacter(const Row &row, const QVariant &value)
{
    charFormat.merge(object.attr2CharFormat({{row.key, value}}));
}

void CWordProcess::AttributeCommand::takeParagraph(const Row &row, const QVariant &value)
{
    blockFormat.merge(object.attr2BlockFormat({{row.key, value}}));
}

void CWordProcess::AttributeCommand::takeCharacterNumber(const Row &row, const QVariant &value)
{
    charFormat.setProperty(row.property, numberAsItCame(value));
}

void CWordProcess::AttributeCommand::takeParagraphNumber(const Row &row, const QVariant &value)
{
    blockFormat.setProperty(row.property, numberAsItCame(value));
}

/// A family for the text stands in for all that were missing.
void CWordProcess::AttributeCommand::takeFamily(const Row &row, const QVariant &value)
{
    takeCharacter(row, value);
    object.m_replacedFonts = object.m_missingFonts;
}

/// Deliberate: outside edit state gaps are only ever closed, whatever the value says; the spacing of whole
/// runs travels in "selected_letterspacing".
void CWordProcess::AttributeCommand::takeGap(const Row &row, const QVariant & /*value*/)
{
    if (!object.m_editing)
        takeCharacter(row, 0.0);
}

void CWordProcess::AttributeCommand::takePointSize(const Row &row, const QVariant &value)
{
    if (finiteReal(value) > 0.0)
        takeCharacter(row, value);
}

/// Both keys are needed: together they say one of three positions.
void CWordProcess::AttributeCommand::takeScript(const Row & /*row*/, const QVariant &value)
{
    const auto subscript = attributes.constFind(AttributeKey::Subscript);
    if (subscript == attributes.constEnd())
        return;
    const int position = value.toBool()        ? QTextCharFormat::AlignSuperScript
                         : subscript->toBool() ? QTextCharFormat::AlignSubScript
                                               : QTextCharFormat::AlignNormal;
    charFormat.setProperty(QTextFormat::TextVerticalAlignment, position);
}

/// Line text has fewer alignments than a box, and each direction its own.
void CWordProcess::AttributeCommand::takeAlignment(const Row & /*row*/, const QVariant &value)
{
    int alignment = toWhole(value);
    if (!object.m_wordWrap) {
        if (object.m_textOrientation == Qt::Horizontal) {
            if (alignment > lastLineAlignment)
                alignment = Qt::AlignLeft;
        } else if (alignment < firstColumnAlignment || alignment > lastColumnAlignment) {
            alignment = Qt::AlignTop;
        }
    }
    blockFormat.setProperty(TextProperty::Alignment, alignment);
}

void CWordProcess::AttributeCommand::takeOrientation(const Row & /*row*/, const QVariant &value)
{
    const int orientation = value.toBool() ? Qt::Horizontal : Qt::Vertical;
    changed = orientation != object.m_textOrientation; // deliberate: whatever has changed before
    if (!changed)
        return;
    layoutIsStale = true;
    if (object.m_wordWrap) {
        object.m_textOrientation = orientation;
        return;
    }
    object.img2paths();
    object.m_textOrientation = orientation;
    object.updatePosition(&object, QRectF(object.mapToScene(object.m_textOffset), QSizeF(0, 0)));
}

void CWordProcess::AttributeCommand::takeDefaultFollow(const Row & /*row*/, const QVariant &value)
{
    if (attributes.contains(AttributeKey::DefaultWord))
        object.m_defaultFollow = value.toBool();
}

void CWordProcess::AttributeCommand::takeAdjustSize(const Row & /*row*/, const QVariant &value)
{
    object.CVXRootObject::setSize(object.getDefaultTextSize(value.toString()), false, true);
}
