// SPDX-License-Identifier: MIT
// Art texts in the panels: what they share with rich texts, and what they alone have.
#include "panelwindow.h"

#include "app/pagehost/fontfamilybox.h"
#include "app/pagehost/panel.h"

#include <QComboBox>
#include <QTemporaryDir>

#include <memory>

class TestArtLook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_host = std::make_unique<PanelWindow>(&m_loader); }
    void cleanup() { m_host.reset(); }

    void characterPanelOffersWhatArtTextsHave();
    void familyIsOneStep();
    void flagIsOneStep_data();
    void flagIsOneStep();
    void fillColorIsOneStepAndPainted();
    void lineColorMakesLineVisible();
    void lineWidthOfZeroDrawsNoLine();
    void spacingIsOneStep_data();
    void spacingIsOneStep();
    void sizeMakesObjectAsLargeAsItsText();
    void sizeIsUndoneWithPlace();
    void columnsAndAlignmentAreSet();
    void bothKindsTakeWhatBothKnow();
    void bothKindsShowMixedValues();
    void lockedArtTextStaysAsItIs();
    void editEndsAheadOfLook();
    void lookComesBackFromFile();
    void stepsUpAreOneStep();

private:
    FlagButton *flag(const char *name) { return m_host->find<FlagButton>("characterPanel", name); }
    FontFamilyBox *family() { return m_host->find<FontFamilyBox>("characterPanel", "font_family"); }
    ColorButton *fill() { return m_host->find<ColorButton>("characterPanel", "pen_color"); }
    ColorButton *line() { return m_host->find<ColorButton>("artPanel", "line_color"); }
    NumberField *number(const char *panel, const char *name)
    {
        return m_host->find<NumberField>(panel, name);
    }
    CVXRootObject *drawWords(const QString &words);
    void pick(ColorButton *button, const QColor &color);

    PluginLoader m_loader;
    std::unique_ptr<PanelWindow> m_host;
};

void TestArtLook::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

CVXRootObject *TestArtLook::drawWords(const QString &words)
{
    CVXRootObject *art = m_host->drawArt();
    art->setAllAttributes({{QStringLiteral("text"), words}}, /*withUndo=*/false);
    m_host->raise("artPanel");
    return art;
}

void TestArtLook::pick(ColorButton *button, const QColor &color)
{
    Q_EMIT button->picked(color);
    m_host->settle();
}

void TestArtLook::characterPanelOffersWhatArtTextsHave()
{
    drawWords(QStringLiteral("Art"));
    m_host->keepPicture("artlook.png");
    QVERIFY(family()->isEnabled());
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Sans"));
    for (const char *key : {"font_bold", "font_italic"})
        QVERIFY2(flag(key)->isEnabled(), key);
    for (const char *key : {"font_underline", "font_strikeout", "text_superscript", "text_upper"})
        QVERIFY2(!flag(key)->isEnabled(), key);
    QVERIFY(number("characterPanel", "font_pointsize")->isEnabled());
    for (const char *key : {"horizontal_scaled", "baseline_offset", "selected_letterspacing"})
        QVERIFY2(!number("characterPanel", key)->isEnabled(), key);
    for (const char *word : {"line_width", "art_letterspacing", "art_rowspacing"})
        QVERIFY2(number("artPanel", word)->isEnabled(), word);
}

void TestArtLook::familyIsOneStep()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    const int before = m_host->steps()->index();
    Q_EMIT family()->picked(QStringLiteral("DejaVu Serif"));
    m_host->settle();
    QCOMPARE(m_host->attribute(art, "font_family").toString(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(m_host->steps()->index(), before + 1);
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(m_host->attribute(art, "font_family").toString(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Sans"));
}

void TestArtLook::flagIsOneStep_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("bold") << "font_bold";
    QTest::newRow("italic") << "font_italic";
}

void TestArtLook::flagIsOneStep()
{
    QFETCH(QString, key);
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    const QPainterPath before = art->getClientPath();
    const int steps = m_host->steps()->index();
    flag(qPrintable(key))->click();
    m_host->settle();
    QVERIFY(m_host->attribute(art, qPrintable(key)).toBool());
    QVERIFY(flag(qPrintable(key))->isChecked());
    QVERIFY(art->getClientPath() != before);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    m_host->session()->undo();
    m_host->settle();
    QVERIFY(!flag(qPrintable(key))->isChecked());
    QCOMPARE(art->getClientPath(), before);
}

void TestArtLook::fillColorIsOneStepAndPainted()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    const QColor red(200, 10, 20);
    const QColor before = fill()->color();
    const int steps = m_host->steps()->index();
    pick(fill(), red);
    QCOMPARE(fill()->color(), red);
    QCOMPARE(art->getFillProp().color(), red);
    QCOMPARE(m_host->attribute(art, "fillcolor").value<QColor>(), red);
    QRectF area;
    const QImage image = art->getImageFromObject(area, /*withHandles=*/false);
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            painted += image.pixelColor(x, y) == red;
    }
    QVERIFY(painted > 100);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(fill()->color(), before);
}

void TestArtLook::lineColorMakesLineVisible()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    QCOMPARE(number("artPanel", "line_width")->value(), 0.0);
    const QPen before = art->getMyPen();
    pick(line(), QColor(0, 90, 200));
    QCOMPARE(art->getMyPen().color(), QColor(0, 90, 200));
    QCOMPARE(art->getMyPen().style(), Qt::SolidLine);
    QCOMPARE(number("artPanel", "line_width")->value(), 1.0);
    QCOMPARE(m_host->attribute(art, "color").value<QColor>(), QColor(0, 90, 200));
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(art->getMyPen(), before);
    QCOMPARE(number("artPanel", "line_width")->value(), 0.0);
}

void TestArtLook::lineWidthOfZeroDrawsNoLine()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    m_host->enter(number("artPanel", "line_width"), QStringLiteral("3.5"));
    QCOMPARE(art->getMyPen().widthF(), 3.5);
    QCOMPARE(art->getMyPen().style(), Qt::SolidLine);
    m_host->enter(number("artPanel", "line_width"), QStringLiteral("0"));
    QCOMPARE(art->getMyPen().style(), Qt::NoPen);
}

void TestArtLook::spacingIsOneStep_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("key");
    QTest::newRow("letters") << "art_letterspacing"
                             << "font_letterspacing";
    QTest::newRow("rows") << "art_rowspacing"
                          << "font_rowspacing";
}

void TestArtLook::spacingIsOneStep()
{
    QFETCH(QString, word);
    QFETCH(QString, key);
    CVXRootObject *art = drawWords(QStringLiteral("two\nrows"));
    const QPainterPath before = art->getClientPath();
    const int steps = m_host->steps()->index();
    m_host->enter(number("artPanel", qPrintable(word)), QStringLiteral("25"));
    QCOMPARE(m_host->attribute(art, qPrintable(key)).toDouble(), 25.0);
    QVERIFY(art->getClientPath() != before);
    QCOMPARE(m_host->steps()->index(), steps + 1);
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(m_host->attribute(art, qPrintable(key)).toDouble(), 0.0);
    QCOMPARE(art->getClientPath(), before);
}

void TestArtLook::sizeMakesObjectAsLargeAsItsText()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    m_host->enter(number("characterPanel", "font_pointsize"), QStringLiteral("40"));
    const QSizeF small = art->getSize();
    QCOMPARE(number("characterPanel", "font_pointsize")->value(), 40.0);
    m_host->enter(number("characterPanel", "font_pointsize"), QStringLiteral("80"));
    QVERIFY(qAbs(art->getSize().width() / small.width() - 2) < 0.1);
    QVERIFY(art->getSize().height() > 1.8 * small.height()); // with a margin that stays
}

void TestArtLook::sizeIsUndoneWithPlace()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    const QRectF before(art->getPos(), art->getSize());
    const double size = number("characterPanel", "font_pointsize")->value();
    const int steps = m_host->steps()->index();
    m_host->enter(number("characterPanel", "font_pointsize"), QStringLiteral("90"));
    QVERIFY(art->getSize() != before.size());
    QCOMPARE(m_host->steps()->index(), steps + 1);
    m_host->session()->undo();
    m_host->settle();
    QCOMPARE(QRectF(art->getPos(), art->getSize()), before);
    QCOMPARE(number("characterPanel", "font_pointsize")->value(), size);
}

void TestArtLook::columnsAndAlignmentAreSet()
{
    CVXRootObject *art = drawWords(QStringLiteral("some\nrows"));
    m_host->raise("paragraphPanel");
    const auto alignment = [this](const char *name) {
        return m_host->find<FlagButton>("paragraphPanel", name);
    };
    alignment("alignment-right")->click();
    m_host->settle();
    QCOMPARE(m_host->attribute(art, "textalignment").toInt(), 2);
    QVERIFY(alignment("alignment-right")->isChecked());
    m_host->raise("objectPanel");
    auto *direction = m_host->find<QComboBox>("objectPanel", "direction");
    QCOMPARE(direction->currentIndex(), 0);
    direction->setFocus();
    QTest::keyClick(direction, Qt::Key_Down);
    m_host->raise("paragraphPanel");
    QCOMPARE(m_host->attribute(art, "font_somehow").toBool(), true);
    QVERIFY(alignment("alignment-right")->isChecked());
    alignment("alignment-center")->click();
    m_host->settle();
    QCOMPARE(m_host->attribute(art, "textalignment").toInt(), 4);
    QVERIFY(alignment("alignment-center")->isChecked());
    m_host->session()->undo();
    QCOMPARE(m_host->attribute(art, "textalignment").toInt(), 2);
}

void TestArtLook::bothKindsTakeWhatBothKnow()
{
    CVXRootObject *text = m_host->writeLine({100, 400}, QStringLiteral("rich"));
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    m_host->session()->selectAll();
    m_host->settle();
    const int steps = m_host->steps()->index();
    flag("font_bold")->click();
    m_host->settle();
    QVERIFY(m_host->attribute(text, "font_bold").toBool());
    QVERIFY(m_host->attribute(art, "font_bold").toBool());
    pick(fill(), QColor(10, 200, 20));
    QCOMPARE(m_host->attribute(text, "pen_color").value<QColor>(), QColor(10, 200, 20));
    QCOMPARE(art->getFillProp().color(), QColor(10, 200, 20));
    QCOMPARE(m_host->steps()->index(), steps + 2);
    flag("font_underline")->click(); // which the art text does not have
    m_host->settle();
    QVERIFY(m_host->attribute(text, "font_underline").toBool());
    QVERIFY(flag("font_underline")->isChecked());
    m_host->session()->undo();
    m_host->session()->undo();
    m_host->session()->undo();
    QVERIFY(!m_host->attribute(text, "font_bold").toBool());
    QVERIFY(!m_host->attribute(art, "font_bold").toBool());
}

void TestArtLook::bothKindsShowMixedValues()
{
    m_host->writeLine({100, 400}, QStringLiteral("rich"));
    drawWords(QStringLiteral("Art"));
    flag("font_italic")->click();
    m_host->settle();
    m_host->session()->selectAll();
    m_host->settle();
    QVERIFY(flag("font_italic")->isMixed());
    QVERIFY(!flag("font_bold")->isMixed());
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Sans"));
}

void TestArtLook::lockedArtTextStaysAsItIs()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    art->setLocked(true, /*undo=*/false, /*notify=*/true);
    m_host->selection()->apply({{QStringLiteral("font_bold"), true}});
    QVERIFY(!m_host->attribute(art, "font_bold").toBool());
}

void TestArtLook::editEndsAheadOfLook()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    TextCommands::beginEdit(art);
    m_host->settle();
    QCOMPARE(m_host->session()->editedObject(), art);
    m_host->view()->setFocus();
    QTest::keyClick(m_host->view(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(m_host->view(), QStringLiteral("ist"));
    const int steps = m_host->steps()->index();
    flag("font_bold")->click();
    m_host->settle();
    QVERIFY(!m_host->session()->editedObject());
    QCOMPARE(TextCommands::plainText(art), QStringLiteral("Artist"));
    QVERIFY(m_host->attribute(art, "font_bold").toBool());
    QCOMPARE(m_host->steps()->index(), steps + 2); // the words, then the look
}

void TestArtLook::lookComesBackFromFile()
{
    drawWords(QStringLiteral("Art"));
    flag("font_bold")->click();
    Q_EMIT family()->picked(QStringLiteral("DejaVu Serif"));
    pick(fill(), QColor(200, 10, 20));
    pick(line(), QColor(0, 90, 200));
    m_host->enter(number("artPanel", "line_width"), QStringLiteral("2.5"));
    m_host->enter(number("artPanel", "art_letterspacing"), QStringLiteral("7"));
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("art.json"));
    QString error;
    QVERIFY2(m_host->session()->save(file, error), qPrintable(error));
    QVERIFY(m_host->window()->openFile(file));
    m_host->session()->selectAll();
    m_host->settle();
    QVERIFY(flag("font_bold")->isChecked());
    QCOMPARE(family()->family(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(fill()->color(), QColor(200, 10, 20));
    QCOMPARE(line()->color(), QColor(0, 90, 200));
    QCOMPARE(number("artPanel", "line_width")->value(), 2.5);
    QCOMPARE(number("artPanel", "art_letterspacing")->value(), 7.0);
}

void TestArtLook::stepsUpAreOneStep()
{
    CVXRootObject *art = drawWords(QStringLiteral("Art"));
    NumberField *field = number("artPanel", "line_width");
    const int steps = m_host->steps()->count();
    field->setFocus();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(field, Qt::Key_Up);
    QCOMPARE(art->getMyPen().widthF(), 3.0);
    QCOMPARE(m_host->steps()->count(), steps + 1);
    QTest::keyClick(field, Qt::Key_Escape);
    QCOMPARE(art->getMyPen().widthF(), 0.0);
    QCOMPARE(m_host->steps()->count(), steps);
}

QTEST_MAIN(TestArtLook)
#include "tst_artlook.moc"
