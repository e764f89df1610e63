// SPDX-License-Identifier: MIT
// Runs the built program on texts that it bends, with the font of squares as the only font that is
// installed.
#include "tests/app/renderfolder.h"

#include <QSvgRenderer>

namespace {

/// The text of most tests: a line of black squares.
const QByteArray squares("aaaaaaaaaaaa");

const QByteArray squaresRun("{\"font_family\":\"BoxTest\",\"font_pointsize\":12,"
                            "\"pen_color\":\"#000000\",\"content\":\"aaaaaaaaaaaa\"}");

QByteArray document(const QByteArray &header)
{
    return "{\"block\":[{}],\"fragment\":[[" + squaresRun + "]]" + header + "}";
}

/// The part of \a image from \a from to \a to, in hundredths of its width.
QImage slice(const QImage &image, int from, int to)
{
    const int left = image.width() * from / 100;
    return image.copy(left, 0, image.width() * to / 100 - left, image.height());
}

int topOf(const QImage &image)
{
    return inkOf(image).bounds.top();
}

int bottomOf(const QImage &image)
{
    return inkOf(image).bounds.bottom();
}

/// How much higher the middle of the ink lies than its left end, in pixels.
struct Bow {
    int top;
    int bottom;
};

Bow bowOf(const QImage &image)
{
    const QImage end = slice(image, 0, 8);
    const QImage middle = slice(image, 45, 55);
    return {topOf(end) - topOf(middle), bottomOf(end) - bottomOf(middle)};
}

int inkHeight(const QImage &image)
{
    return inkOf(image).bounds.height();
}

} // namespace

class TestRenderWarp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<RenderFolder>(); }

    void wrongUsage_data();
    void wrongUsage();
    void pagesSayThemselvesHowTheyBend();
    void arcHasItsMiddleAboveOrBelow();
    void lowerArcBendsItsLowerEdge();
    void upperArcBendsItsUpperEdge();
    void riseLiftsTheRightSide();
    void verticalBendsSideways();
    void perspectiveNarrowsOneSide();
    void aValueOfZeroKeepsTheShape();
    void boxTextIsBent();
    void columnsAreBent();
    void documentSaysItsOwnWarp();
    void svgIsBent();
    void sheetHoldsEveryStyle();
    void sheetTakesMarginAndScale();
    void oldSheetIsKeptOnFailure();

private:
    QImage picture(const char *options, const QByteArray &text = squares) const;

    std::unique_ptr<RenderFolder> m_folder;
};

/// The PNG of \a text without a margin, or a null image, with the program's message in the log.
QImage TestRenderWarp::picture(const char *options, const QByteArray &text) const
{
    m_folder->write("a.txt", text);
    QFile::remove(m_folder->path("o.png"));
    const QByteArray line = QByteArray("--text a.txt --font BoxTest --size 12 --margin 0 -o o.png ")
                            + options;
    const Run result = m_folder->run(line.constData());
    if (!result.ended || result.exitCode != 0)
        qWarning("%s", qPrintable(result.err));
    return QImage(m_folder->path("o.png"));
}

void TestRenderWarp::wrongUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *arguments, const char *part) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(part);
    };
    row("--warp arc", "--warp: 'arc': it is no STYLE:VALUE[:H[:V]][:vertical]");
    row("--warp :", "there is no style ''");
    row("--warp vertical", "it is no STYLE");
    row("--warp arc:vertical", "it is no STYLE");
    row("--warp bow:0.5", "there is no style 'bow', only arc, arc-lower, ");
    row("--warp 1:0.5", "there is no style '1'");
    row("--warp Arc:0.5", "there is no style 'Arc'");
    row("--warp arc:", "'' is no number");
    row("--warp arc:much", "'much' is no number");
    row("--warp arc:nan", "'nan' is no number");
    row("--warp arc:inf", "'inf' is no number");
    row("--warp arc:1e999", "'1e999' is no number");
    row("--warp arc:1.01", "the value '1.01' is not from -1 to 1");
    row("--warp arc:-2", "the value '-2' is not from -1 to 1");
    row("--warp arc:0.5:x", "'x' is no number");
    row("--warp arc:0.5:0:nan", "'nan' is no number");
    row("--warp arc:0.5:0:0:0", "it is no STYLE");
    row("--warp arc:0.5:vertical:0", "'vertical' is no number");
    row("--warp arc:0.5:0:0:Vertical", "it is no STYLE");
    row("--warp arc:0.5 --caret 1", "without --caret and --select");
    row("--warp arc:0.5 --select 0:1", "without --caret and --select");
    row("--warp-sheet s.png", "--warp-sheet goes without -o and --warp");
    row("--art 1 --warp arc:0.5", "--warp does not go with --art");
}

void TestRenderWarp::wrongUsage()
{
    QFETCH(QString, arguments);
    QFETCH(QString, part);
    m_folder->write("a.txt", squares);
    const Run result = m_folder->run(
        QStringLiteral("--text a.txt -o o.png ").append(arguments).toUtf8().constData());
    QVERIFY(result.ended);
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.err.contains(part), qPrintable(result.err));
    QVERIFY(!m_folder->has("o.png"));
}

void TestRenderWarp::pagesSayThemselvesHowTheyBend()
{
    m_folder->write("a.json", "{\"format\":\"vxpage\",\"version\":1,"
                              "\"page\":{\"width\":100,\"height\":50},\"objects\":[]}");
    for (const char *options : {"a.json --warp arc:0.5 -o o.png", "a.json --warp-sheet o.png"}) {
        const Run result = m_folder->run(options);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.err.contains(QLatin1String("is not for a page file")),
                 qPrintable(result.err));
    }
    for (const char *options : {"a.json --warp-sheet o.svg", "a.json --warp-sheet o",
                                "a.json --warp-sheet s.png --warp arc:0.5"})
        QCOMPARE(m_folder->run(options).exitCode, 2);
}

void TestRenderWarp::arcHasItsMiddleAboveOrBelow()
{
    const Bow up = bowOf(picture("--warp arc:0.4"));
    QVERIFY(up.top > 15 && up.bottom > 15);
    const Bow down = bowOf(picture("--warp arc:-0.4"));
    QVERIFY(down.top < -15 && down.bottom < -15);
}

// The ink lies within its line and so has not the edge itself, which stays level.
void TestRenderWarp::lowerArcBendsItsLowerEdge()
{
    const Bow bow = bowOf(picture("--warp arc-lower:0.5"));
    QVERIFY(bow.top < 0 && bow.bottom < bow.top - 3);
}

void TestRenderWarp::upperArcBendsItsUpperEdge()
{
    const Bow bow = bowOf(picture("--warp arc-upper:0.5"));
    QVERIFY(bow.bottom > 0 && bow.top > bow.bottom + 3);
}

void TestRenderWarp::riseLiftsTheRightSide()
{
    const QImage image = picture("--warp rise:0.5");
    QVERIFY(topOf(slice(image, 0, 10)) > topOf(slice(image, 90, 100)) + 8);
    const QImage fall = picture("--warp rise:-0.5");
    QVERIFY(topOf(slice(fall, 0, 10)) + 8 < topOf(slice(fall, 90, 100)));
}

void TestRenderWarp::verticalBendsSideways()
{
    const QByteArray lines("aaaa\naaaa\naaaa\naaaa\naaaa\naaaa");
    const QImage straight = picture("", lines);
    const QImage down = picture("--warp flag:0.5", lines);
    QVERIFY(down.height() > straight.height());
    QVERIFY(qAbs(down.width() - straight.width()) <= 2);
    const QImage sideways = picture("--warp flag:0.5:vertical", lines);
    QVERIFY(sideways.width() > straight.width());
    QVERIFY(qAbs(sideways.height() - straight.height()) <= 2);
}

// The first number narrows to the left, the second one upwards.
void TestRenderWarp::perspectiveNarrowsOneSide()
{
    const QImage left = picture("--warp flag:0:0.5");
    QVERIFY(inkHeight(slice(left, 0, 10)) * 2 < inkHeight(slice(left, 90, 100)));
    const QByteArray lines("aaaa\naaaa\naaaa\naaaa");
    const QImage up = picture("--warp flag:0:0:0.5", lines);
    const QRect top = inkOf(up.copy(0, 0, up.width(), up.height() / 5)).bounds;
    const QRect bottom = inkOf(up.copy(0, up.height() * 4 / 5, up.width(), up.height())).bounds;
    QVERIFY(top.width() * 3 / 2 < bottom.width());
}

void TestRenderWarp::aValueOfZeroKeepsTheShape()
{
    const QImage straight = picture("");
    for (const char *options : {"--warp arc:0", "--warp twist:0:0:0:vertical"}) {
        const QImage bent = picture(options);
        QVERIFY(qAbs(bent.width() - straight.width()) <= 2);
        QVERIFY(qAbs(bent.height() - straight.height()) <= 2);
        QVERIFY(qAbs(inkOf(bent).pixels - inkOf(straight).pixels) < 300);
    }
}

void TestRenderWarp::boxTextIsBent()
{
    const QByteArray words("aaaa aaaa aaaa aaaa");
    const QImage straight = picture("--box 100x80", words);
    const QImage bent = picture("--box 100x80 --warp arc:0.5", words);
    QVERIFY(!straight.isNull());
    QVERIFY(topOf(slice(bent, 0, 8)) > topOf(slice(bent, 45, 55)) + 8);
    QVERIFY(bent.width() > straight.width());
}

void TestRenderWarp::columnsAreBent()
{
    const QImage straight = picture("--vertical");
    const QImage bent = picture("--vertical --warp flag:0.9:vertical");
    QVERIFY(straight.height() > 4 * straight.width());
    QVERIFY(bent.width() > straight.width());
}

void TestRenderWarp::documentSaysItsOwnWarp()
{
    const auto rendered = [&](const QByteArray &header, const char *options) {
        m_folder->write("a.json", document(header));
        QFile::remove(m_folder->path("d.png"));
        const Run result = m_folder->run(
            (QByteArray("a.json --margin 0 -o d.png ") + options).constData());
        if (result.exitCode != 0)
            qWarning("%s", qPrintable(result.err));
        return QImage(m_folder->path("d.png"));
    };
    const QImage told = picture("--warp arc:0.5:0.2:0.1");
    QVERIFY(!told.isNull());
    QCOMPARE(rendered("", "--warp arc:0.5:0.2:0.1"), told);
    const QByteArray warp(",\"warp_style\":1,\"warp_value\":50,\"warp_horizontal_value\":20,"
                          "\"warp_vertical_value\":10,\"warp_oriention\":1");
    QCOMPARE(rendered(warp, ""), told);
    QCOMPARE(rendered(warp, "--warp flag:0.3"), picture("--warp flag:0.3"));
}

void TestRenderWarp::svgIsBent()
{
    const QImage bent = picture("--warp arc:0.5");
    const Run result = m_folder->run("--text a.txt --font BoxTest --size 12 --margin 0 "
                                     "--warp arc:0.5 -o o.svg");
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    QSvgRenderer renderer(m_folder->read("o.svg"));
    QVERIFY(renderer.isValid());
    QCOMPARE(renderer.viewBox().size(), bent.size());
}

// Eight places a row with a gap of 12 pixels around each, two styles a row, the last row half full.
void TestRenderWarp::sheetHoldsEveryStyle()
{
    m_folder->write("a.txt", squares);
    const Run result = m_folder->run("--text a.txt --font BoxTest --size 12 --warp-sheet s.png");
    QVERIFY2(result.exitCode == 0, qPrintable(result.err));
    const QImage sheet(m_folder->path("s.png"));
    QCOMPARE((sheet.width() - 12) % 8, 0);
    QCOMPARE((sheet.height() - 12) % 8, 0);
    const int width = (sheet.width() - 12) / 8;
    const int height = (sheet.height() - 12) / 8;
    const int pictureHeight = height - 12 - 14 - 12; // without the gaps and the label of 14 pixels
    for (int i = 0; i < 64; ++i) {
        const QRect place(12 + i % 8 * width, 12 + i / 8 * height, width - 12, pictureHeight);
        const int pixels = inkOf(sheet.copy(place)).pixels;
        const int inAll = inkOf(sheet.copy(place.adjusted(0, 0, 0, 12 + 14))).pixels;
        if (i < 60)
            QVERIFY2(pixels > 100 && inAll > pixels, QByteArray::number(i).constData());
        else
            QCOMPARE(inAll, 0);
    }
}

void TestRenderWarp::sheetTakesMarginAndScale()
{
    m_folder->write("a.txt", "aaaa");
    const auto sheet = [&](const char *options) {
        m_folder->run(
            (QByteArray("--text a.txt --font BoxTest --size 48 --warp-sheet s.png ") + options)
                .constData());
        return QImage(m_folder->path("s.png"));
    };
    const QImage usual = sheet("");
    QCOMPARE(sheet("--margin 14").height(), usual.height() + 8 * 2 * 10);
    QVERIFY(sheet("--scale 2").height() > usual.height() * 3 / 2);
    QCOMPARE(sheet("--background red").pixel(0, 0), qRgb(255, 0, 0));
}

void TestRenderWarp::oldSheetIsKeptOnFailure()
{
    m_folder->write("empty.txt", "");
    m_folder->write("s.png", "old");
    const Run result = m_folder->run("--text empty.txt --font BoxTest --warp-sheet s.png");
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.err.contains(QLatin1String("the page is empty")), qPrintable(result.err));
    QCOMPARE(m_folder->read("s.png"), QByteArray("old"));
    m_folder->write("a.txt", squares);
    const Run unwritable = m_folder->run(
        "--text a.txt --font BoxTest --size 12 --warp-sheet none/s.png");
    QCOMPARE(unwritable.exitCode, 1);
    QVERIFY2(unwritable.err.contains(QLatin1String("cannot write 'none/s.png'")),
             qPrintable(unwritable.err));
}

QTEST_GUILESS_MAIN(TestRenderWarp)
#include "tst_renderwarp.moc"
