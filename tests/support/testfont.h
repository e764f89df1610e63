// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

/// Makes the font of squares, "BoxTest", known to the application and returns its family.
/// 1024 units an em, ascent 768, descent 256, Latin advance 512, kana, Han and full-width advance
/// 1024: at 8, 16 and 32 px every measure is a whole number. Needs a QGuiApplication; ends the
/// program with a message when the font file cannot be read. Any number of calls.
QString loadBoxTestFont();
