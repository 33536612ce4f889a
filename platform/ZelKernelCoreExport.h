#pragma once

#include <QtCore/qglobal.h>

#if defined(ZEL_KERNEL_CORE_LIBRARY)
#define ZEL_KERNEL_CORE_EXPORT Q_DECL_EXPORT
#else
#define ZEL_KERNEL_CORE_EXPORT Q_DECL_IMPORT
#endif
