// SPDX-License-Identifier: MIT
// attributecommand.h -- one call of CWordProcess::setAllAttributes(), for the two files that carry it out: the whole in
// wordprocess_attributecommands.cpp, the keys in wordprocess_commandformats.cpp.
#ifndef ATTRIBUTECOMMAND_H
#define ATTRIBUTECOMMAND_H

#include "wordprocess/cwordprocess.h"

/// The words of attribute maps that are no property of a run or a paragraph.
namespace AttributeKey {
const QLatin1String Initialise("text_init_flag");
const QLatin1String InputMethod("InputMethod");
const QLatin1String WordWrap("text_wordwrap");
const QLatin1String AutoWordWrap("text_auto_wordwrap");
const QLatin1String Text("text");
const QLatin1String EditFlag("text_editflag");
const QLatin1String DefaultWord("defaultword");
const QLatin1String DefaultFollow("defaultFollow");
const QLatin1String AdjustSize("adjustSize");
const QLatin1String Horizontal("text_horizontal");
const QLatin1String LetterSpacing("font_letterspacing");
const QLatin1String Subscript("text_subscript");
const QLatin1String TransformXx("transform_xx");
const QLatin1String TransformYy("transform_yy");
} // namespace AttributeKey

/// What a panel shows for runs that differ, and gives back untouched.
inline bool isMixed(const QVariant &value)
{
    return value.userType() == QMetaType::QString && value.toString().isEmpty();
}

/// One call of setAllAttributes(): what it asks for, and what has come of it so far.
struct CWordProcess::AttributeCommand {
    struct Row;
    /// Takes one value of the map into a format, or carries it out.
    using Effect = void (AttributeCommand::*)(const Row &row, const QVariant &value);
    struct Row {
        QLatin1String key;
        bool isNumber; ///< an empty string leaves the property alone
        Effect effect;
        int property = 0; ///< for the effects that store a number as it came
    };
    static const Row rows[];

    AttributeCommand(CWordProcess &commanded, const AttributeMap &map, bool undo)
        : object(commanded)
        , attributes(map)
        , withUndo(undo)
        , fromInputMethod(map.contains(AttributeKey::InputMethod))
        , records(undo && !fromInputMethod && !map.value(AttributeKey::Initialise).toBool())
    {
    }
    bool run();

private:
    void takeStartOfStep();
    enum class Progress { GoesOn, IsOver };
    Progress takeWordWrap();
    Progress turnIntoLineText();
    void takeText();
    void takeDefaultWord();
    bool isLetterSpacingOfOneCharacter() const;
    bool setLetterSpacingOfOneCharacter();
    void gatherFormats();
    bool finish();
    void recordOrRebuild();
    void showCaretFormat();
    bool hasSelection() const;

    void takeCharacter(const Row &row, const QVariant &value);
    void takeParagraph(const Row &row, const QVariant &value);
    void takeCharacterNumber(const Row &row, const QVariant &value);
    void takeParagraphNumber(const Row &row, const QVariant &value);
    void takeFamily(const Row &row, const QVariant &value);
    void takeGap(const Row &row, const QVariant &value);
    void takePointSize(const Row &row, const QVariant &value);
    void takeScript(const Row &row, const QVariant &value);
    void takeAlignment(const Row &row, const QVariant &value);
    void takeOrientation(const Row &row, const QVariant &value);
    void takeDefaultFollow(const Row &row, const QVariant &value);
    void takeAdjustSize(const Row &row, const QVariant &value);

    CWordProcess &object;
    const AttributeMap attributes; ///< a copy: listeners may change theirs before the call returns
    const bool withUndo;
    const bool fromInputMethod; ///< nothing is recorded, nobody is told, the layout follows later
    const bool records;         ///< a step is recorded when anything changes
    QString before;             ///< the state that such a step goes back to
    StepStart stepStart = StepStart::Present;
    bool wrapKey = false;
    bool changed = false;
    bool layoutIsStale = false; ///< more than a format at the caret has changed
    QTextCharFormat charFormat;
    QTextBlockFormat blockFormat;
};

#endif
