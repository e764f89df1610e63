// SPDX-License-Identifier: MIT
// document.h -- the document of a program under app/: resolution, undo, images.
#ifndef APP_DOCUMENT_H
#define APP_DOCUMENT_H

#include "host/framework/documenthost.h"

/// A document with one resolution, one undo stack and the images that its objects store.
class Document : public DocumentHost
{
public:
    static constexpr int defaultDpi = 96;
    static constexpr int minimumDpi = 1;
    static constexpr int maximumDpi = 9600;

    /// \param dpi dots per inch; outside minimumDpi to maximumDpi the default is taken
    explicit Document(int dpi = defaultDpi);
    ~Document() override;

    /// \a dpi as in the constructor, but a value out of range changes nothing.
    static bool isValidDpi(int dpi) { return dpi >= minimumDpi && dpi <= maximumDpi; }
};

#endif
