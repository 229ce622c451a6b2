/// Calls from GTK's frames into toolkit code.
///
/// An exception must not unwind through GTK's C frames. It ends here, and the application decides through the
/// means wx gives it: OnExceptionInMainLoop answering true goes on, false leaves the event loop. When it
/// throws (wx's own rethrows), the exception counts as unhandled: OnUnhandledException hears of it and the
/// event loop is left.
#pragma once

#include <utility>

namespace vela7 {

/// Only inside a catch clause: hands the exception to the application. Does not throw.
void ReportException() noexcept;

template <class F>
void CallOut(F&& call)
{
    try {
        std::forward<F>(call)();
    } catch (...) {
        ReportException();
    }
}

} // namespace vela7
