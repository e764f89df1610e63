// SPDX-License-Identifier: MIT
// vxarttext_properties.cpp -- CVxArtText: numbered attributes and special properties.
// Changes: the value that a number stands for, the outlines, the edit state.
#include "arttext/vxarttext.h"

#include "arttext/foreignvalues.h"
#include "host/framework/iappframework.h"

#include <QDataStream>

namespace {
constexpr int firstAttribute = 5001;
constexpr int lastAttribute = 5007;

namespace Special {
constexpr int EnterEdit = 101;
constexpr int EndEdit = 102;
constexpr int Attributes = 204;
} // namespace Special

struct LocalString {
    const char *key;
    const char *fallback;
};
// Deliberate: the first two do not match, as panels know them.
constexpr LocalString gridNames[] = {
    {"IDS_ARTTEXT_GRIDTYPE_NOTHING", "Tian"},
    {"IDS_ARTTEXT_GRIDTYPE_Tian", ""},
    {"IDS_ARTTEXT_GRIDTYPE_Mi", "Mi"},
};
constexpr int shortestDelay = 500; // milliseconds that a panel offers; any other is taken too
constexpr int longestDelay = 10000;
constexpr int delayStep = 500;

/// A value of \a Value; zero where the stream has ended.
template<typename Value>
Value next(QDataStream &stream)
{
    Value value{};
    stream >> value;
    return value;
}

/// The host finds its answer at the start of the stream: 0.
void rewind(QDataStream &stream)
{
    stream.resetStatus(); // of values that were not there
    if (stream.device() && stream.device()->seek(0))
        stream << int(0);
}
} // namespace

/// One numbered attribute: how a panel is told of it, and how its value is written and taken.
struct CVxArtText::Numbered {
    int kind; ///< of value, as the host counts them
    const char *label;
    void (*write)(const CVxArtText &object, QDataStream &stream);
    void (*take)(CVxArtText &object, QDataStream &stream);

    static const Numbered rows[lastAttribute - firstAttribute + 1];

    static void writeGrid(const CVxArtText &object, QDataStream &stream);
    static void takeFillColor(CVxArtText &object, QDataStream &stream);
    static void takeText(CVxArtText &object, QDataStream &stream);
    static void takePlay(CVxArtText &object, QDataStream &stream);
    static void takeDelay(CVxArtText &object, QDataStream &stream);
    /// What ends the attributes that have no end of their own.
    static void show(CVxArtText &object, QDataStream &stream)
    {
        rewind(stream);
        object.update();
    }
};

// clang-format off
const CVxArtText::Numbered CVxArtText::Numbered::rows[] = {
    {2, "IDS_ARTWORD_BGCOLOR",
     [](const CVxArtText &o, QDataStream &out) { out << o.m_colorBg; },
     [](CVxArtText &o, QDataStream &in) { o.m_colorBg = readColor(in); show(o, in); }},
    {2, "IDS_ARTWORD_FILL_COLOR",
     [](const CVxArtText &o, QDataStream &out) { out << o.m_colorFill; },
     takeFillColor},
    {4, "IDS_ARTWORD_BGTranspare",
     [](const CVxArtText &o, QDataStream &out) { out << o.m_bgTransparent; },
     [](CVxArtText &o, QDataStream &in) { o.m_bgTransparent = next<bool>(in); show(o, in); }},
    {5, "IDS_ARTWORD_TEXT_CONTENT",
     [](const CVxArtText &o, QDataStream &out) { out << o.m_textWord; },
     takeText},
    {1, "IDS_ARTWORD_GRID_TYPE",
     writeGrid,
     [](CVxArtText &o, QDataStream &in) { o.m_bgType = next<int>(in); show(o, in); }},
    {4, "IDS_ARTWORD_DoPlay",
     [](const CVxArtText &o, QDataStream &out) { out << o.m_doPlay; },
     takePlay},
    {7, "IDS_ARTWORD_PlayTimer",
     [](const CVxArtText &o, QDataStream &out)
     { out << shortestDelay << longestDelay << delayStep << o.m_timerDelay; },
     takeDelay},
};
// clang-format on

void CVxArtText::Numbered::writeGrid(const CVxArtText &object, QDataStream &stream)
{
    stream << int(std::size(gridNames)) << object.m_bgType << int(0);
    IAppFramework *const framework = GetFramework();
    for (const LocalString &name : gridNames) {
        const QString fallback = QLatin1String(name.fallback);
        stream << (framework ? framework->getLocalString(QLatin1String(name.key), fallback)
                             : fallback);
    }
}

void CVxArtText::Numbered::takeFillColor(CVxArtText &object, QDataStream &stream)
{
    object.m_colorFill = readColor(stream);
    object.update();
}

void CVxArtText::Numbered::takeText(CVxArtText &object, QDataStream &stream)
{
    object.m_textWord = next<QString>(stream);
    rewind(stream);
    object.LoadFontPath();
    object.update();
}

void CVxArtText::Numbered::takePlay(CVxArtText &object, QDataStream &stream)
{
    object.m_doPlay = next<bool>(stream);
    rewind(stream);
    if (object.m_doPlay && !object.m_playing) {
        object.update();
        object.StartPlay();
    }
}

void CVxArtText::Numbered::takeDelay(CVxArtText &object, QDataStream &stream)
{
    object.m_timerDelay = next<int>(stream);
    rewind(stream);
}

/// The attribute \a id when the object offers it; null otherwise.
const CVxArtText::Numbered *CVxArtText::numbered(int id) const
{
    if (id < firstAttribute || id > lastAttribute || !m_attributeIds.contains(id))
        return nullptr;
    return &Numbered::rows[id - firstAttribute];
}

bool CVxArtText::GetAttribute(int id, QDataStream &stream)
{
    if (CBaseObject::GetAttribute(id, stream))
        return true;
    const Numbered *const row = numbered(id);
    if (!row)
        return false;
    stream << id << row->kind << QString(QLatin1String(row->label)) << true;
    row->write(*this, stream);
    return true;
}

bool CVxArtText::SetAttribute(int id, QDataStream &stream, bool flag)
{
    if (CBaseObject::SetAttribute(id, stream, flag))
        return true;
    const Numbered *const row = numbered(id);
    if (!row)
        return false;
    row->take(*this, stream);
    return true;
}

bool CVxArtText::SetSpecialProperty(int number, QDataStream &stream, bool flag)
{
    switch (number) {
    case Special::EnterEdit:
        if (!isLocked())
            enterEdit(); // deliberate: the edit state is left to the double click
        return false;
    case Special::EndEdit:
        EndEdit();
        return false;
    case Special::Attributes:
        setAttributesFromStream(stream);
        return true;
    default:
        return CBaseObject::SetSpecialProperty(number, stream, flag);
    }
}

bool CVxArtText::GetSpecialProperty(int number, QDataStream &stream)
{
    if (number != Special::Attributes)
        return CBaseObject::GetSpecialProperty(number, stream);
    stream << int(0); // deliberate: an empty map, whatever the object holds
    return true;
}
