// SPDX-License-Identifier: MIT
// Records that are cut, lack keys or hold the wrong kind of value: each loads, paints, edits and saves.
#include "handrecord.h"

#include <QTest>

#include <cmath>
#include <limits>

class TestBrokenRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void cutAtEveryByte_data() { addGenerations(); }
    void cutAtEveryByte();
    void changedBytes_data() { addGenerations(); }
    void changedBytes();
    void everyKeyRemoved_data() { addGenerations(); }
    void everyKeyRemoved();
    void everyKeyOfAWrongKind_data() { addGenerations(); }
    void everyKeyOfAWrongKind();
    void everyMemberOfTheJsonRecordBroken_data() { addGenerations(); }
    void everyMemberOfTheJsonRecordBroken();
    void emptyJsonRecord();
    void missingBoundsReadAsZeroAndStayAbsent();
    void documentThatDoesNotParseLeavesAnEmptyText();
    void pictureShowsEvenIfTheDocumentDoesNotParse();

private:
    static void addGenerations();
};

namespace {
const auto k = [](const char *key) { return QString::fromLatin1(key); };

enum Kind { Current, CurrentBox, CurrentPicture, Middle, Oldest, OldestPicture };

QImage picture()
{
    QImage image(9, 7, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    return image;
}

/// A record of \a kind; \a host keeps the picture of the one that has its own elsewhere.
HandRecord recordOfKind(Kind kind, RecordingHost &host)
{
    HandRecord record;
    if (kind == Oldest || kind == OldestPicture) {
        record.html = QStringLiteral("<p>old <b>text</b></p>");
        record.params = {{k("TextOrientation"), 1}, {k("text_wordwrap"), false}};
        if (kind == OldestPicture) {
            record.params[k("has_img")] = true;
            record.params[k("img_x")] = 1;
            record.params[k("img_y")] = 2;
            record.picture = picture();
        }
        return record;
    }
    const QString family = kind == CurrentPicture ? missingFamily() : loadBoxTestFont();
    if (kind == Middle) {
        record.params = {{k("document_data"), documentStringOf(QStringLiteral("middle"), family)},
                         {k("document_dpi"), 72}};
        return record;
    }
    OpenWord word(&host);
    word.add(QStringLiteral("some text"));
    if (kind == CurrentBox) {
        word.m_wordWrap = true;
        word.m_wordManager->setWordWrap(true);
        word.updateBoundingRectImpl(true);
        word.rotateObj(20, false);
    }
    recordOf(word, Form::Stream);
    record.params = word.m_saveParams;
    record.pos = word.getPos();
    record.size = word.getSize();
    record.rotation = word.rotation();
    QString data = record.params.value(k("document_data")).toString();
    record.params[k("document_data")] = data.replace(loadBoxTestFont(), family);
    return record;
}

/// Paints, edits where it can be edited, writes, and is read again.
bool isUsable(OpenWord &word, RecordingHost &host)
{
    contentOf(word, QSize(40, 30));
    handlersOf(word, QSize(40, 30));
    word.beginEdit();
    if (word.m_editing) {
        word.m_cursor->insertText(QStringLiteral("x"));
        word.updateBoundingRectImpl(true);
        contentOf(word, QSize(40, 30));
        word.endEdit();
        if (!word.toPlainText().contains(QLatin1Char('x')))
            return false;
    } else if (!word.m_showFontImage && word.m_missingFonts.isEmpty() && !word.isLocked()) {
        return false;
    }
    const QSizeF size = word.getSize();
    const QPointF pos = word.getPos();
    if (!std::isfinite(size.width()) || !std::isfinite(size.height()) || !std::isfinite(pos.x())
        || !std::isfinite(pos.y()) || !std::isfinite(word.rotation()))
        return false;
    const QByteArray written = recordOf(word, Form::Stream);
    OpenWord again(&host);
    return loadRecord(again, written, Form::Stream) && again.toPlainText() == word.toPlainText();
}

/// Values of every kind that a file can hold under a key.
QVector<QVariant> wrongValues()
{
    return {QVariant(),
            QString(),
            QStringLiteral("abc"),
            QStringLiteral("nan"),
            QStringLiteral("{}"),
            true,
            0,
            -1,
            std::numeric_limits<int>::max(),
            std::numeric_limits<int>::min(),
            1e308,
            -1e308,
            1e-308,
            std::numeric_limits<double>::quiet_NaN(),
            std::numeric_limits<double>::infinity(),
            QVariantList{1, QStringLiteral("x")},
            QVariantMap{{k("a"), 1}},
            QByteArray("\xff\xfe\0", 3),
            QPointF(1, 2)};
}
} // namespace
Q_DECLARE_METATYPE(Kind)

void TestBrokenRecords::addGenerations()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("current") << Current;
    QTest::newRow("current, box, turned") << CurrentBox;
    QTest::newRow("current, picture") << CurrentPicture;
    QTest::newRow("middle") << Middle;
    QTest::newRow("oldest") << Oldest;
    QTest::newRow("oldest, picture") << OldestPicture;
}

void TestBrokenRecords::cutAtEveryByte()
{
    QFETCH(Kind, kind);
    RecordingHost host;
    const QByteArray bytes = recordOfKind(kind, host).stream();
    for (int length = 0; length <= bytes.size(); ++length) {
        OpenWord word(&host);
        QVERIFY(loadRecord(word, bytes.left(length), Form::Stream));
        QVERIFY(word.m_created);
        // The reading is what a cut can reach: every 31st object is put to use as well.
        if (length % 31 == 0 || length > bytes.size() - 64)
            QVERIFY2(isUsable(word, host), qPrintable(QString::number(length)));
    }
}

void TestBrokenRecords::changedBytes()
{
    QFETCH(Kind, kind);
    RecordingHost host;
    const QByteArray bytes = recordOfKind(kind, host).stream();
    for (int i = int(kind) % 3; i < bytes.size(); i += 3) {
        QByteArray broken = bytes;
        broken[i] = char(broken.at(i) ^ (i % 2 ? 0x80 : 0x01));
        OpenWord word(&host);
        QVERIFY(loadRecord(word, broken, Form::Stream));
        if (i % 40 < 3)
            QVERIFY2(isUsable(word, host), qPrintable(QString::number(i)));
    }
}

void TestBrokenRecords::everyKeyRemoved()
{
    QFETCH(Kind, kind);
    RecordingHost host;
    const HandRecord whole = recordOfKind(kind, host);
    for (Form form : {Form::Stream, Form::Json}) {
        const QStringList keys = whole.params.keys();
        for (const QString &key : keys) {
            HandRecord record = whole;
            record.params.remove(key);
            OpenWord word(&host);
            record.load(word, form);
            QVERIFY2(isUsable(word, host), qPrintable(key));
        }
    }
}

void TestBrokenRecords::everyKeyOfAWrongKind()
{
    QFETCH(Kind, kind);
    RecordingHost host;
    const HandRecord whole = recordOfKind(kind, host);
    QStringList keys = whole.params.keys();
    for (const char *key : {"has_img", "font_imgage", "new_version", "document_dpi", "transform_tx",
                            "boxBounds_left", "text_defaultword"}) {
        if (!keys.contains(k(key)))
            keys.append(k(key));
    }
    for (Form form : {Form::Stream, Form::Json}) {
        for (const QString &key : qAsConst(keys)) {
            const QVector<QVariant> values = wrongValues();
            for (int i = 0; i < values.size(); ++i) {
                const QVariant value = values.at(i);
                HandRecord record = whole;
                record.params[key] = value;
                OpenWord word(&host);
                record.load(word, form);
                if ((i + int(form)) % 2) // each value is put to use in one of the two forms
                    continue;
                QVERIFY2(isUsable(word, host),
                         qPrintable(
                             QStringLiteral("%1: %2 of %3")
                                 .arg(key, value.toString(), QLatin1String(value.typeName()))));
            }
        }
    }
}

void TestBrokenRecords::everyMemberOfTheJsonRecordBroken()
{
    QFETCH(Kind, kind);
    RecordingHost host;
    const QJsonObject whole = recordOfKind(kind, host).json();
    const QStringList keys = whole.keys();
    for (const QString &key : keys) {
        QVector<QJsonValue> values{QJsonValue::Undefined,
                                   QJsonValue::Null,
                                   true,
                                   -1e300,
                                   1e300,
                                   QStringLiteral("x"),
                                   QJsonArray{1, 2},
                                   QJsonObject{{k("a"), 1}}};
        for (const QJsonValue &value : qAsConst(values)) {
            QJsonObject record = whole;
            if (value.isUndefined())
                record.remove(key);
            else
                record[key] = value;
            OpenWord word(&host);
            QVERIFY(word.loadJson(record));
            QVERIFY2(isUsable(word, host), qPrintable(key));
        }
    }
}

void TestBrokenRecords::emptyJsonRecord()
{
    RecordingHost host;
    OpenWord word(&host);
    QJsonObject nothing;
    QVERIFY(word.loadJson(nothing));
    QVERIFY(word.toPlainText().isEmpty());
    QVERIFY(!word.m_newVersion); // a record without the key is one of an older generation
    QVERIFY(isUsable(word, host));
}

void TestBrokenRecords::missingBoundsReadAsZeroAndStayAbsent()
{
    RecordingHost host;
    HandRecord record = recordOfKind(CurrentPicture, host);
    record.params[k("text_wordwrap")] = true;
    record.params[k("document_data")] = documentStringOf(QStringLiteral("a"), missingFamily());
    for (const char *key : {"boxBounds_top", "boxBounds_right", "boxBounds_bottom",
                            "boundingBox_left", "boundingBox_top", "boundingBox_bottom"})
        record.params.remove(k(key));
    record.params[k("boundingBox_right")] = 50;
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QCOMPARE(word.m_boundsMargins.left, 0.0);
    QCOMPARE(word.m_boundsMargins.right, 50.0);
    QCOMPARE(word.m_boundsMargins.bottom, 0.0);
    QCOMPARE(word.m_fontImageClient.size(), QSizeF(50, 0));
    QVERIFY(!word.m_saveParams.contains(k("boxBounds_top")));
}

void TestBrokenRecords::documentThatDoesNotParseLeavesAnEmptyText()
{
    RecordingHost host;
    HandRecord record = recordOfKind(Current, host);
    record.params.remove(k("font_imgage"));
    record.html = QStringLiteral("<p>not for this generation</p>");
    for (const char *broken : {"", "{", "[]", "{\"block\":[{}],\"fragment\":[]}"}) {
        record.params[k("document_data")] = QString::fromLatin1(broken);
        for (Form form : {Form::Stream, Form::Json}) {
            OpenWord word(&host);
            QVERIFY(record.load(word, form));
            QVERIFY(word.toPlainText().isEmpty());
            QVERIFY(isUsable(word, host));
        }
    }
}

void TestBrokenRecords::pictureShowsEvenIfTheDocumentDoesNotParse()
{
    RecordingHost host;
    HandRecord record = recordOfKind(CurrentPicture, host);
    record.params[k("document_data")] = QStringLiteral("broken");
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    QVERIFY(!word.m_fontImage.isNull());
    QVERIFY(word.m_missingFonts.isEmpty()); // no document, no fonts: the picture is left at once
    QVERIFY(!word.m_showFontImage);
    QVERIFY(isUsable(word, host));
}

QTEST_MAIN(TestBrokenRecords)
#include "tst_records_broken.moc"
