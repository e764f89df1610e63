// SPDX-License-Identifier: MIT
#include "app/page/attributekeys.h"
#include "app/page/jsonfields.h"
#include "app/page/pagefile.h"

#include <QJsonArray>
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

/// A page with these \a objects.
QJsonObject page(const QByteArray &objects, const QByteArray &more = QByteArray())
{
    return json("{'format':'vxpage','version':1,'page':{'width':200,'height':100},'objects':["
                + objects + "]" + more + "}");
}

/// A page with one text and these fields of it.
QJsonObject pageOf(const QByteArray &fields)
{
    return page("{'kind':'rich_text','text':'abc'," + fields + "}");
}

PageFile read(const QJsonObject &root)
{
    PageFile file;
    QString error;
    if (!file.read(root, error))
        qWarning("%s", qPrintable(error));
    return file;
}

const QByteArray png(
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5E"
    "rkJggg==");

} // namespace

class TestPageFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageIsRead();
    void defaultsOfAPage();
    void objectIsRead();
    void defaultsOfAnObject();
    void attributesArePartedAndTyped();
    void alignmentFollowsTheDirection();
    void pictureStandsAtTheObject();
    void recordIsTheOtherForm();
    void unknownKeysAndKindsAreKept();
    void wrongFieldsAreNamed_data();
    void wrongFieldsAreNamed();
    void failureLeavesThePageAsItWas();
    void tooManyCharactersAreRefused();
    void everyFieldOfAnyTypeEnds();
    void pageFilesAreToldByTheirKeys();
    void brokenJsonIsFoundByLine();
    void fileCutShortIsRefused();
    void attributesOfTheCommandLine_data();
    void attributesOfTheCommandLine();
    void colorsOfTheCommandLineAreColors();
};

void TestPageFile::pageIsRead()
{
    const PageFile file = read(json("{'format':'vxpage','version':1,'page':{'width':480,"
                                    "'height':32767,'dpi':9600,'background':'#10203040'}}"));
    QCOMPARE(file.size(), QSize(480, 32767));
    QCOMPARE(file.dpi(), 9600);
    QCOMPARE(file.background(), QColor(0x20, 0x30, 0x40, 0x10));
    QVERIFY(file.objects().isEmpty());
}

void TestPageFile::defaultsOfAPage()
{
    const PageFile file = read(page(QByteArray()));
    QCOMPARE(file.dpi(), 96);
    QCOMPARE(file.background(), QColor(Qt::white));
    QVERIFY(file.images().isEmpty());
}

void TestPageFile::objectIsRead()
{
    const PageFile file = read(pageOf("'name':'n','layout':'growing_box','direction':'vertical',"
                                      "'x':-1.5,'y':2,'width':3,'height':4.5,'rotation':-30,"
                                      "'flip':true,'mirror':true"));
    QCOMPARE(file.objects().size(), 1);
    const PageObject &object = file.objects().at(0);
    QVERIFY(object.form == PageObject::Form::Written);
    QCOMPARE(object.text, QStringLiteral("abc"));
    QCOMPARE(object.name, QStringLiteral("n"));
    QVERIFY(object.layout == PageObject::Layout::GrowingBox);
    QVERIFY(object.vertical);
    QCOMPARE(object.pos, QPointF(-1.5, 2));
    QCOMPARE(object.size, QSizeF(3, 4.5));
    QCOMPARE(object.rotation, -30.0);
    QVERIFY(object.flip);
    QVERIFY(object.mirror);
}

void TestPageFile::defaultsOfAnObject()
{
    const PageFile file = read(page("{'kind':'rich_text','text':''}"));
    QCOMPARE(file.objects().size(), 1);
    const PageObject &object = file.objects().at(0);
    QVERIFY(object.layout == PageObject::Layout::Line);
    QVERIFY(!object.vertical && !object.flip && !object.mirror);
    QCOMPARE(object.pos, QPointF(0, 0));
    QVERIFY(object.size.isEmpty());
    QVERIFY(object.picture.isEmpty());
}

void TestPageFile::attributesArePartedAndTyped()
{
    const PageFile file = read(pageOf("'attributes':{'font_bold':true,'font_pointsize':10.5,"
                                      "'pen_color':'RED','text_ligature':true,"
                                      "'paragraph_left_indent':-3,'unknown':[1],'text':5}"));
    QCOMPARE(file.objects().size(), 1);
    QCOMPARE(file.objects().at(0).runAttributes,
             json("{'font_bold':true,'font_pointsize':10.5,'pen_color':'#ff0000'}"));
    QCOMPARE(file.objects().at(0).paragraphAttributes,
             json("{'text_ligature':true,'paragraph_left_indent':-3}"));
}

void TestPageFile::alignmentFollowsTheDirection()
{
    const auto alignment = [](const QByteArray &fields) {
        const PageFile file = read(pageOf(fields));
        return file.objects().isEmpty()
                   ? QJsonValue()
                   : file.objects().at(0).paragraphAttributes.value(QLatin1String("textalignment"));
    };
    const QByteArray justified("'attributes':{'textalignment':'justify'}");
    QCOMPARE(alignment(justified), QJsonValue(8));
    QCOMPARE(alignment(justified + ",'direction':'vertical'"), QJsonValue(256));
    QCOMPARE(alignment("'attributes':{'textalignment':512}"), QJsonValue(512));
}

void TestPageFile::pictureStandsAtTheObject()
{
    const QByteArray images = ",'images':{'a.png':'" + png + "'}";
    const QByteArray text("{'kind':'rich_text','text':'abc','x':5,'y':6,");
    const PageFile at = read(page(text + "'picture':{'image':'a.png'}}", images));
    QCOMPARE(at.objects().size(), 1);
    QCOMPARE(at.objects().at(0).picture, QStringLiteral("a.png"));
    QCOMPARE(at.objects().at(0).picturePos, QPointF(5, 6));
    QVERIFY(at.images().value(QStringLiteral("a.png")).startsWith("\x89PNG"));
    const PageFile away = read(page(text + "'picture':{'image':'a.png','x':1,'y':2}}", images));
    QCOMPARE(away.objects().size(), 1);
    QCOMPARE(away.objects().at(0).picturePos, QPointF(1, 2));
}

void TestPageFile::recordIsTheOtherForm()
{
    const PageFile file = read(page("{'kind':'rich_text','record':{'version':1,'x':7}}"));
    QCOMPARE(file.objects().size(), 1);
    QVERIFY(file.objects().at(0).form == PageObject::Form::Record);
    QCOMPARE(file.objects().at(0).record, json("{'version':1,'x':7}"));
}

void TestPageFile::unknownKeysAndKindsAreKept()
{
    const QJsonObject root = page("{'kind':'rich_text','text':'a','colour':[{'x':null}],"
                                  "'attributes':{'glow':2,'textalignment':'center'}},"
                                  "{'kind':'shape','x':'anything'}",
                                  ",'author':{'name':'A'},'images':{}");
    const PageFile file = read(root);
    QCOMPARE(file.objects().size(), 2);
    QVERIFY(file.objects().at(1).form == PageObject::Form::Unknown);
    QCOMPARE(file.objects().at(1).kind, QStringLiteral("shape"));
    QCOMPARE(file.toJson(), root);
    QCOMPARE(read(file.toJson()).toJson(), root);
}

void TestPageFile::wrongFieldsAreNamed_data()
{
    QTest::addColumn<QJsonObject>("root");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const QJsonObject &root, const char *part) {
        QTest::newRow(name) << root << QString::fromLatin1(part);
    };
    const auto text = [&](const char *fields, const char *part) {
        QTest::newRow(fields) << pageOf(fields) << QString::fromLatin1(part);
    };
    const auto sheet = [&](const char *fields, const char *part) {
        QTest::newRow(fields) << json("{'format':'vxpage','version':1,'page':{" + QByteArray(fields)
                                      + "}}")
                              << QString::fromLatin1(part);
    };
    row("no format", json("{'page':{}}"), "format: is missing");
    row("another format", json("{'format':'other'}"), "format: must be \"vxpage\"");
    row("format is a number", json("{'format':1}"), "format: must be a text");
    row("no version", json("{'format':'vxpage'}"), "version: is missing");
    row("version 0", json("{'format':'vxpage','version':0}"), "version: must be a whole number");
    row("newer", json("{'format':'vxpage','version':2}"), "version: 2 is newer");
    row("no page", json("{'format':'vxpage','version':1}"), "page: is missing");
    row("page is a list", json("{'format':'vxpage','version':1,'page':[]}"), "page: must be an");
    sheet("'height':1", "page.width: is missing");
    sheet("'width':1", "page.height: is missing");
    sheet("'width':0,'height':1", "page.width: must be a whole number from 1 to 32767");
    sheet("'width':1,'height':32768", "page.height: must be");
    sheet("'width':1.5,'height':1", "page.width: must be");
    sheet("'width':1e300,'height':1", "page.width: must be");
    sheet("'width':'1','height':1", "page.width: must be");
    sheet("'width':1,'height':1,'dpi':0", "page.dpi: must be a whole number from 1 to 9600");
    sheet("'width':1,'height':1,'dpi':9601", "page.dpi");
    sheet("'width':1,'height':1,'background':'nocolour'", "page.background: must be a colour");
    sheet("'width':1,'height':1,'background':7", "page.background: must be a text");
    row("objects is a map",
        json("{'format':'vxpage','version':1,'page':{'width':1,'height':1},'objects':{}}"),
        "objects: must be a list");
    row("object is a number", page("{'kind':'x'},7"), "objects[1]: must be an object");
    row("no kind", page("{}"), "objects[0].kind: is missing");
    row("kind is a list", page("{'kind':[]}"), "objects[0].kind: must be a text");
    row("no text", page("{'kind':'rich_text'}"), "objects[0].text: is missing");
    row("text is a number", page("{'kind':'rich_text','text':1}"), "objects[0].text: must be");
    row("record is a text", page("{'kind':'rich_text','record':''}"), "objects[0].record: must be");
    text("'name':1", "objects[0].name: must be a text");
    text("'layout':'circle'", "objects[0].layout: must be one of line, box, growing_box");
    text("'layout':1", "objects[0].layout: must be a text");
    text("'direction':'up'", "objects[0].direction: must be one of");
    text("'x':'1'", "objects[0].x: must be a number");
    text("'x':1e7", "objects[0].x: must be a number from -1e+06");
    text("'y':null", "objects[0].y: must be a number");
    text("'width':0", "objects[0].width: must be a number above 0");
    text("'width':-1", "objects[0].width");
    text("'width':1e9", "objects[0].width");
    text("'width':5", "objects[0].height: is missing");
    text("'height':5", "objects[0].width: is missing");
    text("'layout':'box'", "objects[0].width: is missing");
    text("'layout':'growing_box','width':5", "objects[0].height: is missing");
    text("'rotation':'90'", "objects[0].rotation: must be a number");
    text("'rotation':1e9", "objects[0].rotation");
    text("'flip':1", "objects[0].flip: must be true or false");
    text("'mirror':'true'", "objects[0].mirror: must be true or false");
    text("'attributes':[]", "objects[0].attributes: must be an object");
    text("'attributes':{'font_bold':1}", "objects[0].attributes.font_bold: must be true or false");
    text("'attributes':{'font_pointsize':0}",
         "attributes.font_pointsize: must be a number above 0");
    text("'attributes':{'font_pointsize':'12'}", "attributes.font_pointsize");
    text("'attributes':{'selected_letterspacing':1e7}", "attributes.selected_letterspacing");
    text("'attributes':{'pen_color':'nocolour'}", "attributes.pen_color: must be a colour");
    text("'attributes':{'pen_color':5}", "attributes.pen_color");
    text("'attributes':{'textalignment':'middle'}", "attributes.textalignment: must be one of");
    text("'attributes':{'textalignment':0}", "attributes.textalignment");
    text("'attributes':{'paragraph_punctuation_extra':2}", "extra: must be a whole number from 0");
    text("'picture':'a.png'", "objects[0].picture: must be an object");
    text("'picture':{}", "objects[0].picture.image: is missing");
    text("'picture':{'image':'a.png'}", "objects[0].picture.image: there is no image 'a.png'");
    row("images is a list", page("", ",'images':[]"), "images: must be an object");
    row("image is no base64", page("", ",'images':{'a':'#'}"), "images.a: must be a PNG");
    row("image is a number", page("", ",'images':{'a':1}"), "images.a: must be a PNG");
    row("image without a name", page("", ",'images':{'':'" + png + "'}"), "images.: must be");
}

void TestPageFile::wrongFieldsAreNamed()
{
    QFETCH(QJsonObject, root);
    QFETCH(QString, part);
    PageFile file;
    QString error;
    QVERIFY(!file.read(root, error));
    QVERIFY2(error.contains(part), qPrintable(error));
}

void TestPageFile::failureLeavesThePageAsItWas()
{
    PageFile file = read(pageOf("'x':1"));
    QString error;
    QVERIFY(!file.read(pageOf("'x':2,'y':false"), error));
    QCOMPARE(file.objects().size(), 1);
    QCOMPARE(file.objects().at(0).pos, QPointF(1, 0));
    QVERIFY(file.read(pageOf("'x':2"), error));
    QVERIFY(error.isEmpty());
    QCOMPARE(file.objects().at(0).pos, QPointF(2, 0));
}

void TestPageFile::tooManyCharactersAreRefused()
{
    const QByteArray half = "{'kind':'rich_text','text':'" + QByteArray(125000, 'a') + "'}";
    PageFile file;
    QString error;
    QVERIFY2(file.read(page(half + "," + half), error), qPrintable(error));
    QVERIFY(!file.read(page(half + "," + half + ",{'kind':'rich_text','text':'a'}"), error));
    QVERIFY2(error.contains(QLatin1String("objects[2]: the page has more than 250000 characters")),
             qPrintable(error));
}

// Each field of a whole page takes each kind of value in turn: it is read or refused by name.
void TestPageFile::everyFieldOfAnyTypeEnds()
{
    const QByteArray object("{'kind':'rich_text','name':'n','text':'t','layout':'box',"
                            "'direction':'vertical','x':1,'y':1,'width':9,'height':9,'rotation':1,"
                            "'flip':true,'mirror':true,'attributes':{},'picture':{'image':'a'}}");
    const QJsonObject root = page(object, ",'images':{'a':'" + png + "'}");
    const QJsonValue values[] = {QJsonValue(),
                                 true,
                                 -1,
                                 1e308,
                                 QStringLiteral("nan"),
                                 QJsonArray({1}),
                                 QJsonObject({{QStringLiteral("x"), 1}})};
    int refused = 0;
    const QJsonObject whole = root.value(QLatin1String("objects")).toArray().at(0).toObject();
    for (const QString &key : whole.keys()) {
        for (const QJsonValue &value : values) {
            QJsonObject changed = whole;
            changed.insert(key, value);
            QJsonObject changedRoot = root;
            changedRoot.insert(QStringLiteral("objects"), QJsonArray({QJsonValue(changed)}));
            PageFile file;
            QString error;
            if (file.read(changedRoot, error))
                continue;
            ++refused;
            QVERIFY2(error.startsWith(QLatin1String("objects[0].") + key), qPrintable(error));
        }
    }
    QVERIFY2(refused > 70, qPrintable(QString::number(refused)));
}

void TestPageFile::pageFilesAreToldByTheirKeys()
{
    QVERIFY(PageFile::isPageFile(json("{'format':1}")));
    QVERIFY(PageFile::isPageFile(json("{'objects':[]}")));
    QVERIFY(PageFile::isPageFile(json("{'page':{}}")));
    QVERIFY(!PageFile::isPageFile(json("{'block':[],'fragment':[]}")));
    QVERIFY(!PageFile::isPageFile(QJsonObject()));
}

void TestPageFile::brokenJsonIsFoundByLine()
{
    QCOMPARE(placeInText("ab\ncd", 0), QStringLiteral("line 1, column 1"));
    QCOMPARE(placeInText("ab\ncd", 4), QStringLiteral("line 2, column 2"));
    QCOMPARE(placeInText("ab\ncd", 99), QStringLiteral("line 2, column 3"));
    QJsonDocument document;
    QString error;
    QVERIFY(!parseJson("{\n  \"a\": x\n}", document, error));
    QVERIFY2(error.contains(QLatin1String("line 2, column")), qPrintable(error));
}

void TestPageFile::fileCutShortIsRefused()
{
    const QByteArray whole =
        QJsonDocument(pageOf("'name':'\u4e2d','attributes':{'font_bold':true}")).toJson();
    QJsonDocument document;
    QString error;
    QVERIFY(parseJson(whole.trimmed(), document, error));
    for (int bytes = 0; bytes < whole.trimmed().size(); ++bytes) {
        error.clear();
        PageFile file;
        const bool ok = parseJson(whole.left(bytes), document, error)
                        && file.read(document.object(), error);
        QVERIFY2(!ok, qPrintable(QString::number(bytes)));
        QVERIFY(!error.isEmpty());
    }
}

void TestPageFile::attributesOfTheCommandLine_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("value"); // invalid: refused
    const auto row = [](const char *key, const char *text, const QVariant &value) {
        QTest::addRow("%s=%s", key, text)
            << QString::fromLatin1(key) << QString::fromLatin1(text) << value;
    };
    row("font_bold", "true", true);
    row("font_bold", "false", false);
    row("font_bold", "1", QVariant());
    row("font_bold", "", QVariant());
    row("font_pointsize", "12.5", 12.5);
    row("font_pointsize", "0", QVariant());
    row("font_pointsize", "-1", QVariant());
    row("font_pointsize", "inf", QVariant());
    row("baseline_offset", "-3", -3);
    row("baseline_offset", "1e308", QVariant());
    row("baseline_offset", "true", QVariant());
    row("font_family", "Noto Sans", QStringLiteral("Noto Sans"));
    row("text", "12", QStringLiteral("12"));
    row("text", "true", QStringLiteral("true"));
    row("text", "", QStringLiteral(""));
    row("textalignment", "center", 4);
    row("textalignment", "512", 512);
    row("textalignment", "4096", QVariant());
    row("paragraph_head_tail_punctuation", "2", 2);
    row("paragraph_head_tail_punctuation", "1.5", QVariant());
}

void TestPageFile::attributesOfTheCommandLine()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QVariant, value);
    const AttributeKey *attribute = attributeKey(key);
    QVERIFY(attribute);
    QVariant result;
    QString reason;
    QCOMPARE(attributeValue(*attribute, text, /*vertical=*/false, result, reason), value.isValid());
    QCOMPARE(reason.isEmpty(), value.isValid());
    if (value.isValid())
        QCOMPARE(result.toString(), value.toString());
    if (value.userType() == QMetaType::Bool)
        QCOMPARE(result.userType(), int(QMetaType::Bool));
}

void TestPageFile::colorsOfTheCommandLineAreColors()
{
    QVariant result;
    QString reason;
    QVERIFY(attributeValue(*attributeKey(QStringLiteral("pen_color")), QStringLiteral("#80102030"),
                           false, result, reason));
    QCOMPARE(result, QVariant(QColor(0x10, 0x20, 0x30, 0x80)));
    QVERIFY(!attributeKey(QStringLiteral("pen_colour")));
}

QTEST_GUILESS_MAIN(TestPageFile)
#include "tst_pagefile.moc"
