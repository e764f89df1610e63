// SPDX-License-Identifier: MIT
#include "app/pagerender/report.h"

#include "app/pagerender/arguments.h"
#include "app/pagerender/outputfile.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace {

/// One line that says what was done; empty when the outcome has nothing of that kind.
QString deed(const Outcome &outcome)
{
    if (outcome.code != Done)
        return {};
    if (outcome.output.isEmpty())
        return QStringLiteral("'%1' is good").arg(outcome.input);
    QString line = QStringLiteral("'%1' -> '%2', %3 bytes")
                       .arg(outcome.input, outcome.output, QString::number(outcome.bytes));
    if (outcome.size.isValid()) {
        line +=
            QStringLiteral(", %1 x %2 pixels").arg(outcome.size.width()).arg(outcome.size.height());
    }
    return line;
}

} // namespace

Report::Report(const Arguments &arguments)
    : m_arguments(arguments)
{
}

void Report::tell(const QString &message) const
{
    std::fprintf(stderr, "pagerender: %s\n", qPrintable(message));
}

void Report::add(const Outcome &outcome)
{
    m_outcomes.append(outcome);
    m_code = united(m_code, outcome.code);
    if (m_arguments.loudness != Arguments::Loudness::Quiet) {
        for (const QString &warning : outcome.warnings)
            tell(warning);
    }
    if (!outcome.error.isEmpty())
        tell(outcome.error);
    const QString line = deed(outcome);
    if (m_arguments.loudness == Arguments::Loudness::Verbose && !line.isEmpty())
        tell(line);
}

void Report::fail(ExitCode code, const QString &message)
{
    m_code = united(m_code, code);
    m_error = message;
    tell(message);
}

ExitCode Report::finish()
{
    const QByteArray answer = m_arguments.json ? json() : missingFonts();
    QString error;
    if (!answer.isEmpty() && !writeOutput(standardStream(), answer, error)) {
        tell(error);
        m_code = united(m_code, Cannot);
    }
    return m_code;
}

/// The families of all inputs, one a line, when they were asked for.
QByteArray Report::missingFonts() const
{
    QStringList families;
    if (m_arguments.listMissingFonts) {
        for (const Outcome &outcome : m_outcomes)
            families += outcome.missingFonts;
    }
    families.removeDuplicates();
    return families.isEmpty() ? QByteArray()
                              : (families.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
}

QByteArray Report::json() const
{
    QJsonArray inputs;
    for (const Outcome &outcome : m_outcomes)
        inputs.append(outcome.toJson());
    QJsonObject report{{QStringLiteral("program"), QStringLiteral("pagerender " VX_VERSION)},
                       {QStringLiteral("code"), int(m_code)},
                       {QStringLiteral("inputs"), inputs}};
    if (!m_error.isEmpty())
        report.insert(QStringLiteral("error"), m_error);
    return QJsonDocument(report).toJson();
}
