// The system object, the palette and the mouse in a running application.

#include "vela7/wxsystem.h"

#include "support/fixture.h"
#include "vela7/palette.h"
#include "vela7/wxconvert.h"
#include "vela7/wxcustomcontrol.h"
#include "vela7/wxsyspalette.h"
#include "vela7/wxsyswindow.h"

#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/button.h>
#include <wx/display.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include <thread>
#include <vector>

namespace vela7 {
namespace {

using namespace test;

class System : public GuiTest
{
protected:
    ISystem& system = *GetCurrentSystem();
};

TEST_F(System, MetricsByCode)
{
    EXPECT_EQ(wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, nullptr),
              system.GetSystemMetrics(ISystem::smVScrollWidth));
    const wxSize box = wxRendererNative::Get().GetCheckBoxSize(frame);
    EXPECT_GT(box.GetWidth(), 0);
    EXPECT_EQ(box.GetWidth(), system.GetSystemMetrics(ISystem::smCheckBoxWidth));
    EXPECT_EQ(box.GetHeight(), system.GetSystemMetrics(ISystem::smCheckBoxHeight));
    EXPECT_EQ(wxSystemSettings::GetMetric(wxSYS_DCLICK_X, nullptr),
              system.GetSystemMetrics(ISystem::smDoubleClickX));
    for (const int code : {-1, 4, 1000})
        EXPECT_EQ(0, system.GetSystemMetrics(static_cast<ISystem::SystemMetrics>(code))) << code;
}

TEST_F(System, FixedAnswers)
{
    EXPECT_EQ(1, system.GetMonitorsCount());
    EXPECT_EQ(screen_rectangle<int>(0, 0, 1279, 1023), system.GetDesktopRect(0)); // inclusive
    system.SetXpStylesSupport(true);
    EXPECT_FALSE(system.IsXpStylesSupported());
    EXPECT_EQ(1.0, system.GetDBUScale());
    EXPECT_EQ("DejaVu Sans", system.GetDefaultFont().face);
    EXPECT_EQ(10, system.GetDefaultFont().size);
    EXPECT_EQ(static_cast<IMouse*>(&SystemCreator), system.TakeMouse());
    {
        const CSystemCreator second; // takes nothing over
        EXPECT_EQ(system.TakeClipboard(), second.TakeClipboard());
        EXPECT_EQ(static_cast<ISystem*>(&SystemCreator), GetCurrentSystem());
    }
    SetSysPalette(new CwxSysPalette); // any system object's end deletes the installed one
}

TEST_F(System, KnowsTheMainThreadAndTheActiveApplication)
{
    EXPECT_TRUE(system.IsMainThread());
    bool onWorker = true;
    std::thread([&] { onWorker = system.IsMainThread(); }).join();
    EXPECT_FALSE(onWorker);
    EXPECT_TRUE(system.IsAppActive());
    auto* const button = new wxButton(frame, wxID_ANY, "");
    wxAppConsole* const application = wxApp::GetInstance();
    {
        const wxAppConsole console; // the application from here on, without a GUI
        EXPECT_FALSE(system.IsAppActive());
        EXPECT_EQ(nullptr, GetTopWindow());
        EXPECT_TRUE(CreateCustomControl(button, nullptr, false));
    }
    wxApp::SetInstance(application);
}

// ---- palette

TEST_F(System, PaletteFollowsTheTheme)
{
    // clang-format off
    const std::pair<int, wxSystemColour> rows[] = {
        {1, wxSYS_COLOUR_WINDOW},    {2, wxSYS_COLOUR_WINDOWTEXT},     {3, wxSYS_COLOUR_BTNFACE},
        {4, wxSYS_COLOUR_BTNHIGHLIGHT}, {5, wxSYS_COLOUR_3DLIGHT},     {6, wxSYS_COLOUR_BTNSHADOW},
        {7, wxSYS_COLOUR_3DDKSHADOW}, {8, wxSYS_COLOUR_BTNTEXT},       {9, wxSYS_COLOUR_HIGHLIGHT},
        {10, wxSYS_COLOUR_HIGHLIGHTTEXT}, {11, wxSYS_COLOUR_INFOBK},   {12, wxSYS_COLOUR_INFOTEXT},
        {0, wxSYS_COLOUR_WINDOW},    {14, wxSYS_COLOUR_WINDOW},        {-1, wxSYS_COLOUR_WINDOW},
    };
    // clang-format on
    for (const auto& [code, wx] : rows) {
        const _color color = GetSysPalette()->GetSystemColor(static_cast<ISysPalette::SysColor>(code));
        const wxColour native = wxSystemSettings::GetColour(wx);
        EXPECT_EQ(_color(native.Red(), native.Green(), native.Blue(), native.Alpha()), color) << code;
    }
    EXPECT_EQ(_color(0, 0, 255), GetSysPalette()->GetSystemColor(ISysPalette::scLink));
}

// ---- mouse and cursors

TEST_F(System, PointerIsReadAndNotMoved)
{
    MovePointer(321, 234);
    EXPECT_EQ(point<int>(321, 234), system.TakeMouse()->GetPos());
    system.TakeMouse()->SetPos({5, 6});
    Settle();
    EXPECT_EQ(point<int>(321, 234), system.TakeMouse()->GetPos());
}

int CursorType(const wxCursor& cursor)
{
    return cursor.IsOk() ? static_cast<int>(gdk_cursor_get_cursor_type(cursor.GetCursor())) : -1;
}

TEST_F(System, StandardCursors)
{
    // clang-format off
    const wxStockCursor stock[] = {
        wxCURSOR_ARROW, wxCURSOR_CROSS, wxCURSOR_IBEAM, wxCURSOR_NO_ENTRY, wxCURSOR_SIZING, wxCURSOR_SIZENWSE,
        wxCURSOR_SIZENS, wxCURSOR_SIZENESW, wxCURSOR_SIZEWE, wxCURSOR_POINT_RIGHT, wxCURSOR_WAIT, wxCURSOR_HAND,
        wxCURSOR_NO_ENTRY,
    };
    // clang-format on
    for (int id = 1; id <= 13; ++id) {
        EXPECT_TRUE(GetStdCursor(id).IsOk()) << id;
        EXPECT_EQ(CursorType(wxCursor(stock[id - 1])), CursorType(GetStdCursor(id))) << id;
    }
    for (const int id : {0, 14, -1})
        EXPECT_FALSE(GetStdCursor(id).IsOk()) << id;
}

TEST_F(System, RegisteredCursorsArePlaceholders)
{
    IMouse& mouse = *system.TakeMouse();
    const unsigned char bits[32] = {0xff};
    for (const int id : {100, 100, 3})
        EXPECT_TRUE(mouse.RegisterCursor(id, 16, 16, bits, bits, 3, 3));
    EXPECT_TRUE(mouse.RegisterCursor(101, 0, -5, nullptr, nullptr, 0, 0));
    const std::vector<unsigned char> wide(5000); // no picture of this width can be made
    EXPECT_TRUE(mouse.RegisterCursor(102, 40000, 1, wide.data(), wide.data(), 0, 0));
    EXPECT_FALSE(GetUserCursor(100).IsOk());
    EXPECT_FALSE(GetCursorById(100).IsOk());
    EXPECT_EQ(CursorType(wxCursor(wxCURSOR_IBEAM)), CursorType(GetCursorById(3))); // cannot be overridden
    EXPECT_TRUE(mouse.UnregisterCursor(100));
    EXPECT_FALSE(mouse.UnregisterCursor(100));
    {
        const CwxMouse second;
        EXPECT_EQ(2, CwxMouse::m_count);
    }
    EXPECT_EQ(1, CwxMouse::m_count);
    EXPECT_TRUE(userCursors.empty()); // any mouse object's end clears them
}

} // namespace
} // namespace vela7
