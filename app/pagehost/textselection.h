// SPDX-License-Identifier: MIT
// textselection.h -- what the panels show and change: the selected objects and their attributes.
#ifndef PAGEHOST_TEXTSELECTION_H
#define PAGEHOST_TEXTSELECTION_H

#include "app/pagehost/runvalues.h"
#include "host/framework/hosttypes.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class CVXRootObject;
class PageSession;

/// The edited object, or else the selected ones, as the panels see them. Objects tell their attributes
/// by notification; those that have told none yet are asked.
class TextSelection : public QObject
{
    Q_OBJECT

public:
    explicit TextSelection(QObject *parent = nullptr);

    /// Shows the page of \a session; null shows none.
    void setSession(PageSession *session);
    PageSession *session() const;
    /// Takes over what \a object tells of its attributes.
    void takeAttributes(CVXRootObject *object, const AttributeMap &values);

    /// The edited object alone, or the selected objects; lowest first.
    QList<CVXRootObject *> objects() const;
    /// Those of objects() that are not locked.
    QList<CVXRootObject *> openObjects() const;
    /// Those of objects() that are rich texts.
    QList<CVXRootObject *> texts() const;
    /// Those of texts() that may be changed.
    QList<CVXRootObject *> openTexts() const;
    /// True while one text of texts() is edited.
    bool isEditing() const;

    /// True when a selected object that may be changed knows \a key.
    bool canChange(const QString &key) const;
    /// True while a text is edited without a selection in it.
    bool isAtCaret() const;
    /// The value that all objects have under \a key which know it; what was never set has the value that
    /// it looks like. Invalid when they differ, when one of them has several, and without an object.
    QVariant value(const QString &key) const;
    /// All of their values, each once.
    QVariantList values(const QString &key) const;
    /// The first words of the first object with a text, for samples of it; a word of ours without one.
    QString sampleWords() const;

    /// Gives all objects that may be changed those of \a attributes that they know, in one step. An art
    /// text takes them when its edit has ended.
    void apply(const AttributeMap &attributes);
    /// Makes one step called \a name of all that \a change records; what was typed in an open edit stays
    /// a step of its own.
    void asOneStep(const QString &name, const std::function<void()> &change);
    /// Undoes the step of the last apply() or asOneStep() and throws it away. False, and nothing happens,
    /// when that has made none or another step has come since.
    bool takeBack();

    /// To be called by who shows values of runs: they are read when nothing has changed for a moment.
    void wantRuns();
    /// Reads the runs of the texts now.
    void readRuns();

Q_SIGNALS:
    /// Other objects are selected, or their attributes have changed.
    void changed();
    /// Something about the objects has changed, be it the place alone.
    void placeChanged();
    /// The user is done with a control: keys belong to the page again.
    void pageWanted();

private:
    void look();
    void announce();
    const AttributeMap &attributesOf(CVXRootObject *object) const;
    bool hasAlready(CVXRootObject *object, const AttributeMap &attributes);
    QVariantList valuesOf(CVXRootObject *object, const QString &key) const;

    QPointer<PageSession> m_session;
    QList<CVXRootObject *> m_seenObjects; ///< to compare with, never to call
    int m_seenIndex = -1;                 ///< of the undo stack
    mutable QHash<CVXRootObject *, AttributeMap> m_values;
    QHash<CVXRootObject *, RunValues> m_runs;
    QTimer m_runTimer;
    bool m_runsAreStale = true;
    int m_ownIndex = -1; ///< of the stack behind the last step of a panel; -1 for none
    bool m_announced = false;
};

#endif
