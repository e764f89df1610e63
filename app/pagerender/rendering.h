// SPDX-License-Identifier: MIT
// rendering.h -- from the command line to the picture.
#ifndef PAGERENDER_RENDERING_H
#define PAGERENDER_RENDERING_H

#include "app/page/framework.h"
#include "app/page/pagefile.h"
#include "app/page/pluginloader.h"
#include "app/page/textrecord.h"
#include "app/pagerender/arguments.h"

#include <memory>

class CVXRootObject;
class Document;
class Page;
class PageBuilder;

enum ExitCode { Done = 0, Cannot = 1, WrongUsage = 2 };

/// One run of the program. Messages go to the standard error, lists to the standard output.
class Rendering
{
public:
    explicit Rendering(const Arguments &arguments);
    ~Rendering();
    Rendering(const Rendering &) = delete;
    Rendering &operator=(const Rendering &) = delete;

    ExitCode run();

private:
    // Each step: false when the run ends there, with m_code and, on failure, a message.
    bool readInput();
    bool convert();
    bool beginPage();
    bool readPlainText(const QString &content);
    bool readJson(const QString &content);
    bool prepareDocument(const QString &string);
    bool checkPosition(int position);
    bool loadLibrary();
    bool makePage();
    bool makeDocument();
    bool applySettings();
    bool applySetting(const Setting &setting, QMap<CVXRootObject *, AttributeMap> &attributes);
    bool replaceFonts();
    bool listMissingFonts();
    bool checkMissingFonts();
    bool arrange();
    bool render();
    bool renderWarpSheet();

    bool fail(const QString &message, ExitCode code = Cannot);
    CVXRootObject *singleObject() const;
    CVXRootObject *objectOf(const QString &name) const;
    QStringList missingFonts() const;

    const Arguments &m_arguments;
    ExitCode m_code = Done;
    Framework m_framework;
    PluginLoader m_loader;
    bool m_isPage = false;
    PageFile m_pageFile;       // of a page
    QString m_string;          // of a text or a document
    DocumentStringInfo m_info; // likewise
    std::unique_ptr<Document> m_document;
    std::unique_ptr<Page> m_page;
    std::unique_ptr<PageBuilder> m_builder; // of a page
};

#endif
