// SPDX-License-Identifier: MIT
#include "app/page/document.h"

Document::Document(int dpi)
{
    setDpi(isValidDpi(dpi) ? dpi : defaultDpi);
}

Document::~Document() = default;
