/// A row of push buttons that a page draws by itself.
#pragma once

#include "style.h"

#include <string>
#include <vector>

namespace gallery {

class Buttons
{
public:
    explicit Buttons(std::vector<std::string> labels);

    /// Remembers where they are; answers the right edge of the last one.
    double Draw(vela7::IPainter& painter, double left, double top, const Style& style);
    static double Height(vela7::IPainter& painter);
    void SetEnabled(int index, bool enabled) { m_items[index].enabled = enabled; }

    void Move(const vela7::point<int>& mouse) { m_hot = Find(mouse); }
    void Press(const vela7::point<int>& mouse) { m_pressed = m_hot = Find(mouse); }
    /// The index of the button that was clicked, else -1.
    int Release(const vela7::point<int>& mouse);

private:
    struct Item
    {
        std::string label;
        bool enabled = true;
        Box box{};
    };
    int Find(const vela7::point<int>& mouse) const;

    std::vector<Item> m_items;
    int m_hot = -1, m_pressed = -1;
};

} // namespace gallery
