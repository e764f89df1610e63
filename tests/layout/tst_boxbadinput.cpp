// SPDX-License-Identifier: MIT
// Box text of unreasonable sizes, stretches and characters: every layout ends, what it makes is no
// larger than the text, and characters are never cut in two.
#include "boxtext.h"

#include <QtTest>

#include <functional>
#include <limits>

class TestBoxBadInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void boxes_data();
    void boxes();
    void scaleFactors_data();
    void scaleFactors();
    void marginsLargerThanTheBox_data();
    void marginsLargerThanTheBox();
    void runProperties_data();
    void runProperties();
    void characters_data();
    void characters();
    void blanksHaveNoInkThatCouldStopTheLayout();
    void surrogatePairsStayWhole_data();
    void surrogatePairsStayWhole();
    void nothingIsLostInABoxOfTwoCharacters();
    void longUnbrokenParagraph_data();
    void longUnbrokenParagraph();
};

static const qreal infinite = std::numeric_limits<qreal>::infinity();
static const qreal noNumber = std::numeric_limits<qreal>::quiet_NaN();

/// Empty when nothing is wrong with \a layout, otherwise what is.
static QString faultOf(const TextLayout &layout, const QTextDocument &document)
{
    const int characters = document.characterCount();
    int shownCharacters = 0;
    int runs = 0;
    for (const TextLine &line : layout.lines) {
        if (line.position < 0 || line.length < 0 || line.position + line.length > characters)
            return QStringLiteral("line outside the document: %1+%2")
                .arg(line.position)
                .arg(line.length);
        if (!line.isEmptyBlock && (line.fragments.isEmpty() || line.length != line.text.length()))
            return QStringLiteral("line without runs, or of a wrong length");
        shownCharacters += line.isEmptyBlock ? 0 : line.length;
        runs += line.fragments.size();
        for (const TextFragment &run : line.fragments) {
            if (run.text.isEmpty())
                continue;
            if (run.text.at(0).isLowSurrogate() || run.text.back().isHighSurrogate())
                return QStringLiteral("a character is cut in two");
        }
    }
    if (shownCharacters > characters)
        return QStringLiteral("more characters than the document has");
    if (runs > 2 * characters)
        return QStringLiteral("more runs than the document can give");
    return QString();
}

/// Fills \a text with everything that a layout tells apart.
static void addEverything(BoxText &text, int alignment)
{
    QTextCharFormat underlined = BoxText::format(12, TextProperty::LeadingGap, 100.0);
    underlined.setFontUnderline(true);
    QTextCharFormat upper = BoxText::format(12, QTextFormat::TextVerticalAlignment, 1);
    upper.setProperty(TextProperty::LetterSpacing, 50.0);
    text.add(QStringLiteral("Two words, 中文国人。（天地）(x) "));
    text.add(QStringLiteral("gypsies"), underlined);
    text.add(QStringLiteral("upper 中"), upper);
    text.setBlockProperty(TextProperty::Alignment, alignment);
    text.setBlockProperty(TextProperty::HeadTailRule, 2);
    text.setBlockProperty(TextProperty::Hyphenate, true);
    text.setBlockProperty(TextProperty::PunctuationExtra, 1);
    text.setBlockProperty(TextProperty::SpaceBehindBlock, 3);
    text.addBlock();
    text.addBlock();
    text.add(QStringLiteral("end"), BoxText::format(12, TextProperty::RowSpacing, 20.0));
}

/// Lays everything out in both directions, growing or not, twice.
static QString faultInAnyLayout(const std::function<void(BoxText &)> &change)
{
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        for (const bool grows : {false, true}) {
            for (const int alignment : {2, 8, 0x400}) {
                BoxText text(100, 100, orientation);
                text.m_autoWordWrap = grows;
                text.comparesSearches = false;
                addEverything(text, alignment);
                change(text);
                for (int pass = 0; pass < 2; ++pass) {
                    const QString fault = faultOf(text.layOut(), *text.m_document);
                    if (!fault.isEmpty())
                        return QStringLiteral("%1 (direction %2, growing %3, alignment %4)")
                            .arg(fault)
                            .arg(int(orientation))
                            .arg(grows)
                            .arg(alignment);
                }
            }
        }
    }
    return QString();
}

void TestBoxBadInput::boxes_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    const QList<double> sizes{0, -10, 1e-9, 1e9, 1e300, noNumber, infinite, -infinite};
    for (const double size : sizes) {
        QTest::addRow("width %g", size) << size << 100.0;
        QTest::addRow("height %g", size) << 100.0 << size;
        QTest::addRow("both %g", size) << size << size;
    }
}

void TestBoxBadInput::boxes()
{
    QFETCH(double, width);
    QFETCH(double, height);
    QCOMPARE(faultInAnyLayout([&](BoxText &text) { text.setBox(QRectF(0, 0, width, height)); }),
             QString());
    QCOMPARE(faultInAnyLayout([&](BoxText &text) { text.setBox(QRectF(width, height, 50, 50)); }),
             QString());
}

void TestBoxBadInput::scaleFactors_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    const QList<double> factors{0, -1, -1e-9, 1e-300, 1e9, 1e300, infinite, -infinite, noNumber};
    for (const double factor : factors) {
        QTest::addRow("x %g", factor) << factor << 1.0;
        QTest::addRow("y %g", factor) << 1.0 << factor;
        QTest::addRow("both %g", factor) << factor << factor;
    }
}

void TestBoxBadInput::scaleFactors()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QCOMPARE(faultInAnyLayout([&](BoxText &text) {
                 text.m_scaleX = x;
                 text.m_scaleY = y;
             }),
             QString());
    // The pending factor is folded, whatever it is.
    BoxText text(100, 100);
    text.comparesSearches = false;
    text.m_scaleX = x;
    text.m_scaleY = y;
    text.add(QStringLiteral("ab"));
    text.layOut();
    QCOMPARE(text.m_scaleX, 1.0);
    QCOMPARE(text.m_scaleY, 1.0);
}

void TestBoxBadInput::marginsLargerThanTheBox_data()
{
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::addColumn<int>("indent");
    QTest::newRow("left") << 500.0 << 0.0 << 0;
    QTest::newRow("right") << 0.0 << 500.0 << 0;
    QTest::newRow("both") << 500.0 << 500.0 << 0;
    QTest::newRow("indent") << 0.0 << 0.0 << 500;
    QTest::newRow("negative") << -500.0 << -500.0 << -500;
    QTest::newRow("huge") << 1e300 << -1e300 << std::numeric_limits<int>::max();
    QTest::newRow("not a number") << noNumber << noNumber << 0;
    QTest::newRow("infinite") << infinite << infinite << 0;
}

void TestBoxBadInput::marginsLargerThanTheBox()
{
    QFETCH(double, left);
    QFETCH(double, right);
    QFETCH(int, indent);
    QCOMPARE(faultInAnyLayout([&](BoxText &text) {
                 text.setMargins(left, right, indent);
                 text.m_cursor->movePosition(QTextCursor::Start);
                 text.m_cursor->setBlockFormat(text.m_document->lastBlock().blockFormat());
             }),
             QString());
    if (left == 500 || right == 500) {
        BoxText text(100, 100);
        text.add(QStringLiteral("ab"));
        text.setMargins(left, right);
        QCOMPARE(text.layOut().lines.size(), 0);
    }
}

void TestBoxBadInput::runProperties_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<double>("value");
    const QList<int> ids{TextProperty::BaselineOffset,  TextProperty::VerticalScale,
                         TextProperty::HorizontalScale, TextProperty::LetterSpacing,
                         TextProperty::LeadingGap,      TextProperty::RowSpacing,
                         QTextFormat::FontPointSize};
    for (const int id : ids) {
        for (const double value : {0.0, -1000.0, 1e-9, 1e9, 1e300, infinite, noNumber})
            QTest::addRow("%d: %g", id, value) << id << value;
    }
}

void TestBoxBadInput::runProperties()
{
    QFETCH(int, id);
    QFETCH(double, value);
    QCOMPARE(faultInAnyLayout([&](BoxText &text) {
                 text.add(QStringLiteral("ab 中。cd"), BoxText::format(12, id, value));
                 text.addBlock({}, BoxText::format(12, id, value));
             }),
             QString());
}

void TestBoxBadInput::characters_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("only spaces") << QString(300, QLatin1Char(' '));
    QTest::newRow("only wide spaces") << QString(300, QChar(0x3000));
    QTest::newRow("only combining marks") << QString(300, QChar(0x0301));
    QTest::newRow("only joiners") << QString(300, QChar(0x200D));
    QTest::newRow("only hyphens") << QString(300, QLatin1Char('-'));
    QTest::newRow("only opening brackets") << QString(300, QLatin1Char('('));
    QTest::newRow("only full stops") << QString(300, QChar(0x3002));
    QTest::newRow("letters with marks") << QStringLiteral("a\u0301b\u0308c\u0327").repeated(50);
    QTest::newRow("right to left") << QStringLiteral("שלום עולם ").repeated(15);
    QTest::newRow("joined right to left") << QStringLiteral("السلام عليكم ").repeated(15);
    QTest::newRow("both ways") << QStringLiteral("abc שלום 12 مرحبا ").repeated(15);
    QTest::newRow("conjuncts") << QStringLiteral("क्षत्रिय ").repeated(15);
    QTest::newRow("surrogate pairs") << QStringLiteral("𠀀😀a").repeated(30);
    QTest::newRow("joined pictures") << QStringLiteral("👨‍👩‍👧").repeated(15);
    QTest::newRow("lone surrogates") << QString(100, QChar(0xDC00)) + QString(100, QChar(0xD800));
    QTest::newRow("separators") << QString(50, QChar(QChar::LineSeparator))
                                       + QString(50, QLatin1Char('\t')) + QChar(QChar::Nbsp);
    QTest::newRow("objects") << QString(50, QChar(QChar::ObjectReplacementCharacter));
    QTest::newRow("sharp s in capitals") << QStringLiteral("straße").repeated(20);
}

void TestBoxBadInput::characters()
{
    QFETCH(QString, text);
    const bool whole = !text.at(0).isLowSurrogate();
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        for (const int alignment : {1, 8}) {
            for (const int mode : {0, 1, 2}) {
                BoxText object(100, 100, orientation);
                object.m_autoWordWrap = true;
                QTextCharFormat format = BoxText::format();
                if (text.startsWith(QStringLiteral("str")))
                    format.setProperty(TextProperty::UpperCase, true);
                object.add(text, format);
                object.setBlockProperty(TextProperty::Alignment, alignment);
                object.setBlockProperty(TextProperty::HeadTailRule, mode);
                object.setBlockProperty(TextProperty::Hyphenate, mode == 1);
                object.setBlockProperty(TextProperty::PunctuationExtra, mode == 2);
                const TextLayout layout = object.layOut();
                int length = 0;
                for (const TextLine &line : layout.lines) {
                    QCOMPARE(line.length, line.text.length());
                    length += line.length;
                }
                QVERIFY(length <= 2 * text.length());
                if (whole && !format.hasProperty(TextProperty::UpperCase))
                    QCOMPARE(faultOf(layout, *object.m_document), QString());
            }
        }
    }
}

void TestBoxBadInput::blanksHaveNoInkThatCouldStopTheLayout()
{
    BoxText text(100, 50, Qt::Vertical);
    text.setBox(QRectF(10, 0, 100, 50));
    text.add(QStringLiteral("  "));
    text.addBlock();
    text.add(QStringLiteral("a"));
    const TextLayout layout = text.layOut();
    QCOMPARE(acrossOf(layout), (QList<qreal>{92, 68}));
    QCOMPARE(layout.lines.first().rect, QRectF(84, 0, 16, 16));

    BoxText rows(100, 50);
    rows.add(QStringLiteral("   "));
    QCOMPARE(rows.layOut().lines.first().rect, QRectF(0, 0, 24, 16));
}

void TestBoxBadInput::surrogatePairsStayWhole_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("pairs") << QStringLiteral("𠀀𠀀𠀀𠀀𠀀");
    QTest::newRow("pairs and letters") << QStringLiteral("a𠀀bc𠀀def𠀀𠀀ghij");
    QTest::newRow("pairs and brackets") << QStringLiteral("𠀀(𠀀[𠀀{𠀀((𠀀");
    QTest::newRow("pairs and stops") << QStringLiteral("𠀀。𠀀。。𠀀」𠀀、");
    QTest::newRow("cased letters beyond") << QStringLiteral("𐐀𐐨𐐀𐐨 𐐀𐐨a𐐀b𐐨");
}

void TestBoxBadInput::surrogatePairsStayWhole()
{
    QFETCH(QString, text);
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        for (int size = 1; size < 90; size += 3) {
            for (const int mode : {0, 1, 2}) {
                const bool rows = orientation == Qt::Horizontal;
                BoxText object(rows ? size : 5000, rows ? 5000 : size, orientation);
                object.add(text);
                object.setBlockProperty(TextProperty::HeadTailRule, mode);
                object.setBlockProperty(TextProperty::Hyphenate, size % 2 == 0);
                object.setBlockProperty(TextProperty::PunctuationExtra, mode == 1);
                QCOMPARE(faultOf(object.layOut(), *object.m_document), QString());
            }
        }
    }
}

void TestBoxBadInput::nothingIsLostInABoxOfTwoCharacters()
{
    const QString text = QStringLiteral(
        "Some words。「Brackets」(and more) 中文国人天地、𠀀𠀀 gypsies ");
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        for (int size = 64; size < 200; size += 4) {
            for (const int mode : {0, 1, 2}) {
                const bool rows = orientation == Qt::Horizontal;
                BoxText object(rows ? size : 5000, rows ? 5000 : size, orientation);
                object.add(text.repeated(3));
                object.setBlockProperty(TextProperty::HeadTailRule, mode);
                int length = 0;
                const TextLayout layout = object.layOut();
                for (const TextLine &line : layout.lines)
                    length += line.length;
                QCOMPARE(length, 3 * text.length());
                QCOMPARE(faultOf(layout, *object.m_document), QString());
            }
        }
    }
}

void TestBoxBadInput::longUnbrokenParagraph_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<bool>("hyphenate");
    QTest::addColumn<int>("count");
    QTest::newRow("lines") << int(Qt::Horizontal) << false << 1000000;
    QTest::newRow("lines, hyphenated") << int(Qt::Horizontal) << true << 100000;
    QTest::newRow("columns") << int(Qt::Vertical) << false << 1000000;
}

void TestBoxBadInput::longUnbrokenParagraph()
{
    QFETCH(int, orientation);
    QFETCH(bool, hyphenate);
    QFETCH(int, count);
    BoxText text(1000, 1000, Qt::Orientation(orientation));
    text.comparesSearches = false;
    text.add(QString(count, QLatin1Char('a')));
    text.setBlockProperty(TextProperty::Hyphenate, hyphenate);
    const TextLayout layout = text.layOut();
    // Rows at 12, 28 ... 988; columns at 992, 968 ... 8.
    QCOMPARE(layout.lines.size(), orientation == Qt::Horizontal ? 62 : 42);
    QCOMPARE(layout.lines.at(0).length, hyphenate ? 124 : 125);
    QCOMPARE(layout.lines.at(40).position, 40 * (hyphenate ? 124 : 125));
}

QTEST_MAIN(TestBoxBadInput)
#include "tst_boxbadinput.moc"
