// SPDX-License-Identifier: MIT
// vxarttext_shared_global.h -- export macro of libvxarttext.
#ifndef VXARTTEXT_SHARED_GLOBAL_H
#define VXARTTEXT_SHARED_GLOBAL_H

#include <QtGlobal>

#if defined(VXARTTEXT_LIBRARY)
#define VXARTTEXT_EXPORT Q_DECL_EXPORT
#else
#define VXARTTEXT_EXPORT Q_DECL_IMPORT
#endif

#endif
