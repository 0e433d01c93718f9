#pragma once

#include <QtCore/qglobal.h>

/// Marks what the library exports. The library itself is compiled with ORVCOMMONLIB_LIBRARY; a client leaves
/// it undefined. Both define ORVCOMMONLIB_STATIC where the library is a static one; its CMake package and its .pc file do
/// that for a client.
#if defined(ORVCOMMONLIB_STATIC)
#    define ORVCOMMONLIB_EXPORT
#elif defined(ORVCOMMONLIB_LIBRARY)
#    define ORVCOMMONLIB_EXPORT Q_DECL_EXPORT
#else
#    define ORVCOMMONLIB_EXPORT Q_DECL_IMPORT
#endif
