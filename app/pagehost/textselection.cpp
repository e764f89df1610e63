// SPDX-License-Identifier: MIT
#include "app/pagehost/textselection.h"

#include "app/page/textobject.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QGraphicsItem>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int runDelay = 120;      // ms without a change after which runs are read
constexpr int longestRead = 50000; // characters of a text whose runs are read
constexpr int sampleLength = 12;   // characters
const QString attributeStep = QStringLiteral("IDS_IMAGE_ADJUST_ATTRIBUTE");
const QLatin1String documentDataKey("document_data");
const QLatin1String contentKey("content");

/// The document of \a object as its record tells it; empty for an object without one.
QJsonObject documentOf(CVXRootObject *object)
{
    IVxPage *page = object->GetPage();
    object->setBelongPage(nullptr); // away from its page it stores no picture
    QJsonObject record;
    const bool isWritten = object->saveJson(record);
    object->setBelongPage(page);
    if (!isWritten)
        return {};
    for (const QJsonValue &member : qAsConst(record)) {
        const QJsonValue data = member.toObject().value(documentDataKey);
        if (data.isString())
            return QJsonDocument::fromJson(data.toString().toUtf8()).object();
    }
    return {};
}

/// Gathers the keys under which the parts of one text differ.
class Comparison
{
public:
    void take(const QJsonObject &part)
    {
        if (m_isFirst) {
            m_first = part;
            m_isFirst = false;
            return;
        }
        for (auto it = part.constBegin(); it != part.constEnd(); ++it) {
            if (it.key() != contentKey && m_first.value(it.key()) != it.value())
                m_different.insert(it.key());
        }
    }
    QSet<QString> different() const { return m_different; }

private:
    QJsonObject m_first;
    bool m_isFirst = true;
    QSet<QString> m_different;
};

/// The keys that have several values in \a document.
QSet<QString> mixedKeys(const QJsonObject &document)
{
    Comparison runs;
    Comparison blocks;
    const QJsonArray blockList = document.value(QLatin1String("block")).toArray();
    const QJsonArray runLists = document.value(QLatin1String("fragment")).toArray();
    for (const QJsonValue &block : blockList)
        blocks.take(block.toObject());
    for (const QJsonValue &list : runLists) {
        const QJsonArray runList = list.toArray();
        for (const QJsonValue &run : runList) {
            if (!run.toObject().value(contentKey).toString().isEmpty())
                runs.take(run.toObject());
        }
    }
    return runs.different() + blocks.different();
}

} // namespace

TextSelection::TextSelection(QObject *parent)
    : QObject(parent)
{
    m_runTimer.setSingleShot(true);
    m_runTimer.setInterval(runDelay);
    connect(&m_runTimer, &QTimer::timeout, this, &TextSelection::readRuns);
}

void TextSelection::setSession(PageSession *session)
{
    if (m_session)
        m_session->disconnect(this);
    m_session = session;
    m_values.clear();
    m_seenObjects.clear();
    m_seenIndex = -1;
    if (session)
        connect(session, &PageSession::stateChanged, this, &TextSelection::look);
    announce();
}

PageSession *TextSelection::session() const
{
    return m_session;
}

QList<CVXRootObject *> TextSelection::objects() const
{
    if (!m_session)
        return {};
    if (CVXRootObject *edited = m_session->editedObject())
        return {edited};
    QList<CVXRootObject *> selected;
    for (CVXRootObject *object : m_session->page()->objects()) {
        if (object->graphicsItem()->isSelected())
            selected.append(object);
    }
    return selected;
}

QList<CVXRootObject *> TextSelection::texts() const
{
    QList<CVXRootObject *> texts;
    const QList<CVXRootObject *> all = objects();
    for (CVXRootObject *object : all) {
        if (TextCommands::isRichText(object))
            texts.append(object);
    }
    return texts;
}

QList<CVXRootObject *> TextSelection::openTexts() const
{
    QList<CVXRootObject *> open;
    const QList<CVXRootObject *> all = texts();
    for (CVXRootObject *object : all) {
        if (!object->isLocked())
            open.append(object);
    }
    return open;
}

bool TextSelection::isEditing() const
{
    return m_session && m_session->editedObject();
}

void TextSelection::takeAttributes(CVXRootObject *object, const AttributeMap &values)
{
    if (!m_session || !m_session->page()->objects().contains(object))
        return; // a sample
    m_values.insert(object, values);
    announce();
}

/// Attributes that no notification has told since the selection changed are asked for.
AttributeMap TextSelection::attributesOf(CVXRootObject *object) const
{
    auto it = m_values.find(object);
    if (it == m_values.end()) {
        AttributeMap values;
        object->getAllAttributes(values);
        it = m_values.insert(object, values);
    }
    return *it;
}

QVariant TextSelection::value(const QString &key) const
{
    if (m_mixed.contains(key))
        return {};
    QVariant common;
    const QList<CVXRootObject *> all = texts();
    for (CVXRootObject *object : all) {
        const QVariant value = attributesOf(object).value(key);
        if (object == all.constFirst())
            common = value;
        else if (value != common)
            return {};
    }
    return common;
}

QString TextSelection::sampleWords() const
{
    const QList<CVXRootObject *> all = objects();
    for (CVXRootObject *object : all) {
        const QStringList lines = TextCommands::plainText(object).split(QLatin1Char('\n'));
        for (const QString &line : lines) {
            const QString words = line.trimmed();
            if (words.isEmpty())
                continue;
            const bool cutsPair = words.size() > sampleLength
                                  && words.at(sampleLength - 1).isHighSurrogate();
            return words.left(cutsPair ? sampleLength - 1 : sampleLength);
        }
    }
    return tr("Text");
}

void TextSelection::apply(const AttributeMap &attributes)
{
    const QList<CVXRootObject *> open = openTexts();
    if (open.isEmpty())
        return;
    CUndoRedo *stack = m_session->undoStack();
    if (open.size() > 1)
        stack->beginGroup(attributeStep);
    for (CVXRootObject *object : open)
        object->setAllAttributes(attributes, /*withUndo=*/true);
    if (open.size() > 1)
        stack->endGroup();
    m_values.clear();
    announce();
}

void TextSelection::readRuns()
{
    m_runTimer.stop();
    QSet<QString> mixed;
    // Deliberate: no record is asked of an edited text, for its edit would end.
    const QList<CVXRootObject *> all = isEditing() ? QList<CVXRootObject *>() : texts();
    for (CVXRootObject *object : all) {
        if (attributesOf(object).value(QStringLiteral("text")).toString().size() <= longestRead)
            mixed += mixedKeys(documentOf(object));
    }
    if (mixed == m_mixed)
        return;
    m_mixed = mixed;
    Q_EMIT changed();
}

/// Whether there is more to tell than a new place: a caret that blinks changes its object too.
void TextSelection::look()
{
    const QList<CVXRootObject *> now = objects();
    const int index = m_session ? m_session->undoStack()->index() : -1;
    if (now != m_seenObjects || index != m_seenIndex) {
        if (now != m_seenObjects)
            m_mixed.clear();
        m_seenObjects = now;
        m_seenIndex = index;
        m_values.clear();
        announce();
    }
    Q_EMIT placeChanged();
}

/// Once for all notifications of a turn of the event loop.
void TextSelection::announce()
{
    if (m_announced)
        return;
    m_announced = true;
    QTimer::singleShot(0, this, [this] {
        m_announced = false;
        m_runTimer.start();
        Q_EMIT changed();
    });
}
