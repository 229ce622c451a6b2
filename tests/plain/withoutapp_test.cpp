// A host that has loaded the library and nothing more: no wx initialised, no application, no display.

#include "vela7/painter.h"
#include "vela7/palette.h"
#include "vela7/system.h"
#include "vela7/wxconvert.h"
#include "vela7/wxmouse.h"
#include "vela7/wxsyspalette.h"
#include "vela7/wxsystem.h"
#include "vela7/wxsyswindow.h"
#include "vela7/xpm.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace vela7 {
namespace {

TEST(WithoutApp, LoadingRegistersSystemAndPalette)
{
    ASSERT_NE(nullptr, GetCurrentSystem());
    EXPECT_EQ(static_cast<ISystem*>(&SystemCreator), GetCurrentSystem());
    EXPECT_NE(nullptr, dynamic_cast<CwxSysPalette*>(GetSysPalette()));
    EXPECT_EQ(1, CwxMouse::m_count);
}

TEST(WithoutApp, QueriesAnswerNeutralValues)
{
    ISystem& system = *GetCurrentSystem();
    for (int metric = -1; metric <= 4; ++metric)
        EXPECT_EQ(0, system.GetSystemMetrics(static_cast<ISystem::SystemMetrics>(metric))) << metric;
    EXPECT_TRUE(system.GetDesktopRect(0).IsNull());
    EXPECT_EQ(1.0, system.GetDPIScale());
    EXPECT_EQ(1.0, system.GetDBUScale());
    EXPECT_EQ(0, system.GetMonitorsCount());
    EXPECT_EQ(font(), system.GetDefaultFont());
    EXPECT_FALSE(system.IsAppActive());
    EXPECT_TRUE(system.IsMainThread()); // wx has not recorded its main thread yet
    EXPECT_EQ(point<int>(0, 0), system.TakeMouse()->GetPos());
    system.TakeMouse()->SetPos({5, 5});
    EXPECT_EQ(nullptr, GetTopWindow());
    EXPECT_EQ(1.0, correctScaleWithDefaultFontSize(1.0));
    EXPECT_EQ(1.75, correctScaleWithDefaultFontSize(1.75));
}

TEST(WithoutApp, ServicesAreHarmless)
{
    ISystem& system = *GetCurrentSystem();
    EXPECT_FALSE(system.CreateTimer(10, true));
    EXPECT_EQ(nullptr, system.CreateRunner());
    const CHandle<ILock> lock = system.CreateLock();
    lock->Enter();
    lock->Leave();
    IClipboard& clipboard = *system.TakeClipboard();
    clipboard.SetText("text");
    EXPECT_EQ("", clipboard.GetText());
    clipboard.Clear();
    EXPECT_EQ(&clipboard, system.TakeClipboard());
}

// A host's static object, older than the clipboard: at exit the clipboard goes first, and says so.
struct Early : INotify
{
    ~Early() override { _exit(isTold ? 0 : 1); }
    void NoticeStopped(IEventSender*) override { isTold = true; }
    bool isTold = false;
};

TEST(WithoutAppDeathTest, TheClipboardEndsBeforeWhatWasThereFirst)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a process in which nobody has taken the clipboard
    const auto run = [] {
        static Early early;
        GetCurrentSystem()->TakeClipboard()->Subscribe(&early, typeid(IClipboardChangeNotify), false);
        std::exit(2);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

TEST(WithoutApp, PicturesHaveNoPixels)
{
    const char* const lines[] = {"1 1 1 1", "a c red", "a"};
    const CHandle<IRasterPicture> picture = GetCurrentSystem()->CreateRasterPicture({10, 20});
    picture->ConvertFromXPM(XPMImage(lines), true);
    picture->Scale(5, 5);
    picture->Blur({2, 2}, {});
    picture->Load("/dev/null");
    picture->Save("/dev/null");
    EXPECT_EQ(size<int>(10, 20), picture->GetSize());
    const CPaintScope paint(*picture->TakeDefPainter());
    EXPECT_FALSE(paint.IsOk());
    picture->TakeDefPainter()->FillRect(0, 0, 5, 5);
}

TEST(WithoutApp, ColoursAreTheBuiltInOnes)
{
    EXPECT_EQ(clWhite, GetSysPalette()->GetSystemColor(ISysPalette::scWindow));
    EXPECT_EQ(clBlue, GetSysPalette()->GetSystemColor(ISysPalette::scLink));
}

TEST(WithoutApp, CursorsCanBeRegisteredAndAreInvalid)
{
    IMouse& mouse = *GetCurrentSystem()->TakeMouse();
    const unsigned char bits[8] = {};
    EXPECT_TRUE(mouse.RegisterCursor(100, 8, 8, bits, bits, 0, 0));
    EXPECT_FALSE(GetCursorById(100).IsOk());
    EXPECT_FALSE(GetCursorById(crArrow).IsOk());
    EXPECT_TRUE(mouse.UnregisterCursor(100));
}

} // namespace
} // namespace vela7
