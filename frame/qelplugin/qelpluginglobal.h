#pragma once

#include <QtGlobal>

/// Marks what the SDK library exports. QELPLUGIN_BUILD is defined only while that library is built.
#ifdef QELPLUGIN_BUILD
#define QELPLUGIN_EXPORT Q_DECL_EXPORT
#else
#define QELPLUGIN_EXPORT Q_DECL_IMPORT
#endif
