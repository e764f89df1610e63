// SPDX-License-Identifier: MIT
// The search for what fits on a line: both roads give one answer, for every text and every place.
#include "layout/fittingsearch.h"
#include "tests/support/testfont.h"

#include <QFontDatabase>
#include <QRandomGenerator>
#include <QtTest>

namespace {

QString chosenFrom(const QVector<ushort> &characters, int length, quint32 seed)
{
    QRandomGenerator random(seed);
    QString text;
    for (int i = 0; i < length; ++i)
        text.append(QChar(characters.at(random.bounded(characters.size()))));
    return text;
}

QVector<ushort> codes(const QString &text)
{
    QVector<ushort> result;
    for (QChar character : text)
        result.append(character.unicode());
    return result;
}

const QString latin = QStringLiteral("AVWTo.,fiilmjL rstuéäß  ");
const QString han = QString::fromUtf8("永和九年岁在癸丑，暮春之初。「」");
const QString kana = QString::fromUtf8("いろはにほへとチリヌルヲ゛か\u3099");
const QString arabic = QString::fromUtf8("السلام عليكم ورحمة لا");
const QString devanagari = QString::fromUtf8("क्षत्रिय ज्ञान्‍द ");
const QString emoji = QString::fromUtf8("👨‍👩‍👧‍👦🏽🇩🇪𠀀𠀁");
const QString marks = QString::fromUtf8("a\u0301\u0301\u0308\u0323e");
const QString blanks = QString::fromUtf8("  \u2009\u200b\u00ad\t");

} // namespace

class TestFittingSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void bothRoadsAgree_data();
    void bothRoadsAgree();
    void answersAreThoseOfHalving_data();
    void answersAreThoseOfHalving();
    void exactFitStopsWhereHalvingMeetsIt();
    void notANumberNeverFits();
    void movesOnWithoutWhatIsPlaced();

private:
    QString m_family;
};

void TestFittingSearch::initTestCase()
{
    m_family = loadBoxTestFont();
}

void TestFittingSearch::bothRoadsAgree_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("alphabet");
    QTest::addColumn<qreal>("spacing");
    const QStringList families = {m_family, QStringLiteral("Noto Sans"),
                                  QStringLiteral("DejaVu Sans"),
                                  QStringLiteral("Noto Sans CJK SC")};
    const QVector<QPair<const char *, QString>> alphabets = {
        {"latin", latin},
        {"han", han},
        {"kana", kana},
        {"arabic", arabic},
        {"devanagari", devanagari},
        {"emoji", emoji},
        {"marks", marks},
        {"blanks", blanks},
        {"latin and han", latin + han},
        {"latin and arabic", latin + latin + arabic},
        {"everything", latin + han + kana + arabic + devanagari + emoji + marks + blanks},
    };
    for (const QString &family : families) {
        for (const auto &alphabet : alphabets) {
            for (qreal spacing : {0.0, -1.5, -4.0}) {
                QTest::addRow("%s, %s, spacing %g", qPrintable(family), alphabet.first, spacing)
                    << family << alphabet.second << spacing;
            }
        }
    }
}

void TestFittingSearch::bothRoadsAgree()
{
    QFETCH(QString, family);
    QFETCH(QString, alphabet);
    QFETCH(qreal, spacing);
    QFont font(family);
    font.setPixelSize(16);
    font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    const QVector<qreal> limits = {8, 120};
    const QString text = chosenFrom(codes(alphabet), 80, 1);
    for (qreal limit : limits) {
        MeasuredText plain(text, font, 1.25, FittingSearch::Plain);
        MeasuredText fast(text, font, 1.25, FittingSearch::Fast);
        while (!plain.isEmpty()) {
            const MeasuredText::Fit expected = plain.fit(5, limit);
            const MeasuredText::Fit found = fast.fit(5, limit);
            QCOMPARE(found.isWhole, expected.isWhole);
            if (expected.isWhole)
                break;
            QCOMPARE(found.length, expected.length);
            const int step = qMax(1, expected.length);
            plain.skip(step);
            fast.skip(step);
        }
    }
}

void TestFittingSearch::answersAreThoseOfHalving_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qreal>("limit");
    QTest::addColumn<bool>("isWhole");
    QTest::addColumn<int>("length");
    const QString ten = QStringLiteral("abcdefghij"); // 8 px each
    QTest::newRow("all of it") << ten << 80.0 << true << 10;
    QTest::newRow("a hair too narrow") << ten << 79.999 << false << 9;
    QTest::newRow("a prefix that fits exactly") << ten << 48.0 << false << 6;
    QTest::newRow("between two prefixes") << ten << 50.0 << false << 6;
    QTest::newRow("not one character") << ten << 7.0 << false << 0;
    QTest::newRow("no room at all") << ten << 0.0 << false << 0;
    QTest::newRow("less than no room") << ten << -1.0 << false << -1;
    QTest::newRow("one character is never part of the answer")
        << QStringLiteral("a") << 7.0 << false << 0;
}

void TestFittingSearch::answersAreThoseOfHalving()
{
    QFETCH(QString, text);
    QFETCH(qreal, limit);
    QFont font(m_family);
    font.setPixelSize(16);
    for (FittingSearch search : {FittingSearch::Plain, FittingSearch::Fast}) {
        const MeasuredText::Fit fit = MeasuredText(text, font, 1, search).fit(0, limit);
        QTEST(fit.isWhole, "isWhole");
        QTEST(fit.length, "length");
    }
}

// Prefixes of equal length: halving 0 to 15 meets 7 first.
void TestFittingSearch::exactFitStopsWhereHalvingMeetsIt()
{
    QFont font(m_family);
    font.setPixelSize(16);
    font.setLetterSpacing(QFont::AbsoluteSpacing, -8);
    const QString text = QStringLiteral("abcdefghijklmnop") + QChar(0x6C38);
    for (FittingSearch search : {FittingSearch::Plain, FittingSearch::Fast}) {
        MeasuredText::Fit fit = MeasuredText(text, font, 1, search).fit(4, 4);
        QCOMPARE(fit.isWhole, false);
        QCOMPARE(fit.length, 8); // 17 characters: the middle of 0 to 16
    }
}

void TestFittingSearch::notANumberNeverFits()
{
    QFont font(m_family);
    font.setPixelSize(16);
    const qreal nan = qQNaN();
    for (FittingSearch search : {FittingSearch::Plain, FittingSearch::Fast}) {
        const QString text = QStringLiteral("abcdefghijklmnop");
        QCOMPARE(MeasuredText(text, font, 1, search).fit(nan, 100).length, -1);
        QCOMPARE(MeasuredText(text, font, 1, search).fit(0, nan).length, -1);
        QCOMPARE(MeasuredText(text, font, nan, search).fit(0, 100).length, -1);
        QCOMPARE(MeasuredText(text, font, nan, search).fit(0, 100).isWhole, false);
    }
}

void TestFittingSearch::movesOnWithoutWhatIsPlaced()
{
    QFont font(m_family);
    font.setPixelSize(16);
    MeasuredText text(QStringLiteral("abcdefghijklmnopqrstuvwxyz"), font, 2, FittingSearch::Fast);
    QCOMPARE(text.fit(0, 90).length, 5);
    QCOMPARE(text.left(5), QStringLiteral("abcde"));
    QCOMPARE(text.width(5), 80.0);
    text.skip(5);
    QCOMPARE(text.at(0), QChar(QLatin1Char('f')));
    QCOMPARE(text.length(), 21);
    QCOMPARE(text.fit(10, 90).length, 5);
    text.skip(21);
    QVERIFY(text.isEmpty());
}

QTEST_MAIN(TestFittingSearch)
#include "tst_fittingsearch.moc"
