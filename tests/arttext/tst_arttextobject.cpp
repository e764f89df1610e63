// SPDX-License-Identifier: MIT
// The object as its host sees it: what it paints, how it is drawn by the pointer, its size and place.
#include "openarttext.h"

#include "arttext/vxtextedit.h"

#include <QApplication>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsView>
#include <QtTest>

namespace {
const QRgb white = qRgb(255, 255, 255);
const QRgb hintGray = qRgb(64, 64, 64);

/// Presses at \a from and releases at \a to, with a move between them when they differ. Scene coordinates.
void drag(OpenArtObject &art, const QPointF &from, const QPointF &to)
{
    const QPointF origin = art.getPos();
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setPos(from - origin);
    press.setScenePos(from);
    press.setButton(Qt::LeftButton);
    art.mousePressEvent(&press);
    QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
    move.setPos(to - origin);
    move.setScenePos(to);
    if (from != to)
        art.mouseMoveEvent(&move);
    QGraphicsSceneMouseEvent release(QEvent::GraphicsSceneMouseRelease);
    release.setPos(to - origin);
    release.setScenePos(to);
    art.mouseReleaseEvent(&release);
}

/// Han in a plain rectangle: one box of ink that fills the client rectangle.
void showBox(OpenArtObject &art)
{
    art.m_shape = 0;
    art.show(QStringLiteral("\u4E2D"), QSizeF(100, 100));
}
} // namespace

class TestArtTextObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // the object
    void newObjectHasItsDefaults();
    void newObjectTakesTheHostsFont();
    void offeredAttributesReplaceTheHosts();
    void knownOperationsAreAllowed_data();
    void knownOperationsAreAllowed();
    void textOperationNeedsText();
    void sidesStayAtSixOrMore();
    void rectangleWithAShortSideBecomesSixBySix();
    void placeComesWithItsSize();
    void textGrowsTheObjectToItsBounds();
    void playSetsItsFlagsOnce();
    void clientPathIsThatOfTheOutlines();

    // painting
    void outlinesAreFilledWithTheHostsFill();
    void penOfWidthZeroDrawsNothing();
    void penIsTheHosts();
    void defaultWordIsDarkGrayWhateverTheColors();
    void defaultWordWithoutPenAndFillIsNotSeen();
    void repaintOfUnchangedObjectRebuildsNothing();
    void otherRectangleRebuilds();
    void rectangleThatRoundsToTheSameRebuildsNothing();
    void editedObjectIsGrayWithAnEdge();
    void visibleOverlayLeavesOnlyAnEdge();

    // drawing by the pointer
    void clickMakesAHundredByHundred();
    void dragMakesTheRectangleBetweenItsEnds();
    void dragLeftAndUpMakesTheSameRectangle();
    void shortDragMakesSixBySix_data();
    void shortDragMakesSixBySix();
    void rectangleFollowsThePointer();
    void hostHearsOnceOfTheNewObject();
    void pressRemembersTheHandle();
    void releaseOfAFinishedObjectKeepsItLarge();
    void selectionShowsHandles();
    void contextMenuIsOnlyNoted();

    // the overlay editor's way in
    void textPositionIsThatInTheView();
    void zoomNearOneCountsAsOne_data();
    void zoomNearOneCountsAsOne();
    void viewPointsNeedAScene();
    void textGoesInAndOutAsItIs();
    void editorIsOwnedAndToldOfTheEnd();
    void editorDeletedByItsParentIsForgotten();
};

void TestArtTextObject::newObjectHasItsDefaults()
{
    OpenArtObject art(nullptr, false);
    QCOMPARE(art.type(), 75747);
    QCOMPARE(art.getObjName(), QStringLiteral("art text"));
    QCOMPARE(art.objectName(), QStringLiteral("wb art text"));
    QVERIFY(!art.m_created);
    QVERIFY(!art.m_colorPen.isValid());
    QCOMPARE(art.m_colorShadow, QColor(QStringLiteral("#FF000000")));
    QCOMPARE(art.m_colorBg, QColor(Qt::white));
    QCOMPARE(art.m_colorFill, QColor(Qt::red));
    QCOMPARE(art.m_textAlignment, 0x84);
    QCOMPARE(art.m_shape, 1);
    QCOMPARE(art.m_timerDelay, 1000);
    QVERIFY(art.m_bgTransparent);
    QVERIFY(art.m_undoEnabled);
    QCOMPARE(art.m_transparent, 0);
    QVERIFY(art.m_textWord.isEmpty() && !art.m_textWord.isNull());
    QVERIFY(art.m_defaultWord.isNull());
    QCOMPARE(art.m_paintedRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
    QVERIFY(!art.m_textEdit);
    QCOMPARE(art.textInteractionFlags(), Qt::TextInteractionFlags(Qt::NoTextInteraction));
    QVERIFY(OpenArtObject(nullptr, true).m_created);
}

void TestArtTextObject::newObjectTakesTheHostsFont()
{
    RecordingHost host;
    host.defaultFontFamily = loadBoxTestFont();
    host.defaultFontSize = 24;
    OpenArtObject art(&host);
    QCOMPARE(art.m_font.family(), loadBoxTestFont());
    QCOMPARE(art.m_font.pointSize(), 24);
    QCOMPARE(art.document()->defaultFont().pointSize(), 24);
    // Eleven letters of 16 px; their ink is 1 to 14 px wide in each.
    const int width = QFontMetrics(art.m_font).boundingRect(QStringLiteral("ABCDEFGHIJK")).width();
    QCOMPARE(art.document()->textWidth(), double(width + 1));
    QCOMPARE(art.m_clientRect, QRectF(0, 0, width + 1, art.document()->size().height()));
}

void TestArtTextObject::offeredAttributesReplaceTheHosts()
{
    OpenArtObject art;
    QCOMPARE(art.attributeIds(), QVector<int>({5001, 5003, 5002, 5004, 5005, 5006, 5007}));
}

void TestArtTextObject::knownOperationsAreAllowed_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<bool>("allowed");
    for (int operation : {0, 1, 2, 10, 11, 20, 21, 24, 30, 31, 32, 34, 36, 200})
        QTest::addRow("%d", operation) << operation << true;
    for (int operation : {-1, 3, 12, 22, 23, 25, 33, 35, 37, 201, 300, 301, 302})
        QTest::addRow("%d", operation) << operation << false;
}

void TestArtTextObject::knownOperationsAreAllowed()
{
    QFETCH(int, operation);
    OpenArtObject art;
    art.setLocked(true, false, false); // the host alone would allow nothing
    QTEST(art.canDo(OperationType(operation)), "allowed");
}

void TestArtTextObject::textOperationNeedsText()
{
    OpenArtObject art;
    QVERIFY(!art.canDo(OP_HasText));
    art.setPlainText(QStringLiteral("a"));
    QVERIFY(art.canDo(OP_HasText));
}

void TestArtTextObject::sidesStayAtSixOrMore()
{
    OpenArtObject art;
    art.setSize(QSizeF(3.0, 40.0), false, false);
    QCOMPARE(art.getSize(), QSizeF(6.0, 40.0));
    art.setSize(QSizeF(50.0, -1.0), false, false);
    QCOMPARE(art.getSize(), QSizeF(50.0, 6.0));
    art.setSize(QSizeF(qQNaN(), 40.0), false, false);
    QCOMPARE(art.getSize(), QSizeF(50.0, 6.0));
}

void TestArtTextObject::rectangleWithAShortSideBecomesSixBySix()
{
    OpenArtObject art;
    for (const QSizeF &size : {QSizeF(5.9, 80), QSizeF(80, 5.9), QSizeF(1, 1)}) {
        art.m_clientRect = QRectF(QPointF(0, 0), size);
        art.LimitClientRect();
        QCOMPARE(art.m_clientRect, QRectF(0, 0, 6, 6));
        QCOMPARE(art.m_clientShape->boundingRect(), QRectF(0, 0, 6, 6));
    }
    art.m_clientRect = QRectF(0, 0, 6, 7);
    art.LimitClientRect();
    QCOMPARE(art.m_clientRect, QRectF(0, 0, 6, 7));
}

void TestArtTextObject::placeComesWithItsSize()
{
    OpenArtObject art;
    art.rectChanges = 0;
    art.updatePosition(&art, QRectF(30, 40, 50, 60));
    QCOMPARE(art.getPos(), QPointF(30, 40));
    QCOMPARE(art.m_clientRect, QRectF(0, 0, 50, 60));
    QCOMPARE(art.m_clientShape->boundingRect(), QRectF(0, 0, 50, 60));
    QCOMPARE(art.rectChanges, 1);
}

void TestArtTextObject::textGrowsTheObjectToItsBounds()
{
    OpenArtObject art;
    art.setSize(QSizeF(50, 60), false, false);
    const double height = art.boundingRect().height();
    QVERIFY(height > 60); // handles stick out
    art.setText(QStringLiteral("a"));
    QCOMPARE(art.m_textWord, QStringLiteral("a"));
    QCOMPARE(art.m_clientRect, QRectF(0, 0, 50, height));
}

void TestArtTextObject::playSetsItsFlagsOnce()
{
    OpenArtObject art;
    art.m_playStep = 3;
    art.StartPlay();
    QVERIFY(art.m_playing);
    QCOMPARE(art.m_playStep, 0);
    art.m_playStep = 3;
    art.StartPlay();
    art.timeoutProcess();
    QCOMPARE(art.m_playStep, 3);
}

void TestArtTextObject::clientPathIsThatOfTheOutlines()
{
    OpenArtObject art;
    showBox(art);
    QCOMPARE(art.getClientPath().boundingRect().toAlignedRect(), QRect(0, 0, 100, 100));
    QCOMPARE(art.getClientPath().elementCount(), art.m_charPaths.first().elementCount());
    art.setPlainText(QString());
    QCOMPARE(art.getClientPath().boundingRect(),
             QRectF(0, 0, 100, 100)); // nothing to show: the box
}

// Painting

void TestArtTextObject::outlinesAreFilledWithTheHostsFill()
{
    OpenArtObject art;
    showBox(art);
    art.setFillProp(fillOf(Qt::blue));
    const QImage image = contentOf(art);
    QCOMPARE(image.pixel(50, 50), qRgb(0, 0, 255));
    QCOMPARE(image.pixel(110, 50), white);
    art.setFillProp(fillOf(Qt::blue, /*enabled=*/false));
    QCOMPARE(contentOf(art).pixel(50, 50), white);
}

void TestArtTextObject::penOfWidthZeroDrawsNothing()
{
    OpenArtObject art;
    showBox(art);
    art.setFillProp(fillOf(Qt::blue));
    art.setMyPen(QPen(Qt::NoPen));
    const QImage without = contentOf(art);
    art.setMyPen(QPen(Qt::red, 0));
    QCOMPARE(contentOf(art), without);
    art.setMyPen(QPen(Qt::red, 4));
    QVERIFY(contentOf(art) != without);
}

void TestArtTextObject::penIsTheHosts()
{
    OpenArtObject art;
    showBox(art);
    art.setFillProp(fillOf(Qt::blue));
    art.setMyPen(QPen(Qt::red, 8));
    const QImage image = contentOf(art);
    QCOMPARE(image.pixel(1, 50), qRgb(255, 0, 0));
    QCOMPARE(image.pixel(50, 50), qRgb(0, 0, 255));
}

void TestArtTextObject::defaultWordIsDarkGrayWhateverTheColors()
{
    OpenArtObject art;
    art.m_defaultWord = QStringLiteral("\u4E2D");
    showBox(art);
    art.setPlainText(QString());
    art.setFillProp(fillOf(Qt::blue));
    for (const QPen &pen : {QPen(Qt::NoPen), QPen(Qt::red, 0), QPen(Qt::red, 8)}) {
        art.setMyPen(pen);
        QCOMPARE(contentOf(art).pixel(50, 50), hintGray);
        QCOMPARE(contentOf(art).pixel(3, 50), hintGray);
    }
}

void TestArtTextObject::defaultWordWithoutPenAndFillIsNotSeen()
{
    OpenArtObject art;
    art.m_defaultWord = QStringLiteral("\u4E2D");
    showBox(art);
    art.setPlainText(QString());
    art.setMyPen(QPen(Qt::NoPen));
    art.setFillProp(fillOf(Qt::blue, /*enabled=*/false));
    QCOMPARE(contentOf(art).pixel(50, 50), white);
}

void TestArtTextObject::repaintOfUnchangedObjectRebuildsNothing()
{
    OpenArtObject art;
    art.show(QStringLiteral("aaa"), QSizeF(100, 100));
    contentOf(art);
    QCOMPARE(art.m_scaledPaths.size(), 3);
    art.m_scaledPaths.resize(1); // would come back
    const QPainterPath *const kept = art.m_scaledPaths.constData();
    contentOf(art);
    QCOMPARE(art.m_scaledPaths.size(), 1);
    QCOMPARE(art.m_scaledPaths.constData(), kept);
}

void TestArtTextObject::otherRectangleRebuilds()
{
    OpenArtObject art;
    showBox(art);
    contentOf(art);
    QCOMPARE(art.m_paintedRect, QRect(0, 0, 100, 100));
    art.setSize(QSizeF(40, 20), false, false);
    const QImage image = contentOf(art);
    QCOMPARE(art.m_paintedRect, QRect(0, 0, 40, 20));
    QVERIFY(image.pixel(20, 10) != white);
    QCOMPARE(image.pixel(20, 30), white);
}

void TestArtTextObject::rectangleThatRoundsToTheSameRebuildsNothing()
{
    OpenArtObject art;
    art.show(QStringLiteral("aaa"), QSizeF(100, 100));
    contentOf(art);
    art.m_scaledPaths.resize(1);
    art.setSize(QSizeF(100.4, 99.6), false, false);
    contentOf(art);
    QCOMPARE(art.m_scaledPaths.size(), 1);
    art.setSize(QSizeF(100.6, 99.6), false, false);
    contentOf(art);
    QCOMPARE(art.m_scaledPaths.size(), 3);
}

void TestArtTextObject::editedObjectIsGrayWithAnEdge()
{
    OpenArtObject art;
    art.show(QString(), QSizeF(100, 100));
    art.m_editing = true;
    const QImage image = contentOf(art);
    QCOMPARE(image.pixel(50, 80), QColor(Qt::gray).rgb());
    QVERIFY(qGray(image.pixel(50, 0)) < qGray(image.pixel(50, 80)));
    QVERIFY(qGray(image.pixel(0, 50)) < qGray(image.pixel(50, 80)));
    QCOMPARE(image.pixel(110, 110), white);
}

void TestArtTextObject::visibleOverlayLeavesOnlyAnEdge()
{
    RecordingHost host;
    OpenArtObject art(&host);
    showBox(art);
    auto *const editor = new CVxTextEdit;
    art.setTextEdit(editor);
    QVERIFY(contentOf(art).pixel(50, 50) != white); // hidden, it changes nothing
    editor->show();
    const QImage image = contentOf(art);
    QCOMPARE(image.pixel(50, 50), white);
    QImage edge(image.size(), image.format());
    edge.fill(Qt::white);
    QPainter painter(&edge);
    painter.setPen(
        QPen(QColor(40, 40, 40, 200), 1.0, Qt::DashDotDotLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRect(QRectF(0, 0, 100, 100));
    painter.end();
    QCOMPARE(image, edge);
}

// Drawing by the pointer

void TestArtTextObject::clickMakesAHundredByHundred()
{
    OpenArtObject art(nullptr, false);
    art.setPos(QPointF(30, 40), false);
    drag(art, QPointF(30, 40), QPointF(30, 40));
    QVERIFY(art.m_created);
    QCOMPARE(art.getPos(), QPointF(30, 40));
    QCOMPARE(art.m_clientRect, QRectF(0, 0, 100, 100));
}

void TestArtTextObject::dragMakesTheRectangleBetweenItsEnds()
{
    OpenArtObject art(nullptr, false);
    art.setPos(QPointF(30, 40), false);
    drag(art, QPointF(30, 40), QPointF(80, 120));
    QVERIFY(art.m_created);
    QCOMPARE(art.getPos(), QPointF(30, 40));
    QCOMPARE(art.m_clientRect, QRectF(0, 0, 50, 80));
    QCOMPARE(art.m_clientShape->boundingRect(), QRectF(0, 0, 50, 80));
}

void TestArtTextObject::dragLeftAndUpMakesTheSameRectangle()
{
    OpenArtObject art(nullptr, false);
    art.setPos(QPointF(80, 120), false);
    drag(art, QPointF(80, 120), QPointF(30, 40));
    QCOMPARE(art.mapRectToScene(art.m_clientRect), QRectF(30, 40, 50, 80));
    QCOMPARE(art.m_clientRect.topLeft(), QPointF(0, 0));
}

void TestArtTextObject::shortDragMakesSixBySix_data()
{
    QTest::addColumn<QPointF>("to");
    QTest::newRow("narrow") << QPointF(5, 80);
    QTest::newRow("low") << QPointF(80, 5);
    QTest::newRow("both") << QPointF(2, 2);
}

void TestArtTextObject::shortDragMakesSixBySix()
{
    QFETCH(QPointF, to);
    OpenArtObject art(nullptr, false);
    drag(art, QPointF(0, 0), to);
    QCOMPARE(art.m_clientRect, QRectF(0, 0, 6, 6));
}

void TestArtTextObject::rectangleFollowsThePointer()
{
    OpenArtObject art(nullptr, false);
    art.setPos(QPointF(10, 10), false);
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setPos(QPointF(0, 0));
    press.setScenePos(QPointF(10, 10));
    art.mousePressEvent(&press);
    QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
    art.rectChanges = 0;
    move.setScenePos(QPointF(40, 30));
    art.mouseMoveEvent(&move);
    QCOMPARE(art.m_clientRect, QRectF(0, 0, 30, 20));
    move.setScenePos(QPointF(4, 30));
    art.mouseMoveEvent(&move);
    QCOMPARE(art.m_clientRect, QRectF(-6, 0, 6, 20));
    QCOMPARE(art.rectChanges, 2);
    QVERIFY(!art.m_created);
}

void TestArtTextObject::hostHearsOnceOfTheNewObject()
{
    RecordingHost host;
    OpenArtObject art(&host, false);
    drag(art, QPointF(0, 0), QPointF(50, 50));
    QCOMPARE(host.eventsOfKind(QStringLiteral("created")).size(), 1);
    drag(art, QPointF(0, 0), QPointF(50, 50)); // now it is moved
    QCOMPARE(host.eventsOfKind(QStringLiteral("created")).size(), 1);
    QCOMPARE(art.getSize(), QSizeF(50, 50));
}

void TestArtTextObject::pressRemembersTheHandle()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host);
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setButton(Qt::LeftButton);
    press.setPos(QPointF(100, 50));
    press.setScenePos(art.mapToScene(press.pos()));
    art.mousePressEvent(&press);
    QVERIFY(!art.m_handlePressed);
    QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
    move.setScenePos(press.scenePos());
    art.mouseMoveEvent(&move);
    QVERIFY(art.m_handlePressed);
    press.setPos(QPointF(200, 100));
    press.setScenePos(art.mapToScene(press.pos()));
    art.mousePressEvent(&press);
    QVERIFY(art.m_handlePressed);
    QCOMPARE(art.m_handleFlag, int(CObjAction::ACT_BottomRight));
    QCOMPARE(art.m_activeHandle, int(CObjAction::ACT_BottomRight));
    art.setSelected(false);
    QCOMPARE(art.m_handleFlag, 0);
}

void TestArtTextObject::releaseOfAFinishedObjectKeepsItLarge()
{
    OpenArtObject art;
    art.m_clientRect = QRectF(0, 0, 2, 50);
    QGraphicsSceneMouseEvent release(QEvent::GraphicsSceneMouseRelease);
    art.mouseReleaseEvent(&release);
    QCOMPARE(art.m_clientRect, QRectF(0, 0, 6, 6));
}

void TestArtTextObject::selectionShowsHandles()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host);
    QVERIFY(art.isShowHandles());
    art.setSelected(false);
    QVERIFY(!art.isShowHandles());
}

void TestArtTextObject::contextMenuIsOnlyNoted()
{
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(30, 40));
    QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
    QTest::ignoreMessage(QtDebugMsg, "CVxArtText::contextMenuEvent");
    art.contextMenuEvent(&event);
    QVERIFY(!art.m_editing);
    QCOMPARE(art.updates, 0);
    QVERIFY(!QApplication::activePopupWidget());
}

// The overlay editor's way in

void TestArtTextObject::textPositionIsThatInTheView()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host);
    art.setPos(QPointF(10.6, 20.4), false);
    host.zoom = 2.0f;
    QCOMPARE(art.getTextPosition(), QRectF(11, 20, 400, 200)); // without a view
    QGraphicsView view(&host.scene());
    view.setSceneRect(0, 0, 300, 300);
    view.resize(200, 200);
    view.scale(2, 2);
    host.view = &view;
    const QRectF position = art.getTextPosition();
    QCOMPARE(position.topLeft().toPoint(), view.mapFromScene(QPointF(11, 20)));
    QCOMPARE(position.size(), QSizeF(400, 200));
    host.view = nullptr;
}

void TestArtTextObject::zoomNearOneCountsAsOne_data()
{
    QTest::addColumn<float>("zoom");
    QTest::addColumn<double>("width");
    QTest::newRow("a little above") << 1.009f << 200.0;
    QTest::newRow("a little below") << 0.991f << 200.0;
    QTest::newRow("above") << 1.25f << 250.0;
    QTest::newRow("below") << 0.5f << 100.0;
}

void TestArtTextObject::zoomNearOneCountsAsOne()
{
    QFETCH(float, zoom);
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host);
    host.zoom = zoom;
    QTEST(art.getTextPosition().width(), "width");
}

void TestArtTextObject::viewPointsNeedAScene()
{
    RecordingHost host;
    QGraphicsView view(&host.scene());
    view.setSceneRect(0, 0, 1000, 1000);
    view.resize(200, 200);
    host.view = &view;
    OpenArtObject lone(&host);
    QCOMPARE(lone.getViewPoint(), QPoint(0, 0));
    QCOMPARE(lone.getViewGlobalPt(QPoint(3, 4)), QPoint(0, 0));
    OpenArtObject &art = *selectedArt(host);
    view.centerOn(500, 500);
    QCOMPARE(art.getViewPoint(), view.mapToScene(QPoint(0, 0)).toPoint());
    QVERIFY(art.getViewPoint() != QPoint(0, 0));
    QCOMPARE(art.getViewGlobalPt(QPoint(3, 4)), view.mapToGlobal(QPoint(3, 4)));
    host.view = nullptr;
    QCOMPARE(art.getViewPoint(), QPoint(0, 0));
    QCOMPARE(art.getViewGlobalPt(QPoint(3, 4)), QPoint(0, 0));
}

void TestArtTextObject::textGoesInAndOutAsItIs()
{
    RecordingHost host;
    OpenArtObject art(&host);
    art.show(QStringLiteral("a"), QSizeF(30, 40));
    art.setPlainText(QStringLiteral("<b>a</b>\r\nb"));
    QCOMPARE(art.updates, 1);
    QCOMPARE(art.getPlainText(), QStringLiteral("<b>a</b>\r\nb"));
    QCOMPARE(art.getTextHtml(), QStringLiteral("<b>a</b>\r\nb"));
    QCOMPARE(art.m_charPaths.size(), 9);
    art.setTextHtml(QStringLiteral("other"));
    QCOMPARE(art.getPlainText(), QStringLiteral("<b>a</b>\r\nb"));
    art.m_clientRect.moveTo(5, 5);
    QCOMPARE(art.GetViewRect(), QRectF(0, 0, 30, 40));
    QCOMPARE(art.GetCurrentPage(), static_cast<IVxPage *>(&host));
}

void TestArtTextObject::editorIsOwnedAndToldOfTheEnd()
{
    RecordingHost host;
    auto *const art = new OpenArtObject(&host);
    QPointer<CVxTextEdit> first(new CVxTextEdit);
    QPointer<CVxTextEdit> second(new CVxTextEdit);
    art->setTextEdit(first);
    first->BeginEdit(art);
    art->setTextEdit(first); // the same again changes nothing
    QVERIFY(first);
    art->setTextEdit(second);
    QVERIFY(!first);
    QCOMPARE(art->textEdit(), second.data());
    second->BeginEdit(art);
    delete art;
    QVERIFY(!second);
}

void TestArtTextObject::editorDeletedByItsParentIsForgotten()
{
    RecordingHost host;
    OpenArtObject art(&host);
    for (bool begun : {false, true}) {
        QWidget window;
        auto *const editor = new CVxTextEdit(&window);
        art.setTextEdit(editor);
        if (begun)
            editor->BeginEdit(&art);
        delete editor;
        QVERIFY(!art.m_textEdit);
    }
}

QTEST_MAIN(TestArtTextObject)
#include "tst_arttextobject.moc"
