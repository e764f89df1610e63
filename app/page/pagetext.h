// SPDX-License-Identifier: MIT
// pagetext.h -- the words in which pages tell what is wrong, to be translated by a program that can.
#ifndef APP_PAGETEXT_H
#define APP_PAGETEXT_H

#include <QCoreApplication>

/// The context of these words; without a translation they are English. For any thread.
struct PageText {
    Q_DECLARE_TR_FUNCTIONS(PageText)
};

#endif
