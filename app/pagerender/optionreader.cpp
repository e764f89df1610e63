// SPDX-License-Identifier: MIT
#include "app/pagerender/optionreader.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>

OptionReader::OptionReader(const QCommandLineParser &parser, const Options &options,
                           Arguments &result)
    : m_parser(parser)
    , m_options(options)
    , m_result(result)
{
}

bool OptionReader::fail(const QString &message)
{
    m_result.message = message;
    return false;
}

bool OptionReader::isSet(const QCommandLineOption &option) const
{
    return m_parser.isSet(option);
}

QString OptionReader::valueOf(const QCommandLineOption &option) const
{
    return m_parser.value(option);
}

bool OptionReader::readNumber(const QCommandLineOption &option, double from, double to,
                              double &number)
{
    if (!isSet(option))
        return true;
    bool isNumber = false;
    const double given = valueOf(option).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(given) || given < from || given > to) {
        return fail(QStringLiteral("--%1: '%2' is no number that can be used")
                        .arg(option.names().constLast(), valueOf(option)));
    }
    number = given;
    return true;
}

bool OptionReader::readColor(const QCommandLineOption &option, QColor &color)
{
    if (!isSet(option))
        return true;
    const QColor given(valueOf(option));
    if (!given.isValid()) {
        return fail(QStringLiteral("--%1: '%2' is no colour")
                        .arg(option.names().constLast(), valueOf(option)));
    }
    color = given;
    return true;
}

bool OptionReader::readWord(const QCommandLineOption &option, const QStringList &words, int &number)
{
    if (!isSet(option))
        return true;
    number = words.indexOf(valueOf(option)) + 1;
    if (number > 0)
        return true;
    return fail(
        QStringLiteral("--%1: '%2' is none of %3")
            .arg(option.names().constLast(), valueOf(option), words.join(QLatin1String(", "))));
}

QString OptionReader::firstBeside(const QVector<const QCommandLineOption *> &allowed) const
{
    const QStringList names = m_parser.optionNames();
    for (const QString &name : names) {
        const bool isAllowed = std::any_of(allowed.cbegin(), allowed.cend(),
                                           [&](const QCommandLineOption *option) {
                                               return option->names().contains(name);
                                           });
        if (!isAllowed)
            return dashed(name);
    }
    return {};
}

QString OptionReader::dashed(const QString &name)
{
    return (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
}
