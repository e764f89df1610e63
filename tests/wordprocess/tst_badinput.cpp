// SPDX-License-Identifier: MIT
// Whatever a host, a file or a panel hands in: the object stays usable, paints and can be written.
#include "openword.h"

#include <QTest>

#include <cmath>
#include <limits>

class TestBadInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void objectLivesWithoutSurroundings();
    void objectLivesWithoutDocument();
    void objectLivesWithoutSink();
    void refusedDpiKeepsTheOldOne_data();
    void refusedDpiKeepsTheOldOne();
    void wrongTypesInAttributeMaps_data();
    void wrongTypesInAttributeMaps();
    void strangeDocumentStrings_data();
    void strangeDocumentStrings();
    void tenMegabytesOfRuns();
};

namespace {
/// Lays out, paints, edits, writes and reads again.
void useObject(OpenWord &word)
{
    word.updateBoundingRectImpl(true);
    contentOf(word);
    word.beginEdit();
    word.m_cursorVisible = true;
    word.m_cursor->insertText(QStringLiteral("x"));
    word.updateBoundingRectImpl(true);
    word.select(-5, 1000);
    contentOf(word);
    handlersOf(word);
    word.getCursorPos();
    word.endEdit();
    contentOf(word);
    QVERIFY(word.toPlainText().contains(QLatin1Char('x')));
    const QString written = word.serialize(false);
    QVERIFY(jsonOf(written).contains(QStringLiteral("fragment")));
    QVERIFY(std::isfinite(word.m_clientRect.width()) && std::isfinite(word.m_clientRect.height()));
    QVERIFY(std::isfinite(word.getPos().x()) && std::isfinite(word.getPos().y()));
    OpenWord other;
    other.deserialization(written, false);
    QCOMPARE(other.toPlainText(), word.toPlainText());
}

class DpiHost : public RecordingHost
{
public:
    int dpi = 96;
    int getDpi() override { return dpi; }
};
} // namespace

void TestBadInput::objectLivesWithoutSurroundings()
{
    SetFramework(nullptr);
    OpenWord word;
    QVERIFY(!word.GetPage());
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QStringLiteral("first");
    QDataStream in(bytes);
    QVERIFY(word.SetSpecialProperty(106, in, false));
    QCOMPARE(word.toPlainText(), QStringLiteral("first"));
    useObject(word);
    QByteArray record;
    QDataStream stream(&record, QIODevice::ReadWrite);
    QVERIFY(word.save(stream));
    word.setSelected(true);
    word.setSelected(false);
    for (int operation = 0; operation <= 7; ++operation)
        word.notifyTextOperation(EnumTextOperation(operation), {});
    OpenWord drawing;
    drawing.m_created = false;
    contentOf(drawing);
    drawing.OnQPainterDraw(nullptr);
}

void TestBadInput::objectLivesWithoutDocument()
{
    RecordingHost host;
    host.documentOn = false;
    OpenWord word(&host);
    useObject(word);
    QJsonObject json;
    QVERIFY(word.saveJson(json));
    OpenWord other(&host);
    QVERIFY(other.loadJson(json));
    QCOMPARE(other.toPlainText(), word.toPlainText());
    QVERIFY(!word.m_saveParams.contains(QStringLiteral("font_imgage")));
}

void TestBadInput::objectLivesWithoutSink()
{
    RecordingHost host;
    host.sinkOn = false;
    OpenWord word(&host);
    useObject(word);
    QVERIFY(host.eventsOfKind(QStringLiteral("event")).isEmpty());
}

void TestBadInput::refusedDpiKeepsTheOldOne_data()
{
    QTest::addColumn<int>("dpi");
    QTest::addColumn<int>("taken");
    QTest::newRow("0") << 0 << 96;
    QTest::newRow("-1") << -1 << 96;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("9600") << 9600 << 9600;
    QTest::newRow("9601") << 9601 << 96;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << 96;
}

void TestBadInput::refusedDpiKeepsTheOldOne()
{
    QFETCH(int, dpi);
    QFETCH(int, taken);
    DpiHost host;
    host.dpi = dpi;
    OpenWord word(&host);
    QCOMPARE(word.m_documentDpi, taken);
    useObject(word);
}

void TestBadInput::wrongTypesInAttributeMaps_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"font_family",
                            "font_bold",
                            "font_italic",
                            "font_letterspacing",
                            "selected_letterspacing",
                            "font_pointsize",
                            "font_underline",
                            "font_strikeout",
                            "pen_color",
                            "font_style",
                            "vertical_scaled",
                            "horizontal_scaled",
                            "baseline_offset",
                            "text_upper",
                            "text_superscript",
                            "text_subscript",
                            "font_rowspacing",
                            "ori_font_family",
                            "textalignment",
                            "paragraph_left_indent",
                            "paragraph_right_indent",
                            "paragraph_after_space",
                            "paragraph_before_space",
                            "paragraph_first_indent",
                            "text_ligature",
                            "paragraph_head_tail_punctuation",
                            "paragraph_punctuation_extra"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void TestBadInput::wrongTypesInAttributeMaps()
{
    QFETCH(QString, key);
    const QVector<QVariant> values{QVariant(),
                                   QString(),
                                   QStringLiteral("abc"),
                                   QStringLiteral("nan"),
                                   QStringLiteral("-inf"),
                                   QStringLiteral("1e308"),
                                   qQNaN(),
                                   qInf(),
                                   -qInf(),
                                   1e308,
                                   -1e308,
                                   1e9,
                                   -1e9,
                                   5e-324,
                                   std::numeric_limits<int>::max(),
                                   std::numeric_limits<int>::min(),
                                   std::numeric_limits<qint64>::max(),
                                   true,
                                   QVariantList{1, 2},
                                   QVariantMap(),
                                   QByteArray("\xff\xfe", 2),
                                   QColor(1, 2, 3),
                                   QPointF(1, 2),
                                   QString(QChar(0xd800))};
    for (const QVariant &value : values) {
        OpenWord word;
        const AttributeMap map{{key, value}};
        const QTextCharFormat character = word.attr2CharFormat(map);
        const QTextBlockFormat block = word.attr2BlockFormat(map);
        for (const QTextFormat &format : {QTextFormat(character), QTextFormat(block)}) {
            const QMap<int, QVariant> properties = format.properties();
            for (const QVariant &property : properties)
                QVERIFY(property.userType() != QMetaType::Double
                        || std::isfinite(property.toDouble()));
        }
        word.m_cursor->insertText(QStringLiteral("ab\ncd"), OpenWord::format());
        word.m_cursor->select(QTextCursor::Document);
        word.m_cursor->mergeCharFormat(character);
        word.m_cursor->mergeBlockFormat(block);
        word.m_cursor->movePosition(QTextCursor::End);
        useObject(word);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("with %1 of %2")
                                 .arg(value.toString(), QLatin1String(value.typeName()))));
    }
}

void TestBadInput::strangeDocumentStrings_data()
{
    QTest::addColumn<QString>("text");
    const auto run = [](const QString &attributes) {
        return QStringLiteral("{\"block\":[{}],\"fragment\":[[{\"content\":\"ab\",%1}]]}")
            .arg(attributes);
    };
    const auto header = [](const QString &words) {
        return QStringLiteral("{\"block\":[{}],\"fragment\":[[{\"content\":\"ab\"}]],%1}")
            .arg(words);
    };
    QTest::newRow("empty") << QString();
    QTest::newRow("not JSON") << QStringLiteral("{{{");
    QTest::newRow("deeply nested") << QString(100000, QLatin1Char('['));
    QTest::newRow("no blocks") << QStringLiteral("{\"block\":[],\"fragment\":[]}");
    QTest::newRow("runs of wrong types")
        << QStringLiteral("{\"block\":[5,[],null],\"fragment\":[7,[3,null,[]],{}]}");
    QTest::newRow("unpaired surrogate escape")
        << QStringLiteral("{\"block\":[{}],\"fragment\":[[{\"content\":\"a\\ud800b\\udc00\"}]]}");
    QTest::newRow("unpaired surrogate")
        << QStringLiteral("{\"block\":[{}],\"fragment\":[[{\"content\":\"a%1b\"}]]}")
               .arg(QChar(0xd800));
    QTest::newRow("control characters") << QStringLiteral(
        "{\"block\":[{}],\"fragment\":[[{\"content\":\"\\u0000\\u2029\\ufdd0\\ufffc\"}]]}");
    for (const char *size : {"0", "-5", "1e9", "1e308", "\"nan\"", "\"inf\"", "null", "[]", "\"\""})
        QTest::addRow("font size %s", size)
            << run(QStringLiteral("\"font_pointsize\":%1").arg(QLatin1String(size)));
    for (const char *key : {"selection_start", "selection_end", "cursor_position", "text_direction",
                            "warp_style", "transform_xx"}) {
        for (const char *value : {"-1", "2147483647", "1e300", "0", "\"x\"", "null", "{}"})
            QTest::addRow("%s %s", key, value) << header(
                QStringLiteral("\"%1\":%2").arg(QLatin1String(key), QLatin1String(value)));
    }
    QTest::newRow("wrong header types")
        << header(QStringLiteral("\"font_replaced\":5,\"text_wordwrap\":[],\"is_flip\":\"x\""));
}

void TestBadInput::strangeDocumentStrings()
{
    QFETCH(QString, text);
    for (bool insert : {false, true}) {
        OpenWord word;
        word.deserialization(text, insert);
        word.m_wordManager->setWordWrap(word.m_wordWrap);
        useObject(word);
    }
}

void TestBadInput::tenMegabytesOfRuns()
{
    OpenWord small;
    small.add(QStringLiteral("a"));
    QJsonObject document = jsonOf(small.serialize(false));
    const QJsonValue run =
        document.value(QLatin1String("fragment")).toArray().at(0).toArray().at(0);
    const int size = QJsonDocument(run.toObject()).toJson(QJsonDocument::Compact).size();
    QJsonArray runs;
    for (int bytes = 0; bytes < 10 * 1024 * 1024; bytes += size)
        runs.append(run);
    QJsonArray fragments;
    fragments.append(runs); // a braced list of one array may be read as a copy of it
    document.insert(QStringLiteral("fragment"), fragments);
    OpenWord word;
    word.deserialization(QString::fromUtf8(QJsonDocument(document).toJson()), false);
    QCOMPARE(word.toPlainText().size(), runs.size());
    word.updateBoundingRectImpl(true);
    QCOMPARE(word.m_clientRect.width(), 8.0 * runs.size());
    contentOf(word);
}

QTEST_MAIN(TestBadInput)
#include "tst_badinput.moc"
