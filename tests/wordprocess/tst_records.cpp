// SPDX-License-Identifier: MIT
// Records and the first text of an object: what is kept, and what the host is told.
#include "openword.h"

#include <QTest>

class TestRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void savedAndLoadedPaintsTheSame_data();
    void savedAndLoadedPaintsTheSame();
    void savingEndsTheEdit();
    void tailIsConsumed();
    void growingBoxIsNotRestored();
    void firstTextMakesAFinishedObject();
    void firstTextTakesPlainTextOfRichText();
    void notificationsOfEachKind();
    void attributesAreSentWhole();
};

void TestRecords::savedAndLoadedPaintsTheSame_data()
{
    QTest::addColumn<bool>("json");
    QTest::addColumn<double>("stretch");
    QTest::newRow("stream") << false << 1.0;
    QTest::newRow("JSON") << true << 1.0;
    QTest::newRow("stream, stretched") << false << 2.0;
    QTest::newRow("JSON, stretched") << true << 2.0;
}

void TestRecords::savedAndLoadedPaintsTheSame()
{
    QFETCH(bool, json);
    QFETCH(double, stretch);
    RecordingHost host;
    OpenWord word(&host);
    word.setPos(QPointF(40, 30), false);
    word.add(QStringLiteral("abc"));
    word.setSize(word.getSize() * stretch, false, true);
    OpenWord other(&host);
    if (json) {
        QJsonObject record;
        QVERIFY(word.saveJson(record));
        QVERIFY(other.loadJson(record));
        QCOMPARE(record.value(QLatin1String("TextContent")), QJsonValue(QString()));
        QCOMPARE(record.value(QLatin1String("TextDPI")).toInt(), 96);
    } else {
        QByteArray record;
        QDataStream out(&record, QIODevice::WriteOnly);
        QVERIFY(word.save(out));
        QDataStream in(record);
        QVERIFY(other.load(in));
    }
    QCOMPARE(other.m_clientRect, word.m_clientRect);
    QCOMPARE(other.getPos(), word.getPos());
    const QImage picture = contentOf(word);
    QVERIFY(!inkOf(picture).isNull());
    QCOMPARE(contentOf(other), picture);
    QVERIFY(other.m_created);
}

void TestRecords::savingEndsTheEdit()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.beginEdit();
    word.select(1, 3);
    QJsonObject record;
    word.saveJson(record);
    QVERIFY(!word.m_editing);
    const QJsonObject header = jsonOf(
        word.m_saveParams.value(QStringLiteral("document_data")).toString());
    QCOMPARE(header.value(QLatin1String("selection_start")),
             header.value(QLatin1String("selection_end")));
}

void TestRecords::tailIsConsumed()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    QByteArray record;
    QDataStream out(&record, QIODevice::WriteOnly);
    word.save(out);
    out << 4711;
    QDataStream in(record);
    OpenWord other(&host);
    other.load(in);
    int next = 0;
    in >> next;
    QCOMPARE(next, 4711);
}

void TestRecords::growingBoxIsNotRestored()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_wordWrap = true;
    word.m_autoWordWrap = true;
    word.m_wordManager->setWordWrap(true);
    QJsonObject record;
    word.saveJson(record);
    OpenWord other(&host);
    other.loadJson(record);
    QVERIFY(other.m_wordWrap);
    QVERIFY(!other.m_autoWordWrap);
}

void TestRecords::firstTextMakesAFinishedObject()
{
    RecordingHost host;
    host.localStrings[QStringLiteral("IDS_TEXT_DEFAULT_INPUTWORD")] = QStringLiteral("Type here");
    OpenWord word(&host);
    word.m_created = false;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QStringLiteral("first\nwords");
    QDataStream in(bytes);
    QVERIFY(word.SetSpecialProperty(106, in, false));
    QCOMPARE(word.toPlainText(), QStringLiteral("first\nwords"));
    QVERIFY(word.m_created);
    QCOMPARE(word.m_defaultWord, QStringLiteral("Type here"));
    QCOMPARE(int(word.m_textInteractionFlags), 0);
    QVERIFY(sizeHandlesAre(word, false));
    QVERIFY(!word.isHandleDisabled(CObjAction::ACT_Rotate));
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    const QTextBlock block = word.m_document->firstBlock();
    QCOMPARE(block.blockFormat().property(QTextFormat::BlockLeftMargin), QVariant(0.0));
    const QTextCharFormat format = block.begin().fragment().charFormat();
    QCOMPARE(format.foreground(), QBrush(Qt::black, Qt::SolidPattern));
    QCOMPARE(format.fontFamily(), host.defaultFontFamily);
    QCOMPARE(format.fontPointSize(), 16.0);
    QCOMPARE(format.property(TextProperty::RowSpacing), QVariant(0));
    QVERIFY(!word.m_textPaths.isEmpty());
}

void TestRecords::firstTextTakesPlainTextOfRichText()
{
    RecordingHost host;
    OpenWord word(&host);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QStringLiteral("<p>a <b>bold</b> word</p>");
    QDataStream in(bytes);
    word.SetSpecialProperty(106, in, false);
    QCOMPARE(word.toPlainText(), QStringLiteral("a bold word"));
    QCOMPARE(word.m_defaultWord, QStringLiteral("Please input text"));
}

void TestRecords::notificationsOfEachKind()
{
    RecordingHost host;
    OpenWord word(&host);
    const QString sub = QStringLiteral("sub_operator");
    const QString horizontal = QStringLiteral("horizontal");
    const auto sent = [&](int kind, const AttributeMap &map = AttributeMap()) {
        host.clearEvents();
        word.notifyTextOperation(EnumTextOperation(kind), map);
        return host.events.isEmpty() ? AttributeMap() : host.events.last().values;
    };
    QVERIFY(sent(1).isEmpty());
    word.m_missingFonts = QStringList(QStringLiteral("F"));
    QCOMPARE(sent(1), (AttributeMap{{sub, 1}, {QStringLiteral("familys"), word.m_missingFonts}}));
    QCOMPARE(sent(2), (AttributeMap{{sub, 2}, {horizontal, true}}));
    QCOMPARE(sent(3), (AttributeMap{{sub, 3}, {QStringLiteral("editflag"), false}}));
    for (int kind : {4, 5}) {
        word.m_textOrientation = 2;
        const AttributeMap hover{{sub, kind}, {horizontal, false}};
        host.currentTool = 0;
        QVERIFY(sent(kind).isEmpty());
        host.currentTool = 91;
        QVERIFY(sent(kind).isEmpty());
        word.m_editing = true;
        QCOMPARE(sent(kind), hover);
        word.m_editing = false;
        host.currentTool = 300;
        QCOMPARE(sent(kind), hover);
    }
    const AttributeMap map{{QStringLiteral("k"), 5}};
    QVERIFY(sent(6).isEmpty());
    QVERIFY(sent(7).isEmpty());
    QCOMPARE(sent(6, map), (AttributeMap{{sub, 6}, {QStringLiteral("k"), 5}}));
    QCOMPARE(sent(7, map), (AttributeMap{{sub, 7}, {QStringLiteral("k"), 5}, {horizontal, false}}));
}

void TestRecords::attributesAreSentWhole()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abc"));
    word.m_warpValue = 0.25;
    AttributeMap expected;
    QVERIFY(word.getAllAttributes(expected));
    QCOMPARE(expected.value(QStringLiteral("text")), QVariant(QStringLiteral("abc")));
    QCOMPARE(expected.value(QStringLiteral("warp_value")), QVariant(25));
    expected[QStringLiteral("sub_operator")] = 0;
    word.notifyTextOperation(TextOperationAttributes, {});
    QCOMPARE(host.events.last().values, expected);
    QCOMPARE(host.events.last().key, QStringLiteral("text_operation"));
}

QTEST_MAIN(TestRecords)
#include "tst_records.moc"
