// SPDX-License-Identifier: MIT
#include "arttext/vxarttext.h"

CVxArtText::CVxArtText(int id, bool finished, QGraphicsItem *parent, IVxPage *page)
    : CBaseObject(id, finished, parent, page)
{
    setObjectName(QStringLiteral("wb art text"));
}
