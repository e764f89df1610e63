// SPDX-License-Identifier: MIT
// document.h -- the document of a program under app/: resolution, undo, images.
#ifndef APP_DOCUMENT_H
#define APP_DOCUMENT_H

#include "host/framework/documenthost.h"

#include <memory>

/// A document with one resolution, an undo stack of its own and the images that its objects store.
/// It outlives its pages.
class Document : public DocumentHost
{
public:
    static constexpr int defaultDpi = 96;
    static constexpr int minimumDpi = 1;
    static constexpr int maximumDpi = 9600;

    /// \param dpi dots per inch; outside minimumDpi to maximumDpi the default is taken
    explicit Document(int dpi = defaultDpi);
    ~Document() override;

    static bool isValidDpi(int dpi) { return dpi >= minimumDpi && dpi <= maximumDpi; }

private:
    Document(int dpi, std::unique_ptr<CUndoRedo> stack);

    std::unique_ptr<CUndoRedo> m_undoStack;
};

#endif
