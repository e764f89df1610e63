// SPDX-License-Identifier: MIT
// The panels of characters and paragraphs, and the history.
#include "panelwindow.h"

#include "app/pagehost/fontfamilybox.h"
#include "app/pagehost/historypanel.h"
#include "app/pagehost/panelfields.h"

#include <QAbstractProxyModel>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDockWidget>
#include <QLineEdit>
#include <QTabBar>

#include <memory>

class TestCharacterPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_host = std::make_unique<PanelWindow>(&m_loader); }
    void cleanup() { m_host.reset(); }

    void panelIsOffWithoutText();
    void fieldsShowSelectedText();
    void flagIsOneStepForAllTexts();
    void lockedTextStaysAsItIs();
    void buttonLeavesEditAndFocus();
    void flagChangesSelectedCharactersAlone();
    void mixedRunsAreShownAsMixed();
    void mixedTextsAreShownAsMixed();
    void typedNumberIsTaken_data();
    void typedNumberIsTaken();
    void escapeGivesUpTypedNumber();
    void numberOfMixedFieldIsTaken();
    void superAndSubscriptExcludeEachOther();
    void missingFamilyHasSign();
    void typedPartOfFamilyFindsIt();
    void searchListsFamiliesWithThatPart();
    void familiesShowTheirOwnFace();
    void leavingTakesWholeNameAlone_data();
    void leavingTakesWholeNameAlone();
    void typedFamilyWaitsForOtherWindow();
    void usedFamilyComesFirst();
    void pickedFamilyIsRememberedAsUsedLast();
    void missingFamilyOfTextIsMarked();
    void colorOfSelectionIsShown();

    void alignmentIsSet_data();
    void alignmentIsSet();
    void justifyNeedsBox();
    void spacesAreCrossedOnPurpose();
    void paragraphRulesAreSet();

    void historyNamesSteps();
    void historyReadsAloudWhatItShows();
    void historyFollowsUndoAndRedo();
    void historyGoesBackAndForth();
    void historyKeepsTypedText();
    void everyControlHasAccessibleName();

private:
    FlagButton *flag(const char *name) { return m_host->find<FlagButton>("characterPanel", name); }
    NumberField *number(const char *panel, const char *name)
    {
        return m_host->find<NumberField>(panel, name);
    }
    FontFamilyBox *family() { return m_host->find<FontFamilyBox>("characterPanel", "font_family"); }
    void typeNumber(NumberField *field, const QString &text) { m_host->enter(field, text); }

    PluginLoader m_loader;
    std::unique_ptr<PanelWindow> m_host;
};

void TestCharacterPanel::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestCharacterPanel::panelIsOffWithoutText()
{
    m_host->settle();
    QVERIFY(!flag("font_bold")->isEnabled());
    m_host->writeLine({100, 150}, QStringLiteral("on"));
    QVERIFY(flag("font_bold")->isEnabled());
    m_host->session()->page()->scene()->clearSelection();
    m_host->settle();
    QVERIFY(!flag("font_bold")->isEnabled());
}

void TestCharacterPanel::fieldsShowSelectedText()
{
    m_host->writeLine({100, 150}, QStringLiteral("shown"));
    m_host->keepPicture("character.png");
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Sans"));
    QVERIFY(!family()->isMissing());
    QCOMPARE(number("characterPanel", "font_pointsize")->value(), 24.0);
    QCOMPARE(number("characterPanel", "horizontal_scaled")->value(), 100.0);
    QVERIFY(!number("characterPanel", "horizontal_scaled")->isMixed());
    QVERIFY(!flag("font_bold")->isChecked());
    QVERIFY(!flag("font_bold")->isMixed());
}

void TestCharacterPanel::flagIsOneStepForAllTexts()
{
    CVXRootObject *first = m_host->writeLine({100, 150}, QStringLiteral("first"));
    CVXRootObject *second = m_host->writeLine({100, 300}, QStringLiteral("second"));
    m_host->session()->selectAll();
    m_host->settle();
    const int before = m_host->steps()->index();
    flag("font_bold")->click();
    m_host->settle();
    QCOMPARE(m_host->attribute(first, "font_bold").toBool(), true);
    QCOMPARE(m_host->attribute(second, "font_bold").toBool(), true);
    QCOMPARE(m_host->steps()->index(), before + 1);
    m_host->session()->undo();
    QCOMPARE(m_host->attribute(first, "font_bold").toBool(), false);
    QCOMPARE(m_host->attribute(second, "font_bold").toBool(), false);
    m_host->settle();
    QVERIFY(!flag("font_bold")->isChecked());
}

void TestCharacterPanel::lockedTextStaysAsItIs()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("locked"));
    text->setLocked(true, /*undo=*/false, /*notify=*/true);
    m_host->selection()->apply({{QStringLiteral("font_bold"), true}});
    QCOMPARE(m_host->attribute(text, "font_bold").toBool(), false);
}

void TestCharacterPanel::buttonLeavesEditAndFocus()
{
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("ab"));
    QTest::mouseClick(flag("font_bold"), Qt::LeftButton);
    QCOMPARE(m_host->session()->editedObject(), text);
    QVERIFY(m_host->view()->hasFocus());
    QTest::keyClicks(m_host->view(), QStringLiteral("c"));
    QCOMPARE(TextCommands::plainText(text), QStringLiteral("abc"));
    number("characterPanel", "font_pointsize")->setFocus();
    QCOMPARE(m_host->session()->editedObject(), text);
    typeNumber(number("characterPanel", "font_pointsize"), QStringLiteral("40"));
    QCOMPARE(m_host->session()->editedObject(), text);
    QVERIFY(m_host->view()->hasFocus());
}

void TestCharacterPanel::flagChangesSelectedCharactersAlone()
{
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("plain bold"));
    m_host->selectBack(4);
    QTest::mouseClick(flag("font_bold"), Qt::LeftButton);
    m_host->settle();
    QVERIFY(flag("font_bold")->isChecked());
    QTest::keyClick(m_host->view(), Qt::Key_Home);
    m_host->settle();
    QVERIFY(!flag("font_bold")->isChecked());
    QCOMPARE(m_host->session()->editedObject(), text);
}

void TestCharacterPanel::mixedRunsAreShownAsMixed()
{
    m_host->startLine({100, 150}, QStringLiteral("plain bold"));
    m_host->selectBack(4);
    QTest::mouseClick(flag("font_bold"), Qt::LeftButton);
    typeNumber(number("characterPanel", "font_pointsize"), QStringLiteral("36"));
    QVERIFY(!flag("font_bold")->isMixed());
    m_host->view()->setFocus();
    QTest::keyClick(m_host->view(), Qt::Key_Escape);
    m_host->settle();
    m_host->keepPicture("mixed.png");
    QVERIFY(flag("font_bold")->isMixed());
    QVERIFY(!flag("font_italic")->isMixed());
    QVERIFY(number("characterPanel", "font_pointsize")->isMixed());
    QCOMPARE(number("characterPanel", "font_pointsize")->cleanText(), QString());
    QVERIFY(!number("characterPanel", "horizontal_scaled")->isMixed());
}

void TestCharacterPanel::mixedTextsAreShownAsMixed()
{
    m_host->writeLine({100, 150}, QStringLiteral("first"));
    flag("font_italic")->click();
    m_host->writeLine({100, 300}, QStringLiteral("second"));
    m_host->session()->selectAll();
    m_host->settle();
    QVERIFY(flag("font_italic")->isMixed());
    QVERIFY(!flag("font_bold")->isMixed());
    flag("font_italic")->click();
    m_host->settle();
    QVERIFY(!flag("font_italic")->isMixed());
    QVERIFY(flag("font_italic")->isChecked());
}

void TestCharacterPanel::typedNumberIsTaken_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("expected");
    QTest::newRow("size") << "font_pointsize"
                          << "31.5" << 31.5;
    QTest::newRow("horizontal scale") << "horizontal_scaled"
                                      << "150" << 150.0;
    QTest::newRow("vertical scale") << "vertical_scaled"
                                    << "80" << 80.0;
    QTest::newRow("baseline") << "baseline_offset"
                              << "6" << 6.0;
    QTest::newRow("letter spacing") << "selected_letterspacing"
                                    << "100" << 100.0;
    QTest::newRow("row spacing") << "font_rowspacing"
                                 << "12" << 12.0;
}

void TestCharacterPanel::typedNumberIsTaken()
{
    QFETCH(QString, key);
    QFETCH(QString, typed);
    QFETCH(double, expected);
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("number"));
    const int before = m_host->steps()->index();
    NumberField *field = number("characterPanel", qPrintable(key));
    QVERIFY(field);
    typeNumber(field, typed);
    QCOMPARE(m_host->attribute(text, qPrintable(key)).toDouble(), expected);
    QCOMPARE(field->value(), expected);
    QCOMPARE(m_host->steps()->index(), before + 1);
    QVERIFY(m_host->view()->hasFocus());
}

void TestCharacterPanel::escapeGivesUpTypedNumber()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("kept"));
    NumberField *field = number("characterPanel", "font_pointsize");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("70"));
    QTest::keyClick(field, Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_pointsize").toDouble(), 24.0);
    QCOMPARE(field->value(), 24.0);
    QVERIFY(m_host->view()->hasFocus());
}

void TestCharacterPanel::numberOfMixedFieldIsTaken()
{
    CVXRootObject *first = m_host->writeLine({100, 150}, QStringLiteral("first"));
    typeNumber(number("characterPanel", "font_pointsize"), QStringLiteral("48"));
    CVXRootObject *second = m_host->writeLine({100, 300}, QStringLiteral("second"));
    m_host->session()->selectAll();
    m_host->settle();
    NumberField *field = number("characterPanel", "font_pointsize");
    QVERIFY(field->isMixed());
    typeNumber(field, QStringLiteral("24")); // what a step in the empty field starts from
    QCOMPARE(m_host->attribute(first, "font_pointsize").toDouble(), 24.0);
    QCOMPARE(m_host->attribute(second, "font_pointsize").toDouble(), 24.0);
    QVERIFY(!field->isMixed());
}

void TestCharacterPanel::superAndSubscriptExcludeEachOther()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("x2"));
    flag("text_superscript")->click();
    m_host->settle();
    QVERIFY(m_host->attribute(text, "text_superscript").toBool());
    flag("text_subscript")->click();
    m_host->settle();
    QVERIFY(!m_host->attribute(text, "text_superscript").toBool());
    QVERIFY(m_host->attribute(text, "text_subscript").toBool());
    QVERIFY(!flag("text_superscript")->isChecked());
    flag("text_subscript")->click();
    m_host->settle();
    QVERIFY(!m_host->attribute(text, "text_subscript").toBool());
}

void TestCharacterPanel::missingFamilyHasSign()
{
    FontFamilyBox box(QStringLiteral("Font"));
    box.show(QStringLiteral("Never Installed"));
    QVERIFY(box.isMissing());
    QCOMPARE(box.lineEdit()->text(), QStringLiteral("Never Installed"));
    QCOMPARE(box.accessibleDescription(), QStringLiteral("This font is not installed"));
    box.show(QStringLiteral("DejaVu Sans"));
    QVERIFY(!box.isMissing());
    QCOMPARE(box.accessibleDescription(), QString());
}

void TestCharacterPanel::typedPartOfFamilyFindsIt()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("face"));
    family()->setFocus();
    family()->lineEdit()->selectAll();
    QTest::keyClicks(family()->lineEdit(), QStringLiteral("sans mono"));
    QTest::keyClick(family(), Qt::Key_Return);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("DejaVu Sans Mono"));
}

void TestCharacterPanel::leavingTakesWholeNameAlone_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("family");
    QTest::newRow("part") << QStringLiteral("s") << QStringLiteral("DejaVu Sans");
    QTest::newRow("whole") << QStringLiteral("dejavu serif") << QStringLiteral("DejaVu Serif");
}

void TestCharacterPanel::leavingTakesWholeNameAlone()
{
    QFETCH(QString, typed);
    QFETCH(QString, family);
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("face"));
    auto *box = m_host->find<FontFamilyBox>("characterPanel", "font_family");
    box->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box, typed);
    box->completer()->popup()->hide();
    m_host->view()->setFocus();
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), family);
    QCOMPARE(box->lineEdit()->text(), family);
}

void TestCharacterPanel::typedFamilyWaitsForOtherWindow()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("face"));
    auto *box = m_host->find<FontFamilyBox>("characterPanel", "font_family");
    box->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box, QStringLiteral("s"));
    box->completer()->popup()->hide();
    QFocusEvent otherWindow(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(box, &otherWindow);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(box->lineEdit()->text(), QStringLiteral("s"));
}

void TestCharacterPanel::usedFamilyComesFirst()
{
    FontFamilyBox::noteRecent(QStringLiteral("DejaVu Sans"));
    FontFamilyBox::noteRecent(QStringLiteral("DejaVu Serif"));
    const FontFamilyBox box(QStringLiteral("Font"));
    QCOMPARE(box.itemText(0), QStringLiteral("DejaVu Serif"));
    QCOMPARE(box.itemText(1), QStringLiteral("DejaVu Sans"));
    QCOMPARE(box.itemData(0, Qt::FontRole).value<QFont>().family(), QStringLiteral("DejaVu Serif"));
}

void TestCharacterPanel::searchListsFamiliesWithThatPart()
{
    m_host->writeLine({100, 150}, QStringLiteral("face"));
    family()->setFocus();
    family()->lineEdit()->selectAll();
    QTest::keyClicks(family()->lineEdit(), QStringLiteral("vu sans m"));
    QCompleter *search = family()->completer();
    QVERIFY(search->completionCount() > 0);
    for (int row = 0; search->setCurrentRow(row); ++row) {
        const QString found = search->currentCompletion();
        QVERIFY2(found.contains(QLatin1String("vu sans m"), Qt::CaseInsensitive),
                 qPrintable(found));
    }
    QTest::keyClick(family(), Qt::Key_Escape);
}

/// In the list and among what the search has found; a family without Latin letters shows its name in the
/// usual face.
void TestCharacterPanel::familiesShowTheirOwnFace()
{
    const FontFamilyBox box(QStringLiteral("Font"));
    const QAbstractItemModel *found = box.completer()->completionModel();
    QCOMPARE(qobject_cast<const QAbstractProxyModel *>(found)->sourceModel(), box.model());
    int faces = 0;
    for (int row = 0; row < box.count(); ++row) {
        const QVariant face = box.itemData(row, Qt::FontRole);
        if (!face.isValid())
            continue;
        QCOMPARE(face.value<QFont>().family(), box.itemText(row));
        ++faces;
    }
    QVERIFY(faces > 1);
}

void TestCharacterPanel::pickedFamilyIsRememberedAsUsedLast()
{
    m_host->writeLine({100, 150}, QStringLiteral("face"));
    for (const char *name : {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"}) {
        family()->setFocus();
        family()->lineEdit()->selectAll();
        QTest::keyClicks(family()->lineEdit(), QLatin1String(name));
        QTest::keyClick(family(), Qt::Key_Return);
    }
    const QStringList used = FontFamilyBox::recentFamilies();
    QCOMPARE(used.mid(0, 3),
             QStringList({QStringLiteral("DejaVu Sans Mono"), QStringLiteral("DejaVu Serif"),
                          QStringLiteral("DejaVu Sans")}));
    QCOMPARE(used.count(QStringLiteral("DejaVu Sans")), 1);
}

void TestCharacterPanel::missingFamilyOfTextIsMarked()
{
    m_host->addTextWithMissingFont();
    QCOMPARE(family()->lineEdit()->text(), QStringLiteral("Never Installed"));
    QVERIFY(family()->isMissing());
    QCOMPARE(family()->accessibleDescription(), QStringLiteral("This font is not installed"));
}

void TestCharacterPanel::colorOfSelectionIsShown()
{
    m_host->writeLine({100, 150}, QStringLiteral("red"));
    auto *button = m_host->find<ColorButton>("characterPanel", "pen_color");
    QCOMPARE(button->color(), QColor(Qt::black));
    Q_EMIT button->picked(QColor(200, 10, 20));
    m_host->settle();
    QCOMPARE(button->color(), QColor(200, 10, 20));
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(button->color(), QColor(Qt::black));
}

// Paragraphs

void TestCharacterPanel::alignmentIsSet_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isHorizontal");
    QTest::addColumn<int>("expected");
    QTest::newRow("lines left") << "left" << true << 1;
    QTest::newRow("lines right") << "right" << true << 2;
    QTest::newRow("lines centre") << "center" << true << 4;
    QTest::newRow("lines justified") << "justify" << true << 8;
    QTest::newRow("lines justified, last left") << "justify-left" << true << 0x200;
    QTest::newRow("lines justified, last centred") << "justify-center" << true << 0x400;
    QTest::newRow("lines justified, last right") << "justify-right" << true << 0x800;
    QTest::newRow("columns top") << "left" << false << 0x20;
    QTest::newRow("columns bottom") << "right" << false << 0x40;
    QTest::newRow("columns middle") << "center" << false << 0x80;
    QTest::newRow("columns justified") << "justify" << false << 0x100;
}

void TestCharacterPanel::alignmentIsSet()
{
    QFETCH(QString, name);
    QFETCH(bool, isHorizontal);
    QFETCH(int, expected);
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("aligned"));
    m_host->selection()->apply({{QStringLiteral("text_wordwrap"), true}});
    m_host->selection()->apply({{QStringLiteral("text_horizontal"), isHorizontal}});
    m_host->raise("paragraphPanel");
    auto *button = m_host->find<FlagButton>("paragraphPanel",
                                            qPrintable(QStringLiteral("alignment-") + name));
    QVERIFY(button);
    QVERIFY(button->isEnabled());
    button->click();
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "textalignment").toInt(), expected);
    QVERIFY(button->isChecked());
    button->click();
    m_host->settle();
    QVERIFY(button->isChecked()); // one is always on
}

void TestCharacterPanel::justifyNeedsBox()
{
    m_host->writeLine({100, 150}, QStringLiteral("line"));
    m_host->raise("paragraphPanel");
    auto *button = m_host->find<FlagButton>("paragraphPanel", "alignment-justify");
    QVERIFY(!button->isEnabled());
    m_host->selection()->apply({{QStringLiteral("text_wordwrap"), true}});
    m_host->settle();
    QVERIFY(button->isEnabled());
}

void TestCharacterPanel::spacesAreCrossedOnPurpose()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("spaced"));
    m_host->raise("paragraphPanel");
    m_host->keepPicture("paragraph.png");
    NumberField *before = number("paragraphPanel", "paragraph_after_space");
    QCOMPARE(before->accessibleName(), QStringLiteral("Space before"));
    typeNumber(before, QStringLiteral("18"));
    QCOMPARE(m_host->attribute(text, "paragraph_after_space").toDouble(), 18.0);
    typeNumber(number("paragraphPanel", "paragraph_left_indent"), QStringLiteral("12.5"));
    QCOMPARE(m_host->attribute(text, "paragraph_left_indent").toDouble(), 12.5);
    typeNumber(number("paragraphPanel", "paragraph_first_indent"), QStringLiteral("20"));
    QCOMPARE(m_host->attribute(text, "paragraph_first_indent").toDouble(), 20.0);
}

void TestCharacterPanel::paragraphRulesAreSet()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("ruled"));
    m_host->raise("paragraphPanel");
    m_host->find<QCheckBox>("paragraphPanel", "text_ligature")->click();
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "text_ligature").toBool(), true);
    m_host->find<QCheckBox>("paragraphPanel", "paragraph_punctuation_extra")->click();
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "paragraph_punctuation_extra").toInt(), 1);
    auto *rule = m_host->find<QComboBox>("paragraphPanel", "paragraph_head_tail_punctuation");
    rule->setFocus();
    QTest::keyClick(rule, Qt::Key_End);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "paragraph_head_tail_punctuation").toInt(), 2);
    QCOMPARE(rule->currentIndex(), 2);
}

// History

void TestCharacterPanel::historyNamesSteps()
{
    m_host->writeLine({100, 150}, QStringLiteral("one"));
    auto *history = m_host->window()->findChild<HistoryPanel *>();
    QVERIFY(history);
    const QAbstractItemModel *model = history->model();
    QCOMPARE(model->rowCount(), m_host->steps()->count() + 1);
    const auto name = [&](int row) { return model->index(row, 0).data().toString(); };
    QCOMPARE(name(0), QStringLiteral("The page as it was"));
    QCOMPARE(name(1), QStringLiteral("Add Object"));
    QCOMPARE(name(2), QStringLiteral("Change Text"));
    QCOMPARE(history->currentIndex().row(), m_host->steps()->index());
}

void TestCharacterPanel::historyReadsAloudWhatItShows()
{
    m_host->writeLine({100, 150}, QStringLiteral("one"));
    auto *history = m_host->window()->findChild<HistoryPanel *>();
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(history);
    QVERIFY(list);
    QCOMPARE(list->text(QAccessible::Name), QStringLiteral("History"));
    QCOMPARE(list->childCount(), m_host->steps()->count() + 1);
    const auto spoken = [&](int row) { return list->child(row)->text(QAccessible::Name); };
    QCOMPARE(spoken(0), QStringLiteral("The page as it was"));
    QCOMPARE(spoken(1), QStringLiteral("Add Object"));
    QCOMPARE(spoken(2), QStringLiteral("Change Text"));
}

void TestCharacterPanel::historyFollowsUndoAndRedo()
{
    m_host->writeLine({100, 150}, QStringLiteral("one"));
    auto *history = m_host->window()->findChild<HistoryPanel *>();
    const int steps = m_host->steps()->count();
    m_host->session()->undo();
    QCOMPARE(history->currentIndex().row(), steps - 1);
    m_host->session()->redo();
    QCOMPARE(history->currentIndex().row(), steps);
    m_host->writeLine({100, 300}, QStringLiteral("two"));
    QCOMPARE(history->currentIndex().row(), m_host->steps()->count());
    QCOMPARE(history->model()->rowCount(), m_host->steps()->count() + 1);
}

void TestCharacterPanel::historyGoesBackAndForth()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("one"));
    flag("font_bold")->click();
    flag("font_italic")->click();
    m_host->settle();
    const int steps = m_host->steps()->count();
    auto *history = m_host->window()->findChild<HistoryPanel *>();
    history->setCurrentIndex(history->model()->index(steps - 1, 0));
    QCOMPARE(m_host->attribute(text, "font_italic").toBool(), false);
    QCOMPARE(m_host->attribute(text, "font_bold").toBool(), true);
    history->setCurrentIndex(history->model()->index(steps, 0));
    QCOMPARE(m_host->attribute(text, "font_italic").toBool(), true);
}

void TestCharacterPanel::historyKeepsTypedText()
{
    m_host->writeLine({100, 150}, QStringLiteral("one"));
    CVXRootObject *text = m_host->startLine({100, 300}, QStringLiteral("typed"));
    auto *history = qobject_cast<HistoryPanel *>(m_host->raise("historyPanel"));
    QVERIFY(history);
    const QRect row = history->visualRect(history->model()->index(1, 0));
    QTest::mouseClick(history->viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(m_host->steps()->index(), 1);
    QVERIFY(!m_host->session()->editedObject());
    m_host->steps()->setIndex(m_host->steps()->count());
    QCOMPARE(m_host->session()->page()->objects().constLast(), text);
    QCOMPARE(TextCommands::plainText(text), QStringLiteral("typed"));
}

/// Whatever the keys can reach, and whatever is pressed.
void TestCharacterPanel::everyControlHasAccessibleName()
{
    const QList<QDockWidget *> docks = m_host->window()->findChildren<QDockWidget *>();
    QCOMPARE(docks.size(), 8);
    int seen = 0;
    for (QDockWidget *dock : docks) {
        for (QWidget *control : dock->findChildren<QWidget *>()) {
            const bool isButton = qobject_cast<QAbstractButton *>(control) != nullptr;
            const bool isPart = control->focusProxy() || qobject_cast<QLineEdit *>(control)
                                || control->inherits("QLineEditIconButton")
                                || control->inherits("QComboBoxListView");
            if (isPart || (control->focusPolicy() == Qt::NoFocus && !isButton))
                continue;
            QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(control);
            QVERIFY(spoken);
            const QString what = QStringLiteral("%1 %2 in %3")
                                     .arg(QLatin1String(control->metaObject()->className()),
                                          control->objectName(), dock->objectName());
            QVERIFY2(!spoken->text(QAccessible::Name).isEmpty(), qPrintable(what));
            ++seen;
        }
    }
    QVERIFY(seen > 60);
    const auto bars = m_host->window()->findChildren<QTabBar *>();
    QVERIFY(bars.size() >= 2);
    for (const QTabBar *bar : bars)
        QCOMPARE(bar->accessibleName(), QStringLiteral("Panels"));
}

QTEST_MAIN(TestCharacterPanel)
#include "tst_characterpanel.moc"
