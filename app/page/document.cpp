// SPDX-License-Identifier: MIT
#include "app/page/document.h"

Document::Document(int dpi)
    : Document(isValidDpi(dpi) ? dpi : defaultDpi, std::make_unique<CUndoRedo>())
{
}

// The base holds the stack without owning it, so the stack must be there before the base is made.
Document::Document(int dpi, std::unique_ptr<CUndoRedo> stack)
    : DocumentHost(dpi, stack.get())
    , m_undoStack(std::move(stack))
{
}

Document::~Document() = default;
