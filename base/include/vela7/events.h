/// The event records.
///
/// A record is built by the sender on its stack and lives for one delivery; listeners read it and may clear
/// passOn (stops later listeners and the platform's default handling), and must not keep a pointer to it.
/// All records derive singly from CEvent and have no virtual members, so the head stands at offset 0.
/// Thread: GUI.
#pragma once

#include "vela7/baseexport.h"
#include "vela7/types.h"

#include <string>

namespace vela7 {

class IEventSender;
class IPainter;

/// The head of every record; a record of its own where nothing else is to be told.
struct CEvent
{
    IEventSender* sender = nullptr; ///< who reports; alive when the delivery begins
    bool passOn = true;

    CEvent() = default;
    explicit CEvent(IEventSender* from) : sender(from) {}
};

struct CMouseEvent : CEvent
{
    std::uint32_t state = 0; ///< MouseState and KeyState bits of all that is held
    point<int> position;     ///< client coordinates of the window
    std::uint32_t button = mbNone;

    using CEvent::CEvent;
};

struct CMouseWheelEvent : CMouseEvent
{
    std::int32_t delta = 0; ///< lines; positive = away from the user

    using CMouseEvent::CMouseEvent;
};

struct CKeyboardEvent : CEvent
{
    std::uint32_t state = 0;     ///< one KeyState bit or 0; always 0 for characters
    bool allowNavigation = true; ///< cleared: the toolkit does not navigate by this Tab
    std::uint32_t key = 0;       ///< KeyCode; for characters the platform's own code
    unsigned char character = 0; ///< low 8 bits of the character; 0 for presses and releases

    using CEvent::CEvent;
};

/// The key record of in-place editors.
struct CEditKeyEvent : CKeyboardEvent
{
    bool skip = true; ///< cleared: the native editor does not get the key

    using CKeyboardEvent::CKeyboardEvent;

    std::uint32_t& keyState() { return state; }
    bool& defaultProcessing() { return allowNavigation; }
    std::uint32_t& keyCode() { return key; }
    unsigned char& ch() { return character; }
};

/// A move (x, y = position in the parent) or a resize (x, y = width and height of the client area).
struct CWindowEvent : CEvent
{
    std::int32_t x = 0;
    std::int32_t y = 0;

    CWindowEvent() = default;
    CWindowEvent(IEventSender* from, std::int32_t x_, std::int32_t y_) : CEvent(from), x(x_), y(y_) {}
};

struct CContextMenuEvent : CEvent
{
    point<int> position; ///< client coordinates

    using CEvent::CEvent;
};

struct CTimerEvent : CEvent
{
    using CEvent::CEvent;
};

struct CDrawEvent : CEvent
{
    IPainter* painter = nullptr; ///< the window's; valid during the delivery

    CDrawEvent() = default;
    CDrawEvent(IEventSender* from, IPainter* painter_) : CEvent(from), painter(painter_) {}
};

struct CEditTextEvent : CEvent
{
    std::string text;

    using CEvent::CEvent;
};

struct CEditEnterEvent : CEvent
{
    using CEvent::CEvent;
};

struct CComboEvent : CEvent
{
    int index = -1; ///< of the selected item

    using CEvent::CEvent;
};

struct CScrollEvent : CEvent
{
    double value = 0.0;
    int action = 0; ///< ScrollAction

    using CEvent::CEvent;
};

struct CMenuEvent : CEvent
{
    int id = 0; ///< of the chosen item

    using CEvent::CEvent;
};

/// Thrown by a listener to end the delivery of an event silently. Derives from nothing, so that a handler of
/// std::exception in user code cannot swallow it.
class VELA7_BASE_API cancel_processing
{
};

} // namespace vela7
