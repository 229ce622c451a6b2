// Recordings: any text is replayed or refused, what was recorded is replayed as it was, and every record can
// be described.

#include "recording.h"

#include "fuzz.h"
#include "record_text.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

#include <algorithm>
#include <sstream>

using namespace vela7;
using vela7::fuzz::Demand;

namespace {

class Describer : CSubscriber<IMouseNotify>,
                  CSubscriber<IKeyboardNotify>,
                  CSubscriber<IWindowNotify>,
                  CSubscriber<IContextMenuNotify>
{
public:
    explicit Describer(ISysWindow& window) : m_window(window)
    {
        Subscribe<IMouseNotify>(window, this);
        Subscribe<IKeyboardNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
        Subscribe<IContextMenuNotify>(window, this);
    }

private:
    template <class Event>
    void Note(const Event& event)
    {
        for (const gallery::Fields& fields :
             {gallery::DescribeHead(event, m_window), gallery::Describe(event)})
            for (const gallery::Field& field : fields)
                Demand(field.name && !field.value.empty(), "a name and a value");
    }
    void OnMousePress(CMouseEvent* event) override { Note(*event); }
    void OnMouseRelease(CMouseEvent* event) override { Note(*event); }
    void OnMouseDoubleClick(CMouseEvent* event) override { Note(*event); }
    void OnMouseMove(CMouseEvent* event) override { Note(*event); }
    void OnMouseWheel(CMouseWheelEvent* event) override { Note(*event); }
    void OnKeyPress(CKeyboardEvent* event) override { Note(*event); }
    void OnKeyRelease(CKeyboardEvent* event) override { Note(*event); }
    void OnChar(CKeyboardEvent* event) override { Note(*event); }
    void OnMove(CWindowEvent* event) override { Note(*event); }
    void OnResize(CWindowEvent* event) override { Note(*event); }
    void OnContextMenu(CContextMenuEvent* event) override { Note(*event); }

    ISysWindow& m_window;
};

// What is recorded while a text is replayed into a new window; error: what Replay says.
std::string Recorded(const std::string& text, std::string& error)
{
    testkit::FakeSystem system;
    testkit::FakeWindow& window = system.OpenWindow();
    const gallery::Recorder recorder(window);
    const Describer describer(window);
    std::istringstream in(text);
    error = gallery::Replay(in, window);
    std::ostringstream out;
    recorder.Save(out);
    return out.str();
}

std::vector<std::string> WithoutFocus(const std::string& recording)
{
    std::vector<std::string> lines = fuzz::Split(recording, '\n');
    lines.erase(std::remove(lines.begin(), lines.end(), "get-focus"), lines.end());
    return lines;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string error;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string once = Recorded(text, error);
    Demand(error.empty() || error.compare(0, 5, "line ") == 0, "an error names its line");
    const std::string twice = Recorded(once, error);
    Demand(error.empty(), "what was recorded can be replayed");
    // A traversal takes the focus, which is recorded beside what the recording says of it.
    Demand(WithoutFocus(once) == WithoutFocus(twice), "a replay is recorded as it was");
    return 0;
}
