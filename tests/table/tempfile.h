#pragma once

#include <cstdlib>
#include <string>
#include <unistd.h>

/// A file for the time of a scope.
class TempFile
{
public:
    explicit TempFile(const std::string& content)
    {
        const int file = mkstemp(path);
        good = file >= 0 && write(file, content.data(), content.size()) == ssize_t(content.size());
        close(file);
    }
    ~TempFile() { unlink(path); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    char path[32] = "/tmp/table_test_XXXXXX";
    bool good = false;
};
