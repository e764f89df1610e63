// SPDX-License-Identifier: MIT
// Runs the built program, with the font of squares as the only font that is installed.
#include "tests/app/pdfstreams.h"
#include "tests/app/renderfolder.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {

/// "ab" in squares of 16 px.
const QByteArray goodRun("{\"font_family\":\"BoxTest\",\"font_pointsize\":12,"
                         "\"pen_color\":\"#000000\",\"content\":\"ab\"}");

QByteArray document(const QByteArray &runs, const QByteArray &header = QByteArray())
{
    return "{\"block\":[{}],\"fragment\":[[" + runs + "]]" + header + "}";
}

} // namespace

class TestPageRender : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void helpAndVersionAreShown_data();
    void helpAndVersionAreShown();
    void helpAndManualHaveTheSameOptions();
    void wrongUsage_data();
    void wrongUsage();
    void whatCannotBeDone_data();
    void whatCannotBeDone();
    void badDocuments_data();
    void badDocuments();
    void oddDocumentsAreRendered_data();
    void oddDocumentsAreRendered();
    void hugeSizeEnds();
    void oldFileIsKeptOnFailure();
    void unwritableOutput();
    void pngShowsTheText();
    void verticalTextIsHigh();
    void sizeColorAndBackgroundCount();
    void dpiMultipliesThePage();
    void scaleDoublesThePicture();
    void marginIsAroundTheInk();
    void alignmentMovesTheShortLine_data();
    void alignmentMovesTheShortLine();
    void caretStandsAtItsPosition();
    void caretStaysWhereItIsToldWhenAttributesAreSet();
    void selectionIsInverted();
    void selectionRunsEitherWay();
    void editedBoxHasAFrame();
    void boxWrapsLinesAndCutsThem();
    void boxGrowsWithItsText();
    void boxOfColumnsGrowsToTheLeft();
    void justifiedLinesFillTheBox_data();
    void justifiedLinesFillTheBox();
    void hyphenBreaksAWord();
    void headRuleMovesACharacterOfColumns();
    void punctuationIsCompressed();
    void documentIsSetInABox();
    void svgHasOutlinesAndLooksLikeThePng();
    void pdfHasOutlinesAndNoFont();
    void lineEndsAreEqual();
    void documentOfATextLooksLikeTheText();
    void longTextIsRendered();
    void endsWithoutALibrary();

private:
    Run run(const QStringList &arguments) const { return m_folder->run(arguments); }
    QString path(const char *name) const { return m_folder->path(name); }
    QString write(const char *name, const QByteArray &bytes) const
    {
        return m_folder->write(name, bytes);
    }
    QByteArray read(const char *name) const { return m_folder->read(name); }
    QImage picture(const QByteArray &text, const QStringList &more = QStringList()) const;

    std::unique_ptr<RenderFolder> m_folder;
};

void TestPageRender::init()
{
    m_folder = std::make_unique<RenderFolder>();
}

/// The PNG of \a text in squares of 16 px, or a null image, with the program's message in the log.
QImage TestPageRender::picture(const QByteArray &text, const QStringList &more) const
{
    write("picture.txt", text);
    QFile::remove(path("picture.png"));
    const Run result = run(QStringList{QStringLiteral("--text"), QStringLiteral("picture.txt"),
                                       QStringLiteral("--font"), QStringLiteral("BoxTest"),
                                       QStringLiteral("-o"), QStringLiteral("picture.png")}
                           + (more.contains(QLatin1String("--size"))
                                  ? QStringList()
                                  : QStringList{QStringLiteral("--size"), QStringLiteral("12")})
                           + more);
    if (!result.ended || result.exitCode != 0)
        qWarning("%s", qPrintable(result.err));
    return QImage(path("picture.png"));
}

void TestPageRender::helpAndVersionAreShown_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("part");
    QTest::newRow("--help") << "--help"
                            << "--document <file>";
    QTest::newRow("-h") << "-h"
                        << "--vertical";
    for (const char *option : {"--version", "-V"})
        QTest::newRow(option) << option << "pagerender " PAGERENDER_VERSION "\n";
}

void TestPageRender::helpAndVersionAreShown()
{
    QFETCH(QString, option);
    QFETCH(QString, part);
    const Run result = run({option});
    QVERIFY(result.ended);
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.out.contains(part), qPrintable(result.out));
}

/// The options that the lines of \a help begin with.
static QStringList optionsOfHelp(const QString &help)
{
    QStringList options;
    const QRegularExpression line(QStringLiteral("^  ((-[a-zA-Z], )?--[a-z-]+)"),
                                  QRegularExpression::MultilineOption);
    for (auto it = line.globalMatch(help); it.hasNext();)
        options += it.next().captured(1).split(QLatin1String(", "));
    options.sort();
    return options;
}

/// The options that have an entry in the section of options of \a manual.
static QStringList optionsOfManual(QString manual)
{
    manual.remove(QRegularExpression(QStringLiteral("\\\\(f[BIR])?")));
    const int start = manual.indexOf(QLatin1String("\n.SH OPTIONS\n"));
    manual = manual.mid(start, manual.indexOf(QLatin1String("\n.SH "), start + 1) - start);
    QStringList options;
    const QRegularExpression entry(QStringLiteral("^\\.TP\n(.*)$"),
                                   QRegularExpression::MultilineOption);
    const QRegularExpression option(QStringLiteral("(?<![a-z-])(--[a-z-]+|-[a-zA-Z])(?![a-z])"));
    for (auto it = entry.globalMatch(manual); it.hasNext();) {
        for (auto names = option.globalMatch(it.next().captured(1)); names.hasNext();)
            options.append(names.next().captured(1));
    }
    options.sort();
    return options;
}

void TestPageRender::helpAndManualHaveTheSameOptions()
{
    QFile file(QStringLiteral(VX_SOURCE_DIR "/app/pagerender/pagerender.1"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList manual = optionsOfManual(QString::fromUtf8(file.readAll()));
    const QStringList help = optionsOfHelp(run({QStringLiteral("--help")}).out);
    QVERIFY2(help.size() > 45, qPrintable(help.join(QLatin1Char(' '))));
    QCOMPARE(manual.join(QLatin1Char(' ')), help.join(QLatin1Char(' ')));
}

void TestPageRender::wrongUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *arguments, const char *part) {
        QTest::newRow(*arguments ? arguments : "nothing")
            << QString::fromLatin1(arguments) << QString::fromLatin1(part);
    };
    row("", "no input");
    row("--text a.txt --document a.json -o o.png", "more than one input");
    row("a.json b.json -o o.png", "more than one input: 'a.json' and 'b.json'");
    row("--text a.txt", "no output");
    row("--text a.txt -o o.bmp", "unknown kind of output");
    row("--text a.txt -o png", "unknown kind of output");
    row("--text . -o o.png", "'.' is a directory: give --out-dir");
    row("--text a.txt -o o.png b.txt", "more than one input");
    row("--text a.txt -o o.png --colour red", "colour");
    row("--text a.txt -o o.png --color nocolour", "--color: 'nocolour'");
    row("--text a.txt -o o.png --background #12", "--background: '#12'");
    row("--text a.txt -o o.png --size 0", "--size: '0'");
    row("--text a.txt -o o.png --size -3", "--size: '-3'");
    row("--text a.txt -o o.png --size nan", "--size: 'nan'");
    row("--text a.txt -o o.png --size large", "--size: 'large'");
    row("--text a.txt -o o.png --dpi 0", "--dpi: '0'");
    row("--text a.txt -o o.png --dpi 9601", "--dpi: '9601'");
    row("--text a.txt -o o.png --dpi 1.5", "whole");
    row("--text a.txt -o o.png --margin -1", "--margin: '-1'");
    row("--text a.txt -o o.png --scale 0", "--scale: '0'");
    row("--text a.txt -o o.png --scale 1e9", "--scale: '1e9'");
    row("--text a.txt -o o.svg --scale 2", "--scale is for PNG only");
    row("--document a.json -o o.png --vertical", "--vertical is for --text only");
    row("--text a.txt -o o.png --box 300", "--box: '300' is no size");
    row("--text a.txt -o o.png --box 300x", "--box: '300x'");
    row("--text a.txt -o o.png --box 1x2x3", "--box: '1x2x3'");
    row("--text a.txt -o o.png --box 0x10", "--box: '0x10'");
    row("--text a.txt -o o.png --box -5x10", "--box: '-5x10'");
    row("--text a.txt -o o.png --box 10xnan", "--box: '10xnan'");
    row("--text a.txt -o o.png --box 10xinf", "--box: '10xinf'");
    row("--text a.txt -o o.png --box 32768x10", "--box: '32768x10'");
    row("--text a.txt -o o.png --align middle", "--align: 'middle' is none of left, center");
    row("--text a.txt -o o.png --align justify", "--align justify is for a box only");
    row("--text a.txt -o o.png --auto-height", "--auto-height is for a box only");
    row("--text a.txt -o o.png --head-tail strict", "--head-tail is for a box only");
    row("--text a.txt -o o.png --box 9x9 --head-tail loose", "'loose' is none of relaxed, strict");
    row("--text a.txt -o o.png --hyphenate", "--hyphenate is for a box only");
    row("--text a.txt -o o.png --punctuation compress", "--punctuation is for a box only");
    row("--text a.txt -o o.png --box 9x9 --punctuation x", "'x' is none of compress");
    row("--text a.txt -o o.png --caret -1", "--caret: '-1' is no position");
    row("--text a.txt -o o.png --caret 1.5", "--caret: '1.5'");
    row("--text a.txt -o o.png --caret 3000000000", "--caret: '3000000000'");
    row("--text a.txt -o o.png --select 3", "--select: '3' is no range");
    row("--text a.txt -o o.png --select 3:3", "--select: '3:3'");
    row("--text a.txt -o o.png --select 3:-1", "--select: '3:-1'");
    row("--text a.txt -o o.svg --select 1:2", "--select is for PNG only");
    row("--text a.txt -o o.png --select 1:2 --caret 1", "one of --caret and --select");
    row("a.json", "no output");
    row("a.json --set font_bold=true", "no output");
    row("a.json -o o.png --set font_bold", "--set: 'font_bold' is no key=value");
    row("a.json -o o.png --set font_fat=1", "there is no attribute 'font_fat'");
    row("a.json -o o.png --set 1:=1", "there is no attribute ''");
    row("a.json -o o.png --set font_bold=maybe", "must be true or false");
    row("a.json -o o.png --set font_pointsize=0", "above 0");
    row("a.json -o o.png --set font_pointsize=nan", "above 0");
    row("a.json -o o.png --set font_pointsize=1e308", "up to 1e+06");
    row("a.json -o o.png --set pen_color=nocolour", "must be a colour");
    row("a.json -o o.png --set textalignment=middle", "must be one of left, center");
    row("a.json -o o.png --set paragraph_head_tail_punctuation=3", "from 0 to 2");
    row("a.json -o o.png --replace-font A", "'A' is no A=B");
    row("a.json -o o.png --replace-font A=", "'A=' is no A=B");
    row("a.json -o o.png --replace-font =B", "'=B' is no A=B");
    row("--document a.json -o o.png --font BoxTest", "--font is for --text only");
}

void TestPageRender::wrongUsage()
{
    QFETCH(QString, arguments);
    QFETCH(QString, part);
    const Run result = run(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QVERIFY(result.ended);
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.err.contains(part), qPrintable(result.err));
    QCOMPARE(result.out, QString());
}

void TestPageRender::whatCannotBeDone_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const QByteArray &text, const char *options,
                        const char *part) {
        QTest::newRow(name) << text << QString::fromLatin1(options) << QString::fromLatin1(part);
    };
    row("missing file", QByteArray(), "--text missing.txt -o o.png", "cannot read 'missing.txt'");
    row("Latin-1", "caf\xE9", "--text a.txt -o o.png", "not UTF-8: bad byte 3");
    row("surrogate", "ab\xED\xA0\x80", "--text a.txt -o o.png", "not UTF-8: bad byte 2");
    row("NUL", QByteArray("abc\0d", 5), "--text a.txt -o o.png", "NUL at byte 3");
    row("unknown font", "a", "--text a.txt --font NoSuchFamily -o o.png",
        "unknown font 'NoSuchFamily'");
    row("empty text", "", "--text a.txt --font BoxTest -o o.png", "the page is empty");
    row("spaces", " \t\n  \n", "--text a.txt --font BoxTest -o o.svg", "the page is empty");
    row("wide", QByteArray(5000, 'a'), "--text a.txt --font BoxTest -o o.png", "above 32767");
    row("wide SVG", QByteArray(5000, 'a'), "--text a.txt --font BoxTest -o o.svg", "above 32767");
    row("many lines", QByteArray(30000, '\n') + "a", "--text a.txt --font BoxTest -o o.pdf",
        "too large for a page");
    row("huge size", "a", "--text a.txt --font BoxTest --size 1e9 -o o.png", "too large");
    row("huger size", "a", "--text a.txt --font BoxTest --size 1e300 -o o.png", "too large");
    row("scaled", "aaaa", "--text a.txt --font BoxTest --size 1000 --scale 50 -o o.png",
        "above 32767");
    row("three million", QByteArray(3000000, 'a'), "--text a.txt --font BoxTest -o o.png",
        "too large for a page");
    row("caret behind the end", "ab\nc", "--text a.txt --font BoxTest --caret 5 -o o.png",
        "position 5 lies behind the end of the text, which is 4");
    row("selection behind the end", "ab", "--text a.txt --font BoxTest --select 7:1 -o o.png",
        "position 7");
    row("caret inside a character", "\xF0\x9F\x98\x80", "--text a.txt --caret 1 -o o.png",
        "position 1 lies inside a character");
    row("caret in an empty text", "", "--text a.txt --font BoxTest --caret 0 -o o.png",
        "the page is empty");
    row("no such folder", "a", "--text a.txt --font BoxTest -o none/o.png",
        "cannot write 'none/o.png'");
}

void TestPageRender::whatCannotBeDone()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, options);
    QFETCH(QString, part);
    write("a.txt", text);
    const Run result = run(options.split(QLatin1Char(' ')));
    QVERIFY2(result.ended, qPrintable(result.err));
    QVERIFY2(result.exitCode == 1, qPrintable(result.err));
    QVERIFY2(result.err.contains(part), qPrintable(result.err));
    const QStringList left = QDir(m_folder->folder()).entryList(QDir::Files);
    QCOMPARE(left, QStringList({QStringLiteral("a.txt")}));
}

void TestPageRender::badDocuments_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const QByteArray &json, const char *part) {
        QTest::newRow(name) << json << QString::fromLatin1(part);
    };
    const QByteArray nested = QByteArray(200000, '[') + QByteArray(200000, ']');
    row("empty", "", "no JSON");
    row("no JSON", "\"block", "no JSON");
    row("a number", "12", "no JSON");
    row("a list", "[]", "lacks");
    row("deeply nested", nested, "no JSON");
    row("nested inside", "{\"block\":" + nested + ",\"fragment\":[]}", "no JSON");
    row("no fragment", "{\"block\":[]}", "lacks");
    row("sizes differ", "{\"block\":[{}],\"fragment\":[]}", "1 in \"block\", 0 in \"fragment\"");
    row("no blocks", "{\"block\":[],\"fragment\":[]}", "the page is empty");
    row("wrong types", "{\"block\":[1,\"x\",null],\"fragment\":[2,{},[3,[],\"y\"]]}", "empty");
    row("10 MB of one text",
        document("{\"font_family\":\"BoxTest\",\"content\":\"" + QByteArray(10000000, 'a') + "\"}"),
        "too large for a page");
    row("unknown font", document("{\"font_family\":\"NoSuchFamily\",\"content\":\"a\"}"),
        "unknown font 'NoSuchFamily'");
    row("box text without a box", document(goodRun, ",\"text_wordwrap\":true"), "give --box WxH");
    row("no colour", document("{\"font_family\":\"BoxTest\",\"content\":\"ab\"}"), "empty");
    row("stretch 0", document(goodRun, ",\"transform_xx\":0,\"transform_yy\":0"), "empty");
}

void TestPageRender::badDocuments()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, part);
    write("a.json", json);
    const Run result = run({QStringLiteral("--document"), QStringLiteral("a.json"),
                            QStringLiteral("-o"), QStringLiteral("o.png")});
    QVERIFY2(result.ended, qPrintable(result.err));
    QVERIFY2(result.exitCode == 1, qPrintable(result.err));
    QVERIFY2(result.err.contains(part), qPrintable(result.err));
    QVERIFY(!QFile::exists(path("o.png")));
}

void TestPageRender::oddDocumentsAreRendered_data()
{
    QTest::addColumn<QByteArray>("json");
    const auto row = [](const char *name, const QByteArray &json) { QTest::newRow(name) << json; };
    const QByteArray black = "{\"font_family\":\"BoxTest\",\"pen_color\":\"#000000\",";
    row("unpaired surrogates", document(black + "\"content\":\"a\\ud800b\\udc00\"}"));
    row("size 0", document(black + "\"font_pointsize\":0,\"content\":\"x\"}," + goodRun));
    row("size is no number",
        document(black + "\"font_pointsize\":\"nan\",\"content\":\"x\"}," + goodRun));
    row("no size", document(black + "\"content\":\"ab\"}"));
    row("wrong types in the header",
        document(goodRun, ",\"text_direction\":\"x\",\"cursor_position\":{},\"is_flip\":3,"
                          "\"selection_end\":1e300,\"warp_style\":[],\"font_replaced\":7"));
    row("direction 99", document(goodRun, ",\"text_direction\":99"));
    row("10 MB of an unknown key",
        document(goodRun, ",\"unknown\":\"" + QByteArray(10000000, 'u') + "\""));
}

void TestPageRender::oddDocumentsAreRendered()
{
    QFETCH(QByteArray, json);
    write("a.json", json);
    const Run result = run({QStringLiteral("--document"), QStringLiteral("a.json"),
                            QStringLiteral("-o"), QStringLiteral("o.png")});
    QVERIFY2(result.ended, qPrintable(result.err));
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    QVERIFY(inkOf(QImage(path("o.png"))).pixels > 0);
}

// How large such a letter gets is the text object's choice; the program draws it or refuses the page.
void TestPageRender::hugeSizeEnds()
{
    write("a.json", document("{\"font_family\":\"BoxTest\",\"font_pointsize\":1e9,"
                             "\"pen_color\":\"#000000\",\"content\":\"a\"}"));
    const Run result = run({QStringLiteral("--document"), QStringLiteral("a.json"),
                            QStringLiteral("-o"), QStringLiteral("o.svg")});
    QVERIFY2(result.ended, qPrintable(result.err));
    if (result.exitCode == 0)
        QVERIFY(read("o.svg").contains("<path "));
    else
        QVERIFY2(result.err.contains(QLatin1String("above 32767")), qPrintable(result.err));
}

void TestPageRender::oldFileIsKeptOnFailure()
{
    write("a.txt", " ");
    for (const char *name : {"o.png", "o.svg", "o.pdf"}) {
        write(name, "old");
        const Run result = run({QStringLiteral("--text"), QStringLiteral("a.txt"),
                                QStringLiteral("-o"), QLatin1String(name)});
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(read(name), QByteArrayLiteral("old"));
    }
}

void TestPageRender::unwritableOutput()
{
    write("a.txt", "a");
    QVERIFY(QDir(m_folder->folder()).mkdir(QStringLiteral("folder.png")));
    const Run result = run({QStringLiteral("--text"), QStringLiteral("a.txt"),
                            QStringLiteral("--font"), QStringLiteral("BoxTest"),
                            QStringLiteral("-o"), QStringLiteral("folder.png")});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.err.contains(QLatin1String("cannot write 'folder.png'")),
             qPrintable(result.err));
}

// In squares of 16 px "ag" covers 6 x 6 at (1, -6) and 6 x 8 at (9, -6).
void TestPageRender::pngShowsTheText()
{
    const QImage image = picture("ag", {QStringLiteral("--margin"), QStringLiteral("3")});
    QCOMPARE(image.size(), QSize(14 + 6, 8 + 6));
    const Ink ink = inkOf(image);
    QCOMPARE(ink.bounds, QRect(3, 3, 14, 8));
    QCOMPARE(ink.pixels, 6 * 6 + 6 * 8);
    QCOMPARE(image.pixelColor(4, 4), QColor(Qt::black));
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
}

void TestPageRender::verticalTextIsHigh()
{
    const QByteArray text = QByteArrayLiteral("中文国人");
    const QSize lines = picture(text, {QStringLiteral("--margin"), QStringLiteral("0")}).size();
    const QSize columns = picture(text, {QStringLiteral("--margin"), QStringLiteral("0"),
                                         QStringLiteral("--vertical")})
                              .size();
    QCOMPARE(lines, QSize(16 * 4 - 2, 14));
    QCOMPARE(columns, QSize(14, 16 * 4 - 2));
}

void TestPageRender::sizeColorAndBackgroundCount()
{
    const QImage image =
        picture("a", {QStringLiteral("--size"), QStringLiteral("24"), QStringLiteral("--margin"),
                      QStringLiteral("1"), QStringLiteral("--color"), QStringLiteral("#123456"),
                      QStringLiteral("--background"), QStringLiteral("transparent")});
    QCOMPARE(image.size(), QSize(14, 14));
    QCOMPARE(image.pixelColor(5, 5), QColor(0x12, 0x34, 0x56));
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
}

void TestPageRender::dpiMultipliesThePage()
{
    const QStringList noMargin{QStringLiteral("--margin"), QStringLiteral("0")};
    const QSize once = picture("ag", noMargin).size();
    QVERIFY(!once.isEmpty());
    const QImage twice =
        picture("ag", noMargin + QStringList{QStringLiteral("--dpi"), QStringLiteral("192")});
    QCOMPARE(twice.size(), once * 2);
    QCOMPARE(twice.dotsPerMeterX(), 7559);
}

void TestPageRender::scaleDoublesThePicture()
{
    const QImage once = picture("ag");
    QVERIFY(!once.isNull());
    const QImage twice = picture("ag", {QStringLiteral("--scale"), QStringLiteral("2")});
    QCOMPARE(twice.size(), once.size() * 2);
    QCOMPARE(inkOf(twice).pixels, inkOf(once).pixels * 4);
}

void TestPageRender::marginIsAroundTheInk()
{
    const QSize bare = picture("ag", {QStringLiteral("--margin"), QStringLiteral("0")}).size();
    const QSize wide = picture("ag", {QStringLiteral("--margin"), QStringLiteral("50")}).size();
    QCOMPARE(wide, bare + QSize(100, 100));
    QCOMPARE(picture("ag").size(), bare + QSize(40, 40));
}

void TestPageRender::alignmentMovesTheShortLine_data()
{
    QTest::addColumn<QString>("alignment");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("place");
    QTest::newRow("left") << "left" << false << 0;
    QTest::newRow("center") << "center" << false << 16;
    QTest::newRow("right") << "right" << false << 32;
    QTest::newRow("top") << "left" << true << 0;
    QTest::newRow("middle") << "center" << true << 16;
    QTest::newRow("bottom") << "right" << true << 32;
}

// Three squares of 16 px stand beside one: it has 32 px to move in.
void TestPageRender::alignmentMovesTheShortLine()
{
    QFETCH(QString, alignment);
    QFETCH(bool, vertical);
    QFETCH(int, place);
    QStringList options{QStringLiteral("--margin"), QStringLiteral("0"), QStringLiteral("--align"),
                        alignment};
    if (vertical)
        options.append(QStringLiteral("--vertical"));
    const QImage image = picture("中\n国国国", options);
    QVERIFY(!image.isNull());
    // The short line is the upper one, or the column on the right.
    const int half = vertical ? image.width() - 14 : 14;
    const QImage line = vertical ? image.copy(half, 0, 14, image.height())
                                 : image.copy(0, 0, image.width(), half);
    const QRect ink = inkOf(line).bounds;
    QCOMPARE(vertical ? ink.top() : ink.left(), place);
}

// "aa" covers 6 + 2 + 6 pixels; the caret is two wide and stands between its letters.
void TestPageRender::caretStandsAtItsPosition()
{
    const QImage image = picture("aa", {QStringLiteral("--caret"), QStringLiteral("1"),
                                        QStringLiteral("--margin"), QStringLiteral("5"),
                                        QStringLiteral("--color"), QStringLiteral("#ff0000")});
    QVERIFY(!image.isNull());
    QRect caret;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == QColor(Qt::black))
                caret |= QRect(x, y, 1, 1);
        }
    }
    QCOMPARE(caret.width(), 2);
    QVERIFY2(caret.height() >= 16 && caret.height() <= 18, // the line, and the caps of the pen
             qPrintable(QString::number(caret.height())));
    const int amidTheLetters = caret.top() + 9;
    QCOMPARE(image.pixelColor(caret.left() - 2, amidTheLetters), QColor(Qt::red));
    QCOMPARE(image.pixelColor(caret.right() + 2, amidTheLetters), QColor(Qt::red));
}

void TestPageRender::caretStaysWhereItIsToldWhenAttributesAreSet()
{
    const QStringList caret{QStringLiteral("--caret"), QStringLiteral("1")};
    const QStringList green{QStringLiteral("--set"), QStringLiteral("pen_color=#00ff00")};
    const QImage told =
        picture("aaa", caret + QStringList{QStringLiteral("--color"), QStringLiteral("#00ff00")});
    QVERIFY(!told.isNull());
    QCOMPARE(picture("aaa", caret + green), told);
    const QStringList box{QStringLiteral("--box"), QStringLiteral("34x18"),
                          QStringLiteral("--auto-height")};
    const QImage inBox = picture("aaa aaa aaa", box + caret
                                                    + QStringList{QStringLiteral("--color"),
                                                                  QStringLiteral("#00ff00")});
    QVERIFY(inBox.height() > 48);
    QCOMPARE(picture("aaa aaa aaa", box + caret + green), inBox);
}

void TestPageRender::selectionIsInverted()
{
    const QStringList options{QStringLiteral("--color"), QStringLiteral("#ff0000")};
    const QImage image =
        picture("a中a", options + QStringList{QStringLiteral("--select"), QStringLiteral("1:2")});
    QVERIFY(!image.isNull());
    int red = 0;
    int inverted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            red += image.pixelColor(x, y) == QColor(Qt::red);
            inverted += image.pixelColor(x, y) == QColor(Qt::cyan);
        }
    }
    // The baseline, and the caret at the end of the selection, lie over a part of each.
    QVERIFY2(red >= 2 * 5 * 5, qPrintable(QString::number(red)));
    QVERIFY2(inverted >= 12 * 12, qPrintable(QString::number(inverted)));
}

void TestPageRender::selectionRunsEitherWay()
{
    const QStringList forwards{QStringLiteral("--select"), QStringLiteral("1:3")};
    const QStringList backwards{QStringLiteral("--select"), QStringLiteral("3:1")};
    const QImage image = picture("aaaa", forwards);
    QVERIFY(!image.isNull());
    QCOMPARE(picture("aaaa", backwards), image);
}

// The frame of a box in edit state lies on its edges, whatever the text is.
void TestPageRender::editedBoxHasAFrame()
{
    const QStringList options{QStringLiteral("--margin"), QStringLiteral("5"),
                              QStringLiteral("--box"),    QStringLiteral("200x100"),
                              QStringLiteral("--caret"),  QStringLiteral("0")};
    const QSize size = picture("a", options).size();
    QVERIFY2(size.width() >= 210 && size.width() <= 214, qPrintable(QString::number(size.width())));
    QVERIFY2(size.height() >= 110 && size.height() <= 114,
             qPrintable(QString::number(size.height())));
}

// Four cells of 8 px go on a line of 34, and a line is 16 px high.
void TestPageRender::boxWrapsLinesAndCutsThem()
{
    const QByteArray text("aaa aaa aaa");
    const auto ink = [&](const char *box) {
        return inkOf(picture(text, {QStringLiteral("--margin"), QStringLiteral("0"),
                                    QStringLiteral("--box"), QLatin1String(box)}));
    };
    QCOMPARE(ink("34x100").pixels, 9 * 36);
    QCOMPARE(ink("34x100").bounds.size(), QSize(3 * 8 - 2, 2 * 16 + 6));
    QCOMPARE(ink("34x34").pixels, 6 * 36);
    QCOMPARE(ink("34x18").pixels, 3 * 36);
    QCOMPARE(ink("200x18").bounds.size(), QSize(11 * 8 - 2, 6));
}

void TestPageRender::boxGrowsWithItsText()
{
    const QImage image = picture("aaa aaa aaa", {QStringLiteral("--box"), QStringLiteral("34x18"),
                                                 QStringLiteral("--auto-height")});
    QCOMPARE(inkOf(image).pixels, 9 * 36);
    const QImage framed = picture("aaa aaa aaa", {QStringLiteral("--box"), QStringLiteral("34x18"),
                                                  QStringLiteral("--auto-height"),
                                                  QStringLiteral("--margin"), QStringLiteral("0"),
                                                  QStringLiteral("--caret"), QStringLiteral("11")});
    QVERIFY2(framed.height() >= 48 && framed.height() <= 54,
             qPrintable(QString::number(framed.height())));
}

void TestPageRender::boxOfColumnsGrowsToTheLeft()
{
    const QStringList options{QStringLiteral("--box"), QStringLiteral("16x34"),
                              QStringLiteral("--vertical"), QStringLiteral("--margin"),
                              QStringLiteral("0")};
    const QByteArray text = QByteArrayLiteral("中中中中中中");
    QCOMPARE(inkOf(picture(text, options)).bounds.width(), 14);
    const Ink grown = inkOf(picture(text, options + QStringList{QStringLiteral("--auto-height")}));
    QCOMPARE(grown.pixels, 6 * 14 * 14);
    QVERIFY2(grown.bounds.width() > 40, qPrintable(QString::number(grown.bounds.width())));
}

void TestPageRender::justifiedLinesFillTheBox_data()
{
    QTest::addColumn<QString>("alignment");
    QTest::addColumn<bool>("firstIsSpread");
    QTest::addColumn<bool>("lastIsSpread");
    QTest::addColumn<int>("lastLeft"); // of its ink, in the box
    QTest::newRow("left") << "left" << false << false << 1;
    QTest::newRow("justify") << "justify" << true << true << 1;
    QTest::newRow("justify-left") << "justify-left" << true << false << 1;
    QTest::newRow("justify-center") << "justify-center" << true << false << 15;
    QTest::newRow("justify-right") << "justify-right" << true << false << 29;
}

// In a box of 44 px five letters go on the first line and two on the last: 4 and 28 px are spare.
void TestPageRender::justifiedLinesFillTheBox()
{
    QFETCH(QString, alignment);
    QFETCH(bool, firstIsSpread);
    QFETCH(bool, lastIsSpread);
    QFETCH(int, lastLeft);
    const QImage image = picture("aaaaaaa", {QStringLiteral("--margin"), QStringLiteral("0"),
                                             QStringLiteral("--box"), QStringLiteral("44x40"),
                                             QStringLiteral("--align"), alignment});
    QVERIFY(!image.isNull());
    const QRect first = inkOf(image.copy(0, 0, image.width(), 8)).bounds;
    const QRect last = inkOf(image.copy(0, 12, image.width(), 10)).bounds;
    QVERIFY(first.isValid());
    QVERIFY(last.isValid());
    QCOMPARE(first.width(), firstIsSpread ? 5 * 8 - 2 + 4 : 5 * 8 - 2);
    QCOMPARE(last.width(), lastIsSpread ? 2 * 8 - 2 + 28 : 2 * 8 - 2);
    QCOMPARE(last.left() - first.left(), lastLeft - 1);
}

void TestPageRender::hyphenBreaksAWord()
{
    const QStringList options{QStringLiteral("--margin"), QStringLiteral("0"),
                              QStringLiteral("--box"), QStringLiteral("66x40")};
    const QByteArray text("aaa aaaaaaa");
    const QImage whole = picture(text, options);
    const QImage broken = picture(text, options + QStringList{QStringLiteral("--hyphenate")});
    QCOMPARE(inkOf(whole.copy(0, 0, whole.width(), 8)).bounds.width(), 3 * 8 - 2);
    QVERIFY(inkOf(broken.copy(0, 0, broken.width(), 8)).bounds.width() > 5 * 8);
    QVERIFY(inkOf(broken).pixels > inkOf(whole).pixels); // by the hyphen
}

// The full stop may not begin a column, and so the last character of the column goes with it.
void TestPageRender::headRuleMovesACharacterOfColumns()
{
    const QStringList options{QStringLiteral("--margin"), QStringLiteral("0"),
                              QStringLiteral("--vertical"), QStringLiteral("--box"),
                              QStringLiteral("60x66")};
    const auto rightColumn = [&](const QStringList &more) {
        const QImage image = picture("中中中中。国", options + more);
        return inkOf(image.copy(image.width() - 14, 0, 14, image.height())).bounds.height();
    };
    const int free = rightColumn({});
    QCOMPARE(rightColumn({QStringLiteral("--head-tail"), QStringLiteral("strict")}), free - 16);
    QCOMPARE(rightColumn({QStringLiteral("--head-tail"), QStringLiteral("relaxed")}), free - 16);
}

void TestPageRender::punctuationIsCompressed()
{
    const QStringList options{QStringLiteral("--margin"), QStringLiteral("0"),
                              QStringLiteral("--box"), QStringLiteral("200x40")};
    const int full = picture("中，中", options).width();
    const int compressed = picture("中，中", options
                                                 + QStringList{QStringLiteral("--punctuation"),
                                                               QStringLiteral("compress")})
                               .width();
    QCOMPARE(full, 3 * 16 - 2);
    QCOMPARE(compressed, full - 8);
}

void TestPageRender::documentIsSetInABox()
{
    write("a.json", document("{\"font_family\":\"BoxTest\",\"font_pointsize\":12,"
                             "\"pen_color\":\"#000000\",\"content\":\"aaa aaa\"}",
                             ",\"text_wordwrap\":true,\"transform_xx\":3,\"transform_yy\":3"));
    const Run result = m_folder->run("a.json --box 34x100 --align right --margin 0 -o o.png");
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    const QImage text = picture("aaa aaa", {QStringLiteral("--box"), QStringLiteral("34x100"),
                                            QStringLiteral("--align"), QStringLiteral("right"),
                                            QStringLiteral("--margin"), QStringLiteral("0")});
    QVERIFY(!text.isNull());
    QCOMPARE(QImage(path("o.png")), text);
}

void TestPageRender::svgHasOutlinesAndLooksLikeThePng()
{
    const QImage png = picture("ag\n中x");
    const Run result = run({QStringLiteral("--text"), QStringLiteral("picture.txt"),
                            QStringLiteral("--font"), QStringLiteral("BoxTest"),
                            QStringLiteral("--size"), QStringLiteral("12"), QStringLiteral("-o"),
                            QStringLiteral("o.svg")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    const QByteArray svg = read("o.svg");
    QVERIFY(svg.contains("<path "));
    QVERIFY(!svg.contains("<text"));
    QVERIFY(!svg.contains("<image"));
    QSvgRenderer renderer(svg);
    QVERIFY(renderer.isValid());
    QCOMPARE(renderer.viewBox().size(), png.size());
    QImage drawn(png.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    renderer.render(&painter);
    painter.end();
    QCOMPARE(drawn.convertToFormat(QImage::Format_RGB32),
             png.convertToFormat(QImage::Format_RGB32));
}

void TestPageRender::pdfHasOutlinesAndNoFont()
{
    write("a.txt", "ag");
    const Run result = run({QStringLiteral("--text"), QStringLiteral("a.txt"),
                            QStringLiteral("--font"), QStringLiteral("BoxTest"),
                            QStringLiteral("-o"), QStringLiteral("o.pdf")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    const QByteArray pdf = read("o.pdf");
    QVERIFY(pdf.startsWith("%PDF-"));
    QVERIFY(!pdf.contains("/FontFile"));
    const QByteArray drawing = pdfStreams(pdf);
    QVERIFY2(drawing.contains(" l\n"), drawing.constData());
    QVERIFY2(!drawing.contains(" Tj"), drawing.constData());
}

void TestPageRender::lineEndsAreEqual()
{
    const QImage lines = picture("ag\nx\n\nb");
    QVERIFY(!lines.isNull());
    QCOMPARE(picture("ag\r\nx\r\n\r\nb\r\n"), lines);
    QCOMPARE(picture("\xEF\xBB\xBF"
                     "ag\rx\r\rb"),
             lines);
}

void TestPageRender::documentOfATextLooksLikeTheText()
{
    write("a.json", document("{\"font_family\":\"BoxTest\",\"font_pointsize\":12,"
                             "\"pen_color\":\"#000000\",\"content\":\"ag中\"}",
                             ",\"text_direction\":2"));
    const Run result = run({QStringLiteral("--document"), QStringLiteral("a.json"),
                            QStringLiteral("-o"), QStringLiteral("o.png")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    const QImage text = picture("ag中", {QStringLiteral("--vertical")});
    QVERIFY(!text.isNull());
    QCOMPARE(QImage(path("o.png")), text);
}

void TestPageRender::longTextIsRendered()
{
    QByteArray text;
    for (int line = 0; line < 1000; ++line)
        text += "the quick brown fox jumps over the lazy dog\n";
    const QImage image = picture(text);
    QVERIFY(!image.isNull());
    QVERIFY(image.height() > 1000 * 8);
    QVERIFY(inkOf(image).pixels > 35 * 1000);
}

void TestPageRender::endsWithoutALibrary()
{
    write("a.txt", "a");
    const Run result = run({QStringLiteral("--text"), QStringLiteral("a.txt"),
                            QStringLiteral("--font"), QStringLiteral("BoxTest"),
                            QStringLiteral("--plugin"), QStringLiteral("none.so"),
                            QStringLiteral("-o"), QStringLiteral("o.png")});
    QVERIFY(result.ended);
    QCOMPARE(result.exitCode, 4);
    QVERIFY2(result.err.contains(QLatin1String("no text objects")), qPrintable(result.err));
}

QTEST_GUILESS_MAIN(TestPageRender)
#include "tst_pagerender.moc"
