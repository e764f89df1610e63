// SPDX-License-Identifier: MIT
// wordprocess_properties.cpp -- CWordProcess: the numbered properties, both ways.
// Setting one changes what its name says; asking for one changes nothing. A stream that ends before the
// arguments of a command are complete commands nothing, except that a first text is empty then.
#include "wordprocess/cwordprocess.h"

#include "layout/textlayout.h"
#include "layout/wordmanager.h"
#include "wordprocess/numbers.h"
#include "wordprocess/streamreading.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

/// The effects of all numbers, and the tables that tell them apart. The numbers are part of the contract.
struct CWordProcess::Properties {
    using Effect = void (*)(CWordProcess &, QDataStream &);
    struct Row {
        int number;
        Effect effect;
    };
    static const std::vector<Row> setRows;
    static const std::vector<Row> getRows;

    static Effect find(const std::vector<Row> &rows, int number)
    {
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [=](const Row &r) { return r.number == number; });
        return row == rows.end() ? nullptr : row->effect;
    }

    // edit state
    static void beginEdit(CWordProcess &object, QDataStream &);
    static void endEdit(CWordProcess &object, QDataStream &) { object.endEdit(); }
    static void nothing(CWordProcess &, QDataStream &) {}

    // text
    static void firstText(CWordProcess &object, QDataStream &in) { object.setFirstText(in); }
    static void placedText(CWordProcess &object, QDataStream &in) { object.setPlacedText(in); }
    static void replacedText(CWordProcess &object, QDataStream &in) { object.setReplacedText(in); }
    static void cut(CWordProcess &object, QDataStream &);
    static void copy(CWordProcess &object, QDataStream &) { object.copy(); }
    static void paste(CWordProcess &object, QDataStream &in);

    // appearance
    static void documentDpi(CWordProcess &object, QDataStream &in);
    static void warp(CWordProcess &object, QDataStream &in) { object.setWarp(in); }

    // fonts that are missing
    static void replaceFont(CWordProcess &object, QDataStream &in) { object.replaceFont(in); }
    static void missingFontHint(CWordProcess &object, QDataStream &in);
    static void holdState(CWordProcess &object, QDataStream &) { object.holdReplaceData(); }
    static void restoreState(CWordProcess &object, QDataStream &) { object.restoreReplaceData(); }
    static void imageToPaths(CWordProcess &object, QDataStream &) { object.img2paths(); }
    static void fontImagePosition(CWordProcess &object, QDataStream &);

    // questions
    static void stateFlag(CWordProcess &object, QDataStream &stream);
    static void fontsToReplace(CWordProcess &object, QDataStream &out);
    static void plainText(CWordProcess &object, QDataStream &out) { out << object.toPlainText(); }
    static void firstColor(CWordProcess &object, QDataStream &out);
    static void orientationAndStretch(CWordProcess &object, QDataStream &out);
    static void baselines(CWordProcess &object, QDataStream &out);
    static void overhang(CWordProcess &object, QDataStream &out);
    static void cursorColor(CWordProcess &object, QDataStream &out) { out << object.m_cursorColor; }
    static void cursorLine(CWordProcess &object, QDataStream &out) { out << object.m_cursorLine; }
};

// clang-format off
const std::vector<CWordProcess::Properties::Row> CWordProcess::Properties::setRows{
    {101,  beginEdit},
    {102,  endEdit},
    {106,  firstText},
    {107,  nothing},
    {108,  placedText},
    {109,  replacedText},
    {110,  documentDpi},
    {112,  replaceFont},
    {113,  missingFontHint},
    {114,  holdState},
    {115,  restoreState},
    {118,  warp},
    {120,  imageToPaths},
    {125,  cut},
    {126,  copy},
    {127,  paste},
    {504,  nothing},
    {505,  nothing},
    {2604, fontImagePosition},
};
const std::vector<CWordProcess::Properties::Row> CWordProcess::Properties::getRows{
    {101, stateFlag},
    {111, fontsToReplace},
    {116, plainText},
    {117, firstColor},
    {119, orientationAndStretch},
    {122, baselines},
    {123, overhang},
    {124, cursorColor},
    {128, cursorLine},
};
// clang-format on

bool CWordProcess::SetSpecialProperty(int number, QDataStream &stream, bool flag)
{
    const Properties::Effect effect = Properties::find(Properties::setRows, number);
    if (!effect)
        return CVXRootObject::SetSpecialProperty(number, stream, flag);
    effect(*this, stream);
    return true;
}

bool CWordProcess::GetSpecialProperty(int number, QDataStream &stream)
{
    const Properties::Effect effect = Properties::find(Properties::getRows, number);
    if (!effect)
        return CVXRootObject::GetSpecialProperty(number, stream);
    effect(*this, stream);
    return true;
}

void CWordProcess::Properties::beginEdit(CWordProcess &object, QDataStream & /*stream*/)
{
    if (!object.m_created || object.isLocked())
        return;
    if (object.fontsAreComplete())
        object.beginEdit();
    else
        object.notifyTextOperation(TextOperationMissingFonts, {});
}

void CWordProcess::Properties::cut(CWordProcess &object, QDataStream & /*stream*/)
{
    if (object.cut())
        object.updateBoundingRectImpl(true);
}

void CWordProcess::Properties::paste(CWordProcess &object, QDataStream &in)
{
    bool newObject = false;
    bool rich = false;
    if (readAll(in, newObject, rich))
        object.paste(newObject, rich);
}

/// The document's resolution has changed, and with it the pictures by two factors: where these are 1 the
/// text keeps its pixels, otherwise its points. A resolution that no document has leaves the old one in force.
void CWordProcess::Properties::documentDpi(CWordProcess &object, QDataStream &in)
{
    int dpi = 0;
    double factorX = 0;
    double factorY = 0;
    if (!readAll(in, dpi, factorX, factorY))
        return;
    object.m_documentDpi = acceptedDpi(dpi, object.m_documentDpi);
    if (factorX == 1.0 && factorY == 1.0)
        object.refreshFontPixel2Point();
    else
        object.refreshPixel();
    object.updateBoundingRectImpl(true);
}

void CWordProcess::setWarp(QDataStream &stream)
{
    int style = 0;
    double value = 0;
    double horizontalValue = 0;
    double verticalValue = 0;
    int orientation = 0;
    bool commit = false;
    if (!readAll(stream, style, value, horizontalValue, verticalValue, orientation, commit))
        return;
    if (!fontsAreComplete()) {
        notifyTextOperation(TextOperationMissingFonts, {});
        notifyTextOperation(TextOperationAttributes, {});
        return;
    }
    img2paths();
    holdReplaceData(); // a whole drag of a slider is one step
    m_warpStyle = style;
    m_warpValue = finiteOrZero(value);
    m_warpHorizontalValue = finiteOrZero(horizontalValue);
    m_warpVerticalValue = finiteOrZero(verticalValue);
    m_warpOrientation = orientation;
    if (commit)
        pushStep(std::exchange(m_fontReplaceData, QString()), stateForUndo(), StepStart::Held);
    else if (!m_editing) // text is edited unwarped: there is nothing to preview
        updateMorphTextPaths();
}

void CWordProcess::replaceFont(QDataStream &stream)
{
    QString from;
    QString to;
    QString mode;
    if (!readAll(stream, from, to, mode) || m_editing)
        return;
    if (mode == QLatin1String("cancel")) {
        if (!m_fontReplaceData.isEmpty())
            restoreReplaceData();
        return;
    }
    holdReplaceData();
    if (from.isEmpty() || to.isEmpty() || !m_missingFonts.contains(from))
        return;
    const bool again = m_replacedFonts.contains(from);
    if (!again)
        m_replacedFonts.append(from);
    fontReplace(from, to, again);
    if (mode == QLatin1String("confirm"))
        pushStep(std::exchange(m_fontReplaceData, QString()), stateForUndo(), StepStart::Held);
    else // a preview
        undoRedo(stateForUndo(), false);
}

/// Keeps the state that a replacement, or a drag of a slider, goes back to.
void CWordProcess::holdReplaceData()
{
    if (!m_fontReplaceData.isEmpty())
        return;
    m_fontReplaceData = stateForUndo();
    m_heldAheadOfEdit = false;
}

void CWordProcess::restoreReplaceData()
{
    const QString data = std::exchange(m_fontReplaceData, QString());
    undoRedo(data, true);
}

void CWordProcess::Properties::missingFontHint(CWordProcess &object, QDataStream &in)
{
    if (object.m_missingFonts.isEmpty())
        return;
    bool show = false;
    QString hint;
    if (!readAll(in, show) || (show && !readAll(in, hint)))
        return;
    object.m_missingFontHint = hint;
    object.notifyObjPropertyChanged(ObjectProperty::Appearance, QString());
}

void CWordProcess::Properties::fontImagePosition(CWordProcess &object, QDataStream & /*stream*/)
{
    if (object.m_showFontImage)
        object.m_fontImagePos = object.getPos();
}

/// The one answer that takes a question: the stream holds its number and gets the answer in its place.
void CWordProcess::Properties::stateFlag(CWordProcess &object, QDataStream &stream)
{
    int which = -1;
    if (!readAll(stream, which))
        return;
    stream.device()->reset();
    const bool answers[] = {object.m_editing, object.m_wordWrap,
                            object.m_textOrientation == Qt::Horizontal, object.m_created};
    if (which >= 0 && which < int(std::size(answers)))
        stream << answers[which];
}

void CWordProcess::Properties::fontsToReplace(CWordProcess &object, QDataStream &out)
{
    QStringList fonts;
    for (const QString &font : qAsConst(object.m_missingFonts)) {
        if (!object.m_replacedFonts.contains(font))
            fonts.append(font);
    }
    out << fonts.size();
    for (const QString &font : qAsConst(fonts))
        out << font;
}

void CWordProcess::Properties::firstColor(CWordProcess &object, QDataStream &out)
{
    const std::optional<QColor> color = object.colorOfFirstRun();
    out << color.has_value();
    if (color)
        out << color->red() << color->green() << color->blue() << color->alpha();
}

/// Colour of the first run of the first line; none for a text without lines.
std::optional<QColor> CWordProcess::colorOfFirstRun() const
{
    if (!m_newVersion) {
        if (m_legacyLines.isEmpty() || m_legacyLines.first().items.isEmpty())
            return std::nullopt;
        return m_legacyLines.first().items.first().format.foreground().color();
    }
    const TextLayout layout = m_wordManager->textLayout();
    if (layout.lines.isEmpty() || layout.lines.first().fragments.isEmpty())
        return std::nullopt;
    return layout.lines.first().fragments.first().format.foreground().color();
}

void CWordProcess::Properties::orientationAndStretch(CWordProcess &object, QDataStream &out)
{
    out << object.m_textOrientation << object.m_scaleX * object.m_transformScaleX
        << object.m_scaleY * object.m_transformScaleY;
}

void CWordProcess::Properties::baselines(CWordProcess &object, QDataStream &out)
{
    const QList<QLineF> lines = object.getAllBaseLines();
    out << lines.size();
    for (const QLineF &line : lines)
        out << line;
}

void CWordProcess::Properties::overhang(CWordProcess &object, QDataStream &out)
{
    out << object.m_boundsMargins.left << object.m_boundsMargins.top;
}
