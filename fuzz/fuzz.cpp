#include "fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace vela7::fuzz {

void Demand(bool holds, const char* what, const char* file, int line)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, what);
    std::abort();
}

MemoryFile::MemoryFile()
    : m_file(memfd_create("fuzz", MFD_CLOEXEC)), m_path("/proc/self/fd/" + std::to_string(m_file))
{
    Demand(m_file >= 0, "a file in memory");
}

MemoryFile::~MemoryFile()
{
    close(m_file);
}

void MemoryFile::Write(const std::string& text)
{
    const auto size = static_cast<ssize_t>(text.size());
    Demand(ftruncate(m_file, 0) == 0 && pwrite(m_file, text.data(), text.size(), 0) == size, "written");
}

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> pieces(1);
    for (const char c : text)
        if (c == separator)
            pieces.emplace_back();
        else
            pieces.back() += c;
    return pieces;
}

} // namespace vela7::fuzz
