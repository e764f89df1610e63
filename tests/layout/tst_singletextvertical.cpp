// SPDX-License-Identifier: MIT
// Vertical line text and its placeholder. Anchor (100, 10), 96 dpi, 12 points = 16 px.
#include "layouttext.h"

#include "layout/texttools.h"

#include <QtTest>

class TestSingleTextVertical : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsCutAtUprightCharacters();
    void latinAndKanaLieOnTheirSide();
    void uprightInkIsCentredInItsCell();
    void lowInkIsCentredToo();
    void surrogatePairsStayWhole();
    void capitalsAreMadeBeforeTheCut();
    void columnsRunFromRightToLeft();
    void columnDistance_data();
    void columnDistance();
    void spacesAroundBlocksAreCrossedAndCarriedOver();
    void emptyColumn();
    void emptyColumnWithSpacing();
    void emptyColumnFollowsItsAlignment();
    void emptyColumnWithOffset();
    void alignment_data();
    void alignment();
    void letterSpacingCountsTwiceOnItsSide();
    void gapWidensThePieceBefore();
    void offsetMovesToTheRight();
    void scalesStretchThePiece();
    void superAndSubscriptMoveAcross();
    void underlineMovesTheLeftEdgeOnly();
    void underlinedEmptyColumnDoesNotCount();
    void inkRightOfTheColumnWidensIt();
    void placeholderPilesUp();
    void placeholderOfLatinOnly();
    void placeholderAligned_data();
    void placeholderAligned();
};

class ColumnText : public LayoutText
{
public:
    ColumnText()
    {
        m_textOrientation = Qt::Vertical;
        m_textOffset = QPointF(100, 10);
    }
};

static QRectF ink(const TextFragment &run)
{
    return run.path.boundingRect();
}

static QTextCharFormat withSecond(int id, const QVariant &value, int otherId,
                                  const QVariant &otherValue)
{
    QTextCharFormat format = LayoutText::format(12, id, value);
    format.setProperty(otherId, otherValue);
    return format;
}

void TestSingleTextVertical::textIsCutAtUprightCharacters()
{
    ColumnText text;
    text.add(QString::fromUtf8("ab中c。（"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.orientation, Qt::Vertical);
    QCOMPARE(layout.dpi, 96);
    const TextLine &line = layout.lines.first();
    QStringList pieces;
    QList<int> positions;
    QList<bool> upright;
    for (const TextFragment &piece : line.fragments) {
        pieces.append(piece.text);
        positions.append(piece.position);
        upright.append(piece.isCJK);
        QCOMPARE(piece.length, piece.text.length());
    }
    QCOMPARE(pieces, QString::fromUtf8("ab|中|c|。|（").split(QLatin1Char('|')));
    QCOMPARE(positions, (QList<int>{0, 2, 3, 4, 5}));
    QCOMPARE(upright, (QList<bool>{false, true, false, true, true}));
    QCOMPARE(line.length, 6);
    QCOMPARE(line.position, 0);
    QCOMPARE(line.alignment, 0x20);
    QCOMPARE(line.origin, QPointF(100, 10));
    QCOMPARE(line.rect, QRectF(92, 10, 16, 72));
    QCOMPARE(text.rect(), QRectF(92, 10, 16, 72));
}

void TestSingleTextVertical::latinAndKanaLieOnTheirSide()
{
    ColumnText text;
    text.add(QStringLiteral("ab") + QChar(0x3042));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.size(), 1);
    const TextFragment &run = line.fragments.first();
    QVERIFY(!run.isCJK);
    QCOMPARE(run.start, 10.0);
    QCOMPARE(run.advance, 32.0);
    QCOMPARE(run.baseline, 100.0);
    // Turned clockwise: up becomes right. Half of a capital's 8 px to the left. The kana's ink
    // spans 2 below to 12 above the baseline and ends 1 before its cell does.
    QCOMPARE(ink(run), QRectF(94, 11, 14, 30));
    QCOMPARE(run.path.fillRule(), Qt::WindingFill);
}

void TestSingleTextVertical::uprightInkIsCentredInItsCell()
{
    ColumnText text;
    text.add(QString::fromUtf8("a中"));
    const TextLine line = text.layOut().lines.first();
    const TextFragment &run = line.fragments.at(1);
    QCOMPARE(run.start, 18.0);
    QCOMPARE(run.advance, 16.0);
    QCOMPARE(run.baseline, 100.0);
    QCOMPARE(ink(run), QRectF(93, 19, 14, 14));
    QCOMPARE(line.rect, QRectF(92, 10, 16, 24));
}

void TestSingleTextVertical::lowInkIsCentredToo()
{
    ColumnText text;
    text.add(QString::fromUtf8("。")); // 4 x 4 of ink, 1 from the left
    QCOMPARE(ink(text.layOut().lines.first().fragments.first()), QRectF(93, 16, 4, 4));
}

void TestSingleTextVertical::surrogatePairsStayWhole()
{
    ColumnText text;
    const uint rare = 0x20000;
    text.add(QString::fromUcs4(&rare, 1) + QString::fromUtf8("中") + QString::fromUcs4(&rare, 1));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.size(), 3);
    QCOMPARE(line.fragments.at(0).text, QString::fromUcs4(&rare, 1));
    QCOMPARE(line.fragments.at(0).length, 2);
    QCOMPARE(line.fragments.at(1).position, 2);
    QCOMPARE(line.fragments.at(2).text, QString::fromUcs4(&rare, 1));
    QCOMPARE(line.rect.height(), 48.0);
}

void TestSingleTextVertical::capitalsAreMadeBeforeTheCut()
{
    ColumnText text;
    text.add(QString::fromUtf8("aß中ａ"), LayoutText::format(12, TextProperty::UpperCase, true));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.text, QString::fromUtf8("ASS中Ａ"));
    QCOMPARE(line.fragments.at(0).length, 3);
    QCOMPARE(line.fragments.at(1).position, 3);
    QCOMPARE(line.fragments.at(2).text, QString::fromUtf8("Ａ"));
}

void TestSingleTextVertical::columnsRunFromRightToLeft()
{
    ColumnText text;
    text.add(QStringLiteral("a"));
    text.addBlock();
    text.add(QStringLiteral("b"));
    text.addBlock();
    text.add(QStringLiteral("c"), LayoutText::format(24));
    const TextLayout layout = text.layOut();
    // Twice the ascent from centre to centre: right edge 108, next one at 108 - 32 + 8.
    QCOMPARE(layout.lines.at(1).origin, QPointF(76, 10));
    QCOMPARE(layout.lines.at(1).rect, QRectF(68, 10, 16, 8));
    QCOMPARE(layout.lines.at(1).fragments.first().baseline, 76.0);
    QCOMPARE(layout.lines.at(2).origin, QPointF(84 - 24 - 16, 10));
    QCOMPARE(layout.lines.at(2).font.pixelSize(), 32);
    QCOMPARE(text.rect(), QRectF(28, 10, 80, 16));
}

void TestSingleTextVertical::columnDistance_data()
{
    QTest::addColumn<double>("firstPoints");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<double>("x");
    // Centre of the next column; the runs' heights are those of the points and of 12.
    QTest::newRow("automatic") << 12.0 << 0.0 << 0.0 << 108.0 - 24 - 8;
    QTest::newRow("negative is automatic") << 12.0 << -30.0 << -30.0 << 108.0 - 24 - 8;
    QTest::newRow("fixed alone, though tighter") << 12.0 << 3.0 << 6.0 << 108.0 - 8 - 8;
    QTest::newRow("fixed wins over a smaller height") << 12.0 << 0.0 << 30.0 << 108.0 - 40 - 8;
    QTest::newRow("height wins over a smaller fixed") << 12.0 << 9.0 << 0.0 << 108.0 - 24 - 8;
    QTest::newRow("a tie changes nothing: fixed first") << 12.0 << 12.0 << 0.0 << 108.0 - 16 - 8;
    QTest::newRow("a tie changes nothing: automatic first")
        << 12.0 << 0.0 << 12.0 << 108.0 - 24 - 8;
    QTest::newRow("greatest height counts") << 24.0 << 0.0 << 0.0 << 116.0 - 64 + 16 - 8;
}

void TestSingleTextVertical::columnDistance()
{
    QFETCH(double, firstPoints);
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(double, x);
    ColumnText text;
    text.add(QStringLiteral("a"), LayoutText::format(firstPoints, TextProperty::RowSpacing, first));
    QTextCharFormat other = LayoutText::format(12, TextProperty::RowSpacing, second);
    other.setForeground(Qt::red); // a run of its own
    text.add(QStringLiteral("b"), other);
    text.addBlock();
    text.add(QStringLiteral("c"));
    QCOMPARE(text.layOut().lines.at(1).origin.x(), x);
}

void TestSingleTextVertical::spacesAroundBlocksAreCrossedAndCarriedOver()
{
    ColumnText text;
    QTextBlockFormat spaced = LayoutText::block(TextProperty::SpaceAheadOfBlock, 3);
    spaced.setProperty(TextProperty::SpaceBehindBlock, 6.0);
    text.add(QStringLiteral("a"));
    text.setBlock(spaced);
    text.addBlock();
    text.add(QStringLiteral("b"));
    text.addBlock(LayoutText::block(TextProperty::SpaceAheadOfBlock, 3));
    text.add(QStringLiteral("c"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.at(0).origin.x(), 100.0);
    QCOMPARE(layout.lines.at(1).origin.x(), 100.0 - 24 - 8);
    QCOMPARE(layout.lines.at(2).origin.x(), 68.0 - 24 - 4 - 8);
}

void TestSingleTextVertical::emptyColumn()
{
    ColumnText text;
    text.add(QStringLiteral("a"));
    text.addBlock();
    text.addBlock();
    text.add(QStringLiteral("b"));
    const TextLayout layout = text.layOut();
    const TextLine &empty = layout.lines.at(1);
    QVERIFY(empty.isEmptyBlock);
    QCOMPARE(empty.position, 2);
    QCOMPARE(empty.length, 1);
    QCOMPARE(empty.origin, QPointF(76, 10));
    QCOMPARE(empty.rect, QRectF(68, 10, 16, 0));
    const TextFragment &placeholder = empty.fragments.first();
    QVERIFY(placeholder.isEmptyBlock && placeholder.path.isEmpty());
    QCOMPARE(placeholder.start, 10.0);
    QCOMPARE(placeholder.baseline, 76.0);
    QCOMPARE(placeholder.advance, 0.0);
    QCOMPARE(layout.lines.at(2).origin, QPointF(52, 10));
}

void TestSingleTextVertical::emptyColumnWithSpacing()
{
    ColumnText text;
    text.m_cursor->setBlockCharFormat(
        withSecond(TextProperty::RowSpacing, 30.0, TextProperty::LetterSpacing, 500.0));
    text.addBlock();
    text.add(QStringLiteral("a"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.first().origin, QPointF(100, 10));
    QCOMPARE(layout.lines.first().fragments.first().advance, 8.0);
    QCOMPARE(layout.lines.first().rect, QRectF(92, 10, 16, 8));
    QCOMPARE(layout.lines.at(1).origin.x(), 108.0 - 40 - 8);
}

void TestSingleTextVertical::emptyColumnFollowsItsAlignment()
{
    ColumnText text;
    text.add(QStringLiteral("a"));
    QTextBlockFormat block = LayoutText::block(TextProperty::Alignment, 2);
    block.setRightMargin(6);
    text.addBlock(block);
    const TextLine empty = text.layOut().lines.at(1);
    QCOMPARE(empty.alignment, 0x40);
    QCOMPARE(empty.fragments.first().start, 2.0);
    QCOMPARE(empty.rect, QRectF(68, 2, 16, 0));
    QCOMPARE(empty.origin.y(), 10.0);
}

void TestSingleTextVertical::emptyColumnWithOffset()
{
    for (const int offset : {3, -3}) {
        ColumnText text;
        text.add(QStringLiteral("a"));
        text.addBlock({}, LayoutText::format(12, TextProperty::BaselineOffset, offset));
        QCOMPARE(text.layOut().lines.at(1).rect, QRectF(offset > 0 ? 68 : 64, 10, 20, 0));
    }
}

void TestSingleTextVertical::alignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("stored");
    QTest::addColumn<double>("top");
    QTest::newRow("top") << 0x20 << 0x20 << 10.0 + 8 + 12;
    QTest::newRow("left of rows") << 1 << 1 << 10.0 + 8 + 12;
    QTest::newRow("bottom") << 0x40 << 0x40 << 10.0 - 24 - 4 + 12;
    QTest::newRow("centre") << 0x80 << 0x80 << 10.0 - 12 + 12;
    QTest::newRow("right of rows") << 2 << 0x40 << 10.0 - 24 - 4 + 12;
    QTest::newRow("centre of rows") << 4 << 0x80 << 10.0 - 12 + 12;
}

void TestSingleTextVertical::alignment()
{
    QFETCH(int, alignment);
    QFETCH(int, stored);
    QFETCH(double, top);
    ColumnText text;
    text.add(QString::fromUtf8("a中"));
    QTextBlockFormat block = LayoutText::block(TextProperty::Alignment, alignment);
    block.setLeftMargin(6);
    block.setRightMargin(3);
    block.setIndent(9);
    text.setBlock(block);
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.alignment, stored);
    QCOMPARE(line.rect, QRectF(92, top, 16, 24));
    QCOMPARE(line.fragments.at(1).start, top + 8);
    QCOMPARE(line.path.boundingRect().top(), top + 1);
    QCOMPARE(line.origin, QPointF(100, 10));
}

void TestSingleTextVertical::letterSpacingCountsTwiceOnItsSide()
{
    ColumnText text;
    text.add(QString::fromUtf8("ab中"), LayoutText::format(12, TextProperty::LetterSpacing, 500.0));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.at(0).advance, 40.0); // 2 x (8 + 8) and 8 more
    QCOMPARE(line.fragments.at(0).font.letterSpacing(), 8.0);
    QCOMPARE(line.fragments.at(1).advance, 24.0);
    QCOMPARE(line.fragments.at(1).font.letterSpacing(), 0.0);
    QCOMPARE(line.font.letterSpacing(), 0.0);
    QCOMPARE(line.rect, QRectF(92, 10, 16, 64));
}

void TestSingleTextVertical::gapWidensThePieceBefore()
{
    ColumnText text;
    text.add(QString::fromUtf8("a中"), LayoutText::format(12, TextProperty::LeadingGap, 500.0));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.at(0).start, 18.0);
    QCOMPARE(line.fragments.at(0).advance, 16.0);
    QCOMPARE(line.fragments.at(1).start, 34.0);
    QCOMPARE(line.rect, QRectF(92, 18, 16, 32));
}

void TestSingleTextVertical::offsetMovesToTheRight()
{
    for (const int offset : {3, -3}) {
        ColumnText text;
        text.add(QString::fromUtf8("中"),
                 LayoutText::format(12, TextProperty::BaselineOffset, offset));
        const TextLine line = text.layOut().lines.first();
        QCOMPARE(line.fragments.first().baseline, offset > 0 ? 104.0 : 96.0);
        QCOMPARE(ink(line.fragments.first()), QRectF(offset > 0 ? 97 : 89, 11, 14, 14));
        QCOMPARE(line.rect, QRectF(offset > 0 ? 92 : 88, 10, 20, 16));
    }
}

void TestSingleTextVertical::scalesStretchThePiece()
{
    ColumnText text;
    text.add(QString::fromUtf8("中"),
             withSecond(TextProperty::HorizontalScale, 200, TextProperty::VerticalScale, 50));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(ink(line.fragments.first()), QRectF(86, 10.5, 28, 7));
    QCOMPARE(line.fragments.first().advance, 8.0);
    QCOMPARE(line.rect, QRectF(84, 10, 32, 8));
}

void TestSingleTextVertical::superAndSubscriptMoveAcross()
{
    for (const int alignment : {1, 2}) {
        ColumnText text;
        text.add(QStringLiteral("A"),
                 LayoutText::format(12, QTextFormat::TextVerticalAlignment, alignment));
        const TextLine line = text.layOut().lines.first();
        const TextFragment &run = line.fragments.first();
        const qreal movement = alignment == 1 ? 4 : -4; // 16 x 0.5 / 2
        QCOMPARE(run.scaleX, 0.5);
        QCOMPARE(run.scaleY, 0.5);
        QCOMPARE(run.advance, 4.0);
        QCOMPARE(run.baseline, 100 + movement);
        QCOMPARE(ink(run), QRectF(98 + movement, 10.5, 4, 3));
        QCOMPARE(line.rect, QRectF(92, 10, 16, 4)); // the halves are those of the full size
    }
}

void TestSingleTextVertical::underlineMovesTheLeftEdgeOnly()
{
    QTextCharFormat format = LayoutText::format(12, TextProperty::HorizontalScale, 10);
    format.setFontUnderline(true);
    const qreal thickness = CTextTools::getFontLineHeight(format.font());
    ColumnText text;
    text.add(QStringLiteral("A"), format);
    // Halves of 0.8 px; ink from 4 px left of the column, a tenth of it.
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.rect, QRectF(99.6 - thickness, 10, 1.6, 8));

    ColumnText wide;
    format.clearProperty(TextProperty::HorizontalScale);
    wide.add(QStringLiteral("A"), format);
    QCOMPARE(wide.layOut().lines.first().rect, QRectF(92, 10, 16, 8)); // 96 - thickness is inside
}

void TestSingleTextVertical::underlinedEmptyColumnDoesNotCount()
{
    QTextCharFormat format = LayoutText::format();
    format.setFontUnderline(true);
    ColumnText text;
    text.add(QStringLiteral("a"));
    text.addBlock({}, format);
    QCOMPARE(text.layOut().lines.at(1).rect, QRectF(68, 10, 16, 0));
}

void TestSingleTextVertical::inkRightOfTheColumnWidensIt()
{
    // Mirrored across, the halves come to nothing but the ink is still there.
    ColumnText text;
    text.add(QString::fromUtf8("中"), LayoutText::format(12, TextProperty::HorizontalScale, -100));
    QCOMPARE(text.layOut().lines.first().rect, QRectF(100, 10, 7, 16));
}

void TestSingleTextVertical::placeholderPilesUp()
{
    ColumnText text;
    text.m_defaultWord = QString::fromUtf8("A中");
    text.m_cursor->setCharFormat(LayoutText::format());
    CWordManager manager(&text, false);
    manager.layout();
    // Turned "A" is 8 x 6; a full stop is 2 wide; the character is 14 x 14.
    QCOMPARE(manager.textOriRect(), QRectF(93, 10, 14, 22));
    QCOMPARE(manager.textPathRect(), QRectF(93, 10, 14, 22));
    QCOMPARE(manager.cursorLine(0, false), QLineF(93, 10, 107, 10));
    QCOMPARE(manager.textLayout().orientation, Qt::Horizontal);
    QCOMPARE(manager.textLayout().dpi, 72);
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    manager.textPaths(paths, brushes);
    QCOMPARE(paths.at(1).fillRule(), Qt::WindingFill);
    QCOMPARE(paths.at(1).toSubpathPolygons().first().boundingRect(), QRectF(96, 10, 8, 6));
}

void TestSingleTextVertical::placeholderOfLatinOnly()
{
    ColumnText text;
    text.m_defaultWord = QStringLiteral("AB");
    text.m_cursor->setCharFormat(
        withSecond(TextProperty::HorizontalScale, 50, TextProperty::VerticalScale, 200));
    CWordManager manager(&text, false);
    manager.layout();
    QCOMPARE(manager.textOriRect(), QRectF(98, 10, 4, 28));
}

void TestSingleTextVertical::placeholderAligned_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QRectF>("rect");
    QTest::newRow("top") << 1 << 0 << QRectF(93, 10, 14, 14);
    QTest::newRow("bottom") << 0x40 << 0 << QRectF(93, -4, 14, 14);
    QTest::newRow("right of rows") << 2 << 0 << QRectF(93, -4, 14, 14);
    QTest::newRow("centre") << 0x80 << 0 << QRectF(93, 3, 14, 14);
    QTest::newRow("centre of rows") << 4 << 0 << QRectF(93, 3, 14, 14);
    QTest::newRow("moved right") << 1 << 3 << QRectF(93, 10, 18, 14);
    QTest::newRow("moved left") << 1 << -3 << QRectF(89, 10, 18, 14);
}

void TestSingleTextVertical::placeholderAligned()
{
    QFETCH(int, alignment);
    QFETCH(int, offset);
    QFETCH(QRectF, rect);
    ColumnText text;
    text.m_defaultWord = QString::fromUtf8("中");
    text.m_cursor->setBlockFormat(LayoutText::block(TextProperty::Alignment, alignment));
    text.m_cursor->setCharFormat(LayoutText::format(12, TextProperty::BaselineOffset, offset));
    CWordManager manager(&text, false);
    manager.layout();
    QCOMPARE(manager.textOriRect(), rect);
    QCOMPARE(manager.cursorLine(0, false), QLineF(rect.left(), 10, rect.right(), 10));
}

QTEST_MAIN(TestSingleTextVertical)
#include "tst_singletextvertical.moc"
