// The stage, hands and eyes of the back-end without a display.

#include "contract/backend.h"

#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

#include <gtest/gtest.h>

namespace vela7::contract {

using namespace testkit;

namespace {

FakeSystem* current = nullptr; // the stage's

class FakeStage : public Stage
{
public:
    FakeStage() : m_window(m_system.OpenWindow(400, 300))
    {
        current = &m_system;
        m_system.mouse.position = {1, 1};
        m_system.Settle();
    }
    ISysWindow& Window() override { return m_window; }
    void Close(ISysWindow& window) override { dynamic_cast<FakeWindow&>(window).Close(); }

private:
    FakeSystem m_system;
    FakeWindow& m_window;
};

} // namespace

std::unique_ptr<Stage> OpenStage()
{
    return std::make_unique<FakeStage>();
}

void Settle()
{
    current->Settle();
}

bool WaitFor(const std::function<bool()>& condition, const std::string& what)
{
    for (int ms = 0; ms < 5000; ++ms) {
        if (condition())
            return true;
        current->Advance(1);
    }
    ADD_FAILURE() << "waited in vain for " << what;
    return false;
}

// clang-format off
void PointAt(const ISysWindow& window, int x, int y) { current->user.PointAt(window, x, y); }
void Press(MouseButton button)       { current->user.Press(button); }
void Release(MouseButton button)     { current->user.Release(button); }
void Click(MouseButton button)       { current->user.Click(button); }
void DoubleClick(MouseButton button) { current->user.DoubleClick(button); }
void TurnWheel(int notches)          { current->user.TurnWheel(notches); }
void KeyDown(std::uint32_t key)      { current->user.KeyDown(key); }
void KeyUp(std::uint32_t key)        { current->user.KeyUp(key); }
void ReleaseAll()                    { current->user.ReleaseAll(); }
// clang-format on

} // namespace vela7::contract
