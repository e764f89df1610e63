// SPDX-License-Identifier: MIT
#include "app/pagehost/paragraphpanel.h"

#include "app/page/paragraphstyle.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/textselection.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>

namespace {

constexpr double largestIndent = 10000; // points
constexpr int alignmentsInRow = 4;
constexpr QSize iconSize(20, 16);
const QString alignmentKey = QStringLiteral("textalignment");
const QString headTailKey = QStringLiteral("paragraph_head_tail_punctuation");
const QLatin1String extraKey("paragraph_punctuation_extra");

struct AlignmentRow {
    const char *name;
    const char *label;
    double full; ///< where the lines stand: 0 left, 0.5 centre, 1 right, -1 over the whole width
    double last; ///< the same of the last line
};

// clang-format off
constexpr AlignmentRow alignmentRows[] = {
    {"left",           QT_TRANSLATE_NOOP("ParagraphPanel", "Align left"),              0,   0},
    {"center",         QT_TRANSLATE_NOOP("ParagraphPanel", "Align centered"),          0.5, 0.5},
    {"right",          QT_TRANSLATE_NOOP("ParagraphPanel", "Align right"),             1,   1},
    {"justify",        QT_TRANSLATE_NOOP("ParagraphPanel", "Justify all lines"),       -1,  -1},
    {"justify-left",   QT_TRANSLATE_NOOP("ParagraphPanel", "Justify, last line left"), -1,  0},
    {"justify-center", QT_TRANSLATE_NOOP("ParagraphPanel", "Justify, last line centered"), -1, 0.5},
    {"justify-right",  QT_TRANSLATE_NOOP("ParagraphPanel", "Justify, last line right"), -1, 1},
};
// clang-format on

/// Four lines of text as the alignment sets them.
QPixmap pictureOf(const AlignmentRow &row, const QPalette &palette)
{
    constexpr int lengths[] = {20, 13, 17, 11};
    QPixmap picture(iconSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (int line = 0; line < 4; ++line) {
        const double place = line == 3 ? row.last : row.full;
        const int length = place < 0 ? iconSize.width() : lengths[line];
        const int x = place < 0 ? 0 : qRound((iconSize.width() - length) * place);
        painter.fillRect(x, 1 + 4 * line, length, 2, palette.color(QPalette::ButtonText));
    }
    return picture;
}

} // namespace

ParagraphPanel::ParagraphPanel(TextSelection *selection)
    : m_selection(selection)
    , m_headTail(new QComboBox)
{
    auto *form = new QFormLayout(this);
    addAlignments(form);
    addNumber(form, "paragraph_left_indent", tr("Left indent"));
    addNumber(form, "paragraph_right_indent", tr("Right indent"));
    addNumber(form, "paragraph_first_indent", tr("First line indent"));
    addNumber(form, "paragraph_after_space",
              tr("Space before")); // deliberate: the keys are crossed
    addNumber(form, "paragraph_before_space", tr("Space after"));

    m_headTail->setObjectName(headTailKey);
    m_headTail->setAccessibleName(tr("Punctuation at line ends"));
    m_headTail->addItems({tr("Off"), tr("Relaxed"), tr("Strict")});
    form->addRow(tr("Line ends"), m_headTail);
    connect(m_headTail, QOverload<int>::of(&QComboBox::activated), this, [this](int rule) {
        m_selection->apply({{headTailKey, rule}});
        Q_EMIT m_selection->pageWanted();
    });
    addCheck(form, "paragraph_punctuation_extra", tr("Half-width Han punctuation"));
    addCheck(form, "text_ligature", tr("Hyphenation"));
    connect(m_selection, &TextSelection::changed, this, &ParagraphPanel::refresh);
    refresh();
}

void ParagraphPanel::addAlignments(QFormLayout *form)
{
    auto *grid = new QGridLayout;
    int place = 0;
    for (const AlignmentRow &row : alignmentRows) {
        const QString name = QLatin1String(row.name);
        auto *button = new FlagButton(QString(), tr(row.label));
        button->setObjectName(QStringLiteral("alignment-") + name);
        button->setIconSize(iconSize);
        button->setIcon(pictureOf(row, palette()));
        grid->addWidget(button, place / alignmentsInRow, place % alignmentsInRow);
        m_alignments.insert(name, button);
        connect(button, &QAbstractButton::clicked, this, [this, name] { setAlignment(name); });
        ++place;
    }
    grid->setColumnStretch(alignmentsInRow, 1);
    form->addRow(tr("Alignment"), grid);
}

void ParagraphPanel::addNumber(QFormLayout *form, const char *key, const QString &name)
{
    const QString attribute = QLatin1String(key);
    auto *field = new NumberField(name, -largestIndent, largestIndent, 2, tr("pt"));
    field->setObjectName(attribute);
    form->addRow(name, field);
    m_numbers.insert(attribute, field);
    connect(field, &NumberField::entered, this, [this, attribute](double value) {
        m_selection->apply({{attribute, value}});
    });
    connect(field, &NumberField::left, m_selection, &TextSelection::pageWanted);
}

QCheckBox *ParagraphPanel::addCheck(QFormLayout *form, const char *key, const QString &name)
{
    const QString attribute = QLatin1String(key);
    auto *box = new QCheckBox(name);
    box->setAccessibleName(name);
    box->setObjectName(attribute);
    box->setFocusPolicy(Qt::TabFocus);
    form->addRow(box);
    m_checks.insert(attribute, box);
    connect(box, &QCheckBox::clicked, this, [this, box, attribute] {
        const bool on = box->checkState() != Qt::Unchecked;
        box->setTristate(false);
        box->setChecked(on);
        m_selection->apply({{attribute, attribute == extraKey ? QVariant(int(on)) : QVariant(on)}});
    });
    return box;
}

/// Lines and columns know an alignment by different numbers.
void ParagraphPanel::setAlignment(const QString &name)
{
    const Alignment alignment = alignmentOf(name);
    const bool isVertical = !m_selection->value(QStringLiteral("text_horizontal")).toBool();
    m_selection->apply({{alignmentKey, isVertical ? alignment.inColumns : alignment.inLines}});
    refreshAlignments(); // of which one is on, whatever was clicked
}

void ParagraphPanel::refresh()
{
    setEnabled(!m_selection->openTexts().isEmpty());
    refreshAlignments();
    for (auto it = m_numbers.constBegin(); it != m_numbers.constEnd(); ++it) {
        QVariant value = m_selection->value(it.key());
        if (value.isValid() && value.toString().isEmpty() && !m_selection->isEditing())
            value = 0; // was never set
        it.value()->show(value);
    }
    for (auto it = m_checks.constBegin(); it != m_checks.constEnd(); ++it) {
        const QSignalBlocker blocker(it.value());
        const QVariant value = m_selection->value(it.key());
        it.value()->setTristate(!value.isValid());
        if (value.isValid())
            it.value()->setChecked(value.toInt() != 0);
        else
            it.value()->setCheckState(Qt::PartiallyChecked);
    }
    const QVariant rule = m_selection->value(headTailKey);
    m_headTail->setCurrentIndex(rule.isValid() ? qBound(0, rule.toInt(), 2) : -1);
}

void ParagraphPanel::refreshAlignments()
{
    const QVariant value = m_selection->value(alignmentKey);
    const bool isVertical = !m_selection->value(QStringLiteral("text_horizontal")).toBool();
    const bool isBox = m_selection->value(QStringLiteral("text_wordwrap")).toBool();
    for (auto it = m_alignments.constBegin(); it != m_alignments.constEnd(); ++it) {
        const Alignment alignment = alignmentOf(it.key());
        const int number = isVertical ? alignment.inColumns : alignment.inLines;
        it.value()->show(value.isValid() ? QVariant(value.toInt() == number) : QVariant());
        it.value()->setEnabled(isBox || !alignment.forBoxes);
    }
}
