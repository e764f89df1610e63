// SPDX-License-Identifier: MIT
// options.h -- the options of the command line, with what --help says of them.
#ifndef PAGERENDER_OPTIONS_H
#define PAGERENDER_OPTIONS_H

#include "app/page/artobject.h"
#include "app/page/paragraphstyle.h"
#include "app/page/textwarp.h"

#include <QCommandLineOption>
#include <QList>

struct Options {
    QCommandLineOption text{QStringLiteral("text"),
                            QStringLiteral(
                                "Set the UTF-8 text <file>. Without a file: --dump-text."),
                            QStringLiteral("file")};
    QCommandLineOption document{QStringLiteral("document"),
                                QStringLiteral("The same as a FILE without --document."),
                                QStringLiteral("file")};
    QCommandLineOption output{{QStringLiteral("o"), QStringLiteral("output")},
                              QStringLiteral("Write <file>: .png, .svg or .pdf; - for the "
                                             "standard output."),
                              QStringLiteral("file")};
    QCommandLineOption
        outputFolder{QStringLiteral("out-dir"),
                     QStringLiteral("Write an output for each input into <folder>, under the name "
                                    "of the input."),
                     QStringLiteral("folder")};
    QCommandLineOption format{{QStringLiteral("f"), QStringLiteral("format")},
                              QStringLiteral("Write png, svg or pdf, whatever the output is "
                                             "called."),
                              QStringLiteral("kind")};
    QCommandLineOption page{QStringLiteral("page"),
                            QStringLiteral("Write the page of that number; every input has one "
                                           "page, number 1."),
                            QStringLiteral("number")};
    QCommandLineOption font{QStringLiteral("font"), QStringLiteral("Font family of a text."),
                            QStringLiteral("family")};
    QCommandLineOption size{QStringLiteral("size"),
                            QStringLiteral("Font size of a text in points (24)."),
                            QStringLiteral("points")};
    QCommandLineOption vertical{QStringLiteral("vertical"),
                                QStringLiteral("Set a text in columns from right to left.")};
    QCommandLineOption color{QStringLiteral("color"),
                             QStringLiteral("Colour of a text: a name or #rrggbb (black)."),
                             QStringLiteral("colour")};
    QCommandLineOption box{QStringLiteral("box"),
                           QStringLiteral("Wrap the text in a box of so many page pixels."),
                           QStringLiteral("WxH")};
    QCommandLineOption
        autoHeight{QStringLiteral("auto-height"),
                   QStringLiteral(
                       "Let the box follow its text: its height, or the width of columns.")};
    QCommandLineOption align{QStringLiteral("align"),
                             QStringLiteral("Align the paragraphs: %1.")
                                 .arg(alignmentNames().join(QLatin1String(", "))),
                             QStringLiteral("how")};
    QCommandLineOption headTail{QStringLiteral("head-tail"),
                                QStringLiteral(
                                    "Keep punctuation from the ends of lines: relaxed or strict."),
                                QStringLiteral("rule")};
    QCommandLineOption hyphenate{QStringLiteral("hyphenate"),
                                 QStringLiteral("Let words break with a hyphen.")};
    QCommandLineOption punctuation{QStringLiteral("punctuation"),
                                   QStringLiteral(
                                       "Set Han punctuation in half its width: compress."),
                                   QStringLiteral("how")};
    QCommandLineOption caret{QStringLiteral("caret"),
                             QStringLiteral("Edit the text and show the caret at <position>."),
                             QStringLiteral("position")};
    QCommandLineOption select{QStringLiteral("select"),
                              QStringLiteral("Edit the text and select from A to B; PNG only."),
                              QStringLiteral("A:B")};
    QCommandLineOption
        set{QStringLiteral("set"),
            QStringLiteral("Set an attribute of one object, told by name or number, or of all."),
            QStringLiteral("[object:]key=value")};
    QCommandLineOption warp{QStringLiteral("warp"),
                            QStringLiteral("Bend a text: arc:0.5, flag:-0.4:0.1:0:vertical; the "
                                           "values go from -1 to 1. Styles: %1.")
                                .arg(warpStyleNames().join(QLatin1String(", "))),
                            QStringLiteral("style:value[:h[:v]][:vertical]")};
    QCommandLineOption warpSheet{QStringLiteral("warp-sheet"),
                                 QStringLiteral(
                                     "Write a text in all warp styles to <file>, a .png."),
                                 QStringLiteral("file")};
    QCommandLineOption art{QStringLiteral("art"),
                           QStringLiteral(
                               "Set a text as art text in <style>, a number from 0 to %1 "
                               "or a name.")
                               .arg(ArtObject::styleNames().size() - 1),
                           QStringLiteral("style")};
    QCommandLineOption artSheet{QStringLiteral("art-sheet"),
                                QStringLiteral("Write all styles of art text to <file>, a .png."),
                                QStringLiteral("file")};
    QCommandLineOption bold{QStringLiteral("bold"), QStringLiteral("Set an art text in bold.")};
    QCommandLineOption fill{QStringLiteral("fill"),
                            QStringLiteral("Colour that fills an art text (black)."),
                            QStringLiteral("colour")};
    QCommandLineOption pen{QStringLiteral("pen"),
                           QStringLiteral("Colour of a line around an art text (none)."),
                           QStringLiteral("colour")};
    QCommandLineOption
        missingFonts{QStringLiteral("missing-fonts"),
                     QStringLiteral("Print the font families that are not installed, one a line. "
                                    "With =warn, =error or =picture: what becomes of an input "
                                    "that misses one.")};
    QCommandLineOption replaceFont{QStringLiteral("replace-font"),
                                   QStringLiteral("Set text of the missing family A in B."),
                                   QStringLiteral("A=B")};
    QCommandLineOption
        background{QStringLiteral("background"),
                   QStringLiteral("Colour of the page: a name, #rrggbb or transparent (white)."),
                   QStringLiteral("colour")};
    QCommandLineOption margin{QStringLiteral("margin"),
                              QStringLiteral("Margin around the ink in page pixels (20)."),
                              QStringLiteral("pixels")};
    QCommandLineOption dpi{QStringLiteral("dpi"),
                           QStringLiteral("Page pixels an inch, 1 to 9600 (96); of a page file "
                                          "PNG pixels an inch."),
                           QStringLiteral("number")};
    QCommandLineOption scale{QStringLiteral("scale"),
                             QStringLiteral("PNG pixels for one of the page, up to 100 (1)."),
                             QStringLiteral("factor")};
    QCommandLineOption
        convert{QStringLiteral("convert"),
                QStringLiteral("Write the page file FILE as the page file OUT: .json or .vxpage.")};
    QCommandLineOption plugin{QStringLiteral("plugin"),
                              QStringLiteral("Load the library of text objects from <path>."),
                              QStringLiteral("path")};
    QCommandLineOption check{QStringLiteral("check"),
                             QStringLiteral("Do all but write the pictures.")};
    QCommandLineOption dumpText{QStringLiteral("dump-text"),
                                QStringLiteral("Write the plain text of the inputs in place of "
                                               "pictures.")};
    QCommandLineOption json{QStringLiteral("json"),
                            QStringLiteral("Report in JSON on the standard output.")};
    QCommandLineOption timeout{QStringLiteral("timeout"),
                               QStringLiteral("Give up an input that takes longer."),
                               QStringLiteral("seconds")};
    QCommandLineOption quiet{{QStringLiteral("q"), QStringLiteral("quiet")},
                             QStringLiteral("Tell failures only, no warnings.")};
    QCommandLineOption verbose{{QStringLiteral("v"), QStringLiteral("verbose")},
                               QStringLiteral("Tell of each input what was done.")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Print the options and end.")};
    QCommandLineOption version{{QStringLiteral("V"), QStringLiteral("version")},
                               QStringLiteral("Print the version and end.")};
    /// In the order of the help.
    QList<QCommandLineOption> all() const
    {
        return {text,  document, output,       outputFolder, format,     page,
                font,  size,     vertical,     color,        box,        autoHeight,
                align, headTail, hyphenate,    punctuation,  caret,      select,
                set,   warp,     warpSheet,    art,          artSheet,   bold,
                fill,  pen,      missingFonts, replaceFont,  background, margin,
                dpi,   scale,    check,        dumpText,     json,       timeout,
                quiet, verbose,  convert,      plugin,       help,       version};
    }
};

#endif
