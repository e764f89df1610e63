// SPDX-License-Identifier: MIT
// vxarttext_attributes.cpp -- CVxArtText: attribute maps, from the host's panels and from a stream.
// Changes: whatever the keys name, the formats of the text item, the outlines.
#include "arttext/vxarttext.h"

#include "arttext/foreignvalues.h"
#include "arttext/arttexthelper.h"
#include "common/finite.h"
#include "common/truncated.h"
#include "host/framework/iappframework.h"

#include <QFontMetrics>
#include <QPointer>
#include <QTextDocument>

#include <mutex>

namespace {
namespace Key {
const QLatin1String DefaultWord("defaultword");
const QLatin1String FontFamily("font_family");
const QLatin1String FontBold("font_bold");
const QLatin1String FontItalic("font_italic");
const QLatin1String LetterSpacing("font_letterspacing");
const QLatin1String RowSpacing("font_rowspacing");
const QLatin1String Color("color");
const QLatin1String FillColor("fillcolor");
const QLatin1String Shape("shape");
const QLatin1String Text("text");
const QLatin1String ShadowOffsetX("shadow_offsetX");
const QLatin1String ShadowOffsetY("shadow_offsetY");
const QLatin1String ShadowAbsOffsetX("shadow_absoffsetX");
const QLatin1String ShadowAbsOffsetY("shadow_absoffsetY");
const QLatin1String Transparent("transparent");
const QLatin1String TextAlignment("textalignment");
const QLatin1String Somehow("font_somehow"); // "font_Somehow" in records
const QLatin1String PointSize("font_pointsize");
const QLatin1String Shadow("shadow");
const QLatin1String ShadowColor("shadow_color");
} // namespace Key

// A listener that answers each notification with a command would never let the first one return.
constexpr int deepestNotification = 3;

/// What a panel has for a number in which the selected objects differ.
bool isMixed(const QVariant &value)
{
    return value.userType() == QMetaType::QString && value.toString().isEmpty();
}
} // namespace

/// One map of attributes, and what has come of it so far.
struct CVxArtText::AttributeCommand {
    enum class Source { Map, Stream };
    /// Takes the value of one key.
    using Effect = void (AttributeCommand::*)(const QVariant &value);
    struct Row {
        QLatin1String key;
        bool isNumber; ///< an empty string leaves the property alone
        Effect effect;
    };
    static const Row rows[];

    AttributeCommand(CVxArtText &commanded, const AttributeMap &map, Source origin)
        : object(commanded)
        , attributes(map)
        , fromStream(origin == Source::Stream)
    {
    }

    void run();
    /// True when \a key is there with a number.
    bool hasNumber(QLatin1String key) const
    {
        return attributes.contains(key) && !isMixed(attributes.value(key));
    }
    bool hasChanged() const { return changed; }
    bool hasColors() const { return colored; }

private:
    void takeDefaultWord(const QVariant &value);
    void takeFamily(const QVariant &value);
    void takeBold(const QVariant &value);
    void takeItalic(const QVariant &value);
    void takeLetterSpacing(const QVariant &value);
    void takeRowSpacing(const QVariant &value);
    void takeColor(const QVariant &value);
    void takeFillColor(const QVariant &value);
    void takeShape(const QVariant &value);
    void takeText(const QVariant &value);
    void takeShadowOffset(const QVariant &x);
    void takeShadowAbsOffset(const QVariant &x);
    void takeTransparent(const QVariant &value);
    void takeAlignment(const QVariant &value);
    void takeSomehow(const QVariant &value);
    void takePointSize(const QVariant &value);
    void takeShadow(const QVariant &value);
    void takeShadowColor(const QVariant &value);

    /// Keys that are compared change something only by another value; from a stream none is compared.
    template<typename Value>
    bool takeIfDifferent(Value &field, const Value &value);

    CVxArtText &object;
    const AttributeMap attributes; ///< a copy: listeners may change theirs
    const bool fromStream;
    bool changed = false; ///< the outlines have to be made anew
    bool colored = false;
};

// clang-format off
const CVxArtText::AttributeCommand::Row CVxArtText::AttributeCommand::rows[] = {
    // key                  number effect
    {Key::DefaultWord,      false, &AttributeCommand::takeDefaultWord},
    {Key::FontFamily,       false, &AttributeCommand::takeFamily},
    {Key::FontBold,         false, &AttributeCommand::takeBold},
    {Key::FontItalic,       false, &AttributeCommand::takeItalic},
    {Key::LetterSpacing,    true,  &AttributeCommand::takeLetterSpacing},
    {Key::RowSpacing,       true,  &AttributeCommand::takeRowSpacing},
    {Key::Color,            false, &AttributeCommand::takeColor},
    {Key::FillColor,        false, &AttributeCommand::takeFillColor},
    {Key::Shape,            true,  &AttributeCommand::takeShape},
    {Key::Text,             false, &AttributeCommand::takeText},
    {Key::ShadowOffsetX,    true,  &AttributeCommand::takeShadowOffset},
    {Key::ShadowAbsOffsetX, true,  &AttributeCommand::takeShadowAbsOffset},
    {Key::Transparent,      true,  &AttributeCommand::takeTransparent},
    {Key::TextAlignment,    true,  &AttributeCommand::takeAlignment},
    {Key::Somehow,          false, &AttributeCommand::takeSomehow},
    {Key::PointSize,        true,  &AttributeCommand::takePointSize},
    {Key::Shadow,           false, &AttributeCommand::takeShadow},
    {Key::ShadowColor,      false, &AttributeCommand::takeShadowColor},
};
// clang-format on

void CVxArtText::AttributeCommand::run()
{
    for (const Row &row : rows) {
        const auto entry = attributes.constFind(row.key);
        if (entry != attributes.constEnd() && !(row.isNumber && isMixed(entry.value())))
            (this->*row.effect)(entry.value());
    }
}

template<typename Value>
bool CVxArtText::AttributeCommand::takeIfDifferent(Value &field, const Value &value)
{
    if (!fromStream && field == value)
        return false;
    field = value;
    changed = true;
    return true;
}

void CVxArtText::AttributeCommand::takeDefaultWord(const QVariant &value)
{
    object.m_defaultWord = value.toString();
    changed = true;
}

void CVxArtText::AttributeCommand::takeFamily(const QVariant &value)
{
    if (takeIfDifferent(object.m_fontFamily, value.toString()))
        object.setFontFamily(object.m_fontFamily);
}

void CVxArtText::AttributeCommand::takeBold(const QVariant &value)
{
    if (takeIfDifferent(object.m_fontBold, value.toBool()))
        object.setFontBold(object.m_fontBold);
}

void CVxArtText::AttributeCommand::takeItalic(const QVariant &value)
{
    if (takeIfDifferent(object.m_fontItalic, value.toBool()))
        object.setFontItalic(object.m_fontItalic);
}

void CVxArtText::AttributeCommand::takeLetterSpacing(const QVariant &value)
{
    object.m_letterSpacing = finiteOrZero(value.toDouble());
    object.setLetterSpacing(object.m_letterSpacing);
    changed = true;
}

void CVxArtText::AttributeCommand::takeRowSpacing(const QVariant &value)
{
    object.m_rowSpacing = finiteOrZero(value.toDouble());
    object.setRowSpacing(object.m_rowSpacing);
    changed = true;
}

void CVxArtText::AttributeCommand::takeColor(const QVariant &value)
{
    const QColor color = value.value<QColor>();
    object.m_artText->SetColor(color);
    object.m_colorPen = color;
    object.setFontColor(color);
    colored = true;
}

void CVxArtText::AttributeCommand::takeFillColor(const QVariant &value)
{
    object.setFillColor(value.value<QColor>());
    object.setFontColor(object.m_colorFill);
    colored = true;
}

void CVxArtText::AttributeCommand::takeShape(const QVariant &value)
{
    takeIfDifferent(object.m_shape, value.toInt());
}

void CVxArtText::AttributeCommand::takeText(const QVariant &value)
{
    takeIfDifferent(object.m_textWord, value.toString());
}

void CVxArtText::AttributeCommand::takeShadowOffset(const QVariant &x)
{
    if (!hasNumber(Key::ShadowOffsetY))
        return;
    object.setShadowOffset(x.toInt(), attributes.value(Key::ShadowOffsetY).toInt());
    changed = true;
}

void CVxArtText::AttributeCommand::takeShadowAbsOffset(const QVariant &x)
{
    if (!fromStream || !hasNumber(Key::ShadowAbsOffsetY))
        return;
    object.setShadowAbsOffset(finiteOrZero(x.toDouble()),
                              finiteOrZero(attributes.value(Key::ShadowAbsOffsetY).toDouble()));
    changed = true;
}

void CVxArtText::AttributeCommand::takeTransparent(const QVariant &value)
{
    object.m_transparent = value.toInt();
    changed = true;
}

void CVxArtText::AttributeCommand::takeAlignment(const QVariant &value)
{
    object.m_textAlignment = value.toInt();
    object.setTextAlign(Qt::Alignment(object.m_textAlignment));
    changed = true;
}

void CVxArtText::AttributeCommand::takeSomehow(const QVariant &value)
{
    takeIfDifferent(object.m_fontSomehow, value.toBool());
}

void CVxArtText::AttributeCommand::takePointSize(const QVariant &value)
{
    const double size = finiteOrZero(value.toDouble());
    if (size > 0.0) {
        object.takePointSize(size);
        changed = true;
    }
}

void CVxArtText::AttributeCommand::takeShadow(const QVariant &value)
{
    object.setShadowSwitch(value.toBool());
    changed = true;
}

void CVxArtText::AttributeCommand::takeShadowColor(const QVariant &value)
{
    object.setShadowColor(value.value<QColor>());
    changed = true;
}

/// The size of the text item while it is edited, and of the object around it. Deliberate: the outlines
/// keep theirs.
void CVxArtText::takePointSize(double size)
{
    const int points = truncated(size);
    if (points > 0)
        m_font.setPointSize(qMin(points, LargestPointSize));
    const QString &text = m_textWord.isEmpty() ? m_defaultWord : m_textWord;
    const double width = double(QFontMetrics(m_font).boundingRect(text).width()) + 1;
    {
        const std::lock_guard<PathsMutex> guard(m_pathsMutex);
        document()->setDefaultFont(m_font);
        setFont(m_font);
        document()->setTextWidth(width);
    }
    const QSizeF area(width, document()->size().height());
    updatePosition(this, QRectF(getPos(), m_fontSomehow ? area.transposed() : area));
}

void CVxArtText::getArtTextAttributes(AttributeMap &attributes)
{
    attributes[Key::DefaultWord] = m_defaultWord;
    attributes[Key::FontFamily] = m_fontFamily;
    attributes[Key::FontBold] = m_fontBold;
    attributes[Key::FontItalic] = m_fontItalic;
    attributes[Key::LetterSpacing] = m_letterSpacing;
    attributes[Key::RowSpacing] = m_rowSpacing;
    attributes[Key::Color] = m_colorPen;
    attributes[Key::FillColor] = m_colorFill;
    attributes[Key::Shape] = m_shape;
    attributes[Key::Text] = m_textWord;
    attributes[Key::ShadowOffsetX] = m_shadowOffsetX;
    attributes[Key::ShadowOffsetY] = m_shadowOffsetY;
    attributes[Key::ShadowAbsOffsetX] = m_shadowAbsOffsetX;
    attributes[Key::ShadowAbsOffsetY] = m_shadowAbsOffsetY;
    attributes[Key::Transparent] = m_transparent;
    attributes[Key::TextAlignment] = m_textAlignment;
    attributes[Key::Somehow] = m_fontSomehow;
}

bool CVxArtText::getAllAttributes(AttributeMap &attributes)
{
    CBaseObject::getAllAttributes(attributes);
    getArtTextAttributes(attributes);
    return true;
}

bool CVxArtText::setAllAttributes(const AttributeMap &attributes, bool withUndo)
{
    AttributeCommand command(*this, attributes, AttributeCommand::Source::Map);
    const bool taken = CBaseObject::setAllAttributes(attributes, withUndo);
    command.run();
    if (!command.hasChanged()) {
        update();
        return taken || command.hasColors();
    }
    showChange();
    notifyAttributes();
    return true;
}

void CVxArtText::setAttributesFromStream(QDataStream &stream)
{
    if (!m_artText)
        m_artText = new CArtText;
    AttributeCommand command(*this, readAttributes(stream), AttributeCommand::Source::Stream);
    command.run();
    if (command.hasChanged())
        showChange();
    else
        update();
}

/// Makes the outlines anew and repaints.
void CVxArtText::showChange()
{
    clearLayerEffectCache(EffectCacheReason::ContentChanged);
    generatePath(m_fontSomehow);
    update();
}

/// Nothing may follow: whoever listens may release the object.
void CVxArtText::notifyAttributes()
{
    IAppFramework *const framework = GetFramework();
    IObjectEventSink *const sink = framework ? framework->getEventSink() : nullptr;
    if (!sink || m_notificationDepth >= deepestNotification)
        return;
    AttributeMap values;
    getAllAttributes(values);
    const QPointer<CVxArtText> alive(this);
    ++m_notificationDepth;
    sink->notifyObjectEvent(this, QStringLiteral("arttext_prop"), values);
    if (alive)
        --m_notificationDepth;
}
