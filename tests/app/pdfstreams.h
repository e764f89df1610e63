// SPDX-License-Identifier: MIT
// pdfstreams.h -- what is drawn in a PDF, as text.
#ifndef PDFSTREAMS_H
#define PDFSTREAMS_H

#include <QByteArray>

/// All compressed streams of a PDF, uncompressed.
inline QByteArray pdfStreams(const QByteArray &pdf)
{
    QByteArray all;
    for (int at = pdf.indexOf("stream\n"); at >= 0; at = pdf.indexOf("stream\n", at)) {
        at += int(qstrlen("stream\n"));
        const int end = pdf.indexOf("endstream", at);
        QByteArray packed(4, '\0'); // the length that qUncompress wants, as a hint only
        packed[2] = '\x10';
        if (pdf.mid(at, 2) != "<?") // the metadata stand there as they are
            all += qUncompress(packed + pdf.mid(at, end - at));
        at = end + int(qstrlen("endstream"));
    }
    return all;
}

#endif
