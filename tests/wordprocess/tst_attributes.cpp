// SPDX-License-Identifier: MIT
// The four translators between attribute maps and formats, row by row, and the notifications of panels.
#include "openword.h"

#include <QTest>

#include <limits>

Q_DECLARE_METATYPE(QTextFormat)

class TestAttributes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_family = loadBoxTestFont(); }

    void characterValueIsStored_data();
    void characterValueIsStored();
    void characterPropertyIsShown_data();
    void characterPropertyIsShown();
    void missingCharacterProperty_data();
    void missingCharacterProperty();
    void paragraphValueIsStored_data();
    void paragraphValueIsStored();
    void paragraphPropertyIsShown_data();
    void paragraphPropertyIsShown();
    void missingParagraphProperty_data();
    void missingParagraphProperty();

    void emptyMapGivesEmptyFormat();
    void oneKeyGivesOneProperty_data();
    void oneKeyGivesOneProperty();
    void boldFalseRemovesBold();
    void boldBeginsAboveFiftySeven();
    void superscriptGoesAheadOfSubscript();
    void scalesAsStringOrNumberAreEqual();
    void blankPointSizeStoresZero();
    void alignmentFallsBackOnTheBlock();
    void firstIndentIsCutOff();
    void gapAndSpacingAreApart();
    void formerFamilyIsShownOnlyWhenSet();
    void unknownFamilyStands();
    void familyIsStoredUnderItsInternalName();
    void colourComesAsColourOrName();
    void colourNameHasAlphaWhenNeeded();
    void propertiesAreSetInOrder();
    void shownKeysOverwriteTheMap();
    void notFiniteRealsReadAsZero_data();
    void notFiniteRealsReadAsZero();

private:
    QString m_family;
};

namespace {
using T = QTextFormat;

struct Stored {
    const char *key;
    QVariant value;
    int id;
    QVariant property;
};

QVariant text(const char *word)
{
    return QString::fromLatin1(word);
}

/// Value and type are the same.
bool same(const QVariant &a, const QVariant &b)
{
    return a.userType() == b.userType() && a == b && a.isValid() == b.isValid();
}

void addStored(const QVector<Stored> &rows)
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("property");
    for (const Stored &row : rows)
        QTest::addRow("%s %s %d", row.key, row.value.typeName(), row.id)
            << QString::fromLatin1(row.key) << row.value << row.id << row.property;
}

/// Columns of the tests of properties shown, and of those that are missing.
void addShownColumns()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("property");
    QTest::addColumn<QVariant>("plain");
    QTest::addColumn<QVariant>("blank");
}

struct Shown {
    const char *key;
    int id;
    QVariant property;
    QVariant shown;
};

void addShown(const QVector<Shown> &rows)
{
    addShownColumns();
    for (const Shown &row : rows)
        QTest::addRow("%s of %s", row.key, row.property.typeName())
            << QString::fromLatin1(row.key) << row.id << row.property << row.shown << row.shown;
}

struct Missing {
    const char *key;
    QVariant plain;
    QVariant blank;
};

void addMissing(const QVector<Missing> &rows)
{
    addShownColumns();
    for (const Missing &row : rows)
        QTest::newRow(row.key) << QString::fromLatin1(row.key) << 0 << QVariant() << row.plain
                               << row.blank;
}

const QVector<Stored> characterRows()
{
    const QBrush red(QColor(255, 0, 0), Qt::SolidPattern);
    return {
        {"font_family", text("No Such Family"), T::FontFamily, text("No Such Family")},
        {"font_bold", true, T::FontWeight, 75},
        {"font_bold", text("false"), T::FontWeight, 50},
        {"font_italic", true, T::FontItalic, true},
        {"font_italic", 0, T::FontItalic, false},
        {"font_letterspacing", 12.5, 1013, 12.5},
        {"font_letterspacing", text("7.5"), 1013, 7.5},
        {"selected_letterspacing", 3, 1012, 3.0},
        {"font_pointsize", 10.5, T::FontPointSize, 10.5},
        {"font_pointsize", text("24"), T::FontPointSize, 24.0},
        {"font_underline", true, T::TextUnderlineStyle, 1},
        {"font_underline", false, T::TextUnderlineStyle, 0},
        {"font_strikeout", 1, T::FontStrikeOut, true},
        {"pen_color", QColor(255, 0, 0), T::ForegroundBrush, red},
        {"pen_color", text("#ff0000"), T::ForegroundBrush, red},
        {"pen_color", 5.5, T::ForegroundBrush, QBrush(QColor(), Qt::SolidPattern)},
        {"font_style", text("Light"), T::FontStyleName, text("Light")},
        {"vertical_scaled", text("150"), 1004, 150},
        {"vertical_scaled", 99.6, 1004, 100},
        {"horizontal_scaled", 80, 1005, 80},
        {"baseline_offset", -3, 1002, -3},
        {"baseline_offset", 2.4, 1002, 2},
        {"text_upper", true, 1003, true},
        {"text_upper", text("false"), 1003, false},
        {"text_superscript", true, T::TextVerticalAlignment, 1},
        {"text_subscript", true, T::TextVerticalAlignment, 2},
        {"font_rowspacing", 30, 1017, 30.0},
        {"ori_font_family", text("Former"), 1018, text("Former")},
    };
}

const QVector<Stored> paragraphRows()
{
    return {
        {"textalignment", 4, 1001, 4},
        {"textalignment", text("2"), 1001, 2},
        {"paragraph_left_indent", 12.5, T::BlockLeftMargin, 12.5},
        {"paragraph_left_indent", 12.5, 1009, 12.5},
        {"paragraph_right_indent", 3, T::BlockRightMargin, 3.0},
        {"paragraph_right_indent", 3, 1010, 3.0},
        {"paragraph_after_space", 6.6, 1006, 7},
        {"paragraph_before_space", text("5"), 1007, 5},
        {"paragraph_first_indent", 12.5, T::BlockIndent, 12},
        {"paragraph_first_indent", 12.5, 1008, 12.5},
        {"text_ligature", true, 1014, true},
        {"paragraph_head_tail_punctuation", 2, 1015, 2},
        {"paragraph_punctuation_extra", 1, 1016, 1},
    };
}
} // namespace

void TestAttributes::characterValueIsStored_data()
{
    addStored(characterRows());
}

void TestAttributes::characterValueIsStored()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(int, id);
    QFETCH(QVariant, property);
    const QTextCharFormat format = OpenWord().attr2CharFormat({{key, value}});
    QCOMPARE(format.property(id), property);
    QCOMPARE(format.property(id).userType(), property.userType());
    QCOMPARE(format.propertyCount(), 1);
}

void TestAttributes::paragraphValueIsStored_data()
{
    addStored(paragraphRows());
}

void TestAttributes::paragraphValueIsStored()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(int, id);
    QFETCH(QVariant, property);
    const QTextBlockFormat format = OpenWord().attr2BlockFormat({{key, value}});
    QCOMPARE(format.property(id), property);
    QCOMPARE(format.property(id).userType(), property.userType());
    QVERIFY(!format.hasProperty(T::BlockAlignment));
    QVERIFY(!format.hasProperty(T::TextIndent));
    QVERIFY(format.propertyCount() <= 2);
}

void TestAttributes::characterPropertyIsShown_data()
{
    const QBrush red(QColor(255, 0, 0), Qt::SolidPattern);
    addShown({
        {"font_family", T::FontFamily, text("No Such Family"), text("No Such Family")},
        {"font_bold", T::FontWeight, 75, true},
        {"font_bold", T::FontWeight, 50, false},
        {"font_italic", T::FontItalic, true, true},
        {"font_letterspacing", 1013, 12.5, 12.5},
        {"font_letterspacing", 1013, text(""), text("")},
        {"selected_letterspacing", 1012, 7, 7.0},
        {"selected_letterspacing", 1012, 7.5, 7.5},
        {"font_pointsize", T::FontPointSize, 10.5, 10.5},
        {"font_underline", T::TextUnderlineStyle, 1, true},
        {"font_underline", T::TextUnderlineStyle, 0, false},
        {"font_strikeout", T::FontStrikeOut, true, true},
        {"pen_color", T::ForegroundBrush, red, QColor(255, 0, 0)},
        {"font_style", T::FontStyleName, text("Light"), text("Light")},
        {"vertical_scaled", 1004, 150, 150.0},
        {"horizontal_scaled", 1005, 80, 80.0},
        {"baseline_offset", 1002, -3, -3},
        {"baseline_offset", 1002, 2.25, 2.25},
        {"text_upper", 1003, true, true},
        {"text_superscript", T::TextVerticalAlignment, 1, true},
        {"text_superscript", T::TextVerticalAlignment, 2, false},
        {"text_subscript", T::TextVerticalAlignment, 2, true},
        {"text_subscript", T::TextVerticalAlignment, 1, false},
        {"font_rowspacing", 1017, 30.0, 30.0},
        {"font_rowspacing", 1017, 0, 0},
        {"ori_font_family", 1018, text("Former"), text("Former")},
    });
}

void TestAttributes::characterPropertyIsShown()
{
    QFETCH(QString, key);
    QFETCH(int, id);
    QFETCH(QVariant, property);
    QFETCH(QVariant, plain);
    QTextCharFormat format;
    format.setProperty(id, property);
    for (bool blankMissing : {false, true}) {
        AttributeMap map;
        OpenWord().charFormat2Attr(format, map, blankMissing);
        QCOMPARE(map.value(key), plain);
        QCOMPARE(map.value(key).userType(), plain.userType());
    }
}

void TestAttributes::missingCharacterProperty_data()
{
    const QVariant noColour = QBrush().color();
    addMissing({
        {"font_family", text(""), text("")},
        {"font_bold", false, false},
        {"font_italic", false, false},
        {"font_letterspacing", 0, 0},
        {"selected_letterspacing", 0, 0},
        {"font_pointsize", text(""), text("")},
        {"font_underline", false, false},
        {"font_strikeout", false, false},
        {"pen_color", noColour, noColour},
        {"font_style", QVariant(), QVariant()},
        {"vertical_scaled", text("100"), text("")},
        {"horizontal_scaled", text("100"), text("")},
        {"baseline_offset", text("0"), text("")},
        {"text_upper", false, false},
        {"text_superscript", false, false},
        {"text_subscript", false, false},
        {"font_rowspacing", text("0"), text("")},
    });
}

void TestAttributes::missingCharacterProperty()
{
    QFETCH(QString, key);
    QFETCH(QVariant, plain);
    QFETCH(QVariant, blank);
    AttributeMap map;
    OpenWord().charFormat2Attr(QTextCharFormat(), map, false);
    QVERIFY(map.contains(key));
    QVERIFY(same(map.value(key), plain));
    QCOMPARE(map.size(), 17);
    map.clear();
    OpenWord().charFormat2Attr(QTextCharFormat(), map, true);
    QVERIFY(map.contains(key));
    QVERIFY(same(map.value(key), blank));
    QCOMPARE(map.size(), 17);
}

void TestAttributes::paragraphPropertyIsShown_data()
{
    addShown({
        {"textalignment", 1001, 4, 4},
        {"textalignment", T::BlockAlignment, 2, 2},
        {"paragraph_left_indent", 1009, 12.5, 12.5},
        {"paragraph_right_indent", 1010, 3.0, 3.0},
        {"paragraph_after_space", 1006, 6, 6},
        {"paragraph_after_space", 1006, 6.25, 6.25},
        {"paragraph_before_space", 1007, 5, 5},
        {"paragraph_first_indent", 1008, 12.5, 12.5},
        {"text_ligature", 1014, true, true},
        {"paragraph_head_tail_punctuation", 1015, 2, 2},
        {"paragraph_punctuation_extra", 1016, 1, 1},
    });
}

void TestAttributes::paragraphPropertyIsShown()
{
    QFETCH(QString, key);
    QFETCH(int, id);
    QFETCH(QVariant, property);
    QFETCH(QVariant, plain);
    QTextBlockFormat format;
    format.setProperty(id, property);
    for (bool blankMissing : {false, true}) {
        AttributeMap map;
        OpenWord().blockFormat2Attr(format, map, blankMissing);
        QCOMPARE(map.value(key), plain);
        QCOMPARE(map.value(key).userType(), plain.userType());
    }
}

void TestAttributes::missingParagraphProperty_data()
{
    const QVariant null = QString();
    addMissing({
        {"textalignment", 1, 1},
        {"paragraph_left_indent", null, text("")},
        {"paragraph_right_indent", null, text("")},
        {"paragraph_after_space", 0, 0},
        {"paragraph_before_space", 0, 0},
        {"paragraph_first_indent", null, text("")},
        {"text_ligature", false, false},
        {"paragraph_head_tail_punctuation", 0, 0},
        {"paragraph_punctuation_extra", 0, 0},
    });
}

void TestAttributes::missingParagraphProperty()
{
    QFETCH(QString, key);
    QFETCH(QVariant, plain);
    QFETCH(QVariant, blank);
    AttributeMap map;
    OpenWord().blockFormat2Attr(QTextBlockFormat(), map, false);
    QVERIFY(same(map.value(key), plain));
    QCOMPARE(map.value(key).toString().isNull(), plain.toString().isNull());
    QCOMPARE(map.size(), 9);
    map.clear();
    OpenWord().blockFormat2Attr(QTextBlockFormat(), map, true);
    QVERIFY(same(map.value(key), blank));
    QVERIFY(!map.value(key).toString().isNull());
    QCOMPARE(map.size(), 9);
}

void TestAttributes::emptyMapGivesEmptyFormat()
{
    QCOMPARE(OpenWord().attr2CharFormat({}).propertyCount(), 0);
    QCOMPARE(OpenWord().attr2BlockFormat({}).propertyCount(), 0);
    const AttributeMap unknown{{QStringLiteral("no_such_key"), 1}, {QStringLiteral("content"), 2}};
    QCOMPARE(OpenWord().attr2CharFormat(unknown).propertyCount(), 0);
    QCOMPARE(OpenWord().attr2BlockFormat(unknown).propertyCount(), 0);
}

void TestAttributes::oneKeyGivesOneProperty_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"text_superscript", "text_subscript"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void TestAttributes::oneKeyGivesOneProperty()
{
    QFETCH(QString, key); // false leaves an earlier super- or subscript alone
    QCOMPARE(OpenWord().attr2CharFormat({{key, false}}).propertyCount(), 0);
    QCOMPARE(OpenWord().attr2CharFormat({{key, true}}).propertyCount(), 1);
}

void TestAttributes::boldFalseRemovesBold()
{
    OpenWord word;
    QTextCharFormat format;
    format.setFontWeight(75);
    format.merge(word.attr2CharFormat({{QStringLiteral("font_italic"), true}}));
    QCOMPARE(format.fontWeight(), 75);
    format.merge(word.attr2CharFormat({{QStringLiteral("font_bold"), false}}));
    QCOMPARE(format.intProperty(T::FontWeight), 50);
}

void TestAttributes::boldBeginsAboveFiftySeven()
{
    OpenWord word;
    AttributeMap map;
    QTextCharFormat format;
    format.setFontWeight(57);
    word.charFormat2Attr(format, map, false);
    QCOMPARE(map.value(QStringLiteral("font_bold")), QVariant(false));
    format.setFontWeight(58);
    word.charFormat2Attr(format, map, false);
    QCOMPARE(map.value(QStringLiteral("font_bold")), QVariant(true));
}

void TestAttributes::superscriptGoesAheadOfSubscript()
{
    const QString super = QStringLiteral("text_superscript");
    const QString sub = QStringLiteral("text_subscript");
    OpenWord word;
    const auto alignment = [&](bool superscript, bool subscript) {
        return word.attr2CharFormat({{super, superscript}, {sub, subscript}})
            .property(T::TextVerticalAlignment);
    };
    QCOMPARE(alignment(true, true), QVariant(1));
    QCOMPARE(alignment(true, false), QVariant(1));
    QCOMPARE(alignment(false, true), QVariant(2));
    QVERIFY(!alignment(false, false).isValid());
    QTextCharFormat format;
    format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    format.merge(word.attr2CharFormat({{super, false}, {sub, false}}));
    QCOMPARE(format.verticalAlignment(), QTextCharFormat::AlignSuperScript);
}

void TestAttributes::scalesAsStringOrNumberAreEqual()
{
    OpenWord word;
    const QString key = QStringLiteral("vertical_scaled");
    const QTextCharFormat a = word.attr2CharFormat({{key, QStringLiteral("100")}});
    QCOMPARE(a, word.attr2CharFormat({{key, 100}}));
    QCOMPARE(a, word.attr2CharFormat({{key, 100.0}}));
    QCOMPARE(a.property(1004).userType(), int(QMetaType::Int));
}

void TestAttributes::blankPointSizeStoresZero()
{
    OpenWord word;
    AttributeMap map;
    word.charFormat2Attr(QTextCharFormat(), map, true);
    const QTextCharFormat format = word.attr2CharFormat(map);
    QVERIFY(format.hasProperty(T::FontPointSize));
    QVERIFY(same(format.property(T::FontPointSize), 0.0));
}

void TestAttributes::alignmentFallsBackOnTheBlock()
{
    OpenWord word;
    AttributeMap map;
    QTextBlockFormat format;
    format.setProperty(T::BlockAlignment, 0);
    word.blockFormat2Attr(format, map, false);
    QVERIFY(same(map.value(QStringLiteral("textalignment")), 1));
    format.setProperty(T::BlockAlignment, 4);
    word.blockFormat2Attr(format, map, false);
    QVERIFY(same(map.value(QStringLiteral("textalignment")), 4));
    format.setProperty(1001, 2);
    word.blockFormat2Attr(format, map, false);
    QVERIFY(same(map.value(QStringLiteral("textalignment")), 2));
}

void TestAttributes::firstIndentIsCutOff()
{
    OpenWord word;
    const auto indent = [&](const QVariant &value) {
        return word.attr2BlockFormat({{QStringLiteral("paragraph_first_indent"), value}});
    };
    QVERIFY(same(indent(12.9).property(T::BlockIndent), 12));
    QVERIFY(same(indent(-12.9).property(T::BlockIndent), -12));
    QVERIFY(same(indent(-12.9).property(1008), -12.9));
    QVERIFY(same(indent(1e12).property(T::BlockIndent), std::numeric_limits<int>::max()));
}

void TestAttributes::gapAndSpacingAreApart()
{
    OpenWord word;
    QTextCharFormat format;
    format.setProperty(1012, 40.0);
    AttributeMap map;
    word.charFormat2Attr(format, map, false);
    QVERIFY(same(map.value(QStringLiteral("font_letterspacing")), 0));
    QVERIFY(same(map.value(QStringLiteral("selected_letterspacing")), 40.0));
}

void TestAttributes::formerFamilyIsShownOnlyWhenSet()
{
    OpenWord word;
    AttributeMap map;
    QTextCharFormat format;
    word.charFormat2Attr(format, map, true);
    QVERIFY(!map.contains(QStringLiteral("ori_font_family")));
    format.setProperty(1018, QString());
    word.charFormat2Attr(format, map, true);
    QVERIFY(map.contains(QStringLiteral("ori_font_family")));
}

void TestAttributes::unknownFamilyStands()
{
    OpenWord word;
    const QString name = QStringLiteral("No Such Family At All");
    const QTextCharFormat format = word.attr2CharFormat({{QStringLiteral("font_family"), name}});
    QCOMPARE(format.stringProperty(T::FontFamily), name);
    AttributeMap map;
    word.charFormat2Attr(format, map, false);
    QCOMPARE(map.value(QStringLiteral("font_family")), QVariant(name));
}

void TestAttributes::familyIsStoredUnderItsInternalName()
{
    OpenWord word;
    const QTextCharFormat format = word.attr2CharFormat(
        {{QStringLiteral("font_family"), m_family.toUpper()}});
    QCOMPARE(format.stringProperty(T::FontFamily), m_family);
    AttributeMap map;
    word.charFormat2Attr(format, map, false);
    QCOMPARE(map.value(QStringLiteral("font_family")), QVariant(m_family));
}

void TestAttributes::colourComesAsColourOrName()
{
    OpenWord word;
    const QString key = QStringLiteral("pen_color");
    const QTextCharFormat format = word.attr2CharFormat({{key, QColor(1, 2, 3, 4)}});
    QCOMPARE(format, word.attr2CharFormat({{key, QStringLiteral("#04010203")}}));
    QVERIFY(!word.attr2CharFormat({{key, 1.5}}).foreground().color().isValid());
}

void TestAttributes::colourNameHasAlphaWhenNeeded()
{
    OpenWord word;
    const auto written = [&](const QColor &color) {
        OpenWord other;
        QTextCharFormat format = OpenWord::format();
        format.setForeground(color);
        other.add(QStringLiteral("a"), format);
        const QJsonArray blocks =
            jsonOf(other.serialize(false)).value(QLatin1String("fragment")).toArray();
        return blocks.at(0).toArray().at(0).toObject().value(QLatin1String("pen_color")).toString();
    };
    QCOMPARE(written(QColor(1, 2, 255)), QStringLiteral("#0102ff"));
    QCOMPARE(written(QColor(1, 2, 255, 128)), QStringLiteral("#800102ff"));
}

void TestAttributes::propertiesAreSetInOrder()
{
    // Formats are equal only with their properties in the same order; runs merge by that.
    QTextCharFormat character;
    AttributeMap attributes;
    for (const Stored &row : characterRows()) {
        const QString key = QString::fromLatin1(row.key);
        if (attributes.contains(key) || key == QLatin1String("text_subscript"))
            continue;
        attributes[key] = row.value;
        character.setProperty(row.id, row.property);
    }
    QCOMPARE(OpenWord().attr2CharFormat(attributes), character);

    QTextBlockFormat block;
    attributes.clear();
    for (const Stored &row : paragraphRows()) {
        if (!attributes.contains(QString::fromLatin1(row.key)) || block.propertyCount() == 0
            || row.id > 4000 || row.id == 1008 || row.id == 1009 || row.id == 1010) {
            if (row.key == QByteArray("textalignment") && block.hasProperty(1001))
                continue;
            attributes[QString::fromLatin1(row.key)] = row.value;
            block.setProperty(row.id, row.property);
        }
    }
    QCOMPARE(OpenWord().attr2BlockFormat(attributes), block);
}

void TestAttributes::shownKeysOverwriteTheMap()
{
    AttributeMap map{{QStringLiteral("font_bold"), QStringLiteral("old")},
                     {QStringLiteral("textalignment"), QStringLiteral("old")},
                     {QStringLiteral("kept"), 5}};
    OpenWord word;
    word.charFormat2Attr(QTextCharFormat(), map, false);
    word.blockFormat2Attr(QTextBlockFormat(), map, false);
    QVERIFY(same(map.value(QStringLiteral("font_bold")), false));
    QVERIFY(same(map.value(QStringLiteral("textalignment")), 1));
    QVERIFY(same(map.value(QStringLiteral("kept")), 5));
}

void TestAttributes::notFiniteRealsReadAsZero_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key :
         {"font_letterspacing", "selected_letterspacing", "font_pointsize", "vertical_scaled",
          "horizontal_scaled", "baseline_offset", "font_rowspacing", "textalignment",
          "paragraph_left_indent", "paragraph_right_indent", "paragraph_after_space",
          "paragraph_before_space", "paragraph_first_indent", "paragraph_head_tail_punctuation",
          "paragraph_punctuation_extra"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void TestAttributes::notFiniteRealsReadAsZero()
{
    QFETCH(QString, key);
    OpenWord word;
    const QVector<QVariant> values{qQNaN(),     qInf(),      -qInf(),
                                   text("nan"), text("inf"), text("-inf")};
    for (const QVariant &value : values) {
        QTextFormat format = word.attr2CharFormat({{key, value}});
        if (format.propertyCount() == 0)
            format = word.attr2BlockFormat({{key, value}});
        QVERIFY(format.propertyCount() > 0);
        const QMap<int, QVariant> properties = format.properties();
        for (const QVariant &property : properties)
            QCOMPARE(property.toReal(), 0.0);
    }
}

QTEST_MAIN(TestAttributes)
#include "tst_attributes.moc"
