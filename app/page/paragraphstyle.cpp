// SPDX-License-Identifier: MIT
#include "app/page/paragraphstyle.h"

namespace {

struct Row {
    const char *name;
    int inLines;
    int inColumns;
    bool forBoxes;
};

// What follows "justify" says where the last line of the paragraph goes.
// clang-format off
constexpr Row rows[] = {
    {"left",           1,     0x20,  false},
    {"center",         4,     0x80,  false},
    {"right",          2,     0x40,  false},
    {"justify",        8,     0x100, true},
    {"justify-left",   0x200, 0x200, true},
    {"justify-center", 0x400, 0x400, true},
    {"justify-right",  0x800, 0x800, true},
};
// clang-format on

} // namespace

Alignment alignmentOf(const QString &name)
{
    for (const Row &row : rows) {
        if (name == QLatin1String(row.name))
            return {name, row.inLines, row.inColumns, row.forBoxes};
    }
    return {};
}

QStringList alignmentNames()
{
    QStringList names;
    for (const Row &row : rows)
        names.append(QLatin1String(row.name));
    return names;
}

QJsonObject paragraphAttributes(const ParagraphStyle &style, bool vertical)
{
    QJsonObject attributes;
    if (!style.alignment.name.isEmpty()) {
        attributes.insert(QStringLiteral("textalignment"),
                          vertical ? style.alignment.inColumns : style.alignment.inLines);
    }
    if (style.headTail != 0)
        attributes.insert(QStringLiteral("paragraph_head_tail_punctuation"), style.headTail);
    if (style.hyphenate)
        attributes.insert(QStringLiteral("text_ligature"), true);
    if (style.compressPunctuation)
        attributes.insert(QStringLiteral("paragraph_punctuation_extra"), 1);
    return attributes;
}
