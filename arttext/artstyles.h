// SPDX-License-Identifier: MIT
// artstyles.h -- the catalogue of art text styles.
#ifndef ARTSTYLES_H
#define ARTSTYLES_H

/// Styles are numbered from 0 to artStyleCount - 1; each stands for one pair of guide lines. The
/// numbers are part of records: never renumber. CArtText::DoAction() draws a style.
constexpr int artStyleCount = 42;

#endif
