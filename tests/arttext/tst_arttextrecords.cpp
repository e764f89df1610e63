// SPDX-License-Identifier: MIT
// Records of an art text: bytes and keys written out by hand, and records that are cut or forged.
#include "openarttext.h"

#include <QDataStream>
#include <QJsonObject>
#include <QtTest>

#include <cmath>

namespace {
/// What each field of fillFields() is in the stream, in order.
const QByteArray tailHex =
    "01 0404 0101 0202 0303 0000" // m_colorBg: RGB, alpha, red, green, blue, pad
    "01 ffff ffff 0000 0000 0000" // m_colorFill
    "00000002"                    // m_bgType
    "00000004 0061 0042"          // m_textWord
    "00"                          // m_bgTransparent
    "000002ee"                    // m_timerDelay
    "00000028"                    // m_shape
    "ffffffff"                    // m_defaultWord, never assigned
    "00 ffff 0000 0000 0000 0000" // m_colorPen, invalid
    "00000002 0058"               // m_fontFamily
    "00000030"                    // m_fontSize
    "01"                          // m_fontItalic
    "00"                          // m_fontBold
    "3ff8000000000000"            // m_letterSpacing
    "c000000000000000"            // m_rowSpacing
    "01"                          // m_isShadow
    "01 ffff 0000 0000 0000 0000" // m_colorShadow
    "00000003"                    // m_shadowOffsetX
    "fffffffc";                   // m_shadowOffsetY

QByteArray bytesOf(QByteArray hex)
{
    return QByteArray::fromHex(hex.replace(' ', ""));
}

QByteArray tail()
{
    return bytesOf(tailHex);
}

void fillFields(OpenArtObject &art)
{
    art.m_colorBg = QColor(1, 2, 3, 4);
    art.m_colorFill = Qt::red;
    art.m_bgType = 2;
    art.m_textWord = QStringLiteral("aB");
    art.m_bgTransparent = false;
    art.m_timerDelay = 750;
    art.m_shape = 40;
    art.m_defaultWord = QString();
    art.m_colorPen = QColor();
    art.m_fontFamily = QStringLiteral("X");
    art.m_fontSize = 48;
    art.m_fontItalic = true;
    art.m_fontBold = false;
    art.m_letterSpacing = 1.5;
    art.m_rowSpacing = -2.0;
    art.m_isShadow = true;
    art.m_colorShadow = Qt::black;
    art.m_shadowOffsetX = 3;
    art.m_shadowOffsetY = -4;
    art.m_textAlignment = 2;
    art.m_fontSomehow = true;
}

QByteArray saved(OpenArtObject &art)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    art.save(out);
    return bytes;
}

QByteArray savedBase(OpenArtObject &art)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    art.SaveBaseData(&art, out);
    return bytes;
}

QJsonObject savedJson(OpenArtObject &art)
{
    QJsonObject json;
    art.saveJson(json);
    return json;
}

/// A base record with the two parameters, and \a rest behind it.
QByteArray recordWith(const QByteArray &rest)
{
    OpenArtObject art;
    fillFields(art);
    saved(art);
    return savedBase(art) + rest;
}

bool load(OpenArtObject &art, const QByteArray &bytes)
{
    QDataStream in(bytes);
    return art.load(in);
}

/// Whatever was read: the object paints, is edited as attributes and is written again.
void use(OpenArtObject &art)
{
    contentOf(art, QSize(20, 20));
    AttributeMap attributes;
    art.getAllAttributes(attributes);
    art.setAllAttributes({{QStringLiteral("text"), QStringLiteral("b")}}, false);
    saved(art);
    savedJson(art);
}

struct Row {
    const char *key;
    QJsonValue written; ///< of fillFields()
    QJsonValue missing; ///< what a record without the key writes when it is saved again
};
const Row jsonRows[] = {
    {"colorBg", QStringLiteral("#04010203"), QStringLiteral("#ff000000")},
    {"colorFill", QStringLiteral("#ffff0000"), QStringLiteral("#ff000000")},
    {"bgType", 2, 0},
    {"textWord", QStringLiteral("aB"), QStringLiteral("")},
    {"bgTransparent", false, false},
    {"timerDelay", 750, 0},
    {"shape", 40, 0},
    {"defaultWord", QStringLiteral(""), QStringLiteral("")},
    {"colorPen", QStringLiteral("#ff000000"), QStringLiteral("#ff000000")},
    {"fontFamily", QStringLiteral("X"), QStringLiteral("")},
    {"fontSize", 48, 0},
    {"fontItalic", true, false},
    {"fontBold", false, false},
    {"letterSpacing", 1.5, 0.0},
    {"rowSpacing", -2.0, 0.0},
    {"isShadow", true, false},
    {"colorShadow", QStringLiteral("#ff000000"), QStringLiteral("#ff000000")},
    {"offsetX", 3, 0},
    {"offsetY", -4, 0},
};
} // namespace

class TestArtTextRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void streamIsTheBaseAndNineteenFields();
    void streamIsReadFieldByField();
    void loadMakesAFinishedObject();
    void textNeverAssignedStaysSo();
    void streamThatEndsEarlyLeavesZeros();
    void streamCutAtAnyByteLeavesAUsableObject();
    void forgedStreamLeavesAUsableObject_data();
    void forgedStreamLeavesAUsableObject();
    void colorOfAnUnknownKindIsInvalid();
    void numberThatIsNotFiniteReadsAsZero();
    void twoValuesTravelInTheParameters();
    void parametersThatAreMissingLeaveTheFields();
    void jsonHasExactlyItsKeys();
    void jsonIsReadFieldByField();
    void missingJsonKeyReadsItsDefault_data();
    void missingJsonKeyReadsItsDefault();
    void jsonWithoutShapeIsThePlainRectangle();
    void invalidJsonColorIsStoredAsItIs();
    void jsonOfWrongTypesLeavesAUsableObject();
    void valuesOutsideTheRecordStayOutside();
    void recordOfALoadedObjectIsTheSame();
    void penAndFillComeBack();
    void playbackIsTheBaseAlone();
};

void TestArtTextRecords::streamIsTheBaseAndNineteenFields()
{
    OpenArtObject art;
    fillFields(art);
    const QByteArray record = saved(art);
    const QByteArray base = savedBase(art);
    QCOMPARE(record.left(base.size()).toHex(), base.toHex());
    QCOMPARE(record.mid(base.size()).toHex(), tail().toHex());
}

void TestArtTextRecords::streamIsReadFieldByField()
{
    OpenArtObject art;
    QVERIFY(load(art, recordWith(tail())));
    QCOMPARE(art.m_colorBg, QColor(1, 2, 3, 4));
    QCOMPARE(art.m_colorFill, QColor(Qt::red));
    QCOMPARE(art.m_bgType, 2);
    QCOMPARE(art.m_textWord, QStringLiteral("aB"));
    QVERIFY(!art.m_bgTransparent);
    QCOMPARE(art.m_timerDelay, 750);
    QCOMPARE(art.m_shape, 40);
    QVERIFY(art.m_defaultWord.isNull());
    QVERIFY(!art.m_colorPen.isValid());
    QCOMPARE(art.m_fontFamily, QStringLiteral("X"));
    QCOMPARE(art.m_fontSize, 48);
    QVERIFY(art.m_fontItalic);
    QVERIFY(!art.m_fontBold);
    QCOMPARE(art.m_letterSpacing, 1.5);
    QCOMPARE(art.m_rowSpacing, -2.0);
    QVERIFY(art.m_isShadow);
    QCOMPARE(art.m_colorShadow, QColor(Qt::black));
    QCOMPARE(art.m_shadowOffsetX, 3);
    QCOMPARE(art.m_shadowOffsetY, -4);
}

void TestArtTextRecords::loadMakesAFinishedObject()
{
    OpenArtObject source;
    fillFields(source);
    source.m_created = false; // saved while it is being drawn
    const QByteArray record = saved(source);
    OpenArtObject art(nullptr, false);
    art.rectChanges = 0;
    load(art, record);
    QVERIFY(art.m_created);
    QCOMPARE(art.m_charPaths.size(), 2);
    QVERIFY(art.m_pathsVertical);
    QVERIFY(art.rectChanges >= 1);
}

void TestArtTextRecords::textNeverAssignedStaysSo()
{
    OpenArtObject art;
    QVERIFY(load(art, recordWith(tail())));
    QCOMPARE(saved(art).right(tail().size()).toHex(), tail().toHex());
    QByteArray empty = tail();
    empty.replace(bytesOf("00000028 ffffffff"), bytesOf("00000028 00000000"));
    QVERIFY(load(art, recordWith(empty)));
    QVERIFY(!art.m_defaultWord.isNull());
    QCOMPARE(saved(art).right(empty.size()).toHex(), empty.toHex());
}

void TestArtTextRecords::streamThatEndsEarlyLeavesZeros()
{
    OpenArtObject art;
    load(art, recordWith(QByteArray()));
    QVERIFY(!art.m_colorBg.isValid() && !art.m_colorFill.isValid());
    QVERIFY(!art.m_colorPen.isValid() && !art.m_colorShadow.isValid());
    QCOMPARE(art.m_bgType, 0);
    QVERIFY(art.m_textWord.isEmpty() && art.m_defaultWord.isEmpty());
    QVERIFY(!art.m_bgTransparent && !art.m_fontItalic && !art.m_fontBold && !art.m_isShadow);
    QCOMPARE(art.m_timerDelay, 0);
    QCOMPARE(art.m_shape, 0);
    QCOMPARE(art.m_fontSize, 0);
    QCOMPARE(art.m_letterSpacing, 0.0);
    QCOMPARE(art.m_rowSpacing, 0.0);
    QVERIFY(art.m_created);
    use(art);
}

void TestArtTextRecords::streamCutAtAnyByteLeavesAUsableObject()
{
    const QByteArray whole = recordWith(tail());
    OpenArtObject art;
    for (int size = 0; size < whole.size(); ++size) {
        load(art, whole.left(size));
        QVERIFY(art.m_created);
        contentOf(art, QSize(4, 4));
        QCOMPARE(art.m_shadowOffsetY, 0);
    }
    use(art);
}

void TestArtTextRecords::forgedStreamLeavesAUsableObject_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    const auto row = [](const char *name, const char *from, const char *to) {
        QTest::newRow(name) << bytesOf(from) << bytesOf(to);
    };
    row("text of two gigabytes", "00000004 0061 0042", "7ffffffe 0061 0042");
    row("text of four gigabytes", "00000004 0061 0042", "fffffffe 0061 0042");
    row("text of an odd length", "00000004 0061 0042", "00000003 0061 0042");
    row("half a pair", "00000004 0061 0042", "00000004 d840 0042");
    row("style of its own", "000002ee 00000028", "000002ee 80000000");
    row("size of two milliards", "0058 00000030", "0058 7fffffff");
    row("size below nothing", "0058 00000030", "0058 80000000");
    row("boundless spacing", "3ff8000000000000", "7fefffffffffffff");
    row("boundless row spacing", "c000000000000000", "ffefffffffffffff");
    row("boolean of 255", "3ff8", "ff3ff8");
}

void TestArtTextRecords::forgedStreamLeavesAUsableObject()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QByteArray forged = tail();
    QVERIFY(forged.contains(from));
    forged.replace(forged.indexOf(from), from.size(), to);
    OpenArtObject art;
    load(art, recordWith(forged));
    QVERIFY(art.m_created);
    use(art);
}

void TestArtTextRecords::colorOfAnUnknownKindIsInvalid()
{
    QByteArray forged = tail();
    forged[0] = 77;
    OpenArtObject art;
    load(art, recordWith(forged));
    QVERIFY(!art.m_colorBg.isValid());
    QCOMPARE(art.m_colorFill, QColor(Qt::red)); // what follows is found
    use(art);
}

void TestArtTextRecords::numberThatIsNotFiniteReadsAsZero()
{
    for (const char *number : {"7ff8000000000000", "7ff0000000000000", "fff0000000000000"}) {
        QByteArray forged = tail();
        forged.replace(bytesOf("3ff8000000000000"), bytesOf(number));
        OpenArtObject art;
        load(art, recordWith(forged));
        QCOMPARE(art.m_letterSpacing, 0.0);
        QCOMPARE(art.m_rowSpacing, -2.0);
    }
}

void TestArtTextRecords::twoValuesTravelInTheParameters()
{
    OpenArtObject art;
    art.m_textAlignment = 2;
    art.m_fontSomehow = true;
    for (bool asJson : {false, true}) {
        art.m_saveParams = {{QStringLiteral("other"), 7}};
        if (asJson)
            savedJson(art);
        else
            saved(art);
        const AttributeMap expected{{QStringLiteral("other"), 7},
                                    {QStringLiteral("text_alignment"), 2},
                                    {QStringLiteral("font_Somehow"), true}};
        QCOMPARE(art.m_saveParams, expected);
    }
    OpenArtObject fromStream;
    load(fromStream, saved(art));
    QCOMPARE(fromStream.m_textAlignment, 2);
    QVERIFY(fromStream.m_fontSomehow);
    OpenArtObject fromJson;
    QJsonObject json = savedJson(art);
    fromJson.loadJson(json);
    QCOMPARE(fromJson.m_textAlignment, 2);
    QVERIFY(fromJson.m_fontSomehow);
}

void TestArtTextRecords::parametersThatAreMissingLeaveTheFields()
{
    OpenArtObject source;
    OpenArtObject art;
    art.m_textAlignment = 4;
    art.m_fontSomehow = true;
    load(art, savedBase(source) + tail());
    QCOMPARE(art.m_textAlignment, 4);
    QVERIFY(art.m_fontSomehow);
    QVERIFY(art.m_pathsVertical);
}

void TestArtTextRecords::jsonHasExactlyItsKeys()
{
    OpenArtObject art;
    fillFields(art);
    QJsonObject json = savedJson(art);
    QJsonObject expected;
    art.SaveJsonBaseData(&art, expected);
    for (const Row &row : jsonRows)
        expected.insert(QLatin1String(row.key), row.written);
    QCOMPARE(json.keys(), expected.keys());
    for (const QString &key : json.keys())
        QVERIFY2(json.value(key) == expected.value(key), qPrintable(key));
}

void TestArtTextRecords::jsonIsReadFieldByField()
{
    OpenArtObject source;
    fillFields(source);
    QJsonObject json = savedJson(source);
    OpenArtObject art;
    QVERIFY(art.loadJson(json));
    QCOMPARE(savedJson(art), json);
    QCOMPARE(art.m_colorBg, QColor(1, 2, 3, 4));
    QCOMPARE(art.m_letterSpacing, 1.5);
    QCOMPARE(art.m_shadowOffsetY, -4);
    QVERIFY(art.m_created);
    QCOMPARE(art.m_charPaths.size(), 2);
}

void TestArtTextRecords::missingJsonKeyReadsItsDefault_data()
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < int(std::size(jsonRows)); ++i)
        QTest::newRow(jsonRows[i].key) << i;
}

void TestArtTextRecords::missingJsonKeyReadsItsDefault()
{
    QFETCH(int, row);
    const QString key = QLatin1String(jsonRows[row].key);
    OpenArtObject source;
    fillFields(source);
    QJsonObject json = savedJson(source);
    json.remove(key);
    OpenArtObject art;
    fillFields(art);
    QVERIFY(art.loadJson(json));
    QJsonObject expected = savedJson(source);
    expected.insert(key, jsonRows[row].missing);
    QCOMPARE(savedJson(art), expected);
    if (key.startsWith(QLatin1String("color"))) {
        const QMap<QString, QColor> colors{{QStringLiteral("colorBg"), art.m_colorBg},
                                           {QStringLiteral("colorFill"), art.m_colorFill},
                                           {QStringLiteral("colorPen"), art.m_colorPen},
                                           {QStringLiteral("colorShadow"), art.m_colorShadow}};
        QVERIFY(!colors.value(key, Qt::red).isValid());
    }
}

void TestArtTextRecords::jsonWithoutShapeIsThePlainRectangle()
{
    OpenArtObject art;
    QJsonObject json = savedJson(art);
    QCOMPARE(json.value(QLatin1String("shape")).toInt(), 1);
    json.remove(QStringLiteral("shape"));
    art.loadJson(json);
    QCOMPARE(art.m_shape, 0);
}

void TestArtTextRecords::invalidJsonColorIsStoredAsItIs()
{
    OpenArtObject art;
    QJsonObject json = savedJson(art);
    for (const QJsonValue &value : {QJsonValue(QStringLiteral("no colour")), QJsonValue(5)}) {
        json.insert(QStringLiteral("colorFill"), value);
        art.m_colorFill = Qt::blue;
        art.loadJson(json);
        QVERIFY(!art.m_colorFill.isValid());
    }
}

void TestArtTextRecords::jsonOfWrongTypesLeavesAUsableObject()
{
    OpenArtObject art;
    const QJsonObject whole = savedJson(art);
    for (const QJsonValue &value :
         {QJsonValue(), QJsonValue(true), QJsonValue(1e300), QJsonValue(QStringLiteral("x")),
          QJsonValue(QJsonObject{{QStringLiteral("a"), 1}})}) {
        QJsonObject json = whole;
        for (const Row &row : jsonRows) {
            if (!QByteArray(row.key).startsWith("color"))
                json.insert(QLatin1String(row.key), value);
        }
        QVERIFY(art.loadJson(json));
        use(art);
    }
}

void TestArtTextRecords::valuesOutsideTheRecordStayOutside()
{
    OpenArtObject source;
    source.m_shadowAbsOffsetX = 1.5;
    source.m_shadowAbsOffsetY = 2.5;
    source.m_transparent = 9;
    QJsonObject json = savedJson(source);
    OpenArtObject art;
    art.loadJson(json);
    load(art, saved(source));
    QCOMPARE(art.m_shadowAbsOffsetX, 0.0);
    QCOMPARE(art.m_shadowAbsOffsetY, 0.0);
    QCOMPARE(art.m_transparent, 0);
}

void TestArtTextRecords::recordOfALoadedObjectIsTheSame()
{
    OpenArtObject source;
    fillFields(source);
    source.setPos(QPointF(12, 34), false);
    source.setSize(QSizeF(56, 78), false, false);
    source.rotateObj(30, false);
    OpenArtObject art;
    const QByteArray record = saved(source);
    load(art, record);
    QCOMPARE(saved(art).toHex(), record.toHex());
    QJsonObject json = savedJson(source);
    OpenArtObject other;
    other.loadJson(json);
    QCOMPARE(savedJson(other), json);
}

void TestArtTextRecords::penAndFillComeBack()
{
    OpenArtObject source;
    source.setMyPen(QPen(QColor(1, 2, 3, 4), 2.5, Qt::DashLine, Qt::RoundCap, Qt::MiterJoin));
    source.setFillProp(fillOf(QColor(5, 6, 7, 8), /*enabled=*/false));
    QJsonObject json = savedJson(source);
    const QByteArray record = saved(source);
    for (bool asJson : {false, true}) {
        OpenArtObject art;
        if (asJson)
            art.loadJson(json);
        else
            load(art, record);
        QCOMPARE(art.getMyPen(), source.getMyPen());
        QCOMPARE(art.getFillProp().color(), QColor(5, 6, 7, 8));
        QVERIFY(!art.getFillProp().isFillEnable());
    }
    OpenArtObject plain;
    const QByteArray plainRecord = saved(plain);
    load(source, plainRecord);
    QCOMPARE(source.getMyPen(), plain.getMyPen());
    QCOMPARE(source.getFillProp().color(), QColor(Qt::black));
    QVERIFY(source.getFillProp().isFillEnable());
}

void TestArtTextRecords::playbackIsTheBaseAlone()
{
    OpenArtObject source;
    fillFields(source);
    source.setSize(QSizeF(56, 78), false, false);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    QVERIFY(source.SavePropertyForPlayback(out));
    QCOMPARE(bytes.toHex(), savedBase(source).toHex());
    OpenArtObject art;
    QDataStream in(bytes);
    QVERIFY(art.LoadPropertyForPlayback(in));
    QCOMPARE(art.getSize(), QSizeF(56, 78));
    QCOMPARE(art.m_shape, 1);
    QDataStream action(&bytes, QIODevice::ReadWrite);
    QVERIFY(!art.DoPlaybackActionEx(1, action));
}

QTEST_MAIN(TestArtTextRecords)
#include "tst_arttextrecords.moc"
