// SPDX-License-Identifier: MIT
// artrendering.h -- from the command line to a picture of art text.
#ifndef PAGERENDER_ARTRENDERING_H
#define PAGERENDER_ARTRENDERING_H

#include "app/page/framework.h"
#include "app/page/pluginloader.h"
#include "app/pagerender/arguments.h"
#include "app/pagerender/rendering.h"

class Page;

/// One run of the program for art text: a picture of one style, or a sheet of all of them. Messages go
/// to the standard error.
class ArtRendering
{
public:
    explicit ArtRendering(const Arguments &arguments);

    ExitCode run();

private:
    // Each step: false when the run ends there, with a message.
    bool readText();
    bool chooseFont();
    bool loadLibrary();
    bool renderOne();
    bool renderSheet();

    bool setUp(Page &page, int style, const QRectF &place) const;
    QImage cell(int style, const QSize &size) const;
    static bool fail(const QString &message);

    const Arguments &m_arguments;
    Framework m_framework;
    PluginLoader m_loader;
    QString m_text;
    ArtObject::Look m_look;
};

#endif
