// The fixture of GUI tests.
#pragma once

#include "support/faults.h"
#include "support/input.h"
#include "support/waits.h"

#include <gtest/gtest.h>
#include <memory>
#include <wx/frame.h>
#include <wx/weakref.h>

namespace vela7::test {

// What the test application says its layout direction is.
extern wxLayoutDirection applicationDirection;

// Whether the X server shows the window.
bool Viewable(const wxWindow* window);

// Shows the window and waits until it is on the screen and has become the active one.
bool ShowActive(wxTopLevelWindow* window, const char* file = __builtin_FILE(), int line = __builtin_LINE());

// Gives each test a shown and active frame at (100,100) with a client area of 400x300, the pointer far from
// it at (1,1). At the end the frame is destroyed, and no other top-level window may be left.
class GuiTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    wxWeakRef<wxFrame> frame; // null once a test has destroyed it

private:
    std::unique_ptr<InputGuard> m_input;
};

} // namespace vela7::test
