// SPDX-License-Identifier: MIT
#include "app/pagehost/textselection.h"

#include "app/pagehost/artlook.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QGraphicsItem>

#include <algorithm>
#include <utility>

namespace {

constexpr int runDelay = 120;      // ms without a change after which runs are read
constexpr int longestRead = 50000; // characters of a text whose runs are read
constexpr int sampleLength = 12;   // characters
const QString attributeStep = QStringLiteral("IDS_IMAGE_ADJUST_ATTRIBUTE");

bool isLocked(const CVXRootObject *object)
{
    return object->isLocked();
}

/// \a attributes with the form that an edited \a object has, when its direction is among them: the
/// direction alone is recorded by no step of an edit.
AttributeMap recorded(CVXRootObject *object, AttributeMap attributes)
{
    const QString formKeys[] = {QStringLiteral("text_wordwrap"),
                                QStringLiteral("text_auto_wordwrap")};
    if (!attributes.contains(QStringLiteral("text_horizontal")) || attributes.contains(formKeys[0]))
        return attributes;
    AttributeMap now;
    object->getAllAttributes(now);
    for (const QString &key : formKeys)
        attributes.insert(key, now.value(key));
    return attributes;
}

/// The first words of \a text; empty for blanks alone.
QString firstWords(const QString &text)
{
    int start = 0;
    while (start < text.size() && text.at(start).isSpace())
        ++start;
    QString words = text.mid(start, sampleLength);
    const int lineEnd = words.indexOf(QLatin1Char('\n'));
    if (lineEnd >= 0)
        words.truncate(lineEnd);
    if (words.size() == sampleLength && words.at(words.size() - 1).isHighSurrogate())
        words.chop(1);
    return words.trimmed();
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
    m_runs.clear();
    m_ownIndex = -1;
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
    QList<CVXRootObject *> open = texts();
    open.erase(std::remove_if(open.begin(), open.end(), isLocked), open.end());
    return open;
}

QList<CVXRootObject *> TextSelection::openObjects() const
{
    QList<CVXRootObject *> open = objects();
    open.erase(std::remove_if(open.begin(), open.end(), isLocked), open.end());
    return open;
}

bool TextSelection::isEditing() const
{
    return m_session && m_session->editedObject();
}

bool TextSelection::isAtCaret() const
{
    const QList<CVXRootObject *> all = isEditing() ? texts() : QList<CVXRootObject *>();
    return !all.isEmpty() && !m_runs.value(all.constFirst()).hasSelection;
}

void TextSelection::takeAttributes(CVXRootObject *object, const AttributeMap &values)
{
    if (!m_session || !m_session->page()->objects().contains(object))
        return; // a sample
    if (TextCommands::isRichText(object))
        m_values.insert(object, values);
    else
        m_values.remove(object); // whose look is more than that
    announce();
}

/// Attributes that no notification has told since the selection changed are asked for.
const AttributeMap &TextSelection::attributesOf(CVXRootObject *object) const
{
    auto it = m_values.find(object);
    if (it == m_values.end()) {
        AttributeMap values;
        if (TextCommands::isRichText(object))
            object->getAllAttributes(values);
        else if (TextCommands::isArtText(object))
            values = ArtLook::attributes(object);
        it = m_values.insert(object, values);
    }
    return *it;
}

/// Nothing of an object that does not know \a key.
QVariantList TextSelection::valuesOf(CVXRootObject *object, const QString &key) const
{
    const AttributeMap &attributes = attributesOf(object);
    const auto value = attributes.constFind(key);
    if (value == attributes.constEnd())
        return {};
    const auto runs = m_runs.constFind(object);
    if (runs != m_runs.constEnd() && runs->different.contains(key))
        return runs->different.value(key);
    return {plainValue(key, *value)};
}

bool TextSelection::canChange(const QString &key) const
{
    const QList<CVXRootObject *> open = openObjects();
    return std::any_of(open.begin(), open.end(),
                       [&](CVXRootObject *object) { return attributesOf(object).contains(key); });
}

QVariantList TextSelection::values(const QString &key) const
{
    QVariantList all;
    const QList<CVXRootObject *> objectList = objects();
    for (CVXRootObject *object : objectList) {
        const QVariantList own = valuesOf(object, key);
        for (const QVariant &value : own) {
            if (!all.contains(value))
                all.append(value);
        }
    }
    return all;
}

QVariant TextSelection::value(const QString &key) const
{
    QVariant common;
    const QList<CVXRootObject *> all = objects();
    for (CVXRootObject *object : all) {
        const QVariantList own = valuesOf(object, key);
        if (own.isEmpty())
            continue;
        if (own.size() > 1 || (common.isValid() && common != own.constFirst()))
            return {};
        common = own.constFirst();
    }
    return common;
}

QString TextSelection::sampleWords() const
{
    const QList<CVXRootObject *> all = objects();
    for (CVXRootObject *object : all) {
        const QString words = firstWords(TextCommands::plainText(object));
        if (!words.isEmpty())
            return words;
    }
    return tr("Text");
}

/// True when \a object has all of \a attributes everywhere. What a caret or a selection has is not known of
/// characters, only of paragraphs.
bool TextSelection::hasAlready(CVXRootObject *object, const AttributeMap &attributes)
{
    const auto isSame = [&] {
        for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it) {
            const bool isKnown = !isEditing() || it.key() == QLatin1String("textalignment")
                                 || it.key().startsWith(QLatin1String("paragraph_"));
            const QVariantList same{plainValue(it.key(), *it)};
            if (!isKnown || valuesOf(object, it.key()) != same)
                return false;
        }
        return true;
    };
    if (!TextCommands::isRichText(object) || !isSame())
        return false;
    if (m_runsAreStale || m_announced)
        readRuns();
    return m_runs.contains(object) && isSame();
}

void TextSelection::apply(const AttributeMap &attributes)
{
    if (!m_session)
        return;
    CVXRootObject *edited = m_session->editedObject();
    if (edited && TextCommands::isArtText(edited))
        m_session->endEdit();
    QList<CVXRootObject *> open = openObjects();
    const auto isDone = [&](CVXRootObject *object) { return hasAlready(object, attributes); };
    open.erase(std::remove_if(open.begin(), open.end(), isDone), open.end());
    if (open.isEmpty()) {
        announce(); // controls go back to what is there
        return;
    }
    const auto change = [&] {
        for (CVXRootObject *object : qAsConst(open)) {
            if (TextCommands::isRichText(object))
                object->setAllAttributes(recorded(object, attributes), /*withUndo=*/true);
            else if (TextCommands::isArtText(object))
                ArtLook::change(object, attributes, *m_session->undoStack());
        }
    };
    asOneStep(attributeStep, change);
    for (RunValues &runs : m_runs) { // which are the same everywhere now
        for (auto it = attributes.constBegin(); it != attributes.constEnd(); ++it)
            runs.different.remove(it.key());
    }
}

void TextSelection::asOneStep(const QString &name, const std::function<void()> &change)
{
    if (!m_session)
        return;
    Q_EMIT m_session->aboutToAct();
    CUndoRedo *stack = m_session->undoStack();
    if (isEditing()) {
        m_session->recordNewText();
        m_session->noteEditInput();
    }
    const int before = stack->index();
    // Deliberate: in an edit the one object records what was typed as a step of its own, ahead of its
    // change. In a group the undo of the change would take the typed text with it.
    const bool isGroup = !isEditing();
    if (isGroup)
        stack->beginGroup(name);
    change();
    if (isGroup)
        stack->endGroup();
    m_ownIndex = stack->index() > before ? stack->index() : -1;
    m_values.clear();
    announce();
}

bool TextSelection::takeBack()
{
    const int index = std::exchange(m_ownIndex, -1);
    if (!m_session || index <= 0 || m_session->undoStack()->index() != index)
        return false;
    CUndoRedo *stack = m_session->undoStack();
    stack->undo();
    const_cast<QUndoCommand *>(stack->command(index - 1))->setObsolete(true);
    stack->redo(); // throws an obsolete step away, and does nothing else
    m_values.clear();
    announce();
    return true;
}

void TextSelection::wantRuns()
{
    if (m_runsAreStale && !m_runTimer.isActive())
        m_runTimer.start();
}

void TextSelection::readRuns()
{
    m_runTimer.stop();
    m_runsAreStale = false;
    QList<CVXRootObject *> read = texts();
    const auto isTooLong = [this](CVXRootObject *text) {
        return attributesOf(text).value(QStringLiteral("text")).toString().size() > longestRead;
    };
    read.erase(std::remove_if(read.begin(), read.end(), isTooLong), read.end());
    const QHash<CVXRootObject *, RunValues> runs = runValuesOf(read, isEditing());
    if (runs == m_runs)
        return;
    m_runs = runs;
    Q_EMIT changed();
}

/// Whether there is more to tell than a new place: a caret that blinks changes its object too.
void TextSelection::look()
{
    const QList<CVXRootObject *> now = objects();
    const int index = m_session ? m_session->undoStack()->index() : -1;
    if (now != m_seenObjects || index != m_seenIndex) {
        if (now != m_seenObjects)
            m_runs.clear();
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
        m_runsAreStale = true;
        m_runTimer.stop(); // and begins anew when somebody wants them still
        Q_EMIT changed();
    });
}
