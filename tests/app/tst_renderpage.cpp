// SPDX-License-Identifier: MIT
// Renders page files with the built program. In the font of squares at 12 pt an "a" covers 6 x 6
// pixels, 1 px to the right of its cell and on the baseline, 12 px below the top of its line; cells
// are 8 px wide and lines 16 px high.
#include "tests/app/renderfolder.h"

#include <QBuffer>

namespace {

/// An object of text in the font of squares; single quotes stand for double ones.
QByteArray text(const QByteArray &content, const QByteArray &fields,
                const QByteArray &attributes = QByteArray(),
                const QByteArray &family = QByteArrayLiteral("BoxTest"))
{
    return "{'kind':'rich_text','text':'" + content + "'," + fields
           + ",'attributes':{'font_pointsize':12,'font_family':'" + family + "'" + attributes
           + "}}";
}

/// A page of 100 by 60 pixels.
QByteArray page(QByteArray objects, const QByteArray &more = QByteArray(),
                const QByteArray &sheet = QByteArray())
{
    objects = "{'format':'vxpage','version':1,'page':{'width':100,'height':60" + sheet
              + "},'objects':[" + objects + "]" + more + "}";
    return objects.replace('\'', '"');
}

/// A PNG of one colour, as a page file stores it.
QByteArray storedPicture(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data().toBase64();
}

} // namespace

class TestRenderPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<RenderFolder>(); }

    void pageHasItsOwnSize();
    void pageHasItsOwnBackground();
    void pageWithoutObjectsIsBlank();
    void textStandsAtItsPlace();
    void laterObjectsLieAbove();
    void textIsTurnedAboutItsMiddle();
    void textIsMirroredAndFlipped();
    void lineTextIsStretchedToItsSize();
    void boxWrapsAndCuts();
    void growingBoxShowsAllLines();
    void growingBoxOfColumnsKeepsItsRightEdge();
    void resolutionCounts();
    void dpiOfAPageIsThatOfItsPng();
    void svgAndPdfOfAPage();
    void recordIsShown();
    void unknownKindIsLeftOutWithAWarning();
    void optionsOfTextsAreRefused_data();
    void optionsOfTextsAreRefused();
    void badPagesAreNamed_data();
    void badPagesAreNamed();
    void attributeOfOneObjectIsSet_data();
    void attributeOfOneObjectIsSet();
    void attributeOfAllObjectsIsSet();
    void attributeOfADocumentIsSet();
    void severalSettingsActTogether();
    void missingFontsAreListed();
    void missingFontShowsThePictureAndAHint();
    void missingFontWithoutPictureShowsTheText();
    void replacedFontLooksAsIfItWereTold_data();
    void replacedFontLooksAsIfItWereTold();
    void installedFontShowsNoPicture();
    void replacementIsChecked_data();
    void replacementIsChecked();
    void pageIsConvertedBothWays();
    void binaryPageIsRendered();
    void wrongConversionsAreNamed_data();
    void wrongConversionsAreNamed();
    void hugeObjectsEnd_data();
    void hugeObjectsEnd();

private:
    /// The PNG of a page, or a null image, with the program's message in the log.
    QImage picture(const QByteArray &content, const QStringList &more = QStringList())
    {
        m_folder->write("page.json", content);
        QFile::remove(m_folder->path("page.png"));
        m_run = m_folder->run(QStringList{QStringLiteral("page.json"), QStringLiteral("-o"),
                                          QStringLiteral("page.png")}
                              + more);
        if (!m_run.ended || m_run.exitCode != 0)
            qWarning("%s", qPrintable(m_run.err));
        return QImage(m_folder->path("page.png"));
    }
    QImage picture(const QByteArray &content, const char *more)
    {
        return picture(content, QString::fromUtf8(more).split(QLatin1Char(' ')));
    }

    std::unique_ptr<RenderFolder> m_folder;
    Run m_run; ///< the last one
};

void TestRenderPage::pageHasItsOwnSize()
{
    const QByteArray content = page(text("a", "'x':10,'y':20"));
    QCOMPARE(picture(content).size(), QSize(100, 60));
    QCOMPARE(picture(content, "--scale 2.5").size(), QSize(250, 150));
    const QByteArray outside = page(text("a", "'x':-500,'y':900"));
    QCOMPARE(picture(outside).size(), QSize(100, 60));
}

void TestRenderPage::pageHasItsOwnBackground()
{
    const QByteArray content = page("", "", ",'background':'#102030'");
    QCOMPARE(picture(content).pixelColor(99, 59), QColor(0x10, 0x20, 0x30));
    QCOMPARE(picture(content, "--background red").pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(picture(page("", "", ",'background':'transparent'")).pixelColor(0, 0).alpha(), 0);
}

void TestRenderPage::pageWithoutObjectsIsBlank()
{
    const QImage image = picture("{\"format\":\"vxpage\",\"version\":1,"
                                 "\"page\":{\"width\":3,\"height\":2}}");
    QCOMPARE(image.size(), QSize(3, 2));
    QCOMPARE(inkOf(image).pixels, 0);
}

void TestRenderPage::textStandsAtItsPlace()
{
    const Ink ink = inkOf(picture(page(text("aa", "'x':10,'y':20"))));
    QCOMPARE(ink.bounds, QRect(11, 26, 14, 6));
    QCOMPARE(ink.pixels, 2 * 6 * 6);
    // Where the line stands in its text does not move the object.
    const QByteArray right = ",'textalignment':'right'";
    QCOMPARE(inkOf(picture(page(text("aa", "'x':10,'y':20", right)))).bounds, QRect(11, 26, 14, 6));
}

void TestRenderPage::laterObjectsLieAbove()
{
    const QByteArray red = text("a", "'x':10,'y':20", ",'pen_color':'red'");
    const QByteArray blue = text("a", "'x':10,'y':20", ",'pen_color':'blue'");
    QCOMPARE(picture(page(red + "," + blue)).pixelColor(14, 29), QColor(Qt::blue));
    QCOMPARE(picture(page(blue + "," + red)).pixelColor(14, 29), QColor(Qt::red));
}

// The object lies from (10, 20) to (26, 36), its middle at (18, 28). The ink reaches from 2 px above
// the middle to 4 px below it, so that turned clockwise it lies 4 px to the left and 2 to the right.
void TestRenderPage::textIsTurnedAboutItsMiddle()
{
    const Ink ink = inkOf(picture(page(text("aa", "'x':10,'y':20,'rotation':90"))));
    QCOMPARE(ink.bounds, QRect(14, 21, 6, 14));
    QCOMPARE(inkOf(picture(page(text("aa", "'x':10,'y':20,'rotation':-270")))).bounds, ink.bounds);
    QCOMPARE(inkOf(picture(page(text("aa", "'x':10,'y':20,'rotation':180")))).bounds,
             QRect(11, 24, 14, 6));
}

void TestRenderPage::textIsMirroredAndFlipped()
{
    // "a " has its ink on the left half of an object of 16 by 16.
    QCOMPARE(inkOf(picture(page(text("a ", "'x':10,'y':20")))).bounds, QRect(11, 26, 6, 6));
    QCOMPARE(inkOf(picture(page(text("a ", "'x':10,'y':20,'mirror':true")))).bounds,
             QRect(19, 26, 6, 6));
    QCOMPARE(inkOf(picture(page(text("a ", "'x':10,'y':20,'flip':true")))).bounds,
             QRect(11, 24, 6, 6));
}

void TestRenderPage::lineTextIsStretchedToItsSize()
{
    const Ink ink = inkOf(picture(page(text("aa", "'x':10,'y':0,'width':32,'height':48"))));
    QCOMPARE(ink.bounds, QRect(12, 18, 28, 18));
}

void TestRenderPage::boxWrapsAndCuts()
{
    const QByteArray words("aaa aaa aaa");
    // Four cells a line.
    const Ink two = inkOf(
        picture(page(text(words, "'x':10,'y':5,'layout':'box','width':34,'height':34"))));
    QCOMPARE(two.bounds.left(), 11);
    QCOMPARE(two.bounds.right(), 10 + 24 - 2);
    QCOMPARE(two.pixels, 6 * 36);
    const Ink three = inkOf(
        picture(page(text(words, "'x':10,'y':5,'layout':'box','width':34,'height':50"))));
    QCOMPARE(three.pixels, 9 * 36);
    QCOMPARE(three.bounds.topLeft(), two.bounds.topLeft());
}

void TestRenderPage::growingBoxShowsAllLines()
{
    const QByteArray content = page(
        text("aaa aaa aaa", "'x':10,'y':5,'layout':'growing_box','width':34,'height':18"));
    const Ink ink = inkOf(picture(content));
    QCOMPARE(ink.pixels, 9 * 36);
    QCOMPARE(ink.bounds.topLeft(), QPoint(11, 11));
}

void TestRenderPage::growingBoxOfColumnsKeepsItsRightEdge()
{
    const QByteArray fields("'x':60,'y':5,'layout':'growing_box','direction':'vertical','width':16,"
                            "'height':34");
    const Ink ink = inkOf(picture(page(text("中中中中中中", fields))));
    QCOMPARE(ink.pixels, 6 * 14 * 14);
    QCOMPARE(ink.bounds.right(), 60 + 16 - 2);
    QVERIFY2(ink.bounds.left() < 45, qPrintable(QString::number(ink.bounds.left())));
}

void TestRenderPage::resolutionCounts()
{
    const QImage image = picture(page(text("a", "'x':10,'y':20"), "", ",'dpi':192"));
    QCOMPARE(inkOf(image).bounds, QRect(12, 32, 12, 12));
    QCOMPARE(image.dotsPerMeterX(), 7559);
}

void TestRenderPage::dpiOfAPageIsThatOfItsPng()
{
    const QByteArray content = page(text("a", "'x':10,'y':20"));
    const QImage image = picture(content, "--dpi 192");
    QCOMPARE(image.size(), QSize(200, 120));
    QCOMPARE(image.dotsPerMeterX(), 7559);
    QCOMPARE(inkOf(image).bounds, QRect(22, 52, 12, 12));
    QCOMPARE(picture(content, "--dpi 192 --scale 2").size(), QSize(400, 240));
    QCOMPARE(m_folder->run("page.json --dpi 192 -o o.svg").exitCode, 2);
}

void TestRenderPage::svgAndPdfOfAPage()
{
    m_folder->write("page.json", page(text("a", "'x':10,'y':20")));
    for (const char *name : {"page.svg", "page.pdf"}) {
        const Run run = m_folder->run(
            {QStringLiteral("page.json"), QStringLiteral("-o"), QLatin1String(name)});
        QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    }
    QVERIFY(m_folder->read("page.svg").contains("viewBox=\"0 0 100 60\""));
    // 100 by 60 pixels are 75 by 45 points.
    QVERIFY(m_folder->read("page.pdf").contains("/MediaBox [0 0 75.000000 45.000000]"));
}

void TestRenderPage::recordIsShown()
{
    const QByteArray record(
        "{'kind':'rich_text','record':{'version':1,'created':true,"
        "'params':{'new_version':true,'transform_tx':20,'transform_ty':30,"
        "'document_data':'{\\\"block\\\":[{}],\\\"fragment\\\":[[{\\\"content\\\":\\\"aa\\\","
        "\\\"font_family\\\":\\\"BoxTest\\\",\\\"font_pointsize\\\":12,"
        "\\\"pen_color\\\":\\\"#000000\\\"}]]}'}}}");
    const Ink ink = inkOf(picture(page(record)));
    QCOMPARE(ink.bounds.width(), 14);
    QCOMPARE(ink.pixels, 2 * 36);
}

void TestRenderPage::unknownKindIsLeftOutWithAWarning()
{
    const QByteArray shape("{'kind':'shape','x':'anywhere'}");
    const QImage image = picture(page(shape + "," + text("a", "'x':10,'y':20")));
    QCOMPARE(m_run.exitCode, 0);
    QCOMPARE(inkOf(image).pixels, 36);
    QVERIFY2(m_run.err.contains(QLatin1String("objects[0]: unknown kind 'shape', left out")),
             qPrintable(m_run.err));
}

void TestRenderPage::optionsOfTextsAreRefused_data()
{
    QTest::addColumn<QString>("option");
    for (const char *option :
         {"--margin 5", "--box 30x30", "--align left", "--caret 0", "--select 0:1"})
        QTest::newRow(option) << QString::fromLatin1(option);
}

void TestRenderPage::optionsOfTextsAreRefused()
{
    QFETCH(QString, option);
    m_folder->write("page.json", page(text("a", "'x':10,'y':20")));
    const Run run = m_folder->run(qPrintable(QStringLiteral("page.json -o o.png ") + option));
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(QLatin1String("not for a page file")), qPrintable(run.err));
    QVERIFY(!m_folder->has("o.png"));
}

void TestRenderPage::badPagesAreNamed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const QByteArray &content, const char *part) {
        QTest::newRow(name) << content << QString::fromLatin1(part);
    };
    const QByteArray good = page(text("a", "'x':10,'y':20"));
    row("cut short", good.left(good.size() / 2), "no JSON, at byte");
    row("empty object", "{}", "lacks");
    row("newer", "{\"format\":\"vxpage\",\"version\":9}", "version: 9 is newer");
    row("huge page", "{\"format\":\"vxpage\",\"version\":1,\"page\":{\"width\":1e9}}",
        "page.width: must be a whole number");
    row("too many pixels",
        "{\"format\":\"vxpage\",\"version\":1,\"page\":{\"width\":32767,\"height\":32767}}",
        "above 268435456 in all");
    row("wrong type in an attribute", page(text("a", "'x':1", ",'font_bold':'x'")),
        "objects[0].attributes.font_bold");
    row("picture is no PNG", page("", ",'images':{'a.png':'aGVsbG8='}"), "images.a.png: is no PNG");
}

void TestRenderPage::badPagesAreNamed()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, part);
    m_folder->write("page.json", content);
    m_folder->write("o.png", "old");
    const Run run = m_folder->run("page.json -o o.png");
    QVERIFY2(run.ended, qPrintable(run.err));
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(part), qPrintable(run.err));
    QVERIFY2(run.err.contains(QLatin1String("page.json"))
                 || run.err.contains(QLatin1String("in all")),
             qPrintable(run.err));
    QCOMPARE(m_folder->read("o.png"), QByteArrayLiteral("old"));
}

void TestRenderPage::attributeOfOneObjectIsSet_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QRgb>("first");
    QTest::addColumn<QRgb>("second");
    const QRgb black = qRgb(0, 0, 0);
    const QRgb red = qRgb(255, 0, 0);
    QTest::newRow("by name") << "two:pen_color=red" << black << red;
    QTest::newRow("by number") << "0:pen_color=red" << red << black;
    QTest::newRow("name with a colon") << "a:b:pen_color=red" << red << black;
    QTest::newRow("all") << "pen_color=#ff0000" << red << red;
}

void TestRenderPage::attributeOfOneObjectIsSet()
{
    QFETCH(QString, setting);
    QFETCH(QRgb, first);
    QFETCH(QRgb, second);
    const QByteArray content = page(text("a", "'x':10,'y':20,'name':'a:b'") + ","
                                    + text("a", "'x':50,'y':20,'name':'two'"));
    const QImage image = picture(content, QStringList{QStringLiteral("--set"), setting});
    QVERIFY(!image.isNull());
    QCOMPARE(image.pixelColor(14, 29).rgb(), first);
    QCOMPARE(image.pixelColor(54, 29).rgb(), second);
}

void TestRenderPage::attributeOfAllObjectsIsSet()
{
    const QByteArray content = page(text("a", "'x':10,'y':20") + ","
                                    + text("中", "'x':60,'y':20,'direction':'vertical'"));
    const QImage image = picture(content, "--set text=a --set font_pointsize=24");
    QCOMPARE(inkOf(image.copy(0, 0, 50, 60)).pixels, 12 * 12);
    QCOMPARE(inkOf(image.copy(50, 0, 50, 60)).pixels, 12 * 12);
    QVERIFY(picture(content, "--set 7:text=b").isNull());
    QCOMPARE(m_run.exitCode, 1);
    QVERIFY2(m_run.err.contains(QLatin1String("no object '7'")), qPrintable(m_run.err));
    QVERIFY(picture(content, "--set font_family=NoSuchFamily").isNull());
    QCOMPARE(m_run.exitCode, 1);
    QVERIFY2(m_run.err.contains(QLatin1String("unknown font 'NoSuchFamily'")),
             qPrintable(m_run.err));
}

void TestRenderPage::attributeOfADocumentIsSet()
{
    m_folder->write("a.txt", "a");
    const Run run = m_folder->run("--text a.txt --font BoxTest --size 12 --margin 0 "
                                  "--set text=aa --set 0:pen_color=red -o o.png");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    const QImage image(m_folder->path("o.png"));
    QCOMPARE(image.size(), QSize(14, 6));
    QCOMPARE(image.pixelColor(3, 3), QColor(Qt::red));
}

// A box that becomes line text drops what else its map says; the program sends it alone.
void TestRenderPage::severalSettingsActTogether()
{
    const QByteArray content = page(
        text("aaa aaa", "'x':10,'y':5,'layout':'box','width':34,'height':50"));
    const QImage image =
        picture(content, "--set text_wordwrap=false --set pen_color=#808080 --set text=aaaa");
    QCOMPARE(inkOf(image).pixels, 0); // 128 is not dark
    const QImage dark = picture(content, "--set text_wordwrap=false --set text=aaaa");
    QCOMPARE(inkOf(dark).pixels, 4 * 36);
    const QByteArray raised = page(text("a", "'x':10,'y':20"));
    const int small = inkOf(picture(raised, "--set text_superscript=true")).pixels;
    QVERIFY2(small >= 4 && small <= 16, qPrintable(QString::number(small)));
}

void TestRenderPage::missingFontsAreListed()
{
    m_folder->write("page.json",
                    page(text("a", "'x':1", "", "Missing One") + "," + text("a", "'x':1") + ","
                         + text("b", "'x':1", "", "Missing Two") + ","
                         + text("c", "'x':1", "", "Missing One")));
    Run run = m_folder->run("page.json --missing-fonts");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("Missing One\nMissing Two\n"));
    run = m_folder->run({QStringLiteral("page.json"), QStringLiteral("--missing-fonts"),
                         QStringLiteral("--replace-font"), QStringLiteral("Missing One=BoxTest"),
                         QStringLiteral("-o"), QStringLiteral("o.png")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("Missing Two\n"));
    QVERIFY(m_folder->has("o.png"));
    m_folder->write("a.json", "{\"block\":[{}],\"fragment\":[[{\"font_family\":\"Missing Three\","
                              "\"content\":\"a\"}]]}");
    run = m_folder->run("a.json --missing-fonts");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("Missing Three\n"));
}

void TestRenderPage::missingFontShowsThePictureAndAHint()
{
    const QByteArray content =
        page(text("a", "'x':10,'y':20,'picture':{'image':'p','x':30,'y':35}", "", "Missing"),
             ",'images':{'p':'" + storedPicture(QSize(20, 10), QColor(0, 128, 0)) + "'}");
    const QImage image = picture(content);
    QCOMPARE(m_run.exitCode, 0);
    QVERIFY2(m_run.err.contains(QLatin1String("missing font 'Missing'")), qPrintable(m_run.err));
    QCOMPARE(image.pixelColor(32, 37), QColor(0, 128, 0));
    QCOMPARE(image.pixelColor(48, 43), QColor(0, 128, 0));
    QCOMPARE(image.pixelColor(60, 40), QColor(Qt::white));
    const QColor hint(0x02, 0x7a, 0xff);
    QCOMPARE(image.pixelColor(31, 32), hint);              // the label sits on the picture
    QCOMPARE(image.pixelColor(30, 40), hint);              // and its frame around it
    QCOMPARE(image.pixelColor(14, 29), QColor(Qt::white)); // the text itself is not shown
}

void TestRenderPage::missingFontWithoutPictureShowsTheText()
{
    const QImage image = picture(page(text("a", "'x':10,'y':30", "", "Missing")));
    QCOMPARE(m_run.exitCode, 0);
    QVERIFY2(m_run.err.contains(QLatin1String("missing font 'Missing'")), qPrintable(m_run.err));
    QVERIFY(inkOf(image.copy(11, 31, 14, 14)).pixels > 0);
}

void TestRenderPage::replacedFontLooksAsIfItWereTold_data()
{
    QTest::addColumn<QByteArray>("fields");
    QTest::newRow("line") << QByteArray("'x':10,'y':20");
    QTest::newRow("turned line") << QByteArray("'x':10,'y':20,'rotation':90");
    QTest::newRow("mirrored line") << QByteArray("'x':10,'y':20,'mirror':true");
    QTest::newRow("stretched line") << QByteArray("'x':10,'y':5,'width':60,'height':40");
    QTest::newRow("columns") << QByteArray("'x':10,'y':5,'direction':'vertical'");
    QTest::newRow("box") << QByteArray("'x':10,'y':5,'layout':'box','width':34,'height':50");
    QTest::newRow("turned box") << QByteArray(
        "'x':30,'y':5,'layout':'box','width':34,'height':40,'rotation':180");
    QTest::newRow("growing box") << QByteArray(
        "'x':10,'y':5,'layout':'growing_box','width':34,'height':18");
}

void TestRenderPage::replacedFontLooksAsIfItWereTold()
{
    QFETCH(QByteArray, fields);
    const QByteArray images = ",'images':{'p':'" + storedPicture(QSize(40, 10), Qt::green) + "'}";
    const QStringList replace{QStringLiteral("--replace-font"), QStringLiteral("Missing=BoxTest")};
    const QImage told = picture(page(text("aa aag", fields)));
    QVERIFY(inkOf(told).pixels > 0);
    QCOMPARE(picture(page(text("aa aag", fields, "", "Missing")), replace), told);
    const QByteArray withPicture = fields + ",'picture':{'image':'p','x':3,'y':4}";
    QCOMPARE(picture(page(text("aa aag", withPicture, "", "Missing"), images), replace), told);
    QVERIFY2(!m_run.err.contains(QLatin1String("missing font")), qPrintable(m_run.err));
}

void TestRenderPage::installedFontShowsNoPicture()
{
    const QByteArray images = ",'images':{'p':'" + storedPicture(QSize(40, 10), Qt::green) + "'}";
    const QByteArray content = page(text("a", "'x':10,'y':20,'picture':{'image':'p'}"), images);
    QCOMPARE(picture(content), picture(page(text("a", "'x':10,'y':20"))));
}

void TestRenderPage::replacementIsChecked_data()
{
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<QString>("part");
    QTest::newRow("not installed") << "Missing=Another"
                                   << "unknown font 'Another'";
    QTest::newRow("by itself") << "Missing=Missing"
                               << "unknown font 'Missing'";
    QTest::newRow("not missing") << "BoxTest=BoxTest"
                                 << "no text misses the font 'BoxTest'";
}

void TestRenderPage::replacementIsChecked()
{
    QFETCH(QString, replacement);
    QFETCH(QString, part);
    m_folder->write("page.json", page(text("a", "'x':10,'y':30", "", "Missing")));
    const Run run = m_folder->run({QStringLiteral("page.json"), QStringLiteral("--replace-font"),
                                   replacement, QStringLiteral("-o"), QStringLiteral("o.png")});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(part), qPrintable(run.err));
    QVERIFY(!m_folder->has("o.png"));
}

void TestRenderPage::pageIsConvertedBothWays()
{
    m_folder->write("page.json",
                    page(text("a", "'x':10,'y':20,'later':[1]") + ",{'kind':'shape'}",
                         ",'images':{'a.png':'" + storedPicture(QSize(2, 3), Qt::red) + "'}"));
    for (const char *files : {"page.json a.vxpage", "a.vxpage b.json", "b.json c.vxpage",
                              "c.vxpage d.JSON", "d.JSON e.json"}) {
        m_run = m_folder->run(qPrintable(QStringLiteral("--convert ") + QLatin1String(files)));
        QVERIFY2(m_run.ended && m_run.exitCode == 0, qPrintable(m_run.err));
    }
    QVERIFY(m_folder->read("a.vxpage").startsWith("\x89VXPAGE\r\n"));
    QCOMPARE(m_folder->read("c.vxpage"), m_folder->read("a.vxpage"));
    QCOMPARE(m_folder->read("d.JSON"), m_folder->read("b.json"));
    QCOMPARE(m_folder->read("e.json"), m_folder->read("b.json"));
    QCOMPARE(QJsonDocument::fromJson(m_folder->read("b.json")),
             QJsonDocument::fromJson(m_folder->read("page.json")));
}

void TestRenderPage::binaryPageIsRendered()
{
    const QImage expected = picture(page(text("ab", "'x':10,'y':20"), "", ",'background':'#fed'"));
    QVERIFY(!expected.isNull());
    QCOMPARE(m_folder->run("--convert page.json page.vxpage").exitCode, 0);
    QCOMPARE(m_folder->run("page.vxpage -o binary.png").exitCode, 0);
    QCOMPARE(QImage(m_folder->path("binary.png")), expected);
    QCOMPARE(m_folder->run("page.vxpage --margin 2 -o binary.png").exitCode, 2);
}

void TestRenderPage::wrongConversionsAreNamed_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *arguments, int exitCode, const char *part) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << exitCode
                                 << QString::fromLatin1(part);
    };
    row("--convert", 2, "--convert wants two page files");
    row("--convert page.json", 2, "--convert wants two page files");
    row("--convert page.json a.vxpage b.json", 2, "--convert wants two page files");
    row("--convert page.json kept.png", 2, "'kept.png': .json or .vxpage");
    row("--convert page.json kept.json --scale 2", 2, "no other option: --scale");
    row("--convert page.json kept.json -o a.png", 2, "no other option: -o");
    row("--convert none.json kept.json", 1, "none.json");
    row("--convert document.json kept.json", 1, "'document.json': format: is missing");
    row("--convert cut.vxpage kept.json", 1, "'cut.vxpage': at byte 14: the file is cut short");
    row("--convert page.json no/a.json", 1, "cannot write 'no/a.json'");
    row("cut.vxpage -o kept.png", 1, "'cut.vxpage': at byte 14: the file is cut short");
}

void TestRenderPage::wrongConversionsAreNamed()
{
    QFETCH(QString, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, part);
    m_folder->write("page.json", page(text("a", "'x':10")));
    m_folder->write("document.json", "{\"block\":[],\"fragment\":[]}");
    m_folder->write("cut.vxpage", QByteArray("\x89VXPAGE\r\n\n\0\0\0\1", 14));
    for (const char *name : {"kept.json", "kept.png"})
        m_folder->write(name, "as it was");
    m_run = m_folder->run(qPrintable(arguments));
    QVERIFY(m_run.ended);
    QCOMPARE(m_run.exitCode, exitCode);
    QVERIFY2(m_run.err.contains(part), qPrintable(m_run.err));
    for (const char *name : {"kept.json", "kept.png"})
        QCOMPARE(m_folder->read(name), QByteArray("as it was"));
}

void TestRenderPage::hugeObjectsEnd_data()
{
    QTest::addColumn<QByteArray>("object");
    const auto row = [](const char *name, const QByteArray &object) {
        QTest::newRow(name) << object;
    };
    row("huge letters", text("aa", "'x':10", ",'font_pointsize':1e6"));
    row("huge box", text("aa aa", "'layout':'box','width':1e6,'height':1e6"));
    row("tiny box", text("aa aa", "'layout':'box','width':1e-9,'height':1e-9"));
    row("tiny growing box", text("aa aa", "'layout':'growing_box','width':1e-9,'height':1"));
    row("huge stretch", text("aa aa", "'width':1e6,'height':1e6"));
    row("far away", text("aa aa", "'x':1e6,'y':-1e6,'rotation':36000"));
    row("huge spacing", text("aa aa", "'x':1", ",'selected_letterspacing':1e6"));
    row("huge indent",
        text("aa aa", "'layout':'box','width':50,'height':50", ",'paragraph_left_indent':1e6"));
    row("no scale", text("aa aa", "'x':1", ",'vertical_scaled':0,'horizontal_scaled':0"));
}

void TestRenderPage::hugeObjectsEnd()
{
    QFETCH(QByteArray, object);
    const QImage image = picture(page(object + "," + text("a", "'x':90,'y':40")));
    QVERIFY2(m_run.ended, qPrintable(m_run.err));
    QVERIFY2(m_run.exitCode == 0, qPrintable(m_run.err));
    QCOMPARE(image.pixelColor(94, 49), QColor(Qt::black)); // the other object is there
}

QTEST_GUILESS_MAIN(TestRenderPage)
#include "tst_renderpage.moc"
