// SPDX-License-Identifier: MIT
#include "layout/multitextobject.h"

CMultiTextOjbect::CMultiTextOjbect(CWordProcess *object)
    : CTextObjectBase(object)
{
}

void CMultiTextOjbect::verticalLayout()
{
    reportEmptyBox();
}

void CMultiTextOjbect::horizontalLayout()
{
    reportEmptyBox();
}

void CMultiTextOjbect::defaultWordLayout()
{
    reportEmptyBox();
}

void CMultiTextOjbect::reportEmptyBox()
{
    const QRectF rect = box();
    updateData(TextLayout(), rect, rect, QPainterPath());
}
