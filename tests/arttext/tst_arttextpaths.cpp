// SPDX-License-Identifier: MIT
// Outlines of the text: where each stands, how they are bent, and how they are fitted to the box.
#include "openarttext.h"

#include <QtTest>

namespace {
namespace Align {
constexpr int Left = 1;
constexpr int Right = 2;
constexpr int Centre = 4;
constexpr int Justify = 8;
constexpr int Usual = 0x84;
} // namespace Align

/// Where the ink of each outline stands: its top left, as "x,y x,y".
QString places(const OpenArtObject &art)
{
    QStringList corners;
    for (const QPainterPath &path : art.m_charPaths) {
        const QPointF corner = path.boundingRect().topLeft();
        corners.append(QStringLiteral("%1,%2").arg(corner.x()).arg(corner.y()));
    }
    return corners.join(QLatin1Char(' '));
}

QPainterPath pathThrough(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    for (const QPointF &point : points) {
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    return path;
}

/// A path of one point, scaled by \a art, as the place of that point.
QPointF scaled(OpenArtObject &art, const QPointF &point, QRectF client)
{
    QRectF source = art.m_pathRect;
    const QPainterPath path = art.scalePath(pathThrough({QPointF(0, 0), point}), client, source);
    return path.elementAt(1);
}
} // namespace

class TestArtTextPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outlinesStandWhereTheTextPutsThem_data();
    void outlinesStandWhereTheTextPutsThem();
    void columnsStandWhereTheTextPutsThem_data();
    void columnsStandWhereTheTextPutsThem();
    void rowSpacingPartsLinesAndIsCutOff();
    void letterSpacingPartsCharacters();
    void spacingsChangeRolesInColumns();
    void shapedScriptsKeepTheirLineWhole_data();
    void shapedScriptsKeepTheirLineWhole();
    void shapedLineIsTakenApartToBeStretched();
    void pairOfSurrogatesIsOneCharacter();
    void elementOfBlankCountsInTheExtremes();
    void blankTextHasNoInk();
    void emptyTextHasNoPaths();
    void defaultWordStandsForEmptyText();
    void fontFollowsItsFields();
    void outlinesForgetWhereGlyphsWerePaintedBefore_data();
    void outlinesForgetWhereGlyphsWerePaintedBefore();
    void sizeBeyondEveryFontStaysFinite();
    void linesBeyondTheLastNumberStayThere();
    void outlinesArePouredIntoTheStyle_data();
    void outlinesArePouredIntoTheStyle();
    void directionIsKept();
    void newPathsForgetTheScaledOnes();
    void boxStretchesBothAxes();
    void ringsKeepOneScaleAndStandInTheMiddle_data();
    void ringsKeepOneScaleAndStandInTheMiddle();
    void boundsWithoutExtentScaleNothing();
};

void TestArtTextPaths::outlinesStandWhereTheTextPutsThem_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, int alignment, const char *text, const char *expected) {
        QTest::newRow(name) << alignment << QString::fromLatin1(text)
                            << QString::fromLatin1(expected);
    };
    row("one line", Align::Usual, "aaa", "0,0 8,0 16,0");
    row("usual alignment starts all lines at 0", Align::Usual, "aaaa\naa",
        "0,0 8,0 16,0 24,0 0,16 8,16");
    row("left", Align::Left, "aaaa\naa", "0,0 8,0 16,0 24,0 0,16 8,16");
    row("centre", Align::Centre, "aaaa\naa", "0,0 8,0 16,0 24,0 8,16 16,16");
    row("right", Align::Right, "aaaa\naa", "0,0 8,0 16,0 24,0 16,16 24,16");
    row("right, longest in the middle", Align::Right, "a\naaa\na", "16,0 0,16 8,16 16,16 16,32");
    row("justified", Align::Justify, "aaaa\naa", "0,0 8,0 16,0 24,0 0,16 24,16");
    row("justified by whole pixels", Align::Justify, "aaaaa\naaaa",
        "0,0 8,0 16,0 24,0 32,0 0,16 10,16 20,16 30,16");
    row("one character is not justified", Align::Justify, "aaaa\na", "0,0 8,0 16,0 24,0 0,16");
    row("line ends in a row part once", Align::Usual, "a\n\n\na", "0,0 0,16");
    row("line ends of two kinds part once", Align::Usual, "a\r\n\r\na", "0,0 0,16");
    row("line end at the end", Align::Usual, "a\n", "0,0");
    row("line end at the start", Align::Usual, "\na", "0,0");
}

void TestArtTextPaths::outlinesStandWhereTheTextPutsThem()
{
    QFETCH(int, alignment);
    QFETCH(QString, text);
    OpenArtObject art;
    art.stayFlat();
    art.m_textAlignment = alignment;
    art.setPlainText(text);
    QTEST(places(art), "expected");
}

void TestArtTextPaths::columnsStandWhereTheTextPutsThem_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, int alignment, const char *text, const char *expected) {
        QTest::newRow(name) << alignment << QString::fromLatin1(text)
                            << QString::fromLatin1(expected);
    };
    row("one column", Align::Usual, "aaa", "0,0 0,16 0,32");
    row("columns go leftwards", Align::Usual, "aa\na", "16,0 16,16 0,0");
    // The first line is 16 wide and 32 long; a line is only longer when it is wider than 32.
    row("right, the wider line is not the longest", Align::Right, "aa\naaa",
        "16,16 16,32 0,0 0,16 0,32");
    row("right, a line wider than the longest is long", Align::Right, "a\naaa",
        "16,32 0,0 0,16 0,32");
    row("centre", Align::Centre, "a\naaa", "16,16 0,0 0,16 0,32");
    row("justified", Align::Justify, "aaaa\naa", "16,0 16,16 16,32 16,48 0,0 0,48");
}

void TestArtTextPaths::columnsStandWhereTheTextPutsThem()
{
    QFETCH(int, alignment);
    QFETCH(QString, text);
    OpenArtObject art;
    art.stayFlat();
    art.m_textAlignment = alignment;
    art.m_fontSomehow = true;
    art.setPlainText(text);
    QTEST(places(art), "expected");
}

void TestArtTextPaths::rowSpacingPartsLinesAndIsCutOff()
{
    OpenArtObject art;
    art.stayFlat();
    art.m_rowSpacing = 5.6;
    art.setPlainText(QStringLiteral("a\na\na"));
    QCOMPARE(places(art), QStringLiteral("0,0 0,21 0,42")); // 21.6, then 21 + 21.6, each cut off
}

void TestArtTextPaths::letterSpacingPartsCharacters()
{
    OpenArtObject art;
    art.stayFlat();
    art.m_letterSpacing = 4;
    art.setPlainText(QStringLiteral("aaa"));
    QCOMPARE(places(art), QStringLiteral("0,0 12,0 24,0"));
}

void TestArtTextPaths::spacingsChangeRolesInColumns()
{
    OpenArtObject art;
    art.stayFlat();
    art.m_fontSomehow = true;
    art.m_letterSpacing = 4; // between the columns
    art.setPlainText(QStringLiteral("aa\na"));
    QCOMPARE(places(art), QStringLiteral("20,0 20,16 0,0"));
}

void TestArtTextPaths::shapedScriptsKeepTheirLineWhole_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("paths");
    QTest::newRow("Hebrew") << QStringLiteral("\u05E9\u05DC\u05D5\u05DD") << 1;
    QTest::newRow("Thai") << QStringLiteral("\u0E01\u0E02\u0E04") << 1;
    QTest::newRow("one such character is enough") << QStringLiteral("aa\u0E01a") << 1;
    QTest::newRow("only its own line") << QStringLiteral("aaa\n\u0E01a") << 4;
    QTest::newRow("below the range") << QStringLiteral("a\u04FFa") << 3;
    QTest::newRow("first of the range") << QStringLiteral("a\u0500a") << 1;
    QTest::newRow("last of the range") << QStringLiteral("a\u1DFFa") << 1;
    QTest::newRow("above the range") << QStringLiteral("a\u1E00a") << 3;
    QTest::newRow("Han") << QStringLiteral("\u4E2D\u6587") << 2;
}

void TestArtTextPaths::shapedScriptsKeepTheirLineWhole()
{
    QFETCH(QString, text);
    OpenArtObject art;
    art.setPlainText(text);
    QTEST(art.m_charPaths.size(), "paths");
}

void TestArtTextPaths::shapedLineIsTakenApartToBeStretched()
{
    OpenArtObject art;
    const QString text = QStringLiteral("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\n\u05E9\u05DC\u05D5\u05DD");
    art.m_textAlignment = Align::Justify;
    art.setPlainText(text);
    QCOMPARE(art.m_charPaths.size(), 34);
    art.m_textAlignment = Align::Left;
    art.setPlainText(text);
    QCOMPARE(art.m_charPaths.size(), 31);
}

void TestArtTextPaths::pairOfSurrogatesIsOneCharacter()
{
    OpenArtObject art;
    const uint codePoint[] = {'a', 0x20000, 'a'};
    art.setPlainText(QString::fromUcs4(codePoint, 3));
    QCOMPARE(art.m_charPaths.size(), 3);
    art.setPlainText(QString(QChar(0xD840)) + QLatin1Char('a')); // half a pair stands for itself
    QCOMPARE(art.m_charPaths.size(), 2);
}

void TestArtTextPaths::elementOfBlankCountsInTheExtremes()
{
    OpenArtObject art;
    art.stayFlat();
    art.setPlainText(QStringLiteral(" a"));
    QCOMPARE(art.m_charPaths.size(), 2);
    QCOMPARE(art.m_charPaths.at(1).boundingRect(), QRectF(9, 0, 6, 6)); // the blank stands at 0
    QCOMPARE(art.m_pathRect, QRectF(9, 0, 6, 6));
}

void TestArtTextPaths::blankTextHasNoInk()
{
    OpenArtObject art;
    art.show(QStringLiteral("  "), QSizeF(100, 100));
    QVERIFY(art.m_pathRect.isNull());
    contentOf(art);
    QVERIFY(art.m_scaledPaths.isEmpty());
}

void TestArtTextPaths::emptyTextHasNoPaths()
{
    OpenArtObject art;
    art.setPlainText(QStringLiteral("a"));
    art.setPlainText(QString());
    QVERIFY(art.m_charPaths.isEmpty());
    QVERIFY(art.m_pathRect.isNull());
    QCOMPARE(art.m_paintedRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
    art.setSize(QSizeF(100, 100), false, false);
    QImage white(120, 120, QImage::Format_ARGB32_Premultiplied);
    white.fill(Qt::white);
    QCOMPARE(contentOf(art), white);
}

void TestArtTextPaths::defaultWordStandsForEmptyText()
{
    OpenArtObject art;
    art.m_defaultWord = QStringLiteral("aaa");
    art.setPlainText(QString());
    QCOMPARE(art.m_charPaths.size(), 3);
    art.setPlainText(QStringLiteral("a"));
    QCOMPARE(art.m_charPaths.size(), 1);
}

void TestArtTextPaths::fontFollowsItsFields()
{
    OpenArtObject art;
    art.stayFlat();
    art.m_fontSize = 24; // 32 px
    art.setPlainText(QStringLiteral("aa"));
    QCOMPARE(places(art), QStringLiteral("0,0 16,0"));
    QCOMPARE(art.m_pathRect, QRectF(0, 0, 28, 12));
    art.m_fontSize = 12;
    art.m_fontItalic = true; // slanted: the ink of a letter is wider than 6
    art.setPlainText(QStringLiteral("a"));
    QVERIFY(art.m_pathRect.width() > 6);
    art.m_fontItalic = false;
    art.m_fontBold = true;
    art.setPlainText(QStringLiteral("a"));
    QVERIFY(art.m_pathRect.width() > 6);
}

void TestArtTextPaths::outlinesForgetWhereGlyphsWerePaintedBefore_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("text");
    QTest::newRow("squares") << loadBoxTestFont() << QStringLiteral("ab");
    QTest::newRow("Latin") << QStringLiteral("Noto Sans") << QStringLiteral("Art Text");
    QTest::newRow("lines") << QStringLiteral("Noto Sans") << QStringLiteral("Art\nText");
    QTest::newRow("a font that stands in")
        << QStringLiteral("Noto Sans") << QString::fromUtf8("T\u0E01\u05E9");
}

void TestArtTextPaths::outlinesForgetWhereGlyphsWerePaintedBefore()
{
    QFETCH(QString, family);
    QFETCH(QString, text);
    OpenArtObject art;
    art.m_fontFamily = family;
    art.m_fontSize = 192;
    art.setPlainText(text);
    const QVector<QPainterPath> outlines = art.m_charPaths;
    QFont font(family);
    font.setHintingPreference(QFont::PreferNoHinting); // glyphs stand at fractions of a pixel
    QImage image(300, 40, QImage::Format_ARGB32_Premultiplied);
    for (const int pixels : {11, 13, 17}) { // whatever the fraction of the last glyph is
        font.setPixelSize(pixels);
        QPainter painter(&image);
        painter.setFont(font);
        painter.drawText(QPointF(3, 30), QStringLiteral("abcd") + text);
        painter.end();
        art.setPlainText(text);
        QCOMPARE(art.m_charPaths, outlines);
    }
}

void TestArtTextPaths::sizeBeyondEveryFontStaysFinite()
{
    OpenArtObject art;
    for (const int size : {std::numeric_limits<int>::max(), 0, std::numeric_limits<int>::min()}) {
        art.m_fontSize = size;
        art.m_letterSpacing = 1e300;
        art.m_rowSpacing = -1e300;
        art.setPlainText(QStringLiteral("a\na\na"));
        for (const QPainterPath &path : qAsConst(art.m_charPaths)) {
            for (int i = 0; i < path.elementCount(); ++i)
                QVERIFY(std::isfinite(path.elementAt(i).x) && std::isfinite(path.elementAt(i).y));
        }
    }
}

void TestArtTextPaths::linesBeyondTheLastNumberStayThere()
{
    OpenArtObject art;
    art.stayFlat();
    art.m_rowSpacing = std::numeric_limits<int>::max();
    art.setPlainText(QStringLiteral("a\na\na"));
    QCOMPARE(art.m_charPaths.size(), 3);
    const QRectF second = art.m_charPaths.at(1).boundingRect();
    QVERIFY(second != art.m_charPaths.at(0).boundingRect());
    QCOMPARE(art.m_charPaths.at(2).boundingRect(), second);
}

void TestArtTextPaths::outlinesArePouredIntoTheStyle_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<bool>("vertical");
    for (int shape = 0; shape <= 41; ++shape) {
        QTest::newRow(qPrintable(QStringLiteral("style %1").arg(shape))) << shape << false;
        QTest::newRow(qPrintable(QStringLiteral("style %1, columns").arg(shape))) << shape << true;
    }
}

void TestArtTextPaths::outlinesArePouredIntoTheStyle()
{
    QFETCH(int, shape);
    QFETCH(bool, vertical);
    OpenArtObject art;
    art.stayFlat();
    art.m_fontSomehow = vertical;
    art.setPlainText(QStringLiteral("aa"));
    const QVector<QPainterPath> flat = art.m_charPaths;
    art.m_shape = shape;
    art.setPlainText(QStringLiteral("aa"));

    const QSizeF source = vertical ? QSizeF(8, 24)
                                   : QSizeF(16, 8); // ink of 14 by 6, and 2 each way
    const CSize target(4096, 4096);
    CArtText engine;
    engine.Resize(target, shape);
    QRectF bounds;
    for (int i = 0; i < 2; ++i) {
        const QPainterPath bent = engine.lensDeform(flat.at(i), QPointF(0, 0), source, target,
                                                    false);
        QCOMPARE(art.m_charPaths.at(i), bent);
        bounds |= bent.boundingRect();
    }
    QCOMPARE(art.m_pathRect, bounds);
    QVERIFY(art.m_pathRect.right() <= source.width() && art.m_pathRect.bottom() <= source.height());
}

void TestArtTextPaths::directionIsKept()
{
    OpenArtObject art;
    art.generatePath(true);
    QVERIFY(art.m_pathsVertical);
    art.LoadFontPath();
    QVERIFY(!art.m_pathsVertical);
    art.m_fontSomehow = true;
    QVERIFY(art.LoadFontPath());
    QVERIFY(art.m_pathsVertical);
}

void TestArtTextPaths::newPathsForgetTheScaledOnes()
{
    OpenArtObject art;
    art.show(QStringLiteral("aa"), QSizeF(100, 100));
    contentOf(art);
    QCOMPARE(art.m_scaledPaths.size(), 2);
    art.generatePath(false);
    QVERIFY(art.m_scaledPaths.isEmpty());
    QCOMPARE(art.m_paintedRect, art.m_pathRect.toRect());
}

void TestArtTextPaths::boxStretchesBothAxes()
{
    OpenArtObject art;
    art.m_pathRect = QRectF(2, 4, 10, 20);
    art.m_shape = 7;
    QCOMPARE(scaled(art, QPointF(12, 24), QRectF(0, 0, 100, 60)), QPointF(100, 60));
    QCOMPARE(scaled(art, QPointF(7, 9), QRectF(0, 0, 100, 60)), QPointF(50, 15));
    QCOMPARE(scaled(art, QPointF(7, 9), QRectF(3, 5, 100, 60)), QPointF(53, 20));
}

void TestArtTextPaths::ringsKeepOneScaleAndStandInTheMiddle_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<QSizeF>("client");
    QTest::addColumn<QPointF>("corner"); // of bounds from (2, 4) to (22, 14), then scaled
    QTest::addColumn<QPointF>("start");
    for (int shape : {8, 9}) {
        const QByteArray name = QByteArray::number(shape);
        // Twice as wide as high: made 20 by 20, then enlarged by 5.
        QTest::newRow(name + ", square")
            << shape << QSizeF(100, 100) << QPointF(100, 100) << QPointF(0, 0);
        QTest::newRow(name + ", wide")
            << shape << QSizeF(200, 100) << QPointF(150, 100) << QPointF(50, 0);
        QTest::newRow(name + ", high")
            << shape << QSizeF(100, 300) << QPointF(100, 100) << QPointF(0, 0);
    }
    for (int shape : {40, 41}) {
        const QByteArray name = QByteArray::number(shape);
        // The same halved: 20 by 10.
        QTest::newRow(name + ", square")
            << shape << QSizeF(100, 100) << QPointF(100, 50) << QPointF(0, 0);
        QTest::newRow(name + ", wide")
            << shape << QSizeF(400, 100) << QPointF(300, 100) << QPointF(100, 0);
    }
}

void TestArtTextPaths::ringsKeepOneScaleAndStandInTheMiddle()
{
    QFETCH(int, shape);
    QFETCH(QSizeF, client);
    OpenArtObject art;
    art.m_pathRect = QRectF(2, 4, 20, 10);
    art.m_shape = shape;
    const QRectF box(QPointF(0, 0), client);
    QTEST(scaled(art, QPointF(22, 14), box), "corner");
    QTEST(scaled(art, QPointF(2, 4), box), "start");
}

void TestArtTextPaths::boundsWithoutExtentScaleNothing()
{
    OpenArtObject art;
    for (const QRectF &bounds : {QRectF(0, 0, 10, 0), QRectF(0, 0, 0, 10), QRectF()}) {
        for (int shape : {1, 8, 41}) {
            art.m_pathRect = bounds;
            art.m_shape = shape;
            QCOMPARE(scaled(art, QPointF(3, 4), QRectF(0, 0, 100, 100)), QPointF(3, 4));
        }
    }
}

QTEST_MAIN(TestArtTextPaths)
#include "tst_arttextpaths.moc"
