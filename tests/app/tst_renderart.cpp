// SPDX-License-Identifier: MIT
// tst_renderart.cpp -- pagerender --art and --art-sheet, with the font of squares.
#include "tests/app/renderfolder.h"

#include <QSvgRenderer>

#include <memory>

namespace {

// Twenty squares in a row: the envelope shows in the heights of their edges.
const char *const squares = "aaaaaaaaaaaaaaaaaaaa";

constexpr int styleCount = 42;

/// The dark pixels of one column; of a gap between two characters: nothing.
Ink columnInk(const QImage &image, int x)
{
    return inkOf(image.copy(x, 0, 1, image.height()));
}

} // namespace

class TestRenderArt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void wrongUsage_data();
    void wrongUsage();
    void whatCannotBeDone_data();
    void whatCannotBeDone();
    void plainRectangleFillsItsBox();
    void sizeWithoutABoxIs480By240();
    void nameAndNumberMeanTheSame();
    void triangleIsHighInTheMiddle();
    void narrowingTextIsLowOnTheRight();
    void ringsStayRound_data();
    void ringsStayRound();
    void archIsHalfARing();
    void fillColoursTheCharacters();
    void penDrawsALineAroundThem();
    void transparentFillLeavesThePen();
    void alignmentMovesTheShorterLine();
    void lineEndAtTheEndCountsForNothing();
    void verticalTextRunsDownwards();
    void scaleEnlargesThePicture();
    void svgAndPdfCarryOutlines();
    void sheetShowsEveryStyleWithItsName();
    void sheetCellsHaveTheSizeOfTheBox();
    void sheetNeedsNoText();
    void sheetShowsTheGivenText();
    void sameCommandSamePicture();
    void olderPictureStaysAfterAFailure();
    void endsWithoutALibrary();

private:
    QImage picture(const QString &options, const QByteArray &text = squares) const;
    QImage sheet(const QString &options) const;

    std::unique_ptr<RenderFolder> m_folder;
};

void TestRenderArt::init()
{
    m_folder = std::make_unique<RenderFolder>();
    m_folder->write("a.txt", squares);
}

/// The picture of \a text without margin; a null one, with the program's message in the log, when
/// there is none.
QImage TestRenderArt::picture(const QString &options, const QByteArray &text) const
{
    m_folder->write("picture.txt", text);
    QFile::remove(m_folder->path("picture.png"));
    QString line = QStringLiteral("--text picture.txt --font BoxTest -o picture.png ") + options;
    if (!options.contains(QLatin1String("--margin")))
        line += QStringLiteral(" --margin 0");
    const Run result = m_folder->run(line.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    if (!result.ended || result.exitCode != 0)
        qWarning("%s", qPrintable(result.err));
    return QImage(m_folder->path("picture.png"));
}

QImage TestRenderArt::sheet(const QString &options) const
{
    QFile::remove(m_folder->path("sheet.png"));
    const QString line = QStringLiteral("--art-sheet sheet.png --font BoxTest ") + options;
    const Run result = m_folder->run(line.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    if (!result.ended || result.exitCode != 0)
        qWarning("%s", qPrintable(result.err));
    return QImage(m_folder->path("sheet.png"));
}

void TestRenderArt::wrongUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *arguments, const char *part) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(part);
    };
    row("--art 42 --text a.txt -o o.png", "--art: '42' is no style: a number from 0 to 41");
    row("--art -1 --text a.txt -o o.png", "--art: '-1' is no style");
    row("--art round --text a.txt -o o.png", "'round' is no style");
    row("--art 1.5 --text a.txt -o o.png", "'1.5' is no style");
    row("--art 99999999999 --text a.txt -o o.png", "is no style");
    row("--art 3 -o o.png", "--art wants a text");
    row("--art 3 page.json -o o.png", "--art wants a text");
    row("--art 3 --text a.txt b.txt -o o.png", "more than one input");
    row("--art 3 --text a.txt", "no output");
    row("--art 3 --text a.txt -o o.bmp", "unknown kind of output 'o.bmp'");
    row("--art 3 --text a.txt -o o.png --size 12", "--size does not go with --art");
    row("--art 3 --text a.txt -o o.png --color red", "--color does not go with --art");
    row("--art 3 --text a.txt -o o.png --auto-height", "--auto-height does not go with --art");
    row("--art 3 --text a.txt -o o.png --select 1:2", "--select does not go with --art");
    row("--art 3 --text a.txt -o o.png --caret 1", "--caret does not go with --art");
    row("--art 3 --text a.txt -o o.png --set font_bold=true", "--set does not go with --art");
    row("--art 3 --text a.txt -o o.png --missing-fonts", "--missing-fonts does not go");
    row("--art 3 --text a.txt -o o.png --hyphenate", "--hyphenate does not go with --art");
    row("--art 3 --text a.txt -o o.png --align justify-left", "'justify-left' is none of left");
    row("--art 3 --text a.txt -o o.png --align top", "'top' is none of left, center, right");
    row("--art 3 --text a.txt -o o.png --fill nocolour", "--fill: 'nocolour' is no colour");
    row("--art 3 --text a.txt -o o.png --pen 12", "--pen: '12' is no colour");
    row("--art 3 --text a.txt -o o.png --box 0x9", "--box: '0x9' is no size");
    row("--art 3 --text a.txt -o o.png --margin -1", "--margin: '-1'");
    row("--art 3 --text a.txt -o o.svg --scale 2", "--scale is for PNG only");
    row("--art 3 --text a.txt -o o.png --art-sheet s.png", "one of --art and --art-sheet");
    row("--art-sheet s.svg", "unknown kind of sheet 's.svg': .png");
    row("--art-sheet s", "unknown kind of sheet 's'");
    row("--art-sheet s.png a.txt", "one input at most");
    row("--art-sheet s.png --text a.txt --text b.txt", "one input at most");
    row("--art-sheet s.png -o o.png", "-o does not go with --art-sheet");
    row("--art-sheet s.png --scale 2", "--scale does not go with --art-sheet");
    row("--art-sheet s.png --size 2", "--size does not go with --art-sheet");
    row("--text a.txt -o o.png --bold", "--bold is for art text only");
    row("--text a.txt -o o.png --fill red", "--fill is for art text only");
    row("a.json -o o.png --pen red", "--pen is for art text only");
    row("--convert --art 3 a.json b.json", "--convert goes with no other option");
}

void TestRenderArt::wrongUsage()
{
    QFETCH(QString, arguments);
    QFETCH(QString, part);
    const Run result = m_folder->run(arguments.split(QLatin1Char(' ')));
    QVERIFY(result.ended);
    QVERIFY2(result.exitCode == 2, qPrintable(result.err));
    QVERIFY2(result.err.contains(part), qPrintable(result.err));
    QCOMPARE(result.out, QString());
}

void TestRenderArt::whatCannotBeDone_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const QByteArray &text, const char *options,
                        const char *part) {
        QTest::newRow(name) << text << QString::fromLatin1(options) << QString::fromLatin1(part);
    };
    row("missing file", "a", "--art 3 --text missing.txt -o o.png", "cannot read 'missing.txt'");
    row("missing file of a sheet", "a", "--art-sheet s.png --text missing.txt",
        "cannot read 'missing.txt'");
    row("Latin-1", "caf\xE9", "--art 3 --text a.txt -o o.png", "not UTF-8: bad byte 3");
    row("unknown font", "a", "--art 3 --text a.txt --font NoSuchFamily -o o.png",
        "unknown font 'NoSuchFamily'");
    row("unknown font of a sheet", "a", "--art-sheet s.png --font NoSuchFamily",
        "unknown font 'NoSuchFamily'");
    row("empty text", "", "--art 3 --text a.txt --font BoxTest -o o.png", "the page is empty");
    row("a line end", "\r\n", "--art 3 --text a.txt --font BoxTest -o o.png", "the page is empty");
    row("blanks", "   ", "--art 3 --text a.txt --font BoxTest -o o.png", "the page is empty");
    row("empty text of a sheet", "", "--art-sheet s.png --text a.txt --font BoxTest",
        "the page is empty");
    row("long text", QByteArray(10001, 'a'), "--art 3 --text a.txt --font BoxTest -o o.png",
        "'a.txt' is too long for an art text");
    row("large box", "a", "--art 3 --text a.txt --font BoxTest --box 32767x32767 -o o.png",
        "above 32767");
    row("large sheet", "a", "--art-sheet s.png --text a.txt --font BoxTest --box 9000x10",
        "the sheet would be too large");
    row("no such folder", "a", "--art 3 --text a.txt --font BoxTest -o none/o.png",
        "cannot write 'none/o.png'");
    row("no such folder of a sheet", "a", "--art-sheet none/s.png --font BoxTest",
        "cannot write 'none/s.png'");
}

void TestRenderArt::whatCannotBeDone()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, options);
    QFETCH(QString, part);
    m_folder->write("a.txt", text);
    const Run result = m_folder->run(options.split(QLatin1Char(' ')));
    QVERIFY2(result.ended, qPrintable(result.err));
    QVERIFY2(result.exitCode == 1, qPrintable(result.err));
    QVERIFY2(result.err.contains(part), qPrintable(result.err));
    QCOMPARE(result.err.count(QLatin1String("pagerender: ")), 1);
    const QStringList left = QDir(m_folder->folder()).entryList(QDir::Files);
    QCOMPARE(left, QStringList({QStringLiteral("a.txt")}));
}

void TestRenderArt::plainRectangleFillsItsBox()
{
    const QImage image = picture(QStringLiteral("--art 0 --box 200x100"));
    QCOMPARE(image.size(), QSize(200, 100));
    const Ink ink = inkOf(image);
    QVERIFY(ink.bounds.width() >= 199 && ink.bounds.height() >= 99);
}

void TestRenderArt::sizeWithoutABoxIs480By240()
{
    QCOMPARE(picture(QStringLiteral("--art 0")).size(), QSize(480, 240));
    QCOMPARE(picture(QStringLiteral("--art 0 --margin 7")).size(), QSize(494, 254));
}

void TestRenderArt::nameAndNumberMeanTheSame()
{
    const QImage number = picture(QStringLiteral("--art 38"));
    QVERIFY(!number.isNull());
    QCOMPARE(picture(QStringLiteral("--art waist")), number);
    QVERIFY(picture(QStringLiteral("--art diamond")) != number);
}

void TestRenderArt::triangleIsHighInTheMiddle()
{
    const QImage image = picture(QStringLiteral("--art triangle-up --box 400x200"));
    const auto heightAt = [&](int strip) {
        return inkOf(image.copy(strip * 20, 0, 20, image.height())).bounds.height();
    };
    for (int strip = 1; strip <= 9; ++strip)
        QVERIFY2(heightAt(strip) > heightAt(strip - 1), qPrintable(QString::number(strip)));
    for (int strip = 11; strip < 20; ++strip)
        QVERIFY2(heightAt(strip) < heightAt(strip - 1), qPrintable(QString::number(strip)));
    QVERIFY(heightAt(1) < 60);
    QVERIFY(heightAt(10) > 170);
    QVERIFY(heightAt(19) < 40);
}

void TestRenderArt::narrowingTextIsLowOnTheRight()
{
    const QImage image = picture(QStringLiteral("--art narrow-right --box 400x200"));
    QVERIFY(columnInk(image, 2).bounds.height() > 190);
    const int right = columnInk(image, 396).bounds.height();
    QVERIFY2(right > 90 && right < 115, qPrintable(QString::number(right))); // half: 3/4 - 1/4
}

void TestRenderArt::ringsStayRound_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("box");
    QTest::newRow("ring in a wide box") << "8"
                                        << "600x200";
    QTest::newRow("ring in a high box") << "8"
                                        << "200x600";
    QTest::newRow("ring from the right in a wide box") << "9"
                                                       << "500x200";
    QTest::newRow("ring in a square") << "9"
                                      << "300x300";
}

void TestRenderArt::ringsStayRound()
{
    QFETCH(QString, style);
    QFETCH(QString, box);
    const QImage image = picture(QStringLiteral("--art %1 --box %2").arg(style, box));
    const QRect ink = inkOf(image).bounds;
    QVERIFY2(qAbs(ink.width() - ink.height()) <= 4,
             qPrintable(QStringLiteral("%1 x %2").arg(ink.width()).arg(ink.height())));
    // A hole in the middle of a quarter of the radius, and nothing in the corners.
    QCOMPARE(qGray(image.pixel(ink.center())), 255);
    QCOMPARE(qGray(image.pixel(ink.topLeft())), 255);
    QCOMPARE(qGray(image.pixel(ink.bottomRight())), 255);
}

void TestRenderArt::archIsHalfARing()
{
    for (const char *style : {"40", "41"}) {
        const QImage image = picture(
            QStringLiteral("--art %1 --box 600x300").arg(QLatin1String(style)));
        const QRect ink = inkOf(image).bounds;
        QVERIFY2(qAbs(ink.width() - 2 * ink.height()) <= 8,
                 qPrintable(QStringLiteral("%1 x %2").arg(ink.width()).arg(ink.height())));
    }
}

void TestRenderArt::fillColoursTheCharacters()
{
    const QImage image = picture(QStringLiteral("--art 0 --box 200x100 --fill #c01020"));
    QCOMPARE(image.pixelColor(4, 50), QColor(0xc0, 0x10, 0x20));
}

void TestRenderArt::penDrawsALineAroundThem()
{
    const QImage image =
        picture(QStringLiteral("--art 0 --box 200x100 --fill yellow --pen #0000ff --margin 5"),
                "a");
    QCOMPARE(image.pixelColor(100, 50), QColor(Qt::yellow));
    int blue = 0;
    for (int x = 0; x < image.width(); ++x)
        blue += image.pixelColor(x, 50).blue() > 200 && image.pixelColor(x, 50).red() < 160;
    QVERIFY2(blue >= 2 && blue <= 6, qPrintable(QString::number(blue)));
}

void TestRenderArt::transparentFillLeavesThePen()
{
    const QImage image =
        picture(QStringLiteral("--art 0 --box 200x100 --fill transparent --pen black"), "a");
    QCOMPARE(qGray(image.pixel(100, 50)), 255);
    QVERIFY(inkOf(image).pixels > 200);
}

void TestRenderArt::alignmentMovesTheShorterLine()
{
    const auto lowerLine = [&](const char *how) {
        const QImage image =
            picture(QStringLiteral("--art 0 --box 400x200 --align %1").arg(QLatin1String(how)),
                    "aaaaaaaa\naa");
        return inkOf(image.copy(0, 110, image.width(), 80)).bounds;
    };
    QVERIFY(lowerLine("left").left() < 5);
    QVERIFY(lowerLine("left").right() < 110);
    QVERIFY(lowerLine("right").right() > 390);
    QVERIFY(lowerLine("right").left() > 290);
    QVERIFY(qAbs(lowerLine("center").center().x() - 200) < 6);
    QVERIFY(lowerLine("justify").left() < 5);
    QVERIFY(lowerLine("justify").right() > 390);
}

void TestRenderArt::lineEndAtTheEndCountsForNothing()
{
    const QImage image = picture(QStringLiteral("--art 4"), "aaaa");
    QVERIFY(!image.isNull());
    QCOMPARE(picture(QStringLiteral("--art 4"), "aaaa\n"), image);
    QCOMPARE(picture(QStringLiteral("--art 4"), "aaaa\r\n"), image);
}

void TestRenderArt::verticalTextRunsDownwards()
{
    // One column of four squares: rows of gaps instead of columns of gaps.
    const QImage lines = picture(QStringLiteral("--art 0 --box 200x200"), "ab cd");
    const QImage columns = picture(QStringLiteral("--art 0 --box 200x200 --vertical"), "ab cd");
    QVERIFY(!columns.isNull());
    QVERIFY(lines != columns);
    QVERIFY(inkOf(lines.copy(90, 0, 20, 200)).pixels < inkOf(lines.copy(0, 90, 200, 20)).pixels);
    QVERIFY(inkOf(columns.copy(0, 90, 200, 20)).pixels
            < inkOf(columns.copy(90, 0, 20, 200)).pixels);
}

void TestRenderArt::scaleEnlargesThePicture()
{
    QCOMPARE(picture(QStringLiteral("--art 0 --box 200x100 --scale 2")).size(), QSize(400, 200));
}

void TestRenderArt::svgAndPdfCarryOutlines()
{
    for (const char *name : {"o.svg", "o.pdf"}) {
        const Run result = m_folder->run(QStringLiteral("--art 6 --text a.txt --font BoxTest -o %1")
                                             .arg(QLatin1String(name))
                                             .split(QLatin1Char(' ')));
        QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    }
    const QByteArray svg = m_folder->read("o.svg");
    QVERIFY(QSvgRenderer(svg).isValid());
    QVERIFY(svg.contains("<path"));
    QVERIFY(!svg.contains("<text"));
    QVERIFY(m_folder->read("o.pdf").startsWith("%PDF"));
    QVERIFY(!m_folder->read("o.pdf").contains("BoxTest"));
}

void TestRenderArt::sheetShowsEveryStyleWithItsName()
{
    const QImage image = sheet(QStringLiteral("--text a.txt --box 80x60"));
    QVERIFY(!image.isNull());
    // Six columns of seven rows; between two cells and at the edge the paper shows.
    const int across = (image.width() - 12) / 6;
    const int down = (image.height() - 12) / 7;
    for (int style = 0; style < styleCount; ++style) {
        const QRect place(12 + style % 6 * across, 12 + style / 6 * down, across - 12, down - 12);
        const QImage cell = image.copy(place);
        QVERIFY2(inkOf(cell.copy(0, 0, cell.width(), 60)).pixels > 500,
                 qPrintable(QString::number(style)));
        QVERIFY2(inkOf(cell.copy(0, 62, cell.width(), cell.height() - 62)).pixels > 10,
                 qPrintable(QString::number(style)));
    }
}

void TestRenderArt::sheetCellsHaveTheSizeOfTheBox()
{
    const QImage small = sheet(QStringLiteral("--box 200x60"));
    const QImage large = sheet(QStringLiteral("--box 210x70"));
    QCOMPARE(large.size() - small.size(), QSize(60, 70));
}

void TestRenderArt::sheetNeedsNoText()
{
    QVERIFY(inkOf(sheet(QString())).pixels > 20000);
}

void TestRenderArt::sheetShowsTheGivenText()
{
    m_folder->write("b.txt", "aa aa");
    QVERIFY(sheet(QStringLiteral("--text a.txt")) != sheet(QStringLiteral("--text b.txt")));
}

void TestRenderArt::sameCommandSamePicture()
{
    const QImage image = sheet(QStringLiteral("--text a.txt --bold --fill navy --pen red"));
    QVERIFY(!image.isNull());
    QCOMPARE(sheet(QStringLiteral("--text a.txt --bold --fill navy --pen red")), image);
}

void TestRenderArt::olderPictureStaysAfterAFailure()
{
    m_folder->write("o.png", "older");
    m_folder->write("s.png", "older");
    QCOMPARE(m_folder->run("--art 3 --text missing.txt -o o.png").exitCode, 1);
    QCOMPARE(m_folder->run("--art-sheet s.png --font NoSuchFamily").exitCode, 1);
    QCOMPARE(m_folder->read("o.png"), QByteArray("older"));
    QCOMPARE(m_folder->read("s.png"), QByteArray("older"));
}

void TestRenderArt::endsWithoutALibrary()
{
    const Run result = m_folder->run("--art 3 --text a.txt --font BoxTest -o o.png --plugin no.so");
    QVERIFY(result.ended);
    QCOMPARE(result.exitCode, 4);
    QVERIFY2(result.err.contains(QLatin1String("no text objects")), qPrintable(result.err));
}

QTEST_GUILESS_MAIN(TestRenderArt)
#include "tst_renderart.moc"
