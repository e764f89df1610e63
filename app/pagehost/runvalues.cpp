// SPDX-License-Identifier: MIT
#include "app/pagehost/runvalues.h"

#include "app/pagehost/textcommands.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace {

const QLatin1String contentKey("content");

/// A key whose blank stands for a value.
struct UnsetRow {
    const char *key;
    int value;
};

// clang-format off
constexpr UnsetRow unsetRows[] = {
    {"horizontal_scaled",       100},
    {"vertical_scaled",         100},
    {"baseline_offset",         0},
    {"selected_letterspacing",  0},
    {"font_letterspacing",      0},
    {"font_rowspacing",         0},
    {"text_upper",              0},
    {"textalignment",           Qt::AlignLeft},
    {"paragraph_left_indent",   0},
    {"paragraph_right_indent",  0},
    {"paragraph_first_indent",  0},
    {"paragraph_after_space",   0},
    {"paragraph_before_space",  0},
    {"text_ligature",           0},
    {"paragraph_head_tail_punctuation", 0},
    {"paragraph_punctuation_extra",     0},
};
// clang-format on

/// Positions in a text from start to before end.
struct Range {
    int start = 0;
    int end = std::numeric_limits<int>::max();

    bool isEmpty() const { return start == end; }
    bool overlaps(int position, int length) const
    {
        return position < end && start < position + length;
    }
};

Range selectionOf(const QJsonObject &document)
{
    const int from = document.value(QLatin1String("selection_start")).toInt();
    const int to = document.value(QLatin1String("selection_end")).toInt();
    return {qMin(from, to), qMax(from, to)};
}

/// Gathers the values that stand under each key.
class Values
{
public:
    void take(const QJsonObject &part)
    {
        for (auto it = part.constBegin(); it != part.constEnd(); ++it) {
            if (it.key() == contentKey)
                continue;
            const QVariant value = plainValue(it.key(), it.value().toVariant());
            QVariantList &values = m_values[it.key()];
            if (!values.contains(value))
                values.append(value);
        }
    }
    void addDifferentTo(QHash<QString, QVariantList> &different) const
    {
        for (auto it = m_values.constBegin(); it != m_values.constEnd(); ++it) {
            if (it->size() > 1)
                different.insert(it.key(), *it);
        }
    }

private:
    QHash<QString, QVariantList> m_values;
};

QHash<QString, QVariantList> differentValues(const QJsonObject &document, const Range &range)
{
    const QJsonArray blocks = document.value(QLatin1String("block")).toArray();
    const QJsonArray runLists = document.value(QLatin1String("fragment")).toArray();
    Values ofBlocks;
    Values ofRuns;
    int position = 0;
    for (int i = 0; i < qMin(blocks.size(), runLists.size()); ++i) {
        const int blockStart = position;
        const QJsonArray runs = runLists.at(i).toArray();
        for (const QJsonValue &run : runs) {
            const QJsonObject part = run.toObject();
            const int length = part.value(contentKey).toString().size();
            if (length > 0 && range.overlaps(position, length))
                ofRuns.take(part);
            position += length;
        }
        ++position; // the end of the paragraph
        if (range.overlaps(blockStart, position - blockStart))
            ofBlocks.take(blocks.at(i).toObject());
    }
    QHash<QString, QVariantList> different;
    ofBlocks.addDifferentTo(different);
    ofRuns.addDifferentTo(different);
    return different;
}

RunValues valuesOf(const QJsonObject &document, bool edited)
{
    const Range range = edited ? selectionOf(document) : Range();
    RunValues values;
    values.hasSelection = edited && !range.isEmpty();
    if (!range.isEmpty())
        values.different = differentValues(document, range);
    return values;
}

} // namespace

QHash<CVXRootObject *, RunValues> runValuesOf(const QList<CVXRootObject *> &texts, bool edited)
{
    QHash<CVXRootObject *, RunValues> values;
    for (CVXRootObject *text : texts) {
        const QByteArray document = TextCommands::documentString(text).toUtf8();
        values.insert(text, valuesOf(QJsonDocument::fromJson(document).object(), edited));
    }
    return values;
}

QVariant plainValue(const QString &key, const QVariant &value)
{
    if (value.userType() != QMetaType::QString && !value.isNull())
        return value;
    const QString text = value.toString();
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (isNumber)
        return number;
    if (!text.isEmpty())
        return value;
    for (const UnsetRow &row : unsetRows) {
        if (key == QLatin1String(row.key))
            return row.value;
    }
    return value;
}
