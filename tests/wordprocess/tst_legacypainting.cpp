// SPDX-License-Identifier: MIT
// Old text on the page: outlines in their places, bars, selection, caret, clipping, and the default word.
#include "legacylines.h"

#include <QTest>

class TestLegacyPainting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // outlines in rows
    void runsFollowEachOtherByTheirInk();
    void rowsStandOnOneBaseline();
    void superscriptHangsFromTheTopOfItsRow();
    void offsetRaisesARun();
    void leadingBlanksMoveTheInk();
    void gapsLieBehindTheirRun();
    void rowsFollowEachOtherByTheirAdvance();
    void spaceAheadOfABlockLowersIt();
    void rowsAreAligned_data();
    void rowsAreAligned();
    void justifiedRowReachesItsEnd();
    void justifiedCharactersOfRowsKeepTheirOrder();
    void rowWithoutRoomIsNotShown();
    void textBelowItsBoxIsNeitherShownNorHit();
    void clippedRunKeepsItsPlace();
    void lineTextIsNotCutOff();

    // outlines in columns
    void columnsStandFromRightToLeft();
    void uprightCharactersFollowEachOtherDownwards();
    void runsAreCentredInTheirColumn();
    void raisedAndLoweredRunsOfAColumn();
    void offsetMovesARunOfAColumnToTheRight();
    void columnsAreAligned_data();
    void columnsAreAligned();
    void justifiedColumnReachesItsEnd();
    void columnLeftOfItsBoxIsNeitherShownNorHit();

    // painting
    void inkIsPaintedInTheColourOfTheRun();
    void runWithoutAColourIsNotPainted();
    void overlappingOutlinesAreFilled();
    void strikeCrossesTheInkOfARow();
    void underlineLiesAtTheBottomOfTheRow();
    void barsOfAColumnRunDownItsSide();
    void barsFollowTheOffsetOfTheirRun();
    void barsTakeInBlanks();
    void overlineIsNotPainted();
    void boxClipsWhatItPaints();
    void lineTextDoesNotClip();
    void painterIsLeftAsItWas();
    void hintsAreOffBehindIt();
    void nothingIsPaintedWithoutABox();

    // selection
    void selectionFillsEachLineByItself();
    void selectionOfColumns();
    void selectedTextIsTheComplement();
    void selectedBarsAreTheComplement();
    void selectionIsShownInEditStateOnly();
    void selectionBesideALineThatIsLeftOut();
    void selectionKeepsTheCompositionMode();

    // caret
    void caretStandsAtThePosition_data();
    void caretStandsAtThePosition();
    void caretOfColumns_data();
    void caretOfColumns();
    void caretFollowsTheKeysAtAWrap();
    void caretOfAnEmptyParagraph();
    void caretNeverStandsAtAHyphen();
    void caretCountsTheJustifyingSpace();
    void caretGoesForwardWithThePosition_data();
    void caretGoesForwardWithThePosition();
    void caretIsRememberedForTheHost();
    void darkCaretIsNotDrawn();
    void handlersPaintNoSecondCaret();

    // the default word
    void emptyTextShowsFillAndWord();
    void emptyTextInEditStateShowsFrameAndCaret();
    void withoutAWordOnlyTheFillIsShown();
    void defaultWordIsAligned_data();
    void defaultWordIsAligned();
    void defaultWordIsAlignedByARealNumber();
    void defaultWordOfColumns_data();
    void defaultWordOfColumns();
    void defaultWordFollowsTheHostsFont();
    void caretOfTheDefaultWordIsRemembered();
};

namespace {
const QRgb white = 0xffffffff;
const QRgb black = 0xff000000;
const QRgb selectedWhite = 0xff7f7f7f; // half black over it

QRectF inkOf(const OldWord &word, int line, int item = 0)
{
    return word.line(line).items.at(item).path.boundingRect();
}

/// 24 px from row to row, 18 points.
QTextCharFormat pitched()
{
    return OldWord::formatWith(TextProperty::RowSpacing, 18.0);
}

QTextCharFormat large()
{
    QTextCharFormat format = OpenWord::format(24);
    format.setProperty(TextProperty::RowSpacing, 18.0);
    return format;
}

QTextBlockFormat aligned(int alignment)
{
    return OldWord::blockWith(TextProperty::Alignment, alignment);
}

/// What the object paints as content, without smooth edges where they do not matter.
QImage pictureOf(OldWord &word)
{
    return contentOf(word, QSize(120, 120), QPointF(10, 10));
}

QRgb pixelAt(const QImage &picture, int x, int y)
{
    return picture.pixel(x + 10, y + 10);
}

void edit(OldWord &word)
{
    word.beginEdit();
    word.setPos(QPointF(0, 0), false);
    word.m_cursorVisible = false;
}

/// The caret as painting remembers it.
QLineF paintedCaret(OldWord &word, int position)
{
    word.m_cursor->setPosition(position);
    word.m_cursorVisible = true;
    word.m_cursorLine = QLineF();
    pictureOf(word);
    return word.m_cursorLine;
}
} // namespace

// Outlines in rows

void TestLegacyPainting::runsFollowEachOtherByTheirInk()
{
    OldWord word;
    word.addBlock(QStringLiteral("ab"));
    word.addRun(QStringLiteral("国"), large());
    word.layOut();
    QCOMPARE(inkOf(word, 0, 0).x(), 0.0); // without the bearing of the letter
    QCOMPARE(inkOf(word, 0, 0).width(), 14.0);
    QCOMPARE(inkOf(word, 0, 1).x(), 14.0);
    QCOMPARE(inkOf(word, 0, 1).width(), 28.0);
}

void TestLegacyPainting::rowsStandOnOneBaseline()
{
    OldWord word;
    word.addBlock(QStringLiteral("国"), OldWord::block(), large()); // 28 high, 4 of them below
    word.addRun(QStringLiteral("b"), OldWord::format());
    word.addRun(QStringLiteral("g"), pitched());
    word.addRun(QStringLiteral("-"), OldWord::format());
    word.layOut();
    QCOMPARE(inkOf(word, 0, 0), QRectF(0, 0, 28, 28));
    QCOMPARE(inkOf(word, 0, 1), QRectF(28, 16, 6, 8));
    QCOMPARE(inkOf(word, 0, 2), QRectF(34, 18, 6, 8)); // 6 above the baseline at 24, 2 below
    QCOMPARE(inkOf(word, 0, 3), QRectF(40, 20, 6, 1));
}

void TestLegacyPainting::superscriptHangsFromTheTopOfItsRow()
{
    QTextCharFormat raised = OldWord::format();
    raised.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    QTextCharFormat lowered = OldWord::format();
    lowered.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    OldWord word;
    word.addBlock(QStringLiteral("国"), OldWord::block(), large());
    word.addRun(QStringLiteral("b"), raised);
    word.addRun(QStringLiteral("g"), lowered);
    word.layOut();
    QCOMPARE(inkOf(word, 0, 1), QRectF(28, 0, 3, 4));
    QCOMPARE(inkOf(word, 0, 2), QRectF(31, 21, 3, 4)); // from the baseline at 24 half of 2 below
}

void TestLegacyPainting::offsetRaisesARun()
{
    OldWord word;
    word.addBlock(QStringLiteral("国"), OldWord::block(), large());
    word.addRun(QStringLiteral("b"), OldWord::formatWith(TextProperty::BaselineOffset, 6)); // 8 px
    QTextCharFormat raised = OldWord::formatWith(TextProperty::BaselineOffset, -3);
    raised.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    word.addRun(QStringLiteral("b"), raised);
    word.layOut();
    QCOMPARE(inkOf(word, 0, 1).y(), 8.0);
    QCOMPARE(inkOf(word, 0, 2).y(), 4.0);
}

void TestLegacyPainting::leadingBlanksMoveTheInk()
{
    OldWord word;
    word.addBlock(QStringLiteral("  b  "));
    word.addRun(QStringLiteral("b"), pitched());
    word.layOut();
    QCOMPARE(inkOf(word, 0, 0).x(), 16.0);
    QCOMPARE(inkOf(word, 0, 1).x(), 38.0); // 16, 6 of ink, 16
}

void TestLegacyPainting::gapsLieBehindTheirRun()
{
    OldWord word;
    QTextCharFormat spaced = OldWord::formatWith(TextProperty::LetterSpacing, 250.0); // 4 px
    spaced.setProperty(TextProperty::LeadingGap, 125.0);                              // 2 px
    word.addBlock(QStringLiteral(" bb"), OldWord::block(), spaced);
    word.addRun(QStringLiteral("b"), OldWord::format());
    word.layOut();
    // a blank of 8 and 4; letters 8 apart and 4 and 2; behind the run 4 and 2
    QCOMPARE(inkOf(word, 0, 0).x(), 12.0);
    QCOMPARE(inkOf(word, 0, 0).width(), 20.0);
    QCOMPARE(inkOf(word, 0, 1).x(), 38.0);
}

void TestLegacyPainting::rowsFollowEachOtherByTheirAdvance()
{
    OldWord word;
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("b"), OldWord::block(), OldWord::spacedFormat());
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(inkOf(word, 0).y(), 0.0);
    QCOMPARE(inkOf(word, 1).y(), 24.0);
    QCOMPARE(inkOf(word, 2).y(), 40.0); // twice the ink of 8
}

void TestLegacyPainting::spaceAheadOfABlockLowersIt()
{
    OldWord word;
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    QTextBlockFormat format = OldWord::blockWith(TextProperty::SpaceAheadOfBlock, 6.0); // 8 px
    word.addBlock(QStringLiteral("b"), format, pitched());
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(inkOf(word, 1).y(), 32.0);
    QCOMPARE(inkOf(word, 2).y(), 56.0);
}

void TestLegacyPainting::rowsAreAligned_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<double>("x");
    QTest::newRow("left") << int(Qt::AlignLeft) << 12.0; // margin and indent, 8 and 4
    QTest::newRow("right") << int(Qt::AlignRight) << 62.0;
    QTest::newRow("centre") << int(Qt::AlignHCenter) << 37.0;
    QTest::newRow("justified, the last at its start") << 512 << 12.0;
    QTest::newRow("justified, the last centred") << 1024 << 37.0;
    QTest::newRow("justified, the last at its end") << 2048 << 62.0;
    QTest::newRow("an alignment of columns") << 64 << 12.0;
}

void TestLegacyPainting::rowsAreAligned()
{
    QFETCH(int, alignment);
    QFETCH(double, x);
    OldWord word;
    word.makeBox(80, 50);
    QTextBlockFormat format = OldWord::block(6, 3, 3); // 8, 4 and 4 px
    format.setProperty(TextProperty::Alignment, alignment);
    word.addBlock(QStringLiteral("ab"), format); // 14 px of the 64
    word.layOut();
    QCOMPARE(inkOf(word, 0).x(), x);
}

void TestLegacyPainting::justifiedRowReachesItsEnd()
{
    OldWord word;
    word.makeBox(60, 50);
    word.addBlock(QStringLiteral("abc"), aligned(Qt::AlignJustify)); // 22 px
    word.layOut();
    QCOMPARE(inkOf(word, 0), QRectF(0, 0, 60, 8));
    QCOMPARE(word.line(0).width, 22.0);
}

void TestLegacyPainting::justifiedCharactersOfRowsKeepTheirOrder()
{
    OldWord word;
    word.makeBox(81, 50);
    word.addBlock(QStringLiteral("ab"), aligned(Qt::AlignJustify));
    word.addRun(QStringLiteral(" c"), large()); // 16 px of blank, 12 of ink
    word.layOut();
    // 14 and 28 of 81 px leave 13 for each of the three places between four characters
    QCOMPARE(inkOf(word, 0, 0).width(), 27.0);
    QCOMPARE(inkOf(word, 0, 1).x(), 56.0);
}

void TestLegacyPainting::rowWithoutRoomIsNotShown()
{
    OldWord word;
    word.makeBox(40, 50);
    word.addBlock(QStringLiteral("b"), OldWord::block(15, 15), pitched()); // 20 px each
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(word.runs(), (QStringList{QStringLiteral("b"), QStringLiteral("b")}));
    QVERIFY(word.line(0).items.first().path.isEmpty());
    QCOMPARE(inkOf(word, 1), QRectF(0, 24, 6, 8));
    QCOMPARE(word.getClientPath().boundingRect(), QRectF(0, 24, 6, 8));
    QCOMPARE(::inkOf(pictureOf(word)), QRect(10, 34, 6, 8));
}

void TestLegacyPainting::textBelowItsBoxIsNeitherShownNorHit()
{
    OldWord word;
    word.makeBox(40, 32);
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(inkOf(word, 1), QRectF(0, 24, 6, 8)); // to the edge
    word.m_clientRect.setHeight(31);
    word.layOut();
    QVERIFY(word.line(1).items.first().path.isEmpty());
    QCOMPARE(word.line(1).items.first().text, QStringLiteral("b"));
    QCOMPARE(word.getClientPath().boundingRect(), QRectF(0, 0, 6, 8));
}

void TestLegacyPainting::clippedRunKeepsItsPlace()
{
    OldWord word;
    word.makeBox(80, 9);
    word.addBlock(QStringLiteral("b"));
    word.addRun(QStringLiteral("g"), OldWord::formatWith(TextProperty::BaselineOffset, -6));
    word.addRun(QStringLiteral("b"), OldWord::format());
    word.layOut();
    QVERIFY(word.line(0).items.at(1).path.isEmpty());
    QCOMPARE(inkOf(word, 0, 2), QRectF(12, 0, 6, 8));
    QCOMPARE(paintedCaret(word, 2).x1(), 12.0);
    QCOMPARE(word.hCursorPosByMouse(QPointF(11, 4)), 2);
    QCOMPARE(word.hCursorPosByMouse(QPointF(17, 4)), 3);
}

void TestLegacyPainting::lineTextIsNotCutOff()
{
    OldWord word;
    word.addBlock(QStringLiteral("b"));
    word.addRun(QStringLiteral("g"), OldWord::formatWith(TextProperty::BaselineOffset, -60));
    word.layOut();
    QCOMPARE(inkOf(word, 0, 1), QRectF(6, 82, 6, 8));
}

// Outlines in columns

void TestLegacyPainting::columnsStandFromRightToLeft()
{
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("中文"), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("国"), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(word.m_clientRect.size(), QSizeF(38, 33)); // 24 and 14; 28 and 5
    QCOMPARE(inkOf(word, 0, 0), QRectF(24, 0, 14, 14));
    QCOMPARE(inkOf(word, 1, 0), QRectF(0, 0, 14, 14));
}

void TestLegacyPainting::uprightCharactersFollowEachOtherDownwards()
{
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("中a b文"));
    word.layOut();
    QCOMPARE(word.runs(), QStringList{QStringLiteral("中|a b|文")});
    QCOMPARE(inkOf(word, 0, 0), QRectF(0, 0, 14, 14));
    QCOMPARE(inkOf(word, 0, 1).top(), 14.0);
    QCOMPARE(inkOf(word, 0, 1).height(), 22.0);
    QCOMPARE(inkOf(word, 0, 2), QRectF(0, 36, 14, 14));
}

void TestLegacyPainting::runsAreCentredInTheirColumn()
{
    OldWord word(Qt::Vertical);
    word.makeBox(100, 100);
    word.addBlock(QStringLiteral("b"));
    word.addRun(QStringLiteral("国"), large());
    word.layOut();
    QCOMPARE(inkOf(word, 0, 1), QRectF(72, 6, 28, 28)); // the letter on its side is 8 by 6
    QCOMPARE(inkOf(word, 0, 0), QRectF(82, 0, 8, 6));
}

void TestLegacyPainting::raisedAndLoweredRunsOfAColumn()
{
    QTextCharFormat raised = OldWord::format();
    raised.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    QTextCharFormat lowered = OldWord::format();
    lowered.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    OldWord word(Qt::Vertical);
    word.makeBox(100, 100);
    word.addBlock(QStringLiteral("国"), OldWord::block(), large());
    word.addRun(QStringLiteral("b"), raised);
    word.addRun(QStringLiteral("b"), lowered);
    word.layOut();
    QCOMPARE(inkOf(word, 0, 1), QRectF(96, 28, 4, 3)); // at the right side
    QCOMPARE(inkOf(word, 0, 2), QRectF(72, 31, 4, 3)); // at the left
}

void TestLegacyPainting::offsetMovesARunOfAColumnToTheRight()
{
    OldWord word(Qt::Vertical);
    word.makeBox(100, 100);
    word.addBlock(QStringLiteral("国"), OldWord::block(), large());
    word.addRun(QStringLiteral("b"), OldWord::formatWith(TextProperty::BaselineOffset, 3));
    word.layOut();
    QCOMPARE(inkOf(word, 0, 1), QRectF(86, 28, 8, 6));
}

void TestLegacyPainting::columnsAreAligned_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<double>("y");
    QTest::newRow("top") << int(Qt::AlignTop) << 8.0;
    QTest::newRow("bottom") << int(Qt::AlignBottom) << 52.0;
    QTest::newRow("middle") << int(Qt::AlignVCenter) << 30.0;
    QTest::newRow("an alignment of rows") << int(Qt::AlignRight) << 8.0;
}

void TestLegacyPainting::columnsAreAligned()
{
    QFETCH(int, alignment);
    QFETCH(double, y);
    OldWord word(Qt::Vertical);
    word.makeBox(50, 80);
    QTextBlockFormat format = OldWord::block(6, 0);
    format.setProperty(TextProperty::Alignment, alignment);
    word.addBlock(QStringLiteral("中文"), format); // 28 px of the 72
    word.layOut();
    QCOMPARE(inkOf(word, 0).y(), y);
}

void TestLegacyPainting::justifiedColumnReachesItsEnd()
{
    OldWord word(Qt::Vertical);
    word.makeBox(50, 80);
    word.addBlock(QStringLiteral("中文国"), aligned(256)); // 42 px; 19 between each two
    word.layOut();
    QCOMPARE(inkOf(word, 0, 0).y(), 0.0);
    QCOMPARE(inkOf(word, 0, 1).y(), 33.0);
    QCOMPARE(inkOf(word, 0, 2).bottom(), 80.0);
}

void TestLegacyPainting::columnLeftOfItsBoxIsNeitherShownNorHit()
{
    OldWord word(Qt::Vertical);
    word.makeBox(38, 40);
    word.addBlock(QStringLiteral("中"), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("国"), OldWord::block(), pitched());
    word.layOut();
    QCOMPARE(inkOf(word, 1), QRectF(0, 0, 14, 14)); // to the edge
    word.m_clientRect.setWidth(37);
    word.layOut();
    QVERIFY(word.line(1).items.first().path.isEmpty());
    QCOMPARE(word.getClientPath().boundingRect(), QRectF(23, 0, 14, 14));
}

// Painting

void TestLegacyPainting::inkIsPaintedInTheColourOfTheRun()
{
    QTextCharFormat red = OldWord::format();
    red.setForeground(Qt::red);
    OldWord word;
    word.addBlock(QStringLiteral("b"));
    word.addRun(QStringLiteral("b"), red);
    word.layOut();
    const QImage picture = pictureOf(word);
    QCOMPARE(::inkOf(picture), QRect(10, 10, 12, 8));
    QCOMPARE(pixelAt(picture, 3, 4), black);
    QCOMPARE(pixelAt(picture, 9, 4), 0xffff0000);
}

void TestLegacyPainting::runWithoutAColourIsNotPainted()
{
    QTextCharFormat plain = OldWord::format();
    plain.clearProperty(QTextFormat::ForegroundBrush);
    OldWord word;
    word.addBlock(QStringLiteral("b"), OldWord::block(), plain);
    edit(word);
    word.layOut();
    word.select(0, 1);
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 2, 4), white);
}

void TestLegacyPainting::overlappingOutlinesAreFilled()
{
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(),
                  OldWord::formatWith(TextProperty::LetterSpacing, -300.0)); // 5 px nearer, 3 apart
    word.layOut();
    const QImage picture = pictureOf(word);
    for (int x = 0; x < 9; ++x)
        QCOMPARE(pixelAt(picture, x, 4), black);
}

void TestLegacyPainting::strikeCrossesTheInkOfARow()
{
    QTextCharFormat struck = large();
    struck.setFontStrikeOut(true);
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), struck); // ink 16 high, bar 2 about 9.6
    word.layOut();
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 14, 9), black); // between the letters
    QVERIFY(pixelAt(picture, 14, 8) != white && pixelAt(picture, 14, 10) != white);
    QCOMPARE(pixelAt(picture, 14, 7), white);
    QCOMPARE(pixelAt(picture, 14, 11), white);
    QCOMPARE(::inkOf(picture), QRect(10, 10, 28, 16));
}

void TestLegacyPainting::underlineLiesAtTheBottomOfTheRow()
{
    QTextCharFormat underlined = large();
    underlined.setFontUnderline(true);
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), underlined);
    word.layOut();
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 14, 14), white);
    QCOMPARE(pixelAt(picture, 14, 15), black);
    QCOMPARE(pixelAt(picture, 14, 16), black);
    QCOMPARE(pixelAt(picture, 14, 17), white);
}

void TestLegacyPainting::barsOfAColumnRunDownItsSide()
{
    QTextCharFormat barred = large();
    barred.setFontUnderline(true);
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("bb"), OldWord::block(), barred); // 16 wide, a gap from 12 to 16
    word.layOut();
    QImage picture = pictureOf(word);
    QCOMPARE(::inkOf(picture), QRect(9, 10, 17, 28));
    QCOMPARE(pixelAt(picture, -1, 14), black);
    QCOMPARE(pixelAt(picture, 0, 14), black);
    QCOMPARE(pixelAt(picture, 1, 14), white);

    barred.setFontUnderline(false);
    barred.setFontStrikeOut(true);
    OldWord struck(Qt::Vertical);
    struck.addBlock(QStringLiteral("bb"), OldWord::block(), barred);
    struck.layOut();
    picture = pictureOf(struck);
    QCOMPARE(pixelAt(picture, 6, 14), white);
    QCOMPARE(pixelAt(picture, 7, 14), black);
    QCOMPARE(pixelAt(picture, 8, 14), black);
    QCOMPARE(pixelAt(picture, 9, 14), white);
}

void TestLegacyPainting::barsFollowTheOffsetOfTheirRun()
{
    QTextCharFormat underlined = large();
    underlined.setFontUnderline(true);
    underlined.setProperty(TextProperty::BaselineOffset, 3.0); // 4 px
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), underlined);
    word.layOut();
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 14, 11), black);
    QCOMPARE(pixelAt(picture, 14, 12), black);
    QCOMPARE(pixelAt(picture, 14, 15), white);
}

void TestLegacyPainting::barsTakeInBlanks()
{
    QTextCharFormat barred = large();
    barred.setFontUnderline(true);
    barred.setFontStrikeOut(true);
    OldWord word;
    word.addBlock(QStringLiteral("b"), OldWord::block(), large());
    word.addRun(QStringLiteral("  "), barred); // two of 16 px
    word.addRun(QStringLiteral("b"), large());
    word.layOut();
    const QImage picture = pictureOf(word);
    for (int x : {13, 28, 43}) {
        QVERIFY(pixelAt(picture, x, 4) == white);
        QCOMPARE(pixelAt(picture, x, word.line(0).height > 16 ? 31 : 15), black);
    }
    int bars = 0;
    for (int y = 0; y < 40; ++y)
        bars += pixelAt(picture, 28, y) == white && pixelAt(picture, 28, y + 1) != white;
    QCOMPARE(bars, 2);
}

void TestLegacyPainting::overlineIsNotPainted()
{
    QTextCharFormat format = large();
    format.setFontOverline(true);
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), format);
    word.layOut();
    QVERIFY(word.line(0).items.first().overline);
    const QImage picture = pictureOf(word);
    for (int y = -8; y < 24; ++y)
        QCOMPARE(pixelAt(picture, 14, y), white);
}

void TestLegacyPainting::boxClipsWhatItPaints()
{
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        OldWord word(orientation);
        word.makeBox(60, 60);
        word.addBlock(QStringLiteral("国"), OldWord::block(), large());
        word.layOut();
        word.m_clientRect = QRectF(0, 0, 60, 12); // the outlines stay
        const QRect ink = ::inkOf(pictureOf(word));
        QCOMPARE(ink.top(), 10);
        QCOMPARE(ink.bottom(), 21);
    }
}

void TestLegacyPainting::lineTextDoesNotClip()
{
    OldWord word;
    word.addBlock(QStringLiteral("国"), OldWord::block(), large());
    word.layOut();
    word.m_clientRect = QRectF(0, 0, 60, 12);
    QCOMPARE(::inkOf(pictureOf(word)), QRect(10, 10, 28, 28));
}

void TestLegacyPainting::painterIsLeftAsItWas()
{
    OldWord word;
    word.makeBox(20, 20);
    word.addBlock(QStringLiteral("b"));
    word.layOut();
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setOpacity(0.5);
    painter.setPen(Qt::green);
    word.OnQPainterDraw(&painter);
    QVERIFY(!painter.hasClipping());
    QCOMPARE(painter.opacity(), 0.5);
    QCOMPARE(painter.pen().color(), QColor(Qt::green));

    painter.setClipRect(QRectF(0, 0, 10, 10)); // of the host: it goes on to count
    word.m_clientRect = QRectF(0, 0, 100, 100);
    word.m_document->clear();
    image.fill(Qt::white);
    word.OnQPainterDraw(&painter);
    QCOMPARE(::inkOf(image), QRect(0, 0, 10, 10));
}

void TestLegacyPainting::hintsAreOffBehindIt()
{
    OldWord word;
    word.addBlock(QStringLiteral("b"));
    word.layOut();
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                           | QPainter::SmoothPixmapTransform);
    word.OnQPainterDraw(&painter);
    QCOMPARE(int(painter.renderHints()) & 7, 0);
}

void TestLegacyPainting::nothingIsPaintedWithoutABox()
{
    OldWord word;
    word.addBlock(QStringLiteral("b"));
    word.layOut();
    word.m_clientRect = QRectF(0, 0, 0, 20);
    QVERIFY(::inkOf(pictureOf(word)).isNull());
}

// Selection

void TestLegacyPainting::selectionFillsEachLineByItself()
{
    OldWord word;
    word.addBlock(QStringLiteral("bbbb"), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("bbb"), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("bb"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    word.select(2, 10); // from the middle of the first line to the first letter of the last
    const QImage picture = pictureOf(word);
    // in gaps between letters, at x 6 to 8, 14 to 16, 22 to 24
    QCOMPARE(pixelAt(picture, 7, 4), white);
    QCOMPARE(pixelAt(picture, 14, 4), selectedWhite);
    QCOMPARE(pixelAt(picture, 23, 4), selectedWhite);
    QCOMPARE(pixelAt(picture, 31, 4), white);
    QCOMPARE(pixelAt(picture, 14, 12), white); // between the lines
    QCOMPARE(pixelAt(picture, 7, 28), selectedWhite);
    QCOMPARE(pixelAt(picture, 14, 28), selectedWhite);
    QCOMPARE(pixelAt(picture, 23, 28), white); // behind the end of the line
    QCOMPARE(pixelAt(picture, 6, 52), white);
    QCOMPARE(pixelAt(picture, 3, 52), white); // the complement of black
    QCOMPARE(pixelAt(picture, 10, 52), black);
}

void TestLegacyPainting::selectionOfColumns()
{
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("bbbb"), OldWord::block(), pitched()); // 8 wide, at 24
    word.addBlock(QStringLiteral("bbb"), OldWord::block(), pitched());  // at 0
    edit(word);
    word.layOut();
    word.select(2, 7);
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 28, 7), white);
    QCOMPARE(pixelAt(picture, 28, 14), selectedWhite);
    QCOMPARE(pixelAt(picture, 28, 23), selectedWhite);
    QCOMPARE(pixelAt(picture, 28, 31), white);
    QCOMPARE(pixelAt(picture, 14, 14), white); // between the columns
    QCOMPARE(pixelAt(picture, 4, 7), selectedWhite);
    QCOMPARE(pixelAt(picture, 4, 14), white);
}

void TestLegacyPainting::selectedTextIsTheComplement()
{
    QTextCharFormat coloured = pitched();
    coloured.setForeground(QColor(10, 200, 30, 90));
    OldWord word;
    word.addBlock(QStringLiteral("bbb"), OldWord::block(), coloured);
    edit(word);
    word.layOut();
    word.select(1, 3);
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 10, 4), qRgb(245, 55, 225));
    QVERIFY(pixelAt(picture, 3, 4) != qRgb(245, 55, 225));
}

void TestLegacyPainting::selectedBarsAreTheComplement()
{
    QTextCharFormat underlined = large();
    underlined.setFontUnderline(true);
    OldWord word;
    word.addBlock(QStringLiteral("bbb"), OldWord::block(), underlined);
    edit(word);
    word.layOut();
    word.select(1, 3);
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 30, 15), white); // within the row
    QCOMPARE(pixelAt(picture, 30, 16), black); // below it
    QCOMPARE(pixelAt(picture, 5, 15), black);
}

void TestLegacyPainting::selectionIsShownInEditStateOnly()
{
    OldWord word;
    word.addBlock(QStringLiteral("bbb"), OldWord::block(), pitched());
    word.layOut();
    word.select(0, 3);
    QCOMPARE(pixelAt(pictureOf(word), 7, 4), white);
    edit(word);
    word.select(0, 3);
    QCOMPARE(pixelAt(pictureOf(word), 7, 4), selectedWhite);
    word.select(3, 3);
    QCOMPARE(pixelAt(pictureOf(word), 7, 4), white);
}

void TestLegacyPainting::selectionBesideALineThatIsLeftOut()
{
    OldWord word;
    word.makeBox(60, 80);
    word.addBlock(QStringLiteral("bbb"), OldWord::block(30, 30),
                  pitched()); // no room: not laid out
    word.addBlock(QStringLiteral("bbb"), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("bbb"), OldWord::block(30, 30), pitched());
    edit(word);
    word.layOut();
    QCOMPARE(word.m_legacyLines.size(), 1);
    word.select(1, 10);
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 7, 4), selectedWhite);
    QCOMPARE(pixelAt(picture, 14, 4), selectedWhite);
    word.select(1, 2); // nothing of it shows
    QCOMPARE(pixelAt(pictureOf(word), 7, 4), white);
}

void TestLegacyPainting::selectionKeepsTheCompositionMode()
{
    OldWord word;
    word.addBlock(QStringLiteral("bbb"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    word.select(0, 3);
    QImage image(60, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    word.drawHorizontalText(&painter);
    QCOMPARE(painter.compositionMode(), QPainter::CompositionMode_Difference);
    QCOMPARE(image.pixel(7, 4), selectedWhite);
}

// Caret

void TestLegacyPainting::caretStandsAtThePosition_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QLineF>("caret");
    // "bb  b" and large "bb": ink 0 to 14, 14 blank, ...; then at 24 px "cb"
    QTest::newRow("ahead of a line") << 0 << QLineF(5, 0, 5, 16);
    QTest::newRow("behind a letter") << 1 << QLineF(6, 0, 6, 16);
    QTest::newRow("behind two") << 2 << QLineF(14, 0, 14, 16);
    QTest::newRow("behind a blank") << 3 << QLineF(22, 0, 22, 16);
    QTest::newRow("behind two blanks") << 4 << QLineF(30, 0, 30, 16);
    QTest::newRow("between two runs") << 5 << QLineF(38, 0, 38, 16);
    QTest::newRow("in the second run") << 6 << QLineF(50, 0, 50, 16);
    QTest::newRow("at the end of the line") << 7 << QLineF(66, 0, 66, 16);
    QTest::newRow("on the second line") << 8 << QLineF(5, 24, 5, 32);
    QTest::newRow("at the end of all") << 10 << QLineF(14, 24, 14, 32);
}

void TestLegacyPainting::caretStandsAtThePosition()
{
    QFETCH(int, position);
    QFETCH(QLineF, caret);
    OldWord word;
    word.addBlock(QStringLiteral("bb  b"), OldWord::block(), pitched());
    word.addRun(QStringLiteral("bb"), large());
    word.addBlock(QStringLiteral("cb"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    QCOMPARE(paintedCaret(word, position), caret);
    QCOMPARE(word.m_legacyTextSize, caret.p2());
}

void TestLegacyPainting::caretOfColumns_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QLineF>("caret");
    QTest::newRow("ahead of a column") << 0 << QLineF(24, 5, 38, 5);
    QTest::newRow("behind an upright character") << 1 << QLineF(24, 14, 38, 14);
    QTest::newRow("in a lying run") << 2 << QLineF(24, 20, 38, 20);
    QTest::newRow("at its end") << 3 << QLineF(24, 28, 38, 28);
    QTest::newRow("next column") << 4 << QLineF(0, 5, 14, 5);
    QTest::newRow("at the end of all") << 5 << QLineF(0, 14, 14, 14);
}

void TestLegacyPainting::caretOfColumns()
{
    QFETCH(int, position);
    QFETCH(QLineF, caret);
    OldWord word(Qt::Vertical);
    word.addBlock(QStringLiteral("中bb"), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("国"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    QCOMPARE(paintedCaret(word, position), caret);
    QCOMPARE(word.m_legacyTextSize, caret.p2());
}

void TestLegacyPainting::caretFollowsTheKeysAtAWrap()
{
    OldWord word;
    word.makeBox(47, 100);
    word.addBlock(QStringLiteral("中文国人"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    QCOMPARE(word.runs(), (QStringList{QStringLiteral("中文国"), QStringLiteral("人")}));
    QCOMPARE(paintedCaret(word, 3), QLineF(46, 0, 46, 14));
    QCOMPARE(word.cursorMove(Qt::Key_Home), 0);
}

void TestLegacyPainting::caretOfAnEmptyParagraph()
{
    OldWord word;
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    word.addBlock(QString(), OldWord::block(), pitched());
    word.addBlock(QStringLiteral("b"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    QCOMPARE(paintedCaret(word, 2), QLineF(5, 24, 5, 32)); // as high as the letter A
    QCOMPARE(paintedCaret(word, 3), QLineF(5, 48, 5, 56));
}

void TestLegacyPainting::caretNeverStandsAtAHyphen()
{
    OldWord word;
    word.makeBox(40, 100);
    QTextBlockFormat format = OldWord::blockWith(TextProperty::Hyphenate, true);
    word.addBlock(QStringLiteral("bbbbbbb"), format, pitched());
    edit(word);
    word.layOut();
    const int length = word.line(0).length();
    QVERIFY(word.line(0).items.last().isHyphen);
    QCOMPARE(paintedCaret(word, length).x1(), 8.0 * length - 2);
    QCOMPARE(paintedCaret(word, length + 1).y1(), 24.0);
}

void TestLegacyPainting::caretCountsTheJustifyingSpace()
{
    OldWord word;
    word.makeBox(60, 50);
    word.addBlock(QStringLiteral("bbb"), aligned(Qt::AlignJustify)); // 19 px between each two
    edit(word);
    word.layOut();
    QCOMPARE(paintedCaret(word, 1).x1(), 25.0);
    QCOMPARE(paintedCaret(word, 2).x1(), 52.0);
    QCOMPARE(paintedCaret(word, 3).x1(), 60.0);
}

void TestLegacyPainting::caretGoesForwardWithThePosition_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::newRow("rows") << false;
    QTest::newRow("columns") << true;
}

void TestLegacyPainting::caretGoesForwardWithThePosition()
{
    QFETCH(bool, vertical);
    OldWord word(vertical ? Qt::Vertical : Qt::Horizontal);
    word.addBlock(QStringLiteral("中ab  c国"), OldWord::block(), pitched());
    word.addRun(QStringLiteral("xg 天地b"), large());
    edit(word);
    word.layOut();
    double last = -1;
    for (int position = 0; position <= 13; ++position) {
        const QLineF caret = paintedCaret(word, position);
        const double along = vertical ? caret.y1() : caret.x1();
        QVERIFY2(along > last, qPrintable(QString::number(position)));
        last = along;
    }
}

void TestLegacyPainting::caretIsRememberedForTheHost()
{
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    word.setPos(QPointF(100, 50), false);
    QCOMPARE(paintedCaret(word, 1), QLineF(106, 50, 106, 58)); // on the scene
    QCOMPARE(word.m_cursorEndScenePos, QPointF(106, 58));
    QCOMPARE(word.m_legacyTextSize, QPointF(6, 8)); // in the object
    QCOMPARE(word.getCursorPos(), QPoint(6, 4));
    word.m_document->clear();
    word.m_defaultWord = QStringLiteral("bb");
    word.m_cursor->setCharFormat(OldWord::format());
    QCOMPARE(word.getCursorPos(), QPoint(5, 4));
}

void TestLegacyPainting::darkCaretIsNotDrawn()
{
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    word.m_cursorColor = Qt::red;
    word.m_cursor->setPosition(1);
    QCOMPARE(pixelAt(pictureOf(word), 7, 4), white);
    word.m_cursorVisible = true;
    QCOMPARE(pixelAt(pictureOf(word), 6, 4), 0xffff0000);
}

void TestLegacyPainting::handlersPaintNoSecondCaret()
{
    OldWord word;
    word.addBlock(QStringLiteral("bb"), OldWord::block(), pitched());
    edit(word);
    word.layOut();
    const QLineF caret = paintedCaret(word, 1);
    const QImage image = handlersOf(word);
    QVERIFY(::inkOf(image).isNull());
    QCOMPARE(word.m_cursorLine, caret);
}

// The default word

namespace {
/// An empty box of 80 x 40.
void makeEmptyBox(OldWord &word, const QString &defaultWord)
{
    word.makeBox(80, 40);
    word.m_defaultWord = defaultWord;
    word.m_cursor->setCharFormat(OldWord::format());
    word.layOut();
}

const QRgb fill = 0xffeaecf0; // a tenth of the dark blue over white: 234.1, 235.5, 239.4
const QRgb grey = 0xffa0a0a0;
} // namespace

void TestLegacyPainting::emptyTextShowsFillAndWord()
{
    OldWord word;
    makeEmptyBox(word, QStringLiteral("bb"));
    word.m_cursorVisible = true; // which counts in edit state only
    word.m_cursorColor = Qt::red;
    const QImage picture = pictureOf(word);
    QCOMPARE(::inkOf(picture), QRect(10, 10, 80, 40));
    QCOMPARE(pixelAt(picture, 60, 30), fill);
    QCOMPARE(pixelAt(picture, 0, 39), fill); // no frame
    QCOMPARE(pixelAt(picture, 2, 4), grey);
    QCOMPARE(pixelAt(picture, 7, 4), fill);
    QCOMPARE(pixelAt(picture, 5, 4), grey); // no caret
}

void TestLegacyPainting::emptyTextInEditStateShowsFrameAndCaret()
{
    OldWord word;
    makeEmptyBox(word, QStringLiteral("bb"));
    edit(word);
    word.m_cursorColor = Qt::red;
    QImage picture = pictureOf(word);
    QVERIFY(pixelAt(picture, 0, 30) != fill && pixelAt(picture, 79, 30) != fill);
    QCOMPARE(pixelAt(picture, 60, 30), fill);
    QCOMPARE(pixelAt(picture, 2, 4), grey);
    QCOMPARE(pixelAt(picture, 5, 4), grey);
    word.m_cursorVisible = true;
    picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 5, 4), 0xffff0000);
    QCOMPARE(pixelAt(picture, 5, 12), fill); // as high as the word
}

void TestLegacyPainting::withoutAWordOnlyTheFillIsShown()
{
    OldWord word;
    makeEmptyBox(word, QString());
    const QImage outside = pictureOf(word);
    for (int x = 0; x < 80; ++x)
        QCOMPARE(pixelAt(outside, x, 4), fill);
    edit(word);
    word.m_cursorVisible = true;
    word.m_cursorColor = Qt::red;
    QCOMPARE(pixelAt(pictureOf(word), 5, 4), fill);
    QCOMPARE(word.getCursorPos(), QPoint(0, 0));
}

void TestLegacyPainting::defaultWordIsAligned_data()
{
    QTest::addColumn<int>("alignment"); // -1 absent
    QTest::addColumn<int>("left");
    QTest::addColumn<QPointF>("caretEnd");
    QTest::newRow("absent") << -1 << 0 << QPointF(5, 8);
    QTest::newRow("left") << 1 << 0 << QPointF(5, 8);
    QTest::newRow("right") << 2 << 66 << QPointF(75, 8);
    QTest::newRow("centre") << 4 << 33 << QPointF(40, 8);
    QTest::newRow("justified is left") << 8 << 0 << QPointF(5, 8);
}

void TestLegacyPainting::defaultWordIsAligned()
{
    QFETCH(int, alignment);
    QFETCH(int, left);
    QFETCH(QPointF, caretEnd);
    OldWord word;
    makeEmptyBox(word, QStringLiteral("bb"));
    if (alignment >= 0)
        word.m_cursor->setBlockFormat(aligned(alignment));
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, left, 0), grey);
    QCOMPARE(pixelAt(picture, left + 13, 7), grey);
    QCOMPARE(pixelAt(picture, left + 6, 4), fill);
    QCOMPARE(pixelAt(picture, left + 1, 8), fill);
    QCOMPARE(word.m_legacyTextSize, caretEnd);
}

/// The kind of the number does not matter, as for lines.
void TestLegacyPainting::defaultWordIsAlignedByARealNumber()
{
    OldWord word;
    makeEmptyBox(word, QStringLiteral("bb"));
    word.m_cursor->setBlockFormat(OldWord::blockWith(TextProperty::Alignment, 4.0));
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 33, 0), grey);
    QCOMPARE(pixelAt(picture, 0, 0), fill);
    QCOMPARE(word.m_legacyTextSize, QPointF(40, 8));
}

void TestLegacyPainting::defaultWordOfColumns_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("top");
    QTest::newRow("absent") << -1 << 0;
    QTest::newRow("top") << 0x20 << 0;
    QTest::newRow("bottom") << 0x40 << 38;
    QTest::newRow("middle") << 0x80 << 19;
}

void TestLegacyPainting::defaultWordOfColumns()
{
    QFETCH(int, alignment);
    QFETCH(int, top);
    OldWord word(Qt::Vertical);
    word.makeBox(40, 80);
    word.m_defaultWord = QStringLiteral("中bb文"); // 14, 14 on its side, 14
    word.m_cursor->setCharFormat(OldWord::format());
    if (alignment >= 0)
        word.m_cursor->setBlockFormat(aligned(alignment));
    word.layOut();
    const QImage picture = pictureOf(word);
    QCOMPARE(pixelAt(picture, 26, top), grey);
    QCOMPARE(pixelAt(picture, 39, top + 13), grey);
    QCOMPARE(pixelAt(picture, 25, top), fill);
    QCOMPARE(pixelAt(picture, 28, top + 17), fill); // the letters are 8 wide, in the middle
    QCOMPARE(pixelAt(picture, 29, top + 17), grey);
    QCOMPARE(pixelAt(picture, 33, top + 21), fill); // between them
    QCOMPARE(pixelAt(picture, 26, top + 41), grey);
    QCOMPARE(word.m_legacyTextSize, QPointF(40, top + 5));
}

void TestLegacyPainting::defaultWordFollowsTheHostsFont()
{
    RecordingHost host; // BoxTest of 16
    OldWord word;
    makeEmptyBox(word, QStringLiteral("b"));
    word.m_cursor->setCharFormat(OpenWord::format(6)); // 8 px: ink of 3 x 4
    pictureOf(word);
    QCOMPARE(word.m_legacyTextSize, QPointF(5, 4));
    word.m_defaultFollow = true;
    pictureOf(word);
    QCOMPARE(word.m_legacyTextSize, QPointF(5, 8)); // 16 px
    edit(word);
    pictureOf(word);
    QCOMPARE(word.m_legacyTextSize, QPointF(5, 4));
}

void TestLegacyPainting::caretOfTheDefaultWordIsRemembered()
{
    OldWord word;
    makeEmptyBox(word, QStringLiteral("bb"));
    edit(word);
    word.setPos(QPointF(100, 50), false);
    QCOMPARE(paintedCaret(word, 0), QLineF(105, 50, 105, 58));
    QCOMPARE(word.m_cursorEndScenePos, QPointF(105, 58));
}

QTEST_MAIN(TestLegacyPainting)
#include "tst_legacypainting.moc"
