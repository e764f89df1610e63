// SPDX-License-Identifier: MIT
// Units, fonts that are missing and fonts that take their place, measuring for the older layout.
#include "formatprobe.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <limits>

class TestFonts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // units
    void pointsForAnotherResolution_data();
    void pointsForAnotherResolution();
    void pixelSizeBecomesPoints();
    void pointSizeOfTheSameResolutionStays();
    void sizesAreNeverRounded();
    void pixelsCutOffFromPointsStandForThem();
    void pointSizeOfAnotherResolutionIsRescaled();
    void marginsAndSpacesAreRescaled();
    void spacingsOfRunsAreRescaledAsDoubles();
    void percentagesStay();
    void runMergedOnTheWayIsRescaledOnce();
    void emptyParagraphKeepsItsCharacterFormat();
    void resolutionThatNoDocumentHasChangesNothing_data();
    void resolutionThatNoDocumentHasChangesNothing();
    void absurdMeasuresStayFinite();
    void undoOfTheDocumentDoesNotTakeUnitsBack();
    void recordOfAnotherResolutionIsRescaled_data();
    void recordOfAnotherResolutionIsRescaled();
    void recordThatNamesNoResolutionIsLeftAlone();
    void oldHtmlTakesTheResolutionOfTheScreen();
    void pixelsAreSetBesideThePoints();
    void pixelsAreNotSetInEditState();
    void pixelsToPointsTellsListeners();
    void htmlForOutside_data();
    void htmlForOutside();
    void htmlForOutsideAtOtherScreens();
    void hugeHtmlIsQuick();

    // missing fonts
    void emptyStringLacksNoFont();
    void textThatDoesNotParseLacksNoFont_data();
    void textThatDoesNotParseLacksNoFont();
    void missingFontIsListedOnce();
    void installedFontIsNotMissing();
    void runWithoutAFontLacksNone();
    void textWithAMissingFontStandsAsItsPicture();
    void textWithItsFontsLeavesThePicture();

    // replacing
    void replacementKeepsTheFormerName();
    void replacementConcernsOneFamilyOnly();
    void replacementIsLookedUpInTheCatalogue();
    void secondReplacementGoesByTheFormerName();
    void replacementDuringEditDoesNothing();
    void emptyParagraphIsReplaced();
    void emptyParagraphIsReplacedByItsFormerName();
    void paragraphFollowsItsFirstRun();
    void replacementNamedLikeTheMissingOne();
    void formerNameIsKeptInTheDocumentString();

    // measuring
    void sizeOfHorizontalText();
    void sizeOfVerticalText_data();
    void sizeOfVerticalText();
    void sizeInTheDefaultFont();
    void blanksAtTheEndsAreCounted_data();
    void blanksAtTheEndsAreCounted();
    void sizeOfABlank_data();
    void sizeOfABlank();
    void textSizeWithBlanksAndSpacing_data();
    void textSizeWithBlanksAndSpacing();
    void fragmentIsScaledAndTurned_data();
    void fragmentIsScaledAndTurned();
    void fragmentTakesBothSpacingsAndMore();
    void fragmentHasNoBars();
    void fragmentReportsItsLowerEdge();
    void charactersThatFit_data();
    void charactersThatFit();
    void noCharactersFitIntoNothing();
    void limitThatIsNoNumberEnds();
    void fitOfALongTextIsThatOfHalvingAllOfIt_data();
    void fitOfALongTextIsThatOfHalvingAllOfIt();
    void fitNeverCutsACodePoint();
    void measuringTakesAnyNumbers();
};

namespace {
namespace T = TextProperty;
using F = QTextFormat;

const QString missing = QStringLiteral("No Such Family 4711");
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

QTextCharFormat ofFamily(const QString &family)
{
    return with(F::FontFamily, family);
}

/// The font of squares at 16 pixels, whatever the screen.
QTextCharFormat pixelFormat()
{
    QTextCharFormat format;
    format.setFontFamily(loadBoxTestFont());
    format.setProperty(F::FontPixelSize, 16);
    return format;
}

QString ofFamilies(const QStringList &families)
{
    QJsonArray runs;
    for (const QString &family : families)
        runs.append(QJsonObject{{QStringLiteral("font_family"), family}});
    const QJsonObject json{{QStringLiteral("fragment"), QJsonArray{QJsonValue(runs)}}};
    return QString::fromUtf8(QJsonDocument(json).toJson());
}
} // namespace

void TestFonts::pointsForAnotherResolution_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("96 to 72") << 96 << 72 << 12.0 << 16.0;
    QTest::newRow("72 to 96") << 72 << 96 << 12.0 << 9.0;
    QTest::newRow("the same") << 96 << 96 << 7.3 << 7.3;
    QTest::newRow("negative") << 96 << 72 << -12.0 << -16.0;
    QTest::newRow("to nothing") << 96 << 0 << 12.0 << 12.0;
    QTest::newRow("nothing to nothing") << 0 << 0 << 12.0 << 12.0;
    QTest::newRow("not a number") << 96 << 72 << notANumber << 0.0;
    QTest::newRow("too large") << 9600 << 1 << 1e308 << 1e308;
}

void TestFonts::pointsForAnotherResolution()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(double, value);
    QFETCH(double, expected);
    OpenWord word;
    QCOMPARE(word.getPointForDpi(from, to, value), expected);
}

void TestFonts::pixelSizeBecomesPoints()
{
    OpenWord word;
    word.add(QStringLiteral("ab"), pixelFormat());
    word.px2pt(96);
    QCOMPARE(formatAt(word, 0).property(F::FontPointSize), QVariant(12.0));
    OpenWord other; // pixels stay as many, whatever the resolution read at
    other.m_documentDpi = 72;
    other.add(QStringLiteral("ab"), pixelFormat());
    other.px2pt(300);
    QCOMPARE(formatAt(other, 0).property(F::FontPointSize), QVariant(16.0));
}

void TestFonts::pointSizeOfTheSameResolutionStays()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.px2pt(96);
    QCOMPARE(formatAt(word, 0).fontPointSize(), 12.0);
}

void TestFonts::sizesAreNeverRounded()
{
    QRandomGenerator random(5);
    OpenWord word;
    QVector<double> sizes;
    for (int i = 0; i < 200; ++i) {
        sizes.append(0.5 + random.generateDouble() * 100);
        word.m_cursor->insertText(QStringLiteral("a"), OpenWord::format(sizes.last()));
    }
    word.px2pt(96);
    for (int i = 0; i < sizes.size(); ++i)
        QVERIFY(std::abs(formatAt(word, i).fontPointSize() - sizes.at(i)) < 1e-9);
    word.m_documentDpi = 300;
    word.px2pt(96);
    for (int i = 0; i < sizes.size(); ++i)
        QVERIFY(std::abs(formatAt(word, i).fontPointSize() - sizes.at(i) * 0.32) < 1e-9);
}

void TestFonts::pixelsCutOffFromPointsStandForThem()
{
    OpenWord word;
    word.add(QStringLiteral("ab"), OpenWord::format(11)); // 14.67 pixels
    word.refreshPixel();
    QCOMPARE(formatAt(word, 0).intProperty(F::FontPixelSize), 14);
    word.px2pt(96);
    QCOMPARE(formatAt(word, 0).property(F::FontPointSize), QVariant(11.0));
    // At another resolution it is the pixels that count.
    word.m_documentDpi = 192;
    word.px2pt(192);
    QCOMPARE(formatAt(word, 0).property(F::FontPointSize), QVariant(5.25));
}

void TestFonts::pointSizeOfAnotherResolutionIsRescaled()
{
    OpenWord word;
    word.add(QStringLiteral("a"));
    word.add(QStringLiteral("b\nc"), OpenWord::format(24));
    word.px2pt(72); // the document has 96
    QCOMPARE(formatAt(word, 0).fontPointSize(), 9.0);
    QCOMPARE(formatAt(word, 1).fontPointSize(), 18.0);
    QCOMPARE(formatAt(word, 3).fontPointSize(), 18.0);
    QCOMPARE(word.toPlainText(), QStringLiteral("ab\nc"));
}

void TestFonts::marginsAndSpacesAreRescaled()
{
    OpenWord word;
    word.m_documentDpi = 72;
    word.add(QStringLiteral("a\n\nb"));
    word.m_cursor->setPosition(2); // the empty paragraph
    QTextBlockFormat format;
    format.setProperty(F::BlockLeftMargin, 12.0);
    format.setProperty(F::BlockRightMargin, 6.0);
    format.setProperty(F::BlockIndent, 10);
    format.setProperty(T::SpaceAheadOfBlock, 3);
    format.setProperty(T::FirstLineIndent, 10.5);
    format.setProperty(T::LeftIndent, 12.0);
    format.setProperty(T::RightIndent, 6.0);
    word.m_cursor->setBlockFormat(format);
    word.px2pt(96);
    const QTextBlockFormat rescaled = blockOf(word, 1).blockFormat();
    QCOMPARE(rescaled.property(F::BlockLeftMargin), QVariant(16.0));
    QCOMPARE(rescaled.property(F::BlockRightMargin), QVariant(8.0));
    QCOMPARE(rescaled.property(F::BlockIndent), QVariant(13)); // 13.33
    QCOMPARE(rescaled.property(F::BlockIndent).userType(), int(QMetaType::Int));
    QCOMPARE(rescaled.property(T::SpaceAheadOfBlock), QVariant(4.0));
    QCOMPARE(rescaled.property(T::SpaceAheadOfBlock).userType(), int(QMetaType::Double));
    QVERIFY(!rescaled.hasProperty(T::SpaceBehindBlock));
    // The exact values beside margins and indent stay as they are.
    QCOMPARE(rescaled.property(T::FirstLineIndent), QVariant(10.5));
    QCOMPARE(rescaled.property(T::LeftIndent), QVariant(12.0));
    QCOMPARE(rescaled.property(T::RightIndent), QVariant(6.0));
    QCOMPARE(blockOf(word, 2).blockFormat().doubleProperty(F::BlockLeftMargin), 0.0);
}

void TestFonts::spacingsOfRunsAreRescaledAsDoubles()
{
    OpenWord word;
    word.m_documentDpi = 72;
    QTextCharFormat format = OpenWord::format();
    for (int id : {T::LeadingGap, T::LetterSpacing, T::BaselineOffset, T::RowSpacing})
        format.setProperty(id, 3);
    word.add(QStringLiteral("a"), format);
    word.add(QStringLiteral("b"));
    word.px2pt(96);
    for (int id : {T::LeadingGap, T::LetterSpacing, T::BaselineOffset, T::RowSpacing}) {
        QCOMPARE(formatAt(word, 0).property(id), QVariant(4.0));
        QCOMPARE(formatAt(word, 0).property(id).userType(), int(QMetaType::Double));
        QVERIFY(!formatAt(word, 1).hasProperty(id));
    }
}

void TestFonts::percentagesStay()
{
    OpenWord word;
    word.m_documentDpi = 72;
    word.add(QStringLiteral("a"), with(T::VerticalScale, 150, with(T::HorizontalScale, 75)));
    word.px2pt(96);
    QCOMPARE(formatAt(word, 0).property(T::VerticalScale), QVariant(150));
    QCOMPARE(formatAt(word, 0).property(T::HorizontalScale), QVariant(75));
    QCOMPARE(formatAt(word, 0).property(T::VerticalScale).userType(), int(QMetaType::Int));
}

void TestFonts::runMergedOnTheWayIsRescaledOnce()
{
    // The first run becomes what the second one is, and the two are one before the second is reached.
    OpenWord word;
    word.m_documentDpi = 72;
    word.add(QStringLiteral("aa"), with(T::LeadingGap, 30.0, OpenWord::format(12.0)));
    word.add(QStringLiteral("bb"), with(T::LeadingGap, 40.0, OpenWord::format(16.0)));
    word.px2pt(96);
    for (int i : {0, 1}) {
        QCOMPARE(formatAt(word, i).fontPointSize(), 16.0);
        QCOMPARE(formatAt(word, i).property(T::LeadingGap).toReal(), 40.0);
    }
    for (int i : {2, 3}) {
        QCOMPARE(formatAt(word, i).fontPointSize(), 64.0 / 3);
        QCOMPARE(formatAt(word, i).property(T::LeadingGap).toReal(), 160.0 / 3);
    }
}

void TestFonts::emptyParagraphKeepsItsCharacterFormat()
{
    OpenWord word;
    word.m_cursor->setBlockCharFormat(OpenWord::format());
    word.px2pt(72);
    QCOMPARE(blockOf(word, 0).charFormat(), OpenWord::format());
}

void TestFonts::resolutionThatNoDocumentHasChangesNothing_data()
{
    QTest::addColumn<double>("dpi");
    QTest::newRow("0") << 0.0;
    QTest::newRow("less than one") << 0.99;
    QTest::newRow("negative") << -96.0;
    QTest::newRow("9601") << 9601.0;
    QTest::newRow("1e308") << 1e308;
    QTest::newRow("not a number") << notANumber;
    QTest::newRow("infinite") << infinite;
}

void TestFonts::resolutionThatNoDocumentHasChangesNothing()
{
    QFETCH(double, dpi);
    OpenWord word;
    word.add(QStringLiteral("ab\ncd"), with(T::LeadingGap, 30.0));
    const QTextCharFormat before = formatAt(word, 0);
    const QTextBlockFormat block = blockOf(word, 0).blockFormat();
    word.px2pt(dpi);
    QCOMPARE(formatAt(word, 0), before);
    QCOMPARE(blockOf(word, 0).blockFormat(), block);
}

void TestFonts::absurdMeasuresStayFinite()
{
    for (double value : {notANumber, infinite, -infinite, 1e308, -1e308, 1e-308}) {
        OpenWord word;
        word.m_documentDpi = 1;
        QTextCharFormat format = OpenWord::format(1e308);
        QTextBlockFormat block;
        for (int id : {T::LeadingGap, T::LetterSpacing, T::BaselineOffset, T::RowSpacing})
            format.setProperty(id, value);
        for (int id : {int(F::BlockLeftMargin), int(F::BlockRightMargin), int(F::BlockIndent),
                       T::SpaceAheadOfBlock, T::SpaceBehindBlock})
            block.setProperty(id, value);
        word.m_cursor->setBlockFormat(block);
        word.m_cursor->insertText(QStringLiteral("ab"), format);
        word.px2pt(9600);
        const QTextCharFormat run = formatAt(word, 0);
        QVERIFY(std::isfinite(run.fontPointSize()));
        for (int id : {T::LeadingGap, T::LetterSpacing, T::BaselineOffset, T::RowSpacing})
            QVERIFY(std::isfinite(run.property(id).toReal()));
        for (int id : {int(F::BlockLeftMargin), int(F::BlockRightMargin), T::SpaceAheadOfBlock,
                       T::SpaceBehindBlock})
            QVERIFY(std::isfinite(blockOf(word, 0).blockFormat().property(id).toReal()));
        word.refreshPixel();
        word.updateBoundingRectImpl(true);
        contentOf(word);
        QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    }
}

void TestFonts::undoOfTheDocumentDoesNotTakeUnitsBack()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.px2pt(72);
    QVERIFY(!word.m_document->isUndoAvailable());
    word.refreshPixel();
    QVERIFY(!word.m_document->isUndoAvailable());
}

void TestFonts::recordOfAnotherResolutionIsRescaled_data()
{
    QTest::addColumn<int>("writtenAt");
    QTest::addColumn<int>("readAt");
    QTest::addColumn<double>("points");
    QTest::newRow("96 into 72") << 96 << 72 << 16.0;
    QTest::newRow("72 into 96") << 72 << 96 << 9.0;
    QTest::newRow("the same") << 96 << 96 << 12.0;
}

void TestFonts::recordOfAnotherResolutionIsRescaled()
{
    QFETCH(int, writtenAt);
    QFETCH(int, readAt);
    QFETCH(double, points);
    QJsonObject record;
    {
        RecordingHost host(writtenAt);
        OpenWord word(&host);
        word.add(QStringLiteral("ab"), with(T::VerticalScale, 150));
        word.saveJson(record);
    }
    RecordingHost host(readAt);
    OpenWord word(&host);
    word.loadJson(record);
    QCOMPARE(word.m_documentDpi, readAt);
    QCOMPARE(formatAt(word, 0).fontPointSize(), points);
    QCOMPARE(formatAt(word, 0).property(T::VerticalScale), QVariant(150));
}

void TestFonts::recordThatNamesNoResolutionIsLeftAlone()
{
    RecordingHost host(96);
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    QJsonObject record;
    word.saveJson(record);
    for (const QVariant &dpi : {QVariant(), QVariant(0), QVariant(-72), QVariant(1e308)}) {
        OpenWord other(&host);
        other.m_saveParams = word.m_saveParams;
        other.m_saveParams.remove(QStringLiteral("document_dpi"));
        if (dpi.isValid())
            other.m_saveParams[QStringLiteral("document_dpi")] = dpi;
        QJsonObject changed;
        other.CBaseObject::saveJson(changed);
        OpenWord loaded(&host);
        loaded.loadJson(changed);
        QCOMPARE(loaded.toPlainText(), QStringLiteral("ab"));
        QCOMPARE(formatAt(loaded, 0).fontPointSize(), 12.0);
    }
}

void TestFonts::oldHtmlTakesTheResolutionOfTheScreen()
{
    RecordingHost host(96);
    host.screenDpiX = 192;
    OpenWord word(&host);
    QJsonObject record;
    word.CBaseObject::saveJson(record); // a record without a document string
    record.insert(QStringLiteral("TextContent"),
                  QStringLiteral("<p><span style=\"font-family:'BoxTest'; "
                                 "font-size:10pt;\">ab</span></p>"));
    OpenWord old(&host);
    old.loadJson(record);
    QCOMPARE(old.toPlainText(), QStringLiteral("ab"));
    QCOMPARE(formatAt(old, 0).fontPointSize(), 20.0);
}

void TestFonts::pixelsAreSetBesideThePoints()
{
    OpenWord word;
    word.add(QStringLiteral("a"), with(F::FontItalic, true));
    QTextCharFormat bare;
    bare.setFontWeight(75);
    word.add(QStringLiteral("b"), bare); // without a size
    word.add(QStringLiteral("c\ne"), OpenWord::format(11));
    word.refreshPixel();
    QCOMPARE(formatAt(word, 0).intProperty(F::FontPixelSize), 16);
    QCOMPARE(formatAt(word, 0).property(F::FontPointSize), QVariant(12.0));
    QVERIFY(formatAt(word, 0).fontItalic());
    QCOMPARE(formatAt(word, 1), bare);
    for (int position : {2, 4}) {
        QCOMPARE(formatAt(word, position).intProperty(F::FontPixelSize), 14); // 14.67
        QCOMPARE(formatAt(word, position).property(F::FontPointSize), QVariant(11.0));
        QVERIFY(!formatAt(word, position).fontItalic());
    }
}

void TestFonts::pixelsAreNotSetInEditState()
{
    OpenWord word;
    word.add(QStringLiteral("a"));
    word.beginEdit();
    word.refreshPixel();
    QVERIFY(!formatAt(word, 0).hasProperty(F::FontPixelSize));
}

void TestFonts::pixelsToPointsTellsListeners()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("a"), pixelFormat());
    host.clearEvents();
    word.refreshFontPixel2Point();
    QCOMPARE(formatAt(word, 0).fontPointSize(), 12.0);
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    word.beginEdit();
    word.m_documentDpi = 72;
    host.clearEvents();
    word.refreshFontPixel2Point();
    QCOMPARE(formatAt(word, 0).fontPointSize(), 12.0);
    QVERIFY(host.events.isEmpty());
}

void TestFonts::htmlForOutside_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *html, const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(html) << QString::fromLatin1(expected);
    };
    row("12 points", "font-size:12pt;", "font-size:14px;");
    row("two sizes", "font-size:12pt; font-size:24pt;", "font-size:14px; font-size:30px;");
    row("pixels stay", "font-size:12px;", "font-size:12px;");
    row("pixels ahead of points", "font-size:12px; font-size:12pt;",
        "font-size:12px; font-size:14px;");
    row("no whole number", "font-size:12.5pt;", "font-size:12.5pt;");
    row("no number", "font-size:largept;", "font-size:largept;");
    row("nothing", "font-size:pt;", "font-size:pt;");
    row("too large for a number", "font-size:99999999999pt;", "font-size:99999999999pt;");
    row("largest number", "font-size:2147483647pt;", "font-size:2147483647px;");
    row("0 points", "font-size:0pt;", "font-size:-2px;");
    row("1 point is cut off", "font-size:1pt;", "font-size:0px;");
    row("at the end", "font-size:", "font-size:");
    row("mark right behind a mark", "font-size:font-size:12pt;", "font-size:font-size:12pt;");
    row("a family", "font-family:'Some Font';", "font-family:'Roboto';");
    row("two families", "font-family:'A'; font-family:'B';",
        "font-family:'Roboto'; font-family:'Roboto';");
    row("no family", "font-family:''", "font-family:'Roboto'");
    row("family without an end", "font-family:'A", "font-family:'A");
    row("family without quotes", "font-family:A;", "font-family:A;");
    row("a run", "<span style=\" font-family:'A'; font-size:12pt; color:#000\">x</span>",
        "<span style=\" font-family:'Roboto'; font-size:14px; color:#000\">x</span>");
    row("empty", "", "");
}

void TestFonts::htmlForOutside()
{
    QFETCH(QString, html);
    QFETCH(QString, expected);
    OpenWord word;
    QCOMPARE(word.replacePtToPx(html), expected);
}

void TestFonts::htmlForOutsideAtOtherScreens()
{
    RecordingHost host;
    OpenWord word(&host);
    const QString html = QStringLiteral("font-size:12pt;");
    host.screenDpiX = 72;
    host.screenDpiY = 1000;
    QCOMPARE(word.replacePtToPx(html), QStringLiteral("font-size:10px;"));
    host.screenDpiX = 100; // 16.67 - 2
    QCOMPARE(word.replacePtToPx(html), QStringLiteral("font-size:14px;"));
    for (double noResolution : {0.0, -96.0, notANumber, infinite}) { // counts as 96
        host.screenDpiX = noResolution;
        QCOMPARE(word.replacePtToPx(html), QStringLiteral("font-size:14px;"));
    }
}

void TestFonts::hugeHtmlIsQuick()
{
    OpenWord word;
    const QString marks =
        QStringLiteral("font-size:12pt;font-size:x font-family:'A' ").repeated(100000);
    const QString rewritten = word.replacePtToPx(marks);
    QVERIFY(
        rewritten.startsWith(QLatin1String("font-size:14px;font-size:x font-family:'Roboto' ")));
    QVERIFY(rewritten.endsWith(QLatin1String("font-size:14px;font-size:x font-family:'Roboto' ")));
    const QString open = QStringLiteral("font-size:1 font-family:").repeated(100000);
    QCOMPARE(word.replacePtToPx(open), open);
    QCOMPARE(word.replacePtToPx(open + QStringLiteral("pt;")), open + QStringLiteral("pt;"));
}

void TestFonts::emptyStringLacksNoFont()
{
    OpenWord word;
    word.m_missingFonts = QStringList(missing);
    word.m_replacedFonts = QStringList(missing);
    QVERIFY(word.fontExists(QString()));
    QVERIFY(word.m_missingFonts.isEmpty());
    QVERIFY(word.m_replacedFonts.isEmpty());
}

void TestFonts::textThatDoesNotParseLacksNoFont_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"x", "[]", "{}", "{\"fragment\":5}", "{\"fragment\":[5,\"x\",null]}",
          "{\"fragment\":[[5,\"x\",null,[]]]}", "{\"fragment\":[[{\"font_family\":5}]]}",
          "{\"fragment\":[[{\"font_family\":\"No Such Family 4711\"}]]", "\"font_family\""})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void TestFonts::textThatDoesNotParseLacksNoFont()
{
    QFETCH(QString, text);
    OpenWord word;
    word.m_missingFonts = QStringList(missing);
    QVERIFY(word.fontExists(text));
    QVERIFY(word.m_missingFonts.isEmpty());
}

void TestFonts::missingFontIsListedOnce()
{
    OpenWord word;
    word.m_replacedFonts = QStringList(QStringLiteral("Other"));
    const QString second = QStringLiteral("Nor This One 4712");
    QVERIFY(!word.fontExists(ofFamilies({missing, second, missing, QStringLiteral("BoxTest")})));
    QCOMPARE(word.m_missingFonts.size(), 2);
    QVERIFY(word.m_missingFonts.contains(missing));
    QVERIFY(word.m_missingFonts.contains(second));
    QVERIFY(word.m_replacedFonts.isEmpty());
    OpenWord text; // of several paragraphs
    text.add(QStringLiteral("a"), ofFamily(missing));
    text.add(QStringLiteral("b"));
    text.add(QStringLiteral("c\ne"), ofFamily(missing));
    QVERIFY(!word.fontExists(text.serialize(false)));
    QCOMPARE(word.m_missingFonts, QStringList(missing));
}

void TestFonts::installedFontIsNotMissing()
{
    OpenWord word;
    QVERIFY(word.fontExists(ofFamilies({QStringLiteral("BoxTest"), QStringLiteral("BOXTEST")})));
    QVERIFY(word.m_missingFonts.isEmpty());
}

void TestFonts::runWithoutAFontLacksNone()
{
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("ab"), QTextCharFormat());
    QVERIFY(word.fontExists(word.serialize(false)));
}

void TestFonts::textWithAMissingFontStandsAsItsPicture()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"), ofFamily(missing));
    QJsonObject record;
    word.saveJson(record);
    OpenWord other(&host);
    other.loadJson(record);
    QVERIFY(other.m_showFontImage);
    QVERIFY(!other.m_fontImage.isNull());
    QCOMPARE(other.m_missingFonts, QStringList(missing));
    QVERIFY(!inkOf(contentOf(other)).isNull()); // the picture
    // Not to be edited: the host is told which fonts are missing.
    host.clearEvents();
    QDataStream nothing;
    other.SetSpecialProperty(101, nothing, false);
    QVERIFY(!other.m_editing);
    QCOMPARE(operationsOf(host), (QVector<int>{1}));
    // With another font in place it becomes text again.
    other.fontReplace(missing, QStringLiteral("BoxTest"), false);
    other.m_replacedFonts = other.m_missingFonts;
    other.img2paths();
    QVERIFY(!other.m_showFontImage);
    QCOMPARE(formatAt(other, 0).fontFamily(), QStringLiteral("BoxTest"));
    QCOMPARE(other.m_clientRect, QRectF(0, 0, 16, 16));
    QVERIFY(!other.m_textPaths.isEmpty());
    other.SetSpecialProperty(101, nothing, false);
    QVERIFY(other.m_editing);
}

void TestFonts::textWithItsFontsLeavesThePicture()
{
    RecordingHost host;
    OpenWord word(&host);
    word.setPos(QPointF(30, 40), false);
    word.add(QStringLiteral("ab"));
    QJsonObject record;
    word.saveJson(record);
    OpenWord other(&host);
    other.loadJson(record);
    QVERIFY(!other.m_fontImage.isNull());
    QVERIFY(!other.m_showFontImage);
    QCOMPARE(other.getPos(), QPointF(30, 28)); // the base line is at 40
    QCOMPARE(contentOf(other), contentOf(word));
    QCOMPARE(other.m_clientRect, QRectF(0, 0, 16, 16));
}

void TestFonts::replacementKeepsTheFormerName()
{
    OpenWord word;
    word.add(QStringLiteral("ab"), with(F::FontItalic, true, ofFamily(missing)));
    word.add(QStringLiteral("c\ne"), ofFamily(missing));
    word.fontReplace(missing, QStringLiteral("BoxTest"), false);
    for (int position : {0, 1, 2, 4}) {
        QCOMPARE(formatAt(word, position).fontFamily(), QStringLiteral("BoxTest"));
        QCOMPARE(formatAt(word, position).property(T::OriginalFamily), QVariant(missing));
        QCOMPARE(formatAt(word, position).fontPointSize(), 12.0);
    }
    QVERIFY(formatAt(word, 1).fontItalic());
    QVERIFY(!formatAt(word, 2).fontItalic());
    QCOMPARE(word.toPlainText(), QStringLiteral("abc\ne"));
}

void TestFonts::replacementConcernsOneFamilyOnly()
{
    OpenWord word;
    word.add(QStringLiteral("a"), ofFamily(missing));
    word.add(QStringLiteral("b"), ofFamily(QStringLiteral("Other")));
    word.m_cursor->insertText(QStringLiteral("c"), QTextCharFormat());
    word.fontReplace(missing, QStringLiteral("BoxTest"), false);
    QCOMPARE(formatAt(word, 1), ofFamily(QStringLiteral("Other")));
    QCOMPARE(formatAt(word, 2), QTextCharFormat());
    // A run without a former name is not meant by the empty one.
    word.fontReplace(QString(), QStringLiteral("BoxTest"), true);
    word.fontReplace(QString(), QStringLiteral("BoxTest"), false);
    QCOMPARE(formatAt(word, 1), ofFamily(QStringLiteral("Other")));
    QCOMPARE(formatAt(word, 2), QTextCharFormat());
}

void TestFonts::replacementIsLookedUpInTheCatalogue()
{
    OpenWord word;
    word.add(QStringLiteral("a"), ofFamily(missing));
    word.fontReplace(missing, QStringLiteral("BOXTEST"), false);
    QCOMPARE(formatAt(word, 0).fontFamily(), QStringLiteral("BoxTest"));
    word.fontReplace(missing, QStringLiteral("Unknown 1"), true); // unknown: as given
    QCOMPARE(formatAt(word, 0).fontFamily(), QStringLiteral("Unknown 1"));
}

void TestFonts::secondReplacementGoesByTheFormerName()
{
    OpenWord word;
    word.add(QStringLiteral("a"), ofFamily(missing));
    word.add(QStringLiteral("b"), ofFamily(QStringLiteral("BoxTest"))); // was never replaced
    word.fontReplace(missing, QStringLiteral("BoxTest"), false);
    word.fontReplace(missing, QStringLiteral("Second"), false); // nobody has that family any more
    QCOMPARE(formatAt(word, 0).fontFamily(), QStringLiteral("BoxTest"));
    word.fontReplace(missing, QStringLiteral("Second"), true);
    QCOMPARE(formatAt(word, 0).fontFamily(), QStringLiteral("Second"));
    QCOMPARE(formatAt(word, 0).property(T::OriginalFamily), QVariant(missing));
    QCOMPARE(formatAt(word, 1).fontFamily(), QStringLiteral("BoxTest"));
    QVERIFY(!formatAt(word, 1).hasProperty(T::OriginalFamily));
    word.fontReplace(missing, QStringLiteral("Third"), true);
    QCOMPARE(formatAt(word, 0).fontFamily(), QStringLiteral("Third"));
}

void TestFonts::replacementDuringEditDoesNothing()
{
    OpenWord word;
    word.add(QStringLiteral("ab\n"), ofFamily(missing));
    word.beginEdit();
    const QString before = word.serialize(false);
    word.fontReplace(missing, QStringLiteral("BoxTest"), false);
    word.fontReplace(missing, QStringLiteral("BoxTest"), true);
    QCOMPARE(word.serialize(false), before);
}

void TestFonts::emptyParagraphIsReplaced()
{
    OpenWord word;
    word.add(QStringLiteral("a\n\nb"), ofFamily(QStringLiteral("Other")));
    word.m_cursor->setPosition(2);
    word.m_cursor->setBlockCharFormat(ofFamily(missing));
    word.fontReplace(missing, QStringLiteral("BoxTest"), false);
    const QTextCharFormat format = blockOf(word, 1).charFormat();
    QCOMPARE(format.fontFamily(), QStringLiteral("BoxTest"));
    QCOMPARE(format.property(T::OriginalFamily), QVariant(missing));
    QCOMPARE(format.fontPointSize(), 12.0);
    QCOMPARE(formatAt(word, 3).fontFamily(), QStringLiteral("Other"));
}

void TestFonts::emptyParagraphIsReplacedByItsFormerName()
{
    OpenWord word;
    word.m_cursor->setBlockCharFormat(with(T::OriginalFamily, missing));
    word.fontReplace(QStringLiteral("Other"), QStringLiteral("Second"), true);
    QCOMPARE(blockOf(word, 0).charFormat().fontFamily(), QStringLiteral("BoxTest"));
    word.fontReplace(missing, QStringLiteral("Second"), true);
    QCOMPARE(blockOf(word, 0).charFormat().fontFamily(), QStringLiteral("Second"));
    QCOMPARE(blockOf(word, 0).charFormat().property(T::OriginalFamily), QVariant(missing));
}

void TestFonts::paragraphFollowsItsFirstRun()
{
    OpenWord word;
    word.add(QStringLiteral("a"), ofFamily(missing));
    word.add(QStringLiteral("b"), ofFamily(QStringLiteral("Other")));
    word.add(QStringLiteral("\n"), ofFamily(QStringLiteral("Other")));
    word.add(QStringLiteral("c"), ofFamily(QStringLiteral("Other")));
    word.add(QStringLiteral("d"), ofFamily(missing));
    word.fontReplace(missing, QStringLiteral("BoxTest"), false);
    QCOMPARE(blockOf(word, 0).charFormat().fontFamily(), QStringLiteral("BoxTest"));
    QCOMPARE(blockOf(word, 0).charFormat().property(T::OriginalFamily), QVariant(missing));
    QCOMPARE(blockOf(word, 1).charFormat().fontFamily(), QStringLiteral("Other"));
    QCOMPARE(formatAt(word, 4).fontFamily(), QStringLiteral("BoxTest"));
}

void TestFonts::replacementNamedLikeTheMissingOne()
{
    OpenWord word;
    for (int i = 0; i < 50; ++i)
        word.m_cursor->insertText(QStringLiteral("ab"), with(T::LeadingGap, i, ofFamily(missing)));
    for (bool byFormerName : {false, true, false}) {
        word.fontReplace(missing, missing, byFormerName);
        QCOMPARE(formatAt(word, 99).fontFamily(), missing);
        QCOMPARE(formatAt(word, 99).property(T::OriginalFamily), QVariant(missing));
    }
    QCOMPARE(word.toPlainText().size(), 100);
}

void TestFonts::formerNameIsKeptInTheDocumentString()
{
    OpenWord word;
    word.add(QStringLiteral("ab"), ofFamily(missing));
    word.fontReplace(missing, QStringLiteral("BoxTest"), false);
    OpenWord other;
    other.deserialization(word.serialize(false), false);
    QCOMPARE(formatAt(other, 0).property(T::OriginalFamily), QVariant(missing));
    other.fontReplace(missing, QStringLiteral("Second"), true);
    QCOMPARE(formatAt(other, 0).fontFamily(), QStringLiteral("Second"));
}

void TestFonts::sizeOfHorizontalText()
{
    OpenWord word;
    word.m_cursor->setCharFormat(pixelFormat());
    QCOMPARE(word.getDefaultTextSize(QStringLiteral("ab")), QSizeF(14, 8)); // ink, not advance
    QCOMPARE(word.getDefaultTextSize(QStringLiteral("g")), QSizeF(6, 8));
    QCOMPARE(word.getDefaultTextSize(QString()), QSizeF(0, 0));
}

void TestFonts::sizeOfVerticalText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSizeF>("size");
    // Ink: "ab" 14 x 8 on the base line, "c" 6 x 6, "g" 6 x 8 of which 2 below it, Han 14 x 14 with 2 below.
    QTest::newRow("empty") << QString() << QSizeF(0, 0);
    QTest::newRow("a run") << QStringLiteral("ab") << QSizeF(8, 14);
    QTest::newRow("below the base line") << QStringLiteral("g") << QSizeF(2 * 2 + 8, 6);
    QTest::newRow("Han") << QStringLiteral(u"\u4e2d") << QSizeF(2 * 1 + 14, 2 * 2 + 14);
    QTest::newRow("two Han") << QStringLiteral(u"\u4e2d\u56fd") << QSizeF(16, 36);
    QTest::newRow("runs around Han") << QStringLiteral(u"ab\u4e2dc") << QSizeF(16, 14 + 18 + 6);
}

void TestFonts::sizeOfVerticalText()
{
    QFETCH(QString, text);
    QFETCH(QSizeF, size);
    OpenWord word;
    word.m_textOrientation = Qt::Vertical;
    word.m_cursor->setCharFormat(pixelFormat());
    QCOMPARE(word.getDefaultTextSize(text), size);
}

void TestFonts::sizeInTheDefaultFont()
{
    RecordingHost host;
    host.defaultFontSize = 30;
    OpenWord word(&host);
    word.m_cursor->setCharFormat(pixelFormat());
    const QString text = QStringLiteral("ab");
    QCOMPARE(word.getDefaultTextSize(text), QSizeF(14, 8));
    word.m_defaultFollow = true;
    QFont font(QStringLiteral("BoxTest"), 30);
    font.setItalic(true);
    QPainterPath path;
    path.addText(0, 0, font, text);
    QCOMPARE(word.getDefaultTextSize(text), path.boundingRect().size());
    QVERIFY(word.getDefaultTextSize(text).height() > 12);
    host.defaultFontSize = -1; // what no host says is Qt's own size
    const QSizeF usual = word.getDefaultTextSize(text);
    host.defaultFontSize = 0;
    QCOMPARE(word.getDefaultTextSize(text), usual);
    QVERIFY(usual.width() > 0 && usual.height() > 0);
    word.beginEdit();
    word.m_cursor->setCharFormat(pixelFormat());
    QCOMPARE(word.getDefaultTextSize(text), QSizeF(14, 8)); // the cursor's font again
}

void TestFonts::blanksAtTheEndsAreCounted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("leading");
    QTest::addColumn<int>("trailing");
    const auto row = [](const char *text, int leading, int trailing) {
        QTest::newRow(text) << QString::fromLatin1(text) << leading << trailing;
    };
    row("", 0, 0);
    row("ab", 0, 0);
    row(" ab", 1, 0);
    row("ab  ", 0, 2);
    row("  a b ", 2, 1);
    row("   ", 3, 0); // all of it ahead
    row(" \t\nab", 3, 0);
    row("\t ab", 0, 0); // begins with no blank
    row("ab \t ", 0, 3);
    row("ab \t", 0, 0); // ends with no blank
    row("\t ", 0, 2);
    row(" \t", 2, 0);
}

void TestFonts::blanksAtTheEndsAreCounted()
{
    QFETCH(QString, text);
    QFETCH(int, leading);
    QFETCH(int, trailing);
    int ahead = -1;
    int behind = -1;
    STextItem::spaceCounts(text, ahead, behind);
    QCOMPARE(ahead, leading);
    QCOMPARE(behind, trailing);
}

void TestFonts::sizeOfABlank_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("plain") << int(T::UpperCase) << QVariant(false) << QSizeF(8, 16);
    QTest::newRow("wide") << int(T::HorizontalScale) << QVariant(200) << QSizeF(16, 16);
    QTest::newRow("low") << int(T::VerticalScale) << QVariant(50) << QSizeF(8, 8);
    QTest::newRow("superscript") << int(F::TextVerticalAlignment) << QVariant(1) << QSizeF(4, 8);
    QTest::newRow("subscript") << int(F::TextVerticalAlignment) << QVariant(2) << QSizeF(4, 8);
    QTest::newRow("rounded") << int(F::FontPointSize) << QVariant(11.7) << QSizeF(8, 16);
    QTest::newRow("rounded down") << int(F::FontPointSize) << QVariant(24.3) << QSizeF(16, 32);
}

void TestFonts::sizeOfABlank()
{
    QFETCH(int, id);
    QFETCH(QVariant, value);
    QFETCH(QSizeF, size);
    QCOMPARE(STextItem::space_size(with(id, value), 96), size);
}

void TestFonts::textSizeWithBlanksAndSpacing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("spacing"); // thousandths
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("plain") << QStringLiteral("ab") << 0.0 << QSizeF(14, 8);
    QTest::newRow("blanks") << QStringLiteral(" ab  ") << 0.0 << QSizeF(14 + 3 * 8, 8);
    QTest::newRow("blank inside") << QStringLiteral("a b") << 0.0 << QSizeF(22, 8);
    QTest::newRow("spacing") << QStringLiteral("ab") << 250.0 << QSizeF(18, 8);
    QTest::newRow("both") << QStringLiteral(" ab  ") << 250.0 << QSizeF(18 + 3 * 12, 8);
    QTest::newRow("empty") << QString() << 250.0 << QSizeF(0, 0);
    QTest::newRow("blanks alone") << QStringLiteral("  ") << 0.0 << QSizeF(16, 0);
}

void TestFonts::textSizeWithBlanksAndSpacing()
{
    QFETCH(QString, text);
    QFETCH(double, spacing);
    QFETCH(QSizeF, size);
    OpenWord word;
    const QTextCharFormat format = with(T::LetterSpacing, spacing);
    QCOMPARE(word.getTextSize(text, format), size);
    QCOMPARE(word.textWidth(text, format), size.width());
    word.m_textOrientation = Qt::Vertical; // lies on its side
    QCOMPARE(word.getTextSize(text, format), size.transposed());
    QCOMPARE(word.textWidth(text, format), size.width());
}

void TestFonts::fragmentIsScaledAndTurned_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<bool>("asHorizontal");
    QTest::addColumn<QVariant>("scaleX");
    QTest::addColumn<QVariant>("scaleY");
    QTest::addColumn<int>("script");
    QTest::addColumn<double>("advance");
    QTest::addColumn<QSizeF>("size");
    // "ab" at (10, 20): ink from 11 to 25, from 12 to 20.
    const QVariant none;
    QTest::newRow("plain") << false << false << none << none << 0 << 25.0 << QSizeF(14, 8);
    QTest::newRow("half as wide") << false << false << QVariant(50) << none << 0 << 25.0
                                  << QSizeF(7, 8);
    QTest::newRow("twice as high, and so the advance")
        << false << false << none << QVariant(200) << 0 << 50.0 << QSizeF(14, 16);
    QTest::newRow("whole percents")
        << false << false << QVariant(49.6) << QVariant(200.4) << 0 << 50.0 << QSizeF(7, 16);
    QTest::newRow("superscript") << false << false << none << none << 1 << 12.5 << QSizeF(7, 4);
    QTest::newRow("subscript, scaled")
        << false << false << QVariant(50) << QVariant(200) << 2 << 25.0 << QSizeF(3.5, 8);
    QTest::newRow("column") << true << false << none << none << 0 << 25.0 << QSizeF(8, 14);
    QTest::newRow("column, scaled across")
        << true << false << QVariant(200) << none << 0 << 50.0 << QSizeF(16, 14);
    QTest::newRow("column, scaled along")
        << true << false << none << QVariant(50) << 0 << 25.0 << QSizeF(8, 7);
    QTest::newRow("column, upright")
        << true << true << QVariant(50) << QVariant(200) << 0 << 50.0 << QSizeF(7, 16);
    QTest::newRow("other alignment")
        << false << false << none << none << 3 << 25.0 << QSizeF(14, 8);
}

void TestFonts::fragmentIsScaledAndTurned()
{
    QFETCH(bool, vertical);
    QFETCH(bool, asHorizontal);
    QFETCH(QVariant, scaleX);
    QFETCH(QVariant, scaleY);
    QFETCH(int, script);
    QFETCH(double, advance);
    QFETCH(QSizeF, size);
    OpenWord word;
    word.m_textOrientation = vertical ? Qt::Vertical : Qt::Horizontal;
    QTextCharFormat format = OpenWord::format();
    format.setProperty(T::HorizontalScale, scaleX);
    format.setProperty(T::VerticalScale, scaleY);
    format.setProperty(F::TextVerticalAlignment, script);
    double measured = 0;
    const QRectF ink = word.fragmentPath(QPointF(10, 20), format, QStringLiteral("ab"), measured,
                                         0.0, asHorizontal)
                           .boundingRect();
    QCOMPARE(measured, advance);
    QCOMPARE(ink.size(), size);
    // Scaling keeps the centre (18, 16); columns turn it about the origin, clockwise.
    QCOMPARE(ink.center(), vertical && !asHorizontal ? QPointF(-16, 18) : QPointF(18, 16));
}

void TestFonts::fragmentTakesBothSpacingsAndMore()
{
    OpenWord word;
    QTextCharFormat format = OpenWord::format();
    format.setProperty(T::LetterSpacing, 250.0); // 4 pixels
    format.setProperty(T::LeadingGap, 125.0);    // 2 pixels
    double advance = 0;
    word.fragmentPath(QPointF(0, 0), format, QStringLiteral("ab"), advance, 3.0, false);
    QCOMPARE(advance, 8.0 + 4 + 2 + 3 + 7);
    word.fragmentPath(QPointF(0, 0), format, QStringLiteral("ab"), advance, -6.0, false);
    QCOMPARE(advance, 8.0 + 7);
}

void TestFonts::fragmentHasNoBars()
{
    OpenWord word;
    QTextCharFormat format = OpenWord::format();
    format.setFontStrikeOut(true);
    format.setFontOverline(true);
    format.setProperty(F::TextUnderlineStyle, 1);
    double advance = 0;
    const QPainterPath path = word.fragmentPath(QPointF(0, 0), format, QStringLiteral("ab"),
                                                advance, 0.0, false);
    QCOMPARE(path.boundingRect(), QRectF(1, -8, 14, 8));
}

void TestFonts::fragmentReportsItsLowerEdge()
{
    OpenWord word;
    double advance = 0;
    double lowerEdge = 0;
    const auto measure = [&](const QTextCharFormat &format) {
        word.fragmentPath(QPointF(0, 0), format, QStringLiteral("g"), advance, lowerEdge, 0.0,
                          false);
        return lowerEdge;
    };
    QCOMPARE(measure(OpenWord::format()), 2.0);
    QCOMPARE(measure(with(T::VerticalScale, 300)), 6.0);
    QCOMPARE(measure(with(F::TextVerticalAlignment, 1)), 1.0);
    word.m_textOrientation = Qt::Vertical;
    QCOMPARE(measure(with(T::HorizontalScale, 200)), 4.0);
}

void TestFonts::charactersThatFit_data()
{
    QTest::addColumn<double>("used");
    QTest::addColumn<double>("limit");
    QTest::addColumn<int>("index");
    // Widths of the prefixes of "aaaa": 0, 6, 14, 22.
    QTest::newRow("between") << 0.0 << 15.0 << 2;
    QTest::newRow("exactly") << 0.0 << 14.0 << 2;
    QTest::newRow("a little less") << 0.0 << 13.9 << 1;
    QTest::newRow("used before") << 8.0 << 15.0 << 1;
    QTest::newRow("one fits") << 0.0 << 6.0 << 1;
    QTest::newRow("none fits") << 0.0 << 5.0 << 0;
    QTest::newRow("not even nothing") << 20.0 << 15.0 << -1;
    QTest::newRow("all: the last is not looked at") << 0.0 << 1000.0 << 3;
}

void TestFonts::charactersThatFit()
{
    QFETCH(double, used);
    QFETCH(double, limit);
    QFETCH(int, index);
    OpenWord word;
    QCOMPARE(word.autoWrapIndex(QStringLiteral("aaaa"), OpenWord::format(), used, limit), index);
}

void TestFonts::noCharactersFitIntoNothing()
{
    OpenWord word;
    QCOMPARE(word.autoWrapIndex(QString(), OpenWord::format(), 0, 100), -1);
    QCOMPARE(word.autoWrapIndex(QString(), OpenWord::format(), 100, 0), -1);
}

void TestFonts::limitThatIsNoNumberEnds()
{
    OpenWord word;
    const QString text(50, QLatin1Char('a'));
    for (double used : {notANumber, infinite, -infinite, 0.0}) {
        for (double limit : {notANumber, infinite, -infinite, 0.0}) {
            const int index = word.autoWrapIndex(text, OpenWord::format(), used, limit);
            QVERIFY(index >= -1 && index < 50);
        }
    }
}

void TestFonts::fitOfALongTextIsThatOfHalvingAllOfIt_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("value");
    const QString squares = loadBoxTestFont();
    const QString serif = QStringLiteral("Noto Serif");
    const QString latin = QStringLiteral(
        "The fishy fjord waffles  on, ' a f  V.A.T. -- if (so).  ");
    const QString arabic = QStringLiteral("\u0627\u0644\u0633\u0644\u0627\u0645 \u0639\u0644"
                                          "\u064a\u0643\u0645\u060c 12 abc ");
    const QString han = QStringLiteral("\u4e00\u4e01\u3002\u300c\u3042a \u4e02\U00020000");
    QTest::newRow("Latin") << serif << latin << 0 << QVariant();
    QTest::newRow("squares") << squares << latin << 0 << QVariant();
    QTest::newRow("spaces") << serif << QStringLiteral("a          ") << 0 << QVariant();
    QTest::newRow("only spaces") << serif << QStringLiteral("     ") << 0 << QVariant();
    QTest::newRow("Han") << squares << han << 0 << QVariant();
    QTest::newRow("Arabic") << QStringLiteral("Noto Sans Arabic") << arabic << 0 << QVariant();
    QTest::newRow("joined") << QStringLiteral("Noto Sans Arabic") << QStringLiteral("\u0644\u0627")
                            << 0 << QVariant();
    QTest::newRow("marks") << serif << QStringLiteral("a\u0301\u0302\u0303") << 0 << QVariant();
    QTest::newRow("spaced") << serif << latin << int(T::LetterSpacing) << QVariant(200);
    QTest::newRow("tight") << serif << latin << int(T::LetterSpacing) << QVariant(-400);
    QTest::newRow("gap") << serif << latin << int(T::LeadingGap) << QVariant(100);
    QTest::newRow("wide") << serif << latin << int(T::HorizontalScale) << QVariant(300);
    QTest::newRow("narrow") << serif << latin << int(T::HorizontalScale) << QVariant(20);
    QTest::newRow("without width") << serif << latin << int(T::HorizontalScale) << QVariant(0);
    QTest::newRow("turned over") << serif << latin << int(T::HorizontalScale) << QVariant(-100);
    QTest::newRow("tall") << serif << latin << int(T::VerticalScale) << QVariant(300);
    QTest::newRow("superscript") << serif << latin << int(QTextFormat::TextVerticalAlignment)
                                 << QVariant(1);
}

/// The result of measuring every prefix that halving the whole text comes to.
void TestFonts::fitOfALongTextIsThatOfHalvingAllOfIt()
{
    QFETCH(QString, family);
    QFETCH(QString, text);
    QFETCH(int, id);
    QFETCH(QVariant, value);
    QTextCharFormat format = OpenWord::format();
    format.setFontFamily(family);
    if (id)
        format.setProperty(id, value);
    text = text.repeated(300 / text.length());
    for (int orientation : {1, 2}) {
        OpenWord word;
        word.m_textOrientation = orientation;
        QHash<int, double> widths; // those that were needed
        const auto widthOf = [&](int length) {
            if (!widths.contains(length))
                widths.insert(length, word.textWidth(text.left(length), format));
            return widths.value(length);
        };
        for (double limit : {-5.0, 0.0, 7.5, 16.0, 64.0, 100.0, 333.0, 1000.0, widthOf(40)}) {
            for (double used : {0.0, 20.0}) {
                int low = 0;
                int high = text.length() - 1;
                while (low <= high) {
                    const int middle = low + (high - low) / 2;
                    const double width = widthOf(middle) + used;
                    if (width == limit) {
                        high = middle;
                        break;
                    }
                    if (width > limit)
                        high = middle - 1;
                    else
                        low = middle + 1;
                }
                if (high > 0 && text.at(high).isLowSurrogate())
                    --high;
                QCOMPARE(word.autoWrapIndex(text, format, used, limit), high);
            }
        }
    }
}

void TestFonts::fitNeverCutsACodePoint()
{
    OpenWord word;
    const uint han[] = {0x20000, 0x20000, 0x20000};
    const QString text = QString::fromUcs4(han, 3);
    for (int limit = 0; limit < 80; ++limit) {
        const int index = word.autoWrapIndex(text, OpenWord::format(), 0, limit);
        QVERIFY2(index <= 0 || !text.at(index).isLowSurrogate(),
                 qPrintable(QString::number(index)));
    }
}

void TestFonts::measuringTakesAnyNumbers()
{
    OpenWord word;
    for (int orientation : {1, 2}) {
        word.m_textOrientation = orientation;
        for (double value : {notANumber, infinite, -1e308, 1e308, 0.0, -1.0}) {
            QTextCharFormat format = OpenWord::format();
            for (int id : {T::LetterSpacing, T::LeadingGap, T::HorizontalScale, T::VerticalScale,
                           T::BaselineOffset})
                format.setProperty(id, value);
            double advance = 0;
            word.fragmentPath(QPointF(0, 0), format, QStringLiteral(" ab "), advance, value, true);
            word.getTextSize(QStringLiteral(" ab "), format);
            const int index = word.autoWrapIndex(QStringLiteral(" ab "), format, value, 100);
            QVERIFY(index >= -1 && index < 4);
            format.setFontPointSize(value == 0.0 ? 1 : std::abs(value));
            word.fragmentPath(QPointF(0, 0), format, QStringLiteral("ab"), advance, 0, false);
            word.m_cursor->setCharFormat(format);
            word.getDefaultTextSize(QStringLiteral("ab"));
        }
    }
}

QTEST_MAIN(TestFonts)
#include "tst_fonts.moc"
