// SPDX-License-Identifier: MIT
// artlook.h -- the look of an art text in the words that panels know from rich texts.
#ifndef PAGEHOST_ARTLOOK_H
#define PAGEHOST_ARTLOOK_H

#include "host/framework/hosttypes.h"

class CUndoRedo;
class CVXRootObject;

/// The words are those of rich texts where both have the same, and beside them:
///   shape                            the number of the style
///   line_color, line_width           of the line around the characters, width in page pixels, 0 for none
///   art_letterspacing, art_rowspacing  in pixels of the characters before they are stretched
/// "pen_color" is what fills the characters. "font_pointsize" is the size in which the text is edited;
/// when it is given the object becomes as large as the text at that size.
namespace ArtLook {

/// All of \a art; without the style's text.
AttributeMap attributes(CVXRootObject *art);
/// Gives \a art those of \a look that it knows, in one step on \a stack; none for a look that it has.
/// It is not in edit state. A line that is given a colour is at least one pixel wide.
void change(CVXRootObject *art, const AttributeMap &look, CUndoRedo &stack);

} // namespace ArtLook

#endif
