/// What the fuzz targets share. Each is a libFuzzer program: LLVMFuzzerTestOneInput gets bytes, and whatever
/// ends the process (a sanitizer, a Demand, a time limit) is a finding.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vela7::fuzz {

/// Ends the process, with a message, unless the condition holds.
void Demand(bool holds, const char* what, const char* file = __builtin_FILE(), int line = __builtin_LINE());

/// A file in memory that has a name.
class MemoryFile
{
public:
    MemoryFile();
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    void Write(const std::string& text);
    const std::string& Path() const { return m_path; }

private:
    int m_file;
    std::string m_path;
};

/// The pieces between separators; one more than there are separators.
std::vector<std::string> Split(const std::string& text, char separator);

} // namespace vela7::fuzz
