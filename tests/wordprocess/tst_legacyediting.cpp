// SPDX-License-Identifier: MIT
// Records of both older generations, written by hand: loaded, edited, saved and loaded again they stay what they
// are, and show the same.
#include "handrecord.h"
#include "legacylines.h"

#include <QKeyEvent>
#include <QTest>

class TestLegacyEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void recordIsEditedAndStaysOld_data() { records(); }
    void recordIsEditedAndStaysOld();
    void undoneStepsStayOld_data() { records(); }
    void undoneStepsStayOld();
    void recordIsTheSameFromTheSecondTimeOn_data() { records(); }
    void recordIsTheSameFromTheSecondTimeOn();
    void boxKeepsItsPlaceBehindItsPicture_data();
    void boxKeepsItsPlaceBehindItsPicture();
    void boxThatIsSizedInAnEditIsWrappedAnew();
    void boxStaysBehindAnEditOfFormatsAlone();
    void warpIsNeitherMadeNorLost();
    void formChangesStayOld();

private:
    static void records();
};

Q_DECLARE_METATYPE(HandRecord)
Q_DECLARE_METATYPE(Form)

namespace {
QString k(const char *key)
{
    return QString::fromLatin1(key);
}

/// Blocks with row spacing and every attribute that old documents have.
QString document()
{
    return QStringLiteral(
               "{\"block\":[{\"textalignment\":4},{\"textalignment\":1,\"text_ligature\":true,"
               "\"paragraph_head_tail_punctuation\":2}],"
               "\"fragment\":[[{\"content\":\"one \",\"font_family\":\"%1\",\"font_pointsize\":12,"
               "\"font_rowspacing\":0,\"pen_color\":\"#ff000000\"},{\"content\":\"two\","
               "\"font_family\":\"%1\",\"font_pointsize\":12,\"font_rowspacing\":0,"
               "\"font_underline\":true,\"pen_color\":\"#ff00ff00\"}],[{\"content\":\"three four\","
               "\"font_family\":\"%1\",\"font_pointsize\":12,\"font_rowspacing\":0,"
               "\"pen_color\":\"#ff000000\"}]]}")
        .arg(loadBoxTestFont());
}

HandRecord oldRecord(bool isHtml, int orientation, bool box)
{
    HandRecord record;
    record.params = {{k("TextOrientation"), orientation}, {k("text_wordwrap"), box}};
    record.size = QSizeF(60, 120);
    if (isHtml) {
        record.html = QStringLiteral("<p align=\"center\"><span style=\"font-family:'%1';"
                                     "font-size:12pt\">one <u>two</u></span></p><p><span "
                                     "style=\"font-family:'%1';font-size:12pt\">three four</span>"
                                     "</p>")
                          .arg(loadBoxTestFont());
    } else {
        record.params[k("document_data")] = document();
        record.params[k("document_dpi")] = 96;
    }
    return record;
}

void press(OpenWord &word, int key, const QString &text = QString(),
           Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    word.keyPressEvent(&event);
}

/// An old object that shows what its document holds.
void checkOld(OpenWord &word)
{
    QVERIFY(!word.m_newVersion);
    QCOMPARE(textOf(word.m_legacyLines), word.toPlainText().remove(QLatin1Char('\n')));
    QVERIFY(word.m_textPaths.isEmpty() && word.m_morphPaths.isEmpty());
    QVERIFY(!inkOf(contentOf(word)).isNull());
}
} // namespace

void TestLegacyEditing::records()
{
    QTest::addColumn<HandRecord>("record");
    QTest::addColumn<Form>("form");
    for (bool html : {true, false}) {
        for (int orientation : {1, 2}) {
            for (bool box : {false, true}) {
                for (Form form : {Form::Stream, Form::Json}) {
                    QTest::addRow("%s, %s, %s, %s", html ? "HTML" : "document string",
                                  orientation == 1 ? "rows" : "columns", box ? "box" : "line",
                                  form == Form::Json ? "JSON" : "stream")
                        << oldRecord(html, orientation, box) << form;
                }
            }
        }
    }
}

void TestLegacyEditing::recordIsEditedAndStaysOld()
{
    QFETCH(HandRecord, record);
    QFETCH(Form, form);
    RecordingHost host;
    OpenWord word(&host);
    QVERIFY(record.load(word, form));
    QCOMPARE(word.toPlainText(), QStringLiteral("one two\nthree four"));
    checkOld(word);

    word.beginEdit();
    word.m_cursor->movePosition(QTextCursor::End);
    press(word, Qt::Key_F, QStringLiteral("f"));
    press(word, Qt::Key_I, QStringLiteral("ive"));
    QCOMPARE(word.toPlainText(), QStringLiteral("one two\nthree fourfive"));
    checkOld(word);

    word.m_cursor->setPosition(4); // "two" goes
    word.select(4, 7);
    press(word, Qt::Key_Delete);
    QCOMPARE(word.toPlainText(), QStringLiteral("one \nthree fourfive"));
    checkOld(word);
    press(word, Qt::Key_Backspace);
    press(word, Qt::Key_Return);
    QCOMPARE(word.toPlainText(), QStringLiteral("one\n\nthree fourfive"));
    checkOld(word);

    word.select(0, 3); // "one" in red and larger
    word.setAllAttributes({{k("pen_color"), k("#ffff0000")}, {k("font_pointsize"), 24}}, true);
    checkOld(word);
    QCOMPARE(word.m_legacyLines.first().items.first().format.foreground().color(), QColor(Qt::red));
    QCOMPARE(word.m_legacyLines.first().items.first().format.fontPointSize(), 24.0);
    word.endEdit();
    checkOld(word);

    OpenWord again(&host);
    QVERIFY(loadRecord(again, recordOf(word, form), form));
    checkOld(again);
    QCOMPARE(again.toPlainText(), QStringLiteral("one\n\nthree fourfive"));
    QCOMPARE(again.m_legacyLines.first().items.first().format.foreground().color(),
             QColor(Qt::red));
    QCOMPARE(again.getSize(), word.getSize());
    QCOMPARE(contentOf(again), contentOf(word));
    QCOMPARE(again.m_saveParams.value(k("new_version")), QVariant(false));
}

void TestLegacyEditing::undoneStepsStayOld()
{
    QFETCH(HandRecord, record);
    QFETCH(Form, form);
    RecordingHost host;
    OpenWord word(&host);
    QVERIFY(record.load(word, form));
    const QImage before = contentOf(word);
    const QSizeF size = word.getSize();
    word.beginEdit();
    word.m_cursor->movePosition(QTextCursor::End);
    press(word, Qt::Key_X, QStringLiteral("x"));
    word.endEdit();
    const QImage after = contentOf(word);
    QVERIFY(after != before);
    QCOMPARE(host.stack().count(), 1);
    host.stack().undo();
    checkOld(word);
    QCOMPARE(word.toPlainText(), QStringLiteral("one two\nthree four"));
    QCOMPARE(contentOf(word), before);
    QCOMPARE(word.getSize(), size);
    host.stack().redo();
    checkOld(word);
    QCOMPARE(contentOf(word), after);
}

void TestLegacyEditing::recordIsTheSameFromTheSecondTimeOn()
{
    QFETCH(HandRecord, record);
    QFETCH(Form, form);
    RecordingHost host;
    OpenWord first(&host);
    QVERIFY(record.load(first, form));
    const QImage picture = contentOf(first);
    QByteArray written = recordOf(first, form);
    for (int i = 0; i < 3; ++i) {
        OpenWord word(&host);
        QVERIFY(loadRecord(word, written, form));
        checkOld(word);
        QCOMPARE(word.getSize(), first.getSize());
        QVERIFY(isNear(word.getPos(), first.getPos()));
        QCOMPARE(contentOf(word), picture);
        const QByteArray again = recordOf(word, form);
        if (i > 0)
            QCOMPARE(again, written);
        written = again;
    }
}

void TestLegacyEditing::boxKeepsItsPlaceBehindItsPicture_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<bool>("box");
    for (double angle : {0.0, 30.0, 90.0, -45.0}) {
        for (bool box : {false, true})
            QTest::addRow("%s turned by %g", box ? "box" : "line", angle) << angle << box;
    }
}

/// The picture of a turned object is as large as the object reaches; the text does not grow to its size.
void TestLegacyEditing::boxKeepsItsPlaceBehindItsPicture()
{
    QFETCH(double, angle);
    QFETCH(bool, box);
    RecordingHost host;
    HandRecord record = oldRecord(false, 1, box);
    record.rotation = angle;
    record.size = QSizeF(60.25, 120.5);
    for (Form form : {Form::Stream, Form::Json}) {
        OpenWord first(&host);
        QVERIFY(record.load(first, form));
        if (box)
            QCOMPARE(first.getSize(), QSizeF(60.25, 120.5));
        const QPointF corner = first.mapToScene(QPointF(0, 0));
        QByteArray written = recordOf(first, form);
        QVERIFY(first.m_saveParams.contains(k("font_imgage")));
        for (int i = 0; i < 4; ++i) {
            OpenWord word(&host);
            QVERIFY(loadRecord(word, written, form));
            QVERIFY(!word.m_showFontImage);
            QCOMPARE(word.getSize(), first.getSize());
            QCOMPARE(word.rotation(), angle);
            QVERIFY(isNear(word.mapToScene(QPointF(0, 0)), corner));
            written = recordOf(word, form);
        }
    }
}

void TestLegacyEditing::boxThatIsSizedInAnEditIsWrappedAnew()
{
    RecordingHost host;
    OpenWord word(&host);
    QVERIFY(oldRecord(false, 1, true).load(word, Form::Stream));
    const int lines = word.m_legacyLines.size();
    word.beginEdit();
    word.setSize(QSizeF(200, 120), true, true);
    QVERIFY(word.m_legacyLines.size() < lines);
    QCOMPARE(word.getSize(), QSizeF(200, 120));
    checkOld(word);
    word.endEdit();
    QCOMPARE(word.getSize(), QSizeF(200, 120));
}

/// An edit that changes formats alone ends without a step, and without a warp that would take the box.
void TestLegacyEditing::boxStaysBehindAnEditOfFormatsAlone()
{
    RecordingHost host;
    OpenWord word(&host);
    QVERIFY(oldRecord(false, 1, false).load(word, Form::Stream));
    word.m_warpStyle = 3;
    word.m_warpValue = 0.5;
    word.beginEdit();
    word.select(0, 3);
    word.setAllAttributes({{k("font_pointsize"), 24}}, true);
    const QSizeF size = word.getSize();
    QVERIFY(!size.isEmpty());
    word.endEdit();
    QCOMPARE(word.getSize(), size);
    checkOld(word);
}

void TestLegacyEditing::warpIsNeitherMadeNorLost()
{
    RecordingHost host;
    HandRecord record = oldRecord(false, 1, false);
    QJsonObject json = jsonOf(document());
    json.insert(k("warp_style"), 3);
    json.insert(k("warp_value"), 50);
    record.params[k("document_data")] = QString::fromUtf8(QJsonDocument(json).toJson());
    OpenWord word(&host);
    QVERIFY(record.load(word, Form::Stream));
    checkOld(word);
    QCOMPARE(word.m_warpStyle, 3);
    QCOMPARE(jsonOf(word.serialize(false)).value(k("warp_value")).toInt(), 50);
}

/// A box is no way to the current engine; there is none back to line text.
void TestLegacyEditing::formChangesStayOld()
{
    RecordingHost host;
    OpenWord word(&host);
    QVERIFY(oldRecord(false, 1, false).load(word, Form::Stream));
    QPointF offset(1, 2);
    QVERIFY(!word.wordwrap2single(offset));
    word.setAllAttributes({{k("text_wordwrap"), true}}, true);
    checkOld(word);
    QVERIFY(word.m_wordWrap);
    QVERIFY(!word.wordwrap2single(offset));
    QCOMPARE(offset, QPointF(1, 2));
    word.setAllAttributes({{k("text_wordwrap"), false}}, true);
    checkOld(word);
    QVERIFY(word.m_wordWrap);
}

QTEST_MAIN(TestLegacyEditing)
#include "tst_legacyediting.moc"
