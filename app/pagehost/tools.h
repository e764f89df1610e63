// SPDX-License-Identifier: MIT
// tools.h -- the tools of the editor, by the ids that objects know.
#ifndef PAGEHOST_TOOLS_H
#define PAGEHOST_TOOLS_H

namespace EditorTool {
constexpr int Select = 0;
constexpr int Text = 300; ///< part of the contract with objects
constexpr int ArtText = 301;
} // namespace EditorTool

#endif
