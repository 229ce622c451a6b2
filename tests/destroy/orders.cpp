// Three steps, each harmless alone: what was pushed, grabbed or popped up ends in another order than it came.
#include "scene.h"

using namespace vela7;
using namespace vela7::test;

namespace {

using Order = std::pair<const char*, Step>;

struct Popups // two, the second of the same owner or of the first one's content
{
    Popups(Scene& s, bool nested)
    {
        s.Build(Scene::child);
        s.MakePopup();
        second = nested ? s.Window(theContent)->CreatePopup() : s.window->CreatePopup();
        second->SetSize(60, 50);
        s.popup->Show(600, 200);
        second->Show(800, 400);
        Settle();
    }
    // A click that lands on no window of ours hides the one that is left.
    static void Dismisses(const CHandle<IPopup>& left)
    {
        ASSERT_TRUE(left && left->IsVisible());
        MovePointer(900, 900);
        Click();
        EXPECT_FALSE(left->IsVisible());
    }
    CHandle<IPopup> second;
};

// The two windows that fill the panel, and a foreign handler that was pushed between them.
void RemoveInOrder(Scene& s, const std::array<int, 3>& order)
{
    auto* const panel = new wxPanel(s.frame, wxID_ANY, wxPoint(0, 0), wxSize(400, 200));
    wxWindow* natives[2];
    wxEvtHandler foreign;
    natives[0] = Native(new CwxSysWindow(panel, false, ISysWindow::wtNormal));
    panel->PushEventHandler(&foreign);
    natives[1] = Native(new CwxSysWindow(panel, false, ISysWindow::wtNormal));
    for (const int which : order)
        if (which == 2)
            panel->RemoveEventHandler(&foreign);
        else
            natives[which]->Destroy(), panel->SetSize(300, 100 + which);
    EXPECT_EQ(panel, panel->GetEventHandler());
    panel->Destroy();
}

// Clicks or keys that are in the queue when the window ends.
template <class Give>
void Queued(Scene& s, const char* hook, Give give)
{
    s.Build(Scene::child);
    s.window->SetFocus();
    s.PointAt(theWindow, 50, 40);
    Recorder heard(s.window);
    heard.HearAll();
    heard.DoIn(hook, [&](CEvent&) { s.native->Destroy(); });
    for (int i = 0; i < 4; ++i)
        give(true), give(false);
    Settle();
    EXPECT_EQ(1, heard.Count(hook));
}

// clang-format off
const Order orders[] = {
    {"FirstPopupHides",  [](Scene& s) { Popups p(s, false); s.popup->Hide(); Settle(); p.Dismisses(p.second); }},
    {"FirstPopupDies",   [](Scene& s) { Popups p(s, false); s.popup.Reset(); Settle(); p.Dismisses(p.second); }},
    {"SecondPopupHides", [](Scene& s) { Popups p(s, false); p.second->Hide(); Settle(); p.Dismisses(s.popup); }},
    {"SecondPopupDies",  [](Scene& s) { Popups p(s, false); p.second.Reset(); Settle(); p.Dismisses(s.popup); }},
    {"PopupsOwnerDies",  [](Scene& s) { Popups p(s, false); s.native->Destroy(); Settle(); EXPECT_FALSE(s.popup || p.second); }},
    {"OuterPopupHides",  [](Scene& s) { Popups p(s, true); s.popup->Hide(); Settle(); EXPECT_FALSE(p.second->IsVisible()); }},
    {"OuterPopupDies",   [](Scene& s) { Popups p(s, true); s.popup.Reset(); Settle(); EXPECT_FALSE(p.second); }},
    {"OuterContentDies", [](Scene& s) { Popups p(s, true); s.Raw(theContent)->Destroy(); Settle(); EXPECT_FALSE(p.second); }},
    {"InnerPopupDies",   [](Scene& s) { Popups p(s, true); p.second.Reset(); Settle(); p.Dismisses(s.popup); }},
    {"InnerCapturesOuterDies", [](Scene& s) { Popups p(s, true); p.second->GetContent()->CaptureMouse(); s.popup.Reset(); Settle(); EXPECT_FALSE(p.second); }},
    {"TopCapturesAndReleases", [](Scene& s) { Popups p(s, false); p.second->GetContent()->CaptureMouse(); p.second->GetContent()->ReleaseMouse(); p.Dismisses(p.second); p.Dismisses(s.popup); }},
    {"TopCapturesBelowHides", [](Scene& s) { Popups p(s, false); p.second->GetContent()->CaptureMouse(); s.popup->Hide(); p.second->GetContent()->ReleaseMouse(); Settle(); p.Dismisses(p.second); }},
    {"TopCapturesAndHides", [](Scene& s) { Popups p(s, false); p.second->GetContent()->CaptureMouse(); p.second->Hide(); Settle(); p.Dismisses(s.popup); }},
    {"CapturedInTopDies", [](Scene& s) { Popups p(s, false); ISysWindow* in = p.second->GetContent()->CreateChild(ISysWindow::wtNormal); s.popup->Hide(); in->CaptureMouse(); delete Native(in); Settle(); p.Dismisses(p.second); }},
    {"BelowPopupsCaptureDies", [](Scene& s) { Popups p(s, false); s.Window(theSibling)->CaptureMouse(); s.Window(theContent)->CaptureMouse(); s.Raw(theSibling)->Destroy(); s.Window(theContent)->ReleaseMouse(); p.second.Reset(); Settle(); p.Dismisses(s.popup); }},
    {"LowestCaptureDies", [](Scene& s) {
        s.Build(Scene::nested);
        for (const Thing thing : {theChild, theSibling, theWindow})
            s.Window(thing)->CaptureMouse();
        s.Raw(theChild)->Destroy(), Settle(); // what GDK has to say about it comes later
        EXPECT_EQ(s.native, wxWindow::GetCapture());
        s.window->ReleaseMouse(), Settle();
        EXPECT_EQ(s.Raw(theSibling), wxWindow::GetCapture());
        s.Window(theSibling)->ReleaseMouse(); }},
    {"TipsPopupHides",   [](Scene& s) {
        s.Build(Scene::child), s.MakePopup(), s.popup->Show(600, 200), Settle();
        s.Window(theContent)->SetTooltipDelay(0);
        PointAt(s.Raw(theContent), 20, 20);
        s.Window(theContent)->TrackTooltip(620, 230, "tip");
        EXPECT_TRUE(s.Window(theContent)->IsTooltipVisible());
        s.popup->Hide(), Settle();
        EXPECT_FALSE(s.Window(theContent)->IsTooltipVisible()); }},
    {"PushedHandlers",   [](Scene& s) {
        std::array<int, 3> order{0, 1, 2};
        do
            RemoveInOrder(s, order);
        while (std::next_permutation(order.begin(), order.end())); }},
    {"FilledParentDies", [](Scene& s) { s.Build(Scene::filling); new CwxSysWindow(s.Raw(thePanel), false, ISysWindow::wtNormal); s.Raw(thePanel)->Destroy(); }},
    {"OldParentDies",    [](Scene& s) {
        s.Build(Scene::filling), s.native->Reparent(s.Raw(theGrand)), s.Raw(thePanel)->Destroy();
        s.native->SetSize(0, 0, 50, 40), Settle();
        s.native->Destroy(); }},
    {"NewParentDies",    [](Scene& s) {
        s.Build(Scene::filling);
        auto* const other = new wxPanel(s.frame);
        s.native->Reparent(other), other->Destroy();
        s.Raw(thePanel)->SetSize(300, 150), Settle();
        EXPECT_EQ(s.Raw(thePanel), s.Raw(thePanel)->GetEventHandler()); }},
    {"MovedAndBack",     [](Scene& s) {
        s.Build(Scene::filling), s.native->Reparent(s.Raw(theGrand)), s.native->Reparent(s.Raw(thePanel));
        s.Raw(thePanel)->SetSize(300, 150), Settle();
        s.native->Destroy();
        EXPECT_EQ(s.Raw(thePanel), s.Raw(thePanel)->GetEventHandler()); }},
    {"QueuedClicks",     [](Scene& s) { Queued(s, "press", [](bool down) { x11::Button(1, down); }); }},
    {"QueuedKeys",       [](Scene& s) { Queued(s, "keydown", [](bool down) { x11::Key(GDK_KEY_a, down); }); }},
    {"HiddenAtOnce",     [](Scene& s) {
        s.Build(Scene::child);
        Recorder heard(s.window);
        heard.HearAll();
        heard.DoIn("move", [&](CEvent&) { s.native->Destroy(); EXPECT_FALSE(s.native->IsShown()); });
        Send(s.native, wxMoveEvent(wxPoint(1, 2)));
        EXPECT_EQ(1, heard.Count("move")); }},
    {"PainterOutlives",  [](Scene& s) {
        s.Build(Scene::child);
        const CHandle<IPainter> painter = s.window->CreatePainter();
        painter->BeginPaint(ssClear);
        s.native->Destroy();
        painter->DrawString(5, 5, "late"), painter->FillRect(0, 0, 20, 20), painter->EndPaint(); }},
};
// clang-format on

class Orders : public Scene, public testing::WithParamInterface<Order>
{
};

} // namespace

TEST_P(Orders, Safe)
{
    GetParam().second(*this);
    FrameWorks();
}

INSTANTIATE_TEST_SUITE_P(, Orders, testing::ValuesIn(orders),
                         [](const auto& info) { return std::string(info.param.first); });
