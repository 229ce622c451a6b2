/// A picture that takes a while to compute, as work for several threads.
#pragma once

#include "vela7/system.h"
#include "vela7/window.h"

#include <functional>
#include <memory>
#include <vector>

namespace gallery {

constexpr int kFractalColumns = 520, kFractalRows = 480;

/// Gets the finished rows, on the GUI thread: how many steps each point took.
using RowTaker = std::function<void(int row, const std::vector<int>& steps)>;

/// Some rows of the picture, one in each call. They reach the taker as long as it lives.
class FractalRows : public vela7::IRunnable
{
public:
    FractalRows(vela7::ISynchronize& gui, const std::shared_ptr<const RowTaker>& taker, int first, int end)
        : m_gui(gui), m_taker(taker), m_row(first), m_end(end)
    {
    }
    bool Run() override;

private:
    vela7::ISynchronize& m_gui;
    const std::weak_ptr<const RowTaker> m_taker;
    int m_row;
    const int m_end;
};

/// Shades of a colour; points that took all steps are dark.
vela7::_color FractalColor(int steps, const vela7::_color& color);

} // namespace gallery
