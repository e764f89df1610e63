// SPDX-License-Identifier: MIT
// textobject.h -- what programs ask of a text object beside its record, by name instead of number.
#ifndef APP_TEXTOBJECT_H
#define APP_TEXTOBJECT_H

#include "host/framework/hosttypes.h"

#include <QPointF>
#include <QStringList>

class CVXRootObject;
struct TextWarp;

/// The properties of text objects. Each does nothing to an object that does not know it.
namespace TextObject {

/// Enters edit state. A locked object, and one that misses a font, stays as it is.
void beginEdit(CVXRootObject *object);
void endEdit(CVXRootObject *object);
/// Makes the box of box text follow its text from now on: downwards under lines, to the left under
/// columns.
void letBoxGrow(CVXRootObject *object);
bool isVertical(CVXRootObject *object);
/// The text without its formats, of rich and of art text; a line feed between paragraphs. Empty for an
/// object without one.
QString plainText(CVXRootObject *object);
/// How far the text of a box reaches beyond its left and upper edge: 0 or below.
QPointF overhang(CVXRootObject *object);

/// The families that the text names, that are not installed, and that nothing has replaced.
QStringList missingFonts(CVXRootObject *object);
/// Sets what stands in the missing \a family in \a replacement. A family that is not missing: nothing.
void replaceFont(CVXRootObject *object, const QString &family, const QString &replacement);
/// The words above an object that misses fonts; an empty \a hint takes them away.
void setMissingFontHint(CVXRootObject *object, const QString &hint);
/// Sets attributes of the whole text. Of a pair of keys that only act together the absent one is
/// taken to be false.
void setAttributes(CVXRootObject *object, AttributeMap attributes);
/// Bends the text from now on, without an undo step; style 0 straightens it. An object that misses
/// a font stays as it is, one in edit state shows the bend afterwards.
void setWarp(CVXRootObject *object, const TextWarp &warp);

} // namespace TextObject

#endif
