// SPDX-License-Identifier: MIT
#include "app/pagehost/pagesession.h"

#include "app/page/document.h"
#include "app/page/longwork.h"
#include "app/page/pluginloader.h"
#include "app/page/textobject.h"
#include "app/pagehost/objectsteps.h"
#include "app/pagehost/textcommands.h"
#include "app/pagehost/tools.h"
#include "host/framework/cvxrootobject.h"
#include "host/framework/iappframework.h"

#include <QClipboard>
#include <QGraphicsTextItem>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMimeData>
#include <QTextCursor>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

// A JSON list of objects as they stand in page files.
const QString objectsType = QStringLiteral("application/x-vxpage-objects");
const QLatin1String kindKey("kind");
const QLatin1String recordKey("record");
constexpr double copyOffset = 16; // page pixels by which a pasted copy lies off its original
constexpr int largestPaste = 64 * 1024 * 1024; // bytes

/// What an object is written in that the user begins.
AttributeMap lookOfNewObject(CVXRootObject *object)
{
    QString family;
    int size = 0;
    QString hint = QStringLiteral("Please input text");
    if (IAppFramework *framework = GetFramework()) {
        framework->getDefaultFont(family, size);
        hint = framework->getLocalString(QStringLiteral("IDS_TEXT_DEFAULT_INPUTWORD"), hint);
    }
    AttributeMap look{{QStringLiteral("defaultword"),
                       hint}, // stands in the text while that is empty
                      {QStringLiteral("font_family"), family}};
    if (TextCommands::isArtText(object))
        return look; // as large as it was drawn
    look.insert(QStringLiteral("text_init_flag"),
                true); // part of the coming of the object: no step
    look.insert(QStringLiteral("font_pointsize"), size);
    look.insert(QStringLiteral("pen_color"), QStringLiteral("#000000"));
    return look;
}

const QString addKey = QStringLiteral("IDS_ITEM_ADD_ITEM");
const QString duplicateKey = QStringLiteral("IDS_ITEM_DUPLICATE");
const QString deleteKey = QStringLiteral("IDS_ITEM_DELETE_ITEM");
const QString styleKey = QStringLiteral("IDS_ART_STYLE");
const QString shapeAttribute = QStringLiteral("shape");

int styleOf(CVXRootObject *art)
{
    AttributeMap attributes;
    art->getAllAttributes(attributes);
    return attributes.value(shapeAttribute).toInt();
}

} // namespace

PageSession::PageSession(const PluginLoader *loader, std::unique_ptr<OpenPage> page)
    : m_loader(loader)
    , m_open(std::move(page))
    , m_lastId(m_open->page()->objects().size())
{
    m_open->page()->setWatcher(this);
    for (CVXRootObject *object : m_open->page()->objects())
        object->updateCursorColor(background());
    hintMissingFonts();
    connect(undoStack(), &QUndoStack::indexChanged, this, &PageSession::followSteps);
    connect(undoStack(), &QUndoStack::indexChanged, this, &PageSession::hintMissingFonts);
    connect(undoStack(), &QUndoStack::cleanChanged, this, &PageSession::announce);
    connect(m_open->page()->scene(), &QGraphicsScene::selectionChanged, this,
            &PageSession::announce);
}

PageSession::~PageSession()
{
    page()->setWatcher(nullptr);
    undoStack()->disconnect(this);
    page()->scene()->disconnect(this);
}

bool PageSession::isModified() const
{
    // The steps of a new text go with it when it stays empty.
    const bool abandoned = isNewTextAbandoned();
    if (undoStack()->cleanIndex() != (abandoned ? m_stepsAheadOfNewText : undoStack()->index()))
        return true;
    return editedObject() && m_edit.isChanged();
}

CUndoRedo *PageSession::undoStack() const
{
    return m_open->document()->undoStack();
}

CVXRootObject *PageSession::editedObject() const
{
    CVXRootObject *object = page()->editingObject(); // told of the beginning only
    return object && TextCommands::isEditing(object) ? object : nullptr;
}

QStringList PageSession::missingFonts() const
{
    QStringList families;
    for (CVXRootObject *object : page()->objects())
        families += TextObject::missingFonts(object);
    families.removeDuplicates();
    return families;
}

void PageSession::hintMissingFonts()
{
    for (CVXRootObject *object : page()->objects()) {
        const QStringList families = TextObject::missingFonts(object);
        const QString hint = families.isEmpty()
                                 ? QString() // also of fonts that have been replaced
                                 : tr("Missing font: %1").arg(families.join(QLatin1String(", ")));
        TextObject::setMissingFontHint(object, hint);
    }
}

// What the page tells

void PageSession::objectChanged(CVXRootObject *object)
{
    if (object != editedObject()) // whose caret blinks
        ++m_changes;
    if (object == m_newText && !m_newTextIsRecorded && !TextCommands::plainText(object).isEmpty())
        recordNewText();
    announce();
}

void PageSession::editingChanged(CVXRootObject *object, bool editing)
{
    if (editing)
        m_edit.begin(object);
    announce();
}

/// A rich text comes to the steps with its first words: until then it may be given up.
void PageSession::objectDrawn(CVXRootObject *object)
{
    if (!TextCommands::isRichText(object))
        pushPresence(object);
}

void PageSession::pushPresence(CVXRootObject *object)
{
    undoStack()->push(new PresenceStep(PresenceStep::Change::Adds, page(), object));
}

void PageSession::noteEditState()
{
    announce();
}

/// Once for all changes of a turn of the event loop: objects change several times for one key.
void PageSession::announce()
{
    if (m_announced)
        return;
    m_announced = true;
    QTimer::singleShot(0, this, [this] {
        m_announced = false;
        if (m_newText && !editedObject())
            settleNewText();
        Q_EMIT stateChanged();
    });
}

// New objects

CVXRootObject *PageSession::startDrawing(int tool, const QPointF &pos)
{
    endEdit();
    page()->scene()->clearSelection();
    CVXRootObject *object = tool == EditorTool::ArtText
                                ? m_loader->createArtText(++m_lastId, page(), /*finished=*/false)
                                : m_loader->createText(++m_lastId, page(), /*finished=*/false);
    if (!object)
        return nullptr;
    m_stepsAheadOfNewText = undoStack()->index();
    object->updateCursorColor(background());
    page()->addObject(object);
    object->setPos(pos, /*undo=*/false);
    return object;
}

void PageSession::cancelDrawing(CVXRootObject *object)
{
    page()->removeObject(object);
}

void PageSession::takeDrawn(CVXRootObject *object)
{
    selectOnly({object});
    if (TextCommands::isArtText(object)) {
        object->setAllAttributes(lookOfNewObject(object), /*withUndo=*/false);
        return;
    }
    m_newText = object;
    m_newTextIsRecorded = false;
    TextObject::setAttributes(object, lookOfNewObject(object));
    TextObject::beginEdit(object);
}

bool PageSession::endEdit()
{
    Q_EMIT aboutToAct();
    if (CVXRootObject *object = editedObject()) {
        prepareEndOfEdit();
        TextObject::endEdit(object);
        announce();
    }
    return settleNewText();
}

bool PageSession::isNewTextAbandoned() const
{
    return page()->objects().contains(m_newText) && TextCommands::plainText(m_newText).isEmpty();
}

/// The end of the first edit of a new text. Without a word the text goes, and the steps of its drawing
/// and of its attributes with it.
bool PageSession::settleNewText()
{
    if (!m_newText)
        return true;
    const bool abandoned = isNewTextAbandoned();
    if (!abandoned)
        recordNewText();
    CVXRootObject *const object = std::exchange(m_newText, nullptr);
    if (!abandoned)
        return true;
    page()->takeObject(object); // ahead of the steps, that none of them looks for it there
    CUndoRedo *const stack = undoStack();
    while (stack->index() > m_stepsAheadOfNewText)
        forgetLastStep(*stack);
    object->Release();
    announce();
    return false;
}

void PageSession::selectOnly(const QList<CVXRootObject *> &objects)
{
    page()->scene()->clearSelection();
    for (CVXRootObject *object : objects)
        object->doSelected(true, /*notify=*/false);
}

// Edit menu

QList<CVXRootObject *> PageSession::selectedObjects() const
{
    QList<CVXRootObject *> selected;
    for (CVXRootObject *object : page()->objects()) { // lowest first
        const bool isKnown = TextCommands::isRichText(object) || TextCommands::isArtText(object);
        if (isKnown && object->graphicsItem()->isSelected())
            selected.append(object);
    }
    return selected;
}

/// The objects as they stand in page files.
QJsonArray PageSession::copiesOf(const QList<CVXRootObject *> &objects) const
{
    QJsonArray copies;
    for (CVXRootObject *object : objects) {
        QJsonObject record;
        if (!object->saveJson(record))
            continue;
        copies.append(
            QJsonObject{{kindKey, TextCommands::isArtText(object) ? PageFile::artTextKind()
                                                                  : PageFile::richTextKind()},
                        {recordKey, record}});
    }
    return copies;
}

void PageSession::cut()
{
    if (CVXRootObject *object = editedObject()) {
        noteEditInput();
        TextCommands::cut(object);
        return;
    }
    copy();
    removeSelected();
}

void PageSession::copy()
{
    if (CVXRootObject *object = editedObject()) {
        TextCommands::copy(object);
        return;
    }
    const QList<CVXRootObject *> selected = selectedObjects();
    const QJsonArray copies = copiesOf(selected);
    QStringList texts;
    for (CVXRootObject *object : selected)
        texts.append(TextCommands::plainText(object));
    if (copies.isEmpty())
        return;
    auto *data = new QMimeData;
    data->setData(objectsType, QJsonDocument(copies).toJson(QJsonDocument::Compact));
    data->setText(texts.join(QLatin1Char('\n')));
    QGuiApplication::clipboard()->setMimeData(data); // which owns it now
}

bool PageSession::hasObjects(const QMimeData &data)
{
    return data.hasFormat(objectsType);
}

bool PageSession::paste(const QPointF &place, LongWork &work)
{
    if (CVXRootObject *object = editedObject()) {
        noteEditInput();
        TextCommands::paste(object, /*newObject=*/false);
        return true;
    }
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    const QByteArray bytes = data ? data->data(objectsType) : QByteArray();
    if (bytes.size() > largestPaste)
        return false;
    if (data && !addCopies(QJsonDocument::fromJson(bytes).array(), addKey, work))
        pasteText(place, /*rich=*/true);
    return true;
}

void PageSession::pastePlainText(const QPointF &place)
{
    if (CVXRootObject *object = editedObject()) {
        noteEditInput();
        TextCommands::paste(object, /*newObject=*/false, /*rich=*/false);
    } else {
        pasteText(place, /*rich=*/false);
    }
}

void PageSession::duplicate()
{
    endEdit();
    addCopies(copiesOf(selectedObjects()), duplicateKey, *plainWork());
}

/// Puts \a object on the page as one that has come by a command.
void PageSession::adopt(CVXRootObject *object)
{
    object->updateCursorColor(background());
    pushPresence(object);
}

/// In one step of that name; none when \a work is given up. False when nothing comes of them.
bool PageSession::addCopies(const QJsonArray &copies, const QString &name, LongWork &work)
{
    QList<CVXRootObject *> objects;
    for (const QJsonValue &copy : copies) {
        if (!work.step(objects.size(), copies.size())) {
            for (CVXRootObject *object : qAsConst(objects))
                page()->removeObject(object);
            return true;
        }
        if (CVXRootObject *object = objectOfCopy(copy.toObject()))
            objects.append(object);
    }
    work.beginLastPart();
    if (objects.isEmpty())
        return false;
    const QPointF way = wayOfCopies(objects);
    for (CVXRootObject *object : qAsConst(objects))
        object->setPos(object->getPos() + way, /*undo=*/false);
    undoStack()->beginGroup(name);
    for (CVXRootObject *object : qAsConst(objects))
        adopt(object);
    undoStack()->endGroup();
    selectOnly(objects);
    hintMissingFonts();
    return true;
}

CVXRootObject *PageSession::objectOfCopy(const QJsonObject &copy)
{
    const QString kind = copy.value(kindKey).toString();
    CVXRootObject *object = nullptr;
    if (kind == PageFile::artTextKind())
        object = m_loader->createArtText(++m_lastId, page());
    else if (kind == PageFile::richTextKind())
        object = m_loader->createText(++m_lastId, page());
    if (!object)
        return nullptr;
    page()->addObject(object);
    QJsonObject record = copy.value(recordKey).toObject();
    if (!object->loadJson(record)) {
        page()->removeObject(object);
        return nullptr;
    }
    object->setZorder(page()->objects().size() - 1); // on top, wherever the original lies
    return object;
}

/// How far copies that lie where their originals do have to move, that none hides another object.
QPointF PageSession::wayOfCopies(const QList<CVXRootObject *> &copies) const
{
    const QList<CVXRootObject *> &objects = page()->objects();
    const QPointF step(copyOffset, copyOffset);
    QPointF way = step;
    const auto hidesOne = [&](CVXRootObject *copy) {
        const QPointF place = copy->getPos() + way;
        return std::any_of(objects.begin(), objects.end(), [&](CVXRootObject *other) {
            return other->getPos() == place && !copies.contains(other);
        });
    };
    for (int tries = 0; tries < objects.size(); ++tries) { // a step is nothing very far off
        if (std::none_of(copies.begin(), copies.end(), hidesOne))
            break;
        way += step;
    }
    return way;
}

void PageSession::pasteText(const QPointF &place, bool rich)
{
    CVXRootObject *object = m_loader->createText(++m_lastId, page());
    if (!object)
        return;
    page()->addObject(object);
    TextCommands::paste(object, /*newObject=*/true, rich);
    if (TextCommands::plainText(object).isEmpty()) {
        page()->removeObject(object);
        return;
    }
    object->setPos(place, /*undo=*/false);
    adopt(object);
    selectOnly({object});
}

void PageSession::removeSelected()
{
    endEdit();
    const QList<CVXRootObject *> selected = page()->getSelectedObjects();
    undoStack()->beginGroup(deleteKey);
    for (CVXRootObject *object : selected) {
        if (!object->isLocked())
            undoStack()->push(new PresenceStep(PresenceStep::Change::Removes, page(), object));
    }
    undoStack()->endGroup();
}

void PageSession::selectAll()
{
    selectOnly(page()->objects());
}

int PageSession::artStyle() const
{
    int style = -1;
    const QList<CVXRootObject *> selected = selectedObjects();
    for (CVXRootObject *object : selected) {
        if (!TextCommands::isArtText(object))
            continue;
        if (style >= 0 && styleOf(object) != style)
            return -1;
        style = styleOf(object);
    }
    return style;
}

void PageSession::setArtStyle(int style)
{
    endEdit();
    undoStack()->beginGroup(styleKey);
    const QList<CVXRootObject *> selected = selectedObjects();
    for (CVXRootObject *object : selected) {
        if (!TextCommands::isArtText(object) || object->isLocked() || styleOf(object) == style)
            continue;
        undoStack()->push(new AttributeStep(object, {{shapeAttribute, styleOf(object)}},
                                            {{shapeAttribute, style}}, styleKey));
    }
    undoStack()->endGroup();
}
