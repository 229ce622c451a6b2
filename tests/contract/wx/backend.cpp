// The stage, hands and eyes of the wx back-end.

#include "contract/backend.h"

#include "support/fixture.h"
#include "vela7/wxsyswindow.h"

#include <gdk/gdkkeysyms.h>

namespace vela7::contract {

namespace {

wxWindow* Native(const ISysWindow& window)
{
    return static_cast<wxWindow*>(window.GetNativeHandle());
}

test::PointerButton Device(MouseButton button)
{
    constexpr test::PointerButton devices[] = {test::leftButton, test::leftButton, test::middleButton,
                                               test::rightButton};
    return devices[button];
}

struct KeyRow
{
    std::uint32_t key;
    unsigned long symbol;
};

// clang-format off
constexpr KeyRow keys[] = {
    {kcBack,     GDK_KEY_BackSpace}, {kcTab,    GDK_KEY_Tab},    {kcReturn, GDK_KEY_Return}, {kcShift,  GDK_KEY_Shift_L},
    {kcControl,  GDK_KEY_Control_L}, {kcAlt,    GDK_KEY_Alt_L},  {kcEscape, GDK_KEY_Escape}, {kcPageUp, GDK_KEY_Page_Up},
    {kcPageDown, GDK_KEY_Page_Down}, {kcEnd,    GDK_KEY_End},    {kcHome,   GDK_KEY_Home},   {kcLeft,   GDK_KEY_Left},
    {kcUp,       GDK_KEY_Up},        {kcRight,  GDK_KEY_Right},  {kcDown,   GDK_KEY_Down},   {kcDelete, GDK_KEY_Delete},
    {kcAdd,      GDK_KEY_KP_Add},    {kcF1,     GDK_KEY_F1},     {kcF2,     GDK_KEY_F2},     {kcF12,    GDK_KEY_F12},
};
// clang-format on

unsigned long Symbol(std::uint32_t key)
{
    for (const KeyRow& row : keys)
        if (row.key == key)
            return row.symbol;
    return key >= 'A' && key <= 'Z' ? key + ('a' - 'A') : key; // symbols of characters are their codes
}

class WxStage : public Stage, private test::InputGuard
{
public:
    WxStage() : m_frame(new wxFrame(nullptr, wxID_ANY, "stage", wxPoint(100, 100)))
    {
        test::MovePointer(1, 1);
        m_frame->SetClientSize(400, 300);
        m_window = new CwxSysWindow(m_frame, false, ISysWindow::wtNormal);
        test::ShowActive(m_frame);
    }
    ~WxStage() override
    {
        test::ReleaseAll();
        if (m_frame)
            m_frame->Destroy();
        test::WaitFor([] { return wxTopLevelWindows.empty(); }, "the end of the stage");
    }
    ISysWindow& Window() override { return *m_window; }
    void Close(ISysWindow& window) override { Native(window)->Close(); }

private:
    wxWeakRef<wxFrame> m_frame;
    CwxSysWindow* m_window = nullptr; // the frame's
};

} // namespace

std::unique_ptr<Stage> OpenStage()
{
    return std::make_unique<WxStage>();
}

void Settle()
{
    test::Settle();
}

bool WaitFor(const std::function<bool()>& condition, const std::string& what)
{
    return test::WaitFor(condition, what);
}

void PointAt(const ISysWindow& window, int x, int y)
{
    test::PointAt(Native(window), x, y);
}

// clang-format off
void Press(MouseButton button)       { test::Press(Device(button)); }
void Release(MouseButton button)     { test::Release(Device(button)); }
void Click(MouseButton button)       { test::Click(Device(button)); }
void DoubleClick(MouseButton button) { test::DoubleClick(Device(button)); }
void KeyDown(std::uint32_t key)      { test::KeyDown(Symbol(key)); }
void KeyUp(std::uint32_t key)        { test::KeyUp(Symbol(key)); }
void ReleaseAll()                    { test::ReleaseAll(); }
// clang-format on

void TurnWheel(int notches)
{
    for (; notches > 0; --notches)
        test::WheelUp();
    for (; notches < 0; ++notches)
        test::WheelDown();
}

} // namespace vela7::contract
