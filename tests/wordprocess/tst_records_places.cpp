// SPDX-License-Identifier: MIT
// Records: where a text stands. Matrix, bounds and picture; nothing moves however often it is loaded and saved.
#include "handrecord.h"

#include <QTest>

#include <cmath>

class TestRecordPlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void matrixGivesRotationAndStretch_data();
    void matrixGivesRotationAndStretch();
    void matrixWithoutRotationTakesThatOfTheItem();
    void rotationNearAQuarterTurnKeepsTheStretch();
    void recordWithoutMatrixMovesTwoEdges();
    void recordWithoutMatrixAnchorsLineText();
    void boundsGiveOverhangAndSize();
    void boundsOfLineTextLeaveTheOverhang();
    void missingBoundsFallBackOnThePicture();
    void missingFontShowsThePicture_data();
    void missingFontShowsThePicture();
    void pictureStandsUpright();
    void picturePaintsAndStaysTheSame();
    void installedFontsLeaveThePictureAtOnce();
    void lockedTextLeavesThePictureAndStaysLocked();
    void textStaysWhereItIs_data();
    void textStaysWhereItIs();
    void pictureStaysWhereItIs_data();
    void pictureStaysWhereItIs();
    void movedPictureTakesItsTextAlong();
    void textComesBackFromARecordWrittenAsPicture_data();
    void textComesBackFromARecordWrittenAsPicture();
};

namespace {
const auto k = [](const char *key) { return QString::fromLatin1(key); };

AttributeMap currentParams(const QString &family = loadBoxTestFont())
{
    return {{k("TextOrientation"), 1},
            {k("text_wordwrap"), false},
            {k("document_data"), documentStringOf(QStringLiteral("abc"), family)},
            {k("document_dpi"), 96},
            {k("new_version"), true}};
}

void setMatrix(AttributeMap &params, double m11, double m12, double m21, double m22, double dx,
               double dy)
{
    params[k("transform_xx")] = m11;
    params[k("transform_xy")] = m12;
    params[k("transform_yx")] = m21;
    params[k("transform_yy")] = m22;
    params[k("transform_tx")] = dx;
    params[k("transform_ty")] = dy;
}

void setBounds(AttributeMap &params, const QRectF &box, const QRectF &bounding)
{
    params[k("boxBounds_left")] = box.left();
    params[k("boxBounds_top")] = box.top();
    params[k("boxBounds_right")] = box.right();
    params[k("boxBounds_bottom")] = box.bottom();
    params[k("boundingBox_left")] = bounding.left();
    params[k("boundingBox_top")] = bounding.top();
    params[k("boundingBox_right")] = bounding.right();
    params[k("boundingBox_bottom")] = bounding.bottom();
}

QImage bluePicture(const QSize &size = QSize(30, 20))
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::blue);
    return image;
}

/// A record whose font is missing and whose picture the document keeps.
HandRecord pictureRecord(RecordingHost &host)
{
    HandRecord record;
    record.params = currentParams(missingFamily());
    setMatrix(record.params, 1, 0, 0, 1, 40, 42);
    setBounds(record.params, QRectF(0, 0, 24, 16), QRectF(0, 0, 24, 16));
    QString name;
    QString second;
    host.storeImage(bluePicture(), name, second, 0, 0, true);
    record.params[k("img_x")] = 40;
    record.params[k("img_y")] = 30;
    record.params[k("font_imgage")] = name;
    return record;
}

/// How a text of the table stands, made once and carried through records.
struct Stance {
    bool box = false;
    int orientation = Qt::Horizontal;
    int alignment = Qt::AlignLeft;
    double stretch = 1;
    double angle = 0;
    bool turnedOver = false;
    bool document = true; ///< without one there is no picture
};
} // namespace
Q_DECLARE_METATYPE(Stance)

namespace {
void makeStand(OpenWord &word, const Stance &stance)
{
    word.m_textOrientation = stance.orientation;
    QTextBlockFormat block;
    block.setProperty(TextProperty::Alignment, stance.alignment);
    word.m_cursor->setBlockFormat(block);
    word.setPos(QPointF(140.25, 90.5), false);
    word.add(QStringLiteral("abc def"));
    if (stance.box) {
        word.m_wordWrap = true;
        word.m_wordManager->setWordWrap(true);
        word.beginEdit();
        word.setSize(QSizeF(40, 50), false, true);
        word.endEdit();
    }
    if (stance.stretch != 1)
        word.setSize(word.getSize() * stance.stretch, false, true);
    if (stance.angle != 0)
        word.rotateObj(stance.angle, false);
    word.setFlip(stance.turnedOver, true);
    word.setMirror(stance.turnedOver, true);
}

void addStances(const QList<bool> &documents)
{
    QTest::addColumn<Stance>("stance");
    for (bool document : documents) {
        const char *const where = document ? "with a picture" : "without one";
        for (bool box : {false, true}) {
            for (int orientation : {1, 2}) {
                for (double stretch : {1.0, 2.5}) {
                    for (double angle : {0.0, 30.0, 89.99, 90.0, 211.0}) {
                        QTest::addRow("%s, %s, %g times, turned by %g, %s", box ? "box" : "line",
                                      orientation == 1 ? "lines" : "columns", stretch, angle, where)
                            << Stance{box,   orientation, Qt::AlignLeft, stretch,
                                      angle, false,       document};
                    }
                    QTest::addRow("%s, %s, %g times, turned over, %s", box ? "box" : "line",
                                  orientation == 1 ? "lines" : "columns", stretch, where)
                        << Stance{box, orientation, Qt::AlignLeft, stretch, 30, true, document};
                }
            }
        }
        for (int alignment : {int(Qt::AlignRight), int(Qt::AlignHCenter)})
            QTest::addRow("line, alignment %d, %s", alignment, where)
                << Stance{false, 1, alignment, 2.5, 30, false, document};
    }
}

bool isSameSize(const QSizeF &a, const QSizeF &b)
{
    return std::abs(a.width() - b.width()) < 1e-6 && std::abs(a.height() - b.height()) < 1e-6;
}

void compareStance(OpenWord &word, OpenWord &original, const char *when)
{
    const QRectF ink = sceneInkOf(word);
    const QRectF expected = sceneInkOf(original);
    // Outlines lie on 1/64 pixel: the last bit of an anchor may move them by one step, times the stretch.
    const double step = 2.5 / 64 + 1e-6;
    QVERIFY2(isNear(ink.topLeft(), expected.topLeft(), 2 * step)
                 && isNear(ink.bottomRight(), expected.bottomRight(), 2 * step),
             when);
    QVERIFY2(isNear(word.getPos(), original.getPos()), when);
    QVERIFY2(std::abs(std::remainder(word.rotation() - original.rotation(), 360)) < 1e-6, when);
    QVERIFY2(isSameSize(word.getSize(), original.getSize()), when);
}
} // namespace

void TestRecordPlaces::matrixGivesRotationAndStretch_data()
{
    QTest::addColumn<bool>("flip");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<QTransform>("matrix");
    QTest::addColumn<double>("rotation");
    QTest::addColumn<QPointF>("stretch");
    const double half = 0.5;
    const double root = 0.8660254037844386; // of 3/4
    const auto matrix = [](double m11, double m12, double m21, double m22) {
        return QTransform(m11, m12, m21, m22, 0, 0);
    };
    QTest::newRow("plain") << false << false << matrix(1, 0, 0, 1) << 0.0 << QPointF(1, 1);
    QTest::newRow("stretched") << false << false << matrix(2, 0, 0, 3) << 0.0 << QPointF(2, 3);
    QTest::newRow("30 degrees") << false << false << matrix(2 * root, 2 * half, -3 * half, 3 * root)
                                << 30.0 << QPointF(2, 3);
    QTest::newRow("quarter turn") << false << false << matrix(0, 2, -3, 0) << 90.0 << QPointF(2, 3);
    QTest::newRow("quarter turn back")
        << false << false << matrix(0, -2, 3, 0) << -90.0 << QPointF(2, 3);
    QTest::newRow("as good as a quarter turn")
        << false << false << matrix(8e-7, 2, -3, 12e-7) << 89.99997708 << QPointF(2, 3);
    QTest::newRow("half turn") << false << false << matrix(-2, 0, 0, -3) << 180.0 << QPointF(2, 3);
    QTest::newRow("flipped") << true << false << matrix(root, half, 0, 1) << -30.0
                             << QPointF(1, 1.1547005383792517);
    QTest::newRow("mirrored") << false << true << matrix(root, half, 0, 1) << 150.0
                              << QPointF(1, 1.1547005383792517);
    QTest::newRow("mirrored and flipped")
        << true << true << matrix(root, half, 0, 1) << -150.0 << QPointF(1, 1.1547005383792517);
    QTest::newRow("nothing in it") << false << false << matrix(0, 0, 0, 0) << 0.0 << QPointF(0, 0);
}

void TestRecordPlaces::matrixGivesRotationAndStretch()
{
    QFETCH(bool, flip);
    QFETCH(bool, mirror);
    QFETCH(QTransform, matrix);
    QFETCH(double, rotation);
    QFETCH(QPointF, stretch);
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    record.params[k("document_data")] =
        documentStringOf(QStringLiteral("abc"), missingFamily(),
                         QStringLiteral(",\"is_flip\":%1,\"is_mirror\":%2")
                             .arg(flip ? k("true") : k("false"), mirror ? k("true") : k("false")));
    setMatrix(record.params, matrix.m11(), matrix.m12(), matrix.m21(), matrix.m22(), 7, 9);
    for (Form form : {Form::Stream, Form::Json}) {
        OpenWord word(&host);
        QVERIFY(record.load(word, form));
        QVERIFY(std::abs(word.m_fontImageRotation - rotation) < 1e-6);
        QVERIFY(isNear(QPointF(word.m_scaleX, word.m_scaleY), stretch, 2e-6));
        QVERIFY(isNear(word.m_fontImageClient.topLeft(), QPointF(7, 9)));
        const QSizeF size = word.m_fontImageClient.size();
        QVERIFY(isNear(QPointF(size.width(), size.height()),
                       QPointF(24 * stretch.x(), 16 * stretch.y()), 1e-4));
    }
}

void TestRecordPlaces::matrixWithoutRotationTakesThatOfTheItem()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    record.rotation = 60;
    setMatrix(record.params, 2, 0, 0, 3, 40, 42);
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QCOMPARE(word.m_fontImageRotation, 60.0);
    QVERIFY(std::abs(word.m_scaleX - 4.0) < 1e-9); // 2 / cos 60
    QVERIFY(std::abs(word.m_scaleY - 6.0) < 1e-9);
}

void TestRecordPlaces::rotationNearAQuarterTurnKeepsTheStretch()
{
    RecordingHost host;
    for (double degrees : {89.9, 89.999, 89.9999, 90.0001, 270.00005}) {
        HandRecord record = pictureRecord(host);
        const QTransform turned = QTransform().rotate(degrees).scale(2, 3);
        setMatrix(record.params, turned.m11(), turned.m12(), turned.m21(), turned.m22(), 0, 0);
        OpenWord word(&host);
        QVERIFY(record.load(word, Form::Stream));
        QVERIFY(std::abs(word.m_scaleX - 2) < 1e-6 && std::abs(word.m_scaleY - 3) < 1e-6);
    }
}

void TestRecordPlaces::recordWithoutMatrixMovesTwoEdges()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    for (const char *key : {"transform_xx", "transform_xy", "transform_yx", "transform_yy"})
        record.params.remove(k(key));
    record.params[k("transform_tx")] = -7.0;
    record.params[k("transform_ty")] = -9.0;
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Json));
    QCOMPARE(word.m_fontImageClient, QRectF(-7, -9, 7, 9)); // right and bottom stay at 0
    QCOMPARE(word.m_textPathsRect.size(), QSizeF(7, 9));
    QCOMPARE(word.m_scaleX, 1.0);
}

void TestRecordPlaces::recordWithoutMatrixAnchorsLineText()
{
    RecordingHost host;
    HandRecord record;
    record.params = currentParams();
    record.params[k("transform_tx")] = 100.0;
    record.params[k("transform_ty")] = 200.0;
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    // The first baseline begins at the anchor: 12 px of ascent above it.
    QCOMPARE(word.mapToScene(word.m_textOffset), QPointF(100, 200));
    QCOMPARE(word.getPos(), QPointF(100, 188));
    QCOMPARE(word.getSize(), QSizeF(24, 16));
}

void TestRecordPlaces::boundsGiveOverhangAndSize()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    record.params[k("text_wordwrap")] = true;
    setMatrix(record.params, 2, 0, 0, 4, 40, 42);
    setBounds(record.params, QRectF(QPointF(0, 0), QPointF(47, 10.5)),
              QRectF(QPointF(-1, -0.75), QPointF(49, 11.75)));
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QCOMPARE(word.m_boundsMargins.left, -1.0);
    QCOMPARE(word.m_boundsMargins.top, -0.75);
    QCOMPARE(word.m_boundsMargins.right, 2.0);
    QCOMPARE(word.m_boundsMargins.bottom, 1.25);
    QCOMPARE(word.m_fontImageClient, QRectF(40, 42, 100, 50)); // 50 x 12.5, stretched
}

void TestRecordPlaces::boundsOfLineTextLeaveTheOverhang()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    setBounds(record.params, QRectF(0, 0, 1, 1), QRectF(-5, -6, 30, 40));
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QCOMPARE(word.m_boundsMargins.left, 0.0);
    QCOMPARE(word.m_boundsMargins.right, 0.0);
    QCOMPARE(word.m_fontImageClient.size(), QSizeF(30, 40));
}

void TestRecordPlaces::missingBoundsFallBackOnThePicture()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    record.params.remove(k("boxBounds_left")); // the other seven do not count without it
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QVERIFY(word.m_showFontImage);
    QCOMPARE(word.m_fontImageClient, QRectF(40, 30, 30, 20));
    QCOMPARE(word.m_textPathsRect.size(), QSizeF(30, 20));
}

void TestRecordPlaces::missingFontShowsThePicture_data()
{
    QTest::addColumn<bool>("inRecord");
    QTest::newRow("kept by the document") << false;
    QTest::newRow("in the record itself") << true;
}

void TestRecordPlaces::missingFontShowsThePicture()
{
    QFETCH(bool, inRecord);
    for (Form form : {Form::Stream, Form::Json}) {
        RecordingHost host;
        HandRecord record = pictureRecord(host);
        if (inRecord) {
            record.params.remove(k("font_imgage"));
            record.params[k("has_img")] = true;
            record.picture = bluePicture();
        }
        OpenWord word(&host);
        QVERIFY(record.load(word, form));
        QVERIFY(word.m_showFontImage);
        QCOMPARE(word.m_missingFonts, QStringList(missingFamily()));
        QVERIFY(word.m_replacedFonts.isEmpty());
        QCOMPARE(word.getPos(), QPointF(40, 30));
        QCOMPARE(word.m_clientRect, QRectF(0, 0, 30, 20));
        QCOMPARE(word.m_baseSize, QSizeF(30, 20));
        QCOMPARE(QPointF(word.m_fontImageScaleX, word.m_fontImageScaleY), QPointF(1, 1));
        QVERIFY(word.m_created);
        QVERIFY(sizeHandlesAre(word, false));
        QCOMPARE(contentOf(word).pixelColor(15, 10), QColor(Qt::blue));
        // The writer keeps it with the document in any case.
        QJsonObject written;
        QVERIFY(word.saveJson(written));
        const QJsonObject params = written.value(k("params")).toObject();
        QVERIFY(!params.contains(k("has_img")));
        const QString name = params.value(k("font_imgage")).toString();
        QVERIFY(host.imageByName(name));
        QCOMPARE(params.value(k("img_x")).toDouble(), 40.0);
        QCOMPARE(params.value(k("img_y")).toDouble(), 30.0);
    }
}

void TestRecordPlaces::pictureStandsUpright()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    record.rotation = 30;
    const QTransform turned = QTransform().rotate(30);
    setMatrix(record.params, turned.m11(), turned.m12(), turned.m21(), turned.m22(), 40, 42);
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QCOMPARE(word.rotation(), 0.0);
    QCOMPARE(word.getPos(), QPointF(40, 30));
    QVERIFY(std::abs(word.m_fontImageRotation - 30) < 1e-9);
}

/// Also where the document has been written to a file and read again in between.
void TestRecordPlaces::picturePaintsAndStaysTheSame()
{
    const auto first = std::make_unique<RecordingHost>();
    OpenWord word(first.get());
    word.add(QStringLiteral("abc"));
    word.setPos(QPointF(10, 20), false);
    const QImage picture = contentOf(word);
    QVERIFY(!inkOf(picture).isNull());
    QJsonObject record;
    word.saveJson(record);
    QJsonObject params = record.value(k("params")).toObject();
    params[k("document_data")] =
        params.value(k("document_data")).toString().replace(loadBoxTestFont(), missingFamily());
    record[k("params")] = params;
    QString name = params.value(k("font_imgage")).toString();
    QByteArray png = first->imageData(name);
    for (int generation = 0; generation < 3; ++generation) {
        RecordingHost host;
        QVERIFY(host.restoreImage(name, png));
        OpenWord loaded(&host);
        QVERIFY(loaded.loadJson(record));
        QVERIFY(loaded.m_showFontImage);
        QCOMPARE(contentOf(loaded), picture);
        QJsonObject again;
        QVERIFY(loaded.saveJson(again));
        const QString newName =
            again.value(k("params")).toObject().value(k("font_imgage")).toString();
        QCOMPARE(newName, name);
        QCOMPARE(host.imageNames().size(), 1);
        png = host.imageData(newName);
        record = again;
    }
}

void TestRecordPlaces::installedFontsLeaveThePictureAtOnce()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    record.params[k("document_data")] = documentStringOf(QStringLiteral("abc"));
    for (Form form : {Form::Stream, Form::Json}) {
        OpenWord word(&host);
        QVERIFY(record.load(word, form));
        QVERIFY(!word.m_showFontImage);
        QVERIFY(word.m_missingFonts.isEmpty());
        QCOMPARE(word.getSize(), QSizeF(24, 16));
        QVERIFY(!word.m_textPaths.isEmpty());
        QVERIFY(isNear(word.mapToScene(QPointF(12, 8)), QPointF(55, 40))); // the picture's middle
    }
}

void TestRecordPlaces::lockedTextLeavesThePictureAndStaysLocked()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    record.locked = true;
    record.params[k("document_data")] = documentStringOf(QStringLiteral("abc"));
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QVERIFY(!word.m_showFontImage);
    QVERIFY(word.isLocked());
    QCOMPARE(word.getSize(), QSizeF(24, 16));
}

void TestRecordPlaces::textStaysWhereItIs_data()
{
    addStances({true, false});
}

void TestRecordPlaces::textStaysWhereItIs()
{
    QFETCH(Stance, stance);
    for (Form form : {Form::Stream, Form::Json}) {
        RecordingHost host;
        host.documentOn = stance.document;
        OpenWord original(&host);
        makeStand(original, stance);
        const QTransform placement = original.getTextTransform();
        QByteArray record = recordOf(original, form);
        for (int i = 0; i < 5; ++i) {
            OpenWord word(&host);
            QVERIFY(loadRecord(word, record, form));
            compareStance(word, original, qPrintable(QString::number(i)));
            const QTransform again = word.getTextTransform();
            QVERIFY(isNear(QPointF(again.m11(), again.m12()),
                           QPointF(placement.m11(), placement.m12())));
            QVERIFY(isNear(QPointF(again.m21(), again.m22()),
                           QPointF(placement.m21(), placement.m22())));
            QVERIFY(isNear(again.map(QPointF()), placement.map(QPointF()), 1e-5));
            record = recordOf(word, form);
        }
    }
}

void TestRecordPlaces::pictureStaysWhereItIs_data()
{
    addStances({true});
}

/// The record of a text whose font is missing, once as its text was made and then as its picture.
void TestRecordPlaces::pictureStaysWhereItIs()
{
    QFETCH(Stance, stance);
    RecordingHost host;
    OpenWord original(&host);
    makeStand(original, stance);
    QJsonObject record;
    original.saveJson(record);
    QJsonObject params = record.value(k("params")).toObject();
    params[k("document_data")] =
        params.value(k("document_data")).toString().replace(loadBoxTestFont(), missingFamily());
    record[k("params")] = params;
    const QTransform placement = original.getTextTransform();
    QSizeF size;
    QPointF pos;
    for (int i = 0; i < 5; ++i) {
        OpenWord word(&host);
        QVERIFY(word.loadJson(record));
        QVERIFY(word.m_showFontImage);
        if (i > 0) // the record of line text takes the size of the picture
            QCOMPARE(word.getPos(), pos);
        if (i > (stance.box ? 0 : 1))
            QVERIFY(isSameSize(word.m_fontImageClient.size(), size));
        size = word.m_fontImageClient.size();
        pos = word.getPos();
        record = QJsonObject();
        word.saveJson(record);
        params = record.value(k("params")).toObject();
        const auto value = [&](const char *key) { return params.value(k(key)).toDouble(); };
        QVERIFY(isNear(QPointF(value("transform_xx"), value("transform_xy")),
                       QPointF(placement.m11(), placement.m12())));
        QVERIFY(isNear(QPointF(value("transform_yx"), value("transform_yy")),
                       QPointF(placement.m21(), placement.m22())));
        QVERIFY(isNear(QPointF(value("transform_tx"), value("transform_ty")),
                       QPointF(placement.dx(), placement.dy())));
    }
}

void TestRecordPlaces::movedPictureTakesItsTextAlong()
{
    RecordingHost host;
    HandRecord record = pictureRecord(host);
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    word.setPos(QPointF(100, 200), false); // from (40, 30)
    recordOf(word, Form::Stream);
    QCOMPARE(word.m_saveParams.value(k("transform_tx")).toDouble(), 100.0);
    QCOMPARE(word.m_saveParams.value(k("transform_ty")).toDouble(), 212.0);
    word.setSize(QSizeF(60, 60), false, true); // twice and three times
    recordOf(word, Form::Stream);
    QCOMPARE(word.m_saveParams.value(k("transform_xx")).toDouble(), 2.0);
    QCOMPARE(word.m_saveParams.value(k("transform_yy")).toDouble(), 3.0);
    QCOMPARE(word.m_saveParams.value(k("transform_tx")).toDouble(), 100.0);
    QCOMPARE(word.m_saveParams.value(k("transform_ty")).toDouble(),
             236.0); // 12 px below, three times
}

void TestRecordPlaces::textComesBackFromARecordWrittenAsPicture_data()
{
    addStances({true});
}

void TestRecordPlaces::textComesBackFromARecordWrittenAsPicture()
{
    QFETCH(Stance, stance);
    RecordingHost host;
    OpenWord original(&host);
    makeStand(original, stance);
    QJsonObject record;
    original.saveJson(record);
    const auto renameFont = [&record](const QString &from, const QString &to) {
        QJsonObject params = record.value(k("params")).toObject();
        params[k("document_data")] = params.value(k("document_data")).toString().replace(from, to);
        record[k("params")] = params;
    };
    renameFont(loadBoxTestFont(), missingFamily());
    for (int i = 0; i < 3; ++i) { // three times through a machine without the font
        OpenWord picture(&host);
        QVERIFY(picture.loadJson(record));
        QVERIFY(picture.m_showFontImage);
        record = QJsonObject();
        picture.saveJson(record);
    }
    renameFont(missingFamily(), loadBoxTestFont());
    OpenWord word(&host);
    QVERIFY(word.loadJson(record));
    QVERIFY(!word.m_showFontImage);
    // A picture covers whole pixels: half a pixel is all that it may cost, once.
    QVERIFY(std::abs(std::remainder(word.rotation() - original.rotation(), 360)) < 1e-6);
    QVERIFY(isSameSize(word.getSize(), original.getSize()));
    QVERIFY(isNear(sceneInkOf(word).center(), sceneInkOf(original).center(), 0.8));
}

QTEST_MAIN(TestRecordPlaces)
#include "tst_records_places.moc"
