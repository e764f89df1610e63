// SPDX-License-Identifier: MIT
// The copy of a page in the middle of the work: quick, without pictures, and all there when it is opened.
#include "app/page/framework.h"
#include "app/page/openpage.h"
#include "app/page/page.h"
#include "app/page/pagerenderer.h"
#include "app/page/pagestorage.h"
#include "app/page/pluginloader.h"
#include "app/page/textobject.h"
#include "app/page/textrecord.h"
#include "app/page/textwarp.h"
#include "host/framework/cvxrootobject.h"
#include "tests/support/testfont.h"

#include <QtTest>

namespace {

QString pageOf(const QString &fields)
{
    return QStringLiteral(
               "{\"format\":\"vxpage\",\"version\":1,\"page\":{\"width\":160,\"height\":90},"
               "\"objects\":[{\"kind\":\"rich_text\",\"attributes\":"
               "{\"font_family\":\"BoxTest\",\"font_pointsize\":12},%1}]}")
        .arg(QString(fields).replace(QLatin1Char('\''), QLatin1Char('"')));
}

PageFile fileOf(const QString &json)
{
    PageFile file;
    QString error;
    if (!file.read(QJsonDocument::fromJson(json.toUtf8()).object(), error))
        qFatal("%s", qPrintable(error));
    return file;
}

QByteArray look(const OpenPage &open)
{
    PageRenderer::Options options;
    options.page = open.size();
    options.background = open.background();
    return PageRenderer(open.page(), options).render(PageRenderer::Format::Png);
}

QString pictureIn(const PageFile &file)
{
    return pictureOfRecord(file.objects().constFirst().record);
}

CVXRootObject *firstOf(const OpenPage &open)
{
    return open.page()->objects().constFirst();
}

} // namespace

class TestSnapshot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void textComesBackWithoutItsPicture_data();
    void textComesBackWithoutItsPicture();
    void pictureOfMissingFontStays();
    void olderTextKeepsItsPicture();
    void untouchedTextStaysAsItWasWritten();
    void nextSaveHasThePicture();

private:
    std::unique_ptr<OpenPage> load(const PageFile &file)
    {
        QString error;
        auto open = OpenPage::load(m_loader, file, QStringLiteral("page"), error);
        if (!open)
            qFatal("%s", qPrintable(error));
        return open;
    }
    static PageFile snapshot(OpenPage &open)
    {
        PageFile file;
        QString error;
        if (!open.snapshot(file, error))
            qFatal("%s", qPrintable(error));
        return file;
    }
    static PageFile saved(OpenPage &open)
    {
        PageFile file;
        QString error;
        if (!open.toFile(file, error))
            qFatal("%s", qPrintable(error));
        return file;
    }

    Framework m_framework;
    PluginLoader m_loader;
};

void TestSnapshot::initTestCase()
{
    loadBoxTestFont();
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestSnapshot::textComesBackWithoutItsPicture_data()
{
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("warp");
    const QString none;
    const QString arc = QStringLiteral("arc:0.5");
    const auto row = [](const char *name, const char *fields, const QString &warp) {
        QTest::newRow(name) << QString::fromLatin1(fields) << warp;
    };
    row("line", "'text':'abc','x':5,'y':6", none);
    row("stretched", "'text':'abc','x':5,'y':6,'width':60,'height':40", none);
    row("turned", "'text':'abc','x':15,'y':6,'rotation':30", none);
    row("turned, mirrored", "'text':'abc','x':15,'y':16,'rotation':75,'mirror':true", none);
    row("box", "'text':'abc def','layout':'box','x':5,'y':6,'width':40,'height':40", none);
    row("turned box",
        "'text':'abc def','layout':'box','x':25,'y':6,'width':40,'height':40,'rotation':-20", none);
    row("full box",
        "'text':'abcdefghi abcdefghi abc','layout':'box','x':25,'y':6,'width':40,"
        "'height':20",
        none);
    row("column", "'text':'abc','direction':'vertical','x':5,'y':6", none);
    row("warped", "'text':'abc','x':25,'y':26", arc);
    row("warped box", "'text':'abc def','layout':'box','x':25,'y':26,'width':40,'height':40", arc);
    row("turned, warped", "'text':'abc','x':25,'y':26,'rotation':30", arc);
}

void TestSnapshot::textComesBackWithoutItsPicture()
{
    QFETCH(QString, fields);
    QFETCH(QString, warp);
    const auto open = load(fileOf(pageOf(fields)));
    CVXRootObject *object = firstOf(*open);
    if (!warp.isEmpty()) {
        TextWarp wanted;
        QString reason;
        QVERIFY2(parseTextWarp(warp, wanted, reason), qPrintable(reason));
        TextObject::setWarp(object, wanted);
    }
    object->setPos(object->getPos() + QPointF(20, 10), /*undo=*/false);
    const PageFile file = snapshot(*open);
    QVERIFY(pictureIn(file).isEmpty());
    QVERIFY(file.images().isEmpty());
    const auto again = load(file);
    QCOMPARE(firstOf(*again)->getPos(), object->getPos());
    QCOMPARE(firstOf(*again)->getRotate(), object->getRotate());
    QCOMPARE(look(*again), look(*open));
    QCOMPARE(look(*load(saved(*open))), look(*open));
}

void TestSnapshot::pictureOfMissingFontStays()
{
    const QString missing = pageOf(QStringLiteral("'text':'abc','x':5,'y':6"))
                                .replace(QLatin1String("BoxTest"), QLatin1String("No Such Font"));
    const auto open = load(fileOf(missing));
    CVXRootObject *object = firstOf(*open);
    object->setPos(object->getPos() + QPointF(20, 10), /*undo=*/false);
    const PageFile file = snapshot(*open);
    QVERIFY(file.images().contains(pictureIn(file)));
}

/// Without it a turned text of the older engine would come back in another box.
void TestSnapshot::olderTextKeepsItsPicture()
{
    PageFile source;
    QString error;
    QVERIFY2(readPageFile(QStringLiteral(VX_SOURCE_DIR "/samples/older-document.json"), source,
                          error),
             qPrintable(error));
    const auto open = load(source);
    for (CVXRootObject *object : open->page()->objects()) {
        object->rotateObj(20, /*undo=*/false);
        object->setPos(object->getPos() + QPointF(5, 3), /*undo=*/false);
    }
    const PageFile file = snapshot(*open);
    QVERIFY(file.images().contains(pictureIn(file)));
    QCOMPARE(look(*load(file)), look(*load(saved(*open))));
}

void TestSnapshot::untouchedTextStaysAsItWasWritten()
{
    const PageFile file = fileOf(pageOf(QStringLiteral("'text':'abc','x':5,'y':6")));
    const auto open = load(file);
    const auto again = load(snapshot(*open));
    again->completePictures();
    QCOMPARE(saved(*again).toJson(), file.toJson());
}

void TestSnapshot::nextSaveHasThePicture()
{
    const auto open = load(fileOf(pageOf(QStringLiteral("'text':'abc','x':5,'y':6"))));
    CVXRootObject *object = firstOf(*open);
    object->setPos(object->getPos() + QPointF(20, 10), /*undo=*/false);
    const auto again = load(snapshot(*open));
    QVERIFY(pictureIn(saved(*again)).isEmpty()); // unchanged, and so as it was read
    again->completePictures();
    const PageFile complete = saved(*again);
    QVERIFY(complete.images().contains(pictureIn(complete)));
    QCOMPARE(look(*load(complete)), look(*open));
}

QTEST_MAIN(TestSnapshot)
#include "tst_snapshot.moc"
