// SPDX-License-Identifier: MIT
#include "app/page/document.h"
#include "app/page/framework.h"
#include "app/page/page.h"
#include "app/page/pagerenderer.h"
#include "app/page/paintbounds.h"
#include "app/page/paragraphstyle.h"
#include "app/page/pluginloader.h"
#include "app/page/textrecord.h"
#include "host/framework/cbaseobject.h"

#include <QPainter>
#include <QtTest>

namespace {

/// Paints one rectangle and tells of its end.
class RectObject : public CBaseObject
{
public:
    RectObject(IVxPage *page, const QRectF &rect, QList<int> *ended = nullptr, int id = 1)
        : CBaseObject(id, true, nullptr, page)
        , m_rect(rect)
        , m_ended(ended)
    {
    }
    ~RectObject() override
    {
        if (m_ended)
            m_ended->append(getObjId());
    }
    void OnQPainterDraw(QPainter *painter) override { painter->fillRect(m_rect, Qt::red); }

private:
    QRectF m_rect;
    QList<int> *m_ended;
};

QJsonObject parse(const QString &string)
{
    return QJsonDocument::fromJson(string.toUtf8()).object();
}

QStringList contents(const QString &string)
{
    QStringList all;
    const QJsonArray fragments = parse(string).value(QLatin1String("fragment")).toArray();
    for (const QJsonValue &runs : fragments)
        all.append(runs.toArray().at(0).toObject().value(QLatin1String("content")).toString());
    return all;
}

} // namespace

class TestPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesBecomeParagraphs_data();
    void linesBecomeParagraphs();
    void runsCarryTheStyle();
    void verticalTextSaysSo();
    void brokenDocumentStringsAreNamed_data();
    void brokenDocumentStringsAreNamed();
    void documentStringIsInspected();
    void noCaretStandsInsideACharacter();
    void changeReachesEveryParagraph();
    void changeMakesBoxText();
    void alignmentsHaveTwoValues_data();
    void alignmentsHaveTwoValues();
    void paragraphStyleBecomesAttributes();
    void paintBoundsFollowTransformAndPen();
    void paintBoundsOfNothingAreNull();
    void pageReleasesObjectsInReverseOrder();
    void objectIsAddedOnce();
    void editingObjectIsForgottenWithTheObject();
    void selectionIsThatOfTheScene();
    void badZoomAndDpiAreRefused();
    void frameworkIsInstalledWhileItLives();
    void pictureIsInkAndMargin();
    void scaleMultipliesThePixels();
    void hiddenObjectsAreNotRendered();
    void emptyPageIsRefused();
    void hugePageIsRefused_data();
    void hugePageIsRefused();
    void noLibraryGivesNoObjects();
};

void TestPage::linesBecomeParagraphs_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const char16_t *text, const QStringList &expected) {
        QTest::newRow(name) << QString::fromUtf16(text) << expected;
    };
    row("one line", u"ab", {QStringLiteral("ab")});
    row("LF", u"a\nb", {QStringLiteral("a"), QStringLiteral("b")});
    row("CR LF", u"a\r\nb", {QStringLiteral("a"), QStringLiteral("b")});
    row("CR", u"a\rb", {QStringLiteral("a"), QStringLiteral("b")});
    row("paragraph separator", u"a\u2029b", {QStringLiteral("a"), QStringLiteral("b")});
    row("blank line stays", u"a\n\nb", {QStringLiteral("a"), QString(), QStringLiteral("b")});
    row("one line end at the end", u"a\n", {QStringLiteral("a")});
    row("two line ends at the end", u"a\r\n\r\n", {QStringLiteral("a"), QString()});
    row("tab is kept", u"a\tb", {QStringLiteral("a\tb")});
    row("empty", u"", {QString()});
}

void TestPage::linesBecomeParagraphs()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    const QString string = documentString(text, TextStyle());
    QCOMPARE(contents(string), expected);
    QCOMPARE(parse(string).value(QLatin1String("block")).toArray().size(), expected.size());
}

void TestPage::runsCarryTheStyle()
{
    TextStyle style;
    style.family = QStringLiteral("Some Family");
    style.pointSize = 10.5;
    style.color = QStringLiteral("#102030");
    const QJsonObject root = parse(documentString(QStringLiteral("x"), style));
    const QJsonObject run =
        root.value(QLatin1String("fragment")).toArray().at(0).toArray().at(0).toObject();
    QCOMPARE(run.value(QLatin1String("font_family")).toString(), QStringLiteral("Some Family"));
    QCOMPARE(run.value(QLatin1String("font_pointsize")).toDouble(), 10.5);
    QCOMPARE(run.value(QLatin1String("pen_color")).toString(), QStringLiteral("#102030"));
    QCOMPARE(root.value(QLatin1String("text_direction")).toInt(), 1);
    QCOMPARE(root.value(QLatin1String("text_wordwrap")), QJsonValue(false));
}

void TestPage::verticalTextSaysSo()
{
    TextStyle style;
    style.vertical = true;
    const QString string = documentString(QStringLiteral("x"), style);
    QCOMPARE(parse(string).value(QLatin1String("text_direction")).toInt(), 2);
    QVERIFY(inspectDocumentString(string).vertical);
}

void TestPage::brokenDocumentStringsAreNamed_data()
{
    QTest::addColumn<QString>("string");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const QString &string, const char *part) {
        QTest::newRow(name) << string << QString::fromLatin1(part);
    };
    row("empty", QString(), "no JSON");
    row("no JSON", QStringLiteral("{block"), "no JSON, at byte");
    row("deeply nested", QString(100000, QLatin1Char('[')), "no JSON");
    row("a list", QStringLiteral("[]"), "lacks");
    row("no fragment", QStringLiteral("{\"block\":[]}"), "lacks");
    row("fragment is a map", QStringLiteral("{\"block\":[],\"fragment\":{}}"), "lacks");
    row("sizes differ", QStringLiteral("{\"block\":[{}],\"fragment\":[]}"), "1 in \"block\", 0");
}

void TestPage::brokenDocumentStringsAreNamed()
{
    QFETCH(QString, string);
    QFETCH(QString, part);
    const DocumentStringInfo info = inspectDocumentString(string);
    QVERIFY(!info.valid);
    QVERIFY2(info.error.contains(part), qPrintable(info.error));
}

void TestPage::documentStringIsInspected()
{
    const DocumentStringInfo info = inspectDocumentString(QStringLiteral(
        "{\"block\":[{},{}],\"text_wordwrap\":true,\"fragment\":["
        "[{\"content\":\"abc\",\"font_family\":\"A\"},{\"content\":\"\",\"font_family\":\"B\"}],"
        "[{\"content\":\"de\",\"font_family\":\"A\"},{\"content\":\"f\",\"font_family\":\"C\"}]]}"));
    QVERIFY2(info.valid, qPrintable(info.error));
    QCOMPARE(info.characters, 6);
    QCOMPARE(info.text, QStringLiteral("abc\ndef"));
    QVERIFY(info.isCaretPosition(0) && info.isCaretPosition(7));
    QVERIFY(!info.isCaretPosition(-1) && !info.isCaretPosition(8));
    QCOMPARE(info.families, QStringList({QStringLiteral("A"), QStringLiteral("C")}));
    QVERIFY(info.wrapped);
    QVERIFY(!info.vertical);
}

void TestPage::noCaretStandsInsideACharacter()
{
    const DocumentStringInfo info = inspectDocumentString(QStringLiteral(
        "{\"block\":[{}],\"fragment\":[[{\"content\":\"a\\ud83d\"},{\"content\":\"\\ude00b\"}]]}"));
    QVERIFY2(info.valid, qPrintable(info.error));
    const bool expected[] = {true, true, false, true, true};
    for (int position = 0; position < 5; ++position)
        QCOMPARE(info.isCaretPosition(position), expected[position]);
}

void TestPage::changeReachesEveryParagraph()
{
    DocumentChange change;
    change.paragraph = {{QStringLiteral("textalignment"), 8}};
    const QJsonObject root = parse(
        changedDocument(QStringLiteral(
                            "{\"block\":[{\"textalignment\":1,\"own\":2},{}],\"fragment\":[[],[]],"
                            "\"text_wordwrap\":true,\"unknown\":\"kept\"}"),
                        change));
    const QJsonArray blocks = root.value(QLatin1String("block")).toArray();
    QCOMPARE(blocks.at(0).toObject(),
             QJsonObject({{QStringLiteral("textalignment"), 8}, {QStringLiteral("own"), 2}}));
    QCOMPARE(blocks.at(1).toObject(), QJsonObject({{QStringLiteral("textalignment"), 8}}));
    QCOMPARE(root.value(QLatin1String("unknown")), QJsonValue(QStringLiteral("kept")));
    QCOMPARE(root.value(QLatin1String("text_wordwrap")), QJsonValue(true));
}

void TestPage::changeMakesBoxText()
{
    DocumentChange change;
    change.wrapped = true;
    const QJsonObject root = parse(
        changedDocument(QStringLiteral("{\"block\":[],\"fragment\":[]}"), change));
    QCOMPARE(root.value(QLatin1String("text_wordwrap")), QJsonValue(true));
}

void TestPage::alignmentsHaveTwoValues_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("inLines");
    QTest::addColumn<int>("inColumns");
    QTest::newRow("left") << "left" << 1 << 32;
    QTest::newRow("right") << "right" << 2 << 64;
    QTest::newRow("center") << "center" << 4 << 128;
    QTest::newRow("justify") << "justify" << 8 << 256;
    QTest::newRow("justify-left") << "justify-left" << 512 << 512;
    QTest::newRow("justify-center") << "justify-center" << 1024 << 1024;
    QTest::newRow("justify-right") << "justify-right" << 2048 << 2048;
    QTest::newRow("unknown") << "middle" << 0 << 0;
}

void TestPage::alignmentsHaveTwoValues()
{
    QFETCH(QString, name);
    QFETCH(int, inLines);
    QFETCH(int, inColumns);
    const Alignment alignment = alignmentOf(name);
    QCOMPARE(alignment.inLines, inLines);
    QCOMPARE(alignment.inColumns, inColumns);
    QCOMPARE(alignmentNames().contains(name), inLines > 0);
}

void TestPage::paragraphStyleBecomesAttributes()
{
    QVERIFY(paragraphAttributes(ParagraphStyle(), true).isEmpty());
    ParagraphStyle style;
    style.alignment = alignmentOf(QStringLiteral("justify"));
    style.headTail = 2;
    style.hyphenate = true;
    style.compressPunctuation = true;
    QJsonObject expected{{QStringLiteral("textalignment"), 256},
                         {QStringLiteral("paragraph_head_tail_punctuation"), 2},
                         {QStringLiteral("text_ligature"), true},
                         {QStringLiteral("paragraph_punctuation_extra"), 1}};
    QCOMPARE(paragraphAttributes(style, true), expected);
    expected.insert(QStringLiteral("textalignment"), 8);
    QCOMPARE(paragraphAttributes(style, false), expected);
}

void TestPage::paintBoundsFollowTransformAndPen()
{
    PaintBounds bounds(96);
    QPainter painter(&bounds);
    painter.translate(100, -50);
    painter.scale(2, 3);
    painter.fillRect(QRectF(1, 2, 10, 20), Qt::black);
    painter.end();
    QCOMPARE(bounds.ink(), QRectF(102, -44, 20, 60));

    PaintBounds stroked(96);
    painter.begin(&stroked);
    painter.setPen(QPen(Qt::black, 4, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRect(QRectF(10, 10, 10, 10));
    painter.end();
    QCOMPARE(stroked.ink(), QRectF(8, 8, 14, 14));
}

void TestPage::paintBoundsOfNothingAreNull()
{
    PaintBounds bounds(96);
    QPainter painter(&bounds);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawPath(QPainterPath());
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(1, 2, 3, 4));
    painter.end();
    QVERIFY(bounds.ink().isNull());
}

void TestPage::pageReleasesObjectsInReverseOrder()
{
    QList<int> ended;
    {
        Document document;
        Page page(&document);
        for (int id = 1; id <= 3; ++id)
            page.addObject(new RectObject(&page, QRectF(0, 0, 1, 1), &ended, id));
        page.removeObject(page.objects().at(1));
        QCOMPARE(ended, QList<int>({2}));
        QCOMPARE(page.objects().size(), 2);
        QCOMPARE(page.scene()->items().size(), 2);
    }
    QCOMPARE(ended, QList<int>({2, 3, 1}));
}

void TestPage::objectIsAddedOnce()
{
    Document document;
    Page page(&document);
    auto *object = new RectObject(nullptr, QRectF(0, 0, 1, 1));
    page.addObject(nullptr);
    page.addObject(object);
    page.addObject(object);
    QCOMPARE(page.objects().size(), 1);
    QCOMPARE(object->GetPage(), static_cast<IVxPage *>(&page));
    QCOMPARE(object->getDocument(), static_cast<IDocumentHost *>(&document));
}

void TestPage::editingObjectIsForgottenWithTheObject()
{
    Document document;
    Page page(&document);
    auto *object = new RectObject(&page, QRectF(0, 0, 1, 1));
    page.addObject(object);
    page.setEditingObject(object, true);
    QCOMPARE(page.editingObject(), static_cast<CVXRootObject *>(object));
    page.removeObject(object);
    QVERIFY(!page.editingObject());
}

void TestPage::selectionIsThatOfTheScene()
{
    Document document;
    Page page(&document);
    for (int id = 1; id <= 2; ++id)
        page.addObject(new RectObject(&page, QRectF(0, 0, 1, 1), nullptr, id));
    QGraphicsItem *item = page.objects().at(1)->GetGraphicsItemPtr();
    item->setFlag(QGraphicsItem::ItemIsSelectable);
    item->setSelected(true);
    QCOMPARE(page.getSelectedObjects(), QList<CVXRootObject *>({page.objects().at(1)}));
}

void TestPage::badZoomAndDpiAreRefused()
{
    Document document(0);
    QCOMPARE(document.getDpi(), 96);
    QCOMPARE(Document(9601).getDpi(), 96);
    QCOMPARE(Document(300).getDpi(), 300);
    Page page(&document);
    page.setZoomRate(2.0f);
    page.setZoomRate(0.0f);
    page.setZoomRate(std::numeric_limits<float>::quiet_NaN());
    QCOMPARE(page.getCurZoomRate(), 2.0f);
}

void TestPage::frameworkIsInstalledWhileItLives()
{
    QVERIFY(!GetFramework());
    {
        Framework framework;
        QCOMPARE(GetFramework(), static_cast<IAppFramework *>(&framework));
        framework.setDefaultFont(QStringLiteral("F"), 0);
        QString family;
        int size = 0;
        framework.getDefaultFont(family, size);
        QCOMPARE(family, QStringLiteral("F"));
        QCOMPARE(size, 24);
        framework.setLocalString(QStringLiteral("K"), QStringLiteral("text"));
        QCOMPARE(framework.getLocalString(QStringLiteral("K"), QString()), QStringLiteral("text"));
        QCOMPARE(framework.getLocalString(QStringLiteral("L"), QStringLiteral("f")),
                 QStringLiteral("f"));
    }
    QVERIFY(!GetFramework());
}

void TestPage::pictureIsInkAndMargin()
{
    Document document;
    Page page(&document);
    auto *object = new RectObject(&page, QRectF(5, 5, 30, 10));
    page.addObject(object);
    object->setPos(QPointF(100, 200), false);
    PageRenderer::Options options;
    options.margin = 4;
    PageRenderer renderer(&page, options);
    const QImage image = QImage::fromData(renderer.render(PageRenderer::Format::Png));
    QCOMPARE(image.size(), QSize(38, 18));
    QCOMPARE(image.pixelColor(3, 4), QColor(Qt::white));
    QCOMPARE(image.pixelColor(4, 4), QColor(Qt::red));
    QCOMPARE(image.pixelColor(33, 13), QColor(Qt::red));
    QCOMPARE(image.pixelColor(34, 13), QColor(Qt::white));
}

void TestPage::scaleMultipliesThePixels()
{
    Document document;
    Page page(&document);
    page.addObject(new RectObject(&page, QRectF(0, 0, 30, 10)));
    PageRenderer::Options options;
    options.margin = 1;
    options.scale = 2.5;
    options.background = Qt::transparent;
    PageRenderer renderer(&page, options);
    const QImage image = QImage::fromData(renderer.render(PageRenderer::Format::Png));
    QCOMPARE(image.size(), QSize(80, 30));
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(image.pixelColor(40, 15), QColor(Qt::red));
}

void TestPage::hiddenObjectsAreNotRendered()
{
    Document document;
    Page page(&document);
    page.addObject(new RectObject(&page, QRectF(0, 0, 30, 10)));
    page.addObject(new RectObject(&page, QRectF(0, 0, 300, 100)));
    page.objects().at(1)->GetGraphicsItemPtr()->setVisible(false);
    PageRenderer::Options options;
    options.margin = 0;
    PageRenderer renderer(&page, options);
    QCOMPARE(QImage::fromData(renderer.render(PageRenderer::Format::Png)).size(), QSize(30, 10));
}

void TestPage::emptyPageIsRefused()
{
    Document document;
    Page page(&document);
    page.addObject(new RectObject(&page, QRectF()));
    PageRenderer renderer(&page, PageRenderer::Options());
    QVERIFY(renderer.render(PageRenderer::Format::Svg).isEmpty());
    QCOMPARE(renderer.errorString(), QStringLiteral("the page is empty"));
}

void TestPage::hugePageIsRefused_data()
{
    QTest::addColumn<QRectF>("ink");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QString>("part");
    const QString side = QStringLiteral("above 32767 a side");
    QTest::newRow("wide") << QRectF(0, 0, 32768, 1) << 1.0 << side;
    QTest::newRow("high") << QRectF(0, 0, 1, 1e100) << 1.0 << side;
    QTest::newRow("scaled") << QRectF(0, 0, 16384, 1) << 2.0 << side;
    QTest::newRow("beyond what is drawn at all")
        << QRectF(0, 0, qInf(), 1) << 1.0 << QStringLiteral("empty");
    QTest::newRow("many pixels") << QRectF(0, 0, 32767, 32767) << 1.0
                                 << QStringLiteral("above 268435456 in all");
    QTest::newRow("far away") << QRectF(1e12, 0, 10, 10) << 1.0 << QStringLiteral("too far");
}

void TestPage::hugePageIsRefused()
{
    QFETCH(QRectF, ink);
    QFETCH(double, scale);
    QFETCH(QString, part);
    Document document;
    Page page(&document);
    page.addObject(new RectObject(&page, ink));
    PageRenderer::Options options;
    options.margin = 0;
    options.scale = scale;
    PageRenderer renderer(&page, options);
    QVERIFY(renderer.render(PageRenderer::Format::Png).isEmpty());
    QVERIFY2(renderer.errorString().contains(part), qPrintable(renderer.errorString()));
}

void TestPage::noLibraryGivesNoObjects()
{
    PluginLoader loader;
    QVERIFY(!loader.load(QStringLiteral("/nonexistent/libvxarttext.so.1")));
    QVERIFY(!loader.errorString().isEmpty());
    QVERIFY(!loader.createText(1, nullptr));
    QVERIFY(!loader.createArtText(1, nullptr));
}

QTEST_MAIN(TestPage)
#include "tst_page.moc"
