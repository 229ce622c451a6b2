// Animations on GIFs that another program made: what is shown when, and where.

#include "vela7/wxanimation.h"

#include "scaledcanvas.h"
#include "support/platform.h"
#include "support/process.h"
#include "support/waits.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <unistd.h>
#include <wx/dcmemory.h>

using namespace vela7;
using namespace vela7::test;
using Strings = std::vector<std::string>;

class Animation : public testing::Test
{
protected:
    ~Animation() override { std::filesystem::remove_all(m_directory); }

    // By ImageMagick.
    wxString Make(const std::string& name, Strings arguments)
    {
        std::filesystem::create_directories(m_directory);
        arguments.insert(arguments.begin(), {"convert", "-size", "16x16"});
        arguments.push_back(m_directory / name);
        EXPECT_EQ(0, RunProgram(arguments).exitCode);
        return arguments.back();
    }
    wxString MakeMoving()
    {
        return Make("moving.gif",
                    {"-delay", "10", "xc:red", "-delay", "20", "xc:lime", "-delay", "30", "xc:blue"});
    }
    Pixels Draw(const IAnimation& animation)
    {
        return canvas.Draw([&](IPainter& p) { animation.Draw(&p, 10, 20); });
    }

    ScaledSystem system;
    ScaledCanvas canvas;

private:
    const std::filesystem::path m_directory =
        std::filesystem::temp_directory_path() / ("vela7-animation-" + std::to_string(getpid()));
};

TEST_F(Animation, StepsByTimeAndScales)
{
    const wxAnimation moving(MakeMoving());
    const auto slow =
        CreateAnimation(wxAnimation(Make("slow.gif", {"-delay", "9000", "xc:red", "xc:blue"})), false);
    const std::uint32_t colours[] = {0xff0000, 0x00ff00, 0x0000ff};
    system.scale = 2.0;
    for (const int side : {16, 32}) {
        const auto animation = CreateAnimation(moving, side == 32);
        EXPECT_EQ(size<int>(side, side), animation->GetSize());
        for (const int frame : {0, 1, 2, 0}) {
            const auto shows = [&] { // its delay is what is left of 100, 200 and 300 ms
                animation->NextFrame();
                const int delay = animation->GetDelay() - 100 * frame;
                return delay > 0 && delay <= 100 &&
                       Draw(*animation).BoxOf(colours[frame]) == wxRect(10, 20, side, side);
            };
            EXPECT_TRUE(WaitFor(shows, "the frame"));
            slow->NextFrame();
        }
    }
    EXPECT_EQ(0xff0000u, Draw(*slow).At(10, 20)) << "time counts, not the calls";
}

TEST_F(Animation, WithoutFramesOrPaint)
{
    EXPECT_FALSE(CreateAnimation(wxAnimation(), true));
    const wxAnimation moving(MakeMoving());
    const Pixels untouched = canvas.Draw([](IPainter&) {});
    CwxAnimation animation;
    const auto expectNothing = [&](size<int> extent) {
        animation.NextFrame();
        EXPECT_EQ(-1, animation.GetDelay());
        EXPECT_EQ(extent, animation.GetSize());
        ExpectSamePixels(untouched, Draw(animation), "nothing");
    };
    expectNothing({0, 0});
    animation.Init(moving, false);
    EXPECT_EQ(100, animation.GetDelay());
    struct Idle : ScaledPainter // has a device outside of a paint, too
    {
        using ScaledPainter::ScaledPainter;
        wxDC* GetDC() override { return &dc; }
        wxMemoryDC dc;
    } idle(&canvas);
    idle.dc.SelectObject(canvas.GetBitmap());
    animation.Draw(nullptr, 0, 0);
    animation.Draw(&idle, 0, 0);
    idle.dc.SelectObject(wxNullBitmap);
    ExpectSamePixels(untouched, ReadPixels(canvas.GetBitmap()), "outside of a paint");
    const auto far = [&](IPainter& p) { animation.Draw(&p, 1 << 24, -(1 << 16)); };
    ExpectSamePixels(untouched, canvas.Draw(far), "out of sight");
    animation.Clear();
    expectNothing({16, 16}); // the animation is kept
    animation.Init(moving, false);
    animation.Init(wxAnimation(), false);
    expectNothing({0, 0});
}

TEST_F(Animation, KeepsNoReferences)
{
    const wxAnimation still(Make("still.png", {"xc:red"}));
    GObject* const frames = G_OBJECT(PixbufOf(still));
    GObject* const pixels = G_OBJECT(gdk_pixbuf_animation_get_static_image(PixbufOf(still)));
    const guint before = frames->ref_count, pixelsBefore = pixels->ref_count;
    {
        CwxAnimation animation;
        for (const double scale : {1.0, 2.0}) {
            system.scale = scale;
            animation.Init(still, true);
            const guint during = pixels->ref_count;
            Draw(animation);
            EXPECT_EQ(-1, animation.GetDelay());
            EXPECT_EQ(during, pixels->ref_count);
        }
    }
    EXPECT_TRUE(before == frames->ref_count && pixelsBefore == pixels->ref_count);
}
