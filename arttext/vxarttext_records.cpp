// SPDX-License-Identifier: MIT
// vxarttext_records.cpp -- CVxArtText: stream and JSON records.
// Two values travel in m_saveParams, which the host writes and reads; the others follow behind what the
// host writes. Neither form has a version. Reading changes every field that is stored, and the outlines.
#include "arttext/vxarttext.h"

#include "arttext/foreignvalues.h"
#include "common/finite.h"
#include "host/framework/cjsonutil.h"
#include "host/framework/iappframework.h"

#include <QDataStream>
#include <QJsonObject>

namespace {
namespace Key {
// Of m_saveParams. Attribute maps have words of their own for both.
const QLatin1String TextAlignment("text_alignment");
const QLatin1String Somehow("font_Somehow");
// Of the JSON record.
const QLatin1String ColorBg("colorBg");
const QLatin1String ColorFill("colorFill");
const QLatin1String BgType("bgType");
const QLatin1String TextWord("textWord");
const QLatin1String BgTransparent("bgTransparent");
const QLatin1String TimerDelay("timerDelay");
const QLatin1String Shape("shape");
const QLatin1String DefaultWord("defaultWord");
const QLatin1String ColorPen("colorPen");
const QLatin1String FontFamily("fontFamily");
const QLatin1String FontSize("fontSize");
const QLatin1String FontItalic("fontItalic");
const QLatin1String FontBold("fontBold");
const QLatin1String LetterSpacing("letterSpacing");
const QLatin1String RowSpacing("rowSpacing");
const QLatin1String IsShadow("isShadow");
const QLatin1String ColorShadow("colorShadow");
const QLatin1String OffsetX("offsetX");
const QLatin1String OffsetY("offsetY");
} // namespace Key

double readReal(QDataStream &stream)
{
    double value = 0.0;
    stream >> value;
    return finiteOrZero(value);
}

/// An invalid colour is written as the black that its components are.
QString colorName(const QColor &color)
{
    return color.name(QColor::HexArgb);
}

/// A text that is there but empty, where the key is missing.
QString textOf(const QJsonObject &json, QLatin1String key)
{
    return json.value(key).toString(QLatin1String(""));
}
} // namespace

bool CVxArtText::save(QDataStream &stream)
{
    fillSaveParams();
    CBaseObject::save(stream);
    stream << m_colorBg << m_colorFill << m_bgType << m_textWord << m_bgTransparent << m_timerDelay
           << m_shape << m_defaultWord << m_colorPen << m_fontFamily << m_fontSize << m_fontItalic
           << m_fontBold << m_letterSpacing << m_rowSpacing << m_isShadow << m_colorShadow
           << m_shadowOffsetX << m_shadowOffsetY;
    return true;
}

bool CVxArtText::load(QDataStream &stream)
{
    CBaseObject::load(stream);
    m_colorBg = readColor(stream);
    m_colorFill = readColor(stream);
    stream >> m_bgType >> m_textWord >> m_bgTransparent >> m_timerDelay >> m_shape >> m_defaultWord;
    m_colorPen = readColor(stream);
    stream >> m_fontFamily >> m_fontSize >> m_fontItalic >> m_fontBold;
    m_letterSpacing = readReal(stream);
    m_rowSpacing = readReal(stream);
    stream >> m_isShadow;
    m_colorShadow = readColor(stream);
    stream >> m_shadowOffsetX >> m_shadowOffsetY;
    finishLoad();
    return true;
}

bool CVxArtText::saveJson(QJsonObject &json)
{
    fillSaveParams();
    SaveJsonBaseData(this, json);
    json[Key::ColorBg] = colorName(m_colorBg);
    json[Key::ColorFill] = colorName(m_colorFill);
    json[Key::BgType] = m_bgType;
    json[Key::TextWord] = m_textWord;
    json[Key::BgTransparent] = m_bgTransparent;
    json[Key::TimerDelay] = m_timerDelay;
    json[Key::Shape] = m_shape;
    json[Key::DefaultWord] = m_defaultWord;
    json[Key::ColorPen] = colorName(m_colorPen);
    json[Key::FontFamily] = m_fontFamily;
    json[Key::FontSize] = m_fontSize;
    json[Key::FontItalic] = m_fontItalic;
    json[Key::FontBold] = m_fontBold;
    json[Key::LetterSpacing] = m_letterSpacing;
    json[Key::RowSpacing] = m_rowSpacing;
    json[Key::IsShadow] = m_isShadow;
    json[Key::ColorShadow] = colorName(m_colorShadow);
    json[Key::OffsetX] = m_shadowOffsetX;
    json[Key::OffsetY] = m_shadowOffsetY;
    return true;
}

bool CVxArtText::loadJson(QJsonObject &json)
{
    LoadJsonBaseData(this, json);
    const CJsonUtil &colors = *GetJsonUtil();
    m_colorBg = colors.toColor(json.value(Key::ColorBg));
    m_colorFill = colors.toColor(json.value(Key::ColorFill));
    m_bgType = json.value(Key::BgType).toInt();
    m_textWord = textOf(json, Key::TextWord);
    m_bgTransparent = json.value(Key::BgTransparent).toBool();
    m_timerDelay = json.value(Key::TimerDelay).toInt();
    m_shape = json.value(Key::Shape).toInt();
    m_defaultWord = textOf(json, Key::DefaultWord);
    m_colorPen = colors.toColor(json.value(Key::ColorPen));
    m_fontFamily = textOf(json, Key::FontFamily);
    m_fontSize = json.value(Key::FontSize).toInt();
    m_fontItalic = json.value(Key::FontItalic).toBool();
    m_fontBold = json.value(Key::FontBold).toBool();
    m_letterSpacing = finiteOrZero(json.value(Key::LetterSpacing).toDouble());
    m_rowSpacing = finiteOrZero(json.value(Key::RowSpacing).toDouble());
    m_isShadow = json.value(Key::IsShadow).toBool();
    m_colorShadow = colors.toColor(json.value(Key::ColorShadow));
    m_shadowOffsetX = json.value(Key::OffsetX).toInt();
    m_shadowOffsetY = json.value(Key::OffsetY).toInt();
    finishLoad();
    return true;
}

void CVxArtText::fillSaveParams()
{
    m_saveParams[Key::TextAlignment] = m_textAlignment;
    m_saveParams[Key::Somehow] = m_fontSomehow;
}

/// The end of both roads on which a record comes in.
void CVxArtText::finishLoad()
{
    if (m_saveParams.contains(Key::Somehow))
        m_fontSomehow = m_saveParams.value(Key::Somehow).toBool();
    if (m_saveParams.contains(Key::TextAlignment))
        m_textAlignment = m_saveParams.value(Key::TextAlignment).toInt();
    LoadFontPath();
    m_created = true;
    updateAfterObjRectChanged(this, /*notify=*/true);
}

bool CVxArtText::SavePropertyForPlayback(QDataStream &stream)
{
    return SaveBaseData(this, stream);
}

bool CVxArtText::LoadPropertyForPlayback(QDataStream &stream)
{
    return LoadBaseData(this, stream);
}

bool CVxArtText::DoPlaybackActionEx(int /*action*/, QDataStream & /*stream*/)
{
    return false;
}
