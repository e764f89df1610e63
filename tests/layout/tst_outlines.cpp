// SPDX-License-Identifier: MIT
// Outlines that are copied from glyphs made before are those of QPainterPath::addText().
#include "layout/outlines.h"
#include "tests/support/testfont.h"

#include <QPainter>
#include <QtTest>

namespace {

// The first difference between two paths; empty when they are the same.
QString differenceOf(const QPainterPath &found, const QPainterPath &expected)
{
    if (found.elementCount() != expected.elementCount())
        return QStringLiteral("%1 elements instead of %2")
            .arg(found.elementCount())
            .arg(expected.elementCount());
    if (found.fillRule() != expected.fillRule())
        return QStringLiteral("fill rule");
    for (int i = 0; i < found.elementCount(); ++i) {
        const QPainterPath::Element a = found.elementAt(i);
        const QPainterPath::Element b = expected.elementAt(i);
        if (a.type != b.type || a.x != b.x || a.y != b.y)
            return QStringLiteral("element %1: (%2, %3) instead of (%4, %5)")
                .arg(i)
                .arg(a.x, 0, 'g', 17)
                .arg(a.y, 0, 'g', 17)
                .arg(b.x, 0, 'g', 17)
                .arg(b.y, 0, 'g', 17);
    }
    return QString();
}

} // namespace

class TestOutlines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsThatOfAddText_data();
    void textIsThatOfAddText();
    void characterIsThatOfAddText_data();
    void characterIsThatOfAddText();
    void widthOfCharacterIsThatOfItsText();
    void glyphsOfEarlierLayoutsAreThoseOfTheFont();
    void outlinesForgetWhereGlyphsWerePaintedBefore_data();
    void outlinesForgetWhereGlyphsWerePaintedBefore();
    void neighboursChangeSimpleCharactersByKerningOnly_data();
    void neighboursChangeSimpleCharactersByKerningOnly();
};

void TestOutlines::textIsThatOfAddText_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<QString>("text");
    const QStringList families = {loadBoxTestFont(), QStringLiteral("Noto Sans"),
                                  QStringLiteral("DejaVu Sans"),
                                  QStringLiteral("Noto Sans CJK SC")};
    const QStringList texts = {
        QStringLiteral("AVATAR fi ffi Wo. y, Ty"),
        QStringLiteral("  blanks all round  "),
        QStringLiteral("     "),
        QStringLiteral("ab"),
        QString(),
        QString::fromUtf8("永和九年，岁在癸丑 and 12 letters「か」"),
        QString::fromUtf8("naïve Ωμέγα Привет"),
        QString::fromUtf8("e\u0301 العربية नमस्ते 👍"),
    };
    for (const QString &family : families) {
        for (int pixels : {7, 16, 41}) {
            for (qreal spacing : {0.0, 1.3, -0.7}) {
                for (int i = 0; i < texts.size(); ++i) {
                    QFont font(family);
                    font.setPixelSize(pixels);
                    font.setBold(pixels == 16);
                    font.setItalic(pixels == 7);
                    font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
                    QTest::addRow("%s %d px, spacing %g, text %d", qPrintable(family), pixels,
                                  spacing, i)
                        << font << texts.at(i);
                }
            }
        }
    }
    QFont barred(QStringLiteral("Noto Sans"));
    barred.setPixelSize(16);
    barred.setOverline(true);
    QTest::newRow("overline") << barred << QStringLiteral("with a bar");
    QFont small(QStringLiteral("Noto Sans"));
    small.setPixelSize(16);
    small.setCapitalization(QFont::SmallCaps);
    QTest::newRow("small capitals") << small << QStringLiteral("Small Capitals");
}

void TestOutlines::textIsThatOfAddText()
{
    QFETCH(QFont, font);
    QFETCH(QString, text);
    OutlineSource source;
    const QVector<QPointF> pens = {{0, 0},
                                   {12.37, 45.91},
                                   {3.999, -17.03},
                                   {-5.2, 7.7},
                                   {100000.013, 1.0 / 3}};
    for (const QPointF &pen : pens) {
        QPainterPath expected;
        expected.addText(pen, font, text);
        QCOMPARE(differenceOf(source.text(pen, font, text), expected), QString());
        QCOMPARE(differenceOf(source.text(pen, font, text), expected), QString());
    }
}

void TestOutlines::characterIsThatOfAddText_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("text");
    for (const QString &family : {loadBoxTestFont(), QStringLiteral("Noto Sans CJK SC")}) {
        for (const QString &text : {QString::fromUtf8("永"), QString::fromUtf8("。"),
                                    QStringLiteral("A"), QString(QChar(0x3000))})
            QTest::addRow("%s U+%04X", qPrintable(family), uint(text.at(0).unicode()))
                << family << text;
    }
}

void TestOutlines::characterIsThatOfAddText()
{
    QFETCH(QString, family);
    QFETCH(QString, text);
    QFont font(family);
    font.setPixelSize(23);
    OutlineSource source;
    const QVector<QPointF> pens = {{0, 0}, {12.37, 45.91}, {-5.2, -7.7}, {1e5 + 0.013, 1.0 / 3}};
    for (const QPointF &pen : pens) {
        QPainterPath expected;
        expected.addText(pen, font, text);
        QCOMPARE(differenceOf(source.character(pen, font, text), expected), QString());
    }
}

void TestOutlines::widthOfCharacterIsThatOfItsText()
{
    QFont font(loadBoxTestFont());
    font.setPixelSize(16);
    OutlineSource source;
    QCOMPARE(source.width(font, QString::fromUtf8("永")), 16.0);
    QCOMPARE(source.width(font, QStringLiteral("a")), 8.0);
    font.setPixelSize(32); // another font is another character
    QCOMPARE(source.width(font, QStringLiteral("a")), 16.0);
}

// Each round with glyphs of its own; together they are more than the source keeps.
void TestOutlines::glyphsOfEarlierLayoutsAreThoseOfTheFont()
{
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    OutlineSource source;
    const QPointF pen(12.37, 45.91);
    const QString text = QString::fromUtf8("永和九年歲在癸丑暮春之初會於會稽山陰之蘭亭修禊事也");
    int elements = 0;
    for (int size = 8; elements <= 3 << 19; ++size) {
        font.setPixelSize(size);
        source.startLayout();
        for (int round = 0; round < 2; ++round) {
            QPainterPath expected;
            expected.addText(pen, font, text);
            QCOMPARE(differenceOf(source.text(pen, font, text), expected), QString());
            elements += expected.elementCount();
        }
    }
}

void TestOutlines::outlinesForgetWhereGlyphsWerePaintedBefore_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("copied from glyphs") << QStringLiteral("Text");
    QTest::newRow("shaped as a whole") << QString::fromUtf8("e\u0301");
    QTest::newRow("a font that stands in") << QString::fromUtf8("T\u0E01\u05E9");
}

void TestOutlines::outlinesForgetWhereGlyphsWerePaintedBefore()
{
    QFETCH(QString, text);
    QFont font(QStringLiteral("Noto Sans"));
    font.setPixelSize(200);
    const QPainterPath expected = OutlineSource().text(QPointF(5, 200), font, text);
    QFont painted(font);
    painted.setHintingPreference(QFont::PreferNoHinting); // glyphs stand at fractions of a pixel
    QImage image(300, 40, QImage::Format_ARGB32_Premultiplied);
    for (int pixels : {11, 13, 17}) { // whatever the fraction of the last glyph is
        painted.setPixelSize(pixels);
        QPainter painter(&image);
        painter.setFont(painted);
        painter.drawText(QPointF(3, 30), QStringLiteral("abcd") + text);
        painter.end();
        const QPainterPath found = OutlineSource().text(QPointF(5, 200), font, text);
        QCOMPARE(differenceOf(found, expected), QString());
    }
}

void TestOutlines::neighboursChangeSimpleCharactersByKerningOnly_data()
{
    QTest::addColumn<uint>("code");
    QTest::addColumn<bool>("isSimple");
    QTest::newRow("tab") << 0x09u << false;
    QTest::newRow("space") << 0x20u << true;
    QTest::newRow("tilde") << 0x7Eu << true;
    QTest::newRow("control") << 0x9Cu << false;
    QTest::newRow("soft hyphen") << 0xADu << false;
    QTest::newRow("combining acute") << 0x301u << false;
    QTest::newRow("Hebrew alef") << 0x5D0u << false;
    QTest::newRow("Arabic beh") << 0x628u << false;
    QTest::newRow("Devanagari ka") << 0x915u << false;
    QTest::newRow("zero width joiner") << 0x200Du << false;
    QTest::newRow("line separator") << 0x2028u << false;
    QTest::newRow("combining voiced mark") << 0x3099u << false;
    QTest::newRow("hiragana a") << 0x3042u << true;
    QTest::newRow("Han") << 0x6C38u << true;
    QTest::newRow("Hangul syllable") << 0xAC00u << true;
    QTest::newRow("high surrogate") << 0xD840u << false;
    QTest::newRow("full-width A") << 0xFF21u << true;
}

void TestOutlines::neighboursChangeSimpleCharactersByKerningOnly()
{
    QFETCH(uint, code);
    QTEST(standsForItself(QChar(code)), "isSimple");
}

QTEST_MAIN(TestOutlines)
#include "tst_outlines.moc"
