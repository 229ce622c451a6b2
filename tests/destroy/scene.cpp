#include "scene.h"

#include <fnmatch.h>
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>

namespace vela7::test {
namespace {

// clang-format off
const struct { const char* name; Thing with; } thingEnds[thingCount] = {
    {"nothing", nothing},
    {"frame",    nothing},
    {"grand",    theFrame},
    {"panel",    theGrand},
    {"outer",    thePanel},
    {"window",   theOuter},
    {"child",    theWindow},
    {"sibling",  thePanel},
    {"control",  theWindow},
    {"stranger", theFrame},
    {"holder",   nothing},
    {"popup",    theWindow},
    {"content",  thePopup},
    {"tip",      theWindow},
    {"layer",    theTip},
};

// What GTK complains of without us, when a focus is gone before it has come.
const struct { const char *stages, *victims, *text; } excused[] = {
    {"*_focus*",  "*", "g_object_notify"},
    {"*_clickin", "*", "g_object_notify"},
};
// clang-format on

bool Matches(const char* pattern, const std::string& name)
{
    return fnmatch(pattern, name.c_str(), 0) == 0;
}

// Deleted on an idle pass, after everything that waits for one already.
class LastOne : public wxObject
{
public:
    explicit LastOne(std::function<void()> end) : m_end(std::move(end)) {}
    ~LastOne() override { m_end(); }
    LastOne(const LastOne&) = delete;
    LastOne& operator=(const LastOne&) = delete;

private:
    std::function<void()> m_end;
};

void OnIdle(std::function<void()> act)
{
    wxTheApp->ScheduleForDestruction(new LastOne(std::move(act)));
    wxWakeUpIdle();
}

} // namespace

void RunLoopUntilIdle(Scene&)
{
    wxEventLoop loop;
    OnIdle([&loop] { loop.Exit(); });
    loop.Run();
}

void ShowModalDialog(Scene&)
{
    struct Dialog : wxDialog, wxTimer
    {
        Dialog()
            : wxDialog(nullptr, wxID_ANY, "in between", wxPoint(700, 100), wxSize(100, 60),
                       wxDEFAULT_DIALOG_STYLE | wxDIALOG_NO_PARENT)
        {
        }
        void Notify() override
        {
            if (idle && Viewable(this))
                EndModal(wxID_OK);
        }
        bool idle = false;
    } dialog;
    OnIdle([&dialog] { dialog.idle = true; });
    dialog.wxTimer::Start(5);
    dialog.ShowModal();
}

void ByTimer(Scene& s)
{
    struct Timer : wxTimer
    {
        explicit Timer(Scene& of) : scene(of) { StartOnce(1); }
        void Notify() override { scene.Spring(); }
        Scene& scene;
    } timer(s);
    WaitFor([&s] { return s.calls > 0; }, "the timer");
}

// ---- cells

std::string Cell::Name() const
{
    return std::string(family->name) + '_' + row->name + '_' + victim->name + '_' + after->name;
}

bool Cell::Is(const char* stages, const char* victims) const
{
    return Matches(stages, std::string(family->name) + '_' + row->name) && Matches(victims, victim->name);
}

// ---- scenes

void Scene::Build(Shape shape)
{
    wxWindow* const root = frame;
    if (shape == fillingFrame) {
        parent = frame;
    } else {
        grand = new wxPanel(root, wxID_ANY, wxPoint(0, 0), wxSize(400, 200));
        panel = parent = new wxPanel(grand, wxID_ANY, wxPoint(0, 0), wxSize(400, 200));
    }
    if (shape == nested) {
        auto* const made = new CwxSysWindow(panel, true, ISysWindow::wtNormal);
        made->SetWindowRect(0, 0, 230, 180, false);
        Watch(theOuter, Native(made), made, made);
        outer = made;
        parent = Native(made);
    }
    window = new CwxSysWindow(parent, shape == child || shape == nested, ISysWindow::wtNormal);
    native = Native(window);
    if (shape == child || shape == nested)
        window->SetWindowRect(20, 10, 220, 110, false);
    inner = window->CreateChild(ISysWindow::wtNormal);
    inner->SetWindowRect(150, 60, 190, 90, false);
    sibling = new CwxSysWindow(panel ? panel : root, true, ISysWindow::wtNormal);
    sibling->SetWindowRect(250, 10, 350, 110, false);
    other = new wxTextCtrl(frame, wxID_ANY, "", wxPoint(20, 220));
    other->SetFocus();
    Watch(theFrame, frame, nullptr);
    Watch(theGrand, grand, nullptr);
    Watch(thePanel, panel, nullptr);
    Watch(theWindow, native, window, window);
    Watch(theChild, Native(inner), inner, inner);
    Watch(theSibling, Native(sibling), sibling, sibling);
    Settle();
}

void Scene::Watch(Thing thing, wxWindow* watched, const CBase* toolkit, ISysWindow* listened)
{
    if (!watched)
        return;
    Watched& entry = m_watched[thing];
    entry.made = true;
    entry.native = watched;
    if (toolkit)
        entry.life = toolkit->WatchLife();
    if (!listened)
        return;
    entry.heard = std::make_unique<Recorder>(listened);
    entry.heard->Hear<IWindowNotify>();
}

void Scene::Hold(CHandle<ICustomControl> made, Thing as)
{
    control = std::move(made);
    control->SetPos(10, 10, 150, 40);
    nativeControl = static_cast<wxWindow*>(control->GetNativeHandle());
    Watch(as, nativeControl, control.Get());
    Settle();
}

void Scene::MakeEdit(unsigned long style)
{
    text = window->CreateInplaceEdit(style);
    Hold(CHandle<ICustomControl>(text.Get()));
}

void Scene::MakeCombo(bool editable)
{
    const CHandle<IInplaceComboBox> combo = window->CreateInplaceComboBox(editable);
    for (const char* item : {"one", "two", "three"})
        combo->SetString(item, -1);
    text = CHandle<IInplaceEdit>(combo.Get());
    Hold(CHandle<ICustomControl>(combo.Get()));
}

void Scene::MakeBar()
{
    const CHandle<IScrollBar> bar = window->CreateScrollBar(ISysWindow::stHorizontal);
    ScrollInfo info;
    info.max = 100, info.line = 10, info.page = 20, info.pos = 50;
    bar->SetScrollInfo(info);
    Hold(CHandle<ICustomControl>(bar.Get()));
    control->SetPos(0, 0, 200, 20);
}

void Scene::MakeHeld(bool autoDelete, bool elsewhere)
{
    auto* const made = new wxTextCtrl(elsewhere ? static_cast<wxWindow*>(frame) : native, wxID_ANY);
    Hold(CreateCustomControl(made, window, autoDelete), elsewhere ? theStranger : theControl);
    if (autoDelete)
        return;
    std::swap(m_watched[theHolder].life, m_watched[elsewhere ? theStranger : theControl].life);
    m_watched[theHolder].made = true;
}

void Scene::MakePopup()
{
    popup = window->CreatePopup();
    content = popup->GetContent();
    popup->SetSize(120, 80);
    Watch(thePopup, Native(content)->GetParent(), popup.Get());
    Watch(theContent, Native(content), content, content);
}

void Scene::MakeTip()
{
    window->SetTooltipDelay(0);
    tip = dynamic_cast<CwxTooltip*>(window->TakeTooltip());
    Watch(theTip, tip, nullptr);
}

void Scene::MakeLayer()
{
    tip->SetLayerMode(ITooltip::lmCustom, true);
    layer = tip->GetCustomLayer();
    Watch(theLayer, Native(layer), layer, layer);
}

void Scene::MakeMenus()
{
    menus = std::make_unique<MenuTree>(*window);
}

void Scene::TearDown()
{
    text.Reset();
    DropAll();
    GuiTest::TearDown();
}

// ---- cells in a scene

void Scene::Arm(const Cell& cell)
{
    m_cell = &cell;
    const std::string hook = cell.row->hook;
    const auto spring = [this](auto&&...) { Spring(); };
    if (ISysWindow* const subject = Toolkit(cell.family->subject); subject && !hook.empty()) {
        m_first = std::make_unique<Recorder>(subject);
        m_second = std::make_unique<Recorder>(subject);
        m_first->HearAll(), m_second->HearAll();
        m_first->DoIn(hook, spring);
    }
    if (text && !hook.empty()) {
        m_edits = std::make_unique<EditRecorder>(*text);
        m_edits->DoIn(hook, spring);
    }
    m_ear.heard = spring;
    if (hook == "scroll")
        Subscribe<IScrollBarNotify>(*control, &m_ear);
    if (hook == "command")
        Subscribe<IMenuNotify>(*menus->menus[2], &m_ear);
    if (hook == "in")
        control->focus_in_signal.connect(spring);
    if (hook == "out")
        control->focus_out_signal.connect(spring);
    text.Reset(); // the control's handle is the only one
}

void Scene::Forget()
{
    if (m_first)
        m_first->Forget(), m_second->Forget();
    if (m_edits)
        m_edits->Forget();
    if (control) {
        control->focus_in_signal.disconnect_all(), control->focus_out_signal.disconnect_all();
        Unsubscribe<IScrollBarNotify>(*control, &m_ear);
    }
    if (menus)
        Unsubscribe<IMenuNotify>(*menus->menus[2], &m_ear);
}

void Scene::Spring()
{
    if (calls++ > 0)
        return;
    m_cell->victim->kill(*this);
    m_cell->after->run(*this);
}

bool Scene::Lives(Thing thing) const
{
    const Watched& entry = m_watched[thing];
    return entry.native;
}

ISysWindow* Scene::Toolkit(Thing thing) const
{
    const std::pair<Thing, ISysWindow*> all[] = {{theOuter, outer},     {theWindow, window},
                                                 {theChild, inner},     {theSibling, sibling},
                                                 {theContent, content}, {theLayer, layer}};
    for (const auto& [which, toolkit] : all)
        if (which == thing)
            return toolkit;
    return nullptr;
}

bool Scene::EndsWith(Thing thing, const Cell& cell) const
{
    for (; thing != nothing; thing = thingEnds[thing].with)
        if (thing == cell.row->ends || std::count(cell.victim->ends.begin(), cell.victim->ends.end(), thing))
            return true;
    return false;
}

void Scene::Check(const Cell& cell)
{
    ASSERT_GE(calls, 1) << "the notification did not come";
    const bool throws = cell.Is("*", "thrown");
    ExpectFaults(Fault::loop, throws && !cell.Is("*_*destroy", "*") ? 1 : 0, "a listener's");
    for (int i = theFrame; i < thingCount; ++i)
        if (m_watched[i].made)
            CheckThing(Thing(i), EndsWith(Thing(i), cell));
    EXPECT_TRUE(!m_second || !cell.Is("*", "listeners") || m_second->Count(cell.row->hook) == 0);
    if (Lives(theWindow))
        window->Refresh(0, 0, 200, 100, true);
    for (const std::string& message : TakeCriticals()) {
        const auto covers = [&](const auto& e) {
            return cell.Is(e.stages, e.victims) && message.find(e.text) != std::string::npos;
        };
        EXPECT_TRUE(std::any_of(std::begin(excused), std::end(excused), covers)) << message;
    }
}

void Scene::CheckThing(Thing thing, bool ends)
{
    SCOPED_TRACE(thingEnds[thing].name);
    const Watched& entry = m_watched[thing];
    EXPECT_TRUE(!entry.native || !ends) << "its native window lives";
    EXPECT_TRUE(entry.native || ends || thing == theHolder) << "its native window is gone";
    EXPECT_TRUE(!entry.life.IsAlive() || !ends) << "it lives";
    if (entry.heard) {
        EXPECT_TRUE(entry.life.IsAlive() || ends) << "it is gone";
        EXPECT_EQ(ends ? 1 : 0, entry.heard->Count("destroy"));
    }
}

void Scene::FrameWorks()
{
    ReleaseAll();
    if (popup)
        popup->Hide();
    if (Lives(theWindow))
        window->HideTooltip(), window->ReleaseMouse();
    if (!frame)
        GuiTest::SetUp();
    EXPECT_FALSE(gdk_pointer_is_grabbed() || gtk_grab_get_current()) << "a grab is left";
    EXPECT_EQ(nullptr, wxWindow::GetCapture());
    auto* const fresh = new CwxSysWindow(frame, true, ISysWindow::wtNormal);
    fresh->SetWindowRect(250, 210, 390, 290, false);
    Native(fresh)->Raise();
    Settle();
    Recorder heard(fresh);
    heard.Hear<IMouseNotify, IKeyboardNotify>();
    test::PointAt(Native(fresh), 50, 40);
    Click();
    Tap(GDK_KEY_a);
    fresh->CaptureMouse();
    fresh->ReleaseMouse();
    EXPECT_EQ(nullptr, wxWindow::GetCapture());
    EXPECT_EQ(1, heard.Count("release")) << "a click";
    EXPECT_EQ(1, heard.Count("keyup")) << "a key";
}

} // namespace vela7::test
