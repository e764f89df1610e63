// SPDX-License-Identifier: MIT
// What a key press costs in the panels: those that nobody sees do nothing, and no gallery is drawn anew.
#include "panelwindow.h"

#include "app/pagehost/panel.h"
#include "app/pagehost/stylegallery.h"

#include <QSignalSpy>

#include <map>
#include <memory>

class TestPanelEffort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_host = std::make_unique<PanelWindow>(&m_loader); }
    void cleanup() { m_host.reset(); }

    void keysBringSeenPanelsUpToDateAlone();
    void keyBringsPanelUpToDateOnce();
    void panelIsUpToDateWhenItComesToFront();
    void unseenGalleriesMakeNoPictures();
    void seenGalleryWaitsForWordsToStand_data();
    void seenGalleryWaitsForWordsToStand();
    void wordsBehindTheFirstMakeNoPictures();
    void movedObjectMakesNoPictures();

private:
    void type(const QString &text);

    PluginLoader m_loader;
    std::unique_ptr<PanelWindow> m_host;
};

void TestPanelEffort::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

/// One key after the other, each with all that follows from it at once. A text tells its panels when its
/// caret is moved.
void TestPanelEffort::type(const QString &text)
{
    for (const QChar &character : text) {
        QTest::keyClick(m_host->view(), character.toLatin1());
        QTest::keyClick(m_host->view(), Qt::Key_Left);
        m_host->turn();
        QTest::keyClick(m_host->view(), Qt::Key_End);
        m_host->turn();
    }
}

void TestPanelEffort::keysBringSeenPanelsUpToDateAlone()
{
    m_host->startLine({100, 150}, QStringLiteral("a"));
    const QList<Panel *> panels = m_host->window()->findChildren<Panel *>();
    QCOMPARE(panels.size(), 5);
    std::map<QString, std::unique_ptr<QSignalSpy>> spies;
    for (Panel *panel : panels)
        spies[panel->objectName()] = std::make_unique<QSignalSpy>(panel, &Panel::refreshed);
    type(QStringLiteral("bcdefghijk"));
    for (const auto &spy : spies) {
        const bool isInFront = spy.first == QLatin1String("characterPanel");
        QVERIFY2((spy.second->count() > 0) == isInFront, qPrintable(spy.first));
    }
}

void TestPanelEffort::keyBringsPanelUpToDateOnce()
{
    m_host->startLine({100, 150}, QStringLiteral("a"));
    auto *panel = m_host->window()->findChild<Panel *>(QStringLiteral("characterPanel"));
    QSignalSpy refreshes(panel, &Panel::refreshed);
    QTest::keyClick(m_host->view(), Qt::Key_Left);
    m_host->turn();
    QCOMPARE(refreshes.count(), 1);
}

void TestPanelEffort::panelIsUpToDateWhenItComesToFront()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("moved"));
    text->setPos({222, 111}, /*undo=*/true);
    m_host->settle();
    m_host->raise("objectPanel");
    QCOMPARE(m_host->find<NumberField>("objectPanel", "x")->value(), 222.0);
    m_host->raise("paragraphPanel");
    text->setPos({333, 111}, /*undo=*/true);
    m_host->settle();
    QCOMPARE(m_host->find<NumberField>("objectPanel", "x")->value(), 222.0); // which nobody sees
    m_host->raise("objectPanel");
    QCOMPARE(m_host->find<NumberField>("objectPanel", "x")->value(), 333.0);
}

void TestPanelEffort::unseenGalleriesMakeNoPictures()
{
    m_host->startLine({100, 150}, QStringLiteral("a"));
    for (StyleGallery *gallery : m_host->window()->findChildren<StyleGallery *>())
        QVERIFY(gallery->item(0)->icon().isNull());
    type(QStringLiteral("bcd"));
    // One that is seen from now on has all of its own: so much later the other has still none.
    auto *seen = m_host->raise("warpPanel")->findChild<StyleGallery *>();
    QTRY_VERIFY(!seen->item(seen->count() - 1)->icon().isNull());
    for (StyleGallery *gallery : m_host->window()->findChildren<StyleGallery *>())
        QCOMPARE(gallery->item(0)->icon().isNull(), gallery != seen);
}

void TestPanelEffort::seenGalleryWaitsForWordsToStand_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<int>("styles");
    QTest::newRow("warp") << "warpPanel" << 16;
    QTest::newRow("art") << "artPanel" << 42;
}

void TestPanelEffort::seenGalleryWaitsForWordsToStand()
{
    QFETCH(QString, panel);
    QFETCH(int, styles);
    m_host->startLine({100, 150}, QStringLiteral("a"));
    auto *gallery = m_host->raise(qPrintable(panel))->findChild<StyleGallery *>();
    QTRY_VERIFY(!gallery->item(styles - 1)->icon().isNull());
    m_host->view()->setFocus();
    QSignalSpy pictures(gallery, &StyleGallery::pictureMade);
    type(QStringLiteral("bcdefghijk"));
    QCOMPARE(pictures.count(), 0);
    QTRY_COMPARE(pictures.count(), styles); // once each, when the words stand
}

void TestPanelEffort::wordsBehindTheFirstMakeNoPictures()
{
    m_host->startLine({100, 150}, QStringLiteral("twelve lette"));
    auto *gallery = m_host->raise("warpPanel")->findChild<StyleGallery *>();
    QTRY_VERIFY(!gallery->item(15)->icon().isNull());
    m_host->view()->setFocus();
    QSignalSpy pictures(gallery, &StyleGallery::pictureMade);
    type(QStringLiteral("rs and more"));
    QVERIFY(!gallery->isStale());
    QCOMPARE(pictures.count(), 0);
}

void TestPanelEffort::movedObjectMakesNoPictures()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("moved"));
    auto *gallery = m_host->raise("warpPanel")->findChild<StyleGallery *>();
    QTRY_VERIFY(!gallery->item(15)->icon().isNull());
    QSignalSpy pictures(gallery, &StyleGallery::pictureMade);
    text->setPos({222, 111}, /*undo=*/true);
    m_host->settle();
    QVERIFY(!gallery->isStale());
    QCOMPARE(pictures.count(), 0);
}

QTEST_MAIN(TestPanelEffort)
#include "tst_paneleffort.moc"
