// SPDX-License-Identifier: MIT
// Whole attribute maps, given by a host and shown to it: what changes, which step is recorded, who is told.
#include "callinghost.h"
#include "openword.h"

#include <QTest>

#include <cmath>
#include <functional>
#include <limits>

class TestAttributeCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // every key
    void keyChangesTheWholeText_data();
    void keyChangesTheWholeText();
    void keyWithoutUndoPushesNothing_data() { keyChangesTheWholeText_data(); }
    void keyWithoutUndoPushesNothing();
    void keyOnSelectionChangesItAlone_data() { keyChangesTheWholeText_data(); }
    void keyOnSelectionChangesItAlone();
    void keyAtCaretIsForWhatIsTypedNext_data() { keyChangesTheWholeText_data(); }
    void keyAtCaretIsForWhatIsTypedNext();
    void unknownKeysDoNothing();

    // text and default word
    void textReplacesEverything();
    void textInEditStateIsLaidOut();
    void presentTextIsAChangeToo();
    void defaultWordCountsWhenItDiffers();
    void defaultFollowNeedsTheDefaultWord();

    // steps and notices
    void initialisingPushesNoStep();
    void inputMethodRecordsAndTellsNothing();
    void inputMethodIsQuietOnEveryRoad_data();
    void inputMethodIsQuietOnEveryRoad();
    void compositionEndsOnlyAheadOfAStep();
    void heldStateIsWhereTheStepGoesBackTo();
    void caretFormatLaysOutForEmptyTextAndParagraphsOnly();
    void twoCommandsAreTwoSteps();

    // letter spacing
    void gapIsClosedOutsideEditState();
    void gapAloneSpacesOneCharacterInEditState_data();
    void gapAloneSpacesOneCharacterInEditState();
    void gapIsIgnoredInEditStateOtherwise();

    // single keys
    void familyCountsAsReplacementOfAllMissingOnes();
    void alignmentFitsFormAndDirection_data();
    void alignmentFitsFormAndDirection();
    void sizeMustBeAboveZero_data();
    void sizeMustBeAboveZero();
    void superscriptNeedsSubscript_data();
    void superscriptNeedsSubscript();
    void adjustSizeTakesTheRoomOfTheWord();
    void blankNumbersLeaveThePropertyAlone_data();
    void blankNumbersLeaveThePropertyAlone();
    void numbersThatComeAsTheyAreKeepTheirType();

    // orientation
    void orientationTurnsTheText();
    void presentOrientationHidesOtherChanges();
    void changeHiddenByTheOrientationIsLaidOut();
    void orientationOfEditedBoxIsLaidOut();

    // box and line
    void lineBecomesBox();
    void boxBecomesLine();
    void boxBecomesLineWithoutAStep_data();
    void boxBecomesLineWithoutAStep();
    void boxOfOlderEngineStaysABox();
    void presentFormStillPushesAStep();
    void boxThatBeginsToFollowItsTextIsLaidOut();

    // shown attributes
    void everyKeyIsShown();
    void allTextIsFoldedOutsideEditState();
    void selectionAloneIsFolded();
    void caretShowsItsFormatWithTheGapToTheRight();
    void askingChangesNothing();

    // whatever comes in
    void wrongTypes_data();
    void wrongTypes();
    void listenerCallsBack_data();
    void listenerCallsBack();
    void listenerThatNeverStops();
};

namespace {
QString key(const char *word)
{
    return QString::fromLatin1(word);
}

/// A finished text "ab", in line form unless told otherwise.
struct Text {
    RecordingHost host;
    OpenWord word{&host};

    explicit Text(const QString &text = QStringLiteral("ab"), bool wrapped = false)
    {
        if (wrapped) {
            word.m_wordWrap = true;
            word.m_wordManager->setWordWrap(true);
            word.updatePosition(&word, QRectF(0, 0, 64, 100));
        }
        word.add(text);
        // The formats as a document string brings them.
        word.undoRedo(word.serialize(false), false);
        host.clearEvents();
    }
    void edit(int start, int end)
    {
        word.m_cursor->setPosition(end);
        word.beginEdit();
        word.select(start, end);
        host.clearEvents();
    }
    bool set(const AttributeMap &attributes, bool withUndo = true)
    {
        return word.setAllAttributes(attributes, withUndo);
    }
    QString string() const { return word.serialize(false); }
    int steps() const { return const_cast<Text *>(this)->host.stack().count(); }
    QVector<int> told() const { return operationsOf(host); }
};

QJsonValue runValue(const QString &string, const QString &name, int block = 0, int run = 0)
{
    return jsonOf(string)
        .value(QLatin1String("fragment"))
        .toArray()
        .at(block)
        .toArray()
        .at(run)
        .toObject()
        .value(name);
}

QJsonValue blockValue(const QString &string, const QString &name, int block = 0)
{
    return jsonOf(string).value(QLatin1String("block")).toArray().at(block).toObject().value(name);
}

QTextCharFormat formatBehind(const OpenWord &word, int position)
{
    QTextCursor cursor(word.m_document);
    cursor.setPosition(position);
    return cursor.charFormat();
}
} // namespace

void TestAttributeCommands::keyChangesTheWholeText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("ofBlock");
    QTest::addColumn<QJsonValue>("stored"); // in the document string
    QTest::addColumn<int>("property");
    const auto run = [](const char *name, const QVariant &value, const QJsonValue &stored,
                        int property) {
        QTest::newRow(name) << key(name) << value << false << stored << property;
    };
    const auto block = [](const char *name, const QVariant &value, const QJsonValue &stored,
                          int property) {
        QTest::newRow(name) << key(name) << value << true << stored << property;
    };
    run("font_family", QStringLiteral("No Such Family"), QStringLiteral("No Such Family"), 8192);
    run("font_bold", true, true, 8195);
    run("font_italic", true, true, 8196);
    run("font_strikeout", true, true, 8199);
    run("font_underline", true, true, 8227);
    run("selected_letterspacing", 100, 100, 1012);
    run("font_pointsize", QStringLiteral("24.5"), 24.5, 8193);
    run("font_style", QStringLiteral("Heavy"), QStringLiteral("Heavy"), 8168);
    run("pen_color", QColor(255, 0, 16), QStringLiteral("#ff0010"), 2081);
    run("font_rowspacing", 20.5, 20.5, 1017);
    run("vertical_scaled", 150, 150, 1004);
    run("horizontal_scaled", QStringLiteral("50"), 50, 1005);
    run("baseline_offset", -3, -3, 1002);
    run("text_upper", true, true, 1003);
    block("textalignment", 4, 4, 1001);
    block("paragraph_left_indent", 12.5, 12.5, 1009);
    block("paragraph_right_indent", 2, 2, 1010);
    block("paragraph_after_space", 7, 7, 1006);
    block("paragraph_before_space", 8, 8, 1007);
    block("paragraph_first_indent", 12.5, 12.5, 1008);
    block("text_ligature", true, true, 1014);
    block("paragraph_head_tail_punctuation", 2, 2, 1015);
    block("paragraph_punctuation_extra", 1, 1, 1016);
}

void TestAttributeCommands::keyChangesTheWholeText()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(bool, ofBlock);
    QFETCH(QJsonValue, stored);
    Text text(QStringLiteral("ab\ncd"));
    const QString start = text.string();

    QVERIFY(text.set({{name, value}}));

    const QString end = text.string();
    for (int block : {0, 1})
        QCOMPARE(ofBlock ? blockValue(end, name, block) : runValue(end, name, block), stored);
    QCOMPARE(text.word.toPlainText(), QStringLiteral("ab\ncd"));
    QCOMPARE(text.steps(), 1);
    QCOMPARE(text.told(), QVector<int>{0});
    const AttributeMap told = text.host.eventsWithKey(key("text_operation")).first().values;
    QCOMPARE(QJsonValue::fromVariant(told.value(name)), stored);
    text.host.stack().undo();
    QCOMPARE(text.string(), start);
    text.host.stack().redo();
    QCOMPARE(text.string(), end);
}

void TestAttributeCommands::keyWithoutUndoPushesNothing()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(bool, ofBlock);
    QFETCH(QJsonValue, stored);
    Text text;
    QVERIFY(!text.set({{name, value}}, false));
    const QString end = text.string();
    QCOMPARE(ofBlock ? blockValue(end, name) : runValue(end, name), stored);
    QCOMPARE(text.steps(), 0);
    QCOMPARE(text.told(), QVector<int>{0});
}

void TestAttributeCommands::keyOnSelectionChangesItAlone()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(bool, ofBlock);
    QFETCH(QJsonValue, stored);
    Text text(QStringLiteral("abc\ncd"));
    text.edit(1, 2);
    const QString start = text.string();

    QVERIFY(text.set({{name, value}}));

    const QString end = text.string();
    if (ofBlock) {
        QCOMPARE(blockValue(end, name, 0), stored);
        QCOMPARE(blockValue(end, name, 1), blockValue(start, name, 1));
    } else {
        QCOMPARE(contentsOf(end).first(), (QStringList{key("a"), key("b"), key("c")}));
        QCOMPARE(runValue(end, name, 0, 1), stored);
        QCOMPARE(runValue(end, name, 0, 0), runValue(start, name));
        QCOMPARE(runValue(end, name, 0, 2), runValue(start, name));
    }
    QVERIFY(text.word.m_editing);
    QCOMPARE(text.word.m_selStart, 1);
    QCOMPARE(text.word.m_selEnd, 2);
    QCOMPARE(text.steps(), 1);
    QCOMPARE(text.told(), QVector<int>{0});
    text.host.stack().undo();
    QCOMPARE(text.string(), start);
}

void TestAttributeCommands::keyAtCaretIsForWhatIsTypedNext()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(bool, ofBlock);
    QFETCH(QJsonValue, stored);
    QFETCH(int, property);
    Text text;
    text.edit(2, 2);
    const QString start = text.string();

    QVERIFY(text.set({{name, value}}));

    QCOMPARE(text.steps(), 0);
    QCOMPARE(text.told(), QVector<int>{0});
    if (ofBlock) {
        QVERIFY(text.word.m_cursor->blockFormat().hasProperty(property));
        return;
    }
    QCOMPARE(text.string(), start);
    text.word.m_cursor->insertText(key("x"));
    QCOMPARE(runValue(text.string(), name, 0, 1), stored);
    QCOMPARE(runValue(text.string(), name, 0, 0), runValue(start, name));
    QVERIFY(!text.set({{name, value}}, false)); // no step was wanted
    QCOMPARE(text.steps(), 0);
}

void TestAttributeCommands::unknownKeysDoNothing()
{
    Text text;
    const QString start = text.string();
    QVERIFY(!text.set({{key("colour"), 1},
                       {key("text_editflag"), true},
                       {key("warp_style"), 3},
                       {key("warp_value"), 10},
                       {key("transform_xx"), 2.0},
                       {key("ori_font_family"), key("Other")}}));
    QVERIFY(!text.set({}));
    QCOMPARE(text.string(), start);
    QCOMPARE(text.steps(), 0);
    QCOMPARE(text.told(), QVector<int>());
    QVERIFY(!text.word.m_editing);
}

void TestAttributeCommands::textReplacesEverything()
{
    Text text(QStringLiteral("ab\ncd"));
    text.set({{key("font_bold"), true}});
    text.host.clearEvents();
    QVERIFY(text.set({{key("text"), key("xyz")}}));
    QCOMPARE(contentsOf(text.string()), QList<QStringList>{{key("xyz")}});
    QCOMPARE(runValue(text.string(), key("font_bold")), QJsonValue(true));
    QCOMPARE(text.steps(), 2);
    QCOMPARE(text.told(), (QVector<int>{0, 0})); // the selection has gone, and the step
    QCOMPARE(text.word.m_clientRect.width(), 24.0);
    text.host.stack().undo();
    QCOMPARE(text.word.toPlainText(), key("ab\ncd"));
}

void TestAttributeCommands::textInEditStateIsLaidOut()
{
    Text text;
    text.edit(2, 2);
    QVERIFY(text.set({{key("text"), key("abcd")}}));
    QCOMPARE(text.word.toPlainText(), key("abcd"));
    QCOMPARE(text.word.m_clientRect.width(), 32.0);
    QCOMPARE(text.steps(), 0);
    text.word.endEdit();
    QCOMPARE(text.steps(), 1); // that of the edit
    text.host.stack().undo();
    QCOMPARE(text.word.toPlainText(), key("ab"));
}

void TestAttributeCommands::presentTextIsAChangeToo()
{
    Text text;
    QVERIFY(text.set({{key("text"), key("ab")}}));
    QCOMPARE(text.steps(), 1);
}

void TestAttributeCommands::defaultWordCountsWhenItDiffers()
{
    Text text;
    text.word.m_defaultWord = key("type here");
    QVERIFY(!text.set({{key("defaultword"), key("type here")}}));
    QCOMPARE(text.steps(), 0);
    QVERIFY(text.set({{key("defaultword"), key("other")}}));
    QCOMPARE(text.word.m_defaultWord, key("other"));
    QCOMPARE(text.steps(), 1);
}

void TestAttributeCommands::defaultFollowNeedsTheDefaultWord()
{
    Text text;
    QVERIFY(!text.set({{key("defaultFollow"), true}}));
    QVERIFY(!text.word.m_defaultFollow);
    text.set({{key("defaultFollow"), true}, {key("defaultword"), text.word.m_defaultWord}});
    QVERIFY(text.word.m_defaultFollow);
}

void TestAttributeCommands::initialisingPushesNoStep()
{
    Text text;
    QVERIFY(text.set({{key("text_init_flag"), true}, {key("font_bold"), true}}));
    QCOMPARE(runValue(text.string(), key("font_bold")), QJsonValue(true));
    QCOMPARE(text.steps(), 0);
    QCOMPARE(text.told(), QVector<int>{0});
    text.set({{key("text_init_flag"), false}, {key("font_bold"), false}});
    QCOMPARE(text.steps(), 1);
}

void TestAttributeCommands::inputMethodRecordsAndTellsNothing()
{
    Text text;
    QVERIFY(text.set({{key("InputMethod"), QVariant()}, {key("font_bold"), true}}));
    QCOMPARE(runValue(text.string(), key("font_bold")), QJsonValue(true));
    QCOMPARE(text.steps(), 0);
    QCOMPARE(text.told(), QVector<int>());
    QVERIFY(text.set({{key("InputMethod"), 0}}));
    QCOMPARE(text.told(), QVector<int>());
}

void TestAttributeCommands::inputMethodIsQuietOnEveryRoad_data()
{
    QTest::addColumn<AttributeMap>("map");
    QTest::addColumn<bool>("wrapped");
    QTest::addColumn<QString>("result");
    const QString kept = key("abcd");
    QTest::newRow("format") << AttributeMap{{key("font_bold"), true}} << false << kept;
    QTest::newRow("text") << AttributeMap{{key("text"), key("xy")}} << false << key("xy");
    QTest::newRow("box to line") << AttributeMap{{key("text_wordwrap"), false}} << true << kept;
    QTest::newRow("line to box") << AttributeMap{{key("text_wordwrap"), true}} << false << kept;
    QTest::newRow("direction") << AttributeMap{{key("text_horizontal"), false}} << false << kept;
}

void TestAttributeCommands::inputMethodIsQuietOnEveryRoad()
{
    QFETCH(AttributeMap, map);
    QFETCH(bool, wrapped);
    QFETCH(QString, result);
    map.insert(key("InputMethod"), true);
    for (bool editing : {false, true}) {
        Text text(QStringLiteral("abcd"), wrapped);
        if (editing)
            text.edit(1, 3);
        const AttributeMap given = map;
        QVERIFY(text.set(given));
        QCOMPARE(text.word.toPlainText(), result);
        QCOMPARE(text.steps(), 0);
        QCOMPARE(text.told(), QVector<int>());
        text.word.notifyTextOperation(TextOperationAttributes, {});
        QCOMPARE(text.told(), QVector<int>{0}); // from then on everyone is told again
    }
}

void TestAttributeCommands::compositionEndsOnlyAheadOfAStep()
{
    Text text;
    text.edit(2, 2);
    text.word.m_cursor->insertText(key("ni"), OpenWord::format());
    text.word.m_preeditString = key("ni");
    text.set({{key("font_bold"), true}}, false);
    QCOMPARE(text.word.m_preeditString, key("ni"));
    text.set({{key("font_bold"), true}, {key("text_init_flag"), true}});
    QCOMPARE(text.word.m_preeditString, key("ni"));
    text.set({{key("font_bold"), true}, {key("InputMethod"), true}});
    QCOMPARE(text.word.m_preeditString, key("ni"));
    text.set({{key("font_bold"), true}});
    QVERIFY(text.word.m_preeditString.isEmpty());
    QCOMPARE(text.word.toPlainText(), key("abni"));
}

void TestAttributeCommands::heldStateIsWhereTheStepGoesBackTo()
{
    Text text;
    text.word.m_fontReplaceData = text.string();
    text.set({{key("font_italic"), true}}, false);
    QVERIFY(!text.word.m_fontReplaceData.isEmpty()); // no step, nothing is used up
    text.set({{key("font_bold"), true}});
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
    text.host.stack().undo();
    QCOMPARE(runValue(text.string(), key("font_italic")), QJsonValue(false));
    QCOMPARE(runValue(text.string(), key("font_bold")), QJsonValue(false));
}

void TestAttributeCommands::caretFormatLaysOutForEmptyTextAndParagraphsOnly()
{
    Text text;
    text.edit(2, 2);
    text.word.forgetCalls();
    text.set({{key("font_bold"), true}});
    QVERIFY(text.word.changes.isEmpty());
    text.set({{key("textalignment"), 2}});
    QVERIFY(!text.word.changes.isEmpty());
    Text empty{QString()};
    empty.edit(0, 0);
    empty.word.forgetCalls();
    empty.set({{key("font_pointsize"), 24}});
    QVERIFY(!empty.word.changes.isEmpty());
    QCOMPARE(empty.steps(), 0);
}

void TestAttributeCommands::twoCommandsAreTwoSteps()
{
    Text text;
    text.set({{key("font_bold"), true}});
    text.set({{key("font_bold"), false}});
    QCOMPARE(text.steps(), 2);
    QCOMPARE(text.host.stack().text(0), key("IDS_IMAGE_ADJUST_ATTRIBUTE"));
}

void TestAttributeCommands::gapIsClosedOutsideEditState()
{
    Text text;
    QTextCursor cursor(text.word.m_document);
    cursor.select(QTextCursor::Document);
    QTextCharFormat gap;
    gap.setProperty(1013, 50.0);
    cursor.mergeCharFormat(gap);
    QVERIFY(text.set({{key("font_letterspacing"), 100}}));
    QCOMPARE(formatBehind(text.word, 1).property(1013), QVariant(0.0));
    QCOMPARE(text.steps(), 1);
}

void TestAttributeCommands::gapAloneSpacesOneCharacterInEditState_data()
{
    QTest::addColumn<bool>("withUndo");
    QTest::newRow("with a step") << true;
    QTest::newRow("without") << false;
}

void TestAttributeCommands::gapAloneSpacesOneCharacterInEditState()
{
    QFETCH(bool, withUndo);
    Text text(QStringLiteral("abc"));
    text.edit(1, 1);
    QCOMPARE(text.set({{key("font_letterspacing"), 100}}, withUndo), withUndo);
    QCOMPARE(contentsOf(text.string()).first(), (QStringList{key("a"), key("b"), key("c")}));
    QCOMPARE(runValue(text.string(), key("font_letterspacing"), 0, 0), QJsonValue(0));
    QCOMPARE(runValue(text.string(), key("font_letterspacing"), 0, 1), QJsonValue(100));
    QCOMPARE(runValue(text.string(), key("font_letterspacing"), 0, 2), QJsonValue(0));
    QCOMPARE(text.steps(), withUndo ? 1 : 0);
    QCOMPARE(text.told(), withUndo ? QVector<int>{0} : QVector<int>());
    // 12 points at 96 dpi: a tenth of 16 pixels is added.
    QCOMPARE(text.word.m_clientRect.width(), 25.6);
}

void TestAttributeCommands::gapIsIgnoredInEditStateOtherwise()
{
    Text text;
    text.edit(0, 1);
    const QString start = text.string();
    QVERIFY(!text.set({{key("font_letterspacing"), 100}}));
    QCOMPARE(text.string(), start);
    text.word.select(1, 1);
    const QString caret = text.string();
    QVERIFY(text.set({{key("font_letterspacing"), 100}, {key("font_bold"), true}}));
    QCOMPARE(text.string(), caret);
    QCOMPARE(text.word.m_cursor->charFormat().property(1013).toReal(), 0.0);
    QCOMPARE(text.steps(), 0);
}

void TestAttributeCommands::familyCountsAsReplacementOfAllMissingOnes()
{
    Text text;
    text.word.m_missingFonts = QStringList{key("Gone"), key("Lost")};
    text.set({{key("font_bold"), true}});
    QVERIFY(text.word.m_replacedFonts.isEmpty());
    text.set({{key("font_family"), key("boxtest")}});
    QCOMPARE(text.word.m_replacedFonts, (QStringList{key("Gone"), key("Lost")}));
    QCOMPARE(runValue(text.string(), key("font_family")), QJsonValue(key("BoxTest")));
}

void TestAttributeCommands::alignmentFitsFormAndDirection_data()
{
    QTest::addColumn<bool>("wrapped");
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<int>("taken");
    QTest::newRow("line, centre") << false << true << QVariant(4) << 4;
    QTest::newRow("line, justified") << false << true << QVariant(8) << 1;
    QTest::newRow("line, 0 stays") << false << true << QVariant(0) << 0;
    QTest::newRow("line, text") << false << true << QVariant(QStringLiteral("2")) << 2;
    QTest::newRow("box, justified") << true << true << QVariant(8) << 8;
    QTest::newRow("column, left") << false << false << QVariant(1) << 0x20;
    QTest::newRow("column, just below") << false << false << QVariant(0x1f) << 0x20;
    QTest::newRow("column, bottom") << false << false << QVariant(0x40) << 0x40;
    QTest::newRow("column, centre") << false << false << QVariant(0x80) << 0x80;
    QTest::newRow("column, justified") << false << false << QVariant(0x100) << 0x20;
    QTest::newRow("box of columns, justified") << true << false << QVariant(0x100) << 0x100;
}

void TestAttributeCommands::alignmentFitsFormAndDirection()
{
    QFETCH(bool, wrapped);
    QFETCH(bool, horizontal);
    QFETCH(QVariant, given);
    QFETCH(int, taken);
    Text text(QStringLiteral("ab"), wrapped);
    // The direction of the same map counts.
    text.set({{key("text_horizontal"), horizontal}, {key("textalignment"), given}});
    QCOMPARE(blockValue(text.string(), key("textalignment")), QJsonValue(taken));
}

void TestAttributeCommands::sizeMustBeAboveZero_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("0") << QVariant(0.0);
    QTest::newRow("negative") << QVariant(-5);
    QTest::newRow("blank") << QVariant(QString());
    QTest::newRow("word") << QVariant(QStringLiteral("large"));
    QTest::newRow("not a number") << QVariant(qQNaN());
    QTest::newRow("infinite") << QVariant(qInf());
    QTest::newRow("nan as text") << QVariant(QStringLiteral("nan"));
    QTest::newRow("map") << QVariant(QVariantMap());
}

void TestAttributeCommands::sizeMustBeAboveZero()
{
    QFETCH(QVariant, value);
    Text text;
    QVERIFY(!text.set({{key("font_pointsize"), value}}));
    QCOMPARE(runValue(text.string(), key("font_pointsize")), QJsonValue(12));
    QCOMPARE(text.steps(), 0);
}

void TestAttributeCommands::superscriptNeedsSubscript_data()
{
    QTest::addColumn<QVariant>("super");
    QTest::addColumn<QVariant>("sub");
    QTest::addColumn<int>("position"); // of the text, 1 before the call
    QTest::newRow("superscript alone") << QVariant(false) << QVariant() << 1;
    QTest::newRow("subscript alone") << QVariant() << QVariant(true) << 1;
    QTest::newRow("subscript") << QVariant(false) << QVariant(true) << 2;
    QTest::newRow("both") << QVariant(true) << QVariant(true) << 1;
    QTest::newRow("neither") << QVariant(false) << QVariant(false) << 0;
}

void TestAttributeCommands::superscriptNeedsSubscript()
{
    QFETCH(QVariant, super);
    QFETCH(QVariant, sub);
    QFETCH(int, position);
    Text text;
    text.set({{key("text_superscript"), true}, {key("text_subscript"), false}});
    QCOMPARE(formatBehind(text.word, 1).intProperty(8225), 1);
    AttributeMap map;
    if (super.isValid())
        map.insert(key("text_superscript"), super);
    if (sub.isValid())
        map.insert(key("text_subscript"), sub);
    QCOMPARE(text.set(map), map.size() == 2);
    QCOMPARE(formatBehind(text.word, 1).intProperty(8225), position);
}

void TestAttributeCommands::adjustSizeTakesTheRoomOfTheWord()
{
    Text text;
    text.word.m_cursor->setPosition(2);
    // Not a change by itself. 4 squares wide: the ink of the font of squares fills its advance.
    const QSizeF room = text.word.getDefaultTextSize(key("abcd"));
    QVERIFY(room.width() > 16);
    QVERIFY(!text.set({{key("adjustSize"), key("abcd")}}));
    QCOMPARE(text.word.m_clientRect, QRectF(QPointF(0, 0), room));
    QCOMPARE(text.steps(), 0);
    QCOMPARE(text.word.m_scaleX, 1.0); // the text is not stretched by it
}

void TestAttributeCommands::blankNumbersLeaveThePropertyAlone_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"font_letterspacing", "selected_letterspacing", "font_pointsize", "vertical_scaled",
          "horizontal_scaled", "baseline_offset", "font_rowspacing", "textalignment",
          "paragraph_left_indent", "paragraph_right_indent", "paragraph_after_space",
          "paragraph_before_space", "paragraph_first_indent", "paragraph_head_tail_punctuation",
          "paragraph_punctuation_extra"})
        QTest::newRow(name) << key(name);
}

void TestAttributeCommands::blankNumbersLeaveThePropertyAlone()
{
    QFETCH(QString, name);
    Text text;
    text.set({{name, 3}});
    const QString start = text.string();
    const int steps = text.steps();
    QVERIFY(!text.set({{name, QString()}}));
    QVERIFY(!text.set({{name, QStringLiteral("")}}));
    QCOMPARE(text.string(), start);
    QCOMPARE(text.steps(), steps);
}

void TestAttributeCommands::numbersThatComeAsTheyAreKeepTheirType()
{
    const QVector<QPair<QString, int>> rows{{key("vertical_scaled"), 1004},
                                            {key("baseline_offset"), 1002},
                                            {key("paragraph_after_space"), 1006},
                                            {key("paragraph_before_space"), 1007}};
    for (const auto &row : rows) {
        Text text{QString()};
        text.edit(0, 0);
        for (const QVariant &value :
             {QVariant(50), QVariant(12.75), QVariant(QStringLiteral("30"))}) {
            text.set({{row.first, value}});
            const QTextCharFormat character = text.word.m_cursor->charFormat();
            const QVariant stored = character.hasProperty(row.second)
                                        ? character.property(row.second)
                                        : text.word.m_cursor->blockFormat().property(row.second);
            QCOMPARE(stored.userType(), value.userType());
            QCOMPARE(stored, value);
        }
    }
}

void TestAttributeCommands::orientationTurnsTheText()
{
    Text text(QStringLiteral("abc"));
    const QString start = text.string();
    QVERIFY(text.set({{key("text_horizontal"), false}}));
    QCOMPARE(text.word.m_textOrientation, 2);
    QCOMPARE(text.steps(), 1);
    QCOMPARE(text.told(), QVector<int>{0});
    QVERIFY(text.word.m_clientRect.height() > text.word.m_clientRect.width());
    QVERIFY(!text.set({{key("text_horizontal"), 0}}));
    QCOMPARE(text.steps(), 1);
    text.host.stack().undo();
    QCOMPARE(text.word.m_textOrientation, 1);
    QCOMPARE(text.string(), start);
    QVERIFY(text.word.m_clientRect.width() > text.word.m_clientRect.height());
}

void TestAttributeCommands::presentOrientationHidesOtherChanges()
{
    Text text;
    // Deliberate: the answer of the orientation stands for whatever has changed before it.
    QVERIFY(!text.set({{key("defaultword"), key("new")}, {key("text_horizontal"), true}}));
    QCOMPARE(text.word.m_defaultWord, key("new"));
    QCOMPARE(text.steps(), 0);
    QVERIFY(text.set({{key("font_bold"), true}, {key("text_horizontal"), true}}));
    QCOMPARE(text.steps(), 1);
}

void TestAttributeCommands::changeHiddenByTheOrientationIsLaidOut()
{
    Text text;
    QVERIFY(!text.set({{key("text"), key("abcd")}, {key("text_horizontal"), true}}));
    QCOMPARE(text.word.m_clientRect.width(), 32.0);
    QCOMPARE(text.steps(), 0);
    Text line;
    line.set({{key("text_wordwrap"), true},
              {key("text_auto_wordwrap"), true},
              {key("text_horizontal"), true}});
    QCOMPARE(line.word.m_wordManager->textLayout().lines.size(), 1);
    QCOMPARE(line.word.m_textPathsRect, line.word.m_clientRect);
}

void TestAttributeCommands::orientationOfEditedBoxIsLaidOut()
{
    Text text(QStringLiteral("ab"), true);
    text.edit(1, 1);
    text.word.forgetCalls();
    QVERIFY(text.set({{key("text_horizontal"), false}}));
    QCOMPARE(text.word.m_textOrientation, 2);
    QCOMPARE(text.word.m_wordManager->textLayout().orientation, Qt::Vertical);
    QCOMPARE(text.steps(), 0);
}

void TestAttributeCommands::lineBecomesBox()
{
    Text text(QStringLiteral("ab\ncd"));
    const QString start = text.string();
    QVERIFY(text.set({{key("text_wordwrap"), true}, {key("text_auto_wordwrap"), true}}));
    QVERIFY(text.word.m_wordWrap);
    QVERIFY(text.word.m_autoWordWrap);
    QCOMPARE(text.steps(), 1);
    QCOMPARE(text.told(), QVector<int>{0});
    text.host.stack().undo();
    QVERIFY(!text.word.m_wordWrap);
    QVERIFY(!text.word.m_autoWordWrap);
    QCOMPARE(text.string(), start);
    QCOMPARE(text.word.m_clientRect.size(), QSizeF(16, 32));
}

void TestAttributeCommands::boxBecomesLine()
{
    Text text(QStringLiteral("ab"), true);
    text.word.m_transformScaleX = 2.0;
    text.word.m_transformScaleY = 3.0;
    text.word.m_autoWordWrap = true;
    const QString start = text.string();
    QVERIFY(text.set({{key("text_wordwrap"), false}, {key("font_bold"), true}}));
    QVERIFY(!text.word.m_wordWrap);
    QVERIFY(!text.word.m_autoWordWrap);
    QCOMPARE(text.word.m_scaleX, 2.0);
    QCOMPARE(text.word.m_scaleY, 3.0);
    QCOMPARE(text.word.m_transformScaleX, 1.0);
    QCOMPARE(text.word.m_transformScaleY, 1.0);
    QCOMPARE(text.steps(), 1);
    QCOMPARE(text.told(), QVector<int>{0});
    // Deliberate: the rest of the map does not count then.
    QCOMPARE(runValue(text.string(), key("font_bold")), QJsonValue(false));
    text.host.stack().undo();
    QVERIFY(text.word.m_wordWrap);
    QVERIFY(start.contains(key("\"text_wordwrap\":true")));
    text.host.stack().redo();
    QVERIFY(!text.word.m_wordWrap);
}

void TestAttributeCommands::boxBecomesLineWithoutAStep_data()
{
    QTest::addColumn<AttributeMap>("more");
    QTest::addColumn<bool>("withUndo");
    QTest::newRow("not wanted") << AttributeMap() << false;
    QTest::newRow("initialising") << AttributeMap{{key("text_init_flag"), true}} << true;
}

void TestAttributeCommands::boxBecomesLineWithoutAStep()
{
    QFETCH(AttributeMap, more);
    QFETCH(bool, withUndo);
    Text text(QStringLiteral("ab"), true);
    more.insert(key("text_wordwrap"), false);
    QVERIFY(text.set(more, withUndo));
    QVERIFY(!text.word.m_wordWrap);
    QCOMPARE(text.steps(), 0);
    QCOMPARE(text.told(), QVector<int>{0});
    QCOMPARE(text.word.m_clientRect.size(), QSizeF(16, 16));
}

void TestAttributeCommands::boxOfOlderEngineStaysABox()
{
    Text text(QStringLiteral("ab"), true);
    text.word.m_newVersion = false;
    QVERIFY(text.set({{key("text_wordwrap"), false}}));
    QVERIFY(text.word.m_wordWrap);
    QCOMPARE(text.steps(), 1); // the key counts as a change
}

void TestAttributeCommands::boxThatBeginsToFollowItsTextIsLaidOut()
{
    Text text(QStringLiteral("ab"), true);
    text.edit(2, 2);
    text.word.updatePosition(&text.word, QRectF(0, 0, 64, 100));
    text.word.updateBoundingRectImpl(true);
    QCOMPARE(text.word.m_clientRect.height(), 100.0);
    text.set({{key("text_wordwrap"), true}, {key("text_auto_wordwrap"), true}}, false);
    QCOMPARE(text.word.m_clientRect.size(), QSizeF(64, 16));
    QCOMPARE(text.steps(), 0);
}

void TestAttributeCommands::presentFormStillPushesAStep()
{
    Text text;
    text.edit(1, 1);
    QVERIFY(text.set({{key("text_wordwrap"), false}}));
    QCOMPARE(text.steps(), 1);
    QVERIFY(text.word.m_editing);
}

void TestAttributeCommands::everyKeyIsShown()
{
    Text text;
    text.word.m_warpStyle = 3;
    text.word.m_warpValue = 0.125;
    text.word.m_warpHorizontalValue = -0.12;
    text.word.m_warpVerticalValue = 1;
    text.word.m_warpOrientation = 2;
    text.word.m_scaleX = 1.5;
    text.word.m_scaleY = 0.5;
    text.word.m_autoWordWrap = true;
    AttributeMap map;
    QVERIFY(text.word.getAllAttributes(map));
    QStringList keys = map.keys();
    keys.sort();
    const QStringList expected =
        QString::fromLatin1(
            "baseline_offset font_bold font_family font_italic font_letterspacing font_pointsize "
            "font_rowspacing font_strikeout font_style font_underline horizontal_scaled "
            "paragraph_after_space paragraph_before_space paragraph_first_indent "
            "paragraph_head_tail_punctuation paragraph_left_indent paragraph_punctuation_extra "
            "paragraph_right_indent pen_color selected_letterspacing text text_auto_wordwrap "
            "text_editflag text_horizontal text_ligature text_subscript text_superscript text_upper "
            "text_wordwrap textalignment transform_xx transform_yy vertical_scaled "
            "warp_horizontal_value warp_oriention warp_style warp_value warp_vertical_value")
            .split(QLatin1Char(' '));
    QCOMPARE(keys, expected);
    QCOMPARE(map.value(key("text")), QVariant(key("ab")));
    QCOMPARE(map.value(key("text_editflag")), QVariant(false));
    QCOMPARE(map.value(key("text_horizontal")), QVariant(true));
    QCOMPARE(map.value(key("text_wordwrap")), QVariant(false));
    QCOMPARE(map.value(key("text_auto_wordwrap")), QVariant(true));
    QCOMPARE(map.value(key("warp_style")), QVariant(3));
    QCOMPARE(map.value(key("warp_value")), QVariant(13));
    QCOMPARE(map.value(key("warp_horizontal_value")), QVariant(-12));
    QCOMPARE(map.value(key("warp_vertical_value")), QVariant(100));
    QCOMPARE(map.value(key("warp_oriention")), QVariant(2));
    QCOMPARE(map.value(key("transform_xx")), QVariant(1.5));
    QCOMPARE(map.value(key("transform_yy")), QVariant(0.5));
}

void TestAttributeCommands::allTextIsFoldedOutsideEditState()
{
    Text text(QStringLiteral("abcd"));
    text.edit(2, 4);
    text.set({{key("font_bold"), true},
              {key("selected_letterspacing"), 100},
              {key("vertical_scaled"), 50},
              {key("font_pointsize"), 24}});
    text.word.endEdit();
    AttributeMap map;
    text.word.getAllAttributes(map);
    QCOMPARE(map.value(key("font_bold")), QVariant(false));
    QCOMPARE(map.value(key("selected_letterspacing")), QVariant(key("")));
    QCOMPARE(map.value(key("vertical_scaled")), QVariant(key("")));
    QCOMPARE(map.value(key("font_pointsize")), QVariant(key("")));
    QCOMPARE(map.value(key("font_family")), QVariant(key("BoxTest")));
}

void TestAttributeCommands::selectionAloneIsFolded()
{
    Text text(QStringLiteral("abcd"));
    text.edit(2, 4);
    text.set({{key("font_bold"), true}});
    const auto isBoldIn = [&](int start, int end) {
        text.word.select(start, end);
        AttributeMap map;
        text.word.getAllAttributes(map);
        return map.value(key("font_bold")).toBool();
    };
    QVERIFY(isBoldIn(2, 4));
    QVERIFY(isBoldIn(3, 4));
    QVERIFY(!isBoldIn(1, 3));
    QVERIFY(!isBoldIn(0, 2)); // a run that only touches the selection takes no part
    QVERIFY(isBoldIn(4, 2));
}

void TestAttributeCommands::caretShowsItsFormatWithTheGapToTheRight()
{
    Text text(QStringLiteral("abc"));
    text.edit(1, 1);
    text.set({{key("font_letterspacing"), 100}}); // of "b"
    const auto gapAt = [&](int position) {
        text.word.m_cursor->setPosition(position);
        text.word.select(position, position);
        AttributeMap map;
        text.word.getAllAttributes(map);
        return map.value(key("font_letterspacing"));
    };
    QCOMPARE(gapAt(0), QVariant(0));
    QCOMPARE(gapAt(1), QVariant(100.0));
    QCOMPARE(gapAt(2), QVariant(0));
    QCOMPARE(gapAt(3), QVariant(0));
}

void TestAttributeCommands::askingChangesNothing()
{
    Text text(QStringLiteral("ab\ncd"));
    text.edit(1, 4);
    text.word.m_cursor->setPosition(3);
    text.word.m_cursor->setPosition(1, QTextCursor::KeepAnchor);
    const QString start = text.string();
    for (bool editing : {true, false}) {
        text.word.m_editing = editing;
        AttributeMap map;
        text.word.getAllAttributes(map);
        QCOMPARE(text.string(), start);
        QCOMPARE(text.word.m_cursor->anchor(), 3);
        QCOMPARE(text.word.m_cursor->position(), 1);
    }
    QCOMPARE(text.told(), QVector<int>());
}

void TestAttributeCommands::wrongTypes_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"text_init_flag",
                             "text_wordwrap",
                             "text_auto_wordwrap",
                             "text",
                             "defaultword",
                             "defaultFollow",
                             "adjustSize",
                             "text_horizontal",
                             "InputMethod",
                             "font_family",
                             "font_bold",
                             "font_italic",
                             "font_letterspacing",
                             "selected_letterspacing",
                             "font_pointsize",
                             "font_underline",
                             "font_strikeout",
                             "pen_color",
                             "font_style",
                             "vertical_scaled",
                             "horizontal_scaled",
                             "baseline_offset",
                             "text_upper",
                             "text_superscript",
                             "text_subscript",
                             "font_rowspacing",
                             "textalignment",
                             "paragraph_left_indent",
                             "paragraph_right_indent",
                             "paragraph_after_space",
                             "paragraph_before_space",
                             "paragraph_first_indent",
                             "text_ligature",
                             "paragraph_head_tail_punctuation",
                             "paragraph_punctuation_extra"})
        QTest::newRow(name) << key(name);
}

void TestAttributeCommands::wrongTypes()
{
    QFETCH(QString, name);
    const QVector<QVariant> values{QVariant(),
                                   QString(),
                                   QStringLiteral("abc"),
                                   QStringLiteral("nan"),
                                   QStringLiteral("-inf"),
                                   QStringLiteral("1e308"),
                                   qQNaN(),
                                   qInf(),
                                   1e308,
                                   -1e308,
                                   5e-324,
                                   std::numeric_limits<int>::max(),
                                   std::numeric_limits<int>::min(),
                                   std::numeric_limits<qint64>::max(),
                                   true,
                                   QVariantList{1, 2},
                                   QVariantMap{{key("a"), 1}},
                                   QByteArray("\xff\xfe", 2),
                                   QColor(1, 2, 3),
                                   QPointF(1, 2),
                                   QString(QChar(0xd800))};
    for (const QVariant &value : values) {
        for (int state = 0; state < 3; ++state) { // finished, caret, selection
            Text text(QStringLiteral("ab\nc"), state == 2);
            if (state > 0)
                text.edit(1, state == 1 ? 1 : 3);
            AttributeMap map{{name, value}};
            text.set(map);
            map.insert(key("text_subscript"), value);
            map.insert(key("defaultword"), key("w"));
            text.set(map);
            if (name != key("text"))
                QCOMPARE(text.word.toPlainText(), key("ab\nc"));
            AttributeMap shown;
            text.word.getAllAttributes(shown);
            text.word.endEdit();
            contentOf(text.word);
            QVERIFY(std::isfinite(text.word.m_clientRect.width()));
            QVERIFY(std::isfinite(text.word.m_clientRect.height()));
            const QString end = text.string();
            OpenWord other;
            other.deserialization(end, false);
            QCOMPARE(other.toPlainText(), text.word.toPlainText());
            while (text.host.stack().canUndo())
                text.host.stack().undo();
            QCOMPARE(text.word.toPlainText(), key("ab\nc"));
        }
    }
}

namespace {
using Answer = std::function<void(OpenWord &)>;

void command(OpenWord &word, int number)
{
    QDataStream nothing;
    word.SetSpecialProperty(number, nothing, false);
}
} // namespace

Q_DECLARE_METATYPE(Answer)

void TestAttributeCommands::listenerCallsBack_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::newRow("asks") << Answer([](OpenWord &word) {
        AttributeMap map;
        word.getAllAttributes(map);
    });
    QTest::newRow("sets a format") << Answer([](OpenWord &word) {
        word.setAllAttributes({{key("font_italic"), true}}, true);
    });
    QTest::newRow("sets the text") << Answer([](OpenWord &word) {
        word.setAllAttributes({{key("text"), key("back")}}, true);
    });
    QTest::newRow("changes the form") << Answer([](OpenWord &word) {
        word.setAllAttributes({{key("text_wordwrap"), !word.m_wordWrap}}, true);
    });
    QTest::newRow("ends the edit") << Answer([](OpenWord &word) { command(word, 102); });
    QTest::newRow("begins an edit") << Answer([](OpenWord &word) { command(word, 101); });
    QTest::newRow("goes back") << Answer([](OpenWord &word) { command(word, 115); });
    QTest::newRow("cuts") << Answer([](OpenWord &word) { command(word, 125); });
    QTest::newRow("saves") << Answer([](OpenWord &word) {
        QJsonObject json;
        word.saveJson(json);
    });
}

void TestAttributeCommands::listenerCallsBack()
{
    QFETCH(Answer, answer);
    for (bool editing : {false, true}) {
        CallingHost host;
        OpenWord word(&host);
        word.add(QStringLiteral("ab cd"));
        int answersLeft = 0;
        host.onTextOperation = [&](int) {
            if (answersLeft-- > 0)
                answer(word);
        };
        const auto give = [&](const AttributeMap &map) {
            if (editing) {
                word.beginEdit();
                word.select(1, 3);
            }
            answersLeft = 3;
            word.setAllAttributes(map, true);
            word.updateBoundingRectImpl(true);
            contentOf(word);
        };
        give({{key("font_bold"), true}});
        give({{key("text"), key("other")}});
        give({{key("text_wordwrap"), true}});
        give({{key("text_wordwrap"), false}});
        give({{key("text_horizontal"), false}});
        answersLeft = 0;
        word.endEdit();
        const QString string = word.serialize(false);
        OpenWord other;
        other.deserialization(string, false);
        QCOMPARE(other.toPlainText(), word.toPlainText());
    }
}

void TestAttributeCommands::listenerThatNeverStops()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    bool answers = true;
    host.onTextOperation = [&](int) {
        if (answers)
            word.setAllAttributes({{key("font_bold"), true}}, true);
    };
    word.setAllAttributes({{key("font_italic"), true}}, true);
    answers = false;
    QCOMPARE(operationsOf(host).size(), 4); // three at once, and one for all that were left out
    QCOMPARE(runValue(word.serialize(false), key("font_bold")), QJsonValue(true));
    QCOMPARE(runValue(word.serialize(false), key("font_italic")), QJsonValue(true));
}

QTEST_MAIN(TestAttributeCommands)
#include "tst_attributecommands.moc"
