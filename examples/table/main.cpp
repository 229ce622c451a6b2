// The host of the table, the only file that knows wx.
//
//     table FILE                       shows a CSV file
//     table --screenshot PNG FILE      writes a picture of the window and ends; it must not be covered

#include "../capture.h"
#include "tableview.h"

#include "vela7/wxsyswindow.h"

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/timer.h>

#include <clocale>
#include <cstdio>
#include <langinfo.h>

namespace {

class TableFrame : public wxFrame
{
public:
    explicit TableFrame(const wxString& path) : wxFrame(nullptr, wxID_ANY, path, wxPoint(40, 40))
    {
        SetClientSize(900, 560);
        auto* const window = new vela7::CwxSysWindow(this, false, vela7::ISysWindow::wtNormal);
        view = std::make_unique<table::TableView>(*window);
        view->Open(static_cast<const char*>(path.fn_str()));
        window->SetFocus();
    }

    std::unique_ptr<table::TableView> view;
};

class TableApp : public wxApp
{
public:
    bool OnInit() override
    {
        std::setlocale(LC_ALL, "");
        if (std::string(nl_langinfo(CODESET)) != "UTF-8") // which the table shows its text in
            std::setlocale(LC_CTYPE, "C.UTF-8");
        const bool picture = argc == 4 && wxString(argv[1]) == "--screenshot";
        if (argc != 2 && !picture) {
            std::fprintf(stderr, "usage: table FILE | table --screenshot PNG FILE\n");
            return false;
        }
        if (picture) {
            delete wxLog::SetActiveTarget(new wxLogStderr); // dialogs would be answered by nobody
            wxImage::AddHandler(new wxPNGHandler);
        }
        m_frame = new TableFrame(argv[argc - 1]);
        if (picture)
            TakePicture(argv[2]);
        return m_frame->Show();
    }

    int OnRun() override { return wxApp::OnRun() || m_failed; }

private:
    // When the file is read and the window has had time to be painted.
    void TakePicture(const wxString& file)
    {
        m_timer.Bind(wxEVT_TIMER, [this, file](wxTimerEvent&) {
            if (m_frame->view->IsBusy() || m_ticks++ < 3)
                return;
            m_timer.Stop();
            m_failed = !examples::WritePicture(examples::Capture(*m_frame), file);
            if (m_failed)
                std::fprintf(stderr, "table: cannot write %s\n", static_cast<const char*>(file.utf8_str()));
            m_frame->Destroy();
        });
        m_timer.Start(100);
    }

    TableFrame* m_frame = nullptr;
    wxTimer m_timer;
    int m_ticks = 0;
    bool m_failed = false;
};

} // namespace

wxIMPLEMENT_APP(TableApp);
