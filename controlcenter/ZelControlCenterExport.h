#pragma once

#include <QtCore/qglobal.h>

#if defined(ZEL_CONTROLCENTER_LIBRARY)
#define ZEL_CONTROLCENTER_EXPORT Q_DECL_EXPORT
#else
#define ZEL_CONTROLCENTER_EXPORT Q_DECL_IMPORT
#endif
