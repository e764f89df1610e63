// SPDX-License-Identifier: MIT
#include "bench/benchtext.h"

#include <QDataStream>

namespace {

const QString &pattern(BenchScript script)
{
    static const QString latin = QStringLiteral(
        "Typography is the craft of giving language a lasting visual form, line after line. ");
    static const QString cjk = QStringLiteral(
        "天地玄黄，宇宙洪荒。日月盈昃，辰宿列张。寒来暑往，秋收冬藏。闰余成岁，律吕调阳。");
    static const QString mixed = QStringLiteral(
        "排版 typography 是一门 craft，給文字以 lasting form。縦書きと横書き in one line. ");
    switch (script) {
    case BenchScript::Latin:
        return latin;
    case BenchScript::Cjk:
        return cjk;
    case BenchScript::Mixed:
        break;
    }
    return mixed;
}

} // namespace

const char *benchScriptName(BenchScript script)
{
    switch (script) {
    case BenchScript::Latin:
        return "Latin";
    case BenchScript::Cjk:
        return "CJK";
    case BenchScript::Mixed:
        break;
    }
    return "mixed";
}

QString benchText(BenchScript script, int length)
{
    const QString &piece = pattern(script);
    return piece.repeated(length / piece.size() + 1).left(length);
}

QString BenchFramework::getLocalString(const QString & /*key*/, const QString &fallback)
{
    return fallback;
}

void BenchFramework::getDefaultFont(QString &family, int &size)
{
    family = m_script == BenchScript::Latin ? QStringLiteral("Noto Sans")
                                            : QStringLiteral("Noto Sans CJK SC");
    size = 12;
}

BenchFramework &benchFramework()
{
    static BenchFramework framework;
    SetFramework(&framework);
    return framework;
}

BenchTextObject::BenchTextObject(const QString &text, Qt::Orientation orientation)
    : CWordProcess(/*id=*/1, /*finished=*/true, nullptr, nullptr)
{
    m_textOrientation = orientation;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << text;
    QDataStream in(bytes);
    SetSpecialProperty(106, in, false);
}

int BenchTextObject::elementCount() const
{
    int count = 0;
    for (const QPainterPath &path : m_textPaths)
        count += path.elementCount();
    return count;
}
