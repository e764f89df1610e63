// SPDX-License-Identifier: MIT
// The panels of warp, art text, object and missing fonts.
#include "panelwindow.h"

#include "app/page/textobject.h"
#include "app/page/textrecord.h"
#include "app/pagehost/fontfamilybox.h"
#include "app/pagehost/missingfontspanel.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/stylegallery.h"
#include "app/pagehost/stylenames.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QStyleOptionSlider>
#include <QTemporaryDir>

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
    void dragOfSliderIsOneStep_data();
    void dragOfSliderIsOneStep();
    void escapeInDragRestores_data() { dragOfSliderIsOneStep_data(); }
    void escapeInDragRestores();
    void typedPercentIsOneStep();
    void warpOrientationAndReset();
    void warpOfSeveralTextsIsOneStep();
    void sameWarpAgainMakesNoStep();
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
    void whatIsSetComesBackFromFile_data();
    void whatIsSetComesBackFromFile();

    // Art
    void artGalleryHasAllStylesWithPictures();
    void pickedArtStyleIsOneStep();
    void artStylesOfMenuHaveNames();

    // Missing fonts
    void missingFontsAreListed();
    void previewIsShownAndCancelled();
    void confirmedReplacementIsOneStep();
    void hiddenPanelLeavesNoPreview();
    void familyUnderPointerIsPreviewed();
    void saveTakesPreviewBack();
    void undoTakesPreviewBack();

    // Styles
    void everyStyleHasName();

private:
    NumberField *number(const char *panel, const char *name)
    {
        return m_host->find<NumberField>(panel, name);
    }
    LiveSlider *sliderOf(const QString &key)
    {
        return m_host->find<LiveSlider>("warpPanel", qPrintable(key + QLatin1String("_slider")));
    }
    LiveSlider *slider() { return sliderOf(QStringLiteral("warp_value")); }
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
    void enter(NumberField *field, const QString &text) { m_host->enter(field, text); }
    void choose(QComboBox *box, int row);
    static QPoint knobOf(const LiveSlider *slider);
    static void moveKnob(LiveSlider *slider, int part);

    PluginLoader m_loader;
    std::unique_ptr<PanelWindow> m_host;
};

void TestObjectPanels::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestObjectPanels::choose(QComboBox *box, int row)
{
    box->setCurrentIndex(row);
    Q_EMIT box->activated(row);
    m_host->settle();
}

QPoint TestObjectPanels::knobOf(const LiveSlider *slider)
{
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.subControls = QStyle::SC_All;
    option.orientation = slider->orientation();
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = slider->sliderPosition();
    option.sliderValue = slider->value();
    return slider->style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider)
        .center();
}

/// The pointer moves to \a part percent of the way, with the button held.
void TestObjectPanels::moveKnob(LiveSlider *slider, int part)
{
    const QPoint to(slider->width() * part / 100, slider->height() / 2);
    QMouseEvent move(QEvent::MouseMove, to, slider->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(slider, &move);
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

void TestObjectPanels::dragOfSliderIsOneStep_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"warp_value", "warp_horizontal_value", "warp_vertical_value"})
        QTest::newRow(key) << key;
}

void TestObjectPanels::dragOfSliderIsOneStep()
{
    QFETCH(QString, key);
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->bend(1);
    LiveSlider *slider = sliderOf(key);
    const int start = m_host->attribute(text, qPrintable(key)).toInt();
    const int before = m_host->steps()->index();
    int seen = start;
    QTest::mousePress(slider, Qt::LeftButton, {}, knobOf(slider));
    for (int part : {70, 50, 30, 10}) {
        moveKnob(slider, part);
        const int now = m_host->attribute(text, qPrintable(key)).toInt();
        QCOMPARE(now, slider->value());
        QVERIFY(now != seen); // on the page at once
        seen = now;
    }
    QCOMPARE(m_host->steps()->index(), before);
    QTest::mouseRelease(slider, Qt::LeftButton, {}, knobOf(slider));
    m_host->settle();
    QCOMPARE(m_host->attribute(text, qPrintable(key)).toInt(), seen);
    QCOMPARE(number("warpPanel", qPrintable(key))->value(), double(seen));
    QCOMPARE(m_host->steps()->index(), before + 1);
    m_host->session()->undo();
    QCOMPARE(m_host->attribute(text, qPrintable(key)).toInt(), start);
    m_host->session()->redo();
    QCOMPARE(m_host->attribute(text, qPrintable(key)).toInt(), seen);
}

void TestObjectPanels::escapeInDragRestores()
{
    QFETCH(QString, key);
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->bend(1);
    LiveSlider *slider = sliderOf(key);
    const int start = m_host->attribute(text, qPrintable(key)).toInt();
    const int before = m_host->steps()->index();
    const QRectF place(text->getPos(), text->getSize());
    QTest::mousePress(slider, Qt::LeftButton, {}, knobOf(slider));
    moveKnob(slider, 5);
    QVERIFY(m_host->attribute(text, qPrintable(key)).toInt() != start);
    QVERIFY(QRectF(text->getPos(), text->getSize()) != place);
    QTest::keyClick(slider, Qt::Key_Escape);
    m_host->settle();
    QCOMPARE(m_host->attribute(text, qPrintable(key)).toInt(), start);
    QCOMPARE(QRectF(text->getPos(), text->getSize()), place);
    QCOMPARE(slider->value(), start);
    moveKnob(slider, 95); // of a drag that has been given up
    QTest::mouseRelease(slider, Qt::LeftButton, {}, knobOf(slider));
    m_host->settle();
    QCOMPARE(m_host->attribute(text, qPrintable(key)).toInt(), start);
    QCOMPARE(m_host->steps()->index(), before);
    enter(number("warpPanel", qPrintable(key)), QStringLiteral("31")); // a step again
    QCOMPARE(m_host->attribute(text, qPrintable(key)).toInt(), 31);
    QCOMPARE(m_host->steps()->index(), before + 1);
}

void TestObjectPanels::typedPercentIsOneStep()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->bend(8);
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
    m_host->bend(3);
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
    m_host->bend(5);
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

void TestObjectPanels::sameWarpAgainMakesNoStep()
{
    CVXRootObject *text = m_host->writeLine({100, 150}, QStringLiteral("bend me"));
    m_host->bend(3);
    auto *direction = m_host->find<QComboBox>("warpPanel", "warpOrientation");
    const int before = m_host->steps()->count();
    m_host->bend(3);
    choose(direction, 0);
    QCOMPARE(m_host->steps()->count(), before);
    choose(direction, 1);
    QCOMPARE(m_host->steps()->count(), before + 1);
    choose(direction, 1);
    QCOMPARE(m_host->steps()->count(), before + 1);
    QCOMPARE(warpStyle(text), 3);
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
    CVXRootObject *art = m_host->drawArt();
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
    m_host->raise("objectPanel");
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
    m_host->raise("objectPanel");
    QVERIFY(!number("objectPanel", "x")->isMixed());
    QCOMPARE(number("objectPanel", "x")->value(), 50.0);
    QVERIFY(number("objectPanel", "y")->isMixed());
}

void TestObjectPanels::whatIsSetComesBackFromFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("line") << "line";
    QTest::newRow("box") << "box";
    QTest::newRow("growing box") << "growing box";
    QTest::newRow("art text") << "art text";
}

void TestObjectPanels::whatIsSetComesBackFromFile()
{
    QFETCH(QString, kind);
    const QStringList rooms{QStringLiteral("line"), QStringLiteral("box"),
                            QStringLiteral("growing box")};
    const int room = rooms.indexOf(kind);
    if (room < 0)
        m_host->drawArt();
    else
        m_host->writeLine({100, 150}, QStringLiteral("to be stored"));
    m_host->raise("objectPanel");
    choose(m_host->find<QComboBox>("objectPanel", "direction"), 1);
    if (room > 0)
        choose(m_host->find<QComboBox>("objectPanel", "form"), 1);
    m_host->find<QCheckBox>("objectPanel", "flip")->click();
    m_host->find<QCheckBox>("objectPanel", "mirror")->click();
    enter(number("objectPanel", "height"), QStringLiteral("250"));
    enter(number("objectPanel", "width"), QStringLiteral("301"));
    enter(number("objectPanel", "angle"), QStringLiteral("30"));
    enter(number("objectPanel", "x"), QStringLiteral("12.25"));
    enter(number("objectPanel", "y"), QStringLiteral("-7.5"));
    if (room > 1) // which a size of its own would make a plain box again
        choose(m_host->find<QComboBox>("objectPanel", "form"), room);
    QMap<QString, double> shown;
    for (const char *name : {"x", "y", "width", "height", "angle"})
        shown.insert(QLatin1String(name), number("objectPanel", name)->value());
    if (room < 2) {
        const QMap<QString, double> typed{{QStringLiteral("x"), 12.25},
                                          {QStringLiteral("y"), -7.5},
                                          {QStringLiteral("width"), 301},
                                          {QStringLiteral("height"), 250},
                                          {QStringLiteral("angle"), 30}};
        QCOMPARE(shown, typed);
    }
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("stored.json"));
    QString error;
    QVERIFY2(m_host->session()->save(file, error), qPrintable(error));
    QVERIFY(m_host->window()->openFile(file));
    m_host->session()->selectAll();
    m_host->settle();

    for (auto expected = shown.constBegin(); expected != shown.constEnd(); ++expected) {
        NumberField *field = number("objectPanel", qPrintable(expected.key()));
        QVERIFY2(!field->isMixed(), qPrintable(expected.key()));
        QVERIFY2(qAbs(field->value() - *expected) < 0.005, qPrintable(expected.key()));
    }
    QCOMPARE(m_host->find<QCheckBox>("objectPanel", "flip")->checkState(), Qt::Checked);
    QCOMPARE(m_host->find<QCheckBox>("objectPanel", "mirror")->checkState(), Qt::Checked);
    QCOMPARE(m_host->find<QComboBox>("objectPanel", "direction")->currentIndex(), 1);
    // Deliberate: a growing box comes back as one that keeps its size.
    QCOMPARE(m_host->find<QComboBox>("objectPanel", "form")->currentIndex(), qMin(room, 1));
}

// Art

void TestObjectPanels::artGalleryHasAllStylesWithPictures()
{
    QVERIFY(m_host->drawArt());
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
    CVXRootObject *art = m_host->drawArt();
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

void TestObjectPanels::artStylesOfMenuHaveNames()
{
    for (int style = 0; style < artStyleCount; ++style) {
        const auto *action = m_host->window()->findChild<QAction *>(
            QStringLiteral("artStyle%1").arg(style));
        QVERIFY(action);
        QCOMPARE(action->text(), artStyleName(style));
    }
    QCOMPARE(m_host->window()->findChild<QAction *>(QStringLiteral("artStyle1"))->text(),
             QStringLiteral("Cut Corners"));
}

// Missing fonts

void TestObjectPanels::missingFontsAreListed()
{
    auto *list = m_host->find<QListWidget>("fontsPanel", "missingFonts");
    QVERIFY(list);
    QCOMPARE(list->count(), 0);
    m_host->addTextWithMissingFont();
    m_host->raise("fontsPanel");
    m_host->keepPicture("fonts.png");
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->item(0)->text(), QStringLiteral("Never Installed"));
}

void TestObjectPanels::previewIsShownAndCancelled()
{
    CVXRootObject *text = m_host->addTextWithMissingFont();
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
    CVXRootObject *text = m_host->addTextWithMissingFont();
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
    CVXRootObject *text = m_host->addTextWithMissingFont();
    auto *panel = qobject_cast<MissingFontsPanel *>(m_host->raise("fontsPanel"));
    panel->preview(QStringLiteral("DejaVu Sans"));
    m_host->raise("artPanel");
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("Never Installed"));
}

/// The rows of the open list are seen on the page one after the other; nothing is recorded.
void TestObjectPanels::familyUnderPointerIsPreviewed()
{
    CVXRootObject *text = m_host->addTextWithMissingFont();
    m_host->raise("fontsPanel");
    auto *box = m_host->find<FontFamilyBox>("fontsPanel", "replacement");
    const int before = m_host->steps()->index();
    for (const char *name : {"DejaVu Sans", "DejaVu Serif"}) {
        const QString family = QLatin1String(name);
        Q_EMIT box->highlighted(box->findText(family));
        QCOMPARE(m_host->attribute(text, "font_family").toString(), family);
    }
    QCOMPARE(m_host->steps()->index(), before);
    m_host->find<QPushButton>("fontsPanel", "cancelReplacement")->click();
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

void TestObjectPanels::saveTakesPreviewBack()
{
    CVXRootObject *text = m_host->addTextWithMissingFont();
    auto *panel = qobject_cast<MissingFontsPanel *>(m_host->raise("fontsPanel"));
    panel->preview(QStringLiteral("DejaVu Sans"));
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("page.vxpage"));
    QString error;
    QVERIFY2(m_host->session()->save(name, error), qPrintable(error));
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("Never Installed"));
    const auto saved = PageSession::open(&m_loader, name, error);
    QVERIFY2(saved, qPrintable(error));
    QCOMPARE(saved->missingFonts(), QStringList{QStringLiteral("Never Installed")});
    QVERIFY(!m_host->find<QPushButton>("fontsPanel", "confirmReplacement")->isEnabled());
}

void TestObjectPanels::undoTakesPreviewBack()
{
    CVXRootObject *text = m_host->addTextWithMissingFont();
    const QPointF place = text->getPos();
    text->setPos({200, 200}, /*undo=*/true);
    auto *panel = qobject_cast<MissingFontsPanel *>(m_host->raise("fontsPanel"));
    panel->preview(QStringLiteral("DejaVu Sans"));
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(m_host->attribute(text, "font_family").toString(), QStringLiteral("Never Installed"));
    QCOMPARE(text->getPos(), place);
}

QTEST_MAIN(TestObjectPanels)
#include "tst_objectpanels.moc"
