// SPDX-License-Identifier: MIT
// runarguments.h -- the options that tell what is done with which files, and what is told of it.
#ifndef PAGERENDER_RUNARGUMENTS_H
#define PAGERENDER_RUNARGUMENTS_H

#include "app/pagerender/optionreader.h"

/// Takes --missing-fonts=HOW out of \a arguments, since an option has a value always or never.
/// \return false, with a sentence in \a result, when HOW is no word for it
bool takeMissingFontsPolicy(QStringList &arguments, Arguments &result);
/// Puts --dump-text in the place of a --text without a file: one at the end, or ahead of another option.
void takeTextWithoutFile(QStringList &arguments);

class RunReader : public OptionReader
{
public:
    using OptionReader::OptionReader;

    /// How the program runs, whatever it does.
    bool readManner();
    /// Inputs, the kind of the output and its place.
    bool readFiles();
    /// --convert.
    bool readConversion();
    /// The one input, if any, and the output of a sheet of art styles.
    bool readArtSheet();
    /// The options that readManner() reads, and those for several inputs.
    QVector<const QCommandLineOption *> ofManner() const;
    QVector<const QCommandLineOption *> ofFiles() const;

private:
    bool readSourceDate();
    bool readInputs();
    bool readTask();
    bool readOutput();
    bool readFormat();
    bool readWarpSheet();
    bool readSheetName();
    bool checkOneOutput();
};

#endif
