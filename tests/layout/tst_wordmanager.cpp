// SPDX-License-Identifier: MIT
#include "layouttext.h"

#include <QtTest>

class TestWordManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beforeTheFirstLayoutEverythingIsZero();
    void sameWrapSettingKeepsTheResult();
    void otherWrapSettingStartsEmpty();
    void pathRectCoversTheLastTwoLayouts();
    void movingSetsTheBoxAndLeavesTheLastRect();
    void movingTakesThePlaceholderAlongButNotItsCaret();
    void anyOrientationButOneIsVertical();
    void emptyDocumentPaintsBoxAndPlaceholder();
    void emptyDocumentWithoutPlaceholderStillPaintsTwoEntries();
    void emptyDocumentWithoutPlaceholderKeepsTheLastResult();
    void caretOfAPlaceholderIsOneForAnyPosition();
    void layoutTwiceIsLayoutOnce();
};

void TestWordManager::beforeTheFirstLayoutEverythingIsZero()
{
    LayoutText text;
    text.add(QStringLiteral("a"));
    for (const bool wrap : {false, true}) {
        CWordManager manager(&text, wrap);
        QVERIFY(manager.textLayout().lines.isEmpty());
        QCOMPARE(manager.textLayout().dpi, 72);
        QVERIFY(manager.textPathRect().isNull() && manager.textOriRect().isNull());
        QVERIFY(manager.cursorLine(0, false).isNull());
    }
}

void TestWordManager::sameWrapSettingKeepsTheResult()
{
    LayoutText text;
    text.add(QStringLiteral("a"));
    CWordManager manager(&text, false);
    manager.layout();
    manager.setWordWrap(false);
    QCOMPARE(manager.textLayout().lines.size(), 1);
    QCOMPARE(manager.textOriRect(), QRectF(10, 8, 8, 16));
}

void TestWordManager::otherWrapSettingStartsEmpty()
{
    LayoutText text;
    text.m_textOrientation = Qt::Vertical;
    text.add(QStringLiteral("a"));
    CWordManager manager(&text, false);
    manager.layout();
    QCOMPARE(manager.textLayout().orientation, Qt::Vertical);
    QCOMPARE(manager.textLayout().dpi, 96);
    manager.setWordWrap(true);
    QVERIFY(manager.textLayout().lines.isEmpty());
    QCOMPARE(manager.textLayout().orientation, Qt::Horizontal);
    QCOMPARE(manager.textLayout().dpi, 72);
    QVERIFY(manager.textPathRect().isNull());
    manager.setWordWrap(false);
    manager.layout();
    QCOMPARE(manager.textLayout().lines.size(), 1);
}

void TestWordManager::pathRectCoversTheLastTwoLayouts()
{
    LayoutText text;
    text.add(QStringLiteral("abc"));
    CWordManager manager(&text, false);
    manager.layout();
    QCOMPARE(manager.textPathRect(), QRectF(10, 8, 24, 16));
    text.m_textOffset = QPointF(0, 20);
    text.m_document->clear();
    text.add(QStringLiteral("a"));
    manager.layout();
    QCOMPARE(manager.textOriRect(), QRectF(0, 8, 8, 16));
    QCOMPARE(manager.textPathRect(), QRectF(0, 8, 34, 16));
    manager.layout();
    QCOMPARE(manager.textPathRect(), QRectF(0, 8, 8, 16));
}

void TestWordManager::movingSetsTheBoxAndLeavesTheLastRect()
{
    LayoutText text;
    text.add(QStringLiteral("a"));
    CWordManager manager(&text, false);
    manager.layout();
    manager.layout();
    manager.updatePosition(100, 50, 7, 6);
    QCOMPARE(manager.textOriRect(), QRectF(0, 0, 7, 6));
    QCOMPARE(manager.textPathRect(), QRectF(10, 8, 108, 66)); // (110, 58 8x16) and (10, 8 8x16)
    const TextLine line = manager.textLayout().lines.first();
    QCOMPARE(line.origin, QPointF(110, 70));
    QCOMPARE(line.rect, QRectF(110, 58, 8, 16));
    QCOMPARE(line.fragments.first().start, 110.0);
    QCOMPARE(line.fragments.first().baseline, 70.0);
}

void TestWordManager::movingTakesThePlaceholderAlongButNotItsCaret()
{
    LayoutText text;
    text.m_defaultWord = QStringLiteral("A");
    text.m_cursor->setCharFormat(LayoutText::format());
    CWordManager manager(&text, false);
    manager.layout();
    const QLineF caret = manager.cursorLine(0, false);
    manager.updatePosition(100, 50, 7, 6);
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    manager.textPaths(paths, brushes);
    QCOMPARE(paths.at(0).boundingRect(), QRectF(0, 0, 7, 6));
    QCOMPARE(paths.at(1).boundingRect(), QRectF(111, 62, 6, 8));
    QCOMPARE(manager.cursorLine(0, false), caret);
}

void TestWordManager::anyOrientationButOneIsVertical()
{
    LayoutText text;
    text.add(QStringLiteral("ab"));
    for (const int orientation : {0, 2, 3}) {
        text.m_textOrientation = orientation;
        QCOMPARE(text.layOut().lines.first().rect, QRectF(2, 20, 16, 16));
    }
    text.m_textOrientation = 1;
    QCOMPARE(text.layOut().lines.first().rect, QRectF(10, 8, 16, 16));
}

void TestWordManager::emptyDocumentPaintsBoxAndPlaceholder()
{
    LayoutText text;
    text.m_defaultWord = QStringLiteral("A");
    text.m_cursor->setCharFormat(LayoutText::format());
    CWordManager manager(&text, false);
    manager.layout();
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    manager.textPaths(paths, brushes);
    QCOMPARE(brushes, (QList<QBrush>{QBrush(QColor(QStringLiteral("#2E3C63"))),
                                     QBrush(QColor(QStringLiteral("#a0a0a0")))}));
    QCOMPARE(paths.at(0).boundingRect(), manager.textOriRect());
    QCOMPARE(paths.at(1).boundingRect(), QRectF(11, 12, 6, 8));
}

void TestWordManager::emptyDocumentWithoutPlaceholderStillPaintsTwoEntries()
{
    LayoutText text;
    CWordManager manager(&text, false);
    manager.layout();
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    manager.textPaths(paths, brushes);
    QCOMPARE(paths.size(), 2);
    QCOMPARE(brushes.size(), 2);
}

void TestWordManager::emptyDocumentWithoutPlaceholderKeepsTheLastResult()
{
    LayoutText text;
    text.add(QStringLiteral("ab"));
    CWordManager manager(&text, false);
    manager.layout();
    text.m_document->clear();
    manager.layout();
    QCOMPARE(manager.textLayout().lines.size(), 1);
    QCOMPARE(manager.textOriRect(), QRectF(10, 8, 16, 16));
}

void TestWordManager::caretOfAPlaceholderIsOneForAnyPosition()
{
    LayoutText text;
    text.m_defaultWord = QStringLiteral("A");
    text.m_cursor->setCharFormat(LayoutText::format());
    CWordManager manager(&text, false);
    manager.layout();
    QCOMPARE(manager.cursorLine(0, false), QLineF(10, 12, 10, 20));
    QCOMPARE(manager.cursorLine(5, true), QLineF(10, 12, 10, 20));
}

void TestWordManager::layoutTwiceIsLayoutOnce()
{
    LayoutText text;
    text.add(QStringLiteral("ab"));
    text.addBlock();
    text.addBlock();
    text.add(QString::fromUtf8("中c"));
    for (const int orientation : {1, 2}) {
        text.m_textOrientation = orientation;
        CWordManager manager(&text, false);
        manager.layout();
        const TextLayout once = manager.textLayout();
        manager.layout();
        const TextLayout twice = manager.textLayout();
        QCOMPARE(once.lines.size(), twice.lines.size());
        for (int i = 0; i < once.lines.size(); ++i) {
            QCOMPARE(once.lines.at(i).rect, twice.lines.at(i).rect);
            QCOMPARE(once.lines.at(i).path, twice.lines.at(i).path);
        }
    }
}

QTEST_MAIN(TestWordManager)
#include "tst_wordmanager.moc"
