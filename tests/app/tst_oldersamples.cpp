// SPDX-License-Identifier: MIT
// The sample pages of the two older generations of records: both forms hold the same page, and its objects stay
// what they are when they are changed and saved.
#include "app/page/document.h"
#include "app/page/framework.h"
#include "app/page/openpage.h"
#include "app/page/page.h"
#include "app/page/pagerenderer.h"
#include "app/page/pagestorage.h"
#include "app/page/pluginloader.h"
#include "host/framework/cbaseobject.h"

#include <QJsonArray>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

class TestOlderSamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void bothFormsHoldTheSamePage_data() { pages(); }
    void bothFormsHoldTheSamePage();
    void theScriptWritesTheSameBytes();
    void recordsAreOfTheirGeneration();
    void changedObjectsStayOld_data() { pages(); }
    void changedObjectsStayOld();

private:
    static void pages();
    std::unique_ptr<OpenPage> load(const QString &name);

    Framework m_framework;
    PluginLoader m_loader;
    QTemporaryDir m_folder;
};

namespace {
const char *const names[] = {"older-html", "older-document"};

QString sample(const QString &name)
{
    return QStringLiteral(VX_SOURCE_DIR "/samples/") + name;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray look(const OpenPage &open)
{
    PageRenderer::Options options;
    options.page = open.size();
    options.background = open.background();
    PageRenderer renderer(open.page(), options);
    return renderer.render(PageRenderer::Format::Png);
}

QJsonArray objectsOf(const QString &path)
{
    PageFile file;
    QString error;
    if (!readPageFile(path, file, error))
        qWarning("%s", qPrintable(error));
    return file.toJson().value(QStringLiteral("objects")).toArray();
}

QJsonObject paramsOf(const QJsonValue &object)
{
    return object.toObject()
        .value(QStringLiteral("record"))
        .toObject()
        .value(QStringLiteral("params"))
        .toObject();
}
} // namespace

void TestOlderSamples::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestOlderSamples::pages()
{
    QTest::addColumn<QString>("name");
    for (const char *name : names)
        QTest::newRow(name) << QString::fromLatin1(name);
}

std::unique_ptr<OpenPage> TestOlderSamples::load(const QString &name)
{
    QString error;
    std::unique_ptr<OpenPage> open = OpenPage::load(m_loader, name, error);
    if (!open)
        qWarning("%s", qPrintable(error));
    return open;
}

void TestOlderSamples::bothFormsHoldTheSamePage()
{
    QFETCH(QString, name);
    const QJsonArray plain = objectsOf(sample(name + QStringLiteral(".json")));
    QVERIFY(plain.size() >= 3);
    QCOMPARE(objectsOf(sample(name + QStringLiteral(".vxpage"))), plain);
    const auto fromJson = load(sample(name + QStringLiteral(".json")));
    const auto fromStream = load(sample(name + QStringLiteral(".vxpage")));
    QVERIFY(fromJson && fromStream);
    QCOMPARE(look(*fromStream), look(*fromJson));
}

void TestOlderSamples::theScriptWritesTheSameBytes()
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        QSKIP("there is no python3 to run the script");
    QCOMPARE(QProcess::execute(python, {sample(QStringLiteral("makeolder.py")), m_folder.path()}),
             0);
    for (const char *name : names) {
        for (const char *suffix : {".json", ".vxpage"}) {
            const QString file = QLatin1String(name) + QLatin1String(suffix);
            QVERIFY(!bytesOf(sample(file)).isEmpty());
            QCOMPARE(bytesOf(m_folder.filePath(file)), bytesOf(sample(file)));
        }
    }
}

void TestOlderSamples::recordsAreOfTheirGeneration()
{
    const QString data = QStringLiteral("document_data");
    for (const QJsonValue &object : objectsOf(sample(QStringLiteral("older-html.json"))))
        QVERIFY(!paramsOf(object).contains(data));
    for (const QJsonValue &object : objectsOf(sample(QStringLiteral("older-document.json")))) {
        QVERIFY(paramsOf(object).contains(data));
        QVERIFY(!paramsOf(object).contains(QStringLiteral("new_version")));
    }
}

void TestOlderSamples::changedObjectsStayOld()
{
    QFETCH(QString, name);
    for (const char *suffix : {".json", ".vxpage"}) {
        const auto open = load(sample(name + QLatin1String(suffix)));
        QVERIFY(open);
        const QByteArray before = look(*open);
        const QList<CVXRootObject *> objects = open->page()->objects();
        for (CVXRootObject *object : objects)
            object->setAllAttributes({{QStringLiteral("font_underline"), true}}, true);
        const QByteArray after = look(*open);
        QVERIFY(after != before);
        const QString path = m_folder.filePath(QStringLiteral("changed") + QLatin1String(suffix));
        QString error;
        QVERIFY2(open->save(path, error), qPrintable(error));
        for (const QJsonValue &object : objectsOf(path)) {
            QCOMPARE(paramsOf(object).value(QStringLiteral("new_version")), QJsonValue(false));
            QVERIFY(!paramsOf(object).contains(QStringLiteral("transform_xx")));
        }
        const auto again = load(path);
        QVERIFY(again);
        QCOMPARE(look(*again), after);
    }
}

QTEST_MAIN(TestOlderSamples)
#include "tst_oldersamples.moc"
