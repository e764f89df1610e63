// SPDX-License-Identifier: MIT
// Pages with objects of the text library: opened, changed, saved and opened again.
#include "app/page/document.h"
#include "app/page/framework.h"
#include "app/page/openpage.h"
#include "app/page/page.h"
#include "app/page/pagerenderer.h"
#include "app/page/pagestorage.h"
#include "app/page/pluginloader.h"
#include "app/page/recordform.h"
#include "app/page/textobject.h"
#include "app/page/textrecord.h"
#include "host/framework/cbaseobject.h"
#include "tests/support/testfont.h"

#include <QBuffer>
#include <QDataStream>
#include <QGraphicsSceneMouseEvent>
#include <QtTest>

namespace {

/// A JSON object written with single quotes.
QJsonObject json(QByteArray text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.replace('\'', '"'), &error);
    if (!document.isObject())
        qFatal("%s: %s", text.constData(), qPrintable(error.errorString()));
    return document.object();
}

/// A page of 100 by 60 pixels.
QJsonObject pageWith(const QByteArray &objects, const QByteArray &more = QByteArray())
{
    return json("{'format':'vxpage','version':1,'page':{'width':100,'height':60},'objects':["
                + objects + "]" + more + "}");
}

/// A text in the font of squares.
QByteArray text(const QByteArray &fields)
{
    return "{'kind':'rich_text'," + fields
           + ",'attributes':{'font_family':'BoxTest','font_pointsize':12,'glow':7}}";
}

QByteArray pngOf(const QColor &color)
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data().toBase64();
}

/// What the page shows.
QByteArray look(const OpenPage &open)
{
    PageRenderer::Options options;
    options.page = open.size();
    options.background = open.background();
    PageRenderer renderer(open.page(), options);
    return renderer.render(PageRenderer::Format::Png);
}

/// The page file \a bytes in the form \a form.
QByteArray converted(const QByteArray &bytes, PageForm form)
{
    PageFile file;
    QByteArray result;
    QString error;
    if (!readPage(bytes, file, error) || !pageBytes(file, form, result, error))
        qWarning("%s", qPrintable(error));
    return result;
}

QString textOf(CVXRootObject *object)
{
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    return attributes.value(QStringLiteral("text")).toString();
}

QJsonArray objectsOf(const QJsonObject &root)
{
    return root.value(QLatin1String("objects")).toArray();
}

QStringList namesOf(const QJsonObject &root)
{
    QStringList names;
    for (const QJsonValue &object : objectsOf(root))
        names.append(object.toObject().value(QLatin1String("name")).toString());
    return names;
}

// The older layout shows nothing of a block without any attribute.
const QByteArray documentData(
    "{\\\"block\\\":[{\\\"textalignment\\\":1}],\\\"fragment\\\":[[{\\\"content\\\":\\\"aa\\\","
    "\\\"font_family\\\":\\\"BoxTest\\\",\\\"font_pointsize\\\":12,"
    "\\\"pen_color\\\":\\\"#000000\\\"}]]}");

/// Records of the three generations.
QJsonObject recordOf(const QByteArray &generation)
{
    const QByteArray common("'version':1,'x':20,'y':10,'rotation':0,'z':0,'width':30,'height':20,"
                            "'locked':false,'created':true,'flip':false,'mirror':false,");
    const QByteArray tail = generation == "oldest" ? "'TextContent':'<p><b>old</b> words</p>'"
                                                   : "'TextContent':''";
    QByteArray params("'TextOrientation':1,'odd':[1,{'a':2.5}]");
    if (generation != "oldest")
        params += ",'document_dpi':96,'document_data':'" + documentData + "'";
    if (generation == "current")
        params += ",'new_version':true,'transform_xx':1,'transform_yy':1,'transform_xy':0,"
                  "'transform_yx':0,'transform_tx':20,'transform_ty':10";
    return json("{" + common + "'params':{" + params + "},'TextDPI':96," + tail + "}");
}

/// A record of an art text in the font of squares; \a more stands behind.
QByteArray artRecord(const QByteArray &more = QByteArray())
{
    return "{'version':1,'x':20,'y':10,'rotation':0,'z':0,'width':60,'height':40,'locked':false,"
           "'created':true,'flip':false,'mirror':false,"
           "'params':{'text_alignment':4,'font_Somehow':false,'odd':[1,{'a':2.5}]},"
           "'colorBg':'#ffffffff','colorFill':'#80ff0102','bgType':0,'textWord':'ab',"
           "'bgTransparent':true,'timerDelay':1000,'shape':1,'defaultWord':'',"
           "'colorPen':'#ff000000','fontFamily':'BoxTest','fontSize':192,'fontItalic':false,"
           "'fontBold':false,'letterSpacing':0,'rowSpacing':0,'isShadow':false,"
           "'colorShadow':'#ff000000','offsetX':0,'offsetY':0"
           + more + "}";
}

/// An art text of a page file.
QByteArray art(const QByteArray &fields = QByteArray(),
               const QByteArray &moreOfRecord = QByteArray())
{
    return "{'kind':'art_text'," + fields + "'record':" + artRecord(moreOfRecord) + "}";
}

/// Opens the edit of the art text \a object, which lies on \a page.
void clickTwice(Page *page, CVXRootObject *object)
{
    page->scene()->clearSelection();
    object->doSelected(true, /*notify=*/false);
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseDoubleClick);
    event.setButton(Qt::LeftButton);
    page->scene()->sendEvent(object->GetGraphicsItemPtr(), &event);
}

} // namespace

class TestOpenPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void newPageIsEmpty();
    void impossiblePageIsRefused();
    void untouchedPageIsSavedAsItWas_data();
    void untouchedPageIsSavedAsItWas();
    void caretAloneChangesNothing();
    void movedObjectComesBackAtItsPlace_data();
    void movedObjectComesBackAtItsPlace();
    void changedTextComesBack_data();
    void changedTextComesBack();
    void openEditIsSaved();
    void changedObjectKeepsWhatIsUnknown();
    void unknownKindsKeepTheirPlaces();
    void objectThatCameBackKeepsItsName();
    void newObjectIsSaved();
    void unfinishedObjectIsLeftOut();
    void objectOfAnotherKindIsNotLost();
    void newObjectsLieAboveThoseOfTheFile();
    void imagesStandInTheFile();
    void unreadableFileIsNamed_data();
    void unreadableFileIsNamed();
    void failedSaveLeavesTheFile();
    void generationsAreAFixedPoint_data();
    void generationsAreAFixedPoint();
    void streamRecordIsThatOfTheObject_data();
    void streamRecordIsThatOfTheObject();
    void untouchedArtTextIsSavedAsItWas();
    void movedArtTextComesBackAtItsPlace_data();
    void movedArtTextComesBackAtItsPlace();
    void changedArtTextComesBack_data();
    void changedArtTextComesBack();
    void openEditOfArtTextIsSaved();
    void changedArtTextKeepsWhatIsUnknown();
    void newArtTextIsSaved_data();
    void newArtTextIsSaved();
    void richAndArtTextsKeepTheirPlaces();
    void unfinishedArtTextIsLeftOut();
    void artTextWithoutRecordIsNamed();
    void streamRecordIsThatOfTheArtText();
    void artRecordWithoutAnyKeyOpensOrIsNamed();
    void artRecordWithWrongKeysOpensOrIsNamed();
    void anyByteOfAnArtPageMayBeWrong();
    void recordWithoutAnyKeyOpensOrIsNamed_data();
    void recordWithoutAnyKeyOpensOrIsNamed();
    void recordWithWrongKeysOpensOrIsNamed_data();
    void recordWithWrongKeysOpensOrIsNamed();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    QString write(const char *name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", name);
        return file.fileName();
    }
    QString write(const char *name, const QJsonObject &root) const
    {
        return write(name, QJsonDocument(root).toJson());
    }
    QByteArray read(const char *name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<OpenPage> load(const QString &name)
    {
        QString error;
        std::unique_ptr<OpenPage> open = OpenPage::load(m_loader, name, error);
        if (!open)
            qWarning("%s", qPrintable(error));
        return open;
    }
    std::unique_ptr<OpenPage> load(const QJsonObject &root) { return load(write("in.json", root)); }

    /// Saves \a open under \a name and opens that.
    std::unique_ptr<OpenPage> reopened(OpenPage &open, const char *name)
    {
        QString error;
        if (!open.save(path(name), error))
            qWarning("%s", qPrintable(error));
        return load(path(name));
    }

    static QJsonObject saved(OpenPage &open)
    {
        PageFile file;
        QString error;
        if (!open.toFile(file, error))
            qWarning("%s", qPrintable(error));
        return file.toJson();
    }

    void checkRecord(const QJsonObject &record);
    void checkArtRecord(const QJsonObject &record);

    Framework m_framework;
    PluginLoader m_loader;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestOpenPage::initTestCase()
{
    QCOMPARE(loadBoxTestFont(), QStringLiteral("BoxTest"));
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
    m_framework.setDefaultFont(QStringLiteral("BoxTest"), 12);
}

void TestOpenPage::newPageIsEmpty()
{
    QString error;
    const auto open = OpenPage::create(QSize(30, 20), 72, QColor(1, 2, 3, 4), error);
    QVERIFY2(open, qPrintable(error));
    QCOMPARE(open->size(), QSize(30, 20));
    QCOMPARE(open->background(), QColor(1, 2, 3, 4));
    QCOMPARE(open->document()->getDpi(), 72);
    QVERIFY(open->page()->objects().isEmpty());
    const auto again = reopened(*open, "new.vxpage");
    QVERIFY(again);
    QCOMPARE(again->background(), QColor(1, 2, 3, 4));
    QCOMPARE(saved(*again), saved(*open));
}

void TestOpenPage::impossiblePageIsRefused()
{
    QString error;
    QVERIFY(!OpenPage::create(QSize(0, 20), 72, Qt::white, error));
    QVERIFY2(error.contains(QLatin1String("page.width")), qPrintable(error));
    QVERIFY(!OpenPage::create(QSize(1, 20), 0, Qt::white, error));
    QVERIFY2(error.contains(QLatin1String("page.dpi")), qPrintable(error));
}

void TestOpenPage::untouchedPageIsSavedAsItWas_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"page.json", "missing-font.json"})
        QTest::newRow(name) << QStringLiteral(VX_SOURCE_DIR "/samples/") + QLatin1String(name);
}

void TestOpenPage::untouchedPageIsSavedAsItWas()
{
    QFETCH(QString, name);
    PageFile file;
    QString error;
    QVERIFY2(readPageFile(name, file, error), qPrintable(error));
    const auto open = load(name);
    QVERIFY(open);
    QCOMPARE(saved(*open), file.toJson());
    const auto again = reopened(*open, "again.vxpage");
    QVERIFY(again);
    QCOMPARE(saved(*again), file.toJson());
    QCOMPARE(look(*again), look(*open));
}

void TestOpenPage::caretAloneChangesNothing()
{
    const QJsonObject root = pageWith(text("'text':'abc','x':5"));
    const auto open = load(root);
    QVERIFY(open);
    CVXRootObject *object = open->page()->objects().constFirst();
    TextObject::beginEdit(object);
    TextObject::endEdit(object);
    QCOMPARE(saved(*open), root);
}

void TestOpenPage::movedObjectComesBackAtItsPlace_data()
{
    QTest::addColumn<QByteArray>("fields");
    QTest::addColumn<QString>("file");
    const std::pair<const char *, QByteArray> texts[] = {
        {"line", "'text':'abc','x':5,'y':6"},
        {"stretched", "'text':'abc','x':5,'y':6,'width':60,'height':40"},
        {"turned", "'text':'abc','x':15,'y':6,'rotation':30"},
        {"box", "'text':'abc def','layout':'box','x':5,'y':6,'width':40,'height':40"},
        {"column", "'text':'abc','direction':'vertical','x':5,'y':6"},
        {"mirrored", "'text':'abc','x':5,'y':6,'mirror':true"},
    };
    for (const auto &entry : texts) {
        for (const char *file : {"moved.json", "moved.vxpage"})
            QTest::addRow("%s, %s", entry.first, file) << entry.second << QString::fromLatin1(file);
    }
}

void TestOpenPage::movedObjectComesBackAtItsPlace()
{
    QFETCH(QByteArray, fields);
    QFETCH(QString, file);
    const auto open = load(pageWith(text(fields)));
    QVERIFY(open);
    CVXRootObject *object = open->page()->objects().constFirst();
    const QByteArray before = look(*open);
    object->setPos(object->getPos() + QPointF(20, 10), /*undo=*/false);
    QVERIFY(look(*open) != before);
    const auto again = reopened(*open, qPrintable(file));
    QVERIFY(again);
    QCOMPARE(again->page()->objects().size(), 1);
    QCOMPARE(again->page()->objects().constFirst()->getPos(), object->getPos());
    QCOMPARE(look(*again), look(*open));
    const QByteArray bytes = read(qPrintable(file));
    const bool isJson = file.endsWith(QLatin1String("json"));
    QCOMPARE(converted(converted(bytes, isJson ? PageForm::Binary : PageForm::Json),
                       isJson ? PageForm::Json : PageForm::Binary),
             bytes);
    const auto third = reopened(*again, "third.vxpage");
    QVERIFY(third);
    QCOMPARE(saved(*third), saved(*again));
}

void TestOpenPage::changedTextComesBack_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("JSON") << QStringLiteral("changed.json");
    QTest::newRow("binary") << QStringLiteral("changed.vxpage");
}

void TestOpenPage::changedTextComesBack()
{
    QFETCH(QString, file);
    const auto open = load(pageWith(text("'text':'abc'") + "," + text("'text':'left','y':30")));
    QVERIFY(open);
    TextObject::setAttributes(open->page()->objects().constFirst(),
                              {{QStringLiteral("text"), QStringLiteral("xyz \u4e2d")}});
    const QJsonArray objects = objectsOf(saved(*open));
    QVERIFY(objects.at(0).toObject().contains(QLatin1String("record")));
    QCOMPARE(objects.at(1).toObject().value(QLatin1String("text")).toString(),
             QStringLiteral("left"));
    const auto again = reopened(*open, qPrintable(file));
    QVERIFY(again);
    QCOMPARE(textOf(again->page()->objects().constFirst()), QStringLiteral("xyz \u4e2d"));
    QCOMPARE(look(*again), look(*open));
}

void TestOpenPage::openEditIsSaved()
{
    const auto open = load(pageWith(text("'text':'abc'")));
    QVERIFY(open);
    CVXRootObject *object = open->page()->objects().constFirst();
    open->page()->takeFocus();
    TextObject::beginEdit(object);
    QCOMPARE(open->page()->editingObject(), object);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QCoreApplication::sendEvent(open->page()->scene(), &key);
    const auto again = reopened(*open, "edit.json");
    QVERIFY(again);
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    QVERIFY(!attributes.value(QStringLiteral("text_editflag")).toBool());
    QCOMPARE(textOf(object).size(), 4);
    QCOMPARE(textOf(again->page()->objects().constFirst()), textOf(object));
}

void TestOpenPage::changedObjectKeepsWhatIsUnknown()
{
    const auto open = load(
        pageWith(text("'name':'n','text':'abc','x':5,'later':[1]"), ",'author':'A'"));
    QVERIFY(open);
    open->page()->objects().constFirst()->setPos(QPointF(30, 20), /*undo=*/false);
    QCOMPARE(open->nameOf(open->page()->objects().constFirst()), QStringLiteral("n"));
    QCOMPARE(open->nameOf(nullptr), QString());
    const QJsonObject root = saved(*open);
    QCOMPARE(root.value(QLatin1String("author")).toString(), QStringLiteral("A"));
    const QJsonObject object = objectsOf(root).at(0).toObject();
    QCOMPARE(object.keys(), QStringList({QStringLiteral("attributes"), QStringLiteral("kind"),
                                         QStringLiteral("later"), QStringLiteral("name"),
                                         QStringLiteral("record")}));
    QCOMPARE(object.value(QLatin1String("attributes")).toObject(), json("{'glow':7}"));
    // A second change finds the same keys, and those of the record beside them.
    QJsonObject record = object.value(QLatin1String("record")).toObject();
    record.insert(QStringLiteral("newer key"), 3);
    QJsonObject changed = object;
    changed.insert(QStringLiteral("record"), record);
    QJsonObject next = root;
    next.insert(QStringLiteral("objects"), QJsonArray({QJsonValue(changed)}));
    const auto again = load(next);
    QVERIFY(again);
    again->page()->objects().constFirst()->setPos(QPointF(1, 2), /*undo=*/false);
    const QJsonObject last = objectsOf(saved(*again)).at(0).toObject();
    QCOMPARE(last.keys(), object.keys());
    QCOMPARE(last.value(QLatin1String("record")).toObject().value(QLatin1String("newer key")),
             QJsonValue(3));
    QCOMPARE(last.value(QLatin1String("record")).toObject().value(QLatin1String("x")),
             QJsonValue(1));
}

void TestOpenPage::unknownKindsKeepTheirPlaces()
{
    const auto open = load(pageWith("{'kind':'shape','name':'0'}," + text("'text':'a','name':'1'")
                                    + ",{'kind':'shape','name':'2'},"
                                    + text("'text':'b','name':'3'")
                                    + ",{'kind':'shape','name':'4'}"));
    QVERIFY(open);
    QCOMPARE(open->warnings().size(), 3);
    Page *page = open->page();
    const auto names = [&] { return namesOf(saved(*open)).join(QString()); };
    QCOMPARE(names(), QStringLiteral("01234"));
    page->insertObject(0, page->objects().constLast()); // is there: nothing
    CVXRootObject *lowest = page->objects().constFirst();
    QCOMPARE(page->takeObject(lowest), 0);
    QCOMPARE(names(), QStringLiteral("0234"));
    page->addObject(lowest);
    QCOMPARE(names(), QStringLiteral("03412"));
    page->removeObject(lowest);
    page->removeObject(page->objects().constFirst());
    QCOMPARE(names(), QStringLiteral("024"));
}

void TestOpenPage::objectThatCameBackKeepsItsName()
{
    const QJsonObject root = pageWith(text("'text':'a','name':'a'"));
    const auto open = load(root);
    QVERIFY(open);
    CVXRootObject *object = open->page()->objects().constFirst();
    open->page()->takeObject(object);
    QVERIFY(objectsOf(saved(*open)).isEmpty());
    open->page()->insertObject(0, object);
    QCOMPARE(saved(*open), root);
}

void TestOpenPage::newObjectIsSaved()
{
    QString error;
    const auto open = OpenPage::create(QSize(100, 60), 96, Qt::white, error);
    QVERIFY(open);
    CVXRootObject *object = m_loader.createText(1, open->page());
    open->page()->addObject(object);
    TextObject::setAttributes(object, {{QStringLiteral("text"), QStringLiteral("new")}});
    object->setPos(QPointF(10, 20), /*undo=*/false);
    const QJsonObject root = saved(*open);
    QCOMPARE(objectsOf(root).at(0).toObject().keys(),
             QStringList({QStringLiteral("kind"), QStringLiteral("record")}));
    const auto again = reopened(*open, "new.vxpage");
    QVERIFY(again);
    QCOMPARE(textOf(again->page()->objects().constFirst()), QStringLiteral("new"));
    QCOMPARE(look(*again), look(*open));
}

void TestOpenPage::unfinishedObjectIsLeftOut()
{
    const auto open = load(pageWith(text("'text':'a'")));
    QVERIFY(open);
    open->page()->addObject(m_loader.createText(9, open->page(), /*finished=*/false));
    QCOMPARE(objectsOf(saved(*open)).size(), 1);
}

void TestOpenPage::objectOfAnotherKindIsNotLost()
{
    const auto open = load(pageWith(text("'text':'a'")));
    QVERIFY(open);
    open->page()->addObject(new CBaseObject(5, /*finished=*/true, nullptr, open->page()));
    QString error;
    write("there.json", QByteArray("as it was"));
    QVERIFY(!open->save(path("there.json"), error));
    QVERIFY2(error.contains(QLatin1String("no objects of the kind 'object'")), qPrintable(error));
    QCOMPARE(read("there.json"), QByteArray("as it was"));
}

void TestOpenPage::newObjectsLieAboveThoseOfTheFile()
{
    const auto open = load(pageWith("{'kind':'shape'},{'kind':'shape'}," + text("'text':'a'")));
    QVERIFY(open);
    CVXRootObject *object = m_loader.createText(9, open->page());
    open->page()->addObject(object);
    QVERIFY(object->getZorder() > open->page()->objects().constFirst()->getZorder());
}

void TestOpenPage::imagesStandInTheFile()
{
    const QByteArray red = pngOf(Qt::red);
    const QByteArray blue = pngOf(Qt::blue);
    const auto open = load(
        pageWith(text("'text':'abc','picture':{'image':'used.png','later':1}"),
                 ",'images':{'used.png':'" + red + "','for others.png':'" + blue + "'}"));
    QVERIFY(open);
    open->page()->objects().constFirst()->setPos(QPointF(30, 20), /*undo=*/false);
    const QJsonObject root = saved(*open);
    const QJsonObject object = objectsOf(root).at(0).toObject();
    const QString name = pictureOfRecord(object.value(QLatin1String("record")).toObject());
    QVERIFY(!name.isEmpty());
    const QJsonObject images = root.value(QLatin1String("images")).toObject();
    QCOMPARE(images.size(), 2);
    QVERIFY(images.contains(name));
    QCOMPARE(images.value(QLatin1String("for others.png")).toString().toLatin1(), blue);
    const QByteArray png = QByteArray::fromBase64(images.value(name).toString().toLatin1());
    QVERIFY(!QImage::fromData(png, "PNG").isNull());
    QCOMPARE(object.value(QLatin1String("picture")).toObject(), json("{'later':1}"));
    const auto again = reopened(*open, "images.vxpage");
    QVERIFY(again);
    QCOMPARE(again->document()->imageData(name), png);
}

void TestOpenPage::unreadableFileIsNamed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("part");
    QTest::newRow("no JSON") << QByteArray("{\n \"format\": x}")
                             << QStringLiteral("at byte 13 (line 2, column 12)");
    QTest::newRow("no UTF-8") << QByteArray("{\"a\xff\"}") << QStringLiteral("bad byte 3");
    QTest::newRow("wrong field") << QJsonDocument(pageWith(text("'text':'a','x':true"))).toJson()
                                 << QStringLiteral("objects[0].x: must be a number");
    QTest::newRow("no record")
        << QJsonDocument(pageWith("{'kind':'rich_text','record':{}}")).toJson()
        << QStringLiteral("objects[0].record.version: is missing");
    QTest::newRow("no picture") << QJsonDocument(pageWith("", ",'images':{'a':'AAAA'}")).toJson()
                                << QStringLiteral("images.a: is no PNG");
    QTest::newRow("binary") << QByteArray("\x89VXPAGE\r\n\n\0\0\0\x07", 14)
                            << QStringLiteral("at byte 10: version 7 is newer");
}

void TestOpenPage::unreadableFileIsNamed()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, part);
    const QString name = write("bad.json", content);
    QString error;
    QVERIFY(!OpenPage::load(m_loader, name, error));
    QVERIFY2(error.contains(part), qPrintable(error));
    QVERIFY2(error.contains(name), qPrintable(error));
    QCOMPARE(read("bad.json"), content);
}

void TestOpenPage::failedSaveLeavesTheFile()
{
    const QJsonObject root = pageWith(text("'text':'a'"));
    const auto open = load(root);
    QVERIFY(open);
    write("page.txt", QByteArray("as it was"));
    QString error;
    QVERIFY(!open->save(path("page.txt"), error));
    QVERIFY2(error.contains(QLatin1String("page.txt")), qPrintable(error));
    QCOMPARE(read("page.txt"), QByteArray("as it was"));
    QCOMPARE(saved(*open), root);
}

void TestOpenPage::generationsAreAFixedPoint_data()
{
    QTest::addColumn<QByteArray>("generation");
    QTest::addColumn<QString>("content");
    QTest::newRow("oldest") << QByteArray("oldest") << QStringLiteral("old words");
    QTest::newRow("middle") << QByteArray("middle") << QStringLiteral("aa");
    QTest::newRow("current") << QByteArray("current") << QStringLiteral("aa");
}

void TestOpenPage::generationsAreAFixedPoint()
{
    QFETCH(QByteArray, generation);
    QFETCH(QString, content);
    const QByteArray record = QJsonDocument(recordOf(generation)).toJson(QJsonDocument::Compact);
    const QJsonObject root = pageWith("{'kind':'rich_text','record':" + record + "}");
    const auto open = load(root);
    QVERIFY(open);
    QCOMPARE(textOf(open->page()->objects().constFirst()), content);
    QCOMPARE(saved(*open), root); // not touched
    // Moved there and back it has all that this generation of program writes.
    open->page()->objects().constFirst()->setPos(QPointF(7, 8), /*undo=*/false);
    const QByteArray asJson = QJsonDocument(saved(*open)).toJson();
    auto first = reopened(*open, "first.vxpage");
    QVERIFY(first);
    QCOMPARE(textOf(first->page()->objects().constFirst()), content);
    QCOMPARE(look(*first), look(*open));
    QCOMPARE(QJsonDocument(saved(*first)).toJson(), asJson);
    const auto second = reopened(*first, "second.json");
    QVERIFY(second);
    QCOMPARE(read("second.json"), asJson);
    const QJsonObject last =
        objectsOf(saved(*second)).at(0).toObject().value(QLatin1String("record")).toObject();
    QCOMPARE(last.value(QLatin1String("params")).toObject().value(QLatin1String("odd")),
             recordOf(generation)
                 .value(QLatin1String("params"))
                 .toObject()
                 .value(QLatin1String("odd")));
}

void TestOpenPage::streamRecordIsThatOfTheObject_data()
{
    generationsAreAFixedPoint_data();
}

void TestOpenPage::streamRecordIsThatOfTheObject()
{
    QFETCH(QByteArray, generation);
    QFETCH(QString, content);
    Document document;
    Page page(&document);
    CVXRootObject *object = m_loader.createText(1, &page);
    page.addObject(object);
    QJsonObject source = recordOf(generation);
    QVERIFY(object->loadJson(source));
    QJsonObject asJson;
    QVERIFY(object->saveJson(asJson));
    QByteArray asStream;
    QDataStream out(&asStream, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    QVERIFY(object->save(out));
    QJsonObject converted;
    QString error;
    QVERIFY2(jsonRecord(asStream, converted, error), qPrintable(error));
    converted.insert(QStringLiteral("TextDPI"), asJson.value(QLatin1String("TextDPI")));
    QCOMPARE(QJsonDocument(converted).toJson(), QJsonDocument(asJson).toJson());

    const StreamRecord parts = streamRecord(asJson);
    QVERIFY(!parts.bytes.isEmpty());
    CVXRootObject *other = m_loader.createText(2, &page);
    page.addObject(other);
    QDataStream in(parts.bytes);
    in.setVersion(QDataStream::Qt_5_15);
    QVERIFY(other->load(in));
    QVERIFY(in.atEnd());
    QCOMPARE(textOf(other), content);
    CVXRootObject *third = m_loader.createText(3, &page);
    page.addObject(third);
    QVERIFY(third->loadJson(asJson));
    QCOMPARE(recordState(other), recordState(third));
    // What was written once comes back as it is.
    QJsonObject normal;
    QVERIFY(third->saveJson(normal));
    QVERIFY(object->loadJson(normal));
    QCOMPARE(recordState(object), recordState(third));
}

// Art texts

void TestOpenPage::untouchedArtTextIsSavedAsItWas()
{
    const QJsonObject root = pageWith(text("'text':'abc'") + "," + art("'name':'a','later':1,"));
    const auto open = load(root);
    QVERIFY(open);
    QVERIFY(open->warnings().isEmpty());
    QCOMPARE(open->page()->objects().at(1)->getObjName(), QStringLiteral("art text"));
    QCOMPARE(textOf(open->page()->objects().at(1)), QStringLiteral("ab"));
    QCOMPARE(saved(*open), root);
    const auto again = reopened(*open, "again.vxpage");
    QVERIFY(again);
    QCOMPARE(saved(*again), root);
    QCOMPARE(look(*again), look(*open));
}

void TestOpenPage::movedArtTextComesBackAtItsPlace_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("JSON") << QStringLiteral("moved.json");
    QTest::newRow("binary") << QStringLiteral("moved.vxpage");
}

void TestOpenPage::movedArtTextComesBackAtItsPlace()
{
    QFETCH(QString, file);
    const auto open = load(pageWith(text("'text':'abc'") + "," + art()));
    QVERIFY(open);
    CVXRootObject *object = open->page()->objects().at(1);
    const QByteArray before = look(*open);
    object->setPos(QPointF(5.5, 3.25), /*undo=*/false);
    object->setSize(QSizeF(80, 50), /*undo=*/false, /*notify=*/true);
    object->rotateObj(30, /*undo=*/false);
    QVERIFY(look(*open) != before);
    const auto again = reopened(*open, qPrintable(file));
    QVERIFY(again);
    QCOMPARE(again->page()->objects().size(), 2);
    QCOMPARE(again->page()->objects().at(1)->getPos(), object->getPos());
    QCOMPARE(again->page()->objects().at(1)->getSize(), QSizeF(80, 50));
    QCOMPARE(again->page()->objects().at(1)->getRotate(), 30.0);
    QCOMPARE(look(*again), look(*open));
    // Saved again it is the same file, in either form.
    const QByteArray bytes = read(qPrintable(file));
    const auto third = reopened(*again, qPrintable(QStringLiteral("again-") + file));
    QVERIFY(third);
    QCOMPARE(read(qPrintable(QStringLiteral("again-") + file)), bytes);
    const bool isJson = file.endsWith(QLatin1String("json"));
    QCOMPARE(converted(converted(bytes, isJson ? PageForm::Binary : PageForm::Json),
                       isJson ? PageForm::Json : PageForm::Binary),
             bytes);
}

void TestOpenPage::changedArtTextComesBack_data()
{
    movedArtTextComesBackAtItsPlace_data();
}

void TestOpenPage::changedArtTextComesBack()
{
    QFETCH(QString, file);
    const auto open = load(pageWith(art() + "," + art()));
    QVERIFY(open);
    CVXRootObject *object = open->page()->objects().constFirst();
    QVERIFY(object->setAllAttributes({{QStringLiteral("text"), QStringLiteral("x\ny \u4e2d")},
                                      {QStringLiteral("shape"), 5},
                                      {QStringLiteral("font_bold"), true},
                                      {QStringLiteral("font_somehow"), true},
                                      {QStringLiteral("fillcolor"), QColor(1, 2, 3)}},
                                     /*withUndo=*/false));
    const auto again = reopened(*open, qPrintable(file));
    QVERIFY(again);
    AttributeMap attributes;
    again->page()->objects().constFirst()->getAllAttributes(attributes);
    QCOMPARE(attributes.value(QStringLiteral("text")).toString(), QStringLiteral("x\ny \u4e2d"));
    QCOMPARE(attributes.value(QStringLiteral("shape")).toInt(), 5);
    QCOMPARE(attributes.value(QStringLiteral("font_bold")).toBool(), true);
    QCOMPARE(attributes.value(QStringLiteral("font_somehow")).toBool(), true);
    QCOMPARE(attributes.value(QStringLiteral("fillcolor")).value<QColor>(), QColor(1, 2, 3));
    QCOMPARE(textOf(again->page()->objects().at(1)), QStringLiteral("ab"));
    QCOMPARE(look(*again), look(*open));
}

void TestOpenPage::openEditOfArtTextIsSaved()
{
    const auto open = load(pageWith(art()));
    QVERIFY(open);
    CVXRootObject *object = open->page()->objects().constFirst();
    open->page()->takeFocus();
    clickTwice(open->page(), object);
    QCOMPARE(open->page()->editingObject(), object);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QCoreApplication::sendEvent(open->page()->scene(), &key);
    QCOMPARE(textOf(object), QStringLiteral("ab")); // taken over at the end of the edit
    const auto again = reopened(*open, "edit.vxpage");
    QVERIFY(again);
    QCOMPARE(textOf(object).size(), 3);
    QCOMPARE(textOf(again->page()->objects().constFirst()), textOf(object));
    QCOMPARE(open->document()->undoStack()->count(), 1);
}

void TestOpenPage::changedArtTextKeepsWhatIsUnknown()
{
    const auto open = load(pageWith(art("'name':'n','later':[1],", ",'newer key':3")));
    QVERIFY(open);
    open->page()->objects().constFirst()->setPos(QPointF(30, 20), /*undo=*/false);
    const QJsonObject object = objectsOf(saved(*open)).at(0).toObject();
    QCOMPARE(object.keys(), QStringList({QStringLiteral("kind"), QStringLiteral("later"),
                                         QStringLiteral("name"), QStringLiteral("record")}));
    QJsonObject expected = json(artRecord(",'newer key':3"));
    expected.insert(QStringLiteral("x"), 30);
    expected.insert(QStringLiteral("y"), 20);
    QCOMPARE(object.value(QLatin1String("record")).toObject(), expected);
}

void TestOpenPage::newArtTextIsSaved_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("JSON") << QStringLiteral("new.json");
    QTest::newRow("binary") << QStringLiteral("new.vxpage");
}

void TestOpenPage::newArtTextIsSaved()
{
    QFETCH(QString, file);
    QString error;
    const auto open = OpenPage::create(QSize(100, 60), 96, Qt::white, error);
    QVERIFY(open);
    const QByteArray empty = look(*open);
    CVXRootObject *object = m_loader.createArtText(1, open->page());
    open->page()->addObject(object);
    object->setSize(QSizeF(80, 40), /*undo=*/false, /*notify=*/true);
    object->setPos(QPointF(10, 12), /*undo=*/false);
    object->setAllAttributes({{QStringLiteral("text"), QStringLiteral("new")},
                              {QStringLiteral("font_family"), QStringLiteral("BoxTest")}},
                             /*withUndo=*/false);
    QVERIFY(look(*open) != empty);
    const QJsonObject written = objectsOf(saved(*open)).at(0).toObject();
    QCOMPARE(written.value(QLatin1String("kind")).toString(), QStringLiteral("art_text"));
    QCOMPARE(written.keys(), QStringList({QStringLiteral("kind"), QStringLiteral("record")}));
    const auto again = reopened(*open, qPrintable(file));
    QVERIFY(again);
    QCOMPARE(textOf(again->page()->objects().constFirst()), QStringLiteral("new"));
    QCOMPARE(again->page()->objects().constFirst()->getPos(), QPointF(10, 12));
    QCOMPARE(look(*again), look(*open));
    const QByteArray bytes = read(qPrintable(file));
    const auto third = reopened(*again, qPrintable(file));
    QVERIFY(third);
    QCOMPARE(read(qPrintable(file)), bytes);
}

void TestOpenPage::richAndArtTextsKeepTheirPlaces()
{
    const auto open = load(pageWith(art("'name':'0',") + "," + text("'text':'a','name':'1'") + ","
                                    + "{'kind':'shape','name':'2'}," + art("'name':'3',") + ","
                                    + text("'text':'b','name':'4'")));
    QVERIFY(open);
    Page *page = open->page();
    const auto names = [&] { return namesOf(saved(*open)).join(QString()); };
    QCOMPARE(names(), QStringLiteral("01234"));
    CVXRootObject *lowest = page->objects().constFirst();
    page->takeObject(lowest);
    QCOMPARE(names(), QStringLiteral("1234"));
    page->insertObject(2, lowest);
    QCOMPARE(names(), QStringLiteral("12304"));
    const auto again = reopened(*open, "places.vxpage");
    QVERIFY(again);
    QCOMPARE(namesOf(saved(*again)).join(QString()), QStringLiteral("12304"));
    QCOMPARE(again->page()->objects().at(2)->getObjName(), QStringLiteral("art text"));
    QCOMPARE(again->page()->objects().at(3)->getObjName(), QStringLiteral("wb text"));
}

void TestOpenPage::unfinishedArtTextIsLeftOut()
{
    const auto open = load(pageWith(art()));
    QVERIFY(open);
    open->page()->addObject(m_loader.createArtText(9, open->page(), /*finished=*/false));
    QCOMPARE(objectsOf(saved(*open)).size(), 1);
}

void TestOpenPage::artTextWithoutRecordIsNamed()
{
    const QPair<QByteArray, QString> rows[] = {
        {"{'kind':'art_text','text':'abc'}", QStringLiteral("objects[0].record: is missing")},
        {"{'kind':'art_text','record':5}", QStringLiteral("objects[0].record: must be an object")},
        {"{'kind':'art_text','record':{}}",
         QStringLiteral("objects[0].record.version: is missing")},
    };
    for (const auto &row : rows) {
        QString error;
        QVERIFY(!OpenPage::load(m_loader, write("any.json", pageWith(row.first)), error));
        QVERIFY2(error.contains(row.second), qPrintable(error));
    }
}

void TestOpenPage::streamRecordIsThatOfTheArtText()
{
    Document document;
    Page page(&document);
    CVXRootObject *object = m_loader.createArtText(1, &page);
    page.addObject(object);
    QJsonObject source = json(artRecord());
    QVERIFY(object->loadJson(source));
    QJsonObject asJson;
    QVERIFY(object->saveJson(asJson));
    QCOMPARE(asJson, source);
    QByteArray asStream;
    QDataStream out(&asStream, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    QVERIFY(object->save(out));
    QJsonObject converted;
    QString error;
    QVERIFY2(jsonRecord(asStream, converted, error, RecordKind::ArtText), qPrintable(error));
    QCOMPARE(QJsonDocument(converted).toJson(), QJsonDocument(asJson).toJson());

    const StreamRecord parts = streamRecord(asJson, RecordKind::ArtText);
    QCOMPARE(parts.bytes, asStream);
    QVERIFY(parts.rest.isEmpty());
    CVXRootObject *other = m_loader.createArtText(2, &page);
    page.addObject(other);
    QDataStream in(parts.bytes);
    in.setVersion(QDataStream::Qt_5_15);
    QVERIFY(other->load(in));
    QVERIFY(in.atEnd());
    QCOMPARE(recordState(other), recordState(object));
    QVERIFY(!recordState(other).isEmpty());
}

/// As checkRecord(), of an art text.
void TestOpenPage::checkArtRecord(const QJsonObject &record)
{
    const QByteArray bytes = QJsonDocument(record).toJson(QJsonDocument::Compact);
    const QString name = write("any.json", pageWith("{'kind':'art_text','record':" + bytes + "}"));
    QString error;
    const auto open = OpenPage::load(m_loader, name, error);
    if (!open) {
        QVERIFY2(error.contains(QLatin1String("objects[0].record.")), qPrintable(error));
        return;
    }
    QVERIFY(!look(*open).isEmpty());
    CVXRootObject *object = open->page()->objects().constFirst();
    object->setPos(object->getPos() + QPointF(1, 1), /*undo=*/false);
    object->setAllAttributes({{QStringLiteral("text"), QStringLiteral("b")}}, /*withUndo=*/false);
    const auto again = reopened(*open, "any.vxpage");
    QVERIFY(again);
    QCOMPARE(again->page()->objects().size(), 1);
    QCOMPARE(textOf(again->page()->objects().constFirst()), QStringLiteral("b"));
    QCOMPARE(look(*again), look(*open));
}

void TestOpenPage::artRecordWithoutAnyKeyOpensOrIsNamed()
{
    const QJsonObject whole = json(artRecord());
    for (const QString &key : whole.keys()) {
        QJsonObject record = whole;
        record.remove(key);
        checkArtRecord(record);
    }
}

void TestOpenPage::artRecordWithWrongKeysOpensOrIsNamed()
{
    const QJsonObject whole = json(artRecord());
    const QJsonValue values[] = {QJsonValue(),
                                 true,
                                 -1e300,
                                 2147483647.0,
                                 QStringLiteral("?"),
                                 QJsonArray({1}),
                                 QJsonObject({{QStringLiteral("a"), 1}})};
    for (const QJsonValue &value : values) {
        for (const QString &key : whole.keys()) {
            QJsonObject record = whole;
            record.insert(key, value);
            checkArtRecord(record);
        }
    }
}

void TestOpenPage::anyByteOfAnArtPageMayBeWrong()
{
    const QByteArray bytes = converted(QJsonDocument(pageWith(art())).toJson(), PageForm::Binary);
    int opened = 0;
    for (int at = bytes.indexOf("VXOB"); at < bytes.size(); at += 3) {
        QByteArray changed = bytes;
        changed[at] = char(changed[at] ^ '\x11');
        QString error;
        const auto open = OpenPage::load(m_loader, write("any.vxpage", changed), error);
        if (!open) {
            QVERIFY2(error.contains(QLatin1String("byte ")), qPrintable(error));
            continue;
        }
        ++opened;
        QVERIFY(!look(*open).isEmpty());
        const auto again = reopened(*open, "again.vxpage");
        QVERIFY(again);
        QCOMPARE(look(*again), look(*open));
    }
    QVERIFY2(opened > 50, qPrintable(QString::number(opened)));
}

/// A page with \a record is opened, painted, changed, saved and opened again, or it is named.
void TestOpenPage::checkRecord(const QJsonObject &record)
{
    const QByteArray bytes = QJsonDocument(record).toJson(QJsonDocument::Compact);
    const QString name = write("any.json", pageWith("{'kind':'rich_text','record':" + bytes + "}"));
    QString error;
    const auto open = OpenPage::load(m_loader, name, error);
    if (!open) {
        QVERIFY2(error.contains(QLatin1String("objects[0].record.")), qPrintable(error));
        return;
    }
    QVERIFY(!look(*open).isEmpty());
    CVXRootObject *object = open->page()->objects().constFirst();
    object->setPos(object->getPos() + QPointF(1, 1), /*undo=*/false);
    TextObject::setAttributes(object, {{QStringLiteral("text"), QStringLiteral("b")}});
    const auto again = reopened(*open, "any.vxpage");
    QVERIFY(again);
    QCOMPARE(again->page()->objects().size(), 1);
    QCOMPARE(textOf(again->page()->objects().constFirst()), textOf(object));
}

void TestOpenPage::recordWithoutAnyKeyOpensOrIsNamed_data()
{
    generationsAreAFixedPoint_data();
}

void TestOpenPage::recordWithoutAnyKeyOpensOrIsNamed()
{
    QFETCH(QByteArray, generation);
    const QJsonObject whole = recordOf(generation);
    for (const QString &key : whole.keys()) {
        QJsonObject record = whole;
        record.remove(key);
        checkRecord(record);
    }
    const QJsonObject params = whole.value(QLatin1String("params")).toObject();
    for (const QString &key : params.keys()) {
        QJsonObject changed = params;
        changed.remove(key);
        QJsonObject record = whole;
        record.insert(QStringLiteral("params"), changed);
        checkRecord(record);
    }
}

void TestOpenPage::recordWithWrongKeysOpensOrIsNamed_data()
{
    generationsAreAFixedPoint_data();
}

void TestOpenPage::recordWithWrongKeysOpensOrIsNamed()
{
    QFETCH(QByteArray, generation);
    const QJsonObject whole = recordOf(generation);
    const QJsonValue values[] = {QJsonValue(),    true,
                                 -1e300,          QStringLiteral("?"),
                                 QJsonArray({1}), QJsonObject({{QStringLiteral("a"), 1}})};
    const QJsonObject params = whole.value(QLatin1String("params")).toObject();
    for (const QJsonValue &value : values) {
        for (const QString &key : whole.keys()) {
            QJsonObject record = whole;
            record.insert(key, value);
            checkRecord(record);
        }
        for (const QString &key : params.keys()) {
            QJsonObject changed = params;
            changed.insert(key, value);
            QJsonObject record = whole;
            record.insert(QStringLiteral("params"), changed);
            checkRecord(record);
        }
    }
}

QTEST_MAIN(TestOpenPage)
#include "tst_openpage.moc"
