// SPDX-License-Identifier: MIT
// wordprocess_keycommands.cpp -- the keyboard commands that change attributes, as one table.
// Changes nothing by itself: a command answers what is to be set, as a host's panel would ask for it.
#include "wordprocess/keycommand.h"

#include "wordprocess/numbers.h"

#include <vector>

namespace {
constexpr double noFloor = -std::numeric_limits<double>::infinity();
constexpr double smallestSize = 1.0;       // points
constexpr double smallestRowSpacing = 1.0; // points

double presentNumber(const CommandedText &text, const QString &key)
{
    return finiteOrZero(text.present.value(key).toDouble()); // 0 for the "" of runs that differ
}

/// Runs that differ are switched on.
KeyChange toggle(const char *key)
{
    const QString name = QLatin1String(key);
    return {true, [name](const CommandedText &text) -> AttributeMap {
                return {{name, !text.present.value(name).toBool()}};
            }};
}

/// Superscript and subscript shut each other out.
KeyChange toggleScript(const char *key, const char *other)
{
    const QString name = QLatin1String(key);
    const QString otherName = QLatin1String(other);
    return {true, [name, otherName](const CommandedText &text) -> AttributeMap {
                return {{name, !text.present.value(name).toBool()}, {otherName, false}};
            }};
}

/// A size that is not the same everywhere stays as it is.
KeyChange resize(double points)
{
    const QString name = QStringLiteral("font_pointsize");
    return {true, [name, points](const CommandedText &text) -> AttributeMap {
                const double size = presentNumber(text, name);
                if (!(size > 0))
                    return {};
                return {{name, qMax(size + points, points < 0 ? smallestSize : noFloor)}};
            }};
}

KeyChange raise(const char *key, double by)
{
    const QString name = QLatin1String(key);
    return {true, [name, by](const CommandedText &text) -> AttributeMap {
                return {{name, presentNumber(text, name) + by}};
            }};
}

/// Deliberate: 0, and what differs, is not lowered.
KeyChange lower(const char *key, double by, double floor = noFloor)
{
    const QString name = QLatin1String(key);
    return {true, [name, by, floor](const CommandedText &text) -> AttributeMap {
                const double number = presentNumber(text, name);
                if (number == 0)
                    return {};
                return {{name, qMax(number - by, floor)}};
            }};
}

KeyChange setToZero(const char *key)
{
    const QString name = QLatin1String(key);
    return {false, [name](const CommandedText &) -> AttributeMap { return {{name, 0.0}}; }};
}

KeyChange align(int horizontal, int vertical)
{
    return {
        false, [horizontal, vertical](const CommandedText &text) -> AttributeMap {
            return {{QStringLiteral("textalignment"), text.isHorizontal ? horizontal : vertical}};
        }};
}

constexpr Qt::KeyboardModifiers Alt = Qt::AltModifier;
constexpr Qt::KeyboardModifiers AltShift = Qt::AltModifier | Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers CtrlAlt = Qt::ControlModifier | Qt::AltModifier;
constexpr Qt::KeyboardModifiers CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers CtrlShiftAlt = CtrlShift | Qt::AltModifier;

// Deliberate: italic lies on the key of the question mark, and the floors differ from row to row.
// clang-format off
const std::vector<KeyCommand> keyCommands{
    // key              modifiers     box only  change
    {Qt::Key_Asterisk,  CtrlShift,    false,    toggleScript("text_superscript", "text_subscript")},
    {Qt::Key_Asterisk,  CtrlShiftAlt, false,    toggleScript("text_subscript", "text_superscript")},
    {Qt::Key_Less,      CtrlShift,    false,    resize(-2)},
    {Qt::Key_Less,      CtrlShiftAlt, false,    resize(-5)},
    {Qt::Key_Greater,   CtrlShift,    false,    resize(2)},
    {Qt::Key_Greater,   CtrlShiftAlt, false,    resize(5)},
    {Qt::Key_Question,  CtrlShift,    false,    toggle("font_italic")},
    {Qt::Key_A,         CtrlShiftAlt, false,    setToZero("font_rowspacing")},
    {Qt::Key_B,         CtrlShift,    false,    toggle("font_bold")},
    {Qt::Key_C,         CtrlShift,    false,    align(/*horizontal=*/4, /*vertical=*/0x80)},
    {Qt::Key_F,         CtrlShift,    true,     align(/*horizontal=*/8, /*vertical=*/0x100)},
    {Qt::Key_J,         CtrlShift,    true,     align(/*horizontal=*/0x200, /*vertical=*/0x200)},
    {Qt::Key_K,         CtrlShift,    false,    toggle("text_upper")},
    {Qt::Key_L,         CtrlShift,    false,    align(/*horizontal=*/1, /*vertical=*/0x20)},
    {Qt::Key_Q,         CtrlShift,    false,    setToZero("selected_letterspacing")},
    {Qt::Key_R,         CtrlShift,    false,    align(/*horizontal=*/2, /*vertical=*/0x40)},
    {Qt::Key_U,         CtrlShift,    false,    toggle("font_underline")},
    {Qt::Key_Bar,       CtrlShift,    false,    toggle("font_strikeout")},
    {Qt::Key_Left,      Alt,          false,    lower("selected_letterspacing", 20)},
    {Qt::Key_Left,      CtrlAlt,      false,    lower("selected_letterspacing", 100)},
    {Qt::Key_Right,     Alt,          false,    raise("selected_letterspacing", 20)},
    {Qt::Key_Right,     CtrlAlt,      false,    raise("selected_letterspacing", 100)},
    {Qt::Key_Up,        Alt,          false,    lower("font_rowspacing", 1, smallestRowSpacing)},
    {Qt::Key_Up,        CtrlAlt,      false,    lower("font_rowspacing", 5, smallestRowSpacing)},
    {Qt::Key_Up,        AltShift,     false,    raise("baseline_offset", 2)},
    {Qt::Key_Down,      Alt,          false,    raise("font_rowspacing", 1)},
    {Qt::Key_Down,      CtrlAlt,      false,    raise("font_rowspacing", 5)},
    {Qt::Key_Down,      AltShift,     false,    lower("baseline_offset", 2)},
};
// clang-format on
} // namespace

const KeyCommand *keyCommandFor(int key, Qt::KeyboardModifiers modifiers)
{
    for (const KeyCommand &command : keyCommands) {
        if (command.key == key && command.modifiers == modifiers)
            return &command;
    }
    return nullptr;
}
