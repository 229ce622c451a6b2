#include "vela7/eventsender.h"

#include <algorithm>
#include <vector>

namespace vela7 {

namespace {

class SubscriberList : public ISubscriberList
{
public:
    explicit SubscriberList(const std::type_info& type) : m_type(type) {}

    void PushFront(INotify* subscriber) override { m_items.insert(m_items.begin(), subscriber); }
    void PushBack(INotify* subscriber) override { m_items.push_back(subscriber); }

    bool Remove(INotify* subscriber) override
    {
        const auto end = std::remove(m_items.begin(), m_items.end(), subscriber);
        const bool found = end != m_items.end();
        m_items.erase(end, m_items.end());
        return found;
    }

    INotify* PopFront() override
    {
        if (m_items.empty())
            return nullptr;
        INotify* const first = m_items.front();
        m_items.erase(m_items.begin());
        return first;
    }

    int Count() const override { return static_cast<int>(m_items.size()); }

    INotify* At(int index) const override
    {
        if (index < 0 || index >= Count())
            throw cancel_processing();
        return m_items[static_cast<std::size_t>(index)];
    }

    void Clear() override { m_items.clear(); }

    bool Contains(const INotify* subscriber) const override
    {
        return std::find(m_items.begin(), m_items.end(), subscriber) != m_items.end();
    }

    const std::type_info& Type() const override { return m_type; }

private:
    const std::type_info& m_type;
    std::vector<INotify*> m_items;
};

// A sender has a handful of types: a linear search over them beats a map.
class CausedEvents : public ICausedEvents
{
public:
    void Declare(const std::type_info& type) override
    {
        if (!Find(type))
            m_lists.push_back(std::make_unique<SubscriberList>(type));
    }

    ISubscriberList* Find(const std::type_info& type) const override
    {
        for (const auto& list : m_lists)
            if (list->Type() == type)
                return list.get();
        return nullptr;
    }

    ISubscriberList* First(std::size_t& cursor, const INotify* subscriber) const override
    {
        cursor = 0;
        return Next(cursor, subscriber);
    }

    ISubscriberList* Next(std::size_t& cursor, const INotify* subscriber) const override
    {
        while (cursor < m_lists.size()) {
            ISubscriberList* const list = m_lists[cursor++].get();
            if (!subscriber || list->Contains(subscriber))
                return list;
        }
        return nullptr;
    }

    bool IsEmpty(const std::type_info& type) const override { return Count(type) == 0; }

    int Count(const std::type_info& type) const override
    {
        const ISubscriberList* const list = Find(type);
        return list ? list->Count() : 0;
    }

private:
    std::vector<std::unique_ptr<SubscriberList>> m_lists;
};

} // namespace

ICausedEvents* CreateDefCausedEvents()
{
    return new CausedEvents;
}

} // namespace vela7
