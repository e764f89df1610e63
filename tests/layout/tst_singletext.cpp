// SPDX-License-Identifier: MIT
// Horizontal line text and its placeholder. Anchor (10, 20), 96 dpi, 12 points = 16 px.
#include "layouttext.h"

#include "layout/texttools.h"
#include "layout/units.h"

#include <QtTest>

#include <cmath>

class TestSingleText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstBaselineIsTheAnchor();
    void laterBlocksAddARowDistance();
    void tallestRunSetsFontAndDistance();
    void fixedRowSpacing_data();
    void fixedRowSpacing();
    void emptyFirstBlock();
    void emptyBlockStaysAtTheAnchorInAnyAlignment();
    void rowSpacingOfAnEmptyBlock_data();
    void rowSpacingOfAnEmptyBlock();
    void emptyBlockScalesAndShiftsItsBox();
    void alignment_data();
    void alignment();
    void spacesAroundBlocksAreCrossedAndCarriedOver();
    void offsetRaisesTheRunAndItsBox();
    void scalesStretchTheRun();
    void letterSpacingCountsWholePointsOnly();
    void gapWidensTheRunBefore();
    void gapOfTheFirstRunMovesThePen();
    void superscriptKeepsItsTop();
    void subscriptHangsBelow();
    void superscriptStacksWithScales();
    void blankSuperscriptDoesNotMove();
    void upperCaseIsMeasuredAndShown();
    void underlineThicknessIsInsideTheBox();
    void outlinesHaveWindingFillButNotTheirSums();
    void inkBelowTheBoxesCounts();
    void inkRightOfTheLastRunCounts();
    void stretchOfTheObjectPlaysNoPart();
    void separatorsInsideABlockStayOnTheLine();
    void unreasonableSizesAreBounded_data();
    void unreasonableSizesAreBounded();
    void placeholder_data();
    void placeholder();
};

static QRectF ink(const TextFragment &run)
{
    return run.path.boundingRect();
}

void TestSingleText::firstBaselineIsTheAnchor()
{
    LayoutText text;
    text.add(QStringLiteral("ab"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.orientation, Qt::Horizontal);
    QCOMPARE(layout.dpi, 96);
    QCOMPARE(layout.lines.size(), 1);
    const TextLine &line = layout.lines.first();
    QCOMPARE(line.origin, QPointF(10, 20));
    QCOMPARE(line.position, 0);
    QCOMPARE(line.length, 2);
    QCOMPARE(line.text, QStringLiteral("ab"));
    QCOMPARE(line.alignment, 1);
    QCOMPARE(line.font.pixelSize(), 16);
    QCOMPARE(line.rect, QRectF(10, 8, 16, 16));
    const TextFragment &run = line.fragments.first();
    QCOMPARE(run.start, 10.0);
    QCOMPARE(run.advance, 16.0);
    QCOMPARE(run.baseline, 20.0);
    QCOMPARE(ink(run), QRectF(11, 12, 14, 8));
    QCOMPARE(line.path.boundingRect(), QRectF(11, 12, 14, 8));
    QCOMPARE(text.rect(), QRectF(10, 8, 16, 16));
}

void TestSingleText::laterBlocksAddARowDistance()
{
    LayoutText text;
    text.add(QStringLiteral("a"));
    text.addBlock();
    text.add(QStringLiteral("bcd"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.at(1).origin, QPointF(10, 36));
    QCOMPARE(layout.lines.at(1).position, 2);
    QCOMPARE(text.rect(), QRectF(10, 8, 24, 32));
}

void TestSingleText::tallestRunSetsFontAndDistance()
{
    LayoutText text;
    text.add(QStringLiteral("a"));
    text.addBlock();
    text.add(QStringLiteral("b"));
    text.add(QStringLiteral("c"), LayoutText::format(24));
    text.add(QStringLiteral("d"));
    text.addBlock();
    text.add(QStringLiteral("e"));
    const TextLayout layout = text.layOut();
    const TextLine &line = layout.lines.at(1);
    QCOMPARE(line.font.pixelSize(), 32);
    QCOMPARE(line.origin.y(), 48.0); // 24 + 4 further down
    QCOMPARE(line.rect, QRectF(10, 24, 32, 32));
    QCOMPARE(line.length, 3);
    QCOMPARE(layout.lines.at(2).origin.y(), 68.0); // 12 + 8 further down
}

void TestSingleText::fixedRowSpacing_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<double>("distance");
    QTest::newRow("automatic") << 0.0 << 0.0 << 16.0;
    QTest::newRow("negative is automatic") << -30.0 << 0.0 << 16.0;
    QTest::newRow("all fixed: greatest, though tighter") << 3.0 << 6.0 << 8.0;
    QTest::newRow("mixed: automatic is greater") << 3.0 << 0.0 << 16.0;
    QTest::newRow("mixed: fixed is greater") << 0.0 << 30.0 << 40.0;
}

void TestSingleText::fixedRowSpacing()
{
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(double, distance);
    LayoutText text;
    text.add(QStringLiteral("a"));
    text.addBlock();
    text.add(QStringLiteral("b"), LayoutText::format(12, TextProperty::RowSpacing, first));
    text.add(QStringLiteral("c"), LayoutText::format(12, TextProperty::RowSpacing, second));
    QCOMPARE(text.layOut().lines.at(1).origin.y(), 20 + distance);
}

void TestSingleText::emptyFirstBlock()
{
    LayoutText text;
    text.m_cursor->setBlockCharFormat(LayoutText::format());
    text.addBlock();
    text.add(QStringLiteral("a"));
    const TextLayout layout = text.layOut();
    const TextLine &empty = layout.lines.first();
    QVERIFY(empty.isEmptyBlock);
    QCOMPARE(empty.origin, QPointF(10, 20));
    QCOMPARE(empty.rect, QRectF(10, 8, 0, 16));
    QCOMPARE(empty.position, 0);
    QCOMPARE(empty.length, 1);
    // Its row distance, 12, counts for the rows below although it stands on the anchor itself.
    QCOMPARE(layout.lines.at(1).origin, QPointF(10, 48));
}

void TestSingleText::emptyBlockStaysAtTheAnchorInAnyAlignment()
{
    for (const int alignment : {1, 2, 4, 0x40, 0x80}) {
        LayoutText text;
        text.add(QStringLiteral("abc"));
        QTextBlockFormat block = LayoutText::block(TextProperty::Alignment, alignment);
        block.setLeftMargin(6);
        text.addBlock(block);
        const TextLine empty = text.layOut().lines.at(1);
        QCOMPARE(empty.rect, QRectF(10, 24, 0, 16));
        QCOMPARE(empty.origin, QPointF(10, 36));
        const TextFragment &placeholder = empty.fragments.first();
        QCOMPARE(placeholder.position, 4);
        QVERIFY(placeholder.start == 0 && placeholder.baseline == 0 && placeholder.advance == 0);
        QCOMPARE(placeholder.font, QFont());
    }
}

void TestSingleText::rowSpacingOfAnEmptyBlock_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<double>("distance");
    QTest::newRow("automatic") << 0.0 << 16.0;
    QTest::newRow("fixed") << 30.0 << 40.0;
    QTest::newRow("negative as it stands") << -5.0 << -5.0;
}

void TestSingleText::rowSpacingOfAnEmptyBlock()
{
    QFETCH(double, points);
    QFETCH(double, distance);
    LayoutText text;
    text.add(QStringLiteral("a"));
    text.addBlock({}, LayoutText::format(12, TextProperty::RowSpacing, points));
    QCOMPARE(text.layOut().lines.at(1).origin.y(), 20 + distance);
}

void TestSingleText::emptyBlockScalesAndShiftsItsBox()
{
    for (const int offset : {3, -3}) {
        LayoutText text;
        text.add(QStringLiteral("a"));
        QTextCharFormat format = LayoutText::format(12, TextProperty::VerticalScale, 50);
        format.setProperty(TextProperty::BaselineOffset, offset);
        text.addBlock({}, format);
        const TextLine empty = text.layOut().lines.at(1);
        // Ascent 6, descent 2; 3 points are 4 px.
        QCOMPARE(empty.rect, offset > 0 ? QRectF(10, 26, 0, 12) : QRectF(10, 30, 0, 12));
    }
}

void TestSingleText::alignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("stored");
    QTest::addColumn<double>("left");
    // Margins of 6 and 3 points are 8 and 4 px, the indent of 9 points 12 px; 24 px of text.
    QTest::newRow("left") << 1 << 1 << 10.0 + 8 + 12;
    QTest::newRow("right") << 2 << 2 << 10.0 - 24 - 4 + 12;
    QTest::newRow("centre") << 4 << 4 << 10.0 - 12 + 12;
    QTest::newRow("right of columns") << 0x40 << 2 << 10.0 - 24 - 4 + 12;
    QTest::newRow("centre of columns") << 0x80 << 4 << 10.0 - 12 + 12;
    QTest::newRow("justified") << 8 << 8 << 10.0 + 8 + 12;
}

void TestSingleText::alignment()
{
    QFETCH(int, alignment);
    QFETCH(int, stored);
    QFETCH(double, left);
    LayoutText text;
    text.add(QStringLiteral("abc"));
    QTextBlockFormat block = LayoutText::block(TextProperty::Alignment, alignment);
    block.setLeftMargin(6);
    block.setRightMargin(3);
    block.setIndent(9);
    text.setBlock(block);
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.alignment, stored);
    QCOMPARE(line.rect, QRectF(left, 8, 24, 16));
    QCOMPARE(line.fragments.first().start, left);
    QCOMPARE(line.path.boundingRect(), QRectF(left + 1, 12, 22, 8));
    QCOMPARE(line.origin, QPointF(10, 20));
}

void TestSingleText::spacesAroundBlocksAreCrossedAndCarriedOver()
{
    LayoutText text;
    QTextBlockFormat spaced = LayoutText::block(TextProperty::SpaceAheadOfBlock, 3);
    spaced.setProperty(TextProperty::SpaceBehindBlock, 6.0);
    text.add(QStringLiteral("a"));
    text.setBlock(spaced); // ahead of the first block there is nothing
    text.addBlock();
    text.add(QStringLiteral("b"));
    text.addBlock(LayoutText::block(TextProperty::SpaceAheadOfBlock, 3));
    text.add(QStringLiteral("c"));
    text.addBlock(LayoutText::block(TextProperty::SpaceBehindBlock, 0));
    text.add(QStringLiteral("d"));
    text.addBlock();
    text.add(QStringLiteral("e"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.at(0).origin.y(), 20.0);
    QCOMPARE(layout.lines.at(1).origin.y(), 20.0 + 8 + 16);
    QCOMPARE(layout.lines.at(2).origin.y(), 44.0 + 4 + 8 + 16); // the 8 of the first block again
    QCOMPARE(layout.lines.at(3).origin.y(), 72.0 + 8 + 16);
    QCOMPARE(layout.lines.at(4).origin.y(), 96.0 + 16);
}

void TestSingleText::offsetRaisesTheRunAndItsBox()
{
    LayoutText text;
    text.add(QStringLiteral("A"), LayoutText::format(12, TextProperty::BaselineOffset, 3));
    TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.first().baseline, 16.0);
    QCOMPARE(ink(line.fragments.first()), QRectF(11, 8, 6, 8));
    QCOMPARE(line.rect, QRectF(10, 4, 8, 20));
    QCOMPARE(line.origin, QPointF(10, 20));

    LayoutText lowered;
    lowered.add(QStringLiteral("A"), LayoutText::format(12, TextProperty::BaselineOffset, -3.0));
    line = lowered.layOut().lines.first();
    QCOMPARE(line.fragments.first().baseline, 24.0);
    QCOMPARE(ink(line.fragments.first()), QRectF(11, 16, 6, 8));
    QCOMPARE(line.rect, QRectF(10, 8, 8, 20));
}

void TestSingleText::scalesStretchTheRun()
{
    LayoutText text;
    QTextCharFormat format = LayoutText::format(12, TextProperty::HorizontalScale, 200);
    format.setProperty(TextProperty::VerticalScale, 50);
    text.add(QStringLiteral("a"));
    text.add(QStringLiteral("A"), format);
    const TextLine line = text.layOut().lines.first();
    const TextFragment &run = line.fragments.at(1);
    QCOMPARE(run.start, 18.0);
    QCOMPARE(run.advance, 16.0);
    QCOMPARE(ink(run), QRectF(20, 16, 12, 4));
    QCOMPARE(run.scaleX, 2.0);
    QCOMPARE(run.scaleY, 0.5);
    QCOMPARE(line.rect, QRectF(10, 8, 24, 16));
}

void TestSingleText::letterSpacingCountsWholePointsOnly()
{
    LayoutText text;
    text.m_documentDpi = 72;
    QTextCharFormat format = LayoutText::format(16.75, TextProperty::LetterSpacing, 500.0);
    text.add(QStringLiteral("ab"), format);
    const TextFragment run = text.layOut().lines.first().fragments.first();
    QCOMPARE(run.font.pixelSize(), 16);
    QCOMPARE(run.font.letterSpacing(), 8.0);
    QCOMPARE(run.advance, 32.0);
    QCOMPARE(ink(run).right(), 10 + 8 + 8 + 7.0);
    QCOMPARE(text.layOut().lines.first().font.letterSpacing(), 0.0);
}

void TestSingleText::gapWidensTheRunBefore()
{
    LayoutText text;
    text.add(QStringLiteral("a"));
    text.add(QStringLiteral("b"), LayoutText::format(12, TextProperty::LeadingGap, 500.0));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.at(0).advance, 16.0);
    QCOMPARE(line.fragments.at(1).start, 26.0);
    QCOMPARE(line.fragments.at(1).advance, 8.0);
    QCOMPARE(line.rect, QRectF(10, 8, 24, 16));
}

void TestSingleText::gapOfTheFirstRunMovesThePen()
{
    LayoutText text;
    text.add(QStringLiteral("a"), LayoutText::format(12, TextProperty::LeadingGap, 500.0));
    text.setBlock(LayoutText::block(TextProperty::Alignment, 2));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.first().start, 10.0 + 8 - 16);
    QCOMPARE(line.fragments.first().advance, 8.0);
    QCOMPARE(line.rect, QRectF(2, 8, 8, 16));
}

void TestSingleText::superscriptKeepsItsTop()
{
    LayoutText text;
    text.add(QStringLiteral("A"), LayoutText::format(12, QTextFormat::TextVerticalAlignment,
                                                     QTextCharFormat::AlignSuperScript));
    const TextLine line = text.layOut().lines.first();
    const TextFragment &run = line.fragments.first();
    QCOMPARE(ink(run), QRectF(10.5, 12, 3, 4));
    QCOMPARE(run.baseline, 16.0);
    QCOMPARE(run.advance, 4.0);
    QCOMPARE(run.scaleX, 0.5);
    QCOMPARE(run.scaleY, 0.5);
    QCOMPARE(line.rect, QRectF(10, 8, 4, 16));
}

void TestSingleText::subscriptHangsBelow()
{
    LayoutText text;
    text.add(QStringLiteral("A"), LayoutText::format(12, QTextFormat::TextVerticalAlignment,
                                                     QTextCharFormat::AlignSubScript));
    const TextLine line = text.layOut().lines.first();
    const TextFragment &run = line.fragments.first();
    QCOMPARE(ink(run), QRectF(10.5, 18, 3, 4)); // top at 20 - 4 / 2
    QCOMPARE(run.baseline, 22.0);
    QCOMPARE(line.rect, QRectF(10, 8, 4, 18));
}

void TestSingleText::superscriptStacksWithScales()
{
    QTextCharFormat format = LayoutText::format(12, QTextFormat::TextVerticalAlignment, 1);
    format.setProperty(TextProperty::HorizontalScale, 300);
    format.setProperty(TextProperty::VerticalScale, 200);
    LayoutText text;
    text.add(QStringLiteral("A"), format);
    const TextFragment run = text.layOut().lines.first().fragments.first();
    QCOMPARE(run.scaleX, 1.5);
    QCOMPARE(run.scaleY, 1.0);
    QCOMPARE(run.advance, 12.0);
    QCOMPARE(ink(run), QRectF(11.5, 4, 9, 8)); // the full-size top was 20 - 16
}

void TestSingleText::blankSuperscriptDoesNotMove()
{
    for (const int alignment : {1, 2}) {
        LayoutText text;
        text.add(QStringLiteral("  "),
                 LayoutText::format(12, QTextFormat::TextVerticalAlignment, alignment));
        const TextLine line = text.layOut().lines.first();
        QCOMPARE(line.fragments.first().baseline, 20.0);
        QCOMPARE(line.fragments.first().advance, 8.0);
        QCOMPARE(line.rect, QRectF(10, 8, 8, 16));
        QCOMPARE(text.rect(), QRectF(10, 8, 8, 16));
        QVERIFY(line.path.isEmpty());
    }
}

void TestSingleText::upperCaseIsMeasuredAndShown()
{
    LayoutText text;
    text.add(QStringLiteral("ae"), LayoutText::format(12, TextProperty::UpperCase, true));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.text, QStringLiteral("AE"));
    QCOMPARE(line.path.boundingRect(), QRectF(11, 12, 14, 8));
}

void TestSingleText::underlineThicknessIsInsideTheBox()
{
    QTextCharFormat format = LayoutText::format();
    format.setFontUnderline(true);
    const qreal thickness = CTextTools::getFontLineHeight(format.font());
    QVERIFY(thickness > 0);
    LayoutText text;
    text.add(QStringLiteral("a"));
    text.add(QStringLiteral("b"), format);
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.rect, QRectF(10, 8, 16, 16 + thickness));
    QVERIFY(!line.fragments.at(1).font.underline());
}

void TestSingleText::outlinesHaveWindingFillButNotTheirSums()
{
    LayoutText text;
    text.add(QStringLiteral("a"));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.first().path.fillRule(), Qt::WindingFill);
    QCOMPARE(line.path.fillRule(), Qt::OddEvenFill);
}

void TestSingleText::inkBelowTheBoxesCounts()
{
    // Mirrored about its baseline the run has no ascent or descent left, but its ink hangs down.
    LayoutText text;
    text.add(QStringLiteral("A"), LayoutText::format(12, TextProperty::VerticalScale, -100));
    QCOMPARE(text.layOut().lines.first().rect, QRectF(10, 20, 8, 0));
    QCOMPARE(text.rect(), QRectF(10, 20, 8, 8));
}

void TestSingleText::inkRightOfTheLastRunCounts()
{
    LayoutText text;
    text.add(QStringLiteral("ab"), LayoutText::format(12, TextProperty::LetterSpacing, -250.0));
    const TextLine line = text.layOut().lines.first();
    QCOMPARE(line.fragments.first().advance, 8.0); // 4 px less for each
    QCOMPARE(line.rect, QRectF(10, 8, 11, 16));    // ink of "b" ends at 10 + 4 + 7
}

void TestSingleText::stretchOfTheObjectPlaysNoPart()
{
    class Stretched : public LayoutText
    {
    public:
        Stretched() { m_scaleX = m_scaleY = m_transformScaleX = m_transformScaleY = 2; }
        double sum() const { return m_scaleX + m_scaleY + m_transformScaleX + m_transformScaleY; }
    };
    Stretched text;
    text.add(QStringLiteral("ab"));
    QCOMPARE(text.layOut().lines.first().rect, QRectF(10, 8, 16, 16));
    QCOMPARE(text.sum(), 8.0);
}

void TestSingleText::separatorsInsideABlockStayOnTheLine()
{
    LayoutText text;
    text.add(QStringLiteral("a") + QChar(QChar::LineSeparator) + QStringLiteral("b"));
    const TextLayout layout = text.layOut();
    QCOMPARE(layout.lines.size(), 1);
    QCOMPARE(layout.lines.first().length, 3);
    const QRectF rect = layout.lines.first().rect;
    QVERIFY(std::isfinite(rect.width()) && rect.width() >= 16);
}

void TestSingleText::unreasonableSizesAreBounded_data()
{
    QTest::addColumn<double>("points");
    QTest::newRow("huge") << 1e9;
    QTest::newRow("beyond int") << 1e300;
    QTest::newRow("not a number") << qQNaN();
    QTest::newRow("tiny") << 0.01;
}

void TestSingleText::unreasonableSizesAreBounded()
{
    QFETCH(double, points);
    QTextCharFormat format = LayoutText::format(points);
    format.setFontUnderline(true);
    LayoutText text;
    text.add(QString::fromUtf8("ab中"), format);
    text.addBlock({}, format);
    for (const int orientation : {1, 2}) {
        text.m_textOrientation = orientation;
        const TextLayout layout = text.layOut();
        QCOMPARE(layout.lines.size(), 2);
        QVERIFY(std::isfinite(text.rect().width()) && std::isfinite(text.rect().height()));
        QVERIFY(text.rect().width() < 1e6 && text.rect().height() < 1e6);
        QVERIFY(layout.lines.first().font.pixelSize() <= MaximumPixelSize);
    }
}

void TestSingleText::placeholder_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QRectF>("ink");
    QTest::addColumn<QRectF>("rect");
    // 14 wide, 8 high at (11, 12) without alignment; the horizontal scale is 100, offsets 4 px.
    QTest::newRow("left") << 1 << 0 << QRectF(11, 12, 14, 8) << QRectF(11, 12, 14, 8);
    QTest::newRow("right") << 2 << 0 << QRectF(-3, 12, 14, 8) << QRectF(-3, 12, 14, 8);
    QTest::newRow("right of columns")
        << 0x40 << 0 << QRectF(-3, 12, 14, 8) << QRectF(-3, 12, 14, 8);
    QTest::newRow("centre") << 4 << 0 << QRectF(4, 12, 14, 8) << QRectF(4, 12, 14, 8);
    QTest::newRow("centre of columns") << 0x80 << 0 << QRectF(4, 12, 14, 8) << QRectF(4, 12, 14, 8);
    QTest::newRow("raised") << 1 << 3 << QRectF(11, 8, 14, 8) << QRectF(11, 8, 14, 12);
    QTest::newRow("lowered") << 1 << -3 << QRectF(11, 16, 14, 8) << QRectF(11, 12, 14, 12);
}

void TestSingleText::placeholder()
{
    QFETCH(int, alignment);
    QFETCH(int, offset);
    QFETCH(QRectF, ink);
    QFETCH(QRectF, rect);
    LayoutText text;
    text.m_defaultWord = QStringLiteral("AB");
    text.m_cursor->setBlockFormat(LayoutText::block(TextProperty::Alignment, alignment));
    text.m_cursor->setCharFormat(LayoutText::format(12, TextProperty::BaselineOffset, offset));
    CWordManager manager(&text, false);
    manager.layout();
    QList<QPainterPath> paths;
    QList<QBrush> brushes;
    manager.textPaths(paths, brushes);
    QCOMPARE(paths.at(1).boundingRect(), ink);
    QCOMPARE(paths.at(1).fillRule(), Qt::WindingFill);
    QCOMPARE(manager.textOriRect(), rect);
    QCOMPARE(manager.textPathRect(), rect);
    QCOMPARE(manager.cursorLine(0, false), QLineF(10, rect.top(), 10, rect.bottom()));
    QCOMPARE(manager.textLayout().dpi, 72);
}

QTEST_MAIN(TestSingleText)
#include "tst_singletext.moc"
