// SPDX-License-Identifier: MIT
#include "app/pagerender/batch.h"

#include "app/page/pagefile.h"
#include "app/page/pagestorage.h"
#include "app/pagerender/artrendering.h"
#include "app/pagerender/interruption.h"
#include "app/pagerender/isolated.h"
#include "app/pagerender/rendering.h"
#include "app/pagerender/report.h"

#include <QDir>

#include <cstdio>

namespace {

ExitCode end(ExitCode code, const QString &message)
{
    std::fprintf(stderr, "pagerender: %s\n", qPrintable(message));
    return code;
}

} // namespace

Batch::Batch(const Arguments &arguments)
    : m_arguments(arguments)
{
}

ExitCode Batch::run()
{
    if (m_arguments.task == Arguments::Task::Convert)
        return convert();
    QVector<Job> jobs;
    QString error;
    if (!planJobs(m_arguments, jobs, error))
        return end(WrongUsage, error);
    Report report(m_arguments);
    if (!m_loader.load(m_arguments.plugin)) {
        report.fail(NoLibrary, QStringLiteral("no text objects: %1").arg(m_loader.errorString()));
    } else if (!prepareOutputFolder(error)) {
        report.fail(Cannot, error);
    } else {
        for (const Job &job : qAsConst(jobs))
            report.add(outcomeOf(job));
    }
    return report.finish();
}

/// The same page in the form that the output names; no object is made for it.
ExitCode Batch::convert() const
{
    PageFile file;
    QString error;
    if (!readPageFile(m_arguments.inputs.constFirst(), file, error))
        return end(Cannot, error);
    const Interruption::Pause pause;
    return writePageFile(m_arguments.output, file, error) ? Done : end(Cannot, error);
}

bool Batch::prepareOutputFolder(QString &error) const
{
    if (m_arguments.outputFolder.isEmpty() || QDir().mkpath(m_arguments.outputFolder))
        return true;
    error = QStringLiteral("cannot make the directory '%1'").arg(m_arguments.outputFolder);
    return false;
}

Outcome Batch::outcomeOf(const Job &job)
{
    Outcome outcome;
    if (!job.error.isEmpty()) {
        outcome.fail(job.error);
    } else if (m_arguments.page != 1) {
        outcome.fail(QStringLiteral("'%1' has one page: there is no page %2")
                         .arg(job.input)
                         .arg(m_arguments.page));
    } else if (m_arguments.timeout > 0) {
        outcome = runIsolated([&] { return work(job); }, m_arguments.timeout);
        if (outcome.input.isEmpty() && !outcome.error.isEmpty()) // what the work did not say itself
            outcome.error = QStringLiteral("'%1': %2").arg(job.input, outcome.error);
    } else {
        outcome = work(job);
    }
    outcome.input = job.input;
    return outcome;
}

Outcome Batch::work(const Job &job)
{
    Outcome outcome = m_arguments.isArt
                          ? ArtRendering(m_arguments, job, m_framework, m_loader).run()
                          : Rendering(m_arguments, job, m_framework, m_loader).run();
    outcome.input = job.input;
    return outcome;
}
