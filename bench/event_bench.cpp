// One wx event to one listener, against a bare handler with an event table.

#include "scenes.h"

#include "vela7/eventsender.h"
#include "vela7/wxsyswindow.h"

#include <wx/event.h>
#include <wx/frame.h>

namespace {

using namespace vela7;
using namespace vela7::bench;

class Listener : public CSubscriber<IMouseNotify>
{
public:
    void OnMouseMove(CMouseEvent* event) override
    {
        sum += event->position.x + static_cast<long>(event->button);
        event->passOn = false;
    }

    long sum = 0;
};

class BareHandler : public wxEvtHandler
{
public:
    void OnMotion(wxMouseEvent& event) { sum += event.GetX() + (event.LeftIsDown() ? 1 : 0); }

    long sum = 0;

private:
    wxDECLARE_EVENT_TABLE();
};

wxBEGIN_EVENT_TABLE(BareHandler, wxEvtHandler)
    EVT_MOTION(BareHandler::OnMotion)
wxEND_EVENT_TABLE()

void Run(benchmark::State& state, wxWindow& window, const long& sum)
{
    wxMouseEvent event(wxEVT_MOTION);
    event.SetPosition(wxPoint(3, 4));
    event.SetEventObject(&window);
    const AllocationCounter counter(state);
    for (auto _ : state)
        window.GetEventHandler()->ProcessEvent(event);
    if (sum < 3)
        state.SkipWithError("the event did not arrive");
}

void EventToolkit(benchmark::State& state)
{
    Stage stage;
    auto* const window = new CwxSysWindow(stage.Frame(), false, ISysWindow::wtNormal);
    Listener listener;
    Subscribe<IMouseNotify>(*window, &listener);
    Run(state, *static_cast<wxWindow*>(window->GetNativeHandle()), listener.sum);
}
BENCHMARK(EventToolkit)->Name("event/toolkit");

void EventWx(benchmark::State& state)
{
    Stage stage;
    auto* const window = new wxWindow(stage.Frame(), wxID_ANY);
    BareHandler handler;
    window->PushEventHandler(&handler);
    Run(state, *window, handler.sum);
    window->PopEventHandler();
}
BENCHMARK(EventWx)->Name("event/wx");

} // namespace
