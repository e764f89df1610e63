// SPDX-License-Identifier: MIT
// Formats: where they land, what two of them have in common, the spacing of one character, the placement.
#include "formatprobe.h"
#include "wordprocess/fragmentwalk.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <limits>

class TestFormats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // outside edit state
    void formatLandsOnAllText();
    void sizeBecomesPixelsRunByRun();
    void sizeInPixelsIsCutOff();
    void familyReplacesThatOfEachRun();
    void emptyFamilyKeepsThatOfEachRun();
    void givenPropertiesWinOverTheFontOfTheRun();
    void capitalsGivenAsFalseAreTakenAway();
    void emptyBlockTakesTheFormat();
    void firstRunGivesTheFormatOfItsBlock();
    void emptyDocumentTakesTheFormatAtItsCursor();
    void nothingStaysSelectedByTheCursor();
    void absurdSizesDoNoHarm_data();
    void absurdSizesDoNoHarm();

    // in edit state
    void formatAtTheCaretIsForWhatIsTypedNext();
    void formatAtTheCaretReplacesWhenThereIsNone();
    void formatLandsOnTheSelectionOfTheFields();
    void whatTheCursorAloneSelectsIsNotFormatted();
    void selectionIsMergedAlsoOverTextWithoutFormat();
    void capitalsOfASelectionAreTakenAwayRunByRun();
    void sizeInEditStateStaysInPoints();
    void formatIsOneStepOfTheDocument();
    void blockFollowsTheFormatOfTheCaret();

    // paragraphs
    void blockFormatLandsOnAllBlocks();
    void blockFormatLandsOnTheBlockOfTheCaret();
    void blockFormatLandsOnTheBlocksOfTheSelection();
    void blockFormatReplacesWhenThereIsNone();
    void blockFormatOfAnEmptyDocument();

    // comparing
    void equalFormatsAreReturnedAsTheyAre();
    void randomFormatsComparedWithThemselves();
    void characterPropertiesInCommon_data();
    void characterPropertiesInCommon();
    void weightsOnBothSidesOfTheThreshold_data();
    void weightsOnBothSidesOfTheThreshold();
    void underlineIsComparedAsAFlag();
    void blankOfAMixedPropertySurvivesFurtherFolding();
    void paragraphPropertiesInCommon_data();
    void paragraphPropertiesInCommon();
    void alignmentInCommon();

    // letter spacing
    void letterSpacingIsTheSumInPixels_data();
    void letterSpacingIsTheSumInPixels();
    void oneCharacterInsideARunIsSpaced();
    void lastCharacterOfARunIsSpaced();
    void longerRunAtTheStartOfABlockStays();
    void runOfOneCharacterIsSpacedAnywhere();
    void secondRunOfABlockIsSpacedAtItsStart();
    void nothingIsSpacedBehindTheLastCharacter();
    void surrogatePairIsSpacedAsAWhole();
    void spacingThatIsNoNumberIsNone();

    // the rest
    void selectionIsOrderedAndKeptInTheDocument();
    void mixedAlignmentIsLookedAtAndLeft();
    void placement_data();
    void placement();

    // the walk
    void walkVisitsEachCharacterOnce();
    void walkEndsWhenRunsMerge();
    void walkEndsWhereverTheCursorIsDragged();
    void walkOverARangeStaysInIt();
    void walkOverManyRunsIsQuick();
};

namespace {
namespace T = TextProperty;
using F = QTextFormat;

QTextBlockFormat paragraph(int id, const QVariant &value)
{
    QTextBlockFormat format;
    format.setProperty(id, value);
    return format;
}

/// For each unit of the text the value of one property, blanks between.
QString valuesOf(const OpenWord &word, int id)
{
    QStringList values;
    for (int i = 0; i < word.m_document->characterCount() - 1; ++i)
        values.append(formatAt(word, i).property(id).toString());
    return values.join(QLatin1Char(' '));
}

QTextCharFormat randomFormat(QRandomGenerator &random)
{
    static const int ids[] = {F::FontFamily,     F::FontWeight,
                              F::FontItalic,     F::FontPointSize,
                              F::FontStrikeOut,  F::TextUnderlineStyle,
                              F::FontStyleName,  T::LetterSpacing,
                              T::LeadingGap,     T::HorizontalScale,
                              T::VerticalScale,  T::BaselineOffset,
                              T::UpperCase,      T::RowSpacing,
                              T::OriginalFamily, F::TextVerticalAlignment};
    QTextCharFormat format;
    for (int i = random.bounded(12); i > 0; --i) {
        const int id = ids[random.bounded(int(std::size(ids)))];
        const int kind = id == F::FontPointSize ? 2
                                                : random.bounded(4); // no font is without a size
        switch (kind) {
        case 0:
            format.setProperty(id, random.bounded(3));
            break;
        case 1:
            format.setProperty(id, random.bounded(2) == 0);
            break;
        case 2:
            format.setProperty(id, random.generateDouble() * 1e308);
            break;
        default:
            format.setProperty(id, QString::number(random.bounded(2)));
        }
    }
    return format;
}
} // namespace

void TestFormats::formatLandsOnAllText()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.add(QStringLiteral("cd\nef"), with(F::FontItalic, true));
    word.select(1, 2); // which does not count outside edit state
    QVERIFY(word.updateCharFormat(only(F::FontWeight, 75)));
    for (int position : {0, 1, 2, 3, 5, 6})
        QCOMPARE(formatAt(word, position).fontWeight(), 75);
    QVERIFY(!formatAt(word, 1).fontItalic());
    QVERIFY(formatAt(word, 2).fontItalic());
    QVERIFY(formatAt(word, 6).fontItalic());
    QCOMPARE(formatAt(word, 0).fontPointSize(), 12.0);
}

void TestFormats::sizeBecomesPixelsRunByRun()
{
    OpenWord word;
    word.add(QStringLiteral("a"), with(F::FontItalic, true));
    word.add(QStringLiteral("b"), with(F::FontWeight, 75));
    word.updateCharFormat(only(F::FontPointSize, 24.0));
    for (int position : {0, 1}) {
        QCOMPARE(formatAt(word, position).fontPointSize(), 24.0);
        QCOMPARE(formatAt(word, position).intProperty(F::FontPixelSize), 32);
        QCOMPARE(formatAt(word, position).fontFamily(), QStringLiteral("BoxTest"));
    }
    QVERIFY(formatAt(word, 0).fontItalic());
    QCOMPARE(formatAt(word, 0).fontWeight(), 50);
    QVERIFY(!formatAt(word, 1).fontItalic());
    QCOMPARE(formatAt(word, 1).fontWeight(), 75);
}

void TestFormats::sizeInPixelsIsCutOff()
{
    OpenWord word;
    word.add(QStringLiteral("a"));
    word.updateCharFormat(only(F::FontPointSize, 11.0)); // 14.67 pixels
    QCOMPARE(formatAt(word, 0).intProperty(F::FontPixelSize), 14);
    QCOMPARE(formatAt(word, 0).property(F::FontPointSize), QVariant(11.0));
    word.m_documentDpi = 72;
    word.updateCharFormat(only(F::FontPointSize, 10.9));
    QCOMPARE(formatAt(word, 0).intProperty(F::FontPixelSize), 10);
    QCOMPARE(formatAt(word, 0).property(F::FontPointSize), QVariant(10.9));
}

void TestFormats::familyReplacesThatOfEachRun()
{
    OpenWord word;
    word.add(QStringLiteral("a"));
    word.add(QStringLiteral("b"), with(F::FontFamily, QStringLiteral("Other")));
    word.updateCharFormat(with(F::FontFamily, QStringLiteral("New"), only(F::FontPointSize, 12.0)));
    QCOMPARE(valuesOf(word, F::FontFamily), QStringLiteral("New New"));
}

void TestFormats::emptyFamilyKeepsThatOfEachRun()
{
    OpenWord word;
    word.add(QStringLiteral("a"));
    word.add(QStringLiteral("b"), with(F::FontFamily, QStringLiteral("Other")));
    word.updateCharFormat(with(F::FontFamily, QString(), only(F::FontPointSize, 12.0)));
    QCOMPARE(valuesOf(word, F::FontFamily), QStringLiteral("BoxTest Other"));
}

void TestFormats::givenPropertiesWinOverTheFontOfTheRun()
{
    OpenWord word;
    QTextCharFormat run = OpenWord::format();
    run.setFontWeight(75);
    run.setFontItalic(true);
    run.setFontStrikeOut(true);
    run.setProperty(F::TextUnderlineStyle, 1);
    word.add(QStringLiteral("a"), run);
    QTextCharFormat given;
    given.setFontPointSize(24);
    given.setFontWeight(50);
    given.setFontStrikeOut(false);
    given.setProperty(F::TextUnderlineStyle, 0);
    word.updateCharFormat(given);
    QCOMPARE(formatAt(word, 0).fontWeight(), 50);
    QVERIFY(!formatAt(word, 0).fontStrikeOut());
    QVERIFY(!formatAt(word, 0).fontUnderline());
    QVERIFY(formatAt(word, 0).fontItalic()); // of which nothing was said
    QCOMPARE(formatAt(word, 0).fontPointSize(), 24.0);
}

void TestFormats::capitalsGivenAsFalseAreTakenAway()
{
    OpenWord word;
    word.add(QStringLiteral("a"), with(T::UpperCase, true));
    word.add(QStringLiteral("b"), with(T::UpperCase, true, with(F::FontWeight, 75)));
    word.updateCharFormat(only(T::UpperCase, true));
    QCOMPARE(valuesOf(word, T::UpperCase), QStringLiteral("true true"));
    word.updateCharFormat(only(T::UpperCase, false));
    QVERIFY(!formatAt(word, 0).hasProperty(T::UpperCase));
    QVERIFY(!formatAt(word, 1).hasProperty(T::UpperCase));
    QCOMPARE(formatAt(word, 0).fontWeight(), 50);
    QCOMPARE(formatAt(word, 1).fontWeight(), 75);
    // With a size beside it the same.
    word.updateCharFormat(only(T::UpperCase, true));
    word.updateCharFormat(with(T::UpperCase, false, only(F::FontPointSize, 24.0)));
    QVERIFY(!formatAt(word, 1).hasProperty(T::UpperCase));
    QCOMPARE(formatAt(word, 1).fontPointSize(), 24.0);
}

void TestFormats::emptyBlockTakesTheFormat()
{
    OpenWord word;
    word.add(QStringLiteral("a\n\nb"));
    word.updateCharFormat(with(F::FontWeight, 75, only(F::FontPointSize, 24.0)));
    const QTextCharFormat empty = blockOf(word, 1).charFormat();
    QCOMPARE(empty.fontPointSize(), 24.0);
    QCOMPARE(empty.fontWeight(), 75);
    QVERIFY(!empty.hasProperty(F::FontPixelSize)); // a run gets one, an empty block does not
    QCOMPARE(word.toPlainText(), QStringLiteral("a\n\nb"));
}

void TestFormats::firstRunGivesTheFormatOfItsBlock()
{
    OpenWord word;
    word.add(QStringLiteral("a"), with(F::FontItalic, true));
    word.add(QStringLiteral("b"));
    word.updateCharFormat(only(F::FontWeight, 75));
    const QTextCharFormat block = blockOf(word, 0).charFormat();
    QCOMPARE(block.fontWeight(), 75);
    QVERIFY(block.fontItalic());
}

void TestFormats::emptyDocumentTakesTheFormatAtItsCursor()
{
    OpenWord word;
    const QString before = word.toPlainText();
    QVERIFY(word.updateCharFormat(only(F::FontPointSize, 24.0)));
    QCOMPARE(word.m_cursor->charFormat().fontPointSize(), 24.0);
    QVERIFY(!word.m_cursor->charFormat().hasProperty(F::FontPixelSize));
    QCOMPARE(word.toPlainText(), before);
    word.updateCharFormat(with(T::UpperCase, false, only(F::FontWeight, 75)));
    QVERIFY(!word.m_cursor->charFormat().hasProperty(T::UpperCase));
    QCOMPARE(word.m_cursor->charFormat().fontPointSize(), 24.0); // merged
    word.m_cursor->insertText(QStringLiteral("x"));
    QCOMPARE(formatAt(word, 0).fontPointSize(), 24.0);
    QCOMPARE(formatAt(word, 0).fontWeight(), 75);
}

void TestFormats::nothingStaysSelectedByTheCursor()
{
    OpenWord word;
    word.add(QStringLiteral("ab\ncd"));
    word.updateCharFormat(only(F::FontWeight, 75));
    QVERIFY(!word.m_cursor->hasSelection());
    word.px2pt(96);
    QVERIFY(!word.m_cursor->hasSelection());
    word.refreshPixel();
    QVERIFY(!word.m_cursor->hasSelection());
    word.fontReplace(QStringLiteral("BoxTest"), QStringLiteral("X"), false);
    QVERIFY(!word.m_cursor->hasSelection());
}

void TestFormats::absurdSizesDoNoHarm_data()
{
    QTest::addColumn<double>("points");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("1e308") << 1e308;
    QTest::newRow("negative") << -1e308;
    QTest::newRow("nothing") << 0.0;
    QTest::newRow("less than a pixel") << 0.01;
}

void TestFormats::absurdSizesDoNoHarm()
{
    QFETCH(double, points);
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.updateCharFormat(only(F::FontPointSize, points));
    const int pixels = formatAt(word, 0).intProperty(F::FontPixelSize);
    QVERIFY2(pixels >= 0 && pixels <= 32767, qPrintable(QString::number(pixels)));
    word.updateBoundingRectImpl(true);
    contentOf(word);
    QVERIFY(std::isfinite(word.m_clientRect.width()));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    word.updateCharFormat(only(F::FontPointSize, 12.0));
    QCOMPARE(formatAt(word, 1).intProperty(F::FontPixelSize), 16);
}

void TestFormats::formatAtTheCaretIsForWhatIsTypedNext()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    word.m_cursor->setPosition(1);
    QVERIFY(word.updateCharFormat(only(F::FontWeight, 75)));
    QCOMPARE(formatAt(word, 0).fontWeight(), 50);
    QCOMPARE(formatAt(word, 1).fontWeight(), 50);
    word.m_cursor->insertText(QStringLiteral("x"));
    QCOMPARE(word.toPlainText(), QStringLiteral("axb"));
    QCOMPARE(formatAt(word, 1).fontWeight(), 75);
    QCOMPARE(formatAt(word, 1).fontPointSize(), 12.0);
}

void TestFormats::formatAtTheCaretReplacesWhenThereIsNone()
{
    OpenWord word;
    word.beginEdit();
    QVERIFY(word.m_cursor->charFormat().isEmpty());
    const QTextCharFormat given = only(F::FontWeight, 75);
    word.updateCharFormat(given);
    QCOMPARE(word.m_cursor->charFormat(), given);
}

void TestFormats::formatLandsOnTheSelectionOfTheFields()
{
    OpenWord word;
    word.add(QStringLiteral("abcdef"));
    word.beginEdit();
    word.m_cursor->setPosition(0);
    word.m_cursor->setPosition(2, QTextCursor::KeepAnchor); // another selection
    word.select(5, 3);
    word.updateCharFormat(only(F::FontWeight, 75));
    QCOMPARE(valuesOf(word, F::FontWeight), QStringLiteral("   75 75 "));
    QCOMPARE(word.m_cursor->selectionStart(), 3);
    QCOMPARE(word.m_cursor->selectionEnd(), 5);
}

void TestFormats::whatTheCursorAloneSelectsIsNotFormatted()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    word.m_cursor->setPosition(0);
    word.m_cursor->setPosition(2, QTextCursor::KeepAnchor);
    word.select(3, 3);
    word.updateCharFormat(only(F::FontWeight, 75));
    QCOMPARE(valuesOf(word, F::FontWeight), QStringLiteral("   "));
    word.updateBlockFormat(paragraph(T::Alignment, 2));
    QCOMPARE(word.m_cursor->position(), 2);
    word.m_cursor->insertText(QStringLiteral("x"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abxcd"));
}

void TestFormats::selectionIsMergedAlsoOverTextWithoutFormat()
{
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("a"), with(F::FontItalic, true));
    word.m_cursor->insertText(QStringLiteral("b"), QTextCharFormat());
    word.beginEdit();
    word.select(0, 2);
    word.m_cursor->setPosition(0);
    word.m_cursor->setPosition(2, QTextCursor::KeepAnchor);
    QVERIFY(word.m_cursor->charFormat().isEmpty());
    word.updateCharFormat(only(F::FontWeight, 75));
    QVERIFY(formatAt(word, 0).fontItalic());
    QCOMPARE(formatAt(word, 0).fontWeight(), 75);
    QCOMPARE(formatAt(word, 1), only(F::FontWeight, 75));
    // Paragraphs too: the block of the cursor has no format, the other one has.
    word.m_cursor->setPosition(0);
    word.m_cursor->insertBlock();
    word.m_cursor->setPosition(0);
    word.m_cursor->setBlockFormat(paragraph(T::Hyphenate, true));
    word.select(0, 3);
    word.updateBlockFormat(paragraph(T::Alignment, 4));
    QCOMPARE(blockOf(word, 0).blockFormat().property(T::Hyphenate), QVariant(true));
    QCOMPARE(blockOf(word, 0).blockFormat().property(T::Alignment), QVariant(4));
    QCOMPARE(blockOf(word, 1).blockFormat().property(T::Alignment), QVariant(4));
}

void TestFormats::capitalsOfASelectionAreTakenAwayRunByRun()
{
    OpenWord word;
    word.add(QStringLiteral("ab"), with(T::UpperCase, true, with(F::FontItalic, true)));
    word.add(QStringLiteral("cd\nef"), with(T::UpperCase, true, with(F::FontWeight, 75)));
    word.beginEdit();
    word.select(1, 6);
    word.updateCharFormat(only(T::UpperCase, false));
    QCOMPARE(valuesOf(word, T::UpperCase), QStringLiteral("true      true"));
    QVERIFY(formatAt(word, 1).fontItalic());
    QVERIFY(!formatAt(word, 2).fontItalic());
    QCOMPARE(formatAt(word, 2).fontWeight(), 75);
    QCOMPARE(formatAt(word, 1).fontWeight(), 50);
    QCOMPARE(formatAt(word, 5).fontWeight(), 75);
    QCOMPARE(word.m_cursor->selectionStart(), 1);
    QCOMPARE(word.m_cursor->selectionEnd(), 6);
}

void TestFormats::sizeInEditStateStaysInPoints()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    word.select(0, 2);
    word.updateCharFormat(only(F::FontPointSize, 24.0));
    QCOMPARE(formatAt(word, 0).fontPointSize(), 24.0);
    QVERIFY(!formatAt(word, 0).hasProperty(F::FontPixelSize));
}

void TestFormats::formatIsOneStepOfTheDocument()
{
    OpenWord word;
    word.add(QStringLiteral("ab"), with(F::FontItalic, true));
    word.add(QStringLiteral("cd"));
    word.beginEdit();
    word.m_document->clearUndoRedoStacks();
    word.select(0, 4);
    word.updateCharFormat(with(T::UpperCase, false, only(F::FontWeight, 75)));
    QCOMPARE(valuesOf(word, F::FontWeight), QStringLiteral("75 75 75 75"));
    word.m_document->undo();
    QCOMPARE(valuesOf(word, F::FontWeight), QStringLiteral("   "));
    QVERIFY(!word.m_document->isUndoAvailable());
}

void TestFormats::blockFollowsTheFormatOfTheCaret()
{
    OpenWord word;
    word.add(QStringLiteral("ab\ncd"));
    word.beginEdit();
    word.m_cursor->setPosition(4);
    word.updateCharFormat(only(F::FontWeight, 75));
    QCOMPARE(blockOf(word, 1).charFormat().fontWeight(), 75);
    QCOMPARE(blockOf(word, 0).charFormat().fontWeight(), 50);
}

void TestFormats::blockFormatLandsOnAllBlocks()
{
    OpenWord word;
    word.add(QStringLiteral("a\n\nb"));
    word.m_cursor->setBlockFormat(paragraph(T::Hyphenate, true));
    word.m_cursor->setPosition(2);
    QVERIFY(word.updateBlockFormat(paragraph(T::Alignment, 4)));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(blockOf(word, i).blockFormat().property(T::Alignment), QVariant(4));
    QCOMPARE(blockOf(word, 2).blockFormat().property(T::Hyphenate), QVariant(true));
    QVERIFY(!blockOf(word, 0).blockFormat().hasProperty(T::Hyphenate));
}

void TestFormats::blockFormatLandsOnTheBlockOfTheCaret()
{
    OpenWord word;
    word.add(QStringLiteral("a\nb\nc"));
    word.beginEdit();
    word.m_cursor->setPosition(2);
    word.updateBlockFormat(paragraph(T::Alignment, 4));
    QVERIFY(!blockOf(word, 0).blockFormat().hasProperty(T::Alignment));
    QCOMPARE(blockOf(word, 1).blockFormat().property(T::Alignment), QVariant(4));
    QVERIFY(!blockOf(word, 2).blockFormat().hasProperty(T::Alignment));
}

void TestFormats::blockFormatLandsOnTheBlocksOfTheSelection()
{
    OpenWord word;
    word.add(QStringLiteral("a\nb\nc"));
    word.beginEdit();
    word.m_cursor->setPosition(5);
    word.select(0, 3);
    word.updateBlockFormat(paragraph(T::Alignment, 4));
    QCOMPARE(blockOf(word, 0).blockFormat().property(T::Alignment), QVariant(4));
    QCOMPARE(blockOf(word, 1).blockFormat().property(T::Alignment), QVariant(4));
    QVERIFY(!blockOf(word, 2).blockFormat().hasProperty(T::Alignment));
}

void TestFormats::blockFormatReplacesWhenThereIsNone()
{
    OpenWord word;
    word.add(QStringLiteral("a"));
    word.beginEdit();
    word.m_cursor->setBlockFormat(QTextBlockFormat());
    const QTextBlockFormat given = paragraph(T::Alignment, 4);
    word.updateBlockFormat(given);
    QCOMPARE(word.m_cursor->blockFormat(), given);
    word.updateBlockFormat(paragraph(T::Hyphenate, true));
    QCOMPARE(word.m_cursor->blockFormat().property(T::Alignment), QVariant(4));
}

void TestFormats::blockFormatOfAnEmptyDocument()
{
    OpenWord word;
    QVERIFY(word.updateBlockFormat(paragraph(T::Alignment, 4)));
    QCOMPARE(blockOf(word, 0).blockFormat().property(T::Alignment), QVariant(4));
}

void TestFormats::equalFormatsAreReturnedAsTheyAre()
{
    OpenWord word;
    QTextCharFormat format = with(T::OriginalFamily, QStringLiteral("Former"));
    format.setProperty(F::FontPixelSize, 16); // no property that comparing builds by itself
    QTextCharFormat twin = with(T::OriginalFamily, QStringLiteral("Former"));
    twin.setProperty(F::FontPixelSize, 16);
    QCOMPARE(word.compareCharFormat(format, twin), format);
    const QTextBlockFormat block = paragraph(F::BlockIndent, 3);
    QCOMPARE(word.compareBlockFormat(block, paragraph(F::BlockIndent, 3)), block);
    QCOMPARE(word.compareCharFormat(QTextCharFormat(), QTextCharFormat()), QTextCharFormat());
    QCOMPARE(word.compareBlockFormat(QTextBlockFormat(), QTextBlockFormat()), QTextBlockFormat());
}

void TestFormats::randomFormatsComparedWithThemselves()
{
    OpenWord word;
    QRandomGenerator random(20);
    for (int round = 0; round < 500; ++round) {
        QRandomGenerator same = random;
        const QTextCharFormat a = randomFormat(random);
        const QTextCharFormat twin = randomFormat(same);
        const QTextCharFormat b = randomFormat(random);
        QCOMPARE(word.compareCharFormat(a, twin), a);
        // What is common stays common when one of the two is folded in again.
        AttributeMap common;
        AttributeMap again;
        const QTextCharFormat both = word.compareCharFormat(a, b);
        word.charFormat2Attr(both, common, true);
        word.charFormat2Attr(word.compareCharFormat(both, both), again, true);
        QCOMPARE(again, common);
    }
}

void TestFormats::characterPropertiesInCommon_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("other");
    QTest::addColumn<QVariant>("onDifference");
    QTest::addColumn<QVariant>("whenMissing"); // in both of the formats
    const QVariant blank = QString();
    const QVariant none;
    const auto row = [&](const char *name, int id, const QVariant &value, const QVariant &other,
                         const QVariant &onDifference, const QVariant &whenMissing) {
        QTest::newRow(name) << id << value << other << onDifference << whenMissing;
    };
    const QVariant red = QBrush(Qt::red);
    row("family", F::FontFamily, QStringLiteral("A"), QStringLiteral("B"), blank, none);
    row("italic", F::FontItalic, true, false, none, none);
    row("letter spacing of the run", T::LetterSpacing, 10.0, 20.0, blank, blank);
    row("gap ahead of the run", T::LeadingGap, 10.0, 20.0, blank, blank);
    row("point size", F::FontPointSize, 12.0, 13.0, none, none);
    row("strike out", F::FontStrikeOut, true, false, none, none);
    row("foreground", F::ForegroundBrush, red, QBrush(Qt::blue), none, none);
    row("style name", F::FontStyleName, QStringLiteral("A"), QStringLiteral("B"), none, none);
    row("horizontal scale", T::HorizontalScale, 50, 100, blank, blank);
    row("super- or subscript", F::TextVerticalAlignment, 1, 2, none, none);
    row("vertical scale", T::VerticalScale, 50, 100, blank, none);
    row("baseline offset", T::BaselineOffset, 1, 2, blank, none);
    row("capitals", T::UpperCase, true, false, blank, none);
    row("row spacing", T::RowSpacing, 1.5, 2.5, blank, none);
    row("of no interest", T::OriginalFamily, QStringLiteral("A"), QStringLiteral("B"), none, none);
}

void TestFormats::characterPropertiesInCommon()
{
    QFETCH(int, id);
    QFETCH(QVariant, value);
    QFETCH(QVariant, other);
    QFETCH(QVariant, onDifference);
    QFETCH(QVariant, whenMissing);
    OpenWord word;
    const int elsewhere = F::FontPixelSize; // makes the formats differ where nobody looks
    const auto compared = [&](const QVariant &a, const QVariant &b) {
        return word.compareCharFormat(only(id, a), with(elsewhere, 7, only(id, b))).property(id);
    };
    QCOMPARE(compared(value, value), id == T::OriginalFamily ? QVariant() : value);
    QCOMPARE(compared(value, other), onDifference);
    QCOMPARE(compared(value, QVariant()), onDifference);
    QCOMPARE(compared(QVariant(), value), onDifference);
    QCOMPARE(compared(QVariant(), QVariant()), whenMissing);
    const QTextCharFormat result = word.compareCharFormat(QTextCharFormat(), only(elsewhere, 7));
    QVERIFY(!result.hasProperty(elsewhere));
}

void TestFormats::weightsOnBothSidesOfTheThreshold_data()
{
    QTest::addColumn<QVariant>("a");
    QTest::addColumn<QVariant>("b");
    QTest::addColumn<QVariant>("common");
    QTest::newRow("50 and 57") << QVariant(50) << QVariant(57) << QVariant(50);
    QTest::newRow("57 and 50") << QVariant(57) << QVariant(50) << QVariant(57);
    QTest::newRow("57 and 58") << QVariant(57) << QVariant(58) << QVariant();
    QTest::newRow("58 and 57") << QVariant(58) << QVariant(57) << QVariant();
    QTest::newRow("58 and 75") << QVariant(58) << QVariant(75) << QVariant(58);
    QTest::newRow("none and 57") << QVariant() << QVariant(57) << QVariant(50);
    QTest::newRow("none and 75") << QVariant() << QVariant(75) << QVariant();
}

void TestFormats::weightsOnBothSidesOfTheThreshold()
{
    QFETCH(QVariant, a);
    QFETCH(QVariant, b);
    QFETCH(QVariant, common);
    OpenWord word;
    const QTextCharFormat result = word.compareCharFormat(only(F::FontWeight, a),
                                                          with(F::FontPixelSize, 7,
                                                               only(F::FontWeight, b)));
    QCOMPARE(result.property(F::FontWeight), common);
}

void TestFormats::underlineIsComparedAsAFlag()
{
    OpenWord word;
    const auto compared = [&](const QVariant &a, const QVariant &b) {
        return word
            .compareCharFormat(only(F::TextUnderlineStyle, a),
                               with(F::FontPixelSize, 7, only(F::TextUnderlineStyle, b)))
            .property(F::TextUnderlineStyle);
    };
    QCOMPARE(compared(1, 1), QVariant(1));
    QCOMPARE(compared(0, QVariant()), QVariant(0));
    QCOMPARE(compared(1, 0), QVariant());
    QCOMPARE(compared(QVariant(), 1), QVariant());
}

void TestFormats::blankOfAMixedPropertySurvivesFurtherFolding()
{
    OpenWord word;
    for (int id : {int(F::FontFamily), T::LetterSpacing, T::LeadingGap, T::HorizontalScale,
                   T::VerticalScale, T::BaselineOffset, T::UpperCase, T::RowSpacing}) {
        QTextCharFormat common = word.compareCharFormat(only(id, 1), only(id, 2));
        QCOMPARE(common.property(id), QVariant(QString()));
        common = word.compareCharFormat(common, only(id, 1));
        QCOMPARE(common.property(id), QVariant(QString()));
        common = word.compareCharFormat(common, only(id, 0)); // "" is not 0
        QCOMPARE(common.property(id), QVariant(QString()));
    }
}

void TestFormats::paragraphPropertiesInCommon_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("other");
    QTest::newRow("alignment") << T::Alignment << QVariant(1) << QVariant(2);
    QTest::newRow("1006") << 1006 << QVariant(1) << QVariant(2);
    QTest::newRow("1007") << 1007 << QVariant(1) << QVariant(2);
    QTest::newRow("first indent") << 1008 << QVariant(1.5) << QVariant(2.5);
    QTest::newRow("left indent") << 1009 << QVariant(1.5) << QVariant(2.5);
    QTest::newRow("right indent") << 1010 << QVariant(1.5) << QVariant(2.5);
    QTest::newRow("hyphens") << 1014 << QVariant(true) << QVariant(false);
    QTest::newRow("line ends") << 1015 << QVariant(1) << QVariant(2);
    QTest::newRow("punctuation") << 1016 << QVariant(1) << QVariant(0);
}

void TestFormats::paragraphPropertiesInCommon()
{
    QFETCH(int, id);
    QFETCH(QVariant, value);
    QFETCH(QVariant, other);
    OpenWord word;
    const auto compared = [&](const QVariant &a, const QVariant &b) {
        QTextBlockFormat second = paragraph(id, b);
        second.setProperty(F::BlockIndent, 7);
        return word.compareBlockFormat(paragraph(id, a), second).property(id);
    };
    const QVariant blank = QString();
    QCOMPARE(compared(value, value), value);
    QCOMPARE(compared(value, other), blank);
    QCOMPARE(compared(value, QVariant()), blank);
    QCOMPARE(compared(QVariant(), value), blank);
    QCOMPARE(compared(QVariant(), QVariant()), blank);
}

void TestFormats::alignmentInCommon()
{
    OpenWord word;
    const auto compared = [&](const QVariant &a, const QVariant &b) {
        QTextBlockFormat second = paragraph(F::BlockAlignment, b);
        second.setProperty(F::BlockIndent, 7);
        return word.compareBlockFormat(paragraph(F::BlockAlignment, a), second)
            .property(F::BlockAlignment);
    };
    QCOMPARE(compared(4, 4), QVariant(4));
    QCOMPARE(compared(4, 1), QVariant());
    QCOMPARE(compared(4, QVariant()), QVariant());
    QCOMPARE(compared(QVariant(), QVariant()), QVariant());
}

void TestFormats::letterSpacingIsTheSumInPixels_data()
{
    QTest::addColumn<int>("dpi");
    QTest::addColumn<double>("points");
    QTest::addColumn<QVariant>("selected");
    QTest::addColumn<QVariant>("gap");
    QTest::addColumn<double>("pixels");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("none") << 96 << 12.0 << QVariant() << QVariant() << 0.0;
    QTest::newRow("selected, 72 dpi") << 72 << 12.0 << QVariant(100.0) << QVariant() << 1.2;
    QTest::newRow("gap, 96 dpi") << 96 << 12.0 << QVariant() << QVariant(500.0) << 8.0;
    QTest::newRow("both") << 96 << 12.0 << QVariant(250.0) << QVariant(250) << 8.0;
    QTest::newRow("against each other") << 96 << 12.0 << QVariant(250.0) << QVariant(-250.0) << 0.0;
    QTest::newRow("points are cut off") << 72 << 12.9 << QVariant(1000.0) << QVariant() << 12.0;
    QTest::newRow("not a number") << 96 << 12.0 << QVariant(nan) << QVariant(500.0) << 8.0;
    QTest::newRow("too large") << 9600 << 1e308 << QVariant(1e308) << QVariant(1e308) << 0.0;
}

void TestFormats::letterSpacingIsTheSumInPixels()
{
    QFETCH(int, dpi);
    QFETCH(double, points);
    QFETCH(QVariant, selected);
    QFETCH(QVariant, gap);
    QFETCH(double, pixels);
    OpenWord word;
    word.m_documentDpi = dpi;
    QTextCharFormat format;
    format.setProperty(F::FontPointSize, points);
    format.setProperty(T::LetterSpacing, selected);
    format.setProperty(T::LeadingGap, gap);
    QCOMPARE(word.letterSpacing(format), pixels);
}

void TestFormats::oneCharacterInsideARunIsSpaced()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"), with(F::FontItalic, true));
    word.beginEdit();
    word.m_cursor->setPosition(2);
    word.setCharLetterSpacing(150);
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(valuesOf(word, T::LeadingGap), QStringLiteral("  150 "));
    for (int i = 0; i < 4; ++i)
        QVERIFY(formatAt(word, i).fontItalic());
    QCOMPARE(word.m_cursor->position(), 2);
    QVERIFY(!word.m_cursor->hasSelection());
}

void TestFormats::lastCharacterOfARunIsSpaced()
{
    OpenWord word;
    word.add(QStringLiteral("abc"));
    word.m_cursor->setPosition(2);
    word.setCharLetterSpacing(150);
    QCOMPARE(valuesOf(word, T::LeadingGap), QStringLiteral("  150"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abc"));
}

void TestFormats::longerRunAtTheStartOfABlockStays()
{
    OpenWord word;
    word.add(QStringLiteral("abc\ndef"));
    const QString before = word.serialize(false);
    for (int start : {0, 4}) {
        word.m_cursor->setPosition(start);
        word.setCharLetterSpacing(150);
        QCOMPARE(word.m_cursor->position(), start);
        word.m_cursor->movePosition(QTextCursor::End);
        QCOMPARE(word.serialize(false), before);
    }
}

void TestFormats::runOfOneCharacterIsSpacedAnywhere()
{
    OpenWord word;
    word.add(QStringLiteral("a"), with(F::FontItalic, true));
    word.add(QStringLiteral("b"));
    word.add(QStringLiteral("c"), with(F::FontItalic, true));
    for (int position = 0; position < 3; ++position) {
        word.m_cursor->setPosition(position);
        word.setCharLetterSpacing(100 + position);
    }
    QCOMPARE(valuesOf(word, T::LeadingGap), QStringLiteral("100 101 102"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abc"));
}

void TestFormats::secondRunOfABlockIsSpacedAtItsStart()
{
    OpenWord word;
    word.add(QStringLiteral("ab"), with(F::FontItalic, true));
    word.add(QStringLiteral("cd"));
    word.m_cursor->setPosition(2);
    word.setCharLetterSpacing(150);
    QCOMPARE(valuesOf(word, T::LeadingGap), QStringLiteral("  150 "));
    QVERIFY(!formatAt(word, 2).fontItalic());
}

void TestFormats::nothingIsSpacedBehindTheLastCharacter()
{
    OpenWord word;
    word.setCharLetterSpacing(150); // an empty document
    word.add(QStringLiteral("ab\n\ncd"));
    const QString before = word.serialize(false);
    for (int end : {2, 3, 6}) {
        word.m_cursor->setPosition(end);
        word.setCharLetterSpacing(150);
        word.m_cursor->movePosition(QTextCursor::End);
        QCOMPARE(word.serialize(false), before);
    }
}

void TestFormats::surrogatePairIsSpacedAsAWhole()
{
    OpenWord word;
    const uint han = 0x20000;
    word.add(QStringLiteral("a") + QString::fromUcs4(&han, 1) + QStringLiteral("b"));
    word.m_cursor->setPosition(1);
    word.setCharLetterSpacing(150);
    QCOMPARE(valuesOf(word, T::LeadingGap), QStringLiteral(" 150 150 "));
    OpenWord alone;
    alone.add(QString::fromUcs4(&han, 1));
    alone.m_cursor->setPosition(0);
    alone.setCharLetterSpacing(150);
    QCOMPARE(valuesOf(alone, T::LeadingGap), QStringLiteral("150 150"));
}

void TestFormats::spacingThatIsNoNumberIsNone()
{
    OpenWord word;
    word.add(QStringLiteral("abc"));
    word.m_cursor->setPosition(1);
    word.setCharLetterSpacing(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(formatAt(word, 1).property(T::LeadingGap), QVariant(0.0));
    word.setCharLetterSpacing(std::numeric_limits<double>::infinity());
    QCOMPARE(formatAt(word, 1).property(T::LeadingGap), QVariant(0.0));
}

void TestFormats::selectionIsOrderedAndKeptInTheDocument()
{
    OpenWord word;
    word.add(QStringLiteral("abcdef"));
    int start = -1;
    int end = -1;
    word.select(4, 1);
    QVERIFY(word.selection(start, end));
    QCOMPARE(start, 1);
    QCOMPARE(end, 4);
    word.select(3, 3);
    QVERIFY(!word.selection(start, end));
    QCOMPARE(start, 3);
    QCOMPARE(end, 3);
    word.select(-10, std::numeric_limits<int>::max());
    QVERIFY(word.selection(start, end));
    QCOMPARE(start, 0);
    QCOMPARE(end, 6);
    word.select(100, 200);
    QVERIFY(!word.selection(start, end));
}

void TestFormats::mixedAlignmentIsLookedAtAndLeft()
{
    OpenWord word;
    word.checkParagraphAlignType();
    word.add(QStringLiteral("a\nb\nc"));
    word.m_cursor->mergeBlockFormat(paragraph(T::Alignment, 4));
    word.m_cursor->setPosition(1);
    const QString before = word.serialize(false);
    word.checkParagraphAlignType();
    QCOMPARE(word.serialize(false), before);
}

void TestFormats::placement_data()
{
    QTest::addColumn<bool>("wrapped");
    QTest::addColumn<bool>("picture");
    QTest::addColumn<QPointF>("anchor");
    QTest::addColumn<QTransform>("expected");
    // The object stands at (100, 200); stretch (2, 3), picture (5, 7), second stretch (11, 13).
    const QPointF anchor(10, 20);
    QTest::newRow("line text") << false << false << anchor << QTransform(2, 0, 0, 3, 120, 260);
    QTest::newRow("line text, anchor 0")
        << false << false << QPointF() << QTransform(2, 0, 0, 3, 100, 200);
    QTest::newRow("line text, picture")
        << false << true << anchor << QTransform(10, 0, 0, 21, 200, 620);
    QTest::newRow("line text, picture, anchor 0")
        << false << true << QPointF() << QTransform(10, 0, 0, 21, 103, 204);
    // Margins (-1, -2), warp rectangle at (6, 8): 6 * 22 + 22 and 8 * 39 + 2 * 39.
    QTest::newRow("box text") << true << false << anchor << QTransform(22, 0, 0, 39, 254, 590);
    QTest::newRow("box text, picture")
        << true << true << anchor << QTransform(10, 0, 0, 21, 170, 410);
}

void TestFormats::placement()
{
    QFETCH(bool, wrapped);
    QFETCH(bool, picture);
    QFETCH(QPointF, anchor);
    QFETCH(QTransform, expected);
    OpenWord word;
    word.setPos(QPointF(100, 200), false);
    word.m_wordWrap = wrapped;
    word.m_showFontImage = picture;
    word.m_textOffset = anchor;
    word.m_fontImageClient = QRectF(3, 4, 50, 60);
    word.m_scaleX = 2;
    word.m_scaleY = 3;
    word.m_fontImageScaleX = 5;
    word.m_fontImageScaleY = 7;
    word.m_transformScaleX = 11;
    word.m_transformScaleY = 13;
    word.m_boundsMargins.left = -1;
    word.m_boundsMargins.top = -2;
    word.m_morphRect = QRectF(6, 8, 1, 1);
    QCOMPARE(word.getTextTransform(), expected);
    // Upside down, then turned over, then turned by a quarter.
    word.m_flip = true;
    QVERIFY(qFuzzyCompare(word.getTextTransform().m22(), -expected.m22()));
    QVERIFY(qFuzzyCompare(word.getTextTransform().m11(), expected.m11()));
    word.m_mirror = true;
    QVERIFY(qFuzzyCompare(word.getTextTransform().m11(), -expected.m11()));
    word.m_flip = word.m_mirror = false;
    if (!picture)
        return;
    word.m_fontImageRotation = 90;
    QVERIFY(qFuzzyCompare(word.getTextTransform().m12(), expected.m11()));
    QVERIFY(qFuzzyCompare(word.getTextTransform().m21(), -expected.m22()));
}

void TestFormats::walkVisitsEachCharacterOnce()
{
    QRandomGenerator random(7);
    for (int round = 0; round < 200; ++round) {
        QTextDocument document;
        QTextCursor cursor(&document);
        for (int i = random.bounded(12); i >= 0; --i)
            cursor.insertText(QString(1 + random.bounded(3), QLatin1Char('x')),
                              only(F::FontWeight, random.bounded(3)));
        const int length = document.characterCount() - 1;
        QVector<int> visits(length, 0);
        int firsts = 0;
        forEachRun(cursor, document.firstBlock(), [&](bool isFirst) {
            firsts += isFirst ? 1 : 0;
            for (int i = cursor.selectionStart(); i < cursor.selectionEnd(); ++i)
                ++visits[i];
            cursor.setCharFormat(only(F::FontWeight, random.bounded(3)));
        });
        QCOMPARE(visits, QVector<int>(length, 1));
        QCOMPARE(firsts, 1);
    }
}

void TestFormats::walkEndsWhenRunsMerge()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    for (int i = 0; i < 6; ++i)
        cursor.insertText(QStringLiteral("ab"), only(T::LeadingGap, i));
    int calls = 0;
    forEachRun(cursor, document.firstBlock(), [&](bool) {
        ++calls;
        QTextCharFormat format = cursor.charFormat(); // adding shows a run that is visited twice
        format.setProperty(T::LeadingGap, 100);
        format.setProperty(T::RowSpacing, format.property(T::RowSpacing).toInt() + 1);
        cursor.setCharFormat(format);
    });
    QCOMPARE(calls, 6);
    auto it = document.firstBlock().begin();
    QCOMPARE(it.fragment().length(), 12); // all in one
    QCOMPARE(it.fragment().charFormat().property(T::RowSpacing), QVariant(1));
}

void TestFormats::walkEndsWhereverTheCursorIsDragged()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    for (int i = 0; i < 5; ++i)
        cursor.insertText(QStringLiteral("a"), only(T::LeadingGap, i));
    int calls = 0;
    forEachRun(cursor, document.firstBlock(), [&](bool) {
        QVERIFY(++calls <= 5);
        cursor.setPosition(0);
    });
    QCOMPARE(calls, 5);
    cursor.movePosition(QTextCursor::End);
    cursor.insertBlock();
    forEachRun(cursor, document.lastBlock(), [&](bool) { QFAIL("an empty block has no runs"); });
}

void TestFormats::walkOverARangeStaysInIt()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("abc"), only(T::LeadingGap, 1));
    cursor.insertText(QStringLiteral("def"), only(T::LeadingGap, 2));
    QStringList visited;
    const auto note = [&](bool isFirst) {
        visited.append(cursor.selectedText() + (isFirst ? QStringLiteral("!") : QString()));
    };
    forEachRun(cursor, document.firstBlock(), 2, 5, note);
    QCOMPARE(visited, (QStringList{QStringLiteral("c!"), QStringLiteral("de")}));
    visited.clear();
    forEachRun(cursor, document.firstBlock(), 3, 3, note);
    QVERIFY(visited.isEmpty());
}

void TestFormats::walkOverManyRunsIsQuick()
{
    // 40 000 runs in one paragraph: a search from its start for each of them looks at 800 million.
    OpenWord word;
    {
        const EditBlock step(*word.m_cursor);
        for (int i = 0; i < 40000; ++i)
            word.m_cursor->insertText(QStringLiteral("a"), only(T::LeadingGap, i % 2));
    }
    word.updateCharFormat(only(F::FontWeight, 75));
    QCOMPARE(formatAt(word, 39999).fontWeight(), 75);
    word.px2pt(96);
    word.updateCharFormat(only(T::LeadingGap, 0)); // one run is left
    QCOMPARE(word.m_document->firstBlock().begin().fragment().length(), 40000);
}

QTEST_MAIN(TestFormats)
#include "tst_formats.moc"
