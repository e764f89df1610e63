// SPDX-License-Identifier: MIT
// What the pointer does: drawing, the way into an edit, caret, selection, words, moving, hover.
#include "pointer.h"

#include <QGraphicsView>
#include <QInputMethodEvent>
#include <QPointer>
#include <QTest>

#include <algorithm>

using namespace Pointer;

class TestMouse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // drawing
    void drawingFollowsThePointer();
    void clickOnNewObjectDrawsNoFrame();
    void drawnForm_data();
    void drawnForm();
    void newObjectIsAnnouncedOnce();
    void newObjectNeedsNoPage();
    void drawingForgetsAnchorAndFlags();
    void drawnBoxKeepsItsPlaceInTheEdit();
    void hostMayEndWhatItHearsIsDrawn();

    // into the edit
    void pressWithTextToolEntersEditAtThePointer();
    void pressWithTextToolDoesNotBeginASelection();
    void pressWithTextToolDeselectsTheOthers();
    void pressWithTextToolLeavesThePicture();
    void pressIsTakenOnTheTextBox();
    void pressWithTextToolAndMissingFontTellsSo();
    void pressWithTextToolOnLockedObjectOnlySelects();
    void pressWithAnotherToolIsTheHosts();
    void pressOnHandleIsTheHosts();
    void doubleClickEntersEdit_data();
    void doubleClickEntersEdit();
    void doubleClickIsRefused_data();
    void doubleClickIsRefused();
    void doubleClickWithMissingFontTellsSo();

    // position under a point
    void positionInRows_data();
    void positionInRows();
    void positionInColumns_data();
    void positionInColumns();
    void positionInSidewaysText_data();
    void positionInSidewaysText();
    void positionOfSeveralRuns();
    void positionInLongLine();
    void positionInLongLineOfJoinedText();
    void positionIsThatOfAWalkFromTheEnd_data();
    void positionIsThatOfAWalkFromTheEnd();
    void positionInStretchedText();
    void positionInScaledRun();
    void positionInCompressedPunctuation();
    void positionIsNeverWithinACodePoint_data();
    void positionIsNeverWithinACodePoint();
    void positionNeverPassesTheRun();
    void positionInEmptyParagraph();
    void positionBelowEmptyParagraphIsInTheDocument();
    void positionInEmptyDocument();
    void lineIsTheFirstThatReachesFarEnough();
    void lineIsFoundAnewAfterAChange();
    void olderObjectHasNoPosition();
    void wrapIsToldByTheSideOfThePointer_data();
    void wrapIsToldByTheSideOfThePointer();
    void wrapOfColumns();
    void lineTextHasNoWrap();

    // caret and selection
    void pressPutsTheCaret();
    void pressIsTakenBackThroughFlipAndMirror_data();
    void pressIsTakenBackThroughFlipAndMirror();
    void pressOutsideMovesTheObject();
    void dragSelects_data();
    void dragSelects();
    void dragInColumnsSelects();
    void dragInBoxStandsAtTheNextLine();
    void dragFromTheEndOfAParagraphShowsItsSelection();
    void moveWithoutPressDoesNothing();
    void otherButtonIsTheHosts();
    void releaseTellsAttributes();
    void releaseOfHandleKeepsTheFlags();
    void moveOfFinishedObjectIsTheHosts();

    void eventsOfAViewReachTheText();

    // words
    void wordAt_data();
    void wordAt();
    void wordOutsideTheText();
    void doubleClickSelectsTheWordBefore();
    void doubleClickAtTheStartDoesNothing();
    void wordLeavesCursorAndAnchor();

    // composition
    void pointerEndsAComposition_data();
    void pointerEndsAComposition();
    void movingTheObjectKeepsAComposition();

    // hover
    void hoverNames_data();
    void hoverNames();
    void hoverOnLineTextKnowsNoHandles();
    void hoverIsSilentOutsideEdit();
    void hoverIgnoresTheFlip();
    void enterAndLeaveAreTold();
    void nullEventsDoNothing();
};

namespace {
const QString han = QStringLiteral("中文国人天地"); // three a row of 48 px

QStringList announcements(const RecordingHost &host)
{
    QStringList kinds;
    for (const RecordingHost::Event &event : host.events) {
        if (event.kind != QLatin1String("event"))
            kinds.append(event.kind);
    }
    return kinds;
}

QVector<int> selectionOf(const OpenWord &word)
{
    return {word.m_selStart, word.m_selEnd};
}

QString direction(const RecordingHost &host)
{
    return host.events.last().values.value(QStringLiteral("direction")).toString();
}

/// An object in the scene of \a host, with some text.
OpenWord *wordInScene(RecordingHost &host, const QString &text = QStringLiteral("abcd"))
{
    auto *word = new OpenWord(&host);
    host.scene().addItem(word);
    word->add(text);
    word->setPos(QPointF(0, 0), false);
    return word;
}
} // namespace

// drawing

void TestMouse::drawingFollowsThePointer()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    word.setPos(QPointF(100, 50), false);
    word.forgetCalls();
    press(word, QPointF(105, 56));
    QCOMPARE(word.m_pressPos, QPointF(5, 6));
    QVERIFY(word.changes.isEmpty());
    move(word, QPointF(130, 90));
    QCOMPARE(word.m_dragPos, QPointF(30, 40));
    QCOMPARE(word.m_pressPos, QPointF(5, 6));
    QCOMPARE(word.changes, (QVector<int>{1002}));
    QVERIFY(!word.m_editing);
    QVERIFY(!word.isSelected());
}

void TestMouse::clickOnNewObjectDrawsNoFrame()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    press(word, QPointF(20, 30));
    QVERIFY(inkOf(contentOf(word)).isNull());
    move(word, QPointF(60, 70));
    QVERIFY(!inkOf(contentOf(word)).isNull());
}

void TestMouse::drawnForm_data()
{
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<bool>("box");
    QTest::addColumn<QRectF>("place"); // of a box, scene
    // The object lies at (100, 50), where it was pressed as a rule.
    const QPointF at(100, 50);
    QTest::newRow("click") << at << at << false << QRectF();
    QTest::newRow("2 by 2") << at << at + QPointF(2, 2) << false << QRectF();
    QTest::newRow("2 by 2 back") << at << at - QPointF(2, 2) << false << QRectF();
    QTest::newRow("just below 3") << at << at + QPointF(2.9, -2.9) << false << QRectF();
    QTest::newRow("3 by 0") << at << at + QPointF(3, 0) << true << QRectF(100, 50, 5, 5);
    QTest::newRow("0 by 3") << at << at + QPointF(0, 3) << true << QRectF(100, 50, 5, 5);
    QTest::newRow("40 by 2") << at << at + QPointF(40, 2) << true << QRectF(100, 50, 40, 5);
    QTest::newRow("40 by 30") << at << at + QPointF(40, 30) << true << QRectF(100, 50, 40, 30);
    QTest::newRow("left") << at << at + QPointF(-40, 30) << true << QRectF(60, 50, 40, 30);
    QTest::newRow("up") << at << at + QPointF(40, -30) << true << QRectF(100, 20, 40, 30);
    QTest::newRow("left and up") << at << at - QPointF(40, 30) << true << QRectF(60, 20, 40, 30);
    QTest::newRow("4 to the left") << at << at - QPointF(4, 0) << true << QRectF(95, 50, 5, 5);
    QTest::newRow("pressed further in")
        << QPointF(120, 60) << QPointF(150, 100) << true << QRectF(100, 50, 30, 40);
}

void TestMouse::drawnForm()
{
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    QFETCH(bool, box);
    QFETCH(QRectF, place);
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    word.m_wordWrap = !box;
    word.m_wordManager->setWordWrap(!box);
    word.setPos(QPointF(100, 50), false);
    press(word, from);
    move(word, (from + to) / 2);
    release(word, to);
    QCOMPARE(word.m_wordWrap, box);
    QCOMPARE(word.m_saveParams.value(QStringLiteral("text_wordwrap")), QVariant(box));
    QVERIFY(word.m_created);
    if (box)
        QCOMPARE(QRectF(word.getPos(), word.m_clientRect.size()), place);
    else
        QCOMPARE(word.getPos(), QPointF(100, 50));

    // The layout follows the form: a narrow box wraps, line text does not.
    word.m_clientRect = QRectF(0, 0, 48, 100);
    word.m_textPathsRect = word.m_clientRect;
    word.add(han);
    QCOMPARE(word.m_wordManager->textLayout().lines.size(), box ? 2 : 1);
}

void TestMouse::newObjectIsAnnouncedOnce()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    press(word, QPointF(0, 0));
    host.clearEvents();
    release(word, QPointF(40, 30));
    QCOMPARE(announcements(host).join(QLatin1Char(' ')),
             QStringLiteral("beginBatch beginGroup tool created endGroup endBatch"));
    QCOMPARE(host.eventsOfKind(QStringLiteral("beginGroup")).first().key,
             QStringLiteral("IDS_ITEM_ADD_ITEM"));
    QCOMPARE(host.eventsOfKind(QStringLiteral("tool")).first().code, 243);
    QCOMPARE(host.eventsOfKind(QStringLiteral("tool")).first().detail, QStringLiteral("0,0"));
    QVERIFY(!word.m_editing);

    host.clearEvents();
    release(word, QPointF(40, 30)); // a second one is that of a finished object
    QVERIFY(announcements(host).isEmpty());
}

void TestMouse::newObjectNeedsNoPage()
{
    RecordingHost host;
    host.toolControllerOn = false;
    host.documentOn = false;
    OpenWord word(&host);
    word.m_created = false;
    press(word, QPointF(0, 0));
    release(word, QPointF(0, 0));
    QVERIFY(word.m_created);
    QCOMPARE(announcements(host).join(QLatin1Char(' ')),
             QStringLiteral("beginBatch created endBatch"));

    OpenWord alone;
    alone.m_created = false;
    press(alone, QPointF(0, 0));
    release(alone, QPointF(9, 9));
    QVERIFY(alone.m_created);
    QVERIFY(alone.m_wordWrap);
}

void TestMouse::drawingForgetsAnchorAndFlags()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    word.m_textOffset = QPointF(7, 9);
    word.m_mouseSelecting = true;
    word.m_dragMovesObject = true;
    press(word, QPointF(0, 0));
    release(word, QPointF(1, 1));
    QCOMPARE(word.m_textOffset, QPointF(0, 0));
    QCOMPARE(word.m_dragPos, QPointF(1, 1));
    QVERIFY(!word.m_mouseSelecting);
    QVERIFY(!word.m_dragMovesObject);
}

void TestMouse::drawnBoxKeepsItsPlaceInTheEdit()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    word.setPos(QPointF(100, 50), false);
    press(word, QPointF(100, 50));
    release(word, QPointF(60, 90));
    word.beginEdit();
    QCOMPARE(QRectF(word.getPos(), word.m_clientRect.size()), QRectF(60, 50, 40, 40));
    word.add(han); // two characters a row
    QCOMPARE(word.m_wordManager->textLayout().lines.first().length, 2);
    word.endEdit();
    word.beginEdit();
    QCOMPARE(word.getPos(), QPointF(60, 50));
}

void TestMouse::hostMayEndWhatItHearsIsDrawn()
{
    struct RefusingHost : RecordingHost {
        void objectCreated(CVXRootObject *object) override { object->Release(); }
    };
    RefusingHost host;
    const QPointer<OpenWord> word(new OpenWord(&host));
    word->m_created = false;
    press(*word, QPointF(0, 0));
    release(*word, QPointF(40, 30));
    QVERIFY(!word.isNull()); // until the call is over
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    QVERIFY(word.isNull());
}

// into the edit

void TestMouse::pressWithTextToolEntersEditAtThePointer()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    host.currentTool = 300;
    host.clearEvents();
    word->forgetCalls();
    press(*word, QPointF(17, 8));
    QVERIFY(word->m_editing);
    QCOMPARE(word->m_cursor->position(), 2);
    QCOMPARE(word->m_selAnchor, 2);
    QCOMPARE(selectionOf(*word), (QVector<int>{2, 2}));
    QVERIFY(word->m_cursorVisible);
    QVERIFY(!word->m_mouseSelecting);
    QCOMPARE(operationsOf(host), (QVector<int>{3}));
    QCOMPARE(host.eventsOfKind(QStringLiteral("editing")).size(), 1);
    QCOMPARE(word->changes.last(), 1002);
}

void TestMouse::pressWithTextToolDoesNotBeginASelection()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    host.currentTool = 300;
    press(*word, QPointF(1, 8));
    move(*word, QPointF(30, 8));
    QCOMPARE(word->m_cursor->position(), 0);
    QCOMPARE(selectionOf(*word), (QVector<int>{0, 0}));
}

void TestMouse::pressWithTextToolDeselectsTheOthers()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    OpenWord *other = wordInScene(host);
    OpenWord *third = wordInScene(host);
    word->setSelected(true);
    other->setSelected(true);
    host.currentTool = 300;
    press(*word, QPointF(1, 8));
    QVERIFY(word->isSelected());
    QVERIFY(!other->isSelected());
    QVERIFY(!third->isSelected());
}

void TestMouse::pressWithTextToolLeavesThePicture()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    word->m_showFontImage = true;
    word->m_fontImage = QImage(32, 16, QImage::Format_ARGB32);
    word->m_fontImageClient = QRectF(0, 0, 32, 16);
    host.currentTool = 300;
    press(*word, QPointF(1, 8));
    QVERIFY(!word->m_showFontImage);
    QVERIFY(word->m_editing);
}

void TestMouse::pressIsTakenOnTheTextBox()
{
    RecordingHost host;
    OpenWord word(&host);
    editBoxText(word, han, QSizeF(100, 40));
    word.endEdit();
    QCOMPARE(word.getPos(), QPointF(0, 0));
    word.m_boundsMargins.left = -20; // the rectangle shown is 20 wider than the box
    host.currentTool = 300;
    press(word, QPointF(40, 8));
    QCOMPARE(word.getPos(), QPointF(20, 0));
    QCOMPARE(word.m_cursor->position(), 1); // 20 px into the box
}

void TestMouse::pressWithTextToolAndMissingFontTellsSo()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    word->m_missingFonts = QStringList(QStringLiteral("No Such Family"));
    host.currentTool = 300;
    host.clearEvents();
    press(*word, QPointF(1, 8));
    QVERIFY(!word->m_editing);
    QVERIFY(!word->m_mouseSelecting);
    QCOMPARE(operationsOf(host), (QVector<int>{1}));
}

void TestMouse::pressWithTextToolOnLockedObjectOnlySelects()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    word->setLocked(true, false, false);
    host.currentTool = 300;
    press(*word, QPointF(1, 8));
    QVERIFY(!word->m_editing);
    QVERIFY(word->isSelected());
}

void TestMouse::pressWithAnotherToolIsTheHosts()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    host.currentTool = 1;
    press(*word, QPointF(1, 8));
    QVERIFY(!word->m_editing);
    QVERIFY(word->isSelected());
    QVERIFY(word->m_mouseSelecting);
    release(*word, QPointF(1, 8));
    QVERIFY(!word->m_mouseSelecting);
}

void TestMouse::pressOnHandleIsTheHosts()
{
    RecordingHost host;
    OpenWord word(&host);
    editBoxText(word, han, QSizeF(100, 60));
    word.setShowHandles(&word, true, false);
    word.m_baseSize = QSizeF(-1, -1);
    press(word, QPointF(100, 60));
    QCOMPARE(word.m_baseSize, QSizeF(100, 60));
    QVERIFY(!word.m_mouseSelecting);
    move(word, QPointF(120, 80));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 120, 80));
    release(word, QPointF(120, 80));

    word.m_baseSize = QSizeF(10, 10);
    press(word, QPointF(120, 80));
    QCOMPARE(word.m_baseSize, QSizeF(10, 10)); // kept where it says something
}

void TestMouse::doubleClickEntersEdit_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<QVector<int>>("kinds");
    // about to edit, edit state, all selected, pointer entered
    QTest::newRow("select tool") << 1 << QVector<int>{2, 3, 0};
    QTest::newRow("text tool") << 300 << QVector<int>{3, 0, 4};
    QTest::newRow("hover tool") << 91 << QVector<int>{2, 3, 0, 4};
}

void TestMouse::doubleClickEntersEdit()
{
    QFETCH(int, tool);
    QFETCH(QVector<int>, kinds);
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    word->setSelected(true);
    host.currentTool = tool;
    host.clearEvents();
    word->m_cursorAtLineEnd = true;
    clickTwice(*word, QPointF(17, 8));
    QVERIFY(word->m_editing);
    QVERIFY(word->isSelected());
    QCOMPARE(selectionOf(*word), (QVector<int>{0, 4}));
    QVERIFY(!word->m_cursorAtLineEnd);
    QCOMPARE(operationsOf(host), kinds);
}

void TestMouse::doubleClickIsRefused_data()
{
    QTest::addColumn<QString>("reason");
    for (const char *reason : {"drawing", "not selected", "two selected", "locked", "no page"})
        QTest::newRow(reason) << QString::fromLatin1(reason);
}

void TestMouse::doubleClickIsRefused()
{
    QFETCH(QString, reason);
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    OpenWord *other = wordInScene(host);
    word->setSelected(reason != QLatin1String("not selected"));
    other->setSelected(reason == QLatin1String("two selected"));
    word->m_created = reason != QLatin1String("drawing");
    word->setLocked(reason == QLatin1String("locked"), false, false);
    if (reason == QLatin1String("no page"))
        word->setBelongPage(nullptr);
    word->m_cursorAtLineEnd = true;
    host.clearEvents();
    clickTwice(*word, QPointF(17, 8));
    QVERIFY(!word->m_editing);
    QVERIFY(!word->m_cursorAtLineEnd); // first of all
    QVERIFY(operationsOf(host).isEmpty());
}

void TestMouse::doubleClickWithMissingFontTellsSo()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    word->setSelected(true);
    word->m_missingFonts = QStringList(QStringLiteral("No Such Family"));
    host.clearEvents();
    clickTwice(*word, QPointF(17, 8));
    QVERIFY(!word->m_editing);
    QCOMPARE(operationsOf(host), (QVector<int>{1}));
}

// position under a point

void TestMouse::positionInRows_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("position");
    // "abcd" and "ef": letters of 8 px in rows of 16 px
    QTest::newRow("left of all") << QPointF(-50, 8) << 0;
    QTest::newRow("left edge") << QPointF(0, 8) << 0;
    QTest::newRow("first half of a") << QPointF(3, 8) << 0;
    QTest::newRow("middle of a") << QPointF(4, 8) << 0;
    QTest::newRow("second half of a") << QPointF(4.5, 8) << 1;
    QTest::newRow("between a and b") << QPointF(8, 8) << 1;
    QTest::newRow("middle of c") << QPointF(20, 8) << 2;
    QTest::newRow("second half of c") << QPointF(20.5, 8) << 3;
    QTest::newRow("second half of d") << QPointF(29, 8) << 4;
    QTest::newRow("right of all") << QPointF(500, 8) << 4;
    QTest::newRow("above all") << QPointF(9, -100) << 1;
    QTest::newRow("lowest of the first row") << QPointF(9, 15.9) << 1;
    QTest::newRow("highest of the second row") << QPointF(9, 16) << 6;
    QTest::newRow("left of the second row") << QPointF(-1, 20) << 5;
    QTest::newRow("right of the second row") << QPointF(40, 20) << 7;
    QTest::newRow("below all") << QPointF(1, 32) << 7;
}

void TestMouse::positionInRows()
{
    QFETCH(QPointF, point);
    QFETCH(int, position);
    OpenWord word;
    editLineText(word, QStringLiteral("abcd\nef"));
    QCOMPARE(word.hCursorPosByMouse(point), position);
}

void TestMouse::positionInColumns_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("position");
    // Two characters in a column about x = 32, one in a column about x = 8
    QTest::newRow("above all") << QPointF(32, -9) << 0;
    QTest::newRow("top edge") << QPointF(32, 0) << 0;
    QTest::newRow("upper half of the first") << QPointF(32, 7) << 0;
    QTest::newRow("middle of the first") << QPointF(32, 8) << 0;
    QTest::newRow("lower half of the first") << QPointF(32, 8.5) << 1;
    QTest::newRow("between both") << QPointF(32, 16) << 1;
    QTest::newRow("middle of the second") << QPointF(32, 24) << 1;
    QTest::newRow("lower half of the second") << QPointF(32, 24.5) << 2;
    QTest::newRow("below all") << QPointF(32, 300) << 2;
    QTest::newRow("right of all") << QPointF(300, 9) << 1;
    QTest::newRow("leftmost of the first column") << QPointF(24.1, 9) << 1;
    QTest::newRow("rightmost of the second column") << QPointF(24, 9) << 4;
    QTest::newRow("upper half in the second column") << QPointF(8, 7) << 3;
    QTest::newRow("leftmost of the second column") << QPointF(0.1, 7) << 3;
    QTest::newRow("left of all") << QPointF(0, 7) << 4;
}

void TestMouse::positionInColumns()
{
    QFETCH(QPointF, point);
    QFETCH(int, position);
    OpenWord word;
    editLineText(word, QStringLiteral("中文\n国"), Qt::Vertical);
    QCOMPARE(word.vCursorPosByMouse(point), position);
}

void TestMouse::positionInSidewaysText_data()
{
    QTest::addColumn<qreal>("y");
    QTest::addColumn<int>("position");
    // one character of 16 px, then three letters of 8 px
    QTest::newRow("within the character") << 9.0 << 1;
    QTest::newRow("middle of the first letter") << 20.0 << 1;
    QTest::newRow("behind that") << 20.5 << 2;
    QTest::newRow("end of the first letter") << 24.0 << 2;
    QTest::newRow("behind the middle of the last") << 36.5 << 4;
    QTest::newRow("far below") << 100.0 << 4;
}

void TestMouse::positionInSidewaysText()
{
    QFETCH(qreal, y);
    QFETCH(int, position);
    OpenWord word;
    editLineText(word, QStringLiteral("中abc"), Qt::Vertical);
    QCOMPARE(word.vCursorPosByMouse(QPointF(8, y)), position);
}

void TestMouse::positionOfSeveralRuns()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab"));             // 8 px each
    word.add(QStringLiteral("cd"), OpenWord::format(24)); // 16 px each, from x = 16
    QCOMPARE(word.hCursorPosByMouse(QPointF(16, 8)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(24, 8)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(24.5, 8)), 3);
    QCOMPARE(word.hCursorPosByMouse(QPointF(41, 8)), 4);
}

void TestMouse::positionInLongLine()
{
    OpenWord word;
    editLineText(word, QString(1000, QLatin1Char('a')));
    for (int i : {0, 1, 2, 499, 500, 998, 999}) {
        QCOMPARE(word.hCursorPosByMouse(QPointF(8 * i + 1, 8)), i);
        QCOMPARE(word.hCursorPosByMouse(QPointF(8 * i + 7, 8)), i + 1);
    }
}

void TestMouse::positionInLongLineOfJoinedText()
{
    // A mark over every letter: its prefixes are as long as those without it.
    OpenWord word;
    QString text;
    for (int i = 0; i < 400; ++i)
        text += QStringLiteral("a\u0301");
    editLineText(word, text);
    const QFontMetricsF metrics(word.m_wordManager->textLayout().lines.first().font);
    for (int length : {1, 2, 3, 400, 401, 799}) {
        const qreal end = metrics.horizontalAdvance(text.left(length));
        const qreal next = metrics.horizontalAdvance(text.left(length + 1));
        if (next > end) {
            QCOMPARE(word.hCursorPosByMouse(QPointF(end + 0.3 * (next - end), 8)), length);
            QCOMPARE(word.hCursorPosByMouse(QPointF(end + 0.7 * (next - end), 8)), length + 1);
        }
    }
    QCOMPARE(word.hCursorPosByMouse(QPointF(1e6, 8)), 800);
}

void TestMouse::positionIsThatOfAWalkFromTheEnd_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qreal>("spacing"); // thousandths of the size
    const QString kerned = QStringLiteral("AVAToTe. fi, ffl; Wa ");
    QTest::newRow("kerned") << kerned.repeated(20) << 0.0;
    QTest::newRow("Latin and Han") << QStringLiteral("中文ab，国c、").repeated(40) << 0.0;
    QTest::newRow("spaced") << kerned.repeated(20) << 200.0;
    QTest::newRow("tight") << kerned.repeated(5) << -300.0;
    QTest::newRow("folding back") << kerned.repeated(5) << -900.0;
    QTest::newRow("marks") << QStringLiteral("e\u0301a\u0308\u0301 ").repeated(20) << 0.0;
    QTest::newRow("Arabic") << QStringLiteral("\u0644\u0627\u0645\u0627\u0644 ").repeated(30)
                            << 0.0;
}

void TestMouse::positionIsThatOfAWalkFromTheEnd()
{
    QFETCH(QString, text);
    QFETCH(qreal, spacing);
    QTextCharFormat format = OpenWord::format();
    format.setFontFamily(QStringLiteral("DejaVu Sans"));
    format.setProperty(TextProperty::LetterSpacing, spacing);
    OpenWord word;
    editLineText(word, text, Qt::Horizontal, format);
    const TextFragment run = word.m_wordManager->textLayout().lines.first().fragments.first();
    const QFontMetricsF metrics(run.font);
    QVector<qreal> ends;
    for (int length = 0; length <= text.length(); ++length)
        ends.append(run.start + metrics.horizontalAdvance(text.left(length)));
    const auto walked = [&](qreal x) {
        for (int length = text.length() - 1; length >= 0; --length) {
            if (x > (ends.at(length) + ends.at(length + 1)) / 2)
                return length + 1;
            if (x >= ends.at(length))
                return length;
        }
        return 0;
    };
    const qreal width = qMax(8.0, *std::max_element(ends.cbegin(), ends.cend()) - run.start);
    for (int i = 1; i <= 150; ++i) {
        const qreal x = run.start + width * i / 145;
        QCOMPARE(word.hCursorPosByMouse(QPointF(x, 8)), walked(x));
    }
}

void TestMouse::positionInStretchedText()
{
    OpenWord word;
    editLineText(word, QStringLiteral("abcd\nef"));
    word.m_scaleX = 2;
    word.m_scaleY = 3;
    QCOMPARE(word.hCursorPosByMouse(QPointF(17, 47)), 1);
    QCOMPARE(word.hCursorPosByMouse(QPointF(17, 48)), 6);
    word.m_scaleX = 0; // divides as 1
    QCOMPARE(word.hCursorPosByMouse(QPointF(17, 20)), 2);

    OpenWord columns;
    editLineText(columns, QStringLiteral("中文\n国"), Qt::Vertical);
    columns.m_scaleX = 2;
    columns.m_scaleY = 3;
    QCOMPARE(columns.vCursorPosByMouse(QPointF(49, 27)), 1);
    QCOMPARE(columns.vCursorPosByMouse(QPointF(48, 27)), 4);
}

void TestMouse::positionInScaledRun()
{
    QTextCharFormat wide = OpenWord::format();
    wide.setProperty(TextProperty::HorizontalScale, 200);
    OpenWord word;
    editLineText(word, QStringLiteral("abcd"), Qt::Horizontal, wide); // 16 px each
    QCOMPARE(word.hCursorPosByMouse(QPointF(24, 8)), 1);
    QCOMPARE(word.hCursorPosByMouse(QPointF(24.5, 8)), 2);

    QTextCharFormat high = OpenWord::format();
    high.setProperty(TextProperty::VerticalScale, 200);
    OpenWord column;
    editLineText(column, QStringLiteral("abcd"), Qt::Vertical, high); // 16 px each down the column
    QCOMPARE(column.vCursorPosByMouse(QPointF(8, 24)), 1);
    QCOMPARE(column.vCursorPosByMouse(QPointF(8, 24.5)), 2);
}

void TestMouse::positionInCompressedPunctuation()
{
    OpenWord word;
    editBoxText(word, QString(), QSizeF(200, 40));
    QTextBlockFormat format;
    format.setProperty(TextProperty::PunctuationExtra, 1);
    word.m_cursor->mergeBlockFormat(format);
    word.add(QStringLiteral("中、文")); // the mark stands from 16 to 24
    QVERIFY(word.m_wordManager->textLayout().lines.first().fragments.at(1).isHalfPunct);
    QCOMPARE(word.hCursorPosByMouse(QPointF(16.5, 8)), 1);
    QCOMPARE(word.hCursorPosByMouse(QPointF(20, 8)), 1);
    QCOMPARE(word.hCursorPosByMouse(QPointF(20.5, 8)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(24, 8)), 2);
}

void TestMouse::positionIsNeverWithinACodePoint_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("pairs");
    QTest::newRow("rows") << Qt::Horizontal << 3;
    QTest::newRow("columns") << Qt::Vertical << 3;
    QTest::newRow("long row") << Qt::Horizontal << 300;
}

void TestMouse::positionIsNeverWithinACodePoint()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, pairs);
    OpenWord word;
    const uint rareHan = 0x20000; // 16 px wide
    editLineText(word, QString::fromUcs4(&rareHan, 1).repeated(pairs), orientation);
    for (int i = 0; i <= 200; ++i) {
        const qreal along = pairs * 16 * i / 200.0;
        const int position = orientation == Qt::Horizontal
                                 ? word.hCursorPosByMouse(QPointF(along, 8))
                                 : word.vCursorPosByMouse(QPointF(8, along));
        QCOMPARE(position % 2, 0);
    }
    if (orientation == Qt::Horizontal) {
        QCOMPARE(word.hCursorPosByMouse(QPointF(24, 8)), 2);
        QCOMPARE(word.hCursorPosByMouse(QPointF(24.5, 8)), 4);
    }
}

void TestMouse::positionNeverPassesTheRun()
{
    QTextCharFormat upper = OpenWord::format();
    upper.setProperty(TextProperty::UpperCase, true);
    OpenWord word;
    editLineText(word, QStringLiteral("ß"), Qt::Horizontal, upper); // shown as two letters
    QCOMPARE(word.hCursorPosByMouse(QPointF(15, 8)), 1);
    QCOMPARE(word.hCursorPosByMouse(QPointF(3, 8)), 0);
    QCOMPARE(word.hCursorPosByMouse(QPointF(3, 80)), 1); // below all
}

void TestMouse::positionInEmptyParagraph()
{
    OpenWord word;
    editBoxText(word, QStringLiteral("a\n\nb"), QSizeF(100, 100));
    for (bool atLineEnd : {false, true}) {
        word.m_cursorAtLineEnd = atLineEnd;
        QCOMPARE(word.hCursorPosByMouse(QPointF(50, 20)), 2);
        QCOMPARE(word.m_cursorAtLineEnd, atLineEnd);
    }
}

void TestMouse::positionBelowEmptyParagraphIsInTheDocument()
{
    OpenWord word;
    editBoxText(word, QStringLiteral("a\n"), QSizeF(100, 100));
    QCOMPARE(word.hCursorPosByMouse(QPointF(50, 90)), 2);
}

void TestMouse::positionInEmptyDocument()
{
    for (bool box : {false, true}) {
        OpenWord word;
        word.m_defaultWord = QStringLiteral("Type here");
        if (box)
            editBoxText(word, QString(), QSizeF(100, 40));
        else
            editLineText(word, QString());
        QCOMPARE(word.hCursorPosByMouse(QPointF(50, 10)), 0);
        QCOMPARE(word.vCursorPosByMouse(QPointF(50, 10)), 0);
    }
}

void TestMouse::lineIsTheFirstThatReachesFarEnough()
{
    // 32 px: down to 32; then 8 px only 4 px below that baseline: down to 30; then down to 40.
    OpenWord word;
    editLineText(word, QStringLiteral("A\n"), Qt::Horizontal, OpenWord::format(24));
    QTextCharFormat low = OpenWord::format(6);
    low.setProperty(TextProperty::RowSpacing, 3.0);
    word.add(QStringLiteral("b\n"), low);
    low.setProperty(TextProperty::RowSpacing, 7.5);
    word.add(QStringLiteral("c"), low);
    const QList<TextLine> lines = word.m_wordManager->textLayout().lines;
    QCOMPARE(lines.at(1).origin.y() - lines.at(0).origin.y(), 4.0);
    QCOMPARE(lines.at(2).origin.y() - lines.at(1).origin.y(), 10.0);
    const qreal top = lines.at(0).origin.y() - 24;
    QCOMPARE(word.hCursorPosByMouse(QPointF(-1, top + 29)), 0);
    QCOMPARE(word.hCursorPosByMouse(QPointF(-1, top + 31)), 0);
    QCOMPARE(word.hCursorPosByMouse(QPointF(-1, top + 32)), 4);
    QCOMPARE(word.hCursorPosByMouse(QPointF(-1, top + 39)), 4);
    QCOMPARE(word.hCursorPosByMouse(QPointF(-1, top + 40)), 5); // below all: the end
}

void TestMouse::lineIsFoundAnewAfterAChange()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab\ncd"));
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 17)), 3);
    QTextCharFormat large = OpenWord::format(24);
    word.m_cursor->select(QTextCursor::Document);
    word.m_cursor->mergeCharFormat(large); // as many lines, twice as high
    word.updateBoundingRectImpl(true);
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 17)), 0);
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 33)), 3);
}

void TestMouse::olderObjectHasNoPosition()
{
    OpenWord word;
    editLineText(word, QStringLiteral("abc"));
    word.m_newVersion = false;
    QCOMPARE(word.hCursorPosByMouse(QPointF(9, 8)), -1);
    QCOMPARE(word.vCursorPosByMouse(QPointF(9, 8)), -1);
    press(word, QPointF(9, 8));
    QCOMPARE(word.m_cursor->position(), 3);
    QCOMPARE(word.m_selAnchor, -1);
}

void TestMouse::wrapIsToldByTheSideOfThePointer_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("atNextLine");
    QTest::newRow("behind the first line") << QPointF(47, 8) << 3 << false;
    QTest::newRow("before the second line") << QPointF(0, 20) << 3 << true;
    QTest::newRow("first half of its first character") << QPointF(5, 20) << 3 << true;
    QTest::newRow("second half of it") << QPointF(9, 20) << 4 << false;
    QTest::newRow("before the first line") << QPointF(0, 8) << 0 << true;
    QTest::newRow("below all") << QPointF(0, 90) << 6 << false;
}

void TestMouse::wrapIsToldByTheSideOfThePointer()
{
    QFETCH(QPointF, point);
    QFETCH(int, position);
    QFETCH(bool, atNextLine);
    OpenWord word;
    editBoxText(word, han, QSizeF(48, 100));
    QCOMPARE(word.m_wordManager->textLayout().lines.size(), 2);
    word.m_cursorAtLineEnd = !atNextLine;
    QCOMPARE(word.hCursorPosByMouse(point), position);
    QCOMPARE(word.m_cursorAtLineEnd, atNextLine);
}

void TestMouse::wrapOfColumns()
{
    OpenWord word;
    editBoxText(word, han, QSizeF(100, 48), Qt::Vertical);
    const QList<TextLine> lines = word.m_wordManager->textLayout().lines;
    QCOMPARE(lines.size(), 2);
    QCOMPARE(word.vCursorPosByMouse(QPointF(92, 47)), 3); // columns stand about 92 and 68
    QVERIFY(!word.m_cursorAtLineEnd);
    QCOMPARE(word.vCursorPosByMouse(QPointF(68, 0)), 3);
    QVERIFY(word.m_cursorAtLineEnd);
    QCOMPARE(word.vCursorPosByMouse(QPointF(61, 9)), 4);
    QVERIFY(!word.m_cursorAtLineEnd);
}

void TestMouse::lineTextHasNoWrap()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab\ncd"));
    word.m_cursorAtLineEnd = true;
    QCOMPARE(word.hCursorPosByMouse(QPointF(0, 20)), 3);
    QVERIFY(!word.m_cursorAtLineEnd);
}

// caret and selection

void TestMouse::pressPutsTheCaret()
{
    RecordingHost host;
    OpenWord word(&host);
    editLineText(word, QStringLiteral("abcd"));
    word.select(1, 3);
    word.m_cursorVisible = false;
    word.forgetCalls();
    host.clearEvents();
    press(word, QPointF(17, 8));
    QCOMPARE(word.m_cursor->position(), 2);
    QVERIFY(!word.m_cursor->hasSelection());
    QCOMPARE(word.m_selAnchor, 2);
    QCOMPARE(selectionOf(word), (QVector<int>{2, 2}));
    QVERIFY(word.m_cursorVisible);
    QVERIFY(word.m_mouseSelecting);
    QVERIFY(!word.m_dragMovesObject);
    QCOMPARE(operationsOf(host), (QVector<int>{0})); // of the selection that went
    QCOMPARE(word.changes, (QVector<int>{1002}));
}

void TestMouse::pressIsTakenBackThroughFlipAndMirror_data()
{
    QTest::addColumn<bool>("flip");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<int>("position");
    // pressed on the second half of "a" of "abcd" over "efgh"
    QTest::newRow("plain") << false << false << 1;
    QTest::newRow("mirrored: first half of d") << false << true << 3;
    QTest::newRow("flipped: second half of e") << true << false << 6;
    QTest::newRow("both: first half of h") << true << true << 8;
}

void TestMouse::pressIsTakenBackThroughFlipAndMirror()
{
    QFETCH(bool, flip);
    QFETCH(bool, mirror);
    QFETCH(int, position);
    OpenWord word;
    editLineText(word, QStringLiteral("abcd\nefgh")); // 32 by 32
    word.setFlip(flip, false);
    word.setMirror(mirror, false);
    press(word, QPointF(5, 8));
    QCOMPARE(word.m_cursor->position(), position);
}

void TestMouse::pressOutsideMovesTheObject()
{
    RecordingHost host;
    OpenWord word(&host);
    editLineText(word, QStringLiteral("abcd"));
    word.select(1, 3);
    word.m_cursor->setPosition(3);
    host.clearEvents();
    press(word, QPointF(50, 8));
    QVERIFY(word.m_dragMovesObject);
    QVERIFY(operationsOf(host).isEmpty());
    move(word, QPointF(55, 18));
    QCOMPARE(word.getPos(), QPointF(5, 10));
    move(word, QPointF(45, 38));
    QCOMPARE(word.getPos(), QPointF(-5, 30));
    QCOMPARE(word.m_pressPos, QPointF(45, 38));
    release(word, QPointF(45, 38));
    QVERIFY(!word.m_dragMovesObject);
    QVERIFY(!word.m_mouseSelecting);
    QCOMPARE(word.m_cursor->position(), 3);
    QCOMPARE(selectionOf(word), (QVector<int>{1, 3}));
    QVERIFY(word.m_editing);
}

void TestMouse::dragSelects_data()
{
    QTest::addColumn<qreal>("from");
    QTest::addColumn<qreal>("to");
    QTest::addColumn<QVector<int>>("selected");
    QTest::addColumn<int>("caret");
    QTest::newRow("forward") << 9.0 << 25.0 << QVector<int>{1, 3} << 3;
    QTest::newRow("backward") << 25.0 << 9.0 << QVector<int>{1, 3} << 1;
    QTest::newRow("to itself") << 9.0 << 9.0 << QVector<int>{1, 1} << 1;
    QTest::newRow("far beyond") << 9.0 << 900.0 << QVector<int>{1, 4} << 4;
}

void TestMouse::dragSelects()
{
    QFETCH(qreal, from);
    QFETCH(qreal, to);
    QFETCH(QVector<int>, selected);
    QFETCH(int, caret);
    RecordingHost host;
    OpenWord word(&host);
    editLineText(word, QStringLiteral("abcd"));
    press(word, QPointF(from, 8));
    const int anchor = word.m_selAnchor;
    move(word, QPointF(17, 8));
    word.forgetCalls();
    host.clearEvents();
    move(word, QPointF(to, 8));
    QCOMPARE(selectionOf(word), selected);
    QCOMPARE(word.m_selAnchor, anchor);
    QCOMPARE(word.m_cursor->position(), caret);
    QCOMPARE(word.m_cursor->anchor(), anchor);
    QVERIFY(!word.m_cursorAtLineEnd); // line text
    QCOMPARE(word.changes, (QVector<int>{1002}));
    QVERIFY(operationsOf(host).isEmpty());
    release(word, QPointF(to, 8));
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    move(word, QPointF(1, 8)); // over now
    QCOMPARE(selectionOf(word), selected);
}

void TestMouse::dragInColumnsSelects()
{
    OpenWord word;
    editLineText(word, QStringLiteral("中文\n国"), Qt::Vertical);
    press(word, QPointF(32, 10));
    QCOMPARE(word.m_cursor->position(), 1);
    move(word, QPointF(8, 10));
    QCOMPARE(selectionOf(word), (QVector<int>{1, 4}));
    move(word, QPointF(32, 1));
    QCOMPARE(selectionOf(word), (QVector<int>{0, 1}));
}

void TestMouse::dragInBoxStandsAtTheNextLine()
{
    OpenWord word;
    editBoxText(word, han, QSizeF(48, 100));
    press(word, QPointF(47, 8)); // behind the first line
    QVERIFY(!word.m_cursorAtLineEnd);
    move(word, QPointF(20, 20));
    QCOMPARE(selectionOf(word), (QVector<int>{3, 4}));
    QVERIFY(word.m_cursorAtLineEnd);
    word.OnQPainterDraw(nullptr);
    const QRectF area = word.m_wordManager->textLayout().selectionPath(3, 4, true).boundingRect();
    QCOMPARE(area.top(), 16.0); // nothing of it on the first line
}

void TestMouse::dragFromTheEndOfAParagraphShowsItsSelection()
{
    OpenWord word;
    editBoxText(word, QStringLiteral("ab\ncd"), QSizeF(100, 100));
    press(word, QPointF(90, 8)); // behind "ab"
    move(word, QPointF(9, 20));
    QCOMPARE(selectionOf(word), (QVector<int>{2, 4}));
    contentOf(word);
    QVERIFY(!word.m_drawDelegate->invertArea().isEmpty());
    move(word, QPointF(90, 20)); // to the end of the text
    QVERIFY(word.m_cursorAtLineEnd);
    QVERIFY(word.getCursorPos()
            != QPoint(0, 0)); // the caret has not vanished behind the last character
}

void TestMouse::moveWithoutPressDoesNothing()
{
    OpenWord word;
    editLineText(word, QStringLiteral("abcd"));
    word.select(1, 2);
    word.m_cursor->setPosition(2);
    move(word, QPointF(30, 8));
    QCOMPARE(word.m_cursor->position(), 2);
    QCOMPARE(selectionOf(word), (QVector<int>{1, 2}));
    QCOMPARE(word.getPos(), QPointF(0, 0));
}

void TestMouse::otherButtonIsTheHosts()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    word->beginEdit();
    word->m_cursor->setPosition(4);
    press(*word, QPointF(9, 8), Qt::RightButton);
    QVERIFY(!word->m_mouseSelecting);
    QCOMPARE(word->m_cursor->position(), 4);
    QVERIFY(word->isSelected());   // the host has selected it
    word->m_mouseSelecting = true; // the left button is down
    press(*word, QPointF(9, 8), Qt::RightButton);
    QCOMPARE(word->m_cursor->position(), 1);
}

void TestMouse::releaseTellsAttributes()
{
    RecordingHost host;
    OpenWord word(&host);
    editLineText(word, QStringLiteral("abcd"));
    press(word, QPointF(9, 8));
    host.clearEvents();
    release(word, QPointF(9, 8));
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    QVERIFY(!word.m_mouseSelecting);
}

void TestMouse::releaseOfHandleKeepsTheFlags()
{
    RecordingHost host;
    OpenWord word(&host);
    editBoxText(word, han, QSizeF(100, 60));
    word.setShowHandles(&word, true, false);
    press(word, QPointF(100, 60));
    word.m_mouseSelecting = true;
    word.m_dragMovesObject = true;
    host.clearEvents();
    release(word, QPointF(100, 60));
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    QVERIFY(word.m_mouseSelecting);
    QVERIFY(word.m_dragMovesObject);
}

void TestMouse::moveOfFinishedObjectIsTheHosts()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    press(*word, QPointF(9, 8));
    move(*word, QPointF(39, 28));
    QCOMPARE(word->getPos(), QPointF(30, 20));
    release(*word, QPointF(39, 28));
    QCOMPARE(host.stack().count(), 1);
}

void TestMouse::eventsOfAViewReachTheText()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    QGraphicsView view(&host.scene());
    view.setSceneRect(-50, -50, 300, 200);
    view.resize(320, 220);
    view.show();
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&host.scene(), &activate);
    const auto send = [&](QEvent::Type type, const QPointF &scenePos, Qt::MouseButtons held) {
        const QPoint pos = view.mapFromScene(scenePos);
        QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    };

    host.currentTool = 300; // a click enters the edit
    send(QEvent::MouseButtonPress, QPointF(18, 8), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, QPointF(18, 8), Qt::NoButton);
    QVERIFY(word->m_editing);
    QVERIFY(word->hasFocus());
    QCOMPARE(word->m_cursor->position(), 2);

    send(QEvent::MouseButtonPress, QPointF(9, 8), Qt::LeftButton); // a drag selects
    send(QEvent::MouseMove, QPointF(26, 8), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, QPointF(26, 8), Qt::NoButton);
    QCOMPARE(selectionOf(*word), (QVector<int>{1, 3}));
    QVERIFY(word->hasFocus());

    QInputMethodEvent composed; // composed text takes its place
    composed.setCommitString(QStringLiteral("中"));
    QCoreApplication::sendEvent(&view, &composed);
    QCOMPARE(word->toPlainText(), QStringLiteral("a中d"));

    send(QEvent::MouseButtonDblClick, QPointF(9, 8), Qt::LeftButton); // behind "a"
    QCOMPARE(selectionOf(*word), (QVector<int>{0, 1}));
    send(QEvent::MouseButtonRelease, QPointF(9, 8), Qt::NoButton);

    host.clearEvents();
    send(QEvent::MouseMove, QPointF(38, 8), Qt::NoButton); // beside the text, where handles reach
    QCOMPARE(operationsOf(host).last(), 7);
    QCOMPARE(direction(host), QStringLiteral("edit_move"));
}

// words

void TestMouse::wordAt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    QTest::addColumn<QVector<int>>("selected");
    const QString words = QStringLiteral("one two, three");
    QTest::newRow("first word, first letter") << words << 0 << QVector<int>{0, 4};
    QTest::newRow("first word, last letter") << words << 2 << QVector<int>{0, 4};
    QTest::newRow("a blank alone") << words << 3 << QVector<int>{3, 4};
    QTest::newRow("a word before a mark") << words << 5 << QVector<int>{4, 7};
    QTest::newRow("a mark alone") << words << 7 << QVector<int>{7, 8};
    QTest::newRow("the last word") << words << 11 << QVector<int>{9, 14};
    QTest::newRow("one blank of two") << QStringLiteral("ab  cd") << 1 << QVector<int>{0, 3};
    QTest::newRow("tab") << QStringLiteral("ab\tcd") << 0 << QVector<int>{0, 3};
    QTest::newRow("end of the line") << QStringLiteral("ab\ncd") << 0 << QVector<int>{0, 2};
    QTest::newRow("start of a line") << QStringLiteral("ab\ncd") << 4 << QVector<int>{3, 5};
    QTest::newRow("the line end itself") << QStringLiteral("ab\ncd") << 2 << QVector<int>{2, 3};
    QTest::newRow("wide blank") << QStringLiteral("ab\u2003cd") << 0 << QVector<int>{0, 3};
    QTest::newRow("Han") << QStringLiteral("中文国ab") << 1 << QVector<int>{0, 3};
    QTest::newRow("letters beside Han") << QStringLiteral("中文ab国") << 2 << QVector<int>{2, 4};
    QTest::newRow("Han with a blank") << QStringLiteral("中文 国") << 0 << QVector<int>{0, 3};
    QTest::newRow("Han before a mark") << QStringLiteral("中文，国") << 0 << QVector<int>{0, 2};
    QTest::newRow("Han mark") << QStringLiteral("中文，国") << 2 << QVector<int>{2, 3};
    QTest::newRow("ideographic blank") << QStringLiteral("中\u3000文") << 1 << QVector<int>{1, 2};
    QTest::newRow("Han before it") << QStringLiteral("中\u3000文") << 0 << QVector<int>{0, 2};
    QTest::newRow("kana are letters") << QStringLiteral("かなab") << 0 << QVector<int>{0, 4};
    QTest::newRow("digits and symbols") << QStringLiteral("1+2=3 x") << 2 << QVector<int>{0, 6};
    QTest::newRow("underscore is a mark") << QStringLiteral("a_b") << 0 << QVector<int>{0, 1};
    QTest::newRow("pair") << QStringLiteral("a\U00020000b") << 2 << QVector<int>{0, 4};
}

void TestMouse::wordAt()
{
    QFETCH(QString, text);
    QFETCH(int, position);
    QFETCH(QVector<int>, selected);
    OpenWord word;
    editLineText(word, text);
    word.doubleSelectText(position);
    QCOMPARE(selectionOf(word), selected);
}

void TestMouse::wordOutsideTheText()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab cd"));
    word.select(1, 2);
    for (int position : {-1, 5, 99}) {
        word.doubleSelectText(position);
        QCOMPARE(selectionOf(word), (QVector<int>{1, 2}));
    }
    word.m_newVersion = false;
    word.doubleSelectText(0);
    QCOMPARE(selectionOf(word), (QVector<int>{1, 2}));
}

void TestMouse::doubleClickSelectsTheWordBefore()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab cd"));
    word.forgetCalls();
    clickTwice(word, QPointF(29, 8)); // position 4: its character before is "c"
    QCOMPARE(selectionOf(word), (QVector<int>{3, 5}));
    QCOMPARE(word.changes, (QVector<int>{1002}));
    clickTwice(word, QPointF(25, 8)); // position 3: the blank
    QCOMPARE(selectionOf(word), (QVector<int>{2, 3}));
}

void TestMouse::doubleClickAtTheStartDoesNothing()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab cd"));
    word.select(1, 2);
    clickTwice(word, QPointF(1, 8));
    QCOMPARE(selectionOf(word), (QVector<int>{1, 2}));
    QVERIFY(word.m_editing);
}

void TestMouse::wordLeavesCursorAndAnchor()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab cd"));
    word.m_cursor->setPosition(1);
    word.m_selAnchor = 2;
    word.doubleSelectText(4);
    QCOMPARE(word.m_cursor->position(), 1);
    QVERIFY(!word.m_cursor->hasSelection());
    QCOMPARE(word.m_selAnchor, 2);
}

// composition

void TestMouse::pointerEndsAComposition_data()
{
    QTest::addColumn<QString>("act");
    for (const char *act : {"press", "drag", "double click", "word"})
        QTest::newRow(act) << QString::fromLatin1(act);
}

void TestMouse::pointerEndsAComposition()
{
    QFETCH(QString, act);
    OpenWord word;
    editLineText(word, QStringLiteral("abcd"));
    word.m_preeditString = QStringLiteral("cd");
    word.m_mouseSelecting = act == QLatin1String("drag");
    const QPointF point(9, 8);
    if (act == QLatin1String("press"))
        press(word, point);
    else if (act == QLatin1String("drag"))
        move(word, point);
    else if (act == QLatin1String("double click"))
        clickTwice(word, point);
    else
        word.doubleSelectText(0);
    QVERIFY(word.m_preeditString.isEmpty());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
}

void TestMouse::movingTheObjectKeepsAComposition()
{
    OpenWord word;
    editLineText(word, QStringLiteral("abcd"));
    word.m_preeditString = QStringLiteral("cd");
    press(word, QPointF(50, 8));
    move(word, QPointF(60, 8));
    release(word, QPointF(60, 8));
    QCOMPARE(word.m_preeditString, QStringLiteral("cd"));
}

// hover

void TestMouse::hoverNames_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QString>("name");
    QTest::newRow("top left") << QPointF(0, 0) << QStringLiteral("tl_or_br");
    QTest::newRow("bottom right") << QPointF(100, 60) << QStringLiteral("tl_or_br");
    QTest::newRow("top centre") << QPointF(50, 0) << QStringLiteral("tc_or_bc");
    QTest::newRow("bottom centre") << QPointF(50, 60) << QStringLiteral("tc_or_bc");
    QTest::newRow("top right") << QPointF(100, 0) << QStringLiteral("tr_or_br");
    QTest::newRow("bottom left") << QPointF(0, 60) << QStringLiteral("tr_or_br");
    QTest::newRow("right") << QPointF(100, 30) << QStringLiteral("cr_or_cl");
    QTest::newRow("left") << QPointF(0, 30) << QStringLiteral("cr_or_cl");
    QTest::newRow("a handle's part outside") << QPointF(-4, -4) << QStringLiteral("tl_or_br");
    QTest::newRow("inside") << QPointF(30, 30) << QStringLiteral("none");
    QTest::newRow("outside") << QPointF(140, 30) << QStringLiteral("edit_move");
}

void TestMouse::hoverNames()
{
    QFETCH(QPointF, point);
    QFETCH(QString, name);
    RecordingHost host;
    OpenWord word(&host);
    editBoxText(word, han, QSizeF(100, 60));
    word.setShowHandles(&word, true, false);
    host.clearEvents();
    hover(word, point);
    QCOMPARE(operationsOf(host), (QVector<int>{7}));
    QCOMPARE(direction(host), name);
}

void TestMouse::hoverOnLineTextKnowsNoHandles()
{
    RecordingHost host;
    OpenWord word(&host);
    editLineText(word, QStringLiteral("abcd")); // 32 by 16
    word.setControlPointDisable(false);
    word.setShowHandles(&word, true, false);
    hover(word, QPointF(0, 0));
    QCOMPARE(direction(host), QStringLiteral("none"));
    hover(word, QPointF(-3, -3));
    QCOMPARE(direction(host), QStringLiteral("edit_move"));
    hover(word, QPointF(32, 16));
    QCOMPARE(direction(host), QStringLiteral("none"));
}

void TestMouse::hoverIsSilentOutsideEdit()
{
    RecordingHost host;
    OpenWord *word = wordInScene(host);
    host.currentTool = 300;
    host.clearEvents();
    hover(*word, QPointF(1, 1));
    QVERIFY(host.events.isEmpty());
}

void TestMouse::hoverIgnoresTheFlip()
{
    RecordingHost host;
    OpenWord word(&host);
    editBoxText(word, han, QSizeF(100, 60));
    word.setMirror(true, false);
    word.setShowHandles(&word, true, false);
    word.setHandlesDisable(CObjAction::ACT_Left, true);
    hover(word, QPointF(0, 30));
    QCOMPARE(direction(host), QStringLiteral("none"));
    hover(word, QPointF(100, 30));
    QCOMPARE(direction(host), QStringLiteral("cr_or_cl"));
}

void TestMouse::enterAndLeaveAreTold()
{
    RecordingHost host;
    OpenWord word(&host);
    QGraphicsSceneHoverEvent enter(QEvent::GraphicsSceneHoverEnter);
    QGraphicsSceneHoverEvent leave(QEvent::GraphicsSceneHoverLeave);
    word.hoverEnterEvent(&enter);
    word.hoverLeaveEvent(&leave);
    QVERIFY(operationsOf(host).isEmpty()); // another tool
    host.currentTool = 300;
    word.hoverEnterEvent(&enter);
    word.hoverLeaveEvent(&leave);
    QCOMPARE(operationsOf(host), (QVector<int>{4, 5}));
    host.clearEvents();
    host.currentTool = 91;
    word.hoverEnterEvent(&enter);
    QVERIFY(operationsOf(host).isEmpty());
    word.beginEdit();
    host.clearEvents();
    word.hoverEnterEvent(&enter);
    QCOMPARE(operationsOf(host), (QVector<int>{4}));
}

void TestMouse::nullEventsDoNothing()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab"));
    word.mousePressEvent(nullptr);
    word.mouseMoveEvent(nullptr);
    word.mouseReleaseEvent(nullptr);
    word.mouseDoubleClickEvent(nullptr);
    word.hoverMoveEvent(nullptr);
    word.hoverLeaveEvent(nullptr);
    QCOMPARE(word.m_cursor->position(), 2);
}

QTEST_MAIN(TestMouse)
#include "tst_mouse.moc"
