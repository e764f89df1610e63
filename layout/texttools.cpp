// SPDX-License-Identifier: MIT
#include "layout/texttools.h"

#include "layout/units.h"

#include <QTransform>
#include <QVector>

namespace {

struct CodeRange {
    ushort low;
    ushort high;
};

// Both ends included.
constexpr CodeRange cjkRanges[] = {
    {0x2E80, 0x2EFF}, {0x3000, 0x303F}, {0x31C0, 0x31EF}, {0x3400, 0x4DB5}, {0x4E00, 0x9FA5},
    {0x9FA6, 0x9FBB}, {0xF900, 0xFA2D}, {0xFA30, 0xFA6A}, {0xFA70, 0xFAD9}, {0xFF00, 0xFFEF},
};

// Draws what the pending curve points make: three a cubic, two a quadratic curve, else nothing.
void flushCurve(QVector<QPointF> &pending, QPainterPath &target)
{
    if (pending.size() == 3)
        target.cubicTo(pending.at(0), pending.at(1), pending.at(2));
    else if (pending.size() == 2)
        target.quadTo(pending.at(0), pending.at(1));
    pending.clear();
}

} // namespace

bool CTextTools::isCJKChar(const QChar &character)
{
    const ushort code = character.unicode();
    for (const CodeRange &range : cjkRanges) {
        if (code >= range.low && code <= range.high)
            return true;
    }
    return false;
}

bool CTextTools::isCJKPunct(QChar character)
{
    return character.isPunct() || (character.unicode() >= 0x3000 && character.unicode() <= 0x303F);
}

qreal CTextTools::getFontLineHeight(QFont font)
{
    font = withBoundedSize(font);
    const QString sample = QStringLiteral("ABC");

    QPainterPath underlined;
    font.setUnderline(true);
    underlined.addText(0, 0, font, sample);

    QPainterPath plain;
    font.setUnderline(false);
    plain.addText(0, 0, font, sample);

    return (underlined - plain).boundingRect().height();
}

qreal CTextTools::getHalfAngleSize(const QFont &font, qreal scale)
{
    QPainterPath stop;
    stop.addText(0, 0, font, QStringLiteral("."));
    return GetScalePath(stop, scale, scale).boundingRect().width();
}

QPainterPath CTextTools::getRotatePath(const QPainterPath &path, const QPointF &centre, qreal angle)
{
    QTransform turn;
    turn.translate(centre.x(), centre.y());
    turn.rotate(angle, Qt::ZAxis);
    turn.translate(-centre.x(), -centre.y());
    return turn.map(path);
}

QPainterPath CTextTools::GetScalePath(const QPainterPath &path, qreal sx, qreal sy)
{
    const QRectF bounds = path.boundingRect();
    const qreal centreX = 0.5 * bounds.width() + bounds.x();
    const qreal centreY = bounds.height() * 0.5 + bounds.y();
    QTransform stretch;
    stretch.translate(centreX, centreY);
    stretch.scale(sx, sy);
    stretch.translate(-centreX, -centreY);
    return stretch.map(path);
}

QPainterPath CTextTools::GetTranslatePath(const QPainterPath &path, const QPointF &offset)
{
    QTransform shift;
    shift.translate(offset.x(), offset.y());
    return shift.map(path);
}

QPainterPath CTextTools::textPathFillOut(const QPainterPath &path)
{
    QPainterPath result;
    QVector<QPointF> pending;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const QPointF point(element.x, element.y);
        if (element.type == QPainterPath::CurveToDataElement) {
            pending.append(point);
            continue;
        }
        flushCurve(pending, result);
        if (element.type == QPainterPath::MoveToElement)
            result.moveTo(point);
        else if (element.type == QPainterPath::LineToElement)
            result.quadTo((result.currentPosition() + point) / 2.0, point);
        // The first control point of a cubic is deliberately dropped.
    }
    flushCurve(pending, result);
    result.setFillRule(Qt::WindingFill);
    return result;
}

qreal UnderlineThickness::of(const QFont &font)
{
    if (!m_font || *m_font != font) {
        m_font = font;
        m_thickness = CTextTools::getFontLineHeight(font);
    }
    return m_thickness;
}
