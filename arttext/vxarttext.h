// SPDX-License-Identifier: MIT
// vxarttext.h -- CVxArtText, a short text poured into the envelope of a style.
// Each subject below has a file of members of its own, vxarttext_<subject>.cpp; life and the
// overlay editor's way in are in vxarttext.cpp.
#ifndef VXARTTEXT_H
#define VXARTTEXT_H

#include "arttext/ivxtextedit.h"
#include "host/framework/cbaseobject.h"
#include "host/framework/pathsmutex.h"
#include "plugin/vxarttext_shared_global.h"

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QRect>
#include <QSizeF>
#include <QTextCharFormat>
#include <QVector>

class CArtText;
class CArttextChangeCommand;
class CVxTextEdit;
class QGraphicsView;

/// A plain string of one or more lines shown as a piece of lettering. Each character is an outline;
/// all of them are bent once into the style's envelope and scaled to the client rectangle when
/// painted. Edited in place as a text item, or in an overlay editor that the object is given. The
/// outlines are drawn with the host's pen and fill of the object, not with the colours kept here.
class VXARTTEXT_EXPORT CVxArtText : public CBaseObject, public IVxTextEdit
{
    Q_OBJECT

public:
    CVxArtText(int id, bool finished, QGraphicsItem *parent, IVxPage *page);
    ~CVxArtText() override;

    // life
    int type() const override { return 75747; }
    QString getObjName() const override { return QStringLiteral("art text"); }
    bool canDo(OperationType operation) override;
    void Release() override;
    /// The painted outlines as one path, item coordinates.
    QPainterPath getClientPath() override;
    /// Sets the size; neither side becomes smaller than 6.
    void setSize(const QSizeF &size, bool undo, bool notify) override;
    /// A client rectangle with a side below 6 becomes 6 by 6.
    void LimitClientRect();
    /// Places the object: \a rect has its corner in the scene and the new client size.
    void updatePosition(QGraphicsItem *item, QRectF rect);
    /// The client rectangle grows downwards to the height of the item's document.
    void updateBoundingRect();
    /// Sets the flags of a play; nothing is played.
    void StartPlay();
    void timeoutProcess() {}

    // the overlay editor's way in
    /// Gives the object its overlay editor, which it owns from now on; an earlier one is deleted.
    /// Null takes the editor away. The editor is told of the object by CVxTextEdit::BeginEdit().
    void setTextEdit(CVxTextEdit *editor);
    CVxTextEdit *textEdit() const { return m_textEdit; }
    QRectF getTextPosition() override;
    QPoint getViewPoint() override;
    QPoint getViewGlobalPt(const QPoint &point) override;
    /// The text of the object, lines parted by line ends.
    QString getPlainText() override;
    /// Takes \a text, makes the outlines anew and repaints. No undo step.
    void setPlainText(const QString &text) override;
    /// The same as getPlainText(): the text has no formats.
    QString getTextHtml() override;
    /// Does nothing: the text has no formats.
    void setTextHtml(const QString &html) override;
    QRectF GetViewRect() override;
    void TextEditHasBeenDestroy() override;
    IVxPage *GetCurrentPage() override;

    // paths
    /// setPlainText(); the client rectangle then grows to the height of boundingRect().
    void setText(const QString &text);
    /// Takes \a text and places the object at \a rect (scene corner, client size): the way of undo
    /// and redo.
    void setTextAndRect(QString &text, QRectF rect, bool undo);
    /// Makes the outlines anew. Always true.
    bool LoadFontPath();
    /// Makes m_charPaths: outlines of the text, or of the default word, bent into the style.
    /// \param vertical lines are columns that run leftwards
    /// Takes no lock: it belongs to the GUI thread. O(characters + path elements).
    void generatePath(bool vertical);
    /// \a path of m_charPaths fitted to \a client. Rings stay round and are centred.
    /// \param source the bounds that the path is scaled from, m_pathRect
    /// \return \a path itself when m_pathRect has a width or height of 0
    QPainterPath scalePath(const QPainterPath &path, QRectF &client, QRectF &source);

    // painting
    void OnQPainterDraw(QPainter *painter) override;

    // editing
    /// Edits the text in place: only on a page and with a framework, as the one selected object, and
    /// not locked.
    void enterEdit();
    virtual void BeginEdit();
    /// Leaves edit state; a changed text becomes an undo step, and reaches the object through it.
    void EndEdit() override;

    // formats of the text item: they show while it is edited, the outlines know nothing of them
    void setFontBold(bool bold);
    void setFontItalic(bool italic);
    void setFontUnderline(bool underline);
    void setFontStrikeOut(bool strikeOut);
    void setFontFamily(const QString &family);
    /// \param size points
    void setFontSize(double size);
    void setFontColor(const QColor &color);
    /// \param mark 1 subscript, 2 superscript, anything else neither
    void setTextMark(int mark);
    /// Aligns the whole text: 1 left, 2 right, 4 centre, 8 justified; other values change nothing.
    void setTextAlign(Qt::Alignment alignment);
    /// Makes the block a list item: 0 none, 2 to 8 the negative QTextListFormat::Style, others a disc.
    void setTextStyle(int style);
    /// Does nothing: whoever calls it has stored the value.
    void setLetterSpacing(double spacing);
    /// Does nothing: whoever calls it has stored the value.
    void setRowSpacing(double spacing);
    /// Merges \a format onto the selection in edit state, onto the whole text outside it.
    void mergeFormatOnWordOrSelection(const QTextCharFormat &format);
    void setCurrentTextFormat();
    void setFillColor(const QColor &color);
    void setShadowSwitch(bool on);
    void setShadowColor(const QColor &color);
    void setShadowOffset(int x, int y);
    void setShadowAbsOffset(double x, double y);

    // records
    bool save(QDataStream &stream) override;
    bool load(QDataStream &stream) override;
    bool saveJson(QJsonObject &json) override;
    bool loadJson(QJsonObject &json) override;
    bool SavePropertyForPlayback(QDataStream &stream) override;
    bool LoadPropertyForPlayback(QDataStream &stream) override;
    bool DoPlaybackActionEx(int action, QDataStream &stream) override;

    // properties and attributes
    bool GetAttribute(int id, QDataStream &stream) override;
    bool SetAttribute(int id, QDataStream &stream, bool flag) override;
    bool SetSpecialProperty(int number, QDataStream &stream, bool flag) override;
    bool GetSpecialProperty(int number, QDataStream &stream) override;
    bool setAllAttributes(const AttributeMap &attributes, bool withUndo) override;
    bool getAllAttributes(AttributeMap &attributes) override;
    /// The attributes of the art text alone, added to \a attributes.
    void getArtTextAttributes(AttributeMap &attributes);

    // The input handling is open to those who send events without a scene.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    // life
    static constexpr int LargestPointSize = 32767; ///< that font engines can hold
    void setClientRect(const QRectF &rect);
    QGraphicsView *view() const;

    // paths
    class Q_DECL_HIDDEN OutlineMaker;
    QFont outlineFont(bool vertical) const;
    void bendPaths();
    void fitPaths();

    // painting
    void drawEdited(QPainter *painter);
    QPen outlinePen() const;
    QBrush outlineBrush() const;

    // mouse
    void finishDrawing(const QGraphicsSceneMouseEvent &event);

    // editing
    void recordEdit();

    // records
    void fillSaveParams();
    void finishLoad();

    // properties and attributes
    struct Q_DECL_HIDDEN AttributeCommand;
    struct Q_DECL_HIDDEN Numbered;
    const Numbered *numbered(int id) const;
    void setAttributesFromStream(QDataStream &stream);
    void takePointSize(double size);
    void showChange();
    void notifyAttributes();

protected:
    QColor m_colorPen; ///< text colour
    QString m_fontFamily;
    bool m_fontItalic = false;
    bool m_fontBold = false;
    bool m_fontSomehow = false;   ///< the text runs vertically
    double m_letterSpacing = 0.0; ///< absolute
    double m_rowSpacing = 0.0;
    bool m_isShadow = false;
    QColor m_colorShadow{0, 0, 0}; ///< opaque black
    int m_shadowOffsetX = 0;
    int m_shadowOffsetY = 0;
    double m_shadowAbsOffsetX = 0.0;
    double m_shadowAbsOffsetY = 0.0;
    QString m_defaultWord; ///< shown while the text is empty
    int m_transparent = 0;
    QColor m_colorBg = Qt::white;
    QColor m_colorFill = Qt::red;
    int m_textAlignment = 0x84; ///< of the lines: 1 left, 2 right, 4 centre, 8 justified
    int m_bgType = 0;           ///< grid of the background: 0 none, 1 a cross, 2 with diagonals
    bool m_playing = false;
    int m_playStep = 0;
    bool m_doPlay = false;
    int m_timerDelay = 1000; ///< milliseconds of a play step
    bool m_bgTransparent = true;
    QString m_textWord;                ///< the text
    int m_shape = 1;                   ///< number of the style
    bool m_pathsVertical = false;      ///< direction that m_charPaths were made for
    QVector<QPainterPath> m_charPaths; ///< one bent path per character or line
    QRectF m_pathRect;                 ///< bounds of m_charPaths
    int m_fontSize = 192;              ///< points
    CArtText *m_artText = nullptr;     ///< the engine, owned
    /// Client rectangle that m_scaledPaths were made for; in corners.
    QRect m_paintedRect{QPoint(0, 0), QPoint(-1, -1)};
    QVector<QPainterPath> m_scaledPaths;              ///< what is painted, item coordinates
    CVxTextEdit *m_textEdit = nullptr;                ///< the overlay editor, owned
    QFont m_font;                                     ///< of the text item while editing
    QPointF m_editPos;                                ///< scene position when the edit began
    QSizeF m_editSize;                                ///< client size when the edit began
    bool m_undoEnabled = true;                        ///< EndEdit() records a step
    CArttextChangeCommand *m_changeCommand = nullptr; ///< the last step; the host's stack owns it
    QString m_editedText; ///< the text as it stood when editing last ended
    bool m_editing = false;
    bool m_handlePressed = false; ///< the last press hit a handle, or the pointer has moved since
    int m_handleFlag = 0;         ///< the handle that the last press hit
    PathsMutex m_pathsMutex;      ///< guards the item's cursor, and the paths during painting

private:
    int m_notificationDepth = 0; ///< notifications that have not returned
};

#endif
