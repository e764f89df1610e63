// SPDX-License-Identifier: MIT
// outcome.h -- what became of one input.
#ifndef PAGERENDER_OUTCOME_H
#define PAGERENDER_OUTCOME_H

#include <QJsonObject>
#include <QSize>
#include <QString>
#include <QStringList>

enum ExitCode { Done = 0, Cannot = 1, WrongUsage = 2, FontsMissing = 3, NoLibrary = 4 };

struct Outcome {
    ExitCode code = Done;
    QString input;
    QString output;           ///< what was written; empty for nothing
    QString error;            ///< why it could not be done; empty when it could
    QStringList warnings;     ///< a sentence each
    QStringList missingFonts; ///< families, each once
    QSize size;               ///< of the picture: pixels of a PNG, page pixels else
    qint64 bytes = 0;         ///< of the output
    QString text;             ///< of the input, when it was asked for

    /// Ends in failure. \return false, for a step to end with
    bool fail(const QString &message, ExitCode why = Cannot);
    void warn(const QString &message) { warnings.append(message); }

    /// The outcome as the report shows it. What is not there is left out.
    QJsonObject toJson() const;
    static Outcome fromJson(const QJsonObject &json);
};

/// One of two exit codes for a run of which \a one and \a other are parts: the one that tells more.
ExitCode united(ExitCode one, ExitCode other);

#endif
