/// Event records as text: each field with its name.
#pragma once

#include "vela7/events.h"

#include <string>
#include <vector>

namespace gallery {

struct Field
{
    const char* name;
    std::string value;
};
using Fields = std::vector<Field>;

/// The head of a record; window: the sender that is expected.
Fields DescribeHead(const vela7::CEvent& event, const vela7::IEventSender& window);

/// What comes after the head.
Fields Describe(const vela7::CEvent& event);
Fields Describe(const vela7::CMouseEvent& event);
Fields Describe(const vela7::CMouseWheelEvent& event);
Fields Describe(const vela7::CKeyboardEvent& event);
Fields Describe(const vela7::CWindowEvent& event);
Fields Describe(const vela7::CContextMenuEvent& event);

} // namespace gallery
