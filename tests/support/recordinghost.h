// SPDX-License-Identifier: MIT
// recordinghost.h -- a host for tests: framework, event sink, page, tools and document in one,
// which writes down what it is told.
#ifndef RECORDINGHOST_H
#define RECORDINGHOST_H

#include "host/framework/cundoredo.h"
#include "host/framework/documenthost.h"
#include "host/framework/hosttypes.h"
#include "host/framework/iappframework.h"
#include "host/framework/ivxpage.h"

#include <QGraphicsScene>
#include <QVector>

class CBaseObject;

/// Installs itself with SetFramework() and takes itself away at its end. Objects made for it have
/// to go before it does; those in its scene go with it.
///
/// Kinds of events, in the order in which they come in:
///   "event"         notifyObjectEvent(): object, key, values
///   "changed"       notifyObjectChanged(): object, code, detail
///   "editing"       setEditingObject(): object, code 1 or 0
///   "tool"          postToolCommand(): code, detail "first,second"
///   "beginBatch", "endBatch"       the page's object batch
///   "beginGroup", "endGroup"       the document's undo group: key
///   "created"       objectCreated(): object
///   "preview"       objectPreviewChanged(): object; only while recordPreviews is set
class RecordingHost : public IAppFramework,
                      public IObjectEventSink,
                      public IVxPage,
                      public IToolController,
                      public DocumentHost
{
public:
    struct Event {
        QString kind;
        CVXRootObject *object = nullptr;
        QString key;
        AttributeMap values;
        int code = 0;
        QString detail;
    };

    explicit RecordingHost(int dpi = 96);
    ~RecordingHost() override;

    // What was recorded
    QVector<Event> events;
    QVector<Event> eventsOfKind(const QString &kind) const;
    /// The events that notifyObjectEvent() brought under \a key.
    QVector<Event> eventsWithKey(const QString &key) const;
    /// The kinds in order, joined by blanks: for comparing a whole sequence.
    QString kinds() const;
    void clearEvents() { events.clear(); }

    // What the host answers: set freely
    int currentTool = 0;
    QString defaultFontFamily = QStringLiteral("BoxTest");
    int defaultFontSize = 16;
    double screenDpiX = 96;
    double screenDpiY = 96;
    bool batchMode = false;
    float zoom = 1.0f;
    bool sinkOn = true;           ///< false: getEventSink() is null
    bool toolControllerOn = true; ///< false: getToolController() is null
    bool documentOn = true;       ///< false: getDocument() is null
    bool recordPreviews = false;
    QMap<QString, QString> localStrings; ///< texts by key; the fallback otherwise
    QGraphicsView *view = nullptr;
    /// What getSelectedObjects() answers; while empty, the selected objects of the scene.
    QList<CVXRootObject *> selectedObjects;

    /// A scene without an index; the host owns it and what lies in it.
    QGraphicsScene &scene() { return m_scene; }
    CUndoRedo &stack() { return m_stack; }

    // ILocalize, IAppFramework
    QString getLocalString(const QString &key, const QString &fallback) override;
    int getCurrentTool() override { return currentTool; }
    IObjectEventSink *getEventSink() override { return sinkOn ? this : nullptr; }
    void getDefaultFont(QString &family, int &size) override;
    void getScreenDpi(double &x, double &y) override;
    bool isBatchMode() override { return batchMode; }

    // IObjectEventSink
    void notifyObjectEvent(CVXRootObject *object, const QString &key,
                           const AttributeMap &values) override;
    void notifyObjectChanged(CVXRootObject *object, int code, const QString &detail) override;

    // IVxPage
    QList<CVXRootObject *> getSelectedObjects() override;
    void setEditingObject(CVXRootObject *object, bool editing) override;
    IToolController *getToolController() override { return toolControllerOn ? this : nullptr; }
    void beginObjectBatch() override;
    void endObjectBatch() override;
    IDocumentHost *getDocument() override { return documentOn ? this : nullptr; }
    CUndoRedo *undoStack() override { return &m_stack; }
    float getCurZoomRate() override { return zoom; }
    void objectPreviewChanged(CVXRootObject *object) override;
    void objectCreated(CVXRootObject *object) override;

    // IToolController
    void postToolCommand(int command, int first, int second) override;

    // IDocumentHost
    void beginUndoGroup(const QString &actionKey) override;
    void endUndoGroup() override;
    QGraphicsView *getView() override { return view; }

private:
    void record(const QString &kind, CVXRootObject *object = nullptr,
                const QString &key = QString(), const AttributeMap &values = AttributeMap(),
                int code = 0, const QString &detail = QString());

    IAppFramework *m_previousFramework;
    CUndoRedo m_stack;
    QGraphicsScene m_scene;
};

#endif
