// SPDX-License-Identifier: MIT
// What the editor does with files: former versions, copies for recovery, broken files, questions.
#include "app/page/framework.h"
#include "app/page/pagestorage.h"
#include "app/page/pluginloader.h"
#include "app/page/unfinishedfile.h"
#include "app/pagehost/busysign.h"
#include "app/pagehost/filecommands.h"
#include "app/pagehost/mainwindow.h"
#include "app/pagehost/pageproblem.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/pageview.h"
#include "app/pagehost/recentfiles.h"
#include "app/pagehost/recovery.h"
#include "app/pagehost/recoverydialog.h"
#include "app/pagehost/settings.h"
#include "app/pagehost/textcommands.h"
#include "app/pagehost/translations.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"
#include "tests/pagehost/filedialoguser.h"
#include "tests/pagehost/slowclock.h"

#include <QAction>
#include <QDir>
#include <QDirIterator>
#include <QInputMethodEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <memory>

class TestFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    // Saving
    void formerVersionStaysBesideFile();
    void sameContentLeavesFormerVersion();
    void linkedFileKeepsItsLink();
    void formerVersionThatIsInTheWayStopsTheSave();
    void unknownKeysAndKindsComeBack_data();
    void unknownKeysAndKindsComeBack();
    void fileThatAnotherProgramChangedIsAskedAbout();
    void pageThatIsReadBackWrongIsNotWritten();
    void leftoversOfDeadWritersGo_data();
    void leftoversOfDeadWritersGo();
    void leftoversOfOthersStay();
    void finishedFileBearsNoMark();

    // Snapshots
    void snapshotHoldsWhatIsTyped_data();
    void snapshotHoldsWhatIsTyped();
    void snapshotLeavesEditAlone_data();
    void snapshotLeavesEditAlone();
    void snapshotLeavesCompositionAlone_data();
    void snapshotLeavesCompositionAlone();
    void snapshotIsWhatSavingWrites_data();
    void snapshotIsWhatSavingWrites();
    void snapshotLeavesOutNewEmptyText();

    // Recovery
    void modifiedPageHasCopy();
    void copyGoesWhenPageIsSaved();
    void copyGoesWithItsPage();
    void copyComesByItself();
    void changesDoNotPutTheCopyOff();
    void copyThatWasNotWrittenIsWrittenAgain();
    void copyOfRunningProgramIsNotOffered();
    void abandonedCopyIsOffered();
    void recoveredPageIsModifiedPageOfItsFile();
    void recoveredPageAsksAheadOfAFileThatIsNewer();
    void pageIsKnownByItsWholePath();
    void discardedCopyIsGone();
    void copyThatIsLeftForLaterIsOfferedAgain();

    // Opening
    void problemOfFileIsNamed_data();
    void problemOfFileIsNamed();
    void refusedFileReplacesNothing();
    void whatIsLeftOutIsTold();
    void openPageIsFirstOfRecentFiles();
    void recentFilesHaveAnEnd();
    void recentFileThatIsGoneIsForgotten();

    // Leaving
    void closeQuestion_data();
    void closeQuestion();

    // Long work
    void timeDecidesWhatIsShown_data();
    void timeDecidesWhatIsShown();
    void workBesideTheWindowIsWatchedToo();
    void longWorkHoldsOffTheRest();
    void longWorkCanBeGivenUp();
    void dialogThatIsClosedGivesUpAndComesBack();
    void lastPartCannotBeGivenUp();
    void openingThatIsGivenUpLeavesPage();
    void savingThatIsGivenUpLeavesFile();
    void slowOpeningCanBeCancelled();
    void slowSavingCanBeCancelled();
    void slowRecoveryCanBeCancelled();
    void slowWorkThatIsWaitedForIsDone();

    // Languages
    void hostStringsOfObjectsAreKnown();
    void programSpeaksChinese();
    void noMenuHasAMnemonicTwice_data();
    void noMenuHasAMnemonicTwice();

private:
    PageSession *session() const { return m_window->session(); }
    CVXRootObject *first() const { return session()->page()->objects().value(0); }
    QString inFolder(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QString writePage(const char *name, const QByteArray &objects) const;
    void openText();
    void openArt();
    void open(const QString &kind) { kind == QLatin1String("art") ? openArt() : openText(); }
    void edit();
    void type(const QString &text) { QTest::keyClicks(m_window->view(), text); }
    void compose(const QString &preedit, const QString &commit = QString());
    void abandonCopy();
    void answer(QMessageBox::StandardButton button, QString *text = nullptr)
    {
        answerMessage(button, text);
    }
    void recoverFirst();
    QJsonObject changedAndSaved(const QString &name);
    QTimer *copyTimer() const { return m_window->files()->recovery()->findChild<QTimer *>(); }

    PluginLoader m_loader;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Framework> m_framework;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool write(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// The characters of the first object of \a file; empty when it is written by hand.
QString textIn(const PageFile &file)
{
    const QJsonObject record = file.toJson()
                                   .value(QLatin1String("objects"))
                                   .toArray()
                                   .at(0)
                                   .toObject()
                                   .value(QLatin1String("record"))
                                   .toObject();
    if (record.contains(QLatin1String("textWord")))
        return record.value(QLatin1String("textWord")).toString();
    const QJsonObject document = QJsonDocument::fromJson(record.value(QLatin1String("params"))
                                                             .toObject()
                                                             .value(QLatin1String("document_data"))
                                                             .toString()
                                                             .toUtf8())
                                     .object();
    QString text;
    for (const QJsonValue &block : document.value(QLatin1String("fragment")).toArray()) {
        for (const QJsonValue &run : block.toArray())
            text += run.toObject().value(QLatin1String("content")).toString();
    }
    return text;
}

const QByteArray written =
    R"({ "kind": "rich_text", "layout": "box", "x": 40, "y": 40, "width": 300,
    "height": 120, "text": "before", "attributes": { "font_family": "DejaVu Sans" } })";
const QByteArray art =
    R"({ "kind": "art_text", "record": { "version": 1, "x": 40, "y": 40, "width": 300,
    "height": 120, "created": true, "textWord": "before", "fontFamily": "DejaVu Sans",
    "fontSize": 96, "params": { "text_alignment": 4, "font_Somehow": false } } })";

} // namespace

void TestFiles::initTestCase()
{
    QVERIFY2(m_loader.load(QStringLiteral(VX_PLUGIN)), qPrintable(m_loader.errorString()));
}

void TestFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", inFolder("config").toUtf8());
    qputenv("XDG_DATA_HOME", inFolder("data").toUtf8());
    RecentFiles::clear();
    m_framework = std::make_unique<Framework>();
    m_framework->setDefaultFont(QStringLiteral("DejaVu Sans"), 24);
    m_window = std::make_unique<MainWindow>(&m_loader, m_framework.get());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->view()->setFocus();
}

void TestFiles::cleanup()
{
    m_window.reset();
    m_framework.reset();
    m_folder.reset();
}

QString TestFiles::writePage(const char *name, const QByteArray &objects) const
{
    const QString fileName = inFolder(name);
    const QByteArray page =
        R"({"format": "vxpage", "version": 1, "page": {"width": 400, "height": 300},
        "objects": [)"
        + objects + "]}";
    return write(fileName, page) ? fileName : QString();
}

void TestFiles::openText()
{
    QVERIFY(m_window->openFile(writePage("page.json", written)));
}

void TestFiles::openArt()
{
    QVERIFY(m_window->openFile(writePage("page.json", art)));
}

/// Enters the edit of the first object, with the caret at its end.
void TestFiles::edit()
{
    session()->select(first());
    TextCommands::beginEdit(first());
    QCOMPARE(session()->editedObject(), first());
    QTest::keyClick(m_window->view(), Qt::Key_End, Qt::ControlModifier);
}

void TestFiles::compose(const QString &preedit, const QString &commit)
{
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(m_window->view(), &event);
}

/// Leaves the copy of the page behind as a program does that is killed.
void TestFiles::abandonCopy()
{
    Recovery *recovery = m_window->files()->recovery();
    QVERIFY(recovery->copyNow());
    const QDir folder = QFileInfo(recovery->copyName()).dir();
    QTRY_VERIFY(folder.exists(QStringLiteral("page.vxpage")));
    const QString left = inFolder("left");
    QVERIFY(QDir().mkpath(left));
    for (const char *name : {"page.vxpage", "original"}) {
        QVERIFY(QFile::copy(folder.filePath(QLatin1String(name)),
                            left + QLatin1Char('/') + QLatin1String(name)));
    }
    m_window->takeSession(PageSession::create(&m_loader));
    QVERIFY(QDir().rename(left, dataFolder() + QStringLiteral("/recovery/left")));
}

/// Chooses the first page of the next dialog that offers some.
void TestFiles::recoverFirst()
{
    QTimer::singleShot(0, this, [] {
        auto *dialog = qobject_cast<RecoveryDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        QVERIFY(dialog->findChild<QListWidget *>()->item(0)->text().startsWith(
            QLatin1String("page.json")));
        QTest::keyClick(dialog->findChild<QListWidget *>(), Qt::Key_Return);
    });
}

// Saving

void TestFiles::formerVersionStaysBesideFile()
{
    openText();
    const QString fileName = session()->fileName();
    const QByteArray before = contentOf(fileName);
    edit();
    type(QStringLiteral(" and after"));
    QString error;
    QVERIFY2(session()->save(fileName, error), qPrintable(error));
    QVERIFY(contentOf(fileName) != before);
    QCOMPARE(contentOf(fileName + QLatin1Char('~')), before);
    const QByteArray second = contentOf(fileName);
    type(QStringLiteral("!"));
    QVERIFY(session()->save(fileName, error));
    QCOMPARE(contentOf(fileName + QLatin1Char('~')), second);
}

void TestFiles::sameContentLeavesFormerVersion()
{
    openText();
    const QString fileName = session()->fileName();
    const QByteArray before = contentOf(fileName);
    QString error;
    edit();
    type(QStringLiteral("!"));
    QVERIFY(session()->save(fileName, error));
    session()->endEdit();
    QVERIFY(session()->save(fileName, error));
    QVERIFY(session()->save(fileName, error));
    QCOMPARE(contentOf(fileName + QLatin1Char('~')), before);
}

void TestFiles::linkedFileKeepsItsLink()
{
    openText();
    const QString link = inFolder("link.json");
    QVERIFY(QFile::link(session()->fileName(), link));
    const QByteArray before = contentOf(link);
    QVERIFY(m_window->openFile(link));
    edit();
    type(QStringLiteral("!"));
    QString error;
    QVERIFY2(session()->save(link, error), qPrintable(error));
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(contentOf(inFolder("page.json")) != before);
    QCOMPARE(contentOf(link + QLatin1Char('~')), before);
}

void TestFiles::formerVersionThatIsInTheWayStopsTheSave()
{
    openText();
    const QString fileName = session()->fileName();
    const QByteArray before = contentOf(fileName);
    QVERIFY(QDir().mkpath(fileName + QStringLiteral("~/full")));
    edit();
    type(QStringLiteral("!"));
    QString error;
    QVERIFY(!session()->save(fileName, error));
    QVERIFY2(error.contains(QLatin1String("page.json~")), qPrintable(error));
    QCOMPARE(contentOf(fileName), before);
    QVERIFY(session()->isModified());
}

/// Changes the text of the first object and saves the page as \a name, of which the root comes back.
QJsonObject TestFiles::changedAndSaved(const QString &name)
{
    edit();
    type(QStringLiteral("!"));
    session()->endEdit();
    QString error;
    PageFile file;
    if (!session()->save(name, error) || !readPageFile(name, file, error))
        qWarning("%s", qPrintable(error));
    return file.toJson();
}

void TestFiles::unknownKeysAndKindsComeBack_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("JSON to JSON") << QStringLiteral("a.json") << QStringLiteral("b.json");
    QTest::newRow("JSON to binary") << QStringLiteral("a.json") << QStringLiteral("b.vxpage");
    QTest::newRow("binary to JSON") << QStringLiteral("a.vxpage") << QStringLiteral("b.json");
    QTest::newRow("binary to binary") << QStringLiteral("a.vxpage") << QStringLiteral("b.vxpage");
}

void TestFiles::unknownKeysAndKindsComeBack()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    const auto sheetOf = [](const QJsonObject &root) {
        return root.value(QLatin1String("page")).toObject();
    };
    const auto objectOf = [](const QJsonObject &root, int place) {
        return root.value(QLatin1String("objects")).toArray().at(place).toObject();
    };
    const QString later = QStringLiteral("later");
    const QJsonValue kept(
        QJsonObject{{QStringLiteral("a"), QJsonArray({true, 2.5, QJsonValue()})}});
    const QJsonObject chart{{QStringLiteral("kind"), QStringLiteral("chart")},
                            {QStringLiteral("name"), QStringLiteral("sales")},
                            {QStringLiteral("data"), QJsonArray({1, 2.5, QJsonValue()})}};
    // Written by hand at first, with what is not known in each of its parts.
    QJsonObject text = QJsonDocument::fromJson(written).object();
    text.insert(later, kept);
    QJsonObject attributes = text.value(QLatin1String("attributes")).toObject();
    attributes.insert(later, kept);
    text.insert(QStringLiteral("attributes"), attributes);
    const QJsonObject page{{QStringLiteral("format"), QStringLiteral("vxpage")},
                           {QStringLiteral("version"), 1},
                           {QStringLiteral("page"), QJsonObject{{QStringLiteral("width"), 400},
                                                                {QStringLiteral("height"), 300},
                                                                {later, kept}}},
                           {QStringLiteral("objects"), QJsonArray({text, chart})},
                           {later, kept}};
    QVERIFY(write(inFolder("hand.json"), QJsonDocument(page).toJson()));
    QVERIFY(m_window->openFile(inFolder("hand.json")));
    QCOMPARE(session()->page()->objects().size(), 1);
    QJsonObject root = changedAndSaved(m_folder->filePath(first));

    // A record from now on: what is not known in it too.
    QJsonArray objects = root.value(QLatin1String("objects")).toArray();
    QJsonObject object = objects.at(0).toObject();
    QJsonObject record = object.value(QLatin1String("record")).toObject();
    QVERIFY(!record.isEmpty());
    QJsonObject parameters = record.value(QLatin1String("params")).toObject();
    parameters.insert(later, QStringLiteral("kept"));
    record.insert(QStringLiteral("params"), parameters);
    record.insert(later, kept);
    object.insert(QStringLiteral("record"), record);
    objects.replace(0, object);
    root.insert(QStringLiteral("objects"), objects);
    PageFile file;
    QString error;
    QVERIFY2(file.read(root, error), qPrintable(error));
    QVERIFY2(writePageFile(m_folder->filePath(first), file, error), qPrintable(error));
    QVERIFY(m_window->openFile(m_folder->filePath(first)));
    root = changedAndSaved(m_folder->filePath(second));

    QCOMPARE(textIn(file), QStringLiteral("before!"));
    QCOMPARE(root.value(later), kept);
    QCOMPARE(sheetOf(root).value(later), kept);
    QCOMPARE(objectOf(root, 0).value(later), kept);
    QCOMPARE(objectOf(root, 0).value(QLatin1String("attributes")).toObject().value(later), kept);
    record = objectOf(root, 0).value(QLatin1String("record")).toObject();
    QCOMPARE(record.value(later), kept);
    QCOMPARE(record.value(QLatin1String("params")).toObject().value(later).toString(),
             QStringLiteral("kept"));
    QCOMPARE(objectOf(root, 1), chart);
}

void TestFiles::fileThatAnotherProgramChangedIsAskedAbout()
{
    openText();
    const QString fileName = session()->fileName();
    QVERIFY(!session()->isFileForeign());
    const QByteArray foreign = contentOf(fileName) + "\n";
    QVERIFY(write(fileName, foreign));
    QVERIFY(session()->isFileForeign());
    edit();
    type(QStringLiteral("!"));
    QString question;
    answer(QMessageBox::Cancel, &question);
    m_window->findChild<QAction *>(QStringLiteral("save"))->trigger();
    QVERIFY2(question.contains(QLatin1String("page.json")), qPrintable(question));
    QCOMPARE(contentOf(fileName), foreign);
    answer(QMessageBox::Save);
    m_window->findChild<QAction *>(QStringLiteral("save"))->trigger();
    QVERIFY(contentOf(fileName) != foreign);
    QVERIFY(!session()->isFileForeign());
}

void TestFiles::pageThatIsReadBackWrongIsNotWritten()
{
    const QString fileName = inFolder("whole.txt");
    QVERIFY(write(fileName, "old"));
    QString reason;
    QByteArray readBack;
    const FileCheck refuses = [&](const QByteArray &bytes, QString &why) {
        readBack = bytes;
        why = QStringLiteral("no");
        return false;
    };
    QVERIFY(!writeFile(fileName, "new", reason, FormerFile::Kept, refuses));
    QCOMPARE(readBack, QByteArray("new"));
    QCOMPARE(reason, QStringLiteral("no"));
    QCOMPARE(contentOf(fileName), QByteArray("old"));
    QVERIFY(!QFileInfo::exists(formerFileName(fileName)));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files),
             QStringList(QStringLiteral("whole.txt"))); // nothing is left lying about
}

/// A file as a writer that is killed leaves it behind. False where files cannot be marked.
static bool leaveUnfinished(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write("half") != 4 || !file.flush())
        qWarning("cannot write %s", qPrintable(name));
    return UnfinishedMark(file.handle()).isSet();
}

void TestFiles::leftoversOfDeadWritersGo_data()
{
    QTest::addColumn<bool>("saves");
    QTest::newRow("when the file is saved") << true;
    QTest::newRow("when the file is opened") << false;
}

void TestFiles::leftoversOfDeadWritersGo()
{
    QFETCH(bool, saves);
    openText();
    const QString fileName = session()->fileName();
    const QString link = inFolder("link.json");
    QVERIFY(QFile::link(fileName, link));
    for (const QString &name : {fileName, link}) {
        if (!leaveUnfinished(fileName + QStringLiteral(".AbCdeF")))
            QSKIP("the disk takes no marks");
        QString error;
        if (saves)
            QVERIFY2(session()->save(name, error), qPrintable(error));
        else
            QVERIFY(m_window->openFile(name));
        QVERIFY(!QFile::exists(fileName + QStringLiteral(".AbCdeF")));
    }
}

void TestFiles::leftoversOfOthersStay()
{
    openText();
    const QString fileName = session()->fileName();
    const QStringList unlike{fileName + QStringLiteral(".AbCdeFg"),
                             fileName + QStringLiteral(".AbCde1"),
                             fileName + QStringLiteral(".AbCde"),
                             fileName + QStringLiteral("AbCdeF"), inFolder("other.json.AbCdeF")};
    for (const QString &name : unlike) {
        if (!leaveUnfinished(name))
            QSKIP("the disk takes no marks");
    }
    const QString unmarked = fileName + QStringLiteral(".notOur");
    QVERIFY(write(unmarked, "of another program"));
    QFile busy(fileName + QStringLiteral(".Living"));
    QVERIFY(busy.open(QIODevice::WriteOnly));
    const UnfinishedMark mark(busy.handle());
    QVERIFY(mark.isSet());
    QString error;
    QVERIFY2(session()->save(fileName, error), qPrintable(error));
    QVERIFY(m_window->openFile(fileName));
    for (const QString &name : unlike + QStringList{unmarked, busy.fileName()})
        QVERIFY2(QFile::exists(name), qPrintable(name));
}

/// Under its name it is a file like any other: a copy of it made under the name of a leftover stays.
void TestFiles::finishedFileBearsNoMark()
{
    openText();
    const QString fileName = session()->fileName();
    QString error;
    edit();
    type(QStringLiteral("!"));
    QVERIFY2(session()->save(fileName, error), qPrintable(error));
    QVERIFY(QDir().rename(fileName, fileName + QStringLiteral(".AbCdeF")));
    removeUnfinished(fileName);
    QVERIFY(QFile::exists(fileName + QStringLiteral(".AbCdeF")));
    QVERIFY(QDir().rename(fileName + QStringLiteral(".AbCdeF"), fileName));

    // A kill behind the last step of a save leaves the mark: it goes with the next look at the file.
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    if (!UnfinishedMark(file.handle()).isSet())
        QSKIP("the disk takes no marks");
    file.close();
    QVERIFY(m_window->openFile(fileName));
    QVERIFY(QDir().rename(fileName, fileName + QStringLiteral(".AbCdeF")));
    removeUnfinished(fileName);
    QVERIFY(QFile::exists(fileName + QStringLiteral(".AbCdeF")));
}

// Snapshots

namespace {
void addKinds()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("rich text") << QStringLiteral("rich");
    QTest::newRow("art text") << QStringLiteral("art");
}
} // namespace

void TestFiles::snapshotHoldsWhatIsTyped_data()
{
    addKinds();
}

void TestFiles::snapshotHoldsWhatIsTyped()
{
    QFETCH(QString, kind);
    open(kind);
    edit();
    type(QStringLiteral(" and after"));
    PageFile file;
    QString error;
    QVERIFY2(session()->snapshot(file, error), qPrintable(error));
    QCOMPARE(textIn(file), QStringLiteral("before and after"));
}

void TestFiles::snapshotLeavesEditAlone_data()
{
    addKinds();
}

void TestFiles::snapshotLeavesEditAlone()
{
    QFETCH(QString, kind);
    open(kind);
    edit();
    type(QStringLiteral("xyz"));
    QTest::keyClick(m_window->view(), Qt::Key_Left, Qt::ShiftModifier); // selects the z
    const int steps = session()->undoStack()->count();
    PageFile file;
    QString error;
    QVERIFY(session()->snapshot(file, error));
    QCOMPARE(session()->editedObject(), first());
    QCOMPARE(session()->undoStack()->count(), steps);
    type(QStringLiteral("w")); // in place of the selection
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("beforexyw"));
    while (TextCommands::plainText(first()) != QLatin1String("before")) {
        const QString text = TextCommands::plainText(first());
        QTest::keyClick(m_window->view(), Qt::Key_Z, Qt::ControlModifier); // the text's own undo
        QVERIFY(TextCommands::plainText(first()) != text);
    }
    QCOMPARE(session()->editedObject(), first());
}

void TestFiles::snapshotLeavesCompositionAlone_data()
{
    addKinds();
}

void TestFiles::snapshotLeavesCompositionAlone()
{
    QFETCH(QString, kind);
    open(kind);
    edit();
    compose(QStringLiteral("ni"));
    PageFile file;
    QString error;
    QVERIFY(session()->snapshot(file, error));
    QCOMPARE(textIn(file), QStringLiteral("beforeni"));
    compose(QStringLiteral("ni'hao"));
    QVERIFY(session()->snapshot(file, error));
    QCOMPARE(textIn(file), QStringLiteral("beforeni'hao"));
    compose(QString(), QStringLiteral("你好"));
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before你好"));
    type(QStringLiteral("!"));
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before你好!"));
}

void TestFiles::snapshotIsWhatSavingWrites_data()
{
    addKinds();
}

/// The same picture, to the last pixel, and the same text, from the snapshot and from the saved file.
void TestFiles::snapshotIsWhatSavingWrites()
{
    QFETCH(QString, kind);
    open(kind);
    edit();
    type(QStringLiteral(" and many more words that wrap"));
    PageFile file;
    QString error;
    QVERIFY(session()->snapshot(file, error));
    QVERIFY(writePageFile(inFolder("snapshot.json"), file, error));
    session()->endEdit();
    QVERIFY(session()->save(inFolder("saved.json"), error));
    const auto shown = [this](const char *name) {
        m_window->openFile(inFolder(name));
        return m_window->view()->viewport()->grab().toImage();
    };
    const QImage saved = shown("saved.json");
    const QRectF place(first()->getPos(), first()->getSize());
    QCOMPARE(shown("snapshot.json"), saved);
    QCOMPARE(QRectF(first()->getPos(), first()->getSize()), place);
}

void TestFiles::snapshotLeavesOutNewEmptyText()
{
    CVXRootObject *object = session()->startDrawing(EditorTool::Text, {50, 50});
    object->onCreateFinished(true);
    session()->takeDrawn(object);
    QCOMPARE(session()->editedObject(), object);
    PageFile file;
    QString error;
    QVERIFY(session()->snapshot(file, error));
    QCOMPARE(file.toJson().value(QLatin1String("objects")).toArray().size(), 0);
    type(QStringLiteral("a"));
    QVERIFY(session()->snapshot(file, error));
    QCOMPARE(textIn(file), QStringLiteral("a"));
}

// Recovery

void TestFiles::modifiedPageHasCopy()
{
    openText();
    Recovery *recovery = m_window->files()->recovery();
    QVERIFY(recovery->copyNow());
    QVERIFY(recovery->copyName().isEmpty()); // nothing to copy
    edit();
    type(QStringLiteral("!"));
    QVERIFY(recovery->copyNow());
    QTRY_VERIFY(QFileInfo::exists(recovery->copyName()));
    PageFile file;
    QString error;
    QVERIFY2(readPageFile(recovery->copyName(), file, error), qPrintable(error));
    QCOMPARE(textIn(file), QStringLiteral("before!"));
    QCOMPARE(session()->editedObject(), first());
}

void TestFiles::copyGoesWhenPageIsSaved()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    Recovery *recovery = m_window->files()->recovery();
    QVERIFY(recovery->copyNow());
    const QString name = recovery->copyName();
    QTRY_VERIFY(QFileInfo::exists(name));
    m_window->findChild<QAction *>(QStringLiteral("save"))->trigger();
    QTRY_VERIFY(!QFileInfo::exists(name));
    QVERIFY(QDir(dataFolder() + QStringLiteral("/recovery"))
                .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                .isEmpty());
}

void TestFiles::copyGoesWithItsPage()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    Recovery *recovery = m_window->files()->recovery();
    QVERIFY(recovery->copyNow());
    const QString name = recovery->copyName();
    QTRY_VERIFY(QFileInfo::exists(name));
    m_window->takeSession(PageSession::create(&m_loader));
    QVERIFY(!QFileInfo::exists(name));
    QVERIFY(recovery->copyName().isEmpty());
}

void TestFiles::copyComesByItself()
{
    openText();
    QVERIFY(!copyTimer()->isActive());
    edit();
    type(QStringLiteral("!"));
    QTRY_VERIFY(copyTimer()->isActive());
    QVERIFY(copyTimer()->interval() <= Recovery::longestDelay);
    copyTimer()->start(0); // the time has come
    Recovery *recovery = m_window->files()->recovery();
    QTRY_VERIFY(QFileInfo::exists(recovery->copyName()));
    QCOMPARE(session()->editedObject(), first());
    QVERIFY(Recovery::longestDelay < 60000);
}

/// While the user goes on and on the copy comes all the same.
void TestFiles::changesDoNotPutTheCopyOff()
{
    openText();
    edit();
    compose(QStringLiteral("ni"));
    QTRY_VERIFY(copyTimer()->isActive());
    const int id = copyTimer()->timerId();
    for (int i = 0; i < 20; ++i) {
        compose(QStringLiteral("ni'hao"), i % 2 == 0 ? QStringLiteral("x") : QString());
        type(QStringLiteral("y"));
        QCoreApplication::processEvents();
    }
    QCOMPARE(copyTimer()->timerId(), id); // the same run of the clock
}

void TestFiles::copyThatWasNotWrittenIsWrittenAgain()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    Recovery *recovery = m_window->files()->recovery();
    QVERIFY(recovery->copyNow());
    const QString name = recovery->copyName();
    QTRY_VERIFY(QFileInfo::exists(name));
    QVERIFY(recovery->copyNow()); // has waited for it
    QVERIFY(QFile::remove(name) && QDir().mkpath(name + QStringLiteral("/full"))); // a bad disk
    type(QStringLiteral("?"));
    QVERIFY(recovery->copyNow());
    QVERIFY(copyTimer()->isActive()); // nothing else changes, and it looks once more
    QVERIFY(recovery->copyNow());     // fails too; has waited for the first
    QVERIFY(QDir(name).removeRecursively());
    copyTimer()->start(0);
    PageFile file;
    QString error;
    QTRY_VERIFY(QFileInfo::exists(name) && readPageFile(name, file, error));
    QCOMPARE(textIn(file), QStringLiteral("before!?"));
}

void TestFiles::copyOfRunningProgramIsNotOffered()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    Recovery *recovery = m_window->files()->recovery();
    QVERIFY(recovery->copyNow());
    QTRY_VERIFY(QFileInfo::exists(recovery->copyName()));
    QVERIFY(RecoveryCopy::abandoned().empty());
    QVERIFY(!m_window->files()->offerRecovery());
}

void TestFiles::abandonedCopyIsOffered()
{
    openText();
    const QString fileName = session()->fileName();
    edit();
    type(QStringLiteral("!"));
    abandonCopy();
    const auto copies = RecoveryCopy::abandoned();
    QCOMPARE(int(copies.size()), 1);
    QCOMPARE(copies.front()->originalName(), fileName);
    QVERIFY(copies.front()->time().isValid());
    QVERIFY(RecoveryCopy::abandoned().empty()); // by one program only
}

void TestFiles::recoveredPageIsModifiedPageOfItsFile()
{
    openText();
    const QString fileName = session()->fileName();
    const QByteArray before = contentOf(fileName);
    edit();
    type(QStringLiteral("!"));
    abandonCopy();
    recoverFirst();
    QVERIFY(m_window->files()->offerRecovery());
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before!"));
    QCOMPARE(session()->fileName(), fileName);
    QVERIFY(session()->isModified());
    QCOMPARE(contentOf(fileName), before);
    // It is a copy of its page again, which a second crash leaves.
    QVERIFY(QFileInfo::exists(m_window->files()->recovery()->copyName()));
    m_window->findChild<QAction *>(QStringLiteral("save"))->trigger();
    QVERIFY(contentOf(fileName) != before);
    QTRY_VERIFY(m_window->files()->recovery()->copyName().isEmpty());
    QVERIFY(RecoveryCopy::abandoned().empty());
}

void TestFiles::recoveredPageAsksAheadOfAFileThatIsNewer()
{
    openText();
    const QString fileName = session()->fileName();
    edit();
    type(QStringLiteral("!"));
    abandonCopy();
    const QByteArray newer = contentOf(fileName) + "\n";
    QVERIFY(write(fileName, newer));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(60),
                             QFileDevice::FileModificationTime));
    file.close();
    recoverFirst();
    QVERIFY(m_window->files()->offerRecovery());
    QVERIFY(session()->isFileForeign());
    answer(QMessageBox::Cancel);
    m_window->findChild<QAction *>(QStringLiteral("save"))->trigger();
    QCOMPARE(contentOf(fileName), newer);
}

void TestFiles::pageIsKnownByItsWholePath()
{
    openText();
    const QString fileName = session()->fileName();
    QVERIFY(m_window->openFile(QDir::current().relativeFilePath(fileName)));
    QCOMPARE(session()->fileName(), fileName);
}

void TestFiles::discardedCopyIsGone()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    abandonCopy();
    RecoveryDialog dialog(RecoveryCopy::abandoned());
    dialog.show();
    answer(QMessageBox::Discard);
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->text() == QLatin1String("&Discard"))
            button->click();
    }
    QVERIFY(!dialog.isVisible()); // the last one has gone
    QVERIFY(!dialog.takeChosen());
    QVERIFY(RecoveryCopy::abandoned().empty());
}

void TestFiles::copyThatIsLeftForLaterIsOfferedAgain()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    abandonCopy();
    {
        RecoveryDialog dialog(RecoveryCopy::abandoned());
        dialog.reject();
        QVERIFY(!dialog.takeChosen());
    }
    QCOMPARE(int(RecoveryCopy::abandoned().size()), 1);
}

// Opening

void TestFiles::problemOfFileIsNamed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("problem");
    QTest::addColumn<QString>("reason"); // what the error says of what and where
    const auto row = [](const char *name, const QByteArray &bytes, PageProblem problem,
                        const char *reason) {
        QTest::newRow(name) << bytes << int(problem) << QString::fromLatin1(reason);
    };
    const QByteArray binary("\x89VXPAGE\r\n\n", 10);
    row("picture", "\x89PNG\r\n\x1a\n and so on", PageProblem::Foreign, "byte 0");
    row("text", "Dear friend", PageProblem::Foreign, "line 1");
    row("empty", "", PageProblem::Foreign, "line 1");
    row("other JSON", "{\"name\": \"package\"}", PageProblem::Foreign, "format");
    row("newer JSON", "{\"format\": \"vxpage\", \"version\": 2}", PageProblem::Newer, "newer");
    row("cut JSON", "{\"format\": \"vxpage\",\n \"version\": ", PageProblem::Damaged,
        "line 2, column 13");
    row("wrong field", "{\"format\": \"vxpage\", \"version\": 1, \"page\": {\"width\": -1}}",
        PageProblem::Damaged, "page.width");
    row("newer binary", binary + QByteArray("\0\0\0\2", 4), PageProblem::Newer, "newer");
    row("cut binary", binary + QByteArray("\0\0\0\1PAGE", 8), PageProblem::Damaged, "byte");
}

void TestFiles::problemOfFileIsNamed()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, problem);
    QFETCH(QString, reason);
    const QString fileName = inFolder("some.vxpage");
    QVERIFY(write(fileName, bytes));
    QString error;
    QVERIFY(!PageSession::open(&m_loader, fileName, error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY2(error.contains(fileName), qPrintable(error));
    QCOMPARE(int(problemOf(fileName)), problem);
    QCOMPARE(int(problemOf(inFolder("none.vxpage"))), int(PageProblem::Unreadable));
}

void TestFiles::refusedFileReplacesNothing()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    const PageSession *before = session();
    QVERIFY(write(inFolder("broken.json"), "{\"format\": \"vxpage\",\n \"version\": "));
    QString message;
    answer(QMessageBox::Ok, &message);
    QVERIFY(!m_window->openFile(inFolder("broken.json")));
    QVERIFY2(message.contains(QLatin1String("damaged")), qPrintable(message));
    QVERIFY2(message.contains(QLatin1String("broken.json")), qPrintable(message));
    QVERIFY2(message.contains(QLatin1String("line 2")), qPrintable(message));
    QCOMPARE(session(), before);
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before!"));
    QCOMPARE(session()->editedObject(), first());
    QVERIFY(!RecentFiles::list().contains(inFolder("broken.json")));
}

void TestFiles::whatIsLeftOutIsTold()
{
    QVERIFY(m_window->openFile(writePage("some.json", R"({"kind": "chart"}, )" + written)));
    QCOMPARE(session()->page()->objects().size(), 1);
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    QVERIFY(box);
    QVERIFY2(box->text().contains(QLatin1String("some.json")), qPrintable(box->text()));
    QVERIFY2(box->informativeText().contains(QLatin1String("chart")),
             qPrintable(box->informativeText()));
    box->button(QMessageBox::Ok)->click();
    QVERIFY(!QApplication::activeModalWidget());
    openText();
    QVERIFY(!QApplication::activeModalWidget());
}

void TestFiles::openPageIsFirstOfRecentFiles()
{
    openText();
    QVERIFY(m_window->openFile(writePage("second.json", art)));
    QCOMPARE(RecentFiles::list(), QStringList({inFolder("second.json"), inFolder("page.json")}));
    QVERIFY(m_window->openFile(inFolder("page.json")));
    QCOMPARE(RecentFiles::list(), QStringList({inFolder("page.json"), inFolder("second.json")}));
    auto *menu = m_window->findChild<QMenu *>(QStringLiteral("recent"));
    QVERIFY(menu);
    Q_EMIT menu->aboutToShow();
    QVERIFY(menu->actions().at(1)->text().endsWith(QLatin1String("second.json")));
    menu->actions().at(1)->trigger();
    QCOMPARE(session()->fileName(), inFolder("second.json"));
}

void TestFiles::recentFilesHaveAnEnd()
{
    for (int i = 0; i < 15; ++i)
        RecentFiles::add(QStringLiteral("/folder/%1.json").arg(i));
    QCOMPARE(RecentFiles::list().size(), 10);
    QCOMPARE(RecentFiles::list().constFirst(), QStringLiteral("/folder/14.json"));
    QCOMPARE(RecentFiles::list().constLast(), QStringLiteral("/folder/5.json"));
}

void TestFiles::recentFileThatIsGoneIsForgotten()
{
    RecentFiles::add(inFolder("gone.json"));
    auto *menu = m_window->findChild<QMenu *>(QStringLiteral("recent"));
    Q_EMIT menu->aboutToShow();
    QString message;
    answer(QMessageBox::Ok, &message);
    menu->actions().constFirst()->trigger();
    QVERIFY2(message.contains(QLatin1String("gone.json")), qPrintable(message));
    QVERIFY(RecentFiles::list().isEmpty());
}

// Leaving

void TestFiles::closeQuestion_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saves");
    QTest::newRow("Save") << int(QMessageBox::Save) << true << true;
    QTest::newRow("Discard") << int(QMessageBox::Discard) << true << false;
    QTest::newRow("Cancel") << int(QMessageBox::Cancel) << false << false;
}

void TestFiles::closeQuestion()
{
    QFETCH(int, button);
    QFETCH(bool, closes);
    QFETCH(bool, saves);
    openText();
    const QByteArray before = contentOf(session()->fileName());
    QVERIFY(!m_window->isWindowModified());
    edit();
    type(QStringLiteral("!"));
    QTRY_VERIFY(m_window->isWindowModified());
    QString question;
    answer(QMessageBox::StandardButton(button), &question);
    QCOMPARE(m_window->close(), closes);
    if (!closes) { // and all goes on as it was
        QCOMPARE(session()->editedObject(), first());
        type(QStringLiteral("?"));
        QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before!?"));
    }
    QVERIFY2(question.contains(QLatin1String("page.json")), qPrintable(question));
    QCOMPARE(contentOf(inFolder("page.json")) != before, saves);
}

// Long work

void TestFiles::timeDecidesWhatIsShown_data()
{
    QTest::addColumn<int>("time");
    QTest::addColumn<bool>("hasSign");
    QTest::addColumn<bool>("hasProgress");
    QTest::newRow("at once") << 0 << false << false;
    QTest::newRow("under half a second") << 499 << false << false;
    QTest::newRow("half a second") << 500 << true << false;
    QTest::newRow("under two seconds") << 1999 << true << false;
    QTest::newRow("two seconds") << 2000 << true << true;
    QTest::newRow("an hour") << 3600000 << true << true;
}

void TestFiles::timeDecidesWhatIsShown()
{
    QFETCH(int, time);
    QFETCH(bool, hasSign);
    QFETCH(bool, hasProgress);
    SlowClock clock(0);
    {
        BusySign work(m_window.get(), QStringLiteral("Work"));
        clock.setTime(time);
        QVERIFY(work.step(1, 4));
        QCOMPARE(QApplication::overrideCursor() != nullptr, hasSign);
        if (hasSign)
            QCOMPARE(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
        auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        QCOMPARE(dialog != nullptr, hasProgress);
        if (hasProgress) {
            QCOMPARE(dialog->labelText(), QStringLiteral("Work"));
            QCOMPARE(dialog->maximum(), 4);
            QCOMPARE(dialog->value(), 1);
            clock.setTime(time + 100);
            QVERIFY(work.step(2, 4));
            QCOMPARE(dialog->value(), 2);
        }
    }
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QApplication::activeModalWidget());
}

void TestFiles::workBesideTheWindowIsWatchedToo()
{
    SlowClock clock(0);
    BusySign work(m_window.get(), QStringLiteral("Work"));
    clock.setTime(2000);
    bool isDone = false;
    work.aside([&] { isDone = true; });
    QVERIFY(isDone);
    QVERIFY(qobject_cast<QProgressDialog *>(QApplication::activeModalWidget()));
}

void TestFiles::longWorkHoldsOffTheRest()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    {
        const BusySign work(m_window.get(), QStringLiteral("Long"));
        QVERIFY(BusySign::isAnywhere());
        QVERIFY(!m_window->files()->mayLeavePage()); // not in the middle of it
        QVERIFY(!m_window->close());
        QVERIFY(!m_window->files()->recovery()->copyNow());
    }
    QVERIFY(!BusySign::isAnywhere());
    QVERIFY(m_window->files()->recovery()->copyNow());
}

void TestFiles::longWorkCanBeGivenUp()
{
    SlowClock clock(1000);
    BusySign work(m_window.get(), QStringLiteral("Very long"));
    QVERIFY(work.step(1, 4));
    QVERIFY(work.step(1, 4));
    auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
    QVERIFY(dialog);
    auto *cancel = dialog->findChild<QPushButton *>();
    QCOMPARE(cancel->text(), QStringLiteral("Cancel"));
    QTest::mouseClick(cancel, Qt::LeftButton);
    QVERIFY(!work.step(3, 4));
    QVERIFY(!work.isWanted());
    // What goes on for a while still shuts out the window behind it.
    QCOMPARE(QApplication::activeModalWidget(), dialog);
    QCOMPARE(dialog->labelText(), QStringLiteral("Cancelling..."));
    QVERIFY(!cancel->isEnabled());
}

void TestFiles::dialogThatIsClosedGivesUpAndComesBack()
{
    SlowClock clock(2000);
    BusySign work(m_window.get(), QStringLiteral("Very long"));
    QVERIFY(work.step(1, 4));
    auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
    QVERIFY(dialog);
    dialog->close();
    QVERIFY(!work.step(2, 4));
    QCOMPARE(QApplication::activeModalWidget(), dialog);
}

void TestFiles::lastPartCannotBeGivenUp()
{
    SlowClock clock(2000);
    BusySign work(m_window.get(), QStringLiteral("Very long"));
    QVERIFY(work.step(1, 4));
    auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
    QVERIFY(dialog);
    work.beginLastPart();
    QVERIFY(!dialog->findChild<QPushButton *>()->isEnabled());
    Q_EMIT dialog->canceled(); // Escape
    QVERIFY(work.step(2, 4));
    QVERIFY(work.isWanted());
}

void TestFiles::openingThatIsGivenUpLeavesPage()
{
    const QString fileName = writePage("many.json", written + ',' + written + ',' + written);
    int steps = 0;
    for (bool isDone = false; !isDone; ++steps) { // wherever it is
        ImpatientWork work(steps);
        QString error;
        isDone = PageSession::open(&m_loader, fileName, error, work) != nullptr;
        QCOMPARE(error, QString());
    }
    QVERIFY(steps > 4); // reading, and each object
}

void TestFiles::savingThatIsGivenUpLeavesFile()
{
    const QString fileName = writePage("many.json", written + ',' + written);
    QVERIFY(m_window->openFile(fileName));
    const QByteArray before = contentOf(fileName);
    edit();
    type(QStringLiteral("!"));
    session()->endEdit();
    QString error;
    for (int steps = 0; steps < 3; ++steps) { // each object, and writing
        ImpatientWork work(steps);
        QVERIFY(!session()->save(fileName, error, work));
        QCOMPARE(error, QString());
        QCOMPARE(contentOf(fileName), before);
        QVERIFY(session()->isModified());
    }
    ImpatientWork patient(3);
    QVERIFY2(session()->save(fileName, error, patient), qPrintable(error));
    QVERIFY(contentOf(fileName) != before);
}

void TestFiles::slowOpeningCanBeCancelled()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    const PageSession *before = session();
    const QString other = writePage("many.json", written + ',' + written + ',' + written);
    const SlowClock clock(1000);
    const ProgressWatch user(ProgressWatch::Manner::Cancels);
    QVERIFY(!m_window->openFile(other)); // and no message
    QCOMPARE(user.words(), QStringLiteral("Opening many.json"));
    QCOMPARE(session(), before);
    QCOMPARE(session()->editedObject(), first());
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before!"));
    QVERIFY(!RecentFiles::list().contains(other));
}

void TestFiles::slowSavingCanBeCancelled()
{
    const QString fileName = writePage("many.json", written + ',' + written + ',' + written);
    QVERIFY(m_window->openFile(fileName));
    const QByteArray before = contentOf(fileName);
    edit();
    type(QStringLiteral("!"));
    const int steps = session()->undoStack()->count();
    const SlowClock clock(1000);
    const ProgressWatch user(ProgressWatch::Manner::Cancels);
    m_window->findChild<QAction *>(QStringLiteral("save"))->trigger();
    QCOMPARE(user.words(), QStringLiteral("Saving many.json"));
    QCOMPARE(contentOf(fileName), before);
    QCOMPARE(QDir(m_folder->path()).entryList({QStringLiteral("many*")}, QDir::Files),
             QStringList(QStringLiteral("many.json"))); // no former version, nothing half done
    QVERIFY(session()->isModified());
    QCOMPARE(session()->editedObject(), first());
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before!"));
    QVERIFY(session()->undoStack()->count() <= steps + 1); // the edit's own
    type(QStringLiteral("?"));
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before!?"));
}

void TestFiles::slowRecoveryCanBeCancelled()
{
    openText();
    edit();
    type(QStringLiteral("!"));
    abandonCopy();
    const PageSession *before = session();
    {
        const SlowClock clock(1000);
        const ProgressWatch user(ProgressWatch::Manner::Cancels);
        recoverFirst();
        QVERIFY(!m_window->files()->offerRecovery()); // and no message
        QCOMPARE(user.words(), QStringLiteral("Recovering the page"));
    }
    QCOMPARE(session(), before);
    recoverFirst();
    QVERIFY(m_window->files()->offerRecovery()); // it is still there
    QCOMPARE(TextCommands::plainText(first()), QStringLiteral("before!"));
}

void TestFiles::slowWorkThatIsWaitedForIsDone()
{
    const QString fileName = writePage("many.json", written + ',' + written + ',' + written);
    const SlowClock clock(1000);
    {
        const ProgressWatch user(ProgressWatch::Manner::Looks);
        QVERIFY(m_window->openFile(fileName));
        QCOMPARE(user.words(), QStringLiteral("Opening many.json"));
    }
    QCOMPARE(session()->page()->objects().size(), 3);
    edit();
    type(QStringLiteral("!"));
    const QByteArray before = contentOf(fileName);
    const ProgressWatch user(ProgressWatch::Manner::Looks);
    m_window->findChild<QAction *>(QStringLiteral("save"))->trigger();
    QCOMPARE(user.words(), QStringLiteral("Saving many.json"));
    QVERIFY(contentOf(fileName) != before);
    QCOMPARE(contentOf(formerFileName(fileName)), before);
    session()->endEdit();
    QVERIFY(!session()->isModified());
}

// Languages

/// Of all that the sources name.
static QSet<QString> keysOfHostStrings()
{
    QSet<QString> keys;
    static const QRegularExpression form(QStringLiteral("\"(IDS_\\w+)\""));
    for (const char *folder :
         {"app", "arttext", "host", "layout", "plugin", "warp", "wordprocess"}) {
        QDirIterator files(QStringLiteral(VX_SOURCE_DIR "/") + QLatin1String(folder),
                           {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (files.fileName() == QLatin1String("hoststrings.cpp")
                || !file.open(QIODevice::ReadOnly))
                continue;
            QRegularExpressionMatchIterator found = form.globalMatch(
                QString::fromUtf8(file.readAll()));
            while (found.hasNext())
                keys.insert(found.next().captured(1));
        }
    }
    return keys;
}

void TestFiles::hostStringsOfObjectsAreKnown()
{
    const QSet<QString> keys = keysOfHostStrings();
    QVERIFY(keys.contains(QStringLiteral("IDS_ITEM_MOVE")));
    QVERIFY(keys.contains(QStringLiteral("IDS_ARTTEXT_GRIDTYPE_Mi")));
    QStringList unknown;
    for (const QString &key : keys) {
        if (m_framework->getLocalString(key, QString()).isEmpty())
            unknown.append(key);
    }
    unknown.sort();
    QCOMPARE(unknown.join(QLatin1Char(' ')), QString());
}

static void removeTranslations()
{
    for (QTranslator *translator : qApp->findChildren<QTranslator *>())
        delete translator; // which the application forgets then
}

void TestFiles::programSpeaksChinese()
{
    installTranslations(QCoreApplication::instance(), QLocale(QStringLiteral("zh_CN")));
    const auto inEnglishAgain = qScopeGuard(&removeTranslations);
    m_window.reset();
    m_window = std::make_unique<MainWindow>(&m_loader, m_framework.get());
    QCOMPARE(m_window->findChild<QAction *>(QStringLiteral("save"))->text(),
             QStringLiteral("保存(&S)"));
    QCOMPARE(m_framework->getLocalString(QStringLiteral("IDS_ITEM_MOVE"), QString()),
             QStringLiteral("移动"));
    QCOMPARE(m_window->files()->shownName(), QStringLiteral("未命名"));
    QString error;
    const QString fileName = inFolder("broken.json");
    QVERIFY(write(fileName, "{\"format\": \"vxpage\",\n \"version\": "));
    QVERIFY(!PageSession::open(&m_loader, fileName, error));
    QVERIFY2(error.contains(QStringLiteral("第 2 行")), qPrintable(error));
    QVERIFY(problemText(problemOf(fileName), fileName).endsWith(QStringLiteral("已损坏。")));
}

void TestFiles::noMenuHasAMnemonicTwice_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << QStringLiteral("en_US");
    QTest::newRow("Chinese") << QStringLiteral("zh_CN");
}

void TestFiles::noMenuHasAMnemonicTwice()
{
    QFETCH(QString, language);
    installTranslations(QCoreApplication::instance(), QLocale(language));
    const auto inEnglishAgain = qScopeGuard(&removeTranslations);
    m_window.reset();
    m_window = std::make_unique<MainWindow>(&m_loader, m_framework.get());
    QList<QWidget *> menus{m_window->menuBar()};
    for (QMenu *menu : m_window->menuBar()->findChildren<QMenu *>())
        menus.append(menu);
    QVERIFY(menus.size() > 5);
    for (const QWidget *menu : qAsConst(menus)) {
        QMap<QKeySequence, QString> texts;
        for (const QAction *action : menu->actions()) {
            const QKeySequence mnemonic = QKeySequence::mnemonic(action->text());
            if (mnemonic.isEmpty())
                continue;
            QVERIFY2(!texts.contains(mnemonic),
                     qPrintable(texts.value(mnemonic) + QLatin1String(", ") + action->text()));
            texts.insert(mnemonic, action->text());
        }
    }
}

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
