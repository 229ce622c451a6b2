/// The gallery's host, the only file that knows wx: a frame with a notebook, one toolkit window for each
/// page.
///
///     gallery                     shows the pages
///     gallery --page PAGE         begins with that page (Shapes, Text, ...)
///     gallery --replay FILE       gives the shown page the input that the Events page saved in FILE
///     gallery --screenshots DIR   writes DIR/<page>.png for each page and ends; the frame must not be
///     covered
///     gallery --tour              opens on each page, or on the one of --page, what it can open, closes it
///     again and ends

#include "../capture.h"
#include "page.h"
#include "recording.h"

#include "vela7/wxanimation.h"
#include "vela7/wxpainter.h"
#include "vela7/wxsyswindow.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/cmdline.h>
#include <wx/evtloop.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <sstream>

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
    vela7::CwxSysWindow* window; // belongs to its native window
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
        SetClientSize(1160, 660);
    }

    const std::vector<PageSlot>& Slots() const { return m_slots; }
    void ShowPage(std::size_t index) { m_book->ChangeSelection(index); }

private:
    void AddPage(const gallery::PageEntry& entry)
    {
        auto* panel = new wxPanel(m_book);
        auto* content = new wxPanel(panel);
        auto* const window = new vela7::CwxSysWindow(content, false, ISysWindow::wtNormal);
        auto page = entry.create(*window);
        auto* sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(content, 1, wxEXPAND);
        if (page->WantsNativeNeighbours())
            sizer->Add(MakeNeighbours(panel), 0, wxEXPAND | wxALL, 8);
        panel->SetSizer(sizer);
        m_slots.push_back({entry.name, window, std::move(page), std::make_unique<PaintCounter>(*window)});
        m_book->AddPage(panel, entry.label);
    }

    static wxSizer* MakeNeighbours(wxWindow* parent)
    {
        auto* strip = new wxBoxSizer(wxHORIZONTAL);
        strip->Add(new wxTextCtrl(parent, wxID_ANY, "a wxTextCtrl"), 1, wxRIGHT, 8);
        strip->Add(new wxButton(parent, wxID_ANY, "a wxButton"));
        return strip;
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

/// Input of each kind. Replayed and not made by moving the real pointer, which may be the user's.
constexpr char kSampleInput[] = R"(vela7 events 1
move 180 240 0 0
press 180 240 1 1
release 180 240 0 1
double-click 180 240 1 1
release 180 240 0 1
press 180 240 2 3
release 180 240 0 3
context-menu 180 240
wheel 180 240 512 0 -3
key-press 256 16 0
key-release 0 16 0
key-press 256 65 0
char 0 65 65
key-release 256 65 0
key-press 0 112 0
key-release 0 112 0
move 180 240 1028 2
)";

std::string MoveOfTheMouse(const PageSlot& slot)
{
    const vela7::rectangle<int> client = slot.window->GetClientRect();
    const vela7::point<double> place = slot.page->SamplePlace();
    std::ostringstream recording;
    recording << "vela7 events 1\nmove " << int(client.right * place.x) << ' ' << int(client.bottom * place.y)
              << " 0 0\n";
    return recording.str();
}

/// False, and a message, when something is wrong with the recording.
bool WasReplayed(const std::string& wrong)
{
    if (!wrong.empty())
        std::fprintf(stderr, "gallery: %s\n", wrong.c_str());
    return wrong.empty();
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
    std::istringstream input(slot.page->WantsSampleInput() ? kSampleInput : MoveOfTheMouse(slot));
    if (!WasReplayed(gallery::Replay(input, *slot.window)))
        return false;
    slot.page->ShowSample(true);
    return WaitFor("page " + slot.name + " shows its input", [&] { return slot.paints->Count() > before; }) &&
           WaitFor(
               "page " + slot.name + " has done something", [&] { return slot.page->IsWorthAPicture(); },
               60000) &&
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
        if (!PaintPage(frame, i) || !examples::WritePicture(examples::Capture(frame), file)) {
            std::fprintf(stderr, "gallery: could not write %s\n", static_cast<const char*>(file.utf8_str()));
            return false;
        }
        std::printf("%s\n", static_cast<const char*>(file.utf8_str()));
        frame.Slots()[i].page->ShowSample(false);
        if (!WaitForQuiet())
            return false;
    }
    return true;
}

// ---- tour

bool Tour(GalleryFrame& frame, const std::string& only)
{
    for (std::size_t i = 0; i < frame.Slots().size(); ++i) {
        const PageSlot& slot = frame.Slots()[i];
        if (!only.empty() && slot.name != only)
            continue;
        if (!PaintPage(frame, i))
            return false;
        slot.page->ShowSample(false);
        std::printf("%s\n", slot.name.c_str());
    }
    return WaitForQuiet();
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
        wxString page, recording;
        wxCmdLineParser options(argc, argv);
        options.AddLongOption("page", "the page to begin with");
        options.AddLongOption("replay", "a file with input for that page");
        options.AddLongOption("screenshots", "the directory for a picture of each page");
        options.AddLongSwitch("tour", "opens everything once and ends");
        if (options.Parse() != 0)
            return false;
        options.Found("page", &page);
        options.Found("replay", &recording);
        options.Found("screenshots", &m_directory);
        m_tour = options.Found("tour");
        m_page = page;
        m_frame = new GalleryFrame;
        m_frame->Show();
        return Begin(page, recording);
    }

    int OnRun() override
    {
        if (m_directory.empty() && !m_tour)
            return wxApp::OnRun();
        wxSetAssertHandler(OnWxAssert);
        delete wxLog::SetActiveTarget(new wxLogStderr);
        bool done = false;
        wxTimer start; // so that it happens in the main loop, like everything else
        start.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            done = m_tour ? Tour(*m_frame, m_page.ToStdString()) : WriteScreenshots(*m_frame, m_directory);
            m_frame->Destroy();
        });
        start.StartOnce(1);
        wxApp::OnRun();
        return done && !wxComplained ? 0 : 1;
    }

private:
    bool Begin(const wxString& page, const wxString& recording)
    {
        const std::vector<PageSlot>& slots = m_frame->Slots();
        const auto shown = std::find_if(slots.begin(), slots.end(), [&](const PageSlot& slot) {
            return page.empty() || page.IsSameAs(slot.name, false);
        });
        if (shown == slots.end()) {
            std::fprintf(stderr, "gallery: no page '%s'\n", static_cast<const char*>(page.utf8_str()));
            return false;
        }
        m_frame->ShowPage(static_cast<std::size_t>(shown - slots.begin()));
        shown->window->SetFocus();
        return recording.empty() ||
               WasReplayed(gallery::ReplayFile(static_cast<const char*>(recording.fn_str()), *shown->window));
    }

    GalleryFrame* m_frame = nullptr;
    wxString m_directory, m_page;
    bool m_tour = false;
};

} // namespace

wxIMPLEMENT_APP(GalleryApp);
