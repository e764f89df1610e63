// SPDX-License-Identifier: MIT
// hosttypes.h -- the plain types that host and objects share.
#ifndef HOSTTYPES_H
#define HOSTTYPES_H

#include <QMap>
#include <QString>
#include <QVariant>

/// Attributes and parameters: lower-case words to values.
using AttributeMap = QMap<QString, QVariant>;

/// Operations that a host asks an object about with canDo(). The values are part of the contract.
enum OperationType : int {
    OP_Move = 0,
    OP_Resize = 1,
    OP_Rotate = 2,
    OP_HasText = 33,
    OP_TextCut = 300,
    OP_TextCopy = 301,
    OP_TextPaste = 302,
};

/// Ids of an object's handles: the argument of setHandlesDisable() and the result of
/// HitTestHandle().
struct CObjAction {
    enum ACT_Def : int {
        ACT_None = 0,
        ACT_Rotate = 2,
        ACT_TopLeft = 20,
        ACT_BottomRight = 21,
        ACT_TopCentre = 22,
        ACT_TopRight = 23,
        ACT_Right = 24,
        ACT_Left = 25,
        ACT_BottomLeft = 26,
        ACT_BottomCentre = 27,
    };
};

/// What an object tells the host's action bar about itself.
struct ActionState {
    unsigned char editing = 0; ///< 1 while the object is in edit state
    int lastAction = 0;        ///< the last action; 5 after an edit has ended
};

/// Codes of CBaseObject::notifyObjPropertyChanged().
namespace ObjectProperty {
constexpr int Appearance = 1002; ///< the object looks different and wants to be repainted
}

/// Reasons of CBaseObject::clearLayerEffectCache().
namespace EffectCacheReason {
constexpr int ContentChanged = 2;
}

#endif
