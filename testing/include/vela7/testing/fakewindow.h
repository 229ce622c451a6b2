/// A window without a display: toolkit-neutral code is tested on it.
///
///     user.Click(window, 5, 5);
///     EXPECT_EQ(window.Damage(), rectangle<int>(0, 0, 100, 80));
///     EXPECT_EQ(window.Paint(), (Lines{"Begin clear", "Rectangle 0 0 100 80", "End"}));
///     EXPECT_EQ(window.asked.Take(), (Lines{"SetFocus", "Invalidate 0 0 100 80"}));
///
/// What works: children, places on the screen, focus and Tab, capture, cursor, tip, damage and painting,
/// scrolling, and every Create... operation; Find<FakeEdit>() and the like name what a control has made. A
/// window ends by Close (the user), by its parent's end or outright by delete (the host), each of them inside
/// any of its notifications too, and OnDestroy is heard once. What deliberately does not: pixels other than
/// solid fills (recordingpainter.h); borders take no room; a child that is moved hears nothing, as on the
/// reference platform; other threads. FakeSystem::OpenWindow and CreateChild make it; it belongs to its
/// parent.
#pragma once

#include "vela7/testing/fakenative.h"
#include "vela7/testing/faketooltip.h"
#include "vela7/testing/recordingpainter.h"
#include "vela7/window.h"

#include <string>
#include <vector>

namespace vela7::testkit {

/// What the platform puts around a window that fills it: a place on the screen.
class VELA7_TESTING_API FakeFrame final : public FakeNative
{
public:
    FakeFrame(Desk& desk, const rectangle<int>& screen);
    void Fit(int width, int height);

private:
    bool IsTopLevel() const override { return true; }
};

class VELA7_TESTING_API FakeWindow final : public CSysWindow, public FakeNative
{
public:
    /// A child in this place. Its parent's.
    FakeWindow(FakeNative& parent, const rectangle<int>& rect, WindowType type = wtNormal);
    ~FakeWindow() override;

    Protocol asked; ///< what was asked of the window
    RecordingPainter painter;
    FakeTooltip tooltip;
    std::string text;            ///< of SetText
    int shownCursor = crDefault; ///< the last one that was shown

    /// The platform has resized it, and its frame if it fills one.
    void Resize(int width, int height);
    /// What is to be painted, client coordinates; empty: nothing.
    const rectangle<int>& Damage() const { return m_damage; }
    /// Paints everything now; answers what was drawn.
    std::vector<std::string> Paint();
    bool HasCapture() const;

    // ---- ISysWindow
    void SetWindowRect(int left, int top, int right, int bottom, bool update) override;
    void SetWindowRect(const screen_rectangle<int>& r, bool update) override;
    rectangle<int> GetWindowRect() const override;
    rectangle<int> GetClientRect() const override { return {0, 0, m_rect.Width(), m_rect.Height()}; }
    void SetEnabled(bool enabled) override;
    bool GetEnabled() const override { return m_enabled; }
    void SetVisible(bool visible) override;
    bool GetVisible() const override { return m_visible; }
    void SetFocus() override;
    bool GetFocused() const override;
    void WindowToScreen(point<int>& p) const override;
    void ScreenToWindow(point<int>& p) const override;
    void SetBorderStyle(BorderStyle style) override;
    BorderStyle GetBorderStyle() const override { return m_border; }
    _color GetPixel(int x, int y) const override { return painter.PixelAt(x, y); }
    void SetText(const std::string& value) override { asked.Note("SetText", text = value); }
    CHandle<IPopupMenu> CreateMenu() override;
    void CaptureMouse() override;
    void ReleaseMouse() override;
    CHandle<IInplaceEdit> CreateInplaceEdit(unsigned long style) override;
    CHandle<IInplaceComboBox> CreateInplaceComboBox(bool editable) override;
    CHandle<IScrollBar> CreateScrollBar(ScrollType type) override;
    CHandle<IPopup> CreatePopup() override;
    ISysWindow* CreateChild(WindowType type) override;
    void ScrollContent(int dx, int dy, int left, int top, int right, int bottom) override;
    IPainter* TakeDefPainter() override { return &painter; }
    void Invalidate(int left, int top, int right, int bottom) override;
    void Refresh(int left, int top, int right, int bottom, bool erase) override;
    int GetMonitorIndex() const override { return 0; }
    void LockDraw(bool lock) override;
    /// Its FakeNative.
    void* GetNativeHandle() const override;
    bool IsActive() const override;
    bool InternalSetCursor(int id) override;
    void Synchronize(IRunnable* runnable) override;

    // ---- ICanvas
    CHandle<IPainter> CreatePainter() override;
    int GetCanvasMetrics(CanvasMetrics metric) const override;

    // ---- CSysWindow: to popups their content's end is theirs, too
    void ProcessDestroy() override;

private:
    friend class Desk;
    friend class User;
    template <class T>
    friend class FakeControl;
    template <class T>
    friend class FakeText;

    template <class Call>
    bool Deliver(Call call);
    bool Mouse(void (CSysWindow::*hook)(CMouseEvent*), MouseButton button);
    void Wheel(int lines);
    void ContextMenu();
    void Run(IRunnable& runnable);
    bool WantsPaint() const { return !m_damage.IsEmpty() && m_locks == 0 && !IsEnding(); }
    void AddDamage(const rectangle<int>& area);
    void PaintDamage();
    void Place(const rectangle<int>& rect);
    point<int> PointerPlace() const;
    void ChildFocus(bool in, const FakeNative* other);
    void Navigate(bool forward);

    bool AcceptsFocus() const override { return true; }
    void FocusOut(const FakeNative* to) override;
    void FocusIn() override;
    bool KeyDown(std::uint32_t key, std::uint32_t state) override;
    void KeyUp(std::uint32_t key, std::uint32_t state) override;
    void Char(unsigned char byte, std::uint32_t state) override;

    rectangle<int> m_damage;
    int m_locks = 0;
    BorderStyle m_border = bsNone;
};

} // namespace vela7::testkit
