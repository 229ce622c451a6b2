// The smallest host: an ordinary wx frame with one toolkit window, which counts clicks.

#include "vela7/painter.h"
#include "vela7/wxsyswindow.h"

#include <wx/app.h>
#include <wx/frame.h>

#include <memory>
#include <string>

using namespace vela7;

class Counter : public CSubscriber<IDrawingNotify>, public CSubscriber<IMouseNotify>
{
public:
    explicit Counter(ISysWindow& window) : m_window(window)
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IMouseNotify>(window, this);
    }

    void OnDraw(CDrawEvent* event) override
    {
        CPaintScope paint(*event->painter, ssBuffered);
        event->painter->DrawString(24, 24, "Hello. Clicks so far: " + std::to_string(m_clicks));
    }

    void OnMouseRelease(CMouseEvent*) override
    {
        ++m_clicks;
        const rectangle<int> all = m_window.GetClientRect();
        m_window.Invalidate(all.left, all.top, all.right, all.bottom);
    }

private:
    ISysWindow& m_window;
    int m_clicks = 0;
};

class HelloApp : public wxApp
{
public:
    bool OnInit() override
    {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "hello", wxDefaultPosition, wxSize(360, 120));
        auto* window = new CwxSysWindow(frame, false, ISysWindow::wtNormal); // dies with the frame
        m_counter = std::make_unique<Counter>(*window);
        return frame->Show();
    }

private:
    std::unique_ptr<Counter> m_counter;
};

wxIMPLEMENT_APP(HelloApp);
