// SPDX-License-Identifier: MIT
// vxarttext.h -- CVxArtText, the art text object.
#ifndef VXARTTEXT_H
#define VXARTTEXT_H

#include "host/framework/cbaseobject.h"
#include "plugin/vxarttext_shared_global.h"

/// A plain string shown as a piece of lettering. It is placed, kept and released by the host like any
/// other object; it shows nothing yet.
class VXARTTEXT_EXPORT CVxArtText : public CBaseObject
{
    Q_OBJECT

public:
    CVxArtText(int id, bool finished, QGraphicsItem *parent, IVxPage *page);

    int type() const override { return 75747; }
    QString getObjName() const override { return QStringLiteral("art text"); }
};

#endif
