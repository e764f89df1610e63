// SPDX-License-Identifier: MIT
// The two forms of records and of page files, without any object of text.
#include "app/page/binarypage.h"
#include "app/page/pagefile.h"
#include "app/page/pagestorage.h"
#include "app/page/recordform.h"

#include <QColor>
#include <QDataStream>
#include <QtTest>

namespace {

const QByteArray png(
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAA"
    "AABJRU5ErkJggg==");

/// A JSON object written with single quotes.
QJsonObject json(QByteArray text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.replace('\'', '"'), &error);
    if (!document.isObject())
        qFatal("%s: %s", text.constData(), qPrintable(error.errorString()));
    return document.object();
}

/// A record with all common fields and these \a params; \a more stands behind.
QJsonObject record(const QByteArray &params, const QByteArray &more = QByteArray())
{
    return json("{'version':1,'x':10.25,'y':-3,'rotation':33.5,'z':2,'width':80,'height':16.125,"
                "'locked':true,'created':true,'flip':true,'mirror':false,'params':{"
                + params + "},'TextDPI':96,'TextContent':''" + more + "}");
}

const QByteArray text("'document_data':'{}','TextOrientation':2,'text_defaultword':'\u4e2d',"
                      "'odd':{'list':[1,2.5,true,null,'a',{'deep':[[]]}]}");

QJsonObject oldestRecord()
{
    QJsonObject result = record("'TextOrientation':1,'has_img':true,'img_x':1");
    result.insert(QStringLiteral("TextContent"), QStringLiteral("<p>old \u4e2d</p>"));
    result.insert(QStringLiteral("JSON_TEXT_IMG_DATA"),
                  QJsonObject{{QStringLiteral("name"), QStringLiteral("old.png")},
                              {QStringLiteral("data"), QString::fromLatin1(png)}});
    return result;
}

/// A record of an art text; \a more stands behind.
QJsonObject artRecord(const QByteArray &more = QByteArray())
{
    return json("{'version':1,'x':3,'y':4.5,'rotation':0,'z':1,'width':120,'height':60,"
                "'locked':false,'created':true,'flip':false,'mirror':false,"
                "'params':{'text_alignment':132,'font_Somehow':true,'odd':[1]},"
                "'colorBg':'#ffffffff','colorFill':'#80ff0102','bgType':2,'textWord':'\u4e2d\\nb',"
                "'bgTransparent':true,'timerDelay':1500,'shape':41,'defaultWord':'',"
                "'colorPen':'#ff000003','fontFamily':'BoxTest','fontSize':192,'fontItalic':true,"
                "'fontBold':false,'letterSpacing':2.5,'rowSpacing':-3,'isShadow':true,"
                "'colorShadow':'#ff040506','offsetX':-7,'offsetY':8"
                + more + "}");
}

/// The stream form of artRecord() behind the common part.
QByteArray artFields()
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << QColor(255, 255, 255) << QColor(255, 1, 2, 128) << qint32(2)
        << QString::fromUtf8("\u4e2d\nb") << true << qint32(1500) << qint32(41)
        << QStringLiteral("") << QColor(0, 0, 3) << QStringLiteral("BoxTest") << qint32(192) << true
        << false << 2.5 << -3.0 << true << QColor(4, 5, 6) << qint32(-7) << qint32(8);
    return bytes;
}

/// A page that has one of everything.
QJsonObject richPage()
{
    QJsonObject root = json(
        "{'format':'vxpage','version':1,'page':{'width':200,'height':100,'paper':'A5'},"
        "'objects':[{'kind':'rich_text','name':'by hand','text':'abc','glow':[1]},"
        "{'kind':'shape','x':'anything','stream_record':'AAEC/w=='},{'kind':'shape'}],"
        "'author':{'name':'\u4e2d'},'vxpage_sections':[{'tag':'NOTE','data':'AAECAwQ='},"
        "{'tag':'NOTE','data':''}]}");
    root.insert(QStringLiteral("images"),
                QJsonObject{{QStringLiteral("a \u4e2d.png"), QString::fromLatin1(png)}});
    QJsonArray objects = root.value(QLatin1String("objects")).toArray();
    const QJsonObject records[] = {oldestRecord(), record(text), record(text, ",'later':{'x':1}"),
                                   json("{'version':3,'x':'wrong'}")};
    for (const QJsonObject &entry : records) {
        objects.append(QJsonObject{{QStringLiteral("kind"), QStringLiteral("rich_text")},
                                   {QStringLiteral("name"), QStringLiteral("record")},
                                   {QStringLiteral("record"), entry}});
    }
    objects.append(QJsonObject{{QStringLiteral("kind"), QStringLiteral("art_text")},
                               {QStringLiteral("later"), 1},
                               {QStringLiteral("record"), artRecord(",'later':1")}});
    root.insert(QStringLiteral("objects"), objects);
    return root;
}

PageFile pageOf(const QJsonObject &root)
{
    PageFile file;
    QString error;
    if (!file.read(root, error))
        qFatal("%s", qPrintable(error));
    return file;
}

QByteArray bytesOf(const PageFile &file, PageForm form)
{
    QByteArray bytes;
    QString error;
    if (!pageBytes(file, form, bytes, error))
        qFatal("%s", qPrintable(error));
    return bytes;
}

/// The bytes of \a bytes as the other form.
QByteArray converted(const QByteArray &bytes, PageForm form)
{
    PageFile file;
    QString error;
    if (!readPage(bytes, file, error))
        qFatal("%s", qPrintable(error));
    return bytesOf(file, form);
}

QByteArray number(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray section(const QByteArray &tag, const QByteArray &content)
{
    return tag + number(quint32(content.size())) + content;
}

const QByteArray head = QByteArray("\x89VXPAGE\r\n\n", 10) + number(1);
const QByteArray sheet =
    section("PAGE", "{\"format\":\"vxpage\",\"page\":{\"height\":2,\"width\":1},\"version\":1}");
const QByteArray end = section("END ", "");

QByteArray objectSection(const QByteArray &source, const QByteArray &stream = QByteArray())
{
    return section("OBJT", number(quint32(source.size())) + source + stream);
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

class TestBinaryPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordsGoBothWays_data();
    void recordsGoBothWays();
    void recordsThatTheStreamWouldChangeStayWhole_data();
    void recordsThatTheStreamWouldChangeStayWhole();
    void whatStandsBehindARecordIsKept();
    void newerStreamRecordIsRefused();
    void streamRecordCutAtEveryByteIsRefused();
    void anyByteOfAStreamRecordMayBeWrong();

    void artRecordGoesBothWays();
    void artRecordsThatTheStreamWouldChangeStayWhole_data();
    void artRecordsThatTheStreamWouldChangeStayWhole();
    void artStreamRecordGivesColoursOfEightBits();
    void artStreamRecordCutAtEveryByteIsRefused();
    void anyByteOfAnArtStreamRecordMayBeWrong();

    void binaryPageIsMadeOfSections();
    void bothFormsHoldTheSamePage();
    void samplesGoBothWays_data();
    void samplesGoBothWays();
    void emptyListsComeBack();
    void recordStandsInStreamForm();
    void brokenBinaryPagesAreNamed_data();
    void brokenBinaryPagesAreNamed();
    void failureLeavesThePageAsItWas();
    void binaryPageCutAtEveryByteIsRefused();
    void anyByteOfABinaryPageMayBeWrong();

    void anyKeyMayBeMissingOrWrong();

    void suffixTellsTheForm();
    void contentTellsTheFormToReaders();
    void failureLeavesTheFileAsItWas();
};

void TestBinaryPage::recordsGoBothWays_data()
{
    QTest::addColumn<QJsonObject>("whole");
    QTest::addColumn<QStringList>("rest");
    const QString dpi = QStringLiteral("TextDPI");
    QTest::newRow("oldest, with a picture") << oldestRecord() << QStringList{dpi};
    QTest::newRow("middle") << record(text) << QStringList{dpi};
    QTest::newRow("current") << record(text + ",'new_version':true,'transform_xx':1.5")
                             << QStringList{dpi};
    QTest::newRow("unknown keys") << record(text, ",'later':[null]")
                                  << QStringList{dpi, QStringLiteral("later")};
    QTest::newRow("picture without a name")
        << record("'has_img':true", ",'JSON_TEXT_IMG_DATA':'" + png + "'") << QStringList{dpi};
    QTest::newRow("kinds that JSON lacks") << record(
        "'point':{'type':'QPointF','data':'"
        + QByteArray("\x01\0\0\0\x1a\0?\xf0\0\0\0\0\0\0@\0\0\0\0\0\0\0", 22).toBase64() + "'}")
                                           << QStringList{dpi};
}

void TestBinaryPage::recordsGoBothWays()
{
    QFETCH(QJsonObject, whole);
    QFETCH(QStringList, rest);
    const StreamRecord parts = streamRecord(whole);
    QVERIFY(parts.bytes.startsWith("VXOB"));
    QCOMPARE(parts.rest.keys(), rest);
    QJsonObject joined;
    QString error;
    QVERIFY2(joinedRecord(parts, joined, error), qPrintable(error));
    QCOMPARE(compact(joined), compact(whole));
    QCOMPARE(streamRecord(joined).bytes, parts.bytes);
}

void TestBinaryPage::recordsThatTheStreamWouldChangeStayWhole_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value"); // undefined: the key is absent
    const auto row = [](const char *name, const char *key, const QJsonValue &value) {
        QTest::newRow(name) << QString::fromLatin1(key) << value;
    };
    row("without a flag", "flip", QJsonValue(QJsonValue::Undefined));
    row("without a text", "TextContent", QJsonValue(QJsonValue::Undefined));
    row("place as a text", "x", QStringLiteral("5"));
    row("negative width", "width", -1);
    row("more than a turn", "rotation", 400);
    row("parameters as a list", "params", QJsonArray{1});
    row("newer", "version", 2);
    row("older", "version", 0);
    row("no picture", "JSON_TEXT_IMG_DATA", 5);
}

void TestBinaryPage::recordsThatTheStreamWouldChangeStayWhole()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QJsonObject whole = record(text);
    whole.insert(key, value);
    const StreamRecord parts = streamRecord(whole);
    QVERIFY(parts.bytes.isEmpty());
    QCOMPARE(parts.rest, whole);
}

void TestBinaryPage::whatStandsBehindARecordIsKept()
{
    const QByteArray bytes = streamRecord(record(text)).bytes;
    QJsonObject result;
    QString error;
    QVERIFY(jsonRecord(bytes + QByteArray("\x01\x02\x03"), result, error));
    QCOMPARE(result.value(QLatin1String("stream_rest")).toString(), QStringLiteral("AQID"));
    QCOMPARE(streamRecord(result).bytes, bytes + QByteArray("\x01\x02\x03"));
}

void TestBinaryPage::newerStreamRecordIsRefused()
{
    QByteArray bytes = streamRecord(record(text)).bytes;
    bytes[5] = '\x02';
    QJsonObject result;
    QString error;
    QVERIFY(!jsonRecord(bytes, result, error));
    QVERIFY2(error.contains(QLatin1String("byte 4 of the record: version 2 is newer")),
             qPrintable(error));
}

void TestBinaryPage::streamRecordCutAtEveryByteIsRefused()
{
    const QByteArray bytes = streamRecord(record(text)).bytes;
    for (int size = 0; size < bytes.size(); ++size) {
        QJsonObject result = json("{'kept':1}");
        QString error;
        QVERIFY2(!jsonRecord(bytes.left(size), result, error), qPrintable(QString::number(size)));
        QVERIFY(error.startsWith(QLatin1String("byte ")));
        QCOMPARE(result, json("{'kept':1}"));
    }
}

// Counts and kinds among them.
void TestBinaryPage::anyByteOfAStreamRecordMayBeWrong()
{
    const QByteArray bytes = streamRecord(oldestRecord()).bytes;
    int refused = 0;
    for (int at = 0; at < bytes.size(); ++at) {
        for (const char change : {'\x01', '\x7f', '\xff'}) {
            QByteArray changed = bytes;
            changed[at] = char(changed[at] ^ change);
            QJsonObject result;
            QString error;
            if (!jsonRecord(changed, result, error)) {
                ++refused;
                QVERIFY(!error.isEmpty());
                continue;
            }
            const StreamRecord parts = streamRecord(result);
            QJsonObject joined;
            QVERIFY2(joinedRecord(parts, joined, error), qPrintable(error));
            QCOMPARE(compact(joined), compact(result));
        }
    }
    QVERIFY2(refused > 100, qPrintable(QString::number(refused)));
}

void TestBinaryPage::artRecordGoesBothWays()
{
    for (const QByteArray &more : {QByteArray(), QByteArray(",'later':[null]")}) {
        const QJsonObject whole = artRecord(more);
        const StreamRecord parts = streamRecord(whole, RecordKind::ArtText);
        QVERIFY(parts.bytes.startsWith("VXOB"));
        QCOMPARE(parts.bytes.right(artFields().size()), artFields());
        QCOMPARE(parts.rest, more.isEmpty() ? QJsonObject() : json("{'later':[null]}"));
        QJsonObject joined;
        QString error;
        QVERIFY2(joinedRecord(parts, joined, error, RecordKind::ArtText), qPrintable(error));
        QCOMPARE(compact(joined), compact(whole));
    }
    // What follows is kept.
    const QByteArray bytes = streamRecord(artRecord(), RecordKind::ArtText).bytes
                             + QByteArray("\x01\x02\x03");
    QJsonObject result;
    QString error;
    QVERIFY2(jsonRecord(bytes, result, error, RecordKind::ArtText), qPrintable(error));
    QCOMPARE(result.value(QLatin1String("stream_rest")).toString(), QStringLiteral("AQID"));
    QCOMPARE(streamRecord(result, RecordKind::ArtText).bytes, bytes);
}

void TestBinaryPage::artRecordsThatTheStreamWouldChangeStayWhole_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value"); // undefined: the key is absent
    const auto row = [](const char *name, const char *key, const QJsonValue &value) {
        QTest::newRow(name) << QString::fromLatin1(key) << value;
    };
    row("without a style", "shape", QJsonValue(QJsonValue::Undefined));
    row("colour by name", "colorFill", QStringLiteral("red"));
    row("invalid colour", "colorPen", QString());
    row("half a number", "bgType", 1.5);
    row("spacing as a text", "rowSpacing", QStringLiteral("1"));
    row("flag as a number", "isShadow", 1);
    row("no text", "textWord", QJsonValue());
    row("newer", "version", 2);
}

void TestBinaryPage::artRecordsThatTheStreamWouldChangeStayWhole()
{
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QJsonObject whole = artRecord();
    whole.insert(key, value);
    const StreamRecord parts = streamRecord(whole, RecordKind::ArtText);
    QVERIFY(parts.bytes.isEmpty());
    QCOMPARE(parts.rest, whole);
}

void TestBinaryPage::artStreamRecordGivesColoursOfEightBits()
{
    const QByteArray common =
        streamRecord(artRecord(), RecordKind::ArtText).bytes.chopped(artFields().size());
    QByteArray fields;
    QDataStream out(&fields, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << QColor() << QColor::fromHsv(120, 255, 255);
    const QByteArray bytes = common + fields + artFields().mid(fields.size());
    QJsonObject result;
    QString error;
    QVERIFY2(jsonRecord(bytes, result, error, RecordKind::ArtText), qPrintable(error));
    QCOMPARE(result.value(QLatin1String("colorBg")).toString(), QStringLiteral("#ff000000"));
    QCOMPARE(result.value(QLatin1String("colorFill")).toString(), QStringLiteral("#ff00ff00"));
    // From then on both forms are fixed.
    const QByteArray normal = streamRecord(result, RecordKind::ArtText).bytes;
    QJsonObject again;
    QVERIFY2(jsonRecord(normal, again, error, RecordKind::ArtText), qPrintable(error));
    QCOMPARE(again, result);
}

void TestBinaryPage::artStreamRecordCutAtEveryByteIsRefused()
{
    const QByteArray bytes = streamRecord(artRecord(), RecordKind::ArtText).bytes;
    for (int size = 0; size < bytes.size(); ++size) {
        QJsonObject result = json("{'kept':1}");
        QString error;
        QVERIFY2(!jsonRecord(bytes.left(size), result, error, RecordKind::ArtText),
                 qPrintable(QString::number(size)));
        QVERIFY(error.startsWith(QLatin1String("byte ")));
        QCOMPARE(result, json("{'kept':1}"));
    }
}

void TestBinaryPage::anyByteOfAnArtStreamRecordMayBeWrong()
{
    const QByteArray bytes = streamRecord(artRecord(), RecordKind::ArtText).bytes;
    int refused = 0;
    for (int at = 0; at < bytes.size(); ++at) {
        for (const char change : {'\x01', '\x7f', '\xff'}) {
            QByteArray changed = bytes;
            changed[at] = char(changed[at] ^ change);
            QJsonObject result;
            QString error;
            if (!jsonRecord(changed, result, error, RecordKind::ArtText)) {
                ++refused;
                QVERIFY(!error.isEmpty());
                continue;
            }
            const StreamRecord parts = streamRecord(result, RecordKind::ArtText);
            QJsonObject joined;
            QVERIFY2(joinedRecord(parts, joined, error, RecordKind::ArtText), qPrintable(error));
            QCOMPARE(compact(joined), compact(result));
        }
    }
    QVERIFY2(refused > 100, qPrintable(QString::number(refused)));
}

void TestBinaryPage::binaryPageIsMadeOfSections()
{
    const PageFile file = pageOf(
        json("{'format':'vxpage','version':1,'page':{'width':1,'height':2},"
             "'objects':[{'kind':'x'}],'images':{'a':'AAH/'}}"));
    const QByteArray source(
        "{\"format\":\"vxpage\",\"page\":{\"height\":2,\"width\":1},\"version\":1}");
    const QByteArray image = number(1) + "a" + QByteArray("\0\x01\xff", 3);
    QCOMPARE(bytesOf(file, PageForm::Binary), head + section("PAGE", source)
                                                  + section("IMAG", image)
                                                  + objectSection("{\"kind\":\"x\"}") + end);
}

void TestBinaryPage::bothFormsHoldTheSamePage()
{
    const QByteArray asJson = bytesOf(pageOf(richPage()), PageForm::Json);
    const QByteArray asBinary = converted(asJson, PageForm::Binary);
    QCOMPARE(converted(asBinary, PageForm::Json), asJson);
    QCOMPARE(converted(asBinary, PageForm::Binary), asBinary);
    PageFile file;
    QString error;
    QVERIFY2(readPage(asBinary, file, error), qPrintable(error));
    QCOMPARE(file.toJson(), richPage());
    QVERIFY(asBinary.contains(section("NOTE", QByteArray("\0\x01\x02\x03\x04", 5))
                              + section("NOTE", "")));
    QVERIFY(asBinary.contains(QByteArray("\0\x01\x02\xff", 4)));
    QVERIFY(asBinary.contains(QByteArray::fromBase64(png)));
}

void TestBinaryPage::samplesGoBothWays_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"page.json", "missing-font.json"})
        QTest::newRow(name) << QStringLiteral(VX_SOURCE_DIR "/samples/") + QLatin1String(name);
}

void TestBinaryPage::samplesGoBothWays()
{
    QFETCH(QString, name);
    PageFile file;
    QString error;
    QVERIFY2(readPageFile(name, file, error), qPrintable(error));
    const QByteArray asJson = bytesOf(file, PageForm::Json);
    const QByteArray asBinary = converted(asJson, PageForm::Binary);
    QCOMPARE(converted(asBinary, PageForm::Json), asJson);
    QFile sample(name);
    QVERIFY(sample.open(QIODevice::ReadOnly));
    QCOMPARE(QJsonDocument::fromJson(asJson), QJsonDocument::fromJson(sample.readAll()));
}

void TestBinaryPage::emptyListsComeBack()
{
    for (const char *more : {"", ",'objects':[]", ",'images':{}", ",'vxpage_sections':[]",
                             ",'vxpage_sections':[{'tag':'END ','data':''}]",
                             ",'vxpage_sections':[{'tag':'A','data':''}]",
                             ",'vxpage_sections':[{'tag':'NOTE','data':'AA'}]"}) {
        const QByteArray asJson =
            bytesOf(pageOf(json("{'format':'vxpage','version':1,'page':{'width':1,'height':1}"
                                + QByteArray(more) + "}")),
                    PageForm::Json);
        QCOMPARE(converted(converted(asJson, PageForm::Binary), PageForm::Json), asJson);
    }
}

void TestBinaryPage::recordStandsInStreamForm()
{
    const QJsonObject root = json(
        "{'format':'vxpage','version':1,'page':{'width':1,'height':1},'objects':[{'kind':"
        "'rich_text','record':"
        + compact(record(text)) + "}]}");
    QVERIFY(bytesOf(pageOf(root), PageForm::Binary)
                .contains("{\"kind\":\"rich_text\",\"record\":{\"TextDPI\":96}}VXOB"));
    const QJsonObject art = json(
        "{'format':'vxpage','version':1,'page':{'width':1,'height':1},'objects':[{'kind':"
        "'art_text','record':"
        + compact(artRecord()) + "}]}");
    QVERIFY(bytesOf(pageOf(art), PageForm::Binary)
                .contains("{\"kind\":\"art_text\",\"record\":{}}VXOB"));
}

void TestBinaryPage::brokenBinaryPagesAreNamed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const QByteArray &bytes, const QString &part) {
        QTest::newRow(name) << bytes << part;
    };
    const auto at = [](int offset, const char *what) {
        return QStringLiteral("at byte %1: %2").arg(offset).arg(QLatin1String(what));
    };
    const QByteArray page = head + sheet;
    const int next = page.size();
    row("version 0", QByteArray(head).replace(10, 4, number(0)), at(10, "the version must be 1"));
    row("newer", QByteArray(head).replace(10, 4, number(2)) + sheet + end,
        at(10, "version 2 is newer than this program"));
    row("no end", page, at(next, "the file is cut short"));
    row("bytes behind the end", page + end + "x", at(next + 8, "there are bytes behind the end"));
    row("end with content", page + section("END ", "x"), at(next + 8, "section 'END ' must be"));
    row("end first", head + end, at(22, "section 'PAGE' must be the first"));
    row("object first", head + objectSection("{}") + sheet + end, at(22, "section 'PAGE' must be"));
    row("two pages", page + sheet + end, at(next + 8, "there is a second section 'PAGE'"));
    row("forged count", page + "OBJT" + number(0xffffffff) + "abc",
        at(next, "section 'OBJT' says 4294967295 bytes, of which 3 are there"));
    row("forged inner count", page + section("OBJT", number(0x7fffffff) + "{}") + end,
        at(next + 8, "section 'OBJT' is too short for what it holds"));
    row("no inner count", page + section("IMAG", "abc") + end, at(next + 8, "section 'IMAG'"));
    row("image without a name", page + section("IMAG", number(0) + "abc") + end,
        at(next + 8, "the name of an image must be UTF-8"));
    row("image of no UTF-8 name", page + section("IMAG", number(1) + "\xff") + end,
        at(next + 8, "the name of an image must be UTF-8"));
    const QByteArray image = section("IMAG", number(1) + "a");
    row("image twice", page + image + image + end,
        at(next + image.size() + 8, "there is a second image 'a'"));
    row("page is no JSON", head + section("PAGE", "{'") + end, at(24, "no JSON"));
    row("page is a list", head + section("PAGE", "[1]") + end, at(22, "must be one JSON object"));
    row("page is two", head + section("PAGE", "{},{}") + end, at(22, "must be one JSON object"));
    row("page escapes", head + section("PAGE", "{}],[{}") + end, at(22, "must be one JSON object"));
    row("page is empty", head + section("PAGE", "{}") + end, at(22, "the page is empty"));
    row("objects in the page", head + section("PAGE", "{\"objects\":[1]}") + end,
        at(22, "objects and images must have sections"));
    row("wrong field of the page", head + section("PAGE", "{\"format\":1}") + end,
        at(22, "format: must be a text"));
    row("wrong field of an object",
        page + objectSection("{\"kind\":\"x\"}") + objectSection("{\"kind\":1}") + end,
        at(next + 8 + 24, "objects[1].kind: must be a text"));
    row("object is no JSON", page + objectSection("x") + end, at(next + 12, "no JSON"));
    row("art text without a record", page + objectSection("{\"kind\":\"art_text\"}") + end,
        at(next + 8, "objects[0].record: is missing"));
    row("art record is none", page + objectSection("{\"kind\":\"art_text\"}", "VXOB") + end,
        at(next + 12 + 19, "objects[0].record: byte "));
    row("record is none", page + objectSection("{\"kind\":\"rich_text\"}", "VXOB") + end,
        at(next + 12 + 20, "objects[0].record: byte "));
    row("record is newer",
        page + objectSection("{\"kind\":\"rich_text\"}", QByteArray("VXOB\0\x02\0\0\0\0", 10))
            + end,
        at(next + 12 + 20, "objects[0].record: byte 4 of the record: version 2 is newer"));
}

void TestBinaryPage::brokenBinaryPagesAreNamed()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, part);
    PageFile file;
    QString error;
    QVERIFY(!readPage(bytes, file, error));
    QVERIFY2(error.startsWith(part), qPrintable(error + QLatin1String(" / ") + part));
}

void TestBinaryPage::failureLeavesThePageAsItWas()
{
    PageFile file = pageOf(richPage());
    QString error;
    QVERIFY(!readPage(head + sheet, file, error));
    QCOMPARE(file.toJson(), richPage());
}

void TestBinaryPage::binaryPageCutAtEveryByteIsRefused()
{
    const QByteArray bytes = bytesOf(pageOf(richPage()), PageForm::Binary);
    for (int size = 0; size < bytes.size(); ++size) {
        PageFile file;
        QString error;
        QVERIFY2(!readPage(bytes.left(size), file, error), qPrintable(QString::number(size)));
        QVERIFY(error.contains(QLatin1String("byte ")));
    }
}

void TestBinaryPage::anyByteOfABinaryPageMayBeWrong()
{
    const QByteArray bytes = bytesOf(pageOf(richPage()), PageForm::Binary);
    int refused = 0;
    for (int at = 0; at < bytes.size(); ++at) {
        QByteArray changed = bytes;
        changed[at] = char(changed[at] ^ (at % 2 ? '\x01' : '\xff'));
        PageFile file;
        QString error;
        if (!readPage(changed, file, error)) {
            ++refused;
            QVERIFY2(error.contains(QLatin1String("byte ")), qPrintable(error));
            continue;
        }
        const QByteArray normal = bytesOf(file, PageForm::Binary);
        QCOMPARE(converted(normal, PageForm::Binary), normal);
    }
    QVERIFY2(refused > 100, qPrintable(QString::number(refused)));
}

// Keys of the page, of its sheet, and of each object: it is refused by the name of a key, or what is
// read goes both ways.
void TestBinaryPage::anyKeyMayBeMissingOrWrong()
{
    const QJsonValue values[] = {QJsonValue(QJsonValue::Undefined),
                                 QJsonValue(),
                                 true,
                                 -1,
                                 1e308,
                                 QStringLiteral("?"),
                                 QJsonArray({1}),
                                 QJsonObject({{QStringLiteral("x"), 1}})};
    int refused = 0;
    int taken = 0;
    const auto check = [&](const QJsonObject &root) {
        const QByteArray bytes = QJsonDocument(root).toJson();
        PageFile file;
        QString error;
        if (!readPage(bytes, file, error)) {
            ++refused;
            return error.contains(QLatin1String(": "));
        }
        ++taken;
        return converted(converted(bytes, PageForm::Binary), PageForm::Json) == bytes;
    };
    const QJsonObject whole = richPage();
    const QJsonObject paper = whole.value(QLatin1String("page")).toObject();
    const QJsonArray objects = whole.value(QLatin1String("objects")).toArray();
    for (const QJsonValue &value : values) {
        for (const QString &key : whole.keys()) {
            QJsonObject root = whole;
            root.insert(key, value);
            QVERIFY2(check(root), qPrintable(key));
        }
        for (const QString &key : paper.keys()) {
            QJsonObject changed = paper;
            changed.insert(key, value);
            QJsonObject root = whole;
            root.insert(QStringLiteral("page"), changed);
            QVERIFY2(check(root), qPrintable(key));
        }
        for (int i = 0; i < objects.size(); ++i) {
            const QJsonObject object = objects.at(i).toObject();
            for (const QString &key : object.keys()) {
                QJsonObject changed = object;
                changed.insert(key, value);
                QJsonArray list = objects;
                list[i] = changed;
                QJsonObject root = whole;
                root.insert(QStringLiteral("objects"), list);
                QVERIFY2(check(root), qPrintable(key));
            }
        }
    }
    QVERIFY2(refused > 50 && taken > 50,
             qPrintable(QStringLiteral("%1 %2").arg(refused).arg(taken)));
}

void TestBinaryPage::suffixTellsTheForm()
{
    PageForm form = PageForm::Json;
    QVERIFY(pageFormOf(QStringLiteral("a.json.VXpage"), form));
    QVERIFY(form == PageForm::Binary);
    QVERIFY(pageFormOf(QStringLiteral("a.JSON"), form));
    QVERIFY(form == PageForm::Json);
    QVERIFY(!pageFormOf(QStringLiteral("json"), form));
    QVERIFY(!pageFormOf(QStringLiteral("a.png"), form));
}

void TestBinaryPage::contentTellsTheFormToReaders()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("misnamed.json"));
    QFile output(name);
    QVERIFY(output.open(QIODevice::WriteOnly));
    output.write(bytesOf(pageOf(richPage()), PageForm::Binary));
    output.close();
    PageFile file;
    QString error;
    QVERIFY2(readPageFile(name, file, error), qPrintable(error));
    QCOMPARE(file.toJson(), richPage());
    QVERIFY(!readPageFile(folder.path(), file, error));
    QVERIFY(error.contains(QLatin1String("directory")));
    QVERIFY(!readPageFile(folder.filePath(QStringLiteral("none.json")), file, error));
    QVERIFY(error.contains(QLatin1String("none.json")));
}

void TestBinaryPage::failureLeavesTheFileAsItWas()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("page.png"));
    QFile before(name);
    QVERIFY(before.open(QIODevice::WriteOnly));
    before.write("as it was");
    before.close();
    QString error;
    QVERIFY(!writePageFile(name, pageOf(richPage()), error));
    QVERIFY2(error.contains(QLatin1String(".json or .vxpage")), qPrintable(error));
    QVERIFY(before.open(QIODevice::ReadOnly));
    QCOMPARE(before.readAll(), QByteArray("as it was"));
    QVERIFY(
        !writePageFile(folder.filePath(QStringLiteral("no/page.json")), pageOf(richPage()), error));
    QVERIFY2(error.contains(QLatin1String("cannot write")), qPrintable(error));
}

QTEST_MAIN(TestBinaryPage)
#include "tst_binarypage.moc"
