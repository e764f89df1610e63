// SPDX-License-Identifier: MIT
// Numbered properties and what the host's panels are told of them.
#include "callinghost.h"
#include "openword.h"

#include <QBuffer>
#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QTest>

#include <cmath>
#include <functional>
#include <limits>
#include <utility>

class TestProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // every number
    void commandChangesStepsAndTells_data();
    void commandChangesStepsAndTells();
    void answerIsWritten_data();
    void answerIsWritten();
    void questionIsReplacedByItsAnswer_data();
    void questionIsReplacedByItsAnswer();
    void colourOfTextWithoutRunsIsNotFound();
    void colourOfOlderTextIsThatOfItsItems();
    void unknownNumbersAreTheHosts();

    // edit state
    void editOfLockedOrUnfinishedObjectDoesNotBegin();
    void editWithMissingFontsTellsThem();

    // first, placed and replaced text
    void firstTextFinishesTheObject();
    void firstTextOfHtmlIsPlain();
    void firstTextReplacesNothing();
    void placedLineTextTakesPlaceAndStretch();
    void placedBoxTextTakesOverhang();
    void placedTextTurnsFlipsAndMirrors_data();
    void placedTextTurnsFlipsAndMirrors();
    void placedTextStandsAsPictureWhileFontsAreMissing();
    void placedTextLeavesItsPictureWhenFontsAreThere();
    void placedTextObeysTheHeaderOfItsString();
    void placedTextWithoutAPictureKeepsTheOneThatIsThere();
    void placedLineTextHasItsAnchorWhereTheMatrixSays_data();
    void placedLineTextHasItsAnchorWhereTheMatrixSays();
    void replacedTextKeepsTheFirstFormats();
    void replacedTextMayBeEmpty();

    // resolution
    void resolutionKeepsPixelsOrPoints_data();
    void resolutionKeepsPixelsOrPoints();
    void refusedResolutionLeavesTheOldOneInForce();

    // fonts
    void previewReplacesWithoutAStep();
    void confirmationPushesOneStepForAllPreviews();
    void cancellationGoesBack();
    void secondReplacementGoesByTheFormerName();
    void replacementNamedLikeTheMissingFont();
    void replacementNeedsAMissingFont_data();
    void replacementNeedsAMissingFont();
    void replacementDuringEditDoesNothing();
    void hintNeedsMissingFonts();
    void picturePositionIsTakenInImageModeOnly();
    void stateIsHeldOnceAndGivenBack();

    // warp
    void warpPreviewIsNoStep();
    void dragOfAWarpIsOneStep();
    void warpWithMissingFontsTellsTwice();
    void warpInEditStateIsStoredOnly();

    // clipboard
    void cutLaysOut();
    void pasteTakesBothWords();

    // notifications
    void kindAndConditionOfNotifications_data();
    void kindAndConditionOfNotifications();
    void nothingIsSentWithoutASink();
    void oneNotificationMakesUpForThoseLeftOut();

    // whatever comes in
    void shortStreamsCommandNothing_data();
    void shortStreamsCommandNothing();
    void shortFirstTextFinishesTheObject_data();
    void shortFirstTextFinishesTheObject();
    void firstTextEndsAnEdit_data();
    void firstTextEndsAnEdit();
    void spentStreamIsReadAgain();
    void strangeNumbersInStreams_data() { streamRows(); }
    void strangeNumbersInStreams();
    void absurdLengths_data();
    void absurdLengths();
    void streamsWithoutDevice();
    void listenersCallBackFromCommands_data() { streamRows(); }
    void listenersCallBackFromCommands();
    void listenersCommandDuringUndo();

private:
    void streamRows();
};

namespace {
QString key(const char *word)
{
    return QString::fromLatin1(word);
}

template<typename... Values>
QByteArray bytesOf(const Values &...values)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    (out << ... << values);
    return bytes;
}

bool give(OpenWord &word, int number, const QByteArray &bytes = QByteArray())
{
    QDataStream in(bytes);
    return word.SetSpecialProperty(number, in, false);
}

QByteArray ask(OpenWord &word, int number, bool *answered = nullptr)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    const bool known = word.GetSpecialProperty(number, out);
    if (answered)
        *answered = known;
    return bytes;
}

/// A finished text "ab" in the font of squares, 12 points at 96 dpi.
struct Text {
    RecordingHost host;
    OpenWord word{&host};

    explicit Text(const QString &text = QStringLiteral("ab"))
    {
        word.add(text);
        word.undoRedo(word.serialize(false), false); // formats as a document string brings them
        host.clearEvents();
        word.forgetCalls();
    }
    /// The text is written in a font that no machine has.
    void loseFont()
    {
        QTextCharFormat format;
        format.setFontFamily(key("Lost Font"));
        QTextCursor cursor(word.m_document);
        cursor.select(QTextCursor::Document);
        cursor.mergeCharFormat(format);
        word.fontExists(word.serialize(false));
        host.clearEvents();
    }
    QString string() const { return word.serialize(false); }
    QString family() const
    {
        return jsonOf(string())
            .value(QLatin1String("fragment"))
            .toArray()
            .at(0)
            .toArray()
            .at(0)
            .toObject()
            .value(QLatin1String("font_family"))
            .toString();
    }
    int steps() { return host.stack().count(); }
    QVector<int> told() const { return operationsOf(host); }
};

/// The top-level words of two document strings whose values differ, sorted.
QStringList changedWords(const QString &before, const QString &after)
{
    const QJsonObject old = jsonOf(before);
    const QJsonObject now = jsonOf(after);
    QStringList words;
    const QStringList keys = now.keys();
    for (const QString &word : keys) {
        if (now.value(word) != old.value(word))
            words.append(word);
    }
    return words;
}

double pointsOf(const OpenWord &word)
{
    QTextCursor cursor(word.m_document);
    cursor.setPosition(1);
    return cursor.charFormat().fontPointSize();
}

/// The stream of a placed text: the text of \a string, 40 by 20, its picture at (7, 9).
QByteArray placedText(const QString &string, bool wrapped = false,
                      const QTransform &matrix = QTransform(1, 0, 0, 1, 30, 50), int warp = 3)
{
    QByteArray bytes = bytesOf(string.toUtf8(), wrapped, 1, 40.0, 20.0, 7.0, 9.0, matrix.m11(),
                               matrix.m12(), matrix.m21(), matrix.m22(), matrix.dx(), matrix.dy(),
                               warp, 2, -12.0, 50.0, 25.0);
    if (wrapped)
        bytes += bytesOf(-2.0, -3.0, 36.0, 28.0, 0.0, 0.0, 32.0, 24.0);
    return bytes;
}

/// The document string of \a text without header, so that nothing but the text comes with it.
QString bodyOf(const QString &text, int alignment = Qt::AlignLeft)
{
    OpenWord word;
    QTextBlockFormat format;
    format.setProperty(1001, alignment);
    word.m_cursor->setBlockFormat(format);
    word.add(text);
    QJsonObject json = jsonOf(word.serialize(false));
    const QStringList keys = json.keys();
    for (const QString &name : keys) {
        if (name != QLatin1String("block") && name != QLatin1String("fragment"))
            json.remove(name);
    }
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

bool isUnderlined(const OpenWord &word)
{
    QTextCursor cursor(word.m_document);
    cursor.setPosition(1);
    return cursor.charFormat().fontUnderline();
}

QByteArray warpStream(int style, double value, bool commit)
{
    return bytesOf(style, value, 0.25, -0.5, 2, commit);
}

QByteArray replacement(const char *from, const char *to, const char *mode)
{
    return bytesOf(key(from), key(to), key(mode));
}
} // namespace

void TestProperties::commandChangesStepsAndTells_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("result");  // plain text afterwards
    QTest::addColumn<QString>("changed"); // words of the document string with other values
    QTest::addColumn<int>("steps");
    QTest::addColumn<QVector<int>>("told");
    using Told = QVector<int>;
    const QByteArray none;
    const auto row = [](const char *name, int number, const QByteArray &stream, const char *state,
                        const char *result, const char *changed, int steps, const Told &told) {
        QTest::newRow(name) << number << stream << key(state) << key(result) << key(changed)
                            << steps << told;
    };
    const QByteArray xyz = bytesOf(key("xyz"));
    const QByteArray placed = placedText(bodyOf(key("xyz")));
    const QByteArray preview = replacement("Lost Font", "BoxTest", "preview");
    const QByteArray confirm = replacement("Lost Font", "BoxTest", "confirm");
    const QByteArray cancel = replacement("Lost Font", "BoxTest", "cancel");
    const QByteArray hint = bytesOf(true, key("hint"));
    const char *const warpWords = "warp_horizontal_value warp_oriention warp_style warp_value "
                                  "warp_vertical_value";
    const char *const placedWords = "cursor_position fragment warp_horizontal_value warp_oriention "
                                    "warp_style warp_value warp_vertical_value";
    // clang-format off
    row("begin edit",         101, none,                           "",     "ab",  "", 0, {3});
    row("end edit",           102, none,                           "edit", "ab",  "", 0, {0, 0, 3});
    row("end no edit",        102, none,                           "",     "ab",  "", 0, {});
    row("first text",         106, bytesOf(key("x")),              "",     "abx", "block cursor_position fragment", 0, {0});
    row("107",                107, none,                           "",     "ab",  "", 0, {});
    row("placed text",        108, placed,                         "",     "xyz", placedWords, 0, {});
    row("replaced text",      109, xyz,                            "",     "xyz", "cursor_position fragment", 1, {0});
    row("resolution, pixels", 110, bytesOf(96, 1.0, 1.0),          "",     "ab",  "", 0, {0});
    row("resolution, points", 110, bytesOf(96, 2.0, 1.0),          "",     "ab",  "", 0, {});
    row("preview",            112, preview,                        "lost", "ab",  "font_replaced fragment", 0, {});
    row("confirm",            112, confirm,                        "lost", "ab",  "font_replaced fragment", 1, {0});
    row("cancel nothing",     112, cancel,                         "lost", "ab",  "", 0, {});
    row("hint",               113, hint,                           "lost", "ab",  "", 0, {});
    row("hold",               114, none,                           "",     "ab",  "", 0, {});
    row("give back",          115, none,                           "",     "ab",  "", 0, {0});
    row("warp preview",       118, warpStream(3, 0.5, false),      "",     "ab",  warpWords, 0, {});
    row("warp",               118, warpStream(3, 0.5, true),       "",     "ab",  warpWords, 1, {0});
    row("warp, font lost",    118, warpStream(3, 0.5, true),       "lost", "ab",  "", 0, {1, 0});
    row("to paths",           120, none,                           "",     "ab",  "", 0, {});
    row("cut",                125, none,                           "selection", "a", "cursor_position fragment selection_start", 0, {0});
    row("copy",               126, none,                           "selection", "ab", "", 0, {});
    row("paste",              127, bytesOf(false, true),           "clip", "abclip", "cursor_position fragment", 0, {0});
    row("504",                504, none,                           "",     "ab",  "", 0, {});
    row("505",                505, none,                           "",     "ab",  "", 0, {});
    row("position",          2604, none,                           "",     "ab",  "", 0, {});
    // clang-format on
}

void TestProperties::commandChangesStepsAndTells()
{
    QFETCH(int, number);
    QFETCH(QByteArray, stream);
    QFETCH(QString, state);
    QFETCH(QString, result);
    QFETCH(QString, changed);
    QFETCH(int, steps);
    QFETCH(QVector<int>, told);
    Text text;
    if (state == key("lost"))
        text.loseFont();
    if (state == key("edit") || state == key("selection"))
        text.word.beginEdit();
    if (state == key("selection"))
        text.word.select(1, 2);
    if (state == key("clip"))
        QGuiApplication::clipboard()->setText(key("clip"));
    text.word.m_cursor->setPosition(2);
    text.host.clearEvents();
    const QString start = text.string();

    QVERIFY(give(text.word, number, stream));

    QCOMPARE(text.word.toPlainText(), result);
    QCOMPARE(text.steps(), steps);
    QCOMPARE(text.told(), told);
    const QString end = text.string();
    QCOMPARE(changedWords(start, end).join(QLatin1Char(' ')), changed);
    for (int i = 0; i < steps; ++i)
        text.host.stack().undo();
    if (steps > 0)
        QCOMPARE(text.string(), start);
    for (int i = 0; i < steps; ++i)
        text.host.stack().redo();
    QCOMPARE(text.string(), end);
}

void TestProperties::answerIsWritten_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("fonts to replace") << 111 << bytesOf(2, key("One"), key("Three"));
    QTest::newRow("plain text") << 116 << bytesOf(key("ab\ncd"));
    QTest::newRow("colour of the first run") << 117 << bytesOf(true, 1, 2, 3, 4);
    QTest::newRow("orientation and stretch") << 119 << bytesOf(1, 3.0, 10.0);
    QTest::newRow("baselines") << 122 << bytesOf(2, QLineF(0, 12, 16, 12), QLineF(0, 28, 16, 28));
    QTest::newRow("overhang") << 123 << bytesOf(-1.5, -2.5);
    QTest::newRow("colour of the caret") << 124 << bytesOf(QColor(Qt::white));
    QTest::newRow("caret") << 128 << bytesOf(QLineF(1, 2, 3, 4));
}

void TestProperties::answerIsWritten()
{
    QFETCH(int, number);
    QFETCH(QByteArray, answer);
    Text text(QString{});
    QTextCharFormat format = OpenWord::format();
    format.setForeground(QColor(1, 2, 3, 4));
    text.word.add(key("ab\ncd"), format);
    text.word.m_missingFonts = QStringList{key("One"), key("Two"), key("Three")};
    text.word.m_replacedFonts = QStringList{key("Two")};
    text.word.m_scaleX = 1.5;
    text.word.m_transformScaleX = 2;
    text.word.m_scaleY = 5;
    text.word.m_transformScaleY = 2;
    text.word.m_boundsMargins.left = -1.5;
    text.word.m_boundsMargins.top = -2.5;
    text.word.updateCursorColor(Qt::black);
    text.word.m_cursorLine = QLineF(1, 2, 3, 4);
    const QString start = text.string();
    text.host.clearEvents();
    bool known = false;
    QCOMPARE(ask(text.word, number, &known), answer);
    QVERIFY(known);
    QCOMPARE(text.string(), start);
    QVERIFY(text.host.events.isEmpty());
}

void TestProperties::questionIsReplacedByItsAnswer_data()
{
    QTest::addColumn<int>("question");
    QTest::addColumn<bool>("state"); // of all that may be asked for
    QTest::addColumn<QByteArray>("stream");
    for (int question = 0; question <= 3; ++question) {
        for (bool state : {false, true})
            QTest::addRow("%d, %d", question, state)
                << question << state << QByteArray::fromHex(state ? "01" : "00");
    }
    QTest::newRow("unknown") << 4 << true << QByteArray::fromHex("00000004");
    QTest::newRow("negative") << -1 << true << QByteArray::fromHex("ffffffff");
}

void TestProperties::questionIsReplacedByItsAnswer()
{
    QFETCH(int, question);
    QFETCH(bool, state);
    QFETCH(QByteArray, stream);
    OpenWord word;
    word.m_editing = state;
    word.m_wordWrap = state;
    word.m_textOrientation = state ? 1 : 2;
    word.m_created = state;
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream both(&buffer);
    both << question;
    buffer.seek(0);
    QVERIFY(word.GetSpecialProperty(101, both));
    QCOMPARE(buffer.data().left(stream.size()), stream);
    QCOMPARE(buffer.pos(), qint64(stream.size() == 1 ? 1 : 0)); // rewound ahead of the answer
    word.m_editing = false;
    // A question that is cut short gets none.
    QBuffer shortBuffer;
    shortBuffer.setData(QByteArray(2, '\0'));
    shortBuffer.open(QIODevice::ReadWrite);
    QDataStream cut(&shortBuffer);
    QVERIFY(word.GetSpecialProperty(101, cut));
    QCOMPARE(shortBuffer.data(), QByteArray(2, '\0'));
}

void TestProperties::colourOfTextWithoutRunsIsNotFound()
{
    OpenWord word;
    QCOMPARE(ask(word, 117), bytesOf(false));
    word.m_newVersion = false;
    QCOMPARE(ask(word, 117), bytesOf(false));
    word.m_legacyLines.append(STextLine());
    QCOMPARE(ask(word, 117), bytesOf(false));
}

void TestProperties::colourOfOlderTextIsThatOfItsItems()
{
    Text text; // black
    STextItem item;
    item.format.setForeground(QColor(9, 8, 7));
    STextLine line;
    line.items.append(item);
    text.word.m_legacyLines.append(line);
    QCOMPARE(ask(text.word, 117), bytesOf(true, 0, 0, 0, 255));
    text.word.m_newVersion = false;
    QCOMPARE(ask(text.word, 117), bytesOf(true, 9, 8, 7, 255));
}

void TestProperties::unknownNumbersAreTheHosts()
{
    Text text;
    for (int number : {-1, 0, 100, 103, 111, 116, 117, 119, 128, 2603, 2605})
        QVERIFY(!give(text.word, number));
    for (int number : {-1, 0, 100, 102, 106, 118, 127, 2604}) {
        bool known = true;
        QVERIFY(ask(text.word, number, &known).isEmpty());
        QVERIFY(!known);
    }
}

void TestProperties::editOfLockedOrUnfinishedObjectDoesNotBegin()
{
    Text text;
    text.word.setLocked(true, false, false);
    QVERIFY(give(text.word, 101));
    QVERIFY(!text.word.m_editing);
    text.word.setLocked(false, false, false);
    text.word.m_created = false;
    QVERIFY(give(text.word, 101));
    QVERIFY(!text.word.m_editing);
    QCOMPARE(text.told(), QVector<int>());
}

void TestProperties::editWithMissingFontsTellsThem()
{
    Text text;
    text.loseFont();
    give(text.word, 101);
    QVERIFY(!text.word.m_editing);
    QCOMPARE(text.told(), QVector<int>{1});
    const AttributeMap told = text.host.eventsWithKey(key("text_operation")).first().values;
    QCOMPARE(told, (AttributeMap{{key("sub_operator"), 1},
                                 {key("familys"), QStringList{key("Lost Font")}}}));
}

void TestProperties::firstTextFinishesTheObject()
{
    RecordingHost host;
    host.localStrings.insert(key("IDS_TEXT_DEFAULT_INPUTWORD"), key("write"));
    OpenWord word(&host);
    word.m_created = false;
    word.setControlPointDisable(true);
    QVERIFY(give(word, 106, bytesOf(key("a\nb"))));
    QCOMPARE(word.toPlainText(), key("a\nb"));
    QVERIFY(word.m_created);
    QCOMPARE(word.m_defaultWord, key("write"));
    QVERIFY(sizeHandlesAre(word, false));
    QCOMPARE(operationsOf(host), QVector<int>{0});
    QTextCursor cursor(word.m_document);
    for (int position : {1, 3}) {
        cursor.setPosition(position);
        const QTextCharFormat format = cursor.charFormat();
        QCOMPARE(format.foreground(), QBrush(Qt::black, Qt::SolidPattern));
        QCOMPARE(format.fontFamily(), key("BoxTest"));
        QCOMPARE(format.fontPointSize(), 16.0);
        QCOMPARE(format.property(1017), QVariant(0));
        QCOMPARE(cursor.blockFormat().property(4146), QVariant(0.0));
    }
    QVERIFY(word.m_clientRect.width() > 8);
}

void TestProperties::firstTextOfHtmlIsPlain()
{
    RecordingHost host;
    OpenWord word(&host);
    give(word, 106, bytesOf(key("<b>bold</b><img src='file:///etc/passwd'>")));
    QVERIFY(word.toPlainText().startsWith(key("bold")));
    QCOMPARE(word.m_defaultWord, key("Please input text"));
    QTextCursor cursor(word.m_document);
    cursor.setPosition(2);
    QVERIFY(cursor.charFormat().fontWeight() <= 50);
}

void TestProperties::firstTextReplacesNothing()
{
    Text text;
    text.word.m_cursor->select(QTextCursor::Document); // which nobody sees
    give(text.word, 106, bytesOf(key("x")));
    QCOMPARE(text.word.toPlainText(), key("abx"));
}

void TestProperties::placedLineTextTakesPlaceAndStretch()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    QVERIFY(give(word, 108, placedText(bodyOf(key("abc")), false, QTransform(2, 0, 0, 3, 30, 50))));
    QCOMPARE(word.toPlainText(), key("abc"));
    QVERIFY(word.m_created);
    QVERIFY(!word.m_wordWrap);
    QCOMPARE(word.m_textOrientation, 1);
    QCOMPARE(word.m_warpStyle, 3);
    QCOMPARE(word.m_warpOrientation, 2);
    QCOMPARE(word.m_warpHorizontalValue, -0.12);
    QCOMPARE(word.m_warpVerticalValue, 0.5);
    QCOMPARE(word.m_warpValue, 0.25);
    QCOMPARE(word.m_fontImageRotation, 0.0);
    QCOMPARE(word.m_scaleX, 2.0);
    QCOMPARE(word.m_scaleY, 3.0);
    QVERIFY(!word.m_flip && !word.m_mirror);
    QCOMPARE(word.m_fontImageClient, QRectF(30, 50, 40, 20));
    QCOMPARE(word.m_defaultWord, key("Please input text"));
    QVERIFY(word.m_fontImageDropped);
    QVERIFY(!word.m_showFontImage);
    QVERIFY(word.m_missingFonts.isEmpty());
    QVERIFY(sizeHandlesAre(word, false));
    QVERIFY(!word.isHandleDisabled(2));
    QCOMPARE(word.m_clientRect.size(),
             QSizeF(58, 48)); // 24 by 16; 29 by 16 with its warp, stretched
    QVERIFY(!inkOf(contentOf(word)).isEmpty());
    QVERIFY(operationsOf(host).isEmpty());
    QCOMPARE(host.stack().count(), 0);
}

void TestProperties::placedBoxTextTakesOverhang()
{
    RecordingHost host;
    OpenWord word(&host);
    host.scene().addItem(&word);
    word.setTempValue(key("temp_img_data"), QImage(10, 10, QImage::Format_ARGB32));
    QString lost = bodyOf(key("abc"));
    lost.replace(key("BoxTest"), key("Lost Font"));
    QByteArray stream = placedText(lost, true, QTransform(2, 0, 0, 4, 30, 50));
    QVERIFY(give(word, 108, stream));
    QVERIFY(word.m_wordWrap);
    QCOMPARE(word.m_boundsMargins.left, -2.0);
    QCOMPARE(word.m_boundsMargins.top, -3.0);
    QCOMPARE(word.m_boundsMargins.right, 4.0);
    QCOMPARE(word.m_boundsMargins.bottom, 4.0);
    QCOMPARE(word.m_textPathsRect.size(), QSizeF(20, 5));
    QCOMPARE(word.m_fontImageClient, QRectF(30, 50, 40, 20));
    host.scene().removeItem(&word);
}

void TestProperties::placedTextTurnsFlipsAndMirrors_data()
{
    QTest::addColumn<QTransform>("matrix");
    QTest::addColumn<double>("rotation");
    QTest::addColumn<bool>("flip");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<double>("scaleX");
    QTest::addColumn<double>("scaleY");
    QTest::newRow("upright") << QTransform(2, 0, 0, 3, 0, 0) << 0.0 << false << false << 2.0 << 3.0;
    QTest::newRow("quarter") << QTransform(0, 2, -3, 0, 0, 0) << 90.0 << false << false << 2.0
                             << 3.0;
    QTest::newRow("half") << QTransform(-2, 0, 0, -2, 0, 0) << 180.0 << false << false << 2.0
                          << 2.0;
    QTest::newRow("upside down") << QTransform(2, 0, 0, -3, 0, 0) << 0.0 << true << false << 2.0
                                 << 3.0;
    // Left and right exchanged is the same as half a turn and upside down.
    QTest::newRow("mirrored") << QTransform(-2, 0, 0, 3, 0, 0) << 180.0 << true << false << 2.0
                              << 3.0;
    // Turned by a quarter ahead of that, the axes have changed places.
    QTest::newRow("mirrored, quarter")
        << QTransform(0, -2, -3, 0, 0, 0) << -90.0 << false << true << 2.0 << 3.0;
    QTest::newRow("nothing") << QTransform(0, 0, 0, 0, 0, 0) << 0.0 << false << false << 0.0 << 0.0;
}

void TestProperties::placedTextTurnsFlipsAndMirrors()
{
    QFETCH(QTransform, matrix);
    QFETCH(double, rotation);
    QFETCH(bool, flip);
    QFETCH(bool, mirror);
    QFETCH(double, scaleX);
    QFETCH(double, scaleY);
    RecordingHost host;
    OpenWord word(&host);
    give(word, 108, placedText(bodyOf(key("abc")), false, matrix));
    QCOMPARE(word.m_fontImageRotation, rotation);
    QCOMPARE(word.m_flip.load(), flip);
    QCOMPARE(word.m_mirror.load(), mirror);
    QCOMPARE(word.m_scaleX, scaleX);
    QCOMPARE(word.m_scaleY, scaleY);
    QCOMPARE(word.rotation(), rotation);
}

void TestProperties::placedTextStandsAsPictureWhileFontsAreMissing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.setTempValue(key("temp_img_data"), QImage(30, 10, QImage::Format_ARGB32));
    QString lost = bodyOf(key("abc"));
    lost.replace(key("BoxTest"), key("Lost Font"));
    give(word, 108, placedText(lost));
    QVERIFY(word.m_showFontImage);
    QCOMPARE(word.m_missingFonts, QStringList{key("Lost Font")});
    QCOMPARE(word.getPos(), QPointF(7, 9));
    QCOMPARE(word.m_clientRect.size(), QSizeF(30, 10));
    QCOMPARE(word.m_fontImagePos, QPointF(7, 9));
    QCOMPARE(word.m_fontImageSize, QSizeF(30, 10));
    QCOMPARE(word.m_baseSize, QSizeF(30, 10));
    QVERIFY(word.m_fontImageDropped);
    QCOMPARE(ask(word, 111), bytesOf(1, key("Lost Font")));
}

void TestProperties::placedTextLeavesItsPictureWhenFontsAreThere()
{
    RecordingHost host;
    OpenWord word(&host);
    word.setTempValue(key("temp_img_data"), QImage(30, 10, QImage::Format_ARGB32));
    give(word, 108, placedText(bodyOf(key("abc"))));
    QVERIFY(!word.m_showFontImage);
    QCOMPARE(word.m_clientRect.size(), QSizeF(29, 16)); // with its warp
    QCOMPARE(ask(word, 111), bytesOf(0));
}

void TestProperties::placedTextObeysTheHeaderOfItsString()
{
    Text box;
    box.word.m_wordWrap = true;
    box.word.m_warpStyle = 7;
    RecordingHost host;
    OpenWord word(&host);
    give(word, 108, placedText(box.word.serialize(false)));
    QVERIFY(word.m_wordWrap);
    QCOMPARE(word.m_warpStyle, 7);
    // The layout is that of a box: a text too wide for it takes a second line.
    word.updatePosition(&word, QRectF(0, 0, 8, 100));
    word.updateBoundingRectImpl(true);
    QVERIFY(!word.m_textPaths.isEmpty());
}

void TestProperties::placedTextWithoutAPictureKeepsTheOneThatIsThere()
{
    RecordingHost host;
    OpenWord word(&host);
    QImage picture(30, 10, QImage::Format_ARGB32);
    picture.fill(Qt::green);
    word.m_fontImage = picture;
    word.m_fontImagePos = QPointF(200, 100);
    word.m_fontImageSize = QSizeF(30, 10);
    give(word, 108, placedText(bodyOf(key("abc"))));
    QCOMPARE(word.m_fontImage, picture);
    QCOMPARE(word.m_fontImagePos, QPointF(200, 100));
    QCOMPARE(word.m_fontImageSize, QSizeF(30, 10));
    QVERIFY(!word.m_showFontImage);
}

void TestProperties::placedLineTextHasItsAnchorWhereTheMatrixSays_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QTransform>("matrix");
    QTest::addColumn<QPointF>("corner"); // top left of the box of 24 by 16, ascent 12
    const QTransform upright(1, 0, 0, 1, 30, 50);
    const QTransform stretched(2, 0, 0, 3, 30, 50);
    const QTransform quarter(0, 1, -1, 0, 30, 50); // down is to the left
    QTest::newRow("left") << 1 << upright << QPointF(30, 38);
    QTest::newRow("centred") << 4 << upright << QPointF(18, 38);
    QTest::newRow("right") << 2 << upright << QPointF(6, 38);
    QTest::newRow("left, stretched") << 1 << stretched << QPointF(30, 14);
    QTest::newRow("centred, stretched") << 4 << stretched << QPointF(6, 14);
    QTest::newRow("right, stretched") << 2 << stretched << QPointF(-18, 14);
    QTest::newRow("left, turned") << 1 << quarter << QPointF(42, 50);
    QTest::newRow("right, turned") << 2 << quarter << QPointF(42, 26);
}

void TestProperties::placedLineTextHasItsAnchorWhereTheMatrixSays()
{
    QFETCH(int, alignment);
    QFETCH(QTransform, matrix);
    QFETCH(QPointF, corner);
    RecordingHost host;
    OpenWord word(&host);
    give(word, 108, placedText(bodyOf(key("abc"), alignment), false, matrix, /*warp=*/0));
    QCOMPARE(word.getTextTransform().dx(), 30.0);
    QCOMPARE(word.getTextTransform().dy(), 50.0);
    QCOMPARE(word.mapToScene(QPointF(0, 0)), corner);
}

void TestProperties::replacedTextKeepsTheFirstFormats()
{
    Text text(QStringLiteral("ab\ncd"));
    text.word.beginEdit();
    text.word.select(0, 1);
    text.word.setAllAttributes({{key("font_bold"), true}, {key("textalignment"), 4}}, true);
    text.word.endEdit();
    text.word.m_missingFonts = QStringList{key("Lost Font")};
    QVERIFY(give(text.word, 109, bytesOf(key("xyz"))));
    QCOMPARE(contentsOf(text.string()), QList<QStringList>{{key("xyz")}});
    QTextCursor cursor(text.word.m_document);
    cursor.setPosition(3);
    QCOMPARE(cursor.charFormat().fontWeight(), 75);
    QCOMPARE(cursor.blockFormat().property(1001), QVariant(4));
    QCOMPARE(text.word.m_replacedFonts, QStringList{key("Lost Font")});
    QCOMPARE(text.word.m_clientRect.width(), 24.0);
    text.host.stack().undo();
    QCOMPARE(text.word.toPlainText(), key("ab\ncd"));
}

void TestProperties::replacedTextMayBeEmpty()
{
    Text text;
    give(text.word, 109, bytesOf(QString()));
    QCOMPARE(text.word.toPlainText(), QString());
    QCOMPARE(text.family(), key("BoxTest"));
    QCOMPARE(text.steps(), 1);
}

void TestProperties::resolutionKeepsPixelsOrPoints_data()
{
    QTest::addColumn<double>("factorX");
    QTest::addColumn<double>("factorY");
    QTest::addColumn<double>("points");
    QTest::addColumn<double>("width");
    QTest::newRow("pictures stay") << 1.0 << 1.0 << 6.0 << 16.0; // 16 pixels are 6 points at 192
    QTest::newRow("pictures grow") << 2.0 << 2.0 << 12.0 << 32.0;
    QTest::newRow("one way") << 1.0 << 2.0 << 12.0 << 32.0;
}

void TestProperties::resolutionKeepsPixelsOrPoints()
{
    QFETCH(double, factorX);
    QFETCH(double, factorY);
    QFETCH(double, points);
    QFETCH(double, width);
    Text text;
    // A text that has been given a size outside edit state knows its pixels.
    text.word.setAllAttributes({{key("font_pointsize"), 24}}, false);
    QTextCursor cursor(text.word.m_document);
    cursor.select(QTextCursor::Document);
    QTextCharFormat format;
    QFont font(key("BoxTest"));
    font.setPixelSize(16);
    format.setFont(font);
    format.setFontPointSize(12);
    cursor.mergeCharFormat(format);
    QVERIFY(give(text.word, 110, bytesOf(192, factorX, factorY)));
    QCOMPARE(text.word.m_documentDpi, 192);
    QCOMPARE(pointsOf(text.word), points);
    QCOMPARE(text.word.m_clientRect.width(), width);
    QCOMPARE(text.word.m_scaleX, 1.0);
}

void TestProperties::refusedResolutionLeavesTheOldOneInForce()
{
    Text text;
    const QString start = text.string();
    for (int dpi :
         {0, -1, 9601, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        for (double factor : {1.0, 2.0}) {
            text.word.forgetCalls();
            QVERIFY(give(text.word, 110, bytesOf(dpi, factor, factor)));
            QVERIFY(!text.word.changes.isEmpty()); // laid out all the same
        }
        QCOMPARE(text.word.m_documentDpi, 96);
        QCOMPARE(text.string(), start);
    }
    QCOMPARE(text.told(), (QVector<int>{0, 0, 0, 0, 0})); // where pixels are kept
}

void TestProperties::previewReplacesWithoutAStep()
{
    Text text;
    text.loseFont();
    const QString start = text.string();
    give(text.word, 112, replacement("Lost Font", "BoxTest", "whatever"));
    QCOMPARE(text.family(), key("BoxTest"));
    QCOMPARE(text.word.m_replacedFonts, QStringList{key("Lost Font")});
    QCOMPARE(text.word.m_fontReplaceData, start);
    QCOMPARE(text.steps(), 0);
    QCOMPARE(text.told(), QVector<int>());
    QCOMPARE(ask(text.word, 111), bytesOf(0));
}

void TestProperties::confirmationPushesOneStepForAllPreviews()
{
    Text text;
    text.loseFont();
    const QString start = text.string();
    give(text.word, 112, replacement("Lost Font", "DejaVu Sans", "preview"));
    give(text.word, 112, replacement("Lost Font", "BoxTest", "preview"));
    give(text.word, 112, replacement("Lost Font", "BoxTest", "confirm"));
    QCOMPARE(text.family(), key("BoxTest"));
    QCOMPARE(text.steps(), 1);
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
    text.host.stack().undo();
    QCOMPARE(text.string(), start);
    QCOMPARE(text.family(), key("Lost Font"));
    QVERIFY(text.word.m_replacedFonts.isEmpty());
}

void TestProperties::cancellationGoesBack()
{
    Text text;
    text.loseFont();
    const QString start = text.string();
    give(text.word, 112, replacement("Lost Font", "BoxTest", "preview"));
    text.host.clearEvents();
    give(text.word, 112, replacement("", "", "cancel"));
    QCOMPARE(text.string(), start);
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
    QCOMPARE(text.told(), QVector<int>{0});
    QCOMPARE(text.steps(), 0);
}

void TestProperties::secondReplacementGoesByTheFormerName()
{
    Text text;
    text.loseFont();
    give(text.word, 112, replacement("Lost Font", "BoxTest", "confirm"));
    give(text.word, 112, replacement("Lost Font", "Other Font", "confirm"));
    QCOMPARE(text.family(), key("Other Font"));
    QTextCursor cursor(text.word.m_document);
    cursor.setPosition(1);
    QCOMPARE(cursor.charFormat().property(1018), QVariant(key("Lost Font")));
    QCOMPARE(text.word.m_replacedFonts, QStringList{key("Lost Font")}); // listed once
    QCOMPARE(text.steps(), 2);
}

void TestProperties::replacementNamedLikeTheMissingFont()
{
    Text text;
    text.loseFont();
    give(text.word, 112, replacement("Lost Font", "Lost Font", "confirm"));
    QCOMPARE(text.family(), key("Lost Font"));
    QCOMPARE(ask(text.word, 111), bytesOf(0));
    give(text.word, 112, replacement("Lost Font", "BoxTest", "confirm"));
    QCOMPARE(text.family(), key("BoxTest"));
}

void TestProperties::replacementNeedsAMissingFont_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::newRow("not missing") << replacement("BoxTest", "DejaVu Sans", "confirm");
    QTest::newRow("no former name") << replacement("", "BoxTest", "confirm");
    QTest::newRow("no new name") << replacement("Lost Font", "", "confirm");
    QTest::newRow("other case") << replacement("lost font", "BoxTest", "preview");
}

void TestProperties::replacementNeedsAMissingFont()
{
    QFETCH(QByteArray, stream);
    Text text;
    text.loseFont();
    const QString start = text.string();
    QVERIFY(give(text.word, 112, stream));
    QCOMPARE(text.string(), start);
    QCOMPARE(text.steps(), 0);
    QVERIFY(text.word.m_replacedFonts.isEmpty());
}

void TestProperties::replacementDuringEditDoesNothing()
{
    Text text;
    text.loseFont();
    text.word.beginEdit();
    const QString start = text.string();
    for (const char *mode : {"confirm", "preview", "cancel"})
        give(text.word, 112, replacement("Lost Font", "BoxTest", mode));
    QCOMPARE(text.string(), start);
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
    QCOMPARE(text.steps(), 0);
}

void TestProperties::hintNeedsMissingFonts()
{
    Text text;
    give(text.word, 113, bytesOf(true, key("hint")));
    QVERIFY(text.word.m_missingFontHint.isEmpty());
    QVERIFY(text.word.changes.isEmpty());
    text.loseFont();
    give(text.word, 113, bytesOf(true, key("hint")));
    QCOMPARE(text.word.m_missingFontHint, key("hint"));
    QCOMPARE(text.word.changes, QVector<int>{1002});
    give(text.word, 113, bytesOf(false));
    QVERIFY(text.word.m_missingFontHint.isEmpty());
    QCOMPARE(text.word.changes, (QVector<int>{1002, 1002}));
}

void TestProperties::picturePositionIsTakenInImageModeOnly()
{
    Text text;
    text.word.setPos(QPointF(30, 40), false);
    give(text.word, 2604);
    QCOMPARE(text.word.m_fontImagePos, QPointF(0, 0));
    text.word.m_showFontImage = true;
    give(text.word, 2604);
    QCOMPARE(text.word.m_fontImagePos, QPointF(30, 40));
}

void TestProperties::stateIsHeldOnceAndGivenBack()
{
    Text text;
    const QString start = text.string();
    give(text.word, 114);
    text.word.setAllAttributes({{key("font_bold"), true}}, false);
    give(text.word, 114);
    QCOMPARE(text.word.m_fontReplaceData, start);
    give(text.word, 115);
    QCOMPARE(text.string(), start);
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
    give(text.word, 115); // with nothing held
    QCOMPARE(text.string(), start);
    QCOMPARE(text.steps(), 0);
}

void TestProperties::warpPreviewIsNoStep()
{
    Text text;
    const QString start = text.string();
    give(text.word, 118, bytesOf(5, 0.5, 0.25, -0.5, 2, false));
    QCOMPARE(text.word.m_warpStyle, 5);
    QCOMPARE(text.word.m_warpValue, 0.5);
    QCOMPARE(text.word.m_warpHorizontalValue, 0.25);
    QCOMPARE(text.word.m_warpVerticalValue, -0.5);
    QCOMPARE(text.word.m_warpOrientation, 2);
    QCOMPARE(text.word.m_fontReplaceData, start);
    QVERIFY(!text.word.changes.isEmpty()); // the box has been placed anew
    QCOMPARE(text.steps(), 0);
}

void TestProperties::dragOfAWarpIsOneStep()
{
    Text text;
    const QString start = text.string();
    for (double value : {0.1, 0.2, 0.3})
        give(text.word, 118, warpStream(5, value, false));
    give(text.word, 118, warpStream(5, 0.4, true));
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
    QCOMPARE(text.steps(), 1);
    QCOMPARE(text.word.m_warpValue, 0.4);
    text.host.stack().undo();
    QCOMPARE(text.string(), start);
    QCOMPARE(text.word.m_warpStyle, 0);
}

void TestProperties::warpWithMissingFontsTellsTwice()
{
    Text text;
    text.loseFont();
    give(text.word, 118, warpStream(5, 0.4, true));
    QCOMPARE(text.told(), (QVector<int>{1, 0}));
    QCOMPARE(text.word.m_warpStyle, 0);
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
}

void TestProperties::warpInEditStateIsStoredOnly()
{
    Text text;
    text.word.beginEdit();
    text.word.forgetCalls();
    give(text.word, 118, warpStream(5, 0.4, false));
    QCOMPARE(text.word.m_warpStyle, 5);
    QVERIFY(text.word.changes.isEmpty());
}

void TestProperties::cutLaysOut()
{
    Text text(QStringLiteral("abcd"));
    text.word.beginEdit();
    text.word.select(1, 4);
    give(text.word, 125);
    QCOMPARE(text.word.toPlainText(), key("a"));
    QCOMPARE(text.word.m_clientRect.width(), 8.0);
    QCOMPARE(QGuiApplication::clipboard()->text(), key("bcd"));
}

void TestProperties::pasteTakesBothWords()
{
    Text source(QStringLiteral("abcd"));
    source.word.beginEdit();
    source.word.select(0, 4);
    source.word.setAllAttributes({{key("font_bold"), true}}, true);
    give(source.word, 126);
    for (bool rich : {false, true}) {
        RecordingHost host;
        OpenWord word(&host);
        word.m_created = false;
        give(word, 127, bytesOf(true, rich));
        QCOMPARE(word.toPlainText(), key("abcd"));
        QVERIFY(word.m_created);
        QTextCursor cursor(word.m_document);
        cursor.setPosition(1);
        QCOMPARE(cursor.charFormat().fontWeight() == 75, rich);
    }
}

void TestProperties::kindAndConditionOfNotifications_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<AttributeMap>("given");
    QTest::addColumn<int>("tool");
    QTest::addColumn<bool>("editing");
    QTest::addColumn<AttributeMap>("sent"); // beside the kind; empty for nothing at all
    const AttributeMap none;
    const AttributeMap some{{key("a"), 1}};
    const AttributeMap line{{key("horizontal"), false}};
    const AttributeMap both{{key("a"), 1}, {key("horizontal"), false}};
    QTest::newRow("1, no font missing") << 1 << some << 0 << false << none;
    QTest::newRow("2") << 2 << some << 0 << false << line;
    QTest::newRow("3") << 3 << some << 0 << false << AttributeMap{{key("editflag"), false}};
    QTest::newRow("3, edit") << 3 << none << 0 << true << AttributeMap{{key("editflag"), true}};
    for (int kind : {4, 5}) {
        QTest::addRow("%d, text tool", kind) << kind << none << 300 << false << line;
        QTest::addRow("%d, text tool, edit", kind) << kind << none << 300 << true << line;
        QTest::addRow("%d, tool 91", kind) << kind << none << 91 << false << none;
        QTest::addRow("%d, tool 91, edit", kind) << kind << none << 91 << true << line;
        QTest::addRow("%d, other tool", kind) << kind << some << 90 << true << none;
    }
    QTest::newRow("6") << 6 << some << 0 << false << some;
    QTest::newRow("6, empty") << 6 << none << 300 << true << none;
    QTest::newRow("7") << 7 << some << 0 << false << both;
    QTest::newRow("7, empty") << 7 << none << 300 << true << none;
    QTest::newRow("8 is none") << 8 << some << 300 << true << none;
}

void TestProperties::kindAndConditionOfNotifications()
{
    QFETCH(int, kind);
    QFETCH(AttributeMap, given);
    QFETCH(int, tool);
    QFETCH(bool, editing);
    QFETCH(AttributeMap, sent);
    RecordingHost host;
    OpenWord word(&host);
    word.m_textOrientation = 2;
    word.m_editing = editing;
    host.currentTool = tool;
    host.clearEvents();
    word.notifyTextOperation(EnumTextOperation(kind), given);
    if (sent.isEmpty()) {
        QVERIFY(host.events.isEmpty());
        return;
    }
    QCOMPARE(host.events.size(), 1);
    sent.insert(key("sub_operator"), kind);
    QCOMPARE(host.events.first().object, static_cast<CVXRootObject *>(&word));
    QCOMPARE(host.events.first().key, key("text_operation"));
    QCOMPARE(host.events.first().values, sent);
}

void TestProperties::nothingIsSentWithoutASink()
{
    RecordingHost host;
    host.sinkOn = false;
    OpenWord word(&host);
    for (int kind = 0; kind <= 7; ++kind)
        word.notifyTextOperation(EnumTextOperation(kind), {{key("a"), 1}});
    QVERIFY(host.events.isEmpty());
}

void TestProperties::oneNotificationMakesUpForThoseLeftOut()
{
    CallingHost host;
    OpenWord word(&host);
    int answersLeft = 100;
    host.onTextOperation = [&](int) {
        if (answersLeft-- > 0)
            word.notifyTextOperation(TextOperationEditState, {});
    };
    for (int i = 0; i < 2; ++i) {
        host.clearEvents();
        word.notifyTextOperation(TextOperationEditState, {});
        QCOMPARE(operationsOf(host), (QVector<int>{3, 3, 3, 0}));
    }
    answersLeft = 2; // three are no more than may be under way
    host.clearEvents();
    word.notifyTextOperation(TextOperationEditState, {});
    QCOMPARE(operationsOf(host), (QVector<int>{3, 3, 3}));
    host.onTextOperation = nullptr;
}

void TestProperties::shortStreamsCommandNothing_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("stream");
    QTest::newRow("placed line text") << 108 << placedText(bodyOf(key("xy")));
    QTest::newRow("placed box text") << 108 << placedText(bodyOf(key("xy")), true);
    QTest::newRow("replaced text") << 109 << bytesOf(key("xy"));
    QTest::newRow("resolution") << 110 << bytesOf(192, 2.0, 2.0);
    QTest::newRow("font") << 112 << replacement("Lost Font", "BoxTest", "confirm");
    QTest::newRow("hint") << 113 << bytesOf(true, key("hint"));
    QTest::newRow("warp") << 118 << warpStream(5, 0.5, true);
    QTest::newRow("paste") << 127 << bytesOf(false, true);
}

void TestProperties::shortStreamsCommandNothing()
{
    QFETCH(int, number);
    QFETCH(QByteArray, stream);
    QGuiApplication::clipboard()->setText(key("clip"));
    Text text;
    if (number == 112 || number == 113)
        text.loseFont();
    text.word.m_cursor->setPosition(2);
    const QString start = text.string();
    for (int size = 0; size < stream.size(); ++size) {
        QVERIFY(give(text.word, number, stream.left(size)));
        QCOMPARE(text.string(), start);
        QVERIFY(text.word.m_missingFontHint.isEmpty());
        QCOMPARE(text.word.m_documentDpi, 96);
        QCOMPARE(text.steps(), 0);
    }
    contentOf(text.word);
    QVERIFY(give(text.word, number, stream));
    QVERIFY(text.string() != start || text.word.m_missingFontHint == key("hint")
            || text.word.m_documentDpi == 192);
}

void TestProperties::streamRows()
{
    shortStreamsCommandNothing_data();
    QTest::newRow("first text") << 106 << bytesOf(key("xy"));
}

void TestProperties::shortFirstTextFinishesTheObject_data()
{
    QTest::addColumn<QByteArray>("stream");
    const QByteArray whole = bytesOf(key("xy"));
    for (int size = 0; size < whole.size(); ++size)
        QTest::addRow("%d bytes", size) << whole.left(size);
}

void TestProperties::shortFirstTextFinishesTheObject()
{
    QFETCH(QByteArray, stream);
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    QVERIFY(give(word, 106, stream));
    QVERIFY(word.m_created);
    QCOMPARE(word.toPlainText(), QString());
    QCOMPARE(word.m_defaultWord, key("Please input text"));
    const QTextCharFormat format = word.m_cursor->charFormat(); // of what is typed first
    QCOMPARE(format.fontFamily(), key("BoxTest"));
    QCOMPARE(format.fontPointSize(), 16.0);
    QCOMPARE(format.property(1017), QVariant(0));
    QCOMPARE(word.m_cursor->blockFormat().property(4146), QVariant(0.0));
    QVERIFY(sizeHandlesAre(word, false));
    QCOMPARE(operationsOf(host), QVector<int>{0});
}

void TestProperties::firstTextEndsAnEdit_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QString>("result");
    QTest::newRow("read") << bytesOf(key("x")) << key("abnix");
    QTest::newRow("unreadable") << QByteArray(2, '\0') << key("abni");
}

void TestProperties::firstTextEndsAnEdit()
{
    QFETCH(QByteArray, stream);
    QFETCH(QString, result);
    Text text;
    give(text.word, 101);
    text.word.m_cursor->movePosition(QTextCursor::End);
    text.word.m_cursor->insertText(key("ni"), OpenWord::format());
    text.word.m_preeditString = key("ni");
    give(text.word, 106, stream);
    QCOMPARE(text.word.toPlainText(), result);
    QVERIFY(!text.word.m_editing);
    QCOMPARE(int(text.word.m_actionState->editing), 0);
    QCOMPARE(int(text.word.textInteractionFlags()), 0);
    QVERIFY(text.word.m_preeditString.isEmpty());
    QVERIFY(sizeHandlesAre(text.word, false));
    QCOMPARE(text.steps(), 1); // the edit takes the text in
    text.host.stack().undo();
    QCOMPARE(text.word.toPlainText(), key("ab"));
}

void TestProperties::spentStreamIsReadAgain()
{
    Text text;
    QByteArray bytes = bytesOf(key("xyz"));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDataStream in(&buffer);
    buffer.seek(bytes.size());
    QString nothing;
    in >> nothing;
    QCOMPARE(in.status(), QDataStream::ReadPastEnd);
    buffer.seek(0);
    QVERIFY(text.word.SetSpecialProperty(109, in, false));
    QCOMPARE(text.word.toPlainText(), key("xyz"));
    QVERIFY(text.word.SetSpecialProperty(109, in, false)); // at its end now
    QCOMPARE(text.word.toPlainText(), key("xyz"));
    QCOMPARE(text.steps(), 1);
}

void TestProperties::strangeNumbersInStreams()
{
    QFETCH(int, number);
    QFETCH(QByteArray, stream);
    // Wherever a number stands, a real that no text should have is put, or an absurd int.
    QVector<QByteArray> strange;
    for (double value : {qQNaN(), qInf(), -qInf(), 1e308, -1e308, 5e-324, 0.0, -1.0})
        strange.append(bytesOf(value));
    for (int value : {-1, 0, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        strange.append(bytesOf(value));
    // The numbers of a placed text stand behind its document string and one byte.
    const bool isBox = stream.size() > placedText(bodyOf(key("xy"))).size();
    const int first = number == 108 ? stream.size() - (isBox ? 180 : 116) : 0;
    for (const QByteArray &bytes : qAsConst(strange)) {
        for (int at = first; at + bytes.size() <= stream.size(); at += 4) {
            Text text;
            if (number == 112 || number == 113)
                text.loseFont();
            QByteArray changed = stream;
            changed.replace(at, bytes.size(), bytes);
            QVERIFY(give(text.word, number, changed));
            text.word.updateBoundingRectImpl(true);
            QVERIFY(std::isfinite(text.word.m_clientRect.width()));
            QVERIFY(std::isfinite(text.word.m_clientRect.height()));
            QVERIFY(std::isfinite(text.word.getPos().x()));
            QVERIFY(std::isfinite(text.word.getPos().y()));
            give(text.word, 101);
            give(text.word, 102);
            OpenWord other;
            other.deserialization(text.string(), false);
            QCOMPARE(other.toPlainText(), text.word.toPlainText());
        }
    }
}

void TestProperties::absurdLengths_data()
{
    QTest::addColumn<int>("number");
    for (int number : {106, 108, 109, 112})
        QTest::addRow("%d", number) << number;
}

void TestProperties::absurdLengths()
{
    QFETCH(int, number);
    for (quint32 length : {0x7fffffffu, 0x80000000u, 0xfffffffeu, 0xfffffffdu, 0x40000001u, 3u}) {
        Text text;
        QVERIFY(give(text.word, number, bytesOf(length) + QByteArray("some bytes")));
        QCOMPARE(text.word.toPlainText(), key("ab"));
        QCOMPARE(text.steps(), 0);
    }
}

void TestProperties::streamsWithoutDevice()
{
    Text text;
    text.word.beginEdit();
    text.word.endEdit();
    QDataStream nothing;
    for (int number : {106, 107, 108, 109, 110, 112, 113, 118, 127, 504, 505, 2604})
        QVERIFY(text.word.SetSpecialProperty(number, nothing, false));
    QCOMPARE(text.word.toPlainText(), key("ab"));
    QVERIFY(text.word.GetSpecialProperty(101, nothing));
    QCOMPARE(text.steps(), 0);
}

void TestProperties::listenersCallBackFromCommands()
{
    QFETCH(int, number);
    QFETCH(QByteArray, stream);
    const QVector<QPair<int, QByteArray>> answers{{101, QByteArray()},
                                                  {102, QByteArray()},
                                                  {108, placedText(bodyOf(key("back")), true)},
                                                  {109, bytesOf(key("back"))},
                                                  {110, bytesOf(72, 1.0, 1.0)},
                                                  {112, replacement("Lost Font", "X", "confirm")},
                                                  {114, QByteArray()},
                                                  {115, QByteArray()},
                                                  {118, warpStream(2, 0.1, true)},
                                                  {125, QByteArray()},
                                                  {127, bytesOf(true, true)}};
    for (const auto &given : answers) {
        for (bool editing : {false, true}) {
            CallingHost host;
            OpenWord word(&host);
            word.add(key("ab"));
            word.m_missingFonts = QStringList{key("Lost Font")};
            if (number != 112 && number != 113)
                word.m_replacedFonts = word.m_missingFonts;
            if (editing)
                word.beginEdit();
            int answersLeft = 3;
            host.onTextOperation = [&](int) {
                if (answersLeft-- > 0)
                    give(word, given.first, given.second);
            };
            give(word, number, stream);
            answersLeft = 0;
            word.endEdit();
            contentOf(word);
            OpenWord other;
            other.deserialization(word.serialize(false), false);
            QCOMPARE(other.toPlainText(), word.toPlainText());
        }
    }
}

void TestProperties::listenersCommandDuringUndo()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(key("ab"));
    word.undoRedo(word.serialize(false), false);
    const QString start = word.serialize(false);
    for (const char *name : {"font_bold", "font_italic", "text_upper"})
        word.setAllAttributes({{key(name), true}}, true);
    bool answers = false;
    host.onTextOperation = [&](int) {
        if (std::exchange(answers, false))
            word.setAllAttributes({{key("font_underline"), true}}, true);
    };
    CUndoRedo &stack = host.stack();
    for (int i = 0; i < 3; ++i) {
        answers = true;
        stack.undo();
        QVERIFY(!answers);
        answers = true;
        stack.redo();
        QVERIFY(!answers);
    }
    // What was commanded meanwhile belongs to the step that was at work, both ways.
    QCOMPARE(stack.count(), 3);
    const QString end = word.serialize(false);
    stack.undo();
    QCOMPARE(isUnderlined(word), true);
    stack.redo();
    QCOMPARE(isUnderlined(word), true);
    QCOMPARE(word.serialize(false), end);
    while (stack.canUndo())
        stack.undo();
    QCOMPARE(word.serialize(false), start);
}

QTEST_MAIN(TestProperties)
#include "tst_properties.moc"
