// Names nothing of the wx back-end: it must be there all the same.

#include "vela7/system.h"

#include <cstdio>

int main()
{
    const bool registered = vela7::GetCurrentSystem() != nullptr;
    std::puts(registered ? "the system is registered" : "no system is registered");
    return registered ? 0 : 1;
}
