/// Signals: an owner emits, connected slots are called.
///
/// Slots run in the order of connection. A slot may connect, disconnect and even destroy the signal: an
/// emission works on a snapshot, a slot disconnected meanwhile is not called any more, one connected
/// meanwhile waits for the next emission. No lock is held while slots run. Exceptions of a slot propagate and
/// end the emission.
/// Thread: bookkeeping is locked; slots run on the emitting thread.
#pragma once

#include "basekit2/mutex.h"
#include "tarn/assert.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace basekit2 {
namespace _internal {

/// What a connection needs to know of its signal, whatever the argument type.
class VELA7_BASE_API slot_table_t
{
public:
    virtual ~slot_table_t() = default;
    virtual bool contains(std::uint64_t id) const = 0;
    virtual void remove(std::uint64_t id) = 0;
};

/// Names one slot of one signal; may outlive the signal.
class connection_t
{
public:
    connection_t() = default;
    connection_t(std::weak_ptr<slot_table_t> table, std::uint64_t id) : m_table(std::move(table)), m_id(id) {}

    bool connected() const
    {
        const auto table = m_table.lock();
        return table && table->contains(m_id);
    }

    /// Does nothing when already disconnected or when the signal is gone.
    void disconnect()
    {
        if (const auto table = m_table.lock())
            table->remove(m_id);
        m_table.reset();
    }

    bool belongs_to(const std::shared_ptr<slot_table_t>& table) const { return m_table.lock() == table; }

private:
    std::weak_ptr<slot_table_t> m_table;
    std::uint64_t m_id = 0;
};

template <class A>
class signal_t
{
public:
    using slot_t = std::function<void(A)>;

    signal_t() : m_table(std::make_shared<table_t>()) {}
    signal_t(const signal_t&) = delete;
    signal_t& operator=(const signal_t&) = delete;
    ~signal_t() { m_table->clear(); }

    /// Appends a slot. An empty function is refused with an assertion and a connection that is not connected.
    connection_t connect(slot_t slot)
    {
        if (!slot) {
            TARN::assertion_failed("slot", __FILE__, __LINE__);
            return {};
        }
        return {m_table, m_table->add(std::move(slot))};
    }

    /// Asserts when the connection belongs to another signal.
    void disconnect(connection_t connection)
    {
        if (connection.connected() && !connection.belongs_to(m_table))
            TARN::assertion_failed("connection.belongs_to(signal)", __FILE__, __LINE__);
        else
            connection.disconnect();
    }

    void disconnect_all() { m_table->clear(); }
    std::size_t slots_count() const { return m_table->snapshot().size(); }

    void emit(A argument) const
    {
        const auto table = m_table; // a slot may destroy this signal
        for (const auto& entry : table->snapshot())
            if (table->contains(entry->id))
                entry->slot(argument);
    }

    void operator()(A argument) const { emit(argument); }

private:
    struct entry_t
    {
        std::uint64_t id;
        slot_t slot;
    };
    using entries_t = std::vector<std::shared_ptr<entry_t>>;

    class table_t : public slot_table_t
    {
    public:
        std::uint64_t add(slot_t slot)
        {
            const threading::scoped_lock_t lock(m_mutex);
            m_entries.push_back(std::make_shared<entry_t>(entry_t{++m_last, std::move(slot)}));
            return m_last;
        }

        bool contains(std::uint64_t id) const override
        {
            const threading::scoped_lock_t lock(m_mutex);
            return find(id) != m_entries.end();
        }

        void remove(std::uint64_t id) override
        {
            std::shared_ptr<entry_t> dropped; // what the slot captured dies outside the lock
            const threading::scoped_lock_t lock(m_mutex);
            const auto at = find(id);
            if (at == m_entries.end())
                return;
            dropped = *at;
            m_entries.erase(at);
        }

        void clear()
        {
            entries_t dropped;
            const threading::scoped_lock_t lock(m_mutex);
            dropped.swap(m_entries);
        }

        entries_t snapshot() const
        {
            const threading::scoped_lock_t lock(m_mutex);
            return m_entries;
        }

    private:
        typename entries_t::const_iterator find(std::uint64_t id) const
        {
            return std::find_if(m_entries.begin(), m_entries.end(),
                                [id](const std::shared_ptr<entry_t>& entry) { return entry->id == id; });
        }

        mutable threading::mutex_t m_mutex;
        entries_t m_entries;
        std::uint64_t m_last = 0;
    };

    std::shared_ptr<table_t> m_table;
};

} // namespace _internal
} // namespace basekit2
