// SPDX-License-Identifier: MIT
// textcommands.h -- what the editor asks of a text object beyond what every program asks.
#ifndef PAGEHOST_TEXTCOMMANDS_H
#define PAGEHOST_TEXTCOMMANDS_H

#include <QString>

class CVXRootObject;

/// Commands and questions of text objects. An object that does not know one does nothing and answers
/// with an empty text or false.
namespace TextCommands {

bool isRichText(CVXRootObject *object);
QString plainText(CVXRootObject *object);
bool isEditing(CVXRootObject *object);

/// Of the selected text, in edit state.
void cut(CVXRootObject *object);
void copy(CVXRootObject *object);
/// What the clipboard holds: at the caret of an edited object, or as the whole of a new one.
/// \param rich false takes its characters without their formats
void paste(CVXRootObject *object, bool newObject, bool rich = true);

} // namespace TextCommands

#endif
