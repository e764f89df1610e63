// SPDX-License-Identifier: MIT
// Composed text on the page: where the input method sees the caret, what ends a composition, and what of the
// text it may touch.
#include "tests/pagehost/objectwindow.h"

#include "app/page/textobject.h"

#include <QGraphicsItem>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class TestComposing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_window.reset(); }

    void preeditStandsAtTheCaret();
    void eventWithCommitAndPreeditLosesNeither();
    void inputMethodSeesThePaintedCaret_data();
    void inputMethodSeesThePaintedCaret();
    void inputMethodHearsThatTheCaretMoves();
    void inputMethodIsNotToldWhatItCannotReplace();
    void compositionEndsCleanly_data();
    void compositionEndsCleanly();
    void undoTakesBackAWholeComposition();
    void menusUndoKeepsACompositionForRedo();
    void eventsForADeletedTextDoNothing();
    void compositionInArtTextEndsCleanly();

private:
    ObjectWindow &window() { return *m_window; }
    PageView *view() { return m_window->view(); }
    CVXRootObject *editBox(const QString &words = QString());
    void compose(const QString &preedit, const QString &commit = QString());
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(view(), key, modifiers);
    }
    QImage shown() { return m_window->canvas()->grab().toImage(); }
    void endComposition(const QString &act);

    PluginLoader m_loader;
    std::unique_ptr<ObjectWindow> m_window;
};

namespace {
/// What differs between two pictures of one size.
QRect difference(const QImage &a, const QImage &b)
{
    QRect rect;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}
} // namespace

void TestComposing::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestComposing::init()
{
    m_window = std::make_unique<ObjectWindow>(&m_loader);
}

CVXRootObject *TestComposing::editBox(const QString &words)
{
    return window().startBox({100, 100, 300, 120}, words);
}

void TestComposing::compose(const QString &preedit, const QString &commit)
{
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(view(), &event);
}

void TestComposing::preeditStandsAtTheCaret()
{
    editBox(QStringLiteral("abcd"));
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    compose(QStringLiteral("ni"));
    QCOMPARE(window().text(0), QStringLiteral("abnicd"));
    compose(QStringLiteral("nih"));
    QCOMPARE(window().text(0), QStringLiteral("abnihcd"));
    compose(QString(), QStringLiteral("你"));
    QCOMPARE(window().text(0), QStringLiteral("ab你cd"));
    QTest::keyClicks(view(), QStringLiteral("x"));
    QCOMPARE(window().text(0), QStringLiteral("ab你xcd"));
}

void TestComposing::eventWithCommitAndPreeditLosesNeither()
{
    editBox(QStringLiteral("a"));
    compose(QStringLiteral("nihao"));
    compose(QStringLiteral("hao"), QStringLiteral("你"));
    QCOMPARE(window().text(0), QStringLiteral("a你hao"));
    compose(QString(), QStringLiteral("好"));
    QCOMPARE(window().text(0), QStringLiteral("a你好"));
}

void TestComposing::inputMethodSeesThePaintedCaret_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<double>("angle");
    QTest::addColumn<bool>("columns");
    QTest::newRow("as it is") << 1.0 << 0.0 << false;
    QTest::newRow("large") << 4.0 << 0.0 << false;
    QTest::newRow("small") << 0.5 << 0.0 << false;
    QTest::newRow("turned") << 1.0 << 90.0 << false;
    QTest::newRow("aslant, large") << 3.0 << 30.0 << false;
    QTest::newRow("upside down") << 2.0 << 180.0 << false;
    QTest::newRow("columns") << 2.0 << 0.0 << true;
}

void TestComposing::inputMethodSeesThePaintedCaret()
{
    QFETCH(double, zoom);
    QFETCH(double, angle);
    QFETCH(bool, columns);
    CVXRootObject *box = window().writeBox({200, 150, 200, 120}, QStringLiteral("so"));
    if (columns)
        box->setAllAttributes({{QStringLiteral("text_horizontal"), false}}, /*withUndo=*/false);
    box->rotateObj(angle, /*undo=*/false);
    view()->setZoom(zoom);
    view()->centerOn(box->GetGraphicsItemPtr());
    view()->verticalScrollBar()->setValue(view()->verticalScrollBar()->value() + 30); // panned
    TextObject::beginEdit(box);
    press(Qt::Key_End); // no letter and no handle hides a part of the caret
    QVERIFY(view()->hasFocus());
    const QImage with = shown();
    const QRect told = view()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    view()->clearFocus(); // hides the caret, and nothing else
    const QRect caret = difference(with, shown());
    QVERIFY(!caret.isEmpty());
    const auto print = [](const QRect &r) {
        return QStringLiteral("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    };
    const QByteArray found = (print(caret) + QLatin1String(" for ") + print(told)).toUtf8();
    QVERIFY2(told.adjusted(-3, -3, 3, 3).contains(caret), found);
    QVERIFY2(caret.adjusted(-3, -3, 3, 3).contains(told), found);
}

/// Otherwise the candidates would stay where the composition has begun.
void TestComposing::inputMethodHearsThatTheCaretMoves()
{
    editBox(QStringLiteral("ab"));
    window().canvas()->repaint();
    window().settle();
    const QInputMethod *method = QGuiApplication::inputMethod();
    const QSignalSpy moves(method, &QInputMethod::cursorRectangleChanged);
    const auto isHeard = [&](const std::function<void()> &move) {
        const int before = moves.count();
        move();
        window().canvas()->repaint();
        window().settle();
        const QRect caret = view()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        const QPoint inWindow = view()->mapTo(window().window(), caret.topLeft());
        return moves.count() > before && method->cursorRectangle().toRect().topLeft() == inWindow;
    };
    QVERIFY(isHeard([&] { compose(QStringLiteral("nihao")); }));
    QVERIFY(isHeard([&] { press(Qt::Key_Home); }));
    QVERIFY(isHeard([&] { view()->setZoom(2.5); }));
    QVERIFY(isHeard(
        [&] { view()->verticalScrollBar()->setValue(view()->verticalScrollBar()->value() + 20); }));
    const int before = moves.count();
    window().canvas()->repaint();
    window().settle();
    QCOMPARE(moves.count(), before); // a caret that only blinks is no news
}

void TestComposing::inputMethodIsNotToldWhatItCannotReplace()
{
    editBox(QStringLiteral("ab"));
    for (Qt::InputMethodQuery query : {Qt::ImSurroundingText, Qt::ImCursorPosition,
                                       Qt::ImAnchorPosition, Qt::ImCurrentSelection})
        QVERIFY(!view()->inputMethodQuery(query).isValid());
    QInputMethodQueryEvent enabled(Qt::ImEnabled | Qt::ImHints);
    QCoreApplication::sendEvent(view(), &enabled);
    QCOMPARE(enabled.value(Qt::ImEnabled).toBool(), true);
    QCOMPARE(enabled.value(Qt::ImHints).toInt(), int(Qt::ImhMultiLine));
}

// End of a composition

void TestComposing::compositionEndsCleanly_data()
{
    QTest::addColumn<QString>("act");
    for (const char *act : {"click in the text", "click outside", "focus to a field",
                            "focus to another window", "Escape", "tool", "save", "arrow", "zoom"})
        QTest::newRow(act) << QString::fromLatin1(act);
}

void TestComposing::endComposition(const QString &act)
{
    const QPoint inText = window().at({110, 115});
    if (act == QLatin1String("click in the text")) {
        QTest::mouseClick(window().canvas(), Qt::LeftButton, {}, inText);
    } else if (act == QLatin1String("click outside")) {
        QTest::mouseClick(window().canvas(), Qt::LeftButton, {}, window().at({500, 400}));
    } else if (act == QLatin1String("focus to a field")) {
        auto *field = window().window()->findChild<QLineEdit *>();
        QVERIFY(field);
        field->setFocus();
        view()->setFocus();
    } else if (act == QLatin1String("focus to another window")) {
        QWidget other;
        other.show();
        QApplication::setActiveWindow(&other);
        QVERIFY(!view()->hasFocus());
        QApplication::setActiveWindow(window().window());
        view()->setFocus();
    } else if (act == QLatin1String("Escape")) {
        press(Qt::Key_Escape);
    } else if (act == QLatin1String("tool")) {
        window().trigger("selectTool");
    } else if (act == QLatin1String("save")) {
        QTemporaryDir folder;
        QString error;
        QVERIFY(window().session()->save(folder.filePath(QStringLiteral("page.json")), error));
    } else if (act == QLatin1String("arrow")) {
        press(Qt::Key_Left);
    } else if (act == QLatin1String("zoom")) {
        window().trigger("zoomIn");
        compose(QString(), QStringLiteral("ni")); // goes on
    }
}

/// The composed text stays, whatever the input method says afterwards and whichever key comes.
void TestComposing::compositionEndsCleanly()
{
    QFETCH(QString, act);
    CVXRootObject *box = editBox(QStringLiteral("real "));
    compose(QStringLiteral("n"));
    compose(QStringLiteral("ni"));
    endComposition(act);
    QCOMPARE(window().text(0), QStringLiteral("real ni"));
    compose(QString()); // of an input method that has been reset
    QCOMPARE(window().text(0), QStringLiteral("real ni"));
    if (!window().session()->editedObject())
        TextObject::beginEdit(box);
    press(Qt::Key_End);
    press(Qt::Key_Backspace);
    QCOMPARE(window().text(0), QStringLiteral("real n"));
    compose(QStringLiteral("ha"));
    compose(QString());
    QTest::keyClicks(view(), QStringLiteral("!"));
    QCOMPARE(window().text(0), QStringLiteral("real n!"));
}

void TestComposing::undoTakesBackAWholeComposition()
{
    editBox();
    compose(QString(), QStringLiteral("real"));
    compose(QStringLiteral("n"));
    compose(QStringLiteral("ni"));
    press(Qt::Key_Z, Qt::ControlModifier); // in the midst of it
    QCOMPARE(window().text(0), QStringLiteral("real"));
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(window().text(0), QStringLiteral("realni"));
    compose(QStringLiteral("h"));
    compose(QStringLiteral("ha"));
    compose(QString(), QStringLiteral("好"));
    QCOMPARE(window().text(0), QStringLiteral("realni好"));
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window().text(0), QStringLiteral("realni"));
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window().text(0), QStringLiteral("real"));
}

void TestComposing::menusUndoKeepsACompositionForRedo()
{
    editBox(QStringLiteral("real"));
    compose(QStringLiteral("ni"));
    window().trigger("undo");
    QCOMPARE(window().text(0), QString());
    compose(QStringLiteral("x")); // no text hears it
    QCOMPARE(window().text(0), QString());
    window().trigger("redo");
    QCOMPARE(window().text(0), QStringLiteral("realni"));
}

void TestComposing::eventsForADeletedTextDoNothing()
{
    editBox(QStringLiteral("gone"));
    compose(QStringLiteral("ni"));
    window().session()->removeSelected(); // as the list of objects does
    QCOMPARE(window().objects().size(), 0);
    compose(QStringLiteral("nih"));
    compose(QString(), QStringLiteral("你"));
    QCOMPARE(window().objects().size(), 0);
    window().trigger("undo");
    QCOMPARE(window().text(0), QStringLiteral("goneni"));

    TextObject::beginEdit(window().objects().at(0));
    press(Qt::Key_End);
    compose(QStringLiteral("ha"));
    window().session()->page()->removeObject(window().objects().at(0)); // with its edit
    compose(QStringLiteral("hao"));
    QTest::keyClicks(view(), QStringLiteral("q"));
    QCOMPARE(window().objects().size(), 0);
    window().trigger("undo");
    window().trigger("redo");
}

/// The input method keeps the preedit of an art text to itself: what is not committed goes.
void TestComposing::compositionInArtTextEndsCleanly()
{
    window().window()->setTool(EditorTool::ArtText);
    window().drag(window().at({100, 100}), window().at({400, 220}));
    CVXRootObject *art = window().objects().at(0);
    const auto beginEditOf = [this](CVXRootObject *object) {
        if (window().session()->editedObject())
            return;
        window().session()->select(object);
        TextCommands::beginEdit(object);
    };
    for (const char *act : {"click outside", "Escape", "focus to a field"}) {
        beginEditOf(art);
        press(Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(view(), QStringLiteral("real"));
        compose(QStringLiteral("ni"));
        endComposition(QString::fromLatin1(act));
        compose(QString());
        beginEditOf(art);
        press(Qt::Key_End);
        press(Qt::Key_Backspace);
        QTest::keyClicks(view(), QStringLiteral("m"));
        press(Qt::Key_Escape);
        QVERIFY2(window().text(0) == QLatin1String("ream"), act);
    }
}

QTEST_MAIN(TestComposing)

#include "tst_composing.moc"
