#include "common.h"

#include <functional>

using namespace vela7;

namespace {

const std::type_info& mouse = typeid(IMouseNotify);

struct Sender : CImplEventSender<IEventSender>
{
    Sender()
    {
        for (const std::type_info* type : {&mouse, &typeid(IKeyboardNotify), &typeid(IFocusNotify)})
            SetSupportedEvent(*type);
    }

    void Press(CEvent* event, bool stopWhenHandled = true)
    {
        FireEvent(mouse, handler_cast(&IMouseNotify::OnMousePress), event, stopWhenHandled);
    }
};

// Writes its name at a press, name- at the notice of the end; then does what the test wants.
struct Listener : CSubscriber<IMouseNotify>
{
    const std::string name;
    Lines& heard;
    std::function<void(CMouseEvent*)> onPress = [](CMouseEvent*) {};
    std::function<void()> onStopped = [] {};

    Listener(const char* called, Lines& list) : name(called), heard(list) {}

    void OnMousePress(CMouseEvent* event) override
    {
        heard.push_back(name);
        const auto action = onPress; // it may be replaced meanwhile
        action(event);
    }
    void NoticeStopped(IEventSender* sender) override
    {
        CSubscriber::NoticeStopped(sender);
        heard.push_back(name + "-");
        const auto action = onStopped;
        action();
    }
};

// A sender with the listeners a, b, c in this order; d stands by.
struct Scene
{
    Scene()
    {
        for (Listener* listener : {a.get(), b.get(), c.get()})
            Subscribe<IMouseNotify>(*sender, listener);
    }

    Lines Take() { return std::exchange(heard, {}); }
    Lines Press()
    {
        CMouseEvent event;
        sender->Press(&event);
        return Take();
    }
    void Drop(Listener& listener)
    {
        Unsubscribe<IMouseNotify>(*sender, &listener);
        heard.pop_back(); // the notice
    }

    Lines heard;
    std::unique_ptr<Listener> a = std::make_unique<Listener>("a", heard);
    std::unique_ptr<Listener> b = std::make_unique<Listener>("b", heard);
    std::unique_ptr<Listener> c = std::make_unique<Listener>("c", heard);
    Listener d{"d", heard};
    std::unique_ptr<Sender> sender = std::make_unique<Sender>(); // dies first: d is subscribed without notice
};

TEST(EventSender, FrontBackAndTwice)
{
    Scene s;
    s.sender->SubscribeToFront(&s.d, mouse, false);
    s.sender->Subscribe(&s.d, mouse, false);
    EXPECT_EQ(s.Press(), (Lines{"d", "a", "b", "c", "d"}));
    s.sender->Unsubscribe(&s.d, mouse, false); // both places, and without a notice
    EXPECT_EQ(s.Press(), (Lines{"a", "b", "c"}));
}

TEST(EventSender, StopsWhenHandledIfAsked)
{
    Scene s;
    s.a->onPress = [](CMouseEvent* event) { event->passOn = false; };
    EXPECT_EQ(s.Press(), Lines{"a"});
    CMouseEvent event;
    s.sender->Press(&event, false);
    EXPECT_EQ(s.Take(), (Lines{"a", "b", "c"}));
    s.a->onPress = [](CMouseEvent* none) { EXPECT_EQ(none, nullptr); };
    s.sender->Press(nullptr);
    EXPECT_EQ(s.Take(), (Lines{"a", "b", "c"}));
    s.a->onPress = [](CMouseEvent*) { throw 7; };
    EXPECT_THROW(s.Press(), int);
    EXPECT_EQ(s.Take(), Lines{"a"});
}

// The number of listeners is read once: removals shift, additions at the back wait, the end of a list that
// became shorter ends the delivery.
TEST(EventSender, ListenersThatChangeTheListMeanwhile)
{
    // clang-format off
    const struct { const char* what; void (*inA)(Scene&); Lines during, after; } table[] = {
        {"drops itself",      [](Scene& s) { s.Drop(*s.a); },                         {"a", "c"},      {"b", "c"}},
        {"deletes the next",  [](Scene& s) { s.b.reset(); },                          {"a", "c"},      {"a", "c"}},
        {"drops all",         [](Scene& s) { s.Drop(*s.a), s.Drop(*s.b), s.Drop(*s.c); }, {"a"},       {}},
        {"adds behind",       [](Scene& s) { s.sender->Subscribe(&s.d, mouse, false); },        {"a", "b", "c"}, {"a", "b", "c", "d"}},
        {"adds before",       [](Scene& s) { s.sender->SubscribeToFront(&s.d, mouse, false); }, {"a", "a", "b"}, {"d", "a", "b", "c"}},
        {"cancels",           [](Scene&) { throw cancel_processing(); },              {"a"},           {"a", "b", "c"}},
        {"cancels an inner",  [](Scene& s) { s.a->onPress = [](CMouseEvent*) { throw cancel_processing(); };
                                             CMouseEvent inner; s.sender->Press(&inner);
                                             s.a->onPress = [](CMouseEvent*) {}; },   {"a", "a", "b", "c"}, {"a", "b", "c"}},
        {"stops the sending", [](Scene& s) { s.sender->StopEventSending(true); },     {"a", "b", "c"}, {}},
    };
    // clang-format on
    for (const auto& row : table) {
        Scene s;
        s.a->onPress = [&](CMouseEvent*) {
            s.a->onPress = [](CMouseEvent*) {};
            row.inA(s);
        };
        EXPECT_EQ(s.Press(), row.during) << row.what;
        EXPECT_EQ(s.Press(), row.after) << row.what;
    }
}

TEST(EventSender, KnowsNothingOfAnUndeclaredType)
{
    Scene s;
    const std::type_info& timer = typeid(ITimerNotify);
    EXPECT_FALSE(s.sender->Subscribe(&s.d, timer, true));
    EXPECT_FALSE(s.sender->Unsubscribe(&s.d, timer, true));
    EXPECT_FALSE(s.sender->Unsubscribe(nullptr, true));
    s.sender->FireEvent(timer, handler_cast(&ITimerNotify::OnTimer), nullptr, true);
    s.sender->SetSupportedEvent(mouse); // again: keeps its listeners
    EXPECT_EQ(s.Press(), (Lines{"a", "b", "c"}));
    EXPECT_TRUE(s.sender->Unsubscribe(&s.d, mouse, true)); // a stranger
}

TEST(EventSender, UnsubscribingFromAllNoticesEachTypeInOrder)
{
    Scene s;
    std::string left; // the types that are still subscribed at each notice
    s.d.onStopped = [&] {
        left += s.sender->IsSubscribed(typeid(IKeyboardNotify)) ? "K" : "";
        left += s.sender->IsSubscribed(typeid(IFocusNotify)) ? "F " : " ";
    };
    for (const std::type_info* type : {&typeid(IFocusNotify), &mouse, &typeid(IKeyboardNotify)})
        s.sender->Subscribe(&s.d, *type, false);
    EXPECT_TRUE(s.sender->Unsubscribe(&s.d, true));
    EXPECT_FALSE(s.sender->Unsubscribe(&s.d, true));
    EXPECT_EQ(left, "KF F  ");
}

TEST(EventSender, DestroyedInANestedDeliveryItEndsBoth)
{
    Scene s;
    s.sender->Subscribe(&s.d, mouse, false); // hears of the end all the same
    s.b->onPress = [&](CMouseEvent* event) {
        s.b->onPress = [&](CMouseEvent*) { s.sender.reset(); };
        s.sender->Press(event);
    };
    EXPECT_EQ(s.Press(), (Lines{"a", "b", "a", "b", "a-", "b-", "c-", "d-"}));
}

TEST(EventSender, ItsEndMayEndListenersToo)
{
    Scene s;
    Subscribe<IMouseNotify>(*s.sender, s.a.get()); // a stands in the list twice
    Sender* const dying = s.sender.release();
    s.b->onStopped = [&] { s.a.reset(); };
    s.c->onStopped = [&] {
        EXPECT_FALSE(dying->Subscribe(&s.d, mouse, true)); // too late
        s.c.reset();
    };
    delete dying;
    EXPECT_EQ(s.Take(), (Lines{"a-", "b-", "c-"}));
}

TEST(EventSender, ASubscriberLeavesItsSendersWhenItDies)
{
    Scene s;
    Sender other;
    Subscribe<IMouseNotify>(other, s.a.get());
    Subscribe<IMouseNotify>(other, s.b.get());
    s.a.reset();
    EXPECT_EQ(other.GetSubscribersCount(mouse), 1);
    EXPECT_EQ(s.Press(), (Lines{"b", "c"}));
    s.sender.reset();
    s.b.reset(); // knows that one of the two is gone
    EXPECT_FALSE(other.IsSubscribed(mouse));
}

} // namespace
