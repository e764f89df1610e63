// SPDX-License-Identifier: MIT
// wordprocess_formats.cpp -- CWordProcess: what formats have in common, the selection, the placement.
// Changes nothing.
#include "wordprocess/cwordprocess.h"

#include "layout/textproperties.h"
#include "wordprocess/fontweight.h"

#include <QtMath>

namespace {
/// The value of \a a when the two formats agree on \a id; "" when they differ or \a a has it not.
void keepCommonOrBlank(QTextFormat &result, const QTextFormat &a, const QTextFormat &b, int id)
{
    const bool agree = a.hasProperty(id) && a.property(id) == b.property(id);
    result.setProperty(id, agree ? a.property(id) : QVariant(QString()));
}

/// The value of \a a when the two formats agree on \a id; nothing when they differ.
void keepCommon(QTextFormat &result, const QTextFormat &a, const QTextFormat &b, int id)
{
    if (a.property(id) == b.property(id))
        result.setProperty(id, a.property(id));
}

/// Blank on a difference, but nothing at all when neither format has \a id.
void keepCommonBlankOnDifference(QTextFormat &result, const QTextFormat &a, const QTextFormat &b,
                                 int id)
{
    const bool agree = a.property(id) == b.property(id);
    result.setProperty(id, agree ? a.property(id) : QVariant(QString()));
}

void keepCommonWeight(QTextCharFormat &result, const QTextCharFormat &a, const QTextCharFormat &b)
{
    if (isBold(a) == isBold(b))
        result.setProperty(QTextFormat::FontWeight, a.hasProperty(QTextFormat::FontWeight)
                                                        ? a.font().weight()
                                                        : FontWeight::Normal);
}
} // namespace

QTextCharFormat CWordProcess::compareCharFormat(const QTextCharFormat &a,
                                                const QTextCharFormat &b) const
{
    if (a == b)
        return a;
    QTextCharFormat result;
    keepCommonBlankOnDifference(result, a, b, QTextFormat::FontFamily);
    keepCommonWeight(result, a, b);
    keepCommon(result, a, b, QTextFormat::FontItalic);
    keepCommonOrBlank(result, a, b, TextProperty::LetterSpacing);
    keepCommonOrBlank(result, a, b, TextProperty::LeadingGap);
    keepCommon(result, a, b, QTextFormat::FontPointSize);
    if (a.fontUnderline() == b.fontUnderline())
        result.setProperty(QTextFormat::TextUnderlineStyle, a.fontUnderline() ? 1 : 0);
    keepCommon(result, a, b, QTextFormat::FontStrikeOut);
    keepCommon(result, a, b, QTextFormat::ForegroundBrush);
    keepCommon(result, a, b, QTextFormat::FontStyleName);
    keepCommonOrBlank(result, a, b, TextProperty::HorizontalScale);
    keepCommon(result, a, b, QTextFormat::TextVerticalAlignment);
    keepCommonBlankOnDifference(result, a, b, TextProperty::VerticalScale);
    keepCommonBlankOnDifference(result, a, b, TextProperty::BaselineOffset);
    keepCommonBlankOnDifference(result, a, b, TextProperty::UpperCase);
    keepCommonBlankOnDifference(result, a, b, TextProperty::RowSpacing);
    return result;
}

QTextBlockFormat CWordProcess::compareBlockFormat(const QTextBlockFormat &a,
                                                  const QTextBlockFormat &b) const
{
    if (a == b)
        return a;
    QTextBlockFormat result;
    keepCommon(result, a, b, QTextFormat::BlockAlignment);
    for (int id :
         {TextProperty::Alignment, TextProperty::SpaceAheadOfBlock, TextProperty::SpaceBehindBlock,
          TextProperty::FirstLineIndent, TextProperty::LeftIndent, TextProperty::RightIndent,
          TextProperty::Hyphenate, TextProperty::HeadTailRule, TextProperty::PunctuationExtra})
        keepCommonOrBlank(result, a, b, id);
    return result;
}

bool CWordProcess::selection(int &start, int &end) const
{
    const int last = m_document->characterCount() - 1; // the fields keep what a file said
    start = qBound(0, qMin(m_selStart, m_selEnd), last);
    end = qBound(0, qMax(m_selStart, m_selEnd), last);
    return start != end;
}

QTransform CWordProcess::getTextTransform()
{
    double sx = m_scaleX;
    double sy = m_scaleY;
    double angle = rotation();
    if (m_showFontImage) {
        sx *= m_fontImageScaleX;
        sy *= m_fontImageScaleY;
        angle += m_fontImageRotation;
    } else if (m_wordWrap) {
        sx *= m_transformScaleX;
        sy *= m_transformScaleY;
    }
    QPointF origin;
    if (m_wordWrap) {
        origin = QPointF(m_morphRect.x() * sx - sx * m_boundsMargins.left,
                         m_morphRect.y() * sy - sy * m_boundsMargins.top);
    } else if (m_showFontImage && m_textOffset.isNull()) {
        origin = m_fontImageClient.topLeft();
    } else {
        origin = QPointF(m_textOffset.x() * sx, m_textOffset.y() * sy);
    }
    const QPointF scene = mapToScene(origin);
    QTransform transform;
    transform.translate(scene.x(), scene.y());
    if (isFlip())
        transform.rotate(180, Qt::XAxis);
    if (isMirror())
        transform.rotate(180, Qt::YAxis);
    transform.rotate(angle, Qt::ZAxis);
    transform.scale(sx, sy);
    return transform;
}
