// SPDX-License-Identifier: MIT
// No work is lost: whatever changes a page is a step, makes the page a modified one, and comes back.
#include "tests/pagehost/objectwindow.h"

#include "app/page/textobject.h"
#include "app/pagehost/objectlist.h"
#include "app/pagehost/panels.h"
#include "app/pagehost/textselection.h"

#include <QGraphicsTextItem>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QListWidget>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextCursor>

#include <cmath>
#include <functional>

namespace {

constexpr auto ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;

/// What is seen of an object.
struct ObjectState {
    QString text;
    QJsonArray blocks, runs;
    QPointF pos;
    QSizeF size;
    double rotation = 0;

    static ObjectState of(CVXRootObject *object)
    {
        const QString data = TextCommands::documentString(object);
        const QJsonObject document = QJsonDocument::fromJson(data.toUtf8()).object();
        return {TextCommands::plainText(object),
                document.value(QLatin1String("block")).toArray(),
                document.value(QLatin1String("fragment")).toArray(),
                object->getPos(),
                object->getSize(),
                object->getRotate()};
    }
    /// Places may lose a little on the way through sums.
    QString differenceTo(const ObjectState &other) const
    {
        constexpr double tolerance = 0.05;
        if (text != other.text)
            return QStringLiteral("'%1', not '%2'").arg(text, other.text);
        if (blocks != other.blocks || runs != other.runs)
            return QStringLiteral("formats of '%1'").arg(text);
        const QPointF way = pos - other.pos;
        const QSizeF growth = size - other.size;
        if (std::hypot(way.x(), way.y()) > tolerance)
            return QStringLiteral("'%1' lies off by %2, %3").arg(text).arg(way.x()).arg(way.y());
        if (std::hypot(growth.width(), growth.height()) > tolerance)
            return QStringLiteral("'%1' is larger by %2, %3")
                .arg(text)
                .arg(growth.width())
                .arg(growth.height());
        return std::abs(rotation - other.rotation) > tolerance ? QStringLiteral("rotation")
                                                               : QString();
    }
};

using PageState = QVector<ObjectState>;

PageState stateOf(const Page *page)
{
    PageState state;
    for (CVXRootObject *object : page->objects())
        state.append(ObjectState::of(object));
    return state;
}

/// Empty for pages that look the same.
QString difference(const PageState &now, const PageState &wanted)
{
    if (now.size() != wanted.size())
        return QStringLiteral("%1 objects, not %2").arg(now.size()).arg(wanted.size());
    for (int i = 0; i < now.size(); ++i) {
        const QString differs = now.at(i).differenceTo(wanted.at(i));
        if (!differs.isEmpty())
            return differs;
    }
    return {};
}

PageState stateOf(const ObjectWindow &window)
{
    return stateOf(window.session()->page());
}

void enter(ObjectWindow &window, CVXRootObject *object)
{
    window.session()->select(object);
    window.view()->setFocus();
    TextCommands::beginEdit(object);
    window.settle();
}

QVariant attribute(CVXRootObject *object, const char *key)
{
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    return attributes.value(QLatin1String(key));
}

QPoint handlePoint(const ObjectWindow &window, CVXRootObject *object, int handle)
{
    return window.at(object->GetGraphicsItemPtr()->mapToScene(object->handlePosition(handle)));
}

/// In the margin above an edited text.
QPoint marginPoint(const ObjectWindow &window, CVXRootObject *object)
{
    const QRectF box = object->getClientRect();
    return window.at(
        object->GetGraphicsItemPtr()->mapToScene(box.left() + box.width() / 3, box.top() - 25));
}

void press(ObjectWindow &window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(window.view(), key, modifiers);
}

void moveTo(ObjectWindow &window, const QPoint &pos)
{
    QMouseEvent move(QEvent::MouseMove, pos, window.canvas()->mapToGlobal(pos), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.canvas(), &move);
}

const QRectF firstPlace(100, 120, 200, 80);
const QRectF secondPlace(100, 400, 200, 80);

} // namespace

class TestKeptWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void paragraphCommandAtCaretIsKept_data();
    void paragraphCommandAtCaretIsKept();
    void paragraphCommandTakenBackInEditLeavesNothing();
    void wordsRetypedInAnotherFormatAreKept();
    void directionOfPanelIsAStepOfTheEdit();
    void textMovedByItsMarginIsAStep();
    void resizeWithinEditIsUndoneWithinEdit();
    void typingIsUndoneBehindTheResizeThatCameAfterIt();
    void escapeGivesUpDragOfSeveralObjects();
    void escapeGivesUpResizeWithinEdit();
    void companionIsRecordedThoughItIsDeselected();
    void stretchedBoxWithoutWordsKeepsItsSize();
    void abandonedTextLeavesWhatIsToBeRedone();
    void wordsOfNewTextAreUndoneAfterItsFormats();
    void undoKeyGoesOnToThePage();
    void undoKeyLosesNothingTyped();
    void redoKeyGoesOnToThePage();
    void deleteAndSelectAllReachTheEditFromElsewhere();
    void deleteOfTheListIsItsOwn();
    void textThatIsDroppedLeavesTheKeysToTheProgram();
    void randomWorkIsKept_data();
    void randomWorkIsKept();

private:
    PluginLoader m_loader;
};

void TestKeptWork::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestKeptWork::paragraphCommandAtCaretIsKept_data()
{
    QTest::addColumn<int>("key"); // 0: by a panel
    QTest::addColumn<AttributeMap>("attributes");
    QTest::addColumn<QString>("attribute");
    QTest::newRow("centre by key") << int(Qt::Key_C) << AttributeMap() << "textalignment";
    QTest::newRow("right by key") << int(Qt::Key_R) << AttributeMap() << "textalignment";
    QTest::newRow("centre by panel")
        << 0 << AttributeMap{{QStringLiteral("textalignment"), 4}} << "textalignment";
    QTest::newRow("indent by panel")
        << 0 << AttributeMap{{QStringLiteral("paragraph_left_indent"), 20.0}}
        << "paragraph_left_indent";
    QTest::newRow("space by panel")
        << 0 << AttributeMap{{QStringLiteral("paragraph_before_space"), 10.0}}
        << "paragraph_before_space";
}

void TestKeptWork::paragraphCommandAtCaretIsKept()
{
    QFETCH(int, key);
    QFETCH(AttributeMap, attributes);
    QFETCH(QString, attribute);
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("some words"));
    window.steps()->setClean();
    const int steps = window.steps()->index();
    const PageState before = stateOf(window);
    enter(window, box);
    QVERIFY(!window.session()->isModified());
    const QString mark = window.session()->contentMark();
    if (key)
        press(window, Qt::Key(key), ctrlShift);
    else
        window.window()->panels()->selection()->apply(attributes);
    window.settle();
    QVERIFY(window.session()->isModified());
    QVERIFY(window.session()->contentMark() != mark); // so that a copy is kept
    press(window, Qt::Key_Escape);
    window.settle();
    QCOMPARE(window.steps()->index(), steps + 1);
    QVERIFY(window.session()->isModified());
    const PageState after = stateOf(window);
    QVERIFY(!difference(after, before).isEmpty());
    window.trigger("undo");
    QCOMPARE(difference(stateOf(window), before), QString());
    QVERIFY(!window.session()->isModified());
    window.trigger("redo");
    QCOMPARE(difference(stateOf(window), after), QString());
}

void TestKeptWork::paragraphCommandTakenBackInEditLeavesNothing()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("some words"));
    window.steps()->setClean();
    const int steps = window.steps()->count();
    enter(window, box);
    press(window, Qt::Key_C, ctrlShift);
    QVERIFY(window.session()->isModified());
    press(window, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.session()->editedObject(), box); // the text had it to undo
    QVERIFY(!window.session()->isModified());
    press(window, Qt::Key_Escape);
    QCOMPARE(window.steps()->count(), steps);
    QVERIFY(!window.session()->isModified());
}

void TestKeptWork::wordsRetypedInAnotherFormatAreKept()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("ab"));
    enter(window, box);
    press(window, Qt::Key_End);
    press(window, Qt::Key_Left, Qt::ShiftModifier);
    press(window, Qt::Key_B, ctrlShift); // "b" is bold
    press(window, Qt::Key_Escape);
    window.steps()->setClean();
    const int steps = window.steps()->index();
    const PageState before = stateOf(window);
    enter(window, box);
    press(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(window.view(), QStringLiteral("ab")); // like the first that it replaces
    press(window, Qt::Key_Escape);
    window.settle();
    QCOMPARE(window.text(0), QStringLiteral("ab"));
    QVERIFY(!difference(stateOf(window), before).isEmpty());
    QVERIFY(window.session()->isModified());
    QCOMPARE(window.steps()->index(), steps + 1);
    window.trigger("undo");
    QCOMPARE(difference(stateOf(window), before), QString());
}

void TestKeptWork::directionOfPanelIsAStepOfTheEdit()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("some words"));
    const int steps = window.steps()->index();
    enter(window, box);
    window.window()->panels()->selection()->apply({{QStringLiteral("text_horizontal"), false}});
    press(window, Qt::Key_Escape);
    QVERIFY(TextObject::isVertical(box));
    QCOMPARE(window.steps()->index(), steps + 1);
    window.trigger("undo");
    QVERIFY(!TextObject::isVertical(box));
}

void TestKeptWork::textMovedByItsMarginIsAStep()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words"));
    window.steps()->setClean();
    const int steps = window.steps()->index();
    const PageState before = stateOf(window);
    enter(window, box);
    const QPoint start = marginPoint(window, box);
    window.drag(start, start + QPoint(50, 60));
    QCOMPARE(window.session()->editedObject(), box);
    QVERIFY(window.session()->isModified());
    press(window, Qt::Key_Escape);
    window.settle();
    QCOMPARE(box->getPos(), before.at(0).pos + QPointF(50, 60));
    QCOMPARE(window.steps()->index(), steps + 1);
    const PageState after = stateOf(window);
    window.trigger("undo");
    QCOMPARE(difference(stateOf(window), before), QString());
    QVERIFY(!window.session()->isModified());
    window.trigger("redo");
    QCOMPARE(difference(stateOf(window), after), QString());
}

void TestKeptWork::resizeWithinEditIsUndoneWithinEdit()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace,
                                         QStringLiteral("several words that are wrapped"));
    TextObject::letBoxGrow(box);
    window.settle();
    const PageState before = stateOf(window);
    QJsonObject record;
    box->saveJson(record);
    const QSizeF glyphs = box->getClientPath().boundingRect().size();
    enter(window, box);
    const QPoint corner = handlePoint(window, box, CObjAction::ACT_BottomRight);
    window.drag(corner, corner + QPoint(150, 40));
    press(window, Qt::Key_Escape);
    window.settle();
    const PageState after = stateOf(window);
    QVERIFY(!difference(after, before).isEmpty());
    QVERIFY(!attribute(box, "text_auto_wordwrap").toBool());
    window.trigger("undo");
    QCOMPARE(difference(stateOf(window), before), QString());
    QVERIFY(attribute(box, "text_auto_wordwrap").toBool());
    QCOMPARE(box->getClientPath().boundingRect().size(), glyphs);
    QJsonObject undone;
    box->saveJson(undone);
    QCOMPARE(undone.keys(), record.keys());
    window.trigger("redo");
    QCOMPARE(difference(stateOf(window), after), QString());
    QVERIFY(!attribute(box, "text_auto_wordwrap").toBool());
}

void TestKeptWork::typingIsUndoneBehindTheResizeThatCameAfterIt()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words"));
    enter(window, box);
    press(window, Qt::Key_End);
    QTest::keyClicks(window.view(), QStringLiteral(" more"));
    const QSizeF size = box->getSize();
    const QPoint corner = handlePoint(window, box, CObjAction::ACT_BottomRight);
    window.drag(corner, corner + QPoint(80, 40));
    QVERIFY(box->getSize() != size);
    window.trigger("undo");
    QCOMPARE(window.text(0), QStringLiteral("words more"));
    QCOMPARE(box->getSize(), size);
    window.trigger("undo");
    QCOMPARE(window.text(0), QStringLiteral("words"));
}

void TestKeptWork::escapeGivesUpDragOfSeveralObjects()
{
    ObjectWindow window(&m_loader);
    window.writeBox(firstPlace, QStringLiteral("a"));
    window.writeBox(secondPlace, QStringLiteral("b"));
    window.select({0, 1});
    const PageState before = stateOf(window);
    const int steps = window.steps()->count();
    const QPoint start = window.at(firstPlace.center());
    QTest::mousePress(window.canvas(), Qt::LeftButton, {}, start);
    moveTo(window, start + QPoint(20, 10));
    moveTo(window, start + QPoint(60, 30));
    QVERIFY(!difference(stateOf(window), before).isEmpty());
    press(window, Qt::Key_Escape);
    QCOMPARE(difference(stateOf(window), before), QString());
    QCOMPARE(window.session()->page()->getSelectedObjects().size(), 2);
    moveTo(window, start + QPoint(90, 90)); // the button is still down
    QCOMPARE(difference(stateOf(window), before), QString());
    QTest::mouseRelease(window.canvas(), Qt::LeftButton, {}, start + QPoint(90, 90));
    QCOMPARE(difference(stateOf(window), before), QString());
    QCOMPARE(window.steps()->count(), steps);
    QVERIFY(window.view()->isIdle());

    window.drag(start, start + QPoint(40, 0)); // the next one is one again
    QCOMPARE(window.objects().at(0)->getPos(), before.at(0).pos + QPointF(40, 0));
    QCOMPARE(window.objects().at(1)->getPos(), before.at(1).pos + QPointF(40, 0));
    QCOMPARE(window.steps()->count(), steps + 1);
}

void TestKeptWork::escapeGivesUpResizeWithinEdit()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words in a box"));
    TextObject::letBoxGrow(box);
    window.settle();
    const PageState before = stateOf(window);
    const int steps = window.steps()->count();
    enter(window, box);
    const QPoint corner = handlePoint(window, box, CObjAction::ACT_BottomRight);
    QTest::mousePress(window.canvas(), Qt::LeftButton, {}, corner);
    moveTo(window, corner + QPoint(40, 60));
    press(window, Qt::Key_Escape);
    moveTo(window, corner + QPoint(70, 60));
    QTest::mouseRelease(window.canvas(), Qt::LeftButton, {}, corner + QPoint(70, 60));
    QCOMPARE(window.session()->editedObject(), box);
    QVERIFY(attribute(box, "text_auto_wordwrap").toBool());
    press(window, Qt::Key_Escape);
    QCOMPARE(difference(stateOf(window), before), QString());
    QCOMPARE(window.steps()->count(), steps);
}

void TestKeptWork::companionIsRecordedThoughItIsDeselected()
{
    ObjectWindow window(&m_loader);
    window.writeBox(firstPlace, QStringLiteral("a"));
    CVXRootObject *companion = window.writeBox(secondPlace, QStringLiteral("b"));
    window.select({0, 1});
    const PageState before = stateOf(window);
    const QPoint start = window.at(firstPlace.center());
    QTest::mousePress(window.canvas(), Qt::LeftButton, {}, start);
    moveTo(window, start + QPoint(20, 10));
    companion->doSelected(false, /*notify=*/false);
    moveTo(window, start + QPoint(60, 30));
    QTest::mouseRelease(window.canvas(), Qt::LeftButton, {}, start + QPoint(60, 30));
    QCOMPARE(companion->getPos(), before.at(1).pos + QPointF(60, 30));
    window.trigger("undo");
    QCOMPARE(difference(stateOf(window), before), QString());
}

void TestKeptWork::stretchedBoxWithoutWordsKeepsItsSize()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words"));
    enter(window, box);
    press(window, Qt::Key_A, Qt::ControlModifier);
    press(window, Qt::Key_Delete);
    press(window, Qt::Key_Escape);
    const QPoint corner = handlePoint(window, box, CObjAction::ACT_BottomRight);
    window.drag(corner, corner + QPoint(60, 30));
    const QSizeF size = box->getSize();
    for (bool bold : {true, false, true}) {
        window.window()->panels()->selection()->apply({{QStringLiteral("font_bold"), bold}});
        QCOMPARE(box->getSize(), size);
    }
    for (int i = 0; i < 3; ++i) {
        window.trigger("undo");
        QCOMPARE(box->getSize(), size);
    }
}

void TestKeptWork::abandonedTextLeavesWhatIsToBeRedone()
{
    ObjectWindow window(&m_loader);
    window.writeBox(firstPlace, QStringLiteral("kept"));
    const PageState before = stateOf(window);
    const int count = window.steps()->count();
    window.trigger("undo");
    window.trigger("undo");
    QCOMPARE(window.objects().size(), 0);
    window.window()->setTool(EditorTool::Text);
    QTest::mouseClick(window.canvas(), Qt::LeftButton, {}, window.at(secondPlace.center()));
    QCOMPARE(window.objects().size(), 1);
    press(window, Qt::Key_Escape);
    window.settle();
    QCOMPARE(window.objects().size(), 0);
    QCOMPARE(window.steps()->count(), count);
    window.trigger("redo");
    window.trigger("redo");
    QCOMPARE(window.objects().size(), 1);
    QCOMPARE(window.text(0), before.at(0).text);
}

void TestKeptWork::wordsOfNewTextAreUndoneAfterItsFormats()
{
    ObjectWindow window(&m_loader);
    window.window()->setTool(EditorTool::Text);
    window.drag(window.at(firstPlace.topLeft()), window.at(firstPlace.bottomRight()));
    QTest::keyClicks(window.view(), QStringLiteral("ab")); // without a turn of the event loop
    press(window, Qt::Key_Left, Qt::ShiftModifier);
    press(window, Qt::Key_B, ctrlShift);
    press(window, Qt::Key_Escape);
    window.settle();
    const PageState after = stateOf(window);
    QCOMPARE(window.steps()->count(), 3); // drawn, written, bold
    window.trigger("undo");
    QCOMPARE(window.text(0), QStringLiteral("ab"));
    QVERIFY(!difference(stateOf(window), after).isEmpty());
    window.trigger("undo");
    QCOMPARE(window.text(0), QString());
    window.trigger("undo");
    QCOMPARE(window.objects().size(), 0);
    for (int i = 0; i < 3; ++i)
        window.trigger("redo");
    QCOMPARE(difference(stateOf(window), after), QString());
}

void TestKeptWork::undoKeyGoesOnToThePage()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words"));
    window.select({0});
    press(window, Qt::Key_Right, Qt::ShiftModifier); // moved by ten
    const QPointF moved = box->getPos();
    enter(window, box);
    QTest::keyClicks(window.view(), QStringLiteral("x"));
    press(window, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.session()->editedObject(), box);
    QCOMPARE(window.text(0), QStringLiteral("words"));
    press(window, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!window.session()->editedObject());
    QCOMPARE(box->getPos(), moved - QPointF(10, 0));
}

void TestKeptWork::undoKeyLosesNothingTyped()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words"));
    window.select({0});
    press(window, Qt::Key_Right, Qt::ShiftModifier);
    enter(window, box);
    press(window, Qt::Key_End);
    QTest::keyClicks(window.view(), QStringLiteral(" typed"));
    const QString typed = window.text(0);
    for (int i = 0; i < 12 && window.session()->editedObject(); ++i)
        press(window, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!window.session()->editedObject());
    QCOMPARE(window.text(0), QStringLiteral("words"));
    const int index = window.steps()->index();
    QCOMPARE(window.steps()->count(), index + 2); // the move, what was typed
    window.trigger("redo");
    window.trigger("redo");
    QCOMPARE(window.text(0), typed);
}

void TestKeptWork::redoKeyGoesOnToThePage()
{
    ObjectWindow window(&m_loader);
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words"));
    window.select({0});
    press(window, Qt::Key_Right, Qt::ShiftModifier);
    const QPointF moved = box->getPos();
    window.trigger("undo");
    enter(window, box);
    press(window, Qt::Key_Z, ctrlShift);
    QVERIFY(!window.session()->editedObject());
    QCOMPARE(box->getPos(), moved);
    enter(window, box); // nothing to redo: the edit goes on
    press(window, Qt::Key_Z, ctrlShift);
    QCOMPARE(window.session()->editedObject(), box);
}

void TestKeptWork::deleteAndSelectAllReachTheEditFromElsewhere()
{
    ObjectWindow window(&m_loader);
    window.trigger("showObjects");
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words"));
    enter(window, box);
    auto *list = window.window()->findChild<QListWidget *>(QStringLiteral("objectList"));
    QVERIFY(list);
    list->setFocus();
    QVERIFY(list->hasFocus());
    window.trigger("selectAll");
    window.trigger("delete");
    QCOMPARE(window.session()->editedObject(), box);
    QCOMPARE(window.text(0), QString());
}

void TestKeptWork::deleteOfTheListIsItsOwn()
{
    ObjectWindow window(&m_loader);
    window.trigger("showObjects");
    CVXRootObject *box = window.writeBox(firstPlace, QStringLiteral("words"));
    enter(window, box);
    auto *list = window.window()->findChild<QListWidget *>(QStringLiteral("objectList"));
    QVERIFY(list);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Delete);
    window.settle();
    QCOMPARE(window.objects().size(), 0);
    window.trigger("undo");
    QCOMPARE(window.text(0), QStringLiteral("words"));
}

void TestKeptWork::textThatIsDroppedLeavesTheKeysToTheProgram()
{
    ObjectWindow window(&m_loader);
    window.window()->setTool(EditorTool::ArtText);
    window.drag(window.at({100, 150}), window.at({400, 260}));
    enter(window, window.objects().at(0));
    QTest::keyClicks(window.view(), QStringLiteral("carried words"));
    const QPoint start = window.at({150, 190});
    QTest::mousePress(window.canvas(), Qt::LeftButton, {}, start);
    QVERIFY(!window.view()->isIdle());
    // What Qt does for a drag of text: the drop comes, and no release.
    QMimeData data;
    data.setText(QStringLiteral("words"));
    QDragEnterEvent enterEvent(start, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.canvas(), &enterEvent);
    QDropEvent drop(start + QPoint(200, 300), Qt::MoveAction, &data, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.canvas(), &drop);
    window.session()->endEdit();
    QVERIFY(window.view()->isIdle());
    QTest::keyClick(window.view(), Qt::Key_Z, Qt::ControlModifier); // reaches the program
    window.settle();
    QVERIFY(window.steps()->canRedo());
}

// Random work

void TestKeptWork::randomWorkIsKept_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed : {1u, 2u, 3u})
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

void TestKeptWork::randomWorkIsKept()
{
    QFETCH(uint, seed);
    ObjectWindow window(&m_loader);
    window.writeBox(firstPlace, QStringLiteral("first box of words"));
    window.writeBox(secondPlace, QStringLiteral("second box"));
    window.steps()->clear();
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("page.vxpage"));
    QString error;
    QVERIFY2(window.session()->save(fileName, error), qPrintable(error));
    const PageState first = stateOf(window);
    PageState saved = first;

    QRandomGenerator random(seed);
    const auto any = [&] { return window.objects().at(random.bounded(window.objects().size())); };
    const auto edited = [&] { return window.session()->editedObject(); };
    const auto way = [&] { return QPoint(random.bounded(-40, 41), random.bounded(-40, 41)); };
    const auto dragHandle = [&](CVXRootObject *object) {
        const QPoint corner = handlePoint(window, object, CObjAction::ACT_BottomRight);
        window.drag(corner, corner + way());
    };
    const auto key = [&](Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        press(window, code, modifiers);
    };
    struct Action {
        const char *name;
        std::function<void()> run;
    };
    const QVector<Action> inEdit{
        {"type",
         [&] {
             QTest::keyClicks(window.view(), QStringLiteral("ab ").left(1 + random.bounded(3)));
         }},
        {"erase", [&] { key(Qt::Key_Backspace); }},
        {"paragraph", [&] { key(Qt::Key_Return); }},
        {"caret", [&] { key(random.bounded(2) ? Qt::Key_Left : Qt::Key_Home); }},
        {"select", [&] { key(Qt::Key_Left, Qt::ShiftModifier); }},
        {"select all", [&] { key(Qt::Key_A, Qt::ControlModifier); }},
        {"bold", [&] { key(Qt::Key_B, ctrlShift); }},
        {"centre", [&] { key(Qt::Key_C, ctrlShift); }},
        {"right", [&] { key(Qt::Key_R, ctrlShift); }},
        {"undo key", [&] { key(Qt::Key_Z, Qt::ControlModifier); }},
        {"redo key", [&] { key(Qt::Key_Z, ctrlShift); }},
        {"move by margin",
         [&] {
             const QPoint start = marginPoint(window, edited());
             window.drag(start, start + way());
         }},
        {"resize", [&] { dragHandle(edited()); }},
        {"Escape", [&] { key(Qt::Key_Escape); }},
    };
    const QVector<Action> outside{
        {"enter", [&] { enter(window, any()); }},
        {"move",
         [&] {
             CVXRootObject *object = any();
             window.session()->select(object);
             key(random.bounded(2) ? Qt::Key_Right : Qt::Key_Up, Qt::ShiftModifier);
         }},
        {"stretch",
         [&] {
             CVXRootObject *object = any();
             window.session()->select(object);
             dragHandle(object);
         }},
        {"bold all",
         [&] {
             window.session()->select(any());
             window.window()->panels()->selection()->apply(
                 {{QStringLiteral("font_bold"), random.bounded(2) == 1}});
         }},
        {"give up a text",
         [&] {
             window.window()->setTool(EditorTool::Text);
             QTest::mouseClick(window.canvas(), Qt::LeftButton, {}, QPoint(600, 30));
             key(Qt::Key_Escape);
         }},
        {"undo", [&] { window.trigger("undo"); }},
        {"redo", [&] { window.trigger("redo"); }},
    };
    QStringList done;
    for (int i = 0; i < 300; ++i) {
        const bool isIn = edited();
        const QVector<Action> &actions = isIn ? inEdit : outside;
        const Action &action = actions.at(random.bounded(actions.size()));
        done.append(QLatin1String(action.name));
        action.run();
        if (random.bounded(3) == 0 || !edited())
            window.settle(); // the keys of an edit may also come in one turn
        if (random.bounded(25) == 0) {
            done.append(QStringLiteral("save"));
            QVERIFY2(window.session()->save(fileName, error), qPrintable(error));
            saved = stateOf(window);
        }
        if (!window.session()->isModified() && !edited()) {
            const QString differs = difference(stateOf(window), saved);
            QVERIFY2(differs.isEmpty(),
                     qPrintable(differs + QStringLiteral(" after ")
                                + done.mid(done.size() - 25).join(QLatin1String(", "))));
        }
    }
    window.session()->endEdit();
    window.settle();
    QVERIFY2(window.session()->save(fileName, error), qPrintable(error));
    const PageState last = stateOf(window);
    const auto file = PageSession::open(&m_loader, fileName, error);
    QVERIFY2(file, qPrintable(error));
    QCOMPARE(difference(stateOf(file->page()), last), QString());

    QHash<int, PageState> states;
    for (; window.steps()->canUndo(); window.steps()->undo())
        states.insert(window.steps()->index(), stateOf(window));
    QCOMPARE(difference(stateOf(window), first), QString());
    while (window.steps()->canRedo()) {
        window.steps()->redo();
        if (!states.contains(window.steps()->index()))
            continue;
        const QString differs = difference(stateOf(window), states.value(window.steps()->index()));
        QVERIFY2(differs.isEmpty(),
                 qPrintable(differs + QLatin1Char(' ')
                            + window.steps()->text(window.steps()->index() - 1)));
    }
    QCOMPARE(difference(stateOf(window), last), QString());
}

QTEST_MAIN(TestKeptWork)

#include "tst_keptwork.moc"
