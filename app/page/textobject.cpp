// SPDX-License-Identifier: MIT
#include "app/page/textobject.h"

#include "host/framework/cvxrootobject.h"

#include <QDataStream>

namespace {

namespace Property {
constexpr int BeginEdit = 101;
constexpr int EndEdit = 102;
} // namespace Property

void set(CVXRootObject *object, int property, const QByteArray &values = QByteArray())
{
    QDataStream stream(values);
    object->SetSpecialProperty(property, stream, false);
}

} // namespace

void TextObject::beginEdit(CVXRootObject *object)
{
    set(object, Property::BeginEdit);
}

void TextObject::endEdit(CVXRootObject *object)
{
    set(object, Property::EndEdit);
}

void TextObject::letBoxGrow(CVXRootObject *object)
{
    object->setAllAttributes({{QStringLiteral("text_wordwrap"), true},
                              {QStringLiteral("text_auto_wordwrap"), true}},
                             /*withUndo=*/false);
    // The flag alone lays nothing out; an edit does, at its beginning.
    beginEdit(object);
    endEdit(object);
}
