// SPDX-License-Identifier: MIT
// vxtextedit.h -- CVxTextEdit, an ordinary editor that lies over an art text object.
#ifndef VXTEXTEDIT_H
#define VXTEXTEDIT_H

#include "plugin/vxarttext_shared_global.h"

#include <QRectF>
#include <QTextEdit>

class IVxTextEdit;
class QTextCharFormat;
class QTimer;

/// Lies over the view where its object is shown, and gives the object its text at each key. A host
/// makes one, gives it a parent among its windows, hands it to the object, which then owns it, and
/// begins the edit. Without an object, or without a framework, it does nothing. GUI thread only.
class VXARTTEXT_EXPORT CVxTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit CVxTextEdit(QWidget *parent = nullptr);
    /// Tells the object that it has no editor any more.
    ~CVxTextEdit() override;

    // The edit
    /// Takes the text of \a textItem, which stays the caller's, lies down over it and shows itself,
    /// the caret at the start. Null: the editor has no object and stays as it is.
    void BeginEdit(IVxTextEdit *textItem);
    /// Hides the editor and ends the edit of its object.
    void EndEdit();
    /// The object ends: the editor forgets it.
    void ResetTexItem();
    /// Lies down where the object is; with text in it the editor is as high as that.
    void updateBoundingRect();
    void UpdateParent(QWidget *parent);
    /// True: text and formats travel as HTML. False, as at first: the characters alone.
    void enableHtml(bool enable);

    // Formats
    /// Merges \a format onto the selection, if there is one, and onto what is typed next.
    void mergeFormatOnWordOrSelection(const QTextCharFormat &format);
    void onTextColor(const QColor &color);

    // Aids: there are none, so these do nothing
    void UpdateToolbarPos();
    void ToolbarHasBeenDeleted();
    void hideSysKeyboard();
    void hideHandWrite();

    void PauseTimer();
    void ResumeTimer();
    /// \a rect with each side moved outwards by \a by.
    QRectF InflateRect(const QRectF &rect, int by);

    void setVisible(bool visible) override;

public Q_SLOTS:
    // In the order of the meta-object, which is part of the contract.
    void onTextBold();
    void onTextUnderline();
    void onTextItalic();
    void onTextFamily(const QString &f);
    /// \a p in points, as QString::toFloat() reads it; anything but a number above 0 changes nothing.
    void onTextSize(const QString &p);
    /// The kind of list of the caret's block: 0 none, 2 to 8 -QTextListFormat::Style, all others a disc.
    void onTextStyle(int styleIndex);
    /// Of the whole text: 1 left, 2 right, 4 and 8 themselves; other values change nothing.
    void onTextAlign(Qt::Alignment align);
    /// 1 and 2 write a mark, all others take it away.
    void onTextMark(int nMark);
    void onTextCross();
    void onSysKeyboard();
    void onHandWrite();
    void onClearText();
    void currentCharFormatChanged(const QTextCharFormat &format);
    void cursorPositionChanged();
    void focusMe();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    /// Leaving the editor does not end the edit.
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

    IVxTextEdit *m_textItem = nullptr; ///< the object being edited, not owned
    bool m_bold = false;
    bool m_italic = false;
    bool m_underline = false;
    quint16 m_mark = 0; ///< 256 superscript, 1 subscript, 0 none
    bool m_cross = false;
    bool m_focusLost = false;
    QTimer *m_timer = nullptr;    ///< optional, owned
    QObject *m_toolbar = nullptr; ///< optional, owned
    bool m_enableHtml = false;

private:
    void takeDefaultFont();
    void handOverText();
};

#endif
