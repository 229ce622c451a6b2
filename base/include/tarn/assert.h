/// The assertion routine of the portability layer.
///
/// Thread: any. Ownership: handlers are plain functions, nothing is owned.
#pragma once

#include "vela7/baseexport.h"

namespace TARN {

/// Called for every failed assertion after it was printed; may return.
using assert_handler = void (*)(const char* expression, const char* file, int line);

/// Reports a broken invariant: one line on stderr, then the installed handler.
///
/// The default handler returns, or aborts when the base library was built with VELA7_ASSERT_ABORT. Null texts
/// are printed as "?".
VELA7_BASE_API void assertion_failed(const char* expression, const char* file, int line);

/// Installs a handler and returns the one before. Null restores the default handler.
VELA7_BASE_API assert_handler set_assert_handler(assert_handler handler);

} // namespace TARN
