// SPDX-License-Identifier: MIT
// Copy, cut and paste: both forms, what wins, what is left alone, and whatever else a clipboard may hold.
#include "callinghost.h"
#include "openword.h"

#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTemporaryFile>
#include <QTest>
#include <QUrl>

namespace {
const QString ownType = QStringLiteral("application/vixorama_text");

QClipboard &clipboard()
{
    return *QGuiApplication::clipboard();
}

/// Puts both forms on the clipboard; a null one is left out.
void offer(const QByteArray &own, const QString &text = QString())
{
    auto *data = new QMimeData;
    if (!own.isNull())
        data->setData(ownType, own);
    if (!text.isNull())
        data->setText(text);
    clipboard().setMimeData(data);
}

QByteArray ownFormOf(const QString &text, const QTextCharFormat &format)
{
    OpenWord other;
    other.add(text, format);
    other.selectAll();
    return other.serialize(true).toUtf8();
}

QList<QStringList> wordsOf(const OpenWord &word)
{
    return contentsOf(word.serialize(false));
}

double sizeAt(const OpenWord &word, int position)
{
    QTextCursor cursor(word.m_document);
    cursor.setPosition(position + 1); // the format of a position is that of the character ahead
    return cursor.charFormat().fontPointSize();
}
} // namespace

class TestClipboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }
    void init() { clipboard().clear(); }

    // out
    void copyOffersBothForms();
    void copyNeedsASelection_data();
    void copyNeedsASelection();
    void copyChangesNothing();
    void cutCopiesAndRemoves();
    void cutWithoutSelectionRemovesNothing();
    void selectedText_data();
    void selectedText();
    void removalTakesExactlyTheRange_data();
    void removalTakesExactlyTheRange();
    void removalIsOneStepOfTheDocument();
    void removalMovesTheSelectionToItsFormerEnd();

    // in
    void nothingToPasteChangesNothing_data();
    void nothingToPasteChangesNothing();
    void richFormKeepsFormats();
    void plainFormOfAnOwnEntryTakesTheFormatAtTheCaret();
    void ownEntryWinsOverPlainText();
    void ownEntryEndsAtAZeroByte();
    void textFromOutsideTakesTheFormatAtTheCaret();
    void htmlFromOutsideIsPastedAsPlainText_data();
    void htmlFromOutsideIsPastedAsPlainText();
    void htmlOfAnOwnEntryStaysAsItIs();
    void htmlOpensNoFile();
    void pasteReplacesTheSelection_data();
    void pasteReplacesTheSelection();
    void pasteLeavesWhatOnlyTheCursorSelects();
    void pasteEndsAComposition();
    void pastedBlocksSplitTheParagraph();
    void pasteTellsListenersAndLaysOut();
    void pasteIsPartOfTheEditsStep();
    void cutIsOneStepOfTheDocument();
    void pasteIsOneStepOfTheDocument_data();
    void pasteIsOneStepOfTheDocument();
    void listenerMayUndoThePasteThatItIsToldOf();

    // a new object
    void newObjectIsFinished_data();
    void newObjectIsFinished();
    void newObjectTakesTheDefaultLook_data();
    void newObjectTakesTheDefaultLook();
    void newObjectWithRichTextKeepsItsFormats();
    void newObjectWithoutTextStaysUnfinished();
    void newObjectNotesThePlaceOfItsPicture();

    // whatever a clipboard holds
    void brokenOwnFormCountsAsAbsent_data();
    void brokenOwnFormCountsAsAbsent();
    void brokenOwnFormLeavesTheSelection();
    void oddContentsLeaveAnObjectThatWorks_data();
    void oddContentsLeaveAnObjectThatWorks();
    void ownFormCutAnywhere();
    void randomBytesLeaveAnObjectThatWorks();
    void listenerMayPasteAgain();
    void copyAndPasteReproducesAnySelection_data();
    void copyAndPasteReproducesAnySelection();
};

void TestClipboard::copyOffersBothForms()
{
    OpenWord word;
    word.add(QStringLiteral("abcdefg"));
    word.select(2, 5);
    QVERIFY(word.copy());
    const QMimeData *data = clipboard().mimeData();
    QVERIFY(data->hasFormat(ownType));
    QCOMPARE(data->text(), QStringLiteral("cde"));
    const QString own = QString::fromUtf8(data->data(ownType));
    QCOMPARE(contentsOf(own), QList<QStringList>{QStringList(QStringLiteral("cde"))});
    QCOMPARE(jsonOf(own).keys(),
             (QStringList{QStringLiteral("block"), QStringLiteral("fragment")}));
}

void TestClipboard::copyNeedsASelection_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("none in the middle") << 2 << 2;
    QTest::newRow("end ahead of start") << 3 << 1;
    QTest::newRow("behind the text") << 100 << 200;
    QTest::newRow("ahead of the text") << -5 << -1;
}

void TestClipboard::copyNeedsASelection()
{
    QFETCH(int, start);
    QFETCH(int, end);
    offer(QByteArray(), QStringLiteral("kept"));
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.select(start, end);
    QTest::ignoreMessage(QtDebugMsg, "no text selection");
    QVERIFY(!word.copy());
    QCOMPARE(clipboard().text(), QStringLiteral("kept"));
    QTest::ignoreMessage(QtDebugMsg, "no text selection");
    QVERIFY(!word.cut());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(word.getSelectedText(), QString());
}

void TestClipboard::copyChangesNothing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.select(1, 3);
    const QString before = word.serialize(false);
    host.clearEvents();
    word.forgetCalls();
    QVERIFY(word.copy());
    QCOMPARE(word.serialize(false), before);
    QVERIFY(host.events.isEmpty());
    QVERIFY(word.changes.isEmpty());
}

void TestClipboard::cutCopiesAndRemoves()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.select(1, 3);
    QVERIFY(word.cut());
    QCOMPARE(word.toPlainText(), QStringLiteral("ad"));
    QCOMPARE(clipboard().text(), QStringLiteral("bc"));
    QCOMPARE(word.m_cursor->position(), 1);
    QVERIFY(word.paste(false, true));
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
}

void TestClipboard::cutWithoutSelectionRemovesNothing()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.m_cursor->select(QTextCursor::Document); // the cursor's own selection does not count
    host.clearEvents();
    QTest::ignoreMessage(QtDebugMsg, "no text selection");
    QVERIFY(!word.cut());
    QCOMPARE(word.toPlainText(), QStringLiteral("abcd"));
    QVERIFY(host.events.isEmpty());
}

void TestClipboard::selectedText_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 1 << 1 << QString();
    QTest::newRow("in a block") << 0 << 2 << "ab";
    QTest::newRow("across blocks") << 1 << 5 << "b\ncd";
    QTest::newRow("an empty block") << 5 << 7 << "\n\n";
    QTest::newRow("all") << 0 << 9 << "ab\ncd\n\nef";
    QTest::newRow("beyond the end") << 7 << 99 << "ef";
    QTest::newRow("from ahead of the start") << -3 << 1 << "a";
}

void TestClipboard::selectedText()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, text);
    OpenWord word;
    word.add(QStringLiteral("ab\ncd\n\nef"));
    word.select(start, end);
    QCOMPARE(word.getSelectedText(), text);
}

void TestClipboard::removalTakesExactlyTheRange_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("left");
    const QString face = QString::fromUcs4(U"\U0001F600", 1);
    const QString accent = QStringLiteral("e") + QChar(0x301);
    QTest::newRow("middle") << "abcd" << 1 << 3 << "ad";
    QTest::newRow("all") << "abcd" << 0 << 4 << "";
    QTest::newRow("a paragraph's end") << "ab\ncd" << 2 << 3 << "abcd";
    QTest::newRow("across paragraphs") << "ab\n\ncd" << 1 << 5 << "ad";
    QTest::newRow("a surrogate pair") << face + QLatin1Char('a') << 0 << 2 << "a";
    QTest::newRow("a letter without its accent")
        << accent + QLatin1Char('a') << 0 << 1 << QString(QChar(0x301)) + QLatin1Char('a');
    QTest::newRow("an accent without its letter") << accent + QLatin1Char('a') << 1 << 2 << "ea";
    QTest::newRow("beyond the end") << "abcd" << 2 << 99 << "ab";
    QTest::newRow("end ahead of start") << "abcd" << 3 << 1 << "abcd";
    QTest::newRow("none") << "abcd" << 2 << 2 << "abcd";
}

void TestClipboard::removalTakesExactlyTheRange()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, left);
    OpenWord word;
    word.add(text);
    word.select(start, end);
    word.removeSelectedText();
    QCOMPARE(word.toPlainText(), left);
}

void TestClipboard::removalIsOneStepOfTheDocument()
{
    OpenWord word;
    word.add(QStringLiteral("abcdef"));
    word.m_document->clearUndoRedoStacks();
    word.select(1, 5);
    word.removeSelectedText();
    QCOMPARE(word.toPlainText(), QStringLiteral("af"));
    word.m_document->undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("abcdef"));
}

void TestClipboard::removalMovesTheSelectionToItsFormerEnd()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcdef"));
    word.select(1, 3);
    host.clearEvents();
    word.removeSelectedText();
    QCOMPARE(word.m_selStart, 3);
    QCOMPARE(word.m_selEnd, 3);
    QCOMPARE(word.m_cursor->position(), 1);
    QVERIFY(!word.m_cursor->hasSelection());
    QCOMPARE(operationsOf(host), QVector<int>{0});
    host.clearEvents();
    word.removeSelectedText(); // nothing is selected any more
    QVERIFY(host.events.isEmpty());
}

void TestClipboard::nothingToPasteChangesNothing_data()
{
    QTest::addColumn<bool>("newObject");
    QTest::addColumn<bool>("rich");
    for (bool newObject : {false, true}) {
        for (bool rich : {false, true})
            QTest::addRow("new %d, rich %d", newObject, rich) << newObject << rich;
    }
}

void TestClipboard::nothingToPasteChangesNothing()
{
    QFETCH(bool, newObject);
    QFETCH(bool, rich);
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.select(1, 3);
    const QString before = word.serialize(false);
    host.clearEvents();
    word.forgetCalls();
    QVERIFY(!word.paste(newObject, rich)); // an empty clipboard
    auto *picture = new QMimeData;
    picture->setImageData(QImage(2, 2, QImage::Format_RGB32));
    clipboard().setMimeData(picture);
    QVERIFY(!word.paste(newObject, rich));
    QCOMPARE(word.serialize(false), before);
    QVERIFY(host.events.isEmpty());
    QVERIFY(word.changes.isEmpty());
}

void TestClipboard::richFormKeepsFormats()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.m_cursor->setPosition(1);
    offer(ownFormOf(QStringLiteral("XY"), OpenWord::format(24)), QStringLiteral("other"));
    QVERIFY(word.paste(false, true));
    QCOMPARE(word.toPlainText(), QStringLiteral("aXYb"));
    QCOMPARE(sizeAt(word, 0), 12.0);
    QCOMPARE(sizeAt(word, 1), 24.0);
    QCOMPARE(sizeAt(word, 2), 24.0);
    QCOMPARE(sizeAt(word, 3), 12.0);
    QCOMPARE(word.m_cursor->position(), 3);
}

void TestClipboard::plainFormOfAnOwnEntryTakesTheFormatAtTheCaret()
{
    OpenWord word;
    word.add(QStringLiteral("ab"));
    word.m_cursor->setPosition(1);
    offer(ownFormOf(QStringLiteral("XY"), OpenWord::format(24)), QStringLiteral("XY"));
    QVERIFY(word.paste(false, false));
    QCOMPARE(wordsOf(word), QList<QStringList>{QStringList(QStringLiteral("aXYb"))});
    QCOMPARE(sizeAt(word, 1), 12.0);
}

void TestClipboard::ownEntryWinsOverPlainText()
{
    OpenWord word;
    offer(ownFormOf(QStringLiteral("own"), OpenWord::format()), QStringLiteral("plain"));
    QVERIFY(word.paste(false, true));
    QCOMPARE(word.toPlainText(), QStringLiteral("own"));
    QVERIFY(word.paste(false, false)); // the plain form of the same entry
    QCOMPARE(word.toPlainText(), QStringLiteral("ownplain"));
}

void TestClipboard::ownEntryEndsAtAZeroByte()
{
    OpenWord word;
    QByteArray own = ownFormOf(QStringLiteral("own"), OpenWord::format());
    own.append('\0');
    own.append("}]garbage");
    offer(own);
    QVERIFY(word.paste(false, true));
    QCOMPARE(word.toPlainText(), QStringLiteral("own"));
}

void TestClipboard::textFromOutsideTakesTheFormatAtTheCaret()
{
    OpenWord word;
    word.add(QStringLiteral("ab"), OpenWord::format(24));
    offer(QByteArray(), QStringLiteral("1 < 2\nnext"));
    QVERIFY(word.paste(false, true));
    QCOMPARE(word.toPlainText(), QStringLiteral("ab1 < 2\nnext"));
    QCOMPARE(sizeAt(word, 4), 24.0);
    QCOMPARE(sizeAt(word, 9), 24.0);
}

void TestClipboard::htmlFromOutsideIsPastedAsPlainText_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("text");
    QTest::newRow("bold") << "<b>bold</b> text"
                          << "bold text";
    QTest::newRow("paragraphs") << "<p>one</p><p>two</p>"
                                << "one\ntwo";
    QTest::newRow("entities") << "<i>a &amp; b</i>"
                              << "a & b";
    QTest::newRow("script") << "<p>a</p><script>alert(1)</script>"
                            << "a";
    QTest::newRow("no rich text") << "1 < 2"
                                  << "1 < 2";
    QTest::newRow("unclosed") << "<p><b>a"
                              << "a";
}

void TestClipboard::htmlFromOutsideIsPastedAsPlainText()
{
    QFETCH(QString, html);
    QFETCH(QString, text);
    OpenWord word;
    word.m_cursor->setCharFormat(OpenWord::format());
    offer(QByteArray(), html);
    QVERIFY(word.paste(false, true));
    QCOMPARE(word.toPlainText(), text);
    QTextCursor cursor(word.m_document);
    cursor.setPosition(1);
    QVERIFY(!cursor.charFormat().hasProperty(QTextFormat::FontWeight));
}

void TestClipboard::htmlOfAnOwnEntryStaysAsItIs()
{
    OpenWord word;
    offer(ownFormOf(QStringLiteral("<b>x</b>"), OpenWord::format()), QStringLiteral("<b>x</b>"));
    QVERIFY(word.paste(false, false));
    QCOMPARE(word.toPlainText(), QStringLiteral("<b>x</b>"));
}

void TestClipboard::htmlOpensNoFile()
{
    QTemporaryFile css;
    QVERIFY(css.open());
    css.write("p { display: none }");
    css.flush();
    OpenWord word;
    const QString html = QStringLiteral("<html><head><link rel=\"stylesheet\" type=\"text/css\" "
                                        "href=\"%1\"></head><body><p>seen</p></body></html>")
                             .arg(QUrl::fromLocalFile(css.fileName()).toString());
    QCOMPARE(word.getPlainTextFromHtmlText(html), QStringLiteral("seen"));
    QCOMPARE(word.toPlainText(), QString()); // the object's own document is not touched
}

void TestClipboard::pasteReplacesTheSelection_data()
{
    QTest::addColumn<bool>("own");
    QTest::addColumn<bool>("rich");
    QTest::newRow("own, rich") << true << true;
    QTest::newRow("own, plain") << true << false;
    QTest::newRow("foreign") << false << true;
}

void TestClipboard::pasteReplacesTheSelection()
{
    QFETCH(bool, own);
    QFETCH(bool, rich);
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.select(1, 3);
    word.m_cursor->setPosition(0); // the fields say what is selected
    offer(own ? ownFormOf(QStringLiteral("XY"), OpenWord::format()) : QByteArray(),
          QStringLiteral("XY"));
    QVERIFY(word.paste(false, rich));
    QCOMPARE(word.toPlainText(), QStringLiteral("aXYd"));
    QCOMPARE(word.m_cursor->position(), 3);
    QCOMPARE(word.m_selStart, word.m_selEnd);
}

void TestClipboard::pasteLeavesWhatOnlyTheCursorSelects()
{
    OpenWord word;
    word.add(QStringLiteral("abcd"));
    for (bool own : {true, false}) {
        word.m_cursor->setPosition(1);
        word.m_cursor->setPosition(3, QTextCursor::KeepAnchor);
        offer(own ? ownFormOf(QStringLiteral("X"), OpenWord::format()) : QByteArray(),
              QStringLiteral("X"));
        QVERIFY(word.paste(false, true));
    }
    QCOMPARE(word.toPlainText(), QStringLiteral("abcXXd"));
}

void TestClipboard::pasteEndsAComposition()
{
    OpenWord word;
    word.add(QStringLiteral("abni"));
    word.m_preeditString = QStringLiteral("ni");
    offer(QByteArray(), QStringLiteral("X"));
    QVERIFY(word.paste(false, true));
    QVERIFY(word.m_preeditString.isEmpty());
    QCOMPARE(word.toPlainText(), QStringLiteral("abniX"));
}

void TestClipboard::pastedBlocksSplitTheParagraph()
{
    OpenWord other;
    QTextBlockFormat indented;
    indented.setProperty(TextProperty::LeftIndent, 7.0);
    other.add(QStringLiteral("one\ntwo"));
    other.m_cursor->movePosition(QTextCursor::Start);
    other.m_cursor->setBlockFormat(indented);
    other.selectAll();
    QVERIFY(other.copy());

    OpenWord word;
    word.add(QStringLiteral("abcd"));
    word.m_cursor->setPosition(2);
    QVERIFY(word.paste(false, true));
    QCOMPARE(word.toPlainText(), QStringLiteral("abone\ntwocd"));
    const QTextBlock first = word.m_document->firstBlock();
    QCOMPARE(first.blockFormat().doubleProperty(TextProperty::LeftIndent), 7.0); // replaced
    QCOMPARE(first.next().blockFormat().doubleProperty(TextProperty::LeftIndent), 0.0);
}

void TestClipboard::pasteTellsListenersAndLaysOut()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    offer(QByteArray(), QStringLiteral("cde"));
    host.clearEvents();
    QVERIFY(word.paste(false, true));
    QCOMPARE(operationsOf(host), QVector<int>{0});
    QCOMPARE(word.m_clientRect.size(), QSizeF(40, 16));
    QCOMPARE(host.stack().count(), 0);
}

void TestClipboard::pasteIsPartOfTheEditsStep()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    word.beginEdit();
    offer(QByteArray(), QStringLiteral("cd"));
    QVERIFY(word.paste(false, true));
    word.endEdit();
    QCOMPARE(host.stack().count(), 1);
    host.stack().undo();
    QCOMPARE(word.toPlainText(), QStringLiteral("ab"));
    host.stack().clear();
}

void TestClipboard::cutIsOneStepOfTheDocument()
{
    OpenWord word;
    word.add(QStringLiteral("ab\n"));
    word.add(QStringLiteral("cd"), OpenWord::format(24));
    word.m_document->clearUndoRedoStacks();
    word.select(1, 4);
    QVERIFY(word.cut());
    QCOMPARE(word.toPlainText(), QStringLiteral("ad"));
    word.m_document->undo();
    QVERIFY(!word.m_document->isUndoAvailable());
    QCOMPARE(word.toPlainText(), QStringLiteral("ab\ncd"));
    QCOMPARE(sizeAt(word, 3), 24.0);
}

void TestClipboard::pasteIsOneStepOfTheDocument_data()
{
    QTest::addColumn<bool>("own");
    QTest::addColumn<bool>("newObject");
    QTest::addColumn<bool>("selected");
    for (bool own : {true, false}) {
        for (bool newObject : {true, false}) {
            for (bool selected : {true, false})
                QTest::addRow("own %d, new %d, selected %d", own, newObject, selected)
                    << own << newObject << selected;
        }
    }
}

void TestClipboard::pasteIsOneStepOfTheDocument()
{
    QFETCH(bool, own);
    QFETCH(bool, newObject);
    QFETCH(bool, selected);
    OpenWord word;
    word.add(QStringLiteral("abcdef"));
    const QString before = word.serialize(false);
    word.m_document->clearUndoRedoStacks();
    if (selected)
        word.select(1, 5);
    offer(own ? ownFormOf(QStringLiteral("X\nY"), OpenWord::format(24)) : QByteArray(),
          QStringLiteral("X\nY"));
    QVERIFY(word.paste(newObject, /*rich=*/own));
    QCOMPARE(word.toPlainText(),
             selected ? QStringLiteral("aX\nYf") : QStringLiteral("abcdefX\nY"));
    word.m_document->undo();
    QVERIFY(!word.m_document->isUndoAvailable());
    QCOMPARE(contentsOf(word.serialize(false)), contentsOf(before));
    QCOMPARE(jsonOf(word.serialize(false)).value(QLatin1String("fragment")),
             jsonOf(before).value(QLatin1String("fragment")));
    word.m_document->redo();
    QCOMPARE(word.toPlainText(),
             selected ? QStringLiteral("aX\nYf") : QStringLiteral("abcdefX\nY"));
}

void TestClipboard::listenerMayUndoThePasteThatItIsToldOf()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcdef"));
    word.m_document->clearUndoRedoStacks();
    word.select(1, 5);
    offer(QByteArray(), QStringLiteral("X"));
    bool undone = false;
    host.onTextOperation = [&](int) {
        if (!undone) {
            undone = true;
            word.m_document->undo();
        }
    };
    QVERIFY(word.paste(false, true));
    host.onTextOperation = nullptr;
    QVERIFY(undone);
    QCOMPARE(word.toPlainText(), QStringLiteral("abcdef"));
    contentOf(word);
}

void TestClipboard::newObjectIsFinished_data()
{
    QTest::addColumn<bool>("own");
    QTest::addColumn<bool>("rich");
    QTest::newRow("own, rich") << true << true;
    QTest::newRow("own, plain") << true << false;
    QTest::newRow("foreign, rich") << false << true;
    QTest::newRow("foreign, plain") << false << false;
}

void TestClipboard::newObjectIsFinished()
{
    QFETCH(bool, own);
    QFETCH(bool, rich);
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false; // as the factory hands it out
    word.setTextInteractionFlags(Qt::TextEditorInteraction);
    word.setHandlesDisable(CObjAction::ACT_Rotate, true);
    offer(own ? ownFormOf(QStringLiteral("text"), OpenWord::format()) : QByteArray(),
          QStringLiteral("text"));
    host.clearEvents();
    QVERIFY(word.paste(true, rich));
    QVERIFY(word.m_created);
    QCOMPARE(word.toPlainText(), QStringLiteral("text"));
    QCOMPARE(word.textInteractionFlags(), Qt::TextInteractionFlags(Qt::NoTextInteraction));
    QVERIFY(sizeHandlesAre(word, false));
    QVERIFY(!word.isHandleDisabled(CObjAction::ACT_Rotate));
    QVERIFY(word.m_clientRect.width() > 20);
    QCOMPARE(operationsOf(host), (QVector<int>{0, 0})); // as finished, and as pasted
}

void TestClipboard::newObjectTakesTheDefaultLook_data()
{
    QTest::addColumn<bool>("own");
    QTest::newRow("own") << true;
    QTest::newRow("foreign") << false;
}

void TestClipboard::newObjectTakesTheDefaultLook()
{
    QFETCH(bool, own);
    RecordingHost host;
    host.defaultFontSize = 18;
    OpenWord word(&host);
    word.m_created = false;
    offer(own ? ownFormOf(QStringLiteral("text"), OpenWord::format()) : QByteArray(),
          QStringLiteral("text"));
    QVERIFY(word.paste(true, false));
    const QTextBlock block = word.m_document->firstBlock();
    const QTextCharFormat format = block.begin().fragment().charFormat();
    QCOMPARE(format.fontFamily(), QStringLiteral("BoxTest"));
    QCOMPARE(format.fontPointSize(), 18.0);
    QCOMPARE(format.foreground(), QBrush(Qt::black, Qt::SolidPattern));
    QCOMPARE(format.property(TextProperty::RowSpacing), QVariant(0));
    QCOMPARE(block.charFormat().fontPointSize(), 18.0);
    QCOMPARE(block.blockFormat().property(QTextFormat::BlockLeftMargin), QVariant(0.0));
}

void TestClipboard::newObjectWithRichTextKeepsItsFormats()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    offer(ownFormOf(QStringLiteral("text"), OpenWord::format(24)), QStringLiteral("text"));
    QVERIFY(word.paste(true, true));
    QCOMPARE(sizeAt(word, 0), 24.0);
    QVERIFY(!word.m_document->firstBlock().begin().fragment().charFormat().hasProperty(
        QTextFormat::FontFixedPitch)); // a property of whole fonts only
}

void TestClipboard::newObjectWithoutTextStaysUnfinished()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    QVERIFY(!word.paste(true, true));
    QVERIFY(!word.m_created);
}

void TestClipboard::newObjectNotesThePlaceOfItsPicture()
{
    RecordingHost host;
    OpenWord word(&host);
    word.m_created = false;
    word.setPos(QPointF(30, 40), false);
    word.m_textOffset = QPointF(0, 0);
    word.m_showFontImage = true;
    word.m_fontImagePos = QPointF(-1, -1);
    offer(QByteArray(), QStringLiteral("text"));
    QVERIFY(word.paste(true, false));
    QCOMPARE(word.m_fontImagePos, word.getPos());
}

void TestClipboard::brokenOwnFormCountsAsAbsent_data()
{
    QTest::addColumn<QByteArray>("own");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("zero byte first") << QByteArray("\0{}", 3);
    QTest::newRow("no JSON") << QByteArray("text");
    QTest::newRow("not UTF-8") << QByteArray("\xff\xfe{\x80}");
    QTest::newRow("cut short") << QByteArray("{\"block\":[{}],\"fragm");
    QTest::newRow("an array") << QByteArray("[{},{}]");
    QTest::newRow("a number") << QByteArray("17");
    QTest::newRow("no body") << QByteArray("{}");
    QTest::newRow("no runs") << QByteArray("{\"block\":[{}]}");
    QTest::newRow("no paragraphs") << QByteArray("{\"fragment\":[[]]}");
    QTest::newRow("sizes differ") << QByteArray("{\"block\":[{},{}],\"fragment\":[[]]}");
    QTest::newRow("objects for arrays") << QByteArray("{\"block\":{},\"fragment\":{}}");
    QTest::newRow("nothing in it") << QByteArray("{\"block\":[],\"fragment\":[]}");
    QTest::newRow("nested too deep") << QByteArray("{\"block\":" + QByteArray(5000, '['));
}

void TestClipboard::brokenOwnFormCountsAsAbsent()
{
    QFETCH(QByteArray, own);
    OpenWord word;
    word.add(QStringLiteral("ab"));
    offer(own, QStringLiteral("cd"));
    for (bool rich : {true, false})
        QVERIFY(word.paste(false, rich));
    QCOMPARE(word.toPlainText(), QStringLiteral("abcdcd"));
}

void TestClipboard::brokenOwnFormLeavesTheSelection()
{
    RecordingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("abcd"));
    word.select(1, 3);
    const QString before = word.serialize(false);
    const QByteArray richOnly = ownFormOf(QStringLiteral("x"), OpenWord::format());
    host.clearEvents();
    offer(QByteArray("{\"block\":[{}]"));
    QVERIFY(!word.paste(false, true));
    QVERIFY(!word.paste(false, false));
    offer(richOnly);
    QVERIFY(!word.paste(false, false));
    QCOMPARE(word.serialize(false), before);
    QVERIFY(host.events.isEmpty());
}

void TestClipboard::oddContentsLeaveAnObjectThatWorks_data()
{
    QTest::addColumn<QByteArray>("own");
    QTest::newRow("runs of other types")
        << QByteArray("{\"block\":[1,\"x\",null],\"fragment\":[2,[3,null,\"y\"],{}]}");
    QTest::newRow("numbers as text")
        << QByteArray("{\"block\":[{\"textalignment\":\"x\",\"paragraph_left_indent\":\"nan\"}],"
                      "\"fragment\":[[{\"content\":\"a\",\"font_pointsize\":\"inf\"}]]}");
    QTest::newRow("huge numbers") << QByteArray(
        "{\"block\":[{\"textalignment\":1e308,\"paragraph_left_indent\":-1e308,"
        "\"paragraph_first_indent\":1e308,\"paragraph_after_space\":1e308}],"
        "\"fragment\":[[{\"content\":\"ab\",\"font_pointsize\":1e308,"
        "\"font_letterspacing\":-1e308,\"selected_letterspacing\":1e308,"
        "\"vertical_scaled\":1e308,\"horizontal_scaled\":-1e308,"
        "\"baseline_offset\":1e308,\"font_rowspacing\":-1e308}]]}");
    QTest::newRow("content of other types")
        << QByteArray("{\"block\":[{}],\"fragment\":[[{\"content\":5},{\"content\":[1]},{}]]}");
    QTest::newRow("odd characters")
        << QByteArray("{\"block\":[{}],\"fragment\":[[{\"content\":\"\\u0000\\ufdd0\\ufdd1\\ufffc"
                      "\\ud83d\\udc00\\u2029\\u2028\\r\\n\"}]]}");
    QTest::newRow("a header") << QByteArray(
        "{\"block\":[{}],\"fragment\":[[{\"content\":\"a\"}],[]],"
        "\"cursor_position\":99,\"text_direction\":7,\"text_wordwrap\":true}");
    QTest::newRow("many paragraphs")
        << QByteArray("{\"block\":[" + QByteArray("{},").repeated(100) + "{}],\"fragment\":["
                      + QByteArray("[{}],").repeated(100) + "[{}]]}");
}

void TestClipboard::oddContentsLeaveAnObjectThatWorks()
{
    QFETCH(QByteArray, own);
    RecordingHost host;
    for (bool newObject : {false, true}) {
        for (bool rich : {false, true}) {
            OpenWord word(&host);
            word.add(QStringLiteral("ab"));
            word.beginEdit();
            offer(own, QStringLiteral("cd"));
            QVERIFY(word.paste(newObject, rich));
            QVERIFY(word.toPlainText().startsWith(QLatin1String("ab")));
            word.endEdit();
            QCOMPARE(word.m_textOrientation, 1); // a header does not count
            QVERIFY(!word.m_wordWrap);
            contentOf(word);
            const QString state = word.serialize(false);
            word.undoRedo(state, true);
            QCOMPARE(jsonOf(word.serialize(false)).keys(), jsonOf(state).keys());
            host.stack().clear();
        }
    }
}

void TestClipboard::ownFormCutAnywhere()
{
    const QByteArray whole = ownFormOf(QStringLiteral("a\nb"), OpenWord::format());
    OpenWord word;
    for (int length = 0; length < whole.size(); length += 5) {
        offer(whole.left(length), QStringLiteral("."));
        QVERIFY(word.paste(false, true));
    }
    QCOMPARE(word.toPlainText(), QString((whole.size() + 4) / 5, QLatin1Char('.')));
}

void TestClipboard::randomBytesLeaveAnObjectThatWorks()
{
    QRandomGenerator random(20);
    const QByteArray whole = ownFormOf(QStringLiteral("a\nb"), OpenWord::format());
    RecordingHost host;
    OpenWord word(&host);
    for (int i = 0; i < 100; ++i) {
        QByteArray own = whole;
        for (int hits = random.bounded(1, 6); hits > 0; --hits)
            own[random.bounded(own.size())] = char(random.bounded(256));
        offer(own, QStringLiteral("."));
        word.beginEdit();
        word.selectAll();
        const bool newObject = random.bounded(8) == 0;
        QVERIFY(word.paste(newObject, /*rich=*/random.bounded(4) > 0));
        word.endEdit();
        word.serialize(false);
    }
    contentOf(word);
    host.stack().clear();
}

void TestClipboard::listenerMayPasteAgain()
{
    CallingHost host;
    OpenWord word(&host);
    word.add(QStringLiteral("ab"));
    offer(QByteArray(), QStringLiteral("X"));
    int calls = 0;
    host.onTextOperation = [&](int) {
        ++calls;
        word.selectAll();
        word.cut();
        word.paste(false, true);
    };
    QVERIFY(word.paste(false, true));
    QVERIFY(calls > 0);
    QVERIFY(calls < 1000); // each level of calls within calls multiplies them
    host.onTextOperation = nullptr;
    QVERIFY(!word.toPlainText().isEmpty());
    QVERIFY(word.toPlainText().contains(QLatin1Char('X')));
    word.updateBoundingRectImpl(true);
    contentOf(word);
}

void TestClipboard::copyAndPasteReproducesAnySelection_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 20; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void TestClipboard::copyAndPasteReproducesAnySelection()
{
    QFETCH(uint, seed);
    QRandomGenerator random(seed);
    OpenWord word;
    for (int i = 0; i < 8; ++i) {
        const QChar letter('a' + random.bounded(26));
        const QString text(random.bounded(1, 6), letter);
        word.add(random.bounded(4) == 0 ? text + QLatin1Char('\n') : text,
                 OpenWord::format(8 + 4 * random.bounded(3)));
    }
    const int last = word.m_document->characterCount() - 1;
    int start = random.bounded(last);
    // A paragraph of which nothing but its end is selected leaves no trace.
    while (start > 0 && word.m_document->characterAt(start) == QChar::ParagraphSeparator)
        --start;
    const int end = random.bounded(start + 1, last + 1);
    word.select(start, end);
    const QString selected = word.getSelectedText();
    QVERIFY(word.copy());
    OpenWord other;
    QVERIFY(other.paste(false, true));
    // A line end that nothing selected follows is no content of its own.
    const QString expected = selected.endsWith(QLatin1Char('\n')) ? selected.chopped(1) : selected;
    QVERIFY2(other.toPlainText() == selected || other.toPlainText() == expected,
             qPrintable(other.toPlainText()));
    for (int i = 0; i < other.toPlainText().size(); ++i) {
        if (selected.at(i) != QLatin1Char('\n'))
            QCOMPARE(sizeAt(other, i), sizeAt(word, start + i));
    }
}

QTEST_MAIN(TestClipboard)
#include "tst_clipboard.moc"
