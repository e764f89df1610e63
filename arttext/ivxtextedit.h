// SPDX-License-Identifier: MIT
// ivxtextedit.h -- what an overlay editor asks of the object that it edits.
#ifndef IVXTEXTEDIT_H
#define IVXTEXTEDIT_H

#include <QPoint>
#include <QRectF>
#include <QString>

class IVxPage;

/// The way of CVxTextEdit into its object, and its only one. The editor never deletes through it.
class IVxTextEdit
{
public:
    /// Where the editor is to lie, in pixels of the view: the object's place and size under the
    /// present zoom.
    virtual QRectF getTextPosition() = 0;
    /// The view's origin in the scene; (0, 0) without a scene.
    virtual QPoint getViewPoint() = 0;
    /// \a point of the view on the screen; (0, 0) without a scene.
    virtual QPoint getViewGlobalPt(const QPoint &point) = 0;
    virtual QString getPlainText() = 0;
    /// Takes the text as it stands in the editor: told at each key.
    virtual void setPlainText(const QString &text) = 0;
    virtual QString getTextHtml() = 0;
    virtual void setTextHtml(const QString &html) = 0;
    /// Ends the object's edit state; nothing outside it.
    virtual void EndEdit() = 0;
    /// (0, 0, client width, client height).
    virtual QRectF GetViewRect() = 0;
    /// The editor ends: it is not to be called any more.
    virtual void TextEditHasBeenDestroy() = 0;
    /// The page of the object, or null.
    virtual IVxPage *GetCurrentPage() = 0;

protected:
    IVxTextEdit() = default;
    IVxTextEdit(const IVxTextEdit &) = default;
    IVxTextEdit &operator=(const IVxTextEdit &) = default;
    ~IVxTextEdit() = default;
};

#endif
