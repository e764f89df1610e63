// SPDX-License-Identifier: MIT
// The word that an empty box text shows, and the caret over it. 96 dpi, 12 points = 16 px.
#include "boxtext.h"

#include <QtTest>

class TestBoxPlaceholder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inLines_data();
    void inLines();
    void inColumnsOnItsSide_data();
    void inColumnsOnItsSide();
    void inColumnsUpright_data();
    void inColumnsUpright();
    void firstCharacterDecides();
    void surrogatePairsStayWhole();
    void runPropertiesPlayNoPart();
    void boxIsReportedAsItIs();
    void noWordKeepsTheResultBefore();
    void resolutionCounts();
};

/// What an empty text of \a word reports.
struct Placeholder {
    QPainterPath path;
    QRectF box;
    QRectF area;
    QLineF caret;
    TextLayout layout;
};

static Placeholder placeholderOf(BoxText &text)
{
    CWordManager manager(&text, true);
    manager.layout();
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    manager.textPaths(paths, brushes);
    return {paths.value(1), manager.textOriRect(), manager.textPathRect(),
            manager.cursorLine(0, false), manager.textLayout()};
}

static void prepare(BoxText &text, const QString &word, int alignment = 1)
{
    text.m_defaultWord = word;
    text.m_cursor->setBlockFormat(BoxText::block(TextProperty::Alignment, alignment));
    text.m_cursor->setCharFormat(BoxText::format());
}

void TestBoxPlaceholder::inLines_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("caret");
    // 14 px of ink in 100.
    QTest::newRow("left") << 1 << 0.0 << 2.0;
    QTest::newRow("centre") << 4 << 43.0 << 50.0;
    QTest::newRow("right") << 2 << 86.0 << 98.0;
    QTest::newRow("justified") << 8 << 0.0 << 2.0;
    QTest::newRow("bottom of columns") << 0x40 << 0.0 << 2.0;
    QTest::newRow("centre of columns") << 0x80 << 0.0 << 2.0;
}

void TestBoxPlaceholder::inLines()
{
    QFETCH(int, alignment);
    QFETCH(double, left);
    QFETCH(double, caret);
    BoxText text(100, 50);
    prepare(text, QStringLiteral("AB"), alignment);
    const Placeholder shown = placeholderOf(text);
    QCOMPARE(shown.path.boundingRect(), QRectF(left, 0, 14, 8));
    QCOMPARE(shown.path.fillRule(), Qt::WindingFill);
    QCOMPARE(shown.caret, QLineF(caret, 0, caret, 8));
    QVERIFY(shown.layout.lines.isEmpty());
}

void TestBoxPlaceholder::inColumnsOnItsSide_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<double>("top");
    QTest::addColumn<double>("caret");
    // 14 px of ink in 50.
    QTest::newRow("top") << 0x20 << 0.0 << 5.0;
    QTest::newRow("centre") << 0x80 << 18.0 << 25.0;
    QTest::newRow("bottom") << 0x40 << 36.0 << 45.0;
    QTest::newRow("centre of lines") << 4 << 0.0 << 5.0;
    QTest::newRow("right of lines") << 2 << 0.0 << 5.0;
}

void TestBoxPlaceholder::inColumnsOnItsSide()
{
    QFETCH(int, alignment);
    QFETCH(double, top);
    QFETCH(double, caret);
    BoxText text(100, 50, Qt::Vertical);
    prepare(text, QStringLiteral("AB"), alignment);
    const Placeholder shown = placeholderOf(text);
    QCOMPARE(shown.path.boundingRect(), QRectF(92, top, 8, 14));
    QCOMPARE(shown.caret, QLineF(92, caret, 100, caret));
    QVERIFY(shown.layout.lines.isEmpty());
    QCOMPARE(shown.layout.orientation, Qt::Horizontal);
    QCOMPARE(shown.layout.dpi, 72);
}

void TestBoxPlaceholder::inColumnsUpright_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<double>("top");
    QTest::addColumn<double>("caret");
    // 14 and 6 px of ink, one below the other, in 50.
    QTest::newRow("top") << 0x20 << 0.0 << 5.0;
    QTest::newRow("centre") << 0x80 << 15.0 << 25.0;
    QTest::newRow("bottom") << 0x40 << 30.0 << 45.0;
}

void TestBoxPlaceholder::inColumnsUpright()
{
    QFETCH(int, alignment);
    QFETCH(double, top);
    QFETCH(double, caret);
    BoxText text(100, 50, Qt::Vertical);
    prepare(text, QStringLiteral("中a"), alignment);
    const Placeholder shown = placeholderOf(text);
    QCOMPARE(shown.path.boundingRect(), QRectF(86, top, 14, 20));
    QCOMPARE(shown.path.fillRule(), Qt::OddEvenFill);
    const QList<QPolygonF> parts = shown.path.toSubpathPolygons();
    QCOMPARE(parts.size(), 2);
    QCOMPARE(parts.at(0).boundingRect(), QRectF(86, top, 14, 14));
    QCOMPARE(parts.at(1).boundingRect(), QRectF(86, top + 14, 6, 6)); // all begin at the left
    QCOMPARE(shown.caret, QLineF(86, caret, 100, caret));
}

void TestBoxPlaceholder::firstCharacterDecides()
{
    BoxText text(100, 50, Qt::Vertical);
    prepare(text, QStringLiteral("a中"));
    // As one word on its side: 7 + 16 px long less 2 of margin, "中" 14 high.
    QCOMPARE(placeholderOf(text).path.boundingRect(), QRectF(86, 0, 14, 22));
    prepare(text, QStringLiteral("あ"));
    QCOMPARE(placeholderOf(text).path.boundingRect(), QRectF(86, 0, 14, 14));
}

void TestBoxPlaceholder::surrogatePairsStayWhole()
{
    BoxText text(100, 50, Qt::Vertical);
    prepare(text, QStringLiteral("中𠀀"));
    const Placeholder shown = placeholderOf(text);
    QCOMPARE(shown.path.boundingRect(), QRectF(86, 0, 14, 28));
    QCOMPARE(shown.path.toSubpathPolygons().size(), 2);
}

void TestBoxPlaceholder::runPropertiesPlayNoPart()
{
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        BoxText text(100, 50, orientation);
        prepare(text, QStringLiteral("AB"));
        QTextCharFormat format = formatWith(TextProperty::HorizontalScale, 300,
                                            TextProperty::VerticalScale, 200);
        format.setProperty(TextProperty::BaselineOffset, 3);
        format.setFontUnderline(true);
        format.setFontStrikeOut(true);
        text.m_cursor->setCharFormat(format);
        text.m_scaleX = 2;
        text.m_transformScaleY = 3;
        const bool lying = orientation == Qt::Vertical;
        QCOMPARE(placeholderOf(text).path.boundingRect(),
                 lying ? QRectF(92, 0, 8, 14) : QRectF(0, 0, 14, 8));
    }
}

void TestBoxPlaceholder::boxIsReportedAsItIs()
{
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        for (const bool grows : {false, true}) {
            BoxText text(100, 50, orientation);
            text.setBox(QRectF(7, 9, 100, 50));
            text.m_autoWordWrap = grows;
            prepare(text, QStringLiteral("AB"));
            const Placeholder shown = placeholderOf(text);
            QCOMPARE(shown.box, QRectF(7, 9, 100, 50));
            QCOMPARE(shown.area, QRectF(7, 9, 100, 50));
        }
    }
}

void TestBoxPlaceholder::noWordKeepsTheResultBefore()
{
    BoxText text(100, 50);
    text.add(QStringLiteral("ab"));
    CWordManager manager(&text, true);
    manager.layout();
    text.m_document->clear();
    manager.layout();
    QCOMPARE(manager.textLayout().lines.size(), 1);
    QCOMPARE(manager.textOriRect(), QRectF(0, 0, 100, 50));
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    manager.textPaths(paths, brushes);
    QCOMPARE(paths.size(), 2);
    QCOMPARE(paths.last(), manager.textLayout().lines.first().path); // "ab", as it was
    QVERIFY(!paths.last().isEmpty());
    prepare(text, QStringLiteral("AB"));
    manager.layout();
    QCOMPARE(manager.textLayout().lines.size(), 0);
}

void TestBoxPlaceholder::resolutionCounts()
{
    BoxText text(100, 50);
    prepare(text, QStringLiteral("AB"));
    text.m_documentDpi = 192;
    QCOMPARE(placeholderOf(text).path.boundingRect(), QRectF(0, 0, 28, 16));
}

QTEST_MAIN(TestBoxPlaceholder)
#include "tst_boxplaceholder.moc"
