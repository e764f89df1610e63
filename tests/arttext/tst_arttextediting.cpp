// SPDX-License-Identifier: MIT
// Editing in place: the ways in and out, the undo step, and the formats of the text item.
#include "openarttext.h"

#include "arttext/arttextchangecommand.h"

#include <QKeyEvent>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QtTest>

namespace {
void clickTwice(OpenArtObject &art)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseDoubleClick);
    event.setButton(Qt::LeftButton);
    art.mouseDoubleClickEvent(&event);
}

void type(OpenArtObject &art, const QString &text)
{
    art.textCursor().insertText(text);
}

bool isBeingEdited(const OpenArtObject &art)
{
    return art.textInteractionFlags() == Qt::TextEditorInteraction;
}

/// The format of the first character.
QTextCharFormat firstFormat(const OpenArtObject &art)
{
    QTextCursor cursor(art.document());
    cursor.setPosition(1);
    return cursor.charFormat();
}

void selectAll(OpenArtObject &art)
{
    QTextCursor cursor = art.textCursor();
    cursor.select(QTextCursor::Document);
    art.setTextCursor(cursor);
}

class OpenCommand : public CArttextChangeCommand
{
public:
    using CArttextChangeCommand::CArttextChangeCommand;
    using CArttextChangeCommand::m_newRect;
    using CArttextChangeCommand::m_newText;
    using CArttextChangeCommand::m_oldRect;
    using CArttextChangeCommand::m_oldText;
    using CArttextChangeCommand::m_type;
};
} // namespace

class TestArtTextEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // the way in
    void doubleClickBeginsAnEdit();
    void editTellsThePage();
    void editNeedsItsConditions_data();
    void editNeedsItsConditions();
    void refusedDoubleClickLeavesTheTextAlone();
    void lockedObjectIgnoresTheDoubleClick();
    void beginTakesNoteOfThePlace();
    void beginPutsTheTextIntoTheItem();
    void beginOfAnEmptyTextEmptiesTheItem();
    void beginGivesTheItemTheFormatsOfTheText();
    void beginTurnsTheEffectOff();

    // the way out
    void changedTextBecomesAStep();
    void undoAndRedoGoBackAndForth();
    void stepIsNamed();
    void stepTakesTheRectanglesAlong();
    void unchangedTextRecordsNothing_data();
    void unchangedTextRecordsNothing();
    void grownHeightGoesBackWithoutAStep();
    void withoutUndoTheTextIsOnlyTakenNoteOf();
    void endOutOfEditStateDoesNothing();
    void endGivesHandlesAndEffectBack();
    void deselectionEndsTheEdit();
    void stepOfAnotherKindDoesNothing();
    void stepOutlivesItsObject();
    void objectReleasedByAListenerToTheStackIsLetGo();
    void objectReleasedWhileItIsDeselectedIsLetGo();

    // within
    void keyGrowsTheObjectWithItsText();
    void pointerInEditStateIsTheItems();

    // formats
    void formatLandsOnTheWholeTextOutsideAnEdit();
    void formatLandsOnTheSelectionInAnEdit();
    void formatWithoutSelectionLeavesTheTextAlone();
    void settersWriteTheirFormat();
    void marksAreCrossed_data();
    void marksAreCrossed();
    void alignmentIsThatOfAllBlocks_data();
    void alignmentIsThatOfAllBlocks();
    void usualAlignmentChangesNothing();
    void styleMakesAList_data();
    void styleMakesAList();
    void styleZeroLeavesTheList();
    void spacingSettersDoNothing();
    void plainSettersStore();
};

void TestArtTextEditing::doubleClickBeginsAnEdit()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    clickTwice(art);
    QVERIFY(art.m_editing);
    QCOMPARE(int(art.m_actionState->editing), 1);
    QVERIFY(isBeingEdited(art));
    QVERIFY(!art.isShowHandles());
}

void TestArtTextEditing::editTellsThePage()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host);
    art.enterEdit();
    const auto events = host.eventsOfKind(QStringLiteral("editing"));
    QCOMPARE(events.size(), 1);
    QCOMPARE(events.first().object, static_cast<CVXRootObject *>(&art));
    QCOMPARE(events.first().code, 1);
}

void TestArtTextEditing::editNeedsItsConditions_data()
{
    QTest::addColumn<QString>("missing");
    for (const char *what : {"page", "selection", "being alone", "framework", "unlocked"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void TestArtTextEditing::editNeedsItsConditions()
{
    QFETCH(QString, missing);
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    OpenArtObject second(&host);
    if (missing == QLatin1String("page"))
        art.setBelongPage(nullptr);
    else if (missing == QLatin1String("selection"))
        art.setSelected(false);
    else if (missing == QLatin1String("being alone"))
        host.selectedObjects = {&art, &second};
    else if (missing == QLatin1String("framework"))
        SetFramework(nullptr);
    else
        art.setLocked(true, false, false);
    art.enterEdit();
    clickTwice(art);
    SetFramework(&host);
    QVERIFY(!isBeingEdited(art));
    QVERIFY(!art.m_editing);
    QCOMPARE(int(art.m_actionState->editing), 0);
    QVERIFY(host.eventsOfKind(QStringLiteral("editing")).isEmpty());
}

void TestArtTextEditing::refusedDoubleClickLeavesTheTextAlone()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    OpenArtObject second(&host);
    host.selectedObjects = {&art, &second};
    clickTwice(art);
    art.setSelected(false);
    QCOMPARE(host.stack().count(), 0);
    QCOMPARE(art.m_textWord, QStringLiteral("a"));
}

void TestArtTextEditing::lockedObjectIgnoresTheDoubleClick()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseDoubleClick);
    event.setButton(Qt::LeftButton);
    art.setLocked(true, false, false);
    event.accept();
    art.mouseDoubleClickEvent(&event);
    QVERIFY(!event.isAccepted());
    art.setLocked(false, false, false);
    event.accept();
    art.mouseDoubleClickEvent(&event);
    QVERIFY(event.isAccepted());
    QVERIFY(art.m_editing);
}

void TestArtTextEditing::beginTakesNoteOfThePlace()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"), QSizeF(70, 30));
    clickTwice(art);
    QCOMPARE(art.m_editPos, QPointF(10, 20));
    QCOMPARE(art.m_editSize, QSizeF(70, 30));
    QCOMPARE(art.document()->textWidth(), 70.0);
}

void TestArtTextEditing::beginPutsTheTextIntoTheItem()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("<i>a</i>\nb"));
    art.setHtml(QStringLiteral("old"));
    clickTwice(art);
    QCOMPARE(art.toPlainText(), QStringLiteral("<i>a</i>\nb"));
}

void TestArtTextEditing::beginOfAnEmptyTextEmptiesTheItem()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host);
    art.setHtml(QStringLiteral("old"));
    clickTwice(art);
    QCOMPARE(art.toPlainText(), QString());
}

void TestArtTextEditing::beginGivesTheItemTheFormatsOfTheText()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    art.m_fontBold = true;
    art.m_fontItalic = true;
    art.m_colorFill = Qt::green;
    art.m_colorPen = Qt::blue;
    art.m_textAlignment = 2;
    art.BeginEdit();
    const QTextCharFormat format = firstFormat(art);
    QCOMPARE(format.fontFamily(), loadBoxTestFont());
    QCOMPARE(format.fontWeight(), 75);
    QVERIFY(format.fontItalic());
    QCOMPARE(format.foreground(),
             QBrush(Qt::green)); // what the outlines are meant to be filled with
    QCOMPARE(int(art.document()->firstBlock().blockFormat().alignment()), 0x12);
}

void TestArtTextEditing::beginTurnsTheEffectOff()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host);
    clickTwice(art);
    QVERIFY(!art.isLayerEffectEnabled());
}

// The way out

void TestArtTextEditing::changedTextBecomesAStep()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    clickTwice(art);
    type(art, QStringLiteral("bc"));
    QCOMPARE(art.m_textWord, QStringLiteral("a")); // not before the edit ends
    art.EndEdit();
    QVERIFY(!art.m_editing);
    QCOMPARE(host.stack().count(), 1);
    QCOMPARE(art.m_textWord, art.toPlainText());
    QCOMPARE(art.m_textWord.size(), 3);
    QCOMPARE(art.m_editedText, art.m_textWord);
    QCOMPARE(art.m_charPaths.size(), 3);
    QCOMPARE(static_cast<const QUndoCommand *>(art.m_changeCommand), host.stack().command(0));
}

void TestArtTextEditing::undoAndRedoGoBackAndForth()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host);
    for (const QString &word : {QStringLiteral("a"), QStringLiteral("bb")}) {
        art.setSelected(true);
        clickTwice(art);
        selectAll(art);
        type(art, word);
        art.setSelected(false);
    }
    QCOMPARE(art.m_textWord, QStringLiteral("bb"));
    host.stack().undo();
    QCOMPARE(art.m_textWord, QStringLiteral("a"));
    QCOMPARE(art.m_charPaths.size(), 1);
    host.stack().undo();
    QCOMPARE(art.m_textWord, QString());
    QCOMPARE(art.m_charPaths.size(), 0);
    host.stack().redo();
    host.stack().redo();
    QCOMPARE(art.m_textWord, QStringLiteral("bb"));
    QCOMPARE(art.m_editedText, QStringLiteral("bb"));
    art.setSelected(true);
    clickTwice(art); // what the item holds follows
    QCOMPARE(art.toPlainText(), QStringLiteral("bb"));
}

void TestArtTextEditing::stepIsNamed()
{
    OpenArtObject art;
    const CArttextChangeCommand step(&art, TEXT_CHANGE_CONTENT);
    QCOMPARE(step.text(), QStringLiteral("IDS_TEXT_PROCESS"));
    QCOMPARE(int(TEXT_CHANGE_CONTENT), 10);
}

void TestArtTextEditing::stepTakesTheRectanglesAlong()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"), QSizeF(70, 30));
    clickTwice(art);
    type(art, QStringLiteral("b"));
    art.updatePosition(&art, QRectF(5, 6, 80, 90));
    art.EndEdit();
    QCOMPARE(art.mapRectToScene(art.m_clientRect), QRectF(5, 6, 80, 90));
    host.stack().undo();
    QCOMPARE(art.mapRectToScene(art.m_clientRect), QRectF(10, 20, 70, 30));
    host.stack().redo();
    QCOMPARE(art.mapRectToScene(art.m_clientRect), QRectF(5, 6, 80, 90));
}

void TestArtTextEditing::unchangedTextRecordsNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("a line") << QStringLiteral("a");
    QTest::newRow("lines") << QStringLiteral("a\nb");
    QTest::newRow("line ends of two characters") << QStringLiteral("a\r\nb");
    QTest::newRow("blank that does not break") << QStringLiteral("a\u00A0b");
}

void TestArtTextEditing::unchangedTextRecordsNothing()
{
    QFETCH(QString, text);
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, text);
    clickTwice(art);
    art.EndEdit();
    QCOMPARE(host.stack().count(), 0);
    QCOMPARE(art.m_textWord, text);
    QCOMPARE(art.getSize(), QSizeF(200, 100));
}

void TestArtTextEditing::grownHeightGoesBackWithoutAStep()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"), QSizeF(70, 30));
    clickTwice(art);
    art.updatePosition(&art, QRectF(15, 20, 80, 90));
    art.EndEdit();
    QCOMPARE(host.stack().count(), 0);
    QCOMPARE(art.mapRectToScene(art.m_clientRect), QRectF(15, 20, 80, 30)); // the height alone
}

void TestArtTextEditing::withoutUndoTheTextIsOnlyTakenNoteOf()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    art.m_undoEnabled = false;
    clickTwice(art);
    selectAll(art);
    type(art, QStringLiteral("b"));
    art.EndEdit();
    QCOMPARE(host.stack().count(), 0);
    QCOMPARE(art.m_textWord, QStringLiteral("a"));
    QCOMPARE(art.m_editedText, QStringLiteral("b"));
}

void TestArtTextEditing::endOutOfEditStateDoesNothing()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    art.BeginEdit(); // without the double click this is no edit state
    type(art, QStringLiteral("b"));
    art.EndEdit();
    QVERIFY(isBeingEdited(art));
    QCOMPARE(host.stack().count(), 0);
    QCOMPARE(art.m_actionState->lastAction, 0);
}

void TestArtTextEditing::endGivesHandlesAndEffectBack()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    clickTwice(art);
    art.cacheReasons.clear();
    art.EndEdit();
    QVERIFY(art.isShowHandles());
    QVERIFY(art.isLayerEffectEnabled());
    QCOMPARE(art.cacheReasons, QVector<int>({2}));
    QCOMPARE(int(art.m_actionState->editing), 0);
    QCOMPARE(art.m_actionState->lastAction, 5);
    QCOMPARE(art.textInteractionFlags(), Qt::TextInteractionFlags(Qt::NoTextInteraction));
}

void TestArtTextEditing::deselectionEndsTheEdit()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    clickTwice(art);
    type(art, QStringLiteral("b"));
    host.scene().clearSelection();
    QVERIFY(!art.m_editing);
    QVERIFY(!art.isShowHandles());
    QCOMPARE(host.stack().count(), 1);
}

void TestArtTextEditing::stepOfAnotherKindDoesNothing()
{
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(70, 30));
    OpenCommand step(&art, TEXT_CHANGE_NONE);
    QString first = QStringLiteral("b");
    QString second = QStringLiteral("c");
    step.setTextBegin(first, QRectF(0, 0, 10, 10));
    step.setTextDone(second, QRectF(0, 0, 20, 20));
    QCOMPARE(step.m_oldText, first);
    QCOMPARE(step.m_newText, second);
    QCOMPARE(step.m_oldRect, QRectF(0, 0, 10, 10));
    QCOMPARE(step.m_newRect, QRectF(0, 0, 20, 20));
    step.redo();
    step.undo();
    QCOMPARE(art.m_textWord, QStringLiteral("a"));
    QCOMPARE(art.getSize(), QSizeF(70, 30));
}

void TestArtTextEditing::stepOutlivesItsObject()
{
    RecordingHost host;
    OpenArtObject *const art = selectedArt(host);
    clickTwice(*art);
    type(*art, QStringLiteral("b"));
    art->EndEdit();
    host.selectedObjects.clear();
    delete art;
    host.stack().undo();
    host.stack().redo();
    QCOMPARE(host.stack().count(), 1);
}

void TestArtTextEditing::objectReleasedByAListenerToTheStackIsLetGo()
{
    RecordingHost host;
    QPointer<OpenArtObject> art(selectedArt(host));
    clickTwice(*art);
    type(*art, QStringLiteral("b"));
    host.selectedObjects.clear();
    connect(&host.stack(), &QUndoStack::indexChanged, &host.stack(), [&art] { delete art; });
    art->EndEdit();
    QVERIFY(!art);
    host.stack().disconnect();
}

void TestArtTextEditing::objectReleasedWhileItIsDeselectedIsLetGo()
{
    RecordingHost host;
    QPointer<OpenArtObject> art(selectedArt(host));
    clickTwice(*art);
    type(*art, QStringLiteral("b"));
    host.selectedObjects.clear();
    connect(&host.stack(), &QUndoStack::indexChanged, &host.stack(), [&art] { delete art; });
    art->setSelected(false);
    QVERIFY(!art);
    host.stack().disconnect();
}

// Within

void TestArtTextEditing::keyGrowsTheObjectWithItsText()
{
    RecordingHost host;
    host.defaultFontFamily = loadBoxTestFont();
    OpenArtObject &art = *selectedArt(host, QString(), QSizeF(70, 30));
    clickTwice(art);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    art.keyPressEvent(&key);
    QCOMPARE(art.toPlainText(), QStringLiteral("a"));
    const double oneLine = int(art.document()->size().height());
    QCOMPARE(art.getSize(), QSizeF(70, qMax(30.0, oneLine)));
    for (int i = 0; i < 3; ++i) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        art.keyPressEvent(&enter);
    }
    QVERIFY(art.getSize().height() > 60);
    QCOMPARE(art.getSize(), QSizeF(70, int(art.document()->size().height())));
    QCOMPARE(art.getPos(), QPointF(10, 20));
}

void TestArtTextEditing::pointerInEditStateIsTheItems()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    clickTwice(art);
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setButton(Qt::LeftButton);
    press.setPos(QPointF(100, 50));
    press.setScenePos(art.mapToScene(press.pos()));
    art.mousePressEvent(&press);
    QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
    move.setButtons(Qt::LeftButton);
    move.setScenePos(QPointF(500, 500));
    move.setPos(art.mapFromScene(move.scenePos()));
    art.mouseMoveEvent(&move);
    QVERIFY(!art.m_handlePressed);
    QCOMPARE(art.getPos(), QPointF(10, 20)); // the host would have moved the object
    QGraphicsSceneMouseEvent release(QEvent::GraphicsSceneMouseRelease);
    art.mouseReleaseEvent(&release);
    QVERIFY(art.m_editing);
    clickTwice(art);
    QVERIFY(art.m_editing);
    QCOMPARE(host.eventsOfKind(QStringLiteral("editing")).size(), 1);
}

// Formats

void TestArtTextEditing::formatLandsOnTheWholeTextOutsideAnEdit()
{
    OpenArtObject art;
    type(art, QStringLiteral("ab\ncd"));
    art.setFontBold(true);
    for (int position : {1, 2, 4, 5}) {
        QTextCursor cursor(art.document());
        cursor.setPosition(position);
        QCOMPARE(cursor.charFormat().fontWeight(), 75);
    }
    QVERIFY(!art.textCursor().hasSelection());
    art.setFontBold(false);
    QCOMPARE(firstFormat(art).fontWeight(), 50);
}

void TestArtTextEditing::formatLandsOnTheSelectionInAnEdit()
{
    OpenArtObject art;
    type(art, QStringLiteral("ab"));
    art.m_editing = true;
    QTextCursor cursor(art.document());
    cursor.setPosition(1);
    cursor.setPosition(2, QTextCursor::KeepAnchor);
    art.setTextCursor(cursor);
    art.setFontItalic(true);
    QVERIFY(!firstFormat(art).fontItalic());
    QVERIFY(art.textCursor().charFormat().fontItalic());
    QCOMPARE(art.textCursor().selectedText(), QStringLiteral("b"));
}

void TestArtTextEditing::formatWithoutSelectionLeavesTheTextAlone()
{
    OpenArtObject art;
    type(art, QStringLiteral("ab"));
    art.m_editing = true;
    const QString before = art.toHtml();
    art.setFontBold(true);
    QCOMPARE(art.toHtml(), before);
}

void TestArtTextEditing::settersWriteTheirFormat()
{
    OpenArtObject art;
    type(art, QStringLiteral("a"));
    art.setFontUnderline(true);
    art.setFontStrikeOut(true);
    art.setFontFamily(QStringLiteral("Family"));
    art.setFontSize(17.5);
    art.setFontColor(Qt::blue);
    QTextCharFormat format = firstFormat(art);
    QCOMPARE(format.property(QTextFormat::TextUnderlineStyle).toInt(), 1);
    QVERIFY(!format.hasProperty(QTextFormat::FontUnderline)); // the style says it all
    QCOMPARE(format.property(QTextFormat::FontStrikeOut), QVariant(true));
    QCOMPARE(format.property(QTextFormat::FontFamily), QVariant(QStringLiteral("Family")));
    QCOMPARE(format.property(QTextFormat::FontPointSize), QVariant(17.5));
    QCOMPARE(format.foreground(), QBrush(Qt::blue, Qt::SolidPattern));
    art.setFontUnderline(false);
    art.setFontStrikeOut(false);
    format = firstFormat(art);
    QCOMPARE(format.property(QTextFormat::TextUnderlineStyle).toInt(), 0);
    QCOMPARE(format.property(QTextFormat::FontStrikeOut), QVariant(false));
}

void TestArtTextEditing::marksAreCrossed_data()
{
    QTest::addColumn<int>("mark");
    QTest::addColumn<int>("alignment");
    QTest::newRow("1") << 1 << 2;
    QTest::newRow("2") << 2 << 1;
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("3") << 3 << 0;
}

void TestArtTextEditing::marksAreCrossed()
{
    QFETCH(int, mark);
    OpenArtObject art;
    type(art, QStringLiteral("a"));
    art.setTextMark(mark);
    QTEST(int(firstFormat(art).verticalAlignment()), "alignment");
}

void TestArtTextEditing::alignmentIsThatOfAllBlocks_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("written");
    QTest::newRow("left") << 1 << 0x11;
    QTest::newRow("right") << 2 << 0x12;
    QTest::newRow("centre") << 4 << 4;
    QTest::newRow("justified") << 8 << 8;
}

void TestArtTextEditing::alignmentIsThatOfAllBlocks()
{
    QFETCH(int, alignment);
    OpenArtObject art;
    type(art, QStringLiteral("a\nb"));
    art.setTextAlign(Qt::Alignment(alignment));
    for (QTextBlock block = art.document()->begin(); block.isValid(); block = block.next())
        QTEST(block.blockFormat().property(QTextFormat::BlockAlignment).toInt(), "written");
    QVERIFY(!art.textCursor().hasSelection());
}

void TestArtTextEditing::usualAlignmentChangesNothing()
{
    OpenArtObject art;
    type(art, QStringLiteral("a"));
    art.setTextAlign(Qt::Alignment(4));
    art.setTextAlign(Qt::Alignment(0x84));
    QCOMPARE(int(art.document()->firstBlock().blockFormat().alignment()), 4);
}

void TestArtTextEditing::styleMakesAList_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("list");
    for (int style = 2; style <= 8; ++style)
        QTest::addRow("%d", style) << style << -style;
    for (int style : {1, 9, -3})
        QTest::addRow("%d", style) << style << -1;
}

void TestArtTextEditing::styleMakesAList()
{
    QFETCH(int, style);
    OpenArtObject art;
    type(art, QStringLiteral("a"));
    QTextBlockFormat indented;
    indented.setIndent(2);
    art.textCursor().setBlockFormat(indented);
    art.setTextStyle(style);
    const QTextList *list = art.document()->firstBlock().textList();
    QVERIFY(list);
    QTEST(int(list->format().style()), "list");
    QCOMPARE(list->format().indent(), 3);
    QCOMPARE(art.document()->firstBlock().blockFormat().indent(), 0);
    art.setTextStyle(style); // within a list its format goes on
    QCOMPARE(art.document()->firstBlock().textList()->format().indent(), 3);
}

void TestArtTextEditing::styleZeroLeavesTheList()
{
    OpenArtObject art;
    type(art, QStringLiteral("a"));
    art.setTextStyle(2);
    art.setTextStyle(0);
    QVERIFY(!art.document()->firstBlock().textList());
}

void TestArtTextEditing::spacingSettersDoNothing()
{
    OpenArtObject art;
    type(art, QStringLiteral("a"));
    const QString before = art.toHtml();
    art.setLetterSpacing(5);
    art.setRowSpacing(6);
    QCOMPARE(art.m_letterSpacing, 0.0);
    QCOMPARE(art.m_rowSpacing, 0.0);
    QCOMPARE(art.toHtml(), before);
}

void TestArtTextEditing::plainSettersStore()
{
    OpenArtObject art;
    art.setFillColor(Qt::yellow);
    art.setShadowSwitch(true);
    art.setShadowColor(Qt::green);
    art.setShadowOffset(3, 4);
    art.setShadowAbsOffset(1.5, 2.5);
    QCOMPARE(art.m_colorFill, QColor(Qt::yellow));
    QVERIFY(art.m_isShadow);
    QCOMPARE(art.m_colorShadow, QColor(Qt::green));
    QCOMPARE(QPoint(art.m_shadowOffsetX, art.m_shadowOffsetY), QPoint(3, 4));
    QCOMPARE(QPointF(art.m_shadowAbsOffsetX, art.m_shadowAbsOffsetY), QPointF(1.5, 2.5));
}

QTEST_MAIN(TestArtTextEditing)
#include "tst_arttextediting.moc"
