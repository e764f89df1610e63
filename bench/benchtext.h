// SPDX-License-Identifier: MIT
// benchtext.h -- what the benchmarks share: a small host, sample texts, a text object to look into.
#ifndef BENCHTEXT_H
#define BENCHTEXT_H

#include "host/framework/iappframework.h"
#include "wordprocess/cwordprocess.h"

/// Scripts of the sample texts.
enum class BenchScript { Latin, Cjk, Mixed };

const char *benchScriptName(BenchScript script);

/// One paragraph of exactly \a length characters.
QString benchText(BenchScript script, int length);

/// A framework without listeners whose default font suits a script.
class BenchFramework : public IAppFramework
{
public:
    /// The font of new text from now on, at 12 points (16 pixels at 96 dpi).
    void setScript(BenchScript script) { m_script = script; }

    QString getLocalString(const QString &key, const QString &fallback) override;
    int getCurrentTool() override { return 0; }
    IObjectEventSink *getEventSink() override { return nullptr; }
    void getDefaultFont(QString &family, int &size) override;
    void getScreenDpi(double &x, double &y) override { x = y = 96; }
    bool isBatchMode() override { return false; }

private:
    BenchScript m_script = BenchScript::Latin;
};

/// The one framework of a benchmark program, installed as the host's at the first call.
BenchFramework &benchFramework();

/// A line text object without page whose layout and paths can be counted and run again.
class BenchTextObject : public CWordProcess
{
public:
    BenchTextObject(const QString &text, Qt::Orientation orientation);

    /// Outline elements of the present layout: proof that the text was laid out.
    int elementCount() const;
    using CWordProcess::m_textPathsRect;
};

#endif
