/// The pages of the gallery.
///
/// A page is toolkit-neutral code that makes one toolkit window its own: it subscribes to the window and
/// draws it. The host makes the window and the page, and deletes the page; either may die first.
#pragma once

#include "vela7/customcontrol.h"
#include "vela7/painter.h"
#include "vela7/window.h"

#include <functional>
#include <memory>
#include <vector>

namespace vela7 {
class IAnimation;
}

namespace gallery {

class Page
{
public:
    virtual ~Page() = default;
    /// Shows little until something happens to it: for its screenshot the host clicks and types a bit.
    virtual bool WantsSampleInput() const { return false; }
    /// Native controls beside the page, for Tab to walk through.
    virtual bool WantsNativeNeighbours() const { return false; }
    /// The screenshot waits for it.
    virtual bool IsWorthAPicture() const { return true; }
    /// Where in the window the mouse is for the screenshot; shares of its width and height.
    virtual vela7::point<double> SamplePlace() const { return {1 / 3.0, 5 / 8.0}; }
    /// For its screenshot opens what it would open for a click; false, afterwards: closes it again.
    virtual void ShowSample(bool /*show*/) {}
};

struct PageEntry
{
    const char* name; ///< of its file among the screenshots
    const char* label;
    std::unique_ptr<Page> (*create)(vela7::ISysWindow& window);
};

/// Draws an element the way painters do that have no window to ask the theme for; device pixels. The host
/// does it, since the toolkit's interfaces leave the choice to the painter. False when it cannot.
bool DrawElementByHand(vela7::IPainter& painter, vela7::ControlElement element,
                       const vela7::rectangle<int>& rect, int state);

/// The animation in a GIF; empty when there is none. The host does it, since the toolkit has no animation
/// files of its own.
vela7::CHandle<vela7::IAnimation> LoadAnimation(const unsigned char* gif, std::size_t length);

/// A native field for a number, with arrows.
struct SpinControl
{
    vela7::CHandle<vela7::ICustomControl> control; ///< hidden at first; the field itself dies with its window
    std::function<void(int)> setValue;             ///< not reported; the caret goes behind it
};
/// The host makes it, since the toolkit has none. changed hears of what the user enters, as long as the
/// handle lives. The window gets the presses of Tab, Enter and Escape.
SpinControl MakeSpinControl(vela7::ISysWindow& parent, int min, int max,
                            const std::function<void(int)>& changed);

/// In the order of the tabs.
const std::vector<PageEntry>& AllPages();

} // namespace gallery
