// SPDX-License-Identifier: MIT
// The ends of lines of old text: forbidden characters, cut words, and that no text is lost or doubled.
#include "legacylines.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

class TestLegacyBreaking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // line heads
    void ruleZeroLeavesEveryLine();
    void emptyListsAndLinesAreLeft();
    void headIsRepaired_data();
    void headIsRepaired();
    void firstLineKeepsItsHead();
    void lineWithoutALineBeforeKeepsItsHead();
    void partsHaveOutlinesOfTheirOwn();
    void partsKeepBarsAndSpacing();
    void bothLinesAreMeasuredAnew();
    void runThatGoesAsAWholeCountsFromBehindItself();
    void lineOfAnEmptyBlockFormatIsNotMeasured();
    void lineBeforeEndsInAHyphen();

    // what has no room
    void overflowGoesOn_data();
    void overflowGoesOn();
    void lineEmptiedByTheOverflowIsNotRepairedFurther();
    void lineThatKeptItsHeadIsNotCheckedForRoom();

    // line tails
    void tailIsRepaired_data();
    void tailIsRepaired();
    void lastLineKeepsItsTail();
    void tailStandsAheadOfTheOverflow();
    void cutTailCountsFromBehindTheWholeRun();

    // words
    void noLetterAtTheEnd_data();
    void noLetterAtTheEnd();
    void cutWordMovesWhole_data();
    void cutWordMovesWhole();
    void columnsKeepTheRunWhole();
    void movedWordLeavesTheMeasuresOfTheLine();
    void movedListIsEmptiedFirst();
    void letterMovesBehindAHyphen();
    void hyphenation_data();
    void hyphenation();
    void hyphenLooksLikeItsWord();

    // in layouts
    void bracketDoesNotEndALine();
    void stopDoesNotBeginALine();
    void repairMovesTextOnToAnotherLine();
    void longWordIsHyphenatedOnEveryLine();
    void wordMovesToTheNextLine();
    void currentEngineBreaksTheSameTextOtherwise();

    // all of it
    void noTextIsLostOrDoubled_data();
    void noTextIsLostOrDoubled();
    void formattedTextIsNeitherLostNorDoubled();
};

namespace {
const int relaxed = 1;
const int strict = 2;
const double wide = 1000;

struct Lines {
    explicit Lines(const QStringList &runs, Qt::Orientation orientation = Qt::Horizontal)
        : word(orientation)
    {
        int position = 0;
        for (const QString &line : runs) {
            lines.append(handLine(word, line, position));
            position += lines.last().length();
        }
    }

    void avoid(int rule, double available = wide)
    {
        word.avoidHeadTail(rule, lines, available, moved);
    }

    QStringList runs() const
    {
        QStringList result;
        for (const STextLine &line : lines)
            result.append(runsOf(line.items));
        return result;
    }

    OldWord word;
    QList<STextLine> lines;
    QList<STextItem> moved;
};
} // namespace

// Line heads

void TestLegacyBreaking::ruleZeroLeavesEveryLine()
{
    Lines text({QStringLiteral("中文"), QStringLiteral("。国「")});
    text.avoid(0);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中文"), QStringLiteral("。国「")}));
    QVERIFY(text.moved.isEmpty());
    text.avoid(relaxed); // which would have had something to do
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中"), QStringLiteral("文|。国")}));
    QCOMPARE(runsOf(text.moved), QStringLiteral("「"));
}

void TestLegacyBreaking::emptyListsAndLinesAreLeft()
{
    Lines none({});
    none.avoid(strict);
    QVERIFY(none.lines.isEmpty());

    Lines text({QStringLiteral("中文"), QStringLiteral("。")});
    text.lines.last().items.clear();
    text.avoid(strict);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中文"), QString()}));

    const STextItem empty = handItem(text.word, QString(), 2);
    for (bool first : {true, false}) {
        text.lines.last() = handLine(text.word, QStringLiteral("。「"), 2);
        QList<STextItem> &items = text.lines.last().items;
        items.insert(first ? 0 : 1, empty);
        text.avoid(strict);
        QCOMPARE(items.size(), 2);
        QVERIFY(text.moved.isEmpty());
    }
}

void TestLegacyBreaking::headIsRepaired_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("beforeThen");
    QTest::addColumn<QString>("lineThen");
    const auto row = [](const char *name, int rule, const QString &before, const QString &line,
                        const QString &beforeThen, const QString &lineThen) {
        QTest::newRow(name) << rule << before << line << beforeThen << lineThen;
    };
    const QString stop = QStringLiteral("。");
    row("one character comes", relaxed, QStringLiteral("中文"), stop, QStringLiteral("中"),
        QStringLiteral("文|。"));
    row("with the head ones behind it", relaxed, QStringLiteral("中文、」"), stop,
        QStringLiteral("中"), QStringLiteral("文、」|。"));
    row("a run of head ones goes whole", relaxed, QStringLiteral("ab|、"), stop,
        QStringLiteral("a"), QStringLiteral("b|、|。"));
    row("a run of one character goes whole", relaxed, QStringLiteral("ab|c"), stop,
        QStringLiteral("ab"), QStringLiteral("c|。"));
    row("not behind a bracket", relaxed, QStringLiteral("天国人「文"), stop, QStringLiteral("天"),
        QStringLiteral("国人「文|。"));
    row("not behind two brackets", relaxed, QStringLiteral("天国人「『文"), stop,
        QStringLiteral("天"), QStringLiteral("国人「『文|。"));
    row("a bracket ahead of all goes whole", relaxed, QStringLiteral("ab|「c"), stop,
        QStringLiteral("a"), QStringLiteral("b|「c|。"));
    row("one character ahead of a bracket goes whole", relaxed, QStringLiteral("ab|x「c"), stop,
        QStringLiteral("a"), QStringLiteral("b|x「c|。"));
    row("nothing would stay", relaxed, QStringLiteral("中"), stop, QStringLiteral("中"), stop);
    row("nothing but head ones", relaxed, QStringLiteral("、|。"), stop, QStringLiteral("、|。"),
        stop);
    row("a bracket behind the first", relaxed, QStringLiteral("国「文"), stop,
        QStringLiteral("国「文"), stop);
    row("a kana may begin a line", relaxed, QStringLiteral("中文"), QStringLiteral("あ"),
        QStringLiteral("中文"), QStringLiteral("あ"));
    row("but not by the strict rule", strict, QStringLiteral("中文"), QStringLiteral("あ"),
        QStringLiteral("中"), QStringLiteral("文|あ"));
    row("any other rule is strict", 7, QStringLiteral("中文"), QStringLiteral("あ"),
        QStringLiteral("中"), QStringLiteral("文|あ"));
    row("a code point stays whole", relaxed, QStringLiteral("a\U00020000"), stop,
        QStringLiteral("a"), QStringLiteral("\U00020000|。"));
    row("a code point ahead of a bracket", relaxed, QStringLiteral("天\U00020000a「c"), stop,
        QStringLiteral("天"), QStringLiteral("\U00020000a「c|。"));
}

void TestLegacyBreaking::headIsRepaired()
{
    QFETCH(int, rule);
    QFETCH(QString, before);
    QFETCH(QString, line);
    QFETCH(QString, beforeThen);
    QFETCH(QString, lineThen);
    Lines text({before, line});
    text.avoid(rule);
    QCOMPARE(text.runs(), (QStringList{beforeThen, lineThen}));
    QVERIFY(text.moved.isEmpty());
}

void TestLegacyBreaking::firstLineKeepsItsHead()
{
    Lines text({QStringLiteral("中文"), QStringLiteral("。国")});
    text.lines.last().isFirstLine = true;
    text.avoid(strict);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中文"), QStringLiteral("。国")}));
}

void TestLegacyBreaking::lineWithoutALineBeforeKeepsItsHead()
{
    Lines text({QStringLiteral("。国")});
    text.avoid(strict);
    QCOMPARE(text.runs(), QStringList{QStringLiteral("。国")});
}

void TestLegacyBreaking::partsHaveOutlinesOfTheirOwn()
{
    Lines text({QStringLiteral("中文国"), QStringLiteral("。")});
    text.avoid(relaxed);
    const STextItem kept = text.lines.first().items.first();
    const STextItem came = text.lines.last().items.first();
    QCOMPARE(kept.path.boundingRect().width(), 30.0); // "中文", from 1 to 31
    QCOMPARE(came.path.boundingRect().width(), 14.0);
    QCOMPARE(positionsOf(text.lines.last().items), QStringLiteral("2 3"));
}

void TestLegacyBreaking::partsKeepBarsAndSpacing()
{
    QTextCharFormat format = OldWord::formatWith(TextProperty::LetterSpacing, 500.0); // 8 px
    format.setFontUnderline(true);
    format.setFontStrikeOut(true);
    Lines text({QStringLiteral("x"), QStringLiteral("。")});
    text.lines.first().items = {handItem(text.word, QStringLiteral(" 文 国"), 0, format)};
    text.avoid(relaxed);
    const QList<STextItem> parts{text.lines.first().items.first(), text.lines.last().items.first()};
    for (const STextItem &part : parts) {
        QVERIFY(part.underline && part.strikeOut);
        QCOMPARE(part.selectedLetterSpacing, 8.0);
        QCOMPARE(part.madeFrom, format);
    }
    QCOMPARE(parts.at(0).text, QStringLiteral(" 文 "));
    QCOMPARE(parts.at(0).leadingSpaces, 1);
    QCOMPARE(parts.at(0).trailingSpaces, 1);
    QCOMPARE(parts.at(1).leadingSpaces, 0);
    QCOMPARE(parts.at(1).trailingSpaces, 0);
}

void TestLegacyBreaking::bothLinesAreMeasuredAnew()
{
    Lines text({QStringLiteral("中文国"), QStringLiteral("。")});
    text.avoid(relaxed);
    QCOMPARE(text.lines.at(0).width, 30.0);
    QCOMPARE(text.lines.at(1).width, 18.0); // 14 and the stop's 4
    QCOMPARE(text.lines.at(1).height, 14.0);
}

void TestLegacyBreaking::runThatGoesAsAWholeCountsFromBehindItself()
{
    Lines text({QStringLiteral("ab|cd|、"), QStringLiteral("。")});
    text.lines.first().items.removeAt(1);
    text.lines.first().items.insert(1, handItem(text.word, QStringLiteral("c"), 2));
    text.avoid(relaxed);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("ab"), QStringLiteral("c|、|。")}));
    QCOMPARE(positionsOf(text.lines.last().items), QStringLiteral("3 4 5"));
}

void TestLegacyBreaking::lineOfAnEmptyBlockFormatIsNotMeasured()
{
    Lines text({QStringLiteral("中文国"), QStringLiteral("。")});
    for (STextLine &line : text.lines)
        line.blockFormat = QTextBlockFormat();
    text.avoid(relaxed);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中文"), QStringLiteral("国|。")}));
    QCOMPARE(text.lines.at(0).width, 46.0); // as it was
    QCOMPARE(text.lines.at(1).width, 4.0);
}

void TestLegacyBreaking::lineBeforeEndsInAHyphen()
{
    Lines text({QStringLiteral("ab|-"), QStringLiteral("。")});
    text.lines.first().items.last().isHyphen = true;
    text.avoid(relaxed);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("ab|-"), QStringLiteral("。")}));
}

// What has no room

void TestLegacyBreaking::overflowGoesOn_data()
{
    QTest::addColumn<double>("available");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("moved");
    QTest::addColumn<QString>("positions");
    // "文" is 14 px and comes ahead of "。国人", of which "。" takes 4, "。国" 30 and all 46, and of "天" with 14.
    QTest::newRow("all fits") << 74.0 << QStringLiteral("文|。国人|天") << QString() << QString();
    QTest::newRow("the last run goes whole")
        << 73.0 << QStringLiteral("文|。国人") << QStringLiteral("天") << QStringLiteral("5");
    QTest::newRow("a run is cut") << 59.0 << QStringLiteral("文|。国") << QStringLiteral("人|天")
                                  << QStringLiteral("4 5");
    QTest::newRow("a run is cut earlier")
        << 43.0 << QStringLiteral("文|。") << QStringLiteral("国人|天") << QStringLiteral("3 5");
    QTest::newRow("no room at all")
        << -1.0 << QStringLiteral("文|。国人|天") << QString() << QString();
}

void TestLegacyBreaking::overflowGoesOn()
{
    QFETCH(double, available);
    QFETCH(QString, line);
    QFETCH(QString, moved);
    QFETCH(QString, positions);
    Lines text({QStringLiteral("中文"), QStringLiteral("。国人|天")});
    text.avoid(relaxed, available);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中"), line}));
    QCOMPARE(runsOf(text.moved), moved);
    QCOMPARE(positionsOf(text.moved), positions);
}

void TestLegacyBreaking::lineEmptiedByTheOverflowIsNotRepairedFurther()
{
    Lines text({QStringLiteral("中文"), QStringLiteral("。「")});
    text.avoid(relaxed, 5);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中"), QString()}));
    QCOMPARE(runsOf(text.moved), QStringLiteral("文|。「"));
    QCOMPARE(text.lines.last().width, 0.0);
}

void TestLegacyBreaking::lineThatKeptItsHeadIsNotCheckedForRoom()
{
    Lines text({QStringLiteral("中"), QStringLiteral("。国人")});
    text.avoid(relaxed, 20);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中"), QStringLiteral("。国人")}));
    QVERIFY(text.moved.isEmpty());
}

// Line tails

void TestLegacyBreaking::tailIsRepaired_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("then");
    QTest::addColumn<QString>("moved");
    QTest::newRow("one bracket") << relaxed << QStringLiteral("ab(") << QStringLiteral("ab")
                                 << QStringLiteral("(");
    QTest::newRow("a run of its own")
        << relaxed << QStringLiteral("ab|(") << QStringLiteral("ab") << QStringLiteral("(");
    QTest::newRow("several in reading order")
        << relaxed << QStringLiteral("a(|[|{") << QStringLiteral("a") << QStringLiteral("(|[|{");
    QTest::newRow("back over a run") << relaxed << QStringLiteral("x|ab「『|(")
                                     << QStringLiteral("x|ab") << QStringLiteral("「『|(");
    QTest::newRow("nothing but tail ones")
        << relaxed << QStringLiteral("(|[") << QStringLiteral("(|[") << QString();
    QTest::newRow("a sign may end a line")
        << relaxed << QStringLiteral("a$") << QStringLiteral("a$") << QString();
    QTest::newRow("but not by the strict rule")
        << strict << QStringLiteral("a$") << QStringLiteral("a") << QStringLiteral("$");
    QTest::newRow("behind a code point") << relaxed << QStringLiteral("\U00020000(")
                                         << QStringLiteral("\U00020000") << QStringLiteral("(");
    QTest::newRow("a letter") << strict << QStringLiteral("(a") << QStringLiteral("(a")
                              << QString();
}

void TestLegacyBreaking::tailIsRepaired()
{
    QFETCH(int, rule);
    QFETCH(QString, line);
    QFETCH(QString, then);
    QFETCH(QString, moved);
    Lines text({line});
    text.avoid(rule);
    QCOMPARE(text.runs(), QStringList{then});
    QCOMPARE(runsOf(text.moved), moved);
}

void TestLegacyBreaking::lastLineKeepsItsTail()
{
    Lines text({QStringLiteral("ab(")});
    text.lines.last().isLastLine = true;
    text.avoid(strict);
    QCOMPARE(text.runs(), QStringList{QStringLiteral("ab(")});
    QVERIFY(text.moved.isEmpty());
}

void TestLegacyBreaking::tailStandsAheadOfTheOverflow()
{
    // "文" 14, "。「国" 46: "。「" takes 31 of the 45 px
    Lines text({QStringLiteral("中文"), QStringLiteral("。「国|人")});
    text.avoid(relaxed, 50);
    QCOMPARE(text.runs(), (QStringList{QStringLiteral("中"), QStringLiteral("文|。")}));
    QCOMPARE(runsOf(text.moved), QStringLiteral("「|国|人"));
}

void TestLegacyBreaking::cutTailCountsFromBehindTheWholeRun()
{
    Lines text({QStringLiteral("xyz|ab([|{")});
    text.avoid(relaxed);
    QCOMPARE(positionsOf(text.lines.last().items), QStringLiteral("0 3"));
    QCOMPARE(runsOf(text.moved), QStringLiteral("([|{"));
    QCOMPARE(positionsOf(text.moved), QStringLiteral("7 7"));
}

// Words

void TestLegacyBreaking::noLetterAtTheEnd_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("digit") << QStringLiteral("ab1");
    QTest::newRow("blank") << QStringLiteral("ab ");
    QTest::newRow("Han") << QStringLiteral("ab中");
    QTest::newRow("underscore") << QStringLiteral("ab_");
    QTest::newRow("no line") << QString();
}

void TestLegacyBreaking::noLetterAtTheEnd()
{
    QFETCH(QString, line);
    for (bool hyphenate : {false, true}) {
        Lines text({line});
        text.word.addBlock(line + QStringLiteral("cd"));
        QCOMPARE(text.word.ligatureText(hyphenate, text.lines, text.moved), 0);
        QCOMPARE(text.runs(), QStringList{line});
        QVERIFY(text.moved.isEmpty());
    }
    QList<STextLine> none;
    Lines text({});
    QCOMPARE(text.word.ligatureText(true, none, text.moved), 0);
}

void TestLegacyBreaking::cutWordMovesWhole_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("then");
    QTest::addColumn<QString>("moved");
    QTest::addColumn<QString>("positions");
    QTest::newRow("the last word") << QStringLiteral("ab cde") << QStringLiteral("ab ")
                                   << QStringLiteral("cde") << QStringLiteral("3");
    QTest::newRow("one long word stays")
        << QStringLiteral("abcdef") << QStringLiteral("abcdef") << QString() << QString();
    QTest::newRow("one word of several runs stays")
        << QStringLiteral("ab|cd") << QStringLiteral("ab|cd") << QString() << QString();
    QTest::newRow("runs of a word, in reading order")
        << QStringLiteral("x y|cd|ef") << QStringLiteral("x ") << QStringLiteral("y|cd|ef")
        << QStringLiteral("2 3 5");
    QTest::newRow("nothing left of the run that ends the word ahead")
        << QStringLiteral("ab |cd") << QStringLiteral("ab ") << QStringLiteral("cd")
        << QStringLiteral("3");
    QTest::newRow("a digit ends a word") << QStringLiteral("a1b") << QStringLiteral("a1")
                                         << QStringLiteral("b") << QStringLiteral("2");
    QTest::newRow("an underscore does not") << QStringLiteral("x a_b") << QStringLiteral("x ")
                                            << QStringLiteral("a_b") << QStringLiteral("2");
    QTest::newRow("a backslash does not") << QStringLiteral("x a\\b") << QStringLiteral("x ")
                                          << QStringLiteral("a\\b") << QStringLiteral("2");
    QTest::newRow("an accented letter ends the word that it belongs to")
        << QStringLiteral("xy\u00e9") << QStringLiteral("xy\u00e9") << QString() << QString();
    QTest::newRow("behind a code point")
        << QStringLiteral("\U00020000ab") << QStringLiteral("\U00020000") << QStringLiteral("ab")
        << QStringLiteral("2");
}

void TestLegacyBreaking::cutWordMovesWhole()
{
    QFETCH(QString, line);
    QFETCH(QString, then);
    QFETCH(QString, moved);
    QFETCH(QString, positions);
    Lines text({line});
    QCOMPARE(text.word.ligatureText(false, text.lines, text.moved), 0);
    QCOMPARE(text.runs(), QStringList{then});
    QCOMPARE(runsOf(text.moved), moved);
    QCOMPARE(positionsOf(text.moved), positions);
}

void TestLegacyBreaking::columnsKeepTheRunWhole()
{
    Lines text({QStringLiteral("x ab|cd|ef")}, Qt::Vertical);
    QCOMPARE(text.word.ligatureText(false, text.lines, text.moved), 0);
    QCOMPARE(text.runs(), QStringList{QStringLiteral("x ab")});
    QCOMPARE(runsOf(text.moved), QStringLiteral("cd|ef"));
}

void TestLegacyBreaking::movedWordLeavesTheMeasuresOfTheLine()
{
    Lines text({QStringLiteral("ab cde")});
    text.lines.last().rightMargin = 3;
    text.word.ligatureText(false, text.lines, text.moved);
    QCOMPARE(text.lines.last().width, 46.0); // six letters of 8 px but for the bearings of 1 px
    QCOMPARE(text.lines.last().rightMargin, 3.0);
    QCOMPARE(text.lines.last().items.first().trailingSpaces, 1);
    QCOMPARE(text.lines.last().items.first().path.boundingRect().width(), 14.0);
    QCOMPARE(text.moved.first().path.boundingRect().width(), 22.0);
}

void TestLegacyBreaking::movedListIsEmptiedFirst()
{
    Lines text({QStringLiteral("ab1")});
    for (bool hyphenate : {false, true}) {
        text.moved = {handItem(text.word, QStringLiteral("old"), 0)};
        text.word.ligatureText(hyphenate, text.lines, text.moved);
        QVERIFY(text.moved.isEmpty());
    }
}

void TestLegacyBreaking::letterMovesBehindAHyphen()
{
    Lines text({QStringLiteral("abc")});
    text.word.addBlock(QStringLiteral("abcdef"));
    QCOMPARE(text.word.ligatureText(true, text.lines, text.moved), 1);
    QCOMPARE(text.runs(), QStringList{QStringLiteral("ab|-")});
    const STextItem hyphen = text.lines.last().items.last();
    QVERIFY(hyphen.isHyphen);
    QCOMPARE(hyphen.position, -2);
    QCOMPARE(hyphen.path.boundingRect().size(), QSizeF(6, 1));
    QVERIFY(!text.lines.last().items.first().isHyphen);
    QCOMPARE(text.lines.last().items.first().path.boundingRect().width(), 14.0);
    QCOMPARE(text.lines.last().length(), 2);
    QCOMPARE(text.lines.last().width, 22.0); // not measured anew
    QCOMPARE(runsOf(text.moved), QStringLiteral("c"));
    QCOMPARE(positionsOf(text.moved), QStringLiteral("1")); // one ahead of the letter
    QVERIFY(!text.moved.first().isHyphen);
}

void TestLegacyBreaking::hyphenation_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("then");
    QTest::addColumn<QString>("moved");
    const auto row = [](const char *name, const QString &document, const QString &line,
                        const QString &then, const QString &moved) {
        QTest::newRow(name) << document << line << then << moved;
    };
    const QString none;
    row("the word ends with the line", QStringLiteral("abc def"), QStringLiteral("abc"),
        QStringLiteral("abc"), none);
    row("the text ends with the line", QStringLiteral("abc"), QStringLiteral("abc"),
        QStringLiteral("abc"), none);
    row("a paragraph ends with the line", QStringLiteral("abc\ndef"), QStringLiteral("abc"),
        QStringLiteral("abc"), none);
    row("the first letter of a word has no hyphen", QStringLiteral("ab cde"),
        QStringLiteral("ab c"), QStringLiteral("ab "), QStringLiteral("c"));
    row("of a word of one letter", QStringLiteral("ab c de"), QStringLiteral("ab c"),
        QStringLiteral("ab c"), none);
    row("the text ends behind the first letter", QStringLiteral("ab c"), QStringLiteral("ab c"),
        QStringLiteral("ab c"), none);
    row("a run of one letter", QStringLiteral("abcd"), QStringLiteral("ab|c"),
        QStringLiteral("ab|c"), none);
    row("the last run only", QStringLiteral("abcdef"), QStringLiteral("ab|cd"),
        QStringLiteral("ab|c|-"), QStringLiteral("d"));
    row("accented letters", QStringLiteral("\u00e9\u00c9\u00e9\u00e9"),
        QStringLiteral("\u00e9\u00c9\u00e9"), QStringLiteral("\u00e9\u00c9|-"),
        QStringLiteral("\u00e9"));
    row("Han behind", QStringLiteral("abc中"), QStringLiteral("abc"), QStringLiteral("abc"), none);
    row("the first letter of all", QStringLiteral("abc"), QStringLiteral("a"), QStringLiteral("a"),
        none);
}

void TestLegacyBreaking::hyphenation()
{
    QFETCH(QString, document);
    QFETCH(QString, line);
    QFETCH(QString, then);
    QFETCH(QString, moved);
    Lines text({line});
    text.word.addBlock(document);
    QCOMPARE(text.word.ligatureText(true, text.lines, text.moved), moved.isEmpty() ? 0 : 1);
    QCOMPARE(text.runs(), QStringList{then});
    QCOMPARE(runsOf(text.moved), moved);
}

void TestLegacyBreaking::hyphenLooksLikeItsWord()
{
    Lines text({QStringLiteral("x")});
    text.word.addBlock(QStringLiteral("abcd"));
    QTextCharFormat format = OpenWord::format(24);
    format.setForeground(Qt::red);
    format.setFontUnderline(true);
    text.lines.last().items = {handItem(text.word, QStringLiteral("abc"), 0, format)};
    QCOMPARE(text.word.ligatureText(true, text.lines, text.moved), 1);
    const STextItem hyphen = text.lines.last().items.last();
    QCOMPARE(hyphen.path.boundingRect().size(), QSizeF(12, 2));
    QVERIFY(hyphen.underline);
    QCOMPARE(hyphen.format.foreground().color(), QColor(Qt::red));
}

// In layouts

void TestLegacyBreaking::bracketDoesNotEndALine()
{
    OldWord word;
    word.makeBox(48, 200);
    word.addBlock(QStringLiteral("中文「国人"), OldWord::blockWith(TextProperty::HeadTailRule, 0));
    word.layOut();
    QCOMPARE(word.runs(), (QStringList{QStringLiteral("中文「"), QStringLiteral("国人")}));
    word.m_cursor->setBlockFormat(OldWord::blockWith(TextProperty::HeadTailRule, 1));
    word.layOut();
    QCOMPARE(word.runs().first(), QStringLiteral("中文"));
    QCOMPARE(textOf(word.m_legacyLines), QStringLiteral("中文「国人"));
}

void TestLegacyBreaking::stopDoesNotBeginALine()
{
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        OldWord word(orientation);
        word.makeBox(200, 200);
        // three Han take 46 px along a row, and 42 as single characters of a column
        if (orientation == Qt::Horizontal)
            word.m_clientRect.setWidth(47);
        else
            word.m_clientRect.setHeight(47);
        word.addBlock(QStringLiteral("中文国。人"),
                      OldWord::blockWith(TextProperty::HeadTailRule, 1));
        word.layOut();
        QVERIFY(word.m_legacyLines.size() >= 2);
        for (const STextLine &line : qAsConst(word.m_legacyLines))
            QVERIFY(!line.items.first().text.startsWith(QStringLiteral("。")));
        QCOMPARE(textOf(word.m_legacyLines), QStringLiteral("中文国。人"));
    }
}

void TestLegacyBreaking::repairMovesTextOnToAnotherLine()
{
    OldWord word;
    word.makeBox(48, 200);
    word.addBlock(QStringLiteral("中文国。人天"),
                  OldWord::blockWith(TextProperty::HeadTailRule, 1));
    word.layOut();
    // "。人天" would fill the second line: with the character that comes to it the last one has to go
    QCOMPARE(word.m_legacyLines.size(), 3);
    QCOMPARE(textOf({word.line(0)}), QStringLiteral("中文"));
    QCOMPARE(textOf({word.line(1)}), QStringLiteral("国。人"));
    QCOMPARE(textOf({word.line(2)}), QStringLiteral("天"));
    QVERIFY(word.line(2).isLastLine && !word.line(1).isLastLine);
}

void TestLegacyBreaking::longWordIsHyphenatedOnEveryLine()
{
    OldWord word;
    word.makeBox(40, 400);
    const QString letters = QStringLiteral("abcdefghijklmnopqrst");
    word.addBlock(letters, OldWord::blockWith(TextProperty::Hyphenate, true));
    word.layOut();
    QVERIFY(word.m_legacyLines.size() > 3);
    for (int i = 0; i < word.m_legacyLines.size(); ++i)
        QCOMPARE(word.line(i).items.last().isHyphen, i + 1 < word.m_legacyLines.size());
    QCOMPARE(textOf(word.m_legacyLines), letters);

    word.m_cursor->setBlockFormat(OldWord::blockWith(TextProperty::Hyphenate, false));
    word.layOut();
    for (const STextLine &line : qAsConst(word.m_legacyLines))
        QCOMPARE(line.items.size(), 1); // one long word stays whole on each
    QCOMPARE(textOf(word.m_legacyLines), letters);
}

void TestLegacyBreaking::wordMovesToTheNextLine()
{
    OldWord word;
    word.makeBox(64, 400);
    word.addBlock(QStringLiteral("ab cdefgh ij"));
    word.layOut();
    QCOMPARE(textOf({word.line(0)}), QStringLiteral("ab "));
    QVERIFY(textOf({word.line(1)}).startsWith(QStringLiteral("cdefgh")));
    QCOMPARE(textOf(word.m_legacyLines), QStringLiteral("ab cdefgh ij"));
}

void TestLegacyBreaking::currentEngineBreaksTheSameTextOtherwise()
{
    OldWord old;
    old.makeBox(47, 200); // three Han of 46 px of ink, of 48 px of advance
    old.addBlock(QStringLiteral("中文国人"));
    old.layOut();
    QCOMPARE(textOf({old.line(0)}), QStringLiteral("中文国"));

    OldWord current;
    current.m_newVersion = true;
    current.makeBox(47, 200);
    current.addBlock(QStringLiteral("中文国人"));
    CWordManager manager(&current, true);
    manager.layout();
    QCOMPARE(manager.textLayout().lines.first().length, 2);
}

// All of it

void TestLegacyBreaking::noTextIsLostOrDoubled_data()
{
    QTest::addColumn<int>("rule");
    QTest::addColumn<int>("hyphenate"); // -1 absent
    QTest::addColumn<int>("punct");
    QTest::addColumn<bool>("vertical");
    for (int rule : {0, 1, 2}) {
        for (int hyphenate : {-1, 0, 1}) {
            for (int punct : {0, 1}) {
                for (bool vertical : {false, true})
                    QTest::addRow("rule %d, hyphens %d, marks %d, %s", rule, hyphenate, punct,
                                  vertical ? "columns" : "rows")
                        << rule << hyphenate << punct << vertical;
            }
        }
    }
}

namespace {
/// Text in which every rule finds something to do.
QString randomText(QRandomGenerator &random, int length)
{
    static const QString alphabet = QStringLiteral(
        "abcdefgh ijk lmnop  ABé中文国人天。、」「『（）([{あア々，$._-1\\");
    QString text;
    while (text.length() < length) {
        if (random.bounded(40) == 0)
            text += QStringLiteral("\U00020000");
        else if (random.bounded(60) == 0)
            text += QLatin1Char('\n');
        else
            text += alphabet.at(random.bounded(alphabet.length()));
    }
    return text;
}

/// The text without the ends of its paragraphs.
QString charactersOf(QString text)
{
    return text.remove(QLatin1Char('\n'));
}
} // namespace

void TestLegacyBreaking::noTextIsLostOrDoubled()
{
    QFETCH(int, rule);
    QFETCH(int, hyphenate);
    QFETCH(int, punct);
    QFETCH(bool, vertical);
    QTextBlockFormat format = OldWord::block();
    format.setProperty(TextProperty::HeadTailRule, rule);
    format.setProperty(TextProperty::PunctuationExtra, punct);
    if (hyphenate >= 0)
        format.setProperty(TextProperty::Hyphenate, hyphenate == 1);
    QRandomGenerator random(uint(rule * 100 + hyphenate * 20 + punct * 3 + vertical));
    for (double extent : {0.0, 3.0, 12.0, 20.0, 50.0, 90.0, 200.0}) {
        const QString text = randomText(random, 40);
        OldWord word(vertical ? Qt::Vertical : Qt::Horizontal);
        word.makeBox(vertical ? 500 : extent, vertical ? extent : 500);
        word.addBlock(text, format);
        word.layOut();
        QCOMPARE(textOf(word.m_legacyLines), charactersOf(text));
        QVERIFY(word.m_legacyLines.size() <= 2 * text.length() + 2);
        for (const STextLine &line : qAsConst(word.m_legacyLines)) {
            for (const STextItem &item : line.items) {
                QVERIFY(item.text.isEmpty() || !item.text.at(0).isLowSurrogate());
                QVERIFY(item.text.isEmpty() || !item.text.back().isHighSurrogate());
            }
        }
    }
}

void TestLegacyBreaking::formattedTextIsNeitherLostNorDoubled()
{
    QRandomGenerator random(4711);
    for (int round = 0; round < 30; ++round) {
        const bool vertical = round % 2;
        OldWord word(vertical ? Qt::Vertical : Qt::Horizontal);
        word.makeBox(30 + random.bounded(60), 30 + random.bounded(60));
        QTextBlockFormat format = OldWord::block(random.bounded(8), 0, random.bounded(8));
        format.setProperty(TextProperty::HeadTailRule, round % 3);
        format.setProperty(TextProperty::Hyphenate, round % 4 < 2);
        word.addBlock(QString(), format);
        QString text;
        for (int run = 0; run < 8; ++run) {
            QTextCharFormat look = OpenWord::format(6 + random.bounded(14));
            if (random.bounded(3) == 0)
                look.setProperty(TextProperty::LetterSpacing, random.bounded(600) - 300);
            if (random.bounded(4) == 0)
                look.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
            const QString piece = randomText(random, 6);
            word.addRun(piece, look);
            text += piece;
        }
        word.layOut();
        QCOMPARE(textOf(word.m_legacyLines), charactersOf(text));
    }
}

QTEST_MAIN(TestLegacyBreaking)
#include "tst_legacybreaking.moc"
