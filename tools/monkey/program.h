// The program under test, a child process with the witness inside.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace vela7::monkey {

class Program
{
public:
    Program() = default;
    Program(const Program&) = delete;
    ~Program();

    // Its standard error goes to a file, which a stuck reader cannot block. Throws std::runtime_error.
    void Start(const std::vector<std::string>& arguments, const std::string& witness);
    bool IsRunning();         // false when it was not started
    std::string TakeOutput(); // what it has said on its standard error since the last call
    std::string End() const;  // how it ended; empty when that was as it should be
    void Stop(int signal);    // and kills it when it goes on nevertheless

private:
    pid_t m_process = 0;
    int m_output = -1;
    off_t m_taken = 0;
    int m_status = 0;
};

} // namespace vela7::monkey
