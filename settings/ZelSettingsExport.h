#pragma once

#include <QtCore/qglobal.h>

#if defined(ZEL_SETTINGS_LIBRARY)
#define ZEL_SETTINGS_EXPORT Q_DECL_EXPORT
#else
#define ZEL_SETTINGS_EXPORT Q_DECL_IMPORT
#endif
