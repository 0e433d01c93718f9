#pragma once

/// \file
/// \ingroup helpers
/// The version of the headers that a client is compiled with. What the library that runs says of itself is
/// totalcommon::version(): the two differ where a newer library was put beside an older program.

#include <QtCore/qglobal.h>

/// Grows when a client may have to be changed.
#define ORVCOMMONLIB_VERSION_MAJOR 1
/// Grows when something is added.
#define ORVCOMMONLIB_VERSION_MINOR 0
/// Grows when something is mended.
#define ORVCOMMONLIB_VERSION_PATCH 0
/// The three with dots between them.
#define ORVCOMMONLIB_VERSION_STRING "1.0.0"

/// The version as one number, for the preprocessor: `#if ORVCOMMONLIB_VERSION >= ORVCOMMONLIB_VERSION_CHECK(1, 2, 0)`.
#define ORVCOMMONLIB_VERSION_CHECK(major, minor, patch) (((major) << 16) | ((minor) << 8) | (patch))
/// The version of these headers as such a number.
#define ORVCOMMONLIB_VERSION                                                                                 \
    ORVCOMMONLIB_VERSION_CHECK(ORVCOMMONLIB_VERSION_MAJOR, ORVCOMMONLIB_VERSION_MINOR,                       \
                               ORVCOMMONLIB_VERSION_PATCH)

/// Whether these headers are of version \a major.\a minor.\a patch or a later one, for `if constexpr` and
/// `static_assert`.
/// \param major,minor,patch the version to compare with
/// \return whether they are
constexpr bool orvcommonlibVersionAtLeast(int major, int minor = 0, int patch = 0) noexcept
{
    return ORVCOMMONLIB_VERSION >= ORVCOMMONLIB_VERSION_CHECK(major, minor, patch);
}

/// Define ORV_DISABLE_DEPRECATED_BEFORE as a version (ORVCOMMONLIB_VERSION_CHECK(1, 2, 0)) to compile without what that
/// version and all before it have deprecated; ORV_NO_DEPRECATED_WARNINGS keeps the compiler silent about the rest.
#ifndef ORV_DISABLE_DEPRECATED_BEFORE
#    define ORV_DISABLE_DEPRECATED_BEFORE ORVCOMMONLIB_VERSION_CHECK(1, 0, 0)
#endif

/// Whether what version \a major.\a minor has deprecated is still declared: the condition that stands around it.
/// \code
/// #if ORV_DEPRECATED_SINCE(1, 1)
///     ORV_DEPRECATED_X("use setNewWay()") void setOldWay(int way);
/// #endif
/// \endcode
#define ORV_DEPRECATED_SINCE(major, minor)                                                                   \
    (ORVCOMMONLIB_VERSION_CHECK(major, minor, 0) > ORV_DISABLE_DEPRECATED_BEFORE)

/// Marks a declaration as deprecated; \a text names what replaces it.
#ifdef ORV_NO_DEPRECATED_WARNINGS
#    define ORV_DEPRECATED_X(text)
#else
#    define ORV_DEPRECATED_X(text) Q_DECL_DEPRECATED_X(text)
#endif
