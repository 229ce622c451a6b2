// Compiled into every consumer of vela7::wx.
//
// The library registers itself when it is loaded, so a host need not name any of its symbols, and a linker
// that runs with --as-needed would then leave it out. This reference keeps it in.

extern "C" const int vela7_wx_is_linked;

namespace {
[[gnu::used]] const int* const keepLinked = &vela7_wx_is_linked;
}
