// SPDX-License-Identifier: MIT
#include "app/pagehost/characterpanel.h"

#include "app/pagehost/fontfamilybox.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/textselection.h"

#include <QFormLayout>
#include <QHBoxLayout>

namespace {

constexpr double smallestSize = 0.1; // points
constexpr double largestSize = 10000;
constexpr double smallestScale = 1; // percent
constexpr double largestScale = 1000;
constexpr double largestSpacing = 10000;
const QString familyKey = QStringLiteral("font_family");
const QString colorKey = QStringLiteral("pen_color");
const QString sizeKey = QStringLiteral("font_pointsize");

/// A face that shows what the button does.
QFont signFont(const QString &key, QFont font)
{
    font.setBold(key == QLatin1String("font_bold"));
    font.setItalic(key == QLatin1String("font_italic"));
    font.setUnderline(key == QLatin1String("font_underline"));
    font.setStrikeOut(key == QLatin1String("font_strikeout"));
    return font;
}

} // namespace

CharacterPanel::CharacterPanel(TextSelection *selection)
    : m_selection(selection)
    , m_family(new FontFamilyBox(tr("Font")))
    , m_color(new ColorButton(tr("Color")))
{
    auto *form = new QFormLayout(this);
    form->addRow(tr("Font"), m_family);
    m_family->setObjectName(familyKey);
    connect(m_family, &FontFamilyBox::picked, this, [this](const QString &family) {
        m_selection->apply({{familyKey, family}});
    });
    connect(m_family, &FontFamilyBox::left, m_selection, &TextSelection::pageWanted);

    auto *size = new NumberField(tr("Size"), smallestSize, largestSize, 2, tr("pt"), 24);
    form->addRow(tr("Size"), addNumber("font_pointsize", size, 0));

    auto *styles = new QHBoxLayout;
    addFlag(styles, "font_bold", tr("B", "sign of bold"), tr("Bold"));
    addFlag(styles, "font_italic", tr("I", "sign of italic"), tr("Italic"));
    addFlag(styles, "font_underline", tr("U", "sign of underline"), tr("Underline"));
    addFlag(styles, "font_strikeout", tr("S", "sign of strikeout"), tr("Strikeout"));
    styles->addWidget(m_color);
    styles->addStretch();
    form->addRow(tr("Style"), styles);
    m_color->setObjectName(colorKey);
    connect(m_color, &ColorButton::picked, this, [this](const QColor &color) {
        m_selection->apply({{colorKey, color}});
    });

    auto *forms = new QHBoxLayout;
    addPairedFlag(forms, "text_superscript", "text_subscript", QStringLiteral("x²"),
                  tr("Superscript"));
    addPairedFlag(forms, "text_subscript", "text_superscript", QStringLiteral("x₂"),
                  tr("Subscript"));
    addFlag(forms, "text_upper", tr("AA", "sign of capitals"), tr("Capitals"));
    forms->addStretch();
    form->addRow(tr("Form"), forms);

    const auto scale = [](const QString &name) {
        return new NumberField(name, smallestScale, largestScale, 0, QStringLiteral("%"), 100);
    };
    const auto spacing = [](const QString &name, const QString &unit) {
        return new NumberField(name, -largestSpacing, largestSpacing, 2, unit);
    };
    form->addRow(tr("Horizontal scale"),
                 addNumber("horizontal_scaled", scale(tr("Horizontal scale")), 100));
    form->addRow(tr("Vertical scale"),
                 addNumber("vertical_scaled", scale(tr("Vertical scale")), 100));
    form->addRow(tr("Baseline shift"),
                 addNumber("baseline_offset", spacing(tr("Baseline shift"), tr("pt")), 0));
    NumberField *letters = spacing(tr("Letter spacing, in thousandths of the size"), QString());
    letters->setSingleStep(20);
    form->addRow(tr("Letter spacing"), addNumber("selected_letterspacing", letters, 0));
    form->addRow(tr("Row spacing"),
                 addNumber("font_rowspacing", spacing(tr("Row spacing"), tr("pt")), 0));

    connect(m_selection, &TextSelection::changed, this, &CharacterPanel::refresh);
    refresh();
}

void CharacterPanel::addFlag(QLayout *row, const char *key, const QString &sign,
                             const QString &name)
{
    const QString attribute = QLatin1String(key);
    auto *button = new FlagButton(sign, name);
    button->setObjectName(attribute);
    button->setFont(signFont(attribute, button->font()));
    row->addWidget(button);
    m_flags.insert(attribute, button);
    connect(button, &QAbstractButton::clicked, this, [this, attribute](bool on) {
        m_selection->apply({{attribute, on}});
    });
}

/// Of these two one at most is on, and they are given together.
void CharacterPanel::addPairedFlag(QLayout *row, const char *key, const char *other,
                                   const QString &sign, const QString &name)
{
    const QString attribute = QLatin1String(key);
    const QString counterpart = QLatin1String(other);
    auto *button = new FlagButton(sign, name);
    button->setObjectName(attribute);
    row->addWidget(button);
    m_flags.insert(attribute, button);
    connect(button, &QAbstractButton::clicked, this, [this, attribute, counterpart](bool on) {
        m_selection->apply({{attribute, on}, {counterpart, false}});
    });
}

NumberField *CharacterPanel::addNumber(const char *key, NumberField *field, double unset)
{
    const QString attribute = QLatin1String(key);
    field->setObjectName(attribute);
    m_numbers.insert(attribute, {field, unset});
    connect(field, &NumberField::entered, this, [this, attribute](double value) {
        m_selection->apply({{attribute, value}});
    });
    connect(field, &NumberField::left, m_selection, &TextSelection::pageWanted);
    return field;
}

void CharacterPanel::refresh()
{
    setEnabled(!m_selection->openTexts().isEmpty());
    m_family->show(m_selection->value(familyKey).toString());
    m_color->show(m_selection->value(colorKey));
    for (auto it = m_flags.constBegin(); it != m_flags.constEnd(); ++it)
        it.value()->show(m_selection->value(it.key()));
    for (auto it = m_numbers.constBegin(); it != m_numbers.constEnd(); ++it) {
        QVariant value = m_selection->value(it.key());
        // "" stands for what was never set and, in an edit, for several values too.
        const bool isBlank = value.isValid() && value.toString().isEmpty();
        if (isBlank && !m_selection->isEditing() && it.key() != sizeKey)
            value = it->unset;
        it->field->show(value);
    }
}
