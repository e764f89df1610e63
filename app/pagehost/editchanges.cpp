// SPDX-License-Identifier: MIT
#include "app/pagehost/editchanges.h"

#include "app/pagehost/objectsteps.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>

namespace {

const QString wordWrapKey = QStringLiteral("text_wordwrap");
const QString autoWordWrapKey = QStringLiteral("text_auto_wordwrap");

/// True for documents with the same words in the same formats, wherever the caret stands.
bool haveSameContent(const QString &a, const QString &b)
{
    if (a == b)
        return true;
    const QJsonObject first = QJsonDocument::fromJson(a.toUtf8()).object();
    const QJsonObject second = QJsonDocument::fromJson(b.toUtf8()).object();
    for (const char *key : {"block", "fragment", "text_direction"}) {
        if (first.value(QLatin1String(key)) != second.value(QLatin1String(key)))
            return false;
    }
    return !first.isEmpty() && !second.isEmpty(); // or they are plain texts
}

} // namespace

void EditChanges::begin(CVXRootObject *object)
{
    m_object = object;
    m_startText = TextCommands::plainText(object);
    m_startContent = content();
    m_undone = 0;
    m_isTouched = false;
    m_comparedInputs = -1;
}

/// An art text is written in one format.
QString EditChanges::content() const
{
    return TextCommands::isRichText(m_object) ? TextCommands::documentString(m_object)
                                              : TextCommands::plainText(m_object);
}

void EditChanges::noteInput()
{
    ++m_inputs;
    m_undone = 0; // the text has forgotten what it had undone
    m_isTouched = true;
}

bool EditChanges::isChanged() const
{
    if (TextCommands::plainText(m_object) != m_startText) {
        m_isTouched = true; // words that come back may come in other formats
        return true;
    }
    if (m_isTouched && m_comparedInputs != m_inputs) { // a caret that blinks asks too
        m_comparedInputs = m_inputs;
        m_isDifferent = !haveSameContent(content(), m_startContent);
    }
    return m_isTouched && m_isDifferent;
}

/// Deliberate: a text that is told the form which it has records the form, and in a step ahead of that
/// whatever its edit has changed. The step of the form changes nothing and goes.
void EditChanges::record(CUndoRedo &stack)
{
    m_comparedInputs = -1; // look again
    if (!TextCommands::isRichText(m_object) || !isChanged())
        return;
    AttributeMap now;
    m_object->getAllAttributes(now);
    const int index = stack.index();
    m_object->setAllAttributes({{wordWrapKey, now.value(wordWrapKey)},
                                {autoWordWrapKey, now.value(autoWordWrapKey)}},
                               /*withUndo=*/true);
    if (stack.index() > index)
        forgetLastStep(stack);
    begin(m_object);
}

void EditChanges::recordFormats(CUndoRedo &stack)
{
    if (m_isTouched && TextCommands::plainText(m_object) == m_startText)
        record(stack);
}

bool EditChanges::changesBy(int standardKey)
{
    const auto keys = QKeySequence::keyBindings(QKeySequence::StandardKey(standardKey));
    if (keys.isEmpty())
        return false;
    const int key = keys.constFirst()[0];
    const QString before = content();
    TextCommands::sendKey(m_object, key & ~Qt::KeyboardModifierMask,
                          Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
    ++m_inputs;
    m_isTouched = true;
    return !haveSameContent(before, content());
}

bool EditChanges::undo()
{
    const bool isChanging = changesBy(QKeySequence::Undo);
    m_undone += isChanging ? 1 : 0;
    return isChanging;
}

bool EditChanges::redo()
{
    const bool isChanging = changesBy(QKeySequence::Redo);
    m_undone = isChanging ? qMax(0, m_undone - 1) : 0;
    return isChanging;
}

void EditChanges::redoAll()
{
    while (m_undone > 0)
        redo();
}
