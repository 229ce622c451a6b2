/// Input as text: what a window received, one line a record, and back.
///
/// A recording begins with the line "vela7 events 1". Each further line is one record: its name, then its
/// fields as decimal numbers. Empty lines and lines that begin with # are comments.
///
///     press|release|double-click|move|enter|leave   x y state button
///     wheel                                         x y state button lines
///     key-press|key-release|char                    state key character
///     get-focus|release-focus|colors-changed
///     moved                                         x y
///     resized                                       width height
///     context-menu                                  x y
///     tab-traversal                                 forward (1 or 0)
///
/// Fields have the meaning and the units of the event records. Coordinates and lines are -32768..32767, which
/// is what a display has, widths and heights 0..8192. A line has at most 255 bytes, a recording 200,000
/// lines. passOn and allowNavigation are what listeners make of them, so they are not recorded; painting is
/// not either.
#pragma once

#include "vela7/notify.h"
#include "vela7/window.h"

#include <cstdint>
#include <deque>
#include <iosfwd>
#include <string>

namespace gallery {

/// Writes down what a window receives, for as long as it lives: the last 100,000 records. The window may die
/// first.
class Recorder : vela7::CSubscriber<vela7::IMouseNotify>,
                 vela7::CSubscriber<vela7::IKeyboardNotify>,
                 vela7::CSubscriber<vela7::IFocusNotify>,
                 vela7::CSubscriber<vela7::IWindowNotify>,
                 vela7::CSubscriber<vela7::ITabTraversalNotify>,
                 vela7::CSubscriber<vela7::IContextMenuNotify>
{
public:
    /// Hears before the listeners that are there.
    explicit Recorder(vela7::ISysWindow& window);

    /// Paused, it writes nothing down.
    void Pause(bool pause) { m_paused = pause; }
    /// A comment tells of earlier records that were dropped; the last size among them is kept.
    void Save(std::ostream& out) const;
    /// A new file, for the user alone, in the place of what has that name: what a link points to stays as it
    /// is. False: it cannot be written, and nothing has changed.
    bool SaveAs(const std::string& path) const;

private:
    void OnMousePress(vela7::CMouseEvent* event) override;
    void OnMouseRelease(vela7::CMouseEvent* event) override;
    void OnMouseDoubleClick(vela7::CMouseEvent* event) override;
    void OnMouseMove(vela7::CMouseEvent* event) override;
    void OnMouseWheel(vela7::CMouseWheelEvent* event) override;
    void OnMouseEnter(vela7::CMouseEvent* event) override;
    void OnMouseLeave(vela7::CMouseEvent* event) override;
    void OnKeyPress(vela7::CKeyboardEvent* event) override;
    void OnKeyRelease(vela7::CKeyboardEvent* event) override;
    void OnChar(vela7::CKeyboardEvent* event) override;
    void OnGetFocus(vela7::CEvent* event) override;
    void OnReleaseFocus(vela7::CEvent* event) override;
    void OnMove(vela7::CWindowEvent* event) override;
    void OnResize(vela7::CWindowEvent* event) override;
    void OnSysColorChanged(vela7::CEvent* event) override;
    void OnTabTraversal(vela7::CKeyboardEvent* event) override;
    void OnContextMenu(vela7::CContextMenuEvent* event) override;

    void Add(const char* name, std::initializer_list<std::int64_t> fields);
    void AddMouse(const char* name, const vela7::CMouseEvent& event);
    void AddKey(const char* name, const vela7::CKeyboardEvent& event);

    bool m_paused = false;
    std::deque<std::string> m_lines;
    std::string m_size; // the last one that was dropped
    std::uint64_t m_dropped = 0;
};

/// Gives a window what a recording says, in order, through the hooks that a back-end calls. Ends early when
/// the window is destroyed by it. Empty when all went well, else what is wrong with which line; the lines
/// before it have been replayed. Needs no display: any bytes may be tried in a std::istringstream on a window
/// that is none.
std::string Replay(std::istream& recording, vela7::CSysWindow& window);
/// The same from an ordinary file; from a pipe or a device somebody could go on writing for ever.
std::string ReplayFile(const std::string& path, vela7::CSysWindow& window);

} // namespace gallery
