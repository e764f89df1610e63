// SPDX-License-Identifier: MIT
// What the panels of characters and paragraphs show of an edited selection and of a caret, and what steps
// up and down in their fields do.
#include "panelwindow.h"

#include "app/pagehost/fontfamilybox.h"

#include <QComboBox>
#include <QLineEdit>

#include <memory>

class TestPanelValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_host = std::make_unique<PanelWindow>(&m_loader); }
    void cleanup() { m_host.reset(); }

    // Runs
    void flagOfPartIsMixedAndTurnedOnFirst_data();
    void flagOfPartIsMixedAndTurnedOnFirst();
    void numberOfPartIsMixedInSelection_data();
    void numberOfPartIsMixedInSelection();
    void familyOfPartIsMixedInSelection();
    void colorOfPartIsMixedInSelection();
    void selectionBesideMixedPartIsNotMixed();
    void whatWasNeverSetEqualsItsUsualValue();
    void lookingEndsNoEdit();
    void undoOfFormatKeepsWhatWasTyped_data();
    void undoOfFormatKeepsWhatWasTyped();
    void whatIsNoNumberChangesNothing_data();
    void whatIsNoNumberChangesNothing();

    // Paragraphs
    void numberOfOneParagraphIsMixedInSelection_data();
    void numberOfOneParagraphIsMixedInSelection();
    void ruleOfOneParagraphIsMixedInSelection_data();
    void ruleOfOneParagraphIsMixedInSelection();
    void lineEndRuleOfOneParagraphIsMixedInSelection();
    void alignmentsThatAreThereAreMixed();
    void sameValueAgainMakesNoStep();
    void indentsOfEditedLineAreNumbers_data() { numberOfOneParagraphIsMixedInSelection_data(); }
    void indentsOfEditedLineAreNumbers();

    // Caret
    void letterSpacingAtCaretIsForWhatIsTypedNext();
    void kerningIsOfCharactersBesideCaret();
    void kerningNeedsCaret();

    // Steps up and down
    void stepsAreOneStep_data();
    void stepsAreOneStep();
    void escapeTakesStepsBack_data() { stepsAreOneStep_data(); }
    void escapeTakesStepsBack();
    void stepsInSelectionAreOneStep();
    void stepsAtCaretAreTakenBack();
    void focusLossEndsSteps();
    void typedNumberIsWhereStepsBegin();
    void stepByOtherHandIsNotTakenBack();
    void wheelAboveFieldChangesNothing();
    void wheelAboveControlChangesNothing_data();
    void wheelAboveControlChangesNothing();

    // Keys in controls
    void keysInChoiceKeepFocus_data();
    void keysInChoiceKeepFocus();
    void keysInFontBoxAreOneStep();
    void escapeTakesFontsBack();
    void keysAtSliderAreOneStep();
    void undoKeyIsPagesWithNothingTyped();

private:
    FlagButton *flag(const char *name) { return m_host->find<FlagButton>("characterPanel", name); }
    NumberField *number(const char *panel, const char *name)
    {
        return m_host->find<NumberField>(panel, name);
    }
    FontFamilyBox *family() { return m_host->find<FontFamilyBox>("characterPanel", "font_family"); }
    void startTwoParagraphs();
    void stepUp(NumberField *field, int times);

    PluginLoader m_loader;
    std::unique_ptr<PanelWindow> m_host;
};

void TestPanelValues::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

/// In edit, with the caret in the second.
void TestPanelValues::startTwoParagraphs()
{
    m_host->startLine({100, 150}, QStringLiteral("first"));
    QTest::keyClick(m_host->view(), Qt::Key_Return);
    QTest::keyClicks(m_host->view(), QStringLiteral("second"));
    m_host->raise("paragraphPanel");
}

void TestPanelValues::stepUp(NumberField *field, int times)
{
    field->setFocus();
    for (int i = 0; i < times; ++i) {
        QTest::keyClick(field, Qt::Key_Up);
        m_host->turn();
    }
}

// Runs

void TestPanelValues::flagOfPartIsMixedAndTurnedOnFirst_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"font_bold", "font_italic", "font_underline", "font_strikeout",
                            "text_superscript", "text_subscript", "text_upper"})
        QTest::newRow(key) << key;
}

void TestPanelValues::flagOfPartIsMixedAndTurnedOnFirst()
{
    QFETCH(QString, key);
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("plain part"));
    m_host->selectBack(4);
    FlagButton *button = flag(qPrintable(key));
    button->click();
    m_host->settle();
    QVERIFY(button->isChecked());
    QVERIFY(!button->isMixed());

    m_host->selectAllInEdit();
    QVERIFY(button->isMixed());
    QVERIFY(!button->isChecked());
    QCOMPARE(button->accessibleDescription(), QStringLiteral("On for a part"));
    button->click();
    m_host->settle();
    QVERIFY(button->isChecked());
    QVERIFY(!button->isMixed());
    QCOMPARE(m_host->session()->editedObject(), text);

    QTest::keyClick(m_host->view(), Qt::Key_Escape);
    m_host->settle();
    QVERIFY(m_host->attribute(text, qPrintable(key)).toBool());
    QVERIFY(!button->isMixed());
}

void TestPanelValues::numberOfPartIsMixedInSelection_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<double>("ofPart");
    QTest::addColumn<double>("usual");
    QTest::addColumn<double>("forAll");
    QTest::newRow("size") << "font_pointsize" << 36.0 << 24.0 << 30.0;
    QTest::newRow("horizontal scale") << "horizontal_scaled" << 150.0 << 100.0 << 80.0;
    QTest::newRow("vertical scale") << "vertical_scaled" << 70.0 << 100.0 << 120.0;
    QTest::newRow("baseline") << "baseline_offset" << 6.0 << 0.0 << -3.0;
    QTest::newRow("letter spacing") << "selected_letterspacing" << 100.0 << 0.0 << 50.0;
    QTest::newRow("row spacing") << "font_rowspacing" << 12.0 << 0.0 << 7.0;
}

void TestPanelValues::numberOfPartIsMixedInSelection()
{
    QFETCH(QString, key);
    QFETCH(double, ofPart);
    QFETCH(double, usual);
    QFETCH(double, forAll);
    m_host->startLine({100, 150}, QStringLiteral("plain part"));
    NumberField *field = number("characterPanel", qPrintable(key));
    QCOMPARE(field->value(), usual);
    QVERIFY(!field->isMixed());
    m_host->selectBack(4);
    m_host->enter(field, QString::number(ofPart));
    QVERIFY(!field->isMixed());
    QCOMPARE(field->value(), ofPart);

    m_host->selectAllInEdit();
    QVERIFY(field->isMixed());
    QCOMPARE(field->cleanText(), QString());
    m_host->enter(field, QString::number(forAll));
    QVERIFY(!field->isMixed());
    QCOMPARE(field->value(), forAll);
    m_host->view()->setFocus();
    QTest::keyClick(m_host->view(), Qt::Key_Home);
    m_host->settle();
    QCOMPARE(field->value(), forAll);
}

void TestPanelValues::familyOfPartIsMixedInSelection()
{
    m_host->startLine({100, 150}, QStringLiteral("plain part"));
    m_host->selectBack(4);
    Q_EMIT family()->picked(QStringLiteral("DejaVu Serif"));
    m_host->settle();
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Serif"));
    m_host->selectAllInEdit();
    QCOMPARE(family()->family(), QString());
    QCOMPARE(family()->lineEdit()->text(), QString());
    QCOMPARE(family()->accessibleDescription(), QStringLiteral("Several fonts, or none"));
    Q_EMIT family()->picked(QStringLiteral("DejaVu Sans Mono"));
    m_host->settle();
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Sans Mono"));
}

void TestPanelValues::colorOfPartIsMixedInSelection()
{
    m_host->startLine({100, 150}, QStringLiteral("plain part"));
    auto *button = m_host->find<ColorButton>("characterPanel", "pen_color");
    QCOMPARE(button->color(), QColor(Qt::black));
    m_host->selectBack(4);
    Q_EMIT button->picked(QColor(200, 10, 20));
    m_host->settle();
    QCOMPARE(button->color(), QColor(200, 10, 20));
    m_host->selectAllInEdit();
    QVERIFY(!button->color().isValid());
    QCOMPARE(button->accessibleDescription(), QStringLiteral("Several colors"));
    Q_EMIT button->picked(QColor(1, 2, 3));
    m_host->settle();
    QCOMPARE(button->color(), QColor(1, 2, 3));
}

void TestPanelValues::selectionBesideMixedPartIsNotMixed()
{
    m_host->startLine({100, 150}, QStringLiteral("plain part"));
    m_host->selectBack(4);
    flag("font_bold")->click();
    m_host->enter(number("characterPanel", "font_pointsize"), QStringLiteral("36"));
    m_host->view()->setFocus();
    QTest::keyClick(m_host->view(), Qt::Key_Home);
    for (int i = 0; i < 6; ++i)
        QTest::keyClick(m_host->view(), Qt::Key_Right, Qt::ShiftModifier);
    m_host->settle();
    QVERIFY(!flag("font_bold")->isMixed());
    QVERIFY(!flag("font_bold")->isChecked());
    QCOMPARE(number("characterPanel", "font_pointsize")->value(), 24.0);
    QTest::keyClick(m_host->view(), Qt::Key_Right, Qt::ShiftModifier); // one of the part
    m_host->settle();
    QVERIFY(flag("font_bold")->isMixed());
    QVERIFY(number("characterPanel", "font_pointsize")->isMixed());
}

void TestPanelValues::whatWasNeverSetEqualsItsUsualValue()
{
    m_host->startLine({100, 150}, QStringLiteral("plain part"));
    m_host->selectBack(4);
    m_host->enter(number("characterPanel", "horizontal_scaled"), QStringLiteral("150"));
    m_host->enter(number("characterPanel", "horizontal_scaled"), QStringLiteral("100"));
    flag("font_bold")->click(); // and so there are two runs
    m_host->selectAllInEdit();
    QVERIFY(flag("font_bold")->isMixed());
    for (const char *key : {"horizontal_scaled", "vertical_scaled", "baseline_offset",
                            "selected_letterspacing", "font_rowspacing"})
        QVERIFY2(!number("characterPanel", key)->isMixed(), key);
    QCOMPARE(number("characterPanel", "horizontal_scaled")->value(), 100.0);
}

void TestPanelValues::lookingEndsNoEdit()
{
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("typed"));
    const int steps = m_host->steps()->count();
    for (int i = 0; i < 3; ++i)
        m_host->settle();
    QCOMPARE(m_host->session()->editedObject(), text);
    QTest::keyClicks(m_host->view(), QStringLiteral("!"));
    QCOMPARE(TextCommands::plainText(text), QStringLiteral("typed!"));
    QCOMPARE(m_host->steps()->count(), steps);
    QTest::keyClick(m_host->view(), Qt::Key_Z, Qt::ControlModifier); // of what was typed
    QCOMPARE(m_host->session()->editedObject(), text);
    QVERIFY(TextCommands::plainText(text) != QLatin1String("typed!"));
}

void TestPanelValues::undoOfFormatKeepsWhatWasTyped_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<QString>("name");
    QTest::newRow("size") << "characterPanel"
                          << "font_pointsize";
    QTest::newRow("indent") << "paragraphPanel"
                            << "paragraph_left_indent";
    QTest::newRow("bend") << "warpPanel"
                          << "warp_value";
}

void TestPanelValues::undoOfFormatKeepsWhatWasTyped()
{
    QFETCH(QString, panel);
    QFETCH(QString, name);
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("typed words"));
    if (panel == QLatin1String("warpPanel"))
        m_host->bend(1);
    m_host->raise(qPrintable(panel));
    m_host->selectAllInEdit();
    m_host->enter(number(qPrintable(panel), qPrintable(name)), QStringLiteral("33"));
    QCOMPARE(m_host->attribute(text, qPrintable(name)).toDouble(), 33.0);
    m_host->session()->undo();
    m_host->settle();
    QVERIFY(m_host->attribute(text, qPrintable(name)).toDouble() != 33.0);
    QCOMPARE(TextCommands::plainText(text), QStringLiteral("typed words"));
}

void TestPanelValues::whatIsNoNumberChangesNothing_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("byEnter");
    for (const bool byEnter : {false, true}) {
        const char *way = byEnter ? "enter" : "focus";
        QTest::addRow("nothing, %s", way) << QStringLiteral("1") << byEnter;
        QTest::addRow("sign, %s", way) << QStringLiteral("-") << byEnter;
    }
}

void TestPanelValues::whatIsNoNumberChangesNothing()
{
    QFETCH(QString, typed);
    QFETCH(bool, byEnter);
    CVXRootObject *first = m_host->writeLine({100, 150}, QStringLiteral("first"));
    NumberField *field = number("characterPanel", "baseline_offset");
    m_host->enter(field, QStringLiteral("6"));
    CVXRootObject *second = m_host->writeLine({100, 250}, QStringLiteral("second"));
    m_host->session()->selectAll();
    m_host->settle();
    QVERIFY(field->isMixed());
    const int steps = m_host->steps()->count();
    field->setFocus();
    QTest::keyClicks(field, typed);
    if (typed == QLatin1String("1"))
        QTest::keyClick(field, Qt::Key_Backspace);
    if (byEnter)
        QTest::keyClick(field, Qt::Key_Return);
    else
        m_host->view()->setFocus();
    m_host->settle();
    QCOMPARE(m_host->steps()->count(), steps);
    QCOMPARE(m_host->attribute(first, "baseline_offset").toDouble(), 6.0);
    QCOMPARE(m_host->attribute(second, "baseline_offset").toDouble(), 0.0);
    QVERIFY(field->isMixed());
    QCOMPARE(field->cleanText(), QString());
}

// Paragraphs

void TestPanelValues::numberOfOneParagraphIsMixedInSelection_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key :
         {"paragraph_left_indent", "paragraph_right_indent", "paragraph_first_indent",
          "paragraph_after_space", "paragraph_before_space"})
        QTest::newRow(key) << key;
}

void TestPanelValues::numberOfOneParagraphIsMixedInSelection()
{
    QFETCH(QString, key);
    startTwoParagraphs();
    NumberField *field = number("paragraphPanel", qPrintable(key));
    QVERIFY(!field->isMixed());
    QCOMPARE(field->value(), 0.0);
    m_host->enter(field, QStringLiteral("18"));
    QCOMPARE(field->value(), 18.0);
    m_host->selectAllInEdit();
    QVERIFY(field->isMixed());
    m_host->enter(field, QStringLiteral("9"));
    QVERIFY(!field->isMixed());
    QCOMPARE(field->value(), 9.0);
    m_host->view()->setFocus();
    QTest::keyClick(m_host->view(), Qt::Key_Home, Qt::ControlModifier);
    m_host->settle();
    QCOMPARE(field->value(), 9.0);
}

void TestPanelValues::ruleOfOneParagraphIsMixedInSelection_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("hyphenation") << "text_ligature";
    QTest::newRow("punctuation") << "paragraph_punctuation_extra";
}

void TestPanelValues::ruleOfOneParagraphIsMixedInSelection()
{
    QFETCH(QString, key);
    startTwoParagraphs();
    auto *box = m_host->find<FlagBox>("paragraphPanel", qPrintable(key));
    QCOMPARE(box->checkState(), Qt::Unchecked);
    box->click();
    m_host->settle();
    QCOMPARE(box->checkState(), Qt::Checked);
    m_host->selectAllInEdit();
    QCOMPARE(box->checkState(), Qt::PartiallyChecked);
    box->click();
    m_host->settle();
    QCOMPARE(box->checkState(), Qt::Checked);
    box->click();
    m_host->settle();
    QCOMPARE(box->checkState(), Qt::Unchecked);
}

void TestPanelValues::lineEndRuleOfOneParagraphIsMixedInSelection()
{
    startTwoParagraphs();
    auto *rule = m_host->find<QComboBox>("paragraphPanel", "paragraph_head_tail_punctuation");
    QCOMPARE(rule->currentIndex(), 0);
    rule->setFocus();
    QTest::keyClick(rule, Qt::Key_End);
    m_host->settle();
    QCOMPARE(rule->currentIndex(), 2);
    m_host->selectAllInEdit();
    QCOMPARE(rule->currentIndex(), -1);
    rule->setFocus();
    QTest::keyClick(rule, Qt::Key_End);
    m_host->settle();
    QCOMPARE(rule->currentIndex(), 2);
}

void TestPanelValues::alignmentsThatAreThereAreMixed()
{
    startTwoParagraphs();
    const auto alignment = [this](const char *name) {
        return m_host->find<FlagButton>("paragraphPanel", name);
    };
    QVERIFY(alignment("alignment-left")->isChecked());
    alignment("alignment-right")->click();
    m_host->settle();
    QVERIFY(alignment("alignment-right")->isChecked());
    m_host->selectAllInEdit();
    QVERIFY(alignment("alignment-left")->isMixed());
    QVERIFY(alignment("alignment-right")->isMixed());
    QVERIFY(!alignment("alignment-center")->isMixed());
    QVERIFY(!alignment("alignment-center")->isChecked());
    alignment("alignment-center")->click();
    m_host->settle();
    QVERIFY(alignment("alignment-center")->isChecked());
    QVERIFY(!alignment("alignment-left")->isMixed());
}

void TestPanelValues::sameValueAgainMakesNoStep()
{
    startTwoParagraphs();
    m_host->find<FlagButton>("paragraphPanel", "alignment-right")->click();
    m_host->settle();
    const int inEdit = m_host->steps()->count();
    m_host->find<FlagButton>("paragraphPanel", "alignment-right")->click();
    m_host->settle();
    QCOMPARE(m_host->steps()->count(), inEdit);
    QTest::keyClick(m_host->view(), Qt::Key_Escape);
    m_host->settle();

    m_host->find<FlagButton>("paragraphPanel", "alignment-right")->click(); // of the other one too
    m_host->settle();
    const int steps = m_host->steps()->count();
    QVERIFY(!m_host->find<FlagButton>("paragraphPanel", "alignment-right")->isMixed());
    m_host->find<FlagButton>("paragraphPanel", "alignment-right")->click();
    auto *rule = m_host->find<QComboBox>("paragraphPanel", "paragraph_head_tail_punctuation");
    Q_EMIT rule->activated(0);
    Q_EMIT family()->picked(QStringLiteral("DejaVu Sans"));
    m_host->settle();
    QCOMPARE(m_host->steps()->count(), steps);
    QVERIFY(m_host->find<FlagButton>("paragraphPanel", "alignment-right")->isChecked());
}

void TestPanelValues::indentsOfEditedLineAreNumbers()
{
    QFETCH(QString, key);
    m_host->startLine({100, 150}, QStringLiteral("edited"));
    m_host->raise("paragraphPanel");
    NumberField *field = number("paragraphPanel", qPrintable(key));
    QVERIFY(!field->isMixed());
    m_host->selectAllInEdit();
    QVERIFY(!field->isMixed());
    QTest::keyClick(m_host->view(), Qt::Key_Escape);
    m_host->settle();
    QVERIFY(!field->isMixed());
    TextCommands::beginEdit(m_host->object(0));
    m_host->settle();
    QVERIFY(!field->isMixed());
    QCOMPARE(field->value(), 0.0);
}

// Caret

void TestPanelValues::letterSpacingAtCaretIsForWhatIsTypedNext()
{
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("ab"));
    NumberField *field = number("characterPanel", "selected_letterspacing");
    QCOMPARE(field->value(), 0.0);
    m_host->enter(field, QStringLiteral("300"));
    QCOMPARE(field->value(), 300.0);
    QTest::keyClicks(m_host->view(), QStringLiteral("cd"));
    QTest::keyClick(m_host->view(), Qt::Key_Home);
    m_host->settle();
    QCOMPARE(field->value(), 0.0);
    QTest::keyClick(m_host->view(), Qt::Key_End);
    m_host->settle();
    QCOMPARE(field->value(), 300.0);
    m_host->selectAllInEdit();
    QVERIFY(field->isMixed());
    QCOMPARE(TextCommands::plainText(text), QStringLiteral("abcd"));
}

void TestPanelValues::kerningIsOfCharactersBesideCaret()
{
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("abcd"));
    QTest::keyClick(m_host->view(), Qt::Key_Left);
    QTest::keyClick(m_host->view(), Qt::Key_Left);
    m_host->settle();
    NumberField *field = number("characterPanel", "font_letterspacing");
    QVERIFY(field->isEnabled());
    QCOMPARE(field->value(), 0.0);
    const double width = text->getSize().width();
    m_host->enter(field, QStringLiteral("500"));
    QCOMPARE(field->value(), 500.0);
    QCOMPARE(text->getSize().width() - width, 16.0); // half of 24 pt at 96 dots an inch
    QTest::keyClick(m_host->view(), Qt::Key_Right);
    m_host->settle();
    QCOMPARE(field->value(), 0.0);
    QTest::keyClick(m_host->view(), Qt::Key_Left);
    m_host->settle();
    QCOMPARE(field->value(), 500.0);
}

void TestPanelValues::kerningNeedsCaret()
{
    m_host->startLine({100, 150}, QStringLiteral("abcd"));
    NumberField *field = number("characterPanel", "font_letterspacing");
    QVERIFY(field->isEnabled());
    m_host->selectBack(2);
    QVERIFY(!field->isEnabled());
    QVERIFY(number("characterPanel", "selected_letterspacing")->isEnabled());
    QTest::keyClick(m_host->view(), Qt::Key_Escape);
    m_host->settle();
    QVERIFY(!field->isEnabled());
}

// Steps up and down

void TestPanelValues::stepsAreOneStep_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("perStep");
    QTest::newRow("size") << "characterPanel"
                          << "font_pointsize" << 1.0;
    QTest::newRow("scale") << "characterPanel"
                           << "horizontal_scaled" << 1.0;
    QTest::newRow("letter spacing") << "characterPanel"
                                    << "selected_letterspacing" << 20.0;
    QTest::newRow("indent") << "paragraphPanel"
                            << "paragraph_left_indent" << 1.0;
    QTest::newRow("x") << "objectPanel"
                       << "x" << 1.0;
    QTest::newRow("height") << "objectPanel"
                            << "height" << 1.0;
    QTest::newRow("angle") << "objectPanel"
                           << "angle" << 1.0;
    QTest::newRow("bend") << "warpPanel"
                          << "warp_value" << 1.0;
    QTest::newRow("vertical warp") << "warpPanel"
                                   << "warp_vertical_value" << 1.0;
}

void TestPanelValues::stepsAreOneStep()
{
    QFETCH(QString, panel);
    QFETCH(QString, name);
    QFETCH(double, perStep);
    m_host->writeLine({100, 150}, QStringLiteral("stepped"));
    m_host->bend(1);
    m_host->raise(qPrintable(panel));
    NumberField *field = number(qPrintable(panel), qPrintable(name));
    const double start = field->value();
    const int steps = m_host->steps()->index();
    stepUp(field, 3);
    m_host->settle();
    QCOMPARE(field->value(), start + 3 * perStep);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    QCOMPARE(m_host->steps()->count(), steps + 1);
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(field->value(), start);
    m_host->session()->redo();
    m_host->settle();
    QCOMPARE(field->value(), start + 3 * perStep);
}

void TestPanelValues::escapeTakesStepsBack()
{
    QFETCH(QString, panel);
    QFETCH(QString, name);
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("stepped"));
    m_host->bend(1);
    m_host->raise(qPrintable(panel));
    NumberField *field = number(qPrintable(panel), qPrintable(name));
    const double start = field->value();
    const QRectF place(text->getPos(), text->getSize());
    const int steps = m_host->steps()->count();
    stepUp(field, 3);
    QVERIFY(field->value() != start);
    QTest::keyClick(field, Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(field->value(), start);
    QCOMPARE(QRectF(text->getPos(), text->getSize()), place);
    QCOMPARE(m_host->steps()->count(), steps);
    QVERIFY(m_host->view()->hasFocus());
}

void TestPanelValues::stepsInSelectionAreOneStep()
{
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("plain part"));
    m_host->selectBack(4);
    NumberField *field = number("characterPanel", "font_pointsize");
    const QSizeF size = text->getSize();
    stepUp(field, 1);
    const int steps = m_host->steps()->index() - 1; // with one of what was typed
    stepUp(field, 5);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    QCOMPARE(field->value(), 30.0);
    QVERIFY(text->getSize() != size);
    QTest::keyClick(field, Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(m_host->steps()->index(), steps);
    QCOMPARE(field->value(), 24.0);
    QCOMPARE(text->getSize(), size);
    QCOMPARE(m_host->session()->editedObject(), text);
    QTest::keyClick(m_host->view(), Qt::Key_Delete); // of what is selected still
    QCOMPARE(TextCommands::plainText(text), QStringLiteral("plain "));
}

void TestPanelValues::stepsAtCaretAreTakenBack()
{
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("ab"));
    NumberField *field = number("characterPanel", "font_pointsize");
    stepUp(field, 2);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_pointsize").toDouble(), 26.0);
    QTest::keyClick(field, Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_pointsize").toDouble(), 24.0);
    QCOMPARE(field->value(), 24.0);
    QTest::keyClicks(m_host->view(), QStringLiteral("c"));
    m_host->settle();
    m_host->selectAllInEdit();
    QVERIFY(!field->isMixed());
}

void TestPanelValues::focusLossEndsSteps()
{
    m_host->writeLine({100, 150}, QStringLiteral("stepped"));
    NumberField *field = number("characterPanel", "font_pointsize");
    const int steps = m_host->steps()->index();
    stepUp(field, 2);
    m_host->view()->setFocus();
    stepUp(field, 2);
    QCOMPARE(m_host->steps()->index(), steps + 2);
    QTest::keyClick(field, Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(field->value(), 26.0);
    QCOMPARE(m_host->steps()->index(), steps + 1);
}

void TestPanelValues::typedNumberIsWhereStepsBegin()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("stepped"));
    NumberField *field = number("characterPanel", "font_pointsize");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("40"));
    QTest::keyClick(field, Qt::Key_Up);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_pointsize").toDouble(), 41.0);
    QTest::keyClick(field, Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_pointsize").toDouble(), 24.0);
}

void TestPanelValues::stepByOtherHandIsNotTakenBack()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("stepped"));
    NumberField *field = number("characterPanel", "font_pointsize");
    stepUp(field, 1);
    text->setPos({222, 111}, /*undo=*/true);
    const int steps = m_host->steps()->index();
    QTest::keyClick(field, Qt::Key_Up);
    m_host->settle();
    QCOMPARE(text->getPos().x(), 222.0);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    QCOMPARE(m_host->attribute(text, "font_pointsize").toDouble(), 26.0);
}

void TestPanelValues::wheelAboveFieldChangesNothing()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("still"));
    NumberField *field = number("characterPanel", "font_pointsize");
    const QPointF middle = field->rect().center();
    QWheelEvent wheel(middle, field->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, /*inverted=*/false);
    QCoreApplication::sendEvent(field, &wheel);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_pointsize").toDouble(), 24.0);
    QVERIFY(m_host->view()->hasFocus());
}

void TestPanelValues::wheelAboveControlChangesNothing_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<QString>("name");
    QTest::newRow("font") << "characterPanel"
                          << "font_family";
    QTest::newRow("line ends") << "paragraphPanel"
                               << "paragraph_head_tail_punctuation";
    QTest::newRow("direction") << "warpPanel"
                               << "warpOrientation";
    QTest::newRow("bend") << "warpPanel"
                          << "warp_value_slider";
}

void TestPanelValues::wheelAboveControlChangesNothing()
{
    QFETCH(QString, panel);
    QFETCH(QString, name);
    m_host->writeLine({100, 150}, QStringLiteral("still"));
    m_host->bend(1);
    m_host->raise(qPrintable(panel));
    auto *control = m_host->find<QWidget>(qPrintable(panel), qPrintable(name));
    m_host->view()->setFocus();
    const int steps = m_host->steps()->count();
    const QPointF middle = control->rect().center();
    for (const int turn : {-120, 120}) {
        QWheelEvent wheel(middle, control->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, turn),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, /*inverted=*/false);
        QCoreApplication::sendEvent(control, &wheel);
        m_host->settle();
        QCOMPARE(m_host->steps()->count(), steps);
    }
    QVERIFY(control->focusPolicy() != Qt::WheelFocus);
    QVERIFY(m_host->view()->hasFocus());
}

// Keys in controls

void TestPanelValues::keysInChoiceKeepFocus_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<QString>("name");
    QTest::newRow("line ends") << "paragraphPanel"
                               << "paragraph_head_tail_punctuation";
    QTest::newRow("direction") << "warpPanel"
                               << "warpOrientation";
}

void TestPanelValues::keysInChoiceKeepFocus()
{
    QFETCH(QString, panel);
    QFETCH(QString, name);
    m_host->writeLine({100, 150}, QStringLiteral("still"));
    m_host->bend(1);
    m_host->raise(qPrintable(panel));
    auto *choice = m_host->find<QComboBox>(qPrintable(panel), qPrintable(name));
    choice->setFocus();
    QTest::keyClick(choice, Qt::Key_Down);
    m_host->settle();
    QCOMPARE(choice->currentIndex(), 1);
    QVERIFY(choice->hasFocus());
    QCOMPARE(choice->focusPolicy(), Qt::TabFocus); // the pointer leaves the keys to the page
}

void TestPanelValues::keysInFontBoxAreOneStep()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("face"));
    FontFamilyBox::noteRecent(QStringLiteral("DejaVu Sans"));
    const int steps = m_host->steps()->index();
    family()->setFocus();
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(family(), Qt::Key_Down);
        m_host->settle();
        QVERIFY(family()->hasFocus());
    }
    const QString chosen = m_host->attribute(text, "font_family").toString();
    QVERIFY(chosen != QLatin1String("DejaVu Sans"));
    QCOMPARE(m_host->steps()->index(), steps + 1);
    QCOMPARE(FontFamilyBox::recentFamilies().constFirst(), QStringLiteral("DejaVu Sans"));
    m_host->view()->setFocus();
    m_host->settle();
    QCOMPARE(FontFamilyBox::recentFamilies().constFirst(), chosen);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    m_host->session()->undo();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("DejaVu Sans"));
}

void TestPanelValues::escapeTakesFontsBack()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("face"));
    const QStringList recent = FontFamilyBox::recentFamilies();
    const int steps = m_host->steps()->index();
    family()->setFocus();
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(family(), Qt::Key_Down);
    QTest::keyClick(family(), Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(m_host->steps()->index(), steps);
    QCOMPARE(FontFamilyBox::recentFamilies(), recent);
    QVERIFY(m_host->view()->hasFocus());
}

void TestPanelValues::keysAtSliderAreOneStep()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bent"));
    m_host->bend(1);
    m_host->raise("warpPanel");
    auto *slider = m_host->find<LiveSlider>("warpPanel", "warp_value_slider");
    const int steps = m_host->steps()->index();
    slider->setFocus();
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(slider, Qt::Key_Right);
        m_host->settle();
    }
    QCOMPARE(m_host->attribute(text, "warp_value").toInt(), 53);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    QTest::keyClick(slider, Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "warp_value").toInt(), 50);
    QCOMPARE(slider->value(), 50);
    QCOMPARE(m_host->steps()->index(), steps);
}

void TestPanelValues::undoKeyIsPagesWithNothingTyped()
{
    m_host->writeLine({100, 150}, QStringLiteral("stepped"));
    NumberField *field = number("characterPanel", "font_pointsize");
    const auto isTaken = [field] {
        QKeyEvent key(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
        key.ignore();
        QCoreApplication::sendEvent(field, &key);
        return key.isAccepted();
    };
    field->setFocus();
    QVERIFY(!isTaken());
    QTest::keyClick(field, Qt::Key_Up);
    QVERIFY(!isTaken());
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("4"));
    QVERIFY(isTaken());
}

QTEST_MAIN(TestPanelValues)
#include "tst_panelvalues.moc"
