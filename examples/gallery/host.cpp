/// The gallery's host, the only file that knows wx: a frame with a notebook, one toolkit window for each
/// page.
///
///     gallery                     shows the pages
///     gallery --screenshots DIR   writes DIR/<page>.png for each page and ends; the frame must not be
///     covered

#include "page.h"

#include "vela7/wxanimation.h"
#include "vela7/wxpainter.h"
#include "vela7/wxsyswindow.h"

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/evtloop.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

#include <clocale>
#include <cstdio>

bool gallery::DrawElementByHand(vela7::IPainter& painter, vela7::ControlElement element,
                                const vela7::rectangle<int>& rect, int state)
{
    auto* const ours = dynamic_cast<vela7::CwxPainter*>(&painter);
    if (!ours || !ours->IsEnabled())
        return false;
    // Not what the window's painter made of it.
    ours->CwxPainter::internalDrawControlElement(element, rect.left, rect.top, rect.right, rect.bottom,
                                                 state);
    return true;
}

vela7::CHandle<vela7::IAnimation> gallery::LoadAnimation(const unsigned char* gif, std::size_t length)
{
    wxMemoryInputStream stream(gif, length);
    wxAnimation animation;
    animation.Load(stream, wxANIMATION_TYPE_GIF);
    return vela7::CreateAnimation(animation, true);
}

namespace {

using vela7::ISysWindow;

/// Tells when a window has been painted.
class PaintCounter : public vela7::CSubscriber<vela7::IDrawingNotify>
{
public:
    explicit PaintCounter(ISysWindow& window) { vela7::Subscribe<vela7::IDrawingNotify>(window, this); }
    void OnDraw(vela7::CDrawEvent*) override { ++m_count; }
    int Count() const { return m_count; }

private:
    int m_count = 0;
};

struct PageSlot
{
    std::string name;
    ISysWindow* window; // belongs to its native window
    std::unique_ptr<gallery::Page> page;
    std::unique_ptr<PaintCounter> paints; // behind the page's own subscription
};

class GalleryFrame : public wxFrame
{
public:
    GalleryFrame() : wxFrame(nullptr, wxID_ANY, "vela7 gallery", wxPoint(40, 40))
    {
        m_book = new wxNotebook(this, wxID_ANY);
        for (const gallery::PageEntry& entry : gallery::AllPages())
            AddPage(entry);
        m_book->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, &GalleryFrame::OnPageChanged, this);
        SetClientSize(900, 640);
    }

    const std::vector<PageSlot>& Slots() const { return m_slots; }
    void ShowPage(std::size_t index) { m_book->ChangeSelection(index); }

private:
    void AddPage(const gallery::PageEntry& entry)
    {
        auto* panel = new wxPanel(m_book);
        ISysWindow* const window = new vela7::CwxSysWindow(panel, false, ISysWindow::wtNormal);
        auto page = entry.create(*window);
        m_slots.push_back({entry.name, window, std::move(page), std::make_unique<PaintCounter>(*window)});
        m_book->AddPage(panel, entry.name);
    }

    void OnPageChanged(wxBookCtrlEvent& event)
    {
        event.Skip();
        if (event.GetSelection() >= 0)
            m_slots[event.GetSelection()].window->SetFocus();
    }

    wxNotebook* m_book;
    std::vector<PageSlot> m_slots;
};

// ---- screenshots

/// Turns the event loop until something is the case. False, and a message, when it takes too long.
template <class Predicate>
bool WaitFor(const std::string& what, Predicate happened, long milliseconds = 10000)
{
    const wxStopWatch time;
    while (!happened()) {
        if (time.Time() > milliseconds) {
            std::fprintf(stderr, "gallery: waited %ld ms in vain: %s\n", milliseconds, what.c_str());
            return false;
        }
        wxWakeUpIdle();
        wxEventLoopBase::GetActive()->DispatchTimeout(5);
    }
    return true;
}

bool WaitForQuiet()
{
    return WaitFor("no event is waiting", [] { return !wxEventLoopBase::GetActive()->Pending(); });
}

/// Feeds a window with input of each kind. The events are made here and not by moving the real pointer, which
/// may be the user's.
class SampleInput
{
public:
    explicit SampleInput(ISysWindow& window) : m_native(static_cast<wxWindow*>(window.GetNativeHandle())) {}

    void MoveTo(int x, int y)
    {
        m_at = wxPoint(x, y);
        Mouse(wxEVT_MOTION);
    }

    void Everything()
    {
        MoveTo(180, 240);
        Click(wxEVT_LEFT_DOWN, wxEVT_LEFT_UP);
        Click(wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP);
        Click(wxEVT_RIGHT_DOWN, wxEVT_RIGHT_UP);
        wxContextMenuEvent menu(wxEVT_CONTEXT_MENU, m_native->GetId(), m_native->ClientToScreen(m_at));
        Send(menu);
        Mouse(wxEVT_MOUSEWHEEL, [](wxMouseEvent& e) {
            e.m_wheelRotation = -120;
            e.m_wheelDelta = 120;
            e.m_linesPerAction = 3;
            e.SetControlDown(true);
        });
        Key(WXK_SHIFT, false);
        Key('A', true);
        Key(WXK_F1, false);
        Mouse(wxEVT_MOTION, [](wxMouseEvent& e) {
            e.SetMiddleDown(true);
            e.SetAltDown(true);
        });
    }

private:
    void Click(wxEventType press, wxEventType release)
    {
        const bool left = press != wxEVT_RIGHT_DOWN;
        Mouse(press, [left](wxMouseEvent& e) { left ? e.SetLeftDown(true) : e.SetRightDown(true); });
        Mouse(release);
    }

    template <class Change>
    void Mouse(wxEventType type, Change change)
    {
        wxMouseEvent event(type);
        event.SetX(m_at.x);
        event.SetY(m_at.y);
        change(event);
        Send(event);
    }
    void Mouse(wxEventType type)
    {
        Mouse(type, [](wxMouseEvent&) {});
    }

    void Key(int code, bool shiftedLetter)
    {
        for (const wxEventType type : {wxEVT_KEY_DOWN, wxEVT_CHAR, wxEVT_KEY_UP}) {
            if (type == wxEVT_CHAR && !shiftedLetter)
                continue;
            wxKeyEvent event(type);
            event.m_keyCode = code;
            event.SetShiftDown(shiftedLetter);
            Send(event);
        }
    }

    void Send(wxEvent& event)
    {
        event.SetEventObject(m_native);
        m_native->GetEventHandler()->ProcessEvent(event);
    }

    wxWindow* m_native;
    wxPoint m_at;
};

/// The frame without its decoration, as the screen shows it.
wxImage Capture(const wxFrame& frame)
{
    const wxSize size = frame.GetClientSize();
    const wxPoint origin = frame.ClientToScreen(wxPoint(0, 0));
    wxBitmap bitmap(size.x, size.y);
    wxScreenDC screen;
    wxMemoryDC memory(bitmap);
    memory.Blit(0, 0, size.x, size.y, &screen, origin.x, origin.y);
    memory.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
}

bool PaintPage(GalleryFrame& frame, std::size_t index)
{
    const PageSlot& slot = frame.Slots()[index];
    frame.ShowPage(index);
    slot.window->SetFocus();
    if (!WaitFor("page " + slot.name + " is painted", [&] { return slot.paints->Count() > 0; }) ||
        !WaitForQuiet())
        return false;

    const int before = slot.paints->Count();
    SampleInput input(*slot.window);
    const vela7::rectangle<int> client = slot.window->GetClientRect();
    const vela7::point<double> place = slot.page->SamplePlace();
    if (slot.page->WantsSampleInput())
        input.Everything();
    else
        input.MoveTo(int(client.right * place.x), int(client.bottom * place.y));
    return WaitFor("page " + slot.name + " shows its input", [&] { return slot.paints->Count() > before; }) &&
           WaitForQuiet();
}

bool WriteScreenshots(GalleryFrame& frame, const wxString& directory)
{
    if (!wxFileName::Mkdir(directory, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL))
        return false;
    wxImage::AddHandler(new wxPNGHandler);
    frame.Raise();
    for (std::size_t i = 0; i < frame.Slots().size(); ++i) {
        const wxString file = directory + "/" + wxString(frame.Slots()[i].name).Lower() + ".png";
        if (!PaintPage(frame, i) || !Capture(frame).SaveFile(file, wxBITMAP_TYPE_PNG)) {
            std::fprintf(stderr, "gallery: could not write %s\n", static_cast<const char*>(file.utf8_str()));
            return false;
        }
        std::printf("%s\n", static_cast<const char*>(file.utf8_str()));
    }
    return true;
}

// ---- application

bool wxComplained = false;

/// Instead of a dialog that nobody would answer; wx's log goes to stderr for the same reason.
void OnWxAssert(const wxString& file, int line, const wxString&, const wxString& condition,
                const wxString& text)
{
    wxComplained = true;
    const wxString all = wxString::Format("%s:%d: %s %s", file, line, condition, text);
    std::fprintf(stderr, "gallery: wx assertion: %s\n", static_cast<const char*>(all.utf8_str()));
}

class GalleryApp : public wxApp
{
public:
    bool OnInit() override
    {
        std::setlocale(LC_ALL, ""); // toolkit strings are bytes in the locale's encoding
        if (argc == 3 && wxString(argv[1]) == "--screenshots")
            m_directory = argv[2];
        else if (argc != 1) {
            std::fprintf(stderr, "usage: gallery [--screenshots DIR]\n");
            return false;
        }
        m_frame = new GalleryFrame;
        m_frame->Show();
        m_frame->Slots().front().window->SetFocus();
        return true;
    }

    int OnRun() override
    {
        if (m_directory.empty())
            return wxApp::OnRun();
        wxSetAssertHandler(OnWxAssert);
        delete wxLog::SetActiveTarget(new wxLogStderr);
        bool written = false;
        wxTimer start; // so that it happens in the main loop, like everything else
        start.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            written = WriteScreenshots(*m_frame, m_directory);
            m_frame->Destroy();
        });
        start.StartOnce(1);
        wxApp::OnRun();
        return written && !wxComplained ? 0 : 1;
    }

private:
    GalleryFrame* m_frame = nullptr;
    wxString m_directory;
};

} // namespace

wxIMPLEMENT_APP(GalleryApp);
