// SPDX-License-Identifier: MIT
// qimageex.h -- the host's image class.
#ifndef QIMAGEEX_H
#define QIMAGEEX_H

#include <QImage>

#if defined(QIMAGEEX_LIBRARY)
#define QIMAGEEX_EXPORT Q_DECL_EXPORT
#else
#define QIMAGEEX_EXPORT Q_DECL_IMPORT
#endif

class QIMAGEEX_EXPORT QImageEx
{
public:
    QImageEx();
    explicit QImageEx(const QImage &image);
    virtual ~QImageEx();
    /// The picture; a null image when there is none.
    virtual QImage toImage() const;

private:
    QImage m_image;
};

#endif
