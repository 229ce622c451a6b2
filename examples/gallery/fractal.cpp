#include "fractal.h"

#include "style.h"

#include <cmath>
#include <utility>

namespace gallery {

using namespace vela7;

namespace {

constexpr int kAllSteps = 4000;

/// How many steps until the point has left the circle from which nothing comes back.
int Steps(double x, double y)
{
    double re = 0, im = 0;
    int n = 0;
    for (; n < kAllSteps && re * re + im * im < 16; ++n) {
        const double next = re * re - im * im + x;
        im = 2 * re * im + y;
        re = next;
    }
    return n;
}

/// A finished row on its way to the GUI thread.
struct Delivery : IRunnable
{
    Delivery(std::weak_ptr<const RowTaker> to, int number) : taker(std::move(to)), row(number) {}
    bool Run() override
    {
        if (const auto living = taker.lock())
            (*living)(row, steps);
        return false;
    }

    const std::weak_ptr<const RowTaker> taker;
    const int row;
    std::vector<int> steps;
};

} // namespace

bool FractalRows::Run()
{
    auto delivery = std::make_unique<Delivery>(m_taker, m_row);
    for (int x = 0; x < kFractalColumns; ++x)
        delivery->steps.push_back(Steps(-2.1 + 2.8 * x / kFractalColumns, -1.2 + 2.4 * m_row / kFractalRows));
    m_gui.Synchronize(delivery.release()); // deletes it
    return ++m_row < m_end;
}

_color FractalColor(int steps, const _color& color)
{
    if (steps == kAllSteps)
        return {20, 24, 32};
    const double light = 0.5 + 0.5 * std::cos(1.6 * std::log(double(steps + 1)));
    return Mix(Mix(color, clBlack, 0.35), Mix(color, clWhite, 0.85), light);
}

} // namespace gallery
