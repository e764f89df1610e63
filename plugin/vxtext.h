// SPDX-License-Identifier: MIT
// vxtext.h -- the two factories: all that a host resolves in libvxarttext.
#ifndef VXTEXT_H
#define VXTEXT_H

#include "plugin/vxarttext_shared_global.h"

class CVXRootObject;
class IVxPage;

extern "C" {
/// Makes a rich text object. The host owns it and ends it with CVXRootObject::Release().
/// \param kind     ignored
/// \param id       the object's id
/// \param finished true for an object that is not to be drawn by the user
/// \param page     the page that holds the object; null for an object that is being loaded
VXARTTEXT_EXPORT CVXRootObject *createObject_text(int kind, int id, bool finished, IVxPage *page);
/// Makes an art text object, under the same terms.
VXARTTEXT_EXPORT CVXRootObject *createObject_arttext(int kind, int id, bool finished,
                                                     IVxPage *page);
}

#endif
