// SPDX-License-Identifier: MIT
#include "app/pagehost/hoststrings.h"

#include "app/page/framework.h"

#include <QCoreApplication>

namespace {

struct HostString {
    const char *key;
    const char *text; ///< in English
};

// clang-format off
constexpr HostString hostStrings[] = {
    // Undo steps
    {"IDS_ITEM_ADD_ITEM",            QT_TRANSLATE_NOOP("HostStrings", "Add Object")},
    {"IDS_ITEM_DELETE_ITEM",         QT_TRANSLATE_NOOP("HostStrings", "Delete")},
    {"IDS_ITEM_MOVE",                QT_TRANSLATE_NOOP("HostStrings", "Move")},
    {"IDS_ITEM_RESIZE",              QT_TRANSLATE_NOOP("HostStrings", "Resize")},
    {"IDS_ITEM_ROTATE",              QT_TRANSLATE_NOOP("HostStrings", "Rotate")},
    {"IDS_ITEM_LOCK",                QT_TRANSLATE_NOOP("HostStrings", "Lock")},
    {"IDS_ITEM_ALIGN",               QT_TRANSLATE_NOOP("HostStrings", "Align")},
    {"IDS_ITEM_ORDER",               QT_TRANSLATE_NOOP("HostStrings", "Change Order")},
    {"IDS_ITEM_DUPLICATE",           QT_TRANSLATE_NOOP("HostStrings", "Duplicate")},
    {"IDS_ITEM_UNLOCK",              QT_TRANSLATE_NOOP("HostStrings", "Unlock")},
    {"IDS_IMAGE_ADJUST_ATTRIBUTE",   QT_TRANSLATE_NOOP("HostStrings", "Change Text")},
    {"IDS_TEXT_PROCESS",             QT_TRANSLATE_NOOP("HostStrings", "Change Text")},
    {"IDS_ITEM_FLIP",                QT_TRANSLATE_NOOP("HostStrings", "Flip")},
    {"IDS_ITEM_MIRROR",              QT_TRANSLATE_NOOP("HostStrings", "Mirror")},
    {"IDS_TEXT_WARP",                QT_TRANSLATE_NOOP("HostStrings", "Warp")},
    {"IDS_TEXT_REPLACE_FONT",        QT_TRANSLATE_NOOP("HostStrings", "Replace Font")},
    {"IDS_ART_STYLE",                QT_TRANSLATE_NOOP("HostStrings", "Change Style")},
    // Hints
    {"IDS_TEXT_DEFAULT_INPUTWORD",   QT_TRANSLATE_NOOP("HostStrings", "Please input text")},
    // Attributes of art texts
    {"IDS_ARTWORD_BGCOLOR",          QT_TRANSLATE_NOOP("HostStrings", "Background Color")},
    {"IDS_ARTWORD_FILL_COLOR",       QT_TRANSLATE_NOOP("HostStrings", "Fill Color")},
    {"IDS_ARTWORD_BGTranspare",      QT_TRANSLATE_NOOP("HostStrings", "Transparent Background")},
    {"IDS_ARTWORD_TEXT_CONTENT",     QT_TRANSLATE_NOOP("HostStrings", "Text")},
    {"IDS_ARTWORD_GRID_TYPE",        QT_TRANSLATE_NOOP("HostStrings", "Grid")},
    {"IDS_ARTWORD_DoPlay",           QT_TRANSLATE_NOOP("HostStrings", "Play")},
    {"IDS_ARTWORD_PlayTimer",        QT_TRANSLATE_NOOP("HostStrings", "Play Delay")},
    {"IDS_ARTTEXT_GRIDTYPE_NOTHING", QT_TRANSLATE_NOOP("HostStrings", "None")},
    {"IDS_ARTTEXT_GRIDTYPE_Tian",    QT_TRANSLATE_NOOP("HostStrings", "Four Squares")},
    {"IDS_ARTTEXT_GRIDTYPE_Mi",      QT_TRANSLATE_NOOP("HostStrings", "Eight Sectors")},
};
// clang-format on

} // namespace

void setHostStrings(Framework &framework)
{
    for (const HostString &row : hostStrings) {
        framework.setLocalString(QLatin1String(row.key),
                                 QCoreApplication::translate("HostStrings", row.text));
    }
}
