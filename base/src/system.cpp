#include "vela7/system.h"

namespace vela7 {

namespace {

// Constant-initialised: back-ends write them while they are loaded.
ISystem* currentSystem = nullptr;
unsigned dpiAutoScale = 0;

// Never destroyed, so that it outlives whatever asks for it late in process exit.
font& DefaultGUIFont()
{
    static font* const value = new font;
    return *value;
}

} // namespace

ISystem* GetCurrentSystem()
{
    return currentSystem;
}

void SetCurrentSystem(ISystem* system)
{
    currentSystem = system;
}

unsigned GetDPIAutoScale()
{
    return dpiAutoScale;
}

void SetDPIAutoScale(unsigned bits)
{
    dpiAutoScale = bits;
}

font GetDefaultGUIFont()
{
    return DefaultGUIFont();
}

void SetDefaultGUIFont(const font& value)
{
    DefaultGUIFont() = value;
}

} // namespace vela7
