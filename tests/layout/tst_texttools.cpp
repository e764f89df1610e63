// SPDX-License-Identifier: MIT
#include "layout/texttools.h"
#include "layout/units.h"
#include "tests/support/testfont.h"

#include <QtTest>

#include <cmath>
#include <limits>

class TestTextTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cjkCharacters_data();
    void cjkCharacters();
    void everythingInTheSymbolRangeIsPunctuation();
    void underlineThicknessIsTheStrokeAlone();
    void underlineThicknessOfAHugeFontIsFinite();
    void fullStopWidthScales();
    void pathsTurnClockwiseAboutTheGivenCentre();
    void pathsScaleAboutTheirOwnCentre();
    void pathsMove();
    void fillOutTurnsLinesIntoCurves();
    void fillOutReducesCubics();
    void fillOutOfNothingHasWindingFill();
    void wholeNumbersSaturate();
    void pixelSizesAreBounded();
};

void TestTextTools::cjkCharacters_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("cjk");
    const int ranges[][2] = {{0x2E80, 0x2EFF}, {0x3000, 0x303F}, {0x31C0, 0x31EF}, {0x3400, 0x4DB5},
                             {0x4E00, 0x9FA5}, {0x9FA6, 0x9FBB}, {0xF900, 0xFA2D}, {0xFA30, 0xFA6A},
                             {0xFA70, 0xFAD9}, {0xFF00, 0xFFEF}};
    for (const auto &range : ranges) {
        QTest::addRow("low %x", range[0]) << range[0] << true;
        QTest::addRow("high %x", range[1]) << range[1] << true;
    }
    for (int code : {0x2E7F, 0x2F00, 0x2FFF, 0x3040, 0x31BF, 0x31F0, 0x33FF, 0x4DB6, 0x4DFF, 0x9FBC,
                     0xF8FF, 0xFA2E, 0xFA2F, 0xFA6B, 0xFA6F, 0xFADA, 0xFEFF, 0xFFF0})
        QTest::addRow("outside %x", code) << code << false;
    QTest::newRow("kana") << 0x3042 << false;
    QTest::newRow("bopomofo") << 0x3105 << false;
    QTest::newRow("Hangul") << 0xAC00 << false;
    QTest::newRow("high surrogate") << 0xD840 << false;
    QTest::newRow("low surrogate") << 0xDC00 << false;
    QTest::newRow("full-width exclamation mark") << 0xFF01 << true;
}

void TestTextTools::cjkCharacters()
{
    QFETCH(int, code);
    QFETCH(bool, cjk);
    QCOMPARE(CTextTools::isCJKChar(QChar(code)), cjk);
}

void TestTextTools::everythingInTheSymbolRangeIsPunctuation()
{
    QVERIFY(CTextTools::isCJKPunct(QLatin1Char(',')));
    QVERIFY(CTextTools::isCJKPunct(QChar(0x3000)));
    QVERIFY(CTextTools::isCJKPunct(QChar(0x303F)));
    QVERIFY(CTextTools::isCJKPunct(QChar(0xFF0C)));
    QVERIFY(!CTextTools::isCJKPunct(QLatin1Char('a')));
    QVERIFY(!CTextTools::isCJKPunct(QChar(0x4E2D)));
    QVERIFY(!CTextTools::isCJKPunct(QChar(0x3041)));
}

void TestTextTools::underlineThicknessIsTheStrokeAlone()
{
    QFont font(loadBoxTestFont());
    font.setPixelSize(32);
    const qreal thickness = CTextTools::getFontLineHeight(font);
    QCOMPARE(thickness, 2.0); // 64 units of 1024
    font.setStrikeOut(true);
    QCOMPARE(CTextTools::getFontLineHeight(font), thickness);
    font.setUnderline(true);
    QCOMPARE(CTextTools::getFontLineHeight(font), thickness);
}

void TestTextTools::underlineThicknessOfAHugeFontIsFinite()
{
    QFont font(loadBoxTestFont());
    font.setPointSizeF(1e9);
    QVERIFY(std::isfinite(CTextTools::getFontLineHeight(font)));
    QVERIFY(CTextTools::getFontLineHeight(font) <= MaximumPixelSize);
}

void TestTextTools::fullStopWidthScales()
{
    QFont font(loadBoxTestFont());
    font.setPixelSize(16);
    QCOMPARE(CTextTools::getHalfAngleSize(font, 1), 2.0); // ink of 128 units
    QCOMPARE(CTextTools::getHalfAngleSize(font, 2.5), 5.0);
    QCOMPARE(CTextTools::getHalfAngleSize(font, 0), 0.0);
}

void TestTextTools::pathsTurnClockwiseAboutTheGivenCentre()
{
    QPainterPath path;
    path.addRect(10, 0, 4, 2);
    const QRectF turned = CTextTools::getRotatePath(path, QPointF(10, 0), 90).boundingRect();
    QCOMPARE(turned, QRectF(8, 0, 2, 4));
}

void TestTextTools::pathsScaleAboutTheirOwnCentre()
{
    QPainterPath path;
    path.addRect(10, 20, 4, 2);
    QCOMPARE(CTextTools::GetScalePath(path, 2, 3).boundingRect(), QRectF(8, 18, 8, 6));
    QVERIFY(CTextTools::GetScalePath(QPainterPath(), 2, 3).isEmpty());
}

void TestTextTools::pathsMove()
{
    QPainterPath path;
    path.addRect(1, 2, 3, 4);
    QCOMPARE(CTextTools::GetTranslatePath(path, QPointF(10, -2)).boundingRect(),
             QRectF(11, 0, 3, 4));
}

void TestTextTools::fillOutTurnsLinesIntoCurves()
{
    QPainterPath path;
    path.moveTo(0, 0);
    path.lineTo(4, 0);
    path.lineTo(4, 8);
    QPainterPath expected;
    expected.moveTo(0, 0);
    expected.quadTo(2, 0, 4, 0);
    expected.quadTo(4, 4, 4, 8);
    expected.setFillRule(Qt::WindingFill);
    QCOMPARE(CTextTools::textPathFillOut(path), expected);
}

void TestTextTools::fillOutReducesCubics()
{
    QPainterPath path;
    path.moveTo(0, 0);
    path.cubicTo(1, 5, 2, 6, 3, 0);
    path.lineTo(5, 0);
    QPainterPath expected;
    expected.moveTo(0, 0);
    expected.quadTo(2, 6, 3, 0);
    expected.quadTo(4, 0, 5, 0);
    expected.setFillRule(Qt::WindingFill);
    QCOMPARE(CTextTools::textPathFillOut(path), expected);
}

void TestTextTools::fillOutOfNothingHasWindingFill()
{
    const QPainterPath path = CTextTools::textPathFillOut(QPainterPath());
    QVERIFY(path.isEmpty());
    QCOMPARE(path.fillRule(), Qt::WindingFill);
}

void TestTextTools::wholeNumbersSaturate()
{
    QCOMPARE(truncated(2.9), 2);
    QCOMPARE(truncated(-2.9), -2);
    QCOMPARE(truncated(1e20), std::numeric_limits<int>::max());
    QCOMPARE(truncated(-1e20), std::numeric_limits<int>::min());
    QCOMPARE(truncated(qQNaN()), 0);
    QCOMPARE(finiteReal(QStringLiteral("inf")), 0.0);
    QCOMPARE(finiteReal(QStringLiteral("12.5")), 12.5);
}

void TestTextTools::pixelSizesAreBounded()
{
    QFont font(loadBoxTestFont());
    font.setPixelSize(20);
    setMeasuringPixelSize(font, 0);
    QCOMPARE(font.pixelSize(), 20);
    setMeasuringPixelSize(font, -3);
    QCOMPARE(font.pixelSize(), 20);
    setMeasuringPixelSize(font, qint64(1) << 40);
    QCOMPARE(font.pixelSize(), MaximumPixelSize);
    QFont huge(loadBoxTestFont());
    huge.setPointSizeF(1e9);
    setMeasuringPixelSize(huge, 0);
    QCOMPARE(huge.pixelSize(), MaximumPixelSize);
}

QTEST_MAIN(TestTextTools)
#include "tst_texttools.moc"
