// SPDX-License-Identifier: MIT
// htmldocument.h -- a document for reading HTML that never opens a file or an address.
#ifndef HTMLDOCUMENT_H
#define HTMLDOCUMENT_H

#include <QTextDocument>

class HtmlDocument : public QTextDocument
{
protected:
    QVariant loadResource(int /*type*/, const QUrl & /*name*/) override { return QVariant(); }
};

#endif
