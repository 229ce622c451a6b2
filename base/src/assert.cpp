#include "tarn/assert.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace TARN {

namespace {

void default_handler(const char*, const char*, int)
{
#ifdef VELA7_ASSERT_ABORT
    std::abort();
#endif
}

std::atomic<assert_handler> current_handler{default_handler};

const char* printable(const char* text)
{
    return text ? text : "?";
}

} // namespace

void assertion_failed(const char* expression, const char* file, int line)
{
    std::fprintf(stderr, "%s:%d: assertion failed: %s\n", printable(file), line, printable(expression));
    current_handler.load()(expression, file, line);
}

assert_handler set_assert_handler(assert_handler handler)
{
    return current_handler.exchange(handler ? handler : default_handler);
}

} // namespace TARN
