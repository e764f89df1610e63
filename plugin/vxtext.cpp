// SPDX-License-Identifier: MIT
#include "plugin/vxtext.h"

#include "arttext/vxarttext.h"
#include "wordprocess/cwordprocess.h"

CVXRootObject *createObject_text(int /*kind*/, int id, bool finished, IVxPage *page)
{
    return new CWordProcess(id, finished, nullptr, page);
}

CVXRootObject *createObject_arttext(int /*kind*/, int id, bool finished, IVxPage *page)
{
    return new CVxArtText(id, finished, nullptr, page);
}
