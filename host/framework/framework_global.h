// SPDX-License-Identifier: MIT
// framework_global.h -- export macro of libframework.
#ifndef FRAMEWORK_GLOBAL_H
#define FRAMEWORK_GLOBAL_H

#include <QtGlobal>

#if defined(FRAMEWORK_LIBRARY)
#define FRAMEWORK_EXPORT Q_DECL_EXPORT
#else
#define FRAMEWORK_EXPORT Q_DECL_IMPORT
#endif

#endif
