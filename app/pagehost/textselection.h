// SPDX-License-Identifier: MIT
// textselection.h -- what the panels show and change: the selected objects and their attributes.
#ifndef PAGEHOST_TEXTSELECTION_H
#define PAGEHOST_TEXTSELECTION_H

#include "host/framework/hosttypes.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QTimer>

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
    /// Those of objects() that are rich texts.
    QList<CVXRootObject *> texts() const;
    /// Those of texts() that may be changed.
    QList<CVXRootObject *> openTexts() const;
    /// True while one text of texts() is edited.
    bool isEditing() const;

    /// The value that all texts have under \a key. Invalid when they differ, when one of them has
    /// several, and without a text.
    QVariant value(const QString &key) const;
    /// The first words of the first object with a text, for samples of it; a word of ours without one.
    QString sampleWords() const;

    /// Gives all open texts \a attributes, in one step.
    void apply(const AttributeMap &attributes);
    /// Reads the runs of the texts now instead of a moment after the last change.
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
    AttributeMap attributesOf(CVXRootObject *object) const;

    QPointer<PageSession> m_session;
    QList<CVXRootObject *> m_seenObjects; ///< to compare with, never to call
    int m_seenIndex = -1;                 ///< of the undo stack
    mutable QHash<CVXRootObject *, AttributeMap> m_values;
    QSet<QString> m_mixed; ///< keys with several values within one text
    QTimer m_runTimer;
    bool m_announced = false;
};

#endif
