// SPDX-License-Identifier: MIT
// jobs.h -- from the inputs of the command line to one job for each, with the name of its output.
#ifndef PAGERENDER_JOBS_H
#define PAGERENDER_JOBS_H

#include <QByteArray>
#include <QString>
#include <QVector>

struct Arguments;

/// One input, and what is to become of it.
struct Job {
    QString input;  ///< a file, "-" for the standard input; of a sheet it may be empty
    QString output; ///< a file, "-" for the standard output; empty when none is written
    QString error;  ///< why nothing can be done; empty when something can
};

/// The jobs of \a arguments, in their order. A folder stands for the files in it that may be inputs, by
/// their names; one that holds none is a job with an error.
/// \return false, with a sentence in \a error, when two outputs would have the same name, or an output
/// the name of an input
bool planJobs(const Arguments &arguments, QVector<Job> &jobs, QString &error);

/// Reads the input of \a job whole. False, with a sentence in \a error, when it cannot be read or is
/// larger than \a limit bytes.
bool readJobInput(const Job &job, qint64 limit, QByteArray &bytes, QString &error);

#endif
