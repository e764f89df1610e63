// SPDX-License-Identifier: MIT
// Clipboard, pictures and paper.
#include "tests/app/picturedifference.h"
#include "tests/pagehost/filedialoguser.h"
#include "tests/pagehost/objectwindow.h"
#include "tests/pagehost/slowclock.h"

#include "app/pagehost/exportcommands.h"
#include "app/pagehost/pictureexport.h"

#include <QClipboard>
#include <QMimeData>
#include <QPainter>
#include <QPicture>
#include <QPrinter>
#include <QProcess>
#include <QScrollBar>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <QTemporaryDir>

namespace {

const QRectF firstPlace(60, 60, 220, 60);
const QRectF secondPlace(100, 160, 260, 90);

/// Drawn by the same engine: all but rounding is equal.
void checkSame(const QImage &one, const QImage &other)
{
    QCOMPARE(one.size(), other.size());
    const Difference apart = difference(one, other);
    QVERIFY2(apart.mean < 0.1, qPrintable(QString::number(apart.mean)));
    QVERIFY2(apart.far < 0.0001, qPrintable(QString::number(apart.far)));
}

int darkPixels(const QImage &image, const QRect &place)
{
    int count = 0;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x)
            count += qAlpha(image.pixel(x, y)) > 128 && qGray(image.pixel(x, y)) < 64;
    }
    return count;
}

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void bend(CVXRootObject *object, int style, double value)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << style << value << 0.0 << 0.0 << 1 << true;
    QDataStream in(bytes);
    object->SetSpecialProperty(/*property=*/118, in, /*undo=*/false);
}

bool isBold(CVXRootObject *object)
{
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    return attributes.value(QStringLiteral("font_bold")).toBool();
}

} // namespace

class TestExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    // Pictures
    void pngIsWhatTheScreenShows_data();
    void pngIsWhatTheScreenShows();
    void pngHasTheResolutionAskedFor();
    void svgHasOutlinesAndTheTextBeside();
    void pdfHasOutlinesAndATitle();
    void wholePageLooksLikeTheScreen_data();
    void wholePageLooksLikeTheScreen();
    void otherProgramsDrawTheSame_data();
    void otherProgramsDrawTheSame();
    void noTextNeedsAFont_data();
    void noTextNeedsAFont();
    void exportGoesOnWithTheEdit();
    void paperAndCopyGoOnWithTheEdit();
    void exportedFileHasTheSuffixOfItsFormat_data();
    void exportedFileHasTheSuffixOfItsFormat();
    void fileOfTheCompletedNameIsAskedAbout();
    void failedExportLeavesTheFileBefore();

    // Clipboard
    void pictureOfObjectsGoesToTheClipboard();
    void textGoesBetweenObjectsWithItsLook();
    void plainPasteTakesCharactersAlone();
    void plainPasteMakesATextOfObjects();

    // Paper
    void pageIsPrintedOnOneSheet();
    void paperShowsThePageInItsSize();
    void recordingIsPlayedInItsPixels_data();
    void recordingIsPlayedInItsPixels();
    void printerGetsThePageAtOnce();

    // Long work
    void workThatIsGivenUpLeavesFile_data();
    void workThatIsGivenUpLeavesFile();
    void slowWorkCanBeCancelled_data();
    void slowWorkCanBeCancelled();
    void slowCopyCanBeCancelled();

private:
    enum Kind { Png, Svg, Pdf, Paper };
    static void addKinds();
    static const char *fileNameOf(Kind kind);
    void openWhole(ObjectWindow &window, const QString &page);
    bool make(ObjectWindow &window, Kind kind, const QString &fileName, QString &error,
              LongWork &work);
    QImage drawnBy(const QString &program, const QStringList &arguments) const;
    QString pictureFile(ObjectWindow &window, PageRenderer::Format format, const char *name,
                        double scale = 1);
    static void makeTwo(ObjectWindow &window);

    PluginLoader m_loader;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestExport::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestExport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

/// One box upright, one turned.
void TestExport::makeTwo(ObjectWindow &window)
{
    window.writeBox(firstPlace, QStringLiteral("Outlines"));
    window.writeBox(secondPlace, QStringLiteral("Words & more"))->rotateObj(15, /*undo=*/false);
    window.select({});
}

QString TestExport::pictureFile(ObjectWindow &window, PageRenderer::Format format, const char *name,
                                double scale)
{
    const QString fileName = m_folder->filePath(QLatin1String(name));
    QString error;
    PlainWork work;
    if (PictureExport::write(*window.session(), format, fileName, scale, error, work))
        return fileName;
    qWarning("%s", qPrintable(error));
    return {};
}

// Pictures

void TestExport::pngIsWhatTheScreenShows_data()
{
    QTest::addColumn<double>("zoom");
    QTest::newRow("normal size") << 1.0;
    QTest::newRow("half as much again") << 1.5;
    QTest::newRow("doubled") << 2.0;
}

void TestExport::pngIsWhatTheScreenShows()
{
    QFETCH(double, zoom);
    ObjectWindow window(&m_loader);
    makeTwo(window);
    window.view()->setZoom(zoom);
    window.view()->horizontalScrollBar()->setValue(-48);
    window.view()->verticalScrollBar()->setValue(-48);
    const QRect part(30, 30, 380, 260); // of the page
    const QString fileName = pictureFile(window, PageRenderer::Format::Png, "page.png", zoom);
    const QImage picture(fileName);
    const QRect inPicture(part.topLeft() * zoom, part.size() * zoom);
    QVERIFY(picture.rect().contains(inPicture));
    const QPoint corner = window.view()->viewportTransform().map(QPointF(part.topLeft())).toPoint();
    const QRect onScreen(corner, inPicture.size());
    QVERIFY(window.canvas()->rect().contains(onScreen));
    const QImage screen = window.canvas()->grab(onScreen).toImage();
    QVERIFY(darkPixels(screen, screen.rect()) > 500);
    checkSame(screen, picture.copy(inPicture));
}

void TestExport::pngHasTheResolutionAskedFor()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    const QSize page = window.session()->size();
    const QImage picture(pictureFile(window, PageRenderer::Format::Png, "page.png", 2));
    QCOMPARE(picture.size(), page * 2);
    QCOMPARE(picture.text(QStringLiteral("Title")), QStringLiteral("Outlines"));
    QCOMPARE(picture.text(QStringLiteral("Description")),
             QStringLiteral("Outlines\n\nWords & more"));
}

void TestExport::svgHasOutlinesAndTheTextBeside()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    const QByteArray svg = contentOf(pictureFile(window, PageRenderer::Format::Svg, "page.svg"));
    QVERIFY(svg.contains("<title>Outlines</title>"));
    QVERIFY(svg.contains("Words &amp; more</desc>"));
    QVERIFY(!svg.contains("<text"));
    const QImage png(pictureFile(window, PageRenderer::Format::Png, "page.png"));
    QImage drawn(png.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::white);
    QSvgRenderer renderer(svg);
    QVERIFY(renderer.isValid());
    QPainter painter(&drawn);
    renderer.render(&painter, drawn.rect());
    painter.end();
    checkSame(png, drawn);
}

void TestExport::pdfHasOutlinesAndATitle()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    const QByteArray pdf = contentOf(pictureFile(window, PageRenderer::Format::Pdf, "page.pdf"));
    QVERIFY(pdf.startsWith("%PDF-"));
    QVERIFY(!pdf.contains("/FontFile"));
    QVERIFY(pdf.contains("<dc:title>") && pdf.contains("Outlines"));
    QVERIFY(pdf.contains("Words &amp; more"));
}

/// Shows \a page whole at the zoom 2 and less: a sample of that name, or the sample of art texts with two
/// warped texts on it.
void TestExport::openWhole(ObjectWindow &window, const QString &page)
{
    const bool isBent = page == QLatin1String("art and warps");
    const QString name = isBent ? QStringLiteral("art.json") : page;
    QVERIFY(window.window()->openFile(QStringLiteral(VX_SOURCE_DIR "/samples/") + name));
    if (isBent) {
        bend(window.writeBox({280, 350, 320, 60}, QStringLiteral("flying flags")), 8, 0.5);
        bend(window.writeBox({280, 420, 320, 60}, QStringLiteral("arcs of words")), 1, -0.4);
        window.select({});
    }
    window.window()->resize(2400, 1500);
    window.settle();
}

static void addPages(const std::initializer_list<int> &scales)
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("scale");
    for (const char *page : {"page.json", "art and warps"}) {
        for (int scale : scales)
            QTest::addRow("%s, %d times", page, scale) << QString::fromLatin1(page) << scale;
    }
}

void TestExport::wholePageLooksLikeTheScreen_data()
{
    addPages({1, 2});
}

void TestExport::wholePageLooksLikeTheScreen()
{
    QFETCH(QString, page);
    QFETCH(int, scale);
    ObjectWindow window(&m_loader);
    openWhole(window, page);
    window.view()->setZoom(scale);
    window.settle();
    const QRect onScreen(window.view()->mapFromScene(QPointF(0, 0)),
                         window.session()->size() * scale);
    QVERIFY(window.canvas()->rect().contains(onScreen));
    const QImage screen = window.canvas()->grab(onScreen).toImage();
    const QImage picture(pictureFile(window, PageRenderer::Format::Png, "page.png", scale));
    const QRect inside = screen.rect().adjusted(2, 2, -2,
                                                -2); // of the line that the view draws around
    checkSame(screen.copy(inside), picture.copy(inside));
    QCOMPARE(picture.size(), screen.size());
    QImage blank(screen.size(), QImage::Format_RGB32);
    blank.fill(window.session()->background());
    QVERIFY(difference(screen, blank).mean > 5); // the measure tells a page from none
}

void TestExport::otherProgramsDrawTheSame_data()
{
    addPages({1, 2});
}

QImage TestExport::drawnBy(const QString &program, const QStringList &arguments) const
{
    const QString drawn = m_folder->filePath(QStringLiteral("drawn.png"));
    QFile::remove(drawn);
    QProcess process;
    process.setWorkingDirectory(m_folder->path());
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qWarning("%s", process.readAllStandardError().constData());
    return QImage(drawn);
}

/// Along slanted edges each program has its own way of smoothing.
static void checkAlike(const QImage &png, const QImage &drawn)
{
    QVERIFY(drawn.width() >= png.width() && drawn.width() <= png.width() + 4);
    QVERIFY(drawn.height() >= png.height() && drawn.height() <= png.height() + 4);
    const Difference apart = difference(png, drawn.copy(png.rect()));
    QVERIFY2(apart.mean < 1.5, qPrintable(QString::number(apart.mean)));
    QVERIFY2(apart.far < 0.002, qPrintable(QString::number(apart.far)));
}

void TestExport::otherProgramsDrawTheSame()
{
    QFETCH(QString, page);
    QFETCH(int, scale);
    const QString rsvg = QStringLiteral("rsvg-convert");
    const QString pdftoppm = QStringLiteral("pdftoppm");
    for (const QString &program : {rsvg, pdftoppm}) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            QSKIP(qPrintable(QStringLiteral("%1 is not installed").arg(program)));
    }
    ObjectWindow window(&m_loader);
    openWhole(window, page);
    const QImage png(pictureFile(window, PageRenderer::Format::Png, "page.png", scale));
    const QString svg = pictureFile(window, PageRenderer::Format::Svg, "page.svg");
    checkAlike(png, drawnBy(rsvg, {QStringLiteral("-z"), QString::number(scale), svg,
                                   QStringLiteral("-o"), QStringLiteral("drawn.png")}));
    const QString pdf = pictureFile(window, PageRenderer::Format::Pdf, "page.pdf");
    checkAlike(png, drawnBy(pdftoppm, {QStringLiteral("-r"), QString::number(96 * scale),
                                       QStringLiteral("-png"), QStringLiteral("-singlefile"), pdf,
                                       QStringLiteral("drawn")}));
}

void TestExport::noTextNeedsAFont_data()
{
    QTest::addColumn<QString>("page");
    for (const char *page : {"page.json", "art and warps", "missing-font.json"})
        QTest::newRow(page) << QString::fromLatin1(page);
}

void TestExport::noTextNeedsAFont()
{
    QFETCH(QString, page);
    ObjectWindow window(&m_loader);
    openWhole(window, page);
    const QByteArray svg = contentOf(pictureFile(window, PageRenderer::Format::Svg, "page.svg"));
    QVERIFY(svg.contains("<path "));
    QVERIFY(!svg.contains("<text"));
    const QString fileName = pictureFile(window, PageRenderer::Format::Pdf, "page.pdf");
    const QByteArray pdf = contentOf(fileName);
    QVERIFY(!pdf.contains("/FontFile"));
    QVERIFY(!pdf.contains("/Type /Font"));
    const QString first = window.text(0).section(QLatin1Char('\n'), 0, 0);
    QVERIFY(svg.contains("<title>" + first.toUtf8().replace('&', "&amp;")));
    QVERIFY(pdf.contains(first.toUtf8().replace('&', "&amp;")));
    const QImage png(pictureFile(window, PageRenderer::Format::Png, "page.png"));
    QVERIFY(png.text(QStringLiteral("Description")).startsWith(window.text(0)));
    if (QStandardPaths::findExecutable(QStringLiteral("pdffonts")).isEmpty())
        QSKIP("pdffonts is not installed");
    QProcess fonts;
    fonts.start(QStringLiteral("pdffonts"), {fileName});
    QVERIFY(fonts.waitForFinished());
    QCOMPARE(fonts.exitCode(), 0);
    QCOMPARE(fonts.readAllStandardOutput().count('\n'), 2); // the head of a list without entries
}

void TestExport::exportGoesOnWithTheEdit()
{
    ObjectWindow window(&m_loader);
    window.startBox(firstPlace, QStringLiteral("edited"));
    QTest::keyClick(window.view(), Qt::Key_A, Qt::ControlModifier);
    const QImage picture(pictureFile(window, PageRenderer::Format::Png, "page.png"));
    QCOMPARE(picture.pixelColor(firstPlace.center().toPoint() + QPoint(80, 20)),
             QColor(Qt::white)); // nothing is shown as selected
    QVERIFY(darkPixels(picture, firstPlace.toRect()) > 100);
    QCOMPARE(window.session()->editedObject(), window.objects().value(0));
    QTest::keyClicks(window.view(), QStringLiteral("!"));
    QCOMPARE(window.text(0), QStringLiteral("edited!"));
}

void TestExport::paperAndCopyGoOnWithTheEdit()
{
    ObjectWindow window(&m_loader);
    window.startBox(firstPlace, QStringLiteral("edited"));
    QTest::keyClick(window.view(), Qt::Key_Left);
    QString error;
    PlainWork work;
    QVERIFY(make(window, Paper, m_folder->filePath(QStringLiteral("paper.pdf")), error, work));
    QTest::keyClicks(window.view(), QStringLiteral("1"));
    window.trigger("copyPicture");
    QVERIFY(QGuiApplication::clipboard()->mimeData()->hasImage());
    QTest::keyClicks(window.view(), QStringLiteral("2"));
    QCOMPARE(window.text(0), QStringLiteral("edite12d"));
}

void TestExport::exportedFileHasTheSuffixOfItsFormat_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("written");
    const QString svg = QStringLiteral("Picture of outlines (*.svg)");
    const QString pdf = QStringLiteral("Document (*.pdf)");
    QTest::newRow("as offered") << QStringLiteral("report.v2") << svg
                                << QStringLiteral("report.v2.svg");
    QTest::newRow("unknown") << QStringLiteral("a.b") << pdf << QStringLiteral("a.b.pdf");
    QTest::newRow("its own") << QStringLiteral("a.svg") << svg << QStringLiteral("a.svg");
    QTest::newRow("another") << QStringLiteral("a.PDF") << svg << QStringLiteral("a.PDF");
}

void TestExport::exportedFileHasTheSuffixOfItsFormat()
{
    QFETCH(QString, typed);
    QFETCH(QString, format);
    QFETCH(QString, written);
    ObjectWindow window(&m_loader);
    makeTwo(window);
    QString error;
    QVERIFY(window.session()->save(m_folder->filePath(QStringLiteral("report.v2.vxpage")), error));
    acceptFileDialog(typed, format);
    window.trigger("export");
    const QByteArray bytes = contentOf(m_folder->filePath(written));
    QCOMPARE(bytes.startsWith("%PDF-"),
             written.endsWith(QLatin1String("pdf"), Qt::CaseInsensitive));
    QVERIFY(bytes.size() > 500);
}

void TestExport::fileOfTheCompletedNameIsAskedAbout()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    QString error;
    QVERIFY(window.session()->save(m_folder->filePath(QStringLiteral("report.v2.vxpage")), error));
    const QString there = m_folder->filePath(QStringLiteral("report.v2.svg"));
    QFile file(there);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("there") == 5);
    file.close();
    acceptFileDialog(QStringLiteral("report.v2"), QStringLiteral("Picture of outlines (*.svg)"));
    QString question;
    answerMessage(QMessageBox::Cancel, &question);
    window.trigger("export");
    QVERIFY2(question.contains(QLatin1String("report.v2.svg")), qPrintable(question));
    QCOMPARE(contentOf(there), QByteArray("there"));
}

void TestExport::failedExportLeavesTheFileBefore()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    const QString folder = m_folder->filePath(QStringLiteral("none/page.png"));
    QString error;
    PlainWork work;
    QVERIFY(!PictureExport::write(*window.session(), PageRenderer::Format::Png, folder, 1, error,
                                  work));
    QVERIFY(!error.isEmpty());

    const QString fileName = pictureFile(window, PageRenderer::Format::Png, "page.png");
    const QByteArray before = contentOf(fileName);
    error.clear();
    QVERIFY(!PictureExport::write(*window.session(), PageRenderer::Format::Png, fileName, 1e6,
                                  error,
                                  work)); // too many pixels
    QVERIFY(!error.isEmpty());
    QCOMPARE(contentOf(fileName), before);
}

// Clipboard

void TestExport::pictureOfObjectsGoesToTheClipboard()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    window.select({0});
    window.trigger("copyPicture");
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data->hasImage());
    QVERIFY(data->hasFormat(QStringLiteral("image/png")));
    const QImage image = qvariant_cast<QImage>(data->imageData());
    // The first box alone, in two pixels for one of the page: no wider than the box.
    QVERIFY(image.width() > 100 && image.width() <= 2 * 224);
    QVERIFY(image.height() > 20 && image.height() <= 2 * 64);
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QVERIFY(darkPixels(image, image.rect()) > 500);
    const QByteArray svg = data->data(QStringLiteral("image/svg+xml"));
    QVERIFY(svg.contains("Outlines") && !svg.contains("Words"));
}

void TestExport::textGoesBetweenObjectsWithItsLook()
{
    ObjectWindow window(&m_loader);
    window.startBox(firstPlace, QStringLiteral("bold"));
    QTest::keyClick(window.view(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window.view(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    window.trigger("copy");
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("bold"));
    QTest::keyClick(window.view(), Qt::Key_Escape);
    CVXRootObject *other = window.startBox({100, 300, 260, 90}, QString());
    QTest::keyClick(window.view(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(window.text(1), QStringLiteral("bold"));
    QTest::keyClick(window.view(), Qt::Key_Escape);
    QVERIFY(isBold(other));
}

void TestExport::plainPasteTakesCharactersAlone()
{
    ObjectWindow window(&m_loader);
    window.startBox(firstPlace, QStringLiteral("bold"));
    QTest::keyClick(window.view(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window.view(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    window.trigger("copy");
    QTest::keyClick(window.view(), Qt::Key_Escape);
    CVXRootObject *other = window.startBox({100, 300, 260, 90}, QString());
    QTest::keyClick(window.view(), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(window.text(1), QStringLiteral("bold"));
    QTest::keyClick(window.view(), Qt::Key_Escape);
    QVERIFY(!isBold(other));
}

void TestExport::plainPasteMakesATextOfObjects()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    window.select({0, 1});
    window.trigger("copy");
    const int steps = window.steps()->index();
    window.trigger("pastePlain");
    QCOMPARE(window.objects().size(), 3);
    QCOMPARE(window.text(2), QStringLiteral("Outlines\nWords & more"));
    QCOMPARE(window.steps()->index(), steps + 1);
    window.trigger("paste");
    QCOMPARE(window.objects().size(), 5);
}

// Paper

void TestExport::pageIsPrintedOnOneSheet()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    QPrinter printer(QPrinter::HighResolution);
    const QString fileName = m_folder->filePath(QStringLiteral("paper.pdf"));
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    printer.setPageSize(QPageSize(QPageSize::A6)); // smaller than the page
    QString error;
    PlainWork work;
    QVERIFY2(PictureExport::print(*window.session(), printer, error, work), qPrintable(error));
    QCOMPARE(printer.outputFileName(), fileName);
    const QByteArray pdf = contentOf(fileName);
    QVERIFY(pdf.startsWith("%PDF-"));
    QCOMPARE(pdf.count("/Type /Page\n"), 1);
    QVERIFY(!pdf.contains("/FontFile"));

    QPrinter nowhere(QPrinter::HighResolution);
    nowhere.setOutputFormat(QPrinter::PdfFormat);
    nowhere.setOutputFileName(m_folder->filePath(QStringLiteral("none/paper.pdf")));
    QVERIFY(!PictureExport::print(*window.session(), nowhere, error, work));
    QVERIFY(!error.isEmpty());
}

/// A picture of the paper shows the page, in its own size in the corner that the printer prints.
void TestExport::paperShowsThePageInItsSize()
{
    if (QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty())
        QSKIP("pdftoppm is not installed");
    ObjectWindow window(&m_loader);
    openWhole(window, QStringLiteral("page.json"));
    const QImage png(pictureFile(window, PageRenderer::Format::Png, "page.png"));
    QPrinter printer(QPrinter::HighResolution);
    const QString fileName = m_folder->filePath(QStringLiteral("paper.pdf"));
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    printer.setPageSize(QPageSize(QPageSize::A3));
    printer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QString error;
    PlainWork work;
    QVERIFY2(PictureExport::print(*window.session(), printer, error, work), qPrintable(error));
    const QImage paper = drawnBy(QStringLiteral("pdftoppm"),
                                 {QStringLiteral("-r"), QStringLiteral("96"),
                                  QStringLiteral("-png"), QStringLiteral("-singlefile"), fileName,
                                  QStringLiteral("drawn")});
    QVERIFY(paper.width() > png.width() && paper.height() > png.height());
    checkAlike(png, paper.copy(png.rect()));
    QCOMPARE(paper.pixelColor(png.width() + 3, 10), QColor(Qt::white));
}

void TestExport::recordingIsPlayedInItsPixels_data()
{
    QTest::addColumn<int>("dpi");
    for (int dpi : {72, 96, 300, 1200})
        QTest::addRow("%d dots per inch", dpi) << dpi;
}

/// What a printer gets is the page as it is painted directly, whatever resolution the printer has.
void TestExport::recordingIsPlayedInItsPixels()
{
    QFETCH(int, dpi);
    ObjectWindow window(&m_loader);
    openWhole(window, QStringLiteral("art and warps"));
    PageRenderer::Options options;
    options.page = window.session()->size();
    options.background = window.session()->background();
    PageRenderer renderer(window.session()->page(), options);
    QImage direct(options.page, QImage::Format_ARGB32_Premultiplied);
    direct.setDotsPerMeterX(qRound(dpi / 0.0254));
    direct.setDotsPerMeterY(qRound(dpi / 0.0254));
    direct.fill(Qt::white);
    QImage played = direct;
    QPainter painter(&direct);
    QVERIFY(renderer.paint(painter));
    painter.end();
    QPicture picture;
    QPainter recorder(&picture);
    QVERIFY(renderer.paint(recorder));
    recorder.end();
    QPainter player(&played);
    QVERIFY(PictureExport::play(picture, player));
    player.end();
    checkSame(direct, played);
    QVERIFY(darkPixels(direct, direct.rect()) > 500);
}

/// Nothing of a page that is given up while it is painted reaches a printer: that is not even begun.
void TestExport::printerGetsThePageAtOnce()
{
    class Printing : public ImpatientWork
    {
    public:
        using ImpatientWork::ImpatientWork;
        void beginLastPart() override { isLastPart = true; }
        bool isLastPart = false;
    };
    ObjectWindow window(&m_loader);
    makeTwo(window);
    for (int steps = 0; steps <= 2; ++steps) { // one for each object
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat); // without a file it does not begin
        Printing work(steps);
        QString error;
        QVERIFY(!PictureExport::print(*window.session(), printer, error, work));
        QCOMPARE(work.isLastPart, steps == 2);
        QCOMPARE(error.isEmpty(), steps < 2);
    }
}

// Long work

void TestExport::addKinds()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("PNG") << int(Png);
    QTest::newRow("SVG") << int(Svg);
    QTest::newRow("PDF") << int(Pdf);
    QTest::newRow("printing to a file") << int(Paper);
}

const char *TestExport::fileNameOf(Kind kind)
{
    constexpr const char *names[] = {"page.png", "page.svg", "page.pdf", "paper.pdf"};
    return names[kind];
}

bool TestExport::make(ObjectWindow &window, Kind kind, const QString &fileName, QString &error,
                      LongWork &work)
{
    if (kind != Paper) {
        return PictureExport::write(*window.session(), PageRenderer::Format(kind), fileName, 1,
                                    error, work);
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    return PictureExport::print(*window.session(), printer, error, work);
}

void TestExport::workThatIsGivenUpLeavesFile_data()
{
    addKinds();
}

void TestExport::workThatIsGivenUpLeavesFile()
{
    QFETCH(int, kind);
    ObjectWindow window(&m_loader);
    makeTwo(window);
    const QString fileName = m_folder->filePath(QLatin1String(fileNameOf(Kind(kind))));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    file.close();
    int steps = 0;
    for (bool isDone = false; !isDone; ++steps) { // wherever it is
        QString error;
        ImpatientWork work(steps);
        isDone = make(window, Kind(kind), fileName, error, work);
        QCOMPARE(error, QString());
        QCOMPARE(contentOf(fileName) == "old", !isDone);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }
    QVERIFY(steps > window.objects().size() + 1);
}

void TestExport::slowWorkCanBeCancelled_data()
{
    addKinds();
}

void TestExport::slowWorkCanBeCancelled()
{
    QFETCH(int, kind);
    ObjectWindow window(&m_loader);
    makeTwo(window);
    const QString fileName = m_folder->filePath(QLatin1String(fileNameOf(Kind(kind))));
    auto *commands = window.window()->findChild<ExportCommands *>();
    const auto command = [&] {
        if (kind == Paper) {
            QPrinter printer(QPrinter::HighResolution);
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(fileName);
            commands->printOn(printer);
        } else {
            commands->exportTo(PageRenderer::Format(kind), fileName, 1);
        }
    };
    const QStringList texts = window.texts();
    const int steps = window.steps()->index();
    const SlowClock clock(1000);
    const QString words = kind == Paper
                              ? QStringLiteral("Printing")
                              : QStringLiteral("Exporting ") + QFileInfo(fileName).fileName();
    {
        const ProgressWatch user(ProgressWatch::Manner::Cancels);
        command(); // and no message
        QCOMPARE(user.words(), words);
        QVERIFY(!QFile::exists(fileName));
        QCOMPARE(window.texts(), texts);
        QCOMPARE(window.steps()->index(), steps);
    }
    const ProgressWatch user(ProgressWatch::Manner::Looks);
    command();
    QCOMPARE(user.words(), words);
    QVERIFY(contentOf(fileName).size() > 500);
}

void TestExport::slowCopyCanBeCancelled()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    window.select({0});
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    const SlowClock clock(1000);
    const ProgressWatch user(ProgressWatch::Manner::Cancels);
    window.trigger("copyPicture");
    QCOMPARE(user.words(), QStringLiteral("Copying"));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
}

QTEST_MAIN(TestExport)

#include "tst_export.moc"
