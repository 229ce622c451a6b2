/// A window's tooltip.
///
/// Created and kept by the window, deleted with it. Thread: GUI. Coordinates are the screen's.
#pragma once

#include "vela7/baseexport.h"
#include "vela7/types.h"

#include <string>

namespace vela7 {

class ISysWindow;

class VELA7_BASE_API ITooltip
{
public:
    enum LayerMode
    {
        lmNormal = 0,
        lmCustom = 1 ///< the tip shows a custom layer instead of its text
    };

    virtual ~ITooltip() = default;
    virtual void SetText(const std::string& text) = 0;
    virtual void SetColor(const _color& background) = 0;
    virtual void SetTextColor(const _color& color) = 0;
    virtual void SetFont(const font& value) = 0;
    virtual void SetPos(const point<int>& screen) = 0;
    /// Pixels; apply to the next showing only; 0 = computed from the text.
    virtual void SetHeight(int height) = 0;
    virtual void SetWidth(int width) = 0;

    virtual void Track(int x, int y, const std::string& text)
    {
        SetPos({x, y});
        SetText(text);
    }

    virtual bool IsUnderMouse() const = 0;
    /// -1 when unknown.
    virtual int GetMonitorIndex() const = 0;
    /// Forgets the fixed size.
    virtual void Clear() = 0;
    virtual screen_rectangle<int> GetScreenRect() const = 0;
    /// The window that covers the tip in custom mode; null until that mode was first asked for. Belongs to
    /// the tip.
    virtual ISysWindow* GetCustomLayer() = 0;
    /// hideLayerOnHide: hiding the tip ends the custom mode.
    virtual void SetLayerMode(LayerMode mode, bool hideLayerOnHide) = 0;
    virtual LayerMode GetLayerMode() const = 0;
    virtual bool IsVisible() const = 0;
    /// What Show and Hide do; called by them only.
    virtual void ShowInt() = 0;
    virtual void HideInt() = 0;

    void Show()
    {
        if (!IsVisible())
            ShowInt();
    }
    void Hide() { HideInt(); }
};

} // namespace vela7
