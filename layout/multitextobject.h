// SPDX-License-Identifier: MIT
#ifndef MULTITEXTOBJECT_H
#define MULTITEXTOBJECT_H

#include "layout/textobjectbase.h"

/// Layout of box text. Wrapping is not built yet: each layout reports the box and no lines, so
/// that a box text keeps its place and paints nothing.
class CMultiTextOjbect : public CTextObjectBase
{
public:
    explicit CMultiTextOjbect(CWordProcess *object);

    void verticalLayout() override;
    void horizontalLayout() override;
    void defaultWordLayout() override;

private:
    void reportEmptyBox();
};

#endif // MULTITEXTOBJECT_H
