// SPDX-License-Identifier: MIT
// arguments.h -- the command line of pagerender.
#ifndef PAGERENDER_ARGUMENTS_H
#define PAGERENDER_ARGUMENTS_H

#include "app/page/pagerenderer.h"
#include "app/page/paragraphstyle.h"

#include <QSizeF>
#include <QString>
#include <QStringList>

/// What the command line asks for. All values are valid when parseArguments() returns Run.
struct Arguments {
    bool isDocument = false; ///< the input is a document string, not plain text
    QString input;
    QString output;
    PageRenderer::Format format = PageRenderer::Format::Png;
    PageRenderer::Options options;
    QString plugin;       ///< path of the library; empty to search
    QString family;       ///< empty for the default
    double pointSize = 0; ///< 0 for the default
    QString color;        ///< "#rrggbb" or "#aarrggbb"
    bool vertical = false;
    QSizeF box; ///< page pixels; empty for line text
    bool autoHeight = false;
    ParagraphStyle paragraph;
    int selectionStart = -1; ///< the same as the end for a caret alone
    int selectionEnd = -1;   ///< below 0: the text is not in edit state
    QString message;         ///< for Usage: what is wrong; for Show: what to print
};

enum class ParseResult { Run, Show, Usage };

/// Reads the command line \a arguments, the program's name first.
ParseResult parseArguments(const QStringList &arguments, Arguments &result);

#endif
