// SPDX-License-Identifier: MIT
// runvalues.h -- where the runs and the paragraphs of one text differ.
#ifndef PAGEHOST_RUNVALUES_H
#define PAGEHOST_RUNVALUES_H

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

class CVXRootObject;

/// What an attribute map cannot tell: a flag that is on for a part is false there.
struct RunValues {
    /// The keys with several values, each value once.
    QHash<QString, QVariantList> different;
    /// Characters are selected in the edit of the text.
    bool hasSelection = false;

    bool operator==(const RunValues &other) const
    {
        return different == other.different && hasSelection == other.hasSelection;
    }
};

/// Of each of \a texts: of the runs and paragraphs that overlap the selection of its edit when they are
/// \a edited, of all otherwise. The edit goes on, and a composition in it too. Nothing for an object that
/// is no rich text. O(text)
QHash<CVXRootObject *, RunValues> runValuesOf(const QList<CVXRootObject *> &texts, bool edited);

/// \a value in the one form that equal attributes have: a number for a string that is one, and what a
/// text has that was never given a value for a blank.
QVariant plainValue(const QString &key, const QVariant &value);

#endif
