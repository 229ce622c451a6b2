// Recordings of input: what was recorded is replayed as it was, into any page.

#include "recording.h"

#include "page.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace gallery {
std::unique_ptr<Page> CreateEventsPage(vela7::ISysWindow& window);
}

using namespace vela7;
using namespace vela7::testkit;

namespace {

std::string Replayed(const std::string& recording, CSysWindow& window)
{
    std::istringstream in(recording);
    return gallery::Replay(in, window);
}

// One of each record, in an order that a user might cause.
const char kSession[] = R"(vela7 events 1
resized 640 480
get-focus
enter 10 20 0 0
move 11 22 1024 0
press 11 22 1 1
release 11 22 0 1
double-click 11 22 1 1
wheel 11 22 512 0 -3
key-press 256 65 0
char 0 65 65
key-release 0 65 0
tab-traversal 0
context-menu 300 -4
moved 5 6
colors-changed
leave 700 20 0 0
release-focus
)";

class Recording : public testing::Test
{
protected:
    FakeSystem system;
    FakeWindow& window = system.OpenWindow();
};

} // namespace

TEST_F(Recording, IsReplayedAsItWas)
{
    gallery::Recorder recorder(window);
    ASSERT_EQ(Replayed(kSession, window), "");
    EXPECT_EQ(window.GetClientRect().Width(), 640);
    std::ostringstream out;
    recorder.Save(out);
    EXPECT_EQ(out.str(), kSession);

    recorder.Pause(true);
    ASSERT_EQ(Replayed("vela7 events 1\n# a comment\n\nchar 0 66 66\n", window), "");
    std::ostringstream after;
    recorder.Save(after);
    EXPECT_EQ(after.str(), kSession);
}

TEST_F(Recording, MakesAPageDrawTheSameTwice)
{
    std::vector<std::string> drawn[2];
    for (auto& lines : drawn) {
        FakeWindow& fresh = system.OpenWindow();
        const auto page = gallery::CreateEventsPage(fresh);
        ASSERT_EQ(Replayed(kSession, fresh), "");
        lines = fresh.Paint();
    }
    EXPECT_EQ(drawn[0], drawn[1]);
    std::string all;
    for (const std::string& line : drawn[0])
        all += line + '\n';
    for (const char* text : {"\"17 records\"", "\"OnMouseWheel\"", "\"-3\"", "\"300, -4\"", "\"65 'A'\""})
        EXPECT_NE(all.find(text), std::string::npos) << text;
}

TEST_F(Recording, SaysWhichLineIsWrong)
{
    const struct
    {
        const char* recording;
        const char* error;
    } table[] = {
        {"", "line 1: not a recording: it does not begin with 'vela7 events 1'"},
        {"vela7 events 2\n", "line 1: not a recording: it does not begin with 'vela7 events 1'"},
        {"vela7 events 1\nchar 0 65 65\npush 1 2 3 4\n", "line 3: unknown record 'push'"},
        {"vela7 events 1\npress 1 2 3\n", "line 2: press has 4 fields, not 3"},
        {"vela7 events 1\npress 1 2 x 4\n", "line 2: a field is not a number"},
        {"vela7 events 1\nresized 100 2147483647\n", "line 2: 2147483647 is not in 0..8192"},
        {"vela7 events 1\nwheel 5 5 0 0 -2147483648\n", "line 2: -2147483648 is not in -32768..32767"},
    };
    for (const auto& row : table)
        EXPECT_EQ(Replayed(row.recording, window), row.error);
}

TEST_F(Recording, HasBounds)
{
    const std::string head = "vela7 events 1\n";
    EXPECT_EQ(Replayed(head + std::string(199999, '\n'), window), "");
    EXPECT_EQ(Replayed(head + std::string(200000, '\n'), window), "line 200001: the recording is too long");
    EXPECT_EQ(Replayed(head + std::string(255, '#') + "\n", window), "");
    EXPECT_EQ(Replayed(head + std::string(256, '#') + "\n", window), "line 2: the line is too long");
    EXPECT_EQ(gallery::ReplayFile("/dev/zero", window), "/dev/zero: not an ordinary file");
    EXPECT_EQ(gallery::ReplayFile("/nowhere/x", window), "/nowhere/x: No such file or directory");

    gallery::Recorder recorder(window);
    std::string many = head + "resized 7 8\nget-focus\n";
    for (int i = 0; i < 100000; ++i)
        many += "char 0 65 65\n";
    ASSERT_EQ(Replayed(many, window), "");
    std::ostringstream out;
    recorder.Save(out);
    EXPECT_EQ(out.str().substr(0, 60), head + "# 2 earlier records were dropped\nresized 7 8\n");
    EXPECT_EQ(out.str().size(), 60 + 13 * 100000u);
}

TEST_F(Recording, IsNotWrittenThroughLinks)
{
    char directory[] = "/tmp/recording_test_XXXXXX";
    ASSERT_NE(mkdtemp(directory), nullptr);
    const std::filesystem::path there(directory), other = there / "other", name = there / "events.txt";
    std::ofstream(other) << "precious";
    std::filesystem::create_symlink(other, name);
    EXPECT_TRUE(gallery::Recorder(window).SaveAs(name));
    std::string kept, saved;
    std::getline(std::ifstream(other), kept);
    std::getline(std::ifstream(name), saved);
    EXPECT_EQ(kept, "precious");
    EXPECT_EQ(saved, "vela7 events 1");
    EXPECT_FALSE(gallery::Recorder(window).SaveAs(there)) << "a directory";
    EXPECT_EQ(std::filesystem::remove_all(there), 3u) << "and nothing beside them";
}

TEST_F(Recording, EndsWithItsWindow)
{
    struct Closer : CSubscriber<IKeyboardNotify>
    {
        FakeWindow* window = nullptr;
        int heard = 0;
        void OnKeyPress(CKeyboardEvent*) override { ++heard, delete window; }
    } closer;
    closer.window = &window;
    Subscribe<IKeyboardNotify>(window, &closer);
    EXPECT_EQ(Replayed("vela7 events 1\nkey-press 0 65 0\nkey-press 0 66 0\n", window), "");
    EXPECT_EQ(closer.heard, 1);
}
