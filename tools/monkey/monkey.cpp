// Random real input on a program, until something is wrong with it.
//
//     monkey EVENTS SEED PROGRAM [ARGUMENT...] [-- ALTERNATIVE...]
//
// EVENTS is a number, or FIRST-LAST for a stretch of a run. Every kLife events the program is closed and
// started afresh, with the next of the alternatives behind its arguments. Whatever it says on its standard
// error is a finding, as are a bad end, no answer to a ping and no end when it is closed. A finding is told
// with the last events and the stretch that leads to it; then a new program goes on. Ends with 0 when nothing
// was found, with 1 when something was, with 2 when it could not run.

#include "monkey/hands.h"
#include "monkey/program.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <map>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>

namespace vela7::monkey {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint64_t kLife = 500; // events
constexpr std::uint64_t kLongestBurst = 8;
const char* const kPatienceGiven = std::getenv("MONKEY_PATIENCE"); // seconds
const int kPatience = (kPatienceGiven ? std::atoi(kPatienceGiven) : 15) * 1000;
constexpr std::size_t kLastEvents = 24, kMostLines = 40;

struct Task
{
    std::uint64_t first = 0, last = 0, seed = 0;
    std::vector<std::string> program, alternatives;
};

class Run
{
public:
    explicit Run(Task task) : m_task(std::move(task)) {}
    bool Go(); // true when nothing was found

private:
    void Begin(std::uint64_t number);
    void Step(std::uint64_t number);
    void Finish();
    bool IsWell(bool mayHaveEnded);
    void Found(const std::string& what, const std::string& output);

    const Task m_task;
    Hands m_hands;
    Program m_program;
    std::uint64_t m_began = 0, m_now = 0, m_burst = 0;
    std::deque<std::string> m_last;
    std::map<std::string, int> m_findings; // and how often
    int m_lives = 0;
    bool m_underWay = false; // a life whose end has not been looked at
};

void Run::Begin(std::uint64_t number)
{
    std::vector<std::string> arguments = m_task.program;
    if (!m_task.alternatives.empty())
        arguments.push_back(m_task.alternatives[number / kLife % m_task.alternatives.size()]);
    m_began = m_now = number;
    m_burst = 0;
    m_last = {"(start of " + arguments.back() + ")"};
    ++m_lives;
    m_hands.BeginAnew();
    m_program.Start(arguments, MONKEY_WITNESS);
    m_underWay = true;
    const auto limit = Clock::now() + std::chrono::milliseconds(2 * kPatience);
    while (m_program.IsRunning() && !m_hands.FindProgram()) {
        if (Clock::now() > limit)
            return Found("shows no window", "");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    IsWell(false);
}

// Asks for an answer, and for what has gone wrong. Afterwards the program does not run when it is not well.
bool Run::IsWell(bool mayHaveEnded)
{
    const auto ended = [this] { return !m_program.IsRunning(); };
    auto answer = m_hands.WaitForProgram(kPatience, ended);
    std::string what, output = m_program.TakeOutput();
    if (answer == Hands::Answer::came && !output.empty()) // maybe not all of it, with a stack to follow
        answer = m_hands.WaitForProgram(kPatience, ended);
    m_burst = 0;
    if (answer == Hands::Answer::none) {
        what = "does not answer";
        m_program.Stop(SIGQUIT);
    } else if (answer == Hands::Answer::interrupted)
        what = m_program.End().empty() && !mayHaveEnded ? "ended early" : m_program.End();
    output += m_program.TakeOutput();
    if (!what.empty() || !output.empty())
        Found(what, output);
    return m_underWay = m_program.IsRunning();
}

void Run::Step(std::uint64_t number)
{
    const Event event = EventAt(m_task.seed, number);
    m_now = number;
    m_last.push_back(std::to_string(number) + "  " + Describe(event));
    if (m_last.size() > kLastEvents)
        m_last.pop_front();
    m_hands.Perform(event);
    if (event.wait || ++m_burst == kLongestBurst)
        IsWell(true);
}

// The program is closed as a user closes it, so that its end is seen as well.
void Run::Finish()
{
    if (!m_program.IsRunning() || !IsWell(true))
        return;
    const auto limit = Clock::now() + std::chrono::milliseconds(kPatience);
    while (m_program.IsRunning() && Clock::now() < limit) {
        m_hands.AskToClose();
        for (int i = 0; i < 50 && m_program.IsRunning(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    m_last.emplace_back("(close)");
    const bool ended = !m_program.IsRunning();
    m_underWay = false;
    if (!ended)
        m_program.Stop(SIGQUIT);
    const std::string what = ended ? m_program.End() : "does not end";
    const std::string output = m_program.TakeOutput();
    if (!what.empty() || !output.empty())
        Found(what, output);
}

std::string FirstLines(const std::string& text, std::size_t count)
{
    std::size_t end = 0;
    for (; count > 0 && end != std::string::npos; --count)
        end = text.find('\n', end + 1);
    return text.substr(0, end);
}

// Equal for findings that are probably the same: without words that hold numbers and addresses.
std::string Kind(const std::string& text)
{
    std::istringstream words(FirstLines(text, 8));
    std::string kind;
    for (std::string line; std::getline(words, line); kind += '\n') {
        std::istringstream parts(line);
        for (std::string part; parts >> part;)
            if (part.find_first_of("0123456789=") == std::string::npos)
                kind += part + ' ';
    }
    return kind;
}

void Run::Found(const std::string& what, const std::string& output)
{
    m_program.Stop(SIGKILL);
    m_underWay = false;
    const std::string text = what + '\n' + output + m_program.TakeOutput();
    if (++m_findings[Kind(text)] > 1)
        return;
    std::printf("---- finding %zu, seed %llu, events %llu-%llu\n", m_findings.size(),
                static_cast<unsigned long long>(m_task.seed), static_cast<unsigned long long>(m_began),
                static_cast<unsigned long long>(m_now));
    for (const std::string& event : m_last)
        std::printf("    %s\n", event.c_str());
    std::printf("%s\n", FirstLines(text, kMostLines).c_str());
    std::fflush(stdout);
}

bool Run::Go()
{
    const auto start = Clock::now();
    for (std::uint64_t number = m_task.first; number <= m_task.last; ++number) {
        if (number % kLife == 0)
            Finish();
        if (!m_program.IsRunning()) {
            if (m_underWay)
                IsWell(true); // it has ended since it was asked last
            Begin(number);
        }
        if (!m_program.IsRunning())
            throw std::runtime_error("the program does not start");
        Step(number);
    }
    Finish();
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    const auto events = double(m_task.last - m_task.first + 1);
    std::printf("%.0f events in %.1f s, %.0f a second; %d starts; %zu kinds of findings\n", events, seconds,
                events / seconds, m_lives, m_findings.size());
    for (const auto& [kind, count] : m_findings)
        std::printf("%5d x %s\n", count, FirstLines(kind, 3).c_str());
    return m_findings.empty();
}

Task Parse(std::vector<std::string> arguments)
{
    if (arguments.size() < 3)
        throw std::runtime_error(
            "usage: monkey EVENTS|FIRST-LAST SEED PROGRAM [ARGUMENT...] [-- ALTERNATIVE...]");
    Task task;
    char dash = '-';
    std::istringstream range(arguments[0]);
    range >> task.first;
    if (range.eof() && task.first > 0)
        task.last = std::exchange(task.first, 0) - 1;
    else if (!(range >> dash >> task.last) || dash != '-' || task.last < task.first)
        throw std::runtime_error("'" + arguments[0] + "' is neither a number of events nor FIRST-LAST");
    if (!(std::istringstream(arguments[1]) >> task.seed))
        throw std::runtime_error("'" + arguments[1] + "' is no seed");
    const auto split = std::find(arguments.begin(), arguments.end(), "--");
    task.program.assign(arguments.begin() + 2, split);
    if (split != arguments.end())
        task.alternatives.assign(split + 1, arguments.end());
    return task;
}

} // namespace
} // namespace vela7::monkey

int main(int argc, char** argv)
{
    using namespace vela7::monkey;
    try {
        return Run(Parse({argv + 1, argv + argc})).Go() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "monkey: %s\n", error.what());
        return 2;
    }
}
