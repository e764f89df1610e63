// SPDX-License-Identifier: MIT
// arttextchangecommand.h -- the undo step of an art text: text and place before and after an edit.
#ifndef ARTTEXTCHANGECOMMAND_H
#define ARTTEXTCHANGECOMMAND_H

#include "host/framework/cundoredo.h"

#include <QRectF>
#include <QString>

class CVxArtText;

/// What a step changes. Steps of another kind than these do nothing.
enum TEXT_CHANGE_TYPE : int {
    TEXT_CHANGE_NONE = 0,
    TEXT_CHANGE_CONTENT = 10, ///< the text, with its rectangle
};

/// Rectangles have their corner in the scene and the client size. A step whose object has gone does nothing.
class CArttextChangeCommand : public CWbUndoCmd
{
public:
    CArttextChangeCommand(CVxArtText *object, TEXT_CHANGE_TYPE type,
                          QUndoCommand *parent = nullptr);

    void setTextBegin(QString &text, QRectF rect);
    void setTextDone(QString &text, QRectF rect);
    void undo() override;
    void redo() override;

protected:
    void apply(QString &text, const QRectF &rect);

    TEXT_CHANGE_TYPE m_type;
    QString m_oldText;
    QString m_newText;
    QRectF m_oldRect;
    QRectF m_newRect;
};

#endif
