// SPDX-License-Identifier: MIT
// Clipboard, pictures and paper.
#include "tests/pagehost/objectwindow.h"

#include "app/pagehost/pictureexport.h"

#include <QClipboard>
#include <QMimeData>
#include <QPainter>
#include <QPrinter>
#include <QScrollBar>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

const QRectF firstPlace(60, 60, 220, 60);
const QRectF secondPlace(100, 160, 260, 90);

/// The part of all pixels, in percent, by which two pictures differ clearly.
double difference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 100;
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 48;
    }
    return 100.0 * count / (a.width() * a.height());
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
    void exportEndsTheEdit();
    void failedExportLeavesTheFileBefore();

    // Clipboard
    void pictureOfObjectsGoesToTheClipboard();
    void textGoesBetweenObjectsWithItsLook();
    void plainPasteTakesCharactersAlone();
    void plainPasteMakesATextOfObjects();

    // Paper
    void pageIsPrintedOnOneSheet();

private:
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
    if (PictureExport::write(*window.session(), format, fileName, scale, error))
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
    const double different = difference(screen, picture.copy(inPicture));
    QVERIFY2(different < 0.1, qPrintable(QString::number(different)));
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
    const double different = difference(png, drawn);
    QVERIFY2(different < 0.1, qPrintable(QString::number(different)));
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

void TestExport::exportEndsTheEdit()
{
    ObjectWindow window(&m_loader);
    window.startBox(firstPlace, QStringLiteral("edited"));
    QTest::keyClick(window.view(), Qt::Key_A, Qt::ControlModifier);
    const QImage picture(pictureFile(window, PageRenderer::Format::Png, "page.png"));
    QVERIFY(!window.session()->editedObject());
    QCOMPARE(picture.pixelColor(firstPlace.center().toPoint() + QPoint(80, 20)),
             QColor(Qt::white)); // nothing is shown as selected
    QVERIFY(darkPixels(picture, firstPlace.toRect()) > 100);
}

void TestExport::failedExportLeavesTheFileBefore()
{
    ObjectWindow window(&m_loader);
    makeTwo(window);
    const QString folder = m_folder->filePath(QStringLiteral("none/page.png"));
    QString error;
    QVERIFY(!PictureExport::write(*window.session(), PageRenderer::Format::Png, folder, 1, error));
    QVERIFY(!error.isEmpty());

    const QString fileName = pictureFile(window, PageRenderer::Format::Png, "page.png");
    const QByteArray before = contentOf(fileName);
    error.clear();
    QVERIFY(!PictureExport::write(*window.session(), PageRenderer::Format::Png, fileName, 1e6,
                                  error)); // too many pixels
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
    QVERIFY(PictureExport::print(*window.session(), printer));
    const QByteArray pdf = contentOf(fileName);
    QVERIFY(pdf.startsWith("%PDF-"));
    QCOMPARE(pdf.count("/Type /Page\n"), 1);
    QVERIFY(!pdf.contains("/FontFile"));

    QPrinter nowhere(QPrinter::HighResolution);
    nowhere.setOutputFormat(QPrinter::PdfFormat);
    nowhere.setOutputFileName(m_folder->filePath(QStringLiteral("none/paper.pdf")));
    QVERIFY(!PictureExport::print(*window.session(), nowhere));
}

QTEST_MAIN(TestExport)

#include "tst_export.moc"
