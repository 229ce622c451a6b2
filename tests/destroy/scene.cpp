#include "scene.h"

#include "support/platform.h"

#include "vela7/wxcustomcontrol.h"

#include <fnmatch.h>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/textctrl.h>

namespace vela7::test {
namespace {

// clang-format off
const struct { const char* name; Thing with; } endings[thingCount] = {
    {"nothing",  nothing},
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
const struct { const char *stages, *text; } excused[] = {
    {"*_@(focus*|clickin|parentfocus)", "g_object_notify"},
};
// clang-format on

bool Matches(const char* pattern, const std::string& name)
{
    return fnmatch(pattern, name.c_str(), FNM_EXTMATCH) == 0;
}

bool IsExcused(const Cell& cell, const std::string& message)
{
    return std::any_of(std::begin(excused), std::end(excused), [&](const auto& row) {
        return cell.Is(row.stages, "*") && message.find(row.text) != std::string::npos;
    });
}

// Deleted on an idle pass, after everything that waits for one already.
struct LastOne : wxObject
{
    explicit LastOne(std::function<void()> end) : act(std::move(end)) { wxWakeUpIdle(); }
    ~LastOne() override { act(); }
    LastOne(const LastOne&) = delete;
    LastOne& operator=(const LastOne&) = delete;
    std::function<void()> act;
};

struct Dialog : wxDialog, wxTimer
{
    static constexpr long style = wxDEFAULT_DIALOG_STYLE | wxDIALOG_NO_PARENT;
    Dialog() : wxDialog(nullptr, wxID_ANY, "in between", wxPoint(700, 100), wxSize(100, 60), style) {}
    void Notify() override { idle&& Viewable(this) ? EndModal(wxID_OK) : void(); }
    bool idle = false;
};

} // namespace

void ByTimer(Scene& s)
{
    struct : wxTimer
    {
        void Notify() override { scene->Spring(); }
        Scene* scene;
    } timer;
    timer.scene = &s;
    timer.StartOnce(1);
    WaitFor([&s] { return s.calls > 0; }, "the timer");
}

void RunLoopUntilIdle(Scene&)
{
    wxEventLoop loop;
    wxTheApp->ScheduleForDestruction(new LastOne([&loop] { loop.Exit(); }));
    loop.Run();
}

void ShowModalDialog(Scene&)
{
    Dialog dialog;
    wxTheApp->ScheduleForDestruction(new LastOne([&dialog] { dialog.idle = true; }));
    dialog.wxTimer::Start(5);
    dialog.ShowModal();
}

std::string Cell::Name() const
{
    return std::string(family->name) + '_' + row->name + '_' + victim->name + '_' + after->name;
}

bool Cell::Is(const char* stages, const char* victims, const char* afters) const
{
    return Matches(stages, std::string(family->name) + '_' + row->name) && Matches(victims, victim->name) &&
           Matches(afters, after->name);
}

// ---- scenes

void Scene::Watch(Thing thing, wxWindow* watched)
{
    m_watched[thing].made = watched;
    m_watched[thing].native.emplace(watched);
}

void Scene::Watch(Thing thing, ISysWindow* watched)
{
    Watch(thing, Native(watched));
    m_watched[thing].window = watched;
    m_watched[thing].life = watched->WatchLife();
    m_watched[thing].heard = std::make_unique<Recorder>(watched);
    m_watched[thing].heard->Hear<IWindowNotify>();
}

void Scene::Build(Shape shape)
{
    const bool isChild = shape == child || shape == nested;
    wxWindow* root = frame;
    Watch(theFrame, root);
    if (shape != fillingFrame) {
        Watch(theGrand, new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(400, 200)));
        Watch(thePanel, root = new wxPanel(Raw(theGrand), wxID_ANY, wxPoint(0, 0), wxSize(400, 200)));
    }
    parent = root;
    if (shape == nested) {
        Watch(theOuter, new CwxSysWindow(root, true, ISysWindow::wtNormal));
        Window(theOuter)->SetWindowRect(0, 0, 230, 180, false);
        parent = Raw(theOuter);
    }
    window = new CwxSysWindow(parent, isChild, ISysWindow::wtNormal);
    native = Native(window);
    tip = dynamic_cast<CwxTooltip*>(window->TakeTooltip());
    if (isChild)
        window->SetWindowRect(20, 10, 220, 110, false);
    window->SetTooltipDelay(0);
    Watch(theWindow, window);
    Watch(theTip, tip);
    Watch(theChild, window->CreateChild(ISysWindow::wtNormal));
    Window(theChild)->SetWindowRect(150, 60, 190, 90, false);
    Watch(theSibling, new CwxSysWindow(root, true, ISysWindow::wtNormal));
    Window(theSibling)->SetWindowRect(250, 10, 350, 110, false);
    other = new wxTextCtrl(frame, wxID_ANY, "", wxPoint(20, 220));
    // GTK 3's own text controls could not bear an event loop in the middle of that.
    field = new wxWindow(frame, wxID_ANY, wxPoint(20, 260), wxSize(60, 30));
    other->SetFocus();
    Settle();
}

void Scene::Hold(CHandle<ICustomControl> made, Thing as)
{
    control = std::move(made);
    control->SetPos(10, 10, 150, 40);
    nativeControl = static_cast<wxWindow*>(control->GetNativeHandle());
    Watch(as, nativeControl);
    m_watched[as].life = control->WatchLife();
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
    const Thing as = elsewhere ? theStranger : theControl;
    auto* const made = new wxTextCtrl(elsewhere ? Raw(theFrame) : native, wxID_ANY);
    Hold(CreateCustomControl(made, window, autoDelete), as);
    if (!autoDelete)
        std::swap(m_watched[theHolder].life, m_watched[as].life);
}

void Scene::MakePopup()
{
    popup = window->CreatePopup();
    popup->SetSize(120, 80);
    Watch(theContent, popup->GetContent());
    Watch(thePopup, Raw(theContent)->GetParent());
    m_watched[thePopup].life = popup->WatchLife();
}

void Scene::MakeLayer()
{
    tip->SetLayerMode(ITooltip::lmCustom, true);
    Watch(theLayer, tip->GetCustomLayer());
}

void Scene::TearDown()
{
    text.Reset(), control.Reset(), popup.Reset();
    menus ? menus->Reset() : void();
    GuiTest::TearDown();
}

// ---- cells in a scene

void Scene::Arm(const Cell& cell)
{
    m_cell = &cell;
    const std::string hook = *cell.row->hook ? cell.row->hook : "none";
    const auto spring = [this](auto&&...) { Spring(); };
    if (ISysWindow* const subject = Window(cell.family->subject)) {
        m_first = std::make_unique<Recorder>(subject);
        m_second = std::make_unique<Recorder>(subject);
        m_first->HearAll(), m_second->HearAll();
        m_first->DoIn(hook, spring);
    } else if (menus || control) {
        m_ear = menus ? std::make_unique<Recorder>(menus->menus[2].Get())
                      : std::make_unique<Recorder>(control.Get());
        m_ear->HearAll(), m_ear->DoIn(hook, spring);
    }
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
    if (m_ear)
        m_ear->Forget();
    if (control)
        control->focus_in_signal.disconnect_all(), control->focus_out_signal.disconnect_all();
}

void Scene::Spring()
{
    if (calls++ > 0)
        return;
    m_cell->victim->kill(*this);
    m_cell->after->run(*this);
}

bool Scene::EndsWith(Thing thing, const Cell& cell) const
{
    const auto& victims = cell.victim->ends;
    for (; thing != nothing; thing = endings[thing].with)
        if (thing == cell.row->ends || std::count(victims.begin(), victims.end(), thing))
            return true;
    return false;
}

void Scene::Check(const Cell& cell)
{
    const bool isHeard = cell.Is("*", "thrown") && !cell.Is("*_*destroy", "*"); // there it is swallowed
    ExpectFaults(Fault::loop, isHeard ? 1 : 0, "a listener's");
    for (int i = theFrame; i < thingCount; ++i)
        CheckThing(Thing(i), EndsWith(Thing(i), cell));
    EXPECT_TRUE(!m_second || !cell.Is("*", "listeners") || m_second->Count(cell.row->hook) == 0);
    if (Lives(theWindow))
        window->Refresh(0, 0, 200, 100, true);
    for (const std::string& message : TakeCriticals())
        EXPECT_TRUE(IsExcused(cell, message)) << message;
}

void Scene::CheckThing(Thing thing, bool ends)
{
    SCOPED_TRACE(endings[thing].name);
    const Watched& entry = m_watched[thing];
    EXPECT_TRUE(!Lives(thing) || !ends) << "its native window lives";
    EXPECT_TRUE(Lives(thing) || ends || !entry.made) << "its native window is gone";
    EXPECT_TRUE(!entry.life.IsAlive() || !ends) << "it lives";
    if (!entry.heard)
        return;
    EXPECT_TRUE(entry.life.IsAlive() || ends) << "it is gone";
    EXPECT_EQ(ends ? 1 : 0, entry.heard->Count("destroy"));
}

void Scene::FrameWorks()
{
    ReleaseAll();
    for (const Thing thing : {theWindow, theContent}) // what still works ends as usual
        Lives(thing) ? Window(thing)->ReleaseMouse() : void();
    Lives(theWindow) ? window->HideTooltip() : void();
    Lives(theControl) ? Tap(GDK_KEY_Escape) : void();
    popup ? popup->Hide() : void();
    frame ? Settle() : GuiTest::SetUp();
    EXPECT_FALSE(PointerIsGrabbed()) << "a grab is left";
    auto* const fresh = new CwxSysWindow(frame, true, ISysWindow::wtNormal);
    fresh->SetWindowRect(250, 210, 390, 290, false);
    Native(fresh)->Raise();
    Settle();
    Recorder heard(fresh);
    heard.Hear<IMouseNotify, IKeyboardNotify>();
    test::PointAt(Native(fresh), 50, 40);
    Click();
    Tap(GDK_KEY_a);
    EXPECT_EQ(1, heard.Count("release")) << "a click";
    EXPECT_EQ(1, heard.Count("keyup")) << "a key";
    EXPECT_EQ(nullptr, wxWindow::GetCapture());
    fresh->CaptureMouse();
    fresh->ReleaseMouse();
    EXPECT_EQ(nullptr, wxWindow::GetCapture());
}

} // namespace vela7::test
