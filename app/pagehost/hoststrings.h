// SPDX-License-Identifier: MIT
// hoststrings.h -- the user's words for the keys under which objects ask their host for strings.
#ifndef PAGEHOST_HOSTSTRINGS_H
#define PAGEHOST_HOSTSTRINGS_H

class Framework;

/// Gives \a framework the words of the present language: names of undo steps, of attributes of art
/// texts, hints.
void setHostStrings(Framework &framework);

#endif
