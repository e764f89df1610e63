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
constexpr double spacingStep = 20; // thousandths, as the keys change it
const QString familyKey = QStringLiteral("font_family");
const QString colorKey = QStringLiteral("pen_color");
const QString gapKey = QStringLiteral("font_letterspacing");

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
    : Panel(selection)
    , m_family(new FontFamilyBox(tr("Font")))
    , m_color(new ColorButton(tr("Color")))
{
    auto *form = new QFormLayout(this);
    addFamily(form);
    auto *size = new NumberField(tr("Size"), smallestSize, largestSize, 2, tr("pt"), 24);
    form->addRow(tr("Size"), addNumber("font_pointsize", size));
    addStyles(form);
    addForms(form);
    addScales(form);
    addSpacings(form);
}

void CharacterPanel::addFamily(QFormLayout *form)
{
    form->addRow(tr("Font"), m_family);
    m_family->setObjectName(familyKey);
    const auto set = [this](const QVariant &family) { m_selection->apply({{familyKey, family}}); };
    connect(m_family, &FontFamilyBox::picked, this, set);
    connectSteps(m_family, set);
    connect(m_family, &FontFamilyBox::left, m_selection, &TextSelection::pageWanted);
}

void CharacterPanel::addStyles(QFormLayout *form)
{
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
}

void CharacterPanel::addForms(QFormLayout *form)
{
    auto *forms = new QHBoxLayout;
    addPairedFlag(forms, "text_superscript", "text_subscript", QStringLiteral("x²"),
                  tr("Superscript"));
    addPairedFlag(forms, "text_subscript", "text_superscript", QStringLiteral("x₂"),
                  tr("Subscript"));
    addFlag(forms, "text_upper", tr("AA", "sign of capitals"), tr("Capitals"));
    forms->addStretch();
    form->addRow(tr("Form"), forms);
}

void CharacterPanel::addScales(QFormLayout *form)
{
    const auto scale = [](const QString &name) {
        return new NumberField(name, smallestScale, largestScale, 0, QStringLiteral("%"), 100);
    };
    form->addRow(tr("Horizontal scale"),
                 addNumber("horizontal_scaled", scale(tr("Horizontal scale"))));
    form->addRow(tr("Vertical scale"), addNumber("vertical_scaled", scale(tr("Vertical scale"))));
}

/// Letter spacing is that of runs, or of what is typed next; kerning that of the two characters beside
/// the caret.
void CharacterPanel::addSpacings(QFormLayout *form)
{
    const auto points = [](const QString &name) {
        return new NumberField(name, -largestSpacing, largestSpacing, 2, tr("pt"));
    };
    const auto thousandths = [](const QString &name) {
        auto *field = new NumberField(name, -largestSpacing, largestSpacing, 2);
        field->setSingleStep(spacingStep);
        return field;
    };
    form->addRow(tr("Baseline shift"), addNumber("baseline_offset", points(tr("Baseline shift"))));
    form->addRow(tr("Letter spacing"),
                 addNumber("selected_letterspacing",
                           thousandths(tr("Letter spacing, in thousandths of the size"))));
    form->addRow(tr("Kerning"),
                 addNumber("font_letterspacing",
                           thousandths(tr("Space at the caret, in thousandths of the size"))));
    form->addRow(tr("Row spacing"), addNumber("font_rowspacing", points(tr("Row spacing"))));
}

FlagButton *CharacterPanel::makeFlag(QLayout *row, const char *key, const QString &sign,
                                     const QString &name)
{
    const QString attribute = QLatin1String(key);
    auto *button = new FlagButton(sign, name);
    button->setObjectName(attribute);
    button->setFont(signFont(attribute, button->font()));
    row->addWidget(button);
    m_flags.insert(attribute, button);
    return button;
}

void CharacterPanel::addFlag(QLayout *row, const char *key, const QString &sign,
                             const QString &name)
{
    const QString attribute = QLatin1String(key);
    connect(makeFlag(row, key, sign, name), &QAbstractButton::clicked, this,
            [this, attribute](bool on) {
                m_selection->apply({{attribute, on}});
            });
}

/// Of these two one at most is on, and they are given together.
void CharacterPanel::addPairedFlag(QLayout *row, const char *key, const char *other,
                                   const QString &sign, const QString &name)
{
    const QString attribute = QLatin1String(key);
    const QString counterpart = QLatin1String(other);
    connect(makeFlag(row, key, sign, name), &QAbstractButton::clicked, this,
            [this, attribute, counterpart](bool on) {
                m_selection->apply({{attribute, on}, {counterpart, false}});
            });
}

NumberField *CharacterPanel::addNumber(const char *key, NumberField *field)
{
    const QString attribute = QLatin1String(key);
    field->setObjectName(attribute);
    m_numbers.insert(attribute, field);
    connectNumber(field, [this, attribute](double value) {
        m_selection->apply({{attribute, value}});
    });
    return field;
}

void CharacterPanel::refresh()
{
    m_selection->wantRuns();
    const bool isOpen = m_selection->canChange(familyKey);
    setEnabled(isOpen);
    m_family->show(m_selection->value(familyKey).toString());
    m_color->show(m_selection->value(colorKey));
    for (auto it = m_flags.constBegin(); it != m_flags.constEnd(); ++it) {
        it.value()->show(m_selection->value(it.key()));
        it.value()->setEnabled(m_selection->canChange(it.key()));
    }
    for (auto it = m_numbers.constBegin(); it != m_numbers.constEnd(); ++it) {
        const bool isThere = it.key() != gapKey || m_selection->isAtCaret();
        it.value()->show(isThere ? m_selection->value(it.key()) : QVariant());
        it.value()->setEnabled(isThere && m_selection->canChange(it.key()));
    }
}
