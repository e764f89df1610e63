// SPDX-License-Identifier: MIT
#include "app/pagehost/warppanel.h"

#include "app/page/textobject.h"
#include "app/pagehost/pagesession.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/stylegallery.h"
#include "app/pagehost/stylenames.h"
#include "app/pagehost/textselection.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QBuffer>
#include <QDataStream>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace {

namespace Property {
constexpr int Restore = 115; // what was ahead of a preview
constexpr int Warp = 118;
} // namespace Property

constexpr int across = 2; // "warp_oriention" of a warp across columns
constexpr int wholePercent = 100;
constexpr double firstBend = 0.5; // of a text that had no warp
const QString warpStep = QStringLiteral("IDS_TEXT_WARP");
const QString styleKey = QStringLiteral("warp_style");
const QString orientationKey = QStringLiteral("warp_oriention"); // spelled so in every record

void send(CVXRootObject *object, const TextWarp &warp, bool commit)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << warp.style << warp.value << warp.horizontal << warp.vertical
        << int(warp.acrossColumns ? across : 1) << commit;
    QDataStream in(bytes);
    object->SetSpecialProperty(Property::Warp, in, false);
}

} // namespace

WarpPanel::WarpPanel(TextSelection *selection, const PluginLoader *loader)
    : Panel(selection)
    , m_orientation(
          new ChoiceBox(tr("Direction of the warp"), {tr("Along lines"), tr("Along columns")}))
    , m_reset(new QPushButton(tr("Reset")))
{
    m_gallery = new StyleGallery(tr("Warp styles"), [this, loader](const SampleText &text,
                                                                   int style, const QSize &size) {
        return warpSample(loader, text, style, m_orientation->currentIndex() == 1, size);
    });
    m_gallery->setObjectName(QStringLiteral("warpGallery"));
    for (int style = 0; style <= warpStyleCount; ++style)
        m_gallery->addStyle(style, warpStyleName(style));
    connect(m_gallery, &StyleGallery::picked, this, &WarpPanel::setStyle);

    auto *column = new QVBoxLayout(this);
    column->addWidget(m_gallery, 1);
    auto *form = new QFormLayout;
    column->addLayout(form);
    addControls(form);
    m_reset->setObjectName(QStringLiteral("warpReset"));
    m_reset->setAccessibleName(tr("Reset the warp"));
    m_reset->setFocusPolicy(Qt::TabFocus);
    column->addWidget(m_reset);
    connect(m_reset, &QAbstractButton::clicked, this, &WarpPanel::reset);
}

void WarpPanel::addControls(QFormLayout *form)
{
    addValue(form, m_bend, tr("Bend"), "warp_value", &TextWarp::value);
    addValue(form, m_horizontal, tr("Horizontal"), "warp_horizontal_value", &TextWarp::horizontal);
    addValue(form, m_vertical, tr("Vertical"), "warp_vertical_value", &TextWarp::vertical);
    m_orientation->setObjectName(QStringLiteral("warpOrientation"));
    form->addRow(tr("Direction"), m_orientation);
    connect(m_orientation, QOverload<int>::of(&QComboBox::activated), this,
            [this](int index) { setOrientation(index == 1); });
    connect(m_orientation, &ChoiceBox::left, m_selection, &TextSelection::pageWanted);
}

void WarpPanel::addValue(QFormLayout *form, Value &value, const QString &name, const char *key,
                         double TextWarp::*part)
{
    value.slider = new LiveSlider(name);
    value.slider->setObjectName(QLatin1String(key) + QLatin1String("_slider"));
    value.slider->setRange(-wholePercent, wholePercent);
    value.field = new NumberField(name, -wholePercent, wholePercent, 0, QStringLiteral("%"));
    value.field->setObjectName(QLatin1String(key));
    value.key = key;
    value.part = part;
    auto *row = new QHBoxLayout;
    row->addWidget(value.slider, 1);
    row->addWidget(value.field);
    form->addRow(name, row);
    connect(value.slider, &LiveSlider::previewed, this, [this, &value](int percent) {
        value.field->show(percent);
        setPart(value.part, percent / double(wholePercent), /*commit=*/false);
    });
    const auto leave = [this] {
        if (m_selection->isEditing())
            Q_EMIT m_selection->pageWanted();
    };
    const auto set = [this, &value](const QVariant &percent) {
        setPart(value.part, percent.toDouble() / wholePercent, /*commit=*/true);
    };
    connect(value.slider, &LiveSlider::committed, this, set);
    connect(value.slider, &LiveSlider::committed, this, leave);
    connect(value.slider, &LiveSlider::left, this, leave);
    connect(value.slider, &LiveSlider::cancelled, this, &WarpPanel::restore);
    connectSteps(value.slider, set);
    connectNumber(value.field, set);
}

/// A text that lacks a font shows a picture and is not bent.
QList<CVXRootObject *> WarpPanel::targets() const
{
    QList<CVXRootObject *> targets;
    const QList<CVXRootObject *> open = m_selection->openTexts();
    for (CVXRootObject *object : open) {
        if (TextObject::missingFonts(object).isEmpty())
            targets.append(object);
    }
    return targets;
}

TextWarp WarpPanel::warpOf(CVXRootObject *object) const
{
    AttributeMap attributes;
    object->getAllAttributes(attributes);
    TextWarp warp;
    warp.style = attributes.value(styleKey).toInt();
    for (const Value *value : {&m_bend, &m_horizontal, &m_vertical})
        warp.*(value->part) = attributes.value(QLatin1String(value->key)).toDouble() / wholePercent;
    warp.acrossColumns = attributes.value(orientationKey).toInt() == across;
    return warp;
}

/// Lets \a edit change the warp of all targets: to be seen for now, or as one step.
void WarpPanel::change(bool commit, const std::function<void(TextWarp &warp)> &edit)
{
    const QList<CVXRootObject *> all = targets();
    const auto changeAll = [&] {
        for (CVXRootObject *object : all) {
            TextWarp warp = warpOf(object);
            edit(warp);
            send(object, warp, commit);
        }
    };
    if (commit)
        m_selection->asOneStep(warpStep, changeAll);
    else
        changeAll();
    m_previewed = commit ? QList<CVXRootObject *>() : all;
}

void WarpPanel::setPart(double TextWarp::*part, double value, bool commit)
{
    change(commit, [&](TextWarp &warp) { warp.*part = value; });
}

/// Whether \a isNew holds for a warp that would be changed.
bool WarpPanel::isAny(const std::function<bool(const TextWarp &warp)> &isNew) const
{
    const QList<CVXRootObject *> all = targets();
    return std::any_of(all.begin(), all.end(),
                       [&](CVXRootObject *object) { return isNew(warpOf(object)); });
}

void WarpPanel::setStyle(int style)
{
    if (!isAny([style](const TextWarp &warp) { return warp.style != style; }))
        return;
    change(/*commit=*/true, [&](TextWarp &warp) {
        if (style != 0 && warp.value == 0)
            warp.value = firstBend; // or the style would not show
        warp.style = style;
    });
}

void WarpPanel::setOrientation(bool acrossColumns)
{
    if (!isAny([=](const TextWarp &warp) { return warp.acrossColumns != acrossColumns; }))
        return;
    change(/*commit=*/true, [&](TextWarp &warp) { warp.acrossColumns = acrossColumns; });
}

void WarpPanel::reset()
{
    change(/*commit=*/true, [](TextWarp &warp) { warp = TextWarp(); });
}

/// Brings back what was ahead of the drag.
void WarpPanel::restore()
{
    const QList<CVXRootObject *> all = m_selection->objects();
    for (CVXRootObject *object : qAsConst(m_previewed)) {
        if (!all.contains(object))
            continue;
        QDataStream nothing(QByteArray{});
        object->SetSpecialProperty(Property::Restore, nothing, false);
    }
    m_previewed.clear();
    refresh();
}

void WarpPanel::refresh()
{
    const bool isOpen = !targets().isEmpty();
    setEnabled(isOpen);
    const QVariant style = m_selection->value(styleKey);
    m_gallery->show(isOpen && style.isValid() ? style.toInt() : -1);
    const bool isBent = isOpen && (!style.isValid() || style.toInt() != 0);
    refreshValues(isBent);
    const QVariant orientation = m_selection->value(orientationKey);
    m_orientation->setCurrentIndex(!orientation.isValid()          ? (isOpen ? -1 : 0)
                                   : orientation.toInt() == across ? 1
                                                                   : 0);
    m_orientation->setEnabled(isBent);
    m_reset->setEnabled(isBent);
    m_gallery->setSample({m_selection->sampleWords(),
                          m_selection->value(QStringLiteral("font_family")).toString(),
                          palette().color(QPalette::Text), devicePixelRatioF()},
                         m_orientation->currentIndex());
}

void WarpPanel::refreshValues(bool isBent)
{
    for (const Value *value : {&m_bend, &m_horizontal, &m_vertical}) {
        value->slider->setEnabled(isBent);
        value->field->setEnabled(isBent);
        if (value->slider->isSliderDown())
            continue;
        const QVariant percent = m_selection->value(QLatin1String(value->key));
        value->slider->show(percent.toInt());
        value->field->show(percent);
    }
}
