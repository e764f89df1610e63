// SPDX-License-Identifier: MIT
// Construction, edit state, flags, item plumbing and the caret timer of the rich text object.
#include "callinghost.h"
#include "openword.h"
#include "plugin/vxtext.h"

#include <QAbstractEventDispatcher>
#include <QClipboard>
#include <QDataStream>
#include <QFocusEvent>
#include <QGraphicsItem>
#include <QGuiApplication>
#include <QPointer>
#include <QTest>
#include <QTimerEvent>

#include <thread>

namespace {
/// Something that a host asks of an object, and what it does ahead of it.
struct Request {
    const char *name;
    void (*prepare)(OpenWord &word);
    void (*run)(OpenWord &word);
};

void nothing(OpenWord & /*word*/) {}

void makeBox(OpenWord &word)
{
    word.m_wordWrap = true;
    word.m_wordManager->setWordWrap(true);
    word.setSize(QSizeF(60, 40), false, false);
    word.updateBoundingRectImpl(true);
}

void edit(OpenWord &word)
{
    word.beginEdit();
}

void type(OpenWord &word)
{
    word.m_cursor->insertText(QStringLiteral("x"), OpenWord::format());
}

void pushStep(OpenWord &word)
{
    const QString before = word.serialize(false);
    type(word);
    word.pushUndoRedo(before, word.serialize(false));
}

void offerText()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("pasted"));
}

template<typename... Arguments>
void command(OpenWord &word, int number, const Arguments &...arguments)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    Q_UNUSED((out << ... << arguments))
    QDataStream in(bytes);
    word.SetSpecialProperty(number, in, false);
}

const QString bold = QStringLiteral("font_bold");
const QString wrapped = QStringLiteral("text_wordwrap");

// clang-format off
const Request requests[] = {
    {"begin an edit",           nothing, [](OpenWord &w) { w.beginEdit(); }},
    {"begin an edit of a box",  makeBox, [](OpenWord &w) { w.beginEdit(); }},
    {"end an edit",             edit,    [](OpenWord &w) { w.endEdit(); }},
    {"end an edit of a box",    [](OpenWord &w) { makeBox(w); edit(w); type(w); },
                                         [](OpenWord &w) { w.endEdit(); }},
    {"end a changed edit",      [](OpenWord &w) { edit(w); type(w); },
                                         [](OpenWord &w) { w.endEdit(); }},
    {"lay out",                 type,    [](OpenWord &w) { w.updateBoundingRectImpl(true); }},
    {"lay a box out",           [](OpenWord &w) { makeBox(w); type(w); },
                                         [](OpenWord &w) { w.updateBoundingRectImpl(true); }},
    {"move",                    nothing, [](OpenWord &w) { w.updatePosition(&w, QRectF(5, 5, 30, 30)); }},
    {"stretch",                 nothing, [](OpenWord &w) { w.setSize(QSizeF(99, 77), false, true); }},
    {"stretch with a step",     nothing, [](OpenWord &w) { w.setSize(QSizeF(99, 77), true, true); }},
    {"reflow",                  [](OpenWord &w) { makeBox(w); w.m_autoWordWrap = true; edit(w); },
                                         [](OpenWord &w) { w.setSize(QSizeF(99, 77), true, true); }},
    {"flip",                    nothing, [](OpenWord &w) { w.setFlip(true, true); }},
    {"mirror",                  nothing, [](OpenWord &w) { w.setMirror(true, true); }},
    {"select all",              edit,    [](OpenWord &w) { w.selectAll(); }},
    {"paste",                   edit,    [](OpenWord &w) { offerText(); w.paste(false, true); }},
    {"paste over a selection",  [](OpenWord &w) { edit(w); w.select(0, 2); },
                                         [](OpenWord &w) { offerText(); w.paste(false, true); }},
    {"paste as a new object",   nothing, [](OpenWord &w) { offerText(); w.paste(true, false); }},
    {"push a step",             nothing, pushStep},
    {"push a step in an edit",  [](OpenWord &w) { edit(w); type(w); }, pushStep},
    {"rebuild",                 nothing, [](OpenWord &w) { w.undoRedo(w.serialize(false), true); }},
    {"undo",                    pushStep, [](OpenWord &w) { w.undoStack()->undo(); }},
    {"attributes",              nothing, [](OpenWord &w) { w.setAllAttributes({{bold, true}}, true); }},
    {"attributes, no step",     nothing, [](OpenWord &w) { w.setAllAttributes({{bold, true}}, false); }},
    {"attributes at the caret", edit,    [](OpenWord &w) { w.setAllAttributes({{bold, true}}, true); }},
    {"into a box",              nothing, [](OpenWord &w) { w.setAllAttributes({{wrapped, true}}, true); }},
    {"into line text",          makeBox, [](OpenWord &w) { w.setAllAttributes({{wrapped, false}}, true); }},
    {"property 101",            nothing, [](OpenWord &w) { command(w, 101); }},
    {"property 102",            [](OpenWord &w) { edit(w); type(w); },
                                         [](OpenWord &w) { command(w, 102); }},
    {"property 106",            nothing, [](OpenWord &w) { command(w, 106, QStringLiteral("new")); }},
    {"property 109",            nothing, [](OpenWord &w) { command(w, 109, QStringLiteral("new")); }},
    {"property 110",            nothing, [](OpenWord &w) { command(w, 110, 72, 1.0, 1.0); }},
    {"property 118",            nothing, [](OpenWord &w) { command(w, 118, 3, 0.5, 0.0, 0.0, 1, true); }},
    {"property 125",            [](OpenWord &w) { edit(w); w.select(0, 2); },
                                         [](OpenWord &w) { command(w, 125); }},
    {"property 127",            edit,    [](OpenWord &w) { offerText(); command(w, 127, false, true); }},
};
// clang-format on
} // namespace

Q_DECLARE_METATYPE(const Request *)

class TestFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // construction
    void factoryWithoutPageMakesAnObject();
    void constructionDefaultsOfText();
    void constructionDefaultsOfPlaceAndPicture();
    void constructionDefaultsOfPaths();
    void constructionSetsUpTheItem();
    void constructionStartsTheCaretTimer();
    void dpiComesFromTheDocument();
    void releaseDeletesTheObject();
    void hostMayReleaseTheObjectFromAnyCallBack_data();
    void hostMayReleaseTheObjectFromAnyCallBack();
    void secondReleaseFromACallBackIsTheSame();

    // questions
    void canDoAsksForText();
    void canDoPassesOtherOperationsOn();

    // flags and handles
    void interactionFlagsSetItemFlags();
    void sizeHandlesAreDisabledTogether();
    void updateControlHandlesFollowsTheState();

    // edit state
    void beginEditTellsPageThenListeners();
    void beginEditKeepsTheStartOfTheEdit();
    void beginEditTakesHandles_data();
    void beginEditTakesHandles();
    void beginEditOfOlderLineTextHidesHandles();
    void secondBeginEditOnlyResetsTheComparison();
    void endEditOutsideEditStateIsQuiet();
    void endEditTellsAttributesThenState();
    void endEditRestoresTheAppearance();
    void endEditAfterFormatChangePushesNothing();
    void endEditOfChangedTextClosesTheComparison();
    void endEditWithoutStartDataPushesNothing();
    void endEditOfObjectBeingDrawnDoesNothing();
    void endEditFromAnotherThreadDoesNothing();
    void propertyBeginsAndEndsTheEdit();
    void propertyDoesNotEditLockedObjects();

    // item
    void boundingRectGrowsInEditedBoxOnly();
    void shapeGrowsInEditState();
    void shapeOfSelectedObjectHasHandles();
    void flipOfPresentValueIsQuiet();
    void flipAndMirrorAskForRepaint();
    void flipAndMirrorTurnThePicture();
    void cursorPosIsMiddleOfCaret();
    void deselectionEndsTheEdit();
    void deselectionInBatchOrHiddenKeepsTheEdit();
    void selectionShowsHandlesAndTells();
    void originChangeDropsTheEffectCache();
    void focusDrivesTheCaret();

    // timer
    void foreignTimerDoesNothing();
    void ownTimerBlinksInEditStateOnly();
};

void TestFrame::factoryWithoutPageMakesAnObject()
{
    CVXRootObject *object = createObject_text(5, 77, true, nullptr);
    QVERIFY(object);
    QCOMPARE(object->getObjName(), QStringLiteral("wb text"));
    QCOMPARE(object->GetType(), 65543);
    QCOMPARE(object->getObjId(), 77);
    QVERIFY(!object->GetPage());
    QVERIFY(!object->GetGraphicsItemPtr()->parentItem());
    object->Release();
}

void TestFrame::constructionDefaultsOfText()
{
    OpenWord word;
    QCOMPARE(int(word.m_textInteractionFlags), 0);
    QCOMPARE(word.m_textOrientation, 1);
    QVERIFY(word.m_document);
    QVERIFY(!word.m_document->parent());
    QVERIFY(word.m_cursor);
    QCOMPARE(word.m_cursor->document(), word.m_document);
    QCOMPARE(word.m_cursorVisible, false);
    QCOMPARE(word.m_wordWrap, false);
    QCOMPARE(word.m_autoWordWrap, false);
    QCOMPARE(word.m_editing, false);
    QCOMPARE(word.m_defaultFollow, false);
    QVERIFY(word.m_defaultWord.isEmpty());
    QCOMPARE(word.m_selStart, 0);
    QCOMPARE(word.m_selEnd, 0);
    QCOMPARE(word.m_selAnchor, -1);
    QVERIFY(word.m_legacyLines.isEmpty());
    QCOMPARE(word.m_legacyTextSize, QPointF(0, 0));
    QCOMPARE(word.m_mouseSelecting, false);
    QCOMPARE(word.m_dragMovesObject, false);
    QVERIFY(word.m_preeditString.isEmpty());
    QCOMPARE(word.m_hasFocus, false);
    QCOMPARE(word.m_newVersion, true);
    QVERIFY(word.m_wordManager);
    QVERIFY(word.m_missingFonts.isEmpty());
    QVERIFY(word.m_replacedFonts.isEmpty());
    QVERIFY(word.m_missingFontHint.isEmpty());
    QVERIFY(word.m_fontReplaceData.isEmpty());
    QVERIFY(word.m_editStartText.isEmpty());
    QVERIFY(word.m_editStartData.isEmpty());
    QCOMPARE(word.m_cursorAtLineEnd, false);
}

void TestFrame::constructionDefaultsOfPlaceAndPicture()
{
    OpenWord word;
    QCOMPARE(word.m_textOffset, QPointF(0, 0));
    QVERIFY(word.m_fontImage.isNull());
    QCOMPARE(word.m_fontImagePos, QPointF(0, 0));
    QCOMPARE(word.m_fontImageSize, QSizeF(0, 0));
    QCOMPARE(word.m_fontImageClient, QRectF(0, 0, 0, 0));
    QCOMPARE(word.m_fontImageRotation, 0.0);
    QCOMPARE(word.m_showFontImage, false);
    QCOMPARE(word.m_fontImageDropped, false);
    QCOMPARE(word.m_boundsMargins.left, 0.0);
    QCOMPARE(word.m_boundsMargins.top, 0.0);
    QCOMPARE(word.m_boundsMargins.right, 0.0);
    QCOMPARE(word.m_boundsMargins.bottom, 0.0);
    QCOMPARE(word.m_scaleX, 1.0);
    QCOMPARE(word.m_scaleY, 1.0);
    QCOMPARE(word.m_transformScaleX, 1.0);
    QCOMPARE(word.m_transformScaleY, 1.0);
    QCOMPARE(word.m_fontImageScaleX, 1.0);
    QCOMPARE(word.m_fontImageScaleY, 1.0);
    QCOMPARE(word.m_baseSize, QSizeF(-1, -1));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 0, 0));
}

void TestFrame::constructionDefaultsOfPaths()
{
    OpenWord word;
    QCOMPARE(word.m_warpStyle, 0);
    QCOMPARE(word.m_warpValue, 0.0);
    QCOMPARE(word.m_warpHorizontalValue, 0.0);
    QCOMPARE(word.m_warpVerticalValue, 0.0);
    QCOMPARE(word.m_warpOrientation, 1);
    QVERIFY(word.m_artText);
    QVERIFY(word.m_textPaths.isEmpty());
    QCOMPARE(word.m_textPathsRect, QRectF(0, 0, 0, 0));
    QVERIFY(word.m_morphPaths.isEmpty());
    QCOMPARE(word.m_morphRect, QRectF(0, 0, 0, 0));
    QVERIFY(word.m_pathBrushes.isEmpty());
    QVERIFY(word.m_pathsMutex.tryLock());
    word.m_pathsMutex.unlock();
    QCOMPARE(word.isFlip(), false);
    QCOMPARE(word.isMirror(), false);
    QCOMPARE(word.m_cursorColor, QColor(Qt::black));
    QCOMPARE(word.m_cursorEndScenePos, QPointF(0, 0));
    QVERIFY(word.m_cursorLine.isNull());
}

void TestFrame::constructionSetsUpTheItem()
{
    OpenWord word;
    QVERIFY(word.acceptDrops());
    QVERIFY(word.acceptHoverEvents());
    QCOMPARE(word.acceptedMouseButtons(), Qt::MouseButtons(Qt::LeftButton));
    QVERIFY(!(word.flags() & QGraphicsItem::ItemIsFocusable));
    QVERIFY(!(word.flags() & QGraphicsItem::ItemAcceptsInputMethod));
    QVERIFY(sizeHandlesAre(word, true));
    QVERIFY(!word.isHandleDisabled(CObjAction::ACT_Rotate));

    CWordProcess drawing(1, false, nullptr, nullptr);
    QVERIFY(!drawing.isCreateFinished());
}

void TestFrame::constructionStartsTheCaretTimer()
{
    OpenWord word;
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(&word);
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().timerId, word.m_cursorTimerId);
    QCOMPARE(timers.first().interval, 800);
    QCOMPARE(timers.first().timerType, Qt::CoarseTimer);
}

void TestFrame::dpiComesFromTheDocument()
{
    QCOMPARE(OpenWord().m_documentDpi, 96);
    RecordingHost host(72);
    QCOMPARE(OpenWord(&host).m_documentDpi, 72);
    host.documentOn = false;
    QCOMPARE(OpenWord(&host).m_documentDpi, 96);
}

void TestFrame::releaseDeletesTheObject()
{
    QPointer<OpenWord> word = new OpenWord;
    word->Release();
    QVERIFY(word.isNull());
}

void TestFrame::hostMayReleaseTheObjectFromAnyCallBack_data()
{
    QTest::addColumn<const Request *>("request");
    for (const Request &request : requests)
        QTest::newRow(request.name) << &request;
}

void TestFrame::hostMayReleaseTheObjectFromAnyCallBack()
{
    QFETCH(const Request *, request);
    bool released = true;
    for (int releaseAt = 0; released; ++releaseAt) { // from the first call back, from the second...
        released = false;
        int callBacks = 0;
        int toldAfterwards = 0;
        CallingHost host;
        auto *word = new OpenWord(&host);
        const QPointer<OpenWord> alive(word);
        host.scene().addItem(word);
        word->add(QStringLiteral("ab cd"));
        request->prepare(*word);
        const auto callBack = [&] {
            if (callBacks++ == releaseAt) {
                released = true;
                word->Release();
            }
            QCoreApplication::sendPostedEvents(); // as a host that runs a dialog does
        };
        host.onTextOperation = [&](int) {
            toldAfterwards += released;
            callBack();
        };
        host.onPreview = [&] {
            toldAfterwards += released;
            callBack();
        };
        host.onEditing = callBack;
        const auto connection = connect(&host.stack(), &QUndoStack::indexChanged, callBack);
        request->run(*word);
        disconnect(connection);
        host.onTextOperation = nullptr;
        host.onPreview = nullptr;
        host.onEditing = nullptr;
        QVERIFY(alive);
        QVERIFY2(callBacks > 0, "nobody was told");
        QCOMPARE(toldAfterwards, 0);
        QCOMPARE(host.scene().items().isEmpty(), released);
        host.stack().clear();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(alive.isNull(), released);
    }
}

void TestFrame::secondReleaseFromACallBackIsTheSame()
{
    CallingHost host;
    QPointer<OpenWord> word = new OpenWord(&host);
    host.onTextOperation = [&](int) { word->Release(); };
    word->selectAll();
    QVERIFY(word);
    word->Release();
    QVERIFY(word);
    host.onTextOperation = nullptr;
    QCoreApplication::sendPostedEvents();
    QVERIFY(!word);
}

void TestFrame::canDoAsksForText()
{
    OpenWord word;
    QCOMPARE(word.canDo(OperationType(33)), false);
    word.add(QStringLiteral(" "));
    QCOMPARE(word.canDo(OperationType(33)), true);
    for (int operation : {300, 301, 302})
        QCOMPARE(word.canDo(OperationType(operation)), true);
}

void TestFrame::canDoPassesOtherOperationsOn()
{
    OpenWord word;
    QCOMPARE(word.canDo(OP_Move), true);
    QCOMPARE(word.canDo(OperationType(299)), false);
    word.setLocked(true, false, false);
    QCOMPARE(word.canDo(OP_Move), false);
}

void TestFrame::interactionFlagsSetItemFlags()
{
    OpenWord word;
    word.setTextInteractionFlags(Qt::TextSelectableByMouse);
    QVERIFY(word.flags() & QGraphicsItem::ItemIsFocusable);
    QVERIFY(word.flags() & QGraphicsItem::ItemAcceptsInputMethod);
    QCOMPARE(int(word.textInteractionFlags()), int(Qt::TextSelectableByMouse));
    word.setTextInteractionFlags(Qt::NoTextInteraction);
    QVERIFY(!(word.flags() & QGraphicsItem::ItemIsFocusable));
    QVERIFY(!(word.flags() & QGraphicsItem::ItemAcceptsInputMethod));
    QCOMPARE(int(word.textInteractionFlags()), 0);
}

void TestFrame::sizeHandlesAreDisabledTogether()
{
    OpenWord word;
    word.setControlPointDisable(false);
    QVERIFY(sizeHandlesAre(word, false));
    word.setControlPointDisable(true);
    QVERIFY(sizeHandlesAre(word, true));
    QVERIFY(!word.isHandleDisabled(CObjAction::ACT_Rotate));
}

void TestFrame::updateControlHandlesFollowsTheState()
{
    OpenWord word;
    word.updateControlHandles();
    QVERIFY(sizeHandlesAre(word, false));
    QVERIFY(!word.isHandleDisabled(CObjAction::ACT_Rotate));
    QVERIFY(!word.isShowHandles());
    word.setSelected(true);
    word.setShowHandles(&word, false, false);
    word.updateControlHandles();
    QVERIFY(word.isShowHandles());

    word.m_editing = true;
    word.updateControlHandles();
    QVERIFY(sizeHandlesAre(word, true));
    QVERIFY(word.isHandleDisabled(CObjAction::ACT_Rotate));
    word.m_wordWrap = true;
    word.updateControlHandles();
    QVERIFY(sizeHandlesAre(word, false));
    QVERIFY(word.isHandleDisabled(CObjAction::ACT_Rotate));
    word.m_editing = false;
}

void TestFrame::beginEditTellsPageThenListeners()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    host.clearEvents();
    word.beginEdit();
    QCOMPARE(host.kinds(), QStringLiteral("editing event"));
    QCOMPARE(host.events.at(0).object, static_cast<CVXRootObject *>(&word));
    QCOMPARE(host.events.at(0).code, 1);
    const AttributeMap expected{{QStringLiteral("sub_operator"), 3},
                                {QStringLiteral("editflag"), true}};
    QCOMPARE(host.events.at(1).values, expected);
}

void TestFrame::beginEditKeepsTheStartOfTheEdit()
{
    RecordingHost host;
    auto *word = new OpenWord(&host);
    host.scene().addItem(word);
    word->add(QStringLiteral("ab"));
    word->setSelected(true);
    const QString before = word->serialize(false);
    word->beginEdit();
    QCOMPARE(int(word->m_actionState->editing), 1);
    QCOMPARE(int(word->m_textInteractionFlags), 0x13);
    QVERIFY(host.scene().focusItem() == word);
    QCOMPARE(word->m_editStartText, QStringLiteral("ab"));
    QCOMPARE(word->m_editStartData, before);
    QVERIFY(word->m_editing);
}

void TestFrame::beginEditTakesHandles_data()
{
    QTest::addColumn<bool>("box");
    QTest::newRow("line text") << false;
    QTest::newRow("box text") << true;
}

void TestFrame::beginEditTakesHandles()
{
    QFETCH(bool, box);
    RecordingHost host;
    OpenWord word(&host);
    word.m_wordWrap = box;
    word.m_wordManager->setWordWrap(box);
    word.m_clientRect = QRectF(0, 0, 50, 40);
    word.beginEdit();
    QVERIFY(sizeHandlesAre(word, !box));
    QVERIFY(word.isHandleDisabled(CObjAction::ACT_Rotate));
    QCOMPARE(word.m_otherParams.value(QStringLiteral("dashlineRectangleHandle")), QVariant(box));
    word.endEdit();
    QVERIFY(sizeHandlesAre(word, false));
    QVERIFY(!word.isHandleDisabled(CObjAction::ACT_Rotate));
    QCOMPARE(word.m_otherParams.value(QStringLiteral("dashlineRectangleHandle")), QVariant(false));
}

void TestFrame::beginEditOfOlderLineTextHidesHandles()
{
    OpenWord word;
    word.m_newVersion = false;
    word.setControlPointDisable(false);
    word.setShowHandles(&word, true, false);
    word.beginEdit();
    QVERIFY(!word.isShowHandles());
    QVERIFY(sizeHandlesAre(word, false));
    QVERIFY(!word.isHandleDisabled(CObjAction::ACT_Rotate));
}

void TestFrame::secondBeginEditOnlyResetsTheComparison()
{
    RecordingHost host;
    OpenWord word(&host);
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("ab"), OpenWord::format());
    host.clearEvents();
    word.forgetCalls();
    word.beginEdit();
    QCOMPARE(host.kinds(), QStringLiteral("editing"));
    QCOMPARE(word.m_editStartText, QStringLiteral("ab"));
    QCOMPARE(contentsOf(word.m_editStartData), QList<QStringList>{{QStringLiteral("ab")}});
    QVERIFY(word.changes.isEmpty()); // no layout, no repaint
}

void TestFrame::endEditOutsideEditStateIsQuiet()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.setSelected(true);
    word.setShowHandles(&word, false, false);
    word.setControlPointDisable(true);
    word.select(1, 3);
    host.clearEvents();
    word.endEdit();
    QCOMPARE(word.m_selStart, word.m_selEnd);
    QVERIFY(word.isShowHandles());
    QVERIFY(sizeHandlesAre(word, false));
    QCOMPARE(host.stack().count(), 0);
    QVERIFY(host.events.isEmpty());
}

void TestFrame::endEditTellsAttributesThenState()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    word.select(1, 3);
    host.clearEvents();
    word.endEdit();
    // The selection goes while the object is still being edited, then the finished object tells.
    QCOMPARE(operationsOf(host), (QVector<int>{0, 0, 3}));
    QCOMPARE(host.events.at(0).values.value(QStringLiteral("text_editflag")), QVariant(true));
    QCOMPARE(host.events.at(1).values.value(QStringLiteral("text_editflag")), QVariant(false));
    QCOMPARE(host.events.at(2).values.value(QStringLiteral("editflag")), QVariant(false));
}

void TestFrame::endEditRestoresTheAppearance()
{
    RecordingHost host;
    OpenWord word(&host);
    word.beginEdit();
    word.m_cursorVisible = true;
    word.enableLayerEffect(false);
    word.forgetCalls();
    word.endEdit();
    QCOMPARE(int(word.m_actionState->editing), 0);
    QCOMPARE(word.m_actionState->lastAction, 5);
    QCOMPARE(int(word.m_textInteractionFlags), 0);
    QVERIFY(!word.m_cursorVisible);
    QVERIFY(word.isLayerEffectEnabled());
    QVERIFY(word.cacheReasons.contains(2));
    QVERIFY(!word.m_editing);
}

void TestFrame::endEditAfterFormatChangePushesNothing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    QTextCharFormat heavy;
    heavy.setFontWeight(75);
    word.m_cursor->select(QTextCursor::Document);
    word.m_cursor->mergeCharFormat(heavy);
    host.clearEvents();
    word.endEdit();
    QCOMPARE(host.stack().count(), 0);
    QCOMPARE(operationsOf(host), (QVector<int>{0, 0, 3}));
    QVERIFY(!word.m_editStartData.isEmpty()); // only a change of the text clears it
}

void TestFrame::endEditOfChangedTextClosesTheComparison()
{
    RecordingHost host;
    OpenWord word(&host);
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("new"), OpenWord::format());
    host.clearEvents();
    word.endEdit();
    QCOMPARE(word.m_editStartText, QStringLiteral("new"));
    QVERIFY(word.m_editStartData.isEmpty());
    QCOMPARE(operationsOf(host).last(), 3);
    QCOMPARE(host.events.last().values.value(QStringLiteral("editflag")), QVariant(false));
}

void TestFrame::endEditWithoutStartDataPushesNothing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    word.m_editStartData.clear();
    word.m_cursor->insertText(QStringLiteral("new"));
    word.endEdit();
    QCOMPARE(host.stack().count(), 0);
    QCOMPARE(word.m_editStartText, QStringLiteral("ab"));
    host.clearEvents();
    word.endEdit();
    QCOMPARE(host.stack().count(), 0);
    QVERIFY(host.events.isEmpty());
}

void TestFrame::endEditOfObjectBeingDrawnDoesNothing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    word.m_actionState->editing = 1;
    word.select(0, 2);
    word.endEdit();
    QCOMPARE(int(word.m_actionState->editing), 1);
    QCOMPARE(word.m_selStart, 0);
    QVERIFY(sizeHandlesAre(word, true));
    QVERIFY(host.events.isEmpty());
}

void TestFrame::endEditFromAnotherThreadDoesNothing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.beginEdit();
    host.clearEvents();
    std::thread([&] { word.endEdit(); }).join();
    QVERIFY(word.m_editing);
    QCOMPARE(int(word.m_actionState->editing), 1);
    QVERIFY(host.events.isEmpty());
}

void TestFrame::propertyBeginsAndEndsTheEdit()
{
    OpenWord word;
    QDataStream nothing;
    QVERIFY(word.SetSpecialProperty(101, nothing, false));
    QVERIFY(word.m_editing);
    QVERIFY(word.SetSpecialProperty(102, nothing, false));
    QVERIFY(!word.m_editing);
}

void TestFrame::propertyDoesNotEditLockedObjects()
{
    RecordingHost host;
    OpenWord word(&host);
    word.setLocked(true, false, false);
    QDataStream nothing;
    word.SetSpecialProperty(101, nothing, false);
    QVERIFY(!word.m_editing);

    word.setLocked(false, false, false);
    word.m_missingFonts = QStringList(QStringLiteral("No Such Family"));
    word.SetSpecialProperty(101, nothing, false);
    QVERIFY(!word.m_editing);
    QCOMPARE(operationsOf(host), (QVector<int>{1}));
    word.m_replacedFonts = word.m_missingFonts;
    word.SetSpecialProperty(101, nothing, false);
    QVERIFY(word.m_editing);
}

void TestFrame::boundingRectGrowsInEditedBoxOnly()
{
    OpenWord word;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.updateAfterObjRectChanged(&word, true);
    const QRectF base = word.CBaseObject::boundingRect();
    QCOMPARE(word.boundingRect(), base);
    word.m_editing = true;
    QCOMPARE(word.boundingRect(), base); // line text
    word.m_wordWrap = true;
    const QRectF united = word.m_wordManager->textPathRect().united(word.m_clientRect);
    QCOMPARE(word.boundingRect(),
             QRectF(united.x() - 70, united.y() - 70, united.width() + 140, united.height() + 140));
    QCOMPARE(word.boundingRect(), QRectF(-70, -70, 240, 190));
    word.m_newVersion = false;
    QCOMPARE(word.boundingRect(), base);
    word.m_editing = false;
}

void TestFrame::shapeGrowsInEditState()
{
    OpenWord word;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    QCOMPARE(word.shape().boundingRect(), QRectF(0, 0, 100, 50));
    word.m_editing = true;
    QCOMPARE(word.shape().boundingRect(), QRectF(-70, -70, 240, 190));
    word.m_editing = false;
}

void TestFrame::shapeOfSelectedObjectHasHandles()
{
    OpenWord word;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.setControlPointDisable(false);
    word.setSelected(true);
    word.setShowHandles(&word, true, false);
    QPainterPath expected;
    expected.setFillRule(Qt::WindingFill);
    expected.addRect(word.m_clientRect);
    word.addHandlePath(&word, &expected, 1.0);
    QCOMPARE(word.shape(), expected);
    QVERIFY(expected.elementCount() > 5);
    const QPointF inside = word.handlePosition(CObjAction::ACT_TopLeft) + QPointF(0.5, 0.5);
    QVERIFY(word.shape().contains(inside)); // a handle over the rectangle is no hole
}

void TestFrame::flipOfPresentValueIsQuiet()
{
    OpenWord word;
    word.setFlip(false, true);
    word.setMirror(false, true);
    QVERIFY(word.changes.isEmpty());
    word.setFlip(true, false);
    word.setMirror(true, false);
    word.forgetCalls();
    word.setFlip(true, true);
    word.setMirror(true, true);
    QVERIFY(word.changes.isEmpty());
}

void TestFrame::flipAndMirrorAskForRepaint()
{
    OpenWord word;
    word.setFlip(true, false);
    QVERIFY(word.isFlip());
    QVERIFY(!word.isMirror());
    word.setMirror(true, false);
    QVERIFY(word.isMirror());
    QCOMPARE(word.changes, (QVector<int>{1002, 1002}));
    QCOMPARE(word.details, (QStringList{QString(), QString()}));
}

void TestFrame::flipAndMirrorTurnThePicture()
{
    QImage picture(4, 2, QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 8; ++i)
        picture.setPixel(i % 4, i / 4, qRgb(30 * i, 255 - 30 * i, 7));
    OpenWord word;
    word.m_clientRect = QRectF(0, 0, 4, 2);
    word.m_fontImage = picture;
    word.setFlip(true, false); // not shown: it stays
    QCOMPARE(word.m_fontImage, picture);

    word.m_showFontImage = true;
    word.setFlip(false, false);
    QCOMPARE(word.m_fontImage.convertToFormat(QImage::Format_ARGB32),
             picture.mirrored(false, true).convertToFormat(QImage::Format_ARGB32));
    word.setMirror(true, false);
    QCOMPARE(word.m_fontImage.convertToFormat(QImage::Format_ARGB32),
             picture.mirrored(true, true).convertToFormat(QImage::Format_ARGB32));
}

void TestFrame::cursorPosIsMiddleOfCaret()
{
    OpenWord word;
    word.add(QStringLiteral("abc"));
    QCOMPARE(word.getCursorPos(), QPoint(0, 0));
    word.beginEdit();
    word.m_cursor->setPosition(2);
    QCOMPARE(word.getCursorPos(), QPoint(16, 8));
    word.m_wordManager->updatePosition(-40.5, 0, 24, 16); // the caret stands at -24.5
    QCOMPARE(word.getCursorPos(), QPoint(-25, 8));
}

void TestFrame::deselectionEndsTheEdit()
{
    RecordingHost host;
    OpenWord word(&host);
    word.setSelected(true);
    word.beginEdit();
    word.setSelected(false);
    QVERIFY(!word.m_editing);
}

void TestFrame::deselectionInBatchOrHiddenKeepsTheEdit()
{
    RecordingHost host;
    OpenWord word(&host);
    word.setSelected(true);
    word.beginEdit();
    host.batchMode = true;
    host.clearEvents();
    word.setSelected(false);
    QVERIFY(word.m_editing);
    QCOMPARE(operationsOf(host), (QVector<int>{0}));

    host.batchMode = false;
    word.setSelected(true);
    word.hide(); // takes the selection along
    QVERIFY(!word.isSelected());
    QVERIFY(word.m_editing);
}

void TestFrame::selectionShowsHandlesAndTells()
{
    RecordingHost host;
    OpenWord word(&host);
    word.setSelected(true);
    QVERIFY(word.isShowHandles());
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    word.setSelected(false);
    QVERIFY(!word.isShowHandles());
    QCOMPARE(operationsOf(host), (QVector<int>{0, 0}));
}

void TestFrame::originChangeDropsTheEffectCache()
{
    OpenWord word;
    word.setTransformOriginPoint(5, 6);
    QCOMPARE(word.cacheReasons, (QVector<int>{2}));
}

void TestFrame::focusDrivesTheCaret()
{
    OpenWord word;
    QFocusEvent in(QEvent::FocusIn);
    word.focusInEvent(&in);
    QVERIFY(word.m_hasFocus);
    QVERIFY(word.m_cursorVisible);
    QFocusEvent out(QEvent::FocusOut);
    word.focusOutEvent(&out);
    QVERIFY(!word.m_hasFocus);
    QVERIFY(!word.m_cursorVisible);
}

void TestFrame::foreignTimerDoesNothing()
{
    OpenWord word;
    QTimerEvent foreign(word.m_cursorTimerId + 1);
    word.m_cursorVisible = true;
    word.timerEvent(&foreign);
    QVERIFY(word.m_cursorVisible);
    word.m_editing = true;
    word.m_hasFocus = true;
    word.timerEvent(&foreign);
    QVERIFY(word.m_cursorVisible);
    QVERIFY(word.changes.isEmpty());
    word.m_editing = false;
}

void TestFrame::ownTimerBlinksInEditStateOnly()
{
    OpenWord word;
    QTimerEvent tick(word.m_cursorTimerId);
    word.m_cursorVisible = true;
    word.timerEvent(&tick);
    QVERIFY(!word.m_cursorVisible);
    QVERIFY(word.changes.isEmpty());

    word.m_editing = true;
    word.timerEvent(&tick); // without the focus it does not blink, but asks for a repaint
    QVERIFY(!word.m_cursorVisible);
    word.m_hasFocus = true;
    word.timerEvent(&tick);
    QVERIFY(word.m_cursorVisible);
    word.timerEvent(&tick);
    QVERIFY(!word.m_cursorVisible);
    word.m_mouseSelecting = true;
    word.timerEvent(&tick);
    QVERIFY(!word.m_cursorVisible);
    QCOMPARE(word.changes, (QVector<int>{1002, 1002, 1002, 1002}));
    word.m_editing = false;
}

QTEST_MAIN(TestFrame)
#include "tst_frame.moc"
