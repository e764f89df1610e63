// SPDX-License-Identifier: MIT
// The editor's window with events of pointer, keys and input methods.
#include "app/page/framework.h"
#include "app/page/pluginloader.h"
#include "app/page/textobject.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QAction>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class TestPageHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void clickWithTextToolMakesLineText();
    void dragWithTextToolMakesBox();
    void toolGoesBackToSelectionOnceTextIsDrawn();
    void emptyTextThatIsLeftGoesWithItsSteps();
    void escapeGivesUpDrawing();
    void pressAwayFromTextEndsEdit();
    void pressInTextWithTextToolEditsIt();
    void doubleClickSelectsWholeText();
    void dragOverEditedTextSelects();

    void composedChineseEntersText();
    void preeditIsReplacedByNextPreedit();
    void inputMethodSeesCaret();
    void inputMethodIsOffOutsideEdit();

    void keysOfEditedTextDoNotReachMenus_data();
    void keysOfEditedTextDoNotReachMenus();
    void programShortcutsWorkInEdit();
    void toolLetterIsTypedInEdit();

    void undoOfMenuEndsEditAndKeepsText();
    void deletedObjectComesBackToItsPlace();
    void stepsOfGonePageEndWithoutHarm();
    void foreignTextIsPastedAsObject();
    void copiedObjectIsPastedBesideOriginal();
    void pasteInEditGoesIntoText();

    void selectedObjectIsMovedByDrag();
    void handleUnderAnotherObjectIsReached();
    void zoomKeepsHandlesInSize();
    void shortcutsWaitForEndOfDrag();

    void modifiedMarkFollowsTyping();
    void savedPageIsEqualAfterReopening_data();
    void savedPageIsEqualAfterReopening();
    void saveInEditGoesOnWithEdit();
    void brokenFileIsRefusedWithItsPlace();

    // Art texts
    void dragWithArtToolMakesArtText();
    void dragUpwardsMakesTheSameArtText();
    void clickWithArtToolMakesArtTextOf100By100();
    void artToolDrawsAboveOtherObjects();
    void newArtTextShowsItsHint();
    void escapeGivesUpDrawingOfArtText();
    void doubleClickEditsArtText();
    void doubleClickEditsArtTextAmongManySelected();
    void editOfArtTextEnds_data();
    void editOfArtTextEnds();
    void lockedArtTextIsNotEdited();
    void editOfArtTextIsUndoneAndRedone();
    void editWithoutChangeLeavesNoStep();
    void keysOfEditedArtTextDoNotReachMenus_data();
    void keysOfEditedArtTextDoNotReachMenus();
    void composedChineseEntersArtText();
    void menusActOnEditedArtText();
    void artTextIsMovedAndResizedByDrag();
    void copiedArtTextIsPastedBesideOriginal();
    void modifiedMarkFollowsTypingInArtText();
    void saveInEditOfArtTextGoesOnWithEdit();
    void savedArtTextIsEqualAfterReopening_data();
    void savedArtTextIsEqualAfterReopening();
    void pageThatGoesWithItsEditedArtTextIsNoHarm();
    void styleOfSelectedArtTextsIsOneStep();

    void missingLibraryEndsWithCode4_data();
    void missingLibraryEndsWithCode4();
    void wrongUsageEndsWithCode2();

private:
    QWidget *canvas() const { return m_window->view()->viewport(); }
    QPoint at(const QPointF &scenePos) const { return m_window->view()->mapFromScene(scenePos); }
    PageSession *session() const { return m_window->session(); }
    const QList<CVXRootObject *> &objects() const { return session()->page()->objects(); }
    CVXRootObject *only() const { return objects().value(0); }
    QString text() const { return TextCommands::plainText(only()); }
    void trigger(const char *action);
    void drag(const QPointF &from, const QPointF &to);
    void type(const QString &text);
    void compose(const QString &preedit, const QString &commit = QString());
    CVXRootObject *writeLine(const QPointF &pos, const QString &text);
    CVXRootObject *drawArt(const QPointF &from, const QPointF &to);
    CVXRootObject *writeArt(const QRectF &place, const QString &text);
    void clickTwice(const QPointF &pos);
    QImage shown() const { return canvas()->grab().toImage(); }
    int darkPixels(const QRectF &place) const;

    PluginLoader m_loader;
    std::unique_ptr<Framework> m_framework;
    std::unique_ptr<MainWindow> m_window;
};

void TestPageHost::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestPageHost::init()
{
    m_framework = std::make_unique<Framework>();
    m_framework->setDefaultFont(QStringLiteral("DejaVu Sans"), 24);
    m_window = std::make_unique<MainWindow>(&m_loader, m_framework.get());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->view()->setFocus();
}

void TestPageHost::cleanup()
{
    m_window.reset();
    m_framework.reset();
}

void TestPageHost::trigger(const char *action)
{
    auto *found = m_window->findChild<QAction *>(QLatin1String(action));
    QVERIFY2(found, action);
    found->trigger();
}

void TestPageHost::drag(const QPointF &from, const QPointF &to)
{
    QTest::mousePress(canvas(), Qt::LeftButton, {}, at(from));
    // QTest::mouseMove() tells no buttons
    for (int step = 1; step <= 4; ++step) {
        const QPoint pos = at(from + (to - from) * (step / 4.0));
        QMouseEvent move(QEvent::MouseMove, pos, canvas()->mapToGlobal(pos), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(canvas(), &move);
    }
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, at(to));
}

void TestPageHost::type(const QString &text)
{
    QTest::keyClicks(m_window->view(), text);
}

void TestPageHost::compose(const QString &preedit, const QString &commit)
{
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(m_window->view(), &event);
}

CVXRootObject *TestPageHost::writeLine(const QPointF &pos, const QString &text)
{
    m_window->setTool(EditorTool::Text);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at(pos));
    type(text);
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    return objects().isEmpty() ? nullptr : objects().constLast();
}

/// The art text that a drag with its tool makes.
CVXRootObject *TestPageHost::drawArt(const QPointF &from, const QPointF &to)
{
    m_window->setTool(EditorTool::ArtText);
    drag(from, to);
    return objects().isEmpty() ? nullptr : objects().constLast();
}

CVXRootObject *TestPageHost::writeArt(const QRectF &place, const QString &text)
{
    CVXRootObject *art = drawArt(place.topLeft(), place.bottomRight());
    clickTwice(place.center());
    type(text);
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    return art;
}

void TestPageHost::clickTwice(const QPointF &pos)
{
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at(pos));
    QTest::mouseDClick(canvas(), Qt::LeftButton, {}, at(pos));
    QTest::mouseRelease(canvas(), Qt::LeftButton, {},
                        at(pos)); // the second press is the double click
}

/// Pixels of \a place (scene) that are nearly black, handles and frames left out.
int TestPageHost::darkPixels(const QRectF &place) const
{
    session()->page()->scene()->clearSelection();
    const QImage image = shown();
    const QRect area(at(place.topLeft()), at(place.bottomRight()));
    int count = 0;
    for (int y = area.top(); y < area.bottom(); ++y) {
        for (int x = area.left(); x < area.right(); ++x)
            count += qGray(image.pixel(x, y)) < 40;
    }
    return count;
}

// Drawing and entering

void TestPageHost::clickWithTextToolMakesLineText()
{
    m_window->setTool(EditorTool::Text);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({100, 150}));
    QCOMPARE(objects().size(), 1);
    QCOMPARE(session()->editedObject(), only());
    AttributeMap attributes;
    QVERIFY(only()->getAllAttributes(attributes));
    QCOMPARE(attributes.value(QStringLiteral("text_wordwrap")).toBool(), false);
    type(QStringLiteral("line"));
    QCOMPARE(text(), QStringLiteral("line"));
}

void TestPageHost::dragWithTextToolMakesBox()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    QCOMPARE(objects().size(), 1);
    QCOMPARE(only()->getPos(), QPointF(100, 150));
    QCOMPARE(only()->getSize(), QSizeF(240, 120));
    AttributeMap attributes;
    QVERIFY(only()->getAllAttributes(attributes));
    QCOMPARE(attributes.value(QStringLiteral("text_wordwrap")).toBool(), true);
    type(QStringLiteral("in a box"));
    QCOMPARE(text(), QStringLiteral("in a box"));
}

void TestPageHost::toolGoesBackToSelectionOnceTextIsDrawn()
{
    m_window->setTool(EditorTool::Text);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({100, 150}));
    QCOMPARE(m_framework->getCurrentTool(), int(EditorTool::Select));
    QVERIFY(m_window->findChild<QAction *>(QStringLiteral("selectTool"))->isChecked());
}

void TestPageHost::emptyTextThatIsLeftGoesWithItsSteps()
{
    m_window->setTool(EditorTool::Text);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({100, 150}));
    QCOMPARE(objects().size(), 1);
    QCOMPARE(session()->undoStack()->count(), 0); // a step of its coming comes with its words
    QTest::keyClick(m_window->view(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    QTRY_COMPARE(objects().size(), 0);
    QCOMPARE(session()->undoStack()->count(), 0);
    QVERIFY(!session()->isModified());
}

void TestPageHost::escapeGivesUpDrawing()
{
    m_window->setTool(EditorTool::Text);
    QTest::mousePress(canvas(), Qt::LeftButton, {}, at({100, 150}));
    QCOMPARE(objects().size(), 1);
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    QCOMPARE(objects().size(), 0);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, at({150, 200}));
    QCOMPARE(objects().size(), 0);
    QCOMPARE(session()->undoStack()->count(), 0);
}

void TestPageHost::pressAwayFromTextEndsEdit()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 100}, {300, 160});
    type(QStringLiteral("kept"));
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({600, 500}));
    QVERIFY(!session()->editedObject());
    QCOMPARE(text(), QStringLiteral("kept"));
    QCOMPARE(session()->undoStack()->count(), 2); // drawn, written
}

void TestPageHost::pressInTextWithTextToolEditsIt()
{
    writeLine({100, 150}, QStringLiteral("again"));
    m_window->setTool(EditorTool::Text);
    const QRectF box(only()->getPos(), only()->getSize());
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at(box.center()));
    QCOMPARE(session()->editedObject(), only());
    QCOMPARE(objects().size(), 1);
}

void TestPageHost::doubleClickSelectsWholeText()
{
    writeLine({100, 150}, QStringLiteral("whole"));
    const QPoint middle = at(QRectF(only()->getPos(), only()->getSize()).center());
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(canvas(), Qt::LeftButton, {}, middle);
    QCOMPARE(session()->editedObject(), only());
    type(QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("x"));
}

void TestPageHost::dragOverEditedTextSelects()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {500, 270});
    type(QStringLiteral("first second"));
    drag({102, 170}, {480, 171});
    QCOMPARE(session()->editedObject(), only());
    type(QStringLiteral("x"));
    QCOMPARE(text(), QStringLiteral("x"));
}

// Input methods

void TestPageHost::composedChineseEntersText()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {400, 270});
    type(QStringLiteral("Hi "));
    compose(QStringLiteral("ni'hao"));
    QCOMPARE(text(), QStringLiteral("Hi ni'hao"));
    compose(QString(), QStringLiteral("你好"));
    QCOMPARE(text(), QStringLiteral("Hi 你好"));
    type(QStringLiteral("!"));
    QCOMPARE(text(), QStringLiteral("Hi 你好!"));
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    QCOMPARE(text(), QStringLiteral("Hi 你好!"));
}

void TestPageHost::preeditIsReplacedByNextPreedit()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {400, 270});
    compose(QStringLiteral("n"));
    compose(QStringLiteral("ni"));
    QCOMPARE(text(), QStringLiteral("ni"));
    compose(QString());
    QCOMPARE(text(), QString());
}

void TestPageHost::inputMethodSeesCaret()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {400, 270});
    const auto caret = [this] {
        canvas()->repaint(); // the caret's place is that of its last painting
        return m_window->view()->inputMethodQuery(Qt::ImCursorRectangle).toRect().topLeft();
    };
    type(QStringLiteral("a"));
    const QPoint before = caret();
    type(QStringLiteral("wide text"));
    const QPoint after = caret();
    QVERIFY(after.x() > before.x() + 50);
    QCOMPARE(after.y(), before.y());
    QVERIFY(canvas()->rect().contains(after));
}

void TestPageHost::inputMethodIsOffOutsideEdit()
{
    writeLine({100, 150}, QStringLiteral("some"));
    QVERIFY(!m_window->view()->testAttribute(Qt::WA_InputMethodEnabled));
    m_window->setTool(EditorTool::Text);
    QTest::mouseClick(canvas(), Qt::LeftButton, {},
                      at(QRectF(only()->getPos(), only()->getSize()).center()));
    QVERIFY(m_window->view()->testAttribute(Qt::WA_InputMethodEnabled));
}

// Keys

void TestPageHost::keysOfEditedTextDoNotReachMenus_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Delete") << int(Qt::Key_Delete) << 0 << QStringLiteral("abc");
    QTest::newRow("Ctrl+Z") << int(Qt::Key_Z) << int(Qt::ControlModifier) << QString();
    QTest::newRow("Ctrl+A") << int(Qt::Key_A) << int(Qt::ControlModifier) << QStringLiteral("abc");
    QTest::newRow("Home") << int(Qt::Key_Home) << 0 << QStringLiteral("abc");
}

void TestPageHost::keysOfEditedTextDoNotReachMenus()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, expected);
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    QInputMethodEvent whole;
    whole.setCommitString(QStringLiteral("abc"));
    QCoreApplication::sendEvent(m_window->view(), &whole); // one step of the text's own undo
    QTest::keyClick(m_window->view(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(objects().size(), 1);
    QCOMPARE(session()->editedObject(), only());
    QCOMPARE(text(), expected);
}

void TestPageHost::programShortcutsWorkInEdit()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("page.json"));
    QString error;
    QVERIFY2(session()->save(fileName, error), qPrintable(error));
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    type(QStringLiteral("saved"));
    QVERIFY(session()->isModified());
    QTest::keyClick(m_window->view(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!session()->isModified());
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("saved"));
}

void TestPageHost::toolLetterIsTypedInEdit()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    type(QStringLiteral("vt"));
    QCOMPARE(text(), QStringLiteral("vt"));
    QCOMPARE(m_framework->getCurrentTool(), int(EditorTool::Select));
}

// Commands

void TestPageHost::undoOfMenuEndsEditAndKeepsText()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    type(QStringLiteral("typed"));
    trigger("undo");
    QVERIFY(!session()->editedObject());
    QCOMPARE(text(), QString());
    trigger("redo");
    QCOMPARE(text(), QStringLiteral("typed"));
    trigger("undo");
    trigger("undo");
    QCOMPARE(objects().size(), 0);
    trigger("redo");
    trigger("redo");
    QCOMPARE(text(), QStringLiteral("typed"));
}

void TestPageHost::deletedObjectComesBackToItsPlace()
{
    for (int i = 0; i < 3; ++i)
        writeLine(QPointF(100, 100 + 150 * i), QString::number(i));
    CVXRootObject *middle = objects().at(1);
    session()->page()->scene()->clearSelection();
    middle->doSelected(true, false);
    trigger("delete");
    QCOMPARE(objects().size(), 2);
    QVERIFY(!objects().contains(middle));
    trigger("undo");
    QCOMPARE(objects().indexOf(middle), 1);
    QCOMPARE(middle->getZorder(), 1);
    QCOMPARE(objects().at(2)->getZorder(), 2);
    QCOMPARE(TextCommands::plainText(middle), QStringLiteral("1"));
}

// Objects that only a step holds, off the page, end with it.
void TestPageHost::stepsOfGonePageEndWithoutHarm()
{
    QPointer<QGraphicsObject> deleted(
        writeLine({100, 100}, QStringLiteral("deleted"))->GetGraphicsItemPtr()->toGraphicsObject());
    trigger("selectAll");
    trigger("delete");
    QPointer<QGraphicsObject> undone(
        writeLine({100, 300}, QStringLiteral("undone"))->GetGraphicsItemPtr()->toGraphicsObject());
    trigger("undo");
    trigger("undo");
    QCOMPARE(objects().size(), 0);
    QVERIFY(deleted && undone);
    m_window.reset();
    QVERIFY(!deleted);
    QVERIFY(!undone);
}

void TestPageHost::foreignTextIsPastedAsObject()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("from elsewhere"));
    trigger("paste");
    QCOMPARE(objects().size(), 1);
    QCOMPARE(text(), QStringLiteral("from elsewhere"));
    QVERIFY(only()->graphicsItem()->isSelected());
    trigger("undo");
    QCOMPARE(objects().size(), 0);
    trigger("redo");
    QCOMPARE(text(), QStringLiteral("from elsewhere"));
}

void TestPageHost::copiedObjectIsPastedBesideOriginal()
{
    CVXRootObject *original = writeLine({100, 150}, QStringLiteral("twice"));
    trigger("selectAll");
    trigger("copy");
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("twice"));
    trigger("paste");
    QCOMPARE(objects().size(), 2);
    CVXRootObject *copy = objects().at(1);
    QCOMPARE(TextCommands::plainText(copy), QStringLiteral("twice"));
    QCOMPARE(copy->getPos(), original->getPos() + QPointF(16, 16));
    QCOMPARE(copy->getSize(), original->getSize());
    trigger("cut");
    QCOMPARE(objects().size(), 1);
    QCOMPARE(only(), original);
}

void TestPageHost::pasteInEditGoesIntoText()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("mid"));
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    type(QStringLiteral("ab"));
    QTest::keyClick(m_window->view(), Qt::Key_Left);
    trigger("paste");
    QCOMPARE(objects().size(), 1);
    QCOMPARE(text(), QStringLiteral("amidb"));
    trigger("selectAll");
    trigger("cut");
    QCOMPARE(text(), QString());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("amidb"));
    QTest::keyClick(m_window->view(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(text(), QStringLiteral("amidb"));
}

// Pointer

void TestPageHost::selectedObjectIsMovedByDrag()
{
    writeLine({100, 150}, QStringLiteral("moved"));
    session()->page()->scene()->clearSelection();
    const QPointF start = only()->getPos();
    const QPointF middle = QRectF(start, only()->getSize()).center();
    drag(middle, middle + QPointF(60, 40));
    QCOMPARE(only()->getPos(), start + QPointF(60, 40));
    trigger("undo");
    QCOMPARE(only()->getPos(), start);
}

void TestPageHost::handleUnderAnotherObjectIsReached()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 100}, {300, 200});
    type(QStringLiteral("below"));
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    CVXRootObject *below = only();
    QGuiApplication::clipboard()->setText(QStringLiteral("above\nabove\nabove"));
    trigger("paste");
    CVXRootObject *above = objects().at(1);
    above->setPos(below->getPos() + QPointF(below->getSize().width() - 30, 20), false);
    session()->page()->scene()->clearSelection();
    below->doSelected(true, false);
    const QPointF handle = below->GetGraphicsItemPtr()->mapToScene(
        below->handlePosition(CObjAction::ACT_Right));
    QVERIFY(above->GetGraphicsItemPtr()->sceneBoundingRect().contains(handle));
    const QSizeF size = below->getSize();
    const QPointF placeOfAbove = above->getPos();
    drag(handle, handle + QPointF(40, 0));
    QCOMPARE(below->getSize().width(), size.width() + 40);
    QCOMPARE(above->getPos(), placeOfAbove);
}

void TestPageHost::zoomKeepsHandlesInSize()
{
    writeLine({100, 150}, QStringLiteral("zoomed"));
    const double size = only()->handleSize();
    m_window->view()->setZoom(2);
    QCOMPARE(only()->handleSize(), size / 2);
    m_window->view()->setZoom(1e9);
    QCOMPARE(m_window->view()->zoom(), 64.0);
}

void TestPageHost::shortcutsWaitForEndOfDrag()
{
    m_window->setTool(EditorTool::Text);
    QTest::mousePress(canvas(), Qt::LeftButton, {}, at({100, 150}));
    CVXRootObject *drawn = only();
    QTest::keyClick(m_window->view(), Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(only(), drawn);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, at({300, 250}));
    QCOMPARE(session()->editedObject(), drawn);
}

// Files

void TestPageHost::modifiedMarkFollowsTyping()
{
    QVERIFY(!m_window->isWindowModified());
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    type(QStringLiteral("x"));
    QTRY_VERIFY(m_window->isWindowModified());
    QTemporaryDir folder;
    QString error;
    QVERIFY2(session()->save(folder.filePath(QStringLiteral("a.vxpage")), error),
             qPrintable(error));
    QTRY_VERIFY(!m_window->isWindowModified());
    type(QStringLiteral("y")); // the stack knows nothing of it yet
    QTRY_VERIFY(m_window->isWindowModified());
}

void TestPageHost::savedPageIsEqualAfterReopening_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("json") << QStringLiteral("page.json");
    QTest::newRow("binary") << QStringLiteral("page.vxpage");
}

void TestPageHost::savedPageIsEqualAfterReopening()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    const QString fileName = folder.filePath(name);
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    type(QStringLiteral("Some words that wrap in the box"));
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    session()->page()->scene()->clearSelection();
    const QImage before = canvas()->grab().toImage();
    QString error;
    QVERIFY2(session()->save(fileName, error), qPrintable(error));

    QVERIFY(m_window->openFile(fileName));
    QCOMPARE(objects().size(), 1);
    QCOMPARE(text(), QStringLiteral("Some words that wrap in the box"));
    QVERIFY(!session()->isModified());
    QCOMPARE(canvas()->grab().toImage(), before);
}

void TestPageHost::saveInEditGoesOnWithEdit()
{
    QTemporaryDir folder;
    m_window->setTool(EditorTool::Text);
    drag({100, 150}, {340, 270});
    type(QStringLiteral("ac"));
    QTest::keyClick(m_window->view(), Qt::Key_Left);
    QString error;
    QVERIFY2(session()->save(folder.filePath(QStringLiteral("a.json")), error), qPrintable(error));
    QCOMPARE(session()->editedObject(), only());
    type(QStringLiteral("b"));
    QCOMPARE(text(), QStringLiteral("abc"));
}

void TestPageHost::brokenFileIsRefusedWithItsPlace()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("broken.json"));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": \"vxpage\",\n \"version\": 1,\n \"page\" }");
    file.close();
    QString error;
    QVERIFY(!PageSession::open(&m_loader, fileName, error));
    QVERIFY2(error.contains(QLatin1String("line 3")), qPrintable(error));
}

// Art texts

void TestPageHost::dragWithArtToolMakesArtText()
{
    CVXRootObject *art = drawArt({100, 150}, {340, 270});
    QCOMPARE(objects().size(), 1);
    QVERIFY(TextCommands::isArtText(art));
    QCOMPARE(art->getPos(), QPointF(100, 150));
    QCOMPARE(art->getSize(), QSizeF(240, 120));
    QVERIFY(art->isCreateFinished());
    QVERIFY(art->graphicsItem()->isSelected());
    QVERIFY(!session()->editedObject());
    QCOMPARE(m_framework->getCurrentTool(), int(EditorTool::Select));
    QVERIFY(m_window->findChild<QAction *>(QStringLiteral("selectTool"))->isChecked());
    QCOMPARE(session()->undoStack()->count(), 1);
    trigger("undo");
    QCOMPARE(objects().size(), 0);
    trigger("redo");
    QCOMPARE(only(), art);
    QCOMPARE(art->getSize(), QSizeF(240, 120));
}

void TestPageHost::dragUpwardsMakesTheSameArtText()
{
    CVXRootObject *art = drawArt({340, 270}, {100, 150});
    QCOMPARE(art->getPos(), QPointF(100, 150));
    QCOMPARE(art->getClientRect(), QRectF(0, 0, 240, 120));
}

void TestPageHost::clickWithArtToolMakesArtTextOf100By100()
{
    trigger("artTool");
    QCOMPARE(m_framework->getCurrentTool(), int(EditorTool::ArtText));
    QCOMPARE(canvas()->cursor().shape(), Qt::CrossCursor);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({100, 150}));
    QCOMPARE(objects().size(), 1);
    QCOMPARE(only()->getPos(), QPointF(100, 150));
    QCOMPARE(only()->getSize(), QSizeF(100, 100));
}

void TestPageHost::artToolDrawsAboveOtherObjects()
{
    m_window->setTool(EditorTool::Text);
    drag({100, 100}, {400, 300});
    type(QStringLiteral("below"));
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    session()->page()->scene()->clearSelection();
    CVXRootObject *art = drawArt({150, 150}, {250, 200});
    QCOMPARE(objects().size(), 2);
    QCOMPARE(objects().at(1), art);
    QCOMPARE(art->getSize(), QSizeF(100, 50));
    QCOMPARE(objects().at(0)->getPos(), QPointF(100, 100));
}

void TestPageHost::newArtTextShowsItsHint()
{
    const QRectF place(100, 150, 240, 120);
    CVXRootObject *art = drawArt(place.topLeft(), place.bottomRight());
    AttributeMap attributes;
    art->getAllAttributes(attributes);
    QCOMPARE(attributes.value(QStringLiteral("text")).toString(), QString());
    QCOMPARE(attributes.value(QStringLiteral("defaultword")).toString(),
             QStringLiteral("Please input text"));
    QCOMPARE(attributes.value(QStringLiteral("font_family")).toString(),
             QStringLiteral("DejaVu Sans"));
    session()->page()->scene()->clearSelection();
    const QRgb grey = qRgb(64, 64, 64);
    const QImage image = shown();
    int count = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y)
            count += image.pixel(x, y) == grey;
    }
    QVERIFY2(count > 1000, qPrintable(QString::number(count)));
}

void TestPageHost::escapeGivesUpDrawingOfArtText()
{
    m_window->setTool(EditorTool::ArtText);
    QTest::mousePress(canvas(), Qt::LeftButton, {}, at({100, 150}));
    QCOMPARE(objects().size(), 1);
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    QCOMPARE(objects().size(), 0);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, at({150, 200}));
    QCOMPARE(objects().size(), 0);
    QCOMPARE(session()->undoStack()->count(), 0);
}

void TestPageHost::doubleClickEditsArtText()
{
    const QRectF place(100, 150, 240, 120);
    CVXRootObject *art = drawArt(place.topLeft(), place.bottomRight());
    clickTwice(place.center());
    QCOMPARE(session()->editedObject(), art);
    type(QStringLiteral("art"));
    QCOMPARE(TextCommands::plainText(art), QStringLiteral("art"));
    QCOMPARE(TextObject::plainText(art), QString());
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({600, 500})); // away
    QVERIFY(!session()->editedObject());
    QVERIFY(!art->graphicsItem()->isSelected());
    QCOMPARE(TextObject::plainText(art), QStringLiteral("art"));
    QVERIFY(darkPixels(place) > 2000);
    // A second edit begins with the text; the pointer sets the caret.
    clickTwice(place.center());
    QTest::keyClick(m_window->view(), Qt::Key_Home, Qt::ControlModifier);
    type(QStringLiteral("p"));
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    QCOMPARE(TextObject::plainText(art), QStringLiteral("part"));
}

void TestPageHost::doubleClickEditsArtTextAmongManySelected()
{
    CVXRootObject *art = drawArt({100, 150}, {200, 250});
    CVXRootObject *other = drawArt({300, 150}, {400, 250});
    trigger("selectAll");
    clickTwice({150, 200});
    QCOMPARE(session()->editedObject(), art);
    QVERIFY(!other->graphicsItem()->isSelected());
}

void TestPageHost::editOfArtTextEnds_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"away", "Escape", "select tool", "other object", "undo"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void TestPageHost::editOfArtTextEnds()
{
    QFETCH(QString, way);
    CVXRootObject *other = drawArt({400, 150}, {500, 250});
    CVXRootObject *art = drawArt({100, 150}, {200, 250});
    clickTwice({150, 200});
    type(QStringLiteral("x"));
    QCOMPARE(session()->editedObject(), art);
    if (way == QLatin1String("away")) {
        QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({600, 500}));
    } else if (way == QLatin1String("Escape")) {
        QTest::keyClick(m_window->view(), Qt::Key_Escape);
        QVERIFY(art->graphicsItem()->isSelected());
    } else if (way == QLatin1String("select tool")) {
        trigger("selectTool");
    } else if (way == QLatin1String("other object")) {
        QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({450, 200}));
        QVERIFY(other->graphicsItem()->isSelected());
    } else {
        trigger("undo");
        QCOMPARE(TextObject::plainText(art), QString());
        trigger("redo");
    }
    QVERIFY(!session()->editedObject());
    QCOMPARE(TextObject::plainText(art), QStringLiteral("x"));
    // Keys go to the program again.
    QTest::keyClick(m_window->view(), Qt::Key_T);
    QCOMPARE(m_framework->getCurrentTool(), int(EditorTool::Text));
}

void TestPageHost::lockedArtTextIsNotEdited()
{
    CVXRootObject *art = drawArt({100, 150}, {200, 250});
    art->setLocked(true, /*undo=*/false, /*notify=*/true);
    clickTwice({150, 200});
    QVERIFY(!session()->editedObject());
    QVERIFY(!TextCommands::isEditing(art));
}

void TestPageHost::editOfArtTextIsUndoneAndRedone()
{
    const QRectF place(100, 150, 240, 120);
    CVXRootObject *art = writeArt(place, QStringLiteral("one"));
    clickTwice(place.center());
    QTest::keyClick(m_window->view(), Qt::Key_A, Qt::ControlModifier);
    type(QStringLiteral("two"));
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    QCOMPARE(session()->undoStack()->count(), 3); // drawn, written twice
    QCOMPARE(TextObject::plainText(art), QStringLiteral("two"));
    trigger("undo");
    QCOMPARE(TextObject::plainText(art), QStringLiteral("one"));
    QCOMPARE(QRectF(art->getPos(), art->getSize()), place);
    trigger("undo");
    QCOMPARE(TextObject::plainText(art), QString());
    trigger("undo");
    QCOMPARE(objects().size(), 0);
    for (int i = 0; i < 3; ++i)
        trigger("redo");
    QCOMPARE(only(), art);
    QCOMPARE(TextObject::plainText(art), QStringLiteral("two"));
    QTRY_COMPARE(m_window->findChild<QAction *>(QStringLiteral("undo"))->text(),
                 QStringLiteral("&Undo Change Text"));
}

void TestPageHost::editWithoutChangeLeavesNoStep()
{
    const QRectF place(100, 150, 240, 120);
    CVXRootObject *art = writeArt(place, QStringLiteral("one"));
    const int steps = session()->undoStack()->count();
    clickTwice(place.center());
    type(QStringLiteral("x"));
    QTest::keyClick(m_window->view(), Qt::Key_Backspace);
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    QCOMPARE(session()->undoStack()->count(), steps);
    QCOMPARE(TextObject::plainText(art), QStringLiteral("one"));
}

void TestPageHost::keysOfEditedArtTextDoNotReachMenus_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << 0 << QStringLiteral("ab");
    QTest::newRow("Delete") << int(Qt::Key_Delete) << 0 << QStringLiteral("abc");
    QTest::newRow("Ctrl+Z") << int(Qt::Key_Z) << int(Qt::ControlModifier) << QString();
    QTest::newRow("Ctrl+A") << int(Qt::Key_A) << int(Qt::ControlModifier) << QStringLiteral("abc");
    QTest::newRow("A") << int(Qt::Key_A) << 0 << QStringLiteral("abca");
    QTest::newRow("V") << int(Qt::Key_V) << 0 << QStringLiteral("abcv");
}

void TestPageHost::keysOfEditedArtTextDoNotReachMenus()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, expected);
    CVXRootObject *art = drawArt({100, 150}, {340, 270});
    clickTwice({200, 200});
    QInputMethodEvent whole;
    whole.setCommitString(QStringLiteral("abc"));
    QCoreApplication::sendEvent(m_window->view(), &whole); // one step of the text's own undo
    QCOMPARE(TextCommands::plainText(art), QStringLiteral("abc"));
    QTest::keyClick(m_window->view(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(session()->editedObject(), art);
    QCOMPARE(TextCommands::plainText(art), expected);
    QCOMPARE(m_framework->getCurrentTool(), int(EditorTool::Select));
}

void TestPageHost::composedChineseEntersArtText()
{
    CVXRootObject *art = drawArt({100, 150}, {340, 270});
    QVERIFY(!m_window->view()->testAttribute(Qt::WA_InputMethodEnabled));
    clickTwice({200, 200});
    QVERIFY(m_window->view()->testAttribute(Qt::WA_InputMethodEnabled));
    compose(QStringLiteral("ni'hao"));
    compose(QString(), QStringLiteral("你好"));
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at({600, 500}));
    QCOMPARE(TextObject::plainText(art), QStringLiteral("你好"));
}

void TestPageHost::menusActOnEditedArtText()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("mid"));
    CVXRootObject *art = drawArt({100, 150}, {340, 270});
    clickTwice({200, 200});
    type(QStringLiteral("ab"));
    QTest::keyClick(m_window->view(), Qt::Key_Left);
    trigger("paste");
    QCOMPARE(objects().size(), 1);
    QCOMPARE(TextCommands::plainText(art), QStringLiteral("amidb"));
    trigger("selectAll");
    trigger("copy");
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("amidb"));
    QCOMPARE(TextCommands::plainText(art), QStringLiteral("amidb"));
    trigger("cut");
    QCOMPARE(TextCommands::plainText(art), QString());
    trigger("paste");
    QTest::keyClick(m_window->view(), Qt::Key_Home);
    trigger("delete");
    QCOMPARE(TextCommands::plainText(art), QStringLiteral("midb"));
    QCOMPARE(session()->editedObject(), art);
}

void TestPageHost::artTextIsMovedAndResizedByDrag()
{
    CVXRootObject *art = writeArt({100, 150, 240, 120}, QStringLiteral("moved"));
    drag({220, 210}, {280, 250});
    QCOMPARE(art->getPos(), QPointF(160, 190));
    const QPointF corner = art->GetGraphicsItemPtr()->mapToScene(
        art->handlePosition(CObjAction::ACT_BottomRight));
    drag(corner, corner + QPointF(60, 40));
    QCOMPARE(art->getSize(), QSizeF(300, 160));
    drag(corner + QPointF(60, 40), art->getPos() + QPointF(1, 1));
    QCOMPARE(art->getSize(), QSizeF(6, 6));
    for (int i = 0; i < 3; ++i)
        trigger("undo");
    QCOMPARE(QRectF(art->getPos(), art->getSize()), QRectF(100, 150, 240, 120));
    QCOMPARE(TextObject::plainText(art), QStringLiteral("moved"));
}

void TestPageHost::copiedArtTextIsPastedBesideOriginal()
{
    CVXRootObject *original = writeArt({100, 150, 240, 120}, QStringLiteral("twice"));
    CVXRootObject *line = writeLine({100, 400}, QStringLiteral("line"));
    trigger("selectAll");
    trigger("copy");
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("twice\nline"));
    trigger("paste");
    QCOMPARE(objects().size(), 4);
    CVXRootObject *copy = objects().at(2);
    QVERIFY(TextCommands::isArtText(copy));
    QCOMPARE(TextObject::plainText(copy), QStringLiteral("twice"));
    QCOMPARE(copy->getPos(), original->getPos() + QPointF(16, 16));
    QCOMPARE(copy->getSize(), original->getSize());
    QVERIFY(TextCommands::isRichText(objects().at(3)));
    QCOMPARE(TextCommands::plainText(objects().at(3)), QStringLiteral("line"));
    trigger("cut");
    QCOMPARE(objects(), QList<CVXRootObject *>({original, line}));
}

void TestPageHost::modifiedMarkFollowsTypingInArtText()
{
    writeArt({100, 150, 240, 120}, QStringLiteral("x"));
    QTemporaryDir folder;
    QString error;
    QVERIFY2(session()->save(folder.filePath(QStringLiteral("a.vxpage")), error),
             qPrintable(error));
    QTRY_VERIFY(!m_window->isWindowModified());
    clickTwice({220, 210});
    QTRY_VERIFY(session()->editedObject());
    QVERIFY(!session()->isModified());
    type(QStringLiteral("y")); // the stack knows nothing of it yet
    QVERIFY(session()->isModified());
    QTest::keyClick(m_window->view(), Qt::Key_Backspace);
    QVERIFY(!session()->isModified());
}

void TestPageHost::saveInEditOfArtTextGoesOnWithEdit()
{
    QTemporaryDir folder;
    CVXRootObject *art = drawArt({100, 150}, {340, 270});
    clickTwice({200, 200});
    type(QStringLiteral("ac"));
    QTest::keyClick(m_window->view(), Qt::Key_Left);
    const QString fileName = folder.filePath(QStringLiteral("a.json"));
    QString error;
    QVERIFY2(session()->save(fileName, error), qPrintable(error));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("\"textWord\": \"ac\""));
    QCOMPARE(session()->editedObject(), art);
    QVERIFY(!session()->isModified());
    type(QStringLiteral("b"));
    QTest::keyClick(m_window->view(), Qt::Key_Escape);
    QCOMPARE(TextObject::plainText(art), QStringLiteral("abc"));
}

void TestPageHost::savedArtTextIsEqualAfterReopening_data()
{
    savedPageIsEqualAfterReopening_data();
}

void TestPageHost::savedArtTextIsEqualAfterReopening()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    const QString fileName = folder.filePath(name);
    writeArt({100, 150, 240, 120}, QStringLiteral("lettering"));
    writeLine({100, 400}, QStringLiteral("line"));
    session()->page()->scene()->clearSelection();
    const QImage before = shown();
    QString error;
    QVERIFY2(session()->save(fileName, error), qPrintable(error));

    QVERIFY(m_window->openFile(fileName));
    QCOMPARE(objects().size(), 2);
    QCOMPARE(TextObject::plainText(only()), QStringLiteral("lettering"));
    QVERIFY(!session()->isModified());
    QCOMPARE(shown(), before);
    // And once more.
    const QString second = folder.filePath(QLatin1String("second-") + name);
    QVERIFY2(session()->save(second, error), qPrintable(error));
    QFile first(fileName);
    QFile again(second);
    QVERIFY(first.open(QIODevice::ReadOnly) && again.open(QIODevice::ReadOnly));
    QCOMPARE(again.readAll(), first.readAll());
}

void TestPageHost::pageThatGoesWithItsEditedArtTextIsNoHarm()
{
    writeArt({100, 150, 240, 120}, QStringLiteral("undone"));
    CVXRootObject *art = drawArt({100, 350}, {200, 450});
    clickTwice({150, 400});
    type(QStringLiteral("open"));
    QCOMPARE(session()->editedObject(), art);
    QPointer<QGraphicsObject> alive(art->GetGraphicsItemPtr()->toGraphicsObject());
    m_window.reset();
    QVERIFY(!alive);
}

void TestPageHost::styleOfSelectedArtTextsIsOneStep()
{
    const QRectF place(100, 150, 240, 120);
    CVXRootObject *first = writeArt(place, QStringLiteral("first"));
    const int dark = darkPixels(place);
    CVXRootObject *second = writeArt({100, 350, 240, 120}, QStringLiteral("second"));
    CVXRootObject *locked = writeArt({100, 550, 240, 120}, QStringLiteral("locked"));
    locked->setLocked(true, /*undo=*/false, /*notify=*/true);
    const auto shape = [](CVXRootObject *object) {
        AttributeMap attributes;
        object->getAllAttributes(attributes);
        return attributes.value(QStringLiteral("shape")).toInt();
    };
    session()->select(second);
    QCOMPARE(session()->artStyle(), 1);
    trigger("artStyle40");
    QCOMPARE(shape(second), 40);
    QCOMPARE(shape(first), 1);
    trigger("selectAll");
    QCOMPARE(session()->artStyle(), -1);
    const int steps = session()->undoStack()->count();
    trigger("artStyle2");
    QCOMPARE(session()->undoStack()->count(), steps + 1);
    QCOMPARE(shape(first), 2);
    QCOMPARE(shape(second), 2);
    QCOMPARE(shape(locked), 1);
    QVERIFY(darkPixels(place) != dark);
    trigger("undo");
    QCOMPARE(shape(first), 1);
    QCOMPARE(shape(second), 40);
    QCOMPARE(darkPixels(place), dark);
    trigger("redo");
    QCOMPARE(shape(first), 2);
    QCOMPARE(shape(second), 2);
    session()->page()->scene()->clearSelection();
    QCOMPARE(session()->artStyle(), -1);
    trigger("artStyle3"); // of nothing
    QCOMPARE(session()->undoStack()->count(), steps + 1);
}

// The program

void TestPageHost::missingLibraryEndsWithCode4_data()
{
    QTest::addColumn<bool>("hasDisplay");
    QTest::newRow("with a display") << true;
    QTest::newRow("without") << false;
}

void TestPageHost::missingLibraryEndsWithCode4()
{
    QFETCH(bool, hasDisplay);
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!hasDisplay) {
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QLatin1String(name));
    }
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(PAGEHOST_PROGRAM),
                  {QStringLiteral("--plugin"), QStringLiteral("/nowhere/libvxarttext.so.1")});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 4);
    const QByteArray message = program.readAllStandardError();
    QVERIFY2(message.contains("pagehost: The library of text objects cannot be loaded"),
             message.constData());
    QVERIFY2(message.contains("/nowhere/libvxarttext.so.1"), message.constData());
}

void TestPageHost::wrongUsageEndsWithCode2()
{
    QProcess program;
    program.start(QStringLiteral(PAGEHOST_PROGRAM), {QStringLiteral("--nonsense")});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 2);
    program.start(QStringLiteral(PAGEHOST_PROGRAM), {QStringLiteral("a"), QStringLiteral("b")});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 2);
}

QTEST_MAIN(TestPageHost)
#include "tst_pagehost.moc"
