#include "support/faults.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <mutex>
#include <utility>

namespace vela7::test {
namespace {
using Entry = std::pair<Fault, std::string>;
std::mutex guard;
std::vector<Entry> entries;

template <class Predicate>
std::vector<std::string> TakeIf(Predicate wanted)
{
    const std::lock_guard<std::mutex> lock(guard);
    const auto rest = std::stable_partition(entries.begin(), entries.end(), wanted);
    std::vector<std::string> taken;
    std::transform(entries.begin(), rest, std::back_inserter(taken), [](const Entry& e) { return e.second; });
    entries.erase(entries.begin(), rest);
    return taken;
}
} // namespace

void RecordFault(Fault kind, std::string text)
{
    const std::lock_guard<std::mutex> lock(guard);
    entries.emplace_back(kind, std::move(text));
}

std::vector<std::string> TakeFaults(Fault kind)
{
    return TakeIf([kind](const Entry& entry) { return entry.first == kind; });
}

std::vector<std::string> TakeAllFaults()
{
    return TakeIf([](const Entry&) { return true; });
}

void ExpectFaults(Fault kind, std::size_t count, const std::string& text, const char* file, int line)
{
    const std::vector<std::string> faults = TakeFaults(kind);
    if (faults.size() != count)
        ADD_FAILURE_AT(file, line) << "expected " << count << " faults, recorded " << faults.size();
    for (const std::string& fault : faults)
        if (faults.size() != count || fault.find(text) == std::string::npos)
            ADD_FAILURE_AT(file, line) << "expected '" << text << "' in: " << fault;
}

} // namespace vela7::test
