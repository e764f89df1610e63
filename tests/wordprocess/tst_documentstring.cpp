// SPDX-License-Identifier: MIT
// The document string: what is written of a document or a selection, and what reading restores.
#include "openword.h"

#include <QRandomGenerator>
#include <QTest>

class TestDocumentString : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    void emptyDocumentHasOneRun();
    void emptyParagraphInTheMiddleIsKept();
    void letterSpacedRunIsSplit_data();
    void letterSpacedRunIsSplit();
    void splitRunMergesAgain();
    void selectionOfOneRunIsCut();
    void selectionAcrossParagraphs();
    void selectionOfEmptyParagraph();
    void headerKeysAndTypes();
    void randomSelectionsHoldTheirText();
    void randomSelectionsFollowTheCutTable();
    void writtenAndReadIsAFixedPoint();

    void warpValuesAreHundredths_data();
    void warpValuesAreHundredths();
    void warpNeedsItsStyle();
    void wrapWithoutAutoWrapIsFixed();
    void missingHeaderKeysKeepTheFields();
    void backwardSelectionLeavesTheCursor();
    void selectionMovesTheCursor();
    void textThatIsNoDocumentChangesNothing_data();
    void textThatIsNoDocumentChangesNothing();
    void pastedBlocksSplitTheParagraph();
    void pastingIgnoresTheHeader();
    void readingClearsTheUndoStack();
};

namespace {
QTextCharFormat spaced(double gap)
{
    QTextCharFormat format = OpenWord::format();
    format.setProperty(TextProperty::LeadingGap, gap);
    return format;
}

/// A document string with one run a block.
QString documentOf(const QStringList &texts, QJsonObject header = QJsonObject())
{
    QJsonArray blocks;
    QJsonArray runs;
    for (const QString &text : texts) {
        blocks.append(QJsonObject{{QStringLiteral("textalignment"), 4}});
        runs.append(QJsonArray{QJsonObject{{QStringLiteral("content"), text}}});
    }
    header.insert(QStringLiteral("block"), blocks);
    header.insert(QStringLiteral("fragment"), runs);
    return QString::fromUtf8(QJsonDocument(header).toJson(QJsonDocument::Compact));
}

/// Random blocks of random runs in three formats; with \a gaps some of them letter-spaced.
void fillRandomly(OpenWord &word, QRandomGenerator &random, bool gaps)
{
    word.m_document->clear();
    const int blocks = random.bounded(1, 5);
    for (int i = 0; i < blocks; ++i) {
        if (i > 0)
            word.m_cursor->insertBlock();
        const int runs = random.bounded(4);
        for (int j = 0; j < runs; ++j) {
            QTextCharFormat format = OpenWord::format(8 + 4 * random.bounded(3));
            if (gaps && random.bounded(3) == 0)
                format.setProperty(TextProperty::LeadingGap, 50.0);
            QString text;
            for (int k = random.bounded(1, 5); k > 0; --k)
                text += QChar('a' + random.bounded(26));
            word.m_cursor->insertText(text, format);
        }
    }
}

/// The cut of one run, read off the table of its cases.
QString cutByTable(const QString &text, int pos, int start, int end)
{
    const int stop = pos + text.size();
    const bool ends = pos <= end && end <= stop;
    if (start < pos)
        return ends ? text.left(end - pos) : text;
    if (start < stop)
        return ends ? text.mid(start - pos, end - start) : text.mid(start - pos);
    return ends ? text.left(end - pos) : QString();
}

QList<QStringList> selectionByTable(const QTextDocument &document, int start, int end)
{
    QList<QStringList> stored;
    int pos = 0;
    for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next()) {
        QStringList words;
        if (block.text().isEmpty() && pos >= start && pos < end)
            words.append(QString());
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QString text = it.fragment().text();
            const bool gap = it.fragment().charFormat().doubleProperty(1013) != 0.0;
            if (gap && text.size() > 1) {
                words += text.split(QString(), Qt::SkipEmptyParts); // whole, and not counted
            } else {
                const QString cut = cutByTable(text, pos, start, end);
                if (!cut.isEmpty())
                    words.append(cut);
                pos += text.size();
            }
            if (end <= pos)
                break;
        }
        if (!words.isEmpty())
            stored.append(words);
        if (end <= pos)
            break;
        ++pos;
    }
    return stored;
}
} // namespace

void TestDocumentString::emptyDocumentHasOneRun()
{
    OpenWord word;
    word.m_cursor->setBlockCharFormat(OpenWord::format(18));
    const QString written = word.serialize(false);
    QCOMPARE(contentsOf(written), QList<QStringList>{QStringList(QString())});
    const QJsonObject run =
        jsonOf(written).value(QLatin1String("fragment")).toArray().at(0).toArray().at(0).toObject();
    QCOMPARE(run.value(QLatin1String("font_pointsize")).toDouble(), 18.0);
    OpenWord other;
    other.deserialization(written, false);
    QCOMPARE(other.m_document->firstBlock().charFormat().fontPointSize(), 18.0);
}

void TestDocumentString::emptyParagraphInTheMiddleIsKept()
{
    OpenWord word;
    word.add(QStringLiteral("ab\n\ncd"));
    const QString written = word.serialize(false);
    QCOMPARE(contentsOf(written), (QList<QStringList>{{QStringLiteral("ab")},
                                                      QStringList(QString()),
                                                      {QStringLiteral("cd")}}));
    QCOMPARE(jsonOf(written).value(QLatin1String("block")).toArray().size(), 3);
}

void TestDocumentString::letterSpacedRunIsSplit_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("gap");
    QTest::addColumn<QStringList>("words");
    const QString abc = QStringLiteral("abc");
    const QStringList split{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    QTest::newRow("spaced") << abc << QVariant(100.0) << split;
    QTest::newRow("spaced backwards") << abc << QVariant(-5.0) << split;
    QTest::newRow("zero") << abc << QVariant(0.0) << QStringList(abc);
    QTest::newRow("none") << abc << QVariant() << QStringList(abc);
    QTest::newRow("one character")
        << QStringLiteral("a") << QVariant(100.0) << QStringList(QStringLiteral("a"));
}

void TestDocumentString::letterSpacedRunIsSplit()
{
    QFETCH(QString, text);
    QFETCH(QVariant, gap);
    QFETCH(QStringList, words);
    OpenWord word;
    QTextCharFormat format = OpenWord::format();
    if (gap.isValid())
        format.setProperty(TextProperty::LeadingGap, gap);
    word.add(text, format);
    QCOMPARE(contentsOf(word.serialize(false)), QList<QStringList>{words});
}

void TestDocumentString::splitRunMergesAgain()
{
    OpenWord word;
    word.add(QStringLiteral("abc"), spaced(100));
    OpenWord other;
    other.deserialization(word.serialize(false), false);
    auto it = other.m_document->firstBlock().begin();
    QCOMPARE(it.fragment().text(), QStringLiteral("abc"));
    ++it;
    QVERIFY(it.atEnd());
}

void TestDocumentString::selectionOfOneRunIsCut()
{
    OpenWord word;
    word.add(QStringLiteral("abcdefg"));
    word.select(2, 5);
    const QString written = word.serialize(true);
    QCOMPARE(contentsOf(written), QList<QStringList>{{QStringLiteral("cde")}});
    QCOMPARE(jsonOf(written).keys(),
             (QStringList{QStringLiteral("block"), QStringLiteral("fragment")}));
}

void TestDocumentString::selectionAcrossParagraphs()
{
    OpenWord word;
    word.add(QStringLiteral("abc\ndef"));
    word.select(1, 6);
    QCOMPARE(contentsOf(word.serialize(true)),
             (QList<QStringList>{{QStringLiteral("bc")}, {QStringLiteral("de")}}));
}

void TestDocumentString::selectionOfEmptyParagraph()
{
    OpenWord word;
    word.add(QStringLiteral("ab\n\ncd"));
    word.select(1, 5);
    QCOMPARE(contentsOf(word.serialize(true)), (QList<QStringList>{{QStringLiteral("b")},
                                                                   QStringList(QString()),
                                                                   {QStringLiteral("c")}}));
    word.select(4, 5); // behind the empty paragraph
    QCOMPARE(contentsOf(word.serialize(true)), QList<QStringList>{{QStringLiteral("c")}});
}

void TestDocumentString::headerKeysAndTypes()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.m_cursor->setPosition(3);
    word.select(1, 3);
    word.m_textOrientation = 2;
    word.m_replacedFonts = QStringList{QStringLiteral("A"), QStringLiteral("B")};
    word.m_wordWrap = true;
    word.m_autoWordWrap = true;
    word.m_warpStyle = 7;
    word.m_warpValue = 0.125;
    word.m_warpHorizontalValue = -0.5;
    word.m_warpVerticalValue = 1;
    word.m_warpOrientation = 2;
    word.m_flip = true;
    word.m_scaleX = 1.25;
    word.m_scaleY = 0.1;
    QJsonObject expected{{QStringLiteral("cursor_position"), 3},
                         {QStringLiteral("selection_start"), 1},
                         {QStringLiteral("selection_end"), 3},
                         {QStringLiteral("text_direction"), 2},
                         {QStringLiteral("font_replaced"),
                          QJsonArray{QStringLiteral("A"), QStringLiteral("B")}},
                         {QStringLiteral("text_wordwrap"), true},
                         {QStringLiteral("text_auto_wordwrap"), true},
                         {QStringLiteral("warp_style"), 7},
                         {QStringLiteral("warp_value"), 13},
                         {QStringLiteral("warp_horizontal_value"), -50},
                         {QStringLiteral("warp_vertical_value"), 100},
                         {QStringLiteral("warp_oriention"), 2},
                         {QStringLiteral("is_flip"), true},
                         {QStringLiteral("is_mirror"), false},
                         {QStringLiteral("transform_xx"), 1.25},
                         {QStringLiteral("transform_yy"), 0.1}};
    const QString written = word.serialize(false);
    QJsonObject header = jsonOf(written);
    header.remove(QStringLiteral("block"));
    header.remove(QStringLiteral("fragment"));
    QCOMPARE(header, expected);
    QVERIFY(!written.contains(QLatin1Char('\n'))); // compact

    OpenWord other;
    other.deserialization(written, false);
    header = jsonOf(other.serialize(false));
    header.remove(QStringLiteral("block"));
    header.remove(QStringLiteral("fragment"));
    QCOMPARE(header, expected);
    QCOMPARE(other.m_warpValue, 0.13);
    QVERIFY(other.isFlip());
    QCOMPARE(other.m_replacedFonts, word.m_replacedFonts);
}

void TestDocumentString::randomSelectionsHoldTheirText()
{
    // Without letter spacing the stored words are the selected characters, block by block.
    QRandomGenerator random(4711);
    for (int round = 0; round < 300; ++round) {
        OpenWord word;
        fillRandomly(word, random, false);
        const int last = word.m_document->characterCount() - 1;
        const int a = random.bounded(last + 1);
        const int b = random.bounded(last + 1);
        if (a == b)
            continue;
        word.select(qMin(a, b), qMax(a, b));
        QStringList expected;
        for (QTextBlock block = word.m_document->begin(); block.isValid(); block = block.next()) {
            const int from = qMax(word.m_selStart, block.position());
            const int to = qMin(word.m_selEnd, block.position() + block.length() - 1);
            const bool emptySelected = block.length() == 1 && block.position() >= word.m_selStart
                                       && block.position() < word.m_selEnd;
            if (to > from)
                expected.append(block.text().mid(from - block.position(), to - from));
            else if (emptySelected)
                expected.append(QString());
        }
        QStringList stored;
        const QList<QStringList> contents = contentsOf(word.serialize(true));
        for (const QStringList &words : contents)
            stored.append(words.join(QString()));
        QCOMPARE(stored, expected);
    }
}

void TestDocumentString::randomSelectionsFollowTheCutTable()
{
    QRandomGenerator random(815);
    for (int round = 0; round < 500; ++round) {
        OpenWord word;
        fillRandomly(word, random, true);
        const int last = word.m_document->characterCount() - 1;
        const int a = random.bounded(last + 3); // beyond the end, where the document's end counts
        const int b = random.bounded(last + 3);
        word.select(qMin(a, b), qMax(a, b));
        QCOMPARE(contentsOf(word.serialize(true)),
                 selectionByTable(*word.m_document, qMin(word.m_selStart, last),
                                  qMin(word.m_selEnd, last)));
        QCOMPARE(jsonOf(word.serialize(true)).value(QLatin1String("block")).toArray().size(),
                 contentsOf(word.serialize(true)).size());
    }
}

void TestDocumentString::writtenAndReadIsAFixedPoint()
{
    QRandomGenerator random(99);
    for (int round = 0; round < 100; ++round) {
        OpenWord word;
        fillRandomly(word, random, true);
        OpenWord first;
        first.deserialization(word.serialize(false), false);
        const QString once = first.serialize(false);
        OpenWord second;
        second.deserialization(once, false);
        QCOMPARE(second.serialize(false), once);
        QCOMPARE(second.toPlainText(), word.toPlainText());
    }
}

void TestDocumentString::warpValuesAreHundredths_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("written");
    QTest::newRow("0.125") << 0.125 << 13;
    QTest::newRow("-0.12") << -0.12 << -12;
    QTest::newRow("-0.125, half up") << -0.125 << qRound(-12.5);
    QTest::newRow("0.004") << 0.004 << 0;
}

void TestDocumentString::warpValuesAreHundredths()
{
    QFETCH(double, value);
    QFETCH(int, written);
    OpenWord word;
    word.m_warpValue = word.m_warpHorizontalValue = word.m_warpVerticalValue = value;
    const QJsonObject json = jsonOf(word.serialize(false));
    for (const char *key : {"warp_value", "warp_horizontal_value", "warp_vertical_value"})
        QCOMPARE(json.value(QLatin1String(key)).toInt(), written);
    OpenWord other;
    other.deserialization(word.serialize(false), false);
    QCOMPARE(other.m_warpValue, written / 100.0);
}

void TestDocumentString::warpNeedsItsStyle()
{
    OpenWord word;
    word.m_warpStyle = 3;
    word.m_warpValue = 0.5;
    word.m_warpOrientation = 2;
    word.deserialization(documentOf({QStringLiteral("a")}, {{QStringLiteral("warp_value"), 9},
                                                            {QStringLiteral("warp_oriention"), 1}}),
                         false);
    QCOMPARE(word.m_warpStyle, 3);
    QCOMPARE(word.m_warpValue, 0.5);
    QCOMPARE(word.m_warpOrientation, 2);
    word.deserialization(documentOf({QStringLiteral("a")}, {{QStringLiteral("warp_style"), 4}}),
                         false);
    QCOMPARE(word.m_warpStyle, 4);
    QCOMPARE(word.m_warpValue, 0.0);
    QCOMPARE(word.m_warpOrientation, 0);
}

void TestDocumentString::wrapWithoutAutoWrapIsFixed()
{
    OpenWord word;
    word.m_autoWordWrap = true;
    word.deserialization(documentOf({QStringLiteral("a")},
                                    {{QStringLiteral("text_wordwrap"), true}}),
                         false);
    QVERIFY(word.m_wordWrap);
    QVERIFY(!word.m_autoWordWrap);
    word.deserialization(documentOf({QStringLiteral("a")},
                                    {{QStringLiteral("text_auto_wordwrap"), true}}),
                         false);
    QVERIFY(!word.m_autoWordWrap); // not without its gate
}

void TestDocumentString::missingHeaderKeysKeepTheFields()
{
    OpenWord word;
    word.select(1, 2);
    word.m_textOrientation = 2;
    word.m_mirror = true;
    word.m_scaleX = 3;
    word.m_scaleY = 4;
    word.m_wordWrap = true;
    word.m_replacedFonts = QStringList(QStringLiteral("A"));
    word.deserialization(documentOf({QStringLiteral("abc")}, {{QStringLiteral("transform_yy"), 9}}),
                         false);
    QCOMPARE(word.m_selStart, 1);
    QCOMPARE(word.m_selEnd, 2);
    QCOMPARE(word.m_textOrientation, 2);
    QVERIFY(word.isMirror());
    QCOMPARE(word.m_scaleX, 3.0);
    QCOMPARE(word.m_scaleY, 4.0);
    QVERIFY(word.m_wordWrap);
    QCOMPARE(word.m_replacedFonts.size(), 1);
    QCOMPARE(word.toPlainText(), QStringLiteral("abc"));
    QCOMPARE(word.m_document->firstBlock().blockFormat().property(1001), QVariant(4));
}

void TestDocumentString::backwardSelectionLeavesTheCursor()
{
    OpenWord word;
    word.deserialization(documentOf({QStringLiteral("abcdefg")},
                                    {{QStringLiteral("selection_start"), 5},
                                     {QStringLiteral("selection_end"), 2}}),
                         false);
    QCOMPARE(word.m_cursor->position(), 5);
    QVERIFY(!word.m_cursor->hasSelection());
    QCOMPARE(word.m_selStart, 5);
    QCOMPARE(word.m_selEnd, 2);
}

void TestDocumentString::selectionMovesTheCursor()
{
    OpenWord word;
    word.deserialization(documentOf({QStringLiteral("abcdefg")},
                                    {{QStringLiteral("cursor_position"), 7},
                                     {QStringLiteral("selection_start"), 2},
                                     {QStringLiteral("selection_end"), 5}}),
                         false);
    QCOMPARE(word.m_cursor->anchor(), 2);
    QCOMPARE(word.m_cursor->position(), 5);
    word.deserialization(documentOf({QStringLiteral("abc")},
                                    {{QStringLiteral("selection_start"), 1},
                                     {QStringLiteral("selection_end"), 2000000000}}),
                         false);
    QCOMPARE(word.m_cursor->anchor(), 1);
    QCOMPARE(word.m_cursor->position(), 3);
    QCOMPARE(word.m_selEnd, 2000000000);
}

void TestDocumentString::textThatIsNoDocumentChangesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("words") << QStringLiteral("no document");
    QTest::newRow("array") << QStringLiteral("[1,2]");
    QTest::newRow("cut short") << documentOf({QStringLiteral("new")}).chopped(1);
    QTest::newRow("no body") << QStringLiteral("{\"text_direction\":2}");
    QTest::newRow("no block") << QStringLiteral("{\"fragment\":[],\"text_direction\":2}");
    QTest::newRow("no fragment") << QStringLiteral("{\"block\":[],\"text_direction\":2}");
    QTest::newRow("sizes differ") << QStringLiteral(
        "{\"block\":[{}],\"fragment\":[],\"text_direction\":2}");
    QTest::newRow("block is no array")
        << QStringLiteral("{\"block\":{},\"fragment\":[],\"text_direction\":2}");
    QTest::newRow("fragment is no array")
        << QStringLiteral("{\"block\":[],\"fragment\":5,\"text_direction\":2}");
    QTest::newRow("deeply nested")
        << QString(100000, QLatin1Char('[')) + QString(100000, QLatin1Char(']'));
    QTest::newRow("deep inside") << QStringLiteral("{\"block\":[],\"fragment\":[],\"x\":")
                                        + QString(50000, QLatin1Char('['))
                                        + QString(50000, QLatin1Char(']')) + QLatin1Char('}');
    QTest::newRow("10 MB of letters") << QString(10000000, QLatin1Char('a'));
}

void TestDocumentString::textThatIsNoDocumentChangesNothing()
{
    QFETCH(QString, text);
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.m_cursor->setPosition(1);
    word.m_cursor->setPosition(3, QTextCursor::KeepAnchor);
    word.select(1, 3);
    word.m_warpStyle = 5;
    word.m_scaleX = 2;
    const QString before = word.serialize(false);
    for (bool insert : {false, true}) {
        word.deserialization(text, insert);
        QCOMPARE(word.serialize(false), before);
        QCOMPARE(word.m_cursor->anchor(), 1);
        QVERIFY(word.m_document->isUndoAvailable());
    }
}

void TestDocumentString::pastedBlocksSplitTheParagraph()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.m_cursor->setPosition(2);
    word.deserialization(documentOf({QStringLiteral("X"), QStringLiteral("Y")}), true);
    QCOMPARE(word.toPlainText(), QStringLiteral("abX\nYcd"));
    QCOMPARE(word.m_document->firstBlock().blockFormat().property(1001), QVariant(4));
    QCOMPARE(word.m_document->lastBlock().blockFormat().property(1001), QVariant(4));
}

void TestDocumentString::pastingIgnoresTheHeader()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.deserialization(documentOf({QStringLiteral("X")}, {{QStringLiteral("text_direction"), 2},
                                                            {QStringLiteral("is_flip"), true},
                                                            {QStringLiteral("selection_end"), 2},
                                                            {QStringLiteral("transform_xx"), 5}}),
                         true);
    QCOMPARE(word.toPlainText(), QStringLiteral("abcdX"));
    QCOMPARE(word.m_textOrientation, 1);
    QVERIFY(!word.isFlip());
    QCOMPARE(word.m_selEnd, 0);
    QCOMPARE(word.m_scaleX, 1.0);
}

void TestDocumentString::readingClearsTheUndoStack()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    QVERIFY(word.m_document->isUndoAvailable());
    word.deserialization(documentOf({QStringLiteral("X")}), false);
    QVERIFY(!word.m_document->isUndoAvailable());
}

QTEST_MAIN(TestDocumentString)
#include "tst_documentstring.moc"
