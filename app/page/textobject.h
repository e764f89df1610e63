// SPDX-License-Identifier: MIT
// textobject.h -- what programs ask of a text object beside its record, by name instead of number.
#ifndef APP_TEXTOBJECT_H
#define APP_TEXTOBJECT_H

class CVXRootObject;

/// The properties of text objects. Each does nothing to an object that does not know it.
namespace TextObject {

/// Enters edit state. A locked object, and one that misses a font, stays as it is.
void beginEdit(CVXRootObject *object);
void endEdit(CVXRootObject *object);
/// Makes the box of box text follow its text from now on: downwards under lines, to the left under
/// columns.
void letBoxGrow(CVXRootObject *object);

} // namespace TextObject

#endif
