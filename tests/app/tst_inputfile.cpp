// SPDX-License-Identifier: MIT
#include "app/page/inputfile.h"

#include <QtTest>

class TestInputFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstBadByteIsFound_data();
    void firstBadByteIsFound();
    void byteOrderMarkIsDropped();
    void fileIsReadWholeOrRefused();
    void directoryIsRefused();
};

void TestInputFile::firstBadByteIsFound_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<qint64>("bad");
    const auto row = [](const char *name, const QByteArray &bytes, qint64 bad) {
        QTest::newRow(name) << bytes << bad;
    };
    row("empty", QByteArray(), -1);
    row("ascii", QByteArrayLiteral("a\tb\r\n\x7F"), -1);
    row("two bytes", QByteArrayLiteral("\xC2\x80\xDF\xBF"), -1);
    row("three bytes", QByteArrayLiteral("\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"), -1);
    row("four bytes", QByteArrayLiteral("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), -1);
    row("NUL", QByteArray("ab\0c", 4), 2);
    row("continuation alone", QByteArrayLiteral("a\x80"), 1);
    row("Latin-1", QByteArrayLiteral("caf\xE9 au lait"), 3);
    row("cut short", QByteArrayLiteral("ab\xE4\xBD"), 2);
    row("overlong two", QByteArrayLiteral("\xC1\xBF"), 0);
    row("overlong three", QByteArrayLiteral("x\xE0\x9F\xBF"), 1);
    row("overlong four", QByteArrayLiteral("\xF0\x8F\xBF\xBF"), 0);
    row("surrogate", QByteArrayLiteral("\xED\xA0\x80"), 0);
    row("above the last", QByteArrayLiteral("\xF4\x90\x80\x80"), 0);
    row("lead of five", QByteArrayLiteral("\xF8\x88\x80\x80\x80"), 0);
    row("UTF-16",
        QByteArrayLiteral("\xFF\xFE"
                          "a"),
        0);
}

void TestInputFile::firstBadByteIsFound()
{
    QFETCH(QByteArray, bytes);
    QFETCH(qint64, bad);
    QCOMPARE(firstBadByte(bytes), bad);
}

void TestInputFile::byteOrderMarkIsDropped()
{
    QString text;
    QString error;
    QVERIFY2(decodeText(QStringLiteral("name"), "\xEF\xBB\xBFx\xEF\xBB\xBF", text, error),
             qPrintable(error));
    QCOMPARE(text, QStringLiteral("x\uFEFF"));
}

void TestInputFile::fileIsReadWholeOrRefused()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write("12345");
    file.close();
    QByteArray bytes;
    QString error;
    QVERIFY2(readFile(file.fileName(), 5, bytes, error), qPrintable(error));
    QCOMPARE(bytes, QByteArray("12345"));
    bytes = "as it was";
    QVERIFY(!readFile(file.fileName(), 4, bytes, error));
    QVERIFY2(error.contains(QLatin1String("larger than 4 bytes")), qPrintable(error));
    QCOMPARE(bytes, QByteArray("as it was"));
}

void TestInputFile::directoryIsRefused()
{
    QByteArray bytes("as it was");
    QString error;
    QVERIFY(!readFile(QDir::tempPath(), maximumInputBytes, bytes, error));
    QVERIFY2(error.contains(QLatin1String("directory")), qPrintable(error));
    QCOMPARE(bytes, QByteArray("as it was"));
}

QTEST_APPLESS_MAIN(TestInputFile)
#include "tst_inputfile.moc"
