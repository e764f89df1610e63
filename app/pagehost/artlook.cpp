// SPDX-License-Identifier: MIT
#include "app/pagehost/artlook.h"

#include "app/page/paragraphstyle.h"
#include "app/pagehost/textcommands.h"
#include "host/framework/cundoredo.h"
#include "host/framework/cvxrootobject.h"

#include <QFont>
#include <QGraphicsTextItem>

namespace {

const QString fillWord = QStringLiteral("pen_color");
const QString lineColorWord = QStringLiteral("line_color");
const QString lineWidthWord = QStringLiteral("line_width");
const QString horizontalWord = QStringLiteral("text_horizontal");
const QString verticalKey = QStringLiteral("font_somehow");
const QString alignmentKey = QStringLiteral("textalignment");
const QString sizeKey = QStringLiteral("font_pointsize");
const QString fillKey = QStringLiteral("fillcolor");
const QString lineColorKey = QStringLiteral("color");
constexpr double firstLineWidth = 1; // page pixels, of a line that is given a colour

/// A word of panels and the attribute of art texts that it stands for.
struct WordRow {
    const char *word;
    const char *key;
};

// clang-format off
constexpr WordRow wordRows[] = {
    {"font_family",       "font_family"},
    {"font_bold",         "font_bold"},
    {"font_italic",       "font_italic"},
    {"shape",             "shape"},
    {"art_letterspacing", "font_letterspacing"},
    {"art_rowspacing",    "font_rowspacing"},
};
// clang-format on

/// Columns know an alignment by another number than lines; art texts do not.
int inColumns(int number)
{
    const QStringList names = alignmentNames();
    for (const QString &name : names) {
        if (alignmentOf(name).inLines == number)
            return alignmentOf(name).inColumns;
    }
    return alignmentOf(QStringLiteral("left")).inColumns;
}

int inLines(int number)
{
    const QStringList names = alignmentNames();
    for (const QString &name : names) {
        if (alignmentOf(name).inColumns == number)
            return alignmentOf(name).inLines;
    }
    return number;
}

/// The attributes of art texts that \a look asks for.
AttributeMap attributesFor(const AttributeMap &look)
{
    AttributeMap attributes;
    for (const WordRow &row : wordRows) {
        const auto value = look.constFind(QLatin1String(row.word));
        if (value != look.constEnd())
            attributes.insert(QLatin1String(row.key), *value);
    }
    if (look.contains(alignmentKey))
        attributes.insert(alignmentKey, inLines(look.value(alignmentKey).toInt()));
    if (look.contains(horizontalWord))
        attributes.insert(verticalKey, !look.value(horizontalWord).toBool());
    if (look.contains(sizeKey))
        attributes.insert(sizeKey, look.value(sizeKey));
    if (look.contains(lineColorWord))
        attributes.insert(lineColorKey, look.value(lineColorWord));
    if (look.contains(fillWord)) // of the text while it is edited
        attributes.insert(fillKey, look.value(fillWord));
    return attributes;
}

double editedSize(CVXRootObject *art)
{
    const QGraphicsTextItem *item = TextCommands::editItem(art);
    return item ? item->font().pointSizeF() : 0;
}

/// Gives an art text another look. Its outlines have the fill and the pen of the host.
class LookStep : public CWbUndoCmd
{
public:
    LookStep(CVXRootObject *art, const AttributeMap &look)
        : m_before(stateOf(art, attributesFor(look)))
        , m_after(m_before)
    {
        m_object = art;
        setText(QStringLiteral("IDS_IMAGE_ADJUST_ATTRIBUTE"));
        m_after.attributes = attributesFor(look);
        if (look.contains(fillWord)) {
            m_after.fill.setFillEnable(true);
            m_after.fill.setColor(look.value(fillWord).value<QColor>());
        }
        if (look.contains(lineColorWord))
            setLine(look.value(lineColorWord).value<QColor>(),
                    qMax(m_before.pen.widthF(), firstLineWidth)); // to be seen
        if (look.contains(lineWidthWord))
            setLine(m_after.pen.color(), look.value(lineWidthWord).toDouble());
    }

    void undo() override
    {
        if (!m_object)
            return;
        set(m_before);
        if (m_object->getSize() != m_before.place.size())
            m_object->setSize(m_before.place.size(), /*undo=*/false, /*notify=*/true);
        if (m_object->getPos() != m_before.place.topLeft())
            m_object->setPos(m_before.place.topLeft(), /*undo=*/false);
    }
    void redo() override
    {
        if (m_object)
            set(m_after);
    }

private:
    struct State {
        AttributeMap attributes;
        QPen pen;
        CPageBgProp fill;
        QRectF place;
    };

    /// As far as a change of \a changed goes.
    static State stateOf(CVXRootObject *art, const AttributeMap &changed)
    {
        AttributeMap known;
        art->getAllAttributes(known);
        known.insert(sizeKey, editedSize(art));
        State state{{}, art->getMyPen(), art->getFillProp(), QRectF(art->getPos(), art->getSize())};
        for (auto it = changed.constBegin(); it != changed.constEnd(); ++it)
            state.attributes.insert(it.key(), known.value(it.key()));
        return state;
    }
    void setLine(const QColor &color, double width)
    {
        m_after.pen = QPen(color, width, width > 0 ? Qt::SolidLine : Qt::NoPen, Qt::RoundCap,
                           Qt::RoundJoin);
    }
    void set(const State &state)
    {
        m_object->setFillProp(state.fill);
        m_object->setMyPen(state.pen);
        m_object->setAllAttributes(state.attributes, /*withUndo=*/false);
    }

    State m_before;
    State m_after;
};

} // namespace

AttributeMap ArtLook::attributes(CVXRootObject *art)
{
    AttributeMap known;
    art->getAllAttributes(known);
    AttributeMap look;
    for (const WordRow &row : wordRows)
        look.insert(QLatin1String(row.word), known.value(QLatin1String(row.key)));
    const bool isVertical = known.value(verticalKey).toBool();
    look.insert(horizontalWord, !isVertical);
    const int alignment = known.value(alignmentKey).toInt();
    look.insert(alignmentKey, isVertical ? inColumns(alignment) : alignment);
    look.insert(sizeKey, editedSize(art));
    const CPageBgProp fill = art->getFillProp();
    look.insert(fillWord, fill.isFillEnable() ? fill.color() : QColor(Qt::transparent));
    const QPen pen = art->getMyPen();
    look.insert(lineColorWord, pen.color());
    look.insert(lineWidthWord, pen.style() == Qt::NoPen ? 0.0 : pen.widthF());
    return look;
}

void ArtLook::change(CVXRootObject *art, const AttributeMap &look, CUndoRedo &stack)
{
    const AttributeMap present = attributes(art);
    AttributeMap changed;
    for (auto it = look.constBegin(); it != look.constEnd(); ++it) {
        const bool isKnown = present.contains(it.key());
        if (isKnown && (present.value(it.key()) != it.value() || it.key() == sizeKey))
            changed.insert(it.key(), it.value());
    }
    if (!changed.isEmpty())
        stack.push(new LookStep(art, changed));
}
