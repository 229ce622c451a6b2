/// A tip that shows nothing and says all that it was told.
///
/// What works: text, place, visibility, the custom layer, which is an ordinary FakeWindow. What does not: the
/// tip has no size of its own and takes no input; whether the mouse is on it is the test's to say. A part of
/// its FakeWindow. The layer belongs to the tip.
#pragma once

#include "vela7/cbase.h"
#include "vela7/testing/export.h"
#include "vela7/tooltip.h"

namespace vela7::testkit {

class FakeWindow;

class VELA7_TESTING_API FakeTooltip final : public ITooltip
{
public:
    std::string text;
    point<int> place;
    size<int> fixedSize;     ///< as set; forgotten when a text was shown
    bool underMouse = false; ///< the mouse is on the tip, if it is visible

    explicit FakeTooltip(FakeWindow& owner) : m_owner(owner) {}

    void SetText(const std::string& value) override { text = value; }
    void SetColor(const _color&) override {}
    void SetTextColor(const _color&) override {}
    void SetFont(const font&) override {}
    void SetPos(const point<int>& screen) override { place = screen; }
    void SetHeight(int height) override { fixedSize.height = height; }
    void SetWidth(int width) override { fixedSize.width = width; }
    bool IsUnderMouse() const override { return m_visible && underMouse; }
    int GetMonitorIndex() const override { return 0; }
    void Clear() override { fixedSize = {}; }
    screen_rectangle<int> GetScreenRect() const override;
    ISysWindow* GetCustomLayer() override;
    void SetLayerMode(LayerMode mode, bool hideLayerOnHide) override;
    LayerMode GetLayerMode() const override { return m_mode; }
    bool IsVisible() const override { return m_visible; }
    void ShowInt() override;
    void HideInt() override;

private:
    FakeWindow& m_owner;
    CHandle<FakeWindow> m_layer; // inert when somebody closed it; the owner's child
    LayerMode m_mode = lmNormal;
    bool m_hideLayer = true;
    bool m_visible = false;
};

} // namespace vela7::testkit
