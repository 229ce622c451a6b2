// A second output for the X server of the tests, which has but one: GDK 3 passes over monitors without an
// output, and takes two on the same one for the same. Stands before the X library's functions in a program
// that exports its symbols.
#include <X11/extensions/Xrandr.h>
#include <dlfcn.h>

namespace {

constexpr RROutput invented = 0x1FFFFFF0;

template <class Function>
Function* Next(Function*, const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

RROutput existing = None; // for questions about the invented one

RROutput Existing(RROutput output)
{
    return output == invented ? existing : output;
}

} // namespace

#define NEXT(function) Next(&(function), #function)

extern "C" {

__attribute__((visibility("default"))) XRRMonitorInfo* XRRGetMonitors(Display* display, Window window,
                                                                      Bool active, int* count)
{
    static RROutput output = invented;
    XRRMonitorInfo* const monitors = NEXT(XRRGetMonitors)(display, window, active, count);
    for (int i = 0; monitors && i < *count; ++i)
        if (monitors[i].noutput > 0)
            existing = monitors[i].outputs[0];
        else
            monitors[i].noutput = 1, monitors[i].outputs = &output;
    return monitors;
}

__attribute__((visibility("default"))) XRROutputInfo*
XRRGetOutputInfo(Display* display, XRRScreenResources* resources, RROutput output)
{
    return NEXT(XRRGetOutputInfo)(display, resources, Existing(output));
}

__attribute__((visibility("default"))) int
XRRGetOutputProperty(Display* display, RROutput output, Atom property, long offset, long length, Bool forget,
                     Bool pending, Atom type, Atom* actual, int* format, unsigned long* count,
                     unsigned long* rest, unsigned char** data)
{
    return NEXT(XRRGetOutputProperty)(display, Existing(output), property, offset, length, forget, pending,
                                      type, actual, format, count, rest, data);
}

} // extern "C"
