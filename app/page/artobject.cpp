// SPDX-License-Identifier: MIT
#include "app/page/artobject.h"

#include "host/framework/cvxrootobject.h"

#include <QBuffer>
#include <QDataStream>
#include <QPen>

namespace {

constexpr int attributesProperty = 204; // takes a count and so many pairs of key and value

AttributeMap attributesOf(const QString &text, const ArtObject::Look &look)
{
    return {
        {QStringLiteral("text"), text},
        {QStringLiteral("shape"), look.style},
        {QStringLiteral("font_family"), look.family},
        {QStringLiteral("font_bold"), look.bold},
        {QStringLiteral("font_somehow"), look.vertical},
        {QStringLiteral("textalignment"), look.alignment},
        {QStringLiteral("fillcolor"), look.fill},
        {QStringLiteral("color"), look.pen.isValid() ? look.pen : look.fill},
    };
}

void setAttributes(CVXRootObject *object, const AttributeMap &attributes)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    stream << attributes.size();
    for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it)
        stream << it.key() << it.value();
    buffer.seek(0);
    object->SetSpecialProperty(attributesProperty, stream, false);
}

QPen penOf(const ArtObject::Look &look)
{
    if (!look.pen.isValid())
        return QPen(Qt::NoPen);
    return QPen(look.pen, look.penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

} // namespace

const QStringList &ArtObject::styleNames()
{
    // clang-format off
    static const QStringList names = {
        QStringLiteral("rectangle"),         //  0
        QStringLiteral("cut-corners"),       //  1
        QStringLiteral("triangle-up"),       //  2
        QStringLiteral("triangle-down"),     //  3
        QStringLiteral("chevron-up"),        //  4
        QStringLiteral("chevron-down"),      //  5
        QStringLiteral("arcs-up"),           //  6
        QStringLiteral("arcs-down"),         //  7
        QStringLiteral("ring-from-left"),    //  8
        QStringLiteral("ring-from-right"),   //  9
        QStringLiteral("short-right"),       // 10
        QStringLiteral("short-left"),        // 11
        QStringLiteral("stroke-down"),       // 12
        QStringLiteral("stroke-up"),         // 13
        QStringLiteral("curves-up"),         // 14
        QStringLiteral("curves-down"),       // 15
        QStringLiteral("cosine-wave"),       // 16
        QStringLiteral("sine-wave"),         // 17
        QStringLiteral("two-cosine-waves"),  // 18
        QStringLiteral("two-sine-waves"),    // 19
        QStringLiteral("bottom-bulge"),      // 20
        QStringLiteral("bottom-hollow"),     // 21
        QStringLiteral("top-bulge"),         // 22
        QStringLiteral("top-hollow"),        // 23
        QStringLiteral("narrow-right"),      // 24
        QStringLiteral("narrow-left"),       // 25
        QStringLiteral("narrow-top"),        // 26
        QStringLiteral("narrow-bottom"),     // 27
        QStringLiteral("rising"),            // 28
        QStringLiteral("falling"),           // 29
        QStringLiteral("widening-rise"),     // 30
        QStringLiteral("widening-fall"),     // 31
        QStringLiteral("top-falling"),       // 32
        QStringLiteral("top-rising"),        // 33
        QStringLiteral("bottom-rising"),     // 34
        QStringLiteral("bottom-falling"),    // 35
        QStringLiteral("peak"),              // 36
        QStringLiteral("point"),             // 37
        QStringLiteral("waist"),             // 38
        QStringLiteral("diamond"),           // 39
        QStringLiteral("arch"),              // 40
        QStringLiteral("bowl"),              // 41
    };
    // clang-format on
    return names;
}

int ArtObject::styleOf(const QString &nameOrNumber)
{
    bool isNumber = false;
    const int number = nameOrNumber.toInt(&isNumber);
    if (isNumber)
        return number >= 0 && number < styleNames().size() ? number : -1;
    return styleNames().indexOf(nameOrNumber);
}

void ArtObject::setUp(CVXRootObject *object, const QString &text, const Look &look,
                      const QSizeF &size)
{
    CPageBgProp fill(nullptr);
    fill.setFillEnable(true);
    fill.setColor(look.fill);
    object->setFillProp(fill);
    object->setMyPen(penOf(look));
    setAttributes(object, attributesOf(text, look));
    object->setSize(size, /*undo=*/false, /*notify=*/true);
}
