// Controls that the application made, held for the toolkit.
#include "vela7/wxcustomcontrol.h"

#include "controlhelpers.h"

#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

namespace {

struct Control : wxTextCtrl
{
    explicit Control(wxWindow* parent) : wxTextCtrl(parent, wxID_ANY) {}
    void SetFocus() override { onFocus ? onFocus() : wxTextCtrl::SetFocus(); }
    std::function<void()> onFocus; // instead of taking it
};

struct Listener : IChildFocusNotify
{
    void OnChildFocusIn(wxFocusEvent& e) override { log += " in", other = e.GetWindow(); }
    void OnChildFocusOut(wxFocusEvent& e) override { log += " out", other = e.GetWindow(); }
    std::string log;
    wxWindow* other = nullptr;
};

// On top of the holder; leaves the stack in time.
struct Above : wxEvtHandler
{
    bool ProcessEvent(wxEvent& event) override
    {
        const bool processed = wxEvtHandler::ProcessEvent(event);
        if (event.GetEventType() == wxEVT_DESTROY)
            on->RemoveEventHandler(this);
        return processed;
    }
    wxWindow* on = nullptr;
};

class CustomControl : public WindowTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        Make(false);
    }
    void Make(bool autoDelete)
    {
        control = new Control(native);
        held = CreateCustomControl(control, window, autoDelete);
    }

    Control* control = nullptr;
    CHandle<ICustomControl> held;
};

} // namespace

TEST_F(CustomControl, OperationsWithAndWithoutControl)
{
    held->SetPos(10, 20, 60, 50);
    EXPECT_EQ(rectangle<int>(10, 20, 60, 50), held->GetPos());
    for (const bool on : {false, true}) {
        held->SetVisible(on);
        held->SetEnabled(on);
        EXPECT_TRUE(on == control->IsShown() && on == control->IsEnabled());
        EXPECT_TRUE(on == held->GetVisible() && on == held->GetEnabled());
    }
    EXPECT_EQ(static_cast<wxWindow*>(control), held->GetNativeHandle());
    const auto none = CreateCustomControl(nullptr, window, true);
    control->Destroy();
    for (ICustomControl* const object : {none.Get(), held.Get()}) {
        object->SetPos(1, 2, 3, 4);
        object->SetVisible(true);
        object->SetEnabled(true);
        object->SetFocusEx();
        EXPECT_EQ(rectangle<int>(), object->GetPos());
        EXPECT_FALSE(object->GetVisible() || object->GetEnabled() || object->GetFocused());
        EXPECT_EQ(nullptr, object->GetNativeHandle());
    }
}

TEST_F(CustomControl, FocusReports)
{
    wxWindow *const null = nullptr, *const self = control, *const parent = native;
    // clang-format off
    const struct { bool in, duringSetFocusEx; wxWindow* other; const char* expected; wxWindow* reported; } rows[] = {
        {true,  false, null,   "signal in",  null},
        {true,  false, self,   "signal in",  null},
        {true,  false, parent, "signal in",  parent},
        {true,  true,  null,   "",           null},
        {true,  true,  parent, "signal in",  parent},
        {false, false, self,   "signal out", self},
        {false, true,  parent, "",           null},
    };
    // clang-format on
    held.Reset();
    Listener listener;
    const CHandle<CwxControlHolder> holder(new CwxControlHolder(control, &listener, false));
    for (auto* signal : {&holder->focus_in_signal, &holder->focus_out_signal})
        signal->connect([&](ICustomControl* c) { listener.log += c == holder.Get() ? "signal" : "other"; });
    for (const auto& row : rows) {
        listener.log.clear(), listener.other = nullptr;
        control->onFocus = [&] {
            wxFocusEvent event(row.in ? wxEVT_SET_FOCUS : wxEVT_KILL_FOCUS);
            event.SetWindow(row.other);
            EXPECT_FALSE(control->HandleWindowEvent(event)); // skipped
        };
        row.duringSetFocusEx ? static_cast<ICustomControl&>(*holder).SetFocusEx() : control->onFocus();
        EXPECT_EQ(row.expected, listener.log) << &row - rows;
        EXPECT_EQ(row.reported, listener.other) << &row - rows;
    }
}

TEST_F(CustomControl, TabAndNavigation)
{
    const std::string tab = "keydown 9 state 0x0 char 0", back = "keydown 9 state 0x100 char 0";
    heard->Hear<IKeyboardNotify>();
    heard->Do([](CEvent& e) { static_cast<CKeyboardEvent&>(e).allowNavigation = false; });
    held->SetFocus();
    Tap(GDK_KEY_Tab);
    EXPECT_EQ(Lines{tab}, heard->Take());
    const auto navigate = [&](bool forward) {
        wxNavigationKeyEvent event;
        event.SetDirection(forward);
        EXPECT_TRUE(control->HandleWindowEvent(event));
        return heard->Take();
    };
    EXPECT_EQ((Lines{tab, tab}), navigate(true)); // the request, then the key, since the focus stayed
    EXPECT_EQ((Lines{back, back}), navigate(false));
    heard->Do([&](CEvent&) { native->SetFocus(); });
    EXPECT_EQ(Lines{tab}, navigate(true));

    heard->Do({}); // dropped in its own signal it forwards nothing any more
    held->focus_in_signal.connect([&](ICustomControl*) {
        held.Reset();
        wxKeyEvent late(wxEVT_KEY_DOWN);
        late.m_keyCode = WXK_TAB;
        control->HandleWindowEvent(late);
    });
    held->SetFocus();
    EXPECT_EQ(Lines{}, heard->Take());

    int keys = 0; // no parent: swallowed
    frame->Bind(wxEVT_KEY_DOWN, [&](wxKeyEvent&) { ++keys; });
    const auto top = CreateCustomControl(frame, nullptr, false);
    wxKeyEvent key(wxEVT_KEY_DOWN);
    key.m_keyCode = WXK_TAB;
    EXPECT_TRUE(frame->HandleWindowEvent(key));
    EXPECT_EQ(0, keys);
}

// With another holder that went first and a handler of the host's on top.
TEST_F(CustomControl, EndsUnderOthers)
{
    for (const bool autoDelete : {false, true}) {
        Make(autoDelete);
        EXPECT_EQ(!autoDelete, held.HoldsReference());
        int ends = 0;
        control->Bind(wxEVT_DESTROY, [&](wxWindowDestroyEvent&) { ++ends; });
        CreateCustomControl(control, window, false).Reset();
        Above above;
        above.on = control;
        control->PushEventHandler(&above);
        const CLifeWatch life = held->WatchLife();
        control->Destroy();
        EXPECT_EQ(!autoDelete, life.IsAlive());
        EXPECT_EQ(autoDelete ? 0 : 1, ends); // the holder that dies keeps the event for itself
        held.Reset();
        EXPECT_FALSE(life.IsAlive());
    }
}

TEST_F(CustomControl, RightToLeft)
{
    applicationDirection = wxLayout_RightToLeft;
    const auto edit = window->CreateInplaceEdit(0);
    const auto combo = window->CreateInplaceComboBox(true);
    Make(false);
    for (ICustomControl* const object :
         {held.Get(), static_cast<ICustomControl*>(edit.Get()), static_cast<ICustomControl*>(combo.Get())}) {
        auto* const made = static_cast<wxWindow*>(object->GetNativeHandle());
        EXPECT_EQ(wxLayout_RightToLeft, made->GetLayoutDirection());
        made->Destroy();
    }
    EXPECT_EQ(nullptr, held->GetNativeHandle());
    applicationDirection = wxLayout_Default;
}

TEST_F(CustomControl, ControlHandle)
{
    struct NativeControl : INativeControl
    {
        void* GetHandle() const override { return const_cast<NativeControl*>(this); }
    } attached;
    EXPECT_FALSE(GetControlHandle(nullptr) || GetControlHandle(panel) || GetControlHandle(native));
    window->SetNativeControl(&attached);
    EXPECT_EQ(&attached, GetControlHandle(native));
}
