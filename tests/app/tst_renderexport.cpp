// SPDX-License-Identifier: MIT
// What the picture files hold: the same picture as the screen, whoever draws them, the text in plain
// form beside it, and the same bytes every time.
#include "tests/app/pdfstreams.h"
#include "tests/app/picturedifference.h"
#include "tests/app/renderfolder.h"

#include "app/page/document.h"
#include "app/page/framework.h"
#include "app/page/openpage.h"
#include "app/page/page.h"
#include "app/page/pluginloader.h"
#include "tests/support/testfont.h"

#include <QPainter>
#include <QStandardPaths>
#include <QXmlStreamReader>

namespace {

/// 200 by 150 pixels are 150 by 112.5 points: the PDF has half a point more.
constexpr QSize pageSize(200, 150);

/// Line text, box text, columns, turned, mirrored and half transparent text, all in squares; an art
/// text, whose edges are curves.
QByteArray richPage()
{
    QByteArray json(
        "{'format':'vxpage','version':1,"
        "'page':{'width':200,'height':150,'background':'#fff4e0'},'objects':["
        "{'kind':'rich_text','text':'Aa中','x':10,'y':8,'attributes':{'font_family':'BoxTest',"
        "'font_pointsize':18,'pen_color':'#c01030','font_underline':true}},"
        "{'kind':'rich_text','layout':'box','text':'aaa bbb ccc ddd','x':10,'y':50,'width':60,"
        "'height':60,'attributes':{'font_family':'BoxTest','font_pointsize':9,"
        "'textalignment':'justify'}},"
        "{'kind':'rich_text','direction':'vertical','text':'中文a','x':90,'y':50,"
        "'attributes':{'font_family':'BoxTest','font_pointsize':12}},"
        "{'kind':'rich_text','text':'turned','x':110,'y':20,'rotation':30,"
        "'attributes':{'font_family':'BoxTest','font_pointsize':15,'pen_color':'#1f3b73'}},"
        "{'kind':'rich_text','text':'ag','x':20,'y':115,'mirror':true,"
        "'attributes':{'font_family':'BoxTest','font_pointsize':15,'pen_color':'#80206020'}},"
        "{'kind':'art_text','record':{'version':1,'x':115,'y':80,'width':75,'height':60,"
        "'created':true,'textWord':'Art','shape':6,'fontFamily':'BoxTest','fontSize':192,"
        "'params':{'text_alignment':1,'font_Somehow':false},"
        "'fill':{'enabled':true,'color':'#ff20407f'}}}]}");
    return json.replace('\'', '"');
}

QByteArray pageWithText(const QByteArray &text)
{
    QByteArray json("{'format':'vxpage','version':1,'page':{'width':100,'height':60},'objects':["
                    "{'kind':'rich_text','text':'"
                    + text + "','attributes':{'font_family':'BoxTest','font_pointsize':12}}]}");
    return json.replace('\'', '"');
}

/// The text of the first element \a name of \a xml; null when there is none or it is no XML.
QString textOfElement(const QByteArray &xml, const char *name)
{
    QXmlStreamReader reader(xml);
    QString text;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && text.isNull()
            && reader.qualifiedName() == QLatin1String(name)) {
            text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
        }
    }
    return reader.hasError() ? QString() : text;
}

QByteArray metadataOfPdf(const QByteArray &pdf)
{
    const QByteArray end("</x:xmpmeta>");
    const int start = pdf.indexOf("<x:xmpmeta");
    return pdf.mid(start, pdf.indexOf(end, start) + end.size() - start);
}

} // namespace

class TestRenderExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_folder = std::make_unique<RenderFolder>(); }

    void pngLooksLikeTheScene_data();
    void pngLooksLikeTheScene();
    void otherProgramsDrawTheSame_data();
    void otherProgramsDrawTheSame();
    void pngCarriesItsText();
    void svgCarriesItsText();
    void pdfCarriesItsText();
    void artTextIsCarriedToo();
    void pictureWithoutTextCarriesNone();
    void longFirstLineIsCutInTheTitle();
    void sameInputSameBytes_data();
    void sameInputSameBytes();
    void dateIsThatOfTheEnvironment();
    void wrongDateIsRefused_data();
    void wrongDateIsRefused();
    void crossReferencesOfThePdfHold();
    void blankOfAnArtTextLeavesNoDot();

private:
    QImage rendered(const QStringList &options) const
    {
        const Run run = m_folder->run(
            QStringList{QStringLiteral("page.json"), QStringLiteral("-o"), QStringLiteral("o.png")}
            + options);
        if (run.exitCode != 0)
            qWarning("%s", qPrintable(run.err));
        return QImage(m_folder->path("o.png"));
    }
    QByteArray written(const char *output) const
    {
        const Run run = m_folder->run(
            {QStringLiteral("page.json"), QStringLiteral("-o"), QLatin1String(output)});
        if (run.exitCode != 0)
            qWarning("%s", qPrintable(run.err));
        return m_folder->read(output);
    }

    std::unique_ptr<RenderFolder> m_folder;
    Framework m_framework;
    PluginLoader m_loader;
};

void TestRenderExport::initTestCase()
{
    loadBoxTestFont();
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestRenderExport::pngLooksLikeTheScene_data()
{
    QTest::addColumn<int>("scale");
    for (int scale : {1, 2, 3})
        QTest::addRow("scale %d", scale) << scale;
}

void TestRenderExport::pngLooksLikeTheScene()
{
    QFETCH(int, scale);
    m_folder->write("page.json", richPage());
    const QImage png = rendered({QStringLiteral("--scale"), QString::number(scale)});
    QString error;
    const auto open = OpenPage::load(m_loader, m_folder->path("page.json"), error);
    QVERIFY2(open, qPrintable(error));
    QImage screen(pageSize * scale, QImage::Format_ARGB32_Premultiplied);
    screen.fill(open->background());
    QPainter painter(&screen);
    painter.setRenderHint(QPainter::Antialiasing);
    open->page()->scene()->render(&painter, QRectF(QPointF(0, 0), screen.size()),
                                  QRectF(QPointF(0, 0), pageSize));
    painter.end();
    QCOMPARE(png.size(), screen.size());
    const Difference apart = difference(png, screen);
    QVERIFY2(apart.mean < 0.1, qPrintable(QString::number(apart.mean)));
    QCOMPARE(apart.far, 0.0);
    QImage blank(screen.size(), screen.format());
    blank.fill(open->background());
    QVERIFY(difference(png, blank).mean > 5); // the measure tells a page from none
}

void TestRenderExport::otherProgramsDrawTheSame_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("scale");
    QTest::addColumn<QString>("arguments");
    const QString rsvg = QStringLiteral("rsvg-convert");
    const QString pdftoppm = QStringLiteral("pdftoppm");
    QTest::newRow("SVG") << rsvg << "page.svg" << 1 << "page.svg -o drawn.png";
    QTest::newRow("SVG, 3 times") << rsvg << "page.svg" << 3 << "-z 3 page.svg -o drawn.png";
    QTest::newRow("PDF") << pdftoppm << "page.pdf" << 1 << "-r 96 -png -singlefile page.pdf drawn";
    QTest::newRow("PDF, 3 times") << pdftoppm << "page.pdf" << 3
                                  << "-r 288 -png -singlefile page.pdf drawn";
}

void TestRenderExport::otherProgramsDrawTheSame()
{
    QFETCH(QString, program);
    QFETCH(QString, file);
    QFETCH(int, scale);
    QFETCH(QString, arguments);
    if (QStandardPaths::findExecutable(program).isEmpty())
        QSKIP(qPrintable(QStringLiteral("%1 is not installed").arg(program)));
    m_folder->write("page.json", richPage());
    QVERIFY(!written(qPrintable(file)).isEmpty());
    QProcess process;
    m_folder->start(process, arguments.split(QLatin1Char(' ')), program);
    QVERIFY(process.waitForFinished(runTimeout));
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    const QImage drawn(m_folder->path("drawn.png"));
    QVERIFY(drawn.width() >= 200 * scale && drawn.width() <= 202 * scale);
    QVERIFY(drawn.height() >= 150 * scale && drawn.height() <= 152 * scale);
    const QImage png = rendered({QStringLiteral("--scale"), QString::number(scale)});
    QCOMPARE(png.size(), pageSize * scale);
    // Along slanted edges each program has its own way of smoothing.
    const Difference apart = difference(png, drawn.copy(QRect(QPoint(0, 0), png.size())));
    QVERIFY2(apart.mean < 1.5, qPrintable(QString::number(apart.mean)));
    QVERIFY2(apart.far < 0.002, qPrintable(QString::number(apart.far)));
}

void TestRenderExport::pngCarriesItsText()
{
    m_folder->write("page.json", pageWithText("\\n  a &lt; <b>  \\n中\\u00e9"));
    QVERIFY(!written("o.png").isEmpty());
    const QImage png(m_folder->path("o.png"));
    QCOMPARE(png.text(QStringLiteral("Title")), QStringLiteral("a &lt; <b>"));
    QCOMPARE(png.text(QStringLiteral("Description")), QStringLiteral("\n  a &lt; <b>  \n中é"));
    QCOMPARE(png.text(QStringLiteral("Software")),
             QStringLiteral("pagerender " PAGERENDER_VERSION));
    QCOMPARE(png.textKeys().size(), 3);
}

void TestRenderExport::svgCarriesItsText()
{
    m_folder->write("page.json", pageWithText("a &lt; <b> \\\"]]>\\n\\u0001中"));
    const QByteArray svg = written("o.svg");
    QCOMPARE(textOfElement(svg, "title"), QStringLiteral("a &lt; <b> \"]]>"));
    QCOMPARE(textOfElement(svg, "desc"), QStringLiteral("a &lt; <b> \"]]>\n中"));
    QCOMPARE(textOfElement(svg, "dc:creator"), QStringLiteral("pagerender " PAGERENDER_VERSION));
    QCOMPARE(textOfElement(svg, "dc:date"), QString());
    QVERIFY(!svg.contains("<text"));
}

void TestRenderExport::pdfCarriesItsText()
{
    m_folder->write("page.json", pageWithText("a &lt; <b>\\n\\u0001中"));
    const QByteArray metadata = metadataOfPdf(written("o.pdf"));
    QCOMPARE(textOfElement(metadata, "dc:title"), QStringLiteral("a &lt; <b>"));
    QCOMPARE(textOfElement(metadata, "dc:description"), QStringLiteral("a &lt; <b>\n中"));
    QCOMPARE(textOfElement(metadata, "xmp:CreateDate"), QString());
}

void TestRenderExport::artTextIsCarriedToo()
{
    m_folder->write("page.json", richPage());
    const QString text = textOfElement(written("o.svg"), "desc");
    QCOMPARE(text, QStringLiteral("Aa中\n\naaa bbb ccc ddd\n\n中文a\n\nturned\n\nag\n\nArt"));
    m_folder->write("a.txt", "One\nTwo\n");
    const Run run = m_folder->run("--art arch --text a.txt --font BoxTest -o art.svg");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(textOfElement(m_folder->read("art.svg"), "title"), QStringLiteral("One"));
    QCOMPARE(textOfElement(m_folder->read("art.svg"), "desc"), QStringLiteral("One\nTwo"));
}

void TestRenderExport::pictureWithoutTextCarriesNone()
{
    m_folder->write("page.json", "{\"format\":\"vxpage\",\"version\":1,"
                                 "\"page\":{\"width\":100,\"height\":60}}");
    const QByteArray svg = written("o.svg");
    QVERIFY(!svg.contains("<title"));
    QVERIFY(!svg.contains("<desc"));
    QVERIFY(QImage::fromData(written("o.png")).text(QStringLiteral("Title")).isEmpty());
    QVERIFY(textOfElement(metadataOfPdf(written("o.pdf")), "dc:title").isNull());
}

void TestRenderExport::longFirstLineIsCutInTheTitle()
{
    // 119 letters and a character of two units: it is not cut in two.
    m_folder->write("page.json", pageWithText(QByteArray(119, 'a') + "\xF0\x9F\x98\x80" + "bbb"));
    QCOMPARE(textOfElement(written("o.svg"), "title"),
             QString(119, QLatin1Char('a')) + QChar(0x2026));
}

void TestRenderExport::sameInputSameBytes_data()
{
    QTest::addColumn<QString>("output");
    for (const char *output : {"o.png", "o.svg", "o.pdf"})
        QTest::newRow(output) << QString::fromLatin1(output);
}

// The zone changes the local time, and the length of its name in a PDF.
void TestRenderExport::sameInputSameBytes()
{
    QFETCH(QString, output);
    m_folder->write("page.json", richPage());
    const QByteArray first = written(qPrintable(output));
    QVERIFY(!first.isEmpty());
    m_folder->setVariable("SOURCE_DATE_EPOCH", "1600000000"); // 2020-09-13, 12:26:40
    const QByteArray dated = written(qPrintable(output));
    QVERIFY(dated != first);
    m_folder->setVariable("TZ", "Asia/Tokyo");
    m_folder->setVariable("LC_ALL", "C");
    m_folder->setVariable("QT_HASH_SEED", "77");
    QCOMPARE(written(qPrintable(output)), dated);
    QVERIFY(!first.contains("202")); // a year of now
}

void TestRenderExport::dateIsThatOfTheEnvironment()
{
    m_folder->write("page.json", richPage());
    m_folder->setVariable("SOURCE_DATE_EPOCH", "1600000000");
    m_folder->setVariable("TZ", "Asia/Tokyo");
    QCOMPARE(QImage::fromData(written("o.png")).text(QStringLiteral("Creation Time")),
             QStringLiteral("13 Sep 2020 12:26:40 +0000"));
    QCOMPARE(textOfElement(written("o.svg"), "dc:date"), QStringLiteral("2020-09-13T12:26:40Z"));
    const QByteArray pdf = written("o.pdf");
    QVERIFY(pdf.contains("/CreationDate (D:20200913122640Z)"));
    QCOMPARE(textOfElement(metadataOfPdf(pdf), "xmp:CreateDate"),
             QStringLiteral("2020-09-13T12:26:40Z"));
}

void TestRenderExport::wrongDateIsRefused_data()
{
    QTest::addColumn<QByteArray>("date");
    for (const char *date : {"now", "", "-1", "1.5", "99999999999999"})
        QTest::newRow(*date ? date : "empty") << QByteArray(date);
}

void TestRenderExport::wrongDateIsRefused()
{
    QFETCH(QByteArray, date);
    m_folder->write("page.json", richPage());
    m_folder->setVariable("SOURCE_DATE_EPOCH", date.constData());
    const Run run = m_folder->run("page.json -o o.pdf");
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(QLatin1String("SOURCE_DATE_EPOCH: '")), qPrintable(run.err));
    QVERIFY(!m_folder->has("o.pdf"));
}

// The table at the end of the file counts bytes: what is replaced in the file moves none.
void TestRenderExport::crossReferencesOfThePdfHold()
{
    m_folder->write("page.json", richPage());
    for (const char *date : {"", "1600000000"}) {
        if (*date)
            m_folder->setVariable("SOURCE_DATE_EPOCH", date);
        const QByteArray pdf = written("o.pdf");
        const int table = pdf.mid(pdf.lastIndexOf("startxref\n") + 10).split('\n').first().toInt();
        QVERIFY(pdf.mid(table).startsWith("xref\n"));
        const QList<QByteArray> lines = pdf.mid(table).split('\n');
        int objects = 0;
        for (int i = 3; i < lines.size() && lines.at(i).contains(" n"); ++i, ++objects) {
            const QByteArray header = QByteArray::number(i - 2) + " 0 obj";
            QVERIFY2(pdf.mid(lines.at(i).left(10).toInt()).startsWith(header), header.constData());
        }
        QVERIFY(objects > 5);
    }
}

// Under a pen with caps a move that nothing follows would be a dot of its own.
void TestRenderExport::blankOfAnArtTextLeavesNoDot()
{
    m_folder->write("a.txt", "a b");
    const Run run = m_folder->run("--art arcs-up --text a.txt --font BoxTest --pen red -o o.pdf");
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    const QByteArray drawing = pdfStreams(m_folder->read("o.pdf"));
    QVERIFY(drawing.contains(" m\n"));
    QVERIFY(!drawing.contains(" m\nh\n"));
}

QTEST_MAIN(TestRenderExport)
#include "tst_renderexport.moc"
