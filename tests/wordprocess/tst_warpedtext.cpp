// SPDX-License-Identifier: MIT
// A text with a warp: where it stands, what the host's slider does to it, edits, undo and records.
#include "tests/wordprocess/openword.h"
#include "wordprocess/numbers.h"

#include <QBuffer>
#include <QDataStream>
#include <QSemaphore>
#include <QtTest>

#include <functional>
#include <limits>
#include <memory>
#include <thread>

class TestWarpedText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadBoxTestFont(); }

    // the box of a warped text
    void warpBendsWhatIsPainted_data() { forms(); }
    void warpBendsWhatIsPainted();
    void numbersOfAWarpedLine();
    void twoUpdatesInARowDoNotCreep_data() { placedForms(); }
    void twoUpdatesInARowDoNotCreep();
    void unwarpedOriginStaysWhereItWas_data() { forms(); }
    void unwarpedOriginStaysWhereItWas();
    void originOfAStretchedBoxStaysToo();
    void boxIsTheStretchedWarpedSize_data() { forms(); }
    void boxIsTheStretchedWarpedSize();
    void handleStretchesAWarpedText();
    void boxGoesThroughItsSteps_data();
    void boxGoesThroughItsSteps();
    void placementOfABoxIsThatOfTheUnwarpedText();
    void boxThatBecomesLineTextStandsUnwarped();

    // no warp, flat warps
    void otherValuesWithoutAStyleHaveNoEffect();
    void flatWarpKeepsPointsWithinItsTruncatedThirds();
    void numberAboveFifteenIsAFlatWarp();
    void emptyTextKeepsThePlainBox();
    void styleTakenAwayGivesThePlainBoxBack_data() { placedForms(); }
    void styleTakenAwayGivesThePlainBoxBack();

    // edits
    void textIsEditedUnwarpedAndBentAfterwards_data() { placedForms(); }
    void textIsEditedUnwarpedAndBentAfterwards();
    void typedTextIsBentAfterTheEdit_data() { forms(); }
    void typedTextIsBentAfterTheEdit();

    // the host's slider
    void dragIsOneStepThatUndoesAndRedoes_data() { placedForms(); }
    void dragIsOneStepThatUndoesAndRedoes();
    void dragOfAStretchedTextIsOneStep_data() { forms(); }
    void dragOfAStretchedTextIsOneStep();
    void commitWithoutPreviewIsAStepToo();
    void previewLeavesThePicture();
    void missingFontsKeepTheWarp_data();
    void missingFontsKeepTheWarp();
    void previewDuringAnEditBendsAfterwards();
    void baselinesAreThoseOfTheUnwarpedText_data() { forms(); }
    void baselinesAreThoseOfTheUnwarpedText();

    // records
    void recordBringsTheWarpBack_data();
    void recordBringsTheWarpBack();
    void documentStringBringsTheWarpBack();
    void recordsWithBadWarpsPaintAndSave_data();
    void recordsWithBadWarpsPaintAndSave();

    // others at work
    void painterAtWorkDelaysOnlyTheExchange_data() { forms(); }
    void painterAtWorkDelaysOnlyTheExchange();
    void layoutByAListenerWins();
    void listenersLastWordStands_data();
    void listenersLastWordStands();

private:
    static void forms();
    static void placedForms();
};

namespace {
struct Form {
    bool wrapped = false;
    int orientation = Qt::Horizontal;
};

template<typename... Values>
QByteArray bytesOf(const Values &...values)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    (out << ... << values);
    return bytes;
}

QString key(const char *text)
{
    return QString::fromLatin1(text);
}

/// A finished text at (100, 100): a line, or a box of 100 by 60.
template<typename Word>
struct TextOf {
    RecordingHost host;
    Word word{&host};

    explicit TextOf(const Form &form = Form(), double rotation = 0)
    {
        word.m_textOrientation = form.orientation;
        word.setPos(QPointF(100, 100), false);
        word.add(key("abcdefgh ij"));
        if (form.wrapped) {
            word.m_wordWrap = true;
            word.m_wordManager->setWordWrap(true);
            word.beginEdit();
            word.setSize(QSizeF(100, 60), false, true);
            word.endEdit();
        }
        word.rotateObj(rotation, false);
        word.undoRedo(word.serialize(false), false); // formats as a document string brings them
        host.clearEvents();
        word.forgetCalls();
    }

    void warp(int style, double value, bool commit = false, int orientation = Qt::Horizontal)
    {
        const QByteArray bytes = bytesOf(style, value, 0.1, -0.05, orientation, commit);
        QDataStream in(bytes);
        word.SetSpecialProperty(118, in, false);
    }
};
using Text = TextOf<OpenWord>;

/// What is painted, in the scene.
QRectF paintedRect(OpenWord &word)
{
    return word.sceneTransform().map(word.getClientPath()).boundingRect();
}

bool isNear(const QRectF &a, const QRectF &b, double distance = 1e-6)
{
    return qAbs(a.left() - b.left()) < distance && qAbs(a.top() - b.top()) < distance
           && qAbs(a.right() - b.right()) < distance && qAbs(a.bottom() - b.bottom()) < distance;
}

bool isNear(const QPointF &a, const QPointF &b)
{
    return isNear(QRectF(a, QSizeF(1, 1)), QRectF(b, QSizeF(1, 1)));
}

/// Scene position of the corner that the text has without its warp.
QPointF unwarpedCorner(const OpenWord &word)
{
    return word.mapToScene(word.m_morphRect.x() * word.m_scaleX,
                           word.m_morphRect.y() * word.m_scaleY);
}

bool isWhole(const QRectF &rect)
{
    return rect.toRect() == rect;
}
} // namespace

Q_DECLARE_METATYPE(Form)

void TestWarpedText::forms()
{
    QTest::addColumn<Form>("form");
    QTest::newRow("line") << Form{false, Qt::Horizontal};
    QTest::newRow("column") << Form{false, Qt::Vertical};
    QTest::newRow("box") << Form{true, Qt::Horizontal};
    QTest::newRow("box of columns") << Form{true, Qt::Vertical};
}

void TestWarpedText::placedForms()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<double>("rotation");
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("orientation");
    const QPair<const char *, Form> forms[] = {{"line", {false, Qt::Horizontal}},
                                               {"column", {false, Qt::Vertical}},
                                               {"box", {true, Qt::Horizontal}},
                                               {"box of columns", {true, Qt::Vertical}}};
    for (const auto &form : forms) {
        for (double rotation : {0.0, 90.0}) {
            QTest::addRow("%s, %g degrees, bulge", form.first, rotation)
                << form.second << rotation << int(SurfaceBulge) << int(Qt::Horizontal);
            QTest::addRow("%s, %g degrees, wave, vertical", form.first, rotation)
                << form.second << rotation << int(SurfaceWave) << int(Qt::Vertical);
            QTest::addRow("%s, %g degrees, squeeze", form.first, rotation)
                << form.second << rotation << int(SurfaceSqueeze) << int(Qt::Horizontal);
        }
    }
}

void TestWarpedText::warpBendsWhatIsPainted()
{
    QFETCH(Form, form);
    Text text(form);
    const QList<QPainterPath> plain = text.word.m_textPaths;
    const QImage before = contentOf(text.word);
    text.warp(SurfaceBulge, 0.5);
    QCOMPARE(text.word.m_morphPaths.size(), plain.size());
    QCOMPARE(text.word.m_textPaths, plain); // the source stays
    const QImage after = contentOf(text.word);
    QVERIFY(after != before);
    QVERIFY(inkOf(after).isValid());
    QVERIFY(isWhole(text.word.m_morphRect));
}

/// Rise of a line of three squares, 8 by 12 px each, on a box of 24 by 16: the left end of the net goes down by
/// 5 thirds of the height times the value, which is 12.5 px.
void TestWarpedText::numbersOfAWarpedLine()
{
    OpenWord word;
    word.add(key("abc"));
    QCOMPARE(word.m_textPathsRect.size(), QSizeF(24, 16));
    word.m_warpStyle = SurfaceRise;
    word.m_warpValue = 0.5;
    word.updateMorphTextPaths();
    const double left = word.m_textPaths.first().boundingRect().left();
    const double u = left / 24; // how far along the left edge of the ink is
    // (1 - u)^3 + 3 u (1 - u)^2 of the lift are left there; the rows stay upright.
    const double lift = 12.5 * ((1 - u) * (1 - u) * (1 - u) + 3 * u * (1 - u) * (1 - u));
    const QPointF first = word.m_textPaths.first().elementAt(0);
    const QPointF bent = word.m_morphPaths.first().elementAt(0);
    const double lower = first.y() / 16; // thirds of 16 are cut to 5 and 10
    const double row = 3 * lower * (1 - lower) * (1 - lower) * 5
                       + 3 * lower * lower * (1 - lower) * 10 + lower * lower * lower * 16;
    const double v = first.x() / 24;
    const double here = 12.5 * ((1 - v) * (1 - v) * (1 - v) + 3 * v * (1 - v) * (1 - v));
    QVERIFY(qAbs(bent.x() - first.x()) < 1e-9);
    QVERIFY(qAbs(bent.y() - (row + here + 1)) < 1e-9);
    QVERIFY(word.m_morphRect.height() >= 16 && word.m_morphRect.height() <= 16 + lift);
}

void TestWarpedText::twoUpdatesInARowDoNotCreep()
{
    QFETCH(Form, form);
    QFETCH(double, rotation);
    QFETCH(int, style);
    QFETCH(int, orientation);
    for (const QSizeF &stretch : {QSizeF(1, 1), QSizeF(2, 1.5)}) {
        Text text(form, rotation);
        OpenWord &word = text.word;
        word.setSize(stretched(word.m_baseSize, stretch.width(), stretch.height()), false, true);
        text.warp(style, 0.5, false, orientation);
        const QRectF box = word.m_morphRect;
        const QRectF painted = paintedRect(word);
        QVERIFY(!word.m_morphPaths.isEmpty());
        for (int i = 0; i < 3; ++i) {
            word.updateMorphTextPaths();
            QCOMPARE(word.m_morphRect, box);
            QVERIFY(isNear(paintedRect(word), painted));
        }
        // Another value and back again.
        text.warp(style, -0.3, false, orientation);
        text.warp(style, 0.5, false, orientation);
        QCOMPARE(word.m_morphRect, box);
        QVERIFY(isNear(paintedRect(word), painted));
        // Nor does the text move with each layout, once the stretch has gone into the layout of a box.
        word.updateBoundingRectImpl(true);
        const QRectF laidOut = paintedRect(word);
        word.updateBoundingRectImpl(true);
        QVERIFY(isNear(paintedRect(word), laidOut));
    }
}

void TestWarpedText::unwarpedOriginStaysWhereItWas()
{
    QFETCH(Form, form);
    Text text(form);
    const QPointF corner = text.word.getPos();
    for (double value : {0.5, -0.5, 0.2}) {
        for (int style : {1, 5, 9, 11, 14}) {
            for (int orientation : {1, 2}) {
                text.warp(style, value, false, orientation);
                QVERIFY(isNear(unwarpedCorner(text.word), corner));
            }
        }
    }
}

void TestWarpedText::originOfAStretchedBoxStaysToo()
{
    Text text(Form{true, Qt::Horizontal});
    text.word.setSize(stretched(text.word.m_baseSize, 2, 1.5), false, true);
    const QPointF corner = text.word.getPos();
    text.warp(SurfaceSqueeze, 0.5);
    QVERIFY(text.word.m_morphRect.x() != 0.0);
    QVERIFY(isNear(unwarpedCorner(text.word), corner));
}

void TestWarpedText::boxIsTheStretchedWarpedSize()
{
    QFETCH(Form, form);
    Text text(form);
    text.word.setSize(stretched(text.word.m_baseSize, 2, 1.5), false, true);
    QCOMPARE(text.word.m_scaleX, 2.0);
    text.warp(SurfaceFlag, 0.5);
    QCOMPARE(text.word.m_clientRect.size(), stretched(text.word.m_morphRect.size(), 2, 1.5));
    QCOMPARE(text.word.m_baseSize, text.word.m_morphRect.size());
}

void TestWarpedText::handleStretchesAWarpedText()
{
    Text text;
    text.warp(SurfaceFlag, 0.5);
    const QSizeF size = text.word.m_morphRect.size();
    const QRectF painted = paintedRect(text.word);
    text.word.setSize(stretched(size, 3, 2), false, true);
    QCOMPARE(text.word.m_scaleX, 3.0);
    QCOMPARE(text.word.m_scaleY, 2.0);
    QVERIFY(qAbs(paintedRect(text.word).width() - 3 * painted.width()) < 1e-9);
    text.word.updateMorphTextPaths();
    QCOMPARE(text.word.m_clientRect.size(), stretched(size, 3, 2));
}

void TestWarpedText::boxGoesThroughItsSteps_data()
{
    QTest::addColumn<bool>("wrapped");
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("editing");
    QTest::addColumn<QString>("steps"); // plain, warped, stretched
    QTest::newRow("line, plain") << false << 0 << false << key("pps");
    QTest::newRow("line, warped") << false << 14 << false << key("pws");
    QTest::newRow("line, edited") << false << 14 << true << key("s");
    QTest::newRow("box, plain") << true << 0 << false << key("ps");
    QTest::newRow("box, warped") << true << 14 << false << key("ws");
    QTest::newRow("box, edited") << true << 14 << true << QString();
}

namespace {
/// Calls back, or writes the size of its box down, at each notification.
class ListeningWord : public OpenWord
{
public:
    using OpenWord::OpenWord;
    void notifyObjPropertyChanged(int code, const QString &detail) override
    {
        OpenWord::notifyObjPropertyChanged(code, detail);
        sizes.append(m_clientRect.size());
        if (onNotification && --countdown == 0)
            std::exchange(onNotification, nullptr)();
    }
    QVector<QSizeF> sizes;
    int countdown = 1;
    std::function<void()> onNotification;
};
} // namespace

void TestWarpedText::boxGoesThroughItsSteps()
{
    QFETCH(bool, wrapped);
    QFETCH(int, style);
    QFETCH(bool, editing);
    QFETCH(QString, steps);
    TextOf<ListeningWord> text(Form{wrapped, Qt::Horizontal});
    ListeningWord &word = text.word;
    word.m_warpStyle = style;
    word.m_warpValue = 0.5;
    if (editing)
        word.beginEdit();
    word.m_scaleX = 2;
    word.m_scaleY = 1.5;
    word.sizes.clear();
    const QSizeF present = word.m_clientRect.size();
    word.updateMorphTextPaths();
    const QSizeF plain = word.m_textPathsRect.size();
    const QSizeF warped = word.m_morphRect.size();
    QVector<QSizeF> expected;
    QSizeF last = present;
    for (const QChar step : steps) {
        last = step == QLatin1Char('p')   ? plain
               : step == QLatin1Char('w') ? warped
                                          : stretched(last, 2, 1.5);
        expected.append(last);
    }
    QCOMPARE(word.sizes, expected);
}

void TestWarpedText::placementOfABoxIsThatOfTheUnwarpedText()
{
    Text text(Form{true, Qt::Horizontal});
    const QTransform plain = text.word.getTextTransform();
    text.warp(SurfaceSqueeze, 0.5);
    QVERIFY(text.word.m_morphRect.x() != 0.0);
    const QTransform warped = text.word.getTextTransform();
    QVERIFY(isNear(QPointF(warped.dx(), warped.dy()), QPointF(plain.dx(), plain.dy())));
    QCOMPARE(warped.m11(), 1.0);
}

void TestWarpedText::boxThatBecomesLineTextStandsUnwarped()
{
    Text text(Form{true, Qt::Horizontal});
    const QPointF corner = text.word.getPos();
    const QSizeF size = text.word.m_clientRect.size();
    text.warp(SurfaceSqueeze, 0.5);
    QVERIFY(text.word.getPos() != corner);
    QPointF anchor;
    QVERIFY(text.word.wordwrap2single(anchor));
    QVERIFY(isNear(text.word.getPos(), corner));
    QCOMPARE(text.word.m_clientRect.size(), size);
}

void TestWarpedText::otherValuesWithoutAStyleHaveNoEffect()
{
    Text text;
    const QImage before = contentOf(text.word);
    const QRectF box = text.word.m_clientRect;
    const QByteArray bytes = bytesOf(0, 0.5, 0.7, -0.7, 2, false);
    QDataStream in(bytes);
    text.word.SetSpecialProperty(118, in, false);
    QVERIFY(text.word.m_morphPaths.isEmpty());
    QCOMPARE(text.word.m_morphRect, QRectF(0, 0, 0, 0));
    QCOMPARE(text.word.m_clientRect, box);
    QCOMPARE(contentOf(text.word), before);
}

void TestWarpedText::flatWarpKeepsPointsWithinItsTruncatedThirds()
{
    Text text(Form{true, Qt::Horizontal});
    text.word.m_warpStyle = SurfaceTwist;
    text.word.updateMorphTextPaths();
    QVERIFY(!text.word.m_morphPaths.isEmpty()); // the road of a warp all the same
    for (int i = 0; i < text.word.m_textPaths.size(); ++i) {
        const QPainterPath &plain = text.word.m_textPaths.at(i);
        const QPainterPath &bent = text.word.m_morphPaths.at(i);
        for (int j = 0; j < plain.elementCount(); ++j) {
            QVERIFY(qAbs(bent.elementAt(j).x - plain.elementAt(j).x) < 0.7);
            QVERIFY(qAbs(bent.elementAt(j).y - 1 - plain.elementAt(j).y) < 0.7);
        }
    }
}

void TestWarpedText::numberAboveFifteenIsAFlatWarp()
{
    Text text;
    text.word.m_warpStyle = SurfaceTwist;
    text.word.updateMorphTextPaths();
    const QList<QPainterPath> flat = text.word.m_morphPaths;
    text.word.m_warpStyle = 16;
    text.word.m_warpValue = 0.8;
    text.word.updateMorphTextPaths();
    QCOMPARE(text.word.m_morphPaths, flat);
}

void TestWarpedText::emptyTextKeepsThePlainBox()
{
    for (const char *defaultWord : {"", "write here"}) {
        OpenWord word;
        word.m_defaultWord = key(defaultWord);
        word.updateBoundingRectImpl(true);
        const QSizeF size = word.m_clientRect.size();
        word.m_warpStyle = SurfaceBulge;
        word.m_warpValue = 0.5;
        word.updateBoundingRectImpl(true);
        QVERIFY(word.m_morphPaths.isEmpty());
        QCOMPARE(word.m_morphRect, QRectF(0, 0, 0, 0));
        QCOMPARE(word.m_clientRect.size(), size);
    }
}

void TestWarpedText::styleTakenAwayGivesThePlainBoxBack()
{
    QFETCH(Form, form);
    QFETCH(double, rotation);
    QFETCH(int, style);
    QFETCH(int, orientation);
    Text text(form, rotation);
    const QRectF painted = paintedRect(text.word);
    const QSizeF size = text.word.m_clientRect.size();
    text.warp(style, 0.5, false, orientation);
    QVERIFY(!isNear(paintedRect(text.word), painted));
    text.warp(SurfaceNone, 0.5, false, orientation);
    QVERIFY(text.word.m_morphPaths.isEmpty());
    QVERIFY(isNear(paintedRect(text.word), painted));
    QCOMPARE(text.word.m_clientRect.size(), size);
    QCOMPARE(text.word.m_baseSize, size);
}

void TestWarpedText::textIsEditedUnwarpedAndBentAfterwards()
{
    QFETCH(Form, form);
    QFETCH(double, rotation);
    QFETCH(int, style);
    QFETCH(int, orientation);
    Text text(form, rotation);
    const QRectF plain = paintedRect(text.word);
    text.warp(style, 0.5, true, orientation);
    const QRectF bent = paintedRect(text.word);
    const QRectF box = text.word.m_morphRect;
    for (int i = 0; i < 3; ++i) {
        text.word.beginEdit();
        QVERIFY(text.word.m_morphPaths.isEmpty());
        QCOMPARE(text.word.m_morphRect, QRectF(0, 0, 0, 0));
        QVERIFY(isNear(paintedRect(text.word), plain));
        text.word.endEdit();
        QVERIFY(!text.word.m_morphPaths.isEmpty());
        QCOMPARE(text.word.m_morphRect, box);
        QVERIFY(isNear(paintedRect(text.word), bent));
    }
    QCOMPARE(text.host.stack().count(), 1); // the warp itself
}

void TestWarpedText::typedTextIsBentAfterTheEdit()
{
    QFETCH(Form, form);
    Text text(form);
    text.warp(SurfaceArch, 0.5, true);
    const QRectF before = paintedRect(text.word);
    const int elements = text.word.getClientPath().elementCount();
    text.word.beginEdit();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, key("x"));
    text.word.keyPressEvent(&press);
    QVERIFY(text.word.m_morphPaths.isEmpty());
    text.word.endEdit();
    QVERIFY(!text.word.m_morphPaths.isEmpty());
    QVERIFY(text.word.getClientPath().elementCount() > elements);
    QCOMPARE(text.host.stack().count(), 2);
    text.host.stack().undo();
    QCOMPARE(text.word.toPlainText(), key("abcdefgh ij"));
    QVERIFY(isNear(paintedRect(text.word), before));
}

void TestWarpedText::dragIsOneStepThatUndoesAndRedoes()
{
    QFETCH(Form, form);
    QFETCH(double, rotation);
    QFETCH(int, style);
    QFETCH(int, orientation);
    Text text(form, rotation);
    const QRectF plain = paintedRect(text.word);
    for (double value : {0.1, 0.3, 0.5, 0.45})
        text.warp(style, value, false, orientation);
    const QRectF preview = paintedRect(text.word);
    QCOMPARE(text.host.stack().count(), 0);
    text.warp(style, 0.45, true, orientation);
    QCOMPARE(text.host.stack().count(), 1);
    QVERIFY(isNear(paintedRect(text.word), preview));
    for (int i = 0; i < 2; ++i) {
        text.host.stack().undo();
        QCOMPARE(text.word.m_warpStyle, 0);
        QVERIFY(text.word.m_morphPaths.isEmpty());
        QVERIFY(isNear(paintedRect(text.word), plain));
        text.host.stack().redo();
        QCOMPARE(text.word.m_warpValue, 0.45);
        QCOMPARE(text.word.m_warpHorizontalValue, 0.1);
        QCOMPARE(text.word.m_warpVerticalValue, -0.05);
        QCOMPARE(text.word.m_warpOrientation, orientation);
        QVERIFY(isNear(paintedRect(text.word), preview));
    }
}

void TestWarpedText::dragOfAStretchedTextIsOneStep()
{
    QFETCH(Form, form);
    Text text(form, 30);
    OpenWord &word = text.word;
    word.setSize(stretched(word.m_baseSize, 2, 1.5), false, true);
    word.setMirror(true, false);
    word.undoRedo(word.serialize(false), false); // a box takes its stretch into the layout
    const QRectF plain = paintedRect(word);
    const QRectF box(word.getPos(), word.m_clientRect.size());
    for (double value : {0.1, 0.5})
        text.warp(SurfaceBulge, value);
    text.warp(SurfaceBulge, 0.5, true);
    QCOMPARE(text.host.stack().count(), 1);
    const QRectF bent = paintedRect(word);
    for (int i = 0; i < 2; ++i) {
        text.host.stack().undo();
        QVERIFY(isNear(paintedRect(word), plain));
        QVERIFY(isNear(QRectF(word.getPos(), word.m_clientRect.size()), box));
        text.host.stack().redo();
        QVERIFY(isNear(paintedRect(word), bent));
    }
}

void TestWarpedText::commitWithoutPreviewIsAStepToo()
{
    Text text;
    text.warp(SurfaceArc, 0.5, true);
    QCOMPARE(text.host.stack().count(), 1);
    QVERIFY(!text.word.m_morphPaths.isEmpty());
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
    text.warp(SurfaceArc, 0.25, true);
    QCOMPARE(text.host.stack().count(), 2);
    text.host.stack().undo();
    QCOMPARE(text.word.m_warpValue, 0.5);
}

void TestWarpedText::previewLeavesThePicture()
{
    Text text;
    text.word.m_fontImage = QImage(50, 20, QImage::Format_ARGB32_Premultiplied);
    text.word.m_fontImageSize = QSizeF(50, 20);
    text.word.m_fontImageClient = QRectF(100, 100, 88, 16);
    text.word.m_showFontImage = true;
    text.warp(SurfaceArc, 0.5);
    QVERIFY(!text.word.m_showFontImage);
    QVERIFY(!text.word.m_morphPaths.isEmpty());
}

void TestWarpedText::missingFontsKeepTheWarp_data()
{
    QTest::addColumn<bool>("commit");
    QTest::newRow("preview") << false;
    QTest::newRow("commit") << true;
}

void TestWarpedText::missingFontsKeepTheWarp()
{
    QFETCH(bool, commit);
    Text text;
    text.warp(SurfaceArc, 0.5, true);
    const QList<QPainterPath> bent = text.word.m_morphPaths;
    text.word.m_missingFonts = QStringList{key("Lost Font")};
    text.host.clearEvents();
    text.warp(SurfaceBulge, -0.5, commit);
    QCOMPARE(operationsOf(text.host), (QVector<int>{1, 0}));
    QCOMPARE(text.word.m_warpStyle, int(SurfaceArc));
    QCOMPARE(text.word.m_warpValue, 0.5);
    QCOMPARE(text.word.m_morphPaths, bent);
    QCOMPARE(text.host.stack().count(), 1);
    QVERIFY(text.word.m_fontReplaceData.isEmpty());
}

void TestWarpedText::previewDuringAnEditBendsAfterwards()
{
    Text text;
    text.word.beginEdit();
    text.warp(SurfaceArc, 0.5);
    QVERIFY(text.word.m_morphPaths.isEmpty());
    text.word.endEdit();
    QVERIFY(!text.word.m_morphPaths.isEmpty());
}

void TestWarpedText::baselinesAreThoseOfTheUnwarpedText()
{
    QFETCH(Form, form);
    Text text(form);
    const auto asked = [&text] {
        QBuffer buffer;
        buffer.open(QIODevice::ReadWrite);
        QDataStream stream(&buffer);
        text.word.GetSpecialProperty(122, stream);
        buffer.seek(0);
        int count = 0;
        stream >> count;
        QVector<QLineF> lines(count);
        for (QLineF &line : lines)
            stream >> line;
        return stream.status() == QDataStream::Ok && stream.atEnd() ? lines : QVector<QLineF>();
    };
    const QVector<QLineF> plain = asked();
    QVERIFY(!plain.isEmpty());
    QCOMPARE(QList<QLineF>(plain.toList()), text.word.getAllBaseLines());
    const QPointF corner = text.word.getPos();
    text.warp(SurfaceSqueeze, 0.5);
    const QPointF way = form.wrapped ? QPointF() : corner - text.word.getPos();
    const QVector<QLineF> warped = asked();
    QCOMPARE(warped.size(), plain.size());
    for (int i = 0; i < plain.size(); ++i)
        QCOMPARE(warped.at(i), plain.at(i).translated(way));
}

void TestWarpedText::recordBringsTheWarpBack_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<double>("rotation");
    QTest::addColumn<bool>("json");
    QTest::addColumn<bool>("withPicture");
    for (bool wrapped : {false, true}) {
        for (double rotation : {0.0, 90.0}) {
            for (bool json : {false, true}) {
                for (bool withPicture : {false, true}) {
                    QTest::addRow("%s, %g degrees, %s%s", wrapped ? "box" : "line", rotation,
                                  json ? "json" : "stream", withPicture ? ", picture" : "")
                        << Form{wrapped, Qt::Horizontal} << rotation << json << withPicture;
                }
            }
        }
    }
}

void TestWarpedText::recordBringsTheWarpBack()
{
    QFETCH(Form, form);
    QFETCH(double, rotation);
    QFETCH(bool, json);
    QFETCH(bool, withPicture);
    Text text(form, rotation);
    text.warp(SurfaceSqueeze, 0.45, true, Qt::Vertical);
    text.host.documentOn = withPicture;
    const QRectF painted = paintedRect(text.word);
    const QRectF box = text.word.m_morphRect;
    QVERIFY(!box.isEmpty());
    std::unique_ptr<OpenWord> copy;
    OpenWord *word = &text.word;
    for (int round = 0; round < 3; ++round) {
        auto next = std::make_unique<OpenWord>(&text.host);
        if (json) {
            QJsonObject record;
            word->saveJson(record);
            next->loadJson(record);
        } else {
            QByteArray bytes;
            QDataStream out(&bytes, QIODevice::WriteOnly);
            word->save(out);
            QDataStream in(bytes);
            next->load(in);
        }
        copy = std::move(next);
        word = copy.get();
        QCOMPARE(word->m_warpStyle, int(SurfaceSqueeze));
        QCOMPARE(word->m_warpValue, 0.45);
        QCOMPARE(word->m_warpHorizontalValue, 0.1);
        QCOMPARE(word->m_warpVerticalValue, -0.05);
        QCOMPARE(word->m_warpOrientation, 2);
        QVERIFY(!word->m_morphPaths.isEmpty());
        QCOMPARE(word->m_morphRect.size(), box.size());
        QVERIFY(isNear(paintedRect(*word), painted, 1e-5));
    }
}

void TestWarpedText::documentStringBringsTheWarpBack()
{
    Text text;
    text.warp(SurfaceFish, 0.456, true);
    const QJsonObject json = jsonOf(text.word.serialize(false));
    QCOMPARE(json.value(key("warp_style")).toInt(), 10);
    QCOMPARE(json.value(key("warp_value")).toInt(), 46); // whole percent
    QCOMPARE(json.value(key("warp_horizontal_value")).toInt(), 10);
    QCOMPARE(json.value(key("warp_vertical_value")).toInt(), -5);
    QCOMPARE(json.value(key("warp_oriention")).toInt(), 1);
    Text other;
    other.word.undoRedo(text.word.serialize(false), false);
    QCOMPARE(other.word.m_warpValue, 0.46);
    QCOMPARE(other.word.m_morphRect.size(), text.word.m_morphRect.size());
}

void TestWarpedText::recordsWithBadWarpsPaintAndSave_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("skew");
    QTest::addColumn<int>("orientation");
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    QTest::newRow("style -1") << -1 << 50 << 0 << 1;
    QTest::newRow("style 99") << 99 << 50 << 0 << 1;
    QTest::newRow("largest style") << most << 50 << 10 << 1;
    QTest::newRow("smallest style") << least << 50 << 10 << 2;
    QTest::newRow("largest value") << 1 << most << 0 << 1;
    QTest::newRow("smallest value") << 7 << least << 0 << 2;
    QTest::newRow("largest skew") << 11 << 50 << most << 1;
    QTest::newRow("smallest skew") << 14 << 50 << least << 2;
    QTest::newRow("large skew") << 5 << 50 << 100000 << 1;
    QTest::newRow("orientation -9") << 5 << 50 << 10 << -9;
    QTest::newRow("largest orientation") << 5 << 50 << 10 << most;
}

void TestWarpedText::recordsWithBadWarpsPaintAndSave()
{
    QFETCH(int, style);
    QFETCH(int, value);
    QFETCH(int, skew);
    QFETCH(int, orientation);
    Text text;
    QJsonObject json = jsonOf(text.word.serialize(false));
    json.insert(key("warp_style"), style);
    json.insert(key("warp_value"), value);
    json.insert(key("warp_horizontal_value"), skew);
    json.insert(key("warp_vertical_value"), skew);
    json.insert(key("warp_oriention"), orientation);
    const QString document = QString::fromUtf8(QJsonDocument(json).toJson());
    text.word.undoRedo(document, true);
    QCOMPARE(text.word.toPlainText(), key("abcdefgh ij"));
    QCOMPARE(text.word.m_warpStyle, style);
    QVERIFY(qIsFinite(text.word.m_clientRect.width()) && qIsFinite(text.word.getPos().x()));
    contentOf(text.word);
    QJsonObject record;
    QVERIFY(text.word.saveJson(record));
    OpenWord copy(&text.host);
    QVERIFY(copy.loadJson(record));
    QCOMPARE(copy.toPlainText(), key("abcdefgh ij"));
    copy.beginEdit();
    QVERIFY(copy.m_morphPaths.isEmpty());
    copy.endEdit();
}

namespace {
/// Tells when the object first moves, which is after all arithmetic.
class MovingWord : public OpenWord
{
public:
    using OpenWord::OpenWord;
    void setPos(const QPointF &pos, bool undo) override
    {
        if (onMove)
            std::exchange(onMove, nullptr)();
        OpenWord::setPos(pos, undo);
    }
    std::function<void()> onMove;
};
} // namespace

void TestWarpedText::painterAtWorkDelaysOnlyTheExchange()
{
    QFETCH(Form, form);
    TextOf<MovingWord> text(form);
    text.word.m_warpStyle = SurfaceBulge;
    text.word.m_warpValue = 0.5;
    QSemaphore locked;
    QSemaphore computed;
    bool came = false;
    std::thread painter([&] {
        text.word.m_pathsMutex.lock();
        locked.release();
        came = computed.tryAcquire(1, 30000);
        text.word.m_pathsMutex.unlock();
    });
    locked.acquire();
    bool isWritten = false;
    text.word.onMove = [&] {
        isWritten = text.word.m_warpMax.x() > 0;
        computed.release();
    };
    text.word.updateMorphTextPaths();
    painter.join();
    QVERIFY(came);
    QVERIFY(isWritten);
    QVERIFY(!text.word.m_morphPaths.isEmpty());
}

void TestWarpedText::layoutByAListenerWins()
{
    TextOf<MovingWord> text;
    text.word.m_warpStyle = SurfaceBulge;
    text.word.m_warpValue = 0.5;
    text.word.onMove = [&] { text.word.add(key("more text")); };
    text.word.updateMorphTextPaths();
    QCOMPARE(text.word.toPlainText(), key("abcdefgh ijmore text"));
    const QList<QPainterPath> bent = text.word.m_morphPaths;
    QCOMPARE(bent.size(), text.word.m_textPaths.size());
    const QRectF painted = paintedRect(text.word);
    text.word.updateMorphTextPaths();
    QCOMPARE(text.word.m_morphPaths, bent);
    QVERIFY(isNear(paintedRect(text.word), painted));
}

void TestWarpedText::listenersLastWordStands_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<int>("notification");
    QTest::addColumn<bool>("relayout");
    for (bool wrapped : {false, true}) {
        for (int notification = 1; notification <= (wrapped ? 2 : 3); ++notification) {
            for (bool relayout : {false, true}) {
                QTest::addRow("%s, %s at notification %d", wrapped ? "box" : "line",
                              relayout ? "more text" : "another warp", notification)
                    << Form{wrapped, Qt::Horizontal} << notification << relayout;
            }
        }
    }
}

/// What a listener commands in the middle of a warp is not undone by the rest of that warp.
void TestWarpedText::listenersLastWordStands()
{
    QFETCH(Form, form);
    QFETCH(int, notification);
    QFETCH(bool, relayout);
    TextOf<ListeningWord> text(form);
    ListeningWord &word = text.word;
    word.countdown = notification;
    word.onNotification = [&] {
        if (relayout)
            word.add(key("more text"));
        else
            text.warp(SurfaceNone, 0);
    };
    text.warp(SurfaceBulge, 0.5);
    QVERIFY(!word.onNotification);
    QCOMPARE(word.m_morphPaths.size(), relayout ? word.m_textPaths.size() : 0);
    QCOMPARE(word.m_morphRect.isNull(), !relayout);
    const QSizeF box = relayout ? word.m_morphRect.size() : word.m_textPathsRect.size();
    QCOMPARE(word.m_baseSize, box);
    QCOMPARE(word.m_clientRect.size(), box);
}

QTEST_MAIN(TestWarpedText)
#include "tst_warpedtext.moc"
