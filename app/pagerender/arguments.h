// SPDX-License-Identifier: MIT
// arguments.h -- the command line of pagerender.
#ifndef PAGERENDER_ARGUMENTS_H
#define PAGERENDER_ARGUMENTS_H

#include "app/page/artobject.h"
#include "app/page/pagerenderer.h"
#include "app/page/paragraphstyle.h"
#include "app/page/textwarp.h"

#include <QSizeF>
#include <QString>
#include <QStringList>
#include <QVector>

/// An attribute that the command line sets.
struct Setting {
    QString object; ///< its name or number; empty for all
    QString key;    ///< a known one
    QString value;  ///< one that the key can have
};

/// A missing family, and what takes its place.
struct FontReplacement {
    QString family;
    QString replacement;
};

/// What the command line asks for. All values are valid when parseArguments() returns Run.
struct Arguments {
    enum class Task {
        Render,    ///< a picture of each input
        Check,     ///< the same, but for writing it
        DumpText,  ///< the text of each input
        ListFonts, ///< nothing but the missing fonts
        Convert,   ///< the input is a page file, the output the same page in another form
    };
    /// What becomes of an input that misses a font.
    enum class FontPolicy {
        Usual,   ///< a page as with Warn, another input as with Error, but as a failure like others
        Warn,    ///< a warning; a page shows pictures with a label, other text another font
        Error,   ///< a failure with an exit code of its own
        Picture, ///< a page shows pictures without a label; a warning only where there is none
    };
    enum class Loudness { Quiet, Usual, Verbose };

    Task task = Task::Render;
    bool isPlainText = false; ///< the inputs are no JSON
    QStringList inputs;       ///< files, folders, "-"; of a sheet one, which may be empty
    QString output;           ///< of the one input; "-" for the standard output
    QString outputFolder;     ///< of several inputs
    PageRenderer::Format format = PageRenderer::Format::Png;
    int page = 1;
    FontPolicy fontPolicy = FontPolicy::Usual;
    Loudness loudness = Loudness::Usual;
    bool json = false;  ///< a report on the standard output
    double timeout = 0; ///< seconds for each input; 0 for no limit
    QDateTime date;     ///< of the pictures; invalid for none
    PageRenderer::Options options;
    bool hasBackground = false;
    bool hasDpi = false;
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
    bool isArt = false;      ///< the text is set as art text
    bool artSheet =
        false;           ///< in all styles, on one sheet; without input a word of the program's own
    ArtObject::Look art; ///< without a family: the default
    TextWarp warp;       ///< of the text; style 0 for none
    bool warpSheet = false; ///< the text in all warp styles, on one sheet
    QVector<Setting> settings;
    QVector<FontReplacement> replacements;
    bool listMissingFonts = false;
    QStringList notForPages; ///< the given options that make no sense for a page file
    QString message;         ///< for Usage: what is wrong; for Show: what to print
};

/// What a picture of \a text tells of itself.
PictureMetadata metadataOf(const Arguments &arguments, const QString &text);

enum class ParseResult { Run, Show, Usage };

/// Reads the command line \a arguments, the program's name first.
ParseResult parseArguments(const QStringList &arguments, Arguments &result);

#endif
