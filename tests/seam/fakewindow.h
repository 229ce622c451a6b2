/// A window without a display: toolkit-neutral code (pages, controls) is tested on it.
///
///     FakeSystem system;                      // when the code uses timers, the clipboard, the tooltip
///     FakeWindow window;
///     MyPage page(&window);                   // subscribes, as on a real window
///     window.MousePress(5, 5);                // input comes in as from a back-end
///     EXPECT_EQ(window.Paint(), (std::vector<std::string>{"Begin clear", "FillRect 0 0 100 80", "End"}));
///     EXPECT_EQ(window.asked.Take(), (std::vector<std::string>{"SetFocus", "Invalidate 0 0 100 80"}));
///
/// What the code asks of the window is written to `asked`, what it draws to `painter.drawn`; the state stands
/// in the public fields. Nothing happens by itself: an Invalidate paints nothing, a SetWindowRect reports no
/// resize. Menus, editors, scroll bars and popups have no fake: their factories answer empty handles. There
/// is no second thread either: Synchronize runs the runnable at once. The one who made the window deletes it,
/// from inside a listener too; children die with their parent.
#pragma once

#include "protocol.h"
#include "recordingpainter.h"
#include "vela7/tooltip.h"
#include "vela7/window.h"

#include <memory>

namespace vela7::seam {

class FakeTooltip : public ITooltip
{
public:
    std::string text;
    point<int> pos;
    bool visible = false;
    bool underMouse = false;
    LayerMode layerMode = lmNormal;

    void SetText(const std::string& value) override { text = value; }
    void SetColor(const _color&) override {}
    void SetTextColor(const _color&) override {}
    void SetFont(const font&) override {}
    void SetPos(const point<int>& screen) override { pos = screen; }
    void SetHeight(int) override {}
    void SetWidth(int) override {}
    bool IsUnderMouse() const override { return underMouse; }
    int GetMonitorIndex() const override { return 0; }
    void Clear() override {}
    screen_rectangle<int> GetScreenRect() const override { return {pos, pos}; }
    ISysWindow* GetCustomLayer() override { return nullptr; }
    LayerMode GetLayerMode() const override { return layerMode; }
    void SetLayerMode(LayerMode mode, bool) override { layerMode = mode; }
    bool IsVisible() const override { return visible; }
    void ShowInt() override { visible = true; }
    void HideInt() override { visible = false; }
};

class FakeWindow : public CSysWindow
{
public:
    // ---- state
    rectangle<int> rect{0, 0, 100, 80}; ///< in the parent
    point<int> screenOrigin;            ///< of the client area
    bool enabled = true;
    bool visible = true;
    bool focused = false;
    bool captured = false;
    int shownCursor = crDefault;
    BorderStyle border = bsNone;
    FakeTooltip tooltip;
    RecordingPainter painter;
    Protocol asked;
    std::vector<std::unique_ptr<FakeWindow>> children;

    // ---- input; the answer is the record's passOn. The window may be gone afterwards.
    std::uint32_t held = 0; ///< buttons and modifiers: MouseState and KeyState bits

    bool MousePress(int x, int y, MouseButton button = mbLeft);
    bool MouseRelease(int x, int y, MouseButton button = mbLeft);
    bool MouseMove(int x, int y);
    bool MouseWheel(int x, int y, int lines);
    bool KeyPress(std::uint32_t key) { return Key(&CSysWindow::ProcessKeyPress, key, 0); }
    bool KeyChar(unsigned char byte) { return Key(&CSysWindow::ProcessChar, byte, byte); }
    void Resize(int width, int height);
    /// Answers what was drawn.
    std::vector<std::string> Paint();

    FakeWindow();
    ~FakeWindow() override;

    // ---- ISysWindow
    void SetWindowRect(int left, int top, int right, int bottom, bool update) override;
    void SetWindowRect(const screen_rectangle<int>& r, bool update) override
    {
        SetWindowRect(r.left, r.top, r.right, r.bottom, update);
    }
    rectangle<int> GetClientRect() const override { return {0, 0, rect.Width(), rect.Height()}; }
    void SetEnabled(bool enable) override { asked.Note("SetEnabled", enabled = enable); }
    bool GetEnabled() const override { return enabled; }
    void SetVisible(bool show) override { asked.Note("SetVisible", visible = show); }
    bool GetVisible() const override { return visible; }
    void SetFocus() override;
    bool GetFocused() const override { return focused; }
    void WindowToScreen(point<int>& p) const override { p = {p.x + screenOrigin.x, p.y + screenOrigin.y}; }
    void ScreenToWindow(point<int>& p) const override { p = {p.x - screenOrigin.x, p.y - screenOrigin.y}; }
    void SetBorderStyle(BorderStyle style) override { asked.Note("SetBorderStyle", border = style); }
    BorderStyle GetBorderStyle() const override { return border; }
    _color GetPixel(int, int) const override { return {}; }
    void SetText(const std::string& value) override { asked.Note("SetText", value); }
    CHandle<IPopupMenu> CreateMenu() override { return {}; }
    void CaptureMouse() override { captured = true, asked.Note("CaptureMouse"); }
    void ReleaseMouse() override { captured = false, asked.Note("ReleaseMouse"); }
    CHandle<IInplaceEdit> CreateInplaceEdit(unsigned long) override { return {}; }
    CHandle<IInplaceComboBox> CreateInplaceComboBox(bool) override { return {}; }
    CHandle<IScrollBar> CreateScrollBar(ScrollType) override { return {}; }
    CHandle<IPopup> CreatePopup() override { return {}; }
    ISysWindow* CreateChild(WindowType type) override;
    IPainter* TakeDefPainter() override { return &painter; }
    // clang-format off
    // Kept by contract: the second corner is (width, height), wherever the window stands.
    rectangle<int> GetWindowRect() const override { return {rect.left, rect.top, rect.Width(), rect.Height()}; }
    void ScrollContent(int x, int y, int l, int t, int r, int b) override { asked.Note("ScrollContent", x, y, l, t, r, b); }
    void Invalidate(int l, int t, int r, int b) override { asked.Note("Invalidate", l, t, r, b); }
    void Refresh(int l, int t, int r, int b, bool erase) override { asked.Note("Refresh", l, t, r, b, erase); }
    // clang-format on
    int GetMonitorIndex() const override { return 0; }
    void LockDraw(bool lock) override { asked.Note("LockDraw", lock); }
    void* GetNativeHandle() const override { return nullptr; }
    bool IsActive() const override { return focused; }
    bool InternalSetCursor(int id) override;
    void Synchronize(IRunnable* runnable) override;

    // ---- ICanvas
    CHandle<IPainter> CreatePainter() override;
    int GetCanvasMetrics(CanvasMetrics m) const override
    {
        return m == cmWidth ? rect.Width() : m == cmHeight ? rect.Height() : 0;
    }

private:
    bool Mouse(void (CSysWindow::*hook)(CMouseEvent*), int x, int y, MouseButton button);
    bool Key(void (CSysWindow::*hook)(CKeyboardEvent*), std::uint32_t key, unsigned char character);
};

} // namespace vela7::seam
