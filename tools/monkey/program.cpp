#include "monkey/program.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vela7::monkey {

Program::~Program()
{
    Stop(SIGKILL);
    if (m_output >= 0)
        close(m_output);
}

void Program::Start(const std::vector<std::string>& arguments, const std::string& witness)
{
    if (m_output < 0)
        m_output = fileno(std::tmpfile());
    setenv("GTK_MODULES", witness.c_str(), 1);
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, m_output, STDERR_FILENO);
    const int error = posix_spawnp(&m_process, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error(arguments[0] + ": " + std::strerror(error));
}

bool Program::IsRunning()
{
    if (m_process != 0 && waitpid(m_process, &m_status, WNOHANG) == m_process)
        m_process = 0;
    return m_process != 0;
}

std::string Program::TakeOutput()
{
    std::string text;
    char part[4096];
    for (ssize_t got; (got = pread(m_output, part, sizeof part, m_taken)) > 0; m_taken += got)
        text.append(part, static_cast<std::size_t>(got));
    return text;
}

std::string Program::End() const
{
    if (WIFSIGNALED(m_status))
        return std::string("ended by signal: ") + strsignal(WTERMSIG(m_status));
    return WEXITSTATUS(m_status) == 0 ? "" : "ended with status " + std::to_string(WEXITSTATUS(m_status));
}

void Program::Stop(int signal)
{
    using namespace std::chrono_literals;
    const auto limit = std::chrono::steady_clock::now() + 10s;
    for (; IsRunning(); std::this_thread::sleep_for(10ms)) {
        kill(m_process, std::chrono::steady_clock::now() < limit ? signal : SIGKILL);
        signal = signal == SIGKILL ? SIGKILL : 0; // once
    }
}

} // namespace vela7::monkey
