// SPDX-License-Identifier: MIT
#include "app/pagehost/objectpanel.h"

#include "app/pagehost/pagesession.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/textselection.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QFormLayout>

#include <cmath>

namespace {

constexpr double farthest = 100000; // page pixels
constexpr double fullTurn = 360;
const QString horizontalKey = QStringLiteral("text_horizontal");
const QString wrapKey = QStringLiteral("text_wordwrap");
const QString growsKey = QStringLiteral("text_auto_wordwrap");

/// How a text takes its room.
enum Form {
    LineForm,
    BoxForm,
    GrowingBoxForm,
};

/// Turns an object to its mirror image, top to bottom or left to right.
class MirrorStep : public CWbUndoCmd
{
public:
    MirrorStep(CVXRootObject *object, bool flips, bool on)
        : m_flips(flips)
        , m_on(on)
    {
        m_object = object;
        setText(flips ? QStringLiteral("IDS_ITEM_FLIP") : QStringLiteral("IDS_ITEM_MIRROR"));
    }

    void undo() override { set(!m_on); }
    void redo() override { set(m_on); }

private:
    void set(bool on)
    {
        if (!m_object)
            return;
        if (m_flips)
            m_object->setFlip(on, /*notify=*/true);
        else
            m_object->setMirror(on, /*notify=*/true);
        m_object->update();
    }

    bool m_flips;
    bool m_on;
};

/// What all \a objects have in common; invalid when they differ.
template<typename Read>
QVariant common(const QList<CVXRootObject *> &objects, const Read &read)
{
    QVariant value;
    for (CVXRootObject *object : objects) {
        const QVariant own = read(object);
        if (object == objects.constFirst())
            value = own;
        else if (own != value)
            return {};
    }
    return value;
}

/// From -180 to 180 degrees.
double nearestAngle(double angle)
{
    return std::remainder(angle, fullTurn);
}

} // namespace

ObjectPanel::ObjectPanel(TextSelection *selection)
    : Panel(selection)
    , m_direction(new ChoiceBox(tr("Direction of the text"), {tr("Lines"), tr("Columns")}))
    , m_form(new ChoiceBox(tr("Room of the text"), {tr("Line"), tr("Box"), tr("Box that grows")}))
{
    auto *form = new QFormLayout(this);
    addText(form);
    addMirrors(form);
    addPlaces(form);
    connect(selection, &TextSelection::placeChanged, this, [this] {
        if (isSeen())
            refreshPlace();
    });
}

void ObjectPanel::addText(QFormLayout *form)
{
    m_direction->setObjectName(QStringLiteral("direction"));
    form->addRow(tr("Direction"), m_direction);
    connect(m_direction, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        m_selection->apply({{horizontalKey, index == 0}});
    });
    m_form->setObjectName(QStringLiteral("form"));
    form->addRow(tr("Room"), m_form);
    connect(m_form, QOverload<int>::of(&QComboBox::activated), this, &ObjectPanel::setForm);
    for (const ChoiceBox *box : {m_direction, m_form})
        connect(box, &ChoiceBox::left, m_selection, &TextSelection::pageWanted);
}

void ObjectPanel::addMirrors(QFormLayout *form)
{
    addFlag(form, "mirror", tr("Mirror left to right"), /*flips=*/false,
            [](CVXRootObject *object) { return object->isMirror(); });
    addFlag(form, "flip", tr("Flip top to bottom"), /*flips=*/true,
            [](CVXRootObject *object) { return object->isFlip(); });
}

void ObjectPanel::addPlaces(QFormLayout *form)
{
    const auto length = [](const QString &name, double smallest) {
        return new NumberField(name, smallest, farthest, 2, tr("px"));
    };
    addPlace(
        form, "x", length(tr("X"), -farthest), "IDS_ITEM_MOVE",
        [](CVXRootObject *object) { return object->getPos().x(); },
        [](CVXRootObject *object, double x) {
            object->setPos({x, object->getPos().y()}, /*undo=*/true);
        });
    addPlace(
        form, "y", length(tr("Y"), -farthest), "IDS_ITEM_MOVE",
        [](CVXRootObject *object) { return object->getPos().y(); },
        [](CVXRootObject *object, double y) {
            object->setPos({object->getPos().x(), y}, /*undo=*/true);
        });
    addPlace(
        form, "width", length(tr("Width"), 1), "IDS_ITEM_RESIZE",
        [](CVXRootObject *object) { return object->getSize().width(); },
        [](CVXRootObject *object, double width) {
            object->setSize({width, object->getSize().height()}, /*undo=*/true,
                            /*notify=*/true);
        });
    addPlace(
        form, "height", length(tr("Height"), 1), "IDS_ITEM_RESIZE",
        [](CVXRootObject *object) { return object->getSize().height(); },
        [](CVXRootObject *object, double height) {
            object->setSize({object->getSize().width(), height}, /*undo=*/true,
                            /*notify=*/true);
        });
    auto *angle = new NumberField(tr("Angle"), -fullTurn, fullTurn, 2, QStringLiteral("°"));
    addPlace(
        form, "angle", angle, "IDS_ITEM_ROTATE",
        [](CVXRootObject *object) { return nearestAngle(object->getRotate()); },
        [](CVXRootObject *object, double degrees) {
            object->rotateObj(nearestAngle(degrees - object->getRotate()), /*undo=*/true);
        });
}

void ObjectPanel::addPlace(QFormLayout *form, const char *name, NumberField *field,
                           const char *stepName, Read read, Write write)
{
    field->setObjectName(QLatin1String(name));
    form->addRow(field->accessibleName(), field);
    m_places.push_back({field, read});
    const QString step = QLatin1String(stepName);
    connectNumber(field, [this, step, write](double value) {
        changeAll(step, [&](CVXRootObject *object) { write(object, value); });
    });
}

void ObjectPanel::addFlag(QFormLayout *form, const char *name, const QString &text, bool flips,
                          ReadFlag read)
{
    auto *box = new FlagBox(text);
    box->setObjectName(QLatin1String(name));
    form->addRow(box);
    m_flags.push_back({box, read});
    connect(box, &FlagBox::chosen, this, [this, flips, read](bool on) {
        const QString step = flips ? QStringLiteral("IDS_ITEM_FLIP")
                                   : QStringLiteral("IDS_ITEM_MIRROR");
        changeAll(step, [&](CVXRootObject *object) {
            if (read(object) != on)
                object->undoStack()->push(new MirrorStep(object, flips, on));
        });
    });
}

void ObjectPanel::changeAll(const QString &stepName,
                            const std::function<void(CVXRootObject *)> &change)
{
    const QList<CVXRootObject *> open = m_selection->openObjects();
    m_selection->asOneStep(stepName, [&] {
        for (CVXRootObject *object : open)
            change(object);
    });
    refreshPlace();
}

void ObjectPanel::setForm(int form)
{
    m_selection->apply({{wrapKey, form != LineForm}, {growsKey, form == GrowingBoxForm}});
}

void ObjectPanel::refresh()
{
    m_direction->setEnabled(m_selection->canChange(horizontalKey));
    m_form->setEnabled(m_selection->canChange(wrapKey));
    const QVariant horizontal = m_selection->value(horizontalKey);
    m_direction->setCurrentIndex(horizontal.isValid() ? int(!horizontal.toBool()) : -1);
    const QVariant wraps = m_selection->value(wrapKey);
    const QVariant grows = m_selection->value(growsKey);
    if (!wraps.isValid() || (wraps.toBool() && !grows.isValid()))
        m_form->setCurrentIndex(-1);
    else if (!wraps.toBool())
        m_form->setCurrentIndex(LineForm);
    else
        m_form->setCurrentIndex(grows.toBool() ? GrowingBoxForm : BoxForm);
    refreshPlace();
}

void ObjectPanel::refreshPlace()
{
    const QList<CVXRootObject *> all = m_selection->objects();
    setEnabled(!m_selection->openObjects().isEmpty());
    for (const Place &place : m_places)
        place.field->show(common(all, place.read));
    for (const Flag &flag : m_flags)
        flag.box->show(all.isEmpty() ? QVariant(false) : common(all, flag.read));
}
