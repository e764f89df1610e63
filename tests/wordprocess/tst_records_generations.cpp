// SPDX-License-Identifier: MIT
// Records of the three generations in both forms: what is read from each, and what is written again.
#include "handrecord.h"

#include <QTest>

#include <algorithm>

class TestRecordGenerations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void fixedPoint_data();
    void fixedPoint();
    void olderRecordsStayOnTheOlderEngine_data();
    void olderRecordsStayOnTheOlderEngine();
    void newVersionFalseIsTheOlderEngine();
    void htmlKeepsTextAndFormats();
    void htmlAlignmentsArePlain();
    void htmlOpensNoFile();
    void htmlReplacesWhatTheObjectHad();
    void htmlCountsOnlyWithoutADocumentString();
    void sizesFollowTheResolution_data();
    void sizesFollowTheResolution();
    void resolutionIsThatOfThePresentDocument();
    void keysOfTheMapAreTakenWhenPresent();
    void streamEndsWithAnEmptyString();
    void olderPictureBehindTheTextIsConsumed();
    void keysOfLineText();
    void boundsOfStretchedLineText();
    void boundsOfBoxText();
    void warpIsWrittenAsPercentAndReadFromTheDocument();
    void valuesOfAnEarlierLoadStay();
    void noPictureWithoutADocument();
    void noPictureOfAnObjectWithoutArea();
    void savingEndsTheComposition();
};

namespace {
const auto k = [](const char *key) { return QString::fromLatin1(key); };

HandRecord middleRecord()
{
    HandRecord record;
    record.params = {{k("TextOrientation"), 1},
                     {k("text_wordwrap"), false},
                     {k("document_data"), documentStringOf(QStringLiteral("middle"))},
                     {k("document_dpi"), 96}};
    record.size = QSizeF(51, 8); // ink of 46 by 8, and 5 behind it
    return record;
}

HandRecord oldestRecord(const QString &html = QStringLiteral("<p>first</p><p>second</p>"))
{
    HandRecord record;
    record.params = {{k("TextOrientation"), 1}, {k("text_wordwrap"), true}};
    record.html = html;
    return record;
}

HandRecord currentRecord(bool box)
{
    HandRecord record = middleRecord();
    record.params[k("document_data")] =
        documentStringOf(QStringLiteral("some words"), loadBoxTestFont(),
                         QStringLiteral(
                             ",\"text_wordwrap\":%1,\"text_auto_wordwrap\":true,\"is_flip\":false,"
                             "\"is_mirror\":false,\"transform_xx\":1,\"transform_yy\":1")
                             .arg(box ? k("true") : k("false")));
    record.params[k("new_version")] = true;
    record.params[k("text_wordwrap")] = box;
    record.size = box ? QSizeF(48, 32) : QSizeF(80, 16);
    for (const char *key : {"transform_xx", "transform_yy"})
        record.params[k(key)] = 1.0;
    for (const char *key : {"transform_xy", "transform_yx", "boundingBox_left", "boundingBox_top",
                            "boxBounds_left", "boxBounds_top"})
        record.params[k(key)] = 0;
    record.params[k("transform_tx")] = 40.0;
    record.params[k("transform_ty")] = box ? 30.0 : 42.0;
    for (const char *key : {"boxBounds_right", "boundingBox_right"})
        record.params[k(key)] = record.size.width();
    for (const char *key : {"boxBounds_bottom", "boundingBox_bottom"})
        record.params[k(key)] = record.size.height();
    return record;
}

/// The parameters that an object writes.
AttributeMap writtenBy(OpenWord &word)
{
    recordOf(word, Form::Stream);
    return word.m_saveParams;
}

QTextCharFormat formatAt(const OpenWord &word, int position)
{
    QTextCursor cursor(word.m_document);
    cursor.setPosition(position + 1);
    return cursor.charFormat();
}
} // namespace

void TestRecordGenerations::fixedPoint_data()
{
    QTest::addColumn<HandRecord>("record");
    QTest::newRow("current, line") << currentRecord(false);
    QTest::newRow("current, box") << currentRecord(true);
    HandRecord turned = currentRecord(true);
    turned.rotation = 90;
    turned.params[k("transform_xx")] = turned.params[k("transform_yy")] = 0.0;
    turned.params[k("transform_xy")] = 1.0;
    turned.params[k("transform_yx")] = -1.0;
    QTest::newRow("current, box, turned") << turned;
    HandRecord column = currentRecord(false);
    column.params[k("TextOrientation")] = 2;
    column.size = QSizeF(16, 80);
    QTest::newRow("current, columns") << column;
    QTest::newRow("middle") << middleRecord();
    QTest::newRow("oldest") << oldestRecord();
    QTest::newRow("oldest, formats") << oldestRecord(QStringLiteral(
        "<p align=\"right\" style=\"margin-left:20px\"><span style=\"font-size:9pt;color:#123456;"
        "font-family:'BoxTest'\">a<u>b</u></span></p><p><br/></p><p><i>c</i></p>"));
}
Q_DECLARE_METATYPE(HandRecord)

/// What is written from the second loading on is written for good, and paints the same. The first one still
/// puts numbers in the place of values that the record did not have.
void TestRecordGenerations::fixedPoint()
{
    QFETCH(HandRecord, record);
    for (Form form : {Form::Stream, Form::Json}) {
        RecordingHost host;
        OpenWord first(&host);
        QVERIFY(record.load(first, form));
        const QString text = first.toPlainText();
        QCOMPARE(first.getSize(), record.size);
        const QImage picture = contentOf(first);
        QByteArray written = recordOf(first, form);
        for (int i = 0; i < 4; ++i) {
            OpenWord word(&host);
            QVERIFY(loadRecord(word, written, form));
            QCOMPARE(word.toPlainText(), text);
            QCOMPARE(word.getSize(), record.size);
            QVERIFY(isNear(word.getPos(), first.getPos()));
            QCOMPARE(contentOf(word), picture);
            const QByteArray again = recordOf(word, form);
            if (i > 0)
                QCOMPARE(again, written);
            written = again;
        }
    }
}

void TestRecordGenerations::olderRecordsStayOnTheOlderEngine_data()
{
    QTest::addColumn<HandRecord>("record");
    QTest::newRow("middle") << middleRecord();
    QTest::newRow("oldest") << oldestRecord();
}

void TestRecordGenerations::olderRecordsStayOnTheOlderEngine()
{
    QFETCH(HandRecord, record);
    for (Form form : {Form::Stream, Form::Json}) {
        RecordingHost host;
        OpenWord word(&host);
        QVERIFY(word.m_newVersion);
        QVERIFY(record.load(word, form));
        QVERIFY(!word.m_newVersion);
        const AttributeMap written = writtenBy(word);
        QCOMPARE(written.value(k("new_version")), QVariant(false));
        QVERIFY(written.contains(k("document_data")));
        for (const char *key : {"transform_xx", "transform_tx", "boxBounds_left",
                                "boundingBox_right", "warp_style", "warp_oriention"})
            QVERIFY2(!written.contains(k(key)), key);
        OpenWord again(&host);
        QVERIFY(loadRecord(again, recordOf(word, form), form));
        QVERIFY(!again.m_newVersion); // though the key is there now
        QCOMPARE(again.toPlainText(), word.toPlainText());
    }
}

void TestRecordGenerations::newVersionFalseIsTheOlderEngine()
{
    RecordingHost host;
    HandRecord record = currentRecord(false);
    record.params[k("new_version")] = false;
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QVERIFY(!word.m_newVersion);
    QCOMPARE(word.m_fontImageClient, QRectF()); // placement is not looked at
}

void TestRecordGenerations::htmlKeepsTextAndFormats()
{
    const QString html = QStringLiteral(
        "<p align=\"center\"><span style=\"font-family:'BoxTest';font-size:12pt;color:#ff0000\">ab"
        "</span><b>cd</b></p><p style=\"margin-left:16px\"><i>ef</i><u>gh</u>&amp;</p>");
    for (Form form : {Form::Stream, Form::Json}) {
        RecordingHost host;
        OpenWord word(&host);
        QVERIFY(oldestRecord(html).load(word, form));
        QCOMPARE(word.toPlainText(), QStringLiteral("abcd\nefgh&"));
        QCOMPARE(formatAt(word, 0).fontFamily(), QStringLiteral("BoxTest"));
        QCOMPARE(formatAt(word, 0).fontPointSize(), 12.0);
        QCOMPARE(formatAt(word, 0).foreground().color(), QColor(255, 0, 0));
        QVERIFY(formatAt(word, 2).fontWeight() > QFont::Normal);
        QVERIFY(formatAt(word, 5).fontItalic());
        QVERIFY(formatAt(word, 7).fontUnderline());
        QVERIFY(!formatAt(word, 0).fontUnderline());
        QVERIFY(!word.m_autoWordWrap);
        OpenWord again(&host);
        QVERIFY(loadRecord(again, recordOf(word, form), form));
        QCOMPARE(again.toPlainText(), word.toPlainText());
        QCOMPARE(formatAt(again, 0).foreground().color(), QColor(255, 0, 0));
        QVERIFY(formatAt(again, 5).fontItalic());
    }
}

void TestRecordGenerations::htmlAlignmentsArePlain()
{
    const std::pair<QString, int> alignments[] = {{QStringLiteral("left"), 1},
                                                  {QStringLiteral("right"), 2},
                                                  {QStringLiteral("center"), 4},
                                                  {QStringLiteral("justify"), 8},
                                                  {QString(), 1}};
    for (const auto &alignment : alignments) {
        RecordingHost host;
        OpenWord word(&host);
        const QString html = QStringLiteral("<p align=\"%1\">a</p>").arg(alignment.first);
        QVERIFY(oldestRecord(html).load(word, Form::Stream));
        const QTextBlockFormat format = word.m_document->firstBlock().blockFormat();
        QCOMPARE(format.property(TextProperty::Alignment), QVariant(alignment.second));
    }
}

void TestRecordGenerations::htmlOpensNoFile()
{
    RecordingHost host;
    OpenWord word(&host);
    const QString html = QStringLiteral("<p>a<img src=\"/etc/passwd\" width=\"9999\">b</p>");
    QVERIFY(oldestRecord(html).load(word, Form::Stream));
    QVERIFY(word.toPlainText().startsWith(QLatin1Char('a')));
    QVERIFY(word.toPlainText().endsWith(QLatin1Char('b')));
    contentOf(word);
}

void TestRecordGenerations::htmlReplacesWhatTheObjectHad()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("former"));
    QVERIFY(oldestRecord().load(word, Form::Stream));
    QCOMPARE(word.toPlainText(), QStringLiteral("first\nsecond"));
}

void TestRecordGenerations::htmlCountsOnlyWithoutADocumentString()
{
    RecordingHost host;
    HandRecord record = middleRecord();
    record.html = QStringLiteral("<p>other</p>");
    for (Form form : {Form::Stream, Form::Json}) {
        OpenWord word(&host);
        QVERIFY(record.load(word, form));
        QCOMPARE(word.toPlainText(), QStringLiteral("middle"));
    }
}

void TestRecordGenerations::sizesFollowTheResolution_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("present");
    QTest::addColumn<double>("points");
    QTest::newRow("96 into 72") << QVariant(96) << 72 << 16.0;
    QTest::newRow("72 into 96") << QVariant(72) << 96 << 9.0;
    QTest::newRow("equal") << QVariant(72) << 72 << 12.0;
    QTest::newRow("absent") << QVariant() << 72 << 12.0;
    QTest::newRow("as text") << QVariant(k("96")) << 72 << 16.0;
    QTest::newRow("none that a document has") << QVariant(0) << 72 << 12.0;
}

void TestRecordGenerations::sizesFollowTheResolution()
{
    QFETCH(QVariant, stored);
    QFETCH(int, present);
    QFETCH(double, points);
    for (Form form : {Form::Stream, Form::Json}) {
        RecordingHost host(present);
        HandRecord record = middleRecord();
        if (stored.isValid())
            record.params[k("document_dpi")] = stored;
        else
            record.params.remove(k("document_dpi"));
        OpenWord word(&host);
        QVERIFY(record.load(word, form));
        QCOMPARE(formatAt(word, 0).fontPointSize(), points);
        QCOMPARE(writtenBy(word).value(k("document_dpi")), QVariant(present));
        OpenWord again(&host); // written with the present resolution: rescaled once only
        QVERIFY(loadRecord(again, recordOf(word, form), form));
        QCOMPARE(formatAt(again, 0).fontPointSize(), points);
    }
}

void TestRecordGenerations::resolutionIsThatOfThePresentDocument()
{
    RecordingHost host(120);
    OpenWord word; // without a page at first
    QCOMPARE(word.m_documentDpi, 96);
    word.setBelongPage(&host);
    QVERIFY(middleRecord().load(word, Form::Stream));
    QCOMPARE(word.m_documentDpi, 120);
    QCOMPARE(formatAt(word, 0).fontPointSize(), 9.6); // 12 points of 96 are 16 px of 120
}

void TestRecordGenerations::keysOfTheMapAreTakenWhenPresent()
{
    RecordingHost host;
    HandRecord record = middleRecord();
    record.params[k("TextOrientation")] = 2;
    record.params[k("text_defaultword")] = QStringLiteral("write here");
    record.params[k("text_defaultfollow")] = true;
    record.params[k("text_wordwrap")] = true;
    for (Form form : {Form::Stream, Form::Json}) {
        OpenWord word(&host);
        QVERIFY(record.load(word, form));
        QCOMPARE(word.m_textOrientation, 2);
        QCOMPARE(word.m_defaultWord, QStringLiteral("write here"));
        QVERIFY(word.m_defaultFollow);
        QVERIFY(word.m_wordWrap);
    }
    record.params = {{k("document_data"), documentStringOf(QStringLiteral("a"))}};
    OpenWord word(&host);
    word.m_textOrientation = 2;
    word.m_defaultWord = QStringLiteral("mine");
    word.m_defaultFollow = true;
    QVERIFY(record.load(word, Form::Stream));
    QCOMPARE(word.m_textOrientation, 2);
    QCOMPARE(word.m_defaultWord, QStringLiteral("mine"));
    QVERIFY(word.m_defaultFollow);
}

void TestRecordGenerations::streamEndsWithAnEmptyString()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    const QByteArray bytes = recordOf(word, Form::Stream);
    QByteArray base;
    QDataStream out(&base, QIODevice::WriteOnly);
    word.CBaseObject::save(out);
    QCOMPARE(bytes.size(), base.size() + 4);
    QDataStream tail(bytes.mid(base.size()));
    QString text = QStringLiteral("not read");
    tail >> text;
    QVERIFY(text.isEmpty() && tail.atEnd());
}

void TestRecordGenerations::olderPictureBehindTheTextIsConsumed()
{
    RecordingHost host;
    HandRecord record = oldestRecord();
    record.params[k("has_img")] = true;
    record.picture = QImage(5, 4, QImage::Format_ARGB32_Premultiplied);
    record.picture.fill(Qt::green);
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream)); // up to the end of the stream
    QCOMPARE(word.m_fontImageSize, QSizeF(5, 4));
    QVERIFY(host.imageByName(k("old.png")));
    QVERIFY(!word.m_showFontImage); // HTML names no fonts that could be missing
}

void TestRecordGenerations::keysOfLineText()
{
    RecordingHost host;
    OpenWord word(&host);
    word.setPos(QPointF(40, 30), false);
    word.add(QStringLiteral("abc")); // 24 x 16, baseline at y = 30
    AttributeMap written = writtenBy(word);
    QVERIFY(host.imageByName(written.take(k("font_imgage")).toString()));
    QCOMPARE(written.take(k("document_data")).toString(), word.serialize(false));
    AttributeMap expected{{k("TextOrientation"), 1},
                          {k("text_defaultword"), QString()},
                          {k("text_defaultfollow"), false},
                          {k("text_wordwrap"), false},
                          {k("document_dpi"), 96},
                          {k("new_version"), true},
                          {k("warp_style"), 0},
                          {k("warp_value"), 0},
                          {k("warp_horizontal_value"), 0},
                          {k("warp_vertical_value"), 0},
                          {k("warp_oriention"), 1}};
    const std::pair<const char *, double> reals[] = {{"transform_xx", 1},
                                                     {"transform_yy", 1},
                                                     {"transform_xy", 0},
                                                     {"transform_yx", 0},
                                                     {"transform_tx", 40},
                                                     {"transform_ty", 30},
                                                     {"boxBounds_left", 0},
                                                     {"boxBounds_top", 0},
                                                     {"boxBounds_right", 24},
                                                     {"boxBounds_bottom", 16},
                                                     {"boundingBox_left", 0},
                                                     {"boundingBox_top", 0},
                                                     {"boundingBox_right", 24},
                                                     {"boundingBox_bottom", 16},
                                                     {"img_x", 40},
                                                     {"img_y", 18}};
    for (const auto &real : reals)
        expected[k(real.first)] = real.second;
    QCOMPARE(written.keys(), expected.keys());
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        QVERIFY2(written.value(it.key()) == it.value(), qPrintable(it.key()));
        QVERIFY2(written.value(it.key()).userType() == it->userType(), qPrintable(it.key()));
    }
}

void TestRecordGenerations::boundsOfStretchedLineText()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abc"));
    word.setSize(QSizeF(48, 48), false, true); // twice and three times
    const AttributeMap written = writtenBy(word);
    QCOMPARE(written.value(k("transform_xx")).toDouble(), 2.0);
    QCOMPARE(written.value(k("transform_yy")).toDouble(), 3.0);
    QCOMPARE(written.value(k("boxBounds_right")).toDouble(), 24.0);
    QCOMPARE(written.value(k("boundingBox_bottom")).toDouble(), 16.0);
}

void TestRecordGenerations::boundsOfBoxText()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_wordWrap = true;
    word.m_textPathsRect = QRectF(0, 0, 100, 50);
    word.m_boundsMargins.left = -2;
    word.m_boundsMargins.top = -3;
    word.m_boundsMargins.right = 4;
    word.m_boundsMargins.bottom = 5;
    word.m_transformScaleX = 2;
    word.m_transformScaleY = 4;
    const AttributeMap written = writtenBy(word);
    QCOMPARE(written.value(k("boxBounds_left")), QVariant(0));
    QCOMPARE(written.value(k("boxBounds_left")).userType(), int(QMetaType::Int));
    QCOMPARE(written.value(k("boxBounds_top")).userType(), int(QMetaType::Int));
    QCOMPARE(written.value(k("boxBounds_right")).toDouble(), 47.0);  // (100 - 2 - 4) / 2
    QCOMPARE(written.value(k("boxBounds_bottom")).toDouble(), 10.5); // (50 - 3 - 5) / 4
    QCOMPARE(written.value(k("boundingBox_left")).toDouble(), -1.0);
    QCOMPARE(written.value(k("boundingBox_top")).toDouble(), -0.75);
    QCOMPARE(written.value(k("boundingBox_right")).toDouble(), 49.0);   // (100 - 2) / 2
    QCOMPARE(written.value(k("boundingBox_bottom")).toDouble(), 11.75); // (50 - 3) / 4
}

void TestRecordGenerations::warpIsWrittenAsPercentAndReadFromTheDocument()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_warpStyle = 3;
    word.m_warpValue = 0.125;
    word.m_warpHorizontalValue = -0.12;
    word.m_warpVerticalValue = 1;
    word.m_warpOrientation = 2;
    const AttributeMap written = writtenBy(word);
    QCOMPARE(written.value(k("warp_style")), QVariant(3));
    QCOMPARE(written.value(k("warp_value")), QVariant(13));
    QCOMPARE(written.value(k("warp_horizontal_value")), QVariant(-12));
    QCOMPARE(written.value(k("warp_vertical_value")), QVariant(100));
    QCOMPARE(written.value(k("warp_oriention")), QVariant(2));
    HandRecord record = currentRecord(false);
    record.params[k("warp_style")] = 5;
    record.params[k("warp_value")] = 50;
    OpenWord other(&host);
    QVERIFY(record.load(other, Form::Stream)); // its document says nothing of a warp
    QCOMPARE(other.m_warpStyle, 0);
    QCOMPARE(other.m_warpValue, 0.0);
}

void TestRecordGenerations::valuesOfAnEarlierLoadStay()
{
    RecordingHost host;
    HandRecord record = middleRecord();
    record.params[k("transform_xx")] = 7.5;
    record.params[k("unknown key")] = QStringLiteral("kept");
    record.params[k("has_img")] = true;
    OpenWord word(&host);
    record.picture = QImage(2, 2, QImage::Format_ARGB32_Premultiplied);
    record.picture.fill(Qt::red);
    QVERIFY(record.load(word, Form::Stream));
    const AttributeMap written = writtenBy(word);
    QCOMPARE(written.value(k("transform_xx")), QVariant(7.5));
    QCOMPARE(written.value(k("unknown key")), QVariant(k("kept")));
    QVERIFY(!written.contains(k("has_img")));
}

void TestRecordGenerations::noPictureWithoutADocument()
{
    RecordingHost host;
    host.documentOn = false;
    OpenWord word(&host);
    word.add(QStringLiteral("abc"));
    QVERIFY(!writtenBy(word).contains(k("font_imgage")));
    QVERIFY(!writtenBy(word).contains(k("img_x")));
    word.m_saveParams[k("font_imgage")] = QStringLiteral("former");
    word.m_saveParams[k("img_x")] = 5.5;
    QCOMPARE(writtenBy(word).value(k("font_imgage")), QVariant(k("former")));
    QCOMPARE(writtenBy(word).value(k("img_x")), QVariant(5.5));
}

void TestRecordGenerations::noPictureOfAnObjectWithoutArea()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_clientRect = QRectF();
    QVERIFY(!writtenBy(word).contains(k("font_imgage")));
    QVERIFY(host.imageNames().isEmpty());
}

void TestRecordGenerations::savingEndsTheComposition()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    word.m_cursor->insertText(QStringLiteral("ni"));
    word.m_preeditString = QStringLiteral("ni");
    const AttributeMap written = writtenBy(word);
    QVERIFY(!word.m_editing);
    QVERIFY(word.m_preeditString.isEmpty());
    QVERIFY(written.value(k("document_data")).toString().contains(k("ni")));
    const QJsonObject header = jsonOf(written.value(k("document_data")).toString());
    QCOMPARE(header.value(k("cursor_position")).toInt(), word.m_cursor->position());
}

QTEST_MAIN(TestRecordGenerations)
#include "tst_records_generations.moc"
