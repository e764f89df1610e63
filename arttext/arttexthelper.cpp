// SPDX-License-Identifier: MIT
// arttexthelper.cpp -- CArtText: construction, keeping of guide lines, plain accessors.
#include "arttext/arttexthelper.h"

#include "arttext/guidepoints_p.h"

#include <cstdlib>

CArtText::CArtText()
    : m_font(QStringLiteral("Times"), 50)
{
    m_font.setStyleStrategy(QFont::ForceOutline);
}

CArtText::~CArtText()
{
    std::free(m_guidePoints1);
    std::free(m_guidePoints2);
    std::free(m_scratch1);
    std::free(m_scratch2);
}

// Guide lines

bool CArtText::SetGuideLine(tagPOINT *points, unsigned int count, int guide)
{
    if (count > MaxGuidePoints || (guide != 1 && guide != 2))
        return false;
    tagPOINT *&line = guide == 1 ? m_guidePoints1 : m_guidePoints2;
    if (line != points)
        std::free(line);
    line = points;
    (guide == 1 ? m_guideCount1 : m_guideCount2) = points ? count : 0;
    return true;
}

bool CArtText::GetGuideLine(QPainter *, tagPOINT **, unsigned int *count)
{
    *count = 0;
    return true;
}

void CArtText::GetPathPoint(tagPOINT **points1, unsigned int *count1, tagPOINT **points2,
                            unsigned int *count2)
{
    *points1 = m_guidePoints1;
    *count1 = m_guideCount1;
    *points2 = m_guidePoints2;
    *count2 = m_guideCount2;
}

void CArtText::EmptyPathPoint()
{
    m_guidePoints1 = nullptr;
    m_guidePoints2 = nullptr;
    m_guideCount1 = 0;
    m_guideCount2 = 0;
}

void CArtText::flip(int height)
{
    for (unsigned int i = 0; i < m_guideCount1; ++i)
        m_guidePoints1[i].y = wrappedDifference(height, m_guidePoints1[i].y);
    for (unsigned int i = 0; i < m_guideCount2; ++i)
        m_guidePoints2[i].y = wrappedDifference(height, m_guidePoints2[i].y);
}

void CArtText::OffsetPos(CSize offset, tagPOINT *points, unsigned int count)
{
    if (!points)
        return;
    for (unsigned int i = 0; i < count; ++i) {
        points[i].x = wrappedSum(points[i].x, offset.cx);
        points[i].y = wrappedSum(points[i].y, offset.cy);
    }
}

bool CArtText::BeginDraw(QPainter *painter, const CRect &)
{
    if (m_firstGuideNext) {
        std::free(m_guidePoints1);
        std::free(m_guidePoints2);
        EmptyPathPoint();
        GetGuideLine(painter, &m_guidePoints1, &m_guideCount1);
        m_firstGuideNext = false;
        return true;
    }
    GetGuideLine(painter, &m_guidePoints2, &m_guideCount2);
    m_firstGuideNext = true;
    FillOut(&m_guidePoints1, &m_guideCount1);
    FillOut(&m_guidePoints2, &m_guideCount2);
    return true;
}

// Styles

void CArtText::SetStyle(int style)
{
    m_style = style;
}

int CArtText::GetStyle() const
{
    return m_style;
}

// Fill, font, colour and shadow

void CArtText::GetFillStyle(tagFillStru *fill) const
{
    *fill = m_fill;
}

void CArtText::SetFillStyle(tagFillStru fill)
{
    m_fill = fill;
    m_patternBrush = -1;
}

int CArtText::GetPatternBrush() const
{
    return m_patternBrush;
}

void CArtText::SetPatternBrush(int pattern)
{
    m_fill.brushKind = 0;
    m_dibBrush = QImage();
    m_patternBrush = pattern;
}

void CArtText::SetDibBrush(const QImage &image)
{
    m_fill.brushKind = 0;
    m_dibBrush = image;
    m_patternBrush = -1;
}

QImage CArtText::GetDibBrush() const
{
    return m_dibBrush;
}

bool CArtText::SetFont(const QFont &font)
{
    m_font = font;
    return true;
}

bool CArtText::GetFont(QFont &font) const
{
    font = m_font;
    return true;
}

bool CArtText::SetFontName(const QString &)
{
    return true;
}

bool CArtText::SetString(const QString &text)
{
    m_string = text;
    return true;
}

bool CArtText::SetColor(const QColor &color)
{
    m_color = color;
    m_outLine = false;
    m_fill.brushKind = 0;
    m_patternBrush = -1;
    m_dibBrush = QImage();
    return true;
}

QColor CArtText::GetColor() const
{
    return m_color;
}

void CArtText::SetOutLine(bool outLine)
{
    m_outLine = outLine;
    m_fill.brushKind = 0;
    m_patternBrush = -1;
}

bool CArtText::GetOutLine() const
{
    return m_outLine;
}

void CArtText::ShowShadow(bool show, const QColor &color, CPoint offset)
{
    m_hasShadow = show;
    m_shadowColor = color;
    m_shadowOffset = offset;
}

bool CArtText::HasShadow() const
{
    return m_hasShadow;
}

CPoint CArtText::GetOffPos() const
{
    return m_shadowOffset;
}

QColor CArtText::GetShadowColor() const
{
    return m_shadowColor;
}

// The surface of the class that does nothing

void CArtText::DrawObj(QPainter *, CRect &, int, bool, bool) {}

void CArtText::DrawEffect(QPainter *, tagFillStru, CRect *, bool) {}

bool CArtText::GetDataFromDC(QPainter *, CRect *, void *&, tagBITMAPINFO **, int)
{
    return true;
}

bool CArtText::Fuzzy(void *, tagBITMAPINFO *, CPoint, bool)
{
    return true;
}

bool CArtText::TextEffect(QPainter *, tagPOINT *, tagPOINT *, unsigned int, unsigned int,
                          const QString &, CRect *, bool, bool, bool)
{
    return true;
}

bool CArtText::GenTextPath(QPainter *, tagPOINT *, tagPOINT *, unsigned int, unsigned int,
                           const QString &, CRect *, bool, bool)
{
    return true;
}

bool CArtText::ShowGuide(QPainter *, tagPOINT *, unsigned int)
{
    return true;
}
