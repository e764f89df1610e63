// SPDX-License-Identifier: MIT
// tst_relayout.cpp -- a layout object that lays out edit after edit gives what a new one gives, bit for
// bit, whatever it has kept from the layouts before.
#include "boxtext.h"

#include "layout/outlinesum.h"
#include "layout/recenthash.h"

#include <QFontDatabase>
#include <QtTest/QtTest>

#include <cstring>
#include <functional>
#include <random>

namespace {

bool isSame(qreal a, qreal b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool isSame(const QRectF &a, const QRectF &b)
{
    return isSame(a.x(), b.x()) && isSame(a.y(), b.y()) && isSame(a.width(), b.width())
           && isSame(a.height(), b.height());
}

// Element by element: paths that are a little apart are equal to Qt.
bool isSame(const QPainterPath &a, const QPainterPath &b)
{
    if (a.elementCount() != b.elementCount() || a.fillRule() != b.fillRule())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        const QPainterPath::Element first = a.elementAt(i);
        const QPainterPath::Element second = b.elementAt(i);
        if (first.type != second.type || !isSame(first.x, second.x) || !isSame(first.y, second.y))
            return false;
    }
    return true;
}

QString outlineDifference(const TextLayout &a, const TextLayout &b)
{
    for (int i = 0; i < a.lines.size(); ++i) {
        const TextLine &first = a.lines.at(i);
        const TextLine &second = b.lines.at(i);
        if (!isSame(first.path, second.path) || !isSame(first.rect, second.rect))
            return QStringLiteral("line %1, outline or rectangle").arg(i);
        for (int j = 0; j < first.fragments.size(); ++j) {
            const TextFragment &run = first.fragments.at(j);
            const TextFragment &other = second.fragments.at(j);
            if (!isSame(run.path, other.path) || !isSame(run.start, other.start)
                || !isSame(run.baseline, other.baseline) || !isSame(run.advance, other.advance))
                return QStringLiteral("line %1, run %2, bits").arg(i).arg(j);
        }
    }
    return QString();
}

// What a person does to a text, by the numbers of a generator.
class Editor
{
public:
    Editor(BoxText &text, uint seed)
        : m_text(text)
        , m_random(seed)
    {
    }

    void change()
    {
        const QVector<std::function<void()>> changes = {
            [this] { type(); },
            [this] { type(); },
            [this] { remove(1); },
            [this] { remove(1); },
            [this] { remove(60); },
            [this] { cursor().insertBlock(); },
            [this] { paste(); },
            [this] { setFormat(); },
            [this] { setBlockFormat(); },
            [this] { m_text.m_document->undo(); },
            [this] { m_text.m_document->redo(); },
        };
        changes.at(below(changes.size()))();
    }

    void paste()
    {
        QTextCursor at = cursor();
        at.insertText(sample(below(120)) + QLatin1Char('\n') + sample(below(80)));
    }

private:
    int below(int limit) { return int(m_random() % uint(limit)); }

    QTextCursor cursor()
    {
        QTextCursor cursor(m_text.m_document);
        cursor.setPosition(below(m_text.m_document->characterCount()));
        return cursor;
    }

    QTextCursor selection(int longest)
    {
        QTextCursor cursor = this->cursor();
        const int end = qMin(cursor.position() + 1 + below(longest),
                             m_text.m_document->characterCount() - 1);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        return cursor;
    }

    QString sample(int length)
    {
        static const QString source = QString::fromUtf8(
            "Typography is the craft of giving language a visual form. "
            "天地玄黄，宇宙洪荒。「日月盈昃」辰宿列张。 e\u0301 👍 A-VA To fi ، العربية \t ");
        QString text;
        while (text.size() < length) {
            const int begin = below(source.size());
            text += source.mid(begin, 1 + below(30));
        }
        return text;
    }

    void type() { cursor().insertText(sample(1)); }
    void remove(int longest) { selection(longest).removeSelectedText(); }

    void setFormat()
    {
        QTextCharFormat format;
        switch (below(9)) {
        case 0:
            format.setFontPointSize(8 + below(9));
            break;
        case 1:
            format.setFontUnderline(below(2) == 0);
            break;
        case 2:
            format.setFontFamily(below(2) == 0 ? QStringLiteral("Noto Sans") : loadBoxTestFont());
            break;
        case 3:
            format.setProperty(TextProperty::LetterSpacing, qreal(below(400) - 100));
            break;
        case 4:
            format.setProperty(TextProperty::BaselineOffset, below(7) - 3);
            break;
        case 5:
            format.setVerticalAlignment(below(2) == 0 ? QTextCharFormat::AlignSuperScript
                                                      : QTextCharFormat::AlignNormal);
            break;
        case 6:
            format.setProperty(TextProperty::HorizontalScale, 50 + below(100));
            break;
        case 7:
            format.setProperty(TextProperty::LeadingGap, qreal(below(500)));
            break;
        default:
            format.setProperty(TextProperty::RowSpacing, qreal(below(40)));
            break;
        }
        selection(90).mergeCharFormat(format);
    }

    void setBlockFormat()
    {
        const QVector<int> alignments = {1, 2, 4, 8, 0x20, 0x40, 0x80, 0x100, 0x200, 0x400, 0x800};
        QTextBlockFormat format;
        switch (below(7)) {
        case 0:
            format.setProperty(TextProperty::Alignment, alignments.at(below(alignments.size())));
            break;
        case 1:
            format.setLeftMargin(below(20));
            break;
        case 2:
            format.setProperty(TextProperty::SpaceBehindBlock, below(12));
            break;
        case 6:
            format.setProperty(TextProperty::SpaceAheadOfBlock, below(12));
            break;
        case 3:
            format.setProperty(TextProperty::Hyphenate, below(2) == 0);
            break;
        case 4:
            format.setProperty(TextProperty::HeadTailRule, below(3));
            break;
        default:
            format.setProperty(TextProperty::PunctuationExtra, below(2));
            break;
        }
        selection(90).mergeBlockFormat(format);
    }

    BoxText &m_text;
    std::mt19937 m_random;
};

} // namespace

class TestRelayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyEditGivesTheLayoutOfANewObject_data();
    void everyEditGivesTheLayoutOfANewObject();
    void anotherBoxOrStretchForgetsWhatWasKept();
    void movedResultsAreNotTakenForKeptOnes();
    void linesBehindAnUnderlineAreMadeAnew();
    void firstBlockIsNotTakenForALaterOne();
    void fontsThatGoAreSeen();
    void boundsOfOutlinesAreThoseOfTheirSum();
    void hashForgetsWhatIsNoLongerUsed();
};

namespace {

// Lays out in the object that has laid out before, and in a new one.
QString differenceFromNew(CWordManager &kept, BoxText &text, bool wordWrap)
{
    kept.layout();
    CWordManager fresh(&text, wordWrap);
    fresh.layout();
    const TextLayout a = kept.textLayout();
    const TextLayout b = fresh.textLayout();
    const QString difference = differenceOf(a, b);
    if (!difference.isEmpty())
        return difference;
    if (!isSame(kept.textOriRect(), fresh.textOriRect()))
        return QStringLiteral("box");
    return outlineDifference(a, b);
}

} // namespace

void TestRelayout::everyEditGivesTheLayoutOfANewObject_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<bool>("wordWrap");
    QTest::addColumn<bool>("followsText");
    QTest::addColumn<int>("height");
    QTest::addColumn<uint>("seed");
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        const char *name = orientation == Qt::Horizontal ? "rows" : "columns";
        for (uint seed : {1u, 2u}) {
            QTest::addRow("%s, large box, %u", name, seed)
                << orientation << true << false << 3000 << seed;
            QTest::addRow("%s, small box, %u", name, seed)
                << orientation << true << false << 130 << seed;
            QTest::addRow("%s, box that follows, %u", name, seed)
                << orientation << true << true << 90 << seed;
            QTest::addRow("%s, line text, %u", name, seed)
                << orientation << false << false << 90 << seed;
        }
    }
}

void TestRelayout::everyEditGivesTheLayoutOfANewObject()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, wordWrap);
    QFETCH(bool, followsText);
    QFETCH(int, height);
    QFETCH(uint, seed);
    BoxText text(orientation == Qt::Horizontal ? 300 : height,
                 orientation == Qt::Horizontal ? height : 300, orientation);
    text.m_autoWordWrap = followsText;
    text.setFirstFormat(BoxText::format());
    text.m_document->setUndoRedoEnabled(true);
    Editor editor(text, seed);
    for (int i = 0; i < 3; ++i)
        editor.paste();
    CWordManager kept(&text, wordWrap);
    for (int i = 0; i < 40; ++i) {
        editor.change();
        if (text.m_document->isEmpty())
            editor.paste();
        const QString step = QStringLiteral("edit %1: ").arg(i);
        const QString difference = differenceFromNew(kept, text, wordWrap);
        QCOMPARE(step + difference, step);
    }
}

void TestRelayout::anotherBoxOrStretchForgetsWhatWasKept()
{
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        BoxText text(200, 200, orientation);
        text.setFirstFormat(BoxText::format());
        Editor(text, 3).paste();
        CWordManager kept(&text, true);
        const QVector<std::function<void()>> changes = {
            [] {},
            [&] { text.setBox(QRectF(0, 0, 200, 60)); },
            [&] { text.setBox(QRectF(0, 0, 170, 400)); },
            [&] { text.setBox(QRectF(5, -3, 170, 400)); },
            [&] { text.m_scaleX = 1.25; },
            [&] { text.m_transformScaleY = 0.75; },
            [&] { text.m_documentDpi = 120; },
            [&] { text.m_autoWordWrap = true; },
            [&] {
                text.m_textOrientation = orientation == Qt::Horizontal ? Qt::Vertical
                                                                       : Qt::Horizontal;
            },
        };
        for (const auto &change : changes) {
            change();
            QCOMPARE(differenceFromNew(kept, text, true), QString());
        }
    }
}

void TestRelayout::fontsThatGoAreSeen()
{
    BoxText text(200, 400);
    text.setFirstFormat(BoxText::format());
    text.add(QStringLiteral("three words or four of them in a font of squares"));
    CWordManager kept(&text, true);
    QCOMPARE(differenceFromNew(kept, text, true), QString());
    const TextLayout before = kept.textLayout();
    QVERIFY(QFontDatabase::removeAllApplicationFonts());
    QCOMPARE(differenceFromNew(kept, text, true), QString());
    QVERIFY(differenceOf(kept.textLayout(), before) != QString());
    QVERIFY(QFontDatabase::addApplicationFont(QFINDTESTDATA("../support/BoxTest.ttf")) >= 0);
}

void TestRelayout::movedResultsAreNotTakenForKeptOnes()
{
    BoxText text(200, 400);
    text.setFirstFormat(BoxText::format());
    text.add(QStringLiteral("three words or four of them in a font of squares"));
    CWordManager kept(&text, true);
    kept.layout();
    kept.updatePosition(7.25, -3.5, 200, 400);
    QCOMPARE(differenceFromNew(kept, text, true), QString());
}

// Its thickness belongs to the rectangles of all lines of the block that follow.
void TestRelayout::linesBehindAnUnderlineAreMadeAnew()
{
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        BoxText text(120, 120, orientation);
        text.setFirstFormat(BoxText::format());
        text.add(QStringLiteral("first line, second line, third line, fourth line"));
        CWordManager kept(&text, true);
        QCOMPARE(differenceFromNew(kept, text, true), QString());
        for (bool isUnderlined : {true, false, true}) {
            QTextCursor cursor(text.m_document);
            cursor.setPosition(4, QTextCursor::KeepAnchor);
            QTextCharFormat format;
            format.setFontUnderline(isUnderlined);
            cursor.mergeCharFormat(format);
            QCOMPARE(differenceFromNew(kept, text, true), QString());
        }
    }
}

// The space ahead of a block does not count for the first one.
void TestRelayout::firstBlockIsNotTakenForALaterOne()
{
    BoxText text;
    text.setFirstFormat(BoxText::format());
    text.setBlockProperty(TextProperty::SpaceAheadOfBlock, 9);
    text.add(QStringLiteral("line"));
    for (bool wordWrap : {true, false}) {
        CWordManager kept(&text, wordWrap);
        QCOMPARE(differenceFromNew(kept, text, wordWrap), QString());
        QTextCursor(text.m_document).insertBlock(); // of the same format
        QCOMPARE(differenceFromNew(kept, text, wordWrap), QString());
        QTextCursor(text.m_document).deleteChar();
        QCOMPARE(differenceFromNew(kept, text, wordWrap), QString());
    }
}

void TestRelayout::boundsOfOutlinesAreThoseOfTheirSum()
{
    std::mt19937 random(7);
    const auto number = [&] { return qreal(random()) / 4294967296.0 * 100 - 50; };
    for (int round = 0; round < 300; ++round) {
        QList<QPainterPath> paths;
        for (int i = int(random() % 9); i > 0; --i) {
            QPainterPath path;
            path.moveTo(number(), number());
            path.cubicTo(number(), number(), number(), number(), number(), number());
            if (random() % 2)
                path.closeSubpath();
            if (random() % 7 == 0)
                path.moveTo(number() * 3, number());
            path.translate(number() * round, random() % 5 == 0 ? 1e12 : 0);
            paths.append(random() % 8 == 0 ? QPainterPath() : path);
        }
        QVERIFY(isSame(boundsOf(paths), sumOf(paths).boundingRect()));
    }
}

void TestRelayout::hashForgetsWhatIsNoLongerUsed()
{
    RecentHash<int, int> hash(10);
    for (int key = 0; key < 1000; ++key) {
        hash.insert(key, -key, 1);
        const int *kept = hash.find(0);
        QVERIFY(kept && *kept == 0);
        const int *latest = hash.find(key);
        QVERIFY(latest && *latest == -key);
    }
    int found = 0;
    for (int key = 0; key < 1000; ++key)
        found += hash.find(key) ? 1 : 0;
    QVERIFY2(found < 30, qPrintable(QString::number(found)));
}

QTEST_MAIN(TestRelayout)
#include "tst_relayout.moc"
