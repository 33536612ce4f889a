#pragma once

#include <QtCore/qglobal.h>

#if defined(ZEL_KERNEL_LIBRARY)
#define ZEL_KERNEL_EXPORT Q_DECL_EXPORT
#else
#define ZEL_KERNEL_EXPORT Q_DECL_IMPORT
#endif
