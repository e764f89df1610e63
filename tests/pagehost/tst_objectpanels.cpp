// SPDX-License-Identifier: MIT
// The panels of warp, art text, object and missing fonts.
#include "panelwindow.h"

#include "app/page/textobject.h"
#include "app/page/textrecord.h"
#include "app/pagehost/missingfontspanel.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/stylegallery.h"
#include "app/pagehost/stylenames.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

#include <memory>

class TestObjectPanels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_host = std::make_unique<PanelWindow>(&m_loader); }
    void cleanup() { m_host.reset(); }

    // Warp
    void warpGalleryHasAllStylesWithPictures();
    void pickedStyleBendsTextInOneStep();
    void dragOfSliderIsOneStep();
    void dragShowsOnPage();
    void escapeInDragRestores();
    void typedPercentIsOneStep();
    void warpOrientationAndReset();
    void warpOfSeveralTextsIsOneStep();
    void warpPanelLeavesEdit();

    // Object
    void placeIsShownAndSet_data();
    void placeIsShownAndSet();
    void placeFollowsDrag();
    void angleIsExact();
    void flipIsUndone();
    void mirrorOfSeveralIsOneStep();
    void textChangesItsRoom();
    void textTurnsIntoColumns();
    void differentPlacesAreMixed();

    // Art
    void artGalleryHasAllStylesWithPictures();
    void pickedArtStyleIsOneStep();

    // Missing fonts
    void missingFontsAreListed();
    void previewIsShownAndCancelled();
    void confirmedReplacementIsOneStep();
    void hiddenPanelLeavesNoPreview();

    // Styles
    void everyStyleHasName();

private:
    NumberField *number(const char *panel, const char *name)
    {
        return m_host->find<NumberField>(panel, name);
    }
    LiveSlider *slider() { return m_host->find<LiveSlider>("warpPanel", "warp_value_slider"); }
    StyleGallery *gallery(const char *panel, const char *name)
    {
        return m_host->find<StyleGallery>(panel, name);
    }
    int percent(CVXRootObject *object) const
    {
        return m_host->attribute(object, "warp_value").toInt();
    }
    int warpStyle(CVXRootObject *object) const
    {
        return m_host->attribute(object, "warp_style").toInt();
    }
    void enter(NumberField *field, const QString &text);
    void choose(QComboBox *box, int row);
    CVXRootObject *addTextWithMissingFont();
    CVXRootObject *drawArt();

    PluginLoader m_loader;
    std::unique_ptr<PanelWindow> m_host;
};

void TestObjectPanels::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestObjectPanels::enter(NumberField *field, const QString &text)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
    m_host->settle();
}

void TestObjectPanels::choose(QComboBox *box, int row)
{
    box->setCurrentIndex(row);
    Q_EMIT box->activated(row);
    m_host->settle();
}

// Warp

void TestObjectPanels::warpGalleryHasAllStylesWithPictures()
{
    m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->raise("warpPanel");
    StyleGallery *styles = gallery("warpPanel", "warpGallery");
    QCOMPARE(styles->count(), 16); // with none
    QTRY_VERIFY(!styles->item(15)->icon().isNull());
    m_host->keepPicture("warp.png");
    const QImage straight = styles->item(0)->icon().pixmap(72, 44).toImage();
    QSet<QByteArray> seen;
    for (int row = 0; row < styles->count(); ++row) {
        const QImage image = styles->item(row)->icon().pixmap(72, 44).toImage();
        seen.insert(QByteArray(reinterpret_cast<const char *>(image.constBits()),
                               int(image.sizeInBytes())));
    }
    QCOMPARE(seen.size(), 16); // no style looks like another
    QVERIFY(!straight.isNull());
}

void TestObjectPanels::pickedStyleBendsTextInOneStep()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->raise("warpPanel");
    StyleGallery *styles = gallery("warpPanel", "warpGallery");
    QCOMPARE(styles->style(), 0);
    const int before = m_host->steps()->index();
    const QRect cell = styles->visualItemRect(styles->item(1));
    QTest::mouseClick(styles->viewport(), Qt::LeftButton, {}, cell.center());
    m_host->settle();
    QCOMPARE(warpStyle(text), 1);
    QCOMPARE(percent(text), 50);
    QCOMPARE(m_host->steps()->index(), before + 1);
    QVERIFY(m_host->view()->hasFocus());
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(warpStyle(text), 0);
    QCOMPARE(styles->style(), 0);
}

void TestObjectPanels::dragOfSliderIsOneStep()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->raise("warpPanel");
    Q_EMIT gallery("warpPanel", "warpGallery")->picked(1);
    m_host->settle();
    const int before = m_host->steps()->index();
    slider()->setSliderDown(true);
    for (int value : {40, 20, -10, -60})
        slider()->setSliderPosition(value);
    QCOMPARE(m_host->steps()->index(), before);
    slider()->setSliderDown(false);
    m_host->settle();
    QCOMPARE(percent(text), -60);
    QCOMPARE(number("warpPanel", "warp_value")->value(), -60.0);
    QCOMPARE(m_host->steps()->index(), before + 1);
    m_host->session()->undo();
    QCOMPARE(percent(text), 50);
    m_host->session()->redo();
    QCOMPARE(percent(text), -60);
}

void TestObjectPanels::dragShowsOnPage()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->raise("warpPanel");
    Q_EMIT gallery("warpPanel", "warpGallery")->picked(1);
    m_host->settle();
    const QSizeF before = text->getSize();
    slider()->setSliderDown(true);
    slider()->setSliderPosition(100);
    QCOMPARE(percent(text), 100);
    QVERIFY(text->getSize() != before);
    slider()->setSliderDown(false);
}

void TestObjectPanels::escapeInDragRestores()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->raise("warpPanel");
    Q_EMIT gallery("warpPanel", "warpGallery")->picked(1);
    m_host->settle();
    const int before = m_host->steps()->index();
    const QSizeF size = text->getSize();
    slider()->setSliderDown(true);
    slider()->setSliderPosition(-90);
    QVERIFY(text->getSize() != size);
    QTest::keyClick(slider(), Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(percent(text), 50);
    QCOMPARE(text->getSize(), size);
    QCOMPARE(slider()->value(), 50);
    QCOMPARE(m_host->steps()->index(), before);
    QTest::mouseRelease(slider(), Qt::LeftButton);
    QCOMPARE(m_host->steps()->index(), before);
    enter(number("warpPanel", "warp_value"),
          QStringLiteral("30")); // the next change is a step again
    QCOMPARE(percent(text), 30);
    QCOMPARE(m_host->steps()->index(), before + 1);
}

void TestObjectPanels::typedPercentIsOneStep()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->raise("warpPanel");
    Q_EMIT gallery("warpPanel", "warpGallery")->picked(8);
    m_host->settle();
    const int before = m_host->steps()->index();
    enter(number("warpPanel", "warp_horizontal_value"), QStringLiteral("25"));
    enter(number("warpPanel", "warp_vertical_value"), QStringLiteral("-35"));
    QCOMPARE(m_host->attribute(text, "warp_horizontal_value").toInt(), 25);
    QCOMPARE(m_host->attribute(text, "warp_vertical_value").toInt(), -35);
    QCOMPARE(percent(text), 50);
    QCOMPARE(m_host->steps()->index(), before + 2);
}

void TestObjectPanels::warpOrientationAndReset()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->raise("warpPanel");
    Q_EMIT gallery("warpPanel", "warpGallery")->picked(3);
    m_host->settle();
    choose(m_host->find<QComboBox>("warpPanel", "warpOrientation"), 1);
    QCOMPARE(m_host->attribute(text, "warp_oriention").toInt(), 2);
    m_host->find<QPushButton>("warpPanel", "warpReset")->click();
    m_host->settle();
    QCOMPARE(warpStyle(text), 0);
    QCOMPARE(percent(text), 0);
    QCOMPARE(m_host->attribute(text, "warp_oriention").toInt(), 1);
    QVERIFY(!slider()->isEnabled());
}

void TestObjectPanels::warpOfSeveralTextsIsOneStep()
{
    CVXRootObject *first = m_host->writeLine({100, 150}, QStringLiteral("first"));
    CVXRootObject *second = m_host->writeLine({100, 350}, QStringLiteral("second"));
    m_host->session()->selectAll();
    m_host->settle();
    m_host->raise("warpPanel");
    Q_EMIT gallery("warpPanel", "warpGallery")->picked(5);
    m_host->settle();
    const int before = m_host->steps()->index();
    slider()->setSliderDown(true);
    slider()->setSliderPosition(-20);
    slider()->setSliderPosition(-80);
    slider()->setSliderDown(false);
    m_host->settle();
    QCOMPARE(percent(first), -80);
    QCOMPARE(percent(second), -80);
    QCOMPARE(m_host->steps()->index(), before + 1);
    m_host->session()->undo();
    QCOMPARE(percent(first), 50);
    QCOMPARE(percent(second), 50);
}

void TestObjectPanels::warpPanelLeavesEdit()
{
    CVXRootObject *text = m_host->startLine({100, 150}, QStringLiteral("edited"));
    m_host->raise("warpPanel");
    m_host->view()->setFocus();
    StyleGallery *styles = gallery("warpPanel", "warpGallery");
    QTest::mouseClick(styles->viewport(), Qt::LeftButton, {},
                      styles->visualItemRect(styles->item(2)).center());
    QCOMPARE(m_host->session()->editedObject(), text);
    QTest::keyClicks(m_host->view(), QStringLiteral("!"));
    QCOMPARE(TextCommands::plainText(text), QStringLiteral("edited!"));
    QTest::keyClick(m_host->view(), Qt::Key_Escape);
    QCOMPARE(warpStyle(text), 2);
}

// Object

void TestObjectPanels::placeIsShownAndSet_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("expected");
    QTest::newRow("x") << "x"
                       << "12.25" << 12.25;
    QTest::newRow("y") << "y"
                       << "-7.5" << -7.5;
    QTest::newRow("width") << "width"
                           << "333" << 333.0;
    QTest::newRow("height") << "height"
                            << "81" << 81.0;
}

void TestObjectPanels::placeIsShownAndSet()
{
    QFETCH(QString, name);
    QFETCH(QString, typed);
    QFETCH(double, expected);
    CVXRootObject *art = drawArt();
    const auto values = [art] {
        return QMap<QString, double>{{QStringLiteral("x"), art->getPos().x()},
                                     {QStringLiteral("y"), art->getPos().y()},
                                     {QStringLiteral("width"), art->getSize().width()},
                                     {QStringLiteral("height"), art->getSize().height()}};
    };
    m_host->raise("objectPanel");
    NumberField *field = number("objectPanel", qPrintable(name));
    const QMap<QString, double> before = values();
    QCOMPARE(field->value(), before.value(name));
    const int steps = m_host->steps()->index();
    enter(field, typed);
    QMap<QString, double> after = before;
    after.insert(name, expected);
    QCOMPARE(values(), after);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    m_host->session()->undo();
    QCOMPARE(values(), before);
}

void TestObjectPanels::placeFollowsDrag()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("moved"));
    m_host->raise("objectPanel");
    m_host->keepPicture("object.png");
    text->setPos({222, 111}, /*undo=*/true);
    m_host->settle();
    QCOMPARE(number("objectPanel", "x")->value(), 222.0);
    QCOMPARE(number("objectPanel", "y")->value(), 111.0);
}

void TestObjectPanels::angleIsExact()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("turned"));
    m_host->raise("objectPanel");
    const int before = m_host->steps()->index();
    enter(number("objectPanel", "angle"), QStringLiteral("30"));
    QCOMPARE(text->getRotate(), 30.0);
    enter(number("objectPanel", "angle"), QStringLiteral("-45"));
    QVERIFY(qAbs(std::remainder(text->getRotate() + 45.0, 360.0)) < 1e-9);
    QCOMPARE(m_host->steps()->index(), before + 2);
}

void TestObjectPanels::flipIsUndone()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("flip"));
    m_host->raise("objectPanel");
    auto *box = m_host->find<QCheckBox>("objectPanel", "flip");
    box->click();
    QVERIFY(text->isFlip());
    QVERIFY(!text->isMirror());
    m_host->session()->undo();
    m_host->settle();
    QVERIFY(!text->isFlip());
    QVERIFY(!box->isChecked());
}

void TestObjectPanels::mirrorOfSeveralIsOneStep()
{
    CVXRootObject *first = m_host->writeLine({100, 150}, QStringLiteral("first"));
    CVXRootObject *second = m_host->writeLine({100, 300}, QStringLiteral("second"));
    first->setMirror(true, /*notify=*/true);
    m_host->session()->selectAll();
    m_host->settle();
    auto *box = m_host->find<QCheckBox>("objectPanel", "mirror");
    QCOMPARE(box->checkState(), Qt::PartiallyChecked);
    const int before = m_host->steps()->index();
    box->click();
    m_host->settle();
    QVERIFY(first->isMirror());
    QVERIFY(second->isMirror());
    QCOMPARE(m_host->steps()->index(), before + 1);
    m_host->session()->undo();
    QVERIFY(first->isMirror());
    QVERIFY(!second->isMirror());
}

void TestObjectPanels::textChangesItsRoom()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("room for words"));
    m_host->raise("objectPanel");
    auto *room = m_host->find<QComboBox>("objectPanel", "form");
    QCOMPARE(room->currentIndex(), 0);
    choose(room, 2);
    QVERIFY(m_host->attribute(text, "text_wordwrap").toBool());
    QVERIFY(m_host->attribute(text, "text_auto_wordwrap").toBool());
    QCOMPARE(room->currentIndex(), 2);
    choose(room, 1);
    QVERIFY(m_host->attribute(text, "text_wordwrap").toBool());
    QVERIFY(!m_host->attribute(text, "text_auto_wordwrap").toBool());
    choose(room, 0);
    QVERIFY(!m_host->attribute(text, "text_wordwrap").toBool());
    m_host->session()->undo();
    m_host->settle();
    QVERIFY(m_host->attribute(text, "text_wordwrap").toBool());
    QCOMPARE(room->currentIndex(), 1);
}

void TestObjectPanels::textTurnsIntoColumns()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("columns"));
    m_host->raise("objectPanel");
    auto *direction = m_host->find<QComboBox>("objectPanel", "direction");
    QCOMPARE(direction->currentIndex(), 0);
    choose(direction, 1);
    QVERIFY(!m_host->attribute(text, "text_horizontal").toBool());
    m_host->session()->undo();
    m_host->settle();
    QVERIFY(m_host->attribute(text, "text_horizontal").toBool());
    QCOMPARE(direction->currentIndex(), 0);
}

void TestObjectPanels::differentPlacesAreMixed()
{
    m_host->writeLine({100, 150}, QStringLiteral("first"))->setPos({50, 70}, false);
    m_host->writeLine({100, 300}, QStringLiteral("second"))->setPos({50, 90}, false);
    m_host->session()->selectAll();
    m_host->settle();
    QVERIFY(!number("objectPanel", "x")->isMixed());
    QCOMPARE(number("objectPanel", "x")->value(), 50.0);
    QVERIFY(number("objectPanel", "y")->isMixed());
}

// Art

CVXRootObject *TestObjectPanels::drawArt()
{
    m_host->window()->setTool(EditorTool::ArtText);
    PageView *view = m_host->view();
    const QPoint from = view->mapFromScene(QPointF(100, 100));
    const QPoint to = view->mapFromScene(QPointF(300, 200));
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, view->viewport()->mapToGlobal(to), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &move);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, to);
    m_host->settle();
    return m_host->session()->page()->objects().value(0);
}

void TestObjectPanels::artGalleryHasAllStylesWithPictures()
{
    QVERIFY(drawArt());
    m_host->raise("artPanel");
    StyleGallery *styles = gallery("artPanel", "artGallery");
    QCOMPARE(styles->count(), 42);
    QTRY_VERIFY(!styles->item(41)->icon().isNull());
    m_host->keepPicture("art.png");
    for (int row = 0; row < styles->count(); ++row) {
        const QImage image = styles->item(row)->icon().pixmap(72, 44).toImage();
        QImage empty(image.size(), image.format());
        empty.fill(Qt::transparent);
        QVERIFY2(image != empty, qPrintable(styles->item(row)->text()));
    }
}

void TestObjectPanels::pickedArtStyleIsOneStep()
{
    CVXRootObject *art = drawArt();
    QVERIFY(art);
    m_host->raise("artPanel");
    StyleGallery *styles = gallery("artPanel", "artGallery");
    const int first = m_host->session()->artStyle();
    QVERIFY(first != 2);
    QCOMPARE(styles->style(), first);
    const int before = m_host->steps()->index();
    QTest::mouseClick(styles->viewport(), Qt::LeftButton, {},
                      styles->visualItemRect(styles->item(2)).center());
    m_host->settle();
    QCOMPARE(m_host->session()->artStyle(), 2);
    QCOMPARE(styles->style(), 2);
    QCOMPARE(m_host->steps()->index(), before + 1);
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(styles->style(), first);
}

// Missing fonts

CVXRootObject *TestObjectPanels::addTextWithMissingFont()
{
    Page *page = m_host->session()->page();
    CVXRootObject *text = m_loader.createText(900, page);
    page->addObject(text);
    const QString string = documentString(QStringLiteral("strange"),
                                          {QStringLiteral("Never Installed"), 24,
                                           QStringLiteral("#000000"), /*vertical=*/false});
    TextPlace place;
    place.pos = {120, 140};
    loadDocumentString(text, string, inspectDocumentString(string), place);
    m_host->session()->select(text);
    m_host->settle();
    return text;
}

void TestObjectPanels::missingFontsAreListed()
{
    auto *list = m_host->find<QListWidget>("fontsPanel", "missingFonts");
    QVERIFY(list);
    QCOMPARE(list->count(), 0);
    addTextWithMissingFont();
    m_host->raise("fontsPanel");
    m_host->keepPicture("fonts.png");
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->item(0)->text(), QStringLiteral("Never Installed"));
}

void TestObjectPanels::previewIsShownAndCancelled()
{
    CVXRootObject *text = addTextWithMissingFont();
    auto *panel = qobject_cast<MissingFontsPanel *>(m_host->raise("fontsPanel"));
    QVERIFY(panel);
    const int before = m_host->steps()->index();
    panel->preview(QStringLiteral("DejaVu Sans"));
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("DejaVu Sans"));
    panel->preview(QStringLiteral("DejaVu Serif"));
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(m_host->steps()->index(), before);
    m_host->find<QPushButton>("fontsPanel", "cancelReplacement")->click();
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("Never Installed"));
    QCOMPARE(TextObject::missingFonts(text), QStringList{QStringLiteral("Never Installed")});
    QCOMPARE(m_host->steps()->index(), before);
}

void TestObjectPanels::confirmedReplacementIsOneStep()
{
    CVXRootObject *text = addTextWithMissingFont();
    auto *panel = qobject_cast<MissingFontsPanel *>(m_host->raise("fontsPanel"));
    const int before = m_host->steps()->index();
    panel->preview(QStringLiteral("DejaVu Sans"));
    panel->preview(QStringLiteral("DejaVu Serif"));
    m_host->find<QPushButton>("fontsPanel", "confirmReplacement")->click();
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("DejaVu Serif"));
    QVERIFY(TextObject::missingFonts(text).isEmpty());
    QCOMPARE(m_host->steps()->index(), before + 1);
    QCOMPARE(m_host->find<QListWidget>("fontsPanel", "missingFonts")->count(), 0);
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(TextObject::missingFonts(text), QStringList{QStringLiteral("Never Installed")});
    QCOMPARE(m_host->find<QListWidget>("fontsPanel", "missingFonts")->count(), 1);
}

void TestObjectPanels::hiddenPanelLeavesNoPreview()
{
    CVXRootObject *text = addTextWithMissingFont();
    auto *panel = qobject_cast<MissingFontsPanel *>(m_host->raise("fontsPanel"));
    panel->preview(QStringLiteral("DejaVu Sans"));
    m_host->raise("artPanel");
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("Never Installed"));
}

void TestObjectPanels::everyStyleHasName()
{
    QSet<QString> warps;
    for (int style = 0; style <= warpStyleCount; ++style)
        warps.insert(warpStyleName(style));
    QCOMPARE(warps.size(), 16);
    QSet<QString> arts;
    for (int style = 0; style < artStyleCount; ++style)
        arts.insert(artStyleName(style));
    QCOMPARE(arts.size(), 42);
    QCOMPARE(artStyleName(42), QString());
}

QTEST_MAIN(TestObjectPanels)
#include "tst_objectpanels.moc"
