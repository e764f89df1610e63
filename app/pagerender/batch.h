// SPDX-License-Identifier: MIT
// batch.h -- one run of the program: all inputs, one after the other.
#ifndef PAGERENDER_BATCH_H
#define PAGERENDER_BATCH_H

#include "app/page/framework.h"
#include "app/page/pluginloader.h"
#include "app/pagerender/arguments.h"
#include "app/pagerender/jobs.h"
#include "app/pagerender/outcome.h"

class Batch
{
public:
    explicit Batch(const Arguments &arguments);

    ExitCode run();

private:
    ExitCode convert() const;
    bool prepareOutputFolder(QString &error) const;
    Outcome outcomeOf(const Job &job);
    Outcome work(const Job &job);

    const Arguments &m_arguments;
    Framework m_framework;
    PluginLoader m_loader;
};

#endif
