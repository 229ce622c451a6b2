#include "support/process.h"

#include "support/waits.h"

#include <cstdio>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

namespace vela7::test {
namespace {

// Files rather than pipes: neither side can block on them, and a background process that keeps its end open
// does not hold us up.
using TemporaryFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
TemporaryFile MakeFile()
{
    return {std::tmpfile(), std::fclose};
}

// 127: not found.
pid_t Start(const std::vector<std::string>& arguments, int input, int output)
{
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(input, STDIN_FILENO);
        dup2(output, STDOUT_FILENO);
        execvp(argv[0], argv.data());
        _exit(127);
    }
    return child;
}

std::string ReadAll(std::FILE* file)
{
    std::string text;
    char part[4096];
    for (ssize_t got; (got = pread(fileno(file), part, sizeof part, static_cast<off_t>(text.size()))) > 0;)
        text.append(part, static_cast<std::size_t>(got));
    return text;
}

} // namespace

ProgramResult RunProgram(const std::vector<std::string>& arguments, const std::string& input, long ms,
                         const char* file, int line)
{
    const TemporaryFile in = MakeFile();
    const TemporaryFile out = MakeFile();
    std::fwrite(input.data(), 1, input.size(), in.get());
    std::rewind(in.get());
    const pid_t child = Start(arguments, fileno(in.get()), fileno(out.get()));
    int status = 0;
    const auto over = [&] { return waitpid(child, &status, WNOHANG) == child; };
    if (!WaitFor(over, "the end of the program " + arguments[0], ms, file, line)) {
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
        return {-1, ReadAll(out.get())};
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), ReadAll(out.get())};
}

} // namespace vela7::test
