// SPDX-License-Identifier: MIT
// Attributes by map and by number, special properties, and what the host is told.
#include "openarttext.h"

#include <QBuffer>
#include <QDataStream>
#include <QFontMetrics>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

namespace {
QByteArray bytesOf(QByteArray hex)
{
    return QByteArray::fromHex(hex.replace(' ', ""));
}

/// A text as streams have it: the length in bytes, then two bytes a character.
QByteArray streamed(const char *text)
{
    QByteArray bytes;
    const int size = int(qstrlen(text)) * 2;
    for (int shift : {24, 16, 8, 0})
        bytes.append(char(size >> shift));
    for (const char *c = text; *c; ++c)
        bytes.append('\0').append(*c);
    return bytes;
}

const QByteArray whiteBytes = bytesOf("01 ffff ffff ffff ffff 0000");
const QByteArray redBytes = bytesOf("01 ffff ffff 0000 0000 0000");
const QByteArray blueBytes = bytesOf("01 ffff 0000 0000 ffff 0000");

QByteArray description(OpenArtObject &art, int id, bool *answer = nullptr)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    const bool known = art.GetAttribute(id, out);
    if (answer)
        *answer = known;
    return bytes;
}

/// Gives \a value as attribute \a id and tells what the stream holds afterwards.
QByteArray setAttribute(OpenArtObject &art, int id, const QByteArray &value, bool *answer = nullptr)
{
    QBuffer buffer;
    buffer.setData(value);
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    const bool known = art.SetAttribute(id, stream, true);
    if (answer)
        *answer = known;
    return buffer.data();
}

bool setSpecial(OpenArtObject &art, int number, const QByteArray &value = QByteArray())
{
    QByteArray bytes = value;
    QDataStream stream(&bytes, QIODevice::ReadWrite);
    return art.SetSpecialProperty(number, stream, false);
}

/// The map in the form of property 204.
QByteArray streamOf(const AttributeMap &map)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << map.size();
    for (auto it = map.constBegin(); it != map.constEnd(); ++it)
        out << it.key() << it.value();
    return bytes;
}

AttributeMap one(const char *key, const QVariant &value)
{
    return {{QLatin1String(key), value}};
}

bool set(OpenArtObject &art, const AttributeMap &map)
{
    art.updates = 0;
    art.cacheReasons.clear();
    return art.setAllAttributes(map, false);
}

/// True when the outlines have been made anew since the last call.
bool hasNewPaths(OpenArtObject &art)
{
    const bool isNew = art.m_scaledPaths.isEmpty();
    contentOf(art, QSize(4, 4));
    return isNew;
}

AttributeMap attributesOf(OpenArtObject &art)
{
    AttributeMap map;
    art.getAllAttributes(map);
    return map;
}

QTextCharFormat firstFormat(const OpenArtObject &art)
{
    QTextCursor cursor(art.document());
    cursor.setPosition(1);
    return cursor.charFormat();
}

/// A listener that answers each notification with a command.
class AnsweringHost : public RecordingHost
{
public:
    OpenArtObject *answers = nullptr;
    bool releases = false;

    void notifyObjectEvent(CVXRootObject *object, const QString &key,
                           const AttributeMap &values) override
    {
        RecordingHost::notifyObjectEvent(object, key, values);
        if (releases)
            object->Release();
        else if (answers)
            answers->setAllAttributes(one("transparent", events.size()), false);
    }
};
} // namespace

class TestArtTextAttributes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // by number
    void descriptionsAreWrittenByteByByte_data();
    void descriptionsAreWrittenByteByByte();
    void gridNamesAreTheHosts();
    void unknownNumbersWriteNothing_data();
    void unknownNumbersWriteNothing();
    void numbersAreTaken_data();
    void numbersAreTaken();
    void fillColorIsTakenWithoutRewind();
    void textByNumberMakesNewPaths();
    void playBeginsOnce();
    void delayIsAnyNumber();
    void attributeWithoutValueReadsZero();

    // special properties
    void propertyEntersTheEditWithoutItsState();
    void propertyOnALockedObjectDoesNothing();
    void propertyEndsTheEdit();
    void mapPropertyIsReadAsAnEmptyMap();
    void otherPropertiesAreTheHosts();
    void mapPropertyStoresEveryKey();
    void mapPropertyComparesNothing();
    void mapPropertyTakesAbsoluteOffsets();
    void mapPropertyWithoutChangeOnlyRepaints();
    void mapPropertyMakesAMissingEngine();
    void mapPropertyCutAtAnyByteTakesWholePairs();
    void mapPropertyWithForgedBytesDoesNoHarm_data();
    void mapPropertyWithForgedBytesDoesNoHarm();
    void valuesOfOtherKindsArePassedOver();

    // by map
    void allAttributesAreTold();
    void eachKeyIsTaken_data();
    void eachKeyIsTaken();
    void sameValueChangesNothing_data();
    void sameValueChangesNothing();
    void colorsRepaintOnly();
    void oneShadowOffsetIsNoOffset();
    void absoluteOffsetsAreNotTaken();
    void pointSizeOfZeroChangesNothing();
    void pointSizeSetsItemAndBox();
    void pointSizeInColumnsSwapsTheSides();
    void pointSizeTakesTheDefaultWordOfAnEmptyText();
    void numbersThatAreNotFiniteReadAsZero();
    void emptyStringLeavesANumberAlone_data();
    void emptyStringLeavesANumberAlone();
    void unknownKeysAnswerFalse();
    void penColorDoesNotShowInTheOutlines();
    void changeIsToldToTheListener();
    void withoutListenerTheAnswerIsTheSame();
    void listenerThatAnswersComesToAnEnd();
    void listenerMayReleaseTheObject();
};

// By number

void TestArtTextAttributes::descriptionsAreWrittenByteByByte_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("background") << 5001
                                << bytesOf("00001389 00000002") + streamed("IDS_ARTWORD_BGCOLOR")
                                       + bytesOf("01") + whiteBytes;
    QTest::newRow("fill") << 5002
                          << bytesOf("0000138a 00000002") + streamed("IDS_ARTWORD_FILL_COLOR")
                                 + bytesOf("01") + redBytes;
    QTest::newRow("transparent") << 5003
                                 << bytesOf("0000138b 00000004")
                                        + streamed("IDS_ARTWORD_BGTranspare") + bytesOf("01 01");
    QTest::newRow("text") << 5004
                          << bytesOf("0000138c 00000005") + streamed("IDS_ARTWORD_TEXT_CONTENT")
                                 + bytesOf("01") + streamed("ab");
    QTest::newRow("grid") << 5005
                          << bytesOf("0000138d 00000001") + streamed("IDS_ARTWORD_GRID_TYPE")
                                 + bytesOf("01 00000003 00000002 00000000") + streamed("Tian")
                                 + streamed("") + streamed("Mi");
    QTest::newRow("play") << 5006
                          << bytesOf("0000138e 00000004") + streamed("IDS_ARTWORD_DoPlay")
                                 + bytesOf("01 00");
    QTest::newRow("delay") << 5007
                           << bytesOf("0000138f 00000007") + streamed("IDS_ARTWORD_PlayTimer")
                                  + bytesOf("01 000001f4 00002710 000001f4 000003e8");
}

void TestArtTextAttributes::descriptionsAreWrittenByteByByte()
{
    QFETCH(int, id);
    QFETCH(QByteArray, expected);
    OpenArtObject art;
    art.setPlainText(QStringLiteral("ab"));
    art.m_bgType = 2;
    bool known = false;
    QCOMPARE(description(art, id, &known).toHex(), expected.toHex());
    QVERIFY(known);
}

void TestArtTextAttributes::gridNamesAreTheHosts()
{
    RecordingHost host;
    host.localStrings = {{QStringLiteral("IDS_ARTTEXT_GRIDTYPE_NOTHING"), QStringLiteral("one")},
                         {QStringLiteral("IDS_ARTTEXT_GRIDTYPE_Tian"), QStringLiteral("two")},
                         {QStringLiteral("IDS_ARTTEXT_GRIDTYPE_Mi"), QStringLiteral("three")}};
    OpenArtObject art(&host);
    const QByteArray names = streamed("one") + streamed("two") + streamed("three");
    QCOMPARE(description(art, 5005).right(names.size()).toHex(), names.toHex());
    host.localStrings.clear(); // the host gives the fallbacks
    const QByteArray fallbacks = streamed("Tian") + streamed("") + streamed("Mi");
    QCOMPARE(description(art, 5005).right(fallbacks.size()).toHex(), fallbacks.toHex());
}

void TestArtTextAttributes::unknownNumbersWriteNothing_data()
{
    QTest::addColumn<int>("id");
    for (int id : {0, -1, 2001, 5000, 5008, 2100})
        QTest::addRow("%d", id) << id;
}

void TestArtTextAttributes::unknownNumbersWriteNothing()
{
    QFETCH(int, id);
    OpenArtObject art;
    bool known = true;
    QCOMPARE(description(art, id, &known), QByteArray());
    QVERIFY(!known);
    known = true;
    QCOMPARE(setAttribute(art, id, bytesOf("00000001"), &known), bytesOf("00000001"));
    QVERIFY(!known);
    art.m_attributeIds.removeAll(5001); // no longer offered
    known = true;
    QCOMPARE(description(art, 5001, &known), QByteArray());
    QVERIFY(!known);
    setAttribute(art, 5001, blueBytes, &known);
    QVERIFY(!known);
    QCOMPARE(art.m_colorBg, QColor(Qt::white));
}

void TestArtTextAttributes::numbersAreTaken_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("background") << 5001 << blueBytes;
    QTest::newRow("transparent") << 5003 << bytesOf("00");
    QTest::newRow("grid") << 5005 << bytesOf("00000002");
}

void TestArtTextAttributes::numbersAreTaken()
{
    QFETCH(int, id);
    QFETCH(QByteArray, value);
    OpenArtObject art;
    art.updates = 0;
    bool known = false;
    const QByteArray left = setAttribute(art, id, value, &known);
    QVERIFY(known);
    QCOMPARE(left.left(4), bytesOf("00000000")); // the answer for the host
    QCOMPARE(art.updates, 1);
    QCOMPARE(art.m_colorBg, QColor(id == 5001 ? Qt::blue : Qt::white));
    QCOMPARE(art.m_bgTransparent, id != 5003);
    QCOMPARE(art.m_bgType, id == 5005 ? 2 : 0);
}

void TestArtTextAttributes::fillColorIsTakenWithoutRewind()
{
    OpenArtObject art;
    art.updates = 0;
    QCOMPARE(setAttribute(art, 5002, blueBytes), blueBytes);
    QCOMPARE(art.m_colorFill, QColor(Qt::blue));
    QCOMPARE(art.updates, 1);
}

void TestArtTextAttributes::textByNumberMakesNewPaths()
{
    OpenArtObject art;
    art.updates = 0;
    const QByteArray left = setAttribute(art, 5004, streamed("abc"));
    QCOMPARE(left.left(4), bytesOf("00000000"));
    QCOMPARE(art.m_textWord, QStringLiteral("abc"));
    QCOMPARE(art.m_charPaths.size(), 3);
    QCOMPARE(art.updates, 1);
}

void TestArtTextAttributes::playBeginsOnce()
{
    OpenArtObject art;
    art.updates = 0;
    QCOMPARE(setAttribute(art, 5006, bytesOf("00")), bytesOf("00000000"));
    QVERIFY(!art.m_doPlay && !art.m_playing);
    QCOMPARE(art.updates, 0);
    QCOMPARE(setAttribute(art, 5006, bytesOf("01")), bytesOf("00000000"));
    QVERIFY(art.m_doPlay && art.m_playing);
    QCOMPARE(art.updates, 1);
    art.m_playStep = 4;
    setAttribute(art, 5006, bytesOf("01"));
    QCOMPARE(art.m_playStep, 4);
    QCOMPARE(art.updates, 1);
}

void TestArtTextAttributes::delayIsAnyNumber()
{
    OpenArtObject art;
    art.updates = 0;
    QCOMPARE(setAttribute(art, 5007, bytesOf("00000007")), bytesOf("00000000"));
    QCOMPARE(art.m_timerDelay, 7);
    setAttribute(art, 5007, bytesOf("ffffffff"));
    QCOMPARE(art.m_timerDelay, -1);
    QCOMPARE(art.updates, 0);
}

void TestArtTextAttributes::attributeWithoutValueReadsZero()
{
    OpenArtObject art;
    art.m_bgType = 2;
    art.setPlainText(QStringLiteral("a"));
    for (int id = 5001; id <= 5007; ++id)
        setAttribute(art, id, QByteArray());
    QVERIFY(!art.m_colorBg.isValid() && !art.m_colorFill.isValid());
    QVERIFY(!art.m_bgTransparent && !art.m_doPlay);
    QVERIFY(art.m_textWord.isEmpty() && art.m_charPaths.isEmpty());
    QCOMPARE(art.m_bgType, 0);
    QCOMPARE(art.m_timerDelay, 0);
    QCOMPARE(setAttribute(art, 5005, QByteArray()), bytesOf("00000000"));
    QDataStream withoutDevice;
    QVERIFY(art.SetAttribute(5005, withoutDevice, false));
}

// Special properties

void TestArtTextAttributes::propertyEntersTheEditWithoutItsState()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    QVERIFY(!setSpecial(art, 101));
    QCOMPARE(art.textInteractionFlags(), Qt::TextInteractionFlags(Qt::TextEditorInteraction));
    QVERIFY(!art.m_editing);
    QCOMPARE(host.eventsOfKind(QStringLiteral("editing")).size(), 1);
}

void TestArtTextAttributes::propertyOnALockedObjectDoesNothing()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    art.setLocked(true, false, false);
    QVERIFY(!setSpecial(art, 101));
    QCOMPARE(art.textInteractionFlags(), Qt::TextInteractionFlags(Qt::NoTextInteraction));
    QVERIFY(host.eventsOfKind(QStringLiteral("editing")).isEmpty());
}

void TestArtTextAttributes::propertyEndsTheEdit()
{
    RecordingHost host;
    OpenArtObject &art = *selectedArt(host, QStringLiteral("a"));
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseDoubleClick);
    art.mouseDoubleClickEvent(&event);
    QVERIFY(art.m_editing);
    art.textCursor().insertText(QStringLiteral("b"));
    QVERIFY(!setSpecial(art, 102));
    QVERIFY(!art.m_editing);
    QCOMPARE(host.stack().count(), 1);
}

void TestArtTextAttributes::mapPropertyIsReadAsAnEmptyMap()
{
    OpenArtObject art;
    art.setPlainText(QStringLiteral("abc"));
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    QVERIFY(art.GetSpecialProperty(204, out));
    QCOMPARE(bytes, bytesOf("00000000"));
}

void TestArtTextAttributes::otherPropertiesAreTheHosts()
{
    OpenArtObject art;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    for (int number : {0, 100, 101, 102, 103, 203, 205}) {
        QVERIFY(!art.GetSpecialProperty(number, out));
        QVERIFY(!setSpecial(art, number, bytesOf("00000001")));
    }
    QVERIFY(bytes.isEmpty());
}

void TestArtTextAttributes::mapPropertyStoresEveryKey()
{
    RecordingHost host;
    OpenArtObject art(&host);
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    const AttributeMap map{{QStringLiteral("text"), QStringLiteral("abc")},
                           {QStringLiteral("defaultword"), QStringLiteral("word")},
                           {QStringLiteral("font_family"), QStringLiteral("Family")},
                           {QStringLiteral("font_bold"), true},
                           {QStringLiteral("font_letterspacing"), 1.5},
                           {QStringLiteral("fillcolor"), QColor(Qt::green)},
                           {QStringLiteral("shape"), 8},
                           {QStringLiteral("textalignment"), 2},
                           {QStringLiteral("font_somehow"), true},
                           {QStringLiteral("shadow"), true}};
    QVERIFY(setSpecial(art, 204, streamOf(map)));
    QCOMPARE(art.m_textWord, QStringLiteral("abc"));
    QCOMPARE(art.m_defaultWord, QStringLiteral("word"));
    QCOMPARE(art.m_fontFamily, QStringLiteral("Family"));
    QVERIFY(art.m_fontBold);
    QCOMPARE(art.m_letterSpacing, 1.5);
    QCOMPARE(art.m_colorFill, QColor(Qt::green));
    QCOMPARE(art.m_shape, 8);
    QCOMPARE(art.m_textAlignment, 2);
    QVERIFY(art.m_fontSomehow && art.m_pathsVertical);
    QVERIFY(art.m_isShadow);
    QCOMPARE(art.m_charPaths.size(), 3);
    QCOMPARE(art.updates, 1);
    QCOMPARE(art.cacheReasons, QVector<int>({2}));
    QVERIFY(host.eventsWithKey(QStringLiteral("arttext_prop")).isEmpty());
}

void TestArtTextAttributes::mapPropertyComparesNothing()
{
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    contentOf(art);
    for (const AttributeMap &map : {one("text", QStringLiteral("a")), one("shape", 1)}) {
        setSpecial(art, 204, streamOf(map));
        QVERIFY(hasNewPaths(art));
    }
}

void TestArtTextAttributes::mapPropertyTakesAbsoluteOffsets()
{
    OpenArtObject art;
    setSpecial(art, 204, streamOf(one("shadow_absoffsetX", 1.5)));
    QCOMPARE(art.m_shadowAbsOffsetX, 0.0);
    setSpecial(art, 204, streamOf(one("shadow_absoffsetY", 2.5)));
    QCOMPARE(art.m_shadowAbsOffsetY, 0.0);
    setSpecial(art, 204,
               streamOf({{QStringLiteral("shadow_absoffsetX"), 1.5},
                         {QStringLiteral("shadow_absoffsetY"), 2.5}}));
    QCOMPARE(art.m_shadowAbsOffsetX, 1.5);
    QCOMPARE(art.m_shadowAbsOffsetY, 2.5);
}

void TestArtTextAttributes::mapPropertyWithoutChangeOnlyRepaints()
{
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    contentOf(art);
    for (const AttributeMap &map : {AttributeMap(), one("color", QColor(Qt::blue)),
                                    one("font_pointsize", 0.0), one("unknown", 1)}) {
        art.updates = 0;
        setSpecial(art, 204, streamOf(map));
        QCOMPARE(art.updates, 1);
        QVERIFY(!hasNewPaths(art));
    }
    QVERIFY(art.cacheReasons.isEmpty());
}

void TestArtTextAttributes::mapPropertyMakesAMissingEngine()
{
    OpenArtObject art;
    delete art.m_artText;
    art.m_artText = nullptr;
    setSpecial(art, 204, streamOf(one("color", QColor(Qt::blue))));
    QVERIFY(art.m_artText);
    QCOMPARE(art.m_artText->GetColor(), QColor(Qt::blue));
}

void TestArtTextAttributes::mapPropertyCutAtAnyByteTakesWholePairs()
{
    const AttributeMap map{{QStringLiteral("shape"), 8},
                           {QStringLiteral("text"), QStringLiteral("abc")},
                           {QStringLiteral("zz"), QColor(Qt::red)}};
    const QByteArray whole = streamOf(map);
    const int shapeEnd = streamOf(one("shape", 8)).size();
    const int textEnd = shapeEnd + streamOf(one("text", QStringLiteral("abc"))).size() - 4;
    for (int size = 0; size <= whole.size(); ++size) {
        OpenArtObject art;
        QVERIFY(setSpecial(art, 204, whole.left(size)));
        QCOMPARE(art.m_shape, size >= shapeEnd ? 8 : 1);
        QCOMPARE(art.m_textWord, size >= textEnd ? QStringLiteral("abc") : QString());
    }
}

void TestArtTextAttributes::mapPropertyWithForgedBytesDoesNoHarm_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray pair = streamOf(one("shape", 8)).mid(4);
    const QByteArray key = streamed("text");
    QTest::newRow("count of two milliards") << bytesOf("7fffffff") + pair;
    QTest::newRow("count below nothing") << bytesOf("ffffffff") + pair;
    QTest::newRow("key of four gigabytes") << bytesOf("00000001 fffffffe 0061");
    QTest::newRow("text of four gigabytes")
        << bytesOf("00000001") + key + bytesOf("0000000a 00 fffffffe");
    QTest::newRow("list of four milliards")
        << bytesOf("00000001") + key + bytesOf("00000009 00 ffffffff");
    QTest::newRow("map of four milliards")
        << bytesOf("00000001") + key + bytesOf("00000008 00 ffffffff");
    QTest::newRow("texts without end")
        << bytesOf("00000001") + key + bytesOf("0000000b 00 ffffffff");
    QTest::newRow("list in list in list")
        << bytesOf("00000001") + key + bytesOf("00000009 00 00000001").repeated(5000);
    QTest::newRow("kind that nobody has")
        << bytesOf("00000001") + key + bytesOf("7fffffff 00 00000001");
    QTest::newRow("kind with a name")
        << bytesOf("00000001") + key + bytesOf("00000400 00 00000004 41424300");
    QTest::newRow("picture") << bytesOf("00000001") + key
                                    + bytesOf("00000046 00 00000001 89504e47");
    QTest::newRow("colour of an unknown kind")
        << bytesOf("00000001") + streamed("fillcolor")
               + bytesOf("00000043 00 4d ffff ffff ffff ffff 0000");
}

void TestArtTextAttributes::mapPropertyWithForgedBytesDoesNoHarm()
{
    QFETCH(QByteArray, bytes);
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    QVERIFY(setSpecial(art, 204, bytes));
    contentOf(art);
    QCOMPARE(art.m_textWord.size() <= 1, true);
    attributesOf(art);
    const bool isBigCount = bytes.startsWith(bytesOf("7fffffff"));
    QCOMPARE(art.m_shape, isBigCount ? 8 : 1); // the pair that is there counts
}

void TestArtTextAttributes::valuesOfOtherKindsArePassedOver()
{
    OpenArtObject art;
    const QVariantMap inner{{QStringLiteral("a"), QVariantList{1, QStringLiteral("b")}}};
    setSpecial(art, 204,
               streamOf({{QStringLiteral("a list"), QVariantList{1, inner, QColor(Qt::red)}},
                         {QStringLiteral("a map"), inner},
                         {QStringLiteral("nothing"), QVariant()},
                         {QStringLiteral("some texts"), QStringList{QStringLiteral("x")}},
                         {QStringLiteral("text"), QStringLiteral("abc")}}));
    QCOMPARE(art.m_textWord, QStringLiteral("abc"));
}

// By map

void TestArtTextAttributes::allAttributesAreTold()
{
    OpenArtObject art;
    art.m_textWord = QStringLiteral("abc");
    art.m_defaultWord = QStringLiteral("word");
    art.m_fontFamily = QStringLiteral("Family");
    art.m_fontBold = true;
    art.m_letterSpacing = 1.5;
    art.m_rowSpacing = 2.5;
    art.m_colorPen = Qt::blue;
    art.m_shadowOffsetX = 3;
    art.m_shadowOffsetY = 4;
    art.m_shadowAbsOffsetX = 5.5;
    art.m_shadowAbsOffsetY = 6.5;
    art.m_transparent = 7;
    const AttributeMap expected{{QStringLiteral("defaultword"), QStringLiteral("word")},
                                {QStringLiteral("font_family"), QStringLiteral("Family")},
                                {QStringLiteral("font_bold"), true},
                                {QStringLiteral("font_italic"), false},
                                {QStringLiteral("font_letterspacing"), 1.5},
                                {QStringLiteral("font_rowspacing"), 2.5},
                                {QStringLiteral("color"), QColor(Qt::blue)},
                                {QStringLiteral("fillcolor"), QColor(Qt::red)},
                                {QStringLiteral("shape"), 1},
                                {QStringLiteral("text"), QStringLiteral("abc")},
                                {QStringLiteral("shadow_offsetX"), 3},
                                {QStringLiteral("shadow_offsetY"), 4},
                                {QStringLiteral("shadow_absoffsetX"), 5.5},
                                {QStringLiteral("shadow_absoffsetY"), 6.5},
                                {QStringLiteral("transparent"), 7},
                                {QStringLiteral("textalignment"), 0x84},
                                {QStringLiteral("font_somehow"), false}};
    const AttributeMap map = attributesOf(art);
    QCOMPARE(map, expected);
    for (auto it = map.constBegin(); it != map.constEnd(); ++it)
        QCOMPARE(it.value().userType(), expected.value(it.key()).userType());
    AttributeMap own;
    art.getArtTextAttributes(own);
    QCOMPARE(own, expected);
}

void TestArtTextAttributes::eachKeyIsTaken_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char *key, const QVariant &value) {
        QTest::newRow(key) << QString::fromLatin1(key) << value;
    };
    row("defaultword", QStringLiteral("word"));
    row("font_family", QStringLiteral("Family"));
    row("font_bold", true);
    row("font_italic", true);
    row("font_letterspacing", 1.5);
    row("font_rowspacing", 2.5);
    row("shape", 8);
    row("text", QStringLiteral("bb"));
    row("transparent", 7);
    row("textalignment", 2);
    row("font_somehow", true);
}

void TestArtTextAttributes::eachKeyIsTaken()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    contentOf(art);
    QVERIFY(set(art, {{key, value}}));
    QCOMPARE(attributesOf(art).value(key), value);
    QVERIFY(hasNewPaths(art));
    QCOMPARE(art.updates, 1);
    QCOMPARE(art.cacheReasons, QVector<int>({2}));
    QCOMPARE(art.m_pathsVertical, key == QLatin1String("font_somehow"));
}

void TestArtTextAttributes::sameValueChangesNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("changes"); // what is only stored counts as a change
    for (const char *key :
         {"font_family", "font_bold", "font_italic", "shape", "text", "font_somehow"})
        QTest::newRow(key) << QString::fromLatin1(key) << false;
    for (const char *key :
         {"defaultword", "font_letterspacing", "font_rowspacing", "transparent", "textalignment"})
        QTest::newRow(key) << QString::fromLatin1(key) << true;
}

void TestArtTextAttributes::sameValueChangesNothing()
{
    QFETCH(QString, key);
    QFETCH(bool, changes);
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    contentOf(art);
    QCOMPARE(set(art, {{key, attributesOf(art).value(key)}}), changes);
    QCOMPARE(art.updates, 1);
    QCOMPARE(hasNewPaths(art), changes);
    QCOMPARE(art.cacheReasons.size(), changes ? 1 : 0);
}

void TestArtTextAttributes::colorsRepaintOnly()
{
    RecordingHost host;
    OpenArtObject art(&host);
    art.textCursor().insertText(QStringLiteral("a"));
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    contentOf(art);
    QVERIFY(set(art, one("color", QColor(Qt::blue))));
    QCOMPARE(art.m_colorPen, QColor(Qt::blue));
    QCOMPARE(art.m_artText->GetColor(), QColor(Qt::blue));
    QCOMPARE(firstFormat(art).foreground(), QBrush(Qt::blue));
    QVERIFY(set(art, one("fillcolor", QColor(Qt::green))));
    QCOMPARE(art.m_colorFill, QColor(Qt::green));
    QCOMPARE(art.m_artText->GetColor(), QColor(Qt::blue));
    QCOMPARE(firstFormat(art).foreground(), QBrush(Qt::green));
    QCOMPARE(art.updates, 1);
    QVERIFY(!hasNewPaths(art));
    QVERIFY(host.eventsWithKey(QStringLiteral("arttext_prop")).isEmpty());
}

void TestArtTextAttributes::oneShadowOffsetIsNoOffset()
{
    OpenArtObject art;
    QVERIFY(!set(art, one("shadow_offsetX", 3)));
    QVERIFY(!set(art, one("shadow_offsetY", 4)));
    QCOMPARE(QPoint(art.m_shadowOffsetX, art.m_shadowOffsetY), QPoint(0, 0));
    QVERIFY(set(art, {{QStringLiteral("shadow_offsetX"), 3},
                      {QStringLiteral("shadow_offsetY"), 4},
                      {QStringLiteral("shadow"), true},
                      {QStringLiteral("shadow_color"), QColor(Qt::green)}}));
    QCOMPARE(QPoint(art.m_shadowOffsetX, art.m_shadowOffsetY), QPoint(3, 4));
    QVERIFY(art.m_isShadow);
    QCOMPARE(art.m_colorShadow, QColor(Qt::green));
}

void TestArtTextAttributes::absoluteOffsetsAreNotTaken()
{
    OpenArtObject art;
    QVERIFY(!set(art, {{QStringLiteral("shadow_absoffsetX"), 1.5},
                       {QStringLiteral("shadow_absoffsetY"), 2.5}}));
    QCOMPARE(art.m_shadowAbsOffsetX, 0.0);
    QCOMPARE(art.m_shadowAbsOffsetY, 0.0);
}

void TestArtTextAttributes::pointSizeOfZeroChangesNothing()
{
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    contentOf(art);
    const QFont font = art.m_font;
    for (double size : {0.0, -3.0, qQNaN(), qInf()}) {
        QVERIFY(!set(art, one("font_pointsize", size)));
        QCOMPARE(art.m_font, font);
        QCOMPARE(art.getSize(), QSizeF(50, 50));
        QVERIFY(!hasNewPaths(art));
    }
}

void TestArtTextAttributes::pointSizeSetsItemAndBox()
{
    OpenArtObject art;
    art.m_font = QFont(loadBoxTestFont(), 12);
    art.show(QStringLiteral("aaaa"), QSizeF(50, 50));
    art.setPos(QPointF(7, 8), false);
    QVERIFY(set(art, one("font_pointsize", 24.9)));
    QCOMPARE(art.m_font.pointSize(), 24);
    QCOMPARE(art.document()->defaultFont().pointSize(), 24);
    QCOMPARE(art.font().pointSize(), 24);
    const int width = QFontMetrics(art.m_font).boundingRect(QStringLiteral("aaaa")).width();
    QCOMPARE(art.document()->textWidth(), double(width + 1));
    QCOMPARE(art.mapRectToScene(art.m_clientRect),
             QRectF(7, 8, width + 1, art.document()->size().height()));
    QCOMPARE(art.m_fontSize, 12); // the outlines keep their size
}

void TestArtTextAttributes::pointSizeInColumnsSwapsTheSides()
{
    OpenArtObject art;
    art.m_font = QFont(loadBoxTestFont(), 12);
    art.m_fontSomehow = true;
    art.show(QStringLiteral("aaaa"), QSizeF(50, 50));
    set(art, one("font_pointsize", 24));
    const int width = QFontMetrics(art.m_font).boundingRect(QStringLiteral("aaaa")).width();
    QCOMPARE(art.getSize(), QSizeF(art.document()->size().height(), width + 1));
}

void TestArtTextAttributes::pointSizeTakesTheDefaultWordOfAnEmptyText()
{
    OpenArtObject art;
    art.m_font = QFont(loadBoxTestFont(), 12);
    art.m_defaultWord = QStringLiteral("aaaaaaaa");
    set(art, one("font_pointsize", 24));
    const int width = QFontMetrics(art.m_font).boundingRect(QStringLiteral("aaaaaaaa")).width();
    QVERIFY(width > 100);
    QCOMPARE(art.document()->textWidth(), double(width + 1));
}

void TestArtTextAttributes::numbersThatAreNotFiniteReadAsZero()
{
    OpenArtObject art;
    for (const QVariant &value :
         {QVariant(qQNaN()), QVariant(qInf()), QVariant(QStringLiteral("inf")),
          QVariant(QStringLiteral("nan"))}) {
        art.m_letterSpacing = art.m_rowSpacing = 5;
        set(art, {{QStringLiteral("font_letterspacing"), value},
                  {QStringLiteral("font_rowspacing"), value}});
        QCOMPARE(art.m_letterSpacing, 0.0);
        QCOMPARE(art.m_rowSpacing, 0.0);
    }
}

void TestArtTextAttributes::emptyStringLeavesANumberAlone_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"font_letterspacing", "font_rowspacing", "shape", "shadow_offsetX",
                            "shadow_offsetY", "transparent", "textalignment", "font_pointsize"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void TestArtTextAttributes::emptyStringLeavesANumberAlone()
{
    QFETCH(QString, key);
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    art.m_letterSpacing = 1.5;
    art.m_rowSpacing = 2.5;
    art.m_shadowOffsetX = 3;
    art.m_shadowOffsetY = 4;
    art.m_transparent = 7;
    AttributeMap map{{QStringLiteral("shadow_offsetX"), 5}, {QStringLiteral("shadow_offsetY"), 6}};
    if (!key.startsWith(QLatin1String("shadow"))) // both offsets come, or neither counts
        map.clear();
    map.insert(key, QString());
    const AttributeMap before = attributesOf(art);
    QVERIFY(!set(art, map));
    QCOMPARE(attributesOf(art), before);
    QCOMPARE(art.getSize(), QSizeF(50, 50));
}

void TestArtTextAttributes::unknownKeysAnswerFalse()
{
    OpenArtObject art;
    QVERIFY(!set(art, {}));
    QVERIFY(!set(art, one("font_Somehow", true))); // the word of records
    QVERIFY(!set(art, one("text_alignment", 2)));
    QCOMPARE(art.updates, 1);
    QVERIFY(!art.m_fontSomehow);
}

void TestArtTextAttributes::penColorDoesNotShowInTheOutlines()
{
    OpenArtObject art;
    art.show(QStringLiteral("a"), QSizeF(50, 50));
    art.setMyPen(QPen(Qt::NoPen));
    const QImage before = contentOf(art);
    set(art, {{QStringLiteral("color"), QColor(Qt::green)},
              {QStringLiteral("fillcolor"), QColor(Qt::green)}});
    QCOMPARE(contentOf(art), before);
}

void TestArtTextAttributes::changeIsToldToTheListener()
{
    RecordingHost host;
    OpenArtObject art(&host);
    QVERIFY(set(art, one("text", QStringLiteral("abc"))));
    const auto events = host.eventsWithKey(QStringLiteral("arttext_prop"));
    QCOMPARE(events.size(), 1);
    QCOMPARE(events.first().object, static_cast<CVXRootObject *>(&art));
    QCOMPARE(events.first().values, attributesOf(art));
    QCOMPARE(events.first().values.value(QStringLiteral("text")), QVariant(QStringLiteral("abc")));
    set(art, one("text", QStringLiteral("abc"))); // no change
    QCOMPARE(host.eventsWithKey(QStringLiteral("arttext_prop")).size(), 1);
}

void TestArtTextAttributes::withoutListenerTheAnswerIsTheSame()
{
    RecordingHost host;
    host.sinkOn = false;
    OpenArtObject art(&host);
    QVERIFY(set(art, one("text", QStringLiteral("abc"))));
    QVERIFY(host.eventsWithKey(QStringLiteral("arttext_prop")).isEmpty());
    SetFramework(nullptr);
    QVERIFY(set(art, one("text", QStringLiteral("ab"))));
    SetFramework(&host);
}

void TestArtTextAttributes::listenerThatAnswersComesToAnEnd()
{
    AnsweringHost host;
    OpenArtObject art(&host);
    host.answers = &art;
    QVERIFY(set(art, one("transparent", 1)));
    QCOMPARE(host.eventsWithKey(QStringLiteral("arttext_prop")).size(), 3);
}

void TestArtTextAttributes::listenerMayReleaseTheObject()
{
    AnsweringHost host;
    host.releases = true;
    QPointer<OpenArtObject> art(new OpenArtObject(&host));
    QVERIFY(art->setAllAttributes(one("transparent", 1), false));
    QVERIFY(!art);
}

QTEST_MAIN(TestArtTextAttributes)
#include "tst_arttextattributes.moc"
