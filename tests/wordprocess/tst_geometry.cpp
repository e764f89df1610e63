// SPDX-License-Identifier: MIT
// The way from a change to layout, paths, box and anchor, and the two meanings of a new size.
#include "openword.h"

#include <QFontMetricsF>
#include <QTest>

class TestGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // pipeline
    void emptyDocumentIsTwentyByTwenty();
    void lineTextTakesTheBoxOfItsText();
    void secondPassChangesNothing_data();
    void secondPassChangesNothing();
    void olderObjectIsNotLaidOut();
    void newPathsDropTheWarpedOnes();
    void autoBoxFollowsItsText_data();
    void autoBoxFollowsItsText();

    // place
    void boxMovesWithoutItsAnchor_data();
    void boxMovesWithoutItsAnchor();
    void lineTextKeepsItsAnchorOnTheScene_data();
    void lineTextKeepsItsAnchorOnTheScene();
    void growingTextKeepsItsAnchor_data();
    void growingTextKeepsItsAnchor();

    // overhang
    void overhangIsNotMeasuredWithoutBoxText_data();
    void overhangIsNotMeasuredWithoutBoxText();
    void overhangIsWhatReachesBeyondTheBox_data();
    void overhangIsWhatReachesBeyondTheBox();
    void boxWithoutOverhangIsTheClientRect();
    void boxWithoutOverhangUndoesTheStretch();
    void useOfBoundsTakesBoxTextOnly();
    void useOfBoundsMovesTheObject();
    void endOfBoxEditTakesTheOverhang();

    // size
    void presentSizeDoesNothing();
    void newSizeStretchesFinishedObject();
    void newSizeStretchesThePicture();
    void newSizeWithoutBaseDoesNothing();
    void newSizeOfEditedLineTextDoesNothing();
    void newSizeRewrapsEditedBox();
    void newSizeOfEditedBoxWithMissingFontDoesNothing();
    void firstManualResizeEndsTheGrowing();

    // box to line
    void lineTextAndOlderObjectsDoNotUnwrap();
    void oneLineUnwrapsWithoutLineEnds();
    void anchorOfUnwrappedText_data();
    void anchorOfUnwrappedText();
    void anchorOfUnwrappedEmptyText();

    // outline
    void drawRectOfObjectBeingDrawn();
    void drawRectOfEditedBoxCoversItsPaths();
    void outlineIsThatOfThePaintedPaths();
    void outlineOfOlderObject();
    void outlineIsFlippedMirroredStretched_data();
    void outlineIsFlippedMirroredStretched();
};

namespace {
QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

void alignFirstBlock(OpenWord &word, int alignment)
{
    QTextBlockFormat format;
    format.setProperty(TextProperty::Alignment, alignment);
    word.m_cursor->mergeBlockFormat(format);
}
} // namespace

void TestGeometry::emptyDocumentIsTwentyByTwenty()
{
    OpenWord word;
    word.updateBoundingRectImpl(true);
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 20, 20));
    QCOMPARE(word.getSize(), QSizeF(20, 20));
}

void TestGeometry::lineTextTakesTheBoxOfItsText()
{
    OpenWord word;
    word.setPos(QPointF(100, 50), false);
    word.add(QStringLiteral("abc"));
    // The anchor, (100, 50) on the scene, is the baseline's start: ascent 12 above, descent 4 below.
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 24, 16));
    QCOMPARE(word.getPos(), QPointF(100, 38));
    QCOMPARE(word.m_textOffset, QPointF(0, 12));
    QCOMPARE(word.m_textPathsRect, QRectF(0, 0, 24, 16));
    QCOMPARE(word.m_baseSize, QSizeF(24, 16));
    QCOMPARE(word.m_textPaths.size(), word.m_pathBrushes.size());
    QCOMPARE(word.m_clientShape->boundingRect(), word.m_clientRect);
    QVERIFY(word.changes.contains(1002));
}

void TestGeometry::secondPassChangesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("editing");
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("stretch");
    QTest::newRow("empty") << QString() << false << 0.0 << 1.0;
    QTest::newRow("finished") << QStringLiteral("ab\ncde") << false << 0.0 << 1.0;
    QTest::newRow("edited") << QStringLiteral("ab\ncde") << true << 0.0 << 1.0;
    QTest::newRow("turned") << QStringLiteral("ab\ncde") << false << 30.0 << 1.0;
    QTest::newRow("stretched") << QStringLiteral("ab\ncde") << false << 0.0 << 2.5;
}

void TestGeometry::secondPassChangesNothing()
{
    QFETCH(QString, text);
    QFETCH(bool, editing);
    QFETCH(double, angle);
    QFETCH(double, stretch);
    OpenWord word;
    word.add(text);
    word.setRotation(angle);
    word.m_scaleX = stretch;
    if (editing)
        word.beginEdit();
    word.updateBoundingRectImpl(true);
    const QRectF client = word.m_clientRect;
    const QPointF pos = word.getPos();
    const QPointF anchor = word.mapToScene(word.m_textOffset);
    const QPainterPath outline = word.getClientPath();
    word.updateBoundingRectImpl(true);
    QCOMPARE(word.m_clientRect, client);
    QVERIFY(QLineF(word.getPos(), pos).length() < 1e-9);
    QVERIFY(QLineF(word.mapToScene(word.m_textOffset), anchor).length() < 1e-9);
    QCOMPARE(word.getClientPath(), outline);
}

void TestGeometry::olderObjectIsNotLaidOut()
{
    OpenWord word;
    word.m_newVersion = false;
    word.m_cursor->insertText(QStringLiteral("abc"), OpenWord::format());
    word.updateBoundingRect(true);
    QVERIFY(word.m_textPaths.isEmpty());
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 0, 0));
}

void TestGeometry::newPathsDropTheWarpedOnes()
{
    OpenWord word;
    word.add(QStringLiteral("a"));
    word.m_morphPaths = {rectPath(QRectF(0, 0, 5, 5))};
    word.m_morphRect = QRectF(1, 2, 3, 4);
    word.m_clientRect = QRectF(0, 0, 30, 40);
    word.updateTextPaths();
    QVERIFY(word.m_morphPaths.isEmpty());
    QCOMPARE(word.m_morphRect, QRectF(0, 0, 0, 0));
    QCOMPARE(word.m_textPathsRect, QRectF(0, 0, 30, 40));
    QCOMPARE(word.m_baseSize, QSizeF(30, 40));
}

void TestGeometry::autoBoxFollowsItsText_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QSizeF>("expected");
    // Horizontal: the box keeps its width until it is fitted to the text box.
    QTest::newRow("horizontal") << 1 << QSizeF(24, 16);
    QTest::newRow("vertical") << 2 << QSizeF(16, 24);
}

void TestGeometry::autoBoxFollowsItsText()
{
    QFETCH(int, orientation);
    QFETCH(QSizeF, expected);
    // The layout of line text stands in for one whose box differs from the client rectangle.
    OpenWord word;
    word.m_textOrientation = orientation;
    word.m_cursor->insertText(QStringLiteral("abc"), OpenWord::format());
    word.m_wordWrap = true;
    word.m_autoWordWrap = true;
    word.m_clientRect = QRectF(0, 0, 100, 4);
    word.updateBoundingRect(false);
    if (orientation == 1) {
        const QRectF box = word.m_wordManager->textOriRect();
        QCOMPARE(word.m_clientRect, QRectF(0, 0, 100, box.y() + box.height()));
    } else {
        QCOMPARE(word.m_clientRect.size(), word.m_wordManager->textOriRect().size());
    }
    word.updateBoundingRect(true);
    QCOMPARE(word.m_clientRect.size(), expected);
}

void TestGeometry::boxMovesWithoutItsAnchor_data()
{
    QTest::addColumn<bool>("wrap");
    QTest::addColumn<bool>("current");
    QTest::newRow("box text") << true << true;
    QTest::newRow("older line text") << false << false;
}

void TestGeometry::boxMovesWithoutItsAnchor()
{
    QFETCH(bool, wrap);
    QFETCH(bool, current);
    OpenWord word;
    word.m_wordWrap = wrap;
    word.m_newVersion = current;
    word.setPos(QPointF(10, 20), false);
    word.m_textOffset = QPointF(3, 4);
    word.updatePosition(&word, QRectF(5, 6, 30, 40));
    QCOMPARE(word.getPos(), QPointF(5, 6));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 30, 40));
    QCOMPARE(word.m_clientShape->boundingRect(), QRectF(0, 0, 30, 40));
    QCOMPARE(word.m_textOffset, QPointF(3, 4));
    QCOMPARE(word.changes, (QVector<int>{1002}));
}

void TestGeometry::lineTextKeepsItsAnchorOnTheScene_data()
{
    QTest::addColumn<double>("angle");
    QTest::newRow("upright") << 0.0;
    QTest::newRow("turned") << 90.0;
}

void TestGeometry::lineTextKeepsItsAnchorOnTheScene()
{
    QFETCH(double, angle);
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.setPos(QPointF(10, 20), false);
    word.setRotation(angle);
    const QPointF anchor = word.mapToScene(word.m_textOffset);
    const QRectF line = word.m_wordManager->textLayout().lines.first().rect;
    word.forgetCalls();
    word.updatePosition(&word, QRectF(5, 6, 30, 40));
    QCOMPARE(word.getPos(), QPointF(5, 6));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 30, 40));
    QVERIFY(QLineF(word.mapToScene(word.m_textOffset), anchor).length() < 1e-9);
    // The text moves by the item's way, the other way round.
    QCOMPARE(word.m_wordManager->textLayout().lines.first().rect, line.translated(5, 14));
    QCOMPARE(word.m_wordManager->textOriRect(), QRectF(0, 0, 30, 40));
    QCOMPARE(word.changes, (QVector<int>{1002}));
}

void TestGeometry::growingTextKeepsItsAnchor_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<double>("angle");
    for (int alignment : {1, 2, 4}) {
        for (double angle : {0.0, 30.0, 90.0})
            QTest::addRow("alignment %d turned by %g", alignment, angle) << alignment << angle;
    }
}

void TestGeometry::growingTextKeepsItsAnchor()
{
    QFETCH(int, alignment);
    QFETCH(double, angle);
    OpenWord word;
    word.add(QStringLiteral("ab"));
    alignFirstBlock(word, alignment);
    word.updateBoundingRectImpl(true);
    word.rotateObj(angle, false);
    word.beginEdit();
    const QPointF anchor = word.mapToScene(word.m_textOffset);
    for (const QString &text :
         {QStringLiteral("cdef"), QStringLiteral("\n"), QStringLiteral("ghi")}) {
        word.add(text);
        QVERIFY(QLineF(word.mapToScene(word.m_textOffset), anchor).length() < 1e-9);
    }
}

void TestGeometry::overhangIsNotMeasuredWithoutBoxText_data()
{
    QTest::addColumn<bool>("wrap");
    QTest::addColumn<bool>("current");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty document") << true << true << QString();
    QTest::newRow("line text") << false << true << QStringLiteral("ab");
    QTest::newRow("older object") << true << false << QStringLiteral("ab");
}

void TestGeometry::overhangIsNotMeasuredWithoutBoxText()
{
    QFETCH(bool, wrap);
    QFETCH(bool, current);
    QFETCH(QString, text);
    OpenWord word;
    word.m_cursor->insertText(text);
    word.m_wordWrap = wrap;
    word.m_newVersion = current;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.m_textPaths = {rectPath(QRectF(-5, -3, 120, 60))};
    word.m_boundsMargins.left = 1;
    word.m_boundsMargins.top = 2;
    word.m_boundsMargins.right = 3;
    word.m_boundsMargins.bottom = 4;
    QCOMPARE(word.recordOriginalBounds(), QRectF());
    QCOMPARE(word.m_boundsMargins.left, 1.0);
    QCOMPARE(word.m_boundsMargins.top, 2.0);
    QCOMPARE(word.m_boundsMargins.right, 3.0);
    QCOMPARE(word.m_boundsMargins.bottom, 4.0);
}

void TestGeometry::overhangIsWhatReachesBeyondTheBox_data()
{
    QTest::addColumn<QRectF>("first");
    QTest::addColumn<QRectF>("second");
    QTest::addColumn<QRectF>("bounds");
    QTest::addColumn<QVector<double>>("margins");
    QTest::newRow("all sides") << QRectF(-5, -3, 20, 20) << QRectF(50, 30, 65, 27)
                               << QRectF(-5, -3, 120, 60) << QVector<double>{-5, -3, 15, 7};
    QTest::newRow("inside") << QRectF(5, 3, 20, 20) << QRectF(50, 30, 20, 10)
                            << QRectF(0, 0, 100, 50) << QVector<double>{0, 0, 0, 0};
    QTest::newRow("right only") << QRectF(5, 3, 20, 20) << QRectF(90, 30, 20, 10)
                                << QRectF(0, 0, 110, 50) << QVector<double>{0, 0, 10, 0};
}

void TestGeometry::overhangIsWhatReachesBeyondTheBox()
{
    QFETCH(QRectF, first);
    QFETCH(QRectF, second);
    QFETCH(QRectF, bounds);
    QFETCH(QVector<double>, margins);
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("ab"));
    word.m_wordWrap = true;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.m_textPaths = {rectPath(first), rectPath(second)};
    QCOMPARE(word.recordOriginalBounds(), bounds);
    QCOMPARE((QVector<double>{word.m_boundsMargins.left, word.m_boundsMargins.top,
                              word.m_boundsMargins.right, word.m_boundsMargins.bottom}),
             margins);
}

void TestGeometry::boxWithoutOverhangIsTheClientRect()
{
    OpenWord word;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.m_scaleX = 2;
    word.m_wordWrap = true;
    QCOMPARE(word.getClientRectForOribounds(), QRectF(0, 0, 100, 50));
    word.m_boundsMargins.left = -5;
    word.m_wordWrap = false; // line text has no overhang
    QCOMPARE(word.getClientRectForOribounds(), QRectF(0, 0, 100, 50));
}

void TestGeometry::boxWithoutOverhangUndoesTheStretch()
{
    OpenWord word;
    word.m_wordWrap = true;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.m_boundsMargins.left = -5;
    word.m_boundsMargins.top = -3;
    word.m_boundsMargins.right = 15;
    word.m_boundsMargins.bottom = 7;
    word.m_scaleX = 2;
    word.m_scaleY = 3;
    // x = 0 + 5*2, y = 0 + 3*3, right = 100 - 15*2, bottom = 50 - 7*3
    QCOMPARE(word.getClientRectForOribounds(), QRectF(10, 9, 60, 20));
}

void TestGeometry::useOfBoundsTakesBoxTextOnly()
{
    OpenWord word;
    word.setPos(QPointF(10, 20), false);
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.useOriBounds(QRectF(-5, -3, 120, 60));
    QCOMPARE(word.getPos(), QPointF(10, 20));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 100, 50));
    word.m_wordWrap = true;
    for (const QSizeF &size : {QSizeF(0, 60), QSizeF(120, 0), QSizeF(-1, 60), QSizeF(0, 0)})
        word.useOriBounds(QRectF(QPointF(-5, -3), size));
    QCOMPARE(word.getPos(), QPointF(10, 20));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 100, 50));
}

void TestGeometry::useOfBoundsMovesTheObject()
{
    OpenWord word;
    word.m_wordWrap = true;
    word.setPos(QPointF(10, 20), false);
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.useOriBounds(QRectF(-5, -3, 120, 60));
    QCOMPARE(word.getPos(), QPointF(5, 17));
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 120, 60));
    QCOMPARE(word.m_clientShape->boundingRect(), QRectF(0, 0, 120, 60));
    QCOMPARE(word.m_wordManager->textOriRect(), QRectF(0, 0, 120, 60));
    QCOMPARE(word.m_textPathsRect, QRectF(0, 0, 120, 60));
    QCOMPARE(word.m_baseSize, QSizeF(120, 60));
}

void TestGeometry::endOfBoxEditTakesTheOverhang()
{
    // Ink that sticks out of the box is inside the client rectangle once the edit has ended. The
    // manager keeps the layout of line text here, so that there is ink.
    OpenWord word;
    word.m_wordWrap = true;
    word.m_cursor->insertText(QStringLiteral("abc"), OpenWord::format());
    word.m_editing = true;
    word.updateBoundingRect(true);
    word.m_textPaths = {rectPath(QRectF(-5, -3, 40, 30))};
    const QSizeF box = word.m_clientRect.size();
    const QPointF pos = word.getPos();
    word.m_editStartText = QStringLiteral("abc");
    const QRectF bounds = word.recordOriginalBounds();
    QVERIFY(bounds.width() > box.width());
    word.endEdit();
    QVERIFY(!word.m_editing);
    QCOMPARE(word.m_clientRect, QRectF(QPointF(0, 0), bounds.size()));
    QCOMPARE(word.getPos(), pos + bounds.topLeft());
}

void TestGeometry::presentSizeDoesNothing()
{
    RecordingHost host;
    host.recordPreviews = true;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    for (bool editing : {false, true}) {
        word.m_wordWrap = editing;
        word.m_editing = editing;
        word.m_autoWordWrap = true;
        host.clearEvents();
        word.forgetCalls();
        word.setSize(word.m_clientRect.size() * (1 + 1e-15), false, true);
        QVERIFY(word.changes.isEmpty());
        QVERIFY(host.events.isEmpty());
        QVERIFY(word.m_autoWordWrap);
        QCOMPARE(word.m_scaleX, 1.0);
    }
    word.m_editing = false;
}

void TestGeometry::newSizeStretchesFinishedObject()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    QCOMPARE(word.m_baseSize, QSizeF(16, 16));
    const QList<QPainterPath> paths = word.m_textPaths;
    word.setSize(QSizeF(32, 48), false, true);
    QCOMPARE(word.m_scaleX, 2.0);
    QCOMPARE(word.m_scaleY, 3.0);
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 32, 48));
    QCOMPARE(word.m_textPaths, paths);
    QCOMPARE(word.m_baseSize, QSizeF(16, 16));
    word.setSize(QSizeF(8, 16), false, true); // measured against the base, not the present size
    QCOMPARE(word.m_scaleX, 0.5);
    QCOMPARE(word.m_scaleY, 1.0);
}

void TestGeometry::newSizeStretchesThePicture()
{
    OpenWord word;
    word.m_showFontImage = true;
    word.m_baseSize = QSizeF(10, 20);
    word.setSize(QSizeF(30, 80), false, true);
    QCOMPARE(word.m_fontImageScaleX, 3.0);
    QCOMPARE(word.m_fontImageScaleY, 4.0);
    QCOMPARE(word.m_scaleX, 1.0);
    QCOMPARE(word.m_scaleY, 1.0);
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 30, 80));
}

void TestGeometry::newSizeWithoutBaseDoesNothing()
{
    for (const QSizeF &base : {QSizeF(-1, -1), QSizeF(0, 5), QSizeF(5, 0)}) {
        OpenWord word;
        word.m_baseSize = base;
        word.setSize(QSizeF(30, 80), false, true);
        QCOMPARE(word.m_scaleX, 1.0);
        QCOMPARE(word.m_scaleY, 1.0);
        QCOMPARE(word.m_clientRect, QRectF(0, 0, 0, 0));
    }
}

void TestGeometry::newSizeOfEditedLineTextDoesNothing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    const QRectF client = word.m_clientRect;
    host.clearEvents();
    word.forgetCalls();
    word.setSize(QSizeF(100, 100), false, true);
    QCOMPARE(word.m_clientRect, client);
    QCOMPARE(word.m_scaleX, 1.0);
    QVERIFY(word.changes.isEmpty());
    QVERIFY(host.events.isEmpty());
}

void TestGeometry::newSizeRewrapsEditedBox()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_wordWrap = true;
    word.m_wordManager->setWordWrap(true);
    word.m_editing = true;
    word.m_clientRect = QRectF(0, 0, 50, 30);
    word.add(QStringLiteral("abcdefgh")); // 64 px
    QCOMPARE(word.m_wordManager->textLayout().lines.size(), 2);
    host.events.clear();
    word.setSize(QSizeF(80, 60), false, true);
    QCOMPARE(word.m_wordManager->textLayout().lines.size(), 1);
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 80, 60));
    QCOMPARE(word.m_baseSize, QSizeF(80, 60));
    QCOMPARE(word.m_scaleX, 1.0);
    QCOMPARE(word.m_scaleY, 1.0);
    QVERIFY(host.events.isEmpty());
    word.m_editing = false;
}

void TestGeometry::newSizeOfEditedBoxWithMissingFontDoesNothing()
{
    OpenWord word;
    word.m_wordWrap = true;
    word.m_editing = true;
    word.m_clientRect = QRectF(0, 0, 50, 30);
    word.m_missingFonts = QStringList(QStringLiteral("No Such Family"));
    word.setSize(QSizeF(80, 60), false, true);
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 50, 30));
    word.m_replacedFonts = word.m_missingFonts;
    word.m_wordManager->setWordWrap(true);
    word.m_cursor->insertText(QStringLiteral("a"), OpenWord::format());
    word.setSize(QSizeF(80, 60), false, true);
    QCOMPARE(word.m_clientRect, QRectF(0, 0, 80, 60));
    word.m_editing = false;
}

void TestGeometry::firstManualResizeEndsTheGrowing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_wordWrap = true;
    word.m_autoWordWrap = true;
    word.m_wordManager->setWordWrap(true);
    word.m_editing = true;
    word.m_clientRect = QRectF(0, 0, 50, 30);
    word.setSize(QSizeF(80, 60), false, true);
    QVERIFY(!word.m_autoWordWrap);
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    QCOMPARE(host.events.first().values.value(QStringLiteral("text_auto_wordwrap")),
             QVariant(false));
    word.setSize(QSizeF(90, 60), false, true);
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    word.m_editing = false;
}

void TestGeometry::lineTextAndOlderObjectsDoNotUnwrap()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    QPointF offset(7, 8);
    QVERIFY(!word.wordwrap2single(offset));
    word.m_wordWrap = true;
    word.m_newVersion = false;
    QVERIFY(!word.wordwrap2single(offset));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
}

void TestGeometry::oneLineUnwrapsWithoutLineEnds()
{
    OpenWord word;
    word.add(QStringLiteral("abc"));
    word.m_wordWrap = true; // the layout keeps its one line
    QPointF offset;
    QVERIFY(word.wordwrap2single(offset));
    QCOMPARE(word.toPlainText(), QStringLiteral("abc"));
}

void TestGeometry::anchorOfUnwrappedText_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QPointF>("expected");
    // Box 100 x 50, second stretch 2, stretch 4; the font's ascent is 12, its height 16.
    QTest::newRow("left") << 1 << 1 << QPointF(0, 12);
    QTest::newRow("centre") << 1 << 4 << QPointF(25, 12);
    QTest::newRow("right") << 1 << 2 << QPointF(50, 12);
    QTest::newRow("top of column") << 2 << 0x20 << QPointF(4.5, 0);
    QTest::newRow("middle of column") << 2 << 0x80 << QPointF(4.5, 25);
    QTest::newRow("end of column") << 2 << 0x40 << QPointF(4.5, 50);
}

void TestGeometry::anchorOfUnwrappedText()
{
    QFETCH(int, orientation);
    QFETCH(int, alignment);
    QFETCH(QPointF, expected);
    OpenWord word;
    word.m_textOrientation = orientation;
    word.add(QStringLiteral("abc"));
    alignFirstBlock(word, alignment);
    word.m_wordWrap = true;
    word.m_editing = true;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.m_scaleX = 4;
    word.m_transformScaleX = 2;
    QPointF offset(7, 8);
    QVERIFY(word.wordwrap2single(offset));
    QCOMPARE(offset, expected);
    word.m_editing = false;
}

void TestGeometry::anchorOfUnwrappedEmptyText()
{
    OpenWord word;
    QTextCharFormat format = OpenWord::format();
    word.m_cursor->setBlockCharFormat(format);
    word.m_wordWrap = true;
    word.m_editing = true;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.m_scaleX = 4;
    const QFontMetricsF metrics(word.m_cursor->blockCharFormat().font());
    QPointF offset;
    QVERIFY(word.wordwrap2single(offset));
    QCOMPARE(offset, QPointF(0, metrics.ascent()));
    word.m_textOrientation = 2;
    QVERIFY(word.wordwrap2single(offset));
    QCOMPARE(offset, QPointF(100 - metrics.height() / 2, 0));
    word.m_editing = false;
}

void TestGeometry::drawRectOfObjectBeingDrawn()
{
    OpenWord word;
    word.m_created = false;
    word.m_clientRect = QRectF(0, 0, 7, 7);
    word.m_pressPos = QPointF(50, 20);
    word.m_dragPos = QPointF(10, 60);
    QCOMPARE(word.getDrawClientRect(), QRectF(10, 20, 40, 40));
    word.m_created = true;
    QCOMPARE(word.getDrawClientRect(), QRectF(0, 0, 7, 7));
}

void TestGeometry::drawRectOfEditedBoxCoversItsPaths()
{
    OpenWord word;
    word.add(QStringLiteral("abc"));
    word.m_wordManager->updatePosition(-10, -5, 24, 16);
    const QRectF covered = word.m_wordManager->textPathRect();
    QVERIFY(covered.left() < 0);
    QCOMPARE(word.getDrawClientRect(), word.m_clientRect);
    word.m_wordWrap = true;
    QCOMPARE(word.getDrawClientRect(), word.m_clientRect);
    word.m_editing = true;
    QCOMPARE(word.getDrawClientRect(), covered.united(word.m_clientRect));
    word.m_newVersion = false;
    QCOMPARE(word.getDrawClientRect(), word.m_clientRect);
    word.m_editing = false;
}

void TestGeometry::outlineIsThatOfThePaintedPaths()
{
    OpenWord word;
    word.m_textPaths = {rectPath(QRectF(0, 0, 5, 5)), rectPath(QRectF(10, 0, 5, 5))};
    QPainterPath sum;
    sum.addPath(word.m_textPaths.at(0));
    sum.addPath(word.m_textPaths.at(1));
    QCOMPARE(word.getClientPathImpl(), sum);
    word.m_morphPaths = {rectPath(QRectF(1, 1, 2, 2))};
    QCOMPARE(word.getClientPathImpl(), word.m_morphPaths.first());
    word.m_editing = true;
    QCOMPARE(word.getClientPathImpl(), sum);
    word.m_editing = false;
}

void TestGeometry::outlineOfOlderObject()
{
    OpenWord word;
    word.m_newVersion = false;
    word.m_clientRect = QRectF(0, 0, 9, 8);
    word.m_textPaths = {rectPath(QRectF(0, 0, 5, 5))};
    STextItem a;
    a.path = rectPath(QRectF(1, 2, 3, 4));
    STextItem b;
    b.path = rectPath(QRectF(5, 6, 7, 8));
    STextLine first;
    first.items = {a};
    STextLine second;
    second.items = {b};
    word.m_legacyLines = {first, second};
    QPainterPath sum = a.path;
    sum.addPath(b.path);
    QCOMPARE(word.getClientPathImpl(), sum);
    word.m_showFontImage = true;
    QCOMPARE(word.getClientPathImpl(), rectPath(word.m_clientRect));
}

void TestGeometry::outlineIsFlippedMirroredStretched_data()
{
    QTest::addColumn<bool>("flip");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<QRectF>("expected");
    // (2, 3, 4, 5) stretched by (2, 3) is (4, 9, 8, 15) in a client rectangle of 100 x 50.
    QTest::newRow("stretched") << false << false << QRectF(4, 9, 8, 15);
    QTest::newRow("flipped") << true << false << QRectF(4, 26, 8, 15);
    QTest::newRow("mirrored") << false << true << QRectF(88, 9, 8, 15);
    QTest::newRow("both") << true << true << QRectF(88, 26, 8, 15);
}

void TestGeometry::outlineIsFlippedMirroredStretched()
{
    QFETCH(bool, flip);
    QFETCH(bool, mirror);
    QFETCH(QRectF, expected);
    OpenWord word;
    word.m_clientRect = QRectF(0, 0, 100, 50);
    word.m_textPaths = {rectPath(QRectF(2, 3, 4, 5))};
    word.m_scaleX = 2;
    word.m_scaleY = 3;
    word.setFlip(flip, false);
    word.setMirror(mirror, false);
    const QRectF outline = word.getClientPath().boundingRect();
    QVERIFY(QLineF(outline.topLeft(), expected.topLeft()).length() < 1e-9);
    QVERIFY(QLineF(outline.bottomRight(), expected.bottomRight()).length() < 1e-9);
}

QTEST_MAIN(TestGeometry)
#include "tst_geometry.moc"
