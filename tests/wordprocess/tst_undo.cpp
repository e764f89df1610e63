// SPDX-License-Identifier: MIT
// Steps on the host's stack: when one is pushed, what it rebuilds, and what it survives.
#include "callinghost.h"
#include "openword.h"
#include "tests/host/plainobject.h"
#include "wordprocess/textdatacommand.h"

#include <QDataStream>
#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

namespace {
/// A step with its object open to the test.
class OpenStep : public CTextDataCommand
{
public:
    using CTextDataCommand::CTextDataCommand;
    using CWbUndoCmd::m_object;
};

/// What a family of squares says when half of it is missing: the text was laid out elsewhere.
const QString missingFamily = QStringLiteral("No Such Family");

QImage picture(int width = 40, int height = 20)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::green);
    return image;
}

/// Makes \a word stand as a picture at (200, 100); its text, when it comes back, lies at (210, 120).
void standAsPicture(OpenWord &word)
{
    word.m_missingFonts = QStringList(missingFamily);
    word.m_replacedFonts.clear();
    word.m_fontImage = picture();
    word.m_fontImageSize = QSizeF(40, 20);
    word.m_fontImagePos = QPointF(200, 100);
    word.m_fontImageClient = QRectF(210, 120, 60, 30);
    word.m_showFontImage = true;
}

/// The string of \a word with another list of replaced fonts.
QString withReplacedFonts(const OpenWord &word, const QStringList &fonts)
{
    QJsonObject json = jsonOf(word.serialize(false));
    json.insert(QStringLiteral("font_replaced"), QJsonArray::fromStringList(fonts));
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

/// Lets the document go through its string once. What was never set is written as a number from then on.
QString settled(OpenWord &word)
{
    word.undoRedo(word.serialize(false), false);
    return word.serialize(false);
}

QString stateWithText(const QString &text)
{
    OpenWord other;
    other.add(text);
    return settled(other);
}

/// Makes \a word a box of 100 by 40.
void makeBox(OpenWord &word)
{
    word.m_wordWrap = true;
    word.m_wordManager->setWordWrap(true);
    word.m_clientRect = QRectF(0, 0, 100, 40);
    word.m_textPathsRect = word.m_clientRect;
    word.updateBoundingRectImpl(true);
}
} // namespace

class TestUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // the step
    void stepIsNamedForTheHostToTranslate();
    void stepsNeverMerge();
    void pushRebuildsTheObjectAtOnce();
    void stepOfAReleasedObjectStillWorks();
    void stepOfADeletedObjectDoesNothing();
    void stepOfAnotherKindOfObjectDoesNothing();
    void stepWithoutObjectDoesNothing();

    // an edit
    void endEditOfChangedTextPushesOneStep();
    void endEditLaysOutWhatWasTyped();
    void endEditAfterFormatChangePushesNoStep();
    void endEditWithTheOldTextAgainPushesNoStep();
    void beginEditAgainMovesTheStartOfTheStep();
    void typingAheadOfACommandIsAStepOfItsOwn();
    void stepOfTypedTextIsNotShownOnceMore();
    void commandWithoutAStateAheadPushesNoTypedText();
    void stateHeldAheadOfTheEditIsOneStep();
    void typingAheadOfAHeldStateIsAStepOfItsOwn();
    void secondEndEditPushesNothingMore();
    void stepsOfAStretchedBoxKeepStretchAndPlace_data();
    void stepsOfAStretchedBoxKeepStretchAndPlace();
    void stretchOfABoxSurvivesLineTextAndBack();
    void undoBringsBackCaretAndSelectionOfTheStart();

    // rebuilding
    void hostUndoInEditStateReplacesTheDocumentAndKeepsTheEdit();
    void unreadableStringLeavesTheDocument_data();
    void unreadableStringLeavesTheDocument();
    void withoutNoticeNobodyIsTold();
    void withNoticeListenersAreToldBeforeThePage();
    void wrappingFollowsTheString_data();
    void wrappingFollowsTheString();
    void restoredSelectionHasItsAnchorAtTheStart();
    void compositionEndsAndItsTextGoes();
    void flipMirrorWarpAndStretchComeBack();

    // pictures
    void replacedFontsLeaveThePicture();
    void missingFontsReturnToThePicture();
    void pictureReturnsWithItsStretch();
    void missingFontsWithoutAPictureKeepTheText();
    void olderObjectLeavesThePictureAtTheTextsPlace();
    void olderObjectWithoutPictureSizeStaysWhereItIs();
    void fontReplacementIsUndoneAndRedone_data();
    void fontReplacementIsUndoneAndRedone();

    // a host that calls back
    void listenerMayEndTheEditFromEveryNotification_data();
    void listenerMayEndTheEditFromEveryNotification();
    void listenerMayBeginTheNextEdit();
    void pageMayBeginTheEditAgain();
    void pageMayEndTheEditWhileItsBoxChanges();
    void listenerMayUndoTheStepThatIsBeingPushed();
    void listenerMayReleaseTheObject_data();
    void listenerMayReleaseTheObject();
    void listenerThatAlwaysCommandsComesToAnEnd();
    void commandDuringAStepBelongsToIt();
    void commandOnAnotherObjectIsAStepOfItsOwn_data();
    void commandOnAnotherObjectIsAStepOfItsOwn();
    void stepThatWaitsGoesAheadOfTheNextOne();
    void commandOnAnObjectWithAnotherStackIsRecordedAtOnce();
    void endEditAfterACommandDuringAStepPushesNothing();

    // properties of all sequences
    void stringOfARebuiltDocumentIsItself_data();
    void stringOfARebuiltDocumentIsItself();
    void undoLeadsToTheStartAndRedoToTheEnd_data();
    void undoLeadsToTheStartAndRedoToTheEnd();
    void letterSpacedSurrogatePairsSurvive();
};

void TestUndo::stepIsNamedForTheHostToTranslate()
{
    RecordingHost host;
    host.localStrings[QStringLiteral("IDS_IMAGE_ADJUST_ATTRIBUTE")] = QStringLiteral("Adjust");
    OpenWord word(&host);
    const QString state = word.serialize(false);
    word.pushUndoRedo(state, state);
    const auto *step = static_cast<const CWbUndoCmd *>(host.stack().command(0));
    QCOMPARE(step->text(), QStringLiteral("IDS_IMAGE_ADJUST_ATTRIBUTE"));
    QCOMPARE(step->getActionName(&host), QStringLiteral("Adjust"));
    QCOMPARE(step->object(), static_cast<CVXRootObject *>(&word));
    host.stack().clear();
}

void TestUndo::stepsNeverMerge()
{
    RecordingHost host;
    OpenWord word(&host);
    const QString a = stateWithText(QStringLiteral("a"));
    const QString b = stateWithText(QStringLiteral("b"));
    OpenStep first(&word, a, b);
    OpenStep second(&word, b, a);
    QCOMPARE(first.id(), -1);
    QVERIFY(!first.mergeWith(&second));
    word.pushUndoRedo(a, b);
    word.pushUndoRedo(b, a);
    QCOMPARE(host.stack().count(), 2);
    host.stack().clear();
}

void TestUndo::pushRebuildsTheObjectAtOnce()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    const QString before = settled(word);
    QCOMPARE(word.m_clientRect.size(), QSizeF(16, 16));
    word.pushUndoRedo(before, stateWithText(QStringLiteral("abcde")));
    QCOMPARE(word.toPlainText(), QStringLiteral("abcde"));
    QCOMPARE(word.m_clientRect.size(), QSizeF(40, 16)); // laid out too
    host.stack().undo();
    QCOMPARE(word.serialize(false), before);
    QCOMPARE(word.m_clientRect.size(), QSizeF(16, 16));
    host.stack().clear();
}

void TestUndo::stepOfAReleasedObjectStillWorks()
{
    RecordingHost host;
    auto *word = new OpenWord(&host);
    host.scene().addItem(word);
    const QPointer<OpenWord> alive(word);
    word->pushUndoRedo(stateWithText(QStringLiteral("a")), stateWithText(QStringLiteral("b")));
    word->Release();
    QVERIFY(alive);
    host.stack().undo();
    QCOMPARE(word->toPlainText(), QStringLiteral("a"));
    host.stack().redo();
    QCOMPARE(word->toPlainText(), QStringLiteral("b"));
    host.stack().clear();
    QVERIFY(!alive); // it went with its last step
}

void TestUndo::stepOfADeletedObjectDoesNothing()
{
    RecordingHost host;
    auto *word = new OpenWord(&host);
    word->pushUndoRedo(stateWithText(QStringLiteral("a")), stateWithText(QStringLiteral("b")));
    delete word;
    host.clearEvents();
    host.stack().undo();
    host.stack().redo();
    QCOMPARE(host.stack().index(), 1);
    QVERIFY(host.events.isEmpty());
}

void TestUndo::stepOfAnotherKindOfObjectDoesNothing()
{
    RecordingHost host;
    host.recordPreviews = true;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    PlainObject plain(&host);
    OpenStep step(&word, QString(), stateWithText(QStringLiteral("b")));
    step.m_object = &plain;
    host.clearEvents();
    step.redo();
    step.undo();
    QVERIFY(host.events.isEmpty());
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    QCOMPARE(plain.getSize(), QSizeF(100, 50));
}

void TestUndo::stepWithoutObjectDoesNothing()
{
    OpenStep step(nullptr, stateWithText(QStringLiteral("a")), stateWithText(QStringLiteral("b")));
    step.redo();
    step.undo();
    QVERIFY(!step.m_object);
}

void TestUndo::endEditOfChangedTextPushesOneStep()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    const QString before = settled(word);
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("cd"), OpenWord::format());
    host.clearEvents();
    word.endEdit();
    QCOMPARE(host.stack().count(), 1);
    QCOMPARE(operationsOf(host), (QVector<int>{0, 0, 3})); // selection, rebuilt, state
    const QString after = word.serialize(false);
    host.stack().undo();
    QCOMPARE(word.serialize(false), before);
    host.stack().redo();
    QCOMPARE(word.serialize(false), after);
    QCOMPARE(contentsOf(after), QList<QStringList>{QStringList(QStringLiteral("abcd"))});
    host.stack().clear();
}

void TestUndo::endEditLaysOutWhatWasTyped()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("cde"), OpenWord::format());
    word.endEdit();
    QCOMPARE(word.m_clientRect.size(), QSizeF(40, 16));
    QCOMPARE(word.m_wordManager->textLayout().lines.first().length, 5);
    host.stack().clear();
}

void TestUndo::endEditAfterFormatChangePushesNoStep()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    word.m_cursor->select(QTextCursor::Document);
    word.m_cursor->mergeCharFormat(OpenWord::format(24));
    word.endEdit();
    QCOMPARE(host.stack().count(), 0);
    QCOMPARE(word.m_document->firstBlock().begin().fragment().charFormat().fontPointSize(), 24.0);
}

void TestUndo::endEditWithTheOldTextAgainPushesNoStep()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("c"));
    word.m_cursor->deletePreviousChar();
    word.endEdit();
    QCOMPARE(host.stack().count(), 0);
}

void TestUndo::beginEditAgainMovesTheStartOfTheStep()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("a"));
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("b"), OpenWord::format());
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("c"), OpenWord::format());
    word.endEdit();
    QCOMPARE(host.stack().count(), 1);
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    host.stack().clear();
}

void TestUndo::typingAheadOfACommandIsAStepOfItsOwn()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("a"));
    settled(word);
    const AttributeMap bold{{QStringLiteral("font_bold"), true}};
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("b"), OpenWord::format());
    word.selectAll();
    word.setAllAttributes(bold, true);
    QCOMPARE(host.stack().count(), 2);
    word.setAllAttributes({{QStringLiteral("font_italic"), true}}, true);
    QCOMPARE(host.stack().count(), 3); // nothing was typed between the two
    word.m_cursor->movePosition(QTextCursor::End);
    word.m_cursor->insertText(QStringLiteral("c"), OpenWord::format());
    word.endEdit();
    QCOMPARE(host.stack().count(), 4);
    const QStringList texts{QStringLiteral("a"), QStringLiteral("ab"), QStringLiteral("ab"),
                            QStringLiteral("ab"), QStringLiteral("abc")};
    const QVector<int> weights{50, 50, 75, 75, 75};
    for (int index : {4, 3, 2, 1, 0, 1, 2, 3, 4}) {
        host.stack().setIndex(index);
        QCOMPARE(word.toPlainText(), texts.at(index));
        const QTextFragment run = word.m_document->firstBlock().begin().fragment();
        QCOMPARE(run.charFormat().fontWeight(), weights.at(index));
    }
    host.stack().clear();
}

void TestUndo::stepOfTypedTextIsNotShownOnceMore()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("a"));
    settled(word);
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("b"), OpenWord::format());
    word.selectAll();
    QVector<int> weights;
    host.onTextOperation = [&](int) {
        weights.append(word.m_document->firstBlock().begin().fragment().charFormat().fontWeight());
    };
    word.setAllAttributes({{QStringLiteral("font_bold"), true}}, true);
    host.onTextOperation = nullptr;
    QCOMPARE(host.stack().count(), 2);
    QCOMPARE(weights, QVector<int>{75});
    host.stack().setIndex(1);
    host.stack().undo(); // it works both ways later on
    QCOMPARE(word.toPlainText(), QStringLiteral("a"));
    host.stack().redo();
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    host.stack().clear();
}

void TestUndo::commandWithoutAStateAheadPushesNoTypedText()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("a"));
    settled(word);
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("b"), OpenWord::format());
    word.pushUndoRedo(QString(), word.serialize(false));
    QCOMPARE(host.stack().count(), 1);
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    host.stack().clear();
}

void TestUndo::stateHeldAheadOfTheEditIsOneStep()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("a"));
    settled(word);
    QDataStream nothing;
    word.SetSpecialProperty(114, nothing, false);
    word.setAllAttributes({{QStringLiteral("font_bold"), true}}, false); // a preview
    word.beginEdit();
    word.m_cursor->movePosition(QTextCursor::End);
    word.m_cursor->insertText(QStringLiteral("b"), OpenWord::format());
    word.selectAll();
    word.setAllAttributes({{QStringLiteral("font_italic"), true}}, true);
    QCOMPARE(host.stack().count(), 1);
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("a"));
    const QTextFragment run = word.m_document->firstBlock().begin().fragment();
    QVERIFY(run.charFormat().fontWeight() <= 50);
    host.stack().redo();
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    word.endEdit();
    QCOMPARE(host.stack().count(), 1);
    host.stack().clear();
}

void TestUndo::typingAheadOfAHeldStateIsAStepOfItsOwn()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("a"));
    settled(word);
    word.beginEdit();
    word.m_cursor->movePosition(QTextCursor::End);
    word.m_cursor->insertText(QStringLiteral("b"), OpenWord::format());
    QDataStream nothing;
    word.SetSpecialProperty(114, nothing, false);
    word.selectAll();
    word.setAllAttributes({{QStringLiteral("font_bold"), true}}, false); // a preview
    word.setAllAttributes({{QStringLiteral("font_italic"), true}}, true);
    QCOMPARE(host.stack().count(), 2);
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("a"));
    host.stack().clear();
}

void TestUndo::secondEndEditPushesNothingMore()
{
    RecordingHost host;
    OpenWord word(&host);
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("b"), OpenWord::format());
    word.endEdit();
    word.endEdit();
    QCOMPARE(host.stack().count(), 1);
    host.stack().clear();
}

void TestUndo::stepsOfAStretchedBoxKeepStretchAndPlace_data()
{
    QTest::addColumn<bool>("edits");
    QTest::newRow("attributes") << false;
    QTest::newRow("edits") << true;
}

void TestUndo::stepsOfAStretchedBoxKeepStretchAndPlace()
{
    QFETCH(bool, edits);
    RecordingHost host;
    OpenWord word(&host);
    makeBox(word);
    word.add(QStringLiteral("ab"));
    word.setPos(QPointF(30, 40), false);
    word.setSize(QSizeF(200, 80), false, true); // glyphs twice as large
    QCOMPARE(word.m_scaleX, 2.0);
    const auto isAsStretched = [&] {
        return word.getPos() == QPointF(30, 40) && word.m_clientRect == QRectF(0, 0, 200, 80)
               && word.m_scaleX * word.m_transformScaleX == 2.0
               && word.m_scaleY * word.m_transformScaleY == 2.0;
    };
    for (int i = 1; i <= 3; ++i) {
        if (edits) {
            word.beginEdit();
            word.m_cursor->movePosition(QTextCursor::End);
            word.m_cursor->insertText(QStringLiteral("c"), OpenWord::format());
            word.endEdit();
        } else {
            word.setAllAttributes({{QStringLiteral("font_bold"), i % 2 == 1}}, true);
        }
        QCOMPARE(host.stack().count(), i);
        QVERIFY(isAsStretched());
    }
    for (int index : {2, 1, 0, 1, 3, 0}) {
        host.stack().setIndex(index);
        QVERIFY(isAsStretched());
    }
    host.stack().clear();
}

void TestUndo::stretchOfABoxSurvivesLineTextAndBack()
{
    RecordingHost host;
    OpenWord word(&host);
    makeBox(word);
    word.add(QStringLiteral("ab"));
    word.setSize(QSizeF(200, 120), false, true);
    word.setAllAttributes({{QStringLiteral("text_wordwrap"), false}}, true);
    QVERIFY(!word.m_wordWrap);
    QCOMPARE(word.m_scaleX, 2.0);
    QCOMPARE(word.m_scaleY, 3.0);
    host.stack().undo();
    QVERIFY(word.m_wordWrap);
    QCOMPARE(word.m_scaleX * word.m_transformScaleX, 2.0);
    QCOMPARE(word.m_scaleY * word.m_transformScaleY, 3.0);
    host.stack().redo();
    QVERIFY(!word.m_wordWrap);
    QCOMPARE(word.m_scaleX, 2.0);
    QCOMPARE(word.m_scaleY, 3.0);
    host.stack().clear();
}

void TestUndo::undoBringsBackCaretAndSelectionOfTheStart()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcdef"));
    word.select(1, 4);
    word.m_cursor->setPosition(1);
    word.m_cursor->setPosition(4, QTextCursor::KeepAnchor);
    word.beginEdit();
    word.removeSelectedText();
    word.endEdit();
    QCOMPARE(word.toPlainText(), QStringLiteral("aef"));
    QCOMPARE(word.m_cursor->position(), 1);
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("abcdef"));
    QCOMPARE(word.m_selStart, 1);
    QCOMPARE(word.m_selEnd, 4);
    QCOMPARE(word.m_cursor->selectedText(), QStringLiteral("bcd"));
    host.stack().clear();
}

void TestUndo::hostUndoInEditStateReplacesTheDocumentAndKeepsTheEdit()
{
    RecordingHost host;
    OpenWord word(&host);
    word.pushUndoRedo(stateWithText(QStringLiteral("old")), stateWithText(QStringLiteral("new")));
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("!"), OpenWord::format());
    QVERIFY(word.m_document->isUndoAvailable());
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("old"));
    QVERIFY(word.m_editing);
    QCOMPARE(int(word.m_actionState->editing), 1);
    QVERIFY(sizeHandlesAre(word, true)); // still those of an edit
    QVERIFY(!word.m_document->isUndoAvailable());
    QCOMPARE(word.m_wordManager->textLayout().lines.first().length, 3);
    word.endEdit(); // nothing has been typed since
    QCOMPARE(host.stack().count(), 1);
    QCOMPARE(host.stack().index(), 0);
    host.stack().redo();
    QCOMPARE(word.toPlainText(), QStringLiteral("new"));
    host.stack().clear();
}

void TestUndo::unreadableStringLeavesTheDocument_data()
{
    QTest::addColumn<QString>("data");
    QTest::newRow("empty") << QString();
    QTest::newRow("no JSON") << QStringLiteral("{\"block\":[");
    QTest::newRow("an array") << QStringLiteral("[]");
    QTest::newRow("no body") << QStringLiteral("{\"text_wordwrap\":true}");
    QTest::newRow("body of other types") << QStringLiteral("{\"block\":{},\"fragment\":3}");
    QTest::newRow("sizes differ") << QStringLiteral("{\"block\":[{}],\"fragment\":[]}");
}

void TestUndo::unreadableStringLeavesTheDocument()
{
    QFETCH(QString, data);
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abc"));
    const QString before = word.serialize(false);
    word.undoRedo(data, true);
    QCOMPARE(word.serialize(false), before);
    QCOMPARE(word.m_clientRect.size(), QSizeF(24, 16));
    word.pushUndoRedo(data, data);
    host.stack().undo();
    QCOMPARE(word.serialize(false), before);
    host.stack().clear();
}

void TestUndo::withoutNoticeNobodyIsTold()
{
    RecordingHost host;
    OpenWord word(&host);
    word.forgetCalls();
    host.clearEvents();
    word.undoRedo(stateWithText(QStringLiteral("abc")), false);
    QVERIFY(host.events.isEmpty());
    QVERIFY(!word.changes.isEmpty());
    QCOMPARE(word.changes.last(), 1002);
    QCOMPARE(word.details.last(), QString());
}

void TestUndo::withNoticeListenersAreToldBeforeThePage()
{
    RecordingHost host;
    host.recordPreviews = true;
    OpenWord word(&host);
    host.clearEvents();
    word.undoRedo(stateWithText(QStringLiteral("abc")), true);
    QCOMPARE(operationsOf(host), QVector<int>{0});
    QCOMPARE(host.events.last().kind, QStringLiteral("preview"));
    QCOMPARE(host.events.at(host.events.size() - 2).kind, QStringLiteral("event"));
    QCOMPARE(host.events.at(host.events.size() - 2).values.value(QStringLiteral("text")),
             QVariant(QStringLiteral("abc")));
}

void TestUndo::wrappingFollowsTheString_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");
    QTest::addColumn<bool>("editing");
    QTest::addColumn<double>("secondStretch"); // 3 before
    QTest::addColumn<bool>("handlesDisabled");
    for (bool editing : {false, true}) {
        const char *state = editing ? "edited" : "finished";
        QTest::addRow("line to box, %s", state) << false << true << editing << 3.0 << false;
        QTest::addRow("box to line, %s", state) << true << false << editing << 1.0 << editing;
        QTest::addRow("line stays, %s", state) << false << false << editing << 3.0 << true;
    }
}

void TestUndo::wrappingFollowsTheString()
{
    QFETCH(bool, before);
    QFETCH(bool, after);
    QFETCH(bool, editing);
    QFETCH(double, secondStretch);
    QFETCH(bool, handlesDisabled);
    RecordingHost host;
    OpenWord word(&host);
    if (before)
        makeBox(word);
    word.add(QStringLiteral("abcdefgh"));
    if (editing)
        word.beginEdit();
    QJsonObject json = jsonOf(word.serialize(false));
    json.insert(QStringLiteral("text_wordwrap"), after);
    word.m_transformScaleX = 3.0;
    word.m_transformScaleY = 3.0;
    word.undoRedo(QString::fromUtf8(QJsonDocument(json).toJson()), false);
    QCOMPARE(word.m_wordWrap, after);
    QCOMPARE(word.m_editing, editing);
    QCOMPARE(word.m_transformScaleX, secondStretch);
    QCOMPARE(word.m_transformScaleY, secondStretch);
    QVERIFY(sizeHandlesAre(word, handlesDisabled));
    if (!after) { // the layout has changed over too
        QCOMPARE(word.m_wordManager->textLayout().lines.size(), 1);
        QCOMPARE(word.m_wordManager->textLayout().lines.first().length, 8);
    }
}

void TestUndo::restoredSelectionHasItsAnchorAtTheStart()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcdef"));
    word.select(2, 5);
    const QString selected = word.serialize(false);
    word.select(0, 0);
    word.m_selAnchor = 4;
    word.undoRedo(selected, false);
    QCOMPARE(word.m_selAnchor, 2);
    QCOMPARE(word.m_cursor->position(), 5);
    QCOMPARE(word.m_cursor->anchor(), 2);

    word.select(0, 0);
    const QString unselected = word.serialize(false);
    word.m_selAnchor = 4;
    word.undoRedo(unselected, false);
    QCOMPARE(word.m_selAnchor, 4); // only a selection has one
}

void TestUndo::compositionEndsAndItsTextGoes()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    const QString before = word.serialize(false);
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("ni"), OpenWord::format());
    word.m_preeditString = QStringLiteral("ni");
    word.undoRedo(before, false);
    QVERIFY(word.m_preeditString.isEmpty());
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));

    word.m_cursor->insertText(QStringLiteral("ni"), OpenWord::format());
    word.m_preeditString = QStringLiteral("ni");
    word.endEdit(); // here its text stays, and counts as typed
    QVERIFY(word.m_preeditString.isEmpty());
    QCOMPARE(word.toPlainText(), QStringLiteral("abni"));
    QCOMPARE(host.stack().count(), 1);
    host.stack().clear();
}

void TestUndo::flipMirrorWarpAndStretchComeBack()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    const QString plain = settled(word);
    QJsonObject json = jsonOf(plain);
    json.insert(QStringLiteral("is_flip"), true);
    json.insert(QStringLiteral("is_mirror"), true);
    json.insert(QStringLiteral("warp_style"), 3);
    json.insert(QStringLiteral("warp_value"), -12);
    json.insert(QStringLiteral("transform_xx"), 2.0);
    json.insert(QStringLiteral("transform_yy"), 3.0);
    word.pushUndoRedo(plain, QString::fromUtf8(QJsonDocument(json).toJson()));
    QVERIFY(word.m_flip && word.m_mirror);
    QCOMPARE(word.m_warpStyle, 3);
    QCOMPARE(word.m_warpValue, -0.12);
    QCOMPARE(word.m_scaleX, 2.0);
    QCOMPARE(word.m_scaleY, 3.0);
    host.stack().undo();
    QCOMPARE(word.serialize(false), plain);
    QCOMPARE(word.m_clientRect.size(), QSizeF(16, 16));
    host.stack().clear();
}

void TestUndo::replacedFontsLeaveThePicture()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    standAsPicture(word);
    word.m_fontImageScaleX = 2.0;
    word.undoRedo(withReplacedFonts(word, QStringList(missingFamily)), false);
    QVERIFY(!word.m_showFontImage);
    QCOMPARE(word.m_scaleX, 2.0); // the picture's stretch goes over to the text
    QCOMPARE(word.m_clientRect.size(), QSizeF(64, 16));
}

void TestUndo::missingFontsReturnToThePicture()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    standAsPicture(word);
    word.m_showFontImage = false;
    word.m_replacedFonts = word.m_missingFonts;
    word.rotateObj(30, false);
    word.undoRedo(withReplacedFonts(word, QStringList()), false);
    QVERIFY(word.m_showFontImage);
    QCOMPARE(word.rotation(), 0.0); // what the picture shows is turned already
    QCOMPARE(word.getPos(), QPointF(200, 100));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 40, 20));
    QCOMPARE(contentOf(word).pixel(5, 5), QColor(Qt::green).rgb());
    word.setSize(QSizeF(80, 20), false, false);
    QCOMPARE(word.m_fontImageScaleX, 2.0); // stretched against its own size
}

void TestUndo::pictureReturnsWithItsStretch()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    standAsPicture(word);
    word.m_fontImageScaleX = 2.0;
    word.m_fontImageScaleY = 3.0;
    word.undoRedo(word.serialize(false), false);
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 80, 60));
    QCOMPARE(word.m_baseSize, QSizeF(40, 20));
}

void TestUndo::missingFontsWithoutAPictureKeepTheText()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.setPos(QPointF(30, 40), false);
    word.m_missingFonts = QStringList(missingFamily);
    word.undoRedo(word.serialize(false), false);
    QVERIFY(!word.m_showFontImage);
    QCOMPARE(word.getPos(), QPointF(30, 40));
    QCOMPARE(word.m_clientRect.size(), QSizeF(32, 16));
}

void TestUndo::olderObjectLeavesThePictureAtTheTextsPlace()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_newVersion = false;
    word.m_wordWrap = true; // the older engine keeps a box as it is
    word.m_wordManager->setWordWrap(true);
    word.add(QStringLiteral("abcd"));
    standAsPicture(word);
    word.setPos(QPointF(207, 105), false); // moved by (7, 5) since
    word.undoRedo(withReplacedFonts(word, QStringList(missingFamily)), false);
    QVERIFY(!word.m_showFontImage);
    QCOMPARE(word.getPos(), QPointF(217, 125));
    QCOMPARE(word.m_clientRect.size(), QSizeF(60, 30));
    QCOMPARE(word.rotation(), 0.0);
}

void TestUndo::olderObjectWithoutPictureSizeStaysWhereItIs()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_newVersion = false;
    word.add(QStringLiteral("abcd"));
    standAsPicture(word);
    word.m_fontImageSize = QSizeF(40, 0);
    word.setPos(QPointF(7, 5), false);
    word.undoRedo(withReplacedFonts(word, QStringList(missingFamily)), false);
    QVERIFY(!word.m_showFontImage);
    QCOMPARE(word.getPos(), QPointF(7, 5));
}

void TestUndo::fontReplacementIsUndoneAndRedone_data()
{
    QTest::addColumn<bool>("wrapped");
    QTest::addColumn<double>("pictureStretch");
    QTest::newRow("line") << false << 1.0;
    QTest::newRow("line, stretched") << false << 2.0;
    QTest::newRow("box") << true << 1.0;
    QTest::newRow("box, stretched") << true << 2.0;
}

void TestUndo::fontReplacementIsUndoneAndRedone()
{
    QFETCH(bool, wrapped);
    QFETCH(double, pictureStretch);
    RecordingHost host;
    OpenWord word(&host);
    if (wrapped)
        makeBox(word);
    word.add(QStringLiteral("abcd"));
    standAsPicture(word);
    word.m_fontImageScaleX = pictureStretch;
    const QString missing = withReplacedFonts(word, QStringList());
    const QString replaced = withReplacedFonts(word, QStringList(missingFamily));
    word.undoRedo(missing, false);
    const QString start = word.serialize(false);
    word.pushUndoRedo(missing, replaced);
    QVERIFY(!word.m_showFontImage);
    const QString end = word.serialize(false);
    const QSizeF box = word.m_clientRect.size();
    for (int i = 0; i < 3; ++i) {
        host.stack().undo();
        QVERIFY(word.m_showFontImage);
        QCOMPARE(word.serialize(false), start);
        QCOMPARE(word.getPos(), QPointF(200, 100));
        QCOMPARE(word.m_clientRect.size(), QSizeF(40 * pictureStretch, 20));
        host.stack().redo();
        QVERIFY(!word.m_showFontImage);
        QCOMPARE(word.serialize(false), end);
        QCOMPARE(word.m_scaleX * word.m_transformScaleX, pictureStretch);
        QCOMPARE(word.m_clientRect.size(), box);
    }
    host.stack().clear();
}

void TestUndo::listenerMayEndTheEditFromEveryNotification_data()
{
    QTest::addColumn<bool>("wrapped");
    QTest::addColumn<bool>("changed");
    QTest::newRow("line, unchanged") << false << false;
    QTest::newRow("line, changed") << false << true;
    QTest::newRow("box, unchanged") << true << false;
    QTest::newRow("box, changed") << true << true;
}

void TestUndo::listenerMayEndTheEditFromEveryNotification()
{
    QFETCH(bool, wrapped);
    QFETCH(bool, changed);
    CallingHost host;
    OpenWord word(&host);
    if (wrapped)
        makeBox(word);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    if (changed)
        word.m_cursor->insertText(QStringLiteral("c"), OpenWord::format());
    host.clearEvents();
    host.onTextOperation = [&](int) { word.endEdit(); };
    word.endEdit();
    QVERIFY(!word.m_editing);
    QCOMPARE(host.stack().count(), changed ? 1 : 0);
    QCOMPARE(operationsOf(host), (QVector<int>{0, 0, 3}));
    host.onTextOperation = nullptr;
    host.stack().clear();
}

void TestUndo::listenerMayBeginTheNextEdit()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("c"), OpenWord::format());
    bool begun = false;
    host.onTextOperation = [&](int) {
        if (begun || word.m_editing)
            return;
        begun = true;
        word.beginEdit();
    };
    word.endEdit();
    QVERIFY(begun);
    QVERIFY(word.m_editing);
    QCOMPARE(int(word.m_actionState->editing), 1);
    QCOMPARE(word.m_editStartText, QStringLiteral("abc"));
    word.m_cursor->insertText(QStringLiteral("d"), OpenWord::format());
    word.endEdit();
    QCOMPARE(host.stack().count(), 2); // each edit its own step
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("abc"));
    host.onTextOperation = nullptr;
    host.stack().clear();
}

void TestUndo::pageMayBeginTheEditAgain()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    int calls = 0;
    host.onEditing = [&] {
        ++calls;
        word.endEdit();
        word.beginEdit();
    };
    word.beginEdit();
    QCOMPARE(calls, 1);
    QVERIFY(word.m_editing);
    host.onEditing = nullptr;
    word.endEdit();
    QVERIFY(!word.m_editing);
}

void TestUndo::pageMayEndTheEditWhileItsBoxChanges()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    host.onPreview = [&] { word.endEdit(); };
    word.beginEdit();
    QVERIFY(!word.m_editing);
    host.onPreview = nullptr;
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    QCOMPARE(word.m_clientRect.size(), QSizeF(16, 16));
    QCOMPARE(host.stack().count(), 0);
}

void TestUndo::listenerMayUndoTheStepThatIsBeingPushed()
{
    CallingHost host;
    OpenWord word(&host);
    const QString a = stateWithText(QStringLiteral("a"));
    const QString b = stateWithText(QStringLiteral("b"));
    const QString c = stateWithText(QStringLiteral("c"));
    word.pushUndoRedo(a, b);
    bool undone = false;
    host.onTextOperation = [&](int) {
        if (!undone) {
            undone = true;
            host.stack().undo();
        }
    };
    word.pushUndoRedo(b, c);
    QVERIFY(undone);
    QVERIFY(host.stack().canUndo());
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("b"));
    host.onTextOperation = nullptr;
    host.stack().clear();
}

void TestUndo::listenerMayReleaseTheObject_data()
{
    QTest::addColumn<bool>("changed");
    QTest::addColumn<int>("kind");
    QTest::newRow("attributes, unchanged") << false << 0;
    QTest::newRow("edit state, unchanged") << false << 3;
    QTest::newRow("attributes, changed") << true << 0;
    QTest::newRow("edit state, changed") << true << 3;
}

void TestUndo::listenerMayReleaseTheObject()
{
    QFETCH(bool, changed);
    QFETCH(int, kind);
    CallingHost host;
    auto *word = new OpenWord(&host);
    const QPointer<OpenWord> alive(word);
    host.scene().addItem(word);
    word->add(QStringLiteral("ab"));
    word->beginEdit();
    if (changed)
        word->m_cursor->insertText(QStringLiteral("c"), OpenWord::format());
    bool released = false;
    host.onTextOperation = [&](int sent) {
        if (sent == kind && !released) {
            released = true;
            word->Release();
        }
    };
    word->endEdit();
    QVERIFY(released);
    QVERIFY(host.scene().items().isEmpty());
    host.onTextOperation = nullptr;
    QCoreApplication::sendPostedEvents();
    QCOMPARE(alive.isNull(), !changed); // a step still needs the object
    host.stack().clear();
    QVERIFY(!alive);
}

void TestUndo::listenerThatAlwaysCommandsComesToAnEnd()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    const QString state = settled(word);
    int calls = 0;
    host.onTextOperation = [&](int) {
        ++calls;
        word.pushUndoRedo(state, state);
    };
    word.pushUndoRedo(state, state);
    QVERIFY(calls > 0);
    QCOMPARE(word.serialize(false), state);
    host.onTextOperation = nullptr;
    host.stack().clear();
}

void TestUndo::commandDuringAStepBelongsToIt()
{
    CallingHost host;
    OpenWord word(&host);
    const QString a = stateWithText(QStringLiteral("a"));
    const QString b = stateWithText(QStringLiteral("b"));
    QString answer;
    host.onTextOperation = [&](int) {
        const QString text = std::exchange(answer, QString());
        if (!text.isEmpty())
            word.setAllAttributes({{QStringLiteral("text"), text}}, true);
    };
    answer = QStringLiteral("pushed");
    word.pushUndoRedo(a, b);
    QCOMPARE(word.toPlainText(), QStringLiteral("pushed"));
    answer = QStringLiteral("undone");
    host.stack().undo();
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(word.toPlainText(), QStringLiteral("undone"));
        host.stack().redo();
        QCOMPARE(word.toPlainText(), QStringLiteral("pushed"));
        host.stack().undo();
    }
    QCoreApplication::sendPostedEvents();
    QCOMPARE(host.stack().count(), 1);
    host.onTextOperation = nullptr;
    host.stack().clear();
}

void TestUndo::commandOnAnotherObjectIsAStepOfItsOwn_data()
{
    QTest::addColumn<int>("from"); // where the stack stands before
    QTest::addColumn<int>("to");   // where it goes while the other object is commanded
    QTest::addColumn<QString>("text");
    QTest::newRow("redo") << 0 << 1 << "b";
    QTest::newRow("redo of one that others follow") << 0 << 1 << "b";
    QTest::newRow("undo of all") << 1 << 0 << "a";
    QTest::newRow("undo of the last") << 2 << 1 << "b";
}

void TestUndo::commandOnAnotherObjectIsAStepOfItsOwn()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, text);
    CallingHost host;
    OpenWord word(&host);
    OpenWord other(&host);
    other.add(QStringLiteral("x"));
    const QString a = stateWithText(QStringLiteral("a"));
    const QString b = stateWithText(QStringLiteral("b"));
    word.pushUndoRedo(a, b);
    word.pushUndoRedo(b, stateWithText(QStringLiteral("c")));
    host.stack().setIndex(from);
    bool answers = true;
    host.onTextOperation = [&](int) {
        if (std::exchange(answers, false))
            other.setAllAttributes({{QStringLiteral("text"), QStringLiteral("y")}}, true);
    };
    host.stack().setIndex(to);
    QVERIFY(!answers);
    QCOMPARE(host.stack().index(), to);
    QCOMPARE(other.toPlainText(), QStringLiteral("y"));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(host.stack().count(), to + 1); // it takes the place of what was undone
    QCOMPARE(host.stack().index(), to + 1);
    QCOMPARE(word.toPlainText(), text);
    QCOMPARE(other.toPlainText(), QStringLiteral("y"));
    host.stack().undo();
    QCOMPARE(word.toPlainText(), text);
    QCOMPARE(other.toPlainText(), QStringLiteral("x"));
    host.stack().redo();
    QCOMPARE(other.toPlainText(), QStringLiteral("y"));
    host.onTextOperation = nullptr;
    host.stack().clear();
}

void TestUndo::stepThatWaitsGoesAheadOfTheNextOne()
{
    CallingHost host;
    OpenWord word(&host);
    OpenWord other(&host);
    other.add(QStringLiteral("x"));
    bool answers = true;
    host.onTextOperation = [&](int) {
        if (std::exchange(answers, false))
            other.setAllAttributes({{QStringLiteral("text"), QStringLiteral("y")}}, true);
    };
    word.pushUndoRedo(stateWithText(QStringLiteral("a")), stateWithText(QStringLiteral("b")));
    other.setAllAttributes({{QStringLiteral("text"), QStringLiteral("z")}}, true);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(host.stack().count(), 3);
    QCOMPARE(other.toPlainText(), QStringLiteral("z"));
    host.stack().undo();
    QCOMPARE(other.toPlainText(), QStringLiteral("y"));
    host.stack().undo();
    QCOMPARE(other.toPlainText(), QStringLiteral("x"));
    QCOMPARE(word.toPlainText(), QStringLiteral("b"));
    host.onTextOperation = nullptr;
    host.stack().clear();
}

void TestUndo::commandOnAnObjectWithAnotherStackIsRecordedAtOnce()
{
    RecordingHost otherPage;
    CallingHost host;
    OpenWord word(&host);
    OpenWord other(&otherPage);
    bool answers = true;
    host.onTextOperation = [&](int) {
        if (std::exchange(answers, false))
            other.setAllAttributes({{QStringLiteral("text"), QStringLiteral("y")}}, true);
    };
    word.pushUndoRedo(stateWithText(QStringLiteral("a")), stateWithText(QStringLiteral("b")));
    QCOMPARE(host.stack().count(), 1);
    QCOMPARE(otherPage.stack().count(), 1);
    otherPage.stack().undo();
    QCOMPARE(other.toPlainText(), QString());
    host.onTextOperation = nullptr;
    host.stack().clear();
    otherPage.stack().clear();
}

void TestUndo::endEditAfterACommandDuringAStepPushesNothing()
{
    CallingHost host;
    OpenWord word(&host);
    word.pushUndoRedo(stateWithText(QStringLiteral("a")), stateWithText(QStringLiteral("b")));
    word.beginEdit();
    bool answers = true;
    host.onTextOperation = [&](int) {
        if (std::exchange(answers, false)) {
            word.selectAll();
            word.setAllAttributes({{QStringLiteral("text"), QStringLiteral("c")}}, true);
            word.pushUndoRedo(word.m_editStartData, word.serialize(false));
        }
    };
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("c"));
    word.endEdit();
    QCOMPARE(host.stack().count(), 1);
    QVERIFY(host.stack().canRedo());
    host.onTextOperation = nullptr;
    host.stack().clear();
}

namespace {
const QString glyphs = QStringLiteral("abcXYZ 19.,\t");

/// Random commands of a user; the seed is all that decides.
class RandomUser
{
public:
    RandomUser(OpenWord &word, quint32 seed)
        : m_word(word)
        , m_random(seed)
    {
    }

    /// One finished change with its step, without anything selected before or after.
    void change()
    {
        switch (m_random.bounded(7)) {
        case 0:
            edit(/*withFormats=*/false);
            break;
        case 1:
            m_word.setAllAttributes({{QStringLiteral("text"), text()}}, true);
            break;
        case 2:
            turnForm();
            break;
        case 3:
            replaceText();
            break;
        default:
            m_word.setAllAttributes(attributes(), true);
        }
    }

    /// Typing, removing and pasting from beginEdit() to endEdit(). The text is another one at the end.
    /// Formats, which have steps of their own, are given to selections.
    void edit(bool withFormats)
    {
        m_word.beginEdit();
        for (int i = m_random.bounded(1, 5); i > 0; --i)
            editStep(withFormats);
        m_word.m_cursor->movePosition(QTextCursor::End);
        m_word.m_cursor->insertText(QString::number(1000 + ++m_edits), format());
        m_word.endEdit();
    }

    /// Some text in some format at the caret.
    void type()
    {
        const QString typed = text();
        m_word.m_cursor->insertText(typed, format());
    }

private:
    QTextCharFormat format()
    {
        QTextCharFormat result = m_word.attr2CharFormat(attributes());
        result.setFontFamily(loadBoxTestFont());
        if (!result.hasProperty(QTextFormat::FontPointSize))
            result.setFontPointSize(12);
        return result;
    }

    QString text()
    {
        QString result;
        for (int i = m_random.bounded(1, 8); i > 0; --i) {
            const int kind = m_random.bounded(12);
            if (kind == 0)
                result += QChar::LineFeed;
            else if (kind == 1)
                result += QChar(0x4e00 + m_random.bounded(200));
            else if (kind == 2)
                result += QString::fromUcs4(U"\U0001F600", 1);
            else
                result += glyphs.at(m_random.bounded(glyphs.size()));
        }
        return result;
    }

    void editStep(bool withFormats)
    {
        selectSomething();
        if (withFormats && m_word.m_selStart < m_word.m_selEnd && m_random.bounded(2) == 0) {
            m_word.setAllAttributes(attributes(), true);
            return;
        }
        switch (m_random.bounded(4)) {
        case 0:
            m_word.cut();
            break;
        case 1:
            m_word.copy();
            m_word.paste(false, m_random.bounded(2) == 0);
            break;
        case 2:
            m_word.removeSelectedText();
            m_word.m_cursor->insertBlock();
            break;
        default:
            m_word.removeSelectedText();
            type();
        }
        m_word.updateBoundingRectImpl(true);
    }

    void selectSomething()
    {
        const int last = m_word.m_document->characterCount() - 1;
        const int a = m_random.bounded(last + 1);
        const int b = m_random.bounded(last + 1);
        m_word.select(qMin(a, b), qMax(a, b));
        m_word.m_cursor->setPosition(m_word.m_selStart);
        m_word.m_cursor->setPosition(m_word.m_selEnd, QTextCursor::KeepAnchor);
    }

    void turnForm()
    {
        AttributeMap map; // deliberate: an orientation that stays would hide the other change
        if (m_random.bounded(2) == 0)
            map = {{QStringLiteral("text_horizontal"), m_random.bounded(2) == 0}};
        else
            map = {{QStringLiteral("text_wordwrap"), m_random.bounded(2) == 0},
                   {QStringLiteral("text_auto_wordwrap"), m_random.bounded(2) == 0}};
        m_word.setAllAttributes(map, true);
    }

    void replaceText()
    {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << text();
        QDataStream stream(bytes);
        m_word.SetSpecialProperty(109, stream, false);
    }

    AttributeMap attributes()
    {
        const QVector<QPair<QString, QVariant>> choice{
            {QStringLiteral("font_bold"), m_random.bounded(2) == 0},
            {QStringLiteral("font_italic"), m_random.bounded(2) == 0},
            {QStringLiteral("font_underline"), m_random.bounded(2) == 0},
            {QStringLiteral("font_strikeout"), m_random.bounded(2) == 0},
            {QStringLiteral("font_pointsize"), 6.0 + 6 * m_random.bounded(4)},
            {QStringLiteral("font_rowspacing"), 10.0 * m_random.bounded(3)},
            {QStringLiteral("selected_letterspacing"), 50.0 * m_random.bounded(3)},
            {QStringLiteral("pen_color"), QColor(Qt::GlobalColor(Qt::red + m_random.bounded(3)))},
            {QStringLiteral("vertical_scaled"), 50 + 50 * m_random.bounded(3)},
            {QStringLiteral("baseline_offset"), 2.0 * m_random.bounded(3)},
            {QStringLiteral("text_upper"), m_random.bounded(2) == 0},
            {QStringLiteral("textalignment"), 1 << m_random.bounded(3)},
            {QStringLiteral("paragraph_left_indent"), 5.0 * m_random.bounded(3)},
        };
        AttributeMap result;
        for (int i = m_random.bounded(1, 4); i > 0; --i) {
            const auto &pair = choice.at(m_random.bounded(choice.size()));
            result[pair.first] = pair.second;
        }
        return result;
    }

    OpenWord &m_word;
    QRandomGenerator m_random;
    int m_edits = 0;
};

QString rebuilt(const QString &documentString)
{
    OpenWord other;
    other.deserialization(documentString, false);
    return other.serialize(false);
}

/// A document string without the keys that say where the caret and the selection are.
QJsonObject withoutCaret(const QString &documentString)
{
    QJsonObject json = jsonOf(documentString);
    for (const char *key : {"cursor_position", "selection_start", "selection_end"})
        json.remove(QLatin1String(key));
    return json;
}

void addSeeds()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 10; ++seed)
        QTest::addRow("%u", seed) << seed;
}
} // namespace

void TestUndo::stringOfARebuiltDocumentIsItself_data()
{
    addSeeds();
}

void TestUndo::stringOfARebuiltDocumentIsItself()
{
    QFETCH(uint, seed);
    RecordingHost host;
    OpenWord word(&host);
    RandomUser user(word, seed);
    for (int i = 0; i < 12; ++i) {
        user.type();
        const QString fresh = word.serialize(false);
        OpenWord other;
        other.deserialization(fresh, false);
        QCOMPARE(other.toPlainText(), word.toPlainText());
        const QString once = other.serialize(false);
        QCOMPARE(rebuilt(once), once);
    }
    settled(word);
    for (int i = 0; i < 12; ++i) {
        user.change();
        const QString state = word.serialize(false);
        QCOMPARE(rebuilt(state), state);
    }
    host.stack().clear();
}

void TestUndo::undoLeadsToTheStartAndRedoToTheEnd_data()
{
    addSeeds();
}

void TestUndo::undoLeadsToTheStartAndRedoToTheEnd()
{
    QFETCH(uint, seed);
    RecordingHost host;
    OpenWord word(&host);
    RandomUser user(word, seed);
    user.type();
    QStringList states(settled(word));
    for (int i = 0; i < 15; ++i) {
        const int steps = host.stack().count();
        user.change();
        QVERIFY(host.stack().count() <= steps + 1);
        if (host.stack().count() > steps)
            states.append(word.serialize(false));
        else
            QCOMPARE(word.serialize(false), states.last()); // no step, no change
    }
    for (int round = 0; round < 2; ++round) {
        for (int i = states.size() - 2; i >= 0; --i) {
            host.stack().undo();
            QCOMPARE(word.serialize(false), states.at(i));
        }
        QVERIFY(!host.stack().canUndo());
        for (int i = 1; i < states.size(); ++i) {
            host.stack().redo();
            QCOMPARE(word.serialize(false), states.at(i));
        }
    }
    const QJsonObject start = withoutCaret(states.last());
    const int finished = host.stack().count();
    for (int i = 0; i < 6; ++i)
        user.edit(/*withFormats=*/true); // several steps an edit, with selections in between
    const QJsonObject end = withoutCaret(word.serialize(false));
    host.stack().setIndex(finished);
    QCOMPARE(withoutCaret(word.serialize(false)), start);
    host.stack().setIndex(host.stack().count());
    QCOMPARE(withoutCaret(word.serialize(false)), end);
    host.stack().clear();
}

void TestUndo::letterSpacedSurrogatePairsSurvive()
{
    OpenWord word;
    QTextCharFormat spaced = OpenWord::format();
    spaced.setProperty(TextProperty::LeadingGap, 50.0);
    const QString faces = QString::fromUcs4(U"a\U0001F600\U0001F601", 3);
    word.add(faces, spaced);
    const QString state = settled(word);
    QCOMPARE(word.toPlainText(), faces);
    OpenWord other;
    other.deserialization(state, false);
    QCOMPARE(other.toPlainText(), faces);
    QCOMPARE(other.serialize(false), state);
}

QTEST_MAIN(TestUndo)
#include "tst_undo.moc"
