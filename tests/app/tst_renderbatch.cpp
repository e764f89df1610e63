// SPDX-License-Identifier: MIT
// Runs the built program on several inputs: names of outputs, exit codes, reports, limits and
// interruptions.
#include "tests/app/renderfolder.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A page of 100 by 60 pixels with \a content in the font of squares, or in \a family.
QByteArray page(const QByteArray &content, const QByteArray &family = QByteArrayLiteral("BoxTest"),
                const QByteArray &more = QByteArray())
{
    QByteArray json("{'format':'vxpage','version':1,'page':{'width':100,'height':60},'objects':["
                    "{'kind':'rich_text','text':'"
                    + content + "','x':10,'y':20,'attributes':{'font_pointsize':12,'font_family':'"
                    + family + "'}" + more + "}]}");
    return json.replace('\'', '"');
}

QByteArray document(const QByteArray &content)
{
    QByteArray json("{'block':[{}],'fragment':[[{'font_family':'BoxTest','font_pointsize':12,"
                    "'pen_color':'#000000','content':'"
                    + content + "'}]]}");
    return json.replace('\'', '"');
}

/// The report that \a run printed.
QJsonObject reportOf(const Run &run)
{
    return QJsonDocument::fromJson(run.bytes).object();
}

/// What the report says of input number \a number under \a key.
QJsonValue entry(const QJsonObject &report, int number, const char *key)
{
    const QJsonArray inputs = report.value(QLatin1String("inputs")).toArray();
    return inputs.at(number).toObject().value(QLatin1String(key));
}

bool isPng(const QByteArray &bytes)
{
    return !QImage::fromData(bytes, "PNG").isNull();
}

} // namespace

class TestRenderBatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<RenderFolder>(); }

    void severalInputsAreWrittenUnderTheirNames();
    void folderStandsForItsFiles();
    void badFilesDoNotStopTheOthers();
    void emptyFolderIsAFailure();
    void textsOfAFolderAreRendered();
    void outputsThatDifferInSuffixKeepIt();
    void formatIsToldOrGuessed_data();
    void formatIsToldOrGuessed();
    void inputAndOutputAreStreams();
    void wrongUsage_data();
    void wrongUsage();
    void inputIsNeverWrittenOver();
    void anotherPageIsNotThere();
    void unwritableFolder();
    void fullDeviceIsAFailure();
    void closedPipeIsAFailure();
    void checkWritesNothing_data();
    void checkWritesNothing();
    void textIsDumped();
    void dumpedTextGoesWhereItIsTold();
    void textWithoutAFileDumps_data();
    void textWithoutAFileDumps();
    void missingFontsByPolicy_data();
    void missingFontsByPolicy();
    void pictureStandsWithoutALabel();
    void missingFontsOfAllInputsAreListed();
    void reportTellsOfEachInput();
    void quietAndVerbose();
    void longNamesMeanTheSame();
    void exitCodeTellsTheMost_data();
    void exitCodeTellsTheMost();
    void foreignLibraryIsRefused();
    void slowInputIsGivenUp();
    void limitChangesNoResult();
    void interruptionLeavesWhatIsWhole_data();
    void interruptionLeavesWhatIsWhole();
    void interruptionAtAnyTimeLeavesNoHalfFile();

private:
    QStringList files(const char *folder = ".") const
    {
        return QDir(m_folder->path(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    QByteArray writtenAlone(const char *input, const char *output) const
    {
        m_folder->run({QLatin1String(input), QStringLiteral("-o"), QLatin1String(output)});
        return m_folder->read(output);
    }
    void makePipe(const char *name) const
    {
        QCOMPARE(mkfifo(QFile::encodeName(m_folder->path(name)).constData(), 0600), 0);
    }
    void makeFolder(const char *name) const
    {
        QVERIFY(QDir(m_folder->folder()).mkpath(QLatin1String(name)));
    }

    std::unique_ptr<RenderFolder> m_folder;
};

void TestRenderBatch::severalInputsAreWrittenUnderTheirNames()
{
    m_folder->write("one.json", page("a"));
    m_folder->write("two.v1.json", document("中"));
    const Run run = m_folder->run("one.json two.v1.json --out-dir new/out");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(run.out + run.err, QString());
    QCOMPARE(files("new/out"),
             QStringList({QStringLiteral("one.png"), QStringLiteral("two.v1.png")}));
    QCOMPARE(QImage(m_folder->path("new/out/one.png")).size(), QSize(100, 60));
    QCOMPARE(m_folder->read("new/out/two.v1.png"), writtenAlone("two.v1.json", "two.png"));
}

void TestRenderBatch::folderStandsForItsFiles()
{
    makeFolder("pages/below");
    m_folder->write("pages/b.json", page("b"));
    m_folder->write("pages/a.JSON", page("a"));
    m_folder->write("pages/notes.txt", "no page");
    m_folder->write("pages/below/c.json", page("c"));
    const Run run = m_folder->run("pages --out-dir out -f svg");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(files("out"), QStringList({QStringLiteral("a.svg"), QStringLiteral("b.svg")}));
}

void TestRenderBatch::badFilesDoNotStopTheOthers()
{
    makeFolder("pages");
    m_folder->write("pages/a-bad.json", "{\"format\":");
    m_folder->write("pages/b.json", page("b"));
    m_folder->write("pages/c-foreign.vxpage", "GIF89a");
    m_folder->write("pages/d-newer.json", "{\"format\":\"vxpage\",\"version\":9}");
    m_folder->write("pages/e-huge.json", "{\"format\":\"vxpage\",\"version\":1,"
                                         "\"page\":{\"width\":32767,\"height\":32767}}");
    m_folder->write("pages/f.json", document("f"));
    const Run run = m_folder->run("pages none.json --out-dir out");
    QVERIFY(run.ended);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(files("out"), QStringList({QStringLiteral("b.png"), QStringLiteral("f.png")}));
    for (const char *part : {"a-bad.json' is no JSON", "c-foreign.vxpage' is no JSON",
                             "d-newer.json': version: 9 is newer", "above 268435456 in all",
                             "cannot read 'none.json'"})
        QVERIFY2(run.err.contains(QLatin1String(part)), qPrintable(run.err));
    QCOMPARE(run.err.count(QLatin1Char('\n')), 5);
}

void TestRenderBatch::emptyFolderIsAFailure()
{
    makeFolder("empty");
    m_folder->write("a.json", page("a"));
    const Run run = m_folder->run("empty a.json --out-dir out");
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QLatin1String("the directory holds no *.json and no *.vxpage")),
             qPrintable(run.err));
    QCOMPARE(files("out"), QStringList({QStringLiteral("a.png")}));
}

void TestRenderBatch::textsOfAFolderAreRendered()
{
    makeFolder("texts");
    m_folder->write("texts/a.txt", "a");
    m_folder->write("texts/page.json", page("a"));
    m_folder->write("b.md", "b");
    const Run run = m_folder->run("--text texts b.md --font BoxTest --out-dir out");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(files("out"), QStringList({QStringLiteral("a.png"), QStringLiteral("b.png")}));
}

void TestRenderBatch::outputsThatDifferInSuffixKeepIt()
{
    m_folder->write("page.json", page("a"));
    m_folder->write("other.json", page("b"));
    QCOMPARE(m_folder->run("--convert page.json page.vxpage").exitCode, 0);
    const Run run = m_folder->run("page.json page.vxpage other.json --out-dir out");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(files("out"),
             QStringList({QStringLiteral("other.png"), QStringLiteral("page.json.png"),
                          QStringLiteral("page.vxpage.png")}));
}

void TestRenderBatch::formatIsToldOrGuessed_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QByteArray>("start");
    const QByteArray png("\x89PNG");
    QTest::newRow("suffix") << "-o o.SVG"
                            << "o.SVG" << QByteArray("<?xml");
    QTest::newRow("told") << "-f pdf -o o.tmp"
                          << "o.tmp" << QByteArray("%PDF-");
    QTest::newRow("told otherwise") << "--format png -o o.svg"
                                    << "o.svg" << png;
    QTest::newRow("folder") << "--out-dir ."
                            << "page.png" << png;
}

void TestRenderBatch::formatIsToldOrGuessed()
{
    QFETCH(QString, options);
    QFETCH(QString, output);
    QFETCH(QByteArray, start);
    m_folder->write("page.json", page("a"));
    const Run run = m_folder->run(qPrintable(QStringLiteral("page.json ") + options));
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QVERIFY(m_folder->read(qPrintable(output)).startsWith(start));
}

void TestRenderBatch::inputAndOutputAreStreams()
{
    m_folder->write("page.json", page("a"));
    const QByteArray expected = writtenAlone("page.json", "page.png");
    QVERIFY(isPng(expected));
    QCOMPARE(m_folder->run("- -f png -o -", page("a")).bytes, expected);
    QCOMPARE(m_folder->run("page.json -f png -o -").bytes, expected);
    const Run text = m_folder->run("--text - --font BoxTest --size 12 -o text.svg", "a");
    QVERIFY2(text.exitCode == 0, qPrintable(text.err));
    QVERIFY(m_folder->read("text.svg").contains("<path "));
    const Run bad = m_folder->run("- -f png -o -", "{");
    QCOMPARE(bad.exitCode, 1);
    QCOMPARE(bad.bytes, QByteArray());
    QVERIFY2(bad.err.contains(QLatin1String("'-' is no JSON")), qPrintable(bad.err));
    m_folder->write("-", "{"); // a file of that name is reached by a path
    QVERIFY(m_folder->run("./- -f png -o o.png").err.contains(QLatin1String("'./-' is no JSON")));
}

void TestRenderBatch::wrongUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *arguments, const char *part) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(part);
    };
    row("a.json b.json", "no output: give -o FILE or --out-dir");
    row("a.json b.json -o o.png", "want --out-dir in place of -o");
    row("a.json -o o.png --out-dir out", "one of -o and --out-dir");
    row("a.json --out-dir=", "--out-dir wants a directory");
    row("a.json -o -", "unknown kind of output '-'");
    row("a.json -o o.png -f gif", "--format: 'gif' is none of png, svg, pdf");
    row("- - --check", "more than one input is the standard input");
    row("- --out-dir out", "the standard input has no name");
    row("sub/a.json a.json --out-dir out", "would both be written to 'out/a.json.png'");
    row("a.json a.json --out-dir out", "would both be written");
    row("a.json --text a.txt --document b.json --out-dir out", "one of --text and --document");
    row("a.json -o o.png --page 0", "--page: '0'");
    row("a.json -o o.png --page 1.5", "--page wants a whole number");
    row("a.json -o o.png --timeout 0", "--timeout: '0'");
    row("a.json -o o.png --timeout -1", "--timeout: '-1'");
    row("a.json -o o.png --timeout soon", "--timeout: 'soon'");
    row("a.json -o o.png -q -v", "one of --quiet and --verbose");
    row("a.json -o o.png --missing-fonts=ask", "'ask' is none of warn, error, picture");
    row("a.json -o o.png --missing-fonts=", "'' is none of warn, error, picture");
    row("a.json --missing-fonts=warn", "no output");
    row("a.json --check -o o.png", "--check writes nothing");
    row("a.json --check --dump-text", "one of --check and --dump-text");
    row("a.json --json -f png -o -", "want the standard output");
    row("a.json b.json --dump-text -o o.txt", "want --out-dir in place of -o");
    row("--warp-sheet o.png a.json --out-dir out", "--warp-sheet goes without --out-dir");
    row("--art arch --text a.txt --dump-text", "--dump-text does not go with --art");
    row("--art-sheet o.png --check", "--check does not go with --art-sheet");
}

void TestRenderBatch::wrongUsage()
{
    QFETCH(QString, arguments);
    QFETCH(QString, part);
    makeFolder("sub");
    for (const char *name : {"a.json", "b.json", "sub/a.json"})
        m_folder->write(name, page("a"));
    m_folder->write("a.txt", "a");
    const QStringList before = files();
    const Run run = m_folder->run(qPrintable(arguments));
    QVERIFY(run.ended);
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(part), qPrintable(run.err));
    QCOMPARE(files(), before);
    QVERIFY(!m_folder->has("out"));
}

void TestRenderBatch::inputIsNeverWrittenOver()
{
    makeFolder("out");
    m_folder->write("a.json", page("a"));
    m_folder->write("out/b.png", page("b"));
    QVERIFY(QFile::link(QStringLiteral("a.json"), m_folder->path("link.json")));
    for (const char *arguments : {"a.json -f png -o a.json", "a.json -f svg -o ./link.json",
                                  "out/b.png --out-dir out", "a.json out/b.png --out-dir out"}) {
        const Run run = m_folder->run(arguments);
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.err.contains(QLatin1String("is an input")), qPrintable(run.err));
    }
    QCOMPARE(m_folder->read("a.json"), page("a"));
    QCOMPARE(m_folder->read("out/b.png"), page("b"));
}

void TestRenderBatch::anotherPageIsNotThere()
{
    m_folder->write("page.json", page("a"));
    QCOMPARE(m_folder->run("page.json --page 1 -o one.png").exitCode, 0);
    const Run run = m_folder->run("page.json --page 2 -o two.png");
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QLatin1String("'page.json' has one page: there is no page 2")),
             qPrintable(run.err));
    QVERIFY(!m_folder->has("two.png"));
}

void TestRenderBatch::unwritableFolder()
{
    m_folder->write("page.json", page("a"));
    m_folder->write("file", "old");
    const Run run = m_folder->run("page.json --out-dir file/out");
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QLatin1String("cannot make the directory 'file/out'")),
             qPrintable(run.err));
    makeFolder("out/page.png");
    const Run blocked = m_folder->run("page.json --out-dir out");
    QCOMPARE(blocked.exitCode, 1);
    QVERIFY2(blocked.err.contains(QLatin1String("cannot write 'out/page.png'")),
             qPrintable(blocked.err));
}

void TestRenderBatch::fullDeviceIsAFailure()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("there is no /dev/full");
    m_folder->write("page.json", page("a"));
    const Run run = m_folder->run("page.json -f png -o /dev/full");
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QLatin1String("cannot write '/dev/full'")), qPrintable(run.err));
    QCOMPARE(m_folder->run("page.json -f png -o /dev/null").exitCode, 0);
    QProcess shell;
    for (const char *what : {"-f png -o -", "--dump-text", "--check --json"}) {
        m_folder->start(shell,
                        {QStringLiteral("-c"),
                         QStringLiteral("exec '%1' page.json %2 > /dev/full")
                             .arg(QStringLiteral(PAGERENDER_PROGRAM), QLatin1String(what))},
                        QStringLiteral("/bin/sh"));
        QVERIFY(shell.waitForFinished(runTimeout));
        QCOMPARE(shell.exitCode(), 1);
        QVERIFY(shell.readAllStandardError().contains("cannot write to the standard output"));
    }
}

// The program ends by itself, and not by the signal that such a pipe sends.
void TestRenderBatch::closedPipeIsAFailure()
{
    m_folder->write("page.json", page("a"));
    QProcess shell;
    m_folder->start(shell,
                    {QStringLiteral("-c"),
                     QStringLiteral("{ '%1' page.json -f svg -o -; echo code $? >&2; } | :")
                         .arg(QStringLiteral(PAGERENDER_PROGRAM))},
                    QStringLiteral("/bin/sh"));
    QVERIFY(shell.waitForFinished(runTimeout));
    const QByteArray told = shell.readAllStandardError();
    QVERIFY2(told.contains("cannot write to the standard output"), told.constData());
    QVERIFY2(told.contains("code 1\n"), told.constData());
}

void TestRenderBatch::checkWritesNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("good") << page("a") << "" << 0;
    QTest::newRow("document") << document("a") << "" << 0;
    QTest::newRow("no JSON") << QByteArray("{") << "" << 1;
    QTest::newRow("empty") << document(" ") << "" << 1;
    QTest::newRow("too large") << page("a") << "--scale 99 --dpi 9600" << 1;
    QTest::newRow("not too large for SVG")
        << QByteArray("{\"format\":\"vxpage\",\"version\":1,"
                      "\"page\":{\"width\":32767,\"height\":32767}}")
        << "-f svg" << 0;
    QTest::newRow("missing font") << page("a", "Missing") << "" << 0;
    QTest::newRow("missing font that counts")
        << page("a", "Missing") << "--missing-fonts=error" << 3;
}

void TestRenderBatch::checkWritesNothing()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, options);
    QFETCH(int, exitCode);
    m_folder->write("input.json", content);
    const Run run = m_folder->run(qPrintable(QStringLiteral("input.json --check ") + options));
    QVERIFY2(run.exitCode == exitCode, qPrintable(run.err));
    QCOMPARE(run.out, QString());
    QCOMPARE(files(), QStringList({QStringLiteral("input.json")}));
}

void TestRenderBatch::textIsDumped()
{
    m_folder->write("page.json", page("ab\\n中"));
    m_folder->write("doc.json", document("c"));
    m_folder->write("missing.json", page("e", "Missing"));
    m_folder->write("empty.json", "{\"block\":[],\"fragment\":[]}");
    Run run = m_folder->run("page.json --dump-text");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("ab\n中\n"));
    run = m_folder->run("page.json doc.json missing.json empty.json --dump-text");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(run.out, QStringLiteral("ab\n中\nc\ne\n"));
    run = m_folder->run("page.json --set text=zz --dump-text");
    QCOMPARE(run.out, QStringLiteral("zz\n"));
    QByteArray two = page("one", "BoxTest");
    two.replace("}]}", "},{\"kind\":\"rich_text\",\"text\":\"two\"}]}");
    QCOMPARE(m_folder->run("- --dump-text", two).out, QStringLiteral("one\n\ntwo\n"));
}

void TestRenderBatch::dumpedTextGoesWhereItIsTold()
{
    m_folder->write("a.json", page("a"));
    m_folder->write("b.json", page("b"));
    QCOMPARE(m_folder->run("a.json b.json --dump-text --out-dir out").exitCode, 0);
    QCOMPARE(m_folder->read("out/b.txt"), QByteArray("b\n"));
    QCOMPARE(m_folder->run("a.json --dump-text -o text").exitCode, 0);
    QCOMPARE(m_folder->read("text"), QByteArray("a\n"));
    const Run run = m_folder->run("a.json b.json --dump-text --json");
    QCOMPARE(entry(reportOf(run), 0, "text").toString(), QStringLiteral("a"));
    QCOMPARE(entry(reportOf(run), 1, "text").toString(), QStringLiteral("b"));
}

void TestRenderBatch::textWithoutAFileDumps_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("output");
    const QString fromPage = QStringLiteral("page\n");
    const QString fromText = QStringLiteral("text\n");
    QTest::newRow("at the end") << "page.json --text" << fromPage;
    QTest::newRow("ahead of another option") << "--text -q page.json" << fromPage;
    QTest::newRow("ahead of the end of options") << "--text -- page.json" << fromPage;
    QTest::newRow("beside a text") << "--text a.txt --text" << fromText;
    QTest::newRow("of the standard input") << "--text - --dump-text" << QStringLiteral("stream\n");
}

void TestRenderBatch::textWithoutAFileDumps()
{
    QFETCH(QString, arguments);
    QFETCH(QString, output);
    m_folder->write("page.json", page("page"));
    m_folder->write("a.txt", "text");
    const Run run = m_folder->run(qPrintable(arguments), "stream");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(run.out, output);
    QCOMPARE(m_folder->run("-- --text").exitCode, 2); // a file of that name, and no output
}

void TestRenderBatch::missingFontsByPolicy_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QString>("policy");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message");
    QByteArray missing = document("a");
    missing.replace("BoxTest", "Missing");
    const QString warning = QStringLiteral("pagerender: 'i.json': missing font 'Missing'\n");
    QTest::newRow("page") << page("a", "Missing") << "" << 0 << warning;
    QTest::newRow("page, warn") << page("a", "Missing") << "--missing-fonts=warn" << 0 << warning;
    QTest::newRow("page, quiet") << page("a", "Missing") << "--missing-fonts=warn -q" << 0 << "";
    QTest::newRow("page, error") << page("a", "Missing") << "--missing-fonts=error" << 3 << warning;
    QTest::newRow("page, picture, none there")
        << page("a", "Missing") << "--missing-fonts=picture" << 0 << warning;
    QTest::newRow("document") << missing << "" << 1 << "pagerender: unknown font 'Missing'\n";
    QTest::newRow("document, warn") << missing << "--missing-fonts=warn" << 0 << warning;
    QTest::newRow("document, error") << missing << "--missing-fonts=error" << 3 << warning;
    QTest::newRow("document, picture") << missing << "--missing-fonts=picture" << 0 << warning;
    QTest::newRow("none missing") << page("a") << "--missing-fonts=error" << 0 << "";
    QTest::newRow("replaced") << page("a", "Missing")
                              << "--missing-fonts=error --replace-font Missing=BoxTest" << 0 << "";
}

void TestRenderBatch::missingFontsByPolicy()
{
    QFETCH(QByteArray, input);
    QFETCH(QString, policy);
    QFETCH(int, exitCode);
    QFETCH(QString, message);
    m_folder->write("i.json", input);
    const Run run = m_folder->run(qPrintable(QStringLiteral("i.json -o o.png ") + policy));
    QCOMPARE(run.err, message);
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(m_folder->has("o.png"), exitCode == 0);
    if (exitCode == 0)
        QVERIFY(inkOf(QImage(m_folder->path("o.png"))).pixels > 0);
}

void TestRenderBatch::pictureStandsWithoutALabel()
{
    QImage dot(20, 10, QImage::Format_ARGB32);
    dot.fill(QColor(0, 128, 0));
    QByteArray stored;
    QBuffer buffer(&stored);
    dot.save(&buffer, "PNG");
    QByteArray content = page("a", "Missing", ",'picture':{'image':'p','x':30,'y':35}");
    content.replace(content.size() - 1, 1, ",\"images\":{\"p\":\"" + stored.toBase64() + "\"}}");
    m_folder->write("i.json", content);
    Run run = m_folder->run("i.json --missing-fonts=picture -o o.png");
    QCOMPARE(run.err, QString());
    QCOMPARE(run.exitCode, 0);
    const QImage plain(m_folder->path("o.png"));
    QImage expected(100, 60, QImage::Format_RGB32);
    expected.fill(Qt::white);
    for (int y = 35; y < 45; ++y) {
        for (int x = 30; x < 50; ++x)
            expected.setPixelColor(x, y, QColor(0, 128, 0));
    }
    QCOMPARE(plain.convertToFormat(QImage::Format_RGB32), expected);
    run = m_folder->run("i.json --missing-fonts=warn -o o.png");
    QVERIFY(QImage(m_folder->path("o.png")).convertToFormat(QImage::Format_RGB32) != expected);
}

void TestRenderBatch::missingFontsOfAllInputsAreListed()
{
    m_folder->write("a.json", page("a", "One"));
    m_folder->write("b.json", page("b", "Two"));
    m_folder->write("c.json", page("c", "One"));
    const Run run = m_folder->run("a.json b.json c.json none.json --missing-fonts");
    QCOMPARE(run.out, QStringLiteral("One\nTwo\n"));
    QCOMPARE(run.exitCode, 1);
}

void TestRenderBatch::reportTellsOfEachInput()
{
    m_folder->write("a.json", page("a", "Missing"));
    m_folder->write("bad.json", "{");
    const Run run = m_folder->run("a.json bad.json --json --out-dir out");
    QCOMPARE(run.exitCode, 1);
    const QJsonObject report = reportOf(run);
    QCOMPARE(report.value(QLatin1String("program")).toString(),
             QStringLiteral("pagerender " PAGERENDER_VERSION));
    QCOMPARE(report.value(QLatin1String("code")).toInt(), 1);
    QCOMPARE(report.value(QLatin1String("inputs")).toArray().size(), 2);
    const QByteArray good = "{\"code\":0,\"input\":\"a.json\",\"output\":\"out/a.png\",\"bytes\":"
                            + QByteArray::number(m_folder->read("out/a.png").size())
                            + ",\"width\":100,\"height\":60,"
                              "\"warnings\":[\"'a.json': missing font 'Missing'\"],"
                              "\"missing_fonts\":[\"Missing\"]}";
    QCOMPARE(report.value(QLatin1String("inputs")).toArray().at(0).toObject(),
             QJsonDocument::fromJson(good).object());
    QCOMPARE(entry(report, 1, "code").toInt(), 1);
    const QString error = entry(report, 1, "error").toString();
    QVERIFY2(error.startsWith(QLatin1String("'bad.json' is no JSON")), qPrintable(error));
    QVERIFY(entry(report, 1, "output").isUndefined());
    QVERIFY2(run.err.contains(error), qPrintable(run.err));
    QCOMPARE(m_folder->run("a.json bad.json --json --out-dir out").bytes, run.bytes);
}

void TestRenderBatch::quietAndVerbose()
{
    m_folder->write("a.json", page("a", "Missing"));
    m_folder->write("bad.json", "{");
    const Run quiet = m_folder->run("a.json bad.json -q --out-dir out");
    QVERIFY2(!quiet.err.contains(QLatin1String("Missing")), qPrintable(quiet.err));
    QVERIFY2(quiet.err.contains(QLatin1String("bad.json")), qPrintable(quiet.err));
    const Run verbose = m_folder->run("a.json bad.json -v --out-dir out");
    QVERIFY2(verbose.err.contains(QLatin1String("'a.json' -> 'out/a.png', ")),
             qPrintable(verbose.err));
    QVERIFY2(verbose.err.contains(QLatin1String("100 x 60 pixels")), qPrintable(verbose.err));
    QVERIFY(m_folder->run("a.json -v --check").err.contains(QLatin1String("'a.json' is good")));
}

void TestRenderBatch::longNamesMeanTheSame()
{
    m_folder->write("a.json", page("a", "Missing"));
    for (const char *letter : {"q", "v"}) {
        const char *word = *letter == 'q' ? "quiet" : "verbose";
        const Run brief = m_folder->run(
            qPrintable(QStringLiteral("a.json -f svg -o one -%1").arg(QLatin1String(letter))));
        const Run full = m_folder->run(qPrintable(
            QStringLiteral("a.json --format svg --output two --%1").arg(QLatin1String(word))));
        QVERIFY2(brief.exitCode == 0 && full.exitCode == 0, qPrintable(full.err));
        QVERIFY(m_folder->read("one").startsWith("<?xml"));
        QCOMPARE(m_folder->read("two"), m_folder->read("one"));
        QCOMPARE(QString(full.err).replace(QLatin1String("two"), QLatin1String("one")), brief.err);
    }
}

void TestRenderBatch::exitCodeTellsTheMost_data()
{
    QTest::addColumn<QString>("inputs");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("all good") << "good.json" << 0;
    QTest::newRow("one bad") << "good.json bad.json" << 1;
    QTest::newRow("one without its font") << "good.json missing.json" << 3;
    QTest::newRow("font and fault") << "missing.json bad.json good.json" << 3;
    QTest::newRow("fault and font") << "bad.json good.json missing.json" << 3;
}

void TestRenderBatch::exitCodeTellsTheMost()
{
    QFETCH(QString, inputs);
    QFETCH(int, exitCode);
    m_folder->write("good.json", page("a"));
    m_folder->write("bad.json", "{");
    m_folder->write("missing.json", page("a", "Missing"));
    const Run run = m_folder->run(
        qPrintable(inputs + QStringLiteral(" --missing-fonts=error --out-dir out")));
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(files("out"), QStringList({QStringLiteral("good.png")}));
}

void TestRenderBatch::foreignLibraryIsRefused()
{
    m_folder->write("page.json", page("a"));
    m_folder->write("no.so", "no library");
    for (const char *library : {"no.so", "none.so", "libm.so.6"}) {
        const Run run = m_folder->run({QStringLiteral("page.json"), QStringLiteral("--out-dir"),
                                       QStringLiteral("out"), QStringLiteral("--plugin"),
                                       QLatin1String(library)});
        QVERIFY(run.ended);
        QCOMPARE(run.exitCode, 4);
        QVERIFY2(run.err.contains(QLatin1String("no text objects: ")), qPrintable(run.err));
        QVERIFY(!m_folder->has("out"));
    }
    const Run run = m_folder->run("page.json --check --json --plugin no.so");
    QCOMPARE(run.exitCode, 4);
    QCOMPARE(reportOf(run).value(QLatin1String("code")).toInt(), 4);
    const QString error = reportOf(run).value(QLatin1String("error")).toString();
    QVERIFY2(error.startsWith(QLatin1String("no text objects: ")), qPrintable(error));
}

void TestRenderBatch::slowInputIsGivenUp()
{
    makePipe("slow.json"); // that nobody writes to
    m_folder->write("a.json", page("a"));
    m_folder->write("b.json", page("b"));
    const Run run = m_folder->run("a.json slow.json b.json --timeout 3 --out-dir out");
    QVERIFY(run.ended);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.err, QStringLiteral("pagerender: 'slow.json': it takes more than 3 seconds\n"));
    QCOMPARE(files("out"), QStringList({QStringLiteral("a.png"), QStringLiteral("b.png")}));
}

void TestRenderBatch::limitChangesNoResult()
{
    m_folder->write("a.json", page("a", "Missing"));
    m_folder->write("bad.json", "{");
    const Run free = m_folder->run("a.json bad.json - --json --dump-text", document("c"));
    const Run bound = m_folder->run("a.json bad.json - --json --dump-text --timeout 100",
                                    document("c"));
    QCOMPARE(bound.bytes, free.bytes);
    QCOMPARE(bound.err, free.err);
    QCOMPARE(bound.exitCode, free.exitCode);
    QVERIFY(free.out.contains(QLatin1String("\"c\"")));
    QCOMPARE(m_folder->run("a.json --timeout 100 -f png -o -").bytes,
             m_folder->run("a.json -f png -o -").bytes);
}

void TestRenderBatch::interruptionLeavesWhatIsWhole_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("inAProcessOfItsOwn");
    QTest::newRow("SIGINT") << SIGINT << false;
    QTest::newRow("SIGTERM") << SIGTERM << false;
    QTest::newRow("SIGHUP") << SIGHUP << false;
    QTest::newRow("SIGINT, with a limit of time") << SIGINT << true;
}

// The second input is a pipe that nobody writes to: there the program waits for its interruption.
void TestRenderBatch::interruptionLeavesWhatIsWhole()
{
    QFETCH(int, signal);
    QFETCH(bool, inAProcessOfItsOwn);
    makePipe("pipe.json");
    m_folder->write("a.json", page("a"));
    m_folder->write("b.json", page("b"));
    QStringList arguments{QStringLiteral("a.json"), QStringLiteral("pipe.json"),
                          QStringLiteral("b.json"), QStringLiteral("--out-dir"),
                          QStringLiteral("out")};
    if (inAProcessOfItsOwn)
        arguments << QStringLiteral("--timeout") << QStringLiteral("1000");
    QProcess process;
    m_folder->start(process, arguments);
    const QByteArray pipe = QFile::encodeName(m_folder->path("pipe.json"));
    int writer = -1; // a pipe can be opened without waiting once the program reads it
    QTRY_VERIFY_WITH_TIMEOUT((writer = open(pipe.constData(), O_WRONLY | O_NONBLOCK)) >= 0,
                             runTimeout);
    QCOMPARE(kill(pid_t(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished(runTimeout));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 128 + signal);
    close(writer);
    QCOMPARE(open(pipe.constData(), O_WRONLY | O_NONBLOCK), -1); // no process is left to read it
    QCOMPARE(files("out"), QStringList({QStringLiteral("a.png")}));
    QVERIFY(isPng(m_folder->read("out/a.png")));
}

void TestRenderBatch::interruptionAtAnyTimeLeavesNoHalfFile()
{
    QByteArray inputs;
    for (int i = 0; i < 20; ++i) {
        const QByteArray name = QByteArray::number(i) + ".json";
        m_folder->write(name, page("abc"));
        inputs += name + ' ';
    }
    makeFolder("out");
    const QByteArray arguments = inputs + "--scale 5 --out-dir out";
    int interrupted = 0;
    for (int delay = 60; delay < 600; delay += 60) {
        m_folder->write("out/0.png", "old");
        QProcess process;
        m_folder->start(process, QString::fromLatin1(arguments).split(QLatin1Char(' ')));
        QVERIFY(process.waitForStarted(runTimeout));
        if (!process.waitForFinished(delay)) {
            kill(pid_t(process.processId()), SIGINT);
            QVERIFY(process.waitForFinished(runTimeout));
        }
        interrupted += process.exitCode() == 130 || process.exitStatus() == QProcess::CrashExit;
        const QStringList written = files("out");
        for (const QString &name : written) {
            QVERIFY2(name.endsWith(QLatin1String(".png")), qPrintable(name));
            const QByteArray bytes = m_folder->read(qPrintable(QStringLiteral("out/") + name));
            QVERIFY2(bytes == "old" || isPng(bytes), qPrintable(name));
            QFile::remove(m_folder->path(qPrintable(QStringLiteral("out/") + name)));
        }
    }
    QVERIFY(interrupted > 0);
}

QTEST_GUILESS_MAIN(TestRenderBatch)
#include "tst_renderbatch.moc"
