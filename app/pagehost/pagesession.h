// SPDX-License-Identifier: MIT
// pagesession.h -- an open page: its file, its edit, and the commands of the Edit menu.
#ifndef PAGEHOST_PAGESESSION_H
#define PAGEHOST_PAGESESSION_H

#include "app/page/openpage.h"
#include "app/page/page.h"
#include "app/pagehost/editchanges.h"
#include "app/pagehost/objectsteps.h"

#include <QObject>
#include <QStringList>

#include <memory>

class CUndoRedo;
class LongWork;
class PluginLoader;
class QJsonArray;
class QMimeData;

/// One page in the editor. Knows nothing of windows.
class PageSession : public QObject, private IPageWatcher
{
    Q_OBJECT

public:
    /// An empty page. \param loader is loaded and outlives the session
    static std::unique_ptr<PageSession> create(const PluginLoader *loader);
    /// The page of a file; null with \a error, which says what is wrong and where.
    static std::unique_ptr<PageSession> open(const PluginLoader *loader, const QString &fileName,
                                             QString &error);
    /// The same, as long as \a work is wanted; null with an empty \a error when it is not any more.
    static std::unique_ptr<PageSession> open(const PluginLoader *loader, const QString &fileName,
                                             QString &error, LongWork &work);
    /// The page of the file \a copy as a modified one of the file \a fileName, which may be empty. As
    /// open() as long as \a work is wanted.
    static std::unique_ptr<PageSession> recover(const PluginLoader *loader, const QString &copy,
                                                const QString &fileName, QString &error,
                                                LongWork &work);
    ~PageSession() override;

    /// Writes the page; the file so far stays as "NAME~". An open edit goes on afterwards with its
    /// caret where it was. On failure false, with \a error; a file that was there before is as it was.
    bool save(const QString &fileName, QString &error);
    /// The same, as long as \a work is wanted; false with an empty \a error when it is not any more.
    bool save(const QString &fileName, QString &error, LongWork &work);
    /// The page as it stands, with what is being typed and composed: nothing of that ends. A new text
    /// that is still empty is left out.
    bool snapshot(PageFile &file, QString &error) const;
    /// Differs when something has changed since the last call that may make another snapshot. The
    /// same changes with selection and look too.
    QString contentMark() const;
    /// Empty for a page without a file.
    QString fileName() const { return m_fileName; }
    /// True when another program has changed the file since it was opened or saved here.
    bool isFileForeign() const;
    /// What was left out when the page was opened, a sentence each.
    QStringList warnings() const { return m_open->warnings(); }
    bool isModified() const;

    Page *page() const { return m_open->page(); }
    CUndoRedo *undoStack() const;
    QSize size() const { return m_open->size(); }
    QColor background() const { return m_open->background(); }
    /// The object in edit state, or null.
    CVXRootObject *editedObject() const;
    /// The families that texts of the page name and that are not installed.
    QStringList missingFonts() const;

    /// Puts an object of \a tool on the page that the user is about to draw from \a pos (scene) on.
    CVXRootObject *startDrawing(int tool, const QPointF &pos);
    /// Throws away an object whose drawing the user has given up.
    void cancelDrawing(CVXRootObject *object);
    /// Selects the object that has been drawn. A text enters its edit; an art text shows a hint.
    void takeDrawn(CVXRootObject *object);
    /// Makes \a object the only selected one.
    void select(CVXRootObject *object) { selectOnly({object}); }
    /// Ends an open edit. A new text that is still empty goes, with all its steps.
    /// \return false when a text went that way
    bool endEdit();
    /// To be called when the edited text is about to end its edit itself.
    void prepareEndOfEdit();
    /// To be called when an object says that its edit has begun or ended.
    void noteEditState();
    /// To be called for whatever may change the edited text beside a motion of the caret.
    void noteEditInput();
    /// To be called ahead of a step of an edit: the step by which a new text has come stands before it.
    void recordNewText();

    /// Brackets a drag that moves the edited text or resizes its box. Its end is one step.
    void startEditDrag();
    void finishEditDrag();
    /// Without a drag these do nothing; giving it up brings back where the text was.
    void giveUpEditDrag();
    bool isInEditDrag() const { return m_editDragged != nullptr; }

    /// Undoes the last step, and with it all that an open edit has changed. What the edit had undone
    /// itself comes back by redo() as well.
    void undo();
    void redo();
    /// As the keys for it do in an edit: what the text has to undo of its own, and otherwise the last step.
    void undoInEdit();
    void redoInEdit();
    bool canRedo() const;
    /// What undo() takes back and redo() brings back: keys of the framework's words, empty for nothing.
    QString undoName() const;
    QString redoName() const;
    void cut();
    void copy();
    /// True for a clipboard of what copy() puts there.
    static bool hasObjects(const QMimeData &data);
    /// Into the edited text, or as new objects as long as \a work is wanted; a text gets its upper left
    /// corner to \a place (scene). False for more objects than can be taken.
    bool paste(const QPointF &place, LongWork &work);
    /// The same with nothing but the characters of what is on the clipboard, as a text.
    void pastePlainText(const QPointF &place);
    /// Copies the selected objects beside themselves.
    void duplicate();
    void removeSelected();
    void selectAll();
    /// The number of the style of all selected art texts; -1 when they have several, and without one.
    int artStyle() const;
    /// Gives the selected art texts that are not locked another style, in one step.
    void setArtStyle(int style);

Q_SIGNALS:
    /// Title and menus are to be brought up to date. Comes once for many changes.
    void stateChanged();
    /// An edit begins or ends, or a step is made or undone: what is shown for now alone is to go first.
    void aboutToAct();

private:
    PageSession(const PluginLoader *loader, std::unique_ptr<OpenPage> page);
    void objectChanged(CVXRootObject *object) override;
    void editingChanged(CVXRootObject *object, bool editing) override;
    void objectDrawn(CVXRootObject *object) override;

    bool writeTo(const QString &fileName, QString &error, LongWork &work);
    void announce();
    void hintMissingFonts();
    bool isNewTextAbandoned() const;
    bool settleNewText();
    void pushPresence(CVXRootObject *object);
    void followSteps();
    QList<CVXRootObject *> selectedObjects() const;
    void selectOnly(const QList<CVXRootObject *> &objects);
    void adopt(CVXRootObject *object);
    QJsonArray copiesOf(const QList<CVXRootObject *> &objects) const;
    bool addCopies(const QJsonArray &copies, const QString &name, LongWork &work);
    CVXRootObject *objectOfCopy(const QJsonObject &copy);
    QPointF wayOfCopies(const QList<CVXRootObject *> &copies) const;
    void pasteText(const QPointF &place, bool rich);

    const PluginLoader *m_loader;
    std::unique_ptr<OpenPage> m_open;
    QString m_fileName;
    QString m_fileStamp; ///< of the file as it was opened or saved
    int m_changes = 0;   ///< that objects out of edit have told
    int m_lastId = 0;
    bool m_announced = false;
    EditChanges m_edit;                 ///< of the object in edit state
    CVXRootObject *m_newText = nullptr; ///< drawn last, in its first edit
    bool m_newTextIsRecorded = false;   ///< there is a step of its coming
    bool m_isRecordingNewText = false;
    int m_stepsAheadOfNewText = 0;
    CVXRootObject *m_editDragged = nullptr; ///< whose edit the pointer moves or resizes
    TextBox m_boxAheadOfDrag;
    int m_stepsAheadOfDrag = 0;
};

#endif
