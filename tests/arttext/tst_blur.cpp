// SPDX-License-Identifier: MIT
#include "arttext/arttexthelper.h"

#include <QtTest>

#include <algorithm>
#include <random>

namespace {

/// An image whose pixels' bytes look like noise, the same in each run. Padding stays 0.
QImage noise(int width, int height, QImage::Format format)
{
    QImage image(width, height, format);
    image.fill(0);
    std::mt19937 random(unsigned(width * 1000 + height));
    for (int y = 0; y < height; ++y) {
        uchar *row = image.scanLine(y);
        for (int i = 0; i < width * image.depth() / 8; ++i)
            row[i] = uchar(random() >> 8);
    }
    return image;
}

/// Each byte as the mean of its window, summed up anew for each.
QImage blurredSlowly(const QImage &image, int radius)
{
    QImage result = image.copy();
    const int channels = image.depth() / 8;
    for (int y = 0; y < image.height(); ++y) {
        for (int i = 0; i < image.width() * channels; ++i) {
            int sum = 0;
            int cells = 0;
            for (int row = y - radius; row <= y + radius; ++row) {
                for (int column = i - radius * channels; column <= i + radius * channels;
                     column += channels) {
                    if (row < 0 || row >= image.height() || column < 0
                        || column >= image.width() * channels)
                        continue;
                    sum += image.constScanLine(row)[column];
                    ++cells;
                }
            }
            result.scanLine(y)[i] = uchar(sum / cells);
        }
    }
    return result;
}

QImage blurred(QImage image, int radius)
{
    return ThBlurMore(image, radius) ? image : QImage();
}

} // namespace

class TestBlur : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void radiusBelow1ChangesNothing();
    void whitePixelSpreads();
    void cornersCountOnlyTheirCells();
    void channelsDoNotMix();
    void radiusIsAQuarterOfTheShorterSideAtMost();
    void smallImagesStayAsTheyAre();
    void everyPixelIsTheMeanOfItsWindow_data();
    void everyPixelIsTheMeanOfItsWindow();
    void plainColoursStay();
    void largeSumsFit();
    void bitmapsStayAsTheyAre();
    void emptyImageIsRefused();
    void copiesAreLeftAlone();
};

void TestBlur::radiusBelow1ChangesNothing()
{
    const QImage image = noise(20, 20, QImage::Format_ARGB32);
    for (int radius : {0, -1, std::numeric_limits<int>::min()}) {
        QImage same = image;
        QVERIFY(!ThBlurMore(same, radius));
        QCOMPARE(same, image);
    }
}

void TestBlur::whitePixelSpreads()
{
    QImage image(9, 9, QImage::Format_Grayscale8);
    image.fill(0);
    image.scanLine(4)[5] = 255;
    QVERIFY(ThBlurMore(image, 1));
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 9; ++x) {
            const bool inBlock = x >= 4 && x <= 6 && y >= 3 && y <= 5;
            QCOMPARE(int(image.constScanLine(y)[x]), inBlock ? 28 : 0);
        }
    }
}

void TestBlur::cornersCountOnlyTheirCells()
{
    QImage image(8, 8, QImage::Format_Grayscale8);
    image.fill(0);
    image.scanLine(0)[0] = 255;
    QVERIFY(ThBlurMore(image, 1));
    QCOMPARE(int(image.constScanLine(0)[0]), 63); // of 4 cells
    QCOMPARE(int(image.constScanLine(0)[1]), 42); // of 6
    QCOMPARE(int(image.constScanLine(1)[0]), 42);
    QCOMPARE(int(image.constScanLine(1)[1]), 28); // of 9
    QCOMPARE(int(image.constScanLine(0)[2]), 0);
}

void TestBlur::channelsDoNotMix()
{
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(qRgba(0, 0, 0, 90));
    image.setPixel(4, 4, qRgba(90, 180, 255, 90));
    QVERIFY(ThBlurMore(image, 1));
    QCOMPARE(image.pixel(3, 3), qRgba(10, 20, 28, 90));
    QCOMPARE(image.pixel(2, 3), qRgba(0, 0, 0, 90));
}

void TestBlur::radiusIsAQuarterOfTheShorterSideAtMost()
{
    const QImage image = noise(40, 80, QImage::Format_RGB32);
    QCOMPARE(blurred(image, 100), blurredSlowly(image, 10));
    QCOMPARE(blurred(image, 10), blurredSlowly(image, 10));
    QVERIFY(blurred(image, 9) != blurred(image, 10));
    QCOMPARE(blurred(image, std::numeric_limits<int>::max()), blurredSlowly(image, 10));
    const QImage wide = noise(81, 31, QImage::Format_Grayscale8);
    QCOMPARE(blurred(wide, 100), blurredSlowly(wide, 7));
}

void TestBlur::smallImagesStayAsTheyAre()
{
    for (const QSize &size : {QSize(1, 1), QSize(3, 50), QSize(50, 3)}) {
        const QImage image = noise(size.width(), size.height(), QImage::Format_RGB888);
        QCOMPARE(blurred(image, 5), image);
    }
}

void TestBlur::everyPixelIsTheMeanOfItsWindow_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("radius");
    const QImage::Format formats[] = {
        QImage::Format_Indexed8, QImage::Format_Alpha8, QImage::Format_RGB16,
        QImage::Format_RGB888,   QImage::Format_RGB32,  QImage::Format_ARGB32_Premultiplied,
        QImage::Format_RGBA64,
    };
    for (QImage::Format format : formats) {
        for (int radius : {1, 2, 5})
            QTest::addRow("format %d radius %d", int(format), radius) << int(format) << radius;
    }
}

void TestBlur::everyPixelIsTheMeanOfItsWindow()
{
    QFETCH(int, format);
    QFETCH(int, radius);
    const QImage image = noise(21, 23, QImage::Format(format));
    const QImage result = blurred(image, radius);
    const QImage expected = blurredSlowly(image, radius);
    for (int y = 0; y < image.height(); ++y) {
        const int bytes = image.width() * image.depth() / 8;
        QVERIFY(std::equal(result.constScanLine(y), result.constScanLine(y) + bytes,
                           expected.constScanLine(y)));
    }
}

void TestBlur::plainColoursStay()
{
    QImage image(30, 30, QImage::Format_ARGB32);
    image.fill(qRgba(255, 254, 1, 128));
    const QImage plain = image.copy();
    QVERIFY(ThBlurMore(image, 7));
    QCOMPARE(image, plain);
}

// A window of 3001 * 3001 white cells sums up to more than 32 bits hold.
void TestBlur::largeSumsFit()
{
    QImage image(6000, 6000, QImage::Format_Grayscale8);
    image.fill(255);
    QVERIFY(ThBlurMore(image, 1500));
    QCOMPARE(int(image.constScanLine(3000)[3000]), 255);
    QCOMPARE(int(image.constScanLine(5999)[5999]), 255);
}

void TestBlur::bitmapsStayAsTheyAre()
{
    QImage image(40, 40, QImage::Format_Mono);
    image.fill(0);
    image.setPixel(7, 7, 1);
    const QImage before = image.copy();
    QVERIFY(ThBlurMore(image, 3));
    QCOMPARE(image, before);
}

void TestBlur::emptyImageIsRefused()
{
    QImage none;
    QVERIFY(!ThBlurMore(none, 3));
    QImage thin(0, 30, QImage::Format_ARGB32);
    QVERIFY(!ThBlurMore(thin, 3));
}

void TestBlur::copiesAreLeftAlone()
{
    const QImage image = noise(20, 20, QImage::Format_ARGB32);
    const QImage before = image.copy();
    QImage shared = image;
    QVERIFY(ThBlurMore(shared, 2));
    QCOMPARE(image, before);
    QVERIFY(shared != image);
}

QTEST_GUILESS_MAIN(TestBlur)
#include "tst_blur.moc"
