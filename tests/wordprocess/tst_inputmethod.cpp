// SPDX-License-Identifier: MIT
// Composed text: a preedit in the document, what takes it out again and what lets it stay.
#include "callinghost.h"
#include "pointer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTest>

class TestInputMethod : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // events
    void preeditStandsInTheDocument();
    void nextPreeditTakesThePlaceOfTheLast();
    void commitTakesThePlaceOfThePreedit();
    void commitWithoutPreeditIsInserted();
    void commitWinsOverThePreeditOfItsEvent();
    void emptyEventTakesThePreeditOut();
    void emptyEventWithoutPreeditOnlyLaysOut();
    void emptyEventKeepsTheSelection();
    void attributesAndReplacementAreIgnored();
    void nullEventDoesNothing();

    // selection
    void preeditTakesThePlaceOfTheSelection();
    void selectionOfTheCursorAloneIsKept();

    // formats
    void composedTextTakesTheFormatAtTheCaret();
    void upperCaseIsForTheDocumentOnly();
    void upperCaseThatIsLongerGoesAsAWhole();
    void spacingOfOneCharacterIsNotInherited();
    void formatOutlivesThePreedit();

    // taking out
    void takingOutRemovesExactlyThePreedit_data();
    void takingOutRemovesExactlyThePreedit();
    void takingOutIsOneStep();
    void compositionIsOneStep();
    void takingOutWithoutPreeditDoesNothing();
    void lineEndsInAPreeditGoWithIt();

    // end of a composition
    void compositionEnds_data();
    void compositionEnds();
    void eventWhileTheEditEndsIsIgnored();

    // caret
    void caretStandsBehindComposedText();
    void cursorRectangle_data();
    void cursorRectangle();
    void cursorRectangleFollowsThePaintedCaret();
    void otherQueriesHaveNoAnswer();
    void eventsReachAnEditOnly();
};

namespace {
void preedit(OpenWord &word, const QString &text)
{
    QInputMethodEvent event(text, {});
    word.inputMethodEvent(&event);
}

void commit(OpenWord &word, const QString &text, const QString &newPreedit = QString())
{
    QInputMethodEvent event(newPreedit, {});
    event.setCommitString(text);
    word.inputMethodEvent(&event);
}

void press(OpenWord &word, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    word.keyPressEvent(&event);
}

/// "ab|cd" in edit state, the caret where the bar is.
void editAroundCaret(OpenWord &word)
{
    editLineText(word, QStringLiteral("abcd"));
    word.m_cursor->setPosition(2);
}
} // namespace

// events

void TestInputMethod::preeditStandsInTheDocument()
{
    OpenWord word;
    editAroundCaret(word);
    preedit(word, QStringLiteral("ni"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abnicd"));
    QCOMPARE(word.m_preeditString, QStringLiteral("ni"));
    QCOMPARE(word.m_cursor->position(), 4);
    QCOMPARE(word.m_clientRect.width(), 48.0); // laid out: six letters of 8 px
    QCOMPARE(word.m_wordManager->textLayout().lines.first().text, QStringLiteral("abnicd"));
}

void TestInputMethod::nextPreeditTakesThePlaceOfTheLast()
{
    OpenWord word;
    editAroundCaret(word);
    preedit(word, QStringLiteral("n"));
    preedit(word, QStringLiteral("ni"));
    preedit(word, QStringLiteral("你"));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab你cd"));
    QCOMPARE(word.m_preeditString, QStringLiteral("你"));
    QCOMPARE(word.m_cursor->position(), 3);
}

void TestInputMethod::commitTakesThePlaceOfThePreedit()
{
    OpenWord word;
    editAroundCaret(word);
    preedit(word, QStringLiteral("nihao"));
    commit(word, QStringLiteral("你好"));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab你好cd"));
    QVERIFY(word.m_preeditString.isEmpty());
    QCOMPARE(word.m_cursor->position(), 4);
    commit(word, QStringLiteral("吗")); // the first commit stays
    QCOMPARE(word.toPlainText(), QStringLiteral("ab你好吗cd"));
}

void TestInputMethod::commitWithoutPreeditIsInserted()
{
    OpenWord word;
    editAroundCaret(word);
    commit(word, QStringLiteral("\U00020000"));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab\U00020000cd"));
    QCOMPARE(word.m_cursor->position(), 4);
}

void TestInputMethod::commitWinsOverThePreeditOfItsEvent()
{
    OpenWord word;
    editAroundCaret(word);
    preedit(word, QStringLiteral("ni"));
    commit(word, QStringLiteral("你"), QStringLiteral("hao"));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab你cd"));
    QVERIFY(word.m_preeditString.isEmpty());
}

void TestInputMethod::emptyEventTakesThePreeditOut()
{
    OpenWord word;
    editAroundCaret(word);
    preedit(word, QStringLiteral("ni"));
    preedit(word, QString());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QVERIFY(word.m_preeditString.isEmpty());
    QCOMPARE(word.m_cursor->position(), 2);
    QCOMPARE(word.m_clientRect.width(), 32.0);
}

void TestInputMethod::emptyEventWithoutPreeditOnlyLaysOut()
{
    OpenWord word;
    editAroundCaret(word);
    word.m_clientRect.setWidth(99);
    preedit(word, QString());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(word.m_clientRect.width(), 32.0);
}

void TestInputMethod::emptyEventKeepsTheSelection()
{
    OpenWord word;
    editAroundCaret(word);
    word.select(1, 3);
    preedit(word, QString());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(word.m_selStart, 1);
    QCOMPARE(word.m_selEnd, 3);
}

void TestInputMethod::attributesAndReplacementAreIgnored()
{
    OpenWord word;
    editAroundCaret(word);
    const QInputMethodEvent::Attribute cursor(QInputMethodEvent::Cursor, 0, 1, QVariant());
    QInputMethodEvent composing(QStringLiteral("ni"), {cursor});
    word.inputMethodEvent(&composing);
    QCOMPARE(word.m_cursor->position(), 4);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("x"), /*replaceFrom=*/-2, /*replaceLength=*/2);
    word.inputMethodEvent(&event);
    QCOMPARE(word.toPlainText(), QStringLiteral("abxcd"));
}

void TestInputMethod::nullEventDoesNothing()
{
    OpenWord word;
    editAroundCaret(word);
    word.m_preeditString = QStringLiteral("b");
    word.inputMethodEvent(nullptr);
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(word.m_preeditString, QStringLiteral("b"));
}

// selection

void TestInputMethod::preeditTakesThePlaceOfTheSelection()
{
    RecordingHost host;
    OpenWord word(&host);
    editAroundCaret(word);
    word.select(1, 3);
    host.clearEvents();
    preedit(word, QStringLiteral("n"));
    QCOMPARE(word.toPlainText(), QStringLiteral("and"));
    QCOMPARE(word.m_cursor->position(), 2);
    QCOMPARE(word.m_selStart, word.m_selEnd);
    QCOMPARE(operationsOf(host), (QVector<int>{0}));
    preedit(word, QString()); // what was selected does not come back
    QCOMPARE(word.toPlainText(), QStringLiteral("ad"));
}

void TestInputMethod::selectionOfTheCursorAloneIsKept()
{
    OpenWord word;
    editAroundCaret(word);
    word.select(4, 4);
    word.m_cursor->setPosition(1);
    word.m_cursor->setPosition(3, QTextCursor::KeepAnchor);
    preedit(word, QStringLiteral("n"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abcnd"));
    preedit(word, QString());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
}

// formats

void TestInputMethod::composedTextTakesTheFormatAtTheCaret()
{
    OpenWord word;
    editLineText(word, QStringLiteral("ab"));
    word.add(QStringLiteral("cd"), OpenWord::format(24));
    word.m_cursor->setPosition(3);
    commit(word, QStringLiteral("x"));
    word.m_cursor->setPosition(4);
    QCOMPARE(word.m_cursor->charFormat().fontPointSize(), 24.0);
    word.m_cursor->setPosition(1);
    commit(word, QStringLiteral("y"));
    QCOMPARE(word.m_cursor->charFormat().fontPointSize(), 12.0);
    QCOMPARE(word.toPlainText(), QStringLiteral("aybcxd"));
}

void TestInputMethod::upperCaseIsForTheDocumentOnly()
{
    QTextCharFormat upper = OpenWord::format();
    upper.setProperty(TextProperty::UpperCase, true);
    OpenWord word;
    editLineText(word, QStringLiteral("ab"), Qt::Horizontal, upper);
    preedit(word, QStringLiteral("ni"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abNI"));
    QCOMPARE(word.m_preeditString, QStringLiteral("ni"));
    commit(word, QStringLiteral("nih"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abNIH"));

    QTextCharFormat off = OpenWord::format();
    off.setProperty(TextProperty::UpperCase, false);
    word.m_cursor->setCharFormat(off);
    commit(word, QStringLiteral("x"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abNIHx"));
}

void TestInputMethod::upperCaseThatIsLongerGoesAsAWhole()
{
    QTextCharFormat upper = OpenWord::format();
    upper.setProperty(TextProperty::UpperCase, true);
    OpenWord word;
    editLineText(word, QStringLiteral("AB"), Qt::Horizontal, upper);
    preedit(word, QStringLiteral("ß"));
    QCOMPARE(word.toPlainText(), QStringLiteral("ABSS"));
    preedit(word, QString());
    QCOMPARE(word.toPlainText(), QStringLiteral("AB"));
}

void TestInputMethod::spacingOfOneCharacterIsNotInherited()
{
    for (bool newVersion : {true, false}) {
        QTextCharFormat spaced = OpenWord::format();
        spaced.setProperty(TextProperty::LeadingGap, 500.0);
        OpenWord word;
        editLineText(word, QStringLiteral("ab"), Qt::Horizontal, spaced);
        word.m_newVersion = newVersion;
        commit(word, QStringLiteral("x"));
        QCOMPARE(word.m_cursor->charFormat().hasProperty(TextProperty::LeadingGap), !newVersion);
        QCOMPARE(word.toPlainText(), QStringLiteral("abx"));
    }
}

void TestInputMethod::formatOutlivesThePreedit()
{
    OpenWord word;
    editLineText(word, QString());
    word.m_cursor->setCharFormat(OpenWord::format(24));
    preedit(word, QStringLiteral("ni"));
    preedit(word, QString());
    QVERIFY(word.m_document->isEmpty());
    QCOMPARE(word.m_cursor->charFormat().fontPointSize(), 24.0);
    commit(word, QStringLiteral("x"));
    QCOMPARE(word.m_cursor->charFormat().fontPointSize(), 24.0);
}

// taking out

void TestInputMethod::takingOutRemovesExactlyThePreedit_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("preeditText");
    QTest::addColumn<QString>("after");
    QTest::newRow("letters") << QStringLiteral("ab") << QStringLiteral("ni")
                             << QStringLiteral("cd");
    QTest::newRow("pair") << QStringLiteral("\U00020000") << QStringLiteral("\U00020001")
                          << QStringLiteral("\U00020002");
    QTest::newRow("a mark follows")
        << QStringLiteral("ab") << QStringLiteral("e") << QStringLiteral("\u0301cd");
    QTest::newRow("a mark of its own")
        << QStringLiteral("ab") << QStringLiteral("\u0301") << QStringLiteral("cd");
    QTest::newRow("paragraphs around")
        << QStringLiteral("ab\n") << QStringLiteral("x") << QStringLiteral("\ncd");
}

void TestInputMethod::takingOutRemovesExactlyThePreedit()
{
    QFETCH(QString, before);
    QFETCH(QString, preeditText);
    QFETCH(QString, after);
    OpenWord word;
    editLineText(word, before + after);
    word.m_cursor->setPosition(before.length());
    preedit(word, preeditText);
    QCOMPARE(word.toPlainText(), before + preeditText + after);
    word.cleanPreeditString();
    QCOMPARE(word.toPlainText(), before + after);
    QCOMPARE(word.m_cursor->position(), before.length());
    QVERIFY(word.m_preeditString.isEmpty());
}

void TestInputMethod::takingOutIsOneStep()
{
    OpenWord word;
    editAroundCaret(word);
    preedit(word, QStringLiteral("nihao"));
    const int steps = word.m_document->availableUndoSteps();
    word.cleanPreeditString();
    QCOMPARE(word.m_document->availableUndoSteps(), steps + 1);
    word.m_document->undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("abnihaocd"));
}

void TestInputMethod::compositionIsOneStep()
{
    OpenWord word;
    editAroundCaret(word);
    for (const char *shown : {"n", "ni", "niha", "nihao"})
        preedit(word, QLatin1String(shown));
    commit(word, QStringLiteral("你好"));
    preedit(word, QStringLiteral("m")); // the next one
    commit(word, QStringLiteral("吗"));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab你好吗cd"));
    press(word, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(word.toPlainText(), QStringLiteral("ab你好cd"));
    press(word, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    press(word, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(word.toPlainText(), QStringLiteral("ab你好cd"));
}

void TestInputMethod::takingOutWithoutPreeditDoesNothing()
{
    OpenWord word;
    editAroundCaret(word);
    word.cleanPreeditString();
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(word.m_cursor->position(), 2);
}

void TestInputMethod::lineEndsInAPreeditGoWithIt()
{
    OpenWord word;
    editAroundCaret(word);
    preedit(word, QStringLiteral("x\r\ny\nz"));
    QCOMPARE(word.toPlainText(), QStringLiteral("abx\ny\nzcd"));
    preedit(word, QString());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
}

// end of a composition

void TestInputMethod::compositionEnds_data()
{
    QTest::addColumn<QString>("act");
    QTest::addColumn<QString>("text"); // after the next, empty event
    const QString stays = QStringLiteral("abnicd");
    QTest::newRow("nothing") << QStringLiteral("nothing") << QStringLiteral("abcd");
    QTest::newRow("pointer") << QStringLiteral("pointer") << stays;
    QTest::newRow("arrow") << QStringLiteral("arrow") << stays;
    QTest::newRow("all selected") << QStringLiteral("all selected") << stays;
    QTest::newRow("word selected") << QStringLiteral("word selected") << stays;
    QTest::newRow("focus lost") << QStringLiteral("focus lost") << stays;
    QTest::newRow("edit ends") << QStringLiteral("edit ends") << stays;
    QTest::newRow("record written") << QStringLiteral("record written") << stays;
    QTest::newRow("host undo") << QStringLiteral("host undo") << QStringLiteral("abcd");
    QTest::newRow("copy pasted over") << QStringLiteral("pasted") << QStringLiteral("abni!cd");
}

void TestInputMethod::compositionEnds()
{
    QFETCH(QString, act);
    QFETCH(QString, text);
    RecordingHost host;
    OpenWord word(&host);
    editAroundCaret(word);
    const QString start = word.serialize(false);
    preedit(word, QStringLiteral("ni"));
    if (act == QLatin1String("pointer")) {
        Pointer::press(word, QPointF(1, 8));
    } else if (act == QLatin1String("arrow")) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
        word.keyPressEvent(&key);
    } else if (act == QLatin1String("all selected")) {
        word.selectAll();
    } else if (act == QLatin1String("word selected")) {
        word.doubleSelectText(0);
    } else if (act == QLatin1String("focus lost")) {
        QFocusEvent out(QEvent::FocusOut, Qt::OtherFocusReason);
        word.focusOutEvent(&out);
    } else if (act == QLatin1String("edit ends")) {
        word.endEdit();
        word.beginEdit();
    } else if (act == QLatin1String("record written")) {
        QJsonObject record;
        word.saveJson(record);
        word.beginEdit();
    } else if (act == QLatin1String("host undo")) {
        word.undoRedo(start, true);
    } else if (act == QLatin1String("pasted")) {
        QGuiApplication::clipboard()->setText(QStringLiteral("!"));
        word.paste(false, true);
    }
    if (act != QLatin1String("nothing"))
        QVERIFY(word.m_preeditString.isEmpty());
    preedit(word, QString());
    QCOMPARE(word.toPlainText(), text);
}

void TestInputMethod::eventWhileTheEditEndsIsIgnored()
{
    CallingHost host;
    OpenWord word(&host);
    editAroundCaret(word);
    preedit(word, QStringLiteral("ni"));
    bool sent = false;
    host.onTextOperation = [&](int) {
        if (sent)
            return;
        sent = true; // an input method that loses the focus commits what it holds
        commit(word, QStringLiteral("ni"));
    };
    word.endEdit();
    host.onTextOperation = nullptr;
    QVERIFY(sent);
    QCOMPARE(word.toPlainText(), QStringLiteral("abnicd"));
}

// caret

void TestInputMethod::caretStandsBehindComposedText()
{
    OpenWord word;
    editBoxText(word, QString(), QSizeF(100, 40));
    word.m_cursor->setCharFormat(OpenWord::format());
    word.m_cursorAtLineEnd = true;
    preedit(word, QStringLiteral("ni"));
    QVERIFY(!word.m_cursorAtLineEnd);
    QCOMPARE(word.m_wordManager->cursorLine(2, word.m_cursorAtLineEnd).x1(), 16.0);
}

void TestInputMethod::cursorRectangle_data()
{
    QTest::addColumn<QPointF>("caretEnd");
    QTest::addColumn<QPointF>("itemPos");
    QTest::addColumn<QRect>("rect");
    QTest::newRow("never painted") << QPointF(0, 0) << QPointF(30, 20) << QRect(-30, -10, 1, 1);
    QTest::newRow("at the origin") << QPointF(0, 0) << QPointF(0, 0) << QRect(0, 10, 1, 1);
    QTest::newRow("rounded first") << QPointF(7.6, 8.4) << QPointF(0, 0) << QRect(8, 18, 1, 1);
    QTest::newRow("rounded again") << QPointF(7.6, 8.4) << QPointF(2.6, 3.4) << QRect(5, 15, 1, 1);
    QTest::newRow("halves go up") << QPointF(2.5, 3.5) << QPointF(0, 0) << QRect(3, 14, 1, 1);
}

void TestInputMethod::cursorRectangle()
{
    QFETCH(QPointF, caretEnd);
    QFETCH(QPointF, itemPos);
    QFETCH(QRect, rect);
    OpenWord word;
    word.setPos(itemPos, false);
    word.m_cursorEndScenePos = caretEnd;
    const QVariant answer = word.inputMethodQuery(Qt::ImCursorRectangle);
    QCOMPARE(answer.userType(), int(QMetaType::QRect));
    QCOMPARE(answer.toRect(), rect);
}

void TestInputMethod::cursorRectangleFollowsThePaintedCaret()
{
    OpenWord word;
    editAroundCaret(word);
    word.m_cursorVisible = true;
    handlersOf(word);
    QCOMPARE(word.inputMethodQuery(Qt::ImCursorRectangle).toRect(), QRect(16, 26, 1, 1));
}

void TestInputMethod::otherQueriesHaveNoAnswer()
{
    OpenWord word;
    editAroundCaret(word);
    for (Qt::InputMethodQuery query :
         {Qt::ImEnabled, Qt::ImFont, Qt::ImCursorPosition, Qt::ImSurroundingText, Qt::ImHints})
        QVERIFY(!word.inputMethodQuery(query).isValid());
}

void TestInputMethod::eventsReachAnEditOnly()
{
    RecordingHost host;
    auto *word = new OpenWord(&host);
    host.scene().addItem(word);
    word->add(QStringLiteral("ab"));
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&host.scene(), &activate);
    word->setFlag(QGraphicsItem::ItemIsFocusable, true);
    word->setFocus();
    QInputMethodEvent event(QStringLiteral("x"), {});
    QCoreApplication::sendEvent(&host.scene(), &event);
    QCOMPARE(word->toPlainText(), QStringLiteral("ab"));

    word->beginEdit();
    QVERIFY(word->hasFocus());
    QCoreApplication::sendEvent(&host.scene(), &event);
    QCOMPARE(word->toPlainText(), QStringLiteral("abx"));
    QCOMPARE(host.scene().inputMethodQuery(Qt::ImCursorRectangle).userType(),
             int(QMetaType::QRect));
}

QTEST_MAIN(TestInputMethod)
#include "tst_inputmethod.moc"
