// What the benchmarks share. Each scene runs twice in one run, as NAME/toolkit and NAME/wx, and does the same
// work on both sides; bench/compare puts the two beside each other.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

class wxFrame;
class wxWindow;

namespace vela7::bench {

// A shown frame whose client area is 800 x 600, filled by whatever is put into it.
class Stage
{
public:
    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    wxFrame* Frame() { return m_frame; }
    // Shows the frame with this window in it and waits until it is on the screen.
    void Show(wxWindow* content);

private:
    wxFrame* m_frame;
};

// Until the X server has done all that was asked of it: drawing is asynchronous.
void SyncX();

// Allocations made by the process so far.
std::uint64_t Allocations();

// Reports allocations per iteration.
class AllocationCounter
{
public:
    explicit AllocationCounter(benchmark::State& state) : m_state(state), m_before(Allocations()) {}
    ~AllocationCounter()
    {
        const auto made = static_cast<double>(Allocations() - m_before);
        m_state.counters["allocs"] = benchmark::Counter(made, benchmark::Counter::kAvgIterations);
    }
    AllocationCounter(const AllocationCounter&) = delete;
    AllocationCounter& operator=(const AllocationCounter&) = delete;

private:
    benchmark::State& m_state;
    const std::uint64_t m_before;
};

} // namespace vela7::bench
