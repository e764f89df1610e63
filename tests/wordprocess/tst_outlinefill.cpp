// SPDX-License-Identifier: MIT
// Many glyphs filled in an order of their own have the pixels of one fill, wherever and however they lie.
#include "wordprocess/outlinefill.h"

#include <QImage>
#include <QPainter>
#include <QTest>

namespace {

constexpr QSize canvas(400, 300);
const QColor faint(20, 60, 120, 90); // what is filled twice would be darker

/// Curved shapes with holes in eight rows, close enough to touch here and there.
QPainterPath manyRings()
{
    QPainterPath rings;
    for (int i = 0; i < 240; ++i) {
        const QPointF middle(20 + (i % 30) * 12.3 + (i % 7) * 0.11, 15 + (i / 30) * 13.7);
        const double radius = 4.1 + (i % 5) * 0.55;
        rings.addEllipse(middle, radius, radius);
        rings.addEllipse(middle, radius / 2, radius / 3);
    }
    return rings;
}

QImage blank()
{
    QImage image(canvas, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

template<typename Fill>
QImage picture(const QTransform &transform, const QRectF &clip, Fill fill)
{
    QImage image = blank();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (!clip.isNull())
        painter.setClipRect(clip);
    painter.setTransform(transform);
    fill(painter);
    return image;
}

} // namespace

class TestOutlineFill : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pixelsAreThoseOfOneFill_data();
    void pixelsAreThoseOfOneFill();
    void ruleOfTheCallHolds();
    void gradientStretchesOverTheWholePath();
    void pathOffTheDeviceLeavesItAlone();
};

void TestOutlineFill::pixelsAreThoseOfOneFill_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<QRectF>("clip");
    QTest::newRow("as it is") << QTransform() << QRectF();
    QTest::newRow("small") << QTransform::fromScale(0.31, 0.31) << QRectF();
    QTest::newRow("large") << QTransform::fromScale(3.7, 3.7) << QRectF();
    QTest::newRow("mirrored") << QTransform(-1, 0, 0, 1, 390.3, 0) << QRectF();
    QTest::newRow("upside down") << QTransform(1, 0, 0, -1, 0, 290.7) << QRectF();
    QTest::newRow("turned") << QTransform().translate(120, -60).rotate(33) << QRectF();
    QTest::newRow("sheared") << QTransform(1, 0.3, 0.4, 1, -60, -20) << QRectF();
    QTest::newRow("partly off") << QTransform::fromTranslate(-133.4, 210.2) << QRectF();
    QTest::newRow("clipped") << QTransform() << QRectF(90.5, 40, 61, 70);
    QTest::newRow("turned, clipped")
        << QTransform().translate(120, -60).rotate(33) << QRectF(90.5, 40, 61, 70);
    QTest::newRow("seen askew") << QTransform(1, 0, 0.0004, 0, 1, 0.0003, 0, 0, 1) << QRectF();
}

void TestOutlineFill::pixelsAreThoseOfOneFill()
{
    QFETCH(QTransform, transform);
    QFETCH(QRectF, clip);
    const QPainterPath there = manyRings();
    for (QPainterPath path : {there, there.toReversed()}) {
        path.setFillRule(Qt::WindingFill);
        const QImage expected = picture(transform, clip,
                                        [&](QPainter &painter) { painter.fillPath(path, faint); });
        path.setFillRule(Qt::OddEvenFill);
        const QImage filled = picture(transform, clip, [&](QPainter &painter) {
            fillOutlines(painter, path, Qt::WindingFill, faint);
        });
        QVERIFY(expected != blank());
        QCOMPARE(filled, expected);
    }
}

void TestOutlineFill::ruleOfTheCallHolds()
{
    const QPainterPath path = manyRings();
    const auto filled = [&](Qt::FillRule rule) {
        return picture(QTransform(), QRectF(),
                       [&](QPainter &painter) { fillOutlines(painter, path, rule, faint); });
    };
    QVERIFY(filled(Qt::OddEvenFill) != filled(Qt::WindingFill));
}

void TestOutlineFill::gradientStretchesOverTheWholePath()
{
    QLinearGradient gradient(0, 0, 1, 1);
    gradient.setCoordinateMode(QGradient::ObjectBoundingMode);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    const QPainterPath path = manyRings();
    const QImage expected = picture(QTransform(), QRectF(),
                                    [&](QPainter &painter) { painter.fillPath(path, gradient); });
    QCOMPARE(picture(QTransform(), QRectF(),
                     [&](QPainter &painter) {
                         fillOutlines(painter, path, path.fillRule(), gradient);
                     }),
             expected);
}

void TestOutlineFill::pathOffTheDeviceLeavesItAlone()
{
    QCOMPARE(picture(QTransform::fromTranslate(5000, 0), QRectF(),
                     [](QPainter &painter) {
                         fillOutlines(painter, manyRings(), Qt::WindingFill, faint);
                     }),
             blank());
}

QTEST_MAIN(TestOutlineFill)
#include "tst_outlinefill.moc"
