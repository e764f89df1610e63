// SPDX-License-Identifier: MIT
// tst_services.cpp -- framework, document, image store, font catalogue, fills and what hosts are
// told.
#include "host/fontdatabase/cfontdatabase.h"
#include "host/framework/cpagebgprop.h"
#include "host/qimageex/qimageex.h"
#include "plainobject.h"
#include "recordinghost.h"

#include <QBuffer>
#include <QDataStream>
#include <QFontDatabase>
#include <QGraphicsEffect>
#include <QGraphicsView>
#include <QJsonObject>
#include <QtTest>

namespace {

const QString boxTestFont = QStringLiteral(VX_SOURCE_DIR "/tests/support/BoxTest.ttf");

QImage picture(const QColor &color)
{
    QImage image(8, 4, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

QByteArray png(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// Shows its source from a picture, which Qt caches.
class PictureEffect : public QGraphicsEffect
{
protected:
    void draw(QPainter *painter) override
    {
        QPoint offset;
        const QPixmap source = sourcePixmap(Qt::LogicalCoordinates, &offset);
        painter->drawPixmap(offset, source);
    }
};

/// Counts how often its content is painted.
class CountingObject : public PlainObject
{
public:
    using PlainObject::PlainObject;
    int painted = 0;

    void OnQPainterDraw(QPainter *painter) override
    {
        ++painted;
        PlainObject::OnQPainterDraw(painter);
    }
};

} // namespace

class TestServices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frameworkIsNullUntilInstalled();
    void jsonHelperIsAlwaysThere();
    void objectWithoutPageHasNoDocument();
    void documentTellsItsDpi();
    void equalImagesShareAName();
    void imagesAreKeptApartOnDemand();
    void nullImageIsNotStored();
    void storedImageComesBack();
    void olderStreamRecordIsRead();
    void brokenStreamRecordIsRefused();
    void olderJsonRecordIsRead();
    void brokenJsonRecordIsRefused();
    void imagesTravelWithTheFile();
    void fontCatalogueFoldsLetterCase();
    void fontCatalogueHearsOfNewFonts();
    void fillIsABrushOnlyWhileEnabled();
    void appearanceChangeRepaints();
    void layerEffectIsSwitched();
    void finishedDrawingIsToldOnce();
    void tempValuesAreKeptByName();
    void recordingHostKeepsTheOrder();
};

void TestServices::frameworkIsNullUntilInstalled()
{
    QVERIFY(!GetFramework());
    {
        RecordingHost outer;
        QCOMPARE(GetFramework(), static_cast<IAppFramework *>(&outer));
        {
            RecordingHost inner;
            QCOMPARE(GetFramework(), static_cast<IAppFramework *>(&inner));
        }
        QCOMPARE(GetFramework(), static_cast<IAppFramework *>(&outer));
    }
    QVERIFY(!GetFramework());
}

void TestServices::jsonHelperIsAlwaysThere()
{
    QVERIFY(GetJsonUtil());
}

void TestServices::objectWithoutPageHasNoDocument()
{
    PlainObject object(nullptr);
    QVERIFY(!object.GetPage());
    QVERIFY(!object.getDocument());
    object.updatePreview();
    object.notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
    object.onCreateFinished(true);
}

void TestServices::documentTellsItsDpi()
{
    DocumentHost document(72);
    QCOMPARE(document.getDpi(), 72);
    document.setDpi(0);
    QCOMPARE(document.getDpi(), 72);
    QCOMPARE(DocumentHost(-3).getDpi(), 96);
    QVERIFY(!document.getView());
}

void TestServices::equalImagesShareAName()
{
    DocumentHost document;
    QString first, second, other, extra;
    document.storeImage(picture(Qt::red), first, extra, 0, 0, true);
    document.storeImage(picture(Qt::red), second, extra, 0, 0, true);
    document.storeImage(picture(Qt::blue), other, extra, 0, 0, true);
    QVERIFY(!first.isEmpty());
    QCOMPARE(second, first);
    QVERIFY(other != first);
    QVERIFY(extra.isEmpty());
    QCOMPARE(document.imageNames().size(), 2);
}

void TestServices::imagesAreKeptApartOnDemand()
{
    DocumentHost document;
    QString first, second, extra;
    document.storeImage(picture(Qt::red), first, extra, 0, 0, false);
    document.storeImage(picture(Qt::red), second, extra, 0, 0, false);
    QVERIFY(first != second);
    QCOMPARE(document.imageNames().size(), 2);
}

void TestServices::nullImageIsNotStored()
{
    DocumentHost document;
    QString name = QStringLiteral("old"), extra = QStringLiteral("old");
    document.storeImage(QImage(), name, extra, 0, 0, true);
    QVERIFY(name.isEmpty() && extra.isEmpty());
    QVERIFY(document.imageNames().isEmpty());
}

void TestServices::storedImageComesBack()
{
    DocumentHost document;
    QString name, extra;
    document.storeImage(picture(QColor(1, 2, 3, 128)), name, extra, 0, 0, true);
    QVERIFY(document.imageByName(name));
    QCOMPARE(document.imageByName(name)->toImage(), picture(QColor(1, 2, 3, 128)));
    QVERIFY(!document.imageByName(QStringLiteral("unknown")));
    QVERIFY(QImageEx().toImage().isNull());
}

void TestServices::olderStreamRecordIsRead()
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QStringLiteral("old.png") << png(picture(Qt::green)) << 99;
    DocumentHost document;
    QDataStream in(bytes);
    QImage image;
    QString name;
    QVERIFY(document.readImageFromStream(in, &image, 0, name));
    QCOMPARE(name, QStringLiteral("old.png"));
    QCOMPARE(image.size(), QSize(8, 4));
    QVERIFY(document.imageByName(name));
    int tail = 0;
    in >> tail;
    QCOMPARE(tail, 99);
}

void TestServices::brokenStreamRecordIsRefused()
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QStringLiteral("old.png") << png(picture(Qt::green));
    DocumentHost document;
    for (int length = 0; length < bytes.size(); ++length) {
        QDataStream in(bytes.left(length));
        QImage image;
        QString name;
        QVERIFY(!document.readImageFromStream(in, &image, 0, name));
        QVERIFY(image.isNull());
    }
    QByteArray foreign;
    QDataStream foreignOut(&foreign, QIODevice::WriteOnly);
    foreignOut << QString() << QByteArray("GIF89a, or anything else");
    QDataStream in(foreign);
    QImage image;
    QString name;
    QVERIFY(!document.readImageFromStream(in, &image, 0, name));
    QVERIFY(!document.readImageFromStream(in, nullptr, 0, name));
}

void TestServices::olderJsonRecordIsRead()
{
    const QString data = QString::fromLatin1(png(picture(Qt::green)).toBase64());
    DocumentHost document;
    QImage image;
    QString name;
    QJsonObject plain{{QStringLiteral("K"), data}};
    QVERIFY(document.readImageFromJson(plain, &image, QStringLiteral("K"), 0, name));
    QVERIFY(document.imageByName(name));
    QJsonObject named{
        {QStringLiteral("K"), QJsonObject{{QStringLiteral("name"), QStringLiteral("n.png")},
                                          {QStringLiteral("data"), data}}}};
    QVERIFY(document.readImageFromJson(named, &image, QStringLiteral("K"), 0, name));
    QCOMPARE(name, QStringLiteral("n.png"));
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::green));
}

void TestServices::brokenJsonRecordIsRefused()
{
    DocumentHost document;
    const QJsonValue values[] = {QJsonValue(), 7, QStringLiteral("no base64!"), QJsonObject(),
                                 QString::fromLatin1(png(picture(Qt::red)).left(30).toBase64())};
    for (const QJsonValue &value : values) {
        QJsonObject json{{QStringLiteral("K"), value}};
        QImage image = picture(Qt::red);
        QString name;
        QVERIFY(!document.readImageFromJson(json, &image, QStringLiteral("K"), 0, name));
        QVERIFY(image.isNull());
    }
}

void TestServices::imagesTravelWithTheFile()
{
    DocumentHost document;
    QString name, extra;
    document.storeImage(picture(Qt::red), name, extra, 0, 0, true);
    const QByteArray data = document.imageData(name);
    DocumentHost loaded;
    QVERIFY(loaded.restoreImage(name, data));
    QCOMPARE(loaded.imageByName(name)->toImage().pixelColor(0, 0), QColor(Qt::red));
    QVERIFY(!loaded.restoreImage(QStringLiteral("bad"), data.left(20)));
    QVERIFY(!loaded.restoreImage(QString(), data));
    QVERIFY(loaded.imageData(QStringLiteral("bad")).isEmpty());
    loaded.clearImages();
    QVERIFY(!loaded.imageByName(name));
}

void TestServices::fontCatalogueFoldsLetterCase()
{
    QVERIFY(QFontDatabase::addApplicationFont(boxTestFont) >= 0);
    const QString family = QStringLiteral("BoxTest");
    const CFontDatabase *const fonts = CFontDatabase::instance();
    QVERIFY(fonts->fontExists(family));
    QVERIFY(fonts->fontExists(family.toUpper()));
    QCOMPARE(fonts->family(family.toLower()), family);
    QCOMPARE(fonts->localFamily(family.toUpper()), family);
    QVERIFY(!fonts->fontExists(QString()));
    QVERIFY(!fonts->fontExists(QStringLiteral("No Such Family 4711")));
    QVERIFY(fonts->family(QStringLiteral("No Such Family 4711")).isEmpty());
    QVERIFY(fonts->localFamily(QString()).isEmpty());
}

void TestServices::fontCatalogueHearsOfNewFonts()
{
    QFontDatabase::removeAllApplicationFonts();
    QVERIFY(!CFontDatabase::instance()->fontExists(QStringLiteral("BoxTest")));
    const int id = QFontDatabase::addApplicationFont(boxTestFont);
    QVERIFY(id >= 0);
    QVERIFY(CFontDatabase::instance()->fontExists(QStringLiteral("BoxTest")));
    QFontDatabase::removeApplicationFont(id);
    QVERIFY(!CFontDatabase::instance()->fontExists(QStringLiteral("BoxTest")));
}

void TestServices::fillIsABrushOnlyWhileEnabled()
{
    CPageBgProp fill(nullptr);
    const QRectF rect(0, 0, 5, 5);
    QCOMPARE(fill.createBrushByProp(rect, false).style(), Qt::NoBrush);
    fill.setFillEnable(true);
    QCOMPARE(fill.createBrushByProp(rect, false).color(), QColor(Qt::white));
    fill.setColor(QColor(1, 2, 3, 4));
    QCOMPARE(fill.createBrushByProp(rect, false).color(), QColor(1, 2, 3, 4));
    QCOMPARE(fill.createBrushByProp(rect, true).color(), QColor(1, 2, 3));
    QCOMPARE(fill.createBrushByProp(QRectF(), true).style(), Qt::NoBrush);
}

void TestServices::appearanceChangeRepaints()
{
    RecordingHost host;
    host.recordPreviews = true;
    auto *const object = new PlainObject(&host);
    host.scene().addItem(object);
    QSignalSpy changed(&host.scene(), &QGraphicsScene::changed);
    QTRY_VERIFY(changed.count() > 0);
    QCoreApplication::processEvents();
    changed.clear();
    host.clearEvents();
    object->notifyObjPropertyChanged(17, QString());
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 0);
    object->notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
    QCOMPARE(host.kinds(), QStringLiteral("preview"));
    QTRY_VERIFY(changed.count() > 0);
}

void TestServices::layerEffectIsSwitched()
{
    RecordingHost host;
    auto *const object = new CountingObject(&host);
    host.scene().addItem(object);
    auto *const effect = new PictureEffect;
    object->setGraphicsEffect(effect);
    object->enableLayerEffect(false);
    QVERIFY(!object->isLayerEffectEnabled());
    QVERIFY(!effect->isEnabled());
    object->enableLayerEffect(true);
    QVERIFY(effect->isEnabled());

    QImage image(200, 200, QImage::Format_ARGB32_Premultiplied);
    const auto paintings = [&] {
        const int before = object->painted;
        QPainter painter(&image);
        host.scene().render(&painter, QRectF(0, 0, 200, 200), QRectF(0, 0, 200, 200));
        return object->painted - before;
    };
    QCOMPARE(paintings(), 1);
    QCOMPARE(paintings(), 0); // from the effect's picture
    object->clearLayerEffectCache(77);
    QCOMPARE(paintings(), 0);
    object->clearLayerEffectCache(EffectCacheReason::ContentChanged);
    QCOMPARE(paintings(), 1);
}

void TestServices::finishedDrawingIsToldOnce()
{
    RecordingHost host;
    CBaseObject object(3, false, nullptr, &host);
    QVERIFY(!object.isCreateFinished());
    object.onCreateFinished(true);
    object.onCreateFinished(true);
    QVERIFY(object.isCreateFinished());
    QCOMPARE(host.kinds(), QStringLiteral("created"));
    QCOMPARE(object.getObjId(), 3);
}

void TestServices::tempValuesAreKeptByName()
{
    PlainObject object(nullptr);
    QVERIFY(!object.getTempValue(QStringLiteral("a")).isValid());
    object.setTempValue(QStringLiteral("a"), 5);
    QCOMPARE(object.getTempValue(QStringLiteral("a")).toInt(), 5);
    object.setTempValue(QStringLiteral("a"), QVariant());
    QVERIFY(!object.getTempValue(QStringLiteral("a")).isValid());
}

void TestServices::recordingHostKeepsTheOrder()
{
    RecordingHost host;
    PlainObject object(&host);
    host.beginObjectBatch();
    host.beginUndoGroup(QStringLiteral("IDS_ITEM_ADD_ITEM"));
    host.getToolController()->postToolCommand(243, 0, 0);
    host.getEventSink()->notifyObjectEvent(&object, QStringLiteral("text_operation"),
                                           {{QStringLiteral("a"), 1}});
    host.getEventSink()->notifyObjectChanged(&object, 100, QString());
    host.setEditingObject(&object, true);
    host.endUndoGroup();
    host.endObjectBatch();
    QCOMPARE(host.kinds(),
             QStringLiteral("beginBatch beginGroup tool event changed editing endGroup endBatch"));
    QCOMPARE(host.eventsOfKind(QStringLiteral("tool")).value(0).code, 243);
    QCOMPARE(host.eventsWithKey(QStringLiteral("text_operation")).size(), 1);
    host.sinkOn = false;
    QVERIFY(!host.getEventSink());
}

QTEST_MAIN(TestServices)
#include "tst_services.moc"
