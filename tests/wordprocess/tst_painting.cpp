// SPDX-License-Identifier: MIT
// What the rich text object paints: content, caret, anchor and baselines, hint; and the picture's end.
#include "openword.h"

#include <QTest>

class TestPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void clickWithoutDragDrawsNoFrame();
    void dragDrawsTheFrameAtTheOrigin();
    void pictureIsPaintedStretched();
    void editedBoxPaintsFromItsDrawRect();
    void editedBoxStaysInPlaceWhereItsInkLeavesTheBox();
    void placeholderBoxIsFaint();
    void warpedPathsArePaintedOutsideEditState();
    void overlappingOutlinesAreFilled();
    void paintingUsesThePaintTransform();

    void invertAreaIsTheSelection();
    void invertAreaIsEmptyOutsideEditState();
    void invertAreaStaysInTheDocument();

    void visibleCaretIsDrawnAndRemembered();
    void darkCaretIsNotDrawn();
    void editedBoxKeepsHandlesInDarkPhase();
    void editedLineTextHasAnchorAndBaselines();
    void baselinesKeepTheirWidthOnScreen();
    void otherItemsHandlesArePaintedWithoutCaret();
    void caretPenIsCosmetic();
    void caretColourStandsOut_data();
    void caretColourStandsOut();

    void hintIsDrawnOnlyForMissingFonts_data();
    void hintIsDrawnOnlyForMissingFonts();
    void hintSitsOnTopOfTheObject();

    void noPictureNothingToLeave();
    void leavingThePictureTakesItsStretch_data();
    void leavingThePictureTakesItsStretch();
    void leavingThePictureKeepsTheCentre();
};

namespace {
const QRgb white = 0xffffffff;

QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

QImage foregroundOf(OpenWord &word)
{
    QImage image(200, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    word.drawForeground(&painter, QRectF(0, 0, 200, 100));
    return image;
}
} // namespace

void TestPainting::clickWithoutDragDrawsNoFrame()
{
    OpenWord word;
    word.m_created = false;
    word.m_pressPos = QPointF(50, 40);
    word.m_dragPos = QPointF(50, 40) * (1 + 1e-14);
    QVERIFY(inkOf(contentOf(word)).isNull());
    word.m_pressPos = QPointF(0, 0);
    word.m_dragPos = QPointF(5e-13, 0);
    QVERIFY(inkOf(contentOf(word)).isNull());
}

void TestPainting::dragDrawsTheFrameAtTheOrigin()
{
    OpenWord word;
    word.m_created = false;
    word.m_pressPos = QPointF(50, 40);
    word.m_dragPos = QPointF(10, 20);
    word.m_clientRect = QRectF(0, 0, 40, 20);
    QCOMPARE(inkOf(contentOf(word)), QRect(2, 2, 37, 17));
}

void TestPainting::pictureIsPaintedStretched()
{
    OpenWord word;
    word.add(QStringLiteral("abcdef"));
    word.m_fontImage = QImage(5, 4, QImage::Format_ARGB32_Premultiplied);
    word.m_fontImage.fill(Qt::red);
    word.m_showFontImage = true;
    word.m_fontImageScaleX = 3;
    word.m_fontImageScaleY = 2;
    const QImage image = contentOf(word);
    QCOMPARE(inkOf(image), QRect(0, 0, 15, 8));
    QCOMPARE(image.pixel(14, 7), QColor(Qt::red).rgba());
    word.m_fontImage = QImage(); // without a picture the text stands
    QVERIFY(inkOf(contentOf(word)).width() > 15);
}

void TestPainting::editedBoxPaintsFromItsDrawRect()
{
    OpenWord word;
    word.add(QStringLiteral("abc"));
    word.m_wordManager->updatePosition(-10, -5, 24, 16);
    word.m_wordWrap = true;
    word.m_editing = true;
    const QPointF way = word.m_clientRect.topLeft() - word.getDrawClientRect().topLeft();
    QVERIFY(!way.isNull());
    QImage image(100, 50, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    word.OnQPainterDraw(&painter);
    QCOMPARE(QPointF(painter.worldTransform().dx(), painter.worldTransform().dy()), way);
    word.m_editing = false;
}

void TestPainting::placeholderBoxIsFaint()
{
    OpenWord word;
    word.updateBoundingRectImpl(true); // the paths of an empty document
    word.m_textPaths = {rectPath(QRectF(0, 0, 20, 20)), rectPath(QRectF(40, 0, 20, 20))};
    word.m_pathBrushes = {QBrush(Qt::red), QBrush(Qt::blue)};
    word.m_clientRect = QRectF(0, 0, 60, 20);
    word.m_morphPaths = {rectPath(QRectF(80, 0, 20, 20)), rectPath(QRectF(80, 0, 20, 20))};
    word.m_pathsArePlaceholder = true;
    const QImage image = contentOf(word);
    const QColor faint(image.pixel(10, 10));
    QCOMPARE(faint.red(), 255);
    QVERIFY2(qAbs(faint.green() - 230) <= 1, qPrintable(faint.name()));
    QCOMPARE(image.pixel(50, 10), QColor(Qt::blue).rgba());
    QCOMPARE(image.pixel(90, 10), white); // the placeholder is never warped
}

void TestPainting::warpedPathsArePaintedOutsideEditState()
{
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("a"));
    word.m_textPaths = {rectPath(QRectF(0, 0, 20, 20))};
    word.m_morphPaths = {rectPath(QRectF(40, 0, 20, 20))};
    word.m_pathBrushes = {QBrush(Qt::red)};
    QCOMPARE(inkOf(contentOf(word)), QRect(40, 0, 20, 20));
    QCOMPARE(contentOf(word).pixel(50, 10), QColor(Qt::red).rgba()); // in full
    word.m_editing = true;
    QCOMPARE(inkOf(contentOf(word)), QRect(0, 0, 20, 20));
    word.m_editing = false;
    word.m_morphPaths.clear();
    QCOMPARE(inkOf(contentOf(word)), QRect(0, 0, 20, 20));
}

void TestPainting::overlappingOutlinesAreFilled()
{
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("a"));
    QPainterPath path = rectPath(QRectF(0, 0, 30, 30));
    path.addRect(QRectF(10, 10, 10, 10));
    path.setFillRule(Qt::OddEvenFill);
    word.m_textPaths = {path};
    word.m_pathBrushes = {QBrush(Qt::black)};
    QCOMPARE(contentOf(word).pixel(15, 15), QColor(Qt::black).rgba());
}

void TestPainting::paintingUsesThePaintTransform()
{
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("a"));
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.m_textPaths = {rectPath(QRectF(2, 3, 4, 5))};
    word.m_pathBrushes = {QBrush(Qt::black)};
    word.m_scaleX = 2;
    word.m_scaleY = 3;
    QCOMPARE(inkOf(contentOf(word)), QRect(4, 9, 8, 15));
    word.setFlip(true, false);
    QCOMPARE(inkOf(contentOf(word)), QRect(4, 26, 8, 15));
    word.setMirror(true, false);
    QCOMPARE(inkOf(contentOf(word)), QRect(88, 26, 8, 15));
}

void TestPainting::invertAreaIsTheSelection()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    word.select(1, 3);
    word.drawEditStatusPath(nullptr);
    QCOMPARE(word.m_drawDelegate->invertArea().boundingRect(), QRectF(8, 0, 16, 16));
    word.m_scaleX = 2;
    word.drawEditStatusPath(nullptr);
    QCOMPARE(word.m_drawDelegate->invertArea().boundingRect(), QRectF(16, 0, 32, 16));
    word.select(2, 2);
    word.drawEditStatusPath(nullptr);
    QVERIFY(word.m_drawDelegate->invertArea().isEmpty());
}

void TestPainting::invertAreaIsEmptyOutsideEditState()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    QPainterPath old = rectPath(QRectF(0, 0, 5, 5));
    word.m_drawDelegate->setInvertArea(old);
    word.select(1, 3);
    contentOf(word);
    QVERIFY(word.m_drawDelegate->invertArea().isEmpty());
}

void TestPainting::invertAreaStaysInTheDocument()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    const auto area = [&](int start, int end) {
        word.select(start, end);
        word.drawEditStatusPath(nullptr);
        return word.m_drawDelegate->invertArea();
    };
    // A document string may hold any selection.
    QVERIFY(!area(2, 4).isEmpty());
    QCOMPARE(area(2, 1000).boundingRect(), area(2, 4).boundingRect());
    QCOMPARE(area(-7, 1).boundingRect(), area(0, 1).boundingRect());
}

void TestPainting::visibleCaretIsDrawnAndRemembered()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    word.setPos(QPointF(30, 20), false);
    word.m_cursor->setPosition(2);
    word.m_cursorVisible = true;
    const QImage image = handlersOf(word);
    QCOMPARE(word.m_cursorLine.p1(), QPointF(46, 20));
    QCOMPARE(word.m_cursorLine.p2(), QPointF(46, 36));
    QCOMPARE(word.m_cursorEndScenePos, QPointF(46, 36));
    QCOMPARE(image.pixel(46, 22), QColor(Qt::black).rgba());
}

void TestPainting::darkCaretIsNotDrawn()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    word.setPos(QPointF(30, 20), false);
    word.m_cursor->setPosition(2);
    word.m_cursorVisible = false;
    QCOMPARE(handlersOf(word).pixel(46, 22), white);
    QVERIFY(word.m_cursorLine.isNull());
    word.m_cursorVisible = true;
    word.m_editing = false;
    handlersOf(word);
    QVERIFY(word.m_cursorLine.isNull());
}

void TestPainting::editedBoxKeepsHandlesInDarkPhase()
{
    OpenWord word;
    word.m_wordWrap = true;
    word.m_wordManager->setWordWrap(true);
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.setControlPointDisable(false);
    word.setShowHandles(&word, true, false);
    word.m_editing = true;
    word.m_cursorVisible = false;
    const QImage handles = handlersOf(word);
    QVERIFY(!inkOf(handles).isNull());
    QImage expected(200, 100, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::white);
    QPainter painter(&expected);
    word.CVXRootObject::paintHandlersInScene(&word, &painter);
    painter.end();
    QCOMPARE(handles, expected);
    word.m_editing = false;
}

void TestPainting::editedLineTextHasAnchorAndBaselines()
{
    OpenWord word;
    word.add(QStringLiteral("abcd\nef"));
    word.beginEdit();
    word.setShowHandles(&word, true, false);
    word.m_cursorVisible = false;
    word.setPos(QPointF(30, 20), false);
    const QImage image = handlersOf(word);
    // Anchor at (30, 32), a square of 4; baselines at 32 and 48, two pixels thick, 32 and 16 long.
    QCOMPARE(image.pixel(28, 30), qRgb(127, 127, 127));
    QCOMPARE(image.pixel(29, 33), qRgb(127, 127, 127));
    for (int y : {32, 48}) {
        const int x = y == 32 ? 55 : 40;
        const QColor line = image.pixelColor(x, y);
        QCOMPARE(line, QColor(127, 127, 127));
    }
    QCOMPARE(image.pixel(55, 48), white);
    // No handles, no frame: nothing right of the longest line but the pen's cap.
    QVERIFY(inkOf(image).right() <= 63);
    QVERIFY(inkOf(image).top() >= 30);

    word.m_editing = false;
    word.setShowHandles(&word, false, false);
    QVERIFY(inkOf(handlersOf(word)).isNull());
}

void TestPainting::baselinesKeepTheirWidthOnScreen()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    word.m_cursorVisible = false;
    word.setPos(QPointF(30, 20), false);
    const auto thickness = [&] {
        const QImage image = handlersOf(word);
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            count += image.pixel(55, y) != white;
        return count;
    };
    QCOMPARE(thickness(), 2);
    host.zoom = 0.25f;
    QCOMPARE(thickness(), 8);
}

void TestPainting::otherItemsHandlesArePaintedWithoutCaret()
{
    OpenWord word;
    OpenWord other;
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    word.m_cursorVisible = true;
    QImage image(200, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    word.paintHandlersInScene(&other, &painter);
    painter.end();
    QVERIFY(inkOf(image).isNull());
    QVERIFY(word.m_cursorLine.isNull());
}

void TestPainting::caretPenIsCosmetic()
{
    OpenWord word;
    word.m_cursorColor = Qt::white;
    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    word.setTextCursorColor(&painter);
    QCOMPARE(painter.pen().widthF(), 2.0);
    QVERIFY(painter.pen().isCosmetic());
    QCOMPARE(painter.pen().color(), QColor(Qt::white));
}

void TestPainting::caretColourStandsOut_data()
{
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("caret");
    const QColor black(Qt::black);
    const QColor bright(Qt::white);
    QTest::newRow("white") << QColor(255, 255, 255) << black;
    QTest::newRow("black") << QColor(0, 0, 0) << bright;
    QTest::newRow("transparent black") << QColor(0, 0, 0, 0) << black;
    QTest::newRow("nearly transparent black") << QColor(0, 0, 0, 1) << bright;
    QTest::newRow("red 0.2126") << QColor(255, 0, 0) << bright;
    QTest::newRow("green 0.7152") << QColor(0, 255, 0) << black;
    QTest::newRow("blue 0.0722") << QColor(0, 0, 255) << bright;
    QTest::newRow("grey 127") << QColor(127, 127, 127) << bright;
    QTest::newRow("grey 128") << QColor(128, 128, 128) << black;
}

void TestPainting::caretColourStandsOut()
{
    QFETCH(QColor, background);
    QFETCH(QColor, caret);
    OpenWord word;
    word.m_cursorColor = Qt::green;
    word.updateCursorColor(background);
    QCOMPARE(word.m_cursorColor, caret);
}

void TestPainting::hintIsDrawnOnlyForMissingFonts_data()
{
    QTest::addColumn<bool>("editing");
    QTest::addColumn<bool>("missing");
    QTest::addColumn<bool>("hint");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("missing, with a hint") << false << true << true << true;
    QTest::newRow("in edit state") << true << true << true << false;
    QTest::newRow("nothing missing") << false << false << true << false;
    QTest::newRow("no hint") << false << true << false << false;
}

void TestPainting::hintIsDrawnOnlyForMissingFonts()
{
    QFETCH(bool, editing);
    QFETCH(bool, missing);
    QFETCH(bool, hint);
    QFETCH(bool, drawn);
    RecordingHost host;
    OpenWord word(&host);
    word.m_clientRect = QRectF(0, 0, 100, 20);
    word.setPos(QPointF(20, 60), false);
    word.m_editing = editing;
    if (missing)
        word.m_missingFonts = QStringList(QStringLiteral("No Such Family"));
    if (hint)
        word.m_missingFontHint = QStringLiteral("ab");
    QCOMPARE(!inkOf(foregroundOf(word)).isNull(), drawn);
    word.m_editing = false;
}

void TestPainting::hintSitsOnTopOfTheObject()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_clientRect = QRectF(0, 0, 100, 20);
    word.setPos(QPointF(20, 60), false);
    word.m_missingFonts = QStringList(QStringLiteral("No Such Family"));
    word.m_missingFontHint = QStringLiteral("ab");
    const QImage image = foregroundOf(word);

    QFont font(loadBoxTestFont());
    font.setPixelSize(96 * 11 / 72);
    QPainterPath path;
    path.addText(0, 0, font, word.m_missingFontHint);
    const QRectF ink = path.boundingRect();
    const QRectF label(20, 60 - (ink.height() + 10), ink.width() + 10, ink.height() + 10);
    const QRgb blue = QColor(0x02, 0x7a, 0xff).rgba();
    QCOMPARE(image.pixel(label.topLeft().toPoint() + QPoint(2, 2)), blue);
    QCOMPARE(image.pixel(int(label.right()) - 2, int(label.top()) + 2), blue);
    QCOMPARE(image.pixel(int(label.right()) + 2, int(label.top()) + 2), white);
    QCOMPARE(image.pixel(70, 80), blue);  // lower edge of the object's frame
    QCOMPARE(image.pixel(70, 70), white); // which is not filled
    // The letters are squares, white inside the padding.
    const QRectF text = ink.translated(label.topLeft() + QPointF(5, 5) - ink.topLeft());
    QCOMPARE(image.pixel(int(text.left()) + 2, int(text.center().y())), white);
    QCOMPARE(image.pixel(int(label.left()) + 2, int(text.center().y())), blue);
}

void TestPainting::noPictureNothingToLeave()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.m_fontImageScaleX = 5;
    word.m_textOffset = QPointF(1, 2);
    word.forgetCalls();
    word.img2paths();
    QCOMPARE(word.m_scaleX, 1.0);
    QCOMPARE(word.m_textOffset, QPointF(1, 2));
    QVERIFY(word.changes.isEmpty());
}

void TestPainting::leavingThePictureTakesItsStretch_data()
{
    QTest::addColumn<double>("rotation");
    QTest::addColumn<bool>("crosswise");
    const QVector<double> straight{0,   45,    89.5, 180,  200,  269.5,
                                   360, -90.5, -100, -180, -271, -300};
    const QVector<double> crosswise{90, 120, 179.5, 270, 300, 359.5, -0.5, -45, -90, -180.5, -270};
    for (double angle : straight)
        QTest::addRow("%g", angle) << angle << false;
    for (double angle : crosswise)
        QTest::addRow("%g", angle) << angle << true;
}

void TestPainting::leavingThePictureTakesItsStretch()
{
    QFETCH(double, rotation);
    QFETCH(bool, crosswise);
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("ab"), OpenWord::format());
    word.m_clientRect = QRectF(0, 0, 60, 40);
    word.m_showFontImage = true;
    word.m_fontImageRotation = rotation;
    word.m_fontImageScaleX = 2;
    word.m_fontImageScaleY = 3;
    word.m_scaleX = 5;
    word.m_scaleY = 7;
    word.img2paths();
    QVERIFY(!word.m_showFontImage);
    QCOMPARE(word.m_scaleX, crosswise ? 15.0 : 10.0);
    QCOMPARE(word.m_scaleY, crosswise ? 14.0 : 21.0);
    QVERIFY(!word.m_textPaths.isEmpty());
}

void TestPainting::leavingThePictureKeepsTheCentre()
{
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("abc"), OpenWord::format());
    word.setPos(QPointF(100, 200), false);
    word.m_clientRect = QRectF(0, 0, 60, 40);
    word.m_showFontImage = true;
    word.img2paths();
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 24, 16));
    QCOMPARE(word.mapToScene(word.m_clientRect.center()), QPointF(130, 220));
    QCOMPARE(word.rotation(), 0.0);
}

void TestPainting::editedBoxStaysInPlaceWhereItsInkLeavesTheBox()
{
    OpenWord word;
    word.m_wordWrap = true;
    word.m_wordManager->setWordWrap(true);
    word.m_clientRect = QRectF(0, 0, 80, 40);
    word.m_editing = true;
    QTextBlockFormat outdented;
    outdented.setLeftMargin(-6); // 8 px
    word.m_cursor->setBlockFormat(outdented);
    word.add(QStringLiteral("ab"));
    QCOMPARE(word.getDrawClientRect().left(), -8.0);

    QImage image(QSize(200, 100), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(50, 20);
    word.paintContent(&painter);
    painter.end();
    QCOMPARE(inkOf(image).left(), 50 - 8 + 1); // the square of a letter stands 1 px in
    word.m_editing = false;
}

QTEST_MAIN(TestPainting)
#include "tst_painting.moc"
