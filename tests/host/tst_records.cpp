// SPDX-License-Identifier: MIT
// tst_records.cpp -- base records: what goes in comes out, and broken ones do no harm.
#include "host/framework/cjsonutil.h"
#include "plainobject.h"
#include "recordinghost.h"

#include <QDataStream>
#include <QFont>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPolygonF>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

AttributeMap richParams()
{
    AttributeMap params;
    params[QStringLiteral("flag")] = true;
    params[QStringLiteral("whole")] = 42;
    params[QStringLiteral("long")] = qlonglong(1) << 60;
    params[QStringLiteral("real")] = 0.1;
    params[QStringLiteral("whole real")] = 3.0;
    params[QStringLiteral("negative zero")] = -0.0;
    params[QStringLiteral("infinite")] = std::numeric_limits<double>::infinity();
    params[QStringLiteral("float")] = 0.25f;
    params[QStringLiteral("text")] = QString::fromUtf8("t\u00e4xt \u6f22");
    params[QStringLiteral("empty text")] = QString();
    params[QStringLiteral("bytes")] = QByteArray("a\0b", 3);
    params[QStringLiteral("colour")] = QColor(1, 2, 3, 4);
    params[QStringLiteral("point")] = QPointF(1.5, -2);
    params[QStringLiteral("rect")] = QRectF(1, 2, 3, 4);
    params[QStringLiteral("strings")] = QStringList{QStringLiteral("a"), QString()};
    params[QStringLiteral("polygon")] = QPolygonF(QRectF(0, 0, 5, 5));
    params[QStringLiteral("invalid")] = QVariant();
    params[QStringLiteral("list")] = QVariantList{1, QStringLiteral("x"), QVariantList{2.5}};
    params[QStringLiteral("map")] = QVariantMap{{QStringLiteral("k"), QColor(Qt::red)}};
    params[QStringLiteral("looks tagged")] = QVariantMap{{QStringLiteral("type"),
                                                          QStringLiteral("QColor")},
                                                         {QStringLiteral("data"), 5}};
    return params;
}

/// Equal with equal types: QVariant's own comparison converts. \a wholeAsInt lets a whole double be
/// an int in \a b.
bool sameParams(const AttributeMap &a, const AttributeMap &b, bool wholeAsInt, QString &difference)
{
    if (a.keys() != b.keys()) {
        difference = QStringLiteral("keys");
        return false;
    }
    for (auto it = a.constBegin(); it != a.constEnd(); ++it) {
        const QVariant other = b.value(it.key());
        const bool sameType = it.value().userType() == other.userType()
                              || (wholeAsInt && it.value().userType() == QMetaType::Double
                                  && other.userType() == QMetaType::Int);
        if (!sameType || it.value() != other) {
            difference = it.key();
            return false;
        }
    }
    return true;
}

void dress(PlainObject &object)
{
    object.setPos(QPointF(12.5, -7), false);
    object.setSize(QSizeF(80, 33.5), false, true);
    object.rotateObj(25, false);
    object.setZorder(9);
    object.setLocked(true, false, false);
    object.setFlip(true, false);
    object.params() = richParams();
    object.setMyPen(QPen(QColor(1, 2, 3, 4), 2.5, Qt::DashLine, Qt::RoundCap, Qt::MiterJoin));
    CPageBgProp fill(nullptr);
    fill.setColor(QColor(5, 6, 7, 8));
    object.setFillProp(fill);
}

void compareObjects(PlainObject &a, PlainObject &b, bool wholeAsInt = false)
{
    QVERIFY(distance(a.getPos(), b.getPos()) < 1e-12);
    QCOMPARE(b.getSize(), a.getSize());
    QCOMPARE(b.clientShapeRect(), a.clientShapeRect());
    QCOMPARE(b.getRotate(), a.getRotate());
    QCOMPARE(b.getZorder(), a.getZorder());
    QCOMPARE(b.isLocked(), a.isLocked());
    QCOMPARE(b.isFlip(), a.isFlip());
    QCOMPARE(b.isMirror(), a.isMirror());
    QCOMPARE(b.isCreateFinished(), a.isCreateFinished());
    QCOMPARE(b.getMyPen(), a.getMyPen());
    QCOMPARE(b.getFillProp().color(), a.getFillProp().color());
    QCOMPARE(b.getFillProp().isFillEnable(), a.getFillProp().isFillEnable());
    QString difference;
    QVERIFY2(sameParams(a.params(), b.params(), wholeAsInt, difference), qPrintable(difference));
}

QByteArray recordOf(PlainObject &object)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    object.save(out);
    return bytes;
}

bool isSound(PlainObject &object)
{
    const QPointF pos = object.getPos();
    const QSizeF size = object.getSize();
    return std::isfinite(pos.x()) && std::isfinite(pos.y()) && std::isfinite(object.getRotate())
           && std::isfinite(size.width()) && std::isfinite(size.height()) && size.width() >= 0
           && size.height() >= 0;
}

} // namespace

class TestRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void streamRecordReturnsEverything();
    void whatFollowsInTheStreamIsFound();
    void streamVersionOfTheHostDoesNotCount();
    void jsonRecordReturnsEverything();
    void jsonHolderKeepsForeignKeys();
    void cutRecordIsRefusedAndChangesNothing();
    void changedBytesDoNoHarm();
    void forgedCountsAllocateNothing();
    void deepNestingIsCutOff();
    void jsonOfWrongTypesReadsAsZero();
    void notANumberIsStoredAsZero();
    void jsonWithoutVersionIsRefused();
    void everyJsonKeyMayBeAbsentOrOfAnyKind();
    void cutValuesReadAsInvalid();
    void valuesThatCannotBeKeptBecomeInvalid();
    void coloursTravelAsNames();
    void usualPenAndFillAreNotWritten();
    void forgedPenReadsAsAPen();
};

void TestRecords::streamRecordReturnsEverything()
{
    RecordingHost host;
    PlainObject object(&host);
    dress(object);
    const QByteArray bytes = recordOf(object);
    PlainObject loaded(nullptr, QSizeF());
    QDataStream in(bytes);
    QVERIFY(loaded.load(in));
    QVERIFY(in.atEnd());
    compareObjects(object, loaded);
    QCOMPARE(recordOf(loaded), bytes);
}

void TestRecords::whatFollowsInTheStreamIsFound()
{
    RecordingHost host;
    PlainObject object(&host);
    dress(object);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    QVERIFY(object.save(out));
    out << QStringLiteral("tail");
    QDataStream in(bytes);
    QVERIFY(object.load(in));
    QString tail;
    in >> tail;
    QCOMPARE(tail, QStringLiteral("tail"));
}

void TestRecords::streamVersionOfTheHostDoesNotCount()
{
    RecordingHost host;
    PlainObject object(&host);
    dress(object);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_6);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    QVERIFY(object.save(out));
    QDataStream in(bytes);
    PlainObject loaded(nullptr, QSizeF());
    QVERIFY(loaded.load(in));
    compareObjects(object, loaded);
}

void TestRecords::jsonRecordReturnsEverything()
{
    RecordingHost host;
    PlainObject object(&host);
    dress(object);
    QJsonObject json;
    QVERIFY(object.saveJson(json));
    const QByteArray text = QJsonDocument(json).toJson();
    QJsonObject read = QJsonDocument::fromJson(text).object();
    PlainObject loaded(nullptr, QSizeF());
    QVERIFY(loaded.loadJson(read));
    compareObjects(object, loaded, /*wholeAsInt=*/true);
    QJsonObject again;
    loaded.saveJson(again);
    QCOMPARE(again, json);
    QCOMPARE(json.value(QStringLiteral("x")).toDouble(), object.getPos().x());
    QCOMPARE(json.value(QStringLiteral("params")).toObject().value(QStringLiteral("whole")).toInt(),
             42);
}

void TestRecords::jsonHolderKeepsForeignKeys()
{
    RecordingHost host;
    PlainObject object(&host);
    QJsonObject json{{QStringLiteral("mine"), 1}};
    QVERIFY(object.saveJson(json));
    QCOMPARE(json.value(QStringLiteral("mine")).toInt(), 1);
}

void TestRecords::cutRecordIsRefusedAndChangesNothing()
{
    RecordingHost host;
    PlainObject object(&host);
    dress(object);
    const QByteArray bytes = recordOf(object);
    for (int length = 0; length < bytes.size(); ++length) {
        PlainObject loaded(nullptr, QSizeF(11, 12));
        QDataStream in(bytes.left(length));
        QVERIFY2(!loaded.load(in), qPrintable(QString::number(length)));
        QCOMPARE(loaded.getSize(), QSizeF(11, 12));
        QVERIFY(loaded.params().isEmpty());
    }
}

void TestRecords::changedBytesDoNoHarm()
{
    RecordingHost host;
    PlainObject object(&host);
    dress(object);
    const QByteArray bytes = recordOf(object);
    int refused = 0;
    for (int i = 0; i < bytes.size(); ++i) {
        for (const char mask : {char(0xff), char(0x80), char(0x01)}) {
            QByteArray broken = bytes;
            broken[i] = char(broken.at(i) ^ mask);
            PlainObject loaded(nullptr, QSizeF());
            QDataStream in(broken);
            refused += !loaded.load(in);
            QVERIFY2(isSound(loaded), qPrintable(QString::number(i)));
            recordOf(loaded);
        }
    }
    QVERIFY(refused > 0);
}

void TestRecords::forgedCountsAllocateNothing()
{
    // One value of each counted kind that claims four thousand million entries.
    for (const char tag : {'\2', '\3', '\4', '\5', '\6'}) {
        QByteArray inner(1, tag);
        inner.append("\xff\xff\xff\xff", 4).append(QByteArray(64, '\0'));
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << quint32(0x56584F42) << quint16(1) << inner;
        PlainObject loaded(nullptr, QSizeF());
        QDataStream in(bytes);
        QVERIFY(!loaded.load(in));
    }
    // A byte array that claims more than there is.
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << quint32(0x56584F42) << quint16(1) << quint32(0x7fffffff) << quint32(0);
    PlainObject loaded(nullptr, QSizeF());
    QDataStream in(bytes);
    QVERIFY(!loaded.load(in));
}

void TestRecords::deepNestingIsCutOff()
{
    RecordingHost host;
    QVariant nested = 1;
    for (int i = 0; i < 2000; ++i)
        nested = QVariantList{nested};
    PlainObject object(&host);
    object.params().insert(QStringLiteral("deep"), nested);
    const QByteArray bytes = recordOf(object);
    PlainObject loaded(nullptr, QSizeF());
    QDataStream in(bytes);
    QVERIFY(loaded.load(in));
    QCOMPARE(recordOf(loaded), bytes);

    QByteArray forged;
    for (int i = 0; i < 100000; ++i)
        forged.append("\2\0\0\0\1", 5);
    QByteArray record;
    QDataStream out(&record, QIODevice::WriteOnly);
    out << quint32(0x56584F42) << quint16(1) << forged;
    QDataStream forgedIn(record);
    QVERIFY(!loaded.load(forgedIn));
}

void TestRecords::jsonOfWrongTypesReadsAsZero()
{
    QJsonObject json{
        {QStringLiteral("version"), 1},
        {QStringLiteral("x"), QStringLiteral("7")},
        {QStringLiteral("y"), QJsonArray{1}},
        {QStringLiteral("rotation"), QJsonObject()},
        {QStringLiteral("width"), -5},
        {QStringLiteral("height"), true},
        {QStringLiteral("locked"), 1},
        {QStringLiteral("params"), 3},
        {QStringLiteral("z"), QJsonObject{{QStringLiteral("type"), QStringLiteral("double")},
                                          {QStringLiteral("data"), QStringLiteral("????")}}},
    };
    PlainObject loaded(nullptr, QSizeF(9, 9));
    QVERIFY(loaded.loadJson(json));
    QCOMPARE(loaded.getPos(), QPointF(0, 0));
    QCOMPARE(loaded.getSize(), QSizeF(0, 0));
    QCOMPARE(loaded.getRotate(), 0.0);
    QVERIFY(!loaded.isLocked());
    QVERIFY(loaded.params().isEmpty());
}

void TestRecords::notANumberIsStoredAsZero()
{
    RecordingHost host;
    PlainObject object(&host);
    object.setRotation(std::numeric_limits<double>::quiet_NaN());
    const QByteArray bytes = recordOf(object);
    PlainObject loaded(nullptr, QSizeF());
    QDataStream in(bytes);
    QVERIFY(loaded.load(in));
    QCOMPARE(loaded.getRotate(), 0.0);
    QVERIFY(isSound(loaded));
}

void TestRecords::jsonWithoutVersionIsRefused()
{
    PlainObject loaded(nullptr, QSizeF(9, 9));
    QJsonObject json{{QStringLiteral("width"), 5}};
    QVERIFY(!loaded.loadJson(json));
    QCOMPARE(loaded.getSize(), QSizeF(9, 9));
}

void TestRecords::everyJsonKeyMayBeAbsentOrOfAnyKind()
{
    RecordingHost host;
    PlainObject object(&host);
    dress(object);
    QJsonObject whole;
    object.saveJson(whole);
    const QJsonValue values[] = {QJsonValue::Undefined,
                                 QJsonValue::Null,
                                 true,
                                 -1e300,
                                 QStringLiteral("7"),
                                 QJsonArray{1, 2},
                                 QJsonObject{{QStringLiteral("type"), QStringLiteral("QColor")},
                                             {QStringLiteral("data"), QStringLiteral("AAAA")}}};
    const QStringList keys = whole.keys();
    for (const QString &key : keys) {
        for (const QJsonValue &value : values) {
            QJsonObject record = whole;
            if (value.isUndefined())
                record.remove(key);
            else
                record[key] = value;
            PlainObject loaded(&host, QSizeF(9, 9));
            const bool isRecord = record.value(QStringLiteral("version")).toInt() >= 1;
            QCOMPARE(loaded.loadJson(record), isRecord);
            QVERIFY2(isSound(loaded), qPrintable(key));
            const QByteArray bytes = recordOf(loaded); // and it can be written and read again
            PlainObject again(&host, QSizeF());
            QDataStream in(bytes);
            QVERIFY(again.load(in));
            QCOMPARE(recordOf(again), bytes);
        }
    }
}

/// A tagged value of JSON whose bytes end anywhere.
void TestRecords::cutValuesReadAsInvalid()
{
    RecordingHost host;
    PlainObject object(&host);
    object.params() = richParams();
    QJsonObject whole;
    object.saveJson(whole);
    const QString paramsKey = QStringLiteral("params");
    const QString dataKey = QStringLiteral("data");
    const QJsonObject params = whole.value(paramsKey).toObject();
    int tagged = 0;
    for (auto it = params.begin(); it != params.end(); ++it) {
        QJsonObject value = it->toObject();
        if (!value.contains(QStringLiteral("type")) || !value.value(dataKey).isString())
            continue;
        ++tagged;
        const QByteArray bytes = QByteArray::fromBase64(value.value(dataKey).toString().toLatin1());
        for (int length = 0; length < bytes.size(); ++length) {
            value[dataKey] = QString::fromLatin1(bytes.left(length).toBase64());
            QJsonObject broken = params;
            broken[it.key()] = value;
            QJsonObject record = whole;
            record[paramsKey] = broken;
            PlainObject loaded(&host);
            QVERIFY(loaded.loadJson(record));
            QVERIFY2(!loaded.params().value(it.key()).isValid(), qPrintable(it.key()));
        }
    }
    QVERIFY(tagged > 5);
}

void TestRecords::valuesThatCannotBeKeptBecomeInvalid()
{
    RecordingHost host;
    PlainObject object(&host);
    object.params().insert(QStringLiteral("pointer"), QVariant::fromValue<void *>(&host));
    const QByteArray bytes = recordOf(object);
    PlainObject loaded(nullptr, QSizeF());
    QDataStream in(bytes);
    QVERIFY(loaded.load(in));
    QVERIFY(loaded.params().contains(QStringLiteral("pointer")));
    QVERIFY(!loaded.params().value(QStringLiteral("pointer")).isValid());
}

void TestRecords::coloursTravelAsNames()
{
    const CJsonUtil util;
    QCOMPARE(util.fromColor(QColor(1, 2, 3, 4)).toString(), QStringLiteral("#04010203"));
    QCOMPARE(util.toColor(QStringLiteral("#04010203")), QColor(1, 2, 3, 4));
    QCOMPARE(util.toColor(QStringLiteral("#010203")), QColor(1, 2, 3));
    QCOMPARE(util.fromColor(QColor()).toString(), QString());
    QVERIFY(!util.toColor(QStringLiteral("no colour")).isValid());
    QVERIFY(!util.toColor(7).isValid());
    QVERIFY(!util.toColor(QString()).isValid());
}

void TestRecords::usualPenAndFillAreNotWritten()
{
    PlainObject object(nullptr);
    QJsonObject json;
    QVERIFY(object.saveJson(json));
    QVERIFY(!json.contains(QLatin1String("pen")) && !json.contains(QLatin1String("fill")));
    QVERIFY(!recordOf(object).contains(QByteArray("\0p\0e\0n", 6)));
    PlainObject dressed(nullptr);
    dress(dressed);
    QVERIFY(dressed.loadJson(json)); // goes back to the usual ones
    QCOMPARE(dressed.getMyPen(), object.getMyPen());
    QCOMPARE(dressed.getFillProp().color(), QColor(Qt::black));
    QVERIFY(dressed.getFillProp().isFillEnable());
}

void TestRecords::forgedPenReadsAsAPen()
{
    PlainObject object(nullptr);
    dress(object);
    QJsonObject json;
    QVERIFY(object.saveJson(json));
    for (const QJsonValue &value : {QJsonValue(-5), QJsonValue(1e300),
                                    QJsonValue(QStringLiteral("x")), QJsonValue(QJsonArray())}) {
        QJsonObject pen = json.value(QLatin1String("pen")).toObject();
        const QStringList keys = pen.keys();
        QCOMPARE(keys.size(), 5);
        for (const QString &key : keys)
            pen.insert(key, value);
        QJsonObject forged = json;
        forged.insert(QStringLiteral("pen"), pen);
        QVERIFY(object.loadJson(forged));
        QVERIFY(std::isfinite(object.getMyPen().widthF()) && object.getMyPen().widthF() >= 0);
        QCOMPARE(object.getMyPen().style(), Qt::SolidLine);
        QCOMPARE(object.getMyPen().capStyle(), Qt::SquareCap);
        QCOMPARE(object.getMyPen().joinStyle(), Qt::BevelJoin);
        QVERIFY(!object.getMyPen().color().isValid());
    }
}

QTEST_MAIN(TestRecords)
#include "tst_records.moc"
