// SPDX-License-Identifier: MIT
// artrendering.h -- from the command line to a picture of art text.
#ifndef PAGERENDER_ARTRENDERING_H
#define PAGERENDER_ARTRENDERING_H

#include "app/page/framework.h"
#include "app/page/pluginloader.h"
#include "app/pagerender/arguments.h"
#include "app/pagerender/jobs.h"
#include "app/pagerender/outcome.h"

class Page;

/// Does one job for art text: a picture of one style, or a sheet of all of them. It tells nothing
/// itself: what there is to tell stands in the outcome.
class ArtRendering
{
public:
    /// All outlive the rendering; \a loader is loaded.
    ArtRendering(const Arguments &arguments, const Job &job, Framework &framework,
                 const PluginLoader &loader);

    /// To be called once.
    Outcome run();

private:
    // Each step: false when the work ends there, with the reason in m_outcome.
    bool readText();
    bool chooseFont();
    bool renderOne();
    bool renderSheet();
    bool write(const QByteArray &bytes);

    bool setUp(Page &page, int style, const QRectF &place);
    QImage cell(int style, const QSize &size);
    bool fail(const QString &message) { return m_outcome.fail(message); }

    const Arguments &m_arguments;
    const Job &m_job;
    Framework &m_framework;
    const PluginLoader &m_loader;
    Outcome m_outcome;
    QString m_text;
    ArtObject::Look m_look;
};

#endif
