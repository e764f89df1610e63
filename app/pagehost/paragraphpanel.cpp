// SPDX-License-Identifier: MIT
#include "app/pagehost/paragraphpanel.h"

#include "app/page/paragraphstyle.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/textselection.h"

#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

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
    : Panel(selection)
    , m_headTail(
          new ChoiceBox(tr("Punctuation at line ends"), {tr("Off"), tr("Relaxed"), tr("Strict")}))
{
    auto *form = new QFormLayout(this);
    addAlignments(form);
    addNumber(form, "paragraph_left_indent", tr("Left indent"));
    addNumber(form, "paragraph_right_indent", tr("Right indent"));
    addNumber(form, "paragraph_first_indent", tr("First line indent"));
    addNumber(form, "paragraph_after_space",
              tr("Space before")); // deliberate: the keys are crossed
    addNumber(form, "paragraph_before_space", tr("Space after"));

    addHeadTail(form);
    addCheck(form, "paragraph_punctuation_extra", tr("Half-width Han punctuation"));
    addCheck(form, "text_ligature", tr("Hyphenation"));
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
    connectNumber(field, [this, attribute](double value) {
        m_selection->apply({{attribute, value}});
    });
}

void ParagraphPanel::addHeadTail(QFormLayout *form)
{
    m_headTail->setObjectName(headTailKey);
    form->addRow(tr("Line ends"), m_headTail);
    connect(m_headTail, QOverload<int>::of(&QComboBox::activated), this, [this](int rule) {
        m_selection->apply({{headTailKey, rule}});
    });
    connect(m_headTail, &ChoiceBox::left, m_selection, &TextSelection::pageWanted);
}

void ParagraphPanel::addCheck(QFormLayout *form, const char *key, const QString &name)
{
    const QString attribute = QLatin1String(key);
    auto *box = new FlagBox(name);
    box->setObjectName(attribute);
    form->addRow(box);
    m_checks.insert(attribute, box);
    connect(box, &FlagBox::chosen, this, [this, attribute](bool on) {
        m_selection->apply({{attribute, attribute == extraKey ? QVariant(int(on)) : QVariant(on)}});
    });
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
    m_selection->wantRuns();
    setEnabled(m_selection->canChange(alignmentKey));
    refreshAlignments();
    for (auto it = m_numbers.constBegin(); it != m_numbers.constEnd(); ++it) {
        it.value()->show(m_selection->value(it.key()));
        it.value()->setEnabled(m_selection->canChange(it.key()));
    }
    for (auto it = m_checks.constBegin(); it != m_checks.constEnd(); ++it) {
        it.value()->show(m_selection->value(it.key()));
        it.value()->setEnabled(m_selection->canChange(it.key()));
    }
    const QVariant rule = m_selection->value(headTailKey);
    m_headTail->setCurrentIndex(rule.isValid() ? qBound(0, rule.toInt(), 2) : -1);
    m_headTail->setEnabled(m_selection->canChange(headTailKey));
}

/// Of several alignments each is shown as there for a part.
void ParagraphPanel::refreshAlignments()
{
    const bool isVertical = !m_selection->value(QStringLiteral("text_horizontal")).toBool();
    const bool isBox = m_selection->value(QStringLiteral("text_wordwrap")).toBool();
    const auto numberOf = [isVertical](const QString &name) {
        const Alignment alignment = alignmentOf(name);
        return isVertical ? alignment.inColumns : alignment.inLines;
    };
    QVariantList values = m_selection->values(alignmentKey);
    for (QVariant &value : values) { // what columns do not know stands at their top
        if (isVertical && value.toInt() < numberOf(QStringLiteral("left")))
            value = numberOf(QStringLiteral("left"));
    }
    for (auto it = m_alignments.constBegin(); it != m_alignments.constEnd(); ++it) {
        const bool isThere = std::any_of(values.begin(), values.end(), [&](const QVariant &value) {
            return value.toInt() == numberOf(it.key());
        });
        it.value()->show(isThere && values.size() > 1 ? QVariant() : QVariant(isThere));
        it.value()->setEnabled(isBox || !alignmentOf(it.key()).forBoxes);
    }
}
