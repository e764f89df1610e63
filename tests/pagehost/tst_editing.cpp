// SPDX-License-Identifier: MIT
// Editing on the page: which keys belong to the text and which to the program, what an empty text leaves, what
// undo and redo bring back.
#include "tests/pagehost/objectwindow.h"

#include "app/page/textobject.h"
#include "host/framework/cundoredo.h"

#include <QCloseEvent>
#include <QInputMethodEvent>
#include <QRandomGenerator>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

namespace {
/// \param keys in the words of menus, with blanks in between: "Ctrl+A Delete"
void pressKeys(QWidget *widget, const QString &keys)
{
    for (const QString &key : keys.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const int code = QKeySequence(key, QKeySequence::PortableText)[0];
        QTest::keyClick(widget, Qt::Key(code & ~int(Qt::KeyboardModifierMask)),
                        Qt::KeyboardModifiers(code & int(Qt::KeyboardModifierMask)));
    }
}
} // namespace

class TestEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_window.reset(); }
    void init();

    // Keys
    void commandKeysBelongToTheText_data();
    void commandKeysBelongToTheText();
    void editingKeysBelongToTheText_data();
    void editingKeysBelongToTheText();
    void programKeysReachTheProgram_data();
    void programKeysReachTheProgram();

    // Empty texts
    void emptyTextLeavesNothing_data();
    void emptyTextLeavesNothing();
    void emptyTextLeavesTheStepsAheadOfIt();
    void emptyTextIsNoChangeOfThePage();

    // Undo
    void undoInEditTakesBackTypingFirst();
    void undoAndRedoSayWhatTheyDo();
    void randomTypingUndoAndRedoFollowAModel_data();
    void randomTypingUndoAndRedoFollowAModel();

private:
    ObjectWindow &window() { return *m_window; }
    PageView *view() { return m_window->view(); }
    void press(const QString &keys) { pressKeys(view(), keys); }

    PluginLoader m_loader;
    QTemporaryDir m_settings;
    std::unique_ptr<ObjectWindow> m_window;
    QStringList m_fired; ///< names of the commands that menus have carried out
};

void TestEditing::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    m_window = std::make_unique<ObjectWindow>(&m_loader);
    const QList<QAction *> actions = window().window()->findChildren<QAction *>();
    for (QAction *action : actions) {
        connect(action, &QAction::triggered, this,
                [this, action] { m_fired.append(action->objectName()); });
    }
}

void TestEditing::init()
{
    window().window()->takeSession(PageSession::create(&m_loader));
    view()->setZoom(1);
    QApplication::setActiveWindow(window().window()); // other windows may have been there
    view()->setFocus();
    window().settle();
    m_fired.clear();
}

// Keys

void TestEditing::commandKeysBelongToTheText_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QVariant>("value"); // of a text as the test prepares it
    const auto row = [](const char *keys, const char *attribute, const QVariant &value) {
        QTest::newRow(keys) << QString::fromLatin1(keys) << QString::fromLatin1(attribute) << value;
    };
    row("Ctrl+Shift+*", "text_superscript", true);
    row("Ctrl+Shift+Alt+*", "text_subscript", true);
    row("Ctrl+Shift+<", "font_pointsize", 22);
    row("Ctrl+Shift+Alt+<", "font_pointsize", 19);
    row("Ctrl+Shift+>", "font_pointsize", 26);
    row("Ctrl+Shift+Alt+>", "font_pointsize", 29);
    row("Ctrl+Shift+?", "font_italic", true);
    row("Ctrl+Shift+Alt+A", "font_rowspacing", 0);
    row("Ctrl+Shift+B", "font_bold", true);
    row("Ctrl+Shift+C", "textalignment", 4);
    row("Ctrl+Shift+F", "textalignment", 8);
    row("Ctrl+Shift+J", "textalignment", 0x200);
    row("Ctrl+Shift+K", "text_upper", true);
    row("Ctrl+Shift+C Ctrl+Shift+L", "textalignment", 1);
    row("Ctrl+Shift+Q", "selected_letterspacing", 0);
    row("Ctrl+Shift+R", "textalignment", 2);
    row("Ctrl+Shift+U", "font_underline", true);
    row("Ctrl+Shift+|", "font_strikeout", true);
    row("Alt+Left", "selected_letterspacing", 180);
    row("Ctrl+Alt+Left", "selected_letterspacing", 100);
    row("Alt+Right", "selected_letterspacing", 220);
    row("Ctrl+Alt+Right", "selected_letterspacing", 300);
    row("Alt+Up", "font_rowspacing", 39);
    row("Ctrl+Alt+Up", "font_rowspacing", 35);
    row("Alt+Shift+Up", "baseline_offset", 6);
    row("Alt+Down", "font_rowspacing", 41);
    row("Ctrl+Alt+Down", "font_rowspacing", 45);
    row("Alt+Shift+Down", "baseline_offset", 2);
}

void TestEditing::commandKeysBelongToTheText()
{
    QFETCH(QString, keys);
    QFETCH(QString, attribute);
    QFETCH(QVariant, value);
    CVXRootObject *box = window().startBox({50, 50, 300, 100}, QStringLiteral("abc"));
    press(QStringLiteral("Ctrl+A"));
    box->setAllAttributes({{QStringLiteral("selected_letterspacing"), 200.0},
                           {QStringLiteral("font_rowspacing"), 40.0},
                           {QStringLiteral("baseline_offset"), 4.0}},
                          /*withUndo=*/true);
    press(keys);
    AttributeMap attributes;
    box->getAllAttributes(attributes);
    QCOMPARE(attributes.value(attribute).toDouble(), value.toDouble());
    QCOMPARE(m_fired, QStringList());
    QCOMPARE(window().session()->editedObject(), box);
    QCOMPARE(window().text(0), QStringLiteral("abc"));
}

void TestEditing::editingKeysBelongToTheText_data()
{
    QTest::addColumn<QString>("keys"); // in "one two" with the caret at its end
    QTest::addColumn<QString>("text");
    const auto row = [](const char *keys, const char *text) {
        QTest::newRow(keys) << QString::fromLatin1(keys) << QString::fromLatin1(text);
    };
    row("Delete", "one two");
    row("Home Delete", "ne two");
    row("Backspace", "one tw");
    row("Left Left Delete", "one to");
    row("Home Right Right X", "onxe two");
    row("Home End X", "one twox");
    row("Ctrl+Home X", "xone two");
    row("Ctrl+Home Ctrl+End X", "one twox");
    row("Shift+Home Delete", "");
    row("Shift+Left Shift+Left X", "one tx");
    row("Home Down Up X", "xone two");
    row("Home Return", "\none two");
    row("Tab", "one two\t");
    row("Ctrl+A Delete", "");
    row("Ctrl+A Backspace", "");
    row("Ctrl+A Ctrl+X", "");
    row("Ctrl+A Ctrl+X Ctrl+V Ctrl+V", "one twoone two");
    row("Ctrl+A Ctrl+C End Ctrl+V", "one twoone two");
    row("Home X Ctrl+Z", "one two");
    row("Home X Ctrl+Z Ctrl+Shift+Z", "xone two");
    row("V", "one twov"); // keys of the tools
    row("T", "one twot");
    row("A", "one twoa");
    row("Space", "one two ");
    row("Delete Delete Home Delete", "ne two");
}

void TestEditing::editingKeysBelongToTheText()
{
    QFETCH(QString, keys);
    QFETCH(QString, text);
    CVXRootObject *box = window().startBox({50, 50, 300, 100}, QString());
    QInputMethodEvent words;
    words.setCommitString(QStringLiteral("one two"));
    QCoreApplication::sendEvent(view(), &words);
    press(keys);
    QCOMPARE(window().text(0), text);
    QCOMPARE(m_fired, QStringList());
    QCOMPARE(window().session()->editedObject(), box);
}

void TestEditing::programKeysReachTheProgram_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("command");
    const auto row = [](const char *key, const char *command) {
        QTest::newRow(key) << QString::fromLatin1(key) << QString::fromLatin1(command);
    };
    row("Ctrl+S", "save");
    row("Ctrl+Shift+S", "saveAs");
    row("Ctrl+N", "new");
    row("Ctrl+O", "open");
    row("Ctrl+Q", "quit");
    row("Ctrl+E", "export");
    row("Ctrl+P", "print");
    row("F11", "fullScreen");
    row("F7", "showObjects");
    row("Ctrl++", "zoomIn");
    row("Ctrl+=", "zoomIn");
    row("Ctrl+-", "zoomOut");
    row("Ctrl+0", "zoomNormal");
    row("Ctrl+9", "fitPage");
    row("Ctrl+8", "fitSelection");
    row("Ctrl+Shift+V", "pastePlain");
}

/// The command itself is not carried out: many ask.
void TestEditing::programKeysReachTheProgram()
{
    QFETCH(QString, key);
    QFETCH(QString, command);
    ObjectWindow own(&m_loader);
    auto *const action = own.window()->findChild<QAction *>(command);
    QVERIFY(action);
    action->disconnect();
    const QSignalSpy fired(action, &QAction::triggered);
    CVXRootObject *box = own.startBox({50, 50, 300, 100}, QStringLiteral("abc"));
    pressKeys(own.view(), key);
    QCOMPARE(fired.count(), 1);
    QCOMPARE(own.session()->editedObject(), box);
    QCOMPARE(own.text(0), QStringLiteral("abc"));
}

// Empty texts

void TestEditing::emptyTextLeavesNothing_data()
{
    QTest::addColumn<bool>("isBox");
    QTest::addColumn<QString>("end");
    for (const char *end :
         {"Escape", "click outside", "select tool", "text tool", "art tool", "save", "menu's undo",
          "typed and removed", "commands", "given up composition"}) {
        QTest::addRow("click, %s", end) << false << QString::fromLatin1(end);
        QTest::addRow("drag, %s", end) << true << QString::fromLatin1(end);
    }
}

void TestEditing::emptyTextLeavesNothing()
{
    QFETCH(bool, isBox);
    QFETCH(QString, end);
    window().window()->setTool(EditorTool::Text);
    if (isBox)
        window().drag(window().at({100, 100}), window().at({300, 200}));
    else
        QTest::mouseClick(window().canvas(), Qt::LeftButton, {}, window().at({100, 100}));
    window().settle();
    QCOMPARE(window().objects().size(), 1);
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("page.json"));
    if (end == QLatin1String("click outside")) {
        QTest::mouseClick(window().canvas(), Qt::LeftButton, {}, window().at({500, 450}));
    } else if (end.endsWith(QLatin1String(" tool"))) {
        window().trigger(QByteArray(end.section(QLatin1Char(' '), 0, 0).toLatin1() + "Tool"));
    } else if (end == QLatin1String("save")) {
        QString error;
        QVERIFY2(window().session()->save(fileName, error), qPrintable(error));
        QFile file(fileName);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(!file.readAll().contains("record"));
    } else if (end == QLatin1String("menu's undo")) {
        window().trigger("undo");
    } else if (end == QLatin1String("typed and removed")) {
        press(QStringLiteral("A B Backspace Backspace Escape"));
    } else if (end == QLatin1String("commands")) {
        press(QStringLiteral("Ctrl+Shift+B Ctrl+Shift+> Ctrl+Shift+C Escape"));
    } else if (end == QLatin1String("given up composition")) {
        QInputMethodEvent composing(QStringLiteral("ni"), {});
        QCoreApplication::sendEvent(view(), &composing);
        QInputMethodEvent nothing;
        QCoreApplication::sendEvent(view(), &nothing);
        press(QStringLiteral("Escape"));
    } else {
        press(end);
    }
    window().settle();
    QCOMPARE(window().objects().size(), 0);
    QCOMPARE(window().steps()->count(), 0);
    QVERIFY(!window().session()->isModified());
    QVERIFY(!window().session()->editedObject());
    window().trigger("undo");
    window().trigger("redo");
    QCOMPARE(window().objects().size(), 0);
}

void TestEditing::emptyTextLeavesTheStepsAheadOfIt()
{
    window().writeBox({50, 50, 100, 60}, QStringLiteral("a"));
    const int steps = window().steps()->index();
    window().startBox({200, 200, 100, 60}, QString());
    press(QStringLiteral("Escape"));
    window().settle();
    QCOMPARE(window().steps()->count(), steps);
    QCOMPARE(window().texts(), QStringList(QStringLiteral("a")));
    window().trigger("undo");
    QCOMPARE(window().texts(), QStringList(QString()));
}

void TestEditing::emptyTextIsNoChangeOfThePage()
{
    window().startBox({200, 200, 100, 60}, QString());
    QVERIFY(!window().session()->isModified());
    QCloseEvent close; // would ask
    bool isAsked = false;
    QTimer::singleShot(0, this, [&isAsked] {
        if (QWidget *question = QApplication::activeModalWidget()) {
            isAsked = true;
            question->close();
        }
    });
    QCoreApplication::sendEvent(window().window(), &close);
    window().settle();
    QVERIFY(!isAsked);
    QVERIFY(close.isAccepted());
    QCOMPARE(window().objects().size(), 0);

    window().startBox({200, 200, 100, 60}, QStringLiteral("a"));
    QVERIFY(window().session()->isModified());
    press(QStringLiteral("Backspace"));
    QVERIFY(!window().session()->isModified());
}

// Undo

void TestEditing::undoInEditTakesBackTypingFirst()
{
    window().writeBox({50, 50, 300, 100}, QStringLiteral("one"));
    const int steps = window().steps()->index();
    TextObject::beginEdit(window().objects().at(0));
    press(QStringLiteral("End X Y Ctrl+Z"));
    QCOMPARE(window().text(0), QStringLiteral("one"));
    QCOMPARE(window().steps()->index(), steps);
    press(QStringLiteral("Ctrl+Shift+Z"));
    QCOMPARE(window().text(0), QStringLiteral("onexy"));
    window().trigger("undo"); // ends the edit
    QVERIFY(!window().session()->editedObject());
    QCOMPARE(window().text(0), QStringLiteral("one"));
    window().trigger("redo");
    QCOMPARE(window().text(0), QStringLiteral("onexy"));
}

void TestEditing::undoAndRedoSayWhatTheyDo()
{
    const auto shown = [this](const char *name) { return window().action(name)->text(); };
    window().writeBox({50, 50, 300, 100}, QStringLiteral("one"));
    QTest::keyClick(view(), Qt::Key_Right);
    window().settle();
    QCOMPARE(shown("undo"), QStringLiteral("&Undo Move"));
    TextObject::beginEdit(window().objects().at(0));
    window().settle();
    QCOMPARE(shown("undo"), QStringLiteral("&Undo Move"));
    QCOMPARE(shown("redo"), QStringLiteral("&Redo"));
    press(QStringLiteral("X"));
    window().settle();
    QCOMPARE(shown("undo"), QStringLiteral("&Undo Change Text"));
    press(QStringLiteral("Ctrl+Z"));
    window().settle();
    QCOMPARE(shown("undo"), QStringLiteral("&Undo Move"));
    QCOMPARE(shown("redo"), QStringLiteral("&Redo Change Text"));
    window().trigger("redo");
    QCOMPARE(window().text(0).size(), 4);
    window().trigger("undo");
    QCOMPARE(shown("undo"), QStringLiteral("&Undo Move"));
    QCOMPARE(shown("redo"), QStringLiteral("&Redo Change Text"));
}

void TestEditing::randomTypingUndoAndRedoFollowAModel_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 12; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

namespace {
/// The history of one text, as its user understands it: a list of states, and one of them shown.
class TextHistory
{
public:
    explicit TextHistory(const QString &start)
        : m_states(start)
    {
    }
    const QString &shown() const { return m_states.at(m_index); }
    void add(const QString &state)
    {
        if (state == shown())
            return;
        m_states = m_states.mid(0, m_index + 1);
        m_states.append(state);
        ++m_index;
    }
    void undo() { m_index = qMax(0, m_index - 1); }
    void redo() { m_index = qMin(m_states.size() - 1, m_index + 1); }

private:
    QStringList m_states;
    int m_index = 0;
};
} // namespace

/// Words are typed, composed and removed, taken back and brought back, in edits that end in all ways.
void TestEditing::randomTypingUndoAndRedoFollowAModel()
{
    QFETCH(uint, seed);
    QRandomGenerator random(seed);
    CVXRootObject *box = window().writeBox({50, 50, 400, 300}, QStringLiteral("start"));
    window().steps()->clear(); // the model begins here
    TextHistory page(QStringLiteral("start"));
    QString typed = page.shown();
    const auto edit = [&] {
        if (!window().session()->editedObject())
            TextObject::beginEdit(box);
        press(QStringLiteral("Ctrl+A Right End"));
    };
    for (int action = 0; action < 40; ++action) {
        const int kind = random.bounded(7);
        if (kind == 0 || kind == 1) {
            edit();
            const QString letter(QLatin1Char(char('a' + random.bounded(26))));
            QTest::keyClicks(view(), letter);
            typed += letter;
        } else if (kind == 2) {
            edit();
            QInputMethodEvent preedit(QStringLiteral("ni"), {});
            QCoreApplication::sendEvent(view(), &preedit);
            QInputMethodEvent commit;
            commit.setCommitString(QStringLiteral("你"));
            QCoreApplication::sendEvent(view(), &commit);
            typed += QStringLiteral("你");
        } else if (kind == 3 && !typed.isEmpty()) {
            edit();
            press(QStringLiteral("Backspace"));
            typed.chop(1);
        } else if (kind == 4) { // there and back again
            edit();
            press(QStringLiteral("x Ctrl+Z Ctrl+Shift+Z"));
            typed += QLatin1Char('x');
        } else if (kind == 5) {
            press(QStringLiteral("Escape"));
            page.add(typed);
        } else if (kind == 6) {
            page.add(typed);
            const bool forward = random.bounded(2) == 1;
            window().trigger(forward ? "redo" : "undo");
            forward ? page.redo() : page.undo();
            typed = page.shown();
        }
        QCOMPARE(window().text(0), typed);
    }
}

QTEST_MAIN(TestEditing)

#include "tst_editing.moc"
