// SPDX-License-Identifier: MIT
#include "tests/arttext/openart.h"

#include <QDataStream>
#include <QtTest>

namespace {

bool isSame(const tagFillStru &a, const tagFillStru &b)
{
    return a.colorA == b.colorA && a.colorB == b.colorB && a.value == b.value && a.mode == b.mode
           && a.modeValue == b.modeValue && a.flag == b.flag && a.brushKind == b.brushKind;
}

tagFillStru someFill()
{
    tagFillStru fill;
    fill.colorA = 1;
    fill.colorB = 2;
    fill.value = 3;
    fill.mode = 2;
    fill.modeValue = 5;
    fill.flag = true;
    fill.brushKind = 6;
    return fill;
}

QImage someImage()
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(qRgba(1, 2, 3, 255));
    return image;
}

/// Nothing in it has the value that a new engine has.
void fill(OpenArtText &art)
{
    art.m_color = QColor(10, 20, 30);
    art.m_string = QStringLiteral("ink");
    art.m_style = 7;
    art.m_font = QFont(QStringLiteral("Helvetica"), 11);
    art.m_fill = someFill();
    art.m_patternBrush = 8;
    art.m_hasShadow = true;
    art.m_shadowColor = QColor(40, 50, 60);
    art.m_shadowOffset = CPoint(9, 10);
    art.m_dibBrush = someImage();
}

/// The head of a stored engine, up to its font.
QByteArray storedHead()
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << QColor(10, 20, 30) << QStringLiteral("ink") << 7
           << QFont(QStringLiteral("Helvetica"), 11);
    return bytes;
}

/// What follows the head; of the numbers only those that tests choose are arguments.
QByteArray storedRest(int mode = 2, int brushKind = 6)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << true << mode << brushKind << 5 << 1 << 2 << 3 << 8 << true << QColor(40, 50, 60) << 9
           << 10 << someImage();
    return bytes;
}

QByteArray storedString(const QString &string)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << string;
    return bytes;
}

void readFrom(const QByteArray &bytes, OpenArtText &art)
{
    QDataStream stream(bytes);
    art.Serialize(stream, false);
}

bool holdsHead(const OpenArtText &art)
{
    return art.m_color == QColor(10, 20, 30) && art.m_string == QLatin1String("ink")
           && art.m_style == 7 && art.m_font == QFont(QStringLiteral("Helvetica"), 11);
}

} // namespace

class TestArtContents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newEngineHasDefaults();
    void penOfTheGuideLinesAreRound();
    void plainAccessorsKeepWhatTheyAreGiven();
    void fillStylePutsThePatternAway();
    void patternPutsKindAndImageAway();
    void imagePutsKindAndPatternAway();
    void colorPutsEveryOtherFillAway();
    void outlinePutsKindAndPatternAway();
    void fontNameIsIgnored();
    void emptyOperationsDoNothing();

    void writesInOrder();
    void readsASecondString();
    void secondStringIsNotTheText();
    void ownStreamIsReadOutOfStep();
    void unknownModesAndKindsAreDropped_data();
    void unknownModesAndKindsAreDropped();
    void streamsCutAtAnyByteLeaveTheRest();
    void brokenStreamsAreReadFromWhereTheyStand();
    void brokenSecondStringDoesNotStopTheRest();
    void streamWithoutDeviceChangesNothing();
    void absurdLengthsEnd();

    void copyTakesWhatIsStored();
    void copyWithAPatternIsPlain();
    void copyOfAnOutlineHasNoPattern();
    void copyClearsTheOutline();
    void copyOfTheImageIsDeep();
    void copyLeavesGuideLines();
    void copyOfNothingChangesNothing();
};

void TestArtContents::newEngineHasDefaults()
{
    const OpenArtText art;
    QCOMPARE(art.m_rect.left | art.m_rect.top | art.m_rect.right | art.m_rect.bottom, 0);
    QVERIFY(!art.m_scratch1);
    QVERIFY(!art.m_scratch2);
    QCOMPARE(art.m_size.cx | art.m_size.cy, 0);
    QVERIFY(art.m_image1.isNull());
    QVERIFY(art.m_image2.isNull());
    QCOMPARE(art.GetOffPos().x, 1);
    QCOMPARE(art.GetOffPos().y, 1);
    QCOMPARE(art.GetShadowColor(), QColor(0, 0, 0, 255));
    QVERIFY(!art.HasShadow());
    QFont font;
    QVERIFY(art.GetFont(font));
    QCOMPARE(font.family(), QStringLiteral("Times"));
    QCOMPARE(font.pointSize(), 50);
    QCOMPARE(font.styleStrategy(), QFont::ForceOutline);
    QVERIFY(art.GetDibBrush().isNull());
    QCOMPARE(art.m_string, QStringLiteral("Text"));
    QCOMPARE(art.GetColor(), QColor(0, 0, 0, 255));
    QVERIFY(!art.GetOutLine());
    QCOMPARE(art.GetStyle(), 0);
    QCOMPARE(art.GetPatternBrush(), -1);
    tagFillStru fill = someFill();
    art.GetFillStyle(&fill);
    QCOMPARE(fill.colorA, 0x00ffffff);
    QCOMPARE(fill.colorB, 0x00808080);
    QCOMPARE(fill.value | fill.mode | fill.modeValue | fill.brushKind, 0);
    QVERIFY(!fill.flag);
}

void TestArtContents::penOfTheGuideLinesAreRound()
{
    const OpenArtText art;
    QCOMPARE(art.m_guidePen1.color(), QColor(0, 0, 255));
    QCOMPARE(art.m_guidePen2.color(), QColor(255, 0, 0));
    for (const QPen &pen : {art.m_guidePen1, art.m_guidePen2}) {
        QCOMPARE(pen.widthF(), 2.0);
        QCOMPARE(pen.style(), Qt::SolidLine);
        QCOMPARE(pen.capStyle(), Qt::RoundCap);
        QCOMPARE(pen.joinStyle(), Qt::RoundJoin);
    }
    QCOMPARE(art.m_pen3, QPen());
}

void TestArtContents::plainAccessorsKeepWhatTheyAreGiven()
{
    OpenArtText art;
    art.SetStyle(99);
    QCOMPARE(art.GetStyle(), 99);
    QVERIFY(!art.m_guidePoints1); // nothing is drawn
    QVERIFY(art.SetFont(QFont(QStringLiteral("Helvetica"), 11)));
    QFont font;
    QVERIFY(art.GetFont(font));
    QCOMPARE(font, QFont(QStringLiteral("Helvetica"), 11));
    QVERIFY(art.SetString(QStringLiteral("ink")));
    QCOMPARE(art.m_string, QStringLiteral("ink"));
    art.ShowShadow(true, QColor(1, 2, 3), CPoint(-4, 5));
    QVERIFY(art.HasShadow());
    QCOMPARE(art.GetShadowColor(), QColor(1, 2, 3));
    QCOMPARE(art.GetOffPos().x, -4);
    QCOMPARE(art.GetOffPos().y, 5);
}

void TestArtContents::fillStylePutsThePatternAway()
{
    OpenArtText art;
    art.m_patternBrush = 4;
    art.SetFillStyle(someFill());
    QCOMPARE(art.GetPatternBrush(), -1);
    tagFillStru fill;
    art.GetFillStyle(&fill);
    QVERIFY(isSame(fill, someFill()));
}

void TestArtContents::patternPutsKindAndImageAway()
{
    OpenArtText art;
    fill(art);
    art.SetPatternBrush(3);
    QCOMPARE(art.GetPatternBrush(), 3);
    QCOMPARE(art.m_fill.brushKind, 0);
    QCOMPARE(art.m_fill.mode, 2); // the rest of the fill stays
    QVERIFY(art.GetDibBrush().isNull());
}

void TestArtContents::imagePutsKindAndPatternAway()
{
    OpenArtText art;
    fill(art);
    QImage image(3, 3, QImage::Format_RGB32);
    image.fill(Qt::green);
    art.SetDibBrush(image);
    QCOMPARE(art.GetDibBrush(), image);
    QCOMPARE(art.m_fill.brushKind, 0);
    QCOMPARE(art.GetPatternBrush(), -1);
}

void TestArtContents::colorPutsEveryOtherFillAway()
{
    OpenArtText art;
    fill(art);
    art.m_outLine = true;
    QVERIFY(art.SetColor(Qt::red));
    QCOMPARE(art.GetColor(), QColor(Qt::red));
    QVERIFY(!art.GetOutLine());
    QCOMPARE(art.m_fill.brushKind, 0);
    QCOMPARE(art.GetPatternBrush(), -1);
    QVERIFY(art.GetDibBrush().isNull());
}

void TestArtContents::outlinePutsKindAndPatternAway()
{
    for (bool outline : {true, false}) {
        OpenArtText art;
        fill(art);
        art.m_outLine = !outline;
        art.SetOutLine(outline);
        QCOMPARE(art.GetOutLine(), outline);
        QCOMPARE(art.m_fill.brushKind, 0);
        QCOMPARE(art.GetPatternBrush(), -1);
        QVERIFY(!art.GetDibBrush().isNull());
    }
}

void TestArtContents::fontNameIsIgnored()
{
    OpenArtText art;
    QVERIFY(art.SetFontName(QStringLiteral("Helvetica")));
    QCOMPARE(art.m_font.family(), QStringLiteral("Times"));
}

void TestArtContents::emptyOperationsDoNothing()
{
    OpenArtText art;
    art.DrawLine(1, CPoint(0, 0), CPoint(1, 0));
    CRect rect(1, 2, 3, 4);
    void *data = &rect;
    tagBITMAPINFO *info = nullptr;
    art.DrawObj(nullptr, rect, 1, true, true);
    art.DrawEffect(nullptr, someFill(), &rect, true);
    QVERIFY(art.GetDataFromDC(nullptr, &rect, data, &info, 32));
    QVERIFY(art.Fuzzy(data, info, CPoint(1, 1), true));
    QVERIFY(art.TextEffect(nullptr, art.m_guidePoints1, nullptr, 2, 0, QString(), &rect, true, true,
                           true));
    QVERIFY(
        art.GenTextPath(nullptr, art.m_guidePoints1, nullptr, 2, 0, QString(), &rect, true, true));
    QVERIFY(art.ShowGuide(nullptr, art.m_guidePoints1, 2));
    QCOMPARE(data, static_cast<void *>(&rect));
    QCOMPARE(rect.bottom, 4);
    QCOMPARE(text(art.line(1)), QStringLiteral("0,0 1,0"));
}

void TestArtContents::writesInOrder()
{
    OpenArtText art;
    fill(art);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    art.Serialize(stream, true);
    QCOMPARE(bytes.toHex(), (storedHead() + storedRest()).toHex());
}

void TestArtContents::readsASecondString()
{
    OpenArtText art;
    readFrom(storedHead() + storedString(QStringLiteral("more")) + storedRest(), art);
    QVERIFY(holdsHead(art));
    QVERIFY(isSame(art.m_fill, someFill()));
    QCOMPARE(art.m_patternBrush, 8);
    QVERIFY(art.m_hasShadow);
    QCOMPARE(art.m_shadowColor, QColor(40, 50, 60));
    QCOMPARE(art.m_shadowOffset.x, 9);
    QCOMPARE(art.m_shadowOffset.y, 10);
    QCOMPARE(art.m_dibBrush, someImage());
}

void TestArtContents::secondStringIsNotTheText()
{
    OpenArtText art;
    art.m_outLine = true;
    readFrom(storedHead() + storedString(QStringLiteral("more")) + storedRest(), art);
    QCOMPARE(art.m_string, QStringLiteral("ink"));
    QVERIFY(!art.m_outLine); // the colour is set, with all that goes with it
}

// The flag and three bytes of the mode are taken for an empty string; from there on each number is
// the one behind it.
void TestArtContents::ownStreamIsReadOutOfStep()
{
    OpenArtText written;
    written.m_fill.mode = 2;
    written.m_fill.brushKind = 3;
    written.m_fill.modeValue = 4;
    written.m_fill.colorA = 5;
    written.m_fill.colorB = 6;
    written.m_fill.value = 7;
    written.m_patternBrush = 8;
    written.m_hasShadow = true;
    written.m_shadowOffset = CPoint(9, 10);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    written.Serialize(stream, true);

    OpenArtText read;
    readFrom(bytes, read);
    QCOMPARE(read.m_string, QStringLiteral("Text"));
    QVERIFY(read.m_fill.flag);     // the last byte of the mode
    QCOMPARE(read.m_fill.mode, 0); // 3 is no mode
    QCOMPARE(read.m_fill.brushKind, 4);
    QCOMPARE(read.m_fill.modeValue, 5);
    QCOMPARE(read.m_fill.colorA, 6);
    QCOMPARE(read.m_fill.colorB, 7);
    QCOMPARE(read.m_fill.value, 8);
    QCOMPARE(read.m_patternBrush, 0x0101ffff); // the switch, and the kind and alpha of the colour
    QVERIFY(!read.m_hasShadow);
    QVERIFY(!read.m_shadowColor.isValid());
    QCOMPARE(read.m_shadowOffset.x, 10);
    QCOMPARE(read.m_shadowOffset.y, 0);
}

void TestArtContents::unknownModesAndKindsAreDropped_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("readMode");
    QTest::addColumn<int>("readKind"); // 0: the colour before it has put the kind back
    for (int mode : {0, 1, 2})
        QTest::addRow("mode %d", mode) << mode << 6 << mode << 6;
    for (int mode : {-1, 3, 1000000})
        QTest::addRow("mode %d", mode) << mode << 6 << 1 << 6;
    for (int kind = 0; kind <= 6; ++kind)
        QTest::addRow("kind %d", kind) << 2 << kind << 2 << kind;
    for (int kind : {-1, 7, -1000000})
        QTest::addRow("kind %d", kind) << 2 << kind << 2 << 0;
}

void TestArtContents::unknownModesAndKindsAreDropped()
{
    QFETCH(int, mode);
    QFETCH(int, kind);
    OpenArtText art;
    art.m_fill.mode = 1;
    art.m_fill.brushKind = 5;
    readFrom(storedHead() + storedString(QString()) + storedRest(mode, kind), art);
    QTEST(art.m_fill.mode, "readMode");
    QTEST(art.m_fill.brushKind, "readKind");
    QCOMPARE(art.m_fill.modeValue, 5); // what follows is read in step
}

void TestArtContents::streamsCutAtAnyByteLeaveTheRest()
{
    const QByteArray head = storedHead();
    const QByteArray second = storedString(QStringLiteral("more"));
    const QByteArray all = head + second + storedRest();
    for (int length = 0; length < all.size(); ++length) {
        OpenArtText art;
        art.m_outLine = true;
        readFrom(all.left(length), art);
        const int rest = length - head.size() - second.size();
        if (length < head.size()) {
            QCOMPARE(art.m_string, QStringLiteral("Text"));
            QCOMPARE(art.m_style, 0);
            QCOMPARE(art.m_font.family(), QStringLiteral("Times"));
            QVERIFY(art.m_outLine);
        } else {
            QVERIFY(holdsHead(art));
        }
        QCOMPARE(art.m_fill.flag, rest >= 1);
        QCOMPARE(art.m_fill.mode, rest >= 5 ? 2 : 0);
        QCOMPARE(art.m_fill.brushKind, rest >= 9 ? 6 : 0);
        QCOMPARE(art.m_fill.modeValue, rest >= 13 ? 5 : 0);
        QCOMPARE(art.m_fill.colorA, rest >= 17 ? 1 : 0x00ffffff);
        QCOMPARE(art.m_fill.colorB, rest >= 21 ? 2 : 0x00808080);
        QCOMPARE(art.m_fill.value, rest >= 25 ? 3 : 0);
        QCOMPARE(art.m_patternBrush, rest >= 29 ? 8 : -1);
        QCOMPARE(art.m_hasShadow, rest >= 30);
        QCOMPARE(art.m_shadowColor, rest >= 41 ? QColor(40, 50, 60) : QColor(Qt::black));
        QCOMPARE(art.m_shadowOffset.x, rest >= 45 ? 9 : 1);
        QCOMPARE(art.m_shadowOffset.y, rest >= 49 ? 10 : 1);
    }
}

void TestArtContents::brokenStreamsAreReadFromWhereTheyStand()
{
    const QByteArray bytes = storedHead() + storedString(QString()) + storedRest();
    QDataStream stream(bytes);
    stream.setStatus(QDataStream::ReadCorruptData);
    OpenArtText art;
    art.Serialize(stream, false);
    QVERIFY(holdsHead(art));
    QCOMPARE(art.m_patternBrush, 8);
    QCOMPARE(stream.status(), QDataStream::ReadCorruptData); // whoever reads on is told
}

// A string of three bytes is none: only its length is taken.
void TestArtContents::brokenSecondStringDoesNotStopTheRest()
{
    const QByteArray bytes = storedHead() + QByteArray("\0\0\0\3", 4) + storedRest();
    QDataStream stream(bytes);
    OpenArtText art;
    art.Serialize(stream, false);
    QVERIFY(holdsHead(art));
    QVERIFY(isSame(art.m_fill, someFill()));
    QCOMPARE(art.m_shadowOffset.y, 10);
    QCOMPARE(art.m_dibBrush, someImage());
    QVERIFY(stream.atEnd());
    QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
}

void TestArtContents::streamWithoutDeviceChangesNothing()
{
    QDataStream stream;
    OpenArtText art;
    art.Serialize(stream, true);
    art.Serialize(stream, false);
    QCOMPARE(art.m_string, QStringLiteral("Text"));
}

void TestArtContents::absurdLengthsEnd()
{
    const QByteArray head = storedHead();
    const int colour = 11; // bytes of a colour
    for (const char *length : {"\xff\xff\xff\xfe", "\x7f\xff\xff\xff", "\x00\xff\xff\xff"}) {
        QByteArray text = head;
        text.replace(colour, 4, QByteArray(length, 4));
        OpenArtText art;
        readFrom(text, art);
        QCOMPARE(art.m_string, QStringLiteral("Text"));

        OpenArtText other;
        readFrom(head + QByteArray(length, 4) + storedRest(), other);
        QVERIFY(holdsHead(other));
    }
}

void TestArtContents::copyTakesWhatIsStored()
{
    OpenArtText other;
    fill(other);
    other.m_patternBrush = -1;
    OpenArtText art;
    art.m_patternBrush = 4;
    art.CopyFrom(&other);
    QVERIFY(holdsHead(art));
    QVERIFY(isSame(art.m_fill, someFill()));
    QCOMPARE(art.m_patternBrush, -1);
    QVERIFY(art.m_hasShadow);
    QCOMPARE(art.m_shadowColor, QColor(40, 50, 60));
    QCOMPARE(art.m_shadowOffset.x, 9);
    QCOMPARE(art.m_shadowOffset.y, 10);
    QCOMPARE(art.m_dibBrush, someImage());
}

void TestArtContents::copyWithAPatternIsPlain()
{
    OpenArtText other;
    fill(other);
    other.m_patternBrush = 0;
    OpenArtText art;
    art.CopyFrom(&other);
    QCOMPARE(art.m_patternBrush, 0);
    QCOMPARE(art.m_fill.brushKind, 0);
    QCOMPARE(art.m_fill.modeValue, 5);
    QCOMPARE(art.m_dibBrush, someImage()); // comes last
}

void TestArtContents::copyOfAnOutlineHasNoPattern()
{
    OpenArtText other;
    fill(other);
    other.m_outLine = true;
    OpenArtText art;
    art.CopyFrom(&other);
    QVERIFY(art.m_outLine);
    QCOMPARE(art.m_patternBrush, -1);
    QCOMPARE(art.m_fill.brushKind, 0);
}

void TestArtContents::copyClearsTheOutline()
{
    OpenArtText other;
    fill(other);
    other.m_patternBrush = -1;
    OpenArtText art;
    art.m_outLine = true;
    art.CopyFrom(&other);
    QVERIFY(!art.m_outLine);
    QCOMPARE(art.m_fill.brushKind, 6); // cleared directly, the fill stays
}

void TestArtContents::copyOfTheImageIsDeep()
{
    OpenArtText other;
    fill(other);
    OpenArtText art;
    art.CopyFrom(&other);
    QVERIFY(art.m_dibBrush.constBits() != other.m_dibBrush.constBits());
}

void TestArtContents::copyLeavesGuideLines()
{
    OpenArtText other;
    other.DrawLine(1, CPoint(5, 5), CPoint(9, 5));
    OpenArtText art;
    art.DrawLine(1, CPoint(0, 0), CPoint(1, 0));
    art.CopyFrom(&other);
    QCOMPARE(text(art.line(1)), QStringLiteral("0,0 1,0"));
}

void TestArtContents::copyOfNothingChangesNothing()
{
    OpenArtText art;
    fill(art);
    art.m_outLine = true;
    art.CopyFrom(nullptr);
    art.CopyFrom(&art);
    QVERIFY(holdsHead(art));
    QVERIFY(art.m_outLine);
    QVERIFY(isSame(art.m_fill, someFill()));
    QCOMPARE(art.m_patternBrush, 8);
    QCOMPARE(art.m_dibBrush, someImage());
}

QTEST_MAIN(TestArtContents)
#include "tst_artcontents.moc"
