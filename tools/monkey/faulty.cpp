// A program with one fault, which it shows when the pointer moves over it; "none" shows none.
#include <csignal>
#include <cstring>
#include <gdk/gdkx.h>
#include <unistd.h>
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/log.h>

namespace {

const struct
{
    const char* name;
    void (*happen)();
} kFaults[] = {
    {"assertion", [] { wxFAIL_MSG("as arranged"); }},
    {"critical", [] { g_critical("as arranged"); }},
    {"xerror", [] { XMapWindow(gdk_x11_get_default_xdisplay(), 1); }},
    {"crash", [] { std::raise(SIGSEGV); }},
    {"hang", [] { pause(); }},
    {"status", [] { _exit(3); }},
    {"end", [] { wxTheApp->GetTopWindow()->Destroy(); }},
};

class FaultyApp : public wxApp
{
public:
    bool OnInit() override
    {
        auto* const frame = new wxFrame(nullptr, wxID_ANY, argv[1], wxPoint(40, 40), wxSize(600, 400));
        const std::string wanted(argv[1].utf8_str());
        for (const auto& fault : kFaults)
            if (fault.name == wanted)
                frame->Bind(wxEVT_MOTION, [&fault](wxMouseEvent&) { fault.happen(); });
        if (wanted == "stays")
            frame->Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(); });
        return frame->Show();
    }
};

} // namespace

wxIMPLEMENT_APP(FaultyApp);
