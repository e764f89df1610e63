// SPDX-License-Identifier: MIT
// report.h -- what the program tells of its run.
#ifndef PAGERENDER_REPORT_H
#define PAGERENDER_REPORT_H

#include "app/pagerender/outcome.h"

#include <QVector>

struct Arguments;

/// Tells failures, and, as asked for, warnings and outputs, on the standard error, each outcome when it
/// comes; the missing fonts and the report in JSON on the standard output, at the end.
class Report
{
public:
    explicit Report(const Arguments &arguments);

    void add(const Outcome &outcome);
    /// What keeps the program from doing anything.
    void fail(ExitCode code, const QString &message);
    /// \return the exit code of the whole run
    ExitCode finish();

private:
    void tell(const QString &message) const;
    QByteArray missingFonts() const;
    QByteArray json() const;

    const Arguments &m_arguments;
    ExitCode m_code = Done;
    QString m_error; ///< of fail()
    QVector<Outcome> m_outcomes;
};

#endif
