// SPDX-License-Identifier: MIT
// The rich text object in a program whose graphical application has gone: there is no clipboard then.
#include "openword.h"

#include <QApplication>
#include <QTest>

#include <memory>

class TestNoApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAClipboardNothingIsCopiedCutOrPasted();

private:
    void startApplication()
    {
        m_application = std::make_unique<QApplication>(m_count, m_arguments);
    }

    int m_count = 1;
    char m_name[5] = "test";
    char *m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QApplication> m_application;
};

void TestNoApplication::withoutAClipboardNothingIsCopiedCutOrPasted()
{
    startApplication();
    auto word = std::make_unique<OpenWord>();
    word->add(QStringLiteral("abcd"));
    m_application.reset();
    word->select(1, 3);
    QVERIFY(!word->copy());
    QVERIFY(!word->cut());
    for (bool newObject : {false, true}) {
        for (bool rich : {false, true})
            QVERIFY(!word->paste(newObject, rich));
    }
    QCOMPARE(word->toPlainText(), QStringLiteral("abcd"));
    QCOMPARE(word->getSelectedText(), QStringLiteral("bc"));
    startApplication(); // objects and their fonts go while there is one
    word.reset();
}

QTEST_APPLESS_MAIN(TestNoApplication)
#include "tst_noapplication.moc"
