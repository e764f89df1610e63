// SPDX-License-Identifier: MIT
// keycommand.h -- the keyboard commands that change attributes, for the keyboard and for their table.
#ifndef KEYCOMMAND_H
#define KEYCOMMAND_H

#include "host/framework/hosttypes.h"

#include <functional>

/// What a command finds.
struct CommandedText {
    AttributeMap present; ///< empty unless the change reads it
    bool isHorizontal;
};

/// What a command does: it answers the attributes that are to be set, empty for none.
struct KeyChange {
    bool readsPresent;
    std::function<AttributeMap(const CommandedText &)> attributes;
};

struct KeyCommand {
    int key; ///< Qt's code for it, as the key event reports it
    Qt::KeyboardModifiers modifiers;
    bool boxOnly; ///< in line text the key is taken and nothing happens
    KeyChange change;
};

/// The command of \a key with exactly \a modifiers, or null.
const KeyCommand *keyCommandFor(int key, Qt::KeyboardModifiers modifiers);

#endif
