// SPDX-License-Identifier: MIT
// optionreader.h -- reads values of options, and says which one is wrong.
#ifndef PAGERENDER_OPTIONREADER_H
#define PAGERENDER_OPTIONREADER_H

#include "app/pagerender/arguments.h"
#include "app/pagerender/options.h"

#include <QVector>

class QCommandLineParser;

/// The base of those that read a parsed command line. The first value that is wrong leaves its message
/// in the result; a read returns false then. An option that is not set leaves the value as it was.
class OptionReader
{
public:
    OptionReader(const QCommandLineParser &parser, const Options &options, Arguments &result);

protected:
    bool fail(const QString &message);
    bool isSet(const QCommandLineOption &option) const;
    QString valueOf(const QCommandLineOption &option) const;
    bool readNumber(const QCommandLineOption &option, double from, double to, double &number);
    bool readColor(const QCommandLineOption &option, QColor &color);
    /// \param number receives the place of the value among \a words, from 1; 0 without the option
    bool readWord(const QCommandLineOption &option, const QStringList &words, int &number);
    /// The first option that is set and none of \a allowed, with its dashes; empty for none.
    QString firstBeside(const QVector<const QCommandLineOption *> &allowed) const;
    static QString dashed(const QString &name);

    const QCommandLineParser &m_parser;
    const Options &m_options;
    Arguments &m_result;
};

#endif
