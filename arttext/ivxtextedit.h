// SPDX-License-Identifier: MIT
// ivxtextedit.h -- IVxTextEdit, the overlay editor's way into the object that it edits.
#ifndef IVXTEXTEDIT_H
#define IVXTEXTEDIT_H

#include <QPoint>
#include <QRectF>
#include <QString>

class IVxPage;

/// An object whose text can be typed in an editor that lies over the view.
class IVxTextEdit
{
public:
    virtual ~IVxTextEdit() = default;
    /// Where the editor lies: position in the view's pixels, size at the present zoom.
    virtual QRectF getTextPosition() = 0;
    /// The scene point of the view's origin, rounded; (0, 0) without a scene.
    virtual QPoint getViewPoint() = 0;
    /// \a point of the view in global pixels; (0, 0) without a scene.
    virtual QPoint getViewGlobalPt(const QPoint &point) = 0;
    virtual QString getPlainText() = 0;
    virtual void setPlainText(const QString &text) = 0;
    virtual QString getTextHtml() = 0;
    virtual void setTextHtml(const QString &html) = 0;
    virtual void EndEdit() = 0;
    /// The object's own rectangle with its corner at (0, 0).
    virtual QRectF GetViewRect() = 0;
    /// Told by the editor's destructor: the object no longer has an editor.
    virtual void TextEditHasBeenDestroy() = 0;
    /// The page that holds the object, or null.
    virtual IVxPage *GetCurrentPage() = 0;
};

#endif
