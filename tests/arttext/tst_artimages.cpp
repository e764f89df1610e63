// SPDX-License-Identifier: MIT
#include "arttext/arttexthelper.h"
#include "arttext/qtfontdrawtool.h"

#include <QPainter>
#include <QtTest>

#include <initializer_list>
#include <limits>

namespace {

/// An image whose first bytes, padding included, are told one by one; those that it has no room for
/// are left out.
QImage imageOf(const QSize &size, QImage::Format format, std::initializer_list<int> bytes)
{
    QImage image(size, format);
    image.fill(0);
    uchar *out = image.bits();
    const uchar *end = out + image.sizeInBytes();
    for (int byte : bytes) {
        if (out != end)
            *out++ = uchar(byte);
    }
    return image;
}

QImage pixels(std::initializer_list<QRgb> colours)
{
    QImage image(int(colours.size()), 1, QImage::Format_ARGB32);
    int x = 0;
    for (QRgb colour : colours)
        image.setPixel(x++, 0, colour);
    return image;
}

QImage blankPage()
{
    QImage page(100, 100, QImage::Format_RGB32);
    page.fill(Qt::white);
    return page;
}

bool isInked(const QImage &page, int x, int y)
{
    return page.pixel(x, y) != qRgb(255, 255, 255);
}

/// Part of the way from \a from to \a to that has ink on it.
double inkBetween(const QImage &page, QPoint from, QPoint to)
{
    constexpr int steps = 60;
    int inked = 0;
    for (int i = 0; i < steps; ++i)
        inked += isInked(page, from.x() + (to.x() - from.x()) * i / steps,
                         from.y() + (to.y() - from.y()) * i / steps);
    return double(inked) / steps;
}

} // namespace

class TestArtImages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void imagesOwnATransparentBuffer();
    void imagesKeepTheirLineLength();
    void linesTooShortForTheirPixelsGiveNoImage();
    void emptyAndHugeImagesAreNull();

    void nullMaskGivesNoImage();
    void nullImageGivesNoImage();
    void alphaIsMaskTimesImage();
    void alphaOfTheImageCanBeIgnored();
    void alphaOfImagesWithout32BitsIsTheMask();
    void coloursAreCopiedByteByByte_data();
    void coloursAreCopiedByteByByte();
    void paddingIsRead();
    void wideMasksAreReadEveryFifthByte();
    void masksThatEndEarlyGiveAlpha0();
    void otherMasksGiveATransparentImage_data();
    void otherMasksGiveATransparentImage();

    void sampleIsDrawnOnlyWhenAskedForTwice();

    void strokesAreFilledOneByOne();
    void strokesHaveNoHoles();
    void backgroundIsFilled();
    void gridOfACross();
    void gridWithDiagonals();
    void otherGridsOnlySetThePen();
    void toolNeedsAPainter();
};

void TestArtImages::imagesOwnATransparentBuffer()
{
    QImage image = CArtText::createImage(10, 5, 4);
    QCOMPARE(image.size(), QSize(10, 5));
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    QCOMPARE(image.bytesPerLine(), 40);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 10; ++x)
            QCOMPARE(image.pixel(x, y), 0U);
    }
    const uchar *buffer = image.constBits();
    image.fill(Qt::red); // in place: the buffer is the image's own
    QCOMPARE(image.constBits(), buffer);
    const QImage copy = image;
    image = QImage();
    QCOMPARE(copy.pixel(9, 4), qRgb(255, 0, 0));
}

void TestArtImages::imagesKeepTheirLineLength()
{
    const QImage image = CArtText::createImage(7, 3, 6);
    QCOMPARE(image.bytesPerLine(), 42);
    QCOMPARE(image.size(), QSize(7, 3));
}

void TestArtImages::linesTooShortForTheirPixelsGiveNoImage()
{
    for (int bytes : {3, 1, 0, -4})
        QVERIFY(CArtText::createImage(10, 5, bytes).isNull());
}

void TestArtImages::emptyAndHugeImagesAreNull()
{
    constexpr int most = std::numeric_limits<int>::max();
    QVERIFY(CArtText::createImage(0, 5, 4).isNull());
    QVERIFY(CArtText::createImage(5, 0, 4).isNull());
    QVERIFY(CArtText::createImage(-5, 5, 4).isNull());
    QVERIFY(CArtText::createImage(5, -5, 4).isNull());
    QVERIFY(CArtText::createImage(most, 1, 4).isNull());
    QVERIFY(CArtText::createImage(1 << 29, 1, 4).isNull());
    QVERIFY(CArtText::createImage(most, most, most).isNull());
    QVERIFY(CArtText::createImage(0, 0, 4).isNull());
}

void TestArtImages::nullMaskGivesNoImage()
{
    QVERIFY(CArtText::maskImage(pixels({0xffffffff}), QImage(), false).isNull());
    QVERIFY(CArtText::maskImage(pixels({0xffffffff}), QImage(0, 5, QImage::Format_ARGB32), true)
                .isNull());
}

void TestArtImages::nullImageGivesNoImage()
{
    QVERIFY(CArtText::maskImage(QImage(), pixels({0xffffffff}), false).isNull());
}

void TestArtImages::alphaIsMaskTimesImage()
{
    const QImage image = pixels({qRgba(10, 20, 30, 128), qRgba(40, 50, 60, 255), 0xffffffff});
    const QImage mask = imageOf(QSize(3, 1), QImage::Format_Grayscale8, {51, 255, 0});
    const QImage masked = CArtText::maskImage(image, mask, false);
    QCOMPARE(masked, pixels({qRgba(10, 20, 30, 25), qRgba(40, 50, 60, 255), 0x00ffffff}));
}

void TestArtImages::alphaOfTheImageCanBeIgnored()
{
    const QImage image = pixels({qRgba(10, 20, 30, 128), qRgba(40, 50, 60, 0)});
    const QImage mask = imageOf(QSize(2, 1), QImage::Format_Alpha8, {51, 255});
    const QImage masked = CArtText::maskImage(image, mask, true);
    QCOMPARE(masked, pixels({qRgba(10, 20, 30, 51), qRgba(40, 50, 60, 255)}));
}

void TestArtImages::alphaOfImagesWithout32BitsIsTheMask()
{
    const QImage image = imageOf(QSize(1, 1), QImage::Format_RGB888, {1, 2, 3});
    const QImage mask = imageOf(QSize(1, 1), QImage::Format_Indexed8, {200});
    QCOMPARE(qAlpha(CArtText::maskImage(image, mask, false).pixel(0, 0)), 200);
}

void TestArtImages::coloursAreCopiedByteByByte_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    const auto row = [](const char *name, QImage::Format format, const char *first,
                        const char *second) {
        QTest::newRow(name) << int(format) << QByteArray::fromHex(first)
                            << QByteArray::fromHex(second);
    };
    // The image's bytes are 0b 0c 0d 0e 0f 10 11 12 13 14 15 16; the mask is ff everywhere.
    row("mono", QImage::Format_Mono, "0b0000ff", "0b0000ff");
    row("8 bits", QImage::Format_Grayscale8, "0b0000ff", "0c0000ff");
    row("16 bits", QImage::Format_RGB16, "0b0000ff", "0d0000ff");
    row("24 bits", QImage::Format_RGB888, "0b0c0dff", "0e0f10ff");
    row("32 bits", QImage::Format_ARGB32, "0b0c0d0e", "0f101112");
    row("64 bits", QImage::Format_RGBA64, "0b0c0d0e", "13141516");
}

void TestArtImages::coloursAreCopiedByteByByte()
{
    QFETCH(int, format);
    const QImage image = imageOf(QSize(2, 2), QImage::Format(format),
                                 {11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22});
    const QImage mask = imageOf(QSize(4, 1), QImage::Format_Grayscale8, {255, 255, 255, 255});
    const QImage masked = CArtText::maskImage(image, mask, false);
    QCOMPARE(masked.size(), QSize(2, 2));
    const QByteArray bytes(reinterpret_cast<const char *>(masked.constBits()), 8);
    QTEST(bytes.left(4), "first");
    QTEST(bytes.mid(4), "second");
}

// Lines of 3 bytes are stored with a fourth: it is the fourth pixel.
void TestArtImages::paddingIsRead()
{
    const QImage image = imageOf(QSize(3, 2), QImage::Format_Grayscale8, {1, 2, 3, 77, 5, 6, 7, 8});
    const QImage mask = imageOf(QSize(3, 2), QImage::Format_Grayscale8,
                                {101, 102, 103, 99, 105, 106, 107, 108});
    const QImage masked = CArtText::maskImage(image, mask, false);
    QCOMPARE(masked.pixel(2, 0), qRgba(0, 0, 3, 103));
    QCOMPARE(masked.pixel(0, 1), qRgba(0, 0, 77, 99));
    QCOMPARE(masked.pixel(2, 1), qRgba(0, 0, 6, 106));
}

void TestArtImages::wideMasksAreReadEveryFifthByte()
{
    const QImage image = pixels({0xff000001, 0xff000002, 0xff000003});
    const QImage mask = imageOf(QSize(3, 1), QImage::Format_ARGB32,
                                {10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21});
    const QImage masked = CArtText::maskImage(image, mask, false);
    QCOMPARE(masked, pixels({0x0a000001, 0x0f000002, 0x14000003}));
}

void TestArtImages::masksThatEndEarlyGiveAlpha0()
{
    const QImage image = pixels({0xff000001, 0xff000002, 0xff000003, 0xff000004, 0xff000005});
    const QImage mask = imageOf(QSize(3, 1), QImage::Format_RGB32,
                                {10, 0, 0, 0, 0, 11, 0, 0, 0, 0, 12, 255});
    QCOMPARE(CArtText::maskImage(image, mask, false),
             pixels({0x0a000001, 0x0b000002, 0x0c000003, 0x00000004, 0x00000005}));
    const QImage narrow = imageOf(QSize(1, 1), QImage::Format_Grayscale8, {9, 8, 7, 6});
    QCOMPARE(CArtText::maskImage(image, narrow, true),
             pixels({0x09000001, 0x08000002, 0x07000003, 0x06000004, 0x00000005}));
}

void TestArtImages::otherMasksGiveATransparentImage_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("mono") << int(QImage::Format_Mono);
    QTest::newRow("16 bits") << int(QImage::Format_RGB16);
    QTest::newRow("24 bits") << int(QImage::Format_RGB888);
    QTest::newRow("64 bits") << int(QImage::Format_RGBA64);
}

void TestArtImages::otherMasksGiveATransparentImage()
{
    QFETCH(int, format);
    QImage mask(2, 1, QImage::Format(format));
    mask.fill(Qt::white);
    const QImage masked = CArtText::maskImage(pixels({0xff000001, 0xff000002}), mask, false);
    QCOMPARE(masked, pixels({0, 0}));
}

void TestArtImages::sampleIsDrawnOnlyWhenAskedForTwice()
{
    CArtText art;
    CRect rect;
    const auto drawn = [&](bool enabled, bool drawSample) {
        QImage page = blankPage();
        QPainter painter(&page);
        const bool result = art.RenderPathPoints(&painter, nullptr, nullptr, 0, false, &rect,
                                                 enabled, drawSample, 128);
        painter.end();
        return result ? page : QImage();
    };
    QCOMPARE(drawn(false, false), blankPage());
    QCOMPARE(drawn(true, false), blankPage());
    QCOMPARE(drawn(false, true), blankPage());
    const QImage sample = drawn(true, true);
    QVERIFY(!sample.isNull());
    bool hasBlue = false;
    bool hasFill = false;
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 100; ++x) {
            const QColor colour = sample.pixelColor(x, y);
            hasBlue = hasBlue || colour == Qt::blue;
            hasFill = hasFill || (colour.blue() == 0 && colour.red() > 0 && colour.green() > 0);
        }
    }
    QVERIFY(hasBlue);
    QVERIFY(hasFill);
    QVERIFY(art.RenderPathPoints(nullptr, nullptr, nullptr, 0, false, &rect, true, true, 128));
}

void TestArtImages::strokesAreFilledOneByOne()
{
    QPainterPath path;
    for (int i = 0; i < 3; ++i)
        path.addRect(10 + 30 * i, 10, 20, 20);
    const auto filled = [&](int lastIndex) {
        QImage page = blankPage();
        QPainter painter(&page);
        CQtFontDrawTool::DrawFontPath(&painter, path, Qt::red, lastIndex);
        painter.end();
        int count = 0;
        for (int i = 0; i < 3; ++i)
            count += page.pixel(20 + 30 * i, 20) == qRgb(255, 0, 0) ? 1 << i : 0;
        return count;
    };
    QCOMPARE(filled(-1), 0);
    QCOMPARE(filled(0), 1);
    QCOMPARE(filled(1), 3);
    QCOMPARE(filled(2), 7);
    QCOMPARE(filled(std::numeric_limits<int>::max()), 7);
}

void TestArtImages::strokesHaveNoHoles()
{
    QPainterPath ring;
    ring.addRect(10, 10, 60, 60);
    ring.addRect(30, 30, 20, 20);
    QImage page = blankPage();
    QPainter painter(&page);
    CQtFontDrawTool::DrawFontPath(&painter, ring, Qt::red, 1);
    painter.end();
    QCOMPARE(page.pixel(40, 40), qRgb(255, 0, 0));
}

void TestArtImages::backgroundIsFilled()
{
    QImage page = blankPage();
    QPainter painter(&page);
    CQtFontDrawTool::FillBackGround(&painter, Qt::green, QRectF(10, 20, 30, 40));
    painter.end();
    QCOMPARE(page.pixelColor(10, 20), QColor(Qt::green));
    QCOMPARE(page.pixelColor(39, 59), QColor(Qt::green));
    QCOMPARE(page.pixelColor(40, 60), QColor(Qt::white));
    QCOMPARE(page.pixelColor(9, 19), QColor(Qt::white));
}

void TestArtImages::gridOfACross()
{
    QImage page = blankPage();
    QPainter painter(&page);
    CQtFontDrawTool::DrawGrid(&painter, Qt::red, QRectF(10, 10, 80, 80), 1);
    QCOMPARE(painter.pen().style(), Qt::DashLine);
    QCOMPARE(painter.pen().color(), QColor(Qt::black));
    painter.end();
    const QLine lines[] = {{10, 10, 90, 10}, {10, 90, 90, 90}, {10, 10, 10, 90},
                           {90, 10, 90, 90}, {10, 50, 90, 50}, {50, 10, 50, 90}};
    for (const QLine &line : lines) {
        const double ink = inkBetween(page, line.p1(), line.p2());
        QVERIFY(ink > 0.4 && ink < 1);
    }
    // Nothing between the lines.
    for (int i : {13, 20, 35, 47, 53, 70, 87}) {
        QVERIFY(!isInked(page, i, i));
        QVERIFY(!isInked(page, i, 100 - i));
    }
}

void TestArtImages::gridWithDiagonals()
{
    QImage page = blankPage();
    QPainter painter(&page);
    CQtFontDrawTool::DrawGrid(&painter, Qt::red, QRectF(10, 10, 80, 80), 2);
    painter.end();
    const QLine lines[] = {{10, 10, 90, 10},
                           {10, 50, 90, 50},
                           {50, 10, 50, 90},
                           {10, 10, 90, 90},
                           {10, 90, 90, 10}};
    for (const QLine &line : lines)
        QVERIFY(inkBetween(page, line.p1(), line.p2()) > 0.4);
}

void TestArtImages::otherGridsOnlySetThePen()
{
    for (int kind : {0, 3, -1}) {
        QImage page = blankPage();
        QPainter painter(&page);
        CQtFontDrawTool::DrawGrid(&painter, Qt::red, QRectF(10, 10, 80, 80), kind);
        QCOMPARE(painter.pen().style(), Qt::DashLine);
        painter.end();
        QCOMPARE(page, blankPage());
    }
}

void TestArtImages::toolNeedsAPainter()
{
    QPainterPath path;
    path.addRect(0, 0, 5, 5);
    CQtFontDrawTool::DrawFontPath(nullptr, path, Qt::red, 0);
    CQtFontDrawTool::FillBackGround(nullptr, Qt::red, QRectF(0, 0, 5, 5));
    CQtFontDrawTool::DrawGrid(nullptr, Qt::red, QRectF(0, 0, 5, 5), 1);
}

QTEST_MAIN(TestArtImages)
#include "tst_artimages.moc"
