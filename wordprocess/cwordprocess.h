// SPDX-License-Identifier: MIT
// cwordprocess.h -- CWordProcess, the rich text object that is edited in place on a page.
// Each subject below has a file of members of its own, wordprocess_<subject>.cpp.
#ifndef CWORDPROCESS_H
#define CWORDPROCESS_H

#include "host/framework/cbaseobject.h"
#include "host/framework/pathsmutex.h"
#include "plugin/vxarttext_shared_global.h"
#include "warp/surfacetype.h"
#include "wordprocess/legacyrecords.h"

#include <QBrush>
#include <QColor>
#include <QImage>
#include <QLineF>
#include <QStringList>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QVector>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

class CArtText;
class CTextObjectBase;
class CWordManager;
class OutlineSource;
class QJsonArray;
class QTextBlock;
struct CSize;
struct TextLayout;
struct TextLine;

/// Kinds of the notification "text_operation".
enum EnumTextOperation : int {
    TextOperationAttributes = 0,       ///< caret, selection or content changed
    TextOperationMissingFonts = 1,     ///< an edit was tried while fonts are missing
    TextOperationAboutToEdit = 2,      ///< about to be edited while another tool is in use
    TextOperationEditState = 3,        ///< the edit state changed
    TextOperationPointerEntered = 4,   ///< the pointer entered the object
    TextOperationPointerLeft = 5,      ///< the pointer left the object
    TextOperationAttributeCommand = 6, ///< a keyboard command changed attributes
    TextOperationPointerShape = 7,     ///< the pointer moved over the object in edit state
};

class VXARTTEXT_EXPORT CWordProcess : public CBaseObject
{
    Q_OBJECT

public:
    CWordProcess(int id, bool finished, QGraphicsItem *parent, IVxPage *page);
    ~CWordProcess() override;

    // frame: state, lifecycle
    int type() const override { return 65543; }
    QString getObjName() const override { return QStringLiteral("wb text"); }
    /// Also from within whatever the object tells its host: it leaves its scene at once and is told of no more,
    /// finishes the call that it is in, and goes when control is back in the event loop.
    void Release() override;
    void notifyObjPropertyChanged(int code, const QString &detail) override;
    void updateAfterObjRectChanged(QGraphicsItem *item, bool notify) override;
    bool canDo(OperationType operation) override;
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    /// Enters edit state. Called again in edit state it only resets the text that endEdit() compares with.
    void beginEdit();
    /// Leaves edit state and records the edit when the plain text has changed. A quiet no-op from a thread
    /// other than the application's and on an object that is still being drawn.
    void endEdit();
    void setTextInteractionFlags(Qt::TextInteractionFlags flags);
    Qt::TextInteractionFlags textInteractionFlags() const { return m_textInteractionFlags; }
    void setControlPointDisable(bool disable);
    void updateControlHandles();
    void setFlip(bool flip, bool notify) override;
    bool isFlip() override { return m_flip; }
    void setMirror(bool mirror, bool notify) override;
    bool isMirror() override { return m_mirror; }
    /// Middle of the caret in item coordinates; (0, 0) outside edit state.
    QPoint getCursorPos() override;
    /// Plain text of the document, blocks parted by line feeds.
    QString toPlainText() const;

    // geometry
    /// Carries every change of text, format or box through layout, paths, bounds and warp.
    /// \param legacyArgument reaches the older engine only
    void updateBoundingRectImpl(bool legacyArgument);
    void updateBoundingRect(bool adjustToLayout);
    void updateTextPaths();
    /// Measures and keeps the overhang of the painted paths over the box; empty for line text, for the
    /// older engine and for an empty document.
    QRectF recordOriginalBounds();
    void useOriBounds(const QRectF &bounds);
    QRectF getClientRectForOribounds() const;
    /// Places the object: \a sceneRect has its top left in the scene and the new client size.
    void updatePosition(QGraphicsItem *item, const QRectF &sceneRect);
    /// Stretches a finished object; rewraps a box in edit state.
    void setSize(const QSizeF &size, bool undo, bool notify) override;
    /// Turns soft wraps into line ends. False for line text and for the older engine.
    /// \param textOffset receives the anchor of the line text, item coordinates
    bool wordwrap2single(QPointF &textOffset);
    QPainterPath getClientPath() override;
    QPainterPath getClientPathImpl() const;
    QRectF getDrawClientRect() override;

    // painting
    void OnQPainterDraw(QPainter *painter) override;
    void drawTextPaths(QPainter *painter);
    void drawEditStatusPath(QPainter *painter);
    void paintHandlersInScene(QGraphicsItem *item, QPainter *painter) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;
    void setTextCursorColor(QPainter *painter) const;
    /// Chooses the caret colour that stands out against \a background.
    void updateCursorColor(const QColor &background) override;
    /// Leaves the picture that stands for the text and goes back to real text.
    void img2paths();
    void updateBoundsRectForImage2Path(const QPointF &pos, const QSizeF &size);

    // mouse
    /// The document position under a point of horizontal text; a point exactly between two is before the
    /// character. Tells m_cursorAtLineEnd on which side of a wrap the point lies. Its cost grows with the line.
    /// \param point  item coordinates with flip and mirror taken out; the stretch is taken out here
    /// \return -1 where there is none, which only the older engine answers
    int hCursorPosByMouse(const QPointF &point);
    /// The same in vertical text.
    int vCursorPosByMouse(const QPointF &point);
    /// Selects the word at \a position with the blank behind it, or one mark or blank alone. The cursor
    /// stays. Nothing for a position outside the text and on the older engine.
    void doubleSelectText(int position);

    // input method
    /// Takes the preedit out of the document again; what is typed next keeps the format of the caret.
    void cleanPreeditString();

    // keyboard: selection
    /// The position to which a motion key leads: Home, End or an arrow, by the lines of the layout. The present
    /// one where there is no way on, and for other keys. Changes only m_cursorAtLineEnd.
    int cursorMove(Qt::Key key);
    void selectAll();
    void clearSelection();
    /// Removes what m_selStart to m_selEnd name, exactly, as one removal; nothing unless m_selEnd lies behind
    /// m_selStart. Does not lay out.
    void removeSelectedText();

    // formats
    /// Puts a format where it belongs: in edit state on the selection, or at the caret for what is typed
    /// next; outside it on all text, a size in pixels run by run. An empty document takes it at its cursor.
    /// Never lays out. \return true
    bool updateCharFormat(const QTextCharFormat &format);
    /// Likewise on the paragraphs of the selection or of the caret; outside edit state on all of them.
    bool updateBlockFormat(const QTextBlockFormat &format);
    /// Gap ahead of the one character right of the cursor, thousandths of the point size. Does nothing behind
    /// the last character of a paragraph, and ahead of its first when that is not a run of its own.
    void setCharLetterSpacing(double value);
    /// Both letter spacings of \a format together, pixels at the document's dpi.
    double letterSpacing(const QTextCharFormat &format) const;
    void checkParagraphAlignType() const;
    /// Transform from paths of stretch 1 to scene coordinates, for the record of the object.
    QTransform getTextTransform();
    /// What the two formats have in common; \a a itself when they are equal. A property that differs is left
    /// out or stays as "", as its kind is shown.
    QTextCharFormat compareCharFormat(const QTextCharFormat &a, const QTextCharFormat &b) const;
    QTextBlockFormat compareBlockFormat(const QTextBlockFormat &a, const QTextBlockFormat &b) const;
    /// Orders the selection and keeps it within the document. \return true when something is selected
    bool selection(int &start, int &end) const;

    // clipboard
    /// Puts the selection on the clipboard, rich and plain. False without a selection: the clipboard stays;
    /// and, like cut() and paste(), false in a program that has no clipboard.
    bool copy();
    /// copy(), and removeSelectedText() when that went well. Does not lay out.
    bool cut();
    /// Inserts the clipboard's best form in place of the selection, as one step of the document's own undo.
    /// False when it has nothing to paste.
    /// \param newObject  the object was made for this text and is finished by it
    /// \param rich       takes formats along where the clipboard has them
    bool paste(bool newObject, bool rich);
    /// Empty without a selection. Blocks are parted by line feeds.
    QString getSelectedText() const;
    QString getPlainTextFromHtmlText(const QString &html) const;

    // undo
    /// Records a step between two document strings. The step rebuilds the object from \a after at once.
    void pushUndoRedo(const QString &before, const QString &after);
    /// Rebuilds the object from a document string, in edit state or out of it, and lays it out. A string that
    /// cannot be read leaves the document. \param notify tells listeners and the thumbnail
    void undoRedo(const QString &data, bool notify);
    /// What a step on the host's stack does, either way: undoRedo() with notice. An open edit begins anew there.
    /// \return the state with what listeners have commanded of this object meanwhile, which belongs to the
    /// step; null when they have not
    QString carryOutStep(const QString &data);

    // warping
    /// Makes the warped paths anew when a warp is set, and gives the object their box; without one, and for a text
    /// or a warp that cannot be bent to finite paths, the plain box. In edit state text stands unwarped.
    /// Its cost grows with the elements of the outlines; nothing is laid out.
    void updateMorphTextPaths();
    /// Bends \a paths in place by the object's warp. Holds no lock.
    /// \param rect  box of the unwarped text, item coordinates; its size is that of the surface
    /// \param pos   receives the offset of the warped text against the unwarped one, whole numbers
    /// \param size  receives the size of the warped text, whole numbers
    /// \return false when there is no warp or nothing to bend: \a paths are then of no use
    bool textMorphing(QList<QPainterPath> &paths, const QRectF &rect, QPointF &pos, QSizeF &size);
    /// The warp itself: net, walk, placement. Straight segments stay chords.
    /// \param bounds    of all paths together
    /// \param outRect   receives offset and size, as above
    /// \param reserved  never touched
    /// \param type      the shape; whether there is a warp at all the object's own style says
    /// \return false also for a side of \a rect that is 0 or not finite, and for a result that is not
    bool textTransform(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                       QList<QPainterPath> &paths, QRectF &reserved, SurfaceType type);
    /// Moves element \a index, which must exist, and lets m_warpMin and m_warpMax follow.
    void setPathElementPos(QPainterPath &path, int index, QPointF pos);
    /// Baselines of the unwarped text, item coordinates at stretch 1.
    QList<QLineF> getAllBaseLines() const;

    // warp handlers: the older way to warp, one function a style. Nothing that is painted goes through them.
    // Each bends paths in place between two guide lines of the art engine, which stay there, or over a net.
    // rect: box of the text; bounds: box of all paths; outRect: receives the warped box, its corner being the offset
    // by which it grew; pathBounds: receives the box of the result. False for a value of 0 or not finite, and
    // where a guide line cannot be drawn; paths may have changed by then.
    bool warpArcHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                       QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpArcLowerHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                            QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpArcUpperHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                            QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpArchHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                        QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpBulgeHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                         QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpShellLowerHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                              QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpShellUpperHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                              QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpFlagHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                        QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpWaveHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                        QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpFishHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                        QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpRiseHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                        QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpFisheyeHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                           QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpInflateHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                           QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpSqueezeHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                           QList<QPainterPath> &paths, QRectF &pathBounds);
    bool warpTwistHandle(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                         QList<QPainterPath> &paths, QRectF &pathBounds);
    /// Perspective to a side by m_warpHorizontalValue; above 0 the left side is the narrow one.
    bool horizontalWarp(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                        QList<QPainterPath> &paths, QRectF &pathBounds);
    /// Perspective up or down by m_warpVerticalValue; above 0 the top is the narrow side.
    bool verticalWarp(const QRectF &rect, const QRectF &bounds, QRectF &outRect,
                      QList<QPainterPath> &paths, QRectF &pathBounds);
    /// The common end of the handlers with guide lines: carries \a paths between them and fits the result to the size
    /// of \a outRect, at the origin.
    /// \param size  what the guide lines were made for
    /// \return false when nothing has changed, measured by \a bounds; the last path is lost then
    bool lensDeform(const QRectF &rect, const QRectF &bounds, CSize &size, QRectF &outRect,
                    QList<QPainterPath> &paths, QRectF &pathBounds, bool vertical);

    // attributes
    QTextCharFormat attr2CharFormat(const AttributeMap &attributes) const;
    QTextBlockFormat attr2BlockFormat(const AttributeMap &attributes) const;
    /// Adds every character key to \a attributes. \param blankMissing shows what was never set as ""
    void charFormat2Attr(const QTextCharFormat &format, AttributeMap &attributes,
                         bool blankMissing) const;
    /// Adds every paragraph key to \a attributes, under the same terms.
    void blockFormat2Attr(const QTextBlockFormat &format, AttributeMap &attributes,
                          bool blankMissing) const;

    // document string
    /// The document as compact JSON: whole with its header, or the selection without one.
    QString serialize(bool selectionOnly) const;
    /// Replaces the document and the header, or inserts at the cursor and ignores the header. Text that is
    /// no document string changes nothing.
    void deserialization(const QString &text, bool insertAtCursor);

    // records
    bool save(QDataStream &stream) override;
    bool load(QDataStream &stream) override;
    bool saveJson(QJsonObject &json) override;
    bool loadJson(QJsonObject &json) override;

    // fonts and units
    /// Lists the families of a document string that are not installed in m_missingFonts and empties
    /// m_replacedFonts. \return true when all are installed; text that does not parse has no fonts
    bool fontExists(const QString &documentString);
    /// Points of \a fromDpi as points of \a toDpi that are as long. \a value itself where that is no number.
    double getPointForDpi(int fromDpi, int toDpi, double value) const;
    /// Rewrites sizes, margins and spacings of the document from \a dpi to the document's own resolution, and
    /// pixel sizes to points; percentages stay. A resolution that no document can have changes nothing.
    void px2pt(double dpi);
    /// Gives each run that has a point size its size in pixels too. Nothing in edit state.
    void refreshPixel();
    /// px2pt() at the document's own resolution, and tells listeners. Nothing in edit state.
    void refreshFontPixel2Point();
    /// HTML for use outside: whole point sizes in pixels of the screen, and one family for all.
    QString replacePtToPx(QString html);
    /// Gives text of family \a from the family \a to, which is looked up in the catalogue, and keeps the
    /// former name beside it. Nothing in edit state; never lays out.
    /// \param byFormerName \a from is the name before an earlier replacement, and stays that name
    void fontReplace(const QString &from, const QString &to, bool byFormerName);
    /// Room that \a text takes in the cursor's font, or in the host's default one, in pixels.
    QSizeF getDefaultTextSize(const QString &text);
    /// Ink of \a text in \a format with the blanks at its ends, pixels at the document's dpi.
    QSizeF getTextSize(const QString &text, const QTextCharFormat &format) const;
    /// The side of getTextSize() that lies along the line.
    double textWidth(const QString &text, const QTextCharFormat &format) const;
    /// Outline of \a text for the older layout: scaled, half the size in superscript and subscript, turned
    /// for columns unless \a asHorizontal.
    /// \param advance       receives the right edge of the unscaled ink, scaled
    /// \param extraSpacing  added behind each character, pixels
    QPainterPath fragmentPath(const QPointF &pos, const QTextCharFormat &format,
                              const QString &text, double &advance, double extraSpacing,
                              bool asHorizontal) const;
    /// The same; \a lowerEdge receives the lower edge of the unscaled ink, scaled like the advance.
    QPainterPath fragmentPath(const QPointF &pos, const QTextCharFormat &format,
                              const QString &text, double &advance, double &lowerEdge,
                              double extraSpacing, bool asHorizontal) const;
    /// How many characters of \a text fit into \a limit behind \a used pixels; -1 when not even an empty
    /// text does, or there is none. Never between the halves of a code point.
    int autoWrapIndex(const QString &text, const QTextCharFormat &format, double used,
                      double limit);

    // attribute commands
    /// Carries out what a host's panel asks for: text, form, orientation, and formats, which land as
    /// updateCharFormat() says. Unknown keys and values of no use do nothing. The object is laid out afterwards.
    /// \param withUndo  records one step for all of it, unless "text_init_flag" is set; in edit state a format
    ///                  at the caret is left to the step of the edit
    /// \return true when something has changed that a step was wanted for, and for a change of the form
    bool setAllAttributes(const AttributeMap &attributes, bool withUndo) override;
    /// Adds every key: what all text has in common outside edit state, else the selection or the caret. What
    /// differs is "". \return true
    bool getAllAttributes(AttributeMap &attributes) override;

    // properties
    /// Carries out the command \a number with the arguments in \a stream; nothing when they are incomplete, but
    /// a new object whose first text is missing is finished all the same. An old status of \a stream is reset.
    /// \return true for a number of our own, otherwise the host's answer
    bool SetSpecialProperty(int number, QDataStream &stream, bool flag) override;
    /// Writes the answer to \a number into \a stream. \return as above
    bool GetSpecialProperty(int number, QDataStream &stream) override;

    // notifications
    /// Tells the host's sink an operation of kind \a operation; \a map counts for the last two kinds only.
    /// Nothing is sent without values, nor from within three notifications: one of kind 0 makes up for all that
    /// this leaves out, once the outermost of the three has returned.
    void notifyTextOperation(EnumTextOperation operation, const AttributeMap &map);

    // legacy layout
    /// Lays text of the older engine out into m_legacyLines and gives line text its size. Nothing for text of
    /// the current engine. \param argument has no effect
    void updateBoundingRectForOldVersion(bool argument);
    /// Line text, one line a paragraph. \return its size; (-1, -1) for box text and for the other orientation
    QSizeF hTextLayout();
    QSizeF vTextLayout();
    /// Box text of either orientation. Outside edit state asks to be painted anew.
    void multiTextLayout();
    /// Box text, wrapped at the client width. No lines for line text and for vertical text.
    void hMultiTextLayout();
    /// Box text, wrapped at the client height. No lines for line text and for horizontal text.
    void vMultiTextLayout();
    /// Adds the runs of \a block to \a fragments; with compressed punctuation each mark is one of its own.
    void getFragments(const QTextBlock &block, QList<SFragment> &fragments) const;
    /// Where a line begins by its alignment, in a room of \a extent pixels.
    /// \param spacing  receives attachSpacing()
    /// \return false when margins and indent leave no room: \a spacing is left alone then
    bool lineXOffset(const STextLine &line, double extent, double &start, double &spacing) const;
    /// Space that justifies the line, behind each of its characters but one; 0 for other alignments.
    double attachSpacing(const STextLine &line) const;

    // legacy layout: line ends
    /// Keeps forbidden characters from the ends of the last of \a lines.
    /// \param rule       0 none, 1 relaxed, else strict
    /// \param available  pixels along the line
    /// \param moved      takes what belongs on the next line, ahead of what it holds
    void avoidHeadTail(int rule, QList<STextLine> &lines, double available,
                       QList<STextItem> &moved);
    /// Takes a Latin word that the end of the last of \a lines cuts off that line, or a letter of it.
    /// \param moved  receives what belongs on the next line
    /// \return the number of characters that left the line, 0 for a whole word
    int ligatureText(bool hyphenate, QList<STextLine> &lines, QList<STextItem> &moved);

    // legacy layout: painting
    /// Puts the outlines of all lines in their places. \param maxWidth  room along the lines
    void generatorHorizontalTextPaths(double maxWidth);
    /// Likewise for columns. \param heightSum  right edge of the first \param maxLength  room along them
    void generatorVerticalTextPaths(double heightSum, double maxLength);
    void horizontalPaint(QPainter *painter);
    void verticalPaint(QPainter *painter);
    void drawHorizontalText(QPainter *painter);
    void drawVerticalText(QPainter *painter);
    void drawDefaultWord(QPainter *painter);

    // legacy layout: pointer
    /// The document position under \a point, item coordinates without flip and mirror; a point exactly between
    /// two is before the character. -1 below the last line, beyond the last column, and without lines.
    int legacyPositionUnder(const QPointF &point);
    /// Selects the first line on which \a position stands; nothing for a position that is on none.
    void selectLegacyLine(int position);

    // QObject and item events
    void timerEvent(QTimerEvent *event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    /// Takes no notice of \a event, which may be null.
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;
    /// Puts composed text into the document as if it were typed: a preedit until the next event takes it out.
    void inputMethodEvent(QInputMethodEvent *event) override;
    /// Where an input method shows its window: below the caret as it was painted last, item coordinates.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    /// Carries out every key of an edit, and accepts each; outside edit state the key is ignored.
    void keyPressEvent(QKeyEvent *event) override;
    bool sceneEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

protected:
    friend class CTextObjectBase; // the one reader of the fields outside

    /// Overhang of the painted paths over the box: left and top not above 0, right and bottom not below.
    struct BoundsMargins {
        double left = 0, top = 0, right = 0, bottom = 0;
    };
    using WarpHandler = bool (CWordProcess::*)(const QRectF &, const QRectF &, QRectF &,
                                               QList<QPainterPath> &, QRectF &);

    Qt::TextInteractionFlags m_textInteractionFlags = Qt::NoTextInteraction;
    int m_textOrientation = Qt::Horizontal;
    QTextDocument *m_document = nullptr; ///< owned
    QTextCursor *m_cursor = nullptr;     ///< owned; the one cursor, deleted before the document
    bool m_cursorVisible = false;        ///< blink phase of the caret
    bool m_wordWrap = false;             ///< box text as against line text
    bool m_autoWordWrap = false;         ///< the box follows its text
    bool m_editing = false;
    bool m_defaultFollow = false;
    QString m_defaultWord; ///< shown while the document is empty
    int m_selStart = 0;    ///< the selection, kept apart from that of m_cursor
    int m_selEnd = 0;
    int m_selAnchor = -1; ///< fixed end of a selection, negative for none
    QList<STextLine> m_legacyLines;
    QPointF m_legacyTextSize;
    bool m_mouseSelecting = false;
    bool m_dragMovesObject = false;
    int m_cursorTimerId = 0;
    QString m_preeditString; ///< preedit text now standing in the document
    int m_documentDpi = 96;
    bool m_hasFocus = false;
    bool m_newVersion = true;              ///< current engine, not the older one
    CWordManager *m_wordManager = nullptr; ///< owned
    QPointF m_textOffset;                  ///< anchor of line text, item coordinates
    QImage m_fontImage;                    ///< picture of the text while fonts are missing
    QPointF m_fontImagePos;
    QSizeF m_fontImageSize = QSizeF(0, 0);
    QStringList m_missingFonts;
    QStringList m_replacedFonts;
    QRectF m_fontImageClient;
    double m_fontImageRotation = 0; ///< degrees
    bool m_showFontImage = false;
    QString m_missingFontHint;
    QString m_fontReplaceData; ///< document string held back across a font replacement
    QString m_editStartText;
    QString m_editStartData;
    bool m_cursorAtLineEnd = false; ///< at a wrap: the caret stands at the start of the next line
    BoundsMargins m_boundsMargins;
    double m_scaleX = 1.0; ///< stretch of the text
    double m_scaleY = 1.0;
    double m_transformScaleX = 1.0; ///< second stretch, of box text from old records
    double m_transformScaleY = 1.0;
    double m_fontImageScaleX = 1.0;
    double m_fontImageScaleY = 1.0;
    QSizeF m_baseSize = QSizeF(-1, -1); ///< size at stretch 1
    int m_warpStyle = 0;
    double m_warpValue = 0;
    double m_warpHorizontalValue = 0;
    double m_warpVerticalValue = 0;
    int m_warpOrientation = Qt::Horizontal;
    CArtText *m_artText = nullptr;    ///< owned
    QList<QPainterPath> m_textPaths;  ///< outlines at stretch 1, item coordinates
    QRectF m_textPathsRect;           ///< m_clientRect when m_textPaths were taken
    QList<QPainterPath> m_morphPaths; ///< warped copies, empty without a warp
    QRectF m_morphRect;
    QList<QBrush> m_pathBrushes;
    PathsMutex m_pathsMutex; ///< guards both path lists, their rectangles and brushes
    QMap<int, WarpHandler> m_warpHandlers;
    std::atomic<bool> m_flip{false};
    std::atomic<bool> m_mirror{false};
    QColor m_cursorColor = Qt::black;
    QPointF m_cursorEndScenePos; ///< lower end of the caret as last painted
    QLineF m_cursorLine;         ///< caret in scene coordinates as last painted
    bool m_fontImageDropped = false;
    QPointF m_warpMin = QPointF(99999, 99999); ///< running extremes of the warped positions
    QPointF m_warpMax = QPointF(-99999, -99999);
    QRectF m_warpBounds;
    bool m_pathsArePlaceholder = false; ///< m_textPaths shows m_defaultWord; guarded with them
    bool m_changingEditState = false;   ///< beginEdit() or endEdit() is under way: no way back in
    double m_legacyExtent = 0; ///< room along m_legacyLines, for which their outlines were placed
    double m_legacyFlow = 0;   ///< right edge of the first column of m_legacyLines
    std::unique_ptr<OutlineSource> m_legacyOutlines; ///< never null; the glyphs of a layout

    void initMorphHandles();
    /// Flip about the horizontal centre line, mirror about the vertical one; without the stretch.
    QTransform flipTransform() const;
    /// The paint transform: flip, mirror, stretch.
    QTransform paintTransform() const;

private:
    // frame
    /// Stands around every call that leaves the object for its host: a Release() that comes back from there
    /// waits, so that no call of ours finds the object gone.
    class KeepAlive
    {
        Q_DISABLE_COPY(KeepAlive)

    public:
        explicit KeepAlive(CWordProcess &object)
            : m_object(object)
        {
            ++m_object.m_keepAliveDepth;
        }
        ~KeepAlive() { m_object.endKeepAlive(); }

    private:
        CWordProcess &m_object;
    };
    int m_keepAliveDepth = 0;
    bool m_releaseWaits = false;
    bool m_releaseIsPosted = false;
    void endKeepAlive();
    void releaseAtLast();
    void enableAllHandles();
    void takeEditAppearance();
    void leaveEditAppearance();
    void finishNewObject();
    void turnFontImage(Qt::Axis axis);
    bool fontsAreComplete() const { return m_replacedFonts.size() == m_missingFonts.size(); }

    // geometry
    void setClientSize(const QSizeF &size);
    void moveToWarpOrigin();
    void returnToTextBox();
    void followTextBox();
    void layOutAgain();
    QPointF topLeftAroundCentre(const QRectF &box) const;
    void stretchTo(const QSizeF &size, bool undo, bool notify);
    void reflowTo(const QSizeF &size, bool notify);
    QPointF anchorOfFirstLine(const TextLayout &layout) const;
    void turnSoftWrapsIntoLineEnds(const TextLayout &layout);

    // formats
    void applyToAllRuns(const QTextCharFormat &format);
    void applyAtCursor(const QTextCharFormat &format);
    /// Lets the cursor select what the fields say and nothing else.
    void putCursorOnSelection();

    // painting
    void drawDragFrame(QPainter *painter);
    void paintAnchorAndBaselines(QPainter *painter, const QTransform &toScene);
    void paintCaret(QPainter *painter, const QTransform &toScene);
    QFont hintFont() const;
    QSizeF fontImageStretch() const;

    // warping
    class SurfaceWalk;
    /// What the unwarped text leaves free of its box, single precision; negative where it juts out.
    struct WarpGap {
        float width, height;
    };
    void addWarpAttributes(AttributeMap &attributes) const;
    /// Outlines as they are bent, with a curve over each straight segment, for as long as the text keeps them.
    struct Bendable {
        QList<QPainterPath> source; ///< the m_textPaths that the others were made of
        QList<QPainterPath> paths;
        QRectF bounds; ///< of all paths
    };
    Bendable m_bendable;
    unsigned m_bendingRound = 0; ///< counts the calls of updateMorphTextPaths()
    bool bendTextPaths();
    void prepareBending(const QList<QPainterPath> &source);
    QPolygonF warpedNet(const QSizeF &size, SurfaceType type, float value) const;
    QRectF placeCentred(QList<QPainterPath> &paths, const WarpGap &gap) const;
    QRectF placeInPositive(QList<QPainterPath> &paths, const WarpGap &gap, const QSizeF &unwarped,
                           bool staysOnTop) const;
    QRectF warpedSceneBox(const QRectF &box) const;
    void takeMorphPaths(QList<QPainterPath> &paths, const QRectF &box);
    void dropMorphPaths();
    void applyStretchToBox();

    // warp handlers
    class GuidePen;
    GuidePen guidePen(const QRectF &rect) const;
    bool pourInto(const GuidePen &pen, double across, double offset, const QRectF &rect,
                  const QRectF &bounds, QRectF &outRect, QList<QPainterPath> &paths,
                  QRectF &pathBounds);
    bool bendEdges(double amount, bool vertical, QRectF &outRect, QList<QPainterPath> &paths,
                   QRectF &pathBounds);
    static bool carryOverNet(const QVector<QPointF> &net, const QSizeF &size,
                             QList<QPainterPath> &paths, QRectF &pathBounds);

    // mouse
    QVector<qreal>
        m_lineEdges; ///< of each line: how far down the flow of lines it and those before it reach
    void forgetLineEdges() { m_lineEdges.clear(); }
    QPointF textPoint(const QGraphicsSceneMouseEvent &event) const;
    int positionUnder(const QGraphicsSceneMouseEvent &event);
    const QVector<qreal> &lineEdges(const TextLayout &layout);
    int positionInLines(qreal across, qreal along, Qt::Orientation orientation);
    int positionInLine(const TextLine &line, qreal along, Qt::Orientation orientation);
    void pressInEdit(const QGraphicsSceneMouseEvent &event);
    void enterEditByPress(const QGraphicsSceneMouseEvent &event);
    void enterEditByDoubleClick();
    void deselectOtherObjects();
    void takePressedPosition(int position);
    void selectUpTo(int position);
    bool isSeamPossible(int position) const;
    /// At a wrap \a position shows at the start of the next line. Behind the last character of a paragraph there
    /// is no such line: caret and selection would vanish.
    bool showsOnNextLine(int position) const
    {
        return m_cursorAtLineEnd && isSeamPossible(position);
    }
    void takeDrawnForm();
    void announceNewObject();

    // input method
    /// Ends a composition: its text stays in the document as if it had been committed.
    void endComposition() { m_preeditString.clear(); }
    /// The same in the middle of an edit, where the input method has to forget its preedit too.
    void settleComposition();
    void compose(const QInputMethodEvent &event);

    // keyboard
    struct KeyPress;
    /// Does what a key asks for. \return true when the object is to be painted anew
    using KeyAction = bool (CWordProcess::*)(const KeyPress &press);
    static KeyAction keyAction(const KeyPress &press);
    static bool actsOn(const KeyPress &press);
    bool keySelectAll(const KeyPress &press);
    bool keyUndo(const KeyPress &press);
    bool keyRedo(const KeyPress &press);
    bool keyCopy(const KeyPress &press);
    bool keyCut(const KeyPress &press);
    bool keyPaste(const KeyPress &press);
    bool keyCommand(const KeyPress &press);
    bool keyBlockEdge(const KeyPress &press);
    bool keyBackspace(const KeyPress &press);
    bool keyDelete(const KeyPress &press);
    bool keyReturn(const KeyPress &press);
    bool keyEscape(const KeyPress &press);
    bool keyText(const KeyPress &press);
    bool keyMotion(const KeyPress &press);
    void changeHistory(void (QTextDocument::*step)());
    bool hasSelection() const;
    /// Drops a selection that the cursor alone still holds: what does not look selected is never replaced.
    void dropCursorSelection();
    void removeOneOrSelection(void (QTextCursor::*removeOne)(), bool isOne);
    void removeSelectionForInput();
    void extendSelection(int from, int to);
    void showStoredText();
    int positionBesideCaret(bool forward);

    // clipboard
    QString offeredText(bool rich, bool &isRich) const;
    void replaceByPasted(const QString &text, bool isRich, bool withDefaultLook);
    void takeDefaultLook();

    // undo
    /// The document string of the present state, for a step: no composition is open in it.
    QString stateForUndo()
    {
        endComposition();
        return serialize(false);
    }
    /// Where a step starts from: the state ahead of a command, or what m_fontReplaceData held.
    enum class StepStart { Present, Held };
    int m_stepsAtWork = 0;          ///< steps of this object that are rebuilding it now
    bool m_stepHasGrown = false;    ///< a listener's command belongs to the innermost of them
    bool m_heldAheadOfEdit = false; ///< m_fontReplaceData is older than the start of the edit
    QString m_waitingStep; ///< start of a step that no stack could take yet; empty for none
    void pushStep(const QString &before, const QString &after, StepStart origin);
    void pushLater(const QString &before);
    void pushWaitingStep(const QString &end);
    void startEditHere();
    void adoptWordWrap(bool wasWrapped);
    void leaveFontImageOfOldVersion();
    void returnToFontImage();

    // document string
    static bool hasContent(const QString &documentString);
    void writeHeader(QJsonObject &json) const;
    void insertContent(const QJsonArray &blocks, const QJsonArray &runs);
    void restoreHeader(const QJsonObject &header);
    void restoreCursorSelection();

    // records
    void fillSaveParams();
    void fillPlacementParams();
    QPointF textOriginBehindImage() const;
    void fillBoundsParams();
    void storeImageInParams();
    void readSaveParams(const QString &olderText);
    void readHtml(const QString &html);
    void readDocumentData();
    QSizeF readBounds();
    void readPlacement(const QSizeF &size);
    void readPlacementMatrix();
    void takeStretch(double m11, double m12, double m21, double m22);
    void readFontImage(const std::function<void(IDocumentHost &, QString &)> &readOlderImage);
    void finishLoading();
    void keepSavedBox(const QSizeF &size, const QPointF &centre, double angle);
    bool isPictureOf(const QPointF &centre) const;
    void standWhereSaved(const QPointF &centre, double angle);
    void showFontImage(const QString &documentString);

    // legacy layout
    /// A run of \a text with its outline at the origin. Empty text has none.
    STextItem legacyItem(const QTextCharFormat &format, const QString &text, int position,
                         bool upright) const;
    /// Gives a run another text, and the outline of it at the origin; format, bars and spacing stay.
    void replaceItemText(STextItem &item, const QString &text) const;
    struct LegacyFlow;
    struct LegacySize;
    STextItem emptyLegacyItem(const QTextBlock &block) const;
    QList<STextItem> legacyItems(const QTextCharFormat &format, const QString &text, int position,
                                 Qt::Orientation orientation) const;
    LegacySize layOutLineText(Qt::Orientation orientation);
    STextLine lineOfBlock(const QTextBlock &block, Qt::Orientation orientation,
                          double &itemWidths) const;
    void wrapBlocks(Qt::Orientation orientation, double extent);
    void wrapFragment(LegacyFlow &flow, const SFragment &fragment);
    int breakLine(LegacyFlow &flow, const SFragment &fragment, const QString &piece);
    void openLine(LegacyFlow &flow, bool isFirst) const;
    void closeLine(LegacyFlow &flow, bool isLast) const;
    void closeBlock(LegacyFlow &flow);
    void takeLegacySize(const QSizeF &size);

    // legacy layout: line ends
    bool repairLineHead(int rule, QList<STextLine> &lines) const;
    void cutOverflow(STextLine &line, double available, QList<STextItem> &moved);
    void repairLineTail(int rule, STextLine &line, QList<STextItem> &moved) const;
    void moveCutWord(STextLine &line, QList<STextItem> &moved) const;
    bool cutByHyphen(STextLine &line, QList<STextItem> &moved) const;
    STextItem itemPart(const STextItem &item, int first, int end) const;
    void updateLine(STextLine &line) const;

    // legacy layout: places on the lines
    struct LegacyRow;
    struct LegacyPlace;
    struct LegacySpan;
    QVector<LegacyRow> legacyRows() const;
    double legacyAdvance(const STextItem &item, double spacing) const;
    double legacyPrefix(const STextItem &item, int length, double spacing) const;
    int charactersBefore(const STextItem &item, double along, double spacing) const;
    int charactersBeforeByHalving(const STextItem &item, double along, double spacing) const;
    int positionInRow(const LegacyRow &row, double along) const;
    std::optional<LegacyPlace> legacyPlaceOf(int position, const QVector<LegacyRow> &rows) const;
    LegacySpan selectedSpan(const QVector<LegacyRow> &rows) const;
    double rowEnd(const LegacyRow &row) const;
    QRectF rowBand(const LegacyRow &row, double from, double to) const;
    /// The caret, item coordinates: from its upper to its lower, or its left to its right end; null where the
    /// position is on no line.
    QLineF legacyCaretLine() const;
    QLineF legacyCaretLine(const QVector<LegacyRow> &rows) const;

    // legacy layout: painting
    struct LegacyDefaultWord;
    /// The bars of a run. \param band  its part of the line
    using LegacyBars = QVector<QRectF> (*)(const STextItem &item, const QRectF &band,
                                           double thickness);
    void remakePath(STextItem &item, double spacing) const;
    void paintLegacy(QPainter *painter, void (CWordProcess::*drawText)(QPainter *));
    void drawRows(QPainter *painter, LegacyBars barsOf);
    void paintLegacyCaret(QPainter *painter, const QLineF &caret);
    LegacyDefaultWord legacyDefaultWord() const;
    QFont legacyDefaultFont() const;

    // fonts and units
    int surelyWideFrom(const QString &text, const QTextCharFormat &format, double room) const;
    int wrapIndex(const QString &text, const QTextCharFormat &format, double used, double limit,
                  int wideFrom) const;
    QTextBlockFormat rescaled(QTextBlockFormat format, int fromDpi) const;
    QTextCharFormat rescaled(QTextCharFormat format, int fromDpi, double dpi) const;
    void leaveRewriting();

    // attribute commands
    struct AttributeCommand;
    void foldFormats(QTextCharFormat &charFormat, QTextBlockFormat &blockFormat, int start,
                     int end) const;
    QTextCharFormat charFormatAtCaret() const;
    void addObjectAttributes(AttributeMap &attributes) const;

    // properties
    struct Properties;
    void setWarp(QDataStream &stream);
    void replaceFont(QDataStream &stream);
    void holdReplaceData();
    void restoreReplaceData();
    std::optional<QColor> colorOfFirstRun() const;

    // properties that bring a text
    struct PlacedText;
    void setFirstText(QDataStream &stream);
    void setPlacedText(QDataStream &stream);
    void takePlacement(const PlacedText &text);
    void layOutPlacedText(const PlacedText &text);
    void setReplacedText(QDataStream &stream);

    // notifications
    int m_notificationDepth = 0;
    bool m_notificationLeftOut = false; ///< too many were under way
    bool m_quiet = false; ///< a command of the input method is under way: nobody is told
    void sendTextOperation(EnumTextOperation operation, const AttributeMap &map);
    AttributeMap textOperationMap(EnumTextOperation operation, const AttributeMap &map);
};

#endif
