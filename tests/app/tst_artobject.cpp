// SPDX-License-Identifier: MIT
#include "app/page/artobject.h"
#include "app/page/document.h"
#include "app/page/framework.h"
#include "app/page/page.h"
#include "app/page/pluginloader.h"
#include "host/framework/cvxrootobject.h"

#include <QSet>
#include <QtTest>

class TestArtObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyStyleHasANameOfItsOwn();
    void styleIsFoundByNameAndNumber_data();
    void styleIsFoundByNameAndNumber();
    void objectTakesTheWholeLook();
    void withoutAPenTheColourIsThatOfTheFill();
    void textObjectTakesSizePenAndFillAlone();

private:
    Framework m_framework;
    PluginLoader m_loader;
};

void TestArtObject::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestArtObject::everyStyleHasANameOfItsOwn()
{
    const QStringList &names = ArtObject::styleNames();
    QCOMPARE(names.size(), 42);
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
    const QRegularExpression words(QStringLiteral("^[a-z]+(-[a-z]+)*$"));
    for (const QString &name : names)
        QVERIFY2(words.match(name).hasMatch(), qPrintable(name));
}

void TestArtObject::styleIsFoundByNameAndNumber_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<int>("style");
    const auto row = [](const char *given, int style) {
        QTest::newRow(*given ? given : "nothing") << QString::fromLatin1(given) << style;
    };
    row("0", 0);
    row("41", 41);
    row("42", -1);
    row("-1", -1);
    row("1e1", -1);
    row("", -1);
    row("99999999999", -1);
    row("rectangle", 0);
    row("arcs-up", 6);
    row("two-sine-waves", 19);
    row("bowl", 41);
    row("Bowl", -1);
    row("ring", -1);
}

void TestArtObject::styleIsFoundByNameAndNumber()
{
    QFETCH(QString, given);
    QFETCH(int, style);
    QCOMPARE(ArtObject::styleOf(given), style);
}

void TestArtObject::objectTakesTheWholeLook()
{
    Document document;
    Page page(&document);
    CVXRootObject *object = m_loader.createArtText(1, &page);
    page.addObject(object);
    ArtObject::Look look;
    look.style = 38;
    look.family = QStringLiteral("BoxTest");
    look.bold = true;
    look.vertical = true;
    look.alignment = 4;
    look.fill = QColor(10, 20, 30, 40);
    look.pen = QColor(50, 60, 70);
    look.penWidth = 2.5;
    ArtObject::setUp(object, QStringLiteral("ab\ncd"), look, QSizeF(300, 150));

    AttributeMap attributes;
    object->getAllAttributes(attributes);
    const auto value = [&](const char *key) { return attributes.value(QLatin1String(key)); };
    QCOMPARE(value("text").toString(), QStringLiteral("ab\ncd"));
    QCOMPARE(value("shape").toInt(), 38);
    QCOMPARE(value("font_family").toString(), QStringLiteral("BoxTest"));
    QCOMPARE(value("font_bold").toBool(), true);
    QCOMPARE(value("font_somehow").toBool(), true);
    QCOMPARE(value("textalignment").toInt(), 4);
    QCOMPARE(value("fillcolor").value<QColor>(), look.fill);
    QCOMPARE(value("color").value<QColor>(), look.pen);
    QCOMPARE(object->getSize(), QSizeF(300, 150));
    QCOMPARE(object->getFillProp().color(), look.fill);
    QVERIFY(object->getFillProp().isFillEnable());
    QCOMPARE(object->getMyPen().color(), look.pen);
    QCOMPARE(object->getMyPen().widthF(), 2.5);
}

void TestArtObject::withoutAPenTheColourIsThatOfTheFill()
{
    Document document;
    Page page(&document);
    CVXRootObject *object = m_loader.createArtText(1, &page);
    page.addObject(object);
    ArtObject::Look look;
    look.fill = Qt::red;
    ArtObject::setUp(object, QStringLiteral("a"), look, QSizeF(30, 15));
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    QCOMPARE(attributes.value(QStringLiteral("color")).value<QColor>(), QColor(Qt::red));
    QCOMPARE(object->getMyPen().style(), Qt::NoPen);
}

void TestArtObject::textObjectTakesSizePenAndFillAlone()
{
    Document document;
    Page page(&document);
    CVXRootObject *object = m_loader.createText(1, &page);
    page.addObject(object);
    ArtObject::Look look;
    look.fill = Qt::green;
    ArtObject::setUp(object, QStringLiteral("a"), look, QSizeF(30, 15));
    QVERIFY(!object->canDo(OP_HasText));
    QCOMPARE(object->getFillProp().color(), QColor(Qt::green));
}

QTEST_MAIN(TestArtObject)
#include "tst_artobject.moc"
