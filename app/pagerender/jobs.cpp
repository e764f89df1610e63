// SPDX-License-Identifier: MIT
#include "app/pagerender/jobs.h"

#include "app/page/inputfile.h"
#include "app/pagerender/arguments.h"
#include "app/pagerender/outputfile.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace {

QStringList inputPatterns(bool isPlainText)
{
    if (isPlainText)
        return {QStringLiteral("*.txt")};
    return {QStringLiteral("*.json"), QStringLiteral("*.vxpage")};
}

/// The files of the folder \a name that may be inputs.
QVector<Job> jobsOfFolder(const QString &name, bool isPlainText)
{
    const QStringList patterns = inputPatterns(isPlainText);
    const QDir folder(name);
    const QStringList files = folder.entryList(patterns, QDir::Files | QDir::Readable, QDir::Name);
    QVector<Job> jobs;
    for (const QString &file : files)
        jobs.append({QDir::cleanPath(folder.filePath(file)), {}, {}});
    if (jobs.isEmpty()) {
        jobs.append({name,
                     {},
                     QStringLiteral("cannot read '%1': the directory holds no %2")
                         .arg(name, patterns.join(QLatin1String(" and no ")))});
    }
    return jobs;
}

QVector<Job> jobsOf(const Arguments &arguments)
{
    QVector<Job> jobs;
    for (const QString &input : arguments.inputs) {
        if (input != standardStream() && QFileInfo(input).isDir())
            jobs += jobsOfFolder(input, arguments.isPlainText);
        else
            jobs.append({input, {}, {}});
    }
    return jobs;
}

QString suffixOf(const Arguments &arguments)
{
    if (arguments.task == Arguments::Task::DumpText)
        return QStringLiteral("txt");
    return PageRenderer::suffixOf(arguments.format);
}

/// The name of the output in the folder of outputs; that of a whole file name has its suffix too.
QString outputFor(const Arguments &arguments, const Job &job, bool wholeName)
{
    const QFileInfo input(job.input);
    const QString base = wholeName ? input.fileName() : input.completeBaseName();
    return QDir::cleanPath(
        QDir(arguments.outputFolder).filePath(base + QLatin1Char('.') + suffixOf(arguments)));
}

/// Two inputs that differ in their suffix alone, such as page.json and page.vxpage, keep it.
void nameOutputs(const Arguments &arguments, QVector<Job> &jobs)
{
    QHash<QString, int> uses;
    for (const Job &job : qAsConst(jobs))
        ++uses[outputFor(arguments, job, /*wholeName=*/false)];
    for (Job &job : jobs) {
        const QString name = outputFor(arguments, job, /*wholeName=*/false);
        const bool isShared = uses.value(name) > 1;
        job.output = isShared ? outputFor(arguments, job, /*wholeName=*/true) : name;
    }
}

bool checkDistinct(const QVector<Job> &jobs, QString &error)
{
    QHash<QString, QString> inputs; // by their outputs
    for (const Job &job : jobs) {
        if (inputs.contains(job.output)) {
            error = QStringLiteral("'%1' and '%2' would both be written to '%3'")
                        .arg(inputs.value(job.output), job.input, job.output);
            return false;
        }
        inputs.insert(job.output, job.input);
    }
    return true;
}

/// No input is written over.
bool checkInputsStay(const QVector<Job> &jobs, QString &error)
{
    QStringList inputs;
    for (const Job &job : jobs)
        inputs.append(QFileInfo(job.input).canonicalFilePath());
    for (const Job &job : jobs) {
        const QFileInfo output(job.output);
        if (job.output != standardStream() && output.isFile()
            && inputs.contains(output.canonicalFilePath())) {
            error = QStringLiteral("the output '%1' is an input").arg(job.output);
            return false;
        }
    }
    return true;
}

} // namespace

bool planJobs(const Arguments &arguments, QVector<Job> &jobs, QString &error)
{
    jobs = jobsOf(arguments);
    if (!arguments.outputFolder.isEmpty()) {
        nameOutputs(arguments, jobs);
        return checkDistinct(jobs, error) && checkInputsStay(jobs, error);
    }
    if (arguments.output.isEmpty())
        return true;
    const bool isOneFile = arguments.output != standardStream()
                           || arguments.task != Arguments::Task::DumpText;
    for (Job &job : jobs)
        job.output = arguments.output;
    if (isOneFile && !arguments.inputs.isEmpty()
        && QFileInfo(arguments.inputs.constFirst()).isDir()) {
        error = QStringLiteral("'%1' is a directory: give --out-dir in place of -o")
                    .arg(arguments.inputs.constFirst());
        return false;
    }
    return checkInputsStay(jobs, error);
}

bool readJobInput(const Job &job, qint64 limit, QByteArray &bytes, QString &error)
{
    return job.input == standardStream() ? readStandardInput(job.input, limit, bytes, error)
                                         : readFile(job.input, limit, bytes, error);
}
