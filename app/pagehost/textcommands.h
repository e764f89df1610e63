// SPDX-License-Identifier: MIT
// textcommands.h -- what the editor asks of a text object beyond what every program asks.
#ifndef PAGEHOST_TEXTCOMMANDS_H
#define PAGEHOST_TEXTCOMMANDS_H

#include <QLineF>
#include <QString>

class CVXRootObject;
class QGraphicsTextItem;

/// Commands and questions of text objects. An object that does not know one does nothing and answers
/// with an empty text or false.
namespace TextCommands {

bool isRichText(const CVXRootObject *object);
bool isArtText(const CVXRootObject *object);
/// The text as the user sees it, in an edit too.
QString plainText(CVXRootObject *object);
bool isEditing(CVXRootObject *object);
/// Where the caret of a rich text was painted last (scene), from its upper to its lower end as the text
/// runs; null before that.
QLineF caretLine(CVXRootObject *object);
/// The document of a rich text as its record tells it, with what is being typed: no edit ends. Empty for
/// an object without one. Takes about as long as a key press.
QString documentString(CVXRootObject *object);
/// Enters edit state; an art text has to be the only selected object of its page.
void beginEdit(CVXRootObject *object);

/// Gives an edited text a key, as if it had been pressed; the focus may be elsewhere.
void sendKey(CVXRootObject *object, int key, Qt::KeyboardModifiers modifiers);

/// Of the selected text, in edit state.
void cut(CVXRootObject *object);
void copy(CVXRootObject *object);
/// What the clipboard holds: at the caret of an edited object, or as the whole of a new one.
/// \param rich false takes its characters without their formats
void paste(CVXRootObject *object, bool newObject, bool rich = true);
/// The text item that an art text is while it is edited; null for other objects.
QGraphicsTextItem *editItem(CVXRootObject *object);

} // namespace TextCommands

#endif
