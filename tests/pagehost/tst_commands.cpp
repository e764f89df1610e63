// SPDX-License-Identifier: MIT
// Commands of the menus: their keys, when they can be chosen, what they ask; and files dropped on the window.
#include "tests/pagehost/objectwindow.h"
#include "tests/pagehost/slowclock.h"

#include "app/pagehost/panelfields.h"

#include <QClipboard>
#include <QFile>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>

#include <memory>

class TestCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_window.reset(); }

    void everyKeyOfThePlatformWorks_data();
    void everyKeyOfThePlatformWorks();
    void lockedObjectsAreNotCut();
    void oneObjectAloneIsEditedByKey();
    void nothingIsPastedFromAnEmptyClipboard();
    void artStyleNeedsAnArtText();
    void typedTextLeavesNothingToRedo();
    void lockedTextSaysSo_data();
    void lockedTextSaysSo();

    void longTextIsPastedWhenWanted_data();
    void longTextIsPastedWhenWanted();
    void objectsBeyondTheLimitAreNotPasted();
    void slowPasteCanBeGivenUp();

    void droppedPageIsOpened();
    void otherFilesAreNotTaken_data();
    void otherFilesAreNotTaken();

    void typedNumberIsSavedToo();

private:
    ObjectWindow &window() { return *m_window; }
    void answer(QMessageBox::StandardButton button);
    bool drop(const QList<QUrl> &urls);

    PluginLoader m_loader;
    QTemporaryDir m_folder;
    std::unique_ptr<ObjectWindow> m_window;
    int m_questions = 0;
};

void TestCommands::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
}

void TestCommands::init()
{
    m_questions = 0;
    m_window = std::make_unique<ObjectWindow>(&m_loader);
}

/// The next question, once it is there.
void TestCommands::answer(QMessageBox::StandardButton button)
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this, timer, button] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        timer->deleteLater();
        ++m_questions;
        box->button(button)->click();
    });
    timer->start(0);
}

/// As a desktop does. True when the window takes them.
bool TestCommands::drop(const QList<QUrl> &urls)
{
    QMimeData data;
    data.setUrls(urls);
    const QPoint pos = window().canvas()->rect().center();
    QDragEnterEvent enter(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window().canvas(), &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent event(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window().canvas(), &event);
    window().settle();
    return true;
}

// Keys and states

void TestCommands::everyKeyOfThePlatformWorks_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("undo") << int(QKeySequence::Undo);
    QTest::newRow("redo") << int(QKeySequence::Redo);
    QTest::newRow("cut") << int(QKeySequence::Cut);
    QTest::newRow("copy") << int(QKeySequence::Copy);
    QTest::newRow("paste") << int(QKeySequence::Paste);
}

void TestCommands::everyKeyOfThePlatformWorks()
{
    QFETCH(int, key);
    const QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::StandardKey(key));
    QVERIFY(keys.size() > 1);
    QCOMPARE(window().action(QTest::currentDataTag())->shortcuts(), keys);
}

void TestCommands::lockedObjectsAreNotCut()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().writeBox({250, 50, 100, 60}, QStringLiteral("b"));
    window().select({0});
    window().trigger("lock");
    QVERIFY(!window().action("cut")->isEnabled());
    QVERIFY(!window().action("delete")->isEnabled());
    QVERIFY(window().action("copy")->isEnabled());
    window().select({0, 1});
    QVERIFY(window().action("cut")->isEnabled());
    QVERIFY(window().action("delete")->isEnabled());
}

void TestCommands::oneObjectAloneIsEditedByKey()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().writeBox({250, 50, 100, 60}, QStringLiteral("b"));
    QVERIFY(window().action("editText")->isEnabled());
    window().select({0, 1});
    QVERIFY(!window().action("editText")->isEnabled());
    window().select({});
    QVERIFY(!window().action("editText")->isEnabled());
}

void TestCommands::nothingIsPastedFromAnEmptyClipboard()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("words"));
    window().settle();
    QVERIFY(window().action("paste")->isEnabled());
    QVERIFY(window().action("pastePlain")->isEnabled());
    QGuiApplication::clipboard()->clear();
    window().settle();
    QVERIFY(!window().action("paste")->isEnabled());
    QVERIFY(!window().action("pastePlain")->isEnabled());
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().trigger("copy");
    QVERIFY(window().action("paste")->isEnabled());
}

void TestCommands::artStyleNeedsAnArtText()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    QVERIFY(!window().action("artStyle")->isEnabled());
    window().window()->setTool(EditorTool::ArtText);
    window().drag(window().at({200, 200}), window().at({400, 300}));
    window().settle();
    QVERIFY(window().action("artStyle")->isEnabled());
    window().trigger("lock");
    QVERIFY(!window().action("artStyle")->isEnabled());
}

void TestCommands::typedTextLeavesNothingToRedo()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    QTest::keyClick(window().view(), Qt::Key_Right);
    window().settle();
    window().trigger("undo");
    QVERIFY(window().action("redo")->isEnabled());
    window().trigger("editText");
    QTest::keyClicks(window().view(), QStringLiteral("x"));
    window().settle();
    QVERIFY(!window().action("redo")->isEnabled());
}

void TestCommands::lockedTextSaysSo_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("double click") << QStringLiteral("click");
    QTest::newRow("F2") << QStringLiteral("key");
    QTest::newRow("list") << QStringLiteral("list");
}

void TestCommands::lockedTextSaysSo()
{
    QFETCH(QString, way);
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().trigger("lock");
    if (way == QLatin1String("click")) {
        QTest::mouseDClick(window().canvas(), Qt::LeftButton, {}, window().at({100, 80}));
    } else if (way == QLatin1String("key")) {
        window().trigger("editText");
    } else {
        window().trigger("showObjects");
        auto *list = window().window()->findChild<QWidget *>(QStringLiteral("objectList"));
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
    }
    window().settle();
    QVERIFY(!window().session()->editedObject());
    QCOMPARE(window().window()->statusBar()->currentMessage(),
             QStringLiteral("The object is locked"));
}

// Large pastes

void TestCommands::longTextIsPastedWhenWanted_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("questions");
    QTest::addColumn<bool>("isPasted");
    QTest::newRow("short") << 1000 << int(QMessageBox::Cancel) << 0 << true;
    QTest::newRow("long, wanted") << 100001 << int(QMessageBox::Ok) << 1 << true;
    QTest::newRow("long, not wanted") << 100001 << int(QMessageBox::Cancel) << 1 << false;
}

void TestCommands::longTextIsPastedWhenWanted()
{
    QFETCH(int, length);
    QFETCH(int, button);
    QFETCH(int, questions);
    QFETCH(bool, isPasted);
    QGuiApplication::clipboard()->setText(QString(length, QLatin1Char('\n')) + QLatin1Char('x'));
    window().settle();
    answer(QMessageBox::StandardButton(button));
    window().trigger("pastePlain");
    QCOMPARE(m_questions, questions);
    QCOMPARE(window().objects().size(), isPasted ? 1 : 0);
    qDeleteAll(findChildren<QTimer *>()); // of an answer to no question
}

void TestCommands::objectsBeyondTheLimitAreNotPasted()
{
    auto *data = new QMimeData;
    data->setData(QStringLiteral("application/x-vxpage-objects"),
                  QByteArray(64 * 1024 * 1024 + 1, ' '));
    data->setText(QStringLiteral("all of it"));
    QGuiApplication::clipboard()->setMimeData(data);
    window().settle();
    answer(QMessageBox::Ok);
    window().trigger("paste");
    QCOMPARE(m_questions, 1);
    QVERIFY(window().objects().isEmpty());
    QGuiApplication::clipboard()->clear();
}

void TestCommands::slowPasteCanBeGivenUp()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    window().writeBox({250, 50, 100, 60}, QStringLiteral("b"));
    window().trigger("selectAll");
    window().trigger("copy");
    const int steps = window().steps()->index();
    {
        const SlowClock clock(BusySign::progressAfter);
        const ProgressWatch user(ProgressWatch::Manner::Cancels);
        window().trigger("paste");
        QCOMPARE(user.words(), QStringLiteral("Pasting"));
    }
    QCOMPARE(window().objects().size(), 2);
    QCOMPARE(window().steps()->index(), steps);
    window().trigger("paste");
    QCOMPARE(window().objects().size(), 4);
}

// Dropped files

void TestCommands::droppedPageIsOpened()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("kept"));
    const QString fileName = m_folder.filePath(QStringLiteral("dropped.vxpage"));
    QString error;
    QVERIFY2(window().session()->save(fileName, error), qPrintable(error));
    window().window()->takeSession(PageSession::create(&m_loader));
    window().writeBox({50, 50, 100, 60}, QStringLiteral("not saved"));
    answer(QMessageBox::Cancel);
    QVERIFY(drop({QUrl::fromLocalFile(fileName)}));
    QTRY_COMPARE(m_questions, 1);
    QCOMPARE(window().text(0), QStringLiteral("not saved"));
    answer(QMessageBox::Discard);
    QVERIFY(drop({QUrl::fromLocalFile(fileName)}));
    QTRY_COMPARE(window().session()->fileName(), fileName);
    QCOMPARE(window().texts(), QStringList{QStringLiteral("kept")});
}

void TestCommands::otherFilesAreNotTaken_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    const QUrl page = QUrl::fromLocalFile(QStringLiteral("/tmp/a.vxpage"));
    QTest::newRow("picture") << QList<QUrl>{QUrl::fromLocalFile(QStringLiteral("/tmp/a.png"))};
    QTest::newRow("two") << QList<QUrl>{page, page};
    QTest::newRow("of the net") << QList<QUrl>{QUrl(QStringLiteral("http://host/a.vxpage"))};
}

void TestCommands::otherFilesAreNotTaken()
{
    QFETCH(QList<QUrl>, urls);
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(window().window(), &enter);
    QVERIFY(!enter.isAccepted());
}

// Fields

void TestCommands::typedNumberIsSavedToo()
{
    CVXRootObject *box = window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    const QString fileName = m_folder.filePath(QStringLiteral("typed.vxpage"));
    QString error;
    QVERIFY2(window().session()->save(fileName, error), qPrintable(error));
    auto *field = window().window()->findChild<NumberField *>(QStringLiteral("x"));
    QVERIFY(field);
    for (QWidget *widget = field; widget; widget = widget->parentWidget()) {
        if (widget->inherits("QDockWidget"))
            widget->raise();
    }
    window().settle();
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("75"));
    window().trigger("save");
    QCOMPARE(box->getPos().x(), 75.0);
    QVERIFY(!window().session()->isModified());
}

QTEST_MAIN(TestCommands)

#include "tst_commands.moc"
