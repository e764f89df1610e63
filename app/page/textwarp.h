// SPDX-License-Identifier: MIT
// textwarp.h -- the warp of a text object, as programs write it.
#ifndef APP_TEXTWARP_H
#define APP_TEXTWARP_H

#include <QString>
#include <QStringList>

/// A style with its values. Made by parseTextWarp(), or of a style from warpStyleNames().
struct TextWarp {
    int style = 0;         ///< 1 to 15; 0 for none
    double value = 0;      ///< strength and direction, -1 to 1
    double horizontal = 0; ///< perspective from the left to the right
    double vertical = 0;   ///< perspective from the top to the bottom
    bool acrossColumns = false;
};

/// The names of the styles: the style of a number n is at n - 1.
const QStringList &warpStyleNames();

/// Reads "STYLE:VALUE[:H[:V]][:vertical]", such as "arc:0.5" and "flag:-0.4:0.1:0:vertical".
/// \param reason  receives what is wrong with \a text, without naming it
/// \return false, and \a warp as it was, for an unknown style, for what is no number or not finite,
///         and for a value beyond -1 to 1
bool parseTextWarp(const QString &text, TextWarp &warp, QString &reason);

#endif
