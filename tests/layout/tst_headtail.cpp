// SPDX-License-Identifier: MIT
// Which characters may not begin or end a line, and where a line is cut because of them.
#include "layouttext.h"

#include "layout/headtail.h"
#include "layout/multitextobject.h"

#include <QSet>
#include <QtTest>

#include <algorithm>

using Codes = QList<unsigned short>;

enum Rule { Off = 0, Relaxed = 1, Strict = 2 };

class TestHeadTail : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setsHoldExactlyTheirCharacters_data();
    void setsHoldExactlyTheirCharacters();
    void fullSizeKanaStandForTheSmallOnes_data();
    void fullSizeKanaStandForTheSmallOnes();
    void cut_data();
    void cut();
    void ruleOffClearsBothResults_data();
    void ruleOffClearsBothResults();
    void emptyLineClearsBothResults();
    void noCutLeavesBothResultsAlone();
    void tailIsSearchedAcrossRuns();
    void headIsSearchedAcrossRunsInColumnsOnly();

private:
    QString cutOf(Qt::Orientation orientation, const TextLine &line, int mode, const QString &rest,
                  int before = -1);
};

static TextLine lineOf(const QString &runs)
{
    TextLine line;
    const QStringList texts = runs.isEmpty() ? QStringList() : runs.split(QLatin1Char('|'));
    for (const QString &text : texts) {
        line.fragments.append(makeRun(line.text.length(), text, 0, 0));
        line.text += text;
    }
    line.length = line.text.length();
    line.position = 0;
    return line;
}

/// The two results as "run:character", starting from \a before.
QString TestHeadTail::cutOf(Qt::Orientation orientation, const TextLine &line, int mode,
                            const QString &rest, int before)
{
    LayoutText text;
    CMultiTextOjbect layout(&text);
    int run = before;
    int character = before;
    if (orientation == Qt::Horizontal)
        layout.findAvoidHeadTailChByHorizontal(line, mode, rest, run, character);
    else
        layout.findAvoidHeadTailChByVertical(line, mode, rest, run, character);
    return QStringLiteral("%1:%2").arg(run).arg(character);
}

void TestHeadTail::setsHoldExactlyTheirCharacters_data()
{
    QTest::addColumn<QSet<unsigned short>>("set");
    QTest::addColumn<int>("distinct");
    QTest::addColumn<Codes>("expected");
    QTest::newRow("relaxed head") << _jis_relax_head << 20
                                  << Codes{0x2019, 0x201D, 0x3001, 0x3002, 0x3005, 0x003E, 0x300B,
                                           0x300D, 0x300F, 0x3011, 0x3015, 0xFF01, 0xFF09, 0xFF0C,
                                           0x002E, 0xFF1A, 0xFF1B, 0xFF1F, 0x005D, 0x007D};
    QTest::newRow("relaxed tail") << _jis_relax_tail << 11
                                  << Codes{0x2018, 0x201C, 0x003C, 0x300A, 0x300C, 0x300E,
                                           0x3010, 0x3014, 0x0028, 0x005B, 0x007B};
    QTest::newRow("strict head") << _jis_strict_head << 54
                                 << Codes{0xFF01, 0xFF09, 0xFF0C, 0x002E, 0xFF1A, 0xFF1B, 0xFF1F,
                                          0x005D, 0x007D, 0x00A2, 0x2014, 0x2019, 0x201D, 0x2030,
                                          0x2103, 0x2109, 0x3001, 0x3002, 0x3005, 0x003E, 0x300B,
                                          0x300D, 0x300F, 0x3011, 0x3015, 0x3042, 0x3044, 0x3046,
                                          0x3048, 0x304A, 0x3064, 0x3084, 0x3086, 0x3088, 0x308F,
                                          0x002A, 0x00B0, 0x309E, 0x30A2, 0x30A4, 0x30A6, 0x30A8,
                                          0x30AA, 0x30C4, 0x30E4, 0x30E6, 0x30E8, 0x30EF, 0x30AB,
                                          0x30B1, 0x00B7, 0xFF05, 0xFF3D, 0xFF5D};
    QTest::newRow("strict tail") << _jis_strict_tail << 18
                                 << Codes{0x0028, 0x005B, 0x007B, 0x00A3, 0x00A7, 0x2018,
                                          0x201C, 0x003C, 0x300A, 0x300C, 0x300E, 0x3010,
                                          0x3012, 0x3014, 0x0023, 0x0024, 0x0040, 0x00A5};
}

void TestHeadTail::setsHoldExactlyTheirCharacters()
{
    QFETCH(QSet<unsigned short>, set);
    QFETCH(int, distinct);
    QFETCH(Codes, expected);
    QCOMPARE(set.size(), distinct);
    Codes held = set.values();
    std::sort(held.begin(), held.end());
    std::sort(expected.begin(), expected.end());
    QCOMPARE(held, expected);
}

void TestHeadTail::fullSizeKanaStandForTheSmallOnes_data()
{
    QTest::addColumn<int>("fullSize");
    QTest::addColumn<int>("small");
    QTest::newRow("hiragana a") << 0x3042 << 0x3041;
    QTest::newRow("hiragana tu") << 0x3064 << 0x3063;
    QTest::newRow("katakana a") << 0x30A2 << 0x30A1;
    QTest::newRow("katakana tu") << 0x30C4 << 0x30C3;
    QTest::newRow("katakana ka") << 0x30AB << 0x30F5;
    QTest::newRow("katakana ke") << 0x30B1 << 0x30F6;
}

void TestHeadTail::fullSizeKanaStandForTheSmallOnes()
{
    QFETCH(int, fullSize);
    QFETCH(int, small);
    QVERIFY(_jis_strict_head.contains(static_cast<unsigned short>(fullSize)));
    for (const QSet<unsigned short> &set :
         {_jis_relax_head, _jis_relax_tail, _jis_strict_head, _jis_strict_tail})
        QVERIFY(!set.contains(static_cast<unsigned short>(small)));
}

void TestHeadTail::cut_data()
{
    QTest::addColumn<QString>("runs");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("rest");
    QTest::addColumn<QString>("inLines");
    QTest::addColumn<QString>("inColumns");
    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    const auto row = [&](const char *name, const char *runs, int mode, const char *rest,
                         const char *inLines, const char *inColumns) {
        QTest::newRow(name) << text(runs) << mode << text(rest) << text(inLines) << text(inColumns);
    };
    // The last character may not end the line: the same in both directions.
    row("plain", "abc", Strict, "def", "-1:-1", "-1:-1");
    row("tail: cut at the character before it", "abc(", Relaxed, "d", "0:2", "0:2");
    row("tail: the rest may be empty", "abc(", Relaxed, "", "0:2", "0:2");
    row("tail: two of them", "abc([", Relaxed, "d", "0:2", "0:2");
    row("tail: one letter and a bracket", "a(", Relaxed, "d", "0:0", "0:0");
    row("tail: nothing but brackets", "((", Relaxed, "d", "-1:-1", "-1:-1");
    row("tail: strict only, relaxed", "ab$", Relaxed, "d", "-1:-1", "-1:-1");
    row("tail: strict only, strict", "ab$", Strict, "d", "0:1", "0:1");
    row("tail: less-than, relaxed", "ab<", Relaxed, "d", "0:1", "0:1");
    row("tail: less-than, strict", "ab<", Strict, "d", "0:1", "0:1");
    row("tail: head characters are no obstacle", "ab.(", Relaxed, "d", "0:2", "0:2");
    row("tail before head", "ab(", Strict, "。", "0:1", "0:1");
    // The next character may not begin a line: columns give text back, lines do not.
    row("head: full stop", "中文国", Strict, "。人", "-1:-1", "0:2");
    row("head: full stop, relaxed", "中文国", Relaxed, "。", "-1:-1", "0:2");
    row("head: only the first character counts", "中文国", Strict, "人。", "-1:-1", "-1:-1");
    row("head: iteration mark, relaxed", "ab", Relaxed, "々", "-1:-1", "0:1");
    row("head: iteration mark, strict", "ab", Strict, "々", "-1:-1", "0:1");
    row("head: kana, strict", "ab", Strict, "あ", "-1:-1", "0:1");
    row("head: kana, relaxed", "ab", Relaxed, "あ", "-1:-1", "-1:-1");
    row("head: small kana", "ab", Strict, "ぁ", "-1:-1", "-1:-1");
    row("head: skips characters of both sets", "ab(。", Strict, "。", "-1:-1", "0:1");
    row("head: one letter", "a", Strict, "。", "-1:-1", "0:0");
    row("head: nothing to stop at", "。。", Strict, "。", "-1:-1", "-1:-1");
    row("head: empty rest", "ab", Strict, "", "-1:-1", "-1:-1");
}

void TestHeadTail::cut()
{
    QFETCH(QString, runs);
    QFETCH(int, mode);
    QFETCH(QString, rest);
    QFETCH(QString, inLines);
    QFETCH(QString, inColumns);
    QCOMPARE(cutOf(Qt::Horizontal, lineOf(runs), mode, rest), inLines);
    QCOMPARE(cutOf(Qt::Vertical, lineOf(runs), mode, rest), inColumns);
}

void TestHeadTail::ruleOffClearsBothResults_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << int(Off);
    QTest::newRow("beyond") << 3;
    QTest::newRow("negative") << -1;
}

void TestHeadTail::ruleOffClearsBothResults()
{
    QFETCH(int, mode);
    const TextLine line = lineOf(QStringLiteral("abc("));
    const QString rest = QStringLiteral("。");
    QCOMPARE(cutOf(Qt::Horizontal, line, mode, rest, 7), QStringLiteral("-1:-1"));
    QCOMPARE(cutOf(Qt::Vertical, line, mode, rest, 7), QStringLiteral("-1:-1"));
}

void TestHeadTail::emptyLineClearsBothResults()
{
    const QString rest = QStringLiteral("。");
    QCOMPARE(cutOf(Qt::Horizontal, TextLine(), Strict, rest, 7), QStringLiteral("-1:-1"));
    QCOMPARE(cutOf(Qt::Vertical, TextLine(), Strict, rest, 7), QStringLiteral("-1:-1"));
}

void TestHeadTail::noCutLeavesBothResultsAlone()
{
    const QString rest = QStringLiteral("d");
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        QCOMPARE(cutOf(orientation, lineOf(QStringLiteral("abc")), Strict, rest, 7),
                 QStringLiteral("7:7"));
    }
}

void TestHeadTail::tailIsSearchedAcrossRuns()
{
    const QString rest = QStringLiteral("d");
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        QCOMPARE(cutOf(orientation, lineOf(QStringLiteral("ab|c(|[")), Relaxed, rest),
                 QStringLiteral("1:0"));
        QCOMPARE(cutOf(orientation, lineOf(QStringLiteral("ab|(|[")), Relaxed, rest),
                 QStringLiteral("0:1"));
        QCOMPARE(cutOf(orientation, lineOf(QStringLiteral("(|(|[")), Relaxed, rest),
                 QStringLiteral("-1:-1"));
    }
}

void TestHeadTail::headIsSearchedAcrossRunsInColumnsOnly()
{
    const TextLine line = lineOf(QStringLiteral("中|文|。|「|」"));
    const QString rest = QStringLiteral("、");
    QCOMPARE(cutOf(Qt::Vertical, line, Strict, rest), QStringLiteral("1:0"));
    QCOMPARE(cutOf(Qt::Horizontal, line, Strict, rest), QStringLiteral("-1:-1"));
}

QTEST_MAIN(TestHeadTail)
#include "tst_headtail.moc"
