#pragma once

#include <QtCore/qglobal.h>

/// Marks what the library exports. The library itself is compiled with ORVCOMMONLIB_LIBRARY; a client leaves
/// it undefined.
#if defined(ORVCOMMONLIB_LIBRARY)
#    define ORVCOMMONLIB_EXPORT Q_DECL_EXPORT
#else
#    define ORVCOMMONLIB_EXPORT Q_DECL_IMPORT
#endif
