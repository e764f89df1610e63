// SPDX-License-Identifier: MIT
#ifndef TEXTPROPERTIES_H
#define TEXTPROPERTIES_H

/// The system's own property ids on QTextBlockFormat and QTextCharFormat, used as plain
/// QTextFormat property numbers. They lie below QTextFormat::UserProperty on purpose and are part
/// of stored documents: never renumber. "int, later double" properties start as int and become
/// double when the document's unit changes, so every reader uses QVariant::toReal().
namespace TextProperty {

constexpr int Alignment = 1001;         ///< block, int: Qt::AlignmentFlag value or an own value
constexpr int BaselineOffset = 1002;    ///< char, int, later double: points, positive is up
constexpr int UpperCase = 1003;         ///< char, bool: the run is shown in capitals
constexpr int VerticalScale = 1004;     ///< char, int: percent
constexpr int HorizontalScale = 1005;   ///< char, int: percent
constexpr int SpaceAheadOfBlock = 1006; ///< block, int, later double: points; the attribute is
                                        ///< "paragraph_after_space" (the words are crossed)
constexpr int SpaceBehindBlock = 1007;  ///< block, int, later double: points; the attribute is
                                        ///< "paragraph_before_space" (the words are crossed)
constexpr int FirstLineIndent = 1008;   ///< block, double: exact value behind BlockIndent
constexpr int LeftIndent = 1009;        ///< block, double: twin of BlockLeftMargin
constexpr int RightIndent = 1010;       ///< block, double: twin of BlockRightMargin
constexpr int LineSpacing = 1011;       ///< block, double: read from document strings only
constexpr int LetterSpacing = 1012;     ///< char, double: thousandths of the point size
constexpr int LeadingGap = 1013;        ///< char, double: gap ahead of the run, thousandths
                                        ///< of the point size
constexpr int Hyphenate = 1014;         ///< block, bool: words may break with a hyphen
constexpr int HeadTailRule = 1015;      ///< block, int: line-head and line-tail rule
constexpr int PunctuationExtra = 1016;  ///< block, int: 1 compresses CJK punctuation
constexpr int RowSpacing = 1017;        ///< char, double: points, 0 or less is automatic
constexpr int OriginalFamily = 1018;    ///< char, QString: family before a font replacement

} // namespace TextProperty

#endif // TEXTPROPERTIES_H
