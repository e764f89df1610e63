// SPDX-License-Identifier: MIT
// wordprocess_documentstring.cpp -- CWordProcess: the document as compact JSON and back.
// Reading changes m_document, m_cursor and the header's fields; it never lays out and never paints.
#include "wordprocess/cwordprocess.h"

#include "layout/textproperties.h"
#include "wordprocess/numbers.h"
#include "wordprocess/warpkeys.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextBlock>

namespace {
namespace Key {
const QLatin1String Block("block");
const QLatin1String Fragment("fragment");
const QLatin1String Content("content");
const QLatin1String CursorPosition("cursor_position");
const QLatin1String SelectionStart("selection_start");
const QLatin1String SelectionEnd("selection_end");
const QLatin1String TextDirection("text_direction");
const QLatin1String FontReplaced("font_replaced");
const QLatin1String WordWrap("text_wordwrap");
const QLatin1String AutoWordWrap("text_auto_wordwrap");
const QLatin1String IsFlip("is_flip");
const QLatin1String IsMirror("is_mirror");
const QLatin1String TransformXx("transform_xx");
const QLatin1String TransformYy("transform_yy");
} // namespace Key

QJsonObject toJson(const AttributeMap &attributes)
{
    return QJsonDocument::fromVariant(attributes).object();
}

/// What is written of the document: all of it, or the positions from start to end.
struct Range {
    bool whole = true;
    int start = 0;
    int end = 0;

    bool endsBy(int position) const { return !whole && end <= position; }

    /// The part of a run that is written; \a position is that of its first character.
    QString cut(const QString &text, int position) const
    {
        if (whole)
            return text;
        const int stop = position + text.length();
        const bool endsInside = position <= end && end <= stop;
        if (start < position)
            return endsInside ? text.left(end - position) : text;
        if (start < stop)
            return endsInside ? text.mid(start - position, end - start)
                              : text.mid(start - position);
        // Deliberate: a run ahead of the selection is cut like one that begins inside it.
        return endsInside ? text.left(end - position) : QString();
    }
};

/// Walks the blocks and gathers what is written of them.
class BodyWriter
{
public:
    BodyWriter(const CWordProcess &object, const Range &range)
        : m_object(object)
        , m_range(range)
    {
    }

    void write(const QTextDocument &document)
    {
        for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next()) {
            writeBlock(block);
            if (m_range.endsBy(m_position))
                return;
            ++m_position; // the block separator
        }
    }

    QJsonArray blocks() const { return m_blocks; }
    QJsonArray runs() const { return m_runs; }

private:
    void writeBlock(const QTextBlock &block)
    {
        QJsonArray entries;
        if (block.begin().atEnd())
            writeEmptyBlock(block, entries);
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            writeFragment(it.fragment(), entries);
            if (m_range.endsBy(m_position))
                break;
        }
        if (entries.isEmpty())
            return;
        AttributeMap attributes;
        m_object.blockFormat2Attr(block.blockFormat(), attributes, false);
        m_blocks.append(toJson(attributes));
        m_runs.append(entries);
    }

    void writeEmptyBlock(const QTextBlock &block, QJsonArray &entries) const
    {
        const bool selected = m_position >= m_range.start && m_position < m_range.end;
        if (m_range.whole || selected)
            entries.append(entry(attributesOf(block.charFormat()), QStringLiteral("")));
    }

    void writeFragment(const QTextFragment &fragment, QJsonArray &entries)
    {
        const QTextCharFormat format = fragment.charFormat();
        const QString text = fragment.text();
        const QJsonObject attributes = attributesOf(format);
        // Deliberate: letter-spaced runs are written unit by unit, whatever the selection is, and the
        // walk's position does not count them.
        if (format.property(TextProperty::LeadingGap).toReal() != 0.0 && text.length() > 1) {
            for (const QChar &unit : text)
                entries.append(entry(attributes, QString(unit)));
            return;
        }
        const QString cut = m_range.cut(text, m_position);
        if (!cut.isEmpty())
            entries.append(entry(attributes, cut));
        m_position += fragment.length();
    }

    QJsonObject attributesOf(const QTextCharFormat &format) const
    {
        AttributeMap attributes;
        m_object.charFormat2Attr(format, attributes, false);
        return toJson(attributes);
    }

    static QJsonObject entry(QJsonObject attributes, const QString &content)
    {
        attributes.insert(Key::Content, content);
        return attributes;
    }

    const CWordProcess &m_object;
    const Range m_range;
    int m_position = 0;
    QJsonArray m_blocks;
    QJsonArray m_runs;
};

/// False, and \a json is nothing to be used, for text that is no document string.
bool readDocumentString(const QString &text, QJsonObject &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return false;
    json = document.object();
    return json.value(Key::Block).isArray() && json.value(Key::Fragment).isArray()
           && json.value(Key::Block).toArray().size() == json.value(Key::Fragment).toArray().size();
}

/// Reads \a key into \a field when it is there; 0 or false for a value of another type.
void readInt(const QJsonObject &header, QLatin1String key, int &field)
{
    if (header.contains(key))
        field = header.value(key).toInt();
}
} // namespace

QString CWordProcess::serialize(bool selectionOnly) const
{
    const int last = m_document->characterCount() - 1; // the fields keep what a file said
    const Range range{!selectionOnly, qBound(0, m_selStart, last), qBound(0, m_selEnd, last)};
    BodyWriter body(*this, range);
    body.write(*m_document);
    QJsonObject json;
    json.insert(Key::Block, body.blocks());
    json.insert(Key::Fragment, body.runs());
    if (!selectionOnly)
        writeHeader(json);
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

void CWordProcess::writeHeader(QJsonObject &json) const
{
    json.insert(Key::CursorPosition, m_cursor->position());
    json.insert(Key::SelectionStart, m_selStart);
    json.insert(Key::SelectionEnd, m_selEnd);
    json.insert(Key::TextDirection, m_textOrientation);
    json.insert(Key::FontReplaced, QJsonArray::fromStringList(m_replacedFonts));
    json.insert(Key::WordWrap, m_wordWrap);
    json.insert(Key::AutoWordWrap, m_autoWordWrap);
    AttributeMap warp;
    addWarpAttributes(warp);
    for (auto it = warp.constBegin(); it != warp.constEnd(); ++it)
        json.insert(it.key(), it.value().toInt());
    json.insert(Key::IsFlip, m_flip.load());
    json.insert(Key::IsMirror, m_mirror.load());
    json.insert(Key::TransformXx, m_scaleX);
    json.insert(Key::TransformYy, m_scaleY);
}

void CWordProcess::deserialization(const QString &text, bool insertAtCursor)
{
    QJsonObject json;
    if (!readDocumentString(text, json))
        return;
    const QJsonArray blocks = json.value(Key::Block).toArray();
    const QJsonArray runs = json.value(Key::Fragment).toArray();

    if (!insertAtCursor)
        m_document->clear();
    insertContent(blocks, runs);
    if (!insertAtCursor) {
        restoreHeader(json);
        m_document->clearUndoRedoStacks(QTextDocument::UndoAndRedoStacks);
    }
}

/// True for a document string with at least one block: there is something to insert.
bool CWordProcess::hasContent(const QString &documentString)
{
    QJsonObject json;
    return readDocumentString(documentString, json) && !json.value(Key::Block).toArray().isEmpty();
}

void CWordProcess::insertContent(const QJsonArray &blocks, const QJsonArray &runs)
{
    for (int i = 0; i < blocks.size(); ++i) {
        QTextBlockFormat blockFormat = attr2BlockFormat(blocks.at(i).toObject().toVariantMap());
        double rowSpacing = -1.0; // of the whole block; below 0 when the block has none
        if (blockFormat.hasProperty(TextProperty::LineSpacing)) {
            rowSpacing = finiteReal(blockFormat.property(TextProperty::LineSpacing));
            blockFormat.clearProperty(TextProperty::LineSpacing);
        }
        if (i == 0)
            m_cursor->setBlockFormat(blockFormat);
        else
            m_cursor->insertBlock(blockFormat);

        const QJsonArray entries = runs.at(i).toArray();
        for (int j = 0; j < entries.size(); ++j) {
            const QVariantMap attributes = entries.at(j).toObject().toVariantMap();
            QTextCharFormat format = attr2CharFormat(attributes);
            if (rowSpacing >= 0.0)
                format.setProperty(TextProperty::RowSpacing, rowSpacing);
            if (j == 0)
                m_cursor->setBlockCharFormat(format);
            m_cursor->setCharFormat(format);
            m_cursor->insertText(attributes.value(Key::Content).toString());
        }
    }
}

void CWordProcess::restoreHeader(const QJsonObject &header)
{
    if (header.contains(Key::CursorPosition)) {
        const int position = header.value(Key::CursorPosition).toInt();
        if (position >= 0 && position < m_document->characterCount())
            m_cursor->setPosition(position, QTextCursor::MoveAnchor);
    }
    readInt(header, Key::SelectionStart, m_selStart);
    readInt(header, Key::SelectionEnd, m_selEnd);
    readInt(header, Key::TextDirection, m_textOrientation);
    restoreCursorSelection();
    if (header.contains(Key::FontReplaced))
        m_replacedFonts = header.value(Key::FontReplaced).toVariant().toStringList();
    if (header.contains(Key::WordWrap)) { // the layout object is switched by the caller
        m_autoWordWrap = header.value(Key::AutoWordWrap).toBool();
        m_wordWrap = header.value(Key::WordWrap).toBool();
    }
    if (header.contains(WarpKey::Style)) { // without a style the other keys do not count
        m_warpStyle = header.value(WarpKey::Style).toInt();
        m_warpValue = header.value(WarpKey::Value).toInt() / 100.0;
        m_warpHorizontalValue = header.value(WarpKey::HorizontalValue).toInt() / 100.0;
        m_warpVerticalValue = header.value(WarpKey::VerticalValue).toInt() / 100.0;
        m_warpOrientation = header.value(WarpKey::Orientation).toInt();
    }
    if (header.contains(Key::IsFlip))
        m_flip = header.value(Key::IsFlip).toBool();
    if (header.contains(Key::IsMirror))
        m_mirror = header.value(Key::IsMirror).toBool();
    if (header.contains(Key::TransformXx)) {
        m_scaleX = finiteOrZero(header.value(Key::TransformXx).toDouble());
        m_scaleY = finiteOrZero(header.value(Key::TransformYy).toDouble());
    }
}

/// Puts the cursor on the selection that was read. The fields keep what was read, sensible or not; the
/// cursor steps at most to the end of the document.
void CWordProcess::restoreCursorSelection()
{
    if (m_selStart == m_selEnd)
        return;
    const int last = m_document->characterCount() - 1;
    const int start = qBound(0, m_selStart, last);
    const int end = qBound(0, m_selEnd, last);
    m_cursor->setPosition(start, QTextCursor::MoveAnchor);
    if (end > start)
        m_cursor->setPosition(end, QTextCursor::KeepAnchor);
}
