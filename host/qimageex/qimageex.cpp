// SPDX-License-Identifier: MIT
// qimageex.cpp -- QImageEx.
#include "host/qimageex/qimageex.h"

QImageEx::QImageEx() = default;

QImageEx::QImageEx(const QImage &image)
    : m_image(image)
{
}

QImageEx::~QImageEx() = default;

QImage QImageEx::toImage() const
{
    return m_image;
}
