// SPDX-License-Identifier: MIT
// rendering.h -- from one input, a text, a document or a page, to its output.
#ifndef PAGERENDER_RENDERING_H
#define PAGERENDER_RENDERING_H

#include "app/page/framework.h"
#include "app/page/pagefile.h"
#include "app/page/pluginloader.h"
#include "app/page/textrecord.h"
#include "app/pagerender/arguments.h"
#include "app/pagerender/jobs.h"
#include "app/pagerender/outcome.h"

#include <memory>

class CVXRootObject;
class Document;
class Page;
class PageBuilder;

/// Does one job. It tells nothing itself: what there is to tell stands in the outcome.
class Rendering
{
public:
    /// All outlive the rendering; \a loader is loaded.
    Rendering(const Arguments &arguments, const Job &job, Framework &framework,
              const PluginLoader &loader);
    ~Rendering();
    Rendering(const Rendering &) = delete;
    Rendering &operator=(const Rendering &) = delete;

    /// To be called once.
    Outcome run();

private:
    // Each step: false when the work ends there, with the reason in m_outcome if it is a failure.
    bool readInput();
    bool beginPage();
    bool readPlainText(const QString &content);
    bool readJson(const QString &content);
    bool prepareDocument(const QString &string);
    bool checkPosition(int position);
    bool makePage();
    bool makeDocument();
    bool applySettings();
    bool applySetting(const Setting &setting, QMap<CVXRootObject *, AttributeMap> &attributes);
    bool replaceFonts();
    bool noteMissingFonts();
    bool checkMissingFonts();
    bool checkMissingFontsOf(CVXRootObject *object);
    bool arrange();
    bool deliver();
    bool dumpText();
    bool checkPicture();
    bool renderPicture();
    bool renderWarpSheet();
    bool write(const QByteArray &bytes);

    bool fail(const QString &message, ExitCode code = Cannot);
    CVXRootObject *singleObject() const;
    CVXRootObject *objectOf(const QString &name) const;
    QStringList missingFonts() const;
    bool showsPicture(CVXRootObject *object) const;
    QString plainText() const;
    PageRenderer::Options pictureOptions() const;

    const Arguments &m_arguments;
    const Job &m_job;
    Framework &m_framework;
    const PluginLoader &m_loader;
    Outcome m_outcome;
    bool m_isPage = false;
    PageFile m_pageFile;       // of a page
    QString m_string;          // of a text or a document
    DocumentStringInfo m_info; // likewise
    std::unique_ptr<Document> m_document;
    std::unique_ptr<Page> m_page;
    std::unique_ptr<PageBuilder> m_builder; // of a page
};

#endif
